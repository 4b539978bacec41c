// The range limits of a base block, and how they come to hold a timing.

#pragma once

#include <string>

#include "EdidMode.h"
#include "Standards/BaseBlock.h"

using SLimits = ZorStandards::Descriptors::SRangeLimits;

// "48 to 75 Hz, 30 to 83 kHz, 170 MHz"
std::string GetLimitsText(const SLimits& oLimits);

// Wide enough for a mode with a timing.
SLimits WidenLimits(const SLimits& oLimits, const SZorMode& oMode);

// Only what differs is written. uiRevision: of the base block. False when the bytes cannot hold the limits.
bool WriteLimits(unsigned char* pui8Limits, unsigned int uiRevision, const SLimits& oLimits);
