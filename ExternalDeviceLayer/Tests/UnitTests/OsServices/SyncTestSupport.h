// What the tests of threads and locks share.

#pragma once

#include <atomic>
#include <errno.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <string>
#include <thread>

#include "OsServices.h"
#include "OsServicesClient_LinuxCalls.h"
#include "OsServicesTestSupport.h"

inline constinit std::atomic<int> g_iBlockedWaiters = 0;

// An OsServices object with an event, a signal and a mutex; afterwards the calls of the client as they were.
class CSyncTest : public testing::Test
{
protected:
    void SetUp() override
    {
        g_iBlockedWaiters = 0;
        // Counts the waiters while they hold the lock: who sees the count and then gets the lock knows that they wait.
        g_oOsServicesCalls.pfnConditionWait = [](pthread_cond_t* poCondition, pthread_mutex_t* poMutex) {
            ++g_iBlockedWaiters;
            return pthread_cond_wait(poCondition, poMutex);
        };
        g_oOsServicesCalls.pfnConditionTimedWait = [](pthread_cond_t* poCondition, pthread_mutex_t* poMutex,
                                                      const timespec* poDeadline) {
            ++g_iBlockedWaiters;
            return pthread_cond_timedwait(poCondition, poMutex, poDeadline);
        };
        ASSERT_EQ(1, m_oServices.Event_Create(m_hEvent));
        ASSERT_EQ(1, m_oServices.Signal_Create(m_hSignal));
        ASSERT_EQ(1, m_oServices.Mutex_Create(m_hMutex));
    }

    void TearDown() override
    {
        EXPECT_EQ(1, m_oServices.Event_Destroy(m_hEvent));
        EXPECT_EQ(1, m_oServices.Signal_Destroy(m_hSignal));
        EXPECT_EQ(1, m_oServices.Mutex_Destroy(m_hMutex));
    }

    // A chain of operations on the event or the signal, a letter each, and what each gives.
    //   operations  w wait with no time to spare, W the same with 10 ms, t trigger, c cancel, a activate, r reset
    //   results     R released, T timed out, C cancelled, B blocked without need; 0 and 1 of the other operations
    std::string RunOnEvent(const char* pszOperations)
    {
        return Run(pszOperations, [this](char cOperation) {
            return cOperation == 'w'   ? m_oServices.Event_Wait(m_hEvent, 0)
                   : cOperation == 'W' ? m_oServices.Event_Wait(m_hEvent, 10)
                   : cOperation == 't' ? m_oServices.Event_Trigger(m_hEvent)
                   : cOperation == 'c' ? m_oServices.Event_Cancel(m_hEvent)
                   : cOperation == 'a' ? m_oServices.Event_Activate(m_hEvent)
                                       : m_oServices.Event_Reset(m_hEvent);
        });
    }
    std::string RunOnSignal(const char* pszOperations)
    {
        return Run(pszOperations, [this](char cOperation) {
            return cOperation == 'w'   ? m_oServices.Signal_Wait(m_hSignal, 0, 0)
                   : cOperation == 'W' ? m_oServices.Signal_Wait(m_hSignal, 10, 0)
                   : cOperation == 't' ? m_oServices.Signal_Trigger(m_hSignal)
                   : cOperation == 'c' ? m_oServices.Signal_Cancel(m_hSignal)
                                       : m_oServices.Signal_Activate(m_hSignal);
        });
    }

    OsServices m_oServices{ nullptr };
    SHEvent* m_hEvent = nullptr;
    SHSignal* m_hSignal = nullptr;
    SHMutex* m_hMutex = nullptr;

private:
    template <class OPERATION>
    static std::string Run(const char* pszOperations, OPERATION fnOperation)
    {
        std::string sResults;
        for (; *pszOperations != '\0'; ++pszOperations)
        {
            const int iBlocked = g_iBlockedWaiters;
            const int iResult = fnOperation(*pszOperations);
            const char cWaited = iResult == eOsServicesWaitReleased   ? 'R'
                                 : iResult == eOsServicesWaitTimedOut ? 'T'
                                                                      : 'C';
            const bool bIsWait = *pszOperations == 'w' || *pszOperations == 'W';
            const bool bBlocked = *pszOperations == 'W' && g_iBlockedWaiters != iBlocked;
            sResults += bBlocked ? 'B' : bIsWait ? cWaited : static_cast<char>('0' + iResult);
        }
        return sResults;
    }

    const CRestored<SOsServicesCalls> m_oRestored{ g_oOsServicesCalls };
};

// Lets a call of the system fail from now on, as in Refuse<&SOsServicesCalls::pfnMutexInit>().
template <class... ARGUMENTS>
int Fail(ARGUMENTS... /*arguments*/)
{
    return EAGAIN;
}

template <auto CALL>
void Refuse()
{
    g_oOsServicesCalls.*CALL = Fail;
}

inline void WaitUntilAtLeast(const std::atomic<int>& iCount, int iWanted)
{
    while (iCount < iWanted)
    {
        sched_yield();
    }
}

// An operation that runs on a thread of its own; Join gives its result.
class CBackground
{
public:
    template <class OPERATION>
    explicit CBackground(OPERATION fnOperation) : m_oThread([this, fnOperation] { m_iResult = fnOperation(); })
    {
    }

    int Join()
    {
        m_oThread.join();
        return m_iResult;
    }

private:
    int m_iResult = -1000;
    std::jthread m_oThread; // last: it starts when the rest is there
};
