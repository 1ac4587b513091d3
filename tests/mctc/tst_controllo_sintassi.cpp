// The second pass: the text line by line.
#include "mctc/controllo_sintassi.h"

#include "tests/comuni/stazione_prova.h"

#include <QTest>

class tst_controllo_sintassi : public QObject
{
    Q_OBJECT

private:
    StazioneProva m_stazione;
    ListaAnomalie m_lista;
    qint16 m_ultimo = 0;

    /// The findings as texts: kind, error, section, line.
    QStringList Esito(const QByteArray &byte)
    {
        const QString nome = QStringLiteral("DIR_FAR\\12345678.acc");
        m_stazione.Scrivi(nome, byte);
        m_ultimo = Acc_ControllaSintassi(m_stazione.Percorso(nome), m_lista);
        QStringList testi;
        for (const AnomaliaAcc &a : std::as_const(m_lista))
            testi.append(
                QStringLiteral("%1/%2 [%3] %4").arg(a.Tipo).arg(a.Errore).arg(a.Sezione, a.Testo.Copia()));
        return testi;
    }

private Q_SLOTS:
    void righe_data()
    {
        QTest::addColumn<QByteArray>("riga");
        QTest::addColumn<QStringList>("trovate");
        QTest::newRow("entry") << QByteArray("Nome=Rossi") << QStringList();
        QTest::newRow("entry vuota") << QByteArray("Nome=") << QStringList();
        QTest::newRow("vuota") << QByteArray("") << QStringList();
        QTest::newRow("bianco in testa")
            << QByteArray(" Nome=x") << QStringList{QStringLiteral("2/6 [A]  Nome=x")};
        QTest::newRow("bianco in fondo")
            << QByteArray("Nome=x ") << QStringList{QStringLiteral("2/7 [A] Nome=x ")};
        QTest::newRow("bianco prima del segno")
            << QByteArray("Nome =Rossi") << QStringList{QStringLiteral("2/6 [A] Nome =Rossi")};
        QTest::newRow("bianco dopo il segno")
            << QByteArray("Nome= Rossi") << QStringList{QStringLiteral("2/7 [A] Nome= Rossi")};
        QTest::newRow("bianchi dappertutto")
            << QByteArray(" N = x ")
            << QStringList{QStringLiteral("2/6 [A]  N = x "), QStringLiteral("2/7 [A]  N = x "),
                           QStringLiteral("2/6 [A]  N = x "), QStringLiteral("2/7 [A]  N = x ")};
        QTest::newRow("vuota con bianco: fine e segno")
            << QByteArray("N= ") << QStringList{QStringLiteral("2/7 [A] N= "), QStringLiteral("2/7 [A] N= ")};
        QTest::newRow("bianco dentro il valore") << QByteArray("N=x y") << QStringList();
        QTest::newRow("tabulazione") << QByteArray("\tN=x\t") << QStringList();
        QTest::newRow("due caratteri") << QByteArray("x=") << QStringList{QStringLiteral("2/8 [A] x=")};
        QTest::newRow("il solo segno") << QByteArray("=") << QStringList{QStringLiteral("2/8 [A] =")};
        // A short line is not looked at beside its sign.
        QTest::newRow("corta con bianco in testa")
            << QByteArray(" =") << QStringList{QStringLiteral("2/6 [A]  ="), QStringLiteral("2/8 [A]  =")};
        QTest::newRow("corta con bianco in fondo")
            << QByteArray("= ") << QStringList{QStringLiteral("2/7 [A] = "), QStringLiteral("2/8 [A] = ")};
        QTest::newRow("tre caratteri") << QByteArray("x=1") << QStringList();
        QTest::newRow("estranea") << QByteArray("riga senza senso")
                                  << QStringList{QStringLiteral("3/1 [] riga senza senso")};
        QTest::newRow("commento") << QByteArray("; nota") << QStringList{QStringLiteral("3/1 [] ; nota")};
        QTest::newRow("solo un bianco") << QByteArray(" ") << QStringList{QStringLiteral("3/1 []  ")};
        QTest::newRow("solo chiusa") << QByteArray("abc]") << QStringList{QStringLiteral("3/1 [] abc]")};
        QTest::newRow("mai chiusa") << QByteArray("[abc") << QStringList();
        QTest::newRow("chiusa prima di aperta") << QByteArray("]abc[") << QStringList();
        QTest::newRow("testa buona") << QByteArray("[B]") << QStringList();
        QTest::newRow("testa con davanti")
            << QByteArray("x[B]") << QStringList{QStringLiteral("1/6 [] x[B]")};
        QTest::newRow("testa con dietro") << QByteArray("[B]x") << QStringList{QStringLiteral("1/7 [] [B]x")};
        QTest::newRow("testa con bianchi")
            << QByteArray(" [B] ")
            << QStringList{QStringLiteral("1/6 []  [B] "), QStringLiteral("1/7 []  [B] ")};
        // The line's own brackets have already changed the section when its entry is looked at.
        QTest::newRow("entry con parentesi e bianco")
            << QByteArray("N =[x]")
            << QStringList{QStringLiteral("1/6 [] N =[x]"), QStringLiteral("2/6 [x] N =[x]")};
    }
    void righe()
    {
        QFETCH(QByteArray, riga);
        QFETCH(QStringList, trovate);
        QCOMPARE(Esito("[A]\r\n" + riga + "\r\n"), trovate);
        QCOMPARE(m_ultimo, qint16(trovate.size() - 1));
    }

    void parentesiNelValoreCambianoSezione()
    {
        QCOMPARE(Esito("[A]\r\nNote=[x]\r\nNome =y\r\n"),
                 (QStringList{QStringLiteral("1/6 [] Note=[x]"), QStringLiteral("2/6 [x] Nome =y")}));
    }

    void ilNomeArrivaAllaPrimaChiusa()
    {
        QCOMPARE(Esito("[A]b]\r\nN =y\r\n"), QStringList{QStringLiteral("2/6 [A] N =y")});
        QCOMPARE(Esito("[a[b]\r\nN =y\r\n"), QStringList{QStringLiteral("2/6 [a[b] N =y")});
    }

    /// What stands before a bracket closes nothing, and what stands behind a head is looked at as on any
    /// line.
    void laRigaDiUnaTesta()
    {
        QCOMPARE(Esito("[A]\r\nb]c[D]\r\nN =y\r\n"),
                 (QStringList{QStringLiteral("1/6 [] b]c[D]"), QStringLiteral("2/6 [D] N =y")}));
        QCOMPARE(Esito("[A]\r\n[D] N =y\r\n"),
                 (QStringList{QStringLiteral("1/7 [] [D] N =y"), QStringLiteral("2/6 [D] [D] N =y")}));
        QCOMPARE(Esito("[A]\r\n][\r\n"), QStringList());
    }

    void ogniRigaPrimaDellaPrimaSezione()
    {
        QCOMPARE(Esito("N=x\r\n\r\nabc\r\n[abc\r\n N=y\r\n[A]\r\nN=z\r\n"),
                 (QStringList{QStringLiteral("2/8 [] N=x"), QStringLiteral("2/8 [] abc"),
                              QStringLiteral("3/1 [] abc"), QStringLiteral("2/8 [] [abc"),
                              QStringLiteral("2/8 []  N=y"), QStringLiteral("2/6 []  N=y")}));
    }

    void ogniFineDiRigaVale_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::newRow("CRLF") << QByteArray("[A]\r\nabc\r\nN=1\r\n");
        QTest::newRow("LF") << QByteArray("[A]\nabc\nN=1\n");
        QTest::newRow("CR") << QByteArray("[A]\rabc\rN=1\r");
        QTest::newRow("ultima senza fine") << QByteArray("[A]\r\nN=1\r\nabc");
    }
    void ogniFineDiRigaVale()
    {
        QFETCH(QByteArray, byte);
        QCOMPARE(Esito(byte), QStringList{QStringLiteral("3/1 [] abc")});
    }

    void accentiRestano()
    {
        QCOMPARE(Esito("[A]\r\nforl\xEC\r\n"), QStringList{QStringLiteral("3/1 [] forlì")});
    }

    void fileVuotoNonDaNulla()
    {
        QCOMPARE(Esito(""), QStringList());
        QCOMPARE(m_ultimo, qint16{-1});
    }

    void fileMancante()
    {
        const QString file = m_stazione.Percorso(QStringLiteral("DIR_FAR\\99999999.acc"));
        QCOMPARE(Acc_ControllaSintassi(file, m_lista), qint16{0});
        QCOMPARE(m_lista, (ListaAnomalie{
                              {file, AnomaliaFile, AnomaliaNonDisponibile, {}}
        }));
    }

    void cartellaAlPostoDelFile()
    {
        m_stazione.Scrivi(QStringLiteral("DIR_FAR\\88888888.acc\\x"), "x");
        const QString file = m_stazione.Percorso(QStringLiteral("DIR_FAR\\88888888.acc"));
        QCOMPARE(Acc_ControllaSintassi(file, m_lista), qint16{0});
        QCOMPARE(m_lista, (ListaAnomalie{
                              {file, AnomaliaFile, AnomaliaNonDisponibile, {}}
        }));
    }

    void laListaSiRifaOgniVolta()
    {
        Esito("abc\r\n");
        QCOMPARE(Esito("[A]\r\n"), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_controllo_sintassi)
#include "tst_controllo_sintassi.moc"
