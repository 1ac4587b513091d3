#include "platform/aspetto.h"

#include "platform/schermo.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

#include <cmath>

namespace {

struct ColoreSistema
{
    quint32 colore;
    QRgb valore;
};

constexpr ColoreSistema COLORI_SISTEMA[] = {
    {COLORE_SISTEMA_GRIGIO,   0xFFE3E8EC},
    {COLORE_SISTEMA_FINESTRA, 0xFFFFFFFF},
};

constexpr QRgb SFONDO = 0xFFF3F6F8;
constexpr QRgb TESTO = 0xFF14232E;
constexpr QRgb SPENTO = 0xFF5A6872;
constexpr QRgb CORNICE = 0xFF7D93A3;
constexpr double LATO_SPUNTA = 1.2; // of the size of type
constexpr QRgb ACCENTO = 0xFF0B5C8A;

const char *const FOGLIO = R"(
QPushButton { background: #ffffff; color: #14232e; border: 1px solid #7d93a3; border-radius: 4px; padding: 2px; }
QPushButton:hover { background: #e4f0f8; }
QPushButton:pressed { background: #c9e1f0; }
QPushButton:focus { border: 2px solid #0b5c8a; }
QPushButton:disabled { background: #e9edf0; color: #5a6872; border-color: #c3ccd3; }
QLineEdit { border: 1px solid #9fb0bc; border-radius: 2px; padding: 0 3px; color: #14232e; }
QLineEdit:focus { border: 2px solid #0b5c8a; padding: 0 2px; }
QListWidget { background: #ffffff; border: 1px solid #9fb0bc; }
QListWidget:focus { border: 2px solid #0b5c8a; }
QListWidget::item:selected { background: #0b5c8a; color: #ffffff; }
)";

} // namespace

QColor Colore_Da(quint32 colore)
{
    for (const ColoreSistema &sistema : COLORI_SISTEMA) {
        if (sistema.colore == colore)
            return QColor::fromRgb(sistema.valore);
    }
    return QColor(static_cast<int>(colore & 0xFF), static_cast<int>(colore >> 8 & 0xFF),
                  static_cast<int>(colore >> 16 & 0xFF));
}

QColor Colore_Cornice()
{
    return QColor::fromRgb(CORNICE);
}

QString Carattere_Normale()
{
    return QStringLiteral("Arial");
}
QString Carattere_Fisso()
{
    return QStringLiteral("Courier New");
}

void Aspetto_Applica(QApplication &applicazione)
{
    applicazione.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette tavolozza;
    tavolozza.setColor(QPalette::Window, QColor::fromRgb(SFONDO));
    tavolozza.setColor(QPalette::WindowText, QColor::fromRgb(TESTO));
    tavolozza.setColor(QPalette::Base, Qt::white);
    tavolozza.setColor(QPalette::Text, QColor::fromRgb(TESTO));
    tavolozza.setColor(QPalette::Button, QColor::fromRgb(SFONDO));
    tavolozza.setColor(QPalette::ButtonText, QColor::fromRgb(TESTO));
    tavolozza.setColor(QPalette::Highlight, QColor::fromRgb(ACCENTO));
    tavolozza.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        tavolozza.setColor(QPalette::Disabled, ruolo, QColor::fromRgb(SPENTO));
    applicazione.setPalette(tavolozza);
    QFont carattere(Carattere_Normale());
    carattere.setPixelSize(static_cast<int>(std::lround(Pixel_DaPunti(Punti_Normali()))));
    applicazione.setFont(carattere);
    const QString spunta = QStringLiteral("QCheckBox::indicator { width: %1px; height: %1px; }");
    const auto lato = std::lround(Pixel_DaPunti(Punti_Normali()) * LATO_SPUNTA);
    applicazione.setStyleSheet(QString::fromLatin1(FOGLIO) + spunta.arg(lato));
}
