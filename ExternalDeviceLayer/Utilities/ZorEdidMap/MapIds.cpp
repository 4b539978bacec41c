// The ids of fields and their numbers: ZorEdidMapIds.h as a table.

#include <string.h>

#include <algorithm>
#include <iterator>

#include "ZorEdidMap.h"

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
} // namespace
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
