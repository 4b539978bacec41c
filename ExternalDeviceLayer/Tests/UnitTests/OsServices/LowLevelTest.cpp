// Physical memory with an ordinary file in the place of the device, and the timer on a made-up clock.

#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdint.h>
#include <stdio.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include "OsServices.h"
#include "OsServicesTestSupport.h"
#include "ZorLibrary.h"
#include "ZorVxd_Linux.h"

namespace
{
constexpr size_t gsc_uiPage = 4096;
constexpr size_t gsc_uiFileSize = 16 * gsc_uiPage;

// What the layer asked of the system.
struct SDeviceLog
{
    int m_iFile;      // stands in for the device
    int m_iLiveNodes; // list nodes allocated and not freed
    int m_iOpenFiles; // opened and not closed
    unsigned int m_uiOpens;
    const char* m_szPath; // of the last opening
    int m_iOpenFlags;
    size_t m_uiMapLength; // of the last mapping
    unsigned long long m_uiMapAddress;
    void* m_pUnmapAddress; // of the last unmapping
    size_t m_uiUnmapLength;
    unsigned int m_uiUnmaps;
};

constinit SDeviceLog g_oLog = {};
constinit SZorVxdSystemCalls g_oRealCalls = {};

// The layer's own call, on the file: which of reading and writing it allows stays the choice of the layer.
int OpenFileAsDevice(const char* szPath, int iFlags)
{
    ++g_oLog.m_uiOpens;
    g_oLog.m_szPath = szPath;
    g_oLog.m_iOpenFlags = iFlags;
    const int iFile = g_oRealCalls.pfnOpen(("/proc/self/fd/" + std::to_string(g_oLog.m_iFile)).c_str(), iFlags);
    g_oLog.m_iOpenFiles += iFile >= 0 ? 1 : 0;
    return iFile;
}

void* LogAndMap(void* pHint, size_t uiLength, int iProtection, int iFlags, int iFile, off64_t iOffset)
{
    g_oLog.m_uiMapLength = uiLength;
    g_oLog.m_uiMapAddress = static_cast<unsigned long long>(iOffset);
    return g_oRealCalls.pfnMap(pHint, uiLength, iProtection, iFlags, iFile, iOffset);
}

unsigned char PatternAt(size_t uiAddress) { return static_cast<unsigned char>(uiAddress * 7 + uiAddress / 4096); }

void* FailToMap(void* /*pHint*/, size_t uiLength, int /*iProtection*/, int /*iFlags*/, int /*iFile*/, off64_t iOffset)
{
    g_oLog.m_uiMapLength = uiLength;
    g_oLog.m_uiMapAddress = static_cast<unsigned long long>(iOffset);
    errno = EPERM;
    return MAP_FAILED;
}

class MemoryMap : public testing::Test
{
protected:
    void SetUp() override
    {
        m_poFile = tmpfile();
        ASSERT_NE(nullptr, m_poFile);
        std::vector<unsigned char> aui8Content(gsc_uiFileSize);
        for (size_t i = 0; i < gsc_uiFileSize; ++i)
        {
            aui8Content[i] = PatternAt(i);
        }
        ASSERT_EQ(gsc_uiFileSize, fwrite(aui8Content.data(), 1, gsc_uiFileSize, m_poFile));
        fflush(m_poFile);
        g_oLog = {};
        g_oLog.m_iFile = fileno(m_poFile);

        g_oRealCalls = g_oZorVxdSystemCalls;
        g_oZorVxdSystemCalls.pfnAlloc = [](size_t uiSize) {
            ++g_oLog.m_iLiveNodes;
            return g_oRealCalls.pfnAlloc(uiSize);
        };
        g_oZorVxdSystemCalls.pfnFree = [](void* pMemory) {
            --g_oLog.m_iLiveNodes;
            g_oRealCalls.pfnFree(pMemory);
        };
        g_oZorVxdSystemCalls.pfnOpen = OpenFileAsDevice;
        g_oZorVxdSystemCalls.pfnMap = LogAndMap;
        g_oZorVxdSystemCalls.pfnUnmap = [](void* pAddress, size_t uiLength) {
            ++g_oLog.m_uiUnmaps;
            g_oLog.m_pUnmapAddress = pAddress;
            g_oLog.m_uiUnmapLength = uiLength;
            return g_oRealCalls.pfnUnmap(pAddress, uiLength);
        };
        g_oZorVxdSystemCalls.pfnClose = [](int iFile) {
            --g_oLog.m_iOpenFiles;
            return g_oRealCalls.pfnClose(iFile);
        };
    }

    void TearDown() override
    {
        EXPECT_EQ(0, g_oLog.m_iLiveNodes);
        EXPECT_EQ(0, g_oLog.m_iOpenFiles);
        EXPECT_EQ(&g_oZorVxdMapList, g_oZorVxdMapList.poNext);
        EXPECT_EQ(&g_oZorVxdMapList, g_oZorVxdMapList.poPrev);
        fclose(m_poFile);
    }

private:
    const CRestored<SZorVxdSystemCalls> m_oRestored{ g_oZorVxdSystemCalls };
    FILE* m_poFile = nullptr;
};

// Both directions of the circular list must tell the same; newest first.
std::vector<void*> GetListedAddresses()
{
    std::vector<void*> apAddresses;
    for (const SZorVxdMapNode* poNode = g_oZorVxdMapList.poNext; poNode != &g_oZorVxdMapList; poNode = poNode->poNext)
    {
        EXPECT_EQ(poNode, poNode->poNext->poPrev);
        EXPECT_EQ(poNode, poNode->poPrev->poNext);
        apAddresses.push_back(poNode->pAddress);
    }
    return apAddresses;
}

struct SPageCase
{
    const char* m_szName;
    unsigned long long m_uiAddress;
    unsigned int m_uiSize;
    unsigned long long m_uiMapAddress;
    size_t m_uiMapLength;
};

// clang-format off
const SPageCase gsc_aoPageCases[] = {
    { "OneByte",               0x0000,    1, 0x0000, 0x1000 },
    { "WholePage",             0x2000, 4096, 0x2000, 0x1000 },
    { "OneByteMoreThanAPage",  0x2000, 4097, 0x2000, 0x2000 },
    { "InsideAPage",           0x1010,   16, 0x1000, 0x1000 },
    { "LastByteOfAPage",       0x1FFF,    1, 0x1000, 0x1000 },
    { "OneByteOverTheBorder",  0x1FFF,    2, 0x1000, 0x2000 },
    { "UpToTheBorder",         0x3010, 4080, 0x3000, 0x1000 },
    { "SizeZeroInsideAPage",   0x3010,    0, 0x3000, 0x1000 },
};
// clang-format on
}

TEST_F(MemoryMap, MapsWholePagesAndGivesTheExactByte)
{
    for (const SPageCase& oCase : gsc_aoPageCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        unsigned char* const pui8Mapped = static_cast<unsigned char*>(memMap64(oCase.m_uiAddress, oCase.m_uiSize, 0));
        ASSERT_NE(nullptr, pui8Mapped);
        EXPECT_EQ(oCase.m_uiMapAddress, g_oLog.m_uiMapAddress);
        EXPECT_EQ(oCase.m_uiMapLength, g_oLog.m_uiMapLength);
        const size_t uiOffset = oCase.m_uiAddress - oCase.m_uiMapAddress;
        EXPECT_EQ(uiOffset, reinterpret_cast<uintptr_t>(pui8Mapped) % gsc_uiPage);
        EXPECT_EQ(PatternAt(oCase.m_uiAddress), *pui8Mapped);

        EXPECT_EQ(1U, memUnmap(pui8Mapped));
        EXPECT_EQ(pui8Mapped - uiOffset, g_oLog.m_pUnmapAddress);
        EXPECT_EQ(oCase.m_uiMapLength, g_oLog.m_uiUnmapLength);
        EXPECT_EQ(0U, memUnmap(pui8Mapped)) << "it is gone";
    }
}

TEST_F(MemoryMap, OpensPhysicalMemoryForReadingAndWriting)
{
    void* const pMapped = memMap(0x1000, 1);
    EXPECT_STREQ("/dev/mem", g_oLog.m_szPath);
    EXPECT_EQ(O_RDWR, g_oLog.m_iOpenFlags);
    EXPECT_EQ(1U, memUnmap(pMapped));
}

TEST_F(MemoryMap, WritesReachTheDevice)
{
    unsigned char* const pui8Mapped = static_cast<unsigned char*>(memMapEx(0x2345, 1, 6));
    ASSERT_NE(nullptr, pui8Mapped);
    *pui8Mapped = 0xA5;
    unsigned char ui8Stored = 0;
    EXPECT_EQ(1, pread(g_oLog.m_iFile, &ui8Stored, 1, 0x2345));
    EXPECT_EQ(0xA5, ui8Stored);
    EXPECT_EQ(1U, memUnmap(pui8Mapped));
}

TEST_F(MemoryMap, LongAddressesAndLengthsDoNotWrap)
{
    g_oZorVxdSystemCalls.pfnMap = FailToMap;
    EXPECT_EQ(nullptr, memMap64(0x123456789FFFULL, 0xFFFFFFFFU, 0));
    EXPECT_EQ(0x123456789000ULL, g_oLog.m_uiMapAddress);
    EXPECT_EQ(0x100001000ULL, g_oLog.m_uiMapLength);
}

TEST_F(MemoryMap, ListRunsFromNewestToOldest)
{
    void* const pFirst = memMap64(0x1000, 1, 0);
    void* const pSecond = memMap64(0x2010, 1, 0);
    void* const pThird = memMap64(0x3000, 1, 0);
    EXPECT_EQ((std::vector<void*>{ pThird, pSecond, pFirst }), GetListedAddresses());
    EXPECT_EQ(1U, memUnmap(pSecond));
    EXPECT_EQ((std::vector<void*>{ pThird, pFirst }), GetListedAddresses());
    EXPECT_EQ(1U, memUnmap(pFirst));
    EXPECT_EQ(1U, memUnmap(pThird));
}

TEST_F(MemoryMap, EqualAddressesAreUnmappedNewestFirst)
{
    alignas(gsc_uiPage) static unsigned char aui8Area[gsc_uiPage];
    g_oZorVxdSystemCalls.pfnMap = [](void*, size_t, int, int, int, off64_t) -> void* { return aui8Area; };
    g_oZorVxdSystemCalls.pfnUnmap = [](void*, size_t uiLength) {
        g_oLog.m_uiUnmapLength = uiLength;
        return 0;
    };
    EXPECT_EQ(aui8Area, memMap64(0, 1, 0));
    EXPECT_EQ(aui8Area, memMap64(0, 2 * gsc_uiPage, 0));
    EXPECT_EQ(1U, memUnmap(aui8Area));
    EXPECT_EQ(2 * gsc_uiPage, g_oLog.m_uiUnmapLength);
    EXPECT_EQ(1U, memUnmap(aui8Area));
    EXPECT_EQ(gsc_uiPage, g_oLog.m_uiUnmapLength);
}

TEST_F(MemoryMap, UnmapWantsTheExactAddress)
{
    EXPECT_EQ(0U, memUnmap(nullptr)) << "the list is empty";
    unsigned char* const pui8Mapped = static_cast<unsigned char*>(memMap64(0x1010, 16, 0));
    EXPECT_EQ(0U, memUnmap(pui8Mapped - 0x10));
    EXPECT_EQ(0U, memUnmap(pui8Mapped + 1));
    EXPECT_EQ(0U, memUnmap(nullptr));
    EXPECT_EQ(0U, g_oLog.m_uiUnmaps);
    EXPECT_EQ(1U, OsServices::IoUnMap(pui8Mapped, 1)) << "the size does not count";
}

TEST_F(MemoryMap, FailuresGiveNullAndHoldNothing)
{
    EXPECT_EQ(nullptr, memMap64(0x1000, 0, 0)) << "no page to map";

    g_oZorVxdSystemCalls.pfnMap = FailToMap;
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    EXPECT_EQ(EPERM, errno);

    g_oZorVxdSystemCalls.pfnOpen = [](const char*, int) {
        ++g_oLog.m_uiOpens;
        errno = EACCES;
        return -1;
    };
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    EXPECT_EQ(EACCES, errno);

    g_oLog.m_uiOpens = 0;
    g_oZorVxdSystemCalls.pfnAlloc = [](size_t) -> void* { return nullptr; };
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    EXPECT_EQ(0U, g_oLog.m_uiOpens);
}

TEST_F(MemoryMap, AttemptsAreCounted)
{
    g_oZorVxdSystemCalls.pfnMap = FailToMap;
    const auto CountOpens = [](void* pResult) {
        EXPECT_EQ(nullptr, pResult);
        const unsigned int uiOpens = g_oLog.m_uiOpens;
        g_oLog.m_uiOpens = 0;
        return uiOpens;
    };
    EXPECT_EQ(3U, CountOpens(memMap(0x1000, 1)));
    EXPECT_EQ(1U, CountOpens(OsServices::IoMap(0x1000, 1, 0)));
    EXPECT_EQ(2U, CountOpens(OsServices::IoMap(0x1000, 1, 1)));
    EXPECT_EQ(2U, CountOpens(OsServices::IoMap(0x1000, 1, -1)));
}

TEST(MemoryMapMachine, MapsThePhysicalMemoryOfThisMachine)
{
    constexpr unsigned int uiFirmwareArea = 0xF0000; // readable wherever the kernel lets anything through
    const int iFile = open("/dev/mem", O_RDWR);
    if (iFile < 0)
    {
        GTEST_SKIP() << "/dev/mem cannot be opened here";
    }
    close(iFile);
    void* const pMapped = memMap(uiFirmwareArea, 16);
    if (pMapped == nullptr)
    {
        GTEST_SKIP() << "the kernel refuses to map physical memory";
    }
    EXPECT_EQ(1U, memUnmap(pMapped));
}

namespace
{
// A clock that tells the given times one after the other; a negative nanosecond count is a failing read.
constinit const timespec* g_poTimes = nullptr;
constinit unsigned int g_uiReads = 0;

int TellTime(clockid_t iClock, timespec* poTime)
{
    EXPECT_EQ(CLOCK_MONOTONIC, iClock);
    const timespec& oTime = g_poTimes[g_uiReads++];
    if (oTime.tv_nsec < 0)
    {
        return -1;
    }
    *poTime = oTime;
    return 0;
}

constexpr timespec gsc_oNoTime = { 0, -1 };

struct SDelayCase
{
    const char* m_szName;
    unsigned int m_uiDelay; // microseconds
    unsigned int m_uiReads;
    timespec m_aoTimes[4];
};

// clang-format off
const SDelayCase gsc_aoDelayCases[] = {
    { "NoDelayLooksTwice",       0,       2, { { 5, 0 }, { 5, 0 }, gsc_oNoTime, gsc_oNoTime } },
    { "EndIsReachedExactly",     1,       3, { { 5, 0 }, { 5, 999 }, { 5, 1000 }, gsc_oNoTime } },
    { "NanosecondsCarry",        1500000, 3, { { 5, 800000000 }, { 7, 299999999 }, { 7, 300000000 }, gsc_oNoTime } },
    { "CarryToAWholeSecond",     200000,  3, { { 5, 800000000 }, { 5, 999999999 }, { 6, 0 }, gsc_oNoTime } },
    { "LaterSecondIsEnough",     1500000, 2, { { 5, 0 }, { 7, 0 }, gsc_oNoTime, gsc_oNoTime } },
    { "FirstReadFails",          1000000, 1, { gsc_oNoTime, gsc_oNoTime, gsc_oNoTime, gsc_oNoTime } },
    { "LaterReadFails",          1000000, 3, { { 5, 0 }, { 5, 1 }, gsc_oNoTime, gsc_oNoTime } },
};
// clang-format on

class Timer : public testing::Test
{
protected:
    void SetUp() override
    {
        g_oZorVxdSystemCalls.pfnGetClock = TellTime;
        g_uiReads = 0;
    }

private:
    const CRestored<SZorVxdSystemCalls> m_oRestored{ g_oZorVxdSystemCalls };
};
}

TEST_F(Timer, DelayEndsWhenTheClockHasReachedTheEnd)
{
    for (const SDelayCase& oCase : gsc_aoDelayCases)
    {
        g_poTimes = oCase.m_aoTimes;
        g_uiReads = 0;
        EXPECT_EQ(1U, tmDelay(oCase.m_uiDelay)) << oCase.m_szName;
        EXPECT_EQ(oCase.m_uiReads, g_uiReads) << oCase.m_szName;
    }
}

TEST_F(Timer, CounterTellsMicroseconds)
{
    const timespec aoTimes[] = { { 5000000, 1999 }, gsc_oNoTime };
    g_poTimes = aoTimes;
    unsigned long long uiCounter = 0;
    EXPECT_EQ(1U, tmCounter(&uiCounter));
    EXPECT_EQ(5000000000001ULL, uiCounter);
    EXPECT_EQ(0U, tmCounter(&uiCounter));
    EXPECT_EQ(5000000000001ULL, uiCounter) << "a failing clock leaves it alone";
}

TEST_F(Timer, FrequencyIsConstant)
{
    SZorFrequency oFrequency = { 1, 1 };
    EXPECT_EQ(1U, tmFrequency(&oFrequency));
    EXPECT_EQ(1000000U, oFrequency.m_uiLow);
    EXPECT_EQ(0U, oFrequency.m_uiHigh);
    EXPECT_EQ(1U, tmInit());
    EXPECT_EQ(1U, InitZORLibrary());
}

TEST(TimerMachine, DelayIsNeverShort)
{
    unsigned long long uiBefore = 0;
    unsigned long long uiAfter = 0;
    const CStopwatch oStopwatch;
    EXPECT_EQ(1U, tmCounter(&uiBefore));
    EXPECT_EQ(1, OsServices::WaitMicroSeconds(999));
    EXPECT_EQ(1U, tmCounter(&uiAfter));
    EXPECT_GE(uiAfter - uiBefore, 999U);
    EXPECT_GE(oStopwatch.GetMicroseconds(), 999);
    EXPECT_LT(oStopwatch.GetMicroseconds(), gsc_iPatienceMicroseconds);
}
