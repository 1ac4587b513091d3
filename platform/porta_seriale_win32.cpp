// Ports as the system's device names.
#include "platform/porta_seriale.h"

#include <qt_windows.h>

void Porte_Stazione(const QString &)
{
    // The system's own numbers: no folder has links.
}

QString Porta_Dispositivo(qint16 numero)
{
    // The long form of the name: the short one ends at COM9.
    return QStringLiteral("\\\\.\\COM%1").arg(numero);
}

bool Porta_Presente(qint16 numero)
{
    const QString nome = QStringLiteral("COM%1").arg(numero);
    wchar_t dispositivo[MAX_PATH];
    return QueryDosDeviceW(reinterpret_cast<const wchar_t *>(nome.utf16()), dispositivo, MAX_PATH) != 0 ||
           GetLastError() == ERROR_INSUFFICIENT_BUFFER; // its name is long, but there is one
}

QList<PortaTrovata> Porte_Elenca()
{
    constexpr qint16 ULTIMA = 256; // the system numbers no further
    QList<PortaTrovata> porte;
    for (qint16 numero = 1; numero <= ULTIMA; ++numero) {
        // Every user of the computer may open a port that nobody has.
        if (Porta_Presente(numero))
            porte.append({numero, Porta_Dispositivo(numero), true});
    }
    return porte;
}
