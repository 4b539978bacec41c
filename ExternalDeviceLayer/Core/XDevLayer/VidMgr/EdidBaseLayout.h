// Where things stand in the 128 bytes of the base block (VESA E-EDID standard), and the rules that the core and the
// EDID tools both apply to these bytes. Not installed. What reads the block byte by byte may include it: the core, the
// reports, the map and the command. Offsets are in bytes from the start of the block, unless stated otherwise.

#pragma once

#include "ByteFields.h"
#include "EdidUtils.h"

namespace EdidBaseLayout
{
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
constexpr unsigned int gsc_uiFeaturesOffset = 24;
constexpr unsigned int gsc_uiEstablishedOffset = 35; // three bytes, little-endian
constexpr unsigned int gsc_uiStandardsOffset = 38;   // eight pairs
constexpr unsigned int gsc_uiDescriptorsOffset = 54; // four descriptors
constexpr unsigned int gsc_uiExtensionCountOffset = 126;

constexpr unsigned int gsc_uiVersion = 1; // the only one with this layout

// Video input byte. Colour depth and interface exist for digital inputs from revision 4 on.
constexpr unsigned int gsc_uiDigitalMask = 0x80;
constexpr ByteFields::SBits gsc_oColorDepth = { gsc_uiVideoInputOffset, 4, 3 };
constexpr ByteFields::SBits gsc_oInterface = { gsc_uiVideoInputOffset, 0, 4 };
constexpr unsigned int gsc_uiVideoInputRevision = 4;

// Features byte: the first detailed timing is the preferred one. From revision 3 on it always is.
constexpr unsigned int gsc_uiPreferredTimingMask = 0x02;
constexpr unsigned int gsc_uiPreferredTimingRevision = 3;

// Version 1 and this revision or a later one.
constexpr bool IsAtLeastRevision(const unsigned char* pui8Block, unsigned int uiRevision)
{
    return pui8Block[gsc_uiVersionOffset] == gsc_uiVersion && pui8Block[gsc_uiRevisionOffset] >= uiRevision;
}

// Whether the first detailed timing is the preferred one.
constexpr bool IsPreferredTimingDeclared(const unsigned char* pui8Block)
{
    return IsAtLeastRevision(pui8Block, gsc_uiPreferredTimingRevision) ||
           (pui8Block[gsc_uiFeaturesOffset] & gsc_uiPreferredTimingMask) != 0;
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
    const unsigned int uiBits = ByteFields::ReadBig16(pui8Block + gsc_uiManufacturerOffset);
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
    return ByteFields::ReadLittle16(pui8Block + gsc_uiProductOffset);
}

constexpr unsigned int ReadSerialNumber(const unsigned char* pui8Block)
{
    return ByteFields::ReadLittle32(pui8Block + gsc_uiSerialOffset);
}

// Display descriptors, from the first byte of the descriptor: bytes 0, 1, 2 and 4 are zero.
constexpr unsigned int gsc_uiDescriptorSize = sizeof(CEdidUtils::SEdidDetailedRaw);
constexpr unsigned int gsc_uiTagOffset = 3;
constexpr unsigned int gsc_uiContentsOffset = 5;
constexpr unsigned char gsc_ui8TagSerialNumber = 0xFF;
constexpr unsigned char gsc_ui8TagString = 0xFE;
constexpr unsigned char gsc_ui8TagRangeLimits = 0xFD;
constexpr unsigned char gsc_ui8TagName = 0xFC;
constexpr unsigned char gsc_ui8TagExtraStandards = 0xFA;
constexpr unsigned char gsc_ui8TagEmpty = 0x10;
constexpr unsigned char gsc_ui8TagDetailed = 0x01; // counts as a detailed timing, although it never is one

// Range limits descriptor, from its first byte. Rates in Hz and kHz, the clock in 10 MHz.
constexpr unsigned int gsc_uiMinVerticalRateOffset = 5;
constexpr unsigned int gsc_uiMaxVerticalRateOffset = 6;
constexpr unsigned int gsc_uiMinHorizontalRateOffset = 7;
constexpr unsigned int gsc_uiMaxHorizontalRateOffset = 8;
constexpr unsigned int gsc_uiMaxPixelClockOffset = 9;
constexpr unsigned int gsc_uiKiloHzPer10MegaHz = 10000;

constexpr bool IsDisplayDescriptor(const unsigned char* pui8Descriptor)
{
    return pui8Descriptor[0] == 0 && pui8Descriptor[1] == 0 && pui8Descriptor[2] == 0 && pui8Descriptor[4] == 0;
}

constexpr unsigned int DescriptorOffset(unsigned int uiDescriptor)
{
    return gsc_uiDescriptorsOffset + uiDescriptor * gsc_uiDescriptorSize;
}
} // namespace EdidBaseLayout
