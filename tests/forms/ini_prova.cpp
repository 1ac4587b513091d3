#include "tests/forms/ini_prova.h"

#include <QtGlobal>

namespace {

struct Tratto
{
    qsizetype inizio, fine;
};

/// From behind the head of a section to the next one.
Tratto Sezione_Di(const QByteArray &ini, const char *sezione)
{
    const QByteArray testa = QByteArray("[") + sezione + "]\r\n";
    const qsizetype posto = ini.indexOf(testa);
    if (posto < 0)
        qFatal("no section %s", sezione);
    const qsizetype fine = ini.indexOf("\n[", posto + testa.size() - 1);
    return {posto + testa.size(), fine < 0 ? ini.size() : fine + 1};
}

/// The line of a key, without its end.
Tratto Riga_Di(const QByteArray &ini, const char *sezione, const char *chiave)
{
    const Tratto tratto = Sezione_Di(ini, sezione);
    const QByteArray inizio = QByteArray("\n") + chiave + '=';
    const qsizetype posto = ini.indexOf(inizio, tratto.inizio - 1);
    if (posto < 0 || posto >= tratto.fine)
        qFatal("no key %s in section %s", chiave, sezione);
    return {posto + 1, ini.indexOf("\r\n", posto + 1)};
}

} // namespace

QByteArray Ini_Con(const QByteArray &ini, const char *sezione, const char *chiave, const QByteArray &valore)
{
    const Tratto riga = Riga_Di(ini, sezione, chiave);
    QByteArray nuovo = ini;
    return nuovo.replace(riga.inizio, riga.fine - riga.inizio, QByteArray(chiave) + '=' + valore);
}

QByteArray Ini_Senza(const QByteArray &ini, const char *sezione, const char *chiave)
{
    const Tratto riga = Riga_Di(ini, sezione, chiave);
    QByteArray nuovo = ini;
    return nuovo.remove(riga.inizio, riga.fine + 2 - riga.inizio);
}

QList<QByteArray> Ini_Righe(const QByteArray &ini, const char *sezione)
{
    const Tratto tratto = Sezione_Di(ini, sezione);
    QList<QByteArray> righe;
    for (const QByteArray &riga : ini.mid(tratto.inizio, tratto.fine - tratto.inizio).split('\n')) {
        const QByteArray testo = riga.trimmed();
        if (!testo.isEmpty() && !testo.startsWith(';'))
            righe.append(testo);
    }
    return righe;
}
