// Whether a profile can be written, asked without writing it. What it answers is held against the write
// itself.
#include "platform/profilo_scrivibile.h"

#include "platform/profilo.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFile>
#include <QTest>

class tst_profilo_scrivibile : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_nome = QStringLiteral("DIR_FAR\\lumira.ini");
    const QString m_file = m_stazione.Percorso(m_nome);
    const QString m_nativo = m_stazione.Nativo(m_nome);
    const QByteArray m_byte = "; nota\r\n[A]\r\nX=1\r\n";

    QStringList Cartella() const
    {
        return QDir(m_stazione.Nativo(QStringLiteral("DIR_FAR")))
            .entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    bool Scrivi() const
    {
        return Profilo_Scrivi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("2"), m_file);
    }

private Q_SLOTS:
    void init() { m_stazione.Scrivi(m_nome, m_byte); }

    void doveSiScrive()
    {
        QVERIFY(Profilo_Scrivibile(m_file));
        QCOMPARE(m_stazione.Leggi(m_nome), m_byte);
        QCOMPARE(Cartella(), QStringList(QStringLiteral("lumira.ini")));
        QVERIFY(Scrivi());
    }

    void scrittoInUnAltroCaso() { QVERIFY(Profilo_Scrivibile(QString(m_file).toUpper())); }

    void fileMancante()
    {
        QVERIFY(QFile::remove(m_nativo));
        QVERIFY(!Profilo_Scrivibile(m_file));
        QCOMPARE(Cartella(), QStringList());
    }

    /// Root writes it all the same, and is told so.
    void fileDiSolaLettura()
    {
        QVERIFY(QFile::setPermissions(m_nativo, QFileDevice::ReadOwner | QFileDevice::ReadUser));
        const bool scrivibile = Profilo_Scrivibile(m_file);
        const bool scritto = Scrivi();
        QVERIFY(QFile::setPermissions(m_nativo, QFileDevice::ReadOwner | QFileDevice::WriteOwner));
        QCOMPARE(scrivibile, scritto);
    }
};

QTEST_GUILESS_MAIN(tst_profilo_scrivibile)
#include "tst_profilo_scrivibile.moc"
