#include "core/modCtl.h"

#include "core/modGeneral.h"
#include "platform/colore_qt.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/figlio_prova.h"
#include "tests/forms/modulo_prova.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QComboBox>
#include <QFile>

#include <array>
#include <cstdio>

namespace {

constexpr qint16 ULTIMA_RIGA = 9;

using Tabella = std::array<CampoForm, ULTIMA_RIGA + 1>;

/// The rows of the test's form.
enum RigaProva : qint16
{
    RigaTarga = 0,
    RigaLingua = 1,
    RigaBloccata = 2,
    RigaValore = 3,
    RigaSpunta = 4,
    RigaComboSpenta = 5,
    RigaVuota = 6,
    RigaSpuntaSpenta = 7,
    RigaSenzaChiave = 8,
    RigaTelaio = 9,
};

struct DisegnoRiga
{
    quint8 controllo;
    qint16 etichetta;
    const char16_t *chiave;
    Flag modificabile;
};

constexpr DisegnoRiga RIGHE[] = {
    {CampoTesto,      37, u"Targa",   Vero },
    {CampoCombo,      81, u"Lingua",  Vero },
    {CampoTesto,      57, u"Data",    Falso},
    {CampoSoloValore, 7,  u"Nota",    Vero },
    {CampoSpunta,     1,  u"Spunta1", Vero },
    {CampoCombo,      82, u"Porta",   Falso},
    {CampoNessuno,    -1, u"",        Vero },
    {CampoSpunta,     2,  u"Spunta2", Falso},
    {CampoTesto,      -1, u"",        Vero },
    {CampoTesto,      -1, u"Telaio",  Vero },
};

void Disegna(ModuloProva &form)
{
    form.txt.Carica(0).Posto(100, 100, 2000, 300);
    form.cbo.Carica(0).Posto(100, 100, 2500, 300);
    form.chk.Carica(0).Posto(100, 100, 500, 300);
    form.lbl.Carica(0).Posto(100, 100, 1500, 300);
}

QColor Sfondo(const Controllo &controllo)
{
    const QImage vista = controllo.Widget()->grab().toImage();
    return vista.pixelColor(vista.width() / 2, 4);
}

/// What an assistive technology is given. (A combo box tells its item by itself, beside this.)
QString Nome_Letto(const Controllo &controllo)
{
    return controllo.Widget()->accessibleName();
}

} // namespace

class tst_modCtl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    // the grid
    void grigliaInteraELoSchermo_data();
    void grigliaInteraELoSchermo();
    void grigliaIdentica();
    void grigliaMetaAlPari_data();
    void grigliaMetaAlPari();
    void grigliaOverflow();
    void grigliaSediciBit();
    void corniceQuattroLati();
    void corniceAngoliInQualunqueOrdine();

    // making the controls
    void creaNumeraPerTipo();
    void creaRigaNelTag();
    void creaAlSuoPosto();
    void creaModificabileONo();
    void creaUnEtichettaPerOgniRiga();
    void creaSenzaRighe();

    // showing the values
    void applicaITesti();
    void applicaLeDate();
    void applicaLaCombo();
    void applicaComboFuori9_data();
    void applicaComboFuori9();
    void applicaLaSpunta_data();
    void applicaLaSpunta();
    void applicaSenzaChiaveVuota();
    void applicaIlValoreSenzaControllo();
    void applicaNonFaClic();

    // captions
    void didascalie();
    void didascaliaSpenta_data();
    void didascaliaSpenta();
    void didascalieNellaLinguaInForza();
    void didascalieSenzaFileDeiTesti();
    void nomiAccessibili();

    void scaricaDaUnoInSu();
    void scaricaEPoiDiNuovo();
    void rigaDaUnControllo();
    void testoBloccato();
    void spuntaDalProgramma();

    void ogniSchermo_data();
    void ogniSchermo();

private:
    void Prepara_Tabella();
    void Carica();
    /// Makes and shows the form of the table as it stands.
    void Mostra();

    std::unique_ptr<StazioneProva> m_stazione;
    std::shared_ptr<ModuloProva> m_form;
    Tabella m_tabella;
};

void tst_modCtl::init()
{
    m_stazione = std::make_unique<StazioneProva>();
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    Prepara_Tabella();
    m_form = Nuovo<ModuloProva>();
    m_form->AlDisegno = [this] { Disegna(*m_form); };
}

void tst_modCtl::cleanup()
{
    Scarica_Tutti();
    m_form.reset();
    m_stazione.reset();
}

void tst_modCtl::Prepara_Tabella()
{
    m_tabella = {};
    for (qint16 riga = 0; riga <= ULTIMA_RIGA; ++riga) {
        CampoForm &campo = m_tabella[static_cast<size_t>(riga)];
        const DisegnoRiga &disegno = RIGHE[riga];
        campo.Kind = disegno.controllo;
        campo.LabelId = Id_Mctc(disegno.etichetta);
        campo.File = gFileIni;
        campo.Section = QStringLiteral("PROVA");
        campo.Key = QString::fromUtf16(disegno.chiave);
        campo.Editable = disegno.modificabile;
        campo.CtlLeft = Intero16(1500 + riga * 30);
        campo.CtlTop = Intero16(150 + riga * 450);
        campo.LabelLeft = Intero16(150 + riga * 15);
        campo.LabelTop = Intero16(165 + riga * 450);
        campo.List = {QStringLiteral("uno"), QStringLiteral("due"), QStringLiteral("tre")};
    }
}

void tst_modCtl::Carica()
{
    m_form->Carica();
    Campi_Crea(m_tabella, ULTIMA_RIGA, *m_form);
}

void tst_modCtl::Mostra()
{
    Carica();
    Campi_Applica(m_tabella, ULTIMA_RIGA, *m_form);
    m_form->Mostra();
}

// --- the grid ---------------------------------------------------------------------------------------------

void tst_modCtl::grigliaInteraELoSchermo_data()
{
    Righe_PerSchermo();
}

void tst_modCtl::grigliaInteraELoSchermo()
{
    QFETCH(QSize, schermo);
    gScreenW = qRound(schermo.width() * Twip_PerPixel(schermo));
    gScreenH = qRound(schermo.height() * Twip_PerPixel(schermo));
    QCOMPARE(ScalaX(15360), gScreenW);
    QCOMPARE(ScalaY(11520), gScreenH);
    QCOMPARE(ScalaX(0), 0);
    QCOMPARE(ScalaX(7680), qRound(gScreenW / 2.0 - 0.1)); // an odd half goes down here to its even neighbour
    for (qint32 x = 0; x <= 15360; x += 10)
        QVERIFY(ScalaX_16(x) <= gScreenW);
    for (qint32 y = 0; y <= 11520; y += 10)
        QVERIFY(ScalaY_16(y) <= gScreenH);
}

void tst_modCtl::grigliaIdentica()
{
    gScreenW = 15360;
    gScreenH = 11520;
    for (qint32 v = -1000; v <= 15360; ++v) {
        QCOMPARE(ScalaX(v), v);
        QCOMPARE(ScalaY(v), v);
    }
}

void tst_modCtl::grigliaMetaAlPari_data()
{
    QTest::addColumn<int>("valore");
    QTest::addColumn<int>("atteso");
    const int righe[][2] = {
        {1,  0 },
        {3,  2 },
        {5,  2 },
        {7,  4 },
        {-1, 0 },
        {-3, -2},
        {-5, -2},
        {2,  1 }
    };
    for (const auto &riga : righe)
        QTest::addRow("%d", riga[0]) << riga[0] << riga[1];
}

void tst_modCtl::grigliaMetaAlPari()
{
    QFETCH(int, valore);
    QFETCH(int, atteso);
    gScreenW = 7680;
    gScreenH = 5760;
    QCOMPARE(ScalaX(valore), atteso);
    QCOMPARE(ScalaY(valore), atteso);
}

void tst_modCtl::grigliaOverflow()
{
    gScreenW = 15360;
    gScreenH = 11520;
    QCOMPARE(ScalaX(139810), 139810);
    QCOMPARE(Errore_Di([] { ScalaX(139811); }), 6);
    QCOMPARE(ScalaX(-139810), -139810);
    QCOMPARE(Errore_Di([] { ScalaX(-139811); }), 6);
    QCOMPARE(ScalaY(186413), 186413);
    QCOMPARE(Errore_Di([] { ScalaY(186414); }), 6);
    QCOMPARE(Errore_Di([] { ScalaY(2147483647); }), 6);
}

void tst_modCtl::grigliaSediciBit()
{
    gScreenW = 32760;
    gScreenH = 32767;
    QCOMPARE(ScalaX_16(15360), qint16{32760});
    QCOMPARE(Errore_Di([] { ScalaX_16(15364); }), 6);
    QCOMPARE(ScalaX(15364), 32769);
    QCOMPARE(ScalaY_16(11520), qint16{32767});
    QCOMPARE(Errore_Di([] { ScalaY_16(11521); }), 6);
    QCOMPARE(Errore_Di([] { ScalaX_16(-15370); }), 6);
}

void tst_modCtl::corniceQuattroLati()
{
    m_form->AlPaint = [this] { Disegna_Cornice(*m_form, 3000, 1500, 6000, 4500); };
    m_form->Mostra();
    const QImage vista = m_form->Finestra()->grab().toImage();
    const QColor cornice = Colore_Cornice();
    const QRect lati(QPoint(200, 100), QPoint(400, 300));
    for (int x = 150; x <= 450; ++x) {
        for (int y = 50; y <= 350; ++y) {
            const bool bordo = lati.contains(x, y) && !lati.adjusted(1, 1, -1, -1).contains(x, y);
            if ((vista.pixelColor(x, y) == cornice) != bordo)
                QFAIL(qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
        }
    }
}

void tst_modCtl::corniceAngoliInQualunqueOrdine()
{
    m_form->AlPaint = [this] { Disegna_Cornice(*m_form, 6000, 4500, 3000, 1500); };
    m_form->Mostra();
    const QImage vista = m_form->Finestra()->grab().toImage();
    for (const QPoint punto : {QPoint(200, 100), QPoint(400, 300), QPoint(300, 100), QPoint(200, 200),
                               QPoint(400, 200), QPoint(300, 300)})
        QCOMPARE(vista.pixelColor(punto), Colore_Cornice());
}

// --- making the controls ----------------------------------------------------------------------------------

void tst_modCtl::creaNumeraPerTipo()
{
    Carica();
    const qint16 attesi[] = {0, 0, 1, -1, 0, 1, -1, 1, 2, 3};
    for (size_t riga = 0; riga < m_tabella.size(); ++riga)
        QCOMPARE(m_tabella[riga].CtlIndex, attesi[riga]);
    QCOMPARE(m_form->txt.UBound(), qint16{3});
    QCOMPARE(m_form->cbo.UBound(), qint16{1});
    QCOMPARE(m_form->chk.UBound(), qint16{1});
    QCOMPARE(m_form->txt[3].Widget()->objectName(), QStringLiteral("txt_3"));
}

void tst_modCtl::creaRigaNelTag()
{
    Carica();
    QCOMPARE(m_form->txt[0].Tag(), QStringLiteral("0"));
    QCOMPARE(m_form->txt[1].Tag(), QStringLiteral("2"));
    QCOMPARE(m_form->txt[3].Tag(), QStringLiteral("9"));
    QCOMPARE(m_form->cbo[0].Tag(), QStringLiteral("1"));
    QCOMPARE(m_form->cbo[1].Tag(), QStringLiteral("5"));
    QCOMPARE(m_form->chk[0].Tag(), QStringLiteral("4"));
    QCOMPARE(m_form->chk[1].Tag(), QStringLiteral("7"));
}

void tst_modCtl::creaAlSuoPosto()
{
    m_tabella[RigaTarga].CtlWidth = 3300;
    m_tabella[RigaComboSpenta].CtlWidth = 900;
    m_tabella[RigaSpunta].CtlWidth = 3000;
    Carica();
    QCOMPARE(m_form->txt[0].Widget()->geometry(), QRect(100, 10, 220, 20));
    QCOMPARE(m_form->txt[1].Left(), 1560);
    QCOMPARE(m_form->txt[1].Top(), 1050);
    QCOMPARE(m_form->txt[1].Width(), 3300); // the design width is that of member 0
    QCOMPARE(m_form->txt[1].Height(), 300);
    QCOMPARE(m_form->cbo[0].Width(), 2500);
    QCOMPARE(m_form->cbo[1].Width(), 900);
    QCOMPARE(m_form->chk[0].Width(), 500); // a check box takes none
    QCOMPARE(m_form->chk[0].Left(), 1620);
    QCOMPARE(m_form->chk[0].Top(), 1950);
}

void tst_modCtl::creaModificabileONo()
{
    Carica();
    m_form->Mostra();
    QVERIFY(!m_form->txt[0].Locked());
    QVERIFY(m_form->txt[1].Locked());
    QVERIFY(m_form->txt[1].Enabled()); // greyed, and still to be read
    QCOMPARE(Sfondo(m_form->txt[0]), Colore_Da(COLORE_SISTEMA_FINESTRA));
    QCOMPARE(Sfondo(m_form->txt[1]), Colore_Da(COLORE_SISTEMA_GRIGIO));
    QVERIFY(m_form->cbo[0].Enabled());
    QVERIFY(!m_form->cbo[1].Enabled());
    QVERIFY(m_form->chk[0].Enabled());
    QVERIFY(!m_form->chk[1].Enabled());
    for (qint16 i = 0; i <= 3; ++i)
        QVERIFY(m_form->txt[i].Visible());
    for (qint16 i = 0; i <= 1; ++i)
        QVERIFY(m_form->cbo[i].Visible() && m_form->chk[i].Visible());
}

void tst_modCtl::creaUnEtichettaPerOgniRiga()
{
    Carica();
    QCOMPARE(m_form->lbl.UBound(), ULTIMA_RIGA);
    for (qint16 riga = 0; riga <= ULTIMA_RIGA; ++riga) {
        QVERIFY(m_form->lbl.Esiste(riga));
        QVERIFY(!m_form->lbl[riga].Visible()); // the captions make them visible
    }
}

void tst_modCtl::creaSenzaRighe()
{
    m_form->Carica();
    Campi_Crea({}, -1, *m_form);
    Campi_Applica({}, -1, *m_form);
    QCOMPARE(m_form->txt.UBound(), qint16{0});
    QCOMPARE(m_form->lbl.UBound(), qint16{0});
    QVERIFY(!m_form->txt[0].Visible());
}

// --- showing the values -----------------------------------------------------------------------------------

void tst_modCtl::applicaITesti()
{
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Targa"), QStringLiteral("AB123CD"));
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Telaio"), QStringLiteral("ZFA1230000"));
    m_tabella[RigaTarga].Value = QStringLiteral("vecchia");
    Mostra();
    QCOMPARE(m_form->txt[0].Text(), QStringLiteral("AB123CD"));
    QCOMPARE(m_tabella[RigaTarga].Value, QStringLiteral("AB123CD"));
    QCOMPARE(m_form->txt[3].Text(), QStringLiteral("ZFA1230000"));
    QCOMPARE(m_form->txt[1].Text(), QString()); // its key is missing
    QCOMPARE(m_tabella[RigaTarga].Dirty, Falso);
}

void tst_modCtl::applicaLeDate()
{
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Data"), QStringLiteral("15032024"));
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Telaio"), QStringLiteral("102030"));
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Targa"), QStringLiteral("1234567"));
    m_tabella[RigaBloccata].DateFormat = 0;
    m_tabella[RigaTelaio].DateFormat = 1;
    m_tabella[RigaTarga].DateFormat = 0;
    Mostra();
    QCOMPARE(m_form->txt[1].Text(), QStringLiteral("15/03/2024"));
    QCOMPARE(m_form->txt[3].Text(), QStringLiteral("10.20.30"));
    QCOMPARE(m_form->txt[0].Text(), QStringLiteral("1234567"));
    QCOMPARE(m_tabella[RigaBloccata].Value, QStringLiteral("15032024")); // the row keeps what is stored
}

void tst_modCtl::applicaLaCombo()
{
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Lingua"), QStringLiteral("tre"));
    m_tabella[RigaLingua].ListIndexDefault = 1;
    m_tabella[RigaComboSpenta].List = {QStringLiteral("QX5")};
    Mostra();
    const auto *combo = qobject_cast<QComboBox *>(m_form->cbo[0].Widget());
    QCOMPARE(combo->count(), 3);
    QCOMPARE(combo->itemText(2), QStringLiteral("tre"));
    QCOMPARE(m_form->cbo[0].Text(), QStringLiteral("due")); // the table says which, not the file
    QCOMPARE(m_tabella[RigaLingua].Value, QStringLiteral("tre"));
    QCOMPARE(m_form->cbo[1].Text(), QStringLiteral("QX5"));
}

void tst_modCtl::applicaComboFuori9_data()
{
    QTest::addColumn<int>("voci");
    QTest::addColumn<int>("indice");
    QTest::newRow("lista vuota") << 0 << 0;
    QTest::newRow("nessuna voce valida") << 3 << -1;
    QTest::newRow("oltre l'ultima") << 3 << 3;
    QTest::newRow("molto oltre") << 1 << 32767;
}

void tst_modCtl::applicaComboFuori9()
{
    QFETCH(int, voci);
    QFETCH(int, indice);
    m_tabella[RigaLingua].List = m_tabella[RigaLingua].List.first(voci);
    m_tabella[RigaLingua].ListIndexDefault = Intero16(indice);
    Carica();
    QCOMPARE(Errore_Di([this] { Campi_Applica(m_tabella, ULTIMA_RIGA, *m_form); }), 9);
}

void tst_modCtl::applicaLaSpunta_data()
{
    QTest::addColumn<QString>("valore");
    QTest::addColumn<int>("predefinito");
    QTest::addColumn<int>("atteso");
    QTest::newRow("S") << QStringLiteral("S") << 0 << 1;
    QTest::newRow("N") << QStringLiteral("N") << 1 << 0;
    QTest::newRow("S gia' spuntata") << QStringLiteral("S") << 1 << 1;
    QTest::newRow("1 non e' S") << QStringLiteral("1") << 0 << 0;
    QTest::newRow("0 non e' N") << QStringLiteral("0") << 1 << 1;
    QTest::newRow("s minuscola") << QStringLiteral("s") << 0 << 0;
    QTest::newRow("vuoto, spenta") << QString() << 0 << 0;
    QTest::newRow("vuoto, accesa") << QString() << 1 << 1;
}

void tst_modCtl::applicaLaSpunta()
{
    QFETCH(QString, valore);
    QFETCH(int, predefinito);
    QFETCH(int, atteso);
    for (const char16_t *chiave : {u"Spunta1", u"Spunta2"})
        m_stazione->Imposta(QStringLiteral("PROVA"), QString::fromUtf16(chiave), valore);
    m_tabella[RigaSpunta].ListIndexDefault = Intero16(predefinito);
    m_tabella[RigaSpuntaSpenta].ListIndexDefault = Intero16(predefinito);
    Mostra();
    QCOMPARE(m_form->chk[0].Value(), Intero16(atteso));
    QCOMPARE(m_form->chk[1].Value(), Intero16(atteso)); // also a box that the operator may not tick
}

void tst_modCtl::applicaSenzaChiaveVuota()
{
    m_tabella[RigaSenzaChiave].Value = QStringLiteral("dal form");
    m_tabella[RigaVuota].Value = QStringLiteral("dal form");
    Mostra();
    QCOMPARE(m_tabella[RigaSenzaChiave].Value, QString());
    QCOMPARE(m_tabella[RigaVuota].Value, QString());
    QCOMPARE(m_form->txt[2].Text(), QString());
}

void tst_modCtl::applicaIlValoreSenzaControllo()
{
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Nota"), QStringLiteral("tenuta"));
    Mostra();
    QCOMPARE(m_tabella[RigaValore].Value, QStringLiteral("tenuta"));
    QCOMPARE(m_tabella[RigaValore].CtlIndex, qint16{-1});
    QVERIFY(m_form->lbl[RigaValore].Visible());
    QCOMPARE(m_form->lbl[RigaValore].Caption(), QStringLiteral("Esci"));
}

void tst_modCtl::applicaNonFaClic()
{
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Spunta1"), QStringLiteral("S"));
    QList<Flag> guardie;
    m_form->AlSpunta = [&](qint16) { guardie.append(gCaricamento); };
    Mostra();
    QCOMPARE(guardie, QList<Flag>({Vero})); // the handler sees that it was the program
    QCOMPARE(gCaricamento, Falso);
    m_form->chk[0].Value(0);
    QCOMPARE(guardie, QList<Flag>({Vero, Falso}));
}

// --- captions ---------------------------------------------------------------------------------------------

void tst_modCtl::didascalie()
{
    Mostra();
    QCOMPARE(m_form->lbl[RigaTarga].Caption(), QStringLiteral("Targa"));
    QCOMPARE(m_form->lbl[RigaSpunta].Caption(), QStringLiteral("Impostazioni"));
    QCOMPARE(m_form->lbl[RigaSpunta].Left(), 210);
    QCOMPARE(m_form->lbl[RigaSpunta].Top(), 1965);
    QCOMPARE(m_form->lbl[RigaSpunta].Width(), 1500);
    QVERIFY(m_form->lbl[RigaTarga].Visible());
    QVERIFY(!m_form->lbl[RigaVuota].Visible()); // no caption, no label
    QVERIFY(!m_form->lbl[RigaTelaio].Visible());
    QCOMPARE(m_form->lbl[RigaTelaio].Caption(), QString());
}

void tst_modCtl::didascaliaSpenta_data()
{
    QTest::addColumn<Flag>("modificabile");
    QTest::addColumn<int>("segue");
    QTest::addColumn<bool>("abilitata");
    QTest::newRow("modificabile, segue") << Vero << 1 << true;
    QTest::newRow("bloccata, segue") << Falso << 1 << false;
    QTest::newRow("modificabile, non segue") << Vero << 0 << true;
    QTest::newRow("bloccata, non segue") << Falso << 0 << true;
    QTest::newRow("bloccata, altro valore") << Falso << 2 << true;
}

void tst_modCtl::didascaliaSpenta()
{
    QFETCH(Flag, modificabile);
    QFETCH(int, segue);
    QFETCH(bool, abilitata);
    m_tabella[RigaTarga].Editable = modificabile;
    m_tabella[RigaTarga].LabelEnabledByEditable = Intero8(segue);
    Mostra();
    QCOMPARE(m_form->lbl[RigaTarga].Enabled(), abilitata);
    m_tabella[RigaTarga].Editable = Vero;
    Campi_Didascalie(m_tabella, ULTIMA_RIGA, *m_form);
    QVERIFY(m_form->lbl[RigaTarga].Enabled());
}

void tst_modCtl::didascalieNellaLinguaInForza()
{
    m_stazione->Imposta(QStringLiteral("PROVA"), QStringLiteral("Targa"), QStringLiteral("AB123CD"));
    Mostra();
    m_form->txt[0].Text(QStringLiteral("scritto a mano"));
    gLingua = QStringLiteral("EN");
    Campi_Didascalie(m_tabella, ULTIMA_RIGA, *m_form);
    QCOMPARE(m_form->lbl[RigaTarga].Caption(), QStringLiteral("Plate"));
    QCOMPARE(gTabMctc[37], QStringLiteral("Plate"));
    QCOMPARE(gTabMctc.size(), qsizetype{160});
    QCOMPARE(m_form->txt[0].Text(), QStringLiteral("scritto a mano"));
    m_stazione->Scrivi(QStringLiteral("lingueMCTC.ini"), "[EN]\r\n037=Number\r\n");
    Campi_Didascalie(m_tabella, ULTIMA_RIGA, *m_form); // read afresh each time
    QCOMPARE(m_form->lbl[RigaTarga].Caption(), QStringLiteral("Number"));
    QCOMPARE(m_form->lbl[RigaSpunta].Caption(), QString());
}

void tst_modCtl::didascalieSenzaFileDeiTesti()
{
    QVERIFY(QFile::remove(m_stazione->Nativo(QStringLiteral("lingueMCTC.ini"))));
    Mostra();
    QCOMPARE(m_form->lbl[RigaTarga].Caption(), QString());
    QVERIFY(m_form->lbl[RigaTarga].Visible());
}

void tst_modCtl::nomiAccessibili()
{
    Mostra();
    QCOMPARE(Nome_Letto(m_form->txt[0]), QStringLiteral("Targa"));
    QCOMPARE(Nome_Letto(m_form->cbo[0]), gTabMctc[81]);
    QCOMPARE(Nome_Letto(m_form->chk[0]), QStringLiteral("Impostazioni"));
    QCOMPARE(Nome_Letto(m_form->txt[3]), QStringLiteral("Telaio")); // no caption: its key
    gLingua = QStringLiteral("EN");
    Campi_Didascalie(m_tabella, ULTIMA_RIGA, *m_form);
    QCOMPARE(Nome_Letto(m_form->txt[0]), QStringLiteral("Plate"));
    QCOMPARE(Nome_Letto(m_form->chk[1]), QStringLiteral("Headlamp test"));
}

// --- the rest ---------------------------------------------------------------------------------------------

void tst_modCtl::scaricaDaUnoInSu()
{
    Mostra();
    Campi_Scarica(*m_form);
    QCOMPARE(m_form->txt.UBound(), qint16{0});
    QCOMPARE(m_form->lbl.UBound(), qint16{0});
    QCOMPARE(m_form->cbo.UBound(), qint16{0});
    QCOMPARE(m_form->chk.UBound(), qint16{1}); // they go with the form
    QCOMPARE(m_form->txt[0].Tag(), QStringLiteral("0"));
    Campi_Scarica(*m_form);
    QCOMPARE(m_form->txt.UBound(), qint16{0});
}

void tst_modCtl::scaricaEPoiDiNuovo()
{
    m_form->AlUnload = [this] { Campi_Scarica(*m_form); };
    for (int volta = 0; volta < 2; ++volta) {
        Mostra();
        QCOMPARE(m_form->txt.UBound(), qint16{3});
        QCOMPARE(m_form->lbl[RigaTarga].Caption(), QStringLiteral("Targa"));
        m_form->Scarica();
        Prepara_Tabella();
    }
}

void tst_modCtl::rigaDaUnControllo()
{
    Carica();
    QCOMPARE(Riga_Di(m_form->txt[1]), qint16{2});
    QCOMPARE(Riga_Di(m_form->cbo[1]), qint16{5});
    QCOMPARE(Riga_Di(m_form->chk[1]), qint16{7});
    m_form->txt[1].Tag(QStringLiteral("40000"));
    QCOMPARE(Errore_Di([this] { Riga_Di(m_form->txt[1]); }), 6);
}

void tst_modCtl::testoBloccato()
{
    Carica();
    m_form->Mostra();
    Testo_Blocca(m_form->txt[0], true);
    QVERIFY(m_form->txt[0].Locked());
    QCOMPARE(Sfondo(m_form->txt[0]), Colore_Da(COLORE_SISTEMA_GRIGIO));
    Testo_Blocca(m_form->txt[0], false);
    QVERIFY(!m_form->txt[0].Locked());
    QCOMPARE(Sfondo(m_form->txt[0]), Colore_Da(COLORE_SISTEMA_FINESTRA));
}

void tst_modCtl::spuntaDalProgramma()
{
    Carica();
    QList<Flag> guardie;
    m_form->AlSpunta = [&](qint16) { guardie.append(gCaricamento); };
    Spunta_Imposta(m_form->chk[0], 1);
    QCOMPARE(m_form->chk[0].Value(), qint16{1});
    QCOMPARE(guardie, QList<Flag>({Vero}));
    Spunta_Imposta(m_form->chk[0],
                   1); // it stands there already: no click, and the next one is the operator's
    QCOMPARE(guardie.size(), 1);
    QCOMPARE(gCaricamento, Falso);
    m_form->chk[0].Value(0);
    QCOMPARE(guardie.last(), Falso);
}

// --- every screen -----------------------------------------------------------------------------------------

namespace {

constexpr qint16 RIGHE_PIENE = 32;

/// A form as full as the fullest of the program: four columns of eight rows over the whole grid.
void Riempi(std::array<CampoForm, RIGHE_PIENE> &tabella)
{
    constexpr quint8 TIPI[] = {CampoTesto, CampoCombo, CampoSpunta, CampoTesto};
    for (qint16 riga = 0; riga < RIGHE_PIENE; ++riga) {
        CampoForm &campo = tabella[static_cast<size_t>(riga)];
        campo.Kind = TIPI[riga % 4];
        campo.LabelId = Id_Mctc(riga);
        campo.List = {QStringLiteral("uno")};
        campo.CtlLeft = ScalaX_16(riga % 4 * 3840 + 1840);
        campo.CtlTop = ScalaY_16(riga / 4 * 1440 + 1060);
        campo.CtlWidth = ScalaX_16(2000);
        campo.LabelLeft = ScalaX_16(riga % 4 * 3840);
        campo.LabelTop = campo.CtlTop;
    }
}

/// Builds the form on the present screen. @return what does not stand on the screen, empty when all does.
QString Schermo_Prova()
{
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    const StazioneProva stazione;
    const auto form = Nuovo<ModuloProva>();
    form->AlDisegno = [&] {
        form->Massimizza();
        form->txt.Carica(0).Posto(0, 0, ScalaX(2000), ScalaY(380));
        form->cbo.Carica(0).Posto(0, 0, ScalaX(2000), ScalaY(380));
        form->chk.Carica(0).Posto(0, 0, ScalaX(500), ScalaY(380));
        form->lbl.Carica(0).Posto(0, 0, ScalaX(1840), ScalaY(380));
    };
    std::array<CampoForm, RIGHE_PIENE> tabella;
    form->AlLoad = [&] {
        Riempi(tabella);
        Campi_Crea(tabella, RIGHE_PIENE - 1, *form);
        Campi_Applica(tabella, RIGHE_PIENE - 1, *form);
    };
    form->AlPaint = [&] { Disegna_Cornice(*form, 0, 0, ScalaX(15360), ScalaY(11520)); };
    form->Mostra();
    const QRect schermo = QGuiApplication::primaryScreen()->geometry();
    QString fuori;
    if (form->Finestra()->geometry() != schermo)
        fuori += QStringLiteral("finestra ");
    const auto controlli = form->Finestra()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *widget : controlli) {
        if (!schermo.contains(widget->geometry()) || widget->geometry().isEmpty())
            fuori += widget->objectName() + u' ';
    }
    if (controlli.size() != 2 * RIGHE_PIENE)
        fuori += QStringLiteral("%1 controlli").arg(controlli.size());
    Scarica_Tutti();
    return fuori;
}

} // namespace

void tst_modCtl::ogniSchermo_data()
{
    grigliaInteraELoSchermo_data();
}

void tst_modCtl::ogniSchermo()
{
    QFETCH(QSize, schermo);
    const EsitoFiglio figlio = Figlio_Esegui({QStringLiteral("--schermo")}, schermo);
    QVERIFY2(figlio.Buono(), qPrintable(figlio.Racconto()));
    QCOMPARE(figlio.Uscita, QStringLiteral("fuori: \n"));
}

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], "--schermo") == 0) {
        const Applicazione applicazione(argc, argv);
        std::printf("fuori: %s\n", qPrintable(Schermo_Prova()));
        return 0;
    }
    return Principale_Prova<tst_modCtl>(argc, argv);
}

#include "tst_modCtl.moc"
