// Rules about the modes of an image among each other, and against what the image says that it takes.

#include <algorithm>
#include <iterator>

#include "CheckFindings.h"
#include "Standards/Descriptors.h"

using namespace ZorStandards::BaseBlock;

namespace ZorCheck
{
namespace
{
constexpr unsigned long long gsc_ullHzPerKiloHz = 1000;

CMString NameMode(const SZorMode& oMode)
{
    const double dRate = oMode.m_oNominalRate.m_ullDivisor == 0
                             ? 0
                             : static_cast<double>(oMode.m_oNominalRate.m_ullDividend) /
                                   static_cast<double>(oMode.m_oNominalRate.m_ullDivisor);
    CMString sText;
    sText.Format("%u x %u%s at %.2f Hz", oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_bInterlaced ? "i" : "", dRate);
    return sText;
}

// Modes that break one rule have one finding: a television may have thirty of them.
class CBreaches
{
public:
    void Add(const SZorMode& oMode)
    {
        if (m_uiCount++ == 0)
        {
            m_sFirst = NameMode(oMode);
        }
    }
    void Report(CFindings& oFindings, unsigned int uiField, EZorEdidRule eRule, CMap::ESeverity eSeverity) const
    {
        if (m_uiCount != 0)
        {
            SZorFinding& oFinding = oFindings.Add(uiField, eRule, eSeverity);
            oFinding.m_sFound = m_sFirst;
            if (m_uiCount > 1)
            {
                oFinding.m_sFound.AppendFormat(" and %u more", m_uiCount - 1);
            }
        }
    }

private:
    unsigned int m_uiCount = 0;
    CMString m_sFirst;
};

// ---- Display range limits ----

bool IsBeyond(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits)
{
    const unsigned long long ullClock = oMode.m_ullClock / gsc_ullHzPerKiloHz;
    const unsigned int uiMostClock = oLimits.m_uiPreciseMaxPixelClockInKiloHz;
    return (uiMostClock != 0 && ullClock > uiMostClock) ||
           Descriptors::IsRateBeyond(ullClock, oMode.m_oHorizontal.m_uiTotal, oLimits.m_uiMinHorizontalRateInKiloHz,
                                     oLimits.m_uiMaxHorizontalRateInKiloHz) ||
           Descriptors::IsRateBeyond(oMode.m_oRate.m_ullDividend, oMode.m_oRate.m_ullDivisor,
                                     oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz);
}

// Of detailed timings in the base block the map has a note each. An erratum of 1.4 lets listed modes leave the limits.
void CheckRangeLimits(CFindings& oFindings)
{
    const unsigned int uiRevision = oFindings.GetByte(BaseBlock::gsc_uiRevisionOffset);
    for (unsigned int i = 0; i < gsc_uiDescriptors; ++i)
    {
        const unsigned int uiOffset = DescriptorOffset(i);
        if (!Descriptors::HasTag(oFindings.GetAt(uiOffset), Descriptors::gsc_ui8TagRangeLimits))
        {
            continue;
        }
        const Descriptors::SRangeLimits oLimits = Descriptors::ReadRangeLimits(oFindings.GetAt(uiOffset), uiRevision);
        CBreaches oBreaches;
        oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
            const bool bNoted =
                oEntry.m_oMode.m_eKind == SZorMode::eModeKind_Detailed && oEntry.m_uiOffset < gsc_uiBlockSize;
            if (!bNoted && oEntry.m_oMode.m_bTiming && oEntry.m_oMode.m_oHorizontal.m_uiTotal != 0 &&
                IsBeyond(oEntry.m_oMode, oLimits))
            {
                oBreaches.Add(oEntry.m_oMode);
            }
        });
        oBreaches.Report(oFindings, oFindings.FindGroup(uiOffset), eZorEdidRule_ModeBeyondLimits,
                         uiRevision < gsc_uiVideoInputRevision ? CMap::eSeverity_Warning : CMap::eSeverity_Note);
        return;
    }
}

// ---- TMDS ----

// Without FRL every mode is sent by TMDS, those in 4:2:0 at half the clock.
void CheckTmdsClock(CFindings& oFindings)
{
    const CZorEdidFacts::SLink& oLink = oFindings.GetFacts().GetLink();
    if (!oLink.m_oMaxTmds.IsSaid() || oLink.m_oMaxTmds.m_oValue == 0 || oLink.m_oFrl.IsSaid())
    {
        return;
    }
    const unsigned long long ullMost = oLink.m_oMaxTmds.m_oValue * gsc_ullHzPerKiloHz;
    CBreaches oBreaches;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const SZorMode& oMode = oEntry.m_oMode;
        const unsigned long long ullClock =
            oMode.m_eY420 == SZorMode::eY420_No ? oMode.m_ullClock : oMode.m_ullClock / 2;
        if (oMode.m_bTiming && ullClock > ullMost)
        {
            oBreaches.Add(oMode);
        }
    });
    const unsigned int uiField = oFindings.GetMap().FindLeaf(oLink.m_oMaxTmds.m_ui16Offset, 0);
    oBreaches.Report(oFindings, uiField, eZorEdidRule_ModeBeyondTmds, CMap::eSeverity_Warning);
}

// ---- Modes that must be there, and that are there twice ----

bool IsVga(const SZorMode& oMode)
{
    constexpr unsigned int uiWidth = 640;
    constexpr unsigned int uiHeight = 480;
    constexpr unsigned int uiRate = 60;
    return oMode.m_uiWidth == uiWidth && oMode.m_uiHeight == uiHeight && !oMode.m_bInterlaced &&
           oMode.m_oNominalRate.m_ullDividend == uiRate * oMode.m_oNominalRate.m_ullDivisor;
}

void CheckVga(CFindings& oFindings, unsigned int uiCtaBlock)
{
    bool bHas = false;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) { bHas = bHas || IsVga(oEntry.m_oMode); });
    if (!bHas)
    {
        oFindings.Add(oFindings.FindBlock(uiCtaBlock), eZorEdidRule_VgaMissing);
    }
}

bool IsVideoDescriptor(const SZorImageMode& oEntry) { return oEntry.m_eField == eZorEdidField_CtaVideoDescriptor; }

// A code that is listed in 4:2:0 as well says something else there.
void CheckCodesTwice(CFindings& oFindings)
{
    constexpr unsigned int uiCodes = 256;
    bool abSeen[2][uiCodes] = {};
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const SZorMode& oMode = oEntry.m_oMode;
        if (oMode.m_eKind != SZorMode::eModeKind_Vic || !IsVideoDescriptor(oEntry) || oMode.m_uiCode >= uiCodes)
        {
            return;
        }
        bool& bSeen = abSeen[oMode.m_eY420 == SZorMode::eY420_Only ? 1 : 0][oMode.m_uiCode];
        if (bSeen)
        {
            oFindings.Add(oFindings.FindGroup(oEntry.m_uiOffset), eZorEdidRule_CodeTwice)
                .m_sFound.Format("VIC %u", oMode.m_uiCode);
        }
        bSeen = true;
    });
}

// Formats of several sizes cannot all be native.
void CheckNative(CFindings& oFindings)
{
    const SZorImageMode* poFirst = nullptr;
    bool bMixed = false;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        if (oEntry.m_oMode.m_bNative && !oEntry.m_oMode.m_bInterlaced)
        {
            poFirst = poFirst == nullptr ? &oEntry : poFirst;
            if (!bMixed && (oEntry.m_oMode.m_uiWidth != poFirst->m_oMode.m_uiWidth ||
                            oEntry.m_oMode.m_uiHeight != poFirst->m_oMode.m_uiHeight))
            {
                bMixed = true;
                oFindings.Add(oFindings.FindGroup(oEntry.m_uiOffset), eZorEdidRule_NativeMixed).m_sFound =
                    NameMode(oEntry.m_oMode) + ", and " + NameMode(poFirst->m_oMode);
            }
        }
    });
}

// HDMI's own codes 1 to 4 have codes of CTA-861 since, which sources of today look for.
void CheckHdmiCodes(CFindings& oFindings)
{
    constexpr unsigned int auiCounterparts[] = { 95, 94, 93, 98 };
    bool abHas[std::size(auiCounterparts)] = {};
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const auto* puiCode = std::ranges::find(auiCounterparts, oEntry.m_oMode.m_uiCode);
        if (IsVideoDescriptor(oEntry) && puiCode != std::end(auiCounterparts))
        {
            abHas[puiCode - auiCounterparts] = true;
        }
    });
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const unsigned int uiCode = oEntry.m_oMode.m_uiCode;
        const bool bCode =
            oEntry.m_eField == eZorEdidField_CtaHdmiVic && uiCode != 0 && uiCode <= std::size(auiCounterparts);
        if (bCode && !abHas[uiCode - 1])
        {
            SZorFinding& oFinding =
                oFindings.Add(oFindings.GetMap().FindLeaf(oEntry.m_uiOffset, 0), eZorEdidRule_HdmiCodeAlone);
            oFinding.m_sFound.Format("HDMI VIC %u", uiCode);
            oFinding.m_sExpected.Format("VIC %u as well", auiCounterparts[uiCode - 1]);
        }
    });
}
} // namespace

void CheckTimings(CFindings& oFindings)
{
    CheckRangeLimits(oFindings);
    CheckTmdsClock(oFindings);
    const unsigned int uiCtaBlock = oFindings.FindFirstBlock(gsc_uiCtaTag);
    if (uiCtaBlock != 0)
    {
        CheckVga(oFindings, uiCtaBlock);
        CheckCodesTwice(oFindings);
        CheckNative(oFindings);
        CheckHdmiCodes(oFindings);
    }
}
} // namespace ZorCheck
