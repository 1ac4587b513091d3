// The application object: the form loop, and the one place where a run-time error that nobody caught ends up.
#pragma once

#include "toolkit/gesti.h"

#include <QApplication>

#include <memory>

class ErroreEsecuzione;
class QMessageBox;

class Applicazione : public QApplication
{
    Q_OBJECT

public:
    Applicazione(int &argc, char **argv);
    bool notify(QObject *ricevente, QEvent *evento) override;

private:
    Gesti m_gesti{platformName() != QLatin1String("windows")};
};

/// Ends the program at once, as the rules of a missing file ask: nothing more of it runs.
[[noreturn]] void Programma_Termina(int stato = 0);

/// Shows number and description in a message box, writes them to standard error and ends the program with
/// status 1. The procedure that failed does not go on.
[[noreturn]] void Errore_Fatale(const ErroreEsecuzione &errore);

/// A message box of the system with its single default button, for whoever may have to take it away again.
class BoxSistema
{
public:
    BoxSistema(const QString &titolo, const QString &testo);
    ~BoxSistema();
    Q_DISABLE_COPY_MOVE(BoxSistema)

    /// Returns when the box is closed, by its button or by Chiudi, and the keyboard is where it was before.
    /// Timers go on.
    void Mostra();
    /// Takes the box off the screen at once; Mostra returns when whoever called this has returned to the
    /// loop.
    void Chiudi();

private:
    std::unique_ptr<QMessageBox> m_box;
};

/// Shows such a box; returns when it is closed.
void Messaggio_Sistema(const QString &titolo, const QString &testo);
