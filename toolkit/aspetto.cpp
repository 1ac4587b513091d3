// The look as values: palette, style sheet and families of type. It knows no form and no place of a control.
#include "toolkit/aspetto.h"

#include "toolkit/schermo.h"
#include "toolkit/stile_barre.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace {

/// The colours, in the order of Tinta, under the names that the style sheet uses.
struct VoceTinta
{
    const char *nome;
    QRgb valore;
};

constexpr VoceTinta TINTE[] = {
    {"@sfondo@",      0xFFF3F6F8},
    {"@campo@",       0xFFFFFFFF},
    {"@campoSpento@", 0xFFE9EDF0},
    {"@testo@",       0xFF14232E},
    {"@testoSpento@", 0xFF5A6872},
    {"@cornice@",     0xFF7D93A3},
    {"@fuoco@",       0xFF0B5C8A},
    {"@fuocoTenue@",  0xFFE4F0F8},
    {"@guasto@",      0xFF9E1C1C},
};

// Of a control that the style sheet alone paints.
constexpr VoceTinta TINTE_FOGLIO[] = {
    {"@premuto@",       0xFFC9E1F0},
    {"@corniceSpenta@", 0xFFC3CCD3},
    {"@risaltoSopra@",  0xFF0E6FA6}, // the pointer is over a button that stands out
    {"@risaltoFuoco@",  0xFFFFD166}, // the keyboard is on it
};

struct VoceGrandezza
{
    const char *nome;
    qint32 twip;
};

constexpr qint32 LINEA = 15;

/// Line and margin together are the same with the focus and without: the text stays where it is.
constexpr VoceGrandezza GRANDEZZE_FOGLIO[] = {
    {"@linea@",         LINEA    },
    {"@lineaFuoco@",    2 * LINEA},
    {"@lineaRisalto@",  3 * LINEA},
    {"@margine@",       45       },
    {"@margineFuoco@",  30       },
    {"@raggio@",        60       },
    {"@raggioCasella@", 30       },
    {"@freccia@",       220      },
    {"@barra@",         300      },
};

constexpr double CONTRASTO_LEGGIBILE = 5; // 4.5 and something for the smoothed edge of small letters
constexpr double PUNTI_MINIMI = 8;
constexpr double PARTE_MINIMA = 0.85; // of the normal type, where that is small already

const char *const FOGLIO = R"(
QPushButton { background: @campo@; color: @testo@; border: @linea@ solid @cornice@; border-radius: @raggio@;
              padding: @linea@; }
QPushButton:hover { background: @fuocoTenue@; }
QPushButton:pressed { background: @premuto@; }
QPushButton:focus { border: @lineaFuoco@ solid @fuoco@; padding: 0; }
QPushButton:disabled { background: @campoSpento@; color: @testoSpento@; border-color: @corniceSpenta@; }
QPushButton[risalto="principale"] { background: @fuoco@; color: @campo@; border: @lineaRisalto@ solid @fuoco@;
                                    padding: 0; }
QPushButton[risalto="principale"]:hover { background: @risaltoSopra@; }
QPushButton[risalto="principale"]:pressed { background: @testo@; }
QPushButton[risalto="principale"]:focus { border-color: @risaltoFuoco@; }
QPushButton[risalto="assente"]:disabled { background: transparent; color: transparent;
                                          border-color: transparent; }
QLineEdit, QComboBox { background: @campo@; color: @testo@; border: @linea@ solid @cornice@;
                       border-radius: @raggioCasella@; padding: 0 @margine@; }
QLineEdit:focus, QComboBox:focus { border: @lineaFuoco@ solid @fuoco@; padding: 0 @margineFuoco@; }
QLineEdit:disabled, QComboBox:disabled { background: @campoSpento@; color: @testoSpento@;
                                         border-color: @corniceSpenta@; }
QComboBox::drop-down { width: @freccia@; border: none; }
QComboBox { combobox-popup: 0; }
QComboBox QAbstractItemView { selection-background-color: @fuoco@; selection-color: @campo@; }
QListWidget { background: @campo@; border: @linea@ solid @cornice@; }
QListWidget:focus { border: @lineaFuoco@ solid @fuoco@; }
QListWidget::item:selected { background: @fuoco@; color: @campo@; }
QScrollBar:vertical { width: @barra@; }
QScrollBar:horizontal { height: @barra@; }
)";

QString Foglio()
{
    QString foglio = QString::fromLatin1(FOGLIO);
    const auto colora = [&foglio](const VoceTinta &voce) {
        foglio.replace(QLatin1String(voce.nome), QColor::fromRgb(voce.valore).name());
    };
    std::for_each(std::begin(TINTE), std::end(TINTE), colora);
    std::for_each(std::begin(TINTE_FOGLIO), std::end(TINTE_FOGLIO), colora);
    for (const VoceGrandezza &voce : GRANDEZZE_FOGLIO)
        foglio.replace(QLatin1String(voce.nome), QStringLiteral("%1px").arg(Pixel_DaTwip(voce.twip)));
    return foglio;
}

QPalette Tavolozza()
{
    QPalette tavolozza;
    tavolozza.setColor(QPalette::Window, Colore_Tema(Tinta::Sfondo));
    tavolozza.setColor(QPalette::WindowText, Colore_Tema(Tinta::Testo));
    tavolozza.setColor(QPalette::Base, Colore_Tema(Tinta::Campo));
    tavolozza.setColor(QPalette::Text, Colore_Tema(Tinta::Testo));
    tavolozza.setColor(QPalette::Button, Colore_Tema(Tinta::Sfondo));
    tavolozza.setColor(QPalette::ButtonText, Colore_Tema(Tinta::Testo));
    tavolozza.setColor(QPalette::Highlight, Colore_Tema(Tinta::Fuoco));
    tavolozza.setColor(QPalette::HighlightedText, Colore_Tema(Tinta::Campo));
    for (const QPalette::ColorRole ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        tavolozza.setColor(QPalette::Disabled, ruolo, Colore_Tema(Tinta::TestoSpento));
    return tavolozza;
}

/// Relative luminance, 0 to 1.
double Luminanza(const QColor &colore)
{
    const auto canale = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * canale(colore.redF()) + 0.7152 * canale(colore.greenF()) +
           0.0722 * canale(colore.blueF());
}

double Contrasto(const QColor &a, const QColor &b)
{
    const double prima = Luminanza(a);
    const double seconda = Luminanza(b);
    return (std::max(prima, seconda) + 0.05) / (std::min(prima, seconda) + 0.05);
}

/// A hundredth part of the second colour after the other, 0 to 100, in the first.
QColor Mescola(const QColor &primo, const QColor &secondo, int parte)
{
    const auto canale = [parte](int da, int a) { return da + (a - da) * parte / 100; };
    return QColor(canale(primo.red(), secondo.red()), canale(primo.green(), secondo.green()),
                  canale(primo.blue(), secondo.blue()));
}

} // namespace

QColor Colore_Tema(Tinta tinta)
{
    return QColor::fromRgb(TINTE[static_cast<size_t>(tinta)].valore);
}

quint32 Numero_Tinta(Tinta tinta)
{
    const QColor colore = Colore_Tema(tinta);
    return static_cast<quint32>(colore.blue() << 16 | colore.green() << 8 | colore.red());
}

QColor Colore_Cornice()
{
    return Colore_Tema(Tinta::Cornice);
}

QColor Colore_Leggibile(const QColor &scritta, const QColor &fondo)
{
    const QColor estremo = Contrasto(Qt::black, fondo) > Contrasto(Qt::white, fondo) ? Qt::black : Qt::white;
    QColor colore = scritta;
    for (int parte = 1; parte <= 100 && Contrasto(colore, fondo) < CONTRASTO_LEGGIBILE; ++parte)
        colore = Mescola(scritta, estremo, parte);
    return colore;
}

int Spessore_Linea(int volte)
{
    return Pixel_DaTwip(volte * LINEA);
}

QString Carattere_Normale()
{
    return QStringLiteral("Arial");
}
QString Carattere_Fisso()
{
    return QStringLiteral("Courier New");
}

int Carattere_Minimo()
{
    const double punti = std::min(PUNTI_MINIMI, Punti_Normali() * PARTE_MINIMA);
    return Pixel_Interi(punti);
}

void Aspetto_Applica(QApplication &applicazione)
{
    applicazione.setStyle(Stile_Nuovo());
    applicazione.setPalette(Tavolozza());
    QFont carattere(Carattere_Normale());
    carattere.setPixelSize(Pixel_Interi(Punti_Normali()));
    applicazione.setFont(carattere);
    applicazione.setStyleSheet(Foglio());
}
