// What is known of each rule: ZorEdidRules.h as a table.

#include <string.h>

#include <algorithm>
#include <iterator>

#include "ZorEdidRules.h"

namespace
{
using CMap = CZorEdidMap;

constexpr SZorEdidRule gsc_aoRules[] = {
    // ---- Any structure ----
    { eZorEdidRule_Checksum, CMap::eSeverity_Error, "checksum", "the checksum is wrong", "E-EDID 1.4, 3.11",
      "Sources drop a block whose bytes do not add up to 0, and fall back to a mode of their own." },

    // ---- What the library does not read ----
    { eZorEdidRule_UnreadBlock, CMap::eSeverity_Note, "library.unread-block", "the block is not read", "",
      "The numbered lists of the library lack what this block announces." },
};

constexpr bool IsBefore(const SZorEdidRule& oFirst, const SZorEdidRule& oSecond)
{
    return oFirst.m_eRule < oSecond.m_eRule;
}

static_assert(std::is_sorted(std::begin(gsc_aoRules), std::end(gsc_aoRules), IsBefore), "in the order of the numbers");
} // namespace

unsigned int GetZorEdidRuleCount() { return std::size(gsc_aoRules); }

const SZorEdidRule& GetZorEdidRule(unsigned int uiIndex) { return gsc_aoRules[uiIndex]; }

const SZorEdidRule* FindZorEdidRule(EZorEdidRule eRule)
{
    const SZorEdidRule* poRule =
        std::lower_bound(std::begin(gsc_aoRules), std::end(gsc_aoRules), eRule,
                         [](const SZorEdidRule& oRule, EZorEdidRule eWanted) { return oRule.m_eRule < eWanted; });
    return poRule != std::end(gsc_aoRules) && poRule->m_eRule == eRule ? poRule : nullptr;
}

const SZorEdidRule* FindZorEdidRule(const char* pszId)
{
    for (const SZorEdidRule& oRule : gsc_aoRules)
    {
        if (pszId != nullptr && strcmp(oRule.m_pszId, pszId) == 0)
        {
            return &oRule;
        }
    }
    return nullptr;
}
