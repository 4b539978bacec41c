// Tables of the data blocks that HDMI adds to CTA-861. MapCta.cpp dispatches here.

#include <algorithm>

#include "MapCtaBlocks.h"
#include "MapModes.h"
#include "Standards/BaseBlock.h"
#include "Standards/HdmiBlocks.h"

namespace ZorMap
{
namespace
{
// ---- HDMI Vendor-Specific Data Block: HDMI 1.4b 8.3.2 ----

constexpr unsigned int gsc_uiPresentOffset = 4; // this byte says which fields follow
constexpr unsigned int gsc_uiLatencyBit = 7;
constexpr unsigned int gsc_uiInterlacedLatencyBit = 6;
constexpr unsigned int gsc_uiVideoBit = 5;

constexpr auto HasLatency = WhereSet<gsc_uiPresentOffset, gsc_uiLatencyBit>;
bool HasInterlacedLatency(const CRecord& oHdmi)
{
    return HasLatency(oHdmi) && oHdmi.IsSet(gsc_uiPresentOffset, gsc_uiInterlacedLatencyBit);
}

CMString AddressText(const CRecord& /*oHdmi*/, unsigned int uiAddress)
{
    CMString sText;
    sText.Format("%x.%x.%x.%x", uiAddress >> 12, (uiAddress >> 8) & 0xF, (uiAddress >> 4) & 0xF, uiAddress & 0xF);
    return sText;
}

const char* CheckTmdsClock(const CRecord& /*oHdmi*/, unsigned int uiClock)
{
    return uiClock > 340 / 5 ? "is above 340 MHz" : nullptr;
}

constexpr unsigned int gsc_uiLatencySize = 2; // and as much for interlaced formats
constexpr unsigned int gsc_uiVideoSize = 2;   // of the fields before the HDMI_VICs

// The fields after the latencies.
unsigned int GetVideoOffset(const CRecord& oHdmi)
{
    return gsc_uiPresentOffset + 1 + (HasLatency(oHdmi) ? gsc_uiLatencySize : 0) +
           (HasInterlacedLatency(oHdmi) ? gsc_uiLatencySize : 0);
}

const char* CheckPresent(const CRecord& oHdmi, unsigned int uiPresent, unsigned int uiEnd)
{
    return uiPresent != 0 && oHdmi.GetSize() < uiEnd ? "is set, but the data block ends before them" : nullptr;
}
const char* CheckLatency(const CRecord& oHdmi, unsigned int uiPresent)
{
    return CheckPresent(oHdmi, uiPresent, gsc_uiPresentOffset + 1 + gsc_uiLatencySize);
}
const char* CheckInterlaced(const CRecord& oHdmi, unsigned int uiPresent)
{
    return uiPresent != 0 && !HasLatency(oHdmi) ? "is set without Latency_Fields_Present"
                                                : CheckPresent(oHdmi, uiPresent, GetVideoOffset(oHdmi));
}
const char* CheckVideo(const CRecord& oHdmi, unsigned int uiPresent)
{
    return CheckPresent(oHdmi, uiPresent, GetVideoOffset(oHdmi) + gsc_uiVideoSize);
}

constexpr SMeaning gsc_aoLatencies[] = {
    { 0, 0, "not indicated" },
    { 252, 254, gsc_szReserved },
    { 255, 255, "not supported" },
};
constexpr SForm gsc_oLatency = Number("ms").Times(2, -2).With(gsc_aoLatencies);

constexpr SRow gsc_aoHdmiRows[] = {
    { eId_CtaHdmiPhysicalAddress, Big16(0), "Source physical address", Number().Text(AddressText) },
    { eId_CtaHdmiSupportsAi, Bit(2, 7), "Supports_AI", Flag() },
    { eId_CtaHdmiDc48bit, Bit(2, 6), "DC_48bit", Flag() },
    { eId_CtaHdmiDc36bit, Bit(2, 5), "DC_36bit", Flag() },
    { eId_CtaHdmiDc30bit, Bit(2, 4), "DC_30bit", Flag() },
    { eId_CtaHdmiDcY444, Bit(2, 3), "DC_Y444", Flag() },
    { eId_CtaHdmiDviDual, Bit(2, 0), "DVI_Dual", Flag() },
    { eId_CtaHdmiMaxTmdsClock, Byte(3), "Max_TMDS_Clock", Number("MHz").Times(5).With(gsc_aoZeroNotIndicated), nullptr,
      CheckTmdsClock },
    { eId_CtaHdmiLatencyFieldsPresent, Bit(4, gsc_uiLatencyBit), "Latency_Fields_Present", Flag(), nullptr,
      CheckLatency },
    { eId_CtaHdmiILatencyFieldsPresent, Bit(4, gsc_uiInterlacedLatencyBit), "I_Latency_Fields_Present", Flag(), nullptr,
      CheckInterlaced },
    { eId_CtaHdmiVideoPresent, Bit(4, gsc_uiVideoBit), "HDMI_Video_present", Flag(), nullptr, CheckVideo },
    { eId_CtaHdmiCnc3, Bit(4, 3), "CNC3 (game)", Flag() },
    { eId_CtaHdmiCnc2, Bit(4, 2), "CNC2 (cinema)", Flag() },
    { eId_CtaHdmiCnc1, Bit(4, 1), "CNC1 (photo)", Flag() },
    { eId_CtaHdmiCnc0, Bit(4, 0), "CNC0 (graphics)", Flag() },
    { eId_CtaHdmiVideoLatency, Byte(5), "Video_Latency", gsc_oLatency, HasLatency },
    { eId_CtaHdmiAudioLatency, Byte(6), "Audio_Latency", gsc_oLatency, HasLatency },
    { eId_CtaHdmiInterlacedVideoLatency, Byte(7), "Interlaced_Video_Latency", gsc_oLatency, HasInterlacedLatency },
    { eId_CtaHdmiInterlacedAudioLatency, Byte(8), "Interlaced_Audio_Latency", gsc_oLatency, HasInterlacedLatency },
};
constexpr STable gsc_oHdmiTable = { eId_CtaHdmi, "HDMI", eArea_Display, gsc_aoHdmiRows };

// What follows the latencies, where HDMI_Video_present is set.
enum EMulti : unsigned int
{
    eMulti_All = 1,       // 3D_Structure_ALL follows the HDMI_VICs
    eMulti_AllAndMask = 2 // and 3D_MASK follows that
};
constexpr SMeaning gsc_aoMulti[] = {
    { 0, 0, "no 3D_Structure_ALL, no 3D_MASK" },
    { 1, 1, "3D_Structure_ALL" },
    { 2, 2, "3D_Structure_ALL and 3D_MASK" },
    { 3, 3, gsc_szReserved },
};
constexpr auto gsc_aoImageSizes =
    Listed({ "no additional information", "the base block's size has the right aspect ratio only",
             "the base block's size is right, in cm", "the base block's size is in 5 cm" });
constexpr SRow gsc_aoHdmiVideoRows[] = {
    { eId_CtaHdmi3dPresent, Bit(0, 7), "3D_present", Flag() },
    { eId_CtaHdmi3dMultiPresent, Bits(0, 6, 5), "3D_Multi_present", Names(gsc_aoMulti) },
    { eId_CtaHdmiImageSize, Bits(0, 4, 3), "Image_Size", Names(gsc_aoImageSizes) },
    { eId_CtaHdmiVicLen, Bits(1, 7, 5), "HDMI_VIC_LEN", Number("bytes") },
    { eId_CtaHdmi3dLen, Bits(1, 4, 0), "HDMI_3D_LEN", Number("bytes") },
};
constexpr STable gsc_oHdmiVideoTable = { eId_CtaHdmi, "HDMI video", eArea_Display, gsc_aoHdmiVideoRows };

const char* GetHdmiVicName(unsigned int uiCode)
{
    const char* pszName = GetHdmiCodeName(uiCode);
    return pszName != nullptr ? pszName : gsc_szReserved;
}
CMString HdmiVicText(const CRecord& /*oRecord*/, unsigned int uiCode)
{
    return CodeText(uiCode, GetHdmiVicName(uiCode));
}
constexpr SRow gsc_oHdmiVicRow = { eId_CtaHdmiVic, Byte(0), "HDMI_VIC",
                                   Names(GetHdmiVicName).Text(HdmiVicText).Mode(MakeCodeMode<MakeHdmiMode>) };

// Most significant byte first.
constexpr SRow gsc_aoStructureAllRows[] = {
    { eId_CtaHdmi3dStructureAllSideBySideHalfQuincunx, Bit(0, 7), "Side-by-side (half), all quincunx combinations",
      Flag() },
    { eId_CtaHdmi3dStructureAllSideBySideHalf, Bit(0, 0), "Side-by-side (half), horizontal sub-sampling", Flag() },
    { eId_CtaHdmi3dStructureAllTopAndBottom, Bit(1, 6), "Top-and-bottom", Flag() },
    { eId_CtaHdmi3dStructureAllLDepthGraphics, Bit(1, 5), "L + depth + graphics + graphics-depth", Flag() },
    { eId_CtaHdmi3dStructureAllLDepth, Bit(1, 4), "L + depth", Flag() },
    { eId_CtaHdmi3dStructureAllSideBySideFull, Bit(1, 3), "Side-by-side (full)", Flag() },
    { eId_CtaHdmi3dStructureAllLineAlternative, Bit(1, 2), "Line alternative", Flag() },
    { eId_CtaHdmi3dStructureAllFieldAlternative, Bit(1, 1), "Field alternative", Flag() },
    { eId_CtaHdmi3dStructureAllFramePacking, Bit(1, 0), "Frame packing", Flag() },
};
constexpr STable gsc_oStructureAllTable = { eId_CtaHdmi3dStructureAll, "3D_Structure_ALL", eArea_Timing,
                                            gsc_aoStructureAllRows };
constexpr unsigned int gsc_uiStructureAllSize = 2;
constexpr unsigned int gsc_uiMaskSize = 2;

constexpr auto gsc_aoInMask = Listed({ "not in 3D", "in 3D" });
constexpr auto gsc_aoMaskRows =
    BitRows(eId_CtaHdmi3dMaskPlace, "Place without a video code", Flag(gsc_aoInMask).Mode(MakeCodeMode<MakeVideoMode>));

constexpr unsigned int gsc_uiFirstWithDetail = 8; // structures from here on have a byte 3D_Detail

bool HasDetail(const CRecord& oItem) { return oItem.GetBits(0, 3, 0) >= gsc_uiFirstWithDetail; }

constexpr SMeaning gsc_aoStructures[] = {
    { 0, 0, "frame packing" },       { 1, 1, "field alternative" }, { 2, 2, "line alternative" },
    { 3, 3, "side-by-side (full)" }, { 4, 4, "L + depth" },         { 5, 5, "L + depth + graphics + graphics-depth" },
    { 6, 6, "top-and-bottom" },      { 7, 7, gsc_szReserved },      { 8, 8, "side-by-side (half)" },
    { 9, 15, gsc_szReserved },
};
constexpr SMeaning gsc_aoDetails[] = {
    { 0, 0, "all of horizontal sub-sampling and quincunx" },
    { 1, 1, "horizontal sub-sampling" },
    { 2, 5, "not in use" },
    { 6, 6, "all quincunx combinations" },
    { 7, 7, "quincunx, odd left, odd right" },
    { 8, 8, "quincunx, odd left, even right" },
    { 9, 9, "quincunx, even left, odd right" },
    { 10, 10, "quincunx, even left, even right" },
    { 11, 15, gsc_szReserved },
};
constexpr SRow gsc_oOrderRow = { eId_CtaHdmi2dVicOrder, Bits(0, 7, 4), "2D_VIC_order",
                                 Number().Mode(MakeCodeMode<MakeVideoMode>) };
constexpr SRow gsc_aoItemRows[] = {
    { eId_CtaHdmi3dStructure, Bits(0, 3, 0), "3D_Structure", Names(gsc_aoStructures) },
    { eId_CtaHdmi3dDetail, Bits(1, 7, 4), "3D_Detail", Names(gsc_aoDetails), HasDetail },
};
constexpr STable gsc_oItemTable = { eId_CtaHdmi3dFormat, "3D format", eArea_Timing, gsc_aoItemRows };

constexpr unsigned int gsc_uiItemSize = 1;
constexpr unsigned int gsc_uiItemSizeWithDetail = 2;

// ---- HDMI Forum: sink capability data structure, HDMI 2.1 10.3.2 ----

const char* CheckTmdsRate(const CRecord& oSink, unsigned int uiRate)
{
    constexpr unsigned int uiFrlWithFourLanes = 2;
    const unsigned int uiFrl = oSink.GetBits(3, 7, 4);
    if (uiRate != 0 && uiRate * 5 <= 340)
    {
        return "must be 0 or above 340 MHz";
    }
    if (uiRate * 5 > 600)
    {
        return "is above 600 MHz";
    }
    if (uiRate * 5 < (uiFrl >= uiFrlWithFourLanes ? 600U : uiFrl == 1 ? 300U : 0U))
    {
        return "is too low for Max_FRL_Rate";
    }
    return nullptr;
}

const char* CheckVrrMin(const CRecord& /*oSink*/, unsigned int uiRate)
{
    return uiRate > 48 ? "is above 48 Hz" : nullptr;
}

const char* CheckVrrMax(const CRecord& oSink, unsigned int uiRate)
{
    if (uiRate != 0 && oSink.GetBits(5, 5, 0) == 0)
    {
        return "means nothing without VRR_MIN";
    }
    if (uiRate != 0 && uiRate < oSink.GetBits(5, 5, 0))
    {
        return "is below VRR_MIN";
    }
    return uiRate != 0 && uiRate < 100 ? "is below 100 Hz" : nullptr;
}

const char* CheckCinema(const CRecord& /*oSink*/, unsigned int uiBit) { return uiBit != 0 ? "is deprecated" : nullptr; }

const char* CheckQms(const CRecord& oSink, unsigned int uiBit)
{
    return uiBit != 0 && !oSink.IsSet(4, 6) ? "is set without QMS" : nullptr;
}

const char* CheckDsc(const CRecord& oSink, unsigned int uiValue)
{
    return uiValue != 0 && !oSink.IsSet(7, 7) ? "is set without DSC_1p2" : nullptr;
}

constexpr SMeaning gsc_aoTmdsRates[] = { { 0, 0, "not above 340 MHz" } };
constexpr SMeaning gsc_aoFrlRates[] = {
    { 0, 0, "not supported" },      { 1, 1, "3 Gbps on 3 lanes" }, { 2, 2, "6 Gbps on 3 lanes" },
    { 3, 3, "6 Gbps on 4 lanes" },  { 4, 4, "8 Gbps on 4 lanes" }, { 5, 5, "10 Gbps on 4 lanes" },
    { 6, 6, "12 Gbps on 4 lanes" },
};
constexpr SMeaning gsc_aoNoVrr[] = { { 0, 0, "no VRR" } };
constexpr SMeaning gsc_aoNoVrrMax[] = { { 0, 0, "limited by the video format" } };
constexpr SMeaning gsc_aoSlices[] = {
    { 0, 0, "not supported" },
    { 1, 1, "1 slice of up to 340 MHz" },
    { 2, 2, "2 slices of up to 340 MHz" },
    { 3, 3, "4 slices of up to 340 MHz" },
    { 4, 4, "8 slices of up to 340 MHz" },
    { 5, 5, "8 slices of up to 400 MHz" },
    { 6, 6, "12 slices of up to 400 MHz" },
    { 7, 7, "16 slices of up to 400 MHz" },
    { 8, 15, gsc_szReserved },
};

constexpr SRow gsc_aoSinkRows[] = {
    { eId_CtaHdmiForumVersion, Byte(0), "Version", Number().Expect(1, "version is not published") },
    { eId_CtaHdmiForumMaxTmdsCharacterRate, Hdmi::gsc_oMaxTmdsRate, "Max_TMDS_Character_Rate",
      Number("MHz").Times(5).With(gsc_aoTmdsRates), nullptr, CheckTmdsRate },
    { eId_CtaHdmiForumScdcPresent, Hdmi::gsc_oScdc, "SCDC_Present", Flag() },
    { eId_CtaHdmiForumRrCapable, Hdmi::gsc_oReadRequest, "RR_Capable", Flag() },
    { eId_CtaHdmiForumCableStatus, Bit(2, 5), "CABLE_STATUS", Flag() },
    { eId_CtaHdmiForumCcbpci, Bit(2, 4), "CCBPCI", Flag() },
    { eId_CtaHdmiForumLte340mcscScramble, Hdmi::gsc_oLowScrambling, "LTE_340Mcsc_scramble", Flag() },
    { eId_CtaHdmiForumIndependentView, Bit(2, 2), "Independent_view", Flag() },
    { eId_CtaHdmiForumDualView, Bit(2, 1), "Dual_View", Flag() },
    { eId_CtaHdmiForum3dOsdDisparity, Bit(2, 0), "3D_OSD_Disparity", Flag() },
    { eId_CtaHdmiForumMaxFrlRate, Hdmi::gsc_oMaxFrlRate, "Max_FRL_Rate", Names(gsc_aoFrlRates) },
    { eId_CtaHdmiForumUhdVic, Bit(3, 3), "UHD_VIC", Flag() },
    { eId_CtaHdmiForumDc48bit420, Hdmi::gsc_oDeepColour48In420, "DC_48bit_420", Flag() },
    { eId_CtaHdmiForumDc36bit420, Hdmi::gsc_oDeepColour36In420, "DC_36bit_420", Flag() },
    { eId_CtaHdmiForumDc30bit420, Hdmi::gsc_oDeepColour30In420, "DC_30bit_420", Flag() },
    { eId_CtaHdmiForumFapaEndExtended, Bit(4, 7), "FAPA_End_Extended", Flag() },
    { eId_CtaHdmiForumQms, Hdmi::gsc_oQms, "QMS", Flag() },
    { eId_CtaHdmiForumMDelta, Bit(4, 5), "M_Delta", Flag() },
    { eId_CtaHdmiForumCinemaVrr, Hdmi::gsc_oCinemaVrr, "CinemaVRR", Flag().NoteOnly(), nullptr, CheckCinema },
    { eId_CtaHdmiForumCnmvrr, Hdmi::gsc_oNegativeMVrr, "CNMVRR", Flag() },
    { eId_CtaHdmiForumFva, Hdmi::gsc_oFastVactive, "FVA", Flag() },
    { eId_CtaHdmiForumAllm, Hdmi::gsc_oAllm, "ALLM", Flag() },
    { eId_CtaHdmiForumFapaStartLocation, Bit(4, 0), "FAPA_start_location", Flag() },
    { eId_CtaHdmiForumVrrMax, Hdmi::gsc_oVrrMax, "VRR_MAX", Number("Hz").With(gsc_aoNoVrrMax), nullptr, CheckVrrMax },
    { eId_CtaHdmiForumVrrMin, Hdmi::gsc_oVrrMin, "VRR_MIN", Number("Hz").With(gsc_aoNoVrr), nullptr, CheckVrrMin },
    { eId_CtaHdmiForumDsc1p2, Hdmi::gsc_oDsc, "DSC_1p2", Flag() },
    { eId_CtaHdmiForumDscNative420, Hdmi::gsc_oDscNative420, "DSC_Native_420", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumQmsTfrMax, Bit(7, 5), "QMS_TFR_max", Flag(), nullptr, CheckQms },
    { eId_CtaHdmiForumQmsTfrMin, Bit(7, 4), "QMS_TFR_min", Flag(), nullptr, CheckQms },
    { eId_CtaHdmiForumDscAllBpp, Hdmi::gsc_oDscAllBpp, "DSC_All_bpp", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumDsc16bpc, Hdmi::gsc_oDsc16, "DSC_16bpc", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumDsc12bpc, Hdmi::gsc_oDsc12, "DSC_12bpc", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumDsc10bpc, Hdmi::gsc_oDsc10, "DSC_10bpc", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumDscMaxFrlRate, Hdmi::gsc_oDscMaxFrlRate, "DSC_Max_FRL_Rate", Names(gsc_aoFrlRates), nullptr,
      CheckDsc },
    { eId_CtaHdmiForumDscMaxSlices, Hdmi::gsc_oDscMaxSlices, "DSC_MaxSlices", Names(gsc_aoSlices), nullptr, CheckDsc },
    { eId_CtaHdmiForumDscTotalChunkKbytes, Hdmi::gsc_oDscChunk, "DSC_TotalChunkKBytes",
      Number("bytes").Times(1024, 1024), nullptr, CheckDsc },
};
constexpr STable gsc_oSinkTable = { eId_CtaHdmiForum, "Sink capability data structure", eArea_Display, gsc_aoSinkRows };

// ---- HDMI Forum EDID Extension Override Data Block: HDMI 2.1 ----

const char* CheckExtensionCount(const CRecord& /*oCount*/, unsigned int uiCount)
{
    return uiCount < 2 ? "is needed for more than one extension block only" : nullptr;
}

constexpr SRow gsc_aoOverrideRows[] = {
    { eId_CtaExtensionOverrideCount, Byte(0), "EDID extension block count", Number("blocks"), nullptr,
      CheckExtensionCount },
};
constexpr STable gsc_oOverrideTable = { eId_CtaExtensionOverride, "EDID extension override", eArea_Structure,
                                        gsc_aoOverrideRows };

// ---- HDMI Forum Source-Based Tone Mapping Data Block: HDMI 2.1b ----

enum EGamut : unsigned int
{
    eGamut_Explicit = 0
};
constexpr SMeaning gsc_aoGrdm[] = {
    { 0, 0, "not supported" },
    { 1, 1, "SDR range" },
    { 2, 2, "HDR range" },
    { 3, 3, gsc_szReserved },
};
constexpr auto gsc_aoGamuts = Listed({ "explicit chromaticities", "ITU-R BT.709", "SMPTE ST 2113", "ITU-R BT.2020" });

constexpr auto HasDrdm = WhereSet<0, 7>;
bool HasPrimaries(const CRecord& oTone) { return HasDrdm(oTone) && oTone.GetBits(1, 7, 6) == eGamut_Explicit; }

constexpr SForm gsc_oChromaticity = Fraction(nullptr, 50000, 5);

constexpr SRow gsc_aoToneRows[] = {
    { eId_CtaToneMappingDrdm, Bit(0, 7), "DRDM support", Flag() },
    { eId_CtaToneMappingGrdm, Bits(0, 6, 5), "GRDM support", Names(gsc_aoGrdm) },
    { eId_CtaToneMappingVersion, Bits(0, 3, 0), "Version", Number() },
    { eId_CtaToneMappingGamut, Bits(1, 7, 6), "Gamut", Names(gsc_aoGamuts), HasDrdm },
    { eId_CtaToneMappingMaxRgb, Bit(1, 5), "MaxRGB", Flag(), HasDrdm },
    { eId_CtaToneMappingUseHgigDrdm, Bit(1, 4), "Use HGIG DRDM", Flag(), HasDrdm },
    { eId_CtaToneMappingHgigDrdmIndex, Bits(1, 2, 0), "HGIG DRDM index", Number(), HasDrdm },
    { eId_CtaToneMappingRedX, Little16(2), "Red x", gsc_oChromaticity, HasPrimaries },
    { eId_CtaToneMappingRedY, Little16(4), "Red y", gsc_oChromaticity, HasPrimaries },
    { eId_CtaToneMappingGreenX, Little16(6), "Green x", gsc_oChromaticity, HasPrimaries },
    { eId_CtaToneMappingGreenY, Little16(8), "Green y", gsc_oChromaticity, HasPrimaries },
    { eId_CtaToneMappingBlueX, Little16(10), "Blue x", gsc_oChromaticity, HasPrimaries },
    { eId_CtaToneMappingBlueY, Little16(12), "Blue y", gsc_oChromaticity, HasPrimaries },
    { eId_CtaToneMappingWhiteX, Little16(14), "White x", gsc_oChromaticity, HasPrimaries },
    { eId_CtaToneMappingWhiteY, Little16(16), "White y", gsc_oChromaticity, HasPrimaries },
};
constexpr STable gsc_oToneTable = { eId_CtaToneMapping, "Source-based tone mapping", eArea_Colour, gsc_aoToneRows };
constexpr SRow gsc_oToneRestRow = { eId_Unknown, RunToEnd(0), "Unknown", Unknown() };
constexpr unsigned int gsc_uiToneHead = 2;
constexpr unsigned int gsc_uiTonePrimaries = 16;

// ---- The 3D fields of HDMI 1.4 ----

// Where a walk is in a payload, in the image.
struct SRange
{
    unsigned int m_uiOffset;
    unsigned int m_uiEnd;

    unsigned int GetSize() const { return m_uiEnd - m_uiOffset; }
    bool Has(unsigned int uiSize) const { return GetSize() >= uiSize; }
};

void AddMask(CMapWriter& oWriter, const SCtaVideoCodes& oCodes, unsigned int uiOffset)
{
    oWriter.BeginGroup(eId_CtaHdmi3dMask, "3D_MASK", eArea_Timing, uiOffset, gsc_uiMaskSize);
    AddVideoCodeBits(oWriter, oCodes, uiOffset, gsc_uiBits, gsc_aoMaskRows, gsc_uiMarkHdmi3d); // the high byte first
    AddVideoCodeBits(oWriter, oCodes, uiOffset + 1, 0, gsc_aoMaskRows, gsc_uiMarkHdmi3d);
    oWriter.EndGroup();
}

// A 3D format of one video code, which a collection names by its index.
unsigned int AddItem(CMapWriter& oWriter, const SCtaVideoCodes& oCodes, unsigned int uiOffset, unsigned int uiSize)
{
    const unsigned int uiGroup =
        oWriter.BeginGroup(eId_CtaHdmi3dFormat, gsc_oItemTable.m_pszName, eArea_Timing, uiOffset, uiSize);
    const unsigned int uiField = oWriter.AddLeaf(gsc_oOrderRow, eArea_Timing, uiOffset, uiSize);
    const unsigned int uiOrder = oWriter.GetRecord(uiOffset, uiSize).GetBits(0, 7, 4);
    if (uiOrder < oCodes.m_uiCount)
    {
        const unsigned int uiCode = ReadShortVideo(oCodes.m_aui8Codes[uiOrder]).m_uiCode;
        oWriter.SetMeaning(uiField, GetVideoFormatName(uiCode));
        oWriter.SetMode(uiField, uiCode, gsc_uiMarkHdmi3d);
    }
    else
    {
        oWriter.AddNote(uiField, CZorEdidMap::eSeverity_Warning, gsc_szNoVideoCode);
    }
    oWriter.AddRows(gsc_oItemTable, uiOffset, uiSize);
    oWriter.EndGroup();
    return uiGroup;
}

constexpr SRow gsc_oCutAllRow = { eId_CtaHdmi3dStructureAll, RunToEnd(0), "3D_Structure_ALL", Unknown() };
constexpr SRow gsc_oCutMaskRow = { eId_CtaHdmi3dMask, RunToEnd(0), "3D_MASK", Unknown() };

unsigned int GetMultiSize(unsigned int uiMulti)
{
    return uiMulti == eMulti_All          ? gsc_uiStructureAllSize
           : uiMulti == eMulti_AllAndMask ? gsc_uiStructureAllSize + gsc_uiMaskSize
                                          : 0;
}

// What precedes the 3D formats, as far as it is present.
void AddMulti(CMapWriter& oWriter, const SCtaVideoCodes& oCodes, SRange oRange)
{
    if (!oRange.Has(gsc_uiStructureAllSize))
    {
        oWriter.AddLeaf(gsc_oCutAllRow, eArea_Timing, oRange.m_uiOffset, oRange.GetSize());
        return;
    }
    oWriter.AddRecord(gsc_oStructureAllTable, oRange.m_uiOffset, gsc_uiStructureAllSize);
    oRange.m_uiOffset += gsc_uiStructureAllSize;
    if (oRange.Has(gsc_uiMaskSize))
    {
        AddMask(oWriter, oCodes, oRange.m_uiOffset);
        return;
    }
    oWriter.AddLeaf(gsc_oCutMaskRow, eArea_Timing, oRange.m_uiOffset, oRange.GetSize());
}

void Add3d(CMapWriter& oWriter, const SCtaVideoCodes& oCodes, SRange oRange, unsigned int uiMulti)
{
    const unsigned int uiMultiSize = std::min(GetMultiSize(uiMulti), oRange.GetSize());
    if (uiMultiSize != 0)
    {
        AddMulti(oWriter, oCodes, { oRange.m_uiOffset, oRange.m_uiOffset + uiMultiSize });
        oRange.m_uiOffset += uiMultiSize;
    }
    while (oRange.Has(gsc_uiItemSize))
    {
        const unsigned int uiDeclared =
            HasDetail(oWriter.GetRecord(oRange.m_uiOffset, 1)) ? gsc_uiItemSizeWithDetail : gsc_uiItemSize;
        const unsigned int uiSize = std::min(uiDeclared, oRange.m_uiEnd - oRange.m_uiOffset);
        const unsigned int uiField = AddItem(oWriter, oCodes, oRange.m_uiOffset, uiSize);
        if (uiSize < uiDeclared)
        {
            oWriter.AddNote(uiField, CZorEdidMap::eSeverity_Error, "runs past the end of the 3D fields");
        }
        oRange.m_uiOffset += uiSize;
    }
}

// The fields from 3D_present on.
void AddHdmiVideo(CMapWriter& oWriter, const SCtaPayload& oPayload, unsigned int uiOffset)
{
    const unsigned int uiEnd = oPayload.m_uiOffset + oPayload.m_uiLength;
    const CRecord oVideo = oWriter.GetRecord(uiOffset, gsc_uiVideoSize);
    oWriter.AddRows(gsc_oHdmiVideoTable, uiOffset, gsc_uiVideoSize);
    const unsigned int uiLengths = oWriter.FindLeaf(uiOffset + 1, 0);
    uiOffset += gsc_uiVideoSize;
    const unsigned int uiVics = std::min(oVideo.GetBits(1, 7, 5), uiEnd - uiOffset);
    for (unsigned int i = 0; i < uiVics; ++i)
    {
        oWriter.AddLeaf(gsc_oHdmiVicRow, eArea_Timing, uiOffset + i, 1);
    }
    uiOffset += uiVics;
    const unsigned int ui3d = oVideo.GetBits(1, 4, 0);
    if (ui3d > uiEnd - uiOffset || oVideo.GetBits(1, 7, 5) > uiVics)
    {
        oWriter.AddNote(uiLengths, CZorEdidMap::eSeverity_Error,
                        "the fields behind run past the end of the data block");
    }
    const unsigned int uiMulti = oVideo.GetBits(0, 6, 5);
    if (ui3d < GetMultiSize(uiMulti))
    {
        oWriter.AddNote(uiLengths, CZorEdidMap::eSeverity_Error, "is too short for what 3D_Multi_present announces");
    }
    Add3d(oWriter, oPayload.m_oVideoCodes, { uiOffset, uiOffset + std::min(ui3d, uiEnd - uiOffset) }, uiMulti);
}
} // namespace

void MapCtaExtensionOverride(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oOverrideTable, oPayload.m_uiOffset, oPayload.m_uiLength);
    if (oWriter.GetByte(BaseBlock::gsc_uiExtensionCountOffset) != 1)
    {
        oWriter.AddNote(oPayload.m_uiField, CZorEdidMap::eSeverity_Warning,
                        "needs an extension count of 1 in the base block");
    }
}

void MapCtaHdmi(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const CRecord oHdmi = oWriter.GetRecord(oPayload.m_uiOffset, oPayload.m_uiLength);
    oWriter.AddRows(gsc_oHdmiTable, oPayload.m_uiOffset, oPayload.m_uiLength);
    const unsigned int uiVideo = GetVideoOffset(oHdmi);
    if (oHdmi.IsSet(gsc_uiPresentOffset, gsc_uiVideoBit) && uiVideo + gsc_uiVideoSize <= oPayload.m_uiLength)
    {
        AddHdmiVideo(oWriter, oPayload, oPayload.m_uiOffset + uiVideo);
    }
}

void MapCtaHdmiForum(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oSinkTable, oPayload.m_uiOffset, oPayload.m_uiLength);
}

void MapCtaHdmiSink(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    if (oPayload.m_uiLength > Hdmi::gsc_uiSinkSkip)
    {
        oWriter.AddRows(gsc_oSinkTable, oPayload.m_uiOffset + Hdmi::gsc_uiSinkSkip,
                        oPayload.m_uiLength - Hdmi::gsc_uiSinkSkip);
    }
}

void MapCtaToneMapping(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oToneTable, oPayload.m_uiOffset, oPayload.m_uiLength);
    const CRecord oTone = oWriter.GetRecord(oPayload.m_uiOffset, oPayload.m_uiLength);
    const unsigned int uiKnown = HasPrimaries(oTone) ? gsc_uiToneHead + gsc_uiTonePrimaries : gsc_uiToneHead;
    if (HasDrdm(oTone) && oPayload.m_uiLength > uiKnown)
    {
        oWriter.AddLeaf(gsc_oToneRestRow, eArea_Colour, oPayload.m_uiOffset + uiKnown, oPayload.m_uiLength - uiKnown);
    }
}

void VisitCtaHdmiIds(CIdVisitor& oVisitor)
{
    oVisitor.VisitBits(eId_CtaHdmi3dMaskPlace, "Video code");
    oVisitor.Visit(gsc_oHdmiTable, gsc_oHdmiVideoTable, gsc_oHdmiVicRow, gsc_oStructureAllTable, gsc_aoMaskRows,
                   gsc_oItemTable, gsc_oOrderRow, gsc_oSinkTable, gsc_oOverrideTable, gsc_oToneTable, gsc_oToneRestRow);
    oVisitor.VisitGroup(eId_CtaHdmi3dMask, "3D_MASK");
    oVisitor.Visit(gsc_oCutAllRow, gsc_oCutMaskRow);
}
} // namespace ZorMap
