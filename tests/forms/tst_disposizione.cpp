// How every form stands on the screen, control by control, held against what was found good. A measure that
// slips cuts nothing and covers nothing, and is seen here all the same. The texts are other tests' business.
#include "core/modGeneral.h"
#include "tests/forms/foglio_atteso.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/scene_prova.h"
#include "toolkit/modulo.h"

#include <QLabel>

#include <cstdio>

namespace {

/// A path that is too long for its box is shown beside it: how long the path of this run is says nothing.
QChar Visibile(const QWidget &controllo, const QWidget &finestra)
{
    if (controllo.objectName().startsWith(u"lblPercorso_"))
        return u'?';
    return controllo.isVisibleTo(&finestra) ? u'+' : u'-';
}

QString Carattere(const QFont &font)
{
    return QStringLiteral("%1px%2").arg(font.pixelSize()).arg(font.bold() ? u"b" : u"");
}

/// What a label keeps free inside, on the left, above, on the right, below; nothing when it keeps nothing.
QString Margini(const QLabel &etichetta)
{
    const QMargins margini = etichetta.contentsMargins();
    if (margini.isNull())
        return QString();
    return QStringLiteral(" [%1 %2 %3 %4]")
        .arg(margini.left())
        .arg(margini.top())
        .arg(margini.right())
        .arg(margini.bottom());
}

/// A line a control: where it stands in its form, in pixels, how large its type is and whether it is bold,
/// its colours, its margins, what it is called. A name that tells the folder of this run tells it by a word.
QString Riga(const QWidget &controllo, const QWidget &finestra)
{
    const QPoint posto = controllo.mapTo(&finestra, QPoint());
    const QPalette &colori = controllo.palette();
    QString nome = controllo.accessibleName();
    nome.replace(gAppPath, QStringLiteral("<stazione>\\"));
    const auto *etichetta = qobject_cast<const QLabel *>(&controllo);
    return QStringLiteral("%1 %2,%3 %4x%5 %6 %7 %8 %9 %10 %11%12%13")
        .arg(controllo.objectName())
        .arg(posto.x())
        .arg(posto.y())
        .arg(controllo.width())
        .arg(controllo.height())
        .arg(Carattere(controllo.font()))
        .arg(colori.color(controllo.foregroundRole()).name(), colori.color(controllo.backgroundRole()).name())
        .arg(etichetta != nullptr ? static_cast<int>(etichetta->alignment()) : 0)
        .arg(controllo.isEnabled() ? QChar(u'+') : QChar(u'-'))
        .arg(Visibile(controllo, finestra))
        .arg(etichetta != nullptr ? Margini(*etichetta) : QString())
        .arg(nome.isEmpty() ? QString() : u' ' + nome.simplified());
}

/// The child process: the window of every scene, and each of its controls.
void Racconta()
{
    Scene_Percorri(QStringLiteral("IT"), [](const QString &scena, const Modulo &modulo) {
        const QWidget &finestra = *modulo.Finestra();
        std::printf("[%s]\n%s %d,%d %dx%d\n", qPrintable(scena), qPrintable(modulo.objectName()),
                    finestra.x(), finestra.y(), finestra.width(), finestra.height());
        for (const QWidget *controllo : finestra.findChildren<QWidget *>()) {
            if (!controllo->objectName().isEmpty() && !controllo->objectName().startsWith(u"qt_"))
                std::printf("%s\n", qPrintable(Riga(*controllo, finestra)));
        }
    });
}

} // namespace

class tst_disposizione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differenzeSiVedono();
    void comeFuTrovataBuona_data();
    void comeFuTrovataBuona();
};

void tst_disposizione::differenzeSiVedono()
{
    const QStringList prima{QStringLiteral("[menu]"), QStringLiteral("lbl_0 1,2")};
    QCOMPARE(Foglio_Differenze(prima, prima), QStringList());
    QCOMPARE(Foglio_Differenze(prima, {QStringLiteral("[menu]"), QStringLiteral("lbl_0 1,3")}),
             (QStringList{QStringLiteral("[menu]"), QStringLiteral("- lbl_0 1,2"),
                          QStringLiteral("+ lbl_0 1,3")}));
    QCOMPARE(Foglio_Differenze(prima, {QStringLiteral("[menu]")}).size(), 3);
}

void tst_disposizione::comeFuTrovataBuona_data()
{
    QTest::addColumn<QSize>("schermo");
    // The last two are as fine as they can be without windows that fill the memory: on the tall one a pixel
    // is a twip, on the wide one a step of the design grid. No measure slips unseen between two pixels.
    for (const QSize schermo : {QSize(1024, 768), QSize(1920, 1080), QSize(700, 30600), QSize(16400, 600)})
        QTest::addRow("%dx%d", schermo.width(), schermo.height()) << schermo;
}

/// Where a form is meant to look otherwise, the new text is looked through and takes the place of the old
/// one.
void tst_disposizione::comeFuTrovataBuona()
{
    QFETCH(QSize, schermo);
    const QString difetto = Foglio_Confronta(QStringLiteral("disposizione"), schermo);
    QVERIFY2(difetto.isEmpty(), qPrintable(difetto));
}

int main(int argc, char **argv)
{
    return Principale_Racconta<tst_disposizione>(argc, argv, Racconta);
}

#include "tst_disposizione.moc"
