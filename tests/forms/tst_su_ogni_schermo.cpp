// The layout of the forms that scale with the screen, on every screen of a workshop: what their own tests
// hold on the present one, each in a process of its own.
#include "tests/forms/figlio_prova.h"
#include "tests/forms/principale_prova.h"

#include <QTest>

class tst_su_ogni_schermo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frmEsito_data() { Righe_PerSchermo(); }
    void frmEsito()
    {
        Prova(QStringLiteral("tst_frmEsito"),
              {QStringLiteral("postiDellaTabella"), QStringLiteral("postiDelVerdettoEDelFaro"),
               QStringLiteral("pulsanti"), QStringLiteral("corniciDipinte")});
    }

    void frmMctc2_data() { Righe_PerSchermo(); }
    void frmMctc2()
    {
        Prova(QStringLiteral("tst_frmMctc2"),
              {QStringLiteral("postiSullaGriglia"), QStringLiteral("etichetteScalateInOrizzontale")});
    }

    void frmMctcO_data() { Righe_PerSchermo(); }
    void frmMctcO()
    {
        Prova(QStringLiteral("tst_frmMctcO"),
              {QStringLiteral("corniciDipinte"), QStringLiteral("righeNelleCornici"),
               QStringLiteral("targheIntere"), QStringLiteral("didascalieAccantoAlleCaselle")});
    }

private:
    static void Prova(const QString &programma, const QStringList &funzioni)
    {
        QFETCH(QSize, schermo);
        const EsitoFiglio esito = Vicino_Esegui(programma, funzioni, schermo);
        QVERIFY2(esito.Buono(), qPrintable(esito.Racconto()));
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_su_ogni_schermo>(argc, argv);
}
#include "tst_su_ogni_schermo.moc"
