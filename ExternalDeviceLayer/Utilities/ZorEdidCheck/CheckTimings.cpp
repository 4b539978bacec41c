// Rules about the modes of an image among each other.

#include <algorithm>
#include <iterator>

#include "CheckFindings.h"
#include "Standards/VideoCodes.h"

namespace ZorCheck
{
namespace
{
double GetRateInHz(const SZorMode::SRate& oRate)
{
    return oRate.m_ullDivisor == 0 ? 0
                                   : static_cast<double>(oRate.m_ullDividend) / static_cast<double>(oRate.m_ullDivisor);
}

// ---- Modes that must be there, and that are there twice ----

// At 60 Hz or 59.94: detailed timings have the rate of their clock, rounded to 10 kHz.
bool IsVga(const SZorMode& oMode)
{
    constexpr unsigned int uiWidth = 640;
    constexpr unsigned int uiHeight = 480;
    constexpr double dLeast = 59.9;
    constexpr double dMost = 60.1;
    const double dRate = GetRateInHz(oMode.m_oNominalRate);
    return oMode.m_uiWidth == uiWidth && oMode.m_uiHeight == uiHeight && !oMode.m_bInterlaced && dRate > dLeast &&
           dRate < dMost;
}

void CheckVga(CFindings& oFindings, unsigned int uiCtaBlock)
{
    if (!oFindings.HasMode([](const SZorImageMode& oEntry) { return IsVga(oEntry.m_oMode); }))
    {
        oFindings.Add(oFindings.FindBlock(uiCtaBlock), eZorEdidRule_VgaMissing);
    }
}

bool IsVideoDescriptor(const SZorImageMode& oEntry) { return oEntry.m_eField == eZorEdidField_CtaVideoDescriptor; }

// Codes of YCbCr 4:2:0 only are a list of their own; the map notes those that are in both. Once native and once not is
// a contradiction, and the codes of 4:2:0 have no native bit.
void CheckCodesTwice(CFindings& oFindings)
{
    constexpr unsigned int uiCodes = 256;
    const SZorMode* apoFirst[2][uiCodes] = {};
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const SZorMode& oMode = oEntry.m_oMode;
        if (oMode.m_eKind != SZorMode::eModeKind_Vic || !IsVideoDescriptor(oEntry) || oMode.m_uiCode >= uiCodes)
        {
            return;
        }
        const bool bOnly420 = oMode.m_eY420 == SZorMode::eY420_Only;
        const SZorMode*& poFirst = apoFirst[bOnly420 ? 1 : 0][oMode.m_uiCode];
        if (poFirst == nullptr)
        {
            poFirst = &oMode;
            return;
        }
        const bool bNativeDiffers = oMode.m_bNative != poFirst->m_bNative;
        oFindings
            .Add(oFindings.FindGroup(oEntry.m_uiOffset),
                 bNativeDiffers ? eZorEdidRule_CodeNativeAndNot : eZorEdidRule_CodeTwice)
            .m_sFound.Format(bOnly420 ? "VIC %u of YCbCr 4:2:0" : "VIC %u", oMode.m_uiCode);
    });
}

// Pixels that are sent more than once count once in a code, and each in a detailed timing.
bool IsSameSize(const SZorMode& oOne, const SZorMode& oOther)
{
    return (oOne.m_uiWidth == oOther.m_uiWidth && oOne.m_uiHeight == oOther.m_uiHeight) ||
           (oOne.m_bTiming && oOther.m_bTiming && oOne.m_oHorizontal.m_uiActive == oOther.m_oHorizontal.m_uiActive &&
            oOne.m_oVertical.m_uiActive == oOther.m_oVertical.m_uiActive);
}

// Formats of several sizes cannot all be native; interlaced ones may be beside progressive ones.
void CheckNative(CFindings& oFindings, bool bInterlaced)
{
    const SZorImageMode* poFirst = nullptr;
    bool bMixed = false;
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        if (oEntry.m_oMode.m_bNative && oEntry.m_oMode.m_bInterlaced == bInterlaced)
        {
            poFirst = poFirst == nullptr ? &oEntry : poFirst;
            if (!bMixed && !IsSameSize(oEntry.m_oMode, poFirst->m_oMode))
            {
                bMixed = true;
                SZorFinding& oFinding = oFindings.Add(oFindings.FindGroup(oEntry.m_uiOffset), eZorEdidRule_NativeMixed);
                oFinding.m_sFound = CMap::GetModeText(oEntry.m_oMode) + ", and " + CMap::GetModeText(poFirst->m_oMode) +
                                    " at " + DescribePlace(poFirst->m_uiOffset);
                oFinding.m_sExpected = "one size";
            }
        }
    });
}

// A code says by itself which mode it means, a number without a timing says nothing.
void CheckReferences(CFindings& oFindings)
{
    oFindings.ForEachReference([&](const SZorModeReference& oReference) {
        const bool bCode = ReadVideoReference(oReference.m_uiByte).m_eKind == SVideoReference::eVideoCode;
        if (oReference.m_uiMode == SZorImageMode::msc_uiNone)
        {
            const unsigned int uiField = oFindings.FindGroup(oReference.m_uiOffset);
            SZorFinding& oFinding = oFindings.Add(uiField, eZorEdidRule_ReferenceMissing,
                                                  bCode ? CMap::eSeverity_Note : CMap::eSeverity_Warning);
            oFinding.m_sFound = oFindings.GetMap().GetValue(uiField);
        }
    });
}

// HDMI's own codes 1 to 4 have codes of CTA-861 since, which sources of today look for. Sinks without a data block of
// the HDMI Forum are of HDMI 1.4, which had no others.
void CheckHdmiCodes(CFindings& oFindings)
{
    bool bForum = false;
    oFindings.ForEachBlock(gsc_uiCtaTag, [&](unsigned int uiBlock) {
        bForum = bForum || oFindings.FindField(uiBlock, eZorEdidField_CtaHdmiForum) != CMap::msc_uiNone;
    });
    bool abHas[std::size(gsc_aoHdmiCodes)] = {};
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const auto* poCode = std::ranges::find(gsc_aoHdmiCodes, oEntry.m_oMode.m_uiCode, &SHdmiCode::m_ui8VideoCode);
        if (IsVideoDescriptor(oEntry) && poCode != std::end(gsc_aoHdmiCodes))
        {
            abHas[poCode - gsc_aoHdmiCodes] = true;
        }
    });
    oFindings.ForEachMode([&](const SZorImageMode& oEntry) {
        const unsigned int uiCode = oEntry.m_oMode.m_uiCode;
        const SHdmiCode* poCode = oEntry.m_eField == eZorEdidField_CtaHdmiVic ? FindHdmiCode(uiCode) : nullptr;
        if (poCode != nullptr && !abHas[poCode - gsc_aoHdmiCodes])
        {
            SZorFinding& oFinding =
                oFindings.Add(oFindings.GetMap().FindLeaf(oEntry.m_uiOffset, 0), eZorEdidRule_HdmiCodeAlone,
                              bForum ? CMap::eSeverity_Warning : CMap::eSeverity_Note);
            oFinding.m_sFound.Format("HDMI VIC %u", uiCode);
            oFinding.m_sExpected.Format("VIC %u as well", 0U + poCode->m_ui8VideoCode);
        }
    });
}
} // namespace

void CheckTimings(CFindings& oFindings)
{
    const unsigned int uiCtaBlock = oFindings.FindFirstBlock(gsc_uiCtaTag);
    if (uiCtaBlock != 0)
    {
        CheckVga(oFindings, uiCtaBlock);
        CheckCodesTwice(oFindings);
        CheckNative(oFindings, false);
        CheckNative(oFindings, true);
        CheckHdmiCodes(oFindings);
    }
    CheckReferences(oFindings);
}
} // namespace ZorCheck
