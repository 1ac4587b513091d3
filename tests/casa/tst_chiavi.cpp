// The keys of lumira.ini: each has a name in the program and is spelled nowhere else, stands in the manual
// with what is taken where it is missing, and in the configuration that is delivered.
#include "core/chiavi.h"
#include "platform/codifica.h"
#include "tests/casa/regole_casa.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

struct NomeChiave
{
    const char *Nome;
    ChiaveIni Chiave;
};

#define NOME_CHIAVE(nome, sezione, chiave, predefinito) {#nome, nome},
constexpr NomeChiave CHIAVI[] = {CHIAVI_INI(NOME_CHIAVE)};
#undef NOME_CHIAVE

/// Words that are keys of lumira.ini and something else too, in the sources where they are that.
struct Altrove
{
    const char16_t *file;
    QList<const char16_t *> parole;
};

// clang-format off
const QList<Altrove> ALTROVE = {
    // keys of the acceptance file
    {u"mctc/formato_acc.cpp", {u"Operatore", u"Note", u"Indirizzo", u"Citta", u"Telefono", u"Telaio", u"Targa",
                               u"Versione", u"Data"}},
    {u"mctc/campi_acc.cpp",   {u"Targa"}},
    {u"report/frmMctc2.cpp",  {u"Operatore", u"Note", u"Indirizzo", u"Citta", u"Telefono", u"Telaio", u"Targa"}},
    {u"core/modReport.cpp",   {u"Operatore", u"Telaio", u"Targa"}},
    {u"core/veicolo.cpp",     {u"Targa"}},
    // rows of the result file
    {u"core/risultato.cpp",   {u"Operatore", u"Marca"}},
    // a list's name for a screen reader
    {u"link/frmComm.cpp",     {u"Debug"}},
};
// clang-format on

QString Insieme(QStringView sezione, QStringView chiave)
{
    return sezione.toString() + u'/' + chiave.toString();
}
QString Insieme(const ChiaveIni &chiave)
{
    return Insieme(chiave.Sezione, chiave.Nome);
}

/// As the manual writes it.
QString Predefinito_Scritto(const ChiaveIni &chiave)
{
    if (chiave.Predefinito.isNull())
        return QStringLiteral("nessuno");
    return chiave.Predefinito.isEmpty() ? QStringLiteral("vuoto")
                                        : u'`' + chiave.Predefinito.toString() + u'`';
}

QByteArray Byte_Di(const char *nome)
{
    QFile file(QStringLiteral(LUMIRA_SORGENTE "/") + QString::fromLatin1(nome));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The keys of the manual's table, section/key, each with what the third column says of it. A row of several
/// keys has one value for all of them, or one for each. @param[out] falli rows of another shape.
QMap<QString, QString> Chiavi_DelManuale(const QString &manuale, QStringList &falli)
{
    static const QRegularExpression CHIAVE(QStringLiteral("`(\\w+)`"));
    static const QRegularExpression SPAZI(QStringLiteral(" +"));
    QMap<QString, QString> chiavi;
    QString sezione;
    const QStringList righe = manuale.section(QStringLiteral("### lumira.ini, chiave per chiave"), 1, 1)
                                  .section(QStringLiteral("\n#"), 0, 0)
                                  .split(u'\n');
    for (const QString &riga : righe) {
        const QStringList colonne = riga.split(u'|');
        if (!riga.startsWith(u'|') || !colonne.value(2).contains(u'`'))
            continue;
        const QString prima = CHIAVE.match(colonne[1]).captured(1);
        sezione = prima.isEmpty() ? sezione : prima;
        QStringList nomi;
        for (auto trovate = CHIAVE.globalMatch(colonne[2]); trovate.hasNext();)
            nomi.append(trovate.next().captured(1));
        QStringList valori = colonne.value(3).trimmed().split(SPAZI);
        if (valori.size() == 1)
            valori = QStringList(nomi.size(), valori[0]);
        if (colonne.size() != 6 || valori.size() != nomi.size())
            falli.append(riga);
        for (qsizetype i = 0; i < nomi.size(); ++i) {
            if (chiavi.contains(Insieme(sezione, nomi[i])))
                falli.append(riga);
            chiavi.insert(Insieme(sezione, nomi[i]), valori.value(i));
        }
    }
    return chiavi;
}

/// The keys of a configuration, section/key. @param[out] falli lines that are neither a note nor a head nor a
/// key, sections and keys that stand twice.
QStringList Chiavi_DelFile(const QString &testo, QStringList &falli)
{
    QStringList chiavi, sezioni;
    QString sezione;
    const QStringList righe = testo.split(QStringLiteral("\r\n"));
    for (const QString &riga : righe) {
        const qsizetype uguale = riga.indexOf(u'=');
        if (riga.startsWith(u'[') && riga.endsWith(u']')) {
            sezione = riga.mid(1, riga.size() - 2);
            if (sezioni.contains(sezione, Qt::CaseInsensitive))
                falli.append(riga);
            sezioni.append(sezione);
        } else if (uguale > 0 && !riga.startsWith(u';')) {
            const QString chiave = Insieme(sezione, QStringView(riga).first(uguale));
            if (chiavi.contains(chiave, Qt::CaseInsensitive))
                falli.append(riga);
            chiavi.append(chiave);
        } else if (!riga.isEmpty() && !riga.startsWith(u';')) {
            falli.append(riga);
        }
    }
    return chiavi;
}

} // namespace

class tst_chiavi : public QObject
{
    Q_OBJECT

    static void Senza_Falli(const QStringList &falli)
    {
        QVERIFY2(falli.isEmpty(), qPrintable(u'\n' + falli.join(u'\n')));
    }

private Q_SLOTS:
    void ogniChiaveUnaVolta()
    {
        QStringList chiavi;
        for (const NomeChiave &nome : CHIAVI) {
            QVERIFY2(!chiavi.contains(Insieme(nome.Chiave), Qt::CaseInsensitive), nome.Nome);
            chiavi.append(Insieme(nome.Chiave));
        }
    }
    void ogniNomeServe()
    {
        QStringList nomi;
        for (const NomeChiave &nome : CHIAVI)
            nomi.append(QString::fromLatin1(nome.Nome));
        Senza_Falli(Nomi_NonUsati(Sorgenti_Leggi(QStringLiteral(LUMIRA_SORGENTE)), nomi));
    }

    void letteraliSiVedono()
    {
        const QString testo =
            QStringLiteral("a(u\"Comm_Marca\", \"LUMIRA\", u\"Comm\", u\"comm_marca\"); // \"Comm_Marca\"\n");
        const QStringList parole = {QStringLiteral("Comm_Marca"), QStringLiteral("LUMIRA")};
        for (const char16_t *file : {u"setup/a.cpp", u"strumenti/a.h", u"platform/a.cpp"}) {
            const QString nome = QString::fromUtf16(file);
            QCOMPARE(Letterali_Vietati(
                         {
                             {nome, testo}
            },
                         parole),
                     (QStringList{nome + QStringLiteral(": Comm_Marca"), nome + QStringLiteral(": LUMIRA")}));
        }
        for (const char16_t *file : {u"tests/a.cpp", u"simulatore/a.cpp"})
            QCOMPARE(Letterali_Vietati(
                         {
                             {QString::fromUtf16(file), testo}
            },
                         parole),
                     QStringList());
    }
    void nessunLetterale()
    {
        QStringList parole;
        for (const NomeChiave &nome : CHIAVI)
            parole << nome.Chiave.Sezione.toString() << nome.Chiave.Nome.toString();
        Sorgenti casa = Sorgenti_Leggi(QStringLiteral(LUMIRA_SORGENTE));
        QVERIFY(casa.remove(QStringLiteral("core/chiavi.h")) > 0);
        QStringList falli = Letterali_Vietati(casa, parole);
        for (const Altrove &altrove : ALTROVE) {
            for (const char16_t *parola : altrove.parole) {
                const QString ammesso =
                    QString::fromUtf16(altrove.file) + QStringLiteral(": ") + QString::fromUtf16(parola);
                QVERIFY2(falli.removeAll(ammesso) > 0, qPrintable(ammesso));
            }
        }
        Senza_Falli(falli);
    }

    void formaDelManuale()
    {
        QStringList falli;
        const QString manuale =
            QStringLiteral("| `A` | `B` | `1` | c |\n"
                           "### lumira.ini, chiave per chiave\n\n| sezione | chiave |\n|---|---|\n"
                           "| `S` | `A` `B` | vuoto | c |\n| | `C` `D` | `1` `2` | `d` |\n"
                           "| `T` | `A` | nessuno | c |\n### E\n| `U` | `B` | `1` | c |\n");
        QCOMPARE(Chiavi_DelManuale(manuale, falli), (QMap<QString, QString>{
                                                        {QStringLiteral("S/A"), QStringLiteral("vuoto")  },
                                                        {QStringLiteral("S/B"), QStringLiteral("vuoto")  },
                                                        {QStringLiteral("S/C"), QStringLiteral("`1`")    },
                                                        {QStringLiteral("S/D"), QStringLiteral("`2`")    },
                                                        {QStringLiteral("T/A"), QStringLiteral("nessuno")},
        }));
        QCOMPARE(falli, QStringList());
        for (const char16_t *riga :
             {u"| `S` | `A` `B` `C` | `1` `2` | c |", u"| `S` | `A` | c |", u"| `S` | `A` `A` | vuoto | c |"})
        {
            falli.clear();
            Chiavi_DelManuale(
                QStringLiteral("### lumira.ini, chiave per chiave\n") + QString::fromUtf16(riga), falli);
            QCOMPARE(falli, QStringList(QString::fromUtf16(riga)));
        }
    }
    void manuale()
    {
        QStringList falli;
        QMap<QString, QString> scritte =
            Chiavi_DelManuale(QString::fromUtf8(Byte_Di("docs/manuale.md")), falli);
        for (const NomeChiave &nome : CHIAVI) {
            const QString atteso = Predefinito_Scritto(nome.Chiave);
            const QString scritto = scritte.take(Insieme(nome.Chiave));
            if (scritto != atteso)
                falli.append(Insieme(nome.Chiave) + QStringLiteral(": ") + scritto + QStringLiteral(" <> ") +
                             atteso);
        }
        falli += scritte.keys();
        Senza_Falli(falli);
    }

    void formaDelFile()
    {
        QStringList falli;
        QCOMPARE(Chiavi_DelFile(QStringLiteral("; n=1\r\n[S]\r\nA=1\r\nB=\r\n\r\n[T]\r\nA=[S]\r\n"), falli),
                 (QStringList{QStringLiteral("S/A"), QStringLiteral("S/B"), QStringLiteral("T/A")}));
        QCOMPARE(falli, QStringList());
        Chiavi_DelFile(QStringLiteral("[S]\r\nA=1\r\na=2\r\nB\r\n[s]\r\n"), falli);
        QCOMPARE(falli, (QStringList{QStringLiteral("a=2"), QStringLiteral("B"), QStringLiteral("[s]")}));
    }
    void configurazioneConsegnata()
    {
        QStringList falli;
        QStringList chiavi = Chiavi_DelFile(Testo_DaAnsi(Byte_Di("impianto/lumira.ini")), falli);
        for (const NomeChiave &nome : CHIAVI) {
            if (chiavi.removeAll(Insieme(nome.Chiave)) == 0)
                falli.append(Insieme(nome.Chiave) + QStringLiteral(" is not delivered"));
        }
        Senza_Falli(falli + chiavi);
    }
};

QTEST_GUILESS_MAIN(tst_chiavi)
#include "tst_chiavi.moc"
