// Rows of the map over data blocks about colours and sizes of a display: Dolby Vision, display parameters of DisplayID,
// resolutions of video formats.

#include "MapRowCases.h"

namespace
{
// ---- Dolby Vision: places count from the byte after the OUI, the version decides what follows ----

constexpr unsigned int gsc_uiDolbyPayload = 5;

TEST(MapColourRows, DolbyVision0)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7-5", "VSVDB version", "version 0" },
        { "00.4-3", "Reserved", "0x2", gsc_szSet },
        { "00.2", "Global dimming", "yes" },
        { "00.1", "2160p60", "no" },
        { "00.0", "YUV422_12bit", "yes" },
        { "02 01.7-4", "Red x", "0.63916" },
        { "03 01.3-0", "Red y", "0.32935" },
        { "05 04.7-4", "Green x", "0.30151" },
        { "06 04.3-0", "Green y", "0.60059" },
        { "08 07.7-4", "Blue x", "0.15039" },
        { "09 07.3-0", "Blue y", "0.05884" },
        { "0B 0A.7-4", "White x", "0.31299" },
        { "0C 0A.3-0", "White y", "0.33081" },
        { "0E 0D.7-4", "Target minimum luminance", "0.000262 cd/m2 (PQ 12 of 4095)" },
        { "0F 0D.3-0", "Target maximum luminance", "993.90 cd/m2 (PQ 3076 of 4095)" },
        { "10.7-4", "Display management major version", "2" },
        { "10.3-0", "Display management minor version", "5" },
    };
    ExpectRows(MakeCtaRecord(gsc_uiDolbyPayload, "F5 01 46 D0 00 15 A5 A3 54 3C 4D 99 81 26 0F 2B 50 54 C4 00 C0 25"),
               aoRows);
}

TEST(MapColourRows, DolbyVision1)
{
    static constexpr SRowCase aoLong[] = {
        { "00.7-5", "VSVDB version", "version 1" },
        { "00.4-2", "Display management version", "7" },
        { "00.1", "2160p60", "yes" },
        { "00.0", "YUV422_12bit", "no" },
        { "01.7-1", "Target maximum luminance", "1200 cd/m2" },
        { "01.0", "Global dimming", "yes" },
        { "02.7-1", "Target minimum luminance", "0.00750 cd/m2" }, // (11 / 127) ^ 2
        { "02.0", "Colorimetry", "P3-D65" },
        { "03.7-1", "Reserved", "0x52", gsc_szSet },
        { "03.0", "Latency", "standard and low latency" },
        { "04", "Red x", "0.62500" },
        { "05", "Red y", "0.33203" },
        { "06", "Green x", "0.30078" },
        { "07", "Green y", "0.59766" },
        { "08", "Blue x", "0.14844" },
        { "09", "Blue y", "0.06250" },
    };
    ExpectRows(MakeCtaRecord(gsc_uiDolbyPayload, "EE 01 46 D0 00 36 2D 17 A5 A0 55 4D 99 26 10"), aoLong);
    // The form of 7 bytes says how far each coordinate lies above a least one.
    static constexpr SRowCase aoShort[] = {
        { "02.0", "Colorimetry", "ITU-R BT.709" },  { "03.7-5", "Blue x", "0.14453" },
        { "03.4-2", "Blue y", "0.04297" },          { "03.1", "Reserved", "0x1", gsc_szSet },
        { "03.0", "Latency", "standard" },          { "04.7-1", "Green x", "0.30078" },
        { "05.7-1", "Green y", "0.60156" },         { "06.7-3", "Red x", "0.64844" },
        { "06.2-0 05.0 04.0", "Red y", "0.33203" },
    };
    ExpectSomeRows(MakeCtaRecord(gsc_uiDolbyPayload, "EB 01 46 D0 00 36 2D 16 AE 9B 34 35"), aoShort);
}

TEST(MapColourRows, DolbyVision2)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7-5", "VSVDB version", "version 2" },
        { "00.4-2", "Display management version", "5" },
        { "00.1", "Backlight control", "yes" },
        { "00.0", "YUV422_12bit", "yes" },
        { "01.7-3", "Target minimum luminance", "0.070698 cd/m2 (PQ 220 of 4095)" },
        { "01.2", "Global dimming", "no" },
        { "01.1-0", "Backlight minimum luminance", "75 cd/m2" },
        { "02.7-3", "Target maximum luminance", "1604.69 cd/m2 (PQ 3290 of 4095)" },
        { "02.2", "Unknown", "0x1" },
        { "02.1-0", "Interface", "standard, low latency" },
        { "03.0 04.0", "10b_12b_444", "12 bit" },
        { "03.7-1", "Green x", "0.30078" },
        { "04.7-1", "Green y", "0.60156" },
        { "05.7-3", "Red x", "0.64844" },
        { "05.2-0", "Blue x", "0.14453" },
        { "06.7-3", "Red y", "0.33203" },
        { "06.2-0", "Blue y", "0.04297" },
    };
    ExpectRows(MakeCtaRecord(gsc_uiDolbyPayload, "EB 01 46 D0 00 4F 5A 9E 9B 34 35 AB"), aoRows);
    static constexpr SCodesCase aoCodes[] = {
        { "02.1-0", 0,
          "low latency|low latency, low latency HDMI|standard, low latency|standard, low latency, low latency HDMI" },
        { "03.0 04.0", 0, "no|10 bit|12 bit|reserved" },
    };
    ExpectCodes(MakeCtaRecord(gsc_uiDolbyPayload, "EB 01 46 D0 00 40 ..12"), aoCodes);
}

// ---- Display parameters of DisplayID 1.3 and 2.0 ----

TEST(MapColourRows, DisplayParameters1)
{
    static constexpr SRowCase aoRows[] = {
        { "04 03", "Horizontal image size", "693.0 mm" },
        { "06 05", "Vertical image size", "389.2 mm" },
        { "08 07", "Horizontal pixel count", "1920 pixels" },
        { "0A 09", "Vertical pixel count", "1080 lines" },
        { "0B.7", "Audio support on video interface", "yes" },
        { "0B.6", "Separate audio inputs", "no" },
        { "0B.5", "Audio input override", "yes" },
        { "0B.4", "Power management", "yes" },
        { "0B.3", "Fixed timing", "no" },
        { "0B.2", "Fixed pixel format", "no" },
        { "0B.1", "ACP, ISRC1 or ISRC2 packets supported", "yes" },
        { "0B.0", "De-interlacing", "no" },
        { "0C", "Transfer characteristic gamma", "2.20" },
        { "0D", "Aspect ratio", "1.78" },
        { "0E.7-4", "Color bit depth, overall", "10 bits per color" },
        { "0E.3-0", "Color bit depth, native", "8 bits per color" },
    };
    ExpectRows(MakeDisplayIdRecord(0x01, 0, "12 1B 34 0F 80 07 38 04 B2 78 4E 97"), aoRows);
    static constexpr SCodesCase aoCodes[] = {
        { "04 03", 0, "not given|0.1 mm" }, { "06 05", 0, "not given|0.1 mm" }, { "08 07", 0, "not given|1 pixel" },
        { "0A 09", 0, "not given|1 line" }, { "0C", 0xFE, "3.54|not given" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x01, 0, "00*12"), aoCodes);
}

TEST(MapColourRows, DisplayParameters2)
{
    static constexpr SRowCase aoRows[] = {
        { "04 03", "Horizontal image size", "693.0 mm" },
        { "06 05", "Vertical image size", "389.2 mm" },
        { "08 07", "Horizontal pixel count", "1920 pixels" },
        { "0A 09", "Vertical pixel count", "1080 lines" },
        { "0B.7", "Audio speakers", "not integrated" },
        { "0B.6", "Color information", "CIE 1931 (x, y)" },
        { "0B.5", "Reserved", "0x1", gsc_szSet },
        { "0B.4-3", "Luminance information", "guidance for the source device" },
        { "0B.2-0", "Scan orientation", "bottom to top, right to left" },
        { "0D.3-0 0C", "Primary color 1 x", "0.6392" },
        { "0E 0D.7-4", "Primary color 1 y", "0.3293" },
        { "10.3-0 0F", "Primary color 2 x", "0.3015" },
        { "11 10.7-4", "Primary color 2 y", "0.6006" },
        { "13.3-0 12", "Primary color 3 x", "0.1504" },
        { "14 13.7-4", "Primary color 3 y", "0.0588" },
        { "16.3-0 15", "White point x", "0.3130" },
        { "17 16.7-4", "White point y", "0.3308" },
        { "19 18", "Maximum luminance, full coverage", "600 cd/m2" },
        { "1B 1A", "Maximum luminance, 10% rectangular coverage", "1000 cd/m2" },
        { "1D 1C", "Minimum luminance", "0.250244 cd/m2" },
        { "1E.7", "Device theme preference", "dark theme preferred" },
        { "1E.6-4", "Display device technology", "organic LED" },
        { "1E.3", "Reserved", "0x1", gsc_szSet },
        { "1E.2-0", "Color bit depth, native", "10 bits per color" },
        { "1F", "Gamma EOTF, native", "2.20" },
    };
    ExpectRows(MakeDisplayIdRecord(0x21, 1,
                                   "12 1B 34 0F 80 07 38 04 AB 3A 5A 54 D3 C4 99 68 12 0F 02 B5 54 B0 60 D0 63 "
                                   "01 34 AB 78"),
               aoRows);
    // Whole millimetres by a flag; a theme from revision 1 on.
    static constexpr SRowCase aoMillimetres[] = {
        { "01.7", "Image size precision", "1 mm" },     { "01.6-3", "Reserved", "0xb", gsc_szSet },
        { "04 03", "Horizontal image size", "693 mm" }, { "06 05", "Vertical image size", "389 mm" },
        { "1E.7", "Reserved", "0x1", gsc_szSet },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x21, 0xD8, "B5 02 85 01 ..27 80 00"), aoMillimetres);
    static constexpr SCodesCase aoCodes[] = {
        { "04 03", 0, "not given|0.1 mm" },
        { "06 05", 0, "not given|0.1 mm" },
        { "08 07", 0, "not given|1 pixel" },
        { "0A 09", 0, "not given|1 line" },
        { "0B.7", 0, "integrated|not integrated" },
        { "0B.6", 0, "CIE 1931 (x, y)|CIE 1976 (u', v')" },
        { "0B.4-3", 0, "minimum guaranteed value|guidance for the source device|reserved|reserved" },
        { "0B.2-0", 0,
          "left to right, top to bottom|right to left, top to bottom|top to bottom, right to left|"
          "bottom to top, right to left|right to left, bottom to top|left to right, bottom to top|"
          "bottom to top, left to right|top to bottom, left to right" },
        { "1E.7", 0, "no preference|dark theme preferred" },
        { "1E.6-4", 0, "not specified|active matrix LCD|organic LED|reserved" },
        { "1E.6-4", 7, "reserved" },
        { "1E.2-0", 0,
          "not defined|6 bits per color|8 bits per color|10 bits per color|12 bits per color|16 bits per color|"
          "reserved|reserved" },
        { "1F", 0xFE, "3.54|not given" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x21, 1, "00*29"), aoCodes);
    static constexpr SCodesCase aoMillimetreCodes[] = {
        { "04 03", 0, "not given|1 mm" },
        { "06 05", 0, "not given|1 mm" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x21, 0x80, "00*29"), aoMillimetreCodes);
}

// ---- Video formats by resolution ----

TEST(MapColourRows, Resolutions)
{
    static constexpr SCodesCase aoCodes[] = {
        { "01.5-0", 0,
          "none|1280x720 16:9|1280x720 64:27|1680x720 64:27|1920x1080 16:9|1920x1080 64:27|2560x1080 64:27|"
          "3840x1080 32:9|2560x1440 16:9|3440x1440 64:27|5120x1440 32:9|3840x2160 16:9|3840x2160 64:27|"
          "5120x2160 64:27|7680x2160 32:9|5120x2880 16:9|5120x2880 64:27|6880x2880 64:27|10240x2880 32:9|"
          "7680x4320 16:9|7680x4320 64:27|10240x4320 64:27|15360x4320 32:9|11520x6480 16:9|11520x6480 64:27|"
          "15360x6480 64:27|15360x8640 16:9|15360x8640 64:27|20480x8640 64:27|reserved" },
        { "01.5-0", 63, "reserved" },
    };
    ExpectCodes(MakeCtaRecord(1, "C2 00 00"), aoCodes);
}
} // namespace
