// How large a text is set, by where its reader stands.
#pragma once

/// The reader's place. The operator works at the car, some two metres from the screen, and comes to it.
enum class Lettura
{
    DallaTastiera, ///< who sits at it: a technician
    DalloSchermo,  ///< who looks at it from two metres: lists, messages, buttons
    DallAuto,      ///< who works at the car: the verdict, the message of a session, the plate
};

/// Size of type for a reader, in points. The capitals stand 5, 10 and 16 minutes of arc high at two metres,
/// on the smallest screen that is sold for each size in pixels.
double Punti_Lettura(Lettura lettura);
