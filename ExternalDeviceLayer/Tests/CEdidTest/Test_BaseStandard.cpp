// Suite 2: the serial number and the standard timings of the base block, edited.

#include "CEdidTestSuites.h"
#include "Edid.h"

namespace
{
constexpr std::array<STimingData, 4> g_auiBaseStandardTiming = { {
    DmtRow(1280, 720, 60),
    DmtRow(1280, 960, 60),
    DmtRow(1440, 900, 60, CVidParamDmt::eModeListStandard),
    DmtRow(1920, 1080, 60),
} };
constexpr std::array<STimingData, 3> g_auiBaseStandardTiming1 = WithoutRows<0>(g_auiBaseStandardTiming);
constexpr std::array<STimingData, 2> g_auiBaseStandardTiming2 = WithoutRows<0, 1>(g_auiBaseStandardTiming);

unsigned int ReadSerialNumber(const CEdid& oEdid)
{
    return ReadLittleEndian(oEdid.GetBaseBlock() + gsc_uiSerialOffset, sizeof(unsigned int));
}

bool HasSlotTiming(const CEdid& oEdid, unsigned int uiSlot)
{
    CVidParamTimingGeneric oTiming;
    return oEdid.GetBaseStandard(static_cast<CEdidBase::EStandardSlotIndex>(uiSlot), &oTiming, nullptr) != 0;
}

// The first uiUsed slots hold a timing, the others none.
bool AreSlotsInFront(const CEdid& oEdid, unsigned int uiUsed)
{
    for (unsigned int uiSlot = 0; uiSlot < CEdidBase::msc_uiStandardSlotCount; ++uiSlot)
    {
        if (HasSlotTiming(oEdid, uiSlot) != (uiSlot < uiUsed))
        {
            return false;
        }
    }
    return true;
}

int Test_BaseManipulation(const SEdidImage& aui8Image)
{
    CEdid oEdid;
    MTEST_STEP(LoadCopy(oEdid, aui8Image));
    MTEST_STEP(ReadSerialNumber(oEdid) == 0x2397F);
    oEdid.SetSerialNumber(0x12345678);
    MTEST_STEP(ReadSerialNumber(oEdid) == 0x12345678);
    MTEST_STEP(oEdid.IsChecksumValid());
    return 1;
}

// Removes the first standard timing: the pairs after it move to the front.
int RemoveFirstStandard(CEdid& oEdid, CTimingTable aoLeft)
{
    const unsigned int uiLeft = static_cast<unsigned int>(aoLeft.size());
    MTEST_STEP(oEdid.RemoveStandard(0));
    MTEST_STEP(oEdid.IsChecksumValid());
    MTEST_STEP(oEdid.GetBaseStandardCount() == uiLeft);
    MTEST_STEP(AreSlotsInFront(oEdid, uiLeft));
    MTEST_STEP(ValidateBaseStandard(oEdid, uiLeft, aoLeft.data()));
    return 1;
}

int Test_BaseTimingStandard(const SBaseStandardData& oData)
{
    const CTimingTable& aoTiming = oData.m_aaoTiming[0];

    CEdid oEdid;
    const SEdidImage& aui8Image = *oData.m_paui8StandardImage;
    MTEST_STEP(oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0));
    MTEST_STEP(ValidateBaseStandard(oEdid, static_cast<unsigned int>(aoTiming.size()), aoTiming.data()));
    for (unsigned int uiEmptySlot : { 0U, 3U, 5U, 7U })
    {
        MTEST_STEP(!HasSlotTiming(oEdid, uiEmptySlot));
    }
    for (unsigned int uiUsedSlot : { 1U, 2U, 4U, 6U })
    {
        MTEST_STEP(HasSlotTiming(oEdid, uiUsedSlot));
    }
    MTEST_PASS_ON(RemoveFirstStandard(oEdid, oData.m_aaoTiming[1]));
    MTEST_PASS_ON(RemoveFirstStandard(oEdid, oData.m_aaoTiming[2]));
    return 1;
}
} // namespace

SBaseStandardData GetBaseStandardData()
{
    return { &AsusHd::g_auiAsusHdEdidData,
             &BaseStandard::g_auiBaseStandardEdidData,
             { g_auiBaseStandardTiming, g_auiBaseStandardTiming1, g_auiBaseStandardTiming2 } };
}

int RunBaseStandard(const SBaseStandardData& oData)
{
    MTEST_STEP(Test_BaseManipulation(*oData.m_paui8SerialImage));
    MTEST_STEP(Test_BaseTimingStandard(oData));
    return 1;
}

int Test_BaseStandard() { return RunBaseStandard(GetBaseStandardData()); }
