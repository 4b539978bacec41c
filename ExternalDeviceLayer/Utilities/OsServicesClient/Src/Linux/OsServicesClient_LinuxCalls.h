// What the client layer shares between its sources: the system calls that tests replace, the deadline of timed waits
// and the assertion that stops the process. Private to the client layer and its tests.

#pragma once

#include <cstddef>
#include <pthread.h>
#include <time.h>
#include <unistd.h>

#include "ZorVxd_Linux.h"

// The calls whose failure or arguments tests bring about or look at. Each is the POSIX call of its name.
struct SOsServicesCalls
{
    int (*pfnThreadCreate)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    int (*pfnThreadCancel)(pthread_t);
    int (*pfnSpinInit)(pthread_spinlock_t*, int);
    int (*pfnSpinDestroy)(pthread_spinlock_t*);
    int (*pfnSpinLock)(pthread_spinlock_t*);
    int (*pfnSpinUnlock)(pthread_spinlock_t*);
    int (*pfnMutexAttributeInit)(pthread_mutexattr_t*);
    int (*pfnMutexInit)(pthread_mutex_t*, const pthread_mutexattr_t*);
    int (*pfnMutexDestroy)(pthread_mutex_t*);
    int (*pfnConditionInit)(pthread_cond_t*, const pthread_condattr_t*);
    int (*pfnConditionWait)(pthread_cond_t*, pthread_mutex_t*);
    int (*pfnConditionTimedWait)(pthread_cond_t*, pthread_mutex_t*, const timespec*);
    int (*pfnConditionSignal)(pthread_cond_t*);
    int (*pfnConditionBroadcast)(pthread_cond_t*);
    int (*pfnGetClock)(clockid_t, timespec*);
    int (*pfnSleep)(useconds_t);
};

extern SOsServicesCalls g_oOsServicesCalls;

// The point on the clock of oNow that lies uiTimeout milliseconds later.
constexpr timespec OsServices_GetDeadline(const timespec& oNow, unsigned int uiTimeout)
{
    return ZorVxdAddTime(oNow, uiTimeout / 1000, static_cast<long>(uiTimeout % 1000) * 1000000);
}

// ---- The assertions of the client layer. They stop the process in every build type. ----

inline constexpr std::nullptr_t MNULL = nullptr;

// The C library's own; <assert.h> hides it in builds without assertions.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the C library's
extern "C" void __assert_fail(const char* pszExpression, const char* pszFile, unsigned int uiLine,
                              const char* pszFunction) noexcept __attribute__((noreturn));

#define OS_CLIENT_STOP_UNLESS(condition, text)                                                                         \
    do                                                                                                                 \
    {                                                                                                                  \
        if (!(condition))                                                                                              \
        {                                                                                                              \
            __assert_fail(text, __FILE__, __LINE__, static_cast<const char*>(__func__));                               \
        }                                                                                                              \
    } while (false)

// A mistake of the caller: stops with the text of the condition.
#define OS_CLIENT_ASSERT(condition) OS_CLIENT_STOP_UNLESS(condition, #condition)

// A system call that must not fail. Takes its outcome, never the call itself; stops with the text "MFALSE".
#define OS_CLIENT_REQUIRE(succeeded) OS_CLIENT_STOP_UNLESS(succeeded, "MFALSE")
