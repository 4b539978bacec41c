// Rows of the map over the data blocks of DisplayID about ranges of timings, interfaces, stereo, tiles, power and
// adaptive sync, and over those of makers.

#include "MapRowCases.h"

namespace
{
constexpr char gsc_szReserved[] = "reserved value";
constexpr char gsc_szBelow[] = "maximum is below the minimum";

TEST(MapInterface, RangeLimits)
{
    static constexpr SRowCase aoRows[] = {
        { "05 04 03", "Minimum pixel clock", "2176500 kHz" },
        { "08 07 06", "Maximum pixel clock", "8259280 kHz" },
        { "09", "Minimum horizontal frequency", "31 kHz" },
        { "0A", "Maximum horizontal frequency", "163 kHz" },
        { "0C 0B", "Minimum horizontal blanking", "1322 pixels" },
        { "0D", "Minimum vertical refresh rate", "24 Hz" },
        { "0E", "Maximum vertical refresh rate", "240 Hz" },
        { "10 0F", "Minimum vertical blanking", "537 lines" },
        { "11.7", "Interlaced timings", "supported" },
        { "11.6", "CVT timings", "not supported" },
        { "11.5", "CVT reduced blanking timings", "supported" },
        { "11.4", "Discrete frequency display", "discrete" },
        { "11.3-0", "Reserved", "0x6", gsc_szSet },
    };
    ExpectRows(MakeDisplayIdRecord(0x09, 0, "31 52 03 47 9A 0C 1F A3 2A 05 18 F0 19 02 B6"), aoRows);
}

// Of two limits that are equal none is below the other one.
TEST(MapInterface, RangeLimitsInTheWrongOrder)
{
    static constexpr SRowCase aoEqual[] = {
        { "08 07 06", "Maximum pixel clock", "1970130 kHz" },
        { "0A", "Maximum horizontal frequency", "30 kHz" },
        { "0E", "Maximum vertical refresh rate", "50 Hz" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x09, 0, "94 01 03 94 01 03 1E 1E 00 00 32 32 00 00 00"), aoEqual);
    static constexpr SRowCase aoBelow[] = {
        { "08 07 06", "Maximum pixel clock", "1970120 kHz", gsc_szBelow },
        { "0A", "Maximum horizontal frequency", "29 kHz", gsc_szBelow },
        { "0E", "Maximum vertical refresh rate", "49 Hz", gsc_szBelow },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x09, 0, "94 01 03 93 01 03 1E 1D 00 00 32 31 00 00 00"), aoBelow);
}

TEST(MapInterface, DynamicRangeLimits)
{
    static constexpr SRowCase aoRevision0[] = {
        { "05 04 03", "Minimum pixel clock", "217650 kHz" },
        { "08 07 06", "Maximum pixel clock", "825928 kHz" },
        { "09", "Minimum vertical refresh rate", "31 Hz" },
        { "0A", "Maximum vertical refresh rate", "163 Hz" },
        { "0B.7", "Seamless dynamic video timing", "not supported" },
        { "0B.6-0", "Reserved", "0x69", gsc_szSet },
    };
    ExpectRows(MakeDisplayIdRecord(0x25, 0, "31 52 03 47 9A 0C 1F A3 69"), aoRevision0);
    static constexpr SRowCase aoRevision1[] = {
        { "05 04 03", "Minimum pixel clock", "217650 kHz" },
        { "08 07 06", "Maximum pixel clock", "825928 kHz" },
        { "09", "Minimum vertical refresh rate", "31 Hz" },
        { "0B.1-0 0A", "Maximum vertical refresh rate", "675 Hz" },
        { "0B.7", "Seamless dynamic video timing", "supported" },
        { "0B.6-2", "Reserved", "0x15", gsc_szSet },
    };
    ExpectRows(MakeDisplayIdRecord(0x25, 1, "31 52 03 47 9A 0C 1F A3 D6"), aoRevision1);
}

TEST(MapInterface, PowerSequencing)
{
    static constexpr SRowCase aoRows[] = {
        { "03.7-4", "T1 minimum", "1.0 ms" },       { "03.3-0", "T1 maximum", "14 ms" },
        { "04.7-6", "Reserved", "0x2", gsc_szSet }, { "04.5-0", "T2 maximum", "38 ms" },
        { "05.7-6", "Reserved", "0x1", gsc_szSet }, { "05.5-0", "T3 maximum", "92 ms" },
        { "06.7", "Reserved", "0x1", gsc_szSet },   { "06.6-0", "T4 minimum", "530 ms" },
        { "07.7-6", "Reserved", "0x3", gsc_szSet }, { "07.5-0", "T5 minimum", "280 ms" },
        { "08.7-6", "Reserved", "0x2", gsc_szSet }, { "08.5-0", "T6 minimum", "580 ms" },
    };
    ExpectRows(MakeDisplayIdRecord(0x0D, 0, "A7 93 6E B5 DC BA"), aoRows);
}

TEST(MapInterface, DisplayInterface)
{
    static constexpr SRowCase aoLvds[] = {
        { "03.7-4", "Interface type", "LVDS" },
        { "03.3-0", "Number of links", "5" },
        { "04.7-4", "Interface standard version", "2" },
        { "04.3-0", "Interface standard revision", "3" },
        { "05.7-6", "Reserved", "0x2", gsc_szSet },
        { "05.5", "RGB 4:4:4, 16 bits per color", "supported" },
        { "05.4", "RGB 4:4:4, 14 bits per color", "not supported" },
        { "05.3", "RGB 4:4:4, 12 bits per color", "supported" },
        { "05.2", "RGB 4:4:4, 10 bits per color", "supported" },
        { "05.1", "RGB 4:4:4, 8 bits per color", "not supported" },
        { "05.0", "RGB 4:4:4, 6 bits per color", "supported" },
        { "06.7-6", "Reserved", "0x1", gsc_szSet },
        { "06.5", "YCbCr 4:4:4, 16 bits per color", "not supported" },
        { "06.4", "YCbCr 4:4:4, 14 bits per color", "supported" },
        { "06.3", "YCbCr 4:4:4, 12 bits per color", "not supported" },
        { "06.2", "YCbCr 4:4:4, 10 bits per color", "not supported" },
        { "06.1", "YCbCr 4:4:4, 8 bits per color", "supported" },
        { "06.0", "YCbCr 4:4:4, 6 bits per color", "not supported" },
        { "07.7-5", "Reserved", "0x5", gsc_szSet },
        { "07.4", "YCbCr 4:2:2, 16 bits per color", "not supported" },
        { "07.3", "YCbCr 4:2:2, 14 bits per color", "supported" },
        { "07.2", "YCbCr 4:2:2, 12 bits per color", "not supported" },
        { "07.1", "YCbCr 4:2:2, 10 bits per color", "supported" },
        { "07.0", "YCbCr 4:2:2, 8 bits per color", "supported" },
        { "08.7-4", "Reserved", "0x6", gsc_szSet },
        { "08.3-0", "Content protection", "DPCP" },
        { "09.7-4", "Content protection version", "4" },
        { "09.3-0", "Content protection revision", "7" },
        { "0A.7-6", "Spread spectrum", "down spread" },
        { "0A.5-4", "Reserved", "0x2", gsc_szSet },
        { "0A.3-0", "Spread", "1.3 %" },
        { "0B.4", "Color mapping", "normal" },
        { "0B.3", "2.8 V", "supported" },
        { "0B.2", "12 V", "supported" },
        { "0B.1", "5 V", "not supported" },
        { "0B.0", "3.3 V", "supported" },
        { "0C.2", "Mode", "fixed" },
        { "0C.1", "DE polarity or fixed signal level", "high" },
        { "0C.0", "Shift clock data strobe", "rising edge" },
        { "0B.7-5", "Reserved", "0x5", gsc_szSet },
        { "0C.7-3", "Reserved", "0x16", gsc_szSet },
    };
    ExpectRows(MakeDisplayIdRecord(0x0F, 0, "15 23 AD 52 AB 63 47 6D AD B5"), aoLvds);
    static constexpr SRowCase aoProprietary[] = {
        { "03.7-4", "Interface type", "proprietary digital" },
        { "03.3-0", "Number of links", "7" },
        { "0B.2", "Mode", "DE" },
        { "0B.1", "DE polarity or fixed signal level", "low" },
        { "0B.0", "Shift clock data strobe", "falling edge" },
        { "0B.7-3", "Reserved", "0x16", gsc_szSet },
        { "0C", "Reserved", "5a", gsc_szSet },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x0F, 0, "B7 23 52 AD 54 63 47 6D B2 5A"), aoProprietary);
    static constexpr SRowCase aoAnalog[] = {
        { "03.7-4", "Interface type", "analog" },
        { "03.3-0", "Analog interface", "VESA NAVI-D" },
        { "0B-0C", "Reserved", "ad b5", gsc_szSet },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x0F, 0, "02 23 AD 52 AB 63 47 6D AD B5"), aoAnalog);
}

TEST(MapInterface, Features)
{
    static constexpr SRowCase aoRows[] = {
        { "03.7-6", "Reserved", "0x2", gsc_szSet },
        { "03.5", "RGB 4:4:4, 16 bits per color", "supported" },
        { "03.4", "RGB 4:4:4, 14 bits per color", "not supported" },
        { "03.3", "RGB 4:4:4, 12 bits per color", "supported" },
        { "03.2", "RGB 4:4:4, 10 bits per color", "supported" },
        { "03.1", "RGB 4:4:4, 8 bits per color", "not supported" },
        { "03.0", "RGB 4:4:4, 6 bits per color", "supported" },
        { "04.7-6", "Reserved", "0x1", gsc_szSet },
        { "04.5", "YCbCr 4:4:4, 16 bits per color", "not supported" },
        { "04.4", "YCbCr 4:4:4, 14 bits per color", "supported" },
        { "04.3", "YCbCr 4:4:4, 12 bits per color", "not supported" },
        { "04.2", "YCbCr 4:4:4, 10 bits per color", "not supported" },
        { "04.1", "YCbCr 4:4:4, 8 bits per color", "supported" },
        { "04.0", "YCbCr 4:4:4, 6 bits per color", "not supported" },
        { "05.7-5", "Reserved", "0x5", gsc_szSet },
        { "05.4", "YCbCr 4:2:2, 16 bits per color", "not supported" },
        { "05.3", "YCbCr 4:2:2, 14 bits per color", "supported" },
        { "05.2", "YCbCr 4:2:2, 12 bits per color", "not supported" },
        { "05.1", "YCbCr 4:2:2, 10 bits per color", "supported" },
        { "05.0", "YCbCr 4:2:2, 8 bits per color", "supported" },
        { "06.7-5", "Reserved", "0x2", gsc_szSet },
        { "06.4", "YCbCr 4:2:0, 16 bits per color", "supported" },
        { "06.3", "YCbCr 4:2:0, 14 bits per color", "not supported" },
        { "06.2", "YCbCr 4:2:0, 12 bits per color", "supported" },
        { "06.1", "YCbCr 4:2:0, 10 bits per color", "not supported" },
        { "06.0", "YCbCr 4:2:0, 8 bits per color", "not supported" },
        { "07", "Minimum pixel rate for YCbCr 4:2:0", "519.75 MP/s" },
        { "08.7", "Audio at 32 kHz", "supported" },
        { "08.6", "Audio at 44.1 kHz", "not supported" },
        { "08.5", "Audio at 48 kHz", "supported" },
        { "08.4-0", "Reserved", "0x12", gsc_szSet },
        { "09.7", "Reserved", "0x1", gsc_szSet },
        { "09.6", "BT.2020 with SMPTE ST 2084", "not supported" },
        { "09.5", "BT.2020", "supported" },
        { "09.4", "DCI-P3", "supported" },
        { "09.3", "Adobe RGB", "not supported" },
        { "09.2", "BT.709 with BT.1886", "supported" },
        { "09.1", "BT.601", "not supported" },
        { "09.0", "sRGB", "supported" },
        { "0A", "Reserved", "4b", gsc_szSet },
        { "0B.7-3", "Reserved", "0x16", gsc_szSet },
        { "0B.2-0", "Number of additional color space and EOTF combinations", "3" },
        { "0C.7-4", "Color space", "sRGB" },
        { "0C.3-0", "EOTF", "SMPTE ST 2084" },
        { "0D.7-4", "Color space", "BT.2020" },
        { "0D.3-0", "EOTF", "gamma function" },
        { "0E.7-4", "Color space", "BT.709" },
        { "0E.3-0", "EOTF", "custom" },
    };
    ExpectRows(MakeDisplayIdRecord(0x26, 0, "AD 52 AB 54 07 B2 B5 4B B3 18 67 3A"), aoRows);
}

TEST(MapInterface, Tile)
{
    static constexpr SRowCase aoRows[] = {
        { "03.7", "Physical enclosures", "multiple" },
        { "03.6", "Bezel information", "given" },
        { "03.5", "Reserved", "0x1", gsc_szSet },
        { "03.4-3", "Behavior when more than one tile is driven, but not all", "reserved", gsc_szReserved },
        { "03.2-0", "Behavior when it is the only tile driven", "image cloned to all other tiles" },
        { "06.7-6 04.7-4", "Number of horizontal tiles", "43" },
        { "06.5-4 04.3-0", "Number of vertical tiles", "23" },
        { "06.3-2 05.7-4", "Horizontal tile location", "21" },
        { "06.1-0 05.3-0", "Vertical tile location", "3" },
        { "08 07", "Horizontal tile size", "2688 pixels" },
        { "0A 09", "Vertical tile size", "2160 lines" },
        { "0B", "Pixel multiplier", "11" },
        { "0C", "Top bezel size", "38.5 pixels" },
        { "0D", "Bottom bezel size", "58.3 pixels" },
        { "0E", "Right bezel size", "95.7 pixels" },
        { "0F", "Left bezel size", "18.7 pixels" },
        { "10-12", "Tiled display manufacturer/vendor ID", "ACR" },
        { "14 13", "Tiled display product ID code", "1713" },
        { "18 17 16 15", "Tiled display serial number", "305419896" },
    };
    ExpectRows(MakeDisplayIdRecord(0x12, 0, "73 A6 53 94 7F 0A 6F 08 0B 23 35 57 11 41 43 52 B1 06 78 56 34 12"),
               aoRows);
    static constexpr SRowCase aoWithoutBezels[] = {
        { "03.6", "Bezel information", "not given" },
        { "0C-0F", "Bezel sizes, not used", "23 35 57 11", gsc_szSet },
        { "10 11 12", "Tiled display manufacturer/vendor ID", "3A-02-92 VESA" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x28, 0, "8A A6 53 94 7F 0A 6F 08 0B 23 35 57 11 3A 02 92 B1 06 78 56 34 12"),
                   aoWithoutBezels);
}

// 43 by 23 tiles: places 42 and 22 are the last ones. The bits that continue a count and a place are in byte 06h.
TEST(MapInterface, TileAtTheEdge)
{
    static constexpr SRowCase aoLast[] = {
        { "06.3-2 05.7-4", "Horizontal tile location", "42" },
        { "06.1-0 05.3-0", "Vertical tile location", "22" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x12, 0, "00 A6 A6 99 ..22"), aoLast);
    static constexpr SRowCase aoBehind[] = {
        { "06.3-2 05.7-4", "Horizontal tile location", "43", "lies outside of the tiled display" },
        { "06.1-0 05.3-0", "Vertical tile location", "23", "lies outside of the tiled display" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x12, 0, "00 A6 B7 99 ..22"), aoBehind);
}

// ---- Stereo: the method decides what its parameters are ----

TEST(MapInterface, StereoMethods)
{
    struct SMethodCase
    {
        const char* m_pszBytes; // from the length on
        std::initializer_list<SRowCase> m_aoRows;
    };
    const SMethodCase aoCases[] = {
        { "02 00 01",
          { { "03", "Length of the stereo method", "2 bytes" },
            { "04", "Stereo method code", "field sequential" },
            { "05.0", "Stereo polarity", "left is 0, right is 1" } } },
        { "02 01 01", { { "04", "Stereo method code", "side by side" }, { "05.0", "Left half", "right eye view" } } },
        { "09 02 AA 55 12 34 56 78 9A BC",
          { { "03", "Length of the stereo method", "9 bytes" },
            { "04", "Stereo method code", "pixel interleaved" },
            { "05-0C", "Interleaving pattern, 8 rows", "aa 55 12 34 56 78 9a bc" } } },
        { "02 03 05",
          { { "04", "Stereo method code", "dual interface" },
            { "05.2-1", "Mirroring", "top/bottom" },
            { "05.0", "View of this interface", "right eye view" } } },
        { "03 04 09 05",
          { { "04", "Stereo method code", "multi-view" },
            { "05", "Number of views", "9" },
            { "06", "Interleaving method code", "5" } } },
        { "02 05 01", { { "04", "Stereo method code", "stacked frame" }, { "05.0", "Top half", "right eye view" } } },
        { "03 FF 12 34",
          { { "04", "Stereo method code", "proprietary" }, { "05-06", "Proprietary parameters", "12 34" } } },
        { "02 06 01", { { "04", "Stereo method code", "reserved", gsc_szReserved }, { "05", "Unknown", "01" } } },
    };
    for (const SMethodCase& oCase : aoCases)
    {
        ExpectSomeRows(MakeDisplayIdRecord(0x10, 0x80, oCase.m_pszBytes), oCase.m_aoRows);
    }
}

TEST(MapInterface, StereoTimingCodes)
{
    static constexpr SRowCase aoRows[] = {
        { "03", "Length of the stereo method", "2 bytes" }, { "04", "Stereo method code", "side by side" },
        { "05.0", "Left half", "left eye view" },           { "06.7-6", "Timing code type", "VESA DMT" },
        { "06.5", "Reserved", "0x1", gsc_szSet },           { "06.4-0", "Number of timing codes", "2" },
        { "07", "DMT ID", "82, 1920 x 1080 @ 60 Hz" },      { "08", "DMT ID", "16, 1024 x 768 @ 60 Hz" },
        { "09.7-6", "Timing code type", "CTA-861 VIC" },    { "09.4-0", "Number of timing codes", "1" },
        { "0A", "VIC", "16, 1920x1080p 59.94/60 Hz 16:9" }, { "0B.7-6", "Timing code type", "HDMI VIC" },
        { "0B.4-0", "Number of timing codes", "1" },        { "0C", "HDMI VIC", "3, 3840x2160p 23.98/24 Hz 16:9" },
    };
    ExpectRows(MakeDisplayIdRecord(0x27, 0x40, "02 01 00 22 52 10 41 10 81 03"), aoRows);
    // Flags without bit 6: what follows the method is not a list of codes.
    static constexpr SRowCase aoNoCodes[] = {
        { "01.7-6", "Timings with stereo support", "all listed timings" },
        { "01.5-3", "Reserved", "0x5", gsc_szSet },
        { "06-07", "Unknown", "01 10" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x27, 0xA8, "02 01 00 01 10"), aoNoCodes);
}

// ---- Adaptive sync: records of 6 bytes and those that the flags add ----

TEST(MapInterface, AdaptiveSync)
{
    constexpr unsigned int uiPayload = 3;
    SRecord oRecord = MakeDisplayIdRecord(0x2B, 0x98, "A5 0B 30 90 B5 17 5A 52 13 28 77 4A 31 A5");
    oRecord.m_uiOffset += uiPayload;
    oRecord.m_uiFirst = 0;
    oRecord.m_uiSize -= uiPayload;
    static constexpr SRowCase aoRows[] = {
        { "00.7-6", "Reserved", "0x2", gsc_szSet },
        { "00.5", "Maximum single frame duration decrease without jitter impact", "yes" },
        { "00.4", "Seamless transition", "supported" },
        { "00.3-2", "Adaptive sync mode", "fixed average V-total and adaptive V-total" },
        { "00.1", "Maximum single frame duration increase without jitter impact", "no" },
        { "00.0", "Adaptive sync range", "native panel range" },
        { "01", "Maximum single frame duration increase", "2.75 ms" },
        { "02", "Minimum refresh rate", "48 Hz" },
        { "04.1-0 03", "Maximum refresh rate", "401 Hz" },
        { "04.7-2", "Reserved", "0x2d", gsc_szSet },
        { "05", "Maximum single frame duration decrease", "5.75 ms" },
        { "06", "Reserved", "5a", gsc_szSet },
        { "07.7-6", "Reserved", "0x1", gsc_szSet },
        { "07.5", "Maximum single frame duration decrease without jitter impact", "no" },
        { "07.4", "Seamless transition", "not supported" },
        { "07.3-2", "Adaptive sync mode", "fixed average V-total" },
        { "07.1", "Maximum single frame duration increase without jitter impact", "yes" },
        { "07.0", "Adaptive sync range", "not the native panel range" },
        { "08", "Maximum single frame duration increase", "4.75 ms" },
        { "09", "Minimum refresh rate", "40 Hz" },
        { "0B.1-0 0A", "Maximum refresh rate", "632 Hz" },
        { "0B.7-2", "Reserved", "0x12", gsc_szSet },
        { "0C", "Maximum single frame duration decrease", "12.25 ms" },
        { "0D", "Reserved", "a5", gsc_szSet },
    };
    ExpectRows(oRecord, aoRows);
    static constexpr SRowCase aoFlags[] = {
        { "01.7", "Reserved", "0x1", gsc_szSet },
        { "01.6-4", "Extra bytes of each descriptor", "1 byte" },
        { "01.3", "Reserved", "0x1", gsc_szSet },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x2B, 0x98, "A5 0B 30 90 B5 17 5A 52 13 28 77 4A 31 A5"), aoFlags);
}

// The maximum is stored minus 1.
TEST(MapInterface, AdaptiveSyncRatesInTheWrongOrder)
{
    static constexpr SRowCase aoEqual[] = { { "07.1-0 06", "Maximum refresh rate", "48 Hz" } };
    ExpectSomeRows(MakeDisplayIdRecord(0x2B, 0, "00 00 30 2F 00 00"), aoEqual);
    static constexpr SRowCase aoBelow[] = {
        { "07.1-0 06", "Maximum refresh rate", "47 Hz", gsc_szBelow },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x2B, 0, "00 00 30 2E 00 00"), aoBelow);
}

// ---- Makers ----

TEST(MapInterface, Vendors)
{
    static constexpr SRowCase aoVesa[] = {
        { "06.7", "Default color space and EOTF", "native, as in the display parameters data block" },
        { "06.6-3", "Reserved", "0x6", gsc_szSet },
        { "06.2-0", "Data structure type", "DP" },
        { "07.7", "Reserved", "0x1", gsc_szSet },
        { "07.6-5", "Multi-SST operation", "four streams" },
        { "07.4", "Reserved", "0x1", gsc_szSet },
        { "07.3-0", "Pixels that overlap an adjacent panel", "5 pixels" },
        { "03 04 05", "Manufacturer/vendor ID", "3A-02-92 VESA" },
        { "08.7-6", "Reserved", "0x2", gsc_szSet },
        { "08.5-0 09.3-0", "Pass-through timing's DSC bits per pixel", "26.3750 bits per pixel" },
        { "09.7-4", "Reserved", "0xa", gsc_szSet },
    };
    ExpectRows(MakeDisplayIdRecord(0x7E, 0, "3A 02 92 B1 D5 9A A6"), aoVesa);
    // Too short for the depth of compressed pixels, which takes two bytes.
    static constexpr SRowCase aoVesaWithoutDepth[] = {
        { "07.6-5", "Multi-SST operation", "two streams" },
        { "08", "Unknown", "1a" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x7E, 0, "3A 02 92 01 20 1A"), aoVesaWithoutDepth);
    static constexpr SRowCase aoVesaOverlap[] = {
        { "07.3-0", "Pixels that overlap an adjacent panel", "9 pixels", "out of range" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x7E, 0, "3A 02 92 01 09"), aoVesaOverlap);
    static constexpr SRowCase aoVesaTooShort[] = { { "06", "Vendor data", "01" } };
    ExpectSomeRows(MakeDisplayIdRecord(0x7E, 0, "3A 02 92 01"), aoVesaTooShort);
    static constexpr SRowCase aoOther[] = {
        { "06-07", "Vendor data", "21 43" },
        { "03 04 05", "Manufacturer/vendor ID", "00-10-FA Apple" },
    };
    ExpectRows(MakeDisplayIdRecord(0x7E, 0, "00 10 FA 21 43"), aoOther);
    static constexpr SRowCase aoLetters[] = {
        { "01.7-3", "Vendor flags", "0x15" },
        { "03-05", "Manufacturer/vendor ID", "DEL" },
        { "06-07", "Vendor data", "21 43" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x7F, 0xA8, "44 45 4C 21 43"), aoLetters);
    // Letters are A to Z only, and three of them.
    static constexpr SRowCase aoNoLetters[] = { { "03 04 05", "Manufacturer/vendor ID", "41-5A-5B" } };
    ExpectSomeRows(MakeDisplayIdRecord(0x7F, 0, "41 5A 5B"), aoNoLetters);
    static constexpr SRowCase aoFirstAndLastLetter[] = { { "03-05", "Manufacturer/vendor ID", "AZA" } };
    ExpectSomeRows(MakeDisplayIdRecord(0x7F, 0, "41 5A 41"), aoFirstAndLastLetter);
}

TEST(MapInterface, Codes)
{
    static constexpr SCodesCase aoRange[] = { { "11.4", 0, "continuous within the limits|discrete" } };
    ExpectCodes(MakeDisplayIdRecord(0x09, 0, "00*15"), aoRange);

    static constexpr SCodesCase aoInterface[] = {
        { "03.7-4", 1,
          "LVDS|TMDS|RSDS|DVI-D|DVI-I analog|DVI-I digital|HDMI-a|HDMI-b|MDDI|DisplayPort|proprietary "
          "digital|reserved" },
        { "08.3-0", 0, "none|HDCP|DTCP|DPCP|reserved" },
        { "0A.7-6", 0, "none|down spread|center spread|reserved" },
        { "0B.4", 0, "normal|6-bit compatible" },
        { "0C.2", 0, "DE|fixed" },
        { "0C.1", 0, "high|low" },
        { "0C.0", 0, "falling edge|rising edge" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x0F, 0, "10 ..10"), aoInterface);
    static constexpr SCodesCase aoAnalog[] = {
        { "03.3-0", 0, "15HD/VGA|VESA NAVI-V (15HD)|VESA NAVI-D|reserved" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x0F, 0, "00*10"), aoAnalog);
    static constexpr SCodesCase aoProprietary[] = {
        { "0B.2", 0, "DE|fixed" },
        { "0B.1", 0, "high|low" },
        { "0B.0", 0, "falling edge|rising edge" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x0F, 0, "B0 ..10"), aoProprietary);

    static constexpr SCodesCase aoFeatures[] = {
        { "07", 0, "any|74.25 MP/s" },
        { "0C.7-4", 0, "undefined|sRGB|BT.601|BT.709|Adobe RGB|DCI-P3|BT.2020|custom|reserved" },
        { "0C.7-4", 15, "reserved" },
        { "0C.3-0", 0,
          "undefined|sRGB|BT.601|BT.1886|Adobe RGB|DCI-P3|BT.2020|gamma function|SMPTE ST 2084|hybrid log|custom|"
          "reserved" },
        { "0C.3-0", 15, "reserved" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x26, 0, "00*8 01 00"), aoFeatures);

    static constexpr SCodesCase aoStereo[] = {
        { "01.7-6", 0,
          "timings that declare 3D support|timings that declare 3D support, and the codes of this block|"
          "all listed timings|only the codes of this block" },
        { "05.2-1", 0, "none|left/right|top/bottom|reserved" },
        { "05.0", 0, "left eye view|right eye view" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x10, 0, "02 03 00"), aoStereo);
    static constexpr SCodesCase aoPolarity[] = { { "05.0", 0, "left is 1, right is 0|left is 0, right is 1" } };
    ExpectCodes(MakeDisplayIdRecord(0x10, 0, "02 00 00"), aoPolarity);

    static constexpr SCodesCase aoTile[] = {
        { "03.7", 0, "multiple|single" },
        { "03.6", 0, "not given|given" },
        { "03.4-3", 0, "undefined|image at the tile's location|reserved|reserved" },
        { "03.2-0", 0,
          "undefined|image at the tile's location|image scaled to the entire tiled display|"
          "image cloned to all other tiles|reserved|reserved|reserved|reserved" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x28, 0, "00*22"), aoTile);

    static constexpr SCodesCase aoAdaptive[] = {
        { "03.4", 0, "supported|not supported" },
        { "03.3-2", 0, "fixed average V-total|fixed average V-total and adaptive V-total|reserved|reserved" },
        { "03.0", 0, "not the native panel range|native panel range" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x2B, 0, "00*6"), aoAdaptive);

    static constexpr SCodesCase aoVesa[] = {
        { "06.7", 0, "sRGB|native, as in the display parameters data block" },
        { "06.2-0", 0, "eDP|DP|reserved" },
        { "06.2-0", 7, "reserved" },
        { "07.6-5", 0, "not supported|two streams|four streams|reserved" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x7E, 0, "3A 02 92 00 00"), aoVesa);
}
} // namespace
