// Texts cut, replaced and searched, with 16-bit positions. It opens no file and keeps nothing.
#include "core/modStr.h"

#include "platform/codifica.h"

namespace {

/// The result of a listing. @param prima names that the array held before it.
qint16 Ultimo_Aggiunto(const ListaBrani &nomi, qsizetype prima)
{
    return nomi.size() == prima ? qint16{-1} : Intero16(nomi.size() - 1);
}

} // namespace

QString Pwd_Decifra(const QString &cifrato)
{
    QByteArray byte = Testo_InAnsi(cifrato);
    for (qsizetype i = 0; i < byte.size(); ++i)
        byte[i] = static_cast<char>(Intero8(static_cast<quint8>(byte[i]) - 4 * (i + 1)));
    return Testo_DaAnsi(byte);
}

QString Str_Sostituisci(const QString &testo, const QString &cercato, const QString &sostituto)
{
    QString copia = testo;
    qsizetype posto = copia.indexOf(cercato);
    while (posto >= 0 && !cercato.isEmpty()) {
        Intero16(posto + 2); // the next start, counted from 1
        copia.replace(posto, cercato.size(), sostituto);
        posto = copia.indexOf(cercato, posto + 1);
    }
    return copia;
}

QString Str_Token(const QString &testo, const QString &separatore, qint16 numero)
{
    if (!testo.contains(separatore))
        return {};
    return testo.split(separatore).value(numero - 1);
}

qint16 Ini_Sezioni(const QString &testo, ListaBrani &nomi)
{
    // What stands between one "[" and the next holds one name at most.
    const qsizetype prima = nomi.size();
    qsizetype inizio = -1; // behind the last "[" that no "]" has closed
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (testo[i] == u'[') {
            inizio = i + 1;
        } else if (testo[i] == u']' && inizio >= 0) {
            nomi.append(Brano(testo, inizio, i - inizio));
            inizio = -1;
        }
    }
    return Ultimo_Aggiunto(nomi, prima);
}

qint16 Ini_Chiavi(const QString &testo, ListaBrani &nomi)
{
    const qsizetype prima = nomi.size();
    qsizetype inizio = 0; // of the line
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (testo[i] == u'\r' || testo[i] == u'\n')
            inizio = i + 1;
        else if (testo[i] == u'=')
            nomi.append(Brano(testo, inizio, i - inizio));
    }
    return Ultimo_Aggiunto(nomi, prima);
}
