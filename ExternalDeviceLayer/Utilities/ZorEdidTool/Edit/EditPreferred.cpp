// The preferred timing of an image under edit, with what goes with it: image size, native format, stereo viewing, range
// limits.

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "EdidDetailedTiming.h"
#include "EdidUtils.h"
#include "EditImage.h"
#include "EditLimits.h"
#include "ExactTimings.h"
#include "ImageModes.h"
#include "Standards/BaseBlock.h"
#include "Standards/Modes.h"
#include "Timings.h"
#include "ZorEdidModes.h"

using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

namespace
{
// ---- The image's own timing ----

// Whether it may become a detailed timing: numbers that the image gives or that go with its codes, each pixel sent
// once, in every colour format.
bool IsUsable(const SZorImageMode& oEntry, const SZorMode& oWanted)
{
    const SZorMode& oMode = oEntry.m_oMode;
    return oMode.m_bTiming && oEntry.m_eNumbers != SZorImageMode::eNumbers_Assumed &&
           oMode.m_eY420 != SZorMode::eY420_Only && oMode.m_oHorizontal.m_uiActive == oWanted.m_uiWidth &&
           oMode.m_ullClock <= std::numeric_limits<unsigned int>::max() && IsMeant(oMode, oWanted);
}

// The nearest rate first, to two decimals; of these a timing that the image spells out, as a panel may need it.
std::pair<long, bool> Rank(const SZorImageMode& oEntry, const SZorMode& oWanted)
{
    const double dHz = GetRate(oEntry.m_oMode) - GetHz(oWanted.m_oNominalRate);
    return { std::lround(std::abs(dHz) * 100), oEntry.m_eNumbers != SZorImageMode::eNumbers_Bytes };
}

// Null without one.
const SZorImageMode* FindOwn(const CZorEdidModes& oModes, const SZorMode& oWanted)
{
    const SZorImageMode* poBest = nullptr;
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorImageMode& oEntry = oModes.Get(i);
        if (IsUsable(oEntry, oWanted) && (poBest == nullptr || Rank(oEntry, oWanted) < Rank(*poBest, oWanted)))
        {
            poBest = &oEntry;
        }
    }
    return poBest;
}

ZorCore::SDetailedAxis MakeAxis(const SZorMode::SAxis& oAxis)
{
    return { oAxis.m_uiActive, oAxis.m_uiTotal - oAxis.m_uiActive, oAxis.m_uiFront, oAxis.m_uiSync, oAxis.m_bPositive };
}

// Of a progressive mode.
CVidParamTimingGeneric MakeTiming(const SZorMode& oMode)
{
    CVidParamTimingGeneric oTiming;
    ZorCore::StoreDetailedTiming({ static_cast<unsigned int>(oMode.m_ullClock / 1000), false, true,
                                   MakeAxis(oMode.m_oHorizontal), MakeAxis(oMode.m_oVertical) },
                                 oTiming);
    return oTiming;
}

// ---- Native format ----

// Only EDID 1.4 has the bit: before, it declares the preferred timing itself.
bool IsCalledNative(const unsigned char* pui8Base) { return IsNativeTimingDeclared(pui8Base); }

// ---- Stereo viewing ----

// Its kinds refer to the lines or frames of the timing: another picture may need another kind.
bool IsStereo(const unsigned char* pui8Descriptor)
{
    constexpr unsigned int uiFirstKind = 2;
    return gsc_oStereo.Read(pui8Descriptor) >= uiFirstKind;
}
} // namespace

bool HasOtherPicture(const unsigned char* pui8First, const unsigned char* pui8Second)
{
    return gsc_oHorizontalActive.Read(pui8First) != gsc_oHorizontalActive.Read(pui8Second) ||
           gsc_oVerticalActive.Read(pui8First) != gsc_oVerticalActive.Read(pui8Second) ||
           gsc_oInterlaced.Read(pui8First) != gsc_oInterlaced.Read(pui8Second);
}

// The mode by the timing that the image has for it, which its panel is known to take; without one by that of the tables
// and formulas, which is said.
std::string CEditImage::SetPreferred(const SEdit& oEdit)
{
    const SZorMode& oWanted = oEdit.m_oWanted.m_oMode;
    if (oWanted.m_uiWidth == 0)
    {
        return ReplacePreferred(oEdit.m_oTiming); // its type was asked for
    }
    CZorEdidModes oModes;
    oModes.Read(static_cast<unsigned int>(m_aui8Read.size()), m_aui8Read.data());
    if (const SZorImageMode* const poOwn = FindOwn(oModes, oWanted); poOwn != nullptr)
    {
        return ReplacePreferred(MakeTiming(poOwn->m_oMode));
    }
    m_asNotes.push_back("the image has no timing of this mode; this one is by " +
                        std::string(GetTypeName(oEdit.m_oTiming.GetVideoFamilyType())));
    return ReplacePreferred(oEdit.m_oTiming);
}

// The image size in the descriptor is not part of the timing: the library fills it anew, in centimetres, so what was
// there is put back. It clears the stereo viewing, which stays with the picture.
std::string CEditImage::ReplacePreferred(const CVidParamTimingGeneric& oTiming)
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
    const bool bOtherPicture = HasOtherPicture(pui8Old, pui8New);
    const bool bStereoGoes = IsStereo(pui8Old) && bOtherPicture;
    const bool bNativeGoes = IsCalledNative(aui8Base.data()) && bOtherPicture;
    std::copy(pui8Old + uiImageSize, pui8Old + uiImageSizeEnd, pui8New + uiImageSize);
    gsc_oStereo.Write(pui8New, bStereoGoes ? 0 : gsc_oStereo.Read(pui8Old));
    if (bNativeGoes)
    {
        gsc_oPreferredIsNative.Write(aui8Base.data(), 0);
        m_aoBlocks.front().m_oEdits.m_oValues[eZorEdidField_BaseDisplayPreferredIsNative] = 0;
    }
    SetBase(aui8Base);
    CVidParamTimingGeneric oRead;
    if (m_oEdid.GetBaseDetailed(0, &oRead) == 0 || m_oEdid.GetBaseDetailedCount() != uiCount ||
        !IsSameMode(oRead, oTiming))
    {
        return "the timing does not fit into a detailed descriptor, which holds up to 4095 x 4095 pixels at 655.35 MHz";
    }
    SBlockEdits& oEdits = m_aoBlocks.front().m_oEdits;
    oEdits.m_bPreferred = true;
    oEdits.m_oPreferred = oTiming;
    if (bStereoGoes)
    {
        oEdits.m_bStereoCleared = true;
        m_asNotes.emplace_back("the stereo viewing of the old timing is cleared, as the picture is another one");
    }
    if ((bOtherPicture && ClearNativeCounts()) || bNativeGoes)
    {
        m_asNotes.emplace_back("the timing is no longer called native, as its picture differs");
    }
    FollowWithLimits(aoOrigins[0].m_uiOffset);
    return "";
}

// The CTA-861 blocks count how many of the image's first detailed timings are native: none where that was this one
// alone. Of several the others stay native, and it has to stay with them. Whether a block has changed.
bool CEditImage::ClearNativeCounts()
{
    bool bCleared = false;
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        const unsigned int uiNatives =
            poCea != nullptr ? ZorStandards::Cta::gsc_oNativeCount.Read(poCea->GetData()) : 0;
        if (uiNatives == 1 && poCea->SetNativeDetailedCount(0) != 0) // revision 1 has no such number
        {
            oBlock.m_oEdits.m_oValues[eZorEdidField_CtaNativeCount] = 0;
            bCleared = true;
        }
        else if (uiNatives > 1 && poCea->SetNativeDetailedCount(uiNatives) != 0)
        {
            m_asNotes.push_back(NameBlock(oBlock) + " still counts the timing among " + std::to_string(uiNatives) +
                                " native ones");
        }
    }
    return bCleared;
}

// Widens the range limits to hold the timing at this offset, or says that they do not.
void CEditImage::FollowWithLimits(unsigned int uiTiming)
{
    CBytes aui8Base(m_oEdid.GetBaseBlock(), m_oEdid.GetBaseBlock() + gsc_uiBlockSize);
    CBytes aui8Before = aui8Base;
    const unsigned int uiOffset = FindRangeLimits(aui8Base.data());
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
