// What the tests of the operating-system layer share.

#pragma once

#include <chrono>
#include <stddef.h>

#include "OsServices.h"

// Reaches what only tests may set or see.
class COsServicesTestAccess
{
public:
    static void SetRandomState(unsigned int uiState) { OsServices::ms_uiOldRandomValue = uiState; }
    static unsigned int GetInstanceCount() { return OsServices::ms_uiInstanceCount; }
    static int IsInitialized(const OsServices& oServices) { return oServices.m_bIsInitialized; }
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

// Measures on the monotonic clock.
class CStopwatch
{
public:
    long long GetMicroseconds() const
    {
        return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - m_oStart)
            .count();
    }

private:
    std::chrono::steady_clock::time_point m_oStart = std::chrono::steady_clock::now();
};

// How much longer than asked a wait may last on a busy machine.
inline constexpr long long gsc_iPatienceMicroseconds = 20000000;

// Blocks from operator new and new[] that are not freed yet, and the last one of a single byte. Always 0 and null where
// a checker brings operator new itself.
long GetLiveBlockCount();
const void* GetLastSingleByteBlock();
