// Colours as the rules of the forms and of the link give them: 0x00BBGGRR; with the highest bit set the rest
// is the number of a system colour. Numbers only: what they look like is aspetto's business.
#pragma once

#include <QtGlobal>

inline constexpr quint32 COLORE_NERO = 0x000000;
inline constexpr quint32 COLORE_BIANCO = 0xFFFFFF;
inline constexpr quint32 COLORE_ROSSO = 0x0000FF;
inline constexpr quint32 COLORE_VERDE = 0x00FF00;
inline constexpr quint32 COLORE_MESSAGGIO = 0x80000000;
inline constexpr quint32 COLORE_SISTEMA_GRIGIO = 0x80000004;   // a locked box
inline constexpr quint32 COLORE_SISTEMA_FINESTRA = 0x80000005; // a box to write in
