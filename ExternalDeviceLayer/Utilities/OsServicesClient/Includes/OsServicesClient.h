/// The client layer: flat functions that hold what depends on the platform. The class OsServices calls them, owns the
/// memory of the handles and is what programs normally use; there the operations are explained.
///
/// The functions work in place on a record that the caller provides (OsServices_..._GetHandleSize bytes, aligned as
/// operator new[] aligns) and never allocate or free it. Results: 1 for success and 0 for failure unless stated
/// otherwise.
///
/// A null handle, and a failing system call where the text below says so, stop the process through the platform's
/// assertion, in every build type: they are faults of the calling code.
///
/// All but OsServices_WriteMsg lie in the target zor_os_services.

#pragma once

#include <stdarg.h>

#pragma GCC visibility push(default)

/// Opaque records. Sizes on x86-64 Linux: thread 8, spin lock 4, mutex 40, event 96, signal 96, stack trace 4 bytes.
struct SHCpuThread;
struct SHSpinLock;
struct SHMutex;
struct SHEvent;
struct SHSignal;
struct SStackTrace;
struct SNonPagedMem; ///< has no content on this platform

/// Results of OsServices_Event_Wait and OsServices_Signal_Wait.
enum EOsServicesWait : int
{
    eOsServicesWaitReleased = 0,    ///< the event was triggered, or the signal fired
    eOsServicesWaitTimedOut = -3,   ///< the time ran out
    eOsServicesWaitCancelled = -12, ///< the object is cancelled, or an unlimited wait failed
};

/// A timeout of this many milliseconds means no limit.
inline constexpr unsigned int gsc_uiOsServicesNoLimit = 0xFFFFFFFF;

// ---- Messages ----

/// Writes to standard output, the one destination of all message levels. Returns what vfprintf returns.
int OsServices_WriteMsg(const char* pszFormat, va_list oList) __attribute__((format(printf, 1, 0)));

// ---- Start and stop. Each returns 1; a failure of the low-level layer stops the process. ----

int OsServices_Initialize();
int OsServices_Cleanup();

// ---- Time ----

unsigned long long OsServices_GetRawTimeInNs(); ///< nanoseconds of the wall clock since the epoch; 0 on failure
unsigned long long OsServices_GetTimeInMs();
int OsServices_WaitMicroSeconds(unsigned int uiDelay); ///< busy wait, whatever the length; always 1
int OsServices_SleepMilliSeconds(unsigned int uiDelay);
unsigned long OsServices_GetCurrentThreadId();
int OsServices_IsThreadIdEqual(unsigned long uiFirst, unsigned long uiSecond);

// ---- Memory and copies ----

void* OsServices_PagedMemory_Alloc(unsigned long uiSize);
void OsServices_PagedMemory_Free(void* pMemory);
int OsServices_NonPagedMemory_Alloc(unsigned long uiSize, SNonPagedMem** ppoMemory);
unsigned int OsServices_NonPagedMemory_GetPhysicalAddress(SNonPagedMem* poMemory);
void OsServices_NonPagedMemory_Free(SNonPagedMem* poMemory);
int OsServices_CopyFromUser(void* pSource, void* pDestination, unsigned int uiSize);
int OsServices_CopyToUser(void* pSource, void* pDestination, unsigned int uiSize);
void* OsServices_IoMap(unsigned long uiAddress, unsigned int uiSize, int bMode);
unsigned int OsServices_IoUnMap(void* pAddress, unsigned int uiSize);

// ---- Stack traces: not supported. Print and Dump write one line to standard output, whatever the handle. ----

unsigned int OsServices_StackTrace_GetHandleSize();
int OsServices_StackTrace_Create(SStackTrace* hStackTrace);
int OsServices_StackTrace_Destroy(SStackTrace* hStackTrace);
int OsServices_StackTrace_Save(SStackTrace* hStackTrace);
void OsServices_StackTrace_Print(SStackTrace* hStackTrace);
void OsServices_StackTrace_Dump();

// ---- Threads. A null function stops the process as a null handle does. ----

unsigned int OsServices_CpuThread_GetHandleSize();
int OsServices_CpuThread_Create(unsigned int (*pfnThreadFunction)(void*), void* pvContext, SHCpuThread* hCpuThread);
int OsServices_CpuThread_Join(SHCpuThread* hCpuThread);
int OsServices_CpuThread_Destroy(SHCpuThread* hCpuThread);

// ---- Spin locks. A failing destroy, lock or unlock stops the process. ----

unsigned int OsServices_SpinLock_GetHandleSize();
int OsServices_SpinLock_Create(SHSpinLock* hSpinLock, unsigned char ui8HostProperty); ///< the byte has no effect here
int OsServices_SpinLock_Destroy(SHSpinLock* hSpinLock);
int OsServices_SpinLock_Lock(SHSpinLock* hSpinLock, int iMode); ///< the mode has no effect here
int OsServices_SpinLock_Unlock(SHSpinLock* hSpinLock);

// ---- Mutexes. A failing destroy (still held) or release (not the owner) stops the process. ----

unsigned int OsServices_Mutex_GetHandleSize();
int OsServices_Mutex_Create(SHMutex* hMutex);
int OsServices_Mutex_Destroy(SHMutex* hMutex);
int OsServices_Mutex_Acquire(SHMutex* hMutex, unsigned int uiTimeout);
int OsServices_Mutex_Release(SHMutex* hMutex);

// ---- Events ----

unsigned int OsServices_Event_GetHandleSize();
int OsServices_Event_Create(SHEvent* hEvent);
int OsServices_Event_Destroy(SHEvent* hEvent);
int OsServices_Event_Wait(SHEvent* hEvent, unsigned int uiTimeout);
int OsServices_Event_Trigger(SHEvent* hEvent);
int OsServices_Event_Reset(SHEvent* hEvent);
int OsServices_Event_Cancel(SHEvent* hEvent);
int OsServices_Event_Activate(SHEvent* hEvent);

// ---- Signals ----

unsigned int OsServices_Signal_GetHandleSize();
int OsServices_Signal_Create(SHSignal* hSignal);
int OsServices_Signal_Destroy(SHSignal* hSignal);
int OsServices_Signal_Wait(SHSignal* hSignal, unsigned int uiTimeout, unsigned long uiData);
int OsServices_Signal_Trigger(SHSignal* hSignal);
int OsServices_Signal_Cancel(SHSignal* hSignal);
int OsServices_Signal_Activate(SHSignal* hSignal);

#pragma GCC visibility pop
