// The numbers by which the parts of a session tell each other how it was started and what became of it.
#pragma once

#include <QtGlobal>

/// Values of gTipoProva: how the session at hand was started.
enum TipoProva : qint16
{
    ProvaRiservata1 = 1, ///< set by nobody today: the entry form would lock the inclination
    ProvaScelta = 2,     ///< by the test button: the vehicle is still to be confirmed
    ProvaRiservata3 = 3, ///< set by nobody today
    ProvaConfermata = 4, ///< by the confirmed vehicle, and by the end of a measurement
};

// --- codes of Notifica, the event by which a child form reports to its parent -----------------------------

enum NotificaSetup : qint16
{
    SetupSalvato = 1, ///< saved, about to unload
    SetupLingua = 2,  ///< a language was chosen
    SetupLavoro = 4,  ///< a row that concerns the work mode was saved
};

enum NotificaAnagrafica : qint16
{
    AnagraficaSalvata = 1,
};

/// Of the entry form, and of the worklist that hands it on.
enum NotificaVeicolo : qint16
{
    VeicoloConfermato = 4, ///< its value is the TipoProva
};

enum NotificaEsito : qint16
{
    EsitoChiuso = 5, ///< by its exit button
};

/// How a link session ended.
enum NotificaSessione : qint16
{
    SessioneCompletata = 6,
    SessioneFallita = 7, ///< or broken off
};
