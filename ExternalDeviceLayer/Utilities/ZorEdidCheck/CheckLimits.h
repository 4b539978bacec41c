// A mode against the display range limits: which of them it leaves, and by how much. Private to this folder.

#pragma once

#include "CheckFindings.h"
#include "Standards/Descriptors.h"

namespace ZorCheck
{
// The descriptor with display range limits in the base block.
struct SRangeDescriptor
{
    unsigned int m_uiOffset; // 0 for none
    Descriptors::SRangeLimits m_oLimits;
};
SRangeDescriptor FindRangeLimits(const CFindings& oFindings);

// The limit that a mode leaves. A clock that is above its own by less than the unit, as makers round down, comes last.
enum ELimit
{
    eLimit_None,
    eLimit_Clock,
    eLimit_LineRate,
    eLimit_FieldRate,
    eLimit_RoundedClock
};
ELimit FindBreach(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits);

// "line rate 133.31 kHz" as found, "30 to 83 kHz" as expected.
void DescribeBreach(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits, SZorFinding& oFinding);
} // namespace ZorCheck
