// The tables and formulas that modes are looked for in.

#include "ZorWishedTiming.h"

#include "Standards/Formulas.h"
#include "TableTimings.h"

namespace
{
using namespace ZorStandards;

bool IsWanted(const SZorMode& oMode, const SZorMode& oWanted)
{
    return oMode.m_uiWidth == oWanted.m_uiWidth && oMode.m_uiHeight == oWanted.m_uiHeight &&
           oMode.m_bInterlaced == oWanted.m_bInterlaced && ZorWrite::IsWantedRate(oMode, oWanted);
}

bool FindCode(const SZorMode& oWanted, bool bRepeated, SZorMode& oTiming)
{
    return ZorWrite::FindInCodes([&](const SZorMode& oMode) {
        const bool bIs = (oMode.m_uiRepetition <= 1 || bRepeated) && IsWanted(oMode, oWanted);
        oTiming = bIs ? oMode : oTiming;
        return bIs;
    });
}

bool FindDmt(const SZorMode& oWanted, bool bReduced, SZorMode& oTiming)
{
    return ZorWrite::FindInDmt(bReduced, [&](const SZorMode& oMode) {
        const bool bIs = IsWanted(oMode, oWanted);
        oTiming = bIs ? oMode : oTiming;
        return bIs;
    });
}

// Version 2 has a form for rates of 1000/1001: that fraction of the clock, with the lines of the whole rate.
bool ComputeReduced2(SZorMode& oMode)
{
    const SZorMode::SRate oAsked = oMode.m_oNominalRate;
    SReducedBlanking oReduced;
    oReduced.m_bVideo = oAsked.m_ullDivisor % 1001 == 0 && oAsked.m_ullDividend % 1000 == 0 &&
                        oAsked.m_ullDividend / 1000 % (oAsked.m_ullDivisor / 1001) == 0;
    if (oReduced.m_bVideo)
    {
        oMode.m_oNominalRate = { oAsked.m_ullDividend / 1000, oAsked.m_ullDivisor / 1001 };
    }
    const bool bComputed = !oMode.m_bInterlaced && ComputeCvt(oMode, oReduced);
    oMode.m_oNominalRate = oAsked;
    return bComputed;
}

bool Compute(const SZorMode& oWanted, SZorMode::EBlanking eBlanking, SZorMode& oTiming)
{
    SZorMode oMode = {};
    oMode.m_eKind = SZorMode::eModeKind_Detailed;
    oMode.m_uiWidth = oWanted.m_uiWidth;
    oMode.m_uiHeight = oWanted.m_uiHeight;
    oMode.m_bInterlaced = oWanted.m_bInterlaced;
    oMode.m_oNominalRate = oWanted.m_oNominalRate;
    oMode.m_uiRepetition = 1;
    oMode.m_eBlanking = eBlanking;
    const bool bComputed = eBlanking == SZorMode::eBlanking_NotGiven   ? ComputeGtf(oMode)
                           : eBlanking == SZorMode::eBlanking_Reduced2 ? ComputeReduced2(oMode)
                                                                       : ComputeCvt(oMode);
    if (!bComputed)
    {
        return false;
    }
    oMode.m_bTiming = true;
    oTiming = oMode;
    return true;
}

// A whole rate that only the formula with clocks of 1 kHz meets is met well enough by one with clocks of 250 kHz.
bool FindAny(const SZorMode& oWanted, bool bRepeated, SZorMode& oTiming)
{
    return FindCode(oWanted, bRepeated, oTiming) || FindDmt(oWanted, true, oTiming) ||
           FindDmt(oWanted, false, oTiming) || Compute(oWanted, SZorMode::eBlanking_Reduced1, oTiming);
}
} // namespace

int FindZorTiming(const SZorMode& oWanted, EZorTimingSource eSource, bool bRepeated, SZorMode& oTiming)
{
    switch (eSource)
    {
    case eZorTimingSource_Cta:
        return FindCode(oWanted, bRepeated, oTiming) ? 1 : 0;
    case eZorTimingSource_Dmt:
        return FindDmt(oWanted, false, oTiming) || FindDmt(oWanted, true, oTiming) ? 1 : 0;
    case eZorTimingSource_DmtReduced:
        return FindDmt(oWanted, true, oTiming) ? 1 : 0;
    case eZorTimingSource_Cvt:
        return Compute(oWanted, SZorMode::eBlanking_Standard, oTiming) ? 1 : 0;
    case eZorTimingSource_CvtReduced1:
        return Compute(oWanted, SZorMode::eBlanking_Reduced1, oTiming) ? 1 : 0;
    case eZorTimingSource_CvtReduced2:
        return Compute(oWanted, SZorMode::eBlanking_Reduced2, oTiming) ? 1 : 0;
    case eZorTimingSource_Gtf:
        return Compute(oWanted, SZorMode::eBlanking_NotGiven, oTiming) ? 1 : 0;
    default:
        return FindAny(oWanted, bRepeated, oTiming) ? 1 : 0;
    }
}
