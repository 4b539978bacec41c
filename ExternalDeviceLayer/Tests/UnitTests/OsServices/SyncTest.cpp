// Events, signals, locks and threads: work done, work refused, deadlines, and the guards that stop the process.

#include <array>
#include <chrono>
#include <errno.h>
#include <functional>
#include <map>
#include <new>
#include <pthread.h>
#include <sched.h>
#include <thread>

#include "OsServicesTestSupport.h"

namespace
{
using Calls = SOsServicesCalls;
using SWaits = SWatched<&Calls::pfnConditionWait>;
using STimedWaits = SWatched<&Calls::pfnConditionTimedWait>;
using SBroadcasts = SWatched<&Calls::pfnConditionBroadcast>;
using SDestroyedMutexes = SWatched<&Calls::pfnMutexDestroy>;
using SCancels = SWatched<&Calls::pfnThreadCancel>;

constexpr unsigned int gsc_uiLongLimit = 60000; // longer than any test lasts

// Lets calls of the system give RESULT, and do nothing else, from now on.
template <int RESULT, auto... CALLS>
constexpr auto Answer = [] {
    ((g_oOsServicesCalls.*CALLS = [](auto...) { return RESULT; }), ...);
    return 1;
};

class Sync : public COsTest
{
protected:
    void SetUp() override
    {
        Watch<SWaits, STimedWaits, SBroadcasts, SDestroyedMutexes, SCancels>(g_oOsServicesCalls);
        ASSERT_EQ(1, m_oServices.Event_Create(m_hEvent));
        ASSERT_EQ(1, m_oServices.Signal_Create(m_hSignal));
        ASSERT_EQ(1, m_oServices.Mutex_Create(m_hMutex));
        ASSERT_EQ(1, m_oServices.SpinLock_Create(m_hSpinLock));
    }
    void TearDown() override
    {
        RestoreCalls();
        EXPECT_EQ(1, m_oServices.Event_Destroy(m_hEvent));
        EXPECT_EQ(1, m_oServices.Signal_Destroy(m_hSignal));
        EXPECT_EQ(1, m_oServices.Mutex_Destroy(m_hMutex));
        EXPECT_EQ(1, m_oServices.SpinLock_Destroy(m_hSpinLock));
    }

    // Counted under the lock: who sees the count and then gets the lock knows that they wait.
    static unsigned int CountWaits() { return SWaits::ms_uiCount + STimedWaits::ms_uiCount; }
    template <class CONDITION>
    static void Await(CONDITION fnCondition)
    {
        while (!fnCondition())
        {
            sched_yield();
        }
    }

    int WaitForEvent(unsigned int uiLimit) { return m_oServices.Event_Wait(m_hEvent, uiLimit); }
    int WaitForSignal(unsigned int uiLimit) { return m_oServices.Signal_Wait(m_hSignal, uiLimit, 2); }

    OsServices m_oServices{ nullptr };
    SHEvent* m_hEvent = nullptr;
    SHSignal* m_hSignal = nullptr;
    SHMutex* m_hMutex = nullptr;
    SHSpinLock* m_hSpinLock = nullptr;

    // By the letters of chains.txt.
    const std::map<char, std::function<int()>> m_oOperations{
        { 'w', [this] { return WaitForEvent(0); } },
        { 'n', [this] { return WaitForEvent(gsc_uiOsServicesNoLimit); } },
        { 't', [this] { return m_oServices.Event_Trigger(m_hEvent); } },
        { 'c', [this] { return m_oServices.Event_Cancel(m_hEvent); } },
        { 'a', [this] { return m_oServices.Event_Activate(m_hEvent); } },
        { 'r', [this] { return m_oServices.Event_Reset(m_hEvent); } },
        { 'W', [this] { return WaitForSignal(0); } },
        { 'N', [this] { return WaitForSignal(gsc_uiOsServicesNoLimit); } },
        { 'T', [this] { return m_oServices.Signal_Trigger(m_hSignal); } },
        { 'C', [this] { return m_oServices.Signal_Cancel(m_hSignal); } },
        { 'A', [this] { return m_oServices.Signal_Activate(m_hSignal); } },
        { '!', Answer<EAGAIN, &Calls::pfnConditionSignal, &Calls::pfnConditionBroadcast> },
        { 'x', Answer<EAGAIN, &Calls::pfnConditionWait, &Calls::pfnConditionTimedWait> },
        { 's', Answer<0, &Calls::pfnConditionWait> },
    };
    std::string Run(const std::string& sChain) const
    {
        const std::map<int, char> oLetters{
            { 0, '0' }, { 1, '1' }, { eOsServicesWaitTimedOut, 'T' }, { eOsServicesWaitCancelled, 'C' }
        };
        std::string sResults;
        for (const char c : sChain)
        {
            sResults += oLetters.at(m_oOperations.at(c)());
        }
        return sResults;
    }

    // Two threads wait, one with a limit and one without, until fnWake has woken both.
    template <class WAIT, class WAKE>
    static void ExpectBothWoken(int iExpected, WAIT fnWait, WAKE fnWake)
    {
        const unsigned int uiWaits = CountWaits();
        std::array aiResults = { -1, -1 };
        {
            const std::jthread oFirst([&] { aiResults[0] = fnWait(gsc_uiLongLimit); });
            const std::jthread oSecond([&] { aiResults[1] = fnWait(gsc_uiOsServicesNoLimit); });
            Await([&] { return CountWaits() == uiWaits + 2; });
            EXPECT_EQ("1", fnWake());
        }
        EXPECT_EQ((std::array{ iExpected, iExpected }), aiResults);
    }
};

using SyncDeathTest = Sync;
} // namespace

TEST_F(Sync, ChainsOfOperations)
{
    const SOsServicesCalls oCalls = g_oOsServicesCalls;
    for (const SCaseRow& oCase : ReadCases("OsServices/golden/chains.txt", 3))
    {
        Run("arA");
        const unsigned int uiWaits = CountWaits();
        EXPECT_EQ(oCase.GetText(1), Run(oCase.GetName())) << oCase.GetName();
        EXPECT_EQ(oCase.GetNumber(2), CountWaits() - uiWaits) << oCase.GetName();
        g_oOsServicesCalls = oCalls;
    }
}

TEST_F(Sync, WakeUpsReachBlockedWaiters)
{
    std::atomic<int> iReturned = 0;
    const auto OnSignal = [&](unsigned int uiLimit) { return WaitForSignal(uiLimit); };
    const auto OnEvent = [&](unsigned int uiLimit) {
        const int iResult = WaitForEvent(uiLimit);
        ++iReturned;
        return iResult;
    };
    ExpectBothWoken(eOsServicesWaitReleased, OnEvent, [&] {
        EXPECT_EQ("1", Run("t"));
        Await([&] { return iReturned > 0; });
        OsServices::SleepMilliSeconds(1);
        EXPECT_EQ(1, iReturned) << "one trigger releases one";
        return Run("t");
    });
    EXPECT_EQ("T", Run("w")) << "both triggers are consumed";
    ExpectBothWoken(eOsServicesWaitCancelled, OnEvent, [&] { return Run("c"); });
    ExpectBothWoken(eOsServicesWaitReleased, OnSignal, [&] { return Run("T"); });
    ExpectBothWoken(eOsServicesWaitCancelled, OnSignal, [&] { return Run("C"); });
}

TEST_F(Sync, OtherThreadsGetAMutexAfterTheLastReleaseOfTheOwner)
{
    // Whether another thread gets the mutex within the limit; it gives it back.
    const auto TryElsewhere = [this](unsigned int uiLimit) {
        int iResult = -1;
        std::jthread([&] {
            iResult = m_oServices.Mutex_Acquire(m_hMutex, uiLimit) != 0 ? m_oServices.Mutex_Release(m_hMutex) : 0;
        }).join();
        return iResult;
    };
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, gsc_uiOsServicesNoLimit));
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, 0));
    EXPECT_EQ(0, TryElsewhere(0));
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    const std::chrono::steady_clock::time_point oStart = std::chrono::steady_clock::now();
    EXPECT_EQ(0, TryElsewhere(10));
    EXPECT_GE(std::chrono::steady_clock::now() - oStart, std::chrono::milliseconds(10));
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    EXPECT_EQ(1, TryElsewhere(0)) << "usable after the acquire that expired";
    EXPECT_EQ(1, TryElsewhere(gsc_uiOsServicesNoLimit));
}

TEST_F(Sync, SpinLockKeepsThreadsApart)
{
    int iCount = 0; // plain: the lock alone keeps it whole
    const auto CountUp = [&] {
        for (int i = 0; i < 500; ++i)
        {
            EXPECT_EQ(1, m_oServices.SpinLock_Lock(m_hSpinLock));
            ++iCount;
            EXPECT_EQ(1, m_oServices.SpinLock_Unlock(m_hSpinLock));
        }
    };
    std::jthread oOther(CountUp);
    CountUp();
    oOther.join();
    EXPECT_EQ(1000, iCount);
}

TEST_F(Sync, JoinedThreadIsNotCancelledAndLeavesNothingBehind)
{
    ExpectNoLeak([this] {
        const auto StoreThreadId = [](void* pvContext) {
            *static_cast<unsigned long*>(pvContext) = OsServices::GetCurrentThreadId();
            return 5U;
        };
        unsigned long uiThreadId = 0;
        SHCpuThread* hCpuThread = nullptr;
        ASSERT_EQ(1, m_oServices.CpuThread_Create(StoreThreadId, &uiThreadId, hCpuThread));
        EXPECT_EQ(1, m_oServices.CpuThread_Join(hCpuThread));
        EXPECT_NE(0U, uiThreadId) << "it ran";
        EXPECT_EQ(0, OsServices::IsThreadIdEqual(OsServices::GetCurrentThreadId(), uiThreadId));
        EXPECT_EQ(1, OsServices::IsThreadIdEqual(uiThreadId, uiThreadId));
        EXPECT_EQ(0, m_oServices.CpuThread_Join(hCpuThread)) << "it was joined before";
        EXPECT_EQ(1, m_oServices.CpuThread_Destroy(hCpuThread));
    });
    EXPECT_EQ(0U, SCancels::ms_uiCount);
}

TEST_F(Sync, DestroyCancelsAWaitingThreadWhichLetsGoOfItsLock)
{
    const auto WaitForTheEvent = [](void* hEvent) {
        OsServices_Event_Wait(static_cast<SHEvent*>(hEvent), gsc_uiOsServicesNoLimit);
        return 0U;
    };
    SHCpuThread* hCpuThread = nullptr;
    ASSERT_EQ(1, m_oServices.CpuThread_Create(WaitForTheEvent, m_hEvent, hCpuThread));
    Await([] { return CountWaits() == 1; });
    EXPECT_EQ(1, m_oServices.CpuThread_Destroy(hCpuThread));
    ASSERT_EQ(1U, SCancels::ms_uiCount);
    void* pvEnd = nullptr;
    EXPECT_EQ(0, pthread_join(std::get<0>(SCancels::ms_oLast), &pvEnd));
    EXPECT_EQ(PTHREAD_CANCELED, pvEnd);
    EXPECT_EQ("T", Run("w")) << "the event still works";
}

static constinit bool g_bNextNewFails = false;
// Weak: a sanitizer may bring its own.
__attribute__((weak)) void* operator new(size_t uiSize, const std::nothrow_t& /*oTag*/) noexcept
{
    return std::exchange(g_bNextNewFails, false) ? nullptr : operator new(uiSize);
}

TEST_F(Sync, FailedCreationLeavesNullAndHoldsNothing)
{
    const auto ExpectRefused = [this]<class HANDLE>(HANDLE*, auto fnCreate, auto fnRefuse, unsigned int uiMutexesGone) {
        SDestroyedMutexes::Start(g_oOsServicesCalls, pthread_mutex_destroy);
        ExpectNoLeak([&] {
            HANDLE* hHandle = reinterpret_cast<HANDLE*>(this); // so that the null is seen to be written
            fnRefuse();
            EXPECT_EQ(0, std::invoke(fnCreate, m_oServices, hHandle));
            EXPECT_EQ(nullptr, hHandle);
        });
        EXPECT_EQ(64 * uiMutexesGone, SDestroyedMutexes::ms_uiCount); // those that were made and had to go again
        RestoreCalls();
    };
    SHCpuThread* const hNoThread = nullptr;
    const auto CreateThread = [](OsServices& oServices, SHCpuThread*& hCpuThread) {
        return oServices.CpuThread_Create([](void*) { return 0U; }, nullptr, hCpuThread);
    };
    ExpectRefused(hNoThread, CreateThread, Answer<EAGAIN, &Calls::pfnThreadCreate>, 0);
    ExpectRefused(m_hSpinLock, &OsServices::SpinLock_Create, Answer<EAGAIN, &Calls::pfnSpinInit>, 0);
    ExpectRefused(m_hMutex, &OsServices::Mutex_Create, Answer<EAGAIN, &Calls::pfnMutexAttributeInit>, 0);
    ExpectRefused(m_hMutex, &OsServices::Mutex_Create, Answer<EAGAIN, &Calls::pfnMutexInit>, 0);
    ExpectRefused(m_hEvent, &OsServices::Event_Create, Answer<EAGAIN, &Calls::pfnMutexInit>, 0);
    ExpectRefused(m_hEvent, &OsServices::Event_Create, Answer<EAGAIN, &Calls::pfnConditionInit>, 1);
    ExpectRefused(m_hSignal, &OsServices::Signal_Create, Answer<EAGAIN, &Calls::pfnMutexInit>, 0);
    ExpectRefused(m_hSignal, &OsServices::Signal_Create, Answer<EAGAIN, &Calls::pfnConditionInit>, 1);
    g_bNextNewFails = true;
    void* const pByte = ::operator new(1, std::nothrow);
    if (pByte == nullptr) // ours
    {
        ExpectRefused(
            hNoThread, CreateThread, [] { g_bNextNewFails = true; }, 0);
    }
    ::operator delete(pByte);
}

TEST_F(Sync, DestroyCancelsOnceAndDestroysTheMutex)
{
    for (const char* pszBefore : { "", "cC" }) // cancelled before, they are not cancelled again
    {
        Run(pszBefore);
        SDestroyedMutexes::ms_uiCount = 0;
        SBroadcasts::ms_uiCount = 0;
        EXPECT_EQ(1, m_oServices.Event_Destroy(m_hEvent));
        EXPECT_EQ(1, m_oServices.Signal_Destroy(m_hSignal));
        EXPECT_EQ(2U, SDestroyedMutexes::ms_uiCount);
        EXPECT_EQ(*pszBefore == '\0' ? 2U : 0U, SBroadcasts::ms_uiCount);
        EXPECT_EQ(1, m_oServices.Event_Create(m_hEvent));
        EXPECT_EQ(1, m_oServices.Signal_Create(m_hSignal));
    }
}

static_assert(OsServices_GetDeadline({ 10, 1000000 }, 999).tv_sec == 11, "carry to a whole second");
static_assert(OsServices_GetDeadline({ 10, 999999999 }, 0xFFFFFFFE).tv_sec == 4294978, "longest limit");

TEST_F(Sync, TimedWaitsGoByTheWallClockAndLoseATriggerBetweenTheEndOfTheTimeAndTheLock)
{
    static SHEvent* hLateEvent = nullptr;
    hLateEvent = m_hEvent;
    g_oOsServicesCalls.pfnGetClock = [](clockid_t iClock, timespec* poTime) {
        EXPECT_EQ(CLOCK_REALTIME, iClock);
        *poTime = { 10, 500000000 };
        return 0;
    };
    g_oOsServicesCalls.pfnConditionTimedWait = [](pthread_cond_t*, pthread_mutex_t* poMutex, const timespec* poEnd) {
        EXPECT_EQ(11, poEnd->tv_sec);
        EXPECT_EQ(499000000, poEnd->tv_nsec);
        pthread_mutex_unlock(poMutex);
        EXPECT_EQ(1, OsServices_Event_Trigger(hLateEvent));
        pthread_mutex_lock(poMutex);
        return ETIMEDOUT;
    };
    EXPECT_EQ(eOsServicesWaitTimedOut, WaitForEvent(999));
    RestoreCalls();
    EXPECT_EQ(eOsServicesWaitTimedOut, WaitForEvent(0));
}

TEST_F(SyncDeathTest, MistakesOfTheCallerAndRefusalsThatMustNotBeStopTheProcess)
{
    // With a null handle and zeros after it.
    const auto OnNull = []<class HANDLE, class... REST>(int (*pfnCall)(HANDLE*, REST...)) {
        EXPECT_DEATH(pfnCall(nullptr, REST{}...), "MNULL");
    };
    const auto OnNullEach = [&](auto... pfnCalls) { (OnNull(pfnCalls), ...); };
    OnNullEach(OsServices_CpuThread_Join, OsServices_CpuThread_Destroy, OsServices_SpinLock_Create,
               OsServices_SpinLock_Destroy, OsServices_SpinLock_Lock, OsServices_SpinLock_Unlock,
               OsServices_Mutex_Create, OsServices_Mutex_Destroy, OsServices_Mutex_Acquire, OsServices_Mutex_Release,
               OsServices_Event_Create, OsServices_Event_Destroy, OsServices_Event_Wait, OsServices_Event_Trigger,
               OsServices_Event_Reset, OsServices_Event_Cancel, OsServices_Event_Activate, OsServices_Signal_Create,
               OsServices_Signal_Destroy, OsServices_Signal_Wait, OsServices_Signal_Trigger, OsServices_Signal_Cancel,
               OsServices_Signal_Activate);
    EXPECT_DEATH(OsServices_CpuThread_Create([](void*) { return 0U; }, nullptr, nullptr), "MNULL");
    EXPECT_DEATH(OsServices_CpuThread_Create(nullptr, nullptr, reinterpret_cast<SHCpuThread*>(m_hMutex)), "MNULL");

    EXPECT_DEATH(m_oServices.Mutex_Release(m_hMutex), "MFALSE"); // nobody holds it
    EXPECT_EQ(1, m_oServices.Mutex_Acquire(m_hMutex, 0));
    EXPECT_DEATH(m_oServices.Mutex_Destroy(m_hMutex), "MFALSE"); // somebody holds it
    EXPECT_EQ(1, m_oServices.Mutex_Release(m_hMutex));
    Answer<EAGAIN, &Calls::pfnSpinDestroy, &Calls::pfnSpinLock, &Calls::pfnSpinUnlock>();
    EXPECT_DEATH(m_oServices.SpinLock_Destroy(m_hSpinLock), "MFALSE");
    EXPECT_DEATH(m_oServices.SpinLock_Lock(m_hSpinLock), "MFALSE");
    EXPECT_DEATH(m_oServices.SpinLock_Unlock(m_hSpinLock), "MFALSE");
}
