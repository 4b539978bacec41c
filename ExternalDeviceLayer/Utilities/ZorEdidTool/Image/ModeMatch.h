// Which modes two images share: the one answer to what only one of them has.

#pragma once

#include <array>
#include <stddef.h>

#include "ModeList.h"

inline constexpr size_t gsc_uiNoPartner = static_cast<size_t>(-1);

// Each mode of the first list and each of the second has at most one partner, so that a mode counts as often as it is
// named. Partners equal each other by CVidParamTiming: clocks may differ as those of 1000/1001 variants do. The
// preferred modes come together first, then modes with the same clock, and among these modes of the same list.
struct SModePairs
{
    // Of each mode of a list the index in the other one, or gsc_uiNoPartner.
    std::array<std::vector<size_t>, 2> m_aauiPartners;

    // Whether mode uiMode of the first (0) or second (1) list is in that image only.
    bool IsOnlyHere(size_t uiImage, size_t uiMode) const { return m_aauiPartners[uiImage][uiMode] == gsc_uiNoPartner; }
};

SModePairs MatchModes(const CModes& aoFirst, const CModes& aoSecond);
