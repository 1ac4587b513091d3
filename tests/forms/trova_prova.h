// Every search of a folder led through the test: it sees how often, and what happens meanwhile. The linker
// leads the program's calls to the second of these, which the test has, and that goes on to the first.
#pragma once

#include "platform/elenco.h"

bool Trova_Vera(
    const QString &percorso, QList<RecordTrovato> &trovati,
    const std::function<void()>
        &intanto) asm("__real__Z10Trova_FileRK7QStringR5QListI13RecordTrovatoERKSt8functionIFvvEE");
bool Trova_Chiesta(
    const QString &percorso, QList<RecordTrovato> &trovati,
    const std::function<void()>
        &intanto) asm("__wrap__Z10Trova_FileRK7QStringR5QListI13RecordTrovatoERKSt8functionIFvvEE");
