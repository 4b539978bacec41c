// What the findings about any image must keep to: fields of its map, with words, in their order.

#pragma once

#include <climits>
#include <string>
#include <tuple>

#include "ZorEdidCheck.h"

// Empty, or what is broken.
inline std::string CheckFindings(const CZorEdidMap& oMap)
{
    CZorEdidCheck oCheck;
    oCheck.Read(oMap, 2026);
    std::tuple<bool, int, unsigned int> oBefore(false, INT_MIN, 0);
    for (unsigned int i = 0; i < oCheck.GetCount(); ++i)
    {
        const SZorFinding& oFinding = oCheck.Get(i);
        const std::tuple oOwn(IsZorEdidRuleOfLibrary(oFinding.m_eRule), -static_cast<int>(oFinding.m_eSeverity),
                              oFinding.m_uiOffset);
        const bool bPlace = oFinding.m_uiField < oMap.GetFieldCount() && oOwn >= oBefore &&
                            oFinding.m_uiOffset == oMap.GetField(oFinding.m_uiField).m_uiOffset;
        if (!bPlace || *oFinding.m_pszWhat == '\0')
        {
            return "finding " + std::to_string(i) + ": " + oFinding.m_pszWhat;
        }
        oBefore = oOwn;
    }
    return "";
}
