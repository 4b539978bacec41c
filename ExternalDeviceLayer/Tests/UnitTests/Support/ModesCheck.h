// The promise of the list of modes, for tests and fuzz targets: it has the modes that the fields of the map announce,
// each once, and no other.

#pragma once

#include <stdio.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>

#include "Standards/ExtensionBlocks.h"
#include "ZorEdidMap.h"
#include "ZorEdidModes.h"

// bTiming: with its clock and totals, which the map has of bytes and tables only.
inline std::string DescribeMode(EZorEdidField eId, unsigned int uiOffset, unsigned int uiRank, const SZorMode& oMode,
                                bool bTiming)
{
    char szText[200];
    snprintf(szText, sizeof(szText), "%s at %u, %u: %u x %u%s, kind %u code %u, 4:2:0 %u, %llu of %u x %u\n",
             CZorEdidMap::GetId(eId), uiOffset, uiRank, oMode.m_uiWidth, oMode.m_uiHeight,
             oMode.m_bInterlaced ? " interlaced" : "", oMode.m_eKind, oMode.m_uiCode,
             oMode.m_eY420 == SZorMode::eY420_Only ? 1U : 0U, bTiming ? oMode.m_ullClock : 0,
             bTiming ? oMode.m_oHorizontal.m_uiTotal : 0, bTiming ? oMode.m_oVertical.m_uiTotal : 0);
    return szText;
}

// What only one of them has; empty for nothing.
inline std::string CheckModes(const CZorEdidModes& oModes, const CZorEdidMap& oMap)
{
    std::multiset<std::string> asListed;
    std::multiset<std::string> asMapped;
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorImageMode& oMode = oModes.Get(i);
        const bool bTiming =
            oMode.m_eNumbers == SZorImageMode::eNumbers_Bytes || oMode.m_eNumbers == SZorImageMode::eNumbers_Table;
        asListed.insert(DescribeMode(oMode.m_eField, oMode.m_uiOffset, oMode.m_uiRank, oMode.m_oMode, bTiming));
    }
    const unsigned int uiBlocks = ZorStandards::CountExtensions(oMap.GetData(), oMap.GetSize());
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        SZorMode oMode;
        for (unsigned int uiRank = 0;
             oField.m_uiOffset / ZorStandards::gsc_uiBlockSize <= uiBlocks && oMap.GetMode(i, oMode, uiRank); ++uiRank)
        {
            // A bit of a capability map or of 3D refers to a code of another field.
            const bool bReference = oMode.m_bReference || oField.m_eId == eZorEdidField_Cta420MapVic;
            if (!bReference)
            {
                asMapped.insert(DescribeMode(oField.m_eId, oField.m_uiOffset, uiRank, oMode, oMode.m_bTiming));
            }
        }
    }
    // Of one map of places that selects some of the codes: these are the ones that the modes are marked by.
    std::multiset<std::string> asAlso;
    std::multiset<std::string> asSelected;
    unsigned int uiMaps = 0;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        SZorMode oMode;
        const bool bCounted = oField.m_uiOffset / ZorStandards::gsc_uiBlockSize <= uiBlocks;
        uiMaps += bCounted && oField.m_eId == eZorEdidField_Cta420Map ? 1U : 0U;
        if (bCounted && oField.m_eId == eZorEdidField_Cta420MapVic && oField.m_llNumber != 0 && oMap.GetMode(i, oMode))
        {
            asSelected.insert("4:2:0 code " + std::to_string(oMode.m_uiCode) + "\n");
        }
    }
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorImageMode& oMode = oModes.Get(i);
        if (oMode.m_eField == eZorEdidField_CtaVideoDescriptor && oMode.m_oMode.m_eY420 == SZorMode::eY420_Also)
        {
            asAlso.insert("4:2:0 code " + std::to_string(oMode.m_oMode.m_uiCode) + "\n");
        }
    }
    std::string sDifferences;
    const auto fnAdd = [&](const char* pszWho, const auto& asOne, const auto& asOther) {
        std::multiset<std::string> asOnly;
        std::ranges::set_difference(asOne, asOther, std::inserter(asOnly, asOnly.end()));
        for (const std::string& sOne : asOnly)
        {
            sDifferences += pszWho + sOne;
        }
    };
    fnAdd("listed: ", asListed, asMapped);
    fnAdd("in the map: ", asMapped, asListed);
    if (uiMaps == 1 && !asSelected.empty())
    {
        fnAdd("marked: ", asAlso, asSelected);
        fnAdd("selected: ", asSelected, asAlso);
    }
    return sDifferences;
}
