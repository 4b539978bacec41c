// Starts a thread, waits for its event with a limit, and says how long that took. With an argument it looks for a PCI
// device instead: 0x0108 is bus 1, device 1, function 0.

#include <stdio.h>
#include <stdlib.h>

#include "OsServices.h"
#include "ZorLibrary.h"

namespace
{
constexpr unsigned int gsc_uiWorkMilliseconds = 20;
constexpr unsigned int gsc_uiLimitMilliseconds = 10000;

struct SWork
{
    OsServices& m_oServices;
    SHEvent* m_hDone;
};

unsigned int Work(void* pvContext)
{
    const SWork& oWork = *static_cast<SWork*>(pvContext);
    OsServices::SleepMilliSeconds(gsc_uiWorkMilliseconds); // here a real program would do something
    oWork.m_oServices.Event_Trigger(oWork.m_hDone);
    return 0;
}

// Whether the thread answered; says why not. The event must outlive the thread, so the thread is joined whatever the
// wait gave.
bool RunAndWait(OsServices& oServices, SHEvent* hDone)
{
    SWork oWork = { oServices, hDone };
    SHCpuThread* hThread = nullptr;
    if (oServices.CpuThread_Create(Work, &oWork, hThread) == 0)
    {
        printf("The thread could not be started.\n");
        return false;
    }
    const bool bAnswered = oServices.Event_Wait(hDone, gsc_uiLimitMilliseconds) == eOsServicesWaitReleased;
    oServices.CpuThread_Join(hThread);
    oServices.CpuThread_Destroy(hThread);
    if (!bAnswered)
    {
        printf("The thread did not answer within %u ms.\n", gsc_uiLimitMilliseconds);
    }
    return bAnswered;
}

int TellWhetherPciDeviceExists(const char* pszHandle)
{
    const unsigned int uiHandle = static_cast<unsigned int>(strtoul(pszHandle, nullptr, 0));
    const bool bFound = ZorVxdPciLibConvertHandle(uiHandle) != nullptr;
    printf("PCI device 0x%04X: %s.\n", uiHandle, bFound ? "found" : "not found");
    return bFound ? 0 : 1;
}

int TellHowLongAThreadTakes(OsServices& oServices)
{
    SHEvent* hDone = nullptr;
    if (oServices.Event_Create(hDone) == 0)
    {
        printf("The event could not be made.\n");
        return 1;
    }
    unsigned long long uiBefore = 0;
    unsigned long long uiAfter = 0;
    tmCounter(&uiBefore);
    const bool bAnswered = RunAndWait(oServices, hDone);
    tmCounter(&uiAfter);
    oServices.Event_Destroy(hDone);

    if (!bAnswered)
    {
        return 1;
    }
    printf("The thread answered after %llu microseconds.\n", uiAfter - uiBefore);
    return 0;
}
} // namespace

int main(int iCount, char** ppszArguments)
{
    OsServices oServices(nullptr); // its end also ends the look-up
    return iCount == 2 ? TellWhetherPciDeviceExists(ppszArguments[1]) : TellHowLongAThreadTakes(oServices);
}
