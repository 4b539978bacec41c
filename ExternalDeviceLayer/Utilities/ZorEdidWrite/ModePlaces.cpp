#include "ModePlaces.h"

#include <cmath>

#include "TableTimings.h"

namespace ZorWrite
{
namespace
{
using namespace ZorStandards;

bool IsSameAxis(const SZorMode::SAxis& oFirst, const SZorMode::SAxis& oSecond)
{
    return oFirst.m_uiActive == oSecond.m_uiActive && oFirst.m_uiFront == oSecond.m_uiFront &&
           oFirst.m_uiSync == oSecond.m_uiSync && oFirst.m_uiTotal == oSecond.m_uiTotal &&
           oFirst.m_uiBorder == oSecond.m_uiBorder && oFirst.m_bPositive == oSecond.m_bPositive;
}

double GetHz(const SZorMode::SRate& oRate)
{
    return oRate.m_ullDivisor == 0 ? 0
                                   : static_cast<double>(oRate.m_ullDividend) / static_cast<double>(oRate.m_ullDivisor);
}
} // namespace

bool IsSameRate(const SZorMode::SRate& oFirst, const SZorMode::SRate& oSecond)
{
    constexpr double dNear = 0.005;
    return std::fabs(GetHz(oFirst) - GetHz(oSecond)) < dNear;
}

bool IsSameTiming(const SZorMode& oFirst, const SZorMode& oSecond, unsigned int uiMostClockInHz)
{
    const unsigned long long ullDifference = oFirst.m_ullClock > oSecond.m_ullClock
                                                 ? oFirst.m_ullClock - oSecond.m_ullClock
                                                 : oSecond.m_ullClock - oFirst.m_ullClock;
    return ullDifference <= uiMostClockInHz && oFirst.m_bInterlaced == oSecond.m_bInterlaced &&
           IsSameAxis(oFirst.m_oHorizontal, oSecond.m_oHorizontal) &&
           IsSameAxis(oFirst.m_oVertical, oSecond.m_oVertical);
}

bool WriteDetailed(const SZorMode& oTiming, const SImageSizeInMm& oSize, CDetailedBytes& aui8Bytes)
{
    constexpr unsigned int uiLeastClock = 10000000;
    return oTiming.m_ullClock >= uiLeastClock && oTiming.m_oHorizontal.m_uiFront != 0 &&
           oTiming.m_oVertical.m_uiFront != 0 &&
           CZorEdidTimings::MakeDetailed(oTiming, oSize.m_uiWidth, oSize.m_uiHeight, aui8Bytes) != 0;
}

bool WriteType1(const SZorMode& oTiming, bool bPreferred, CType1Bytes& aui8Bytes)
{
    return CZorEdidTimings::MakeDisplayId(1, oTiming, bPreferred, aui8Bytes) != 0;
}

unsigned int FindVideoCodeOf(const SZorMode& oTiming)
{
    unsigned int uiCode = 0;
    const bool bFound = FindInCodes([&](const SZorMode& oMode) {
        uiCode = oMode.m_uiCode;
        return IsSameTiming(oMode, oTiming);
    });
    return bFound ? uiCode : 0;
}

bool FindEstablishedBit(const SZorMode& oTiming, unsigned int& uiBit)
{
    for (unsigned int i = 0; i < gsc_uiEstablishedModes; ++i)
    {
        SZorMode oMode = {};
        if (MakeEstablishedMode(oMode, i) && oMode.m_bTiming && IsSameTiming(oMode, oTiming))
        {
            uiBit = i;
            return true;
        }
    }
    return false;
}
} // namespace ZorWrite
