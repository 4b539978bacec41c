// What the tests of the operating-system layer share: calls of the system replaced and watched, and leaks found.

#pragma once

#include <atomic>
#include <gtest/gtest.h>
#include <malloc.h>
#include <tuple>

#include "CaseFile.h"
#include "OsServices.h"
#include "OsServicesClient_LinuxCalls.h"
#include "ZorVxdPciLib_Linux.h"

// Each test may replace calls; afterwards they are as they were.
class COsTest : public testing::Test
{
protected:
    ~COsTest() override { RestoreCalls(); }

    void RestoreCalls() const
    {
        g_oOsServicesCalls = m_oServicesCalls;
        g_oZorVxdSystemCalls = m_oSystemCalls;
        g_oZorVxdPciLibCalls = m_oPciLibCalls;
    }

private:
    const SOsServicesCalls m_oServicesCalls = g_oOsServicesCalls;
    const SZorVxdSystemCalls m_oSystemCalls = g_oZorVxdSystemCalls;
    const SZorVxdPciLibCalls m_oPciLibCalls = g_oZorVxdPciLibCalls;
};

// A call of a record, as in SWatched<&SOsServicesCalls::pfnSleep>: how often it was made and with what the last time.
template <auto CALL>
struct SWatched;
template <class CALLS, class RESULT, class... ARGUMENTS, RESULT (*CALLS::*CALL)(ARGUMENTS...)>
struct SWatched<CALL>
{
    static inline std::atomic<unsigned int> ms_uiCount = 0;
    static inline std::tuple<ARGUMENTS...> ms_oLast;
    static inline RESULT (*ms_pfnCall)(ARGUMENTS...) = nullptr;

    // From now on. The call does what pfnCall does.
    static void Start(CALLS& oCalls, RESULT (*pfnCall)(ARGUMENTS...))
    {
        ms_uiCount = 0;
        ms_oLast = {};
        ms_pfnCall = pfnCall;
        oCalls.*CALL = [](ARGUMENTS... oArguments) {
            ++ms_uiCount;
            ms_oLast = { oArguments... };
            return ms_pfnCall(oArguments...);
        };
    }
    static void Start(CALLS& oCalls) { Start(oCalls, oCalls.*CALL); }
};

template <class... WATCHED>
void Watch(auto& oCalls)
{
    (WATCHED::Start(oCalls), ...);
}

// Many times over, the operation leaks no block; the smallest takes 32 bytes of the heap. Under a sanitizer,
// which has a heap of its own, only its search for leaks sees such blocks.
template <class OPERATION>
void ExpectNoLeak(OPERATION fnOperation)
{
    size_t uiHeld = 0; // once the heap has what it keeps ready
    for (int i = 0; i < 64; ++i)
    {
        uiHeld = i == 32 ? mallinfo2().uordblks : uiHeld;
        fnOperation();
    }
    EXPECT_LT(mallinfo2().uordblks, uiHeld + 32 * 16);
}
