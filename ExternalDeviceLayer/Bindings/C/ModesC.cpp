// The list of modes.

#include "HandlesC.h"
#include "ZorEdidModes.h"

using namespace ZorC;

struct zoredid_modes
{
    CZorEdidModes m_oModes;
    bool m_bRead = false;
};

static_assert(ZOREDID_MODE_KIND_TYPE_10 == static_cast<int>(SZorMode::eModeKind_Type10));
static_assert(ZOREDID_MODE_KIND_VIDEO_FORMAT == static_cast<int>(SZorMode::eModeKind_VideoFormat));
static_assert(ZOREDID_MODE_NUMBERS_ASSUMED == static_cast<int>(SZorImageMode::eNumbers_Assumed));
static_assert(ZOREDID_MODE_REASON_FLAG == static_cast<int>(SZorImageMode::eReason_Flag));
static_assert(ZOREDID_BLANKING_CUSTOM == static_cast<int>(SZorMode::eBlanking_Custom));
static_assert(ZOREDID_MODE_420_ONLY == static_cast<int>(SZorMode::eY420_Only));
static_assert(ZOREDID_STEREO_HDMI == static_cast<int>(SZorMode::eStereo_Hdmi));

namespace
{
const SZorImageMode* Find(const zoredid_modes* modes, size_t index)
{
    return index < zoredid_modes_get_count(modes) ? &modes->m_oModes.Get(static_cast<unsigned int>(index)) : nullptr;
}

unsigned long long GetFractionClock(const SZorMode& oMode)
{
    SZorMode oPartner;
    return CZorEdidModes::GetPartner(oMode, oPartner) ? oPartner.m_ullClock : 0;
}
} // namespace

zoredid_modes* zoredid_modes_create() { return Create<zoredid_modes>(); }
void zoredid_modes_free(zoredid_modes* modes) { delete modes; }

zoredid_status zoredid_modes_read(zoredid_modes* modes, const void* data, size_t size)
{
    if (modes == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    const zoredid_status status =
        ReadBytes(data, size, [&](auto uiSize, auto* pui8Data) { return modes->m_oModes.Read(uiSize, pui8Data); });
    modes->m_bRead = status == ZOREDID_OK;
    return status;
}

size_t zoredid_modes_get_count(const zoredid_modes* modes)
{
    return modes != nullptr && modes->m_bRead ? modes->m_oModes.GetCount() : 0;
}

size_t zoredid_modes_get_preferred(const zoredid_modes* modes)
{
    if (zoredid_modes_get_count(modes) == 0)
    {
        return ZOREDID_NONE;
    }
    const SZorImageMode* const poPreferred = modes->m_oModes.GetPreferred();
    return poPreferred != nullptr ? static_cast<size_t>(poPreferred - &modes->m_oModes.Get(0)) : ZOREDID_NONE;
}

// A function for each member of a mode: its result, its name, and its value of the element o. Those of the timing are
// 0 where there is none.
#define ZOR_MODE(result, name, value)                                                                                  \
    result zoredid_modes_##name(const zoredid_modes* modes, size_t index)                                              \
    {                                                                                                                  \
        return Ask<result>(Find(modes, index), result(), [](const SZorImageMode& o) { return value; });                \
    }
#define ZOR_TIMING(result, name, value)                                                                                \
    ZOR_MODE(result, name, o.m_oMode.m_bTiming ? static_cast<result>(o.m_oMode.value) : result())

ZOR_MODE(uint32_t, get_width, o.m_oMode.m_uiWidth)
ZOR_MODE(uint32_t, get_height, o.m_oMode.m_uiHeight)
ZOR_MODE(int, is_interlaced, o.m_oMode.m_bInterlaced)
ZOR_MODE(uint64_t, get_rate_numerator, o.m_oMode.m_oRate.m_ullDividend)
ZOR_MODE(uint64_t, get_rate_denominator, o.m_oMode.m_oRate.m_ullDivisor)
ZOR_MODE(uint64_t, get_nominal_rate_numerator, o.m_oMode.m_oNominalRate.m_ullDividend)
ZOR_MODE(uint64_t, get_nominal_rate_denominator, o.m_oMode.m_oNominalRate.m_ullDivisor)
ZOR_MODE(int, has_fraction, o.m_oMode.m_bFractionToo)
ZOR_MODE(uint64_t, get_fraction_clock, GetFractionClock(o.m_oMode))
ZOR_MODE(zoredid_mode_kind, get_kind, o.m_oMode.m_eKind)
ZOR_MODE(uint32_t, get_code, o.m_oMode.m_uiCode)
ZOR_MODE(uint32_t, get_aspect_width, o.m_oMode.m_uiAspectWidth)
ZOR_MODE(uint32_t, get_aspect_height, o.m_oMode.m_uiAspectHeight)
ZOR_MODE(uint32_t, get_repetition, o.m_oMode.m_uiRepetition)
ZOR_MODE(zoredid_blanking, get_blanking, o.m_oMode.m_eBlanking)
ZOR_MODE(zoredid_mode_420, get_420, o.m_oMode.m_eY420)
ZOR_MODE(zoredid_stereo, get_stereo, o.m_oMode.m_eStereo)
ZOR_MODE(uint32_t, get_hdmi_3d, o.m_uiStereo)
ZOR_MODE(int, is_native, o.m_oMode.m_bNative)
ZOR_MODE(uint32_t, get_preference, o.m_uiPreference)
ZOR_MODE(zoredid_mode_reason, get_reason, o.m_eReason)
ZOR_MODE(uint32_t, get_id, o.m_eField)
ZOR_MODE(size_t, get_offset, o.m_uiOffset)
ZOR_MODE(uint32_t, get_rank, o.m_uiRank)
ZOR_MODE(zoredid_mode_numbers, get_numbers, o.m_eNumbers)
ZOR_TIMING(uint64_t, get_clock, m_ullClock)
ZOR_TIMING(uint32_t, get_horizontal_active, m_oHorizontal.m_uiActive)
ZOR_TIMING(uint32_t, get_horizontal_front, m_oHorizontal.m_uiFront)
ZOR_TIMING(uint32_t, get_horizontal_sync, m_oHorizontal.m_uiSync)
ZOR_TIMING(uint32_t, get_horizontal_total, m_oHorizontal.m_uiTotal)
ZOR_TIMING(uint32_t, get_horizontal_border, m_oHorizontal.m_uiBorder)
ZOR_TIMING(int, is_horizontal_positive, m_oHorizontal.m_bPositive)
ZOR_TIMING(uint32_t, get_vertical_active, m_oVertical.m_uiActive)
ZOR_TIMING(uint32_t, get_vertical_front, m_oVertical.m_uiFront)
ZOR_TIMING(uint32_t, get_vertical_sync, m_oVertical.m_uiSync)
ZOR_TIMING(uint32_t, get_vertical_total, m_oVertical.m_uiTotal)
ZOR_TIMING(uint32_t, get_vertical_border, m_oVertical.m_uiBorder)
ZOR_TIMING(int, is_vertical_positive, m_oVertical.m_bPositive)

int zoredid_modes_get_bit(const zoredid_modes* modes, size_t index)
{
    return Ask<int>(Find(modes, index), -1, [](const SZorImageMode& o) {
        return o.m_uiBit != SZorImageMode::msc_uiNone ? static_cast<int>(o.m_uiBit) : -1;
    });
}
