// Any text as the value of any field of an acceptance file, held against its rule written a second time.
// Input: a byte for the field (those of the visual check behind the others), then the value.
#include "fuzz/comune.h"
#include "mctc/formato_acc.h"
#include "platform/codifica.h"
#include "platform/numeri.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

#include <optional>

namespace {

struct Regola
{
    TipoControllo controllo;
    qint16 massimo;
    Vocabolario ammessi;
    Flag obbligatorio;
};

Regola Regola_Numero(size_t numero)
{
    numero %= REGOLE_ACC.size() + REGOLE_VISIVI.size();
    if (numero < REGOLE_ACC.size()) {
        const RegolaCampo &campo = REGOLE_ACC[numero];
        return {campo.Controllo, campo.Massimo, campo.Ammessi, campo.Obbligatorio};
    }
    const RegolaVisivo &visivo = REGOLE_VISIVI[numero - REGOLE_ACC.size()];
    return {visivo.Controllo, visivo.Massimo, visivo.Ammessi, Falso};
}

QRegularExpression Intera(const char *forma)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(forma)));
}

bool E_Data(const QString &valore)
{
    const QDate data = QDate::fromString(valore, QStringLiteral("ddMMyyyy"));
    return data.isValid() && data.year() >= 1900;
}

bool Nel_Vocabolario(const QString &valore, Vocabolario ammessi)
{
    bool trovato = false;
    for (const QStringView voce : ammessi)
        trovato = trovato || voce == valore;
    return trovato;
}

/// Whether a value that is not empty is good; nothing where the loose test of numbers takes more than digits,
/// and its result is not worth a second writing.
std::optional<bool> Buono(const QString &valore, const Regola &regola)
{
    static const QRegularExpression CIFRE = Intera("[0-9]+");
    static const QRegularExpression CIFRE_E_PUNTI = Intera("[0-9.]+");
    static const QRegularExpression DUE_DECIMALI = Intera("[0-9]*\\.[0-9]{2}");
    const bool cifre = CIFRE.match(valore).hasMatch();
    switch (regola.controllo) {
    case TipoControllo::Testo:
        return regola.massimo != 0 ? valore.size() <= regola.massimo
                                   : Nel_Vocabolario(valore, regola.ammessi);
    case TipoControllo::Decimale:
        if (!CIFRE_E_PUNTI.match(valore).hasMatch())
            return std::nullopt;
        return valore.size() <= regola.massimo && DUE_DECIMALI.match(valore).hasMatch();
    case TipoControllo::Data:
        return cifre ? std::optional(E_Data(valore)) : std::nullopt;
    case TipoControllo::Ora:
        return cifre ? std::optional(QTime::fromString(valore, QStringLiteral("HHmmss")).isValid())
                     : std::nullopt;
    case TipoControllo::Cifre:
        return cifre && valore.size() <= regola.massimo;
    case TipoControllo::Esatto:
        return valore.size() == regola.massimo;
    case TipoControllo::Anno:
        return cifre && valore.size() == regola.massimo && valore.toInt() >= 1900;
    case TipoControllo::Targa:
        return !regola.obbligatorio || (valore.size() >= 4 && valore.size() <= regola.massimo);
    }
    return std::nullopt;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    if (quanti == 0)
        return 0;
    const Regola regola = Regola_Numero(dati[0]);
    const QString valore = Testo_DaAnsi(Byte_Di(dati + 1, quanti - 1));
    ErroreValore errore = ValoreBuono;
    Esegui({}, [&] {
        errore = Valore_Errore(valore, regola.controllo, regola.massimo, regola.ammessi, regola.obbligatorio);
    });

    if (valore.isEmpty()) {
        Pretendi((errore == ValoreBuono) == !regola.obbligatorio,
                 "an empty value is wrong where one is required");
        return 0;
    }
    Pretendi(errore != ValoreAssente, "a value that is there is not missing");
    if (const std::optional<bool> buono = Buono(valore, regola))
        Pretendi((errore == ValoreBuono) == *buono, "a value is good when its rule says so");
    const bool numero = regola.controllo == TipoControllo::Decimale ||
                        regola.controllo == TipoControllo::Data || regola.controllo == TipoControllo::Ora;
    if (numero && errore == ValoreBuono)
        Pretendi(Numero_Valido(valore), "a date, a time and a decimal are numbers");
    return 0;
}
