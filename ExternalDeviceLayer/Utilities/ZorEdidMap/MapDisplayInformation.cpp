// The display information extension block (DI-EXT): interface, pixels and colour decoding of a display. Called by
// MapOther.cpp.

#include "MapForms.h"
#include "MapNames.h"
#include "MapOther.h"

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

const char* CheckInterface(const CRecord& oBlock, unsigned int /*uiInterface*/)
{
    bool bSet = false;
    for (unsigned int i = 0x03; i <= 0x0D; ++i)
    {
        bSet = bSet || oBlock.GetByte(i) != 0;
    }
    return IsAnalog(oBlock) && bSet ? "bytes 03h to 0Dh describe a digital interface" : nullptr;
}

const char* CheckMaximumClock(const CRecord& oBlock, unsigned int uiClock)
{
    return uiClock != 0 ? CheckAtLeast(oBlock.GetByte(0x09), uiClock) : nullptr;
}

const char* CheckEntries(const CRecord& oBlock, unsigned int uiEntries)
{
    return HasWhiteCurve(oBlock)     ? CheckWithin<1, 45>(oBlock, uiEntries)
           : HasColourCurves(oBlock) ? CheckWithin<1, 15>(oBlock, uiEntries)
                                     : nullptr;
}

constexpr SRow DepthRow(unsigned int uiOffset, const char* pszName)
{
    return { Byte(uiOffset), pszName, Number("bits").With(gsc_aoZeroNotGiven), nullptr, CheckWithin<0, 16> };
}

constexpr SRow gsc_aoRows[] = {
    { Byte(0x01), "Version", Number().Expect(1, "only version 1 has this layout") },
    { Byte(0x02), "Supported digital interface", Names(gsc_aoInterfaces), nullptr, CheckInterface },
    { Bits(0x03, 7, 6), "Kind of interface version", Names(gsc_aoVersionKinds) },
    { Bits(0x03, 5, 0), "Version, whole", Number(), HasVersion },
    { Byte(0x04), "Version, decimals", Number(), HasVersion, CheckWithin<0, 99> },
    { Byte(0x05), "Release, whole", Number(), HasVersion },
    { Byte(0x06), "Release, decimals", Number(), HasVersion, CheckWithin<0, 99> },
    { Byte(0x04), "Letter", Text(), HasLetter },
    { Byte(0x04), "Year", Number().Times(1, 1990), HasDate },
    { Byte(0x05), "Month", Number(), HasDate, CheckWithin<1, 12> },
    { Byte(0x06), "Day", Number(), HasDate, CheckWithin<1, 31> },
    { Bits(0x03, 5, 0), "Reserved", Reserved(), IsNot<HasVersion> },
    { Run(0x04, 3), "Reserved", Reserved(), HasNothing },
    { Run(0x05, 2), "Reserved", Reserved(), HasLetter },
    { Bit(0x07, 7), "Data enable signal available", Flag() },
    { Bit(0x07, 6), "Data enable polarity", Flag(gsc_aoPolarities), HasDataEnable },
    { Bit(0x07, 6), "Reserved", Reserved(), IsNot<HasDataEnable> },
    { Bits(0x07, 5, 4), "Edge of shift clock", Names(gsc_aoEdges) },
    { Bit(0x07, 3), "HDCP supported", Flag() },
    { Bit(0x07, 2), "Double clocking of input data", Flag() },
    { Bit(0x07, 1), "Packetized digital video", Flag() },
    { Bit(0x07, 0), "Reserved", Reserved() },
    { Byte(0x08), "Data format", Names(gsc_aoDataFormats), IsNot<IsAnalog> },
    { Byte(0x08), "Data format", Names(gsc_aoNoDataFormat), IsAnalog },
    { Byte(0x09), "Minimum pixel clock per link", Number("MHz").With(gsc_aoByteNotGiven) },
    { Little16(0x0A), "Maximum pixel clock per link", Number("MHz").With(gsc_aoWordNotGiven), nullptr,
      CheckMaximumClock },
    { Little16(0x0C), "Crossover frequency", Number("MHz").With(gsc_aoCrossovers) },
    { Byte(0x0E), "Sub-pixel layout", Names(gsc_aoLayouts) },
    { Byte(0x0F), "Sub-pixel configuration", Names(gsc_aoConfigurations) },
    { Byte(0x10), "Sub-pixel shape", Names(gsc_aoShapes) },
    { Byte(0x11), "Horizontal dot or pixel pitch", Number("mm").Decimals(2).With(gsc_aoZeroNotGiven) },
    { Byte(0x12), "Vertical dot or pixel pitch", Number("mm").Decimals(2).With(gsc_aoZeroNotGiven) },
    { Bit(0x13, 7), "Fixed pixel format", Flag() },
    { Bits(0x13, 6, 5), "View direction", Names(gsc_aoViewDirections) },
    { Bit(0x13, 4), "Transparent background", Flag() },
    { Bits(0x13, 3, 2), "Physical implementation", Names(gsc_aoImplementations) },
    { Bit(0x13, 1), "DDC/CI", Flag() },
    { Bit(0x13, 0), "Reserved", Reserved() },
    { Bit(0x14, 7), "All VGA/DOS legacy modes supported", Flag() },
    { Bits(0x14, 6, 4), "Stereo video", Names(gsc_aoStereo) },
    { Bit(0x14, 3), "Scaler on board", Flag() },
    { Bit(0x14, 2), "Image centering", Flag() },
    { Bit(0x14, 1), "Conditional update", Flag() },
    { Bit(0x14, 0), "Interlaced video", Flag() },
    { Bit(0x15, 7), "Frame lock", Flag() },
    { Bits(0x15, 6, 5), "Frame rate conversion", Names(gsc_aoConversions) },
    { Bits(0x15, 4, 0), "Reserved", Reserved() },
    { Little16(0x16), "Vertical frequency", Number("Hz").Decimals(2).With(gsc_aoWordNotGiven) },
    { Little16(0x18), "Horizontal frequency", Number("kHz").Decimals(2).With(gsc_aoWordNotGiven) },
    { Bits(0x1A, 7, 6), "Orientation type", Names(gsc_aoOrientationTypes) },
    { Bit(0x1A, 5), "Screen orientation", Flag(gsc_aoOrientations) },
    { Bits(0x1A, 4, 3), "Zero pixel location", Names(gsc_aoZeroPixels) },
    { Bits(0x1A, 2, 1), "Scan direction", Names(gsc_aoScanDirections) },
    { Bit(0x1A, 0), "Standalone projector", Flag() },
    { Byte(0x1B), "Default color / luminance decoding", Names(gsc_aoDecodings) },
    { Byte(0x1C), "Preferred color / luminance decoder", Names(gsc_aoDecoders) },
    { Bit(0x1D, 7), "Decodes BGR", Flag() },
    { Bit(0x1D, 6), "Decodes Y/C NTSC", Flag() },
    { Bit(0x1D, 5), "Decodes Y/C PAL", Flag() },
    { Bit(0x1D, 4), "Decodes Y/C SECAM", Flag() },
    { Bit(0x1D, 3), "Decodes YCrCb 4:4:4 SMPTE 293M and 294M", Flag() },
    { Bit(0x1D, 2), "Decodes YCrCb 4:2:2 SMPTE 293M and 294M", Flag() },
    { Bit(0x1D, 1), "Decodes YCrCb 4:2:0 SMPTE 293M and 294M", Flag() },
    { Bit(0x1D, 0), "Decodes YCrCb SMPTE 260M", Flag() },
    { Bit(0x1E, 7), "Decodes YPbPr SMPTE 240M", Flag() },
    { Bit(0x1E, 6), "Decodes YCrCb SMPTE 274M", Flag() },
    { Bit(0x1E, 5), "Decodes YPbPr SMPTE 274M", Flag() },
    { Bit(0x1E, 4), "Decodes Y B-Y R-Y BetaCam", Flag() },
    { Bit(0x1E, 3), "Decodes Y B-Y R-Y M-2", Flag() },
    { Bit(0x1E, 2), "Decodes monochrome", Flag() },
    { Bits(0x1E, 1, 0), "Reserved", Reserved() },
    { Bit(0x1F, 7), "Dithering", Flag() },
    { Bits(0x1F, 6, 0), "Reserved", Reserved() },
    DepthRow(0x20, "Color depth, sub-channel 0, blue"),
    DepthRow(0x21, "Color depth, sub-channel 1, green"),
    DepthRow(0x22, "Color depth, sub-channel 2, red"),
    DepthRow(0x23, "Color depth, sub-channel 0, Cb/Pb"),
    DepthRow(0x24, "Color depth, sub-channel 1, Y"),
    DepthRow(0x25, "Color depth, sub-channel 2, Cr/Pr"),
    { Bit(0x26, 7), "Aspect conversion: full", Flag() },
    { Bit(0x26, 6), "Aspect conversion: zoom", Flag() },
    { Bit(0x26, 5), "Aspect conversion: squeeze", Flag() },
    { Bit(0x26, 4), "Aspect conversion: variable", Flag() },
    { Bits(0x26, 3, 0), "Reserved", Reserved() },
    { Run(0x27, 42), "Reserved", Reserved() },
    { Bits(0x51, 7, 6), "Transfer characteristics (gamma)", Names(gsc_aoCurves) },
    { Bits(0x51, 5, 0), "Number of entries", Number(), nullptr, CheckEntries },
    { Run(0x52, 45), "White curve", Bytes(), HasWhiteCurve },
    { Run(0x52, 15), "Sub-channel 0 (blue) curve", Bytes(), HasColourCurves },
    { Run(0x61, 15), "Sub-channel 1 (green) curve", Bytes(), HasColourCurves },
    { Run(0x70, 15), "Sub-channel 2 (red) curve", Bytes(), HasColourCurves },
    { Run(0x52, 45), "Reserved", Reserved(), HasNoCurves },
};
constexpr STable gsc_oTable = { "Display information", CZorEdidMap::eArea_Display, gsc_aoRows };
} // namespace

void MapDisplayInformation(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    oWriter.AddRows(gsc_oTable, uiOffset, uiLength);
}
} // namespace ZorMap
