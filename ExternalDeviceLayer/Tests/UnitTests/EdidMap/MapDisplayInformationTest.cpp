// Rows of the map over the display information extension block.

#include "MapRowCases.h"

namespace
{
// The block without its checksum.
SRecord MakeInformation(const char* pszBytes)
{
    constexpr unsigned int uiChecksum = 127;
    return { FixChecksums(BehindBaseBlock(ParseBytes(pszBytes))), gsc_uiBlockSize, 0, uiChecksum };
}

TEST(MapDisplayInformation, EachField)
{
    static constexpr SRowCase aoRows[] = {
        { "01", "Version", "1" },
        { "02", "Supported digital interface", "DVI dual link, high resolution" },
        { "03.7-6", "Kind of interface version", "version and release" },
        { "03.5-0", "Version, whole", "45" },
        { "04", "Version, decimals", "23" },
        { "05", "Release, whole", "42" },
        { "06", "Release, decimals", "59" },
        { "07.7", "Data enable signal available", "yes" },
        { "07.6", "Data enable polarity", "low" },
        { "07.5-4", "Edge of shift clock", "falling" },
        { "07.3", "HDCP supported", "yes" },
        { "07.2", "Double clocking of input data", "no" },
        { "07.1", "Packetized digital video", "yes" },
        { "07.0", "Reserved", "0x1", gsc_szSet },
        { "08", "Data format", "48-bit MSB-aligned RGB, dual link, high color" },
        { "09", "Minimum pixel clock per link", "25 MHz" },
        { "0B 0A", "Maximum pixel clock per link", "300 MHz" },
        { "0D 0C", "Crossover frequency", "933 MHz" },
        { "0E", "Sub-pixel layout", "quad, green bottom right and top left" },
        { "0F", "Sub-pixel configuration", "stripe offset" },
        { "10", "Sub-pixel shape", "elliptical" },
        { "11", "Horizontal dot or pixel pitch", "0.27 mm" },
        { "12", "Vertical dot or pixel pitch", "0.45 mm" },
        { "13.7", "Fixed pixel format", "yes" },
        { "13.6-5", "View direction", "reflected" },
        { "13.4", "Transparent background", "no" },
        { "13.3-2", "Physical implementation", "eyepiece" },
        { "13.1", "DDC/CI", "yes" },
        { "13.0", "Reserved", "0x1", gsc_szSet },
        { "14.7", "All VGA/DOS legacy modes supported", "yes" },
        { "14.6-4", "Stereo video", "auto-stereoscopic, line interleaved" },
        { "14.3", "Scaler on board", "no" },
        { "14.2", "Image centering", "yes" },
        { "14.1", "Conditional update", "no" },
        { "14.0", "Interlaced video", "yes" },
        { "15.7", "Frame lock", "no" },
        { "15.6-5", "Frame rate conversion", "horizontal to one frequency" },
        { "15.4-0", "Reserved", "0x16", gsc_szSet },
        { "17 16", "Vertical frequency", "60.07 Hz" },
        { "19 18", "Horizontal frequency", "373.16 kHz" },
        { "1A.7-6", "Orientation type", "pivots, default orientation" },
        { "1A.5", "Screen orientation", "portrait" },
        { "1A.4-3", "Zero pixel location", "upper right" },
        { "1A.2-1", "Scan direction", "fast on short axis, slow on long" },
        { "1A.0", "Standalone projector", "yes" },
        { "1B", "Default color / luminance decoding", "Y B-Y R-Y M-2" },
        { "1C", "Preferred color / luminance decoder", "Yxx SMPTE 2xxM" },
        { "1D.7", "Decodes BGR", "yes" },
        { "1D.6", "Decodes Y/C NTSC", "no" },
        { "1D.5", "Decodes Y/C PAL", "yes" },
        { "1D.4", "Decodes Y/C SECAM", "yes" },
        { "1D.3", "Decodes YCrCb 4:4:4 SMPTE 293M and 294M", "no" },
        { "1D.2", "Decodes YCrCb 4:2:2 SMPTE 293M and 294M", "no" },
        { "1D.1", "Decodes YCrCb 4:2:0 SMPTE 293M and 294M", "yes" },
        { "1D.0", "Decodes YCrCb SMPTE 260M", "no" },
        { "1E.7", "Decodes YPbPr SMPTE 240M", "no" },
        { "1E.6", "Decodes YCrCb SMPTE 274M", "yes" },
        { "1E.5", "Decodes YPbPr SMPTE 274M", "yes" },
        { "1E.4", "Decodes Y B-Y R-Y BetaCam", "no" },
        { "1E.3", "Decodes Y B-Y R-Y M-2", "yes" },
        { "1E.2", "Decodes monochrome", "no" },
        { "1E.1-0", "Reserved", "0x2", gsc_szSet },
        { "1F.7", "Dithering", "yes" },
        { "1F.6-0", "Reserved", "0x34", gsc_szSet },
        { "20", "Color depth, sub-channel 0, blue", "8 bits" },
        { "21", "Color depth, sub-channel 1, green", "10 bits" },
        { "22", "Color depth, sub-channel 2, red", "12 bits" },
        { "23", "Color depth, sub-channel 0, Cb/Pb", "9 bits" },
        { "24", "Color depth, sub-channel 1, Y", "11 bits" },
        { "25", "Color depth, sub-channel 2, Cr/Pr", "14 bits" },
        { "26.7", "Aspect conversion: full", "yes" },
        { "26.6", "Aspect conversion: zoom", "no" },
        { "26.5", "Aspect conversion: squeeze", "yes" },
        { "26.4", "Aspect conversion: variable", "no" },
        { "26.3-0", "Reserved", "0x6", gsc_szSet },
        { "51.7-6", "Transfer characteristics (gamma)", "white curve" },
        { "51.5-0", "Number of entries", "45" },
        { "52-7E", "White curve",
          "01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10 11 12 13 14 15 16 17 18 19 1a 1b 1c 1d 1e 1f 20 21 22 23 24 "
          "25 26 27 28 29 2a 2b 2c 2d" },
        { "00", "Extension tag", "display information extension (DI-EXT)" },
    };
    ExpectRows(MakeInformation("40 01 03 6D 17 2A 3B AB 49 19 2C 01 A5 03 04 03 05 1B 2D CF B5 56 77 17 C4 91 AD 0D 03 "
                               "B2 6A B4 08 0A 0C 09 0B 0E A6"
                               " ..81 6D 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10 11 12 13 14 15 16 17 18 19 1A"
                               " 1B 1C 1D 1E 1F 20 21 22 23 24 25 26 27 28 29 2A 2B 2C 2D"),
               aoRows);
}

TEST(MapDisplayInformation, VersionIsALetter)
{
    static constexpr SRowCase aoRows[] = {
        { "03.7-6", "Kind of interface version", "letter" },
        { "04", "Letter", "C" },
        { "03.5-0", "Reserved", "0x12", gsc_szSet },
        { "05-06", "Reserved", "12 34", gsc_szSet },
    };
    ExpectSomeRows(MakeInformation("40 01 03 92 43 12 34"), aoRows);
}

TEST(MapDisplayInformation, VersionIsADate)
{
    static constexpr SRowCase aoRows[] = {
        { "03.7-6", "Kind of interface version", "date" },
        { "04", "Year", "2013" },
        { "05", "Month", "11" },
        { "06", "Day", "29" },
        { "03.5-0", "Reserved", "0x12", gsc_szSet },
    };
    ExpectSomeRows(MakeInformation("40 01 03 D2 17 0B 1D"), aoRows);
}

TEST(MapDisplayInformation, OutOfRange)
{
    constexpr const char* pszRange = "out of range";
    const SRowCase aoVersion[] = { { "04", "Version, decimals", "100", pszRange },
                                   { "06", "Release, decimals", "100", pszRange } };
    ExpectSomeRows(MakeInformation("40 01 03 7F 64 FF 64"), aoVersion);
    const SRowCase aoDate[] = { { "05", "Month", "13", pszRange }, { "06", "Day", "32", pszRange } };
    ExpectSomeRows(MakeInformation("40 01 03 C0 17 0D 20"), aoDate);
    const SRowCase aoDepth[] = { { "20", "Color depth, sub-channel 0, blue", "17 bits", pszRange },
                                 { "25", "Color depth, sub-channel 2, Cr/Pr", "16 bits" } };
    ExpectSomeRows(MakeInformation("40 01 03 ..32 11 00 00 00 00 10"), aoDepth);
    const SRowCase aoWhite[] = { { "51.5-0", "Number of entries", "46", pszRange } };
    ExpectSomeRows(MakeInformation("40 01 03 ..81 6E"), aoWhite);
    const SRowCase aoColours[] = { { "51.5-0", "Number of entries", "16", pszRange } };
    ExpectSomeRows(MakeInformation("40 01 03 ..81 90"), aoColours);
}

TEST(MapDisplayInformation, Contradictions)
{
    static constexpr SRowCase aoAnalog[] = {
        { "02", "Supported digital interface", "analog", "bytes 03h to 0Dh describe a digital interface" },
        { "08", "Data format", "none" },
        { "0D 0C", "Crossover frequency", "256 MHz" },
    };
    ExpectSomeRows(MakeInformation("40 01 00 ..13 01"), aoAnalog);
    static constexpr SRowCase aoPlainAnalog[] = { { "02", "Supported digital interface", "analog" } };
    ExpectSomeRows(MakeInformation("40 01 00 ..14 01"), aoPlainAnalog);
    static constexpr SRowCase aoClocks[] = {
        { "09", "Minimum pixel clock per link", "25 MHz" },
        { "0B 0A", "Maximum pixel clock per link", "24 MHz", "maximum is below the minimum" },
    };
    ExpectSomeRows(MakeInformation("40 01 03 ..9 19 18 00"), aoClocks);
}

TEST(MapDisplayInformation, NoVersion)
{
    static constexpr SRowCase aoRows[] = {
        { "03.7-6", "Kind of interface version", "not given" },
        { "03.5-0", "Reserved", "0x12", gsc_szSet },
        { "04-06", "Reserved", "17 0b 1d", gsc_szSet },
    };
    ExpectSomeRows(MakeInformation("40 01 03 12 17 0B 1D"), aoRows);
}

TEST(MapDisplayInformation, NoDataEnableSignal)
{
    static constexpr SRowCase aoRows[] = {
        { "07.7", "Data enable signal available", "no" },
        { "07.6", "Reserved", "0x1", gsc_szSet },
    };
    ExpectSomeRows(MakeInformation("40 01 03 ..7 54"), aoRows);
}

TEST(MapDisplayInformation, AnotherVersionOfTheBlock)
{
    static constexpr SRowCase aoRows[] = { { "01", "Version", "2", "only version 1 has this layout" } };
    ExpectSomeRows(MakeInformation("40 02"), aoRows);
}

// Curves of 15 bytes each, or one of 45.
TEST(MapDisplayInformation, CurvesOfColours)
{
    static constexpr SRowCase aoRows[] = {
        { "51.7-6", "Transfer characteristics (gamma)", "three sub-channel curves" },
        { "51.5-0", "Number of entries", "15" },
        { "52-60", "Sub-channel 0 (blue) curve", "31 32 33 34 35 36 37 38 39 3a 3b 3c 3d 3e 3f" },
        { "61-6F", "Sub-channel 1 (green) curve", "40 41 42 43 44 45 46 47 48 49 4a 4b 4c 4d 4e" },
        { "70-7E", "Sub-channel 2 (red) curve", "4f 50 51 52 53 54 55 56 57 58 59 5a 5b 5c 5d" },
    };
    ExpectSomeRows(MakeInformation("40 01 ..81 8F 31 32 33 34 35 36 37 38 39 3A 3B 3C 3D 3E 3F 40 41 42 43 44 45 46 47 "
                                   "48 49 4A 4B 4C 4D 4E 4F 50 51 52 53 54 55 56 57 58 59 5A 5B 5C 5D"),
                   aoRows);
}

TEST(MapDisplayInformation, UnusedBytes)
{
    // Two short forms of what is there: 42 and 45 bytes.
    const std::string sZeros = " 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
    const std::string sGap = "11" + sZeros + sZeros + " 22";
    const std::string sCurve = "33" + sZeros + sZeros + " 00 00 00 44";
    for (const char* pszKind : { "00", "C0" })
    {
        const std::string sBytes = std::string("40 01 ..39 11 ..80 22 ") + pszKind + " 33 ..126 44";
        const SRowCase aoRows[] = {
            { "27-50", "Reserved", sGap.c_str(), gsc_szSet },
            { "52-7E", "Reserved", sCurve.c_str(), gsc_szSet },
        };
        ExpectSomeRows(MakeInformation(sBytes.c_str()), aoRows);
    }
}

TEST(MapDisplayInformation, Codes)
{
    static constexpr SCodesCase aoCases[] = {
        { "02", 1,
          "DVI|DVI single link|DVI dual link, high resolution|DVI dual link, high color|"
          "DVI consumer electronics|Plug and Display|DFP|Open LDI single link|Open LDI dual link|"
          "Open LDI consumer electronics|reserved" },
        { "03.7-6", 0, "not given|version and release|letter|date" },
        { "07.6", 0, "low|high" },
        { "07.5-4", 0, "not given|rising|falling|both" },
        { "08", 0x15, "8-bit over 8-bit RGB" },
        { "08", 0x19, "12-bit over 12-bit RGB" },
        { "08", 0x24, "24-bit MSB-aligned RGB, single link" },
        { "08", 0x48, "48-bit MSB-aligned RGB, dual link, high resolution" },
        { "08", 0x49, "48-bit MSB-aligned RGB, dual link, high color" },
        { "08", 0, "reserved|reserved" },
        { "09", 0, "not given|1 MHz" },
        { "09", 0xFE, "254 MHz|reserved" },
        { "0B 0A", 0, "not given|1 MHz" },
        { "0B 0A", 0xFFFE, "65534 MHz|reserved" },
        { "0D 0C", 0, "not given|1 MHz" },
        { "0D 0C", 0xFFFE, "65534 MHz|none, single link" },
        { "0E", 0,
          "not defined|RGB|BGR|quad, green bottom left and top right|"
          "quad, green bottom right and top left|reserved" },
        { "0F", 0, "not defined|delta (triad)|stripe|stripe offset|quad|reserved" },
        { "10", 0, "not defined|round|square|rectangular|oval|elliptical|reserved" },
        { "11", 0, "not given|0.01 mm" },
        { "12", 0, "not given|0.01 mm" },
        { "13.6-5", 0, "not given|direct|reflected|both" },
        { "13.3-2", 0, "not given|large, for groups|desktop or personal|eyepiece" },
        { "14.6-4", 0,
          "none|field sequential by stereo sync|auto-stereoscopic, column interleaved|"
          "auto-stereoscopic, line interleaved|reserved|reserved|reserved|reserved" },
        { "15.6-5", 0, "none|vertical to one frequency|horizontal to one frequency|both" },
        { "17 16", 0, "not given|0.01 Hz" },
        { "17 16", 0xFFFE, "655.34 Hz|reserved" },
        { "19 18", 0, "not given|0.01 kHz" },
        { "19 18", 0xFFFE, "655.34 kHz|reserved" },
        { "1A.7-6", 0, "not defined|fixed|pivots, default orientation|pivots, current orientation" },
        { "1A.5", 0, "landscape|portrait" },
        { "1A.4-3", 0, "upper left|upper right|lower left|lower right" },
        { "1A.2-1", 0, "not defined|fast on long axis, slow on short|fast on short axis, slow on long|reserved" },
        { "1B", 0,
          "not defined|BGR|Y/C NTSC|Y/C PAL|Y/C SECAM|YCrCb 4:4:4 SMPTE 293M and 294M|"
          "YCrCb 4:2:2 SMPTE 293M and 294M|YCrCb 4:2:0 SMPTE 293M and 294M|YCrCb SMPTE 260M|YPbPr SMPTE 240M|"
          "YCrCb SMPTE 274M|YPbPr SMPTE 274M|Y B-Y R-Y BetaCam|Y B-Y R-Y M-2|monochrome|reserved" },
        { "1C", 0, "default decoding|BGR|Y/C|Yxx SMPTE 2xxM|monochrome|reserved" },
        { "20", 0, "not given|1 bit" },
        { "21", 0, "not given|1 bit" },
        { "22", 0, "not given|1 bit" },
        { "23", 0, "not given|1 bit" },
        { "24", 0, "not given|1 bit" },
        { "25", 0, "not given|1 bit" },
        { "51.7-6", 0, "none|white curve|three sub-channel curves|reserved" },
    };
    ExpectCodes(MakeInformation("40 01 01 00 00 00 00 80"), aoCases);
}
} // namespace
