// Ports as terminal devices.
#include "platform/porta_seriale.h"

#include "platform/percorsi.h"

#include <QFile>
#include <QFileInfo>

namespace {

/// The system keeps names for serial chips that the machine may not have; their driver says which it has
/// found. Other devices say nothing: they are there when their name is.
bool Senza_Circuito(const QString &dispositivo)
{
    QFile tipo(QStringLiteral("/sys/class/tty/%1/type").arg(QFileInfo(dispositivo).fileName()));
    return tipo.open(QIODevice::ReadOnly) && tipo.readAll().trimmed() == "0";
}

} // namespace

QString Porta_Dispositivo(qint16 numero)
{
    const QString nome = QStringLiteral("\\porte\\COM%1").arg(numero);
    const QFileInfo legame(Percorso_Nativo(Cartella_Programma() + nome));
    // The device itself, so that two links to one device share its lock. A link to a device that is not
    // plugged in stands for that device, and its opening fails.
    if (legame.exists())
        return legame.canonicalFilePath();
    if (legame.isSymLink())
        return legame.symLinkTarget();
    return QStringLiteral("/dev/ttyS%1").arg(numero - 1);
}

bool Porta_Presente(qint16 numero)
{
    const QString dispositivo = Porta_Dispositivo(numero);
    return QFileInfo::exists(dispositivo) && !Senza_Circuito(dispositivo);
}
