// Events in the middle of a procedure: what the operator has pressed, a timer's beat, bytes on the line. It
// knows no window.
#pragma once

/// Lets pending events run. Whoever calls it may find the world changed afterwards: a form unloaded, a list
/// made anew. No other place lets events run and goes on, but a modal show and a box of the
/// system.
void Eventi_Esegui();
