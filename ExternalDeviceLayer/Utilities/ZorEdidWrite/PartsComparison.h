// Whether an image reads as before, apart from the parts that an edit names and from what follows from them. Private to
// this folder.

#pragma once

#include "ZorEdidMap.h"

namespace ZorWrite
{
// Bytes of an image.
struct SRange
{
    unsigned int m_uiOffset;
    unsigned int m_uiSize;

    bool Holds(const CZorEdidMap::SField& oField) const
    {
        return oField.m_uiOffset >= m_uiOffset && oField.m_uiOffset + oField.m_uiLength <= m_uiOffset + m_uiSize;
    }
};
using CRanges = CMArray<SRange, const SRange&>;
using CFields = CMArray<unsigned int, const unsigned int&>;

// The named parts: where they were, and where they are.
struct SNamed
{
    CRanges m_aoBefore;
    CRanges m_aoAfter;
};

class CPartsComparison
{
public:
    CPartsComparison(const CZorEdidMap& oBefore, const CZorEdidMap& oAfter, const SNamed& oNamed);

    // Empty, or what is wrong: the leaves that are not named must be the same ones in the same order.
    CMString FindDifference() const;
    // The same of what two ranges hold: a part that has moved.
    CMString FindDifference(const SRange& oBefore, const SRange& oAfter) const;
    // Lengths, counts, places and checksums of the map after the change that are others than before.
    void ListFollowed(CFields& auiFollowed) const;

private:
    struct SLeaves
    {
        CFields m_auiKept;
        CFields m_auiFollowing;
    };
    static SLeaves ListLeaves(const CZorEdidMap& oMap, const CRanges& aoWithout, const SRange& oWithin);
    bool IsSame(unsigned int uiBefore, unsigned int uiAfter) const;
    CMString Compare(const CFields& auiBefore, const CFields& auiAfter) const;

    const CZorEdidMap& m_oBefore;
    const CZorEdidMap& m_oAfter;
    SNamed m_oNamed; // sorted
};

// The outermost field of exactly these bytes; CZorEdidMap::msc_uiNone for none.
unsigned int FindField(const CZorEdidMap& oMap, const SRange& oRange);
} // namespace ZorWrite
