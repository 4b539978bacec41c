// What a DisplayID section says about the product: identity, size, colours, device. The blocks of both versions.

#include "MapDisplayId.h"
#include "MapValue.h"
#include "Standards/DisplayIdBlocks.h"

namespace ZorMap
{
namespace
{
using CMap = CZorEdidMap;

// ---- Product identification, DisplayID 1.3 (tag 0) and 2.0 (tag 20h): 12 bytes and a text ----

constexpr SMeaning gsc_aoWeeks[] = { { 0, 0, "not given" }, { 0xFF, 0xFF, "the year is the model year" } };
constexpr unsigned int gsc_uiProductSize = 12;
using DisplayId::gsc_uiModelYear;
using DisplayId::gsc_uiProductTextLengthOffset;
using DisplayId::gsc_uiProductTextOffset;

SBreach CheckWeek(const CRecord& /*oBlock*/, unsigned int uiWeek)
{
    return uiWeek > 53 && uiWeek != gsc_uiModelYear ? eZorEdidRule_DisplayIdWeek : eZorEdidRule_None;
}

SBreach CheckTextLength(const CRecord& oBlock, unsigned int uiLength)
{
    const unsigned int uiRoom = std::max(oBlock.GetSize(), gsc_uiProductTextOffset) - gsc_uiProductTextOffset;
    return uiLength != uiRoom ? SBreach(eZorEdidRule_DisplayIdContradiction, uiRoom, uiRoom) : gsc_oNoBreach;
}

constexpr SRow gsc_oVendorPnp = LettersRow<3>(eId_DisplayidProductVendor, "Manufacturer/vendor ID");
constexpr SRow gsc_oVendorOui = { eId_DisplayidProductVendor, DisplayId::gsc_oVendorOui, "Manufacturer/vendor ID",
                                  Oui() };

constexpr auto ProductRows(const SRow& oVendor)
{
    return std::to_array<SRow>({
        oVendor,
        { eId_DisplayidProductProductCode, DisplayId::gsc_oProductCode, "Product ID code", Number() },
        { eId_DisplayidProductSerialNumber, DisplayId::gsc_oProductSerial, "Serial number",
          Number().With(gsc_aoZeroNotGiven) },
        { eId_DisplayidProductWeek, DisplayId::gsc_oProductWeek, "Week of manufacture", Number().With(gsc_aoWeeks),
          nullptr, CheckWeek },
        { eId_DisplayidProductYear, DisplayId::gsc_oProductYear, "Year of manufacture or model year",
          Number().Times(1, 2000) },
        { eId_DisplayidProductNameSize, Byte(gsc_uiProductTextLengthOffset), "Product ID string size", Number("bytes"),
          nullptr, CheckTextLength },
    });
}
constexpr auto gsc_aoProduct1Rows = ProductRows(gsc_oVendorPnp);
constexpr auto gsc_aoProduct2Rows = ProductRows(gsc_oVendorOui);
constexpr STable gsc_oProduct1 = { eId_DisplayidProduct, "Product identification", eArea_Identity, gsc_aoProduct1Rows };
constexpr STable gsc_oProduct2 = { eId_DisplayidProduct, "Product identification", eArea_Identity, gsc_aoProduct2Rows };

constexpr SRow gsc_oProductText = {
    eId_DisplayidProductName, RunToEnd(0), "Product ID string", Text(), nullptr, CheckAscii<0>
};

void MapProductText(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    const unsigned int uiLeft =
        oBlock.GetSize() > gsc_uiProductTextOffset ? oBlock.GetSize() - gsc_uiProductTextOffset : 0;
    const unsigned int uiDeclared = oBlock.GetByte(gsc_uiProductTextLengthOffset);
    oWriter.AddLeaf(gsc_oProductText, eArea_Identity, uiOffset + gsc_uiProductTextOffset,
                    uiDeclared < uiLeft ? uiDeclared : uiLeft);
}

// ---- Texts, DisplayID 1.3 (tags 0Ah and 0Bh); container ID, DisplayID 2.0 (tag 29h) ----

constexpr SRow gsc_aoSerialRows[] = { { eId_DisplayidSerialSerialNumber, RunToEnd(3), "Serial number", Text(), nullptr,
                                        CheckAscii<3> } };
constexpr STable gsc_oSerial = { eId_DisplayidSerial, "Serial number", eArea_Identity, gsc_aoSerialRows };

constexpr SRow gsc_aoStringRows[] = { { eId_DisplayidStringText, RunToEnd(3), "String", Text(), nullptr,
                                        CheckAscii<3> } };
constexpr STable gsc_oString = { eId_DisplayidString, "String", eArea_Identity, gsc_aoStringRows };

constexpr SRow gsc_aoContainerIdRows[] = { ContainerIdRow<gsc_uiPayloadOffset>(eId_DisplayidContainerId) };
constexpr STable gsc_oContainerId = { eId_DisplayidContainer, "ContainerID", eArea_Identity, gsc_aoContainerIdRows };

// ---- Luminances: IEEE 754 half precision, in cd/m2 ----

constexpr unsigned int gsc_uiLuminanceDecimals = 6;
constexpr unsigned int gsc_uiHalfSign = 0x8000;
using DisplayId::gsc_uiHalfInfinite; // from here on no number

// In 10^-6 cd/m2.
long long GetLuminance(const CRecord& /*oBlock*/, unsigned int uiHalf)
{
    return static_cast<long long>(DisplayId::HalfInMillionths(uiHalf));
}

constexpr auto Luminances(const char* pszSign)
{
    return std::to_array<SMeaning>({ { gsc_uiHalfInfinite, gsc_uiHalfSign - 1, "no number" },
                                     { gsc_uiHalfSign, gsc_uiHalfSign, pszSign },
                                     { gsc_uiHalfSign + 1, 0xFFFF, "no number" } });
}
constexpr auto gsc_aoLuminances = Luminances("not given");
constexpr auto gsc_aoLeastSdr = Luminances("do not use");

// Without zeros at the end: "400 cd/m2".
template <const auto& MEANINGS>
CMString LuminanceText(const CRecord& oBlock, unsigned int uiHalf)
{
    if (const char* pszName = FindMeaning(MEANINGS, uiHalf))
    {
        return pszName;
    }
    long long llLuminance = GetLuminance(oBlock, uiHalf);
    unsigned int uiDecimals = gsc_uiLuminanceDecimals;
    for (; uiDecimals != 0 && llLuminance % 10 == 0; llLuminance /= 10)
    {
        --uiDecimals;
    }
    return FormatNumber(llLuminance, uiDecimals, "cd/m2");
}

SBreach CheckLuminance(const CRecord& /*oBlock*/, unsigned int uiHalf)
{
    return uiHalf >= gsc_uiHalfInfinite && uiHalf != gsc_uiHalfSign ? eZorEdidRule_DisplayIdLuminance
                                                                    : eZorEdidRule_None;
}

template <const auto& MEANINGS = gsc_aoLuminances>
constexpr SRow LuminanceRow(EZorEdidField eId, unsigned int uiOffset, const char* pszName)
{
    return { eId,
             Little16(uiOffset),
             pszName,
             Number("cd/m2")
                 .Decimals(gsc_uiLuminanceDecimals)
                 .Computed(GetLuminance)
                 .With(MEANINGS)
                 .Text(LuminanceText<MEANINGS>),
             nullptr,
             CheckLuminance };
}

// ---- Brightness luminance range, DisplayID 2.1 (tag 2Eh): 6 bytes ----

constexpr SRow gsc_aoBrightnessRows[] = {
    LuminanceRow<gsc_aoLeastSdr>(eId_DisplayidBrightnessMinSdrLuminance, DisplayId::gsc_uiMinSdrLuminanceOffset,
                                 "Minimum SDR luminance, full coverage"),
    LuminanceRow(eId_DisplayidBrightnessMaxSdrLuminance, DisplayId::gsc_uiMaxSdrLuminanceOffset,
                 "Maximum suggested SDR luminance, full coverage"),
    LuminanceRow(eId_DisplayidBrightnessMaxBoostLuminance, DisplayId::gsc_uiMaxBoostLuminanceOffset,
                 "Maximum boost SDR luminance"),
};
constexpr STable gsc_oBrightness = { eId_DisplayidBrightness, "Brightness luminance range", eArea_Colour,
                                     gsc_aoBrightnessRows };

// ---- Display parameters, DisplayID 1.3 (tag 1): 12 bytes ----

// Of two sizes both are given or none.
template <unsigned int OTHER>
SBreach CheckPair(const CRecord& oBlock, unsigned int uiSize)
{
    return uiSize == 0 && oBlock.Get(Little16(OTHER)) != 0 ? eZorEdidRule_DisplayIdPair : eZorEdidRule_None;
}

// Horizontal and vertical sizes, the words at 03h to 09h of both versions.
constexpr SRow WidthRow(const SForm& oForm, bool (*pfnApplies)(const CRecord&) = nullptr)
{
    return { eId_DisplayidParametersImageWidth,
             DisplayId::gsc_oImageWidth,
             "Horizontal image size",
             oForm.With(gsc_aoZeroNotGiven),
             pfnApplies,
             CheckPair<0x05> };
}
constexpr SRow HeightRow(const SForm& oForm, bool (*pfnApplies)(const CRecord&) = nullptr)
{
    return { eId_DisplayidParametersImageHeight,
             DisplayId::gsc_oImageHeight,
             "Vertical image size",
             oForm.With(gsc_aoZeroNotGiven),
             pfnApplies,
             CheckPair<0x03> };
}
constexpr SRow gsc_oPixelsRow = { eId_DisplayidParametersHorizontalPixels,
                                  DisplayId::gsc_oHorizontalPixels,
                                  "Horizontal pixel count",
                                  Number("pixels").With(gsc_aoZeroNotGiven),
                                  nullptr,
                                  CheckPair<0x09> };
constexpr SRow gsc_oLinesRow = { eId_DisplayidParametersVerticalPixels,
                                 DisplayId::gsc_oVerticalPixels,
                                 "Vertical pixel count",
                                 Number("lines").With(gsc_aoZeroNotGiven),
                                 nullptr,
                                 CheckPair<0x07> };

constexpr SRow gsc_aoParameters1Rows[] = {
    WidthRow(Number("mm").Decimals(1)),
    HeightRow(Number("mm").Decimals(1)),
    gsc_oPixelsRow,
    gsc_oLinesRow,
    { eId_DisplayidParametersAudioSupport, DisplayId::gsc_oAudioSupport, "Audio support on video interface", Flag() },
    { eId_DisplayidParametersSeparateAudioInputs, Bit(0x0B, 6), "Separate audio inputs", Flag() },
    { eId_DisplayidParametersAudioInputOverride, Bit(0x0B, 5), "Audio input override", Flag() },
    { eId_DisplayidParametersPowerManagement, Bit(0x0B, 4), "Power management", Flag() },
    { eId_DisplayidParametersFixedTiming, Bit(0x0B, 3), "Fixed timing", Flag() },
    { eId_DisplayidParametersFixedPixelFormat, Bit(0x0B, 2), "Fixed pixel format", Flag() },
    { eId_DisplayidParametersAcpIsrc, Bit(0x0B, 1), "ACP, ISRC1 or ISRC2 packets supported", Flag() },
    { eId_DisplayidParametersDeinterlacing, Bit(0x0B, 0), "De-interlacing", Flag() },
};

// "699.4 x 393.4 mm"
CMString SizeText(const CRecord& oBlock, unsigned int uiDecimals)
{
    const unsigned int uiWidth = oBlock.Get(DisplayId::gsc_oImageWidth);
    const unsigned int uiHeight = oBlock.Get(DisplayId::gsc_oImageHeight);
    if (uiWidth == 0 || uiHeight == 0)
    {
        return "size not given";
    }
    return FormatNumber(uiWidth, uiDecimals, "x ") + FormatNumber(uiHeight, uiDecimals, "mm");
}
CMString Parameters1Text(const CRecord& oBlock) { return SizeText(oBlock, 1); }
constexpr STable gsc_oParameters1 = { eId_DisplayidParameters, "Display parameters", eArea_Display,
                                      gsc_aoParameters1Rows };

constexpr SRow gsc_aoParameters1ColourRows[] = {
    { eId_DisplayidParametersGamma, DisplayId::gsc_oGamma, "Transfer characteristic gamma",
      HundredthsFrom1().With(gsc_aoFFNotGiven) },
    { eId_DisplayidParametersAspectRatio, DisplayId::gsc_oAspectRatio, "Aspect ratio", HundredthsFrom1() },
    { eId_DisplayidParametersOverallBitDepth, DisplayId::gsc_oOverallBitDepth, "Color bit depth, overall",
      NumberFrom1("bits per color") },
    { eId_DisplayidParametersNativeBitDepth, DisplayId::gsc_oNativeBitDepth, "Color bit depth, native",
      NumberFrom1("bits per color") },
};
constexpr STable gsc_oParameters1Colour = { eId_DisplayidParameters, "Display parameters", eArea_Colour,
                                            gsc_aoParameters1ColourRows };

// ---- Display parameters, DisplayID 2.0 (tag 21h): 29 bytes ----

constexpr auto gsc_aoScanOrientations =
    Listed({ "left to right, top to bottom", "right to left, top to bottom", "top to bottom, right to left",
             "bottom to top, right to left", "right to left, bottom to top", "left to right, bottom to top",
             "bottom to top, left to right", "top to bottom, left to right" });
constexpr auto gsc_aoLuminanceKinds =
    Listed({ "minimum guaranteed value", "guidance for the source device", gsc_szReserved, gsc_szReserved });
constexpr auto gsc_aoChromaticityKinds = Listed({ "CIE 1931 (x, y)", "CIE 1976 (u', v')" });
constexpr auto gsc_aoSpeakers = Listed({ "integrated", "not integrated" });
constexpr auto gsc_aoDepths = Listed({ "not defined", "6 bits per color", "8 bits per color", "10 bits per color",
                                       "12 bits per color", "16 bits per color", gsc_szReserved, gsc_szReserved });
constexpr SMeaning gsc_aoTechnologies2[] = {
    { 0, 0, "not specified" }, { 1, 1, "active matrix LCD" }, { 2, 2, "organic LED" }, { 3, 7, gsc_szReserved }
};
constexpr auto gsc_aoThemes = Listed({ "no preference", "dark theme preferred" });

constexpr auto HasMillimetres = WhereSet<gsc_uiDataBlockFlagsOffset, 7>;
constexpr auto HasTenths = IsNot<HasMillimetres>;

constexpr SRow gsc_aoParameters2FlagRows[] = {
    { eId_DisplayidParameters2SizePrecision, DisplayId::gsc_oSizeInMillimetres, "Image size precision",
      Flag(gsc_aoPrecisions) },
    { eId_Reserved, Bits(1, 6, 3), "Reserved", Reserved() },
};
constexpr STable gsc_oParameters2Flags = { eId_DisplayidParameters2, "Flags", eArea_Display,
                                           gsc_aoParameters2FlagRows };

constexpr SRow gsc_aoParameters2Rows[] = {
    WidthRow(Number("mm").Decimals(1), HasTenths),
    WidthRow(Number("mm"), HasMillimetres),
    HeightRow(Number("mm").Decimals(1), HasTenths),
    HeightRow(Number("mm"), HasMillimetres),
    gsc_oPixelsRow,
    gsc_oLinesRow,
    { eId_DisplayidParameters2AudioSpeakers, DisplayId::gsc_oSpeakersNotIntegrated, "Audio speakers",
      Flag(gsc_aoSpeakers) },
    { eId_DisplayidParameters2ColorInformation, DisplayId::gsc_oChromaticityIn1976, "Color information",
      Flag(gsc_aoChromaticityKinds) },
    { eId_Reserved, Bit(0x0B, 5), "Reserved", Reserved() },
    { eId_DisplayidParameters2LuminanceInformation, DisplayId::gsc_oLuminanceInformation, "Luminance information",
      Names(gsc_aoLuminanceKinds) },
    { eId_DisplayidParameters2ScanOrientation, DisplayId::gsc_oScanOrientation, "Scan orientation",
      Names(gsc_aoScanOrientations) },
};
CMString Parameters2Text(const CRecord& oBlock) { return SizeText(oBlock, HasTenths(oBlock) ? 1 : 0); }
constexpr STable gsc_oParameters2 = { eId_DisplayidParameters2, "Display parameters", eArea_Display,
                                      gsc_aoParameters2Rows };

using DisplayId::gsc_uiCoordinatesSize;

// Coordinates of 12 bits, two in three bytes.
constexpr SRow FirstCoordinateRow(EZorEdidField eId, unsigned int uiOffset, const char* pszName)
{
    return { eId, DisplayId::FirstCoordinate(uiOffset), pszName, Fraction(nullptr, 4096) };
}
constexpr SRow SecondCoordinateRow(EZorEdidField eId, unsigned int uiOffset, const char* pszName)
{
    return { eId, DisplayId::SecondCoordinate(uiOffset), pszName, Fraction(nullptr, 4096) };
}

constexpr SRow gsc_aoParameters2ColourRows[] = {
    FirstCoordinateRow(eId_DisplayidParameters2Primary1X, DisplayId::gsc_uiPrimariesOffset, "Primary color 1 x"),
    SecondCoordinateRow(eId_DisplayidParameters2Primary1Y, DisplayId::gsc_uiPrimariesOffset, "Primary color 1 y"),
    FirstCoordinateRow(eId_DisplayidParameters2Primary2X, DisplayId::gsc_uiPrimariesOffset + gsc_uiCoordinatesSize,
                       "Primary color 2 x"),
    SecondCoordinateRow(eId_DisplayidParameters2Primary2Y, DisplayId::gsc_uiPrimariesOffset + gsc_uiCoordinatesSize,
                        "Primary color 2 y"),
    FirstCoordinateRow(eId_DisplayidParameters2Primary3X, DisplayId::gsc_uiPrimariesOffset + 2 * gsc_uiCoordinatesSize,
                       "Primary color 3 x"),
    SecondCoordinateRow(eId_DisplayidParameters2Primary3Y, DisplayId::gsc_uiPrimariesOffset + 2 * gsc_uiCoordinatesSize,
                        "Primary color 3 y"),
    FirstCoordinateRow(eId_DisplayidParameters2WhitePointX,
                       DisplayId::gsc_uiPrimariesOffset + 3 * gsc_uiCoordinatesSize, "White point x"),
    SecondCoordinateRow(eId_DisplayidParameters2WhitePointY,
                        DisplayId::gsc_uiPrimariesOffset + 3 * gsc_uiCoordinatesSize, "White point y"),
    LuminanceRow(eId_DisplayidParameters2MaxLuminanceFull, DisplayId::gsc_uiMaxLuminanceFullOffset,
                 "Maximum luminance, full coverage"),
    LuminanceRow(eId_DisplayidParameters2MaxLuminance10Percent, DisplayId::gsc_uiMaxLuminance10PercentOffset,
                 "Maximum luminance, 10% rectangular coverage"),
    LuminanceRow(eId_DisplayidParameters2MinLuminance, DisplayId::gsc_uiMinLuminanceOffset, "Minimum luminance"),
    { eId_DisplayidParameters2Theme, Bit(0x1E, 7), "Device theme preference", Flag(gsc_aoThemes), IsRevision1Plus },
    { eId_Reserved, Bit(0x1E, 7), "Reserved", Reserved(), IsRevision0 },
    { eId_DisplayidParameters2Technology, DisplayId::gsc_oTechnology2, "Display device technology",
      Names(gsc_aoTechnologies2) },
    { eId_Reserved, Bit(0x1E, 3), "Reserved", Reserved() },
    { eId_DisplayidParameters2NativeBitDepth, DisplayId::gsc_oNativeBitDepth2, "Color bit depth, native",
      Names(gsc_aoDepths) },
    { eId_DisplayidParameters2GammaEotf, DisplayId::gsc_oGamma2, "Gamma EOTF, native",
      HundredthsFrom1().With(gsc_aoFFNotGiven) },
};
constexpr STable gsc_oParameters2Colour = { eId_DisplayidParameters2, "Display parameters", eArea_Colour,
                                            gsc_aoParameters2ColourRows };

// ---- Color characteristics, DisplayID 1.3 (tag 2) ----

constexpr auto gsc_aoMixings = Listed({ "spatial", "temporal" });
constexpr SMeaning gsc_aoNoPrimaries[] = { { 0, 0, "none, a standard color space" } };
constexpr auto gsc_aoColourSpaces = ListedTo(
    255, { "sRGB", "BT.601", "BT.709", "Adobe RGB", "DCI-P3", "NTSC", "EBU", "Adobe wide gamut RGB", "DICOM" });

constexpr SRow gsc_aoColourFlagRows[] = {
    { eId_DisplayidColorChromaticityCoordinates, DisplayId::gsc_oColourIn1976, "Chromaticity coordinates",
      Flag(gsc_aoChromaticityKinds) },
    { eId_DisplayidColorTransferBlock, Bits(1, 6, 3), "Transfer characteristics data block",
      Number().With(gsc_aoZeroNone) },
};
constexpr STable gsc_oColourFlags = { eId_DisplayidColor, "Flags", eArea_Colour, gsc_aoColourFlagRows };

bool HasStandardColourSpace(const CRecord& oBlock) { return oBlock.GetBits(3, 6, 4) == 0; }

SBreach CheckPoints(const CRecord& oBlock, unsigned int uiWhitePoints)
{
    const unsigned int uiFixed = HasStandardColourSpace(oBlock) ? 2 : 1;
    const unsigned int uiPoints = oBlock.GetBits(3, 6, 4) + uiWhitePoints;
    return uiFixed + uiPoints * gsc_uiCoordinatesSize != GetPayloadLength(oBlock) ? eZorEdidRule_DisplayIdContradiction
                                                                                  : eZorEdidRule_None;
}

constexpr SRow gsc_aoColourRows[] = {
    { eId_DisplayidColorMixing, Bit(3, 7), "Color mixing", Flag(gsc_aoMixings) },
    { eId_DisplayidColorPrimaryCount, DisplayId::gsc_oPrimaryCount, "Number of primaries",
      Number().With(gsc_aoNoPrimaries) },
    { eId_DisplayidColorWhitePointCount, DisplayId::gsc_oWhitePointCount, "Number of white points", Number(), nullptr,
      CheckPoints },
    { eId_DisplayidColorStandardColorSpace, DisplayId::gsc_oStandardColorSpace, "Standard color space",
      Names(gsc_aoColourSpaces), HasStandardColourSpace },
};
constexpr STable gsc_oColour = { eId_DisplayidColor, "Color characteristics", eArea_Colour, gsc_aoColourRows };

constexpr SRow gsc_aoCoordinateRows[] = { FirstCoordinateRow(eId_DisplayidColorX, 0, "x"),
                                          SecondCoordinateRow(eId_DisplayidColorY, 0, "y") };

// "0.6396, 0.3300"
CMString CoordinatesText(const CRecord& oRecord)
{
    const auto fnText = [&](const SRow& oRow) {
        return FormatNumber(ComputeNumber(oRow.m_oForm, oRecord.Get(oRow.m_oPlace), 0), oRow.m_oForm.m_uiDecimals,
                            nullptr);
    };
    return fnText(gsc_aoCoordinateRows[0]) + ", " + fnText(gsc_aoCoordinateRows[1]);
}
constexpr STable gsc_oPrimary = { eId_DisplayidColorPrimary, "Primary", eArea_Colour, gsc_aoCoordinateRows,
                                  CoordinatesText };
constexpr STable gsc_oWhitePoint = { eId_DisplayidColorWhitePoint, "White point", eArea_Colour, gsc_aoCoordinateRows,
                                     CoordinatesText };

void MapCoordinates(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    const unsigned int uiPrimaries = oBlock.GetBits(3, 6, 4) * gsc_uiCoordinatesSize;
    const unsigned int uiWhitePoints = oBlock.GetBits(3, 3, 0) * gsc_uiCoordinatesSize;
    const unsigned int uiFirst = uiOffset + (HasStandardColourSpace(oBlock) ? 5 : 4);
    oWriter.AddItems(gsc_oPrimary, uiFirst, uiPrimaries, gsc_uiCoordinatesSize);
    oWriter.AddItems(gsc_oWhitePoint, uiFirst + uiPrimaries, uiWhitePoints, gsc_uiCoordinatesSize);
}

// ---- Display device data, DisplayID 1.3 (tag 0Ch): 13 bytes ----

constexpr SMeaning gsc_aoTechnologies1[] = {
    { 0x00, 0x00, "monochrome CRT" },
    { 0x01, 0x01, "standard tricolor CRT" },
    { 0x02, 0x02, "other CRT" },
    { 0x10, 0x10, "passive matrix TN" },
    { 0x11, 0x11, "passive matrix cholesteric LC" },
    { 0x12, 0x12, "passive matrix ferroelectric LC" },
    { 0x13, 0x13, "other passive matrix LC" },
    { 0x14, 0x14, "active matrix TN" },
    { 0x15, 0x15, "active matrix IPS" },
    { 0x16, 0x16, "active matrix VA" },
    { 0x17, 0x17, "active matrix OCB" },
    { 0x18, 0x18, "active matrix ferroelectric" },
    { 0x1F, 0x1F, "other LC" },
    { 0x20, 0x20, "DC plasma" },
    { 0x21, 0x21, "AC plasma" },
    { 0x30, 0x3F, "electroluminescent, not OLED" },
    { 0x40, 0x4F, "inorganic LED" },
    { 0x50, 0x5F, "organic LED" },
    { 0x60, 0x6F, "FED or like, cold cathode with phosphor" },
    { 0x70, 0x7F, "electrophoretic" },
    { 0x80, 0x8F, "electrochromic" },
    { 0x90, 0x9F, "electromechanical" },
    { 0xA0, 0xAF, "electrowetting" },
    { 0xF0, 0xFF, "other" },
    { 0x00, 0xFF, gsc_szReserved }, // all others
};
constexpr auto gsc_aoOperatingModes =
    ListedTo(15, { "direct-view reflective, ambient light", "direct-view reflective, ambient light and light source",
                   "direct-view reflective, light source", "direct-view transmissive, ambient light",
                   "direct-view transmissive, ambient light and light source", "direct-view transmissive, light source",
                   "direct-view emissive", "direct-view transflective, backlight off by default",
                   "direct-view transflective, backlight on by default", "transparent, ambient light",
                   "transparent emissive", "projection, reflective light modulator",
                   "projection, transmissive light modulator", "projection, emissive transducer" });
constexpr auto gsc_aoSubPixels = ListedTo(
    255, { "not defined", "RGB vertical stripes", "RGB horizontal stripes", "vertical stripes in primary order",
           "horizontal stripes in primary order", "quad, red top left", "quad, red bottom left", "delta (triad) RGB",
           "mosaic", "quad, RGB and 1 more color", "five sub-pixels, RGB and 2 more colors",
           "six sub-pixels, RGB and 3 more colors", "PenTile matrix" });

constexpr SRow gsc_aoDeviceRows[] = {
    { eId_DisplayidDeviceTechnology, DisplayId::gsc_oDeviceTechnology, "Display device technology",
      Names(gsc_aoTechnologies1) },
    { eId_DisplayidDeviceOperatingMode, DisplayId::gsc_oOperatingMode, "Operating mode", Names(gsc_aoOperatingModes) },
    { eId_DisplayidDeviceBacklightSwitchable, Bit(0x04, 3), "Backlight switchable", Flag() },
    { eId_DisplayidDeviceBacklightControllable, Bit(0x04, 2), "Backlight intensity controllable", Flag() },
    { eId_Reserved, Bits(0x04, 1, 0), "Reserved", Reserved() },
    { eId_DisplayidDeviceHorizontalPixels, DisplayId::gsc_oDeviceHorizontalPixels, "Horizontal pixel count",
      NumberFrom1("pixels").With(gsc_aoZeroNotGiven) },
    { eId_DisplayidDeviceVerticalPixels, DisplayId::gsc_oDeviceVerticalPixels, "Vertical pixel count",
      NumberFrom1("lines").With(gsc_aoZeroNotGiven) },
    { eId_DisplayidDeviceAspectRatio, DisplayId::gsc_oDeviceAspectRatio, "Aspect ratio", HundredthsFrom1() },
    { eId_DisplayidDeviceDefaultOrientation, DisplayId::gsc_oDefaultOrientation, "Default orientation",
      Names(gsc_aoOrientations) },
    { eId_DisplayidDeviceRotationCapability, DisplayId::gsc_oRotationCapability, "Rotation capability",
      Names(gsc_aoRotations) },
    { eId_DisplayidDeviceZeroPixelLocation, Bits(0x0A, 3, 2), "Zero pixel location", Names(gsc_aoZeroPixels) },
    { eId_DisplayidDeviceScanDirection, Bits(0x0A, 1, 0), "Scan direction", Names(gsc_aoScanDirections) },
    { eId_DisplayidDeviceSubPixelLayout, DisplayId::gsc_oSubPixelLayout, "Sub-pixel layout", Names(gsc_aoSubPixels) },
    { eId_DisplayidDeviceHorizontalPitch, Byte(0x0C), "Horizontal dot or pixel pitch", Number("mm").Decimals(2) },
    { eId_DisplayidDeviceVerticalPitch, Byte(0x0D), "Vertical dot or pixel pitch", Number("mm").Decimals(2) },
    { eId_Reserved, Bits(0x0E, 7, 4), "Reserved", Reserved() },
    { eId_DisplayidDeviceColorBitDepth, Bits(0x0E, 3, 0), "Color bit depth",
      UnknownValue() }, // as stored; whether the depth is one more is not certain
    { eId_DisplayidDeviceResponseTimeTransition, Bit(0x0F, 7), "Response time transition", Flag(gsc_aoTransitions) },
    { eId_DisplayidDeviceResponseTime, Bits(0x0F, 6, 0), "Response time", Number("ms") },
};
constexpr STable gsc_oDevice = { eId_DisplayidDevice, "Display device data", eArea_Display, gsc_aoDeviceRows };

// ---- Transfer characteristics, DisplayID 1.3 (tag 0Eh): curves, each with its length first ----

constexpr auto gsc_aoCurveForms = Listed({ "sample list", "four parameters" });

constexpr SRow gsc_aoTransferFlagRows[] = {
    { eId_DisplayidTransferIdentifier, Bits(1, 7, 4), "Identifier", Number().With(gsc_aoZeroNone) },
    { eId_Reserved, Bit(1, 3), "Reserved", Reserved() },
};
constexpr STable gsc_oTransferFlags = { eId_DisplayidTransfer, "Flags", eArea_Colour, gsc_aoTransferFlagRows };

constexpr SRow gsc_aoTransferRows[] = {
    { eId_DisplayidTransferWhiteFirst, Bit(3, 7), "First curve is white", Flag() },
    { eId_DisplayidTransferIndividualCurves, Bit(3, 6), "Individual response curves", Flag() },
    { eId_DisplayidTransferCurveForm, Bit(3, 5), "Curve form", Flag(gsc_aoCurveForms) },
    { eId_Reserved, Bits(3, 4, 0), "Reserved", Reserved() },
};
constexpr STable gsc_oTransfer = { eId_DisplayidTransfer, "Transfer characteristics", eArea_Colour,
                                   gsc_aoTransferRows };
constexpr unsigned int gsc_uiFirstCurve = 4;

// The steps from each sample to the next, in 1/1023 of full scale. The last sample is 1023, and not stored.
constexpr SRow gsc_aoSampleRows[] = { { eId_DisplayidTransferSampleCount, Byte(0), "Number of samples", Number() },
                                      { eId_DisplayidTransferSteps, RunToEnd(1), "Steps of 1/1023", Bytes() } };
constexpr STable gsc_oSamples = { eId_DisplayidTransferCurve, "Curve", eArea_Colour, gsc_aoSampleRows };

constexpr SRow gsc_aoParameterRows[] = {
    { eId_DisplayidTransferParameterCount, Byte(0), "Number of parameters",
      Number().Expect(5, eZorEdidRule_DisplayIdParameterCount) },
    { eId_DisplayidTransferA0, Byte(1), "A0", Number() },
    { eId_DisplayidTransferA1, Byte(2), "A1", Number() },
    { eId_DisplayidTransferA2, Byte(3), "A2", Number() },
    { eId_DisplayidTransferA3, Byte(4), "A3", Number() },
    { eId_DisplayidTransferGamma, Byte(5), "Gamma", HundredthsFrom1() },
};
constexpr STable gsc_oParameters = { eId_DisplayidTransferCurve, "Curve", eArea_Colour, gsc_aoParameterRows };

void MapCurves(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    const bool bParameters = oBlock.IsSet(3, 5);
    unsigned int uiSize = 0;
    for (unsigned int uiAt = gsc_uiFirstCurve; uiAt < oBlock.GetSize(); uiAt += uiSize)
    {
        const unsigned int uiCount = oBlock.GetByte(uiAt);
        uiSize = uiCount + (bParameters ? 1 : 0); // the last sample of a list is not stored
        if (uiCount == 0)
        {
            return;
        }
        const unsigned int uiCurve =
            oWriter.AddRecord(bParameters ? gsc_oParameters : gsc_oSamples, uiOffset + uiAt, uiSize);
        if (uiSize > oBlock.GetSize() - uiAt)
        {
            oWriter.AddNote(uiCurve, eZorEdidRule_DisplayIdItemPast,
                            CountAtMost("bytes", uiSize, oBlock.GetSize() - uiAt));
        }
    }
}

// ---- Data blocks ----

// clang-format off
constexpr SDisplayIdBlock gsc_aoBlocks1[] = {
    { DisplayId::gsc_uiProduct1Tag, Group(eId_DisplayidProduct, "Product identification data block", eArea_Identity),
      AtLeast(gsc_uiProductSize), nullptr, { &gsc_oProduct1 }, MapProductText },
    { DisplayId::gsc_uiParameters1Tag, Group(eId_DisplayidParameters, "Display parameters data block", eArea_Display, Parameters1Text),
      Exactly(12), nullptr, { &gsc_oParameters1, &gsc_oParameters1Colour } },
    { DisplayId::gsc_uiColorTag, Group(eId_DisplayidColor, "Color characteristics data block", eArea_Colour),
      AtLeast(1), &gsc_oColourFlags, { &gsc_oColour }, MapCoordinates },
    { DisplayId::gsc_uiSerialTag, Group(eId_DisplayidSerial, "Product serial number data block", eArea_Identity), AtLeast(1), nullptr, { &gsc_oSerial } },
    { DisplayId::gsc_uiStringTag, Group(eId_DisplayidString, "General-purpose ASCII string data block", eArea_Identity), AtLeast(1), nullptr, { &gsc_oString } },
    { DisplayId::gsc_uiDeviceTag, Group(eId_DisplayidDevice, "Display device data data block", eArea_Display), Exactly(13), nullptr, { &gsc_oDevice } },
    { 0x0E, Group(eId_DisplayidTransfer, "Transfer characteristics data block", eArea_Colour),
      AtLeast(1), &gsc_oTransferFlags, { &gsc_oTransfer }, MapCurves },
};

constexpr SDisplayIdBlock gsc_aoBlocks2[] = {
    { DisplayId::gsc_uiProduct2Tag, Group(eId_DisplayidProduct, "Product identification data block", eArea_Identity),
      AtLeast(gsc_uiProductSize), nullptr, { &gsc_oProduct2 }, MapProductText },
    { DisplayId::gsc_uiParameters2Tag, Group(eId_DisplayidParameters2, "Display parameters data block", eArea_Display, Parameters2Text),
      Exactly(29), &gsc_oParameters2Flags, { &gsc_oParameters2, &gsc_oParameters2Colour } },
    { DisplayId::gsc_uiContainerTag, Group(eId_DisplayidContainer, "ContainerID data block", eArea_Identity),
      Exactly(gsc_uiContainerIdSize), nullptr, { &gsc_oContainerId } },
    { DisplayId::gsc_uiBrightnessTag, Group(eId_DisplayidBrightness, "Brightness luminance range data block", eArea_Colour), Exactly(6), nullptr, { &gsc_oBrightness } },
};
// clang-format on
} // namespace

constinit const std::span<const SDisplayIdBlock> g_aoDisplayId1ProductBlocks = gsc_aoBlocks1;
constinit const std::span<const SDisplayIdBlock> g_aoDisplayId2ProductBlocks = gsc_aoBlocks2;

void VisitProductIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(gsc_oProductText, gsc_oPrimary, gsc_oWhitePoint, gsc_oSamples, gsc_oParameters);
}
} // namespace ZorMap
