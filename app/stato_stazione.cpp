// What was found, judged and put into words. It opens nothing and asks no clock.
#include "app/stato_stazione.h"

#include "core/modGeneral.h"
#include "core/testo_riempito.h"
#include "core/versione.h"

namespace {

constexpr int GIORNI_AVVISO = 30;

RigaStato Riga_Cartella(const Rilievo &rilievo)
{
    if (!rilievo.Lista)
        return {Testo_Mctc(MctcListaSpenta), false};
    if (!rilievo.Cartella)
        return {Testo_Mctc(MctcCartellaAttesa), false};
    switch (rilievo.Cartella->Stato) {
    case StatoCartella::Mancante:
        return {Testo_Mctc(MctcCartellaMancante), true};
    case StatoCartella::Illeggibile:
        return {Testo_Mctc(MctcCartellaIlleggibile), true};
    case StatoCartella::Vuota:
        return {Testo_Mctc(MctcCartellaVuota), false};
    case StatoCartella::ConAccettazioni:
        break;
    }
    return {Testo_Riempito(Testo_Mctc(MctcCartellaInAttesa), QString::number(rilievo.Cartella->InAttesa)),
            false};
}

RigaStato Riga_Porta(const Rilievo &rilievo)
{
    if (rilievo.Porta <= 0)
        return {Testo_Mctc(MctcPortaSenzaNumero), true};
    const QString nome = QStringLiteral("COM%1").arg(rilievo.Porta);
    const QString testo = Testo_Mctc(rilievo.PortaPresente ? MctcPortaPresente : MctcPortaAssente);
    return {Testo_Riempito(testo, nome), !rilievo.PortaPresente};
}

RigaStato Riga_Verifica(const Rilievo &rilievo)
{
    switch (Verifica_Di(rilievo.Scadenza, rilievo.Oggi)) {
    case StatoVerifica::Valida:
        return {Testo_Riempito(Testo_Mctc(MctcVerificaValida), rilievo.Scadenza), false};
    case StatoVerifica::InScadenza:
        return {Testo_Riempito(Testo_Mctc(MctcVerificaInScadenza), rilievo.Scadenza), true};
    case StatoVerifica::Scaduta:
        return {Testo_Riempito(Testo_Mctc(MctcVerificaScaduta), rilievo.Scadenza), true};
    case StatoVerifica::SenzaData:
        return {Testo_Mctc(MctcVerificaSenzaData), true};
    case StatoVerifica::Illeggibile:
        break;
    }
    return {Testo_Riempito(Testo_Mctc(MctcVerificaIlleggibile), rilievo.Scadenza), true};
}

/// A whole number cut out of a date; 0, which no date has, when it is not all digits.
int Pezzo(const QString &testo, int da, int quanti)
{
    int valore = 0;
    for (const QChar cifra : QStringView(testo).mid(da, quanti)) {
        if (cifra < u'0' || cifra > u'9')
            return 0;
        valore = valore * 10 + cifra.digitValue();
    }
    return valore;
}

} // namespace

StatoVerifica Verifica_Di(const QString &scadenza, const QDate &oggi)
{
    constexpr qsizetype LUNGA = 10; // dd/mm/yyyy
    if (scadenza.isEmpty())
        return StatoVerifica::SenzaData;
    const QDate fine(Pezzo(scadenza, 6, 4), Pezzo(scadenza, 3, 2), Pezzo(scadenza, 0, 2));
    if (scadenza.size() != LUNGA || !fine.isValid())
        return StatoVerifica::Illeggibile;
    if (fine < oggi)
        return StatoVerifica::Scaduta;
    return oggi.daysTo(fine) <= GIORNI_AVVISO ? StatoVerifica::InScadenza : StatoVerifica::Valida;
}

std::array<RigaStato, RIGHE_STATO> Stato_Righe(const Rilievo &rilievo)
{
    const RigaStato versione{QStringLiteral("lumira ") + Versione_Programma(), false};
    return {versione, Riga_Cartella(rilievo), Riga_Porta(rilievo), Riga_Verifica(rilievo)};
}

QString Testo_SenzaScrittura()
{
    const QString testo = Testo_Mctc(MctcConfigurazioneBloccata);
    return testo.isEmpty() ? QStringLiteral("Setup File not Writable") : testo;
}
