// What all reports share, and what no stored report shows: lists of the caller's, refusals, numbering.

#include "EdidUtilsTestHelp.h"

namespace
{
bool Contains(const CTexts& asElements, const std::string& sElement)
{
    return std::find(asElements.begin(), asElements.end(), sElement) != asElements.end();
}

// The long prefix is one of the lines that are replaced, and too long for any storage inside the element.
TEST(Report, PrefixStandsAheadOfEachElementOfEveryImage)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        const CBytes aui8Image = ToBytes(*oImage.m_paui8Image);
        for (const auto eType : { gsc_ePlain, gsc_eModes, gsc_eExtended })
        {
            for (const std::string& sPrefix : { std::string("  "), "%d" + std::string(100, '>') })
            {
                CTexts asExpected = GetReport(eType, aui8Image);
                for (std::string& sElement : asExpected)
                {
                    sElement.insert(0, sPrefix);
                }
                CMArrayString oLines;
                oLines.Add(CMString(sPrefix.c_str()));
                EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(eType, *Load(aui8Image), oLines, oLines[0]));
                EXPECT_EQ(asExpected, GetElements(oLines)) << oImage.m_pszName << eType;
            }
        }
    }
}

// Types 0 and 4 do not exist, and leave the lines alone. The others lack a preferred mode: one assertion line of
// the lists, and one of the two monitor reports.
TEST(Report, WhatThereIsNoReportOf)
{
    constexpr unsigned int auiAssertions[] = { 1, 2, 1, 2, 1 };
    for (unsigned int i = 0; i < 5; ++i)
    {
        const bool bReport = i >= 1 && i <= 3;
        const auto poEdid = Load("asus 19=02 24=00");
        CMArrayString oLines;
        oLines.Add(CMString("old"));
        CCapturedOutput oOutput;
        EXPECT_EQ(bReport ? 1 : 0,
                  CZorEdidUtils::GetFormatedEdid(static_cast<CZorEdidUtils::EEdidFormatType>(i), *poEdid, oLines, ""))
            << i;
        EXPECT_EQ(auiAssertions[i], oOutput.TakeAssertionCount()) << i;
        EXPECT_EQ(bReport ? CTexts{} : CTexts{ "old" }, GetElements(oLines)) << i;
    }
}

// Whether an established timing is marked is asked of the VESA list's entry: 75,010 kHz allow more than 74,800 kHz do.
TEST(Report, MarkOfAnEstablishedTimingAsksTheVesaTiming)
{
    CModeList oTolerant;
    CModeList oStrict;
    oTolerant.SetCount(1, -1);
    oStrict.SetCount(1, -1);
    ASSERT_EQ(1, Load("asus 54=4D 1D")->GetBaseDetailed(0, &oTolerant[0]));
    ASSERT_EQ(1, Load("asus 54=38 1D")->GetBaseDetailed(0, &oStrict[0]));
    const auto Report = [&](const CModeList& oVesa, const CModeList& oAll) {
        const CModeList oNone;
        CMArrayString oLines;
        CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(*Load("asus"), oStrict[0], oVesa, oAll, oNone, oNone, oNone,
                                                         oNone, oLines, "");
        return GetElements(oLines);
    };
    EXPECT_TRUE(Contains(Report(oTolerant, oStrict), "        1920 x 1080 @ 30.00 Hz"));
    EXPECT_TRUE(Contains(Report(oStrict, oTolerant), "        1920 x 1080 @ 30.00 Hz (Not VESA compliant)"));
}

// A descriptor with a clock and no size counts and has no element. It has no place in the lists, hence own ones.
TEST(ExtendedReport, DetailedTimingThatDoesNotReadHasNoElement)
{
    const auto poEdid = Load("cea 132=02 3A 150=02 3A 80 18 71 38 2D 40 58 2C 45 00 09 25 21 00 00 1E");
    const CModeList oNone;
    CMArrayString oLines;
    CZorEdidUtils::GetEdidFormatedAsZorEdidExtractorExt(*poEdid, CVidParamTimingGeneric(), oNone, oNone, oNone, oNone,
                                                        oNone, oNone, oNone, oLines, "");
    const CTexts asElements = GetElements(oLines);
    const auto oCount = std::find(asElements.begin(), asElements.end(), "      Detailed count :         2");
    ASSERT_LT(3, asElements.end() - oCount);
    EXPECT_EQ("      Detailed #2 : 1920 x 1080 @  60 Hz Pix clock = 148500 KHz", oCount[2]);
    EXPECT_EQ("\n", oCount[3]);
}

TEST(ModesReport, NumbersGrowFromTwoDigits)
{
    const std::string sTiming = "   0    0   0   0      0    0   0   0   0   0   0  no  no - -";
    CMArrayString oLines;
    for (unsigned int uiCount : { 0U, 100U })
    {
        CModeList oModes;
        oModes.SetCount(uiCount, -1);
        oLines.Add(CMString("old"));
        CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(CVidParamTimingGeneric(), oModes, oLines, "> ");
        ASSERT_EQ(uiCount, oLines.GetCount());
    }
    EXPECT_EQ("> #01 - " + sTiming, GetElements(oLines)[0]);
    EXPECT_EQ("> #100 - " + sTiming, GetElements(oLines)[99]);
}
} // namespace
