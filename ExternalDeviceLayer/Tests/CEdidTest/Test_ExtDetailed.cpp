// Suite 4: detailed timings across base block and extension block, removed from the last one down, then the preferred
// timing replaced.

#include "CEdidTestSuites.h"
#include "CEdidTestTimings.h"
#include "Edid.h"
#include "VidParamCea.h"

namespace
{
constexpr std::array<tagRVideo_VidParam, 4> g_auiDetailedTiming = { { gsc_oLgUltraHdBase0, gsc_oLgUltraHdBase1,
                                                                      gsc_oLgUltraHdExt0, gsc_oLgUltraHdExt1 } };
constexpr std::array<tagRVideo_VidParam, 3> g_auiDetailedTiming1 = WithoutRows<3>(g_auiDetailedTiming);
constexpr std::array<tagRVideo_VidParam, 2> g_auiDetailedTiming2 = WithoutRows<2, 3>(g_auiDetailedTiming);
constexpr std::array<tagRVideo_VidParam, 1> g_auiDetailedTiming3 = WithoutRows<1, 2, 3>(g_auiDetailedTiming);
constexpr std::array<tagRVideo_VidParam, 1> g_auiDetailedTiming4 = { { gsc_oLgUltraHdExt0 } };

// Writes the timing as preferred timing and reads it back through the descriptor.
int ReplacePreferredTiming(CEdid& oEdid, const CRVidParamTiming& oPreferred)
{
    CRVidParamTiming oTiming;
    MTEST_STEP(oEdid.CEdidBase::SetPreferredMode(&oPreferred));
    MTEST_STEP(oEdid.IsChecksumValid());
    MTEST_STEP(oEdid.GetDetailed(0, &oTiming));
    MTEST_STEP(oTiming == oPreferred);
    return 1;
}
} // namespace

SExtDetailedData GetExtDetailedData()
{
    return { { &ExtDetailed::g_auiDetailedEdidData, &ExtDetailed::g_auiDetailedEdidData1,
               &ExtDetailed::g_auiDetailedEdidData2, &ExtDetailed::g_auiDetailedEdidData3 },
             { g_auiDetailedTiming, g_auiDetailedTiming1, g_auiDetailedTiming2, g_auiDetailedTiming3 },
             g_auiDetailedTiming4 };
}

int RunExtDetailed(const SExtDetailedData& oData)
{
    const CVidParamTable& aoTiming = oData.m_aaoTiming[0];

    CEdid oEdid;
    MTEST_STEP(oEdid.SetEdidBuffer(oData.m_apaui8Image[0]->data(), 256, 0));
    MTEST_STEP(ValidateDetailed(oEdid, static_cast<unsigned int>(aoTiming.size()), aoTiming.data()));
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_apaui8Image[0]->data()));
    for (unsigned int uiIndex : { 3U, 2U, 1U }) // the last of them lies in the base block
    {
        const unsigned int uiState = 4 - uiIndex;
        MTEST_STEP(oEdid.RemoveDetailed(uiIndex));
        MTEST_STEP(HasDetailedState(oEdid, oData.m_aaoTiming[uiState], *oData.m_apaui8Image[uiState]));
    }
    MTEST_STEP(oEdid.RemoveDetailed(0) == 0); // the preferred timing stays
    MTEST_STEP(HasDetailedState(oEdid, oData.m_aaoTiming[3], *oData.m_apaui8Image[3]));

    CRVidParamTiming oPreferred(oData.m_aoPreferred[0], eRVideoFamily_None);
    MTEST_PASS_ON(ReplacePreferredTiming(oEdid, oPreferred));

    // The first mode of this size and rate is interlaced: the descriptor keeps the scan, and halves and doubles the
    // height.
    MTEST_STEP(CVidParamCea::GetVidParam(0, &oPreferred, 1920, 1080, 30, CVidParamCea::eScanTypeAny));
    MTEST_PASS_ON(ReplacePreferredTiming(oEdid, oPreferred));

    MTEST_STEP(CVidParamCea::GetVidParam(0, &oPreferred, 1920, 1080, 60, CVidParamCea::eScanTypeAny));
    MTEST_PASS_ON(ReplacePreferredTiming(oEdid, oPreferred));
    return 1;
}

int Test_ExtDetailed() { return RunExtDetailed(GetExtDetailedData()); }
