// Where a timing may go in an image. Private to the library and the command.

#pragma once

#include "ZorEdidTimings.h"

namespace ZorWrite
{
// To two decimals, as rates are named.
bool IsSameRate(const SZorMode::SRate& oFirst, const SZorMode::SRate& oSecond);

// A rate in Hz that is given and is not a whole number.
constexpr bool IsFraction(const SZorMode::SRate& oRate)
{
    return oRate.m_ullDivisor != 0 && oRate.m_ullDividend % oRate.m_ullDivisor != 0;
}

// The same numbers, but for the clock, which may differ by uiMostClockInHz.
bool IsSameTiming(const SZorMode& oFirst, const SZorMode& oSecond, unsigned int uiMostClockInHz = 0);

struct SImageSizeInMm
{
    unsigned int m_uiWidth;
    unsigned int m_uiHeight;
};

// As CZorEdidTimings::MakeDetailed. False as well for what readers take for no timing, or mistrust: clocks below 10 MHz
// and no front porch.
using CDetailedBytes = unsigned char[CZorEdidTimings::msc_uiDetailedSize];
bool WriteDetailed(const SZorMode& oTiming, const SImageSizeInMm& oSize, CDetailedBytes& aui8Bytes);

// As CZorEdidTimings::MakeDisplayId, Type I.
using CType1Bytes = unsigned char[CZorEdidTimings::msc_uiDisplayIdSize];
bool WriteType1(const SZorMode& oTiming, bool bPreferred, CType1Bytes& aui8Bytes);

// The code of CTA-861 with exactly this timing, at its rate or at 1000/1001; of several the lowest one. 0 for none.
unsigned int FindVideoCodeOf(const SZorMode& oTiming);

// Whether bit uiBit of established timings I and II is this timing: from 0 for bit 7 of byte 23h on.
bool FindEstablishedBit(const SZorMode& oTiming, unsigned int& uiBit);
} // namespace ZorWrite
