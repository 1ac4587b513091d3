// The profile calls of Windows themselves. They keep nothing of a file between two calls, so that every
// change shows at once; a write changes the file in its place.
#include "platform/profilo.h"

#include "platform/codifica.h"

#include <qt_windows.h>

namespace {

/// The whole path, in the code page: a bare name would be looked for in the folder of the system. Empty when
/// the path is.
QByteArray Percorso_Intero(const QString &file)
{
    const QString percorso = QString(file).replace(u'/', u'\\');
    const auto *chiesto = reinterpret_cast<const wchar_t *>(percorso.utf16());
    const DWORD serve = GetFullPathNameW(chiesto, 0, nullptr, nullptr);
    if (serve == 0)
        return {};
    QString intero(static_cast<qsizetype>(serve), Qt::Uninitialized);
    const DWORD lungo = GetFullPathNameW(chiesto, serve, reinterpret_cast<wchar_t *>(intero.data()), nullptr);
    return Testo_InAnsi(intero.left(static_cast<qsizetype>(lungo)));
}

} // namespace

QString Profilo_Leggi(const QString &sezione, const QString &chiave, const QString &predefinito, int misura,
                      const QString &file)
{
    if (misura <= 0)
        return {};
    const QByteArray percorso = Percorso_Intero(file);
    if (percorso.isEmpty())
        return predefinito.left(misura - 1);
    QByteArray valore(misura, Qt::Uninitialized);
    const DWORD letti =
        GetPrivateProfileStringA(Testo_InAnsi(sezione).constData(), Testo_InAnsi(chiave).constData(),
                                 Testo_InAnsi(predefinito).constData(), valore.data(),
                                 static_cast<DWORD>(misura), percorso.constData());
    return Testo_DaAnsi(valore.left(static_cast<qsizetype>(letti)));
}

bool Profilo_Scrivi(const QString &sezione, const QString &chiave, const QString &valore, const QString &file)
{
    const QByteArray percorso = Percorso_Intero(file);
    return !percorso.isEmpty() && Profilo_Ammette(sezione, chiave, valore) &&
           WritePrivateProfileStringA(Testo_InAnsi(sezione).constData(), Testo_InAnsi(chiave).constData(),
                                      Testo_InAnsi(valore).constData(), percorso.constData()) != FALSE;
}
