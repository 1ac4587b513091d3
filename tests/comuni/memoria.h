// How much memory the test program holds: what a long run may not add to.
#pragma once

#include <QtGlobal>

/// Bytes in use on the heap.
qint64 Memoria_InUso();
