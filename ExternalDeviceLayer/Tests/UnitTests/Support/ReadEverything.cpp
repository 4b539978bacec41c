// Reading everything that an EDID can be asked. What is answered does not matter here, only that each answer is made
// from the EDID's own bytes: so all of it goes into one digest, which a second reading must give again.

#include "ReadEverything.h"

#include <memory>
#include <type_traits>

#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "RVidParamTiming.h"
#include "VidParamTimingGeneric.h"
#include "ZorEdidUtils.h"

namespace
{
using CCea = CEdidExtBlockCEA861;
using CDisplayId = CEdidExtBlockDisplayID;

// FNV-1a over 32-bit words, 64 bits wide.
class CDigest
{
public:
    // Numbers, timings, texts and lines; they are read after all calls among the arguments.
    template <class... VALUES>
    void Add(const VALUES&... aValues)
    {
        (AddOne(aValues), ...);
    }

    template <class BYTE>
    void AddBytes(const BYTE* pBytes, unsigned int uiSize)
    {
        for (unsigned int i = 0; i < uiSize; ++i)
        {
            AddOne(static_cast<unsigned char>(pBytes[i]));
        }
    }

    unsigned long long Get() const { return m_ullValue; }

private:
    template <class NUMBER>
    requires std::is_integral_v<NUMBER> || std::is_enum_v<NUMBER>
    void AddOne(NUMBER Number) { m_ullValue = (m_ullValue ^ static_cast<unsigned int>(Number)) * 0x100000001B3ULL; }

    void AddOne(const CMString& sText) { AddBytes<char>(sText, static_cast<unsigned int>(sText.GetLength()) + 1); }

    void AddOne(const CMArrayString& oLines)
    {
        for (unsigned int i = 0; i < oLines.GetCount(); ++i)
        {
            AddOne(oLines[i]);
        }
    }

    void AddOne(const CVidParamTiming& oTiming)
    {
        using T = CVidParamTiming;
        for (unsigned int (T::*pfnGet)() const :
             { &T::GetHorizontalActive, &T::GetVerticalActive, &T::GetPixelClockInHz, &T::GetPixelClockInKiloHz,
               &T::GetEffectivePixelClockInHz, &T::GetEffectivePixelClockInKiloHz, &T::GetHorizontalRateInHz,
               &T::GetHorizontalRateInKiloHz, &T::GetHorizontalFrontPorch, &T::GetHorizontalSync,
               &T::GetHorizontalBackPorch, &T::GetHorizontalOverscan, &T::GetVerticalRateInHz,
               &T::GetVerticalFrontPorch, &T::GetVerticalSync, &T::GetVerticalBackPorch, &T::GetVerticalOverscan,
               &T::GetHorizontalTotal, &T::GetVerticalTotal })
        {
            AddOne((oTiming.*pfnGet)());
        }
        // Those that also exist as static forms.
        Add(oTiming.ComputeHorizontalTotalPixel(), oTiming.ComputeVerticalTotalLine(),
            oTiming.ComputeHorizontalRateInHz(), oTiming.ComputeHorizontalRateInKiloHz(),
            oTiming.ComputeVerticalRateInHz(), oTiming.GetVideoFamilyType(), oTiming.IsInterlaced(),
            oTiming.Is420ColorSpace(), oTiming.Is3D(), oTiming.IsHorizontalPolarityPositive(),
            oTiming.IsVerticalPolarityPositive());
    }

    unsigned long long m_ullValue = 0xCBF29CE484222325ULL;
};

// READ(i) for each index, two beyond the count, and the last that there is.
template <class READ>
void ReadAll(CDigest& oDigest, unsigned int uiCount, const READ& Read)
{
    oDigest.Add(uiCount);
    for (unsigned int i = 0; i < uiCount + 2; ++i)
    {
        Read(i);
    }
    Read(0xFFFFFFFF);
}

// One timing, read by READ(CVidParamTiming*) into both storage classes, and what can be done with it.
template <class READ>
void ReadTiming(CDigest& oDigest, const READ& Read)
{
    CVidParamTimingGeneric oGeneric;
    CRVidParamTiming oRecord;
    oDigest.Add(Read(&oGeneric), Read(&oRecord), Read(nullptr), oGeneric, oRecord);
    oDigest.Add(oGeneric == oRecord, oRecord != oGeneric,
                oGeneric.IsPixelClockInHzEquivalent(oRecord.GetPixelClockInHz()),
                oGeneric.IsPixelClockInKiloHzEquivalent(oRecord.GetPixelClockInKiloHz()));

    CEdidUtils::SEdidDetailedRaw oRaw = {};
    const CEdidUtils::SImageSize oSize = { oGeneric.GetHorizontalActive(), oGeneric.GetVerticalActive() };
    oDigest.Add(CEdidUtils::ConvertVidParamToDetailedDescriptor(&oGeneric, &oRaw, &oSize));
    oDigest.Add(CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oRecord), oRaw.GetImageWidth(),
                oRaw.GetImageHeight());
    oDigest.AddBytes(oRaw.m_aui8Data, sizeof(oRaw.m_aui8Data));
}

// READ(i, CVidParamTiming*) at all indexes.
template <class READ>
void ReadTimingList(CDigest& oDigest, unsigned int uiCount, const READ& Read)
{
    ReadAll(oDigest, uiCount,
            [&](unsigned int i) { ReadTiming(oDigest, [&](CVidParamTiming* poTiming) { return Read(i, poTiming); }); });
}

// What a CEdid and a block have both: bytes, whole and in part, standard and detailed timings, the tile.
template <class SOURCE>
void ReadSource(CDigest& oDigest, const SOURCE& oConstSource)
{
    SOURCE& oSource = const_cast<SOURCE&>(oConstSource); // questions about the tile, which change nothing
    const CZorEdidUtils::CByteArray aui8Bytes = oSource.GetEdidBuffer();
    const unsigned int uiSize = oSource.GetSize();
    oDigest.AddBytes(aui8Bytes.GetData(), aui8Bytes.GetCount());
    oDigest.Add(uiSize, oSource.IsChecksumValid(), oSource.GetEdidBuffer(128, nullptr),
                CEdidUtils::Is8BitsChecksumValid(aui8Bytes.GetCount(), aui8Bytes.GetData()),
                CEdidUtils::Compute8BitsChecksum(aui8Bytes.GetCount(), aui8Bytes.GetData()));
    for (const unsigned int uiRoom : { 0U, 1U, 127U, 129U, 200U, uiSize, uiSize + 1 })
    {
        const std::unique_ptr<unsigned char[]> pui8Room = std::make_unique<unsigned char[]>(uiRoom);
        oDigest.Add(oSource.GetEdidBuffer(uiRoom, pui8Room.get()));
        oDigest.AddBytes(pui8Room.get(), uiRoom);
    }

    ReadTimingList(oDigest, oSource.GetStandardCount(), [&](unsigned int i, CVidParamTiming* poTiming) {
        int iNative = -1;
        const int iResult = oSource.GetStandard(i, poTiming, poTiming != nullptr ? &iNative : nullptr);
        oDigest.Add(iNative);
        return iResult;
    });
    ReadTimingList(oDigest, oSource.GetDetailedCount(),
                   [&](unsigned int i, CVidParamTiming* poTiming) { return oSource.GetDetailed(i, poTiming); });

    int aiFlags[6] = {};
    unsigned int auiTile[6] = {};
    oDigest.Add(oSource.IsDisplayPartOfTiledTopology(),
                oSource.GetTiledDisplayCapabilities(&aiFlags[0], &aiFlags[1], &aiFlags[2], &aiFlags[3], &aiFlags[4],
                                                    &aiFlags[5]),
                oSource.GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
                oSource.GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]));
    for (unsigned int i = 0; i < 6; ++i)
    {
        oDigest.Add(aiFlags[i], auiTile[i]);
    }
}

void ReadIdentity(CDigest& oDigest, const CEdid& oEdid)
{
    // Texts go into heap memory of exactly the size asked for.
    for (int (CEdidBase::*pfnGet)(char*, unsigned int) const :
         { &CEdidBase::GetMonitorID, &CEdidBase::GetManufacturerName, &CEdidBase::GetMonitorName,
           &CEdidBase::GetMonitorString, &CEdidBase::GetMonitorSerialNumber })
    {
        for (const unsigned int uiSize : { 0U, 7U, 8U, 13U, 14U })
        {
            const std::unique_ptr<char[]> pszText = std::make_unique<char[]>(uiSize);
            oDigest.Add((oEdid.*pfnGet)(pszText.get(), uiSize), (oEdid.*pfnGet)(nullptr, 14));
            oDigest.AddBytes(pszText.get(), uiSize);
        }
    }
    CEdidBase::SRangeLimits oLimits = {};
    CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthUndefined;
    CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceNotDefined;
    oDigest.AddBytes(oEdid.GetBaseBlock(), 128);
    oDigest.Add(oEdid.GetExtBlockType(0), oEdid.GetExtBlockType(1), oEdid.GetMonitorRangeLimits(oLimits),
                oEdid.GetColorBitDepth(eDepth), oEdid.GetDigitalVideoInterface(eInterface));
    oDigest.Add(oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz, oLimits.m_uiMinHorizontalRateInKiloHz,
                oLimits.m_uiMaxHorizontalRateInKiloHz, oLimits.m_uiMinPixelClockInKiloHz,
                oLimits.m_uiMaxPixelClockInKiloHz, eDepth, eInterface);
}

void ReadBaseTimings(CDigest& oDigest, const CEdid& oEdid)
{
    for (unsigned int i = 0; i < 24; ++i)
    {
        ReadTiming(oDigest, [&](CVidParamTiming* poTiming) {
            return oEdid.GetEstablishedFromId(static_cast<CEdidBase::EEstablishedTiming>(1U << i), poTiming,
                                              static_cast<int>(i & 1));
        });
    }
    for (const int bVesaOnly : { 0, 1 })
    {
        ReadTimingList(oDigest, oEdid.GetEstablishedCount(bVesaOnly), [&](unsigned int i, CVidParamTiming* poTiming) {
            return oEdid.GetEstablished(i, poTiming, bVesaOnly);
        });
    }
    ReadTimingList(oDigest, oEdid.GetBaseStandardCount(), [&](unsigned int i, CVidParamTiming* poTiming) {
        int iNative = -1;
        return oEdid.GetBaseStandard(i, poTiming, &iNative) + 2 * iNative;
    });
    ReadTimingList(oDigest, 8, [&](unsigned int i, CVidParamTiming* poTiming) {
        return oEdid.GetBaseStandard(static_cast<CEdidBase::EStandardSlotIndex>(i), poTiming, nullptr);
    });
    ReadTimingList(oDigest, 4,
                   [&](unsigned int i, CVidParamTiming* poTiming) { return oEdid.GetBaseDetailed(i, poTiming); });
    CVidParamTimingGeneric oTiming;
    ReadAll(oDigest, 4 * 6, [&](unsigned int i) { oDigest.Add(oEdid.GetExtraStdTiming(i, oTiming), oTiming); });
    for (unsigned int i = 8; i < 16; i += 2) // any pair of bytes is a question
    {
        const CEdidBase::SStandard oStandard = { oEdid.GetBaseBlock()[i], oEdid.GetBaseBlock()[i + 1] };
        oDigest.Add(CEdidBase::IsInvalidStandard(oStandard), oEdid.GetStandardTiming(&oStandard, &oTiming), oTiming);
    }
}

template <class TAG>
void ReadDataBlocks(CDigest& oDigest, const CCea& oBlock, unsigned int uiLastTag)
{
    for (unsigned int uiTag = 0; uiTag <= uiLastTag; ++uiTag)
    {
        unsigned int uiOffset = 1;
        for (unsigned int i = 0; uiOffset != 0 && i < 128; ++i)
        {
            unsigned int uiLength = 0;
            uiOffset = oBlock.GetDataBlockOffset(static_cast<TAG>(uiTag), i, &uiLength);
            oDigest.Add(uiOffset);
            oDigest.AddBytes(oBlock.GetData() + uiOffset, uiLength);
        }
    }
    oDigest.Add(oBlock.GetDataBlockOffset(static_cast<TAG>(1), 0, nullptr));
}

void ReadCea(CDigest& oDigest, const CCea& oBlock)
{
    for (unsigned int i = 0; i < oBlock.GetSize(); ++i) // any byte is a question
    {
        unsigned int uiVic = 0;
        int iNative = -1;
        oDigest.Add(CCea::ExtractSvdCodeInfo(oBlock.GetData()[i], &uiVic, &iNative),
                    CCea::IsSupportedSvd(oBlock.GetData()[i]), uiVic, iNative);
    }
    ReadDataBlocks<CCea::ECea861_DataBlockTags>(oDigest, oBlock, 8);
    ReadDataBlocks<CCea::ECea861_DataBlockExtTags>(oDigest, oBlock, 33);
    oDigest.Add(CCea::IsSupported(oBlock.GetSize(), oBlock.GetData()), oBlock.GetVendorSpecificCount(),
                oBlock.GetAvailableOffset(), oBlock.GetAvailableSpace(), oBlock.IsYuvSupported());
    ReadAll(oDigest, oBlock.GetDetailedCount(),
            [&](unsigned int i) { oDigest.Add(oBlock.GetDetailedTimingsOffset(i)); });
    ReadAll(oDigest, oBlock.GetAudioDescriptorCount(), [&](unsigned int i) {
        CCea::SAudioDescriptor oAudio = {};
        oDigest.Add(oBlock.GetAudioDescriptor(i, &oAudio), oBlock.GetAudioDescriptor(i, nullptr), oAudio.m_uiChannels,
                    oAudio.m_uiExtra);
        oDigest.Add(CCea::GetAudioFormatStr(oAudio.m_eFormat), CCea::GetAudioSamplingFreqStr(oAudio.m_eSamplingFreq));
    });
    ReadAll(oDigest, oBlock.GetSpeakerDescriptorCount(), [&](unsigned int i) {
        unsigned int uiMask = 0;
        oDigest.Add(oBlock.GetSpeakerDescriptor(i, &uiMask), oBlock.GetSpeakerDescriptor(i, nullptr), uiMask);
    });
}

// A record at every place of the block.
template <class RAW>
void ReadRecords(CDigest& oDigest, const CDisplayId& oBlock, int (*pfnConvert)(const RAW*, CVidParamTiming*))
{
    CVidParamTimingGeneric oTiming;
    for (unsigned int uiOffset = 0; uiOffset + sizeof(RAW) <= oBlock.GetSize(); ++uiOffset)
    {
        oDigest.Add(pfnConvert(reinterpret_cast<const RAW*>(oBlock.GetData() + uiOffset), &oTiming), oTiming);
    }
    oDigest.Add(pfnConvert(reinterpret_cast<const RAW*>(oBlock.GetData()), nullptr), pfnConvert(nullptr, &oTiming));
}

void ReadBlock(CDigest& oDigest, const CEdidExtBlock& oBlock)
{
    unsigned int uiBits = 0;
    oDigest.Add(oBlock.GetExtensionType(), oBlock.GetRevision(), oBlock.IsStripped(),
                CMString(CZorEdidUtils::GetExtensionType(oBlock)),
                const_cast<CEdidExtBlock&>(oBlock).GetColorBitDepthSupport(uiBits), uiBits); // changes nothing
    oDigest.AddBytes(oBlock.GetData(), oBlock.GetSize());
    ReadSource(oDigest, oBlock);
    if (oBlock.GetExtensionType() == 2)
    {
        ReadCea(oDigest, static_cast<const CCea&>(oBlock));
    }
    else if (oBlock.GetExtensionType() == 112)
    {
        oDigest.Add(CDisplayId::IsSupported(oBlock.GetSize(), oBlock.GetData()));
        ReadRecords(oDigest, static_cast<const CDisplayId&>(oBlock), CDisplayId::ConvertDetailedType1ToVidParam);
        ReadRecords(oDigest, static_cast<const CDisplayId&>(oBlock), CDisplayId::ConvertDetailedType2ToVidParam);
    }
    const std::unique_ptr<CEdidExtBlock> poCopy(
        CEdidExtBlock::CreateExtensionBlock(oBlock.GetSize(), oBlock.GetData(), 0));
    oDigest.Add(poCopy != nullptr ? poCopy->GetStandardCount() : 0U);
}

void ReadTools(CDigest& oDigest, const CEdid& oEdid)
{
    CVidParamTimingGeneric oPreferred;
    CZorEdidUtils::CModeList aoModes[7];
    const int iModes = CZorEdidUtils::ExtractModeList(oEdid, oPreferred, aoModes[0], aoModes[1], aoModes[2], aoModes[3],
                                                      aoModes[4], aoModes[5], aoModes[6]);
    oDigest.Add(iModes, oPreferred);
    for (const CZorEdidUtils::CModeList& aoList : aoModes)
    {
        for (unsigned int i = 0; i < aoList.GetCount(); ++i)
        {
            oDigest.Add(aoList[i], CZorEdidUtils::SortVidParam(aoList[i], aoList[0], 0));
        }
    }
    CMArrayString oLines;
    for (unsigned int i = 0; i < 5; ++i)
    {
        const char* pszPrefix = i == 1 ? "" : "# ";
        oDigest.Add(
            CZorEdidUtils::GetFormatedEdid(static_cast<CZorEdidUtils::EEdidFormatType>(i), oEdid, oLines, pszPrefix),
            oLines);
    }
    const CZorEdidUtils::CByteArray aui8Bytes = oEdid.GetEdidBuffer();
    const unsigned int uiChecksum = aui8Bytes[127];
    if (iModes == 0 || uiChecksum % 8 == 0) // the long forms, with the lists as they are: the short ones write the same
    {
        CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(oEdid, oPreferred, aoModes[0], aoModes[1], aoModes[2],
                                                         aoModes[3], aoModes[5], aoModes[6], oLines, "");
        oDigest.Add(oLines);
        CZorEdidUtils::GetEdidFormatedAsZorEdidExtractorExt(oEdid, oPreferred, aoModes[0], aoModes[1], aoModes[2],
                                                            aoModes[3], aoModes[4], aoModes[5], aoModes[6], oLines, "");
        oDigest.Add(oLines);
        CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(oPreferred, aoModes[6], oLines, "");
        oDigest.Add(oLines);
        CMString oText;
        CZorEdidUtils::GetFormatedVideoParam(oPreferred.GetData(), 0, oText, "");
        oDigest.Add(oText);
    }
    oDigest.Add(CEdidUtils::GetFormatedEdidDataStrings(aui8Bytes.GetCount(), aui8Bytes.GetData(), oLines, nullptr),
                oLines);
    const int iFirst = static_cast<int>(uiChecksum % 2);
    oDigest.Add(CZorEdidUtils::CompareTimings(oEdid, oEdid, iFirst, 1),
                CZorEdidUtils::CompareTimings(aui8Bytes, aui8Bytes, 1 - iFirst, 0),
                CEdidBase::GetEdidSizeFromData(aui8Bytes.GetCount(), aui8Bytes.GetData()));
}
} // namespace

unsigned long long ReadEverything(const CEdid& oEdid)
{
    CDigest oDigest;
    CEdid oOther;
    oOther.SetEdidBuffer(oEdid.GetBaseBlock(), 128, 0);
    oDigest.Add(oEdid == oEdid, oEdid == oOther, oOther == oEdid);
    ReadSource(oDigest, oEdid);
    ReadIdentity(oDigest, oEdid);
    ReadBaseTimings(oDigest, oEdid);
    ReadAll(oDigest, oEdid.GetExtensionCount(), [&](unsigned int i) {
        if (const CEdidExtBlock* poBlock = oEdid.GetExtension(i))
        {
            ReadBlock(oDigest, *poBlock);
        }
    });
    ReadTools(oDigest, oEdid);
    return oDigest.Get();
}
