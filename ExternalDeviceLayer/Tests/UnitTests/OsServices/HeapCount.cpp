// Counts what operator new gives and gets back in this test program, and refuses on request.

#include <atomic>
#include <new>
#include <stdlib.h>

#include "OsServicesTestSupport.h"

namespace
{
constinit std::atomic<long> g_iLiveBlocks = 0;
constinit std::atomic<const void*> g_pLastSingleByteBlock = nullptr;
constinit std::atomic<bool> g_bNextNothrowFails = false;
}

bool IsHeapCounted()
{
    ::operator delete(::operator new(1));
    return g_pLastSingleByteBlock != nullptr;
}

long GetLiveBlockCount() { return g_iLiveBlocks; }
const void* GetLastSingleByteBlock() { return g_pLastSingleByteBlock; }
void FailNextNothrowNew() { g_bNextNothrowFails = true; }

// ThreadSanitizer's own operator new leaves no place for a counting one.
#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define ZOR_TEST_HEAP_NOT_COUNTED
#endif
#endif

#if !defined(__SANITIZE_THREAD__) && !defined(ZOR_TEST_HEAP_NOT_COUNTED)

// The array forms of the C++ library call these.
void* operator new(size_t uiSize)
{
    void* const pBlock = malloc(uiSize != 0 ? uiSize : 1);
    if (pBlock == nullptr)
    {
        abort();
    }
    ++g_iLiveBlocks;
    if (uiSize == 1)
    {
        g_pLastSingleByteBlock = pBlock;
    }
    return pBlock;
}

void* operator new(size_t uiSize, const std::nothrow_t& /*oTag*/) noexcept
{
    return g_bNextNothrowFails.exchange(false) ? nullptr : operator new(uiSize);
}

void operator delete(void* pBlock) noexcept
{
    g_iLiveBlocks -= pBlock != nullptr ? 1 : 0;
    free(pBlock);
}

void operator delete(void* pBlock, size_t /*uiSize*/) noexcept { operator delete(pBlock); }
void operator delete(void* pBlock, const std::nothrow_t& /*oTag*/) noexcept { operator delete(pBlock); }

#endif
