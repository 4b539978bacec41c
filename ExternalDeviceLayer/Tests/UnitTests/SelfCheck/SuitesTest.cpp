// That the suites of the self-check look at the library's answers. They are built here against FaultyLibrary.h and run
// again and again with another part of an answer wrong: each run must give 0 and write an assertion line. A check that
// is taken out of a suite shows as a fault that goes unseen, or in the number of parts. And what the run prints.

#include <map>

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "CEdidTestSuites.h"

namespace
{
constexpr STimingData gsc_aoAsusDetailed[] = { CeaRow(1920, 1080, 60, 16), CeaRow(720, 480, 60, 3),
                                               CeaRow(1280, 720, 60, 4), CeaRow(1280, 720, 50, 19),
                                               CeaRow(720, 576, 50, 18) };

// One more suite: each validator once. The forms over table rows are called by no other one.
int Test_Validators()
{
    CEdid oEdid;
    const SBaseDetailedData oBaseDetailed = GetBaseDetailedData();
    MTEST_STEP(LoadCopy(oEdid, *oBaseDetailed.m_paui8Image));
    MTEST_STEP(ValidateBaseDetailed(oEdid, 2, oBaseDetailed.m_aaoTiming[0].data()));
    const SExtDetailedData oDetailed = GetExtDetailedData();
    MTEST_STEP(LoadCopy(oEdid, *oDetailed.m_apaui8Image[0]));
    MTEST_STEP(ValidateDetailed(oEdid, 4, oDetailed.m_aaoTiming[0].data()));
    const SBaseStandardData oBaseStandard = GetBaseStandardData();
    MTEST_STEP(LoadCopy(oEdid, *oBaseStandard.m_paui8StandardImage));
    MTEST_STEP(ValidateBaseStandard(oEdid, 4, oBaseStandard.m_aaoTiming[0].data()));
    const SExtStandardData oStandard = GetExtStandardData();
    MTEST_STEP(LoadCopy(oEdid, *oStandard.m_apaui8Image[0]));
    MTEST_STEP(ValidateStandard(oEdid, 14, oStandard.m_aaoTiming[0].data()));
    MTEST_STEP(LoadCopy(oEdid, *GetAsusHdData().m_paui8Image));
    MTEST_STEP(ValidateBaseDetailed(oEdid, 1, gsc_aoAsusDetailed));
    MTEST_STEP(ValidateDetailed(oEdid, 5, gsc_aoAsusDetailed));
    MTEST_STEP(ValidateStandard(CEdid{}, 0, nullptr)); // no table for a count of 0
    MTEST_STEP(CompareRawData(CEdid{}, 0, nullptr) == 0);

    // The result says that the type of the row is known, not that a timing was found.
    CVidParamTimingGeneric oTiming;
    MTEST_STEP(GetVidParam(CeaRow(1, 2, 3, 1016), oTiming) && oTiming.GetHorizontalActive() == 1920); // by the code
    MTEST_STEP(GetVidParam(CeaRow(720, 480, 60, 0), oTiming) && oTiming.GetHorizontalActive() == 720);
    MTEST_STEP(GetVidParam(DmtRow(1281, 1024, 75), oTiming) && GetVidParam(GtfRow(0, 0, 60), oTiming));
    MTEST_STEP(GetVidParam({ CVidParamTiming::eVidParamType_DmtReducedBlanking, 1, 1, 60, {}, 0 }, oTiming) == 0);
    MTEST_STEP(oTiming.GetHorizontalActive() == 720);
    return 1;
}
} // namespace

TEST(Suites, SeeEachWrongAnswer)
{
    std::map<std::string, int (*)()> apfnRun = { { "Validators", Test_Validators } };
    for (const SSuite& oSuite : GetSuites())
    {
        const std::string sFormat = oSuite.m_pszResultFormat; // "AsusHd Test = ..."
        apfnRun[sFormat.substr(0, sFormat.find(' '))] = oSuite.m_pfnRun;
    }
    const std::vector<SCaseRow> aoRows = ReadCases("SelfCheck/golden/parts.txt", 4);
    EXPECT_EQ(apfnRun.size(), aoRows.size());
    for (const SCaseRow& oRow : aoRows)
    {
        SCOPED_TRACE(oRow.GetName());
        const auto Run = [&](unsigned int uiPart) {
            SFault::ms_uiChosen = uiPart;
            SFault::ms_uiCount = 0;
            return apfnRun.at(oRow.GetName())();
        };
        const unsigned int uiParts = oRow.GetNumber(1);
        EXPECT_NE(0, Run(uiParts));
        EXPECT_EQ(uiParts, SFault::ms_uiCount);
        std::map<std::string, unsigned int> aoUnseen;
        unsigned int uiAllLines = 0;
        for (unsigned int i = 0; i < uiParts; ++i)
        {
            CCapturedOutput oOutput;
            const bool bIsSeen = Run(i) == 0;
            const unsigned int uiLines = oOutput.TakeAssertionCount();
            EXPECT_EQ(bIsSeen, uiLines != 0) << SFault::ms_sName;
            aoUnseen[SFault::ms_sName] += bIsSeen ? 0 : 1;
            uiAllLines += uiLines;
        }
        std::string sUnseen;
        for (const auto& [sName, uiCount] : aoUnseen)
        {
            sUnseen += uiCount != 0 ? (sUnseen.empty() ? "" : ", ") + sName + " " + std::to_string(uiCount) : "";
        }
        EXPECT_EQ(oRow.GetText(2), sUnseen);
        EXPECT_TRUE(oRow.GetText(3) == "-" || oRow.GetNumber(3) == uiAllLines) << uiAllLines;
    }
}

// Any result that is not 0 is a success and printed as it is. What a failing suite wrote precedes its line.
TEST(Run, PrintsEachResultAndCountsTheZeros)
{
    const SSuite aoSuites[] = { { [] { return 1; }, "First  = %d\n" },
                                { [] { return puts("trail") < 0 ? 1 : 0; }, "Second = %d\n" },
                                { [] { return -3; }, "Third  = %d\n" } };
    CCapturedOutput oOutput;
    RunSuites(aoSuites);
    EXPECT_EQ("First  = 1\ntrail\nSecond = 0\nThird  = -3\nTests failure count   = 1\n\n"
              "Press any key to close the application...",
              oOutput.Take());
}
