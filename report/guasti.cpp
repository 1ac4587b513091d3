// The names of the four lamps, and their sentences.
#include "report/guasti.h"

#include "core/fari.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "core/testo_riempito.h"
#include "platform/numeri.h"

namespace {

/// In the order of Faro.
constexpr TestoMctc NOMI[] = {MctcAnabbaglianteDestro, MctcAnabbaglianteSinistro, MctcAbbaglianteDestro,
                              MctcAbbaglianteSinistro};
static_assert(std::size(NOMI) == std::size(FARI));

/// As the cells of the table give it: thousands of the unit of the result file.
QString In_Migliaia(float valore)
{
    return Numero_Testo(valore / 1000);
}

/// @param ammesso the text, with %1 for the value, %2 and %3 for the limits.
QString Intensita(const RigheFaro &faro, const QString &ammesso)
{
    const QString riga = Far_Valore(faro.lux);
    if (riga.isEmpty() || Lux_Regolare(Numero_Singolo(riga), faro.fascio))
        return {};
    const LimitiFascio limiti = Limiti_Di(faro.fascio);
    return Testo_Riempito(ammesso, In_Migliaia(Numero_Singolo(riga)),
                          In_Migliaia(static_cast<float>(limiti.minimo)),
                          In_Migliaia(static_cast<float>(limiti.massimo)));
}

QString Mira(const RigheFaro &faro)
{
    const bool verticale = !Riga_Regolare(faro.vert);
    const bool orizzontale = !Riga_Regolare(faro.orizz);
    if (verticale && orizzontale)
        return Testo_Mctc(MctcMiraErrata);
    if (verticale)
        return Testo_Mctc(MctcVerticaleErrato);
    return orizzontale ? Testo_Mctc(MctcOrizzontaleErrato) : QString();
}

} // namespace

QStringList Guasti_Elenca()
{
    const QString ammesso = Testo_Mctc(MctcAmmesso);
    if (ammesso.isEmpty() || Riga_Regolare(FarEsito))
        return {};
    QStringList guasti;
    for (size_t i = 0; i < std::size(FARI); ++i) {
        QStringList parti = {Intensita(FARI[i], ammesso), Mira(FARI[i])};
        parti.removeAll(QString());
        if (!parti.isEmpty())
            guasti.append(
                QStringLiteral("%1: %2").arg(Testo_Mctc(NOMI[i]), parti.join(QStringLiteral("; "))));
    }
    return guasti;
}
