// An exercise: the simulated instrument with its line, its log and its state file, put together from the
// options. The program without a window runs one, and so does the window.
#pragma once

#include "simulatore/banco.h"
#include "simulatore/opzioni.h"
#include "simulatore/strumento.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>

class Esercizio
{
public:
    explicit Esercizio(const Opzioni &opzioni);

    /// Reads the scenario, opens log and line, and tells on the standard output that it is ready.
    /// @param[out] errore why not, when it returns false: more than one error stand below each other as the
    /// program shows them.
    bool Apri(QString &errore);

    /// There once Apri has succeeded.
    Strumento &Suo_Strumento() const { return *m_strumento; }
    /// What the station opens; empty while a fault has the line hung up.
    QString Porta() const { return m_linea->Nome(); }

    /// Takes each line of the log, with its date and time. Set before Apri, for the first lines too.
    std::function<void(const QString &)> Annotata;
    /// The device has gone; the log says so already. @param perche the same in words.
    std::function<void(const QString &perche)> Perduta;

private:
    Opzioni m_opzioni;
    QTemporaryDir m_passeggero; // without a state file the texts of the station live as long as the program
    Registro m_registro;
    Collegamento m_collegamento;
    std::unique_ptr<Linea> m_linea;
    std::unique_ptr<Strumento> m_strumento;
    std::unique_ptr<Banco> m_banco;
};
