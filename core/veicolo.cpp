// The three keys that name a vehicle.
#include "core/veicolo.h"

#include "core/modGeneral.h"
#include "core/sezioni_acc.h"

VeicoloInMano gVeicolo;

VeicoloInMano Veicolo_Leggi(const QString &file)
{
    if (file.isEmpty())
        return {};
    const auto valore = [&file](const QString &chiave) {
        return Valore_Ini(file, SEZIONE_LIBRETTO.toString(), chiave).trimmed();
    };
    const QString descrizione = valore(QStringLiteral("Fabbrica")) + u' ' + valore(QStringLiteral("Tipo"));
    return {valore(QStringLiteral("Targa")), descrizione.trimmed()};
}

void Veicolo_Prendi()
{
    gVeicolo = Veicolo_Leggi(gFileAcc);
}
