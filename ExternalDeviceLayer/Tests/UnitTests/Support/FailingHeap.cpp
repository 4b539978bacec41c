// Replaces operator new and delete. In a source of its own, so that no caller sees through it and takes malloc and
// delete for a mismatch.

#include "FailingHeap.h"

#include <stdlib.h>

#include <new>

constinit thread_local SFailingHeap g_oFailingHeap;

void* operator new(size_t uiSize)
{
    const bool bFails = g_oFailingHeap.m_uiLeft != 0 && --g_oFailingHeap.m_uiLeft == 0;
    void* p = bFails ? nullptr : malloc(uiSize != 0 ? uiSize : 1);
    if (p == nullptr)
    {
        throw std::bad_alloc();
    }
    ++g_oFailingHeap.m_ulTaken;
    g_oFailingHeap.m_ulBytes += uiSize;
    return p;
}
void operator delete(void* p) noexcept
{
    g_oFailingHeap.m_ulGivenBack += p != nullptr ? 1 : 0;
    free(p);
}
void* operator new[](size_t uiSize) { return operator new(uiSize); }
void operator delete[](void* p) noexcept { operator delete(p); }
void operator delete(void* p, size_t) noexcept { operator delete(p); }
void operator delete[](void* p, size_t) noexcept { operator delete(p); }
