#include "setup/frmCartella.h"

#include "core/modGeneral.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/principale_prova.h"

#include <QDir>
#include <QListWidget>

class tst_frmCartella : public QObject
{
    Q_OBJECT

private:
    /// @param nome of a folder of the station, made if need be.
    QString Cartella(const char *nome) const
    {
        const QString cartella = QString::fromLatin1(nome);
        QDir().mkpath(banco->Stazione.Nativo(cartella));
        return banco->Stazione.Percorso(cartella);
    }
    void Apri(const QString &da)
    {
        form = Nuovo<frmCartella>();
        form->Cartella = da;
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    QListWidget *Lista() const { return Widget_Di<QListWidget>(*form, "lstCartelle"); }
    QStringList Voci() const
    {
        QStringList voci;
        for (int i = 0; i < Lista()->count(); ++i)
            voci.append(Lista()->item(i)->text());
        return voci;
    }
    void Indica(const QString &nome)
    {
        const auto voci = Lista()->findItems(nome, Qt::MatchExactly);
        QCOMPARE(voci.size(), 1);
        QTest::mouseClick(Lista()->viewport(), Qt::LeftButton, {},
                          Lista()->visualItemRect(voci.first()).center());
    }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmCartella> form;

private Q_SLOTS:
    void init() { banco = std::make_unique<BancoForm>(); }
    void cleanup()
    {
        banco.reset();
        form.reset();
    }

    /// Folders alone, and the way up.
    void cartelleDiUnaCartella()
    {
        const QString radice = Cartella("rete");
        Cartella("rete\\uno");
        Cartella("rete\\due");
        Cartella("rete\\.nascosta");
        banco->Stazione.Scrivi(QStringLiteral("rete\\file.acc"), "x");
        Apri(radice);
        QCOMPARE(Voci(), QStringList({QStringLiteral(".."), QStringLiteral("due"), QStringLiteral("uno")}));
        QCOMPARE(Testo_Di(*form, "lbl_0"), radice + u'\\');
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(274)));
        QCOMPARE(Testo_Di(*form, "lblTitolo"), Testo_Mctc(Id_Mctc(274)));
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("Ok"));
        QCOMPARE(Testo_Di(*form, "cmd_1"), Testo_Mctc(Id_Mctc(106)));
        QCOMPARE(Testo_Di(*form, "cmd_2"), Testo_Mctc(Id_Mctc(275)));
    }

    /// A path has no blanks: it goes on in the next line wherever the first one ends.
    void percorsoSuPiuRighe()
    {
        const QString nome = QString(150, u'A');
        const QString lungo = Cartella(nome.toLatin1().constData());
        Apri(lungo);
        QCOMPARE(Testo_Di(*form, "lbl_0"), lungo + u'\\');
        const QWidget *percorso = Widget_Di(*form, "lbl_0");
        QVERIFY(percorso->fontMetrics().horizontalAdvance(nome) > percorso->width());
        QVERIFY(form->lbl[0].Entra());
    }

    void sceltaDiUnaVoce()
    {
        const QString radice = Cartella("rete");
        Cartella("rete\\uno");
        Apri(radice);
        Indica(QStringLiteral("uno"));
        QCOMPARE(Testo_Di(*form, "lbl_0"), radice + QStringLiteral("\\uno\\"));
        Premi(*form, "cmd_0");
        QVERIFY(!form->Caricato());
        QCOMPARE(form->Scelta, Vero);
        QCOMPARE(form->Cartella, radice + QStringLiteral("\\uno\\"));
    }

    /// Without a line chosen the folder itself is meant.
    void sceltaDellaCartellaStessa()
    {
        Apri(Cartella("rete"));
        Premi(*form, "cmd_0");
        QCOMPARE(form->Cartella, banco->Stazione.Percorso(QStringLiteral("rete")) + u'\\');
    }

    void giuESu()
    {
        const QString radice = Cartella("rete");
        Cartella("rete\\uno\\dentro");
        Apri(radice);
        Indica(QStringLiteral("uno"));
        Premi(*form, "cmd_2");
        QCOMPARE(Voci(), QStringList({QStringLiteral(".."), QStringLiteral("dentro")}));
        Indica(QStringLiteral(".."));
        QCOMPARE(Testo_Di(*form, "lbl_0"), radice + u'\\');
        Premi(*form, "cmd_2");
        QVERIFY(Voci().contains(QStringLiteral("uno")));
    }

    /// With the keys alone: an arrow names a folder, Enter opens it, Escape leaves.
    void conITasti()
    {
        const QString radice = Cartella("rete");
        Cartella("rete\\uno\\dentro");
        Apri(radice);
        QTest::keyClick(Lista(), Qt::Key_Down);
        QTest::keyClick(Lista(), Qt::Key_End);
        QTest::keyClick(Lista(), Qt::Key_Return);
        QVERIFY(Voci().contains(QStringLiteral("dentro")));
        QTest::keyClick(Lista(), Qt::Key_Escape);
        QVERIFY(!form->Caricato());
        QCOMPARE(form->Scelta, Falso);
        QCOMPARE(form->Cartella, radice); // as it was given
    }

    /// Above all folders are the drives, which are none themselves; so begins a path that does not exist.
    void unitaDisco()
    {
        for (const QString &da : {QString(), banco->Stazione.Percorso(QStringLiteral("manca"))}) {
            Apri(da);
            QVERIFY(!Voci().isEmpty() && !Voci().contains(QStringLiteral("..")));
            QVERIFY(!Abilitato(*form, "cmd_0"));
            Indica(Voci().first());
            QVERIFY(Abilitato(*form, "cmd_0"));
            Premi(*form, "cmd_2");
            Indica(QStringLiteral(".."));
            QVERIFY(!Abilitato(*form, "cmd_0"));
            Premi(*form, "cmd_2");
            QVERIFY(!Voci().contains(QStringLiteral("..")));
            form->Scarica();
        }
    }

    /// A share is a drive of its own: what stands above it is no folder.
    void sopraUnaCartellaCondivisa()
    {
        // Two backslashes, server and share: on Debian the first two folders on the way to the station in
        // another spelling, wherever temporary files lie; on Windows the share that a machine of the tests
        // has.
        const QString stazione = banco->Stazione.Percorso(QString());
        const QString condivisa = stazione.contains(u':') ? QStringLiteral("\\\\localhost\\condivisa\\")
                                                          : u'\\' + stazione.section(u'\\', 0, 2) + u'\\';
        QCOMPARE(condivisa.count(u'\\'), 4);
        Apri(condivisa);
        QVERIFY(Voci().size() > 1); // ".." and what the share holds
        Indica(QStringLiteral(".."));
        QVERIFY(!Abilitato(*form, "cmd_0"));
        Premi(*form, "cmd_2");
        QVERIFY(!Voci().contains(QStringLiteral("..")));
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmCartella>(argc, argv);
}

#include "tst_frmCartella.moc"
