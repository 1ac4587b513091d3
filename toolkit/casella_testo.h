// A box that the operator writes in.
#pragma once

#include "toolkit/controllo.h"
#include "toolkit/evento.h"

/// A box holds one line: a text is cut at its first CR, LF or NUL, whoever writes it. Every other character
/// stays.
class CasellaTesto : public Controllo
{
public:
    CasellaTesto(QWidget *finestra, const QString &nome);
    QString Text() const;
    /// Raises Change when the text is another.
    void Text(const QString &testo);
    /// True when the box shows all of its text.
    bool Intera() const;
    bool Locked() const;
    /// A locked box shows its text and takes none; the tab key passes it by.
    void Locked(bool bloccata);
    void BackColor(quint32 colore);
    /// Every character shows as this one.
    void Nascosta(bool nascosta);

    Evento Change;
};
