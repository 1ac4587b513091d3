// Any two texts as template and acceptance file, through the comparison of their names: the findings are made
// once more, from lists of whole names. Input: the template, a line "%%", the file.
#include "fuzz/comune.h"
#include "mctc/controllo_struttura.h"
#include "platform/codifica.h"

#include <QRegularExpression>

namespace {

/// The heads of a text with what follows each of them, up to the next.
struct Sezione
{
    QString nome;
    QString testo;
};

QList<Sezione> Sezioni_Di(const QString &testo)
{
    static const QRegularExpression TESTA(QStringLiteral("\\[([^\\[\\]]*)\\]"));
    QList<Sezione> sezioni;
    qsizetype inizio = 0;
    for (auto teste = TESTA.globalMatch(testo); teste.hasNext();) {
        const QRegularExpressionMatch testa = teste.next();
        if (!sezioni.isEmpty())
            sezioni.last().testo = testo.mid(inizio, testa.capturedStart() - inizio);
        sezioni.append({testa.captured(1), {}});
        inizio = testa.capturedEnd() - 1; // with the bracket: an entry on the head's line is no key
    }
    if (!sezioni.isEmpty())
        sezioni.last().testo = testo.mid(inizio);
    return sezioni;
}

QStringList Nomi_Di(const QList<Sezione> &sezioni)
{
    QStringList nomi;
    for (const Sezione &sezione : sezioni)
        nomi.append(sezione.nome);
    return nomi;
}

/// The names of a section's keys: what stands before each "=" of a line.
QStringList Chiavi_Di(const QList<Sezione> &sezioni, const QString &nome)
{
    static const QRegularExpression FINE_RIGA(QStringLiteral("[\r\n]"));
    const QString testo = sezioni.value(Nomi_Di(sezioni).indexOf(nome)).testo;
    QStringList chiavi;
    for (const QString &riga : testo.split(FINE_RIGA)) {
        const QStringList pezzi = riga.split(u'=');
        for (qsizetype n = 1; n < pezzi.size(); ++n)
            chiavi.append(pezzi.first(n).join(u'='));
    }
    return chiavi;
}

ListaAnomalie Confronto(const QStringList &modello, const QStringList &file, quint8 tipo,
                        const QString &sezione)
{
    ListaAnomalie lista;
    const auto esamina = [&](const QString &nome, const QStringList &altri, quint8 mai) {
        const qsizetype volte = altri.count(nome);
        if (volte == 0 || volte == 2)
            lista.append({nome, tipo, volte == 0 ? mai : quint8{AnomaliaDuplicata}, sezione});
    };
    for (const QString &nome : modello)
        esamina(nome, file, AnomaliaMancante);
    for (const QString &nome : file)
        esamina(nome, modello, AnomaliaEstranea);
    return lista;
}

ListaAnomalie Attese(const QList<Sezione> &modello, const QList<Sezione> &file)
{
    ListaAnomalie lista = Confronto(Nomi_Di(modello), Nomi_Di(file), AnomaliaSezione, QString());
    if (!lista.isEmpty())
        return lista;
    for (const Sezione &sezione : file) {
        const QStringList nelModello = Chiavi_Di(modello, sezione.nome);
        const QStringList nelFile = Chiavi_Di(file, sezione.nome);
        if (!nelModello.isEmpty() && !nelFile.isEmpty())
            lista += Confronto(nelModello, nelFile, AnomaliaEntry, sezione.nome);
    }
    return lista;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    const QByteArray byte = Byte_Di(dati, quanti);
    const qsizetype taglio = byte.indexOf("%%\n");
    const QByteArray byteModello = taglio < 0 ? QByteArray() : byte.first(taglio);
    const QByteArray byteFile = taglio < 0 ? byte : byte.sliced(taglio + 3);
    const QString percorsoModello = File_Con(QStringLiteral("Modello.acc"), byteModello);
    const QString percorso = File_Con(QStringLiteral("12345678.acc"), byteFile);
    ListaAnomalie lista;
    qint16 ultimo = 0;
    if (!Esegui({NumeroErrore::Overflow},
                [&] { ultimo = Acc_ControllaStruttura(percorsoModello, percorso, lista); }))
        return 0;

    Pretendi(ultimo == lista.size() - 1, "the last index is that of the list");
    const QList<Sezione> modello = Sezioni_Di(Testo_DaAnsi(byteModello));
    const QList<Sezione> file = Sezioni_Di(Testo_DaAnsi(byteFile));
    if (modello.isEmpty() || file.isEmpty())
        Pretendi(lista.size() == 1 && lista[0].Tipo == AnomaliaFile,
                 "a text without sections is not compared");
    else
        Pretendi(lista == Attese(modello, file), "the findings are those of the names");
    return 0;
}
