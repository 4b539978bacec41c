// Timings as bytes: the numbers are put in their places and read back, so that one that is too wide is seen.

#include "ZorEdidTimings.h"

#include <string.h>

#include <algorithm>

#include "Standards/Descriptors.h"
#include "Standards/DisplayIdSection.h"
#include "Standards/Modes.h"

using namespace ZorStandards;

namespace
{
constexpr unsigned long long gsc_ullHzPerKiloHz = 1000;

// Rounded; 0 for clocks that no record holds.
unsigned int GetClock(const SZorMode& oMode, unsigned int uiUnitInKiloHz)
{
    constexpr unsigned long long ullMost = 0xFFFFFF;
    const unsigned long long ullUnit = uiUnitInKiloHz * gsc_ullHzPerKiloHz;
    const unsigned long long ullClock = (oMode.m_ullClock + ullUnit / 2) / ullUnit;
    return ullClock <= ullMost ? static_cast<unsigned int>(ullClock) : 0;
}

bool IsSameAxis(const SZorMode::SAxis& oFirst, const SZorMode::SAxis& oSecond)
{
    return oFirst.m_uiActive == oSecond.m_uiActive && oFirst.m_uiFront == oSecond.m_uiFront &&
           oFirst.m_uiSync == oSecond.m_uiSync && oFirst.m_uiTotal == oSecond.m_uiTotal &&
           oFirst.m_bPositive == oSecond.m_bPositive;
}

// What was read of the bytes: the numbers of the mode, its clock to half a unit.
bool IsHeld(const SZorMode& oMode, const SZorMode& oRead, unsigned int uiUnitInKiloHz)
{
    const unsigned long long ullFar =
        oMode.m_ullClock > oRead.m_ullClock ? oMode.m_ullClock - oRead.m_ullClock : oRead.m_ullClock - oMode.m_ullClock;
    return oRead.m_bTiming && IsSameAxis(oMode.m_oHorizontal, oRead.m_oHorizontal) &&
           IsSameAxis(oMode.m_oVertical, oRead.m_oVertical) && oMode.m_bInterlaced == oRead.m_bInterlaced &&
           ullFar * 2 <= uiUnitInKiloHz * gsc_ullHzPerKiloHz;
}

// The code of an aspect ratio in a DisplayID timing.
unsigned int GetAspectCode(const SZorMode& oMode)
{
    constexpr unsigned int auiRatios[][2] = { { 1, 1 },  { 5, 4 },   { 4, 3 },   { 15, 9 },
                                              { 16, 9 }, { 16, 10 }, { 64, 27 }, { 256, 135 } };
    unsigned int uiCode = 0;
    for (const auto& [uiWidth, uiHeight] : auiRatios)
    {
        if (1ULL * oMode.m_oHorizontal.m_uiActive * uiHeight == 1ULL * oMode.m_oVertical.m_uiActive * uiWidth)
        {
            break;
        }
        ++uiCode;
    }
    return uiCode; // after the last one: undefined
}
} // namespace

int CZorEdidTimings::MakeDetailed(const SZorMode& oMode, unsigned int uiWidthInMm, unsigned int uiHeightInMm,
                                  unsigned char* pui8Bytes)
{
    using namespace Descriptors;
    constexpr unsigned int uiMostMm = 4095;
    const SZorMode::SAxis& oAcross = oMode.m_oHorizontal;
    const SZorMode::SAxis& oDown = oMode.m_oVertical;
    const unsigned int uiFields = oMode.m_bInterlaced ? 2 : 1;
    if (!oMode.m_bTiming || uiWidthInMm > uiMostMm || uiHeightInMm > uiMostMm)
    {
        return 0;
    }
    unsigned char aui8Bytes[msc_uiDetailedSize] = {};
    gsc_oPixelClock.Write(aui8Bytes, GetClock(oMode, gsc_uiKiloHzPerClockUnit));
    gsc_oHorizontalActive.Write(aui8Bytes, oAcross.m_uiActive);
    gsc_oHorizontalBlanking.Write(aui8Bytes, oAcross.m_uiTotal - oAcross.m_uiActive);
    gsc_oHorizontalFrontPorch.Write(aui8Bytes, oAcross.m_uiFront);
    gsc_oHorizontalSync.Write(aui8Bytes, oAcross.m_uiSync);
    gsc_oVerticalActive.Write(aui8Bytes, oDown.m_uiActive / uiFields);
    gsc_oVerticalBlanking.Write(aui8Bytes, (oDown.m_uiTotal - oDown.m_uiActive) / uiFields);
    gsc_oVerticalFrontPorch.Write(aui8Bytes, oDown.m_uiFront);
    gsc_oVerticalSync.Write(aui8Bytes, oDown.m_uiSync);
    gsc_oImageWidth.Write(aui8Bytes, uiWidthInMm);
    gsc_oImageHeight.Write(aui8Bytes, uiHeightInMm);
    gsc_oInterlaced.Write(aui8Bytes, oMode.m_bInterlaced ? 1 : 0);
    gsc_oSyncType.Write(aui8Bytes, gsc_uiDigitalSeparateSync);
    gsc_oHorizontalPositive.Write(aui8Bytes, oAcross.m_bPositive ? 1 : 0);
    gsc_oVerticalPositive.Write(aui8Bytes, oDown.m_bPositive ? 1 : 0);
    SZorMode oRead = {};
    if (!ReadDetailedMode({ aui8Bytes, msc_uiDetailedSize }, oRead) || !IsHeld(oMode, oRead, gsc_uiKiloHzPerClockUnit))
    {
        return 0;
    }
    memcpy(pui8Bytes, aui8Bytes, msc_uiDetailedSize);
    return 1;
}

int CZorEdidTimings::MakeDisplayId(unsigned int uiType, const SZorMode& oMode, bool bPreferred,
                                   unsigned char* pui8Bytes)
{
    const DisplayId::STimingPlaces& oPlaces = uiType == 1 ? DisplayId::gsc_oType1 : DisplayId::gsc_oType7;
    const DisplayId::STimingFlags& oFlags = uiType == 1 ? DisplayId::gsc_oFlags1 : DisplayId::gsc_oFlags7;
    const SZorMode::SAxis& oAcross = oMode.m_oHorizontal;
    const SZorMode::SAxis& oDown = oMode.m_oVertical;
    const unsigned int uiClock = GetClock(oMode, oPlaces.m_uiClockInKiloHz);
    if (!oMode.m_bTiming || oMode.m_bInterlaced || uiClock == 0)
    {
        return 0;
    }
    unsigned char aui8Bytes[msc_uiDisplayIdSize] = {};
    // All fields but polarities hold their value minus 1.
    oPlaces.m_oClock.Write(aui8Bytes, uiClock - 1);
    oPlaces.m_oHorizontalActive.Write(aui8Bytes, oAcross.m_uiActive - 1);
    oPlaces.m_oHorizontalBlank.Write(aui8Bytes, oAcross.m_uiTotal - oAcross.m_uiActive - 1);
    oPlaces.m_oHorizontalFrontPorch.Write(aui8Bytes, oAcross.m_uiFront - 1);
    oPlaces.m_oHorizontalSync.Write(aui8Bytes, oAcross.m_uiSync - 1);
    oPlaces.m_oHorizontalPositive.Write(aui8Bytes, oAcross.m_bPositive ? 1 : 0);
    oPlaces.m_oVerticalActive.Write(aui8Bytes, oDown.m_uiActive - 1);
    oPlaces.m_oVerticalBlank.Write(aui8Bytes, oDown.m_uiTotal - oDown.m_uiActive - 1);
    oPlaces.m_oVerticalFrontPorch.Write(aui8Bytes, oDown.m_uiFront - 1);
    oPlaces.m_oVerticalSync.Write(aui8Bytes, oDown.m_uiSync - 1);
    oPlaces.m_oVerticalPositive.Write(aui8Bytes, oDown.m_bPositive ? 1 : 0);
    oFlags.m_oPreferred.Write(aui8Bytes, bPreferred ? 1 : 0);
    oFlags.m_oAspect.Write(aui8Bytes, GetAspectCode(oMode));
    SZorMode oRead = {};
    const CRecordBytes oRecord(aui8Bytes, msc_uiDisplayIdSize);
    if (!(uiType == 1 ? ReadType1Mode(oRecord, oRead) : ReadType7Mode(oRecord, oRead)) ||
        !IsHeld(oMode, oRead, oPlaces.m_uiClockInKiloHz))
    {
        return 0;
    }
    memcpy(pui8Bytes, aui8Bytes, msc_uiDisplayIdSize);
    return 1;
}
