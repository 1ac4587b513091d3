// The wire protocol of the instrument: every byte of a frame in either direction, and what it means. Which
// command goes out when is the exchange machine's business (scambio.h); this file knows no port and no timer.
#pragma once

#include "core/chiavi.h"
#include "platform/tipi.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>

/// Bytes with a fixed role. There is no escaping: the first end byte ends a frame, wherever it stands.
inline constexpr quint8 BYTE_INIZIO = 0x02;
inline constexpr quint8 BYTE_FINE = 0x03;
inline constexpr quint8 BYTE_SEPARATORE = 0x17; ///< ends each text inside a payload
inline constexpr quint8 BYTE_SCRITTO = 0xFF;    ///< the instrument took what was written

/// Types of the commands, the numbers that the exchange machine carries; there is no type 3.
enum TipoComando : quint8
{
    CmdStato = 1,
    CmdMisura = 2,
    CmdLeggiDati = 4,
    CmdScriviDati1 = 5,
    CmdScriviDati2 = 6,
    CmdLeggiTaratura = 7,
    CmdScriviTaratura = 8,
};

/// One beam as the instrument measured it; the defaults are the cleared state.
struct MisuraFaro
{
    qint32 Lux = -1; ///< the instrument's figure, in hundreds; -1 while unset
    QString EsitoV;  ///< the instrument's verdict on the vertical aim, one character
    QString EsitoO;  ///< the same on the horizontal aim
};

/// The four beams: left dipped, left main, right dipped, right main.
extern std::array<MisuraFaro, 4> gMisure;

/// The instrument's identity texts: model, make, approval number, serial number, revision due, operator.
/// After a reading a seventh element holds the check character of the reply: readers go by number.
extern QStringList gDatiStrumento;

/// The instrument's ten calibration texts, in the order of CHIAVI_TARATURA; after a reading with one more
/// element, as above.
extern QStringList gDatiTaratura;

/// The frame built last, as it goes out.
extern QByteArray gTxFrame;

/// Keys of the calibration texts in the profile, in the order of gDatiTaratura.
inline constexpr std::array<ChiaveIni, 10> CHIAVI_TARATURA = {
    ChiaveTaraturaMaxManopola, ChiaveTaraturaMinManopola, ChiaveTaraturaS1, ChiaveTaraturaS2,
    ChiaveTaraturaS3,          ChiaveTaraturaS4,          ChiaveTaraturaS5, ChiaveTaraturaS6,
    ChiaveTaraturaS7,          ChiaveTaraturaS8};

// --- station to instrument --------------------------------------------------------------------------------

/// Check character of a sum of bytes: the last decimal digit of its low eight bits.
quint8 Carattere_Controllo(qint16 somma);

/// Fills gDatiStrumento, 0 to 5, from the profile; a missing key is an empty text.
void Leggi_DatiStrumento();

/// The payload of texts: each one in the code page, closed by a separator.
QByteArray Componi_Dati(const QStringList &testi);

/// Builds the frame of a command in gTxFrame. A type that is none of the commands changes nothing.
/// @param dati payload of the identity writes. The calibration write reads its ten texts from the profile
/// into gDatiTaratura and replaces this payload by them.
/// @param[out] comando the type, for the exchange machine to know what it last built.
/// @throws ErroreEsecuzione 6 when the sum of the bytes passes 16 bits, far beyond any payload in use.
void Componi_Comando(quint8 tipo, QByteArray &dati, quint8 &comando);

// --- instrument to station --------------------------------------------------------------------------------

/// The longest reply that the station holds, in bytes.
inline constexpr qint16 LUNGHEZZA_RX = 106;
using BufferRx = std::array<quint8, LUNGHEZZA_RX>;

/// The reply being assembled.
struct InfoFrame
{
    qint16 Riservato = 0;
    qint16 Conta = 0;  ///< bytes behind the start byte
    qint16 Indice = 0; ///< place of the next byte
    QString Testo;     ///< the bytes behind the start byte, as characters
};

/// What a received byte did.
enum class EsitoByte
{
    Nulla,   ///< dropped between two frames, or the start of one
    Accolto, ///< stored inside a frame
    Fine,    ///< stored, and ends the frame
};

/// Assembles a reply byte by byte. BufRx is never cleared: a short frame leaves the tail of the one before.
class Assemblatore
{
public:
    quint8 StatoRx = 0; ///< 0 between frames, 1 inside one
    BufferRx BufRx{};
    InfoFrame InfoRx;

    /// @throws ErroreEsecuzione 9 for a byte beyond the buffer's end: the byte is lost and so is every byte
    /// after it, the end byte too.
    EsitoByte Aggiungi(quint8 byte);

private:
    void Inizia();
};

/// Takes a line for the list of debug lines.
using RigaDbg = std::function<void(const QString &)>;

/// True when the frame has an end byte and the right check character before it.
bool Risposta_Valida(const BufferRx &risposta);

/// Reads the four records of a measure reply into gMisure, after clearing them. The digits are not
/// validated and the length is not checked: bytes beyond the reply's end are those of the frame before.
/// @param riga takes a line a field: L, V or O, the record's number, "=" and the value.
/// @throws ErroreEsecuzione 6 when a figure passes 16 bits on the way.
void Leggi_Misura(const BufferRx &risposta, const RigaDbg &riga);

/// Reads the texts of a reply, from an offset to the end byte. What stands behind the last separator, the
/// check character, becomes one more element.
/// @param[out] testi the texts. @param riga takes each text that a separator closed.
void Leggi_Testi(const BufferRx &risposta, qint16 posto, QStringList &testi, const RigaDbg &riga);
