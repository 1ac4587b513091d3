// The model of a session: the rules of the exchange written a second time, as tables and plain steps, to be
// held against the machine. It shares nothing with link/, so that a mistake has to be made twice to pass. It
// works on real bytes and real times; Chiave says which of its states are one.
#pragma once

#include "prove/modello/evento.h"
#include "prove/modello/giornale.h"

#include <QStringList>

#include <array>

namespace modello {

inline constexpr quint8 MODI = 4; ///< measure, read, write, default

/// How the port of the session turned out.
enum class Porta : quint8
{
    Buona,
    Sorda,  ///< open, its settings refused: frames go out, nothing is heard
    Chiusa, ///< it did not open
};

/// One beam of a measure; the defaults are the cleared state.
struct Faro
{
    int Lux = -1;
    QString V, O;
};

inline constexpr int CAPIENZA = 106; ///< bytes of a reply that the station holds
using Buffer = std::array<quint8, CAPIENZA>;

/// What the profile of the station holds: the six identity texts, and the ten of the calibration.
extern const QStringList PROFILO_IDENTITA;
/// @param cambiato as somebody leaves it who changes the last text while the session is on.
QStringList Profilo_Taratura(bool cambiato);

class Sessione
{
public:
    /// @param strumento the identity texts that the parent has left.
    Sessione(quint8 modo, Porta porta, const QStringList &strumento);

    /// The loading of the window: port, first frame.
    void Apri(Giornale &giornale);
    /// Whether the event can happen now and is not the same as another one.
    bool Offre(const Evento &evento) const;
    /// Time from now until the event, in ms.
    int Fra(const Evento &evento) const;
    /// The event takes place. Afterwards Finita and Errore say whether there is a session still.
    void Accada(const Evento &evento, Giornale &giornale);
    /// Two states of one key go the same ways: what differs in them are texts and figures that nothing is
    /// decided by, resends past the last and steps past the end.
    quint64 Chiave() const;

    quint8 Modo;
    Porta Linea;
    quint8 Stato = 0;
    quint8 Comando = 0;
    int Passo = 0;
    int Tick = 0;
    int Reinvii = 0;
    int Esito = 0;
    int Intervallo = 0; ///< of the timer in ms, 0 when it is off
    int Resta = 0;      ///< ms to the next beat
    quint8 StatoRx = 0;
    int Indice = 0;
    Buffer Rx{};
    int Scritta = 0; ///< number of the caption; see SCRITTA_ATTESA
    QByteArray Dati;
    QByteArray Frame; ///< built last
    std::array<Faro, 4> Misure;
    QStringList Strumento, Taratura;
    bool ProfiloCambiato = false;
    bool Finita = false; ///< unloaded, or ended by an error
    int Errore = 0;      ///< number of the run-time error that ended the program

    QByteArray Sequenza() const;

private:
    struct Fatale
    {
        int Numero;
    };
    using Passi = void (Sessione::*)(Giornale &);
    struct RigaRisposta;
    static const RigaRisposta RISPOSTE[];

    void Colora(quint32 colore, Giornale &giornale) const;
    void Mostra(int scritta, Giornale &giornale);
    void Arma(int ms);
    void Componi(quint8 tipo);
    void Invia(Giornale &giornale);
    void Chiudi(int scritta, int ms, Giornale &giornale);
    void Batti(Giornale &giornale);
    void Attendi(Giornale &giornale);
    void Giudica(Giornale &giornale);
    void Scarica(Giornale &giornale);
    void Ricevi(quint8 byte, Giornale &giornale);
    bool Valida() const;
    int Cifra(int record) const;
    QStringList Testi(int posto, Giornale &giornale) const;
    QString Nota() const;

    // What an accepted or refused reply leads to.
    void Avanza(Giornale &giornale);
    void Ripeti(Giornale &giornale);
    void Prendi_Misura(Giornale &giornale);
    void Prendi_Dati(Giornale &giornale);
    void Prendi_Taratura(Giornale &giornale);
    void Prepara(Giornale &giornale);
    void Scritto(Giornale &giornale);
    void Errata(Giornale &giornale);
    void Altra(Giornale &giornale);

    bool m_lista = false;   // the debug list is on, for this beat
    bool m_rifiuta = false; // the port refuses what is sent, for this beat
};

/// Number of the one caption that is no text of the tables.
inline constexpr int SCRITTA_ATTESA = 1;
/// A caption as the window shows it. @param numero 0 for an empty one.
QString Testo_Scritta(int numero);

} // namespace modello
