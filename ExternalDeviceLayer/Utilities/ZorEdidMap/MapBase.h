// What the tables of the base block and those of its descriptors share; the header is known to MapOther.cpp, too.

#pragma once

#include "MapForms.h"
#include "MapModes.h"
#include "Standards/Descriptors.h"

namespace ZorMap
{
// The first 8 bytes of a base block; whether a record begins with them.
extern const SRow g_oHeaderRow;
bool HasHeader(const CRecord& oRecord);

// Conditions of rows: E-EDID 1.4 and later ones.
inline bool IsRevision4(const CRecord& oRecord) { return oRecord.GetFacts().m_uiRevision >= 4; }
inline constexpr auto IsBefore4 = IsNot<IsRevision4>;

// CIE coordinates of 10 bits.
constexpr SForm Chromaticity() { return Fraction(nullptr, 1024); }

inline constexpr SMeaning gsc_aoGammaNotHere[] = { { 0xFF, 0xFF, "not given here" } };

// ---- Detailed timings against range limits ----

// Both records have gsc_uiMapDescriptorSize bytes, of a range limits descriptor and of a detailed timing. A maximum of
// 0 limits nothing.
using Descriptors::SRangeLimits;
SRangeLimits ReadRangeLimits(const CRecord& oRecord);
// The first limit that the timing leaves; eLimit_Count for none.
ELimit FindBreach(const CRecord& oTiming, const SRangeLimits& oLimits);

// Whether the image of the timing is more than a tenth larger than a screen of this size in mm, or less than half as
// large. False where one of them is not given.
bool IsImageFarFrom(const CRecord& oTiming, unsigned int uiWidth, unsigned int uiHeight);
} // namespace ZorMap
