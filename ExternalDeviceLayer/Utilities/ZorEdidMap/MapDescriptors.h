// Detailed timings against range limits. For MapBase.cpp, which knows both; MapDescriptors.cpp has their layouts.

#pragma once

#include "MapWriter.h"

// Of one descriptor. A maximum of 0 limits nothing.
struct SRangeLimits
{
    bool m_bThere;
    unsigned int m_uiLeastRate; // Hz
    unsigned int m_uiMostRate;
    unsigned int m_uiLeastLineRate; // kHz
    unsigned int m_uiMostLineRate;
    unsigned int m_uiMostClock; // 10 kHz
};

// Both records have gsc_uiMapDescriptorSize bytes, of a range limits descriptor and of a detailed timing.
SRangeLimits ReadRangeLimits(const CRecord& oRecord);
// What of the timing lies beyond the limits, as a static text; null when nothing does. Limits are whole numbers: half a
// unit beyond them is within.
const char* CheckAgainstLimits(const CRecord& oTiming, const SRangeLimits& oLimits);
