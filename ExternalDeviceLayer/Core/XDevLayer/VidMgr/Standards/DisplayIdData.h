// The places of DisplayID's data blocks about the product, its size and its colours (DisplayID 1.3 and 2.1). Offsets
// count from the first byte of a data block. Private to the library.

#pragma once

#include "DisplayIdSection.h"

namespace ZorStandards::DisplayId
{
// ---- Tags ----

constexpr unsigned int gsc_uiProduct1Tag = 0x00;
constexpr unsigned int gsc_uiParameters1Tag = 0x01;
constexpr unsigned int gsc_uiSerialTag = 0x0A;
constexpr unsigned int gsc_uiDeviceTag = 0x0C;
constexpr unsigned int gsc_uiInterfaceTag = 0x0F;
constexpr unsigned int gsc_uiTiled1Tag = 0x12;
constexpr unsigned int gsc_uiProduct2Tag = 0x20;
constexpr unsigned int gsc_uiParameters2Tag = 0x21;
constexpr unsigned int gsc_uiDynamicRangeTag = 0x25;
constexpr unsigned int gsc_uiFeaturesTag = 0x26;
constexpr unsigned int gsc_uiTiled2Tag = 0x28;
constexpr unsigned int gsc_uiContainerTag = 0x29;
constexpr unsigned int gsc_uiAdaptiveTag = 0x2B;
constexpr unsigned int gsc_uiVendor2Tag = 0x7E;

// ---- Product, size and colours ----

constexpr SPlace gsc_oProductCode = Little16(0x06);
constexpr SPlace gsc_oProductSerial = Little32(0x08);
constexpr SPlace gsc_oProductWeek = Byte(0x0C);
constexpr SPlace gsc_oProductYear = Byte(0x0D);
constexpr SPlace gsc_oParametersGamma = Byte(0x0C);
constexpr SPlace gsc_oParametersNativeDepth = Bits(0x0E, 3, 0);
constexpr SPlace gsc_oParameters2Millimetres = Bit(1, 7);
constexpr SPlace gsc_oParameters2Orientation = Bits(0x0B, 2, 0);
constexpr SPlace gsc_oParameters2Technology = Bits(0x1E, 6, 4);
constexpr SPlace gsc_oParameters2NativeDepth = Bits(0x1E, 2, 0);
constexpr SPlace gsc_oParameters2Gamma = Byte(0x1F);
constexpr SPlace gsc_oDeviceOrientation = Bits(0x0A, 7, 6);
constexpr SPlace gsc_oDeviceSubPixels = Byte(0x0B);
constexpr SPlace gsc_oDeviceDepth = Bits(0x0E, 3, 0);
constexpr SPlace gsc_oDevicePixels = Little16(0x05);
constexpr SPlace gsc_oDeviceLines = Little16(0x07);
constexpr SPlace gsc_oAdaptiveMinRate = Byte(2);
constexpr SPlace gsc_oAdaptiveExtraBytes = Bits(1, 6, 4);
constexpr SPlace gsc_oVesaStreams = Bits(0x07, 6, 5);
constexpr SPlace gsc_oVesaOverlap = Bits(0x07, 3, 0);
constexpr SPlace gsc_oInterfaceType = Bits(0x03, 7, 4);

constexpr SPlace gsc_oProductNameSize = Byte(0x0E); // the name follows
constexpr unsigned int gsc_uiProductNameOffset = 0x0F;
constexpr SPlace gsc_oImageWidth = Little16(3); // of the display parameters; 0.1 mm, of version 2 by its flag mm
constexpr SPlace gsc_oImageHeight = Little16(5);
constexpr SPlace gsc_oPixels = Little16(7);
constexpr SPlace gsc_oLines = Little16(9);
constexpr SPlace gsc_oMaxLuminanceFull = Little16(0x18);
constexpr SPlace gsc_oMaxLuminance10 = Little16(0x1A);
constexpr SPlace gsc_oMinLuminance = Little16(0x1C);
constexpr unsigned int gsc_uiPrimariesOffset = 0x0C; // of Parameters2: three primaries and white, three bytes each
constexpr SPlace gsc_oIsCie1976 = Bit(0x0B, 6);
constexpr SPlace gsc_oFirstCoordinate = Split({ { 1, 3, 0 }, { 0, 7, 0 } }); // of three bytes; in 4096ths
constexpr SPlace gsc_oSecondCoordinate = Split({ { 2, 7, 0 }, { 1, 7, 4 } });

// Depths that an interface takes, from bit 0 on 6, 8, 10, 12, 14 and 16 bits a colour; without 6 where pixels have less
// chroma.
constexpr unsigned int gsc_uiDepths1Offset = 5;
constexpr unsigned int gsc_uiDepths2Offset = 3;
constexpr SPlace gsc_oDepths420 = Bits(6, 4, 0); // of the features only

// ---- Variable refresh ----

constexpr unsigned int gsc_uiAdaptiveSize = 6;                               // of a descriptor
constexpr SPlace gsc_oAdaptiveMaxRate = Split({ { 4, 1, 0 }, { 3, 7, 0 } }); // minus 1
constexpr SPlace gsc_oDynamicMinRate = Byte(9);
constexpr SPlace gsc_oDynamicMaxRate = Byte(10);
constexpr SPlace gsc_oDynamicWideMaxRate = Split({ { 0x0B, 1, 0 }, { 0x0A, 7, 0 } }); // from revision 1 on
constexpr SPlace gsc_oDynamicSeamless = Bit(0x0B, 7);

// ---- Luminances: half floats ----

constexpr unsigned int gsc_uiHalfSign = 0x8000;
constexpr unsigned int gsc_uiHalfInfinite = 0x7C00; // from here on no number

// In 10^-6 cd/m2; 0 for no number. 1 is stored as 0x3C00; the step of the smallest exponents is 2^-24.
constexpr unsigned long long GetLuminance(unsigned int uiHalf)
{
    if (uiHalf >= gsc_uiHalfInfinite)
    {
        return 0;
    }
    const unsigned int uiExponent = uiHalf >> 10;
    const unsigned long long ullFraction = uiHalf & 0x3FF;
    const unsigned long long ullSteps = uiExponent == 0 ? ullFraction : (ullFraction + 0x400) << (uiExponent - 1);
    return (ullSteps * 1000000 + (1ULL << 23)) >> 24;
}
} // namespace ZorStandards::DisplayId
