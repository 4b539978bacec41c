// Pairing the modes of two lists.

#include "ModeMatch.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>
#include <utility>

namespace
{
// All that equal modes have in common; only clocks and rates may differ.
auto MakeKey(const SModeRow& oRow)
{
    const SZorMode& oMode = oRow.m_oMode;
    const auto fnAxis = [&oMode](const SZorMode::SAxis& oAxis) {
        return oMode.m_bTiming ? std::make_tuple(oAxis.m_uiActive, oAxis.m_uiFront, oAxis.m_uiSync, oAxis.m_uiTotal,
                                                 oAxis.m_bPositive)
                               : std::make_tuple(0U, 0U, 0U, 0U, false);
    };
    return std::make_tuple(oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_bInterlaced, oMode.m_bTiming,
                           fnAxis(oMode.m_oHorizontal), fnAxis(oMode.m_oVertical), oMode.m_eY420,
                           oRow.m_poEntry->m_uiStereo, oMode.m_eStereo);
}

// Within 1000/1001 and its rounding, which is more than two lines of a table ever differ by.
bool IsNear(double dFirst, double dSecond)
{
    constexpr double dFactor = 1001.0 / 1000 * 1.00001;
    return dFirst <= dSecond * dFactor && dSecond <= dFirst * dFactor;
}

bool IsSameClock(const SModeRow& oFirst, const SModeRow& oSecond)
{
    return oFirst.m_oMode.m_ullClock == oSecond.m_oMode.m_ullClock &&
           GetRate(oFirst.m_oMode) == GetRate(oSecond.m_oMode);
}

bool IsSameKind(const SModeRow& oFirst, const SModeRow& oSecond)
{
    return oFirst.m_oMode.m_eKind == oSecond.m_oMode.m_eKind;
}

using CAccepts = bool (*)(const SModeRow& oFirst, const SModeRow& oSecond);
constexpr CAccepts gsc_apfnPasses[] = {
    [](const SModeRow& oFirst, const SModeRow& oSecond) { return oFirst.IsPreferred() && oSecond.IsPreferred(); },
    [](const SModeRow& oFirst, const SModeRow& oSecond) {
        return IsSameClock(oFirst, oSecond) && IsSameKind(oFirst, oSecond);
    },
    IsSameClock,
    IsSameKind,
    [](const SModeRow&, const SModeRow&) { return true; },
};
} // namespace

bool IsSameMode(const SModeRow& oFirst, const SModeRow& oSecond)
{
    return MakeKey(oFirst) == MakeKey(oSecond) && IsNear(GetRate(oFirst.m_oMode), GetRate(oSecond.m_oMode));
}

SModePairs MatchModes(const CImageModes& oFirst, const CImageModes& oSecond)
{
    const std::vector<SModeRow>& aoFirst = oFirst.GetRows();
    const std::vector<SModeRow>& aoSecond = oSecond.GetRows();
    SModePairs oPairs = { { std::vector<size_t>(aoFirst.size(), gsc_uiNoPartner),
                            std::vector<size_t>(aoSecond.size(), gsc_uiNoPartner) } };
    std::map<decltype(MakeKey(std::declval<const SModeRow&>())), std::vector<size_t>> aoFree; // of the second list
    for (size_t i = 0; i < aoSecond.size(); ++i)
    {
        aoFree[MakeKey(aoSecond[i])].push_back(i);
    }
    std::vector<std::vector<size_t>*> apauiFree; // the free entries that each of the first list may take
    std::ranges::transform(aoFirst, std::back_inserter(apauiFree),
                           [&](const SModeRow& oRow) { return &aoFree[MakeKey(oRow)]; });
    for (const CAccepts pfnAccepts : gsc_apfnPasses)
    {
        for (size_t i = 0; i < aoFirst.size(); ++i)
        {
            if (!oPairs.IsOnlyHere(0, i))
            {
                continue;
            }
            const auto itPartner = std::ranges::find_if(*apauiFree[i], [&](size_t uiSecond) {
                return pfnAccepts(aoFirst[i], aoSecond[uiSecond]) &&
                       IsNear(GetRate(aoFirst[i].m_oMode), GetRate(aoSecond[uiSecond].m_oMode));
            });
            if (itPartner != apauiFree[i]->end())
            {
                oPairs.m_aauiPartners[0][i] = *itPartner;
                oPairs.m_aauiPartners[1][*itPartner] = i;
                apauiFree[i]->erase(itPartner);
            }
        }
    }
    return oPairs;
}
