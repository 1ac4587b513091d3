// The helpers of the targets. The folder goes with the process.
#include "fuzz/comune.h"

#include "platform/percorsi.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

void Pretendi(bool vero, const char *parole)
{
    if (vero)
        return;
    std::fprintf(stderr, "non vale: %s\n", parole);
    std::abort();
}

QByteArray Byte_Di(const uint8_t *dati, size_t quanti)
{
    return QByteArray(reinterpret_cast<const char *>(dati), static_cast<qsizetype>(quanti));
}

QByteArray Taglia_Riga(QByteArray &byte)
{
    const qsizetype fine = byte.indexOf('\n');
    const QByteArray riga = fine < 0 ? byte : byte.first(fine);
    byte = fine < 0 ? QByteArray() : byte.sliced(fine + 1);
    return riga;
}

QString File_Con(const QString &nome, const QByteArray &byte)
{
    static const QTemporaryDir CARTELLA;
    const QString nativo = CARTELLA.filePath(nome);
    QFile file(nativo);
    const bool scritto = file.open(QIODevice::WriteOnly) && file.write(byte) == byte.size() && file.flush();
    Pretendi(scritto, "the folder of this run takes a file");
    return QString(nativo).replace(u'/', u'\\');
}
