#include "prove/modello/banco.h"

#include "core/esito_sessione.h"
#include "core/modGeneral.h"
#include "link/modComm.h"
#include "platform/codifica.h"
#include "platform/errore_esecuzione.h"

#include <algorithm>
#include <utility>

namespace modello {

// --- station ----------------------------------------------------------------------------------------------

namespace {

/// The keys of the calibration, in the order in which the instrument wants them.
constexpr const char *CHIAVI[] = {"MaxManopola", "MinManopola", "S1", "S2", "S3",
                                  "S4",          "S5",          "S6", "S7", "S8"};

QByteArray Profilo(bool cambiato)
{
    constexpr const char *IDENTITA[] = {"Modello", "Marca", "NOmologazione", "NSerie", "ScadRevisione"};
    QByteArray profilo = "[COMM]\r\nNum=3\r\nBaud=9600\r\nParity=N\r\nDataBit=8\r\nStopBit=1\r\n[LUMIRA]\r\n";
    for (qsizetype i = 0; i < std::ssize(IDENTITA); ++i)
        profilo += QByteArray("Comm_") + IDENTITA[i] + '=' + Testo_InAnsi(PROFILO_IDENTITA[i]) + "\r\n";
    profilo += "[VEICOLO]\r\nOperatore=" + Testo_InAnsi(PROFILO_IDENTITA[5]) + "\r\n[CALIBRAZIONE_COM]\r\n";
    const QStringList taratura = Profilo_Taratura(cambiato);
    for (qsizetype i = 0; i < std::ssize(CHIAVI); ++i)
        profilo += QByteArray(CHIAVI[i]) + '=' + Testo_InAnsi(taratura[i]) + "\r\n";
    return profilo;
}

/// The station has its profile twice, the second as somebody leaves it who changes it: to go from the one to
/// the other costs nothing.
void Usa_Profilo(bool cambiato)
{
    gFileIni = gAppPath + (cambiato ? QStringLiteral("cambiato.ini") : QStringLiteral("lumira.ini"));
}

} // namespace

Stazione::Stazione()
{
    m_stazione.Scrivi(QStringLiteral("lumira.ini"), Profilo(false));
    m_stazione.Scrivi(QStringLiteral("cambiato.ini"), Profilo(true));
    gTabMctc = QStringList(ULTIMO_TESTO_MCTC + 1);
    for (int numero = 152; numero <= 156; ++numero)
        gTabMctc[numero] = Testo_Scritta(numero);
    gDebug = Falso;
}

// --- line -------------------------------------------------------------------------------------------------

void LineaBanco::Arriva(const QByteArray &byte)
{
    if (!m_aperta || m_soglia == 0) // a port without a threshold raises no event
        return;
    m_ricevuti += byte;
    Evento(EventoRicezione);
}

void LineaBanco::Evento(qint16 codice)
{
    m_evento = codice;
    OnComm();
}

void LineaBanco::CommPort(qint16 numero)
{
    m_giornale.Annota(QLatin1String("CommPort"), numero);
}

void LineaBanco::PortOpen(bool aperta)
{
    m_giornale.Annota(QLatin1String("PortOpen"), aperta ? 1 : 0);
    if (aperta && m_porta == Porta::Chiusa)
        throw ErroreEsecuzione(8002, QStringLiteral("Invalid port number"));
    m_aperta = aperta;
}

void LineaBanco::Settings(const QString &testo)
{
    m_giornale.Annota(QLatin1String("Settings"), testo);
    if (m_porta == Porta::Sorda)
        Solleva(NumeroErrore::ValoreProprietaErrato);
}

void LineaBanco::InputLen(qint16 numero)
{
    m_giornale.Annota(QLatin1String("InputLen"), numero);
}

void LineaBanco::InputMode(qint16 modo)
{
    m_giornale.Annota(QLatin1String("InputMode"), modo);
}

void LineaBanco::RThreshold(qint16 soglia)
{
    m_giornale.Annota(QLatin1String("RThreshold"), soglia);
    m_soglia = soglia;
}

void LineaBanco::NullDiscard(bool scarta)
{
    m_giornale.Annota(QLatin1String("NullDiscard"), scarta ? 1 : 0);
}

QByteArray LineaBanco::Input()
{
    Pretendi_Aperta();
    return std::exchange(m_ricevuti, QByteArray());
}

void LineaBanco::OutBufferCount(qint16 numero)
{
    m_giornale.Annota(QLatin1String("OutBufferCount"), numero);
    Pretendi_Aperta();
}

void LineaBanco::Output(const QByteArray &byte)
{
    m_giornale.Annota(QLatin1String("Output"), QString::fromLatin1(byte.toHex().toUpper()));
    if (RifiutaUscita)
        throw ErroreEsecuzione(8020, QStringLiteral("Error writing to comm device"));
    Pretendi_Aperta();
}

void LineaBanco::Pretendi_Aperta() const
{
    if (!m_aperta)
        Solleva(NumeroErrore::PortaNonAperta);
}

// --- window -----------------------------------------------------------------------------------------------

void FinestraBanco::Mostra_Titolo(const QString &testo)
{
    m_giornale.Annota(QLatin1String("Titolo"), testo);
}

void FinestraBanco::Mostra_Lbl(const QString &testo)
{
    m_giornale.Annota(QLatin1String("Lbl"), testo);
}

void FinestraBanco::Mostra_Tx(const QString &esadecimale)
{
    m_giornale.Annota(QLatin1String("Tx"), esadecimale);
}

void FinestraBanco::Mostra_Rx(const QString &esadecimale)
{
    m_giornale.Annota(QLatin1String("Rx"), esadecimale);
}

void FinestraBanco::Aggiungi_Dbg(const QString &riga)
{
    m_giornale.Annota(QLatin1String("Dbg"), riga);
}

void FinestraBanco::Colora_Sha(quint32 colore)
{
    m_giornale.Annota(QLatin1String("Sha"), colore);
}

void FinestraBanco::Mostra_Errore(const QString &testo)
{
    m_giornale.Annota(QLatin1String("Errore"), testo);
}

void FinestraBanco::Scarica_Modulo()
{
    Macchina->Termina();
    const FineSessione &fine = Sessione_Fine();
    m_giornale.Annota(QLatin1String("Nota"), fine.Testo);
    if (fine.Quando != m_orologio.Adesso())
        m_giornale.Annota(QLatin1String("Nota del"), fine.Quando.toString());
    m_giornale.Annota(QLatin1String("Notifica"), Macchina->Esito);
}

// --- bench ------------------------------------------------------------------------------------------------

Banco::Banco(quint8 modo, Porta porta, const QStringList &strumento)
    : m_modello(modo, porta, strumento),
      m_linea(porta, m_giornale),
      m_finestra(m_orologio, m_giornale),
      m_macchina(m_finestra, m_linea)
{
    Usa_Profilo(false);
    gMisure.fill(MisuraFaro());
    gDatiStrumento = strumento;
    gDatiTaratura.clear();
    gTxFrame.clear();
    m_finestra.Macchina = &m_macchina;
    m_macchina.Modo = static_cast<ModoScambio>(modo);
    m_macchina.Prepara();
    m_finestra.Mostra_Lbl(m_macchina.MsgIniziale);
    m_macchina.Avvia();
    m_modello.Apri(m_atteso);
    Confronta();
}

void Banco::Accada(const modello::Evento &evento)
{
    m_giornale.Righe.clear();
    m_atteso.Righe.clear();
    const int fra = m_modello.Fra(evento);
    m_modello.Accada(evento, m_atteso);
    try {
        Muovi(evento, fra);
    } catch (const ErroreEsecuzione &errore) {
        m_errore = errore.Numero();
    }
    if (m_differenza.isEmpty())
        Confronta();
}

void Banco::Muovi(const modello::Evento &evento, int fra)
{
    gDebug = Flag_Da(evento.Tipo == Genere::BattitoConLista);
    m_linea.RifiutaUscita = evento.Tipo == Genere::BattitoSenzaUscita;
    // To the last moment before the beat nothing moves: only then does it fall due.
    const bool battito = evento.Tipo <= Genere::BattitoSenzaUscita;
    m_orologio.Avanza(battito ? fra - 1 : fra);
    if (!m_giornale.Righe.isEmpty())
        m_differenza = QStringLiteral("prima del tempo: ") + m_giornale.Righe.join(QLatin1String(" | "));

    switch (evento.Tipo) {
    case Genere::Battito:
    case Genere::BattitoConLista:
    case Genere::BattitoSenzaUscita:
        m_orologio.Avanza(1);
        break;
    case Genere::Byte:
        m_linea.Arriva(evento.Byte);
        break;
    case Genere::Linea:
        m_linea.Evento(evento.Codice);
        break;
    case Genere::Vuoto:
        m_linea.Evento(EventoRicezione);
        break;
    case Genere::Profilo:
        Usa_Profilo(true);
        break;
    case Genere::Default:
        m_macchina.Imposta_Default();
        break;
    case Genere::Pulsante:
        m_finestra.Scarica_Modulo();
        break;
    }
}

void Banco::Dopo_LaFine()
{
    m_giornale.Righe.clear();
    try {
        m_linea.Arriva(Alfabeto().first().Byte);
        m_orologio.Avanza(60000);
    } catch (const ErroreEsecuzione &errore) {
        m_errore = errore.Numero();
    }
    Uguali("errore dopo la fine", m_errore, 0);
    Uguali("dopo la fine", m_giornale.Righe, QStringList());
    Uguali("timer accesi", m_orologio.Armate(), 0);
}

namespace {

QString In_Parole(qint64 valore)
{
    return QString::number(valore);
}
QString In_Parole(const QByteArray &byte)
{
    return QString::fromLatin1(byte.toHex());
}
QString In_Parole(const QStringList &testi)
{
    return testi.join(QLatin1String(" | "));
}
QString In_Parole(const Buffer &byte)
{
    return In_Parole(QByteArray(reinterpret_cast<const char *>(byte.data()), CAPIENZA));
}

} // namespace

template <typename A, typename B>
void Banco::Uguali(const char *che, const A &macchina, const B &modello)
{
    if (macchina == modello || !m_differenza.isEmpty())
        return;
    m_differenza = QStringLiteral("%1: macchina %2, modello %3")
                       .arg(QString::fromLatin1(che), In_Parole(macchina), In_Parole(modello));
}

void Banco::Confronta()
{
    const Sessione &s = m_modello;
    const MacchinaScambio &m = m_macchina;
    Uguali("errore", m_errore, s.Errore);
    Uguali("effetti", m_giornale.Righe, m_atteso.Righe);
    Uguali("Stato", int{m.Stato}, int{s.Stato});
    Uguali("Comando", int{m.Comando}, int{s.Comando});
    Uguali("Passo", int{m.Passo}, s.Passo);
    Uguali("Tick", int{m.Tick}, s.Tick);
    Uguali("Reinvii", int{m.Reinvii}, s.Reinvii);
    Uguali("Esito", int{m.Esito}, s.Esito);
    Uguali("Dati", m.Dati, s.Dati);
    Uguali("Sequenza", m.Sequenza, s.Sequenza());
    Uguali("UltimoPasso", int{m.UltimoPasso}, int(s.Sequenza().size() - 1));
    Uguali("PortaAperta", int{m.PortaAperta}, int{s.Linea != Porta::Chiusa});
    Uguali("PortaImpostata", int{m.PortaImpostata}, int{s.Linea == Porta::Buona});
    Uguali("timer accesi", m_orologio.Armate(), s.Intervallo > 0 ? 1 : 0);
    Uguali("StatoRx", int{m.Ricezione.StatoRx}, int{s.StatoRx});
    Uguali("Indice", int{m.Ricezione.InfoRx.Indice}, s.Indice);
    Uguali("Conta", int{m.Ricezione.InfoRx.Conta}, std::max(s.Indice - 1, 0));
    Uguali("BufRx", m.Ricezione.BufRx, s.Rx);
    Uguali("gTxFrame", gTxFrame, s.Frame);
    Uguali("gDatiStrumento", gDatiStrumento, s.Strumento);
    Uguali("gDatiTaratura", gDatiTaratura, s.Taratura);
    for (size_t k = 0; k < s.Misure.size(); ++k) {
        const MisuraFaro &faro = gMisure[k];
        Uguali("gMisure, Lux", int{faro.Lux}, s.Misure[k].Lux);
        Uguali("gMisure, esiti", QStringList({faro.EsitoV, faro.EsitoO}),
               QStringList({s.Misure[k].V, s.Misure[k].O}));
    }
}

} // namespace modello
