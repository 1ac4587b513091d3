// The application object on Qt's, and the program's end by an error: shown once, told on standard error,
// status 1. It knows no form.
#include "platform/applicazione.h"

#include "platform/aspetto.h"
#include "platform/errore_esecuzione.h"
#include "platform/stampante_qt.h"

#include <QMessageBox>
#include <QPointer>

#include <cstdio>
#include <cstdlib>

Applicazione::Applicazione(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("lumira"));
    setQuitOnLastWindowClosed(false); // the forms say when the program has ended, not the windows
    Aspetto_Applica(*this);
    static SistemaStampaQt stampanti;
    Stampa_Imposta(&stampanti);
}

bool Applicazione::notify(QObject *ricevente, QEvent *evento)
{
    try {
        return QApplication::notify(ricevente, evento);
    } catch (const ErroreEsecuzione &errore) {
        // Timers beat on while the error box shows: what fails then adds nothing to what is told already.
        static bool mostrato = false;
        if (mostrato)
            return false;
        mostrato = true;
        Errore_Fatale(errore);
    }
}

void Programma_Termina(int stato)
{
    std::fflush(nullptr);
    std::_Exit(stato);
}

void Errore_Fatale(const ErroreEsecuzione &errore)
{
    std::fprintf(stderr, "lumira: run-time error %s\n", errore.what());
    std::fflush(stderr);
    const QString testo = QStringLiteral("Run-time error '%1':\n\n%2");
    Messaggio_Sistema(QStringLiteral("lumira"), testo.arg(errore.Numero()).arg(errore.Descrizione()));
    Programma_Termina(1);
}

BoxSistema::BoxSistema(const QString &titolo, const QString &testo)
    : m_box(std::make_unique<QMessageBox>(QMessageBox::Warning, titolo, testo, QMessageBox::Ok))
{
}

BoxSistema::~BoxSistema() = default;

void BoxSistema::Mostra()
{
    const QPointer<QWidget> prima = QApplication::activeWindow();
    m_box->exec();
    // Not every window system gives the keyboard back by itself.
    if (prima != nullptr && prima->isVisible())
        prima->activateWindow();
}

void BoxSistema::Chiudi()
{
    m_box->reject();
}

void Messaggio_Sistema(const QString &titolo, const QString &testo)
{
    BoxSistema(titolo, testo).Mostra();
}
