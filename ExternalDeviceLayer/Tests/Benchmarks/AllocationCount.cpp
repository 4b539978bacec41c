// The heap of the benchmarks: operator new that counts. In a source of its own, so that no caller sees through it and
// takes malloc and delete for a mismatch.

#include "AllocationCount.h"

#include <stdlib.h>

#include <cstddef>
#include <new>

namespace
{
constinit unsigned long g_ulAllocations = 0;
}

unsigned long GetAllocationCount() { return g_ulAllocations; }

void* operator new(std::size_t uiSize)
{
    ++g_ulAllocations;
    void* const p = malloc(uiSize != 0 ? uiSize : 1);
    if (p == nullptr)
    {
        abort();
    }
    return p;
}

void operator delete(void* p) noexcept { free(p); }

void operator delete(void* p, std::size_t /*uiSize*/) noexcept { free(p); }
