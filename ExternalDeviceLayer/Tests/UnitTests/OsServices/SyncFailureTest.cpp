// Threads and locks when the system refuses, what Destroy leaves to do, and the arithmetic of deadlines.

#include "SyncTestSupport.h"

#include <functional>

namespace
{
using SyncFailure = CSyncTest;
using SyncDestroy = CSyncTest;
using Calls = SOsServicesCalls;

constinit int g_iMutexesDestroyed = 0;
constinit int g_iBroadcasts = 0;
constinit SHEvent* g_hLateEvent = nullptr;
constinit timespec g_oSeenDeadline = {};

int CountAndDestroyMutex(pthread_mutex_t* poMutex)
{
    ++g_iMutexesDestroyed;
    return pthread_mutex_destroy(poMutex);
}

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
        g_iMutexesDestroyed = 0;
        g_oOsServicesCalls.pfnMutexDestroy = CountAndDestroyMutex;
        oCase.m_pfnInject();
        const long iBlocks = GetLiveBlockCount();
        EXPECT_EQ(0, oCase.m_pfnCreate(m_oServices));
        EXPECT_EQ(iBlocks, GetLiveBlockCount());
        EXPECT_EQ(oCase.m_iMutexesDestroyed, g_iMutexesDestroyed);
    }
}

TEST_F(SyncDestroy, CancelsOnceAndDestroysTheMutex)
{
    g_oOsServicesCalls.pfnMutexDestroy = CountAndDestroyMutex;
    g_oOsServicesCalls.pfnConditionBroadcast = [](pthread_cond_t* poCondition) {
        ++g_iBroadcasts;
        return pthread_cond_broadcast(poCondition);
    };
    for (const bool bIsCancelled : { false, true }) // before
    {
        OsServices oServices(nullptr);
        SHEvent* hEvent = nullptr;
        SHSignal* hSignal = nullptr;
        ASSERT_EQ(1, oServices.Event_Create(hEvent));
        ASSERT_EQ(1, oServices.Signal_Create(hSignal));
        if (bIsCancelled)
        {
            EXPECT_EQ(1, oServices.Event_Cancel(hEvent));
            EXPECT_EQ(1, oServices.Signal_Cancel(hSignal));
        }
        g_iMutexesDestroyed = 0;
        g_iBroadcasts = 0;
        EXPECT_EQ(1, oServices.Event_Destroy(hEvent));
        EXPECT_EQ(1, g_iMutexesDestroyed);
        EXPECT_EQ(bIsCancelled ? 0 : 1, g_iBroadcasts);
        EXPECT_EQ(1, oServices.Signal_Destroy(hSignal));
        EXPECT_EQ(2, g_iMutexesDestroyed);
        EXPECT_EQ(bIsCancelled ? 0 : 2, g_iBroadcasts);
    }
}

TEST_F(SyncFailure, AFailedWakeUpLeavesNoTriggerButCancelsAllTheSame)
{
    Refuse<&Calls::pfnConditionSignal>();
    Refuse<&Calls::pfnConditionBroadcast>();
    EXPECT_EQ("0T0C1010C1T", RunOnEvent("twcwacacwaw").substr(0, 11));
    EXPECT_EQ("00C", RunOnSignal("tcw"));
}

TEST_F(SyncFailure, OneWakeUpOrFailureOfTheSystemEndsAWait)
{
    g_oOsServicesCalls.pfnConditionWait = [](pthread_cond_t*, pthread_mutex_t*) { return 0; };
    EXPECT_EQ(eOsServicesWaitReleased, m_oServices.Event_Wait(m_hEvent, gsc_uiOsServicesNoLimit)) << "without cause";

    Refuse<&Calls::pfnConditionWait>();
    Refuse<&Calls::pfnConditionTimedWait>();
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Event_Wait(m_hEvent, gsc_uiOsServicesNoLimit));
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(m_hEvent, 60000));
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Signal_Wait(m_hSignal, gsc_uiOsServicesNoLimit, 0));
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Signal_Wait(m_hSignal, 60000, 0));
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
    EXPECT_EQ("T", RunOnEvent("w"));
    g_oOsServicesCalls.pfnConditionTimedWait = pthread_cond_timedwait;
    EXPECT_EQ("T", RunOnEvent("w"));
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
        g_oSeenDeadline = *poDeadline;
        return ETIMEDOUT;
    };
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Signal_Wait(m_hSignal, 999, 0));
    EXPECT_EQ(11, g_oSeenDeadline.tv_sec);
    EXPECT_EQ(499000000, g_oSeenDeadline.tv_nsec);
}
