// The pseudo terminal. The station opens and closes its end at every session, so the master end outlives
// any number of them. The other end is not kept open here: the program would never learn that a session is
// over, and what it sends between two sessions would lie in wait for the next one.
#include "simulatore/linea.h"

#include <QFile>
#include <QSocketNotifier>
#include <QTimer>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace {

/// How often a line without a station is looked at. A hung-up master is ready for reading all the time, so
/// there is no event to wait for.
constexpr int OGNI_MS = 20;

QString Errore_Sistema()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

class LineaPty : public Linea
{
public:
    LineaPty()
    {
        QObject::connect(&m_attesa, &QTimer::timeout, &m_attesa, [this] { Cerca_Stazione(); });
    }
    ~LineaPty() override { Rilascia(); }

    bool Apri(QString &errore) override;
    void Chiudi() override { Rilascia(); }
    QString Nome() const override { return m_nome; }
    bool Scrivi(const QByteArray &byte) override;

private:
    bool Prepara();
    void Rilascia();
    void Cerca_Stazione();
    void Leggi();
    void Senza_Stazione();
    bool Stazione_Assente(short &eventi) const;

    int m_master = -1;
    QString m_nome;
    std::unique_ptr<QSocketNotifier> m_avviso; // there while a station has the other end open
    QTimer m_attesa;
};

bool LineaPty::Apri(QString &errore)
{
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_master >= 0 && Prepara()) {
        Senza_Stazione();
        return true;
    }
    errore = Errore_Sistema();
    Rilascia();
    return false;
}

/// Makes the station's end usable and raw.
bool LineaPty::Prepara()
{
    if (::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
        return false;
    const char *nome = ::ptsname(m_master);
    if (nome == nullptr)
        return false;
    m_nome = QFile::decodeName(nome);
    termios modo{};
    if (::tcgetattr(m_master, &modo) != 0)
        return false;
    ::cfmakeraw(&modo);
    return ::tcsetattr(m_master, TCSANOW, &modo) == 0;
}

void LineaPty::Rilascia()
{
    m_attesa.stop();
    m_avviso.reset();
    if (m_master >= 0)
        ::close(m_master);
    m_master = -1;
    m_nome.clear();
}

/// Starts waiting for the next session. What the last one left unread would come in as the first reply of
/// the next; it lies in the station's end, so that end is opened to drop it. The closing leaves the line hung
/// up, before the first session too: so there is one sign for a line without a station.
void LineaPty::Senza_Stazione()
{
    m_avviso.reset();
    const int altro = ::open(QFile::encodeName(m_nome).constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (altro >= 0) {
        ::tcflush(altro, TCIFLUSH);
        ::close(altro);
    }
    m_attesa.start(OGNI_MS);
}

bool LineaPty::Stazione_Assente(short &eventi) const
{
    pollfd chiesto{m_master, POLLIN, 0};
    ::poll(&chiesto, 1, 0);
    eventi = chiesto.revents;
    return (eventi & POLLHUP) != 0;
}

void LineaPty::Cerca_Stazione()
{
    short eventi = 0;
    // A session may have come and gone since the last look: its bytes are there all the same.
    if (Stazione_Assente(eventi) && (eventi & POLLIN) == 0)
        return;
    m_attesa.stop();
    m_avviso = std::make_unique<QSocketNotifier>(m_master, QSocketNotifier::Read);
    QObject::connect(m_avviso.get(), &QSocketNotifier::activated, &m_attesa, [this] { Leggi(); });
}

void LineaPty::Leggi()
{
    char byte[4096];
    const ssize_t letti = ::read(m_master, byte, sizeof byte);
    if (letti > 0) {
        Ricevuti(QByteArray(byte, static_cast<qsizetype>(letti)));
    } else if (letti == 0 || (errno != EAGAIN && errno != EINTR)) {
        Senza_Stazione();
        Lasciata();
    }
}

bool LineaPty::Scrivi(const QByteArray &byte)
{
    short eventi = 0;
    if (m_master < 0 || Stazione_Assente(eventi))
        return false;
    // A station that does not read lets the buffer of the terminal fill: the rest is lost, as on a cable.
    return ::write(m_master, byte.constData(), static_cast<size_t>(byte.size())) == byte.size();
}

} // namespace

std::unique_ptr<Linea> Crea_LineaPty()
{
    return std::make_unique<LineaPty>();
}
