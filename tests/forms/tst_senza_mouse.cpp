// Every form worked without a mouse and without eyes: the Tab key comes to every control in the order of the
// rows, and every control tells its name.
#include "tests/forms/modulo_prova.h"
#include "tests/forms/parole_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/scene_prova.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace {

const QString LINGUA = QStringLiteral("IT");

/// Rows of a form's table stand first, then what else there is to write or choose in, the buttons last.
struct Tappa
{
    int classe = 1;
    int riga = 0;
    QWidget *widget = nullptr;
};

template <typename Array>
void Aggiungi_Righe(QList<Tappa> &tappe, const Array &array)
{
    for (qint16 i = 0; i <= array.UBound(); ++i) {
        if (array.Esiste(i) && !array[i].Tag().isEmpty())
            tappe.append({0, array[i].Tag().toInt(), array[i].Widget()});
    }
}

bool Raggiungibile(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
           !widget->isWindow();
}

/// What the Tab key has to come to, in the order in which it has to.
QStringList Giro_Atteso(const Modulo &modulo)
{
    QList<Tappa> righe;
    Aggiungi_Righe(righe, modulo.txt);
    Aggiungi_Righe(righe, modulo.cbo);
    Aggiungi_Righe(righe, modulo.chk);
    QList<Tappa> tappe;
    for (QWidget *widget : modulo.Finestra()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (!Raggiungibile(widget))
            continue;
        const auto riga = std::find_if(righe.cbegin(), righe.cend(),
                                       [widget](const Tappa &tappa) { return tappa.widget == widget; });
        const bool pulsante = qobject_cast<QPushButton *>(widget) != nullptr;
        tappe.append(riga != righe.cend() ? *riga : Tappa{pulsante ? 2 : 1, 0, widget});
    }
    std::stable_sort(tappe.begin(), tappe.end(), [](const Tappa &a, const Tappa &b) {
        return std::pair(a.classe, a.riga) < std::pair(b.classe, b.riga);
    });
    QStringList giro;
    for (const Tappa &tappa : std::as_const(tappe))
        giro.append(tappa.widget->objectName());
    return giro;
}

/// Where the key leads, once round, told from the control that comes first in the order.
QStringList Giro_Di(const Modulo &modulo, Qt::Key tasto, Qt::KeyboardModifiers con, const QString &primo)
{
    QStringList giro;
    for (qsizetype i = 0; i <= modulo.Finestra()->findChildren<QWidget *>().size(); ++i) {
        QWidget *widget = modulo.Finestra()->focusWidget();
        if (widget == nullptr || giro.contains(widget->objectName()))
            break;
        giro.append(widget->objectName());
        QTest::keyClick(widget, tasto, con);
    }
    std::rotate(giro.begin(), giro.begin() + std::max<qsizetype>(0, giro.indexOf(primo)), giro.end());
    return giro;
}

/// Kinds of control that a person acts on or reads from.
bool Da_Nominare(const QWidget *widget)
{
    const auto *etichetta = qobject_cast<const QLabel *>(widget);
    return widget->isVisible() && !widget->objectName().isEmpty() &&
           ((etichetta != nullptr && !etichetta->pixmap(Qt::ReturnByValue).isNull()) ||
            Raggiungibile(widget) || qobject_cast<const QLineEdit *>(widget) != nullptr);
}

/// What a screen reader says for a control; of a list box it says the label.
QString Nome_Letto(QWidget *widget)
{
    QAccessibleInterface *accesso = QAccessible::queryAccessibleInterface(widget);
    if (accesso->role() == QAccessible::ComboBox) {
        const auto etichette = accesso->relations(QAccessible::Label);
        return etichette.isEmpty() ? QString() : etichette.first().first->text(QAccessible::Name).trimmed();
    }
    return accesso->text(QAccessible::Name).trimmed();
}

} // namespace

class tst_senza_mouse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabulazioneDiOgniForm();
    void nomiDiOgniForm();
    void paroleDelToolkitSiSentono();
    void nessunaParolaDelToolkit_data();
    void nessunaParolaDelToolkit();
};

void tst_senza_mouse::tabulazioneDiOgniForm()
{
    Scene_Percorri(LINGUA, [](const QString &scena, const Modulo &modulo) {
        const QStringList atteso = Giro_Atteso(modulo);
        if (atteso.isEmpty())
            return; // a message that goes by itself has nothing to come to
        const QStringList avanti = Giro_Di(modulo, Qt::Key_Tab, Qt::NoModifier, atteso.first());
        QVERIFY2(
            avanti == atteso,
            qPrintable(QStringLiteral("%1: %2\nwanted %3").arg(scena, avanti.join(u' '), atteso.join(u' '))));
        QStringList indietro = Giro_Di(modulo, Qt::Key_Backtab, Qt::ShiftModifier, atteso.last());
        std::reverse(indietro.begin(), indietro.end());
        QVERIFY2(indietro == atteso,
                 qPrintable(QStringLiteral("%1, backwards: %2").arg(scena, indietro.join(u' '))));
    });
}

// Two controls of a kind with one name cannot be told apart by ear.
void tst_senza_mouse::nomiDiOgniForm()
{
    QStringList difetti;
    Scene_Percorri(LINGUA, [&difetti](const QString &scena, const Modulo &modulo) {
        QStringList detti;
        QList<QWidget *> tutti =
            modulo.Finestra()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        if (Nome_Letto(modulo.Finestra()).isEmpty())
            difetti.append(QStringLiteral("%1: the window has no name").arg(scena));
        for (QWidget *widget : std::as_const(tutti)) {
            if (!Da_Nominare(widget))
                continue;
            const QString nome = Nome_Letto(widget);
            const QString detto = QString::fromLatin1(widget->metaObject()->className()) + u' ' + nome;
            if (nome.isEmpty())
                difetti.append(QStringLiteral("%1: %2 has no name").arg(scena, widget->objectName()));
            else if (detti.contains(detto))
                difetti.append(
                    QStringLiteral("%1: %2 is a second \"%3\"").arg(scena, widget->objectName(), nome));
            detti.append(detto);
        }
    });
    QVERIFY2(difetti.isEmpty(), qPrintable(difetti.join(u'\n')));
}

// The judge hears what the toolkit says of its own.
void tst_senza_mouse::paroleDelToolkitSiSentono()
{
    const SegnaParole segna;
    QWidget finestra;
    QDialogButtonBox pulsanti(QDialogButtonBox::Cancel, &finestra);
    QLineEdit casella(&finestra);
    finestra.show();
    QVERIFY(QTest::qWaitForWindowActive(&finestra));
    const QStringList parole = Parole_Del_Toolkit(&finestra);
    QVERIFY2(!parole.filter(QStringLiteral("Cancel")).isEmpty(), qPrintable(parole.join(u'\n')));
}

// The station speaks one language: what the toolkit would say of its own stands in English between its texts.
void tst_senza_mouse::nessunaParolaDelToolkit_data()
{
    QTest::addColumn<QString>("lingua");
    for (const char *lingua : LINGUE_SCENE)
        QTest::newRow(lingua) << QString::fromLatin1(lingua);
}

void tst_senza_mouse::nessunaParolaDelToolkit()
{
    QFETCH(QString, lingua);
    const SegnaParole segna;
    QStringList trovate;
    Scene_Percorri(lingua, [&trovate](const QString &scena, const Modulo &modulo) {
        const QStringList qui = Parole_Del_Toolkit(modulo.Finestra()) + Menu_Del_Toolkit(modulo.Finestra());
        for (const QString &parola : qui)
            trovate.append(scena + QStringLiteral(", ") + parola);
    });
    QVERIFY2(trovate.isEmpty(), qPrintable(trovate.join(u'\n')));
}

int main(int argc, char **argv)
{
    return Principale_Prova<tst_senza_mouse>(argc, argv);
}

#include "tst_senza_mouse.moc"
