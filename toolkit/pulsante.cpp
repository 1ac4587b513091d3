// The button on Qt's.
#include "toolkit/pulsante.h"

#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>

Pulsante::Pulsante(QWidget *finestra, const QString &nome) : Controllo(new QPushButton(finestra), nome)
{
    QObject::connect(Bottone(), &QPushButton::clicked, Bottone(), [this] {
        if (Click)
            Click();
    });
}

QPushButton *Pulsante::Bottone() const
{
    return static_cast<QPushButton *>(Widget());
}

QString Pulsante::Caption() const
{
    return Widget() != nullptr ? Bottone()->text() : QString();
}

void Pulsante::Caption(const QString &testo)
{
    if (Widget() == nullptr)
        return;
    Bottone()->setText(testo);
    Adatta();
}

bool Pulsante::Entra() const
{
    if (Widget() == nullptr)
        return true;
    QStyleOptionButton opzione;
    opzione.initFrom(Bottone());
    const QRect spazio =
        Bottone()->style()->subElementRect(QStyle::SE_PushButtonContents, &opzione, Bottone());
    return Bottone()->fontMetrics().size(Qt::TextShowMnemonic, Bottone()->text()).width() <= spazio.width();
}
