// The places of the data blocks of DisplayID 1.3, 2.0 and 2.1, from their tags: the payload begins at 3. Private to the
// library and the command.

#pragma once

#include "DisplayIdSection.h"

namespace ZorStandards::DisplayId
{
inline constexpr unsigned int gsc_uiPayloadOffset = gsc_uiHeaderSize;

// ---- Tags of the data blocks that several readers know ----

inline constexpr unsigned int gsc_uiProduct1Tag = 0x00;
inline constexpr unsigned int gsc_uiParameters1Tag = 0x01;
inline constexpr unsigned int gsc_uiColorTag = 0x02;
inline constexpr unsigned int gsc_uiRangeTag = 0x09;
inline constexpr unsigned int gsc_uiSerialTag = 0x0A;
inline constexpr unsigned int gsc_uiStringTag = 0x0B;
inline constexpr unsigned int gsc_uiDeviceTag = 0x0C;
inline constexpr unsigned int gsc_uiInterfaceTag = 0x0F;
inline constexpr unsigned int gsc_uiTiled1Tag = 0x12;
inline constexpr unsigned int gsc_uiVendor1Tag = 0x7F;
inline constexpr unsigned int gsc_uiProduct2Tag = 0x20;
inline constexpr unsigned int gsc_uiParameters2Tag = 0x21;
inline constexpr unsigned int gsc_uiDynamicRangeTag = 0x25;
inline constexpr unsigned int gsc_uiInterfaceFeaturesTag = 0x26;
inline constexpr unsigned int gsc_uiTiled2Tag = 0x28;
inline constexpr unsigned int gsc_uiContainerTag = 0x29;
inline constexpr unsigned int gsc_uiAdaptiveSyncTag = 0x2B;
inline constexpr unsigned int gsc_uiHeadMountedTag = 0x2C;
inline constexpr unsigned int gsc_uiBrightnessTag = 0x2E;
inline constexpr unsigned int gsc_uiVendor2Tag = 0x7E;

// ---- Product identification, DisplayID 1.3 and 2.0 ----

inline constexpr SPlace gsc_oVendorOui = Big24(0x03); // in DisplayID 2.0; before, three letters. Also vendor-specific
inline constexpr SPlace gsc_oProductCode = Little16(0x06);
inline constexpr SPlace gsc_oProductSerial = Little32(0x08);
inline constexpr SPlace gsc_oProductWeek = Byte(0x0C);
inline constexpr SPlace gsc_oProductYear = Byte(0x0D); // minus 2000
inline constexpr unsigned int gsc_uiProductTextLengthOffset = 0x0E;
inline constexpr unsigned int gsc_uiProductTextOffset = 0x0F;
inline constexpr unsigned int gsc_uiModelYear = 0xFF; // of the week: the year is the model year

// ---- Sizes of the display parameters of both versions: tenths of a millimetre, unless version 2 says millimetres ----

inline constexpr SPlace gsc_oImageWidth = Little16(0x03);
inline constexpr SPlace gsc_oImageHeight = Little16(0x05);
inline constexpr SPlace gsc_oHorizontalPixels = Little16(0x07);
inline constexpr SPlace gsc_oVerticalPixels = Little16(0x09);

// ---- Display parameters, DisplayID 1.3: 12 bytes ----

inline constexpr SPlace gsc_oAudioSupport = Bit(0x0B, 7);
inline constexpr SPlace gsc_oGamma = Byte(0x0C);
inline constexpr SPlace gsc_oAspectRatio = Byte(0x0D);
inline constexpr SPlace gsc_oOverallBitDepth = Bits(0x0E, 7, 4);
inline constexpr SPlace gsc_oNativeBitDepth = Bits(0x0E, 3, 0);

// ---- Display parameters, DisplayID 2.0: 29 bytes ----

inline constexpr SPlace gsc_oSizeInMillimetres = Bit(1, 7);
inline constexpr SPlace gsc_oSpeakersNotIntegrated = Bit(0x0B, 7);
inline constexpr SPlace gsc_oChromaticityIn1976 = Bit(0x0B, 6);
inline constexpr SPlace gsc_oLuminanceInformation = Bits(0x0B, 4, 3);
inline constexpr SPlace gsc_oScanOrientation = Bits(0x0B, 2, 0);
inline constexpr SPlace gsc_oTechnology2 = Bits(0x1E, 6, 4);
inline constexpr SPlace gsc_oNativeBitDepth2 = Bits(0x1E, 2, 0);
inline constexpr SPlace gsc_oGamma2 = Byte(0x1F);

// Three primaries and the white point, in 1/4096: each two coordinates of 12 bits in three bytes.
inline constexpr unsigned int gsc_uiPrimariesOffset = 0x0C;
inline constexpr unsigned int gsc_uiCoordinatesSize = 3;
constexpr SPlace FirstCoordinate(unsigned int uiOffset)
{
    return Split({ { PlaceByte(uiOffset + 1), 3, 0 }, { PlaceByte(uiOffset), 7, 0 } });
}
constexpr SPlace SecondCoordinate(unsigned int uiOffset)
{
    return Split({ { PlaceByte(uiOffset + 2), 7, 0 }, { PlaceByte(uiOffset + 1), 7, 4 } });
}

// Luminances: IEEE 754 half precision, in cd/m2; 8000h means not given.
inline constexpr unsigned int gsc_uiMaxLuminanceFullOffset = 0x18;
inline constexpr unsigned int gsc_uiMaxLuminance10PercentOffset = 0x1A;
inline constexpr unsigned int gsc_uiMinLuminanceOffset = 0x1C;
inline constexpr unsigned int gsc_uiHalfInfinite = 0x7C00; // no number from here on

// In 10^-6; 0 for anything but a positive number. 1 is stored as 3C00h; the step of the smallest exponents is 2^-24.
constexpr unsigned long long HalfInMillionths(unsigned int uiHalf)
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

// ---- Brightness luminance range, DisplayID 2.1: 6 bytes ----

inline constexpr unsigned int gsc_uiMinSdrLuminanceOffset = 0x03;
inline constexpr unsigned int gsc_uiMaxSdrLuminanceOffset = 0x05;
inline constexpr unsigned int gsc_uiMaxBoostLuminanceOffset = 0x07;

// ---- Color characteristics, DisplayID 1.3 ----

inline constexpr SPlace gsc_oColourIn1976 = Bit(1, 7);
inline constexpr SPlace gsc_oPrimaryCount = Bits(3, 6, 4);
inline constexpr SPlace gsc_oWhitePointCount = Bits(3, 3, 0);
inline constexpr SPlace gsc_oStandardColorSpace = Byte(4);

// ---- Display device data, DisplayID 1.3: 13 bytes ----

inline constexpr SPlace gsc_oDeviceTechnology = Byte(0x03);
inline constexpr SPlace gsc_oOperatingMode = Bits(0x04, 7, 4);
inline constexpr SPlace gsc_oDeviceHorizontalPixels = Little16(0x05);
inline constexpr SPlace gsc_oDeviceVerticalPixels = Little16(0x07);
inline constexpr SPlace gsc_oDeviceAspectRatio = Byte(0x09);
inline constexpr SPlace gsc_oDefaultOrientation = Bits(0x0A, 7, 6);
inline constexpr SPlace gsc_oRotationCapability = Bits(0x0A, 5, 4);
inline constexpr SPlace gsc_oSubPixelLayout = Byte(0x0B);

// ---- Video timing range limits, DisplayID 1.3: 15 bytes; the clocks also DisplayID 2.0 ----

inline constexpr SPlace gsc_oRangeMinPixelClock = Little24(0x03);
inline constexpr SPlace gsc_oRangeMaxPixelClock = Little24(0x06);
inline constexpr SPlace gsc_oRangeMinHorizontalRate = Byte(0x09);
inline constexpr SPlace gsc_oRangeMaxHorizontalRate = Byte(0x0A);
inline constexpr SPlace gsc_oRangeMinVerticalRate = Byte(0x0D);
inline constexpr SPlace gsc_oRangeMaxVerticalRate = Byte(0x0E);
inline constexpr SPlace gsc_oRangeDiscrete = Bit(0x11, 4);

// ---- Dynamic video timing range limits, DisplayID 2.0: 9 bytes ----

inline constexpr SPlace gsc_oDynamicMinVerticalRate = Byte(0x09);
inline constexpr SPlace gsc_oDynamicMaxVerticalRate = Byte(0x0A);
inline constexpr SPlace gsc_oDynamicWideMaxVerticalRate = Split({ { 0x0B, 1, 0 }, { 0x0A, 7, 0 } }); // from revision 1
inline constexpr SPlace gsc_oDynamicSeamless = Bit(0x0B, 7);

// ---- Display interface, DisplayID 1.3: 10 bytes ----

inline constexpr SPlace gsc_oInterfaceType = Bits(0x03, 7, 4);
inline constexpr SPlace gsc_oInterfaceLinks = Bits(0x03, 3, 0);
inline constexpr SPlace gsc_oInterfaceVersion = Bits(0x04, 7, 4);
inline constexpr SPlace gsc_oInterfaceRevision = Bits(0x04, 3, 0);

// Depths of color: the bytes of RGB 4:4:4, YCbCr 4:4:4, YCbCr 4:2:2, of which DisplayID 2.0 has one more for 4:2:0.
// Bit 0 is 6 bits per color of the 4:4:4 formats and 8 of the others; then 8, 10, 12, 14, 16.
inline constexpr unsigned int gsc_uiDepthsOffset1 = 0x05;
inline constexpr unsigned int gsc_uiDepthsOffset2 = 0x03;

// ---- Display interface features, DisplayID 2.0: 9 bytes and up to 7 more ----

inline constexpr SPlace gsc_oYCbCr420MinPixelRate = Byte(0x07);
inline constexpr SPlace gsc_oFeatureAudio32Khz = Bit(0x08, 7);
inline constexpr SPlace gsc_oFeatureAudio44_1Khz = Bit(0x08, 6);
inline constexpr SPlace gsc_oFeatureAudio48Khz = Bit(0x08, 5);
inline constexpr SPlace gsc_oFeatureBt2020St2084 = Bit(0x09, 6);
inline constexpr SPlace gsc_oFeatureBt2020 = Bit(0x09, 5);
inline constexpr SPlace gsc_oFeatureDciP3 = Bit(0x09, 4);
inline constexpr SPlace gsc_oFeatureAdobeRgb = Bit(0x09, 3);
inline constexpr SPlace gsc_oFeatureBt709Bt1886 = Bit(0x09, 2);
inline constexpr SPlace gsc_oFeatureBt601 = Bit(0x09, 1);
inline constexpr SPlace gsc_oFeatureSrgb = Bit(0x09, 0);
inline constexpr SPlace gsc_oFeatureCombinations = Bits(0x0B, 2, 0);
inline constexpr unsigned int gsc_uiCombinationsOffset = 0x0C; // of one byte each
inline constexpr SPlace gsc_oCombinationSpace = Bits(0, 7, 4);
inline constexpr SPlace gsc_oCombinationEotf = Bits(0, 3, 0);

// ---- A descriptor of adaptive sync, DisplayID 2.1: 6 bytes and more ----

inline constexpr SPlace gsc_oAdaptiveNotSeamless = Bit(0, 4);
inline constexpr SPlace gsc_oAdaptiveMode = Bits(0, 3, 2);
inline constexpr SPlace gsc_oAdaptiveNative = Bit(0, 0);
inline constexpr SPlace gsc_oAdaptiveMaxIncrease = Byte(1);
inline constexpr SPlace gsc_oAdaptiveMinRate = Byte(2);
inline constexpr SPlace gsc_oAdaptiveMaxDecrease = Byte(5);
inline constexpr SPlace gsc_oAdaptiveMaxRate = Split({ { 4, 1, 0 }, { 3, 7, 0 } }); // Hz, minus 1
inline constexpr unsigned int gsc_uiAdaptiveSize = 6;
inline constexpr SPlace gsc_oAdaptiveExtraBytes = Bits(1, 6, 4); // of the data block: each descriptor is longer

// ---- Vendor-specific, that of VESA, DisplayID 2.1 ----

inline constexpr unsigned int gsc_uiVesaSize = 5; // of the payload
inline constexpr SPlace gsc_oVesaNativeColour = Bit(0x06, 7);
inline constexpr SPlace gsc_oVesaStructure = Bits(0x06, 2, 0);
inline constexpr SPlace gsc_oMultiSstOperation = Bits(0x07, 6, 5);
inline constexpr SPlace gsc_oPanelOverlap = Bits(0x07, 3, 0);

} // namespace ZorStandards::DisplayId
