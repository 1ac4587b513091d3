// Windows-1252 by the system's own conversion.
#include "platform/codifica.h"

#include <qt_windows.h>

namespace {

/// The station's code page, whatever the one that this system is set to.
constexpr UINT PAGINA = 1252;

/// The conversion takes the two halves of a surrogate pair for two characters; here they are one.
QString Senza_Coppie(const QString &testo)
{
    QString singoli;
    singoli.reserve(testo.size());
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const bool coppia =
            testo[i].isHighSurrogate() && i + 1 < testo.size() && testo[i + 1].isLowSurrogate();
        singoli.append(coppia ? QChar(QChar::ReplacementCharacter) : testo[i]);
        if (coppia)
            ++i;
    }
    return singoli;
}

} // namespace

QString Testo_DaAnsi(const QByteArray &byte)
{
    // One byte is one character in this code page, both ways.
    QString testo(byte.size(), Qt::Uninitialized);
    const auto numero = static_cast<int>(byte.size());
    MultiByteToWideChar(PAGINA, 0, byte.constData(), numero, reinterpret_cast<wchar_t *>(testo.data()),
                        numero);
    return testo;
}

QByteArray Testo_InAnsi(const QString &testo)
{
    const QString singoli = Senza_Coppie(testo);
    QByteArray byte(singoli.size(), Qt::Uninitialized);
    const auto numero = static_cast<int>(singoli.size());
    WideCharToMultiByte(PAGINA, WC_NO_BEST_FIT_CHARS, reinterpret_cast<const wchar_t *>(singoli.utf16()),
                        numero, byte.data(), numero, "?", nullptr);
    return byte;
}
