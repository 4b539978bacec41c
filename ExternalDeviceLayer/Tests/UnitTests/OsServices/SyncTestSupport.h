// What the tests of threads and locks share.

#pragma once

#include <errno.h>
#include <sched.h>
#include <string>
#include <thread>

#include "OsServicesClient_LinuxCalls.h"
#include "OsServicesTestSupport.h"

using Calls = SOsServicesCalls;

// An OsServices object with an event, a signal and a mutex; afterwards the calls of the client as they were.
class CSyncTest : public testing::Test
{
protected:
    void SetUp() override
    {
        SWatched<&Calls::pfnConditionWait>::Start(g_oOsServicesCalls);
        SWatched<&Calls::pfnConditionTimedWait>::Start(g_oOsServicesCalls);
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

    // The waits so far. They are counted under the lock: who sees the count and then gets the lock knows that they wait.
    static int CountWaits()
    {
        return SWatched<&Calls::pfnConditionWait>::ms_iCount + SWatched<&Calls::pfnConditionTimedWait>::ms_iCount;
    }
    static void AwaitWaits(int iCount)
    {
        while (CountWaits() < iCount)
        {
            sched_yield();
        }
    }

    int WaitForEvent(unsigned int uiLimit) { return m_oServices.Event_Wait(m_hEvent, uiLimit); }
    int WaitForSignal(unsigned int uiLimit) { return m_oServices.Signal_Wait(m_hSignal, uiLimit, 2); }

    // A chain of operations on the event or the signal, a letter each, and what each gives.
    //   operations  w wait with no time to spare, W wait that must not block, t trigger, c cancel, a activate, r reset
    //   results     R released, T timed out, C cancelled; 0 and 1 of the other operations
    std::string RunOnEvent(const char* pszOperations)
    {
        return Run(pszOperations, [this](char c) {
            return c == 'w'   ? WaitForEvent(0)
                   : c == 'W' ? WaitForEvent(10)
                   : c == 't' ? m_oServices.Event_Trigger(m_hEvent)
                   : c == 'c' ? m_oServices.Event_Cancel(m_hEvent)
                   : c == 'a' ? m_oServices.Event_Activate(m_hEvent)
                              : m_oServices.Event_Reset(m_hEvent);
        });
    }
    std::string RunOnSignal(const char* pszOperations)
    {
        return Run(pszOperations, [this](char c) {
            return c == 'w'   ? WaitForSignal(0)
                   : c == 'W' ? WaitForSignal(10)
                   : c == 't' ? m_oServices.Signal_Trigger(m_hSignal)
                   : c == 'c' ? m_oServices.Signal_Cancel(m_hSignal)
                              : m_oServices.Signal_Activate(m_hSignal);
        });
    }

    OsServices m_oServices{ nullptr };
    SHEvent* m_hEvent = nullptr;
    SHSignal* m_hSignal = nullptr;
    SHMutex* m_hMutex = nullptr;

private:
    template <class OPERATION>
    std::string Run(const char* pszOperations, OPERATION fnOperation)
    {
        std::string sResults;
        for (; *pszOperations != '\0'; ++pszOperations)
        {
            const int iWaits = CountWaits();
            const int iResult = fnOperation(*pszOperations);
            const bool bIsWait = *pszOperations == 'w' || *pszOperations == 'W';
            sResults += !bIsWait                              ? static_cast<char>('0' + iResult)
                        : iResult == eOsServicesWaitReleased  ? 'R'
                        : iResult == eOsServicesWaitTimedOut  ? 'T'
                        : iResult == eOsServicesWaitCancelled ? 'C'
                                                              : '?';
            EXPECT_TRUE(*pszOperations != 'W' || CountWaits() == iWaits) << "it blocked";
        }
        return sResults;
    }

    const CRestored<Calls> m_oRestored{ g_oOsServicesCalls };
};

// Lets a call of the system fail from now on, as in Refuse<&Calls::pfnMutexInit>().
template <auto CALL>
void Refuse()
{
    g_oOsServicesCalls.*CALL = [](auto...) { return EAGAIN; };
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
