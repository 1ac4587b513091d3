// The window of the simulated instrument: what a teacher does in it, by keys and by mouse, comes out of the
// instrument, and what the station does shows in it.
#include "simulatore/finestra.h"

#include "tests/simulatore/byte_prova.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

constexpr char DUE_VEICOLI[] = "[VEICOLO1]\nRiposo=1\nProva=1\nAnabSx=0123OO\nAbbDx=\"0456# \"\n"
                               "[VEICOLO2]\nRiposo=1\nProva=1\nAnabSx=0321AS\n";

constexpr Lingua LINGUE[] = {Lingua::Italiano, Lingua::Francese, Lingua::Inglese, Lingua::Spagnolo,
                             Lingua::Tedesco};

} // namespace

class tst_finestra_qx5 : public QObject
{
    Q_OBJECT

    void Apri(const QByteArray &scenario = DUE_VEICOLI, Lingua lingua = Lingua::Italiano);
    template <typename T>
    T *Parte(const QString &nome) const
    {
        return m_finestra->findChild<T *>(nome);
    }
    void Clicca(const QString &nome) const
    {
        auto *bottone = Parte<QAbstractButton>(nome);
        QTest::mouseClick(bottone, Qt::LeftButton, {}, QPoint(8, bottone->height() / 2));
    }
    void Premi(const QString &nome, Qt::Key tasto) const
    {
        Parte<QWidget>(nome)->setFocus();
        QTest::keyClick(Parte<QWidget>(nome), tasto);
    }
    QByteArray Chiedi(const QByteArray &comando) const
    {
        QByteArray risposta;
        for (const Invio &invio : m_strumento->Ricevi(comando))
            risposta += invio.byte;
        return risposta;
    }
    QString Stato_Mostrato() const
    {
        for (int i = 0; i < 3; ++i) {
            if (Parte<QRadioButton>(QStringLiteral("stato_%1").arg(i))->isChecked())
                return QString::number(i);
        }
        return QStringLiteral("nessuno");
    }

    QTemporaryDir m_cartella;
    std::unique_ptr<FinestraQx5> m_finestra;
    std::unique_ptr<Strumento> m_strumento;

private Q_SLOTS:
    void cleanup()
    {
        m_finestra.reset();
        m_strumento.reset();
    }

    void statoSegueLeInterrogazioni();
    void statoSceltoColMouse();
    void statoSceltoConLaTastiera();
    void nonAvanzaDaSolo();
    void valoriDelVeicoloMostrati();
    void cursoreConLaTastiera();
    void cifraScritta();
    void cifraOltreIlCursore();
    void miraConLaTastiera();
    void caratteriEstraneiRestano();
    void valoriNonTenuti();
    void guastoAcceso();
    void guastoDiUnSoloComando();
    void trameMostrate();
    void avvisoPoiFine();
    void tuttoConTab();
    void nomiAccessibili();
    void entraNelloSchermo();
    void linguaDallaSigla();
};

void tst_finestra_qx5::Apri(const QByteArray &scenario, Lingua lingua)
{
    const QString percorso = m_cartella.filePath(QStringLiteral("scenario.ini"));
    QFile file(percorso);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(scenario), scenario.size());
    file.close();
    m_finestra = std::make_unique<FinestraQx5>(lingua);
    m_strumento = std::make_unique<Strumento>(
        percorso, m_cartella.filePath(QStringLiteral("stato.ini")), 1U, [this](const QString &riga) {
            m_finestra->Annota(QStringLiteral("2024-03-15 10:20:30.118 ") + riga);
        });
    m_finestra->Comincia(*m_strumento, QStringLiteral("/dev/pts/7"));
    m_finestra->show();
    QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
}

void tst_finestra_qx5::statoSegueLeInterrogazioni()
{
    Apri();
    QCOMPARE(Stato_Mostrato(), QStringLiteral("0"));
    Chiedi(STATO);
    Chiedi(STATO);
    QTRY_COMPARE(Stato_Mostrato(), QStringLiteral("1"));
    Chiedi(STATO);
    QTRY_COMPARE(Stato_Mostrato(), QStringLiteral("2"));
    Chiedi(MISURA);
    Chiedi(STATO);
    QTRY_COMPARE(Stato_Mostrato(), QStringLiteral("0"));
}

void tst_finestra_qx5::statoSceltoColMouse()
{
    Apri();
    Clicca(QStringLiteral("stato_2"));
    QCOMPARE(Chiedi(STATO), PRONTA);
    QTRY_COMPARE(Stato_Mostrato(), QStringLiteral("2"));
    Clicca(QStringLiteral("stato_0"));
    QCOMPARE(Chiedi(STATO), A_RIPOSO);
}

void tst_finestra_qx5::statoSceltoConLaTastiera()
{
    Apri();
    Premi(QStringLiteral("stato_0"), Qt::Key_Right);
    QCOMPARE(m_strumento->Stato(), StatoStrumento::Prova);
}

void tst_finestra_qx5::nonAvanzaDaSolo()
{
    Apri();
    Premi(QStringLiteral("daSolo"), Qt::Key_Space);
    for (int n = 0; n < 5; ++n)
        QCOMPARE(Chiedi(STATO), A_RIPOSO);
    Clicca(QStringLiteral("stato_1"));
    for (int n = 0; n < 5; ++n)
        QCOMPARE(Chiedi(STATO), IN_PROVA);
    Premi(QStringLiteral("daSolo"), Qt::Key_Space);
    QCOMPARE(Chiedi(STATO), PRONTA);
}

void tst_finestra_qx5::valoriDelVeicoloMostrati()
{
    Apri();
    QCOMPARE(Parte<QSpinBox>(QStringLiteral("cifra_AnabSx"))->value(), 123);
    QCOMPARE(Parte<QSpinBox>(QStringLiteral("cifra_AnabSx"))->text(), QStringLiteral("12300 lux"));
    QCOMPARE(Parte<QSlider>(QStringLiteral("cursore_AnabSx"))->value(), 123);
    QCOMPARE(Parte<QComboBox>(QStringLiteral("verticale_AnabSx"))->currentText(), QStringLiteral("Regolare"));
    m_strumento->Stato_Imposta(StatoStrumento::Pronta);
    Chiedi(MISURA);
    Chiedi(STATO);
    QTRY_COMPARE(Parte<QSpinBox>(QStringLiteral("cifra_AnabSx"))->value(), 321);
    QCOMPARE(Parte<QComboBox>(QStringLiteral("verticale_AnabSx"))->currentText(),
             QStringLiteral("Troppo alto"));
    QCOMPARE(Parte<QComboBox>(QStringLiteral("orizzontale_AnabSx"))->currentText(),
             QStringLiteral("A sinistra"));
    QVERIFY(!Parte<QCheckBox>(QStringLiteral("tieni"))->isChecked());
}

void tst_finestra_qx5::cursoreConLaTastiera()
{
    Apri();
    Premi(QStringLiteral("cursore_AnabSx"), Qt::Key_Right);
    QCOMPARE(m_strumento->Record()[0], QByteArray("0124OO"));
    Premi(QStringLiteral("cursore_AnabSx"), Qt::Key_PageUp);
    QCOMPARE(m_strumento->Record()[0], QByteArray("0174OO"));
    QVERIFY(Parte<QCheckBox>(QStringLiteral("tieni"))->isChecked());
    // The next vehicle too.
    m_strumento->Stato_Imposta(StatoStrumento::Pronta);
    Chiedi(MISURA);
    Chiedi(STATO);
    QCOMPARE(m_strumento->Record()[0], QByteArray("0174OO"));
}

void tst_finestra_qx5::cifraScritta()
{
    Apri();
    auto *cifra = Parte<QSpinBox>(QStringLiteral("cifra_AbbSx"));
    cifra->setFocus();
    cifra->selectAll();
    QTest::keyClicks(cifra, QStringLiteral("1500"));
    QTest::keyClick(cifra, Qt::Key_Tab);
    QCOMPARE(m_strumento->Record()[1], QByteArray("1500OO"));
    QCOMPARE(Parte<QSlider>(QStringLiteral("cursore_AbbSx"))->value(), 1500);
}

void tst_finestra_qx5::cifraOltreIlCursore()
{
    Apri("[VEICOLO1]\nAnabDx=9999OO\n");
    auto *cifra = Parte<QSpinBox>(QStringLiteral("cifra_AnabDx"));
    QCOMPARE(cifra->value(), 9999);
    Premi(QStringLiteral("cifra_AnabDx"), Qt::Key_Down);
    QCOMPARE(m_strumento->Record()[2], QByteArray("9998OO"));
    auto *cursore = Parte<QSlider>(QStringLiteral("cursore_AnabDx"));
    QCOMPARE(cursore->value(), cursore->maximum());
}

void tst_finestra_qx5::miraConLaTastiera()
{
    Apri();
    Premi(QStringLiteral("verticale_AnabSx"), Qt::Key_Down);
    QCOMPARE(m_strumento->Record()[0], QByteArray("0123AO"));
    Premi(QStringLiteral("orizzontale_AnabSx"), Qt::Key_End);
    QCOMPARE(m_strumento->Record()[0], QByteArray("0123AD"));
}

void tst_finestra_qx5::caratteriEstraneiRestano()
{
    Apri("[VEICOLO1]\nAbbDx=\"0456# \"\n");
    QCOMPARE(Parte<QComboBox>(QStringLiteral("verticale_AbbDx"))->currentText(), QStringLiteral("\"#\""));
    Premi(QStringLiteral("cursore_AnabSx"), Qt::Key_Right);
    QCOMPARE(m_strumento->Record()[3], QByteArray("0456# "));
}

void tst_finestra_qx5::valoriNonTenuti()
{
    Apri();
    Premi(QStringLiteral("cursore_AnabSx"), Qt::Key_Right);
    Clicca(QStringLiteral("tieni"));
    m_strumento->Stato_Imposta(StatoStrumento::Pronta);
    QVERIFY(Chiedi(MISURA).contains("0124OO"));
    Chiedi(STATO);
    QCOMPARE(m_strumento->Record()[0], QByteArray("0321AS"));
}

void tst_finestra_qx5::guastoAcceso()
{
    Apri();
    Clicca(QStringLiteral("guasto_silenzio"));
    QCOMPARE(Chiedi(STATO), QByteArray());
    QCOMPARE(Chiedi(LEGGI_DATI), QByteArray());
    Clicca(QStringLiteral("guasto_silenzio"));
    QVERIFY(!Chiedi(STATO).isEmpty());
}

void tst_finestra_qx5::guastoDiUnSoloComando()
{
    Apri();
    Clicca(QStringLiteral("guasto_controllo"));
    Premi(QStringLiteral("comando_controllo"), Qt::Key_Down); // from all of them to the first
    QCOMPARE(Chiedi(STATO), Byte("02 41 42 43 31 30 03"));
    const QByteArray dati = Chiedi(LEGGI_DATI);
    QCOMPARE(Trama_Controllata(dati), dati);
    Premi(QStringLiteral("comando_controllo"), Qt::Key_Up);
    QVERIFY(Trama_Controllata(dati) != Chiedi(LEGGI_DATI));
}

void tst_finestra_qx5::trameMostrate()
{
    Apri();
    Chiedi(STATO);
    auto *trame = Parte<QPlainTextEdit>(QStringLiteral("trame"));
    QVERIFY(trame->toPlainText().endsWith(QStringLiteral("10:20:30.118 <- 02 41 42 43 10 36 03  Stato")));
    QVERIFY(!trame->toPlainText().contains(QStringLiteral("2024")));
    QVERIFY(m_finestra->windowTitle().contains(QStringLiteral("/dev/pts/7")));
    const QString prima = trame->toPlainText();
    Premi(QStringLiteral("trame"), Qt::Key_X);
    QCOMPARE(trame->toPlainText(), prima);
}

void tst_finestra_qx5::avvisoPoiFine()
{
    Apri();
    bool finita = false;
    m_finestra->Avvisa(QStringLiteral("il dispositivo non c'è più"), [&finita] { finita = true; });
    auto *avviso = m_finestra->findChild<QMessageBox *>();
    QVERIFY(avviso != nullptr && avviso->isVisible());
    QCOMPARE(avviso->text(), QStringLiteral("il dispositivo non c'è più"));
    QVERIFY(!finita);
    QTest::keyClick(avviso->button(QMessageBox::Ok), Qt::Key_Space);
    QTRY_VERIFY(finita);
}

/// Each control once, in the order in which the window is read, and round again.
void tst_finestra_qx5::tuttoConTab()
{
    Apri();
    // Of the three states the one that holds is reached, the others by its arrows.
    QStringList attesi = {QStringLiteral("stato_0"), QStringLiteral("daSolo")};
    for (const char16_t *record : NOMI_RECORD) {
        for (const char16_t *parte : {u"cursore_", u"cifra_", u"verticale_", u"orizzontale_"})
            attesi.append(QString::fromUtf16(parte) + QString::fromUtf16(record));
    }
    attesi.append(QStringLiteral("tieni"));
    for (const TipoGuasto tipo : Guasti_Tutti())
        attesi +=
            {QStringLiteral("guasto_") + Guasto_Nome(tipo), QStringLiteral("comando_") + Guasto_Nome(tipo)};
    attesi += {QStringLiteral("trame"), QStringLiteral("stato_0")};

    qsizetype daRaggiungere = 0;
    for (const QWidget *controllo : m_finestra->findChildren<QWidget *>()) {
        const QString nome = controllo->objectName();
        daRaggiungere += !nome.isEmpty() && (controllo->focusPolicy() & Qt::TabFocus) != 0 &&
                         !nome.startsWith(u"qt_") && !nome.startsWith(u"stato_");
    }
    QCOMPARE(attesi.size(), daRaggiungere + 2); // no control that this list does not know
    QStringList raggiunti;
    Parte<QRadioButton>(QStringLiteral("stato_0"))->setFocus();
    for (qsizetype n = 0; n < attesi.size(); ++n) {
        raggiunti.append(m_finestra->focusWidget()->objectName());
        QTest::keyClick(m_finestra->focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(raggiunti, attesi);
}

void tst_finestra_qx5::nomiAccessibili()
{
    for (const Lingua lingua : LINGUE) {
        Apri(DUE_VEICOLI, lingua);
        QSet<QString> nomi;
        for (QWidget *controllo : m_finestra->findChildren<QWidget *>()) {
            if (controllo->objectName().isEmpty() || controllo->objectName().startsWith(u"qt_"))
                continue;
            QAccessibleInterface *accessibile = QAccessible::queryAccessibleInterface(controllo);
            // The name of a combo box may be what is chosen in it.
            const auto testo = qobject_cast<QComboBox *>(controllo) != nullptr ? QAccessible::Description
                                                                               : QAccessible::Name;
            const QString nome = accessibile->text(testo);
            QVERIFY2(!nome.isEmpty(), qUtf8Printable(controllo->objectName()));
            // Slider and figure are two ways to one value.
            if (!controllo->objectName().startsWith(u"cifra_")) {
                QVERIFY2(!nomi.contains(nome), qUtf8Printable(nome));
                nomi.insert(nome);
            }
        }
        cleanup();
    }
}

void tst_finestra_qx5::entraNelloSchermo()
{
    for (const Lingua lingua : LINGUE) {
        Apri(DUE_VEICOLI, lingua);
        const QSize minima = m_finestra->minimumSizeHint();
        QVERIFY2(minima.width() <= 1010 && minima.height() <= 700 && m_finestra->width() <= 1010,
                 qUtf8Printable(QStringLiteral("%1x%2").arg(minima.width()).arg(minima.height())));
        cleanup();
    }
}

void tst_finestra_qx5::linguaDallaSigla()
{
    QCOMPARE(Lingua_Scelta(QStringLiteral("IT")), Lingua::Italiano);
    QCOMPARE(Lingua_Scelta(QStringLiteral("FR")), Lingua::Francese);
    QCOMPARE(Lingua_Scelta(QStringLiteral("EN")), Lingua::Inglese);
    QCOMPARE(Lingua_Scelta(QStringLiteral("ES")), Lingua::Spagnolo);
    QCOMPARE(Lingua_Scelta(QStringLiteral("DE")), Lingua::Tedesco);
    // A word whose translations differ in each of the five.
    QSet<QString> testi;
    for (const Lingua lingua : LINGUE)
        testi.insert(Testo(Parola::StatoRiposo, lingua));
    QCOMPARE(testi.size(), 5);
}

QTEST_MAIN(tst_finestra_qx5)
#include "tst_finestra_qx5.moc"
