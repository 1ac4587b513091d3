// A list that stands open.
#pragma once

#include "toolkit/controllo.h"
#include "toolkit/evento.h"

/// A list of lines. A tab character in a line jumps to the tab stop.
class ElencoVoci : public Controllo
{
public:
    ElencoVoci(QWidget *finestra, const QString &nome);
    void AddItem(const QString &testo);
    void Clear();
    QString List(qint32 indice) const;
    qint32 ListIndex() const;
    /// An index other than -1 selects the line and raises Click.
    /// @throws ErroreEsecuzione 380 when there is no such line.
    void ListIndex(qint32 indice);
    /// Sets the one tab stop. @param unita in quarters of a character's average width, as the system's list
    /// message takes it. @return its place in twips from the left edge.
    qint32 Tabulazione(qint32 unita);

    Evento Click;
};
