// From the library's answers to JSON. The order of the members is that of a reader: who, what, when, which modes.

#include "Json.h"

#include "AudioWarnings.h"
#include "MapText.h"
#include "SpeakerNames.h"
#include "Standards/BaseBlock.h"
#include "TextFormat.h"

using nlohmann::ordered_json;
using namespace ZorStandards::BaseBlock;

namespace
{
constexpr unsigned int gsc_uiFormatVersion = 1;   // rises when a member goes or changes its meaning
constexpr unsigned int gsc_uiModelYearWeek = 255; // in the place of a week: the year is a model year
constexpr unsigned int gsc_uiHzPerKiloHz = 1000;
constexpr unsigned int gsc_uiTextSize = 14; // 13 characters and a terminator

// ---- Timings ----

// What a blanking too small for its parts leaves for the back porch wraps in the library; here it is below 0.
int AsSigned(unsigned int uiPorch) { return static_cast<int>(uiPorch); }

ordered_json MakeAxis(unsigned int uiFrontPorch, unsigned int uiSync, unsigned int uiBackPorch, unsigned int uiTotal,
                      int bPositive)
{
    return { { "front_porch", uiFrontPorch },
             { "sync", uiSync },
             { "back_porch", AsSigned(uiBackPorch) },
             { "total", uiTotal },
             { "positive", bPositive != 0 } };
}

ordered_json MakeListedTiming(const SImageMode& oListed)
{
    ordered_json oJson = { { "index", oListed.m_uiIndex },
                           { "block", oListed.m_uiBlock },
                           { "kind", oListed.m_pszKind } };
    if (oListed.m_eList == CZorEdidMap::eList_Established)
    {
        oJson["vesa"] = oListed.m_bVesa;
    }
    if (oListed.m_eList == CZorEdidMap::eList_Standard)
    {
        oJson["native"] = oListed.m_bNative;
    }
    if (oListed.m_bPreferred)
    {
        oJson["preferred"] = true;
    }
    if (!oListed.m_sStandardCode.empty())
    {
        oJson["code"] = oListed.m_sStandardCode;
    }
    oJson.update(MakeTiming(oListed.m_oTiming, oListed.m_oVics));
    return oJson;
}

void AddTimings(const CModes& aoModes, ordered_json& oJson)
{
    for (const CZorEdidMap::EList eList :
         { CZorEdidMap::eList_Established, CZorEdidMap::eList_Standard, CZorEdidMap::eList_Detailed })
    {
        oJson[GetListName(eList)] = ordered_json::array();
    }
    for (const SImageMode& oListed : aoModes)
    {
        if (!oListed.IsListed())
        {
            continue;
        }
        if (oListed.m_bPreferred)
        {
            oJson["preferred"] = MakeTiming(oListed.m_oTiming, oListed.m_oVics);
        }
        oJson[GetListName(oListed.m_eList)].push_back(MakeListedTiming(oListed));
    }
}

// ---- Base block ----

void AddText(const CEdid& oEdid, int (CEdidBase::*pfnGet)(char*, unsigned int) const, const char* pszMember,
             ordered_json& oJson)
{
    char szText[gsc_uiTextSize] = {};
    if ((oEdid.*pfnGet)(szText, sizeof(szText)) != 0)
    {
        oJson[pszMember] = szText;
    }
}

void AddIdentity(const CEdid& oEdid, ordered_json& oJson)
{
    const unsigned char* pui8Base = oEdid.GetBaseBlock();
    oJson["manufacturer"] = ReadManufacturerCode(pui8Base).m_szCode;
    char szName[64] = {};
    if (oEdid.GetManufacturerName(szName, sizeof(szName)) != 0)
    {
        oJson["manufacturer_name"] = szName;
    }
    oJson["product_code"] = ReadProductCode(pui8Base);
    oJson["serial_number"] = ReadSerialNumber(pui8Base);
    AddText(oEdid, &CEdidBase::GetMonitorName, "name", oJson);
    AddText(oEdid, &CEdidBase::GetMonitorSerialNumber, "serial_text", oJson);
    AddText(oEdid, &CEdidBase::GetMonitorString, "text", oJson);

    const unsigned int uiWeek = pui8Base[gsc_uiWeekOffset];
    const bool bModelYear = uiWeek == gsc_uiModelYearWeek;
    if (uiWeek != 0 && !bModelYear)
    {
        oJson["week"] = uiWeek;
    }
    oJson[bModelYear ? "model_year" : "year"] = pui8Base[gsc_uiYearOffset] + gsc_uiFirstYear;
    oJson["edid_version"] = pui8Base[gsc_uiVersionOffset];
    oJson["edid_revision"] = pui8Base[gsc_uiRevisionOffset];
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

void AddInput(const CEdid& oEdid, ordered_json& oJson)
{
    const bool bDigital = (oEdid.GetBaseBlock()[gsc_uiVideoInputOffset] & gsc_uiDigitalMask) != 0;
    oJson["digital"] = bDigital;
    CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthReserved;
    if (oEdid.GetColorBitDepth(eDepth) == 0) // there is an interface, too, exactly where there is a depth
    {
        return;
    }
    if (eDepth != CEdidBase::eColorBitDepthUndefined && eDepth != CEdidBase::eColorBitDepthReserved)
    {
        oJson["bits_per_color"] = 4 + 2 * static_cast<unsigned int>(eDepth);
    }
    CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceNotDefined;
    oEdid.GetDigitalVideoInterface(eInterface);
    if (GetInterfaceName(eInterface) != nullptr)
    {
        oJson["interface"] = GetInterfaceName(eInterface);
    }
}

void AddSizeAndLimits(const CLoadedImage& oImage, const CEdid& oEdid, ordered_json& oJson)
{
    const unsigned int uiWidth = oEdid.GetBaseBlock()[gsc_uiImageWidthOffset];
    const unsigned int uiHeight = oEdid.GetBaseBlock()[gsc_uiImageHeightOffset];
    if (uiWidth != 0 && uiHeight != 0) // else no size, or from revision 4 on an aspect ratio
    {
        oJson["width_cm"] = uiWidth;
        oJson["height_cm"] = uiHeight;
    }
    CEdidBase::SRangeLimits oLimits = {};
    if (oImage.GetRangeLimits(oLimits))
    {
        ordered_json oRange = { { "min_vertical_rate_hz", oLimits.m_uiMinVerticalRateInHz },
                                { "max_vertical_rate_hz", oLimits.m_uiMaxVerticalRateInHz },
                                { "min_horizontal_rate_hz", oLimits.m_uiMinHorizontalRateInKiloHz * gsc_uiHzPerKiloHz },
                                { "max_horizontal_rate_hz",
                                  oLimits.m_uiMaxHorizontalRateInKiloHz * gsc_uiHzPerKiloHz } };
        if (oLimits.m_uiMaxPixelClockInKiloHz != 0)
        {
            oRange["max_pixel_clock_hz"] = oLimits.m_uiMaxPixelClockInKiloHz * gsc_uiHzPerKiloHz; // 2.55 GHz at most
        }
        oJson["range_limits"] = oRange;
    }
}

void AddTile(const CEdid& oEdid, ordered_json& oJson)
{
    unsigned int auiTile[6] = {}; // location, count, size; each across and down
    if (oEdid.GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]) == 0)
    {
        return;
    }
    int aiFlags[6] = {};
    oEdid.GetTiledDisplayCapabilities(&aiFlags[0], &aiFlags[1], &aiFlags[2], &aiFlags[3], &aiFlags[4], &aiFlags[5]);
    oJson["tile"] = { { "column", auiTile[0] },
                      { "row", auiTile[1] },
                      { "columns", auiTile[2] },
                      { "rows", auiTile[3] },
                      { "width", auiTile[4] },
                      { "height", auiTile[5] },
                      { "single_enclosure", aiFlags[0] != 0 },
                      { "bezel_information", aiFlags[1] != 0 },
                      { "several_at_location", aiFlags[2] != 0 },
                      { "single_at_location", aiFlags[3] != 0 },
                      { "single_scaled", aiFlags[4] != 0 },
                      { "single_cloned", aiFlags[5] != 0 } };
}

// ---- Extension blocks ----

// The names or numbers of the bits that are set, from bit 0 on.
template <class VALUE, unsigned int uiCount>
ordered_json ListBits(const VALUE (&aValues)[uiCount], unsigned int uiMask)
{
    ordered_json oList = ordered_json::array();
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        if ((uiMask >> i & 1U) != 0)
        {
            oList.push_back(aValues[i]);
        }
    }
    return oList;
}

constexpr unsigned int gsc_auiSamplingRatesInHz[] = { 32000, 44100, 48000, 88200, 96000, 176400, 192000 };
constexpr unsigned int gsc_auiPcmBits[] = { 16, 20, 24 };
constexpr unsigned int gsc_auiDeepColorBits[] = { 30, 36, 48 };
constexpr unsigned int gsc_uiBitRateUnit = 8000; // of the third byte of the compressed formats up to ATRAC

ordered_json ListSpeakers(unsigned int uiMask)
{
    ordered_json oList = ordered_json::array();
    unsigned int uiLast = 0;
    for (const SNamedValue& oSpeaker : gsc_aoSpeakers)
    {
        if (oSpeaker.m_uiValue != uiLast && (uiMask & oSpeaker.m_uiValue) != 0)
        {
            oList.push_back(oSpeaker.m_pszName);
        }
        uiLast = oSpeaker.m_uiValue;
    }
    return oList;
}

ordered_json MakeAudio(const CEdidExtBlockCEA861::SAudioDescriptor& oAudio)
{
    ordered_json oJson = { { "format_code", static_cast<unsigned int>(oAudio.m_eFormat) } };
    const CMString oName = CEdidExtBlockCEA861::GetAudioFormatStr(oAudio.m_eFormat);
    if (oName[0] != '\0')
    {
        oJson["format_name"] = static_cast<const char*>(oName);
    }
    oJson["channels"] = oAudio.m_uiChannels;
    oJson["sampling_rates_hz"] = ListBits(gsc_auiSamplingRatesInHz, oAudio.m_eSamplingFreq);
    if (oAudio.m_eFormat == CEdidExtBlockCEA861::eAudioFormat_Pcm)
    {
        oJson["sample_bits"] = ListBits(gsc_auiPcmBits, oAudio.m_uiExtra);
    }
    else if (oAudio.m_eFormat >= CEdidExtBlockCEA861::eAudioFormat_Ac3 &&
             oAudio.m_eFormat <= CEdidExtBlockCEA861::eAudioFormat_Atrac)
    {
        oJson["max_bit_rate_bps"] = oAudio.m_uiExtra * gsc_uiBitRateUnit;
    }
    const unsigned char ui8Extra = ZorStandards::LowByte(oAudio.m_uiExtra);
    oJson["extra"] = FormatHex(&ui8Extra, 1);
    return oJson;
}

void AddCea(CEdidExtBlockCEA861& oBlock, ordered_json& oJson)
{
    oJson["ycbcr"] = oBlock.IsYuvSupported() != 0;
    oJson["audio"] = ordered_json::array();
    for (unsigned int i = 0; i < oBlock.GetAudioDescriptorCount(); ++i)
    {
        CEdidExtBlockCEA861::SAudioDescriptor oAudio = {};
        if (oBlock.GetAudioDescriptor(i, &oAudio) != 0)
        {
            oJson["audio"].push_back(MakeAudio(oAudio));
        }
    }
    oJson["speakers"] = ordered_json::array();
    for (unsigned int i = 0; i < oBlock.GetSpeakerDescriptorCount(); ++i)
    {
        unsigned int uiMask = 0;
        if (oBlock.GetSpeakerDescriptor(i, &uiMask) != 0)
        {
            oJson["speakers"].push_back({ { "mask", uiMask }, { "positions", ListSpeakers(uiMask) } });
        }
    }
    unsigned int uiBits = 0;
    if (oBlock.GetColorBitDepthSupport(uiBits) != 0 && uiBits != 0)
    {
        oJson["deep_color_bits"] = ListBits(gsc_auiDeepColorBits, uiBits);
    }
    for (const ZorUtils::SAudioWarning& oWarning : ZorUtils::gsc_aoAudioWarnings)
    {
        if (oWarning.m_pfnHolds(oBlock.GetAudioDescriptorCount(), oBlock.GetSpeakerDescriptorCount()))
        {
            oJson["warnings"].push_back(oWarning.m_pszText);
        }
    }
    oJson["free_bytes"] = oBlock.GetAvailableSpace();
}

ordered_json MakeBlock(const SImageBlock& oBlock)
{
    constexpr unsigned int uiRevisionOffset = 1; // of both kinds that the library reads
    ordered_json oJson = { { "block", oBlock.m_uiNumber },
                           { "tag", oBlock.GetTag() },
                           { "kind", GetBlockKind(oBlock.GetTag()) },
                           { "revision", oBlock.m_pui8Bytes[uiRevisionOffset] },
                           { "checksum", FormatHex(oBlock.m_pui8Bytes + CEdidUtils::msc_uiChecksumOffset, 1) },
                           { "checksum_valid",
                             CEdidUtils::Is8BitsChecksumValid(CEdidUtils::msc_uiBlockSize, oBlock.m_pui8Bytes) != 0 },
                           { "loaded", oBlock.m_poLoaded != nullptr } };
    if (CEdidExtBlockCEA861* poCea = oBlock.GetCea(); poCea != nullptr)
    {
        AddCea(*poCea, oJson);
    }
    return oJson;
}

ordered_json MakeImageHead(const SInput& oInput)
{
    ordered_json oJson = MakeDocument();
    oJson["file"] = oInput.m_sName;
    return oJson;
}
} // namespace

ordered_json MakeDocument() { return { { "format", "zoredid" }, { "version", gsc_uiFormatVersion } }; }

ordered_json MakeTiming(const CVidParamTimingGeneric& oTiming, const SVics& oVics)
{
    ordered_json oJson = {
        { "width", oTiming.GetHorizontalActive() },
        { "height", oTiming.GetVerticalActive() },
        { "interlaced", oTiming.IsInterlaced() != 0 },
        { "vertical_rate_hz", oTiming.GetVerticalRateInHz() },
        { "horizontal_rate_hz", oTiming.GetHorizontalRateInHz() },
        { "pixel_clock_hz", oTiming.GetPixelClockInHz() },
        { "horizontal",
          MakeAxis(oTiming.GetHorizontalFrontPorch(), oTiming.GetHorizontalSync(), oTiming.GetHorizontalBackPorch(),
                   oTiming.ComputeHorizontalTotalPixel(), oTiming.IsHorizontalPolarityPositive()) },
        { "vertical",
          MakeAxis(oTiming.GetVerticalFrontPorch(), oTiming.GetVerticalSync(), oTiming.GetVerticalBackPorch(),
                   GetVerticalTotal(oTiming), oTiming.IsVerticalPolarityPositive()) },
    };
    if (const char* pszType = GetTypeName(oTiming.GetVideoFamilyType()); pszType != nullptr)
    {
        oJson["type"] = pszType;
    }
    if (oTiming.Is420ColorSpace() != 0)
    {
        oJson["ycbcr420"] = true;
    }
    if (!oVics.m_auiCodes.empty())
    {
        oJson["vics"] = oVics.m_auiCodes;
    }
    if (oVics.m_bVariant)
    {
        oJson["rate_1000_1001"] = true;
    }
    return oJson;
}

ordered_json MakeImageOfTimings(const SInput& oInput, const CModes& aoModes)
{
    ordered_json oJson = MakeImageHead(oInput);
    AddTimings(aoModes, oJson);
    return oJson;
}

ordered_json MakeImage(const SInput& oInput, CLoadedImage& oImage)
{
    const CEdid& oEdid = oImage.GetEdid();
    ordered_json oJson = MakeImageHead(oInput);
    oJson["form"] = oInput.m_sForm;
    AddIdentity(oEdid, oJson);
    AddInput(oEdid, oJson);
    AddSizeAndLimits(oImage, oEdid, oJson);
    AddTimings(ListTimings(oImage), oJson);
    AddTile(oEdid, oJson);
    oJson["checksum"] = FormatHex(oEdid.GetBaseBlock() + CEdidUtils::msc_uiChecksumOffset, 1);
    oJson["checksum_valid"] = CEdidUtils::Is8BitsChecksumValid(CEdidUtils::msc_uiBlockSize, oEdid.GetBaseBlock()) != 0;
    oJson["extensions_announced"] = oImage.GetAnnouncedCount();
    oJson["extensions"] = ordered_json::array();
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        oJson["extensions"].push_back(MakeBlock(oBlock));
    }
    oJson["bytes"] = FormatHex(oInput.m_aui8Bytes.data(), oInput.m_aui8Bytes.size());
    return oJson;
}

ordered_json MakeFailure(const SInput& oInput, const std::string& sReason)
{
    ordered_json oJson = MakeImageHead(oInput);
    oJson["error"] = sReason;
    return oJson;
}

std::string OpenDocument(const char* pszList)
{
    std::string sHead = MakeDocument().dump();
    sHead.pop_back(); // the closing brace
    return sHead + ",\"" + pszList + "\":[\n";
}

std::string WriteLine(const ordered_json& oJson)
{
    return oJson.dump(-1, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

std::string WriteIndented(const ordered_json& oJson)
{
    return oJson.dump(2, ' ', false, ordered_json::error_handler_t::replace);
}
