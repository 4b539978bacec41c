// What makes the modes of fields, by the readers of the standards. Private to this folder.

#pragma once

#include "MapWriter.h"
#include "Standards/Modes.h"

namespace ZorMap
{
using CMode = CZorEdidMap::SMode;

// As ModeMaker, of a record.
template <bool (*READ)(const CRecordBytes&, CMode&)>
bool MakeMode(const CRecord& oRecord, const SModeSource& oSource, CMode& oMode)
{
    return oSource.m_uiRank == 0 && READ(oRecord, oMode);
}

// As ModeMaker, of a leaf with a code.
template <bool (*MAKE)(CMode&, unsigned int)>
bool MakeCodeMode(const CRecord& /*oRecord*/, const SModeSource& oSource, CMode& oMode)
{
    return oSource.m_uiRank == 0 && MAKE(oMode, oSource.m_uiCode);
}

// What the walk said of a mode beyond its bytes.
void SetMarks(CMode& oMode, unsigned int uiMarks);
} // namespace ZorMap
