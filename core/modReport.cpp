// The tables of the page filled from profile, acceptance file and result record. No place on the page is
// known here.
#include "core/modReport.h"

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
    TestoLingua etichetta;
};

constexpr ChiaveSezione CHIAVI_SEZIONI[] = {
    {u"OFFICINA",     u"Denominazione",      LinguaDenominazione       },
    {u"OFFICINA",     u"Indirizzo",          LinguaIndirizzo           },
    {u"OFFICINA",     u"Localita",           LinguaLocalita            },
    {u"OFFICINA",     u"TelFax",             LinguaTelefonoFax         },
    {u"OFFICINA",     u"Web",                LinguaSitoWeb             },
    {u"LUMIRA",       u"Comm_Marca",         LinguaMarca               },
    {u"LUMIRA",       u"Comm_Modello",       LinguaModello             },
    {u"LUMIRA",       u"Comm_NOmologazione", LinguaNumeroOmologazione  },
    {u"LUMIRA",       u"Comm_NSerie",        LinguaNumeroSerie         },
    {u"LUMIRA",       u"Comm_ScadRevisione", LinguaScadenzaVerifica    },
    {u"IMPOSTAZIONI", u"Lingua",             LinguaLingua              },
    {u"VEICOLO",      u"Marca",              LinguaMarca               },
    {u"VEICOLO",      u"Modello",            LinguaModello             },
    {u"VEICOLO",      u"Targa",              LinguaTarga               },
    {u"VEICOLO",      u"Telaio",             LinguaTelaio              },
    {u"VEICOLO",      u"AnnoImm",            LinguaAnnoImmatricolazione},
    {u"VEICOLO",      u"Operatore",          LinguaOperatore           },
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

/// Texts of gRepTitoli and gRepVoci.
constexpr TestoLingua TITOLI[] = {
    LinguaTitoloRapporto,      LinguaTitoloStrumento,   LinguaTitoloVeicolo,
    LinguaTitoloAnabbaglianti, LinguaTitoloAbbaglianti,
};
constexpr TestoLingua VOCI[] = {
    LinguaOrientamentoVerticale,
    LinguaOrientamentoOrizzontale,
    LinguaIlluminamento,
    LinguaData,
    LinguaOraInizio,
    LinguaOraFine,
    LinguaOperatoreProva,
    LinguaFirma,
    LinguaRegolare,
    LinguaIrregolare,
};

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
    gRepMisure[RepTipoFaro] = Testo_Lingua(gSimmetrico != 0 ? LinguaSimmetrico : LinguaAsimmetrico);
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
    const bool confermato = gTipoProva == 4;
    Prendi_Sezione(u"VEICOLO", &gRepVeicoloEt, confermato ? nullptr : &gRepVeicoloVal);
    for (size_t i = 0; confermato && i < gRepVeicoloVal.size(); ++i) {
        gRepVeicoloVal[i] = Valore_Ini(gFileAcc, QStringLiteral("DatiLibrettoVeicolo"),
                                       QString::fromUtf16(CHIAVI_LIBRETTO[i]));
    }
}

QString Operatore_Prova()
{
    const QString chiave = QStringLiteral("Operatore");
    return gTipoProva == 2 ? Valore_Ini(gFileAcc, QStringLiteral("Prenotazione"), chiave)
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
        gRepTitoli[i] = Testo_Lingua(TITOLI[i]);
    for (size_t i = 0; i < gRepVoci.size(); ++i)
        gRepVoci[i] = Testo_Lingua(VOCI[i]);
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
