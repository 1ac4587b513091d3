// The profile calls of Windows themselves. They keep nothing of a file between two calls, so that every
// change shows at once; a write changes the file in its place.
//
// The calls take the path in Unicode: a station works in any folder, whatever page the system is set to. To
// them a file's bytes are characters of the system's page. One with a byte a character gives every byte back
// as it took it, and what the bytes mean stays the station's own affair. UTF-8 and the pages of East Asia do
// not: an accented letter of the station is half a character to them and would be lost. There the file's
// bytes are taken and put by hand.
#include "platform/profilo.h"

#include "platform/codifica.h"
#include "platform/percorsi.h"
#include "platform/profilo_testo.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <optional>
#include <qt_windows.h>

namespace {

const wchar_t *Largo(const QString &testo)
{
    return reinterpret_cast<const wchar_t *>(testo.utf16());
}

// --- by the calls -----------------------------------------------------------------------------------------

/// True when the page that the system is set to has a byte a character.
bool Pagina_DiUnByte()
{
    CPINFO pagina;
    return GetCPInfo(CP_ACP, &pagina) != FALSE && pagina.MaxCharSize == 1;
}

/// What the calls see in a text that stands in a file as bytes of the station's page.
QString Come_Sistema(const QString &testo)
{
    const QByteArray byte = Testo_InAnsi(testo);
    QString visto(byte.size(), Qt::Uninitialized);
    const auto numero = static_cast<int>(byte.size());
    MultiByteToWideChar(CP_ACP, 0, byte.constData(), numero, reinterpret_cast<wchar_t *>(visto.data()),
                        numero);
    return visto;
}

/// What a text that the calls have read is in the station's page.
QString Come_Stazione(const QString &visto)
{
    QByteArray byte(visto.size(), Qt::Uninitialized);
    const auto numero = static_cast<int>(byte.size());
    WideCharToMultiByte(CP_ACP, 0, Largo(visto), numero, byte.data(), numero, nullptr, nullptr);
    return Testo_DaAnsi(byte);
}

/// The whole path: a bare name would be looked for in the folder of the system. Empty when the path is.
QString Percorso_Intero(const QString &file)
{
    const QString percorso = QString(file).replace(u'/', u'\\');
    const DWORD serve = GetFullPathNameW(Largo(percorso), 0, nullptr, nullptr);
    if (serve == 0)
        return {};
    QString intero(static_cast<qsizetype>(serve), Qt::Uninitialized);
    const DWORD lungo =
        GetFullPathNameW(Largo(percorso), serve, reinterpret_cast<wchar_t *>(intero.data()), nullptr);
    return intero.left(static_cast<qsizetype>(lungo));
}

QString Leggi_Chiamata(const QString &sezione, const QString &chiave, const QString &predefinito,
                       int capienza, const QString &file)
{
    const QString percorso = Percorso_Intero(file);
    if (percorso.isEmpty())
        return predefinito.left(capienza - 1);
    QString valore(capienza, Qt::Uninitialized);
    const DWORD letti = GetPrivateProfileStringW(
        Largo(Come_Sistema(sezione)), Largo(Come_Sistema(chiave)), Largo(Come_Sistema(predefinito)),
        reinterpret_cast<wchar_t *>(valore.data()), static_cast<DWORD>(capienza), Largo(percorso));
    return Come_Stazione(valore.left(static_cast<qsizetype>(letti)));
}

bool Scrivi_Chiamata(const QString &sezione, const QString &chiave, const QString &valore,
                     const QString &file)
{
    const QString percorso = Percorso_Intero(file);
    return !percorso.isEmpty() &&
           WritePrivateProfileStringW(Largo(Come_Sistema(sezione)), Largo(Come_Sistema(chiave)),
                                      Largo(Come_Sistema(valore)), Largo(percorso)) != FALSE;
}

// --- by hand ----------------------------------------------------------------------------------------------

/// The bytes of a file; none when it is missing or cannot be read.
std::optional<QByteArray> Byte_Di(const QString &nativo)
{
    QFile aperto(nativo);
    if (!aperto.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray byte = aperto.readAll();
    return aperto.error() == QFileDevice::NoError ? std::optional(byte) : std::nullopt;
}

QString Leggi_Byte(const QString &sezione, const QString &chiave, const QString &predefinito, int capienza,
                   const QString &file)
{
    ValoriProfilo valori(Byte_Di(Percorso_Nativo(file)).value_or(QByteArray()));
    const std::optional<QString> valore =
        valori.Valore(Nome_DaConfrontare(sezione), Nome_DaConfrontare(chiave));
    return valore.value_or(predefinito).left(capienza - 1);
}

bool Scrivi_Byte(const QString &sezione, const QString &chiave, const QString &valore, const QString &file)
{
    const QString nativo = Percorso_Nativo(file);
    const std::optional<QByteArray> byte = Byte_Di(nativo);
    if (!byte && QFile::exists(nativo))
        return false; // there, but not to be read: writing would lose what it holds
    const QByteArray nuovi = Profilo_Aggiornato(byte.value_or(QByteArray()), sezione, chiave, valore);
    QSaveFile salvato(nativo);
    return salvato.open(QIODevice::WriteOnly) && salvato.write(nuovi) == nuovi.size() && salvato.commit();
}

} // namespace

QString Profilo_Leggi(const QString &sezione, const QString &chiave, const QString &predefinito, int capienza,
                      const QString &file)
{
    if (capienza <= 0)
        return {};
    return (Pagina_DiUnByte() ? Leggi_Chiamata : Leggi_Byte)(sezione, chiave, predefinito, capienza, file);
}

bool Profilo_Scrivi(const QString &sezione, const QString &chiave, const QString &valore, const QString &file)
{
    return Profilo_Ammette(sezione, chiave, valore) &&
           (Pagina_DiUnByte() ? Scrivi_Chiamata : Scrivi_Byte)(sezione, chiave, valore, file);
}

ProfiloFermo::ProfiloFermo(const QString &) {} // the calls themselves keep nothing

ProfiloFermo::~ProfiloFermo() = default;
