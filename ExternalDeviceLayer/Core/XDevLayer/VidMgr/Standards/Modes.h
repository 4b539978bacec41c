// Modes out of codes and bytes: one reader for each structure that announces some, for the map and the facts alike.
// Each returns false where the bytes announce none, and then oMode means nothing. Private to the library.

#pragma once

#include <bit>

#include "DisplayIdSection.h"
#include "EdidMode.h"
#include "Formulas.h"
#include "Record.h"
#include "VesaModes.h"
#include "VideoCodes.h"

namespace ZorStandards
{
constexpr SZorMode::SRate WholeRate(unsigned int uiRate) { return { uiRate, 1 }; }

// Size, scan and rate. The rest is not given.
SZorMode MakeBareMode(SZorMode::EModeKind eKind, unsigned int uiCode, unsigned int uiWidth, unsigned int uiHeight,
                      bool bInterlaced, const SZorMode::SRate& oRate);

// The numbers of a table. The nominal rate is left as it is.
void SetTiming(SZorMode& oMode, const SPublishedTiming& oTiming);

// ---- Codes, with their timings. False for a code that is not published ----

bool MakeVideoMode(SZorMode& oMode, unsigned int uiCode); // of CTA-861
bool MakeHdmiMode(SZorMode& oMode, unsigned int uiCode);
bool MakeDmtMode(SZorMode& oMode, unsigned int uiId);
bool MakeEstablishedMode(SZorMode& oMode, unsigned int uiBit);
bool MakeEstablishedIIIMode(SZorMode& oMode, unsigned int uiBit);

// ---- Base block ----

// 18 bytes; false without a pixel clock.
bool ReadDetailedMode(const CRecordBytes& oRecord, SZorMode& oMode);

// Two bytes; with the timing of the DMT mode that has them as its code. bSquare: as ReadStandardTiming.
bool ReadStandardMode(const CRecordBytes& oRecord, bool bSquare, SZorMode& oMode);

// Three bytes. uiRank counts the rates that one code announces, the preferred one first.
bool ReadCvtCodeMode(const CRecordBytes& oRecord, unsigned int uiRank, SZorMode& oMode);
// The bit of byte 2 that announces a mode of such a code.
unsigned int GetCvtCodeBit(const SZorMode& oMode);
inline constexpr unsigned int gsc_uiCvtCodeSize = 3;
inline constexpr unsigned int gsc_uiStandardTimingSize = 2;
inline constexpr SPlace gsc_oCvtCodeLines = Split({ { 1, 7, 4 }, { 0, 7, 0 } }); // half of them, minus 1
inline constexpr SPlace gsc_oCvtCodeAspect = Bits(1, 3, 2);
inline constexpr SPlace gsc_oCvtCodePreferred = Bits(2, 6, 5); // which of the first four rates
struct SCvtCodeRate
{
    SPlace m_oPlace;       // of the bit that announces it
    unsigned int m_uiRate; // Hz
    SZorMode::EBlanking m_eBlanking;
};
inline constexpr SCvtCodeRate gsc_aoCvtCodeRates[] = {
    { Bit(2, 4), 50, SZorMode::eBlanking_Standard }, { Bit(2, 3), 60, SZorMode::eBlanking_Standard },
    { Bit(2, 2), 75, SZorMode::eBlanking_Standard }, { Bit(2, 1), 85, SZorMode::eBlanking_Standard },
    { Bit(2, 0), 60, SZorMode::eBlanking_Reduced1 },
};
constexpr bool IsUnusedCvtCode(const CRecordBytes& oRecord)
{
    return (oRecord.GetByte(0) | oRecord.GetByte(1) | oRecord.GetByte(2)) == 0;
}

inline constexpr unsigned int gsc_uiUnusedStandard = 0x01; // both bytes of a standard timing that is not used
constexpr bool IsUnusedStandard(const CRecordBytes& oRecord)
{
    return oRecord.GetByte(0) == gsc_uiUnusedStandard && oRecord.GetByte(1) == gsc_uiUnusedStandard;
}

// ---- Range limits ----

// The limits that a timing may leave, the one to name first. A clock that is above its own by less than the unit, as
// makers round down, comes last.
enum ELimit
{
    eLimit_Clock,
    eLimit_LineRateBelow,
    eLimit_LineRateAbove,
    eLimit_FieldRateBelow,
    eLimit_FieldRateAbove,
    eLimit_RoundedClock,
    eLimit_Count
};
constexpr unsigned int LimitBit(ELimit eLimit) { return 1U << eLimit; }

// The bits of all limits that a mode leaves; 0 without a timing, as numbers that are not given leave none.
constexpr unsigned int FindBreaches(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits)
{
    constexpr unsigned long long ullHzPerKiloHz = 1000;
    if (!oMode.m_bTiming)
    {
        return 0;
    }
    const unsigned long long ullClock = oMode.m_ullClock / ullHzPerKiloHz;
    const unsigned int uiWidth = oMode.m_oHorizontal.m_uiTotal;
    const auto [ullPart, ullWhole] = oMode.m_oRate;
    unsigned int uiBreaches = 0;
    if (IsPixelClockBeyond(oLimits, ullClock))
    {
        uiBreaches |= LimitBit(IsPixelClockRounded(oLimits, ullClock) ? eLimit_RoundedClock : eLimit_Clock);
    }
    if (IsLineRateBeyond(oLimits, ullClock, uiWidth))
    {
        const bool bBelow = ullClock / uiWidth < oLimits.m_uiMinHorizontalRateInKiloHz;
        uiBreaches |= LimitBit(bBelow ? eLimit_LineRateBelow : eLimit_LineRateAbove);
    }
    if (IsFieldRateBeyond(oLimits, ullPart, ullWhole))
    {
        const bool bBelow = ullPart / ullWhole < oLimits.m_uiMinVerticalRateInHz;
        uiBreaches |= LimitBit(bBelow ? eLimit_FieldRateBelow : eLimit_FieldRateAbove);
    }
    return uiBreaches;
}
// The first of them; eLimit_Count for none.
constexpr ELimit FindBreach(const SZorMode& oMode, const Descriptors::SRangeLimits& oLimits)
{
    return static_cast<ELimit>(std::countr_zero(FindBreaches(oMode, oLimits) | LimitBit(eLimit_Count)));
}

// ---- CTA-861 ----

// A short video descriptor: CTA-861-H 7.5.1.
bool ReadShortVideoMode(unsigned int uiSvd, SZorMode& oMode);

// One to four bytes, CTA-861.6. uiRank counts the rates, from the lowest on. bFraction: those that are multiples of 6
// come at 1000/1001 as well.
bool ReadFormatMode(const CRecordBytes& oRecord, unsigned int uiRank, bool bFraction, SZorMode& oMode);

// ---- DisplayID, Types I to X but IV and VIII, which are codes. A record starts with its first byte ----

bool ReadType1Mode(const CRecordBytes& oRecord, SZorMode& oMode);
bool ReadType2Mode(const CRecordBytes& oRecord, SZorMode& oMode);
bool ReadType3Mode(const CRecordBytes& oRecord, SZorMode& oMode);
bool ReadType5Mode(const CRecordBytes& oRecord, SZorMode& oMode);
bool ReadType6Mode(const CRecordBytes& oRecord, SZorMode& oMode);
bool ReadType7Mode(const CRecordBytes& oRecord, SZorMode& oMode);
bool ReadType7Revision2Mode(const CRecordBytes& oRecord, SZorMode& oMode); // of a data block of revision 2 or later
bool ReadType9Mode(const CRecordBytes& oRecord, SZorMode& oMode);
bool ReadType10Mode(const CRecordBytes& oRecord, SZorMode& oMode);

// What a Type X record says of reduced blanking version 3; the standard's own where it says nothing.
SReducedBlanking ReadReducedBlanking(const CRecordBytes& oType10);
unsigned int ReadAdditionalBlankInUs(const CRecordBytes& oType10); // vertically, beyond the least

// The picture's ratio by the code that Types I, III and VII have; without a width from 8 on.
constexpr SRatio GetTimingRatio(unsigned int uiCode)
{
    constexpr SRatio aoRatios[] = { { 1, 1 },  { 5, 4 },   { 4, 3 },   { 15, 9 },
                                    { 16, 9 }, { 16, 10 }, { 64, 27 }, { 256, 135 } };
    return uiCode < std::size(aoRatios) ? aoRatios[uiCode] : SRatio{ 0, 0 };
}
} // namespace ZorStandards
