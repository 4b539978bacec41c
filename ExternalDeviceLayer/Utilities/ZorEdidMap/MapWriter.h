// Puts tables of rows over the bytes of an image, and keeps the promise of the map: every bit in exactly one leaf.
// Private to this folder. MapBase.cpp, MapCta.cpp, MapDisplayId.cpp and MapOther.cpp walk the bytes with it.
//
//     oWriter.BeginBlock(eId_Cta, "CTA-861 extension block", uiOffset, uiLength);
//     oWriter.AddRows(gsc_oHeadTable, uiOffset, 4);
//     const unsigned int uiField = oWriter.AddRecord(gsc_oAudioTable, uiBlock, uiBlockLength);
//     oWriter.AddNote(uiField, eZorEdidRule_PastStructure);
//     oWriter.EndBlock();

#pragma once

#include "MapContent.h"
#include "MapIds.h"
#include "Standards/Record.h"

namespace ZorMap
{
// The bytes that a table lies over. Bytes past its end read as 0, so that a condition need not ask for the length
// first.
class CRecord : public CRecordBytes
{
public:
    CRecord(const SImageFacts& oFacts, const unsigned char* pui8Bytes, unsigned int uiSize)
        : CRecordBytes(pui8Bytes, uiSize), m_oFacts(oFacts)
    {
    }

    const SImageFacts& GetFacts() const { return m_oFacts; }

private:
    const SImageFacts& m_oFacts;
};

// What a note counts: so many of a unit were found, and this many keep the rule.
constexpr CZorEdidMap::SNumbers CountAtLeast(const char* pszUnit, unsigned int uiFound, unsigned int uiLeast)
{
    return { pszUnit, uiFound, uiLeast };
}
constexpr CZorEdidMap::SNumbers CountAtMost(const char* pszUnit, unsigned int uiFound, unsigned int uiMost)
{
    return { pszUnit, uiFound, CZorEdidMap::SNumbers::msc_llNone, uiMost };
}
constexpr CZorEdidMap::SNumbers CountExactly(const char* pszUnit, unsigned int uiFound, unsigned int uiRight)
{
    return { pszUnit, uiFound, uiRight, uiRight };
}

// Whether all of its bytes have this value, as those of an empty record have.
bool IsEveryByte(const CRecord& oRecord, unsigned int uiValue);

// Writes the fields of one image in the order of a walk. Groups nest, at most msc_uiMostDepth deep. Offsets are those
// of the image unless said. A range that leaves the open group, or the image, is cut; who walks says so in a note. What
// is added gives the index of its field; msc_uiNone where nothing was added, which notes and the like take as well.
class CMapWriter
{
public:
    static constexpr unsigned int msc_uiBlockSize = 128;
    static constexpr unsigned int msc_uiMostBlocks = 256;
    static constexpr unsigned int msc_uiMostDepth = 16;

    // Empties the map and fills it: the walk over all blocks. False without bytes.
    static bool Write(SMapContent& oMap, unsigned int uiSize, const unsigned char* pui8Data);

    explicit CMapWriter(SMapContent& oMap);

    // What the rows are asked with.
    const SImageFacts& GetFacts() const { return m_oMap.m_oFacts; }

    // The bytes: a byte past the image reads as 0, a record is cut at the end of the image.
    unsigned int GetByte(unsigned int uiOffset) const;
    CRecord GetRecord(unsigned int uiOffset, unsigned int uiLength) const;

    // A group over uiLength bytes from uiOffset of the image on. What is left of them at EndGroup becomes one field for
    // each run of bytes, and for what is left of each byte, as oRest says. Where no byte is left of the range, nothing
    // is added up to EndGroup.
    unsigned int BeginGroup(EZorEdidField eId, const char* pszName, CZorEdidMap::EArea eArea, unsigned int uiOffset,
                            unsigned int uiLength);
    void EndGroup(const SRest& oRest = gsc_oReservedRest);

    // The group of a whole block. EndBlock adds the checksum in the last byte and closes the group. Of a block that is
    // cut short, a note says so, and its rest is unknown.
    unsigned int BeginBlock(EZorEdidField eId, const char* pszName, unsigned int uiOffset, unsigned int uiLength);
    void EndBlock(const SRest& oRest = gsc_oReservedRest);

    // A group with the leaves of a table over uiLength bytes from uiOffset of the image on. A row whose bytes are all
    // past them is left out; of a row that they cut, what is present is unknown, with a note.
    unsigned int AddRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength);
    // The whole bytes at the end of the open group that no leaf has are unknown: they belong to no known structure.
    void AddUnknownEnd();
    // AddRecord in steps. BeginGroup of a table has its name, area and summary, but adds none of its rows; BeginRecord
    // adds them. What is added then is in the group, too. Ended by EndGroup.
    unsigned int BeginGroup(const STable& oTable, unsigned int uiOffset, unsigned int uiLength);
    unsigned int BeginRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength);
    // As AddRecord, in the open group instead of one of its own. The bytes may reach beyond the group: a row that takes
    // bits outside of it is left out.
    void AddRows(const STable& oTable, unsigned int uiOffset, unsigned int uiLength);
    // Items of the same size, one record after the other, as many as fit.
    void AddItems(const STable& oTable, unsigned int uiOffset, unsigned int uiLength, unsigned int uiItemSize);

    // One leaf by itself. The place counts from uiOffset. As with AddRows, the bytes may reach beyond the open group.
    unsigned int AddLeaf(const SRow& oRow, CZorEdidMap::EArea eArea, unsigned int uiOffset, unsigned int uiLength);
    unsigned int AddLeaf(const SRow&& oRow, CZorEdidMap::EArea, unsigned int, unsigned int) = delete;

    // The byte at uiOffset, which must bring the sum of the bytes from uiFirst up to itself to 0; an error note when it
    // does not.
    unsigned int AddChecksum(const SRow& oRow, unsigned int uiFirst, unsigned int uiOffset);

    // That the field breaks a rule, in the words of the rule and with its weight; or with another one, where more than
    // the rule decides, as a revision. Nothing for eZorEdidRule_None.
    void AddNote(unsigned int uiField, EZorEdidRule eRule, const CZorEdidMap::SNumbers& oNumbers = {});
    void AddNote(unsigned int uiField, EZorEdidRule eRule, CZorEdidMap::ESeverity eSeverity,
                 const CZorEdidMap::SNumbers& oNumbers = {});
    void SetTiming(unsigned int uiField, CZorEdidMap::EList eList, unsigned int uiNumber, unsigned int uiNumbers = 1);
    // Each number of a field is one above the number before.
    void AddOtherTiming(unsigned int uiField, unsigned int uiNumber);

    // A name or a meaning that depends on bytes beyond the field's record, as static texts; a number that is not that
    // of fields of one name. The meaning gsc_szReserved gives its note, as that of a row does.
    void SetName(unsigned int uiField, const char* pszName);
    void SetMeaning(unsigned int uiField, const char* pszMeaning);
    void SetIndex(unsigned int uiField, unsigned int uiIndex);

    // The code of the mode that a field announces, where its own bytes do not say; 0 where they do. uiMarks is a sum
    // of gsc_uiMark values.
    void SetMode(unsigned int uiField, unsigned int uiCode, unsigned int uiMarks = 0);

    // The leaf that a bit belongs to, and the outermost field that holds exactly these bytes; msc_uiNone for none. For
    // what is found once all fields exist.
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
        bool m_bCut; // the record ends before the others
    };
    struct SOpenGroup
    {
        unsigned int m_uiField; // msc_uiNone for one without bytes
        SRange m_oRange;
    };

    SOpenGroup GetOpenGroup() const;
    SRange GetOpenRange() const { return GetOpenGroup().m_oRange; }
    SRange Clip(unsigned int uiOffset, unsigned int uiLength) const;
    void WriteBlocks();
    void WriteBlock(unsigned int uiOffset, unsigned int uiLength);
    void WriteTail();
    void NoteBlockCount();

    CZorEdidMap::SField& GetField(unsigned int uiField) { return m_oMap.m_aoEntries[uiField].m_oField; }
    bool HasField(unsigned int uiField) const { return uiField < m_oMap.GetFieldCount(); }
    unsigned int AppendEntry(SEntry& oEntry);
    void TakeBits(const CZorEdidMap::SPiece& oPiece, unsigned int uiField);
    unsigned int AppendLeaf(SEntry& oEntry, const SPieces& oPieces);
    SPieces FindPieces(const SPlace& oPlace, const SRange& oRecord) const;
    unsigned int AddRow(const SRow& oRow, CZorEdidMap::EArea eArea, const SRange& oRange);
    bool HasError(unsigned int uiGroup) const;
    unsigned int AddCutRow(const SRow& oRow, const SPieces& oPieces, unsigned int uiRecord);
    void AddRest(const SRest& oRest, unsigned int uiOffset, unsigned int uiLength, unsigned char ui8Mask);
    void NoteReserved(unsigned int uiField);
    void NoteValue(unsigned int uiField, const SRow& oRow, const CRecord& oRecord, unsigned int uiRaw);
    void NumberFields(unsigned int uiFirst, unsigned int uiEnd);
    void OrderNotes();

    bool IsFree(const SPieces& oPieces) const;

    SMapContent& m_oMap;
    CMArray<unsigned char, const unsigned char&> m_aui8Free; // the bits of each byte that no leaf has yet
    SOpenGroup m_aoOpen[msc_uiMostDepth];
    unsigned int m_uiDepth; // how many are open
};

// The walks, one a kind of block. uiOffset is that of the block in the image; uiLength is 128, or less for a block that
// is cut short. Each opens its block by BeginBlock and closes it by EndBlock, which adds the checksum.
void MapBaseBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapCtaBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapDisplayIdBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
void MapOtherBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength); // VTB, block map, DI, LS, others

// Shared between the kinds of blocks.
extern const STable g_oDetailedTimingTable;    // 18 bytes, E-EDID 3.10.2
extern const STable g_oStandardTimingTable;    // 2 bytes, E-EDID 3.9
extern const STable g_oVtbStandardTimingTable; // the same in a VTB block: aspect ratio 0 is 16:10 in all revisions
extern const STable g_oCvtCodeTable;           // 3 bytes, E-EDID 3.10.3.8
// 18 bytes: a timing or a display descriptor. Returns the index of its group. Where the image ends before its end, a
// timing is noted so; of anything else nothing is added, and msc_uiNone returned.
inline constexpr unsigned int gsc_uiMapDescriptorSize = 18;
inline constexpr unsigned char gsc_ui8LineFeed = 0x0A; // ends a text that is shorter than its room
unsigned int MapDescriptor(CMapWriter& oWriter, unsigned int uiOffset);
// A data block collection of CTA-861 that a DisplayID block carries.
void MapCtaDataBlocks(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength);
// A timing of DisplayID Types I to X, other than the codes of Types IV and VIII, which CTA-861 data blocks carry as
// well; uiTag is the DisplayID tag.
void MapDisplayIdTiming(CMapWriter& oWriter, unsigned int uiTag, unsigned int uiRevision, unsigned int uiOffset,
                        unsigned int uiLength);
// A code of one or two bytes for a mode; uiType as in bits 7 and 6 of Type IV and Type VIII data blocks.
void MapTimingCode(CMapWriter& oWriter, unsigned int uiType, unsigned int uiOffset, unsigned int uiLength,
                   unsigned int uiMarks = 0);

// The leaf that a row makes of a raw value, without its place.
CZorEdidMap::SField MakeLeaf(const SRow& oRow, CZorEdidMap::EArea eArea, const CRecord& oRecord, unsigned int uiRaw);

// What the form makes of uiBits bits, SForm.
long long ComputeNumber(const SForm& oForm, unsigned int uiRaw, unsigned int uiBits);

// Gives the timings of all fields the numbers of the EDID classes; none in an image that they refuse.
void NumberTimings(CMapWriter& oWriter, unsigned int uiSize);
} // namespace ZorMap
