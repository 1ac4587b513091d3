// The user's locale, in the shape of the system's two locale calls.
#pragma once

#include <QByteArray>
#include <QChar>

/// Kinds of locale text that the program asks for.
inline constexpr qint32 LOCALE_SEPARATORE_DECIMALE = 14;
inline constexpr qint32 LOCALE_SEPARATORE_DATA = 29;

/// Identifier of the user's locale.
quint32 Locale_Utente();

/// @param locale identifier from Locale_Utente. @param tipo kind of text, see above.
/// @param capienza size of the caller's buffer, the closing NUL included; 0 only asks for the size needed.
/// @param[out] testo with capienza not 0: the text and its closing NUL, when it fits.
/// @return the size of the text with its closing NUL; 0 when the kind is unknown or the buffer too small.
qint32 Locale_Dato(quint32 locale, qint32 tipo, QByteArray &testo, qint32 capienza);

/// The decimal separator of the user's locale, as the number conversions take it.
QChar Separatore_Decimale();
