// That the suites of the self-check look at the library's answers. They are built here against FaultyLibrary.h and run
// again and again with another part of an answer wrong: each run must give 0 and write an assertion line. A check that
// is taken out of a suite shows as a fault that goes unseen, or in the number of parts. And what the run prints.

#include <gtest/gtest.h>
#include <stdio.h>

#include <functional>
#include <map>

#include "CapturedOutput.h"
#include "CEdidTestSuites.h"

namespace
{
// Runs with each part wrong in turn, and gives name, result and assertion lines of each run to oCheck.
template <class CHECK>
void Sweep(const std::function<int()>& oRun, unsigned int uiPartCount, const CHECK& oCheck)
{
    CFault::Choose(CFault::msc_uiNone);
    EXPECT_EQ(1, oRun());
    EXPECT_EQ(uiPartCount, CFault::GetCount());
    for (unsigned int i = 0; i < uiPartCount; ++i)
    {
        CFault::Choose(i);
        CCapturedOutput oOutput;
        const int iResult = oRun();
        oCheck(CFault::GetName(), iResult, oOutput.TakeAssertionCount());
    }
}

struct SSuiteCase
{
    const char* m_pszName;
    int (*m_pfnRun)();
    unsigned int m_uiPartCount;
    std::map<std::string, unsigned int> m_aoUnseen; // parts that the suite need not look at, and how many of them
};

// A call has one part for its result, one for a timing, a native flag, a text or a depth that it gives, four for an
// audio descriptor or the bytes of an EDID, and 255 for the base block. Of the last ones a suite sees the bits of the
// bytes that it looks at, and all bits at once. Two bytes say that the preferred timing is protected, and either of
// them would do.
const SSuiteCase gsc_aoSuiteCases[] = {
    // Bytes 8 to 19 (the letters leave a bit out), two bits of byte 20 and one of byte 24; bytes 0 to 11 and 126.
    { "AsusHd", Test_AsusHd, 857, { { "GetBaseBlock: bit", 3 * 254 - (23 + 2 + 1) - (24 + 2) } } },
    { "BaseStandard",
      Test_BaseStandard,
      582,
      { { "GetBaseBlock: bit", 2 * (254 - 4 * 2) },   // the serial number
        { "GetBaseStandard: timing", 4 + 3 + 2 } } }, // whether a slot holds one, not which
    { "BaseDetailed",
      Test_BaseDetailed,
      531,
      { { "GetBaseBlock: bit", 2 * 254 }, { "GetDetailed: timing", 1 } } },    // the one that is replaced
    { "ExtDetailed", Test_ExtDetailed, 77, { { "GetVidParam: timing", 2 } } }, // read back as it was written
    { "ExtDetailed2", Test_ExtDetailed2, 56, {} },
    { "ExtStandard", Test_ExtStandard, 139, {} },
    { "ExtStandard2", Test_ExtStandard2, 127, {} },
    { "ColorBitDepth", Test_ColorBitDepth, 527, { { "GetBaseBlock: bit", 2 * (254 - 2 * 2) } } },
    { "TimingsCompare", Test_TimingsCompare, 3, {} },
    { "Audio",
      Test_Audio,
      154,
      { { "AddAudioDescriptor: result", 1 },    // judged by what follows
        { "GetAudioDescriptor: extra", 5 } } }, // left out where the kind is checked
};

TEST(Suites, SeeEachWrongAnswer)
{
    for (const SSuiteCase& oCase : gsc_aoSuiteCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        std::map<std::string, unsigned int> aoUnseen;
        Sweep(oCase.m_pfnRun, oCase.m_uiPartCount, [&](const std::string& sName, int iResult, unsigned int uiLines) {
            EXPECT_EQ(iResult == 0, uiLines != 0) << sName;
            if (iResult != 0)
            {
                ++aoUnseen[sName];
            }
        });
        EXPECT_EQ(oCase.m_aoUnseen, aoUnseen);
    }
}

constexpr STimingData gsc_aoAsusDetailed[] = { CeaRow(1920, 1080, 60, 16), CeaRow(720, 480, 60, 3),
                                               CeaRow(1280, 720, 60, 4), CeaRow(1280, 720, 50, 19),
                                               CeaRow(720, 576, 50, 18) };

// One line each, but for a wrong count where told so. The forms over table rows are called by no suite.
TEST(Validators, SeeEachWrongAnswerAndWriteOneLine)
{
    // uiPartCount: a count, and for each timing two or, with the native flag, three.
    const auto Check = [](const SEdidImage* paui8Image, unsigned int uiPartCount, unsigned int uiLinesOnWrongCount,
                          const auto& oRun) {
        CFault::Choose(CFault::msc_uiNone);
        CEdid oEdid;
        ASSERT_EQ(1, LoadCopy(oEdid, *paui8Image));
        Sweep([&] { return oRun(oEdid); }, uiPartCount,
              [&](const std::string& sName, int iResult, unsigned int uiLines) {
                  EXPECT_EQ(0, iResult) << sName;
                  EXPECT_EQ(sName.ends_with("count") ? uiLinesOnWrongCount : 1, uiLines) << sName << uiPartCount;
              });
    };
    const SBaseDetailedData oBaseDetailed = GetBaseDetailedData();
    Check(oBaseDetailed.m_paui8Image, 5, 1,
          [&](auto& oEdid) { return ValidateBaseDetailed(oEdid, 2, oBaseDetailed.m_aaoTiming[0].data()); });
    const SExtDetailedData oDetailed = GetExtDetailedData();
    Check(oDetailed.m_apaui8Image[0], 9, 1,
          [&](auto& oEdid) { return ValidateDetailed(oEdid, 4, oDetailed.m_aaoTiming[0].data()); });
    const SBaseStandardData oBaseStandard = GetBaseStandardData();
    Check(oBaseStandard.m_paui8StandardImage, 13, 1,
          [&](auto& oEdid) { return ValidateBaseStandard(oEdid, 4, oBaseStandard.m_aaoTiming[0].data()); });
    const SExtStandardData oStandard = GetExtStandardData();
    Check(oStandard.m_apaui8Image[0], 29, 0,
          [&](auto& oEdid) { return ValidateStandard(oEdid, 14, oStandard.m_aaoTiming[0].data()); });
    const SEdidImage* const paui8Asus = GetAsusHdData().m_paui8Image;
    Check(paui8Asus, 3, 0, [](auto& oEdid) { return ValidateBaseDetailed(oEdid, 1, gsc_aoAsusDetailed); });
    Check(paui8Asus, 11, 1, [](auto& oEdid) { return ValidateDetailed(oEdid, 5, gsc_aoAsusDetailed); });

    CFault::Choose(CFault::msc_uiNone);
    EXPECT_EQ(1, ValidateStandard(CEdid{}, 0, nullptr)); // no table for a count of 0
    EXPECT_EQ(0, CompareRawData(CEdid{}, 0, nullptr));
}

// The result says that the type of the row is known, not that a timing was found.
TEST(GetVidParam, ByTypeOfTheRow)
{
    const struct
    {
        const char* m_pszName;
        STimingData m_oRow;
        int m_iExpected;
        unsigned int m_uiWidth; // afterwards; it was 4321
    } aoCases[] = {
        { "DmtWithoutARow", DmtRow(1281, 1024, 75), 1, 4321 },
        { "GtfThatCannotBe", GtfRow(0, 0, 60), 1, 4321 },
        { "CeaByCodeAlone", CeaRow(1, 2, 3, 1016), 1, 1920 },
        { "CeaBySizeOfAnyScan", CeaRow(1920, 1080, 30, 0), 1, 1920 },
        { "AnotherType", { CVidParamTiming::eVidParamType_DmtReducedBlanking, 1920, 1200, 60, {}, 0 }, 0, 4321 },
    };
    for (const auto& oCase : aoCases)
    {
        CVidParamTimingGeneric oTiming;
        oTiming.SetHorizontalActive(4321);
        EXPECT_EQ(oCase.m_iExpected, GetVidParam(oCase.m_oRow, oTiming)) << oCase.m_pszName;
        EXPECT_EQ(oCase.m_uiWidth, oTiming.GetHorizontalActive()) << oCase.m_pszName;
    }
}

// Any result that is not 0 is a success and printed as it is. What a failing suite wrote stands ahead of its line.
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
} // namespace
