// The serial control on the communications calls of Windows. Every call that may wait is an overlapped one,
// whose end comes to the form loop. It knows bytes and devices, nothing of frames or sessions.
#include "link/seriale.h"

#include "link/seriale_comune.h"
#include "platform/porta_seriale.h"

#include <QList>
#include <QTimer>
#include <QWinEventNotifier>

#include <algorithm>
#include <utility>

#include <qt_windows.h>

namespace {

/// The driver's output buffer, in bytes: the default of the control.
constexpr DWORD BUFFER_USCITA = 512;

// In the order of Parita and of BitStop.
constexpr BYTE PARITA[] = {NOPARITY, EVENPARITY, ODDPARITY, MARKPARITY, SPACEPARITY};
constexpr BYTE STOP[] = {ONESTOPBIT, ONE5STOPBITS, TWOSTOPBITS};

struct VoceEvento
{
    DWORD bit;
    EventoSeriale evento;
};

/// What ClearCommError tells.
constexpr VoceEvento ERRORI_LINEA[] = {
    {CE_BREAK,    ErroreBreak   },
    {CE_FRAME,    ErroreFrame   },
    {CE_OVERRUN,  ErroreOverrun },
    {CE_RXOVER,   ErroreRxOver  },
    {CE_RXPARITY, ErroreRxParity},
};

/// What WaitCommEvent tells of the modem lines.
constexpr VoceEvento LINEE_MODEM[] = {
    {EV_CTS,  EventoCts },
    {EV_DSR,  EventoDsr },
    {EV_RLSD, EventoCd  },
    {EV_RING, EventoRing},
};

/// Received bytes have a watch of their own, the pending read.
constexpr DWORD EVENTI_ATTESI = EV_BREAK | EV_ERR | EV_CTS | EV_DSR | EV_RLSD | EV_RING;

/// One overlapped call at a time, and its end on the form loop.
class Operazione
{
public:
    Operazione() : m_evento(CreateEventW(nullptr, TRUE, FALSE, nullptr))
    {
        m_avviso.setHandle(m_evento);
        QObject::connect(&m_avviso, &QWinEventNotifier::activated, &m_avviso, [this] { Arrivata(); });
    }
    ~Operazione()
    {
        m_avviso.setEnabled(false);
        CloseHandle(m_evento);
    }
    Q_DISABLE_COPY_MOVE(Operazione)

    /// @param chiamata the call, on the structure that it is given. @return false when it failed at once.
    template <typename Chiamata>
    bool Avvia(HANDLE porta, Chiamata chiamata)
    {
        m_porta = porta;
        m_stato = {};
        m_stato.hEvent = m_evento;
        ResetEvent(m_evento);
        m_avviso.setEnabled(true);
        m_inCorso = chiamata(&m_stato) != FALSE || GetLastError() == ERROR_IO_PENDING;
        return m_inCorso;
    }
    bool InCorso() const { return m_inCorso; }
    /// @param[out] trattati the bytes carried. @return true when the call had its end at once: then nothing
    /// is raised for it.
    bool Finita_Subito(DWORD &trattati)
    {
        if (!m_inCorso || GetOverlappedResult(m_porta, &m_stato, &trattati, FALSE) == FALSE)
            return false;
        m_inCorso = false;
        ResetEvent(m_evento);
        return true;
    }
    /// Gives the call up. The system uses its structure and its bytes until it has ended, so that is waited
    /// for: it ends at once. Nobody is told of that end: the notifier goes with its control, and Wine's
    /// thread that has just seen the event would still call it then.
    void Annulla()
    {
        if (!m_inCorso)
            return;
        DWORD trattati = 0;
        m_avviso.setEnabled(false);
        CancelIoEx(m_porta, &m_stato);
        GetOverlappedResult(m_porta, &m_stato, &trattati, TRUE);
        m_inCorso = false;
        ResetEvent(m_evento);
    }

    /// Raised at the end of a call, with the system's error and the bytes that it has carried.
    std::function<void(DWORD errore, DWORD trattati)> Finita;

private:
    void Arrivata()
    {
        if (!m_inCorso)
            return; // a call that had its end at once
        DWORD trattati = 0;
        const bool riuscita = GetOverlappedResult(m_porta, &m_stato, &trattati, FALSE) != FALSE;
        const DWORD errore = riuscita ? ERROR_SUCCESS : GetLastError();
        if (errore == ERROR_IO_INCOMPLETE)
            return; // the next one is under way already
        m_inCorso = false;
        ResetEvent(m_evento);
        Finita(errore, trattati);
    }

    HANDLE m_porta = INVALID_HANDLE_VALUE;
    HANDLE m_evento;
    OVERLAPPED m_stato = {};
    bool m_inCorso = false;
    QWinEventNotifier m_avviso;
};

class SerialeWin32 final : public SerialeComune
{
public:
    SerialeWin32();
    ~SerialeWin32() override { Chiudi(); }
    Q_DISABLE_COPY_MOVE(SerialeWin32)

private:
    bool Apri_Dispositivo(qint16 numero) override;
    void Chiudi_Dispositivo() override;
    bool Dispositivo_Aperto() const override { return m_porta != INVALID_HANDLE_VALUE; }
    bool Imposta_Formato(const FormatoLinea &formato) override;
    void Svuota_Uscita() override;
    void Manda(const QByteArray &byte) override;
    bool Prepara_Dispositivo() const;
    bool Ha_Linee_Modem() const;
    void Osserva();
    void Leggi();
    bool Chiedi();
    void Accogli(DWORD numero);
    void Attendi_Evento();
    void Letti(DWORD errore, DWORD numero);
    void Evento_Linea(DWORD errore);
    void Prosegui_Invio();
    void Mandati(DWORD errore, DWORD numero);
    bool Stato_Linea(COMSTAT &stato);
    void Annuncia(EventoSeriale evento);
    void Solleva_Prossimo();

    HANDLE m_porta = INVALID_HANDLE_VALUE; ///< there as long as PortOpen says so and the device is there
    QByteArray m_uscita;                   ///< what the write under way has not taken yet
    QByteArray m_inInvio;                  ///< what it has taken
    QList<EventoSeriale> m_eventi;         ///< those not raised yet
    char m_pezzo[BUFFER_INGRESSO];
    DWORD m_maschera = 0;
    Operazione m_lettura;
    Operazione m_attesa;
    Operazione m_scrittura;
    QTimer m_annuncio; ///< carries the events through the form loop
    QTimer m_ripresa;  ///< watches the line again after an empty wake-up
};

SerialeWin32::SerialeWin32()
{
    m_annuncio.setSingleShot(true);
    m_ripresa.setSingleShot(true);
    QObject::connect(&m_annuncio, &QTimer::timeout, &m_annuncio, [this] { Solleva_Prossimo(); });
    QObject::connect(&m_ripresa, &QTimer::timeout, &m_ripresa, [this] { Osserva(); });
    m_lettura.Finita = [this](DWORD errore, DWORD numero) { Letti(errore, numero); };
    m_attesa.Finita = [this](DWORD errore, DWORD) { Evento_Linea(errore); };
    m_scrittura.Finita = [this](DWORD errore, DWORD numero) { Mandati(errore, numero); };
}

bool SerialeWin32::Apri_Dispositivo(qint16 numero)
{
    m_eventi.clear(); // of a device that was open before
    const QString nome = Porta_Dispositivo(numero);
    m_porta = CreateFileW(reinterpret_cast<const wchar_t *>(nome.utf16()), GENERIC_READ | GENERIC_WRITE, 0,
                          nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (!Dispositivo_Aperto())
        return false;
    if (!Prepara_Dispositivo()) {
        Chiudi_Dispositivo();
        return false;
    }
    Osserva();
    return Dispositivo_Aperto(); // not that of an adapter pulled out meanwhile
}

/// @return false when what was opened is no serial port.
bool SerialeWin32::Prepara_Dispositivo() const
{
    COMMTIMEOUTS nessuna = {};
    DCB formato = {};
    formato.DCBlength = sizeof formato;
    SetupComm(m_porta, BUFFER_INGRESSO, BUFFER_USCITA);
    return GetCommState(m_porta, &formato) != FALSE && SetCommTimeouts(m_porta, &nessuna) != FALSE;
}

void SerialeWin32::Chiudi_Dispositivo()
{
    if (!Dispositivo_Aperto())
        return;
    m_ripresa.stop();
    m_uscita.clear();
    // Not every driver lets a wait for line events be cancelled; every one ends it when the mask changes.
    SetCommMask(m_porta, 0);
    // The system waits on closing for what has not gone out yet, seconds if the line does not drain.
    PurgeComm(m_porta, PURGE_TXABORT | PURGE_TXCLEAR);
    for (Operazione *operazione : {&m_attesa, &m_lettura, &m_scrittura})
        operazione->Annulla();
    CloseHandle(std::exchange(m_porta, INVALID_HANDLE_VALUE));
}

bool SerialeWin32::Imposta_Formato(const FormatoLinea &formato)
{
    if (!Dispositivo_Aperto())
        return true;
    DCB blocco = {};
    blocco.DCBlength = sizeof blocco;
    GetCommState(m_porta, &blocco);
    blocco.BaudRate = static_cast<DWORD>(formato.velocita);
    blocco.Parity = PARITA[static_cast<size_t>(formato.parita)];
    blocco.ByteSize = formato.bit;
    blocco.StopBits = STOP[static_cast<size_t>(formato.stop)];
    // The control's own defaults: no flow control, DTR raised, RTS not; every byte passes, also a damaged
    // one.
    blocco.fBinary = TRUE;
    blocco.fParity = formato.parita != Parita::Nessuna;
    blocco.fOutxCtsFlow = blocco.fOutxDsrFlow = blocco.fDsrSensitivity = FALSE;
    blocco.fOutX = blocco.fInX = FALSE;
    blocco.fErrorChar = blocco.fNull = blocco.fAbortOnError = FALSE;
    blocco.fDtrControl = DTR_CONTROL_ENABLE;
    blocco.fRtsControl = RTS_CONTROL_DISABLE;
    return SetCommState(m_porta, &blocco) != FALSE || !Ha_Linee_Modem();
}

/// @return false for a terminal that stands in for a port: without modem lines it has no line format either,
/// and what it refuses of that takes nothing from its use.
bool SerialeWin32::Ha_Linee_Modem() const
{
    DWORD linee = 0;
    return GetCommModemStatus(m_porta, &linee) != FALSE;
}

void SerialeWin32::Svuota_Uscita()
{
    m_uscita.clear();
    PurgeComm(m_porta, PURGE_TXABORT | PURGE_TXCLEAR);
    m_scrittura.Annulla();
}

void SerialeWin32::Manda(const QByteArray &byte)
{
    m_uscita += byte;
    Prosegui_Invio();
}

void SerialeWin32::Prosegui_Invio()
{
    if (m_scrittura.InCorso() || m_uscita.isEmpty())
        return;
    m_inInvio = std::exchange(m_uscita, QByteArray());
    const bool avviata = m_scrittura.Avvia(m_porta, [this](OVERLAPPED *stato) {
        return WriteFile(m_porta, m_inInvio.constData(), static_cast<DWORD>(m_inInvio.size()), nullptr,
                         stato);
    });
    if (!avviata)
        Chiudi_Dispositivo();
}

void SerialeWin32::Mandati(DWORD errore, DWORD numero)
{
    if (!Dispositivo_Aperto())
        return;
    if (errore == ERROR_SUCCESS && numero < static_cast<DWORD>(m_inInvio.size()))
        m_uscita.prepend(m_inInvio.mid(static_cast<qsizetype>(numero)));
    Prosegui_Invio();
}

/// Watches the line, as far as it is not watched already.
void SerialeWin32::Osserva()
{
    if (Dispositivo_Aperto() && !m_lettura.InCorso())
        Leggi();
    if (Dispositivo_Aperto() && !m_attesa.InCorso())
        Attendi_Evento();
}

/// Takes all that waits, and then asks for the next byte.
void SerialeWin32::Leggi()
{
    DWORD numero = 0;
    do {
        Accogli(numero);
        if (!Chiedi()) {
            // An adapter pulled out: the port stays open, as an empty line. The device does not: its number
            // would not be free when it is plugged in again.
            Chiudi_Dispositivo();
            return;
        }
    } while (m_lettura.Finita_Subito(numero) && numero > 0);
    if (!m_lettura.InCorso())
        m_ripresa.start(RIPRESA);
}

bool SerialeWin32::Chiedi()
{
    COMSTAT stato = {};
    if (!Stato_Linea(stato))
        return false;
    const DWORD numero = std::clamp<DWORD>(stato.cbInQue, 1, BUFFER_INGRESSO);
    return m_lettura.Avvia(m_porta, [this, numero](OVERLAPPED *richiesta) {
        return ReadFile(m_porta, m_pezzo, numero, nullptr, richiesta);
    });
}

void SerialeWin32::Accogli(DWORD numero)
{
    if (Ricevi(QByteArray(m_pezzo, static_cast<qsizetype>(numero))))
        Annuncia(EventoRicezione);
}

void SerialeWin32::Letti(DWORD errore, DWORD numero)
{
    if (!Dispositivo_Aperto())
        return;
    // A driver gives up what is under way when its adapter goes, but also when the machine wakes from its
    // sleep: what it says at the next question holds.
    if (errore == ERROR_OPERATION_ABORTED || (errore == ERROR_SUCCESS && numero == 0)) {
        m_ripresa.start(RIPRESA);
        return;
    }
    if (errore != ERROR_SUCCESS) {
        Chiudi_Dispositivo();
        return;
    }
    Accogli(numero);
    Leggi();
}

void SerialeWin32::Attendi_Evento()
{
    m_maschera = 0;
    if (SetCommMask(m_porta, EVENTI_ATTESI) == FALSE)
        return; // a line without them: bytes come all the same
    m_attesa.Avvia(m_porta, [this](OVERLAPPED *stato) { return WaitCommEvent(m_porta, &m_maschera, stato); });
}

void SerialeWin32::Evento_Linea(DWORD errore)
{
    if (!Dispositivo_Aperto())
        return;
    COMSTAT stato = {};
    if (!Stato_Linea(stato)) {
        Chiudi_Dispositivo(); // the read of an adapter pulled out need not end by itself
        return;
    }
    if (errore != ERROR_SUCCESS)
        return; // a line without events: bytes come all the same
    for (const VoceEvento &voce : LINEE_MODEM) {
        if ((m_maschera & voce.bit) != 0)
            Annuncia(voce.evento);
    }
    if (m_maschera != 0)
        Attendi_Evento();
    else
        m_ripresa.start(RIPRESA);
}

/// Asks for the state of the line, and announces the errors on it: to be told is to have them cleared.
bool SerialeWin32::Stato_Linea(COMSTAT &stato)
{
    DWORD errori = 0;
    if (ClearCommError(m_porta, &errori, &stato) == FALSE)
        return false;
    for (const VoceEvento &voce : ERRORI_LINEA) {
        if ((errori & voce.bit) != 0)
            Annuncia(voce.evento);
    }
    return true;
}

/// Events are raised from the loop and not from inside a call's end, which would hold back the next one as
/// long as a modal box in this one is open.
void SerialeWin32::Annuncia(EventoSeriale evento)
{
    if (evento != EventoRicezione || !m_eventi.contains(EventoRicezione))
        m_eventi.append(evento);
    m_annuncio.start(0);
}

void SerialeWin32::Solleva_Prossimo()
{
    if (m_eventi.isEmpty())
        return;
    const EventoSeriale evento = m_eventi.takeFirst();
    if (!m_eventi.isEmpty())
        m_annuncio.start(0);
    Solleva_Evento(evento);
}

} // namespace

std::unique_ptr<ControlloSeriale> Crea_ControlloSeriale()
{
    return std::make_unique<SerialeWin32>();
}
