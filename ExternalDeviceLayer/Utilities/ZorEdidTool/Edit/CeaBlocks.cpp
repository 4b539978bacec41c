// Data blocks and descriptor area of a CTA-861 block.

#include "CeaBlocks.h"

#include <algorithm>

#include "Cea861Bytes.h"
#include "Standards/Descriptors.h"

using namespace ZorStandards;
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

CBytes GetWithTimingsFirst(const CEdidExtBlockCEA861& oBlock)
{
    const unsigned char* pui8Data = oBlock.GetData();
    CBytes aui8Timings;
    CBytes aui8Others;
    const unsigned int uiStart = std::max<unsigned int>(pui8Data[gsc_uiDetailedStartOffset], gsc_uiDataBlocksOffset);
    unsigned int uiEnd = uiStart;
    for (; uiEnd + gsc_uiDetailedSize <= gsc_uiChecksumOffset && Descriptors::IsDescriptor(pui8Data + uiEnd);
         uiEnd += gsc_uiDetailedSize)
    {
        CBytes& aui8Kind = Descriptors::HasPixelClock(pui8Data + uiEnd) ? aui8Timings : aui8Others;
        aui8Kind.insert(aui8Kind.end(), pui8Data + uiEnd, pui8Data + uiEnd + gsc_uiDetailedSize);
    }
    CBytes aui8Block(pui8Data, pui8Data + gsc_uiBlockSize);
    const auto itOthers = std::copy(aui8Timings.begin(), aui8Timings.end(), aui8Block.begin() + uiStart);
    std::copy(aui8Others.begin(), aui8Others.end(), itOthers);
    return aui8Block;
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
