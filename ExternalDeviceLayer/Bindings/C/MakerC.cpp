// Images of wishes.

#include "ZorEdidMaker.h"

#include <algorithm>
#include <iterator>

#include "HandlesC.h"

using namespace ZorC;

using SWishes = SZorEdidWishes;

struct zoredid_maker
{
    SWishes m_oWishes;
    CMArray<unsigned char, const unsigned char&> m_aui8Donor; // which the wishes point to
    CZorEdidMaker m_oMaker;
    bool m_bMade = false;
};

static_assert(ZOREDID_CONNECTOR_DVI == static_cast<int>(SWishes::eInterface_Dvi) + 1);
static_assert(ZOREDID_TIMING_SOURCE_GTF == static_cast<int>(eZorTimingSource_Gtf));

namespace
{
constexpr long long gsc_llMostSide = USHRT_MAX; // pixels or lines

// ---- Wishes that are numbers ----

struct SNumberWish
{
    zoredid_wish m_eWish;
    unsigned int SWishes::*m_puiNumber;
    bool SWishes::*m_pbFlag; // instead
};

constexpr SNumberWish gsc_aoNumbers[] = {
    { ZOREDID_WISH_PRODUCT_CODE, &SWishes::m_uiProduct, nullptr },
    { ZOREDID_WISH_WIDTH, &SWishes::m_uiWidthInMm, nullptr },
    { ZOREDID_WISH_HEIGHT, &SWishes::m_uiHeightInMm, nullptr },
    { ZOREDID_WISH_PQ, nullptr, &SWishes::m_bPq },
    { ZOREDID_WISH_HLG, nullptr, &SWishes::m_bHlg },
    { ZOREDID_WISH_MAX_LUMINANCE, &SWishes::m_uiMaxLuminance, nullptr },
    { ZOREDID_WISH_MAX_AVERAGE_LUMINANCE, &SWishes::m_uiFrameLuminance, nullptr },
    { ZOREDID_WISH_MIN_LUMINANCE, &SWishes::m_uiMinLuminance, nullptr },
    { ZOREDID_WISH_DEPTH, &SWishes::m_uiColorDepth, nullptr },
    { ZOREDID_WISH_YCBCR420, nullptr, &SWishes::m_bYCbCr420 },
    { ZOREDID_WISH_VRR_MIN, &SWishes::m_uiVrrMin, nullptr },
    { ZOREDID_WISH_VRR_MAX, &SWishes::m_uiVrrMax, nullptr },
    { ZOREDID_WISH_MAX_TMDS_CLOCK, &SWishes::m_uiMaxTmds, nullptr },
    { ZOREDID_WISH_FRL, &SWishes::m_uiFrl, nullptr },
    { ZOREDID_WISH_YEAR, &SWishes::m_uiYear, nullptr },
    { ZOREDID_WISH_WEEK, &SWishes::m_uiWeek, nullptr },
};

// The channels of each audio wish.
constexpr long long gsc_allChannels[] = { 0, 2, 6, 8 };
static_assert(SWishes::eAudio_7_1 == std::size(gsc_allChannels) - 1);

zoredid_status SetConnector(SWishes& oWishes, long long llNumber)
{
    if (llNumber <= ZOREDID_CONNECTOR_UNKNOWN || llNumber > ZOREDID_CONNECTOR_DVI)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    oWishes.m_eInterface = static_cast<SWishes::EInterface>(llNumber - 1);
    return ZOREDID_OK;
}

zoredid_status SetChannels(SWishes& oWishes, long long llNumber)
{
    const auto* const pllFound = std::ranges::find(gsc_allChannels, llNumber);
    if (pllFound == std::end(gsc_allChannels))
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    oWishes.m_eAudio = static_cast<SWishes::EAudio>(pllFound - std::begin(gsc_allChannels));
    return ZOREDID_OK;
}

zoredid_status SetNumber(SWishes& oWishes, zoredid_wish eWish, long long llNumber)
{
    const auto* const poWish = std::ranges::find(gsc_aoNumbers, eWish, &SNumberWish::m_eWish);
    if (poWish == std::end(gsc_aoNumbers) || llNumber < 0 || llNumber > INT_MAX)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    if (poWish->m_pbFlag != nullptr)
    {
        oWishes.*poWish->m_pbFlag = llNumber != 0;
    }
    else
    {
        oWishes.*poWish->m_puiNumber = static_cast<unsigned int>(llNumber);
    }
    return ZOREDID_OK;
}

// ---- Wishes that are texts ----

CMString* FindText(SWishes& oWishes, zoredid_wish eWish)
{
    switch (eWish)
    {
    case ZOREDID_WISH_NAME:
        return &oWishes.m_sName;
    case ZOREDID_WISH_SERIAL_TEXT:
        return &oWishes.m_sSerial;
    case ZOREDID_WISH_MAKER:
        return &oWishes.m_sMaker;
    default:
        return nullptr;
    }
}
} // namespace

zoredid_maker* zoredid_maker_create() { return Create<zoredid_maker>(); }
void zoredid_maker_free(zoredid_maker* maker) { delete maker; }

zoredid_status zoredid_maker_set_number(zoredid_maker* maker, zoredid_wish wish, int64_t number)
{
    if (maker == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    switch (wish)
    {
    case ZOREDID_WISH_CONNECTOR:
        return SetConnector(maker->m_oWishes, number);
    case ZOREDID_WISH_AUDIO_CHANNELS:
        return SetChannels(maker->m_oWishes, number);
    default:
        return SetNumber(maker->m_oWishes, wish, number);
    }
}

zoredid_status zoredid_maker_set_text(zoredid_maker* maker, zoredid_wish wish, const char* text)
{
    CMString* const psText = maker != nullptr ? FindText(maker->m_oWishes, wish) : nullptr;
    if (psText == nullptr || text == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    return Guard([&] {
        *psText = text;
        return ZOREDID_OK;
    });
}

zoredid_status zoredid_maker_add_mode(zoredid_maker* maker, uint32_t width, uint32_t height, int interlaced,
                                      uint32_t rate_numerator, uint32_t rate_denominator, zoredid_timing_source source)
{
    const bool bGood = maker != nullptr && width != 0 && width <= gsc_llMostSide && height != 0 &&
                       height <= gsc_llMostSide && rate_numerator != 0 && rate_denominator != 0 &&
                       source >= ZOREDID_TIMING_SOURCE_UNKNOWN && source <= ZOREDID_TIMING_SOURCE_GTF;
    if (!bGood)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    return Guard([&] {
        maker->m_oWishes.m_aoModes.Add({ width,
                                         height,
                                         interlaced != 0,
                                         { rate_numerator, rate_denominator },
                                         static_cast<EZorTimingSource>(source) });
        return ZOREDID_OK;
    });
}

zoredid_status zoredid_maker_set_donor(zoredid_maker* maker, const void* data, size_t size)
{
    if (maker == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    return ReadBytes(data, size, [&](unsigned int uiSize, const unsigned char* pui8Data) {
        maker->m_oWishes.m_pui8Donor = nullptr; // while memory may run out
        maker->m_oWishes.m_uiDonorSize = 0;
        maker->m_aui8Donor.SetCount(uiSize, -1);
        std::copy_n(pui8Data, uiSize, maker->m_aui8Donor.GetData());
        maker->m_oWishes.m_pui8Donor = uiSize != 0 ? maker->m_aui8Donor.GetData() : nullptr;
        maker->m_oWishes.m_uiDonorSize = uiSize;
        return 1;
    });
}

zoredid_status zoredid_maker_make(zoredid_maker* maker)
{
    if (maker == nullptr || maker->m_oWishes.m_aoModes.GetCount() == 0)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    const zoredid_status status =
        Guard([&] { return maker->m_oMaker.Make(maker->m_oWishes) != 0 ? ZOREDID_OK : ZOREDID_ERROR_REFUSED; });
    maker->m_bMade = status == ZOREDID_OK;
    return status;
}

const unsigned char* zoredid_maker_get_data(const zoredid_maker* maker, size_t* size)
{
    return maker != nullptr && maker->m_bMade ? GiveBytes(maker->m_oMaker.GetData(), maker->m_oMaker.GetSize(), size)
                                              : GiveBytes(nullptr, 0, size);
}

const char* zoredid_maker_get_reason(const zoredid_maker* maker, size_t* length)
{
    return GiveText(maker != nullptr ? static_cast<const char*>(maker->m_oMaker.GetReason()) : nullptr, length);
}

size_t zoredid_maker_get_note_count(const zoredid_maker* maker)
{
    return maker != nullptr ? maker->m_oMaker.GetNoteCount() : 0;
}

const char* zoredid_maker_get_note(const zoredid_maker* maker, size_t index, size_t* length)
{
    return GiveText(index < zoredid_maker_get_note_count(maker)
                        ? static_cast<const char*>(maker->m_oMaker.GetNote(static_cast<unsigned int>(index)))
                        : nullptr,
                    length);
}
