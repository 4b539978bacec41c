// The handle members of OsServices: threads, spin locks, mutexes, events, signals. Memory and the way to a host are
// decided here; what the operations do is in the client. The other members are in OsServices.cpp.

#include "OsServices.h"

#include "OsServicesClient.h"
#include "OsServicesHandle.h"

namespace
{
constexpr int gsc_iSpinLockMode = 1; // the client ignores it
OsServicesHost& HostOf(void* poHost) { return *static_cast<OsServicesHost*>(poHost); }
} // namespace

int OsServices::CpuThread_Create(unsigned int (*pfnThreadFunction)(void*), void* pvContext, SHCpuThread*& hCpuThread)
{
    return CreateHandle(hCpuThread, OsServices_CpuThread_GetHandleSize(), [=](SHCpuThread* hNew) {
        return OsServices_CpuThread_Create(pfnThreadFunction, pvContext, hNew);
    });
}

int OsServices::CpuThread_Join(SHCpuThread* const& hCpuThread) { return OsServices_CpuThread_Join(hCpuThread); }

int OsServices::CpuThread_Destroy(SHCpuThread* hCpuThread)
{
    return DestroyHandle(hCpuThread, OsServices_CpuThread_Destroy);
}

int OsServices::SpinLock_Create(SHSpinLock*& hSpinLock)
{
    return CreateHandle(hSpinLock, OsServices_SpinLock_GetHandleSize(),
                        [this](SHSpinLock* hNew) { return OsServices_SpinLock_Create(hNew, m_ui8HostProperty); });
}

int OsServices::SpinLock_Destroy(SHSpinLock* hSpinLock)
{
    return DestroyHandle(hSpinLock, OsServices_SpinLock_Destroy);
}

int OsServices::SpinLock_Lock(SHSpinLock* hSpinLock) { return OsServices_SpinLock_Lock(hSpinLock, gsc_iSpinLockMode); }

int OsServices::SpinLock_Unlock(SHSpinLock* hSpinLock) { return OsServices_SpinLock_Unlock(hSpinLock); }

int OsServices::Mutex_Create(SHMutex*& hMutex)
{
    return CreateHandle(hMutex, OsServices_Mutex_GetHandleSize(), OsServices_Mutex_Create);
}

int OsServices::Mutex_Destroy(SHMutex* hMutex) { return DestroyHandle(hMutex, OsServices_Mutex_Destroy); }

int OsServices::Mutex_Acquire(SHMutex* hMutex, unsigned int uiTimeout)
{
    return OsServices_Mutex_Acquire(hMutex, uiTimeout);
}

int OsServices::Mutex_Release(SHMutex* hMutex) { return OsServices_Mutex_Release(hMutex); }

int OsServices::Event_Create(SHEvent*& hEvent)
{
    if (m_poHost != nullptr)
    {
        return HostOf(m_poHost).Event_Create(hEvent);
    }
    return CreateHandle(hEvent, OsServices_Event_GetHandleSize(), OsServices_Event_Create);
}

int OsServices::Event_Destroy(SHEvent* hEvent) { return DestroyHandle(hEvent, OsServices_Event_Destroy); }

int OsServices::Event_Wait(SHEvent* hEvent, unsigned int uiTimeout) { return OsServices_Event_Wait(hEvent, uiTimeout); }

int OsServices::Event_Trigger(SHEvent* hEvent)
{
    if (m_poHost != nullptr)
    {
        return HostOf(m_poHost).Event_Trigger(hEvent);
    }
    return OsServices_Event_Trigger(hEvent);
}

int OsServices::Event_Reset(SHEvent* hEvent) { return OsServices_Event_Reset(hEvent); }

int OsServices::Event_Cancel(SHEvent* hEvent) { return OsServices_Event_Cancel(hEvent); }

int OsServices::Event_Activate(SHEvent* hEvent) { return OsServices_Event_Activate(hEvent); }

int OsServices::Signal_Create(SHSignal*& hSignal)
{
    if (m_poHost != nullptr)
    {
        return HostOf(m_poHost).Signal_Create(hSignal);
    }
    return CreateHandle(hSignal, OsServices_Signal_GetHandleSize(), OsServices_Signal_Create);
}

int OsServices::Signal_Destroy(SHSignal* hSignal) { return DestroyHandle(hSignal, OsServices_Signal_Destroy); }

int OsServices::Signal_Wait(SHSignal* hSignal, unsigned int uiTimeout, unsigned long uiData)
{
    return OsServices_Signal_Wait(hSignal, uiTimeout, uiData);
}

int OsServices::Signal_Trigger(SHSignal* hSignal)
{
    if (m_poHost != nullptr)
    {
        return HostOf(m_poHost).Signal_Trigger(hSignal);
    }
    return OsServices_Signal_Trigger(hSignal);
}

int OsServices::Signal_Cancel(SHSignal* hSignal) { return OsServices_Signal_Cancel(hSignal); }

int OsServices::Signal_Activate(SHSignal* hSignal) { return OsServices_Signal_Activate(hSignal); }
