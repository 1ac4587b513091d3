// A test that starts itself, or its neighbour, as a process of its own: on a screen of another size, or to
// see how the program ends.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

struct EsitoFiglio
{
    bool Finito = false; ///< it ended by itself, in time and not by a signal
    int Stato = -1;
    QString Uscita;
    QString Errori;

    bool Buono() const { return Finito && Stato == 0; }
    /// How it ended and all that it said.
    QString Racconto() const
    {
        return QStringLiteral("%1, status %2\n%3%4")
            .arg(Finito ? QStringLiteral("ended") : QStringLiteral("broken off"))
            .arg(Stato)
            .arg(Uscita, Errori);
    }
};

/// Starts the running executable with other arguments and waits for its end.
/// @param schermo size of its screen in pixels; invalid: as the present one.
EsitoFiglio Figlio_Esegui(const QStringList &argomenti, QSize schermo = QSize());

/// Starts another test that lies beside the running one.
/// @param programma its name without an ending.
EsitoFiglio Vicino_Esegui(const QString &programma, const QStringList &argomenti, QSize schermo);

/// The sizes of screen that the tests go through, the smallest and the largest among them, as a test's table:
/// column schermo, a row each.
void Righe_PerSchermo();
