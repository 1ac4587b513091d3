// How every form looks on every screen and in every language: nothing cut, nothing on top of another, all to
// be read. Each size of screen is a process of its own.
#include "core/modGeneral.h"
#include "platform/percorsi.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/difetti_prova.h"
#include "tests/forms/figlio_prova.h"
#include "tests/forms/modulo_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/scene_prova.h"

#include <QImageReader>

#include <cstdio>
#include <functional>
#include <memory>

namespace {

/// What lies on each other because the rules place it so.
constexpr Sovrapposti VOLUTI[] = {
    {"frmAbout", "lblAbout_1", "lblAbout_2", "tops and heights of the lines are given"           },
    {"frmComm",  "Image1",     "*",          "the picture is the ground of the form"             },
    {"frmMain",  "imgLogo",    "lblAvviso",  "the notice stands on the picture"                  },
    {"frmMctc2", "lbl_12",     "lbl_13",     "their width is given, also for the smallest screen"},
    {"frmMctc2", "lbl_13",     "lbl_14",     "their width is given, also for the smallest screen"},
    {"frmMsg",   "Shape1",     "*",          "the border stands round everything"                },
    {"frmMsg",   "lbl_0",      "lblTitolo",  "the text's place is round the form's own middle"   },
};

/// Pictures and the files that they come from.
struct Figura
{
    const char *modulo;
    const char *controllo;
    const char16_t *file;
};

constexpr Figura FIGURE[] = {
    {"frmMain",  "imgLogo", u"splash_kp_net.jpg"},
    {"frmMctc2", "picSim",  u"faro0.jpg"        },
    {"frmMctc2", "picSim",  u"faro1.jpg"        },
};

/// A picture shown larger than it was drawn is no longer crisp.
QStringList Figure_Ingrandite(const Modulo &modulo)
{
    QStringList ingrandite;
    for (const Figura &figura : FIGURE) {
        if (modulo.objectName() != QLatin1String(figura.modulo))
            continue;
        const QSize mostrata = Widget_Di<QLabel>(modulo, figura.controllo)->pixmap().size();
        const QString file = gDirImmagini + QString::fromUtf16(figura.file);
        const QSize disegnata = QImageReader(Percorso_Nativo(file)).size();
        if (mostrata.isEmpty() || mostrata.boundedTo(disegnata) != mostrata)
            ingrandite.append(QStringLiteral("%1: enlarged").arg(QString::fromUtf16(figura.file)));
    }
    return ingrandite;
}

/// The child process: one line a fault, then how many scenes were seen.
void Racconta()
{
    int viste = 0;
    for (const char *lingua : LINGUE_SCENE) {
        Scene_Percorri(QString::fromLatin1(lingua), [&](const QString &scena, const Modulo &modulo) {
            ++viste;
            for (const QString &difetto : Difetti_Di(modulo, VOLUTI) + Figure_Ingrandite(modulo))
                std::printf("%s, %s: %s\n", lingua, qPrintable(scena), qPrintable(difetto));
        });
    }
    std::printf("%d\n", viste);
}

} // namespace

class tst_schermate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void guastiSiVedono_data();
    void guastiSiVedono();
    void volutiNonSonoGuasti();
    void difetti_data();
    void difetti();
};

// --- the judge --------------------------------------------------------------------------------------------

namespace {

using Guasto = std::function<void(ModuloProva &)>;

void Colora(const Controllo &controllo)
{
    controllo.Widget()->setStyleSheet(QStringLiteral("color: #808080; background: #c0c0c0; border: none;"));
}

/// A form that is in order.
std::shared_ptr<ModuloProva> Modulo_Sano()
{
    auto modulo = std::make_shared<ModuloProva>();
    modulo->AlDisegno = [m = modulo.get()] {
        m->lbl.Carica(0).Posto(300, 300, 3000, 300);
        m->txt.Carica(0).Posto(300, 900, 3000, 330);
        m->cbo.Carica(0).Posto(300, 1500, 3000, 330);
        m->cmd.Carica(0).Posto(300, 2100, 1500, 600);
        m->cmd.Carica(1).Posto(2100, 2100, 1500, 600);
        m->lbl[0].Caption(QStringLiteral("Targa e telaio"));
        m->txt[0].Text(QStringLiteral("AB123CD, e un telaio che dalla casella esce"));
        m->cbo[0].AddItem(QStringLiteral("Deviazione orizzontale"));
        m->cbo[0].ListIndex(0);
        m->cmd[0].Caption(QStringLiteral("Esci"));
        m->cmd[1].Caption(QStringLiteral("Conferma"));
        for (Controllo *controllo :
             {static_cast<Controllo *>(&m->lbl[0]), static_cast<Controllo *>(&m->txt[0]),
              static_cast<Controllo *>(&m->cbo[0]), static_cast<Controllo *>(&m->cmd[0]),
              static_cast<Controllo *>(&m->cmd[1])})
            controllo->Visible(true);
    };
    modulo->AlPaint = [m = modulo.get()] { m->Linea(210, 150, 210, 3000); };
    return modulo;
}

} // namespace

void tst_schermate::guastiSiVedono_data()
{
    QTest::addColumn<QString>("difetto");
    QTest::addColumn<Guasto>("guasto");
    const auto riga = [](const char *nome, const char *difetto, const Guasto &guasto) {
        QTest::newRow(nome) << QString::fromLatin1(difetto) << guasto;
    };
    using M = ModuloProva;
    riga("nessuno", "", [](M &) {});
    riga("etichetta stretta", "lbl_0: cut", [](M &m) { m.lbl[0].Widget()->resize(40, 20); });
    riga("etichetta bassa", "lbl_0: cut", [](M &m) { m.lbl[0].Widget()->resize(200, 7); });
    riga("pulsante stretto", "cmd_1: cut", [](M &m) { m.cmd[1].Widget()->resize(45, 40); });
    riga("combo stretta", "cbo_0: cut", [](M &m) { m.cbo[0].Widget()->resize(120, 22); });
    riga("casella bassa", "txt_0: cut", [](M &m) { m.txt[0].Widget()->resize(200, 11); });
    riga("uno sull'altro", "cmd_1: lies on cmd_0", [](M &m) { m.cmd[1].Left(1785); });
    riga("oltre il bordo", "cmd_1: outside its form", [](M &m) { m.cmd[1].Top(m.Height() - 585); });
    riga("oltre lo schermo", "frmProva: off the screen", [](M &m) { m.Sposta(-150, 0); });
    riga("etichetta grigia", "lbl_0: contrast", [](M &m) { Colora(m.lbl[0]); });
    riga("casella grigia", "txt_0: contrast", [](M &m) { Colora(m.txt[0]); });
    riga("combo grigia", "cbo_0: contrast", [](M &m) { Colora(m.cbo[0]); });
    riga("pulsante grigio", "cmd_0: contrast", [](M &m) { Colora(m.cmd[0]); });
    riga("pulsante grigio e spento", "", [](M &m) {
        Colora(m.cmd[0]);
        m.cmd[0].Enabled(false);
    });
    riga("lettere minute", "lbl_0: type of 7 pixels", [](M &m) { m.lbl[0].FontSize(5); });
    riga("cornice nel testo", "lbl_0: a frame runs through it", [](M &m) { m.lbl[0].Left(195); });
    riga("pulsante basso", "cmd_0: a target of 23 pixels", [](M &m) { m.cmd[0].Height(345); });
}

void tst_schermate::guastiSiVedono()
{
    QFETCH(QString, difetto);
    QFETCH(Guasto, guasto);
    const auto modulo = Modulo_Sano();
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    guasto(*modulo);
    const QStringList difetti = Difetti_Di(*modulo);
    QCOMPARE(difetti.size(), difetto.isEmpty() ? 0 : 1);
    QVERIFY2(difetto.isEmpty() || difetti.first().startsWith(difetto), qPrintable(difetti.join(u'\n')));
    Scarica_Tutti();
}

// Places may meet on purpose, texts may not.
void tst_schermate::volutiNonSonoGuasti()
{
    constexpr Sovrapposti VOLUTO[] = {
        {"frmProva", "cmd_0", "cmd_1", ""}
    };
    const auto modulo = Modulo_Sano();
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    modulo->cmd[1].Left(1500);
    QCOMPARE(Difetti_Di(*modulo).size(), 1);
    QCOMPARE(Difetti_Di(*modulo, VOLUTO), QStringList());
    modulo->cmd[1].Left(450);
    QCOMPARE(Difetti_Di(*modulo, VOLUTO), QStringList(QStringLiteral("cmd_1: lies on cmd_0")));
    Scarica_Tutti();
}

// --- every form -------------------------------------------------------------------------------------------

void tst_schermate::difetti_data()
{
    QTest::addColumn<QSize>("schermo");
    for (const QSize schermo :
         {QSize(800, 600), QSize(1024, 768), QSize(1280, 1024), QSize(1920, 1080), QSize(3840, 2160)})
        QTest::addRow("%dx%d", schermo.width(), schermo.height()) << schermo;
}

void tst_schermate::difetti()
{
    QFETCH(QSize, schermo);
    const EsitoFiglio figlio = Figlio_Esegui({QStringLiteral("--racconta")}, schermo);
    QVERIFY2(figlio.Buono(), qPrintable(figlio.Racconto()));
    const auto viste = QString::number(Scene_Quante() * static_cast<int>(std::size(LINGUE_SCENE)));
    QVERIFY2(figlio.Uscita.trimmed() == viste, qPrintable(figlio.Uscita));
}

int main(int argc, char **argv)
{
    return Principale_Racconta<tst_schermate>(argc, argv, Racconta);
}

#include "tst_schermate.moc"
