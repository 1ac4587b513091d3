// Rows of files put into tables and objects, and the counts. It knows no rule of a row.
#include "strumenti/raccolta_far.h"

#include "core/campo_form.h"
#include "core/parole.h"
#include "strumenti/stazione_strumento.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

#include <iterator>

namespace {

/// A kind of defect: its name for a program, and what it means.
struct NomeDifetto
{
    QStringView Nome;
    Parole Senso;
};

// clang-format off
/// By ErroreFar.
constexpr NomeDifetto DIFETTI[] = {
    {u"testa",       {u"la prima riga non è quella dei risultati", u"the first line is not that of result files"}},
    {u"mancante",    {u"manca la chiave",                          u"the key is missing"}},
    {u"estranea",    {u"la riga non è di un file di risultato",    u"the line is none of a result file"}},
    {u"doppia",      {u"la chiave c'è già",                        u"the key is there already"}},
    {u"fuori posto", {u"la riga non è al suo posto",               u"the line is out of its place"}},
    {u"fine riga",   {u"la riga non finisce con CR LF",            u"the line does not end with CR LF"}},
    {u"valore",      {u"il valore non ha la forma della sua riga", u"the value has not the form of its row"}},
    {u"incoerente",  {u"l'esito non è quello delle altre righe",   u"the verdict is not that of the other rows"}},
};
// clang-format on

/// What vehicles are counted by.
enum Gruppo : quint8
{
    GruppoGiorno,
    GruppoOperatore,
    GruppoEsito,
    GruppoCausa,
};

constexpr Parole GRUPPI[] = {
    {u"giorno",    u"day"     },
    {u"operatore", u"operator"},
    {u"esito",     u"verdict" },
    {u"causa",     u"cause"   },
};

constexpr Parole COLONNE_BREVI[] = {
    {u"file",      u"file"    },
    {u"data",      u"date"    },
    {u"inizio",    u"start"   },
    {u"fine",      u"end"     },
    {u"operatore", u"operator"},
    {u"esito",     u"verdict" },
    {u"cause",     u"causes"  },
    {u"difetti",   u"defects" },
};

constexpr Parole COLONNE_RIEPILOGO[] = {
    {u"gruppo",     u"group"    },
    {u"voce",       u"entry"    },
    {u"veicoli",    u"vehicles" },
    {u"regolari",   u"regular"  },
    {u"irregolari", u"irregular"},
};

QString Detta(const Parole &parole, Lettore lettore)
{
    return lettore == Lettore::Persona ? In_Parole(parole) : parole.Italiano.toString();
}

template <size_t N>
QStringList Colonne(const Parole (&colonne)[N], Lettore lettore)
{
    QStringList nomi;
    for (const Parole &colonna : colonne)
        nomi.append(Detta(colonna, lettore));
    return nomi;
}

const QString &Valore(const FarLetto &letto, RigaFar riga)
{
    return letto.Righe[riga].Valore;
}

/// The rows that make a vehicle irregular, by their keys.
QStringList Cause_Di(const FarLetto &letto)
{
    QStringList cause;
    for (const RigaFar riga : FAR_DECISIVE) {
        if (Valore(letto, riga) == FAR_IRREGOLARE)
            cause.append(letto.Righe[riga].Chiave);
    }
    return cause;
}

const NomeDifetto &Nome_Di(ErroreFar errore)
{
    return DIFETTI[static_cast<size_t>(errore)];
}

QJsonObject Oggetto_Di(const DifettoFar &difetto)
{
    const NomeDifetto &nome = Nome_Di(difetto.Errore);
    return {
        {QStringLiteral("riga"),    difetto.Riga         },
        {QStringLiteral("difetto"), nome.Nome.toString() },
        {QStringLiteral("motivo"),  In_Parole(nome.Senso)},
        {QStringLiteral("testo"),   difetto.Testo        },
    };
}

QJsonObject Oggetto_Di(const FileFar &file)
{
    QJsonObject righe;
    for (const VoceFar &riga : file.Letto.Righe)
        righe.insert(riga.Chiave, riga.Valore);
    QJsonArray difetti;
    for (const DifettoFar &difetto : file.Letto.Difetti)
        difetti.append(Oggetto_Di(difetto));
    return {
        {QStringLiteral("file"),    Percorso_Mostrato(file.File)},
        {QStringLiteral("righe"),   righe                       },
        {QStringLiteral("difetti"), difetti                     },
    };
}

/// Vehicles of one entry of a group.
struct Conteggio
{
    int veicoli = 0;
    int regolari = 0;
    int irregolari = 0;
};

/// By group and entry: a map sorts both.
using Riepilogo = QMap<std::pair<Gruppo, QString>, Conteggio>;

Riepilogo Riepilogo_Di(const RaccoltaFar &raccolta)
{
    Riepilogo riepilogo;
    for (const FileFar &file : raccolta) {
        const FarLetto &letto = file.Letto;
        const QString esito = Valore(letto, FarEsito);
        const auto conta = [&](Gruppo gruppo, const QString &voce) {
            Conteggio &conteggio = riepilogo[{gruppo, voce}];
            ++conteggio.veicoli;
            conteggio.regolari += esito == FAR_REGOLARE ? 1 : 0;
            conteggio.irregolari += esito == FAR_IRREGOLARE ? 1 : 0;
        };
        conta(GruppoGiorno, Giorno_Di(letto));
        conta(GruppoOperatore, Valore(letto, FarOperatore));
        conta(GruppoEsito, esito);
        const QStringList cause = Cause_Di(letto);
        for (const QString &causa : cause)
            conta(GruppoCausa, causa);
    }
    return riepilogo;
}

} // namespace

QString Difetto_Testo(const QString &file, const DifettoFar &difetto)
{
    return QStringLiteral("%1:%2: %3: %4")
        .arg(Percorso_Mostrato(file), QString::number(difetto.Riga), In_Parole(Nome_Di(difetto.Errore).Senso),
             difetto.Testo);
}

Tabella Raccolta_InBreve(const RaccoltaFar &raccolta)
{
    Tabella tabella{Colonne(COLONNE_BREVI, Lettore::Persona), {}};
    for (const FileFar &file : raccolta) {
        const FarLetto &letto = file.Letto;
        tabella.Righe.append({Percorso_Mostrato(file.File), Campo_Formato(Valore(letto, FarDataMisura), 0),
                              Campo_Formato(Valore(letto, FarInizioMisura), 1),
                              Campo_Formato(Valore(letto, FarFineMisura), 1), Valore(letto, FarOperatore),
                              Valore(letto, FarEsito), Cause_Di(letto).join(u' '),
                              QString::number(letto.Difetti.size())});
    }
    return tabella;
}

Tabella Raccolta_PerEsteso(const RaccoltaFar &raccolta)
{
    Tabella tabella{{QStringLiteral("File")}, {}};
    for (size_t riga = 0; riga < RIGHE_FAR; ++riga)
        tabella.Colonne.append(Far_Chiave(static_cast<RigaFar>(riga)));
    tabella.Colonne.append(QStringLiteral("Difetti"));
    for (const FileFar &file : raccolta) {
        QStringList valori = {Percorso_Mostrato(file.File)};
        for (const VoceFar &riga : file.Letto.Righe)
            valori.append(riga.Valore);
        valori.append(QString::number(file.Letto.Difetti.size()));
        tabella.Righe.append(valori);
    }
    return tabella;
}

QByteArray Raccolta_Json(const RaccoltaFar &raccolta)
{
    QJsonArray oggetti;
    for (const FileFar &file : raccolta)
        oggetti.append(Oggetto_Di(file));
    return QJsonDocument(oggetti).toJson();
}

Tabella Raccolta_Riepilogo(const RaccoltaFar &raccolta, Lettore lettore)
{
    Tabella tabella{Colonne(COLONNE_RIEPILOGO, lettore), {}};
    const Riepilogo riepilogo = Riepilogo_Di(raccolta);
    for (auto voce = riepilogo.cbegin(); voce != riepilogo.cend(); ++voce)
        tabella.Righe.append({Detta(GRUPPI[voce.key().first], lettore), voce.key().second,
                              QString::number(voce->veicoli), QString::number(voce->regolari),
                              QString::number(voce->irregolari)});
    return tabella;
}

QByteArray Riepilogo_Json(const RaccoltaFar &raccolta)
{
    QJsonArray oggetti;
    const Riepilogo riepilogo = Riepilogo_Di(raccolta);
    const QStringList nomi = Colonne(COLONNE_RIEPILOGO, Lettore::Programma);
    for (auto voce = riepilogo.cbegin(); voce != riepilogo.cend(); ++voce)
        oggetti.append(QJsonObject{
            {nomi[0], Detta(GRUPPI[voce.key().first], Lettore::Programma)},
            {nomi[1],       voce.key().second                              },
            {nomi[2],       voce->veicoli},
            {nomi[3],       voce->regolari                              },
            {nomi[4],       voce->irregolari},
        });
    return QJsonDocument(oggetti).toJson();
}

QString Giorno_Di(const FarLetto &letto)
{
    const QString data = Valore(letto, FarDataMisura);
    return data.size() == 8 ? QStringLiteral("%1-%2-%3").arg(data.mid(4), data.mid(2, 2), data.left(2))
                            : data;
}
