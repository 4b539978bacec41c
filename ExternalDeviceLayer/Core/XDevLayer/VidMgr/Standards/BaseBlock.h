// The places of the 128 bytes of the base block (VESA E-EDID standard), and the rules that its readers share. Offsets
// are in bytes from the start of the block. Private to the library and the command.

#pragma once

#include "ByteFields.h"
#include "Descriptors.h"
#include "Place.h"

namespace ZorStandards
{
// Base block and extension blocks alike, in bytes. The checksum is the last byte.
inline constexpr unsigned int gsc_uiBlockSize = 128;
inline constexpr unsigned int gsc_uiChecksumOffset = gsc_uiBlockSize - 1;

namespace BaseBlock
{
using namespace Descriptors;

constexpr unsigned int gsc_uiManufacturerOffset = 8; // two bytes, big-endian
constexpr unsigned int gsc_uiProductOffset = 10;     // two bytes, little-endian
constexpr unsigned int gsc_uiSerialOffset = 12;      // four bytes, little-endian
constexpr unsigned int gsc_uiWeekOffset = 16;
constexpr unsigned int gsc_uiYearOffset = 17; // minus 1990
constexpr unsigned int gsc_uiVersionOffset = 18;
constexpr unsigned int gsc_uiRevisionOffset = 19;
constexpr unsigned int gsc_uiVideoInputOffset = 20;
constexpr unsigned int gsc_uiImageWidthOffset = 21;  // centimetres
constexpr unsigned int gsc_uiImageHeightOffset = 22; // centimetres
constexpr unsigned int gsc_uiGammaOffset = 23;       // hundredths, minus 100; FFh: not here
constexpr unsigned int gsc_uiFeaturesOffset = 24;
constexpr unsigned int gsc_uiEstablishedOffset = 35; // three bytes, little-endian
constexpr unsigned int gsc_uiStandardsOffset = 38;   // eight pairs
constexpr unsigned int gsc_ui16To10Revision = 3;     // the first one in which their aspect code 0 is 16:10, not 1:1
constexpr unsigned int gsc_uiDescriptorsOffset = 54; // four descriptors
constexpr unsigned int gsc_uiExtensionCountOffset = 126;

constexpr unsigned int gsc_uiVersion = 1; // the only one with this layout

constexpr SPlace gsc_oManufacturer = // three letters of five bits
    Split({ { gsc_uiManufacturerOffset, 6, 0 }, { gsc_uiManufacturerOffset + 1, 7, 0 } });

// Video input byte. Colour depth and interface exist for digital inputs from revision 4 on.
constexpr unsigned int gsc_uiDigitalMask = 0x80;
constexpr SBitsPlace gsc_oColorDepth = { gsc_uiVideoInputOffset, 6, 4 };
constexpr SBitsPlace gsc_oInterface = { gsc_uiVideoInputOffset, 3, 0 };
constexpr unsigned int gsc_uiReservedColorDepth = 7;
// Bits per colour of a code of the depth: 6, 8 and so on to 16. 0 for undefined and reserved.
constexpr unsigned int GetBitsPerColor(unsigned int uiCode)
{
    return uiCode != 0 && uiCode < gsc_uiReservedColorDepth ? 4 + 2 * uiCode : 0;
}
constexpr unsigned int GetColorDepthCode(unsigned int uiBits) { return uiBits / 2 - 2; } // of one that has a code
constexpr unsigned int gsc_uiVideoInputRevision = 4;
constexpr SPlace gsc_oDfp1Compatible = Bit(gsc_uiVideoInputOffset, 0); // of digital inputs of revisions 2 and 3
constexpr unsigned int gsc_uiDfpRevision = 2;

// Features byte: the first detailed timing is the preferred one. From revision 3 on it always is.
constexpr unsigned int gsc_uiPreferredTimingMask = 0x02;
constexpr unsigned int gsc_uiPreferredTimingRevision = 3;

// Image sizes from revision 4 on: of two, one that is 0 makes the other an aspect ratio, 1.00 as 1.
constexpr unsigned int gsc_uiRatioOffset = 99;

// Other fields; of digital inputs from revision 4 on the colour type is a list of encodings.
constexpr SPlace gsc_oGamma = Byte(gsc_uiGammaOffset);
constexpr SPlace gsc_oDisplayColorType = Bits(gsc_uiFeaturesOffset, 4, 3);
constexpr SPlace gsc_oSrgbDefault = Bit(gsc_uiFeaturesOffset, 2);
constexpr SPlace gsc_oPreferredIsNative = Bit(gsc_uiFeaturesOffset, 1);
constexpr SPlace gsc_oContinuousFrequency = Bit(gsc_uiFeaturesOffset, 0);

// Chromaticities in 1/1024.
// sRGB's, as they are stored: gamma 2.20, and the primaries with the white point from byte 19h on.
inline constexpr unsigned char gsc_ui8SrgbGamma = 220 - 100;
inline constexpr unsigned int gsc_uiChromaticitiesOffset = 0x19;
inline constexpr unsigned char gsc_aui8SrgbColors[] = { 0xEE, 0x91, 0xA3, 0x54, 0x4C, 0x99, 0x26, 0x0F, 0x50, 0x54 };
constexpr SPlace gsc_oRedX = Split({ { 0x1B, 7, 0 }, { 0x19, 7, 6 } });
constexpr SPlace gsc_oRedY = Split({ { 0x1C, 7, 0 }, { 0x19, 5, 4 } });
constexpr SPlace gsc_oGreenX = Split({ { 0x1D, 7, 0 }, { 0x19, 3, 2 } });
constexpr SPlace gsc_oGreenY = Split({ { 0x1E, 7, 0 }, { 0x19, 1, 0 } });
constexpr SPlace gsc_oBlueX = Split({ { 0x1F, 7, 0 }, { 0x1A, 7, 6 } });
constexpr SPlace gsc_oBlueY = Split({ { 0x20, 7, 0 }, { 0x1A, 5, 4 } });
constexpr SPlace gsc_oWhiteX = Split({ { 0x21, 7, 0 }, { 0x1A, 3, 2 } });
constexpr SPlace gsc_oWhiteY = Split({ { 0x22, 7, 0 }, { 0x1A, 1, 0 } });
constexpr unsigned int gsc_uiGammaElsewhere = 0xFF;
constexpr unsigned int gsc_uiLastWeek = 54;
constexpr unsigned int gsc_uiModelYearWeek = 0xFF;  // the year is the model year
constexpr unsigned int gsc_uiModelYearRevision = 4; // the first one in which it may be
constexpr unsigned int gsc_uiFirstYear = 1990;

// The revision of version 1; 0 for other versions, which are read as its first revision.
constexpr unsigned int ReadRevision(const unsigned char* pui8Block)
{
    return pui8Block[gsc_uiVersionOffset] == gsc_uiVersion ? pui8Block[gsc_uiRevisionOffset] : 0U;
}

// Version 1 and this revision, from 1 on, or a later one.
constexpr bool IsAtLeastRevision(const unsigned char* pui8Block, unsigned int uiRevision)
{
    return ReadRevision(pui8Block) >= uiRevision;
}

// Whether the first detailed timing is the preferred one.
constexpr bool IsPreferredTimingDeclared(const unsigned char* pui8Block)
{
    return IsAtLeastRevision(pui8Block, gsc_uiPreferredTimingRevision) ||
           (pui8Block[gsc_uiFeaturesOffset] & gsc_uiPreferredTimingMask) != 0;
}

// Whether the first detailed timing is said to be the native one. Before revision 4 the bit says that it is preferred.
constexpr unsigned int gsc_uiNativeTimingRevision = 4;
constexpr bool IsNativeTimingDeclared(const unsigned char* pui8Block)
{
    return IsAtLeastRevision(pui8Block, gsc_uiNativeTimingRevision) && gsc_oPreferredIsNative.IsSet(pui8Block);
}

// The manufacturer's letters, terminated.
constexpr unsigned int gsc_uiManufacturerLetters = 3;
struct SManufacturerCode
{
    char m_szCode[gsc_uiManufacturerLetters + 1];
};

// Three times five bits from bit 14 down, 1 is 'A'. Bit 15 is reserved.
constexpr SManufacturerCode ReadManufacturerCode(const unsigned char* pui8Block)
{
    constexpr unsigned int uiLetterBits = 5;
    constexpr unsigned int uiLetterMask = 0x1F;
    constexpr unsigned int uiBeforeA = 0x40;
    const unsigned int uiBits = ReadBig16(pui8Block + gsc_uiManufacturerOffset);
    SManufacturerCode oCode = {};
    for (unsigned int i = 0; i < gsc_uiManufacturerLetters; ++i)
    {
        const unsigned int uiShift = uiLetterBits * (gsc_uiManufacturerLetters - 1 - i);
        oCode.m_szCode[i] = static_cast<char>(((uiBits >> uiShift) & uiLetterMask) + uiBeforeA);
    }
    return oCode;
}

constexpr unsigned int ReadProductCode(const unsigned char* pui8Block)
{
    return ReadLittle16(pui8Block + gsc_uiProductOffset);
}

constexpr unsigned int ReadSerialNumber(const unsigned char* pui8Block)
{
    return ReadLittle32(pui8Block + gsc_uiSerialOffset);
}

constexpr unsigned int gsc_uiDescriptors = 4;
constexpr unsigned int DescriptorOffset(unsigned int uiDescriptor)
{
    return gsc_uiDescriptorsOffset + uiDescriptor * gsc_uiDescriptorSize;
}

constexpr bool IsModelYear(const unsigned char* pui8Block)
{
    return pui8Block[gsc_uiWeekOffset] == gsc_uiModelYearWeek && IsAtLeastRevision(pui8Block, gsc_uiModelYearRevision);
}

// The offset of the first range limits, whatever their reserved bytes are; 0 without any.
constexpr unsigned int FindRangeLimits(const unsigned char* pui8Block)
{
    for (unsigned int i = 0; i < gsc_uiDescriptors; ++i)
    {
        const unsigned char* pui8Descriptor = pui8Block + DescriptorOffset(i);
        if (!HasPixelClock(pui8Descriptor) && pui8Descriptor[gsc_uiTagOffset] == gsc_ui8TagRangeLimits)
        {
            return DescriptorOffset(i);
        }
    }
    return 0;
}
} // namespace BaseBlock
} // namespace ZorStandards
