// The page, text by text and line by line, on an A4 and on a Letter sheet; and what becomes of it when
// something fails on the way to the printer.
#include "report/pagina.h"

#include "core/codici.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "core/risultato.h"
#include "report/modPrn.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/far_prova.h"
#include "tests/comuni/orologio_prova.h"
#include "tests/comuni/stampa_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

#include <cmath>

namespace {

struct CaratterePagina
{
    const char16_t *nome;
    qint32 punti;
    bool grassetto;
};

constexpr CaratterePagina OFFICINA_PRIMA = {u"Arial", 10, true};
constexpr CaratterePagina OFFICINA = {u"Arial", 10, false};
constexpr CaratterePagina TITOLO = {u"Arial Black", 16, false};
constexpr CaratterePagina BLOCCO = {u"Courier New", 12, true};
constexpr CaratterePagina NORMALE = {u"Courier New", 10, false};
constexpr CaratterePagina GRASSETTO = {u"Courier New", 10, true};
constexpr CaratterePagina SEGNO = {u"Courier New", 18, true};

enum Allineamento
{
    SINISTRA,
    CENTRO,
    DESTRA
};

/// When a text stands on the page. For ConSegni it is the key of the result that the mark follows, and the
/// place is the one of a regular verdict.
enum Quando
{
    Sempre,
    ConLux,
    ConSegni,
    SeSimmetrico,
    SeAsimmetrico
};

/// A text: where it is held, on either sheet; every one ends at its y.
struct TestoPagina
{
    qint32 xA4, yA4, xLetter, yLetter;
    Allineamento allineamento;
    CaratterePagina carattere;
    Quando quando;
    const char16_t *testo;
};

constexpr TestoPagina TESTI_PAGINA[] = {
    {5863,  1150,  6028,  1085,  CENTRO,   OFFICINA_PRIMA, Sempre,        u"Officina Verdi"     },
    {5863,  1409,  6028,  1328,  CENTRO,   OFFICINA,       Sempre,        u"Via Roma 1"         },
    {5863,  1668,  6028,  1571,  CENTRO,   OFFICINA,       Sempre,        u"00100 Roma"         },
    {5863,  1927,  6028,  1814,  CENTRO,   OFFICINA,       Sempre,        u"06 0000000"         },
    {5863,  2186,  6028,  2057,  CENTRO,   OFFICINA,       Sempre,        u"www.example"        },
    {5863,  3172,  6028,  2979,  CENTRO,   TITOLO,         Sempre,        u"Rapporto"           },
    {586,   3690,  602,   3465,  SINISTRA, BLOCCO,         Sempre,        u"Strumento"          },
    {5863,  3690,  6028,  3465,  SINISTRA, BLOCCO,         Sempre,        u"Veicolo"            },
    {586,   4208,  602,   3951,  SINISTRA, NORMALE,        Sempre,        u"Marca:"             },
    {1407,  4208,  1423,  3951,  SINISTRA, GRASSETTO,      Sempre,        u"Prova"              },
    {586,   4467,  602,   4194,  SINISTRA, NORMALE,        Sempre,        u"Modello:"           },
    {1647,  4467,  1663,  4194,  SINISTRA, GRASSETTO,      Sempre,        u"QX5"                },
    {586,   4726,  602,   4437,  SINISTRA, NORMALE,        Sempre,        u"Omologazione:"      },
    {2247,  4726,  2263,  4437,  SINISTRA, GRASSETTO,      Sempre,        u"OM1"                },
    {586,   4985,  602,   4680,  SINISTRA, NORMALE,        Sempre,        u"Serie:"             },
    {1407,  4985,  1423,  4680,  SINISTRA, GRASSETTO,      Sempre,        u"000001"             },
    {586,   5244,  602,   4923,  SINISTRA, NORMALE,        Sempre,        u"Scadenza:"          },
    {1767,  5244,  1783,  4923,  SINISTRA, GRASSETTO,      Sempre,        u"31/12/2027"         },
    {5863,  4208,  6028,  3951,  SINISTRA, NORMALE,        Sempre,        u"Marca:"             },
    {6684,  4208,  6849,  3951,  SINISTRA, GRASSETTO,      Sempre,        u"FABBRICA"           },
    {5863,  4467,  6028,  4194,  SINISTRA, NORMALE,        Sempre,        u"Modello:"           },
    {6924,  4467,  7089,  4194,  SINISTRA, GRASSETTO,      Sempre,        u"BERLINA"            },
    {5863,  4726,  6028,  4437,  SINISTRA, NORMALE,        Sempre,        u"Targa:"             },
    {6684,  4726,  6849,  4437,  SINISTRA, GRASSETTO,      Sempre,        u"AB123CD"            },
    {5863,  4985,  6028,  4680,  SINISTRA, NORMALE,        Sempre,        u"Telaio:"            },
    {6804,  4985,  6969,  4680,  SINISTRA, GRASSETTO,      Sempre,        u"ZZZ01"              },
    {5863,  5244,  6028,  4923,  SINISTRA, NORMALE,        Sempre,        u"Anno:"              },
    {6564,  5244,  6729,  4923,  SINISTRA, GRASSETTO,      Sempre,        u"2018"               },
    {586,   6021,  602,   5652,  SINISTRA, BLOCCO,         Sempre,        u"Anabbaglianti"      },
    {9578,  6280,  9849,  5895,  CENTRO,   GRASSETTO,      Sempre,        u"Reg."               },
    {10360, 6280,  10651, 5895,  CENTRO,   GRASSETTO,      Sempre,        u"Irreg."             },
    {586,   6539,  602,   6138,  SINISTRA, NORMALE,        Sempre,        u"Verticale"          },
    {8797,  6539,  9046,  6138,  CENTRO,   NORMALE,        Sempre,        u"Destro"             },
    {9578,  6539,  9849,  6138,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 6539,  10651, 6138,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {8797,  6798,  9046,  6381,  CENTRO,   NORMALE,        Sempre,        u"Sinistro"           },
    {9578,  6798,  9849,  6381,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 6798,  10651, 6381,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {586,   7316,  602,   6867,  SINISTRA, NORMALE,        Sempre,        u"Orizzontale"        },
    {8797,  7316,  9046,  6867,  CENTRO,   NORMALE,        Sempre,        u"Destro"             },
    {9578,  7316,  9849,  6867,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 7316,  10651, 6867,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {8797,  7575,  9046,  7110,  CENTRO,   NORMALE,        Sempre,        u"Sinistro"           },
    {9578,  7575,  9849,  7110,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 7575,  10651, 7110,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {586,   8093,  602,   7596,  SINISTRA, NORMALE,        Sempre,        u"Luce"               },
    {5863,  8093,  6028,  7596,  DESTRA,   GRASSETTO,      ConLux,        u"23400"              },
    {8797,  8093,  9046,  7596,  CENTRO,   NORMALE,        Sempre,        u"Destro"             },
    {9578,  8093,  9849,  7596,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 8093,  10651, 7596,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {5863,  8352,  6028,  7839,  DESTRA,   GRASSETTO,      ConLux,        u"12300"              },
    {8797,  8352,  9046,  7839,  CENTRO,   NORMALE,        Sempre,        u"Sinistro"           },
    {9578,  8352,  9849,  7839,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 8352,  10651, 7839,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {9578,  6668,  9849,  6251,  CENTRO,   SEGNO,          ConSegni,      u"VertAnabDx"         },
    {9578,  6927,  9849,  6494,  CENTRO,   SEGNO,          ConSegni,      u"VertAnabSx"         },
    {9578,  7445,  9849,  6980,  CENTRO,   SEGNO,          ConSegni,      u"OrizzAnabDx"        },
    {9578,  7704,  9849,  7223,  CENTRO,   SEGNO,          ConSegni,      u"OrizzAnabSx"        },
    {9578,  8222,  9849,  7709,  CENTRO,   SEGNO,          ConSegni,      u"EsitoIllumLuxAnabDx"},
    {9578,  8481,  9849,  7952,  CENTRO,   SEGNO,          ConSegni,      u"EsitoIllumLuxAnabSx"},
    {5863,  6021,  6028,  5652,  DESTRA,   GRASSETTO,      SeSimmetrico,  u"Simmetrico"         },
    {5863,  6021,  6028,  5652,  DESTRA,   GRASSETTO,      SeAsimmetrico, u"Asimmetrico"        },
    {586,   9129,  602,   8568,  SINISTRA, BLOCCO,         Sempre,        u"Abbaglianti"        },
    {9578,  9388,  9849,  8811,  CENTRO,   GRASSETTO,      Sempre,        u"Reg."               },
    {10360, 9388,  10651, 8811,  CENTRO,   GRASSETTO,      Sempre,        u"Irreg."             },
    {586,   9647,  602,   9054,  SINISTRA, NORMALE,        Sempre,        u"Verticale"          },
    {8797,  9647,  9046,  9054,  CENTRO,   NORMALE,        Sempre,        u"Destro"             },
    {9578,  9647,  9849,  9054,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 9647,  10651, 9054,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {8797,  9906,  9046,  9297,  CENTRO,   NORMALE,        Sempre,        u"Sinistro"           },
    {9578,  9906,  9849,  9297,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 9906,  10651, 9297,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {586,   10424, 602,   9783,  SINISTRA, NORMALE,        Sempre,        u"Orizzontale"        },
    {8797,  10424, 9046,  9783,  CENTRO,   NORMALE,        Sempre,        u"Destro"             },
    {9578,  10424, 9849,  9783,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 10424, 10651, 9783,  CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {8797,  10683, 9046,  10026, CENTRO,   NORMALE,        Sempre,        u"Sinistro"           },
    {9578,  10683, 9849,  10026, CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 10683, 10651, 10026, CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {586,   11201, 602,   10512, SINISTRA, NORMALE,        Sempre,        u"Luce"               },
    {5863,  11201, 6028,  10512, DESTRA,   GRASSETTO,      ConLux,        u"150000"             },
    {8797,  11201, 9046,  10512, CENTRO,   NORMALE,        Sempre,        u"Destro"             },
    {9578,  11201, 9849,  10512, CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 11201, 10651, 10512, CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {5863,  11460, 6028,  10755, DESTRA,   GRASSETTO,      ConLux,        u"99000"              },
    {8797,  11460, 9046,  10755, CENTRO,   NORMALE,        Sempre,        u"Sinistro"           },
    {9578,  11460, 9849,  10755, CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {10360, 11460, 10651, 10755, CENTRO,   NORMALE,        Sempre,        u"[ ]"                },
    {9578,  9776,  9849,  9167,  CENTRO,   SEGNO,          ConSegni,      u"VertAbbDx"          },
    {9578,  10035, 9849,  9410,  CENTRO,   SEGNO,          ConSegni,      u"VertAbbSx"          },
    {9578,  10553, 9849,  9896,  CENTRO,   SEGNO,          ConSegni,      u"OrizzAbbDx"         },
    {9578,  10812, 9849,  10139, CENTRO,   SEGNO,          ConSegni,      u"OrizzAbbSx"         },
    {9578,  11330, 9849,  10625, CENTRO,   SEGNO,          ConSegni,      u"EsitoIllumLuxAbbDx" },
    {9578,  11589, 9849,  10868, CENTRO,   SEGNO,          ConSegni,      u"EsitoIllumLuxAbbSx" },
    {586,   13014, 602,   12213, SINISTRA, NORMALE,        Sempre,        u"Data:"              },
    {1287,  13014, 1303,  12213, SINISTRA, GRASSETTO,      Sempre,        u"05-03-2024"         },
    {4922,  13014, 5087,  12213, SINISTRA, NORMALE,        Sempre,        u"Inizio:"            },
    {5863,  13014, 6028,  12213, SINISTRA, GRASSETTO,      Sempre,        u"09:07:08"           },
    {9399,  13014, 9712,  12213, SINISTRA, NORMALE,        Sempre,        u"Fine:"              },
    {10100, 13014, 10413, 12213, SINISTRA, GRASSETTO,      Sempre,        u"09:10:11"           },
    {586,   13532, 602,   12699, SINISTRA, NORMALE,        Sempre,        u"Operatore:"         },
    {1887,  13532, 1903,  12699, SINISTRA, GRASSETTO,      Sempre,        u"Rossi"              },
    {5863,  13532, 6028,  12699, SINISTRA, NORMALE,        Sempre,        u"Firma:"             },
};

/// A sheet: its paper, the width that the layout leaves of it, the frame of the heading and the places of the
/// two columns of ticks.
struct FoglioPagina
{
    CartaProva carta;
    qint16 larghezza;
    qint32 sinistra, cima, destra, fondo;
    qint32 colonnaRegolare, colonnaIrregolare;
};

constexpr FoglioPagina FOGLIO_A4 = {CARTA_A4, 11727, 586, 841, 11141, 2331, 9578, 10360};
constexpr FoglioPagina FOGLIO_LETTER = {CARTA_LETTER, 12056, 602, 792, 11454, 2187, 9849, 10651};

QString Testo_Atteso(qint32 x, qint32 y, Allineamento allineamento, const CaratterePagina &carattere,
                     const QString &testo)
{
    const QString nome = QString::fromUtf16(carattere.nome);
    const qint32 larghezza = Larghezza_Prova(nome, carattere.punti, carattere.grassetto, testo);
    const double sinistra = x - allineamento * larghezza / 2.0;
    return Testo_Prova(static_cast<qint32>(std::nearbyint(sinistra)), y - Altezza_Prova(carattere.punti),
                       nome, carattere.punti, carattere.grassetto, testo);
}

QStringList Cornice_Attesa(const FoglioPagina &foglio)
{
    const auto [sinistra, cima, destra, fondo] =
        std::array{foglio.sinistra, foglio.cima, foglio.destra, foglio.fondo};
    return {
        Linea_Prova(sinistra, cima, destra, cima, 2, 0),
        Linea_Prova(sinistra, cima, sinistra, fondo, 2, 0),
        Linea_Prova(sinistra, fondo, destra, fondo, 2, 0),
        Linea_Prova(destra, cima, destra, fondo, 2, 0),
    };
}

bool Compare(Quando quando)
{
    switch (quando) {
    case ConLux:
        return gTipoProva != ProvaScelta;
    case ConSegni:
        return gTipoProva == ProvaScelta || gTipoProva == ProvaConfermata;
    case SeSimmetrico:
        return gSimmetrico != 0;
    case SeAsimmetrico:
        return gSimmetrico == 0;
    default:
        return true;
    }
}

/// The whole page for the present test. @param regolari keys of the result whose mark is a regular one.
QStringList Pagina_Attesa(const FoglioPagina &foglio, const QStringList &regolari)
{
    const bool letter = foglio.carta.Width == CARTA_LETTER.Width;
    QStringList attesa = Cornice_Attesa(foglio);
    for (const TestoPagina &riga : TESTI_PAGINA) {
        if (!Compare(riga.quando))
            continue;
        qint32 x = letter ? riga.xLetter : riga.xA4;
        QString testo = QString::fromUtf16(riga.testo);
        if (riga.quando == ConSegni) {
            x = regolari.contains(testo) ? foglio.colonnaRegolare : foglio.colonnaIrregolare;
            testo = QStringLiteral("*");
        }
        const qint32 y = letter ? riga.yLetter : riga.yA4;
        attesa.append(Testo_Atteso(x, y, riga.allineamento, riga.carattere, testo));
    }
    return attesa;
}

/// The keys that the marks follow, in the order of the page.
QStringList Chiavi_Segni()
{
    QStringList chiavi;
    for (const TestoPagina &riga : TESTI_PAGINA) {
        if (riga.quando == ConSegni)
            chiavi.append(QString::fromUtf16(riga.testo));
    }
    return chiavi;
}

/// Sets every verdict of the result record.
void Verdetti(const QString &valore)
{
    const QStringList chiavi = Chiavi_Segni();
    for (const QString &chiave : chiavi)
        Far_Imposta(Far_Riga(chiave), valore);
}

template <size_t N>
void Riempi(std::array<QString, N> &tabella, const char *testi)
{
    const QStringList voci = QString::fromLatin1(testi).split(u',');
    QCOMPARE(voci.size(), static_cast<qsizetype>(N));
    std::copy(voci.cbegin(), voci.cend(), tabella.begin());
}

void Riempi_Tabelle()
{
    Far_Azzera();
    Far_Imposta(FarIllumLuxAnabDx, QStringLiteral("23400"));
    Far_Imposta(FarIllumLuxAnabSx, QStringLiteral("12300"));
    Far_Imposta(FarIllumLuxAbbDx, QStringLiteral("150000"));
    Far_Imposta(FarIllumLuxAbbSx, QStringLiteral("99000"));
    Report_Dati(2);
    gRepMisure[RepData] = QStringLiteral("05-03-2024");
    gRepMisure[RepInizio] = QStringLiteral("09:07:08");
    gRepMisure[RepFine] = QStringLiteral("09:10:11");
    gRepMisure[RepOperatore] = QStringLiteral("Rossi");
    Riempi(gRepOfficina, "Officina Verdi,Via Roma 1,00100 Roma,06 0000000,www.example");
    Riempi(gRepTitoli, "Rapporto,Strumento,Veicolo,Anabbaglianti,Abbaglianti");
    Riempi(gRepStrumentoEt, "Marca,Modello,Omologazione,Serie,Scadenza");
    Riempi(gRepStrumentoVal, "Prova,QX5,OM1,000001,31/12/2027");
    Riempi(gRepVeicoloEt, "Marca,Modello,Targa,Telaio,Anno");
    Riempi(gRepVeicoloVal, "FABBRICA,BERLINA,AB123CD,ZZZ01,2018");
    Riempi(gRepVoci, "Verticale,Orizzontale,Luce,Data,Inizio,Fine,Operatore,Firma,Reg.,Irreg.");
}

} // namespace

class tst_pagina : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<OrologioProva> orologio;
    std::unique_ptr<StazioneProva> stazione;
    std::unique_ptr<StampaProva> stampa;

    /// A printer that is the current one.
    void Collega_Stampante(const CartaProva &carta = CARTA_A4)
    {
        stampa->Aggiungi(QStringLiteral("Rapporto"), carta);
        stampa->Predefinita(QStringLiteral("Rapporto"), carta);
    }
    /// What the layout draws on a sheet.
    static QStringList Disegna(const CartaProva &carta)
    {
        const auto oggetto = std::make_shared<OggettoProva>(QStringLiteral("foglio"), carta);
        Prn_ImpostaOggetto(oggetto);
        auto larghezza = static_cast<qint16>(carta.Width);
        auto altezza = static_cast<qint16>(carta.Height);
        Report_Stampa(larghezza, altezza);
        gPrnOggetto.reset();
        return oggetto->Pagine.first();
    }

private Q_SLOTS:
    void init()
    {
        orologio = std::make_unique<OrologioProva>();
        stazione = std::make_unique<StazioneProva>();
        stampa = std::make_unique<StampaProva>();
        gTabMctc[150] = QStringLiteral("Destro");
        gTabMctc[151] = QStringLiteral("Sinistro");
        gTabLingua[37] = QStringLiteral("Simmetrico");
        gTabLingua[38] = QStringLiteral("Asimmetrico");
        gTipoProva = ProvaConfermata;
        gSimmetrico = 0;
        Riempi_Tabelle();
    }
    void cleanup()
    {
        QVERIFY(gPrnOggetto == nullptr);
        stampa.reset();
        stazione.reset();
        orologio.reset();
    }

    // --- the layout ---------------------------------------------------------------------------------------

    void tuttaLaPagina_data()
    {
        QTest::addColumn<bool>("letter");
        QTest::addColumn<qint16>("tipoProva");
        QTest::addColumn<quint8>("simmetrico");
        QTest::addColumn<bool>("regolare");
        for (const bool letter : {false, true}) {
            for (const qint16 tipo : {qint16{1}, qint16{2}, qint16{3}, qint16{4}}) {
                for (const quint8 simmetrico : {quint8{0}, quint8{1}}) {
                    for (const bool regolare : {false, true}) {
                        QTest::addRow("%s, tipo %d, %s, %s", letter ? "Letter" : "A4", tipo,
                                      simmetrico != 0 ? "simmetrico" : "asimmetrico",
                                      regolare ? "regolare" : "irregolare")
                            << letter << tipo << simmetrico << regolare;
                    }
                }
            }
        }
    }
    void tuttaLaPagina()
    {
        QFETCH(bool, letter);
        QFETCH(qint16, tipoProva);
        QFETCH(quint8, simmetrico);
        QFETCH(bool, regolare);
        const FoglioPagina &foglio = letter ? FOGLIO_LETTER : FOGLIO_A4;
        gTipoProva = tipoProva;
        gSimmetrico = simmetrico;
        Riempi_Tabelle();
        Verdetti(regolare ? QStringLiteral("R") : QStringLiteral("I"));
        QCOMPARE(Disegna(foglio.carta), Pagina_Attesa(foglio, regolare ? Chiavi_Segni() : QStringList()));
    }

    /// A test without a measure has no end: its place is the end's own matter.
    void senzaFineLInizioNonSiSposta()
    {
        const QStringList intera = Disegna(CARTA_A4);
        gRepMisure[RepFine] = QStringLiteral("-");
        const QStringList senzaFine = Disegna(CARTA_A4);
        QCOMPARE(senzaFine.size(), intera.size());
        QStringList spostati;
        for (qsizetype i = 0; i < intera.size(); ++i) {
            if (senzaFine[i] != intera[i])
                spostati.append(senzaFine[i]);
        }
        QCOMPARE(spostati.size(), 2);
        QVERIFY2(spostati[0].contains(u"Fine:"), qPrintable(spostati[0]));
        QVERIFY2(spostati[1].endsWith(u"[-]"), qPrintable(spostati[1]));
    }

    /// A page to fill in by hand has measures and blank boxes; one of a test begun has marks and no measures.
    void quantiSegniEMisure_data()
    {
        QTest::addColumn<qint16>("tipoProva");
        QTest::addColumn<qsizetype>("segni");
        QTest::addColumn<qsizetype>("misure");
        QTest::newRow("1: da compilare") << qint16{1} << qsizetype{0} << qsizetype{4};
        QTest::newRow("2: solo i segni") << qint16{2} << qsizetype{12} << qsizetype{0};
        QTest::newRow("3: da compilare") << qint16{3} << qsizetype{0} << qsizetype{4};
        QTest::newRow("4: tutto") << qint16{4} << qsizetype{12} << qsizetype{4};
    }
    void quantiSegniEMisure()
    {
        QFETCH(qint16, tipoProva);
        QFETCH(qsizetype, segni);
        QFETCH(qsizetype, misure);
        gTipoProva = tipoProva;
        const QStringList pagina = Disegna(CARTA_A4);
        QCOMPARE(pagina.filter(QStringLiteral("[*]")).size(), segni);
        qsizetype trovate = 0;
        for (const char16_t *valore : {u"[23400]", u"[12300]", u"[150000]", u"[99000]"})
            trovate += pagina.filter(QString::fromUtf16(valore)).size();
        QCOMPARE(trovate, misure);
        QCOMPARE(pagina.filter(QStringLiteral("[[ ]]")).size(), qsizetype{24});
    }

    void ogniSegnoSegueLaSuaVoce_data()
    {
        QTest::addColumn<QString>("chiave");
        const QStringList chiavi = Chiavi_Segni();
        for (const QString &chiave : chiavi)
            QTest::newRow(qPrintable(chiave)) << chiave;
    }
    void ogniSegnoSegueLaSuaVoce()
    {
        QFETCH(QString, chiave);
        Verdetti(QStringLiteral("I"));
        Far_Imposta(Far_Riga(chiave), QStringLiteral("R"));
        QCOMPARE(Disegna(CARTA_A4), Pagina_Attesa(FOGLIO_A4, {chiave}));
    }

    void soloREsattaERegolare_data()
    {
        QTest::addColumn<QString>("valore");
        for (const char *valore : {"r", "R ", " R", "", "I", "RR"})
            QTest::addRow("'%s'", valore) << QString::fromLatin1(valore);
    }
    void soloREsattaERegolare()
    {
        QFETCH(QString, valore);
        Verdetti(valore);
        QCOMPARE(Disegna(CARTA_A4), Pagina_Attesa(FOGLIO_A4, {}));
    }

    void rigaVuotaDellOfficina_data()
    {
        QTest::addColumn<size_t>("vuota");
        for (size_t riga = 0; riga < gRepOfficina.size(); ++riga)
            QTest::addRow("riga %zu", riga) << riga;
    }
    /// A workshop without a web site, say: its line stays empty, and no other moves up.
    void rigaVuotaDellOfficina()
    {
        QFETCH(size_t, vuota);
        const qsizetype primo = 4; // behind the four lines of the frame
        QStringList attesa = Disegna(CARTA_A4).mid(primo, 5);
        const TestoPagina &riga = TESTI_PAGINA[vuota];
        attesa[static_cast<qsizetype>(vuota)] =
            Testo_Atteso(riga.xA4, riga.yA4, riga.allineamento, riga.carattere, QString());
        gRepOfficina[vuota].clear();
        QCOMPARE(Disegna(CARTA_A4).mid(primo, 5), attesa);
    }

    void larghezzaRidottaSulPosto()
    {
        for (const FoglioPagina &foglio : {FOGLIO_A4, FOGLIO_LETTER}) {
            Prn_ImpostaOggetto(std::make_shared<OggettoProva>(QStringLiteral("foglio")));
            auto larghezza = static_cast<qint16>(foglio.carta.Width);
            auto altezza = static_cast<qint16>(foglio.carta.Height);
            Report_Stampa(larghezza, altezza);
            gPrnOggetto.reset();
            QCOMPARE(larghezza, foglio.larghezza);
            QCOMPARE(altezza, static_cast<qint16>(foglio.carta.Height));
        }
    }

    /// The widest and highest page of 16 bits is laid out whole.
    void cartaAlLimiteDeiSediciBit()
    {
        const QStringList pagina = Disegna({32767, 32767, 0, 0, 32767, 32767});
        QCOMPARE(pagina.size(), Pagina_Attesa(FOGLIO_A4, {}).size());
        // Right margin at 32275 - 1613, foot of the heading at 9 times 504.
        QCOMPARE(pagina[3], Linea_Prova(30662, 1638, 30662, 4536, 2, 0));
    }

    // --- the print job ------------------------------------------------------------------------------------

    void paginaInviataUnaVolta()
    {
        Collega_Stampante();
        QCOMPARE(Report_Invia(), Vero);
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{1});
        QCOMPARE(stampa->Corrente->Pagine.first(), Pagina_Attesa(FOGLIO_A4, {}));
        QCOMPARE(stampa->Corrente->Operazioni.count(QStringLiteral("EndDoc")), qsizetype{1});
        QCOMPARE(stampa->Corrente->Operazioni.last(), QStringLiteral("EndDoc"));
        QVERIFY(gPrnOggetto == nullptr);
    }

    /// The page is measured on the printer of the list and drawn on the current one.
    void misureDallElencoPaginaSullaCorrente()
    {
        stampa->Aggiungi(QStringLiteral("Rapporto"), CARTA_LETTER);
        stampa->Predefinita(QStringLiteral("Rapporto"), CARTA_A4);
        QCOMPARE(Report_Invia(), Vero);
        QCOMPARE(stampa->Corrente->Pagine.first(), Pagina_Attesa(FOGLIO_LETTER, {}));
    }

    void senzaStampanteNessunaPagina()
    {
        stampa->Predefinita(QStringLiteral("Rapporto"));
        QCOMPARE(Report_Invia(), Falso);
        QVERIFY(stampa->Corrente->Operazioni.isEmpty());
        QVERIFY(gPrnOggetto == nullptr);
    }

    void stampanteSparitaNelFrattempo()
    {
        Collega_Stampante();
        stampa->Richieste = 1;
        QCOMPARE(Report_Invia(), Falso);
        QVERIFY(stampa->Corrente->Operazioni.isEmpty());
        QVERIFY(gPrnOggetto == nullptr);
    }

    void paginaNonPresaDalSistema()
    {
        Collega_Stampante();
        stampa->Corrente->EndDocFallisce = true;
        QCOMPARE(Report_Invia(), Falso);
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{0});
        QVERIFY(gPrnOggetto == nullptr);
    }

    void cartaOltreISediciBitNessunaPagina()
    {
        Collega_Stampante({11906, 40000, 0, 0, 11906, 40000});
        QCOMPARE(Report_Invia(), Falso);
        QVERIFY(stampa->Corrente->Operazioni.isEmpty());
        QVERIFY(gPrnOggetto == nullptr);
    }

    /// Something passes 16 bits on the way: the rest of the page is left out, what stands is printed.
    void erroreInPaginaLasciaIlResto_data()
    {
        QTest::addColumn<QString>("ultimo");
        QTest::newRow("etichetta troppo lunga") << QStringLiteral("strumento");
        QTest::newRow("valore fuori dal foglio") << QStringLiteral("veicolo");
        QTest::newRow("stampante guasta") << QStringLiteral("guasto");
    }
    void erroreInPaginaLasciaIlResto()
    {
        QFETCH(QString, ultimo);
        Collega_Stampante();
        QStringList attesa = Pagina_Attesa(FOGLIO_A4, {});
        qsizetype stampati = 0; // texts that stand
        if (ultimo == u"strumento") {
            // Its width passes 16 bits when it is measured: it has been printed itself.
            gRepStrumentoEt[2] = QString(280, u'x');
            attesa[16] = Testo_Atteso(586, 4726, SINISTRA, NORMALE, gRepStrumentoEt[2] + u':');
            stampati = 13;
        } else if (ultimo == u"veicolo") {
            // The label fits, the place of the value behind it does not.
            gRepVeicoloEt[0] = QString(250, u'x');
            attesa[22] = Testo_Atteso(5863, 4208, SINISTRA, NORMALE, gRepVeicoloEt[0] + u':');
            stampati = 19;
        } else {
            stampa->Corrente->FallisceAlTesto = 40;
            stampati = 40;
        }
        QCOMPARE(Report_Invia(), Vero);
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{1});
        QCOMPARE(stampa->Corrente->Pagine.first(), attesa.mid(0, 4 + stampati));
        QCOMPARE(stampa->Corrente->Operazioni.last(), QStringLiteral("EndDoc"));
        QVERIFY(gPrnOggetto == nullptr);
    }

    /// The error of the layout itself, for those who call it without the job round it.
    void erroreInPaginaSollevaOverflow()
    {
        gRepVoci[4] = QString(280, u'x');
        Prn_ImpostaOggetto(std::make_shared<OggettoProva>(QStringLiteral("foglio")));
        qint16 larghezza = 11906;
        qint16 altezza = 16838;
        QCOMPARE(Errore_Di([&] { Report_Stampa(larghezza, altezza); }), 6);
        gPrnOggetto.reset();
    }

    /// The width that the layout reduced is the printer's again for the next print.
    void dueStampePagineUguali()
    {
        Collega_Stampante();
        Report_Dati(0);
        Report_Dati(1);
        for (int stampa_ = 0; stampa_ < 2; ++stampa_) {
            orologio->Avanza(61000);
            Report_Dati(2);
            Report_Dati(3);
            QCOMPARE(Report_Invia(), Vero);
        }
        const QList<QStringList> &pagine = stampa->Corrente->Pagine;
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{2});
        QStringList seconda = pagine[1];
        QVERIFY(seconda != pagine[0]);
        QCOMPARE(seconda.filter(QStringLiteral("[10:22:32]")).size(), qsizetype{1});
        seconda.replaceInStrings(QStringLiteral("[10:22:32]"), QStringLiteral("[10:21:31]"));
        QCOMPARE(seconda, pagine[0]);
    }
};

QTEST_GUILESS_MAIN(tst_pagina)
#include "tst_pagina.moc"
