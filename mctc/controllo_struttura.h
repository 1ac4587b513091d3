// First pass on an acceptance file: its name, and its sections and keys against those of the template. Looks
// at no value.
#pragma once

#include "core/brano.h"
#include "mctc/anomalia_acc.h"
#include "platform/tipi.h"

/// Findings of the last check.
extern ListaAnomalie gAnomalieStruttura;

/// True for a base name of exactly 8 characters that is numeric.
Flag Acc_NomeValido(const QString &file);

/// Compares a file with the template.
/// @param[out] lista the findings, built afresh. @return its last index, -1 for none.
/// @throws ErroreEsecuzione 6 for a file or template past 32767 bytes, or a name that occurs 256 times.
qint16 Acc_ControllaStruttura(const QString &modello, const QString &file, ListaAnomalie &lista);

/// Compares the names of the template with those of the file, upper and lower case distinct. A name is
/// reported as doubled when it stands there exactly twice. Three copies or more pass on purpose: a file that
/// was always taken must not fail.
/// @param tipo a TipoAnomalia. @param[in,out] ultimo last index of the list, raised with each finding.
/// @param sezione where the names stand; empty for sections.
/// @return the last index when this call added any, otherwise -1.
qint16 Liste_Confronta(const ListaBrani &modello, const ListaBrani &file, quint8 tipo, qint16 &ultimo,
                       ListaAnomalie &lista, const QString &sezione);

/// The key names of a section, as they stand in a profile text. Of sections with the same name the first.
/// @return the last index of chiavi, -1 for none or when there is no such section.
qint16 Sezione_Chiavi(const QString &testo, const QString &sezione, ListaBrani &chiavi);
