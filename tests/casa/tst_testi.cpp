// The screen texts as they are delivered: every one that has a name in the program, in every language that
// the setup form offers, and no other.
#include "core/modGeneral.h"
#include "platform/codifica.h"
#include "tests/casa/regole_casa.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTest>

#include <algorithm>
#include <iterator>

namespace {

constexpr const char16_t *LINGUE[] = {u"IT", u"FR", u"EN", u"ES", u"DE"};
constexpr const char16_t *FILE_LINGUA = u"lingue.ini";
constexpr const char16_t *FILE_MCTC = u"lingueMCTC.ini";

/// A name of the program for a text.
struct NomeTesto
{
    QLatin1String Nome;
    int Numero;
    QString (*Testo)(); ///< what the program shows
};
using Nomi = QList<NomeTesto>;

QString Mostrato(TestoMctc id)
{
    return Testo_Mctc(id);
}
QString Mostrato(TestoLingua id)
{
    return Testo_Lingua(id);
}

// Tables that stand ready: built at run time, every row of them is code.
#define NOME_TESTO(nome, numero) {QLatin1String(#nome), numero, [] { return Mostrato(nome); }},
constexpr NomeTesto NOMI_MCTC[] = {TESTI_MCTC(NOME_TESTO)};
constexpr NomeTesto NOMI_LINGUA[] = {TESTI_LINGUA(NOME_TESTO)};
#undef NOME_TESTO

constexpr qsizetype MASSIMO_TESTO = 499;

/// A text that two languages rightly share. The languages themselves go by their own names everywhere.
struct Uguale
{
    const char16_t *file;
    int id;
    const char16_t *testo;
};

constexpr Uguale UGUALI[] = {
    {FILE_LINGUA, 22,  u"Tel./Fax" },
    {FILE_LINGUA, 25,  u"Marca"    },
    {FILE_LINGUA, 51,  u"Date"     },
    {FILE_LINGUA, 55,  u"Firma"    },
    {FILE_LINGUA, 55,  u"Signature"},
    {FILE_MCTC,   45,  u"Tipo"     },
    {FILE_MCTC,   45,  u"Type"     },
    {FILE_MCTC,   59,  u"Tipo"     },
    {FILE_MCTC,   59,  u"Type"     },
    {FILE_MCTC,   72,  u"Tara (kg)"},
    {FILE_MCTC,   81,  u"Italiano" },
    {FILE_MCTC,   82,  u"Français"},
    {FILE_MCTC,   83,  u"English"  },
    {FILE_MCTC,   84,  u"Español" },
    {FILE_MCTC,   85,  u"Deutsch"  },
    {FILE_MCTC,   141, u"No"       },
};

/// A word that names something else to an inspector of that country.
struct Improprio
{
    const char16_t *lingua;
    const char16_t *parola; // in small letters
};

/// Lux is the unit of illuminance; a lamp's own height and dip have their words, too.
constexpr Improprio IMPROPRI[] = {
    {u"IT", u"intensità"  },
    {u"FR", u"intensité"  },
    {u"FR", u"lumineuse"   },
    {u"FR", u"inclin"      },
    {u"EN", u"intensity"   },
    {u"ES", u"intensidad"  },
    {u"DE", u"lichtstärke"},
    {u"DE", u"lampenhöhe" },
};

/// Bytes of each text, by its key, of each section. Byte by byte: the product's own reading passes over what
/// a file has too much, or cuts it.
using Sezione = QMap<QByteArray, QByteArray>;
using Testi = QMap<QString, Sezione>;

/// @param[out] falli lines that are neither a note nor a head nor a text, and texts that stand twice.
Testi Testi_Leggi(const QString &nome, QStringList &falli)
{
    static const QRegularExpression CHIAVE(QStringLiteral("^\\d{3}$"));
    Testi testi;
    QFile file(QStringLiteral(LUMIRA_SORGENTE "/impianto/") + nome);
    if (!file.open(QIODevice::ReadOnly))
        falli.append(nome + QStringLiteral(" cannot be read"));
    Sezione *sezione = nullptr;
    while (!file.atEnd()) {
        QByteArray riga = file.readLine();
        while (riga.endsWith('\n') || riga.endsWith('\r'))
            riga.chop(1);
        const qsizetype uguale = riga.indexOf('=');
        const QByteArray chiave = riga.left(uguale);
        if (riga.startsWith('[') && riga.endsWith(']'))
            sezione = &testi[QString::fromLatin1(riga.mid(1, riga.size() - 2))];
        else if (uguale > 0 && sezione != nullptr && CHIAVE.match(QString::fromLatin1(chiave)).hasMatch() &&
                 !sezione->contains(chiave))
            sezione->insert(chiave, riga.mid(uguale + 1));
        else if (!riga.isEmpty() && !riga.startsWith(';'))
            falli.append(nome + QStringLiteral(": ") + Testo_DaAnsi(riga));
    }
    return testi;
}

bool E_Utf8(const QByteArray &byte)
{
    const bool ascii = std::all_of(byte.cbegin(), byte.cend(), [](char c) { return (c & 0x80) == 0; });
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    [[maybe_unused]] const QString testo = utf8.decode(byte);
    return !ascii && !utf8.hasError();
}

/// What is wrong with the bytes of a text; empty when nothing is.
QString Fallo_Di(const QByteArray &byte)
{
    // The bytes of the code page that have no character, and those that move the caret.
    static const QRegularExpression SENZA_SEGNO(
        QStringLiteral("[\\x00-\\x1f\\x7f\\x81\\x8d\\x8f\\x90\\x9d]"));
    const QString testo = Testo_DaAnsi(byte);
    if (testo.size() > MASSIMO_TESTO)
        return QStringLiteral("longer than %1 characters").arg(MASSIMO_TESTO);
    if (testo.contains(SENZA_SEGNO))
        return QStringLiteral("a byte without a character");
    return E_Utf8(byte) ? QStringLiteral("saved as UTF-8") : QString();
}

/// The signs of a text that mean more than punctuation, in their order: what stands for something else, what
/// parts a list, what code adds to, units in brackets, blanks at the ends.
QStringList Struttura_Di(const QString &testo)
{
    static const QRegularExpression SEGNO(
        QStringLiteral("^\\s|\\s$|\\([^()\\s]*\\)|\\([^()]*\\)|%\\d*|[|;:&/\"?!]|\\.\\.\\.|\\\\[nrt]"));
    QStringList segni;
    for (auto trovati = SEGNO.globalMatch(testo); trovati.hasNext();) {
        const QString segno = trovati.next().captured().toLower();
        segni.append(segno.size() > 1 && segno.contains(u' ') ? QStringLiteral("( )") : segno);
    }
    return segni;
}

} // namespace

class tst_testi : public QObject
{
    Q_OBJECT

    /// The names of each file's texts.
    const QMap<QString, Nomi> m_nomi = {
        {QString::fromUtf16(FILE_MCTC),   Nomi(std::begin(NOMI_MCTC),   std::end(NOMI_MCTC))  },
        {QString::fromUtf16(FILE_LINGUA), Nomi(std::begin(NOMI_LINGUA), std::end(NOMI_LINGUA))},
    };
    QMap<QString, Testi> m_testi;
    QStringList m_falli;

    static void Senza_Falli(const QStringList &falli)
    {
        QVERIFY2(falli.isEmpty(), qPrintable(u'\n' + falli.join(u'\n')));
    }
    static QStringList Lingue()
    {
        QStringList lingue;
        for (const char16_t *lingua : LINGUE)
            lingue.append(QString::fromUtf16(lingua));
        return lingue;
    }
    /// Calls something for each text of each file: file, language, key, bytes.
    template <typename Procedura>
    void Per_Ogni_Testo(Procedura procedura) const
    {
        for (auto file = m_testi.cbegin(); file != m_testi.cend(); ++file) {
            for (auto lingua = file->cbegin(); lingua != file->cend(); ++lingua) {
                for (auto testo = lingua->cbegin(); testo != lingua->cend(); ++testo)
                    procedura(file.key(), lingua.key(), testo.key(), *testo);
            }
        }
    }
    static QString Dove(const QString &file, const QString &lingua, const QByteArray &chiave)
    {
        return QStringLiteral("%1 [%2] %3: ").arg(file, lingua, QString::fromLatin1(chiave));
    }
    /// Languages that have that text under that key.
    qsizetype Lingue_Con(const QString &file, const QByteArray &chiave, const QByteArray &byte) const
    {
        const Testi testi = m_testi.value(file);
        return std::count_if(testi.cbegin(), testi.cend(),
                             [&](const Sezione &sezione) { return sezione.value(chiave) == byte; });
    }
    static bool Rimane_Uguale(const QString &file, const QByteArray &chiave, const QByteArray &byte)
    {
        return std::any_of(std::begin(UGUALI), std::end(UGUALI), [&](const Uguale &uguale) {
            return file == QString::fromUtf16(uguale.file) && chiave.toInt() == uguale.id &&
                   Testo_DaAnsi(byte) == QString::fromUtf16(uguale.testo);
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char16_t *file : {FILE_LINGUA, FILE_MCTC}) {
            const QString nome = QString::fromUtf16(file);
            m_testi.insert(nome, Testi_Leggi(nome, m_falli));
        }
    }

    // --- the names ----------------------------------------------------------------------------------------

    /// A number that stands twice would be one text under two names.
    void numeriInOrdine()
    {
        for (const Nomi &nomi : m_nomi) {
            for (qsizetype i = 1; i < nomi.size(); ++i)
                QVERIFY2(nomi[i - 1].Numero < nomi[i].Numero, nomi[i].Nome.data());
        }
    }
    void ogniNomeServe()
    {
        const Sorgenti casa = Sorgenti_Leggi(QStringLiteral(LUMIRA_SORGENTE));
        QStringList nomi;
        for (const Nomi &suoi : m_nomi) {
            for (const NomeTesto &uno : suoi)
                nomi.append(uno.Nome);
        }
        Senza_Falli(Nomi_NonUsati(casa, nomi));
    }

    // --- the files ----------------------------------------------------------------------------------------

    void righeDeiFile() { Senza_Falli(m_falli); }

    void linguaCompleta_data()
    {
        QTest::addColumn<QString>("lingua");
        const QStringList lingue = Lingue();
        for (const QString &lingua : lingue)
            QTest::newRow(qPrintable(lingua)) << lingua;
    }
    /// As the program reads them.
    void linguaCompleta()
    {
        QFETCH(QString, lingua);
        const StazioneProva stazione;
        gLingua = lingua;
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        Carica_Lingua(gFileLingue, ULTIMO_TESTO_LINGUA, gTabLingua);
        QStringList mancano;
        for (auto file = m_nomi.cbegin(); file != m_nomi.cend(); ++file) {
            for (const NomeTesto &nome : *file) {
                if (nome.Testo().isEmpty())
                    mancano.append(file.key() + u' ' + nome.Nome);
            }
        }
        Senza_Falli(mancano);
    }

    /// A text without a name is one that nobody shows: a translator would work on it for nothing.
    void nessunTestoInPiu()
    {
        QStringList inPiu;
        Per_Ogni_Testo(
            [&](const QString &file, const QString &lingua, const QByteArray &chiave, const QByteArray &) {
                const Nomi &nomi = *m_nomi.constFind(file);
                const int numero = chiave.toInt();
                if (std::none_of(nomi.cbegin(), nomi.cend(),
                                 [numero](const NomeTesto &nome) { return nome.Numero == numero; }))
                    inPiu.append(Dove(file, lingua, chiave));
            });
        Senza_Falli(inPiu);
    }

    void stessiTestiInOgniLingua()
    {
        const QStringList lingue = Lingue();
        for (const Testi &testi : std::as_const(m_testi)) {
            QCOMPARE(testi.size(), lingue.size());
            for (const QString &lingua : lingue)
                QCOMPARE(testi.value(lingua).keys(), testi.value(lingue[0]).keys());
        }
    }

    // --- the texts ----------------------------------------------------------------------------------------

    void falliDiUnTestoSiVedono()
    {
        QCOMPARE(Fallo_Di("Intensit\xE0 max (\x80)"), QString());
        QCOMPARE(Fallo_Di("Pr\xFC"
                          "fstra\xDF"
                          "e"),
                 QString());
        QCOMPARE(Fallo_Di(QByteArray(499, 'a')), QString());
        QVERIFY(!Fallo_Di(QByteArray(500, 'a')).isEmpty());
        QVERIFY(!Fallo_Di("Intensit\xC3\xA0").isEmpty());
        QVERIFY(!Fallo_Di("Intensit\x8D").isEmpty());
        QVERIFY(!Fallo_Di("Intensit\t").isEmpty());
    }
    void testiLeggibili()
    {
        QStringList falli;
        Per_Ogni_Testo([&](const QString &file, const QString &lingua, const QByteArray &chiave,
                           const QByteArray &byte) {
            const QString fallo = Fallo_Di(byte);
            if (!fallo.isEmpty())
                falli.append(Dove(file, lingua, chiave) + fallo);
        });
        Senza_Falli(falli);
    }

    void struttura_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QStringList>("segni");
        const auto riga = [](const char16_t *testo, const QStringList &segni) {
            QTest::newRow(qPrintable(QString::fromUtf16(testo))) << QString::fromUtf16(testo) << segni;
        };
        riga(u"Prova, l'8. N. 1", {});
        riga(u"Lichtstärke (Lux)", {QStringLiteral("(lux)")});
        riga(u"vuoto : lungo (max 3)...",
             {QStringLiteral(":"), QStringLiteral("( )"), QStringLiteral("...")});
        riga(u"a;b|%1 di %2 & c/d%",
             {QStringLiteral(";"), QStringLiteral("|"), QStringLiteral("%1"), QStringLiteral("%2"),
              QStringLiteral("&"), QStringLiteral("/"), QStringLiteral("%")});
        riga(u" \"a\\n\" ", {QStringLiteral(" "), QStringLiteral("\""), QStringLiteral("\\n"),
                             QStringLiteral("\""), QStringLiteral(" ")});
    }
    void struttura()
    {
        QFETCH(QString, testo);
        QTEST(Struttura_Di(testo), "segni");
    }
    void strutturaComeInItaliano()
    {
        QStringList falli;
        Per_Ogni_Testo([&](const QString &file, const QString &lingua, const QByteArray &chiave,
                           const QByteArray &byte) {
            const QString italiano = Testo_DaAnsi(m_testi[file][Lingue()[0]].value(chiave));
            const QString testo = Testo_DaAnsi(byte);
            if (Struttura_Di(testo) != Struttura_Di(italiano))
                falli.append(Dove(file, lingua, chiave) + testo + QStringLiteral(" <> ") + italiano);
        });
        Senza_Falli(falli);
    }

    void nessunaParolaImpropria()
    {
        QStringList falli;
        Per_Ogni_Testo([&](const QString &file, const QString &lingua, const QByteArray &chiave,
                           const QByteArray &byte) {
            const QString testo = Testo_DaAnsi(byte);
            for (const Improprio &improprio : IMPROPRI) {
                if (lingua == QString::fromUtf16(improprio.lingua) &&
                    testo.toLower().contains(QString::fromUtf16(improprio.parola)))
                    falli.append(Dove(file, lingua, chiave) + testo);
            }
        });
        Senza_Falli(falli);
    }

    /// A sentence that stands in two languages has been forgotten in one of them.
    void nessunaFraseNonTradotta()
    {
        QStringList falli;
        Per_Ogni_Testo([&](const QString &file, const QString &lingua, const QByteArray &chiave,
                           const QByteArray &byte) {
            if (Lingue_Con(file, chiave, byte) > 1 && !Rimane_Uguale(file, chiave, byte))
                falli.append(Dove(file, lingua, chiave) + Testo_DaAnsi(byte));
        });
        Senza_Falli(falli);
    }
    void uguaglianzeCheServono()
    {
        for (const Uguale &uguale : UGUALI) {
            const QString testo = QString::fromUtf16(uguale.testo);
            const QByteArray chiave = Lingua_Id(static_cast<qint16>(uguale.id)).toLatin1();
            QVERIFY2(Lingue_Con(QString::fromUtf16(uguale.file), chiave, Testo_InAnsi(testo)) > 1,
                     qPrintable(testo));
        }
    }
};

QTEST_GUILESS_MAIN(tst_testi)
#include "tst_testi.moc"
