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
using Calls = SZorVxdSystemCalls;
using SMaps = SWatched<&Calls::pfnMap>;
using SUnmaps = SWatched<&Calls::pfnUnmap>;

constinit int g_iFile = -1; // stands in for the device

unsigned long long GetMapAddress() { return static_cast<unsigned long long>(std::get<5>(SMaps::ms_oLast)); }
size_t GetMapLength() { return std::get<1>(SMaps::ms_oLast); }

class MemoryMap : public testing::Test
{
protected:
    void SetUp() override
    {
        g_iFile = fileno(m_poFile);
        ASSERT_EQ(0, ftruncate(g_iFile, 4 * 4096));
        SWatched<&Calls::pfnAlloc>::Start(g_oZorVxdSystemCalls);
        SWatched<&Calls::pfnFree>::Start(g_oZorVxdSystemCalls);
        SWatched<&Calls::pfnOpen>::Start(g_oZorVxdSystemCalls, [](const char* pszPath, int iFlags) {
            EXPECT_STREQ("/dev/mem", pszPath);
            EXPECT_EQ(O_RDWR, iFlags);
            return dup(g_iFile);
        });
        SMaps::Start(g_oZorVxdSystemCalls);
        SUnmaps::Start(g_oZorVxdSystemCalls);
        SWatched<&Calls::pfnClose>::Start(g_oZorVxdSystemCalls);
    }

    void TearDown() override
    {
        EXPECT_EQ(SWatched<&Calls::pfnAlloc>::ms_iCount, SWatched<&Calls::pfnFree>::ms_iCount);
        EXPECT_EQ(SWatched<&Calls::pfnOpen>::ms_iCount, SWatched<&Calls::pfnClose>::ms_iCount);
        EXPECT_EQ(&g_oZorVxdMapList, g_oZorVxdMapList.poNext);
        EXPECT_EQ(&g_oZorVxdMapList, g_oZorVxdMapList.poPrev);
        fclose(m_poFile);
    }

private:
    const CRestored<Calls> m_oRestored{ g_oZorVxdSystemCalls };
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
        EXPECT_EQ(oCase.m_uiMapAddress, GetMapAddress());
        EXPECT_EQ(oCase.m_uiMapLength, GetMapLength());
        *pui8Mapped = ++ui8Written;
        unsigned char ui8Stored = 0;
        EXPECT_EQ(1, pread(g_iFile, &ui8Stored, 1, oCase.m_uiAddress));
        EXPECT_EQ(ui8Written, ui8Stored) << "the device has it";

        SUnmaps::ms_iCount = 0;
        EXPECT_EQ(0U, memUnmap(pui8Mapped - 0x10)) << "not the exact address";
        EXPECT_EQ(0U, memUnmap(pui8Mapped + 1));
        EXPECT_EQ(0U, memUnmap(nullptr));
        EXPECT_EQ(0, SUnmaps::ms_iCount);
        EXPECT_EQ(1U, OsServices::IoUnMap(pui8Mapped, 77)) << "the size does not count";
        EXPECT_EQ(pui8Mapped - (oCase.m_uiAddress - oCase.m_uiMapAddress), std::get<0>(SUnmaps::ms_oLast));
        EXPECT_EQ(oCase.m_uiMapLength, std::get<1>(SUnmaps::ms_oLast));
        EXPECT_EQ(0U, memUnmap(pui8Mapped)) << "it is gone";
    }
}

TEST_F(MemoryMap, EqualAddressesAreUnmappedNewestFirst)
{
    alignas(4096) static unsigned char aui8Area[8192];
    g_oZorVxdSystemCalls.pfnMap = [](void*, size_t, int, int, int, off64_t iOffset) -> void* {
        return aui8Area + iOffset;
    };
    SUnmaps::Start(g_oZorVxdSystemCalls, [](void*, size_t) { return 0; });
    EXPECT_EQ(aui8Area, memMap64(0, 1, 0));
    EXPECT_EQ(aui8Area + 4096, memMap64(4096, 4096, 0));
    EXPECT_EQ(aui8Area, memMap64(0, 8192, 0));
    EXPECT_EQ(1U, memUnmap(aui8Area + 4096)); // out of the middle
    for (const size_t uiLength : { 8192U, 4096U })
    {
        EXPECT_EQ(1U, memUnmap(aui8Area));
        EXPECT_EQ(uiLength, std::get<1>(SUnmaps::ms_oLast));
    }
}

TEST_F(MemoryMap, FailuresGiveNullAndHoldNothingAndAttemptsAreCounted)
{
    EXPECT_EQ(nullptr, memMap64(0x1000, 0, 0)) << "no page to map";
    SMaps::Start(g_oZorVxdSystemCalls, [](auto...) {
        errno = EPERM;
        return MAP_FAILED;
    });
    EXPECT_EQ(nullptr, OsServices::IoMap(0x123456789FFFUL, 0xFFFFFFFFU, 0));
    EXPECT_EQ(EPERM, errno);
    EXPECT_EQ(0x123456789000ULL, GetMapAddress()) << "nothing wraps";
    EXPECT_EQ(0x100001000ULL, GetMapLength());
    EXPECT_EQ(1, SMaps::ms_iCount);
    EXPECT_EQ(nullptr, OsServices::IoMap(0x1000, 1, -1));
    EXPECT_EQ(3, SMaps::ms_iCount) << "in two modes";
    EXPECT_EQ(nullptr, memMap(0x1000, 1));
    EXPECT_EQ(6, SMaps::ms_iCount) << "in three modes";

    const auto pfnOpen = g_oZorVxdSystemCalls.pfnOpen;
    g_oZorVxdSystemCalls.pfnOpen = [](const char*, int) { return -1; };
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    g_oZorVxdSystemCalls.pfnOpen = pfnOpen;
    g_oZorVxdSystemCalls.pfnAlloc = [](size_t) -> void* { return nullptr; };
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    EXPECT_EQ(6, SMaps::ms_iCount);
}

namespace
{
// A clock that gives these times one after the other; a time of zero is a failing read.
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
