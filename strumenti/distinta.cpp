// SPDX in JSON. Where it lies hangs on what the station came from, a folder or a package.
#include "strumenti/distinta.h"

#include "core/modGeneral.h"
#include "platform/percorsi.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct LuogoDistinta
{
    QStringView Radice; ///< of the names in it, from the station's folder
    QStringView File;   ///< from there
};

/// A package is laid out from the root of the machine, two folders above the station.
constexpr LuogoDistinta LUOGHI[] = {
    {u".",     u"licenze/distinta.spdx.json"             },
    {u"../..", u"usr/share/doc/lumira/distinta.spdx.json"},
};

QByteArray Somma_Letta(const QJsonObject &file)
{
    const QJsonArray somme = file[QStringLiteral("checksums")].toArray();
    for (const QJsonValueConstRef &somma : somme) {
        if (somma[QStringLiteral("algorithm")].toString() == u"SHA256")
            return somma[QStringLiteral("checksumValue")].toString().toLatin1();
    }
    return {};
}

/// The files of a bill that lie in the station. @param radice of the names in it.
Distinta Della_Stazione(const QByteArray &byte, const QDir &radice, const QDir &stazione)
{
    Distinta distinta;
    const QJsonArray lista = QJsonDocument::fromJson(byte).object()[QStringLiteral("files")].toArray();
    for (const QJsonValueConstRef &voce : lista) {
        const QJsonObject file = voce.toObject();
        const QString percorso = radice.absoluteFilePath(file[QStringLiteral("fileName")].toString());
        const QString nome = stazione.relativeFilePath(QDir::cleanPath(percorso));
        const QByteArray somma = Somma_Letta(file);
        if (!nome.startsWith(u"../") && nome != u"lumira.ini" && !somma.isEmpty())
            distinta.insert(QString(nome).replace(u'/', u'\\'), somma);
    }
    return distinta;
}

} // namespace

Distinta Distinta_Leggi()
{
    const QDir stazione(Percorso_Nativo(gAppPath.chopped(1)));
    for (const LuogoDistinta &luogo : LUOGHI) {
        const QDir radice(QDir::cleanPath(stazione.absoluteFilePath(luogo.Radice.toString())));
        QFile file(radice.filePath(luogo.File.toString()));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        // The bill of a package says nothing of a station that lies elsewhere.
        Distinta distinta = Della_Stazione(file.readAll(), radice, stazione);
        if (!distinta.isEmpty())
            return distinta;
    }
    return {};
}

QByteArray Somma_Di(const QByteArray &byte)
{
    return QCryptographicHash::hash(byte, QCryptographicHash::Sha256).toHex();
}
