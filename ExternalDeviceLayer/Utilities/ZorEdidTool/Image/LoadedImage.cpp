// Loading an input, and telling the blocks that the library kept from those that it dropped.

#include "LoadedImage.h"

#include <string.h>

#include "CeaBlocks.h"
#include "EdidBaseLayout.h"
#include "TextFormat.h"
#include "ZorEdidMap.h"

using namespace EdidBaseLayout;

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

// Range limits whose byte 4 has flags, which make them no display descriptor in the library's eyes: bits 0 and 1 for
// the vertical rates, bits 2 and 3 for the horizontal ones. 2 puts 255 on the maximum, 3 on both, in the units of the
// descriptor. False for other descriptors and flags: 1 is reserved.
bool ReadFlaggedLimits(const unsigned char* pui8Descriptor, CEdidBase::SRangeLimits& oLimits)
{
    constexpr unsigned int uiFlagsOffset = 4;
    constexpr unsigned int uiRateOffset = 255;
    const unsigned int uiFlags = pui8Descriptor[uiFlagsOffset];
    const unsigned int uiVertical = uiFlags & 3;
    const unsigned int uiHorizontal = uiFlags >> 2 & 3;
    if (pui8Descriptor[0] != 0 || pui8Descriptor[1] != 0 || pui8Descriptor[2] != 0 ||
        pui8Descriptor[gsc_uiTagOffset] != gsc_ui8TagRangeLimits || uiFlags > 0x0F || uiVertical == 1 ||
        uiHorizontal == 1)
    {
        return false;
    }
    const auto fnRate = [&](unsigned int uiPlace, bool bHigher) {
        return pui8Descriptor[uiPlace] + (bHigher ? uiRateOffset : 0);
    };
    oLimits = { fnRate(gsc_uiMinVerticalRateOffset, uiVertical == 3),
                fnRate(gsc_uiMaxVerticalRateOffset, uiVertical >= 2),
                fnRate(gsc_uiMinHorizontalRateOffset, uiHorizontal == 3),
                fnRate(gsc_uiMaxHorizontalRateOffset, uiHorizontal >= 2),
                0,
                pui8Descriptor[gsc_uiMaxPixelClockOffset] * gsc_uiKiloHzPer10MegaHz };
    return true;
}

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

unsigned int CLoadedImage::GetAnnouncedCount() const { return m_oEdid.GetBaseBlock()[gsc_uiExtensionCountOffset]; }

bool CLoadedImage::GetRangeLimits(CEdidBase::SRangeLimits& oLimits) const
{
    const unsigned char* pui8Base = m_oEdid.GetBaseBlock();
    bool bFound = m_oEdid.GetMonitorRangeLimits(oLimits) != 0;
    const bool bFlags = IsAtLeastRevision(pui8Base, gsc_uiVideoInputRevision);
    for (unsigned int i = 0; bFlags && !bFound && i < CEdidBase::msc_uiDescriptorCount; ++i)
    {
        bFound = ReadFlaggedLimits(pui8Base + DescriptorOffset(i), oLimits);
    }
    return bFound;
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
