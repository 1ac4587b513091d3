// Names cut out of paths, and listings on the platform's. It opens no file.
#include "core/modFs.h"

#include "platform/elenco.h"
#include "platform/errore_esecuzione.h"
#include "platform/eventi.h"
#include "platform/percorsi.h"

#include <QStringBuilder>

namespace {

/// Files between two turns of the events, where a listing has run them already.
constexpr qsizetype FIRME_A_TURNO = 200;

} // namespace

Flag Fs_Esiste(const QString &percorso, qint16 attributo)
{
    if (percorso.isEmpty())
        return Falso;
    try {
        return Flag_Da(!Cartella_Elenca(percorso, attributo).isEmpty());
    } catch (const ErroreEsecuzione &) {
        return Falso;
    }
}

Flag Fs_CartellaAmmessa(const QString &cartella)
{
    return Flag_Da(Percorso_Ammesso(cartella + QStringLiteral("12345678.acc")));
}

QString Fs_ConBarra(const QString &cartella)
{
    return cartella.endsWith(u'\\') ? cartella : cartella + u'\\';
}

qint32 Fs_Elenco(QString &cartella, const QString &maschera, QStringList &nomi, Flag percorsoIntero,
                 Flag filtroEstensione)
{
    cartella = Fs_ConBarra(cartella);
    const QString estensione = Fs_Estensione(maschera).toUpper();
    nomi.clear();
    const QStringList trovati = Cartella_Elenca(cartella + maschera, 0, Eventi_Esegui);
    for (const QString &nome : trovati) {
        Eventi_Esegui();
        if (filtroEstensione && Fs_Estensione(nome).toUpper() != estensione)
            continue;
        nomi.append(percorsoIntero ? cartella + nome : nome);
    }
    return Intero32(nomi.size() - 1);
}

QString Fs_Nome(const QString &percorso)
{
    return percorso.mid(percorso.lastIndexOf(u'\\') + 1);
}

QString Fs_Estensione(const QString &nome)
{
    return nome.mid(nome.lastIndexOf(u'.') + 1);
}

QString Fs_Radice(const QString &percorso)
{
    const QString nome = Fs_Nome(percorso);
    return nome.left(nome.indexOf(u'.'));
}

QString Fs_TagliaNul(QString &testo)
{
    testo = testo.left(testo.indexOf(QChar(0)));
    return testo;
}

qint32 Fs_ElencoFirme(const QString &cartella, const QString &maschera, QStringList &firme)
{
    QList<RecordTrovato> trovati;
    if (!Trova_File(cartella + maschera, trovati, Eventi_Esegui))
        return -1;
    firme.clear();
    firme.reserve(trovati.size());
    for (RecordTrovato &trovato : trovati) {
        // Both halves move when a file is written; together they need not be a time, only a text that
        // differs.
        const auto accessoAlto = static_cast<qint32>(trovato.ftLastAccessTime >> 32);
        const auto scritturaBassa = static_cast<qint32>(trovato.ftLastWriteTime & 0xFFFFFFFFu);
        firme.append(Fs_TagliaNul(trovato.cFileName) % u" - " % QString::number(accessoAlto) %
                     QString::number(scritturaBassa));
        if (firme.size() % FIRME_A_TURNO == 0)
            Eventi_Esegui();
    }
    return Intero32(firme.size() - 1);
}
