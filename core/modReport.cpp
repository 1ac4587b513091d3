// The tables of the page filled from profile, acceptance file and result record. No place on the page is
// known here.
#include "core/modReport.h"

#include "core/codici.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "platform/orologio.h"

#include <algorithm>

std::array<QString, RIGHE_MISURE> gRepMisure;
BloccoReport gRepOfficina;
std::array<QString, RIGHE_TITOLI> gRepTitoli;
BloccoReport gRepStrumentoEt, gRepStrumentoVal;
BloccoReport gRepVeicoloEt, gRepVeicoloVal;
std::array<QString, RIGHE_VOCI> gRepVoci;

namespace {

struct ChiaveSezione
{
    const char16_t *sezione;
    const char16_t *chiave;
    qint16 etichetta; // id in gTabLingua
};

constexpr ChiaveSezione CHIAVI_SEZIONI[] = {
    {u"OFFICINA",     u"Denominazione",      19},
    {u"OFFICINA",     u"Indirizzo",          20},
    {u"OFFICINA",     u"Localita",           21},
    {u"OFFICINA",     u"TelFax",             22},
    {u"OFFICINA",     u"Web",                23},
    {u"LUMIRA",       u"Comm_Marca",         25},
    {u"LUMIRA",       u"Comm_Modello",       24},
    {u"LUMIRA",       u"Comm_NOmologazione", 26},
    {u"LUMIRA",       u"Comm_NSerie",        27},
    {u"LUMIRA",       u"Comm_ScadRevisione", 28},
    {u"IMPOSTAZIONI", u"Lingua",             30},
    {u"VEICOLO",      u"Marca",              25},
    {u"VEICOLO",      u"Modello",            24},
    {u"VEICOLO",      u"Targa",              39},
    {u"VEICOLO",      u"Telaio",             40},
    {u"VEICOLO",      u"AnnoImm",            41},
    {u"VEICOLO",      u"Operatore",          29},
};

/// The vehicle as the acceptance file tells it, in the order of the vehicle block.
constexpr const char16_t *CHIAVI_LIBRETTO[] = {u"Fabbrica", u"Tipo", u"Targa", u"Telaio", u"AnnoPrimaImm"};

struct MisuraReport
{
    RigaMisure riga;
    RigaFar valore;
};

constexpr MisuraReport MISURE[] = {
    {RepLuxAnabDx, FarIllumLuxAnabDx},
    {RepLuxAnabSx, FarIllumLuxAnabSx},
    {RepLuxAbbDx,  FarIllumLuxAbbDx },
    {RepLuxAbbSx,  FarIllumLuxAbbSx },
};

constexpr qint16 TESTO_SIMMETRICO = 37;
constexpr qint16 TESTO_ASIMMETRICO = 38;
constexpr qint16 TESTO_TITOLI = 43; // to 47
constexpr qint16 TESTO_VOCI = 48;   // to 57

QString Ora_Presente()
{
    return Orologio_Corrente().Adesso().toString(QStringLiteral("hh:mm:ss"));
}

void Vuota_Tabelle()
{
    gRepMisure.fill(QStringLiteral("-"));
    gRepVoci.fill(QStringLiteral("-"));
    for (auto *tabella :
         {&gRepOfficina, &gRepTitoli, &gRepStrumentoEt, &gRepStrumentoVal, &gRepVeicoloEt, &gRepVeicoloVal})
        tabella->fill(QStringLiteral("-"));
}

void Inizio_Prova()
{
    gRepMisure[RepData] = Orologio_Corrente().Adesso().toString(QStringLiteral("dd-MM-yyyy"));
    gRepMisure[RepInizio] = Ora_Presente();
}

void Misure_Prova()
{
    gRepMisure[RepTipoFaro] = Testo_Lingua(gSimmetrico != 0 ? TESTO_SIMMETRICO : TESTO_ASIMMETRICO);
    for (const RigaMisure prima : {RepMireAnab, RepMireAbb})
        std::fill_n(gRepMisure.begin() + prima, RIGHE_MIRE, QString());
    for (const MisuraReport &misura : MISURE)
        gRepMisure[misura.riga] = Far_Valore(misura.valore);
}

void Prendi_Sezione(const char16_t *sezione, BloccoReport *etichette, BloccoReport *valori)
{
    QList<VoceSezione> voci;
    Leggi_Sezione(QString::fromUtf16(sezione), voci);
    for (size_t i = 0; i < RIGHE_BLOCCO; ++i) {
        if (etichette != nullptr)
            (*etichette)[i] = voci[static_cast<qsizetype>(i)].Etichetta;
        if (valori != nullptr)
            (*valori)[i] = voci[static_cast<qsizetype>(i)].Valore;
    }
}

void Veicolo_Prova()
{
    const bool confermato = gTipoProva == ProvaConfermata;
    Prendi_Sezione(u"VEICOLO", &gRepVeicoloEt, confermato ? nullptr : &gRepVeicoloVal);
    for (size_t i = 0; confermato && i < gRepVeicoloVal.size(); ++i) {
        gRepVeicoloVal[i] = Valore_Ini(gFileAcc, QStringLiteral("DatiLibrettoVeicolo"),
                                       QString::fromUtf16(CHIAVI_LIBRETTO[i]));
    }
}

QString Operatore_Prova()
{
    const QString chiave = QStringLiteral("Operatore");
    return gTipoProva == ProvaScelta ? Valore_Ini(gFileAcc, QStringLiteral("Prenotazione"), chiave)
                                     : Valore_Ini(gFileIni, QStringLiteral("VEICOLO"), chiave);
}

void Dati_Stampa()
{
    gRepMisure[RepFine] = Ora_Presente();
    Prendi_Sezione(u"OFFICINA", nullptr, &gRepOfficina);
    Veicolo_Prova();
    gRepMisure[RepOperatore] = Operatore_Prova();
    Prendi_Sezione(u"LUMIRA", &gRepStrumentoEt, &gRepStrumentoVal);
    for (size_t i = 0; i < gRepTitoli.size(); ++i)
        gRepTitoli[i] = Testo_Lingua(static_cast<qint16>(TESTO_TITOLI + static_cast<qint16>(i)));
    for (size_t i = 0; i < gRepVoci.size(); ++i)
        gRepVoci[i] = Testo_Lingua(static_cast<qint16>(TESTO_VOCI + static_cast<qint16>(i)));
}

} // namespace

void Report_Dati(quint8 stadio)
{
    constexpr void (*STADI[])() = {Vuota_Tabelle, Inizio_Prova, Misure_Prova, Dati_Stampa};
    if (stadio < std::size(STADI))
        STADI[stadio]();
}

qint16 Leggi_Sezione(const QString &sezione, QList<VoceSezione> &voci)
{
    voci.clear();
    for (const ChiaveSezione &voce : CHIAVI_SEZIONI) {
        if (sezione != QString::fromUtf16(voce.sezione))
            continue;
        const QString chiave = QString::fromUtf16(voce.chiave);
        voci.append({Testo_Lingua(voce.etichetta), Valore_Ini(gFileIni, sezione, chiave), chiave});
    }
    if (voci.isEmpty())
        voci.append(VoceSezione{});
    return Intero16(voci.size() - 1);
}
