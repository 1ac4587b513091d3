#include "tests/comuni/linea_prova.h"

#include "platform/errore_esecuzione.h"

#include <algorithm>
#include <numeric>
#include <utility>

QByteArray Frame_Risposta(const QByteArray &corpo)
{
    const QByteArray frame = '\x02' + corpo;
    const int somma = std::accumulate(frame.cbegin(), frame.cend(), 0,
                                      [](int parziale, char c) { return parziale + static_cast<quint8>(c); });
    return frame + QByteArray::number(somma % 256).last(1) + '\x03';
}

QByteArray Risposta_Stato(char stato)
{
    return Frame_Risposta(QByteArray("ABC") + stato);
}

qsizetype Risposte_Valide(Assemblatore &ricezione, const QByteArray &byte)
{
    qsizetype finite = 0;
    for (const char uno : byte) {
        if (ricezione.Aggiungi(static_cast<quint8>(uno)) != EsitoByte::Fine)
            continue;
        if (!Risposta_Valida(ricezione.BufRx))
            return -1;
        ++finite;
    }
    return finite;
}

QByteArray Risposta_Misura(const QByteArray &record0, const QByteArray &record1, const QByteArray &record2,
                           const QByteArray &record3)
{
    return Frame_Risposta(QByteArray("ABC") + record0 + record1 + record2 + record3);
}

static QByteArray Blocco(const QList<QByteArray> &testi)
{
    QByteArray blocco;
    for (const QByteArray &testo : testi)
        blocco += testo + '\x17';
    return blocco;
}

QByteArray Risposta_Dati(const QList<QByteArray> &testi)
{
    return Frame_Risposta(QByteArray("ABCU") + Blocco(testi));
}

QByteArray Risposta_Taratura(const QList<QByteArray> &testi)
{
    return Frame_Risposta(QByteArray("ABC") + Blocco(testi));
}

QByteArray Risposta_Scritto(char esito)
{
    return Frame_Risposta(QByteArray("ABC") + esito);
}

LineaProva::LineaProva(OrologioProva &orologio)
    : m_orologio(orologio), m_sveglia(orologio.Nuova_Sveglia([this] { Consegna(); }))
{
}

void LineaProva::Copione(const QList<QByteArray> &risposte)
{
    Rispondi = [restano = risposte](const QByteArray &) mutable {
        return restano.isEmpty() ? QByteArray() : restano.takeFirst();
    };
}

void LineaProva::Annota(const QString &proprieta, const QString &valore)
{
    Registro.append(proprieta + u' ' + valore);
}

void LineaProva::Pretendi_Aperta() const
{
    if (!m_aperta)
        Solleva(NumeroErrore::PortaNonAperta);
}

void LineaProva::Arriva(const QByteArray &byte)
{
    if (!m_aperta)
        return;
    m_ricevuti += byte;
    if (m_soglia == 0 || m_ricevuti.size() < m_soglia)
        ++EventiTolti;
    else
        Evento(EventoRicezione);
}

void LineaProva::Arriva_Dopo(qint64 ms, const QByteArray &byte)
{
    m_inArrivo.append({m_orologio.Passati() + ms, byte});
    std::stable_sort(m_inArrivo.begin(), m_inArrivo.end(),
                     [](const InArrivo &a, const InArrivo &b) { return a.quando < b.quando; });
    Riarma();
}

void LineaProva::Riarma()
{
    if (m_inArrivo.isEmpty())
        m_sveglia->Disarma();
    else
        m_sveglia->Arma(static_cast<int>(m_inArrivo.first().quando - m_orologio.Passati()));
}

void LineaProva::Consegna()
{
    const QByteArray byte = m_inArrivo.takeFirst().byte;
    Riarma();
    Arriva(byte);
}

void LineaProva::Evento(qint16 codice)
{
    m_evento = codice;
    if (OnComm)
        OnComm();
}

QList<QByteArray> LineaProva::Frame() const
{
    QList<QByteArray> frame;
    for (const FrameUscito &uscito : Usciti)
        frame.append(uscito.Byte);
    return frame;
}

void LineaProva::CommPort(qint16 numero)
{
    Annota(QStringLiteral("CommPort"), QString::number(numero));
}

void LineaProva::PortOpen(bool aperta)
{
    Annota(QStringLiteral("PortOpen"), QString::number(int{aperta}));
    if (aperta && RifiutaApertura)
        throw ErroreEsecuzione(8002, QStringLiteral("Invalid port number"));
    m_aperta = aperta;
}

void LineaProva::Settings(const QString &testo)
{
    Annota(QStringLiteral("Settings"), testo);
    if (RifiutaImpostazioni)
        Solleva(NumeroErrore::ValoreProprietaErrato);
}

void LineaProva::InputLen(qint16 numero)
{
    Annota(QStringLiteral("InputLen"), QString::number(numero));
}

void LineaProva::InputMode(qint16 modo)
{
    Annota(QStringLiteral("InputMode"), QString::number(modo));
}

void LineaProva::RThreshold(qint16 soglia)
{
    Annota(QStringLiteral("RThreshold"), QString::number(soglia));
    m_soglia = soglia;
}

void LineaProva::NullDiscard(bool scarta)
{
    Annota(QStringLiteral("NullDiscard"), QString::number(int{scarta}));
}

QByteArray LineaProva::Input()
{
    Pretendi_Aperta();
    return std::exchange(m_ricevuti, QByteArray()) + std::exchange(TraLeDueLetture, QByteArray());
}

void LineaProva::OutBufferCount(qint16 numero)
{
    Annota(QStringLiteral("OutBufferCount"), QString::number(numero));
    Pretendi_Aperta();
}

void LineaProva::Output(const QByteArray &byte)
{
    Annota(QStringLiteral("Output"), QString::fromLatin1(byte.toHex().toUpper()));
    if (RifiutaUscita)
        throw ErroreEsecuzione(8020, QStringLiteral("Error writing to comm device"));
    Pretendi_Aperta();
    Usciti.append({m_orologio.Passati(), byte});
    const QByteArray risposta = Rispondi ? Rispondi(byte) : QByteArray();
    if (risposta.isEmpty())
        return;
    if (Ritardo == 0)
        Arriva(risposta);
    else
        Arriva_Dopo(Ritardo, risposta);
}

void FinestraProva::Scarica_Modulo()
{
    Macchina->Termina();
    Chiusa = m_orologio.Passati();
    Notifiche.append(Macchina->Esito);
}
