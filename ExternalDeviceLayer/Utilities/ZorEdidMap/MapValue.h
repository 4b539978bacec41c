// Values as text. Private to this folder: CZorEdidMap::GetValue asks FormatValue, summaries may use FormatNumber.

#pragma once

#include "MapWriter.h"

namespace ZorMap
{
// What describes a field: the row of a leaf or the table of a group, either may be null, and the bytes under it.
struct SValueSource
{
    const SRow* m_poRow;
    const STable* m_poTable;
    const CRecord& m_oRecord;
};

CMString FormatValue(const SMapContent& oMap, const CZorEdidMap::SField& oField, const SValueSource& oSource);
CMString FormatValue(const SMapContent& oMap, unsigned int uiField);

// The bits of a leaf as one number, the most significant piece first; of more than 32 bits the last ones.
unsigned int GetRaw(const SMapContent& oMap, const CZorEdidMap::SField& oField);

// llNumber / 10 ^ uiDecimals, then a blank and the unit; null for no unit: "2.20", "60 Hz", "2 bytes", "1 byte".
CMString FormatNumber(long long llNumber, unsigned int uiDecimals, const char* pszUnit);
} // namespace ZorMap
