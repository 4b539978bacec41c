// Puts tables of rows over the bytes of an image, and keeps the promise of the map: every bit in exactly one leaf.
// Private to this folder. MapBase.cpp, MapCta.cpp and MapDisplayId.cpp walk the bytes with it.

#pragma once

#include "MapRows.h"

// What the rows of an image may ask about it beyond their own record.
struct SImageFacts
{
    unsigned int m_uiRevision = 0; // of E-EDID: 4 for 1.4
    bool m_bDigital = false;
};

// The bytes that a table lies over. Bytes behind its end read as 0, so that a condition need not ask for the length
// first.
class CRecord
{
public:
    CRecord(const SImageFacts& oFacts, const unsigned char* pui8Bytes, unsigned int uiSize)
        : m_oFacts(oFacts), m_pui8Bytes(pui8Bytes), m_uiSize(uiSize)
    {
    }

    unsigned int GetSize() const { return m_uiSize; }
    const SImageFacts& GetFacts() const { return m_oFacts; }

    unsigned int GetByte(unsigned int uiOffset) const { return uiOffset < m_uiSize ? m_pui8Bytes[uiOffset] : 0U; }
    bool IsSet(unsigned int uiOffset, unsigned int uiBit) const { return ((GetByte(uiOffset) >> uiBit) & 1U) != 0; }
    unsigned int GetBits(unsigned int uiOffset, unsigned int uiHigh, unsigned int uiLow) const
    {
        return (GetByte(uiOffset) >> uiLow) & ((2U << (uiHigh - uiLow)) - 1);
    }
    unsigned int Get(const SPlace& oPlace) const; // at most 32 bits; of a run 0

private:
    const SImageFacts& m_oFacts;
    const unsigned char* m_pui8Bytes;
    unsigned int m_uiSize;
};

// Writes the fields of one image in the order of a walk. Groups nest; EndGroup fills what no leaf of the group has
// taken as one field a run of bytes, "Reserved" inside a table's record and the given name elsewhere.
class CMapWriter
{
public:
    CMapWriter(CZorEdidMap& oMap, const SImageFacts& oFacts);

    const SImageFacts& GetFacts() const { return m_oFacts; }

    // A group over uiLength bytes from uiOffset of the image on. What is left of them at EndGroup becomes one field for
    // each run, of this name and kind: eKind_Reserved (with a note when it is not 0) or eKind_Unknown.
    void BeginGroup(const char* pszName, CZorEdidMap::EArea eArea, unsigned int uiOffset, unsigned int uiLength,
                    unsigned int uiIndex = CZorEdidMap::msc_uiNone);
    void EndGroup(const char* pszRest = "Reserved", CZorEdidMap::EKind eRest = CZorEdidMap::eKind_Reserved);

    // A group with the leaves of a table over uiLength bytes from uiOffset of the image on. A row whose bytes do not all
    // lie in them is left out. Returns the index of the group's field.
    unsigned int AddRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                           unsigned int uiIndex = CZorEdidMap::msc_uiNone);
    // As AddRecord, in the open group instead of one of its own.
    void AddRows(const STable& oTable, unsigned int uiOffset, unsigned int uiLength);
    // Items of the same size, one record after the other, as many as fit; numbered from 0.
    void AddItems(const STable& oTable, unsigned int uiOffset, unsigned int uiLength, unsigned int uiItemSize);

    // One leaf by itself. Offsets of the place count from uiOffset of the image.
    void AddLeaf(const SRow& oRow, CZorEdidMap::EArea eArea, unsigned int uiOffset, unsigned int uiLength,
                 unsigned int uiIndex = CZorEdidMap::msc_uiNone);

    // To the last field that was begun or added; to an earlier one by its index.
    void AddNote(CZorEdidMap::ESeverity eSeverity, const char* pszText);
    void AddNote(unsigned int uiField, CZorEdidMap::ESeverity eSeverity, const char* pszText);
    void SetTiming(unsigned int uiField, CZorEdidMap::EList eList, unsigned int uiNumber);

private:
    CZorEdidMap& m_oMap;
    SImageFacts m_oFacts;
};

// The walks, one a kind of block. uiOffset is that of the block in the image; uiLength is 128, or less for a block that
// is cut short.
void MapBaseBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapCtaBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapDisplayIdBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapOtherBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength); // VTB, block map, DI, LS, others

// Shared between the kinds of blocks.
extern const STable g_oDetailedTimingTable; // 18 bytes, E-EDID 3.10.2
void MapDescriptor(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiIndex); // 18 bytes: a timing or a display descriptor
// A data block collection of CTA-861: of an extension block, or carried in a DisplayID block.
void MapCtaDataBlocks(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
// A timing of DisplayID Types I to X, which CTA-861 data blocks carry as well; ui8Tag is the DisplayID tag.
void MapDisplayIdTiming(CMapWriter& oWriter, unsigned int uiTag, unsigned int uiRevision, unsigned int uiOffset,
                        unsigned int uiLength, unsigned int uiIndex);
