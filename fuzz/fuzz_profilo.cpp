// Any section, key and value written to any profile text: the line of the key changes and no other byte, and
// a read then finds the value and everything else as before. Input: a line each for section, key and value
// (UTF-8), then the profile.
#include "fuzz/comune.h"
#include "fuzz/valori_profilo.h"
#include "platform/codifica.h"
#include "platform/profilo.h"

#include <algorithm>

namespace {

bool Bianco(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\v';
}

/// What a read makes of a written value.
QString Riletto(const QString &valore)
{
    QString testo = Testo_DaAnsi(Testo_InAnsi(valore.left(valore.indexOf(QChar(0)))));
    while (!testo.isEmpty() && Bianco(testo.front()))
        testo.remove(0, 1);
    while (!testo.isEmpty() && Bianco(testo.back()))
        testo.chop(1);
    const bool coppia =
        testo.size() > 1 && testo.front() == testo.back() && (testo[0] == u'"' || testo[0] == u'\'');
    return coppia ? testo.mid(1, testo.size() - 2) : testo;
}

/// A name with a tab at an end is written as it is and read without: nobody finds it again, on any system.
bool Si_Ritrova(const QString &nome)
{
    const QString confrontato = Nome_DaConfrontare(nome);
    return confrontato.isEmpty() || (!Bianco(confrontato.front()) && !Bianco(confrontato.back()));
}

/// Bytes taken out of the text and put in, between what stays in front and what stays behind.
struct Differenza
{
    QByteArray tolti;
    QByteArray messi;
};

Differenza Differenza_Di(const QByteArray &prima, const QByteArray &dopo)
{
    const qsizetype corta = std::min(prima.size(), dopo.size());
    qsizetype davanti = 0;
    while (davanti < corta && prima[davanti] == dopo[davanti])
        ++davanti;
    qsizetype dietro = 0;
    while (dietro < corta - davanti && prima[prima.size() - 1 - dietro] == dopo[dopo.size() - 1 - dietro])
        ++dietro;
    return {prima.mid(davanti, prima.size() - davanti - dietro),
            dopo.mid(davanti, dopo.size() - davanti - dietro)};
}

bool Ha_FineRiga(const QByteArray &byte)
{
    return byte.contains('\r') || byte.contains('\n');
}

/// Every head and key of the text is a line of it, and read, but for keys under a second head of a name.
void Prova_Righe(const QByteArray &testo)
{
    const auto valori = Valori_Profilo(testo);
    QHash<QString, qsizetype> teste;
    QString sezione;
    for (const RigaProfilo &riga : Righe_Profilo(testo)) {
        Pretendi(!Ha_FineRiga(riga.Byte) && testo.contains(riga.Byte),
                 "a listed line is one line of the text");
        if (riga.Testa) {
            sezione = riga.Nome;
            ++teste[sezione];
            Pretendi(valori.contains(sezione), "a listed section is read");
        } else if (teste.value(sezione) == 1) {
            Pretendi(valori.value(sezione).contains(riga.Nome), "a listed key is read");
        }
    }
    Pretendi(valori.size() == teste.size(), "a section that is read is listed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    QByteArray prima = Byte_Di(dati, quanti);
    const QString sezione = QString::fromUtf8(Taglia_Riga(prima));
    const QString chiave = QString::fromUtf8(Taglia_Riga(prima));
    const QString valore = QString::fromUtf8(Taglia_Riga(prima));
    Prova_Righe(prima);
    if (!Profilo_Ammette(sezione, chiave, valore))
        return 0;

    const QByteArray dopo = Profilo_Aggiornato(prima, sezione, chiave, valore);
    const Differenza differenza = Differenza_Di(prima, dopo);
    Pretendi(!Ha_FineRiga(differenza.tolti), "nothing but a piece of one line goes");
    Pretendi(Profilo_Aggiornato(dopo, sezione, chiave, valore) == dopo || !Si_Ritrova(sezione) ||
                 !Si_Ritrova(chiave),
             "a second write of the same changes nothing");
    if (!Si_Ritrova(sezione) || !Si_Ritrova(chiave))
        return 0;

    auto attesi = Valori_Profilo(prima);
    ValoriSezione &attesa = attesi[Nome_DaConfrontare(sezione)];
    const bool nuova = !attesa.contains(Nome_DaConfrontare(chiave));
    attesa.insert(Nome_DaConfrontare(chiave), Riletto(valore));
    Pretendi(nuova || !Ha_FineRiga(differenza.messi), "a key that is there keeps its line");
    Pretendi(Valori_Profilo(dopo) == attesi, "a read finds the value, and every other one as before");
    return 0;
}
