// Rules about modes against the limits that the image gives: display range limits, and the TMDS clock of HDMI.

#include "CheckLimits.h"

#include <algorithm>

using namespace ZorStandards::BaseBlock;

namespace ZorCheck
{
namespace
{
constexpr unsigned long long gsc_ullHzPerKiloHz = 1000;
constexpr unsigned long long gsc_ullHzPerMegaHz = 1000000;
constexpr unsigned int gsc_uiKiloHzPerMegaHz = 1000;

// With two decimals, rounded to the nearest.
CMString FormatRate(unsigned long long ullPart, unsigned long long ullWhole, const char* pszUnit)
{
    constexpr unsigned long long ullHundredths = 100;
    CMString sText;
    if (ullWhole != 0)
    {
        const unsigned long long ullRest = (ullPart % ullWhole * ullHundredths + ullWhole / 2) / ullWhole; // up to 100
        sText.Format("%llu.%02llu %s", ullPart / ullWhole + ullRest / ullHundredths, ullRest % ullHundredths, pszUnit);
    }
    return sText;
}

CMString FormatRange(unsigned long long ullLeast, unsigned long long ullMost, const char* pszUnit)
{
    CMString sText;
    sText.Format("%llu to %llu %s", ullLeast, ullMost, pszUnit);
    return sText;
}

// Modes that break one rule have one finding, which names the first: a television may have thirty of them.
struct SBreaches
{
    unsigned int m_uiCount = 0;
    SZorImageMode m_oFirst = {};

    void Add(const SZorImageMode& oEntry)
    {
        if (m_uiCount++ == 0)
        {
            m_oFirst = oEntry;
        }
    }
    // What follows the numbers of the first.
    CMString DescribeRest() const
    {
        CMString sText = " of " + CMap::GetModeText(m_oFirst.m_oMode) + " at " + DescribePlace(m_oFirst.m_uiOffset);
        if (m_uiCount > 1)
        {
            sText.AppendFormat(", and %u more", m_uiCount - 1);
        }
        return sText;
    }
};

// An erratum of 1.4 lets listed modes leave the limits.
CMap::ESeverity GetWeight(const CFindings& oFindings)
{
    return !IsAtLeastRevision(oFindings.GetAt(0), gsc_uiVideoInputRevision) ? CMap::eSeverity_Warning
                                                                            : CMap::eSeverity_Note;
}

// A finding for each limit that modes break. Of detailed timings in the base block the map has a note each.
void CheckRangeLimits(CFindings& oFindings, const SRangeDescriptor& oDescriptor)
{
    SBreaches aoBreaches[eLimit_Count];
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const bool bNoted =
            oEntry.m_oMode.m_eKind == SZorMode::eModeKind_Detailed && oEntry.m_uiOffset < gsc_uiBlockSize;
        const unsigned int uiBreaches = bNoted ? 0 : FindBreaches(oEntry.m_oMode, oDescriptor.m_oLimits);
        for (unsigned int i = 0; i < eLimit_Count; ++i)
        {
            if ((uiBreaches & LimitBit(static_cast<ELimit>(i))) != 0)
            {
                aoBreaches[i].Add(oEntry);
            }
        }
    });
    for (unsigned int i = 0; i < eLimit_Count; ++i)
    {
        if (aoBreaches[i].m_uiCount != 0)
        {
            SZorFinding& oFinding =
                oFindings.Add(oFindings.FindGroup(oDescriptor.m_uiOffset), eZorEdidRule_ModeBeyondLimits,
                              i != eLimit_RoundedClock ? GetWeight(oFindings) : CMap::eSeverity_Note);
            DescribeBreach(static_cast<ELimit>(i), aoBreaches[i].m_oFirst.m_oMode, oDescriptor.m_oLimits, oFinding);
            oFinding.m_sFound += aoBreaches[i].DescribeRest();
        }
    }
}

// Minimum and maximum of one kind of rate, and that rate of a mode as a fraction in their unit.
struct SRateLimits
{
    unsigned int m_uiLeast;
    unsigned int m_uiMost;
    EZorEdidField m_eLeast;
    EZorEdidField m_eMost;
    const char* m_pszUnit;
    SZorMode::SRate (*m_pfnGetRate)(const SZorMode&);
};

// The modes are many and of common rates: where the limits leave one, these are at fault. The finding is about the
// minimum where that one is too high, and proposes whole numbers, which are rounded down as makers do.
void CheckOneRate(CFindings& oFindings, const SRateLimits& oLimits)
{
    if (oLimits.m_uiLeast != oLimits.m_uiMost || oLimits.m_uiMost == 0)
    {
        return;
    }
    bool bBeyond = false;
    unsigned long long ullLeast = oLimits.m_uiLeast;
    unsigned long long ullMost = oLimits.m_uiMost;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const auto [ullPart, ullWhole] = oLimits.m_pfnGetRate(oEntry.m_oMode);
        if (!oEntry.m_oMode.m_bTiming || ullWhole == 0)
        {
            return;
        }
        bBeyond = bBeyond || Descriptors::IsRateBeyond(ullPart, ullWhole, oLimits.m_uiLeast, oLimits.m_uiMost);
        ullLeast = std::min(ullLeast, ullPart / ullWhole);
        ullMost = std::max(ullMost, ullPart / ullWhole);
    });
    if (bBeyond)
    {
        const EZorEdidField eWrong = ullLeast < oLimits.m_uiLeast ? oLimits.m_eLeast : oLimits.m_eMost;
        SZorFinding& oFinding =
            oFindings.Add(oFindings.FindField(0, eWrong), eZorEdidRule_RangeOneRate, GetWeight(oFindings));
        oFinding.m_sFound = FormatRange(oLimits.m_uiLeast, oLimits.m_uiMost, oLimits.m_pszUnit);
        oFinding.m_sExpected = FormatRange(ullLeast, ullMost, oLimits.m_pszUnit);
    }
}

void CheckOneRates(CFindings& oFindings, const Descriptors::SRangeLimits& oLimits)
{
    CheckOneRate(oFindings, { oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz,
                              eZorEdidField_BaseRangeMinVerticalRate, eZorEdidField_BaseRangeMaxVerticalRate, "Hz",
                              [](const SZorMode& oMode) { return oMode.m_oRate; } });
    CheckOneRate(oFindings,
                 { oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz,
                   eZorEdidField_BaseRangeMinHorizontalRate, eZorEdidField_BaseRangeMaxHorizontalRate, "kHz",
                   [](const SZorMode& oMode) {
                       return SZorMode::SRate{ oMode.m_ullClock / gsc_ullHzPerKiloHz, oMode.m_oHorizontal.m_uiTotal };
                   } });
}

// ---- TMDS ----

// Whether another field says that the sink takes this mode in 4:2:0: a detailed timing of a mode whose video code is
// marked. The clocks of both may differ by 1000/1001.
bool IsTakenIn420(const CFindings& oFindings, const SZorMode& oMode)
{
    constexpr unsigned long long ullTolerance = 500; // of the clock
    const auto fnIsSame = [](const SZorMode::SAxis& oOne, const SZorMode::SAxis& oOther) {
        return oOne.m_uiActive == oOther.m_uiActive && oOne.m_uiTotal == oOther.m_uiTotal;
    };
    bool bTaken = false;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const SZorMode& oOther = oEntry.m_oMode;
        const unsigned long long ullApart = oMode.m_ullClock > oOther.m_ullClock ? oMode.m_ullClock - oOther.m_ullClock
                                                                                 : oOther.m_ullClock - oMode.m_ullClock;
        bTaken =
            bTaken ||
            (oOther.m_eY420 != SZorMode::eY420_No && oOther.m_bTiming && oOther.m_bInterlaced == oMode.m_bInterlaced &&
             ullApart <= oMode.m_ullClock / ullTolerance && fnIsSame(oOther.m_oHorizontal, oMode.m_oHorizontal) &&
             fnIsSame(oOther.m_oVertical, oMode.m_oVertical));
    });
    return bTaken;
}

// Without FRL every mode is sent by TMDS, those in 4:2:0 at half the clock.
void CheckTmdsClock(CFindings& oFindings)
{
    const CZorEdidFacts::SLink& oLink = oFindings.GetFacts().GetLink();
    if (!oLink.m_oMaxTmds.IsSaid() || oLink.m_oMaxTmds.m_oValue == 0 || TakesFrl(oLink) || IsDisplayPort(oLink))
    {
        return;
    }
    const unsigned long long ullMost = oLink.m_oMaxTmds.m_oValue * gsc_ullHzPerKiloHz;
    SBreaches oBreaches;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const SZorMode& oMode = oEntry.m_oMode;
        if (oMode.m_bTiming && oMode.m_ullClock > ullMost &&
            (oMode.m_ullClock / 2 > ullMost || !IsTakenIn420(oFindings, oMode)))
        {
            oBreaches.Add(oEntry);
        }
    });
    if (oBreaches.m_uiCount != 0)
    {
        SZorFinding& oFinding =
            oFindings.Add(oFindings.GetMap().FindLeaf(oLink.m_oMaxTmds.m_ui16Offset, 0), eZorEdidRule_ModeBeyondTmds);
        oFinding.m_sFound =
            FormatRate(oBreaches.m_oFirst.m_oMode.m_ullClock, gsc_ullHzPerMegaHz, "MHz") + oBreaches.DescribeRest();
        oFinding.m_sExpected = "at most " + FormatRate(ullMost, gsc_ullHzPerMegaHz, "MHz");
    }
}
} // namespace

SRangeDescriptor FindRangeLimits(const CFindings& oFindings)
{
    const unsigned char* pui8Base = oFindings.GetAt(0);
    const unsigned int uiOffset = BaseBlock::FindRangeLimits(pui8Base);
    return uiOffset == 0 ? SRangeDescriptor()
                         : SRangeDescriptor{ uiOffset, ReadRangeLimits(pui8Base + uiOffset, ReadRevision(pui8Base)) };
}

void DescribeBreach(ELimit eLimit, const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits,
                    SZorFinding& oFinding)
{
    switch (eLimit)
    {
    case eLimit_Count:
        break;
    case eLimit_LineRateBelow:
    case eLimit_LineRateAbove:
        oFinding.m_sFound =
            "line rate " + FormatRate(oMode.m_ullClock, oMode.m_oHorizontal.m_uiTotal * gsc_ullHzPerKiloHz, "kHz");
        oFinding.m_sExpected =
            FormatRange(oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz, "kHz");
        break;
    case eLimit_FieldRateBelow:
    case eLimit_FieldRateAbove:
        oFinding.m_sFound = "field rate " + FormatRate(oMode.m_oRate.m_ullDividend, oMode.m_oRate.m_ullDivisor, "Hz");
        oFinding.m_sExpected = FormatRange(oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz, "Hz");
        break;
    case eLimit_Clock:
    case eLimit_RoundedClock:
        oFinding.m_sFound = "pixel clock " + FormatRate(oMode.m_ullClock, gsc_ullHzPerMegaHz, "MHz");
        oFinding.m_sExpected =
            "at most " + FormatRate(oLimits.m_uiPreciseMaxPixelClockInKiloHz, gsc_uiKiloHzPerMegaHz, "MHz");
        break;
    }
}

void DescribeBreach(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits, SZorFinding& oFinding)
{
    DescribeBreach(FindBreach(oMode, oLimits), oMode, oLimits, oFinding);
}

void CheckLimits(CFindings& oFindings)
{
    const SRangeDescriptor oDescriptor = FindRangeLimits(oFindings);
    if (oDescriptor.m_uiOffset != 0)
    {
        CheckRangeLimits(oFindings, oDescriptor);
        CheckOneRates(oFindings, oDescriptor.m_oLimits);
    }
    CheckTmdsClock(oFindings);
}
} // namespace ZorCheck
