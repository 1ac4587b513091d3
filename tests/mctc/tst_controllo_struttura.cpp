// The first pass: name, sections and keys against the template.
#include "mctc/controllo_struttura.h"

#include "platform/errore_esecuzione.h"
#include "tests/comuni/locale_prova.h"
#include "tests/mctc/prova_acc.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

namespace {

/// A finding as one text, short to write: kind, error, section, what.
QString Testo_Di(const AnomaliaAcc &a)
{
    return QStringLiteral("%1/%2 [%3] %4").arg(a.Tipo).arg(a.Errore).arg(a.Sezione, a.Testo.Copia());
}

QStringList Testi_Di(const ListaAnomalie &lista)
{
    QStringList testi;
    for (const AnomaliaAcc &anomalia : lista)
        testi.append(Testo_Di(anomalia));
    return testi;
}

QStringList Nomi_Di(const ListaBrani &brani)
{
    QStringList nomi;
    for (const Brano &brano : brani)
        nomi.append(brano.Copia());
    return nomi;
}

// --- the same comparison, plain and slow ------------------------------------------------------------------

/// A head and what stands behind its bracket, up to the next head.
struct SezioneLenta
{
    QString nome;
    QString testo;
};

QList<SezioneLenta> Sezioni_Lente(const QString &testo)
{
    QList<SezioneLenta> sezioni;
    static const QRegularExpression TESTA(QStringLiteral("\\[([^\\[\\]]*)\\]"));
    for (auto teste = TESTA.globalMatch(testo); teste.hasNext();) {
        const auto testa = teste.next();
        const qsizetype fine = teste.hasNext() ? teste.peekNext().capturedStart() : testo.size();
        sezioni.append(
            {testa.captured(1), testo.mid(testa.capturedEnd() - 1, fine - testa.capturedEnd() + 1)});
    }
    return sezioni;
}

QStringList Chiavi_Lente(const QString &testo)
{
    QStringList chiavi;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (testo[i] != u'=')
            continue;
        QString chiave;
        for (qsizetype j = i - 1; j >= 0 && testo[j] != u'\r' && testo[j] != u'\n'; --j)
            chiave.prepend(testo[j]);
        chiavi.append(chiave);
    }
    return chiavi;
}

/// Every name against every name.
QStringList Confronto_Lento(const QStringList &modello, const QStringList &file, int tipo,
                            const QString &sezione)
{
    QStringList testi;
    const auto aggiungi = [&](const QString &nome, qsizetype volte, int mai) {
        if (volte == 0 || volte == 2)
            testi.append(
                QStringLiteral("%1/%2 [%3] %4").arg(tipo).arg(volte == 0 ? mai : 3).arg(sezione, nome));
    };
    for (const QString &nome : modello)
        aggiungi(nome, file.count(nome), 2);
    for (const QString &nome : file)
        aggiungi(nome, modello.count(nome), 1);
    return testi;
}

/// The findings about two texts that have a section each.
QStringList Struttura_Lenta(const QString &modello, const QString &file)
{
    const QList<SezioneLenta> delModello = Sezioni_Lente(modello), delFile = Sezioni_Lente(file);
    const auto nomi = [](const QList<SezioneLenta> &sezioni) {
        QStringList testi;
        for (const SezioneLenta &sezione : sezioni)
            testi.append(sezione.nome);
        return testi;
    };
    const auto chiavi = [](const QList<SezioneLenta> &sezioni, const QString &nome) {
        const auto prima = std::find_if(sezioni.begin(), sezioni.end(),
                                        [&](const SezioneLenta &sezione) { return sezione.nome == nome; });
        return prima == sezioni.end() ? QStringList() : Chiavi_Lente(prima->testo);
    };
    QStringList testi = Confronto_Lento(nomi(delModello), nomi(delFile), 1, QString());
    if (!testi.isEmpty())
        return testi;
    for (const SezioneLenta &sezione : delFile) {
        const QStringList sue = chiavi(delModello, sezione.nome), altre = chiavi(delFile, sezione.nome);
        if (!sue.isEmpty() && !altre.isEmpty())
            testi += Confronto_Lento(sue, altre, 2, sezione.nome);
    }
    return testi;
}

/// A text of a few sections and lines that often agree with another one, and often do not.
QByteArray Testo_ACaso(QRandomGenerator &caso)
{
    static const QList<QByteArray> PEZZI = {"[A]\r\n", "[B]\r\n", "[A]\r\n", "a=1\r\n", "b=\r\n",  "a=1\r\n",
                                            "=",       "==\r",    "[C",      "]",       "a=[A]\n", "x"};
    QByteArray testo = "[A]\r\na=\r\n";
    for (quint32 n = caso.bounded(8U); n > 0; --n)
        testo += PEZZI[qsizetype(caso.bounded(quint32(PEZZI.size())))];
    return testo;
}

int Numero_Errore(const std::function<void()> &azione)
{
    try {
        azione();
    } catch (const ErroreEsecuzione &errore) {
        return errore.Numero();
    }
    return 0;
}

const QString NOME = QStringLiteral("DIR_FAR\\12345678.acc");
const QString MODELLO = QStringLiteral("dati\\Prova.acc");

} // namespace

class tst_controllo_struttura : public QObject
{
    Q_OBJECT

private:
    StazioneProva m_stazione;
    ListaAnomalie m_lista;
    qint16 m_ultimo = 0;

    /// Compares a file with a template, both given as lines.
    void Confronta(const QByteArray &modello, const QByteArray &file)
    {
        m_stazione.Scrivi(MODELLO, modello);
        m_stazione.Scrivi(NOME, file);
        m_ultimo = Acc_ControllaStruttura(m_stazione.Percorso(MODELLO), m_stazione.Percorso(NOME), m_lista);
    }
    QStringList Esito(const QByteArray &modello, const QByteArray &file)
    {
        Confronta(modello, file);
        return Testi_Di(m_lista);
    }

    static QStringList Chiavi_Di(const QString &testo, const QString &sezione)
    {
        ListaBrani chiavi{QStringLiteral("vecchia")};
        const qint16 ultima = Sezione_Chiavi(testo, sezione, chiavi);
        return ultima == chiavi.size() - 1 ? Nomi_Di(chiavi)
                                           : QStringList{QStringLiteral("indice sbagliato")};
    }

private Q_SLOTS:
    void init() { Imposta_Locale(QLocale::c()); }

    void nomeValido_data()
    {
        QTest::addColumn<QString>("percorso");
        QTest::addColumn<bool>("valido");
        QTest::newRow("8 cifre") << QStringLiteral("C:\\MCTC\\12345678.acc") << true;
        QTest::newRow("estensione maiuscola") << QStringLiteral("C:\\MCTC\\12345678.ACC") << true;
        QTest::newRow("due punti") << QStringLiteral("12345678.x.acc") << true;
        QTest::newRow("cartella con punto") << QStringLiteral("C:\\A.B\\12345678.acc") << true;
        QTest::newRow("7 cifre") << QStringLiteral("1234567.acc") << false;
        QTest::newRow("9 cifre") << QStringLiteral("123456789.acc") << false;
        QTest::newRow("lettere") << QStringLiteral("ABCDEFGH.ACC") << false;
        QTest::newRow("una lettera") << QStringLiteral("1234567A.acc") << false;
        QTest::newRow("segno") << QStringLiteral("-1234567.acc") << true;
        QTest::newRow("virgola") << QStringLiteral("12345,67.acc") << false;
        QTest::newRow("vuoto") << QString() << false;
    }
    void nomeValido()
    {
        QFETCH(QString, percorso);
        QFETCH(bool, valido);
        QCOMPARE(Acc_NomeValido(percorso), valido ? Vero : Falso);
    }

    void nomeConVirgolaValidoDoveSeparaIDecimali()
    {
        Imposta_Locale(QLocale(QLocale::Italian));
        QCOMPARE(Acc_NomeValido(QStringLiteral("12345,67.acc")), Vero);
    }

    void filesUgualiNonDannoNulla()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\n[B]\r\ny=2\r\n", "[A]\r\nx=9\r\n[B]\r\ny=\r\n"), QStringList());
        QCOMPARE(m_ultimo, qint16{-1});
    }

    void lOrdineDelleSezioniEDelleChiaviELibero()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\nz=2\r\n[B]\r\ny=2\r\n", "[B]\r\ny=2\r\n[A]\r\nz=2\r\nx=1\r\n"),
                 QStringList());
    }

    void ilCasoDistingue()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\n", "[a]\r\nx=1\r\n"),
                 (QStringList{QStringLiteral("1/2 [] A"), QStringLiteral("1/1 [] a")}));
        QCOMPARE(Esito("[A]\r\nx=1\r\n", "[A]\r\nX=1\r\n"),
                 (QStringList{QStringLiteral("2/2 [A] x"), QStringLiteral("2/1 [A] X")}));
    }

    void nomeNonIdoneoFermaTutto()
    {
        const QString file = m_stazione.Percorso(QStringLiteral("DIR_FAR\\ABCDEFGH.ACC"));
        QCOMPARE(
            Acc_ControllaStruttura(m_stazione.Percorso(QStringLiteral("dati\\Manca.acc")), file, m_lista),
            qint16{0});
        QCOMPARE(Testi_Di(m_lista), QStringList{QStringLiteral("3/4 [] ") + file});
    }

    void modelloMancante()
    {
        const QString modello = m_stazione.Percorso(QStringLiteral("dati\\Manca.acc"));
        m_stazione.Scrivi(NOME, "[A]\r\nx=1\r\n");
        QCOMPARE(Acc_ControllaStruttura(modello, m_stazione.Percorso(NOME), m_lista), qint16{0});
        QCOMPARE(Testi_Di(m_lista), QStringList{QStringLiteral("3/5 [] ") + modello});
    }

    /// A folder of that name stands for anything that is there and cannot be read.
    void modelloCheNonSiLegge()
    {
        m_stazione.Scrivi(QStringLiteral("dati\\Chiuso.acc\\x"), "x");
        const QString modello = m_stazione.Percorso(QStringLiteral("dati\\Chiuso.acc"));
        m_stazione.Scrivi(NOME, "[A]\r\nx=1\r\n");
        QCOMPARE(Acc_ControllaStruttura(modello, m_stazione.Percorso(NOME), m_lista), qint16{0});
        QCOMPARE(Testi_Di(m_lista), QStringList{QStringLiteral("3/5 [] ") + modello});
    }

    /// Of two files that are missing the template is told: without it no other could pass either.
    void mancanoTuttiEDue()
    {
        const QString modello = m_stazione.Percorso(QStringLiteral("dati\\Manca.acc"));
        const QString manca = m_stazione.Percorso(QStringLiteral("DIR_FAR\\99999999.acc"));
        QCOMPARE(Acc_ControllaStruttura(modello, manca, m_lista), qint16{0});
        QCOMPARE(Testi_Di(m_lista), QStringList{QStringLiteral("3/5 [] ") + modello});
    }

    void fileMancanteOVuoto()
    {
        m_stazione.Scrivi(MODELLO, "[A]\r\nx=1\r\n");
        const QString manca = m_stazione.Percorso(QStringLiteral("DIR_FAR\\99999999.acc"));
        QCOMPARE(Acc_ControllaStruttura(m_stazione.Percorso(MODELLO), manca, m_lista), qint16{0});
        QCOMPARE(Testi_Di(m_lista), QStringList{QStringLiteral("3/5 [] ") + manca});
        QCOMPARE(Esito("[A]\r\nx=1\r\n", ""),
                 QStringList{QStringLiteral("3/5 [] ") + m_stazione.Percorso(NOME)});
        QCOMPARE(Esito("", "[A]\r\n"), QStringList{QStringLiteral("3/5 [] ") + m_stazione.Percorso(MODELLO)});
    }

    void testoSenzaSezioni()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\n", "x=1\r\n"),
                 QStringList{QStringLiteral("3/4 [] ") + m_stazione.Percorso(NOME)});
        QCOMPARE(m_ultimo, qint16{0});
        // The template's unfitness comes before the file's.
        QCOMPARE(Esito("x=1\r\n", "x=1\r\n"),
                 QStringList{QStringLiteral("3/4 [] ") + m_stazione.Percorso(MODELLO)});
    }

    void fileOltreI16BitFinisceIlProgramma()
    {
        const QByteArray testo = QByteArray("[A]\r\nx=").leftJustified(32767, 'y');
        QCOMPARE(Esito(testo, testo), QStringList());
        QCOMPARE(Numero_Errore([&] { Esito("[A]\r\nx=1\r\n", testo + 'y'); }), 6);
        QCOMPARE(Numero_Errore([&] { Esito(testo + 'y', "[A]\r\nx=1\r\n"); }), 6);
    }

    /// An entry that is wrong elsewhere waits until the sections are in order.
    void sezioneMancanteSenzaConfrontoDelleEntry()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\n[B]\r\ny=1\r\n[C]\r\nz=1\r\n", "[A]\r\nw=1\r\n[C]\r\nz=1\r\n"),
                 QStringList{QStringLiteral("1/2 [] B")});
        QCOMPARE(m_ultimo, qint16{0});
        QCOMPARE(Esito("[A]\r\nx=1\r\n[B]\r\ny=1\r\n", "[A]\r\nw=1\r\n[B]\r\ny=1\r\n"),
                 (QStringList{QStringLiteral("2/2 [A] x"), QStringLiteral("2/1 [A] w")}));
        QCOMPARE(m_ultimo, qint16{1});
    }

    void sezioneEstraneaEDuplicata()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\n[B]\r\ny=1\r\n", "[A]\r\n[D]\r\n[B]\r\n[B]\r\n"),
                 (QStringList{QStringLiteral("1/3 [] B"), QStringLiteral("1/1 [] D")}));
    }

    void duplicataNelModello()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\nx=2\r\n", "[A]\r\nx=1\r\n"), QStringList{QStringLiteral("2/3 [A] x")});
    }

    void duplicataDueVolteSegnalataTreVolteNo()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\n", "[A]\r\nx=1\r\nx=1\r\n"), QStringList{QStringLiteral("2/3 [A] x")});
        QCOMPARE(Esito("[A]\r\nx=1\r\n", "[A]\r\nx=1\r\nx=1\r\nx=1\r\n"), QStringList());
        QCOMPARE(Esito("[A]\r\nx=1\r\n", "[A]\r\nx=1\r\n[A]\r\n[A]\r\n"), QStringList());
    }

    void duecentocinquantaseiCopieFinisconoIlProgramma()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\n", "[A]\r\n" + QByteArray("x=1\r\n").repeated(255)), QStringList());
        QCOMPARE(
            Numero_Errore([&] { Esito("[A]\r\nx=1\r\n", "[A]\r\n" + QByteArray("x=1\r\n").repeated(256)); }),
            6);
    }

    /// As many on the template's side, and of a section; a name that stands on one side only is not counted.
    void duecentocinquantaseiCopieDovunque()
    {
        const QByteArray chiavi = QByteArray("x=1\r\n").repeated(256),
                         teste = QByteArray("[A]\r\n").repeated(256);
        QCOMPARE(Numero_Errore([&] { Esito("[A]\r\n" + chiavi, "[A]\r\nx=1\r\n"); }), 6);
        QCOMPARE(Numero_Errore([&] { Esito("[A]\r\n", teste); }), 6);
        QCOMPARE(Numero_Errore([&] { Esito(teste, "[A]\r\n"); }), 6);
        QCOMPARE(Esito("[A]\r\ny=1\r\n", "[A]\r\n" + chiavi).size(), 257);
        QCOMPARE(Esito("[A]\r\n" + chiavi, "[A]\r\ny=1\r\n").size(), 257);
    }

    /// Thousands of small files give to the letter what every name held against every name gives.
    void comeIlConfrontoPianoELento()
    {
        QRandomGenerator caso(20);
        int conAnomalie = 0;
        for (int volta = 0; volta < 3000; ++volta) {
            const QByteArray modello = Testo_ACaso(caso), file = Testo_ACaso(caso);
            const QStringList attese =
                Struttura_Lenta(QString::fromLatin1(modello), QString::fromLatin1(file));
            QCOMPARE(Esito(modello, file), attese);
            QCOMPARE(m_ultimo, qint16(attese.size() - 1));
            conAnomalie += attese.size() > 3 && attese.constFirst().startsWith(u'2');
        }
        QVERIFY2(conAnomalie > 200, qPrintable(QString::number(conAnomalie)));
    }

    /// Sixteen bits of findings and no more.
    void piuDi16BitDiAnomalieFinisconoIlProgramma()
    {
        const QByteArray file = "[A]\r\n" + QByteArray(32760, '=');
        Confronta("[A]\r\na=\r\nb=\r\nc=\r\n", file);
        QCOMPARE(m_lista.size(), 32763);
        QCOMPARE(m_ultimo, qint16{32762});
        QByteArray modello = "[A]\r\n";
        for (int i = 0; i < 9; ++i)
            modello += "k" + QByteArray::number(i) + "=\r\n";
        QCOMPARE(Numero_Errore([&] { Confronta(modello, file); }), 6);
    }

    /// What a short file can say of itself must not fill the workstation: the names of a line share it, and a
    /// section that stands there many times is compared once.
    void leAnomalieNonCopianoIlTesto()
    {
        const QByteArray sezione = "[A]\r\n" + QByteArray(8000, '=') + "\r\n";
        Confronta("[A]\r\nx=\r\n", sezione + "[A]\r\n[A]\r\n");
        QCOMPARE(m_ultimo, qint16{3 * 8001 - 1});
        const QChar *riga = m_lista.at(1).Testo.Vista().data();
        for (qsizetype i = 0; i < m_lista.size(); ++i) {
            const QStringView testo = m_lista.at(i).Testo.Vista();
            if (i % 8001 == 0) {
                QCOMPARE(testo, QStringLiteral("x"));
            } else {
                QCOMPARE(testo.size(), i % 8001 - 1);
                QCOMPARE(testo.data(), riga);
            }
        }
    }

    void sezioneSenzaChiaviDaUnaParteNonDaNulla()
    {
        QCOMPARE(Esito("[A]\r\nx=1\r\ny=1\r\n", "[A]\r\n"), QStringList());
        QCOMPARE(Esito("[A]\r\n", "[A]\r\nx=1\r\n"), QStringList());
    }

    void ugualeNelValoreDaUnaEntryEstranea()
    {
        QCOMPARE(Esito("[A]\r\nNote=\r\n", "[A]\r\nNote=a=b\r\n"),
                 QStringList{QStringLiteral("2/1 [A] Note=a")});
    }

    /// Section by section in the order of the file; in each first what is missing or doubled, then what is
    /// foreign.
    void lOrdineDelleAnomalie()
    {
        QCOMPARE(Esito("[A]\r\na=\r\nb=\r\n[B]\r\nc=\r\nd=\r\n", "[B]\r\nk=\r\nc=\r\nc=\r\n[A]\r\nb=\r\n"),
                 (QStringList{QStringLiteral("2/3 [B] c"), QStringLiteral("2/2 [B] d"),
                              QStringLiteral("2/1 [B] k"), QStringLiteral("2/2 [A] a")}));
        QCOMPARE(m_ultimo, qint16{3});
    }

    void laListaSiRifaOgniVolta()
    {
        Esito("[A]\r\nx=1\r\n", "[B]\r\nx=1\r\n");
        QCOMPARE(Esito("[A]\r\nx=1\r\n", "[A]\r\nx=1\r\n"), QStringList());
    }

    void confrontaContinuaLaLista()
    {
        ListaAnomalie lista{
            {QStringLiteral("prima"), AnomaliaFile, AnomaliaNonIdoneo, {}}
        };
        qint16 ultimo = 0;
        QCOMPARE(Liste_Confronta({QStringLiteral("x")}, {QStringLiteral("x")}, AnomaliaEntry, ultimo, lista,
                                 QStringLiteral("A")),
                 qint16{-1});
        QCOMPARE(ultimo, qint16{0});
        QCOMPARE(Liste_Confronta({QStringLiteral("x")}, {QStringLiteral("y")}, AnomaliaEntry, ultimo, lista,
                                 QStringLiteral("A")),
                 qint16{2});
        QCOMPARE(ultimo, qint16{2});
        QCOMPARE(Testi_Di(lista), (QStringList{QStringLiteral("3/4 [] prima"), QStringLiteral("2/2 [A] x"),
                                               QStringLiteral("2/1 [A] y")}));
    }

    void chiaviDiSezione_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QStringList>("chiavi");
        const QStringList xy{QStringLiteral("x"), QStringLiteral("y")};
        QTest::newRow("fino alla prossima") << QStringLiteral("[A]\r\nx=1\r\ny=2\r\n[B]\r\nz=3\r\n") << xy;
        QTest::newRow("fino in fondo") << QStringLiteral("[B]\r\nz=3\r\n[A]\r\nx=1\r\ny=2") << xy;
        QTest::newRow("la prima con quel nome") << QStringLiteral("[A]\r\nx=1\r\ny=\r\n[A]\r\nz=2\r\n") << xy;
        QTest::newRow("nome esatto") << QStringLiteral(
                                            "[a]\r\nz=\r\n[AA]\r\nz=\r\n[A ]\r\nz=\r\n[A]\r\nx=\r\ny=\r\n")
                                     << xy;
        QTest::newRow("nessuna sezione") << QStringLiteral("[B]\r\nx=1\r\n") << QStringList();
        QTest::newRow("testo vuoto") << QString() << QStringList();
        QTest::newRow("sezione senza chiavi")
            << QStringLiteral("[A]\r\nabc\r\n[B]\r\nx=\r\n") << QStringList();
        QTest::newRow("testa aperta due volte") << QStringLiteral("[A[A]\r\nx=\r\ny=\r\n") << xy;
        QTest::newRow("parentesi mai chiusa non ferma") << QStringLiteral("[A]\r\nx=\r\n[B\r\ny=\r\n") << xy;
        // What stands behind a head is looked through from its "]" on, up to the next head and no further.
        QTest::newRow("teste sulla stessa riga") << QStringLiteral("[B][A]\r\nx=\r\ny=\r\n[A]z=\r\n") << xy;
        QTest::newRow("parentesi chiusa davanti") << QStringLiteral("]z=[A]\r\nx=\r\ny=\r\n[B]z=\r\n") << xy;
        QTest::newRow("parentesi chiusa due volte")
            << QStringLiteral("[B]A]\r\nz=\r\n[A]\r\nx=\r\ny=\r\n") << xy;
        QTest::newRow("parentesi chiusa da sola") << QStringLiteral("[A]\r\nx=]\r\ny=\r\n") << xy;
        QTest::newRow("bianchi nel nome")
            << QStringLiteral("[A]\r\n x =1\r\n") << QStringList{QStringLiteral(" x ")};
        // A profile read does not find an entry on the head's own line: it must not pass for one here.
        QTest::newRow("sulla riga della testa")
            << QStringLiteral("[A]x=1\r\ny=\r\n") << QStringList{QStringLiteral("]x"), QStringLiteral("y")};
    }
    void chiaviDiSezione()
    {
        QFETCH(QString, testo);
        QFETCH(QStringList, chiavi);
        QCOMPARE(Chiavi_Di(testo, QStringLiteral("A")), chiavi);
    }
};

QTEST_GUILESS_MAIN(tst_controllo_struttura)
#include "tst_controllo_struttura.moc"
