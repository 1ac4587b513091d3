#include "tests/forms/difetti_prova.h"

#include "toolkit/modulo.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace {

constexpr double CONTRASTO_MINIMO = 4.5;
constexpr int CARATTERE_MINIMO = 9; // pixels
constexpr int BERSAGLIO_MINIMO = 24;
constexpr double PARTE_VISTA = 0.998; // of a text's ink: smoothed letters differ a little from place to place

// --- a control without its text ---------------------------------------------------------------------------

QStringList Righe_Di(const QListWidget &lista)
{
    QStringList righe;
    for (int i = 0; i < lista.count(); ++i)
        righe.append(lista.item(i)->text());
    return righe;
}

QString Scritta_Di(const QWidget *widget)
{
    if (const auto *etichetta = qobject_cast<const QLabel *>(widget))
        return etichetta->text();
    if (const auto *bottone = qobject_cast<const QAbstractButton *>(widget))
        return bottone->text();
    if (const auto *casella = qobject_cast<const QLineEdit *>(widget))
        return casella->displayText();
    if (const auto *combo = qobject_cast<const QComboBox *>(widget))
        return combo->currentText();
    if (const auto *lista = qobject_cast<const QListWidget *>(widget))
        return Righe_Di(*lista).join(u'\n');
    return {};
}

QImage Vista_Di(QWidget *widget)
{
    QImage vista(widget->size(), QImage::Format_RGB32);
    vista.fill(Qt::white); // a control that leaves its ground alone leaves there what the memory held
    widget->render(&vista, QPoint());
    return vista;
}

/// The same control without its text: what is behind it. Nobody hears of the change.
QImage Fondo_Di(QWidget *widget)
{
    const QSignalBlocker zitto(widget);
    QImage fondo;
    if (auto *etichetta = qobject_cast<QLabel *>(widget)) {
        const QString testo = etichetta->text();
        etichetta->setText(QString());
        fondo = Vista_Di(widget);
        etichetta->setText(testo);
    } else if (auto *bottone = qobject_cast<QAbstractButton *>(widget)) {
        const QString testo = bottone->text();
        bottone->setText(QString());
        fondo = Vista_Di(widget);
        bottone->setText(testo);
    } else if (auto *casella = qobject_cast<QLineEdit *>(widget)) {
        const QString testo = casella->text();
        const int cursore = casella->cursorPosition();
        casella->clear();
        fondo = Vista_Di(widget);
        casella->setText(testo);
        casella->setCursorPosition(cursore);
    } else if (auto *combo = qobject_cast<QComboBox *>(widget)) {
        const int scelta = combo->currentIndex();
        combo->setCurrentIndex(-1);
        fondo = Vista_Di(widget);
        combo->setCurrentIndex(scelta);
    } else if (auto *lista = qobject_cast<QListWidget *>(widget)) {
        const QStringList righe = Righe_Di(*lista);
        for (int i = 0; i < lista->count(); ++i)
            lista->item(i)->setText(QString());
        fondo = Vista_Di(widget);
        for (int i = 0; i < lista->count(); ++i)
            lista->item(i)->setText(righe[i]);
    }
    return fondo;
}

// --- ink --------------------------------------------------------------------------------------------------

double Luminanza(QRgb colore)
{
    const auto canale = [](int valore) {
        const double v = valore / 255.0;
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * canale(qRed(colore)) + 0.7152 * canale(qGreen(colore)) + 0.0722 * canale(qBlue(colore));
}

/// A text as it is painted: what goes when the text goes.
struct Inchiostro
{
    qint64 quanto = 0;
    double contrasto = 1; // of its strongest point with what is behind
    QRect dove;
};

Inchiostro Inchiostro_Di(QWidget *widget)
{
    const QImage vista = Vista_Di(widget);
    const QImage fondo = Fondo_Di(widget);
    Inchiostro inchiostro;
    qint64 piuForte = 0;
    for (int y = 0; y < vista.height(); ++y) {
        const auto *riga = reinterpret_cast<const QRgb *>(vista.constScanLine(y));
        const auto *dietro = reinterpret_cast<const QRgb *>(fondo.constScanLine(y));
        if (std::equal(riga, riga + vista.width(), dietro))
            continue;
        for (int x = 0; x < vista.width(); ++x) {
            if (riga[x] == dietro[x])
                continue;
            const qint64 quanto = std::abs(qRed(riga[x]) - qRed(dietro[x])) +
                                  std::abs(qGreen(riga[x]) - qGreen(dietro[x])) +
                                  std::abs(qBlue(riga[x]) - qBlue(dietro[x]));
            inchiostro.quanto += quanto;
            inchiostro.dove |= QRect(x, y, 1, 1);
            if (quanto > piuForte) {
                piuForte = quanto;
                inchiostro.contrasto = Contrasto_Di(riga[x], dietro[x]);
            }
        }
    }
    return inchiostro;
}

/// The ink of the same text with more room. A box of text scrolls sideways, a list downwards. The room added
/// is even, so that centred letters keep their place between the pixels, and not more than shows that
/// something was missing.
qint64 Inchiostro_Largo(QWidget *widget)
{
    const QRect posto = widget->geometry();
    const QSize scritta = widget->fontMetrics().size(0, Scritta_Di(widget));
    const int riga = widget->fontMetrics().height();
    QSize largo = posto.size() + scritta.boundedTo(posto.size() / 2 + QSize(riga, riga)) * 2;
    if (qobject_cast<QLineEdit *>(widget) != nullptr)
        largo.setWidth(posto.width());
    if (qobject_cast<QListWidget *>(widget) != nullptr)
        largo.setHeight(posto.height());
    widget->resize(largo);
    const qint64 quanto = Inchiostro_Di(widget).quanto;
    widget->setGeometry(posto);
    return quanto;
}

bool Tagliata(QWidget *widget, const Inchiostro &inchiostro)
{
    // A list scrolls sideways, or breaks its lines and scrolls down.
    if (const auto *lista = qobject_cast<QListWidget *>(widget);
        lista != nullptr && (lista->wordWrap() || lista->horizontalScrollBar()->maximum() > 0))
        return false;
    // A label or a button cuts at its edges; what is missing there is never a line away from what shows.
    const int riga = widget->fontMetrics().height();
    const bool aiBordi =
        qobject_cast<QLabel *>(widget) != nullptr || qobject_cast<QPushButton *>(widget) != nullptr;
    if (aiBordi && widget->rect().adjusted(riga, riga, -riga, -riga).contains(inchiostro.dove))
        return false;
    return static_cast<double>(inchiostro.quanto) <
           static_cast<double>(Inchiostro_Largo(widget)) * PARTE_VISTA;
}

/// True when nothing but plain ground is painted on the form itself there: no frame.
bool Tinta_Unita(QWidget *finestra, const QRect &posto)
{
    QImage immagine(posto.size(), QImage::Format_RGB32);
    finestra->render(&immagine, QPoint(), posto, QWidget::DrawWindowBackground);
    const auto *primo = reinterpret_cast<const QRgb *>(immagine.constBits());
    const std::span<const QRgb> punti(primo, static_cast<size_t>(immagine.sizeInBytes()) / sizeof(QRgb));
    return std::all_of(punti.begin(), punti.end(), [primo](QRgb punto) { return punto == *primo; });
}

// --- faults -----------------------------------------------------------------------------------------------

/// A control that shows, and what of it is text.
struct Visto
{
    QWidget *widget;
    Inchiostro inchiostro;

    QRect Scritta() const { return inchiostro.dove.translated(widget->pos()); } ///< on the form
};

QList<Visto> Visti_Di(const Modulo &modulo)
{
    QList<Visto> visti;
    for (QWidget *widget : modulo.Finestra()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (!widget->isVisible() || widget->isWindow())
            continue;
        const bool muto = Scritta_Di(widget).trimmed().isEmpty();
        visti.append({widget, muto ? Inchiostro() : Inchiostro_Di(widget)});
    }
    return visti;
}

QStringList Difetti_Posto(const QWidget *widget)
{
    QStringList difetti;
    if (!widget->parentWidget()->rect().contains(widget->geometry()))
        difetti.append(QStringLiteral("outside its form"));
    const int lato = std::min(widget->width(), widget->height());
    if (qobject_cast<const QPushButton *>(widget) != nullptr && lato < BERSAGLIO_MINIMO)
        difetti.append(QStringLiteral("a target of %1 pixels").arg(lato));
    return difetti;
}

QStringList Difetti_Scritta(const Visto &visto)
{
    if (visto.inchiostro.quanto == 0)
        return {};
    QStringList difetti;
    if (Tagliata(visto.widget, visto.inchiostro))
        difetti.append(QStringLiteral("cut"));
    if (visto.widget->isEnabled() && visto.inchiostro.contrasto < CONTRASTO_MINIMO)
        difetti.append(QStringLiteral("contrast %1").arg(visto.inchiostro.contrasto, 0, 'f', 2));
    const int carattere = visto.widget->font().pixelSize();
    if (carattere < CARATTERE_MINIMO)
        difetti.append(QStringLiteral("type of %1 pixels").arg(carattere));
    if (qobject_cast<QLabel *>(visto.widget) != nullptr &&
        !Tinta_Unita(visto.widget->parentWidget(), visto.Scritta()))
        difetti.append(QStringLiteral("a frame runs through it"));
    return difetti;
}

bool Voluto(const Modulo &modulo, const QWidget *uno, const QWidget *altro,
            std::span<const Sovrapposti> voluti)
{
    const auto ha = [](const QWidget *widget, const char *nome) {
        return qstrcmp(nome, "*") == 0 || widget->objectName() == QLatin1String(nome);
    };
    return std::any_of(voluti.begin(), voluti.end(), [&](const Sovrapposti &voce) {
        return modulo.objectName() == QLatin1String(voce.modulo) &&
               ((ha(uno, voce.uno) && ha(altro, voce.altro)) || (ha(altro, voce.uno) && ha(uno, voce.altro)));
    });
}

/// Two places may meet on purpose; two texts may not.
bool Si_Coprono(const Modulo &modulo, const Visto &uno, const Visto &altro,
                std::span<const Sovrapposti> voluti)
{
    if (Voluto(modulo, uno.widget, altro.widget, voluti))
        return uno.Scritta().intersects(altro.Scritta());
    return uno.widget->geometry().intersects(altro.widget->geometry());
}

} // namespace

double Contrasto_Di(QRgb a, QRgb b)
{
    const double chiaro = std::max(Luminanza(a), Luminanza(b));
    const double scuro = std::min(Luminanza(a), Luminanza(b));
    return (chiaro + 0.05) / (scuro + 0.05);
}

bool Scritta_Tagliata(QWidget *widget)
{
    return Tagliata(widget, Inchiostro_Di(widget));
}

QStringList Difetti_Di(const Modulo &modulo, std::span<const Sovrapposti> voluti)
{
    QStringList difetti;
    const QWidget *finestra = modulo.Finestra();
    if (!finestra->screen()->geometry().contains(finestra->geometry()))
        difetti.append(modulo.objectName() + QStringLiteral(": off the screen"));
    const QList<Visto> visti = Visti_Di(modulo);
    for (int i = 0; i < visti.size(); ++i) {
        QWidget *widget = visti[i].widget;
        for (const QString &difetto : Difetti_Posto(widget) + Difetti_Scritta(visti[i]))
            difetti.append(QStringLiteral("%1: %2: %3")
                               .arg(widget->objectName(), difetto, Scritta_Di(widget).simplified()));
        for (int j = 0; j < i; ++j) {
            if (Si_Coprono(modulo, visti[i], visti[j], voluti))
                difetti.append(QStringLiteral("%1: lies on %2")
                                   .arg(widget->objectName(), visti[j].widget->objectName()));
        }
    }
    return difetti;
}
