// Replaces operator new and delete of the test program.

#include "FailingHeap.h"

#include <stdlib.h>

#include <new>

namespace
{
thread_local unsigned int g_uiLeft = 0; // allocations until the one that fails; 0: none fails
thread_local bool g_bFailed = false;
thread_local long g_iHeld = 0;

void* Take(size_t uiSize)
{
    if (g_uiLeft != 0 && --g_uiLeft == 0)
    {
        g_bFailed = true;
        throw std::bad_alloc();
    }
    void* p = malloc(uiSize != 0 ? uiSize : 1);
    if (p == nullptr)
    {
        throw std::bad_alloc();
    }
    ++g_iHeld;
    return p;
}

void GiveBack(void* p)
{
    if (p != nullptr)
    {
        --g_iHeld;
        free(p);
    }
}
}

void FailingHeap::FailAt(unsigned int uiNumber)
{
    g_uiLeft = uiNumber;
    g_bFailed = false;
}

bool FailingHeap::HasFailed() { return g_bFailed; }

long FailingHeap::GetHeldCount() { return g_iHeld; }

void* operator new(size_t uiSize) { return Take(uiSize); }
void* operator new[](size_t uiSize) { return Take(uiSize); }
void operator delete(void* p) noexcept { GiveBack(p); }
void operator delete[](void* p) noexcept { GiveBack(p); }
void operator delete(void* p, size_t) noexcept { GiveBack(p); }
void operator delete[](void* p, size_t) noexcept { GiveBack(p); }
