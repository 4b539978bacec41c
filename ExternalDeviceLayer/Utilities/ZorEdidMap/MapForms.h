// Places, forms of values, conditions and rules that tables of several files use. Private to this folder.

#pragma once

#include <array>

#include "MapWriter.h"

namespace ZorMap
{
// ---- Conditions of rows ----

// "Not X" of a condition X.
template <bool (*APPLIES)(const CRecord&)>
bool IsNot(const CRecord& oRecord)
{
    return !APPLIES(oRecord);
}

template <unsigned int OFFSET, unsigned int BIT>
bool WhereSet(const CRecord& oRecord)
{
    return oRecord.IsSet(OFFSET, BIT);
}

// ---- Checks of rows ----

template <unsigned int LEAST, unsigned int MOST>
SBreach CheckWithin(const CRecord& /*oRecord*/, unsigned int uiValue)
{
    return uiValue < LEAST || uiValue > MOST ? SBreach(eZorEdidRule_OutOfRange, LEAST, MOST) : gsc_oNoBreach;
}

constexpr SBreach CheckAtLeast(unsigned int uiLeast, unsigned int uiValue,
                               EZorEdidRule eRule = eZorEdidRule_MaximumBelowMinimum)
{
    return uiValue < uiLeast ? SBreach(eRule, uiLeast) : gsc_oNoBreach;
}
constexpr SBreach CheckAtMost(unsigned int uiMost, unsigned int uiValue, EZorEdidRule eRule)
{
    return uiValue > uiMost ? SBreach(eRule, SBreach::msc_uiAny, uiMost) : gsc_oNoBreach;
}
// Of a timing. The back porch is what front porch, sync pulse and the borders on both sides leave of the blanking.
constexpr SBreach CheckBlanking(unsigned int uiOthers, unsigned int uiBlanking)
{
    return uiBlanking == uiOthers ? SBreach(eZorEdidRule_BackPorch, uiOthers + 1)
                                  : CheckAtLeast(uiOthers, uiBlanking, eZorEdidRule_Blanking);
}

inline constexpr unsigned int gsc_uiFirstAfterAscii = 0x7F; // 7Fh itself does not print

// Of a text that goes from byte FIRST of the record to its end.
template <unsigned int FIRST>
SBreach CheckAscii(const CRecord& oRecord, unsigned int /*uiValue*/)
{
    for (unsigned int i = FIRST; i < oRecord.GetSize(); ++i)
    {
        if (oRecord.GetByte(i) < ' ' || oRecord.GetByte(i) >= gsc_uiFirstAfterAscii)
        {
            return eZorEdidRule_Ascii;
        }
    }
    return eZorEdidRule_None;
}

// ---- Places and forms ----

// Stored minus 1.
constexpr SForm NumberFrom1(const char* pszUnit = nullptr) { return Number(pszUnit).Times(1, 1); }

// Stored as 100 times the value, minus 100: gamma and aspect ratios, 1.00 to 3.55.
constexpr SForm HundredthsFrom1() { return Number().Times(1, 100).Decimals(2); }

// Stored as a multiple of 1 / uiDenominator.
constexpr SForm Fraction(const char* pszUnit, unsigned int uiDenominator, unsigned int uiDecimals = 4)
{
    long long llScale = 1;
    for (unsigned int i = 0; i < uiDecimals; ++i)
    {
        llScale *= 10;
    }
    return Number(pszUnit).Times(llScale).Over(uiDenominator).Decimals(uiDecimals);
}

// A row of the same name for each bit of a byte, from bit 0 on.
constexpr std::array<SRow, gsc_uiBits> BitRows(EZorEdidField eId, const char* pszName, const SForm& oForm)
{
    std::array<SRow, gsc_uiBits> aoRows = {};
    for (unsigned int i = 0; i < gsc_uiBits; ++i)
    {
        aoRows[i] = { eId, Bit(0, i), pszName, oForm };
    }
    return aoRows;
}

// ---- Lengths of payloads ----

inline constexpr unsigned int gsc_uiMostPayload = 248; // of DisplayID; the length field of CTA-861 ends at 31

// Lengths that are right: from m_uiLeast to m_uiMost; beyond m_uiLeast in steps of m_uiStep, unless it is 0; of those
// up to 31 only the bits of m_uiAllowed.
struct SPayloadRule
{
    unsigned int m_uiLeast;
    unsigned int m_uiMost;
    unsigned int m_uiStep = 0;
    SBitsPlace m_oExtraBytes = {}; // of DisplayID: bits of the flags that make each item, so least and step, longer
    unsigned int m_uiAllowed = 0xFFFFFFFF;

    constexpr bool Allows(unsigned int uiLength) const
    {
        return uiLength > 31 || ((m_uiAllowed >> uiLength) & 1U) != 0;
    }
    // Of a length that is wrong: among items, one of them is lost.
    constexpr CZorEdidMap::ESeverity GetSeverity() const
    {
        return m_uiStep != 0 ? CZorEdidMap::eSeverity_Error : CZorEdidMap::eSeverity_Warning;
    }
};

constexpr SPayloadRule Exactly(unsigned int uiBytes) { return { uiBytes, uiBytes }; }
constexpr SPayloadRule AtLeast(unsigned int uiBytes) { return { uiBytes, gsc_uiMostPayload }; }
constexpr SPayloadRule ItemsOf(unsigned int uiBytes) { return { uiBytes, gsc_uiMostPayload, uiBytes }; }

// One of these lengths, in ascending order; with bMore any that is longer as well.
constexpr SPayloadRule OneOf(std::initializer_list<unsigned int> auiLengths, bool bMore = false)
{
    const unsigned int uiLast = *(auiLengths.end() - 1);
    SPayloadRule oRule = { *auiLengths.begin(), bMore ? gsc_uiMostPayload : uiLast };
    oRule.m_uiAllowed = bMore ? 0xFFFFFFFF << uiLast : 0;
    for (const unsigned int uiLength : auiLengths)
    {
        oRule.m_uiAllowed |= 1U << uiLength;
    }
    return oRule;
}

// Beside a length that is wrong, the right ones: the limit that it misses, or the closest ones around it. uiHead: bytes
// before the payload that the length field of the data block counts as well.
constexpr CZorEdidMap::SNumbers GetRightLengths(const SPayloadRule& oRule, unsigned int uiLength,
                                                unsigned int uiHead = 0)
{
    if (oRule.m_uiLeast == oRule.m_uiMost)
    {
        return CountExactly("bytes", uiHead + uiLength, uiHead + oRule.m_uiLeast);
    }
    if (uiLength < oRule.m_uiLeast)
    {
        return CountAtLeast("bytes", uiHead + uiLength, uiHead + oRule.m_uiLeast);
    }
    if (uiLength > oRule.m_uiMost)
    {
        return CountAtMost("bytes", uiHead + uiLength, uiHead + oRule.m_uiMost);
    }
    const auto fnIsRight = [&](unsigned int uiOther) {
        return oRule.Allows(uiOther) && (oRule.m_uiStep == 0 || (uiOther - oRule.m_uiLeast) % oRule.m_uiStep == 0);
    };
    unsigned int uiBelow = uiLength;
    unsigned int uiAbove = uiLength;
    while (!fnIsRight(uiBelow))
    {
        --uiBelow;
    }
    while (!fnIsRight(uiAbove))
    {
        ++uiAbove;
    }
    return { "bytes", uiHead + uiLength, uiHead + uiBelow, uiHead + uiAbove, true };
}

struct SPayloadNotes
{
    EZorEdidRule m_eShort;
    EZorEdidRule m_eLong;
    EZorEdidRule m_ePart;                      // not a whole number of items
    EZorEdidRule m_eOther = eZorEdidRule_None; // not one of the lengths
};

// Which of the rules a length breaks.
constexpr EZorEdidRule CheckPayload(const SPayloadRule& oRule, unsigned int uiLength, const SPayloadNotes& oNotes)
{
    return uiLength < oRule.m_uiLeast                                                  ? oNotes.m_eShort
           : uiLength > oRule.m_uiMost                                                 ? oNotes.m_eLong
           : !oRule.Allows(uiLength)                                                   ? oNotes.m_eOther
           : oRule.m_uiStep != 0 && (uiLength - oRule.m_uiLeast) % oRule.m_uiStep != 0 ? oNotes.m_ePart
                                                                                       : eZorEdidRule_None;
}
} // namespace ZorMap
