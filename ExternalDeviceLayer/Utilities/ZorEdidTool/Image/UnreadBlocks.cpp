// The blocks that the library drops, as error lines.

#include "UnreadBlocks.h"

#include "EdidUtils.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"
#include "Tool.h"
#include "UnreadReason.h"

std::string DescribeUnreadBlocks(const SInput& oInput, const CLoadedImage& oImage, const char* pszRepair)
{
    std::string sLines;
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        if (oBlock.m_poLoaded != nullptr || oBlock.GetTag() == ZorStandards::gsc_uiBlockMapTag)
        {
            continue;
        }
        sLines += MakeErrorLine(
            oInput.m_sName,
            FormatText("block %u (%s) is not read: %s; check and explain say more", oBlock.m_uiNumber,
                       GetBlockKind(oBlock.GetTag()),
                       static_cast<const char*>(ZorCheck::FindUnreadReason(oBlock.m_pui8Bytes, pszRepair))));
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
