// Pairing the modes of two lists.

#include "ModeMatch.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "ExactTimings.h"

namespace
{
auto MakePictureKey(const SModeRow& oRow)
{
    const SZorMode& oMode = oRow.m_oMode;
    return std::make_tuple(oMode.m_uiWidth, oMode.m_uiHeight, MakeTimingKey(oMode));
}

auto Make3dKey(const SModeRow& oRow) { return std::make_tuple(oRow.m_poEntry->m_uiStereo, oRow.m_oMode.m_eStereo); }

// All that equal modes have in common; only clocks and rates may differ.
auto MakeKey(const SModeRow& oRow)
{
    return std::tuple_cat(MakePictureKey(oRow), std::make_tuple(oRow.m_oMode.m_eY420), Make3dKey(oRow));
}

// Within 1000/1001 and its rounding, which is more than two lines of a table ever differ by.
bool IsNear(double dFirst, double dSecond)
{
    constexpr double dFactor = 1001.0 / 1000 * 1.00001;
    return dFirst <= dSecond * dFactor && dSecond <= dFirst * dFactor;
}

bool AreNear(const SModeRow& oFirst, const SModeRow& oSecond)
{
    return IsNear(GetRate(oFirst.m_oMode), GetRate(oSecond.m_oMode));
}

long GetRoundedRate(const SModeRow& oRow) { return std::lround(GetRate(oRow.m_oMode) * 100); }

using CKey = decltype(MakeKey(std::declval<const SModeRow&>()));
using CClass = std::tuple<SZorMode::EModeKind, unsigned long long, double>; // kind of field, clock, rate

CClass MakeClass(const SModeRow& oRow)
{
    return { oRow.m_oMode.m_eKind, oRow.m_oMode.m_ullClock, GetRate(oRow.m_oMode) };
}

bool IsSameKind(const CClass& oFirst, const CClass& oSecond) { return std::get<0>(oFirst) == std::get<0>(oSecond); }

bool IsSameClock(const CClass& oFirst, const CClass& oSecond)
{
    return std::get<1>(oFirst) == std::get<1>(oSecond) && std::get<2>(oFirst) == std::get<2>(oSecond);
}

using CAccepts = bool (*)(const CClass& oFirst, const CClass& oSecond);
constexpr CAccepts gsc_apfnPasses[] = {
    [](const CClass& oFirst, const CClass& oSecond) { return oFirst == oSecond; },
    IsSameClock,
    IsSameKind,
    [](const CClass&, const CClass&) { return true; },
};

// Rates to two decimals, by all else that equal modes have in common.
std::set<std::pair<CKey, long>> ListRates(const std::vector<SModeRow>& aoRows)
{
    std::set<std::pair<CKey, long>> oRates;
    for (const SModeRow& oRow : aoRows)
    {
        oRates.emplace(MakeKey(oRow), GetRoundedRate(oRow));
    }
    return oRates;
}

std::vector<bool> FindShared(const std::vector<SModeRow>& aoRows, const std::vector<SModeRow>& aoOther)
{
    const std::set<std::pair<CKey, long>> oOther = ListRates(aoOther);
    std::vector<bool> abShared;
    abShared.reserve(aoRows.size());
    for (const SModeRow& oRow : aoRows)
    {
        abShared.push_back(oOther.contains({ MakeKey(oRow), GetRoundedRate(oRow) }));
    }
    return abShared;
}

// Pairs modes. An image may announce one mode ten thousand times: modes that all passes treat alike are a class, and a
// mode looks for a partner among classes.
class CMatch
{
public:
    CMatch(const std::vector<SModeRow>& aoFirst, const std::vector<SModeRow>& aoSecond)
        : m_aoFirst(aoFirst), m_aoSecond(aoSecond), m_oPairs{ { std::vector<size_t>(aoFirst.size(), gsc_uiNoPartner),
                                                                std::vector<size_t>(aoSecond.size(), gsc_uiNoPartner) },
                                                              {} }
    {
        for (size_t i = 0; i < aoSecond.size(); ++i)
        {
            m_oFree[MakeKey(aoSecond[i])][MakeClass(aoSecond[i])].m_auiRows.push_back(i);
        }
    }

    SModePairs Match()
    {
        PairPreferred();
        for (const CAccepts pfnAccepts : gsc_apfnPasses)
        {
            for (size_t i = 0; i < m_aoFirst.size(); ++i)
            {
                if (m_oPairs.HasNoPartner(0, i))
                {
                    PairFirst(i, pfnAccepts);
                }
            }
        }
        m_oPairs.m_aabShared = { FindShared(m_aoFirst, m_aoSecond), FindShared(m_aoSecond, m_aoFirst) };
        return std::move(m_oPairs);
    }

private:
    struct SFree
    {
        std::vector<size_t> m_auiRows; // of the second list
        size_t m_uiNext = 0;           // those before it have partners
    };

    void Pair(size_t uiFirst, size_t uiSecond)
    {
        m_oPairs.m_aauiPartners[0][uiFirst] = uiSecond;
        m_oPairs.m_aauiPartners[1][uiSecond] = uiFirst;
    }

    void PairPreferred()
    {
        const auto itFirst = std::ranges::find_if(m_aoFirst, &SModeRow::IsPreferred);
        const auto itSecond = std::ranges::find_if(m_aoSecond, &SModeRow::IsPreferred);
        if (itFirst != m_aoFirst.end() && itSecond != m_aoSecond.end() && IsSameMode(*itFirst, *itSecond))
        {
            Pair(static_cast<size_t>(itFirst - m_aoFirst.begin()), static_cast<size_t>(itSecond - m_aoSecond.begin()));
        }
    }

    // The first row of a class that has no partner yet; gsc_uiNoPartner for none.
    size_t FindNext(SFree& oFree) const
    {
        while (oFree.m_uiNext < oFree.m_auiRows.size() && !m_oPairs.HasNoPartner(1, oFree.m_auiRows[oFree.m_uiNext]))
        {
            ++oFree.m_uiNext;
        }
        return oFree.m_uiNext < oFree.m_auiRows.size() ? oFree.m_auiRows[oFree.m_uiNext] : gsc_uiNoPartner;
    }

    void PairFirst(size_t uiFirst, CAccepts pfnAccepts)
    {
        const SModeRow& oRow = m_aoFirst[uiFirst];
        const auto itClasses = m_oFree.find(MakeKey(oRow));
        if (itClasses == m_oFree.end())
        {
            return;
        }
        size_t uiPartner = gsc_uiNoPartner; // the largest number
        for (auto& [oClass, oFree] : itClasses->second)
        {
            const size_t uiNext = pfnAccepts(MakeClass(oRow), oClass) ? FindNext(oFree) : gsc_uiNoPartner;
            if (uiNext < uiPartner && AreNear(oRow, m_aoSecond[uiNext]))
            {
                uiPartner = uiNext;
            }
        }
        if (uiPartner != gsc_uiNoPartner)
        {
            Pair(uiFirst, uiPartner);
        }
    }

    const std::vector<SModeRow>& m_aoFirst;
    const std::vector<SModeRow>& m_aoSecond;
    SModePairs m_oPairs;
    std::map<CKey, std::map<CClass, SFree>> m_oFree;
};

// Moves pairs whose keys and rates are equal out of the two lists.
template <class MAKE_KEY>
void TakePairs(MAKE_KEY fnKey, std::vector<const SModeRow*>& apoFirst, std::vector<const SModeRow*>& apoSecond,
               std::vector<CRowPair>& apoPairs)
{
    const auto fnRateKey = [&](const SModeRow* poRow) { return std::pair(fnKey(*poRow), GetRoundedRate(*poRow)); };
    std::map<decltype(fnRateKey(nullptr)), std::vector<const SModeRow*>> apoFree;
    for (auto itRow = apoSecond.rbegin(); itRow != apoSecond.rend(); ++itRow)
    {
        apoFree[fnRateKey(*itRow)].push_back(*itRow);
    }
    std::set<const SModeRow*> apoTaken;
    for (const SModeRow* poRow : apoFirst)
    {
        const auto itFree = apoFree.find(fnRateKey(poRow));
        if (itFree != apoFree.end() && !itFree->second.empty())
        {
            apoPairs.emplace_back(poRow, itFree->second.back());
            apoTaken.insert({ poRow, itFree->second.back() });
            itFree->second.pop_back();
        }
    }
    const auto fnIsTaken = [&](const SModeRow* poRow) { return apoTaken.contains(poRow); };
    std::erase_if(apoFirst, fnIsTaken);
    std::erase_if(apoSecond, fnIsTaken);
}
} // namespace

bool IsSameMode(const SModeRow& oFirst, const SModeRow& oSecond)
{
    return MakeKey(oFirst) == MakeKey(oSecond) && AreNear(oFirst, oSecond);
}

SModePairs MatchModes(const CImageModes& oFirst, const CImageModes& oSecond)
{
    return CMatch(oFirst.GetRows(), oSecond.GetRows()).Match();
}

std::vector<CRowPair> PairButForms(std::vector<const SModeRow*> apoFirst, std::vector<const SModeRow*> apoSecond)
{
    std::vector<CRowPair> apoPairs;
    const auto fnBut3d = [](const SModeRow& oRow) { return std::pair(MakePictureKey(oRow), oRow.m_oMode.m_eY420); };
    const auto fnBut420 = [](const SModeRow& oRow) { return std::pair(MakePictureKey(oRow), Make3dKey(oRow)); };
    TakePairs(fnBut3d, apoFirst, apoSecond, apoPairs);
    TakePairs(fnBut420, apoFirst, apoSecond, apoPairs);
    TakePairs(MakePictureKey, apoFirst, apoSecond, apoPairs);
    std::ranges::sort(apoPairs); // in the order of the rows
    return apoPairs;
}

bool DifferIn420(const CRowPair& apoPair) { return apoPair.first->m_oMode.m_eY420 != apoPair.second->m_oMode.m_eY420; }

bool DifferIn3d(const CRowPair& apoPair) { return Make3dKey(*apoPair.first) != Make3dKey(*apoPair.second); }
