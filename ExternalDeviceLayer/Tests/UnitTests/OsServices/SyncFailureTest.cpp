// Threads and locks when the system refuses, and the arithmetic of deadlines.

#include "SyncTestSupport.h"

namespace
{
using SyncFailure = CSyncTest;

constinit int g_iMutexesDestroyed = 0;

int FailToMakeMutex(pthread_mutex_t* /*poMutex*/, const pthread_mutexattr_t* /*poAttribute*/) { return ENOMEM; }
int FailToMakeCondition(pthread_cond_t* /*poCondition*/, const pthread_condattr_t* /*poAttribute*/) { return EAGAIN; }

template <class HANDLE>
int ExpectNull(int iResult, const HANDLE* hHandle)
{
    EXPECT_EQ(nullptr, hHandle);
    return iResult;
}

int CreateThread(OsServices& oServices)
{
    int iMark = 0;
    SHCpuThread* hCpuThread = reinterpret_cast<SHCpuThread*>(&iMark); // so that the null is seen to be written
    const int iResult = oServices.CpuThread_Create([](void*) { return 0U; }, nullptr, hCpuThread);
    return ExpectNull(iResult, hCpuThread);
}

int CreateSpinLock(OsServices& oServices)
{
    int iMark = 0;
    SHSpinLock* hSpinLock = reinterpret_cast<SHSpinLock*>(&iMark);
    const int iResult = oServices.SpinLock_Create(hSpinLock);
    return ExpectNull(iResult, hSpinLock);
}

int CreateMutex(OsServices& oServices)
{
    int iMark = 0;
    SHMutex* hMutex = reinterpret_cast<SHMutex*>(&iMark);
    const int iResult = oServices.Mutex_Create(hMutex);
    return ExpectNull(iResult, hMutex);
}

int CreateEvent(OsServices& oServices)
{
    int iMark = 0;
    SHEvent* hEvent = reinterpret_cast<SHEvent*>(&iMark);
    const int iResult = oServices.Event_Create(hEvent);
    return ExpectNull(iResult, hEvent);
}

int CreateSignal(OsServices& oServices)
{
    int iMark = 0;
    SHSignal* hSignal = reinterpret_cast<SHSignal*>(&iMark);
    const int iResult = oServices.Signal_Create(hSignal);
    return ExpectNull(iResult, hSignal);
}

struct SCreationCase
{
    const char* m_szName;
    void (*m_pfnInject)();
    int (*m_pfnCreate)(OsServices& oServices);
    int m_iMutexesDestroyed; // mutexes that were made and had to go again
};

const SCreationCase gsc_aoCreationCases[] = {
    { "Thread",
      [] {
          g_oOsServicesCalls.pfnThreadCreate = [](pthread_t* poThread, const pthread_attr_t*, void* (*)(void*), void*) {
              *poThread = 1;
              return EAGAIN;
          };
      },
      CreateThread, 0 },
    { "SpinLock", [] { g_oOsServicesCalls.pfnSpinInit = [](pthread_spinlock_t*, int) { return EAGAIN; }; },
      CreateSpinLock, 0 },
    { "MutexAttribute", [] { g_oOsServicesCalls.pfnMutexAttributeInit = [](pthread_mutexattr_t*) { return ENOMEM; }; },
      CreateMutex, 0 },
    { "Mutex", [] { g_oOsServicesCalls.pfnMutexInit = FailToMakeMutex; }, CreateMutex, 0 },
    { "MutexOfEvent", [] { g_oOsServicesCalls.pfnMutexInit = FailToMakeMutex; }, CreateEvent, 0 },
    { "ConditionOfEvent", [] { g_oOsServicesCalls.pfnConditionInit = FailToMakeCondition; }, CreateEvent, 1 },
    { "MutexOfSignal", [] { g_oOsServicesCalls.pfnMutexInit = FailToMakeMutex; }, CreateSignal, 0 },
    { "ConditionOfSignal", [] { g_oOsServicesCalls.pfnConditionInit = FailToMakeCondition; }, CreateSignal, 1 },
};
}

TEST_F(SyncFailure, FailedCreationLeavesNullAndHoldsNoMemory)
{
    for (const SCreationCase& oCase : gsc_aoCreationCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const CRestored<SOsServicesCalls> oRestored(g_oOsServicesCalls);
        g_iMutexesDestroyed = 0;
        g_oOsServicesCalls.pfnMutexDestroy = [](pthread_mutex_t* poMutex) {
            ++g_iMutexesDestroyed;
            return pthread_mutex_destroy(poMutex);
        };
        oCase.m_pfnInject();
        const long iBlocks = GetLiveBlockCount();
        EXPECT_EQ(0, oCase.m_pfnCreate(m_oServices));
        EXPECT_EQ(iBlocks, GetLiveBlockCount());
        EXPECT_EQ(oCase.m_iMutexesDestroyed, g_iMutexesDestroyed);
    }
}

TEST_F(SyncFailure, WhatAFailedWakeUpLeavesBehind)
{
    SHEvent* hEvent = nullptr;
    SHSignal* hSignal = nullptr;
    ASSERT_EQ(1, m_oServices.Event_Create(hEvent));
    ASSERT_EQ(1, m_oServices.Signal_Create(hSignal));
    g_oOsServicesCalls.pfnConditionSignal = [](pthread_cond_t*) { return EINVAL; };
    g_oOsServicesCalls.pfnConditionBroadcast = [](pthread_cond_t*) { return EINVAL; };

    EXPECT_EQ(0, m_oServices.Event_Trigger(hEvent));
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(hEvent, 0)) << "no trigger";
    EXPECT_EQ(0, m_oServices.Event_Cancel(hEvent));
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Event_Wait(hEvent, 0)) << "cancelled all the same";
    EXPECT_EQ(1, m_oServices.Event_Activate(hEvent));
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(hEvent, 0)) << "no trigger";

    EXPECT_EQ(0, m_oServices.Signal_Trigger(hSignal));
    EXPECT_EQ(0, m_oServices.Signal_Cancel(hSignal));
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Signal_Wait(hSignal, 0, 0));

    EXPECT_EQ(1, m_oServices.Event_Destroy(hEvent));
    EXPECT_EQ(1, m_oServices.Signal_Destroy(hSignal));
}

TEST_F(SyncFailure, FailedWaits)
{
    SHEvent* hEvent = nullptr;
    SHSignal* hSignal = nullptr;
    ASSERT_EQ(1, m_oServices.Event_Create(hEvent));
    ASSERT_EQ(1, m_oServices.Signal_Create(hSignal));
    g_oOsServicesCalls.pfnConditionWait = [](pthread_cond_t*, pthread_mutex_t*) { return EINVAL; };
    g_oOsServicesCalls.pfnConditionTimedWait = [](pthread_cond_t*, pthread_mutex_t*, const timespec*) {
        return EINVAL;
    };
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Event_Wait(hEvent, gsc_uiOsServicesNoLimit));
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(hEvent, 60000));
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Signal_Wait(hSignal, gsc_uiOsServicesNoLimit, 0));
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Signal_Wait(hSignal, 60000, 0));
    EXPECT_EQ(1, m_oServices.Event_Destroy(hEvent));
    EXPECT_EQ(1, m_oServices.Signal_Destroy(hSignal));
}

TEST_F(SyncFailure, WakeUpWithoutCauseCountsAsTheEvent)
{
    SHEvent* hEvent = nullptr;
    ASSERT_EQ(1, m_oServices.Event_Create(hEvent));
    g_oOsServicesCalls.pfnConditionWait = [](pthread_cond_t*, pthread_mutex_t*) { return 0; };
    EXPECT_EQ(eOsServicesWaitReleased, m_oServices.Event_Wait(hEvent, gsc_uiOsServicesNoLimit));
    EXPECT_EQ(1, m_oServices.Event_Destroy(hEvent));
}

namespace
{
constinit SHEvent* g_hLateEvent = nullptr;
}

TEST_F(SyncFailure, TriggerBetweenTheEndOfTheTimeAndTheLockIsLost)
{
    ASSERT_EQ(1, m_oServices.Event_Create(g_hLateEvent));
    g_oOsServicesCalls.pfnConditionTimedWait = [](pthread_cond_t*, pthread_mutex_t* poMutex, const timespec*) {
        pthread_mutex_unlock(poMutex);
        EXPECT_EQ(1, OsServices_Event_Trigger(g_hLateEvent));
        pthread_mutex_lock(poMutex);
        return ETIMEDOUT;
    };
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(g_hLateEvent, 60000));
    g_oOsServicesCalls.pfnConditionTimedWait = pthread_cond_timedwait;
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(g_hLateEvent, 0));
    EXPECT_EQ(1, m_oServices.Event_Destroy(g_hLateEvent));
}

namespace
{
struct SDeadlineCase
{
    const char* m_szName;
    timespec m_oNow;
    unsigned int m_uiTimeout; // milliseconds
    timespec m_oDeadline;
};

// clang-format off
constexpr SDeadlineCase gsc_aoDeadlineCases[] = {
    { "NoTimeLeft",          { 10, 999999999 }, 0,          { 10, 999999999 } },
    { "WholeSeconds",        { 10, 5 },         2000,       { 12, 5 } },
    { "NanosecondsCarry",    { 10, 500000000 }, 999,        { 11, 499000000 } },
    { "CarryToAWholeSecond", { 10, 1000000 },   999,        { 11, 0 } },
    { "OneShortOfACarry",    { 10, 999999 },    999,        { 10, 999999999 } },
    { "LongestLimit",        { 10, 999999999 }, 0xFFFFFFFE, { 4294978, 293999999 } },
};
// clang-format on

constinit timespec g_oSeenDeadline = {};
}

TEST(SyncDeadline, CarriesNanosecondsIntoTheSeconds)
{
    for (const SDeadlineCase& oCase : gsc_aoDeadlineCases)
    {
        const timespec oDeadline = OsServices_GetDeadline(oCase.m_oNow, oCase.m_uiTimeout);
        EXPECT_EQ(oCase.m_oDeadline.tv_sec, oDeadline.tv_sec) << oCase.m_szName;
        EXPECT_EQ(oCase.m_oDeadline.tv_nsec, oDeadline.tv_nsec) << oCase.m_szName;
    }
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
    SHSignal* hSignal = nullptr;
    ASSERT_EQ(1, m_oServices.Signal_Create(hSignal));
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Signal_Wait(hSignal, 999, 0));
    EXPECT_EQ(11, g_oSeenDeadline.tv_sec);
    EXPECT_EQ(499000000, g_oSeenDeadline.tv_nsec);
    EXPECT_EQ(1, m_oServices.Signal_Destroy(hSignal));
}

#if defined(__x86_64__) && defined(__LP64__)
TEST(SyncHandle, SizesAreThoseOfThePlatformRecords)
{
    EXPECT_EQ(8U, OsServices_CpuThread_GetHandleSize());
    EXPECT_EQ(4U, OsServices_SpinLock_GetHandleSize());
    EXPECT_EQ(40U, OsServices_Mutex_GetHandleSize());
    EXPECT_EQ(96U, OsServices_Event_GetHandleSize());
    EXPECT_EQ(96U, OsServices_Signal_GetHandleSize());
}
#endif
