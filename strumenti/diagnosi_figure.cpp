// The pictures that the station opens, opened as it opens them: it ends at one that is none.
#include "strumenti/diagnosi.h"

#include "core/modGeneral.h"
#include "core/parole.h"
#include "platform/percorsi.h"

#include <QFileInfo>
#include <QImage>
#include <QStringList>

namespace {

constexpr Parole APERTE = {u"%1 figure, si aprono tutte", u"%1 pictures, all of them open"};
constexpr Parole NON_FIGURA = {u"dati\\%1 non è una figura, o è danneggiata: la stazione vi finisce",
                               u"dati\\%1 is no picture, or damaged: the station ends at it"};
constexpr Parole REINSTALLARE = {u"installare di nuovo la stazione: la configurazione resta",
                                 u"install the station again: its configuration stays"};

} // namespace

void Diagnosi_Figure(Riscontri &riscontri)
{
    QStringList figure = Figure_Necessarie();
    const qsizetype prima = riscontri.size();
    // What is not there or cannot be read has been told with the files.
    figure.removeIf(
        [](const QString &nome) { return !QFileInfo(Percorso_Nativo(gDirImmagini + nome)).isReadable(); });
    for (const QString &nome : std::as_const(figure)) {
        if (QImage(Percorso_Nativo(gDirImmagini + nome)).isNull())
            Trovato_Guasto(riscontri, Materia::Programma, In_Parole(NON_FIGURA).arg(nome),
                           In_Parole(REINSTALLARE));
    }
    if (riscontri.size() == prima)
        Trovato_Buono(riscontri, Materia::Programma, In_Parole(APERTE).arg(figure.size()));
}
