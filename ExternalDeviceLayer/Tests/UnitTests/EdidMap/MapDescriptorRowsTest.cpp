// Rows of the map over the 18-byte descriptors: detailed timings and display descriptors.

#include "MapRowCases.h"

namespace
{
constexpr unsigned int gsc_uiRevision3 = 3;
constexpr unsigned int gsc_uiRevision4 = 4;

// ---- Detailed timings: a value of its own in each field, and each kind of sync signal ----

TEST(MapDescriptorRows, DetailedTiming)
{
    static constexpr SRowCase aoSeparate[] = {
        { "01 00", "Pixel clock", "133.30 MHz" },
        { "04.7-4 02", "Horizontal addressable video", "2646 pixels" },
        { "04.3-0 03", "Horizontal blanking", "1400 pixels" },
        { "07.7-4 05", "Vertical addressable video", "1690 lines" },
        { "07.3-0 06", "Vertical blanking", "3004 lines" },
        { "0B.7-6 08", "Horizontal front porch", "305 pixels" },
        { "0B.5-4 09", "Horizontal sync pulse width", "599 pixels" },
        { "0B.3-2 0A.7-4", "Vertical front porch", "4 lines" },
        { "0B.1-0 0A.3-0", "Vertical sync pulse width", "22 lines" },
        { "0E.7-4 0C", "Horizontal addressable video image size", "653 mm",
          "the image size is far from the screen size in bytes 15h and 16h" },
        { "0E.3-0 0D", "Vertical addressable video image size", "3198 mm" },
        { "0F", "Horizontal border", "5 pixels" },
        { "10", "Vertical border", "9 lines" },
        { "11.7", "Signal interface type", "interlaced" },
        { "11.6-5 11.0", "Stereo viewing support", "2-way interleaved, right image on even lines" },
        { "11.4-3", "Sync signal type", "digital separate" },
        { "11.2", "Vertical sync polarity", "positive" },
        { "11.1", "Horizontal sync polarity", "negative" },
    };
    SRecord oRecord = MakeDescriptorRecord(gsc_uiRevision4, "12 34 56 78 A5 9A BC 6B 31 57 46 61 8D 7E 2C 05 09 BD");
    oRecord.m_uiFirst = 0;
    ExpectRows(oRecord, aoSeparate);
    static constexpr SRowCase aoComposite[] = {
        { "11.7", "Signal interface type", "non-interlaced" },
        { "11.6-5 11.0", "Stereo viewing support", "field sequential, left image when stereo sync = 1" },
        { "11.4-3", "Sync signal type", "digital composite" },
        { "11.2", "Serrations", "without" },
        { "11.1", "Horizontal sync polarity", "positive" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "01 ..17 52"), aoComposite);
    static constexpr SRowCase aoAnalog[] = {
        { "11.7", "Signal interface type", "non-interlaced" },
        { "11.6-5 11.0", "Stereo viewing support", "4-way interleaved" },
        { "11.4-3", "Sync signal type", "bipolar analog composite" },
        { "11.2", "Serrations", "with (H-sync during V-sync)" },
        { "11.1", "Sync on", "green only" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "01 ..17 6C"), aoAnalog);
}

TEST(MapDescriptorRows, EmbeddedPanelInterface)
{
    static constexpr SRowCase aoRows[] = {
        { "05.7", "Reserved", "0x1", gsc_szSet },
        { "05.6-5", "Data color mapping", "not conventional" },
        { "05.4-3", "Pixels per clock", "4" },
        { "05.2-0", "Bits per pixel", "24" },
        { "06.5", "Shift clock", "inverted" },
        { "06.4", "Data enable, active", "high" },
        { "06.3-0", "Interface type", "TMDS" },
        { "07.1", "Horizontal display mode", "reversed" },
        { "07.0", "Vertical display mode", "normal" },
        { "08.7-4", "Power off sequencing delay", "120 ms" },
        { "08.3-0", "Power on sequencing delay", "30 ms" },
        { "09.7-4", "Contrast power off delay", "default of the controller" },
        { "09.3-0", "Contrast power on delay", "70 ms" },
        { "0A.7", "Backlight control", "enabled" },
        { "0A.6", "Backlight off at boot", "no" },
        { "0A.5-0", "Backlight brightness control", "50 steps" },
        { "0B.7", "Contrast control", "disabled" },
        { "0B.5-0", "Contrast voltage control", "11 steps" },
        { "11.7-4", "EPI version", "1" },
        { "11.3-0", "EPI revision", "2" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00*3 0E 00 B1 25 02 C3 07 B2 0B 00*5 12"), aoRows);
}

// Blanking holds front porch and sync pulse: 176 + 352 pixels, 37 + 22 lines; and the borders on both sides.
TEST(MapDescriptorRows, BlankingOfADetailedTiming)
{
    static constexpr SRowCase aoEnough[] = {
        { "04.3-0 03", "Horizontal blanking", "529 pixels" },
        { "07.3-0 06", "Vertical blanking", "60 lines" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "01 00 01 11 02 01 3C 00 B0 60 56 19 ..18"), aoEnough);
    static constexpr SRowCase aoJust[] = {
        { "04.3-0 03", "Horizontal blanking", "528 pixels", "front porch, sync pulse and borders leave no back porch" },
        { "07.3-0 06", "Vertical blanking", "59 lines", "front porch, sync pulse and borders leave no back porch" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "01 00 01 10 02 01 3B 00 B0 60 56 19 ..18"), aoJust);
    static constexpr SRowCase aoShort[] = {
        { "04.3-0 03", "Horizontal blanking", "527 pixels", "shorter than front porch, sync pulse and borders" },
        { "07.3-0 06", "Vertical blanking", "58 lines", "shorter than front porch, sync pulse and borders" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "01 00 01 0F 02 01 3A 00 B0 60 56 19 ..18"), aoShort);
    static constexpr SRowCase aoBorders[] = {
        { "04.3-0 03", "Horizontal blanking", "530 pixels", "front porch, sync pulse and borders leave no back porch" },
        { "07.3-0 06", "Vertical blanking", "60 lines", "shorter than front porch, sync pulse and borders" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "01 00 01 12 02 01 3C 00 B0 60 56 19 00*3 01 01 ..18"),
                   aoBorders);
}

TEST(MapDescriptorRows, DetailedTimingOfZeros)
{
    static constexpr SRowCase aoRows[] = {
        { "04.7-4 02", "Horizontal addressable video", "0 pixels", "0 is not a size" },
        { "07.7-4 05", "Vertical addressable video", "0 lines", "0 is not a size" },
        { "0B.7-6 08", "Horizontal front porch", "0 pixels", "no front porch" },
        { "0B.5-4 09", "Horizontal sync pulse width", "0 pixels", "no sync pulse" },
        { "0B.3-2 0A.7-4", "Vertical front porch", "0 lines", "no front porch" },
        { "0B.1-0 0A.3-0", "Vertical sync pulse width", "0 lines", "no sync pulse" },
        { "0E.7-4 0C", "Horizontal addressable video image size", "not given" },
        { "0E.3-0 0D", "Vertical addressable video image size", "not given" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "01 ..18"), aoRows);
}

// ---- Display range limits ----

TEST(MapDescriptorRows, RangeLimitsWithCvt)
{
    static constexpr SRowCase aoRows[] = {
        { "04.3-2", "Horizontal rate offsets", "maximum + 255 kHz" },
        { "04.1-0", "Vertical rate offsets", "maximum + 255 Hz" },
        { "05", "Minimum vertical rate", "48 Hz" },
        { "06", "Maximum vertical rate", "399 Hz" },
        { "07", "Minimum horizontal rate", "30 kHz" },
        { "08", "Maximum horizontal rate", "418 kHz" },
        { "09", "Maximum pixel clock", "310 MHz" },
        { "0A", "Video timing support", "CVT" },
        { "0B.7-4", "CVT standard version", "1" },
        { "0B.3-0", "CVT standard revision", "2" },
        { "0C.7-2", "Additional pixel clock precision", "5.50 MHz" },
        { "0C.1-0 0D", "Maximum active pixels per line", "2400 pixels" },
        { "0E.7", "4:3 aspect ratio", "supported" },
        { "0E.6", "16:9 aspect ratio", "not supported" },
        { "0E.5", "16:10 aspect ratio", "supported" },
        { "0E.4", "5:4 aspect ratio", "supported" },
        { "0E.3", "15:9 aspect ratio", "not supported" },
        { "0E.2-0", "Reserved", "0x5", gsc_szSet },
        { "0F.7-5", "Preferred aspect ratio", "16:9", "is not one of those supported" },
        { "0F.4", "CVT reduced blanking", "not supported" },
        { "0F.3", "CVT standard blanking", "supported" },
        { "0F.2-0", "Reserved", "0x6", gsc_szSet },
        { "10.7", "Horizontal shrink", "supported" },
        { "10.6", "Horizontal stretch", "not supported" },
        { "10.5", "Vertical shrink", "not supported" },
        { "10.4", "Vertical stretch", "supported" },
        { "10.3-0", "Reserved", "0x6", gsc_szSet },
        { "11", "Preferred vertical refresh rate", "75 Hz" },
        { "03", "Display descriptor tag", "display range limits" },
    };
    ExpectRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FD 0A 30 90 1E A3 1F 04 12 59 2C B5 2E 96 4B"), aoRows);
}

TEST(MapDescriptorRows, RangeLimitsWithSecondaryGtf)
{
    static constexpr SRowCase aoRevision4[] = {
        { "04.3-2", "Horizontal rate offsets", "maximum and minimum + 255 kHz" },
        { "04.1-0", "Vertical rate offsets", "maximum + 255 Hz" },
        { "05", "Minimum vertical rate", "48 Hz" },
        { "06", "Maximum vertical rate", "399 Hz" },
        { "07", "Minimum horizontal rate", "285 kHz" },
        { "08", "Maximum horizontal rate", "418 kHz" },
        { "09", "Maximum pixel clock", "310 MHz" },
        { "0A", "Video timing support", "secondary GTF" },
        { "0B", "Reserved", "5a", gsc_szSet },
        { "0C", "Start break frequency", "70 kHz" },
        { "0D", "C", "40.5 %" },
        { "0F 0E", "M", "4660 %/kHz" },
        { "10", "K", "103" },
        { "11", "J", "21.5 %" },
        { "03", "Display descriptor tag", "display range limits" },
    };
    ExpectRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FD 0E 30 90 1E A3 1F 02 5A 23 51 34 12 67 2B"),
               aoRevision4);
    static constexpr SRowCase aoRevision3[] = {
        { "04", "Reserved", "0e", gsc_szSet },          { "05", "Minimum vertical rate", "48 Hz" },
        { "06", "Maximum vertical rate", "144 Hz" },    { "07", "Minimum horizontal rate", "30 kHz" },
        { "08", "Maximum horizontal rate", "163 kHz" }, { "0A", "Secondary timing formula", "secondary GTF" },
        { "0C", "Start break frequency", "70 kHz" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision3, "00 00 00 FD 0E 30 90 1E A3 1F 02 5A 23 51 34 12 67 2B"),
                   aoRevision3);
}

TEST(MapDescriptorRows, RangeLimitsWithoutFormula)
{
    static constexpr SRowCase aoPlain[] = {
        { "04.3-2", "Horizontal rate offsets", "none" },
        { "0A", "Video timing support", "range limits only" },
        { "0B", "Line feed", "0b", "must be a line feed (0Ah)" },
        { "0C-11", "Padding", "20 20 21 20 20 20", "blanks (20h) must fill the rest" },
        { "02", "Reserved", "21", gsc_szSet },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 21 FD 00 30 90 1E A3 1F 01 0B 20 20 21 20 20 20"),
                   aoPlain);
    static constexpr SRowCase aoUnknown[] = {
        { "0A", "Video timing support", "reserved", "reserved value" },
        { "0B-11", "Unknown", "11 22 33 44 55 66 77" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FD 00 30 90 1E A3 1F 05 11 22 33 44 55 66 77"),
                   aoUnknown);
    // CVT came with 1.4.
    static constexpr SRowCase aoCvtBefore4[] = {
        { "0A", "Secondary timing formula", "reserved", "reserved value" },
        { "0B-11", "Unknown", "11 22 33 44 55 66 77" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision3, "00 00 00 FD 00 30 90 1E A3 1F 04 11 22 33 44 55 66 77"),
                   aoCvtBefore4);
}

// The offsets of 1.4: bits 3 and 2 for the horizontal rates, 1 and 0 for the vertical ones. 2 puts 255 on the maximum,
// 3 on both.
TEST(MapDescriptorRows, OffsetsOfRangeLimits)
{
    struct SOffsetsCase
    {
        const char* m_pszOffsets;
        const char* m_apszRates[4]; // vertical minimum and maximum, horizontal ones
        const char* m_pszSummary;
    };
    static constexpr SOffsetsCase aoCases[] = {
        { "00", { "48 Hz", "144 Hz", "30 kHz", "163 kHz" }, "48 to 144 Hz, 30 to 163 kHz" },
        { "01", { "48 Hz", "144 Hz", "30 kHz", "163 kHz" }, "48 to 144 Hz, 30 to 163 kHz" }, // reserved
        { "02", { "48 Hz", "399 Hz", "30 kHz", "163 kHz" }, "48 to 399 Hz, 30 to 163 kHz" },
        { "03", { "303 Hz", "399 Hz", "30 kHz", "163 kHz" }, "303 to 399 Hz, 30 to 163 kHz" },
        { "04", { "48 Hz", "144 Hz", "30 kHz", "163 kHz" }, "48 to 144 Hz, 30 to 163 kHz" }, // reserved
        { "08", { "48 Hz", "144 Hz", "30 kHz", "418 kHz" }, "48 to 144 Hz, 30 to 418 kHz" },
        { "0C", { "48 Hz", "144 Hz", "285 kHz", "418 kHz" }, "48 to 144 Hz, 285 to 418 kHz" },
        { "0E", { "48 Hz", "399 Hz", "285 kHz", "418 kHz" }, "48 to 399 Hz, 285 to 418 kHz" },
        { "0B", { "303 Hz", "399 Hz", "30 kHz", "418 kHz" }, "303 to 399 Hz, 30 to 418 kHz" },
        { "0F", { "303 Hz", "399 Hz", "285 kHz", "418 kHz" }, "303 to 399 Hz, 285 to 418 kHz" },
    };
    for (const SOffsetsCase& oCase : aoCases)
    {
        const std::string sBytes =
            std::string("00 00 00 FD ") + oCase.m_pszOffsets + " 30 90 1E A3 1F 01 0A 20 20 20 20 20 20";
        const SRecord oRecord = MakeDescriptorRecord(gsc_uiRevision4, sBytes.c_str());
        const SRowCase aoRows[] = {
            { "05", "Minimum vertical rate", oCase.m_apszRates[0] },
            { "06", "Maximum vertical rate", oCase.m_apszRates[1] },
            { "07", "Minimum horizontal rate", oCase.m_apszRates[2] },
            { "08", "Maximum horizontal rate", oCase.m_apszRates[3] },
        };
        ExpectSomeRows(oRecord, aoRows);
        CZorEdidMap oMap;
        ReadRecord(oMap, oRecord);
        unsigned int uiGroup = oMap.FindLeaf(oRecord.m_uiOffset, 0);
        while (oMap.GetField(uiGroup).m_eKind != CZorEdidMap::eKind_Group)
        {
            --uiGroup;
        }
        EXPECT_STREQ(oCase.m_pszSummary, oMap.GetValue(uiGroup)) << oCase.m_pszOffsets;
    }
}

// A maximum is compared with the minimum after both offsets are added.
TEST(MapDescriptorRows, RatesInTheWrongOrder)
{
    struct SOrderCase
    {
        const char* m_pszBytes; // offsets, vertical minimum and maximum, horizontal ones
        const char* m_pszVertical;
        const char* m_pszVerticalNote;
        const char* m_pszHorizontal;
        const char* m_pszHorizontalNote;
    };
    constexpr const char* pszBelow = "below the minimum";
    constexpr const char* pszReserved = "00h is reserved";
    const SOrderCase aoCases[] = {
        { "00 3C 3C 40 40", "60 Hz", nullptr, "64 kHz", nullptr },
        { "00 3C 3B 40 3F", "59 Hz", pszBelow, "63 kHz", pszBelow },
        { "0A 3C 01 40 01", "256 Hz", nullptr, "256 kHz", nullptr },
        { "0F 3C 3B 40 3F", "314 Hz", pszBelow, "318 kHz", pszBelow },
        { "02 3C 01 40 3F", "256 Hz", nullptr, "63 kHz", pszBelow },
        { "08 3C 3B 40 01", "59 Hz", pszBelow, "256 kHz", nullptr },
        { "0A 3C 00 40 00", "255 Hz", pszReserved, "255 kHz", pszReserved },
    };
    for (const SOrderCase& oCase : aoCases)
    {
        const std::string sBytes = std::string("00 00 00 FD ") + oCase.m_pszBytes + " 1F 01 0A 20 20 20 20 20 20";
        const SRowCase aoRows[] = {
            { "06", "Maximum vertical rate", oCase.m_pszVertical, oCase.m_pszVerticalNote },
            { "08", "Maximum horizontal rate", oCase.m_pszHorizontal, oCase.m_pszHorizontalNote },
        };
        ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, sBytes.c_str()), aoRows);
    }
    static constexpr SRowCase aoMinima[] = {
        { "05", "Minimum vertical rate", "0 Hz", "00h is reserved" },
        { "07", "Minimum horizontal rate", "0 kHz", "00h is reserved" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FD 00 00 01 00 01 1F 01 0A 20*6"), aoMinima);
}

// A detailed timing of 300 kHz and 300 Hz: 120 MHz, 400 x 1000 in all. Its rates lie in limits only by their offsets.
TEST(MapDescriptorRows, TimingsAgainstOffsetsOfRangeLimits)
{
    struct SLimitCase
    {
        const char* m_pszBytes; // offsets, vertical minimum and maximum, horizontal ones
        const char* m_pszNote;
    };
    constexpr const char* pszLine = "the line rate is outside of the display range limits";
    constexpr const char* pszField = "the field rate is outside of the display range limits";
    static constexpr SLimitCase aoCases[] = {
        { "0F 2D 2D 2D 2D", nullptr },  { "0E FF 2D 2D 2D", nullptr },  { "0B 2D 2D FF 2D", nullptr },
        { "0F 2D 2D 2E 32", pszLine },  { "0F 28 32 28 2C", pszLine },  { "03 28 32 28 FF", pszLine },
        { "0F 2E 32 28 32", pszField }, { "0F 28 2C 28 32", pszField }, { "0C 28 FF 28 32", pszField },
    };
    for (const SLimitCase& oCase : aoCases)
    {
        const std::string sBytes = std::string("00 00 00 FD ") + oCase.m_pszBytes + " 1F 01 0A 20 20 20 20 20 20";
        SRecord oRecord = MakeDescriptorRecord(gsc_uiRevision4, sBytes.c_str());
        constexpr size_t uiTiming = 0x36;
        const CBytes aui8Timing = ParseBytes("E0 2E 40 50 10 84 64 30 08 20 35 00*6 1E");
        std::ranges::copy(aui8Timing, oRecord.m_aui8Image.begin() + uiTiming);
        CZorEdidMap oMap;
        ReadRecord(oMap, oRecord);
        std::string sNotes;
        for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
        {
            const std::string sNote = oMap.GetNote(i).m_pszText;
            sNotes.append(sNote.ends_with("the display range limits") ? sNote : "");
        }
        EXPECT_EQ(oCase.m_pszNote != nullptr ? oCase.m_pszNote : "", sNotes) << oCase.m_pszBytes;
    }
}

// ---- Colours and timings ----

TEST(MapDescriptorRows, ColorPoints)
{
    static constexpr SRowCase aoTwo[] = {
        { "05", "White point index number", "3" },
        { "06.7-4", "Reserved", "0xa", gsc_szSet },
        { "07 06.3-2", "White x", "0.3145" },
        { "08 06.1-0", "White y", "0.3291" },
        { "09", "White gamma", "2.20" },
        { "0A", "White point index number", "5" },
        { "0B.7-4", "Reserved", "0x6", gsc_szSet },
        { "0C 0B.3-2", "White x", "0.2939" },
        { "0D 0B.1-0", "White y", "0.3857" },
        { "0E", "White gamma", "2.40" },
        { "0F", "Line feed", "0b", "must be a line feed (0Ah)" },
        { "10-11", "Padding", "21 20", "blanks (20h) must fill the rest" },
        { "03", "Display descriptor tag", "color point data" },
        { "04", "Reserved", "5a", gsc_szSet },
    };
    ExpectRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FB 5A 03 A9 50 54 78 05 67 4B 62 8C 0B 21 20"), aoTwo);
    static constexpr SRowCase aoOne[] = {
        { "05", "White point index number", "3" },
        { "0A", "White point index number", "unused" },
        { "0B-0E", "Reserved", "67 4b 62 8c", gsc_szSet },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FB 5A 03 A9 50 54 78 00 67 4B 62 8C 0B 21 20"),
                   aoOne);
}

TEST(MapDescriptorRows, ColorManagement)
{
    static constexpr SRowCase aoRows[] = {
        { "05", "Version number", "3" },
        { "07 06", "Red a3", "46.60" },
        { "09 08", "Red a2", "44.38" },
        { "0B 0A", "Green a3", "49.84" },
        { "0D 0C", "Green a2", "39.94" },
        { "0F 0E", "Blue a3", "55.64" },
        { "11 10", "Blue a2", "coefficient 0x92de, meaning uncertain" },
        { "03", "Display descriptor tag", "display color management data" },
    };
    ExpectRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 F9 00 03 34 12 56 11 78 13 9A 0F BC 15 DE 92"), aoRows);
}

TEST(MapDescriptorRows, CvtCodes)
{
    static constexpr SRowCase aoRows[] = {
        { "03", "Display descriptor tag", "CVT 3 byte timing codes" },
        { "05", "Version number", "1" },
        { "07.7-4 06", "Addressable lines", "1348 lines" },
        { "07.3-2", "Aspect ratio", "16:9" },
        { "07.1-0", "Reserved", "0x2", gsc_szSet },
        { "08.7", "Reserved", "0x1", gsc_szSet },
        { "08.6-5", "Preferred vertical rate", "60 Hz", "is not one of those supported" },
        { "08.4", "50 Hz with standard blanking", "supported" },
        { "08.3", "60 Hz with standard blanking", "not supported" },
        { "08.2", "75 Hz with standard blanking", "supported" },
        { "08.1", "85 Hz with standard blanking", "supported" },
        { "08.0", "60 Hz with reduced blanking", "not supported" },
        { "0A.7-4 09", "Addressable lines", "1916 lines" },
        { "0A.3-2", "Aspect ratio", "16:10" },
        { "0A.1-0", "Reserved", "0x1", gsc_szSet },
        { "0B.6-5", "Preferred vertical rate", "75 Hz" },
        { "0B.4", "50 Hz with standard blanking", "not supported" },
        { "0B.3", "60 Hz with standard blanking", "supported" },
        { "0B.2", "75 Hz with standard blanking", "supported" },
        { "0B.1", "85 Hz with standard blanking", "not supported" },
        { "0B.0", "60 Hz with reduced blanking", "supported" },
        { "10.7-4 0F", "Addressable lines", "624 lines" },
        { "10.3-2", "Aspect ratio", "15:9" },
        { "11.6-5", "Preferred vertical rate", "85 Hz" },
        { "11.4", "50 Hz with standard blanking", "not supported" },
        { "11.3", "60 Hz with standard blanking", "not supported" },
        { "11.2", "75 Hz with standard blanking", "not supported" },
        { "11.1", "85 Hz with standard blanking", "supported" },
        { "11.0", "60 Hz with reduced blanking", "not supported" },
    };
    ExpectRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 F8 00 01 A1 26 B6 BD 39 4D 00 00 00 37 1C 62"), aoRows);
}

TEST(MapDescriptorRows, VersionsAndEnds)
{
    static constexpr SRowCase aoManagement[] = { { "05", "Version number", "2", "only version 3 has this layout" } };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 F9 00 02 ..18"), aoManagement);
    static constexpr SRowCase aoCodes[] = { { "05", "Version number", "2", "only version 1 has this layout" } };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 F8 00 02 ..18"), aoCodes);
    static constexpr SRowCase aoModes[] = {
        { "05", "Revision number", "9", "only revision 10 has this layout" },
        { "0B.3-0", "Reserved", "0x5", gsc_szSet },
        { "0C-11", "Reserved", "01 02 03 04 05 06", gsc_szSet },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 F7 00 09 ..11 05 01 02 03 04 05 06"), aoModes);
    static constexpr SRowCase aoPairs[] = { { "11", "Line feed", "0b", "must be a line feed (0Ah)" } };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FA 00 01*12 0B"), aoPairs);
    static constexpr SRowCase aoDummy[] = {
        { "05-11", "Unused", "01 02 03 04 05 06 07 08 09 0a 0b 0c 0d", gsc_szSet },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 10 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D"),
                   aoDummy);
    static constexpr SRowCase aoMaker[] = {
        { "05-11", "Manufacturer's data", "01 02 03 04 05 06 07 08 09 0a 0b 0c 0d" },
    };
    ExpectSomeRows(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 0F 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D"),
                   aoMaker);
}

TEST(MapDescriptorRows, Codes)
{
    static constexpr SCodesCase aoTags[] = {
        { "03", 0x00, "manufacturer specified" },
        { "03", 0x0F, "manufacturer specified|dummy|reserved" },
        { "03", 0xF6,
          "reserved|established timings III|CVT 3 byte timing codes|display color management data|"
          "standard timing identifications|color point data|display product name|display range limits|"
          "alphanumeric data string|display product serial number" },
    };
    ExpectCodes(MakeDescriptorRecord(gsc_uiRevision4, "00*18"), aoTags);

    static constexpr SCodesCase aoTiming[] = {
        { "11.7", 0, "non-interlaced|interlaced" },
        { "11.6-5 11.0", 0,
          "normal display, no stereo|normal display, no stereo|field sequential, right image when stereo sync = 1|"
          "2-way interleaved, right image on even lines|field sequential, left image when stereo sync = 1|"
          "2-way interleaved, left image on even lines|4-way interleaved|side-by-side interleaved" },
        { "11.4-3", 0, "analog composite|bipolar analog composite|digital composite|digital separate" },
        { "11.2", 0, "without|with (H-sync during V-sync)" },
        { "11.1", 0, "green only|all three (RGB)" },
    };
    ExpectCodes(MakeDescriptorRecord(gsc_uiRevision4, "01 ..18"), aoTiming);
    static constexpr SCodesCase aoSeparate[] = {
        { "11.2", 0, "negative|positive" },
        { "11.1", 0, "negative|positive" },
    };
    ExpectCodes(MakeDescriptorRecord(gsc_uiRevision4, "01 ..17 18"), aoSeparate);

    static constexpr SCodesCase aoRange[] = {
        { "04.3-2", 0, "none|reserved|maximum + 255 kHz|maximum and minimum + 255 kHz" },
        { "04.1-0", 0, "none|reserved|maximum + 255 Hz|maximum and minimum + 255 Hz" },
        { "09", 1, "10 MHz" },
        { "0A", 0, "default GTF|range limits only|secondary GTF|reserved|CVT|reserved" },
        { "0A", 0xFF, "reserved" },
        { "0C.1-0 0D", 0, "no limit|8 pixels" },
        { "0F.7-5", 0, "4:3|16:9|16:10|5:4|15:9|reserved|reserved|reserved" },
        { "11", 0, "reserved|1 Hz" },
    };
    ExpectCodes(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FD 00 30 90 1E A3 1F 04 11 00 00 F8 08 00 3C"),
                aoRange);
    static constexpr SCodesCase aoRangeBefore4[] = {
        { "09", 0, "not given|10 MHz" },
        { "0A", 0, "no secondary timing formula|reserved|secondary GTF|reserved|reserved" },
        { "0A", 0xFF, "reserved" },
    };
    ExpectCodes(MakeDescriptorRecord(gsc_uiRevision3, "00 00 00 FD 00 30 90 1E A3 1F 00 ..18"), aoRangeBefore4);

    static constexpr SCodesCase aoPoint[] = { { "09", 0xFE, "3.54|not given here" } };
    ExpectCodes(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 FB 00 01 ..18"), aoPoint);

    static constexpr SCodesCase aoCvtCode[] = {
        { "07.3-2", 0, "4:3|16:9|16:10|15:9" },
        { "08.6-5", 0, "50 Hz|60 Hz|75 Hz|85 Hz" },
    };
    ExpectCodes(MakeDescriptorRecord(gsc_uiRevision4, "00 00 00 F8 00 01 01 00 1F ..18"), aoCvtCode);
}
} // namespace
