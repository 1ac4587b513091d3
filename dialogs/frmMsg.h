// The program's one message box: a text, shown for a time or until its button is pressed. A long one reads as
// a list that scrolls. It works before the main window exists.
#pragma once

#include "platform/temporizzatore.h"
#include "toolkit/modulo.h"

class ElencoLettura;
class Titolo;

class frmMsg : public Modulo
{
    Q_OBJECT

public:
    frmMsg();
    ~frmMsg() override;

    qint16 Mode = 0;    ///< 0: closes by the timer; 1: closes by the button
    qint16 TopMost = 0; ///< not 0: stays above all others
    quint32 Colour = 0; ///< read by no procedure
    qint16 Time = 0;    ///< the timer's interval in ms
    QString Text;       ///< the message

protected:
    void Disegno() override;
    void Load() override;
    void Paint() override;
    void Unload() override;
    void cmd_Click(qint16 Index) override;

private:
    void Adatta_Testo();
    void Mostra_Elenco();

    std::unique_ptr<Titolo> lblTitolo;
    std::unique_ptr<ElencoLettura> lstTesto;
    std::unique_ptr<Immagine> PicMex;
    std::unique_ptr<Forma> Shape1;
    Temporizzatore tmr;
};

/// Shows a message. @param modo 0 timed, 1 with a button. @param comeModale 1 modal. @param primoPiano not 0:
/// above all other windows. @param colore read by nobody. @param tempo ms of a timed message.
/// An error inside is dropped: a message that cannot be shown stops nothing.
void Mostra_Msg(qint16 modo, qint32 comeModale, qint16 primoPiano, quint32 colore, qint16 tempo,
                const QString &testo);

/// A message that closes by itself after two seconds.
void Mostra_MsgTempo(const QString &testo);

/// A message that waits for its button, above all other windows.
void Mostra_MsgConferma(const QString &testo);
