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

using Hdmi::gsc_uiFirstOptional;
using Hdmi::gsc_uiLatencySize;
using Hdmi::gsc_uiVideoSize;

bool HasLatency(const CRecord& oHdmi) { return Hdmi::HasLatency(oHdmi); }
bool HasInterlacedLatency(const CRecord& oHdmi) { return Hdmi::HasInterlacedLatency(oHdmi); }

// Digits are hexadecimal, as sources show them.
CMString AddressText(const CRecord& /*oHdmi*/, unsigned int uiAddress)
{
    CMString sText;
    sText.Format("%x.%x.%x.%x", uiAddress >> 12, (uiAddress >> 8) & 0xF, (uiAddress >> 4) & 0xF, uiAddress & 0xF);
    return sText;
}

SBreach CheckTmdsClock(const CRecord& /*oHdmi*/, unsigned int uiClock)
{
    return uiClock * Hdmi::gsc_uiMegaHzPerTmdsUnit > Hdmi::gsc_uiMostTmdsInMegaHz ? eZorEdidRule_HdmiTmdsClock
                                                                                  : eZorEdidRule_None;
}

SBreach CheckPresent(const CRecord& oHdmi, unsigned int uiPresent, unsigned int uiEnd)
{
    return uiPresent != 0 && oHdmi.GetSize() < uiEnd ? eZorEdidRule_HdmiFieldsMissing : eZorEdidRule_None;
}
SBreach CheckLatency(const CRecord& oHdmi, unsigned int uiPresent)
{
    return CheckPresent(oHdmi, uiPresent, gsc_uiFirstOptional + gsc_uiLatencySize);
}
SBreach CheckInterlaced(const CRecord& oHdmi, unsigned int uiPresent)
{
    return uiPresent != 0 && !HasLatency(oHdmi) ? eZorEdidRule_HdmiInterlacedAlone
                                                : CheckPresent(oHdmi, uiPresent, Hdmi::GetVideoOffset(oHdmi));
}
SBreach CheckVideo(const CRecord& oHdmi, unsigned int uiPresent)
{
    return CheckPresent(oHdmi, uiPresent, Hdmi::GetVideoOffset(oHdmi) + gsc_uiVideoSize);
}

constexpr SMeaning gsc_aoLatencies[] = {
    { 0, 0, "not indicated" },
    { 252, 254, gsc_szReserved },
    { 255, 255, "not supported" },
};
constexpr SForm gsc_oLatency = Number("ms").Times(2, -2).With(gsc_aoLatencies);

constexpr SRow gsc_aoHdmiRows[] = {
    { eId_CtaHdmiPhysicalAddress, Hdmi::gsc_oPhysicalAddress, "Source physical address", Number().Text(AddressText) },
    { eId_CtaHdmiSupportsAi, Hdmi::gsc_oSupportsAi, "Supports_AI", Flag() },
    { eId_CtaHdmiDc48bit, Hdmi::gsc_oDeepColour48, "DC_48bit", Flag() },
    { eId_CtaHdmiDc36bit, Hdmi::gsc_oDeepColour36, "DC_36bit", Flag() },
    { eId_CtaHdmiDc30bit, Hdmi::gsc_oDeepColour30, "DC_30bit", Flag() },
    { eId_CtaHdmiDcY444, Hdmi::gsc_oDeepColourY444, "DC_Y444", Flag() },
    { eId_CtaHdmiDviDual, Hdmi::gsc_oDualLinkDvi, "DVI_Dual", Flag() },
    { eId_CtaHdmiMaxTmdsClock, Hdmi::gsc_oMaxTmdsClock, "Max_TMDS_Clock",
      Number("MHz").Times(5).With(gsc_aoZeroNotIndicated), nullptr, CheckTmdsClock },
    { eId_CtaHdmiLatencyFieldsPresent, Hdmi::gsc_oLatencyPresent, "Latency_Fields_Present", Flag(), nullptr,
      CheckLatency },
    { eId_CtaHdmiILatencyFieldsPresent, Hdmi::gsc_oInterlacedLatencyPresent, "I_Latency_Fields_Present", Flag(),
      nullptr, CheckInterlaced },
    { eId_CtaHdmiVideoPresent, Hdmi::gsc_oVideoPresent, "HDMI_Video_present", Flag(), nullptr, CheckVideo },
    { eId_CtaHdmiCnc3, Hdmi::gsc_oCnc3, "CNC3 (game)", Flag() },
    { eId_CtaHdmiCnc2, Hdmi::gsc_oCnc2, "CNC2 (cinema)", Flag() },
    { eId_CtaHdmiCnc1, Hdmi::gsc_oCnc1, "CNC1 (photo)", Flag() },
    { eId_CtaHdmiCnc0, Hdmi::gsc_oCnc0, "CNC0 (graphics)", Flag() },
    { eId_CtaHdmiVideoLatency, Hdmi::gsc_oVideoLatency, "Video_Latency", gsc_oLatency, HasLatency },
    { eId_CtaHdmiAudioLatency, Hdmi::gsc_oAudioLatency, "Audio_Latency", gsc_oLatency, HasLatency },
    { eId_CtaHdmiInterlacedVideoLatency, Hdmi::gsc_oInterlacedVideoLatency, "Interlaced_Video_Latency", gsc_oLatency,
      HasInterlacedLatency },
    { eId_CtaHdmiInterlacedAudioLatency, Hdmi::gsc_oInterlacedAudioLatency, "Interlaced_Audio_Latency", gsc_oLatency,
      HasInterlacedLatency },
};
constexpr STable gsc_oHdmiTable = { eId_CtaHdmi, "HDMI", eArea_Display, gsc_aoHdmiRows };

// What follows the latencies, where HDMI_Video_present is set.
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
    { eId_CtaHdmi3dPresent, Hdmi::gsc_o3dPresent, "3D_present", Flag() },
    { eId_CtaHdmi3dMultiPresent, Hdmi::gsc_o3dMultiPresent, "3D_Multi_present", Names(gsc_aoMulti) },
    { eId_CtaHdmiImageSize, Hdmi::gsc_oImageSize, "Image_Size", Names(gsc_aoImageSizes) },
    { eId_CtaHdmiVicLen, Hdmi::gsc_oVicCount, "HDMI_VIC_LEN", Number("bytes") },
    { eId_CtaHdmi3dLen, Hdmi::gsc_o3dLength, "HDMI_3D_LEN", Number("bytes") },
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
using Hdmi::gsc_uiMaskSize;
using Hdmi::gsc_uiStructureAllSize;

constexpr auto gsc_aoInMask = Listed({ "not in 3D", "in 3D" });
constexpr auto gsc_aoMaskRows =
    BitRows(eId_CtaHdmi3dMaskPlace, "Place without a video code", Flag(gsc_aoInMask).Mode(MakeCodeMode<MakeVideoMode>));

bool HasDetail(const CRecord& oItem) { return oItem.Get(Hdmi::gsc_oStructure) >= Hdmi::gsc_uiFirstWithDetail; }

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
// The number is a place: only the walk knows its code.
bool MakeOrderMode(const CRecord& /*oRecord*/, const SModeSource& oSource, CMode& oMode)
{
    return oSource.m_uiRank == 0 && (oSource.m_uiMarks & gsc_uiMarkHdmi3d) != 0 &&
           MakeVideoMode(oMode, oSource.m_uiCode);
}

constexpr SRow gsc_oOrderRow = { eId_CtaHdmi2dVicOrder, Hdmi::gsc_oVicOrder, "2D_VIC_order",
                                 Number().Mode(MakeOrderMode) };
constexpr SRow gsc_aoItemRows[] = {
    { eId_CtaHdmi3dStructure, Hdmi::gsc_oStructure, "3D_Structure", Names(gsc_aoStructures) },
    { eId_CtaHdmi3dDetail, Bits(1, 7, 4), "3D_Detail", Names(gsc_aoDetails), HasDetail },
};
constexpr STable gsc_oItemTable = { eId_CtaHdmi3dFormat, "3D format", eArea_Timing, gsc_aoItemRows };

constexpr unsigned int gsc_uiItemSize = 1;
constexpr unsigned int gsc_uiItemSizeWithDetail = 2;

// ---- HDMI Forum: sink capability data structure, HDMI 2.1 10.3.2 ----

SBreach CheckTmdsRate(const CRecord& oSink, unsigned int uiRate)
{
    constexpr unsigned int uiFrlWithFourLanes = 2;
    const unsigned int uiFrl = oSink.GetBits(3, 7, 4);
    const unsigned int uiMegaHz = uiRate * Hdmi::gsc_uiMegaHzPerTmdsUnit;
    if (uiRate != 0 && uiMegaHz <= Hdmi::gsc_uiMostTmdsInMegaHz)
    {
        return eZorEdidRule_ForumTmdsLow;
    }
    if (uiMegaHz > HdmiForum::gsc_uiMostTmdsInMegaHz)
    {
        return eZorEdidRule_ForumTmdsHigh;
    }
    const unsigned int uiLeast = uiFrl >= uiFrlWithFourLanes ? HdmiForum::gsc_uiMostTmdsInMegaHz
                                 : uiFrl == 1                ? 300U
                                                             : 0U;
    return CheckAtLeast(uiLeast / Hdmi::gsc_uiMegaHzPerTmdsUnit, uiRate, eZorEdidRule_ForumTmdsFrl);
}

SBreach CheckVrrMin(const CRecord& /*oSink*/, unsigned int uiRate)
{
    return uiRate > HdmiForum::gsc_uiMostVrrMin ? eZorEdidRule_ForumVrrMinHigh : eZorEdidRule_None;
}

SBreach CheckVrrMax(const CRecord& oSink, unsigned int uiRate)
{
    if (uiRate != 0 && oSink.GetBits(5, 5, 0) == 0)
    {
        return eZorEdidRule_ForumVrrMaxAlone;
    }
    if (uiRate != 0 && uiRate < oSink.GetBits(5, 5, 0))
    {
        return { eZorEdidRule_ForumVrrMaxOrder, oSink.GetBits(5, 5, 0) };
    }
    return uiRate != 0 && uiRate < HdmiForum::gsc_uiLeastVrrMax ? eZorEdidRule_ForumVrrMaxLow : eZorEdidRule_None;
}

SBreach CheckCinema(const CRecord& /*oSink*/, unsigned int uiBit)
{
    return uiBit != 0 ? eZorEdidRule_ForumCinema : eZorEdidRule_None;
}

SBreach CheckQms(const CRecord& oSink, unsigned int uiBit)
{
    return uiBit != 0 && !oSink.IsSet(4, 6) ? eZorEdidRule_ForumQms : eZorEdidRule_None;
}

bool HasDsc(const CRecord& oSink)
{
    return HdmiForum::gsc_oDsc1p2.GetEnd() <= oSink.GetSize() && oSink.Get(HdmiForum::gsc_oDsc1p2) != 0;
}

SBreach CheckDsc(const CRecord& oSink, unsigned int uiValue)
{
    return uiValue != 0 && !HasDsc(oSink) ? eZorEdidRule_ForumDsc : eZorEdidRule_None;
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
    { eId_CtaHdmiForumVersion, HdmiForum::gsc_oVersion, "Version", Number().Expect(1, eZorEdidRule_ForumVersion) },
    { eId_CtaHdmiForumMaxTmdsCharacterRate, HdmiForum::gsc_oMaxTmdsCharacterRate, "Max_TMDS_Character_Rate",
      Number("MHz").Times(5).With(gsc_aoTmdsRates), nullptr, CheckTmdsRate },
    { eId_CtaHdmiForumScdcPresent, HdmiForum::gsc_oScdcPresent, "SCDC_Present", Flag() },
    { eId_CtaHdmiForumRrCapable, HdmiForum::gsc_oRrCapable, "RR_Capable", Flag() },
    { eId_CtaHdmiForumCableStatus, HdmiForum::gsc_oCableStatus, "CABLE_STATUS", Flag() },
    { eId_CtaHdmiForumCcbpci, HdmiForum::gsc_oCcbpci, "CCBPCI", Flag() },
    { eId_CtaHdmiForumLte340mcscScramble, HdmiForum::gsc_oLte340mcscScramble, "LTE_340Mcsc_scramble", Flag() },
    { eId_CtaHdmiForumIndependentView, HdmiForum::gsc_oIndependentView, "Independent_view", Flag() },
    { eId_CtaHdmiForumDualView, HdmiForum::gsc_oDualView, "Dual_View", Flag() },
    { eId_CtaHdmiForum3dOsdDisparity, HdmiForum::gsc_o3dOsdDisparity, "3D_OSD_Disparity", Flag() },
    { eId_CtaHdmiForumMaxFrlRate, HdmiForum::gsc_oMaxFrlRate, "Max_FRL_Rate", Names(gsc_aoFrlRates) },
    { eId_CtaHdmiForumUhdVic, HdmiForum::gsc_oUhdVic, "UHD_VIC", Flag() },
    { eId_CtaHdmiForumDc48bit420, HdmiForum::gsc_oDc48bit420, "DC_48bit_420", Flag() },
    { eId_CtaHdmiForumDc36bit420, HdmiForum::gsc_oDc36bit420, "DC_36bit_420", Flag() },
    { eId_CtaHdmiForumDc30bit420, HdmiForum::gsc_oDc30bit420, "DC_30bit_420", Flag() },
    { eId_CtaHdmiForumFapaEndExtended, HdmiForum::gsc_oFapaEndExtended, "FAPA_End_Extended", Flag() },
    { eId_CtaHdmiForumQms, HdmiForum::gsc_oQms, "QMS", Flag() },
    { eId_CtaHdmiForumMDelta, HdmiForum::gsc_oMDelta, "M_Delta", Flag() },
    { eId_CtaHdmiForumCinemaVrr, HdmiForum::gsc_oCinemaVrr, "CinemaVRR", Flag(), nullptr, CheckCinema },
    { eId_CtaHdmiForumCnmvrr, HdmiForum::gsc_oCnmVrr, "CNMVRR", Flag() },
    { eId_CtaHdmiForumFva, HdmiForum::gsc_oFva, "FVA", Flag() },
    { eId_CtaHdmiForumAllm, HdmiForum::gsc_oAllm, "ALLM", Flag() },
    { eId_CtaHdmiForumFapaStartLocation, HdmiForum::gsc_oFapaStartLocation, "FAPA_start_location", Flag() },
    { eId_CtaHdmiForumVrrMax, HdmiForum::gsc_oVrrMax, "VRR_MAX", Number("Hz").With(gsc_aoNoVrrMax), nullptr,
      CheckVrrMax },
    { eId_CtaHdmiForumVrrMin, HdmiForum::gsc_oVrrMin, "VRR_MIN", Number("Hz").With(gsc_aoNoVrr), nullptr, CheckVrrMin },
    { eId_CtaHdmiForumDsc1p2, HdmiForum::gsc_oDsc1p2, "DSC_1p2", Flag() },
    { eId_CtaHdmiForumDscNative420, HdmiForum::gsc_oDscNative420, "DSC_Native_420", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumQmsTfrMax, HdmiForum::gsc_oQmsTfrMax, "QMS_TFR_max", Flag(), nullptr, CheckQms },
    { eId_CtaHdmiForumQmsTfrMin, HdmiForum::gsc_oQmsTfrMin, "QMS_TFR_min", Flag(), nullptr, CheckQms },
    { eId_CtaHdmiForumDscAllBpp, HdmiForum::gsc_oDscAllBpp, "DSC_All_bpp", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumDsc16bpc, HdmiForum::gsc_oDsc16bpc, "DSC_16bpc", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumDsc12bpc, HdmiForum::gsc_oDsc12bpc, "DSC_12bpc", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumDsc10bpc, HdmiForum::gsc_oDsc10bpc, "DSC_10bpc", Flag(), nullptr, CheckDsc },
    { eId_CtaHdmiForumDscMaxFrlRate, HdmiForum::gsc_oDscMaxFrlRate, "DSC_Max_FRL_Rate", Names(gsc_aoFrlRates), nullptr,
      CheckDsc },
    { eId_CtaHdmiForumDscMaxSlices, HdmiForum::gsc_oDscMaxSlices, "DSC_MaxSlices", Names(gsc_aoSlices), nullptr,
      CheckDsc },
    { eId_CtaHdmiForumDscTotalChunkKbytes, HdmiForum::gsc_oDscTotalChunkKbytes, "DSC_TotalChunkKBytes",
      Number("bytes").Times(1024, 1024), HasDsc },
    { eId_CtaHdmiForumDscTotalChunkKbytes, HdmiForum::gsc_oDscTotalChunkKbytes, "DSC_TotalChunkKBytes",
      Number("bytes").Times(1024, 1024).With(gsc_aoZeroNone), IsNot<HasDsc>, CheckDsc },
};
constexpr STable gsc_oSinkTable = { eId_CtaHdmiForum, "Sink capability data structure", eArea_Display, gsc_aoSinkRows };
using HdmiForum::gsc_uiSinkSkip;

// ---- HDMI Forum EDID Extension Override Data Block: HDMI 2.1 ----

SBreach CheckExtensionCount(const CRecord& /*oCount*/, unsigned int uiCount)
{
    return uiCount < 2 ? eZorEdidRule_OverrideCount : eZorEdidRule_None;
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
    { eId_CtaToneMappingDrdm, HdmiForum::gsc_oToneMappingDrdm, "DRDM support", Flag() },
    { eId_CtaToneMappingGrdm, HdmiForum::gsc_oToneMappingGrdm, "GRDM support", Names(gsc_aoGrdm) },
    { eId_CtaToneMappingVersion, HdmiForum::gsc_oToneMappingVersion, "Version", Number() },
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
    const unsigned int uiOrder = oWriter.GetRecord(uiOffset, uiSize).Get(Hdmi::gsc_oVicOrder);
    if (uiOrder < oCodes.m_uiCount)
    {
        const unsigned int uiCode = ReadShortVideo(oCodes.m_aui8Codes[uiOrder]).m_uiCode;
        oWriter.SetMeaning(uiField, GetVideoFormatName(uiCode));
        oWriter.SetMode(uiField, uiCode, gsc_uiMarkHdmi3d);
    }
    else
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaVideoIndex, CountAtMost("video codes", uiOrder + 1, oCodes.m_uiCount));
    }
    oWriter.AddRows(gsc_oItemTable, uiOffset, uiSize);
    oWriter.EndGroup();
    return uiGroup;
}

constexpr SRow gsc_oCutAllRow = { eId_CtaHdmi3dStructureAll, RunToEnd(0), "3D_Structure_ALL", Unknown() };
constexpr SRow gsc_oCutMaskRow = { eId_CtaHdmi3dMask, RunToEnd(0), "3D_MASK", Unknown() };

unsigned int GetMultiSize(unsigned int uiMulti)
{
    return uiMulti == Hdmi::eMulti_All          ? gsc_uiStructureAllSize
           : uiMulti == Hdmi::eMulti_AllAndMask ? gsc_uiStructureAllSize + gsc_uiMaskSize
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
            oWriter.AddNote(uiField, eZorEdidRule_Hdmi3dPast, CountAtMost("bytes", uiDeclared, uiSize));
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
    const unsigned int uiVics = std::min(oVideo.Get(Hdmi::gsc_oVicCount), uiEnd - uiOffset);
    for (unsigned int i = 0; i < uiVics; ++i)
    {
        oWriter.AddLeaf(gsc_oHdmiVicRow, eArea_Timing, uiOffset + i, 1);
    }
    uiOffset += uiVics;
    const unsigned int ui3d = oVideo.Get(Hdmi::gsc_o3dLength);
    if (ui3d > uiEnd - uiOffset || oVideo.Get(Hdmi::gsc_oVicCount) > uiVics)
    {
        oWriter.AddNote(uiLengths, eZorEdidRule_HdmiLengthsPast,
                        CountAtMost("bytes", oVideo.Get(Hdmi::gsc_oVicCount) + ui3d, uiVics + uiEnd - uiOffset));
    }
    const unsigned int uiMulti = oVideo.Get(Hdmi::gsc_o3dMultiPresent);
    if (ui3d < GetMultiSize(uiMulti))
    {
        oWriter.AddNote(uiLengths, eZorEdidRule_Hdmi3dShort, CountAtLeast("bytes", ui3d, GetMultiSize(uiMulti)));
    }
    Add3d(oWriter, oPayload.m_oVideoCodes, { uiOffset, uiOffset + std::min(ui3d, uiEnd - uiOffset) }, uiMulti);
}
} // namespace

void MapCtaExtensionOverride(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oOverrideTable, oPayload.m_uiOffset, oPayload.m_uiLength);
    if (oWriter.GetByte(BaseBlock::gsc_uiExtensionCountOffset) != 1)
    {
        oWriter.AddNote(oPayload.m_uiField, eZorEdidRule_OverrideBase);
    }
}

void MapCtaHdmi(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const CRecord oHdmi = oWriter.GetRecord(oPayload.m_uiOffset, oPayload.m_uiLength);
    oWriter.AddRows(gsc_oHdmiTable, oPayload.m_uiOffset, oPayload.m_uiLength);
    const unsigned int uiVideo = Hdmi::GetVideoOffset(oHdmi);
    if (oHdmi.Get(Hdmi::gsc_oVideoPresent) != 0 && uiVideo + gsc_uiVideoSize <= oPayload.m_uiLength)
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
    if (oPayload.m_uiLength > gsc_uiSinkSkip)
    {
        oWriter.AddRows(gsc_oSinkTable, oPayload.m_uiOffset + gsc_uiSinkSkip, oPayload.m_uiLength - gsc_uiSinkSkip);
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
