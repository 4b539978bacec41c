// Physical memory with an ordinary file instead of the device, the timer on a made-up clock, and PCI look-up over
// a bus of the test's own, so that it is the same on every machine.

#include <errno.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

extern "C"
{
#include <pci/pci.h> // does not declare its own linkage
}

#include "OsServicesTestSupport.h"
#include "ZorLibrary.h"

namespace
{
using Calls = SZorVxdSystemCalls;
using SAllocs = SWatched<&Calls::pfnAlloc>;
using SFrees = SWatched<&Calls::pfnFree>;
using SOpens = SWatched<&Calls::pfnOpen>;
using SCloses = SWatched<&Calls::pfnClose>;
using SMaps = SWatched<&Calls::pfnMap>;
using SUnmaps = SWatched<&Calls::pfnUnmap>;
using SScans = SWatched<&SZorVxdPciLibCalls::pfnScanBus>;
using SCleanUps = SWatched<&SZorVxdPciLibCalls::pfnCleanup>;

constinit int g_iFile = -1; // stands in for the device

class MemoryMap : public COsTest
{
protected:
    void SetUp() override
    {
        g_iFile = memfd_create("device", 0);
        ASSERT_EQ(0, ftruncate(g_iFile, 4 * 4096));
        Watch<SAllocs, SFrees, SCloses, SMaps, SUnmaps>(g_oZorVxdSystemCalls);
        SOpens::Start(g_oZorVxdSystemCalls, [](const char* pszPath, int iFlags) {
            EXPECT_STREQ("/dev/mem", pszPath);
            EXPECT_EQ(O_RDWR, iFlags);
            return dup(g_iFile);
        });
    }
    void TearDown() override
    {
        EXPECT_EQ(SAllocs::ms_uiCount, SFrees::ms_uiCount);
        EXPECT_EQ(SOpens::ms_uiCount, SCloses::ms_uiCount);
        EXPECT_TRUE(g_oZorVxdMapList.poNext == &g_oZorVxdMapList && g_oZorVxdMapList.poPrev == &g_oZorVxdMapList);
        close(g_iFile);
    }
};
} // namespace

TEST_F(MemoryMap, MapsWholePagesAndGivesTheExactByte)
{
    unsigned char ui8Written = 0;
    for (const SCaseRow& oCase : ReadCases("OsServices/golden/maps.txt", 5))
    {
        SCOPED_TRACE(oCase.GetName());
        const unsigned int uiAddress = oCase.GetNumber(1);
        unsigned char* const pui8Mapped = static_cast<unsigned char*>(memMapEx(uiAddress, oCase.GetNumber(2), 0));
        ASSERT_NE(nullptr, pui8Mapped);
        EXPECT_EQ(oCase.GetNumber(3), std::get<5>(SMaps::ms_oLast));
        EXPECT_EQ(oCase.GetNumber(4), std::get<1>(SMaps::ms_oLast));
        *pui8Mapped = ++ui8Written;
        unsigned char ui8Stored = 0;
        EXPECT_EQ(1, pread(g_iFile, &ui8Stored, 1, uiAddress));
        EXPECT_EQ(ui8Written, ui8Stored) << "the device has it";

        SUnmaps::ms_uiCount = 0;
        EXPECT_EQ(0U, memUnmap(pui8Mapped - 0x10)) << "not the exact address";
        EXPECT_EQ(0U, memUnmap(nullptr));
        EXPECT_EQ(0U, SUnmaps::ms_uiCount);
        EXPECT_EQ(1U, OsServices::IoUnMap(pui8Mapped, 77)) << "the size does not count";
        EXPECT_EQ(pui8Mapped - (uiAddress - oCase.GetNumber(3)), std::get<0>(SUnmaps::ms_oLast));
        EXPECT_EQ(oCase.GetNumber(4), std::get<1>(SUnmaps::ms_oLast));
        EXPECT_EQ(0U, memUnmap(pui8Mapped)) << "it is gone";
    }
    void* const apMapped[] = { memMap64(0, 1, 0), memMap64(0, 1, 0), memMap64(0, 1, 0) };
    for (const size_t i : { 1U, 0U, 2U }) // out of the middle, then the oldest
    {
        EXPECT_EQ(1U, memUnmap(apMapped[i]));
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
    EXPECT_EQ(0x123456789000, std::get<5>(SMaps::ms_oLast)) << "nothing wraps";
    EXPECT_EQ(0x100001000U, std::get<1>(SMaps::ms_oLast));
    EXPECT_EQ(1U, SMaps::ms_uiCount);
    EXPECT_EQ(nullptr, OsServices::IoMap(0x1000, 1, -1));
    EXPECT_EQ(3U, SMaps::ms_uiCount) << "in two modes";
    EXPECT_EQ(nullptr, memMap(0x1000, 1));
    EXPECT_EQ(6U, SMaps::ms_uiCount) << "in three modes";

    const auto pfnOpen = g_oZorVxdSystemCalls.pfnOpen;
    g_oZorVxdSystemCalls.pfnOpen = [](const char*, int) { return -1; };
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    g_oZorVxdSystemCalls.pfnOpen = pfnOpen;
    g_oZorVxdSystemCalls.pfnAlloc = [](size_t) -> void* { return nullptr; };
    EXPECT_EQ(nullptr, memMap64(0x1000, 1, 0));
    EXPECT_EQ(6U, SMaps::ms_uiCount);
}

namespace
{
using Timer = COsTest;
std::istringstream g_oTimes; // nanoseconds; 0 is a read that fails

int GiveTime(clockid_t iClock, timespec* poTime)
{
    EXPECT_EQ(CLOCK_MONOTONIC, iClock);
    long long llTime = 0;
    g_oTimes >> llTime;
    *poTime = llTime != 0 ? timespec{ llTime / 1000000000, llTime % 1000000000 } : *poTime;
    return llTime != 0 ? 0 : -1;
}
} // namespace

TEST_F(Timer, DelayAndCounterGoByTheMonotonicClock)
{
    g_oZorVxdSystemCalls.pfnGetClock = GiveTime;
    for (const SCaseRow& oCase : ReadCases("OsServices/golden/delays.txt", 3))
    {
        g_oTimes = std::istringstream(oCase.GetText(2));
        EXPECT_EQ(1U, tmDelay(oCase.GetNumber(1))) << oCase.GetName();
        EXPECT_TRUE(g_oTimes.eof() && !g_oTimes.fail()) << oCase.GetName() << ": all times are read and no more";
    }
    g_oTimes = std::istringstream("5000000000001999 0");
    unsigned long long ullCounter = 0;
    EXPECT_EQ(1U, tmCounter(&ullCounter));
    EXPECT_EQ(0U, tmCounter(&ullCounter));
    EXPECT_EQ(5000000000001ULL, ullCounter) << "a failing clock leaves it alone";
    SZorFrequency oFrequency = { 1, 1 };
    EXPECT_TRUE(tmFrequency(&oFrequency) == 1 && oFrequency.m_uiLow == 1000000 && oFrequency.m_uiHigh == 0);
}

namespace
{
constinit pci_access g_oAccess = {};
constinit pci_dev g_aoDevices[4] = {};

class Pci : public COsTest
{
protected:
    void SetUp() override
    {
        const unsigned char aaui8Places[4][3] = { { 0, 0, 0 }, { 0, 0x1F, 3 }, { 1, 1, 0 }, { 0xFF, 0x1F, 7 } };
        for (size_t i = 0; i < 4; ++i)
        {
            g_aoDevices[i].bus = aaui8Places[i][0];
            g_aoDevices[i].dev = aaui8Places[i][1];
            g_aoDevices[i].func = aaui8Places[i][2];
            g_aoDevices[i].next = i < 3 ? &g_aoDevices[i + 1] : nullptr;
        }
        g_oZorVxdPciLibCalls.pfnAlloc = [] { return &g_oAccess; };
        g_oZorVxdPciLibCalls.pfnInit = [](pci_access* poAccess) { poAccess->numeric_ids = 7; };
        SScans::Start(g_oZorVxdPciLibCalls, [](pci_access* poAccess) {
            EXPECT_EQ(7, poAccess->numeric_ids) << "it was initialised";
            poAccess->devices = g_aoDevices;
        });
        SCleanUps::Start(g_oZorVxdPciLibCalls, [](pci_access* poAccess) { *poAccess = {}; });
    }
    void TearDown() override { ZorVxdPciLibCleanUp(); }
};
} // namespace

TEST_F(Pci, FindsByBusDeviceAndFunctionAfterOneScan)
{
    EXPECT_EQ(1U, ReleaseZORLibrary());
    EXPECT_EQ(0U, SCleanUps::ms_uiCount) << "there is nothing to clean up yet";
    for (const SCaseRow& oCase : ReadCases("OsServices/golden/pci.txt", 3))
    {
        const pci_dev* const poExpected = oCase.GetText(2) != "none" ? &g_aoDevices[oCase.GetNumber(2)] : nullptr;
        EXPECT_EQ(poExpected, ZorVxdPciLibConvertHandle(oCase.GetNumber(1))) << oCase.GetName();
    }
    EXPECT_EQ(1U, SScans::ms_uiCount);
    EXPECT_EQ(1U, ReleaseZORLibrary());
    EXPECT_EQ(1U, SCleanUps::ms_uiCount);
    EXPECT_EQ(nullptr, g_poZorVxdPciLibAccess);
    {
        const OsServices oFirst(nullptr);
        {
            const OsServices oSecond(nullptr);
            EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(0x0108)) << "it scans anew";
        }
        EXPECT_EQ(1U, SCleanUps::ms_uiCount);
    }
    EXPECT_EQ(2U, SCleanUps::ms_uiCount) << "the last object ends the look-up";
    g_oZorVxdPciLibCalls.pfnAlloc = []() -> pci_access* { return nullptr; };
    EXPECT_EQ(nullptr, ZorVxdPciLibConvertHandle(0x0108)) << "no access";
}
