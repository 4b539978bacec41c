/// What each byte of an EDID image says: a tree of fields over the bytes, with places, values and what is wrong with
/// them. A reader beside the EDID classes: it takes images in any state, also those that CEdid refuses, and blocks that
/// no class models.

#pragma once

#include "EdidMode.h"
#include "ZorEdidMapIds.h"
#include "ZorMFCTypes.h"

namespace ZorMap
{
struct SMapContent;
}

#pragma GCC visibility push(default)

enum EZorEdidRule : unsigned short; // ZorEdidRules.h

/// The map of one image. Read makes it, everything else asks it. At the leaves every bit of the image belongs to
/// exactly one field: reserved, unused and unknown bits are fields, too.
///
/// Fields are one list, depth first: a group, then its fields. Names, units and meanings are the terms of the standards
/// (E-EDID 1.3 and 1.4, CTA-861-H, HDMI 1.4 and 2.1, DisplayID 1.3 and 2.0); they are static texts, never null unless
/// said, and outlive the map.
class CZorEdidMap
{
public:
    enum EKind : unsigned char
    {
        eKind_Group,    ///< holds the fields that follow it with a greater depth; the only kind that is not a leaf
        eKind_Number,   ///< m_llNumber / 10 ^ m_uiDecimals, in m_pszUnit; where m_bNumber is 0 only m_pszMeaning
        eKind_Flag,     ///< one bit; m_llNumber is 0 or 1, m_pszMeaning says what that means
        eKind_Name,     ///< one of a list; m_pszMeaning is null for a value that the list lacks
        eKind_Text,     ///< characters: GetValue gives them
        eKind_Bytes,    ///< bytes without a finer meaning: GetValue gives hexadecimal digits
        eKind_Reserved, ///< reserved by the standard, or filler: unused bytes between or after the used ones
        eKind_Checksum, ///< m_llNumber is the byte
        eKind_Unknown   ///< bytes that this reader knows no meaning of
    };

    /// What a field is about: a reader colours by it.
    enum EArea : unsigned char
    {
        eArea_Structure, ///< tags, lengths, counts, versions, checksums
        eArea_Identity,  ///< maker, product, serial number, date, names
        eArea_Display,   ///< size, interface, features, power, tiles
        eArea_Colour,    ///< gamma, chromaticities, colorimetry, HDR
        eArea_Timing,    ///< timings and what limits them
        eArea_Audio,     ///< audio formats, speakers, rooms
        eArea_Vendor,    ///< what a maker defines
        eArea_Unused     ///< reserved, filler, unknown
    };

    /// The library's three numberings of timings.
    enum EList : unsigned char
    {
        eList_None,
        eList_Established, ///< CEdid::GetEstablished with bVesaOnly 0
        eList_Standard,    ///< CEdid::GetStandard
        eList_Detailed     ///< CEdid::GetDetailed
    };

    enum ESeverity : unsigned char
    {
        eSeverity_Note,    ///< allowed, but worth a word
        eSeverity_Warning, ///< odd: a reserved bit that is set, a value out of range, a contradiction
        eSeverity_Error    ///< against the standard, and something is lost: a wrong sum, bytes that run past their end
    };

    static constexpr unsigned int msc_uiNone = 0xFFFFFFFF;

    /// What fields of an id have, whatever the image.
    struct SIdDescription
    {
        const char* m_pszName;
        const char* m_pszUnit; ///< null without one
        EKind m_eKind;
    };

    /// Bits of a field: ui8Mask of each of m_uiLength bytes. The mask of more than one byte is 0xFF.
    struct SPiece
    {
        unsigned int m_uiOffset; ///< in the image
        unsigned int m_uiLength; ///< bytes
        unsigned char m_ui8Mask;
    };

    struct SField
    {
        const char* m_pszName;
        const char* m_pszUnit;    ///< null without one
        const char* m_pszMeaning; ///< null without one
        long long m_llNumber;     ///< numbers, flags, names (the raw code) and checksums
        unsigned int m_uiDecimals;
        /// Which of several of the same name in a group, from 0; msc_uiNone for the only one, for a block, for reserved
        /// and unknown bytes, and for a row of a table, whose name is its own. Of a tag in a block map the number of
        /// the block that it is of.
        unsigned int m_uiIndex;
        unsigned int m_uiOffset;     ///< of its first byte in the image
        unsigned int m_uiLength;     ///< bytes from the first one to the last one, whole or not
        unsigned int m_uiDepth;      ///< 0 for a block
        unsigned int m_uiGroup;      ///< the group that it lies in; msc_uiNone for a block
        unsigned int m_uiEnd;        ///< of a group the index after its last field; of a leaf its own index + 1
        unsigned int m_uiFirstPiece; ///< of GetPiece; a leaf has m_uiPieces of them, most significant first
        unsigned int m_uiPieces;     ///< 0 for a group
        unsigned int m_uiFirstNote;  ///< of GetNote; the field has m_uiNotes of them
        unsigned int m_uiNotes;
        /// Number in m_eList; msc_uiNone unless it is a timing that the library lists. A video code of CTA-861 with a
        /// partner at 1000/1001 has two that follow each other; this is the first one.
        unsigned int m_uiTiming;
        unsigned int m_uiTimings; ///< how many numbers: 0, 1 or 2
        /// Further numbers of standard timings that the library lists for these bytes and that are not what the field
        /// says: of a byte that it takes for another video code, of a code that it lists at 1000/1001 too, and of bits
        /// that mark codes in YCbCr 4:2:0. m_uiOthers numbers from this one on; msc_uiNone without any.
        unsigned int m_uiOther;
        unsigned int m_uiOthers;
        EKind m_eKind;
        EArea m_eArea;
        EList m_eList;
        bool m_bNumber;      ///< of a number: 0 where a meaning such as "not given" takes its place
        EZorEdidField m_eId; ///< what it is: by this a program finds a field, not by its name
    };

    /// Numbers that a rule compares, msc_llNone without one. With a unit they count bytes, blocks or the like; without
    /// one they are numbers as m_llNumber of the field has them, and what was found is that number itself.
    struct SNumbers
    {
        static constexpr long long msc_llNone = -0x7FFFFFFFFFFFFFFF - 1;

        const char* m_pszUnit = nullptr;
        long long m_llFound = msc_llNone;
        long long m_llLeast = msc_llNone; ///< what keeps the rule, with m_llMost
        long long m_llMost = msc_llNone;
        bool m_bEither = false; ///< one of these two, and nothing between them
    };

    struct SNote
    {
        unsigned int m_uiField;
        ESeverity m_eSeverity;
        const char* m_pszText; ///< that of the rule
        EZorEdidRule m_eRule;  ///< never eZorEdidRule_None
        SNumbers m_oNumbers = {};
    };

    /// A mode that a field announces or refers to, by EdidMode.h.
    using SMode = SZorMode;

    CZorEdidMap();
    ~CZorEdidMap();

    CZorEdidMap(const CZorEdidMap&) = delete;
    CZorEdidMap& operator=(const CZorEdidMap&) = delete;

    /// Makes the map of uiSize bytes: whole blocks of 128 and what is left after the last one. Any bytes are taken; the
    /// map keeps a copy of them. At most 256 blocks are read as blocks, the rest is one field. Returns 1; 0 when uiSize
    /// is 0 or above INT_MAX, or pui8Data is null, and then the map is empty. The bytes may be those of GetData. Memory
    /// use depends only on uiSize. The numbers of timings come from the classes of the blocks, which may write an
    /// assertion line about a damaged one, as when a CEdid loads it. When memory runs out, what the map holds means
    /// nothing until the next Read.
    int Read(unsigned int uiSize, const unsigned char* pui8Data);

    /// The bytes that were read, GetSize of them; null when there are none. The pointer is good until the next Read or
    /// the end of the map, and so are the references that follow.
    const unsigned char* GetData() const;
    unsigned int GetSize() const;

    /// The index of a list must be below its count: another one writes an assertion line and gives an element of zeros,
    /// which is good until the next such call.
    unsigned int GetFieldCount() const;
    const SField& GetField(unsigned int uiIndex) const;
    const SPiece& GetPiece(unsigned int uiIndex) const;
    unsigned int GetNoteCount() const;
    const SNote& GetNote(unsigned int uiIndex) const; ///< in rising order of their fields

    /// The leaf that a bit (7 to 0) of a byte belongs to, as an index of GetField; msc_uiNone past the image.
    unsigned int FindLeaf(unsigned int uiOffset, unsigned int uiBit) const;

    /// How many fields have an id.
    unsigned int CountFields(EZorEdidField eId) const;
    /// One of them, by its number in the order of their places, from 0; msc_uiNone where fewer have it.
    unsigned int FindField(EZorEdidField eId, unsigned int uiNumber = 0) const;
    /// The only text in a group, so that "base.name" means the name itself; else the field itself. uiField must be
    /// below GetFieldCount.
    unsigned int GetTextOf(unsigned int uiField) const;

    /// The value as text: "60 Hz", "2.20", "DisplayPort", "DEL", "00 0c 03". Of a group a summary, such as
    /// "1920 x 1080 @ 60 Hz"; empty where it has none. A number with a meaning gives the meaning, a code without one
    /// "unknown (9)", a wrong checksum "0x5a, should be 0x5b", and bits that are not whole bytes their number "0x3".
    /// Control characters and bytes above 126 become '.'. uiField must be below GetFieldCount.
    CMString GetValue(unsigned int uiField) const;

    /// The number that a note is about, where it is not the value of its field: "12 bytes". uiNote must be below
    /// GetNoteCount, here and below.
    CMString GetFound(unsigned int uiNote) const;
    /// What would keep the rule of a note: "at least 13 bytes", "0 to 99", "60 Hz"; empty where its words say it.
    CMString GetExpected(unsigned int uiNote) const;

    /// The mode that a field announces, of leaves and groups alike. A field may announce several, as a CVT 3 byte code
    /// and a video format descriptor do: uiIndex counts them from 0, a preferred one first. False, and oMode unchanged,
    /// for a field without such a mode: an unset flag, a code that is not published, a timing that is cut short.
    /// uiField must be below GetFieldCount.
    bool GetMode(unsigned int uiField, SMode& oMode, unsigned int uiIndex = 0) const;

    /// "1920 x 1080i @ 59.94 Hz", at the nominal rate; whole rates have no decimals, a rate that is not given is left
    /// out.
    static CMString GetModeText(const SMode& oMode);

    /// Short name of an extension block's kind by its tag, the first byte: "cea-861", "displayid". Null for an unknown
    /// one.
    static const char* GetBlockKind(unsigned int uiTag);

    /// Why a number of extension blocks may not count block uiBlock of an image, as words; null where it may: a block
    /// of a known kind, its checksum right, and no copy of an earlier one, as dumps have that were read past the end.
    /// The image must have at least uiBlock + 1 whole blocks, and uiBlock must not be 0.
    static const char* FindUnsound(const unsigned char* pui8Image, unsigned int uiBlock);

    /// The text of an id, such as "cta.hdmi-forum.vrr-max"; null for eZorEdidField_None and unknown numbers.
    static const char* GetId(EZorEdidField eId);
    /// The id of a text; eZorEdidField_None for an unknown one and for null.
    static EZorEdidField FindId(const char* pszId);
    /// Name, unit and kind of the fields with an id. Where they have several, as by revision, these are of the first
    /// form. Returns 1; 0 for an unknown id, and then all are null.
    static int DescribeId(EZorEdidField eId, SIdDescription& oDescription);

private:
    friend class CZorEdidWriter;

    ZorMap::SMapContent* m_poContent; ///< owned, never null
};

#pragma GCC visibility pop
