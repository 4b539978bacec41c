// What the timing tests share: a timing as its numbers, which compare and print whole, and ready-made timings.

#pragma once

#include <string.h>

#include <array>

#include "RVidParamTiming.h"
#include "VidParamTimingGeneric.h"

// Every value that a timing stores: active sizes, rate, clock, horizontal front porch, sync and back porch, the vertical
// ones, flags (bit 0 interlaced, bit 2 horizontal, bit 3 vertical polarity positive), line rate, source. Clock and line
// rate in kHz, so that both storage classes can be compared.
using CAllValues = std::array<unsigned int, 13>;

// Places in it.
constexpr size_t gsc_uiClockInKiloHz = 3;
constexpr size_t gsc_uiFlags = 10;
constexpr size_t gsc_uiLineRateInKiloHz = 11;
constexpr size_t gsc_uiSource = 12;

inline CAllValues ReadAll(const CVidParamTiming& o)
{
    const unsigned int uiFlags = (o.IsInterlaced() != 0 ? 1U : 0U) | (o.IsHorizontalPolarityPositive() != 0 ? 4U : 0U) |
                                 (o.IsVerticalPolarityPositive() != 0 ? 8U : 0U);
    return { o.GetHorizontalActive(),
             o.GetVerticalActive(),
             o.GetVerticalRateInHz(),
             o.GetPixelClockInKiloHz(),
             o.GetHorizontalFrontPorch(),
             o.GetHorizontalSync(),
             o.GetHorizontalBackPorch(),
             o.GetVerticalFrontPorch(),
             o.GetVerticalSync(),
             o.GetVerticalBackPorch(),
             uiFlags,
             o.GetHorizontalRateInKiloHz(),
             o.GetVideoFamilyType() };
}

// A change of each value that every comparison looks at.
struct SChange
{
    const char* m_szName;
    void (*m_fnApply)(CVidParamTiming&);
};
inline constexpr SChange gsc_aoGeometryChanges[] = {
    { "horizontal active", [](CVidParamTiming& o) { o.SetHorizontalActive(o.GetHorizontalActive() + 1); } },
    { "vertical active", [](CVidParamTiming& o) { o.SetVerticalActive(o.GetVerticalActive() + 1); } },
    { "scan", [](CVidParamTiming& o) { o.SetInterlaced(1 - o.IsInterlaced()); } },
    { "horizontal front", [](CVidParamTiming& o) { o.SetHorizontalFrontPorch(o.GetHorizontalFrontPorch() + 1); } },
    { "horizontal sync", [](CVidParamTiming& o) { o.SetHorizontalSync(o.GetHorizontalSync() + 1); } },
    { "horizontal back", [](CVidParamTiming& o) { o.SetHorizontalBackPorch(o.GetHorizontalBackPorch() + 1); } },
    { "vertical rate", [](CVidParamTiming& o) { o.SetVerticalRateInHz(o.GetVerticalRateInHz() - 1); } },
    { "vertical front", [](CVidParamTiming& o) { o.SetVerticalFrontPorch(o.GetVerticalFrontPorch() + 1); } },
    { "vertical sync", [](CVidParamTiming& o) { o.SetVerticalSync(o.GetVerticalSync() + 1); } },
    { "vertical back", [](CVidParamTiming& o) { o.SetVerticalBackPorch(o.GetVerticalBackPorch() + 1); } },
};

// 720p at 60 Hz, as the record of either storage class.
inline constexpr SVidParamGenericData gsc_o720p = {
    1280, 720, 60, 45000, 74250000, 110, 40, 220, 5, 5, 20, 4 | 8, CVidParamTiming::eVidParamType_Cea
};
inline constexpr tagRVideo_VidParam gsc_oR720p = { 1280, 720, 60, 45, 74250, 110, 40, 220, 5, 5, 20, 4 | 8, { 0, 0 } };

// 1080i at 60 fields a second.
inline constexpr SVidParamGenericData gsc_o1080i = {
    1920, 1080, 30, 33750, 74250000, 88, 44, 148, 2, 5, 15, 1 | 4 | 8, CVidParamTiming::eVidParamType_Cea
};

// A record with something in every field and every flag, and whether a timing still holds exactly that.
inline constexpr SVidParamGenericData gsc_oMarked = {
    1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0xFFFFFFFF, CVidParamTiming::eVidParamType_Detailed
};
inline bool IsMarked(const CVidParamTimingGeneric& oTiming)
{
    return memcmp(&gsc_oMarked, &oTiming.GetData(), sizeof(gsc_oMarked)) == 0;
}
