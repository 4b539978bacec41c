// What the timing tests share: a timing as its numbers, which compare and print whole, and ready-made timings.

#pragma once

#include <string.h>

#include <algorithm>
#include <array>
#include <iterator>

#include "RVidParamTiming.h"
#include "VidParamTimingGeneric.h"

// The numbers of a timing. Clock and line rate in kHz, so that both storage classes can be compared.
struct STimingField
{
    const char* m_pszName;
    unsigned int (CVidParamTiming::*m_pfnGet)() const;
    void (CVidParamTiming::*m_pfnSet)(unsigned int);
};
inline constexpr STimingField gsc_aoTimingFields[] = {
    { "horizontal active", &CVidParamTiming::GetHorizontalActive, &CVidParamTiming::SetHorizontalActive },
    { "vertical active", &CVidParamTiming::GetVerticalActive, &CVidParamTiming::SetVerticalActive },
    { "vertical rate", &CVidParamTiming::GetVerticalRateInHz, &CVidParamTiming::SetVerticalRateInHz },
    { "clock", &CVidParamTiming::GetPixelClockInKiloHz, &CVidParamTiming::SetPixelClockInKiloHz },
    { "horizontal front", &CVidParamTiming::GetHorizontalFrontPorch, &CVidParamTiming::SetHorizontalFrontPorch },
    { "horizontal sync", &CVidParamTiming::GetHorizontalSync, &CVidParamTiming::SetHorizontalSync },
    { "horizontal back", &CVidParamTiming::GetHorizontalBackPorch, &CVidParamTiming::SetHorizontalBackPorch },
    { "vertical front", &CVidParamTiming::GetVerticalFrontPorch, &CVidParamTiming::SetVerticalFrontPorch },
    { "vertical sync", &CVidParamTiming::GetVerticalSync, &CVidParamTiming::SetVerticalSync },
    { "vertical back", &CVidParamTiming::GetVerticalBackPorch, &CVidParamTiming::SetVerticalBackPorch },
    { "line rate", &CVidParamTiming::GetHorizontalRateInKiloHz, &CVidParamTiming::SetHorizontalRateInKiloHz },
};
constexpr size_t gsc_uiClockInKiloHz = 3;
constexpr size_t gsc_uiLineRateInKiloHz = 10;

// All of them, then flags and source. Flags: bit 0 interlaced, bits 2 and 3 horizontal and vertical polarity positive,
// bit 4 4:2:0, bit 5 3D.
using CAllValues = std::array<unsigned int, 13>;
constexpr size_t gsc_uiFlags = 11;
constexpr size_t gsc_uiSource = 12;

inline CAllValues ReadAll(const CVidParamTiming& oTiming)
{
    CAllValues auiValues{};
    std::transform(std::begin(gsc_aoTimingFields), std::end(gsc_aoTimingFields), auiValues.begin(),
                   [&](const STimingField& oField) { return (oTiming.*oField.m_pfnGet)(); });
    auiValues[gsc_uiFlags] = (oTiming.IsInterlaced() != 0 ? 1U : 0U) |
                             (oTiming.IsHorizontalPolarityPositive() != 0 ? 4U : 0U) |
                             (oTiming.IsVerticalPolarityPositive() != 0 ? 8U : 0U) |
                             (oTiming.Is420ColorSpace() != 0 ? 16U : 0U) | (oTiming.Is3D() != 0 ? 32U : 0U);
    auiValues[gsc_uiSource] = oTiming.GetVideoFamilyType();
    return auiValues;
}

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
