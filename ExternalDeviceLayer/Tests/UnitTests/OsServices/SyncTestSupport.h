// What the tests of threads and locks share.

#pragma once

#include <algorithm>
#include <errno.h>
#include <functional>
#include <map>
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

    // The waits so far, counted under the lock: who sees the count and then gets the lock knows that they wait.
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

    OsServices m_oServices{ nullptr };
    SHEvent* m_hEvent = nullptr;
    SHSignal* m_hSignal = nullptr;
    SHMutex* m_hMutex = nullptr;

    // Operations by letters. W is a wait that must not block.
    using COperations = std::map<char, std::function<int()>>;
    const COperations m_oEvent{ { 'w', [this] { return WaitForEvent(0); } },
                                { 'W', [this] { return WaitForEvent(10); } },
                                { 't', [this] { return m_oServices.Event_Trigger(m_hEvent); } },
                                { 'c', [this] { return m_oServices.Event_Cancel(m_hEvent); } },
                                { 'a', [this] { return m_oServices.Event_Activate(m_hEvent); } },
                                { 'r', [this] { return m_oServices.Event_Reset(m_hEvent); } } };
    const COperations m_oSignal{ { 'w', [this] { return WaitForSignal(0); } },
                                 { 'W', [this] { return WaitForSignal(10); } },
                                 { 't', [this] { return m_oServices.Signal_Trigger(m_hSignal); } },
                                 { 'c', [this] { return m_oServices.Signal_Cancel(m_hSignal); } },
                                 { 'a', [this] { return m_oServices.Signal_Activate(m_hSignal); } } };

    // What each operation gives: R released, T timed out, C cancelled, or 0 and 1.
    static std::string Run(const COperations& oOperations, const std::string& sLetters)
    {
        std::string sResults;
        for (const char c : sLetters)
        {
            const int iWaits = CountWaits();
            const int iResult = oOperations.at(c)();
            sResults += c != 'w' && c != 'W'                  ? "01?"[std::min(static_cast<unsigned int>(iResult), 2U)]
                        : iResult == eOsServicesWaitReleased  ? 'R'
                        : iResult == eOsServicesWaitTimedOut  ? 'T'
                        : iResult == eOsServicesWaitCancelled ? 'C'
                                                              : '?';
            EXPECT_TRUE(c != 'W' || CountWaits() == iWaits) << "it blocked";
        }
        return sResults;
    }

private:
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
