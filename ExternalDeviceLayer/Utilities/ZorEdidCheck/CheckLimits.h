// The words for a mode outside of the display range limits: by which limit and by how much. Private to this folder.

#pragma once

#include "CheckFindings.h"
#include "Standards/Modes.h"

namespace ZorCheck
{
// The descriptor with display range limits in the base block.
struct SRangeDescriptor
{
    unsigned int m_uiOffset; // 0 for none
    Descriptors::SRangeLimits m_oLimits;
};
SRangeDescriptor FindRangeLimits(const CFindings& oFindings);

// "line rate 133.31 kHz" as found, "30 to 83 kHz" as expected: of one limit, and of the first that the mode breaks.
void DescribeBreach(ELimit eLimit, const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits,
                    SZorFinding& oFinding);
void DescribeBreach(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits, SZorFinding& oFinding);
} // namespace ZorCheck
