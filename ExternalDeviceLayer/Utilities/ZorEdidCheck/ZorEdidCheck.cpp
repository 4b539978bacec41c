// CZorEdidCheck: the notes of the map as findings, the rules by topic, and the order of the findings.

#include "ZorEdidCheck.h"

#include <string.h>

#include <algorithm>
#include <array>

#include "CheckFindings.h"
#include "EdidBase.h"

namespace ZorCheck
{
namespace
{
// The list grows by a step of at least so many findings, and by one more for every so many bytes of the image.
constexpr unsigned int gsc_uiLeastStep = 16;
constexpr unsigned int gsc_uiBytesAFinding = 16;

bool HasHeader(const CMap& oMap)
{
    return oMap.GetSize() >= gsc_uiBlockSize && memcmp(oMap.GetData(), EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) == 0;
}

// What the place of a finding depends on, the most important first: rank, offset, and when it was found.
using CKey = std::array<unsigned int, 3>;

// Errors first, and what the library makes of the image last.
unsigned int GetRank(const SZorFinding& oFinding)
{
    return CMap::eSeverity_Error - oFinding.m_eSeverity +
           (IsZorEdidRuleOfLibrary(oFinding.m_eRule) ? CMap::eSeverity_Error + 1U : 0U);
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
    // A long damaged image has a finding in every few bytes, and the list is not moved at every few of them.
    m_aoFindings.SetSize(0, static_cast<int>(gsc_uiLeastStep + oMap.GetSize() / gsc_uiBytesAFinding));
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

// Without those that only follow from others. By their numbers, as a stable sort of the findings themselves would take
// memory past CMAllocator.
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
    CMArray<CKey, const CKey&> aoOrder;
    aoOrder.SetSize(0, static_cast<int>(m_aoFindings.GetCount()) + 1);
    for (unsigned int i = 0; i < m_aoFindings.GetCount(); ++i)
    {
        const unsigned int* puiCauses = auiCauses.GetData();
        if (std::none_of(puiCauses, puiCauses + auiCauses.GetCount(),
                         [&](unsigned int uiCause) { return IsConsequence(oFindings, poFirst[uiCause], poFirst[i]); }))
        {
            aoOrder.Add({ GetRank(poFirst[i]), poFirst[i].m_uiOffset, i });
        }
    }
    std::sort(aoOrder.GetData(), aoOrder.GetData() + aoOrder.GetCount());
    CMArray<SZorFinding> aoOrdered;
    aoOrdered.SetCount(aoOrder.GetCount(), -1);
    for (unsigned int i = 0; i < aoOrder.GetCount(); ++i)
    {
        aoOrdered[i] = m_aoFindings[aoOrder[i].back()];
    }
    m_aoFindings = aoOrdered;
}
