// The rules of the check: good images, each damaged in one way, against place, weight and words of what is found.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Damages.h"
#include "DisplayIdImages.h"
#include "Findings.h"
#include "MapText.h"
#include "SharedFiles.h"

namespace
{
using CTexts = std::vector<std::string>;

constexpr unsigned int gsc_uiThisYear = 2026;

std::vector<SFinding> Check(const CBytes& aui8Image, unsigned int uiThisYear)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    return CheckImage(oMap, uiThisYear);
}

// "BLOCK:OFFSET SEVERITY WHAT: FOUND, EXPECTED", offsets in hexadecimal digits.
CTexts List(const CBytes& aui8Image, unsigned int uiThisYear = gsc_uiThisYear)
{
    const CQuietMessages oQuiet;
    CTexts asFindings;
    for (const SFinding& oFinding : Check(aui8Image, uiThisYear))
    {
        std::ostringstream oText;
        oText << oFinding.m_uiBlock << ':' << std::hex << oFinding.m_uiOffset << ' '
              << GetNoteName(oFinding.m_eSeverity) << ' ' << oFinding.m_sWhat << (oFinding.m_sFound.empty() ? "" : ": ")
              << oFinding.m_sFound << (oFinding.m_sExpected.empty() ? "" : ", ") << oFinding.m_sExpected;
        asFindings.push_back(oText.str());
    }
    return asFindings;
}

// A base block of 2010 that calls itself 1.3, and a CTA-861 block of revision 3 with four timings.
CBytes GetMonitor() { return ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin"); }

struct SCheckCase
{
    const char* m_pszName;
    std::vector<SDamage> m_aoDamages;
    CTexts m_asFindings;
};

void PrintTo(const SCheckCase& oCase, std::ostream* poStream) { *poStream << oCase.m_pszName; }

class CheckRule : public testing::TestWithParam<SCheckCase>
{
};

TEST_P(CheckRule, NamesTheDamageOnce)
{
    const CBytes aui8Image = FixChecksums(WithDamages(GetMonitor(), GetParam().m_aoDamages));
    EXPECT_EQ(GetParam().m_asFindings, List(aui8Image));
}

const SCheckCase gsc_aoDamages[] = {
    { "None", {}, {} },
    // Without a header the library reads nothing. The notes of the map stay.
    { "Header",
      { { 7, "01" }, { 8, "00" }, { 0x11, "25" }, { 0x81, "04" } },
      { "0:0 error not the header of a base block: 00 ff ff ff ff ff ff 01, 00 ff ff ff ff ff ff 00",
        "0:8 warning not three letters: 0069", "1:1 warning revision is not published: 4, 1 to 3" } },
    { "YearAfterThisOne", { { 0x11, "25" } }, { "0:11 warning the year is in the future: 2027, at most 2026" } },
    { "ThisYear", { { 0x11, "24" } }, {} },
    { "ModelOfNextYear", { { 0x10, "FF 25 01 04" }, { 0x18, "2B" } }, {} },
    { "ModelOfTheYearAfter",
      { { 0x10, "FF 26 01 04" }, { 0x18, "2B" } },
      { "0:11 warning the year is in the future: 2028, at most 2027" } },
    { "NoPreferredMode",
      { { 0x13, "02" }, { 0x18, "28" } },
      { "0:5a warning announced modes are outside of the display range limits: pixel clock 240.26 MHz of 1680 x 1680 "
        "@ 60 Hz at block 0 offset 0x30, at most 170.00 MHz",
        "0:5a warning announced modes are outside of the display range limits: line rate 104.28 kHz of 1680 x 1680 "
        "@ 60 Hz at block 0 offset 0x30, 24 to 92 kHz",
        "0:5a note announced modes are outside of the display range limits: pixel clock 175.94 MHz of 1440 x 1440 "
        "@ 60 Hz at block 0 offset 0x2e, at most 170.00 MHz",
        "0:18 note the text reports need a preferred mode: none declared", "0:2e note the library lists it as 16:10",
        "0:30 note the library lists it as 16:10" } },
    { "FirstDescriptorIsNoTiming",
      { { 0x36, "00 00 00 10 00*14" } },
      { "0:36 error the first descriptor must be a detailed timing: pixel clock 0 MHz, tag 0x10" } },
    { "RangeLimitOffsets",
      { { 0x13, "04" }, { 0x18, "2B" }, { 0x5E, "02" } },
      { "0:5a note the library reads no range limits with offsets" } },
    { "TooManyBlocks",
      { { 0x7E, "03" } },
      { "0:7e error fewer extension blocks follow: 1 block, 3 blocks",
        "0:7e warning 1.3 requires a block map before two or more extension blocks: 3" } },
    { "TooFewBlocks",
      { { 0x7E, "00" }, { 0x81, "04" } },
      { "1:0 warning not counted by the number of extension blocks: 0 blocks, at least 1 block",
        "1:1 warning revision is not published: 4, 1 to 3" } },
    // One finding for each cause: not the numbers of timings that are read from a wrong place.
    { "OffsetInADataBlock",
      { { 0x82, "0A" } },
      { "1:4 error runs past the end of its data block collection: 15 bytes, at most 5 bytes" } },
    { "TimingWithoutAClock",
      { { 0x36, "00 00" } },
      { "0:36 error the first descriptor must be a detailed timing: pixel clock 0 MHz" } },
    { "KnownKind", { { 0x80, "60" } }, { "1:0 note the block is not read: the library keeps no model of its kind" } },
    { "UnknownKind",
      { { 0x80, "11" } },
      { "1:0 warning not a known kind of extension block: tag 0x11",
        "1:0 note the block is not read: the library keeps no model of its kind" } },
    { "CeaRevision",
      { { 0x81, "04" } },
      { "1:1 warning revision is not published: 4, 1 to 3",
        "1:0 note the block is not read: its revision is 4, above 3" } },
    { "DescriptorsInTheHeader",
      { { 0x82, "03" } },
      { "1:2 error lies outside of the block: nothing after it can be found: 3 bytes, 4 to 127 bytes" } },
    { "DescriptorsAfterTheChecksum",
      { { 0x82, "80" } },
      { "1:2 error lies outside of the block: nothing after it can be found: 128 bytes, 4 to 127 bytes" } },
    { "NameAmongTheTimings",
      { { 0xEA, "00 00 00 FC 00 41 0A 20*11" } },
      { "1:6a note the library reads no display descriptor here" } },
    { "NameBeforeATiming",
      { { 0xC6, "00 00 00 FC 00 41 0A 20*11" } },
      { "1:46 note the library reads no display descriptor here", "1:58 note the library does not list this timing" } },
};
INSTANTIATE_TEST_SUITE_P(Base, CheckRule, testing::ValuesIn(gsc_aoDamages),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });

TEST(Check, ChecksumsAreNamedWithTheRightOne)
{
    CBytes aui8Image = GetMonitor();
    aui8Image[0x7F] = 0;
    aui8Image[0xFF] = 0;
    EXPECT_EQ((CTexts{ "0:7f error the checksum is wrong: 0x00, should be 0x12",
                       "1:7f error the checksum is wrong: 0x00, should be 0x73",
                       "1:0 note the block is not read: its checksum is wrong" }),
              List(aui8Image));
    const std::vector<SFinding> aoFindings = Check(aui8Image, gsc_uiThisYear);
    EXPECT_EQ("Checksum", aoFindings.at(1).m_sField);
    EXPECT_TRUE(aoFindings.at(1).HasWeight());
    EXPECT_EQ("CTA-861 extension block", aoFindings.at(2).m_sField);
    EXPECT_FALSE(aoFindings.at(2).HasWeight());
}

TEST(Check, ABlockThatWasNeverWrittenHasOneFinding)
{
    CBytes aui8Image = GetMonitor();
    std::fill(aui8Image.begin() + 0x80, aui8Image.end(), static_cast<unsigned char>(0xFF));
    EXPECT_EQ(CTexts{ "1:0 error all bytes are FFh: the block was never written" }, List(aui8Image));
}

TEST(Check, BlocksThatAreCutShort)
{
    CBytes aui8Image = GetMonitor();
    const std::string sCut = " error cut short: a block has 128 bytes: ";
    aui8Image.resize(300);
    EXPECT_EQ(
        (CTexts{ "2:0" + sCut + "44 bytes", "2:0 warning not counted by the number of extension blocks: 1 block" }),
        List(aui8Image));
    aui8Image.resize(200);
    EXPECT_EQ((CTexts{ "0:7e error fewer extension blocks follow: 0 blocks, 1 block", "1:0" + sCut + "72 bytes",
                       "1:46 error cut short: a detailed timing has 18 bytes: 2 bytes" }),
              List(aui8Image));
    aui8Image.resize(127);
    aui8Image[0x10] = 60;
    EXPECT_EQ((CTexts{ "0:0" + sCut + "127 bytes", "0:10 warning reserved value: 60" }), List(aui8Image));
    EXPECT_EQ(
        (CTexts{ "0:0" + sCut + "1 byte", "0:0 error not the header of a base block: 00, 00 ff ff ff ff ff ff 00" }),
        List({ 0 }));
    EXPECT_EQ(CTexts(), List({}));
}

// A base block with these blocks, of which it announces so many.
CTexts ListBlocks(const std::vector<CBytes>& aoBlocks, unsigned int uiAnnounced)
{
    CBytes aui8Image = MakeEdid(aoBlocks);
    aui8Image[126] = static_cast<unsigned char>(uiAnnounced);
    aui8Image[0x23] = 0x20; // 640 x 480 at 60 Hz
    return List(FixChecksums(aui8Image));
}

CBytes MakeCea(const char* pszBytes) { return FixChecksums(ParseBytes(pszBytes)); }

TEST(Check, TheOverrideBlockOfTheFirstBlockAnnouncesMore)
{
    const CBytes aui8Two = MakeCea("02 03 07 00 E2 78 02 ..128");
    const CBytes aui8Empty = MakeCea("02 03 04 00 ..128");
    EXPECT_EQ((CTexts{ "2:0 note the block is not read: byte 0x7e of the base block does not count it" }),
              ListBlocks({ aui8Two, aui8Empty }, 1));
    EXPECT_EQ((CTexts{ "1:6 error fewer extension blocks follow: 1 block, 2 blocks" }), ListBlocks({ aui8Two }, 1));
    EXPECT_EQ((CTexts{ "2:0 warning not counted by the number of extension blocks: 1 block, at least 2 blocks",
                       "2:4 warning is not the first data block of block 1" }),
              ListBlocks({ aui8Empty, aui8Two }, 1));
    EXPECT_EQ((CTexts{ "1:0 warning not a known kind of extension block: tag 0x00",
                       "1:0 note the block is not read: the library keeps no model of its kind" }),
              ListBlocks({ MakeEdid({}) }, 1));
}

TEST(Check, DisplayIdBlocks)
{
    const auto fnRecord = [](unsigned int uiTag, size_t uiSize) {
        return MakeDisplayIdBlock(MakeDataBlock(uiTag, 0, CBytes(uiSize)));
    };
    const CBytes aui8Full = MakeFullDisplayIdBlock();
    const std::string sUnread = "1:0 note the block is not read: its ";
    const struct
    {
        const char* m_pszName;
        CBytes m_aui8Block;
        std::string m_sFinding; // one of them
    } aoCases[] = {
        { "section checksum", FixChecksums(WithChange(aui8Full, 126, static_cast<unsigned char>(aui8Full[126] + 1))),
          sUnread + "section's checksum is wrong" },
        { "section too long", FixChecksums(WithChange(aui8Full, 2, 122)),
          sUnread + "DisplayID section runs past its end" },
        { "later version", MakeDisplayIdBlock({}, UINT_MAX, 0x13), sUnread + "DisplayID version is 1.3, above 1.2" },
        { "no version 2.2", MakeDisplayIdBlock({}, UINT_MAX, 0x22),
          "1:1 warning revision is not published: 2, at most 1" },
        { "no version 1.4", MakeDisplayIdBlock({}, UINT_MAX, 0x14),
          "1:1 warning revision is not published: 4, at most 3" },
        { "Type I, one and a byte", fnRecord(3, 21),
          "1:5 error payload is not a whole number of items: 21 bytes, 20 or 40 bytes" },
        { "tile, one less a byte", fnRecord(18, 21),
          "1:5 warning payload is shorter than the standard says: 21 bytes, 22 bytes" },
    };
    for (const auto& oCase : aoCases)
    {
        const CTexts asFindings = ListBlocks({ oCase.m_aui8Block }, 1);
        EXPECT_EQ(1, std::count(asFindings.begin(), asFindings.end(), oCase.m_sFinding)) << oCase.m_pszName;
    }
    // The checksum is where the length says in any version.
    const auto fnCountSums = [](const CBytes& aui8Block) {
        const CTexts asFindings = ListBlocks({ FixChecksums(aui8Block) }, 1);
        return std::ranges::count_if(asFindings,
                                     [](const std::string& sText) { return sText.find("checksum") != sText.npos; });
    };
    const CBytes aui8Later = MakeDisplayIdBlock({}, 121, 0x30);
    EXPECT_EQ(0, fnCountSums(aui8Later));
    EXPECT_EQ(1, fnCountSums(WithChange(aui8Later, 126, static_cast<unsigned char>(aui8Later[126] + 1))));
    for (const unsigned int uiVersion : { 0x13U, 0x21U })
    {
        for (const SFinding& oFinding :
             Check(FixChecksums(MakeEdid({ MakeDisplayIdBlock({}, UINT_MAX, uiVersion) })), 2026))
        {
            EXPECT_NE("revision is not published", oFinding.m_sWhat) << uiVersion;
        }
    }
}

TEST(Check, AudioOfRevisionThree)
{
    EXPECT_EQ((CTexts{ "1:4 error is shorter than the standard has it: 1 byte, at least 3 bytes" }),
              ListBlocks({ MakeCea("02 03 06 40 21 09 ..128") }, 1));
    EXPECT_EQ((CTexts{ "1:4 warning this revision of the block has no data blocks" }),
              ListBlocks({ MakeCea("02 02 06 40 21 09 ..128") }, 1));
}
} // namespace
