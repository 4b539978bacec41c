// What the repair of any image must keep to: it changes what it names, what it names is right afterwards, it causes no
// finding but those of blocks that it counts, and there is nothing left for a second one.

#pragma once

#include <algorithm>
#include <set>
#include <string>

#include "TestBytes.h"
#include "ZorEdidCheck.h"
#include "ZorEdidRepair.h"

// Whether a note of the rule is left where the repair was.
inline bool HasNoteOf(const CZorEdidMap& oMap, const SZorRepair& oRepair)
{
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(i);
        if (oNote.m_eRule == oRepair.m_eRule && oMap.GetField(oNote.m_uiField).m_uiOffset == oRepair.m_uiOffset)
        {
            return true;
        }
    }
    return false;
}

// The rules that bytes break and where, but for those on what the library reads: no block with a wrong checksum.
inline std::set<std::string> ListFindings(const CZorEdidMap& oMap)
{
    constexpr unsigned int uiYear = 2026;
    CZorEdidCheck oCheck;
    oCheck.Read(oMap, uiYear);
    std::set<std::string> oFindings;
    for (unsigned int i = 0; i < oCheck.GetCount(); ++i)
    {
        const SZorFinding& oFinding = oCheck.Get(i);
        if (!IsZorEdidRuleOfLibrary(oFinding.m_eRule))
        {
            oFindings.insert(FindZorEdidRule(oFinding.m_eRule)->m_pszId + std::string(" at ") +
                             std::to_string(oFinding.m_uiOffset));
        }
    }
    return oFindings;
}

// Empty, or what is broken.
inline std::string CheckRepair(const CBytes& aui8Image)
{
    CZorEdidRepair oRepair;
    oRepair.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    const CBytes aui8Repaired(oRepair.GetData(), oRepair.GetData() + oRepair.GetSize());
    if (aui8Repaired.size() != aui8Image.size())
    {
        return "another size";
    }
    CZorEdidMap oMap;
    oMap.Read(oRepair.GetSize(), oRepair.GetData());
    // Of the image with the header and the count that it has now, as these make more of it known.
    CBytes aui8Read = aui8Image;
    for (unsigned int i = 0; i < oRepair.GetCount(); ++i)
    {
        const SZorRepair& oOne = oRepair.Get(i);
        if (oOne.m_eRule == eZorEdidRule_BaseHeader || oOne.m_eRule == eZorEdidRule_BlockNotCounted)
        {
            std::copy_n(aui8Repaired.begin() + oOne.m_uiOffset, oOne.m_uiLength, aui8Read.begin() + oOne.m_uiOffset);
        }
    }
    CZorEdidMap oBefore;
    oBefore.Read(static_cast<unsigned int>(aui8Read.size()), aui8Read.data());
    const std::set<std::string> oOld = ListFindings(oBefore);
    for (const std::string& sFinding : ListFindings(oMap))
    {
        if (!oOld.contains(sFinding))
        {
            return "new: " + sFinding;
        }
    }
    CBytes aui8Back = aui8Repaired;
    for (unsigned int i = 0; i < oRepair.GetCount(); ++i)
    {
        const SZorRepair& oOne = oRepair.Get(i);
        if (HasNoteOf(oMap, oOne))
        {
            return "not right at " + std::to_string(oOne.m_uiOffset);
        }
        std::copy_n(aui8Image.begin() + oOne.m_uiOffset, oOne.m_uiLength, aui8Back.begin() + oOne.m_uiOffset);
    }
    for (size_t i = 0; i < aui8Image.size(); ++i)
    {
        // Sums follow from the rest; those of DisplayID sections end within their blocks.
        const bool bSum = i % gsc_uiBlockSize == gsc_uiBlockSize - 1 ||
                          (i >= gsc_uiBlockSize && aui8Image[i / gsc_uiBlockSize * gsc_uiBlockSize] == 0x70);
        if (aui8Back[i] != aui8Image[i] && !bSum)
        {
            return "changed without a word at " + std::to_string(i);
        }
    }
    CZorEdidRepair oAgain;
    oAgain.Read(oRepair.GetSize(), oRepair.GetData());
    return oAgain.GetCount() == 0 ? "" : "a second repair finds " + std::to_string(oAgain.Get(0).m_uiOffset);
}
