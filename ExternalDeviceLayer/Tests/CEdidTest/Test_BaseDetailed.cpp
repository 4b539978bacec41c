// Suite 3: detailed timings of the base block, removed and replaced.

#include "CEdidTestSuites.h"
#include "CEdidTestTimings.h"
#include "Edid.h"

namespace
{
constexpr std::array<tagRVideo_VidParam, 2> g_auiBaseDetailedTiming = { { gsc_oLgUltraHdBase0, gsc_oLgUltraHdBase1 } };
constexpr std::array<tagRVideo_VidParam, 1> g_auiBaseDetailedTiming1 = WithoutRows<1>(g_auiBaseDetailedTiming);

// What is left of the two timings: the preferred one.
int CheckPreferredLeft(const CEdid& oEdid, CVidParamTable aoTable)
{
    MTEST_STEP(oEdid.IsChecksumValid());
    MTEST_STEP(ValidateBaseDetailed(oEdid, static_cast<unsigned int>(aoTable.size()), aoTable.data()));
    return 1;
}
} // namespace

SBaseDetailedData GetBaseDetailedData()
{
    return { &BaseDetailed::g_auiDetailedEdidData, { g_auiBaseDetailedTiming, g_auiBaseDetailedTiming1 } };
}

int RunBaseDetailed(const SBaseDetailedData& oData)
{
    const CVidParamTable& aoTiming = oData.m_aaoTiming[0];
    const CVidParamTable& aoTiming1 = oData.m_aaoTiming[1];

    CEdid oEdid;
    const SEdidImage& aui8Image = *oData.m_paui8Image;
    MTEST_STEP(oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0));
    MTEST_STEP(ValidateBaseDetailed(oEdid, static_cast<unsigned int>(aoTiming.size()), aoTiming.data()));
    MTEST_STEP(oEdid.RemoveDetailed(1));
    MTEST_PASS_ON(CheckPreferredLeft(oEdid, aoTiming1));
    MTEST_STEP(oEdid.RemoveDetailed(0) == 0); // revision 4: the preferred timing cannot go
    MTEST_PASS_ON(CheckPreferredLeft(oEdid, aoTiming1));

    CRVidParamTiming oTiming;
    MTEST_STEP(IsPreferredTimingProtected(oEdid));
    MTEST_STEP(oEdid.CEdidBase::GetDetailed(0, &oTiming));
    const CRVidParamTiming oPreferred(aoTiming1[0], eRVideoFamily_None);
    MTEST_STEP(oEdid.CEdidBase::SetPreferredMode(&oPreferred));
    MTEST_STEP(IsPreferredTimingProtected(oEdid));
    MTEST_STEP(oEdid.CEdidBase::GetDetailed(0, &oTiming));
    MTEST_STEP(oTiming == oPreferred);
    return 1;
}

int Test_BaseDetailed() { return RunBaseDetailed(GetBaseDetailedData()); }
