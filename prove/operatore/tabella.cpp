#include "prove/operatore/tabella.h"

#include <QByteArrayList>

#include <algorithm>

namespace operatore {

namespace {

constexpr const char *TESTATA =
    "| system | actions | first seed | days | crashes, hangs, sanitizer's words, files "
    "changed against the rules | ended by a run-time error |\n|---|---|---|---|---|---|\n";

QByteArray Riga(const Giornate &giornate, quint32 seme)
{
    QByteArrayList errori;
    for (auto errore = giornate.Errori.cbegin(); errore != giornate.Errori.cend(); ++errore)
        errori.append(errore.key().toUtf8() + ": " + QByteArray::number(errore.value()));
    return QByteArray::number(giornate.Azioni) + " | " + QByteArray::number(seme) + " | " +
           QByteArray::number(giornate.Vite) + " | " + (giornate.Guasto.isEmpty() ? "0" : "1") + " | " +
           (errori.isEmpty() ? "none" : errori.join("; ")) + " |";
}

} // namespace

QByteArray Tabella(const Giornate &giornate, quint32 seme, const QByteArray &sistema,
                   const QByteArray &vecchia)
{
    const QByteArray inizio = "| " + sistema + " | ";
    QByteArrayList righe{inizio + Riga(giornate, seme)};
    if (const qsizetype posto = vecchia.indexOf(TESTATA); posto >= 0) {
        for (const QByteArray &riga : vecchia.mid(posto + qsizetype(qstrlen(TESTATA))).split('\n')) {
            if (!riga.isEmpty() && !riga.startsWith(inizio))
                righe.append(riga);
        }
    }
    std::sort(righe.begin(), righe.end());
    return TESTATA + righe.join('\n') + '\n';
}

} // namespace operatore
