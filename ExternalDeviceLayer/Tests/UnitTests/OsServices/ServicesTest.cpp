// The object, its host, and the services that need no object. Fabs, Floor and Ceil agree with the C library but where
// the layer departs from it.

#include <bit>
#include <cmath>
#include <limits>
#include <stdint.h>
#include <type_traits>

#include "CapturedOutput.h"
#include "OsServicesTestSupport.h"

static_assert(!std::is_copy_constructible_v<OsServices> && !std::is_move_constructible_v<OsServices>);
static_assert(!std::is_convertible_v<void*, OsServices>, "no object comes from a stray pointer");

// Reaches what only tests may set.
class COsServicesTestAccess
{
public:
    static void SetRandomState(unsigned int uiState) { OsServices::ms_uiOldRandomValue = uiState; }
};

namespace
{
// Makes and triggers what a plain object does, and answers with results of its own.
class CHost final : public OsServicesHost
{
public:
    int Event_Create(SHEvent*& hEvent) override { return 10 + m_oPlain.Event_Create(hEvent); }
    int Event_Trigger(SHEvent* hEvent) override { return 20 + m_oPlain.Event_Trigger(hEvent); }
    int Signal_Create(SHSignal*& hSignal) override { return 30 + m_oPlain.Signal_Create(hSignal); }
    int Signal_Trigger(SHSignal* hSignal) override { return 40 + m_oPlain.Signal_Trigger(hSignal); }
    unsigned char GetHostProperty() override { return ++m_ui8Property; }

    unsigned char m_ui8Property = 0xA4;

private:
    OsServices m_oPlain{ nullptr };
};

using Time = COsTest;
using SSleep = SWatched<&SOsServicesCalls::pfnSleep>;
using STimer = SWatched<&SZorVxdSystemCalls::pfnGetClock>;

uint64_t Bits(double dValue) { return std::bit_cast<uint64_t>(dValue); }
} // namespace

TEST(Host, CreatesAndTriggersWhatTheObjectWaitsForAndDestroys)
{
    CHost oHost;
    OsServices oServices(static_cast<OsServicesHost*>(&oHost));
    EXPECT_EQ(0xA5, oHost.m_ui8Property) << "it is asked for once";
    ExpectNoLeak([&] {
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
    });
}

TEST_F(Time, ShortWaitsSpinAndLongOnesSleepAndSaySo)
{
    OsServices::SetMsgLevel(1, 1, 1);
    for (const SCaseRow& oCase : ReadCases("OsServices/golden/waits.txt", 5))
    {
        SSleep::Start(g_oOsServicesCalls, [](useconds_t) { return 0; });
        STimer::Start(g_oZorVxdSystemCalls, [](clockid_t, timespec* poTime) {
            *poTime = { STimer::ms_uiCount, 0 };
            return 0;
        });
        CCapturedOutput oOutput;
        EXPECT_EQ(1, OsServices::WaitMicroSeconds(oCase.GetNumber(1)));
        EXPECT_EQ(oCase.GetText(2) + (oCase.GetText(2).empty() ? "" : "\n"), oOutput.Take());
        EXPECT_EQ(oCase.GetNumber(3), STimer::ms_uiCount) << oCase.GetName();
        EXPECT_EQ(oCase.GetNumber(4), std::get<0>(SSleep::ms_oLast)) << oCase.GetName();
    }
    OsServices::SetMsgLevel(1, 1, 0);
    EXPECT_EQ(1, OsServices::SleepMilliSeconds(4294968));
    EXPECT_EQ(704U, std::get<0>(SSleep::ms_oLast)) << "microseconds in 32 bits";
    g_oOsServicesCalls.pfnSleep = [](useconds_t) { return -1; };
    EXPECT_EQ(0, OsServices::SleepMilliSeconds(1));
}

TEST_F(Time, WallClockIsGivenInNanosecondsAndMilliseconds)
{
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
}

TEST(Platform, HasNeitherOtherMemoryNorStackTraces)
{
    EXPECT_EQ(0, OsServices::NonPagedMemory_Alloc(7, nullptr));
    SStackTrace* hStackTrace = nullptr;
    CCapturedOutput oOutput;
    EXPECT_EQ(1, OsServices::StackTrace_Create(hStackTrace));
    EXPECT_EQ(1, OsServices::StackTrace_Save(hStackTrace));
    OsServices::StackTrace_Print(hStackTrace);
    EXPECT_EQ("Print stack not supported in this configuration\n", oOutput.Take());
    EXPECT_EQ(1, OsServices::StackTrace_Destroy(hStackTrace));
}

TEST(Random, FollowsItsRuleAndSeedsItself)
{
    COsServicesTestAccess::SetRandomState(1);
    EXPECT_EQ(2147483650U, OsServices::GetRandom());
    EXPECT_EQ(1073741829U, OsServices::GetRandom());
    ExpectNoLeak([] {
        COsServicesTestAccess::SetRandomState(0);
        const unsigned int uiFirst = OsServices::GetRandom();
        EXPECT_NE(0U, uiFirst);
        EXPECT_NE(uiFirst, OsServices::GetRandom()) << "the seed is taken once";
    });
}

TEST(Math, AgreesWithTheCLibraryAroundAndBetweenPowersOfTwo)
{
    const double dNaN = std::numeric_limits<double>::quiet_NaN();
    for (const int iExponent : { -1074, -3, -2, -1, 0, 1, 2, 20, 31, 32, 51, 52, 53, 54, 62, 63, 64, 1024 })
    {
        const double dPower = std::ldexp(1.0, iExponent);
        for (const double d : { 0.0, dNaN, std::nextafter(dPower, 0.0), dPower, dPower * 1.3, dPower * (1 + 0x1p-52) })
        {
            for (const double dValue : { d, -d })
            {
                // Adding +0.0 turns the C library's -0.0 into the +0.0 of this layer and changes nothing else.
                EXPECT_EQ(Bits(std::floor(dValue) + 0.0), Bits(OsServices::Floor(dValue))) << dValue;
                EXPECT_EQ(Bits(std::ceil(dValue) + 0.0), Bits(OsServices::Ceil(dValue))) << dValue;
                // -0.0 is not below zero; a NaN is.
                const double dAbsolute = d == 0.0 ? dValue : std::isnan(d) ? -dValue : d;
                EXPECT_EQ(Bits(dAbsolute), Bits(OsServices::Fabs(dValue))) << dValue;
            }
        }
    }
}
