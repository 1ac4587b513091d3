// All that a profile's bytes give to read, in one table: the station itself asks for one value at a time.
#pragma once

#include "platform/profilo_testo.h"

#include <QHash>

/// Values of a section by the name of their key; none for a key without "=". Names as Nome_DaConfrontare
/// gives them.
using ValoriSezione = QHash<QString, std::optional<QString>>;

/// The first section of each name.
inline QHash<QString, ValoriSezione> Valori_Profilo(const QByteArray &byte)
{
    ValoriProfilo letti(byte);
    QHash<QString, ValoriSezione> valori;
    ValoriSezione *sezione = nullptr; // none before the first head and in one that another hides
    QString nome;
    for (const RigaProfilo &riga : Righe_Profilo(byte)) {
        if (riga.Testa) {
            nome = riga.Nome;
            sezione = valori.contains(nome) ? nullptr : &valori[nome];
        } else if (sezione != nullptr) {
            sezione->insert(riga.Nome, letti.Valore(nome, riga.Nome));
        }
    }
    return valori;
}
