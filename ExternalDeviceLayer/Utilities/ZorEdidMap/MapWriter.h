// Puts tables of rows over the bytes of an image, and keeps the promise of the map: every bit in exactly one leaf.
// Private to this folder. MapBase.cpp, MapCta.cpp, MapDisplayId.cpp and MapOther.cpp walk the bytes with it.
//
//     oWriter.BeginBlock("CTA-861 extension block", uiOffset, uiLength);
//     oWriter.AddRows(gsc_oHeadTable, uiOffset, 4);
//     const unsigned int uiField = oWriter.AddRecord(gsc_oAudioTable, uiBlock, uiBlockLength);
//     oWriter.AddNote(uiField, CZorEdidMap::eSeverity_Error, "runs past the end of the block");
//     oWriter.EndBlock();

#pragma once

#include "MapRows.h"

// What the rows of an image may ask about it beyond their own record.
struct SImageFacts
{
    unsigned int m_uiRevision = 0; // of E-EDID: 4 for 1.4
    bool m_bDigital = false;
    bool m_bContinuous = false; // a continuous frequency display, by 1.4
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
    const unsigned char* GetData() const { return m_pui8Bytes; } // GetSize bytes
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

// Writes the fields of one image in the order of a walk. Groups nest, at most msc_uiMostDepth deep. Offsets are those
// of the image unless said. A range that leaves the open group, or the image, is cut; who walks says so in a note.
class CMapWriter
{
public:
    static constexpr unsigned int msc_uiBlockSize = 128;
    static constexpr unsigned int msc_uiMostBlocks = 256;
    static constexpr unsigned int msc_uiMostDepth = 16;

    // Empties the map and fills it: the walk over all blocks. False when there are no bytes.
    static bool Write(CZorEdidMap& oMap, unsigned int uiSize, const unsigned char* pui8Data);
    // The name of the first row of the map's tables that was left out because another leaf had its bits: a fault of a
    // table. Null for none.
    static const char* GetOverlap(const CZorEdidMap& oMap) { return oMap.m_pszOverlap; }

    CMapWriter(CZorEdidMap& oMap, const SImageFacts& oFacts);

    // What the rows are asked with.
    static SImageFacts GetFacts(const CZorEdidMap& oMap);
    const SImageFacts& GetFacts() const { return m_oFacts; }

    // The bytes: a byte behind the image reads as 0, a record is cut at the end of the image.
    unsigned int GetByte(unsigned int uiOffset) const;
    CRecord GetRecord(unsigned int uiOffset, unsigned int uiLength) const;

    // A group over uiLength bytes from uiOffset of the image on. What is left of them at EndGroup becomes one field for
    // each run of bytes, and for what is left of each byte, of this name and kind: eKind_Reserved (with a note when it
    // is not 0) or eKind_Unknown. Returns the index of the group's field.
    unsigned int BeginGroup(const char* pszName, CZorEdidMap::EArea eArea, unsigned int uiOffset, unsigned int uiLength,
                            unsigned int uiIndex = CZorEdidMap::msc_uiNone);
    void EndGroup(const char* pszRest = "Reserved", CZorEdidMap::EKind eRest = CZorEdidMap::eKind_Reserved);

    // The group of a whole block. EndBlock adds the checksum in the last byte and closes the group. Of a block that is
    // cut short, a note says so, and its rest is unknown.
    unsigned int BeginBlock(const char* pszName, unsigned int uiOffset, unsigned int uiLength);
    void EndBlock(const char* pszRest = "Reserved", CZorEdidMap::EKind eRest = CZorEdidMap::eKind_Reserved);

    // A group with the leaves of a table over uiLength bytes from uiOffset of the image on. A row whose bytes do not
    // all lie in them is left out. Returns the index of the group's field.
    unsigned int AddRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                           unsigned int uiIndex = CZorEdidMap::msc_uiNone);
    // AddRecord in steps. BeginGroup of a table has its name, area and summary, but adds none of its rows; BeginRecord
    // adds them. What is added then stands in the group, too. Ended by EndGroup.
    unsigned int BeginGroup(const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                            unsigned int uiIndex = CZorEdidMap::msc_uiNone);
    unsigned int BeginRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                             unsigned int uiIndex = CZorEdidMap::msc_uiNone);
    // As AddRecord, in the open group instead of one of its own. The bytes may reach beyond the group: a row that takes
    // bits outside of it is left out.
    void AddRows(const STable& oTable, unsigned int uiOffset, unsigned int uiLength);
    // Items of the same size, one record after the other, as many as fit; numbered from 0.
    void AddItems(const STable& oTable, unsigned int uiOffset, unsigned int uiLength, unsigned int uiItemSize);

    // One leaf by itself. The place counts from uiOffset. As with AddRows, the bytes may reach beyond the open group.
    void AddLeaf(const SRow& oRow, CZorEdidMap::EArea eArea, unsigned int uiOffset, unsigned int uiLength,
                 unsigned int uiIndex = CZorEdidMap::msc_uiNone);
    void AddLeaf(const SRow&& oRow, CZorEdidMap::EArea, unsigned int, unsigned int, unsigned int = 0) = delete;

    // The byte at uiOffset, which must bring the sum of the bytes from uiFirst up to itself to 0; an error note when it
    // does not.
    void AddChecksum(unsigned int uiFirst, unsigned int uiOffset);

    // To the last field that was begun, added or ended; to an earlier one by its index.
    void AddNote(CZorEdidMap::ESeverity eSeverity, const char* pszText);
    void AddNote(unsigned int uiField, CZorEdidMap::ESeverity eSeverity, const char* pszText);
    void SetTiming(unsigned int uiField, CZorEdidMap::EList eList, unsigned int uiNumber, unsigned int uiNumbers = 1);

    // The last field under a name, or with a meaning, that depends on bytes beyond its record. Static texts.
    void SetName(const char* pszName);
    void SetMeaning(const char* pszMeaning);

    // The leaf that a bit belongs to, and the outermost field that holds exactly these bytes; msc_uiNone for none. For
    // what is found once all fields stand.
    unsigned int FindLeaf(unsigned int uiOffset, unsigned int uiBit) const { return m_oMap.FindLeaf(uiOffset, uiBit); }
    unsigned int FindField(unsigned int uiOffset, unsigned int uiLength) const;

private:
    struct SRange
    {
        unsigned int m_uiOffset;
        unsigned int m_uiLength;
    };
    struct SPieces
    {
        CZorEdidMap::SPiece m_aoPieces[gsc_uiMostPieces];
        unsigned int m_uiCount;
    };

    unsigned int GetOpenGroup() const;
    SRange GetOpenRange() const;
    SRange Clip(unsigned int uiOffset, unsigned int uiLength) const;
    void WriteBlocks();
    void WriteBlock(unsigned int uiOffset, unsigned int uiLength);
    void WriteTail();
    void NoteBlockCount();

    CZorEdidMap::SField& GetField(unsigned int uiField) { return m_oMap.m_aoEntries[uiField].m_oField; }
    unsigned int AppendEntry(CZorEdidMap::SEntry& oEntry);
    void TakeBits(const CZorEdidMap::SPiece& oPiece, unsigned int uiField);
    unsigned int AppendLeaf(CZorEdidMap::SEntry& oEntry, const SPieces& oPieces);
    SPieces FindPieces(const SPlace& oPlace, const SRange& oRecord) const;
    unsigned int AddRow(const SRow& oRow, CZorEdidMap::EArea eArea, const SRange& oRange, unsigned int uiIndex);
    void AddRest(const char* pszName, CZorEdidMap::EKind eKind, unsigned int uiOffset, unsigned int uiLength,
                 unsigned char ui8Mask);
    void NoteValue(unsigned int uiField, const SRow& oRow, const CRecord& oRecord, unsigned int uiRaw);

    bool IsFree(const SPieces& oPieces) const;

    CZorEdidMap& m_oMap;
    SImageFacts m_oFacts;
    CMArray<unsigned char, const unsigned char&> m_aui8Free; // the bits of each byte that no leaf has yet
    unsigned int m_auiOpen[msc_uiMostDepth];                 // fields of the open groups
    unsigned int m_uiDepth;                                  // how many are open
    unsigned int m_uiLast;                                   // field that a note without an index goes to
};

// The walks, one a kind of block. uiOffset is that of the block in the image; uiLength is 128, or less for a block that
// is cut short. Each opens its block by BeginBlock and closes it by EndBlock, which adds the checksum.
void MapBaseBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapCtaBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapDisplayIdBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapOtherBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength); // VTB, block map, DI, LS, others

// Shared between the kinds of blocks.
extern const STable g_oDetailedTimingTable; // 18 bytes, E-EDID 3.10.2
extern const STable g_oStandardTimingTable; // 2 bytes, E-EDID 3.9
extern const STable g_oCvtCodeTable;        // 3 bytes, E-EDID 3.10.3.8
// 18 bytes: a timing or a display descriptor. Returns the index of its group. Where the image ends before its end, a
// timing is noted so; of anything else nothing is added, and msc_uiNone returned.
inline constexpr unsigned int gsc_uiMapDescriptorSize = 18;
unsigned int MapDescriptor(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiIndex);
// A data block collection of CTA-861: of an extension block, or carried in a DisplayID block.
void MapCtaDataBlocks(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
// A timing of DisplayID Types I to X, which CTA-861 data blocks carry as well; ui8Tag is the DisplayID tag.
void MapDisplayIdTiming(CMapWriter& oWriter, unsigned int uiTag, unsigned int uiRevision, unsigned int uiOffset,
                        unsigned int uiLength, unsigned int uiIndex);

// What the form makes of uiBits bits, SForm.
long long ComputeNumber(const SForm& oForm, unsigned int uiRaw, unsigned int uiBits);

// Gives the timings of all fields that stand the numbers of the EDID classes; none in an image that they refuse.
void NumberTimings(CMapWriter& oWriter, unsigned int uiSize);
