// A list that drops down, of which one entry shows.
#pragma once

#include "toolkit/controllo.h"
#include "toolkit/evento.h"

class CasellaCombinata : public Controllo
{
public:
    CasellaCombinata(QWidget *finestra, const QString &nome);
    void AddItem(const QString &testo);
    void Clear();
    /// What drops down when the list is open.
    QWidget *Elenco() const;
    QString Text() const;
    /// Shows the item with that text.
    void Text(const QString &testo);
    qint16 ListIndex() const;
    /// @throws ErroreEsecuzione 380 when there is no such item. -1 shows none.
    void ListIndex(qint16 indice);

    /// The operator chose an item, also the one that was shown already.
    Evento Click;
    bool Entra() const override;
};
