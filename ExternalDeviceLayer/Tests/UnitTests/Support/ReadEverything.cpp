// Reading everything that an EDID can be asked. What is answered does not matter here, only that each answer is made
// from the EDID's own bytes: so all of it goes into one digest, which a second reading must give again.

#include "ReadEverything.h"

#include <algorithm>
#include <array>
#include <bit>
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

// FNV-1a over 32-bit words, 64 bits wide.
thread_local unsigned long long g_ullDigest = 0;

template <class NUMBER>
requires std::is_integral_v<NUMBER> || std::is_enum_v<NUMBER>
void AddOne(NUMBER Number) { g_ullDigest = (g_ullDigest ^ static_cast<unsigned long long>(Number)) * 0x100000001B3ULL; }

template <class NUMBER>
void AddAll(const NUMBER* pNumbers, size_t uiCount)
{
    std::for_each(pNumbers, pNumbers + uiCount, [&](NUMBER Number) { AddOne(Number); });
}

void AddOne(const CMString& sText) { AddAll<char>(sText, static_cast<size_t>(sText.GetLength()) + 1); }

void AddOne(const CMArrayString& oLines) { AddOne(oLines.Join("\n")); }

template <class... VALUES>
void Add(const VALUES&... aValues);

void AddOne(const CVidParamTiming& oTiming)
{
    using T = CVidParamTiming;
    for (unsigned int (T::*pfnGet)() const :
         { &T::GetHorizontalActive, &T::GetVerticalActive, &T::GetPixelClockInHz, &T::GetPixelClockInKiloHz,
           &T::GetEffectivePixelClockInHz, &T::GetEffectivePixelClockInKiloHz, &T::GetHorizontalRateInHz,
           &T::GetHorizontalRateInKiloHz, &T::GetHorizontalFrontPorch, &T::GetHorizontalSync,
           &T::GetHorizontalBackPorch, &T::GetHorizontalOverscan, &T::GetVerticalRateInHz, &T::GetVerticalFrontPorch,
           &T::GetVerticalSync, &T::GetVerticalBackPorch, &T::GetVerticalOverscan, &T::GetHorizontalTotal,
           &T::GetVerticalTotal })
    {
        AddOne((oTiming.*pfnGet)());
    }
    // Those that also exist as static forms.
    Add(oTiming.ComputeHorizontalTotalPixel(), oTiming.ComputeVerticalTotalLine(), oTiming.ComputeHorizontalRateInHz(),
        oTiming.ComputeHorizontalRateInKiloHz(), oTiming.ComputeVerticalRateInHz(), oTiming.GetVideoFamilyType(),
        oTiming.IsInterlaced(), oTiming.Is420ColorSpace(), oTiming.Is3D(), oTiming.IsHorizontalPolarityPositive(),
        oTiming.IsVerticalPolarityPositive());
}

// Numbers, timings, texts and lines; they are read after all calls among the arguments.
template <class... VALUES>
void Add(const VALUES&... aValues)
{
    (AddOne(aValues), ...);
}

// READ(i) for each index, two beyond the count, and the last that there is.
template <class READ>
void ReadAll(unsigned int uiCount, const READ& Read)
{
    Add(uiCount);
    for (unsigned int i = 0; i < uiCount + 2; ++i)
    {
        Read(i);
    }
    Read(0xFFFFFFFF);
}

// READ(i, CVidParamTiming*) at all indexes, into both storage classes, and what can be done with the timing.
template <class READ>
void ReadTimings(unsigned int uiCount, const READ& Read)
{
    ReadAll(uiCount, [&](unsigned int i) {
        CVidParamTimingGeneric oGeneric;
        CRVidParamTiming oRecord;
        Add(Read(i, &oGeneric), Read(i, &oRecord), Read(i, nullptr), oGeneric, oRecord, oGeneric == oRecord,
            oRecord != oGeneric, oGeneric.IsPixelClockInHzEquivalent(oRecord.GetPixelClockInHz()),
            oGeneric.IsPixelClockInKiloHzEquivalent(oRecord.GetPixelClockInKiloHz()));
        CEdidUtils::SEdidDetailedRaw oRaw = {};
        const CEdidUtils::SImageSize oSize = { oGeneric.GetHorizontalActive(), oGeneric.GetVerticalActive() };
        Add(CEdidUtils::ConvertVidParamToDetailedDescriptor(&oGeneric, &oRaw, &oSize));
        Add(CEdidUtils::ConvertDetailedDescriptorToVidParam(oRaw, &oRecord), oRaw.GetImageWidth(),
            oRaw.GetImageHeight());
        AddAll(oRaw.m_aui8Data, sizeof(oRaw.m_aui8Data));
    });
}

// LIST(CTimingOrigins&)
template <class LIST>
void ReadOrigins(const LIST& List)
{
    CTimingOrigins aoOrigins;
    List(aoOrigins);
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const auto auiOrigin = std::bit_cast<std::array<unsigned int, 10>>(aoOrigins[i]);
        AddAll(auiOrigin.data(), auiOrigin.size());
    }
}

// What a CEdid and a block have both: bytes, whole and in part, standard and detailed timings, the tile.
template <class SOURCE>
void ReadSource(const SOURCE& oConstSource)
{
    SOURCE& oSource = const_cast<SOURCE&>(oConstSource); // questions about the tile, which change nothing
    const CZorEdidUtils::CByteArray aui8Bytes = oSource.GetEdidBuffer();
    const unsigned int uiSize = oSource.GetSize();
    AddAll(aui8Bytes.GetData(), aui8Bytes.GetCount());
    Add(uiSize, oSource.IsChecksumValid(), oSource.GetEdidBuffer(128, nullptr),
        CEdidUtils::Is8BitsChecksumValid(aui8Bytes.GetCount(), aui8Bytes.GetData()),
        CEdidUtils::Compute8BitsChecksum(aui8Bytes.GetCount(), aui8Bytes.GetData()));
    for (const unsigned int uiRoom : { 0U, 1U, 127U, 129U, 200U, uiSize, uiSize + 1 })
    {
        const std::unique_ptr<unsigned char[]> pui8Room = std::make_unique<unsigned char[]>(uiRoom);
        Add(oSource.GetEdidBuffer(uiRoom, pui8Room.get()));
        AddAll(pui8Room.get(), uiRoom);
    }

    ReadTimings(oSource.GetStandardCount(), [&](unsigned int i, CVidParamTiming* poTiming) {
        int iNative = -1;
        return oSource.GetStandard(i, poTiming, poTiming != nullptr ? &iNative : nullptr) + 2 * iNative;
    });
    ReadTimings(oSource.GetDetailedCount(),
                [&](unsigned int i, CVidParamTiming* poTiming) { return oSource.GetDetailed(i, poTiming); });
    ReadOrigins([&](CTimingOrigins& aoOrigins) { oSource.ListStandardOrigins(aoOrigins); });
    ReadOrigins([&](CTimingOrigins& aoOrigins) { oSource.ListDetailedOrigins(aoOrigins); });

    int ai[6] = {};
    unsigned int aui[6] = {};
    Add(oSource.IsDisplayPartOfTiledTopology(),
        oSource.GetTiledDisplayCapabilities(&ai[0], &ai[1], &ai[2], &ai[3], &ai[4], &ai[5]),
        oSource.GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
        oSource.GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]));
    AddAll(ai, 6);
    AddAll(aui, 6);
}

void ReadIdentity(const CEdid& oEdid)
{
    // Texts go into heap memory of exactly the size asked for.
    for (int (CEdidBase::*pfnGet)(char*, unsigned int) const :
         { &CEdidBase::GetMonitorID, &CEdidBase::GetManufacturerName, &CEdidBase::GetMonitorName,
           &CEdidBase::GetMonitorString, &CEdidBase::GetMonitorSerialNumber })
    {
        for (const unsigned int uiSize : { 0U, 7U, 8U, 13U, 14U })
        {
            const std::unique_ptr<char[]> pszText = std::make_unique<char[]>(uiSize);
            Add((oEdid.*pfnGet)(pszText.get(), uiSize), (oEdid.*pfnGet)(nullptr, 14));
            AddAll(pszText.get(), uiSize);
        }
    }
    CEdidBase::SRangeLimits oLimits = {};
    CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthUndefined;
    CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceNotDefined;
    AddAll(oEdid.GetBaseBlock(), 128);
    Add(oEdid.GetExtBlockType(0), oEdid.GetExtBlockType(1), oEdid.GetMonitorRangeLimits(oLimits),
        oEdid.GetColorBitDepth(eDepth), oEdid.GetDigitalVideoInterface(eInterface), eDepth, eInterface);
    const auto auiLimits = std::bit_cast<std::array<unsigned int, 6>>(oLimits);
    AddAll(auiLimits.data(), 6);
}

void ReadBaseTimings(const CEdid& oEdid)
{
    for (const int bVesaOnly : { 0, 1 })
    {
        ReadTimings(oEdid.GetEstablishedCount(bVesaOnly), [&](unsigned int i, CVidParamTiming* poTiming) {
            return oEdid.GetEstablished(i, poTiming, bVesaOnly);
        });
    }
    ReadOrigins([&](CTimingOrigins& aoOrigins) { oEdid.ListEstablishedOrigins(aoOrigins); });
    ReadTimings(24, [&](unsigned int i, CVidParamTiming* poTiming) {
        const auto eId = static_cast<CEdidBase::EEstablishedTiming>(1U << i % 32);
        return oEdid.GetEstablishedFromId(eId, poTiming, static_cast<int>(i & 1));
    });
    ReadTimings(oEdid.GetBaseStandardCount(), [&](unsigned int i, CVidParamTiming* poTiming) {
        int iNative = -1;
        return oEdid.GetBaseStandard(i, poTiming, &iNative) + 2 * iNative;
    });
    ReadTimings(8, [&](unsigned int i, CVidParamTiming* poTiming) {
        return oEdid.GetBaseStandard(static_cast<CEdidBase::EStandardSlotIndex>(i), poTiming, nullptr);
    });
    ReadTimings(4, [&](unsigned int i, CVidParamTiming* poTiming) { return oEdid.GetBaseDetailed(i, poTiming); });
    CVidParamTimingGeneric oTiming;
    ReadAll(4 * 6, [&](unsigned int i) { Add(oEdid.GetExtraStdTiming(i, oTiming), oTiming); });
}

template <class TAG>
void ReadDataBlocks(const CCea& oBlock, unsigned int uiLastTag)
{
    for (unsigned int uiTag = 0; uiTag <= uiLastTag; ++uiTag)
    {
        unsigned int uiOffset = 1;
        for (unsigned int i = 0; uiOffset != 0 && i < 128; ++i)
        {
            unsigned int uiLength = 0;
            uiOffset = oBlock.GetDataBlockOffset(static_cast<TAG>(uiTag), i, &uiLength);
            Add(uiOffset, oBlock.GetDataBlockOffset(static_cast<TAG>(uiTag), i, nullptr));
            AddAll(oBlock.GetData() + uiOffset, uiLength);
        }
    }
}

void ReadCea(const CCea& oBlock)
{
    ReadDataBlocks<CCea::ECea861_DataBlockTags>(oBlock, 8);
    ReadDataBlocks<CCea::ECea861_DataBlockExtTags>(oBlock, 33);
    Add(CCea::IsSupported(oBlock.GetSize(), oBlock.GetData()), CCea::GetRefusal(oBlock.GetSize(), oBlock.GetData()),
        oBlock.GetVendorSpecificCount(), oBlock.GetAvailableOffset(), oBlock.GetAvailableSpace(),
        oBlock.IsYuvSupported());
    ReadAll(oBlock.GetDetailedCount(), [&](unsigned int i) { Add(oBlock.GetDetailedTimingsOffset(i)); });
    ReadAll(oBlock.GetAudioDescriptorCount(), [&](unsigned int i) {
        CCea::SAudioDescriptor oAudio = {};
        Add(oBlock.GetAudioDescriptor(i, &oAudio), oBlock.GetAudioDescriptor(i, nullptr), oAudio.m_uiChannels,
            oAudio.m_uiExtra);
        Add(CCea::GetAudioFormatStr(oAudio.m_eFormat), CCea::GetAudioSamplingFreqStr(oAudio.m_eSamplingFreq));
    });
    ReadAll(oBlock.GetSpeakerDescriptorCount(), [&](unsigned int i) {
        unsigned int uiMask = 0;
        Add(oBlock.GetSpeakerDescriptor(i, &uiMask), oBlock.GetSpeakerDescriptor(i, nullptr), uiMask);
    });
}

void ReadBlock(const CEdidExtBlock& oBlock)
{
    unsigned int uiBits = 0;
    Add(oBlock.GetExtensionType(), oBlock.GetRevision(), oBlock.IsStripped(),
        CMString(CZorEdidUtils::GetExtensionType(oBlock)),
        const_cast<CEdidExtBlock&>(oBlock).GetColorBitDepthSupport(uiBits), uiBits); // changes nothing
    ReadSource(oBlock);
    if (oBlock.GetExtensionType() == 2)
    {
        ReadCea(static_cast<const CCea&>(oBlock));
    }
    if (oBlock.GetExtensionType() == CEdidExtBlockDisplayID::msc_uiExtensionTag)
    {
        const auto& oDisplayId = static_cast<const CEdidExtBlockDisplayID&>(oBlock);
        ReadAll(oBlock.GetDetailedCount(), [&](unsigned int i) {
            unsigned int uiSize = 0;
            Add(oDisplayId.GetDetailedTimingsOffset(i, uiSize), uiSize);
        });
    }
}

void ReadTools(const CEdid& oEdid)
{
    CVidParamTimingGeneric oPreferred;
    CZorEdidUtils::CModeList aoModes[7];
    Add(CZorEdidUtils::ExtractModeList(oEdid, oPreferred, aoModes[0], aoModes[1], aoModes[2], aoModes[3], aoModes[4],
                                       aoModes[5], aoModes[6]),
        oPreferred);
    CMArrayString oLines;
    for (unsigned int i = 0; i < 5; ++i)
    {
        const auto eType = static_cast<CZorEdidUtils::EEdidFormatType>(i);
        Add(CZorEdidUtils::GetFormatedEdid(eType, oEdid, oLines, i == 1 ? "" : "# "), oLines);
    }
    const CZorEdidUtils::CByteArray aui8Bytes = oEdid.GetEdidBuffer();
    const unsigned char* pui8Data = aui8Bytes.GetData();
    const int iFirst = aui8Bytes[127] % 2; // both switches in turn, as comparing is slow
    Add(CEdidUtils::GetFormatedEdidDataStrings(aui8Bytes.GetCount(), pui8Data, oLines, nullptr), oLines,
        CZorEdidUtils::CompareTimings(oEdid, oEdid, iFirst, 1),
        CZorEdidUtils::CompareTimings(aui8Bytes, aui8Bytes, 1 - iFirst, 0),
        CEdidBase::GetEdidSizeFromData(aui8Bytes.GetCount(), pui8Data));
}
} // namespace

unsigned long long ReadEverything(const CEdid& oEdid)
{
    g_ullDigest = 0xCBF29CE484222325ULL;
    CEdid oOther;
    oOther.SetEdidBuffer(oEdid.GetBaseBlock(), 128, 0);
    Add(oEdid == oEdid, oEdid == oOther, oOther == oEdid);
    ReadSource(oEdid);
    ReadIdentity(oEdid);
    ReadBaseTimings(oEdid);
    for (unsigned int i = 0; i < oEdid.GetExtensionCount(); ++i)
    {
        ReadBlock(*oEdid.GetExtension(i));
    }
    Add(oEdid.GetExtension(oEdid.GetExtensionCount()) == nullptr, oEdid.GetExtension(0xFFFFFFFF) == nullptr);
    ReadTools(oEdid);
    return g_ullDigest;
}
