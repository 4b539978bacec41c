// CZorEdidCheck: the notes of the map as findings, the rules by topic, and the order of the bytes.

#include "ZorEdidCheck.h"

#include <string.h>

#include <algorithm>

#include "CheckFindings.h"
#include "EdidBase.h"

namespace ZorCheck
{
namespace
{
bool HasHeader(const CMap& oMap)
{
    return oMap.GetSize() >= gsc_uiBlockSize && memcmp(oMap.GetData(), EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) == 0;
}
} // namespace

CMString DescribePlace(unsigned int uiOffset)
{
    CMString sText;
    sText.Format("block %u offset 0x%02x", uiOffset / gsc_uiBlockSize, uiOffset % gsc_uiBlockSize);
    return sText;
}

CMString DescribeVersion(unsigned int uiVersion)
{
    CMString sText;
    sText.Format("%u.%u", uiVersion >> 4, uiVersion & 0x0FU);
    return sText;
}
} // namespace ZorCheck

using namespace ZorCheck;

void CZorEdidCheck::Read(const CZorEdidMap& oMap, unsigned int uiThisYear)
{
    m_aoFindings.RemoveAll();
    CFindings oFindings(oMap, m_aoFindings);
    AddNotes(oFindings);
    if (HasHeader(oMap))
    {
        CheckBase(oFindings, uiThisYear);
        CheckTimings(oFindings);
        CheckLimits(oFindings);
        CheckCta(oFindings);
        CheckDisplayId(oFindings);
        CheckReading(oFindings);
    }
    Order(oFindings);
}

// In the order of the bytes, and without those that only follow from others. By their numbers, as a stable sort of the
// findings themselves would take memory past CMAllocator.
void CZorEdidCheck::Order(const CFindings& oFindings)
{
    CMArray<unsigned int, const unsigned int&> auiCauses;
    for (unsigned int i = 0; i < m_aoFindings.GetCount(); ++i)
    {
        if (IsCause(m_aoFindings[i].m_eRule))
        {
            auiCauses.Add(i);
        }
    }
    const SZorFinding* poFirst = m_aoFindings.GetData();
    CMArray<unsigned int, const unsigned int&> auiOrder;
    for (unsigned int i = 0; i < m_aoFindings.GetCount(); ++i)
    {
        const unsigned int* puiCauses = auiCauses.GetData();
        if (std::none_of(puiCauses, puiCauses + auiCauses.GetCount(),
                         [&](unsigned int uiCause) { return IsConsequence(oFindings, poFirst[uiCause], poFirst[i]); }))
        {
            auiOrder.Add(i);
        }
    }
    std::sort(auiOrder.GetData(), auiOrder.GetData() + auiOrder.GetCount(),
              [poFirst](unsigned int uiOne, unsigned int uiOther) {
                  const unsigned int uiOffset = poFirst[uiOne].m_uiOffset;
                  const unsigned int uiOtherOffset = poFirst[uiOther].m_uiOffset;
                  return uiOffset != uiOtherOffset ? uiOffset < uiOtherOffset : uiOne < uiOther;
              });
    CMArray<SZorFinding> aoOrdered;
    for (unsigned int i = 0; i < auiOrder.GetCount(); ++i)
    {
        aoOrdered.Add(m_aoFindings[auiOrder[i]]);
    }
    m_aoFindings = aoOrdered;
}
