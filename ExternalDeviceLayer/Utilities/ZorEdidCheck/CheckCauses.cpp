// Findings that only follow from another one.

#include <algorithm>
#include <iterator>

#include "CheckFindings.h"

namespace ZorCheck
{
namespace
{
bool IsInSameBlock(const SZorFinding& oCause, const SZorFinding& oOther)
{
    return oCause.m_uiOffset / gsc_uiBlockSize == oOther.m_uiOffset / gsc_uiBlockSize;
}

bool FollowsFromErased(const CFindings& /*oFindings*/, const SZorFinding& oCause, const SZorFinding& oOther)
{
    return IsInSameBlock(oCause, oOther);
}

// A timing without a pixel clock reads as a display descriptor, whose tag and reserved byte are other numbers of it.
bool FollowsFromFirstDescriptor(const CFindings& oFindings, const SZorFinding& oCause, const SZorFinding& oOther)
{
    if (oOther.m_eRule == eZorEdidRule_UnreadDescriptor)
    {
        return oOther.m_uiOffset == oCause.m_uiOffset;
    }
    const bool bReserved = oOther.m_eRule == eZorEdidRule_ReservedValue || oOther.m_eRule == eZorEdidRule_ReservedBits;
    return bReserved && oOther.m_uiField > oCause.m_uiField &&
           oOther.m_uiField < oFindings.GetMap().GetField(oCause.m_uiField).m_uiEnd;
}

// A display descriptor of no known kind, whose other bytes may be anything: one byte more or fewer before them is
// enough.
bool FollowsFromReservedTag(const CFindings& oFindings, const SZorFinding& oCause, const SZorFinding& oOther)
{
    const CMap& oMap = oFindings.GetMap();
    const CMap::SField& oTag = oMap.GetField(oCause.m_uiField);
    return oTag.m_eId == eZorEdidField_BaseDescriptorTag && oOther.m_eRule == eZorEdidRule_ReservedBits &&
           oMap.GetField(oOther.m_uiField).m_uiGroup == oTag.m_uiGroup;
}

// Where data blocks do not end as they say, the library's lists have timings of other bytes.
bool FollowsFromStart(const CFindings& /*oFindings*/, const SZorFinding& oCause, const SZorFinding& oOther)
{
    return IsInSameBlock(oCause, oOther) && oOther.m_eRule == eZorEdidRule_ListedMore;
}

// The checksum is one by itself, and timings that byte 2 does not point at say what it should be.
bool FollowsFromCutDataBlock(const CFindings& oFindings, const SZorFinding& oCause, const SZorFinding& oOther)
{
    return FollowsFromStart(oFindings, oCause, oOther) ||
           (IsInSameBlock(oCause, oOther) && oFindings.IsMisread(oOther.m_uiOffset) &&
            oOther.m_eRule != eZorEdidRule_Checksum && oOther.m_eRule != eZorEdidRule_CtaLostTimings);
}

// Another version is read as its first revision, whose standard timings have square pictures.
bool FollowsFromVersion(const CFindings& /*oFindings*/, const SZorFinding& /*oCause*/, const SZorFinding& oOther)
{
    return oOther.m_eRule == eZorEdidRule_ListedAsWide || oOther.m_eRule == eZorEdidRule_ModeBeyondLimits;
}

constexpr struct
{
    EZorEdidRule m_eCause;
    bool (*m_pfnFollows)(const CFindings&, const SZorFinding& oCause, const SZorFinding& oOther);
} gsc_aoCauses[] = {
    { eZorEdidRule_BlockErased, FollowsFromErased },
    { eZorEdidRule_BaseVersion, FollowsFromVersion },
    { eZorEdidRule_FirstDescriptor, FollowsFromFirstDescriptor },
    { eZorEdidRule_ReservedValue, FollowsFromReservedTag },
    { eZorEdidRule_CtaStart, FollowsFromStart },
    { eZorEdidRule_CtaPastCollection, FollowsFromCutDataBlock },
};
} // namespace

bool IsCause(EZorEdidRule eRule)
{
    return std::ranges::any_of(gsc_aoCauses, [eRule](const auto& oOne) { return oOne.m_eCause == eRule; });
}

bool IsConsequence(const CFindings& oFindings, const SZorFinding& oCause, const SZorFinding& oOther)
{
    const auto* poCause =
        std::ranges::find(gsc_aoCauses, oCause.m_eRule, [](const auto& oOne) { return oOne.m_eCause; });
    return poCause != std::end(gsc_aoCauses) && oOther.m_eRule != oCause.m_eRule &&
           poCause->m_pfnFollows(oFindings, oCause, oOther);
}
} // namespace ZorCheck
