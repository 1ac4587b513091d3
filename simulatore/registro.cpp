// A line a fact, written through at once. What the facts are is not known here.
#include "simulatore/registro.h"

#include "platform/orologio.h"

#include <cstdio>

bool Registro::Apri(const QString &percorso, QString &errore)
{
    m_file.setFileName(percorso);
    const bool aperto = percorso.isEmpty() ? m_file.open(stdout, QIODevice::WriteOnly)
                                           : m_file.open(QIODevice::WriteOnly | QIODevice::Append);
    if (!aperto)
        errore = QStringLiteral("%1: %2").arg(percorso, m_file.errorString());
    return aperto;
}

void Registro::Annota(const QString &testo)
{
    const QString ora = Orologio_Corrente().Adesso().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    const QString riga = ora + u' ' + testo;
    m_file.write((riga + u'\n').toUtf8());
    m_file.flush();
    if (Annotata)
        Annotata(riga);
}
