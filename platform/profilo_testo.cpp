// The shape of a profile is that of the real calls, down to what they make of lines that nobody meant to
// write.
#include "platform/profilo_testo.h"

#include "platform/codifica.h"
#include "platform/maiuscole.h"

#include <QByteArrayView>

#include <algorithm>
#include <numeric>

namespace {

enum class TipoRiga
{
    Testa,
    Chiave,
    Altro
};

/// One line of a profile, by its places in the bytes of the file.
struct Riga
{
    TipoRiga tipo = TipoRiga::Altro;
    QString nome;         // of the section or the key, as it is compared
    qsizetype valore = 0; // first byte behind "="; without one, the end of the text
    bool uguale = false;  // a key without "=" stands in the way of a later one of its name, and has no value
    qsizetype fine = 0;   // behind the text, before the line end
    qsizetype dopo = 0;   // behind the line end
};

bool Bianco(char c)
{
    return c == ' ' || c == '\t' || c == '\v';
}

QByteArrayView Senza_Bianchi(QByteArrayView testo)
{
    while (!testo.isEmpty() && Bianco(testo.front()))
        testo = testo.sliced(1);
    while (!testo.isEmpty() && Bianco(testo.back()))
        testo.chop(1);
    return testo;
}

/// The capital of each byte: names are most of what is read of a file.
QString Grandi()
{
    QByteArray tutti(256, Qt::Uninitialized);
    std::iota(tutti.begin(), tutti.end(), char{0});
    return Maiuscole(Testo_DaAnsi(tutti));
}

/// A name as it is compared, without regard to case.
QString Nome_DaAnsi(QByteArrayView byte)
{
    static const QString GRANDI = Grandi();
    QString nome(byte.size(), Qt::Uninitialized);
    std::transform(byte.begin(), byte.end(), nome.begin(),
                   [](char c) { return GRANDI[static_cast<unsigned char>(c)]; });
    return nome;
}

QString Nome_DaByte(QByteArrayView nome)
{
    return Nome_DaAnsi(Senza_Bianchi(nome));
}

/// What a caller gives ends at a NUL.
QByteArray Byte_Richiesti(const QString &testo)
{
    return Testo_InAnsi(testo.left(testo.indexOf(QChar(0))));
}

/// A section or key that a caller gives loses spaces, only spaces, at both ends.
QByteArrayView Senza_Spazi(QByteArrayView nome)
{
    while (nome.startsWith(' '))
        nome = nome.sliced(1);
    while (nome.endsWith(' '))
        nome.chop(1);
    return nome;
}

QString Valore_DaByte(QByteArrayView valore)
{
    valore = Senza_Bianchi(valore);
    const bool virgolette = valore.size() >= 2 && valore.front() == valore.back() &&
                            (valore.front() == '"' || valore.front() == '\'');
    if (virgolette)
        valore = valore.sliced(1, valore.size() - 2);
    return Testo_DaAnsi(valore.toByteArray());
}

/// Where a line's text ends: at a CR, at an LF, or at the end of the bytes. A lone CR ends a line as well: a
/// file that has been through two conversions has CR CR LF, an empty line behind each of its lines.
qsizetype Fine_Riga(QByteArrayView byte, qsizetype inizio)
{
    const auto *fine =
        std::find_if(byte.begin() + inizio, byte.end(), [](char c) { return c == '\r' || c == '\n'; });
    return fine - byte.begin();
}

/// Where the line behind it begins.
qsizetype Dopo_Riga(QByteArrayView byte, qsizetype fine)
{
    const bool due = fine + 1 < byte.size() && byte[fine] == '\r' && byte[fine + 1] == '\n';
    return std::min(fine + (due ? 2 : 1), byte.size());
}

Riga Riga_Da(QByteArrayView byte, qsizetype inizio)
{
    Riga riga;
    riga.fine = Fine_Riga(byte, inizio);
    riga.dopo = Dopo_Riga(byte, riga.fine);

    const QByteArrayView testo = byte.sliced(inizio, riga.fine - inizio);
    const QByteArrayView spoglio = Senza_Bianchi(testo);
    if (spoglio.startsWith('[')) {
        const qsizetype chiusa = spoglio.indexOf(']');
        riga.tipo = TipoRiga::Testa;
        riga.nome = Nome_DaByte(spoglio.sliced(1, (chiusa < 0 ? spoglio.size() : chiusa) - 1));
    } else if (!spoglio.isEmpty() && !spoglio.startsWith(';')) {
        const qsizetype uguale = testo.indexOf('=');
        riga.tipo = TipoRiga::Chiave;
        riga.uguale = uguale >= 0;
        riga.nome = Nome_DaByte(riga.uguale ? testo.first(uguale) : testo);
        riga.valore = riga.uguale ? inizio + uguale + 1 : riga.fine;
    }
    return riga;
}

/// Where a key stands, or where it would go.
struct Posto
{
    std::optional<Riga> chiave; // its line
    bool sezione = false;       // its section is there
    qsizetype nuova = 0;        // where a new line of the section goes
};

Posto Posto_Di(QByteArrayView byte, const QString &sezione, const QString &chiave)
{
    Posto posto;
    for (qsizetype inizio = 0; inizio < byte.size();) {
        const Riga riga = Riga_Da(byte, inizio);
        inizio = riga.dopo;
        if (riga.tipo == TipoRiga::Testa) {
            if (posto.sezione)
                break;
            posto.sezione = riga.nome == sezione;
        }
        if (!posto.sezione || riga.tipo == TipoRiga::Altro)
            continue;
        posto.nuova = riga.dopo;
        if (riga.tipo == TipoRiga::Chiave && riga.nome == chiave) {
            posto.chiave = riga;
            break;
        }
    }
    return posto;
}

/// True when what is inserted there begins a line.
bool Inizio_Riga(QByteArrayView byte, qsizetype posto)
{
    return posto == 0 || byte[posto - 1] == '\r' || byte[posto - 1] == '\n';
}

/// Where the blanks in front of a place begin.
qsizetype Prima_DeiBianchi(QByteArrayView byte, qsizetype posto)
{
    while (posto > 0 && Bianco(byte[posto - 1]))
        --posto;
    return posto;
}

} // namespace

QString Nome_DaConfrontare(const QString &nome)
{
    return Nome_DaAnsi(Senza_Spazi(Byte_Richiesti(nome)));
}

ValoriProfilo::ValoriProfilo(const QByteArray &byte) : m_byte(byte)
{
    Sezione *aperta = nullptr; // the one that the next head ends: the first of its name
    for (qsizetype testa = byte.indexOf('['); testa >= 0; testa = byte.indexOf('[', testa + 1)) {
        const qsizetype inizio = Prima_DeiBianchi(byte, testa);
        if (!Inizio_Riga(byte, inizio))
            continue;
        if (aperta != nullptr)
            aperta->a = inizio;
        const Riga riga = Riga_Da(byte, inizio);
        aperta = m_sezioni.contains(riga.nome) ? nullptr
                                               : &*m_sezioni.insert(riga.nome, {riga.dopo, byte.size(), {}});
    }
}

std::optional<QString> ValoriProfilo::Valore(const QString &sezione, const QString &chiave)
{
    const auto trovata = m_sezioni.find(sezione);
    if (trovata == m_sezioni.end())
        return std::nullopt;
    if (!trovata->chiavi)
        trovata->chiavi = Chiavi_Di(*trovata);
    const std::optional<Tratto> valore = trovata->chiavi->value(chiave);
    if (!valore)
        return std::nullopt;
    return Valore_DaByte(QByteArrayView(m_byte).sliced(valore->da, valore->a - valore->da));
}

ValoriProfilo::Chiavi ValoriProfilo::Chiavi_Di(const Sezione &sezione) const
{
    Chiavi chiavi;
    for (qsizetype inizio = sezione.da; inizio < sezione.a;) {
        const Riga riga = Riga_Da(m_byte, inizio);
        inizio = riga.dopo;
        if (riga.tipo == TipoRiga::Chiave && !chiavi.contains(riga.nome))
            chiavi.insert(riga.nome,
                          riga.uguale ? std::optional(Tratto{riga.valore, riga.fine}) : std::nullopt);
    }
    return chiavi;
}

QList<RigaProfilo> Righe_Profilo(QByteArrayView byte)
{
    QList<RigaProfilo> righe;
    qint32 numero = 0;
    for (qsizetype inizio = 0; inizio < byte.size();) {
        const Riga riga = Riga_Da(byte, inizio);
        ++numero;
        if (riga.tipo != TipoRiga::Altro)
            righe.append({numero, riga.tipo == TipoRiga::Testa, riga.nome, riga.uguale,
                          byte.sliced(inizio, riga.fine - inizio).toByteArray()});
        inizio = riga.dopo;
    }
    return righe;
}

QByteArray Profilo_Aggiornato(QByteArray byte, const QString &sezione, const QString &chiave,
                              const QString &valore)
{
    const QByteArray nuovo = Byte_Richiesti(valore);
    const Posto posto = Posto_Di(byte, Nome_DaConfrontare(sezione), Nome_DaConfrontare(chiave));
    if (posto.chiave) {
        const Riga &riga = *posto.chiave;
        return byte.replace(riga.valore, riga.fine - riga.valore, riga.uguale ? nuovo : '=' + nuovo);
    }
    QByteArray righe = Senza_Spazi(Byte_Richiesti(chiave)).toByteArray() + '=' + nuovo + "\r\n";
    if (!posto.sezione)
        righe.prepend('[' + Senza_Spazi(Byte_Richiesti(sezione)).toByteArray() + "]\r\n");
    const qsizetype dove = posto.sezione ? posto.nuova : byte.size();
    if (!Inizio_Riga(byte, dove))
        righe.prepend("\r\n");
    return byte.insert(dove, righe);
}
