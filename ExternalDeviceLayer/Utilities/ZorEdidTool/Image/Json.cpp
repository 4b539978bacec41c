// From the library's answers to JSON. The order of the members is that of a reader: who, what, when, which modes.

#include "Json.h"

#include <iterator>
#include <math.h>

#include "AudioNumbers.h"
#include "AudioWarnings.h"
#include "CutBase.h"
#include "ExactTimings.h"
#include "FactList.h"
#include "FactWords.h"
#include "MapText.h"
#include "SpeakerNames.h"
#include "Standards/AudioBlocks.h"
#include "Standards/BaseBlock.h"
#include "TextFormat.h"

using namespace ZorStandards::BaseBlock;

namespace
{
constexpr unsigned int gsc_uiHzPerKiloHz = 1000;
constexpr unsigned int gsc_uiTextSize = 14; // 13 characters and a terminator

// ---- Timings ----

// What a blanking too small for its parts leaves for the back porch wraps in the library; here it is below 0.
int AsSigned(unsigned int uiPorch) { return static_cast<int>(uiPorch); }

void WriteAxis(const char* pszName, unsigned int uiFrontPorch, unsigned int uiSync, unsigned int uiBackPorch,
               unsigned int uiTotal, int bPositive, CJsonWriter& oJson)
{
    oJson.BeginObject(pszName);
    oJson.Member("front_porch", uiFrontPorch);
    oJson.Member("sync", uiSync);
    oJson.Member("back_porch", AsSigned(uiBackPorch));
    oJson.Member("total", uiTotal);
    oJson.Member("positive", bPositive != 0);
    oJson.EndObject();
}

void WriteListedTiming(const SImageMode& oListed, CJsonWriter& oJson)
{
    oJson.BeginObject();
    oJson.Member("index", oListed.m_uiIndex);
    oJson.Member("block", oListed.m_uiBlock);
    oJson.Member("kind", oListed.m_pszKind);
    if (oListed.m_eList == CZorEdidMap::eList_Established)
    {
        oJson.Member("vesa", oListed.m_bVesa);
    }
    if (oListed.m_eList == CZorEdidMap::eList_Standard)
    {
        oJson.Member("native", oListed.m_bNative);
    }
    if (oListed.m_bPreferred)
    {
        oJson.Member("preferred", true);
    }
    if (!oListed.m_sStandardCode.empty())
    {
        oJson.Member("code", oListed.m_sStandardCode);
    }
    WriteListTiming(oListed.m_oTiming, oListed.m_oVics, oJson);
    oJson.EndObject();
}

void WriteLists(const CModes& aoListed, CJsonWriter& oJson)
{
    for (const CZorEdidMap::EList eList :
         { CZorEdidMap::eList_Established, CZorEdidMap::eList_Standard, CZorEdidMap::eList_Detailed })
    {
        oJson.BeginArray(GetListName(eList));
        for (const SImageMode& oListed : aoListed)
        {
            if (oListed.m_eList == eList)
            {
                WriteListedTiming(oListed, oJson);
            }
        }
        oJson.EndArray();
    }
    if (const SImageMode* poPreferred = FindPreferred(aoListed); poPreferred != nullptr)
    {
        oJson.BeginObject("preferred");
        WriteListTiming(poPreferred->m_oTiming, poPreferred->m_oVics, oJson);
        oJson.EndObject();
    }
}

// ---- Modes ----

void WriteBareMode(const SZorMode& oMode, bool bPartner, CJsonWriter& oJson)
{
    oJson.Member("width", oMode.m_uiWidth);
    oJson.Member("height", oMode.m_uiHeight);
    oJson.Member("interlaced", oMode.m_bInterlaced);
    if (bPartner)
    {
        oJson.Member("rate_1000_1001", true);
    }
}

const char* GetNumbersName(SZorImageMode::ENumbers eNumbers)
{
    constexpr const char* apszNames[] = { "none", "bytes", "table", "formula", "assumed" };
    return apszNames[eNumbers];
}

// ---- Base block ----

void AddText(const CEdid& oEdid, int (CEdidBase::*pfnGet)(char*, unsigned int) const, const char* pszMember,
             CJsonWriter& oJson)
{
    char szText[gsc_uiTextSize] = {};
    if ((oEdid.*pfnGet)(szText, sizeof(szText)) != 0)
    {
        oJson.Member(pszMember, szText);
    }
}

void AddIdentity(const CEdid& oEdid, CJsonWriter& oJson)
{
    const unsigned char* pui8Base = oEdid.GetBaseBlock();
    const SManufacturerCode oMaker = ReadManufacturerCode(pui8Base);
    oJson.Member("manufacturer", oMaker.m_szCode);
    const std::string& sName = NameMaker(oMaker.m_szCode);
    if (!sName.empty())
    {
        oJson.Member("manufacturer_name", sName);
    }
    oJson.Member("product_code", ReadProductCode(pui8Base));
    oJson.Member("serial_number", ReadSerialNumber(pui8Base));
    AddText(oEdid, &CEdidBase::GetMonitorName, "name", oJson);
    AddText(oEdid, &CEdidBase::GetMonitorSerialNumber, "serial_text", oJson);
    AddText(oEdid, &CEdidBase::GetMonitorString, "text", oJson);

    const unsigned int uiWeek = pui8Base[gsc_uiWeekOffset];
    if (uiWeek != 0 && uiWeek <= gsc_uiLastWeek)
    {
        oJson.Member("week", uiWeek);
    }
    oJson.Member(IsModelYear(pui8Base) ? "model_year" : "year", pui8Base[gsc_uiYearOffset] + gsc_uiFirstYear);
    oJson.Member("edid_version", pui8Base[gsc_uiVersionOffset]);
    oJson.Member("edid_revision", pui8Base[gsc_uiRevisionOffset]);
}

const char* GetInterfaceName(CEdidBase::EDigitalInterface eInterface)
{
    switch (eInterface)
    {
    case CEdidBase::eDigitalInterfaceDvi:
        return "dvi";
    case CEdidBase::eDigitalInterfaceHdmiA:
        return "hdmi-a";
    case CEdidBase::eDigitalInterfaceHdmiB:
        return "hdmi-b";
    case CEdidBase::eDigitalInterfaceMddi:
        return "mddi";
    case CEdidBase::eDigitalInterfaceDisplayPort:
        return "displayport";
    default:
        return nullptr;
    }
}

void AddInput(const CEdid& oEdid, CJsonWriter& oJson)
{
    const bool bDigital = (oEdid.GetBaseBlock()[gsc_uiVideoInputOffset] & gsc_uiDigitalMask) != 0;
    oJson.Member("digital", bDigital);
    CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthReserved;
    if (oEdid.GetColorBitDepth(eDepth) == 0) // there is an interface, too, exactly where there is a depth
    {
        return;
    }
    if (const unsigned int uiBits = GetBitsPerColor(eDepth))
    {
        oJson.Member("bits_per_color", uiBits);
    }
    CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceNotDefined;
    oEdid.GetDigitalVideoInterface(eInterface);
    if (GetInterfaceName(eInterface) != nullptr)
    {
        oJson.Member("interface", GetInterfaceName(eInterface));
    }
}

void AddSizeAndLimits(const CEdid& oEdid, CJsonWriter& oJson)
{
    const unsigned char* pui8Base = oEdid.GetBaseBlock();
    const unsigned int uiWidth = pui8Base[gsc_uiImageWidthOffset];
    const unsigned int uiHeight = pui8Base[gsc_uiImageHeightOffset];
    if (uiWidth != 0 && uiHeight != 0) // else no size, or from revision 4 on an aspect ratio
    {
        oJson.Member("width_cm", uiWidth);
        oJson.Member("height_cm", uiHeight);
    }
    if (const unsigned int uiOffset = FindRangeLimits(pui8Base); uiOffset != 0)
    {
        const SRangeLimits oLimits = ReadRangeLimits(pui8Base + uiOffset, ReadRevision(pui8Base));
        oJson.BeginObject("range_limits");
        oJson.Member("min_vertical_rate_hz", oLimits.m_uiMinVerticalRateInHz);
        oJson.Member("max_vertical_rate_hz", oLimits.m_uiMaxVerticalRateInHz);
        oJson.Member("min_horizontal_rate_hz", oLimits.m_uiMinHorizontalRateInKiloHz * gsc_uiHzPerKiloHz);
        oJson.Member("max_horizontal_rate_hz", oLimits.m_uiMaxHorizontalRateInKiloHz * gsc_uiHzPerKiloHz);
        if (const unsigned int uiClock = oLimits.m_uiPreciseMaxPixelClockInKiloHz; uiClock != 0)
        {
            oJson.Member("max_pixel_clock_hz", uiClock * gsc_uiHzPerKiloHz); // 2.55 GHz at most
        }
        oJson.EndObject();
    }
}

void AddTile(const CEdid& oEdid, CJsonWriter& oJson)
{
    unsigned int auiTile[6] = {}; // location, count, size; each across and down
    if (oEdid.GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]) == 0)
    {
        return;
    }
    int aiFlags[6] = {};
    oEdid.GetTiledDisplayCapabilities(&aiFlags[0], &aiFlags[1], &aiFlags[2], &aiFlags[3], &aiFlags[4], &aiFlags[5]);
    const struct
    {
        const char* m_pszName;
        unsigned int m_uiNumber;
    } aoNumbers[] = { { "column", auiTile[0] }, { "row", auiTile[1] },   { "columns", auiTile[2] },
                      { "rows", auiTile[3] },   { "width", auiTile[4] }, { "height", auiTile[5] } };
    constexpr const char* apszFlags[] = { "single_enclosure",   "bezel_information", "several_at_location",
                                          "single_at_location", "single_scaled",     "single_cloned" };
    oJson.BeginObject("tile");
    for (const auto& oNumber : aoNumbers)
    {
        oJson.Member(oNumber.m_pszName, oNumber.m_uiNumber);
    }
    for (size_t i = 0; i < std::size(apszFlags); ++i)
    {
        oJson.Member(apszFlags[i], aiFlags[i] != 0);
    }
    oJson.EndObject();
}

// ---- Extension blocks ----

// The names or numbers of the bits that are set, from bit 0 on.
template <class VALUE, unsigned int uiCount>
std::vector<VALUE> ListBits(const VALUE (&aValues)[uiCount], unsigned int uiMask)
{
    std::vector<VALUE> aoList;
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        if ((uiMask >> i & 1U) != 0)
        {
            aoList.push_back(aValues[i]);
        }
    }
    return aoList;
}

constexpr unsigned int gsc_auiDeepColorBits[] = { 30, 36, 48 };

std::vector<const char*> ListSpeakers(unsigned int uiMask)
{
    std::vector<const char*> apszNames;
    for (unsigned int i = 0; i < gsc_uiListedSpeakers; ++i)
    {
        if ((uiMask >> i & 1U) != 0)
        {
            apszNames.push_back(gsc_apszSpeakers[i]);
        }
    }
    return apszNames;
}

void WriteAudio(const CEdidExtBlockCEA861::SAudioDescriptor& oAudio, CJsonWriter& oJson)
{
    namespace Audio = ZorStandards::Audio;
    constexpr unsigned int uiBitsPerKiloBit = 1000;
    oJson.BeginObject();
    oJson.Member("format_code", static_cast<unsigned int>(oAudio.m_eFormat));
    const unsigned char aui8Descriptor[] = { 0, 0, ZorStandards::LowByte(oAudio.m_uiExtra) };
    const unsigned int uiExtended = Audio::gsc_oExtendedFormat.Read(aui8Descriptor);
    const char* pszName = Audio::GetFormatName(oAudio.m_eFormat, uiExtended);
    if (*pszName != '\0')
    {
        oJson.Member("format_name", pszName);
    }
    if (Audio::HasChannels(oAudio.m_eFormat, uiExtended))
    {
        oJson.Member("channels", oAudio.m_uiChannels);
    }
    oJson.Member("sampling_rates_hz", ListBits(gsc_aiSamplingRates, oAudio.m_eSamplingFreq));
    if (oAudio.m_eFormat == CEdidExtBlockCEA861::eAudioFormat_Pcm)
    {
        oJson.Member("sample_bits", ListBits(gsc_aiSampleBits, oAudio.m_uiExtra));
    }
    else if (Audio::HasBitRate(oAudio.m_eFormat))
    {
        oJson.Member("max_bit_rate_bps", oAudio.m_uiExtra * Audio::gsc_uiKiloBitsPerStep * uiBitsPerKiloBit);
    }
    const unsigned char ui8Extra = ZorStandards::LowByte(oAudio.m_uiExtra);
    oJson.Member("extra", FormatHex(&ui8Extra, 1));
    oJson.EndObject();
}

void WriteSound(CEdidExtBlockCEA861& oBlock, CJsonWriter& oJson)
{
    oJson.BeginArray("audio");
    for (unsigned int i = 0; i < oBlock.GetAudioDescriptorCount(); ++i)
    {
        CEdidExtBlockCEA861::SAudioDescriptor oAudio = {};
        if (oBlock.GetAudioDescriptor(i, &oAudio) != 0)
        {
            WriteAudio(oAudio, oJson);
        }
    }
    oJson.EndArray();
    oJson.BeginArray("speakers");
    for (unsigned int i = 0; i < oBlock.GetSpeakerDescriptorCount(); ++i)
    {
        unsigned int uiMask = 0;
        if (oBlock.GetSpeakerDescriptor(i, &uiMask) != 0)
        {
            oJson.BeginObject();
            oJson.Member("mask", uiMask);
            oJson.Member("positions", ListSpeakers(uiMask));
            oJson.EndObject();
        }
    }
    oJson.EndArray();
}

void WriteCea(CEdidExtBlockCEA861& oBlock, CJsonWriter& oJson)
{
    oJson.Member("ycbcr", oBlock.IsYuvSupported() != 0);
    WriteSound(oBlock, oJson);
    unsigned int uiBits = 0;
    if (oBlock.GetColorBitDepthSupport(uiBits) != 0 && uiBits != 0)
    {
        oJson.Member("deep_color_bits", ListBits(gsc_auiDeepColorBits, uiBits));
    }
    std::vector<const char*> apszWarnings;
    for (const ZorUtils::SAudioWarning& oWarning : ZorUtils::gsc_aoAudioWarnings)
    {
        if (oWarning.m_pfnHolds(oBlock.GetAudioDescriptorCount(), oBlock.GetSpeakerDescriptorCount()))
        {
            apszWarnings.push_back(oWarning.m_pszText);
        }
    }
    if (!apszWarnings.empty())
    {
        oJson.Member("warnings", apszWarnings);
    }
    oJson.Member("free_bytes", oBlock.GetAvailableSpace());
}

void WriteBlock(const SImageBlock& oBlock, CJsonWriter& oJson)
{
    constexpr unsigned int uiRevisionOffset = 1; // of both kinds that the library reads
    oJson.BeginObject();
    oJson.Member("block", oBlock.m_uiNumber);
    oJson.Member("tag", oBlock.GetTag());
    oJson.Member("kind", GetBlockKind(oBlock.GetTag()));
    oJson.Member("revision", oBlock.m_pui8Bytes[uiRevisionOffset]);
    oJson.Member("checksum", FormatHex(oBlock.m_pui8Bytes + CEdidUtils::msc_uiChecksumOffset, 1));
    oJson.Member("checksum_valid",
                 CEdidUtils::Is8BitsChecksumValid(CEdidUtils::msc_uiBlockSize, oBlock.m_pui8Bytes) != 0);
    oJson.Member("loaded", oBlock.m_poLoaded != nullptr);
    if (CEdidExtBlockCEA861* poCea = oBlock.GetCea(); poCea != nullptr)
    {
        WriteCea(*poCea, oJson);
    }
    oJson.EndObject();
}

void BeginImage(const SInput& oInput, CJsonWriter& oJson)
{
    BeginDocument(oJson);
    WriteSource(oInput, oJson);
}

void WriteModes(const CImageModes& oModes, CJsonWriter& oJson)
{
    oJson.BeginArray("modes");
    for (const SModeRow& oRow : oModes.GetRows())
    {
        WriteMode(oRow, oJson);
    }
    oJson.EndArray();
}

// What the bytes say, loaded or not, also those of a base block that is cut.
void WriteTruth(const SInput& oInput, const CEdid* poEdid, const CModes& aoListed, CJsonWriter& oJson)
{
    const std::vector<unsigned char> aui8Bytes = FillCutBase(oInput.m_aui8Bytes);
    CZorEdidFacts oFacts;
    if (oFacts.Read(static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data()) == 0)
    {
        return;
    }
    const CFactList aoFacts = ListFacts(oFacts);
    oJson.BeginObject("facts");
    WriteFacts(aoFacts, oJson);
    oJson.EndObject();
    oJson.BeginObject("fact_ids");
    WriteFactIds(aoFacts, oJson);
    oJson.EndObject();
    WriteModes(CImageModes(aui8Bytes, poEdid, aoListed), oJson);
}

// What the library's classes make of it.
void WriteLibrary(CLoadedImage& oImage, const CModes& aoListed, CJsonWriter& oJson)
{
    const CEdid& oEdid = oImage.GetEdid();
    AddIdentity(oEdid, oJson);
    AddInput(oEdid, oJson);
    AddSizeAndLimits(oEdid, oJson);
    WriteLists(aoListed, oJson);
    AddTile(oEdid, oJson);
    oJson.Member("checksum", FormatHex(oEdid.GetBaseBlock() + CEdidUtils::msc_uiChecksumOffset, 1));
    oJson.Member("checksum_valid",
                 CEdidUtils::Is8BitsChecksumValid(CEdidUtils::msc_uiBlockSize, oEdid.GetBaseBlock()) != 0);
    oJson.Member("extensions_announced", oImage.GetAnnouncedCount());
    oJson.BeginArray("extensions");
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        WriteBlock(oBlock, oJson);
    }
    oJson.EndArray();
}
} // namespace

void BeginDocument(CJsonWriter& oJson)
{
    oJson.BeginObject();
    oJson.Member("format", "zoredid");
    oJson.Member("version", gsc_uiFormatVersion);
}

void WriteSource(const SInput& oInput, CJsonWriter& oJson)
{
    oJson.Member("file", oInput.GetFile());
    if (!oInput.m_sMonitor.empty())
    {
        oJson.Member("monitor", oInput.m_sMonitor);
    }
    if (oInput.m_uiImage != 0)
    {
        oJson.Member("image", oInput.m_uiImage);
    }
}

void WriteListTiming(const CVidParamTimingGeneric& oTiming, const SVics& oVics, CJsonWriter& oJson)
{
    oJson.Member("width", oTiming.GetHorizontalActive());
    oJson.Member("height", oTiming.GetVerticalActive());
    oJson.Member("interlaced", oTiming.IsInterlaced() != 0);
    oJson.Member("vertical_rate_hz", oTiming.GetVerticalRateInHz());
    oJson.Member("horizontal_rate_hz", oTiming.GetHorizontalRateInHz());
    oJson.Member("pixel_clock_hz", oTiming.GetPixelClockInHz());
    WriteAxis("horizontal", oTiming.GetHorizontalFrontPorch(), oTiming.GetHorizontalSync(),
              oTiming.GetHorizontalBackPorch(), oTiming.ComputeHorizontalTotalPixel(),
              oTiming.IsHorizontalPolarityPositive(), oJson);
    WriteAxis("vertical", oTiming.GetVerticalFrontPorch(), oTiming.GetVerticalSync(), oTiming.GetVerticalBackPorch(),
              GetVerticalTotal(oTiming), oTiming.IsVerticalPolarityPositive(), oJson);
    if (const char* pszType = GetTypeName(oTiming.GetVideoFamilyType()); pszType != nullptr)
    {
        oJson.Member("type", pszType);
    }
    if (oTiming.Is420ColorSpace() != 0)
    {
        oJson.Member("ycbcr420", true);
    }
    if (!oVics.m_auiCodes.empty())
    {
        oJson.Member("vics", oVics.m_auiCodes);
    }
    if (oVics.m_bVariant)
    {
        oJson.Member("rate_1000_1001", true);
    }
}

void WriteMode(const SModeRow& oRow, CJsonWriter& oJson)
{
    constexpr double dDecimals = 1000; // of a rate
    const SZorMode& oMode = oRow.m_oMode;
    oJson.BeginObject();
    oJson.Member("id", CZorEdidMap::GetId(oRow.m_poEntry->m_eField));
    oJson.Member("block", oRow.GetBlock());
    oJson.Member("offset", oRow.m_poEntry->m_uiOffset);
    oJson.Member("numbers", GetNumbersName(oRow.m_poEntry->m_eNumbers));
    if (oRow.IsListed())
    {
        oJson.Member("list", GetListName(oRow.m_eList));
        oJson.Member("index", oRow.m_uiNumber);
    }
    if (oRow.m_ui420Number != SModeRow::msc_uiNone)
    {
        oJson.Member("index_ycbcr420", oRow.m_ui420Number);
    }
    if (!oRow.m_auiOtherNumbers.empty())
    {
        oJson.Member("indexes_of_other_code", oRow.m_auiOtherNumbers);
    }
    if (!oRow.m_sOtherwise.empty())
    {
        oJson.Member("listed_otherwise", oRow.m_sOtherwise);
    }
    if (oRow.IsPreferred())
    {
        oJson.Member("preferred", true);
    }
    if (oRow.m_poEntry->m_uiPreference != 0 && !oRow.m_bPartner)
    {
        oJson.Member("preference", oRow.m_poEntry->m_uiPreference);
    }
    const auto fnFlag = [&oJson](const char* pszName, bool bHolds) {
        if (bHolds)
        {
            oJson.Member(pszName, true);
        }
    };
    fnFlag("native", oMode.m_bNative);
    fnFlag("ycbcr420", oMode.m_eY420 != SZorMode::eY420_No);
    fnFlag("ycbcr420_only", oMode.m_eY420 == SZorMode::eY420_Only);
    fnFlag("stereo", oRow.Is3d());
    if (oMode.m_eKind == SZorMode::eModeKind_Vic)
    {
        oJson.Member("vic", oMode.m_uiCode);
    }
    if (oMode.m_eKind == SZorMode::eModeKind_HdmiVic)
    {
        oJson.Member("hdmi_vic", oMode.m_uiCode);
    }
    oJson.Member("rate_hz", round(GetRate(oMode) * dDecimals) / dDecimals);
    oMode.m_bTiming ? WriteTiming(oMode, GetSourceName(*oRow.m_poEntry), oRow.m_bPartner, oJson)
                    : WriteBareMode(oMode, oRow.m_bPartner, oJson);
    oJson.EndObject();
}

std::string MakeImageOfModes(const SInput& oInput, CLoadedImage& oImage, const CImageModes& oModes,
                             CJsonWriter::EStyle eStyle)
{
    CJsonWriter oJson(eStyle);
    BeginImage(oInput, oJson);
    WriteModes(oModes, oJson);
    if (oImage.IsLoaded())
    {
        WriteLists(ListTimings(oImage), oJson);
    }
    else
    {
        oJson.Member("error", oImage.GetProblem());
    }
    oJson.EndObject();
    return oJson.GetText();
}

std::string MakeImage(const SInput& oInput, CLoadedImage& oImage, CJsonWriter::EStyle eStyle)
{
    CJsonWriter oJson(eStyle);
    BeginImage(oInput, oJson);
    if (!oInput.m_sForm.empty())
    {
        oJson.Member("form", oInput.m_sForm);
    }
    if (!oImage.IsLoaded())
    {
        oJson.Member("error", oImage.GetProblem());
        WriteTruth(oInput, nullptr, {}, oJson);
    }
    else
    {
        const CModes aoListed = ListTimings(oImage);
        WriteTruth(oInput, &oImage.GetEdid(), aoListed, oJson);
        WriteLibrary(oImage, aoListed, oJson);
    }
    if (!oInput.m_aui8Bytes.empty())
    {
        oJson.Member("bytes", FormatHex(oInput.m_aui8Bytes.data(), oInput.m_aui8Bytes.size()));
    }
    oJson.EndObject();
    return oJson.GetText();
}

std::string MakeFailure(const SInput& oInput, const std::string& sReason, CJsonWriter::EStyle eStyle)
{
    CJsonWriter oJson(eStyle);
    BeginImage(oInput, oJson);
    oJson.Member("error", sReason);
    oJson.EndObject();
    return oJson.GetText();
}

std::string OpenDocument(const char* pszList)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Line);
    BeginDocument(oJson);
    oJson.BeginArray(pszList);
    return oJson.GetText() + "\n";
}
