// One reading of the file, and the lines of its names. It knows no rule of a name or a value.
#include "mctc/righe_acc.h"

#include "platform/errore_esecuzione.h"
#include "platform/file.h"

#include <QHash>
#include <QPair>

namespace {

using Nome = QPair<QString, QString>; // section and key; a head has no key

/// The first line of a name, and its second.
struct Posti
{
    qint32 primo = 0;
    qint32 secondo = 0;
};

QHash<Nome, Posti> Posti_Leggi(const QString &percorso)
{
    QHash<Nome, Posti> posti;
    const auto annota = [&posti](const Nome &nome, qint32 numero) {
        Posti &suoi = posti[nome];
        (suoi.primo == 0 ? suoi.primo : suoi.secondo == 0 ? suoi.secondo : numero) = numero;
    };
    FileRighe righe(percorso);
    QString sezione;
    for (qint32 numero = 1; !righe.Fine(); ++numero) {
        const QString riga = righe.Leggi();
        const qsizetype uguale = riga.indexOf(u'=');
        if (uguale >= 0) {
            annota({sezione, riga.left(uguale)}, numero);
        } else if (riga.startsWith(u'[') && riga.contains(u']')) {
            sezione = riga.sliced(1, riga.indexOf(u']') - 1);
            annota({sezione, QString()}, numero);
        }
    }
    return posti;
}

} // namespace

void Rilievi_Numera(const QString &percorso, ListaRilievi &rilievi)
{
    QHash<Nome, Posti> posti;
    try {
        posti = Posti_Leggi(percorso);
    } catch (const ErroreEsecuzione &) {
        return; // gone since it was checked
    }
    for (RilievoAcc &rilievo : rilievi) {
        if (rilievo.Riga != 0 || (rilievo.Sezione.isEmpty() && rilievo.Campo.isEmpty()))
            continue;
        const Posti trovati = posti.value({rilievo.Sezione, rilievo.Campo});
        rilievo.Riga = trovati.secondo != 0 ? trovati.secondo : trovati.primo;
    }
}
