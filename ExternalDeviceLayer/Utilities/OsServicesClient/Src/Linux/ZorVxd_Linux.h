// Physical memory and the timer on Linux: what implements memMap*, memUnmap and tm* (ZorLibrary.h).
// Private to the operating-system layer and its tests.

#pragma once

#include <stddef.h>
#include <sys/types.h>
#include <time.h>

struct SZorFrequency;

// One live mapping. The list is circular; the sentinel is a node of its own and holds no mapping.
struct SZorVxdMapNode
{
    SZorVxdMapNode* poNext; // towards the older ones; of the sentinel: the newest
    SZorVxdMapNode* poPrev; // towards the newer ones
    void* pAddress;         // as given to the caller, with the offset inside the page
    unsigned int uiSize;    // bytes, as asked for by the caller
};

extern SZorVxdMapNode g_oZorVxdMapList; // the sentinel

// What this layer asks of the system, in one place, so that a test can put an ordinary file under the mapping, count,
// and let each call fail.
struct SZorVxdSystemCalls
{
    void* (*pfnAlloc)(size_t uiSize);
    void (*pfnFree)(void* pMemory);
    int (*pfnOpen)(const char* pszPath, int iFlags); // descriptor, or -1
    void* (*pfnMap)(void* pHint, size_t uiLength, int iProtection, int iFlags, int iFile, off64_t iOffset);
    int (*pfnUnmap)(void* pAddress, size_t uiLength);
    int (*pfnClose)(int iFile);
    int (*pfnGetClock)(clockid_t iClock, timespec* poTime); // 0 on success
};

extern SZorVxdSystemCalls g_oZorVxdSystemCalls;

inline constexpr long gsc_iNanosecondsPerSecond = 1000000000;

// A point in time that lies later by uiSeconds and iNanoseconds (0 to 999999999). The nanoseconds of oTime and of the
// result lie below one second.
constexpr timespec ZorVxdAddTime(timespec oTime, unsigned int uiSeconds, long iNanoseconds)
{
    oTime.tv_sec += uiSeconds;
    oTime.tv_nsec += iNanoseconds;
    if (oTime.tv_nsec >= gsc_iNanosecondsPerSecond)
    {
        ++oTime.tv_sec;
        oTime.tv_nsec -= gsc_iNanosecondsPerSecond;
    }
    return oTime;
}

void* ZorVxdMapMemoryLinux(unsigned int uiAddressLow, unsigned int uiAddressHigh, unsigned int uiSize,
                           unsigned int uiMode);
unsigned int ZorVxdUnmapMemoryLinux(void* pAddress);

unsigned int ZorVxdPrivateLinuxTimer_Delay(unsigned int uiDelay);
unsigned int ZorVxdPrivateLinuxTimer_Counter(unsigned long long* puiCounter);
unsigned int ZorVxdPrivateLinuxTimer_Frequency(SZorFrequency* poFrequency);
