// Timings by the formulas of the standards: VESA GTF 1.1, VESA CVT 1.2 and 2.0, and the optimized video timings of
// CTA-861.6. In whole numbers, so that a clock is what the standard's rounding makes of it. The library's own formulas
// (CVidParamCvt, CVidParamGtf), whose answers its lists are numbered by, round otherwise. Private to the library and
// the command.

#pragma once

#include "EdidMode.h"

namespace ZorStandards
{
// Each takes size, scan and nominal rate of oMode and fills in the numbers: clock, axes, rate. Rates of interlaced
// modes are those of fields. Widths are not rounded to whole cells, as a display's format needs all its pixels. False,
// and oMode unchanged, where the formula has no answer: a size or rate of 0, a size above gsc_uiMostFormulaSize, a rate
// above gsc_uiMostFormulaRate Hz or with a dividend above gsc_uiMostFormulaDividend, no room for blanking.
inline constexpr unsigned int gsc_uiMostFormulaSize = 65536;
inline constexpr unsigned int gsc_uiMostFormulaRate = 1000;
inline constexpr unsigned int gsc_uiMostFormulaDividend = 1U << 20;

// Of the blanking curve, as the range limits of E-EDID store them: C and J doubled.
struct SGtfCurve
{
    unsigned int m_uiTwiceC;
    unsigned int m_uiM;
    unsigned int m_uiK;
    unsigned int m_uiTwiceJ;
};
inline constexpr SGtfCurve gsc_oDefaultCurve = { 80, 600, 128, 40 };

// Another curve than the default one gives the polarities of the secondary curve.
bool ComputeGtf(SZorMode& oMode, const SGtfCurve& oCurve = gsc_oDefaultCurve);

// What reduced blanking version 3 leaves open.
struct SReducedBlanking
{
    unsigned int m_uiHorizontalBlank = 80;    // pixels, 80 to 200
    unsigned int m_uiVerticalBlankInUs = 460; // the least
    bool m_bEarlySync = false;                // in the middle of the blanking
};

// By the blanking that oMode names; false for none and for a custom one.
bool ComputeCvt(SZorMode& oMode, const SReducedBlanking& oReduced = {});

// Of progressive modes at a whole rate. 24, 25, 30, 48, 50, 60, 100, 120, 200, 240, 300, 360, 400 and 480 Hz share
// their line rate with their group.
bool ComputeOvt(SZorMode& oMode);
} // namespace ZorStandards
