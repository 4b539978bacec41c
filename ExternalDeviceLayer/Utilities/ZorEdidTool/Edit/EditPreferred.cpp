// The preferred timing of an image under edit.

#include "EdidUtils.h"
#include "EditImage.h"
#include "Standards/BaseBlock.h"
#include "Standards/CtaBlocks.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
} // namespace

// The image size in the descriptor is not part of the timing: the library fills it anew, in centimetres, so what was
// there is put back.
std::string CEditImage::SetPreferred(const CVidParamTimingGeneric& oTiming)
{
    constexpr unsigned int uiImageSize = 12; // in the descriptor, three bytes
    constexpr unsigned int uiImageSizeEnd = 15;
    CBytes aui8Base(m_oEdid.GetBaseBlock(), m_oEdid.GetBaseBlock() + gsc_uiBlockSize);
    const unsigned int uiCount = m_oEdid.GetBaseDetailedCount();
    if (uiCount == 0 || m_oEdid.SetPreferredMode(&oTiming) == 0)
    {
        return "the image has no preferred timing that could be replaced";
    }
    const unsigned char* pui8Edited = m_oEdid.GetBaseBlock();
    for (unsigned int uiSlot = ZorStandards::BaseBlock::gsc_uiDescriptorsOffset;
         uiSlot < ZorStandards::BaseBlock::gsc_uiExtensionCountOffset; uiSlot += ZorStandards::Cta::gsc_uiDetailedSize)
    {
        for (unsigned int i = 0; i < ZorStandards::Cta::gsc_uiDetailedSize; ++i)
        {
            const bool bKept = i >= uiImageSize && i < uiImageSizeEnd;
            aui8Base[uiSlot + i] = bKept ? aui8Base[uiSlot + i] : pui8Edited[uiSlot + i];
        }
    }
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
    return "";
}
