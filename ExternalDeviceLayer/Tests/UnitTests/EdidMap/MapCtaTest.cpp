// CZorEdidMap over CTA-861 extension blocks: each kind of data block, and what is off about one.

#include <gtest/gtest.h>

#include "CaseFile.h"
#include "ZorEdidMap.h"

namespace
{
constexpr unsigned int gsc_uiHeadSize = 4;

// A base block of zeros with one extension, and the extension.
CBytes MakeImage(const SCaseRow& oRow)
{
    const CBytes aui8Content = oRow.GetBytes(2);
    CBytes aui8Block = oRow.GetBytes(1);
    if (aui8Block.empty())
    {
        aui8Block = { 0x02, 0x03, static_cast<unsigned char>(gsc_uiHeadSize + aui8Content.size()), 0x40 };
    }
    Append(aui8Block, aui8Content);
    aui8Block.resize(gsc_uiBlockSize);
    CBytes aui8Image(gsc_uiBlockSize);
    aui8Image[126] = 1;
    Append(aui8Image, aui8Block);
    return FixChecksums(aui8Image);
}

std::vector<std::string> SplitAtSemicolons(const std::string& sText)
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
unsigned int FindNext(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sName)
{
    while (uiField < oMap.GetFieldCount() &&
           (oMap.GetField(uiField).m_uiOffset < gsc_uiBlockSize || oMap.GetField(uiField).m_pszName != sName))
    {
        ++uiField;
    }
    return uiField;
}

// The notes of the fields of the extension block, or of one of them.
std::vector<std::string> GetNotes(const CZorEdidMap& oMap, unsigned int uiField = CZorEdidMap::msc_uiNone)
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
void ExpectValue(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sValue)
{
    const std::string sActual = static_cast<const char*>(oMap.GetValue(uiField));
    const bool bBeginning = !sValue.empty() && sValue.back() == '*';
    EXPECT_EQ(bBeginning ? sValue.substr(0, sValue.size() - 1) : sValue,
              bBeginning ? sActual.substr(0, sValue.size() - 1) : sActual)
        << oMap.GetField(uiField).m_pszName;
}

void CheckRow(const SCaseRow& oRow)
{
    const CBytes aui8Image = MakeImage(oRow);
    CZorEdidMap oMap;
    ASSERT_EQ(1, oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
    unsigned int uiNext = 0;
    std::vector<std::string> asNotes;
    for (const std::string& sPart : SplitAtSemicolons(oRow.GetText(3)))
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

TEST(MapCta, FieldsAndNotesOfEachDataBlock)
{
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/cta-blocks.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        CheckRow(oRow);
    }
}
} // namespace
