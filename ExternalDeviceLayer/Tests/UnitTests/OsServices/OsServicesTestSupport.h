// What the tests of the operating-system layer share.

#pragma once

#include <chrono>
#include <gtest/gtest.h>

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

// The operation lasts at least so long on the monotonic clock; longer as a busy machine has it, but not for ever.
template <class OPERATION>
void ExpectLasting(long long iMicroseconds, OPERATION fnOperation)
{
    constexpr long long iPatience = 20000000;
    using std::chrono::steady_clock;
    const steady_clock::time_point oStart = steady_clock::now();
    fnOperation();
    const auto oLasted = std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - oStart);
    EXPECT_GE(oLasted.count(), iMicroseconds);
    EXPECT_LT(oLasted.count(), iPatience);
}

// Whether operator new is this program's own; not where a checker brings one.
bool IsHeapCounted();
// Blocks from operator new and new[] that are not freed yet; always 0 where the heap is not counted.
long GetLiveBlockCount();
// The last block of a single byte.
const void* GetLastSingleByteBlock();
// Lets the next operator new that does not throw give null, where the heap is counted.
void FailNextNothrowNew();
