// Any text as the settings of a port: read as the properties' own words say, or refused whole.
#include "fuzz/comune.h"
#include "link/seriale_comune.h"
#include "platform/codifica.h"

#include <QRegularExpression>

namespace {

/// The same text once more: speed, parity, data bits, stop bits. Round the two numbers blanks do no harm.
const QRegularExpression &Forma()
{
    static const QRegularExpression FORMA(QRegularExpression::anchoredPattern(
        QStringLiteral("\\s*\\+?([0-9]+)\\s*,([NEOMSneoms]),\\s*\\+?0*([5-8])\\s*,(1|1\\.5|2)")));
    return FORMA;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    const QString testo = Testo_DaAnsi(Byte_Di(dati, quanti));
    const QRegularExpressionMatch forma = Forma().match(testo);
    const double velocita = forma.captured(1).toDouble();
    const bool atteso = forma.hasMatch() && velocita >= 1 && velocita <= 2147483647.0;

    FormatoLinea formato;
    const bool letto = Esegui({NumeroErrore::ValoreProprietaErrato}, [&] { formato = Formato_Di(testo); });
    Pretendi(letto == atteso, "a settings text is one of four words in their order");
    if (!letto)
        return 0;
    Pretendi(formato.velocita == velocita, "the speed is that of the text");
    Pretendi(static_cast<qsizetype>(formato.parita) ==
                 QStringLiteral("NEOMS").indexOf(forma.captured(2).toUpper()),
             "the parity is its letter's");
    Pretendi(formato.bit == forma.captured(3).toInt(), "the data bits are those of the text");
    const QStringList stop{QStringLiteral("1"), QStringLiteral("1.5"), QStringLiteral("2")};
    Pretendi(stop[static_cast<qsizetype>(formato.stop)] == forma.captured(4),
             "the stop bits are those of the text");
    return 0;
}
