// Which modes two images share: the one answer to what only one of them has.

#pragma once

#include <array>
#include <stddef.h>

#include "ImageModes.h"

inline constexpr size_t gsc_uiNoPartner = static_cast<size_t>(-1);

// Each mode of the first image and each of the second has at most one partner, so that a mode counts as often as it is
// announced. Partners have the same numbers, 4:2:0 and 3D; clocks may differ as those of 1000/1001 variants do. The
// preferred modes come together first, then modes with the same clock, and among these modes of the same kind of field.
struct SModePairs
{
    // Of each row the index in the other image's, or gsc_uiNoPartner.
    std::array<std::vector<size_t>, 2> m_aauiPartners;

    // Whether mode uiMode of the first (0) or second (1) list is in that image only.
    bool IsOnlyHere(size_t uiImage, size_t uiMode) const { return m_aauiPartners[uiImage][uiMode] == gsc_uiNoPartner; }
};

SModePairs MatchModes(const CImageModes& oFirst, const CImageModes& oSecond);

// Partners could be these two.
bool IsSameMode(const SModeRow& oFirst, const SModeRow& oSecond);
