// The tables and formulas that modes are looked for in.

#include "ZorWishedTiming.h"

#include <algorithm>
#include <iterator>

#include "ModePlaces.h"
#include "Standards/Formulas.h"
#include "Standards/Modes.h"
#include "ZorEdidModes.h"

namespace
{
using namespace ZorStandards;
using ZorWrite::IsSameRate;

bool IsWanted(const SZorMode& oMode, const SZorMode& oWanted)
{
    const bool bSize = oMode.m_uiWidth == oWanted.m_uiWidth && oMode.m_uiHeight == oWanted.m_uiHeight &&
                       oMode.m_bInterlaced == oWanted.m_bInterlaced;
    return bSize && (IsSameRate(oMode.m_oNominalRate, oWanted.m_oNominalRate) ||
                     IsSameRate(oMode.m_oRate, oWanted.m_oNominalRate));
}

bool FindCode(const SZorMode& oWanted, bool bRepeated, SZorMode& oTiming)
{
    for (const SVideoCode& oCode : gsc_aoVideoCodes)
    {
        SZorMode oMode = {};
        MakeVideoMode(oMode, oCode.m_ui8Code);
        if (oMode.m_uiRepetition > 1 && !bRepeated)
        {
            continue;
        }
        SZorMode oPartner = {};
        const bool bPartner = CZorEdidModes::GetPartner(oMode, oPartner);
        // The rate of the clock comes first: 60 Hz of 640 x 480 is that of its partner, in name alone.
        if (IsWanted(oMode, oWanted))
        {
            oTiming = oMode;
            return true;
        }
        if (bPartner && IsWanted(oPartner, oWanted))
        {
            oTiming = oPartner;
            return true;
        }
    }
    return false;
}

bool FindDmt(const SZorMode& oWanted, bool bReduced, SZorMode& oTiming)
{
    for (unsigned int uiId = 1; uiId <= gsc_uiDmtModes; ++uiId)
    {
        SZorMode oMode = {};
        MakeDmtMode(oMode, uiId);
        if (IsWanted(oMode, oWanted) && bReduced == (oMode.m_eBlanking != SZorMode::eBlanking_Standard))
        {
            oTiming = oMode;
            return true;
        }
    }
    return false;
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
    const bool bGtf = eBlanking == SZorMode::eBlanking_NotGiven;
    if (!(bGtf ? ComputeGtf(oMode) : ComputeCvt(oMode)))
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
