// Loading an input, and telling the blocks that the library kept from those that it dropped.

#include "LoadedImage.h"

#include <string.h>

#include "CeaBlocks.h"
#include "EdidBaseLayout.h"
#include "TextFormat.h"
#include "ZorEdidMap.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

// What byte 4 of range limits adds to the rates: bits 0 and 1 for the vertical ones, bits 2 and 3 for the horizontal
// ones. 2 puts 255 on the maximum, 3 on both, in the units of the descriptor.
struct SRangeOffsets
{
    unsigned int m_uiVertical;
    unsigned int m_uiHorizontal;
    bool m_bKnown; // neither 1, which is reserved, nor other bits

    explicit SRangeOffsets(unsigned int uiFlags)
        : m_uiVertical(uiFlags & 3), m_uiHorizontal(uiFlags >> 2 & 3),
          m_bKnown(uiFlags <= 0x0F && m_uiVertical != 1 && m_uiHorizontal != 1)
    {
    }

    void Apply(CEdidBase::SRangeLimits& oLimits) const
    {
        constexpr unsigned int uiOffset = 255;
        oLimits.m_uiMinVerticalRateInHz += m_uiVertical == 3 ? uiOffset : 0;
        oLimits.m_uiMaxVerticalRateInHz += m_uiVertical >= 2 ? uiOffset : 0;
        oLimits.m_uiMinHorizontalRateInKiloHz += m_uiHorizontal == 3 ? uiOffset : 0;
        oLimits.m_uiMaxHorizontalRateInKiloHz += m_uiHorizontal >= 2 ? uiOffset : 0;
    }
};

// Why CEdid::SetEdidBuffer refuses an image; empty for one that it takes.
std::string FindProblem(const std::vector<unsigned char>& aui8Bytes)
{
    if (aui8Bytes.empty())
    {
        return "is empty";
    }
    if (aui8Bytes.size() % gsc_uiBlockSize != 0)
    {
        return FormatText("no EDID: %zu bytes, which is no multiple of %u", aui8Bytes.size(), gsc_uiBlockSize);
    }
    if (memcmp(aui8Bytes.data(), EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) != 0)
    {
        return "no EDID: it does not begin with 00 ff ff ff ff ff ff 00";
    }
    return "";
}
} // namespace

const char* GetBlockKind(unsigned int uiTag)
{
    const char* pszKind = CZorEdidMap::GetBlockKind(uiTag);
    return pszKind != nullptr ? pszKind : "unknown";
}

// The library keeps the order and the bytes of the blocks, and the bytes alone decide whether it takes one: the next of
// its blocks is the first one of the image that equals it.
std::vector<int> MatchExtensions(CEdid& oEdid, const std::vector<unsigned char>& aui8Image)
{
    std::vector<int> aiExtensions = { -1 };
    unsigned int uiNext = 0;
    for (size_t i = 1; i < aui8Image.size() / gsc_uiBlockSize; ++i)
    {
        const CEdidExtBlock* poNext = oEdid.GetExtension(uiNext);
        const bool bTaken = poNext != nullptr &&
                            memcmp(poNext->GetData(), aui8Image.data() + i * gsc_uiBlockSize, gsc_uiBlockSize) == 0;
        aiExtensions.push_back(bTaken ? static_cast<int>(uiNext++) : -1);
    }
    return aiExtensions;
}

CEdidExtBlockCEA861* SImageBlock::GetCea() const { return AsCea(m_poLoaded); }

bool CLoadedImage::Load(const SInput& oInput)
{
    m_sProblem = oInput.IsGood() ? FindProblem(oInput.m_aui8Bytes) : oInput.m_sProblem;
    if (!m_sProblem.empty())
    {
        return false;
    }
    const unsigned int uiSize = static_cast<unsigned int>(oInput.m_aui8Bytes.size());
    if (m_oEdid.SetEdidBuffer(oInput.m_aui8Bytes.data(), uiSize, 0) == 0)
    {
        m_sProblem = "no EDID";
        return false;
    }
    FindBlocks(oInput);
    return true;
}

unsigned int CLoadedImage::GetAnnouncedCount() const
{
    return m_oEdid.GetBaseBlock()[EdidBaseLayout::gsc_uiExtensionCountOffset];
}

bool CLoadedImage::GetRangeLimits(CEdidBase::SRangeLimits& oLimits) const
{
    constexpr unsigned int uiFlagsOffset = 4; // of the descriptor
    const unsigned char* pui8Base = m_oEdid.GetBaseBlock();
    if (m_oEdid.GetMonitorRangeLimits(oLimits) != 0 ||
        !EdidBaseLayout::IsAtLeastRevision(pui8Base, EdidBaseLayout::gsc_uiVideoInputRevision))
    {
        return m_oEdid.GetMonitorRangeLimits(oLimits) != 0;
    }
    for (unsigned int i = 0; i < CEdidBase::msc_uiDescriptorCount; ++i)
    {
        unsigned char aui8Base[gsc_uiBlockSize];
        memcpy(aui8Base, pui8Base, sizeof(aui8Base));
        unsigned char& ui8Flags = aui8Base[EdidBaseLayout::DescriptorOffset(i) + uiFlagsOffset];
        const SRangeOffsets oOffsets(ui8Flags);
        ui8Flags = 0; // so the library takes it for a descriptor
        CEdidBase oBase;
        if (oOffsets.m_bKnown && oBase.SetEdidBuffer(aui8Base, sizeof(aui8Base), 0) != 0 &&
            oBase.GetMonitorRangeLimits(oLimits) != 0)
        {
            oOffsets.Apply(oLimits);
            return true;
        }
    }
    return false;
}

void CLoadedImage::FindBlocks(const SInput& oInput)
{
    m_aoBlocks.clear();
    const std::vector<int> aiExtensions = MatchExtensions(m_oEdid, oInput.m_aui8Bytes);
    for (unsigned int i = 1; i <= GetAnnouncedCount() && i < aiExtensions.size(); ++i)
    {
        CEdidExtBlock* poLoaded =
            aiExtensions[i] < 0 ? nullptr : m_oEdid.GetExtension(static_cast<unsigned int>(aiExtensions[i]));
        m_aoBlocks.push_back({ i, oInput.m_aui8Bytes.data() + i * gsc_uiBlockSize, poLoaded });
    }
}
