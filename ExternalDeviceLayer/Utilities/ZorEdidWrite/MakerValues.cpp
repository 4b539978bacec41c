// The ranges of single wishes.

#include "MakerValues.h"

#include <algorithm>
#include <iterator>

#include "Standards/BaseBlock.h"
#include "Standards/HdmiBlocks.h"

namespace ZorWrite
{
namespace
{
using namespace ZorStandards;

bool IsMaker(const CMString& sMaker)
{
    bool bLetters = sMaker.GetLength() == BaseBlock::gsc_uiManufacturerLetters;
    for (int i = 0; i < sMaker.GetLength(); ++i)
    {
        bLetters = bLetters && sMaker.GetAt(i) >= 'A' && sMaker.GetAt(i) <= 'Z';
    }
    return bLetters;
}

CMString CheckIdentity(const SZorEdidWishes& oWishes)
{
    constexpr unsigned int uiMostProduct = 0xFFFF;
    CMString sReason;
    if (oWishes.m_sMaker.GetLength() != 0 && !IsMaker(oWishes.m_sMaker))
    {
        return "'" + oWishes.m_sMaker + "' is not three capital letters such as ABC";
    }
    if (oWishes.m_uiProduct > uiMostProduct)
    {
        sReason.Format("%u is not a product code from 0 to %u", oWishes.m_uiProduct, uiMostProduct);
    }
    return sReason;
}

CMString CheckDate(const SZorEdidWishes& oWishes)
{
    constexpr unsigned int uiFirstYear = 2006; // of E-EDID 1.4
    constexpr unsigned int uiLastYear = BaseBlock::gsc_uiFirstYear + 0xFF;
    constexpr unsigned int uiMostWeek = 53;
    const unsigned int uiYear = oWishes.m_uiYear;
    const unsigned int uiWeek = oWishes.m_uiWeek;
    CMString sReason;
    if (uiYear != 0 && (uiYear < uiFirstYear || uiYear > uiLastYear))
    {
        sReason.Format("%u is not a year from %u to %u", uiYear, uiFirstYear, uiLastYear);
    }
    else if (uiWeek > uiMostWeek || (uiWeek != 0 && uiYear == 0))
    {
        sReason.Format("%u is not a week from 1 to %u of a year", uiWeek, uiMostWeek);
    }
    return sReason;
}

CMString CheckPicture(const SZorEdidWishes& oWishes)
{
    constexpr unsigned int uiMostSize = 2550;
    constexpr unsigned int uiLeastSize = 10;
    constexpr unsigned int auiDepths[] = { 0, 8, 10, 12 };
    const auto fnIsSize = [](unsigned int uiSize) { return uiSize >= uiLeastSize && uiSize <= uiMostSize; };
    const unsigned int uiWidth = oWishes.m_uiWidthInMm;
    const unsigned int uiHeight = oWishes.m_uiHeightInMm;
    CMString sReason;
    if ((uiWidth != 0 || uiHeight != 0) && (!fnIsSize(uiWidth) || !fnIsSize(uiHeight)))
    {
        sReason.Format("%ux%u is not a size of %u to %u mm in each direction", uiWidth, uiHeight, uiLeastSize,
                       uiMostSize);
    }
    else if (std::ranges::find(auiDepths, oWishes.m_uiColorDepth) == std::end(auiDepths))
    {
        sReason.Format("%u is not a colour depth of 8, 10 or 12 bits", oWishes.m_uiColorDepth);
    }
    return sReason;
}

CMString CheckLink(const SZorEdidWishes& oWishes)
{
    constexpr unsigned int uiLeastTmds = 25;
    constexpr unsigned int uiMostTmds = HdmiForum::gsc_uiMostTmdsInMegaHz;
    constexpr unsigned int uiMostFrl = std::size(HdmiForum::gsc_aoFrlRates) - 1;
    const unsigned int uiTmds = oWishes.m_uiMaxTmds;
    CMString sReason;
    if (uiTmds != 0 && (uiTmds < uiLeastTmds || uiTmds > uiMostTmds))
    {
        sReason.Format("%u is not a TMDS clock from %u to %u MHz", uiTmds, uiLeastTmds, uiMostTmds);
    }
    else if (oWishes.m_uiFrl > uiMostFrl)
    {
        sReason.Format("%u is not an FRL rate from 1 to %u", oWishes.m_uiFrl, uiMostFrl);
    }
    else if (oWishes.HasVrr() && (oWishes.m_uiVrrMin == 0 || oWishes.m_uiVrrMax <= oWishes.m_uiVrrMin))
    {
        sReason.Format("%u-%u is not a range of rates such as 48-144", oWishes.m_uiVrrMin, oWishes.m_uiVrrMax);
    }
    return sReason;
}
} // namespace

CMString CheckValues(const SZorEdidWishes& oWishes)
{
    CMString sReason = CheckIdentity(oWishes);
    sReason = sReason.GetLength() != 0 ? sReason : CheckDate(oWishes);
    sReason = sReason.GetLength() != 0 ? sReason : CheckPicture(oWishes);
    return sReason.GetLength() != 0 ? sReason : CheckLink(oWishes);
}
} // namespace ZorWrite
