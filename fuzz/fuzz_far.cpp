// Any bytes as a result file, through its reading and what the tool makes of it: a file without defects is
// the one that a station writes of the same record, and tables and objects hold what was read.
#include "core/risultato.h"
#include "fuzz/comune.h"
#include "mctc/far.h"
#include "platform/codifica.h"
#include "strumenti/raccolta_far.h"
#include "strumenti/stazione_strumento.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

QByteArray Far_Testo(const RisultatoFar &righe)
{
    QString testo = TESTA_FAR.toString() + QStringLiteral("\r\n");
    for (const VoceFar &riga : righe)
        testo += riga.Chiave + u'=' + riga.Valore + QStringLiteral("\r\n");
    return Testo_InAnsi(testo);
}

/// Defects of the lines: all but those of a value.
bool Righe_Difettose(const QList<DifettoFar> &difetti)
{
    return std::any_of(difetti.cbegin(), difetti.cend(), [](const DifettoFar &difetto) {
        return difetto.Errore != ErroreFar::Valore && difetto.Errore != ErroreFar::Incoerente;
    });
}

/// A cell of comma-separated values and what closes it.
QString Prossima_Cella(const QString &csv, qsizetype &posto)
{
    QString cella;
    bool virgolette = false;
    for (; posto < csv.size(); ++posto) {
        if (csv[posto] == u'"') {
            const bool doppia = virgolette && posto + 1 < csv.size() && csv[posto + 1] == u'"';
            if (doppia)
                cella += csv[++posto];
            else
                virgolette = !virgolette;
        } else if (!virgolette && (csv[posto] == u',' || csv[posto] == u'\r')) {
            posto += csv[posto] == u',' ? 1 : 2;
            return cella;
        } else {
            cella += csv[posto];
        }
    }
    return cella;
}

void Prova_Tabella(const Tabella &tabella)
{
    const QString csv = QString::fromUtf8(Tabella_Csv(tabella));
    QList<QStringList> righe = tabella.Righe;
    righe.prepend(tabella.Colonne);
    qsizetype posto = 0;
    for (const QStringList &riga : righe) {
        Pretendi(riga.size() == tabella.Colonne.size(), "a row has every column");
        for (const QString &cella : riga)
            Pretendi(Prossima_Cella(csv, posto) == cella, "comma-separated values are the table");
    }
    Pretendi(posto == csv.size(), "and nothing else");
    Pretendi(Tabella_Testo(tabella).count(u'\n') == righe.size(), "a row is a line");
}

void Prova_Json(const FileFar &file)
{
    const QJsonArray oggetti = QJsonDocument::fromJson(Raccolta_Json({file})).array();
    Pretendi(oggetti.size() == 1, "an object a file");
    const QJsonObject righe = oggetti[0].toObject()[QStringLiteral("righe")].toObject();
    for (const VoceFar &riga : file.Letto.Righe)
        Pretendi(righe[riga.Chiave].toString() == riga.Valore, "the object has every row as it was read");
    Pretendi(oggetti[0].toObject()[QStringLiteral("difetti")].toArray().size() == file.Letto.Difetti.size(),
             "the object has every defect");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    const QByteArray byte = Byte_Di(dati, quanti);
    const QString percorso = File_Con(QStringLiteral("riga %1 al 50%2.far"), byte);
    FileFar file{percorso, {}};
    Esegui({}, [&] { file.Letto = Far_Leggi(percorso); });

    const bool uguale = Far_Testo(file.Letto.Righe) == byte;
    Pretendi(Righe_Difettose(file.Letto.Difetti) == !uguale,
             "lines without defects are those that a station writes");
    qint32 riga = 0;
    for (const DifettoFar &difetto : file.Letto.Difetti) {
        Pretendi(difetto.Riga >= riga && difetto.Riga >= 1, "the defects come in the order of the lines");
        riga = difetto.Riga;
        const QString testo = Difetto_Testo(percorso, difetto);
        const QString inizio =
            Percorso_Mostrato(percorso) + u':' + QString::number(riga) + QStringLiteral(": ");
        Pretendi(testo.startsWith(inizio) && testo.endsWith(difetto.Testo),
                 "a defect tells its file, its line and itself");
    }
    Prova_Tabella(Raccolta_InBreve({file}));
    Prova_Tabella(Raccolta_PerEsteso({file, file}));
    Prova_Tabella(Raccolta_Riepilogo({file}, Lettore::Programma));
    Prova_Json(file);
    return 0;
}
