// How much a button stands out from its neighbours on one form. What that looks like stands in the look's
// style sheet.
#pragma once

class Pulsante;

/// The button that is pressed all day long: it is seen before the others.
void Pulsante_Principale(Pulsante &pulsante);

/// A button without any use: while it is disabled it keeps its place and looks like nothing.
void Pulsante_Assente(Pulsante &pulsante);
