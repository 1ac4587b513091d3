// The result record: its thirty keys and their values.
#include "core/risultato.h"

#include <QTest>

#include <type_traits>

namespace {

struct Riga
{
    RigaFar riga;
    const char *chiave;
};

/// In the order of the result file.
constexpr Riga RIGHE[] = {
    {FarMarca,               "Marca"              },
    {FarTipo,                "Tipo"               },
    {FarNumOmologa,          "NumOmologa"         },
    {FarNumSerie,            "NumSerie"           },
    {FarNumVersioneSoftware, "NumVersioneSoftware"},
    {FarDataScadenza,        "DataScadenza"       },
    {FarAltezzaAnab,         "AltezzaAnab"        },
    {FarTipoAnab,            "TipoAnab"           },
    {FarVertAnabDx,          "VertAnabDx"         },
    {FarVertAnabSx,          "VertAnabSx"         },
    {FarVertAbbDx,           "VertAbbDx"          },
    {FarVertAbbSx,           "VertAbbSx"          },
    {FarOrizzAnabDx,         "OrizzAnabDx"        },
    {FarOrizzAnabSx,         "OrizzAnabSx"        },
    {FarOrizzAbbDx,          "OrizzAbbDx"         },
    {FarOrizzAbbSx,          "OrizzAbbSx"         },
    {FarIllumLuxAnabDx,      "IllumLuxAnabDx"     },
    {FarIllumLuxAnabSx,      "IllumLuxAnabSx"     },
    {FarIllumLuxAbbDx,       "IllumLuxAbbDx"      },
    {FarIllumLuxAbbSx,       "IllumLuxAbbSx"      },
    {FarEsitoIllumLuxAnabDx, "EsitoIllumLuxAnabDx"},
    {FarEsitoIllumLuxAnabSx, "EsitoIllumLuxAnabSx"},
    {FarEsitoIllumLuxAbbDx,  "EsitoIllumLuxAbbDx" },
    {FarEsitoIllumLuxAbbSx,  "EsitoIllumLuxAbbSx" },
    {FarEsito,               "Esito"              },
    {FarCodErrore,           "CodErrore"          },
    {FarDataMisura,          "DataMisura"         },
    {FarInizioMisura,        "InizioMisura"       },
    {FarFineMisura,          "FineMisura"         },
    {FarOperatore,           "Operatore"          },
};

// A number, or a key that nobody has checked, does not compile.
static_assert(!std::is_invocable_v<decltype(Far_Valore), int>);
static_assert(!std::is_invocable_v<decltype(Far_Valore), QString>);
static_assert(!std::is_invocable_v<decltype(Far_Imposta), int, QString>);
static_assert(!std::is_invocable_v<decltype(Far_Imposta), QString, QString>);

} // namespace

class tst_risultato : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// Before the first measure there is neither a key nor a value.
    void vuotoFinoAlPrimoAzzeramento()
    {
        QCOMPARE(gRisultatoFar.size(), size_t{30});
        QCOMPARE(gRisultatoFar[FarMarca].Chiave, QString());
        QCOMPARE(Far_Valore(FarMarca), QString());
    }

    void trentaRigheNelLoroOrdine()
    {
        Far_Azzera();
        QCOMPARE(std::size(RIGHE), gRisultatoFar.size());
        for (size_t i = 0; i < gRisultatoFar.size(); ++i) {
            QCOMPARE(size_t{RIGHE[i].riga}, i);
            QCOMPARE(gRisultatoFar[i].Chiave, QString::fromLatin1(RIGHE[i].chiave));
        }
    }

    void azzeraSvuotaIValori()
    {
        Far_Azzera();
        for (VoceFar &riga : gRisultatoFar)
            riga = {QStringLiteral("x"), QStringLiteral("x")};
        Far_Azzera();
        for (const Riga &riga : RIGHE) {
            QCOMPARE(gRisultatoFar[riga.riga].Chiave, QString::fromLatin1(riga.chiave));
            QCOMPARE(gRisultatoFar[riga.riga].Valore, QString());
        }
    }

    void ogniRigaTieneIlSuoValore()
    {
        Far_Azzera();
        for (const Riga &riga : RIGHE)
            Far_Imposta(riga.riga, QStringLiteral("v-") + QString::fromLatin1(riga.chiave));
        for (const Riga &riga : RIGHE)
            QCOMPARE(Far_Valore(riga.riga), QStringLiteral("v-") + QString::fromLatin1(riga.chiave));
        for (const VoceFar &voce : gRisultatoFar)
            QCOMPARE(voce.Valore, QStringLiteral("v-") + voce.Chiave);
    }
};

QTEST_GUILESS_MAIN(tst_risultato)
#include "tst_risultato.moc"
