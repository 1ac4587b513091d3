// The manual beside the program.
#include "app/manuale.h"

#include "core/modGeneral.h"
#include "platform/percorsi.h"

#include <QFileInfo>

#include <algorithm>

namespace {

/// Anchor of a form's chapter; empty for none.
QString Ancora_Di(const QString &modulo)
{
    const auto capitolo = std::find_if(std::begin(CAPITOLI), std::end(CAPITOLI),
                                       [&modulo](const Capitolo &uno) { return modulo == uno.Modulo; });
    return capitolo != std::end(CAPITOLI) ? QString::fromUtf16(capitolo->Ancora) : QString();
}

/// Address of a file beside the program; empty when it is not there.
QUrl Indirizzo_Di(const QString &file)
{
    const QString nativo = Percorso_Nativo(gAppPath + file);
    return QFileInfo(nativo).isFile() ? QUrl::fromLocalFile(nativo) : QUrl();
}

} // namespace

QUrl Manuale_Indirizzo(const QString &modulo)
{
    const QString ancora = Ancora_Di(modulo);
    const QUrl capitolo = ancora.isEmpty()
                              ? QUrl()
                              : Indirizzo_Di(QStringLiteral("manuale\\") + ancora + QStringLiteral(".html"));
    return capitolo.isEmpty() ? Indirizzo_Di(QStringLiteral("manuale.html")) : capitolo;
}
