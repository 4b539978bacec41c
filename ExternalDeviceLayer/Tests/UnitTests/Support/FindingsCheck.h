// What the findings about any image must keep to: fields of its map, in the order of the bytes, with words.

#pragma once

#include <string>

#include "ZorEdidCheck.h"

// Empty, or what is broken.
inline std::string CheckFindings(const CZorEdidMap& oMap)
{
    CZorEdidCheck oCheck;
    oCheck.Read(oMap, 2026);
    unsigned int uiBefore = 0;
    for (unsigned int i = 0; i < oCheck.GetCount(); ++i)
    {
        const SZorFinding& oFinding = oCheck.Get(i);
        const bool bPlace = oFinding.m_uiField < oMap.GetFieldCount() && oFinding.m_uiOffset >= uiBefore &&
                            oFinding.m_uiOffset == oMap.GetField(oFinding.m_uiField).m_uiOffset;
        if (!bPlace || *oFinding.m_pszWhat == '\0')
        {
            return "finding " + std::to_string(i) + ": " + oFinding.m_pszWhat;
        }
        uiBefore = oFinding.m_uiOffset;
    }
    return "";
}
