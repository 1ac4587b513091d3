#include "tests/comuni/memoria.h"

#include <array>

#include <qt_windows.h>

qint64 Memoria_InUso()
{
    std::array<HANDLE, 64> heap = {};
    const DWORD quanti = GetProcessHeaps(heap.size(), heap.data());
    qint64 byte = 0;
    for (DWORD i = 0; i < quanti && i < heap.size(); ++i) {
        PROCESS_HEAP_ENTRY blocco = {};
        HeapLock(heap[i]);
        while (HeapWalk(heap[i], &blocco) != FALSE) {
            if ((blocco.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
                byte += blocco.cbData;
        }
        HeapUnlock(heap[i]);
    }
    return byte;
}
