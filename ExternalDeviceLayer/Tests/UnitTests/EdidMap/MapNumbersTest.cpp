// Numbers that the map gives to timings, and what its fields say of themselves: index, area, severity, raw number.

#include <set>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "MapCases.h"
#include "MapReference.h"
#include "OsServices.h"
#include "VidParamTimingGeneric.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;

class MapNumbers : public testing::Test
{
protected:
    MapNumbers() { OsServices::SetMsgLevel(0, 0, 0); } // without the lines of the classes about bad blocks
};

// A CTA-861 block of revision 3 from its byte 4 on.
CBytes MakeCta(const CBytes& aui8DataBlocks, const CBytes& aui8Timings = {})
{
    CBytes aui8Block = Join({ { 2, 3, static_cast<unsigned char>(4 + aui8DataBlocks.size()), 0x40 }, aui8DataBlocks });
    Append(aui8Block, aui8Timings);
    aui8Block.resize(gsc_uiBlockSize);
    return aui8Block;
}

void ReadMap(CZorEdidMap& oMap, const CBytes& aui8Image)
{
    ASSERT_EQ(1, oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
}

int GetTiming(const CEdid& oEdid, CZorEdidMap::EList eList, unsigned int uiNumber, CVidParamTimingGeneric& oTiming)
{
    return eList == CZorEdidMap::eList_Established ? oEdid.GetEstablished(uiNumber, &oTiming, 0)
           : eList == CZorEdidMap::eList_Standard  ? oEdid.GetStandard(uiNumber, &oTiming, nullptr)
                                                   : oEdid.GetDetailed(uiNumber, &oTiming);
}

// The text of a timing says its size and rate, "1920x1080i 59.94/60 Hz 16:9" or "1024 x 768 @ 60 Hz", maybe after the
// code and a comma.
void ExpectTiming(const std::string& sText, const CVidParamTimingGeneric& oTiming)
{
    const auto aasFound = FindAll(sText, "^(?:\\d+, )?(\\d+) ?x ?(\\d+)(i?).*?([0-9.]+) Hz.*");
    ASSERT_EQ(1, aasFound.size()) << sText;
    const std::vector<std::string>& asParts = aasFound[0];
    EXPECT_EQ(oTiming.GetHorizontalActive(), std::stoul(asParts[1])) << sText;
    const unsigned int uiLines = oTiming.GetVerticalActive();
    // Pairs of an aspect ratio that no mode has exactly are taken as the modes of 768 and 480 lines.
    EXPECT_EQ(uiLines == 768 && asParts[2] == "765"   ? 765
              : uiLines == 480 && asParts[2] == "477" ? 477
                                                      : uiLines,
              std::stoul(asParts[2]))
        << sText;
    const unsigned int uiRate = oTiming.GetVerticalRateInHz() * (asParts[3].empty() ? 1 : 2);
    EXPECT_NEAR(uiRate, std::stod(asParts[4]), 1.0) << sText;
}

// Numbers of one list in the map. Each names a timing of the library that is what the field says.
std::set<unsigned int> CheckNumbers(const CEdid& oEdid, const CZorEdidMap& oMap, CZorEdidMap::EList eList)
{
    std::set<unsigned int> oNumbers;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        if (oField.m_eList == eList)
        {
            CVidParamTimingGeneric oTiming;
            EXPECT_NE(0, GetTiming(oEdid, eList, oField.m_uiTiming, oTiming));
            ExpectTiming(eList == CZorEdidMap::eList_Established ? oField.m_pszName
                                                                 : static_cast<const char*>(oMap.GetValue(i)),
                         oTiming);
            EXPECT_TRUE(oNumbers.insert(oField.m_uiTiming).second) << oField.m_uiTiming << " comes twice";
        }
    }
    return oNumbers;
}

// The second one of a pair that differs by 1000/1001.
bool IsPartner(const CEdid& oEdid, unsigned int uiNumber)
{
    CVidParamTimingGeneric oFirst;
    CVidParamTimingGeneric oSecond;
    return uiNumber != 0 && oEdid.GetStandard(uiNumber - 1, &oFirst, nullptr) != 0 &&
           oEdid.GetStandard(uiNumber, &oSecond, nullptr) != 0 &&
           oFirst.GetHorizontalActive() == oSecond.GetHorizontalActive() &&
           oFirst.GetVerticalActive() == oSecond.GetVerticalActive() &&
           oFirst.GetHorizontalTotal() == oSecond.GetHorizontalTotal();
}

void CheckImage(const CBytes& aui8Image)
{
    CEdid oEdid;
    CZorEdidMap oMap;
    ASSERT_NE(0, LoadExact(oEdid, aui8Image));
    ReadMap(oMap, aui8Image);
    EXPECT_EQ(oEdid.GetEstablishedCount(0), CheckNumbers(oEdid, oMap, CZorEdidMap::eList_Established).size());
    EXPECT_EQ(oEdid.GetDetailedCount(), CheckNumbers(oEdid, oMap, CZorEdidMap::eList_Detailed).size());
    const std::set<unsigned int> oNumbers = CheckNumbers(oEdid, oMap, CZorEdidMap::eList_Standard);
    for (unsigned int i = 0; i < oEdid.GetStandardCount(); ++i)
    {
        EXPECT_TRUE(oNumbers.contains(i) || (oNumbers.contains(i - 1) && IsPartner(oEdid, i))) << i;
    }
}

TEST_F(MapNumbers, AreAllThatTheLibraryLists)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        SCOPED_TRACE(oImage.m_pszName);
        CheckImage(ToBytes(*oImage.m_paui8Image));
    }
    SCOPED_TRACE("timings in all blocks");
    const CBytes aui8Cta = MakeCta(ParseBytes("43 10 13 04 E2 0E 61"), Detailed1080p());
    const CBytes aui8DisplayId =
        MakeDisplayIdBlock(Join({ MakeDataBlock(4, 0, Type2Record720p()), MakeDataBlock(3, 0, Type1Record1080p()) }));
    CheckImage(FixChecksums(MakeEdid({ aui8Cta, aui8Cta, aui8DisplayId, aui8Cta })));
}

// "5=0 6=2": bytes of the block at hand that have a number.
std::string ListNumbers(const CZorEdidMap& oMap, unsigned int uiFirst)
{
    std::ostringstream oText;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        if (oField.m_uiOffset >= gsc_uiBlockSize && oField.m_eList == CZorEdidMap::eList_Standard)
        {
            CMString sPlace;
            sPlace.Format("%s%02X=%u", oText.tellp() == 0 ? "" : " ", oField.m_uiOffset & 0x7FU,
                          oField.m_uiTiming - uiFirst);
            oText << static_cast<const char*>(sPlace);
        }
    }
    return oText.str();
}

TEST_F(MapNumbers, OfCodes)
{
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/numbers.txt", 3))
    {
        SCOPED_TRACE(oRow.GetName());
        CBytes aui8Image = FixChecksums(MakeEdid({ MakeCta(oRow.GetBytes(1)) }));
        CEdid oEdid;
        CZorEdidMap oMap;
        ASSERT_NE(0, LoadExact(oEdid, aui8Image));
        ReadMap(oMap, aui8Image);
        EXPECT_EQ(oRow.GetText(2), ListNumbers(oMap, oEdid.GetBaseStandardCount()));
        for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
        {
            CVidParamTimingGeneric oTiming;
            if (oMap.GetField(i).m_eList == CZorEdidMap::eList_Standard &&
                oEdid.GetStandard(oMap.GetField(i).m_uiTiming, &oTiming, nullptr) != 0)
            {
                ExpectTiming(static_cast<const char*>(oMap.GetValue(i)), oTiming);
            }
        }
        // A block that is not counted is not listed.
        Append(aui8Image, CBytes(aui8Image.begin() + gsc_uiBlockSize, aui8Image.end()));
        ReadMap(oMap, aui8Image);
        EXPECT_EQ(oRow.GetText(2), ListNumbers(oMap, oEdid.GetBaseStandardCount()));
    }
}

// ---- What fields say of themselves ----

std::vector<unsigned int> GetIndexes(const CZorEdidMap& oMap, const std::string& sName)
{
    std::vector<unsigned int> auiIndexes;
    for (unsigned int i = FindNext(oMap, 0, sName); i < oMap.GetFieldCount(); i = FindNext(oMap, i + 1, sName))
    {
        auiIndexes.push_back(oMap.GetField(i).m_uiIndex);
    }
    return auiIndexes;
}

TEST_F(MapNumbers, IndexTellsSeveralApart)
{
    CZorEdidMap oMap;
    ReadMap(oMap, BehindBaseBlock(MakeCta(ParseBytes("43 10 13 04 23 09 07 07 41 1F"),
                                          Join({ Detailed1080p(), Detailed1080p() }))));
    EXPECT_EQ((std::vector<unsigned int>{ 0, 1 }), GetIndexes(oMap, "Video data block"));
    EXPECT_EQ((std::vector<unsigned int>{ gsc_uiNone }), GetIndexes(oMap, "Audio data block"));
    EXPECT_EQ((std::vector<unsigned int>{ 0, 1 }), GetIndexes(oMap, "Detailed timing"));
    EXPECT_EQ((std::vector<unsigned int>{ 0, 1, 2, gsc_uiNone }), GetIndexes(oMap, "Short video descriptor"));
    // Data blocks of several tags that have one name.
    ReadMap(oMap, BehindBaseBlock(MakeCta(ParseBytes("E2 24 00 01 07 E2 80 00"))));
    EXPECT_EQ((std::vector<unsigned int>{ 0, 1, 2 }), GetIndexes(oMap, "Reserved data block"));
    // Tags of blocks have the numbers of the blocks; what is left over has none.
    ReadMap(oMap, BehindBaseBlock({ 0xF0, 2, 0x70 }));
    EXPECT_EQ((std::pair{ 2U, 3U }), (std::pair{ oMap.GetField(oMap.FindLeaf(gsc_uiBlockSize + 1, 0)).m_uiIndex,
                                                 oMap.GetField(oMap.FindLeaf(gsc_uiBlockSize + 2, 0)).m_uiIndex }));
    ReadMap(oMap, BehindBaseBlock(MakeCta(ParseBytes("E3 05 00 00"))));
    EXPECT_EQ(gsc_uiNone, oMap.GetField(oMap.FindLeaf(gsc_uiBlockSize + 7, 4)).m_uiIndex);
}

// Groups of one name in a block count from 0; the only one has no index. The records of a data block count in it.
TEST_F(MapNumbers, IndexOfGroupsInABlock)
{
    const CBytes aui8Type1 = MakeDataBlock(3, 0, Type1Record1080p());
    const CBytes aui8Type2 = MakeDataBlock(4, 0, Type2Record720p());
    CBytes aui8Image = MakeEdid({ MakeDisplayIdBlock(Join({ aui8Type1, aui8Type2, aui8Type1 })) });
    const CBytes aui8Text = ParseBytes("00 00 00 FE 00 41 0A 20*11");
    std::copy(aui8Text.begin(), aui8Text.end(), aui8Image.begin() + 0x5A);
    std::copy(aui8Text.begin(), aui8Text.end(), aui8Image.begin() + 0x6C);
    CZorEdidMap oMap;
    ReadMap(oMap, FixChecksums(aui8Image));
    std::map<std::pair<unsigned int, std::string>, std::vector<unsigned int>> oIndexes;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        if (oField.m_eKind == CZorEdidMap::eKind_Group && oField.m_uiDepth != 0 &&
            !std::string(oField.m_pszName).ends_with(" timing"))
        {
            oIndexes[{ oField.m_uiOffset & ~0x7FU, oField.m_pszName }].push_back(oField.m_uiIndex);
        }
    }
    unsigned int uiSeveral = 0;
    for (const auto& [oKey, auiIndexes] : oIndexes)
    {
        uiSeveral += auiIndexes.size() > 1 ? 1U : 0U;
        for (unsigned int i = 0; i < auiIndexes.size(); ++i)
        {
            EXPECT_EQ(auiIndexes.size() > 1 ? i : gsc_uiNone, auiIndexes[i]) << oKey.second;
        }
    }
    EXPECT_EQ(2U, uiSeveral);
}

TEST_F(MapNumbers, NumberAreaAndSeverity)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        CBytes aui8Image = ToBytes(*oImage.m_paui8Image);
        ++aui8Image[gsc_uiBlockSize - 1];
        CZorEdidMap oMap;
        ReadMap(oMap, aui8Image);
        for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
        {
            const CZorEdidMap::SField& oField = oMap.GetField(i);
            if (oField.m_eKind == CZorEdidMap::eKind_Flag)
            {
                const unsigned int uiMask = oMap.GetPiece(oField.m_uiFirstPiece).m_ui8Mask;
                EXPECT_EQ((aui8Image[oField.m_uiOffset] & uiMask) != 0 ? 1 : 0, oField.m_llNumber) << oField.m_pszName;
            }
            EXPECT_TRUE(
                (oField.m_eKind != CZorEdidMap::eKind_Unknown && oField.m_eKind != CZorEdidMap::eKind_Reserved) ||
                oField.m_eArea == CZorEdidMap::eArea_Unused)
                << oField.m_pszName;
        }
        unsigned int uiErrors = 0;
        for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
        {
            const CZorEdidMap::SNote& oNote = oMap.GetNote(i);
            uiErrors += std::string(oNote.m_pszText) == "the checksum is wrong" &&
                                oNote.m_eSeverity == CZorEdidMap::eSeverity_Error
                            ? 1U
                            : 0U;
        }
        EXPECT_LE(1U, uiErrors) << oImage.m_pszName;
    }
}

// Its tag is of the structure, whatever an extension block is about.
TEST_F(MapNumbers, AreaOfExtensionTags)
{
    for (unsigned int uiTag = 1; uiTag <= 0xFF; ++uiTag)
    {
        CZorEdidMap oMap;
        ReadMap(oMap, MakeEdid({ CBytes{ static_cast<unsigned char>(uiTag), 1 } }));
        const CZorEdidMap::SField& oTag = oMap.GetField(oMap.FindLeaf(gsc_uiBlockSize, 0));
        EXPECT_STREQ("Extension tag", oTag.m_pszName);
        EXPECT_EQ(CZorEdidMap::eArea_Structure, oTag.m_eArea) << uiTag;
    }
}
} // namespace
