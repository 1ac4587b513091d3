// An instrument asked by the station's own link: once for its state, and for its identity. It writes nothing
// to the instrument and knows no words.
#pragma once

#include "link/protocollo.h"

#include <QEventLoop>
#include <QString>
#include <QStringList>

#include <memory>

class ControlloSeriale;

enum class EsitoSonda
{
    Risponde,
    NonAperta, ///< the port
    Sorda,     ///< the port opens, and its settings are none
    Muto,
    Storpio, ///< what came is no reply
};

/// The port of the settings in force (Leggi_Porta), open as long as this lives.
class SondaStrumento
{
public:
    SondaStrumento();
    ~SondaStrumento();
    Q_DISABLE_COPY_MOVE(SondaStrumento)

    /// Opens the port, when it is not open. @return Risponde, NonAperta or Sorda.
    EsitoSonda Apri();

    /// Sends the command of the state once. @param attesa for the reply, in ms.
    EsitoSonda Chiedi_Stato(int attesa);
    /// The state of the last reply, '1' to '4'.
    char Stato() const { return m_stato; }

    /// Reads the identity as a session of the station does, into gDatiStrumento. An instrument that measures
    /// does not give it. @return false when it did not come.
    bool Leggi_Identita();

private:
    void Ricevi();

    std::unique_ptr<ControlloSeriale> m_porta;
    QEventLoop m_giro;
    Assemblatore m_risposta;
    bool m_completa = false;
    char m_stato = 0;
};
