// A serial line and a session's window of the test's own: the line records what goes out and when, answers
// by a script and fails on demand; the window records what the operator would see.
#pragma once

#include "link/controllo_seriale.h"
#include "link/scambio.h"

#include "tests/comuni/orologio_prova.h"

#include <QList>

/// A reply of the instrument: start byte, body, check character, end byte. @param corpo from offset 1 on.
QByteArray Frame_Risposta(const QByteArray &corpo);
/// Replies as the instrument gives them. @param testi each closed by its separator.
QByteArray Risposta_Stato(char stato);
QByteArray Risposta_Misura(const QByteArray &record0, const QByteArray &record1, const QByteArray &record2,
                           const QByteArray &record3);
QByteArray Risposta_Dati(const QList<QByteArray> &testi);
QByteArray Risposta_Taratura(const QList<QByteArray> &testi);
QByteArray Risposta_Scritto(char esito = '\xFF');
/// Feeds bytes to an assembler. @return how many replies they ended; -1 when one of them is not valid.
qsizetype Risposte_Valide(Assemblatore &ricezione, const QByteArray &byte);

/// A serial control without a device. It is a port like any other to the link; the public fields are the
/// test's.
class LineaProva : public ControlloSeriale
{
public:
    struct FrameUscito
    {
        qint64 Quando; ///< ms of the clock
        QByteArray Byte;
    };

    explicit LineaProva(OrologioProva &orologio);

    // The line fails on demand.
    bool RifiutaApertura = false;
    bool RifiutaImpostazioni = false;
    bool RifiutaUscita = false;
    QByteArray TraLeDueLetture; ///< comes in between InBufferCount and Input

    /// What the instrument answers to a frame: empty for silence.
    std::function<QByteArray(const QByteArray &frame)> Rispondi;
    /// Time from a frame to its reply, in ms; 0 answers from inside Output.
    qint64 Ritardo = 50;
    /// Answers the frames one after the other, and is silent when they are used up.
    void Copione(const QList<QByteArray> &risposte);

    QList<FrameUscito> Usciti; ///< every frame sent
    QStringList Registro;      ///< every writing to the control, in order: "PortOpen 1", "Settings ..."
    int EventiTolti = 0;       ///< receive events below RThreshold: none was raised

    /// Bytes arrive now, in one batch. A closed port loses them.
    void Arriva(const QByteArray &byte);
    /// Bytes arrive later, in one batch.
    void Arriva_Dopo(qint64 ms, const QByteArray &byte);
    /// Raises any event.
    void Evento(qint16 codice);

    /// The frames sent, without their times.
    QList<QByteArray> Frame() const;

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
    struct InArrivo
    {
        qint64 quando;
        QByteArray byte;
    };

    void Annota(const QString &proprieta, const QString &valore);
    void Pretendi_Aperta() const;
    void Riarma();
    void Consegna();

    OrologioProva &m_orologio;
    std::unique_ptr<Sveglia> m_sveglia;
    QList<InArrivo> m_inArrivo;
    bool m_aperta = false;
    qint16 m_soglia = 0;
    qint16 m_evento = 0;
    QByteArray m_ricevuti;
};

/// The window of a session. It unloads as the real one does: the machine first, then the one notification.
class FinestraProva : public FinestraScambio
{
public:
    struct Testo
    {
        qint64 Quando;
        QString Scritta;
    };

    explicit FinestraProva(OrologioProva &orologio) : m_orologio(orologio) {}

    MacchinaScambio *Macchina = nullptr;
    QStringList Titoli;
    QList<Testo> Lbl; ///< every caption of lbl, with its time
    QStringList Tx, Rx, Dbg, Errori;
    QList<quint32> Colori;
    QList<qint16> Notifiche; ///< the code of each notification
    qint64 Chiusa = -1;      ///< ms of the clock at unloading

    QString Scritta() const { return Lbl.isEmpty() ? QString() : Lbl.last().Scritta; }
    /// The operator's button, or the machine's own end.
    void Scarica_Modulo() override;

    void Mostra_Titolo(const QString &testo) override { Titoli.append(testo); }
    void Mostra_Lbl(const QString &testo) override { Lbl.append({m_orologio.Passati(), testo}); }
    void Mostra_Tx(const QString &esadecimale) override { Tx.append(esadecimale); }
    void Mostra_Rx(const QString &esadecimale) override { Rx.append(esadecimale); }
    void Aggiungi_Dbg(const QString &riga) override { Dbg.append(riga); }
    void Colora_Sha(quint32 colore) override { Colori.append(colore); }
    void Mostra_Errore(const QString &testo) override { Errori.append(testo); }

private:
    OrologioProva &m_orologio;
};
