// Events, signals, mutexes, spin locks and threads: when the system does what it is asked, when it refuses, what
// Destroy leaves to do, and the arithmetic of deadlines.

#include "SyncTestSupport.h"

#include <functional>
#include <pthread.h>
#include <string.h>

namespace
{
using SyncEvent = CSyncTest;
using SyncSignal = CSyncTest;
using SyncMutex = CSyncTest;
using SyncSpinLock = CSyncTest;
using SyncThread = CSyncTest;

constexpr unsigned int gsc_uiLongLimit = 60000; // longer than any test lasts

struct SChain
{
    const char* m_pszOperations;
    const char* m_pszResults;
};
}

TEST_F(SyncEvent, FollowsItsStateTable)
{
    // From each state by each operation, and then how it waits and how it waits once active.
    // clang-format off
    const SChain aoChains[] = {
        // idle
        { "w", "T" }, { "aw", "1T" }, { "rw", "1T" }, { "tWw", "1RT" }, { "cWWw", "1CCC" }, { "caww", "11RT" },
        // pending
        { "tww", "1RT" }, { "taww", "11RT" }, { "trw", "11T" }, { "ttww", "11RT" }, { "tcw", "11C" },
        { "tcaww", "111RT" },
        // cancelled, with the trigger that the cancelling leaves behind; a wait consumes it
        { "cwaw", "1C1T" }, { "craw", "111T" }, { "ctww", "10CC" }, { "ctaww", "101RT" }, { "ccww", "10CC" },
        { "ccaww", "101RT" },
        // cancelled, without it
        { "crww", "11CC" }, { "crwaw", "11C1T" }, { "crraw", "1111T" }, { "crtw", "110C" }, { "crtaw", "1101T" },
        { "crcw", "110C" }, { "crcaw", "1101T" },
    };
    // clang-format on
    for (const SChain& oChain : aoChains)
    {
        EXPECT_EQ("11", Run(m_oEvent, "ar"));
        EXPECT_EQ(oChain.m_pszResults, Run(m_oEvent, oChain.m_pszOperations)) << oChain.m_pszOperations;
    }
}

TEST_F(SyncSignal, FollowsItsStateTable)
{
    // A trigger that nobody waits for is lost.
    // clang-format off
    const SChain aoChains[] = {
        { "w", "T" }, { "tw", "1T" }, { "aw", "1T" }, { "cWWw", "1CCC" }, { "caw", "11T" },
        { "ctw", "10C" }, { "ctaw", "101T" }, { "ccw", "10C" }, { "ccaw", "101T" }, { "cwaw", "1C1T" },
    };
    // clang-format on
    for (const SChain& oChain : aoChains)
    {
        EXPECT_EQ("1", Run(m_oSignal, "a"));
        EXPECT_EQ(oChain.m_pszResults, Run(m_oSignal, oChain.m_pszOperations)) << oChain.m_pszOperations;
    }
}

TEST_F(SyncEvent, OneTriggerReleasesOneBlockedWaiter)
{
    for (const unsigned int uiLimit : { gsc_uiLongLimit, gsc_uiOsServicesNoLimit })
    {
        const int iWaits = CountWaits();
        std::atomic<int> iReturned = 0;
        const auto WaitAndCount = [&] {
            const int iResult = WaitForEvent(uiLimit);
            ++iReturned;
            return iResult;
        };
        CBackground oFirst(WaitAndCount);
        CBackground oSecond(WaitAndCount);
        AwaitWaits(iWaits + 2);

        EXPECT_EQ(1, m_oServices.Event_Trigger(m_hEvent));
        while (iReturned < 1)
        {
            sched_yield();
        }
        OsServices::SleepMilliSeconds(1);
        EXPECT_EQ(1, iReturned);

        EXPECT_EQ(1, m_oServices.Event_Trigger(m_hEvent));
        EXPECT_EQ(eOsServicesWaitReleased, oFirst.Join());
        EXPECT_EQ(eOsServicesWaitReleased, oSecond.Join());
        EXPECT_EQ("T", Run(m_oEvent, "w")) << "both triggers are consumed";
    }
}

TEST_F(SyncSignal, TriggerOfASignalAndCancelOfBothWakeAllBlockedWaiters)
{
    const auto OnEvent = [&](unsigned int uiLimit) { return WaitForEvent(uiLimit); };
    const auto OnSignal = [&](unsigned int uiLimit) { return WaitForSignal(uiLimit); };
    // One waits with a limit and one without.
    const auto ExpectBothWoken = [](int iExpected, auto fnWait, auto fnWake) {
        const int iWaits = CountWaits();
        CBackground oFirst([&] { return fnWait(gsc_uiLongLimit); });
        CBackground oSecond([&] { return fnWait(gsc_uiOsServicesNoLimit); });
        AwaitWaits(iWaits + 2);
        EXPECT_EQ("1", fnWake());
        EXPECT_EQ(iExpected, oFirst.Join());
        EXPECT_EQ(iExpected, oSecond.Join());
    };
    ExpectBothWoken(eOsServicesWaitReleased, OnSignal, [&] { return Run(m_oSignal, "t"); });
    ExpectBothWoken(eOsServicesWaitCancelled, OnSignal, [&] { return Run(m_oSignal, "c"); });
    ExpectBothWoken(eOsServicesWaitCancelled, OnEvent, [&] { return Run(m_oEvent, "c"); });
}

TEST_F(SyncMutex, OtherThreadsGetItAfterTheLastReleaseOfTheOwner)
{
    // Whether another thread gets the mutex within the limit; it gives it back.
    const auto TryElsewhere = [this](unsigned int uiTimeout) {
        return CBackground([this, uiTimeout] {
                   return m_oServices.Mutex_Acquire(m_hMutex, uiTimeout) ? m_oServices.Mutex_Release(m_hMutex) : 0;
               })
            .Join();
    };
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, gsc_uiOsServicesNoLimit));
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, 0));
    EXPECT_EQ(0, TryElsewhere(0));
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    ExpectLasting(10000, [&] { EXPECT_EQ(0, TryElsewhere(10)); });
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    EXPECT_EQ(1, TryElsewhere(0)) << "usable after the acquire that expired";
    EXPECT_EQ(1, TryElsewhere(gsc_uiOsServicesNoLimit));
    // Waits last as long, too.
    ExpectLasting(10000, [&] { EXPECT_EQ(eOsServicesWaitTimedOut, WaitForEvent(10)); });
    ExpectLasting(10000, [&] { EXPECT_EQ(eOsServicesWaitTimedOut, WaitForSignal(10)); });
}

TEST_F(SyncSpinLock, KeepsThreadsApart)
{
    constexpr int iRounds = 500;
    SHSpinLock* hSpinLock = nullptr;
    ASSERT_EQ(1, m_oServices.SpinLock_Create(hSpinLock));
    int iCount = 0; // plain: the lock alone keeps it whole
    const auto CountUp = [&] {
        for (int i = 0; i < iRounds; ++i)
        {
            m_oServices.SpinLock_Lock(hSpinLock);
            ++iCount;
            m_oServices.SpinLock_Unlock(hSpinLock);
        }
        return 1;
    };
    CBackground oOther(CountUp);
    CountUp();
    oOther.Join();
    EXPECT_EQ(2 * iRounds, iCount);
    EXPECT_EQ(1, m_oServices.SpinLock_Destroy(hSpinLock));
}

namespace
{
pthread_t GetThread(const SHCpuThread* hCpuThread)
{
    pthread_t oThread = 0;
    memcpy(&oThread, hCpuThread, sizeof(oThread));
    return oThread;
}
}

TEST_F(SyncThread, JoinedThreadIsNotCancelled)
{
    SWatched<&Calls::pfnThreadCancel>::Start(g_oOsServicesCalls);
    const auto StoreThreadId = [](void* pvContext) {
        *static_cast<unsigned long*>(pvContext) = OsServices::GetCurrentThreadId();
        return 5U;
    };
    const long iBlocks = GetLiveBlockCount();
    unsigned long uiThreadId = 0;
    SHCpuThread* hCpuThread = nullptr;
    ASSERT_EQ(1, m_oServices.CpuThread_Create(StoreThreadId, &uiThreadId, hCpuThread));
    const unsigned long uiExpectedId = GetThread(hCpuThread);
    EXPECT_EQ(1, m_oServices.CpuThread_Join(hCpuThread));
    EXPECT_EQ(1, OsServices::IsThreadIdEqual(uiExpectedId, uiThreadId));
    EXPECT_EQ(0, OsServices::IsThreadIdEqual(OsServices::GetCurrentThreadId(), uiThreadId));
    EXPECT_EQ(0, m_oServices.CpuThread_Join(hCpuThread)) << "it was joined before";
    EXPECT_EQ(1, m_oServices.CpuThread_Destroy(hCpuThread));
    EXPECT_EQ(0, SWatched<&Calls::pfnThreadCancel>::ms_iCount);
    EXPECT_EQ(iBlocks, GetLiveBlockCount());
}

TEST_F(SyncThread, DestroyCancelsAWaitingThreadWhichLetsGoOfItsLock)
{
    const auto WaitForTheEvent = [](void* hEvent) {
        OsServices_Event_Wait(static_cast<SHEvent*>(hEvent), gsc_uiOsServicesNoLimit);
        return 0U;
    };
    SHCpuThread* hCpuThread = nullptr;
    ASSERT_EQ(1, m_oServices.CpuThread_Create(WaitForTheEvent, m_hEvent, hCpuThread));
    AwaitWaits(1);
    const pthread_t oThread = GetThread(hCpuThread);
    EXPECT_EQ(1, m_oServices.CpuThread_Destroy(hCpuThread));

    void* pvEnd = nullptr;
    EXPECT_EQ(0, pthread_join(oThread, &pvEnd));
    EXPECT_EQ(PTHREAD_CANCELED, pvEnd);
    EXPECT_EQ("T", Run(m_oEvent, "w")) << "the event still works";
}

namespace
{
using SyncFailure = CSyncTest;
using SyncDestroy = CSyncTest;
using SDestroyedMutexes = SWatched<&Calls::pfnMutexDestroy>;
using SBroadcasts = SWatched<&Calls::pfnConditionBroadcast>;

constinit SHEvent* g_hLateEvent = nullptr;

// Starts with a handle that is not null, so that the null is seen to be written.
template <class HANDLE, auto CREATE>
int Create(OsServices& oServices)
{
    int iMark = 0;
    HANDLE* hHandle = reinterpret_cast<HANDLE*>(&iMark);
    const int iResult = std::invoke(CREATE, oServices, hHandle);
    EXPECT_EQ(nullptr, hHandle);
    return iResult;
}

int StartThread(OsServices& oServices, SHCpuThread*& hCpuThread)
{
    return oServices.CpuThread_Create([](void*) { return 0U; }, nullptr, hCpuThread);
}

struct SCreationCase
{
    const char* m_pszName;
    void (*m_pfnInject)();
    int (*m_pfnCreate)(OsServices& oServices);
    int m_iMutexesDestroyed; // mutexes that were made and had to go again
};

// clang-format off
const SCreationCase gsc_aoCreationCases[] = {
    { "MemoryOfThread",    FailNextNothrowNew,                    Create<SHCpuThread, StartThread>,                 0 },
    { "Thread",            Refuse<&Calls::pfnThreadCreate>,       Create<SHCpuThread, StartThread>,                 0 },
    { "SpinLock",          Refuse<&Calls::pfnSpinInit>,           Create<SHSpinLock, &OsServices::SpinLock_Create>, 0 },
    { "MutexAttribute",    Refuse<&Calls::pfnMutexAttributeInit>, Create<SHMutex, &OsServices::Mutex_Create>,       0 },
    { "Mutex",             Refuse<&Calls::pfnMutexInit>,          Create<SHMutex, &OsServices::Mutex_Create>,       0 },
    { "MutexOfEvent",      Refuse<&Calls::pfnMutexInit>,          Create<SHEvent, &OsServices::Event_Create>,       0 },
    { "ConditionOfEvent",  Refuse<&Calls::pfnConditionInit>,      Create<SHEvent, &OsServices::Event_Create>,       1 },
    { "MutexOfSignal",     Refuse<&Calls::pfnMutexInit>,          Create<SHSignal, &OsServices::Signal_Create>,     0 },
    { "ConditionOfSignal", Refuse<&Calls::pfnConditionInit>,      Create<SHSignal, &OsServices::Signal_Create>,     1 },
};
// clang-format on
}

TEST_F(SyncFailure, FailedCreationLeavesNullAndHoldsNoMemory)
{
    for (const SCreationCase& oCase : gsc_aoCreationCases)
    {
        if (oCase.m_pfnInject == FailNextNothrowNew && !IsHeapCounted())
        {
            continue;
        }
        SCOPED_TRACE(oCase.m_pszName);
        const CRestored<SOsServicesCalls> oRestored(g_oOsServicesCalls);
        SDestroyedMutexes::Start(g_oOsServicesCalls);
        oCase.m_pfnInject();
        const long iBlocks = GetLiveBlockCount();
        EXPECT_EQ(0, oCase.m_pfnCreate(m_oServices));
        EXPECT_EQ(iBlocks, GetLiveBlockCount());
        EXPECT_EQ(oCase.m_iMutexesDestroyed, SDestroyedMutexes::ms_iCount);
    }
}

TEST_F(SyncDestroy, CancelsOnceAndDestroysTheMutex)
{
    for (const char* pszBefore : { "", "c" }) // cancelled before, it is not cancelled again
    {
        const int iBroadcasts = *pszBefore == '\0' ? 1 : 0;
        Run(m_oEvent, pszBefore);
        Run(m_oSignal, pszBefore);
        SDestroyedMutexes::Start(g_oOsServicesCalls);
        SBroadcasts::Start(g_oOsServicesCalls);
        EXPECT_EQ(1, m_oServices.Event_Destroy(m_hEvent));
        EXPECT_EQ(1, SDestroyedMutexes::ms_iCount);
        EXPECT_EQ(iBroadcasts, SBroadcasts::ms_iCount);
        EXPECT_EQ(1, m_oServices.Signal_Destroy(m_hSignal));
        EXPECT_EQ(2, SDestroyedMutexes::ms_iCount);
        EXPECT_EQ(2 * iBroadcasts, SBroadcasts::ms_iCount);
        EXPECT_EQ(1, m_oServices.Event_Create(m_hEvent));
        EXPECT_EQ(1, m_oServices.Signal_Create(m_hSignal));
    }
}

TEST_F(SyncFailure, AFailedWakeUpLeavesNoTriggerButCancelsAllTheSame)
{
    Refuse<&Calls::pfnConditionSignal>();
    Refuse<&Calls::pfnConditionBroadcast>();
    EXPECT_EQ("0T0C1010C1T", Run(m_oEvent, "twcwacacwaw"));
    EXPECT_EQ("00C", Run(m_oSignal, "tcw"));
}

TEST_F(SyncFailure, OneWakeUpOrFailureOfTheSystemEndsAWait)
{
    g_oOsServicesCalls.pfnConditionWait = [](pthread_cond_t*, pthread_mutex_t*) { return 0; };
    EXPECT_EQ(eOsServicesWaitReleased, WaitForEvent(gsc_uiOsServicesNoLimit)) << "without cause";
    Refuse<&Calls::pfnConditionWait>();
    Refuse<&Calls::pfnConditionTimedWait>();
    EXPECT_EQ(eOsServicesWaitCancelled, WaitForEvent(gsc_uiOsServicesNoLimit));
    EXPECT_EQ(eOsServicesWaitTimedOut, WaitForEvent(60000));
    EXPECT_EQ(eOsServicesWaitCancelled, WaitForSignal(gsc_uiOsServicesNoLimit));
    EXPECT_EQ(eOsServicesWaitTimedOut, WaitForSignal(60000));
}

TEST_F(SyncFailure, TriggerBetweenTheEndOfTheTimeAndTheLockIsLost)
{
    g_hLateEvent = m_hEvent;
    g_oOsServicesCalls.pfnConditionTimedWait = [](pthread_cond_t*, pthread_mutex_t* poMutex, const timespec*) {
        pthread_mutex_unlock(poMutex);
        EXPECT_EQ(1, OsServices_Event_Trigger(g_hLateEvent));
        pthread_mutex_lock(poMutex);
        return ETIMEDOUT;
    };
    EXPECT_EQ("T", Run(m_oEvent, "w"));
    g_oOsServicesCalls.pfnConditionTimedWait = pthread_cond_timedwait;
    EXPECT_EQ("T", Run(m_oEvent, "w"));
}

namespace
{
constexpr bool IsDeadline(const timespec& oDeadline, const timespec& oNow, unsigned int uiMilliseconds)
{
    const timespec oActual = OsServices_GetDeadline(oNow, uiMilliseconds);
    return oActual.tv_sec == oDeadline.tv_sec && oActual.tv_nsec == oDeadline.tv_nsec;
}
static_assert(IsDeadline({ 10, 999999999 }, { 10, 999999999 }, 0), "no time left");
static_assert(IsDeadline({ 12, 5 }, { 10, 5 }, 2000), "whole seconds");
static_assert(IsDeadline({ 11, 499000000 }, { 10, 500000000 }, 999), "nanoseconds carry");
static_assert(IsDeadline({ 11, 0 }, { 10, 1000000 }, 999), "carry to a whole second");
static_assert(IsDeadline({ 4294978, 293999999 }, { 10, 999999999 }, 0xFFFFFFFE), "longest limit");
}

TEST_F(SyncFailure, TimedWaitsGoByTheWallClock)
{
    g_oOsServicesCalls.pfnGetClock = [](clockid_t iClock, timespec* poTime) {
        EXPECT_EQ(CLOCK_REALTIME, iClock);
        *poTime = { 10, 500000000 };
        return 0;
    };
    g_oOsServicesCalls.pfnConditionTimedWait = [](pthread_cond_t*, pthread_mutex_t*, const timespec* poDeadline) {
        EXPECT_EQ(11, poDeadline->tv_sec);
        EXPECT_EQ(499000000, poDeadline->tv_nsec);
        return ETIMEDOUT;
    };
    EXPECT_EQ(eOsServicesWaitTimedOut, WaitForSignal(999));
}
