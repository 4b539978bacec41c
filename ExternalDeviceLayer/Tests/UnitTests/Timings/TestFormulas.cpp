// CVT and GTF: worked results, refusals, and over a grid that reaches both ends of the range equality with
// the second computation of FormulaModel.h.

#include <gtest/gtest.h>

#include <random>
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

TEST(WorkedResults, AreComputedOnBothStorageClasses)
{
    const struct
    {
        EFormula m_eFormula;
        unsigned int m_uiAskedRateInHz;
        CAllValues m_auiExpected;
    } aoCases[] = {
        // clang-format off
        // asked for    active     rate  clock   h front sync back v front sync back flags line source
        { eCvt,        60, { 1920, 1080,  60, 173000, 128, 200, 328, 3,  5, 32, 8,  67, 3 } },
        { eCvtReduced, 60, { 1920, 1080,  60, 138500,  48,  32,  80, 3,  5, 23, 4,  67, 4 } },
        { eGtf,        60, { 1920, 1080,  60, 172770, 128, 200, 328, 1,  3, 34, 8,  67, 5 } }, // sync cut, not 208
        { eCvt,        60, { 1024,  768,  60,  63500,  48, 104, 152, 3,  4, 23, 8,  47, 3 } },
        { eGtf,        60, { 1024,  768,  60,  64122,  56, 104, 160, 1,  3, 23, 8,  47, 5 } },
        { eCvtReduced, 60, { 3840, 2160,  60, 533250,  48,  32,  80, 3,  5, 54, 4, 133, 4 } },
        { eCvt,        60, {  640,  480,  59,  23750,  16,  64,  80, 3,  4, 13, 8,  29, 3 } }, // the rate reached
        { eCvt,        60, { 1366,  768,  60,  85500,  72, 136, 208, 3, 10, 17, 8,  47, 3 } }, // off the cell grid
        { eCvtReduced, 60, { 1366,  768,  60,  72250,  48,  32,  80, 3, 10,  9, 4,  47, 4 } },
        { eGtf,        75, { 1366,  768,  75, 110229,  90, 144, 232, 1,  3, 30, 8,  60, 5 } },
        { eCvt,        24, { 1280,  720,  24,  28000,  32, 128, 160, 3,  5,  6, 8,  17, 3 } },
        // clang-format on
    };
    for (const auto& oCase : aoCases)
    {
        CVidParamTimingGeneric oGeneric(gsc_oMarked); // what stood there before is cleared
        CRVidParamTiming oOther(gsc_oR720p, eRVideoFamily_Cea);
        oOther.GetRVideoVidParam().uiFlags = 0xFFFFFFFF;
        oOther.GetRVideoVidParam().auiReserved[1] = 7;
        for (CVidParamTiming* poTiming : std::initializer_list<CVidParamTiming*>{ &oGeneric, &oOther })
        {
            EXPECT_EQ(1, Compute(oCase.m_eFormula, oCase.m_auiExpected[0], oCase.m_auiExpected[1],
                                 oCase.m_uiAskedRateInHz, poTiming));
            EXPECT_EQ(oCase.m_auiExpected, ReadAll(*poTiming));
        }
        EXPECT_EQ(oCase.m_auiExpected[gsc_uiFlags], oGeneric.GetData().uiFlags);
        EXPECT_EQ(oCase.m_auiExpected[gsc_uiFlags], oOther.GetRVideoVidParam().uiFlags);
        EXPECT_EQ(0U, oOther.GetRVideoVidParam().auiReserved[1]);
    }
}

// What every monitor relies on: clock, totals and rate belong together, and the sync begins and ends on a cell.
TEST(RealSizes, GeometryAddsUp)
{
    const unsigned int aauiSizes[][2] = { { 640, 480 }, { 1280, 1024 }, { 1920, 1080 }, { 2560, 1600 } };
    for (const EFormula eFormula : { eCvt, eCvtReduced, eGtf })
    {
        for (const auto& auiSize : aauiSizes)
        {
            for (const unsigned int uiRate : { 50U, 60U, 120U })
            {
                SCOPED_TRACE(testing::Message() << "formula " << eFormula << ": " << auiSize[0] << "@" << uiRate);
                CVidParamTimingGeneric oTiming;
                ASSERT_EQ(1, Compute(eFormula, auiSize[0], auiSize[1], uiRate, &oTiming));
                const unsigned int uiTotal = oTiming.GetHorizontalActive() + oTiming.GetHorizontalFrontPorch() +
                                             oTiming.GetHorizontalSync() + oTiming.GetHorizontalBackPorch();
                const unsigned int uiLines = oTiming.GetVerticalActive() + oTiming.GetVerticalFrontPorch() +
                                             oTiming.GetVerticalSync() + oTiming.GetVerticalBackPorch();
                const double dRate = 1000.0 * oTiming.GetPixelClockInKiloHz() / uiTotal / uiLines;
                EXPECT_NEAR(uiRate, dRate, 1.0);
                EXPECT_NEAR(oTiming.GetVerticalRateInHz(), dRate, 1.0);
                EXPECT_EQ(0U, oTiming.GetHorizontalSync() % 8);
                EXPECT_EQ(0U, oTiming.GetHorizontalBackPorch() % 8);
            }
        }
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
    SCOPED_TRACE(testing::Message() << "formula " << eFormula << ": " << uiWidth << "x" << uiHeight << "@" << uiRate);
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

void ExpectSameOverAGridAndForRandomNumbers(EFormula eFormula)
{
    for (const unsigned int uiWidth : gsc_auiSizes)
    {
        for (const unsigned int uiHeight : gsc_auiSizes)
        {
            for (const unsigned int uiRate : gsc_auiRates)
            {
                ASSERT_NO_FATAL_FAILURE(ExpectSameAsSecondComputation(eFormula, uiWidth, uiHeight, uiRate));
            }
        }
    }
    std::mt19937 oRandom(20240229);
    const auto fnAnyMagnitude = [&] { return static_cast<unsigned int>(oRandom()) >> oRandom() % 32; };
    for (unsigned int i = 0; i < 20000; ++i)
    {
        const unsigned int uiWidth = fnAnyMagnitude();
        const unsigned int uiHeight = fnAnyMagnitude();
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsSecondComputation(eFormula, uiWidth, uiHeight, fnAnyMagnitude()));
    }
}

TEST(SecondComputation, AgreesOnCvt) { ExpectSameOverAGridAndForRandomNumbers(eCvt); }
TEST(SecondComputation, AgreesOnReducedCvt) { ExpectSameOverAGridAndForRandomNumbers(eCvtReduced); }
TEST(SecondComputation, AgreesOnGtf) { ExpectSameOverAGridAndForRandomNumbers(eGtf); }
}
