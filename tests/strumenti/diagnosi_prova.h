// A station in which lumira-diagnosi finds nothing to complain of, but for what hangs on this machine, and
// the findings of a run by what they are about.
#pragma once

#include "core/modGeneral.h"
#include "core/versione.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/strumenti/processo.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

class StazioneSana : public StazioneProva
{
public:
    StazioneSana()
    {
        Cambia_Ini("\nNum=1\r", "\nNum=77\r"); // a port that no machine has: nobody is waited for on it
        Programma_DiVersione(Versione_Programma());
        if (Programma().endsWith(QStringLiteral(".exe"))) {
            Scrivi(QStringLiteral("platforms\\qwindows.dll"), "libreria");
            Scrivi(QStringLiteral("imageformats\\qjpeg.dll"), "libreria");
        }
    }
    /// The station's program as far as anybody looks into it: its version stands in it as a text.
    void Programma_DiVersione(const QString &versione) const
    {
        const QString segnata = QStringLiteral("lumira, versione ") + versione + QChar(u'\0');
        Scrivi(Programma(), "testo" + QByteArray(reinterpret_cast<const char *>(segnata.utf16()),
                                                 segnata.size() * qsizetype{2}));
        // Of its owner and of everybody else.
        QFile::setPermissions(Nativo(Programma()), QFile::Permissions(0x7755));
    }
    /// Its name, with the suffix that the tool has.
    static QString Programma()
    {
        const QString suffisso = QFileInfo(QStringLiteral(LUMIRA_DIAGNOSI)).suffix();
        return suffisso.isEmpty() ? QStringLiteral("lumira") : QStringLiteral("lumira.") + suffisso;
    }
    QString Cartella() const { return QFileInfo(Nativo(QStringLiteral("lumira.ini"))).path(); }

    /// The bytes of a file with the first of some bytes replaced; they have to be there.
    void Cambia(const QString &nome, const QByteArray &da, const QByteArray &a) const
    {
        QByteArray byte = Leggi(nome);
        const qsizetype posto = byte.indexOf(da);
        if (posto < 0)
            qFatal("%s is not in %s", da.constData(), qPrintable(nome));
        Scrivi(nome, byte.replace(posto, da.size(), a));
    }
    void Cambia_Ini(const QByteArray &da, const QByteArray &a) const
    {
        Cambia(QStringLiteral("lumira.ini"), da, a);
    }
};

/// A run on a station, in Italian.
inline Esecuzione Diagnosi(const StazioneSana &stazione, const QStringList &argomenti = {})
{
    return Processo_Esegui(
        QStringLiteral(LUMIRA_DIAGNOSI),
        QStringList{QStringLiteral("--lingua"), QStringLiteral("IT"), stazione.Cartella()} + argomenti);
}

/// Findings as "grade matter: what", of a run with --json.
inline QStringList Trovati(const Esecuzione &esecuzione)
{
    QStringList trovati;
    const QJsonArray lista =
        QJsonDocument::fromJson(esecuzione.byte).object()[QStringLiteral("riscontri")].toArray();
    for (const QJsonValueConstRef &voce : lista)
        trovati.append(voce[QStringLiteral("grado")].toString() + u' ' +
                       voce[QStringLiteral("materia")].toString() + QStringLiteral(": ") +
                       voce[QStringLiteral("trovato")].toString());
    return trovati;
}

/// Of those the ones about some matters.
inline QStringList Solo(QStringList trovati, const QStringList &materie)
{
    trovati.removeIf([&materie](const QString &trovato) {
        return !materie.contains(trovato.section(u' ', 1, 1).section(u':', 0, 0));
    });
    return trovati;
}

/// Of those the ones that are not good.
inline QStringList Cattivi(QStringList trovati)
{
    trovati.removeIf([](const QString &trovato) { return trovato.startsWith(QStringLiteral("ok ")); });
    return trovati;
}
