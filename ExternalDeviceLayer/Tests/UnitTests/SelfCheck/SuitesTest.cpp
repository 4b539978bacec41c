// That each suite of the self-check can fail: its steps are run over copies of its data in which one image or one row
// is damaged, and must give 0 and an assertion line. And what the run prints when a suite fails.

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "CEdidTestSuites.h"

namespace
{
// Place of a suite in the run.
enum ESuite : unsigned int
{
    eSuite_AsusHd,
    eSuite_BaseStandard,
    eSuite_BaseDetailed,
    eSuite_ExtDetailed,
    eSuite_ExtDetailed2,
    eSuite_ExtStandard,
    eSuite_ExtStandard2,
    eSuite_ColorBitDepth,
    eSuite_TimingsCompare,
    eSuite_Audio,
};

constexpr unsigned int gsc_uiHeaderByte = 0; // a damaged header is not loaded
constexpr unsigned int gsc_uiWidthByte = 56; // low byte of the preferred timing's width: no tolerance hides it

// A suite over damaged data.
struct SDamageCase
{
    std::string m_sName;
    ESuite m_eSuite;
    std::function<int()> m_oRun;
};

SEdidImage Flip(SEdidImage aui8Image, unsigned int uiOffset)
{
    aui8Image.at(uiOffset) = static_cast<unsigned char>(aui8Image.at(uiOffset) ^ 0x01);
    return aui8Image;
}

void DamageRow(STimingData& oRow)
{
    if (oRow.m_uiVic != 0)
    {
        oRow.m_uiVic ^= 2;
    }
    else
    {
        oRow.m_uiHorizontalActive += 8;
    }
}

void DamageRow(tagRVideo_VidParam& oRow) { ++oRow.uiVerticalBackPorch; }

// Collects the cases of one suite. GET gives its data record, RUN runs its steps.
template <auto GET, auto RUN>
class CDamage
{
public:
    using DATA = decltype(GET());

    CDamage(std::vector<SDamageCase>& aoCases, ESuite eSuite, char const* pszSuite)
        : m_aoCases(aoCases), m_eSuite(eSuite), m_sSuite(pszSuite)
    {
    }

    // oPick gives the image's place in a record.
    template <class PICK>
    void AddImage(char const* pszName, unsigned int uiOffset, PICK oPick)
    {
        m_aoCases.push_back({ m_sSuite + "_" + pszName + "_byte" + std::to_string(uiOffset), m_eSuite, [=] {
                                 DATA oData = GET();
                                 SEdidImage const aui8Damaged = Flip(*oPick(oData), uiOffset);
                                 oPick(oData) = &aui8Damaged;
                                 return RUN(oData);
                             } });
    }

    // A case for each byte: the image is only compared with.
    template <class PICK>
    void AddExpectedImage(char const* pszName, PICK oPick)
    {
        for (unsigned int uiOffset = 0; uiOffset < 256; ++uiOffset)
        {
            AddImage(pszName, uiOffset, oPick);
        }
    }

    // A case for each row. oPick gives the table's place in a record.
    template <class PICK>
    void AddTable(char const* pszName, PICK oPick)
    {
        DATA oGood = GET();
        for (size_t uiRow = 0; uiRow < oPick(oGood).size(); ++uiRow)
        {
            m_aoCases.push_back({ m_sSuite + "_" + pszName + "_row" + std::to_string(uiRow), m_eSuite, [=] {
                                     DATA oData = GET();
                                     std::vector aoRows(oPick(oData).begin(), oPick(oData).end());
                                     DamageRow(aoRows.at(uiRow));
                                     oPick(oData) = aoRows;
                                     return RUN(oData);
                                 } });
        }
    }

private:
    std::vector<SDamageCase>& m_aoCases;
    ESuite m_eSuite;
    std::string m_sSuite;
};

void AddBaseCases(std::vector<SDamageCase>& aoCases)
{
    CDamage<GetAsusHdData, RunAsusHd> oAsusHd(aoCases, eSuite_AsusHd, "AsusHd");
    for (unsigned int uiOffset : { gsc_uiHeaderByte, 8U, 10U, 12U, 16U, 17U, 18U, 19U, 24U, 35U, 38U, gsc_uiWidthByte,
                                   77U, 113U, 126U, 127U, gsc_uiExt + 4 })
    {
        oAsusHd.AddImage(
            "image", uiOffset, [](auto& oData) -> auto& { return oData.m_paui8Image; });
    }
    oAsusHd.AddTable(
        "established", [](auto& oData) -> auto& { return oData.m_aoEstablished; });
    oAsusHd.AddTable(
        "vesa", [](auto& oData) -> auto& { return oData.m_aoEstablishedVesa; });
    oAsusHd.AddTable(
        "standard", [](auto& oData) -> auto& { return oData.m_aoBaseStandard; });

    CDamage<GetBaseStandardData, RunBaseStandard> oBaseStandard(aoCases, eSuite_BaseStandard, "BaseStandard");
    oBaseStandard.AddImage(
        "serial", 12, [](auto& oData) -> auto& { return oData.m_paui8SerialImage; });
    oBaseStandard.AddImage(
        "standard", 40, [](auto& oData) -> auto& { return oData.m_paui8StandardImage; });
    for (unsigned int i = 0; i < 3; ++i)
    {
        oBaseStandard.AddTable(
            ("timing" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_aaoTiming.at(i); });
    }

    CDamage<GetBaseDetailedData, RunBaseDetailed> oBaseDetailed(aoCases, eSuite_BaseDetailed, "BaseDetailed");
    oBaseDetailed.AddImage(
        "image", gsc_uiWidthByte, [](auto& oData) -> auto& { return oData.m_paui8Image; });
    for (unsigned int i = 0; i < 2; ++i)
    {
        oBaseDetailed.AddTable(
            ("timing" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_aaoTiming.at(i); });
    }
}

template <auto GET, auto RUN>
void AddExtDetailedCases(std::vector<SDamageCase>& aoCases, ESuite eSuite, char const* pszSuite)
{
    CDamage<GET, RUN> oDamage(aoCases, eSuite, pszSuite);
    oDamage.AddImage(
        "image0", gsc_uiWidthByte, [](auto& oData) -> auto& { return oData.m_apaui8Image.at(0); });
    oDamage.AddImage(
        "image0", gsc_uiExt + 18, [](auto& oData) -> auto& { return oData.m_apaui8Image.at(0); });
    for (unsigned int i = 0; i < 4; ++i)
    {
        oDamage.AddTable(
            ("timing" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_aaoTiming.at(i); });
        if (i > 0)
        {
            oDamage.AddExpectedImage(
                ("image" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_apaui8Image.at(i); });
        }
    }
}

template <auto GET, auto RUN>
void AddExtStandardCases(std::vector<SDamageCase>& aoCases, ESuite eSuite, char const* pszSuite, unsigned int uiStates)
{
    CDamage<GET, RUN> oDamage(aoCases, eSuite, pszSuite);
    oDamage.AddImage(
        "image0", gsc_uiHeaderByte, [](auto& oData) -> auto& { return oData.m_apaui8Image.at(0); });
    oDamage.AddImage(
        "image0", gsc_uiExt + 5, [](auto& oData) -> auto& { return oData.m_apaui8Image.at(0); });
    for (unsigned int i = 0; i < uiStates; ++i)
    {
        oDamage.AddTable(
            ("timing" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_aaoTiming.at(i); });
        if (i > 0)
        {
            oDamage.AddExpectedImage(
                ("image" + std::to_string(i)).c_str(), [i](auto& oData) -> auto& { return oData.m_apaui8Image.at(i); });
        }
    }
}

void AddDepthAndCompareCases(std::vector<SDamageCase>& aoCases)
{
    CDamage<GetColorBitDepthData, RunColorBitDepth> oDepth(aoCases, eSuite_ColorBitDepth, "ColorBitDepth");
    oDepth.AddImage(
        "image", gsc_uiHeaderByte, [](auto& oData) -> auto& { return oData.m_paui8Image; });
    oDepth.AddImage(
        "image", 19, [](auto& oData) -> auto& { return oData.m_paui8Image; });
    oDepth.AddImage(
        "image", gsc_uiExt + 30, [](auto& oData) -> auto& { return oData.m_paui8Image; });
    oDepth.AddImage(
        "revision3", 19, [](auto& oData) -> auto& { return oData.m_paui8Revision3Image; });

    CDamage<GetTimingsCompareData, RunTimingsCompare> oCompare(aoCases, eSuite_TimingsCompare, "TimingsCompare");
    for (unsigned int uiOffset : { gsc_uiHeaderByte, 38U, gsc_uiWidthByte })
    {
        oCompare.AddImage(
            "first", uiOffset, [](auto& oData) -> auto& { return oData.m_paui8FirstImage; });
        oCompare.AddImage(
            "second", uiOffset, [](auto& oData) -> auto& { return oData.m_paui8SecondImage; });
    }
}

void AddAudioCases(std::vector<SDamageCase>& aoCases)
{
    CDamage<GetAudioData, RunAudio> oAudio(aoCases, eSuite_Audio, "Audio");
    const auto AddLoaded = [&oAudio](char const* pszName, auto oPick) {
        oAudio.AddImage(pszName, gsc_uiHeaderByte, oPick);
        oAudio.AddImage(pszName, gsc_uiExt + 17, oPick); // the checksum no longer holds: the block is dropped
    };
    AddLoaded(
        "oneBlock", [](auto& oData) -> auto& { return oData.m_paui8OneBlock; });
    AddLoaded(
        "noBlock", [](auto& oData) -> auto& { return oData.m_paui8NoBlock; });
    AddLoaded(
        "full", [](auto& oData) -> auto& { return oData.m_paui8Full; });
    AddLoaded(
        "twoDescriptors", [](auto& oData) -> auto& { return oData.m_paui8TwoDescriptors; });
    AddLoaded(
        "ten", [](auto& oData) -> auto& { return oData.m_paui8Ten; });
    oAudio.AddExpectedImage(
        "filtered", [](auto& oData) -> auto& { return oData.m_paui8Filtered; });
    oAudio.AddExpectedImage(
        "added", [](auto& oData) -> auto& { return oData.m_paui8Added; });
    oAudio.AddExpectedImage(
        "fullAdded", [](auto& oData) -> auto& { return oData.m_paui8FullAdded; });
    oAudio.AddExpectedImage(
        "addBlock", [](auto& oData) -> auto& { return oData.m_paui8AddBlock; });
    oAudio.AddExpectedImage(
        "removed", [](auto& oData) -> auto& { return oData.m_paui8Removed; });
    oAudio.AddExpectedImage(
        "eleven", [](auto& oData) -> auto& { return oData.m_paui8Eleven; });
    oAudio.AddExpectedImage(
        "add2", [](auto& oData) -> auto& { return oData.m_paui8Add2; });
    oAudio.AddExpectedImage(
        "set", [](auto& oData) -> auto& { return oData.m_paui8Set; });
}

std::vector<SDamageCase> MakeDamageCases()
{
    std::vector<SDamageCase> aoCases;
    AddBaseCases(aoCases);
    AddExtDetailedCases<GetExtDetailedData, RunExtDetailed>(aoCases, eSuite_ExtDetailed, "ExtDetailed");
    AddExtDetailedCases<GetExtDetailed2Data, RunExtDetailed2>(aoCases, eSuite_ExtDetailed2, "ExtDetailed2");
    AddExtStandardCases<GetExtStandardData, RunExtStandard>(aoCases, eSuite_ExtStandard, "ExtStandard", 5);
    AddExtStandardCases<GetExtStandard2Data, RunExtStandard2>(aoCases, eSuite_ExtStandard2, "ExtStandard2", 2);
    AddDepthAndCompareCases(aoCases);
    AddAudioCases(aoCases);
    return aoCases;
}

// Runs all suites, one of them by another function, and gives what the run prints.
std::function<int()> g_oReplacement;

std::string RunWithReplacement(ESuite eSuite, std::function<int()> oReplacement)
{
    std::array<SSuite, gsc_uiSuiteCount> aoSuites = GetSuites();
    aoSuites.at(eSuite).m_pfnRun = [] { return g_oReplacement(); };
    g_oReplacement = std::move(oReplacement);
    CCapturedOutput oOutput;
    RunSuites(aoSuites);
    return oOutput.Take();
}

// What the run prints for these results, without assertion lines.
std::string ExpectOutput(std::array<int, gsc_uiSuiteCount> const& aiResults, int iFailureCount)
{
    const std::array<const char*, gsc_uiSuiteCount> apszHeads = {
        "AsusHd Test           = ",  "BaseStandard Test     = ", "BaseDetailed Test     = ", "ExtDetailed Test      = ",
        "ExtDetailed2 Test      = ", "ExtStandard Test      = ", "ExtStandard2 Test     = ", "ColorBitDepth Test    = ",
        "TimingsCompare Test   = ",  "Audio Test            = "
    };
    std::string sText;
    for (unsigned int i = 0; i < gsc_uiSuiteCount; ++i)
    {
        sText += apszHeads.at(i) + std::to_string(aiResults.at(i)) + "\n";
    }
    sText += "Tests failure count   = " + std::to_string(iFailureCount) + "\n\n";
    return sText + "Press any key to close the application...";
}

// Splits the assertion lines off. puiBefore receives the number of result lines that stand ahead of the first of them.
std::string TakeAssertionLines(std::string const& sText, unsigned int& uiCount, unsigned int& uiBefore)
{
    std::string sRest;
    uiCount = 0;
    uiBefore = 0;
    unsigned int uiResultLines = 0;
    size_t uiBegin = 0;
    while (uiBegin < sText.size())
    {
        const size_t uiEnd = std::min(sText.find('\n', uiBegin), sText.size() - 1);
        const std::string sLine = sText.substr(uiBegin, uiEnd + 1 - uiBegin);
        uiBegin = uiEnd + 1;
        if (sLine.find("Assertion failed\n") != std::string::npos)
        {
            uiBefore = uiCount++ == 0 ? uiResultLines : uiBefore;
            continue;
        }
        ++uiResultLines;
        sRest += sLine;
    }
    return sRest;
}

TEST(Suites, AllPass)
{
    CCapturedOutput oOutput;
    RunSuites(GetSuites());
    EXPECT_EQ(ExpectOutput({ 1, 1, 1, 1, 1, 1, 1, 1, 1, 1 }, 0), oOutput.Take());
}

// Any result that is not 0 is a success, and is printed as it is.
TEST(Suites, AnotherResultThan0Passes)
{
    EXPECT_EQ(ExpectOutput({ 1, 1, 1, 1, 1, -3, 1, 1, 1, 1 }, 0),
              RunWithReplacement(eSuite_ExtStandard, [] { return -3; }));
}

TEST(Suites, EachDamagedImageAndRowFailsItsSuite)
{
    const std::vector<SDamageCase> aoCases = MakeDamageCases();
    std::set<ESuite> oSuites;
    for (SDamageCase const& oCase : aoCases)
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(0, oCase.m_oRun()) << oCase.m_sName;
        EXPECT_LE(1U, oOutput.TakeAssertionCount()) << oCase.m_sName;
        oSuites.insert(oCase.m_eSuite);
    }
    EXPECT_EQ(gsc_uiSuiteCount, oSuites.size());
}

// The failing suite leaves its trail ahead of its own line; the suites behind it run as usual.
TEST(Suites, OneFailureIsPrintedAndCounted)
{
    const std::vector<SDamageCase> aoCases = MakeDamageCases();
    std::set<ESuite> oDone;
    for (SDamageCase const& oCase : aoCases)
    {
        if (!oDone.insert(oCase.m_eSuite).second)
        {
            continue;
        }
        std::array<int, gsc_uiSuiteCount> aiResults = { 1, 1, 1, 1, 1, 1, 1, 1, 1, 1 };
        aiResults.at(oCase.m_eSuite) = 0;
        unsigned int uiAssertionCount = 0;
        unsigned int uiBefore = 0;
        const std::string sText =
            TakeAssertionLines(RunWithReplacement(oCase.m_eSuite, oCase.m_oRun), uiAssertionCount, uiBefore);
        EXPECT_EQ(ExpectOutput(aiResults, 1), sText) << oCase.m_sName;
        EXPECT_LE(1U, uiAssertionCount) << oCase.m_sName;
        EXPECT_EQ(unsigned{ oCase.m_eSuite }, uiBefore) << oCase.m_sName;
    }
    EXPECT_EQ(gsc_uiSuiteCount, oDone.size());
}

// From the inside out: the step, the sub-suite, the suite; each line names its source.
TEST(Suites, FailureOfASubSuiteLeavesATrail)
{
    SAudioData oData = GetAudioData();
    oData.m_paui8Filtered = oData.m_paui8OneBlock;
    CCapturedOutput oAudioOutput;
    EXPECT_EQ(0, RunAudio(oData));
    EXPECT_EQ(2U, oAudioOutput.TakeAssertionCount());

    SBaseStandardData oBaseData = GetBaseStandardData();
    oBaseData.m_aaoTiming[0] = oBaseData.m_aaoTiming[1];
    CCapturedOutput oBaseOutput;
    EXPECT_EQ(0, RunBaseStandard(oBaseData));
    const std::string sText = oBaseOutput.Take();
    const size_t uiValidator = sText.find("CEdidTestHelp.cpp(");
    const size_t uiStep = sText.find("Test_BaseStandard.cpp(");
    const size_t uiSuite = sText.rfind("Test_BaseStandard.cpp(");
    ASSERT_NE(std::string::npos, uiValidator) << sText;
    ASSERT_NE(std::string::npos, uiStep) << sText;
    EXPECT_LT(uiValidator, uiStep);
    EXPECT_LT(uiStep, uiSuite);
}

TEST(Images, EachContentStandsOnceInTheList)
{
    std::set<std::string> oNames;
    std::set<SEdidImage> oContents;
    for (SNamedEdidImage const& oImage : gsc_aoEdidTestImages)
    {
        EXPECT_TRUE(oNames.insert(oImage.m_pszName).second) << oImage.m_pszName;
        EXPECT_TRUE(oContents.insert(*oImage.m_paui8Image).second) << oImage.m_pszName;
    }
}
}
