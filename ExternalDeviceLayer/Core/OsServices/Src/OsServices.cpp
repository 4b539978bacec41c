// The OsServices object, and its services for time, memory, doubles, random numbers and stack traces. Messages are in
// OsServicesMessages.cpp, threads and locks in OsServicesSync.cpp.

#include "OsServices.h"

#include <bit>
#include <new>
#include <stdint.h>

#include "OsServicesClient.h"
#include "OsServicesHandle.h"
#include "ZorAssert.h"

constinit unsigned int OsServices::ms_uiInstanceCount = 0;
constinit unsigned int OsServices::ms_uiOldRandomValue = 0;

OsServices::OsServices(void* poHost) : m_bIsInitialized(0), m_poHost(poHost), m_ui8HostProperty(0)
{
    if (m_poHost != nullptr)
    {
        m_ui8HostProperty = static_cast<OsServicesHost*>(m_poHost)->GetHostProperty();
    }
    if (ms_uiInstanceCount == 0 && OsServices_Initialize() == 0)
    {
        MASSERT_FAILED();
        return;
    }
    ++ms_uiInstanceCount;
    m_bIsInitialized = ms_uiInstanceCount != 0 ? 1 : 0;
}

OsServices::~OsServices()
{
    // An object that never counted must not be counted off.
    if (m_bIsInitialized != 0 && --ms_uiInstanceCount == 0)
    {
        OsServices_Cleanup();
    }
}

unsigned long long OsServices::GetRawTimeInNs() { return OsServices_GetRawTimeInNs(); }

unsigned long long OsServices::GetTimeInMs() { return OsServices_GetTimeInMs(); }

namespace
{
constexpr unsigned int gsc_uiLongestBusyWait = 100000; // microseconds
constexpr unsigned int gsc_uiMicrosecondsPerMillisecond = 1000;
} // namespace

int OsServices::WaitMicroSeconds(unsigned int uiDelay)
{
    if (uiDelay <= gsc_uiLongestBusyWait)
    {
        return OsServices_WaitMicroSeconds(uiDelay);
    }
    const unsigned int uiMilliseconds = uiDelay / gsc_uiMicrosecondsPerMillisecond;
    WriteMsg("OsServices::WaitMicroSeconds(%d) with delay greater than %d us isn't reliable, "
             "using SleepMilliSeconds(%d) command instead)\n",
             static_cast<int>(uiDelay), static_cast<int>(gsc_uiLongestBusyWait), static_cast<int>(uiMilliseconds));
    return OsServices_SleepMilliSeconds(uiMilliseconds);
}

int OsServices::SleepMilliSeconds(unsigned int uiDelay) { return OsServices_SleepMilliSeconds(uiDelay); }

unsigned long OsServices::GetCurrentThreadId() { return OsServices_GetCurrentThreadId(); }

int OsServices::IsThreadIdEqual(unsigned long uiFirst, unsigned long uiSecond)
{
    return OsServices_IsThreadIdEqual(uiFirst, uiSecond);
}

void* OsServices::PagedMemory_Alloc(unsigned long uiSize) { return OsServices_PagedMemory_Alloc(uiSize); }

void OsServices::PagedMemory_Free(void* pMemory) { OsServices_PagedMemory_Free(pMemory); }

int OsServices::NonPagedMemory_Alloc(unsigned long uiSize, SNonPagedMem** ppoMemory)
{
    return OsServices_NonPagedMemory_Alloc(uiSize, ppoMemory);
}

unsigned int OsServices::NonPagedMemory_GetPhysicalAddress(SNonPagedMem* poMemory)
{
    return OsServices_NonPagedMemory_GetPhysicalAddress(poMemory);
}

void OsServices::NonPagedMemory_Free(SNonPagedMem* poMemory) { OsServices_NonPagedMemory_Free(poMemory); }

int OsServices::CopyFromUser(void* pSource, void* pDestination, unsigned int uiSize)
{
    return OsServices_CopyFromUser(pSource, pDestination, uiSize);
}

int OsServices::CopyToUser(void* pSource, void* pDestination, unsigned int uiSize)
{
    return OsServices_CopyToUser(pSource, pDestination, uiSize);
}

void* OsServices::IoMap(unsigned long uiAddress, unsigned int uiSize, int bMode)
{
    return OsServices_IoMap(uiAddress, uiSize, bMode);
}

unsigned int OsServices::IoUnMap(void* pAddress, unsigned int uiSize) { return OsServices_IoUnMap(pAddress, uiSize); }

namespace
{
constexpr double gsc_dTwoPower63 = 9223372036854775808.0;
constexpr double gsc_dTwoPower64 = 18446744073709551616.0;
constexpr uint64_t gsc_uiTopBit = 1ULL << 63;

// Conversions through signed 64 bits, which the processor has instructions for. dValue: 0 to below 2^64.
constexpr uint64_t ToInteger(double dValue)
{
    if (dValue < gsc_dTwoPower63)
    {
        return static_cast<uint64_t>(static_cast<int64_t>(dValue));
    }
    return static_cast<uint64_t>(static_cast<int64_t>(dValue - gsc_dTwoPower63)) | gsc_uiTopBit;
}

constexpr double ToDouble(uint64_t uiValue)
{
    if ((uiValue & gsc_uiTopBit) == 0)
    {
        return static_cast<double>(static_cast<int64_t>(uiValue));
    }
    // Halved, with the lost bit kept in the lowest one so that rounding sees it.
    return 2.0 * static_cast<double>(static_cast<int64_t>((uiValue >> 1) | (uiValue & 1)));
}

constexpr double Truncate(double dValue) { return ToDouble(ToInteger(dValue)); }

// False for a NaN, too.
constexpr bool IsInDomain(double dValue) { return dValue > -gsc_dTwoPower64 && dValue < gsc_dTwoPower64; }

constexpr double FloorInDomain(double dValue)
{
    if (dValue >= 0.0)
    {
        return Truncate(dValue);
    }
    const double dMagnitude = -dValue;
    const double dTruncated = Truncate(dMagnitude);
    return dMagnitude - dTruncated > 0.0 ? -(dTruncated + 1.0) : -dTruncated;
}
} // namespace

double OsServices::Fabs(double dValue)
{
    // Written so that -0.0 counts as not below zero, and a NaN as below it.
    return dValue >= 0.0 ? dValue : -dValue;
}

double OsServices::Floor(double dValue) { return IsInDomain(dValue) ? FloorInDomain(dValue) : dValue; }

double OsServices::Ceil(double dValue)
{
    if (!IsInDomain(dValue))
    {
        return dValue;
    }
    const double dRest = dValue - FloorInDomain(dValue);
    const double dBelow = dValue - dRest;
    return dRest > 0.0 ? dBelow + 1.0 : dBelow;
}

namespace
{
// Whatever address the heap gives.
unsigned int GetRandomSeed()
{
    void* const pByte = ::operator new(1);
    const unsigned int uiSeed = static_cast<unsigned int>(reinterpret_cast<uintptr_t>(pByte)); // the low 32 bits
    ::operator delete(pByte);
    return uiSeed; // NOLINT(clang-analyzer-cplusplus.NewDelete): a number by now
}
} // namespace

unsigned int OsServices::GetRandom()
{
    const unsigned int uiOld = ms_uiOldRandomValue != 0 ? ms_uiOldRandomValue : GetRandomSeed();
    ms_uiOldRandomValue = (std::rotr(uiOld, 1) ^ uiOld) + uiOld;
    return ms_uiOldRandomValue;
}

int OsServices::StackTrace_Create(SStackTrace*& hStackTrace)
{
    return CreateHandle(hStackTrace, OsServices_StackTrace_GetHandleSize(), OsServices_StackTrace_Create);
}

int OsServices::StackTrace_Destroy(SStackTrace* hStackTrace)
{
    return DestroyHandle(hStackTrace, OsServices_StackTrace_Destroy);
}

int OsServices::StackTrace_Save(SStackTrace* hStackTrace) { return OsServices_StackTrace_Save(hStackTrace); }

void OsServices::StackTrace_Print(SStackTrace* hStackTrace) { OsServices_StackTrace_Print(hStackTrace); }

void OsServices::StackTrace_Dump() { OsServices_StackTrace_Dump(); }
