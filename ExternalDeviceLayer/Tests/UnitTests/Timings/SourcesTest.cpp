// Where timings come from: every value of the mode tables, their search, codes, the front door, and the formulas.

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "NumbersCheck.h"
#include "RecordingTiming.h"
#include "VidParamCea.h"
#include "VidParamDmt.h"

namespace
{
using EType = CVidParamTiming::EVidParamType;

struct STableCase
{
    EType m_eType;
    size_t m_uiRows;
    unsigned int m_uiDigest;
    int (*m_pfnSearch)(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                       unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz);
};

// Rows and digests were worked by another program from the published tables.
const STableCase gsc_aoTables[] = {
    { CVidParamTiming::eVidParamType_Cea, 129, 0x2B2971D8, CVidParamTimingFunc::GetCeaTiming },
    { CVidParamTiming::eVidParamType_Dmt, 88, 0x618CADE7, CVidParamTimingFunc::GetDmtTiming },
    { CVidParamTiming::eVidParamType_Smpte, 10, 0xD7CE9F66, CVidParamTimingFunc::GetSmpteTiming },
};

std::vector<CAllValues> ReadTable(const STableCase& oTable)
{
    std::vector<CAllValues> aauiRows;
    CVidParamTimingGeneric oTiming;
    while (oTable.m_pfnSearch(static_cast<unsigned int>(aauiRows.size()), &oTiming, 0, 0, 0) != 0)
    {
        EXPECT_EQ(oTiming.ComputeHorizontalRateInHz(), oTiming.GetHorizontalRateInHz()) << "derived";
        aauiRows.push_back(ReadAll(oTiming));
    }
    return aauiRows;
}

// A multiplicative hash over the numbers of all rows: of a CTA-861 row the code; sizes, rate, clock, porches and syncs;
// the flags, with bit 7 for a reduced mode.
TEST(TableRows, HaveThePublishedValuesInTheirOrder)
{
    for (const STableCase& oTable : gsc_aoTables)
    {
        unsigned int uiDigest = 2166136261U;
        const auto Add = [&](unsigned int uiNumber) { uiDigest = (uiDigest ^ uiNumber) * 16777619U; };
        const std::vector<CAllValues> aauiRows = ReadTable(oTable);
        ASSERT_EQ(oTable.m_uiRows, aauiRows.size()) << "type " << oTable.m_eType;
        for (size_t i = 0; i < aauiRows.size(); ++i)
        {
            if (oTable.m_eType == CVidParamTiming::eVidParamType_Cea)
            {
                Add(CVidParamCea::msc_aoCea861FTable[i].uiVic);
            }
            std::for_each(aauiRows[i].begin(), aauiRows[i].begin() + gsc_uiLineRateInKiloHz, Add);
            const bool bReduced = aauiRows[i][gsc_uiSource] == CVidParamTiming::eVidParamType_DmtReducedBlanking;
            Add(aauiRows[i][gsc_uiFlags] | (bReduced ? 128U : 0U));
            EXPECT_EQ(oTable.m_eType + (bReduced ? 1U : 0U), aauiRows[i][gsc_uiSource]) << "row " << i;
        }
        EXPECT_EQ(oTable.m_uiDigest, uiDigest) << "type " << oTable.m_eType;
    }
}

// Each row by each choice of its three filters, width, height and rate, an open one being 0: of the rows that pass, the
// order of the table counts.
TEST(Search, NumbersTheRowsThatPassInTableOrder)
{
    for (const STableCase& oTable : gsc_aoTables)
    {
        const std::vector<CAllValues> aauiRows = ReadTable(oTable);
        for (unsigned int uiMask = 0; uiMask < 8; ++uiMask)
        {
            std::map<std::array<unsigned int, 3>, unsigned int> oCounts; // by filter: the rows so far
            for (const CAllValues& auiRow : aauiRows)
            {
                const std::array<unsigned int, 3> auiFilter = { auiRow[0] * (uiMask & 1), auiRow[1] * (uiMask >> 1 & 1),
                                                                auiRow[2] * (uiMask >> 2) };
                const unsigned int uiMatch = oCounts[auiFilter]++;
                CVidParamTimingGeneric oFound;
                ASSERT_EQ(1, oTable.m_pfnSearch(uiMatch, &oFound, auiFilter[0], auiFilter[1], auiFilter[2]));
                ASSERT_EQ(auiRow, ReadAll(oFound)) << "type " << oTable.m_eType << ", mask " << uiMask;
            }
        }
    }
}

TEST(Search, KindsSplitTheTables)
{
    const unsigned int auiCea[] = { 0, 122, 7 };        // by scan: none, progressive, interlaced
    const unsigned int auiDmt[] = { 0, 88, 60, 28, 0 }; // by list: none, all, standard, reduced, none
    for (unsigned int i = 0; i < 130; ++i)
    {
        for (unsigned int j = 0; j < std::size(auiCea); ++j)
        {
            const auto eScan = static_cast<CVidParamCea::EScanType>(j);
            EXPECT_EQ(i < auiCea[j] ? 1 : 0, CVidParamCea::GetVidParam(i, nullptr, 0, 0, 0, eScan)) << i << " of " << j;
        }
        for (unsigned int j = 0; j < std::size(auiDmt); ++j)
        {
            const auto eList = CVidParamDmt::EModeListType{ j };
            EXPECT_EQ(i < auiDmt[j] ? 1 : 0, CVidParamDmt::GetVidParam(i, nullptr, 0, 0, 0, eList)) << i << " of " << j;
        }
    }
}

// Of the codes that share a timing the first one is found: 45 codes have a lower twin.
TEST(Codes, LeadToTheirTimingAndBackToTheFirstTwin)
{
    const std::vector<CAllValues> aauiRows = ReadTable(gsc_aoTables[0]);
    size_t uiKnown = 0;
    unsigned int uiTwins = 0;
    CCapturedOutput oOutput; // an unknown code is not a mistake, the null is
    EXPECT_EQ(0, CVidParamCea::GetVidParamFromVic(1, nullptr));
    for (unsigned int uiVic = 0; uiVic <= 2000; ++uiVic)
    {
        const bool bKnown = uiKnown < aauiRows.size() && CVidParamCea::msc_aoCea861FTable[uiKnown].uiVic == uiVic;
        CVidParamTimingGeneric oTiming(gsc_oMarked);
        EXPECT_EQ(bKnown ? static_cast<int>(uiKnown) : -1, CVidParamCea::GetVicTableIndex(uiVic));
        EXPECT_EQ(bKnown ? 1 : 0, CVidParamCea::IsVicSupported(uiVic));
        EXPECT_EQ(bKnown ? 1 : 0, CVidParamCea::GetVidParamFromVic(uiVic, &oTiming));
        EXPECT_EQ(bKnown ? aauiRows[uiKnown] : gsc_auiCleared, ReadAll(oTiming)) << uiVic;
        if (bKnown)
        {
            unsigned int uiFirst = 0;
            EXPECT_EQ(1, CVidParamCea::GetVicFromVidParam(oTiming, uiFirst));
            EXPECT_EQ(aauiRows[uiKnown], aauiRows.at(static_cast<size_t>(CVidParamCea::GetVicTableIndex(uiFirst))));
            uiTwins += uiFirst < uiVic ? 1U : 0U;
            ++uiKnown;
        }
    }
    EXPECT_EQ(129U, uiKnown);
    EXPECT_EQ(45U, uiTwins);
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
}

TEST(FrontDoor, EachTypeAsksItsOwnSource)
{
    std::map<unsigned int, CCallNames> oOrders; // by source
    for (const SCaseRow& oRow : ReadCases("Timings/golden/orders.txt", 3))
    {
        for (const unsigned int uiSource : oRow.GetNumbers(1))
        {
            oOrders[uiSource] = oRow.GetWords(2);
        }
    }
    for (const SCaseRow& oRow : ReadCases("Timings/golden/worked.txt", 3))
    {
        SCOPED_TRACE(oRow.GetName());
        const CAllValues auiRow = oRow.GetNumbers(2);
        const EType eType = static_cast<EType>(auiRow.back());
        const bool bRefused = auiRow.size() < gsc_auiCleared.size();
        CVidParamTimingGeneric oTiming(gsc_oMarked); // its old values are cleared, or stay
        CRecordingTiming oRecording;
        for (CVidParamTiming* poTiming : std::initializer_list<CVidParamTiming*>{ &oTiming, &oRecording })
        {
            CCapturedOutput oOutput;
            EXPECT_EQ(bRefused ? 0 : 1,
                      CVidParamTimingFunc::GetTiming(auiRow[0], auiRow[1], oRow.GetNumber(1), eType, *poTiming));
            EXPECT_EQ(bRefused ? 1U : 0U, oOutput.TakeAssertionCount());
        }
        EXPECT_EQ(bRefused ? ReadAll(CVidParamTimingGeneric(gsc_oMarked)) : auiRow, ReadAll(oTiming));
        EXPECT_EQ(bRefused ? gsc_oMarked.uiFlags : auiRow[gsc_uiFlags], oTiming.GetData().uiFlags);
        EXPECT_EQ(bRefused ? CCallNames() : oOrders[eType], oRecording.m_asCalls);
    }
}

// The check of NumbersCheck.h over sizes and rates that reach both ends of the range, with random numbers beside them.
TEST(Numbers, AgreeWithTheSecondComputations)
{
    // Small sizes, real ones, and those that make a sum or 4, 5, 15 or 16 times a height wrap.
    const std::vector<unsigned int> auiSizes = { 0,          1,          3,          4,          7,          8,
                                                 9,          144,        176,        480,        640,        768,
                                                 1024,       1280,       1360,       1366,       1920,       16384,
                                                 65535,      65536,      0x15555556, 0x40000000, 0x55555550, 0x7FFFFFFF,
                                                 0x80000000, 0xFFFFFFF4, 0xFFFFFFFD, 0xFFFFFFFF };
    const std::vector<unsigned int> auiRates = { 0,   1,    20,   24,   30,   50,   60,     75,         120,
                                                 240, 1000, 1818, 1819, 2173, 2174, 100000, 0x7FFFFFFF, 0xFFFFFFFF };
    std::mt19937 oRandom(20240229);
    const auto AnyMagnitude = [&] { return static_cast<unsigned int>(oRandom()) >> oRandom() % 32; };
    for (size_t i = 0; i < auiSizes.size() * auiSizes.size() * auiRates.size(); ++i)
    {
        CNumbers aui;
        std::generate(aui.begin(), aui.end(), AnyMagnitude);
        ASSERT_STREQ(nullptr, CNumbersCheck().Run(aui)) << testing::PrintToString(aui);
        aui[0] = auiSizes[i % auiSizes.size()];
        aui[1] = auiSizes[i / auiSizes.size() % auiSizes.size()];
        aui[2] = auiRates[i / auiSizes.size() / auiSizes.size()];
        ASSERT_STREQ(nullptr, CNumbersCheck().Run(aui)) << testing::PrintToString(aui);
    }
}
} // namespace
