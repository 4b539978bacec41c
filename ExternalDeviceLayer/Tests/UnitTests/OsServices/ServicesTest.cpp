// The object, its host, and the services that need no object.

#include <gtest/gtest.h>
#include <new>
#include <stddef.h>
#include <stdint.h>
#include <string.h>
#include <type_traits>
#include <typeinfo>

#include "CapturedOutput.h"
#include "OsServices.h"
#include "OsServicesClient_LinuxCalls.h"
#include "OsServicesTestSupport.h"

static_assert(!std::is_copy_constructible_v<OsServices> && !std::is_move_constructible_v<OsServices>);
static_assert(!std::is_convertible_v<void*, OsServices>, "no object comes from a stray pointer");

namespace
{
// Answers with values of its own; the handles it gives are not the client's.
class CHost final : public OsServicesHost
{
public:
    int Event_Create(SHEvent*& hEvent) override
    {
        hEvent = m_hEvent;
        return 11;
    }
    int Event_Trigger(SHEvent* hEvent) override { return hEvent == m_hEvent ? 12 : 0; }
    int Signal_Create(SHSignal*& hSignal) override
    {
        hSignal = m_hSignal;
        return 13;
    }
    int Signal_Trigger(SHSignal* hSignal) override { return hSignal == m_hSignal ? 14 : 0; }
    unsigned char GetHostProperty() override
    {
        ++m_uiQueries;
        return 0xA5;
    }

    unsigned int m_uiQueries = 0;

private:
    unsigned char m_aui8Storage[2] = {};
    SHEvent* m_hEvent = reinterpret_cast<SHEvent*>(&m_aui8Storage[0]);
    SHSignal* m_hSignal = reinterpret_cast<SHSignal*>(&m_aui8Storage[1]);
};
}

TEST(Object, CountsTheLivingOnes)
{
    EXPECT_EQ(0U, COsServicesTestAccess::GetInstanceCount());
    {
        const OsServices oFirst(nullptr);
        const OsServices oSecond(nullptr);
        EXPECT_EQ(2U, COsServicesTestAccess::GetInstanceCount());
        EXPECT_EQ(1, COsServicesTestAccess::IsInitialized(oSecond));
        EXPECT_EQ(0, COsServicesTestAccess::GetHostProperty(oFirst));
    }
    EXPECT_EQ(0U, COsServicesTestAccess::GetInstanceCount());
}

TEST(Host, TakesOverCreatingAndTriggering)
{
    CHost oHost;
    OsServices oServices(static_cast<OsServicesHost*>(&oHost));
    EXPECT_EQ(1U, oHost.m_uiQueries);
    EXPECT_EQ(0xA5, COsServicesTestAccess::GetHostProperty(oServices));

    const long iBlocks = GetLiveBlockCount();
    SHEvent* hEvent = nullptr;
    EXPECT_EQ(11, oServices.Event_Create(hEvent));
    EXPECT_EQ(12, oServices.Event_Trigger(hEvent));
    SHSignal* hSignal = nullptr;
    EXPECT_EQ(13, oServices.Signal_Create(hSignal));
    EXPECT_EQ(14, oServices.Signal_Trigger(hSignal));
    EXPECT_EQ(iBlocks, GetLiveBlockCount()) << "the class gives no memory of its own";

    SHMutex* hMutex = nullptr;
    EXPECT_EQ(1, oServices.Mutex_Create(hMutex)) << "nothing else goes to the host";
    EXPECT_EQ(1, oServices.Mutex_Destroy(hMutex));
}

namespace
{
// What a host built elsewhere looks like: its first word points to its operations, of which each takes the object
// first.
struct SForeignHost
{
    void (**m_ppfnSlots)();
};

// Each operation tells its place in the order, once it is sure of its object.
constinit const void* g_pForeignHost = nullptr;

template <int SLOT, class ARG>
int AnswerSlot(void* pSelf, ARG /*handle*/)
{
    return pSelf == g_pForeignHost ? SLOT : -1;
}

unsigned char AnswerProperty(void* pSelf) { return pSelf == g_pForeignHost ? 4 : 0xFF; }

template <class FUNCTION>
auto AsSlot(FUNCTION* pfnFunction)
{
    return reinterpret_cast<void (*)()>(pfnFunction);
}
}

TEST(Host, SlotsStandInTheirOrder)
{
    struct STable
    {
        // What the platform's C++ keeps in front of the operations; UBSan looks at the type.
        ptrdiff_t m_iOffsetToTop;
        const std::type_info* m_poType;
        void (*m_apfnSlots[5])();
    };
    STable oTable = { 0,
                      &typeid(OsServicesHost),
                      { AsSlot(AnswerSlot<0, SHEvent*&>), AsSlot(AnswerSlot<1, SHEvent*>),
                        AsSlot(AnswerSlot<2, SHSignal*&>), AsSlot(AnswerSlot<3, SHSignal*>), AsSlot(AnswerProperty) } };
    SForeignHost oHost = { oTable.m_apfnSlots };
    g_pForeignHost = &oHost;

    OsServices oServices(&oHost);
    EXPECT_EQ(4, COsServicesTestAccess::GetHostProperty(oServices));
    SHEvent* hEvent = nullptr;
    SHSignal* hSignal = nullptr;
    EXPECT_EQ(0, oServices.Event_Create(hEvent));
    EXPECT_EQ(1, oServices.Event_Trigger(hEvent));
    EXPECT_EQ(2, oServices.Signal_Create(hSignal));
    EXPECT_EQ(3, oServices.Signal_Trigger(hSignal));
}

namespace
{
constinit useconds_t g_uiSlept = 0;
constinit int g_iSleepResult = 0;
constinit unsigned int g_uiTimerReads = 0;

class Time : public testing::Test
{
protected:
    void SetUp() override
    {
        g_uiSlept = 0;
        g_iSleepResult = 0;
        g_uiTimerReads = 0;
        g_oOsServicesCalls.pfnSleep = [](useconds_t uiDelay) {
            g_uiSlept = uiDelay;
            return g_iSleepResult;
        };
        // Each look at the timer is a second later than the one before.
        g_oZorVxdSystemCalls.pfnGetClock = [](clockid_t, timespec* poTime) {
            *poTime = { static_cast<time_t>(++g_uiTimerReads), 0 };
            return 0;
        };
        OsServices::SetMsgPrefixEnable(0);
    }

    void TearDown() override
    {
        OsServices::SetMsgPrefixEnable(1);
        OsServices::SetMsgLevel(1, 1, 0);
    }

private:
    const CRestored<SOsServicesCalls> m_oRestored{ g_oOsServicesCalls };
    const CRestored<SZorVxdSystemCalls> m_oTimerRestored{ g_oZorVxdSystemCalls };
};
}

TEST_F(Time, ShortWaitsSpinWithoutAWord)
{
    OsServices::SetMsgLevel(1, 1, 1);
    CCapturedOutput oOutput;
    EXPECT_EQ(1, OsServices::WaitMicroSeconds(100000));
    EXPECT_EQ("", oOutput.Take());
    EXPECT_EQ(2U, g_uiTimerReads);
    EXPECT_EQ(0U, g_uiSlept);

    g_uiTimerReads = 0;
    EXPECT_EQ(1, OsServices::WaitMicroSeconds(0));
    EXPECT_EQ(0U, g_uiTimerReads) << "nothing to wait for";
}

TEST_F(Time, LongWaitsSleepAndSaySo)
{
    OsServices::SetMsgLevel(1, 1, 1);
    CCapturedOutput oOutput;
    EXPECT_EQ(1, OsServices::WaitMicroSeconds(100001));
    EXPECT_EQ("OsServices::WaitMicroSeconds(100001) with delay greater than 100000 us isn't reliable, "
              "using SleepMilliSeconds(100) command instead)\n",
              oOutput.Take());
    EXPECT_EQ(0U, g_uiTimerReads);
    EXPECT_EQ(100000U, g_uiSlept);

    OsServices::SetMsgLevel(1, 1, 0);
    g_iSleepResult = -1;
    CCapturedOutput oSilence;
    EXPECT_EQ(0, OsServices::WaitMicroSeconds(200999));
    EXPECT_EQ("", oSilence.Take());
    EXPECT_EQ(200000U, g_uiSlept) << "whole milliseconds, rounded down";
}

TEST_F(Time, SleepCountsMicrosecondsInThirtyTwoBits)
{
    EXPECT_EQ(1, OsServices::SleepMilliSeconds(5));
    EXPECT_EQ(5000U, g_uiSlept);
    EXPECT_EQ(1, OsServices::SleepMilliSeconds(4294968));
    EXPECT_EQ(704U, g_uiSlept);
    g_iSleepResult = -1;
    EXPECT_EQ(0, OsServices::SleepMilliSeconds(5));
}

TEST_F(Time, WallClockIsToldInNanosecondsAndMilliseconds)
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
    EXPECT_EQ(0U, OsServices::GetTimeInMs());
}

TEST(TimeMachine, WallClockLiesBetweenTwoLooks)
{
    const auto Look = [] {
        timespec oNow = {};
        clock_gettime(CLOCK_REALTIME, &oNow);
        return static_cast<unsigned long long>(oNow.tv_sec) * 1000000000 +
               static_cast<unsigned long long>(oNow.tv_nsec);
    };
    const unsigned long long uiBefore = Look();
    const unsigned long long uiTime = OsServices::GetRawTimeInNs();
    const unsigned long long uiAfter = Look();
    EXPECT_LE(uiBefore, uiTime);
    EXPECT_LE(uiTime, uiAfter);
}

TEST(Memory, PagedMemoryIsTheHeap)
{
    void* const pMemory = OsServices::PagedMemory_Alloc(100);
    ASSERT_NE(nullptr, pMemory);
    memset(pMemory, 0x5A, 100);
    OsServices::PagedMemory_Free(pMemory);
    OsServices::PagedMemory_Free(nullptr);
}

TEST(Memory, NonPagedMemoryIsAbsent)
{
    int iMark = 0;
    SNonPagedMem* const poMark = reinterpret_cast<SNonPagedMem*>(&iMark);
    SNonPagedMem* poMemory = poMark;
    EXPECT_EQ(0, OsServices::NonPagedMemory_Alloc(100, &poMemory));
    EXPECT_EQ(poMark, poMemory) << "nothing is written";
    EXPECT_EQ(0U, OsServices::NonPagedMemory_GetPhysicalAddress(poMark));
    OsServices::NonPagedMemory_Free(poMark);
}

TEST(Memory, BothCopiesGoFromTheFirstArgumentToTheSecond)
{
    char acSource[] = "source";
    char acDestination[] = "______";
    EXPECT_EQ(1, OsServices::CopyFromUser(acSource, acDestination, 3));
    EXPECT_STREQ("sou___", acDestination);
    EXPECT_EQ(1, OsServices::CopyToUser(acSource, acDestination, 6));
    EXPECT_STREQ("source", acDestination);
    EXPECT_STREQ("source", acSource);
}

namespace
{
unsigned int GetSuccessor(unsigned int uiState) { return ((uiState >> 1 | uiState << 31) ^ uiState) + uiState; }
}

TEST(Random, FollowsTheRuleFromAGivenState)
{
    COsServicesTestAccess::SetRandomState(1);
    EXPECT_EQ(2147483650U, OsServices::GetRandom());
    EXPECT_EQ(1073741829U, OsServices::GetRandom());
}

TEST(Random, IsSeededWithTheAddressOfAByteThatIsFreedAgain)
{
    ::operator delete(::operator new(1));
    if (GetLastSingleByteBlock() == nullptr)
    {
        GTEST_SKIP() << "a checker has replaced operator new";
    }
    COsServicesTestAccess::SetRandomState(0);
    const long iBlocks = GetLiveBlockCount();
    const unsigned int uiFirst = OsServices::GetRandom();
    EXPECT_EQ(iBlocks, GetLiveBlockCount());
    const uintptr_t uiAddress = reinterpret_cast<uintptr_t>(GetLastSingleByteBlock());
    EXPECT_EQ(GetSuccessor(static_cast<unsigned int>(uiAddress)), uiFirst);
    EXPECT_EQ(GetSuccessor(uiFirst), OsServices::GetRandom()) << "the seed is taken once";
}

TEST(StackTrace, SaysThatItIsNotSupported)
{
    const char* const pszLine = "Print stack not supported in this configuration\n";
    const long iBlocks = GetLiveBlockCount();
    SStackTrace* hStackTrace = nullptr;
    EXPECT_EQ(4U, OsServices_StackTrace_GetHandleSize());
    EXPECT_EQ(1, OsServices::StackTrace_Create(hStackTrace));
    ASSERT_NE(nullptr, hStackTrace);
    EXPECT_EQ(1, OsServices::StackTrace_Save(hStackTrace));
    EXPECT_EQ(1, OsServices::StackTrace_Destroy(hStackTrace));
    EXPECT_EQ(1, OsServices::StackTrace_Destroy(nullptr));
    EXPECT_EQ(iBlocks, GetLiveBlockCount());

    CCapturedOutput oPrinted;
    OsServices::StackTrace_Print(nullptr);
    EXPECT_EQ(pszLine, oPrinted.Take());
    CCapturedOutput oDumped;
    OsServices::StackTrace_Dump();
    EXPECT_EQ(pszLine, oDumped.Take());
}
