// The ids of fields and their numbers: ZorEdidMapIds.h as a table.

#include <string.h>

#include <algorithm>
#include <iterator>

#include "MapIds.h"

namespace ZorMap
{
namespace
{
struct SId
{
    EZorEdidField m_eId;
    const char* m_pszId;
};

constexpr SId gsc_aoIds[] = {
#define ZOR_EDID_FIELD(NUMBER, NAME, ID) { eZorEdidField_##NAME, ID },
    ZOR_EDID_FIELDS(ZOR_EDID_FIELD)
#undef ZOR_EDID_FIELD
};

constexpr bool IsBefore(const SId& oFirst, const SId& oSecond) { return oFirst.m_eId < oSecond.m_eId; }
// No number is in the list twice, and each is found by halving.
static_assert(std::adjacent_find(std::begin(gsc_aoIds), std::end(gsc_aoIds), [](const SId& oFirst, const SId& oSecond) {
                  return !IsBefore(oFirst, oSecond);
              }) == std::end(gsc_aoIds));

// The first of those that have an id: other forms of the same field follow.
class CIdFinder final : public CIdVisitor
{
public:
    CIdFinder(EZorEdidField eId, CZorEdidMap::SIdDescription& oFound) : m_eId(eId), m_oFound(oFound) {}

private:
    void OnPart(EZorEdidField eId, const char* pszName, CZorEdidMap::EKind eKind, const char* pszUnit) override
    {
        if (eId == m_eId && m_oFound.m_pszName == nullptr)
        {
            m_oFound = { pszName, pszUnit, eKind };
        }
    }

    EZorEdidField m_eId;
    CZorEdidMap::SIdDescription& m_oFound;
};
} // namespace

void VisitIds(CIdVisitor& oVisitor)
{
    VisitSharedIds(oVisitor);
    VisitOtherIds(oVisitor);
    VisitBaseIds(oVisitor);
    VisitDescriptorIds(oVisitor);
    VisitCtaIds(oVisitor);
    VisitCtaVideoIds(oVisitor);
    VisitCtaAudioIds(oVisitor);
    VisitCtaColourIds(oVisitor);
    VisitCtaHdmiIds(oVisitor);
    VisitCtaVendorIds(oVisitor);
    VisitDisplayIdIds(oVisitor);
    VisitProductIds(oVisitor);
    VisitInterfaceIds(oVisitor);
    VisitTimingIds(oVisitor);
    VisitDisplayInformationIds(oVisitor);
}
} // namespace ZorMap

const char* CZorEdidMap::GetId(EZorEdidField eId)
{
    const ZorMap::SId* const poEnd = std::end(ZorMap::gsc_aoIds);
    const ZorMap::SId* poFound =
        std::lower_bound(std::begin(ZorMap::gsc_aoIds), poEnd, ZorMap::SId{ eId, "" }, ZorMap::IsBefore);
    return poFound != poEnd && poFound->m_eId == eId ? poFound->m_pszId : nullptr;
}

EZorEdidField CZorEdidMap::FindId(const char* pszId)
{
    for (const ZorMap::SId& oId : ZorMap::gsc_aoIds)
    {
        if (pszId != nullptr && strcmp(oId.m_pszId, pszId) == 0)
        {
            return oId.m_eId;
        }
    }
    return eZorEdidField_None;
}

int CZorEdidMap::DescribeId(EZorEdidField eId, SIdDescription& oDescription)
{
    oDescription = {};
    ZorMap::CIdFinder oFinder(eId, oDescription);
    ZorMap::VisitIds(oFinder);
    return oDescription.m_pszName != nullptr ? 1 : 0;
}
