// A tool as a process of its own: what it says on either channel, and how it ends.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

struct Esecuzione
{
    int stato = -1; ///< -1: it did not end by itself
    QByteArray byte;
    QString uscita; ///< byte as text, with LF: Windows ends its lines with CR and LF
    QString errori;
};

inline Esecuzione Processo_Esegui(const QString &programma, const QStringList &argomenti,
                                  const QByteArray &ingresso = {})
{
    QProcess processo;
    processo.start(programma, argomenti);
    processo.write(ingresso);
    processo.closeWriteChannel();
    if (!processo.waitForFinished(120000) || processo.exitStatus() != QProcess::NormalExit)
        return {};
    Esecuzione esecuzione;
    esecuzione.stato = processo.exitCode();
    esecuzione.byte = processo.readAllStandardOutput();
    esecuzione.uscita = QString::fromUtf8(esecuzione.byte).remove(u'\r');
    esecuzione.errori = QString::fromUtf8(processo.readAllStandardError()).remove(u'\r');
    return esecuzione;
}
