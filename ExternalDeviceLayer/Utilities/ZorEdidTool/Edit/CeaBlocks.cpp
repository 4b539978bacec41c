// Data blocks and descriptor area of a CTA-861 block.

#include "CeaBlocks.h"

#include <algorithm>

#include "Cea861Bytes.h"

using namespace ZorStandards::Cta;

std::unique_ptr<CEdidExtBlockCEA861> CopyCea(const unsigned char* pui8Bytes)
{
    return std::make_unique<CEdidExtBlockCEA861>(gsc_uiBlockSize, pui8Bytes, 0);
}

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

CBytes ListReferences(const CEdidExtBlockCEA861& oCea)
{
    CBytes aui8References;
    CDataBlockWalk oWalk = WalkDataBlocks(oCea);
    while (oWalk.Next({ CEdidExtBlockCEA861::eCea861Tag_Extended, false }))
    {
        const unsigned int uiTag = oWalk.GetLength() != 0 ? oWalk.GetByte(0) : 0;
        const unsigned int uiEnd = uiTag == gsc_uiExtendedPreference ? oWalk.GetLength()
                                   : uiTag == gsc_uiExtendedNative   ? std::min(2U, oWalk.GetLength())
                                                                     : 0;
        for (unsigned int i = 1; i < uiEnd; ++i)
        {
            aui8References.push_back(oWalk.GetByte(i));
        }
    }
    return aui8References;
}
