// Rows of the map over the CTA-861 data blocks of makers, and over those that describe a display as a whole, of CTA-861
// and of DisplayID.

#include "MapRowCases.h"

namespace
{
// ---- Display device data of CTA-861 (30 bytes) and of DisplayID ----

TEST(MapVendorRows, VideoDisplayDevice)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7-4", "Interface type", "DisplayPort" },
        { "00.3-0", "Number of lanes or channels", "5" },
        { "01.7-4", "Interface version", "1" },
        { "01.3-0", "Interface release", "2" },
        { "02", "Content protection support", "DPCP" },
        { "03.7-2", "Minimum clock frequency", "22 MHz" },
        { "03.1-0 04", "Maximum clock frequency", "300 MHz" },
        { "06 05", "Native horizontal pixels", "1920 pixels" },
        { "08 07", "Native vertical pixels", "1200 pixels" },
        { "09", "Aspect ratio", "1.60" },
        { "0A.7-6", "Default orientation", "portrait" },
        { "0A.5-4", "Rotation capability", "90 degrees either way" },
        { "0A.3-2", "Zero pixel location", "lower left" },
        { "0A.1-0", "Scan direction", "fast scan on the short axis" },
        { "0B", "Subpixel layout", "quad, red at the bottom left" },
        { "0C", "Horizontal pixel pitch", "0.27 mm" },
        { "0D", "Vertical pixel pitch", "0.45 mm" },
        { "0E.7-6", "Dithering", "temporal" },
        { "0E.5", "Direct drive", "yes" },
        { "0E.4", "Overdrive not recommended", "no" },
        { "0E.3", "Deinterlacing", "yes" },
        { "0E.2-0", "Reserved", "0x5", gsc_szSet },
        { "0F.7", "Audio support", "yes" },
        { "0F.6", "Separate audio inputs", "no" },
        { "0F.5", "Audio input override", "yes" },
        { "0F.4-0", "Reserved", "0x16", gsc_szSet },
        { "10.7", "Audio delay sign", "positive" },
        { "10.6-0", "Audio delay", "44 ms" },
        { "11.7-6", "Frame rate conversion", "double buffering" },
        { "11.5-0", "Frame rate range", "23 Hz" },
        { "12", "Native or nominal frame rate", "72 Hz" },
        { "13.7-4", "Color bit depth of the interface", "12 bits" },
        { "13.3-0", "Color bit depth of the display", "10 bits" },
        { "16 14.7-6", "Primary 4 x", "0.64551" },
        { "17 14.5-4", "Primary 4 y", "0.32227" },
        { "18 14.3-2", "Primary 5 x", "0.29590" },
        { "19 14.1-0", "Primary 5 y", "0.60156" },
        { "1A 15.7-6", "Primary 6 x", "0.15039" },
        { "1B 15.5-4", "Primary 6 y", "0.06348" },
        { "15.3-2", "Reserved", "0x3", gsc_szSet },
        { "15.1-0", "Number of additional primaries", "3" },
        { "1C.7", "Response time transition", "white to black" },
        { "1C.6-0", "Response time", "75 ms" },
        { "1D.7-4", "Horizontal overscan", "3 %" },
        { "1D.3-0", "Vertical overscan", "7 %" },
    };
    ExpectRows(MakeCtaRecord(2, "FF 02 95 12 03 59 2C 80 07 B0 04 3C 7A 06 1B 2D AD B6 96 97 48 B9 6C 9F A5 52 4B 9A "
                                "26 10 CB 37"),
               aoRows);
    // Two more primaries, a maximum below the minimum, and an unknown audio delay.
    static constexpr SRowCase aoLess[] = {
        { "03.1-0 04", "Maximum clock frequency", "21 MHz", "is below the minimum clock frequency" },
        { "10", "Audio delay", "not specified" },
        { "18 14.3-2", "Primary 5 x", "0.29590" },
        { "1A-1B", "Reserved", "26 10", gsc_szSet },
    };
    ExpectSomeRows(MakeCtaRecord(2, "FF 02 95 12 03 58 15 ..22 6C 02 A5 52 4B 9A 26 10 ..32"), aoLess);
}

TEST(MapVendorRows, DeviceOfDisplayId)
{
    static constexpr SRowCase aoRows[] = {
        { "03", "Display device technology", "active matrix IPS" },
        { "04.7-4", "Operating mode", "direct-view transmissive, light source" },
        { "04.3", "Backlight switchable", "yes" },
        { "04.2", "Backlight intensity controllable", "no" },
        { "04.1-0", "Reserved", "0x2", gsc_szSet },
        { "06 05", "Horizontal pixel count", "1920 pixels" },
        { "08 07", "Vertical pixel count", "1200 lines" },
        { "09", "Aspect ratio", "1.60" },
        { "0A.7-6", "Default orientation", "portrait" },
        { "0A.5-4", "Rotation capability", "90 degrees either way" },
        { "0A.3-2", "Zero pixel location", "lower left" },
        { "0A.1-0", "Scan direction", "fast on short axis, slow on long" },
        { "0B", "Sub-pixel layout", "quad, red bottom left" },
        { "0C", "Horizontal dot or pixel pitch", "0.27 mm" },
        { "0D", "Vertical dot or pixel pitch", "0.45 mm" },
        { "0E.7-4", "Reserved", "0xa", gsc_szSet },
        { "0E.3-0", "Color bit depth", "unknown" },
        { "0F.7", "Response time transition", "white to black" },
        { "0F.6-0", "Response time", "75 ms" },
    };
    ExpectRows(MakeDisplayIdRecord(0x0C, 0, "15 5A 7F 07 AF 04 3C 7A 06 1B 2D A7 CB"), aoRows);
}

TEST(MapVendorRows, CodesOfDevices)
{
    static constexpr SCodesCase aoCta[] = {
        { "00.7-4", 1,
          "LVDS|RSDS|DVI-D|DVI-I analog|DVI-I digital|HDMI-A|HDMI-B|MDDI|DisplayPort|IEEE-1394|M1 analog|M1 digital|"
          "reserved|reserved|reserved" },
        { "02", 0, "none|HDCP|DTCP|DPCP|reserved" },
        { "02", 255, "reserved" },
        { "03.7-2", 0, "not specified|1 MHz" },
        { "03.1-0 04", 0, "not specified|1 MHz" },
        { "06 05", 0, "not specified|1 pixel" },
        { "08 07", 0, "not specified|1 pixel" },
        { "0A.7-6", 0, "landscape|portrait|not fixed|undefined" },
        { "0A.5-4", 0, "none|90 degrees clockwise|90 degrees counterclockwise|90 degrees either way" },
        { "0A.3-2", 0, "upper left|upper right|lower left|lower right" },
        { "0A.1-0", 0, "not defined|fast scan on the long axis|fast scan on the short axis|reserved" },
        { "0B", 0,
          "not defined|RGB vertical stripes|RGB horizontal stripes|"
          "vertical stripes in the order of the base block's primaries|"
          "horizontal stripes in the order of the base block's primaries|quad, red at the top left|"
          "quad, red at the bottom left|delta RGB|mosaic|quad, RGB and 1 more colour|five, RGB and 2 more colours|"
          "six, RGB and 3 more colours|Clairvoyante PenTile Matrix|reserved" },
        { "0B", 255, "reserved" },
        { "0E.7-6", 0, "none|spatial|temporal|spatial and temporal" },
        { "11.7-6", 0, "none|single buffering|double buffering|advanced" },
        { "1C.7", 0, "black to white|white to black" },
    };
    ExpectCodes(MakeCtaRecord(2, "FF 02 10 ..32"), aoCta);
    static constexpr SCodesCase aoAnalog[] = {
        { "00.3-0", 0, "15HD/VGA|VESA NAVI-V (15HD)|VESA NAVI-D|reserved" },
        { "00.3-0", 15, "reserved" },
        { "00.7-4", 0, "analog" },
    };
    ExpectCodes(MakeCtaRecord(2, "FF 02 ..32"), aoAnalog);
    static constexpr SCodesCase aoDelay[] = { { "10.7", 0, "negative|positive" } };
    ExpectCodes(MakeCtaRecord(2, "FF 02 ..18 01 ..32"), aoDelay);

    static constexpr SCodesCase aoDisplayId[] = {
        { "03", 0x00, "monochrome CRT|standard tricolor CRT|other CRT" },
        { "03", 0x10,
          "passive matrix TN|passive matrix cholesteric LC|passive matrix ferroelectric LC|other passive matrix LC|"
          "active matrix TN|active matrix IPS|active matrix VA|active matrix OCB|active matrix ferroelectric" },
        { "03", 0x1F, "other LC|DC plasma|AC plasma" },
        { "03", 0x30, "electroluminescent, not OLED" },
        { "03", 0x3F, "electroluminescent, not OLED|inorganic LED" },
        { "03", 0x4F, "inorganic LED|organic LED" },
        { "03", 0x5F, "organic LED|FED or like, cold cathode with phosphor" },
        { "03", 0x6F, "FED or like, cold cathode with phosphor|electrophoretic" },
        { "03", 0x7F, "electrophoretic|electrochromic" },
        { "03", 0x8F, "electrochromic|electromechanical" },
        { "03", 0x9F, "electromechanical|electrowetting" },
        { "03", 0xAF, "electrowetting" },
        { "03", 0xF0, "other" },
        { "04.7-4", 0,
          "direct-view reflective, ambient light|direct-view reflective, ambient light and light source|"
          "direct-view reflective, light source|direct-view transmissive, ambient light|"
          "direct-view transmissive, ambient light and light source|direct-view transmissive, light source|"
          "direct-view emissive|direct-view transflective, backlight off by default|"
          "direct-view transflective, backlight on by default|transparent, ambient light|transparent emissive|"
          "projection, reflective light modulator|projection, transmissive light modulator|"
          "projection, emissive transducer" },
        { "06 05", 0, "not given|2 pixels" },
        { "08 07", 0, "not given|2 lines" },
        { "0A.7-6", 0, "landscape|portrait|not fixed|undefined" },
        { "0A.5-4", 0, "none|90 degrees clockwise|90 degrees counterclockwise|90 degrees either way" },
        { "0A.3-2", 0, "upper left|upper right|lower left|lower right" },
        { "0A.1-0", 0, "not defined|fast on long axis, slow on short|fast on short axis, slow on long|reserved" },
        { "0B", 0,
          "not defined|RGB vertical stripes|RGB horizontal stripes|vertical stripes in primary order|"
          "horizontal stripes in primary order|quad, red top left|quad, red bottom left|delta (triad) RGB|mosaic|"
          "quad, RGB and 1 more color|five sub-pixels, RGB and 2 more colors|six sub-pixels, RGB and 3 more colors|"
          "PenTile matrix" },
        { "0F.7", 0, "black to white|white to black" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x0C, 0, "00*13"), aoDisplayId);
}

// Byte 2 of a section says what has it. A section that follows another one says 0.
TEST(MapVendorRows, CodesOfSections)
{
    SRecord oRecord = MakeDisplayIdRecord(0x7F, 0, "44 45 4C");
    oRecord.m_uiOffset = gsc_uiBlockSize + 1;
    static constexpr SCodesCase aoTypes[] = {
        { "02", 1,
          "test structure|display panel or other transducer|standalone display device|television receiver|"
          "repeater or translator|direct drive monitor" },
    };
    ExpectCodes(oRecord, aoTypes);
    SetBits(oRecord.m_aui8Image, oRecord.m_uiOffset, "00", 0x20);
    static constexpr SCodesCase aoUses[] = {
        { "02", 1,
          "test structure|none of the listed, generic display|television|desktop productivity|desktop gaming|"
          "presentation|head-mounted virtual reality|head-mounted augmented reality" },
    };
    ExpectCodes(oRecord, aoUses);
}

// ---- Makers ----

TEST(MapVendorRows, Amd)
{
    static constexpr SRowCase aoVersion3[] = {
        { "00", "Version", "3" },
        { "01.7-2", "Unknown", "0x2d" },
        { "01.1", "Luminances are valid", "yes" },
        { "01.0", "Unknown", "0x0" },
        { "02", "Minimum refresh rate", "48 Hz" },
        { "03", "Unknown", "90" },
        { "04", "Unknown", "11" },
        { "05", "Unknown", "22" },
        { "06", "Maximum luminance", "200.000 cd/m2" },         // 50 * 2 ^ (64 / 32)
        { "07", "Minimum luminance", "0.503929 cd/m2" },        // 200 * (128 / 255) ^ 2 / 100
        { "08", "Second maximum luminance", "400.000 cd/m2" },  // 50 * 2 ^ (96 / 32)
        { "09", "Second minimum luminance", "0.160000 cd/m2" }, // 400 * (51 / 255) ^ 2 / 100
        { "0B.1-0 0A", "Maximum refresh rate", "300 Hz" },
        { "0B.7-2", "Unknown", "0x15" },
        { "0C", "Unknown", "77" },
    };
    ExpectRows(MakeCtaRecord(4, "70 1A 00 00 03 B6 30 90 11 22 40 80 60 33 2C 55 77"), aoVersion3);
    // The wide rate needs version 3 and its bytes, luminances version 2 and the flag.
    static constexpr SRowCase aoVersion2[] = {
        { "03", "Maximum refresh rate", "47 Hz", "is below the minimum refresh rate" },
        { "06-09", "Unknown", "40 80 60 33" },
        { "0A-0B", "Unknown", "2c 55" },
    };
    ExpectSomeRows(MakeCtaRecord(4, "6F 1A 00 00 02 B4 30 2F 11 22 40 80 60 33 2C 55"), aoVersion2);
    static constexpr SRowCase aoVersion3Short[] = {
        { "03", "Maximum refresh rate", "48 Hz" },
        { "06", "Maximum luminance", "200.000 cd/m2" },
        { "0A", "Unknown", "2c" },
    };
    ExpectSomeRows(MakeCtaRecord(4, "6E 1A 00 00 03 B6 30 30 11 22 40 80 60 33 2C"), aoVersion3Short);
    static constexpr SRowCase aoVersion1[] = { { "06-09", "Unknown", "40 80 60 33" } };
    ExpectSomeRows(MakeCtaRecord(4, "6D 1A 00 00 01 B6 30 90 11 22 40 80 60 33"), aoVersion1);
}

TEST(MapVendorRows, Microsoft)
{
    static constexpr SRowCase aoVersion3[] = {
        { "00", "Version", "3" },
        { "01.7", "Reserved", "0x1", gsc_szSet },
        { "01.6", "Desktop usage", "yes" },
        { "01.5", "Third-party usage", "no" },
        { "01.4-0", "Display product primary use case", "dedicated gaming display" },
        { "02-11", "Container ID", "10213243-5465-7687-98a9-bacbdcedfe0f" },
    };
    ExpectRows(MakeCtaRecord(4, "75 5C 12 CA 03 D2 10 21 32 43 54 65 76 87 98 A9 BA CB DC ED FE 0F"), aoVersion3);
    static constexpr SRowCase aoVersion2[] = { { "01.7-5", "Reserved", "0x3", gsc_szSet } };
    ExpectSomeRows(MakeCtaRecord(4, "75 5C 12 CA 02 72 ..22"), aoVersion2);
    static constexpr SCodesCase aoUses[] = {
        { "01.4-0", 0,
          "unknown|test equipment|generic display|television display|desktop productivity display|"
          "desktop gaming display|presentation display|virtual reality headset|augmented reality|reserved" },
        { "01.4-0", 15,
          "reserved|video wall display|medical imaging display|dedicated gaming display|"
          "dedicated video monitor display|accessory display|reserved" },
        { "01.4-0", 31, "reserved" },
    };
    ExpectCodes(MakeCtaRecord(4, "75 5C 12 CA 03 ..22"), aoUses);
}

TEST(MapVendorRows, InfoFrames)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7-5", "Length of the InfoFrame processing descriptor's payload", "1 byte" },
        { "00.4-0", "Reserved", "0x15", gsc_szSet },
        { "01", "Vendor-Specific InfoFrames at once", "3" },
        { "02", "Payload", "aa" },
        { "03.7-5", "Payload length", "2 bytes" },
        { "03.4-0", "InfoFrame type code", "Vendor-Specific" },
        { "06 05 04", "IEEE OUI", "00-0C-03 HDMI Licensing" },
        { "07-08", "Payload", "12 34" },
        { "09.7-5", "Payload length", "3 bytes" },
        { "09.4-0", "InfoFrame type code", "Dynamic Range and Mastering" },
        { "0A-0C", "Payload", "01 02 03" },
    };
    ExpectRows(MakeCtaRecord(2, "EE 20 35 02 AA 41 03 0C 00 12 34 67 01 02 03"), aoRows);
    static constexpr SCodesCase aoCodes[] = {
        { "02.4-0", 2,
          "Auxiliary Video Information|Source Product Description|Audio|MPEG Source|NTSC VBI|"
          "Dynamic Range and Mastering|reserved" },
        { "02.4-0", 0, "reserved" },
        { "02.4-0", 31, "reserved" },
    };
    ExpectCodes(MakeCtaRecord(2, "E4 20 00 00 02"), aoCodes);
}
} // namespace
