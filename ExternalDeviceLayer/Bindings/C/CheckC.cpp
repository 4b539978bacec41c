// Rules and findings.

#include <chrono>

#include "HandlesC.h"
#include "ZorEdidCheck.h"

using namespace ZorC;

struct zoredid_check
{
    CZorEdidCheck m_oCheck;
    bool m_bRead = false;
};

static_assert(ZOREDID_SEVERITY_ERROR == static_cast<int>(CZorEdidMap::eSeverity_Error) + 1);

namespace
{
const SZorEdidRule* FindRule(uint32_t rule)
{
    return rule <= USHRT_MAX ? FindZorEdidRule(static_cast<EZorEdidRule>(rule)) : nullptr;
}

const SZorFinding* Find(const zoredid_check* check, size_t index)
{
    return index < zoredid_check_get_count(check) ? &check->m_oCheck.Get(static_cast<unsigned int>(index)) : nullptr;
}

unsigned int GetThisYear()
{
    using namespace std::chrono;
    return static_cast<unsigned int>(static_cast<int>(year_month_day(floor<days>(system_clock::now())).year()));
}
} // namespace

size_t zoredid_rule_get_count() { return GetZorEdidRuleCount(); }

uint32_t zoredid_rule_get(size_t index)
{
    const bool bRule = index < GetZorEdidRuleCount();
    return bRule ? static_cast<uint32_t>(GetZorEdidRule(static_cast<unsigned int>(index)).m_eRule) : 0;
}

uint32_t zoredid_rule_find(const char* id)
{
    return Ask<uint32_t>(FindZorEdidRule(id), 0, [](const auto& o) { return o.m_eRule; });
}

// A function for each member of a rule, and of a finding: its result, its name, what it is beyond the list, its value.
#define ZOR_RULE(result, name, none, value)                                                                            \
    result zoredid_rule_##name(uint32_t rule)                                                                          \
    {                                                                                                                  \
        return Ask<result>(FindRule(rule), none, [](const SZorEdidRule& o) { return value; });                         \
    }
#define ZOR_FINDING(result, name, none, value)                                                                         \
    result zoredid_check_##name(const zoredid_check* check, size_t index)                                              \
    {                                                                                                                  \
        return Ask<result>(Find(check, index), none, [](const SZorFinding& o) { return value; });                      \
    }
#define ZOR_FINDING_TEXT(name, member)                                                                                 \
    const char* zoredid_check_##name(const zoredid_check* check, size_t index, size_t* length)                         \
    {                                                                                                                  \
        const SZorFinding* const poFinding = Find(check, index);                                                       \
        return GiveText(poFinding != nullptr ? static_cast<const char*>(poFinding->member) : nullptr, length);         \
    }

ZOR_RULE(const char*, get_id, nullptr, o.m_pszId)
ZOR_RULE(const char*, get_what, nullptr, o.m_pszWhat)
ZOR_RULE(const char*, get_standard, nullptr, o.m_pszStandard)
ZOR_RULE(const char*, get_why, nullptr, o.m_pszWhy)
ZOR_RULE(zoredid_severity, get_severity, ZOREDID_SEVERITY_UNKNOWN, CountFromOne<zoredid_severity>(o.m_eSeverity))

zoredid_check* zoredid_check_create() { return Create<zoredid_check>(); }
void zoredid_check_free(zoredid_check* check) { delete check; }

zoredid_status zoredid_check_read(zoredid_check* check, const zoredid_map* map, unsigned int this_year)
{
    if (check == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    check->m_bRead = false;
    if (map == nullptr || map->m_poMap == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    return Guard([&] {
        check->m_oCheck.Read(*map->m_poMap, this_year != 0 ? this_year : GetThisYear());
        check->m_bRead = true;
        return ZOREDID_OK;
    });
}

size_t zoredid_check_get_count(const zoredid_check* check)
{
    return check != nullptr && check->m_bRead ? check->m_oCheck.GetCount() : 0;
}

ZOR_FINDING(uint32_t, get_rule, 0, o.m_eRule)
ZOR_FINDING(zoredid_severity, get_severity, ZOREDID_SEVERITY_UNKNOWN, CountFromOne<zoredid_severity>(o.m_eSeverity))
ZOR_FINDING(size_t, get_field, ZOREDID_NONE, o.m_uiField)
ZOR_FINDING(size_t, get_offset, 0, o.m_uiOffset)
ZOR_FINDING(const char*, get_what, nullptr, o.m_pszWhat)
ZOR_FINDING_TEXT(get_reason, m_sReason)
ZOR_FINDING_TEXT(get_found, m_sFound)
ZOR_FINDING_TEXT(get_expected, m_sExpected)
