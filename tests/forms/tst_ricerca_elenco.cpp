// What is typed on a list, on a clock of the test's own. What is found is the worklist's business.
#include "toolkit/ricerca_elenco.h"

#include "tests/comuni/orologio_prova.h"
#include "tests/forms/modulo_prova.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/elenco_voci.h"

class tst_ricerca_elenco : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        orologio = std::make_unique<OrologioProva>();
        modulo = Nuovo<ModuloProva>();
        modulo->AlDisegno = [this] {
            lista = std::make_unique<ElencoVoci>(modulo->Finestra(), QStringLiteral("lst"));
            lista->AddItem(QStringLiteral("uno"));
            ricerca = std::make_unique<RicercaElenco>(*lista);
        };
        modulo->Mostra();
        QVERIFY(Attiva(*modulo));
    }
    void cleanup()
    {
        ricerca.reset();
        lista.reset();
        Scarica_Tutti();
        modulo.reset();
        orologio.reset();
    }

    void dimenticatoDopoLaPausa()
    {
        int volte = 0;
        ricerca->Cambiata = [&volte] { ++volte; };
        QTest::keyClicks(lista->Widget(), QStringLiteral("ab"));
        QCOMPARE(ricerca->Testo(), QStringLiteral("AB"));
        orologio->Avanza(PAUSA_RICERCA - 1);
        QCOMPARE(ricerca->Testo(), QStringLiteral("AB"));
        orologio->Avanza(1);
        QCOMPARE(ricerca->Testo(), QString());
        QCOMPARE(volte, 3);
    }

    void senzaNessunoLaFrecciaVaDiUnaRiga()
    {
        QTest::keyClicks(lista->Widget(), QStringLiteral("a"));
        QTest::keyClick(lista->Widget(), Qt::Key_Down);
        QCOMPARE(lista->ListIndex(), 0);
    }

    /// Whoever is told may take the form away, search and all, and goes on with what it holds.
    void chiAscoltaPuoScaricareTutto_data()
    {
        QTest::addColumn<bool>("conLaFreccia");
        QTest::newRow("typing") << false;
        QTest::newRow("arrow") << true;
    }
    void chiAscoltaPuoScaricareTutto()
    {
        QFETCH(bool, conLaFreccia);
        QStringList letti;
        const QString segno = QStringLiteral("captured by value, on the heap of the closure");
        const auto scarica = [this, &letti, segno] {
            modulo->Scarica();
            ricerca.reset();
            lista.reset();
            letti.append(segno);
        };
        if (conLaFreccia) {
            ricerca->Freccia = [scarica](bool) {
                scarica();
                return true;
            };
        } else {
            ricerca->Cambiata = scarica;
        }
        QWidget *widget = lista->Widget();
        QTest::keyClick(widget, Qt::Key_A);
        if (conLaFreccia)
            QTest::keyClick(widget, Qt::Key_Down);
        QCOMPARE(letti, QStringList{segno});
        orologio->Avanza(PAUSA_RICERCA); // nothing is left that could wake
    }

private:
    std::unique_ptr<OrologioProva> orologio;
    std::shared_ptr<ModuloProva> modulo;
    std::unique_ptr<ElencoVoci> lista;
    std::unique_ptr<RicercaElenco> ricerca;
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_ricerca_elenco>(argc, argv);
}

#include "tst_ricerca_elenco.moc"
