// What a DisplayID section says about ranges of timings, interfaces, stereo, tiles and power, and what makers define.
// The blocks of both versions.

#include <algorithm>

#include "MapDisplayId.h"
#include "Standards/DisplayIdBlocks.h"

namespace ZorMap
{
namespace
{
using CMap = CZorEdidMap;

// ---- Video timing range limits, DisplayID 1.3 (tag 9): 15 bytes ----

constexpr auto gsc_aoDiscrete = Listed({ "continuous within the limits", "discrete" });

SBreach CheckMaximumClock(const CRecord& oBlock, unsigned int uiClock)
{
    return CheckAtLeast(oBlock.Get(DisplayId::gsc_oRangeMinPixelClock), uiClock);
}
template <const SPlace& MINIMUM>
SBreach CheckMaximum(const CRecord& oBlock, unsigned int uiValue)
{
    return CheckAtLeast(oBlock.Get(MINIMUM), uiValue);
}

constexpr SRow gsc_aoRangeRows[] = {
    { eId_DisplayidRangeMinPixelClock, DisplayId::gsc_oRangeMinPixelClock, "Minimum pixel clock",
      Number("kHz").Times(10, 10) },
    { eId_DisplayidRangeMaxPixelClock, DisplayId::gsc_oRangeMaxPixelClock, "Maximum pixel clock",
      Number("kHz").Times(10, 10), nullptr, CheckMaximumClock },
    { eId_DisplayidRangeMinHorizontalFrequency, DisplayId::gsc_oRangeMinHorizontalRate, "Minimum horizontal frequency",
      Number("kHz") },
    { eId_DisplayidRangeMaxHorizontalFrequency, DisplayId::gsc_oRangeMaxHorizontalRate, "Maximum horizontal frequency",
      Number("kHz"), nullptr, CheckMaximum<DisplayId::gsc_oRangeMinHorizontalRate> },
    { eId_DisplayidRangeMinHorizontalBlanking, Little16(0x0B), "Minimum horizontal blanking", Number("pixels") },
    { eId_DisplayidRangeMinVerticalRefreshRate, DisplayId::gsc_oRangeMinVerticalRate, "Minimum vertical refresh rate",
      Number("Hz") },
    { eId_DisplayidRangeMaxVerticalRefreshRate, DisplayId::gsc_oRangeMaxVerticalRate, "Maximum vertical refresh rate",
      Number("Hz"), nullptr, CheckMaximum<DisplayId::gsc_oRangeMinVerticalRate> },
    { eId_DisplayidRangeMinVerticalBlanking, Little16(0x0F), "Minimum vertical blanking", Number("lines") },
    { eId_DisplayidRangeInterlacedTimings, Bit(0x11, 7), "Interlaced timings", Flag(gsc_aoSupported) },
    { eId_DisplayidRangeCvtTimings, Bit(0x11, 6), "CVT timings", Flag(gsc_aoSupported) },
    { eId_DisplayidRangeCvtReducedBlanking, Bit(0x11, 5), "CVT reduced blanking timings", Flag(gsc_aoSupported) },
    { eId_DisplayidRangeDiscrete, DisplayId::gsc_oRangeDiscrete, "Discrete frequency display", Flag(gsc_aoDiscrete) },
    { eId_Reserved, Bits(0x11, 3, 0), "Reserved", Reserved() },
};
// "48 to 144 Hz"
CMString RatesText(unsigned int uiLeast, unsigned int uiMost)
{
    CMString sText;
    sText.Format("%u to %u Hz", uiLeast, uiMost);
    return sText;
}
CMString RangeText(const CRecord& oBlock)
{
    return RatesText(oBlock.Get(DisplayId::gsc_oRangeMinVerticalRate),
                     oBlock.Get(DisplayId::gsc_oRangeMaxVerticalRate));
}
constexpr STable gsc_oRange = { eId_DisplayidRange, "Video timing range limits", eArea_Timing, gsc_aoRangeRows };

// ---- Dynamic video timing range limits, DisplayID 2.0 (tag 25h): 9 bytes ----

constexpr SRow gsc_aoDynamicRangeRows[] = {
    { eId_DisplayidRangeMinPixelClock, DisplayId::gsc_oRangeMinPixelClock, "Minimum pixel clock", NumberFrom1("kHz") },
    { eId_DisplayidRangeMaxPixelClock, DisplayId::gsc_oRangeMaxPixelClock, "Maximum pixel clock", NumberFrom1("kHz"),
      nullptr, CheckMaximumClock },
    { eId_DisplayidRangeMinVerticalRefreshRate, DisplayId::gsc_oDynamicMinVerticalRate, "Minimum vertical refresh rate",
      Number("Hz") },
    { eId_DisplayidRangeMaxVerticalRefreshRate, DisplayId::gsc_oDynamicMaxVerticalRate, "Maximum vertical refresh rate",
      Number("Hz"), IsRevision0, CheckMaximum<DisplayId::gsc_oDynamicMinVerticalRate> },
    { eId_DisplayidRangeMaxVerticalRefreshRate, DisplayId::gsc_oDynamicWideMaxVerticalRate,
      "Maximum vertical refresh rate", Number("Hz"), IsRevision1Plus,
      CheckMaximum<DisplayId::gsc_oDynamicMinVerticalRate> },
    { eId_DisplayidDynamicRangeSeamless, DisplayId::gsc_oDynamicSeamless, "Seamless dynamic video timing",
      Flag(gsc_aoSupported) },
    { eId_Reserved, Bits(0x0B, 6, 0), "Reserved", Reserved(), IsRevision0 },
    { eId_Reserved, Bits(0x0B, 6, 2), "Reserved", Reserved(), IsRevision1Plus },
};
CMString DynamicRangeText(const CRecord& oBlock)
{
    const unsigned int uiMost = oBlock.Get(IsRevision0(oBlock) ? DisplayId::gsc_oDynamicMaxVerticalRate
                                                               : DisplayId::gsc_oDynamicWideMaxVerticalRate);
    return RatesText(oBlock.Get(DisplayId::gsc_oDynamicMinVerticalRate), uiMost);
}
constexpr STable gsc_oDynamicRange = { eId_DisplayidDynamicRange, "Dynamic video timing range limits", eArea_Timing,
                                       gsc_aoDynamicRangeRows };

// ---- Interface power sequencing, DisplayID 1.3 (tag 0Dh): 6 bytes ----

constexpr SRow gsc_aoPowerRows[] = {
    { eId_DisplayidPowerT1Min, Bits(0x03, 7, 4), "T1 minimum", Number("ms").Decimals(1) },
    { eId_DisplayidPowerT1Max, Bits(0x03, 3, 0), "T1 maximum", Number("ms").Times(2) },
    { eId_Reserved, Bits(0x04, 7, 6), "Reserved", Reserved() },
    { eId_DisplayidPowerT2Max, Bits(0x04, 5, 0), "T2 maximum", Number("ms").Times(2) },
    { eId_Reserved, Bits(0x05, 7, 6), "Reserved", Reserved() },
    { eId_DisplayidPowerT3Max, Bits(0x05, 5, 0), "T3 maximum", Number("ms").Times(2) },
    { eId_Reserved, Bit(0x06, 7), "Reserved", Reserved() },
    { eId_DisplayidPowerT4Min, Bits(0x06, 6, 0), "T4 minimum", Number("ms").Times(10) },
    { eId_Reserved, Bits(0x07, 7, 6), "Reserved", Reserved() },
    { eId_DisplayidPowerT5Min, Bits(0x07, 5, 0), "T5 minimum", Number("ms").Times(10) },
    { eId_Reserved, Bits(0x08, 7, 6), "Reserved", Reserved() },
    { eId_DisplayidPowerT6Min, Bits(0x08, 5, 0), "T6 minimum", Number("ms").Times(10) },
};
constexpr STable gsc_oPower = { eId_DisplayidPower, "Interface power sequencing", eArea_Display, gsc_aoPowerRows };

// ---- Depths of color, DisplayID 1.3 (tag 0Fh) and 2.0 (tag 26h): three bytes ----

constexpr auto DepthRows(unsigned int uiOffset)
{
    return std::to_array<SRow>({
        { eId_Reserved, Bits(uiOffset, 7, 6), "Reserved", Reserved() },
        { eId_DisplayidInterfaceRgb444_16bpc, Bit(uiOffset, 5), "RGB 4:4:4, 16 bits per color", Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceRgb444_14bpc, Bit(uiOffset, 4), "RGB 4:4:4, 14 bits per color", Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceRgb444_12bpc, Bit(uiOffset, 3), "RGB 4:4:4, 12 bits per color", Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceRgb444_10bpc, Bit(uiOffset, 2), "RGB 4:4:4, 10 bits per color", Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceRgb444_8bpc, Bit(uiOffset, 1), "RGB 4:4:4, 8 bits per color", Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceRgb444_6bpc, Bit(uiOffset, 0), "RGB 4:4:4, 6 bits per color", Flag(gsc_aoSupported) },
        { eId_Reserved, Bits(uiOffset + 1, 7, 6), "Reserved", Reserved() },
        { eId_DisplayidInterfaceYcbcr444_16bpc, Bit(uiOffset + 1, 5), "YCbCr 4:4:4, 16 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr444_14bpc, Bit(uiOffset + 1, 4), "YCbCr 4:4:4, 14 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr444_12bpc, Bit(uiOffset + 1, 3), "YCbCr 4:4:4, 12 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr444_10bpc, Bit(uiOffset + 1, 2), "YCbCr 4:4:4, 10 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr444_8bpc, Bit(uiOffset + 1, 1), "YCbCr 4:4:4, 8 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr444_6bpc, Bit(uiOffset + 1, 0), "YCbCr 4:4:4, 6 bits per color",
          Flag(gsc_aoSupported) },
        { eId_Reserved, Bits(uiOffset + 2, 7, 5), "Reserved", Reserved() },
        { eId_DisplayidInterfaceYcbcr422_16bpc, Bit(uiOffset + 2, 4), "YCbCr 4:2:2, 16 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr422_14bpc, Bit(uiOffset + 2, 3), "YCbCr 4:2:2, 14 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr422_12bpc, Bit(uiOffset + 2, 2), "YCbCr 4:2:2, 12 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr422_10bpc, Bit(uiOffset + 2, 1), "YCbCr 4:2:2, 10 bits per color",
          Flag(gsc_aoSupported) },
        { eId_DisplayidInterfaceYcbcr422_8bpc, Bit(uiOffset + 2, 0), "YCbCr 4:2:2, 8 bits per color",
          Flag(gsc_aoSupported) },
    });
}
constexpr auto gsc_aoDepth1Rows = DepthRows(DisplayId::gsc_uiDepthsOffset1);
constexpr auto gsc_aoDepth2Rows = DepthRows(DisplayId::gsc_uiDepthsOffset2);
constexpr STable gsc_oDepths1 = { eId_DisplayidInterface, "Color depths", eArea_Display, gsc_aoDepth1Rows };
constexpr STable gsc_oDepths2 = { eId_DisplayidInterfaceFeatures, "Color depths", eArea_Display, gsc_aoDepth2Rows };

// ---- Display interface, DisplayID 1.3 (tag 0Fh): 10 bytes ----

constexpr auto gsc_aoInterfaces =
    ListedTo(15, { "analog", "LVDS", "TMDS", "RSDS", "DVI-D", "DVI-I analog", "DVI-I digital", "HDMI-a", "HDMI-b",
                   "MDDI", "DisplayPort", "proprietary digital" });
constexpr auto gsc_aoAnalogInterfaces = ListedTo(15, { "15HD/VGA", "VESA NAVI-V (15HD)", "VESA NAVI-D" });
constexpr auto gsc_aoProtections = ListedTo(15, { "none", "HDCP", "DTCP", "DPCP" });
constexpr auto gsc_aoSpreads = Listed({ "none", "down spread", "center spread", gsc_szReserved });
constexpr auto gsc_aoColourMappings = Listed({ "normal", "6-bit compatible" });
constexpr auto gsc_aoModes = Listed({ "DE", "fixed" });
constexpr auto gsc_aoLevels = Listed({ "high", "low" });
constexpr auto gsc_aoStrobes = Listed({ "falling edge", "rising edge" });

constexpr unsigned int gsc_uiAnalog = 0;
constexpr unsigned int gsc_uiLvds = 1;
constexpr unsigned int gsc_uiProprietary = 11;
unsigned int GetInterface(const CRecord& oBlock) { return oBlock.GetBits(0x03, 7, 4); }
bool IsAnalog(const CRecord& oBlock) { return GetInterface(oBlock) == gsc_uiAnalog; }
bool IsLvds(const CRecord& oBlock) { return GetInterface(oBlock) == gsc_uiLvds; }
bool IsProprietary(const CRecord& oBlock) { return GetInterface(oBlock) == gsc_uiProprietary; }
bool IsNeither(const CRecord& oBlock) { return !IsLvds(oBlock) && !IsProprietary(oBlock); }

constexpr SRow gsc_aoInterfaceTypeRows[] = {
    { eId_DisplayidInterfaceType, DisplayId::gsc_oInterfaceType, "Interface type", Names(gsc_aoInterfaces) },
    { eId_DisplayidInterfaceAnalogInterface, Bits(0x03, 3, 0), "Analog interface", Names(gsc_aoAnalogInterfaces),
      IsAnalog },
    { eId_DisplayidInterfaceLinks, DisplayId::gsc_oInterfaceLinks, "Number of links", Number(), IsNot<IsAnalog> },
    { eId_DisplayidInterfaceVersion, DisplayId::gsc_oInterfaceVersion, "Interface standard version", Number() },
    { eId_DisplayidInterfaceRevision, DisplayId::gsc_oInterfaceRevision, "Interface standard revision", Number() },
};
constexpr STable gsc_oInterfaceType = { eId_DisplayidInterface, "Display interface", eArea_Display,
                                        gsc_aoInterfaceTypeRows };

constexpr SRow gsc_aoInterfaceRows[] = {
    { eId_Reserved, Bits(0x08, 7, 4), "Reserved", Reserved() },
    { eId_DisplayidInterfaceContentProtection, Bits(0x08, 3, 0), "Content protection", Names(gsc_aoProtections) },
    { eId_DisplayidInterfaceContentProtectionVersion, Bits(0x09, 7, 4), "Content protection version", Number() },
    { eId_DisplayidInterfaceContentProtectionRevision, Bits(0x09, 3, 0), "Content protection revision", Number() },
    { eId_DisplayidInterfaceSpreadSpectrum, Bits(0x0A, 7, 6), "Spread spectrum", Names(gsc_aoSpreads) },
    { eId_Reserved, Bits(0x0A, 5, 4), "Reserved", Reserved() },
    { eId_DisplayidInterfaceSpread, Bits(0x0A, 3, 0), "Spread", Number("%").Decimals(1) },
    { eId_Reserved, Bits(0x0B, 7, 5), "Reserved", Reserved(), IsLvds },
    { eId_DisplayidInterfaceColorMapping, Bit(0x0B, 4), "Color mapping", Flag(gsc_aoColourMappings), IsLvds },
    { eId_DisplayidInterface2_8V, Bit(0x0B, 3), "2.8 V", Flag(gsc_aoSupported), IsLvds },
    { eId_DisplayidInterface12V, Bit(0x0B, 2), "12 V", Flag(gsc_aoSupported), IsLvds },
    { eId_DisplayidInterface5V, Bit(0x0B, 1), "5 V", Flag(gsc_aoSupported), IsLvds },
    { eId_DisplayidInterface3_3V, Bit(0x0B, 0), "3.3 V", Flag(gsc_aoSupported), IsLvds },
    { eId_Reserved, Bits(0x0C, 7, 3), "Reserved", Reserved(), IsLvds },
    { eId_DisplayidInterfaceMode, Bit(0x0C, 2), "Mode", Flag(gsc_aoModes), IsLvds },
    { eId_DisplayidInterfaceDePolarity, Bit(0x0C, 1), "DE polarity or fixed signal level", Flag(gsc_aoLevels), IsLvds },
    { eId_DisplayidInterfaceShiftClockDataStrobe, Bit(0x0C, 0), "Shift clock data strobe", Flag(gsc_aoStrobes),
      IsLvds },
    { eId_Reserved, Bits(0x0B, 7, 3), "Reserved", Reserved(), IsProprietary },
    { eId_DisplayidInterfaceMode, Bit(0x0B, 2), "Mode", Flag(gsc_aoModes), IsProprietary },
    { eId_DisplayidInterfaceDePolarity, Bit(0x0B, 1), "DE polarity or fixed signal level", Flag(gsc_aoLevels),
      IsProprietary },
    { eId_DisplayidInterfaceShiftClockDataStrobe, Bit(0x0B, 0), "Shift clock data strobe", Flag(gsc_aoStrobes),
      IsProprietary },
    { eId_Reserved, Byte(0x0C), "Reserved", Reserved(), IsProprietary },
    { eId_Reserved, Run(0x0B, 2), "Reserved", Reserved(), IsNeither },
};

CMString InterfaceText(const CRecord& oBlock) { return CMString(FindMeaning(gsc_aoInterfaces, GetInterface(oBlock))); }
constexpr STable gsc_oInterface = { eId_DisplayidInterface, "Display interface", eArea_Display, gsc_aoInterfaceRows };

// ---- Display interface features, DisplayID 2.0 (tag 26h): 9 bytes and up to 7 more ----

constexpr SMeaning gsc_aoAnyRate[] = { { 0, 0, "any" } };

constexpr SRow gsc_aoFeatureRows[] = {
    { eId_Reserved, Bits(0x06, 7, 5), "Reserved", Reserved() },
    { eId_DisplayidInterfaceFeaturesYcbcr420_16bpc, Bit(0x06, 4), "YCbCr 4:2:0, 16 bits per color",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesYcbcr420_14bpc, Bit(0x06, 3), "YCbCr 4:2:0, 14 bits per color",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesYcbcr420_12bpc, Bit(0x06, 2), "YCbCr 4:2:0, 12 bits per color",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesYcbcr420_10bpc, Bit(0x06, 1), "YCbCr 4:2:0, 10 bits per color",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesYcbcr420_8bpc, Bit(0x06, 0), "YCbCr 4:2:0, 8 bits per color",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesYcbcr420MinPixelRate, DisplayId::gsc_oYCbCr420MinPixelRate,
      "Minimum pixel rate for YCbCr 4:2:0", Number("MP/s").Times(7425).Decimals(2).With(gsc_aoAnyRate) },
    { eId_DisplayidInterfaceFeaturesAudio32Khz, DisplayId::gsc_oFeatureAudio32Khz, "Audio at 32 kHz",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesAudio44_1Khz, DisplayId::gsc_oFeatureAudio44_1Khz, "Audio at 44.1 kHz",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesAudio48Khz, DisplayId::gsc_oFeatureAudio48Khz, "Audio at 48 kHz",
      Flag(gsc_aoSupported) },
    { eId_Reserved, Bits(0x08, 4, 0), "Reserved", Reserved() },
};
constexpr STable gsc_oFeatures = { eId_DisplayidInterfaceFeatures, "Display interface features", eArea_Display,
                                   gsc_aoFeatureRows };

using DisplayId::gsc_uiCombinationsOffset;

SBreach CheckCombinations(const CRecord& oBlock, unsigned int uiCombinations)
{
    const unsigned int uiRoom = std::max(oBlock.GetSize(), gsc_uiCombinationsOffset) - gsc_uiCombinationsOffset;
    return uiCombinations != uiRoom ? SBreach(eZorEdidRule_DisplayIdContradiction, uiRoom, uiRoom) : gsc_oNoBreach;
}

constexpr SRow gsc_aoColourFeatureRows[] = {
    { eId_Reserved, Bit(0x09, 7), "Reserved", Reserved() },
    { eId_DisplayidInterfaceFeaturesBt2020St2084, DisplayId::gsc_oFeatureBt2020St2084, "BT.2020 with SMPTE ST 2084",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesBt2020, DisplayId::gsc_oFeatureBt2020, "BT.2020", Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesDciP3, DisplayId::gsc_oFeatureDciP3, "DCI-P3", Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesAdobeRgb, DisplayId::gsc_oFeatureAdobeRgb, "Adobe RGB", Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesBt709Bt1886, DisplayId::gsc_oFeatureBt709Bt1886, "BT.709 with BT.1886",
      Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesBt601, DisplayId::gsc_oFeatureBt601, "BT.601", Flag(gsc_aoSupported) },
    { eId_DisplayidInterfaceFeaturesSrgb, DisplayId::gsc_oFeatureSrgb, "sRGB", Flag(gsc_aoSupported) },
    { eId_Reserved, Byte(0x0A), "Reserved", Reserved() },
    { eId_Reserved, Bits(0x0B, 7, 3), "Reserved", Reserved() },
    { eId_DisplayidInterfaceFeaturesCombinations, DisplayId::gsc_oFeatureCombinations,
      "Number of additional color space and EOTF combinations", Number(), nullptr, CheckCombinations },
};
constexpr STable gsc_oColourFeatures = { eId_DisplayidInterfaceFeatures, "Display interface features", eArea_Colour,
                                         gsc_aoColourFeatureRows };

constexpr auto gsc_aoColourSpaces =
    ListedTo(15, { "undefined", "sRGB", "BT.601", "BT.709", "Adobe RGB", "DCI-P3", "BT.2020", "custom" });
constexpr auto gsc_aoEotfs = ListedTo(15, { "undefined", "sRGB", "BT.601", "BT.1886", "Adobe RGB", "DCI-P3", "BT.2020",
                                            "gamma function", "SMPTE ST 2084", "hybrid log", "custom" });
constexpr SRow gsc_aoCombinationRows[] = {
    { eId_DisplayidInterfaceFeaturesColorSpace, DisplayId::gsc_oCombinationSpace, "Color space",
      Names(gsc_aoColourSpaces) },
    { eId_DisplayidInterfaceFeaturesEotf, DisplayId::gsc_oCombinationEotf, "EOTF", Names(gsc_aoEotfs) },
};
constexpr STable gsc_oCombination = { eId_DisplayidInterfaceFeaturesCombination, "Color space and EOTF", eArea_Colour,
                                      gsc_aoCombinationRows };

void MapCombinations(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    oWriter.AddItems(gsc_oCombination, uiOffset + gsc_uiCombinationsOffset, oBlock.GetBits(0x0B, 2, 0), 1);
}

// ---- Stereo display interface, DisplayID 1.3 (tag 10h) and 2.0 (tag 27h) ----

constexpr auto gsc_aoStereoTimings =
    Listed({ "timings that declare 3D support", "timings that declare 3D support, and the codes of this block",
             "all listed timings", "only the codes of this block" });
constexpr SMeaning gsc_aoStereoMethods[] = {
    { 0, 0, "field sequential" }, { 1, 1, "side by side" },  { 2, 2, "pixel interleaved" }, { 3, 3, "dual interface" },
    { 4, 4, "multi-view" },       { 5, 5, "stacked frame" }, { 6, 254, gsc_szReserved },    { 255, 255, "proprietary" },
};
constexpr auto gsc_aoStereoPolarities = Listed({ "left is 1, right is 0", "left is 0, right is 1" });
constexpr auto gsc_aoViews = Listed({ "left eye view", "right eye view" });
constexpr auto gsc_aoMirrorings = Listed({ "none", "left/right", "top/bottom", gsc_szReserved });

constexpr unsigned int gsc_uiStereoLengthOffset = 3; // of the method code and its parameters
constexpr unsigned int gsc_uiStereoMethodOffset = 4;
template <unsigned int METHOD>
bool IsMethod(const CRecord& oMethod)
{
    return oMethod.GetByte(0) == METHOD;
}

constexpr SRow gsc_aoStereoFlagRows[] = {
    { eId_DisplayidStereoTimings, Bits(1, 7, 6), "Timings with stereo support", Names(gsc_aoStereoTimings) },
    { eId_Reserved, Bits(1, 5, 3), "Reserved", Reserved() },
};
constexpr STable gsc_oStereoFlags = { eId_DisplayidStereo, "Flags", eArea_Display, gsc_aoStereoFlagRows };

SBreach CheckMethodLength(const CRecord& /*oBlock*/, unsigned int uiLength)
{
    return uiLength == 0 ? eZorEdidRule_DisplayIdNoMethod : eZorEdidRule_None;
}

constexpr SRow gsc_aoStereoRows[] = { { eId_DisplayidStereoMethodLength, Byte(gsc_uiStereoLengthOffset),
                                        "Length of the stereo method", Number("bytes"), nullptr, CheckMethodLength } };
constexpr STable gsc_oStereo = { eId_DisplayidStereo, "Stereo display interface", eArea_Structure, gsc_aoStereoRows };

constexpr unsigned char gsc_aui8MethodSizes[] = { 2, 2, 9, 2, 3, 2 }; // by the code, which counts

bool HasUnknownParameters(const CRecord& oMethod)
{
    return oMethod.GetByte(0) >= std::size(gsc_aui8MethodSizes) && !IsMethod<255>(oMethod);
}

// The method code and its parameters, counted from the code.
constexpr SRow gsc_aoMethodRows[] = {
    { eId_DisplayidStereoMethodCode, Byte(0), "Stereo method code", Names(gsc_aoStereoMethods) },
    { eId_DisplayidStereoPolarity, Bit(1, 0), "Stereo polarity", Flag(gsc_aoStereoPolarities), IsMethod<0> },
    { eId_DisplayidStereoLeftHalf, Bit(1, 0), "Left half", Flag(gsc_aoViews), IsMethod<1> },
    { eId_DisplayidStereoInterleavingPattern, Run(1, 8), "Interleaving pattern, 8 rows", Bytes(),
      IsMethod<2> }, // bit 7 leftmost; 1 is left
    { eId_DisplayidStereoMirroring, Bits(1, 2, 1), "Mirroring", Names(gsc_aoMirrorings), IsMethod<3> },
    { eId_DisplayidStereoView, Bit(1, 0), "View of this interface", Flag(gsc_aoViews), IsMethod<3> },
    { eId_DisplayidStereoViews, Byte(1), "Number of views", Number(), IsMethod<4> },
    { eId_DisplayidStereoInterleavingMethod, Byte(2), "Interleaving method code", Number(), IsMethod<4> },
    { eId_DisplayidStereoTopHalf, Bit(1, 0), "Top half", Flag(gsc_aoViews), IsMethod<5> },
    { eId_DisplayidStereoProprietaryParameters, RunToEnd(1), "Proprietary parameters", Bytes(), IsMethod<255> },
    { eId_Unknown, RunToEnd(1), "Unknown", Unknown(), HasUnknownParameters },
};
constexpr STable gsc_oMethod = { eId_DisplayidStereoMethod, "Stereo method", eArea_Display, gsc_aoMethodRows };

constexpr SRow gsc_aoCodeGroupRows[] = {
    { eId_DisplayidStereoCodeType, Bits(0, 7, 6), "Timing code type", Names(gsc_aoCodeTypes) },
    { eId_Reserved, Bit(0, 5), "Reserved", Reserved() },
    { eId_DisplayidStereoCodeCount, Bits(0, 4, 0), "Number of timing codes", Number() },
};
constexpr STable gsc_oCodeGroup = { eId_DisplayidStereoCodes, "Timing codes", eArea_Timing, gsc_aoCodeGroupRows };

// Groups of codes from byte uiAt of the block on.
void MapCodeGroups(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset, unsigned int uiAt)
{
    while (uiAt < oBlock.GetSize())
    {
        const unsigned int uiDeclared = oBlock.GetBits(uiAt, 4, 0);
        const unsigned int uiCodes = std::min(uiDeclared, oBlock.GetSize() - uiAt - 1);
        const unsigned int uiGroup = oWriter.BeginRecord(gsc_oCodeGroup, uiOffset + uiAt, 1 + uiCodes);
        if (uiCodes < uiDeclared)
        {
            oWriter.AddNote(uiGroup, eZorEdidRule_DisplayIdItemPast, CountAtMost("codes", uiDeclared, uiCodes));
        }
        for (unsigned int i = 0; i < uiCodes; ++i)
        {
            MapTimingCode(oWriter, oBlock.GetBits(uiAt, 7, 6), uiOffset + uiAt + 1 + i, 1, gsc_uiMarkReference);
        }
        oWriter.EndGroup();
        uiAt += 1 + uiCodes;
    }
}

// Of a method that is there.
void NoteMethodLength(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    const CRecord oMethod = oWriter.GetRecord(uiOffset, uiLength);
    const unsigned int uiMethod = oMethod.GetByte(0);
    if (oMethod.GetSize() != 0 && uiMethod < std::size(gsc_aui8MethodSizes) &&
        oMethod.GetSize() < gsc_aui8MethodSizes[uiMethod])
    {
        oWriter.AddNote(oWriter.FindLeaf(uiOffset, 0), eZorEdidRule_DisplayIdMethodShort,
                        CountAtLeast("bytes", oMethod.GetSize(), gsc_aui8MethodSizes[uiMethod]));
    }
}

void MapStereo(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    const unsigned int uiLength = oBlock.GetByte(gsc_uiStereoLengthOffset);
    const unsigned int uiRoom = std::max(oBlock.GetSize(), gsc_uiStereoMethodOffset) - gsc_uiStereoMethodOffset;
    oWriter.AddRecord(gsc_oMethod, uiOffset + gsc_uiStereoMethodOffset, uiLength);
    NoteMethodLength(oWriter, uiOffset + gsc_uiStereoMethodOffset, std::min(uiLength, uiRoom));
    if (uiLength > uiRoom)
    {
        oWriter.AddNote(oWriter.FindLeaf(uiOffset + gsc_uiStereoLengthOffset, 0), eZorEdidRule_DisplayIdItemPast,
                        CountAtMost("bytes", uiLength, uiRoom));
    }
    if (oBlock.IsSet(gsc_uiDataBlockFlagsOffset, 6))
    {
        MapCodeGroups(oWriter, oBlock, uiOffset, gsc_uiStereoMethodOffset + uiLength);
    }
}

// ---- Tiled display topology, DisplayID 1.3 (tag 12h) and 2.0 (tag 28h): 22 bytes ----

constexpr auto gsc_aoEnclosures = Listed({ "multiple", "single" });
constexpr auto gsc_aoBezels = Listed({ "not given", "given" });
constexpr auto gsc_aoSomeTiles =
    Listed({ "undefined", "image at the tile's location", gsc_szReserved, gsc_szReserved });
constexpr SMeaning gsc_aoOneTile[] = { { 0, 0, "undefined" },
                                       { 1, 1, "image at the tile's location" },
                                       { 2, 2, "image scaled to the entire tiled display" },
                                       { 3, 3, "image cloned to all other tiles" },
                                       { 4, 7, gsc_szReserved } };

constexpr auto HasBezels = WhereSet<0x03, 6>;

SBreach CheckMultiplier(const CRecord& oBlock, unsigned int uiMultiplier)
{
    return HasBezels(oBlock) == (uiMultiplier != 0) ? eZorEdidRule_None
           : uiMultiplier == 0                      ? eZorEdidRule_DisplayIdBezelNone
                                                    : eZorEdidRule_DisplayIdBezelAlone;
}

// In tenths of a pixel.
long long GetBezel(const CRecord& oBlock, unsigned int uiSize)
{
    return static_cast<long long>(uiSize) * oBlock.GetByte(0x0B);
}

constexpr SPlace gsc_oTilesX = InPayload(DisplayId::gsc_oTileCountX);
constexpr SPlace gsc_oTilesY = InPayload(DisplayId::gsc_oTileCountY);
constexpr SPlace gsc_oTileX = InPayload(DisplayId::gsc_oTileLocationX);
constexpr SPlace gsc_oTileY = InPayload(DisplayId::gsc_oTileLocationY);

template <const SPlace& COUNT>
SBreach CheckLocation(const CRecord& oBlock, unsigned int uiLocation)
{
    return CheckAtMost(oBlock.Get(COUNT), uiLocation, eZorEdidRule_DisplayIdTile);
}

constexpr SForm gsc_oBezelForm = Number("pixels").Decimals(1).Computed(GetBezel);

constexpr auto TileRows(const SRow& oVendor)
{
    return std::to_array<SRow>({
        { eId_DisplayidTiledEnclosures, InPayload(DisplayId::gsc_oSingleEnclosure), "Physical enclosures",
          Flag(gsc_aoEnclosures) },
        { eId_DisplayidTiledBezelInformation, InPayload(DisplayId::gsc_oBezelInfo), "Bezel information",
          Flag(gsc_aoBezels) },
        { eId_Reserved, Bit(0x03, 5), "Reserved", Reserved() },
        { eId_DisplayidTiledSomeTilesBehavior, InPayload(DisplayId::gsc_oMultiTileBehaviour),
          "Behavior when more than one tile is driven, but not all", Names(gsc_aoSomeTiles) },
        { eId_DisplayidTiledOnlyTileBehavior, InPayload(DisplayId::gsc_oSingleTileBehaviour),
          "Behavior when it is the only tile driven", Names(gsc_aoOneTile) },
        { eId_DisplayidTiledHorizontalTiles, gsc_oTilesX, "Number of horizontal tiles", NumberFrom1() },
        { eId_DisplayidTiledVerticalTiles, gsc_oTilesY, "Number of vertical tiles", NumberFrom1() },
        { eId_DisplayidTiledColumn, gsc_oTileX, "Horizontal tile location", Number(), nullptr,
          CheckLocation<gsc_oTilesX> },
        { eId_DisplayidTiledRow, gsc_oTileY, "Vertical tile location", Number(), nullptr, CheckLocation<gsc_oTilesY> },
        { eId_DisplayidTiledTileWidth, InPayload(DisplayId::gsc_oTileWidth), "Horizontal tile size",
          NumberFrom1("pixels") },
        { eId_DisplayidTiledTileHeight, InPayload(DisplayId::gsc_oTileHeight), "Vertical tile size",
          NumberFrom1("lines") },
        { eId_DisplayidTiledPixelMultiplier, Byte(0x0B), "Pixel multiplier", Number(), nullptr, CheckMultiplier },
        { eId_DisplayidTiledTopBezel, Byte(0x0C), "Top bezel size", gsc_oBezelForm, HasBezels },
        { eId_DisplayidTiledBottomBezel, Byte(0x0D), "Bottom bezel size", gsc_oBezelForm, HasBezels },
        { eId_DisplayidTiledRightBezel, Byte(0x0E), "Right bezel size", gsc_oBezelForm, HasBezels },
        { eId_DisplayidTiledLeftBezel, Byte(0x0F), "Left bezel size", gsc_oBezelForm, HasBezels },
        { eId_Reserved, Run(0x0C, 4), "Bezel sizes, not used", Reserved(), IsNot<HasBezels> },
        oVendor,
        { eId_DisplayidTiledProductCode, InPayload(DisplayId::gsc_oTileProduct), "Tiled display product ID code",
          Number() },
        { eId_DisplayidTiledSerialNumber, InPayload(DisplayId::gsc_oTileSerial), "Tiled display serial number",
          Number() },
    });
}
constexpr auto gsc_aoTile1Rows = TileRows(LettersRow<gsc_uiPayloadOffset + DisplayId::gsc_uiTileVendorOffset>(
    eId_DisplayidTiledVendor, "Tiled display manufacturer/vendor ID"));
constexpr auto gsc_aoTile2Rows =
    TileRows({ eId_DisplayidTiledVendor, InPayload(Big24(DisplayId::gsc_uiTileVendorOffset)),
               "Tiled display manufacturer/vendor ID", Oui() });

// "column 1, row 0 of 2 x 1"
CMString TileText(const CRecord& oBlock)
{
    CMString sText;
    sText.Format("column %u, row %u of %u x %u", oBlock.Get(gsc_oTileX), oBlock.Get(gsc_oTileY),
                 oBlock.Get(gsc_oTilesX) + 1, oBlock.Get(gsc_oTilesY) + 1);
    return sText;
}
constexpr STable gsc_oTile1 = { eId_DisplayidTiled, "Tiled display topology", eArea_Display, gsc_aoTile1Rows };
constexpr STable gsc_oTile2 = { eId_DisplayidTiled, "Tiled display topology", eArea_Display, gsc_aoTile2Rows };

// ---- Adaptive sync, DisplayID 2.1 (tag 2Bh): descriptors of 6 bytes and more ----

constexpr auto gsc_aoPanelRanges = Listed({ "not the native panel range", "native panel range" });
constexpr SMeaning gsc_aoAdaptiveModes[] = { { 0, 0, "fixed average V-total" },
                                             { 1, 1, "fixed average V-total and adaptive V-total" },
                                             { 2, 3, gsc_szReserved } };
constexpr auto gsc_aoSeamless = Listed({ "supported", "not supported" });

SBreach CheckAdaptiveMaximum(const CRecord& oDescriptor, unsigned int uiRate)
{
    const unsigned int uiMinimum = oDescriptor.Get(DisplayId::gsc_oAdaptiveMinRate); // the maximum is stored minus 1
    return uiMinimum != 0 ? CheckAtLeast(uiMinimum - 1, uiRate) : gsc_oNoBreach;
}

constexpr SRow gsc_aoAdaptiveRows[] = {
    { eId_Reserved, Bits(0, 7, 6), "Reserved", Reserved() },
    { eId_DisplayidAdaptiveSyncDecreaseWithoutJitter, Bit(0, 5),
      "Maximum single frame duration decrease without jitter impact", Flag() },
    { eId_DisplayidAdaptiveSyncSeamlessTransition, DisplayId::gsc_oAdaptiveNotSeamless, "Seamless transition",
      Flag(gsc_aoSeamless) },
    { eId_DisplayidAdaptiveSyncMode, DisplayId::gsc_oAdaptiveMode, "Adaptive sync mode", Names(gsc_aoAdaptiveModes) },
    { eId_DisplayidAdaptiveSyncIncreaseWithoutJitter, Bit(0, 1),
      "Maximum single frame duration increase without jitter impact", Flag() },
    { eId_DisplayidAdaptiveSyncRange, DisplayId::gsc_oAdaptiveNative, "Adaptive sync range", Flag(gsc_aoPanelRanges) },
    { eId_DisplayidAdaptiveSyncMaxDurationIncrease, DisplayId::gsc_oAdaptiveMaxIncrease,
      "Maximum single frame duration increase", Number("ms").Times(25).Decimals(2) },
    { eId_DisplayidAdaptiveSyncMinRefreshRate, DisplayId::gsc_oAdaptiveMinRate, "Minimum refresh rate", Number("Hz") },
    { eId_DisplayidAdaptiveSyncMaxRefreshRate, DisplayId::gsc_oAdaptiveMaxRate, "Maximum refresh rate",
      NumberFrom1("Hz"), nullptr, CheckAdaptiveMaximum },
    { eId_Reserved, Bits(4, 7, 2), "Reserved", Reserved() },
    { eId_DisplayidAdaptiveSyncMaxDurationDecrease, DisplayId::gsc_oAdaptiveMaxDecrease,
      "Maximum single frame duration decrease", Number("ms").Times(25).Decimals(2) },
};

CMString AdaptiveText(const CRecord& oDescriptor)
{
    return RatesText(oDescriptor.Get(DisplayId::gsc_oAdaptiveMinRate),
                     oDescriptor.Get(DisplayId::gsc_oAdaptiveMaxRate) + 1);
}
constexpr STable gsc_oAdaptive = { eId_DisplayidAdaptiveSyncDescriptor, "Adaptive sync descriptor", eArea_Timing,
                                   gsc_aoAdaptiveRows, AdaptiveText };
using DisplayId::gsc_uiAdaptiveSize;

constexpr SRow gsc_aoAdaptiveFlagRows[] = {
    { eId_Reserved, Bit(1, 7), "Reserved", Reserved() },
    { eId_DisplayidAdaptiveSyncExtraBytes, DisplayId::gsc_oAdaptiveExtraBytes, "Extra bytes of each descriptor",
      Number("bytes") },
    { eId_Reserved, Bit(1, 3), "Reserved", Reserved() },
};
constexpr STable gsc_oAdaptiveFlags = { eId_DisplayidAdaptiveSync, "Flags", eArea_Structure, gsc_aoAdaptiveFlagRows };

void MapAdaptive(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    oWriter.AddItems(gsc_oAdaptive, uiOffset + gsc_uiPayloadOffset, GetPayloadLength(oBlock),
                     gsc_uiAdaptiveSize + oBlock.Get(DisplayId::gsc_oAdaptiveExtraBytes));
}

// ---- Vendor-specific, DisplayID 1.3 (tag 7Fh) and 2.0 (tag 7Eh); that of VESA, DisplayID 2.1 ----

using DisplayId::gsc_uiVesaSize;
constexpr unsigned int gsc_uiVesaDscSize = 7;

bool IsVesa(const CRecord& oBlock)
{
    return oBlock.Get(DisplayId::gsc_oVendorOui) == gsc_uiOuiVesa && GetPayloadLength(oBlock) >= gsc_uiVesaSize;
}
bool HasDsc(const CRecord& oBlock) { return IsVesa(oBlock) && GetPayloadLength(oBlock) >= gsc_uiVesaDscSize; }

constexpr SMeaning gsc_aoStructures[] = { { 0, 0, "eDP" }, { 1, 1, "DP" }, { 2, 7, gsc_szReserved } };
constexpr auto gsc_aoDefaultColours = Listed({ "sRGB", "native, as in the display parameters data block" });
constexpr auto gsc_aoStreams = Listed({ "not supported", "two streams", "four streams", gsc_szReserved });

// The fraction is in sixteenths.
constexpr SPlace gsc_oDscDepth = Split({ { 0x08, 5, 0 }, { 0x09, 3, 0 } });

constexpr SRow gsc_aoVendor2Rows[] = {
    { eId_DisplayidVendorId, DisplayId::gsc_oVendorOui, "Manufacturer/vendor ID", Oui() },
    { eId_DisplayidVendorDefaultColorSpace, DisplayId::gsc_oVesaNativeColour, "Default color space and EOTF",
      Flag(gsc_aoDefaultColours), IsVesa },
    { eId_Reserved, Bits(0x06, 6, 3), "Reserved", Reserved(), IsVesa },
    { eId_DisplayidVendorDataStructureType, DisplayId::gsc_oVesaStructure, "Data structure type",
      Names(gsc_aoStructures), IsVesa },
    { eId_Reserved, Bit(0x07, 7), "Reserved", Reserved(), IsVesa },
    { eId_DisplayidVendorMultiSstOperation, DisplayId::gsc_oMultiSstOperation, "Multi-SST operation",
      Names(gsc_aoStreams), IsVesa },
    { eId_Reserved, Bit(0x07, 4), "Reserved", Reserved(), IsVesa },
    { eId_DisplayidVendorOverlap, DisplayId::gsc_oPanelOverlap, "Pixels that overlap an adjacent panel",
      Number("pixels"), IsVesa, CheckWithin<0, 8> },
    { eId_Reserved, Bits(0x08, 7, 6), "Reserved", Reserved(), HasDsc },
    { eId_DisplayidVendorDscBitsPerPixel, gsc_oDscDepth, "Pass-through timing's DSC bits per pixel",
      Fraction("bits per pixel", 16), HasDsc },
    { eId_Reserved, Bits(0x09, 7, 4), "Reserved", Reserved(), HasDsc },
    { eId_DisplayidVendorData, RunToEnd(0x06), "Vendor data", Bytes(), IsNot<IsVesa> },
};
constexpr STable gsc_oVendor2 = { eId_DisplayidVendor, "Vendor-specific", eArea_Vendor, gsc_aoVendor2Rows };

constexpr SRow gsc_aoVendor1Rows[] = {
    { eId_DisplayidVendorId, Run(0x03, 3), "Manufacturer/vendor ID", Text(), HasLetters<0x03> },
    { eId_DisplayidVendorId, DisplayId::gsc_oVendorOui, "Manufacturer/vendor ID", Oui(), IsNot<HasLetters<0x03>> },
    { eId_DisplayidVendorData, RunToEnd(0x06), "Vendor data", Bytes() },
};
constexpr STable gsc_oVendor1 = { eId_DisplayidVendor, "Vendor-specific", eArea_Vendor, gsc_aoVendor1Rows };

// The meaning of the flags is the maker's.
constexpr SRow gsc_aoVendorFlagRows[] = { { eId_DisplayidVendorFlags, Bits(1, 7, 3), "Vendor flags", Bytes() } };
constexpr STable gsc_oVendorFlags = { eId_DisplayidVendor, "Flags", eArea_Vendor, gsc_aoVendorFlagRows };

// ---- CTA-861 data blocks, DisplayID 1.3 and 2.0 (tag 81h) ----

void MapCtaInDisplayId(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapCtaDataBlocks(oWriter, uiOffset + gsc_uiPayloadOffset, GetPayloadLength(oBlock));
}

// ---- Data blocks ----

// clang-format off
constexpr SDisplayIdBlock gsc_aoBlocks1[] = {
    { DisplayId::gsc_uiRangeTag, Group(eId_DisplayidRange, "Video timing range limits data block", eArea_Timing, RangeText),
      Exactly(15), nullptr, { &gsc_oRange } },
    { 0x0D, Group(eId_DisplayidPower, "Interface power sequencing data block", eArea_Display), Exactly(6), nullptr, { &gsc_oPower } },
    { DisplayId::gsc_uiInterfaceTag, Group(eId_DisplayidInterface, "Display interface data block", eArea_Display, InterfaceText),
      Exactly(10), nullptr, { &gsc_oInterfaceType, &gsc_oDepths1, &gsc_oInterface } },
    { 0x10, Group(eId_DisplayidStereo, "Stereo display interface data block", eArea_Display),
      AtLeast(2), &gsc_oStereoFlags, { &gsc_oStereo }, MapStereo },
    { DisplayId::gsc_uiTiled1Tag, Group(eId_DisplayidTiled, "Tiled display topology data block", eArea_Display, TileText),
      Exactly(22), nullptr, { &gsc_oTile1 } },
    { DisplayId::gsc_uiVendor1Tag, Group(eId_DisplayidVendor, "Vendor-specific data block", eArea_Vendor), AtLeast(3), &gsc_oVendorFlags, { &gsc_oVendor1 } },
};

constexpr SDisplayIdBlock gsc_aoBlocks2[] = {
    { DisplayId::gsc_uiDynamicRangeTag, Group(eId_DisplayidDynamicRange, "Dynamic video timing range limits data block", eArea_Timing, DynamicRangeText),
      Exactly(9), nullptr, { &gsc_oDynamicRange } },
    { DisplayId::gsc_uiInterfaceFeaturesTag, Group(eId_DisplayidInterfaceFeatures, "Display interface features data block", eArea_Display),
      { 9, 16 }, nullptr, { &gsc_oDepths2, &gsc_oFeatures, &gsc_oColourFeatures }, MapCombinations },
    { 0x27, Group(eId_DisplayidStereo, "Stereo display interface data block", eArea_Display),
      AtLeast(2), &gsc_oStereoFlags, { &gsc_oStereo }, MapStereo },
    { DisplayId::gsc_uiTiled2Tag, Group(eId_DisplayidTiled, "Tiled display topology data block", eArea_Display, TileText),
      Exactly(22), nullptr, { &gsc_oTile2 } },
    { DisplayId::gsc_uiAdaptiveSyncTag, Group(eId_DisplayidAdaptiveSync, "Adaptive sync data block", eArea_Timing),
      ItemsWithExtraBytes(gsc_uiAdaptiveSize), &gsc_oAdaptiveFlags, {}, MapAdaptive },
    { DisplayId::gsc_uiVendor2Tag, Group(eId_DisplayidVendor, "Vendor-specific data block", eArea_Vendor), AtLeast(3), &gsc_oVendorFlags, { &gsc_oVendor2 } },
};

constexpr SDisplayIdBlock gsc_aoBlocksOfBoth[] = {
    { DisplayId::gsc_uiCtaTag, Group(eId_DisplayidCta, "CTA-861 data block", eArea_Structure), AtLeast(1), nullptr, {}, MapCtaInDisplayId },
};
// clang-format on
} // namespace

constinit const std::span<const SDisplayIdBlock> g_aoDisplayId1InterfaceBlocks = gsc_aoBlocks1;
constinit const std::span<const SDisplayIdBlock> g_aoDisplayId2InterfaceBlocks = gsc_aoBlocks2;
constinit const std::span<const SDisplayIdBlock> g_aoDisplayIdCtaBlocks = gsc_aoBlocksOfBoth;

void VisitInterfaceIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(gsc_oCombination, gsc_oMethod, gsc_oCodeGroup, gsc_oAdaptive);
}
} // namespace ZorMap
