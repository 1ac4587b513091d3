// The print queues, as the station asks for them.
#include "strumenti/diagnosi.h"

#include "core/parole.h"
#include "platform/code_stampa.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr Parole NESSUNA = {u"nessuna stampante, o il sistema di stampa non risponde",
                            u"no printer, or the print system does not answer"};
constexpr Parole INSTALLARE = {u"installare una stampante; se c'è, riavviare il servizio di stampa",
                               u"install a printer; if there is one, start the print service again"};
constexpr Parole ACCETTA = {u"%1 (predefinita) prende lavori", u"%1 (default) takes jobs"};
constexpr Parole RIFIUTA = {u"%1 (predefinita) non prende lavori", u"%1 (default) takes no jobs"};
constexpr Parole RIPRENDERE = {u"accenderla e farle riprendere i lavori dalla sua coda",
                               u"switch it on and let its queue take jobs again"};
constexpr Parole SENZA_PREDEFINITA = {u"nessuna è predefinita fra %1", u"none is the default of %1"};
constexpr Parole SCEGLIERE = {u"sceglierne una come predefinita", u"choose one of them as the default"};

} // namespace

void Diagnosi_Stampanti(Riscontri &riscontri)
{
    const QList<CodaStampa> code = Code_Elenca();
    if (code.isEmpty()) {
        Trovato_Avviso(riscontri, Materia::Stampanti, In_Parole(NESSUNA), In_Parole(INSTALLARE));
        return;
    }
    const auto predefinita =
        std::find_if(code.cbegin(), code.cend(), [](const CodaStampa &coda) { return coda.predefinita; });
    if (predefinita == code.cend()) {
        QStringList nomi;
        for (const CodaStampa &coda : code)
            nomi.append(coda.nome);
        Trovato_Avviso(riscontri, Materia::Stampanti,
                       In_Parole(SENZA_PREDEFINITA).arg(nomi.join(QStringLiteral(", "))),
                       In_Parole(SCEGLIERE));
    } else if (predefinita->accetta) {
        Trovato_Buono(riscontri, Materia::Stampanti, In_Parole(ACCETTA).arg(predefinita->nome));
    } else {
        Trovato_Guasto(riscontri, Materia::Stampanti, In_Parole(RIFIUTA).arg(predefinita->nome),
                       In_Parole(RIPRENDERE));
    }
}
