// The 18-byte descriptors, VESA E-EDID standard, Release A Revision 2 (1.4), 3.10: detailed timings, which CTA-861 and
// VTB blocks hold as well, and display descriptors by their tag. Offsets are those of the descriptor.

#include "MapBase.h"

#include <algorithm>

#include "MapNames.h"
#include "MapValue.h"
#include "Standards/BaseBlock.h"

namespace ZorMap
{
using namespace ZorStandards::BaseBlock;

namespace
{
// ---- Detailed timings, E-EDID 3.10.2 ----

bool IsAnalogSync(const CRecord& oRecord) { return oRecord.Get(gsc_oSyncType) < gsc_uiDigitalCompositeSync; }
bool IsDigitalComposite(const CRecord& oRecord) { return oRecord.Get(gsc_oSyncType) == gsc_uiDigitalCompositeSync; }
bool IsDigitalSeparate(const CRecord& oRecord) { return oRecord.Get(gsc_oSyncType) == gsc_uiDigitalSeparateSync; }

SBreach CheckNotZero(const CRecord&, unsigned int uiValue)
{
    return uiValue == 0 ? eZorEdidRule_TimingSize : eZorEdidRule_None;
}
SBreach CheckClock(const CRecord&, unsigned int uiValue)
{
    return uiValue == 0 ? eZorEdidRule_TimingClock : eZorEdidRule_None;
}

SBreach CheckHorizontalBlanking(const CRecord& oRecord, unsigned int uiValue)
{
    return CheckBlanking(oRecord.Get(gsc_oHorizontalFrontPorch) + oRecord.Get(gsc_oHorizontalSync) +
                             2 * oRecord.Get(gsc_oHorizontalBorder),
                         uiValue);
}

SBreach CheckVerticalBlanking(const CRecord& oRecord, unsigned int uiValue)
{
    return CheckBlanking(oRecord.Get(gsc_oVerticalFrontPorch) + oRecord.Get(gsc_oVerticalSync) +
                             2 * oRecord.Get(gsc_oVerticalBorder),
                         uiValue);
}

SBreach CheckSync(const CRecord&, unsigned int uiValue)
{
    return uiValue == 0 ? eZorEdidRule_TimingSync : eZorEdidRule_None;
}

// Allowed, but some receivers lose the picture without one.
SBreach CheckPorch(const CRecord&, unsigned int uiValue)
{
    return uiValue == 0 ? eZorEdidRule_TimingPorch : eZorEdidRule_None;
}

// Of televisions: 16 by 9 and 4 by 3 mm.
bool IsRatio(const CRecord& oRecord)
{
    const unsigned int uiWidth = oRecord.Get(gsc_oImageWidth);
    const unsigned int uiHeight = oRecord.Get(gsc_oImageHeight);
    return (uiWidth == 16 && uiHeight == 9) || (uiWidth == 4 && uiHeight == 3);
}

SBreach CheckImageSize(const CRecord& oRecord, unsigned int)
{
    return IsRatio(oRecord) ? eZorEdidRule_TimingAspect : eZorEdidRule_None;
}

constexpr auto gsc_aoScan = Listed({ "non-interlaced", "interlaced" });
// E-EDID table 3.22. Bit 0 says nothing when bits 6 and 5 are 0.
constexpr SMeaning gsc_aoStereo[] = {
    { 0, 1, "normal display, no stereo" },
    { 2, 2, "field sequential, right image when stereo sync = 1" },
    { 3, 3, "2-way interleaved, right image on even lines" },
    { 4, 4, "field sequential, left image when stereo sync = 1" },
    { 5, 5, "2-way interleaved, left image on even lines" },
    { 6, 6, "4-way interleaved" },
    { 7, 7, "side-by-side interleaved" },
};
constexpr auto gsc_aoSyncTypes =
    Listed({ "analog composite", "bipolar analog composite", "digital composite", "digital separate" });
constexpr auto gsc_aoSerrations = Listed({ "without", "with (H-sync during V-sync)" });
constexpr auto gsc_aoSyncOn = Listed({ "green only", "all three (RGB)" });

constexpr SRow gsc_aoDetailedRows[] = {
    { eId_BaseDetailedPixelClock, gsc_oPixelClock, "Pixel clock", Number("MHz").Decimals(2), nullptr, CheckClock },
    { eId_BaseDetailedHorizontalActive, gsc_oHorizontalActive, "Horizontal addressable video", Number("pixels"),
      nullptr, CheckNotZero },
    { eId_BaseDetailedHorizontalBlanking, gsc_oHorizontalBlanking, "Horizontal blanking", Number("pixels"), nullptr,
      CheckHorizontalBlanking },
    { eId_BaseDetailedVerticalActive, gsc_oVerticalActive, "Vertical addressable video", Number("lines"), nullptr,
      CheckNotZero },
    { eId_BaseDetailedVerticalBlanking, gsc_oVerticalBlanking, "Vertical blanking", Number("lines"), nullptr,
      CheckVerticalBlanking },
    { eId_BaseDetailedHorizontalFrontPorch, gsc_oHorizontalFrontPorch, "Horizontal front porch", Number("pixels"),
      nullptr, CheckPorch },
    { eId_BaseDetailedHorizontalSyncWidth, gsc_oHorizontalSync, "Horizontal sync pulse width", Number("pixels"),
      nullptr, CheckSync },
    { eId_BaseDetailedVerticalFrontPorch, gsc_oVerticalFrontPorch, "Vertical front porch", Number("lines"), nullptr,
      CheckPorch },
    { eId_BaseDetailedVerticalSyncWidth, gsc_oVerticalSync, "Vertical sync pulse width", Number("lines"), nullptr,
      CheckSync },
    { eId_BaseDetailedImageWidth, gsc_oImageWidth, "Horizontal addressable video image size",
      Number("mm").With(gsc_aoZeroNotGiven), nullptr, CheckImageSize },
    { eId_BaseDetailedImageHeight, gsc_oImageHeight, "Vertical addressable video image size",
      Number("mm").With(gsc_aoZeroNotGiven) },
    { eId_BaseDetailedHorizontalBorder, gsc_oHorizontalBorder, "Horizontal border", Number("pixels") }, // each side
    { eId_BaseDetailedVerticalBorder, gsc_oVerticalBorder, "Vertical border", Number("lines") }, // top and bottom each
    { eId_BaseDetailedInterlaced, gsc_oInterlaced, "Signal interface type", Flag(gsc_aoScan) },
    { eId_BaseDetailedStereo, gsc_oStereo, "Stereo viewing support", Names(gsc_aoStereo) },
    { eId_BaseDetailedSyncType, gsc_oSyncType, "Sync signal type", Names(gsc_aoSyncTypes) },
    { eId_BaseDetailedSerrations, gsc_oVerticalPositive, "Serrations", Flag(gsc_aoSerrations), IsAnalogSync },
    { eId_BaseDetailedSyncOn, gsc_oHorizontalPositive, "Sync on", Flag(gsc_aoSyncOn), IsAnalogSync },
    { eId_BaseDetailedSerrations, gsc_oVerticalPositive, "Serrations", Flag(gsc_aoSerrations), IsDigitalComposite },
    { eId_BaseDetailedHorizontalSyncPolarity, gsc_oHorizontalPositive, "Horizontal sync polarity", Flag(gsc_aoSigns),
      IsDigitalComposite }, // outside of V-sync
    { eId_BaseDetailedVerticalSyncPolarity, gsc_oVerticalPositive, "Vertical sync polarity", Flag(gsc_aoSigns),
      IsDigitalSeparate },
    { eId_BaseDetailedHorizontalSyncPolarity, gsc_oHorizontalPositive, "Horizontal sync polarity", Flag(gsc_aoSigns),
      IsDigitalSeparate },
};

// ---- Display descriptors, E-EDID 3.10.3: positions and texts that several have ----

constexpr unsigned int gsc_uiTextLength = gsc_uiMapDescriptorSize - gsc_uiContentsOffset;

// ---- Texts: E-EDID 3.10.3.1, 3.10.3.2, 3.10.3.4 ----

// Up to the line feed, or all 13.
unsigned int GetTextLength(const CRecord& oRecord)
{
    unsigned int uiLength = 0;
    while (uiLength < gsc_uiTextLength && oRecord.GetByte(gsc_uiContentsOffset + uiLength) != gsc_ui8LineFeed)
    {
        ++uiLength;
    }
    return uiLength;
}

CMString FormatText(const CRecord& oRecord)
{
    CMString sText;
    for (unsigned int i = 0; i < GetTextLength(oRecord); ++i)
    {
        const unsigned int uiCharacter = oRecord.GetByte(gsc_uiContentsOffset + i);
        sText += uiCharacter != 0 ? static_cast<char>(uiCharacter) : '.';
    }
    return sText;
}

constexpr STable gsc_oSerialTable = { eId_BaseSerial, "Display product serial number", eArea_Identity, {}, FormatText };
constexpr STable gsc_oStringTable = { eId_BaseString, "Alphanumeric data string", eArea_Identity, {}, FormatText };
constexpr STable gsc_oNameTable = { eId_BaseName, "Display product name", eArea_Identity, {}, FormatText };

// Of the text alone. One that fills its 13 bytes needs no line feed; more than half of it blank, it is a shorter one
// that lacks its line feed; all of it blank, it is empty.
SBreach CheckText(const CRecord& oRecord, unsigned int)
{
    for (unsigned int i = 0; i < oRecord.GetSize(); ++i)
    {
        if (oRecord.GetByte(i) < ' ')
        {
            return eZorEdidRule_TextControl;
        }
    }
    unsigned int uiBlanks = 0;
    while (uiBlanks < oRecord.GetSize() && oRecord.GetByte(oRecord.GetSize() - 1 - uiBlanks) == ' ')
    {
        ++uiBlanks;
    }
    const bool bFull = oRecord.GetSize() == gsc_uiTextLength;
    return bFull && uiBlanks > gsc_uiTextLength / 2 && uiBlanks < gsc_uiTextLength ? eZorEdidRule_TextEnd
           : bFull && uiBlanks > 1                                                 ? eZorEdidRule_TextBlanks
                                                                                   : eZorEdidRule_None;
}

constexpr SRow gsc_oTextRow = { eId_BaseDescriptorText, RunToEnd(0), "Text", Text(), nullptr, CheckText };
constexpr SRow gsc_oLineFeedRow = { eId_LineFeed, Byte(0), "Line feed", Filler(gsc_ui8LineFeed, eZorEdidRule_TextEnd) };
constexpr SRow gsc_oBlanksRow = { eId_Padding, RunToEnd(0), "Padding", Filler(' ', eZorEdidRule_Blanks) };

void AddText(CMapWriter& oWriter, const CRecord& oRecord, unsigned int uiOffset)
{
    const unsigned int uiText = uiOffset + gsc_uiContentsOffset;
    const unsigned int uiLength = GetTextLength(oRecord);
    const unsigned int uiEnd = uiOffset + gsc_uiMapDescriptorSize;
    const unsigned int uiField = oWriter.AddLeaf(gsc_oTextRow, eArea_Identity, uiText, uiLength);
    const unsigned char* pui8Text = oRecord.GetData() + gsc_uiContentsOffset;
    if (std::any_of(pui8Text, pui8Text + uiLength, [](unsigned int uiOne) { return uiOne >= gsc_uiFirstAfterAscii; }))
    {
        oWriter.AddNote(uiField, eZorEdidRule_TextBeyondAscii);
    }
    if (uiLength < gsc_uiTextLength)
    {
        oWriter.AddLeaf(gsc_oLineFeedRow, eArea_Unused, uiText + uiLength, 1);
        oWriter.AddLeaf(gsc_oBlanksRow, eArea_Unused, uiText + uiLength + 1, uiEnd - uiText - uiLength - 1);
    }
}

// ---- Display range limits, E-EDID 3.10.3.3 ----

// Byte 4, from 1.4 on: two bits for each direction. 2 puts 255 on the maximum, 3 on both.
unsigned int GetVerticalOffsets(const CRecord& oRecord)
{
    return IsRevision4(oRecord) ? oRecord.Get(gsc_oVerticalOffsets) : 0;
}
unsigned int GetHorizontalOffsets(const CRecord& oRecord)
{
    return IsRevision4(oRecord) ? oRecord.Get(gsc_oHorizontalOffsets) : 0;
}
bool IsVerticalMinimumOffset(const CRecord& oRecord) { return IsMinimumOffset(GetVerticalOffsets(oRecord)); }
bool IsVerticalMaximumOffset(const CRecord& oRecord) { return IsMaximumOffset(GetVerticalOffsets(oRecord)); }
bool IsHorizontalMinimumOffset(const CRecord& oRecord) { return IsMinimumOffset(GetHorizontalOffsets(oRecord)); }
bool IsHorizontalMaximumOffset(const CRecord& oRecord) { return IsMaximumOffset(GetHorizontalOffsets(oRecord)); }

SBreach CheckMinimumRate(const CRecord& /*oRecord*/, unsigned int uiStored)
{
    return uiStored == 0 ? eZorEdidRule_RangeZero : eZorEdidRule_None;
}

SBreach CheckMaximumRate(unsigned int uiStored, unsigned int uiLeast, unsigned int uiMost)
{
    return uiStored == 0      ? SBreach(eZorEdidRule_RangeZero)
           : uiMost < uiLeast ? SBreach(eZorEdidRule_RangeOrder, uiStored + (uiLeast - uiMost)) // with its offset
                              : gsc_oNoBreach;
}

SBreach CheckVerticalMaximum(const CRecord& oRecord, unsigned int uiValue)
{
    const SRangeLimits oLimits = ReadRangeLimits(oRecord);
    return CheckMaximumRate(uiValue, oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz);
}

SBreach CheckHorizontalMaximum(const CRecord& oRecord, unsigned int uiValue)
{
    const SRangeLimits oLimits = ReadRangeLimits(oRecord);
    return CheckMaximumRate(uiValue, oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz);
}

SBreach CheckMaximumClock(const CRecord& oRecord, unsigned int uiValue)
{
    return uiValue == 0 && IsRevision4(oRecord) ? eZorEdidRule_RangeClock : eZorEdidRule_None;
}

constexpr SMeaning gsc_aoVerticalOffsets[] = {
    { 0, 0, "none" }, { 1, 1, gsc_szReserved }, { 2, 2, "maximum + 255 Hz" }, { 3, 3, "maximum and minimum + 255 Hz" }
};
constexpr SMeaning gsc_aoHorizontalOffsets[] = {
    { 0, 0, "none" }, { 1, 1, gsc_szReserved }, { 2, 2, "maximum + 255 kHz" }, { 3, 3, "maximum and minimum + 255 kHz" }
};
constexpr SMeaning gsc_aoOldFormulas[] = { { 0, 0, "no secondary timing formula" },
                                           { 1, 1, gsc_szReserved },
                                           { 2, 2, "secondary GTF" },
                                           { 3, 255, gsc_szReserved } };
constexpr SMeaning gsc_aoFormulas[] = {
    { 0, 0, "default GTF" }, { 1, 1, "range limits only" }, { 2, 2, "secondary GTF" }, { 3, 3, gsc_szReserved },
    { 4, 4, "CVT" },         { 5, 255, gsc_szReserved },
};

bool IsPlainFormula(const CRecord& oRecord) { return oRecord.Get(gsc_oFormula) < 2; }
bool IsSecondaryGtf(const CRecord& oRecord) { return oRecord.Get(gsc_oFormula) == 2; }
bool IsCvt(const CRecord& oRecord) { return IsRevision4(oRecord) && oRecord.Get(gsc_oFormula) == gsc_uiCvtFormula; }
bool IsOtherFormula(const CRecord& oRecord)
{
    return !IsPlainFormula(oRecord) && !IsSecondaryGtf(oRecord) && !IsCvt(oRecord);
}

// The standard has these supported where byte 18h of the base block says continuous frequency.
SBreach CheckFormula(const CRecord& oRecord, unsigned int uiFormula)
{
    const bool bFormula = uiFormula == 0 || uiFormula == 2 || uiFormula == 4;
    return bFormula && !oRecord.GetFacts().m_bContinuous ? eZorEdidRule_RangeFormula : eZorEdidRule_None;
}

// The bits of byte 0Eh have the order of the codes, bit 7 first.
SBreach CheckPreferredAspect(const CRecord& oRecord, unsigned int uiAspect)
{
    constexpr unsigned int uiAspects = 5;
    return uiAspect < uiAspects && !oRecord.IsSet(0x0E, 7 - uiAspect) ? eZorEdidRule_PreferredAspect
                                                                      : eZorEdidRule_None;
}

constexpr SMeaning gsc_aoNoPixelLimit[] = { { 0, 0, "no limit" } };
constexpr SMeaning gsc_aoCvtAspects[] = { { 0, 0, "4:3" }, { 1, 1, "16:9" }, { 2, 2, "16:10" },
                                          { 3, 3, "5:4" }, { 4, 4, "15:9" }, { 5, 7, gsc_szReserved } };
constexpr SMeaning gsc_aoReservedRate[] = { { 0, 0, gsc_szReserved } };

CMString FormatRange(const CRecord& oRecord)
{
    const SRangeLimits oLimits = ReadRangeLimits(oRecord);
    CMString sText;
    sText.Format("%u to %u Hz, %u to %u kHz", oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz,
                 oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz);
    return sText;
}

// E-EDID tables 3.26 to 3.29
constexpr SRow gsc_aoRangeRows[] = {
    { eId_Reserved, Bits(0x04, 7, 4), "Reserved", Reserved(), IsRevision4 },
    { eId_BaseRangeHorizontalRateOffsets, gsc_oHorizontalOffsets, "Horizontal rate offsets",
      Names(gsc_aoHorizontalOffsets), IsRevision4 },
    { eId_BaseRangeVerticalRateOffsets, gsc_oVerticalOffsets, "Vertical rate offsets", Names(gsc_aoVerticalOffsets),
      IsRevision4 },
    { eId_BaseRangeMinVerticalRate, gsc_oMinVerticalRate, "Minimum vertical rate", Number("Hz"),
      IsNot<IsVerticalMinimumOffset>, CheckMinimumRate },
    { eId_BaseRangeMinVerticalRate, gsc_oMinVerticalRate, "Minimum vertical rate",
      Number("Hz").Times(1, gsc_uiRateOffset), IsVerticalMinimumOffset, CheckMinimumRate },
    { eId_BaseRangeMaxVerticalRate, gsc_oMaxVerticalRate, "Maximum vertical rate", Number("Hz"),
      IsNot<IsVerticalMaximumOffset>, CheckVerticalMaximum },
    { eId_BaseRangeMaxVerticalRate, gsc_oMaxVerticalRate, "Maximum vertical rate",
      Number("Hz").Times(1, gsc_uiRateOffset), IsVerticalMaximumOffset, CheckVerticalMaximum },
    { eId_BaseRangeMinHorizontalRate, gsc_oMinHorizontalRate, "Minimum horizontal rate", Number("kHz"),
      IsNot<IsHorizontalMinimumOffset>, CheckMinimumRate },
    { eId_BaseRangeMinHorizontalRate, gsc_oMinHorizontalRate, "Minimum horizontal rate",
      Number("kHz").Times(1, gsc_uiRateOffset), IsHorizontalMinimumOffset, CheckMinimumRate },
    { eId_BaseRangeMaxHorizontalRate, gsc_oMaxHorizontalRate, "Maximum horizontal rate", Number("kHz"),
      IsNot<IsHorizontalMaximumOffset>, CheckHorizontalMaximum },
    { eId_BaseRangeMaxHorizontalRate, gsc_oMaxHorizontalRate, "Maximum horizontal rate",
      Number("kHz").Times(1, gsc_uiRateOffset), IsHorizontalMaximumOffset, CheckHorizontalMaximum },
    { eId_BaseRangeMaxPixelClock, gsc_oMaxPixelClock, "Maximum pixel clock",
      Number("MHz").Times(10).With(gsc_aoZeroNotGiven), nullptr, CheckMaximumClock },
    { eId_BaseRangeSecondaryTimingFormula, gsc_oFormula, "Secondary timing formula", Names(gsc_aoOldFormulas),
      IsBefore4 },
    { eId_BaseRangeVideoTimingSupport, gsc_oFormula, "Video timing support", Names(gsc_aoFormulas), IsRevision4,
      CheckFormula },
    { eId_LineFeed, Byte(0x0B), "Line feed", Filler(gsc_ui8LineFeed, eZorEdidRule_LineFeed), IsPlainFormula },
    { eId_Padding, Run(0x0C, 6), "Padding", Filler(' ', eZorEdidRule_Blanks), IsPlainFormula },
    // Secondary GTF: the curve above the start frequency
    { eId_Reserved, Byte(0x0B), "Reserved", Reserved(), IsSecondaryGtf },
    { eId_BaseRangeGtfStartFrequency, gsc_oSecondaryStart, "Start break frequency", Number("kHz").Times(2),
      IsSecondaryGtf },
    { eId_BaseRangeGtfC, gsc_oSecondaryC, "C", Number("%").Times(5).Decimals(1), IsSecondaryGtf },
    { eId_BaseRangeGtfM, gsc_oSecondaryM, "M", Number("%/kHz"), IsSecondaryGtf },
    { eId_BaseRangeGtfK, gsc_oSecondaryK, "K", Number(), IsSecondaryGtf },
    { eId_BaseRangeGtfJ, gsc_oSecondaryJ, "J", Number("%").Times(5).Decimals(1), IsSecondaryGtf },
    // CVT
    { eId_BaseRangeCvtVersion, Bits(0x0B, 7, 4), "CVT standard version", Number(), IsCvt },
    { eId_BaseRangeCvtRevision, Bits(0x0B, 3, 0), "CVT standard revision", Number(), IsCvt },
    // To be taken off the maximum pixel clock above.
    { eId_BaseRangePixelClockPrecision, gsc_oClockPrecision, "Additional pixel clock precision",
      Number("MHz").Times(25).Decimals(2), IsCvt },
    { eId_BaseRangeMaxActivePixels, Split({ { 0x0C, 1, 0 }, { 0x0D, 7, 0 } }), "Maximum active pixels per line",
      Number("pixels").Times(8).With(gsc_aoNoPixelLimit), IsCvt },
    { eId_BaseRange4_3AspectRatio, Bit(0x0E, 7), "4:3 aspect ratio", Flag(gsc_aoSupported), IsCvt },
    { eId_BaseRange16_9AspectRatio, Bit(0x0E, 6), "16:9 aspect ratio", Flag(gsc_aoSupported), IsCvt },
    { eId_BaseRange16_10AspectRatio, Bit(0x0E, 5), "16:10 aspect ratio", Flag(gsc_aoSupported), IsCvt },
    { eId_BaseRange5_4AspectRatio, Bit(0x0E, 4), "5:4 aspect ratio", Flag(gsc_aoSupported), IsCvt },
    { eId_BaseRange15_9AspectRatio, Bit(0x0E, 3), "15:9 aspect ratio", Flag(gsc_aoSupported), IsCvt },
    { eId_Reserved, Bits(0x0E, 2, 0), "Reserved", Reserved(), IsCvt },
    { eId_BaseRangePreferredAspectRatio, Bits(0x0F, 7, 5), "Preferred aspect ratio", Names(gsc_aoCvtAspects), IsCvt,
      CheckPreferredAspect },
    { eId_BaseRangeCvtReducedBlanking, Bit(0x0F, 4), "CVT reduced blanking", Flag(gsc_aoSupported), IsCvt },
    { eId_BaseRangeCvtStandardBlanking, Bit(0x0F, 3), "CVT standard blanking", Flag(gsc_aoSupported), IsCvt },
    { eId_Reserved, Bits(0x0F, 2, 0), "Reserved", Reserved(), IsCvt },
    { eId_BaseRangeHorizontalShrink, Bit(0x10, 7), "Horizontal shrink", Flag(gsc_aoSupported), IsCvt },
    { eId_BaseRangeHorizontalStretch, Bit(0x10, 6), "Horizontal stretch", Flag(gsc_aoSupported), IsCvt },
    { eId_BaseRangeVerticalShrink, Bit(0x10, 5), "Vertical shrink", Flag(gsc_aoSupported), IsCvt },
    { eId_BaseRangeVerticalStretch, Bit(0x10, 4), "Vertical stretch", Flag(gsc_aoSupported), IsCvt },
    { eId_Reserved, Bits(0x10, 3, 0), "Reserved", Reserved(), IsCvt },
    { eId_BaseRangePreferredRefreshRate, Byte(0x11), "Preferred vertical refresh rate",
      Number("Hz").With(gsc_aoReservedRate), IsCvt },
    { eId_Unknown, Run(0x0B, 7), "Unknown", Unknown(), IsOtherFormula },
};
constexpr STable gsc_oRangeTable = { eId_BaseRange, "Display range limits", eArea_Timing, gsc_aoRangeRows,
                                     FormatRange };

// ---- Color point data, E-EDID 3.10.3.5: two white points of five bytes, the second one with index 0 when unused ----

bool IsPointUsed(const CRecord& oRecord) { return oRecord.GetByte(0) != 0; }

constexpr SMeaning gsc_aoPointReserved[] = { { 0, 0, gsc_szReserved } };
constexpr SMeaning gsc_aoPointUnused[] = { { 0, 0, "unused" } };

constexpr auto PointRows(std::span<const SMeaning> aoIndexes, bool (*pfnUsed)(const CRecord&))
{
    return std::to_array<SRow>({
        { eId_BaseColorPointIndex, Byte(0), "White point index number", Number().With(aoIndexes) },
        { eId_Reserved, Bits(1, 7, 4), "Reserved", Reserved(), pfnUsed },
        { eId_BaseColorPointWhiteX, Split({ { 2, 7, 0 }, { 1, 3, 2 } }), "White x", Chromaticity(), pfnUsed },
        { eId_BaseColorPointWhiteY, Split({ { 3, 7, 0 }, { 1, 1, 0 } }), "White y", Chromaticity(), pfnUsed },
        { eId_BaseColorPointWhiteGamma, Byte(4), "White gamma", HundredthsFrom1().With(gsc_aoGammaNotHere), pfnUsed },
    });
}
constexpr auto gsc_aoFirstPointRows = PointRows(gsc_aoPointReserved, nullptr);
constexpr auto gsc_aoSecondPointRows = PointRows(gsc_aoPointUnused, IsPointUsed);
constexpr STable gsc_oFirstPointTable = { eId_BaseColorPointWhitePoint, "White point", eArea_Colour,
                                          gsc_aoFirstPointRows };
constexpr STable gsc_oSecondPointTable = { eId_BaseColorPointWhitePoint, "White point", eArea_Colour,
                                           gsc_aoSecondPointRows };

constexpr SRow gsc_aoColorPointRows[] = {
    { eId_LineFeed, Byte(0x0F), "Line feed", Filler(gsc_ui8LineFeed, eZorEdidRule_LineFeed) },
    { eId_Padding, Run(0x10, 2), "Padding", Filler(' ', eZorEdidRule_Blanks) },
};
constexpr STable gsc_oColorPointTable = { eId_BaseColorPoint, "Color point data", eArea_Colour, gsc_aoColorPointRows };

// ---- Standard timing identifications 9 to 14, E-EDID 3.10.3.6 ----

constexpr SRow gsc_aoPairsRows[] = {
    { eId_LineFeed, Byte(0x11), "Line feed", Filler(gsc_ui8LineFeed, eZorEdidRule_LineFeed) },
};
constexpr STable gsc_oPairsTable = { eId_BaseStandardList, "Standard timing identifications", eArea_Timing,
                                     gsc_aoPairsRows };

// ---- Display color management data, E-EDID 3.10.3.7: coefficients of two bytes, least significant first ----

// In hundredths. Whether they are signed is not certain, so that one with its top bit set keeps its bytes.
CMString FormatCoefficient(const CRecord&, unsigned int uiValue)
{
    CMString sText;
    if (uiValue > 0x7FFF)
    {
        sText.Format("coefficient 0x%04x, meaning uncertain", uiValue);
        return sText;
    }
    return FormatNumber(uiValue, 2, nullptr);
}
constexpr SMeaning gsc_aoUncertain[] = { { 0x8000, 0xFFFF, "meaning uncertain" } };
constexpr SForm gsc_oCoefficient = Number().Decimals(2).With(gsc_aoUncertain).Text(FormatCoefficient);

constexpr SRow gsc_aoManagementRows[] = {
    { eId_BaseColorManagementVersion, Byte(0x05), "Version number", Number().Expect(3, eZorEdidRule_Version3Layout) },
    { eId_BaseColorManagementRedA3, Little16(0x06), "Red a3", gsc_oCoefficient },
    { eId_BaseColorManagementRedA2, Little16(0x08), "Red a2", gsc_oCoefficient },
    { eId_BaseColorManagementGreenA3, Little16(0x0A), "Green a3", gsc_oCoefficient },
    { eId_BaseColorManagementGreenA2, Little16(0x0C), "Green a2", gsc_oCoefficient },
    { eId_BaseColorManagementBlueA3, Little16(0x0E), "Blue a3", gsc_oCoefficient },
    { eId_BaseColorManagementBlueA2, Little16(0x10), "Blue a2", gsc_oCoefficient },
};
constexpr STable gsc_oManagementTable = { eId_BaseColorManagement, "Display color management data", eArea_Colour,
                                          gsc_aoManagementRows };

// ---- CVT 3 byte timing codes, E-EDID 3.10.3.8 ----

bool IsCodeUnused(const CRecord& oRecord) { return IsUnusedCvtCode(oRecord); }
constexpr auto IsCodeUsed = IsNot<IsCodeUnused>;

constexpr auto gsc_aoCodeAspects = Listed({ "4:3", "16:9", "16:10", "15:9" });
constexpr auto gsc_aoRateNames = Listed({ "50 Hz", "60 Hz", "75 Hz", "85 Hz" });

SBreach CheckCodeLines(const CRecord& /*oRecord*/, unsigned int uiLines)
{
    return (uiLines & 0xFF) == 0 ? eZorEdidRule_CvtLines : eZorEdidRule_None;
}

// With either blanking.
SBreach CheckCodeRate(const CRecord& oRecord, unsigned int uiRate)
{
    const bool bSupported = std::ranges::any_of(gsc_aoCvtCodeRates, [&](const SCvtCodeRate& oRate) {
        return oRate.m_uiRate == gsc_aoCvtCodeRates[uiRate].m_uiRate && oRecord.IsSet(oRate.m_oPlace);
    });
    return bSupported ? eZorEdidRule_None : eZorEdidRule_CvtRate;
}

bool MakeCvtCodeMode(const CRecord& oRecord, const SModeSource& oSource, CMode& oMode)
{
    return ReadCvtCodeMode(oRecord, oSource.m_uiRank, oMode);
}

CMString FormatCvtCode(const CRecord& oRecord)
{
    CMode oMode = {};
    return MakeCvtCodeMode(oRecord, {}, oMode) ? CZorEdidMap::GetModeText(oMode) : CMString("unused");
}

constexpr SRow gsc_aoCodeRows[] = {
    { eId_Unused, Run(0, 3), "Unused", Reserved(), IsCodeUnused },
    { eId_BaseCvtCodeVerticalActive, gsc_oCvtCodeLines, "Addressable lines", Number("lines").Times(2, 2), IsCodeUsed,
      CheckCodeLines },
    { eId_BaseCvtCodeAspectRatio, gsc_oCvtCodeAspect, "Aspect ratio", Names(gsc_aoCodeAspects), IsCodeUsed },
    { eId_Reserved, Bits(1, 1, 0), "Reserved", Reserved(), IsCodeUsed },
    { eId_Reserved, Bit(2, 7), "Reserved", Reserved(), IsCodeUsed },
    { eId_BaseCvtCodePreferredRate, gsc_oCvtCodePreferred, "Preferred vertical rate", Names(gsc_aoRateNames),
      IsCodeUsed, CheckCodeRate },
    { eId_BaseCvtCode50HzStandard, gsc_aoCvtCodeRates[0].m_oPlace, "50 Hz with standard blanking",
      Flag(gsc_aoSupported), IsCodeUsed },
    { eId_BaseCvtCode60HzStandard, gsc_aoCvtCodeRates[1].m_oPlace, "60 Hz with standard blanking",
      Flag(gsc_aoSupported), IsCodeUsed },
    { eId_BaseCvtCode75HzStandard, gsc_aoCvtCodeRates[2].m_oPlace, "75 Hz with standard blanking",
      Flag(gsc_aoSupported), IsCodeUsed },
    { eId_BaseCvtCode85HzStandard, gsc_aoCvtCodeRates[3].m_oPlace, "85 Hz with standard blanking",
      Flag(gsc_aoSupported), IsCodeUsed },
    { eId_BaseCvtCode60HzReduced, gsc_aoCvtCodeRates[4].m_oPlace, "60 Hz with reduced blanking", Flag(gsc_aoSupported),
      IsCodeUsed },
};

constexpr SRow gsc_aoCodesRows[] = {
    { eId_BaseCvtCodesVersion, Byte(0x05), "Version number", Number().Expect(1, eZorEdidRule_Version1Layout) },
};
constexpr STable gsc_oCodesTable = { eId_BaseCvtCodes, "CVT 3 byte timing codes", eArea_Timing, gsc_aoCodesRows };

// ---- Established timings III, E-EDID 3.10.3.9 ----

constexpr auto ListModeRows()
{
    constexpr unsigned int uiFirstOffset = 0x06;
    std::array<SRow, 1 + gsc_uiEstablishedIIIModes + 2> aoRows = {};
    aoRows[0] = { eId_BaseEstablished3Revision, Byte(0x05), "Revision number",
                  Number().Expect(0x0A, eZorEdidRule_Version10Layout) };
    for (unsigned int i = 0; i < gsc_uiEstablishedIIIModes; ++i)
    {
        aoRows[1 + i] = { eId_BaseEstablished3Mode,
                          Bit(uiFirstOffset + i / gsc_uiBits, gsc_uiBits - 1 - i % gsc_uiBits),
                          GetDmtName(gsc_aui8EstablishedIII[i]),
                          Flag(gsc_aoSupported).Mode(MakeCodeMode<MakeEstablishedIIIMode>, i) };
    }
    aoRows[aoRows.size() - 2] = { eId_Reserved, Bits(0x0B, 3, 0), "Reserved", Reserved() };
    aoRows[aoRows.size() - 1] = { eId_Reserved, Run(0x0C, 6), "Reserved", Reserved() };
    return aoRows;
}
constexpr auto gsc_aoModesRows = ListModeRows();
constexpr STable gsc_oModesTable = { eId_BaseEstablished3, "Established timings III", eArea_Timing, gsc_aoModesRows };

// ---- Dummy, makers' own and reserved descriptors, E-EDID 3.10.3.10 to 3.10.3.12 ----

constexpr SRow gsc_aoDummyRows[] = { { eId_Unused, Run(0x05, 13), "Unused", Reserved() } };
constexpr STable gsc_oDummyTable = { eId_BaseDummy, "Dummy descriptor", eArea_Unused, gsc_aoDummyRows };
constexpr SRow gsc_aoMakerRows[] = { { eId_BaseManufacturerData, Run(0x05, 13), "Manufacturer's data", Bytes() } };
constexpr STable gsc_oMakerTable = { eId_BaseManufacturer, "Manufacturer specified descriptor", eArea_Vendor,
                                     gsc_aoMakerRows };

// ---- The descriptor of embedded panels (EPI) with tag 0Eh. The standard is withdrawn: the layout is
// as edid-decode reads it ----

constexpr SMeaning gsc_aoEpiBits[] = { { 0, 0, "18" }, { 1, 1, "24" }, { 2, 2, "30" }, { 3, 7, gsc_szReserved } };
constexpr SMeaning gsc_aoEpiPixels[] = { { 0, 0, "1" }, { 1, 1, "2" }, { 2, 2, "4" }, { 3, 3, gsc_szReserved } };
constexpr SMeaning gsc_aoEpiMappings[] = { { 0, 0, "conventional" },
                                           { 1, 1, "not conventional" },
                                           { 2, 3, gsc_szReserved } };
constexpr SMeaning gsc_aoEpiInterfaces[] = { { 0, 0, "LVDS TFT" },
                                             { 1, 1, "monochrome STN, 4 or 8 bits" },
                                             { 2, 2, "color STN, 8 or 16 bits" },
                                             { 3, 3, "TFT, 18 bits" },
                                             { 4, 4, "TFT, 24 bits" },
                                             { 5, 5, "TMDS" },
                                             { 6, 15, gsc_szReserved } };
constexpr SMeaning gsc_aoEpiDelay[] = { { 0, 0, "default of the controller" } };
constexpr auto gsc_aoEpiActive = Listed({ "high", "low" });
constexpr auto gsc_aoEpiInverted = Listed({ "not inverted", "inverted" });
constexpr auto gsc_aoEpiReversed = Listed({ "normal", "reversed" });
constexpr auto gsc_aoEpiEnabled = Listed({ "disabled", "enabled" });

constexpr SForm gsc_oEpiDelay = Number("ms").Times(10).With(gsc_aoEpiDelay);

constexpr SRow gsc_aoEpiRows[] = {
    { eId_BaseEpiBitsPerPixel, Bits(0x05, 2, 0), "Bits per pixel", Names(gsc_aoEpiBits) },
    { eId_BaseEpiPixelsPerClock, Bits(0x05, 4, 3), "Pixels per clock", Names(gsc_aoEpiPixels) },
    { eId_BaseEpiDataMapping, Bits(0x05, 6, 5), "Data color mapping", Names(gsc_aoEpiMappings) },
    { eId_BaseEpiInterfaceType, Bits(0x06, 3, 0), "Interface type", Names(gsc_aoEpiInterfaces) },
    { eId_BaseEpiDataEnablePolarity, Bit(0x06, 4), "Data enable, active", Flag(gsc_aoEpiActive) },
    { eId_BaseEpiShiftClockPolarity, Bit(0x06, 5), "Shift clock", Flag(gsc_aoEpiInverted) },
    { eId_BaseEpiVerticalDisplay, Bit(0x07, 0), "Vertical display mode", Flag(gsc_aoEpiReversed) },
    { eId_BaseEpiHorizontalDisplay, Bit(0x07, 1), "Horizontal display mode", Flag(gsc_aoEpiReversed) },
    { eId_BaseEpiPowerOnDelay, Bits(0x08, 3, 0), "Power on sequencing delay", gsc_oEpiDelay },
    { eId_BaseEpiPowerOffDelay, Bits(0x08, 7, 4), "Power off sequencing delay", gsc_oEpiDelay },
    { eId_BaseEpiContrastOnDelay, Bits(0x09, 3, 0), "Contrast power on delay", gsc_oEpiDelay },
    { eId_BaseEpiContrastOffDelay, Bits(0x09, 7, 4), "Contrast power off delay", gsc_oEpiDelay },
    { eId_BaseEpiBacklightSteps, Bits(0x0A, 5, 0), "Backlight brightness control", Number("steps") },
    { eId_BaseEpiBacklightOffAtBoot, Bit(0x0A, 6), "Backlight off at boot", Flag() },
    { eId_BaseEpiBacklightControl, Bit(0x0A, 7), "Backlight control", Flag(gsc_aoEpiEnabled) },
    { eId_BaseEpiContrastSteps, Bits(0x0B, 5, 0), "Contrast voltage control", Number("steps") },
    { eId_BaseEpiContrastControl, Bit(0x0B, 7), "Contrast control", Flag(gsc_aoEpiEnabled) },
    { eId_BaseEpiVersion, Bits(0x11, 7, 4), "EPI version", Number() },
    { eId_BaseEpiRevision, Bits(0x11, 3, 0), "EPI revision", Number() },
};
constexpr STable gsc_oEpiTable = { eId_BaseEpi, "Embedded panel interface descriptor", eArea_Display, gsc_aoEpiRows };

constexpr SRow gsc_aoUnknownRows[] = { { eId_Unknown, Run(0x05, 13), "Unknown", Unknown() } };
constexpr STable gsc_oUnknownTable = { eId_BaseReserved, "Reserved descriptor", eArea_Unused, gsc_aoUnknownRows };

// ---- A timing whose end is missing ----

// What is left of it, without a summary; msc_uiNone when it is not a timing.
unsigned int MapCutTiming(CMapWriter& oWriter, const CRecord& oRecord, unsigned int uiOffset)
{
    if (oRecord.Get(gsc_oPixelClock) == 0)
    {
        return CZorEdidMap::msc_uiNone;
    }
    const unsigned int uiField =
        oWriter.BeginGroup(eId_BaseDetailed, "Detailed timing", eArea_Timing, uiOffset, oRecord.GetSize());
    oWriter.AddNote(uiField, eZorEdidRule_DetailedCut, { "bytes", oRecord.GetSize() });
    oWriter.AddRows(g_oDetailedTimingTable, uiOffset, oRecord.GetSize());
    oWriter.EndGroup(gsc_oUnknownRest);
    return uiField;
}

// ---- By tag ----

// A descriptor with records of one kind has their table, place and number, and a table of their own for a first one
// that differs; a descriptor with a text has neither.
struct SDescriptor
{
    SMeaning m_oKey; // tags
    const STable* m_poTable;
    const STable* m_poItems = nullptr;
    unsigned int m_uiItemsOffset = 0;
    unsigned int m_uiItemSize = 0;
    unsigned int m_uiItems = 0;
    bool m_bText = false;
    const STable* m_poFirst = nullptr;
};

// E-EDID table 3.23
// clang-format off
constexpr SDescriptor gsc_aoDescriptors[] = {
    { { 0x00, 0x0D, "manufacturer specified" }, &gsc_oMakerTable },
    { { 0x0E, 0x0E, "embedded panel interface" }, &gsc_oEpiTable },
    { { 0x0F, 0x0F, "manufacturer specified" }, &gsc_oMakerTable },
    { { 0x10, 0x10, "dummy" }, &gsc_oDummyTable },
    { { 0x11, 0xF6, gsc_szReserved }, &gsc_oUnknownTable },
    { { 0xF7, 0xF7, "established timings III" }, &gsc_oModesTable },
    { { 0xF8, 0xF8, "CVT 3 byte timing codes" }, &gsc_oCodesTable, &g_oCvtCodeTable, 0x06, gsc_uiCvtCodeSize, 4 },
    { { 0xF9, 0xF9, "display color management data" }, &gsc_oManagementTable },
    { { 0xFA, 0xFA, "standard timing identifications" },
      &gsc_oPairsTable, &g_oStandardTimingTable, 0x05, gsc_uiStandardTimingSize, 6 },
    { { 0xFB, 0xFB, "color point data" },
      &gsc_oColorPointTable, &gsc_oSecondPointTable, 0x05, 5, 2, false, &gsc_oFirstPointTable },
    { { 0xFC, 0xFC, "display product name" }, &gsc_oNameTable, nullptr, 0, 0, 0, true },
    { { 0xFD, 0xFD, "display range limits" }, &gsc_oRangeTable },
    { { 0xFE, 0xFE, "alphanumeric data string" }, &gsc_oStringTable, nullptr, 0, 0, 0, true },
    { { 0xFF, 0xFF, "display product serial number" }, &gsc_oSerialTable, nullptr, 0, 0, 0, true },
};
// clang-format on
constexpr auto gsc_aoTags = TakeKeys(gsc_aoDescriptors);

const SDescriptor& FindDescriptor(unsigned int uiTag)
{
    for (const SDescriptor& oDescriptor : gsc_aoDescriptors)
    {
        if (uiTag <= oDescriptor.m_oKey.m_uiLast)
        {
            return oDescriptor;
        }
    }
    return gsc_aoDescriptors[0];
}

// Range limits have flags in byte 4 from 1.4 on.
bool HasReservedByte4(const CRecord& oRecord)
{
    return oRecord.GetByte(gsc_uiTagOffset) != gsc_ui8TagRangeLimits || IsBefore4(oRecord);
}

// Established timings III, CVT codes and color management came with 1.4.
SBreach CheckTag(const CRecord& oRecord, unsigned int uiTag)
{
    return IsBefore4(oRecord) && uiTag >= 0xF7 && uiTag <= 0xF9 ? eZorEdidRule_DescriptorTag : eZorEdidRule_None;
}

constexpr SRow gsc_aoHeadRows[] = {
    { eId_BaseDescriptorIndicator, Run(0x00, 2), "Display descriptor indicator", Bytes() },
    { eId_Reserved, Byte(0x02), "Reserved", Reserved() },
    { eId_BaseDescriptorTag, Byte(0x03), "Display descriptor tag", Names(gsc_aoTags), nullptr, CheckTag },
    { eId_Reserved, Byte(0x04), "Reserved", Reserved(), HasReservedByte4 },
};
constexpr STable gsc_oHeadTable = { eZorEdidField_None, "Display descriptor", eArea_Structure, gsc_aoHeadRows };

void AddItems(CMapWriter& oWriter, const SDescriptor& oDescriptor, unsigned int uiOffset)
{
    for (unsigned int i = 0; i < oDescriptor.m_uiItems; ++i)
    {
        const bool bFirst = i == 0 && oDescriptor.m_poFirst != nullptr;
        oWriter.AddRecord(bFirst ? *oDescriptor.m_poFirst : *oDescriptor.m_poItems,
                          uiOffset + oDescriptor.m_uiItemsOffset + i * oDescriptor.m_uiItemSize,
                          oDescriptor.m_uiItemSize);
    }
}
} // namespace

constinit const STable g_oDetailedTimingTable = { eId_BaseDetailed,   "Detailed timing", eArea_Timing,
                                                  gsc_aoDetailedRows, nullptr,           MakeMode<ReadDetailedMode> };
constinit const STable g_oCvtCodeTable = { eId_BaseCvtCode, "CVT 3 byte timing code", eArea_Timing, gsc_aoCodeRows,
                                           FormatCvtCode,   MakeCvtCodeMode };

SRangeLimits ReadRangeLimits(const CRecord& oRecord)
{
    return Descriptors::ReadRangeLimits(oRecord.GetData(), oRecord.GetFacts().m_uiRevision);
}

ELimit FindBreach(const CRecord& oTiming, const SRangeLimits& oLimits)
{
    SZorMode oMode;
    return ReadDetailedMode(oTiming, oMode) ? ZorStandards::FindBreach(oMode, oLimits) : eLimit_Count;
}

bool IsImageFarFrom(const CRecord& oTiming, unsigned int uiWidth, unsigned int uiHeight)
{
    const auto fnIsFar = [](unsigned int uiImage, unsigned int uiScreen) {
        return uiImage * 10 > uiScreen * 11 || uiImage * 2 < uiScreen;
    };
    const unsigned int uiImageWidth = oTiming.Get(gsc_oImageWidth);
    const unsigned int uiImageHeight = oTiming.Get(gsc_oImageHeight);
    const bool bGiven = uiImageWidth != 0 && uiImageHeight != 0 && uiWidth != 0 && uiHeight != 0;
    return bGiven && !IsRatio(oTiming) && (fnIsFar(uiImageWidth, uiWidth) || fnIsFar(uiImageHeight, uiHeight));
}

unsigned int MapDescriptor(CMapWriter& oWriter, unsigned int uiOffset)
{
    const CRecord oRecord = oWriter.GetRecord(uiOffset, gsc_uiMapDescriptorSize);
    if (oRecord.GetSize() < gsc_uiMapDescriptorSize)
    {
        return MapCutTiming(oWriter, oRecord, uiOffset);
    }
    if (oRecord.Get(gsc_oPixelClock) != 0)
    {
        return oWriter.AddRecord(g_oDetailedTimingTable, uiOffset, gsc_uiMapDescriptorSize);
    }
    const SDescriptor& oDescriptor = FindDescriptor(oRecord.GetByte(gsc_uiTagOffset));
    const unsigned int uiField = oWriter.BeginGroup(*oDescriptor.m_poTable, uiOffset, gsc_uiMapDescriptorSize);
    oWriter.AddRows(gsc_oHeadTable, uiOffset, gsc_uiMapDescriptorSize);
    if (oDescriptor.m_bText)
    {
        AddText(oWriter, oRecord, uiOffset);
    }
    oWriter.AddRows(*oDescriptor.m_poTable, uiOffset, gsc_uiMapDescriptorSize);
    AddItems(oWriter, oDescriptor, uiOffset);
    oWriter.EndGroup();
    return uiField;
}

void VisitDescriptorIds(CIdVisitor& oVisitor)
{
    oVisitor.VisitBits(eId_BaseEstablished3Mode, "Mode");
    oVisitor.Visit(g_oDetailedTimingTable, gsc_oHeadTable, gsc_oTextRow, gsc_oLineFeedRow, gsc_oBlanksRow,
                   gsc_oSecondPointTable, gsc_oFirstPointTable, g_oCvtCodeTable);
    for (const SDescriptor& oDescriptor : gsc_aoDescriptors)
    {
        oVisitor.Visit(*oDescriptor.m_poTable);
    }
}
} // namespace ZorMap
