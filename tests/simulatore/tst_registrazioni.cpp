// Every record of tests/registrazioni, played to the station up to the result file: a fault that was seen in
// a workshop and recorded there lies in that folder with the .far that has to come of it, and stays seen to.
#include "simulatore/riproduzione.h"

#include "app/modApp.h"
#include "core/codici.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "link/scambio.h"
#include "tests/comuni/linea_prova.h"
#include "tests/comuni/locale_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QTest>

namespace {

constexpr qint64 PASSO = 100;               // ms by which the clock moves
constexpr qint64 DURATA_MASSIMA = 86400000; // of a session, in ms
constexpr int SESSIONI_MASSIME = 20; // a record that no longer brings a measure would be played for ever

QByteArray File_Letto(const QString &percorso)
{
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// One session of measurement with the instrument of a record, from its start to the end of its window.
/// @return how it ended, a NotificaSessione.
qint16 Sessione_Fai(OrologioProva &orologio, Riproduzione &strumento)
{
    LineaProva linea(orologio);
    FinestraProva finestra(orologio);
    MacchinaScambio macchina(finestra, linea);
    finestra.Macchina = &macchina;
    linea.Rispondi = [&linea, &strumento](const QByteArray &frame) {
        for (const Invio &invio : strumento.Ricevi(frame))
            linea.Arriva_Dopo(invio.ritardo, invio.byte);
        return QByteArray();
    };
    macchina.Modo = ModoMisura;
    macchina.Prepara();
    macchina.Avvia();
    const qint64 fine = orologio.Passati() + DURATA_MASSIMA;
    while (finestra.Notifiche.isEmpty() && orologio.Passati() < fine)
        orologio.Avanza(PASSO);
    strumento.Linea_Lasciata();
    return finestra.Notifiche.isEmpty() ? qint16{SessioneFallita} : finestra.Notifiche.first();
}

} // namespace

class tst_registrazioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Imposta_Locale(QLocale::c()); }
    void stessoFar_data();
    void stessoFar();
};

void tst_registrazioni::stessoFar_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("volte"); // how much slower it was recorded, and how much faster it is played
    const QDir cartella(QStringLiteral(QX5SIM_REGISTRAZIONI));
    const QStringList nomi = cartella.entryList({QStringLiteral("*.txt")});
    QVERIFY(nomi.size() >= 4);
    for (const QString &nome : nomi) {
        QTest::newRow(qUtf8Printable(nome)) << cartella.filePath(nome) << 1;
        QTest::newRow(qUtf8Printable(nome + QStringLiteral(", dieci volte")))
            << cartella.filePath(nome) << 10;
    }
}

void tst_registrazioni::stessoFar()
{
    QFETCH(QString, file);
    QFETCH(int, volte);
    Registrazione registrazione;
    QCOMPARE(Registrazione_Leggi(file, registrazione), QStringList());
    QVERIFY2(!registrazione.far.isEmpty(), "it names no result file");
    for (BranoLinea &brano : registrazione.brani)
        brano.ms *= volte;

    OrologioProva orologio;
    const StazioneProva stazione;
    gFileAcc = stazione.Accettazione(QStringLiteral("12345678.acc"));
    gTipoProva = ProvaConfermata;
    gAltezzaFaro = 65;
    gRepMisure[RepInizio] = orologio.Adesso().toString(QStringLiteral("hh:mm:ss"));
    QStringList registro;
    Riproduzione strumento(registrazione, volte, [&registro](const QString &riga) { registro.append(riga); });
    // The operator starts a session that has failed once more.
    qint16 esito = SessioneFallita;
    for (int n = 0; n < SESSIONI_MASSIME && esito != SessioneCompletata; ++n)
        esito = Sessione_Fai(orologio, strumento);
    QVERIFY2(!strumento.Diversa(), qUtf8Printable(registro.join(u'\n')));
    QVERIFY2(strumento.Finita(), qUtf8Printable(registro.join(u'\n')));
    QCOMPARE(esito, qint16{SessioneCompletata});
    Calcola_Esito();
    QCOMPARE(stazione.Leggi(QStringLiteral("DIR_FAR\\12345678.far")),
             File_Letto(QFileInfo(file).dir().filePath(registrazione.far)));
}

QTEST_GUILESS_MAIN(tst_registrazioni)
#include "tst_registrazioni.moc"
