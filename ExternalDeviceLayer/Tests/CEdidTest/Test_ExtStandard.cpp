// Suite 6: short video descriptors removed by merged index. Each gives two timings, the code and its 1000/1001 variant;
// removing either takes the one byte out, and both timings with it.

#include "CEdidTestSuites.h"
#include "Edid.h"

namespace
{
constexpr std::array<STimingData, 14> g_auiStandardTiming = { {
    // base block
    GtfRow(1152, 864, 60),
    DmtRow(1280, 1024, 60),
    DmtRow(1280, 720, 60),
    DmtRow(1600, 900, 60, CVidParamDmt::eModeListReducedBlanking),
    DmtRow(1920, 1080, 60),
    DmtRow(1280, 800, 60, CVidParamDmt::eModeListStandard),
    // extension block
    CeaRow(1920, 1080, 60, 16), // rows 6 and 7
    CeaRow(1920, 1080, 59, 1016),
    CeaRow(1280, 720, 60, 4), // rows 8 and 9
    CeaRow(1280, 720, 59, 1004),
    CeaRow(720, 480, 60, 3), // rows 10 and 11
    CeaRow(720, 480, 59, 1003),
    CeaRow(640, 480, 60, 1), // rows 12 and 13
    CeaRow(640, 480, 59, 1001),
} };
constexpr auto g_auiStandardTiming1 = WithoutRows<6, 7>(g_auiStandardTiming);
constexpr auto g_auiStandardTiming2 = WithoutRows<6, 7, 10, 11>(g_auiStandardTiming);
constexpr auto g_auiStandardTiming3 = WithoutRows<6, 7, 8, 9, 10, 11>(g_auiStandardTiming);
constexpr auto g_auiStandardTiming4 = WithoutRows<6, 7, 8, 9, 10, 11, 12, 13>(g_auiStandardTiming);

// Codes 1016, 3, 4 and 1, in this order.
constexpr std::array<unsigned int, 4> gsc_auiRemovedIndex = { 7, 8, 6, 6 };
} // namespace

SExtStandardData GetExtStandardData()
{
    return { { &ExtStandard::g_auiStandardEdidData, &ExtStandard::g_auiStandardEdidData1,
               &ExtStandard::g_auiStandardEdidData2, &ExtStandard::g_auiStandardEdidData3,
               &ExtStandard::g_auiStandardEdidData4 },
             { g_auiStandardTiming, g_auiStandardTiming1, g_auiStandardTiming2, g_auiStandardTiming3,
               g_auiStandardTiming4 } };
}

int RunExtStandard(const SExtStandardData& oData)
{
    const CTimingTable& aoTiming = oData.m_aaoTiming[0];

    CEdid oEdid;
    MTEST_STEP(oEdid.SetEdidBuffer(oData.m_apaui8Image[0]->data(), 256, 0));
    MTEST_STEP(ValidateStandard(oEdid, static_cast<unsigned int>(aoTiming.size()), aoTiming.data()));
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_apaui8Image[0]->data()));
    for (unsigned int i = 0; i < gsc_auiRemovedIndex.size(); ++i)
    {
        const CTimingTable& aoLeft = oData.m_aaoTiming[i + 1];
        MTEST_STEP(RemoveAndValidateStandard(gsc_auiRemovedIndex[i], oEdid, static_cast<unsigned int>(aoLeft.size()),
                                             aoLeft.data(), 256, oData.m_apaui8Image[i + 1]->data()));
    }
    return 1;
}

int Test_ExtStandard() { return RunExtStandard(GetExtStandardData()); }
