// The preferred timing of an image under edit, with what goes with it: image size, stereo viewing, range limits.

#include <algorithm>

#include "EdidUtils.h"
#include "EditImage.h"
#include "Standards/BaseBlock.h"
#include "Standards/Modes.h"
#include "TextFormat.h"

using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

namespace
{
using SLimits = Descriptors::SRangeLimits;

// ---- Stereo viewing ----

// Its kinds refer to the lines or frames of the timing: another picture may need another one.
bool HasOtherPicture(const unsigned char* pui8First, const unsigned char* pui8Second)
{
    return gsc_oHorizontalActive.Read(pui8First) != gsc_oHorizontalActive.Read(pui8Second) ||
           gsc_oVerticalActive.Read(pui8First) != gsc_oVerticalActive.Read(pui8Second) ||
           gsc_oInterlaced.Read(pui8First) != gsc_oInterlaced.Read(pui8Second);
}

bool IsStereo(const unsigned char* pui8Descriptor)
{
    constexpr unsigned int uiFirstKind = 2;
    return gsc_oStereo.Read(pui8Descriptor) >= uiFirstKind;
}

// ---- Range limits ----

// The offset of the first range limits; 0 without any.
unsigned int FindLimits(const unsigned char* pui8Base)
{
    for (unsigned int i = 0; i < gsc_uiDescriptors; ++i)
    {
        const unsigned char* pui8Descriptor = pui8Base + DescriptorOffset(i);
        if (!HasPixelClock(pui8Descriptor) && pui8Descriptor[gsc_uiTagOffset] == gsc_ui8TagRangeLimits)
        {
            return DescriptorOffset(i);
        }
    }
    return 0;
}

std::string GetLimitsText(const SLimits& oLimits)
{
    constexpr double dKiloHzPerMegaHz = 1000;
    const std::string sRates =
        FormatText("%u to %u Hz, %u to %u kHz", oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz,
                   oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz);
    const unsigned int uiClock = oLimits.m_uiPreciseMaxPixelClockInKiloHz;
    return uiClock == 0 ? sRates : sRates + FormatText(", %g MHz", uiClock / dKiloHzPerMegaHz);
}

// Makes limits hold a rate of ullPart / ullWhole in their unit, which is beyond them.
void Widen(unsigned int& uiLeast, unsigned int& uiMost, unsigned long long ullPart, unsigned long long ullWhole)
{
    const bool bBelow = ullPart < uiLeast * ullWhole;
    uiLeast = bBelow ? static_cast<unsigned int>(ullPart / ullWhole) : uiLeast;
    uiMost = bBelow ? uiMost : static_cast<unsigned int>((ullPart + ullWhole - 1) / ullWhole);
}

SLimits WidenLimits(const SLimits& oLimits, const SZorMode& oMode)
{
    constexpr unsigned int uiHzPerKiloHz = 1000;
    SLimits oWide = oLimits;
    if (IsFieldRateBeyond(oLimits, oMode.m_oRate.m_ullDividend, oMode.m_oRate.m_ullDivisor))
    {
        Widen(oWide.m_uiMinVerticalRateInHz, oWide.m_uiMaxVerticalRateInHz, oMode.m_oRate.m_ullDividend,
              oMode.m_oRate.m_ullDivisor);
    }
    const unsigned int uiClock = static_cast<unsigned int>(oMode.m_ullClock / uiHzPerKiloHz);
    if (IsLineRateBeyond(oLimits, uiClock, oMode.m_oHorizontal.m_uiTotal))
    {
        Widen(oWide.m_uiMinHorizontalRateInKiloHz, oWide.m_uiMaxHorizontalRateInKiloHz, uiClock,
              oMode.m_oHorizontal.m_uiTotal);
    }
    if (IsPixelClockBeyond(oLimits, uiClock))
    {
        oWide.m_uiMaxPixelClockInKiloHz =
            (uiClock + gsc_uiKiloHzPer10MegaHz - 1) / gsc_uiKiloHzPer10MegaHz * gsc_uiKiloHzPer10MegaHz;
        oWide.m_uiPreciseMaxPixelClockInKiloHz = oWide.m_uiMaxPixelClockInKiloHz;
    }
    return oWide;
}

// The places of one direction, and what they shall hold.
struct SRates
{
    const SPlace& m_oMinimum;
    const SPlace& m_oMaximum;
    const SPlace& m_oOffsets;
    unsigned int m_uiLeast;
    unsigned int m_uiMost;
};

// False when the bytes, 1 to 255 each and from revision 4 on with offsets, cannot hold the rates.
bool WriteRates(unsigned char* pui8Limits, bool bOffsets, const SRates& oRates)
{
    constexpr unsigned int uiMaximumOffset = 2;
    constexpr unsigned int uiBothOffsets = 3;
    const unsigned int uiMost = bOffsets ? 2 * gsc_uiRateOffset : gsc_uiRateOffset;
    if (oRates.m_uiLeast == 0 || oRates.m_uiMost > uiMost)
    {
        return false;
    }
    const unsigned int uiOffsets = oRates.m_uiLeast > gsc_uiRateOffset  ? uiBothOffsets
                                   : oRates.m_uiMost > gsc_uiRateOffset ? uiMaximumOffset
                                                                        : 0;
    oRates.m_oMinimum.Write(pui8Limits, oRates.m_uiLeast - (IsMinimumOffset(uiOffsets) ? gsc_uiRateOffset : 0));
    oRates.m_oMaximum.Write(pui8Limits, oRates.m_uiMost - (IsMaximumOffset(uiOffsets) ? gsc_uiRateOffset : 0));
    if (bOffsets)
    {
        oRates.m_oOffsets.Write(pui8Limits, uiOffsets);
    }
    return true;
}

// Only what differs is written.
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
    return (!bVertical || WriteRates(pui8Limits, b4,
                                     { gsc_oMinVerticalRate, gsc_oMaxVerticalRate, gsc_oVerticalOffsets,
                                       oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz })) &&
           (!bHorizontal ||
            WriteRates(pui8Limits, b4,
                       { gsc_oMinHorizontalRate, gsc_oMaxHorizontalRate, gsc_oHorizontalOffsets,
                         oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz }));
}
} // namespace

// The image size in the descriptor is not part of the timing: the library fills it anew, in centimetres, so what was
// there is put back. It clears the stereo viewing, which stays with the picture.
std::string CEditImage::SetPreferred(const CVidParamTimingGeneric& oTiming)
{
    constexpr unsigned int uiImageSize = 12; // in the descriptor, three bytes
    constexpr unsigned int uiImageSizeEnd = 15;
    const CBytes aui8Before(m_oEdid.GetBaseBlock(), m_oEdid.GetBaseBlock() + gsc_uiBlockSize);
    const unsigned int uiCount = m_oEdid.GetBaseDetailedCount();
    CTimingOrigins aoOrigins;
    m_oEdid.CEdidBase::ListDetailedOrigins(aoOrigins);
    if (uiCount == 0 || aoOrigins.GetCount() == 0 || m_oEdid.SetPreferredMode(&oTiming) == 0)
    {
        return "the image has no preferred timing that could be replaced";
    }
    CBytes aui8Base(m_oEdid.GetBaseBlock(), m_oEdid.GetBaseBlock() + gsc_uiBlockSize);
    const unsigned char* pui8Old = aui8Before.data() + aoOrigins[0].m_uiOffset;
    unsigned char* pui8New = aui8Base.data() + aoOrigins[0].m_uiOffset;
    const bool bStereoGoes = IsStereo(pui8Old) && HasOtherPicture(pui8Old, pui8New);
    std::copy(pui8Old + uiImageSize, pui8Old + uiImageSizeEnd, pui8New + uiImageSize);
    gsc_oStereo.Write(pui8New, bStereoGoes ? 0 : gsc_oStereo.Read(pui8Old));
    SetBase(aui8Base);
    CVidParamTimingGeneric oRead;
    if (m_oEdid.GetBaseDetailed(0, &oRead) == 0 || m_oEdid.GetBaseDetailedCount() != uiCount ||
        !IsSameMode(oRead, oTiming))
    {
        return "the timing does not fit into a detailed descriptor";
    }
    SBlockEdits& oEdits = m_aoBlocks.front().m_oEdits;
    oEdits.m_bPreferred = true;
    oEdits.m_oPreferred = oTiming;
    if (bStereoGoes)
    {
        oEdits.m_bStereoCleared = true;
        m_asNotes.emplace_back("the stereo viewing of the old timing is cleared, as the picture is another one");
    }
    FollowWithLimits(aoOrigins[0].m_uiOffset);
    return "";
}

// Widens the range limits to hold the timing at this offset, or says that they do not.
void CEditImage::FollowWithLimits(unsigned int uiTiming)
{
    CBytes aui8Base(m_oEdid.GetBaseBlock(), m_oEdid.GetBaseBlock() + gsc_uiBlockSize);
    CBytes aui8Before = aui8Base;
    const unsigned int uiOffset = FindLimits(aui8Base.data());
    const unsigned int uiRevision = ReadRevision(aui8Base.data());
    const unsigned int uiCount = m_oEdid.GetBaseDetailedCount();
    SZorMode oMode = {};
    if (uiOffset == 0 || !ReadDetailedMode({ aui8Base.data() + uiTiming, gsc_uiDescriptorSize }, oMode) ||
        oMode.m_oRate.m_ullDivisor == 0)
    {
        return;
    }
    unsigned char* pui8Limits = aui8Base.data() + uiOffset;
    const SLimits oOld = ReadRangeLimits(pui8Limits, uiRevision);
    const SLimits oWide = WidenLimits(oOld, oMode);
    if (oOld == oWide)
    {
        return;
    }
    bool bHeld = WriteLimits(pui8Limits, uiRevision, oWide);
    if (bHeld)
    {
        SetBase(aui8Base);
        bHeld = m_oEdid.GetBaseDetailedCount() == uiCount; // the library takes limits with offsets for a timing
    }
    if (!bHeld)
    {
        SetBase(aui8Before);
        m_asNotes.push_back("the timing exceeds the range limits, which cannot be widened so far: " +
                            GetLimitsText(oOld));
        return;
    }
    SBlockEdits& oEdits = m_aoBlocks.front().m_oEdits;
    oEdits.m_bLimits = true;
    oEdits.m_oLimits = oWide;
    m_asNotes.push_back("the range limits become " + GetLimitsText(oWide) + "; they were " + GetLimitsText(oOld));
}
