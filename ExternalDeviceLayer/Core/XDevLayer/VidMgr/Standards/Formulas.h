// Timings by the formulas of the standards: VESA GTF 1.1, VESA CVT 1.2 and 2.0, and the optimized video timings of
// CTA-861.6. In whole numbers, so that a clock is what the standard's rounding makes of it. The library's own formulas
// (CVidParamCvt, CVidParamGtf), whose answers its lists are numbered by, round otherwise. Private to the library and
// the command.

#pragma once

#include "EdidMode.h"

namespace ZorStandards
{
// Each takes size, scan and nominal rate of oMode and fills in the numbers: clock, axes, rate (not reduced). Rates of
// interlaced modes are those of fields. Without borders. False, and oMode unchanged, where the formula has no answer: a
// size of 0 or above gsc_uiMostFormulaSize, a rate below 1 Hz or above gsc_uiMostFormulaRate, a reduced divisor above
// gsc_ullMostFormulaDivisor, an odd number of lines of an interlaced mode, parts of a line or a frame that do not fit
// (no sync pulse, a negative porch, a clock of 0).
inline constexpr unsigned int gsc_uiMostFormulaSize = 65536;
inline constexpr unsigned int gsc_uiMostFormulaRate = 1000;
inline constexpr unsigned long long gsc_ullMostFormulaDivisor = 1ULL << 34;

// Widths are taken as they are, as a display's format needs all its pixels. GTF itself rounds them to whole cells of 8
// pixels, CVT with standard blanking and reduced blanking 1 and 3 cuts them to some.
inline constexpr unsigned int gsc_uiFormulaCell = 8;
constexpr unsigned int CutToCell(unsigned int uiWidth) { return uiWidth / gsc_uiFormulaCell * gsc_uiFormulaCell; }
constexpr unsigned int RoundToCell(unsigned int uiWidth) { return CutToCell(uiWidth + gsc_uiFormulaCell / 2); }

// Of the blanking curve, as the range limits of E-EDID store them: C and J doubled. 8 bits, of M 16.
struct SGtfCurve
{
    unsigned int m_uiTwiceC;
    unsigned int m_uiM;
    unsigned int m_uiK;
    unsigned int m_uiTwiceJ;
};
inline constexpr SGtfCurve gsc_oDefaultCurve = { 80, 600, 128, 40 };

// The clock is the exact one to the nearest Hz. Another curve than the default one gives the polarities of the
// secondary curve.
bool ComputeGtf(SZorMode& oMode, const SGtfCurve& oCurve = gsc_oDefaultCurve);

// What reduced blanking leaves open.
struct SReducedBlanking
{
    unsigned int m_uiHorizontalBlank = 80;    // of version 3: pixels, 80 to 200
    unsigned int m_uiVerticalBlankInUs = 460; // of version 3: the least, below 1000
    bool m_bEarlySync = false;                // of version 3: in the middle of the blanking
    bool m_bVideo = false; // of version 2: 1000/1001 of the clock, with the lines of the rate asked for
};

// By the blanking that oMode names; false for none and for a custom one. Clocks are rounded down to 250 kHz, those of
// version 2 down to 1 kHz, those of version 3 up to 1 kHz.
bool ComputeCvt(SZorMode& oMode, const SReducedBlanking& oReduced = {});

// Of progressive modes with widths of whole cells, at a whole rate or at 1000/1001 of one, which has its totals. 24,
// 25, 30, 48, 50, 60, 100, 120, 200, 240, 300, 360, 400 and 480 Hz share their line rate with their group.
bool ComputeOvt(SZorMode& oMode);
} // namespace ZorStandards
