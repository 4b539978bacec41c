// Suite 8: the colour depth of the base block and that of the HDMI vendor block are two values; the base block refuses
// its own below revision 4.

#include "CEdidTestSuites.h"
#include "Edid.h"

namespace
{
constexpr unsigned int gsc_uiDeepColor36And30 = 3; // depth bits of a vendor block: 36 and 30 bits for each pixel

bool HasRevision(const CEdid& oEdid, unsigned int uiRevision)
{
    const unsigned char* const pui8Base = oEdid.GetBaseBlock();
    return pui8Base[gsc_uiVersionOffset] == 1 && pui8Base[gsc_uiRevisionOffset] == uiRevision;
}

int CheckBaseDepth(const CEdid& oEdid, CEdidBase::EColorBitDepth eExpected)
{
    CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthReserved;
    MTEST_STEP(oEdid.GetColorBitDepth(eDepth));
    MTEST_STEP(eDepth == eExpected);
    return 1;
}

int CheckBlockDepth(CEdidExtBlock& oBlock, unsigned int uiExpected)
{
    unsigned int uiBits = 0;
    MTEST_STEP(oBlock.GetColorBitDepthSupport(uiBits));
    MTEST_STEP(uiBits == uiExpected);
    return 1;
}
} // namespace

SColorBitDepthData GetColorBitDepthData()
{
    return { &ColorBitDepth::g_auiColorBitDepthEdidData, &ColorBitDepth::g_auiColorBitDepthEdidData1 };
}

int RunColorBitDepth(const SColorBitDepthData& oData)
{
    CEdid oEdid;
    MTEST_STEP(LoadCopy(oEdid, *oData.m_paui8Image));
    MTEST_STEP(HasRevision(oEdid, 4));
    MTEST_PASS_ON(CheckBaseDepth(oEdid, CEdidBase::eColorBitDepth8));
    MTEST_STEP(oEdid.SetColorBitDepth(CEdidBase::eColorBitDepth10));
    MTEST_PASS_ON(CheckBaseDepth(oEdid, CEdidBase::eColorBitDepth10));

    MTEST_STEP(oEdid.GetExtensionCount() == 1);
    CEdidExtBlock* const poBlock = oEdid.GetExtension(0);
    MTEST_STEP(poBlock != nullptr);
    MTEST_PASS_ON(CheckBlockDepth(*poBlock, 0)); // the vendor block of the image declares no deep colour
    MTEST_STEP(poBlock->SetColorBitDepthSupport(gsc_uiDeepColor36And30));
    MTEST_PASS_ON(CheckBlockDepth(*poBlock, gsc_uiDeepColor36And30));

    MTEST_STEP(oEdid.ClearEdidBuffer());
    MTEST_STEP(LoadCopy(oEdid, *oData.m_paui8Revision3Image));
    MTEST_STEP(HasRevision(oEdid, 3));
    CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthReserved;
    MTEST_STEP(oEdid.GetColorBitDepth(eDepth) == 0);
    MTEST_STEP(oEdid.SetColorBitDepth(CEdidBase::eColorBitDepth10) == 0);
    return 1;
}

int Test_ColorBitDepth() { return RunColorBitDepth(GetColorBitDepthData()); }
