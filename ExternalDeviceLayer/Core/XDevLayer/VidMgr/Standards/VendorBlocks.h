// The places of data blocks of CTA-861 that makers and VESA define, from the start of their payloads, and of an
// extension block of VESA. Private to the library and the command.

#pragma once

#include "Place.h"

namespace ZorStandards::DisplayInformation
{
// ---- VESA Display Information Extension Block Standard, release A, from the start of the block ----

inline constexpr SPlace gsc_oStandaloneProjector = Bit(0x1A, 0);
} // namespace ZorStandards::DisplayInformation

namespace ZorStandards::Amd
{
// ---- Variable refresh rate. Not published; what is known comes from drivers ----

inline constexpr SPlace gsc_oVersion = Byte(0);
inline constexpr SPlace gsc_oLuminancesValid = Bit(1, 1);
inline constexpr SPlace gsc_oMinRefreshRate = Byte(2);
inline constexpr SPlace gsc_oMaxRefreshRate = Byte(3);
inline constexpr SPlace gsc_oWideMaxRefreshRate = Split({ { 11, 1, 0 }, { 10, 7, 0 } });
inline constexpr unsigned int gsc_uiVersionWithHdr = 2;
inline constexpr unsigned int gsc_uiHdrSize = 10;
inline constexpr unsigned int gsc_uiVersionWithWideRate = 3;
inline constexpr unsigned int gsc_uiWideSize = 12;
inline constexpr SPlace gsc_oMaxLuminance = Byte(6);
inline constexpr SPlace gsc_oMinLuminance = Byte(7);
inline constexpr SPlace gsc_oSecondMaxLuminance = Byte(8);
inline constexpr SPlace gsc_oSecondMinLuminance = Byte(9);

} // namespace ZorStandards::Amd

namespace ZorStandards::Microsoft
{
// ---- Head-mounted and specialised displays ----

inline constexpr SPlace gsc_oVersion = Byte(0);
inline constexpr SPlace gsc_oDesktopUsage = Bit(1, 6);
inline constexpr SPlace gsc_oUseCase = Bits(1, 4, 0);
inline constexpr unsigned int gsc_uiVersionWithUsage = 3;
inline constexpr unsigned int gsc_uiContainerIdOffset = 2;

} // namespace ZorStandards::Microsoft

namespace ZorStandards::DisplayDevice
{
// ---- VESA Video Display Device Data Block: VESA DDDB 1.0 ----

inline constexpr SPlace gsc_oInterfaceType = Bits(0, 7, 4);
inline constexpr SPlace gsc_oLanes = Bits(0, 3, 0);
inline constexpr SPlace gsc_oMaxClock = Split({ { 3, 1, 0 }, { 4, 7, 0 } });
inline constexpr SPlace gsc_oHorizontalPixels = Little16(5);
inline constexpr SPlace gsc_oVerticalPixels = Little16(7);
inline constexpr SPlace gsc_oAspectRatio = Byte(9);
inline constexpr SPlace gsc_oDefaultOrientation = Bits(10, 7, 6);
inline constexpr SPlace gsc_oRotationCapability = Bits(10, 5, 4);
inline constexpr SPlace gsc_oSubPixelLayout = Byte(11);
inline constexpr SPlace gsc_oInterfaceBitDepth = Bits(19, 7, 4);
inline constexpr SPlace gsc_oDisplayBitDepth = Bits(19, 3, 0);
inline constexpr SPlace gsc_oAudioSupport = Bit(15, 7);

} // namespace ZorStandards::DisplayDevice
