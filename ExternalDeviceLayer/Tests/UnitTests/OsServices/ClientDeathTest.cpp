// Each guard of the client layer stops the process with its own text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "OsServicesClient.h"
#include "SyncTestSupport.h"

namespace
{
// With a null handle and zeros behind it.
template <class HANDLE, class... REST>
void CallWithNull(int (*pfnCall)(HANDLE*, REST...))
{
    pfnCall(nullptr, REST{}...);
}
template <auto CALL>
void OnNull()
{
    CallWithNull(CALL);
}

unsigned long g_uiThread = 0;

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

void DestroyHeldMutex()
{
    SHMutex* const hMutex = MakeMutex();
    OsServices_Mutex_Acquire(hMutex, gsc_uiOsServicesNoLimit);
    OsServices_Mutex_Destroy(hMutex);
}

struct SGroup
{
    const char* m_pszExpression;
    std::vector<void (*)()> m_apfnCalls;
};

const SGroup gsc_aoGroups[] = {
    { "(hCpuThread != MNULL) && (pfnThreadFunction != MNULL)",
      { [] { OsServices_CpuThread_Create([](void*) { return 0U; }, nullptr, nullptr); },
        [] { OsServices_CpuThread_Create(nullptr, nullptr, reinterpret_cast<SHCpuThread*>(&g_uiThread)); } } },
    { "hCpuThread != MNULL", { OnNull<OsServices_CpuThread_Join>, OnNull<OsServices_CpuThread_Destroy> } },
    { "hSpinLock != MNULL",
      { OnNull<OsServices_SpinLock_Create>, OnNull<OsServices_SpinLock_Destroy>, OnNull<OsServices_SpinLock_Lock>,
        OnNull<OsServices_SpinLock_Unlock> } },
    { "hMutex != MNULL",
      { OnNull<OsServices_Mutex_Create>, OnNull<OsServices_Mutex_Destroy>, OnNull<OsServices_Mutex_Acquire>,
        OnNull<OsServices_Mutex_Release> } },
    { "hEvent != MNULL",
      { OnNull<OsServices_Event_Create>, OnNull<OsServices_Event_Destroy>, OnNull<OsServices_Event_Wait>,
        OnNull<OsServices_Event_Trigger>, OnNull<OsServices_Event_Reset>, OnNull<OsServices_Event_Cancel>,
        OnNull<OsServices_Event_Activate> } },
    { "hSignal != MNULL",
      { OnNull<OsServices_Signal_Create>, OnNull<OsServices_Signal_Destroy>, OnNull<OsServices_Signal_Wait>,
        OnNull<OsServices_Signal_Trigger>, OnNull<OsServices_Signal_Cancel>, OnNull<OsServices_Signal_Activate> } },
    // Calls of the system that must not fail.
    { "MFALSE",
      { [] { OsServices_SpinLock_Destroy(MakeBrokenSpinLock()); },
        [] { OsServices_SpinLock_Lock(MakeBrokenSpinLock(), 1); },
        [] { OsServices_SpinLock_Unlock(MakeBrokenSpinLock()); },
        [] { OsServices_Mutex_Release(MakeMutex()); }, // not held
        DestroyHeldMutex } },
};
}

TEST(ClientDeathTest, EachGuardStopsTheProcess)
{
    for (const SGroup& oGroup : gsc_aoGroups)
    {
        const std::string sText = std::string("Assertion `") + oGroup.m_pszExpression + "' failed.";
        for (void (*const pfnCall)() : oGroup.m_apfnCalls)
        {
            EXPECT_DEATH(pfnCall(), testing::HasSubstr(sText)) << &pfnCall - oGroup.m_apfnCalls.data();
        }
    }
}
