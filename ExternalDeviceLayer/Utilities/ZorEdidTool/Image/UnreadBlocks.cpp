// Why the library drops a block: what the classes of the blocks ask before they take one.

#include "UnreadBlocks.h"

#include "EdidUtils.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"
#include "Tool.h"

std::string FindUnreadReason(const unsigned char* pui8Block, const char* pszRepair)
{
    const unsigned int uiRevision = pui8Block[1];
    switch (CEdidExtBlock::GetRefusal(CEdidUtils::msc_uiBlockSize, pui8Block))
    {
    case CEdidExtBlock::eRefusal_None:
        return "";
    case CEdidExtBlock::eRefusal_Revision:
        return pui8Block[0] == gsc_uiDisplayIdTag
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

std::string DescribeUnreadBlocks(const SInput& oInput, const CLoadedImage& oImage, const char* pszRepair)
{
    std::string sLines;
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        if (oBlock.m_poLoaded != nullptr || oBlock.GetTag() == ZorStandards::gsc_uiBlockMapTag)
        {
            continue;
        }
        sLines += MakeErrorLine(oInput.m_sName, FormatText("block %u (%s) is not read: %s; check and explain say more",
                                                           oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()),
                                                           FindUnreadReason(oBlock.m_pui8Bytes, pszRepair).c_str()));
    }
    const size_t uiLast = oInput.m_aui8Bytes.size() / CEdidUtils::msc_uiBlockSize - 1;
    const size_t uiLeft = uiLast - oImage.GetBlocks().size();
    if (uiLeft != 0)
    {
        const std::string sBlocks = uiLeft == 1 ? FormatText("block %zu is", uiLast)
                                                : FormatText("blocks %zu to %zu are", uiLast - uiLeft + 1, uiLast);
        sLines += MakeErrorLine(oInput.m_sName,
                                sBlocks + " not read: the base block does not count " + (uiLeft == 1 ? "it" : "them"));
    }
    return sLines;
}
