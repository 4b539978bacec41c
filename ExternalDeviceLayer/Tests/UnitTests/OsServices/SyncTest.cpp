// Events, signals, mutexes, spin locks and threads as they behave when the system does what it is asked.

#include "SyncTestSupport.h"

#include <pthread.h>
#include <string.h>

namespace
{
// Results of this enumeration's kind stand in tables beside plain 0 and 1.
constexpr int gsc_iReleased = eOsServicesWaitReleased;
constexpr int gsc_iTimedOut = eOsServicesWaitTimedOut;
constexpr int gsc_iCancelled = eOsServicesWaitCancelled;

// Longer than any test lasts.
constexpr unsigned int gsc_uiLongLimit = 60000;

class SyncEvent : public CSyncTest
{
protected:
    void SetUp() override
    {
        CSyncTest::SetUp();
        ASSERT_EQ(1, m_oServices.Event_Create(m_hEvent));
    }
    void TearDown() override { EXPECT_EQ(1, m_oServices.Event_Destroy(m_hEvent)); }

    SHEvent* m_hEvent = nullptr;
};

enum EEventState : int
{
    eIdle,
    ePending,
    eCancelledPending,
    eCancelled,
};

using EventOperation = int (*)(OsServices& oServices, SHEvent* hEvent);

int WaitNow(OsServices& oServices, SHEvent* hEvent) { return oServices.Event_Wait(hEvent, 0); }
int WaitLong(OsServices& oServices, SHEvent* hEvent) { return oServices.Event_Wait(hEvent, gsc_uiLongLimit); }
int WaitForever(OsServices& oServices, SHEvent* hEvent)
{
    return oServices.Event_Wait(hEvent, gsc_uiOsServicesNoLimit);
}
int Trigger(OsServices& oServices, SHEvent* hEvent) { return oServices.Event_Trigger(hEvent); }
int Cancel(OsServices& oServices, SHEvent* hEvent) { return oServices.Event_Cancel(hEvent); }
int Activate(OsServices& oServices, SHEvent* hEvent) { return oServices.Event_Activate(hEvent); }
int Reset(OsServices& oServices, SHEvent* hEvent) { return oServices.Event_Reset(hEvent); }

struct SEventCell
{
    const char* m_szName;
    EEventState m_eBefore;
    EventOperation m_pfnOperation;
    int m_iResult;
    EEventState m_eAfter;
};

// A wait that blocks is tried with no time to spare here; blocked waiters stand further below.
// clang-format off
const SEventCell gsc_aoEventCells[] = {
    { "idle, wait",                  eIdle,             WaitNow,     gsc_iTimedOut,  eIdle },
    { "idle, trigger",               eIdle,             Trigger,     1,              ePending },
    { "idle, cancel",                eIdle,             Cancel,      1,              eCancelledPending },
    { "idle, activate",              eIdle,             Activate,    1,              eIdle },
    { "idle, reset",                 eIdle,             Reset,       1,              eIdle },
    { "pending, wait",               ePending,          WaitNow,     gsc_iReleased,  eIdle },
    { "pending, long wait",          ePending,          WaitLong,    gsc_iReleased,  eIdle },
    { "pending, endless wait",       ePending,          WaitForever, gsc_iReleased,  eIdle },
    { "pending, trigger",            ePending,          Trigger,     1,              ePending },
    { "pending, cancel",             ePending,          Cancel,      1,              eCancelledPending },
    { "pending, activate",           ePending,          Activate,    1,              ePending },
    { "pending, reset",              ePending,          Reset,       1,              eIdle },
    { "cancelled-pending, wait",     eCancelledPending, WaitForever, gsc_iCancelled, eCancelled },
    { "cancelled-pending, trigger",  eCancelledPending, Trigger,     0,              eCancelledPending },
    { "cancelled-pending, cancel",   eCancelledPending, Cancel,      0,              eCancelledPending },
    { "cancelled-pending, activate", eCancelledPending, Activate,    1,              ePending },
    { "cancelled-pending, reset",    eCancelledPending, Reset,       1,              eCancelled },
    { "cancelled, wait",             eCancelled,        WaitForever, gsc_iCancelled, eCancelled },
    { "cancelled, trigger",          eCancelled,        Trigger,     0,              eCancelled },
    { "cancelled, cancel",           eCancelled,        Cancel,      0,              eCancelled },
    { "cancelled, activate",         eCancelled,        Activate,    1,              eIdle },
    { "cancelled, reset",            eCancelled,        Reset,       1,              eCancelled },
};
// clang-format on

// Brings an event to a state from whichever it is in.
void BringTo(OsServices& oServices, SHEvent* hEvent, EEventState eState)
{
    oServices.Event_Activate(hEvent);
    oServices.Event_Reset(hEvent);
    switch (eState)
    {
    case eIdle:
        break;
    case ePending:
        oServices.Event_Trigger(hEvent);
        break;
    case eCancelledPending:
        oServices.Event_Cancel(hEvent);
        break;
    case eCancelled:
        oServices.Event_Cancel(hEvent);
        oServices.Event_Reset(hEvent);
        break;
    }
}
}

TEST_F(SyncEvent, FollowsItsStateTable)
{
    for (const SEventCell& oCell : gsc_aoEventCells)
    {
        SCOPED_TRACE(oCell.m_szName);
        // Looking at a state destroys it, so each flag has a run of its own.
        BringTo(m_oServices, m_hEvent, oCell.m_eBefore);
        EXPECT_EQ(oCell.m_iResult, oCell.m_pfnOperation(m_oServices, m_hEvent));
        const bool bActive = m_oServices.Event_Wait(m_hEvent, 0) != gsc_iCancelled;

        BringTo(m_oServices, m_hEvent, oCell.m_eBefore);
        oCell.m_pfnOperation(m_oServices, m_hEvent);
        m_oServices.Event_Activate(m_hEvent);
        const bool bTriggered = m_oServices.Event_Wait(m_hEvent, 0) == gsc_iReleased;

        EXPECT_EQ(oCell.m_eAfter == eIdle || oCell.m_eAfter == ePending, bActive);
        EXPECT_EQ(oCell.m_eAfter == ePending || oCell.m_eAfter == eCancelledPending, bTriggered);
    }
}

TEST_F(SyncEvent, OneTriggerReleasesOneBlockedWaiter)
{
    for (const EventOperation pfnWait : { WaitLong, WaitForever })
    {
        g_iBlockedWaiters = 0;
        std::atomic<int> iReturned = 0;
        const auto Wait = [&] {
            const int iResult = pfnWait(m_oServices, m_hEvent);
            ++iReturned;
            return iResult;
        };
        CBackground oFirst(m_oServices, Wait);
        CBackground oSecond(m_oServices, Wait);
        WaitUntilAtLeast(g_iBlockedWaiters, 2);

        EXPECT_EQ(1, m_oServices.Event_Trigger(m_hEvent));
        WaitUntilAtLeast(iReturned, 1);
        OsServices::SleepMilliSeconds(1);
        EXPECT_EQ(1, iReturned);

        EXPECT_EQ(1, m_oServices.Event_Trigger(m_hEvent));
        EXPECT_EQ(gsc_iReleased, oFirst.Join());
        EXPECT_EQ(gsc_iReleased, oSecond.Join());
        EXPECT_EQ(gsc_iTimedOut, m_oServices.Event_Wait(m_hEvent, 0)) << "both triggers are consumed";
    }
}

TEST_F(SyncEvent, CancelReleasesAllBlockedWaiters)
{
    CBackground oFirst(m_oServices, [&] { return WaitLong(m_oServices, m_hEvent); });
    CBackground oSecond(m_oServices, [&] { return WaitForever(m_oServices, m_hEvent); });
    WaitUntilAtLeast(g_iBlockedWaiters, 2);
    EXPECT_EQ(1, m_oServices.Event_Cancel(m_hEvent));
    EXPECT_EQ(gsc_iCancelled, oFirst.Join());
    EXPECT_EQ(gsc_iCancelled, oSecond.Join());
}

TEST_F(SyncEvent, WaitLastsAsLongAsItsLimit)
{
    const CStopwatch oStopwatch;
    EXPECT_EQ(gsc_iTimedOut, m_oServices.Event_Wait(m_hEvent, 10));
    EXPECT_GE(oStopwatch.GetMicroseconds(), 10000);
    EXPECT_LT(oStopwatch.GetMicroseconds(), gsc_iPatienceMicroseconds);
}

namespace
{
class SyncSignal : public CSyncTest
{
protected:
    void SetUp() override
    {
        CSyncTest::SetUp();
        ASSERT_EQ(1, m_oServices.Signal_Create(m_hSignal));
    }
    void TearDown() override { EXPECT_EQ(1, m_oServices.Signal_Destroy(m_hSignal)); }

    SHSignal* m_hSignal = nullptr;
};

using SignalOperation = int (*)(OsServices& oServices, SHSignal* hSignal);

struct SSignalCell
{
    const char* m_szName;
    bool m_bActiveBefore;
    SignalOperation m_pfnOperation;
    int m_iResult;
    bool m_bActiveAfter;
};

int WaitNow(OsServices& oServices, SHSignal* hSignal) { return oServices.Signal_Wait(hSignal, 0, 0); }
int WaitLong(OsServices& oServices, SHSignal* hSignal) { return oServices.Signal_Wait(hSignal, gsc_uiLongLimit, 1); }
int WaitForever(OsServices& oServices, SHSignal* hSignal)
{
    return oServices.Signal_Wait(hSignal, gsc_uiOsServicesNoLimit, 2);
}
int Trigger(OsServices& oServices, SHSignal* hSignal) { return oServices.Signal_Trigger(hSignal); }
int Cancel(OsServices& oServices, SHSignal* hSignal) { return oServices.Signal_Cancel(hSignal); }
int Activate(OsServices& oServices, SHSignal* hSignal) { return oServices.Signal_Activate(hSignal); }

// clang-format off
const SSignalCell gsc_aoSignalCells[] = {
    { "active, wait",        true,  WaitNow,     gsc_iTimedOut,  true },
    { "active, trigger",     true,  Trigger,     1,              true },
    { "active, cancel",      true,  Cancel,      1,              false },
    { "active, activate",    true,  Activate,    1,              true },
    { "cancelled, wait",     false, WaitForever, gsc_iCancelled, false },
    { "cancelled, trigger",  false, Trigger,     0,              false },
    { "cancelled, cancel",   false, Cancel,      0,              false },
    { "cancelled, activate", false, Activate,    1,              true },
};
// clang-format on
}

TEST_F(SyncSignal, FollowsItsStateTable)
{
    for (const SSignalCell& oCell : gsc_aoSignalCells)
    {
        SCOPED_TRACE(oCell.m_szName);
        m_oServices.Signal_Activate(m_hSignal);
        if (!oCell.m_bActiveBefore)
        {
            m_oServices.Signal_Cancel(m_hSignal);
        }
        EXPECT_EQ(oCell.m_iResult, oCell.m_pfnOperation(m_oServices, m_hSignal));
        EXPECT_EQ(oCell.m_bActiveAfter ? gsc_iTimedOut : gsc_iCancelled, m_oServices.Signal_Wait(m_hSignal, 0, 0));
    }
}

TEST_F(SyncSignal, TriggerAndCancelWakeAllBlockedWaiters)
{
    // Cancel comes last: it leaves the signal cancelled.
    const std::pair<SignalOperation, int> aoWakers[] = { { Trigger, gsc_iReleased }, { Cancel, gsc_iCancelled } };
    for (const auto& [pfnWake, iExpected] : aoWakers)
    {
        g_iBlockedWaiters = 0;
        CBackground oFirst(m_oServices, [&] { return WaitLong(m_oServices, m_hSignal); });
        CBackground oSecond(m_oServices, [&] { return WaitForever(m_oServices, m_hSignal); });
        WaitUntilAtLeast(g_iBlockedWaiters, 2);
        EXPECT_EQ(1, pfnWake(m_oServices, m_hSignal));
        EXPECT_EQ(iExpected, oFirst.Join());
        EXPECT_EQ(iExpected, oSecond.Join());
    }
}

TEST_F(SyncSignal, TriggerThatNobodyWaitsForIsLost)
{
    EXPECT_EQ(1, m_oServices.Signal_Trigger(m_hSignal));
    const CStopwatch oStopwatch;
    EXPECT_EQ(gsc_iTimedOut, m_oServices.Signal_Wait(m_hSignal, 10, 0));
    EXPECT_GE(oStopwatch.GetMicroseconds(), 10000);
    EXPECT_LT(oStopwatch.GetMicroseconds(), gsc_iPatienceMicroseconds);
}

namespace
{
class SyncMutex : public CSyncTest
{
protected:
    void SetUp() override
    {
        CSyncTest::SetUp();
        ASSERT_EQ(1, m_oServices.Mutex_Create(m_hMutex));
    }
    void TearDown() override { EXPECT_EQ(1, m_oServices.Mutex_Destroy(m_hMutex)); }

    // Whether another thread gets the mutex within the limit; it gives it back.
    int TryElsewhere(unsigned int uiTimeout)
    {
        return CBackground(m_oServices,
                           [&] {
                               const int bAcquired = m_oServices.Mutex_Acquire(m_hMutex, uiTimeout);
                               if (bAcquired != 0)
                               {
                                   m_oServices.Mutex_Release(m_hMutex);
                               }
                               return bAcquired;
                           })
            .Join();
    }

    SHMutex* m_hMutex = nullptr;
};
}

TEST_F(SyncMutex, TwoAcquiresNeedTwoReleases)
{
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, gsc_uiOsServicesNoLimit));
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, 0));
    EXPECT_EQ(0, TryElsewhere(0));
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    EXPECT_EQ(0, TryElsewhere(0));
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    EXPECT_EQ(1, TryElsewhere(0));
}

TEST_F(SyncMutex, ExpiredAcquireGivesZeroAndLeavesTheMutexUsable)
{
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, gsc_uiOsServicesNoLimit));
    const CStopwatch oStopwatch;
    EXPECT_EQ(0, TryElsewhere(10));
    EXPECT_GE(oStopwatch.GetMicroseconds(), 10000);
    EXPECT_LT(oStopwatch.GetMicroseconds(), gsc_iPatienceMicroseconds);
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    EXPECT_EQ(1, TryElsewhere(gsc_uiOsServicesNoLimit));
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, 0));
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
}

namespace
{
using SyncSpinLock = CSyncTest;
using SyncThread = CSyncTest;
}

TEST_F(SyncSpinLock, KeepsThreadsApart)
{
    constexpr int iRounds = 500;
    SHSpinLock* hSpinLock = nullptr;
    ASSERT_EQ(1, m_oServices.SpinLock_Create(hSpinLock));
    int iCount = 0; // plain: the lock alone keeps it whole
    const auto Count = [&] {
        for (int i = 0; i < iRounds; ++i)
        {
            m_oServices.SpinLock_Lock(hSpinLock);
            ++iCount;
            m_oServices.SpinLock_Unlock(hSpinLock);
        }
        return 1;
    };
    CBackground oFirst(m_oServices, Count);
    CBackground oSecond(m_oServices, Count);
    EXPECT_EQ(1, oFirst.Join());
    EXPECT_EQ(1, oSecond.Join());
    EXPECT_EQ(2 * iRounds, iCount);
    EXPECT_EQ(1, m_oServices.SpinLock_Destroy(hSpinLock));
}

namespace
{
constinit std::atomic<int> g_iCancels = 0;

pthread_t GetThread(const SHCpuThread* hCpuThread)
{
    pthread_t oThread = 0;
    memcpy(&oThread, hCpuThread, sizeof(oThread));
    return oThread;
}
}

TEST_F(SyncThread, JoinedThreadIsNotCancelled)
{
    g_iCancels = 0;
    g_oOsServicesCalls.pfnThreadCancel = [](pthread_t) {
        ++g_iCancels;
        return 0;
    };
    const long iBlocks = GetLiveBlockCount();
    unsigned long uiThreadId = 0;
    SHCpuThread* hCpuThread = nullptr;
    ASSERT_EQ(1, m_oServices.CpuThread_Create(
                     [](void* pvContext) {
                         *static_cast<unsigned long*>(pvContext) = OsServices::GetCurrentThreadId();
                         return 5U;
                     },
                     &uiThreadId, hCpuThread));
    const unsigned long uiExpectedId = GetThread(hCpuThread);
    EXPECT_EQ(1, m_oServices.CpuThread_Join(hCpuThread));
    EXPECT_EQ(1, OsServices::IsThreadIdEqual(uiExpectedId, uiThreadId));
    EXPECT_EQ(0, OsServices::IsThreadIdEqual(OsServices::GetCurrentThreadId(), uiThreadId));
    EXPECT_EQ(0, m_oServices.CpuThread_Join(hCpuThread)) << "it was joined before";
    EXPECT_EQ(1, m_oServices.CpuThread_Destroy(hCpuThread));
    EXPECT_EQ(0, g_iCancels);
    EXPECT_EQ(iBlocks, GetLiveBlockCount());
}

TEST_F(SyncThread, DestroyCancelsAWaitingThreadWhichLetsGoOfItsLock)
{
    struct SContext
    {
        OsServices& m_oServices;
        SHEvent* m_hEvent;
    };
    SContext oContext = { m_oServices, nullptr };
    ASSERT_EQ(1, m_oServices.Event_Create(oContext.m_hEvent));
    SHCpuThread* hCpuThread = nullptr;
    ASSERT_EQ(1, m_oServices.CpuThread_Create(
                     [](void* pvContext) {
                         const SContext& oWaiter = *static_cast<SContext*>(pvContext);
                         oWaiter.m_oServices.Event_Wait(oWaiter.m_hEvent, gsc_uiOsServicesNoLimit);
                         return 0U;
                     },
                     &oContext, hCpuThread));
    WaitUntilAtLeast(g_iBlockedWaiters, 1);
    const pthread_t oThread = GetThread(hCpuThread);
    EXPECT_EQ(1, m_oServices.CpuThread_Destroy(hCpuThread));

    void* pvEnd = nullptr;
    EXPECT_EQ(0, pthread_join(oThread, &pvEnd));
    EXPECT_EQ(PTHREAD_CANCELED, pvEnd);
    EXPECT_EQ(gsc_iTimedOut, m_oServices.Event_Wait(oContext.m_hEvent, 0)) << "the event still works";
    EXPECT_EQ(1, m_oServices.Event_Destroy(oContext.m_hEvent));
}
