// Suite 9: two units of one model differ in their serial numbers and announce the same modes.

#include "CEdidTestSuites.h"
#include "Edid.h"
#include "ZorEdidUtils.h"

STimingsCompareData GetTimingsCompareData()
{
    return { &TimingsCompare::g_auiTimingsCompareEdidData, &TimingsCompare::g_auiTimingsCompareEdidData1 };
}

int RunTimingsCompare(const STimingsCompareData& oData)
{
    CEdid oFirst;
    CEdid oSecond;
    MTEST_STEP(LoadCopy(oFirst, *oData.m_paui8FirstImage));
    MTEST_STEP(LoadCopy(oSecond, *oData.m_paui8SecondImage));
    MTEST_STEP(CZorEdidUtils::CompareTimings(oFirst, oSecond, 0, 1)); // without established timings, with preferred
    return 1;
}

int Test_TimingsCompare() { return RunTimingsCompare(GetTimingsCompareData()); }
