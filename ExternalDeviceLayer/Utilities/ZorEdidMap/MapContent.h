// What a map holds: the implementation of CZorEdidMap, which CMapWriter fills. Private to this folder.

#pragma once

#include "MapRows.h"

namespace ZorMap
{
// What GetValue makes the text from: the row of a leaf or the table of a group, and the bytes under it.
struct SOrigin
{
    const SRow* m_poRow;     // null for a group and for a leaf that no row describes
    const STable* m_poTable; // null for a leaf and for a group without a table
    unsigned int m_uiOffset;
    unsigned int m_uiLength;
    bool m_bAlone;               // a group, or a leaf by itself: possibly one of several, unlike the rows of a table
    unsigned char m_ui8Code = 0; // of CMapWriter::SetMode
    unsigned char m_ui8Marks = 0;
};

struct SEntry
{
    CZorEdidMap::SField m_oField;
    SOrigin m_oOrigin;
};

// What the rows of an image may ask about it beyond their own record.
struct SImageFacts
{
    unsigned int m_uiRevision = 0; // of E-EDID: 4 for 1.4, 0 for other versions than 1
    bool m_bDigital = false;
    bool m_bContinuous = false; // a continuous frequency display, by 1.4
};

struct SMapContent
{
    unsigned int GetSize() const { return m_aui8Data.GetCount(); }
    const unsigned char* GetData() const { return m_aui8Data.GetData(); }
    unsigned int GetFieldCount() const { return m_aoEntries.GetCount(); }
    const CZorEdidMap::SField& GetField(unsigned int uiIndex) const { return m_aoEntries[uiIndex].m_oField; }
    unsigned int GetBlockBytes() const { return m_auiLeaves.GetCount() / gsc_uiBits; }
    unsigned int FindLeaf(unsigned int uiOffset, unsigned int uiBit) const; // as CZorEdidMap::FindLeaf

    CMArray<unsigned char, const unsigned char&> m_aui8Data;
    CMArray<SEntry, const SEntry&> m_aoEntries;
    CMArray<CZorEdidMap::SPiece, const CZorEdidMap::SPiece&> m_aoPieces;
    CMArray<CZorEdidMap::SNote, const CZorEdidMap::SNote&> m_aoNotes;
    CMArray<unsigned int, const unsigned int&> m_auiLeaves; // of each bit of the blocks, bit 0 of a byte first
    SImageFacts m_oFacts;
    // The name of the first row that was left out because another leaf had its bits: a fault of a table, for tests.
    // Null for none.
    const char* m_pszOverlap = nullptr;
};
} // namespace ZorMap
