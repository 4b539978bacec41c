// Rules about modes against the limits that the image gives: display range limits, and the TMDS clock of HDMI.

#include "CheckLimits.h"

using namespace ZorStandards::BaseBlock;

namespace ZorCheck
{
namespace
{
constexpr unsigned long long gsc_ullHzPerKiloHz = 1000;
constexpr unsigned long long gsc_ullHzPerMegaHz = 1000000;
constexpr unsigned int gsc_uiKiloHzPerMegaHz = 1000;

// With two decimals, rounded down.
CMString FormatRate(unsigned long long ullPart, unsigned long long ullWhole, const char* pszUnit)
{
    constexpr unsigned long long ullHundredths = 100;
    CMString sText;
    if (ullWhole != 0)
    {
        sText.Format("%llu.%02llu %s", ullPart / ullWhole, ullPart % ullWhole * ullHundredths / ullWhole, pszUnit);
    }
    return sText;
}

CMString FormatRange(unsigned int uiLeast, unsigned int uiMost, const char* pszUnit)
{
    CMString sText;
    sText.Format("%u to %u %s", uiLeast, uiMost, pszUnit);
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
    // What is behind the numbers of the first.
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

// Of detailed timings in the base block the map has a note each. An erratum of 1.4 lets listed modes leave the limits.
void CheckRangeLimits(CFindings& oFindings)
{
    const SRangeDescriptor oDescriptor = FindRangeLimits(oFindings);
    if (oDescriptor.m_uiOffset == 0)
    {
        return;
    }
    SBreaches oBreaches;
    bool bWeight = false;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const bool bNoted =
            oEntry.m_oMode.m_eKind == SZorMode::eModeKind_Detailed && oEntry.m_uiOffset < gsc_uiBlockSize;
        const ELimit eLimit = bNoted ? eLimit_None : FindBreach(oEntry.m_oMode, oDescriptor.m_oLimits);
        if (eLimit != eLimit_None)
        {
            bWeight = bWeight || eLimit != eLimit_RoundedClock;
            oBreaches.Add(oEntry);
        }
    });
    if (oBreaches.m_uiCount != 0)
    {
        bWeight = bWeight && oFindings.GetByte(gsc_uiRevisionOffset) < gsc_uiVideoInputRevision;
        SZorFinding& oFinding =
            oFindings.Add(oFindings.FindGroup(oDescriptor.m_uiOffset), eZorEdidRule_ModeBeyondLimits,
                          bWeight ? CMap::eSeverity_Warning : CMap::eSeverity_Note);
        DescribeBreach(oBreaches.m_oFirst.m_oMode, oDescriptor.m_oLimits, oFinding);
        oFinding.m_sFound += oBreaches.DescribeRest();
    }
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
    for (unsigned int i = 0; i < gsc_uiDescriptors; ++i)
    {
        const unsigned char* pui8Descriptor = oFindings.GetAt(DescriptorOffset(i));
        if (Descriptors::HasTag(pui8Descriptor, Descriptors::gsc_ui8TagRangeLimits))
        {
            return { DescriptorOffset(i),
                     Descriptors::ReadRangeLimits(pui8Descriptor, oFindings.GetByte(gsc_uiRevisionOffset)) };
        }
    }
    return {};
}

ELimit FindBreach(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits)
{
    if (!oMode.m_bTiming || oMode.m_oHorizontal.m_uiTotal == 0)
    {
        return eLimit_None;
    }
    const unsigned long long ullClock = oMode.m_ullClock / gsc_ullHzPerKiloHz;
    const bool bRounded = Descriptors::IsPixelClockRounded(oLimits, ullClock);
    return Descriptors::IsPixelClockBeyond(oLimits, ullClock) && !bRounded                   ? eLimit_Clock
           : Descriptors::IsLineRateBeyond(oLimits, ullClock, oMode.m_oHorizontal.m_uiTotal) ? eLimit_LineRate
           : Descriptors::IsFieldRateBeyond(oLimits, oMode.m_oRate.m_ullDividend, oMode.m_oRate.m_ullDivisor)
               ? eLimit_FieldRate
           : bRounded ? eLimit_RoundedClock
                      : eLimit_None;
}

void DescribeBreach(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits, SZorFinding& oFinding)
{
    switch (FindBreach(oMode, oLimits))
    {
    case eLimit_None:
        break;
    case eLimit_LineRate:
        oFinding.m_sFound =
            "line rate " + FormatRate(oMode.m_ullClock, oMode.m_oHorizontal.m_uiTotal * gsc_ullHzPerKiloHz, "kHz");
        oFinding.m_sExpected =
            FormatRange(oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz, "kHz");
        break;
    case eLimit_FieldRate:
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

void CheckLimits(CFindings& oFindings)
{
    CheckRangeLimits(oFindings);
    CheckTmdsClock(oFindings);
}
} // namespace ZorCheck
