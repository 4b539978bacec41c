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

// The limits that a mode may leave. A clock that is above its own by less than the unit, as makers round down, comes
// last.
enum ELimit
{
    eLimit_Clock,
    eLimit_LineRateBelow,
    eLimit_LineRateAbove,
    eLimit_FieldRateBelow,
    eLimit_FieldRateAbove,
    eLimit_RoundedClock,
    eLimit_Count
};
bool IsBroken(ELimit eLimit, const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits);

// "line rate 133.31 kHz" as found, "30 to 83 kHz" as expected: of one limit, and of the first that the mode breaks.
void DescribeBreach(ELimit eLimit, const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits,
                    SZorFinding& oFinding);
void DescribeBreach(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits, SZorFinding& oFinding);
} // namespace ZorCheck
