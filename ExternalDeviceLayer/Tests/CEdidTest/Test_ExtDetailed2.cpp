// Suite 5: detailed timings across base block and extension block, always the second one removed: the numbering is
// taken afresh at each call, so that one index reaches three timings in two blocks.

#include "CEdidTestSuites.h"
#include "CEdidTestTimings.h"
#include "Edid.h"

namespace
{
constexpr std::array<tagRVideo_VidParam, 4> g_auiDetailedTiming = { { gsc_oLgUltraHdBase0, gsc_oLgUltraHdBase1,
                                                                      gsc_oLgUltraHdExt0, gsc_oLgUltraHdExt1 } };
constexpr std::array<tagRVideo_VidParam, 3> g_auiDetailedTiming1 = WithoutRows<1>(g_auiDetailedTiming);
constexpr std::array<tagRVideo_VidParam, 2> g_auiDetailedTiming2 = WithoutRows<1, 2>(g_auiDetailedTiming);
constexpr std::array<tagRVideo_VidParam, 1> g_auiDetailedTiming3 = WithoutRows<1, 2, 3>(g_auiDetailedTiming);
constexpr std::array<tagRVideo_VidParam, 1> g_auiDetailedTiming4 = { { gsc_oLgUltraHdExt0 } };

CVidParamTimingGeneric MakePreferredTiming()
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetHorizontalActive(1920);
    oTiming.SetVerticalActive(1080);
    oTiming.SetVerticalRateInHz(60);
    oTiming.SetHorizontalRateInKiloHz(67);
    oTiming.SetPixelClockInKiloHz(148500);
    oTiming.SetHorizontalFrontPorch(88);
    oTiming.SetHorizontalSync(44);
    oTiming.SetHorizontalBackPorch(148);
    oTiming.SetVerticalFrontPorch(4);
    oTiming.SetVerticalSync(5);
    oTiming.SetVerticalBackPorch(36);
    return oTiming;
}
} // namespace

SExtDetailedData GetExtDetailed2Data()
{
    return { { &ExtDetailed2::g_auiDetailedEdidData, &ExtDetailed2::g_auiDetailedEdidData1,
               &ExtDetailed2::g_auiDetailedEdidData2, &ExtDetailed2::g_auiDetailedEdidData3 },
             { g_auiDetailedTiming, g_auiDetailedTiming1, g_auiDetailedTiming2, g_auiDetailedTiming3 },
             g_auiDetailedTiming4 };
}

int RunExtDetailed2(const SExtDetailedData& oData)
{
    const CVidParamTable& aoTiming = oData.m_aaoTiming[0];

    CEdid oEdid;
    MTEST_STEP(oEdid.SetEdidBuffer(oData.m_apaui8Image[0]->data(), 256, 0));
    MTEST_STEP(ValidateDetailed(oEdid, static_cast<unsigned int>(aoTiming.size()), aoTiming.data()));
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_apaui8Image[0]->data()));
    for (unsigned int uiState = 1; uiState <= 3; ++uiState)
    {
        MTEST_STEP(oEdid.RemoveDetailed(1));
        MTEST_STEP(HasDetailedState(oEdid, oData.m_aaoTiming[uiState], *oData.m_apaui8Image[uiState]));
    }

    const CVidParamTimingGeneric oPreferred = MakePreferredTiming();
    MTEST_STEP(oEdid.CEdidBase::SetPreferredMode(&oPreferred));
    MTEST_STEP(oEdid.IsChecksumValid());
    MTEST_STEP(
        ValidateDetailed(oEdid, static_cast<unsigned int>(oData.m_aoPreferred.size()), oData.m_aoPreferred.data()));
    return 1;
}

int Test_ExtDetailed2() { return RunExtDetailed2(GetExtDetailed2Data()); }
