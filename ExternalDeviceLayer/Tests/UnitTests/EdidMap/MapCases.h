// What the tests of extension blocks in the map share: what is expected of the fields of the block behind the base
// block, as a line of text.

#pragma once

#include <gtest/gtest.h>

#include "CaseFile.h"
#include "MapCheck.h"

// A base block of zeros that counts one extension block, and that block.
inline CBytes BehindBaseBlock(CBytes aui8Block)
{
    CBytes aui8Image(gsc_uiBlockSize);
    aui8Image[126] = 1;
    aui8Block.resize(gsc_uiBlockSize);
    return Join({ aui8Image, aui8Block });
}

inline std::vector<std::string> SplitAtSemicolons(const std::string& sText)
{
    std::vector<std::string> asParts;
    std::istringstream oStream(sText);
    for (std::string sPart; std::getline(oStream >> std::ws, sPart, ';');)
    {
        asParts.push_back(sPart);
    }
    return asParts;
}

// The next field of this name in the extension block; the count for none.
inline unsigned int FindNext(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sName)
{
    while (uiField < oMap.GetFieldCount() &&
           (oMap.GetField(uiField).m_uiOffset < gsc_uiBlockSize || oMap.GetField(uiField).m_pszName != sName))
    {
        ++uiField;
    }
    return uiField;
}

// The notes of the fields of the extension block, or of one of them.
inline std::vector<std::string> GetNotes(const CZorEdidMap& oMap, unsigned int uiField = CZorEdidMap::msc_uiNone)
{
    std::vector<std::string> asNotes;
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(i);
        if (oMap.GetField(oNote.m_uiField).m_uiOffset >= gsc_uiBlockSize &&
            (uiField == CZorEdidMap::msc_uiNone || oNote.m_uiField == uiField))
        {
            asNotes.emplace_back(oNote.m_pszText);
        }
    }
    return asNotes;
}

// "NAME=VALUE"; a star at the end of the value stands for any rest.
inline void ExpectValue(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sValue)
{
    const std::string sActual = static_cast<const char*>(oMap.GetValue(uiField));
    const bool bBeginning = !sValue.empty() && sValue.back() == '*';
    EXPECT_EQ(bBeginning ? sValue.substr(0, sValue.size() - 1) : sValue,
              bBeginning ? sActual.substr(0, sValue.size() - 1) : sActual)
        << oMap.GetField(uiField).m_pszName;
}

// "NAME=VALUE; !NOTE; ...": fields of the extension block in the order of the map, those between them left out. A note
// is one of the field named ahead of it. All notes of the block are named.
inline void ExpectFields(const CBytes& aui8Image, const std::string& sExpected)
{
    CZorEdidMap oMap;
    ASSERT_EQ(1, oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
    EXPECT_EQ("", CheckMap(oMap));
    unsigned int uiNext = 0;
    std::vector<std::string> asNotes;
    for (const std::string& sPart : SplitAtSemicolons(sExpected))
    {
        if (sPart[0] == '!')
        {
            asNotes.push_back(sPart.substr(1));
            const std::vector<std::string> asOfField = GetNotes(oMap, uiNext - 1);
            EXPECT_NE(asOfField.end(), std::find(asOfField.begin(), asOfField.end(), asNotes.back())) << sPart;
            continue;
        }
        const std::string sName = sPart.substr(0, sPart.find('='));
        const unsigned int uiField = FindNext(oMap, uiNext, sName);
        ASSERT_LT(uiField, oMap.GetFieldCount()) << sName;
        ExpectValue(oMap, uiField, sPart.substr(sPart.find('=') + 1));
        uiNext = uiField + 1;
    }
    EXPECT_EQ(asNotes, GetNotes(oMap));
}
