// What the tests of threads and locks share.

#pragma once

#include <atomic>
#include <errno.h>
#include <gtest/gtest.h>
#include <sched.h>

#include "OsServices.h"
#include "OsServicesClient_LinuxCalls.h"
#include "OsServicesTestSupport.h"

inline constinit std::atomic<int> g_iBlockedWaiters = 0;

// An OsServices object, and the calls of the client as they were, afterwards.
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
    }

    OsServices m_oServices{ nullptr };

private:
    const CRestored<SOsServicesCalls> m_oRestored{ g_oOsServicesCalls };
};

inline void WaitUntilAtLeast(const std::atomic<int>& iCount, int iWanted)
{
    while (iCount < iWanted)
    {
        sched_yield();
    }
}

// An operation that runs on a thread of its own; the result is there after Join.
template <class OPERATION>
class CBackground
{
public:
    CBackground(OsServices& oServices, OPERATION fnOperation) : m_oServices(oServices), m_fnOperation(fnOperation)
    {
        EXPECT_EQ(1, m_oServices.CpuThread_Create(&CBackground::Run, this, m_hCpuThread));
    }
    ~CBackground() { Join(); }
    CBackground(const CBackground&) = delete;
    CBackground& operator=(const CBackground&) = delete;

    int Join()
    {
        if (m_hCpuThread != nullptr)
        {
            EXPECT_EQ(1, m_oServices.CpuThread_Join(m_hCpuThread));
            EXPECT_EQ(1, m_oServices.CpuThread_Destroy(m_hCpuThread));
            m_hCpuThread = nullptr;
        }
        return m_iResult;
    }

private:
    static unsigned int Run(void* pvContext)
    {
        CBackground* const poThis = static_cast<CBackground*>(pvContext);
        poThis->m_iResult = poThis->m_fnOperation();
        return 0;
    }

    OsServices& m_oServices;
    OPERATION m_fnOperation;
    int m_iResult = -1000;
    SHCpuThread* m_hCpuThread = nullptr;
};
