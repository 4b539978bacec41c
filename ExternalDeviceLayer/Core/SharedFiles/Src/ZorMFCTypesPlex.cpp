// CMPlex: the blocks that the hash map takes its nodes from.

#include "ZorMFCTypes/CMPlex.h"

#include <limits.h>

#include <new>

#include "ZorAssert.h"
#include "ZorMFCTypes/CMAllocator.h"

CMPlex* CMPlex::Create(CMPlex*& poHead, unsigned long ulMaxElements, unsigned long ulElementSize)
{
    if (ulMaxElements == 0 || ulElementSize == 0)
    {
        MASSERT_FAILED();
        return nullptr;
    }
    // A product that would wrap asks for more than any heap has, so that the allocator refuses it.
    const bool bFits = ulElementSize <= (LONG_MAX - sizeof(CMPlex)) / ulMaxElements;
    void* pBlock = CMAllocator().Alloc(bFits ? sizeof(CMPlex) + ulMaxElements * ulElementSize : LONG_MAX);
    if (pBlock == nullptr)
    {
        return nullptr;
    }
    CMPlex* poBlock = new (pBlock) CMPlex;
    poBlock->m_poNext = poHead;
    poHead = poBlock;
    return poBlock;
}

void CMPlex::FreeDataChain(CMPlex* poHead)
{
    while (poHead != nullptr)
    {
        CMPlex* poNext = poHead->m_poNext;
        CMAllocator().Free(poHead);
        poHead = poNext;
    }
}
