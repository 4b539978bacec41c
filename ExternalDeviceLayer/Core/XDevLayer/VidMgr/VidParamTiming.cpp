// The derived values, the tolerant equality and the field-wise assignment of all timings.
// Everything works through the virtual accessors; the storage classes keep the values.

#include "VidParamTiming.h"

#include <algorithm>
#include <cstdint>

#include "ZorTools.h"

namespace
{
// Which clock the link needs for a stored clock: 4:2:0 carries two pixels in one period, 3D two pictures in one frame.
unsigned int GetEffectiveClock(unsigned int uiClock, int b3D, int b420)
{
    if ((b3D != 0) == (b420 != 0))
    {
        return uiClock;
    }
    return b3D != 0 ? uiClock * 2 : uiClock / 2;
}

// Clock tolerances, in ten-thousandths of the larger clock. Low clocks get the tight one.
constexpr unsigned int gsc_uiToleranceScale = 10000;
constexpr unsigned int gsc_uiLowClockTolerance = 10;
constexpr unsigned int gsc_uiHighClockTolerance = 50;
constexpr unsigned int gsc_uiLowClockMaxInKiloHz = 75000;

constexpr unsigned int gsc_uiLineRateToleranceInKiloHz = 1;

constexpr unsigned int GetDistance(unsigned int uiFirst, unsigned int uiSecond)
{
    return uiFirst > uiSecond ? uiFirst - uiSecond : uiSecond - uiFirst;
}
} // namespace

unsigned int CVidParamTiming::GetEffectivePixelClockInHz() const
{
    return GetEffectiveClock(GetPixelClockInHz(), Is3D(), Is420ColorSpace());
}

unsigned int CVidParamTiming::GetEffectivePixelClockInKiloHz() const
{
    return GetEffectiveClock(GetPixelClockInKiloHz(), Is3D(), Is420ColorSpace());
}

CVidParamTiming& CVidParamTiming::operator=(const CVidParamTiming& oOther)
{
    if (this == &oOther)
    {
        return *this;
    }
    SetHorizontalActive(oOther.GetHorizontalActive());
    SetVerticalActive(oOther.GetVerticalActive());
    SetInterlaced(oOther.IsInterlaced());
    Set420ColorSpace(oOther.Is420ColorSpace());
    Set3D(oOther.Is3D());
    SetPixelClockInHz(oOther.GetPixelClockInHz());
    SetHorizontalRateInHz(oOther.GetHorizontalRateInHz());
    SetHorizontalFrontPorch(oOther.GetHorizontalFrontPorch());
    SetHorizontalSync(oOther.GetHorizontalSync());
    SetHorizontalBackPorch(oOther.GetHorizontalBackPorch());
    SetHorizontalPolarityPositive(oOther.IsHorizontalPolarityPositive());
    SetVerticalRateInHz(oOther.GetVerticalRateInHz());
    SetVerticalFrontPorch(oOther.GetVerticalFrontPorch());
    SetVerticalSync(oOther.GetVerticalSync());
    SetVerticalBackPorch(oOther.GetVerticalBackPorch());
    SetVerticalPolarityPositive(oOther.IsVerticalPolarityPositive());
    SetVideoFamilyType(oOther.GetVideoFamilyType());
    return *this;
}

// Not by way of the virtual forms: these two are the base's own answer.
unsigned int CVidParamTiming::GetHorizontalTotal() const { return CVidParamTiming::ComputeHorizontalTotalPixel(); }

unsigned int CVidParamTiming::GetVerticalTotal() const { return CVidParamTiming::ComputeVerticalTotalLine(); }

int CVidParamTiming::IsPixelClockInHzEquivalent(unsigned int uiPixelClockInHz) const
{
    if (GetPixelClockInHz() == uiPixelClockInHz)
    {
        return 1;
    }
    const unsigned int uiOwnInKiloHz = GetPixelClockInKiloHz();
    if (uiOwnInKiloHz == 0 || uiPixelClockInHz == 0)
    {
        return 0;
    }
    const unsigned int uiOtherInKiloHz = uiPixelClockInHz / msc_uiHzPerKiloHz;
    const unsigned int uiDistance = GetDistance(uiOwnInKiloHz, uiOtherInKiloHz);
    if (uiDistance == 0)
    {
        return 1;
    }
    const unsigned int uiTolerance =
        uiOwnInKiloHz <= gsc_uiLowClockMaxInKiloHz ? gsc_uiLowClockTolerance : gsc_uiHighClockTolerance;
    const std::uint64_t uiRatio =
        std::uint64_t{ uiDistance } * gsc_uiToleranceScale / std::max(uiOwnInKiloHz, uiOtherInKiloHz);
    return uiRatio <= uiTolerance ? 1 : 0;
}

int CVidParamTiming::IsPixelClockInKiloHzEquivalent(unsigned int uiPixelClockInKiloHz) const
{
    return IsPixelClockInHzEquivalent(uiPixelClockInKiloHz * msc_uiHzPerKiloHz);
}

int CVidParamTiming::operator==(const CVidParamTiming& oOther) const
{
    // clang-format off
    const bool bSame =
        GetHorizontalActive() == oOther.GetHorizontalActive() &&
        GetVerticalActive() == oOther.GetVerticalActive() &&
        IsInterlaced() == oOther.IsInterlaced() &&
        GetHorizontalFrontPorch() == oOther.GetHorizontalFrontPorch() &&
        GetHorizontalSync() == oOther.GetHorizontalSync() &&
        GetHorizontalBackPorch() == oOther.GetHorizontalBackPorch() &&
        GetVerticalRateInHz() == oOther.GetVerticalRateInHz() &&
        GetVerticalFrontPorch() == oOther.GetVerticalFrontPorch() &&
        GetVerticalSync() == oOther.GetVerticalSync() &&
        GetVerticalBackPorch() == oOther.GetVerticalBackPorch() &&
        Is420ColorSpace() == oOther.Is420ColorSpace() &&
        Is3D() == oOther.Is3D() &&
        GetDistance(GetHorizontalRateInKiloHz(), oOther.GetHorizontalRateInKiloHz()) <= gsc_uiLineRateToleranceInKiloHz;
    // clang-format on
    return bSame ? IsPixelClockInHzEquivalent(oOther.GetPixelClockInHz()) : 0;
}

int CVidParamTiming::operator!=(const CVidParamTiming& oOther) const { return (*this == oOther) != 0 ? 0 : 1; }
