// A station folder of the test's own: a temporary place with the profile files as an installation has
// them, and the program's state pointing there.
#pragma once

#include <QString>
#include <QTemporaryDir>

class StazioneProva
{
public:
    /// Copies impianto/ and dati/ into a temporary folder, points the path variables of modGeneral there and
    /// reads the flags afresh: language IT, local folders (Modalita 1) below the temporary folder.
    StazioneProva();

    /// Path of a file of the station, with backslashes. @param nome e.g. "lumira.ini" or
    /// "DIR_FAR\\12345678.acc".
    QString Percorso(const QString &nome) const;
    /// The same for the file system.
    QString Nativo(const QString &nome) const;
    /// Writes bytes to a file of the station, making its folder.
    void Scrivi(const QString &nome, const QByteArray &byte) const;
    /// Bytes of a file of the station; empty when there is none.
    QByteArray Leggi(const QString &nome) const;
    /// Sets a value of lumira.ini.
    void Imposta(const QString &sezione, const QString &chiave, const QString &valore) const;
    /// A copy of the acceptance template in the exchange folder. @param nome e.g. "12345678.acc".
    QString Accettazione(const QString &nome) const;

private:
    QTemporaryDir m_cartella;
};
