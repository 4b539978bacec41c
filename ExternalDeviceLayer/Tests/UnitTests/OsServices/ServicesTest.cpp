// The object, its host, and the services that need no object. Fabs, Floor and Ceil agree with the C library but where
// the layer departs from it.

#include <array>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <stddef.h>
#include <stdint.h>
#include <type_traits>

#include "CapturedOutput.h"
#include "OsServices.h"
#include "OsServicesClient_LinuxCalls.h"
#include "OsServicesTestSupport.h"

static_assert(!std::is_copy_constructible_v<OsServices> && !std::is_move_constructible_v<OsServices>);
static_assert(!std::is_convertible_v<void*, OsServices>, "no object comes from a stray pointer");

namespace
{
// Makes and triggers what the client expects, and answers with results of its own.
class CHost final : public OsServicesHost
{
public:
    int Event_Create(SHEvent*& hEvent) override
    {
        hEvent = static_cast<SHEvent*>(::operator new[](OsServices_Event_GetHandleSize()));
        return 10 + OsServices_Event_Create(hEvent);
    }
    int Event_Trigger(SHEvent* hEvent) override { return 20 + OsServices_Event_Trigger(hEvent); }
    int Signal_Create(SHSignal*& hSignal) override
    {
        hSignal = static_cast<SHSignal*>(::operator new[](OsServices_Signal_GetHandleSize()));
        return 30 + OsServices_Signal_Create(hSignal);
    }
    int Signal_Trigger(SHSignal* hSignal) override { return 40 + OsServices_Signal_Trigger(hSignal); }
    unsigned char GetHostProperty() override { return ++m_ui8Property; }

    unsigned char m_ui8Property = 0xA4;
};

// The place of an operation among those of the host; a pointer to a virtual member begins with it, in bytes.
template <class MEMBER>
ptrdiff_t SlotOf(MEMBER pfnMember)
{
    return std::bit_cast<std::array<ptrdiff_t, 2>>(pfnMember)[0] / static_cast<ptrdiff_t>(sizeof(void*));
}
}

TEST(Host, CreatesAndTriggersWhatTheObjectWaitsForAndDestroys)
{
    CHost oHost;
    OsServices oServices(static_cast<OsServicesHost*>(&oHost));
    EXPECT_EQ(0xA5, COsServicesTestAccess::GetHostProperty(oServices));
    EXPECT_EQ(0xA5, oHost.m_ui8Property) << "it is asked for once";
    EXPECT_EQ(0, COsServicesTestAccess::GetHostProperty(OsServices(nullptr)));

    const long iBlocks = GetLiveBlockCount();
    SHEvent* hEvent = nullptr;
    ASSERT_EQ(11, oServices.Event_Create(hEvent));
    EXPECT_EQ(21, oServices.Event_Trigger(hEvent));
    EXPECT_EQ(eOsServicesWaitReleased, oServices.Event_Wait(hEvent, gsc_uiOsServicesNoLimit));
    EXPECT_EQ(1, oServices.Event_Destroy(hEvent));

    SHSignal* hSignal = nullptr;
    ASSERT_EQ(31, oServices.Signal_Create(hSignal));
    EXPECT_EQ(41, oServices.Signal_Trigger(hSignal));
    EXPECT_EQ(eOsServicesWaitTimedOut, oServices.Signal_Wait(hSignal, 0, 0));
    EXPECT_EQ(1, oServices.Signal_Destroy(hSignal));
    EXPECT_EQ(iBlocks, GetLiveBlockCount()) << "the object frees what the host took";
}

TEST(Host, SlotsStandInTheirOrder)
{
    EXPECT_EQ(0, SlotOf(&OsServicesHost::Event_Create));
    EXPECT_EQ(1, SlotOf(&OsServicesHost::Event_Trigger));
    EXPECT_EQ(2, SlotOf(&OsServicesHost::Signal_Create));
    EXPECT_EQ(3, SlotOf(&OsServicesHost::Signal_Trigger));
    EXPECT_EQ(4, SlotOf(&OsServicesHost::GetHostProperty));
}

namespace
{
using SSleep = SWatched<&SOsServicesCalls::pfnSleep>;
using STimer = SWatched<&SZorVxdSystemCalls::pfnGetClock>;

struct SWaitCase
{
    unsigned int m_uiDelay; // microseconds
    int m_iTimerReads;      // of a busy wait
    useconds_t m_uiSlept;
    const char* m_pszMessage;
};

// clang-format off
const SWaitCase gsc_aoWaitCases[] = {
    {      0, 0,      0, "" }, // nothing to wait for
    { 100000, 2,      0, "" },
    { 100001, 0, 100000, "OsServices::WaitMicroSeconds(100001) with delay greater than 100000 us isn't reliable, "
                         "using SleepMilliSeconds(100) command instead)\n" },
    { 200999, 0, 200000, "OsServices::WaitMicroSeconds(200999) with delay greater than 100000 us isn't reliable, "
                         "using SleepMilliSeconds(200) command instead)\n" }, // whole milliseconds, rounded down
};
// clang-format on

}

TEST(Time, ShortWaitsSpinAndLongOnesSleepAndSaySo)
{
    const CRestored<SOsServicesCalls> oRestored(g_oOsServicesCalls);
    const CRestored<SZorVxdSystemCalls> oTimerRestored(g_oZorVxdSystemCalls);
    OsServices::SetMsgPrefixEnable(0);
    OsServices::SetMsgLevel(1, 1, 1);
    for (const SWaitCase& oCase : gsc_aoWaitCases)
    {
        SCOPED_TRACE(oCase.m_uiDelay);
        SSleep::Start(g_oOsServicesCalls, [](useconds_t) { return 0; });
        // Each look at the timer is a second later than the one before.
        STimer::Start(g_oZorVxdSystemCalls, [](clockid_t, timespec* poTime) {
            *poTime = { STimer::ms_iCount, 0 };
            return 0;
        });
        CCapturedOutput oOutput;
        EXPECT_EQ(1, OsServices::WaitMicroSeconds(oCase.m_uiDelay));
        EXPECT_EQ(oCase.m_pszMessage, oOutput.Take());
        EXPECT_EQ(oCase.m_iTimerReads, STimer::ms_iCount);
        EXPECT_EQ(oCase.m_uiSlept, std::get<0>(SSleep::ms_oLast));
    }
    OsServices::SetMsgPrefixEnable(1);
    OsServices::SetMsgLevel(1, 1, 0);

    EXPECT_EQ(1, OsServices::SleepMilliSeconds(4294968));
    EXPECT_EQ(704U, std::get<0>(SSleep::ms_oLast)) << "microseconds in 32 bits";
    g_oOsServicesCalls.pfnSleep = [](useconds_t) { return -1; };
    EXPECT_EQ(0, OsServices::SleepMilliSeconds(1));
}

TEST(Time, WallClockIsGivenInNanosecondsAndMilliseconds)
{
    const CRestored<SOsServicesCalls> oRestored(g_oOsServicesCalls);
    g_oOsServicesCalls.pfnGetClock = [](clockid_t iClock, timespec* poTime) {
        EXPECT_EQ(CLOCK_REALTIME, iClock);
        *poTime = { 1700000000, 999999999 };
        return 0;
    };
    EXPECT_EQ(1700000000999999999ULL, OsServices::GetRawTimeInNs());
    EXPECT_EQ(1700000000999ULL, OsServices::GetTimeInMs());
    g_oOsServicesCalls.pfnGetClock = [](clockid_t, timespec*) { return -1; };
    EXPECT_EQ(0U, OsServices::GetRawTimeInNs());
}

TEST(Memory, BothCopiesGoFromTheFirstArgumentToTheSecond)
{
    char acSource[] = "source";
    char* const pszDestination = static_cast<char*>(OsServices::PagedMemory_Alloc(7));
    EXPECT_EQ(1, OsServices::CopyFromUser(acSource, pszDestination, 7));
    acSource[0] = acSource[3] = '_';
    EXPECT_EQ(1, OsServices::CopyToUser(acSource + 1, pszDestination + 1, 3));
    EXPECT_STREQ("sou_ce", pszDestination);
    OsServices::PagedMemory_Free(pszDestination);
    EXPECT_EQ(0, OsServices::NonPagedMemory_Alloc(7, nullptr)) << "this platform has none";
}

TEST(Random, FollowsTheRuleFromTheAddressOfAByteThatIsFreedAgain)
{
    COsServicesTestAccess::SetRandomState(1);
    EXPECT_EQ(2147483650U, OsServices::GetRandom());
    EXPECT_EQ(1073741829U, OsServices::GetRandom());
    if (!IsHeapCounted())
    {
        GTEST_SKIP() << "a checker has replaced operator new";
    }
    COsServicesTestAccess::SetRandomState(0);
    const long iBlocks = GetLiveBlockCount();
    const unsigned int uiFirst = OsServices::GetRandom();
    EXPECT_EQ(iBlocks, GetLiveBlockCount());
    const unsigned int uiSecond = OsServices::GetRandom();
    const uintptr_t uiAddress = reinterpret_cast<uintptr_t>(GetLastSingleByteBlock());
    COsServicesTestAccess::SetRandomState(static_cast<unsigned int>(uiAddress));
    EXPECT_EQ(uiFirst, OsServices::GetRandom());
    EXPECT_EQ(uiSecond, OsServices::GetRandom()) << "the seed is taken once";
}

TEST(StackTrace, SaysThatItIsNotSupported)
{
    const long iBlocks = GetLiveBlockCount();
    SStackTrace* hStackTrace = nullptr;
    CCapturedOutput oOutput;
    EXPECT_EQ(1, OsServices::StackTrace_Create(hStackTrace));
    EXPECT_EQ(1, OsServices::StackTrace_Save(hStackTrace));
    OsServices::StackTrace_Print(hStackTrace);
    EXPECT_EQ("Print stack not supported in this configuration\n", oOutput.Take());
    EXPECT_EQ(1, OsServices::StackTrace_Destroy(hStackTrace));
    EXPECT_EQ(iBlocks, GetLiveBlockCount());
}

namespace
{
uint64_t Bits(double dValue) { return std::bit_cast<uint64_t>(dValue); }
}

TEST(Math, AgreesWithTheCLibraryAroundAndBetweenAllPowersOfTwo)
{
    constexpr double dInfinity = std::numeric_limits<double>::infinity();
    for (const int iExponent : { -1074, -3, -2, -1, 0, 1, 2, 20, 31, 32, 51, 52, 53, 54, 62, 63, 64, 1024 })
    {
        const double dPower = std::ldexp(1.0, iExponent);
        for (const double d : { std::nextafter(dPower, 0.0), dPower, std::nextafter(dPower, dInfinity), 1.3 * dPower })
        {
            for (const double dValue : { d, -d })
            {
                // Adding +0.0 turns the C library's -0.0 into the +0.0 of this layer and changes nothing else.
                EXPECT_EQ(Bits(std::floor(dValue) + 0.0), Bits(OsServices::Floor(dValue))) << dValue;
                EXPECT_EQ(Bits(std::ceil(dValue) + 0.0), Bits(OsServices::Ceil(dValue))) << dValue;
                EXPECT_EQ(d != 0.0 ? Bits(d) : Bits(dValue), Bits(OsServices::Fabs(dValue))) << dValue;
            }
        }
    }
    EXPECT_EQ(Bits(-0.0), Bits(OsServices::Fabs(-0.0)));
}

TEST(Math, OnlyFabsFlipsTheSignOfNaN)
{
    const double dNaN = std::numeric_limits<double>::quiet_NaN();
    for (const double dEither : { dNaN, -dNaN })
    {
        EXPECT_EQ(Bits(-dEither), Bits(OsServices::Fabs(dEither)));
        EXPECT_EQ(Bits(dEither), Bits(OsServices::Floor(dEither)));
        EXPECT_EQ(Bits(dEither), Bits(OsServices::Ceil(dEither)));
    }
}
