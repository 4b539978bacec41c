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
template <auto CALL>
void OnNull()
{
    []<class HANDLE, class... REST>(int (*pfnCall)(HANDLE*, REST...)) { pfnCall(nullptr, REST{}...); }(CALL);
}

// In a process that is about to stop: records that nothing else uses, and calls of the system that fail.
template <class HANDLE>
HANDLE* GetRecord()
{
    alignas(16) static unsigned char aui8Record[64];
    return reinterpret_cast<HANDLE*>(aui8Record);
}

template <auto CALL, auto REFUSED>
void OnRefusal()
{
    g_oOsServicesCalls.*REFUSED = [](auto...) { return EINVAL; };
    CALL(GetRecord<SHSpinLock>());
}

int Lock(SHSpinLock* hSpinLock) { return OsServices_SpinLock_Lock(hSpinLock, 1); }

void ReleaseFreeMutex()
{
    OsServices_Mutex_Create(GetRecord<SHMutex>());
    OsServices_Mutex_Release(GetRecord<SHMutex>());
}

void DestroyHeldMutex()
{
    OsServices_Mutex_Create(GetRecord<SHMutex>());
    OsServices_Mutex_Acquire(GetRecord<SHMutex>(), gsc_uiOsServicesNoLimit);
    OsServices_Mutex_Destroy(GetRecord<SHMutex>());
}

struct SGroup
{
    const char* m_pszExpression;
    std::vector<void (*)()> m_apfnCalls;
};

// clang-format off
const SGroup gsc_aoGroups[] = {
    { "(hCpuThread != MNULL) && (pfnThreadFunction != MNULL)", {
        [] { OsServices_CpuThread_Create([](void*) { return 0U; }, nullptr, nullptr); },
        [] { OsServices_CpuThread_Create(nullptr, nullptr, GetRecord<SHCpuThread>()); } } },
    { "hCpuThread != MNULL", { OnNull<OsServices_CpuThread_Join>, OnNull<OsServices_CpuThread_Destroy> } },
    { "hSpinLock != MNULL", {
        OnNull<OsServices_SpinLock_Create>, OnNull<OsServices_SpinLock_Destroy>, OnNull<OsServices_SpinLock_Lock>,
        OnNull<OsServices_SpinLock_Unlock> } },
    { "hMutex != MNULL", {
        OnNull<OsServices_Mutex_Create>, OnNull<OsServices_Mutex_Destroy>, OnNull<OsServices_Mutex_Acquire>,
        OnNull<OsServices_Mutex_Release> } },
    { "hEvent != MNULL", {
        OnNull<OsServices_Event_Create>, OnNull<OsServices_Event_Destroy>, OnNull<OsServices_Event_Wait>,
        OnNull<OsServices_Event_Trigger>, OnNull<OsServices_Event_Reset>, OnNull<OsServices_Event_Cancel>,
        OnNull<OsServices_Event_Activate> } },
    { "hSignal != MNULL", {
        OnNull<OsServices_Signal_Create>, OnNull<OsServices_Signal_Destroy>, OnNull<OsServices_Signal_Wait>,
        OnNull<OsServices_Signal_Trigger>, OnNull<OsServices_Signal_Cancel>, OnNull<OsServices_Signal_Activate> } },
    { "MFALSE", { // calls of the system that must not fail
        OnRefusal<OsServices_SpinLock_Destroy, &Calls::pfnSpinDestroy>, OnRefusal<Lock, &Calls::pfnSpinLock>,
        OnRefusal<OsServices_SpinLock_Unlock, &Calls::pfnSpinUnlock>, ReleaseFreeMutex, DestroyHeldMutex } },
};
// clang-format on
}

TEST(ClientDeathTest, EachGuardStopsTheProcess)
{
    for (const SGroup& oGroup : gsc_aoGroups)
    {
        const std::string sText = std::string("Assertion `") + oGroup.m_pszExpression + "' failed.";
        for (void (*const& pfnCall)() : oGroup.m_apfnCalls)
        {
            EXPECT_DEATH(pfnCall(), testing::HasSubstr(sText)) << &pfnCall - oGroup.m_apfnCalls.data();
        }
    }
}
