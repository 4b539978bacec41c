// What the two timing formulas share: units, the cell grid of the width, the sync width and the final check.
// Private to VidParamCvt.cpp and VidParamGtf.cpp. Unsigned 32 bits throughout; sums, products and differences wrap.

#pragma once

#include "ZorTools.h"

namespace VidParamFormula
{
constexpr unsigned int gsc_uiNanosecondsPerSecond = 1000000000;
constexpr unsigned int gsc_uiHzPerKiloHz = 1000;

constexpr unsigned int gsc_uiCellWidth = 8;                      // pixels
constexpr unsigned int gsc_uiBlankingUnit = 2 * gsc_uiCellWidth; // so that half of the blanking is whole cells

constexpr unsigned int gsc_uiMinSyncAndBackTime = 550000; // vertical sync plus back porch, ns
constexpr unsigned int gsc_uiSyncPerMille = 80;           // horizontal sync, of the total line
constexpr unsigned int gsc_uiPerMille = 1000;

// To the nearest cell, a half going up.
inline unsigned int RoundToCell(unsigned int uiPixels)
{
    return ZorTools_RoundedDivision(uiPixels, gsc_uiCellWidth) * gsc_uiCellWidth;
}

constexpr unsigned int CutToCell(unsigned int uiPixels) { return uiPixels / gsc_uiCellWidth * gsc_uiCellWidth; }

// Where the active part and the sync lie in a line (pixels) or a frame (lines).
struct SExtent
{
    unsigned int m_uiActive;
    unsigned int m_uiSyncStart;
    unsigned int m_uiSyncEnd;

    // A value that wrapped on the way here is too large or too small for this order.
    constexpr bool IsInOrder() const { return m_uiActive <= m_uiSyncStart && m_uiSyncStart < m_uiSyncEnd; }
};
} // namespace VidParamFormula
