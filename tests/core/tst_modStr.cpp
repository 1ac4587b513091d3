// Cutting, replacing, the stored password, the names of a profile text.
#include "core/modStr.h"

#include "tests/comuni/errore_prova.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

QStringList Testi_Di(const ListaBrani &brani)
{
    QStringList testi;
    for (const Brano &brano : brani)
        testi.append(brano.Copia());
    return testi;
}

/// A text at random out of a few letters.
QString Testo_ACaso(QRandomGenerator &caso, const QString &lettere, quint32 massimo)
{
    QString testo;
    for (quint32 n = caso.bounded(massimo + 1); n > 0; --n)
        testo += lettere[qsizetype(caso.bounded(quint32(lettere.size())))];
    return testo;
}

/// Section names, taken bracket by bracket with two positions that walk through the text.
QStringList Sezioni_PassoAPasso(const QString &testo)
{
    QStringList nomi;
    qsizetype inizio = testo.indexOf(u'[') + 1;
    while (inizio > 0) {
        const qsizetype prossima = testo.indexOf(u'[', inizio);
        const qsizetype chiusa = testo.indexOf(u']', inizio);
        if (chiusa >= 0 && (prossima < 0 || chiusa < prossima))
            nomi.append(testo.mid(inizio, chiusa - inizio));
        inizio = prossima + 1;
    }
    return nomi;
}

/// Key names, walked back from each equals sign.
QStringList Chiavi_PassoAPasso(const QString &testo)
{
    QStringList nomi;
    for (qsizetype uguale = testo.indexOf(u'='); uguale >= 0; uguale = testo.indexOf(u'=', uguale + 1)) {
        QString nome;
        for (qsizetype i = uguale - 1; i >= 0 && testo[i] != u'\r' && testo[i] != u'\n'; --i)
            nome.prepend(testo[i]);
        nomi.append(nome);
    }
    return nomi;
}

/// A piece, by counting separators from the left.
QString Pezzo_PassoAPasso(const QString &testo, QChar separatore, int numero)
{
    qsizetype inizio = -1, fine = -1;
    int contati = 0;
    for (qsizetype i = 0; i < testo.size() && fine < 0; ++i) {
        if (testo[i] != separatore)
            continue;
        ++contati;
        if (contati == numero - 1)
            inizio = i + 1;
        if (contati == numero)
            fine = i;
    }
    if (contati == 0 || (inizio < 0 && fine < 0))
        return {};
    const qsizetype da = inizio < 0 ? 0 : inizio;
    return testo.mid(da, fine < 0 ? -1 : fine - da);
}

} // namespace

class tst_modStr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pwdAbbassaDiQuattroVolteIlPosto_data()
    {
        QTest::addColumn<QString>("cifrato");
        QTest::addColumn<QString>("chiaro");
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("one character") << QStringLiteral("E") << QStringLiteral("A");
        QTest::newRow("two characters") << QStringLiteral("EJ") << QStringLiteral("AB");
        QTest::newRow("five characters") << QStringLiteral("piy€u") << QStringLiteral("lampa");
        QTest::newRow("down to nothing") << QStringLiteral("\u0004\u0008") << QString(2, QChar(0));
        QTest::newRow("through the code page") << QStringLiteral("€") << QStringLiteral("|");
        QTest::newRow("into the code page") << QStringLiteral("\u0192") << QStringLiteral("\u007F");
    }
    void pwdAbbassaDiQuattroVolteIlPosto()
    {
        QFETCH(QString, cifrato);
        QTEST(Pwd_Decifra(cifrato), "chiaro");
    }

    void pwdSottoZeroDaOverflow()
    {
        QCOMPARE(Errore_Di([] { Pwd_Decifra(QStringLiteral("\u0003")); }), 6);
        QCOMPARE(Errore_Di([] { Pwd_Decifra(QStringLiteral("A\u0007")); }), 6);
        QCOMPARE(Errore_Di([] { Pwd_Decifra(QString(64, u'\u00FF')); }), 6); // 255 is less than 4 times 64
        QCOMPARE(Errore_Di([] { Pwd_Decifra(QString(63, u'\u00FF')); }), 0);
    }

    void sostituisce_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QString>("cercato");
        QTest::addColumn<QString>("sostituto");
        QTest::addColumn<QString>("atteso");
        const auto riga = [](const char *nome, const char16_t *testo, const char16_t *cercato,
                             const char16_t *sostituto, const char16_t *atteso) {
            QTest::newRow(nome) << QString::fromUtf16(testo) << QString::fromUtf16(cercato)
                                << QString::fromUtf16(sostituto) << QString::fromUtf16(atteso);
        };
        riga("point", u"1.5", u".", u",", u"1,5");
        riga("no point", u"1,5", u".", u",", u"1,5");
        riga("every point", u".1.5.", u".", u",", u",1,5,");
        riga("points in a row", u"..", u".", u",", u",,");
        riga("empty text", u"", u".", u",", u"");
        riga("case counts", u"aAa", u"a", u"b", u"bAb");
        riga("longer", u"a.b", u".", u"---", u"a---b");
        riga("shorter", u"a--b", u"--", u"", u"ab");
        riga("search of several", u"abcabc", u"bc", u"x", u"axax");
        riga("same at the first place", u"aa", u"a", u"ab", u"abab");
        riga("what the cut makes is not found at its own place", u"xxyy", u"xy", u"", u"xy");
        riga("nothing to search", u"abc", u"", u"x", u"abc");
    }
    void sostituisce()
    {
        QFETCH(QString, testo);
        QFETCH(QString, cercato);
        QFETCH(QString, sostituto);
        QTEST(Str_Sostituisci(testo, cercato, sostituto), "atteso");
    }

    /// A replacement that holds the search text behind its first character is found again and again, until
    /// the position no longer fits.
    void sostitutoCheContieneIlCercatoDaOverflow()
    {
        const QString a = QStringLiteral("a");
        QCOMPARE(Errore_Di([&] { Str_Sostituisci(a, a, QStringLiteral("ba")); }), 6);
        QCOMPARE(Str_Sostituisci(a, a, QStringLiteral("ab")), QStringLiteral("ab"));
    }

    void posizioneOltre16BitDaOverflow()
    {
        const QString punto = QStringLiteral("."), virgola = QStringLiteral(",");
        QCOMPARE(Errore_Di([&] { Str_Sostituisci(QString(32766, u'x') + punto, punto, virgola); }), 6);
        QCOMPARE(Str_Sostituisci(QString(32765, u'x') + punto, punto, virgola).last(2), QStringLiteral("x,"));
    }

    void token_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<int>("numero");
        QTest::addColumn<QString>("atteso");
        const auto riga = [](const char16_t *testo, int numero, const char16_t *atteso) {
            QTest::addRow("%s, %d", qPrintable(QString::fromUtf16(testo)), numero)
                << QString::fromUtf16(testo) << numero << QString::fromUtf16(atteso);
        };
        riga(u"a,b,c", 1, u"a");
        riga(u"a,b,c", 2, u"b");
        riga(u"a,b,c", 3, u"c");
        riga(u"a,b,c", 4, u"");
        riga(u"a,b,c", 0, u"");
        riga(u"a,b,c", -1, u"");
        riga(u"a,,c", 1, u"a");
        riga(u"a,,c", 2, u"");
        riga(u"a,,c", 3, u"c");
        riga(u"abc", 1, u"");
        riga(u"abc", 2, u"");
        riga(u"", 1, u"");
        riga(u",b", 1, u"");
        riga(u",b", 2, u"b");
        riga(u"a,", 1, u"a");
        riga(u"a,", 2, u"");
        riga(u",", 1, u"");
        riga(u",", 2, u"");
        riga(u"uno due,tre quattro", 2, u"tre quattro");
    }
    void token()
    {
        QFETCH(QString, testo);
        QFETCH(int, numero);
        QTEST(Str_Token(testo, QStringLiteral(","), qint16(numero)), "atteso");
    }

    void tokenACaso()
    {
        QRandomGenerator caso(11);
        for (int volta = 0; volta < 2000; ++volta) {
            const QString testo = Testo_ACaso(caso, QStringLiteral("a,"), 8);
            for (qint16 numero = 1; numero < 10; ++numero)
                QCOMPARE(Str_Token(testo, QStringLiteral(","), numero),
                         Pezzo_PassoAPasso(testo, u',', numero));
        }
    }

    void sezioni_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QStringList>("nomi");
        const QStringList ab = {QStringLiteral("A"), QStringLiteral("B")};
        const QStringList b = {QStringLiteral("B")};
        QTest::newRow("two in a row") << QStringLiteral("[A][B]") << ab;
        QTest::newRow("two with keys") << QStringLiteral("[A]\r\nX=1\r\n[B]\r\nY=2\r\n") << ab;
        QTest::newRow("opening bracket alone") << QStringLiteral("[A") << QStringList();
        QTest::newRow("closing bracket alone") << QStringLiteral("A]") << QStringList();
        QTest::newRow("opening bracket, then a section") << QStringLiteral("[A[B]") << b;
        QTest::newRow("closing bracket, then a section") << QStringLiteral("A][B]") << b;
        QTest::newRow("section, then an opening bracket") << QStringLiteral("[B][A") << b;
        QTest::newRow("second closing bracket") << QStringLiteral("[B]A]") << b;
        QTest::newRow("empty") << QString() << QStringList();
        QTest::newRow("no bracket") << QStringLiteral("A=1") << QStringList();
        QTest::newRow("empty name") << QStringLiteral("[]") << QStringList{QString()};
        QTest::newRow("blanks stay") << QStringLiteral("[ A ]") << QStringList{QStringLiteral(" A ")};
        QTest::newRow("duplicates stay")
            << QStringLiteral("[B][A][B]")
            << QStringList{QStringLiteral("B"), QStringLiteral("A"), QStringLiteral("B")};
        QTest::newRow("over a line end") << QStringLiteral("[A\r\n]") << QStringList{QStringLiteral("A\r\n")};
        QTest::newRow("brackets in a value") << QStringLiteral("[A]\r\nX=[B]\r\n") << ab;
    }
    void sezioni()
    {
        QFETCH(QString, testo);
        QFETCH(QStringList, nomi);
        ListaBrani trovati;
        QCOMPARE(Ini_Sezioni(testo, trovati), qint16(nomi.size() - 1));
        QCOMPARE(Testi_Di(trovati), nomi);
    }

    void sezioniACaso()
    {
        QRandomGenerator caso(12);
        for (int volta = 0; volta < 5000; ++volta) {
            const QString testo = Testo_ACaso(caso, QStringLiteral("[]a"), 12);
            ListaBrani nomi;
            Ini_Sezioni(testo, nomi);
            QCOMPARE(Testi_Di(nomi), Sezioni_PassoAPasso(testo));
        }
    }

    /// A file of brackets is refused by its content, not by the time that it takes.
    void sezioniDiUnFileDiSoleParentesi()
    {
        ListaBrani nomi;
        QCOMPARE(Ini_Sezioni(QString(1000000, u'['), nomi), qint16{-1});
        QCOMPARE(Errore_Di([&] { Ini_Sezioni(QStringLiteral("[]").repeated(32769), nomi); }), 6);
    }

    void sezioniSiAggiungono()
    {
        ListaBrani nomi = {QStringLiteral("prima")};
        QCOMPARE(Ini_Sezioni(QStringLiteral("[A]"), nomi), qint16{1});
        QCOMPARE(Testi_Di(nomi), (QStringList{QStringLiteral("prima"), QStringLiteral("A")}));
    }

    void sezioniNessunaInUnaListaPiena_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::newRow("empty") << QString();
        QTest::newRow("no bracket") << QStringLiteral("A=1");
        QTest::newRow("no name") << QStringLiteral("[A");
    }
    void sezioniNessunaInUnaListaPiena()
    {
        QFETCH(QString, testo);
        ListaBrani nomi = {QStringLiteral("prima")};
        QCOMPARE(Ini_Sezioni(testo, nomi), qint16{-1});
        QCOMPARE(Testi_Di(nomi), QStringList(QStringLiteral("prima")));
    }

    void chiavi_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QStringList>("nomi");
        const QStringList ab = {QStringLiteral("A"), QStringLiteral("B")};
        QTest::newRow("two lines") << QStringLiteral("A=1\r\nB=2\r\n") << ab;
        QTest::newRow("LF") << QStringLiteral("A=1\nB=2") << ab;
        QTest::newRow("CR") << QStringLiteral("A=1\rB=2") << ab;
        QTest::newRow("equals sign in the value")
            << QStringLiteral("C=x=y") << QStringList{QStringLiteral("C"), QStringLiteral("C=x")};
        QTest::newRow("three equals signs")
            << QStringLiteral("C==x=")
            << QStringList{QStringLiteral("C"), QStringLiteral("C="), QStringLiteral("C==x")};
        QTest::newRow("no equals sign") << QStringLiteral("A\r\nB") << QStringList();
        QTest::newRow("empty") << QString() << QStringList();
        QTest::newRow("equals sign first") << QStringLiteral("=1") << QStringList{QString()};
        QTest::newRow("leading blanks stay")
            << QStringLiteral("\r\n \tA =1") << QStringList{QStringLiteral(" \tA ")};
        QTest::newRow("comment is a name too") << QStringLiteral(";A=1") << QStringList{QStringLiteral(";A")};
        QTest::newRow("behind a head") << QStringLiteral("]\r\nA=1") << QStringList{QStringLiteral("A")};
    }
    void chiavi()
    {
        QFETCH(QString, testo);
        QFETCH(QStringList, nomi);
        ListaBrani trovate;
        QCOMPARE(Ini_Chiavi(testo, trovate), qint16(nomi.size() - 1));
        QCOMPARE(Testi_Di(trovate), nomi);
    }

    void chiaviACaso()
    {
        QRandomGenerator caso(13);
        for (int volta = 0; volta < 5000; ++volta) {
            const QString testo = Testo_ACaso(caso, QStringLiteral("=a\r\n"), 12);
            ListaBrani nomi;
            QCOMPARE(Ini_Chiavi(testo, nomi), qint16(testo.count(u'=') - 1));
            QCOMPARE(Testi_Di(nomi), Chiavi_PassoAPasso(testo));
        }
    }

    /// A line of equals signs has as many names as signs, each as long as what stands before it: copied they
    /// would be a gigabyte.
    void chiaviDiUnaRigaDiSoliUguali()
    {
        const QString testo = QStringLiteral("a\r\n") + QString(32000, u'=');
        ListaBrani nomi;
        QCOMPARE(Ini_Chiavi(testo, nomi), qint16{31999});
        for (qsizetype i = 0; i < nomi.size(); ++i) {
            QCOMPARE(nomi.at(i).Vista().size(), i);
            QCOMPARE(nomi.at(i).Vista().data(), testo.constData() + 3);
        }
    }

    void chiaviSiAggiungono()
    {
        ListaBrani nomi = {QStringLiteral("prima")};
        QCOMPARE(Ini_Chiavi(QStringLiteral("A=1"), nomi), qint16{1});
        QCOMPARE(Testi_Di(nomi), (QStringList{QStringLiteral("prima"), QStringLiteral("A")}));
    }

    void chiaviNessunaInUnaListaPiena()
    {
        ListaBrani nomi = {QStringLiteral("prima")};
        QCOMPARE(Ini_Chiavi(QStringLiteral("[A]\r\n"), nomi), qint16{-1});
        QCOMPARE(Testi_Di(nomi), QStringList(QStringLiteral("prima")));
    }
};

QTEST_GUILESS_MAIN(tst_modStr)
#include "tst_modStr.moc"
