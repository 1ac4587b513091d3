// What the targets share: bytes made into files, passes that may end by an error of the classic set, and the
// word of what does not hold. It knows nothing of what is under test.
#pragma once

#include "platform/errore_esecuzione.h"

#include <QByteArray>
#include <QString>

#include <initializer_list>

/// What a target is: it takes any bytes, and ends the program by Pretendi when the system does wrong with
/// them.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti);

/// Ends the program, so that the fuzzer keeps the input. @param parole what should hold, for the person who
/// reads.
void Pretendi(bool vero, const char *parole);

/// Copies of the fuzzer's bytes: its own belong to it.
QByteArray Byte_Di(const uint8_t *dati, size_t quanti);

/// The first line of the bytes, without its LF; it leaves them. What has no LF is one line.
QByteArray Taglia_Riga(QByteArray &byte);

/// Writes a file into the folder of this run. @param nome without folder. @return its path, with backslashes.
QString File_Con(const QString &nome, const QByteArray &byte);

/// Runs a pass. @param ammessi the errors that may end it; any other one ends the program.
/// @return false when an error has ended the pass.
template <typename Passata>
bool Esegui(std::initializer_list<NumeroErrore> ammessi, Passata passata)
{
    try {
        passata();
        return true;
    } catch (const ErroreEsecuzione &errore) {
        bool ammesso = false;
        for (const NumeroErrore numero : ammessi)
            ammesso = ammesso || errore.Numero() == static_cast<int>(numero);
        Pretendi(ammesso, errore.what());
        return false;
    }
}
