// The tables of the page filled from profile, acceptance file and result record. No place on the page is
// known here.
#include "core/modReport.h"

#include "core/codici.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "core/sezioni_acc.h"
#include "platform/orologio.h"

#include <algorithm>

std::array<QString, RIGHE_MISURE> gRepMisure;
BloccoReport gRepOfficina;
std::array<QString, RIGHE_TITOLI> gRepTitoli;
BloccoReport gRepStrumentoEt, gRepStrumentoVal;
BloccoReport gRepVeicoloEt, gRepVeicoloVal;
std::array<QString, RIGHE_VOCI> gRepVoci;

namespace {

struct VoceReport
{
    ChiaveIni chiave;
    TestoLingua etichetta;
};

constexpr VoceReport VOCI_SEZIONI[] = {
    {ChiaveOfficinaDenominazione, LinguaDenominazione       },
    {ChiaveOfficinaIndirizzo,     LinguaIndirizzo           },
    {ChiaveOfficinaLocalita,      LinguaLocalita            },
    {ChiaveOfficinaTelefonoFax,   LinguaTelefonoFax         },
    {ChiaveOfficinaSitoWeb,       LinguaSitoWeb             },
    {ChiaveStrumentoMarca,        LinguaMarca               },
    {ChiaveStrumentoModello,      LinguaModello             },
    {ChiaveStrumentoOmologazione, LinguaNumeroOmologazione  },
    {ChiaveStrumentoSerie,        LinguaNumeroSerie         },
    {ChiaveStrumentoScadenza,     LinguaScadenzaVerifica    },
    {ChiaveLingua,                LinguaLingua              },
    {ChiaveVeicoloMarca,          LinguaMarca               },
    {ChiaveVeicoloModello,        LinguaModello             },
    {ChiaveVeicoloTarga,          LinguaTarga               },
    {ChiaveVeicoloTelaio,         LinguaTelaio              },
    {ChiaveVeicoloAnno,           LinguaAnnoImmatricolazione},
    {ChiaveOperatore,             LinguaOperatore           },
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

void Prendi_Sezione(QStringView sezione, BloccoReport *etichette, BloccoReport *valori)
{
    QList<VoceSezione> voci;
    Leggi_Sezione(sezione.toString(), voci);
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
    Prendi_Sezione(SezioneVeicolo, &gRepVeicoloEt, confermato ? nullptr : &gRepVeicoloVal);
    for (size_t i = 0; confermato && i < gRepVeicoloVal.size(); ++i) {
        gRepVeicoloVal[i] =
            Valore_Ini(gFileAcc, SEZIONE_LIBRETTO.toString(), QString::fromUtf16(CHIAVI_LIBRETTO[i]));
    }
}

QString Operatore_Prova()
{
    return gTipoProva == ProvaScelta
               ? Valore_Ini(gFileAcc, SEZIONE_PRENOTAZIONE.toString(), QStringLiteral("Operatore"))
               : Valore_Ini(gFileIni, ChiaveOperatore);
}

void Dati_Stampa()
{
    gRepMisure[RepFine] = Ora_Presente();
    Prendi_Sezione(SezioneOfficina, nullptr, &gRepOfficina);
    Veicolo_Prova();
    gRepMisure[RepOperatore] = Operatore_Prova();
    Prendi_Sezione(SezioneStrumento, &gRepStrumentoEt, &gRepStrumentoVal);
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
    for (const VoceReport &voce : VOCI_SEZIONI) {
        if (sezione == voce.chiave.Sezione)
            voci.append({Testo_Lingua(voce.etichetta), Valore_Ini(gFileIni, voce.chiave),
                         voce.chiave.Nome.toString()});
    }
    if (voci.isEmpty())
        voci.append(VoceSezione{});
    return Intero16(voci.size() - 1);
}
