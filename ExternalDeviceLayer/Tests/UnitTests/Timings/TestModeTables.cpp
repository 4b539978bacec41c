// The three mode tables: every value, the order of matches, and the ways between codes and timings.

#include <gtest/gtest.h>

#include <string.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "SharedFiles.h"
#include "TimingTestHelp.h"
#include "VidParamCea.h"
#include "VidParamDmt.h"
#include "VidParamSmpte.h"

namespace
{
using EType = CVidParamTiming::EVidParamType;

// ---- Every value ----

using Row = std::vector<unsigned int>;

// The numbers of a row: the code of a CEA-861 row, then the values of the timing up to the flags, with bit 7 for a
// reduced mode.
Row NumbersOf(const CVidParamTiming& oTiming, unsigned int uiIndex, EType eType)
{
    CAllValues auiValues = ReadAll(oTiming);
    const bool bReduced = auiValues[gsc_uiSource] == CVidParamTiming::eVidParamType_DmtReducedBlanking;
    EXPECT_EQ(eType + (bReduced ? 1 : 0), auiValues[gsc_uiSource]) << "row " << uiIndex;
    auiValues[gsc_uiFlags] |= bReduced ? 128 : 0;
    Row auiNumbers(auiValues.begin(), auiValues.begin() + gsc_uiFlags + 1);
    if (eType == CVidParamTiming::eVidParamType_Cea)
    {
        auiNumbers.insert(auiNumbers.begin(), CVidParamCea::msc_aoCea861FTable[uiIndex].uiVic);
    }
    return auiNumbers;
}

struct STableCase
{
    EType m_eType;
    const char* m_pszReference; // null where there is none
    size_t m_uiRows;
    unsigned int m_uiChecksum; // worked by another program from the published tables
    int (*m_fnSearch)(unsigned int uiIndex, CVidParamTiming* poTiming); // with all filters open
};

const STableCase gsc_aoTables[] = {
    { CVidParamTiming::eVidParamType_Cea, "reference/cta861.csv", 129, 0x2B2971D8,
      [](unsigned int i, CVidParamTiming* po) {
          return CVidParamCea::GetVidParam(i, po, 0, 0, 0, CVidParamCea::eScanTypeAny);
      } },
    { CVidParamTiming::eVidParamType_Dmt, "reference/dmt.csv", 88, 0x618CADE7,
      [](unsigned int i, CVidParamTiming* po) {
          return CVidParamDmt::GetVidParam(i, po, 0, 0, 0, CVidParamDmt::eModeListAll);
      } },
    { CVidParamTiming::eVidParamType_Smpte, nullptr, 10, 0xD7CE9F66,
      [](unsigned int i, CVidParamTiming* po) { return CVidParamSmpte::GetVidParam(i, po, 0, 0, 0); } },
};

std::vector<Row> ReadTable(const STableCase& oTable)
{
    std::vector<Row> aoRows;
    CRVidParamTiming oTiming;
    for (unsigned int i = 0; oTable.m_fnSearch(i, &oTiming) != 0; ++i)
    {
        aoRows.push_back(NumbersOf(oTiming, i, oTable.m_eType));
    }
    return aoRows;
}

// Behind a line of column heads, one row a line.
std::vector<Row> ReadCsv(const std::filesystem::path& oPath)
{
    std::vector<Row> aoRows;
    std::ifstream oFile(oPath);
    std::string sLine;
    std::getline(oFile, sLine);
    while (std::getline(oFile, sLine))
    {
        aoRows.emplace_back();
        std::istringstream oLine(sLine);
        for (std::string sField; std::getline(oLine, sField, ',');)
        {
            aoRows.back().push_back(static_cast<unsigned int>(std::stoul(sField)));
        }
    }
    return aoRows;
}

TEST(TableRows, HaveThePublishedValuesInTheirOrder)
{
    for (const STableCase& oTable : gsc_aoTables)
    {
        // A multiplicative hash over the numbers of all rows, word by word.
        unsigned int uiHash = 2166136261U;
        const std::vector<Row> aoRows = ReadTable(oTable);
        for (const Row& oRow : aoRows)
        {
            for (const unsigned int uiNumber : oRow)
            {
                uiHash = (uiHash ^ uiNumber) * 16777619U;
            }
        }
        EXPECT_EQ(oTable.m_uiRows, aoRows.size()) << "type " << oTable.m_eType;
        EXPECT_EQ(oTable.m_uiChecksum, uiHash) << "type " << oTable.m_eType;
    }
}

TEST(TableRows, EqualTheReference)
{
    if (!std::filesystem::exists(GetSharedPath("reference")))
    {
        GTEST_SKIP() << "the folder with reference tables is absent";
    }
    for (const STableCase& oTable : gsc_aoTables)
    {
        if (oTable.m_pszReference == nullptr)
        {
            continue;
        }
        const std::vector<Row> aoExpected = ReadCsv(GetSharedPath(oTable.m_pszReference));
        const std::vector<Row> aoRows = ReadTable(oTable);
        ASSERT_EQ(aoExpected.size(), aoRows.size()) << oTable.m_pszReference;
        for (size_t i = 0; i < aoRows.size(); ++i)
        {
            EXPECT_EQ(aoExpected[i], aoRows[i]) << oTable.m_pszReference << ", row " << i;
        }
    }
}

// ---- Search ----

// The codes that a search finds, in its order; of twins always the lower one.
std::vector<unsigned int> FindVics(unsigned int uiHorizontal, unsigned int uiVertical, unsigned int uiRate,
                                   CVidParamCea::EScanType eScanType)
{
    std::vector<unsigned int> auiVics;
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; CVidParamCea::GetVidParam(i, &oTiming, uiHorizontal, uiVertical, uiRate, eScanType) != 0;
         ++i)
    {
        auiVics.emplace_back();
        EXPECT_EQ(1, CVidParamCea::GetVicFromVidParam(oTiming, auiVics.back()));
    }
    return auiVics;
}

TEST(Search, TiesGoByTableOrderAlone)
{
    const auto eAny = CVidParamCea::eScanTypeAny;
    using Vics = std::vector<unsigned int>;
    EXPECT_EQ((Vics{ 5, 34, 34 }), FindVics(1920, 1080, 30, eAny)) << "interlaced first, then the twins 34 and 74";
    EXPECT_EQ((Vics{ 16, 46, 16 }), FindVics(1920, 1080, 60, eAny));
    EXPECT_EQ((Vics{ 20, 33, 39, 33 }), FindVics(1920, 1080, 25, eAny));
    EXPECT_EQ((Vics{ 34, 34 }), FindVics(1920, 1080, 30, CVidParamCea::eScanTypeProgressive));
    EXPECT_EQ((Vics{ 5, 20, 39, 40, 46, 1005, 1046 }), FindVics(0, 0, 0, CVidParamCea::eScanTypeInterlaced));
    EXPECT_EQ((Vics{ 1, 1001 }), FindVics(640, 0, 0, eAny)) << "a filter of 0 passes every row";
}

TEST(Search, DmtListsSplitTheTable)
{
    const auto fnCount = [](unsigned int uiList) {
        const auto eList = static_cast<CVidParamDmt::EModeListType>(uiList);
        unsigned int uiCount = 0;
        while (CVidParamDmt::GetVidParam(uiCount, nullptr, 0, 0, 0, eList) != 0)
        {
            ++uiCount;
        }
        return uiCount;
    };
    EXPECT_EQ(60U, fnCount(CVidParamDmt::eModeListStandard));
    EXPECT_EQ(28U, fnCount(CVidParamDmt::eModeListReducedBlanking));
    EXPECT_EQ(0U, fnCount(0));
    EXPECT_EQ(0U, fnCount(4));
}

TEST(Search, MissLeavesTheTimingAndNullIsATest)
{
    CVidParamTimingGeneric oTiming(gsc_oMarked);
    EXPECT_EQ(0, CVidParamCea::GetVidParam(129, &oTiming, 0, 0, 0, CVidParamCea::eScanTypeAny));
    EXPECT_EQ(0, CVidParamCea::GetVidParam(0, &oTiming, 0, 0, 0, static_cast<CVidParamCea::EScanType>(0)));
    EXPECT_EQ(0, CVidParamDmt::GetVidParam(0, &oTiming, 1281, 0, 0, CVidParamDmt::eModeListAll));
    EXPECT_EQ(0, CVidParamSmpte::GetVidParam(1, &oTiming, 0, 0, 60));
    EXPECT_TRUE(IsMarked(oTiming));
    EXPECT_EQ(1, CVidParamCea::GetVidParam(0, nullptr, 1920, 1080, 60, CVidParamCea::eScanTypeInterlaced));
    EXPECT_EQ(1, CVidParamDmt::GetVidParam(0, nullptr, 1280, 768, 60, CVidParamDmt::eModeListAll));
    EXPECT_EQ(1, CVidParamSmpte::GetVidParam(9, nullptr, 2048, 1080, 0));
}

// ---- Codes ----

TEST(VicLookUp, KnowsTheCodesOfTheTableAndNoOther)
{
    unsigned int uiKnown = 0;
    for (unsigned int uiVic = 0; uiVic <= 2000; ++uiVic)
    {
        const int iRow = CVidParamCea::GetVicTableIndex(uiVic);
        EXPECT_EQ(iRow < 0 ? 0 : 1, CVidParamCea::IsVicSupported(uiVic)) << uiVic;
        ASSERT_TRUE(iRow == -1 || CVidParamCea::msc_aoCea861FTable[iRow].uiVic == uiVic) << uiVic;
        uiKnown += iRow < 0 ? 0 : 1;
    }
    EXPECT_EQ(129U, uiKnown);
    EXPECT_EQ(-1, CVidParamCea::GetVicTableIndex(0xFFFFFFFF));
}

TEST(VicLookUp, UnknownCodeClearsAndNullIsReported)
{
    CVidParamTimingGeneric oTiming(gsc_o720p);
    CCapturedOutput oOutput;
    EXPECT_EQ(0, CVidParamCea::GetVidParamFromVic(6, &oTiming));
    EXPECT_EQ(CAllValues{}, ReadAll(oTiming));
    EXPECT_EQ(0, CVidParamCea::GetVidParamFromVic(1, nullptr));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount()) << "the unknown code is no mistake, the null is";
}

template <class TIMING>
void ExpectCodeOfEachTimingIsItsOwnOrThatOfATwin()
{
    for (const CVidParamCea::SCeaVidParam& oRow : CVidParamCea::msc_aoCea861FTable)
    {
        SCOPED_TRACE(oRow.uiVic);
        TIMING oTiming;
        unsigned int uiVic = 12345;
        ASSERT_EQ(1, CVidParamCea::GetVidParamFromVic(oRow.uiVic, &oTiming));
        ASSERT_EQ(1, CVidParamCea::GetVicFromVidParam(oTiming, uiVic));
        ASSERT_LE(uiVic, oRow.uiVic);
        CVidParamCea::SCeaVidParam oFound = CVidParamCea::msc_aoCea861FTable[CVidParamCea::GetVicTableIndex(uiVic)];
        oFound.uiVic = oRow.uiVic;
        EXPECT_EQ(0, memcmp(&oFound, &oRow, sizeof(oRow)));
    }
}

TEST(VicLookUp, CodeOfATimingIsThatOfTheFirstTwin)
{
    ExpectCodeOfEachTimingIsItsOwnOrThatOfATwin<CVidParamTimingGeneric>();
    ExpectCodeOfEachTimingIsItsOwnOrThatOfATwin<CRVidParamTiming>();
    unsigned int uiVic = 0;
    CVidParamTimingGeneric oTiming;
    CVidParamCea::GetVidParamFromVic(3, &oTiming);
    EXPECT_EQ(1, CVidParamCea::GetVicFromVidParam(oTiming, uiVic));
    EXPECT_EQ(2U, uiVic);
}

TEST(VicLookUp, CodeNeedsEveryValueAndTheEffectiveClock)
{
    const SChange aoOtherChanges[] = {
        { "clock", [](CVidParamTiming& o) { o.SetPixelClockInKiloHz(148501); } },
        { "horizontal polarity", [](CVidParamTiming& o) { o.SetHorizontalPolarityPositive(0); } },
        { "vertical polarity", [](CVidParamTiming& o) { o.SetVerticalPolarityPositive(0); } },
        { "3D alone", [](CVidParamTiming& o) { o.Set3D(1); } },
    };
    std::vector<SChange> aoChanges(std::begin(gsc_aoGeometryChanges), std::end(gsc_aoGeometryChanges));
    aoChanges.insert(aoChanges.end(), std::begin(aoOtherChanges), std::end(aoOtherChanges));
    CVidParamTimingGeneric oTiming;
    unsigned int uiVic = 0;
    for (const SChange& oChange : aoChanges)
    {
        CVidParamCea::GetVidParamFromVic(16, &oTiming);
        oChange.m_fnApply(oTiming);
        uiVic = 99;
        EXPECT_EQ(0, CVidParamCea::GetVicFromVidParam(oTiming, uiVic)) << oChange.m_szName;
        EXPECT_EQ(0U, uiVic) << oChange.m_szName;
    }
    CVidParamCea::GetVidParamFromVic(16, &oTiming);
    oTiming.SetPixelClockInKiloHz(2 * 148500);
    oTiming.Set420ColorSpace(1);
    EXPECT_EQ(1, CVidParamCea::GetVicFromVidParam(oTiming, uiVic));
    EXPECT_EQ(16U, uiVic);
}

// ---- Conversion ----

TEST(Conversion, LineRateIsDerivedAndRoundedAgainByTheKiloHertzClass)
{
    // 1152x864 at 75: 108,000 kHz over 1600 is 67,500 Hz, and a half kilohertz goes up.
    CVidParamTimingGeneric oGeneric;
    CRVidParamTiming oOther;
    ASSERT_EQ(1, CVidParamDmt::GetVidParam(0, &oGeneric, 1152, 864, 75, CVidParamDmt::eModeListAll));
    ASSERT_EQ(1, CVidParamDmt::GetVidParam(0, &oOther, 1152, 864, 75, CVidParamDmt::eModeListAll));
    EXPECT_EQ(67500U, oGeneric.GetHorizontalRateInHz());
    EXPECT_EQ(68U, oOther.GetHorizontalRateInKiloHz());
}
}
