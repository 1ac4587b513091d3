#include "toolkit/applicazione.h"

#include "platform/errore_esecuzione.h"
#include "tests/forms/figlio_prova.h"
#include "tests/forms/modulo_prova.h"
#include "tests/forms/parole_prova.h"
#include "tests/forms/principale_prova.h"

#include <QPushButton>
#include <QWindow>

#include <cstdio>
#include <utility>

class tst_applicazione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void erroreFinisceIlProgramma_data();
    void erroreFinisceIlProgramma();
    void erroreConNumeroProprio();
    void secondoErroreNonAggiungeNulla();
    void terminaSubito_data();
    void terminaSubito();
    void terminaScriveCioCheEScritto();
    void messaggioDiSistemaAspetta();
    void messaggioDiSistemaSenzaParoleAltrui();
    void messaggioDiSistemaStaDavanti();
    void nomeDelProgramma();
};

// --- what the processes of their own do -------------------------------------------------------------------

namespace {

/// Closes the box of the system when it shows, and tells what it reads. It beats on while the box shows.
class Operatore
{
public:
    Operatore()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box == nullptr)
                return;
            std::printf("[%s] %s\n", qPrintable(box->windowTitle()), qPrintable(box->text()));
            if (AlBox)
                std::exchange(AlBox, nullptr)();
            box->button(QMessageBox::Ok)->click();
        });
        m_timer.start(1);
    }
    std::function<void()> AlBox;

private:
    QTimer m_timer;
};

void Solleva_In_Clic(ModuloProva &modulo)
{
    modulo.AlDisegno = [&] { modulo.cmd.Carica(0).Visible(true); };
    modulo.AlClick = [](qint16) { Solleva(NumeroErrore::TipoNonCorrispondente); };
    modulo.Mostra();
    QTest::mouseClick(modulo.cmd[0].Widget(), Qt::LeftButton);
}

int Figlio(int argc, char **argv)
{
    const QByteArray caso = argv[2];
    Applicazione applicazione(argc, argv);
    Operatore operatore;
    const auto modulo = Nuovo<ModuloProva>();
    QTimer::singleShot(0, modulo.get(), [&] {
        if (caso == "timer")
            Solleva(NumeroErrore::Overflow);
        if (caso == "clic")
            Solleva_In_Clic(*modulo);
        if (caso == "numero")
            throw ErroreEsecuzione(8002, QStringLiteral("Invalid port number"));
        if (caso == "caricamento") {
            modulo->AlLoad = [] { Solleva(NumeroErrore::FileNonTrovato); };
            modulo->Mostra(Modulo::Modale);
        }
        if (caso == "dipinto") {
            modulo->AlPaint = [] { Solleva(NumeroErrore::DiscoPieno); };
            modulo->Mostra();
        }
        if (caso == "diretto")
            Errore_Fatale(ErroreEsecuzione(NumeroErrore::PermessoNegato));
        if (caso == "secondo") {
            operatore.AlBox = [] { Solleva(NumeroErrore::IndiceFuoriIntervallo); };
            Solleva(NumeroErrore::Overflow);
        }
        if (caso.startsWith("termina")) {
            modulo->AlUnload = [] { std::puts("Unload"); };
            modulo->Mostra();
            std::printf("senza fine riga");
            Programma_Termina(caso.mid(7).toInt());
        }
        if (caso == "parole") {
            const SegnaParole segna;
            operatore.AlBox = [] {
                QWidget *box = QApplication::activeModalWidget();
                for (const QString &parola : Parole_Del_Toolkit(box) + Menu_Del_Toolkit(box))
                    std::printf("%s\n", qPrintable(parola));
            };
            Messaggio_Sistema(QStringLiteral("Err Rs232"), QStringLiteral("Rec sts: 13"));
            QCoreApplication::exit(0);
        }
        if (caso == "messaggio") {
            Messaggio_Sistema(QStringLiteral("Err Rs232"),
                              QStringLiteral("Rec sts: 13\r\nErr: Type mismatch"));
            std::puts("dopo il messaggio");
            QCoreApplication::exit(3);
        }
    });
    const int stato = QCoreApplication::exec();
    Scarica_Tutti();
    return stato;
}

EsitoFiglio Caso(const char *nome)
{
    return Figlio_Esegui({QStringLiteral("--figlio"), QString::fromLatin1(nome)});
}

} // namespace

// --- the tests --------------------------------------------------------------------------------------------

void tst_applicazione::erroreFinisceIlProgramma_data()
{
    QTest::addColumn<QString>("numero");
    QTest::addColumn<QString>("descrizione");
    QTest::newRow("timer") << QStringLiteral("6") << QStringLiteral("Overflow");
    QTest::newRow("clic") << QStringLiteral("13") << QStringLiteral("Type mismatch");
    QTest::newRow("caricamento") << QStringLiteral("53") << QStringLiteral("File not found");
    QTest::newRow("dipinto") << QStringLiteral("61") << QStringLiteral("Disk full");
    QTest::newRow("diretto") << QStringLiteral("70") << QStringLiteral("Permission denied");
}

void tst_applicazione::erroreFinisceIlProgramma()
{
    QFETCH(QString, numero);
    QFETCH(QString, descrizione);
    const EsitoFiglio figlio = Caso(QTest::currentDataTag());
    QVERIFY2(figlio.Finito, qPrintable(figlio.Errori));
    QCOMPARE(figlio.Stato, 1);
    QVERIFY2(figlio.Errori.contains(QStringLiteral("run-time error %1: %2\n").arg(numero, descrizione)),
             qPrintable(figlio.Errori));
    QCOMPARE(figlio.Uscita, QStringLiteral("[lumira] Run-time error '%1':\n\n%2\n").arg(numero, descrizione));
}

void tst_applicazione::erroreConNumeroProprio()
{
    const EsitoFiglio figlio = Caso("numero");
    QVERIFY(figlio.Finito);
    QCOMPARE(figlio.Stato, 1);
    QVERIFY(figlio.Errori.contains(QStringLiteral("8002: Invalid port number")));
    QVERIFY(figlio.Uscita.contains(QStringLiteral("'8002'")));
}

// A timer that beats on behind the box fails too: one box, one line, one status.
void tst_applicazione::secondoErroreNonAggiungeNulla()
{
    const EsitoFiglio figlio = Caso("secondo");
    QVERIFY2(figlio.Finito, qPrintable(figlio.Errori));
    QCOMPARE(figlio.Stato, 1);
    QCOMPARE(figlio.Errori.count(QStringLiteral("run-time error")), 1);
    QVERIFY(figlio.Errori.contains(QStringLiteral("6: Overflow")));
}

void tst_applicazione::terminaSubito_data()
{
    QTest::addColumn<int>("stato");
    for (const int stato : {0, 1, 42})
        QTest::addRow("termina%d", stato) << stato;
}

void tst_applicazione::terminaSubito()
{
    QFETCH(int, stato);
    const EsitoFiglio figlio = Caso(QTest::currentDataTag());
    QVERIFY(figlio.Finito);
    QCOMPARE(figlio.Stato, stato);
    QVERIFY(!figlio.Uscita.contains(QStringLiteral("Unload"))); // nothing more of the program runs
}

void tst_applicazione::terminaScriveCioCheEScritto()
{
    QCOMPARE(Caso("termina0").Uscita, QStringLiteral("senza fine riga"));
}

void tst_applicazione::messaggioDiSistemaAspetta()
{
    const EsitoFiglio figlio = Caso("messaggio");
    QVERIFY2(figlio.Finito, qPrintable(figlio.Errori));
    QCOMPARE(figlio.Stato, 3);
    QCOMPARE(figlio.Uscita,
             QStringLiteral("[Err Rs232] Rec sts: 13\r\nErr: Type mismatch\ndopo il messaggio\n"));
}

// One box for every language: its button reads OK whatever the toolkit would call it.
void tst_applicazione::messaggioDiSistemaSenzaParoleAltrui()
{
    const EsitoFiglio figlio = Caso("parole");
    QVERIFY2(figlio.Buono(), qPrintable(figlio.Racconto()));
    QCOMPARE(figlio.Uscita, QStringLiteral("[Err Rs232] Rec sts: 13\n"));
}

// A click on the window behind it does not lay the box under that one: the window system knows whose it is.
void tst_applicazione::messaggioDiSistemaStaDavanti()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    const QWindow *dietro = nullptr;
    QTimer battito;
    connect(&battito, &QTimer::timeout, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr)
            return;
        dietro = box->windowHandle()->transientParent();
        box->button(QMessageBox::Ok)->click();
    });
    battito.start(1);
    Messaggio_Sistema(QStringLiteral("Err Rs232"), QStringLiteral("Rec sts: 13"));
    QVERIFY(dietro != nullptr);
    QCOMPARE(dietro, modulo->Finestra()->windowHandle());
    modulo->Scarica();
}

void tst_applicazione::nomeDelProgramma()
{
    QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("lumira"));
    QVERIFY(!QApplication::quitOnLastWindowClosed()); // the forms say when the program has ended
}

int main(int argc, char **argv)
{
    if (argc > 2 && qstrcmp(argv[1], "--figlio") == 0)
        return Figlio(argc, argv);
    return Principale_Prova<tst_applicazione>(argc, argv);
}

#include "tst_applicazione.moc"
