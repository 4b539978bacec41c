#include "ExtensionBlocks.h"

unsigned int ZorStandards::FindExtensionCount(const unsigned char* pui8Image, unsigned int uiSize)
{
    using namespace Cta;
    constexpr SDataBlockKind oOverride = { gsc_uiExtendedOverride, true };
    constexpr unsigned int uiCountOffset = gsc_uiDataBlocksOffset + gsc_uiHeaderSize + 1; // after the extended tag
    if (uiSize < 2 * gsc_uiBlockSize || pui8Image[BaseBlock::gsc_uiExtensionCountOffset] == 0)
    {
        return BaseBlock::gsc_uiExtensionCountOffset;
    }
    const unsigned char* pui8Block = pui8Image + gsc_uiBlockSize;
    CDataBlockWalk oWalk(pui8Block, pui8Block[gsc_uiDetailedStartOffset]);
    const bool bOverridden = pui8Block[gsc_uiTagOffset] == gsc_uiTag &&
                             pui8Block[gsc_uiRevisionOffset] >= gsc_uiDataBlocksRevision && oWalk.Next(oOverride) &&
                             oWalk.GetPayload().m_uiOffset == uiCountOffset && oWalk.GetLength() != 0;
    return bOverridden ? gsc_uiBlockSize + uiCountOffset : BaseBlock::gsc_uiExtensionCountOffset;
}
