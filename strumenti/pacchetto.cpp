// The entries of the package, and its file.
#include "strumenti/pacchetto.h"

#include "core/modGeneral.h"
#include "platform/orologio.h"
#include "platform/percorsi.h"
#include "strumenti/archivio_zip.h"
#include "strumenti/password_coperta.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <optional>

namespace {

std::optional<QByteArray> Byte_Di(const QString &percorso)
{
    QFile file(Percorso_Nativo(percorso));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

QByteArray Testo_Di(const Riscontri &riscontri)
{
    QString testo;
    for (const Riscontro &riscontro : riscontri)
        testo += Riscontro_Testo(riscontro);
    return testo.toUtf8();
}

/// In the lines of the usual checking programs. A file that cannot be read has none: the sum of nothing would
/// pass for that of an empty file.
QByteArray Somme()
{
    QByteArray somme;
    for (const QString &percorso : {gFileLingue, gFileLingueMctc, gFileModelloAcc}) {
        const std::optional<QByteArray> byte = Byte_Di(percorso);
        if (!byte)
            continue;
        somme += QCryptographicHash::hash(*byte, QCryptographicHash::Sha256).toHex() + "  " +
                 QFileInfo(Percorso_Nativo(percorso)).fileName().toUtf8() + '\n';
    }
    return somme;
}

} // namespace

QByteArray Senza_Password(const QByteArray &configurazione)
{
    // Byte for byte as letters, so that every other one stays. In two bytes a letter nothing would be found.
    if (configurazione.contains('\0'))
        return {};
    return Password_Coperte(QString::fromLatin1(configurazione)).toLatin1();
}

bool Pacchetto_Scrivi(const QString &file, const Riscontri &riscontri, const QString &stazione)
{
    const QList<VoceZip> voci = {
        {"diagnosi.txt",  Testo_Di(riscontri)     },
        {"diagnosi.json", Riscontri_Json(riscontri, stazione)},
        {"lumira.ini",               Senza_Password(Byte_Di(gFileIni).value_or(QByteArray()))                           },
        {"somme.sha256",               Somme()},
    };
    const QByteArray zip = Zip_Componi(voci, Orologio_Corrente().Adesso());
    QFile pacchetto(file);
    if (!pacchetto.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    if (pacchetto.write(zip) == zip.size() && pacchetto.flush())
        return true;
    pacchetto.remove();
    return false;
}
