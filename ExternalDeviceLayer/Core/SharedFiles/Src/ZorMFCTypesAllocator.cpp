// CMAllocator: the heap, or whatever replaces it.

#include "ZorMFCTypes/CMAllocator.h"

#include <new>

constinit CMAllocator* CMAllocator::m_poGlobalAllocator = nullptr;

void* CMAllocator::Alloc(unsigned long ulSize)
{
    return m_poGlobalAllocator != nullptr ? m_poGlobalAllocator->Alloc(ulSize) : operator new[](ulSize);
}

void CMAllocator::Free(const void* p)
{
    if (m_poGlobalAllocator != nullptr)
    {
        m_poGlobalAllocator->Free(p);
        return;
    }
    if (p != nullptr)
    {
        operator delete[](const_cast<void*>(p));
    }
}
