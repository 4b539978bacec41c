// Pairing the modes of two lists.

#include "ModeMatch.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>

namespace
{
// All that equal modes have in common; only clocks and line rates may differ.
auto MakeKey(const SImageMode& oMode)
{
    const CVidParamTimingGeneric& oTiming = oMode.m_oTiming;
    return std::make_tuple(oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
                           oTiming.GetHorizontalFrontPorch(), oTiming.GetHorizontalSync(),
                           oTiming.GetHorizontalBackPorch(), oTiming.GetVerticalFrontPorch(), oTiming.GetVerticalSync(),
                           oTiming.GetVerticalBackPorch(), oTiming.GetVerticalRateInHz(), oMode.m_uiRate,
                           oMode.m_bFractionToo, oMode.m_uiOtherCode);
}

bool IsSameClock(const SImageMode& oFirst, const SImageMode& oSecond)
{
    return oFirst.m_oTiming.GetPixelClockInHz() == oSecond.m_oTiming.GetPixelClockInHz();
}

bool IsSameList(const SImageMode& oFirst, const SImageMode& oSecond) { return oFirst.m_eList == oSecond.m_eList; }

using CAccepts = bool (*)(const SImageMode& oFirst, const SImageMode& oSecond);
constexpr CAccepts gsc_apfnPasses[] = {
    [](const SImageMode& oFirst, const SImageMode& oSecond) { return oFirst.m_bPreferred && oSecond.m_bPreferred; },
    [](const SImageMode& oFirst, const SImageMode& oSecond) {
        return IsSameClock(oFirst, oSecond) && IsSameList(oFirst, oSecond);
    },
    IsSameClock,
    IsSameList,
    [](const SImageMode&, const SImageMode&) { return true; },
};
} // namespace

SModePairs MatchModes(const CModes& aoFirst, const CModes& aoSecond)
{
    SModePairs oPairs = { { std::vector<size_t>(aoFirst.size(), gsc_uiNoPartner),
                            std::vector<size_t>(aoSecond.size(), gsc_uiNoPartner) } };
    std::map<decltype(MakeKey(SImageMode())), std::vector<size_t>> aoFree; // of the second list
    for (size_t i = 0; i < aoSecond.size(); ++i)
    {
        aoFree[MakeKey(aoSecond[i])].push_back(i);
    }
    std::vector<std::vector<size_t>*> apauiFree; // the free entries that each of the first list may take
    std::ranges::transform(aoFirst, std::back_inserter(apauiFree),
                           [&](const SImageMode& oMode) { return &aoFree[MakeKey(oMode)]; });
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
                       (aoFirst[i].m_oTiming == aoSecond[uiSecond].m_oTiming) != 0;
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
