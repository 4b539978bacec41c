// Each guard of the client layer stops the process with its own text.

#include <errno.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "OsServicesClient.h"
#include "OsServicesClient_LinuxCalls.h"
#include "OsServicesTestSupport.h"

namespace
{
unsigned int DoNothing(void* /*pvContext*/) { return 0; }

struct SGuardCase
{
    const char* m_szExpression;
    void (*m_pfnRun)();
};

// clang-format off
const SGuardCase gsc_aoNullCases[] = {
    { "(hCpuThread != MNULL) && (pfnThreadFunction != MNULL)", [] { OsServices_CpuThread_Create(DoNothing, nullptr, nullptr); } },
    { "(hCpuThread != MNULL) && (pfnThreadFunction != MNULL)",
      [] { unsigned long uiRecord = 0; OsServices_CpuThread_Create(nullptr, nullptr, reinterpret_cast<SHCpuThread*>(&uiRecord)); } },
    { "hCpuThread != MNULL", [] { OsServices_CpuThread_Join(nullptr); } },
    { "hCpuThread != MNULL", [] { OsServices_CpuThread_Destroy(nullptr); } },
    { "hSpinLock != MNULL",  [] { OsServices_SpinLock_Create(nullptr, 0); } },
    { "hSpinLock != MNULL",  [] { OsServices_SpinLock_Destroy(nullptr); } },
    { "hSpinLock != MNULL",  [] { OsServices_SpinLock_Lock(nullptr, 1); } },
    { "hSpinLock != MNULL",  [] { OsServices_SpinLock_Unlock(nullptr); } },
    { "hMutex != MNULL",     [] { OsServices_Mutex_Create(nullptr); } },
    { "hMutex != MNULL",     [] { OsServices_Mutex_Destroy(nullptr); } },
    { "hMutex != MNULL",     [] { OsServices_Mutex_Acquire(nullptr, 0); } },
    { "hMutex != MNULL",     [] { OsServices_Mutex_Release(nullptr); } },
    { "hEvent != MNULL",     [] { OsServices_Event_Create(nullptr); } },
    { "hEvent != MNULL",     [] { OsServices_Event_Destroy(nullptr); } },
    { "hEvent != MNULL",     [] { OsServices_Event_Wait(nullptr, 0); } },
    { "hEvent != MNULL",     [] { OsServices_Event_Trigger(nullptr); } },
    { "hEvent != MNULL",     [] { OsServices_Event_Reset(nullptr); } },
    { "hEvent != MNULL",     [] { OsServices_Event_Cancel(nullptr); } },
    { "hEvent != MNULL",     [] { OsServices_Event_Activate(nullptr); } },
    { "hSignal != MNULL",    [] { OsServices_Signal_Create(nullptr); } },
    { "hSignal != MNULL",    [] { OsServices_Signal_Destroy(nullptr); } },
    { "hSignal != MNULL",    [] { OsServices_Signal_Wait(nullptr, 0, 0); } },
    { "hSignal != MNULL",    [] { OsServices_Signal_Trigger(nullptr); } },
    { "hSignal != MNULL",    [] { OsServices_Signal_Cancel(nullptr); } },
    { "hSignal != MNULL",    [] { OsServices_Signal_Activate(nullptr); } },
};
// clang-format on

void ExpectStop(const SGuardCase& oCase)
{
    EXPECT_DEATH(oCase.m_pfnRun(), testing::HasSubstr(std::string("Assertion `") + oCase.m_szExpression + "' failed."));
}

// A failing call of the system, with the record that the operation works on.
SHSpinLock* MakeSpinLock()
{
    static pthread_spinlock_t iRecord;
    SHSpinLock* const hSpinLock = reinterpret_cast<SHSpinLock*>(const_cast<int*>(&iRecord));
    OsServices_SpinLock_Create(hSpinLock, 0);
    return hSpinLock;
}

SHMutex* MakeMutex()
{
    static pthread_mutex_t oRecord;
    SHMutex* const hMutex = reinterpret_cast<SHMutex*>(&oRecord);
    OsServices_Mutex_Create(hMutex);
    return hMutex;
}

int FailSpin(pthread_spinlock_t* /*piLock*/) { return EINVAL; }

const SGuardCase gsc_aoSystemCases[] = {
    { "MFALSE",
      [] {
          SHSpinLock* const hSpinLock = MakeSpinLock();
          g_oOsServicesCalls.pfnSpinDestroy = FailSpin;
          OsServices_SpinLock_Destroy(hSpinLock);
      } },
    { "MFALSE",
      [] {
          SHSpinLock* const hSpinLock = MakeSpinLock();
          g_oOsServicesCalls.pfnSpinLock = FailSpin;
          OsServices_SpinLock_Lock(hSpinLock, 1);
      } },
    { "MFALSE",
      [] {
          SHSpinLock* const hSpinLock = MakeSpinLock();
          g_oOsServicesCalls.pfnSpinUnlock = FailSpin;
          OsServices_SpinLock_Unlock(hSpinLock);
      } },
    { "MFALSE",
      [] {
          SHMutex* const hMutex = MakeMutex();
          OsServices_Mutex_Acquire(hMutex, gsc_uiOsServicesNoLimit);
          OsServices_Mutex_Destroy(hMutex); // still held
      } },
    { "MFALSE", [] { OsServices_Mutex_Release(MakeMutex()); } }, // not held
};
}

TEST(ClientDeathTest, NullHandlesStopTheProcess)
{
    for (const SGuardCase& oCase : gsc_aoNullCases)
    {
        ExpectStop(oCase);
    }
}

TEST(ClientDeathTest, CallsThatMustNotFailStopTheProcess)
{
    for (const SGuardCase& oCase : gsc_aoSystemCases)
    {
        ExpectStop(oCase);
    }
}
