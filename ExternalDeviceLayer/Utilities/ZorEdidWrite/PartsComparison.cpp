// Two maps leaf by leaf: their places may differ, what they say may not.

#include "PartsComparison.h"

#include <string.h>

#include <algorithm>
#include <iterator>

#include "MapGroupName.h"

namespace ZorWrite
{
namespace
{
constexpr SRange gsc_oWholeImage = { 0, 0xFFFFFFFF };

// What follows from which parts there are.
constexpr EZorEdidField gsc_aeFollowing[] = {
    eZorEdidField_BaseExtensionCount,
    eZorEdidField_CtaDetailedOffset,
    eZorEdidField_CtaNativeCount,
    eZorEdidField_CtaDataBlockLength,
    eZorEdidField_CtaExtensionOverrideCount,
    eZorEdidField_DisplayidSectionLength,
    eZorEdidField_DisplayidSectionProductType,
    eZorEdidField_DisplayidSectionUseCase,
    eZorEdidField_DisplayidSectionExtensionCount,
    eZorEdidField_DisplayidDataBlockLength,
    eZorEdidField_BlockMapTag,
};

bool IsFollowing(const CZorEdidMap::SField& oField)
{
    return oField.m_eKind == CZorEdidMap::eKind_Checksum ||
           std::ranges::find(gsc_aeFollowing, oField.m_eId) != std::end(gsc_aeFollowing);
}

// A place of the 4:2:0 capability map that says nothing: reserved where no code has it, no where one comes to have it.
bool IsUnusedMapPlace(const CZorEdidMap& oMap, const CZorEdidMap::SField& oField)
{
    const unsigned int uiGroup = oField.m_uiGroup;
    return uiGroup != CZorEdidMap::msc_uiNone && oMap.GetField(uiGroup).m_eId == eZorEdidField_Cta420Map &&
           (oField.m_eKind == CZorEdidMap::eKind_Reserved || oField.m_eKind == CZorEdidMap::eKind_Flag) &&
           oField.m_llNumber == 0;
}

unsigned int GetEnd(const SRange& oRange) { return oRange.m_uiOffset + oRange.m_uiSize; }

// In their order, without those that lie in others: thousands of them may be asked for each field.
CRanges SortRanges(CRanges aoRanges)
{
    SRange* const poFirst = aoRanges.GetData();
    SRange* const poEnd = poFirst + aoRanges.GetCount();
    std::sort(poFirst, poEnd, [](const SRange& oOne, const SRange& oOther) {
        return oOne.m_uiOffset != oOther.m_uiOffset ? oOne.m_uiOffset < oOther.m_uiOffset
                                                    : oOne.m_uiSize > oOther.m_uiSize;
    });
    SRange* poKept = poFirst;
    for (const SRange* poRange = poFirst; poRange != poEnd; ++poRange)
    {
        if (poKept == poFirst || GetEnd(poKept[-1]) < GetEnd(*poRange))
        {
            *poKept++ = *poRange;
        }
    }
    aoRanges.SetCount(static_cast<unsigned int>(poKept - poFirst), -1);
    return aoRanges;
}

// Of the sorted ranges only the last that begins at the field or before it can hold the field.
bool IsHeld(const CRanges& aoRanges, const CZorEdidMap::SField& oField)
{
    const SRange* const poFirst = aoRanges.GetData();
    const SRange* const poNext =
        std::upper_bound(poFirst, poFirst + aoRanges.GetCount(), oField.m_uiOffset,
                         [](unsigned int uiOffset, const SRange& oRange) { return uiOffset < oRange.m_uiOffset; });
    return poNext != poFirst && poNext[-1].Holds(oField);
}

bool IsSameMode(const SZorMode& oFirst, const SZorMode& oSecond)
{
    return oFirst.m_eKind == oSecond.m_eKind && oFirst.m_uiCode == oSecond.m_uiCode &&
           oFirst.m_uiWidth == oSecond.m_uiWidth && oFirst.m_uiHeight == oSecond.m_uiHeight &&
           oFirst.m_bInterlaced == oSecond.m_bInterlaced &&
           oFirst.m_oRate.m_ullDividend == oSecond.m_oRate.m_ullDividend &&
           oFirst.m_oRate.m_ullDivisor == oSecond.m_oRate.m_ullDivisor && oFirst.m_eY420 == oSecond.m_eY420 &&
           oFirst.m_eStereo == oSecond.m_eStereo;
}
} // namespace

CPartsComparison::CPartsComparison(const CZorEdidMap& oBefore, const CZorEdidMap& oAfter, const SNamed& oNamed)
    : m_oBefore(oBefore), m_oAfter(oAfter), m_oNamed{ SortRanges(oNamed.m_aoBefore), SortRanges(oNamed.m_aoAfter) }
{
}

CPartsComparison::SLeaves CPartsComparison::ListLeaves(const CZorEdidMap& oMap, const CRanges& aoWithout,
                                                       const SRange& oWithin)
{
    SLeaves oLeaves;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        if (oField.m_eKind == CZorEdidMap::eKind_Group || !oWithin.Holds(oField) || IsHeld(aoWithout, oField))
        {
            continue;
        }
        if (IsFollowing(oField))
        {
            oLeaves.m_auiFollowing.Add(i);
        }
        else if (oField.m_eId != eZorEdidField_Padding && !IsUnusedMapPlace(oMap, oField))
        {
            oLeaves.m_auiKept.Add(i);
        }
    }
    return oLeaves;
}

// A reference changes its meaning when it leads to a different part, which the mode shows.
bool CPartsComparison::IsSame(unsigned int uiBefore, unsigned int uiAfter) const
{
    const CZorEdidMap::SField& oBefore = m_oBefore.GetField(uiBefore);
    const CZorEdidMap::SField& oAfter = m_oAfter.GetField(uiAfter);
    if (oBefore.m_eId != oAfter.m_eId || oBefore.m_eKind != oAfter.m_eKind ||
        strcmp(oBefore.m_pszName, oAfter.m_pszName) != 0 || oBefore.m_llNumber != oAfter.m_llNumber ||
        !(m_oBefore.GetValue(uiBefore) == m_oAfter.GetValue(uiAfter)))
    {
        return false;
    }
    SZorMode oModeBefore = {};
    SZorMode oModeAfter = {};
    const bool bBefore = m_oBefore.GetMode(uiBefore, oModeBefore);
    const bool bAfter = m_oAfter.GetMode(uiAfter, oModeAfter);
    return bBefore == bAfter && IsSameMode(oModeBefore, oModeAfter);
}

CMString CPartsComparison::Compare(const CFields& auiBefore, const CFields& auiAfter) const
{
    const unsigned int uiCommon = std::min(auiBefore.GetCount(), auiAfter.GetCount());
    unsigned int uiSame = 0;
    while (uiSame < uiCommon && IsSame(auiBefore[uiSame], auiAfter[uiSame]))
    {
        ++uiSame;
    }
    if (uiSame == auiBefore.GetCount() && uiSame == auiAfter.GetCount())
    {
        return {};
    }
    return "it would change the meaning of other parts, such as " +
           (uiSame < auiBefore.GetCount() ? ZorMap::NameInGroup(m_oBefore, auiBefore[uiSame])
                                          : ZorMap::NameInGroup(m_oAfter, auiAfter[uiSame]));
}

CMString CPartsComparison::FindDifference() const
{
    return Compare(ListLeaves(m_oBefore, m_oNamed.m_aoBefore, gsc_oWholeImage).m_auiKept,
                   ListLeaves(m_oAfter, m_oNamed.m_aoAfter, gsc_oWholeImage).m_auiKept);
}

CMString CPartsComparison::FindDifference(const SRange& oBefore, const SRange& oAfter) const
{
    return Compare(ListLeaves(m_oBefore, {}, oBefore).m_auiKept, ListLeaves(m_oAfter, {}, oAfter).m_auiKept);
}

void CPartsComparison::ListFollowed(CFields& auiFollowed) const
{
    const CFields auiBefore = ListLeaves(m_oBefore, m_oNamed.m_aoBefore, gsc_oWholeImage).m_auiFollowing;
    const CFields auiAfter = ListLeaves(m_oAfter, m_oNamed.m_aoAfter, gsc_oWholeImage).m_auiFollowing;
    for (unsigned int i = 0; i < auiAfter.GetCount(); ++i)
    {
        if (i >= auiBefore.GetCount() ||
            m_oBefore.GetField(auiBefore[i]).m_llNumber != m_oAfter.GetField(auiAfter[i]).m_llNumber)
        {
            auiFollowed.Add(auiAfter[i]);
        }
    }
}

unsigned int FindField(const CZorEdidMap& oMap, const SRange& oRange)
{
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        // The data block collection has the bytes of its only data block, too.
        if (oField.m_uiOffset == oRange.m_uiOffset && oField.m_uiLength == oRange.m_uiSize &&
            oField.m_eId != eZorEdidField_CtaCollection)
        {
            return i;
        }
    }
    return CZorEdidMap::msc_uiNone;
}
} // namespace ZorWrite
