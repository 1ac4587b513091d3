// What is typed on a list, gathered into a text to look for. After a pause it is forgotten, and the next key
// begins anew. What is looked for, and where, is its owner's business.
#pragma once

#include "platform/temporizzatore.h"
#include "toolkit/evento.h"

#include <QObject>
#include <QString>

class ElencoVoci;

/// How long a typed text waits for its next key, in ms.
inline constexpr int PAUSA_RICERCA = 5000;

class RicercaElenco : public QObject
{
    Q_OBJECT

public:
    /// @param elenco the list that the keys come to.
    explicit RicercaElenco(const ElencoVoci &elenco);

    /// What was typed; empty when nothing is looked for.
    const QString &Testo() const { return m_testo; }
    /// Forgets it.
    void Azzera();

    /// Told when the text has changed, also to an empty one.
    Evento Cambiata;
    /// Told of an arrow pressed while a text stands, true for the one downwards. @return false when the key
    /// shall move by a line, as ever.
    EventoDi<bool(bool)> Freccia;

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    void Imposta(const QString &testo);

    QString m_testo;
    Temporizzatore m_pausa;
};
