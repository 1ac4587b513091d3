// Counts how often a file is opened, by the file system's own events.
#pragma once

#include <QFile>
#include <QTest>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

class Aperture
{
public:
    /// Closings are watched only to stand between two openings: equal events in a row come as one.
    /// @param nativo a file that is there.
    explicit Aperture(const QString &nativo) : m_notifiche(::inotify_init1(IN_NONBLOCK))
    {
        if (::inotify_add_watch(m_notifiche, QFile::encodeName(nativo).constData(), IN_OPEN | IN_CLOSE) < 0)
            qFatal("cannot watch %s", qPrintable(nativo));
    }
    ~Aperture() { ::close(m_notifiche); }
    Q_DISABLE_COPY_MOVE(Aperture)

    /// Openings since the last question.
    int Conta() const
    {
        int aperture = 0;
        inotify_event evento; // a watch on a file delivers records without a name
        while (::read(m_notifiche, &evento, sizeof evento) == ssize_t(sizeof evento))
            aperture += (evento.mask & IN_OPEN) != 0 ? 1 : 0;
        return aperture;
    }

private:
    int m_notifiche;
};

/// Waits until the clock that stamps files has left the stamp of this one by some seconds: from then on a
/// change is bound to show.
inline bool Attendi_Timbro(const QString &nativo, int secondi)
{
    const QByteArray nome = QFile::encodeName(nativo);
    const auto passato = [&nome, secondi] {
        struct stat stato;
        timespec ora;
        ::clock_gettime(CLOCK_REALTIME_COARSE, &ora);
        if (::stat(nome.constData(), &stato) != 0)
            return false;
        const time_t limite = stato.st_ctim.tv_sec + secondi;
        return ora.tv_sec > limite || (ora.tv_sec == limite && ora.tv_nsec > stato.st_ctim.tv_nsec);
    };
    return QTest::qWaitFor(passato, (secondi + 5) * 1000);
}
