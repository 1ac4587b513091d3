// One procedure a kind of check. It knows no row, no section and no file.
#include "mctc/regole_valore.h"

#include "platform/numeri.h"

#include <algorithm>

namespace {

constexpr qint16 PRIMO_ANNO = 1900;
constexpr qsizetype LUNGHEZZA_DATA = 8;
constexpr qsizetype TARGA_MINIMA = 4;
constexpr qsizetype DECIMALI = 2;

bool Solo_Cifre(const QString &valore)
{
    return std::all_of(valore.cbegin(), valore.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

ErroreValore Errore_SuTesto(const QString &valore, qint16 massimo, Vocabolario ammessi)
{
    if (massimo != 0)
        return valore.size() > massimo ? ValoreLunghezza : ValoreBuono;
    return std::find(ammessi.begin(), ammessi.end(), valore) != ammessi.end() ? ValoreBuono
                                                                              : ValoreNonAmmesso;
}

ErroreValore Errore_SuDecimale(const QString &valore, qint16 massimo)
{
    if (!Numero_Valido(valore))
        return ValoreNonAmmesso;
    if (valore.size() > massimo)
        return ValoreLunghezza;
    const qsizetype punto = valore.indexOf(u'.');
    return punto >= 0 && valore.size() - punto - 1 == DECIMALI ? ValoreBuono : ValoreNonAmmesso;
}

/// The pieces are taken from both ends, so that a date of another length may still make a day: then only the
/// length is wrong.
ErroreValore Errore_SuData(const QString &valore)
{
    if (!Numero_Valido(valore) || !Data_Valida(Numero_Pezzo(valore.right(4)), Numero_Pezzo(valore.mid(2, 2)),
                                               Numero_Pezzo(valore.left(2))))
        return ValoreNonData;
    return valore.size() == LUNGHEZZA_DATA ? ValoreBuono : ValoreLunghezza;
}

ErroreValore Errore_SuOra(const QString &valore)
{
    if (!Numero_Valido(valore) || Ora_PezziFuori(valore) > 0)
        return ValoreNonOra;
    return valore.size() == LUNGHEZZA_ORA ? ValoreBuono : ValoreLunghezza;
}

ErroreValore Errore_SuCifre(const QString &valore, qint16 massimo)
{
    if (valore.size() > massimo)
        return ValoreLunghezza;
    return Solo_Cifre(valore) ? ValoreBuono : ValoreNonAmmesso;
}

ErroreValore Errore_SuLunghezza(const QString &valore, qint16 esatta)
{
    return valore.size() == esatta ? ValoreBuono : ValoreLunghezza;
}

ErroreValore Errore_SuAnno(const QString &valore, qint16 esatta)
{
    if (valore.size() != esatta)
        return ValoreLunghezza;
    return Solo_Cifre(valore) && Numero_16(valore) >= PRIMO_ANNO ? ValoreBuono : ValoreNonAmmesso;
}

ErroreValore Errore_SuTarga(const QString &valore, qint16 massimo, Flag obbligatorio)
{
    if (!obbligatorio || valore.isEmpty())
        return ValoreBuono;
    return valore.size() >= TARGA_MINIMA && valore.size() <= massimo ? ValoreBuono : ValoreNonTarga;
}

ErroreValore Errore_DelTipo(const QString &valore, TipoControllo tipo, qint16 massimo, Vocabolario ammessi,
                            Flag obbligatorio)
{
    switch (tipo) {
    case TipoControllo::Testo:
        return Errore_SuTesto(valore, massimo, ammessi);
    case TipoControllo::Decimale:
        return Errore_SuDecimale(valore, massimo);
    case TipoControllo::Data:
        return Errore_SuData(valore);
    case TipoControllo::Ora:
        return Errore_SuOra(valore);
    case TipoControllo::Cifre:
        return Errore_SuCifre(valore, massimo);
    case TipoControllo::Esatto:
        return Errore_SuLunghezza(valore, massimo);
    case TipoControllo::Anno:
        return Errore_SuAnno(valore, massimo);
    case TipoControllo::Targa:
        return Errore_SuTarga(valore, massimo, obbligatorio);
    }
    Q_UNREACHABLE();
}

} // namespace

Flag Data_Valida(qint16 anno, qint16 mese, qint16 giorno)
{
    static constexpr qint16 GIORNI[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (anno < PRIMO_ANNO || mese < 1 || mese > 12)
        return Falso;
    const bool bisestile = anno % 400 == 0 || (anno % 4 == 0 && anno % 100 != 0);
    const int giorni = mese == 2 && bisestile ? 29 : GIORNI[mese - 1];
    return Flag_Da(giorno >= 1 && giorno <= giorni);
}

qint16 Ora_PezziFuori(const QString &valore)
{
    return Intero16((Numero_Pezzo(valore.left(2)) > 23) + (Numero_Pezzo(valore.mid(2, 2)) > 59) +
                    (Numero_Pezzo(valore.right(2)) > 59));
}

ErroreValore Valore_Errore(const QString &valore, TipoControllo tipo, qint16 massimo, Vocabolario ammessi,
                           Flag obbligatorio)
{
    if (valore.isEmpty() && !obbligatorio)
        return ValoreBuono;
    const ErroreValore errore = Errore_DelTipo(valore, tipo, massimo, ammessi, obbligatorio);
    return valore.isEmpty() && errore == ValoreBuono ? ValoreAssente : errore;
}
