// Values as bits: which raw value of a leaf says what is asked for. The rows of the map's tables are read backwards, by
// search. Private to this folder: CZorEdidWriter writes what is found here.

#pragma once

#include "MapValue.h"

namespace ZorMap
{
using CImageBytes = CMArray<unsigned char, const unsigned char&>;

struct SRawChoice
{
    bool m_bFound = false;
    bool m_bExact = false;
    unsigned int m_uiRaw = 0;
    CMString m_oText;   // what the leaf then says
    CMString m_oReason; // why none is found, with what is allowed
};

// Of a leaf with a row whose place is not a run.
SRawChoice ChooseRaw(const SMapContent& oMap, unsigned int uiField, const char* pszValue);

// The names that are accepted of such a leaf, in the order of their raw values, each once. Of a leaf of more than 16
// bits, and of more than 8 where the whole image gives it its meaning, those of the lowest and the highest value alone.
void ListNames(const SMapContent& oMap, unsigned int uiField, CMArrayString& aoNames);

// Whether all other leaves read as before when a leaf has this raw value. Defined where values are written.
bool IsAcceptedRaw(const SMapContent& oMap, unsigned int uiField, unsigned int uiRaw);

// A whole number with or without the unit of a field. False for anything else.
bool ParseWholeNumber(const char* pszText, const char* pszUnit, unsigned int& uiNumber);

// The leaf of oOther that has the highest bit of a leaf of oMap; both are of images of the same size.
unsigned int FindLeafOf(const SMapContent& oOther, const SMapContent& oMap, const CZorEdidMap::SField& oField);

unsigned int CountBits(const SMapContent& oMap, const CZorEdidMap::SField& oField);
// The bits of a leaf in an image of the same size; at most 32 bits.
void PutRaw(const SMapContent& oMap, const CZorEdidMap::SField& oField, unsigned int uiRaw, CImageBytes& aui8Image);

// Decimal, or hexadecimal after 0x. False for anything else and above 32 bits.
bool ParseRaw(const char* pszText, unsigned int& uiRaw);
// Two hexadecimal digits a byte; blanks, hyphens and colons may lie between the bytes.
bool ParseHexBytes(const char* pszText, CImageBytes& aui8Bytes);

// Letters of either case are the same.
bool IsSameText(const char* pszFirst, const char* pszSecond);
} // namespace ZorMap
