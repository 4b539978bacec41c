// Reading everything that an EDID can be asked. What is answered does not matter here, only that each answer is made
// from the EDID's own bytes: so all of it goes into one digest, which a second reading must give again.

#include "ReadEverything.h"

#include <memory>

#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "EdidUtils.h"
#include "RVidParamTiming.h"
#include "VidParamTimingGeneric.h"
#include "ZorEdidUtils.h"

namespace
{
constexpr unsigned int gsc_uiCeaTag = 2;
constexpr unsigned int gsc_uiDisplayIdTag = 112;
constexpr unsigned int gsc_uiBeyond = 2; // how far the loops go beyond each count
constexpr unsigned int gsc_uiHugeIndex = 0xFFFFFFFFU;

// FNV-1a over 32-bit words, 64 bits wide.
class CDigest
{
public:
    void Add(unsigned int uiValue) { m_ullValue = (m_ullValue ^ uiValue) * 0x100000001B3ULL; }
    void Add(int iValue) { Add(static_cast<unsigned int>(iValue)); }

    void AddBytes(const unsigned char* pui8Bytes, unsigned int uiSize)
    {
        for (unsigned int i = 0; i < uiSize; ++i)
        {
            Add(static_cast<unsigned int>(pui8Bytes[i]));
        }
    }

    void AddText(const char* pszText)
    {
        for (; *pszText != '\0'; ++pszText)
        {
            Add(static_cast<unsigned int>(static_cast<unsigned char>(*pszText)));
        }
        Add(0U);
    }

    void AddLines(const CMArrayString& oLines)
    {
        for (unsigned int i = 0; i < oLines.GetCount(); ++i)
        {
            AddText(oLines[i]);
        }
    }

    unsigned long long Get() const { return m_ullValue; }

private:
    unsigned long long m_ullValue = 0xCBF29CE484222325ULL;
};

void AddTiming(CDigest& oDigest, const CVidParamTiming& oTiming)
{
    const unsigned int auiValues[] = {
        oTiming.GetHorizontalActive(),
        oTiming.GetVerticalActive(),
        oTiming.GetPixelClockInHz(),
        oTiming.GetPixelClockInKiloHz(),
        oTiming.GetEffectivePixelClockInHz(),
        oTiming.GetEffectivePixelClockInKiloHz(),
        oTiming.GetHorizontalRateInHz(),
        oTiming.GetHorizontalRateInKiloHz(),
        oTiming.GetHorizontalFrontPorch(),
        oTiming.GetHorizontalSync(),
        oTiming.GetHorizontalBackPorch(),
        oTiming.GetHorizontalOverscan(),
        oTiming.GetVerticalRateInHz(),
        oTiming.GetVerticalFrontPorch(),
        oTiming.GetVerticalSync(),
        oTiming.GetVerticalBackPorch(),
        oTiming.GetVerticalOverscan(),
        oTiming.GetVideoFamilyType(),
        oTiming.ComputeHorizontalTotalPixel(),
        oTiming.ComputeVerticalTotalLine(),
        oTiming.ComputeHorizontalRateInHz(),
        oTiming.ComputeHorizontalRateInKiloHz(),
        oTiming.ComputeVerticalRateInHz(),
        oTiming.GetHorizontalTotal(),
        oTiming.GetVerticalTotal(),
    };
    for (unsigned int uiValue : auiValues)
    {
        oDigest.Add(uiValue);
    }
    oDigest.Add(oTiming.IsInterlaced());
    oDigest.Add(oTiming.Is420ColorSpace());
    oDigest.Add(oTiming.Is3D());
    oDigest.Add(oTiming.IsHorizontalPolarityPositive());
    oDigest.Add(oTiming.IsVerticalPolarityPositive());
}

// One timing, read by READ(CVidParamTiming*) into both storage classes, and what can be done with it.
template <class READ>
void ReadTiming(CDigest& oDigest, const READ& Read)
{
    CVidParamTimingGeneric oGeneric;
    CRVidParamTiming oRecord;
    oDigest.Add(Read(&oGeneric));
    oDigest.Add(Read(&oRecord));
    oDigest.Add(Read(nullptr));
    AddTiming(oDigest, oGeneric);
    AddTiming(oDigest, oRecord);
    oDigest.Add(oGeneric == oRecord);
    oDigest.Add(oRecord != oGeneric);
    oDigest.Add(oGeneric.IsPixelClockInHzEquivalent(oRecord.GetPixelClockInHz()));
    oDigest.Add(oGeneric.IsPixelClockInKiloHzEquivalent(oRecord.GetPixelClockInKiloHz()));

    CEdidUtils::SEdidDetailedRaw oRaw = {};
    const CEdidUtils::SImageSize oSize = { oGeneric.GetHorizontalActive(), oGeneric.GetVerticalActive() };
    oDigest.Add(CEdidUtils::ConvertVidParamToDetailedDescriptor(&oGeneric, &oRaw, &oSize));
    oDigest.AddBytes(oRaw.m_aui8Data, sizeof(oRaw.m_aui8Data));
    oDigest.Add(CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oRecord));
    oDigest.Add(oRaw.GetImageWidth() + oRaw.GetImageHeight());
}

// A text getter into buffers of several sizes, each in heap memory of exactly its size.
template <class READ>
void ReadText(CDigest& oDigest, const READ& Read)
{
    for (unsigned int uiSize : { 0U, 7U, 8U, 13U, 14U })
    {
        const std::unique_ptr<char[]> pszText = std::make_unique<char[]>(uiSize);
        oDigest.Add(Read(pszText.get(), uiSize));
        for (unsigned int i = 0; i < uiSize; ++i)
        {
            oDigest.Add(static_cast<unsigned int>(static_cast<unsigned char>(pszText[i])));
        }
    }
    oDigest.Add(Read(nullptr, 14));
}

void ReadIdentity(CDigest& oDigest, const CEdid& oEdid)
{
    ReadText(oDigest, [&](char* pszText, unsigned int uiSize) { return oEdid.GetMonitorID(pszText, uiSize); });
    ReadText(oDigest, [&](char* pszText, unsigned int uiSize) { return oEdid.GetManufacturerName(pszText, uiSize); });
    ReadText(oDigest, [&](char* pszText, unsigned int uiSize) { return oEdid.GetMonitorName(pszText, uiSize); });
    ReadText(oDigest, [&](char* pszText, unsigned int uiSize) { return oEdid.GetMonitorString(pszText, uiSize); });
    ReadText(oDigest,
             [&](char* pszText, unsigned int uiSize) { return oEdid.GetMonitorSerialNumber(pszText, uiSize); });

    oDigest.AddBytes(oEdid.GetBaseBlock(), CEdidUtils::msc_uiBlockSize);
    oDigest.Add(oEdid.GetExtBlockType(0));
    oDigest.Add(oEdid.GetExtBlockType(1));

    CEdidBase::SRangeLimits oLimits = {};
    oDigest.Add(oEdid.GetMonitorRangeLimits(oLimits));
    oDigest.Add(oLimits.m_uiMinVerticalRateInHz + oLimits.m_uiMaxVerticalRateInHz);
    oDigest.Add(oLimits.m_uiMinHorizontalRateInKiloHz + oLimits.m_uiMaxHorizontalRateInKiloHz);
    oDigest.Add(oLimits.m_uiMinPixelClockInKiloHz + oLimits.m_uiMaxPixelClockInKiloHz);

    CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthUndefined;
    oDigest.Add(oEdid.GetColorBitDepth(eDepth));
    oDigest.Add(static_cast<unsigned int>(eDepth));
    CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceNotDefined;
    oDigest.Add(oEdid.GetDigitalVideoInterface(eInterface));
    oDigest.Add(static_cast<unsigned int>(eInterface));
}

void ReadEstablished(CDigest& oDigest, const CEdid& oEdid)
{
    for (unsigned int uiBit = 0; uiBit < 24; ++uiBit)
    {
        const auto eId = static_cast<CEdidBase::EEstablishedTiming>(1U << uiBit);
        ReadTiming(oDigest, [&](CVidParamTiming* poTiming) {
            return oEdid.GetEstablishedFromId(eId, poTiming, static_cast<int>(uiBit & 1));
        });
    }
    for (int bVesaOnly : { 0, 1 })
    {
        const unsigned int uiCount = oEdid.GetEstablishedCount(bVesaOnly);
        oDigest.Add(uiCount);
        for (unsigned int i = 0; i < uiCount + gsc_uiBeyond; ++i)
        {
            ReadTiming(oDigest,
                       [&](CVidParamTiming* poTiming) { return oEdid.GetEstablished(i, poTiming, bVesaOnly); });
        }
    }
}

void ReadBaseTimings(CDigest& oDigest, const CEdid& oEdid)
{
    ReadEstablished(oDigest, oEdid);

    int iNative = -1;
    const unsigned int uiStandards = oEdid.GetBaseStandardCount();
    oDigest.Add(uiStandards);
    for (unsigned int i = 0; i < uiStandards + gsc_uiBeyond; ++i)
    {
        ReadTiming(oDigest, [&](CVidParamTiming* poTiming) { return oEdid.GetBaseStandard(i, poTiming, &iNative); });
    }
    for (unsigned int i = 0; i < CEdidBase::msc_uiStandardSlotCount + gsc_uiBeyond; ++i)
    {
        const auto eSlot = static_cast<CEdidBase::EStandardSlotIndex>(i);
        ReadTiming(oDigest, [&](CVidParamTiming* poTiming) { return oEdid.GetBaseStandard(eSlot, poTiming, nullptr); });
    }
    oDigest.Add(iNative);
    for (unsigned int i = 0; i < CEdidBase::msc_uiDescriptorCount * 6 + gsc_uiBeyond; ++i)
    {
        CVidParamTimingGeneric oTiming;
        oDigest.Add(oEdid.GetExtraStdTiming(i, oTiming));
        AddTiming(oDigest, oTiming);
    }
    for (unsigned int i = 0; i < 4; ++i) // any pair of bytes is a question
    {
        const unsigned char* pui8Pair = oEdid.GetBaseBlock() + 8 + 2 * i;
        const CEdidBase::SStandard oStandard = { pui8Pair[0], pui8Pair[1] };
        oDigest.Add(CEdidBase::IsInvalidStandard(oStandard));
        CVidParamTimingGeneric oTiming;
        oDigest.Add(oEdid.GetStandardTiming(&oStandard, &oTiming));
        AddTiming(oDigest, oTiming);
    }

    const unsigned int uiDetailed = oEdid.GetBaseDetailedCount();
    oDigest.Add(uiDetailed);
    for (unsigned int i = 0; i < CEdidBase::msc_uiDescriptorCount + gsc_uiBeyond; ++i)
    {
        ReadTiming(oDigest, [&](CVidParamTiming* poTiming) { return oEdid.GetBaseDetailed(i, poTiming); });
    }
}

// Standard and detailed timings of a CEdid or of a block, which have the same operations.
template <class SOURCE>
void ReadTimings(CDigest& oDigest, const SOURCE& oSource)
{
    const unsigned int uiStandards = oSource.GetStandardCount();
    oDigest.Add(uiStandards);
    for (unsigned int i = 0; i < uiStandards + gsc_uiBeyond; ++i)
    {
        int iNative = -1;
        ReadTiming(oDigest, [&](CVidParamTiming* poTiming) {
            return oSource.GetStandard(i, poTiming, poTiming != nullptr ? &iNative : nullptr);
        });
        oDigest.Add(iNative);
    }
    const unsigned int uiDetailed = oSource.GetDetailedCount();
    oDigest.Add(uiDetailed);
    for (unsigned int i = 0; i < uiDetailed + gsc_uiBeyond; ++i)
    {
        ReadTiming(oDigest, [&](CVidParamTiming* poTiming) { return oSource.GetDetailed(i, poTiming); });
    }
    ReadTiming(oDigest,
               [&](CVidParamTiming* poTiming) { return oSource.GetStandard(gsc_uiHugeIndex, poTiming, nullptr); });
    ReadTiming(oDigest, [&](CVidParamTiming* poTiming) { return oSource.GetDetailed(gsc_uiHugeIndex, poTiming); });
}

// The bytes of a CEdid or of a block, whole and in part.
template <class SOURCE>
void ReadBytes(CDigest& oDigest, const SOURCE& oSource)
{
    const CMArray<unsigned char, const unsigned char&> aui8Bytes = oSource.GetEdidBuffer();
    oDigest.AddBytes(aui8Bytes.GetData(), aui8Bytes.GetCount());
    const unsigned int uiSize = oSource.GetSize();
    oDigest.Add(uiSize);
    oDigest.Add(oSource.IsChecksumValid());
    for (unsigned int uiRoom : { 0U, 1U, 127U, 129U, 200U, uiSize, uiSize + 1 })
    {
        const std::unique_ptr<unsigned char[]> pui8Room = std::make_unique<unsigned char[]>(uiRoom);
        oDigest.Add(oSource.GetEdidBuffer(uiRoom, pui8Room.get()));
        oDigest.AddBytes(pui8Room.get(), uiRoom);
    }
    oDigest.Add(oSource.GetEdidBuffer(128, nullptr));

    oDigest.Add(CEdidUtils::Is8BitsChecksumValid(aui8Bytes.GetCount(), aui8Bytes.GetData()));
    oDigest.Add(CEdidUtils::Compute8BitsChecksum(aui8Bytes.GetCount(), aui8Bytes.GetData()));
}

template <class SOURCE>
void ReadTile(CDigest& oDigest, SOURCE& oSource)
{
    int aiFlags[6] = {};
    unsigned int auiTile[6] = {};
    oDigest.Add(oSource.IsDisplayPartOfTiledTopology());
    oDigest.Add(oSource.GetTiledDisplayCapabilities(&aiFlags[0], &aiFlags[1], &aiFlags[2], &aiFlags[3], &aiFlags[4],
                                                    &aiFlags[5]));
    oDigest.Add(oSource.GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
    oDigest.Add(oSource.GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]));
    for (unsigned int i = 0; i < 6; ++i)
    {
        oDigest.Add(aiFlags[i]);
        oDigest.Add(auiTile[i]);
    }
}

template <class TAG>
void ReadDataBlocks(CDigest& oDigest, const CEdidExtBlockCEA861& oBlock, unsigned int uiLastTag)
{
    for (unsigned int uiTag = 0; uiTag <= uiLastTag; ++uiTag)
    {
        unsigned int uiOffset = 1;
        for (unsigned int i = 0; uiOffset != 0 && i < CEdidUtils::msc_uiBlockSize; ++i)
        {
            unsigned int uiLength = 0;
            uiOffset = oBlock.GetDataBlockOffset(static_cast<TAG>(uiTag), i, &uiLength);
            oDigest.Add(uiOffset);
            oDigest.AddBytes(oBlock.GetData() + uiOffset, uiLength);
        }
    }
    oDigest.Add(oBlock.GetDataBlockOffset(static_cast<TAG>(1), 0, nullptr));
}

void ReadCea(CDigest& oDigest, const CEdidExtBlockCEA861& oBlock)
{
    oDigest.Add(CEdidExtBlockCEA861::IsSupported(oBlock.GetSize(), oBlock.GetData()));
    for (unsigned int i = 0; i < oBlock.GetSize(); ++i) // any byte is a question
    {
        unsigned int uiVic = 0;
        int iNative = -1;
        oDigest.Add(CEdidExtBlockCEA861::ExtractSvdCodeInfo(oBlock.GetData()[i], &uiVic, &iNative));
        oDigest.Add(CEdidExtBlockCEA861::IsSupportedSvd(oBlock.GetData()[i]));
        oDigest.Add(uiVic);
        oDigest.Add(iNative);
    }
    ReadDataBlocks<CEdidExtBlockCEA861::ECea861_DataBlockTags>(oDigest, oBlock, 8);
    ReadDataBlocks<CEdidExtBlockCEA861::ECea861_DataBlockExtTags>(oDigest, oBlock, 33);
    oDigest.Add(oBlock.GetVendorSpecificCount());
    oDigest.Add(oBlock.GetAvailableOffset());
    oDigest.Add(oBlock.GetAvailableSpace());
    oDigest.Add(oBlock.IsYuvSupported());
    for (unsigned int i = 0; i < oBlock.GetDetailedCount() + gsc_uiBeyond; ++i)
    {
        oDigest.Add(oBlock.GetDetailedTimingsOffset(i));
    }
    oDigest.Add(oBlock.GetDetailedTimingsOffset(gsc_uiHugeIndex));

    for (unsigned int i = 0; i < oBlock.GetAudioDescriptorCount() + gsc_uiBeyond; ++i)
    {
        CEdidExtBlockCEA861::SAudioDescriptor oAudio = {};
        oDigest.Add(oBlock.GetAudioDescriptor(i, &oAudio));
        oDigest.Add(oBlock.GetAudioDescriptor(i, nullptr));
        oDigest.Add(oAudio.m_uiChannels);
        oDigest.Add(oAudio.m_uiExtra);
        oDigest.AddText(CEdidExtBlockCEA861::GetAudioFormatStr(oAudio.m_eFormat));
        oDigest.AddText(CEdidExtBlockCEA861::GetAudioSamplingFreqStr(oAudio.m_eSamplingFreq));
    }
    for (unsigned int i = 0; i < oBlock.GetSpeakerDescriptorCount() + gsc_uiBeyond; ++i)
    {
        unsigned int uiMask = 0;
        oDigest.Add(oBlock.GetSpeakerDescriptor(i, &uiMask));
        oDigest.Add(oBlock.GetSpeakerDescriptor(i, nullptr));
        oDigest.Add(uiMask);
    }
}

// A record at every place of the block.
template <class RAW>
void ReadRecords(CDigest& oDigest, const CEdidExtBlockDisplayID& oBlock,
                 int (*pfnConvert)(const RAW*, CVidParamTiming*))
{
    CVidParamTimingGeneric oTiming;
    for (unsigned int uiOffset = 0; uiOffset + sizeof(RAW) <= oBlock.GetSize(); ++uiOffset)
    {
        oDigest.Add(pfnConvert(reinterpret_cast<const RAW*>(oBlock.GetData() + uiOffset), &oTiming));
        AddTiming(oDigest, oTiming);
    }
    oDigest.Add(pfnConvert(reinterpret_cast<const RAW*>(oBlock.GetData()), nullptr));
    oDigest.Add(pfnConvert(nullptr, &oTiming));
}

void ReadDisplayId(CDigest& oDigest, const CEdidExtBlockDisplayID& oBlock)
{
    oDigest.Add(CEdidExtBlockDisplayID::IsSupported(oBlock.GetSize(), oBlock.GetData()));
    ReadRecords(oDigest, oBlock, CEdidExtBlockDisplayID::ConvertDetailedType1ToVidParam);
    ReadRecords(oDigest, oBlock, CEdidExtBlockDisplayID::ConvertDetailedType2ToVidParam);
}

void ReadBlock(CDigest& oDigest, const CEdidExtBlock& oBlock)
{
    oDigest.Add(oBlock.GetExtensionType());
    oDigest.Add(oBlock.GetRevision());
    oDigest.Add(oBlock.IsStripped());
    oDigest.AddBytes(oBlock.GetData(), oBlock.GetSize());
    ReadBytes(oDigest, oBlock);
    ReadTimings(oDigest, oBlock);

    // Questions that the interface does not declare as const although they change nothing.
    CEdidExtBlock& oAsked = const_cast<CEdidExtBlock&>(oBlock);
    ReadTile(oDigest, oAsked);
    unsigned int uiBits = 0;
    oDigest.Add(oAsked.GetColorBitDepthSupport(uiBits));
    oDigest.Add(uiBits);

    if (oBlock.GetExtensionType() == gsc_uiCeaTag)
    {
        ReadCea(oDigest, static_cast<const CEdidExtBlockCEA861&>(oBlock));
    }
    else if (oBlock.GetExtensionType() == gsc_uiDisplayIdTag)
    {
        ReadDisplayId(oDigest, static_cast<const CEdidExtBlockDisplayID&>(oBlock));
    }
    oDigest.AddText(CZorEdidUtils::GetExtensionType(oBlock));

    const std::unique_ptr<CEdidExtBlock> poCopy(
        CEdidExtBlock::CreateExtensionBlock(oBlock.GetSize(), oBlock.GetData(), 0));
    oDigest.Add(poCopy != nullptr ? poCopy->GetStandardCount() : 0U);
}

void ReadModes(CDigest& oDigest, const CZorEdidUtils::CModeList& aoModes)
{
    oDigest.Add(aoModes.GetCount());
    for (unsigned int i = 0; i < aoModes.GetCount(); ++i)
    {
        AddTiming(oDigest, aoModes[i]);
        oDigest.Add(CZorEdidUtils::SortVidParam(aoModes[i], aoModes[0], 0));
    }
}

// The long forms of the reports, with the lists as they are: an EDID without preferred mode ends the short ones.
void ReadLongReports(CDigest& oDigest, const CEdid& oEdid, const CVidParamTimingGeneric& oPreferred,
                     const CZorEdidUtils::CModeList (&aoModes)[7])
{
    CMArrayString oLines;
    CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(oEdid, oPreferred, aoModes[0], aoModes[1], aoModes[2], aoModes[3],
                                                     aoModes[5], aoModes[6], oLines, "");
    oDigest.AddLines(oLines);
    CZorEdidUtils::GetEdidFormatedAsZorEdidExtractorExt(oEdid, oPreferred, aoModes[0], aoModes[1], aoModes[2],
                                                        aoModes[3], aoModes[4], aoModes[5], aoModes[6], oLines, "");
    oDigest.AddLines(oLines);
    CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(oPreferred, aoModes[6], oLines, "");
    oDigest.AddLines(oLines);
    CMString oText;
    CZorEdidUtils::GetFormatedVideoParam(oPreferred.GetData(), 0, oText, "");
    oDigest.AddText(oText);
}

void ReadTools(CDigest& oDigest, const CEdid& oEdid)
{
    CVidParamTimingGeneric oPreferred;
    CZorEdidUtils::CModeList aoModes[7];
    const int iModes = CZorEdidUtils::ExtractModeList(oEdid, oPreferred, aoModes[0], aoModes[1], aoModes[2], aoModes[3],
                                                      aoModes[4], aoModes[5], aoModes[6]);
    oDigest.Add(iModes);
    AddTiming(oDigest, oPreferred);
    for (const CZorEdidUtils::CModeList& aoList : aoModes)
    {
        ReadModes(oDigest, aoList);
    }
    const CZorEdidUtils::CByteArray aui8Bytes = oEdid.GetEdidBuffer();
    const unsigned int uiChecksum = aui8Bytes[static_cast<int>(CEdidUtils::msc_uiChecksumOffset)];
    if (iModes == 0 || uiChecksum % 8 == 0) // the short ones write the same else
    {
        ReadLongReports(oDigest, oEdid, oPreferred, aoModes);
    }
    CMArrayString oLines;
    for (unsigned int uiType = 0; uiType < 5; ++uiType)
    {
        oDigest.Add(CZorEdidUtils::GetFormatedEdid(static_cast<CZorEdidUtils::EEdidFormatType>(uiType), oEdid, oLines,
                                                   uiType == 1 ? "" : "# "));
        oDigest.AddLines(oLines);
    }
    oDigest.Add(CEdidUtils::GetFormatedEdidDataStrings(aui8Bytes.GetCount(), aui8Bytes.GetData(), oLines, nullptr));
    oDigest.AddLines(oLines);

    const bool bFirst = uiChecksum % 2 != 0;
    oDigest.Add(CZorEdidUtils::CompareTimings(oEdid, oEdid, bFirst ? 1 : 0, 1));
    oDigest.Add(CZorEdidUtils::CompareTimings(aui8Bytes, aui8Bytes, bFirst ? 0 : 1, 0));
    oDigest.Add(CEdidBase::GetEdidSizeFromData(aui8Bytes.GetCount(), aui8Bytes.GetData()));
}
}

unsigned long long ReadEverything(const CEdid& oEdid)
{
    CDigest oDigest;
    ReadBytes(oDigest, oEdid);
    CEdid oOther;
    oOther.SetEdidBuffer(oEdid.GetBaseBlock(), CEdidUtils::msc_uiBlockSize, 0);
    oDigest.Add(oEdid == oEdid);
    oDigest.Add(oEdid == oOther);
    oDigest.Add(oOther == oEdid);
    ReadIdentity(oDigest, oEdid);
    ReadBaseTimings(oDigest, oEdid);
    ReadTimings(oDigest, oEdid);
    ReadTile(oDigest, oEdid);

    const unsigned int uiExtensions = oEdid.GetExtensionCount();
    oDigest.Add(uiExtensions);
    for (unsigned int i = 0; i < uiExtensions + gsc_uiBeyond; ++i)
    {
        if (const CEdidExtBlock* poBlock = oEdid.GetExtension(i))
        {
            ReadBlock(oDigest, *poBlock);
        }
    }
    ReadTools(oDigest, oEdid);
    return oDigest.Get();
}
