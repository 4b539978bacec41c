// Data blocks and descriptor area of a CTA-861 block.

#include "CeaBlocks.h"

#include <algorithm>

#include "Cea861Bytes.h"

using namespace ZorStandards::Cta;

CDataBlockWalk WalkDataBlocks(const CEdidExtBlockCEA861& oBlock)
{
    return ZorCore::CCea861Bytes(oBlock.GetData(), oBlock.GetRevision()).Walk();
}

bool AreDataBlocksExact(const CEdidExtBlockCEA861& oBlock)
{
    const unsigned int uiStart = oBlock.GetData()[gsc_uiDetailedStartOffset];
    return uiStart == 0 || (uiStart >= gsc_uiDataBlocksOffset && WalkDataBlocks(oBlock).EndsExactly());
}

CBytes GetDescriptorArea(const CEdidExtBlockCEA861& oBlock)
{
    const unsigned char* pui8Data = oBlock.GetData();
    const unsigned int uiStart =
        std::clamp<unsigned int>(pui8Data[gsc_uiDetailedStartOffset], gsc_uiDataBlocksOffset, gsc_uiChecksumOffset);
    CBytes aui8Area(pui8Data + uiStart, pui8Data + gsc_uiChecksumOffset);
    while (!aui8Area.empty() && aui8Area.back() == 0)
    {
        aui8Area.pop_back();
    }
    return aui8Area;
}
