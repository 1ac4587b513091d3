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
};

/// @param argomenti as the program got them, its name first.
/// @param[out] errore what is wrong, in Italian, when it returns nothing.
std::optional<Opzioni> Opzioni_Leggi(const QStringList &argomenti, QString &errore);

/// The text of --help.
QString Opzioni_Aiuto();
