// A picture file on a form.
#pragma once

#include "toolkit/controllo.h"

/// A picture, shown as large as its place lets it without distortion.
class Immagine : public Controllo
{
public:
    Immagine(QWidget *finestra, const QString &nome);
    /// Loads a picture file. @throws ErroreEsecuzione 53 when there is none, 481 when it is no picture.
    void Picture(const QString &percorso);
    /// Shows the warning sign.
    void Avviso();
    /// Shows a text in the picture's place.
    void Testo(const QString &testo);
};
