// Events, signals, mutexes, spin locks and threads as they behave when the system does what it is asked.

#include "SyncTestSupport.h"

#include <functional>
#include <pthread.h>
#include <string.h>
#include <string>
#include <vector>

namespace
{
using SyncEvent = CSyncTest;
using SyncSignal = CSyncTest;
using SyncMutex = CSyncTest;
using SyncSpinLock = CSyncTest;
using SyncThread = CSyncTest;

constexpr unsigned int gsc_uiLongLimit = 60000; // longer than any test lasts
constexpr unsigned int gsc_uiShortLimit = 10;

template <class HANDLE>
using Operation = std::function<int(OsServices&, HANDLE*)>;

// What an operation gives (a wait: 0 released, -3 timed out, -12 cancelled), and the flags behind it.
struct SCell
{
    int m_iResult;
    bool m_bActive;
    bool m_bTriggered;
};

template <class HANDLE>
struct SRow
{
    const char* m_szState;
    std::vector<Operation<HANDLE>> m_afnWayThere; // from whichever state
    std::vector<SCell> m_aoCells;                 // a column an operation
};

// Columns: wait with no time to spare, activate, and the rest. Blocked waiters stand further below.
template <class HANDLE>
void ExpectTable(OsServices& oServices, HANDLE* hHandle, const std::vector<Operation<HANDLE>>& afnColumns,
                 const std::vector<SRow<HANDLE>>& aoRows)
{
    const Operation<HANDLE>& fnWait = afnColumns[0];
    const Operation<HANDLE>& fnActivate = afnColumns[1];
    for (const SRow<HANDLE>& oRow : aoRows)
    {
        for (size_t i = 0; i < afnColumns.size(); ++i)
        {
            SCOPED_TRACE(oRow.m_szState + std::string(", column ") + std::to_string(i));
            const auto Run = [&] {
                for (const Operation<HANDLE>& fnStep : oRow.m_afnWayThere)
                {
                    fnStep(oServices, hHandle);
                }
                return afnColumns[i](oServices, hHandle);
            };
            // Looking at a state destroys it, so each flag has a run of its own.
            EXPECT_EQ(oRow.m_aoCells[i].m_iResult, Run());
            EXPECT_EQ(oRow.m_aoCells[i].m_bActive, fnWait(oServices, hHandle) != eOsServicesWaitCancelled);
            Run();
            fnActivate(oServices, hHandle);
            EXPECT_EQ(oRow.m_aoCells[i].m_bTriggered, fnWait(oServices, hHandle) == eOsServicesWaitReleased);
        }
    }
}
}

TEST_F(SyncEvent, FollowsItsStateTable)
{
    using CEventOperation = Operation<SHEvent>;
    const CEventOperation fnWait = [](OsServices& oServices, SHEvent* hEvent) {
        return oServices.Event_Wait(hEvent, 0);
    };
    const CEventOperation fnActivate = &OsServices::Event_Activate;
    const CEventOperation fnReset = &OsServices::Event_Reset;
    const CEventOperation fnTrigger = &OsServices::Event_Trigger;
    const CEventOperation fnCancel = &OsServices::Event_Cancel;
    // clang-format off
    ExpectTable<SHEvent>(m_oServices, m_hEvent, { fnWait, fnActivate, fnReset, fnTrigger, fnCancel }, {
        { "idle", { fnActivate, fnReset },
          { { -3, 1, 0 },  { 1, 1, 0 }, { 1, 1, 0 }, { 1, 1, 1 }, { 1, 0, 1 } } },
        { "pending", { fnActivate, fnReset, fnTrigger },
          { { 0, 1, 0 },   { 1, 1, 1 }, { 1, 1, 0 }, { 1, 1, 1 }, { 1, 0, 1 } } },
        { "cancelled-pending", { fnActivate, fnReset, fnCancel },
          { { -12, 0, 0 }, { 1, 1, 1 }, { 1, 0, 0 }, { 0, 0, 1 }, { 0, 0, 1 } } },
        { "cancelled", { fnActivate, fnCancel, fnReset },
          { { -12, 0, 0 }, { 1, 1, 0 }, { 1, 0, 0 }, { 0, 0, 0 }, { 0, 0, 0 } } },
    });
    // clang-format on
}

// With time to spare they answer at once all the same.
TEST_F(SyncEvent, PendingAndCancelledEventsBlockNoWaiter)
{
    m_oServices.Event_Trigger(m_hEvent);
    EXPECT_EQ(eOsServicesWaitReleased, m_oServices.Event_Wait(m_hEvent, gsc_uiShortLimit));
    m_oServices.Event_Cancel(m_hEvent); // leaves it triggered, too, until the first wait
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Event_Wait(m_hEvent, gsc_uiShortLimit));
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Event_Wait(m_hEvent, gsc_uiShortLimit));
    EXPECT_EQ(0, g_iBlockedWaiters);
}

TEST_F(SyncEvent, WaitLastsAsLongAsItsLimit)
{
    ExpectLasting(1000 * gsc_uiShortLimit,
                  [&] { EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(m_hEvent, gsc_uiShortLimit)); });
}

TEST_F(SyncSignal, FollowsItsStateTable)
{
    const Operation<SHSignal> fnWait = [](OsServices& oServices, SHSignal* hSignal) {
        return oServices.Signal_Wait(hSignal, 0, 0);
    };
    const Operation<SHSignal> fnActivate = &OsServices::Signal_Activate;
    const Operation<SHSignal> fnTrigger = &OsServices::Signal_Trigger;
    const Operation<SHSignal> fnCancel = &OsServices::Signal_Cancel;
    // clang-format off
    ExpectTable<SHSignal>(m_oServices, m_hSignal, { fnWait, fnActivate, fnTrigger, fnCancel }, {
        { "active",    { fnActivate },           { { -3, 1, 0 },  { 1, 1, 0 }, { 1, 1, 0 }, { 1, 0, 0 } } },
        { "cancelled", { fnActivate, fnCancel }, { { -12, 0, 0 }, { 1, 1, 0 }, { 0, 0, 0 }, { 0, 0, 0 } } },
    });
    // clang-format on
}

TEST_F(SyncSignal, CancelledSignalBlocksNoWaiter)
{
    m_oServices.Signal_Cancel(m_hSignal);
    EXPECT_EQ(eOsServicesWaitCancelled, m_oServices.Signal_Wait(m_hSignal, gsc_uiShortLimit, 0));
    EXPECT_EQ(0, g_iBlockedWaiters);
}

TEST_F(SyncEvent, OneTriggerReleasesOneBlockedWaiter)
{
    for (const unsigned int uiLimit : { gsc_uiLongLimit, gsc_uiOsServicesNoLimit })
    {
        g_iBlockedWaiters = 0;
        std::atomic<int> iReturned = 0;
        const auto WaitAndCount = [&] {
            const int iResult = m_oServices.Event_Wait(m_hEvent, uiLimit);
            ++iReturned;
            return iResult;
        };
        CBackground oFirst(WaitAndCount);
        CBackground oSecond(WaitAndCount);
        WaitUntilAtLeast(g_iBlockedWaiters, 2);

        EXPECT_EQ(1, m_oServices.Event_Trigger(m_hEvent));
        WaitUntilAtLeast(iReturned, 1);
        OsServices::SleepMilliSeconds(1);
        EXPECT_EQ(1, iReturned);

        EXPECT_EQ(1, m_oServices.Event_Trigger(m_hEvent));
        EXPECT_EQ(eOsServicesWaitReleased, oFirst.Join());
        EXPECT_EQ(eOsServicesWaitReleased, oSecond.Join());
        EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(m_hEvent, 0)) << "both triggers are consumed";
    }
}

namespace
{
// One waits with a limit and one without.
template <class WAIT, class WAKE>
void ExpectBothWaitersWoken(int iExpected, WAIT fnWait, WAKE fnWake)
{
    g_iBlockedWaiters = 0;
    CBackground oFirst([&] { return fnWait(gsc_uiLongLimit); });
    CBackground oSecond([&] { return fnWait(gsc_uiOsServicesNoLimit); });
    WaitUntilAtLeast(g_iBlockedWaiters, 2);
    EXPECT_EQ(1, fnWake());
    EXPECT_EQ(iExpected, oFirst.Join());
    EXPECT_EQ(iExpected, oSecond.Join());
}
}

TEST_F(SyncEvent, CancelWakesAllBlockedWaiters)
{
    const auto Wait = [&](unsigned int uiLimit) { return m_oServices.Event_Wait(m_hEvent, uiLimit); };
    ExpectBothWaitersWoken(eOsServicesWaitCancelled, Wait, [&] { return m_oServices.Event_Cancel(m_hEvent); });
}

TEST_F(SyncSignal, TriggerAndCancelWakeAllBlockedWaiters)
{
    const auto Wait = [&](unsigned int uiLimit) { return m_oServices.Signal_Wait(m_hSignal, uiLimit, 2); };
    ExpectBothWaitersWoken(eOsServicesWaitReleased, Wait, [&] { return m_oServices.Signal_Trigger(m_hSignal); });
    ExpectBothWaitersWoken(eOsServicesWaitCancelled, Wait, [&] { return m_oServices.Signal_Cancel(m_hSignal); });
}

TEST_F(SyncSignal, TriggerThatNobodyWaitsForIsLostAndTheWaitLastsAsLongAsItsLimit)
{
    EXPECT_EQ(1, m_oServices.Signal_Trigger(m_hSignal));
    ExpectLasting(1000 * gsc_uiShortLimit,
                  [&] { EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Signal_Wait(m_hSignal, gsc_uiShortLimit, 0)); });
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
    ExpectLasting(1000 * gsc_uiShortLimit, [&] { EXPECT_EQ(0, TryElsewhere(gsc_uiShortLimit)); });
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    EXPECT_EQ(1, TryElsewhere(0)) << "usable after the acquire that expired";
    EXPECT_EQ(1, TryElsewhere(gsc_uiOsServicesNoLimit));
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
    CBackground oOther(Count);
    Count();
    oOther.Join();
    EXPECT_EQ(2 * iRounds, iCount);
    EXPECT_EQ(1, m_oServices.SpinLock_Destroy(hSpinLock));
}

namespace
{
constinit int g_iCancels = 0;

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
    EXPECT_EQ(0, g_iCancels);
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
    WaitUntilAtLeast(g_iBlockedWaiters, 1);
    const pthread_t oThread = GetThread(hCpuThread);
    EXPECT_EQ(1, m_oServices.CpuThread_Destroy(hCpuThread));

    void* pvEnd = nullptr;
    EXPECT_EQ(0, pthread_join(oThread, &pvEnd));
    EXPECT_EQ(PTHREAD_CANCELED, pvEnd);
    EXPECT_EQ(eOsServicesWaitTimedOut, m_oServices.Event_Wait(m_hEvent, 0)) << "the event still works";
}
