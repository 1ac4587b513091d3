// A station to measure on: in a temporary folder, with as many acceptance files as are wanted.
#pragma once

#include "app/avvio.h"
#include "core/modGeneral.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

/// A station in a temporary folder, as an installation delivers it. The last one made is in force.
class Stazione
{
public:
    Stazione()
    {
        const QString sorgente = QStringLiteral(LUMIRA_SORGENTE);
        for (const char16_t *nome : {u"lumira.ini", u"lingue.ini", u"lingueMCTC.ini"})
            Copia(sorgente + QStringLiteral("/impianto/"), QString::fromUtf16(nome),
                  m_cartella.path() + u'/');
        QDir().mkpath(m_cartella.filePath(QStringLiteral("dati")));
        QDir().mkpath(m_cartella.filePath(QStringLiteral("DIR_FAR")));
        Copia(sorgente + QStringLiteral("/dati/"), QStringLiteral("ModelloAcc.acc"),
              m_cartella.filePath(QStringLiteral("dati/")));
        Avvio_Percorsi(m_cartella.path().replace(u'/', u'\\'));
        for (const ChiaveIni &chiave : {ChiaveLocaleDati, ChiaveLocaleRisultati})
            Scrivi_Ini(gFileIni, chiave, gAppPath);
        Avvio_Impostazioni();
        Accettazione(QStringLiteral("12345678.acc"));
        Invecchia();
    }

    /// Points the program's state to this station: folders, settings, texts.
    void Metti_In_Vigore() const
    {
        Avvio_Percorsi(m_cartella.path().replace(u'/', u'\\'));
        Avvio_Impostazioni();
    }

    /// A copy of the template in the exchange folder.
    void Accettazione(const QString &nome) const
    {
        QFile::copy(m_cartella.filePath(QStringLiteral("dati/ModelloAcc.acc")), Nativo(nome));
    }
    /// That many copies, from 20000000.acc on.
    void Accettazioni(int quante) const
    {
        for (int i = 0; i < quante; ++i)
            Accettazione(QStringLiteral("%1.acc").arg(20000000 + i));
    }

    void Scrivi(const QString &nome, const QByteArray &byte) const
    {
        QFile file(Nativo(nome));
        if (file.open(QIODevice::WriteOnly))
            file.write(byte);
    }
    void Togli(const QString &nome) const { QFile::remove(Nativo(nome)); }
    QByteArray Modello() const
    {
        QFile file(m_cartella.filePath(QStringLiteral("dati/ModelloAcc.acc")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Where a file of the exchange folder is.
    QString Nativo(const QString &nome) const
    {
        return m_cartella.filePath(QStringLiteral("DIR_FAR/") + nome);
    }

    /// Files as old as those of a workshop: what was written this very instant is read again each time.
    static void Invecchia() { QThread::msleep(50); }

private:
    static void Copia(const QString &da, const QString &nome, const QString &a)
    {
        QFile::copy(da + nome, a + nome);
    }
    QTemporaryDir m_cartella;
};
