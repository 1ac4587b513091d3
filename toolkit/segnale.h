// The sound that calls the operator. It stands alone, so that a test may listen in its place; when it sounds
// is the forms' business.
#pragma once

/// The system's beep.
void Segnale_Acustico();
