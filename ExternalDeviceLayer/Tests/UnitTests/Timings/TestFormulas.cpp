// CVT and GTF: worked results, refusals, properties over a grid that reaches both ends of the range, and equality with
// the second computation of FormulaModel.h.

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

#include "FormulaModel.h"
#include "TimingTestHelp.h"
#include "VidParamCvt.h"
#include "VidParamGtf.h"

namespace
{
int Compute(EFormula eFormula, unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate,
            CVidParamTiming* poTiming)
{
    return eFormula == eGtf
               ? CVidParamGtf::GetVidParam(uiWidth, uiHeight, uiRate, poTiming)
               : CVidParamCvt::GetVidParam(uiWidth, uiHeight, uiRate, eFormula == eCvtReduced ? 1 : 0, poTiming);
}

const char* NameOf(EFormula eFormula)
{
    return eFormula == eCvt ? "Cvt" : eFormula == eCvtReduced ? "CvtReduced" : "Gtf";
}

// ---- Worked results ----

struct SWorkedCase
{
    const char* m_szName;
    EFormula m_eFormula;
    unsigned int m_uiWidth;
    unsigned int m_uiHeight;
    unsigned int m_uiAskedRateInHz;
    std::array<unsigned int, 3> m_auiHorizontal;
    std::array<unsigned int, 3> m_auiVertical;
    unsigned int m_uiPixelClockInKiloHz;
    unsigned int m_uiHorizontalRateInKiloHz;
    unsigned int m_uiVerticalRateInHz;
};

const SWorkedCase gsc_aoWorkedCases[] = {
    { "FullHdCvt", eCvt, 1920, 1080, 60, { 128, 200, 328 }, { 3, 5, 32 }, 173000, 67, 60 },
    { "FullHdCvtReduced", eCvtReduced, 1920, 1080, 60, { 48, 32, 80 }, { 3, 5, 23 }, 138500, 67, 60 },
    // The sync is cut to 200 pixels, not rounded to 208.
    { "FullHdGtf", eGtf, 1920, 1080, 60, { 128, 200, 328 }, { 1, 3, 34 }, 172770, 67, 60 },
    { "XgaCvt", eCvt, 1024, 768, 60, { 48, 104, 152 }, { 3, 4, 23 }, 63500, 47, 60 },
    { "XgaGtf", eGtf, 1024, 768, 60, { 56, 104, 160 }, { 1, 3, 23 }, 64122, 47, 60 },
    { "UltraHdCvtReduced", eCvtReduced, 3840, 2160, 60, { 48, 32, 80 }, { 3, 5, 54 }, 533250, 133, 60 },
    { "VgaCvtReportsTheRateReached", eCvt, 640, 480, 60, { 16, 64, 80 }, { 3, 4, 13 }, 23750, 29, 59 },
    { "OffTheCellGridCvt", eCvt, 1366, 768, 60, { 72, 136, 208 }, { 3, 10, 17 }, 85500, 47, 60 },
    { "OffTheCellGridCvtReduced", eCvtReduced, 1366, 768, 60, { 48, 32, 80 }, { 3, 10, 9 }, 72250, 47, 60 },
    { "OffTheCellGridGtf", eGtf, 1366, 768, 75, { 90, 144, 232 }, { 1, 3, 30 }, 110229, 60, 75 },
    { "LowRateCvt", eCvt, 1280, 720, 24, { 32, 128, 160 }, { 3, 5, 6 }, 28000, 17, 24 },
};

TEST(WorkedResults, AreComputedOnBothStorageClasses)
{
    for (const SWorkedCase& oCase : gsc_aoWorkedCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const SAllValues oExpected = {
            oCase.m_uiWidth,         oCase.m_uiHeight,    oCase.m_uiVerticalRateInHz, oCase.m_uiPixelClockInKiloHz,
            oCase.m_auiHorizontal,   oCase.m_auiVertical, FlagsOf(oCase.m_eFormula),  oCase.m_uiHorizontalRateInKiloHz,
            TypeOf(oCase.m_eFormula)
        };
        CVidParamTimingGeneric oGeneric(gsc_oMarked); // what stood there before is cleared
        CRVidParamTiming oOther(gsc_oR720p, eRVideoFamily_Cea);
        oOther.GetRVideoVidParam().uiFlags = 0xFFFFFFFF;
        oOther.GetRVideoVidParam().auiReserved[1] = 7;
        for (CVidParamTiming* poTiming : std::initializer_list<CVidParamTiming*>{ &oGeneric, &oOther })
        {
            EXPECT_EQ(1,
                      Compute(oCase.m_eFormula, oCase.m_uiWidth, oCase.m_uiHeight, oCase.m_uiAskedRateInHz, poTiming));
            EXPECT_EQ(oExpected, ReadAll(*poTiming));
        }
        EXPECT_EQ(FlagsOf(oCase.m_eFormula), oGeneric.GetData().uiFlags);
        EXPECT_EQ(FlagsOf(oCase.m_eFormula), oOther.GetRVideoVidParam().uiFlags);
        EXPECT_EQ(0U, oOther.GetRVideoVidParam().auiReserved[1]);
    }
}

TEST(CvtVerticalSync, TellsTheAspect)
{
    const struct
    {
        unsigned int m_uiWidth;
        unsigned int m_uiHeight;
        unsigned int m_uiLines;
    } aoCases[] = {
        { 1600, 1200, 4 },
        { 1920, 1080, 5 },
        { 1360, 768, 5 }, // 16:9 cut to a cell
        { 1680, 1050, 6 },
        { 1280, 1024, 7 },
        { 1280, 768, 7 },  // 15:9
        { 1366, 768, 10 }, // the width counts as given
        { 1920, 0, 0 },
        { 0, 1, 4 },          // every aspect gives 0 here, the first counts
        { 0, 0x40000000, 4 }, // 4 * height wraps to 0
        { 0x55555550, 0x80000000, 10 },
    };
    for (const auto& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_uiLines, CVidParamCvt::GetVSyncLines(oCase.m_uiWidth, oCase.m_uiHeight))
            << oCase.m_uiWidth << "x" << oCase.m_uiHeight;
    }
}

TEST(Cvt, ReducedBlankingIsAskedForByAnyValueButZero)
{
    for (const int bReduced : { 2, -1, 0x100 })
    {
        CVidParamTimingGeneric oTiming;
        EXPECT_EQ(1, CVidParamCvt::GetVidParam(640, 480, 60, bReduced, &oTiming));
        EXPECT_EQ(CVidParamTiming::eVidParamType_CvtReducedBlanking, oTiming.GetVideoFamilyType());
        EXPECT_EQ(60U, oTiming.GetVerticalRateInHz()) << "the rate asked for";
    }
}

// ---- Refusals ----

TEST(SlowLines, WrapTheDutyOfCvtWithStandardBlanking)
{
    const unsigned int aauiRefused[][3] = { { 200, 150, 60 }, { 176, 144, 60 }, { 320, 240, 30 }, { 640, 480, 20 } };
    for (const auto& auiMode : aauiRefused)
    {
        EXPECT_EQ(0, Compute(eCvt, auiMode[0], auiMode[1], auiMode[2], nullptr)) << auiMode[0];
        EXPECT_EQ(1, Compute(eCvtReduced, auiMode[0], auiMode[1], auiMode[2], nullptr)) << auiMode[0];
        EXPECT_EQ(1, Compute(eGtf, auiMode[0], auiMode[1], auiMode[2], nullptr)) << auiMode[0];
    }
    CRVidParamTiming oTiming(gsc_oR720p, eRVideoFamily_Cea);
    EXPECT_EQ(1, Compute(eCvt, 640, 2, 7, &oTiming)) << "a few lines only";
    EXPECT_EQ(0U, oTiming.GetPixelClockInKiloHz());
}

// ---- The second computation ----

// The class in kilohertz keeps clocks as they are set; the other one would wrap the extremes once more.
void ExpectSameAsSecondComputation(EFormula eFormula, unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
{
    SCOPED_TRACE(testing::Message() << NameOf(eFormula) << ": " << uiWidth << "x" << uiHeight << "@" << uiRate);
    const CRVidParamTiming oUntouched(gsc_oR720p, eRVideoFamily_Smpte);
    CRVidParamTiming oTiming(oUntouched);
    const int iResult = Compute(eFormula, uiWidth, uiHeight, uiRate, &oTiming);
    const Expected oExpected = SecondCompute(eFormula, uiWidth, uiHeight, uiRate);
    ASSERT_EQ(oExpected.has_value() ? 1 : 0, iResult);
    ASSERT_EQ(oExpected.value_or(ReadAll(oUntouched)), ReadAll(oTiming));
    ASSERT_EQ(iResult, Compute(eFormula, uiWidth, uiHeight, uiRate, nullptr)) << "as a test";
}

const std::vector<unsigned int> gsc_auiSizes = {
    0,    1,     3,     4,     7,          8,          9,          144,        176,        480,        640,        1366,
    1920, 16384, 65535, 65536, 0x15555556, 0x40000000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF4, 0xFFFFFFFD, 0xFFFFFFFF,
};
const std::vector<unsigned int> gsc_auiRates = {
    0, 1, 20, 24, 30, 50, 60, 75, 120, 240, 1000, 1818, 1819, 2173, 2174, 100000, 0x7FFFFFFF, 0xFFFFFFFF,
};

class Formula : public testing::TestWithParam<EFormula>
{
};

TEST_P(Formula, EqualsTheSecondComputation)
{
    for (const unsigned int uiWidth : gsc_auiSizes)
    {
        for (const unsigned int uiHeight : gsc_auiSizes)
        {
            for (const unsigned int uiRate : gsc_auiRates)
            {
                ASSERT_NO_FATAL_FAILURE(ExpectSameAsSecondComputation(GetParam(), uiWidth, uiHeight, uiRate));
            }
        }
    }
    std::mt19937 oRandom(20240229);
    const auto fnAnyMagnitude = [&] { return static_cast<unsigned int>(oRandom()) >> oRandom() % 32; };
    for (unsigned int i = 0; i < 20000; ++i)
    {
        const unsigned int uiWidth = fnAnyMagnitude();
        const unsigned int uiHeight = fnAnyMagnitude();
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsSecondComputation(GetParam(), uiWidth, uiHeight, fnAnyMagnitude()));
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, Formula, testing::Values(eCvt, eCvtReduced, eGtf),
                         [](const auto& oInfo) { return std::string(NameOf(oInfo.param)); });
}
