// Timings as text and as facts: lines for people and for xorg.conf, codes, lists, JSON, and what an image says of its
// limits. Numbers of the modes are the published ones.

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "CapturedOutput.h"
#include "DisplayIdImages.h"
#include "ExactTimings.h"
#include "Json.h"
#include "MapText.h"
#include "SharedFiles.h"
#include "Standards/BaseBlock.h"
#include "TextFormat.h"
#include "Timings.h"

namespace
{
constexpr unsigned int gsc_uiInterlaced = CVidParamTimingGeneric::eFlag_Interlaced;
constexpr unsigned int gsc_ui420 = CVidParamTimingGeneric::eFlag_420ColorSpace;
constexpr unsigned int gsc_uiPlusMinus = CVidParamTimingGeneric::eFlag_HorizontalPositive;
constexpr unsigned int gsc_uiPlusPlus = gsc_uiPlusMinus | CVidParamTimingGeneric::eFlag_VerticalPositive;
constexpr CVidParamTiming::EVidParamType gsc_eCea = CVidParamTiming::eVidParamType_Cea;

struct STextCase
{
    // width, height, rates, clock; front porch, sync, back porch across and down; flags
    SVidParamGenericData m_oData;
    const char* m_pszText;
    const char* m_pszModeline;
    const char* m_pszVics;
};

const STextCase gsc_aoTexts[] = {
    { { 1920, 1080, 60, 67500, 148500000, 88, 44, 148, 4, 5, 36, gsc_uiPlusPlus, gsc_eCea },
      "1920 x 1080p @  60.000 Hz     148.500 MHz",
      "Modeline \"1920x1080_60\" 148.50 1920 2008 2052 2200 1080 1084 1089 1125 +hsync +vsync",
      "VIC 16/76" },
    { { 1920, 1080, 59, 67433, 148351648, 88, 44, 148, 4, 5, 36, gsc_uiPlusPlus, gsc_eCea },
      "1920 x 1080p @  59.940 Hz  148.351648 MHz",
      "Modeline \"1920x1080_59\" 148.351648 1920 2008 2052 2200 1080 1084 1089 1125 +hsync +vsync",
      "VIC 16/76 at 1000/1001" },
    // Half of the clock counts for the link; the code is that of the whole one.
    { { 1920, 1080, 60, 67500, 148500000, 88, 44, 148, 4, 5, 36, gsc_uiPlusPlus | gsc_ui420, gsc_eCea },
      "1920 x 1080p @  60.000 Hz     148.500 MHz",
      "Modeline \"1920x1080_60\" 148.50 1920 2008 2052 2200 1080 1084 1089 1125 +hsync +vsync",
      "VIC 16/76" },
    // Porches and sync of a field count twice; the half lines of both fields make 1125.
    { { 1920, 1080, 30, 33750, 74250000, 88, 44, 148, 2, 5, 15, gsc_uiPlusPlus | gsc_uiInterlaced, gsc_eCea },
      "1920 x 1080i @  60.000 Hz      74.250 MHz",
      "Modeline \"1920x1080i_30\" 74.25 1920 2008 2052 2200 1080 1084 1094 1125 +hsync +vsync Interlace",
      "VIC 5" },
    // The one interlaced mode of an even total.
    { { 1920, 1080, 25, 31250, 72000000, 32, 168, 184, 23, 5, 57, gsc_uiPlusMinus | gsc_uiInterlaced, gsc_eCea },
      "1920 x 1080i @  50.000 Hz      72.000 MHz",
      "Modeline \"1920x1080i_25\" 72.00 1920 1952 2120 2304 1080 1126 1136 1250 +hsync -vsync Interlace",
      "VIC 39" },
    // VIC 1 at 1000/1001 has 25.174825 MHz.
    { { 640, 480, 59, 31469, 25175000, 16, 96, 48, 10, 2, 33, 0, gsc_eCea },
      " 640 x  480p @  59.940 Hz      25.175 MHz",
      "Modeline \"640x480_59\" 25.175 640 656 752 800 480 490 492 525 -hsync -vsync",
      "" },
    { { 640, 480, 60, 31500, 25200000, 16, 96, 48, 10, 2, 33, 0, gsc_eCea },
      " 640 x  480p @  60.000 Hz      25.200 MHz",
      "Modeline \"640x480_60\" 25.20 640 656 752 800 480 490 492 525 -hsync -vsync",
      "VIC 1" },
    { { 1680, 1050, 60, 65290, 146250000, 104, 176, 280, 3, 6, 30, 0, CVidParamTiming::eVidParamType_Dmt },
      "1680 x 1050p @  59.954 Hz     146.250 MHz",
      "Modeline \"1680x1050_60\" 146.25 1680 1784 1960 2240 1050 1053 1059 1089 -hsync -vsync",
      "" },
    { { 16, 9, 1, 10, 100000005, 1, 2, 3, 1, 1, 1, 0, gsc_eCea },
      "  16 x    9p @ 378787.898 Hz  100.000005 MHz",
      "Modeline \"16x9_1\" 100.000005 16 17 19 22 9 10 11 12 -hsync -vsync",
      "" },
    // A blanking below its parts leaves a back porch below 0.
    { { 640, 480, 60, 31500, 25200000, 16, 96, 0U - 10U, 10, 2, 33, 0, gsc_eCea },
      " 640 x  480p @  64.690 Hz      25.200 MHz",
      "# 640x480_60: its sync ends after its total",
      "" },
    { { 640, 480, 60, 31500, 25200000, 16, 96, 48, 10, 2, 0U - 1U, 0, gsc_eCea },
      " 640 x  480p @  64.155 Hz      25.200 MHz",
      "# 640x480_60: its sync ends after its total",
      "" },
};

TEST(Timings, AsText)
{
    for (const STextCase& oCase : gsc_aoTexts)
    {
        const CVidParamTimingGeneric oTiming(oCase.m_oData);
        EXPECT_EQ(oCase.m_pszText, GetExactText(MakeListedMode(oTiming)));
        EXPECT_EQ(oCase.m_pszModeline, GetModeline(oTiming));
        EXPECT_EQ(oCase.m_pszVics, GetVicsText(FindExactVics(MakeListedMode(oTiming)))) << oCase.m_pszModeline;
    }
}

// ---- Lists ----

class ListedTimings : public testing::Test
{
protected:
    const CQuietMessages m_oQuiet;

    void Load(const CBytes& aui8Image)
    {
        m_oInput = { "x", aui8Image, "raw image", "" };
        ASSERT_TRUE(m_oImage.Load(m_oInput)) << m_oImage.GetProblem();
    }

    SInput m_oInput;
    CLoadedImage m_oImage;
};

TEST_F(ListedTimings, StandUnderTheNumbersOfTheirBlocks)
{
    // 1280 x 1024 at 60 Hz; 76 and 16 are one timing for two picture aspects; 4 is native, 96 (3840 x 2160 at 50 Hz) in
    // 4:2:0, and bit 1 of the map is that of 16.
    CBytes aui8Image = MakeEdid({ FixChecksums(Join({ ParseBytes("02 03 20 00 43 4C 10 84 E2 0F 02 E2 0E 60 ..32"),
                                                      Detailed1080p(), CBytes(78) })),
                                  MakeFullDisplayIdBlock() });
    aui8Image[0x23] = 0x20; // 640 x 480 at 60 Hz
    aui8Image[0x28] = 0x81;
    aui8Image[0x29] = 0x80;
    Load(FixChecksums(aui8Image));
    std::vector<std::string> asLines;
    for (const SImageMode& oListed : ListTimings(m_oImage))
    {
        std::ostringstream oLine;
        oLine << GetListName(oListed.m_eList) << ' ' << oListed.m_uiIndex << " in " << oListed.m_uiBlock << ' '
              << oListed.m_pszKind << ": "
              << FormatText("%4u x %4u%c @ %3u Hz ", oListed.m_oTiming.GetHorizontalActive(),
                            oListed.m_oTiming.GetVerticalActive(), oListed.m_oTiming.IsInterlaced() != 0 ? 'i' : 'p',
                            oListed.m_oTiming.GetVerticalRateInHz())
              << oListed.m_sStandardCode << GetVicsText(oListed.m_oVics) << (oListed.m_bPreferred ? " preferred" : "")
              << (oListed.m_bNative ? " native" : "") << (oListed.m_bVesa ? " vesa" : "")
              << (oListed.m_oTiming.Is420ColorSpace() != 0 ? " 4:2:0" : "");
        asLines.push_back(oLine.str());
    }
    const std::vector<std::string> asExpected = {
        "established 0 in 0 base:  640 x  480p @  60 Hz  vesa",
        "standard 0 in 0 base: 1280 x 1024p @  60 Hz 8180",
        "standard 1 in 1 cea-861: 1920 x 1080p @  60 Hz VIC 76",
        "standard 2 in 1 cea-861: 1920 x 1080p @  59 Hz VIC 76 at 1000/1001",
        "standard 3 in 1 cea-861: 1920 x 1080p @  60 Hz VIC 16",
        "standard 4 in 1 cea-861: 1920 x 1080p @  59 Hz VIC 16 at 1000/1001",
        "standard 5 in 1 cea-861: 1280 x  720p @  60 Hz VIC 4 native",
        "standard 6 in 1 cea-861: 1280 x  720p @  59 Hz VIC 4 at 1000/1001 native",
        "standard 7 in 1 cea-861: 1920 x 1080p @  60 Hz VIC 16 4:2:0",
        "standard 8 in 1 cea-861: 1920 x 1080p @  59 Hz VIC 16 at 1000/1001 4:2:0",
        "standard 9 in 1 cea-861: 3840 x 2160p @  50 Hz VIC 96 4:2:0",
        "detailed 0 in 0 base: 1920 x 1080p @  60 Hz VIC 16/76 preferred",
        "detailed 1 in 1 cea-861: 1920 x 1080p @  60 Hz VIC 16/76",
        "detailed 2 in 2 displayid: 1920 x 1080p @  60 Hz VIC 16/76",
        "detailed 3 in 2 displayid: 1280 x  720p @  60 Hz ",
    };
    EXPECT_EQ(asExpected, asLines);
}

TEST_F(ListedTimings, BlocksThatAreNotReadAreKnownByTheirBytes)
{
    CBytes aui8Unread(128, 0x10);
    CBytes aui8Broken = MakeCeaBlock();
    aui8Broken[127] ^= 1;
    Load(MakeEdid({ aui8Unread, MakeCeaBlock(), aui8Broken, MakeCeaBlock() }));
    const std::vector<SImageBlock>& aoBlocks = m_oImage.GetBlocks();
    ASSERT_EQ(4U, aoBlocks.size());
    EXPECT_EQ(nullptr, aoBlocks[0].m_poLoaded);
    EXPECT_STREQ("video-timing", GetBlockKind(aoBlocks[0].GetTag()));
    EXPECT_EQ(nullptr, aoBlocks[2].m_poLoaded);
    EXPECT_EQ(m_oImage.GetEdid().GetExtension(0), aoBlocks[1].GetCea());
    EXPECT_EQ(m_oImage.GetEdid().GetExtension(1), aoBlocks[3].GetCea());
}

TEST(LoadedImage, RefusalsHaveTheirReason)
{
    const CBytes aui8Good = MakeEdid({});
    CBytes aui8Cut = aui8Good;
    aui8Cut.pop_back();
    const std::pair<SInput, const char*> aoCases[] = {
        { { "x", {}, "", "" }, "is empty" },
        { { "x", aui8Cut, "", "" }, "no EDID: 127 bytes, not a multiple of 128" },
        { { "x", WithChange(aui8Good, 7, 1), "", "" }, "no EDID: it does not begin with 00 ff ff ff ff ff ff 00" },
        { { "x", aui8Good, "", "the reader's" }, "the reader's" },
    };
    for (const auto& [oInput, pszProblem] : aoCases)
    {
        CLoadedImage oImage;
        EXPECT_FALSE(oImage.Load(oInput));
        EXPECT_EQ(pszProblem, oImage.GetProblem());
    }
}

// Limits of 50 to 85 Hz and 24 to 92 kHz. From revision 4 on two bits each put 255 on the maximum (2) or on both (3).
TEST(Timings, RangeLimitsHaveTheirOffsets)
{
    using namespace ZorStandards::BaseBlock;
    const struct
    {
        unsigned char m_ui8Revision;
        unsigned char m_ui8Flags;
        unsigned int m_auiLimits[4];
    } aoCases[] = {
        { 3, 0x00, { 50, 85, 24, 92 } },    { 4, 0x00, { 50, 85, 24, 92 } },  { 4, 0x02, { 50, 340, 24, 92 } },
        { 4, 0x03, { 305, 340, 24, 92 } },  { 4, 0x08, { 50, 85, 24, 347 } }, { 4, 0x0C, { 50, 85, 279, 347 } },
        { 4, 0x0B, { 305, 340, 24, 347 } }, { 4, 0x01, { 50, 85, 24, 92 } },  { 4, 0x04, { 50, 85, 24, 92 } },
        { 4, 0x12, { 50, 340, 24, 92 } },   { 3, 0x02, { 50, 85, 24, 92 } },
    };
    for (const auto& oCase : aoCases)
    {
        CBytes aui8Image = ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin");
        aui8Image[0x13] = oCase.m_ui8Revision;
        aui8Image[0x5E] = oCase.m_ui8Flags;
        const SRangeLimits oLimits =
            ReadRangeLimits(aui8Image.data() + FindRangeLimits(aui8Image.data()), ReadRevision(aui8Image.data()));
        EXPECT_EQ(oCase.m_auiLimits[0], oLimits.m_uiMinVerticalRateInHz) << static_cast<int>(oCase.m_ui8Flags);
        EXPECT_EQ(oCase.m_auiLimits[1], oLimits.m_uiMaxVerticalRateInHz) << static_cast<int>(oCase.m_ui8Flags);
        EXPECT_EQ(oCase.m_auiLimits[2], oLimits.m_uiMinHorizontalRateInKiloHz) << static_cast<int>(oCase.m_ui8Flags);
        EXPECT_EQ(oCase.m_auiLimits[3], oLimits.m_uiMaxHorizontalRateInKiloHz) << static_cast<int>(oCase.m_ui8Flags);
    }
}

// ---- JSON ----

using nlohmann::ordered_json;

ordered_json ParseListTiming(const SVidParamGenericData& oData, const SVics& oVics)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Line);
    oJson.BeginObject();
    WriteListTiming(CVidParamTimingGeneric(oData), oVics, oJson);
    oJson.EndObject();
    return ordered_json::parse(oJson.GetText());
}

TEST(Json, OfTimingsHasHertzAndSignedPorches)
{
    SVidParamGenericData oData = { 1920, 1080, 30, 33750, 74250000, 88, 44, 148, 2, 5, 15, 0, gsc_eCea };
    oData.uiFlags = gsc_uiPlusMinus | gsc_uiInterlaced | gsc_ui420;
    EXPECT_EQ(ordered_json::parse(R"({"width": 1920, "height": 1080, "interlaced": true,
        "vertical_rate_hz": 30, "horizontal_rate_hz": 33750, "pixel_clock_hz": 74250000,
        "horizontal": {"front_porch": 88, "sync": 44, "back_porch": 148, "total": 2200, "positive": true},
        "vertical": {"front_porch": 2, "sync": 5, "back_porch": 15, "total": 1125, "positive": false},
        "type": "cea", "ycbcr420": true, "vics": [5, 6], "rate_1000_1001": true})"),
              ParseListTiming(oData, { { 5, 6 }, true }));
    oData = {
        640, 480, 60, 31500, 4200000000, 16, 96, 0U - 10U, 10, 2, 0U - 1U, 0, CVidParamTiming::eVidParamType_Unknown
    };
    const ordered_json oJson = ParseListTiming(oData, {});
    EXPECT_EQ(4200000000, oJson["pixel_clock_hz"].get<long long>());
    EXPECT_EQ(-10, oJson["horizontal"]["back_porch"]);
    EXPECT_EQ(-1, oJson["vertical"]["back_porch"]);
    for (const char* pszMember : { "type", "ycbcr420", "vics", "rate_1000_1001" })
    {
        EXPECT_FALSE(oJson.contains(pszMember)) << pszMember;
    }
}

TEST_F(ListedTimings, WhatAnImageDoesNotSayIsAbsentFromItsJson)
{
    CBytes aui8Image = MakeEdid({});
    aui8Image[0x14] = 0x80; // digital, nothing else known
    aui8Image[0x15] = 0;    // an aspect ratio in place of a size
    aui8Image[0x18] = 0;
    Load(FixChecksums(aui8Image));
    const ordered_json oJson = ordered_json::parse(MakeImage(m_oInput, m_oImage, CJsonWriter::eStyle_Line));
    for (const char* pszMember : { "name", "serial_text", "text", "model_year", "bits_per_color", "interface",
                                   "width_cm", "height_cm", "range_limits", "tile", "error" })
    {
        EXPECT_FALSE(oJson.contains(pszMember)) << pszMember;
    }
    EXPECT_EQ(true, oJson["digital"]);
    EXPECT_EQ(1, oJson["week"]);
    EXPECT_EQ(2020, oJson["year"]);
    EXPECT_EQ(ordered_json::array(), oJson["extensions"]);
    aui8Image[0x10] = 0xFF;
    aui8Image[0x14] = 0xB5; // 10 bits, DisplayPort
    Load(FixChecksums(aui8Image));
    const ordered_json oModel = ordered_json::parse(MakeImage(m_oInput, m_oImage, CJsonWriter::eStyle_Line));
    EXPECT_EQ(2020, oModel["model_year"]);
    EXPECT_FALSE(oModel.contains("year") || oModel.contains("week"));
    EXPECT_EQ(10, oModel["bits_per_color"]);
    EXPECT_EQ("displayport", oModel["interface"]);
}

TEST_F(ListedTimings, ExtensionsInJson)
{
    CBytes aui8Broken = MakeFullDisplayIdBlock();
    aui8Broken[127] ^= 1;
    // PCM with two rates and a depth, AC-3 of 640 kbit/s, another format; three pairs of speakers; deep colours.
    Load(
        MakeEdid({ FixChecksums(ParseBytes("02 03 1B 70 29 09 05 02 15 04 50 57 40 03 83 89 01 00 68 03 0C 00 10 00 50 "
                                           "2D 00 ..128")),
                   MakeFullDisplayIdBlock(), aui8Broken }));
    ordered_json oJson = ordered_json::parse(
        MakeImage(m_oInput, m_oImage, CJsonWriter::eStyle_Line)); // not const: what is missing reads as null
    ASSERT_EQ(3U, oJson["extensions"].size());
    ordered_json& oCea = oJson["extensions"][0];
    const auto fnParse = [](const char* pszText) { return ordered_json::parse(pszText); };
    EXPECT_EQ(fnParse("[32000, 48000]"), oCea["audio"][0]["sampling_rates_hz"]);
    EXPECT_EQ(fnParse("[20]"), oCea["audio"][0]["sample_bits"]);
    EXPECT_FALSE(oCea["audio"][0].contains("max_bit_rate_bps"));
    EXPECT_EQ(6, oCea["audio"][1]["channels"]);
    EXPECT_EQ(640000, oCea["audio"][1]["max_bit_rate_bps"]);
    EXPECT_EQ(10, oCea["audio"][2]["format_code"]);
    EXPECT_EQ("03", oCea["audio"][2]["extra"]);
    EXPECT_FALSE(oCea["audio"][2].contains("max_bit_rate_bps") || oCea["audio"][2].contains("sample_bits"));
    EXPECT_EQ(fnParse(R"([{"mask": 393, "positions": ["FL/FR", "BL/BR", "FLw/FRw", "TpFL/TpFR"]}])"), oCea["speakers"]);
    EXPECT_EQ(fnParse("[30, 48]"), oCea["deep_color_bits"]);
    EXPECT_EQ(99, oCea["free_bytes"]); // of 100
    EXPECT_EQ(true, oJson["extensions"][1]["loaded"]);
    EXPECT_EQ(false, oJson["extensions"][2]["loaded"]);
    EXPECT_EQ(false, oJson["extensions"][2]["checksum_valid"]);
    EXPECT_EQ(1024U, oJson["bytes"].get<std::string>().size());
}

TEST_F(ListedTimings, TilesAndTextsInJson)
{
    // Each capability by its bits alone: one enclosure, a bezel, and what tiles do by themselves and together.
    const std::pair<unsigned char, std::vector<const char*>> aoCases[] = {
        { 0x00, {} },
        { 0x80, { "single_enclosure" } },
        { 0x40, { "bezel_information" } },
        { 0x08, { "several_at_location" } },
        { 0x01, { "single_at_location" } },
        { 0x02, { "single_scaled" } },
        { 0x03, { "single_cloned" } },
    };
    for (const auto& [ui8Capabilities, apszSet] : aoCases)
    {
        CBytes aui8Tile = TilePayload();
        aui8Tile[0] = ui8Capabilities;
        CBytes aui8Image = MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(18, 0, aui8Tile)) });
        const CBytes aui8Text = ParseBytes("00 00 00 FE 00 48 69 0A 20*10");
        std::copy(aui8Text.begin(), aui8Text.end(), aui8Image.begin() + 0x6C);
        Load(FixChecksums(aui8Image));
        ordered_json oJson = ordered_json::parse(MakeImage(m_oInput, m_oImage, CJsonWriter::eStyle_Line));
        ordered_json oExpected = { { "column", 1 }, { "row", 0 },      { "columns", 2 },
                                   { "rows", 2 },   { "width", 1920 }, { "height", 1080 } };
        for (const char* pszFlag : { "single_enclosure", "bezel_information", "several_at_location",
                                     "single_at_location", "single_scaled", "single_cloned" })
        {
            oExpected[pszFlag] = std::count(apszSet.begin(), apszSet.end(), std::string(pszFlag)) != 0;
        }
        EXPECT_EQ(oExpected, oJson["tile"]) << static_cast<int>(ui8Capabilities);
        EXPECT_EQ("Hi", oJson["text"]);
        EXPECT_FALSE(oJson.contains("serial_text") || oJson.contains("name"));
    }
}

TEST(Json, IsWrittenInOneLineWhateverTheBytes)
{
    EXPECT_EQ("{\"format\":\"zoredid\",\"version\":2,\"images\":[\n", OpenDocument("images"));
    EXPECT_EQ("{\"format\":\"zoredid\",\"version\":2,\"file\":\"a\\n\xEF\xBF\xBD\\\"\",\"error\":\"why\"}",
              MakeFailure({ "a\n\xFF\"", {}, "", "" }, "why", CJsonWriter::eStyle_Line));
    CJsonWriter oIndented(CJsonWriter::eStyle_Indented);
    BeginDocument(oIndented);
    oIndented.Member("rate", 59.94);
    oIndented.Member("list", std::vector<int>{ 1, -2 });
    oIndented.EndObject();
    EXPECT_EQ(
        "{\n  \"format\": \"zoredid\",\n  \"version\": 2,\n  \"rate\": 59.94,\n  \"list\": [\n    1,\n    -2\n  ]\n}",
        oIndented.GetText());
}
} // namespace
