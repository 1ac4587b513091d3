// The help key on the system's own way of opening a page.
#include "toolkit/aiuto.h"

#include <QDesktopServices>

#include <utility>

namespace {

std::function<QUrl(const QString &)> &Indirizzo()
{
    static std::function<QUrl(const QString &)> indirizzo;
    return indirizzo;
}

} // namespace

void Aiuto_Imposta(std::function<QUrl(const QString &modulo)> indirizzo)
{
    Indirizzo() = std::move(indirizzo);
}

void Aiuto_Apri(const QString &modulo)
{
    const QUrl pagina = Indirizzo() ? Indirizzo()(modulo) : QUrl();
    if (!pagina.isEmpty())
        QDesktopServices::openUrl(pagina);
}
