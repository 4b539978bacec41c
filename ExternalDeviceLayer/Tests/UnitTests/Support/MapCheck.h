// The promise of a map, for tests and fuzz targets that link zor_edid_map: every bit belongs to exactly one leaf, and
// the list of fields is a tree over the bytes.

#pragma once

#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "MapWriter.h"

// Takes the pieces of a leaf; false if it is malformed or takes a bit again.
inline bool TakePieces(const CZorEdidMap& oMap, unsigned int uiField, std::vector<unsigned char>& aui8Taken)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    unsigned int uiFirst = oMap.GetSize();
    unsigned int uiEnd = 0;
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.GetPiece(oField.m_uiFirstPiece + i);
        uiFirst = std::min(uiFirst, oPiece.m_uiOffset);
        uiEnd = std::max(uiEnd, oPiece.m_uiOffset + oPiece.m_uiLength);
        if (oPiece.m_uiLength == 0 || uiEnd > oMap.GetSize() || oPiece.m_ui8Mask == 0 ||
            (oPiece.m_uiLength > 1 && oPiece.m_ui8Mask != 0xFF))
        {
            return false;
        }
        for (unsigned int uiByte = oPiece.m_uiOffset; uiByte < oPiece.m_uiOffset + oPiece.m_uiLength; ++uiByte)
        {
            if ((aui8Taken[uiByte] & oPiece.m_ui8Mask) != 0)
            {
                return false;
            }
            aui8Taken[uiByte] |= oPiece.m_ui8Mask;
            for (unsigned int uiBit = 0; uiBit < 8; ++uiBit)
            {
                if (((oPiece.m_ui8Mask >> uiBit) & 1) != 0 && oMap.FindLeaf(uiByte, uiBit) != uiField)
                {
                    return false;
                }
            }
        }
    }
    return oField.m_uiPieces != 0 && oField.m_uiOffset == uiFirst && oField.m_uiLength == uiEnd - uiFirst;
}

inline bool IsPrintable(const CMString& sText)
{
    const std::string sCharacters = static_cast<const char*>(sText);
    return static_cast<int>(sCharacters.size()) == sText.GetLength() &&
           std::ranges::all_of(sCharacters, [](char cOne) { return cOne >= ' ' && cOne <= '~'; });
}

// Empty, or what is broken and where. Asks everything that can be asked.
inline std::string CheckMap(const CZorEdidMap& oMap)
{
    std::vector<unsigned char> aui8Taken(oMap.GetSize());
    std::vector<unsigned int> auiOpen;                                     // groups around the field at hand
    std::set<std::tuple<unsigned int, std::string, unsigned int>> aoNames; // group, name and number of groups
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        while (!auiOpen.empty() && i >= oMap.GetField(auiOpen.back()).m_uiEnd)
        {
            auiOpen.pop_back();
        }
        const std::string sWhere = " of field " + std::to_string(i) + ", " + oField.m_pszName;
        if (oField.m_uiDepth != auiOpen.size())
        {
            return "the depth" + sWhere;
        }
        if (oField.m_uiGroup != (auiOpen.empty() ? CZorEdidMap::msc_uiNone : auiOpen.back()))
        {
            return "the group's index" + sWhere;
        }
        if (CZorEdidMap::GetId(oField.m_eId) == nullptr)
        {
            return "the id" + sWhere;
        }
        if (oField.m_uiLength == 0)
        {
            return "the length" + sWhere;
        }
        if (!auiOpen.empty())
        {
            const CZorEdidMap::SField& oGroup = oMap.GetField(auiOpen.back());
            if (oField.m_uiOffset < oGroup.m_uiOffset || oField.m_uiEnd > oGroup.m_uiEnd ||
                oField.m_uiOffset + oField.m_uiLength > oGroup.m_uiOffset + oGroup.m_uiLength)
            {
                return "the group" + sWhere;
            }
        }
        if (oField.m_eKind == CZorEdidMap::eKind_Group)
        {
            const bool bNew = aoNames.emplace(oField.m_uiGroup, oField.m_pszName, oField.m_uiIndex).second;
            if (!auiOpen.empty() && !bNew) // blocks have numbers of their own
            {
                return "the number" + sWhere;
            }
            auiOpen.push_back(i);
        }
        else if (oField.m_uiEnd != i + 1 || !TakePieces(oMap, i, aui8Taken))
        {
            return "the place" + sWhere;
        }
        if (oField.m_pszMeaning != nullptr && oField.m_pszMeaning != ZorMap::gsc_szReserved &&
            std::string(oField.m_pszMeaning) == ZorMap::gsc_szReserved)
        {
            return "a reserved value without its note" + sWhere;
        }
        if (!IsPrintable(oMap.GetValue(i)))
        {
            return "the value" + sWhere;
        }
        constexpr unsigned int uiMostModes = 16; // of a video format descriptor
        CZorEdidMap::SMode oMode = {};
        for (unsigned int uiMode = 0; oMap.GetMode(i, oMode, uiMode); ++uiMode)
        {
            if (uiMode >= uiMostModes || oMode.m_uiWidth == 0 || oMode.m_uiHeight == 0 || oMode.m_uiRepetition == 0)
            {
                return "the mode" + sWhere;
            }
        }
    }
    unsigned int uiNote = 0;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        for (unsigned int j = 0; j < oField.m_uiNotes; ++j, ++uiNote)
        {
            if (uiNote >= oMap.GetNoteCount() || uiNote != oField.m_uiFirstNote + j ||
                oMap.GetNote(uiNote).m_uiField != i)
            {
                return "note " + std::to_string(uiNote);
            }
            const SZorEdidRule* const poRule = FindZorEdidRule(oMap.GetNote(uiNote).m_eRule);
            if (poRule == nullptr || oMap.GetNote(uiNote).m_pszText != poRule->m_pszWhat)
            {
                return "note " + std::to_string(uiNote) + " has not the text of its rule";
            }
        }
    }
    if (uiNote != oMap.GetNoteCount())
    {
        return "notes of no field";
    }
    const auto itFree = std::ranges::find_if(aui8Taken, [](unsigned char ui8Bits) { return ui8Bits != 0xFF; });
    ZorMap::SMapContent oContent;
    ZorMap::CMapWriter::Write(oContent, oMap.GetSize(), oMap.GetData());
    const char* pszOverlap = oContent.m_pszOverlap;
    return itFree != aui8Taken.end() ? "byte " + std::to_string(itFree - aui8Taken.begin()) + " is in no leaf"
           : pszOverlap != nullptr   ? std::string("another row has the bits of ") + pszOverlap
                                     : "";
}
