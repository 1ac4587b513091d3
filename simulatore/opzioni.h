// The command line of qx5sim.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

struct Opzioni
{
    bool aiuto = false;
    bool versione = false;
    QString scenario; ///< path, empty for the plausible day
    QString collega;
    QString dispositivo; ///< empty for a pseudo terminal
    qint32 velocita = 9600;
    QString stato;
    QString registro;
    std::optional<quint32> seme;
    QString ponte;         ///< port of the real instrument; empty for no bridge
    QString registrazione; ///< file that the bridge makes; empty for a name of its own
    QString riproduci;     ///< record to play; empty for none
    bool svelto = false;   ///< replies of the record at once
    bool finestra = false;
    QString lingua; ///< of the window, two capitals; empty for that of the system
};

/// @param argomenti as the program got them, its name first.
/// @param[out] errore what is wrong, in Italian, when it returns nothing.
std::optional<Opzioni> Opzioni_Leggi(const QStringList &argomenti, QString &errore);

/// The text of --help.
QString Opzioni_Aiuto();
