// Why the library drops a block: what the classes of the blocks ask before they take one.

#include "UnreadBlocks.h"

#include "EdidUtils.h"
#include "TextFormat.h"
#include "Tool.h"

namespace
{
constexpr unsigned int gsc_uiCeaTag = 0x02;
constexpr unsigned int gsc_uiBlockMapTag = 0xF0; // a list of the blocks, and nothing that could be missed
constexpr unsigned int gsc_uiRevisionOffset = 1;
constexpr unsigned int gsc_uiHighestCeaRevision = 3;
constexpr unsigned int gsc_uiHighestDisplayId = 0x12;
constexpr unsigned int gsc_uiSectionLengthOffset = 2;
constexpr unsigned int gsc_uiLongestSection = 121; // bytes of data blocks; two checksums follow

// The reason other than a checksum; empty when that is it.
std::string FindReason(const SImageBlock& oBlock)
{
    const unsigned int uiRevision = oBlock.m_pui8Bytes[gsc_uiRevisionOffset];
    if (oBlock.GetTag() == gsc_uiCeaTag)
    {
        return uiRevision > gsc_uiHighestCeaRevision ? FormatText("its revision is %u, above 3", uiRevision) : "";
    }
    if (oBlock.GetTag() == gsc_uiDisplayIdTag)
    {
        return uiRevision > gsc_uiHighestDisplayId
                   ? FormatText("its DisplayID version is %u.%u, above 1.2", uiRevision >> 4, uiRevision & 0x0F)
               : oBlock.m_pui8Bytes[gsc_uiSectionLengthOffset] > gsc_uiLongestSection
                   ? "its DisplayID section runs past its end"
                   : "";
    }
    return "the library keeps no model of its kind";
}
} // namespace

std::string DescribeUnreadBlocks(const SInput& oInput, const CLoadedImage& oImage, const char* pszRepair)
{
    std::string sLines;
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        if (oBlock.m_poLoaded != nullptr || oBlock.GetTag() == gsc_uiBlockMapTag)
        {
            continue;
        }
        std::string sReason = FindReason(oBlock);
        if (sReason.empty())
        {
            const bool bValid = CEdidUtils::Is8BitsChecksumValid(CEdidUtils::msc_uiBlockSize, oBlock.m_pui8Bytes) != 0;
            sReason = bValid ? "its section's checksum is wrong" : "its checksum is wrong";
            sReason += pszRepair;
        }
        sLines += MakeErrorLine(oInput.m_sName,
                                FormatText("block %u (%s) is not read: %s; check and explain tell more",
                                           oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()), sReason.c_str()));
    }
    return sLines;
}
