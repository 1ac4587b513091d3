// What the tests of acceptance files share: the station, a complete file to spoil, and a check of it without
// a window.
#pragma once

#include "tests/comuni/stazione_prova.h"

#include <QByteArray>
#include <QString>

class ProvaAcc
{
public:
    /// A station whose delivered template is the file to start from; the rows of gCampiAcc are set up, and
    /// the texts 94 to 97 of gTabMctc read "testo 94" and so on.
    ProvaAcc();

    /// The bytes of a file without a fault.
    QByteArray Buono() const { return m_buono; }
    /// The same with one value set, the line found by its section and key.
    QByteArray Con(const QByteArray &sezione, const QByteArray &chiave, const QByteArray &valore) const;
    /// The same with one line of a section (e.g. "Nome=VERDI", or a key's beginning "Nome=") replaced by
    /// others.
    QByteArray Al_Posto(const QByteArray &sezione, const QByteArray &inizioRiga,
                        const QByteArray &righe) const;
    /// The same without a section.
    QByteArray Senza(const QByteArray &sezione) const;

    /// Writes a file into the exchange folder. @return its path.
    QString Scrivi(const QByteArray &byte, const QString &nome = QStringLiteral("12345678.acc")) const;
    /// Writes a file, reads it into gCampiAcc and checks it. The report is in Rapporto.
    qint16 Controlla(const QByteArray &byte, const QString &nome = QStringLiteral("12345678.acc"));

    StazioneProva Stazione;
    QString Percorso; ///< of the file last written by Controlla
    QString Rapporto;

private:
    QByteArray m_buono;
};
