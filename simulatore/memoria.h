// The texts that the instrument keeps of itself: six of identity, ten of calibration. What the station
// writes goes to the state file; what it has never written comes from the scenario, or is a factory text.
#pragma once

#include <QString>
#include <QStringList>

enum class Blocco : quint8
{
    Dati,
    Taratura
};

class Memoria
{
public:
    /// @param fileScenario path of the scenario, empty for none. @param fileStato path of the state file.
    Memoria(const QString &fileScenario, const QString &fileStato)
        : m_fileScenario(fileScenario), m_fileStato(fileStato)
    {
    }

    /// All texts of a block, as the files stand now.
    QStringList Leggi(Blocco blocco) const;

    /// Keeps one text. @param indice from 0 in its block. @return false when the file could not be written.
    bool Scrivi(Blocco blocco, qsizetype indice, const QString &testo) const;

private:
    QString m_fileScenario;
    QString m_fileStato;
};
