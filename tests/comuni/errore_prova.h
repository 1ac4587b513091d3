// Which run-time error a procedure raises.
#pragma once

#include "platform/errore_esecuzione.h"

/// @return the number of the error that the procedure raises, 0 for none.
template <typename P>
int Errore_Di(P procedura)
{
    try {
        procedura();
    } catch (const ErroreEsecuzione &errore) {
        return errore.Numero();
    }
    return 0;
}
