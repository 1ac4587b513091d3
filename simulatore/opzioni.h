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
    double passo = 1;      ///< how many times as fast the record is played; 0: replies at once
    bool finestra = false;
    QString lingua; ///< two capitals; empty for that of the system
};

/// @param argomenti as the program got them, its name first.
/// From here on the messages are in the language that the line asks for.
/// @param[out] errore what is wrong, in that language, when it returns nothing.
std::optional<Opzioni> Opzioni_Leggi(const QStringList &argomenti, QString &errore);

/// Puts the language of the messages in force. The window speaks those of the station, the messages Italian
/// and English alone: English beside a window in another one.
/// @return false for a language that is not spoken.
bool Opzioni_Parla(const Opzioni &opzioni);

/// The text of --help.
QString Opzioni_Aiuto();
