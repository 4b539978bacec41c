// CVT and GTF against the second computation of FormulaModel.h, over a grid that reaches both ends of the range, with
// random sizes in between. The worked results stand with those of the front door, in TimingFuncTest.cpp.

#include <gtest/gtest.h>

#include <random>

#include "FormulaModel.h"
#include "VidParamCvt.h"
#include "VidParamTimingFunc.h"

namespace
{
struct SFormula
{
    const char* m_pszName;
    Expected (*m_pfnSecond)(Wide, Wide, Wide);
    int (*m_pfnCompute)(unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate, CVidParamTiming* poTiming);
};

const SFormula gsc_aoFormulas[] = {
    { "CVT", SecondCvt,
      [](unsigned int w, unsigned int h, unsigned int uiRate, CVidParamTiming* po) {
          return CVidParamTimingFunc::ComputeCvt(w, h, uiRate, 0, po);
      } },
    { "reduced CVT", SecondCvtReduced,
      [](unsigned int w, unsigned int h, unsigned int uiRate, CVidParamTiming* po) {
          return CVidParamTimingFunc::ComputeCvt(w, h, uiRate, 0x100, po); // any value but 0 asks for it
      } },
    { "GTF", SecondGtf, CVidParamTimingFunc::ComputeGft },
};

// The class in kilohertz keeps clocks as they are set; the other one would wrap the extremes once more.
void ExpectSameAsSecondComputation(unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
{
    for (const SFormula& oFormula : gsc_aoFormulas)
    {
        SCOPED_TRACE(testing::Message() << oFormula.m_pszName << " " << uiWidth << "x" << uiHeight << "@" << uiRate);
        const CRVidParamTiming oUntouched(gsc_oR720p, eRVideoFamily_Smpte);
        CRVidParamTiming oTiming(oUntouched);
        const int iResult = oFormula.m_pfnCompute(uiWidth, uiHeight, uiRate, &oTiming);
        const Expected oExpected = oFormula.m_pfnSecond(uiWidth, uiHeight, uiRate);
        ASSERT_EQ(oExpected.has_value() ? 1 : 0, iResult);
        ASSERT_EQ(oExpected.value_or(ReadAll(oUntouched)), ReadAll(oTiming));
        ASSERT_EQ(iResult, oFormula.m_pfnCompute(uiWidth, uiHeight, uiRate, nullptr)) << "as a test";
    }
    ASSERT_EQ(static_cast<unsigned int>(SyncLines(uiWidth, uiHeight)), CVidParamCvt::GetVSyncLines(uiWidth, uiHeight));
}

// Small sizes, real ones, and those that make a sum or 4, 5, 15 or 16 times a height wrap.
TEST(Formulas, AgreeWithTheSecondComputation)
{
    const unsigned int auiSizes[] = { 0,          1,          3,          4,          7,          8,
                                      9,          144,        176,        480,        640,        768,
                                      1024,       1280,       1360,       1366,       1920,       16384,
                                      65535,      65536,      0x15555556, 0x40000000, 0x55555550, 0x7FFFFFFF,
                                      0x80000000, 0xFFFFFFF4, 0xFFFFFFFD, 0xFFFFFFFF };
    const unsigned int auiRates[] = { 0,   1,    20,   24,   30,   50,   60,     75,         120,
                                      240, 1000, 1818, 1819, 2173, 2174, 100000, 0x7FFFFFFF, 0xFFFFFFFF };
    std::mt19937 oRandom(20240229);
    for (const unsigned int uiWidth : auiSizes)
    {
        for (const unsigned int uiHeight : auiSizes)
        {
            for (const unsigned int uiRate : auiRates)
            {
                ASSERT_NO_FATAL_FAILURE(ExpectSameAsSecondComputation(uiWidth, uiHeight, uiRate));
                const unsigned int uiRandom1 = static_cast<unsigned int>(oRandom()) >> oRandom() % 32;
                const unsigned int uiRandom2 = static_cast<unsigned int>(oRandom()) >> oRandom() % 32;
                ASSERT_NO_FATAL_FAILURE(ExpectSameAsSecondComputation(uiRandom1, uiRandom2, uiRate));
            }
        }
    }
}
}
