// Data blocks and descriptor area of a CEA-861 block, through the library's own search.

#include "CeaBlocks.h"

#include <algorithm>

std::vector<SCeaDataBlock> ListDataBlocks(const CEdidExtBlockCEA861& oBlock)
{
    constexpr unsigned int uiTags = 8;
    std::vector<SCeaDataBlock> aoBlocks;
    for (unsigned int uiTag = 0; uiTag < uiTags; ++uiTag)
    {
        const auto eTag = static_cast<CEdidExtBlockCEA861::ECea861_DataBlockTags>(uiTag);
        unsigned int uiLength = 0;
        unsigned int uiOffset = oBlock.GetDataBlockOffset(eTag, 0, &uiLength);
        for (unsigned int i = 1; uiOffset != 0; ++i)
        {
            const unsigned char* pui8Payload = oBlock.GetData() + uiOffset;
            aoBlocks.push_back({ uiTag, uiOffset, CBytes(pui8Payload, pui8Payload + uiLength) });
            uiOffset = oBlock.GetDataBlockOffset(eTag, i, &uiLength);
        }
    }
    std::sort(aoBlocks.begin(), aoBlocks.end(), [](const SCeaDataBlock& oFirst, const SCeaDataBlock& oSecond) {
        return oFirst.m_uiOffset < oSecond.m_uiOffset;
    });
    return aoBlocks;
}

bool AreDataBlocksExact(const CEdidExtBlockCEA861& oBlock)
{
    constexpr unsigned int uiDataBlocksRevision = 3; // the first one that has them
    const unsigned int uiStart = oBlock.GetData()[gsc_uiCeaDetailedStart];
    if (oBlock.GetRevision() < uiDataBlocksRevision || uiStart < gsc_uiCeaDataBlocks)
    {
        return true;
    }
    const std::vector<SCeaDataBlock> aoBlocks = ListDataBlocks(oBlock);
    const size_t uiEnd =
        aoBlocks.empty() ? gsc_uiCeaDataBlocks : aoBlocks.back().m_uiOffset + aoBlocks.back().m_aui8Payload.size();
    return uiEnd == uiStart;
}

CBytes GetDescriptorArea(const CEdidExtBlockCEA861& oBlock)
{
    const unsigned char* pui8Data = oBlock.GetData();
    const unsigned int uiStart = std::clamp<unsigned int>(pui8Data[gsc_uiCeaDetailedStart], gsc_uiCeaDataBlocks,
                                                          CEdidUtils::msc_uiChecksumOffset);
    CBytes aui8Area(pui8Data + uiStart, pui8Data + CEdidUtils::msc_uiChecksumOffset);
    while (!aui8Area.empty() && aui8Area.back() == 0)
    {
        aui8Area.pop_back();
    }
    return aui8Area;
}
