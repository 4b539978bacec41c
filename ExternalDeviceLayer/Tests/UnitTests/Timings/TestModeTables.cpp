// The three mode tables: every value, the order of matches, and the ways between codes and timings.

#include <gtest/gtest.h>

#include <string.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "CapturedOutput.h"
#include "SharedFiles.h"
#include "TimingTestHelp.h"
#include "VidParamCea.h"
#include "VidParamDmt.h"
#include "VidParamSmpte.h"

namespace
{
using Row = std::vector<unsigned int>;

// A row as its numbers, in the order of the columns.
Row NumbersOf(const SAllValues& oValues, unsigned int uiFlags)
{
    const auto& auiH = oValues.m_auiHorizontal;
    const auto& auiV = oValues.m_auiVertical;
    return { oValues.m_uiHorizontalActive,
             oValues.m_uiVerticalActive,
             oValues.m_uiVerticalRateInHz,
             oValues.m_uiPixelClockInKiloHz,
             auiH[0],
             auiH[1],
             auiH[2],
             auiV[0],
             auiV[1],
             auiV[2],
             uiFlags };
}

std::vector<Row> WalkCea()
{
    std::vector<Row> aoRows;
    CRVidParamTiming oTiming;
    for (unsigned int i = 0; CVidParamCea::GetVidParam(i, &oTiming, 0, 0, 0, CVidParamCea::eScanTypeAny) != 0; ++i)
    {
        EXPECT_EQ(CVidParamTiming::eVidParamType_Cea, oTiming.GetVideoFamilyType());
        const SAllValues oValues = ReadAll(oTiming);
        Row oRow = NumbersOf(oValues, oValues.m_uiFlags);
        oRow.insert(oRow.begin(), CVidParamCea::msc_aoCea861FTable[i].uiVic);
        aoRows.push_back(oRow);
    }
    return aoRows;
}

std::vector<Row> WalkDmt()
{
    std::vector<Row> aoRows;
    CRVidParamTiming oTiming;
    for (unsigned int i = 0; CVidParamDmt::GetVidParam(i, &oTiming, 0, 0, 0, CVidParamDmt::eModeListAll) != 0; ++i)
    {
        const SAllValues oValues = ReadAll(oTiming);
        const bool bReduced = oValues.m_eType == CVidParamTiming::eVidParamType_DmtReducedBlanking;
        EXPECT_TRUE(bReduced || oValues.m_eType == CVidParamTiming::eVidParamType_Dmt);
        aoRows.push_back(NumbersOf(oValues, oValues.m_uiFlags | (bReduced ? 128U : 0U)));
    }
    return aoRows;
}

std::vector<Row> WalkSmpte()
{
    std::vector<Row> aoRows;
    CRVidParamTiming oTiming;
    for (unsigned int i = 0; CVidParamSmpte::GetVidParam(i, &oTiming, 0, 0, 0) != 0; ++i)
    {
        EXPECT_EQ(CVidParamTiming::eVidParamType_Smpte, oTiming.GetVideoFamilyType());
        const SAllValues oValues = ReadAll(oTiming);
        aoRows.push_back(NumbersOf(oValues, oValues.m_uiFlags));
    }
    return aoRows;
}

// A multiplicative hash over the numbers of all rows, word by word.
unsigned int ChecksumOf(const std::vector<Row>& aoRows)
{
    unsigned int uiHash = 2166136261U;
    for (const Row& oRow : aoRows)
    {
        for (const unsigned int uiNumber : oRow)
        {
            uiHash = (uiHash ^ uiNumber) * 16777619U;
        }
    }
    return uiHash;
}

std::vector<Row> ReadCsv(const std::filesystem::path& oPath)
{
    std::vector<Row> aoRows;
    std::ifstream oFile(oPath);
    std::string sLine;
    std::getline(oFile, sLine); // column heads
    while (std::getline(oFile, sLine))
    {
        Row oRow;
        std::istringstream oLine(sLine);
        for (std::string sField; std::getline(oLine, sField, ',');)
        {
            oRow.push_back(static_cast<unsigned int>(std::stoul(sField)));
        }
        aoRows.push_back(oRow);
    }
    return aoRows;
}

// ---- Every value ----

struct STableCase
{
    const char* m_szName;
    const char* m_szReference; // null where there is none
    size_t m_uiRows;
    unsigned int m_uiChecksum; // worked by another program, from the reference where there is one
    std::vector<Row> (*m_fnWalk)();
};

const STableCase gsc_aoTables[] = {
    { "Cea", "reference/cta861.csv", 129, 0x2B2971D8, WalkCea },
    { "Dmt", "reference/dmt.csv", 88, 0x618CADE7, WalkDmt },
    { "Smpte", nullptr, 10, 0xD7CE9F66, WalkSmpte },
};

class TableRows : public testing::TestWithParam<STableCase>
{
};

TEST_P(TableRows, ChecksumOverAllRows)
{
    const std::vector<Row> aoRows = GetParam().m_fnWalk();
    EXPECT_EQ(GetParam().m_uiRows, aoRows.size());
    EXPECT_EQ(GetParam().m_uiChecksum, ChecksumOf(aoRows));
}

class ReferenceRows : public TableRows
{
};

TEST_P(ReferenceRows, EqualTheReference)
{
    const std::filesystem::path oPath = GetSharedPath(GetParam().m_szReference);
    if (!std::filesystem::exists(oPath))
    {
        GTEST_SKIP() << "the folder with reference tables is absent";
    }
    const std::vector<Row> aoExpected = ReadCsv(oPath);
    const std::vector<Row> aoRows = GetParam().m_fnWalk();
    ASSERT_EQ(aoExpected.size(), aoRows.size());
    for (size_t i = 0; i < aoRows.size(); ++i)
    {
        EXPECT_EQ(aoExpected[i], aoRows[i]) << "row " << i;
    }
}

// The rates and line rates of the rows are those that their clocks give.
TEST_P(TableRows, RateIsTheOneThatTheClockGives)
{
    for (Row oRow : GetParam().m_fnWalk())
    {
        const bool bKeyed = oRow.size() == 12;
        const unsigned int uiVic = bKeyed ? oRow[0] : 0;
        oRow.erase(oRow.begin(), oRow.begin() + (bKeyed ? 1 : 0));
        const unsigned int uiHorizontalTotal = oRow[0] + oRow[4] + oRow[5] + oRow[6];
        const unsigned int uiBlanking = oRow[7] + oRow[8] + oRow[9];
        const unsigned int uiVerticalTotal = (oRow[10] & 1) != 0 ? oRow[1] + 2 * uiBlanking + 1 : oRow[1] + uiBlanking;
        const double dRate = oRow[3] * 1000.0 / uiHorizontalTotal / uiVerticalTotal;
        EXPECT_NEAR(oRow[2], dRate, 1.05) << "key " << uiVic << ": " << oRow[0] << "x" << oRow[1];
    }
}

std::string NameOf(const testing::TestParamInfo<STableCase>& oInfo) { return oInfo.param.m_szName; }

INSTANTIATE_TEST_SUITE_P(Cases, TableRows, testing::ValuesIn(gsc_aoTables), NameOf);
INSTANTIATE_TEST_SUITE_P(Cases, ReferenceRows, testing::Values(gsc_aoTables[0], gsc_aoTables[1]), NameOf);

TEST(CeaTable, VariantsFollowTheirBaseRows)
{
    unsigned int uiVariants = 0;
    for (unsigned int i = 0; i < CVidParamCea::msc_uiCea861FRowCount; ++i)
    {
        CVidParamCea::SCeaVidParam oExpected = CVidParamCea::msc_aoCea861FTable[i];
        if (oExpected.uiVic > 1000)
        {
            continue;
        }
        const unsigned int uiRate = oExpected.uiVerticalRateInHz;
        const bool bHasVariant = uiRate == 24 || uiRate == 30 || uiRate == 60 || uiRate == 120 || uiRate == 240;
        const int iVariant = CVidParamCea::GetVicTableIndex(oExpected.uiVic + 1000);
        ASSERT_EQ(bHasVariant, iVariant >= 0) << oExpected.uiVic;
        if (!bHasVariant)
        {
            continue;
        }
        ++uiVariants;
        oExpected.uiVic += 1000;
        --oExpected.uiVerticalRateInHz;
        oExpected.uiPixelClockInKiloHz = oExpected.uiVic == 1001 ? 25175
                                         : oExpected.uiVic == 1014 || oExpected.uiVic == 1015
                                             ? 53946
                                             : oExpected.uiPixelClockInKiloHz * 1000 / 1001;
        EXPECT_EQ(0, memcmp(&oExpected, &CVidParamCea::msc_aoCea861FTable[iVariant], sizeof(oExpected)))
            << oExpected.uiVic;
    }
    EXPECT_EQ(46U, uiVariants);
}

// ---- Search ----

// Codes in the order in which a search finds them.
std::vector<unsigned int> FindVics(unsigned int uiHorizontal, unsigned int uiVertical, unsigned int uiRate,
                                   CVidParamCea::EScanType eScanType)
{
    std::vector<unsigned int> auiVics;
    for (const CVidParamCea::SCeaVidParam& oRow : CVidParamCea::msc_aoCea861FTable)
    {
        // The row that the search converts next is recognised by its values; twins count as the same.
        CRVidParamTiming oFound;
        const unsigned int uiIndex = static_cast<unsigned int>(auiVics.size());
        if (CVidParamCea::GetVidParam(uiIndex, &oFound, uiHorizontal, uiVertical, uiRate, eScanType) == 0)
        {
            break;
        }
        CRVidParamTiming oTiming;
        CVidParamCea::ConvertVidParam(oRow, oTiming);
        if (ReadAll(oTiming) == ReadAll(oFound))
        {
            auiVics.push_back(oRow.uiVic);
        }
    }
    EXPECT_EQ(0, CVidParamCea::GetVidParam(static_cast<unsigned int>(auiVics.size()), nullptr, uiHorizontal, uiVertical,
                                           uiRate, eScanType))
        << "a match that is no row, or out of order";
    return auiVics;
}

TEST(Search, TiesGoByTableOrderAlone)
{
    const auto eAny = CVidParamCea::eScanTypeAny;
    using Vics = std::vector<unsigned int>;
    EXPECT_EQ((Vics{ 5, 34, 74 }), FindVics(1920, 1080, 30, eAny)) << "interlaced first";
    EXPECT_EQ((Vics{ 16, 46, 76 }), FindVics(1920, 1080, 60, eAny));
    EXPECT_EQ((Vics{ 20, 33, 39, 73 }), FindVics(1920, 1080, 25, eAny));
    EXPECT_EQ((Vics{ 2, 3 }), FindVics(720, 480, 60, eAny));
    EXPECT_EQ((Vics{ 34, 74 }), FindVics(1920, 1080, 30, CVidParamCea::eScanTypeProgressive));
    EXPECT_EQ((Vics{ 46 }), FindVics(1920, 1080, 60, CVidParamCea::eScanTypeInterlaced));
    EXPECT_EQ((Vics{ 5, 20, 39, 40, 46, 1005, 1046 }), FindVics(0, 0, 0, CVidParamCea::eScanTypeInterlaced));
    EXPECT_EQ((Vics{ 1, 1001 }), FindVics(640, 0, 0, eAny)) << "a filter of 0 passes every row";
}

TEST(Search, DmtListsSplitTheTable)
{
    const auto fnCount = [](unsigned int uiList) {
        unsigned int uiCount = 0;
        while (CVidParamDmt::GetVidParam(uiCount, nullptr, 0, 0, 0, static_cast<CVidParamDmt::EModeListType>(uiList)) !=
               0)
        {
            ++uiCount;
        }
        return uiCount;
    };
    EXPECT_EQ(88U, fnCount(CVidParamDmt::eModeListAll));
    EXPECT_EQ(60U, fnCount(CVidParamDmt::eModeListStandard));
    EXPECT_EQ(28U, fnCount(CVidParamDmt::eModeListReducedBlanking));
    EXPECT_EQ(0U, fnCount(0));
    EXPECT_EQ(0U, fnCount(4));
}

struct SDmtTieCase
{
    unsigned int m_uiWidth;
    unsigned int m_uiHeight;
    unsigned int m_uiFirstClock;  // match 0 of the whole table, kHz
    unsigned int m_uiSecondClock; // match 1
};

TEST(Search, DmtTwinsStandReducedFirstButForOne)
{
    const SDmtTieCase aoCases[] = {
        { 1280, 768, 68250, 79500 },    { 1280, 800, 71000, 83500 },    { 1400, 1050, 101000, 121750 },
        { 1440, 900, 88750, 106500 },   { 1680, 1050, 119000, 146250 }, { 1920, 1200, 154000, 193250 },
        { 2560, 1600, 268500, 348500 }, { 1366, 768, 85500, 72000 }, // standard first
    };
    const auto fnClock = [](unsigned int uiIndex, const SDmtTieCase& oCase, CVidParamDmt::EModeListType eList) {
        CRVidParamTiming oTiming;
        EXPECT_EQ(1, CVidParamDmt::GetVidParam(uiIndex, &oTiming, oCase.m_uiWidth, oCase.m_uiHeight, 60, eList));
        return oTiming.GetPixelClockInKiloHz();
    };
    for (const SDmtTieCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_uiWidth);
        const unsigned int uiHigh = std::max(oCase.m_uiFirstClock, oCase.m_uiSecondClock);
        const unsigned int uiLow = std::min(oCase.m_uiFirstClock, oCase.m_uiSecondClock);
        EXPECT_EQ(oCase.m_uiFirstClock, fnClock(0, oCase, CVidParamDmt::eModeListAll));
        EXPECT_EQ(oCase.m_uiSecondClock, fnClock(1, oCase, CVidParamDmt::eModeListAll));
        EXPECT_EQ(uiHigh, fnClock(0, oCase, CVidParamDmt::eModeListStandard));
        EXPECT_EQ(uiLow, fnClock(0, oCase, CVidParamDmt::eModeListReducedBlanking));
        EXPECT_EQ(0, CVidParamDmt::GetVidParam(2, nullptr, oCase.m_uiWidth, oCase.m_uiHeight, 60,
                                               CVidParamDmt::eModeListAll));
    }
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

TEST(VicLookUp, KnowsExactlyTheCodesOfTheTable)
{
    // First and last of each run of keys, in table order.
    const std::pair<unsigned int, unsigned int> aoRuns[] = {
        { 1, 5 },       { 14, 20 },     { 29, 43 },     { 46, 49 },     { 52, 53 },     { 56, 57 },     { 60, 107 },
        { 1001, 1005 }, { 1014, 1016 }, { 1032, 1032 }, { 1034, 1036 }, { 1046, 1049 }, { 1056, 1057 }, { 1060, 1060 },
        { 1062, 1063 }, { 1065, 1065 }, { 1067, 1067 }, { 1069, 1069 }, { 1071, 1072 }, { 1074, 1074 }, { 1076, 1076 },
        { 1078, 1079 }, { 1081, 1081 }, { 1083, 1083 }, { 1085, 1086 }, { 1088, 1088 }, { 1090, 1090 }, { 1092, 1093 },
        { 1095, 1095 }, { 1097, 1098 }, { 1100, 1100 }, { 1102, 1103 }, { 1105, 1105 }, { 1107, 1107 },
    };
    int iRow = 0;
    unsigned int uiVic = 0;
    for (const auto& [uiFirst, uiLast] : aoRuns)
    {
        for (; uiVic <= uiLast; ++uiVic)
        {
            const bool bFound = uiVic >= uiFirst;
            EXPECT_EQ(bFound ? iRow++ : -1, CVidParamCea::GetVicTableIndex(uiVic)) << uiVic;
            EXPECT_EQ(bFound ? 1 : 0, CVidParamCea::IsVicSupported(uiVic)) << uiVic;
        }
    }
    EXPECT_EQ(129, iRow);
    EXPECT_EQ(0, CVidParamCea::GetVicTableIndex(1));
    EXPECT_EQ(82, CVidParamCea::GetVicTableIndex(107));
    EXPECT_EQ(83, CVidParamCea::GetVicTableIndex(1001));
    EXPECT_EQ(128, CVidParamCea::GetVicTableIndex(1107));
    for (const unsigned int uiAbsent : { 0U, 6U, 44U, 108U, 1006U, 1107U + 1, 0xFFFFFFFFU })
    {
        EXPECT_EQ(-1, CVidParamCea::GetVicTableIndex(uiAbsent)) << uiAbsent;
    }
}

TEST(VicLookUp, UnknownCodeClearsAndNullIsReported)
{
    CVidParamTimingGeneric oTiming(gsc_o720p);
    CCapturedOutput oOutput;
    EXPECT_EQ(0, CVidParamCea::GetVidParamFromVic(6, &oTiming));
    EXPECT_EQ(SAllValues{}, ReadAll(oTiming));
    EXPECT_EQ(0, CVidParamCea::GetVidParamFromVic(1, nullptr));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount()) << "the unknown code is no mistake, the null is";
}

TEST(VicLookUp, CodeOfATimingIsThatOfTheFirstTwin)
{
    for (unsigned int i = 0; i < CVidParamCea::msc_uiCea861FRowCount; ++i)
    {
        const CVidParamCea::SCeaVidParam& oRow = CVidParamCea::msc_aoCea861FTable[i];
        unsigned int uiExpected = 0;
        for (unsigned int j = 0; j <= i && uiExpected == 0; ++j)
        {
            CVidParamCea::SCeaVidParam oTwin = CVidParamCea::msc_aoCea861FTable[j];
            oTwin.uiVic = oRow.uiVic;
            uiExpected = memcmp(&oTwin, &oRow, sizeof(oRow)) == 0 ? CVidParamCea::msc_aoCea861FTable[j].uiVic : 0;
        }
        for (const bool bGeneric : { true, false })
        {
            CVidParamTimingGeneric oGeneric;
            CRVidParamTiming oOther;
            CVidParamTiming& oTiming = bGeneric ? static_cast<CVidParamTiming&>(oGeneric) : oOther;
            ASSERT_EQ(1, CVidParamCea::GetVidParamFromVic(oRow.uiVic, &oTiming));
            unsigned int uiVic = 12345;
            EXPECT_EQ(1, CVidParamCea::GetVicFromVidParam(oTiming, uiVic));
            EXPECT_EQ(uiExpected, uiVic) << "of the timing of " << oRow.uiVic;
        }
    }
    unsigned int uiVic = 0;
    CVidParamTimingGeneric oTiming;
    CVidParamCea::GetVidParamFromVic(3, &oTiming);
    EXPECT_EQ(1, CVidParamCea::GetVicFromVidParam(oTiming, uiVic));
    EXPECT_EQ(2U, uiVic);
}

TEST(VicLookUp, CodeNeedsEveryValueAndTheEffectiveClock)
{
    const std::pair<const char*, void (*)(CVidParamTiming&)> aoChanges[] = {
        { "width", [](CVidParamTiming& o) { o.SetHorizontalActive(1919); } },
        { "height", [](CVidParamTiming& o) { o.SetVerticalActive(1081); } },
        { "rate", [](CVidParamTiming& o) { o.SetVerticalRateInHz(61); } },
        { "clock", [](CVidParamTiming& o) { o.SetPixelClockInKiloHz(148501); } },
        { "horizontal front", [](CVidParamTiming& o) { o.SetHorizontalFrontPorch(89); } },
        { "horizontal sync", [](CVidParamTiming& o) { o.SetHorizontalSync(45); } },
        { "horizontal back", [](CVidParamTiming& o) { o.SetHorizontalBackPorch(149); } },
        { "vertical front", [](CVidParamTiming& o) { o.SetVerticalFrontPorch(3); } },
        { "vertical sync", [](CVidParamTiming& o) { o.SetVerticalSync(6); } },
        { "vertical back", [](CVidParamTiming& o) { o.SetVerticalBackPorch(37); } },
        { "horizontal polarity", [](CVidParamTiming& o) { o.SetHorizontalPolarityPositive(0); } },
        { "vertical polarity", [](CVidParamTiming& o) { o.SetVerticalPolarityPositive(0); } },
        { "scan", [](CVidParamTiming& o) { o.SetInterlaced(1); } },
        { "3D alone", [](CVidParamTiming& o) { o.Set3D(1); } },
    };
    CVidParamTimingGeneric oTiming;
    unsigned int uiVic = 0;
    for (const auto& [pszName, fnChange] : aoChanges)
    {
        CVidParamCea::GetVidParamFromVic(16, &oTiming);
        fnChange(oTiming);
        uiVic = 99;
        EXPECT_EQ(0, CVidParamCea::GetVicFromVidParam(oTiming, uiVic)) << pszName;
        EXPECT_EQ(0U, uiVic) << pszName;
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
    EXPECT_EQ(67U, oGeneric.GetHorizontalRateInKiloHz());
    EXPECT_EQ(68U, oOther.GetHorizontalRateInKiloHz());
}

TEST(Conversion, Leaves420And3DToWhatClearingDoes)
{
    CVidParamTimingGeneric oGeneric;
    CRVidParamTiming oOther;
    for (CVidParamTiming* poTiming : std::initializer_list<CVidParamTiming*>{ &oGeneric, &oOther })
    {
        poTiming->Set420ColorSpace(1);
        poTiming->Set3D(1);
        ASSERT_EQ(1, CVidParamSmpte::GetVidParam(0, poTiming, 0, 0, 0));
    }
    EXPECT_EQ(0, oGeneric.Is420ColorSpace() | oGeneric.Is3D());
    EXPECT_EQ(1, oOther.Is420ColorSpace() & oOther.Is3D());
}
}
