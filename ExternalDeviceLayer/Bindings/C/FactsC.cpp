// The facts: one table of all questions, and the lists.

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <new>
#include <type_traits>

#include "HandlesC.h"
#include "Utf8.h"
#include "ZorEdidFacts.h"

using namespace ZorC;

using CFacts = CZorEdidFacts;

// The texts of an image as UTF-8.
enum EText : unsigned char
{
    eText_SerialText,
    eText_Name,
    eText_Text,
    eText_Count
};

// The record is bytes until it reads: Read writes all of it, so that a constructor would only do so twice. Such bytes
// hold an object of a type with a trivial copy.
struct zoredid_facts
{
    alignas(CFacts) unsigned char m_aui8Facts[sizeof(CFacts)];
    bool m_bRead = false;
    char m_aszUtf8[eText_Count][CFacts::SText::msc_uiMost * gsc_uiMostUtf8 + 1]; // empty: the text of the facts will do

    CFacts& Get() { return *std::launder(reinterpret_cast<CFacts*>(m_aui8Facts)); }
    const CFacts& Get() const { return *std::launder(reinterpret_cast<const CFacts*>(m_aui8Facts)); }
};
static_assert(std::is_trivially_copyable_v<CFacts>);

// ---- The enumerations are those of the facts ----

#define ZOR_SAME(name, value) static_assert(ZOREDID_##name == static_cast<int>(CFacts::value))
#define ZOR_NEXT(name, value) static_assert(ZOREDID_##name == static_cast<int>(CFacts::value) + 1)
ZOR_NEXT(KIND_GENERIC, eKind_Generic);
ZOR_NEXT(KIND_OTHER, eKind_Other);
ZOR_SAME(IMAGE_SIZE_FIVE_CENTIMETRES, eImageSize_FiveCentimetres);
ZOR_NEXT(ORIENTATION_UNDEFINED, eOrientation_Undefined);
ZOR_NEXT(ROTATION_BOTH, eRotation_Both);
ZOR_SAME(SUBPIXELS_PENTILE, eSubPixels_PenTile);
ZOR_SAME(SCAN_BOTH, eScan_Both);
ZOR_NEXT(LINK_OTHER, eLink_Other);
ZOR_SAME(CONTENT_GAME, eContentType_Game);
ZOR_NEXT(VRR_RANGE_LIMITS, eRefreshSource_RangeLimits);
static_assert(ZOREDID_FORMAT_YCBCR420 == 1 << CFacts::eFormat_YCbCr420);
ZOR_SAME(DEPTH_16, eDepth_16);
ZOR_SAME(COLORIMETRY_BT2020RGB, eColorimetry_Bt2020Rgb);
ZOR_SAME(COLORIMETRY_ST2113RGB, eColorimetry_St2113Rgb);
ZOR_SAME(EOTF_HLG, eEotf_Hlg);
ZOR_SAME(SPACE_CUSTOM, eSpace_Custom);
ZOR_SAME(TRANSFER_CUSTOM, eTransfer_Custom);
ZOR_SAME(AUDIO_RATE_192, eRate_192);
ZOR_SAME(SAMPLE_SIZE_24, eSampleSize_24);
ZOR_SAME(SPEAKER_TPLS_TPRS, eSpeaker_TpLsTpRs);
ZOR_NEXT(QUESTION_AUDIO, eQuestion_Audio);

namespace
{
// ---- One answer ----

struct SAnswer
{
    bool m_bSaid = false;
    EZorEdidField m_eId = eZorEdidField_None;
    unsigned int m_uiOffset = 0;
    long long m_llNumber = 0;
    double m_dReal = 0; // of every number
    const void* m_pvBytes = nullptr;
    size_t m_uiBytes = 0;
};

SAnswer MakeAnswer(bool bSaid, EZorEdidField eId, unsigned int uiOffset, long long llNumber)
{
    return { bSaid, eId, uiOffset, llNumber, static_cast<double>(llNumber) };
}

SAnswer MakeAnswer(bool bSaid, EZorEdidField eId, unsigned int uiOffset, double dReal)
{
    return { bSaid, eId, uiOffset, 0, dReal };
}

template <class FACT, class VALUE>
SAnswer MakeAnswer(const FACT& oFact, VALUE oValue)
{
    if constexpr (std::is_floating_point_v<VALUE>)
    {
        return MakeAnswer(oFact.IsSaid(), oFact.m_eId, oFact.m_ui16Offset, static_cast<double>(oValue));
    }
    else
    {
        return MakeAnswer(oFact.IsSaid(), oFact.m_eId, oFact.m_ui16Offset, static_cast<long long>(oValue));
    }
}

template <class FACT>
SAnswer MakeBytes(const FACT& oFact, const void* pvBytes, size_t uiBytes)
{
    return { oFact.IsSaid(), oFact.m_eId, oFact.m_ui16Offset, 0, 0, pvBytes, uiBytes };
}

SAnswer MakeText(const zoredid_facts& oFacts, const SZorFact<CFacts::SText>& oFact, EText eText)
{
    const char* const pszUtf8 = oFacts.m_aszUtf8[eText];
    const char* const pszText = pszUtf8[0] != '\0' ? pszUtf8 : oFact.m_oValue.m_szText;
    return MakeBytes(oFact, pszText, strlen(pszText));
}

// Where the base block says that sRGB is the default that is the source, else the fact itself.
template <class FACT>
SAnswer MakeDefault(const zoredid_facts& oFacts, const FACT& oFact, double dValue)
{
    const SZorFact<bool>& oSrgb = oFacts.Get().GetColour().m_oSrgbDefault;
    return oSrgb.m_oValue ? MakeAnswer(oSrgb, dValue) : MakeAnswer(oFact, dValue);
}

SAnswer GetRefresh(const zoredid_facts& oFacts, long long (*pfnValue)(const CFacts::SVariableRefresh& oRange))
{
    const CFacts::SVariableRefresh* const poRange = oFacts.Get().GetLink().GetVariableRefresh();
    return poRange != nullptr ? MakeAnswer(true, poRange->m_eId, poRange->m_ui16Offset, pfnValue(*poRange)) : SAnswer();
}

// A most of 0 is the rate of the mode.
SAnswer GetMaxRefresh(const zoredid_facts& oFacts)
{
    SAnswer oAnswer = GetRefresh(oFacts, [](const CFacts::SVariableRefresh& o) -> long long { return o.m_uiMost; });
    oAnswer.m_bSaid = oAnswer.m_llNumber != 0;
    return oAnswer;
}

// Not of every version.
SAnswer GetTarget(const zoredid_facts& oFacts, float CFacts::SDolbyVision::*pfMember)
{
    const SZorFact<CFacts::SDolbyVision>& oDolby = oFacts.Get().GetColour().m_oDolbyVision;
    SAnswer oAnswer = MakeAnswer(oDolby, oDolby.m_oValue.*pfMember);
    oAnswer.m_bSaid = oDolby.IsSaid() && oDolby.m_oValue.m_fMaxLuminance > 0;
    return oAnswer;
}

// ---- The table ----

struct SRow
{
    zoredid_fact m_eFact;
    zoredid_fact_type m_eType;
    const char* m_pszName; // as in the command's JSON, where that has it
    const char* m_pszUnit;
    SAnswer (*m_pfnAnswer)(const zoredid_facts& o);
};

constexpr double gsc_dTenths = 10;
constexpr double gsc_dHundredths = 100;
constexpr long long gsc_llKilo = 1000;

// Bit 0 is type 1, which HDR10 asks for beside PQ.
constexpr bool HasStaticMetadata(unsigned int uiTypes) { return (uiTypes & 1U) != 0; }

// A gamma is stored as whole hundredths: 2.2, where the float has 2.2000000477.
double ToGamma(float fGamma) { return std::round(gsc_dHundredths * static_cast<double>(fGamma)) / gsc_dHundredths; }

// A row: the fact, its type, name and unit, a part of the record, the member there, and what it gives of the value v.
#define ZOR_FACT(fact, type, name, unit, part, member, value)                                                          \
    { ZOREDID_FACT_##fact, ZOREDID_FACT_TYPE_##type, name, unit, [](const zoredid_facts& o) {                          \
         const auto& oFact = o.Get().Get##part().member;                                                               \
         const auto& v = oFact.m_oValue;                                                                               \
         return MakeAnswer(oFact, value);                                                                              \
     } },
#define ZOR_FLAG(fact, name, part, member) ZOR_FACT(fact, FLAG, name, nullptr, part, member, v)
#define ZOR_NUMBER(fact, name, unit, part, member) ZOR_FACT(fact, NUMBER, name, unit, part, member, v)
#define ZOR_REAL(fact, name, unit, part, member) ZOR_FACT(fact, REAL, name, unit, part, member, v)
#define ZOR_HERTZ(fact, name, part, member) ZOR_FACT(fact, NUMBER, name, "Hz", part, member, gsc_llKilo* v)
#define ZOR_LUMINANCE(fact, name, member) ZOR_FACT(fact, REAL, name, "cd/m2", Colour, member, v.m_fLuminance)
// Rows of the facts, of which o is the object, with an answer of their own.
#define ZOR_OTHER(fact, type, name, unit, answer)                                                                      \
    { ZOREDID_FACT_##fact, ZOREDID_FACT_TYPE_##type, name, unit, [](const zoredid_facts& o) { return answer; } },
#define ZOR_TEXT(fact, name, member, text)                                                                             \
    ZOR_OTHER(fact, TEXT, name, nullptr, MakeText(o, o.Get().GetIdentity().member, text))
#define ZOR_DEFAULT(fact, name, member, value)                                                                         \
    ZOR_OTHER(fact, REAL, name, nullptr,                                                                               \
              MakeDefault(o, o.Get().GetColour().member, static_cast<double>(o.Get().GetColour().value)))
#define ZOR_REFRESH(fact, name, unit, value)                                                                           \
    ZOR_OTHER(fact, NUMBER, name, unit,                                                                                \
              GetRefresh(o, [](const CFacts::SVariableRefresh& v) { return static_cast<long long>(value); }))

// clang-format off
constexpr SRow gsc_aoRows[] = {
    ZOR_OTHER(MAKER, TEXT, "identity.manufacturer", nullptr,
              MakeBytes(o.Get().GetIdentity().m_oMaker, o.Get().GetIdentity().m_oMaker.m_oValue.m_szLetters, 3))
    ZOR_NUMBER(MAKER_OUI, "identity.manufacturer_oui", nullptr, Identity, m_oMakerOui)
    ZOR_NUMBER(PRODUCT_CODE, "identity.product_code", nullptr, Identity, m_oProduct)
    ZOR_NUMBER(SERIAL_NUMBER, "identity.serial_number", nullptr, Identity, m_oSerialNumber)
    ZOR_TEXT(SERIAL_TEXT, "identity.serial_text", m_oSerialText, eText_SerialText)
    ZOR_TEXT(NAME, "identity.name", m_oName, eText_Name)
    ZOR_TEXT(TEXT, "identity.text", m_oText, eText_Text)
    ZOR_NUMBER(WEEK, "identity.week", nullptr, Identity, m_oWeek)
    ZOR_NUMBER(YEAR, "identity.year", nullptr, Identity, m_oYear)
    ZOR_NUMBER(MODEL_YEAR, "identity.model_year", nullptr, Identity, m_oModelYear)
    ZOR_OTHER(CONTAINER_ID, BYTES, "identity.container_id", nullptr,
              MakeBytes(o.Get().GetIdentity().m_oContainerId,
                        o.Get().GetIdentity().m_oContainerId.m_oValue.m_aui8Bytes,
                        sizeof(CFacts::SContainerId::m_aui8Bytes)))
    ZOR_NUMBER(EDID_REVISION, "identity.edid_revision", nullptr, Identity, m_oRevision)

    ZOR_FACT(WIDTH, REAL, "size.width_mm", "mm", Size, m_oSize, v.m_uiWidth / gsc_dTenths)
    ZOR_FACT(HEIGHT, REAL, "size.height_mm", "mm", Size, m_oSize, v.m_uiHeight / gsc_dTenths)
    ZOR_OTHER(DIAGONAL, REAL, "size.diagonal_in", "inches",
              MakeAnswer(o.Get().GetSize().m_oSize, o.Get().GetSize().GetDiagonal()))
    ZOR_FACT(BASE_WIDTH, REAL, "size.base.width_mm", "mm", Size, m_oCentimetres, v.m_uiWidth / gsc_dTenths)
    ZOR_FACT(BASE_HEIGHT, REAL, "size.base.height_mm", "mm", Size, m_oCentimetres, v.m_uiHeight / gsc_dTenths)
    ZOR_FACT(TIMING_WIDTH, REAL, "size.timing.width_mm", "mm", Size, m_oTimingSize, v.m_uiWidth / gsc_dTenths)
    ZOR_FACT(TIMING_HEIGHT, REAL, "size.timing.height_mm", "mm", Size, m_oTimingSize, v.m_uiHeight / gsc_dTenths)
    ZOR_NUMBER(IMAGE_SIZE, "size.image_size", nullptr, Size, m_oImageSize)
    ZOR_FACT(ASPECT, REAL, "size.aspect", nullptr, Size, m_oAspect, v / gsc_dHundredths)
    ZOR_FACT(NATIVE_WIDTH, NUMBER, "size.native.width", "pixels", Size, m_oNative, v.m_uiWidth)
    ZOR_FACT(NATIVE_HEIGHT, NUMBER, "size.native.height", "lines", Size, m_oNative, v.m_uiHeight)
    ZOR_FACT(FIRST_TIMING_WIDTH, NUMBER, "size.first_timing.width", "pixels", Size, m_oFirst, v.m_oPixels.m_uiWidth)
    ZOR_FACT(FIRST_TIMING_HEIGHT, NUMBER, "size.first_timing.height", "lines", Size, m_oFirst, v.m_oPixels.m_uiHeight)
    ZOR_FACT(FIRST_TIMING_RATE, NUMBER, "size.first_timing.rate_mhz", "mHz", Size, m_oFirst, v.m_uiMilliHertz)
    ZOR_FACT(FIRST_TIMING_INTERLACED, FLAG, "size.first_timing.interlaced", nullptr, Size, m_oFirst, v.m_bInterlaced)
    ZOR_FLAG(FIRST_TIMING_PREFERRED, "size.first_timing_preferred", Size, m_oFirstIsPreferred)
    ZOR_FLAG(FIRST_TIMING_NATIVE, "size.first_timing_native", Size, m_oFirstIsNative)
    ZOR_FACT(KIND, NUMBER, "size.kind", nullptr, Size, m_oKind, v + 1)
    ZOR_FLAG(DESKTOP, "size.desktop", Size, m_oDesktop)
    ZOR_FACT(ORIENTATION, NUMBER, "size.orientation", nullptr, Size, m_oOrientation, v + 1)
    ZOR_FACT(ROTATION, NUMBER, "size.rotation", nullptr, Size, m_oRotation, v + 1)
    ZOR_NUMBER(SCAN_ORIENTATION, "size.scan_orientation", nullptr, Size, m_oScanOrientation)
    ZOR_NUMBER(SUBPIXELS, "size.subpixels", nullptr, Size, m_oSubPixels)
    ZOR_FLAG(UNDERSCAN, "size.underscan", Size, m_oUnderscan)
    ZOR_NUMBER(PREFERRED_SCAN, "size.preferred_scan", nullptr, Size, m_oPreferredScan)
    ZOR_NUMBER(IT_SCAN, "size.it_scan", nullptr, Size, m_oItScan)
    ZOR_NUMBER(CE_SCAN, "size.ce_scan", nullptr, Size, m_oCeScan)
    ZOR_FACT(TILE_COLUMNS, NUMBER, "size.tile.columns", nullptr, Size, m_oTile, v.m_ui16Columns)
    ZOR_FACT(TILE_ROWS, NUMBER, "size.tile.rows", nullptr, Size, m_oTile, v.m_ui16Rows)
    ZOR_FACT(TILE_COLUMN, NUMBER, "size.tile.column", nullptr, Size, m_oTile, v.m_ui16Column)
    ZOR_FACT(TILE_ROW, NUMBER, "size.tile.row", nullptr, Size, m_oTile, v.m_ui16Row)
    ZOR_FACT(TILE_WIDTH, NUMBER, "size.tile.width", "pixels", Size, m_oTile, v.m_uiWidth)
    ZOR_FACT(TILE_HEIGHT, NUMBER, "size.tile.height", "lines", Size, m_oTile, v.m_uiHeight)
    ZOR_FACT(TILE_SINGLE_ENCLOSURE, FLAG, "size.tile.single_enclosure", nullptr, Size, m_oTile, v.m_bSingleEnclosure)
    ZOR_FACT(TILE_SOME, NUMBER, "size.tile.some", nullptr, Size, m_oTile, v.m_ui8SomeTiles)
    ZOR_FACT(TILE_ONE, NUMBER, "size.tile.one", nullptr, Size, m_oTile, v.m_ui8OneTile)

    ZOR_FACT(LINK, NUMBER, "link.kind", nullptr, Link, m_oKind, v + 1)
    ZOR_FLAG(HDMI, "link.hdmi", Link, m_oHdmi)
    ZOR_FACT(HDMI_VERSION, REAL, "link.hdmi_version", nullptr, Link, m_oHdmiVersion, v / gsc_dTenths)
    ZOR_NUMBER(CTA_REVISION, "link.cta_revision", nullptr, Link, m_oCtaRevision)
    ZOR_NUMBER(LANES, "link.lanes", nullptr, Link, m_oLanes)
    ZOR_NUMBER(PHYSICAL_ADDRESS, "link.physical_address", nullptr, Link, m_oPhysicalAddress)
    ZOR_HERTZ(MAX_TMDS_CLOCK, "link.max_tmds_clock_hz", Link, m_oMaxTmds)
    ZOR_FACT(FRL_LANES, NUMBER, "link.frl.lanes", nullptr, Link, m_oFrl, v.m_ui8Lanes)
    ZOR_FACT(FRL_LANE_RATE, NUMBER, "link.frl.gbps_per_lane", "Gbit/s", Link, m_oFrl, v.m_ui8Gbps)
    ZOR_FLAG(SUPPORTS_AI, "link.ai", Link, m_oSupportsAi)
    ZOR_FLAG(DVI_DUAL, "link.dvi_dual", Link, m_oDviDual)
    ZOR_NUMBER(CONTENT_TYPES, "link.content_types", nullptr, Link, m_oContentTypes)
    ZOR_FLAG(SCDC, "link.scdc", Link, m_oScdc)
    ZOR_FLAG(READ_REQUEST, "link.read_request", Link, m_oReadRequest)
    ZOR_OTHER(SCRAMBLING, FLAG, "link.scrambling", nullptr,
              MakeAnswer(o.Get().GetLink().m_oScdc, o.Get().GetLink().HasScrambling()))
    ZOR_FLAG(SCRAMBLE_LOW, "link.scramble_low", Link, m_oScrambleLow)
    ZOR_FLAG(CABLE_STATUS, "link.cable_status", Link, m_oCableStatus)
    ZOR_FLAG(CCBPCI, "link.ccbpci", Link, m_oCcbpci)
    ZOR_FLAG(INDEPENDENT_VIEW, "link.independent_view", Link, m_oIndependentView)
    ZOR_FLAG(DUAL_VIEW, "link.dual_view", Link, m_oDualView)
    ZOR_FLAG(OSD_DISPARITY_3D, "link.osd_disparity_3d", Link, m_o3dOsdDisparity)
    ZOR_FLAG(UHD_VIC, "link.uhd_vic", Link, m_oUhdVic)
    ZOR_FLAG(DSC, "link.dsc.supported", Link, m_oDsc)
    ZOR_FLAG(DSC_NATIVE_420, "link.dsc.native_420", Link, m_oDscNative420)
    ZOR_FLAG(DSC_ALL_BPP, "link.dsc.all_bpp", Link, m_oDscAllBpp)
    ZOR_NUMBER(DSC_DEPTH, "link.dsc.bits_per_color", "bits", Link, m_oDscDepth)
    ZOR_FACT(DSC_FRL_LANES, NUMBER, "link.dsc.frl_lanes", nullptr, Link, m_oDscFrl, v.m_ui8Lanes)
    ZOR_FACT(DSC_FRL_LANE_RATE, NUMBER, "link.dsc.frl_gbps_per_lane", "Gbit/s", Link, m_oDscFrl, v.m_ui8Gbps)
    ZOR_FACT(DSC_SLICES, NUMBER, "link.dsc.slices", nullptr, Link, m_oDscSlices, v.m_ui8Most)
    ZOR_FACT(DSC_SLICE_CLOCK, NUMBER, "link.dsc.slice_clock_mhz", "MHz", Link, m_oDscSlices, v.m_ui16MegaHz)
    ZOR_NUMBER(DSC_CHUNK, "link.dsc.chunk_bytes", "bytes", Link, m_oDscChunk)
    ZOR_FLAG(ALLM, "link.allm", Link, m_oAllm)
    ZOR_FLAG(QMS, "link.qms", Link, m_oQms)
    ZOR_FLAG(QMS_MIN, "link.qms_tfr_min", Link, m_oQmsMin)
    ZOR_FLAG(QMS_MAX, "link.qms_tfr_max", Link, m_oQmsMax)
    ZOR_FLAG(FAST_VACTIVE, "link.fast_vactive", Link, m_oFastVactive)
    ZOR_FLAG(CINEMA_VRR, "link.cinema_vrr", Link, m_oCinemaVrr)
    ZOR_FLAG(NEGATIVE_MVRR, "link.negative_mvrr", Link, m_oNegativeMVrr)
    ZOR_FLAG(M_DELTA, "link.m_delta", Link, m_oMDelta)
    ZOR_FLAG(FAPA_START, "link.fapa_start", Link, m_oFapaStart)
    ZOR_FLAG(FAPA_END, "link.fapa_end", Link, m_oFapaEnd)
    ZOR_REFRESH(VRR_MIN, "link.vrr.min_hz", "Hz", v.m_uiLeast)
    ZOR_OTHER(VRR_MAX, NUMBER, "link.vrr.max_hz", "Hz", GetMaxRefresh(o))
    ZOR_REFRESH(VRR_SOURCE, "link.vrr.source", nullptr, v.m_eSource + 1)
    ZOR_FACT(MIN_VERTICAL_RATE, NUMBER, "link.vertical_rates.min_hz", "Hz", Link, m_oVerticalRates, v.m_uiLeast)
    ZOR_FACT(MAX_VERTICAL_RATE, NUMBER, "link.vertical_rates.max_hz", "Hz", Link, m_oVerticalRates, v.m_uiMost)
    ZOR_FACT(MIN_HORIZONTAL_RATE, NUMBER, "link.horizontal_rates.min_hz", "Hz", Link, m_oHorizontalRates,
             gsc_llKilo * v.m_uiLeast)
    ZOR_FACT(MAX_HORIZONTAL_RATE, NUMBER, "link.horizontal_rates.max_hz", "Hz", Link, m_oHorizontalRates,
             gsc_llKilo * v.m_uiMost)
    ZOR_HERTZ(MIN_PIXEL_CLOCK, "link.min_pixel_clock_hz", Link, m_oMinPixelClock)
    ZOR_HERTZ(MAX_PIXEL_CLOCK, "link.max_pixel_clock_hz", Link, m_oMaxPixelClock)
    ZOR_NUMBER(RANGE_FORMULA, "link.range_formula", nullptr, Link, m_oRangeFormula)
    ZOR_FLAG(CONTINUOUS, "link.continuous", Link, m_oContinuous)
    ZOR_FLAG(NVIDIA, "link.nvidia", Link, m_oNvidia)
    ZOR_NUMBER(MSO_STREAMS, "link.mso.streams", nullptr, Link, m_oMsoStreams)
    ZOR_NUMBER(MSO_OVERLAP, "link.mso.overlap", "pixels", Link, m_oMsoOverlap)

    ZOR_NUMBER(DEPTH, "colour.bits_per_color", "bits", Colour, m_oDepth)
    ZOR_NUMBER(FORMATS, "colour.formats", nullptr, Colour, m_oFormats)
    ZOR_NUMBER(DEPTHS_RGB, "colour.bits.rgb", nullptr, Colour, m_aoDepths[CFacts::eFormat_Rgb])
    ZOR_NUMBER(DEPTHS_YCBCR444, "colour.bits.ycbcr444", nullptr, Colour, m_aoDepths[CFacts::eFormat_YCbCr444])
    ZOR_NUMBER(DEPTHS_YCBCR422, "colour.bits.ycbcr422", nullptr, Colour, m_aoDepths[CFacts::eFormat_YCbCr422])
    ZOR_NUMBER(DEPTHS_YCBCR420, "colour.bits.ycbcr420", nullptr, Colour, m_aoDepths[CFacts::eFormat_YCbCr420])
    ZOR_NUMBER(HDMI_DEEP, "colour.hdmi_deep.bits", nullptr, Colour, m_oHdmiDeep)
    ZOR_FLAG(HDMI_DEEP_YCBCR444, "colour.hdmi_deep.ycbcr444", Colour, m_oHdmiDeep444)
    ZOR_NUMBER(HDMI_DEEP_YCBCR420, "colour.hdmi_deep.bits_ycbcr420", nullptr, Colour, m_oHdmiDeep420)
    ZOR_FLAG(MONOCHROME, "colour.monochrome", Colour, m_oMonochrome)
    ZOR_HERTZ(MIN_YCBCR420_CLOCK, "colour.min_ycbcr420_pixel_rate_hz", Colour, m_oMin420PixelRate)
    ZOR_FACT(RED_X, REAL, "colour.primaries.red_x", nullptr, Colour, m_oPrimaries, v.m_oRed.m_fX)
    ZOR_FACT(RED_Y, REAL, "colour.primaries.red_y", nullptr, Colour, m_oPrimaries, v.m_oRed.m_fY)
    ZOR_FACT(GREEN_X, REAL, "colour.primaries.green_x", nullptr, Colour, m_oPrimaries, v.m_oGreen.m_fX)
    ZOR_FACT(GREEN_Y, REAL, "colour.primaries.green_y", nullptr, Colour, m_oPrimaries, v.m_oGreen.m_fY)
    ZOR_FACT(BLUE_X, REAL, "colour.primaries.blue_x", nullptr, Colour, m_oPrimaries, v.m_oBlue.m_fX)
    ZOR_FACT(BLUE_Y, REAL, "colour.primaries.blue_y", nullptr, Colour, m_oPrimaries, v.m_oBlue.m_fY)
    ZOR_FACT(WHITE_X, REAL, "colour.white_x", nullptr, Colour, m_oWhite, v.m_fX)
    ZOR_FACT(WHITE_Y, REAL, "colour.white_y", nullptr, Colour, m_oWhite, v.m_fY)
    ZOR_FACT(GAMMA, REAL, "colour.gamma", nullptr, Colour, m_oGamma, ToGamma(v))
    ZOR_FLAG(SRGB_DEFAULT, "colour.srgb_default", Colour, m_oSrgbDefault)
    ZOR_DEFAULT(DEFAULT_RED_X, "colour.default.red_x", m_oPrimaries, GetDefaultPrimaries().m_oRed.m_fX)
    ZOR_DEFAULT(DEFAULT_RED_Y, "colour.default.red_y", m_oPrimaries, GetDefaultPrimaries().m_oRed.m_fY)
    ZOR_DEFAULT(DEFAULT_GREEN_X, "colour.default.green_x", m_oPrimaries, GetDefaultPrimaries().m_oGreen.m_fX)
    ZOR_DEFAULT(DEFAULT_GREEN_Y, "colour.default.green_y", m_oPrimaries, GetDefaultPrimaries().m_oGreen.m_fY)
    ZOR_DEFAULT(DEFAULT_BLUE_X, "colour.default.blue_x", m_oPrimaries, GetDefaultPrimaries().m_oBlue.m_fX)
    ZOR_DEFAULT(DEFAULT_BLUE_Y, "colour.default.blue_y", m_oPrimaries, GetDefaultPrimaries().m_oBlue.m_fY)
    ZOR_DEFAULT(DEFAULT_WHITE_X, "colour.default.white_x", m_oWhite, GetDefaultWhite().m_fX)
    ZOR_DEFAULT(DEFAULT_WHITE_Y, "colour.default.white_y", m_oWhite, GetDefaultWhite().m_fY)
    ZOR_OTHER(DEFAULT_GAMMA, REAL, "colour.default.gamma", nullptr,
              MakeDefault(o, o.Get().GetColour().m_oGamma, ToGamma(o.Get().GetColour().GetDefaultGamma())))
    ZOR_NUMBER(COLORIMETRY, "colour.colorimetry", nullptr, Colour, m_oColorimetry)
    ZOR_FLAG(SELECTABLE_RGB, "colour.selectable_rgb_range", Colour, m_oSelectableRgb)
    ZOR_FLAG(SELECTABLE_YCC, "colour.selectable_ycc_range", Colour, m_oSelectableYcc)
    ZOR_NUMBER(EOTFS, "colour.eotfs", nullptr, Colour, m_oEotfs)
    ZOR_NUMBER(STATIC_METADATA, "colour.static_metadata", nullptr, Colour, m_oMetadataTypes)
    ZOR_LUMINANCE(CONTENT_MAX_LUMINANCE, "colour.content_luminance.max", m_oContentMax)
    ZOR_LUMINANCE(CONTENT_MAX_AVERAGE_LUMINANCE, "colour.content_luminance.max_frame_average",
                  m_oContentMaxFrameAverage)
    ZOR_LUMINANCE(CONTENT_MIN_LUMINANCE, "colour.content_luminance.min", m_oContentMin)
    ZOR_FACT(CONTENT_MAX_LUMINANCE_CODE, NUMBER, "colour.content_luminance.max_code", nullptr, Colour, m_oContentMax,
             v.m_ui8Code)
    ZOR_FACT(CONTENT_MAX_AVERAGE_LUMINANCE_CODE, NUMBER, "colour.content_luminance.max_frame_average_code", nullptr,
             Colour, m_oContentMaxFrameAverage, v.m_ui8Code)
    ZOR_FACT(CONTENT_MIN_LUMINANCE_CODE, NUMBER, "colour.content_luminance.min_code", nullptr, Colour, m_oContentMin,
             v.m_ui8Code)
    ZOR_FACT(DYNAMIC_TYPE1, FLAG, "colour.dynamic_metadata.type1", nullptr, Colour, m_oDynamicHdr, v.m_bType1)
    ZOR_FACT(DYNAMIC_TYPE2, FLAG, "colour.dynamic_metadata.type2", nullptr, Colour, m_oDynamicHdr, v.m_bType2)
    ZOR_FACT(DYNAMIC_TYPE3, FLAG, "colour.dynamic_metadata.type3", nullptr, Colour, m_oDynamicHdr, v.m_bType3)
    ZOR_FACT(DYNAMIC_TYPE4, FLAG, "colour.dynamic_metadata.type4", nullptr, Colour, m_oDynamicHdr, v.m_bType4)
    ZOR_FACT(DYNAMIC_GRAPHICS, FLAG, "colour.dynamic_metadata.graphics", nullptr, Colour, m_oDynamicHdr, v.m_bGraphics)
    ZOR_FACT(DYNAMIC_TYPE1_VERSION, NUMBER, "colour.dynamic_metadata.type1_version", nullptr, Colour, m_oDynamicHdr,
             v.m_aui8Versions[0])
    ZOR_FACT(DYNAMIC_TYPE2_VERSION, NUMBER, "colour.dynamic_metadata.type2_version", nullptr, Colour, m_oDynamicHdr,
             v.m_aui8Versions[1])
    ZOR_FACT(DYNAMIC_TYPE3_VERSION, NUMBER, "colour.dynamic_metadata.type3_version", nullptr, Colour, m_oDynamicHdr,
             v.m_aui8Versions[2])
    ZOR_FACT(DYNAMIC_TYPE4_VERSION, NUMBER, "colour.dynamic_metadata.type4_version", nullptr, Colour, m_oDynamicHdr,
             v.m_aui8Versions[3])
    ZOR_FACT(HDR10PLUS_VERSION, NUMBER, "colour.hdr10plus.version", nullptr, Colour, m_oHdr10Plus, v.m_ui8Version)
    ZOR_FACT(HDR10PLUS_PEAK, NUMBER, "colour.hdr10plus.peak", nullptr, Colour, m_oHdr10Plus, v.m_ui8Peak)
    ZOR_FACT(HDR10PLUS_FULL_FRAME_PEAK, NUMBER, "colour.hdr10plus.full_frame_peak", nullptr, Colour, m_oHdr10Plus,
             v.m_ui8FullFramePeak)
    ZOR_FACT(DOLBY_VISION_VERSION, NUMBER, "colour.dolby_vision.version", nullptr, Colour, m_oDolbyVision,
             v.m_ui8Version)
    ZOR_FACT(DOLBY_VISION_DM_VERSION, REAL, "colour.dolby_vision.dm_version", nullptr, Colour, m_oDolbyVision,
             v.m_ui8DmVersion / gsc_dTenths)
    ZOR_FACT(DOLBY_VISION_YUV422, FLAG, "colour.dolby_vision.yuv422", nullptr, Colour, m_oDolbyVision, v.m_bYuv422)
    ZOR_FACT(DOLBY_VISION_LOW_LATENCY, FLAG, "colour.dolby_vision.low_latency", nullptr, Colour, m_oDolbyVision,
             v.m_bLowLatency)
    ZOR_FACT(DOLBY_VISION_STANDARD, FLAG, "colour.dolby_vision.standard", nullptr, Colour, m_oDolbyVision,
             v.m_bStandard)
    ZOR_OTHER(DOLBY_VISION_MAX_LUMINANCE, REAL, "colour.dolby_vision.max_luminance", "cd/m2",
              GetTarget(o, &CFacts::SDolbyVision::m_fMaxLuminance))
    ZOR_OTHER(DOLBY_VISION_MIN_LUMINANCE, REAL, "colour.dolby_vision.min_luminance", "cd/m2",
              GetTarget(o, &CFacts::SDolbyVision::m_fMinLuminance))
    ZOR_NUMBER(TONE_MAPPING_VERSION, "colour.tone_mapping_version", nullptr, Colour, m_oToneMapping)
    ZOR_REAL(MAX_LUMINANCE, "colour.luminance.max", "cd/m2", Colour, m_oMaxLuminance)
    ZOR_REAL(MAX_LUMINANCE_TENTH, "colour.luminance.max_10_percent", "cd/m2", Colour, m_oMaxLuminance10)
    ZOR_REAL(MIN_LUMINANCE, "colour.luminance.min", "cd/m2", Colour, m_oMinLuminance)
    ZOR_REAL(MAX_SDR_LUMINANCE, "colour.luminance.max_sdr", "cd/m2", Colour, m_oMaxSdrLuminance)
    ZOR_REAL(MIN_SDR_LUMINANCE, "colour.luminance.min_sdr", "cd/m2", Colour, m_oMinSdrLuminance)
    ZOR_REAL(MAX_BOOST_LUMINANCE, "colour.luminance.max_boost", "cd/m2", Colour, m_oMaxBoostLuminance)
    ZOR_REAL(AMD_MAX_LUMINANCE, "colour.luminance.amd_max", "cd/m2", Colour, m_oAmdMaxLuminance)
    ZOR_REAL(AMD_MIN_LUMINANCE, "colour.luminance.amd_min", "cd/m2", Colour, m_oAmdMinLuminance)
    ZOR_FACT(HDR10, FLAG, "colour.hdr10", nullptr, Colour, m_oEotfs,
             (v & CFacts::eEotf_Pq) != 0 && HasStaticMetadata(o.Get().GetColour().m_oMetadataTypes.m_oValue))
    ZOR_FACT(STATIC_METADATA_TYPE_1, FLAG, "colour.static_metadata_type1", nullptr, Colour, m_oMetadataTypes,
             HasStaticMetadata(v))

    ZOR_FLAG(AUDIO, "audio.supported", Audio, m_oAudio)
    ZOR_FLAG(BASIC_AUDIO, "audio.basic", Audio, m_oBasic)
    ZOR_FLAG(SPEAKERS_BUILT_IN, "audio.built_in_speakers", Audio, m_oSpeakersBuiltIn)
    ZOR_NUMBER(SPEAKERS, "audio.speakers", nullptr, Audio, m_oSpeakers)
    ZOR_NUMBER(AUDIO_STREAMS, "audio.streams", nullptr, Audio, m_oStreams)
    ZOR_NUMBER(DISPLAYID_AUDIO_RATES, "audio.displayid_rates", nullptr, Audio, m_oDisplayIdRates)
    ZOR_NUMBER(VIDEO_LATENCY, "audio.video_latency_ms", "ms", Audio, m_oVideoLatency)
    ZOR_NUMBER(AUDIO_LATENCY, "audio.audio_latency_ms", "ms", Audio, m_oAudioLatency)
    ZOR_NUMBER(INTERLACED_VIDEO_LATENCY, "audio.interlaced_video_latency_ms", "ms", Audio, m_oInterlacedVideoLatency)
    ZOR_NUMBER(INTERLACED_AUDIO_LATENCY, "audio.interlaced_audio_latency_ms", "ms", Audio, m_oInterlacedAudioLatency)
};
// clang-format on

// For each number the row + 1; 0 for none.
constexpr unsigned int gsc_uiNumbers = 512;
constexpr auto gsc_aui8Rows = [] {
    static_assert(std::size(gsc_aoRows) < UCHAR_MAX);
    std::array<unsigned char, gsc_uiNumbers> aui8Rows = {};
    for (size_t i = 0; i < std::size(gsc_aoRows); ++i)
    {
        aui8Rows[static_cast<size_t>(gsc_aoRows[i].m_eFact)] = static_cast<unsigned char>(i + 1);
    }
    return aui8Rows;
}();
static_assert(std::is_sorted(std::begin(gsc_aoRows), std::end(gsc_aoRows),
                             [](const SRow& o, const SRow& oOther) { return o.m_eFact < oOther.m_eFact; }));

const SRow* FindRow(zoredid_fact eFact)
{
    const bool bNumber = eFact >= 0 && static_cast<unsigned int>(eFact) < gsc_uiNumbers;
    const unsigned int uiRow = bNumber ? gsc_aui8Rows[static_cast<size_t>(eFact)] : 0;
    return uiRow != 0 ? &gsc_aoRows[uiRow - 1] : nullptr;
}

// An answer that is not said for another type as well: of the last two types only one is asked for, of the others any.
SAnswer GetAnswer(const zoredid_facts* facts, zoredid_fact fact, zoredid_fact_type eFirst, zoredid_fact_type eLast)
{
    const SRow* const poRow = facts != nullptr && facts->m_bRead ? FindRow(fact) : nullptr;
    return poRow != nullptr && poRow->m_eType >= eFirst && poRow->m_eType <= eLast ? poRow->m_pfnAnswer(*facts)
                                                                                   : SAnswer();
}

SAnswer GetAnswer(const zoredid_facts* facts, zoredid_fact fact)
{
    return GetAnswer(facts, fact, ZOREDID_FACT_TYPE_FLAG, ZOREDID_FACT_TYPE_BYTES);
}

// Characters beyond ASCII, which are rare, as they are.
void KeepText(zoredid_facts& oFacts, EText eText, const SZorFact<CFacts::SText>& oFact, const unsigned char* pui8Data)
{
    char* const pszUtf8 = oFacts.m_aszUtf8[eText];
    const char* const pszText = oFact.m_oValue.m_szText;
    pszUtf8[0] = '\0';
    if (oFact.IsSaid() && strchr(pszText, '.') != nullptr)
    {
        ToUtf8(pszText, strlen(pszText), pui8Data + oFact.m_ui16Offset, pszUtf8);
    }
}
} // namespace

size_t zoredid_fact_get_count() { return std::size(gsc_aoRows); }

zoredid_fact zoredid_fact_get(size_t index)
{
    return index < std::size(gsc_aoRows) ? gsc_aoRows[index].m_eFact : ZOREDID_FACT_UNKNOWN;
}

zoredid_fact zoredid_fact_find(const char* name)
{
    const auto* const poRow = std::find_if(std::begin(gsc_aoRows), std::end(gsc_aoRows), [name](const SRow& oRow) {
        return name != nullptr && strcmp(oRow.m_pszName, name) == 0;
    });
    return poRow != std::end(gsc_aoRows) ? poRow->m_eFact : ZOREDID_FACT_UNKNOWN;
}

const char* zoredid_fact_get_name(zoredid_fact fact)
{
    return Ask<const char*>(FindRow(fact), nullptr, [](const SRow& o) { return o.m_pszName; });
}

const char* zoredid_fact_get_unit(zoredid_fact fact)
{
    return Ask<const char*>(FindRow(fact), nullptr, [](const SRow& o) { return o.m_pszUnit; });
}

zoredid_fact_type zoredid_fact_get_type(zoredid_fact fact)
{
    return Ask(FindRow(fact), ZOREDID_FACT_TYPE_UNKNOWN, [](const SRow& o) { return o.m_eType; });
}

zoredid_facts* zoredid_facts_create() { return Create<zoredid_facts>(); }
void zoredid_facts_free(zoredid_facts* facts) { delete facts; }

zoredid_status zoredid_facts_read(zoredid_facts* facts, const void* data, size_t size)
{
    if (facts == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    const zoredid_status status =
        ReadBytes(data, size, [&](auto uiSize, auto* pui8Data) { return facts->Get().Read(uiSize, pui8Data); });
    facts->m_bRead = status == ZOREDID_OK;
    if (status != ZOREDID_OK)
    {
        return status;
    }
    const CFacts::SIdentity& oIdentity = facts->Get().GetIdentity();
    const auto* const pui8Data = static_cast<const unsigned char*>(data);
    KeepText(*facts, eText_SerialText, oIdentity.m_oSerialText, pui8Data);
    KeepText(*facts, eText_Name, oIdentity.m_oName, pui8Data);
    KeepText(*facts, eText_Text, oIdentity.m_oText, pui8Data);
    return ZOREDID_OK;
}

int zoredid_facts_is_said(const zoredid_facts* facts, zoredid_fact fact)
{
    return GetAnswer(facts, fact).m_bSaid ? 1 : 0;
}

int zoredid_facts_get_number(const zoredid_facts* facts, zoredid_fact fact, int64_t* number)
{
    const SAnswer oAnswer = GetAnswer(facts, fact, ZOREDID_FACT_TYPE_FLAG, ZOREDID_FACT_TYPE_NUMBER);
    if (oAnswer.m_bSaid && number != nullptr)
    {
        *number = oAnswer.m_llNumber;
    }
    return oAnswer.m_bSaid ? 1 : 0;
}

int zoredid_facts_get_real(const zoredid_facts* facts, zoredid_fact fact, double* real)
{
    const SAnswer oAnswer = GetAnswer(facts, fact, ZOREDID_FACT_TYPE_FLAG, ZOREDID_FACT_TYPE_REAL);
    if (oAnswer.m_bSaid && real != nullptr)
    {
        *real = oAnswer.m_dReal;
    }
    return oAnswer.m_bSaid ? 1 : 0;
}

const char* zoredid_facts_get_text(const zoredid_facts* facts, zoredid_fact fact, size_t* length)
{
    const SAnswer oAnswer = GetAnswer(facts, fact, ZOREDID_FACT_TYPE_TEXT, ZOREDID_FACT_TYPE_TEXT);
    return GiveText(oAnswer.m_bSaid ? static_cast<const char*>(oAnswer.m_pvBytes) : nullptr, length);
}

const unsigned char* zoredid_facts_get_bytes(const zoredid_facts* facts, zoredid_fact fact, size_t* length)
{
    const SAnswer oAnswer = GetAnswer(facts, fact, ZOREDID_FACT_TYPE_BYTES, ZOREDID_FACT_TYPE_BYTES);
    return GiveBytes(oAnswer.m_bSaid ? static_cast<const unsigned char*>(oAnswer.m_pvBytes) : nullptr,
                     oAnswer.m_uiBytes, length);
}

int zoredid_facts_get_source(const zoredid_facts* facts, zoredid_fact fact, uint32_t* id, size_t* offset)
{
    const SAnswer oAnswer = GetAnswer(facts, fact);
    if (oAnswer.m_bSaid && id != nullptr)
    {
        *id = oAnswer.m_eId;
    }
    if (oAnswer.m_bSaid && offset != nullptr)
    {
        *offset = oAnswer.m_uiOffset;
    }
    return oAnswer.m_bSaid ? 1 : 0;
}

int zoredid_facts_takes_space(const zoredid_facts* facts, zoredid_space space, zoredid_transfer transfer)
{
    const bool bKnown = facts != nullptr && facts->m_bRead && space > ZOREDID_SPACE_UNKNOWN &&
                        space <= ZOREDID_SPACE_CUSTOM && transfer > ZOREDID_TRANSFER_UNKNOWN &&
                        transfer <= ZOREDID_TRANSFER_CUSTOM;
    return bKnown && facts->Get().GetColour().IsSupported(static_cast<CFacts::ESpace>(space),
                                                          static_cast<CFacts::ETransfer>(transfer))
               ? 1
               : 0;
}

// ---- Lists: those that were kept ----

namespace
{
template <class ELEMENT, unsigned int MOST>
const ELEMENT* FindElement(const ELEMENT (&aoElements)[MOST], unsigned int uiCount, size_t uiIndex)
{
    return uiIndex < std::min(uiCount, MOST) ? &aoElements[uiIndex] : nullptr;
}

// Of an element of a list, by its index.
#define ZOR_FIND(name, type, part, list, count)                                                                        \
    const CFacts::type* name(const zoredid_facts* facts, size_t index)                                                 \
    {                                                                                                                  \
        return facts != nullptr && facts->m_bRead                                                                      \
                   ? FindElement(facts->Get().Get##part().list, facts->Get().Get##part().count, index)                 \
                   : nullptr;                                                                                          \
    }

ZOR_FIND(FindRange, SVariableRefresh, Link, m_aoRanges, m_uiRanges)
ZOR_FIND(FindSpace, SSpace, Colour, m_aoSpaces, m_uiSpaces)
ZOR_FIND(FindFormat, SAudioFormat, Audio, m_aoFormats, m_uiFormats)

const CFacts::SConflict* FindConflict(const zoredid_facts* facts, size_t index)
{
    return facts != nullptr && facts->m_bRead && index < CFacts::msc_uiMostConflicts
               ? facts->Get().GetConflict(static_cast<unsigned int>(index))
               : nullptr;
}

// The lists are short.
template <class ELEMENT>
size_t Count(const zoredid_facts* facts, const ELEMENT* (*pfnFind)(const zoredid_facts* facts, size_t index))
{
    size_t uiCount = 0;
    while (pfnFind(facts, uiCount) != nullptr)
    {
        ++uiCount;
    }
    return uiCount;
}

constexpr unsigned int gsc_uiMicrosecondsPerStep = 250; // of what a frame may be longer than the one before it
} // namespace

size_t zoredid_facts_get_vrr_count(const zoredid_facts* facts) { return Count(facts, FindRange); }
size_t zoredid_facts_get_space_count(const zoredid_facts* facts) { return Count(facts, FindSpace); }
size_t zoredid_facts_get_audio_count(const zoredid_facts* facts) { return Count(facts, FindFormat); }
size_t zoredid_facts_get_conflict_count(const zoredid_facts* facts) { return Count(facts, FindConflict); }

// A function for each member of an element: its result, its name, how the element is found, and its value of it, o.
#define ZOR_ELEMENT(result, name, find, value)                                                                         \
    result zoredid_facts_get_##name(const zoredid_facts* facts, size_t index)                                          \
    {                                                                                                                  \
        return Ask<result>(find(facts, index), result(), [](const auto& o) { return value; });                         \
    }

ZOR_ELEMENT(zoredid_vrr, vrr_source, FindRange, CountFromOne<zoredid_vrr>(o.m_eSource))
ZOR_ELEMENT(uint32_t, vrr_min, FindRange, o.m_uiLeast)
ZOR_ELEMENT(uint32_t, vrr_max, FindRange, o.m_uiMost)
ZOR_ELEMENT(int, vrr_native, FindRange, o.m_bNative)
ZOR_ELEMENT(int, vrr_seamless, FindRange, o.m_bSeamless)
ZOR_ELEMENT(int, vrr_adaptive, FindRange, o.m_bAdaptive)
ZOR_ELEMENT(uint32_t, vrr_max_increase, FindRange, gsc_uiMicrosecondsPerStep* o.m_ui8MaxIncrease)
ZOR_ELEMENT(uint32_t, vrr_max_decrease, FindRange, gsc_uiMicrosecondsPerStep* o.m_ui8MaxDecrease)
ZOR_ELEMENT(uint32_t, vrr_id, FindRange, o.m_eId)
ZOR_ELEMENT(size_t, vrr_offset, FindRange, o.m_ui16Offset)

ZOR_ELEMENT(zoredid_space, space, FindSpace, o.m_eSpace)
ZOR_ELEMENT(zoredid_transfer, space_transfer, FindSpace, o.m_eTransfer)

ZOR_ELEMENT(uint32_t, audio_format, FindFormat, o.m_ui8Format)
ZOR_ELEMENT(uint32_t, audio_extended_format, FindFormat, o.m_ui8Extended)
ZOR_ELEMENT(uint32_t, audio_channels, FindFormat, o.m_ui8Channels)
ZOR_ELEMENT(uint32_t, audio_rates, FindFormat, o.m_ui8Rates)
ZOR_ELEMENT(uint32_t, audio_sample_sizes, FindFormat, o.m_ui8Sizes)
ZOR_ELEMENT(uint32_t, audio_bit_rate, FindFormat, gsc_llKilo* o.m_ui16BitRate)
ZOR_ELEMENT(uint32_t, audio_byte, FindFormat, o.m_ui8Byte)
ZOR_ELEMENT(int, audio_hdmi_3d, FindFormat, o.m_bHdmi3d)

ZOR_ELEMENT(zoredid_question, conflict_question, FindConflict, CountFromOne<zoredid_question>(o.m_eQuestion))
ZOR_ELEMENT(uint32_t, conflict_taken_id, FindConflict, o.m_eTaken)
ZOR_ELEMENT(size_t, conflict_taken_offset, FindConflict, o.m_ui16Taken)
ZOR_ELEMENT(uint32_t, conflict_other_id, FindConflict, o.m_eOther)
ZOR_ELEMENT(size_t, conflict_other_offset, FindConflict, o.m_ui16Other)

size_t zoredid_facts_get_unread(const zoredid_facts* facts, char* buffer, size_t size)
{
    return GiveMade(facts != nullptr && facts->m_bRead, buffer, size, [&] {
        const CMString sText = facts->Get().GetUnreadText();
        return CopyText(sText, static_cast<size_t>(sText.GetLength()), buffer, size);
    });
}

size_t zoredid_get_maker_name(const char* letters, char* buffer, size_t size)
{
    return GiveMade(letters != nullptr, buffer, size, [&] {
        CMString sName;
        return CFacts::FindMakerName(letters, sName) != 0
                   ? CopyText(sName, static_cast<size_t>(sName.GetLength()), buffer, size)
                   : 0;
    });
}
