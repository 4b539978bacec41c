// The timings of DisplayID: detailed ones, short ones, and codes for modes of other standards. CTA-861 data blocks
// carry some of the same records: their walks call MapDisplayIdTiming and MapTimingCode.

#include "MapDisplayId.h"
#include "MapModes.h"
#include "Standards/DisplayIdSection.h"

namespace ZorMap
{
namespace
{
using CMap = CZorEdidMap;

// ---- Names ----

constexpr auto gsc_aoStereoSupport = Listed({ "mono", "stereo", "mono or stereo by user action", gsc_szReserved });
constexpr auto gsc_aoScanning = Listed({ "progressive", "interlaced" });

constexpr auto gsc_aoAspectRatios =
    ListedTo(15, { "1:1", "5:4", "4:3", "15:9", "16:9", "16:10", "64:27", "256:135", "undefined" });

// The name of a code; 0 is reserved.
template <const char* (*GET_NAME)(unsigned int)>
const char* GetCodeName(unsigned int uiCode)
{
    return uiCode == 0 ? gsc_szReserved : GET_NAME(uiCode);
}

// ---- Type I, DisplayID 1.3 (tag 3), and Type VII, DisplayID 2.0 (tag 22h): 20 bytes ----

using namespace DisplayId;

// All are stored minus 1.
template <const STimingPlaces& P>
SBreach CheckBlankX(const CRecord& oTiming, unsigned int uiBlank)
{
    return CheckBlanking(oTiming.Get(P.m_oHorizontalFrontPorch) + oTiming.Get(P.m_oHorizontalSync) + 1, uiBlank);
}
template <const STimingPlaces& P>
SBreach CheckBlankY(const CRecord& oTiming, unsigned int uiBlank)
{
    return CheckBlanking(oTiming.Get(P.m_oVerticalFrontPorch) + oTiming.Get(P.m_oVerticalSync) + 1, uiBlank);
}

// Rows that all types of detailed timings have.
template <const STimingPlaces& P>
struct SDetailedRows
{
    static constexpr SForm msc_oPixels = Number("pixels").Times(P.m_uiPixels, P.m_uiPixels);
    static constexpr SForm msc_oLines = NumberFrom1("lines");

    static constexpr SRow msc_oClock = { eId_DisplayidTimingPixelClock, P.m_oClock, "Pixel clock",
                                         Number("kHz").Times(P.m_uiClockInKiloHz, P.m_uiClockInKiloHz) };
    static constexpr SRow msc_oActiveX = { eId_DisplayidTimingHorizontalActive, P.m_oHorizontalActive,
                                           "Horizontal active image", msc_oPixels };
    static constexpr SRow msc_oBlankX = { eId_DisplayidTimingHorizontalBlanking,
                                          P.m_oHorizontalBlank,
                                          "Horizontal blank",
                                          msc_oPixels,
                                          nullptr,
                                          CheckBlankX<P> };
    static constexpr SRow msc_oFrontX = { eId_DisplayidTimingHorizontalFrontPorch, P.m_oHorizontalFrontPorch,
                                          "Horizontal front porch", msc_oPixels };
    static constexpr SRow msc_oSyncX = { eId_DisplayidTimingHorizontalSyncWidth, P.m_oHorizontalSync,
                                         "Horizontal sync width", msc_oPixels };
    static constexpr SRow msc_oActiveY = { eId_DisplayidTimingVerticalActive, P.m_oVerticalActive,
                                           "Vertical active image", msc_oLines };
    static constexpr SRow msc_oBlankY = {
        eId_DisplayidTimingVerticalBlanking, P.m_oVerticalBlank, "Vertical blank", msc_oLines, nullptr, CheckBlankY<P>
    };
    static constexpr SRow msc_oFrontY = { eId_DisplayidTimingVerticalFrontPorch, P.m_oVerticalFrontPorch,
                                          "Vertical front porch", msc_oLines };
    static constexpr SRow msc_oSyncY = { eId_DisplayidTimingVerticalSyncWidth, P.m_oVerticalSync, "Vertical sync width",
                                         msc_oLines };
};

constexpr SRow PreferredRow(const STimingFlags& oFlags)
{
    return { eId_DisplayidTimingPreferred, oFlags.m_oPreferred, "Preferred timing", Flag() };
}
constexpr SRow Y420Row(const STimingFlags& oFlags)
{
    return { eId_DisplayidTimingYcbcr420, oFlags.m_oY420, "YCbCr 4:2:0 supported", Flag() };
}
constexpr SRow StereoRow(const STimingFlags& oFlags)
{
    return { eId_DisplayidTimingStereo, oFlags.m_oStereo, "3D stereo support", Names(gsc_aoStereoSupport) };
}
constexpr SRow ScanningRow(const SPlace& oPlace)
{
    return { eId_DisplayidTimingInterlaced, oPlace, "Frame scanning type", Flag(gsc_aoScanning) };
}
constexpr SRow AspectRow(const STimingFlags& oFlags)
{
    return { eId_DisplayidTimingAspectRatio, oFlags.m_oAspect, "Aspect ratio", Names(gsc_aoAspectRatios) };
}
constexpr SRow HorizontalPolarityRow(const STimingPlaces& oPlaces)
{
    return { eId_DisplayidTimingHorizontalSyncPolarity, oPlaces.m_oHorizontalPositive, "Horizontal sync polarity",
             Flag(gsc_aoSigns) };
}
constexpr SRow VerticalPolarityRow(const STimingPlaces& oPlaces)
{
    return { eId_DisplayidTimingVerticalSyncPolarity, oPlaces.m_oVerticalPositive, "Vertical sync polarity",
             Flag(gsc_aoSigns) };
}

template <const STimingPlaces& P>
constexpr auto LongRows(const STimingFlags& oFlags, const SRow& oFirstFlag)
{
    using CRows = SDetailedRows<P>;
    return std::to_array<SRow>({
        CRows::msc_oClock,
        oFirstFlag,
        StereoRow(oFlags),
        ScanningRow(P.m_oInterlaced),
        AspectRow(oFlags),
        CRows::msc_oActiveX,
        CRows::msc_oBlankX,
        CRows::msc_oFrontX,
        HorizontalPolarityRow(P),
        CRows::msc_oSyncX,
        CRows::msc_oActiveY,
        CRows::msc_oBlankY,
        CRows::msc_oFrontY,
        VerticalPolarityRow(P),
        CRows::msc_oSyncY,
    });
}

constexpr auto gsc_aoType1Rows = LongRows<gsc_oType1>(gsc_oFlags1, PreferredRow(gsc_oFlags1));
constexpr auto gsc_aoType7Rows = LongRows<gsc_oType7>(gsc_oFlags7, PreferredRow(gsc_oFlags7));
constexpr auto gsc_aoType7Revision2Rows = // DisplayID 2.1
    LongRows<gsc_oType7>(gsc_oFlags7Revision2, Y420Row(gsc_oFlags7Revision2));

// ---- Type II, DisplayID 1.3 (tag 4): 11 bytes ----

using CType2 = SDetailedRows<gsc_oType2>;
constexpr SRow gsc_aoType2Rows[] = {
    CType2::msc_oClock,
    PreferredRow(gsc_oFlags2),
    StereoRow(gsc_oFlags2),
    ScanningRow(gsc_oType2.m_oInterlaced),
    HorizontalPolarityRow(gsc_oType2),
    VerticalPolarityRow(gsc_oType2),
    { eId_Reserved, Bits(3, 1, 0), "Reserved", Reserved() },
    CType2::msc_oActiveX,
    CType2::msc_oBlankX,
    CType2::msc_oFrontX,
    CType2::msc_oSyncX,
    CType2::msc_oActiveY,
    { eId_Reserved, Bits(8, 7, 4), "Reserved", Reserved() },
    CType2::msc_oBlankY,
    CType2::msc_oFrontY,
    CType2::msc_oSyncY,
};

// ---- Type III, DisplayID 1.3 (tag 5): 3 bytes ----

constexpr SMeaning gsc_aoType3Formulas[] = { { 0, 0, "CVT standard blanking" },
                                             { 1, 1, "CVT reduced blanking" },
                                             { 2, 7, gsc_szReserved } };

constexpr SRow gsc_aoType3Rows[] = {
    PreferredRow(gsc_oFlags3),
    { eId_DisplayidTimingFormula, gsc_oType3Formula, "Timing formula", Names(gsc_aoType3Formulas) },
    AspectRow(gsc_oFlags3),
    { eId_DisplayidTimingHorizontalActive, gsc_oType3Width, "Horizontal active image", Number("pixels").Times(8, 8) },
    ScanningRow(gsc_oType3Interlaced),
    { eId_DisplayidTimingRefreshRate, gsc_oType3Rate, "Refresh rate", NumberFrom1("Hz") },
};

// ---- By formula: Type V, DisplayID 1.3 (tag 11h), 7 bytes; Type IX, DisplayID 2.0 (tag 24h), 6 bytes; Type X,
//      DisplayID 2.1 (tag 2Ah), 6 to 8 bytes ----

constexpr SMeaning gsc_aoType5Formulas[] = { { 0, 0, "CVT reduced blanking v2" },
                                             { 1, 1, "custom reduced blanking" },
                                             { 2, 3, gsc_szReserved } };
constexpr auto gsc_aoType9Formulas =
    ListedTo(7, { "CVT standard blanking", "CVT reduced blanking v1", "CVT reduced blanking v2" });
constexpr auto gsc_aoType10Formulas = ListedTo(
    7, { "CVT standard blanking", "CVT reduced blanking v1", "CVT reduced blanking v2", "CVT reduced blanking v3" });
constexpr auto gsc_aoBaseBlanks = Listed({ "80 pixels", "160 pixels" });
constexpr auto gsc_aoLeastBlankTimes = Listed({ "460 us", "300 us" });

constexpr SRow FractionalRateRow(const STimingFlags& oFlags, bool (*pfnApplies)(const CRecord&) = nullptr)
{
    return { eId_DisplayidTimingFractionalRate, oFlags.m_oFraction, "Refresh rate * 1000/1001 supported", Flag(),
             pfnApplies };
}
constexpr SRow WidthRow(const SFormulaPlaces& oPlaces)
{
    return { eId_DisplayidTimingHorizontalActive, oPlaces.m_oWidth, "Horizontal active image", NumberFrom1("pixels") };
}
constexpr SRow HeightRow(const SFormulaPlaces& oPlaces)
{
    return { eId_DisplayidTimingVerticalActive, oPlaces.m_oHeight, "Vertical active image", NumberFrom1("lines") };
}
constexpr SRow RateRow(const SPlace& oPlace, bool (*pfnApplies)(const CRecord&) = nullptr)
{
    return { eId_DisplayidTimingRefreshRate, oPlace, "Refresh rate", NumberFrom1("Hz"), pfnApplies };
}

constexpr SRow gsc_aoType5Rows[] = {
    PreferredRow(gsc_oFlags5),
    StereoRow(gsc_oFlags5),
    FractionalRateRow(gsc_oFlags5),
    { eId_Reserved, Bits(0, 3, 2), "Reserved", Reserved() },
    { eId_DisplayidTimingFormula, gsc_oType5.m_oFormula, "Timing formula", Names(gsc_aoType5Formulas) },
    { eId_Reserved, Byte(1), "Reserved", Reserved() },
    WidthRow(gsc_oType5),
    HeightRow(gsc_oType5),
    RateRow(gsc_oType5.m_oRate),
};

constexpr SRow gsc_aoType9Rows[] = {
    { eId_Reserved, Bit(0, 7), "Reserved", Reserved() },
    StereoRow(gsc_oFlags9),
    FractionalRateRow(gsc_oFlags9),
    { eId_Reserved, Bit(0, 3), "Reserved", Reserved() },
    { eId_DisplayidTimingFormula, gsc_oType9.m_oFormula, "Timing formula", Names(gsc_aoType9Formulas) },
    WidthRow(gsc_oType9),
    HeightRow(gsc_oType9),
    RateRow(gsc_oType9.m_oRate),
};

bool IsFormula2(const CRecord& oTiming) { return oTiming.Get(gsc_oType10.m_oFormula) == 2; }
bool IsFormula3(const CRecord& oTiming) { return oTiming.Get(gsc_oType10.m_oFormula) == 3; }
bool IsOtherFormula(const CRecord& oTiming) { return !IsFormula2(oTiming) && !IsFormula3(oTiming); }
bool HasWideRate(const CRecord& oTiming) { return oTiming.GetSize() >= gsc_uiType10WideSize; }
bool HasDeltas(const CRecord& oTiming) { return HasWideRate(oTiming) && IsFormula3(oTiming); }
bool HasNoDeltas(const CRecord& oTiming) { return HasWideRate(oTiming) && !IsFormula3(oTiming); }

long long GetHorizontalBlank(const CRecord& oTiming, unsigned int /*uiSteps*/)
{
    return ReadReducedBlanking(oTiming).m_uiHorizontalBlank;
}

long long GetAdditionalBlankTime(const CRecord& oTiming, unsigned int /*uiSteps*/)
{
    return ReadAdditionalBlankInUs(oTiming);
}

constexpr SRow gsc_aoType10Rows[] = {
    Y420Row(gsc_oFlags10),
    StereoRow(gsc_oFlags10),
    FractionalRateRow(gsc_oFlags10, IsFormula2),
    { eId_DisplayidTimingBaseHorizontalBlank, gsc_oBlankFrom160, "Base horizontal blank", Flag(gsc_aoBaseBlanks),
      IsFormula3 },
    { eId_Reserved, gsc_oBlankFrom160, "Reserved", Reserved(), IsOtherFormula },
    { eId_DisplayidTimingEarlyVerticalSync, gsc_oEarlySync, "Early vertical sync", Flag(), IsFormula3 },
    { eId_Reserved, gsc_oEarlySync, "Reserved", Reserved(), IsNot<IsFormula3> },
    { eId_DisplayidTimingFormula, gsc_oType10.m_oFormula, "Timing formula", Names(gsc_aoType10Formulas) },
    WidthRow(gsc_oType10),
    HeightRow(gsc_oType10),
    RateRow(gsc_oType10.m_oRate, IsNot<HasWideRate>),
    RateRow(gsc_oType10WideRate, HasWideRate),
    { eId_DisplayidTimingAdditionalVerticalBlank, gsc_oMoreBlankTime, "Additional vertical blank time",
      Number("us").Computed(GetAdditionalBlankTime), HasDeltas },
    { eId_DisplayidTimingHorizontalBlanking, gsc_oBlankSteps, "Horizontal blank",
      Number("pixels").Computed(GetHorizontalBlank), HasDeltas },
    { eId_Reserved, Bits(6, 7, 2), "Reserved", Reserved(), HasNoDeltas },
    { eId_Reserved, Bits(7, 7, 1), "Reserved", Reserved() },
    { eId_DisplayidTimingMinVerticalBlankTime, gsc_oLeastBlankOf300, "Minimum vertical blank time",
      Flag(gsc_aoLeastBlankTimes) },
};

// ---- Type VI, DisplayID 1.3 (tag 13h): 14 bytes, or 17 with aspect ratio and size ----

bool HasSize(const CRecord& oTiming) { return oTiming.IsSet(gsc_oType6IsLong); }

long long GetType6Height(const CRecord& oTiming, unsigned int uiHeight)
{
    return (uiHeight + 1LL) * (oTiming.GetBits(16, 7, 4) + 1LL);
}

using CType6 = SDetailedRows<gsc_oType6>;
constexpr SRow gsc_aoType6Rows[] = {
    CType6::msc_oClock,
    PreferredRow(gsc_oFlags6),
    { eId_DisplayidTimingSizePresent, gsc_oType6IsLong, "Aspect ratio and size present", Flag() },
    CType6::msc_oActiveX,
    HorizontalPolarityRow(gsc_oType6),
    { eId_Reserved, Bit(4, 6), "Reserved", Reserved() },
    CType6::msc_oActiveY,
    VerticalPolarityRow(gsc_oType6),
    { eId_Reserved, Bit(6, 6), "Reserved", Reserved() },
    CType6::msc_oBlankX,
    CType6::msc_oFrontX,
    CType6::msc_oSyncX,
    CType6::msc_oBlankY,
    CType6::msc_oFrontY,
    ScanningRow(gsc_oType6.m_oInterlaced),
    StereoRow(gsc_oFlags6),
    { eId_Reserved, Bit(13, 4), "Reserved", Reserved() },
    CType6::msc_oSyncY,
    { eId_DisplayidTimingImageAspectRatio, Byte(14), "Aspect ratio", Fraction(nullptr, 256).Times(30000), HasSize },
    { eId_DisplayidTimingImageHeight, Split({ { 16, 3, 0 }, { 15, 7, 0 } }), "Vertical image size",
      Number("mm").Computed(GetType6Height), HasSize },
    { eId_DisplayidTimingSizeMultiplier, Bits(16, 7, 4), "Size multiplier", NumberFrom1(), HasSize },
};

// ---- All records, as data blocks and their neighbours in CTA-861 use them ----

struct STimingKind
{
    unsigned int m_uiTag;
    unsigned int m_uiRevision; // the least one
    STable m_oTable;
};

// Of two rows with the same tag the later one counts, when its revision is reached.
constexpr STimingKind gsc_aoTimingKinds[] = {
    { gsc_uiType1Tag,
      0,
      { eId_DisplayidType1Timing, "Type I timing", eArea_Timing, gsc_aoType1Rows, nullptr, MakeMode<ReadType1Mode> } },
    { gsc_uiType2Tag,
      0,
      { eId_DisplayidType2Timing, "Type II timing", eArea_Timing, gsc_aoType2Rows, nullptr, MakeMode<ReadType2Mode> } },
    { gsc_uiType3Tag,
      0,
      { eId_DisplayidType3Timing, "Type III timing", eArea_Timing, gsc_aoType3Rows, nullptr,
        MakeMode<ReadType3Mode> } },
    { gsc_uiType5Tag,
      0,
      { eId_DisplayidType5Timing, "Type V timing", eArea_Timing, gsc_aoType5Rows, nullptr, MakeMode<ReadType5Mode> } },
    { gsc_uiType6Tag,
      0,
      { eId_DisplayidType6Timing, "Type VI timing", eArea_Timing, gsc_aoType6Rows, nullptr, MakeMode<ReadType6Mode> } },
    { gsc_uiType7Tag,
      0,
      { eId_DisplayidType7Timing, "Type VII timing", eArea_Timing, gsc_aoType7Rows, nullptr,
        MakeMode<ReadType7Mode> } },
    { gsc_uiType7Tag,
      2,
      { eId_DisplayidType7Timing, "Type VII timing", eArea_Timing, gsc_aoType7Revision2Rows, nullptr,
        MakeMode<ReadType7Revision2Mode> } },
    { gsc_uiType9Tag,
      0,
      { eId_DisplayidType9Timing, "Type IX timing", eArea_Timing, gsc_aoType9Rows, nullptr, MakeMode<ReadType9Mode> } },
    { gsc_uiType10Tag,
      0,
      { eId_DisplayidType10Timing, "Type X timing", eArea_Timing, gsc_aoType10Rows, nullptr,
        MakeMode<ReadType10Mode> } },
};

const STable* FindTimingTable(unsigned int uiTag, unsigned int uiRevision)
{
    const STable* poTable = nullptr;
    for (const STimingKind& oKind : gsc_aoTimingKinds)
    {
        if (oKind.m_uiTag == uiTag && oKind.m_uiRevision <= uiRevision)
        {
            poTable = &oKind.m_oTable;
        }
    }
    return poTable;
}

// ---- Codes ----

// What codes of a type are, in the order of the types; a row for codes of one byte and one for codes of two.
struct SCodeKind
{
    SRow m_aoRows[2];
    const char* (*m_pfnName)(unsigned int uiCode); // null for an unknown one
};

template <const char* (*GET_NAME)(unsigned int), bool (*MAKE_MODE)(CMode&, unsigned int)>
constexpr SCodeKind Codes(EZorEdidField eId, const char* pszName)
{
    const SForm oForm =
        MakeForm(CMap::eKind_Name)
            .Text([](const CRecord& /*oRecord*/, unsigned int uiCode) { return CodeText(uiCode, GET_NAME(uiCode)); })
            .Mode(MakeCodeMode<MAKE_MODE>);
    return { { { eId, Byte(0), pszName, oForm }, { eId, Little16(0), pszName, oForm } }, GET_NAME };
}
constexpr const char* GetNoName(unsigned int /*uiCode*/) { return nullptr; }

constexpr SCodeKind gsc_aoCodeKinds[] = {
    Codes<GetCodeName<GetDmtName>, MakeDmtMode>(eId_DisplayidTimingDmtId, "DMT ID"),
    Codes<GetCodeName<GetVideoFormatName>, MakeVideoMode>(eId_DisplayidTimingVic, "VIC"),
    Codes<GetCodeName<GetHdmiCodeName>, MakeHdmiMode>(eId_DisplayidTimingHdmiVic, "HDMI VIC"),
    { { { eId_DisplayidTimingCode, Byte(0), "Timing code", UnknownValue() },
        { eId_DisplayidTimingCode, Little16(0), "Timing code", UnknownValue() } },
      GetNoName },
};

// Type IV, DisplayID 1.3 (tag 6), from revision 1 on, and Type VIII, DisplayID 2.0 (tag 23h): the type of the codes is
// in the flags. Revision 0 of Type IV has DMT only.
unsigned int GetCodeType(const CRecord& oBlock)
{
    const bool bDmt = oBlock.GetByte(0) == gsc_uiType4Tag && IsRevision0(oBlock);
    return bDmt ? 0 : oBlock.Get(gsc_oCodeType);
}

void MapCodes(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset, unsigned int uiCodeSize)
{
    for (unsigned int i = 0; i < GetPayloadLength(oBlock) / uiCodeSize; ++i)
    {
        MapTimingCode(oWriter, GetCodeType(oBlock), uiOffset + gsc_uiPayloadOffset + i * uiCodeSize, uiCodeSize);
    }
}
void MapType4(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapCodes(oWriter, oBlock, uiOffset, 1);
}
void MapType8(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapCodes(oWriter, oBlock, uiOffset, oBlock.IsSet(gsc_oWideCodes) ? 2 : 1);
}

constexpr SRow gsc_aoType4FlagRows[] = {
    { eId_DisplayidTimingBlockCodeType, gsc_oCodeType, "Timing code type", Names(gsc_aoCodeTypes), IsRevision1Plus },
    { eId_Reserved, gsc_oCodeType, "Reserved", Reserved(), IsRevision0 },
    { eId_Reserved, Bits(1, 5, 3), "Reserved", Reserved() },
};
constexpr STable gsc_oType4Flags = { eZorEdidField_None, "Flags", eArea_Timing, gsc_aoType4FlagRows };

constexpr SRow gsc_aoType8FlagRows[] = {
    { eId_DisplayidTimingBlockCodeType, gsc_oCodeType, "Timing code type", Names(gsc_aoCodeTypes) },
    { eId_DisplayidTimingBlockYcbcr420, gsc_oCodes420, "YCbCr 4:2:0 supported", Flag(), IsRevision1Plus },
    { eId_Reserved, gsc_oCodes420, "Reserved", Reserved(), IsRevision0 },
    { eId_Reserved, Bit(1, 4), "Reserved", Reserved() },
    { eId_DisplayidTimingBlockCodeSize, gsc_oWideCodes, "Timing code size", Flag(gsc_aoCodeSizes) },
};
constexpr STable gsc_oType8Flags = { eZorEdidField_None, "Flags", eArea_Timing, gsc_aoType8FlagRows };

// DisplayID 1.3 (tags 7 and 8): a bit a mode, from mode 1 on. A field has the name of its mode.
constexpr auto gsc_aoDmtBits =
    BitRows(eId_DisplayidDmtModesMode, "Mode", Flag(gsc_aoSupported).Mode(MakeCodeMode<MakeDmtMode>));
constexpr auto gsc_aoVicBits =
    BitRows(eId_DisplayidVicModesMode, "Mode", Flag(gsc_aoSupported).Mode(MakeCodeMode<MakeVideoMode>));

void MapModeBits(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset,
                 std::span<const SRow, gsc_uiBits> aoRows, const char* (*pfnName)(unsigned int))
{
    for (unsigned int i = 0; i < GetPayloadLength(oBlock) * gsc_uiBits; ++i)
    {
        if (const char* pszName = pfnName(i + 1))
        {
            const unsigned int uiField = oWriter.AddLeaf(aoRows[i % gsc_uiBits], eArea_Timing,
                                                         uiOffset + gsc_uiPayloadOffset + i / gsc_uiBits, 1);
            oWriter.SetName(uiField, pszName);
            oWriter.SetMode(uiField, i + 1);
        }
    }
}
void MapDmtBits(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapModeBits(oWriter, oBlock, uiOffset, gsc_aoDmtBits, GetDmtName);
}
void MapVicBits(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapModeBits(oWriter, oBlock, uiOffset, gsc_aoVicBits, GetVideoFormatName);
}

// ---- Data blocks ----

unsigned int GetRecordSize(const CRecord& oBlock, unsigned int uiLeast)
{
    return uiLeast + oBlock.Get(gsc_oMoreTimingBytes); // the flags are reserved where none are extra
}

void MapTimings(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset, unsigned int uiSize)
{
    for (unsigned int i = 0; i < GetPayloadLength(oBlock) / uiSize; ++i)
    {
        MapDisplayIdTiming(oWriter, oBlock.GetByte(0), GetRevision(oBlock), uiOffset + gsc_uiPayloadOffset + i * uiSize,
                           uiSize);
    }
}
template <unsigned int SIZE>
void MapTimingsOf(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapTimings(oWriter, oBlock, uiOffset, SIZE);
}
template <unsigned int SIZE>
void MapExtendedTimings(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapTimings(oWriter, oBlock, uiOffset, GetRecordSize(oBlock, SIZE));
}

void MapType6(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    unsigned int uiSize = 0;
    for (unsigned int uiAt = gsc_uiPayloadOffset; uiAt < oBlock.GetSize(); uiAt += uiSize)
    {
        const CRecordBytes oTiming = oBlock.GetPart(uiAt, gsc_uiType6LongSize);
        uiSize = oTiming.IsSet(gsc_oType6IsLong) ? gsc_uiType6LongSize : gsc_oType6.m_uiSize;
        if (uiSize > oBlock.GetSize() - uiAt)
        {
            NoteBlock(oWriter, oBlock, uiOffset, eZorEdidRule_DisplayIdPart);
            return;
        }
        MapDisplayIdTiming(oWriter, oBlock.GetByte(0), 0, uiOffset + uiAt, uiSize);
    }
}

constexpr SRow gsc_aoType10FlagRows[] = {
    { eId_Reserved, Bit(1, 7), "Reserved", Reserved() },
    { eId_DisplayidTimingBlockExtraBytes, gsc_oMoreTimingBytes, "Extra bytes of each timing", Number("bytes"), nullptr,
      CheckWithin<0, 2> },
    { eId_Reserved, Bit(1, 3), "Reserved", Reserved() },
};
constexpr STable gsc_oType10Flags = { eZorEdidField_None, "Flags", eArea_Structure, gsc_aoType10FlagRows };

constexpr SRow gsc_aoType7FlagRows[] = {
    { eId_Reserved, Bit(1, 7), "Reserved", Reserved() },
    { eId_DisplayidTimingBlockExtraBytes, gsc_oMoreTimingBytes, "Extra bytes of each timing", Number("bytes") },
    { eId_DisplayidTimingBlockDscPassThrough, Bit(1, 3), "DSC pass-through timings", Flag(), IsRevision1Plus },
    { eId_Reserved, Bit(1, 3), "Reserved", Reserved(), IsRevision0 },
};
constexpr STable gsc_oType7Flags = { eZorEdidField_None, "Flags", eArea_Timing, gsc_aoType7FlagRows };

// clang-format off
constexpr SDisplayIdBlock gsc_aoBlocks1[] = {
    { gsc_uiType1Tag, Group(eId_DisplayidType1, "Type I timing - detailed data block", eArea_Timing), ItemsOf(gsc_oType1.m_uiSize), nullptr, {}, MapTimingsOf<gsc_oType1.m_uiSize> },
    { gsc_uiType2Tag, Group(eId_DisplayidType2, "Type II timing - detailed data block", eArea_Timing), ItemsOf(gsc_oType2.m_uiSize), nullptr, {}, MapTimingsOf<gsc_oType2.m_uiSize> },
    { gsc_uiType3Tag, Group(eId_DisplayidType3, "Type III timing - short data block", eArea_Timing), ItemsOf(gsc_uiType3Size), nullptr, {}, MapTimingsOf<gsc_uiType3Size> },
    { gsc_uiType4Tag, Group(eId_DisplayidType4, "Type IV timing - DMT ID code data block", eArea_Timing), ItemsOf(1), &gsc_oType4Flags, {}, MapType4 },
    { gsc_uiDmtBitsTag, Group(eId_DisplayidDmtModes, "VESA timing standard data block", eArea_Timing), Exactly(10), nullptr, {}, MapDmtBits },
    { gsc_uiVicBitsTag, Group(eId_DisplayidVicModes, "CEA timing standard data block", eArea_Timing), Exactly(8), nullptr, {}, MapVicBits },
    { gsc_uiType5Tag, Group(eId_DisplayidType5, "Type V timing - short data block", eArea_Timing), ItemsOf(gsc_uiType5Size), nullptr, {}, MapTimingsOf<gsc_uiType5Size> },
    { gsc_uiType6Tag, Group(eId_DisplayidType6, "Type VI timing - detailed data block", eArea_Timing),
      AtLeast(gsc_oType6.m_uiSize), nullptr, {}, MapType6 },
};

constexpr SDisplayIdBlock gsc_aoBlocks2[] = {
    { gsc_uiType7Tag, Group(eId_DisplayidType7, "Type VII timing - detailed data block", eArea_Timing),
      ItemsWithExtraBytes(gsc_oType7.m_uiSize), &gsc_oType7Flags, {}, MapExtendedTimings<gsc_oType7.m_uiSize> },
    { gsc_uiType8Tag, Group(eId_DisplayidType8, "Type VIII timing - enumerated timing code data block", eArea_Timing),
      ItemsWithExtraBytes(1, 3, 3), &gsc_oType8Flags, {}, MapType8 },
    { gsc_uiType9Tag, Group(eId_DisplayidType9, "Type IX timing - formula-based data block", eArea_Timing), ItemsOf(gsc_uiType9Size), nullptr, {}, MapTimingsOf<gsc_uiType9Size> },
    { gsc_uiType10Tag, Group(eId_DisplayidType10, "Type X timing - formula-based data block", eArea_Timing),
      ItemsWithExtraBytes(gsc_uiType10Size), &gsc_oType10Flags, {}, MapExtendedTimings<gsc_uiType10Size> },
};
// clang-format on
} // namespace

constinit const std::span<const SDisplayIdBlock> g_aoDisplayId1TimingBlocks = gsc_aoBlocks1;
constinit const std::span<const SDisplayIdBlock> g_aoDisplayId2TimingBlocks = gsc_aoBlocks2;

void MapTimingCode(CMapWriter& oWriter, unsigned int uiType, unsigned int uiOffset, unsigned int uiLength,
                   unsigned int uiMarks)
{
    const SCodeKind& oKind = gsc_aoCodeKinds[uiType & 3U];
    const SRow& oRow = oKind.m_aoRows[uiLength > 1 ? 1 : 0];
    const unsigned int uiCode = oWriter.GetRecord(uiOffset, uiLength).Get(oRow.m_oPlace);
    const unsigned int uiField = oWriter.AddLeaf(oRow, eArea_Timing, uiOffset, uiLength);
    oWriter.SetMeaning(uiField, oKind.m_pfnName(uiCode));
    oWriter.SetMode(uiField, 0, uiMarks);
}

void MapDisplayIdTiming(CMapWriter& oWriter, unsigned int uiTag, unsigned int uiRevision, unsigned int uiOffset,
                        unsigned int uiLength)
{
    if (const STable* poTable = FindTimingTable(uiTag, uiRevision))
    {
        oWriter.AddRecord(*poTable, uiOffset, uiLength);
    }
}

void VisitTimingIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(gsc_aoDmtBits, gsc_aoVicBits);
    for (const STimingKind& oKind : gsc_aoTimingKinds)
    {
        oVisitor.Visit(oKind.m_oTable);
    }
    for (const SCodeKind& oKind : gsc_aoCodeKinds)
    {
        oVisitor.Visit(oKind.m_aoRows[0], oKind.m_aoRows[1]);
    }
}
} // namespace ZorMap
