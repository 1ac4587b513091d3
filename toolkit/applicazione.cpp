// The application object on Qt's, and the program's end by an error: shown once, told on standard error,
// status 1. It knows no form.
#include "toolkit/applicazione.h"

#include "platform/errore_esecuzione.h"
#include "platform/stampante_qt.h"
#include "toolkit/aspetto.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTranslator>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/// What the toolkit would tell an assistive technology in English: what an action is called and does, and
/// which key performs it. A reader says that itself, in its own language.
struct Parola
{
    const char *contesto;
    const char *testo; ///< nullptr: every one
};

constexpr Parola TACIUTE[] = {
    {"QAccessibleActionInterface", nullptr},
    {"QComboBox",                  nullptr},
    {"QShortcut",                  "Down" },
    {"QShortcut",                  "Enter"},
};

class SenzaParole : public QTranslator
{
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    /// An empty text for what is left unsaid; a null one leaves the toolkit its own.
    QString translate(const char *contesto, const char *testo, const char *, int) const override
    {
        const bool taciuta = std::any_of(std::begin(TACIUTE), std::end(TACIUTE), [&](const Parola &parola) {
            return qstrcmp(contesto, parola.contesto) == 0 &&
                   (parola.testo == nullptr || qstrcmp(testo, parola.testo) == 0);
        });
        return taciuta ? QStringLiteral("") : QString();
    }
};

} // namespace

Applicazione::Applicazione(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("lumira"));
    setQuitOnLastWindowClosed(false); // the forms say when the program has ended, not the windows
    Aspetto_Applica(*this);
    installTranslator(new SenzaParole(this));
    static SistemaStampaQt stampanti;
    Stampa_Imposta(&stampanti);
}

bool Applicazione::notify(QObject *ricevente, QEvent *evento)
{
    if (m_gesti.Da_Scartare(ricevente, *evento))
        return true;
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
    (void)std::fflush(nullptr);
    std::_Exit(stato);
}

void Errore_Fatale(const ErroreEsecuzione &errore)
{
    (void)std::fprintf(stderr, "lumira: run-time error %s\n", errore.what());
    (void)std::fflush(stderr);
    const QString testo = QStringLiteral("Run-time error '%1':\n\n%2");
    Messaggio_Sistema(QStringLiteral("lumira"), testo.arg(errore.Numero()).arg(errore.Descrizione()));
    Programma_Termina(1);
}

BoxSistema::BoxSistema(const QString &titolo, const QString &testo)
    : m_box(std::make_unique<QMessageBox>(QMessageBox::Warning, titolo, testo, QMessageBox::Ok))
{
    m_box->button(QMessageBox::Ok)->setText(QStringLiteral("OK")); // in every language, and with every theme
}

BoxSistema::~BoxSistema() = default;

void BoxSistema::Mostra()
{
    const QPointer<QWidget> prima = QApplication::activeWindow();
    if (prima != nullptr) {
        m_box->winId();                                                   // makes its handle
        m_box->windowHandle()->setTransientParent(prima->windowHandle()); // no click lays it under that one
    }
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
