// The vehicle in hand as the operator knows it: plate, make and model of its acceptance file. The file goes
// when the result has been written, so that the texts are kept from the beginning of the session.
#pragma once

#include <QString>

struct VeicoloInMano
{
    QString Targa;
    QString Descrizione; ///< make and model
};

/// Plate, make and model of an acceptance file; empty texts for what it does not hold, or without a file.
VeicoloInMano Veicolo_Leggi(const QString &file);

/// The vehicle of the session at hand, from gFileAcc; empty for a test without a file.
extern VeicoloInMano gVeicolo;

/// Takes gVeicolo from gFileAcc.
void Veicolo_Prendi();
