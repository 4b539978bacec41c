// Which modes two images share: the one answer to what only one of them has.

#pragma once

#include <array>
#include <stddef.h>
#include <utility>
#include <vector>

#include "ImageModes.h"

inline constexpr size_t gsc_uiNoPartner = static_cast<size_t>(-1);

// Each mode of the first image and each of the second has at most one partner, so that a mode counts as often as it is
// announced. Partners have the same numbers, 4:2:0 and 3D; clocks may differ as those of 1000/1001 variants do. The
// preferred modes come together first, then modes with the same clock, and among these modes of the same kind of field.
struct SModePairs
{
    // Of each row the index in the other image's, or gsc_uiNoPartner.
    std::array<std::vector<size_t>, 2> m_aauiPartners;

    // Of each row whether the other image has its mode, at its very rate, whatever the partners.
    std::array<std::vector<bool>, 2> m_aabShared;

    // Of mode uiMode of the first (0) or second (1) list. One without a partner is in that image only, or once more.
    bool HasNoPartner(size_t uiImage, size_t uiMode) const
    {
        return m_aauiPartners[uiImage][uiMode] == gsc_uiNoPartner;
    }
    bool IsOnlyHere(size_t uiImage, size_t uiMode) const
    {
        return HasNoPartner(uiImage, uiMode) && !m_aabShared[uiImage][uiMode];
    }
};

SModePairs MatchModes(const CImageModes& oFirst, const CImageModes& oSecond);

// Partners could be these two.
bool IsSameMode(const SModeRow& oFirst, const SModeRow& oSecond);

// Of modes without a partner those that differ in 4:2:0, 3D or both alone, each with the one of the other image. Those
// that differ in one of these come together first.
using CRowPair = std::pair<const SModeRow*, const SModeRow*>;
std::vector<CRowPair> PairButForms(std::vector<const SModeRow*> apoFirst, std::vector<const SModeRow*> apoSecond);

// What a pair of that function may differ in.
bool DifferIn420(const CRowPair& apoPair);
bool DifferIn3d(const CRowPair& apoPair);
