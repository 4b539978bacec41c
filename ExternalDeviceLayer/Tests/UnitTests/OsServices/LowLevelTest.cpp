// Physical memory with an ordinary file in the place of the device, and the timer on a made-up clock.

#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include "OsServices.h"
#include "OsServicesTestSupport.h"
#include "ZorLibrary.h"
#include "ZorVxd_Linux.h"

namespace
{
// What the layer asked of the system, and what the system shall answer.
struct SDeviceLog
{
    int m_iFile; // stands in for the device
    int m_iHeld; // list nodes allocated and files opened, not given back
    unsigned int m_uiMaps;
    unsigned long long m_uiMapAddress; // of the last mapping
    size_t m_uiMapLength;
    void* m_pUnmapAddress; // of the last unmapping
    size_t m_uiUnmapLength;
};

constinit SDeviceLog g_oLog = {};

int OpenFileAsDevice(const char* szPath, int iFlags)
{
    EXPECT_STREQ("/dev/mem", szPath);
    EXPECT_EQ(O_RDWR, iFlags);
    ++g_oLog.m_iHeld;
    return dup(g_oLog.m_iFile);
}

void LogMap(size_t uiLength, off64_t iOffset)
{
    ++g_oLog.m_uiMaps;
    g_oLog.m_uiMapLength = uiLength;
    g_oLog.m_uiMapAddress = static_cast<unsigned long long>(iOffset);
}

class MemoryMap : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(0, ftruncate(fileno(m_poFile), 4 * 4096));
        g_oLog = {};
        g_oLog.m_iFile = fileno(m_poFile);
        g_oZorVxdSystemCalls.pfnAlloc = [](size_t uiSize) {
            ++g_oLog.m_iHeld;
            return malloc(uiSize);
        };
        g_oZorVxdSystemCalls.pfnFree = [](void* pMemory) {
            --g_oLog.m_iHeld;
            free(pMemory);
        };
        g_oZorVxdSystemCalls.pfnOpen = OpenFileAsDevice;
        g_oZorVxdSystemCalls.pfnMap = [](void* pHint, size_t uiLength, int iProtection, int iFlags, int iFile,
                                         off64_t iOffset) {
            LogMap(uiLength, iOffset);
            return mmap64(pHint, uiLength, iProtection, iFlags, iFile, iOffset);
        };
        g_oZorVxdSystemCalls.pfnUnmap = [](void* pAddress, size_t uiLength) {
            g_oLog.m_pUnmapAddress = pAddress;
            g_oLog.m_uiUnmapLength = uiLength;
            return munmap(pAddress, uiLength);
        };
        g_oZorVxdSystemCalls.pfnClose = [](int iFile) {
            --g_oLog.m_iHeld;
            return close(iFile);
        };
    }

    void TearDown() override
    {
        EXPECT_EQ(0, g_oLog.m_iHeld);
        EXPECT_EQ(&g_oZorVxdMapList, g_oZorVxdMapList.poNext);
        EXPECT_EQ(&g_oZorVxdMapList, g_oZorVxdMapList.poPrev);
        fclose(m_poFile);
    }

    static void RefuseMaps()
    {
        g_oZorVxdSystemCalls.pfnMap = [](void*, size_t uiLength, int, int, int, off64_t iOffset) {
            LogMap(uiLength, iOffset);
            errno = EPERM;
            return MAP_FAILED;
        };
    }

private:
    const CRestored<SZorVxdSystemCalls> m_oRestored{ g_oZorVxdSystemCalls };
    FILE* const m_poFile = tmpfile();
};

struct SPageCase
{
    const char* m_pszName;
    unsigned int m_uiAddress;
    unsigned int m_uiSize;
    unsigned int m_uiMapAddress;
    size_t m_uiMapLength;
};

// clang-format off
const SPageCase gsc_aoPageCases[] = {
    { "WholePage",             0x2000, 4096, 0x2000, 0x1000 },
    { "OneByteMoreThanAPage",  0x2000, 4097, 0x2000, 0x2000 },
    { "InsideAPage",           0x1010,   16, 0x1000, 0x1000 },
    { "OneByteOverTheBorder",  0x1FFF,    2, 0x1000, 0x2000 },
    { "UpToTheBorder",         0x3010, 4080, 0x3000, 0x1000 },
    { "SizeZeroInsideAPage",   0x3010,    0, 0x3000, 0x1000 },
};
// clang-format on
}

TEST_F(MemoryMap, MapsWholePagesAndGivesTheExactByte)
{
    EXPECT_EQ(0U, memUnmap(nullptr)) << "the list is empty";
    unsigned char ui8Written = 0;
    for (const SPageCase& oCase : gsc_aoPageCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        unsigned char* const pui8Mapped = static_cast<unsigned char*>(memMapEx(oCase.m_uiAddress, oCase.m_uiSize, 0));
        ASSERT_NE(nullptr, pui8Mapped);
        EXPECT_EQ(oCase.m_uiMapAddress, g_oLog.m_uiMapAddress);
        EXPECT_EQ(oCase.m_uiMapLength, g_oLog.m_uiMapLength);
        *pui8Mapped = ++ui8Written;
        unsigned char ui8Stored = 0;
        EXPECT_EQ(1, pread(g_oLog.m_iFile, &ui8Stored, 1, oCase.m_uiAddress));
        EXPECT_EQ(ui8Written, ui8Stored) << "the device has it";

        g_oLog.m_pUnmapAddress = nullptr;
        EXPECT_EQ(0U, memUnmap(pui8Mapped - 0x10)) << "not the exact address";
        EXPECT_EQ(0U, memUnmap(pui8Mapped + 1));
        EXPECT_EQ(0U, memUnmap(nullptr));
        EXPECT_EQ(nullptr, g_oLog.m_pUnmapAddress);
        EXPECT_EQ(1U, OsServices::IoUnMap(pui8Mapped, 77)) << "the size does not count";
        EXPECT_EQ(pui8Mapped - (oCase.m_uiAddress - oCase.m_uiMapAddress), g_oLog.m_pUnmapAddress);
        EXPECT_EQ(oCase.m_uiMapLength, g_oLog.m_uiUnmapLength);
        EXPECT_EQ(0U, memUnmap(pui8Mapped)) << "it is gone";
    }
}

TEST_F(MemoryMap, ListRunsFromNewestToOldestAndBack)
{
    void* const pFirst = memMap64(0x1000, 1, 0);
    void* const pSecond = memMap64(0x2010, 1, 0);
    void* const pThird = memMap64(0x3000, 1, 0);
    const SZorVxdMapNode& oList = g_oZorVxdMapList;
    EXPECT_EQ(pThird, oList.poNext->pAddress);
    EXPECT_EQ(pSecond, oList.poNext->poNext->pAddress);
    EXPECT_EQ(pFirst, oList.poPrev->pAddress);
    EXPECT_EQ(pSecond, oList.poPrev->poPrev->pAddress);
    EXPECT_EQ(1U, memUnmap(pSecond));
    EXPECT_EQ(pFirst, oList.poNext->poNext->pAddress);
    EXPECT_EQ(pThird, oList.poPrev->poPrev->pAddress);
    EXPECT_EQ(1U, memUnmap(pFirst));
    EXPECT_EQ(1U, memUnmap(pThird));
}

TEST_F(MemoryMap, EqualAddressesAreUnmappedNewestFirst)
{
    alignas(4096) static unsigned char aui8Area[4096];
    g_oZorVxdSystemCalls.pfnMap = [](void*, size_t, int, int, int, off64_t) -> void* { return aui8Area; };
    g_oZorVxdSystemCalls.pfnUnmap = [](void*, size_t uiLength) {
        g_oLog.m_uiUnmapLength = uiLength;
        return 0;
    };
    EXPECT_EQ(aui8Area, memMap64(0, 1, 0));
    EXPECT_EQ(aui8Area, memMap64(0, 8192, 0));
    EXPECT_EQ(1U, memUnmap(aui8Area));
    EXPECT_EQ(8192U, g_oLog.m_uiUnmapLength);
    EXPECT_EQ(1U, memUnmap(aui8Area));
    EXPECT_EQ(4096U, g_oLog.m_uiUnmapLength);
}

TEST_F(MemoryMap, FailuresGiveNullAndHoldNothingAndAttemptsAreCounted)
{
    EXPECT_EQ(nullptr, memMap64(0x1000, 0, 0)) << "no page to map";
    RefuseMaps();
    EXPECT_EQ(nullptr, OsServices::IoMap(0x123456789FFFUL, 0xFFFFFFFFU, 0));
    EXPECT_EQ(EPERM, errno);
    EXPECT_EQ(0x123456789000ULL, g_oLog.m_uiMapAddress) << "nothing wraps";
    EXPECT_EQ(0x100001000ULL, g_oLog.m_uiMapLength);
    EXPECT_EQ(2U, g_oLog.m_uiMaps);
    EXPECT_EQ(nullptr, OsServices::IoMap(0x1000, 1, -1));
    EXPECT_EQ(4U, g_oLog.m_uiMaps) << "in two modes";
    EXPECT_EQ(nullptr, memMap(0x1000, 1));
    EXPECT_EQ(7U, g_oLog.m_uiMaps) << "in three modes";

    g_oZorVxdSystemCalls.pfnOpen = [](const char*, int) {
        errno = EACCES;
        return -1;
    };
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    EXPECT_EQ(EACCES, errno);
    g_oZorVxdSystemCalls.pfnOpen = OpenFileAsDevice;
    g_oZorVxdSystemCalls.pfnAlloc = [](size_t) -> void* { return nullptr; };
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    EXPECT_EQ(7U, g_oLog.m_uiMaps);
}

TEST(MemoryMapMachine, MapsThePhysicalMemoryOfThisMachine)
{
    void* const pMapped = memMap(0xF0000, 16); // firmware: readable wherever the kernel lets anything through
    if (pMapped == nullptr)
    {
        GTEST_SKIP() << "this machine does not let its physical memory be mapped";
    }
    EXPECT_EQ(1U, memUnmap(pMapped));
}

namespace
{
// A clock that tells the given times one after the other; a time of zero is a failing read.
constinit const timespec* g_poTimes = nullptr;
constinit unsigned int g_uiReads = 0;

int GiveTime(clockid_t iClock, timespec* poTime)
{
    EXPECT_EQ(CLOCK_MONOTONIC, iClock);
    const timespec& oTime = g_poTimes[g_uiReads++];
    if (oTime.tv_sec != 0)
    {
        *poTime = oTime;
    }
    return oTime.tv_sec != 0 ? 0 : -1;
}

struct SDelayCase
{
    const char* m_pszName;
    unsigned int m_uiDelay; // microseconds
    unsigned int m_uiReads;
    timespec m_aoTimes[4];
};

// clang-format off
const SDelayCase gsc_aoDelayCases[] = {
    { "NoDelayLooksTwice",   0,       2, { { 5, 0 }, { 5, 0 } } },
    { "EndIsReachedExactly", 1,       3, { { 5, 0 }, { 5, 999 }, { 5, 1000 } } },
    { "NanosecondsCarry",    1500000, 3, { { 5, 800000000 }, { 7, 299999999 }, { 7, 300000000 } } },
    { "LaterSecondIsEnough", 1500000, 2, { { 5, 0 }, { 7, 0 } } },
    { "FirstReadFails",      1000000, 1, {} },
    { "LaterReadFails",      1000000, 3, { { 5, 0 }, { 5, 1 } } },
};
// clang-format on
}

TEST(Timer, DelayAndCounterGoByTheMonotonicClock)
{
    const CRestored<SZorVxdSystemCalls> oRestored(g_oZorVxdSystemCalls);
    g_oZorVxdSystemCalls.pfnGetClock = GiveTime;
    for (const SDelayCase& oCase : gsc_aoDelayCases)
    {
        g_poTimes = oCase.m_aoTimes;
        g_uiReads = 0;
        EXPECT_EQ(1U, tmDelay(oCase.m_uiDelay)) << oCase.m_pszName;
        EXPECT_EQ(oCase.m_uiReads, g_uiReads) << oCase.m_pszName;
    }
    const timespec aoTimes[] = { { 5000000, 1999 }, {} };
    g_poTimes = aoTimes;
    g_uiReads = 0;
    unsigned long long ullCounter = 0;
    EXPECT_EQ(1U, tmCounter(&ullCounter));
    EXPECT_EQ(0U, tmCounter(&ullCounter));
    EXPECT_EQ(5000000000001ULL, ullCounter) << "a failing clock leaves it alone";
    SZorFrequency oFrequency = { 1, 1 };
    EXPECT_EQ(1U, tmFrequency(&oFrequency));
    EXPECT_EQ(1000000U, oFrequency.m_uiLow);
    EXPECT_EQ(0U, oFrequency.m_uiHigh);
}

TEST(TimerMachine, DelayIsNeverShort)
{
    ExpectLasting(999, [] { EXPECT_EQ(1, OsServices::WaitMicroSeconds(999)); });
}
