// What the tests of the operating-system layer share.

#pragma once

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <tuple>

#include "OsServices.h"

// Reaches what only tests may set or see.
class COsServicesTestAccess
{
public:
    static void SetRandomState(unsigned int uiState) { OsServices::ms_uiOldRandomValue = uiState; }
    static unsigned char GetHostProperty(const OsServices& oServices) { return oServices.m_ui8HostProperty; }
};

// Puts a record of calls back to what it was.
template <class CALLS>
class CRestored
{
public:
    explicit CRestored(CALLS& oCalls) : m_oCalls(oCalls), m_oSaved(oCalls) {}
    ~CRestored() { m_oCalls = m_oSaved; }
    CRestored(const CRestored&) = delete;
    CRestored& operator=(const CRestored&) = delete;

private:
    CALLS& m_oCalls;
    const CALLS m_oSaved;
};

// A call of a record, as in SWatched<&SOsServicesCalls::pfnSleep>: how often it was made and with what the last time.
template <auto CALL>
struct SWatched;
template <class CALLS, class RESULT, class... ARGUMENTS, RESULT (*CALLS::*CALL)(ARGUMENTS...)>
struct SWatched<CALL>
{
    static inline std::atomic<int> ms_iCount = 0;
    static inline std::tuple<ARGUMENTS...> ms_oLast;

    // From now on; the call does what pfnCall does, or else what it did.
    static void Start(CALLS& oCalls, RESULT (*pfnCall)(ARGUMENTS...) = nullptr)
    {
        ms_iCount = 0;
        ms_oLast = {};
        if (pfnCall != nullptr || oCalls.*CALL != Run)
        {
            ms_pfnCall = pfnCall != nullptr ? pfnCall : oCalls.*CALL;
        }
        oCalls.*CALL = Run;
    }

private:
    static inline RESULT (*ms_pfnCall)(ARGUMENTS...) = nullptr;

    static RESULT Run(ARGUMENTS... oArguments)
    {
        ++ms_iCount;
        ms_oLast = { oArguments... };
        return ms_pfnCall(oArguments...);
    }
};

// The operation lasts at least so long on the monotonic clock; longer as a busy machine has it, but not for ever.
template <class OPERATION>
void ExpectLasting(long long iMicroseconds, OPERATION fnOperation)
{
    const std::chrono::steady_clock::time_point oStart = std::chrono::steady_clock::now();
    fnOperation();
    const std::chrono::steady_clock::duration oLasted = std::chrono::steady_clock::now() - oStart;
    EXPECT_GE(oLasted, std::chrono::microseconds(iMicroseconds));
    EXPECT_LT(oLasted, std::chrono::seconds(20));
}

// Whether operator new is this program's own; not where a checker brings one.
bool IsHeapCounted();
// Blocks from operator new and new[] that are not freed yet; always 0 where the heap is not counted.
long GetLiveBlockCount();
// The last block of a single byte.
const void* GetLastSingleByteBlock();
// Lets the next operator new that does not throw give null, where the heap is counted.
void FailNextNothrowNew();
