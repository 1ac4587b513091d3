// A list that stands open.
#pragma once

#include "toolkit/controllo.h"
#include "toolkit/evento.h"

#include <QStringList>

/// A list of lines. Two columns in a line are toolkit/elenco_colonne's.
class ElencoVoci : public Controllo
{
public:
    ElencoVoci(QWidget *finestra, const QString &nome);
    void AddItem(const QString &testo);
    /// The same lines one after the other, at once: a list of thousands is drawn up anew in a blink.
    void AddItems(const QStringList &testi);
    void Clear();
    QString List(qint32 indice) const;
    qint32 ListIndex() const;
    /// An index other than -1 selects the line and raises Click.
    /// @throws ErroreEsecuzione 380 when there is no such line.
    void ListIndex(qint32 indice);

    Evento Click;
};
