// The rules of the check: good images, each damaged in one way, against place, weight and words of what is found.

#include <gtest/gtest.h>

#include "CheckRules.h"
#include "Damages.h"
#include "DisplayIdImages.h"
#include "MapText.h"
#include "OsServices.h"
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

// "BLOCK:OFFSET SEVERITY WHAT: FOUND", offsets in hexadecimal digits.
CTexts List(const CBytes& aui8Image, unsigned int uiThisYear = gsc_uiThisYear)
{
    OsServices::SetMsgLevel(0, 0, 0);
    CTexts asFindings;
    for (const SFinding& oFinding : Check(aui8Image, uiThisYear))
    {
        std::ostringstream oText;
        oText << oFinding.m_uiBlock << ':' << std::hex << oFinding.m_uiOffset << ' '
              << GetNoteName(oFinding.m_eSeverity) << ' ' << oFinding.m_sWhat << (oFinding.m_sFound.empty() ? "" : ": ")
              << oFinding.m_sFound;
        asFindings.push_back(oText.str());
    }
    return asFindings;
}

// A base block of 2010 that calls itself 1.3, and a CEA-861 block of revision 3 with four timings.
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

TEST_P(CheckRule, TellsTheDamageOnce)
{
    const CBytes aui8Image = FixChecksums(WithDamages(GetMonitor(), GetParam().m_aoDamages));
    EXPECT_EQ(GetParam().m_asFindings, List(aui8Image));
}

const SCheckCase gsc_aoDamages[] = {
    { "None", {}, {} },
    // No rule looks behind a damaged header. What the map says of the bytes there is told.
    { "Header",
      { { 7, "01" }, { 8, "00" }, { 0x11, "25" }, { 0x81, "04" } },
      { "0:0 error header: 00ffffffffffff01", "0:8 warning not three letters: 0069", "1:1 warning revision: 4" } },
    { "YearBehindThisOne", { { 0x11, "25" } }, { "0:11 warning year: 2027" } },
    { "ThisYear", { { 0x11, "24" } }, {} },
    { "ModelOfNextYear", { { 0x10, "FF 25 01 04" }, { 0x18, "2B" } }, {} },
    { "ModelOfTheYearAfter", { { 0x10, "FF 26 01 04" }, { 0x18, "2B" } }, { "0:11 warning year: 2028" } },
    { "NoPreferredMode",
      { { 0x13, "02" }, { 0x18, "28" } },
      { "0:18 note preferred mode: none declared", "0:2e note the library lists it as 16:10",
        "0:30 note the library lists it as 16:10" } },
    { "FirstDescriptorIsNoTiming",
      { { 0x36, "00 00 00 10 00*14" } },
      { "0:36 error preferred mode: no detailed timing" } },
    // Ten millimetres are no difference, eleven are; sizes that are not given have none.
    { "TimingNarrowerByTen", { { 0x42, "4E" } }, {} },
    { "TimingNarrowerByEleven", { { 0x42, "4D" } }, { "0:42 note image size: 589 x 336 mm" } },
    { "TimingWiderByTen", { { 0x42, "62" } }, {} },
    { "TimingWiderByEleven", { { 0x42, "63" } }, { "0:42 note image size: 611 x 336 mm" } },
    { "TimingHigherByEleven", { { 0x43, "5F" } }, { "0:42 note image size: 598 x 351 mm" } },
    { "TimingWithoutSize", { { 0x42, "00" }, { 0x43, "00" }, { 0x44, "00" } }, {} },
    { "TimingWithoutWidth", { { 0x42, "00" }, { 0x44, "01" } }, {} },
    { "NoSizeInCentimetres", { { 0x15, "00" }, { 0x16, "00" } }, {} },
    { "RangeLimitFlags", { { 0x13, "04" }, { 0x18, "2B" }, { 0x5E, "02" } }, { "0:5e note range limits: flags 0x02" } },
    { "TooManyBlocks", { { 0x7E, "03" } }, { "0:7e error extension count: 3" } },
    // The second block is nobody's, whatever is wrong there.
    { "TooFewBlocks", { { 0x7E, "00" }, { 0x80, "99" } }, { "0:7e warning extension count: 0" } },
    { "KnownKind", { { 0x80, "60" } }, { "1:0 note block kind: 0x60 (dpvl)" } },
    { "KindThatTheMapNames", { { 0x80, "20" } }, { "1:0 note block kind: 0x20 (edid-2)" } },
    { "UnknownKind", { { 0x80, "11" } }, { "1:0 warning block kind: 0x11 (unknown)" } },
    { "CeaRevision", { { 0x81, "04" } }, { "1:1 warning revision: 4" } },
    { "DescriptorsInTheHeader", { { 0x82, "03" } }, { "1:2 error offset of the descriptors: 0x03" } },
    { "DescriptorsInTheChecksum", { { 0x82, "80" } }, { "1:2 error offset of the descriptors: 0x80" } },
    { "NameAmongTheTimings", { { 0xEA, "00 00 00 FC 00 41 0A 20*11" } }, { "1:6a note display descriptor: tag 0xfc" } },
};
INSTANTIATE_TEST_SUITE_P(Base, CheckRule, testing::ValuesIn(gsc_aoDamages),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });

TEST(Check, ChecksumsAreToldWithTheRightOne)
{
    CBytes aui8Image = GetMonitor();
    aui8Image[0x7F] = 0; // of 0x12
    aui8Image[0xFF] = 0; // of 0x73
    EXPECT_EQ((CTexts{ "0:7f error checksum: 0x00", "1:7f error checksum: 0x00" }), List(aui8Image));
    const std::vector<SFinding> aoFindings = Check(aui8Image, gsc_uiThisYear);
    ASSERT_EQ(2U, aoFindings.size());
    EXPECT_EQ("0x12", aoFindings[0].m_sExpected);
    EXPECT_EQ("0x73", aoFindings[1].m_sExpected);
    EXPECT_EQ("Checksum", aoFindings[1].m_sField);
    EXPECT_TRUE(aoFindings[1].HasWeight());
}

TEST(Check, SizesThatAreNoneStandAtTheirEnd)
{
    CBytes aui8Image = GetMonitor();
    aui8Image.resize(300);
    EXPECT_EQ((CTexts{ "2:2c error size: 300 bytes" }), List(aui8Image));
    aui8Image.resize(200);
    EXPECT_EQ((CTexts{ "0:7e error extension count: 1", "1:46 error cut short: a detailed timing has 18 bytes",
                       "1:48 error size: 200 bytes" }),
              List(aui8Image));
    aui8Image.resize(127);
    aui8Image[0x10] = 60;
    EXPECT_EQ((CTexts{ "0:10 warning reserved value: 60", "0:7f error size: 127 bytes" }), List(aui8Image));
    EXPECT_EQ((CTexts{ "0:0 error not the header of a base block: 00", "0:1 error size: 1 byte" }), List({ 0 }));
    EXPECT_EQ((CTexts{ "0:0 error size: 0 bytes" }), List({}));
}

// A base block with these blocks, of which it announces so many.
CTexts ListBlocks(const std::vector<CBytes>& aoBlocks, unsigned int uiAnnounced)
{
    CBytes aui8Image = MakeEdid(aoBlocks);
    aui8Image[126] = static_cast<unsigned char>(uiAnnounced);
    return List(FixChecksums(aui8Image));
}

CBytes MakeCea(const char* pszBytes) { return FixChecksums(ParseBytes(pszBytes)); }

TEST(Check, TheOverrideBlockOfTheFirstBlockAnnouncesMore)
{
    const CBytes aui8Three = MakeCea("02 03 07 00 E2 78 03 ..128");
    const CBytes aui8Empty = MakeCea("02 03 04 00 ..128");
    const CBytes aui8Bad = MakeCea("02 03 03 00 ..128");
    const std::string sBad = "error offset of the descriptors: 0x03";
    // Then all that it counts are looked at, present or not; else only those that the base block announces.
    EXPECT_EQ((CTexts{ "0:7e note extension count: 1, and 3 in an override data block", "3:2 " + sBad }),
              ListBlocks({ aui8Three, aui8Empty, aui8Bad }, 1));
    EXPECT_EQ((CTexts{ "0:7e warning extension count: 1", "1:6 error fewer extension blocks follow: 3 blocks",
                       "2:2 " + sBad }),
              ListBlocks({ aui8Three, aui8Bad }, 1));
    EXPECT_EQ((CTexts{ "0:7e warning extension count: 1" }), ListBlocks({ aui8Empty, aui8Three, aui8Bad }, 1));
    EXPECT_EQ((CTexts{ "0:7e warning extension count: 0" }), ListBlocks({ aui8Three, aui8Empty, aui8Bad }, 0));
    EXPECT_EQ((CTexts{ "2:2 " + sBad }), ListBlocks({ aui8Empty, aui8Bad }, 2));
}

TEST(Check, DisplayIdBlocks)
{
    const auto fnRecord = [](unsigned int uiTag, size_t uiSize) {
        return MakeDisplayIdBlock(MakeDataBlock(uiTag, 0, CBytes(uiSize)));
    };
    const auto fnSingle = [](const CBytes& aui8Block, size_t uiOffset, unsigned char ui8Value) {
        return FixChecksums(WithChange(aui8Block, uiOffset, ui8Value));
    };
    const CBytes aui8Full = MakeFullDisplayIdBlock();
    const struct
    {
        const char* m_pszName;
        CBytes m_aui8Block;
        std::string m_sFinding; // the one of weight that names the rule; empty for none
    } aoCases[] = {
        { "good", aui8Full, "" },
        { "section checksum", fnSingle(aui8Full, 126, static_cast<unsigned char>(aui8Full[126] + 1)),
          "1:7e error section checksum" },
        { "later version", MakeDisplayIdBlock({}, UINT_MAX, 0x13), "1:1 note DisplayID version: 1.3" },
        { "last known version", MakeDisplayIdBlock({}, UINT_MAX, 0x21), "1:1 note DisplayID version: 2.1" },
        { "no version", MakeDisplayIdBlock({}, UINT_MAX, 0x22), "1:1 warning DisplayID version: 2.2" },
        { "Type I, none", fnRecord(3, 0), "1:5 error data block: length 0" },
        { "Type I, two", fnRecord(3, 40), "" },
        { "Type I, one and a byte", fnRecord(3, 21), "1:5 error data block: length 21" },
        { "Type II, one less a byte", fnRecord(4, 10), "1:5 error data block: length 10" },
        { "tile, one less a byte", fnRecord(18, 21), "1:5 error data block: length 21" },
        { "behind another block",
          MakeDisplayIdBlock(Join({ MakeDataBlock(3, 0, Type1Record1080p()), MakeDataBlock(4, 0, CBytes(12)) })),
          "1:1c error data block: length 12" },
    };
    for (const auto& oCase : aoCases)
    {
        std::string sRules;
        for (const std::string& sFinding : ListBlocks({ oCase.m_aui8Block }, 1))
        {
            const bool bRule = sFinding.find("data block: length") != std::string::npos ||
                               sFinding.find("section checksum") != std::string::npos ||
                               sFinding.find("DisplayID version") != std::string::npos;
            sRules += bRule ? sFinding : "";
        }
        EXPECT_EQ(oCase.m_sFinding, sRules.substr(0, sRules.find(": 0x"))) << oCase.m_pszName;
    }
}

// Data blocks count from revision 3 on only, and descriptors are looked at up to the first one without a clock.
TEST(Check, WhatIsNotReadIsNotChecked)
{
    const CBytes aui8Audio = ParseBytes("06 00 21 09");
    for (const auto& [ui8Revision, bTold] : { std::pair<unsigned char, bool>{ 2, false }, { 3, true } })
    {
        CBytes aui8Block = Join({ { 2, ui8Revision }, aui8Audio, CBytes(122) });
        const CTexts asFindings = ListBlocks({ FixChecksums(aui8Block) }, 1);
        EXPECT_EQ(bTold, !asFindings.empty() && asFindings[0] == "1:4 error audio data block: length 1");
    }
    EXPECT_EQ(CTexts(), ListBlocks({ MakeCea("02 03 00 00 ..128") }, 1));
}
} // namespace
