// Text for people: names and numbers of the command line, messages of the library, and the names and places of the
// fields of a map.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "DisplayIdImages.h"
#include "Input.h"
#include "MapJson.h"
#include "MapText.h"
#include "Messages.h"
#include "OsServices.h"
#include "SharedFiles.h"
#include "TextFormat.h"
#include "Tool.h"
#include "ZorAssert.h"

namespace
{
TEST(Text, OfTheLibraryHasNoAssertions)
{
    CatchMessages(true);
    MASSERT_FAILED();
    OsServices::WriteUserMsg("%u lanes\n", 4U);
    MASSERT_FAILED();
    EXPECT_EQ("4 lanes\n", TakeMessages());
    EXPECT_EQ("", TakeMessages());
    OsServices::SetMsgPrefixEnable(1);
    OsServices::SetMsgWriter(nullptr);
}

TEST(Text, NamesOfOthersStayInOneLineOfUtf8)
{
    const std::pair<std::string, const char*> aoCases[] = {
        { "", "" },
        { "plain ~name.bin", "plain ~name.bin" },
        { "a\nb\tc\\d", "a\\nb\\tc\\\\d" },
        { std::string("\0\x1B[m\x7F", 5), "\\x00\\x1b[m\\x7f" },
        { "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80" }, // of two to four bytes
        { "\xC2\x85\xC2\x9F", "\\xc2\\x85\\xc2\\x9f" },                                     // control characters
        { "\xC2\xA0", "\xC2\xA0" },
        { "\xE9t\xE9", "\\xe9t\\xe9" },                          // Latin-1
        { "\xC3", "\\xc3" },                                     // cut
        { "\xE2\x82z", "\\xe2\\x82z" },                          // broken off
        { "\xC0\xAF\xE0\x80\xAF", "\\xc0\\xaf\\xe0\\x80\\xaf" }, // too many bytes for a slash
        { "\xF0\x8F\xBF\xBF", "\\xf0\\x8f\\xbf\\xbf" },          // for U+FFFF
        { "\xEF\xBF\xBF\xF0\x90\x80\x80", "\xEF\xBF\xBF\xF0\x90\x80\x80" },
        { "\xED\x9F\xBF\xED\xA0\x80", "\xED\x9F\xBF\\xed\\xa0\\x80" },                  // the first surrogate
        { "\xED\xBF\xBF\xEE\x80\x80", "\\xed\\xbf\\xbf\xEE\x80\x80" },                  // the last one
        { "\xF4\x8F\xBF\xBF\xF4\x90\x80\x80", "\xF4\x8F\xBF\xBF\\xf4\\x90\\x80\\x80" }, // after U+10FFFF
        { "\xF8\x88\x80\x80\x80\xFF", "\\xf8\\x88\\x80\\x80\\x80\\xff" },
    };
    for (const auto& [sName, pszShown] : aoCases)
    {
        EXPECT_EQ(pszShown, ShowName(sName));
    }
    EXPECT_EQ("zoredid: a\\nb: no\\\\pe\n", MakeErrorLine("a\nb", "no\\pe"));
    const SOutcome oRefused = RefuseInput({ "x", {}, "", "other" }, "reason");
    EXPECT_EQ("zoredid: x: reason\n", oRefused.m_sError);
    EXPECT_EQ(eExit_Input, oRefused.m_eExit);
}

TEST(Text, Numbers)
{
    unsigned int uiNumber = 0;
    for (const auto& [pszText, uiExpected] : std::initializer_list<std::pair<const char*, unsigned int>>{
             { "0", 0 }, { "4294967295", 4294967295 }, { "0xFf", 255 }, { "0X10", 16 }, { "010", 10 } })
    {
        EXPECT_TRUE(ParseNumber(pszText, uiNumber)) << pszText;
        EXPECT_EQ(uiExpected, uiNumber);
    }
    for (const char* pszText : { "", "0x", "x", "-1", "+1", " 1", "1 ", "1.0", "4294967296", "0x100000000", "ff" })
    {
        EXPECT_FALSE(ParseNumber(pszText, uiNumber)) << pszText;
    }
    const unsigned char aui8Bytes[] = { 0x00, 0x0F, 0xA0, 0xFF };
    EXPECT_EQ("000fa0", FormatHex(aui8Bytes, 3));
    EXPECT_EQ(std::string(5000, 'x') + " 7", FormatText("%s %d", std::string(5000, 'x').c_str(), 7));
}

// ---- The map ----

TEST(MapText, Places)
{
    const struct
    {
        std::vector<SFieldByte> m_aoBytes;
        unsigned int m_uiStart;
        const char* m_pszText;
    } aoCases[] = {
        { {}, 0, "" },
        { { { 5, 0x80 } }, 0, "05.7" },
        { { { 5, 0x7F } }, 0, "05.6-0" },
        { { { 0x36, 0xFF }, { 0x37, 0xFF } }, 0, "36-37" },
        { { { 0x38, 0xFF }, { 0x3A, 0xF0 } }, 0, "38 3a.7-4" },
        { { { 0x10, 0x0F }, { 0x11, 0xFF }, { 0x12, 0xFF }, { 0x13, 0xFF }, { 0x15, 0xFF } }, 0, "10.3-0 11-13 15" },
        { { { 0x11, 0xFF }, { 0x12, 0xC0 } }, 0, "11 12.7-6" },
        { { { 0x14, 0x89 } }, 0, "14.7,3,0" },
        { { { 0x14, 0xB6 } }, 0, "14.7,5-4,2-1" },
        { { { 0x85, 0xFF }, { 0x86, 0xFF } }, 0x80, "05-06" },
        { { { 0x7FFF, 0xFF } }, 0, "7fff" },
    };
    for (const auto& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_pszText, GetPlaceText(oCase.m_aoBytes, oCase.m_uiStart));
    }
}

class MapOfMonitor : public testing::Test
{
protected:
    MapOfMonitor()
    {
        const CBytes aui8Image = ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin");
        m_oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    }

    CZorEdidMap m_oMap;
};

TEST_F(MapOfMonitor, ChainsAndPathsOfItsBytes)
{
    const struct
    {
        unsigned int m_uiOffset;
        unsigned int m_uiBit;
        size_t m_uiDepth;
        const char* m_pszPlace;
        const char* m_pszPath; // of the leaf
    } aoCases[] = {
        { 0x00, 7, 2, "00-07", "Header" },
        { 0x14, 7, 3, "14.7", "Basic display parameters and features > Video signal interface" },
        { 0x3A, 4, 3, "38 3a.7-4", "Detailed timing > Horizontal addressable video" },
        { 0x3A, 3, 3, "39 3a.3-0", "Detailed timing > Horizontal blanking" },
        // What only holds other groups is left out.
        { 0x85, 7, 5, "85.7", "Video data block > Short video descriptor 0 > Native" },
        { 0x84, 7, 4, "84.7-5", "Video data block > Tag code" },
        { 0xFF, 0, 2, "ff", "Checksum" },
    };
    for (const auto& oCase : aoCases)
    {
        const unsigned int uiLeaf = m_oMap.FindLeaf(oCase.m_uiOffset, oCase.m_uiBit);
        EXPECT_EQ(oCase.m_uiDepth, GetChain(m_oMap, uiLeaf).size()) << oCase.m_pszPath;
        EXPECT_EQ(uiLeaf, GetChain(m_oMap, uiLeaf).back());
        EXPECT_EQ(oCase.m_pszPath, GetPath(m_oMap, uiLeaf));
        EXPECT_EQ(oCase.m_pszPlace, GetPlaceText(GetFieldBytes(m_oMap, uiLeaf), 0));
    }
    EXPECT_TRUE(FindLeaves(m_oMap, 256, 0xFF).empty());
    EXPECT_EQ("CTA-861 extension block", GetPath(m_oMap, GetChain(m_oMap, m_oMap.FindLeaf(0x80, 0)).front()));
}

TEST_F(MapOfMonitor, LeavesOfAMaskStandOnceFromTheHighestBitOn)
{
    const unsigned int uiNative = m_oMap.FindLeaf(0x85, 7);
    const unsigned int uiCode = m_oMap.FindLeaf(0x85, 0);
    EXPECT_EQ((std::vector<unsigned int>{ uiNative, uiCode }), FindLeaves(m_oMap, 0x85, 0xFF));
    EXPECT_EQ((std::vector<unsigned int>{ uiCode }), FindLeaves(m_oMap, 0x85, 0x41));
    EXPECT_EQ((std::vector<unsigned int>{ uiNative }), FindLeaves(m_oMap, 0x85, 0x80));
    EXPECT_TRUE(FindLeaves(m_oMap, 0x85, 0).empty());
}

// The first code is number 1, which has the 1000/1001 variant beside it; the other numbers follow the seven pairs.
TEST_F(MapOfMonitor, TimingsAndCodesAreFoundByTheirNumbers)
{
    const auto fnGroup = [&](unsigned int uiOffset) {
        const std::vector<unsigned int> auiChain = GetChain(m_oMap, m_oMap.FindLeaf(uiOffset, 0));
        return auiChain[auiChain.size() - 2];
    };
    const auto fnNumbers = [&](unsigned int uiOffset) { return GetTimingNumbers(m_oMap, fnGroup(uiOffset)); };
    EXPECT_EQ("standard 7, 8", fnNumbers(0x85));
    EXPECT_EQ("standard 9, 10", fnNumbers(0x86));
    EXPECT_EQ("standard 10", GetTimingNumber(m_oMap.GetField(fnGroup(0x86)), 1));
    EXPECT_EQ("detailed 0", fnNumbers(0x36));
    EXPECT_EQ("standard 0", fnNumbers(0x26));
    EXPECT_EQ("", fnNumbers(0x08));
    EXPECT_EQ("VIC 1", GetCodeText(m_oMap.GetField(m_oMap.FindLeaf(0x85, 0))));
    EXPECT_EQ("", GetCodeText(m_oMap.GetField(m_oMap.FindLeaf(0x85, 7))));
}

// Values that the bytes themselves say have no text; a group has its summary.
TEST_F(MapOfMonitor, ValuesAndTheirJson)
{
    const auto fnValue = [&](unsigned int uiOffset, unsigned int uiBit) {
        return GetFieldValue(m_oMap, m_oMap.FindLeaf(uiOffset, uiBit));
    };
    EXPECT_EQ("2.20", fnValue(0x17, 0));
    EXPECT_EQ("1, 640x480p 59.94/60 Hz 4:3", fnValue(0x85, 0));
    EXPECT_EQ("", fnValue(0xFA, 0)); // padding

    std::vector<bool> abShown(m_oMap.GetFieldCount());
    for (const unsigned int uiField : GetChain(m_oMap, m_oMap.FindLeaf(0x17, 0)))
    {
        abShown[uiField] = true;
    }
    const nlohmann::ordered_json oJson =
        nlohmann::ordered_json::parse(MakeExplanation({ "x", {}, "raw image", "" }, m_oMap, abShown));
    EXPECT_EQ(256, oJson["size"]);
    ASSERT_EQ(1U, oJson["fields"].size());
    const nlohmann::ordered_json& oGroup = oJson["fields"][0]["fields"][0];
    ASSERT_EQ(1U, oGroup["fields"].size());
    EXPECT_EQ(20, oGroup["offset"]);
    EXPECT_EQ(nlohmann::ordered_json::parse(
                  R"json({"id": "base.display.gamma", "name": "Display transfer characteristic (gamma)",
                  "kind": "number", "area": "display", "offset": 23, "length": 1, "value": 2.2, "text": "2.20", "raw": "78",
                  "pieces": [{"offset": 23, "length": 1, "mask": 255}]})json"),
              oGroup["fields"][0]);
}

// What points at a timing by its number has the mode, native ones included.
TEST(MapText, ReferencesNameTheirMode)
{
    const CBytes aui8DataBlocks = ParseBytes("C2 00 44 E3 23 00 09 E2 08 81 E6 0D A6 FE 91 10 82");
    CBytes aui8Cta = Join({ { 2, 3, static_cast<unsigned char>(4 + aui8DataBlocks.size()), 0 }, aui8DataBlocks });
    aui8Cta.resize(gsc_uiBlockSize);
    const CBytes aui8Image = MakeEdid({ FixChecksums(aui8Cta) });
    CZorEdidMap oMap;
    oMap.Read(256, aui8Image.data());
    std::string sTexts;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const bool bReference = oMap.GetField(i).m_eId == eZorEdidField_CtaVideoReference;
        sTexts += bReference ? GetFieldValue(oMap, i) + "\n" : "";
    }
    EXPECT_EQ("detailed timing 1: 1920 x 1080 @ 60 Hz\n"
              "first video format descriptor at 60 Hz: 1920 x 1080 @ 60 Hz\n"
              "first code of the Type VIII data block: 800 x 600 @ 60.32 Hz\n"
              "timing 1 of Types VII and X: none\n"
              "1920x1080p 59.94/60 Hz 16:9\n"
              "detailed timing 2: none\n",
              sTexts);
}

TEST(MapText, NotesStandByTheirFields)
{
    CBytes aui8Image = MakeEdid({ MakeCeaBlock() });
    aui8Image[0x10] = 60; // week
    aui8Image[0x85] = 0x80;
    aui8Image[0x86] = 0x80; // codes of no mode
    CZorEdidMap oMap;
    oMap.Read(256, FixChecksums(aui8Image).data());
    ASSERT_EQ(3U, oMap.GetNoteCount());
    const CZorEdidMap::SField& oWeek = oMap.GetField(oMap.FindLeaf(0x10, 0));
    const CZorEdidMap::SField& oCode = oMap.GetField(oMap.FindLeaf(0x86, 0));
    EXPECT_EQ(0U, oMap.GetField(0).m_uiNotes);
    EXPECT_EQ(0U, oWeek.m_uiFirstNote);
    EXPECT_EQ(1U, oWeek.m_uiNotes);
    EXPECT_EQ(2U, oCode.m_uiFirstNote);
    EXPECT_EQ(1U, oCode.m_uiNotes);
    EXPECT_EQ("warning: reserved value", GetNoteText(oMap.GetNote(0)));
}
} // namespace
