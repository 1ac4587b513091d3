// The rows of a form's table: defaults, reading, saving, display form.
#include "core/campo_form.h"

#include "core/modGeneral.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

#include <array>

namespace {

CampoForm Campo(const char16_t *sezione, const char16_t *chiave, const char16_t *valore)
{
    CampoForm campo;
    campo.File = gFileIni;
    campo.Section = QString::fromUtf16(sezione);
    campo.Key = QString::fromUtf16(chiave);
    campo.Value = QString::fromUtf16(valore);
    return campo;
}

/// A row in which nothing stands at its default.
CampoForm Campo_Pieno()
{
    CampoForm campo = Campo(u"SEZ", u"Chiave", u"valore");
    campo.Nome = QStringLiteral("nome");
    campo.LabelId = MctcEsci;
    campo.Kind = CampoCombo;
    campo.CtlIndex = 3;
    campo.Editable = Falso;
    campo.Dirty = Vero;
    campo.LabelEnabledByEditable = 1;
    campo.List = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    campo.ListIndexDefault = 1;
    campo.ValueKind = ValoreData;
    campo.DateFormat = 0;
    campo.CtlLeft = campo.CtlTop = campo.CtlHeight = campo.CtlWidth = 100;
    campo.LabelLeft = campo.LabelTop = 100;
    return campo;
}

} // namespace

class tst_campo_form : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void azzeraDaIPredefiniti()
    {
        std::array<CampoForm, 2> tabella = {Campo_Pieno(), Campo_Pieno()};
        Campi_Azzera(tabella, 1);
        for (const CampoForm &campo : tabella) {
            QCOMPARE(campo.Nome, QString());
            QCOMPARE(campo.LabelId, MctcNessuno);
            QCOMPARE(campo.Value, QString());
            QCOMPARE(campo.Kind, quint8{0});
            QCOMPARE(campo.CtlIndex, qint16{-1});
            QCOMPARE(campo.Section, QString());
            QCOMPARE(campo.Key, QString());
            QCOMPARE(campo.Editable, Vero);
            QCOMPARE(campo.Dirty, Falso);
            QCOMPARE(campo.LabelEnabledByEditable, quint8{0});
            QCOMPARE(campo.ListIndexDefault, qint16{0});
            QCOMPARE(campo.ValueKind, qint16{-1});
            QCOMPARE(campo.DateFormat, qint16{-1});
            QCOMPARE(campo.File, QString());
            QCOMPARE(campo.CtlLeft, qint16{-1});
            QCOMPARE(campo.CtlTop, qint16{-1});
            QCOMPARE(campo.CtlHeight, qint16{-1});
            QCOMPARE(campo.CtlWidth, qint16{-1});
            QCOMPARE(campo.LabelLeft, qint16{-1});
            QCOMPARE(campo.LabelTop, qint16{-1});
        }
    }

    void azzeraLasciaLaLista()
    {
        std::array<CampoForm, 1> tabella = {Campo_Pieno()};
        Campi_Azzera(tabella, 0);
        QCOMPARE(tabella[0].List, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void azzeraFinoAllUltimaRiga()
    {
        std::array<CampoForm, 3> tabella = {Campo_Pieno(), Campo_Pieno(), Campo_Pieno()};
        Campi_Azzera(tabella, 1);
        QVERIFY(tabella[1].Value.isEmpty());
        QCOMPARE(tabella[2].Value, QStringLiteral("valore"));
    }

    void ultimaRigaNegativaNonFaNulla()
    {
        std::array<CampoForm, 1> tabella = {Campo_Pieno()};
        Campi_Azzera(tabella, -1);
        Campi_Azzera(tabella, -32768);
        QCOMPARE(tabella[0].Value, QStringLiteral("valore"));
    }

    /// The numbers of kinds stand in the tables of the forms and in what they keep.
    void numeriDeiTipi()
    {
        QCOMPARE(int{CampoTesto}, 1);
        QCOMPARE(int{CampoCombo}, 2);
        QCOMPARE(int{CampoSpunta}, 4);
        QCOMPARE(int{CampoSoloValore}, 5);
        QCOMPARE(int{ValoreTesto}, 0);
        QCOMPARE(int{ValoreNumero}, 1);
        QCOMPARE(int{ValoreData}, 2);
        QCOMPARE(int{ValoreOra}, 3);
    }

    void leggeDalFileDellaRiga()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("altro.ini"), "[SEZ]\r\nChiave=altrove\r\n");
        CampoForm campo = Campo(u"SEZ", u"Chiave", u"prima");
        campo.File = stazione.Percorso(QStringLiteral("altro.ini"));
        Campo_Leggi(campo);
        QCOMPARE(campo.Value, QStringLiteral("altrove"));
        QCOMPARE(campo.Dirty, Falso);
    }

    void senzaChiaveIlValoreRestaVuoto()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("lumira.ini"), "[SEZ]\r\n=nessuno\r\n");
        CampoForm campo = Campo(u"SEZ", u"", u"prima");
        Campo_Leggi(campo);
        QCOMPARE(campo.Value, QString());
    }

    void chiaveMancanteOVuotaSvuotaIlValore()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("lumira.ini"), "[SEZ]\r\nVuota=\r\n");
        for (const char16_t *chiave : {u"Vuota", u"Manca"}) {
            CampoForm campo = Campo(u"SEZ", chiave, u"prima");
            Campo_Leggi(campo);
            QCOMPARE(campo.Value, QString());
        }
    }

    void salvaSoloLeRigheCambiateConUnaSezione()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("lumira.ini"), "[SEZ]\r\nA=1\r\nB=1\r\nC=1\r\nD=1\r\n");
        std::array<CampoForm, 4> tabella = {Campo(u"SEZ", u"A", u"9"), Campo(u"SEZ", u"B", u"9"),
                                            Campo(u"", u"C", u"9"), Campo(u"SEZ", u"D", u"9")};
        tabella[0].Dirty = tabella[2].Dirty = tabella[3].Dirty = Vero;
        Campi_Salva(tabella, 2);
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini")), "[SEZ]\r\nA=9\r\nB=1\r\nC=1\r\nD=1\r\n");
    }

    /// Whatever file a row was read from, its place is lumira.ini.
    void salvaSempreInLumiraIni()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("lumira.ini"), "[SEZ]\r\nA=1\r\n");
        stazione.Scrivi(QStringLiteral("altro.ini"), "[SEZ]\r\nA=1\r\n");
        std::array<CampoForm, 1> tabella = {Campo(u"SEZ", u"A", u"9")};
        tabella[0].File = stazione.Percorso(QStringLiteral("altro.ini"));
        tabella[0].Dirty = Vero;
        Campi_Salva(tabella, 0);
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini")), "[SEZ]\r\nA=9\r\n");
        QCOMPARE(stazione.Leggi(QStringLiteral("altro.ini")), "[SEZ]\r\nA=1\r\n");
    }

    void formato_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<int>("formato");
        QTest::addColumn<QString>("atteso");
        QTest::newRow("date") << QStringLiteral("15032024") << 0 << QStringLiteral("15/03/2024");
        QTest::newRow("date of 7") << QStringLiteral("1234567") << 0 << QStringLiteral("1234567");
        QTest::newRow("date of 9") << QStringLiteral("123456789") << 0 << QStringLiteral("123456789");
        QTest::newRow("date of letters") << QStringLiteral("abcdefgh") << 0 << QStringLiteral("ab/cd/efgh");
        QTest::newRow("time") << QStringLiteral("102030") << 1 << QStringLiteral("10.20.30");
        QTest::newRow("time of 5") << QStringLiteral("12345") << 1 << QStringLiteral("12345");
        QTest::newRow("time of 7") << QStringLiteral("1234567") << 1 << QStringLiteral("1234567");
        QTest::newRow("a date is no time") << QStringLiteral("15032024") << 1 << QStringLiteral("15032024");
        QTest::newRow("a time is no date") << QStringLiteral("102030") << 0 << QStringLiteral("102030");
        QTest::newRow("as stored") << QStringLiteral("15032024") << -1 << QStringLiteral("15032024");
        QTest::newRow("another format") << QStringLiteral("15032024") << 2 << QStringLiteral("15032024");
        QTest::newRow("empty") << QString() << 0 << QString();
    }
    void formato()
    {
        QFETCH(QString, valore);
        QFETCH(int, formato);
        QTEST(Campo_Formato(valore, qint16(formato)), "atteso");
    }
};

QTEST_GUILESS_MAIN(tst_campo_form)
#include "tst_campo_form.moc"
