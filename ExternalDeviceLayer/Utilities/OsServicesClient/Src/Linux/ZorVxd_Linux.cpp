// Physical memory through /dev/mem, and the microsecond timer on the monotonic clock.

#include "ZorVxd_Linux.h"

#include <fcntl.h>
#include <stdint.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include "ZorLibrary.h"

namespace
{
constexpr size_t gsc_uiPageSize = 4096;
constexpr uintptr_t gsc_uiPageOffsetMask = gsc_uiPageSize - 1;
constexpr unsigned int gsc_uiMicrosecondsPerSecond = 1000000;
constexpr unsigned int gsc_uiNanosecondsPerMicrosecond = 1000;

int Open(const char* pszPath, int iFlags) { return open64(pszPath, iFlags); }
} // namespace

constinit SZorVxdMapNode g_oZorVxdMapList = { &g_oZorVxdMapList, &g_oZorVxdMapList, nullptr, 0 };
constinit SZorVxdSystemCalls g_oZorVxdSystemCalls = { malloc, free, Open, mmap64, munmap, close, clock_gettime };

namespace
{
// Bytes of the whole pages that uiSize bytes from uiPageOffset on touch. The sum has 64 bits and does not wrap.
constexpr size_t GetMapLength(size_t uiPageOffset, unsigned int uiSize)
{
    return (uiPageOffset + uiSize + gsc_uiPageSize - 1) & ~gsc_uiPageOffsetMask;
}

void InsertNewest(SZorVxdMapNode* poNode)
{
    poNode->poNext = g_oZorVxdMapList.poNext;
    poNode->poPrev = &g_oZorVxdMapList;
    poNode->poNext->poPrev = poNode;
    g_oZorVxdMapList.poNext = poNode;
}

// Maps the pages of the device that hold the uiSize bytes from uiAddress on, and lists the mapping. Gives the address
// of the first of these bytes, or null with the node left out of the list.
void* MapAndList(SZorVxdMapNode* poNode, int iFile, unsigned long long uiAddress, unsigned int uiSize)
{
    const size_t uiPageOffset = uiAddress & gsc_uiPageOffsetMask;
    void* const pBase = g_oZorVxdSystemCalls.pfnMap(nullptr, GetMapLength(uiPageOffset, uiSize), PROT_READ | PROT_WRITE,
                                                    MAP_SHARED, iFile, static_cast<off64_t>(uiAddress - uiPageOffset));
    if (pBase == MAP_FAILED)
    {
        return nullptr;
    }
    poNode->pAddress = static_cast<unsigned char*>(pBase) + uiPageOffset;
    poNode->uiSize = uiSize;
    InsertNewest(poNode);
    return poNode->pAddress;
}

void Unlink(SZorVxdMapNode* poNode)
{
    poNode->poNext->poPrev = poNode->poPrev;
    poNode->poPrev->poNext = poNode->poNext;
}

// Null when no live mapping has this address.
SZorVxdMapNode* FindNewest(const void* pAddress)
{
    for (SZorVxdMapNode* poNode = g_oZorVxdMapList.poNext; poNode != &g_oZorVxdMapList; poNode = poNode->poNext)
    {
        if (poNode->pAddress == pAddress)
        {
            return poNode;
        }
    }
    return nullptr;
}

constexpr bool IsReached(const timespec& oNow, const timespec& oEnd)
{
    return oNow.tv_sec > oEnd.tv_sec || (oNow.tv_sec == oEnd.tv_sec && oNow.tv_nsec >= oEnd.tv_nsec);
}

bool ReadTimer(timespec* poNow) { return g_oZorVxdSystemCalls.pfnGetClock(CLOCK_MONOTONIC, poNow) == 0; }
} // namespace

void* ZorVxdMapMemoryLinux(unsigned int uiAddressLow, unsigned int uiAddressHigh, unsigned int uiSize,
                           unsigned int /*uiMode*/)
{
    // The node comes first: once the pages are mapped nothing can fail any more.
    SZorVxdMapNode* const poNode = static_cast<SZorVxdMapNode*>(g_oZorVxdSystemCalls.pfnAlloc(sizeof(SZorVxdMapNode)));
    if (poNode == nullptr)
    {
        return nullptr;
    }
    const int iFile = g_oZorVxdSystemCalls.pfnOpen("/dev/mem", O_RDWR);
    if (iFile < 0)
    {
        g_oZorVxdSystemCalls.pfnFree(poNode);
        return nullptr;
    }
    const unsigned long long uiAddress = (static_cast<unsigned long long>(uiAddressHigh) << 32) | uiAddressLow;
    void* const pAddress = MapAndList(poNode, iFile, uiAddress, uiSize);
    g_oZorVxdSystemCalls.pfnClose(iFile); // the mapping stays
    if (pAddress == nullptr)
    {
        g_oZorVxdSystemCalls.pfnFree(poNode);
    }
    return pAddress;
}

unsigned int ZorVxdUnmapMemoryLinux(void* pAddress)
{
    SZorVxdMapNode* const poNode = FindNewest(pAddress);
    if (poNode == nullptr)
    {
        return 0;
    }
    Unlink(poNode);
    const size_t uiPageOffset = reinterpret_cast<uintptr_t>(pAddress) & gsc_uiPageOffsetMask;
    g_oZorVxdSystemCalls.pfnUnmap(static_cast<unsigned char*>(pAddress) - uiPageOffset,
                                  GetMapLength(uiPageOffset, poNode->uiSize));
    g_oZorVxdSystemCalls.pfnFree(poNode);
    return 1;
}

unsigned int ZorVxdPrivateLinuxTimer_Delay(unsigned int uiDelay)
{
    timespec oNow = {};
    if (!ReadTimer(&oNow))
    {
        return 1;
    }
    const unsigned int uiNanoseconds = uiDelay % gsc_uiMicrosecondsPerSecond * gsc_uiNanosecondsPerMicrosecond;
    const timespec oEnd = ZorVxdAddTime(oNow, uiDelay / gsc_uiMicrosecondsPerSecond, uiNanoseconds);
    while (ReadTimer(&oNow) && !IsReached(oNow, oEnd))
    {
        // Busy on purpose: a sleep would be longer than the short delays that come here.
    }
    return 1;
}

unsigned int ZorVxdPrivateLinuxTimer_Counter(unsigned long long* puiCounter)
{
    timespec oNow = {};
    if (!ReadTimer(&oNow))
    {
        return 0;
    }
    *puiCounter = static_cast<unsigned long long>(oNow.tv_sec) * gsc_uiMicrosecondsPerSecond +
                  static_cast<unsigned long long>(oNow.tv_nsec) / gsc_uiNanosecondsPerMicrosecond;
    return 1;
}

unsigned int ZorVxdPrivateLinuxTimer_Frequency(SZorFrequency* poFrequency)
{
    *poFrequency = { gsc_uiMicrosecondsPerSecond, 0 };
    return 1;
}
