// The rules of the house, on the source of the program. Each rule is first shown a small tree that breaks it.
#include "tests/casa/regole_casa.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct File
{
    const char *nome;
    const char *testo;
};

/// A small tree of its own.
class Alberello
{
public:
    explicit Alberello(std::initializer_list<File> file)
    {
        for (const File &uno : file) {
            const QString percorso = m_cartella.filePath(QString::fromLatin1(uno.nome));
            QDir().mkpath(QFileInfo(percorso).path());
            QFile nuovo(percorso);
            if (!nuovo.open(QIODevice::WriteOnly) || nuovo.write(uno.testo) < 0)
                qFatal("cannot write %s", uno.nome);
        }
    }
    Sorgenti Leggi() const { return Sorgenti_Leggi(m_cartella.path()); }

private:
    QTemporaryDir m_cartella;
};

/// The headers of the toolkit's libraries that need a display, as they are installed.
QSet<QString> Finestre_DelToolkit()
{
    QSet<QString> finestre;
    const QStringList cartelle = QStringLiteral(LUMIRA_FINESTRE).split(u'|');
    for (const QString &cartella : cartelle) {
        const QStringList nomi = QDir(cartella).entryList(QDir::Files);
        finestre += QSet<QString>(nomi.cbegin(), nomi.cend());
    }
    return finestre;
}

} // namespace

class tst_casa : public QObject
{
    Q_OBJECT

    Sorgenti m_casa;

    static void Senza_Falli(const QStringList &falli)
    {
        QVERIFY2(falli.isEmpty(), qPrintable(u'\n' + falli.join(u'\n')));
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_casa = Sorgenti_Leggi(QStringLiteral(LUMIRA_SORGENTE));
        for (const char16_t *file : {u"core/modGeneral.h", u"app/modMain.cpp", u"platform/profilo_posix.cpp",
                                     u"link/seriale.h", u"mctc/modMctc.cpp"})
            QVERIFY2(m_casa.contains(QString::fromUtf16(file)), qPrintable(QString::fromUtf16(file)));
    }

    void leggeUnAlbero()
    {
        const Alberello albero{
            {"core/a.h",             "a"},
            {"core/sotto/b.cpp",     "b"},
            {"core/CMakeLists.txt",  "c"},
            {"build/dev/core/d.cpp", "d"},
            {".git/e.h",             "e"},
        };
        QCOMPARE(albero.Leggi(), (Sorgenti{
                                     {QStringLiteral("core/a.h"),         QStringLiteral("a")},
                                     {QStringLiteral("core/sotto/b.cpp"), QStringLiteral("b")}
        }));
    }

    void anelliSiVedono()
    {
        const Alberello due{
            {"core/a.h", "#include \"core/b.h\"\n"    },
            {"core/b.h", "  #  include \"core/a.h\"\n"},
        };
        QCOMPARE(Anelli(due.Leggi()), QStringList{QStringLiteral("core/a <-> core/b")});

        const Alberello treInGiro{
            {"core/a.h", "#include \"core/b.h\"\n"},
            {"core/b.h", "#include \"core/c.h\"\n"},
            {"core/c.h", "#include \"core/a.h\"\n"},
            {"core/d.h", "#include \"core/a.h\"\n"},
        };
        QCOMPARE(Anelli(treInGiro.Leggi()), QStringList{QStringLiteral("core/a <-> core/b <-> core/c")});

        const Alberello attraversoICorpi{
            {"core/a.h",         ""                       },
            {"core/a_posix.cpp", "#include \"core/b.h\"\n"},
            {"core/b.h",         ""                       },
            {"core/b.cpp",       "#include \"core/a.h\"\n"},
        };
        QCOMPARE(Anelli(attraversoICorpi.Leggi()), QStringList{QStringLiteral("core/a <-> core/b")});
    }
    void anelliNonSiInventano()
    {
        const Alberello albero{
            {"core/a.h",         "#include \"core/b.h\"\n#include \"core/c.h\"\n"                },
            {"core/a.cpp",       "#include \"core/a.h\"\n#include <a.h>\n#include \"a.moc\"\n"   },
            {"core/b.h",         "#include \"core/c.h\"\n// #include \"core/a.h\"\n"             },
            {"core/c.h",         "/*\n#include \"core/a.h\"\n*/\nconst char *c = \"core/a.h\";\n"},
            {"core/c_win32.cpp", "#include \"core/c.h\"\n"                                       },
        };
        QCOMPARE(Anelli(albero.Leggi()), QStringList());
    }
    void nessunAnello() { Senza_Falli(Anelli(m_casa)); }

    void finestreNeiModuliSiVedono()
    {
        const QSet<QString> finestre = {QStringLiteral("QWidget"), QStringLiteral("QPainter")};
        const Alberello albero{
            {"core/modA.cpp",       "#include <QWidget>\n"              },
            {"core/modCtl.cpp",     "#include <QtWidgets/QWidget>\n"    },
            {"link/scambio.cpp",    "#include \"toolkit/controlli.h\"\n"},
            {"mctc/lista.h",        "#include \"link/lontano.h\"\n"     },
            {"link/lontano.h",      "#include \"toolkit/controlli.h\"\n"},
            {"toolkit/controlli.h", "#include \"toolkit/base.h\"\n"     },
            {"toolkit/base.h",      "#include <QPainter>\n"             },
        };
        QCOMPARE(Finestre_NeiModuli(albero.Leggi(), finestre),
                 (QStringList{QStringLiteral("core/modA.cpp includes QWidget"),
                              QStringLiteral("core/modCtl.cpp includes QWidget"),
                              QStringLiteral("link/lontano.h reaches toolkit/base.h"),
                              QStringLiteral("link/scambio.cpp reaches toolkit/base.h"),
                              QStringLiteral("mctc/lista.h reaches toolkit/base.h")}));
    }
    void finestreAlLoroPostoPassano()
    {
        const QSet<QString> finestre = {QStringLiteral("QWidget")};
        const Alberello albero{
            {"toolkit/controlli.h", "#include <QWidget>\n"                       },
            {"core/modCtl.h",       "#include \"toolkit/controlli.h\"\n"         },
            {"report/modPrn.cpp",   "#include \"toolkit/controlli.h\"\n"         },
            {"app/frmMain.cpp",     "#include <QWidget>\n"                       },
            {"app/modMain.cpp",     "#include \"toolkit/controlli.h\"\n"         },
            {"dialogs/dlgPwd.h",    "#include \"toolkit/controlli.h\"\n"         },
            {"core/modA.cpp",       "#include <QString>\n// #include <QWidget>\n"},
        };
        QCOMPARE(Finestre_NeiModuli(albero.Leggi(), finestre), QStringList());
    }
    void nessunaFinestraNeiModuli()
    {
        const QSet<QString> finestre = Finestre_DelToolkit();
        for (const char16_t *nome :
             {u"QWidget", u"QLabel", u"QApplication", u"QPainter", u"QPixmap", u"QPrinter"})
            QVERIFY2(finestre.contains(QString::fromUtf16(nome)), qPrintable(QString::fromUtf16(nome)));
        QVERIFY(!finestre.contains(QStringLiteral("QString")));
        Senza_Falli(Finestre_NeiModuli(m_casa, finestre));
    }

    void qtNeiFormSiVede()
    {
        const Alberello albero{
            {"setup/frmA.cpp",  "#include <QKeyEvent>\na(Qt::AlignLeft); // QWidget\nb(\"QWidget\");\n"},
            {"dialogs/dlgB.h",  "#include <QtWidgets>\nbool f(QObject *, QEvent *);\n"                 },
            {"core/frmC.h",     "#include <QTimer>\n"                                                  },
            {"setup/frmD.cpp",  "#include <QString>\nQ_EMIT Notifica(codice, QVariant());\n"           },
            {"core/modCtl.cpp", "#include <QTimer>\n"                                                  },
            {"tests/frmE.cpp",  "#include <QTimer>\n"                                                  },
        };
        QCOMPARE(Qt_NeiForm(albero.Leggi()), (QStringList{QStringLiteral("core/frmC.h: QTimer"),
                                                          QStringLiteral("dialogs/dlgB.h: QtWidgets"),
                                                          QStringLiteral("dialogs/dlgB.h: QEvent"),
                                                          QStringLiteral("setup/frmA.cpp: QKeyEvent"),
                                                          QStringLiteral("setup/frmA.cpp: Qt::AlignLeft")}));
    }
    void nessunaParolaDiQtNeiForm() { Senza_Falli(Qt_NeiForm(m_casa)); }

    void eventiFuoriPostoSiVedono()
    {
        const Alberello albero{
            {"core/a.cpp",                "QCoreApplication::processEvents();\n"     },
            {"link/b.cpp",                "QEventLoop ciclo; ciclo.exec ();\n"       },
            {"app/c.cpp",                 "a->sendPostedEvents(); // processEvents\n"},
            {"mctc/d.cpp",                "Eventi_Esegui(); execve(); exec;\n"       },
            {"platform/eventi_posix.cpp", "QCoreApplication::processEvents();\n"     },
            {"tests/e.cpp",               "QCoreApplication::processEvents();\n"     },
        };
        QCOMPARE(Eventi_FuoriPosto(albero.Leggi()),
                 (QStringList{QStringLiteral("app/c.cpp: sendPostedEvents"),
                              QStringLiteral("core/a.cpp: processEvents"),
                              QStringLiteral("link/b.cpp: QEventLoop"), QStringLiteral("link/b.cpp: exec")}));
    }
    void nessunEventoFuoriPosto() { Senza_Falli(Eventi_FuoriPosto(m_casa)); }

    void sistemiFuoriPostoSiVedono_data()
    {
        QTest::addColumn<QByteArray>("testo");
        QTest::addColumn<QString>("nome");
        const auto riga = [](const char *testo, const char *nome) {
            QTest::newRow(QByteArray(testo).simplified().constData())
                << QByteArray(testo) << QString::fromLatin1(nome);
        };
        riga("#ifdef _WIN32\n", "_WIN32");
        riga("#ifndef WIN32\n", "WIN32");
        riga("# if defined(Q_OS_WIN)\n", "Q_OS_WIN");
        riga("#if 0\n#elif !defined Q_OS_LINUX\n", "Q_OS_LINUX");
        riga("\t#if A && \\\n  defined(__linux__)\n", "__linux__");
        riga("#ifdef __APPLE__\n", "__APPLE__");
        riga("#ifdef __unix__\n", "__unix__");
        riga("#ifdef _WIN64\n", "_WIN64");
    }
    void sistemiFuoriPostoSiVedono()
    {
        QFETCH(QByteArray, testo);
        QFETCH(QString, nome);
        for (const char *file :
             {"core/a.cpp", "link/protocollo.h", "simulatore/main.cpp", "tests/core/t.cpp"}) {
            const Alberello albero{
                {file, testo.constData()}
            };
            QCOMPARE(Sistemi_FuoriPosto(albero.Leggi()),
                     QStringList{QString::fromLatin1(file) + QStringLiteral(": ") + nome});
        }
        const Alberello alLoroPosto{
            {"platform/a.cpp",         testo.constData()},
            {"link/seriale_win32.cpp", testo.constData()},
        };
        QCOMPARE(Sistemi_FuoriPosto(alLoroPosto.Leggi()), QStringList());
    }
    void altreCondizioniPassano()
    {
        const Alberello albero{
            {"core/a.cpp", "#ifdef NDEBUG\n#endif\n// #ifdef _WIN32\nint _WIN32;\n#define X _WIN32\n"},
        };
        QCOMPARE(Sistemi_FuoriPosto(albero.Leggi()), QStringList());
    }
    void nessunSistemaFuoriPosto() { Senza_Falli(Sistemi_FuoriPosto(m_casa)); }

    void inclusioniInSalitaSiVedono_data()
    {
        QTest::addColumn<QString>("chi");
        QTest::addColumn<QString>("cosa");
        const auto riga = [](const char *chi, const char *cosa) {
            QTest::addRow("%s, %s", chi, cosa) << QString::fromLatin1(chi) << QString::fromLatin1(cosa);
        };
        riga("platform/a.cpp", "toolkit/modulo.h");
        riga("toolkit/a.cpp", "core/modGeneral.h");
        riga("core/modA.cpp", "dialogs/frmMsg.h");
        riga("dialogs/frmA.cpp", "link/frmComm.h");
        riga("link/frmComm.cpp", "report/modPrn.h");
        riga("report/frmA.cpp", "mctc/lista.h");
        riga("mctc/frmA.cpp", "setup/frmSetupO.h");
        riga("setup/frmA.cpp", "app/frmMain.h");
        riga("core/modA.cpp", "simulatore/trama.h");
        riga("app/modMain.cpp", "tests/comuni/prova.h");
    }
    void inclusioniInSalitaSiVedono()
    {
        QFETCH(QString, chi);
        QFETCH(QString, cosa);
        const QByteArray da = chi.toLatin1(), a = cosa.toLatin1();
        const QByteArray inclusione = "#include \"" + a + "\"\n";
        const Alberello albero{
            {da.constData(), inclusione.constData()},
            {a.constData(),  ""                    },
        };
        QCOMPARE(Inclusioni_InSalita(albero.Leggi()), QStringList{chi + QStringLiteral(" includes ") + cosa});

        const QByteArray inversa = "#include \"" + da + "\"\n";
        const Alberello inDiscesa{
            {a.constData(),  inversa.constData()},
            {da.constData(), ""                 },
        };
        QCOMPARE(Inclusioni_InSalita(inDiscesa.Leggi()), QStringList());
    }
    void nessunaInclusioneInSalita() { Senza_Falli(Inclusioni_InSalita(m_casa)); }

    void simulatoreDipendenteSiVede()
    {
        const Alberello albero{
            {"simulatore/trama.cpp",     "#include \"link/protocollo.h\"\n#include \"platform/codifica.h\"\n"},
            {"simulatore/linea.cpp",     "#include \"link/seriale.h\"\n#include \"link/dispositivo_qt.h\"\n" },
            {"simulatore/banco.cpp",     "#include \"simulatore/trama.h\"\n#include \"link/lontano.h\"\n"    },
            {"link/seriale.h",           "#include \"link/controllo_seriale.h\"\n"                           },
            {"link/lontano.h",           "#include \"link/scambio.h\"\n"                                     },
            {"link/protocollo.h",        ""                                                                  },
            {"link/scambio.h",           ""                                                                  },
            {"link/dispositivo_qt.h",    ""                                                                  },
            {"link/controllo_seriale.h", ""                                                                  },
            {"platform/codifica.h",      ""                                                                  },
            {"simulatore/trama.h",       ""                                                                  },
        };
        QCOMPARE(Simulatore_Dipendente(albero.Leggi()),
                 (QStringList{QStringLiteral("simulatore/banco.cpp reaches link/lontano.h"),
                              QStringLiteral("simulatore/banco.cpp reaches link/scambio.h"),
                              QStringLiteral("simulatore/trama.cpp reaches link/protocollo.h")}));
    }
    void simulatoreIndipendente() { Senza_Falli(Simulatore_Dipendente(m_casa)); }

    void proveConAltroNomeSiVedono()
    {
        const Alberello albero{
            {"tests/core/tst_modA.cpp",
             "class TestModA : public QObject {};\n// class tst_modA : public QObject\n"},
            {"tests/core/tst_modB.cpp", "class tst_modBis : public QObject {};\n"       },
            {"tests/core/tst_modC.cpp",
             "class Aiuto : public QObject {};\nclass tst_modC : public QObject {};\n"  },
            {"tests/core/tst_modD.cpp", "class tst_modD final : public QObject {};\n"   },
            {"tests/core/aiuto.cpp",    "class Aiuto {};\n"                             },
        };
        QCOMPARE(Prove_ConAltroNome(albero.Leggi()),
                 (QStringList{QStringLiteral("tests/core/tst_modA.cpp has no class tst_modA"),
                              QStringLiteral("tests/core/tst_modB.cpp has no class tst_modB")}));
    }
    void nessunaProvaConAltroNome() { Senza_Falli(Prove_ConAltroNome(m_casa)); }

    void globaliDoppieSiVedono_data()
    {
        QTest::addColumn<QByteArray>("testata");
        QTest::addColumn<QByteArray>("corpo");
        QTest::addColumn<QByteArray>("altro");
        QTest::addColumn<QString>("fallo");
        QTest::newRow("defined in two bodies")
            << QByteArray("extern int gA;") << QByteArray("int gA;") << QByteArray("int gA = 0;")
            << QStringLiteral("gA is defined more than once: core/a.cpp, core/b.cpp");
        QTest::newRow("hidden in a namespace")
            << QByteArray("extern int gA;") << QByteArray("int gA;")
            << QByteArray("namespace {\nstruct S { int x; };\nS gA{1};\n}")
            << QStringLiteral("gA is defined more than once: core/a.cpp, core/b.cpp");
        QTest::newRow("second of a list")
            << QByteArray("extern int gA;") << QByteArray("int gB = 1, gA;")
            << QByteArray("std::array<int, 3> gA;")
            << QStringLiteral("gA is defined more than once: core/a.cpp, core/b.cpp");
        QTest::newRow("an array, behind a procedure")
            << QByteArray("extern int gA[3];")
            << QByteArray("void f(int x) const\n{\n    x = 1;\n}\nint gA[3];")
            << QByteArray("static int gA[] = {1, 2};")
            << QStringLiteral("gA is defined more than once: core/a.cpp, core/b.cpp");
        QTest::newRow("declared twice")
            << QByteArray("extern int gA;\nextern int gA;") << QByteArray("int gA;") << QByteArray("")
            << QStringLiteral("gA is declared more than once: core/a.h, core/a.h");
        QTest::newRow("declared in a body")
            << QByteArray("") << QByteArray("int gA;") << QByteArray("extern int gA;")
            << QStringLiteral("gA is not defined beside its header: core/b.cpp, core/a.cpp\n"
                              "gA is declared outside a header: core/b.cpp");
        QTest::newRow("defined away from its header")
            << QByteArray("extern int gA;") << QByteArray("") << QByteArray("int gA;")
            << QStringLiteral("gA is not defined beside its header: core/a.h, core/b.cpp");
    }
    void globaliDoppieSiVedono()
    {
        QFETCH(QByteArray, testata);
        QFETCH(QByteArray, corpo);
        QFETCH(QByteArray, altro);
        const Alberello albero{
            {"core/a.h",   testata.constData()},
            {"core/a.cpp", corpo.constData()  },
            {"core/b.cpp", altro.constData()  },
        };
        QTEST(Globali_Doppie(albero.Leggi()).join(u'\n'), "fallo");
    }
    void usoDiUnaGlobaleNonDefinisce()
    {
        const Alberello albero{
            {"core/a.h",    "extern QString gA, gC;\nextern int gB; // int gB;\n"                               },
            {"core/a.cpp",  "QString gA, gC;\nint gB = 0;\n"                                                    },
            {"core/b.cpp",  "const int &altra = gB;\nint copia = gB, x;\n"
                           "int f(int y)\n{\n    int gB = 1;\n    gA = u\"int gB;\";\n    return gB;\n}\n"
                           "struct S\n{\n    int gB;\n};\nusing gA;\nint g(int gB);\n"},
            {"tests/t.cpp", "int gB;\n"                                                                         },
        };
        QCOMPARE(Globali_Doppie(albero.Leggi()), QStringList());
    }
    /// The check knows the forms in which the program's own state is defined.
    void unaGlobaleInPiuSiVedrebbe()
    {
        for (const char16_t *nome :
             {u"gFileIni", u"gScreenH", u"gAlimentazione", u"gAltezzaFaro", u"gTabMctc", u"gRisultatoFar"})
        {
            Sorgenti casa = m_casa;
            casa.insert(QStringLiteral("mctc/inPiu.cpp"),
                        QStringLiteral("Flag %1;").arg(QString::fromUtf16(nome)));
            const QStringList falli = Globali_Doppie(casa);
            QCOMPARE(falli.size(), 1);
            QVERIFY2(
                falli[0].startsWith(QString::fromUtf16(nome) + QStringLiteral(" is defined more than once")),
                qPrintable(falli[0]));
        }
    }
    void nessunaGlobaleDoppia() { Senza_Falli(Globali_Doppie(m_casa)); }

    void testiSenzaNomeSiVedono_data()
    {
        QTest::addColumn<QString>("presa");
        for (const char *presa :
             {"static_cast<TestoMctc>", "static_cast<TestoLingua>", "TestoMctc(", "TestoLingua{", "gTabMctc",
              "gTabLingua", "Valore_Ini(gFileLingueMctc", "Leggi_Ini(gFileLingue"})
            QTest::newRow(presa) << QString::fromLatin1(presa);
    }
    void testiSenzaNomeSiVedono()
    {
        QFETCH(QString, presa);
        const QByteArray riga = "    a(" + presa.toLatin1() + " 7";
        const Alberello albero{
            {"setup/a.cpp",         riga.constData()               },
            {"core/modGeneral.cpp", riga.constData()               },
            {"tests/a.cpp",         riga.constData()               },
            {"link/a.cpp",          ("// " + riga).constData()     },
            {"app/a.cpp",           ("\"" + riga + '"').constData()},
        };
        QCOMPARE(Testi_SenzaNome(albero.Leggi()), QStringList{QStringLiteral("setup/a.cpp: ") + presa});
    }
    void testiConUnNomePassano()
    {
        const Alberello albero{
            {"setup/a.cpp", "constexpr TestoMctc A[] = {MctcEsci};\na(Testo_Mctc(A[i]), Testo_Lingua(b));\n"
                            "Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);\n"
                            "Carica_Lingua(gFileLingue, ULTIMO_TESTO_LINGUA, gTabLingua);\n"},
        };
        QCOMPARE(Testi_SenzaNome(albero.Leggi()), QStringList());
    }
    void nessunTestoSenzaNome() { Senza_Falli(Testi_SenzaNome(m_casa)); }

    void nomiNonUsatiSiVedono()
    {
        const Alberello albero{
            {"core/a.h",    "NomeA NomeB NomeC NomeD NomeE\n"                    },
            {"link/a.cpp",  "a(NomeA); // NomeB\nb(\"NomeC\"); xNomeD(NomeDx);\n"},
            {"tests/b.cpp", "a(NomeE);\n"                                        },
        };
        QStringList nomi;
        for (const char16_t *nome : {u"NomeA", u"NomeB", u"NomeC", u"NomeD", u"NomeE"})
            nomi.append(QString::fromUtf16(nome));
        QCOMPARE(Nomi_NonUsati(albero.Leggi(), nomi), nomi.mid(1));
    }

    void procedureLungheSiVedono()
    {
        const auto corpo = [](int righe) {
            return QByteArray("void f()\n{\n") + QByteArray("    a();\n").repeated(righe) + "}\n";
        };
        const QByteArray giusta = corpo(50), lunga = corpo(51);
        const Alberello albero{
            {"core/a.cpp",  (giusta + lunga).constData()},
            {"tests/a.cpp", lunga.constData()           },
        };
        QCOMPARE(Procedure_Lunghe(albero.Leggi()), QStringList{QStringLiteral("core/a.cpp:54")});
    }
    void nessunaProceduraLunga() { Senza_Falli(Procedure_Lunghe(m_casa)); }

    void numeriNudiSiVedono_data()
    {
        QTest::addColumn<QString>("numero");
        for (const char *numero : {"gRepMisure[14",
                                   "gRepVoci[ 0",
                                   "gCampiSetup[21",
                                   "gRisultatoFar[24",
                                   "gErroriCampiAcc[13",
                                   "REGOLE_ACC[46",
                                   "Campo(20",
                                   "Campo_Acc(18",
                                   "riga == 9",
                                   "riga>=7",
                                   "Riga = 12",
                                   "gTipoProva = 2",
                                   "gTipoProva != 4",
                                   "codice == 6",
                                   "codice = 1",
                                   "mPwdEsito == 1",
                                   "case 4",
                                   "codice == qint16{6",
                                   "6 == codice",
                                   "RigaFar>(24",
                                   "RigaFar(24",
                                   "NotificaSetup>(4",
                                   "<size_t>(21"})
            QTest::newRow(numero) << QString::fromLatin1(numero);
    }
    void numeriNudiSiVedono()
    {
        QFETCH(QString, numero);
        const Sorgenti casa = {
            {QStringLiteral("setup/a.cpp"), QStringLiteral("a(%1); // riga 5\n").arg(numero)}
        };
        QCOMPARE(Numeri_Nudi(casa), QStringList{QStringLiteral("setup/a.cpp: ") + numero});
    }
    void nomiEContiPassano()
    {
        const Alberello albero{
            {"setup/a.cpp",
             "for (qint16 riga = 0; riga <= ULTIMA_RIGA; ++riga)\n    Campo(riga) = RIGHE[riga];\n"
             "gRepMisure[RepInizio]; codice = SetupSalvato; riga > 0; // riga == 9\n"
             "case SetupLingua: u\"codice == 6\"; lbl[0]; codici == 3; Riga(2); codice = 0;\n"},
            {"tests/t.cpp", "codice == 6; gRepMisure[14];\n"                                  },
        };
        QCOMPARE(Numeri_Nudi(albero.Leggi()), QStringList());
    }
    /// Each name of a row or a code, put back to its number where the program uses it.
    void unNumeroAlPostoDelNomeSiVedrebbe_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("uso");
        QTest::addColumn<QString>("numero");
        const auto riga = [](const char *file, const char *uso, const char *numero) {
            QTest::newRow(uso) << QString::fromLatin1(file) << QString::fromLatin1(uso)
                               << QString::fromLatin1(numero);
        };
        riga("app/modApp.cpp", "gTipoProva == ProvaConfermata", "gTipoProva == 4");
        riga("app/frmMain.cpp", "codice == SessioneCompletata", "codice == 6");
        riga("app/frmMain.cpp", "case SetupLingua", "case 2");
        riga("report/frmEsito.cpp", "codice = EsitoChiuso", "codice = 5");
        riga("report/pagina.cpp", "gRepTitoli[RepTitoloPagina", "gRepTitoli[0");
        riga("report/frmVerPerO.cpp", "gCampiVerifica[RigaScadenza", "gCampiVerifica[4");
        riga("setup/frmSetupO.cpp", "Campo(RigaDati", "Campo(21");
        riga("mctc/frmMctcO.cpp", "riga == AccSesso", "riga == 9");
    }
    void unNumeroAlPostoDelNomeSiVedrebbe()
    {
        QFETCH(QString, file);
        QFETCH(QString, uso);
        QFETCH(QString, numero);
        Sorgenti casa = m_casa;
        QVERIFY(casa[file].contains(uso));
        casa[file].replace(uso, numero);
        const QStringList falli = Numeri_Nudi(casa);
        QVERIFY(!falli.isEmpty());
        QCOMPARE(falli.count(file + QStringLiteral(": ") + numero), falli.size());
    }
    void nessunNumeroNudo() { Senza_Falli(Numeri_Nudi(m_casa)); }
};

QTEST_GUILESS_MAIN(tst_casa)
#include "tst_casa.moc"
