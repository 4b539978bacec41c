// Suite 7: an HDMI code removed from a vendor block by merged index.

#include "CEdidTestSuites.h"
#include "Edid.h"

namespace
{
// The video data block also names the codes 7 and 22, which have no timing.
constexpr std::array<STimingData, 29> g_auiStandard2Timing = { {
    // base block
    DmtRow(1280, 1024, 60),
    DmtRow(800, 600, 60),
    DmtRow(1024, 768, 60),
    DmtRow(1440, 900, 60, CVidParamDmt::eModeListStandard),
    // video data block
    CeaRow(640, 480, 60, 1),
    CeaRow(640, 480, 59, 1001),
    CeaRow(720, 480, 60, 3),
    CeaRow(720, 480, 59, 1003),
    CeaRow(1280, 720, 60, 4),
    CeaRow(1280, 720, 59, 1004),
    CeaRow(1920, 1080, 30, 5),
    CeaRow(1920, 1080, 29, 1005),
    CeaRow(1920, 1080, 60, 16),
    CeaRow(1920, 1080, 59, 1016),
    CeaRow(720, 576, 50, 18),
    CeaRow(1280, 720, 50, 19),
    CeaRow(1920, 1080, 25, 20),
    CeaRow(1920, 1080, 50, 31),
    CeaRow(1920, 1080, 24, 32),
    CeaRow(1920, 1080, 23, 1032),
    CeaRow(1920, 1080, 30, 34),
    CeaRow(1920, 1080, 29, 1034),
    // HDMI vendor block
    CeaRow(3840, 2160, 30, 95),
    CeaRow(3840, 2160, 29, 1095),
    CeaRow(3840, 2160, 25, 94), // without a variant
    CeaRow(3840, 2160, 24, 93), // rows 25 and 26
    CeaRow(3840, 2160, 23, 1093),
    CeaRow(4096, 2160, 24, 98),
    CeaRow(4096, 2160, 23, 1098),
} };
constexpr std::array<STimingData, 27> g_auiStandard2Timing1 = WithoutRows<25, 26>(g_auiStandard2Timing);

constexpr unsigned int gsc_uiRemovedIndex = 25; // code 93
} // namespace

SExtStandard2Data GetExtStandard2Data()
{
    return { { &ExtStandard2::g_auiStandard2EdidData, &ExtStandard2::g_auiStandard2EdidData1 },
             { g_auiStandard2Timing, g_auiStandard2Timing1 } };
}

int RunExtStandard2(const SExtStandard2Data& oData)
{
    const CTimingTable& aoTiming = oData.m_aaoTiming[0];
    const CTimingTable& aoLeft = oData.m_aaoTiming[1];

    CEdid oEdid;
    MTEST_STEP(oEdid.SetEdidBuffer(oData.m_apaui8Image[0]->data(), 256, 0));
    MTEST_STEP(ValidateStandard(oEdid, static_cast<unsigned int>(aoTiming.size()), aoTiming.data()));
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_apaui8Image[0]->data()));
    MTEST_STEP(RemoveAndValidateStandard(gsc_uiRemovedIndex, oEdid, static_cast<unsigned int>(aoLeft.size()),
                                         aoLeft.data(), 256, oData.m_apaui8Image[1]->data()));
    return 1;
}

int Test_ExtStandard2() { return RunExtStandard2(GetExtStandard2Data()); }
