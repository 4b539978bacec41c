// Replaces operator new and delete. In a source of its own, so that no caller sees through it and takes malloc and
// delete for a mismatch.

#include "FailingHeap.h"

#include <stdlib.h>

#include <new>

namespace
{
thread_local unsigned int g_uiLeft = 0; // allocations until the one that fails; 0: none fails
thread_local bool g_bFailed = false;
thread_local unsigned long g_ulTaken = 0;
thread_local unsigned long g_ulGivenBack = 0;
} // namespace

void FailingHeap::FailAt(unsigned int uiNumber)
{
    g_uiLeft = uiNumber;
    g_bFailed = false;
}

bool FailingHeap::HasFailed() { return g_bFailed; }
unsigned long FailingHeap::GetTakenCount() { return g_ulTaken; }
unsigned long FailingHeap::GetHeldCount() { return g_ulTaken - g_ulGivenBack; }

void* operator new(size_t uiSize)
{
    const bool bFails = g_uiLeft != 0 && --g_uiLeft == 0;
    void* p = bFails ? nullptr : malloc(uiSize != 0 ? uiSize : 1);
    if (p == nullptr)
    {
        g_bFailed = bFails;
        throw std::bad_alloc();
    }
    ++g_ulTaken;
    return p;
}
void operator delete(void* p) noexcept
{
    g_ulGivenBack += p != nullptr ? 1 : 0;
    free(p);
}
void* operator new[](size_t uiSize) { return operator new(uiSize); }
void operator delete[](void* p) noexcept { operator delete(p); }
void operator delete(void* p, size_t) noexcept { operator delete(p); }
void operator delete[](void* p, size_t) noexcept { operator delete(p); }
