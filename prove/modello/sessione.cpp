#include "prove/modello/sessione.h"

#include "platform/codifica.h"

#include <algorithm>

namespace modello {

const QStringList PROFILO_IDENTITA = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"),
                                      QStringLiteral("D"), QStringLiteral("E"), QStringLiteral("AB")};
QStringList Profilo_Taratura(bool cambiato)
{
    QStringList testi(10);
    testi[0] = QStringLiteral("1");
    testi[1] = QStringLiteral("22");
    testi[4] = QStringLiteral("S3");
    testi[9] = cambiato ? QStringLiteral("77") : QStringLiteral("10");
    return testi;
}

namespace {

enum Testo : int
{
    Titolo = 152,
    Silenzio = 153,
    RispostaErrata = 154,
    AltroGenere = 155,
    Completata = 156,
};

enum Tempo : int
{
    Beat = 200,
    LimiteSilenzio = 2000,
    MostraEsito = 2000,
    MostraSilenzio = 4000,
    TimerSpento = 10000, // what a beat lasts when there is none
};

constexpr int REINVII = 10;
constexpr int FALLITA = 7;
constexpr int RIUSCITA = 6;
constexpr int TRABOCCO = 6;
constexpr int PORTA_CHIUSA = 8018;
constexpr int USCITA_RIFIUTATA = 8020;
constexpr quint32 BIANCO = 0xFFFFFF;
constexpr quint32 ROSSO = 0x0000FF;
constexpr quint32 VERDE = 0x00FF00;
constexpr char SEPARATORE = 0x17;
constexpr quint8 INIZIO = 0x02;
constexpr quint8 FINE = 0x03;

struct RigaModo
{
    std::array<quint8, 3> Comandi; // 0: no such step
    int Scritta;                   // first caption, 0 for an empty one
    bool DalProfilo;               // the identity comes from the profile, at the start
};
constexpr RigaModo TABELLA_MODI[MODI] = {
    {{1, 2, 0}, Titolo, false},
    {{1, 4, 7}, Titolo, false},
    {{1, 5, 6}, Titolo, false},
    {{5, 6, 8}, 0,      true },
};

enum class Carico : quint8
{
    Nessuno,
    Primi,    // up to the fifth separator
    Resto,    // behind the fifth separator, and a zero that counts for nothing
    Taratura, // the ten texts of the profile
};
struct RigaComando
{
    quint8 Tipo;
    quint8 Codice;
    Carico Cosa;
};
constexpr RigaComando COMANDI[] = {
    {1, 0x10, Carico::Nessuno }, //
    {2, 0x20, Carico::Nessuno }, //
    {4, 0x50, Carico::Nessuno }, //
    {5, 0x60, Carico::Primi   }, //
    {6, 0x80, Carico::Resto   }, //
    {7, 0x90, Carico::Nessuno }, //
    {8, 0xA0, Carico::Taratura},
};

QByteArray Carica(const QStringList &testi)
{
    QByteArray dati;
    for (const QString &testo : testi)
        dati += Testo_InAnsi(testo) + SEPARATORE;
    return dati;
}

/// Place of the fifth separator; 0 when there are fewer.
qsizetype Quinto(const QByteArray &dati)
{
    qsizetype posto = -1;
    for (int volta = 0; volta < 5; ++volta) {
        posto = dati.indexOf(SEPARATORE, posto + 1);
        if (posto < 0)
            return 0;
    }
    return posto;
}

char Controllo(const QByteArray &byte)
{
    unsigned somma = 0;
    for (const char c : byte)
        somma += static_cast<quint8>(c);
    return static_cast<char>('0' + somma % 256 % 10);
}

QString Esadecimale(const char *byte, qsizetype quanti)
{
    return QString::fromLatin1(QByteArray(byte, quanti).toHex().toUpper());
}

/// A whole number of 16 bits, or none.
bool In16Bit(int valore)
{
    return valore >= -32768 && valore <= 32767;
}

constexpr int TRABOCCATA = -1000000;

} // namespace

/// First row that fits wins. A posto below 0 fits every reply.
struct Sessione::RigaRisposta
{
    quint8 Modo;
    quint8 Comando;
    qint8 Posto;
    quint8 Atteso;
    Passi Poi;
};
const Sessione::RigaRisposta Sessione::RISPOSTE[] = {
    {0, 1, 4,  '1',  &Sessione::Ripeti         },
    {0, 1, 4,  '2',  &Sessione::Ripeti         },
    {0, 1, 4,  '4',  &Sessione::Avanza         },
    {0, 1, -1, 0,    &Sessione::Errata         },
    {0, 2, -1, 0,    &Sessione::Prendi_Misura  },
    {1, 1, 4,  '1',  &Sessione::Avanza         },
    {1, 1, -1, 0,    &Sessione::Errata         },
    {1, 4, 4,  'U',  &Sessione::Prendi_Dati    },
    {1, 4, -1, 0,    &Sessione::Altra          },
    {1, 7, 3,  'C',  &Sessione::Prendi_Taratura},
    {1, 7, -1, 0,    &Sessione::Altra          },
    {2, 1, 4,  '1',  &Sessione::Prepara        },
    {2, 1, -1, 0,    &Sessione::Errata         },
    {2, 5, 4,  0xFF, &Sessione::Scritto        },
    {2, 5, -1, 0,    &Sessione::Errata         },
    {2, 6, 4,  0xFF, &Sessione::Scritto        },
    {2, 6, -1, 0,    &Sessione::Errata         },
    {2, 8, 4,  0xFF, &Sessione::Scritto        },
    {2, 8, -1, 0,    &Sessione::Errata         },
    {3, 5, -1, 0,    &Sessione::Avanza         },
    {3, 6, -1, 0,    &Sessione::Avanza         },
    {3, 8, -1, 0,    &Sessione::Avanza         },
};

QString Testo_Scritta(int numero)
{
    if (numero == 0)
        return {};
    return numero == SCRITTA_ATTESA ? QStringLiteral("Attesa dati...") : QString::number(numero);
}

Sessione::Sessione(quint8 modo, Porta porta, const QStringList &strumento)
    : Modo(modo), Linea(porta), Strumento(strumento)
{
}

QByteArray Sessione::Sequenza() const
{
    QByteArray sequenza;
    for (const quint8 comando : TABELLA_MODI[Modo].Comandi) {
        if (comando != 0)
            sequenza.append(static_cast<char>(comando));
    }
    return sequenza;
}

// --- from outside -----------------------------------------------------------------------------------------

void Sessione::Apri(Giornale &giornale)
{
    Mostra(TABELLA_MODI[Modo].Scritta, giornale);
    Esito = FALLITA;
    giornale.Annota(QLatin1String("CommPort"), 3);
    giornale.Annota(QLatin1String("PortOpen"), 1);
    if (Linea != Porta::Chiusa)
        giornale.Annota(QLatin1String("Settings"), QStringLiteral("9600,N,8,1"));
    if (Linea == Porta::Buona) {
        giornale.Annota(QLatin1String("InputLen"), 0);
        giornale.Annota(QLatin1String("InputMode"), 1);
        giornale.Annota(QLatin1String("RThreshold"), 1);
        giornale.Annota(QLatin1String("NullDiscard"), 0);
    }
    if (TABELLA_MODI[Modo].DalProfilo) {
        Strumento = PROFILO_IDENTITA;
        Dati = Carica(Strumento);
    }
    Componi(TABELLA_MODI[Modo].Comandi[0]);
    try {
        Invia(giornale);
    } catch (const Fatale &) {
        // Loading passes over every error: the window stands, and the operator ends it.
    }
}

bool Sessione::Offre(const Evento &evento) const
{
    switch (evento.Tipo) {
    case Genere::Battito:
        return true;
    case Genere::BattitoConLista:
        return Stato == 3 && Intervallo > 0;
    case Genere::BattitoSenzaUscita:
        return (Stato == 1 || Stato == 2) && Intervallo > 0;
    case Genere::Byte:
        // A reply that begins inside another is there as a whole one: two heads are one with a longer head.
        return Linea != Porta::Chiusa && (StatoRx == 0 || evento.Byte.contains(static_cast<char>(FINE)));
    case Genere::Profilo: // of the other modes none reads it
        return Modo == 3 && !ProfiloCambiato;
    case Genere::Linea:
    case Genere::Vuoto:
    case Genere::Default:
        return Linea == Porta::Buona;
    case Genere::Pulsante:
        return true;
    }
    return false;
}

int Sessione::Fra(const Evento &evento) const
{
    if (evento.Tipo <= Genere::BattitoSenzaUscita)
        return Intervallo > 0 ? Resta : int{TimerSpento};
    return Intervallo > 0 ? std::min(evento.Dopo, Resta - 1) : evento.Dopo;
}

void Sessione::Accada(const Evento &evento, Giornale &giornale)
{
    if (Intervallo > 0)
        Resta -= Fra(evento);
    m_lista = evento.Tipo == Genere::BattitoConLista;
    m_rifiuta = evento.Tipo == Genere::BattitoSenzaUscita;
    try {
        switch (evento.Tipo) {
        case Genere::Battito:
        case Genere::BattitoConLista:
        case Genere::BattitoSenzaUscita:
            Batti(giornale);
            break;
        case Genere::Byte:
            if (Linea == Porta::Buona) {
                for (const char c : evento.Byte)
                    Ricevi(static_cast<quint8>(c), giornale);
            }
            break;
        case Genere::Linea: // a damaged frame is known by its check character
            break;
        case Genere::Vuoto:
            giornale.Annota(QLatin1String("Errore"), QStringLiteral("Rec sts: 13\r\nSubscript out of range"));
            break;
        case Genere::Profilo:
            ProfiloCambiato = true;
            break;
        case Genere::Default:
            Strumento = PROFILO_IDENTITA;
            giornale.Annota(QLatin1String("Titolo"), Testo_Scritta(TABELLA_MODI[Modo].Scritta));
            Dati = Carica(Strumento);
            Passo = 0;
            Componi(5);
            Invia(giornale);
            break;
        case Genere::Pulsante:
            Scarica(giornale);
            break;
        }
    } catch (const Fatale &fatale) {
        Finita = true;
        Errore = fatale.Numero;
    }
}

quint64 Sessione::Chiave() const
{
    quint64 chiave = 0;
    const auto aggiungi = [&chiave](int valore, int bit) {
        chiave = chiave << bit | static_cast<quint64>(valore);
    };
    const bool attesa = Stato == 2;
    aggiungi(static_cast<int>(Linea), 2);
    aggiungi(Stato, 2);
    aggiungi(Comando, 4);
    aggiungi(std::min(Passo, static_cast<int>(Sequenza().size())), 2);
    aggiungi(Stato == 1 ? Tick : 0, 4); // counts from zero whenever a wait begins
    aggiungi(std::min(Reinvii, REINVII + 1), 4);
    aggiungi(Esito, 3);
    aggiungi(Intervallo / Beat, 5);
    aggiungi(Scritta == 0 || Scritta == SCRITTA_ATTESA ? Scritta : Scritta - Titolo + 2, 3);
    aggiungi(ProfiloCambiato ? 1 : 0, 1);
    aggiungi(StatoRx, 1);
    aggiungi(StatoRx == 0 ? 0 : Indice, 7);
    // What lies in the buffer counts by what the rows of this mode would find there. A short reply leaves
    // the bytes of the one before it, so that they count also when nothing waits.
    aggiungi(attesa && Valida() ? 1 : 0, 1);
    aggiungi(attesa && Rx[2] == FINE ? 1 : 0, 1);
    for (const RigaRisposta &riga : RISPOSTE) {
        if (riga.Modo == Modo && riga.Posto >= 0)
            aggiungi(Rx[static_cast<size_t>(riga.Posto)] == riga.Atteso ? 1 : 0, 1);
    }
    for (int record = 0; Modo == 0 && record < 4; ++record)
        aggiungi(Cifra(record) == TRABOCCATA ? 1 : 0, 1);
    return chiave;
}

// --- the line ---------------------------------------------------------------------------------------------

void Sessione::Ricevi(quint8 byte, Giornale &giornale)
{
    if (StatoRx == 0) {
        if (byte != INIZIO)
            return;
        StatoRx = 1;
        Rx[0] = byte;
        Indice = 1;
        return;
    }
    if (Indice >= CAPIENZA) {
        giornale.Annota(QLatin1String("Errore"), QStringLiteral("Auto sts: 1\r\nSubscript out of range"));
        return;
    }
    Rx[static_cast<size_t>(Indice++)] = byte;
    if (!giornale.Muto)
        giornale.Annota(QLatin1String("Rx"), Esadecimale(reinterpret_cast<const char *>(Rx.data()), Indice));
    if (byte == FINE) {
        StatoRx = 0;
        Stato = 2;
    }
}

void Sessione::Componi(quint8 tipo)
{
    const RigaComando &riga = *std::find_if(std::begin(COMANDI), std::end(COMANDI),
                                            [tipo](const RigaComando &una) { return una.Tipo == tipo; });
    Comando = tipo;
    QByteArray corpo;
    QByteArray sommato; // the sum may run over more than the frame carries
    if (riga.Cosa == Carico::Primi) {
        const qsizetype quinto = Quinto(Dati);
        corpo = Dati.first(quinto + 1);
        sommato = quinto == 0 ? Dati : corpo;
    } else if (riga.Cosa == Carico::Resto) {
        sommato = Dati.mid(Quinto(Dati) + 1);
        corpo = sommato + '\0';
    } else if (riga.Cosa == Carico::Taratura) {
        Taratura = Profilo_Taratura(ProfiloCambiato);
        Dati = Carica(Taratura);
        corpo = sommato = Dati;
    }
    const QByteArray testa = QByteArray("\x02"
                                        "ABC") +
                             static_cast<char>(riga.Codice);
    Frame = testa + corpo + Controllo(testa + sommato) + static_cast<char>(FINE);
}

void Sessione::Invia(Giornale &giornale)
{
    const QString frame = Esadecimale(Frame.constData(), Frame.size());
    giornale.Annota(QLatin1String("Tx"), frame);
    Tick = 0;
    Colora(BIANCO, giornale);
    Stato = 1;
    giornale.Annota(QLatin1String("OutBufferCount"), 0);
    if (Linea == Porta::Chiusa)
        throw Fatale{PORTA_CHIUSA};
    giornale.Annota(QLatin1String("Output"), frame);
    if (m_rifiuta)
        throw Fatale{USCITA_RIFIUTATA};
    Arma(Beat);
}

bool Sessione::Valida() const
{
    const auto fine = std::find(Rx.cbegin(), Rx.cend(), FINE);
    const auto quanti = fine - Rx.cbegin();
    if (fine == Rx.cend() || quanti < 1)
        return false;
    const QByteArray sommati(reinterpret_cast<const char *>(Rx.data()), quanti - 1);
    return Controllo(sommati) == static_cast<char>(*(fine - 1));
}

// --- the beat ---------------------------------------------------------------------------------------------

void Sessione::Arma(int ms)
{
    Intervallo = Resta = ms;
}

void Sessione::Colora(quint32 colore, Giornale &giornale) const
{
    giornale.Annota(QLatin1String("Sha"), colore);
}

void Sessione::Mostra(int scritta, Giornale &giornale)
{
    Scritta = scritta;
    giornale.Annota(QLatin1String("Lbl"), Testo_Scritta(scritta));
}

void Sessione::Batti(Giornale &giornale)
{
    if (Intervallo == 0)
        return;
    Resta = Intervallo;
    if (Stato == 1) {
        Attendi(giornale);
    } else if (Stato == 2) {
        Giudica(giornale);
    } else if (Stato == 3) {
        Intervallo = 0;
        if (!m_lista)
            Scarica(giornale);
    }
}

/// The second limit of a wait, 10 s, cannot be reached: the resend at 2.2 s counts from zero again.
void Sessione::Attendi(Giornale &giornale)
{
    ++Tick;
    Colora(Tick % 2 != 0 ? BIANCO : ROSSO, giornale);
    if (Tick * Intervallo <= LimiteSilenzio)
        return;
    Componi(Comando);
    Invia(giornale);
    ++Reinvii;
    if (Reinvii > REINVII)
        Chiudi(Silenzio, MostraSilenzio, giornale);
}

void Sessione::Chiudi(int scritta, int ms, Giornale &giornale)
{
    Mostra(scritta, giornale);
    Arma(ms);
    Esito = FALLITA;
    Stato = 3;
}

void Sessione::Giudica(Giornale &giornale)
{
    Colora(VERDE, giornale);
    Intervallo = 0;
    Stato = 0;
    if (!Valida()) {
        Errata(giornale);
        return;
    }
    for (const RigaRisposta &riga : RISPOSTE) {
        const bool sua = riga.Modo == Modo && riga.Comando == Comando;
        if (sua && (riga.Posto < 0 || Rx[static_cast<size_t>(riga.Posto)] == riga.Atteso)) {
            (this->*riga.Poi)(giornale);
            return;
        }
    }
}

void Sessione::Scarica(Giornale &giornale)
{
    Intervallo = 0;
    Finita = true;
    if (Linea != Porta::Chiusa)
        giornale.Annota(QLatin1String("PortOpen"), 0);
    giornale.Annota(QLatin1String("Nota"), Nota());
    giornale.Annota(QLatin1String("Notifica"), Esito);
}

/// A session that went well leaves no words; a port that is at fault comes before what followed from it.
QString Sessione::Nota() const
{
    if (Esito == RIUSCITA)
        return {};
    if (Linea == Porta::Chiusa)
        return QStringLiteral("COM3 non si è aperta: controllare cavo e porta");
    if (Linea == Porta::Sorda)
        return QStringLiteral("COM3: velocità o formato errati in lumira.ini");
    if (Scritta >= Silenzio && Scritta <= AltroGenere)
        return Testo_Scritta(Scritta);
    return QStringLiteral("Collegamento interrotto dall'operatore");
}

// --- what a reply leads to --------------------------------------------------------------------------------

void Sessione::Avanza(Giornale &giornale)
{
    ++Passo;
    const QByteArray sequenza = Sequenza();
    if (Passo >= sequenza.size()) {
        Arma(MostraEsito);
        Esito = RIUSCITA;
        Stato = 3;
        Mostra(Completata, giornale);
        return;
    }
    Mostra(SCRITTA_ATTESA, giornale);
    Componi(static_cast<quint8>(sequenza[Passo]));
    Invia(giornale);
}

void Sessione::Ripeti(Giornale &giornale)
{
    --Passo;
    Avanza(giornale);
}

/// @return the figure of a record, or TRABOCCATA when it passes 16 bits on the way.
int Sessione::Cifra(int record) const
{
    int cifra = 0;
    int peso = 1;
    for (int posto = 7 + 6 * record; posto >= 4 + 6 * record; --posto, peso *= 10) {
        const int prodotto = (Rx[static_cast<size_t>(posto)] - '0') * peso;
        if (!In16Bit(prodotto) || !In16Bit(cifra + prodotto))
            return TRABOCCATA;
        cifra += prodotto;
    }
    return cifra;
}

void Sessione::Prendi_Misura(Giornale &giornale)
{
    Misure.fill(Faro());
    for (int k = 0; k < 4; ++k) {
        const auto carattere = [this](int posto) {
            return Testo_DaAnsi(QByteArray(1, static_cast<char>(Rx[static_cast<size_t>(posto)])));
        };
        const int cifra = Cifra(k);
        if (cifra == TRABOCCATA)
            throw Fatale{TRABOCCO};
        Faro &faro = Misure[static_cast<size_t>(k)];
        faro = {cifra, carattere(8 + 6 * k), carattere(9 + 6 * k)};
        const QString numero = QString::number(k) + u'=';
        giornale.Annota(QLatin1String("Dbg"), u'L' + numero + QString::number(cifra));
        giornale.Annota(QLatin1String("Dbg"), u'V' + numero + faro.V);
        giornale.Annota(QLatin1String("Dbg"), u'O' + numero + faro.O);
    }
    Esito = RIUSCITA;
    Avanza(giornale);
}

QStringList Sessione::Testi(int posto, Giornale &giornale) const
{
    QStringList testi;
    QByteArray testo;
    for (int i = posto; i < CAPIENZA && Rx[static_cast<size_t>(i)] != FINE; ++i) {
        const char c = static_cast<char>(Rx[static_cast<size_t>(i)]);
        if (c != SEPARATORE) {
            testo.append(c);
            continue;
        }
        testi.append(Testo_DaAnsi(testo));
        testo.clear();
        giornale.Annota(QLatin1String("Dbg"), testi.last());
    }
    testi.append(Testo_DaAnsi(testo)); // the check character
    return testi;
}

void Sessione::Prendi_Dati(Giornale &giornale)
{
    Strumento = Testi(5, giornale);
    Avanza(giornale);
}

void Sessione::Prendi_Taratura(Giornale &giornale)
{
    Taratura = Testi(4, giornale);
    Esito = RIUSCITA;
    Avanza(giornale);
}

void Sessione::Prepara(Giornale &giornale)
{
    Dati = Carica(Strumento);
    Avanza(giornale);
}

void Sessione::Scritto(Giornale &giornale)
{
    Esito = RIUSCITA;
    Avanza(giornale);
}

void Sessione::Errata(Giornale &giornale)
{
    Chiudi(RispostaErrata, MostraEsito, giornale);
}

void Sessione::Altra(Giornale &giornale)
{
    Chiudi(AltroGenere, MostraEsito, giornale);
}

} // namespace modello
