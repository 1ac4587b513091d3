// Plain file operations where the system refuses: a full disk, files without the right to them, and one that
// opens and cannot be read.
#include "platform/file.h"

#include "tests/comuni/errore_prova.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QTest>

#include <sys/stat.h>

class tst_file_posix : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;

private Q_SLOTS:
    void discoPienoDa61()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("this system has no device that is always full");
        QCOMPARE(Errore_Di([] { File_ScriviRighe(QStringLiteral("\\dev\\full"), {QStringLiteral("a")}); }),
                 61);
    }

    void letturaInterrottaDa70()
    {
        if (!QFile::exists(QStringLiteral("/proc/self/mem")))
            QSKIP("this system has no file whose first byte cannot be read");
        QCOMPARE(Errore_Di([] { FileRighe righe(QStringLiteral("\\proc\\self\\mem")); }), 70);
    }

    void senzaPermessoDa70()
    {
        const QString nome = QStringLiteral("DIR_FAR\\prova.txt");
        m_stazione.Scrivi(nome, "x");
        const auto permessi = [this](const QString &quale, mode_t modo) {
            return ::chmod(QFile::encodeName(m_stazione.Nativo(quale)).constData(), modo) == 0;
        };
        QVERIFY(permessi(QString(), 0755) && permessi(QStringLiteral("DIR_FAR"), 0555) && permessi(nome, 0));
        int scritto = 0, letto = 0, eliminato = 0;
        {
            const SenzaPrivilegi senza;
            const QString file = m_stazione.Percorso(nome);
            scritto = Errore_Di([&] { File_ScriviRighe(file, {QStringLiteral("a")}); });
            letto = Errore_Di([&] { FileRighe righe(file); });
            eliminato = Errore_Di([&] { File_Elimina(file); });
        }
        QVERIFY(permessi(QStringLiteral("DIR_FAR"), 0755) && permessi(nome, 0644));
        QCOMPARE(scritto, 70);
        QCOMPARE(letto, 70);
        QCOMPARE(eliminato, 70);
        QCOMPARE(m_stazione.Leggi(nome), "x");
    }
};

QTEST_GUILESS_MAIN(tst_file_posix)
#include "tst_file_posix.moc"
