// The help key in every form as it stands in a working day: which page is asked of the system, and that the
// form goes on as if nothing had been pressed.
#include "toolkit/aiuto.h"

#include "app/manuale.h"
#include "core/modGeneral.h"
#include "link/frmComm.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/scene_prova.h"
#include "tests/forms/seriale_prova.h"

#include <QDesktopServices>

#include <algorithm>

namespace {

/// Where a form's keys arrive.
QWidget *Tastiera_Di(const Modulo &modulo)
{
    QWidget *fuoco = modulo.Finestra()->focusWidget();
    return fuoco != nullptr ? fuoco : modulo.Finestra();
}

/// As the manual is delivered: its beginning and a page for each chapter.
void Metti_Manuale(const StazioneProva &stazione)
{
    stazione.Scrivi(QStringLiteral("manuale.html"), "manuale");
    for (const Capitolo &capitolo : CAPITOLI)
        stazione.Scrivi(QStringLiteral("manuale\\") + QString::fromUtf16(capitolo.Ancora) +
                            QStringLiteral(".html"),
                        "capitolo");
}

/// The frames of a measure, from the first to the closing of its form, and their times.
QStringList Sessione(bool aiuto)
{
    const BancoForm banco;
    Metti_Manuale(banco.Stazione);
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    QStringList usciti;
    Linee_Prepara([](LineaProva &linea) {
        linea.Copione({Risposta_Stato('1'), Risposta_Stato('2'), Risposta_Stato('4'),
                       Risposta_Misura("0123O#", "0456OO", "0789XO", "9999##")});
    });
    const auto form = Nuovo<frmComm>();
    form->Carica();
    form->Mostra();
    const qint64 inizio = Orologio_Banco().Passati();
    while (form->Caricato() && Orologio_Banco().Passati() < inizio + 60000) {
        if (aiuto)
            QTest::keyClick(Tastiera_Di(*form), Qt::Key_F1);
        if (!form->Caricato())
            break;
        usciti.clear();
        for (const LineaProva::FrameUscito &uscito : Linea_Corrente()->Usciti)
            usciti.append(QString::number(uscito.Quando - inizio) + u' ' +
                          QString::fromLatin1(uscito.Byte.toHex()));
        Orologio_Banco().Avanza(50);
    }
    usciti.append(form->Caricato() ? QStringLiteral("aperto")
                                   : QString::number(Orologio_Banco().Passati() - inizio));
    Linee_Prepara({});
    return usciti;
}

} // namespace

class tst_aiuto : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> Aperte;

public Q_SLOTS:
    void Apri(const QUrl &pagina) { Aperte.append(pagina); }

private Q_SLOTS:
    void init();
    void cleanup();
    void ogniFormApreIlSuoCapitolo();
    void formSenzaCapitoloApreLInizio();
    void senzaManualeNonSuccedeNiente();
    void tenutoApreUnaVoltaSola();
    void collegamentoNonSiDisturba();
};

// The system's browser is the test itself.
void tst_aiuto::init()
{
    Aperte.clear();
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Apri");
    Aiuto_Imposta(Manuale_Indirizzo);
}

void tst_aiuto::cleanup()
{
    Aiuto_Imposta({});
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void tst_aiuto::ogniFormApreIlSuoCapitolo()
{
    QStringList form;
    Scene_Percorri(QStringLiteral("IT"), [&](const QString &scena, const Modulo &modulo) {
        const QString nome = modulo.Finestra()->objectName();
        const auto capitolo = std::find_if(std::begin(CAPITOLI), std::end(CAPITOLI),
                                           [&nome](const Capitolo &uno) { return nome == uno.Modulo; });
        QVERIFY2(capitolo != std::end(CAPITOLI), qPrintable(nome));
        QTemporaryDir cartella;
        gAppPath = cartella.path() + u'\\';
        const QString pagina = QString::fromUtf16(capitolo->Ancora) + QStringLiteral(".html");
        QVERIFY(QDir(cartella.path()).mkpath(QStringLiteral("manuale")));
        QFile file(cartella.filePath(QStringLiteral("manuale/") + pagina));
        QVERIFY(file.open(QIODevice::WriteOnly));

        Aperte.clear();
        QTest::keyClick(Tastiera_Di(modulo), Qt::Key_F1);
        QVERIFY2(Aperte.size() == 1, qPrintable(scena));
        QCOMPARE(QFileInfo(Aperte[0].toLocalFile()), QFileInfo(file.fileName()));
        QVERIFY2(modulo.Caricato(), qPrintable(scena));
        form.append(nome);
    });
    for (const Capitolo &capitolo : CAPITOLI)
        QVERIFY2(form.contains(QString::fromUtf16(capitolo.Modulo)),
                 qPrintable(QString::fromUtf16(capitolo.Modulo)));
}

void tst_aiuto::formSenzaCapitoloApreLInizio()
{
    const BancoForm banco;
    Metti_Manuale(banco.Stazione);
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    QTest::keyClick(Tastiera_Di(*modulo), Qt::Key_F1);
    QCOMPARE(Aperte.size(), 1);
    QCOMPARE(QFileInfo(Aperte[0].toLocalFile()),
             QFileInfo(banco.Stazione.Nativo(QStringLiteral("manuale.html"))));
    QCOMPARE(modulo->Volte(QStringLiteral("FunctionKey 1")), 1); // the form's own handler has it all the same
    QTest::keyClick(Tastiera_Di(*modulo), Qt::Key_F2);
    QCOMPARE(Aperte.size(), 1);
}

void tst_aiuto::senzaManualeNonSuccedeNiente()
{
    const BancoForm banco;
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    QTest::keyClick(Tastiera_Di(*modulo), Qt::Key_F1);
    QVERIFY(Aperte.isEmpty());
    QVERIFY(modulo->Caricato());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(QApplication::activeWindow(), modulo->Finestra());
}

void tst_aiuto::tenutoApreUnaVoltaSola()
{
    const BancoForm banco;
    Metti_Manuale(banco.Stazione);
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    for (const bool ripetuto : {false, true, true}) {
        QKeyEvent tasto(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, ripetuto);
        QApplication::sendEvent(Tastiera_Di(*modulo), &tasto);
    }
    QCOMPARE(Aperte.size(), 1);
}

void tst_aiuto::collegamentoNonSiDisturba()
{
    const QStringList senza = Sessione(false);
    QVERIFY(Aperte.isEmpty());
    QVERIFY2(senza.size() > 4 && senza.last() != u"aperto", qPrintable(senza.join(u'\n')));
    const QStringList con = Sessione(true);
    QVERIFY(Aperte.size() > 4);
    QCOMPARE(con, senza);
}

int main(int argc, char **argv)
{
    return Principale_Prova<tst_aiuto>(argc, argv);
}

#include "tst_aiuto.moc"
