// The display information extension block (DI-EXT): interface, pixels and colour decoding of a display. Called by
// MapOther.cpp.

#include "MapForms.h"
#include "MapNames.h"
#include "MapOther.h"
#include "Standards/VendorBlocks.h"

namespace ZorMap
{
namespace
{
// ---- VESA Display Information Extension Block Standard, release A: 128 bytes ----

constexpr auto gsc_aoInterfaces =
    ListedTo(255, { "analog", "DVI", "DVI single link", "DVI dual link, high resolution", "DVI dual link, high color",
                    "DVI consumer electronics", "Plug and Display", "DFP", "Open LDI single link", "Open LDI dual link",
                    "Open LDI consumer electronics" });
constexpr auto gsc_aoVersionKinds = Listed({ "not given", "version and release", "letter", "date" });
constexpr auto gsc_aoPolarities = Listed({ "low", "high" });
constexpr auto gsc_aoEdges = Listed({ "not given", "rising", "falling", "both" });
constexpr SMeaning gsc_aoDataFormats[] = {
    { 0x15, 0x15, "8-bit over 8-bit RGB" },
    { 0x19, 0x19, "12-bit over 12-bit RGB" },
    { 0x24, 0x24, "24-bit MSB-aligned RGB, single link" },
    { 0x48, 0x48, "48-bit MSB-aligned RGB, dual link, high resolution" },
    { 0x49, 0x49, "48-bit MSB-aligned RGB, dual link, high color" },
    { 0x00, 0xFF, gsc_szReserved }, // all others
};
constexpr auto gsc_aoNoDataFormat = ListedTo(255, { "none" });
constexpr SMeaning gsc_aoByteNotGiven[] = { { 0, 0, "not given" }, { 0xFF, 0xFF, gsc_szReserved } };
constexpr SMeaning gsc_aoWordNotGiven[] = { { 0, 0, "not given" }, { 0xFFFF, 0xFFFF, gsc_szReserved } };
constexpr SMeaning gsc_aoCrossovers[] = { { 0, 0, "not given" }, { 0xFFFF, 0xFFFF, "none, single link" } };
constexpr auto gsc_aoLayouts = ListedTo(255, { "not defined", "RGB", "BGR", "quad, green bottom left and top right",
                                               "quad, green bottom right and top left" });
constexpr auto gsc_aoConfigurations =
    ListedTo(255, { "not defined", "delta (triad)", "stripe", "stripe offset", "quad" });
constexpr auto gsc_aoShapes = ListedTo(255, { "not defined", "round", "square", "rectangular", "oval", "elliptical" });
constexpr auto gsc_aoViewDirections = Listed({ "not given", "direct", "reflected", "both" });
constexpr auto gsc_aoImplementations = Listed({ "not given", "large, for groups", "desktop or personal", "eyepiece" });
constexpr auto gsc_aoStereo =
    Listed({ "none", "field sequential by stereo sync", "auto-stereoscopic, column interleaved",
             "auto-stereoscopic, line interleaved", gsc_szReserved, gsc_szReserved, gsc_szReserved, gsc_szReserved });
constexpr auto gsc_aoConversions =
    Listed({ "none", "vertical to one frequency", "horizontal to one frequency", "both" });
constexpr auto gsc_aoOrientationTypes =
    Listed({ "not defined", "fixed", "pivots, default orientation", "pivots, current orientation" });
constexpr auto gsc_aoDecodings = ListedTo(
    255, { "not defined", "BGR", "Y/C NTSC", "Y/C PAL", "Y/C SECAM", "YCrCb 4:4:4 SMPTE 293M and 294M",
           "YCrCb 4:2:2 SMPTE 293M and 294M", "YCrCb 4:2:0 SMPTE 293M and 294M", "YCrCb SMPTE 260M", "YPbPr SMPTE 240M",
           "YCrCb SMPTE 274M", "YPbPr SMPTE 274M", "Y B-Y R-Y BetaCam", "Y B-Y R-Y M-2", "monochrome" });
constexpr auto gsc_aoDecoders = ListedTo(255, { "default decoding", "BGR", "Y/C", "Yxx SMPTE 2xxM", "monochrome" });
constexpr auto gsc_aoCurves = Listed({ "none", "white curve", "three sub-channel curves", gsc_szReserved });

unsigned int GetVersionKind(const CRecord& oBlock) { return oBlock.GetBits(0x03, 7, 6); }
bool HasNothing(const CRecord& oBlock) { return GetVersionKind(oBlock) == 0; }
bool HasVersion(const CRecord& oBlock) { return GetVersionKind(oBlock) == 1; }
bool HasLetter(const CRecord& oBlock) { return GetVersionKind(oBlock) == 2; }
bool HasDate(const CRecord& oBlock) { return GetVersionKind(oBlock) == 3; }
constexpr auto HasDataEnable = WhereSet<0x07, 7>;
unsigned int GetCurves(const CRecord& oBlock) { return oBlock.GetBits(0x51, 7, 6); }
bool HasWhiteCurve(const CRecord& oBlock) { return GetCurves(oBlock) == 1; }
bool HasColourCurves(const CRecord& oBlock) { return GetCurves(oBlock) == 2; }
bool HasNoCurves(const CRecord& oBlock) { return GetCurves(oBlock) == 0 || GetCurves(oBlock) == 3; }

// Bytes 03h to 0Dh are those of a digital interface.
bool IsAnalog(const CRecord& oBlock) { return oBlock.GetByte(0x02) == 0; }

SBreach CheckInterface(const CRecord& oBlock, unsigned int /*uiInterface*/)
{
    bool bSet = false;
    for (unsigned int i = 0x03; i <= 0x0D; ++i)
    {
        bSet = bSet || oBlock.GetByte(i) != 0;
    }
    return IsAnalog(oBlock) && bSet ? eZorEdidRule_DiInterface : eZorEdidRule_None;
}

SBreach CheckMaximumClock(const CRecord& oBlock, unsigned int uiClock)
{
    return uiClock != 0 ? CheckAtLeast(oBlock.GetByte(0x09), uiClock) : gsc_oNoBreach;
}

SBreach CheckEntries(const CRecord& oBlock, unsigned int uiEntries)
{
    return HasWhiteCurve(oBlock)     ? CheckWithin<1, 45>(oBlock, uiEntries)
           : HasColourCurves(oBlock) ? CheckWithin<1, 15>(oBlock, uiEntries)
                                     : gsc_oNoBreach;
}

constexpr SRow DepthRow(EZorEdidField eId, unsigned int uiOffset, const char* pszName)
{
    return { eId, Byte(uiOffset), pszName, Number("bits").With(gsc_aoZeroNotGiven), nullptr, CheckWithin<0, 16> };
}

constexpr SRow gsc_aoRows[] = {
    { eId_DiVersion, Byte(0x01), "Version", Number().Expect(1, eZorEdidRule_Version1Layout) },
    { eId_DiInterface, Byte(0x02), "Supported digital interface", Names(gsc_aoInterfaces), nullptr, CheckInterface },
    { eId_DiVersionKind, Bits(0x03, 7, 6), "Kind of interface version", Names(gsc_aoVersionKinds) },
    { eId_DiInterfaceVersion, Bits(0x03, 5, 0), "Version, whole", Number(), HasVersion },
    { eId_DiInterfaceVersionDecimals, Byte(0x04), "Version, decimals", Number(), HasVersion, CheckWithin<0, 99> },
    { eId_DiInterfaceRelease, Byte(0x05), "Release, whole", Number(), HasVersion },
    { eId_DiInterfaceReleaseDecimals, Byte(0x06), "Release, decimals", Number(), HasVersion, CheckWithin<0, 99> },
    { eId_DiInterfaceLetter, Byte(0x04), "Letter", Text(), HasLetter },
    { eId_DiInterfaceYear, Byte(0x04), "Year", Number().Times(1, 1990), HasDate },
    { eId_DiInterfaceMonth, Byte(0x05), "Month", Number(), HasDate, CheckWithin<1, 12> },
    { eId_DiInterfaceDay, Byte(0x06), "Day", Number(), HasDate, CheckWithin<1, 31> },
    { eId_Reserved, Bits(0x03, 5, 0), "Reserved", Reserved(), IsNot<HasVersion> },
    { eId_Reserved, Run(0x04, 3), "Reserved", Reserved(), HasNothing },
    { eId_Reserved, Run(0x05, 2), "Reserved", Reserved(), HasLetter },
    { eId_DiDataEnable, Bit(0x07, 7), "Data enable signal available", Flag() },
    { eId_DiDataEnablePolarity, Bit(0x07, 6), "Data enable polarity", Flag(gsc_aoPolarities), HasDataEnable },
    { eId_Reserved, Bit(0x07, 6), "Reserved", Reserved(), IsNot<HasDataEnable> },
    { eId_DiShiftClockEdge, Bits(0x07, 5, 4), "Edge of shift clock", Names(gsc_aoEdges) },
    { eId_DiHdcpSupported, Bit(0x07, 3), "HDCP supported", Flag() },
    { eId_DiDoubleClocking, Bit(0x07, 2), "Double clocking of input data", Flag() },
    { eId_DiPacketizedDigitalVideo, Bit(0x07, 1), "Packetized digital video", Flag() },
    { eId_Reserved, Bit(0x07, 0), "Reserved", Reserved() },
    { eId_DiDataFormat, Byte(0x08), "Data format", Names(gsc_aoDataFormats), IsNot<IsAnalog> },
    { eId_DiDataFormat, Byte(0x08), "Data format", Names(gsc_aoNoDataFormat), IsAnalog },
    { eId_DiMinPixelClock, Byte(0x09), "Minimum pixel clock per link", Number("MHz").With(gsc_aoByteNotGiven) },
    { eId_DiMaxPixelClock, Little16(0x0A), "Maximum pixel clock per link", Number("MHz").With(gsc_aoWordNotGiven),
      nullptr, CheckMaximumClock },
    { eId_DiCrossoverFrequency, Little16(0x0C), "Crossover frequency", Number("MHz").With(gsc_aoCrossovers) },
    { eId_DiSubPixelLayout, Byte(0x0E), "Sub-pixel layout", Names(gsc_aoLayouts) },
    { eId_DiSubPixelConfiguration, Byte(0x0F), "Sub-pixel configuration", Names(gsc_aoConfigurations) },
    { eId_DiSubPixelShape, Byte(0x10), "Sub-pixel shape", Names(gsc_aoShapes) },
    { eId_DiHorizontalPitch, Byte(0x11), "Horizontal dot or pixel pitch",
      Number("mm").Decimals(2).With(gsc_aoZeroNotGiven) },
    { eId_DiVerticalPitch, Byte(0x12), "Vertical dot or pixel pitch",
      Number("mm").Decimals(2).With(gsc_aoZeroNotGiven) },
    { eId_DiFixedPixelFormat, Bit(0x13, 7), "Fixed pixel format", Flag() },
    { eId_DiViewDirection, Bits(0x13, 6, 5), "View direction", Names(gsc_aoViewDirections) },
    { eId_DiTransparentBackground, Bit(0x13, 4), "Transparent background", Flag() },
    { eId_DiPhysicalImplementation, Bits(0x13, 3, 2), "Physical implementation", Names(gsc_aoImplementations) },
    { eId_DiDdcCi, Bit(0x13, 1), "DDC/CI", Flag() },
    { eId_Reserved, Bit(0x13, 0), "Reserved", Reserved() },
    { eId_DiLegacyModes, Bit(0x14, 7), "All VGA/DOS legacy modes supported", Flag() },
    { eId_DiStereoVideo, Bits(0x14, 6, 4), "Stereo video", Names(gsc_aoStereo) },
    { eId_DiScalerOnBoard, Bit(0x14, 3), "Scaler on board", Flag() },
    { eId_DiImageCentering, Bit(0x14, 2), "Image centering", Flag() },
    { eId_DiConditionalUpdate, Bit(0x14, 1), "Conditional update", Flag() },
    { eId_DiInterlacedVideo, Bit(0x14, 0), "Interlaced video", Flag() },
    { eId_DiFrameLock, Bit(0x15, 7), "Frame lock", Flag() },
    { eId_DiFrameRateConversion, Bits(0x15, 6, 5), "Frame rate conversion", Names(gsc_aoConversions) },
    { eId_Reserved, Bits(0x15, 4, 0), "Reserved", Reserved() },
    { eId_DiVerticalFrequency, Little16(0x16), "Vertical frequency",
      Number("Hz").Decimals(2).With(gsc_aoWordNotGiven) },
    { eId_DiHorizontalFrequency, Little16(0x18), "Horizontal frequency",
      Number("kHz").Decimals(2).With(gsc_aoWordNotGiven) },
    { eId_DiOrientationType, Bits(0x1A, 7, 6), "Orientation type", Names(gsc_aoOrientationTypes) },
    { eId_DiScreenOrientation, Bit(0x1A, 5), "Screen orientation", Flag(gsc_aoOrientations) },
    { eId_DiZeroPixelLocation, Bits(0x1A, 4, 3), "Zero pixel location", Names(gsc_aoZeroPixels) },
    { eId_DiScanDirection, Bits(0x1A, 2, 1), "Scan direction", Names(gsc_aoScanDirections) },
    { eId_DiStandaloneProjector, DisplayInformation::gsc_oStandaloneProjector, "Standalone projector", Flag() },
    { eId_DiDefaultDecoding, Byte(0x1B), "Default color / luminance decoding", Names(gsc_aoDecodings) },
    { eId_DiPreferredDecoder, Byte(0x1C), "Preferred color / luminance decoder", Names(gsc_aoDecoders) },
    { eId_DiDecodesBgr, Bit(0x1D, 7), "Decodes BGR", Flag() },
    { eId_DiDecodesYCNtsc, Bit(0x1D, 6), "Decodes Y/C NTSC", Flag() },
    { eId_DiDecodesYCPal, Bit(0x1D, 5), "Decodes Y/C PAL", Flag() },
    { eId_DiDecodesYCSecam, Bit(0x1D, 4), "Decodes Y/C SECAM", Flag() },
    { eId_DiDecodesYcrcb444Smpte293m, Bit(0x1D, 3), "Decodes YCrCb 4:4:4 SMPTE 293M and 294M", Flag() },
    { eId_DiDecodesYcrcb422Smpte293m, Bit(0x1D, 2), "Decodes YCrCb 4:2:2 SMPTE 293M and 294M", Flag() },
    { eId_DiDecodesYcrcb420Smpte293m, Bit(0x1D, 1), "Decodes YCrCb 4:2:0 SMPTE 293M and 294M", Flag() },
    { eId_DiDecodesYcrcbSmpte260m, Bit(0x1D, 0), "Decodes YCrCb SMPTE 260M", Flag() },
    { eId_DiDecodesYpbprSmpte240m, Bit(0x1E, 7), "Decodes YPbPr SMPTE 240M", Flag() },
    { eId_DiDecodesYcrcbSmpte274m, Bit(0x1E, 6), "Decodes YCrCb SMPTE 274M", Flag() },
    { eId_DiDecodesYpbprSmpte274m, Bit(0x1E, 5), "Decodes YPbPr SMPTE 274M", Flag() },
    { eId_DiDecodesYBYRYBetacam, Bit(0x1E, 4), "Decodes Y B-Y R-Y BetaCam", Flag() },
    { eId_DiDecodesYBYRYM2, Bit(0x1E, 3), "Decodes Y B-Y R-Y M-2", Flag() },
    { eId_DiDecodesMonochrome, Bit(0x1E, 2), "Decodes monochrome", Flag() },
    { eId_Reserved, Bits(0x1E, 1, 0), "Reserved", Reserved() },
    { eId_DiDithering, Bit(0x1F, 7), "Dithering", Flag() },
    { eId_Reserved, Bits(0x1F, 6, 0), "Reserved", Reserved() },
    DepthRow(eId_DiDepthBlue, 0x20, "Color depth, sub-channel 0, blue"),
    DepthRow(eId_DiDepthGreen, 0x21, "Color depth, sub-channel 1, green"),
    DepthRow(eId_DiDepthRed, 0x22, "Color depth, sub-channel 2, red"),
    DepthRow(eId_DiDepthCb, 0x23, "Color depth, sub-channel 0, Cb/Pb"),
    DepthRow(eId_DiDepthY, 0x24, "Color depth, sub-channel 1, Y"),
    DepthRow(eId_DiDepthCr, 0x25, "Color depth, sub-channel 2, Cr/Pr"),
    { eId_DiAspectConversionFull, Bit(0x26, 7), "Aspect conversion: full", Flag() },
    { eId_DiAspectConversionZoom, Bit(0x26, 6), "Aspect conversion: zoom", Flag() },
    { eId_DiAspectConversionSqueeze, Bit(0x26, 5), "Aspect conversion: squeeze", Flag() },
    { eId_DiAspectConversionVariable, Bit(0x26, 4), "Aspect conversion: variable", Flag() },
    { eId_Reserved, Bits(0x26, 3, 0), "Reserved", Reserved() },
    { eId_Reserved, Run(0x27, 42), "Reserved", Reserved() },
    { eId_DiTransfer, Bits(0x51, 7, 6), "Transfer characteristics (gamma)", Names(gsc_aoCurves) },
    { eId_DiTransferEntries, Bits(0x51, 5, 0), "Number of entries", Number(), nullptr, CheckEntries },
    { eId_DiCurveWhite, Run(0x52, 45), "White curve", Bytes(), HasWhiteCurve },
    { eId_DiCurveBlue, Run(0x52, 15), "Sub-channel 0 (blue) curve", Bytes(), HasColourCurves },
    { eId_DiCurveGreen, Run(0x61, 15), "Sub-channel 1 (green) curve", Bytes(), HasColourCurves },
    { eId_DiCurveRed, Run(0x70, 15), "Sub-channel 2 (red) curve", Bytes(), HasColourCurves },
    { eId_Reserved, Run(0x52, 45), "Reserved", Reserved(), HasNoCurves },
};
constexpr STable gsc_oTable = { eId_Di, "Display information", eArea_Display, gsc_aoRows };
} // namespace

void MapDisplayInformation(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.AddRows(gsc_oTable, uiOffset, uiLength);
}

void VisitDisplayInformationIds(CIdVisitor& oVisitor) { oVisitor.Visit(gsc_oTable); }
} // namespace ZorMap
