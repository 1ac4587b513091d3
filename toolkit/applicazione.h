// The application object: the form loop, and the one place where a run-time error that nobody caught ends up.
#pragma once

#include "toolkit/gesti.h"

#include <QApplication>

class ErroreEsecuzione;

class Applicazione : public QApplication
{
    Q_OBJECT

public:
    Applicazione(int &argc, char **argv);
    bool notify(QObject *ricevente, QEvent *evento) override;

private:
    Gesti m_gesti;
};

/// Ends the program at once, as the rules of a missing file ask: nothing more of it runs.
[[noreturn]] void Programma_Termina(int stato = 0);

/// Shows number and description in a message box, writes them to standard error and ends the program with
/// status 1. The procedure that failed does not go on.
[[noreturn]] void Errore_Fatale(const ErroreEsecuzione &errore);

/// A message box of the system with its single default button; returns when it is closed. Timers go on.
void Messaggio_Sistema(const QString &titolo, const QString &testo);
