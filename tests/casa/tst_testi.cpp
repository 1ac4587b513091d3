// The screen texts as they are delivered: every one that the program shows, in every language that the setup
// form offers. The search of the source is first shown a small tree of its own.
#include "core/modGeneral.h"
#include "platform/codifica.h"
#include "tests/casa/testi_usati.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTest>

#include <algorithm>

namespace {

constexpr const char16_t *LINGUE[] = {u"IT", u"FR", u"EN", u"ES", u"DE"};
constexpr const char16_t *FILE_LINGUA = u"lingue.ini";
constexpr const char16_t *FILE_MCTC = u"lingueMCTC.ini";

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

    TestiUsati m_usati;
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
        m_usati = Testi_Usati(Sorgenti_Leggi(QStringLiteral(LUMIRA_SORGENTE)));
        for (const char16_t *file : {FILE_LINGUA, FILE_MCTC}) {
            const QString nome = QString::fromUtf16(file);
            m_testi.insert(nome, Testi_Leggi(nome, m_falli));
        }
    }

    // --- the search of the source -------------------------------------------------------------------------

    void usiSiTrovano_data()
    {
        QTest::addColumn<QString>("sorgente");
        QTest::addColumn<QSet<int>>("ids");
        const auto riga = [](const char *nome, const QSet<int> &ids, const char *sorgente) {
            QTest::newRow(nome) << QString::fromLatin1(sorgente) << ids;
        };
        riga("number", {7}, "a(Testo_Mctc(7)); // Testo_Mctc(8)\n");
        riga("constant", {7}, "constexpr qint16 A = 7;\na(Testo_Mctc(A));\n");
        riga("choice", {7, 8}, "constexpr qint16 A = 7;\na(Testo_Mctc(b == 3 ? A : 8));\n");
        riga("list", {7, 8}, "constexpr qint16 A[] = {7, 8};\na(Testo_Mctc(A[i]));\n");
        riga("caption", {7, 9},
             "constexpr qint16 B = 9;\nconstexpr qint16 A[] = {B, 7};\nx.LabelId = A[i];\n");
        riga("run", {4, 5, 6},
             "std::array<QString, 2> gA;\nstd::array<QString, 3> gB, gC;\nconstexpr qint16 B = 4;\n"
             "gC[i] = Testo_Mctc(static_cast<qint16>(B + static_cast<qint16>(i)));\n");
        riga("loop", {0, 1, 2},
             "constexpr qint16 A = 2;\nfor (qint16 i = 0; i <= A; ++i)\n    a(Testo_Mctc(i));\n");
        riga("loop without its end", {5, 6}, "for (qint16 i = 5; i < 7; ++i)\n    a(Testo_Mctc(i));\n");
        riga("parameter", {7, 8},
             "void f(int a, qint16 id)\n{\n    b(Testo_Mctc(id));\n}\n"
             "void g(qint16 id)\n{\n    f(1, 7);\n    f(2, id);\n}\nvoid h()\n{\n    g(8);\n}\n");
        riga(
            "column", {7},
            "struct R\n{\n    const char16_t *k[2], *l;\n    qint16 t; // -1: none\n};\n"
            "constexpr R A[] = {\n    {{u\"a,b\", u\"\"}, u\"{\", 7},\n    {{u\"\", u\"\"}, u\"\", -1},\n};\n"
            "x.LabelId = r.t;\n");
        riga("column of an array", {7, 8},
             "struct R\n{\n    qint16 t;\n};\nconst std::array<R, N> A = {{\n    {7},\n    {8},\n}};\n"
             "a(Testo_Mctc(A[i].t));\n");
        riga("column of one row", {7},
             "struct R\n{\n    int x;\n    qint16 t;\n};\nconstexpr R A = {1, 7};\na(Testo_Mctc(A.t));\n");
    }
    void usiSiTrovano()
    {
        QFETCH(QString, sorgente);
        const TestiUsati usati = Testi_Usati({
            {QStringLiteral("setup/a.cpp"), sorgente}
        });
        Senza_Falli(usati.oscuri);
        QTEST(usati.mctc, "ids");
        QCOMPARE(usati.lingua, QSet<int>());
    }

    void usiOscuriSiVedono_data()
    {
        QTest::addColumn<QString>("uso");
        QTest::addColumn<QString>("contorno");
        const auto riga = [](const char *uso, const char *contorno = "") {
            QTest::newRow(uso) << QString::fromLatin1(uso) << QString::fromLatin1(contorno);
        };
        riga("Testo_Mctc(A)");
        riga("Testo_Mctc(A)", "constexpr qint16 A = B;\n");
        riga("Testo_Lingua(f(3))");
        riga("Testo_Mctc(3 * 4)");
        riga("Testo_Mctc((1) - (2))");
        riga("Testo_Mctc(A + i)", "constexpr qint16 A = 4;\n");
        riga("Testo_Mctc(x.t)");
        riga("Testo_Mctc(x.t)", "struct R\n{\n    qint16 t;\n};\nconstexpr R A[] = {{7}, {f()}};\n");
        riga("Testo_Mctc(x.t)", "struct R\n{\n    qint16 s, t;\n};\nconstexpr R A[] = {{7}};\n");
        riga("Testo_Mctc(i)", "void f()\n{\n    for (qint16 i = 0; i < 3; ++i)\n        g(i);\n}\n");
        riga("Testo_Mctc(id)", "void f(qint16 id)\n{\n    g(id);\n}\n");
        riga("Testo_Mctc(id)", "void f(qint16 id)\n{\n    f(n);\n");
        riga("Testo_Mctc");
        riga("gTabMctc");
        riga(".LabelId = n;");
    }
    void usiOscuriSiVedono()
    {
        QFETCH(QString, uso);
        QFETCH(QString, contorno);
        const TestiUsati usati = Testi_Usati({
            {QStringLiteral("setup/a.cpp"), contorno + u' ' + uso}
        });
        QCOMPARE(usati.oscuri, QStringList(QStringLiteral("setup/a.cpp: ") + uso));
        QCOMPARE(usati.mctc + usati.lingua, QSet<int>());
    }

    void usiSiDistinguono()
    {
        const QString uno = QStringLiteral("a(Testo_Mctc(1), Testo_Lingua(2));\n");
        const TestiUsati usati = Testi_Usati({
            {QStringLiteral("link/a.cpp"),          uno                                           },
            {QStringLiteral("core/modGeneral.cpp"), QStringLiteral("return gTabMctc.value(id);\n")},
            {QStringLiteral("platform/b.cpp"),      QStringLiteral("a(Testo_Mctc(3));\n")         },
            {QStringLiteral("tests/c.cpp"),         QStringLiteral("a(Testo_Mctc(4));\n")         },
        });
        Senza_Falli(usati.oscuri);
        QCOMPARE(usati.mctc, QSet<int>{1});
        QCOMPARE(usati.lingua, QSet<int>{2});
    }

    /// The tables of a file stand before those of others that have a column of the same name.
    void colonneDelFilePrimaDelleAltre()
    {
        const QString riga = QStringLiteral("struct R\n{\n    qint16 t;\n};\nconstexpr R A[] = {{%1}};\n");
        const QString uso = QStringLiteral("a(Testo_Mctc(x.t));\n");
        const TestiUsati usati = Testi_Usati({
            {QStringLiteral("mctc/a.cpp"), riga.arg(7) + uso},
            {QStringLiteral("mctc/b.cpp"), riga.arg(8)      },
        });
        QCOMPARE(usati.mctc, QSet<int>{7});
        const TestiUsati altrove = Testi_Usati({
            {QStringLiteral("mctc/a.cpp"), uso        },
            {QStringLiteral("mctc/b.cpp"), riga.arg(8)},
        });
        QCOMPARE(altrove.mctc, QSet<int>{8});
    }

    void ogniUsoSiCapisce() { Senza_Falli(m_usati.oscuri); }

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
        const auto cerca = [&mancano](const char16_t *file, const QSet<int> &ids, QString (*testo)(qint16)) {
            for (const int id : ids) {
                if (testo(static_cast<qint16>(id)).isEmpty())
                    mancano.append(QString::fromUtf16(file) + u' ' + Lingua_Id(static_cast<qint16>(id)));
            }
        };
        cerca(FILE_MCTC, m_usati.mctc, Testo_Mctc);
        cerca(FILE_LINGUA, m_usati.lingua, Testo_Lingua);
        mancano.sort();
        Senza_Falli(mancano);
    }

    /// A text that nobody shows is one that a translator works on for nothing, or one that the search has
    /// missed.
    void nessunTestoInPiu()
    {
        QStringList inPiu;
        Per_Ogni_Testo([&](const QString &file, const QString &lingua, const QByteArray &chiave,
                           const QByteArray &) {
            const QSet<int> &usati = file == QString::fromUtf16(FILE_MCTC) ? m_usati.mctc : m_usati.lingua;
            if (!usati.contains(chiave.toInt()))
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
