// Why the library drops a block: what the classes of the blocks ask before they take one.

#include "UnreadBlocks.h"

#include "EdidUtils.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"
#include "Tool.h"

namespace
{
std::string DescribeRefusal(const SImageBlock& oBlock, const char* pszRepair)
{
    const unsigned int uiRevision = oBlock.m_pui8Bytes[1];
    switch (CEdidExtBlock::GetRefusal(CEdidUtils::msc_uiBlockSize, oBlock.m_pui8Bytes))
    {
    case CEdidExtBlock::eRefusal_Revision:
        return oBlock.GetTag() == gsc_uiDisplayIdTag
                   ? FormatText("its DisplayID version is %u.%u, above 1.2", uiRevision >> 4, uiRevision & 0x0F)
                   : FormatText("its revision is %u, above 3", uiRevision);
    case CEdidExtBlock::eRefusal_SectionSize:
        return "its DisplayID section runs past its end";
    case CEdidExtBlock::eRefusal_Checksum:
        return std::string("its checksum is wrong") + pszRepair;
    case CEdidExtBlock::eRefusal_SectionChecksum:
        return std::string("its section's checksum is wrong") + pszRepair;
    default:
        return "the library keeps no model of its kind";
    }
}
} // namespace

std::string DescribeUnreadBlocks(const SInput& oInput, const CLoadedImage& oImage, const char* pszRepair)
{
    std::string sLines;
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        if (oBlock.m_poLoaded != nullptr || oBlock.GetTag() == ZorStandards::gsc_uiBlockMapTag)
        {
            continue;
        }
        const std::string sReason = DescribeRefusal(oBlock, pszRepair);
        sLines += MakeErrorLine(oInput.m_sName,
                                FormatText("block %u (%s) is not read: %s; check and explain tell more",
                                           oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()), sReason.c_str()));
    }
    return sLines;
}
