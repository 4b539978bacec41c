// A repaired copy.

#include "ZorEdidRepair.h"

#include "HandlesC.h"

using namespace ZorC;

struct zoredid_repair
{
    CZorEdidRepair m_oRepair;
    bool m_bRead = false;
};

namespace
{
const SZorRepair* Find(const zoredid_repair* repair, size_t index)
{
    return index < zoredid_repair_get_count(repair) ? &repair->m_oRepair.Get(static_cast<unsigned int>(index))
                                                    : nullptr;
}

const SZorWithheld* FindWithheld(const zoredid_repair* repair, size_t index)
{
    return index < zoredid_repair_get_withheld_count(repair)
               ? &repair->m_oRepair.GetWithheld(static_cast<unsigned int>(index))
               : nullptr;
}
} // namespace

zoredid_repair* zoredid_repair_create() { return Create<zoredid_repair>(); }
void zoredid_repair_free(zoredid_repair* repair) { delete repair; }

zoredid_status zoredid_repair_leave_out(zoredid_repair* repair, uint32_t rule)
{
    if (repair == nullptr || zoredid_rule_get_id(rule) == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    return Guard([&] {
        repair->m_oRepair.LeaveOut(static_cast<EZorEdidRule>(rule));
        return ZOREDID_OK;
    });
}

zoredid_status zoredid_repair_read(zoredid_repair* repair, const void* data, size_t size)
{
    if (repair == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    const zoredid_status status =
        ReadBytes(data, size, [&](auto uiSize, auto* pui8Data) { return repair->m_oRepair.Read(uiSize, pui8Data); });
    repair->m_bRead = status == ZOREDID_OK;
    return status;
}

const unsigned char* zoredid_repair_get_data(const zoredid_repair* repair, size_t* size)
{
    return repair != nullptr && repair->m_bRead
               ? GiveBytes(repair->m_oRepair.GetData(), repair->m_oRepair.GetSize(), size)
               : GiveBytes(nullptr, 0, size);
}

size_t zoredid_repair_get_count(const zoredid_repair* repair)
{
    return repair != nullptr && repair->m_bRead ? repair->m_oRepair.GetCount() : 0;
}

uint32_t zoredid_repair_get_rule(const zoredid_repair* repair, size_t index)
{
    return Ask<uint32_t>(Find(repair, index), 0, [](const auto& o) { return o.m_eRule; });
}

size_t zoredid_repair_get_offset(const zoredid_repair* repair, size_t index)
{
    return Ask<size_t>(Find(repair, index), 0, [](const auto& o) { return o.m_uiOffset; });
}

size_t zoredid_repair_get_length(const zoredid_repair* repair, size_t index)
{
    return Ask<size_t>(Find(repair, index), 0, [](const auto& o) { return o.m_uiLength; });
}

size_t zoredid_repair_get_withheld_count(const zoredid_repair* repair)
{
    return repair != nullptr && repair->m_bRead ? repair->m_oRepair.GetWithheldCount() : 0;
}

uint32_t zoredid_repair_get_withheld_rule(const zoredid_repair* repair, size_t index)
{
    return Ask<uint32_t>(FindWithheld(repair, index), 0, [](const auto& o) { return o.m_eRule; });
}

size_t zoredid_repair_get_withheld_offset(const zoredid_repair* repair, size_t index)
{
    return Ask<size_t>(FindWithheld(repair, index), 0, [](const auto& o) { return o.m_uiOffset; });
}

const char* zoredid_repair_get_withheld_reason(const zoredid_repair* repair, size_t index)
{
    return Ask<const char*>(FindWithheld(repair, index), nullptr, [](const auto& o) { return o.m_pszReason; });
}
