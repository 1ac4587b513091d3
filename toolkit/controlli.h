// The kinds of control that most forms have.
#pragma once

#include "toolkit/casella_combinata.h"
#include "toolkit/casella_spunta.h"
#include "toolkit/casella_testo.h"
#include "toolkit/elenco_voci.h"
#include "toolkit/etichetta.h"
#include "toolkit/forma.h"
#include "toolkit/immagine.h"
#include "toolkit/pulsante.h"
