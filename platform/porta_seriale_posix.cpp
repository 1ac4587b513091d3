// Ports as terminal devices.
#include "platform/porta_seriale.h"

#include "platform/percorsi.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <unistd.h>

namespace {

QString &Cartella_Stazione()
{
    static QString cartella = Cartella_Programma();
    return cartella;
}

/// The system keeps names for serial chips that the machine may not have; their driver says which it has
/// found. Other devices say nothing: they are there when their name is.
bool Senza_Circuito(const QString &dispositivo)
{
    QFile tipo(QStringLiteral("/sys/class/tty/%1/type").arg(QFileInfo(dispositivo).fileName()));
    return tipo.open(QIODevice::ReadOnly) && tipo.readAll().trimmed() == "0";
}

PortaTrovata Porta_Di(qint16 numero, const QString &dispositivo)
{
    const bool permessa = ::access(QFile::encodeName(dispositivo).constData(), R_OK | W_OK) == 0;
    return {numero, dispositivo, permessa};
}

/// The numbers that may stand for a port: those of the links, and those of the system's own serial chips.
QList<qint16> Numeri_Possibili()
{
    constexpr qsizetype PREFISSO = 3; // COM
    constexpr qint16 CIRCUITI = 32;
    QList<qint16> numeri;
    const QString cartella = Percorso_Nativo(Cartella_Stazione() + QStringLiteral("\\porte"));
    const QStringList legami =
        QDir(cartella).entryList({QStringLiteral("COM*")}, QDir::AllEntries | QDir::System);
    for (const QString &legame : legami)
        numeri.append(legame.sliced(PREFISSO).toShort());
    for (qint16 numero = 1; numero <= CIRCUITI; ++numero)
        numeri.append(numero);
    std::sort(numeri.begin(), numeri.end());
    numeri.erase(std::unique(numeri.begin(), numeri.end()), numeri.end());
    numeri.removeIf([](qint16 numero) { return numero <= 0; });
    return numeri;
}

/// The terminals that hang on hardware: the others are consoles.
QStringList Dispositivi_Veri()
{
    QStringList veri;
    const QDir terminali(QStringLiteral("/sys/class/tty"));
    const QStringList nomi = terminali.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QString &nome : nomi) {
        const QString dispositivo = QStringLiteral("/dev/") + nome;
        if (terminali.exists(nome + QStringLiteral("/device")) && QFileInfo::exists(dispositivo) &&
            !Senza_Circuito(dispositivo))
            veri.append(dispositivo);
    }
    return veri;
}

} // namespace

void Porte_Stazione(const QString &cartella)
{
    Cartella_Stazione() = cartella;
}

QString Porta_Dispositivo(qint16 numero)
{
    const QString nome = QStringLiteral("\\porte\\COM%1").arg(numero);
    const QFileInfo legame(Percorso_Nativo(Cartella_Stazione() + nome));
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

QList<PortaTrovata> Porte_Elenca()
{
    QList<PortaTrovata> porte;
    QStringList altri = Dispositivi_Veri();
    const QList<qint16> numeri = Numeri_Possibili();
    for (const qint16 numero : numeri) {
        if (!Porta_Presente(numero))
            continue;
        porte.append(Porta_Di(numero, Porta_Dispositivo(numero)));
        altri.removeAll(porte.last().Dispositivo);
    }
    for (const QString &dispositivo : std::as_const(altri))
        porte.append(Porta_Di(0, dispositivo));
    return porte;
}
