// Findings gathered, and their two forms.
#include "strumenti/riscontro.h"

#include "core/parole.h"
#include "core/versione.h"
#include "platform/orologio.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

/// By Grado.
constexpr Parole GRADI[] = {
    {u"ok",     u"ok"     },
    {u"avviso", u"warning"},
    {u"guasto", u"fault"  },
};

/// By Materia.
constexpr Parole MATERIE[] = {
    {u"programma",      u"program"      },
    {u"configurazione", u"configuration"},
    {u"testi",          u"texts"        },
    {u"cartelle",       u"folders"      },
    {u"porte",          u"ports"        },
    {u"strumento",      u"instrument"   },
    {u"stampanti",      u"printers"     },
    {u"schermo",        u"screen"       },
    {u"disco",          u"disk"         },
    {u"orologio",       u"clock"        },
};

constexpr Parole DA_FARE = {u" Da fare: %1.", u" To do: %1."};

constexpr qsizetype LARGHEZZA_GRADO = 8;

const Parole &Grado_Di(const Riscontro &riscontro)
{
    return GRADI[static_cast<size_t>(riscontro.Livello)];
}
const Parole &Materia_Di(const Riscontro &riscontro)
{
    return MATERIE[static_cast<size_t>(riscontro.Di)];
}

} // namespace

void Trovato_Buono(Riscontri &riscontri, Materia materia, const QString &trovato)
{
    riscontri.append({materia, Grado::Buono, trovato, {}});
}
void Trovato_Avviso(Riscontri &riscontri, Materia materia, const QString &trovato, const QString &rimedio)
{
    riscontri.append({materia, Grado::Avviso, trovato, rimedio});
}
void Trovato_Guasto(Riscontri &riscontri, Materia materia, const QString &trovato, const QString &rimedio)
{
    riscontri.append({materia, Grado::Guasto, trovato, rimedio});
}

FineStrumento Riscontri_Fine(const Riscontri &riscontri)
{
    const bool buoni = std::all_of(riscontri.cbegin(), riscontri.cend(),
                                   [](const Riscontro &r) { return r.Livello == Grado::Buono; });
    return buoni ? FineStrumento::Buono : FineStrumento::Anomalie;
}

QString Riscontro_Testo(const Riscontro &riscontro)
{
    QString testo = In_Parole(Grado_Di(riscontro)).leftJustified(LARGHEZZA_GRADO) +
                    In_Parole(Materia_Di(riscontro)) + QStringLiteral(": ") + riscontro.Trovato + u'.';
    if (!riscontro.Rimedio.isEmpty())
        testo += In_Parole(DA_FARE).arg(riscontro.Rimedio);
    return testo + u'\n';
}

QByteArray Riscontri_Json(const Riscontri &riscontri, const QString &stazione)
{
    QJsonArray lista;
    for (const Riscontro &riscontro : riscontri) {
        QJsonObject oggetto{
            {QStringLiteral("grado"),   Grado_Di(riscontro).Italiano.toString()  },
            {QStringLiteral("materia"), Materia_Di(riscontro).Italiano.toString()},
            {QStringLiteral("trovato"), riscontro.Trovato                        },
        };
        if (!riscontro.Rimedio.isEmpty())
            oggetto.insert(QStringLiteral("rimedio"), riscontro.Rimedio);
        lista.append(oggetto);
    }
    const QJsonObject tutto{
        {QStringLiteral("stazione"),  stazione                                          },
        {QStringLiteral("versione"),  Versione_Programma()                              },
        {QStringLiteral("quando"),    Orologio_Corrente().Adesso().toString(Qt::ISODate)},
        {QStringLiteral("riscontri"), lista                                             },
    };
    return QJsonDocument(tutto).toJson();
}
