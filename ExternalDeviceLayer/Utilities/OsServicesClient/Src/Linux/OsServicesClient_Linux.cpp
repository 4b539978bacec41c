// Start and stop, time, memory and stack traces of the Linux client. Threads and locks are in
// OsServicesClient_LinuxSync.cpp, the message writer in OsServicesClient_LinuxMessages.cpp.

#include "OsServicesClient.h"

#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "OsServicesClient_LinuxCalls.h"
#include "ZorLibrary.h"

struct SStackTrace
{
    unsigned int m_uiUnused; // a handle needs a size
};
static_assert(sizeof(SStackTrace) == 4);

constinit SOsServicesCalls g_oOsServicesCalls = {
    pthread_create,        pthread_cancel,         pthread_spin_init,      pthread_spin_destroy,
    pthread_spin_lock,     pthread_spin_unlock,    pthread_mutexattr_init, pthread_mutex_init,
    pthread_mutex_destroy, pthread_cond_init,      pthread_cond_wait,      pthread_cond_timedwait,
    pthread_cond_signal,   pthread_cond_broadcast, clock_gettime,          usleep,
};

int OsServices_Initialize()
{
    const unsigned int bStarted = InitZORLibrary();
    OS_CLIENT_REQUIRE(bStarted != 0);
    return 1;
}

int OsServices_Cleanup()
{
    const unsigned int bStopped = ReleaseZORLibrary();
    OS_CLIENT_REQUIRE(bStopped != 0);
    return 1;
}

unsigned long long OsServices_GetRawTimeInNs()
{
    timespec oNow = {}; // stays zero when the clock cannot be read
    g_oOsServicesCalls.pfnGetClock(CLOCK_REALTIME, &oNow);
    return static_cast<unsigned long long>(oNow.tv_sec) * gsc_iNanosecondsPerSecond +
           static_cast<unsigned long long>(oNow.tv_nsec);
}

unsigned long long OsServices_GetTimeInMs() { return OsServices_GetRawTimeInNs() / 1000000; }

int OsServices_WaitMicroSeconds(unsigned int uiDelay)
{
    if (uiDelay != 0)
    {
        tmDelay(uiDelay);
    }
    return 1;
}

int OsServices_SleepMilliSeconds(unsigned int uiDelay)
{
    return g_oOsServicesCalls.pfnSleep(uiDelay * 1000) == 0 ? 1 : 0;
}

unsigned long OsServices_GetCurrentThreadId() { return pthread_self(); }

int OsServices_IsThreadIdEqual(unsigned long uiFirst, unsigned long uiSecond) { return uiFirst == uiSecond ? 1 : 0; }

void* OsServices_PagedMemory_Alloc(unsigned long uiSize) { return malloc(uiSize); }

void OsServices_PagedMemory_Free(void* pMemory) { free(pMemory); }

int OsServices_NonPagedMemory_Alloc(unsigned long /*uiSize*/, SNonPagedMem** /*ppoMemory*/) { return 0; }

unsigned int OsServices_NonPagedMemory_GetPhysicalAddress(SNonPagedMem* /*poMemory*/) { return 0; }

void OsServices_NonPagedMemory_Free(SNonPagedMem* /*poMemory*/) {}

int OsServices_CopyFromUser(void* pSource, void* pDestination, unsigned int uiSize)
{
    memcpy(pDestination, pSource, uiSize);
    return 1;
}

int OsServices_CopyToUser(void* pSource, void* pDestination, unsigned int uiSize)
{
    // The same direction: a process of its own has no user boundary to cross.
    return OsServices_CopyFromUser(pSource, pDestination, uiSize);
}

void* OsServices_IoMap(unsigned long uiAddress, unsigned int uiSize, int bMode)
{
    if (bMode != 0)
    {
        void* const pAddress = memMap64(uiAddress, uiSize, 1);
        if (pAddress != nullptr)
        {
            return pAddress;
        }
    }
    return memMap64(uiAddress, uiSize, 0);
}

unsigned int OsServices_IoUnMap(void* pAddress, unsigned int /*uiSize*/) { return memUnmap(pAddress); }

unsigned int OsServices_StackTrace_GetHandleSize() { return sizeof(SStackTrace); }

int OsServices_StackTrace_Create(SStackTrace* /*hStackTrace*/) { return 1; }

int OsServices_StackTrace_Destroy(SStackTrace* /*hStackTrace*/) { return 1; }

int OsServices_StackTrace_Save(SStackTrace* /*hStackTrace*/) { return 1; }

void OsServices_StackTrace_Print(SStackTrace* /*hStackTrace*/) { OsServices_StackTrace_Dump(); }

void OsServices_StackTrace_Dump() { puts("Print stack not supported in this configuration"); }
