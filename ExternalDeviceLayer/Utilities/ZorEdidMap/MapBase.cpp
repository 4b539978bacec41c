// The base block, VESA E-EDID standard, Release A Revision 2 (1.4), and 1.3 with its predecessors where they differ.
// Offsets are those of the block. The 18-byte descriptors are in MapDescriptors.cpp.

#include "MapBase.h"

#include <string.h>

#include <algorithm>

#include "EdidBase.h"
#include "MapNames.h"
#include "MapValue.h"
#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"

namespace ZorMap
{
using namespace ZorStandards::BaseBlock;

namespace
{
constexpr unsigned int gsc_uiDescriptorCount = CEdidBase::msc_uiDescriptorCount;

bool IsRevision3(const CRecord& oRecord) { return oRecord.GetFacts().m_uiRevision == 3; }

// ---- Vendor and product identification, E-EDID 3.4 ----

// Rows of the manufacturer's name lie over both of its bytes.
CMString FormatMaker(const CRecord& oRecord, unsigned int)
{
    return CMString(ReadManufacturerCode(oRecord.GetData()).m_szCode);
}

SBreach CheckMaker(const CRecord& oRecord, unsigned int)
{
    const SManufacturerCode oCode = ReadManufacturerCode(oRecord.GetData());
    const bool bLetters = std::all_of(oCode.m_szCode, oCode.m_szCode + gsc_uiManufacturerLetters,
                                      [](char cOne) { return cOne >= 'A' && cOne <= 'Z'; });
    return bLetters ? eZorEdidRule_None : eZorEdidRule_BaseMaker;
}

bool IsModelYear(const CRecord& oRecord)
{
    return IsRevision4(oRecord) && oRecord.GetByte(gsc_uiWeekOffset) == gsc_uiModelYearWeek;
}

SBreach CheckYear(const CRecord& oRecord, unsigned int uiValue)
{
    constexpr unsigned int uiFirstYear = 0x10; // 2006
    return IsRevision4(oRecord) && uiValue < uiFirstYear ? eZorEdidRule_BaseYear : eZorEdidRule_None;
}

constexpr SMeaning gsc_aoWeeks[] = { { 0, 0, "not given" }, { 54, 255, gsc_szReserved } };
constexpr SMeaning gsc_aoWeeks14[] = { { 0, 0, "not given" },
                                       { 0x37, 0xFE, gsc_szReserved },
                                       { gsc_uiModelYearWeek, gsc_uiModelYearWeek, "the year is the model year" } };

constexpr SRow gsc_aoIdentityRows[] = {
    { eId_Reserved, Bit(0x08, 7), "Reserved", Reserved() },
    { eId_BaseIdentityManufacturer, gsc_oManufacturer, "ID manufacturer name", Text().Text(FormatMaker), nullptr,
      CheckMaker },
    { eId_BaseIdentityProductCode, Little16(gsc_uiProductOffset), "ID product code", Number() },
    { eId_BaseIdentitySerialNumber, Little32(gsc_uiSerialOffset), "ID serial number",
      Number().With(gsc_aoZeroNotGiven) },
    { eId_BaseIdentityWeek, Byte(gsc_uiWeekOffset), "Week of manufacture", Number().With(gsc_aoWeeks), IsBefore4 },
    { eId_BaseIdentityWeek, Byte(gsc_uiWeekOffset), "Week of manufacture", Number().With(gsc_aoWeeks14), IsRevision4 },
    { eId_BaseIdentityYear, Byte(gsc_uiYearOffset), "Year of manufacture", Number().Times(1, gsc_uiFirstYear),
      IsNot<IsModelYear>, CheckYear },
    { eId_BaseIdentityModelYear, Byte(gsc_uiYearOffset), "Model year", Number().Times(1, gsc_uiFirstYear), IsModelYear,
      CheckYear },
};
constexpr STable gsc_oIdentityTable = { eId_BaseIdentity, "Vendor and product identification", eArea_Identity,
                                        gsc_aoIdentityRows };

// ---- EDID structure version and revision, E-EDID 3.5 ----

SBreach CheckRevision(const CRecord&, unsigned int uiValue)
{
    return uiValue > 4 ? eZorEdidRule_BaseRevision : eZorEdidRule_None;
}

constexpr SRow gsc_aoVersionRows[] = {
    { eId_BaseEdidVersion, Byte(gsc_uiVersionOffset), "Version number",
      Number().Expect(gsc_uiVersion, eZorEdidRule_BaseVersion) },
    { eId_BaseEdidRevision, Byte(gsc_uiRevisionOffset), "Revision number", Number(), nullptr, CheckRevision },
};
constexpr STable gsc_oVersionTable = { eId_BaseEdid, "EDID structure version and revision", eArea_Structure,
                                       gsc_aoVersionRows };

// ---- Basic display parameters and features, E-EDID 3.6 ----

bool IsDigital(const CRecord& oRecord) { return oRecord.GetFacts().m_bDigital; }
constexpr auto IsAnalog = IsNot<IsDigital>;
bool IsDigital4(const CRecord& oRecord) { return IsDigital(oRecord) && IsRevision4(oRecord); }
bool IsDigital2To3(const CRecord& oRecord)
{
    return IsDigital(oRecord) && IsBefore4(oRecord) && oRecord.GetFacts().m_uiRevision >= 2;
}
bool IsDigitalBefore2(const CRecord& oRecord) { return IsDigital(oRecord) && oRecord.GetFacts().m_uiRevision < 2; }

// E-EDID table 3.10 to 3.12
constexpr auto gsc_aoSignal = Listed({ "analog", "digital" });
constexpr SMeaning gsc_aoLevels[] = {
    { 0, 0, "0.700 : 0.300 : 1.000 V p-p" }, // video : sync : total
    { 1, 1, "0.714 : 0.286 : 1.000 V p-p" },
    { 2, 2, "1.000 : 0.400 : 1.400 V p-p" },
    { 3, 3, "0.700 : 0.000 : 0.700 V p-p" },
};
constexpr auto gsc_aoSetup = Listed({ "blank level = black level", "blank-to-black setup or pedestal" });
constexpr SMeaning gsc_aoDepths[] = {
    { 0, 0, "undefined" }, { 1, 1, "6 bits" },  { 2, 2, "8 bits" },  { 3, 3, "10 bits" },
    { 4, 4, "12 bits" },   { 5, 5, "14 bits" }, { 6, 6, "16 bits" }, { 7, 7, gsc_szReserved },
};
constexpr SMeaning gsc_aoInterfaces[] = {
    { 0, 0, "undefined" }, { 1, 1, "DVI" },         { 2, 2, "HDMI-a" },        { 3, 3, "HDMI-b" },
    { 4, 4, "MDDI" },      { 5, 5, "DisplayPort" }, { 6, 15, gsc_szReserved },
};

// Sizes: both given, an aspect ratio (1.4), or neither.
bool IsLandscape(const CRecord& oRecord)
{
    return IsRevision4(oRecord) && oRecord.GetByte(gsc_uiImageWidthOffset) != 0 &&
           oRecord.GetByte(gsc_uiImageHeightOffset) == 0;
}
bool IsPortrait(const CRecord& oRecord)
{
    return IsRevision4(oRecord) && oRecord.GetByte(gsc_uiImageWidthOffset) == 0 &&
           oRecord.GetByte(gsc_uiImageHeightOffset) != 0;
}

CMString FormatPortrait(const CRecord&, unsigned int uiValue)
{
    return "1 : " + FormatNumber(uiValue + gsc_uiRatioOffset, 2, nullptr);
}

// Width to height, in 10^-4.
long long ComputePortrait(const CRecord&, unsigned int uiValue)
{
    const long long llHeight = uiValue + gsc_uiRatioOffset; // hundredths of the width
    return (2 * 1000000 + llHeight) / (2 * llHeight);
}

constexpr SMeaning gsc_aoSizes[] = { { 0, 0, "not known or variable" } };
constexpr SMeaning gsc_aoWidthIsNone[] = { { 0, 0, "none, byte 16h is an aspect ratio" } };
constexpr SMeaning gsc_aoHeightIsNone[] = { { 0, 0, "none, byte 15h is an aspect ratio" } };
bool HasSizes(const CRecord& oRecord) { return !IsLandscape(oRecord) && !IsPortrait(oRecord); }

constexpr auto gsc_aoColorTypes = Listed({ "monochrome or grayscale", "RGB color", "non-RGB color", "undefined" });
constexpr auto gsc_aoEncodings = Listed({ "RGB 4:4:4", "RGB 4:4:4 and YCrCb 4:4:4", "RGB 4:4:4 and YCrCb 4:2:2",
                                          "RGB 4:4:4, YCrCb 4:4:4 and YCrCb 4:2:2" });

// The primaries, the white point and the gamma of sRGB as this block stores them.
SBreach CheckSrgb(const CRecord& oRecord, unsigned int uiValue)
{
    if (uiValue != 0 && oRecord.GetSize() >= gsc_uiChromaticitiesOffset + sizeof(gsc_aui8SrgbColors) &&
        memcmp(oRecord.GetData() + gsc_uiChromaticitiesOffset, gsc_aui8SrgbColors, sizeof(gsc_aui8SrgbColors)) != 0)
    {
        return eZorEdidRule_SrgbColors;
    }
    return uiValue != 0 && oRecord.GetByte(gsc_uiGammaOffset) != gsc_ui8SrgbGamma ? eZorEdidRule_SrgbGamma
                                                                                  : eZorEdidRule_None;
}

SBreach CheckPreferred(const CRecord& oRecord, unsigned int uiValue)
{
    return IsRevision3(oRecord) && uiValue == 0 ? eZorEdidRule_PreferredFlag : eZorEdidRule_None;
}

constexpr SRow gsc_aoDisplayRows[] = {
    { eId_BaseDisplaySignalInterface, Bit(gsc_uiVideoInputOffset, 7), "Video signal interface", Flag(gsc_aoSignal) },
    { eId_BaseDisplaySignalLevel, Bits(gsc_uiVideoInputOffset, 6, 5), "Signal level standard", Names(gsc_aoLevels),
      IsAnalog },
    { eId_BaseDisplayVideoSetup, Bit(gsc_uiVideoInputOffset, 4), "Video setup", Flag(gsc_aoSetup), IsAnalog },
    { eId_BaseDisplaySeparateSync, Bit(gsc_uiVideoInputOffset, 3), "Separate sync H and V signals",
      Flag(gsc_aoSupported), IsAnalog },
    { eId_BaseDisplayCompositeSync, Bit(gsc_uiVideoInputOffset, 2), "Composite sync signal on horizontal",
      Flag(gsc_aoSupported), IsAnalog },
    { eId_BaseDisplaySyncOnGreen, Bit(gsc_uiVideoInputOffset, 1), "Composite sync signal on green video",
      Flag(gsc_aoSupported), IsAnalog },
    { eId_BaseDisplaySerration, Bit(gsc_uiVideoInputOffset, 0), "Serration on the vertical sync", Flag(gsc_aoSupported),
      IsAnalog },
    { eId_Reserved, Bits(gsc_uiVideoInputOffset, 6, 0), "Reserved", Reserved(), IsDigitalBefore2 },
    { eId_Reserved, Bits(gsc_uiVideoInputOffset, 6, 1), "Reserved", Reserved(), IsDigital2To3 },
    { eId_BaseDisplayDfp1Compatible, gsc_oDfp1Compatible, "DFP 1.x compatible", Flag(), IsDigital2To3 },
    { eId_BaseDisplayColorBitDepth, Split({ gsc_oColorDepth }), "Color bit depth", Names(gsc_aoDepths),
      IsDigital4 }, // per primary color
    { eId_BaseDisplayInterface, Split({ gsc_oInterface }), "Digital video interface standard", Names(gsc_aoInterfaces),
      IsDigital4 },
    { eId_BaseDisplayScreenWidth, Byte(gsc_uiImageWidthOffset), "Horizontal screen size",
      Number("cm").With(gsc_aoSizes), HasSizes },
    { eId_BaseDisplayScreenWidth, Byte(gsc_uiImageWidthOffset), "Horizontal screen size",
      Number("cm").With(gsc_aoWidthIsNone), IsPortrait },
    { eId_BaseDisplayAspectRatioLandscape, Byte(gsc_uiImageWidthOffset), "Aspect ratio, landscape",
      Number(": 1").Times(1, gsc_uiRatioOffset).Decimals(2), IsLandscape },
    { eId_BaseDisplayScreenHeight, Byte(gsc_uiImageHeightOffset), "Vertical screen size",
      Number("cm").With(gsc_aoSizes), HasSizes },
    { eId_BaseDisplayScreenHeight, Byte(gsc_uiImageHeightOffset), "Vertical screen size",
      Number("cm").With(gsc_aoHeightIsNone), IsLandscape },
    { eId_BaseDisplayAspectRatioPortrait, Byte(gsc_uiImageHeightOffset), "Aspect ratio, portrait",
      Number().Computed(ComputePortrait).Decimals(4).Text(FormatPortrait), IsPortrait },
    { eId_BaseDisplayGamma, gsc_oGamma, "Display transfer characteristic (gamma)",
      HundredthsFrom1().With(gsc_aoGammaNotHere) },
    { eId_BaseDisplayStandby, Bit(gsc_uiFeaturesOffset, 7), "Standby mode", Flag(gsc_aoSupported) },
    { eId_BaseDisplaySuspend, Bit(gsc_uiFeaturesOffset, 6), "Suspend mode", Flag(gsc_aoSupported) },
    { eId_BaseDisplayActiveOff, Bit(gsc_uiFeaturesOffset, 5), "Active off, very low power", Flag(gsc_aoSupported) },
    { eId_BaseDisplayColorType, gsc_oDisplayColorType, "Display color type", Names(gsc_aoColorTypes),
      IsNot<IsDigital4> },
    { eId_BaseDisplayColorEncodings, gsc_oDisplayColorType, "Supported color encoding formats", Names(gsc_aoEncodings),
      IsDigital4 },
    { eId_BaseDisplaySrgbDefault, gsc_oSrgbDefault, "sRGB is the default color space", Flag(), nullptr, CheckSrgb },
    { eId_BaseDisplayPreferredTiming, Bit(gsc_uiFeaturesOffset, 1), "Preferred timing mode", Flag(), IsBefore4,
      CheckPreferred }, // the first detailed timing is it
    { eId_BaseDisplayPreferredIsNative, gsc_oPreferredIsNative, "Preferred timing mode is native", Flag(),
      IsRevision4 },
    { eId_BaseDisplayDefaultGtf, Bit(gsc_uiFeaturesOffset, 0), "Default GTF", Flag(gsc_aoSupported), IsBefore4 },
    { eId_BaseDisplayContinuousFrequency, gsc_oContinuousFrequency, "Continuous frequency", Flag(), IsRevision4 },
};
constexpr STable gsc_oDisplayTable = { eId_BaseDisplay, "Basic display parameters and features", eArea_Display,
                                       gsc_aoDisplayRows };

// ---- Display x, y chromaticity coordinates, E-EDID 3.7: n / 1024 ----

constexpr SRow gsc_aoColorRows[] = {
    { eId_BaseChromaticityRedX, gsc_oRedX, "Red x", Chromaticity() },
    { eId_BaseChromaticityRedY, gsc_oRedY, "Red y", Chromaticity() },
    { eId_BaseChromaticityGreenX, gsc_oGreenX, "Green x", Chromaticity() },
    { eId_BaseChromaticityGreenY, gsc_oGreenY, "Green y", Chromaticity() },
    { eId_BaseChromaticityBlueX, gsc_oBlueX, "Blue x", Chromaticity() },
    { eId_BaseChromaticityBlueY, gsc_oBlueY, "Blue y", Chromaticity() },
    { eId_BaseChromaticityWhiteX, gsc_oWhiteX, "White x", Chromaticity() },
    { eId_BaseChromaticityWhiteY, gsc_oWhiteY, "White y", Chromaticity() },
};
constexpr STable gsc_oColorTable = { eId_BaseChromaticity, "Display x, y chromaticity coordinates", eArea_Colour,
                                     gsc_aoColorRows };

// ---- Established timings I and II, E-EDID 3.8 ----

constexpr const char* gsc_apszMakerBits[] = { "Manufacturer's timing, bit 6", "Manufacturer's timing, bit 5",
                                              "Manufacturer's timing, bit 4", "Manufacturer's timing, bit 3",
                                              "Manufacturer's timing, bit 2", "Manufacturer's timing, bit 1",
                                              "Manufacturer's timing, bit 0" };

constexpr auto ListEstablishedRows()
{
    constexpr unsigned int uiFirstOffset = 0x23;
    std::array<SRow, gsc_uiEstablishedModes + std::size(gsc_apszMakerBits)> aoRows = {};
    for (unsigned int i = 0; i < aoRows.size(); ++i)
    {
        const SPlace oPlace = Bit(uiFirstOffset + i / gsc_uiBits, gsc_uiBits - 1 - i % gsc_uiBits);
        aoRows[i] = i < gsc_uiEstablishedModes
                        ? SRow{ eId_BaseEstablishedMode, oPlace, GetEstablishedName(i),
                                Flag(gsc_aoSupported).Mode(MakeCodeMode<MakeEstablishedMode>, i) }
                        : SRow{ eId_BaseEstablishedManufacturer, oPlace, gsc_apszMakerBits[i - gsc_uiEstablishedModes],
                                Flag(gsc_aoSupported) };
    }
    return aoRows;
}
constexpr auto gsc_aoEstablishedRows = ListEstablishedRows();
constexpr STable gsc_oEstablishedTable = { eId_BaseEstablished, "Established timings", eArea_Timing,
                                           gsc_aoEstablishedRows };

// ---- Standard timings, E-EDID 3.9 ----

bool IsUnusedPair(const CRecord& oRecord) { return IsUnusedStandard(oRecord); }
constexpr auto IsUsedPair = IsNot<IsUnusedPair>;
// ALWAYS: in images of all revisions.
template <bool ALWAYS>
bool IsWidePair(const CRecord& oRecord)
{
    return IsUsedPair(oRecord) && (ALWAYS || oRecord.GetFacts().m_uiRevision >= gsc_ui16To10Revision);
}
template <bool ALWAYS>
bool IsSquarePair(const CRecord& oRecord)
{
    return IsUsedPair(oRecord) && !IsWidePair<ALWAYS>(oRecord);
}

constexpr auto gsc_aoAspects = Listed({ "16:10", "4:3", "5:4", "16:9" });
constexpr auto gsc_aoOldAspects = Listed({ "1:1", "4:3", "5:4", "16:9" });

template <bool ALWAYS>
bool MakePairMode(const CRecord& oRecord, const SModeSource& oSource, CMode& oMode)
{
    return oSource.m_uiRank == 0 && ReadStandardMode(oRecord, IsSquarePair<ALWAYS>(oRecord), oMode);
}

template <bool ALWAYS>
CMString FormatPair(const CRecord& oRecord)
{
    if (IsUnusedPair(oRecord))
    {
        return "unused";
    }
    if (oRecord.GetByte(0) == 0)
    {
        return gsc_szReserved;
    }
    CMode oMode = {};
    MakePairMode<ALWAYS>(oRecord, {}, oMode);
    return CZorEdidMap::GetModeText(oMode);
}

SBreach CheckPairNotZero(const CRecord& /*oPair*/, unsigned int uiValue)
{
    return uiValue == 0 ? eZorEdidRule_StandardTimingZero : eZorEdidRule_None;
}

template <bool ALWAYS>
constexpr SRow gsc_aoPairRows[] = {
    { eId_Unused, Run(0, 2), "Unused", Filler(gsc_uiUnusedStandard, eZorEdidRule_None), IsUnusedPair },
    { eId_BaseStandardHorizontalPixels, gsc_oStandardWidth, "Horizontal addressable pixels",
      Number("pixels").Times(8, 248), IsUsedPair, CheckPairNotZero },
    { eId_BaseStandardAspectRatio, gsc_oStandardAspect, "Image aspect ratio", Names(gsc_aoOldAspects),
      IsSquarePair<ALWAYS> },
    { eId_BaseStandardAspectRatio, gsc_oStandardAspect, "Image aspect ratio", Names(gsc_aoAspects),
      IsWidePair<ALWAYS> },
    { eId_BaseStandardRefreshRate, gsc_oStandardRate, "Field refresh rate", Number("Hz").Times(1, 60), IsUsedPair },
};

// ---- The end of the block, E-EDID 3.11 ----

constexpr SRow gsc_oExtensionCountRow = { eId_BaseExtensionCount, Byte(gsc_uiExtensionCountOffset),
                                          "Extension block count", Number() };

// ---- What the descriptors must be, E-EDID 3.10 ----

bool IsDetailed(const CRecord& oBlock, unsigned int uiDescriptor)
{
    const unsigned int uiOffset = DescriptorOffset(uiDescriptor);
    return oBlock.GetByte(uiOffset) != 0 || oBlock.GetByte(uiOffset + 1) != 0;
}

bool IsTagged(const CRecord& oBlock, unsigned int uiDescriptor, unsigned int uiTag)
{
    return !IsDetailed(oBlock, uiDescriptor) &&
           oBlock.GetByte(DescriptorOffset(uiDescriptor) + gsc_uiTagOffset) == uiTag;
}

bool HasDescriptor(const CRecord& oBlock, unsigned int uiTag)
{
    for (unsigned int i = 0; i < gsc_uiDescriptorCount; ++i)
    {
        if (IsTagged(oBlock, i, uiTag))
        {
            return true;
        }
    }
    return false;
}

CRecord GetDescriptor(const CRecord& oBlock, unsigned int uiDescriptor)
{
    const unsigned int uiOffset = DescriptorOffset(uiDescriptor);
    return { oBlock.GetFacts(), oBlock.GetData() + uiOffset, gsc_uiMapDescriptorSize };
}

void NoteDescriptors(CMapWriter& oWriter, const CRecord& oBlock, const unsigned int* puiFields)
{
    if (!IsDetailed(oBlock, 0) && IsPreferredTimingDeclared(oBlock.GetData()))
    {
        oWriter.AddNote(puiFields[0], eZorEdidRule_FirstDescriptor);
    }
    for (unsigned int i = 1; i < gsc_uiDescriptorCount; ++i)
    {
        if (IsDetailed(oBlock, i) && !IsDetailed(oBlock, i - 1))
        {
            oWriter.AddNote(puiFields[i], eZorEdidRule_DescriptorOrder);
        }
    }
}

// Timings against the range limits of the same block. An erratum of 1.4 lets listed timings exceed them.
void NoteRanges(CMapWriter& oWriter, const CRecord& oBlock, const unsigned int* puiFields)
{
    constexpr EZorEdidRule aeRules[] = { eZorEdidRule_RangePixelClock,
                                         eZorEdidRule_RangeLineRate,
                                         eZorEdidRule_RangeLineRate,
                                         eZorEdidRule_RangeFieldRate,
                                         eZorEdidRule_RangeFieldRate,
                                         eZorEdidRule_RangePixelClock,
                                         eZorEdidRule_None };
    static_assert(std::size(aeRules) == eLimit_Count + 1); // by ELimit
    const CZorEdidMap::ESeverity eSeverity =
        IsRevision4(oBlock) ? CZorEdidMap::eSeverity_Note : CZorEdidMap::eSeverity_Warning;
    unsigned int uiLimits = 0;
    while (uiLimits < gsc_uiDescriptorCount && !IsTagged(oBlock, uiLimits, gsc_ui8TagRangeLimits))
    {
        ++uiLimits;
    }
    if (uiLimits == gsc_uiDescriptorCount)
    {
        return;
    }
    const SRangeLimits oLimits = ReadRangeLimits(GetDescriptor(oBlock, uiLimits));
    for (unsigned int i = 0; i < gsc_uiDescriptorCount; ++i)
    {
        if (IsDetailed(oBlock, i))
        {
            const ELimit eLimit = FindBreach(GetDescriptor(oBlock, i), oLimits);
            oWriter.AddNote(puiFields[i], aeRules[eLimit],
                            eLimit == eLimit_RoundedClock ? CZorEdidMap::eSeverity_Note : eSeverity);
        }
    }
}

// Images far from the screen, which has whole centimetres.
void NoteSizes(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    constexpr unsigned int uiMillimetres = 10;
    constexpr unsigned int uiImageWidthOffset = 0x0C; // in a descriptor
    const unsigned int uiWidth = oBlock.GetByte(gsc_uiImageWidthOffset) * uiMillimetres;
    const unsigned int uiHeight = oBlock.GetByte(gsc_uiImageHeightOffset) * uiMillimetres;
    for (unsigned int i = 0; i < gsc_uiDescriptorCount; ++i)
    {
        if (IsDetailed(oBlock, i) && IsImageFarFrom(GetDescriptor(oBlock, i), uiWidth, uiHeight))
        {
            oWriter.AddNote(oWriter.FindLeaf(uiOffset + DescriptorOffset(i) + uiImageWidthOffset, 0),
                            eZorEdidRule_ImageSize);
        }
    }
}

// A name of blanks alone is there, but names nothing.
bool IsBlankText(const CRecord& oDescriptor)
{
    constexpr unsigned char ui8LineFeed = 0x0A;
    unsigned int i = Descriptors::gsc_uiContentsOffset;
    while (i < gsc_uiMapDescriptorSize && oDescriptor.GetByte(i) == ' ')
    {
        ++i;
    }
    return i == gsc_uiMapDescriptorSize || oDescriptor.GetByte(i) == ui8LineFeed;
}

void NoteEmptyName(CMapWriter& oWriter, const CRecord& oBlock, const unsigned int* puiFields)
{
    for (unsigned int i = 0; i < gsc_uiDescriptorCount; ++i)
    {
        if (IsRevision3(oBlock) && IsTagged(oBlock, i, gsc_ui8TagName) && IsBlankText(GetDescriptor(oBlock, i)))
        {
            oWriter.AddNote(puiFields[i], eZorEdidRule_NameEmpty);
        }
    }
}

void NoteMissing(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiBlockField)
{
    const bool bRange = HasDescriptor(oBlock, gsc_ui8TagRangeLimits);
    if (IsRevision3(oBlock) && !bRange)
    {
        oWriter.AddNote(uiBlockField, eZorEdidRule_RangeRequired);
    }
    if (IsRevision3(oBlock) && !HasDescriptor(oBlock, gsc_ui8TagName))
    {
        oWriter.AddNote(uiBlockField, eZorEdidRule_NameRequired);
    }
    if (IsRevision4(oBlock) && oBlock.IsSet(gsc_uiFeaturesOffset, 0) && !bRange)
    {
        oWriter.AddNote(uiBlockField, eZorEdidRule_RangeRequiredContinuous);
    }
}

// One extension block needs no map, and 1.4 asks for none.
void NoteBlockMap(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiCountOffset)
{
    const unsigned int uiTag =
        oWriter.GetByte(uiCountOffset - gsc_uiExtensionCountOffset + CMapWriter::msc_uiBlockSize);
    if (IsRevision3(oBlock) && oBlock.GetByte(gsc_uiExtensionCountOffset) > 1 &&
        uiTag != ZorStandards::gsc_uiBlockMapTag)
    {
        oWriter.AddNote(oWriter.FindLeaf(uiCountOffset, 0), eZorEdidRule_BlockMapMissing);
    }
}

// A group of the block whose rows count from the start of the block.
void AddPart(CMapWriter& oWriter, const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
             unsigned int uiPart, unsigned int uiPartLength)
{
    if (uiPart < uiLength)
    {
        oWriter.BeginGroup(oTable, uiOffset + uiPart, uiPartLength);
        oWriter.AddRows(oTable, uiOffset, uiLength);
        oWriter.EndGroup();
    }
}
} // namespace

constinit const SRow g_oHeaderRow = { eId_BaseHeader, Run(0x00, 8), "Header", Bytes() };

bool HasHeader(const CRecord& oRecord)
{
    for (unsigned int i = 0; i < sizeof(EDID_V1_HEADER); ++i)
    {
        if (oRecord.GetByte(i) != EDID_V1_HEADER[i])
        {
            return false;
        }
    }
    return true;
}

constinit const STable g_oStandardTimingTable = { eId_BaseStandard,      "Standard timing", eArea_Timing,
                                                  gsc_aoPairRows<false>, FormatPair<false>, MakePairMode<false> };
constinit const STable g_oVtbStandardTimingTable = { eId_BaseStandard,     "Standard timing", eArea_Timing,
                                                     gsc_aoPairRows<true>, FormatPair<true>,  MakePairMode<true> };

void MapBaseBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    const CRecord oBlock = oWriter.GetRecord(uiOffset, uiLength);
    const unsigned int uiField = oWriter.BeginBlock(eId_Base, "Base block", uiOffset, uiLength);
    const unsigned int uiHeader = oWriter.AddLeaf(g_oHeaderRow, eArea_Structure, uiOffset, uiLength);
    if (!HasHeader(oBlock))
    {
        oWriter.AddNote(uiHeader, eZorEdidRule_BaseHeader);
    }
    AddPart(oWriter, gsc_oIdentityTable, uiOffset, uiLength, 0x08, 10);
    AddPart(oWriter, gsc_oVersionTable, uiOffset, uiLength, 0x12, 2);
    AddPart(oWriter, gsc_oDisplayTable, uiOffset, uiLength, 0x14, 5);
    AddPart(oWriter, gsc_oColorTable, uiOffset, uiLength, 0x19, 10);
    AddPart(oWriter, gsc_oEstablishedTable, uiOffset, uiLength, 0x23, 3);
    oWriter.AddItems(g_oStandardTimingTable, uiOffset + gsc_uiStandardsOffset,
                     gsc_uiDescriptorsOffset - gsc_uiStandardsOffset, gsc_uiStandardTimingSize);
    unsigned int auiFields[gsc_uiDescriptorCount] = {};
    for (unsigned int i = 0; i < gsc_uiDescriptorCount; ++i)
    {
        auiFields[i] = MapDescriptor(oWriter, uiOffset + DescriptorOffset(i));
    }
    if (uiLength == CMapWriter::msc_uiBlockSize)
    {
        NoteDescriptors(oWriter, oBlock, auiFields);
        NoteRanges(oWriter, oBlock, auiFields);
        NoteSizes(oWriter, oBlock, uiOffset);
        NoteMissing(oWriter, oBlock, uiField);
        NoteEmptyName(oWriter, oBlock, auiFields);
    }
    oWriter.AddLeaf(gsc_oExtensionCountRow, eArea_Structure, uiOffset, uiLength);
    NoteBlockMap(oWriter, oBlock, uiOffset + gsc_uiExtensionCountOffset);
    oWriter.EndBlock();
}

void VisitBaseIds(CIdVisitor& oVisitor)
{
    oVisitor.VisitGroup(eId_Base, "Base block");
    oVisitor.VisitBits(eId_BaseEstablishedMode, "Mode");
    oVisitor.VisitBits(eId_BaseEstablishedManufacturer, "Manufacturer's timing");
    oVisitor.Visit(g_oHeaderRow, gsc_oIdentityTable, gsc_oVersionTable, gsc_oDisplayTable, gsc_oColorTable,
                   gsc_oEstablishedTable, g_oStandardTimingTable, g_oVtbStandardTimingTable, gsc_oExtensionCountRow);
}
} // namespace ZorMap
