// The rows that describe a structure of fixed places: one row a field. Tables of rows are data, to be checked against a
// standard line by line; MapWriter.h puts them over bytes. Private to this folder.
//
//     constexpr SRow gsc_aoRows[] = {
//         { eId_BaseDisplayScreenWidth, Byte(0x15), "Horizontal screen size", Number("cm") },
//         { eId_BaseDisplayColorType, Bits(0x18, 4, 3), "Display color type", Names(gsc_aoColorTypes), IsAnalog },
//         { eId_BaseDetailedHorizontalActive, Split({ { 4, 7, 4 }, { 2, 7, 0 } }), "Horizontal active", Number() },
//         { eId_Reserved, Bits(0x05, 3, 0), "Reserved", Reserved() },
//     };

#pragma once

#include <span>

#include "Standards/Place.h"
#include "ZorEdidMap.h"
#include "ZorEdidRules.h"

namespace ZorMap
{
using namespace ZorStandards;
using enum CZorEdidMap::EArea;

// The ids by short names, for the tables.
#define ZOR_EDID_FIELD(NUMBER, NAME, ...) inline constexpr EZorEdidField eId_##NAME = eZorEdidField_##NAME;
ZOR_EDID_FIELDS(ZOR_EDID_FIELD, ZOR_EDID_NO_FIELD, ZOR_EDID_FIELD)
#undef ZOR_EDID_FIELD

class CRecord;

// The name of a value that the standard reserves: this text itself, by which such a value gets a note.
inline constexpr char gsc_szReserved[] = "reserved";

// A value and what it means. A table of them ends nowhere special: it goes as a span.
struct SMeaning
{
    unsigned int m_uiFirst;
    unsigned int m_uiLast;
    const char* m_pszName;
};

// ---- Which mode it announces ----

// What a walk says of a mode, which its bytes do not.
inline constexpr unsigned int gsc_uiMarkAlso420 = 1;
inline constexpr unsigned int gsc_uiMarkOnly420 = 2;
inline constexpr unsigned int gsc_uiMarkHdmi3d = 4;
inline constexpr unsigned int gsc_uiMarkNative = 8;
inline constexpr unsigned int gsc_uiMarkFraction = 16;  // 1000/1001 of rates as well
inline constexpr unsigned int gsc_uiMarkReference = 32; // says more about a mode of another field

struct SModeSource
{
    unsigned int m_uiCode;  // of a leaf what its row or the walk gave it (CMapWriter::SetMode), else its value
    unsigned int m_uiRank;  // which of several modes, from 0
    unsigned int m_uiMarks; // gsc_uiMark...
};

// Fills the mode of a field from its record, for CZorEdidMap::GetMode. False for none. Unset flags are not asked.
using ModeMaker = bool (*)(const CRecord&, const SModeSource& oSource, CZorEdidMap::SMode& oMode);

// ---- What it says ----

// value = (raw * m_llMultiply + m_llAdd) / 10 ^ m_uiDecimals, m_llMultiply and m_llAdd counted in the last decimal.
// m_uiDivide divides the product first, rounded half up: for binary fractions. A meaning of the raw value takes the
// place of the number in the text; gsc_szReserved gives the note of eZorEdidRule_ReservedValue.
struct SForm
{
    CZorEdidMap::EKind m_eKind = CZorEdidMap::eKind_Number;
    const char* m_pszUnit = nullptr;
    long long m_llMultiply = 1;
    long long m_llAdd = 0;
    unsigned int m_uiDivide = 1;
    unsigned int m_uiDecimals = 0;
    bool m_bSigned = false; // two's complement over the width of the place
    std::span<const SMeaning> m_aoMeanings = {};
    const char* (*m_pfnMeaning)(unsigned int uiValue) = nullptr; // in place of a list; null for a value without one
    bool m_bStaysNumber = false;                                 // a value with a meaning is a number nonetheless
    // The value as text, when a number, a meaning or the bytes are not it.
    CMString (*m_pfnText)(const CRecord&, unsigned int uiValue) = nullptr;
    // The number, when no product is it; counted in the last decimal.
    long long (*m_pfnNumber)(const CRecord&, unsigned int uiValue) = nullptr;
    // Another raw value gets the note of m_eUnexpected. Of a run it is what each byte must be.
    unsigned int m_uiExpected = msc_uiAny;
    EZorEdidRule m_eUnexpected = eZorEdidRule_None;
    ModeMaker m_pfnMode = nullptr;
    unsigned char m_ui8Code = 0; // of the mode of a flag, plus 1; 0: none, or given by the walk

    static constexpr unsigned int msc_uiAny = 0xFFFFFFFF;

    // Changed copies, so that a row says in place what is special about it.
    constexpr SForm With(std::span<const SMeaning> aoMeanings) const
    {
        SForm oForm = *this;
        oForm.m_aoMeanings = aoMeanings;
        return oForm;
    }
    // As With, for names of values that are numbers nonetheless.
    constexpr SForm Named(std::span<const SMeaning> aoMeanings) const
    {
        SForm oForm = With(aoMeanings);
        oForm.m_bStaysNumber = true;
        return oForm;
    }
    constexpr SForm Times(long long llMultiply, long long llAdd = 0) const
    {
        SForm oForm = *this;
        oForm.m_llMultiply = llMultiply;
        oForm.m_llAdd = llAdd;
        return oForm;
    }
    constexpr SForm Over(unsigned int uiDivide) const
    {
        SForm oForm = *this;
        oForm.m_uiDivide = uiDivide;
        return oForm;
    }
    constexpr SForm Decimals(unsigned int uiDecimals) const
    {
        SForm oForm = *this;
        oForm.m_uiDecimals = uiDecimals;
        return oForm;
    }
    constexpr SForm Signed() const
    {
        SForm oForm = *this;
        oForm.m_bSigned = true;
        return oForm;
    }
    constexpr SForm Text(CMString (*pfnText)(const CRecord&, unsigned int)) const
    {
        SForm oForm = *this;
        oForm.m_pfnText = pfnText;
        return oForm;
    }
    constexpr SForm Computed(long long (*pfnNumber)(const CRecord&, unsigned int)) const
    {
        SForm oForm = *this;
        oForm.m_pfnNumber = pfnNumber;
        return oForm;
    }
    constexpr SForm Expect(unsigned int uiValue, EZorEdidRule eUnexpected) const
    {
        SForm oForm = *this;
        oForm.m_uiExpected = uiValue;
        oForm.m_eUnexpected = eUnexpected;
        return oForm;
    }
    constexpr SForm Mode(ModeMaker pfnMode) const
    {
        SForm oForm = *this;
        oForm.m_pfnMode = pfnMode;
        return oForm;
    }
    constexpr SForm Mode(ModeMaker pfnMode, unsigned int uiCode) const
    {
        SForm oForm = Mode(pfnMode);
        oForm.m_ui8Code = static_cast<unsigned char>(uiCode + 1);
        return oForm;
    }
};

constexpr SForm MakeForm(CZorEdidMap::EKind eKind)
{
    SForm oForm;
    oForm.m_eKind = eKind;
    return oForm;
}

constexpr SForm Number(const char* pszUnit = nullptr)
{
    SForm oForm;
    oForm.m_pszUnit = pszUnit;
    return oForm;
}

inline constexpr SMeaning gsc_aoNoYes[] = { { 0, 0, "no" }, { 1, 1, "yes" } };

inline constexpr SMeaning gsc_aoSupported[] = { { 0, 0, "not supported" }, { 1, 1, "supported" } };

constexpr SForm Flag(std::span<const SMeaning> aoMeanings = gsc_aoNoYes)
{
    return MakeForm(CZorEdidMap::eKind_Flag).With(aoMeanings);
}

constexpr SForm Names(std::span<const SMeaning> aoMeanings)
{
    return MakeForm(CZorEdidMap::eKind_Name).With(aoMeanings);
}

constexpr SForm Names(const char* (*pfnMeaning)(unsigned int))
{
    SForm oForm = MakeForm(CZorEdidMap::eKind_Name);
    oForm.m_pfnMeaning = pfnMeaning;
    return oForm;
}

constexpr SForm Text() { return MakeForm(CZorEdidMap::eKind_Text); }
constexpr SForm Bytes() { return MakeForm(CZorEdidMap::eKind_Bytes); }
constexpr SForm Unknown() { return MakeForm(CZorEdidMap::eKind_Unknown); }
// Of a field that has a name, so that its value says that it is not known.
inline constexpr SMeaning gsc_aoUnknownValue[] = { { 0, 0xFFFFFFFF, "unknown" } };
constexpr SForm UnknownValue() { return Unknown().With(gsc_aoUnknownValue); }
constexpr SForm Reserved(unsigned int uiExpected = 0)
{
    return MakeForm(CZorEdidMap::eKind_Reserved).Expect(uiExpected, eZorEdidRule_ReservedBits);
}
// A byte, or a run of bytes, that says nothing but must have this value.
constexpr SForm Filler(unsigned int uiExpected, EZorEdidRule eUnexpected)
{
    return MakeForm(CZorEdidMap::eKind_Reserved).Expect(uiExpected, eUnexpected);
}

// ---- What is wrong with it ----

// The rule that a raw value breaks, and the raw values from m_uiLeast to m_uiMost that would keep it: msc_uiAny for an
// end that the rule does not have. A rule without numbers is enough.
struct SBreach
{
    static constexpr unsigned int msc_uiAny = SForm::msc_uiAny;

    constexpr SBreach(EZorEdidRule eRule, unsigned int uiLeast = msc_uiAny, unsigned int uiMost = msc_uiAny)
        : m_eRule(eRule), m_uiLeast(uiLeast), m_uiMost(uiMost)
    {
    }

    EZorEdidRule m_eRule;
    unsigned int m_uiLeast;
    unsigned int m_uiMost;
};
inline constexpr SBreach gsc_oNoBreach = eZorEdidRule_None;

// ---- What a group leaves over ----

struct SRest
{
    EZorEdidField m_eId;
    const char* m_pszName;
    CZorEdidMap::EKind m_eKind; // eKind_Reserved, with a note where it is not 0, or eKind_Unknown
    EZorEdidRule m_eNotZero = eZorEdidRule_ReservedBits;
};
inline constexpr SRest gsc_oReservedRest = { eId_Reserved, "Reserved", CZorEdidMap::eKind_Reserved };
inline constexpr SRest gsc_oPaddingRest = { eId_Padding, "Padding", CZorEdidMap::eKind_Reserved };
inline constexpr SRest gsc_oFillerRest = { eId_Padding, "Filler", CZorEdidMap::eKind_Reserved };
inline constexpr SRest gsc_oUnknownRest = { eId_Unknown, "Unknown", CZorEdidMap::eKind_Unknown };
inline constexpr SRest gsc_oTailRest = { eId_AfterBlocks, "Bytes after the blocks", CZorEdidMap::eKind_Unknown };
inline constexpr SRest gsc_oCutRest = { eId_Unknown, "Unknown, cut short", CZorEdidMap::eKind_Unknown };

// ---- Rows and tables: the map keeps their addresses, so that they must be static ----

struct SRow
{
    EZorEdidField m_eId;
    SPlace m_oPlace;
    const char* m_pszName;
    SForm m_oForm;
    bool (*m_pfnApplies)(const CRecord&) = nullptr; // null: always
    // Which rule the value breaks.
    SBreach (*m_pfnCheck)(const CRecord&, unsigned int uiValue) = nullptr;
};

// Its record ends with the checksum byte, so that it needs no place.
constexpr SRow ChecksumRow(EZorEdidField eId, const char* pszName)
{
    return { eId, {}, pszName, MakeForm(CZorEdidMap::eKind_Checksum) };
}

// A structure: its rows, and the area that all of its fields are of. Bits that no row takes become "Reserved", with a
// note when they are set. Rows never overlap: of two rows for a bit, exactly one must apply.
struct STable
{
    EZorEdidField m_eId;   // of its group
    const char* m_pszName; // in the standard's term
    CZorEdidMap::EArea m_eArea;
    std::span<const SRow> m_aoRows;
    // The value of the group. Null: the size and rate of its mode, else none.
    CMString (*m_pfnSummary)(const CRecord&) = nullptr;
    ModeMaker m_pfnMode = nullptr;
};
} // namespace ZorMap
