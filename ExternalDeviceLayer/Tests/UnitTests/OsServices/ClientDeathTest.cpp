// Each guard of the client layer stops the process with its own text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "OsServicesClient.h"
#include "SyncTestSupport.h"

namespace
{
template <class OPERATION>
void ExpectStop(const char* pszExpression, OPERATION fnOperation)
{
    EXPECT_DEATH(fnOperation(), testing::HasSubstr(std::string("Assertion `") + pszExpression + "' failed."));
}

// With a null handle and zeros behind it.
template <class HANDLE, class... REST>
void ExpectStopOnNull(const char* pszExpression, int (*pfnOperation)(HANDLE*, REST...))
{
    ExpectStop(pszExpression, [&] { pfnOperation(nullptr, REST{}...); });
}

template <class... OPERATIONS>
void ExpectStopsOnNull(const char* pszExpression, OPERATIONS... apfnOperations)
{
    (ExpectStopOnNull(pszExpression, apfnOperations), ...);
}

// In a process that is about to stop: objects whose calls of the system fail.
SHSpinLock* MakeBrokenSpinLock()
{
    static int iRecord;
    SHSpinLock* const hSpinLock = reinterpret_cast<SHSpinLock*>(&iRecord);
    OsServices_SpinLock_Create(hSpinLock, 0);
    Refuse<&SOsServicesCalls::pfnSpinDestroy>();
    Refuse<&SOsServicesCalls::pfnSpinLock>();
    Refuse<&SOsServicesCalls::pfnSpinUnlock>();
    return hSpinLock;
}

SHMutex* MakeMutex()
{
    static pthread_mutex_t oRecord;
    SHMutex* const hMutex = reinterpret_cast<SHMutex*>(&oRecord);
    OsServices_Mutex_Create(hMutex);
    return hMutex;
}
}

TEST(ClientDeathTest, NullHandlesStopTheProcess)
{
    const char* const pszThreadText = "(hCpuThread != MNULL) && (pfnThreadFunction != MNULL)";
    ExpectStop(pszThreadText, [] { OsServices_CpuThread_Create([](void*) { return 0U; }, nullptr, nullptr); });
    ExpectStop(pszThreadText, [] {
        unsigned long uiRecord = 0;
        OsServices_CpuThread_Create(nullptr, nullptr, reinterpret_cast<SHCpuThread*>(&uiRecord));
    });
    ExpectStopsOnNull("hCpuThread != MNULL", OsServices_CpuThread_Join, OsServices_CpuThread_Destroy);
    ExpectStopsOnNull("hSpinLock != MNULL", OsServices_SpinLock_Create, OsServices_SpinLock_Destroy,
                      OsServices_SpinLock_Lock, OsServices_SpinLock_Unlock);
    ExpectStopsOnNull("hMutex != MNULL", OsServices_Mutex_Create, OsServices_Mutex_Destroy, OsServices_Mutex_Acquire,
                      OsServices_Mutex_Release);
    ExpectStopsOnNull("hEvent != MNULL", OsServices_Event_Create, OsServices_Event_Destroy, OsServices_Event_Wait,
                      OsServices_Event_Trigger, OsServices_Event_Reset, OsServices_Event_Cancel,
                      OsServices_Event_Activate);
    ExpectStopsOnNull("hSignal != MNULL", OsServices_Signal_Create, OsServices_Signal_Destroy, OsServices_Signal_Wait,
                      OsServices_Signal_Trigger, OsServices_Signal_Cancel, OsServices_Signal_Activate);
}

TEST(ClientDeathTest, CallsThatMustNotFailStopTheProcess)
{
    ExpectStop("MFALSE", [] { OsServices_SpinLock_Destroy(MakeBrokenSpinLock()); });
    ExpectStop("MFALSE", [] { OsServices_SpinLock_Lock(MakeBrokenSpinLock(), 1); });
    ExpectStop("MFALSE", [] { OsServices_SpinLock_Unlock(MakeBrokenSpinLock()); });
    ExpectStop("MFALSE", [] { OsServices_Mutex_Release(MakeMutex()); }); // not held
    ExpectStop("MFALSE", [] {
        SHMutex* const hMutex = MakeMutex();
        OsServices_Mutex_Acquire(hMutex, gsc_uiOsServicesNoLimit);
        OsServices_Mutex_Destroy(hMutex);
    });
}
