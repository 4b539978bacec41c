// A timing as its numbers, which compare and print whole, and as a short name.

#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "RVidParamTiming.h"
#include "VidParamTimingGeneric.h"

// The numbers of a timing. Clock and line rate in kHz, so that both storage classes can be compared.
struct STimingField
{
    unsigned int (CVidParamTiming::*m_pfnGet)() const;
    void (CVidParamTiming::*m_pfnSet)(unsigned int);
};
inline constexpr STimingField gsc_aoTimingFields[] = {
    { &CVidParamTiming::GetHorizontalActive, &CVidParamTiming::SetHorizontalActive },
    { &CVidParamTiming::GetVerticalActive, &CVidParamTiming::SetVerticalActive },
    { &CVidParamTiming::GetVerticalRateInHz, &CVidParamTiming::SetVerticalRateInHz },
    { &CVidParamTiming::GetPixelClockInKiloHz, &CVidParamTiming::SetPixelClockInKiloHz },
    { &CVidParamTiming::GetHorizontalFrontPorch, &CVidParamTiming::SetHorizontalFrontPorch },
    { &CVidParamTiming::GetHorizontalSync, &CVidParamTiming::SetHorizontalSync },
    { &CVidParamTiming::GetHorizontalBackPorch, &CVidParamTiming::SetHorizontalBackPorch },
    { &CVidParamTiming::GetVerticalFrontPorch, &CVidParamTiming::SetVerticalFrontPorch },
    { &CVidParamTiming::GetVerticalSync, &CVidParamTiming::SetVerticalSync },
    { &CVidParamTiming::GetVerticalBackPorch, &CVidParamTiming::SetVerticalBackPorch },
    { &CVidParamTiming::GetHorizontalRateInKiloHz, &CVidParamTiming::SetHorizontalRateInKiloHz },
};
constexpr size_t gsc_uiClockInKiloHz = 3;
constexpr size_t gsc_uiLineRateInKiloHz = 10;

// All of them, then flags and source. Flags: bit 0 interlaced, bits 2 and 3 horizontal and vertical polarity positive,
// bit 4 4:2:0, bit 5 3D.
using CAllValues = std::vector<unsigned int>;
constexpr size_t gsc_uiFlags = 11;
constexpr size_t gsc_uiSource = 12;

inline const CAllValues gsc_auiCleared(13);

inline CAllValues ReadAll(const CVidParamTiming& oTiming)
{
    CAllValues auiValues = gsc_auiCleared;
    std::transform(std::begin(gsc_aoTimingFields), std::end(gsc_aoTimingFields), auiValues.begin(),
                   [&](const STimingField& oField) { return (oTiming.*oField.m_pfnGet)(); });
    auiValues[gsc_uiFlags] = (oTiming.IsInterlaced() != 0 ? 1U : 0U) |
                             (oTiming.IsHorizontalPolarityPositive() != 0 ? 4U : 0U) |
                             (oTiming.IsVerticalPolarityPositive() != 0 ? 8U : 0U) |
                             (oTiming.Is420ColorSpace() != 0 ? 16U : 0U) | (oTiming.Is3D() != 0 ? 32U : 0U);
    auiValues[gsc_uiSource] = oTiming.GetVideoFamilyType();
    return auiValues;
}

inline void WriteAll(CVidParamTiming& oTiming, const CAllValues& auiValues)
{
    for (size_t i = 0; i < std::size(gsc_aoTimingFields); ++i)
    {
        (oTiming.*gsc_aoTimingFields[i].m_pfnSet)(auiValues[i]);
    }
    oTiming.SetInterlaced(static_cast<int>(auiValues[gsc_uiFlags] & 1));
    oTiming.SetHorizontalPolarityPositive(static_cast<int>(auiValues[gsc_uiFlags] >> 2 & 1));
    oTiming.SetVerticalPolarityPositive(static_cast<int>(auiValues[gsc_uiFlags] >> 3 & 1));
    oTiming.Set420ColorSpace(static_cast<int>(auiValues[gsc_uiFlags] >> 4 & 1));
    oTiming.Set3D(static_cast<int>(auiValues[gsc_uiFlags] >> 5 & 1));
    oTiming.SetVideoFamilyType(static_cast<CVidParamTiming::EVidParamType>(auiValues[gsc_uiSource]));
}

// "1920x1080@60": active pixels and lines, and the rate in whole Hz. After it "r" for a DMT mode with reduced
// blanking, "g" for one computed by GTF.
inline std::string NameOf(const CVidParamTiming& o)
{
    using T = CVidParamTiming;
    const T::EVidParamType e = o.GetVideoFamilyType();
    return std::to_string(o.GetHorizontalActive()) + "x" + std::to_string(o.GetVerticalActive()) + "@" +
           std::to_string(o.GetVerticalRateInHz()) +
           (e == T::eVidParamType_Gtf                  ? "g"
            : e == T::eVidParamType_DmtReducedBlanking ? "r"
                                                       : "");
}

// A record with something in every field and every flag.
inline constexpr SVidParamGenericData gsc_oMarked = {
    1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0xFFFFFFFF, CVidParamTiming::eVidParamType_Detailed
};
