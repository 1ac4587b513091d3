// The toolkit's style, with one picture of a scroll bar for all lists. It knows no list.
#pragma once

class QStyle;

/// A new style, for the application to own.
QStyle *Stile_Nuovo();
