// The range limits of a base block in bytes.

#include "EditLimits.h"

#include "Standards/Modes.h"
#include "TextFormat.h"

using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

namespace
{
// Makes limits hold a rate of ullPart / ullWhole in their unit, which is beyond them.
void Widen(unsigned int& uiLeast, unsigned int& uiMost, unsigned long long ullPart, unsigned long long ullWhole)
{
    const bool bBelow = ullPart < uiLeast * ullWhole;
    uiLeast = bBelow ? static_cast<unsigned int>(ullPart / ullWhole) : uiLeast;
    uiMost = bBelow ? uiMost : static_cast<unsigned int>((ullPart + ullWhole - 1) / ullWhole);
}

// False when the bytes, 1 to 255 each and from revision 4 on with offsets, cannot hold the rates.
bool WriteHeldRates(unsigned char* pui8Limits, const SRatePlaces& oPlaces, unsigned int uiLeast, unsigned int uiMost,
                    bool bOffsets)
{
    if (uiLeast == 0 || uiMost > GetHighestRate(bOffsets))
    {
        return false;
    }
    WriteRates(pui8Limits, oPlaces, uiLeast, uiMost, bOffsets);
    return true;
}
} // namespace

std::string GetLimitsText(const SLimits& oLimits)
{
    constexpr double dKiloHzPerMegaHz = 1000;
    const std::string sRates =
        FormatText("%u to %u Hz, %u to %u kHz", oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz,
                   oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz);
    const unsigned int uiClock = oLimits.m_uiPreciseMaxPixelClockInKiloHz;
    return uiClock == 0 ? sRates : sRates + FormatText(", %g MHz", uiClock / dKiloHzPerMegaHz);
}

SLimits WidenLimits(const SLimits& oLimits, const SZorMode& oMode)
{
    constexpr unsigned int uiHzPerKiloHz = 1000;
    SLimits oWide = oLimits;
    const unsigned int uiBreaches = FindBreaches(oMode, oLimits);
    if ((uiBreaches & (LimitBit(eLimit_FieldRateBelow) | LimitBit(eLimit_FieldRateAbove))) != 0)
    {
        Widen(oWide.m_uiMinVerticalRateInHz, oWide.m_uiMaxVerticalRateInHz, oMode.m_oRate.m_ullDividend,
              oMode.m_oRate.m_ullDivisor);
    }
    const unsigned int uiClock = static_cast<unsigned int>(oMode.m_ullClock / uiHzPerKiloHz);
    if ((uiBreaches & (LimitBit(eLimit_LineRateBelow) | LimitBit(eLimit_LineRateAbove))) != 0)
    {
        Widen(oWide.m_uiMinHorizontalRateInKiloHz, oWide.m_uiMaxHorizontalRateInKiloHz, uiClock,
              oMode.m_oHorizontal.m_uiTotal);
    }
    if ((uiBreaches & (LimitBit(eLimit_Clock) | LimitBit(eLimit_RoundedClock))) != 0)
    {
        oWide.m_uiMaxPixelClockInKiloHz =
            (uiClock + gsc_uiKiloHzPer10MegaHz - 1) / gsc_uiKiloHzPer10MegaHz * gsc_uiKiloHzPer10MegaHz;
        oWide.m_uiPreciseMaxPixelClockInKiloHz = oWide.m_uiMaxPixelClockInKiloHz;
    }
    return oWide;
}

bool WriteLimits(unsigned char* pui8Limits, unsigned int uiRevision, const SLimits& oLimits)
{
    const SLimits oOld = ReadRangeLimits(pui8Limits, uiRevision);
    const bool b4 = uiRevision >= gsc_uiVideoInputRevision;
    const bool bVertical = oOld.m_uiMinVerticalRateInHz != oLimits.m_uiMinVerticalRateInHz ||
                           oOld.m_uiMaxVerticalRateInHz != oLimits.m_uiMaxVerticalRateInHz;
    const bool bHorizontal = oOld.m_uiMinHorizontalRateInKiloHz != oLimits.m_uiMinHorizontalRateInKiloHz ||
                             oOld.m_uiMaxHorizontalRateInKiloHz != oLimits.m_uiMaxHorizontalRateInKiloHz;
    if (oOld.m_uiPreciseMaxPixelClockInKiloHz != oLimits.m_uiPreciseMaxPixelClockInKiloHz)
    {
        gsc_oMaxPixelClock.Write(pui8Limits, oLimits.m_uiMaxPixelClockInKiloHz / gsc_uiKiloHzPer10MegaHz);
        if (b4 && gsc_oFormula.Read(pui8Limits) == gsc_uiCvtFormula)
        {
            gsc_oClockPrecision.Write(pui8Limits, 0);
        }
    }
    return (!bVertical || WriteHeldRates(pui8Limits, gsc_oVerticalRates, oLimits.m_uiMinVerticalRateInHz,
                                         oLimits.m_uiMaxVerticalRateInHz, b4)) &&
           (!bHorizontal || WriteHeldRates(pui8Limits, gsc_oHorizontalRates, oLimits.m_uiMinHorizontalRateInKiloHz,
                                           oLimits.m_uiMaxHorizontalRateInKiloHz, b4));
}
