/// OsServices: the library's view of the operating system.
///
/// The message members are static: they need no object, and they are all that the EDID side uses (target
/// zor_os_messages). The other members come from the target zor_os_services, which also links threads and libpci.
///
/// Results: 1 for success and 0 for failure unless stated otherwise. Timeouts are milliseconds, gsc_uiOsServicesNoLimit
/// means no limit. Null handles and system calls that must not fail stop the process (OsServicesClient.h).

#pragma once

#include <stdarg.h>

#include "OsServicesClient.h" // handle types, wait results

#pragma GCC visibility push(default)

/// An outside object that takes over the creating and triggering of events and signals, for a program in which other
/// parties wait for them too. Each operation replaces the one of the same name in OsServices, result included; waiting,
/// resetting, cancelling, activating and destroying do not ask the host. So a host that creates handles
///   - takes the memory of an event from ::operator new[](OsServices_Event_GetHandleSize()),
///   - makes the record in it with OsServices_Event_Create, or gives the memory back and stores null when that fails,
///   - and leaves both to OsServices::Event_Destroy, which ends the record and frees the memory with operator delete[];
/// with signals and the OsServices_Signal_* functions likewise (OsServicesClient.h). Its triggers may add to
/// OsServices_Event_Trigger and OsServices_Signal_Trigger, which are what wakes the waiters.
/// The order of the operations is fixed. The host is not owned and must outlive the OsServices objects that use it.
class OsServicesHost
{
public:
    virtual int Event_Create(SHEvent*& hEvent) = 0;
    virtual int Event_Trigger(SHEvent* hEvent) = 0;
    virtual int Signal_Create(SHSignal*& hSignal) = 0;
    virtual int Signal_Trigger(SHSignal* hSignal) = 0;
    /// A byte that is asked for once, at construction, and handed to the client with each spin lock.
    virtual unsigned char GetHostProperty() = 0;

protected:
    ~OsServicesHost() = default; ///< not virtual: a destructor would take slots of its own
};

class OsServices
{
public:
    // ---- The object. The first one starts the client layer, the last one stops it (and with it the PCI look-up). ----
    /// Objects are created and destroyed from one thread at a time.

    /// poHost  null, or a pointer of exactly the type OsServicesHost* (convert a derived pointer before it becomes
    /// void*).
    explicit OsServices(void* poHost);
    virtual ~OsServices();
    OsServices(const OsServices&) = delete;
    OsServices& operator=(const OsServices&) = delete;
    OsServices(OsServices&&) = delete;
    OsServices& operator=(OsServices&&) = delete;

    // ---- Messages. One line on standard output: head "PREFIX[ID]: (Level) ", then the caller's text. ----
    /// The caller's format carries its own line end. Head and text are two writes; nothing is flushed.
    /// The switches and the writer are plain unlocked words: set them from one thread, before others write.

    /// Takes over all writing of messages from the client, which writes to standard output: head and text come to
    /// pfnWriter one after the other, each with its format and arguments, in the thread that has the message. The
    /// writer must be safe to call from every thread that uses the library, and must not call the message members.
    ///   pfnWriter  null, as at start, is the client's writer
    using CMsgWriter = void (*)(const char* pszFormat, va_list oList);
    static void SetMsgWriter(CMsgWriter pfnWriter);

    static void WriteErrorMsg(const char* pszFormat, ...) __attribute__((format(printf, 1, 2))); ///< "(Error)"
    static void WriteUserMsg(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));  ///< "(Info)"
    static void WriteMsg(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));      ///< "(Debug)"

    /// While one exists, its thread writes no line, whatever the gates and the writer. They nest. For callers that want
    /// answers alone, as those of a library in another language do.
    class CMsgPause
    {
    public:
        CMsgPause();
        ~CMsgPause();
        CMsgPause(const CMsgPause&) = delete;
        CMsgPause& operator=(const CMsgPause&) = delete;
    };

    /// Writes the text at once, without gate, head and pause.
    static void WriteMsgInternal(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));

    /// The three gates. Any non-zero value is on; values are kept as given. At start: error and user on, debug off.
    static void SetMsgLevel(int bError, int bUser, int bInfo);
    /// Each pointer may be null.
    static void GetMsgLevel(int* pbError, int* pbUser, int* pbInfo);

    /// First field of the head, "nr4" at start; cut to 63 characters.
    static void SetMsgPrefix(const char* pszPrefix);
    /// 0 leaves the head out.
    static void SetMsgPrefixEnable(int bEnable);
    /// Second field of the head, 0 at start.
    static void SetMsgReferenceId(unsigned long uiId);

    /// The part of a path after its last slash or backslash, as a pointer into pszPath. A separator that is the very
    /// first character does not count; a path that ends in a separator gives an empty text.
    static const char* GetFileNameOnlySubSring(const char* pszPath);

    // ---- Time. Needs no object. ----

    /// Wall clock since the epoch, in nanoseconds; it follows changes of the clock. 0 when the clock cannot be read.
    static unsigned long long GetRawTimeInNs();
    /// The same in milliseconds, rounded down.
    static unsigned long long GetTimeInMs();
    /// Waits uiDelay microseconds. Up to 100000 it keeps the processor busy for at least that long. Above that it
    /// sleeps uiDelay / 1000 whole milliseconds, up to 999 microseconds less than asked, and says so on the debug
    /// channel. A delay of 0 returns 1 at once. Returns 0 when the sleep fails.
    static int WaitMicroSeconds(unsigned int uiDelay);
    /// Sleeps. The delay is counted in microseconds in 32 bits: above 4294967 it wraps to a shorter one.
    static int SleepMilliSeconds(unsigned int uiDelay);
    static unsigned long GetCurrentThreadId();
    static int IsThreadIdEqual(unsigned long uiFirst, unsigned long uiSecond);

    // ---- Memory and copies. Needs no object. ----

    /// Owned by the caller until PagedMemory_Free. Null when memory runs out.
    static void* PagedMemory_Alloc(unsigned long uiSize);
    /// Null is allowed.
    static void PagedMemory_Free(void* pMemory);

    /// This platform has no such memory: Alloc gives 0 and leaves *ppoMemory alone, the address is 0, Free does
    /// nothing.
    static int NonPagedMemory_Alloc(unsigned long uiSize, SNonPagedMem** ppoMemory);
    static unsigned int NonPagedMemory_GetPhysicalAddress(SNonPagedMem* poMemory);
    static void NonPagedMemory_Free(SNonPagedMem* poMemory);

    /// Both copy uiSize bytes from the first argument to the second; the areas may not overlap. Always 1.
    static int CopyFromUser(void* pSource, void* pDestination, unsigned int uiSize);
    static int CopyToUser(void* pSource, void* pDestination, unsigned int uiSize);

    /// Maps uiSize bytes of physical memory from uiAddress on, for reading and writing; needs the rights of /dev/mem.
    ///   bMode  0 asks for mode 0 only; any other value asks for mode 1 first and for mode 0 if that fails.
    /// Null on failure, with the cause in errno. One thread at a time may map and unmap.
    static void* IoMap(unsigned long uiAddress, unsigned int uiSize, int bMode);
    /// pAddress  exactly what IoMap gave. uiSize has no effect. 0 when it is not a live mapping.
    static unsigned int IoUnMap(void* pAddress, unsigned int uiSize);

    // ---- Maths without a maths library. Needs no object. ----

    /// -0.0 stays -0.0; a NaN comes back with its sign bit flipped.
    static double Fabs(double dValue);
    /// Exact for magnitudes below 2^64; other values, infinities and NaN come back as they are. A result of zero is
    /// always +0.0, also for -0.0 and, with Ceil, for values between -1.0 and 0.0.
    static double Floor(double dValue);
    static double Ceil(double dValue);

    /// A cheap source of varying numbers, no statistical one and not for secrets. Seeded from the heap, so no run
    /// repeats.
    static unsigned int GetRandom();

    // ---- Stack traces. Not supported on this platform: Print and Dump write one line that says so. ----

    static int StackTrace_Create(SStackTrace*& hStackTrace);
    static int StackTrace_Destroy(SStackTrace* hStackTrace);
    static int StackTrace_Save(SStackTrace* hStackTrace);
    static void StackTrace_Print(SStackTrace* hStackTrace);
    static void StackTrace_Dump();

    // ---- Handles. Create makes one and stores it, or gives 0 and stores null with no memory held. ----
    /// Create throws only when memory for the handle itself runs out: std::bad_alloc; the caller's handle then stays as
    /// it was. The caller owns a handle until Destroy, which frees it; no other thread may be inside an operation on it
    /// then.

    /// Starts a thread that runs pfnThreadFunction(pvContext); what that returns is dropped.
    int CpuThread_Create(unsigned int (*pfnThreadFunction)(void*), void* pvContext, SHCpuThread*& hCpuThread);
    /// Waits for the end of the thread. 0 when it was joined before.
    int CpuThread_Join(SHCpuThread* const& hCpuThread);
    /// Cancels the thread if it was not joined, and does not wait for its end. A thread that is never joined keeps its
    /// resources until the process ends.
    int CpuThread_Destroy(SHCpuThread* hCpuThread);

    /// A lock that keeps the processor busy while it waits; private to the process, not recursive.
    int SpinLock_Create(SHSpinLock*& hSpinLock);
    int SpinLock_Destroy(SHSpinLock* hSpinLock);
    int SpinLock_Lock(SHSpinLock* hSpinLock);
    int SpinLock_Unlock(SHSpinLock* hSpinLock);

    /// The owner may acquire a mutex again; it then needs as many releases.
    int Mutex_Create(SHMutex*& hMutex);
    int Mutex_Destroy(SHMutex* hMutex);
    /// 0 when the time ran out or the acquire failed; the mutex is then not held.
    int Mutex_Acquire(SHMutex* hMutex, unsigned int uiTimeout);
    int Mutex_Release(SHMutex* hMutex);

    /// An event remembers one trigger and releases one waiter. It starts active and not triggered.
    int Event_Create(SHEvent*& hEvent);
    int Event_Destroy(SHEvent* hEvent);
    /// An EOsServicesWait value. Every return, also by timeout, clears the trigger. A wake-up counts as the event
    /// without a second look. The deadline lies on the wall clock, so setting that clock shifts a running timeout.
    int Event_Wait(SHEvent* hEvent, unsigned int uiTimeout);
    /// 0 when the event is cancelled.
    int Event_Trigger(SHEvent* hEvent);
    int Event_Reset(SHEvent* hEvent);
    /// Releases all waiters and makes later waits return eOsServicesWaitCancelled until Event_Activate. Also sets the
    /// trigger, which survives activation. 0 when already cancelled.
    int Event_Cancel(SHEvent* hEvent);
    int Event_Activate(SHEvent* hEvent);

    /// A signal remembers nothing: it wakes all who wait at that moment. It starts active.
    int Signal_Create(SHSignal*& hSignal);
    int Signal_Destroy(SHSignal* hSignal);
    /// An EOsServicesWait value. uiData has no effect on this platform.
    int Signal_Wait(SHSignal* hSignal, unsigned int uiTimeout, unsigned long uiData);
    /// 0 when the signal is cancelled.
    int Signal_Trigger(SHSignal* hSignal);
    /// Releases all waiters; later waits return eOsServicesWaitCancelled until Signal_Activate. 0 when already
    /// cancelled.
    int Signal_Cancel(SHSignal* hSignal);
    int Signal_Activate(SHSignal* hSignal);

private:
    friend class COsServicesTestAccess; ///< the unit tests set the random state and look at the host's byte

    static void WriteText(const char* pszFormat, va_list oList) __attribute__((format(printf, 1, 0)));
    /// Head and text of one line, or nothing when bEnable is 0. The head's format takes prefix and reference id.
    static void WriteLine(int bEnable, const char* pszHeadFormat, const char* pszFormat, va_list oList)
        __attribute__((format(printf, 3, 0)));

    int m_bIsInitialized; ///< 1 when this object counts as an instance
    void* m_poHost;       ///< an OsServicesHost, or null
    unsigned char m_ui8HostProperty;

    static unsigned int ms_uiInstanceCount;
    static unsigned int ms_uiOldRandomValue; ///< 0: not seeded

    static constexpr unsigned int msc_uiMsgPrefixSize = 64; ///< characters, with the terminator

    static int ms_bEnableErrorMsg;
    static int ms_bEnableUserMsg;
    static int ms_bEnableInfo;
    static int ms_bIsMessagePrefixEnabled;
    static char ms_szMsgPrefix[msc_uiMsgPrefixSize];
    static unsigned long ms_uiReferenceId;
    static CMsgWriter ms_pfnMsgWriter; ///< null: the client's writer
};

#pragma GCC visibility pop
