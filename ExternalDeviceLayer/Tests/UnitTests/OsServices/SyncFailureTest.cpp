// Threads and locks when the system refuses, what Destroy leaves to do, and the arithmetic of deadlines.

#include "SyncTestSupport.h"

#include <functional>

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
        RunOnEvent(pszBefore);
        RunOnSignal(pszBefore);
        SDestroyedMutexes::Start(g_oOsServicesCalls);
        SBroadcasts::Start(g_oOsServicesCalls);
        EXPECT_EQ(1, m_oServices.Event_Destroy(m_hEvent));
        EXPECT_EQ(1, SDestroyedMutexes::ms_iCount);
        EXPECT_EQ(iBroadcasts, SBroadcasts::ms_iCount);
        EXPECT_EQ(1, m_oServices.Signal_Destroy(m_hSignal));
        EXPECT_EQ(2, SDestroyedMutexes::ms_iCount);
        EXPECT_EQ(2 * iBroadcasts, SBroadcasts::ms_iCount);
        g_oOsServicesCalls.pfnMutexDestroy = pthread_mutex_destroy;
        g_oOsServicesCalls.pfnConditionBroadcast = pthread_cond_broadcast;
        EXPECT_EQ(1, m_oServices.Event_Create(m_hEvent));
        EXPECT_EQ(1, m_oServices.Signal_Create(m_hSignal));
    }
}

TEST_F(SyncFailure, AFailedWakeUpLeavesNoTriggerButCancelsAllTheSame)
{
    Refuse<&Calls::pfnConditionSignal>();
    Refuse<&Calls::pfnConditionBroadcast>();
    EXPECT_EQ("0T0C1010C1T", RunOnEvent("twcwacacwaw"));
    EXPECT_EQ("00C", RunOnSignal("tcw"));
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
        EXPECT_EQ(11, poDeadline->tv_sec);
        EXPECT_EQ(499000000, poDeadline->tv_nsec);
        return ETIMEDOUT;
    };
    EXPECT_EQ(eOsServicesWaitTimedOut, WaitForSignal(999));
}
