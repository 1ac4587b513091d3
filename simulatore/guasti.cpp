// Each fault as what it makes of a frame. Which reply it hits is the instrument's business.
#include "simulatore/guasti.h"

#include "core/parole.h"
#include "simulatore/trama.h"

namespace {

/// Noise without a start byte: with one, it would be a frame and no noise. The end byte is in it, for a
/// station that takes a lone one for the end of something.
constexpr char RUMORE_PRIMA[] = "\x00\xFF\x55\x03\xAA";
constexpr char RUMORE_DOPO[] = "\x03\x17\x80\x41\x42";

/// What stands in place of the byte that tells the kind of reply. As a digit it is 15: a measure damaged in
/// this way has an absurd figure, but one that the station can reckon with.
constexpr char GENERE_ERRATO = '?';

/// The fault bears the name by which a scenario asks for it, in every language.
constexpr Parole CON_GUASTO = {u"%1  [guasto %2]", u"%1  [fault %2]"};

constexpr char RIEMPIMENTO = 'X';

template <size_t N>
QByteArray Byte_Di(const char (&testo)[N])
{
    return QByteArray(testo, N - 1);
}

QByteArray Trama_ControlloErrato(QByteArray trama)
{
    char &controllo = trama[trama.size() - 2];
    controllo = static_cast<char>('0' + (controllo - '0' + 1) % 10);
    return trama;
}

QByteArray Trama_GenereErrato(QByteArray trama, qsizetype postoGenere)
{
    trama[postoGenere] = GENERE_ERRATO;
    return Trama_Controllata(trama);
}

QByteArray Trama_Allungata(const QByteArray &trama, qsizetype lunghezza)
{
    const qsizetype mancano = std::max<qsizetype>(0, lunghezza - trama.size());
    QByteArray lunga = trama;
    lunga.insert(trama.size() - 2, QByteArray(mancano, RIEMPIMENTO));
    return Trama_Controllata(lunga);
}

} // namespace

QList<Invio> Guasto_Applica(const Guasto &guasto, const Risposta &risposta, int ritardo,
                            qsizetype postoGenere)
{
    const QByteArray &trama = risposta.trama;
    const QString nota = In_Parole(CON_GUASTO).arg(risposta.nota, Guasto_Nome(guasto.tipo));
    const qsizetype meta = trama.size() / 2;
    switch (guasto.tipo) {
    case TipoGuasto::Silenzio:
    case TipoGuasto::Unita:
        return {};
    case TipoGuasto::Controllo:
        return {
            {.ritardo = ritardo, .byte = Trama_ControlloErrato(trama), .nota = nota}
        };
    case TipoGuasto::Tipo:
        return {
            {.ritardo = ritardo, .byte = Trama_GenereErrato(trama, postoGenere), .nota = nota}
        };
    case TipoGuasto::Spezzata:
        return {
            {.ritardo = ritardo,                 .byte = trama.first(meta),  .nota = nota},
            {.ritardo = ritardo + guasto.numero, .byte = trama.sliced(meta), .nota = nota}
        };
    case TipoGuasto::Rumore:
        return {
            {.ritardo = ritardo, .byte = Byte_Di(RUMORE_PRIMA) + trama + Byte_Di(RUMORE_DOPO), .nota = nota}
        };
    case TipoGuasto::Lunga:
        return {
            {.ritardo = ritardo, .byte = Trama_Allungata(trama, guasto.numero), .nota = nota}
        };
    case TipoGuasto::Seconda:
        return {
            {.ritardo = ritardo,                 .byte = trama, .nota = risposta.nota},
            {.ritardo = ritardo + guasto.numero, .byte = trama, .nota = nota         }
        };
    case TipoGuasto::Ritardo:
        return {
            {.ritardo = ritardo + guasto.numero, .byte = trama, .nota = nota}
        };
    case TipoGuasto::Riaggancio:
        return {
            {.ritardo = ritardo, .byte = {}, .riaggancio = guasto.numero, .nota = nota}
        };
    }
    Q_UNREACHABLE();
}
