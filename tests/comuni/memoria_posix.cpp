#include "tests/comuni/memoria.h"

#include <malloc.h>

/// There in a program under the address sanitizer, whose heap is its own.
// NOLINTNEXTLINE(bugprone-reserved-identifier) -- the sanitizer's own name
extern "C" __attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();

qint64 Memoria_InUso()
{
    if (__sanitizer_get_current_allocated_bytes != nullptr)
        return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
    return static_cast<qint64>(mallinfo2().uordblks);
}
