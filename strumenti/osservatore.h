// Folders of the exchange under watch: which acceptance files have come or have been written anew. It opens
// none of them.
#pragma once

#include "platform/temporizzatore.h"

#include <QSet>
#include <QStringList>

#include <functional>

class Osservatore
{
public:
    /// @param cartelle paths of the program, each ends in a backslash.
    /// @param arrivato called with the path of a file once it has stood as it is from one look to the next:
    /// what is still being written is not told. The files that are there at the start come first.
    /// @param irraggiungibile called with a folder when it cannot be listed, once until it can again.
    Osservatore(const QStringList &cartelle, std::function<void(const QString &)> arrivato,
                std::function<void(const QString &)> irraggiungibile);

    /// Looks once now, then every second on the event loop.
    void Avvia();

private:
    void Guarda();
    void Guarda_Cartella(const QString &cartella, QSet<QString> &firme);
    void Perdi(const QString &cartella, QSet<QString> &firme);

    const QStringList m_cartelle;
    const std::function<void(const QString &)> m_arrivato;
    const std::function<void(const QString &)> m_irraggiungibile;
    QSet<QString> m_viste; // signatures of the last look, each behind its folder
    QSet<QString> m_dette; // those that have been told
    QSet<QString> m_perse; // folders out of reach
    Temporizzatore m_timer;
};
