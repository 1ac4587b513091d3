// What the link form shows of a session besides its words: the steps, the lamp's word with the port, and how
// long it lasts. It reads the machine and decides nothing.
#pragma once

#include "link/cronometro.h"
#include "platform/temporizzatore.h"
#include "toolkit/array_controlli.h"
#include "toolkit/controlli.h"

#include <QStringList>

#include <memory>

class MacchinaScambio;
class Modulo;

class QuadroSessione
{
public:
    /// Makes its labels on a form, which is loaded.
    explicit QuadroSessione(const Modulo &form);

    /// Takes the texts of the language in force and starts counting. @param conStato false for a session that
    /// asks for no status: it has no first step.
    void Inizia(const QString &primoPasso, bool conStato);
    /// Stops counting.
    void Ferma();

    /// Places, in twips: the bar of the steps, and the two lines of words beside the lamp.
    void Posto_Passi(qint32 left, qint32 top, qint32 width, qint32 height);
    void Posto_Righe(qint32 left, qint32 top, qint32 width, qint32 height);
    void Passi_Visibili(bool visibili);

    /// The port has been tried.
    void Porta(const MacchinaScambio &macchina);
    /// The session has gone on, or ended.
    void Avanza(const MacchinaScambio &macchina);
    /// The lamp has another colour; green is a reply.
    void Lampada(quint32 colore);

private:
    enum Passo : qint16
    {
        PassoStato,
        PassoDati,
        PassoFatto,
        PASSI
    };
    enum ParolaLampada : qint16
    {
        ParolaAttesa,
        ParolaFermo,
        ParolaChiusa
    };
    void Mostra_Passo(qint16 passo);
    void Mostra_Parola(const MacchinaScambio &macchina);
    void Mostra_Tempi();

    ArrayControlli<Etichetta> lblPasso;
    Etichetta lblLampada;
    Etichetta lblDurata;
    Etichetta lblRisposta;
    Temporizzatore tmrSecondi;
    QStringList m_nomiPassi;
    QStringList m_parole;
    QString m_testoRisposta;
    QString m_testoNessuna;
    Cronometro m_durata;
    Cronometro m_risposta; ///< since the last reply; at rest before the first
    bool m_conStato = true;
    qint16 m_passo = -1; ///< shown as the present one
};
