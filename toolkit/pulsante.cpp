// The button on Qt's.
#include "toolkit/pulsante.h"

#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>

Pulsante::Pulsante(QWidget *finestra, const QString &nome) : Controllo(new QPushButton(finestra), nome)
{
    Fai<QPushButton>([this](QPushButton &bottone) {
        QObject::connect(&bottone, &QPushButton::clicked, &bottone, [this] { Click(); });
    });
}

QString Pulsante::Caption() const
{
    return Chiedi<QPushButton>(QString(), [](const QPushButton &bottone) { return bottone.text(); });
}

void Pulsante::Caption(const QString &testo)
{
    Fai<QPushButton>([&testo](QPushButton &bottone) { bottone.setText(testo); });
    Adatta();
}

bool Pulsante::Entra() const
{
    return Chiedi<QPushButton>(true, [](const QPushButton &bottone) {
        QStyleOptionButton opzione;
        opzione.initFrom(&bottone);
        const QRect spazio =
            bottone.style()->subElementRect(QStyle::SE_PushButtonContents, &opzione, &bottone);
        return bottone.fontMetrics().size(Qt::TextShowMnemonic, bottone.text()).width() <= spazio.width();
    });
}
