// Threads, spin locks, mutexes, events and signals on POSIX threads. The memory of the records belongs to the caller;
// everything else of the client is in OsServicesClient_Linux.cpp.

#include "OsServicesClient.h"

#include <new>
#include <pthread.h>

#include "OsServicesClient_LinuxCalls.h"

struct SHCpuThread
{
    pthread_t m_oThread; // 0 once joined
};

struct SHSpinLock
{
    pthread_spinlock_t m_oSpinLock;
};

struct SHMutex
{
    pthread_mutex_t m_oMutex;
};

struct SHEvent
{
    pthread_mutex_t m_oMutex;
    pthread_cond_t m_oCondition;
    int m_bTriggered;
    int m_bActive;
};

struct SHSignal
{
    pthread_mutex_t m_oMutex;
    pthread_cond_t m_oCondition;
    int m_bActive;
};

#if defined(__x86_64__) && defined(__LP64__)
static_assert(sizeof(SHCpuThread) == 8);
static_assert(sizeof(SHSpinLock) == 4);
static_assert(sizeof(SHMutex) == 40);
static_assert(sizeof(SHEvent) == 96);
static_assert(sizeof(SHSignal) == 96);
#endif

namespace
{
// Holds a mutex for a scope. A thread that is cancelled in a condition wait lets go of it, too.
class CLock
{
public:
    explicit CLock(pthread_mutex_t& oMutex) : m_oMutex(oMutex) { pthread_mutex_lock(&m_oMutex); }
    ~CLock() { pthread_mutex_unlock(&m_oMutex); }
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;

private:
    pthread_mutex_t& m_oMutex;
};

timespec GetDeadlineFromNow(unsigned int uiTimeout)
{
    timespec oNow = {};
    g_oOsServicesCalls.pfnGetClock(CLOCK_REALTIME, &oNow);
    return OsServices_GetDeadline(oNow, uiTimeout);
}

// ---- What events and signals share: a mutex, a condition, and an active state ----

bool CreateWaitObject(pthread_mutex_t& oMutex, pthread_cond_t& oCondition)
{
    if (g_oOsServicesCalls.pfnMutexInit(&oMutex, nullptr) != 0)
    {
        return false;
    }
    if (g_oOsServicesCalls.pfnConditionInit(&oCondition, nullptr) != 0)
    {
        g_oOsServicesCalls.pfnMutexDestroy(&oMutex);
        return false;
    }
    return true;
}

void DestroyWaitObject(pthread_mutex_t& oMutex, pthread_cond_t& oCondition)
{
    pthread_cond_destroy(&oCondition);
    g_oOsServicesCalls.pfnMutexDestroy(&oMutex);
}

// One wait under the held mutex: whatever wakes it counts, the caller does not wait again.
EOsServicesWait WaitOnce(pthread_mutex_t& oMutex, pthread_cond_t& oCondition, unsigned int uiTimeout)
{
    if (uiTimeout == gsc_uiOsServicesNoLimit)
    {
        return g_oOsServicesCalls.pfnConditionWait(&oCondition, &oMutex) == 0 ? eOsServicesWaitReleased
                                                                              : eOsServicesWaitCancelled;
    }
    const timespec oDeadline = GetDeadlineFromNow(uiTimeout);
    return g_oOsServicesCalls.pfnConditionTimedWait(&oCondition, &oMutex, &oDeadline) == 0 ? eOsServicesWaitReleased
                                                                                           : eOsServicesWaitTimedOut;
}

bool WakeAll(pthread_cond_t& oCondition) { return g_oOsServicesCalls.pfnConditionBroadcast(&oCondition) == 0; }

// ---- What a new thread receives. The thread itself frees it. ----

struct SThreadStart
{
    unsigned int (*m_pfnThreadFunction)(void*);
    void* m_pvContext;
};

// Not noexcept: a cancellation unwinds through it.
void* RunThread(void* pvStart)
{
    const SThreadStart* const poStart = static_cast<SThreadStart*>(pvStart);
    const SThreadStart oStart = *poStart;
    delete poStart;
    oStart.m_pfnThreadFunction(oStart.m_pvContext);
    return nullptr;
}

bool InitRecursive(pthread_mutex_t& oMutex)
{
    pthread_mutexattr_t oAttribute;
    if (g_oOsServicesCalls.pfnMutexAttributeInit(&oAttribute) != 0)
    {
        return false;
    }
    pthread_mutexattr_settype(&oAttribute, PTHREAD_MUTEX_RECURSIVE);
    const int iError = g_oOsServicesCalls.pfnMutexInit(&oMutex, &oAttribute);
    pthread_mutexattr_destroy(&oAttribute);
    return iError == 0;
}
} // namespace

unsigned int OsServices_CpuThread_GetHandleSize() { return sizeof(SHCpuThread); }

int OsServices_CpuThread_Create(unsigned int (*pfnThreadFunction)(void*), void* pvContext, SHCpuThread* hCpuThread)
{
    OS_CLIENT_ASSERT((hCpuThread != MNULL) && (pfnThreadFunction != MNULL));
    *hCpuThread = {};
    SThreadStart* const poStart = new (std::nothrow) SThreadStart{ pfnThreadFunction, pvContext };
    if (poStart == nullptr)
    {
        return 0;
    }
    if (g_oOsServicesCalls.pfnThreadCreate(&hCpuThread->m_oThread, nullptr, RunThread, poStart) != 0)
    {
        delete poStart;
        return 0;
    }
    return 1;
}

int OsServices_CpuThread_Join(SHCpuThread* hCpuThread)
{
    OS_CLIENT_ASSERT(hCpuThread != MNULL);
    // The id of a joined thread means nothing any more, so the record forgets it.
    if (hCpuThread->m_oThread == 0 || pthread_join(hCpuThread->m_oThread, nullptr) != 0)
    {
        return 0;
    }
    hCpuThread->m_oThread = 0;
    return 1;
}

int OsServices_CpuThread_Destroy(SHCpuThread* hCpuThread)
{
    OS_CLIENT_ASSERT(hCpuThread != MNULL);
    if (hCpuThread->m_oThread != 0)
    {
        g_oOsServicesCalls.pfnThreadCancel(hCpuThread->m_oThread);
    }
    return 1;
}

unsigned int OsServices_SpinLock_GetHandleSize() { return sizeof(SHSpinLock); }

int OsServices_SpinLock_Create(SHSpinLock* hSpinLock, unsigned char /*ui8HostProperty*/)
{
    OS_CLIENT_ASSERT(hSpinLock != MNULL);
    return g_oOsServicesCalls.pfnSpinInit(&hSpinLock->m_oSpinLock, PTHREAD_PROCESS_PRIVATE) == 0 ? 1 : 0;
}

int OsServices_SpinLock_Destroy(SHSpinLock* hSpinLock)
{
    OS_CLIENT_ASSERT(hSpinLock != MNULL);
    const int iError = g_oOsServicesCalls.pfnSpinDestroy(&hSpinLock->m_oSpinLock);
    OS_CLIENT_REQUIRE(iError == 0);
    return 1;
}

int OsServices_SpinLock_Lock(SHSpinLock* hSpinLock, int /*iMode*/)
{
    OS_CLIENT_ASSERT(hSpinLock != MNULL);
    const int iError = g_oOsServicesCalls.pfnSpinLock(&hSpinLock->m_oSpinLock);
    OS_CLIENT_REQUIRE(iError == 0);
    return 1;
}

int OsServices_SpinLock_Unlock(SHSpinLock* hSpinLock)
{
    OS_CLIENT_ASSERT(hSpinLock != MNULL);
    const int iError = g_oOsServicesCalls.pfnSpinUnlock(&hSpinLock->m_oSpinLock);
    OS_CLIENT_REQUIRE(iError == 0);
    return 1;
}

unsigned int OsServices_Mutex_GetHandleSize() { return sizeof(SHMutex); }

int OsServices_Mutex_Create(SHMutex* hMutex)
{
    OS_CLIENT_ASSERT(hMutex != MNULL);
    *hMutex = {};
    return InitRecursive(hMutex->m_oMutex) ? 1 : 0;
}

int OsServices_Mutex_Destroy(SHMutex* hMutex)
{
    OS_CLIENT_ASSERT(hMutex != MNULL);
    const int iError = g_oOsServicesCalls.pfnMutexDestroy(&hMutex->m_oMutex);
    OS_CLIENT_REQUIRE(iError == 0);
    return 1;
}

int OsServices_Mutex_Acquire(SHMutex* hMutex, unsigned int uiTimeout)
{
    OS_CLIENT_ASSERT(hMutex != MNULL);
    if (uiTimeout == gsc_uiOsServicesNoLimit)
    {
        return pthread_mutex_lock(&hMutex->m_oMutex) == 0 ? 1 : 0;
    }
    const timespec oDeadline = GetDeadlineFromNow(uiTimeout);
    return pthread_mutex_timedlock(&hMutex->m_oMutex, &oDeadline) == 0 ? 1 : 0;
}

int OsServices_Mutex_Release(SHMutex* hMutex)
{
    OS_CLIENT_ASSERT(hMutex != MNULL);
    const int iError = pthread_mutex_unlock(&hMutex->m_oMutex);
    OS_CLIENT_REQUIRE(iError == 0);
    return 1;
}

unsigned int OsServices_Event_GetHandleSize() { return sizeof(SHEvent); }

int OsServices_Event_Create(SHEvent* hEvent)
{
    OS_CLIENT_ASSERT(hEvent != MNULL);
    hEvent->m_bTriggered = 0;
    if (!CreateWaitObject(hEvent->m_oMutex, hEvent->m_oCondition))
    {
        return 0;
    }
    hEvent->m_bActive = 1;
    return 1;
}

int OsServices_Event_Destroy(SHEvent* hEvent)
{
    OS_CLIENT_ASSERT(hEvent != MNULL);
    OsServices_Event_Cancel(hEvent);
    DestroyWaitObject(hEvent->m_oMutex, hEvent->m_oCondition);
    return 1;
}

int OsServices_Event_Wait(SHEvent* hEvent, unsigned int uiTimeout)
{
    OS_CLIENT_ASSERT(hEvent != MNULL);
    const CLock oLock(hEvent->m_oMutex);
    EOsServicesWait eResult = eOsServicesWaitReleased;
    if (hEvent->m_bActive != 0 && hEvent->m_bTriggered == 0)
    {
        eResult = WaitOnce(hEvent->m_oMutex, hEvent->m_oCondition, uiTimeout);
    }
    if (hEvent->m_bActive == 0) // from the beginning, or cancelled during the wait
    {
        eResult = eOsServicesWaitCancelled;
    }
    // Every return consumes the trigger, including one that came between the end of the time and the lock.
    hEvent->m_bTriggered = 0;
    return eResult;
}

int OsServices_Event_Trigger(SHEvent* hEvent)
{
    OS_CLIENT_ASSERT(hEvent != MNULL);
    const CLock oLock(hEvent->m_oMutex);
    if (hEvent->m_bActive == 0)
    {
        return 0;
    }
    hEvent->m_bTriggered = g_oOsServicesCalls.pfnConditionSignal(&hEvent->m_oCondition) == 0 ? 1 : 0;
    return hEvent->m_bTriggered;
}

int OsServices_Event_Reset(SHEvent* hEvent)
{
    OS_CLIENT_ASSERT(hEvent != MNULL);
    const CLock oLock(hEvent->m_oMutex);
    hEvent->m_bTriggered = 0;
    return 1;
}

int OsServices_Event_Cancel(SHEvent* hEvent)
{
    OS_CLIENT_ASSERT(hEvent != MNULL);
    const CLock oLock(hEvent->m_oMutex);
    if (hEvent->m_bActive == 0)
    {
        return 0;
    }
    hEvent->m_bActive = 0;
    hEvent->m_bTriggered = WakeAll(hEvent->m_oCondition) ? 1 : 0;
    return hEvent->m_bTriggered;
}

int OsServices_Event_Activate(SHEvent* hEvent)
{
    OS_CLIENT_ASSERT(hEvent != MNULL);
    const CLock oLock(hEvent->m_oMutex);
    hEvent->m_bActive = 1;
    return 1;
}

unsigned int OsServices_Signal_GetHandleSize() { return sizeof(SHSignal); }

int OsServices_Signal_Create(SHSignal* hSignal)
{
    OS_CLIENT_ASSERT(hSignal != MNULL);
    if (!CreateWaitObject(hSignal->m_oMutex, hSignal->m_oCondition))
    {
        return 0;
    }
    hSignal->m_bActive = 1;
    return 1;
}

int OsServices_Signal_Destroy(SHSignal* hSignal)
{
    OS_CLIENT_ASSERT(hSignal != MNULL);
    OsServices_Signal_Cancel(hSignal);
    DestroyWaitObject(hSignal->m_oMutex, hSignal->m_oCondition);
    return 1;
}

int OsServices_Signal_Wait(SHSignal* hSignal, unsigned int uiTimeout, unsigned long /*uiData*/)
{
    OS_CLIENT_ASSERT(hSignal != MNULL);
    const CLock oLock(hSignal->m_oMutex);
    EOsServicesWait eResult = eOsServicesWaitReleased;
    if (hSignal->m_bActive != 0)
    {
        eResult = WaitOnce(hSignal->m_oMutex, hSignal->m_oCondition, uiTimeout);
    }
    return hSignal->m_bActive != 0 ? eResult : eOsServicesWaitCancelled;
}

int OsServices_Signal_Trigger(SHSignal* hSignal)
{
    OS_CLIENT_ASSERT(hSignal != MNULL);
    const CLock oLock(hSignal->m_oMutex);
    return hSignal->m_bActive != 0 && WakeAll(hSignal->m_oCondition) ? 1 : 0;
}

int OsServices_Signal_Cancel(SHSignal* hSignal)
{
    OS_CLIENT_ASSERT(hSignal != MNULL);
    const CLock oLock(hSignal->m_oMutex);
    if (hSignal->m_bActive == 0)
    {
        return 0;
    }
    hSignal->m_bActive = 0;
    return WakeAll(hSignal->m_oCondition) ? 1 : 0;
}

int OsServices_Signal_Activate(SHSignal* hSignal)
{
    OS_CLIENT_ASSERT(hSignal != MNULL);
    const CLock oLock(hSignal->m_oMutex);
    hSignal->m_bActive = 1;
    return 1;
}
