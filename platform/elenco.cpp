// What a mask of attributes lets through, on every system. It lists no folder.
#include "platform/elenco.h"

QStringList Nomi_Con(const QList<RecordTrovato> &trovati, qint16 attributo)
{
    const bool cartelle = (static_cast<quint32>(attributo) & ATTRIBUTO_CARTELLA) != 0;
    const quint32 fuori = ATTRIBUTO_NASCOSTO | (cartelle ? 0 : ATTRIBUTO_CARTELLA);
    QStringList nomi;
    for (const RecordTrovato &trovato : trovati) {
        if ((trovato.dwFileAttributes & fuori) == 0)
            nomi.append(trovato.cFileName);
    }
    return nomi;
}
