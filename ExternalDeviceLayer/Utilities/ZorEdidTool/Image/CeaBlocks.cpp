// Data blocks and descriptor area of a CEA-861 block, through the library's own search.

#include "CeaBlocks.h"

#include <algorithm>

#include "Hdmi1xVsdb.h"

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

std::vector<CBytes> ListPayloads(const CEdidExtBlockCEA861& oBlock, unsigned int uiTag)
{
    std::vector<CBytes> aaui8Payloads;
    for (const SCeaDataBlock& oDataBlock : ListDataBlocks(oBlock))
    {
        if (oDataBlock.m_uiTag == uiTag)
        {
            aaui8Payloads.push_back(oDataBlock.m_aui8Payload);
        }
    }
    return aaui8Payloads;
}

std::vector<CBytes> ListAudioBytes(const CEdidExtBlockCEA861& oBlock)
{
    std::vector<CBytes> aaui8Descriptors;
    for (const CBytes& aui8Payload : ListPayloads(oBlock, CEdidExtBlockCEA861::eCea861Tag_Audio))
    {
        for (auto o = aui8Payload.begin(); aui8Payload.end() - o >= gsc_uiAudioSize; o += gsc_uiAudioSize)
        {
            aaui8Descriptors.emplace_back(o, o + gsc_uiAudioSize);
        }
    }
    return aaui8Descriptors;
}

CBytes ListReferences(const CEdidExtBlockCEA861& oBlock)
{
    constexpr unsigned int uiNativeTag = 8; // extended tags
    constexpr unsigned int uiPreferenceTag = 13;
    CBytes aui8References;
    for (const CBytes& aui8Payload : ListPayloads(oBlock, CEdidExtBlockCEA861::eCea861Tag_Extended))
    {
        const bool bNative = !aui8Payload.empty() && aui8Payload[0] == uiNativeTag && aui8Payload.size() > 1;
        const bool bPreference = !aui8Payload.empty() && aui8Payload[0] == uiPreferenceTag;
        const auto oEnd = bPreference ? aui8Payload.end() : aui8Payload.begin() + (bNative ? 2 : 0);
        if (bNative || bPreference)
        {
            aui8References.insert(aui8References.end(), aui8Payload.begin() + 1, oEnd);
        }
    }
    return aui8References;
}

std::span<const unsigned char> GetHdmiPayload(const SCeaDataBlock& oDataBlock)
{
    std::span<const unsigned char> oPayload = oDataBlock.m_aui8Payload;
    if (oDataBlock.m_uiTag == CEdidExtBlockCEA861::eCea861Tag_Extended && !oPayload.empty() &&
        oPayload[0] == CEdidExtBlockCEA861::eCea861ExtTag_VendorVideo)
    {
        oPayload = oPayload.subspan(1);
    }
    else if (oDataBlock.m_uiTag != CEdidExtBlockCEA861::eCea861Tag_VendorSpecific)
    {
        return {};
    }
    const unsigned int uiLength = static_cast<unsigned int>(oPayload.size());
    return CHdmi1xVsdb::IsSupported(uiLength, oPayload.data()) != 0 ? oPayload : std::span<const unsigned char>();
}

CNumbers ListCodes(const CEdidExtBlockCEA861& oBlock)
{
    constexpr unsigned int uiNativeBit = 0x80;
    constexpr unsigned int uiNativesEnd = 193; // from here on a byte is a code itself
    CNumbers oCodes;
    for (const SCeaDataBlock& oDataBlock : ListDataBlocks(oBlock))
    {
        const bool bVideo = oDataBlock.m_uiTag == CEdidExtBlockCEA861::eCea861Tag_Video;
        for (size_t i = 0; bVideo && i < oDataBlock.m_aui8Payload.size(); ++i)
        {
            const unsigned int uiSvd = oDataBlock.m_aui8Payload[i];
            oCodes.insert(uiSvd < uiNativesEnd ? uiSvd & ~uiNativeBit : uiSvd);
        }
        const std::span<const unsigned char> oHdmi = GetHdmiPayload(oDataBlock);
        const CHdmi1xVsdb::SVics oVics = CHdmi1xVsdb::FindVics(static_cast<unsigned int>(oHdmi.size()), oHdmi.data());
        for (unsigned int i = 0; i < oVics.m_uiCount; ++i)
        {
            unsigned char ui8Code = 0;
            CHdmi1xVsdb::ConvertHdmiVicToCeaVic(oHdmi[oVics.m_uiVicsOffset + i], ui8Code);
            oCodes.insert(ui8Code);
        }
    }
    oCodes.erase(0); // none
    return oCodes;
}

bool AreDataBlocksExact(const CEdidExtBlockCEA861& oBlock)
{
    const unsigned int uiStart = oBlock.GetData()[ZorStandards::Cta::gsc_uiDetailedStartOffset];
    if (oBlock.GetRevision() < ZorStandards::Cta::gsc_uiDataBlocksRevision ||
        uiStart < ZorStandards::Cta::gsc_uiDataBlocksOffset)
    {
        return uiStart == 0 ||
               uiStart >=
                   ZorStandards::Cta::gsc_uiDataBlocksOffset; // at 0 there are neither data blocks nor descriptors
    }
    const std::vector<SCeaDataBlock> aoBlocks = ListDataBlocks(oBlock);
    const size_t uiEnd = aoBlocks.empty() ? ZorStandards::Cta::gsc_uiDataBlocksOffset
                                          : aoBlocks.back().m_uiOffset + aoBlocks.back().m_aui8Payload.size();
    return uiEnd == uiStart;
}

CBytes GetDescriptorArea(const CEdidExtBlockCEA861& oBlock)
{
    const unsigned char* pui8Data = oBlock.GetData();
    const unsigned int uiStart =
        std::clamp<unsigned int>(pui8Data[ZorStandards::Cta::gsc_uiDetailedStartOffset],
                                 ZorStandards::Cta::gsc_uiDataBlocksOffset, CEdidUtils::msc_uiChecksumOffset);
    CBytes aui8Area(pui8Data + uiStart, pui8Data + CEdidUtils::msc_uiChecksumOffset);
    while (!aui8Area.empty() && aui8Area.back() == 0)
    {
        aui8Area.pop_back();
    }
    return aui8Area;
}
