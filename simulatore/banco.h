// The bench: the instrument, or the record of one, on its line. It carries bytes, keeps the delays, hangs up
// and comes back, and logs what goes out.
#pragma once

#include "simulatore/collegamento.h"
#include "simulatore/interlocutore.h"
#include "simulatore/linea.h"
#include "simulatore/registro.h"

#include <QElapsedTimer>
#include <QTimer>

class Banco
{
public:
    Banco(Linea &linea, Interlocutore &interlocutore, Registro &registro, Collegamento &collegamento);

    /// Opens the line, makes the link and tells on the standard output that it is ready.
    /// @param[out] errore why not, when it returns false.
    bool Apri(QString &errore);

private:
    /// A piece that waits for its moment.
    struct InAttesa
    {
        qint64 quando; ///< ms of m_orologio
        Invio invio;
    };

    void Programma(const Invio &invio);
    void Manda_Dovuti();
    void Arma();
    void Esegui(const Invio &invio);
    void Riaggancia(int ms);
    void Riapri();

    Linea &m_linea;
    Interlocutore &m_interlocutore;
    Registro &m_registro;
    Collegamento &m_collegamento;
    QElapsedTimer m_orologio;
    QList<InAttesa> m_coda; // by moment
    QTimer m_prossimo;      // the first of them
    QTimer m_ritorno;       // end of a hang-up
};
