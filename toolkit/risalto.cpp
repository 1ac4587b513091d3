// The mark by which the style sheet tells such a button. It knows no colour.
#include "toolkit/risalto.h"

#include "toolkit/controlli.h"

#include <QStyle>

namespace {

/// The style sheet looks at a control once: it is made to look again, and the type is kept.
void Segna(const Pulsante &pulsante, const char *risalto)
{
    pulsante.Fai([risalto](QWidget &widget) {
        const QFont carattere = widget.font();
        widget.setProperty("risalto", QLatin1String(risalto));
        widget.style()->polish(&widget);
        widget.setFont(carattere);
    });
}

} // namespace

void Pulsante_Principale(Pulsante &pulsante)
{
    Segna(pulsante, "principale");
    pulsante.FontBold(true);
}

void Pulsante_Assente(Pulsante &pulsante)
{
    Segna(pulsante, "assente");
}
