// The 18-byte descriptors of the VESA E-EDID standard, which the base block, CTA-861 and VTB blocks hold: detailed
// timings, display descriptors by their tag, range limits. Offsets are in bytes from the start of the descriptor.
// Private to the library and the command.

#pragma once

#include "ByteFields.h"
#include "Place.h"

namespace ZorStandards::Descriptors
{
constexpr unsigned int gsc_uiDescriptorSize = 18;

// ---- Detailed timings: a pixel clock other than 0 ----

constexpr SPlace gsc_oPixelClock = Little16(0);                               // 10 kHz
constexpr SPlace gsc_oHorizontalActive = Split({ { 4, 7, 4 }, { 2, 7, 0 } }); // pixels
constexpr SPlace gsc_oHorizontalBlanking = Split({ { 4, 3, 0 }, { 3, 7, 0 } });
constexpr SPlace gsc_oVerticalActive = Split({ { 7, 7, 4 }, { 5, 7, 0 } }); // lines of one field
constexpr SPlace gsc_oVerticalBlanking = Split({ { 7, 3, 0 }, { 6, 7, 0 } });
constexpr SPlace gsc_oHorizontalFrontPorch = Split({ { 11, 7, 6 }, { 8, 7, 0 } });
constexpr SPlace gsc_oHorizontalSync = Split({ { 11, 5, 4 }, { 9, 7, 0 } });
constexpr SPlace gsc_oVerticalFrontPorch = Split({ { 11, 3, 2 }, { 10, 7, 4 } });
constexpr SPlace gsc_oVerticalSync = Split({ { 11, 1, 0 }, { 10, 3, 0 } });
constexpr SPlace gsc_oImageWidth = Split({ { 14, 7, 4 }, { 12, 7, 0 } }); // millimetres
constexpr SPlace gsc_oImageHeight = Split({ { 14, 3, 0 }, { 13, 7, 0 } });
constexpr SPlace gsc_oHorizontalBorder = Byte(15); // each side
constexpr SPlace gsc_oVerticalBorder = Byte(16);   // top and bottom each
constexpr SPlace gsc_oInterlaced = Bit(17, 7);
constexpr SPlace gsc_oStereo = Split({ { 17, 6, 5 }, { 17, 0, 0 } });
constexpr SPlace gsc_oSyncType = Bits(17, 4, 3);
constexpr SPlace gsc_oVerticalPositive = Bit(17, 2);   // with digital separate sync; serrations with the others
constexpr SPlace gsc_oHorizontalPositive = Bit(17, 1); // with digital sync; sync on all three colours with analog sync

constexpr unsigned int gsc_uiDigitalCompositeSync = 2; // of gsc_oSyncType; analog below
constexpr unsigned int gsc_uiDigitalSeparateSync = 3;
constexpr unsigned int gsc_uiKiloHzPerClockUnit = 10;

constexpr bool HasPixelClock(const unsigned char* pui8Descriptor) { return ReadLittle16(pui8Descriptor) != 0; }

// ---- Display descriptors: bytes 0, 1, 2 and 4 are zero ----

constexpr unsigned int gsc_uiTagOffset = 3;
constexpr unsigned int gsc_uiContentsOffset = 5;
constexpr unsigned char gsc_ui8TagSerialNumber = 0xFF;
constexpr unsigned char gsc_ui8TagString = 0xFE;
constexpr unsigned char gsc_ui8TagRangeLimits = 0xFD;
constexpr unsigned char gsc_ui8TagName = 0xFC;
constexpr unsigned char gsc_ui8TagExtraStandards = 0xFA;
constexpr unsigned char gsc_ui8TagEmpty = 0x10;
constexpr unsigned char gsc_ui8TagDetailed = 0x01; // counts as a detailed timing, although it never is one

constexpr bool IsDisplayDescriptor(const unsigned char* pui8Descriptor)
{
    return pui8Descriptor[0] == 0 && pui8Descriptor[1] == 0 && pui8Descriptor[2] == 0 && pui8Descriptor[4] == 0;
}

// Whether the classes count the descriptor of a base block as a detailed timing.
constexpr bool IsTimingCandidate(const unsigned char* pui8Descriptor)
{
    return !IsDisplayDescriptor(pui8Descriptor) || pui8Descriptor[gsc_uiTagOffset] == gsc_ui8TagDetailed;
}

// Whether 18 bytes of a CTA-861 block are a descriptor; others are padding and end the descriptors. A clock of 0 needs
// a tag of the list.
constexpr bool IsDescriptor(const unsigned char* pui8Descriptor)
{
    constexpr unsigned int uiFirstTag = 0xF7; // up to gsc_ui8TagEmpty are those of makers
    const unsigned int uiTag = pui8Descriptor[gsc_uiTagOffset];
    return HasPixelClock(pui8Descriptor) ||
           (pui8Descriptor[2] == 0 && (uiTag >= uiFirstTag || (uiTag != 0 && uiTag <= gsc_ui8TagEmpty)));
}

// ---- Lists of timings in display descriptors ----

constexpr unsigned char gsc_ui8TagCvtCodes = 0xF8;
constexpr unsigned char gsc_ui8TagEstablishedIII = 0xF7;
constexpr unsigned int gsc_uiExtraStandards = 6; // from gsc_uiContentsOffset on
constexpr unsigned int gsc_uiCvtCodes = 4;       // from gsc_uiListOffset on, after a version
constexpr unsigned int gsc_uiListOffset = 6;

// ---- Range limits: rates in Hz and kHz, the clock in 10 MHz ----

constexpr SPlace gsc_oHorizontalOffsets = Bits(4, 3, 2); // from revision 4 on, as the next one
constexpr SPlace gsc_oVerticalOffsets = Bits(4, 1, 0);
constexpr SPlace gsc_oMinVerticalRate = Byte(5);
constexpr SPlace gsc_oMaxVerticalRate = Byte(6);
constexpr SPlace gsc_oMinHorizontalRate = Byte(7);
constexpr SPlace gsc_oMaxHorizontalRate = Byte(8);
constexpr SPlace gsc_oMaxPixelClock = Byte(9);
constexpr SPlace gsc_oFormula = Byte(10);
constexpr SPlace gsc_oSecondaryStart = Byte(12); // of the secondary GTF curve: 2 kHz
constexpr SPlace gsc_oSecondaryC = Byte(13);     // doubled
constexpr SPlace gsc_oSecondaryM = Little16(14);
constexpr SPlace gsc_oSecondaryK = Byte(16);
constexpr SPlace gsc_oSecondaryJ = Byte(17);           // doubled
constexpr SPlace gsc_oClockPrecision = Bits(12, 7, 2); // 0.25 MHz, to be taken off the maximum; CVT only

constexpr unsigned int gsc_uiSecondaryFormula = 2;
constexpr unsigned int gsc_uiCvtFormula = 4; // of gsc_oFormula, from revision 4 on
constexpr unsigned int gsc_uiRateOffset = 255;
constexpr unsigned int gsc_uiKiloHzPer10MegaHz = 10000;
constexpr unsigned int gsc_uiKiloHzPerPrecision = 250;
constexpr unsigned int gsc_uiHighestClockInKiloHz = 255 * gsc_uiKiloHzPer10MegaHz;

// The places of one direction.
struct SRatePlaces
{
    SPlace m_oMinimum;
    SPlace m_oMaximum;
    SPlace m_oOffsets;
};
inline constexpr SRatePlaces gsc_oVerticalRates = { gsc_oMinVerticalRate, gsc_oMaxVerticalRate, gsc_oVerticalOffsets };
inline constexpr SRatePlaces gsc_oHorizontalRates = { gsc_oMinHorizontalRate, gsc_oMaxHorizontalRate,
                                                      gsc_oHorizontalOffsets };

// Values of the offsets; 1 is reserved, and reads as no offset.
constexpr bool IsMaximumOffset(unsigned int uiOffsets) { return uiOffsets >= 2; }
constexpr bool IsMinimumOffset(unsigned int uiOffsets) { return uiOffsets == 3; }

// Rates up to 255, with bOffsets up to 510. Without it the offsets stay as they are.
constexpr void WriteRates(unsigned char* pui8Descriptor, const SRatePlaces& oPlaces, unsigned int uiLeast,
                          unsigned int uiMost, bool bOffsets)
{
    constexpr unsigned int uiMaximumOffset = 2;
    constexpr unsigned int uiBothOffsets = 3;
    const unsigned int uiOffsets = uiLeast > gsc_uiRateOffset  ? uiBothOffsets
                                   : uiMost > gsc_uiRateOffset ? uiMaximumOffset
                                                               : 0;
    oPlaces.m_oMinimum.Write(pui8Descriptor, uiLeast - (IsMinimumOffset(uiOffsets) ? gsc_uiRateOffset : 0));
    oPlaces.m_oMaximum.Write(pui8Descriptor, uiMost - (IsMaximumOffset(uiOffsets) ? gsc_uiRateOffset : 0));
    if (bOffsets)
    {
        oPlaces.m_oOffsets.Write(pui8Descriptor, uiOffsets);
    }
}

// A display descriptor with this tag, whatever its contents.
constexpr bool HasTag(const unsigned char* pui8Descriptor, unsigned char ui8Tag)
{
    return ReadLittle24(pui8Descriptor) == 0 && pui8Descriptor[gsc_uiTagOffset] == ui8Tag;
}

// A display descriptor with a text of up to gsc_uiTextSize characters. A shorter one ends with a line feed and blanks.
constexpr unsigned int gsc_uiTextSize = gsc_uiDescriptorSize - gsc_uiContentsOffset;
constexpr bool IsTextFor(const char* pszText, unsigned int uiLength)
{
    bool bPlain = uiLength != 0 && uiLength <= gsc_uiTextSize;
    for (unsigned int i = 0; i < uiLength && bPlain; ++i)
    {
        bPlain = pszText[i] >= ' ' && pszText[i] <= '~';
    }
    return bPlain;
}
constexpr const char* gsc_pszTextFor = "it takes 1 to 13 ASCII characters"; // of others
constexpr void WriteText(unsigned char* pui8Descriptor, unsigned char ui8Tag, const char* pszText,
                         unsigned int uiLength)
{
    constexpr unsigned char ui8LineFeed = 0x0A;
    for (unsigned int i = 0; i < gsc_uiContentsOffset; ++i)
    {
        pui8Descriptor[i] = i == gsc_uiTagOffset ? ui8Tag : 0;
    }
    for (unsigned int i = 0; i < gsc_uiTextSize; ++i)
    {
        const unsigned char ui8End = i == uiLength ? ui8LineFeed : ' ';
        pui8Descriptor[gsc_uiContentsOffset + i] = i < uiLength ? static_cast<unsigned char>(pszText[i]) : ui8End;
    }
}

// A display descriptor with range limits of 0 and without the numbers of a formula: a line feed and blanks are in their
// place. From revision 4 on a separate value says that no formula is supported; before, the default one is meant.
constexpr void WriteEmptyLimits(unsigned char* pui8Descriptor, bool bRevision4)
{
    constexpr unsigned int uiLimitsOnly = 1;
    constexpr char szZeros[gsc_oFormula.GetEnd() - gsc_uiContentsOffset] = {};
    WriteText(pui8Descriptor, gsc_ui8TagRangeLimits, szZeros, sizeof(szZeros));
    gsc_oFormula.Write(pui8Descriptor, bRevision4 ? uiLimitsOnly : 0);
}

// Range limits of revision 4 or later whose byte 4 has flags, with which the classes take them for no display
// descriptor. Reserved flags make them unreadable.
constexpr bool HasRateOffsets(const unsigned char* pui8Descriptor)
{
    constexpr unsigned int uiReserved = 1;
    return HasTag(pui8Descriptor, gsc_ui8TagRangeLimits) && pui8Descriptor[4] != 0 && pui8Descriptor[4] <= 0x0F &&
           gsc_oVerticalOffsets.Read(pui8Descriptor) != uiReserved &&
           gsc_oHorizontalOffsets.Read(pui8Descriptor) != uiReserved;
}

struct SRangeLimits
{
    unsigned int m_uiMinVerticalRateInHz;
    unsigned int m_uiMaxVerticalRateInHz;
    unsigned int m_uiMinHorizontalRateInKiloHz;
    unsigned int m_uiMaxHorizontalRateInKiloHz;
    unsigned int m_uiMaxPixelClockInKiloHz;        // a multiple of 10 MHz
    unsigned int m_uiPreciseMaxPixelClockInKiloHz; // less what CVT limits take off
    unsigned int m_uiHighestRate;                  // that the bytes can hold, vertically and horizontally

    constexpr bool operator==(const SRangeLimits&) const = default;
};

// Whether a rate, ullPart / ullWhole in the unit of its limits, is beyond them by that unit or more: makers round
// limits up, down, and to the nearest. uiMost 0: no limit. ullWhole 0: no rate. Quotients, as products of 64-bit rates
// could wrap.
constexpr bool IsRateBeyond(unsigned long long ullPart, unsigned long long ullWhole, unsigned int uiLeast,
                            unsigned int uiMost)
{
    if (ullWhole == 0)
    {
        return false;
    }
    const unsigned long long ullRate = ullPart / ullWhole;
    const unsigned long long ullRoundedUp = ullRate + (ullPart % ullWhole != 0 ? 1 : 0);
    return ullRoundedUp < uiLeast || (uiMost != 0 && ullRate > uiMost);
}

// Limits with a rate between them. Those of one rate or of none are at fault themselves where timings leave them.
constexpr bool IsRange(unsigned int uiLeast, unsigned int uiMost) { return uiLeast < uiMost; }

// Whether a timing is beyond limits: its clock, line and field rate, where these are a range. The largest value of the
// bytes means that or more.
constexpr bool IsPixelClockBeyond(const SRangeLimits& oLimits, unsigned long long ullClockInKiloHz)
{
    const unsigned int uiMost = oLimits.m_uiPreciseMaxPixelClockInKiloHz;
    return uiMost != 0 && uiMost != gsc_uiHighestClockInKiloHz && ullClockInKiloHz > uiMost;
}
// Beyond by less than a unit of the limit, which makers round down.
constexpr bool IsPixelClockRounded(const SRangeLimits& oLimits, unsigned long long ullClockInKiloHz)
{
    return IsPixelClockBeyond(oLimits, ullClockInKiloHz) &&
           ullClockInKiloHz < oLimits.m_uiPreciseMaxPixelClockInKiloHz + gsc_uiKiloHzPer10MegaHz;
}
constexpr bool IsLineRateBeyond(const SRangeLimits& oLimits, unsigned long long ullClockInKiloHz,
                                unsigned int uiTotalWidth)
{
    const unsigned int uiMost = oLimits.m_uiMaxHorizontalRateInKiloHz;
    return IsRange(oLimits.m_uiMinHorizontalRateInKiloHz, uiMost) &&
           IsRateBeyond(ullClockInKiloHz, uiTotalWidth, oLimits.m_uiMinHorizontalRateInKiloHz,
                        uiMost == oLimits.m_uiHighestRate ? 0 : uiMost);
}
constexpr bool IsFieldRateBeyond(const SRangeLimits& oLimits, unsigned long long ullPart, unsigned long long ullWhole)
{
    const unsigned int uiMost = oLimits.m_uiMaxVerticalRateInHz;
    return IsRange(oLimits.m_uiMinVerticalRateInHz, uiMost) &&
           IsRateBeyond(ullPart, ullWhole, oLimits.m_uiMinVerticalRateInHz,
                        uiMost == oLimits.m_uiHighestRate ? 0 : uiMost);
}

// Whether rates have offsets, by the revision of the base block: before 4 byte 4 is reserved.
constexpr bool HasRateOffsets(unsigned int uiRevision)
{
    constexpr unsigned int uiOffsetsRevision = 4;
    return uiRevision >= uiOffsetsRevision;
}
// The highest rate that the bytes can hold.
constexpr unsigned int GetHighestRate(bool bOffsets) { return bOffsets ? 2 * gsc_uiRateOffset : gsc_uiRateOffset; }

// The limits with their offsets. uiRevision: of the base block.
constexpr SRangeLimits ReadRangeLimits(const unsigned char* pui8Descriptor, unsigned int uiRevision)
{
    const bool bOffsets = HasRateOffsets(uiRevision);
    const unsigned int uiVertical = bOffsets ? gsc_oVerticalOffsets.Read(pui8Descriptor) : 0;
    const unsigned int uiHorizontal = bOffsets ? gsc_oHorizontalOffsets.Read(pui8Descriptor) : 0;
    const unsigned int uiClock = gsc_oMaxPixelClock.Read(pui8Descriptor) * gsc_uiKiloHzPer10MegaHz;
    const bool bPrecise = bOffsets && uiClock != 0 && gsc_oFormula.Read(pui8Descriptor) == gsc_uiCvtFormula;
    const auto fnRate = [&](const SPlace& oPlace, bool bOffset) {
        return oPlace.Read(pui8Descriptor) + (bOffset ? gsc_uiRateOffset : 0);
    };
    return { fnRate(gsc_oMinVerticalRate, IsMinimumOffset(uiVertical)),
             fnRate(gsc_oMaxVerticalRate, IsMaximumOffset(uiVertical)),
             fnRate(gsc_oMinHorizontalRate, IsMinimumOffset(uiHorizontal)),
             fnRate(gsc_oMaxHorizontalRate, IsMaximumOffset(uiHorizontal)),
             uiClock,
             uiClock - (bPrecise ? gsc_oClockPrecision.Read(pui8Descriptor) * gsc_uiKiloHzPerPrecision : 0),
             GetHighestRate(bOffsets) };
}
} // namespace ZorStandards::Descriptors
