// The serial line: the machine's ports, the station's own, and who answers at its other end.
#include "strumenti/diagnosi.h"

#include "core/modGeneral.h"
#include "core/parole.h"
#include "link/modComm.h"
#include "platform/errore_esecuzione.h"
#include "platform/istanza.h"
#include "platform/percorsi.h"
#include "strumenti/sonda_strumento.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {

/// What the station itself waits before it asks again, in ms; on a search an instrument that is there has
/// answered long before.
constexpr int ATTESA_RISPOSTA = 2200;
constexpr int ATTESA_CERCA = 800;

/// Texts of the identity, by their place in gDatiStrumento.
enum TestoIdentita : quint8
{
    IdentitaModello = 0,
    IdentitaMarca = 1,
    IdentitaSerie = 3,
    IdentitaScadenza = 4,
    TestiIdentita = 6,
};

struct FormatoUsuale
{
    qint32 Baud;
    QStringView Parita;
    quint8 BitDati, BitStop;

    bool operator==(const FormatoUsuale &) const = default;
};

// clang-format off
/// The likeliest first.
constexpr FormatoUsuale FORMATI_USUALI[] = {
    {9600,   u"N", 8, 1},
    {19200,  u"N", 8, 1},
    {4800,   u"N", 8, 1},
    {38400,  u"N", 8, 1},
    {115200, u"N", 8, 1},
    {9600,   u"E", 7, 1},
};
// clang-format on

constexpr Parole PORTA = {u"%1: %2", u"%1: %2"};
constexpr Parole PORTA_SENZA_DIRITTI = {u"%1: %2, senza diritto di usarla", u"%1: %2, no right to use it"};
constexpr Parole SENZA_NUMERO = {u"%1, senza numero per la stazione",
                                 u"%1, without a number for the station"};
/// Where devices have numbers of their own, none lacks one.
constexpr Parole DARE_NUMERO = {u"dargliene uno: mkdir -p %1; ln -s %2 %1/%3",
                                u"give it one: mkdir -p %1; ln -s %2 %1/%3"};
constexpr Parole NESSUNA = {u"il computer non ha porte seriali", u"the computer has no serial port"};
constexpr Parole ATTACCARE = {u"attaccare l'adattatore seriale", u"plug the serial adapter in"};
constexpr Parole ASSENTE = {u"%1, la porta della stazione, non c'è", u"%1, the station's port, is not there"};
constexpr Parole ALTRA_PORTA = {u"attaccare l'adattatore, o scegliere nelle impostazioni una porta che c'è",
                                u"plug the adapter in, or choose a port that is there in the settings"};
constexpr Parole SENZA_DIRITTI = {u"%1, la porta della stazione, non si può usare senza il diritto",
                                  u"%1, the station's port, cannot be used without the right to"};
constexpr Parole DARE_DIRITTI = {u"mettere l'utente nel gruppo delle porte seriali (dialout)",
                                 u"put the user in the group of the serial ports (dialout)"};
constexpr Parole APRIBILE = {u"%1, la porta della stazione, si apre a %2",
                             u"%1, the station's port, opens at %2"};
constexpr Parole IN_USO = {u"%1 è occupata dalla stazione aperta", u"%1 is taken by the open station"};
constexpr Parole CHIUDERE = {u"per provarla chiudere la stazione e ripetere",
                             u"to try it close the station and start again"};
constexpr Parole OCCUPATA = {u"%1 è occupata da un altro programma, o non è una porta",
                             u"%1 is taken by another program, or is no port"};
constexpr Parole CHIUDERE_ALTRO = {u"chiudere il programma che la usa", u"close the program that uses it"};
constexpr Parole SORDA = {u"%1 si apre, ma %2 non è un formato", u"%1 opens, but %2 is no format"};
constexpr Parole SCEGLIERE = {u"scegliere la porta nelle impostazioni", u"choose the port in the settings"};

constexpr Parole RISPONDE = {u"risponde su %1 a %2, %3", u"answers on %1 at %2, %3"};
constexpr Parole MUTO = {u"su %1 non risponde nessuno", u"nobody answers on %1"};
constexpr Parole ACCENDERE = {u"accenderlo e guardare il cavo; --cerca lo cerca sulle altre porte",
                              u"switch it on and look at its cable; --cerca looks for it on the other ports"};
constexpr Parole STORPIO = {u"su %1 arriva qualcosa che non è una risposta", u"what comes on %1 is no reply"};
constexpr Parole FORMATO = {u"guardare velocità e formato; --cerca prova quelli usuali",
                            u"look at speed and format; --cerca tries the usual ones"};
constexpr Parole STORPIO_A = {u"su %1 a %2 arriva qualcosa che non è una risposta, e in nessun formato lo è",
                              u"what comes on %1 at %2 is no reply, nor is it one in any format"};
constexpr Parole GUARDARE_CAVO = {u"guardare cavo, adattatore e formato dello strumento",
                                  u"look at the cable, the adapter and the instrument's format"};
constexpr Parole ALTROVE = {u"risponde su %1 a %2, e la stazione lo cerca su %3",
                            u"it answers on %1 at %2, and the station looks for it on %3"};
constexpr Parole METTERE_PORTA = {u"scegliere %1 nelle impostazioni, con %2 in lumira.ini, [%3]",
                                  u"choose %1 in the settings, with %2 in lumira.ini, [%3]"};
constexpr Parole INTROVABILE = {u"non risponde su nessuna porta con nessun formato usuale",
                                u"it answers on no port in any usual format"};
constexpr Parole NON_CERCATO = {u"non cercato su %1", u"not looked for on %1"};
constexpr Parole ACCENDERE_SOLO = {u"accenderlo e guardare il cavo", u"switch it on and look at its cable"};
constexpr Parole IDENTITA = {u"%1 %2, serie %3", u"%1 %2, serial number %3"};
constexpr Parole IDENTITA_ALTRA = {u"%1 %2, serie %3: lumira.ini ha la serie %4",
                                   u"%1 %2, serial number %3: lumira.ini has %4"};
constexpr Parole LEGGERE = {u"leggere i dati dello strumento dalle impostazioni",
                            u"read the instrument's data in the settings"};
constexpr Parole SENZA_IDENTITA = {u"non dà la sua identità", u"it does not give its identity"};
constexpr Parole FERMARE = {u"finire la misura in corso e ripetere",
                            u"end the measure under way and try again"};

/// By the byte of the state.
struct ParoleStato
{
    char Stato;
    Parole Detto;
};
constexpr ParoleStato STATI[] = {
    {'1', {u"a riposo", u"idle"}              },
    {'2', {u"misura in corso", u"measuring"}  },
    {'4', {u"misura pronta", u"measure ready"}},
};

QString Stato_Detto(char stato)
{
    const auto *trovato = std::find_if(std::begin(STATI), std::end(STATI),
                                       [stato](const ParoleStato &voce) { return voce.Stato == stato; });
    return trovato == std::end(STATI) ? QString(QChar::fromLatin1(stato)) : In_Parole(trovato->Detto);
}

/// The settings of the station are those of lumira.ini; without a whole set of them there is no port.
bool Porta_Leggi()
{
    try {
        Leggi_Porta(gFileIni);
        return gPortaNum > 0;
    } catch (const ErroreEsecuzione &) {
        return false; // the look at the configuration has told
    }
}

void Elenca(Riscontri &riscontri)
{
    const QList<PortaTrovata> porte = Porte_Elenca();
    if (porte.isEmpty())
        Trovato_Guasto(riscontri, Materia::Porte, In_Parole(NESSUNA), In_Parole(ATTACCARE));
    for (const PortaTrovata &porta : porte)
        Porta_Aggiungi(riscontri, porta);
}

/// A session has the port at any moment, and what is asked from beside falls into it.
bool Ha_LaStazione(qint16 numero, qint16 sua)
{
    // A device may have two numbers.
    return Porta_Dispositivo(numero) == Porta_Dispositivo(sua) && Istanza_InCorso(Programma_Stazione());
}

bool Permessa(qint16 numero)
{
    const QList<PortaTrovata> porte = Porte_Elenca();
    return std::none_of(porte.cbegin(), porte.cend(), [numero](const PortaTrovata &porta) {
        return porta.Numero == numero && !porta.Permessa;
    });
}

/// Asks on the open port once.
void Chiedi(Riscontri &riscontri, SondaStrumento &sonda)
{
    switch (sonda.Chiedi_Stato(ATTESA_RISPOSTA)) {
    case EsitoSonda::Risponde:
        Trovato_Buono(
            riscontri, Materia::Strumento,
            In_Parole(RISPONDE).arg(Porta_Nome(), Impostazioni_Porta(), Stato_Detto(sonda.Stato())));
        return;
    case EsitoSonda::Storpio:
        Trovato_Guasto(riscontri, Materia::Strumento, In_Parole(STORPIO).arg(Porta_Nome()),
                       In_Parole(FORMATO));
        return;
    default: // silent, or its device has gone meanwhile
        Trovato_Guasto(riscontri, Materia::Strumento, In_Parole(MUTO).arg(Porta_Nome()),
                       In_Parole(ACCENDERE));
    }
}

/// Reads the identity of who answers on an open port, and judges it.
void Identita(Riscontri &riscontri, SondaStrumento &sonda)
{
    if (!sonda.Leggi_Identita() || gDatiStrumento.size() < TestiIdentita) {
        Trovato_Avviso(riscontri, Materia::Strumento, In_Parole(SENZA_IDENTITA), In_Parole(FERMARE));
        return;
    }
    const QString serie = gDatiStrumento[IdentitaSerie];
    const QString tenuta = Valore_Ini(gFileIni, ChiaveStrumentoSerie);
    const QString marca = gDatiStrumento[IdentitaMarca], modello = gDatiStrumento[IdentitaModello];
    if (serie == tenuta)
        Trovato_Buono(riscontri, Materia::Strumento, In_Parole(IDENTITA).arg(marca, modello, serie));
    else
        Trovato_Avviso(riscontri, Materia::Strumento,
                       In_Parole(IDENTITA_ALTRA).arg(marca, modello, serie, tenuta), In_Parole(LEGGERE));
    Verifica_Aggiungi(riscontri, Materia::Strumento, gDatiStrumento[IdentitaScadenza]);
}

/// The station's own settings first, then the usual ones, each once.
QList<FormatoUsuale> Formati(const QString &parita)
{
    QList<FormatoUsuale> formati;
    if (gPortaBaud > 0)
        formati.append({gPortaBaud, parita, gPortaDataBit, gPortaStopBit});
    std::copy_if(std::begin(FORMATI_USUALI), std::end(FORMATI_USUALI), std::back_inserter(formati),
                 [&formati](const FormatoUsuale &usuale) { return !formati.contains(usuale); });
    return formati;
}

/// Asks on the port gPortaNum in each format. @return Risponde when somebody answered: the settings are
/// those; NonAperta when nobody could be asked.
/// @param[in,out] senzaRisposta gets what came and was no reply.
EsitoSonda Risponde_In(const QList<FormatoUsuale> &formati, Riscontri &riscontri, Riscontri &senzaRisposta,
                       const QString &attesa)
{
    QString storpio; // the first format in which something came
    for (const FormatoUsuale &formato : formati) {
        gPortaBaud = formato.Baud;
        gPortaParity = formato.Parita.toString();
        gPortaDataBit = formato.BitDati;
        gPortaStopBit = formato.BitStop;
        SondaStrumento sonda;
        const EsitoSonda esito = sonda.Chiedi_Stato(ATTESA_CERCA);
        if (esito == EsitoSonda::NonAperta)
            return esito;
        if (esito == EsitoSonda::Storpio && storpio.isEmpty())
            storpio = Impostazioni_Porta();
        if (esito != EsitoSonda::Risponde)
            continue;
        const QString qui = Porta_Nome(), come = Impostazioni_Porta();
        if (attesa == qui + u' ' + come)
            Trovato_Buono(riscontri, Materia::Strumento,
                          In_Parole(RISPONDE).arg(qui, come, Stato_Detto(sonda.Stato())));
        else
            Trovato_Guasto(riscontri, Materia::Strumento, In_Parole(ALTROVE).arg(qui, come, attesa),
                           In_Parole(METTERE_PORTA).arg(qui, come, SezionePorta.toString()));
        Identita(riscontri, sonda);
        return esito;
    }
    if (storpio.isEmpty())
        return EsitoSonda::Muto;
    Trovato_Guasto(senzaRisposta, Materia::Strumento, In_Parole(STORPIO_A).arg(Porta_Nome(), storpio),
                   In_Parole(GUARDARE_CAVO));
    return EsitoSonda::Storpio;
}

} // namespace

void Porta_Aggiungi(Riscontri &riscontri, const PortaTrovata &porta)
{
    if (porta.Numero == 0) {
        const QString legami = Percorso_Nativo(gAppPath + QStringLiteral("porte"));
        Trovato_Avviso(riscontri, Materia::Porte, In_Parole(SENZA_NUMERO).arg(porta.Dispositivo),
                       In_Parole(DARE_NUMERO).arg(legami, porta.Dispositivo, Porta_Nome(1)));
        return;
    }
    const QString nome = Porta_Nome(porta.Numero);
    if (porta.Permessa)
        Trovato_Buono(riscontri, Materia::Porte, In_Parole(PORTA).arg(nome, porta.Dispositivo));
    else
        Trovato_Avviso(riscontri, Materia::Porte, In_Parole(PORTA_SENZA_DIRITTI).arg(nome, porta.Dispositivo),
                       In_Parole(DARE_DIRITTI));
}

void Diagnosi_Porte(Riscontri &riscontri, bool chiedi)
{
    Elenca(riscontri);
    if (!Porta_Leggi())
        return;
    if (!Porta_Presente(gPortaNum)) {
        Trovato_Guasto(riscontri, Materia::Porte, In_Parole(ASSENTE).arg(Porta_Nome()),
                       In_Parole(ALTRA_PORTA));
        return;
    }
    if (!Permessa(gPortaNum)) {
        Trovato_Guasto(riscontri, Materia::Porte, In_Parole(SENZA_DIRITTI).arg(Porta_Nome()),
                       In_Parole(DARE_DIRITTI));
        return;
    }
    if (Ha_LaStazione(gPortaNum, gPortaNum)) {
        Trovato_Avviso(riscontri, Materia::Porte, In_Parole(IN_USO).arg(Porta_Nome()), In_Parole(CHIUDERE));
        return;
    }
    // One opening for both questions: each moves the lines of whatever hangs on the port.
    SondaStrumento sonda;
    const EsitoSonda aperta = sonda.Apri();
    if (aperta == EsitoSonda::NonAperta) {
        Trovato_Guasto(riscontri, Materia::Porte, In_Parole(OCCUPATA).arg(Porta_Nome()),
                       In_Parole(CHIUDERE_ALTRO));
        return;
    }
    if (aperta == EsitoSonda::Sorda) {
        Trovato_Guasto(riscontri, Materia::Porte, In_Parole(SORDA).arg(Porta_Nome(), Impostazioni_Porta()),
                       In_Parole(SCEGLIERE));
        return;
    }
    Trovato_Buono(riscontri, Materia::Porte, In_Parole(APRIBILE).arg(Porta_Nome(), Impostazioni_Porta()));
    if (chiedi)
        Chiedi(riscontri, sonda);
}

void Diagnosi_Cerca(Riscontri &riscontri)
{
    const bool letta = Porta_Leggi();
    const QString parita = gPortaParity;
    const QList<FormatoUsuale> formati = Formati(parita);
    const QString attesa = letta ? Porta_Nome() + u' ' + Impostazioni_Porta() : QStringLiteral("COM?");
    const qint16 sua = gPortaNum;
    QList<PortaTrovata> porte = Porte_Elenca();
    porte.removeIf([](const PortaTrovata &porta) { return porta.Numero == 0; });
    // The station's own first: it is where the instrument is on most mornings.
    std::stable_partition(porte.begin(), porte.end(),
                          [sua](const PortaTrovata &porta) { return porta.Numero == sua; });
    bool trovato = false;
    Riscontri senzaRisposta; // where the instrument may still be
    const auto salta = [&senzaRisposta](const Parole &rimedio) {
        Trovato_Avviso(senzaRisposta, Materia::Strumento, In_Parole(NON_CERCATO).arg(Porta_Nome()),
                       In_Parole(rimedio));
    };
    for (const PortaTrovata &porta : std::as_const(porte)) {
        gPortaNum = porta.Numero;
        if (!porta.Permessa) {
            salta(DARE_DIRITTI);
        } else if (letta && Ha_LaStazione(porta.Numero, sua)) {
            salta(CHIUDERE);
        } else {
            const EsitoSonda esito = Risponde_In(formati, riscontri, senzaRisposta, attesa);
            if (esito == EsitoSonda::NonAperta)
                salta(CHIUDERE_ALTRO);
            trovato = trovato || esito == EsitoSonda::Risponde;
        }
    }
    if (trovato)
        return;
    riscontri.append(senzaRisposta);
    if (senzaRisposta.isEmpty())
        Trovato_Guasto(riscontri, Materia::Strumento, In_Parole(INTROVABILE), In_Parole(ACCENDERE_SOLO));
}
