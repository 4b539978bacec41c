// From the record of facts to names and values.

#include "FactList.h"

#include <algorithm>
#include <math.h>
#include <string_view>

#include "AudioNumbers.h"
#include "JsonWriter.h"
#include "SpeakerNames.h"
#include "Standards/AudioBlocks.h"
#include "TextFormat.h"
#include "ZorEdidMap.h"

namespace
{
using CFacts = CZorEdidFacts;
using CNames = std::vector<const char*>;

constexpr double gsc_dTenthsPerMillimetre = 10;
constexpr long long gsc_llHzPerKiloHz = 1000;

double Round(double dValue, int iDecimals)
{
    const double dScale = pow(10, iDecimals);
    return round(dValue * dScale) / dScale;
}

// The names of the bits that are set, from bit 0 on; null names are skipped.
template <size_t uiCount>
CNames NameBits(unsigned int uiBits, const char* const (&apszNames)[uiCount])
{
    CNames apszSet;
    for (size_t i = 0; i < uiCount; ++i)
    {
        if ((uiBits >> i & 1U) != 0 && apszNames[i] != nullptr)
        {
            apszSet.push_back(apszNames[i]);
        }
    }
    return apszSet;
}

template <size_t uiCount>
std::vector<int> NumberBits(unsigned int uiBits, const int (&aiNumbers)[uiCount])
{
    std::vector<int> aiSet;
    for (size_t i = 0; i < uiCount; ++i)
    {
        if ((uiBits >> i & 1U) != 0)
        {
            aiSet.push_back(aiNumbers[i]);
        }
    }
    return aiSet;
}

// A code beyond the names is its number.
template <size_t uiCount>
std::string NameCode(unsigned int uiCode, const char* const (&apszNames)[uiCount])
{
    return uiCode < uiCount ? apszNames[uiCode] : std::to_string(uiCode);
}

constexpr const char* gsc_apszKinds[] = { "generic",      "panel",        "monitor",  "television", "projector",
                                          "head-mounted", "presentation", "repeater", "other" };
constexpr const char* gsc_apszOrientations[] = { "landscape", "portrait", "not-fixed", "undefined" };
constexpr const char* gsc_apszRotations[] = { "none", "clockwise", "counter-clockwise", "both" };
constexpr const char* gsc_apszSubPixels[] = { "undefined",
                                              "rgb-vertical",
                                              "rgb-horizontal",
                                              "primary-order-vertical",
                                              "primary-order-horizontal",
                                              "quad-red-top-left",
                                              "quad-red-bottom-left",
                                              "delta",
                                              "mosaic",
                                              "quad-4",
                                              "five",
                                              "six",
                                              "pentile" };
constexpr const char* gsc_apszScans[] = { "no-data", "overscan", "underscan", "both" };
constexpr const char* gsc_apszImageSizes[] = { "unknown", "aspect", "cm", "5-cm" };
constexpr const char* gsc_apszLinks[] = { "analog", "digital", "dvi", "hdmi", "displayport", "lvds", "other" };
constexpr const char* gsc_apszContents[] = { "graphics", "photo", "cinema", "game" };
constexpr const char* gsc_apszRefreshSources[] = { "hdmi-forum", "amd", "adaptive-sync", "dynamic-range",
                                                   "range-limits" };
constexpr const char* gsc_apszFormats[] = { "rgb", "ycbcr444", "ycbcr422", "ycbcr420" };
constexpr int gsc_aiDepths[] = { 6, 8, 10, 12, 14, 16 };
constexpr const char* gsc_apszColorimetry[] = { "xvycc601",    "xvycc709",   "sycc601",   "opycc601",
                                                "oprgb",       "bt2020cycc", "bt2020ycc", "bt2020rgb",
                                                "gamut-p0",    nullptr,      nullptr,     nullptr,
                                                "default-rgb", "srgb",       "ictcp",     "st2113rgb" };
constexpr const char* gsc_apszEotfs[] = { "sdr", "hdr-gamma", "pq", "hlg" };
constexpr const char* gsc_apszSpaces[] = { "undefined", "srgb",   "bt601",  "bt709",
                                           "adobe-rgb", "dci-p3", "bt2020", "custom" };
constexpr const char* gsc_apszTransfers[] = { "undefined", "srgb",  "bt601", "bt1886", "adobe-rgb", "dci-p3",
                                              "bt2020",    "gamma", "pq",    "hlg",    "custom" };
constexpr const char* gsc_apszQuestions[] = { "product",
                                              "serial_number",
                                              "serial_text",
                                              "name",
                                              "year",
                                              "model_year",
                                              "container_id",
                                              "size",
                                              "aspect",
                                              "native",
                                              "kind",
                                              "orientation",
                                              "rotation",
                                              "subpixels",
                                              "tile",
                                              "link",
                                              "lanes",
                                              "vertical_rates",
                                              "horizontal_rates",
                                              "max_pixel_clock",
                                              "continuous",
                                              "depth",
                                              "primaries",
                                              "white",
                                              "gamma",
                                              "audio" };
static_assert(std::size(gsc_apszQuestions) == CFacts::eQuestion_Count);
constexpr const char* gsc_apszUnread[] = { "",       "missing", "cut",      "kind",       "revision",
                                           "offset", "length",  "checksum", "not-counted" };
static_assert(std::size(gsc_apszUnread) == CFacts::eUnread_NotCounted + 1);

// The field of the second number of a fact with two, of which the record has the first one's.
EZorEdidField GetSecondField(EZorEdidField eFirst)
{
    constexpr std::pair<EZorEdidField, EZorEdidField> aePairs[] = {
        { eZorEdidField_BaseRangeMinVerticalRate, eZorEdidField_BaseRangeMaxVerticalRate },
        { eZorEdidField_BaseRangeMinHorizontalRate, eZorEdidField_BaseRangeMaxHorizontalRate },
        { eZorEdidField_DisplayidRangeMinVerticalRefreshRate, eZorEdidField_DisplayidRangeMaxVerticalRefreshRate },
        { eZorEdidField_DisplayidRangeMinHorizontalFrequency, eZorEdidField_DisplayidRangeMaxHorizontalFrequency },
        { eZorEdidField_CtaHdmiForumVrrMin, eZorEdidField_CtaHdmiForumVrrMax },
        { eZorEdidField_CtaAmdMinRefreshRate, eZorEdidField_CtaAmdMaxRefreshRate },
        { eZorEdidField_DisplayidAdaptiveSyncMinRefreshRate, eZorEdidField_DisplayidAdaptiveSyncMaxRefreshRate },
        { eZorEdidField_BaseDetailedImageWidth, eZorEdidField_BaseDetailedImageHeight },
        { eZorEdidField_BaseDisplayScreenWidth, eZorEdidField_BaseDisplayScreenHeight },
        { eZorEdidField_BaseDetailedHorizontalActive, eZorEdidField_BaseDetailedVerticalActive },
        { eZorEdidField_CtaNativeResolutionImageWidth, eZorEdidField_CtaNativeResolutionImageHeight },
        { eZorEdidField_CtaDisplayDeviceHorizontalPixels, eZorEdidField_CtaDisplayDeviceVerticalPixels },
        { eZorEdidField_DisplayidParametersImageWidth, eZorEdidField_DisplayidParametersImageHeight },
        { eZorEdidField_DisplayidParametersHorizontalPixels, eZorEdidField_DisplayidParametersVerticalPixels },
        { eZorEdidField_DisplayidDeviceHorizontalPixels, eZorEdidField_DisplayidDeviceVerticalPixels },
    };
    const auto* poPair = std::ranges::find(aePairs, eFirst, &std::pair<EZorEdidField, EZorEdidField>::first);
    return poPair != std::end(aePairs) ? poPair->second : eFirst;
}

// The same fact with the field of its second number.
template <class VALUE>
SZorFact<VALUE> WithSecondField(SZorFact<VALUE> oFact)
{
    oFact.m_eId = GetSecondField(oFact.m_eId);
    return oFact;
}

// Collects the list. Each Add leaves out what is not said.
class CCollector
{
public:
    CFactList m_aoFacts;

    void Put(const char* pszPath, CFactValue oValue, EZorEdidField eId = eZorEdidField_None, unsigned int uiElement = 0)
    {
        m_aoFacts.push_back({ pszPath, uiElement, std::move(oValue), eId });
    }

    void Add(const char* pszPath, const SZorFact<bool>& oFact)
    {
        if (oFact.IsSaid())
        {
            Put(pszPath, oFact.m_oValue, oFact.m_eId);
        }
    }

    template <std::unsigned_integral NUMBER>
    void Add(const char* pszPath, const SZorFact<NUMBER>& oFact, long long llUnit = 1)
    {
        if (oFact.IsSaid())
        {
            Put(pszPath, static_cast<long long>(oFact.m_oValue) * llUnit, oFact.m_eId);
        }
    }

    void Add(const char* pszPath, const SZorFact<float>& oFact, int iDecimals = 4)
    {
        if (oFact.IsSaid())
        {
            Put(pszPath, Round(static_cast<double>(oFact.m_oValue), iDecimals), oFact.m_eId);
        }
    }

    void Add(const char* pszPath, const SZorFact<CFacts::SText>& oFact)
    {
        if (oFact.IsSaid())
        {
            Put(pszPath, std::string(oFact.m_oValue.m_szText), oFact.m_eId);
        }
    }

    void Add(const char* pszPath, const SZorFact<CFacts::SLuminance>& oFact)
    {
        if (oFact.IsSaid())
        {
            Put(pszPath, Round(static_cast<double>(oFact.m_oValue.m_fLuminance), 4), oFact.m_eId);
        }
    }

    // The value of a fact by a function of it.
    template <class VALUE, class MAKE>
    void AddAs(const char* pszPath, const SZorFact<VALUE>& oFact, const MAKE& fnMake)
    {
        if (oFact.IsSaid())
        {
            Put(pszPath, CFactValue(fnMake(oFact.m_oValue)), oFact.m_eId);
        }
    }

    template <class CODE, size_t uiCount>
    void AddCode(const char* pszPath, const SZorFact<CODE>& oFact, const char* const (&apszNames)[uiCount])
    {
        AddAs(pszPath, oFact, [&](CODE eCode) { return NameCode(static_cast<unsigned int>(eCode), apszNames); });
    }

    template <class MASK, size_t uiCount>
    void AddNames(const char* pszPath, const SZorFact<MASK>& oFact, const char* const (&apszNames)[uiCount])
    {
        AddAs(pszPath, oFact, [&](MASK uiBits) { return NameBits(uiBits, apszNames); });
    }

    template <class MASK, size_t uiCount>
    void AddNumbers(const char* pszPath, const SZorFact<MASK>& oFact, const int (&aiNumbers)[uiCount])
    {
        AddAs(pszPath, oFact, [&](MASK uiBits) { return NumberBits(uiBits, aiNumbers); });
    }

    void AddPoint(const char* pszPath, const CFacts::SPoint& oPoint, EZorEdidField eId)
    {
        Put(pszPath,
            std::vector<double>{ Round(static_cast<double>(oPoint.m_fX), 4),
                                 Round(static_cast<double>(oPoint.m_fY), 4) },
            eId);
    }

    void AddRange(const char* pszLeast, const char* pszMost, const SZorFact<CFacts::SRange>& oFact, long long llUnit)
    {
        AddAs(pszLeast, oFact, [&](const CFacts::SRange& oRange) { return llUnit * oRange.m_uiLeast; });
        AddAs(pszMost, WithSecondField(oFact), [&](const CFacts::SRange& oRange) { return llUnit * oRange.m_uiMost; });
    }
};

// ---- Sections ----

void AddIdentity(const CFacts::SIdentity& oIdentity, CCollector& oList)
{
    oList.AddAs("identity.manufacturer", oIdentity.m_oMaker,
                [](const CFacts::SLetters& oLetters) { return std::string(oLetters.m_szLetters); });
    oList.AddAs("identity.manufacturer_oui", oIdentity.m_oMakerOui,
                [](unsigned int uiOui) { return FormatText("%06x", uiOui); });
    oList.Add("identity.product_code", oIdentity.m_oProduct);
    oList.Add("identity.serial_number", oIdentity.m_oSerialNumber);
    oList.Add("identity.serial_text", oIdentity.m_oSerialText);
    oList.Add("identity.name", oIdentity.m_oName);
    oList.Add("identity.text", oIdentity.m_oText);
    oList.Add("identity.week", oIdentity.m_oWeek);
    oList.Add("identity.year", oIdentity.m_oYear);
    oList.Add("identity.model_year", oIdentity.m_oModelYear);
    oList.AddAs("identity.container_id", oIdentity.m_oContainerId, [](const CFacts::SContainerId& oContainer) {
        return FormatHex(oContainer.m_aui8Bytes, sizeof(oContainer.m_aui8Bytes));
    });
    oList.Add("identity.edid_revision", oIdentity.m_oRevision);
}

void AddTile(const SZorFact<CFacts::STile>& oTile, CCollector& oList)
{
    const auto fnAdd = [&](const char* pszPath, long long llNumber) {
        oList.AddAs(pszPath, oTile, [llNumber](const CFacts::STile&) { return llNumber; });
    };
    const CFacts::STile& oValue = oTile.m_oValue;
    fnAdd("size.tile.columns", oValue.m_ui16Columns);
    fnAdd("size.tile.rows", oValue.m_ui16Rows);
    fnAdd("size.tile.column", oValue.m_ui16Column);
    fnAdd("size.tile.row", oValue.m_ui16Row);
    fnAdd("size.tile.width", oValue.m_uiWidth);
    fnAdd("size.tile.height", oValue.m_uiHeight);
    oList.AddAs("size.tile.single_enclosure", oTile, [](const CFacts::STile& o) { return o.m_bSingleEnclosure; });
}

void AddSize(const CFacts::SSize& oSize, CCollector& oList)
{
    using CMillimetres = CFacts::SMillimetres;
    oList.AddAs("size.width_mm", oSize.m_oSize,
                [](const CMillimetres& o) { return o.m_uiWidth / gsc_dTenthsPerMillimetre; });
    oList.AddAs("size.height_mm", WithSecondField(oSize.m_oSize),
                [](const CMillimetres& o) { return o.m_uiHeight / gsc_dTenthsPerMillimetre; });
    oList.AddAs("size.diagonal_in", oSize.m_oSize, [&](const CMillimetres&) { return Round(oSize.GetDiagonal(), 1); });
    oList.AddCode("size.image_size", oSize.m_oImageSize, gsc_apszImageSizes);
    oList.AddAs("size.aspect", oSize.m_oAspect, [](unsigned int uiHundredths) { return uiHundredths / 100.0; });
    oList.AddAs("size.native.width", oSize.m_oNative,
                [](const CFacts::SPixels& o) { return static_cast<long long>(o.m_uiWidth); });
    oList.AddAs("size.native.height", WithSecondField(oSize.m_oNative),
                [](const CFacts::SPixels& o) { return static_cast<long long>(o.m_uiHeight); });
    oList.Add("size.first_timing_preferred", oSize.m_oFirstIsPreferred);
    oList.Add("size.first_timing_native", oSize.m_oFirstIsNative);
    oList.AddCode("size.kind", oSize.m_oKind, gsc_apszKinds);
    oList.Add("size.desktop", oSize.m_oDesktop);
    oList.AddCode("size.orientation", oSize.m_oOrientation, gsc_apszOrientations);
    oList.AddCode("size.rotation", oSize.m_oRotation, gsc_apszRotations);
    oList.Add("size.scan_orientation", oSize.m_oScanOrientation);
    oList.AddCode("size.subpixels", oSize.m_oSubPixels, gsc_apszSubPixels);
    oList.Add("size.underscan", oSize.m_oUnderscan);
    oList.AddCode("size.preferred_scan", oSize.m_oPreferredScan, gsc_apszScans);
    oList.AddCode("size.it_scan", oSize.m_oItScan, gsc_apszScans);
    oList.AddCode("size.ce_scan", oSize.m_oCeScan, gsc_apszScans);
    AddTile(oSize.m_oTile, oList);
}

void AddFrl(const char* pszLanes, const char* pszGbps, const SZorFact<CFacts::SFrl>& oFrl, CCollector& oList)
{
    oList.AddAs(pszLanes, oFrl, [](const CFacts::SFrl& o) { return static_cast<long long>(o.m_ui8Lanes); });
    oList.AddAs(pszGbps, oFrl, [](const CFacts::SFrl& o) { return static_cast<long long>(o.m_ui8Gbps); });
}

void AddCompression(const CFacts::SLink& oLink, CCollector& oList)
{
    oList.Add("link.dsc.supported", oLink.m_oDsc);
    oList.Add("link.dsc.native_420", oLink.m_oDscNative420);
    oList.Add("link.dsc.all_bpp", oLink.m_oDscAllBpp);
    oList.Add("link.dsc.bits_per_color", oLink.m_oDscDepth);
    AddFrl("link.dsc.frl_lanes", "link.dsc.frl_gbps_per_lane", oLink.m_oDscFrl, oList);
    oList.AddAs("link.dsc.slices", oLink.m_oDscSlices,
                [](const CFacts::SSlices& o) { return static_cast<long long>(o.m_ui8Most); });
    oList.AddAs("link.dsc.slice_clock_mhz", oLink.m_oDscSlices,
                [](const CFacts::SSlices& o) { return static_cast<long long>(o.m_ui16MegaHz); });
    oList.Add("link.dsc.chunk_bytes", oLink.m_oDscChunk);
}

// A least or a most of 0 is not said. The members before are of the best source.
void AddVariableRefresh(const CFacts::SLink& oLink, CCollector& oList)
{
    const std::vector<CFacts::SVariableRefresh> aoRanges = ListVariableRefresh(oLink);
    if (!aoRanges.empty())
    {
        oList.Put("link.vrr.min_hz", static_cast<long long>(aoRanges[0].m_uiLeast), aoRanges[0].m_eId);
        if (aoRanges[0].m_uiMost != 0)
        {
            oList.Put("link.vrr.max_hz", static_cast<long long>(aoRanges[0].m_uiMost),
                      GetSecondField(aoRanges[0].m_eId));
        }
    }
    for (unsigned int i = 0; i < aoRanges.size(); ++i)
    {
        const CFacts::SVariableRefresh& oRange = aoRanges[i];
        oList.Put("link.vrr.ranges#.source", std::string(gsc_apszRefreshSources[oRange.m_eSource]), oRange.m_eId, i);
        oList.Put("link.vrr.ranges#.min_hz", static_cast<long long>(oRange.m_uiLeast), oRange.m_eId, i);
        if (oRange.m_uiMost != 0)
        {
            oList.Put("link.vrr.ranges#.max_hz", static_cast<long long>(oRange.m_uiMost), GetSecondField(oRange.m_eId),
                      i);
        }
        if (oRange.m_eSource == CFacts::eRefreshSource_AdaptiveSync)
        {
            oList.Put("link.vrr.ranges#.native", oRange.m_bNative, oRange.m_eId, i);
            oList.Put("link.vrr.ranges#.seamless", oRange.m_bSeamless, oRange.m_eId, i);
            oList.Put("link.vrr.ranges#.adaptive", oRange.m_bAdaptive, oRange.m_eId, i);
            oList.Put("link.vrr.ranges#.max_increase_ms", oRange.m_ui8MaxIncrease / 4.0, oRange.m_eId, i);
            oList.Put("link.vrr.ranges#.max_decrease_ms", oRange.m_ui8MaxDecrease / 4.0, oRange.m_eId, i);
        }
    }
}

void AddLink(const CFacts::SLink& oLink, CCollector& oList)
{
    constexpr unsigned int uiNibble = 0xF;
    oList.AddCode("link.kind", oLink.m_oKind, gsc_apszLinks);
    oList.AddAs("link.hdmi_version", oLink.m_oHdmiVersion, [](unsigned char ui8Tenths) { return ui8Tenths / 10.0; });
    oList.Add("link.cta_revision", oLink.m_oCtaRevision);
    oList.Add("link.lanes", oLink.m_oLanes);
    oList.AddAs("link.physical_address", oLink.m_oPhysicalAddress, [](unsigned int ui) {
        return FormatText("%x.%x.%x.%x", ui >> 12 & uiNibble, ui >> 8 & uiNibble, ui >> 4 & uiNibble, ui & uiNibble);
    });
    oList.Add("link.max_tmds_clock_hz", oLink.m_oMaxTmds, gsc_llHzPerKiloHz);
    AddFrl("link.frl.lanes", "link.frl.gbps_per_lane", oLink.m_oFrl, oList);
    AddCompression(oLink, oList);
    oList.Add("link.allm", oLink.m_oAllm);
    AddVariableRefresh(oLink, oList);
    const struct
    {
        const char* m_pszPath;
        const SZorFact<bool>& m_oFlag;
    } aoFlags[] = {
        { "link.qms", oLink.m_oQms },
        { "link.qms_tfr_min", oLink.m_oQmsMin },
        { "link.qms_tfr_max", oLink.m_oQmsMax },
        { "link.fast_vactive", oLink.m_oFastVactive },
        { "link.cinema_vrr", oLink.m_oCinemaVrr },
        { "link.negative_mvrr", oLink.m_oNegativeMVrr },
        { "link.m_delta", oLink.m_oMDelta },
        { "link.fapa_start", oLink.m_oFapaStart },
        { "link.fapa_end", oLink.m_oFapaEnd },
        { "link.ai", oLink.m_oSupportsAi },
        { "link.dvi_dual", oLink.m_oDviDual },
        { "link.scdc", oLink.m_oScdc },
        { "link.read_request", oLink.m_oReadRequest },
        { "link.scramble_low", oLink.m_oScrambleLow },
        { "link.cable_status", oLink.m_oCableStatus },
        { "link.ccbpci", oLink.m_oCcbpci },
        { "link.independent_view", oLink.m_oIndependentView },
        { "link.dual_view", oLink.m_oDualView },
        { "link.osd_disparity_3d", oLink.m_o3dOsdDisparity },
        { "link.uhd_vic", oLink.m_oUhdVic },
        { "link.continuous", oLink.m_oContinuous },
        { "link.nvidia", oLink.m_oNvidia },
    };
    for (const auto& oFlag : aoFlags)
    {
        oList.Add(oFlag.m_pszPath, oFlag.m_oFlag);
    }
    oList.AddNames("link.content_types", oLink.m_oContentTypes, gsc_apszContents);
    oList.AddRange("link.vertical_rates.min_hz", "link.vertical_rates.max_hz", oLink.m_oVerticalRates, 1);
    oList.AddRange("link.horizontal_rates.min_hz", "link.horizontal_rates.max_hz", oLink.m_oHorizontalRates,
                   gsc_llHzPerKiloHz);
    oList.Add("link.min_pixel_clock_hz", oLink.m_oMinPixelClock, gsc_llHzPerKiloHz);
    oList.Add("link.max_pixel_clock_hz", oLink.m_oMaxPixelClock, gsc_llHzPerKiloHz);
    oList.Add("link.mso.streams", oLink.m_oMsoStreams);
    oList.Add("link.mso.overlap", oLink.m_oMsoOverlap);
}

void AddHdr(const CFacts::SColour& oColour, CCollector& oList)
{
    oList.AddNames("colour.eotfs", oColour.m_oEotfs, gsc_apszEotfs);
    if (oColour.m_oEotfs.IsSaid())
    {
        oList.Put("colour.hdr10", HasHdr10(oColour), oColour.m_oEotfs.m_eId);
    }
    oList.AddAs("colour.static_metadata_type1", oColour.m_oMetadataTypes,
                [](unsigned char ui8Types) { return (ui8Types & 1) != 0; });
    oList.Add("colour.content_luminance.max", oColour.m_oContentMax);
    oList.Add("colour.content_luminance.max_frame_average", oColour.m_oContentMaxFrameAverage);
    oList.Add("colour.content_luminance.min", oColour.m_oContentMin);
    const SZorFact<CFacts::SDynamicHdr>& oDynamic = oColour.m_oDynamicHdr;
    oList.AddAs("colour.dynamic_metadata.type1", oDynamic, [](const CFacts::SDynamicHdr& o) { return o.m_bType1; });
    oList.AddAs("colour.dynamic_metadata.type2", oDynamic, [](const CFacts::SDynamicHdr& o) { return o.m_bType2; });
    oList.AddAs("colour.dynamic_metadata.type3", oDynamic, [](const CFacts::SDynamicHdr& o) { return o.m_bType3; });
    oList.AddAs("colour.dynamic_metadata.type4", oDynamic, [](const CFacts::SDynamicHdr& o) { return o.m_bType4; });
    oList.AddAs("colour.dynamic_metadata.graphics", oDynamic,
                [](const CFacts::SDynamicHdr& o) { return o.m_bGraphics; });
    oList.AddAs("colour.hdr10plus.version", oColour.m_oHdr10Plus,
                [](const CFacts::SHdr10Plus& o) { return static_cast<long long>(o.m_ui8Version); });
    const SZorFact<CFacts::SDolbyVision>& oDolby = oColour.m_oDolbyVision;
    oList.AddAs("colour.dolby_vision.version", oDolby,
                [](const CFacts::SDolbyVision& o) { return static_cast<long long>(o.m_ui8Version); });
    oList.AddAs("colour.dolby_vision.low_latency", oDolby,
                [](const CFacts::SDolbyVision& o) { return o.m_bLowLatency; });
    oList.AddAs("colour.dolby_vision.standard", oDolby, [](const CFacts::SDolbyVision& o) { return o.m_bStandard; });
    oList.AddAs("colour.dolby_vision.yuv422", oDolby, [](const CFacts::SDolbyVision& o) { return o.m_bYuv422; });
    if (oDolby.IsSaid() && oDolby.m_oValue.m_fMaxLuminance > 0)
    {
        oList.Put("colour.dolby_vision.max_luminance", Round(static_cast<double>(oDolby.m_oValue.m_fMaxLuminance), 2),
                  eZorEdidField_CtaDolbyVisionTargetMaxLuminance);
        oList.Put("colour.dolby_vision.min_luminance", Round(static_cast<double>(oDolby.m_oValue.m_fMinLuminance), 6),
                  eZorEdidField_CtaDolbyVisionTargetMinLuminance);
    }
    oList.Add("colour.tone_mapping_version", oColour.m_oToneMapping);
}

void AddColour(const CFacts::SColour& oColour, CCollector& oList)
{
    constexpr const char* apszDepths[] = { "colour.bits.rgb", "colour.bits.ycbcr444", "colour.bits.ycbcr422",
                                           "colour.bits.ycbcr420" };
    static_assert(std::size(apszDepths) == CFacts::eFormat_Count);
    oList.Add("colour.bits_per_color", oColour.m_oDepth);
    oList.AddNames("colour.formats", oColour.m_oFormats, gsc_apszFormats);
    for (size_t i = 0; i < std::size(apszDepths); ++i)
    {
        oList.AddNumbers(apszDepths[i], oColour.m_aoDepths[i], gsc_aiDepths);
    }
    oList.AddNumbers("colour.hdmi_deep.bits", oColour.m_oHdmiDeep, gsc_aiDepths);
    oList.Add("colour.hdmi_deep.ycbcr444", oColour.m_oHdmiDeep444);
    oList.AddNumbers("colour.hdmi_deep.bits_ycbcr420", oColour.m_oHdmiDeep420, gsc_aiDepths);
    oList.Add("colour.monochrome", oColour.m_oMonochrome);
    oList.Add("colour.min_ycbcr420_pixel_rate_hz", oColour.m_oMin420PixelRate, gsc_llHzPerKiloHz);
    if (oColour.m_oPrimaries.IsSaid())
    {
        const EZorEdidField eId = oColour.m_oPrimaries.m_eId;
        const bool bBase = eId == eZorEdidField_BaseChromaticityRedX; // which has a field for each number
        const CFacts::SPrimaries& oPrimaries = oColour.m_oPrimaries.m_oValue;
        oList.AddPoint("colour.primaries.red", oPrimaries.m_oRed, eId);
        oList.AddPoint("colour.primaries.green", oPrimaries.m_oGreen,
                       bBase ? eZorEdidField_BaseChromaticityGreenX : eId);
        oList.AddPoint("colour.primaries.blue", oPrimaries.m_oBlue, bBase ? eZorEdidField_BaseChromaticityBlueX : eId);
    }
    if (oColour.m_oWhite.IsSaid())
    {
        oList.AddPoint("colour.white", oColour.m_oWhite.m_oValue, oColour.m_oWhite.m_eId);
    }
    oList.Add("colour.gamma", oColour.m_oGamma, 2);
    oList.Add("colour.srgb_default", oColour.m_oSrgbDefault);
    oList.AddNames("colour.colorimetry", oColour.m_oColorimetry, gsc_apszColorimetry);
    for (unsigned int i = 0; i < std::min(oColour.m_uiSpaces, CFacts::msc_uiMostSpaces); ++i)
    {
        const CFacts::SSpace& oSpace = oColour.m_aoSpaces[i];
        oList.Put("colour.spaces#.space", NameCode(oSpace.m_eSpace, gsc_apszSpaces), oSpace.m_eId, i);
        oList.Put("colour.spaces#.transfer", NameCode(oSpace.m_eTransfer, gsc_apszTransfers), oSpace.m_eId, i);
    }
    oList.Add("colour.selectable_rgb_range", oColour.m_oSelectableRgb);
    oList.Add("colour.selectable_ycc_range", oColour.m_oSelectableYcc);
    AddHdr(oColour, oList);
    oList.Add("colour.luminance.max", oColour.m_oMaxLuminance);
    oList.Add("colour.luminance.max_10_percent", oColour.m_oMaxLuminance10);
    oList.Add("colour.luminance.min", oColour.m_oMinLuminance);
    oList.Add("colour.luminance.max_sdr", oColour.m_oMaxSdrLuminance);
    oList.Add("colour.luminance.min_sdr", oColour.m_oMinSdrLuminance);
    oList.Add("colour.luminance.max_boost", oColour.m_oMaxBoostLuminance);
    oList.Add("colour.luminance.amd_max", oColour.m_oAmdMaxLuminance);
    oList.Add("colour.luminance.amd_min", oColour.m_oAmdMinLuminance);
}

void AddAudioFormat(const CFacts::SAudioFormat& oFormat, unsigned int uiElement, CCollector& oList)
{
    const auto fnAdd = [&](const char* pszPath, CFactValue oValue) {
        oList.Put(pszPath, std::move(oValue), oFormat.m_eId, uiElement);
    };
    fnAdd("audio.formats#.code", static_cast<long long>(oFormat.m_ui8Format));
    if (oFormat.m_ui8Extended != 0)
    {
        fnAdd("audio.formats#.extended_code", static_cast<long long>(oFormat.m_ui8Extended));
    }
    fnAdd("audio.formats#.name", NameAudioFormat(oFormat));
    if (oFormat.m_ui8Channels != 0)
    {
        fnAdd("audio.formats#.channels", static_cast<long long>(oFormat.m_ui8Channels));
    }
    fnAdd("audio.formats#.sampling_rates_hz", NumberBits(oFormat.m_ui8Rates, gsc_aiSamplingRates));
    if (oFormat.m_ui8Sizes != 0)
    {
        fnAdd("audio.formats#.sample_bits", NumberBits(oFormat.m_ui8Sizes, gsc_aiSampleBits));
    }
    if (oFormat.m_ui16BitRate != 0)
    {
        fnAdd("audio.formats#.max_bit_rate_bps", static_cast<long long>(oFormat.m_ui16BitRate) * 1000);
    }
    if (oFormat.m_bHdmi3d)
    {
        fnAdd("audio.formats#.hdmi_3d", true);
    }
}

// A latency of no video or no audio is -1.
void AddLatency(const char* pszPath, const SZorFact<int>& oLatency, CCollector& oList)
{
    oList.AddAs(pszPath, oLatency, [](int iMilliseconds) { return static_cast<long long>(iMilliseconds); });
}

void AddAudio(const CFacts::SAudio& oAudio, CCollector& oList)
{
    oList.Add("audio.supported", oAudio.m_oAudio);
    oList.Add("audio.basic", oAudio.m_oBasic);
    oList.Add("audio.built_in_speakers", oAudio.m_oSpeakersBuiltIn);
    for (unsigned int i = 0; i < std::min(oAudio.m_uiFormats, CFacts::msc_uiMostFormats); ++i)
    {
        AddAudioFormat(oAudio.m_aoFormats[i], i, oList);
    }
    oList.AddNames("audio.speakers", oAudio.m_oSpeakers, gsc_apszSpeakers);
    oList.Add("audio.streams", oAudio.m_oStreams);
    oList.AddNumbers("audio.displayid_rates_hz", oAudio.m_oDisplayIdRates, gsc_aiSamplingRates);
    AddLatency("audio.video_latency_ms", oAudio.m_oVideoLatency, oList);
    AddLatency("audio.audio_latency_ms", oAudio.m_oAudioLatency, oList);
    AddLatency("audio.interlaced_video_latency_ms", oAudio.m_oInterlacedVideoLatency, oList);
    AddLatency("audio.interlaced_audio_latency_ms", oAudio.m_oInterlacedAudioLatency, oList);
}

void AddConflicts(const CFacts& oFacts, CCollector& oList)
{
    unsigned int i = 0;
    for (const CFacts::SConflict* poConflict = oFacts.GetConflict(0); poConflict != nullptr;
         poConflict = oFacts.GetConflict(++i))
    {
        oList.Put("conflicts#.question", std::string(gsc_apszQuestions[poConflict->m_eQuestion]), eZorEdidField_None,
                  i);
        oList.Put("conflicts#.taken", std::string(CZorEdidMap::GetId(poConflict->m_eTaken)), eZorEdidField_None, i);
        oList.Put("conflicts#.other", std::string(CZorEdidMap::GetId(poConflict->m_eOther)), eZorEdidField_None, i);
    }
}

void AddUnread(const CFacts& oFacts, CCollector& oList)
{
    const CFacts::SUnread& oUnread = oFacts.GetUnread();
    if (oUnread.m_eReason != CFacts::eUnread_None)
    {
        oList.Put("unread.block", static_cast<long long>(oUnread.m_uiBlock));
        oList.Put("unread.reason", std::string(gsc_apszUnread[oUnread.m_eReason]));
    }
}

// ---- JSON ----

// Opens and closes objects and lists, so that the next value is at its path.
class CPathWriter
{
public:
    explicit CPathWriter(CJsonWriter& oJson) : m_oJson(oJson) {}
    ~CPathWriter() { Close(0); }
    CPathWriter(const CPathWriter&) = delete;
    CPathWriter& operator=(const CPathWriter&) = delete;

    void Write(const SNamedFact& oFact)
    {
        std::string_view sRest = oFact.m_pszPath;
        size_t uiDepth = 0;
        for (size_t uiEnd = sRest.find('.'); uiEnd != std::string_view::npos; uiEnd = sRest.find('.'), ++uiDepth)
        {
            Enter(uiDepth, sRest.substr(0, uiEnd), oFact.m_uiElement);
            sRest.remove_prefix(uiEnd + 1);
        }
        Close(uiDepth);
        m_oJson.Name(sRest);
        oFact.m_oValue.Write(m_oJson);
    }

private:
    struct SOpen
    {
        std::string_view m_sName; // with '#' for an element of a list
        unsigned int m_uiElement;
    };

    static bool IsList(std::string_view sName) { return sName.back() == '#'; }

    void Enter(size_t uiDepth, std::string_view sName, unsigned int uiElement)
    {
        if (uiDepth < m_aoOpen.size() && m_aoOpen[uiDepth].m_sName == sName)
        {
            if (IsList(sName) && m_aoOpen[uiDepth].m_uiElement != uiElement)
            {
                Close(uiDepth + 1);
                m_oJson.EndObject();
                m_oJson.BeginObject();
                m_aoOpen[uiDepth].m_uiElement = uiElement;
            }
            return;
        }
        Close(uiDepth);
        if (IsList(sName))
        {
            m_oJson.BeginArray(sName.substr(0, sName.size() - 1));
            m_oJson.BeginObject();
        }
        else
        {
            m_oJson.BeginObject(sName);
        }
        m_aoOpen.push_back({ sName, uiElement });
    }

    void Close(size_t uiDepth)
    {
        for (; m_aoOpen.size() > uiDepth; m_aoOpen.pop_back())
        {
            m_oJson.EndObject();
            if (IsList(m_aoOpen.back().m_sName))
            {
                m_oJson.EndArray();
            }
        }
    }

    CJsonWriter& m_oJson;
    std::vector<SOpen> m_aoOpen;
};
} // namespace

void CFactValue::Write(CJsonWriter& oJson) const
{
    switch (m_eKind)
    {
    case eKind_Flag:
        return oJson.Value(m_llNumber != 0);
    case eKind_Number:
        return oJson.Value(m_llNumber);
    case eKind_Measure:
        return oJson.Value(m_dMeasure);
    case eKind_Text:
        return oJson.Value(m_sText);
    case eKind_Names:
        return oJson.Value(m_apszNames);
    case eKind_Measures:
        return oJson.Value(m_adMeasures);
    case eKind_Numbers:
        return oJson.Value(m_aiNumbers);
    }
}

std::string CFactValue::GetText() const
{
    switch (m_eKind)
    {
    case eKind_Flag:
        return m_llNumber != 0 ? "yes" : "no";
    case eKind_Text:
        return m_sText;
    case eKind_Names:
        return m_apszNames.empty() ? "none" : JoinTexts({ m_apszNames.begin(), m_apszNames.end() });
    default: {
        CJsonWriter oJson(CJsonWriter::eStyle_Line); // which has the digits of numbers
        Write(oJson);
        std::string sText;
        for (const char c : oJson.GetText())
        {
            sText += c == '[' || c == ']' ? "" : c == ',' ? ", " : std::string(1, c);
        }
        return sText.empty() ? "none" : sText;
    }
    }
}

CFactList ListFacts(const CZorEdidFacts& oFacts)
{
    constexpr size_t uiUsual = 160;
    CCollector oList;
    oList.m_aoFacts.reserve(uiUsual);
    AddIdentity(oFacts.GetIdentity(), oList);
    AddSize(oFacts.GetSize(), oList);
    AddLink(oFacts.GetLink(), oList);
    AddColour(oFacts.GetColour(), oList);
    AddAudio(oFacts.GetAudio(), oList);
    AddConflicts(oFacts, oList);
    AddUnread(oFacts, oList);
    return std::move(oList.m_aoFacts);
}

std::vector<EZorEdidField> ListFields(EZorEdidField eId)
{
    constexpr EZorEdidField aaeFlags[][4] = {
        { eZorEdidField_CtaHdmiDc30bit, eZorEdidField_CtaHdmiDc36bit, eZorEdidField_CtaHdmiDc48bit },
        { eZorEdidField_CtaHdmiCnc0, eZorEdidField_CtaHdmiCnc1, eZorEdidField_CtaHdmiCnc2, eZorEdidField_CtaHdmiCnc3 },
        { eZorEdidField_CtaHdmiForumDc30bit420, eZorEdidField_CtaHdmiForumDc36bit420,
          eZorEdidField_CtaHdmiForumDc48bit420 },
        { eZorEdidField_CtaHdmiForumDsc10bpc, eZorEdidField_CtaHdmiForumDsc12bpc, eZorEdidField_CtaHdmiForumDsc16bpc },
    };
    const auto* paeFlags = std::ranges::find_if(aaeFlags, [&](const auto& aeFlags) { return aeFlags[0] == eId; });
    std::vector<EZorEdidField> aeFields = { eId };
    if (paeFlags != std::end(aaeFlags))
    {
        aeFields.assign(std::begin(*paeFlags), std::end(*paeFlags));
        std::erase(aeFields, eZorEdidField_None);
    }
    return aeFields;
}

bool HasHdr10(const CZorEdidFacts::SColour& oColour)
{
    return (oColour.m_oEotfs.m_oValue & CFacts::eEotf_Pq) != 0 && (oColour.m_oMetadataTypes.m_oValue & 1) != 0;
}

std::vector<CZorEdidFacts::SVariableRefresh> ListVariableRefresh(const CZorEdidFacts::SLink& oLink)
{
    const auto* const poEnd = oLink.m_aoRanges + std::min(oLink.m_uiRanges, CFacts::msc_uiMostRanges);
    std::vector<CFacts::SVariableRefresh> aoRanges;
    for (const CFacts::ERefreshSource eSource : CFacts::msc_aeBestRefresh)
    {
        std::copy_if(oLink.m_aoRanges, poEnd, std::back_inserter(aoRanges),
                     [eSource](const CFacts::SVariableRefresh& oRange) { return oRange.m_eSource == eSource; });
    }
    return aoRanges;
}

std::string NameAudioFormat(const CFacts::SAudioFormat& oFormat)
{
    const char* pszName = ZorStandards::Audio::GetFormatName(oFormat.m_ui8Format, oFormat.m_ui8Extended);
    return *pszName != '\0' ? pszName : FormatText("format %u", oFormat.m_ui8Format);
}

void WriteFacts(const CFactList& aoFacts, CJsonWriter& oJson)
{
    CPathWriter oWriter(oJson);
    for (const SNamedFact& oFact : aoFacts)
    {
        oWriter.Write(oFact);
    }
}

void WriteFactIds(const CFactList& aoFacts, CJsonWriter& oJson)
{
    for (const SNamedFact& oFact : aoFacts)
    {
        if (oFact.m_eId == eZorEdidField_None || oFact.m_uiElement != 0)
        {
            continue;
        }
        CNames apszIds;
        for (const EZorEdidField eField : ListFields(oFact.m_eId))
        {
            apszIds.push_back(CZorEdidMap::GetId(eField));
        }
        if (apszIds.size() == 1)
        {
            oJson.Member(oFact.m_pszPath, apszIds[0]);
        }
        else
        {
            oJson.Member(oFact.m_pszPath, apszIds);
        }
    }
}
