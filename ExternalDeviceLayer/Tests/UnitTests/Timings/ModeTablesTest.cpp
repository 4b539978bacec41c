// The three mode tables: every value, the search, and the ways between codes and timings.

#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "CapturedOutput.h"
#include "TimingTestHelp.h"
#include "VidParamCea.h"
#include "VidParamDmt.h"
#include "VidParamTimingFunc.h"

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

std::vector<CVidParamTimingGeneric> ReadTable(const STableCase& oTable)
{
    std::vector<CVidParamTimingGeneric> aoRows;
    CVidParamTimingGeneric oTiming;
    while (oTable.m_pfnSearch(static_cast<unsigned int>(aoRows.size()), &oTiming, 0, 0, 0) != 0)
    {
        aoRows.push_back(oTiming);
    }
    return aoRows;
}

// A multiplicative hash over the numbers of all rows: of a CEA-861 row the code; sizes, rate, clock, porches and syncs;
// the flags, with bit 7 for a reduced mode.
TEST(TableRows, HaveThePublishedValuesInTheirOrder)
{
    for (const STableCase& oTable : gsc_aoTables)
    {
        unsigned int uiDigest = 2166136261U;
        const auto Add = [&](unsigned int uiNumber) { uiDigest = (uiDigest ^ uiNumber) * 16777619U; };
        const std::vector<CVidParamTimingGeneric> aoRows = ReadTable(oTable);
        ASSERT_EQ(oTable.m_uiRows, aoRows.size()) << "type " << oTable.m_eType;
        for (size_t i = 0; i < aoRows.size(); ++i)
        {
            const CAllValues auiValues = ReadAll(aoRows[i]);
            if (oTable.m_eType == CVidParamTiming::eVidParamType_Cea)
            {
                Add(CVidParamCea::msc_aoCea861FTable[i].uiVic);
            }
            std::for_each(auiValues.begin(), auiValues.begin() + gsc_uiLineRateInKiloHz, Add);
            const bool bReduced = auiValues[gsc_uiSource] == CVidParamTiming::eVidParamType_DmtReducedBlanking;
            Add(auiValues[gsc_uiFlags] | (bReduced ? 128U : 0U));
            EXPECT_EQ(oTable.m_eType + (bReduced ? 1U : 0U), auiValues[gsc_uiSource]) << "row " << i;
            // Derived: the nearest hertz.
            const unsigned int uiTotal = auiValues[0] + auiValues[4] + auiValues[5] + auiValues[6];
            EXPECT_EQ((auiValues[gsc_uiClockInKiloHz] * 1000 + uiTotal / 2) / uiTotal,
                      aoRows[i].GetHorizontalRateInHz());
        }
        EXPECT_EQ(oTable.m_uiDigest, uiDigest) << "type " << oTable.m_eType;
    }
}

// Each row by each choice of its three filters, an open one being 0: of the rows that pass, the order of the table
// counts.
TEST(Search, NumbersTheRowsThatPassInTableOrder)
{
    for (const STableCase& oTable : gsc_aoTables)
    {
        const std::vector<CVidParamTimingGeneric> aoRows = ReadTable(oTable);
        for (unsigned int uiMask = 0; uiMask < 8; ++uiMask)
        {
            std::map<std::array<unsigned int, 3>, unsigned int> oCounts; // by filter: the rows so far
            for (const CVidParamTimingGeneric& oRow : aoRows)
            {
                const unsigned int uiWidth = (uiMask & 1) != 0 ? oRow.GetHorizontalActive() : 0;
                const unsigned int uiHeight = (uiMask & 2) != 0 ? oRow.GetVerticalActive() : 0;
                const unsigned int uiRate = (uiMask & 4) != 0 ? oRow.GetVerticalRateInHz() : 0;
                const unsigned int uiMatch = oCounts[{ uiWidth, uiHeight, uiRate }]++;
                CVidParamTimingGeneric oFound;
                ASSERT_EQ(1, oTable.m_pfnSearch(uiMatch, &oFound, uiWidth, uiHeight, uiRate));
                ASSERT_EQ(ReadAll(oRow), ReadAll(oFound)) << "type " << oTable.m_eType << ", mask " << uiMask;
            }
        }
    }
}

TEST(Search, KindsSplitTheTables)
{
    const unsigned int auiCea[] = { 0, 122, 7 };        // by scan: none, progressive, interlaced
    const unsigned int auiDmt[] = { 0, 88, 60, 28, 0 }; // by list: none, all, standard, reduced, none
    const auto IsInCea = [](unsigned int uiIndex, unsigned int uiScan) {
        return CVidParamCea::GetVidParam(uiIndex, nullptr, 0, 0, 0, static_cast<CVidParamCea::EScanType>(uiScan)) != 0;
    };
    const auto IsInDmt = [](unsigned int uiIndex, unsigned int uiList) {
        return CVidParamDmt::GetVidParam(uiIndex, nullptr, 0, 0, 0, CVidParamDmt::EModeListType{ uiList }) != 0;
    };
    for (unsigned int i = 0; i < 130; ++i)
    {
        for (unsigned int uiKind = 0; uiKind < 5; ++uiKind)
        {
            EXPECT_TRUE(uiKind > 2 || IsInCea(i, uiKind) == (i < auiCea[uiKind])) << i << ", scan " << uiKind;
            EXPECT_EQ(i < auiDmt[uiKind], IsInDmt(i, uiKind)) << i << ", list " << uiKind;
        }
    }
}

// Of the codes that share a timing the first one is found: 45 codes have a lower twin.
TEST(Codes, LeadToTheirTimingAndBackToTheFirstTwin)
{
    const std::vector<CVidParamTimingGeneric> aoRows = ReadTable(gsc_aoTables[0]);
    unsigned int uiTwins = 0;
    for (unsigned int i = 0; i < aoRows.size(); ++i)
    {
        const unsigned int uiVic = CVidParamCea::msc_aoCea861FTable[i].uiVic;
        CVidParamTimingGeneric oTiming;
        unsigned int uiFirst = 0;
        EXPECT_EQ(static_cast<int>(i), CVidParamCea::GetVicTableIndex(uiVic));
        EXPECT_EQ(1, CVidParamCea::GetVidParamFromVic(uiVic, &oTiming));
        EXPECT_EQ(ReadAll(aoRows[i]), ReadAll(oTiming));
        EXPECT_EQ(1, CVidParamCea::GetVicFromVidParam(oTiming, uiFirst));
        uiTwins += uiFirst < uiVic ? 1U : 0U;
    }
    EXPECT_EQ(45U, uiTwins);
    unsigned int uiKnown = 0;
    for (unsigned int uiVic = 0; uiVic <= 2000; ++uiVic)
    {
        uiKnown += CVidParamCea::IsVicSupported(uiVic) != 0 ? 1U : 0U;
    }
    EXPECT_EQ(129U, uiKnown);
    CCapturedOutput oOutput;
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(0, CVidParamCea::GetVidParamFromVic(6, &oTiming));
    EXPECT_EQ(0, CVidParamCea::GetVidParamFromVic(1, nullptr));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount()) << "an unknown code is no mistake, the null is";
}
}
