// The machine on a bench: a clock, a line and a window of the bench's own, which write down what it does, and
// a model beside it that goes through the same.
#pragma once

#include "link/controllo_seriale.h"
#include "link/scambio.h"
#include "prove/modello/giornale.h"
#include "prove/modello/sessione.h"
#include "tests/comuni/orologio_prova.h"
#include "tests/comuni/stazione_prova.h"

namespace modello {

/// The station that the sessions of a bench run in: its profile, its texts. One at a time.
class Stazione
{
public:
    Stazione();

private:
    StazioneProva m_stazione;
};

/// A line without a device that writes into a journal.
class LineaBanco : public ControlloSeriale
{
public:
    LineaBanco(Porta porta, Giornale &giornale) : m_porta(porta), m_giornale(giornale) {}

    bool RifiutaUscita = false;

    void Arriva(const QByteArray &byte);
    void Evento(qint16 codice);

    void CommPort(qint16 numero) override;
    bool PortOpen() const override { return m_aperta; }
    void PortOpen(bool aperta) override;
    void Settings(const QString &testo) override;
    void InputLen(qint16 numero) override;
    void InputMode(qint16 modo) override;
    void RThreshold(qint16 soglia) override;
    void NullDiscard(bool scarta) override;
    qint16 InBufferCount() const override { return static_cast<qint16>(m_ricevuti.size()); }
    QByteArray Input() override;
    void OutBufferCount(qint16 numero) override;
    void Output(const QByteArray &byte) override;
    qint16 CommEvent() const override { return m_evento; }

private:
    void Pretendi_Aperta() const;

    Porta m_porta;
    Giornale &m_giornale;
    bool m_aperta = false;
    qint16 m_soglia = 0;
    qint16 m_evento = 0;
    QByteArray m_ricevuti;
};

/// A window that writes into a journal, and unloads as the real one does.
class FinestraBanco : public FinestraScambio
{
public:
    FinestraBanco(const Orologio &orologio, Giornale &giornale) : m_orologio(orologio), m_giornale(giornale)
    {
    }

    MacchinaScambio *Macchina = nullptr;

    void Mostra_Titolo(const QString &testo) override;
    void Mostra_Lbl(const QString &testo) override;
    void Mostra_Tx(const QString &esadecimale) override;
    void Mostra_Rx(const QString &esadecimale) override;
    void Aggiungi_Dbg(const QString &riga) override;
    void Colora_Sha(quint32 colore) override;
    void Mostra_Errore(const QString &testo) override;
    void Scarica_Modulo() override;

private:
    const Orologio &m_orologio;
    Giornale &m_giornale;
};

/// Machine and model in the same session.
class Banco
{
public:
    /// Opens the session on both. @param strumento the identity texts that the parent has left.
    Banco(quint8 modo, Porta porta, const QStringList &strumento);

    /// Lets an event happen to both.
    void Accada(const modello::Evento &evento);
    /// After the end: whatever comes still, nothing happens.
    void Dopo_LaFine();

    /// Where the machine stands, by the model.
    const Sessione &Modello() const { return m_modello; }
    /// What was different at the last event; empty when nothing was.
    const QString &Differenza() const { return m_differenza; }

private:
    void Muovi(const modello::Evento &evento, int fra);
    void Confronta();
    template <typename A, typename B>
    void Uguali(const char *che, const A &macchina, const B &modello);

    Giornale m_giornale; // the machine's
    Giornale m_atteso;   // the model's
    Sessione m_modello;
    OrologioProva m_orologio;
    LineaBanco m_linea;
    FinestraBanco m_finestra;
    MacchinaScambio m_macchina;
    int m_errore = 0;
    QString m_differenza;
};

} // namespace modello
