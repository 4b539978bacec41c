// The preferred timing of an image under edit, with what goes with it: image size, stereo viewing, range limits.

#include <algorithm>

#include "EdidUtils.h"
#include "EditImage.h"
#include "EditLimits.h"
#include "Standards/BaseBlock.h"
#include "Standards/Modes.h"

using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

namespace
{
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
