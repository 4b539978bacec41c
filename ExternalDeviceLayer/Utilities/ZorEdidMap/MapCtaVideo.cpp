// Tables of CTA-861 data blocks about video formats, and the names of the formats' codes. MapCta.cpp dispatches here.

#include <algorithm>
#include <array>

#include "MapCtaBlocks.h"
#include "MapModes.h"
#include "Standards/CtaBlocks.h"

namespace ZorMap
{
namespace
{
CMString VideoCodeText(const CRecord& /*oRecord*/, unsigned int uiCode)
{
    return CodeText(uiCode, GetVideoFormatName(uiCode));
}
constexpr SForm gsc_oVideoCode = Names(GetVideoFormatName).Text(VideoCodeText);

// ---- Short video descriptors: CTA-861-H 7.5.1 ----

bool IsReservedSvd(unsigned int uiSvd) { return ReadShortVideo(uiSvd).m_uiCode == 0; }
unsigned int GetVideoCode(unsigned int uiSvd) { return ReadShortVideo(uiSvd).m_uiCode; }

bool IsSvdWithNative(const CRecord& oSvd) { return HasNativeBit(oSvd.GetByte(0)); }
bool IsSvdWithoutNative(const CRecord& oSvd) { return IsListedAsOther(oSvd.GetByte(0)); }
bool IsSvdReserved(const CRecord& oSvd) { return IsReservedSvd(oSvd.GetByte(0)); }

// Those above 192 are codes of their own since CTA-861-F.
SBreach CheckOlderCode(const CRecord& /*oSvd*/, unsigned int uiCode)
{
    return GetVideoFormatName(uiCode) == nullptr ? eZorEdidRule_CtaOlderCode : eZorEdidRule_None;
}

constexpr SMeaning gsc_aoReservedCode[] = { { 0, 255, gsc_szReserved } };

constexpr SRow gsc_aoVideoRows[] = {
    { eId_CtaVideoNative, gsc_oSvdNative, "Native", Flag(), IsSvdWithNative },
    { eId_CtaVideoVic, gsc_oSvdCode, "Video identification code", gsc_oVideoCode, IsSvdWithNative },
    { eId_CtaVideoVic, Byte(0), "Video identification code", gsc_oVideoCode, IsSvdWithoutNative, CheckOlderCode },
    { eId_CtaVideoVic, Byte(0), "Video identification code", Names(gsc_aoReservedCode), IsSvdReserved },
};

CMString SvdSummary(const CRecord& oSvd)
{
    const SShortVideo oVideo = ReadShortVideo(oSvd.GetByte(0));
    const char* pszName = GetVideoFormatName(oVideo.m_uiCode);
    CMString sText(pszName);
    if (oVideo.m_bNative && pszName != nullptr)
    {
        sText += ", native";
    }
    return sText;
}

bool MakeSvdMode(const CRecord& oSvd, const SModeSource& oSource, CMode& oMode)
{
    return oSource.m_uiRank == 0 && ReadShortVideoMode(oSvd.GetByte(0), oMode);
}

// ---- Short video references: CTA-861-H 7.5.12; 161 to 175 by CTA-861.6 ----

constexpr SMeaning gsc_aoRateIndexes[] = {
    { 161, 161, "24 Hz" },  { 162, 162, "25 Hz" },  { 163, 163, "30 Hz" },  { 164, 164, "48 Hz" },
    { 165, 165, "50 Hz" },  { 166, 166, "60 Hz" },  { 167, 167, "100 Hz" }, { 168, 168, "120 Hz" },
    { 169, 169, "144 Hz" }, { 170, 170, "200 Hz" }, { 171, 171, "240 Hz" }, { 172, 172, "300 Hz" },
    { 173, 173, "360 Hz" }, { 174, 174, "400 Hz" }, { 175, 175, "480 Hz" },
};
constexpr SMeaning gsc_aoTypeViiiCode[] = { { 254, 254, "first code of the Type VIII data block" } };

template <SVideoReference::EKind KIND>
bool IsReferenceTo(const CRecord& oReference)
{
    return ReadVideoReference(oReference.GetByte(0)).m_eKind == KIND;
}

// Timings are counted from 1.
constexpr SRow gsc_aoReferenceRows[] = {
    { eId_CtaVideoReferenceVic, Byte(0), "Video identification code", gsc_oVideoCode,
      IsReferenceTo<SVideoReference::eVideoCode> },
    { eId_CtaVideoReferenceDetailed, Byte(0), "Detailed timing descriptor", Number().Times(1, -128),
      IsReferenceTo<SVideoReference::eDetailed> },
    { eId_CtaVideoReferenceType7Or10, Byte(0), "Type VII or X timing", Number().Times(1, -144),
      IsReferenceTo<SVideoReference::eType7Or10> },
    { eId_CtaVideoReferenceVideoFormatRate, Byte(0), "First video format descriptor, refresh rate",
      Names(gsc_aoRateIndexes), IsReferenceTo<SVideoReference::eFormatRate> },
    { eId_CtaVideoReferenceType8, Byte(0), "Type VIII timing", Names(gsc_aoTypeViiiCode),
      IsReferenceTo<SVideoReference::eType8> },
    { eId_CtaVideoReferenceVic, Byte(0), "Video identification code", Names(gsc_aoReservedCode),
      IsReferenceTo<SVideoReference::eReserved> },
};

CMString ReferenceSummary(const CRecord& oReference)
{
    const auto [eKind, uiNumber] = ReadVideoReference(oReference.GetByte(0));
    CMString sText;
    switch (eKind)
    {
    case SVideoReference::eVideoCode:
        return CMString(GetVideoFormatName(uiNumber));
    case SVideoReference::eDetailed:
        sText.Format("detailed timing %u", uiNumber + 1);
        break;
    case SVideoReference::eType7Or10:
        sText.Format("timing %u of Types VII and X", uiNumber + 1);
        break;
    case SVideoReference::eFormatRate:
        sText.Format("first video format descriptor at %u Hz", uiNumber);
        break;
    case SVideoReference::eType8:
        return CMString(gsc_aoTypeViiiCode[0].m_pszName);
    case SVideoReference::eReserved:
        break;
    }
    return sText;
}

// Of the first field of a native resolution block the walk says that it is native; the others are preferred.
bool MakeReferenceMode(const CRecord& oReference, const SModeSource& oSource, CMode& oMode)
{
    const unsigned int uiCode = oReference.GetByte(0);
    if (oSource.m_uiRank != 0 || !MakeVideoMode(oMode, uiCode))
    {
        return false;
    }
    oMode.m_bReference = true;
    oMode.m_bPreferred = (oSource.m_uiMarks & gsc_uiMarkNative) == 0;
    return true;
}

// ---- Native Video Resolution Data Block: CTA-861.6 ----

bool IsSizeInTenths(const CRecord& oRecord)
{
    return oRecord.IsSet(Cta::gsc_oNativeSizePresent) && !oRecord.IsSet(Cta::gsc_oNativeSizeInMillimetres);
}
bool IsSizeInWhole(const CRecord& oRecord)
{
    return oRecord.IsSet(Cta::gsc_oNativeSizePresent) && oRecord.IsSet(Cta::gsc_oNativeSizeInMillimetres);
}

constexpr SRow gsc_aoNativeRows[] = {
    { eId_CtaNativeResolutionSizePrecision, Cta::gsc_oNativeSizeInMillimetres, "Image size precision",
      Flag(gsc_aoPrecisions) },
    { eId_CtaNativeResolutionSizePresent, Cta::gsc_oNativeSizePresent, "Image size present", Flag() },
    { eId_CtaNativeResolutionImageWidth, Cta::gsc_oNativeImageWidth, "Image width", Number("mm").Decimals(1),
      IsSizeInTenths },
    { eId_CtaNativeResolutionImageHeight, Cta::gsc_oNativeImageHeight, "Image height", Number("mm").Decimals(1),
      IsSizeInTenths },
    { eId_CtaNativeResolutionImageWidth, Cta::gsc_oNativeImageWidth, "Image width", Number("mm"), IsSizeInWhole },
    { eId_CtaNativeResolutionImageHeight, Cta::gsc_oNativeImageHeight, "Image height", Number("mm"), IsSizeInWhole },
};
constexpr STable gsc_oNativeTable = { eId_CtaNativeResolution, "Native video resolution", eArea_Timing,
                                      gsc_aoNativeRows };

// ---- Video Format Data Block: CTA-861.6 ----

const char* GetResolutionName(unsigned int uiResolution)
{
    constexpr unsigned int uiLast = 63;
    return uiResolution == 0                        ? "none"
           : uiResolution < gsc_uiFormatResolutions ? GetFormatResolutionName(uiResolution)
           : uiResolution <= uiLast                 ? gsc_szReserved
                                                    : nullptr;
}

constexpr SRow gsc_aoFormatHeadRows[] = {
    { eId_CtaVideoFormatYcbcr420, Cta::gsc_oFormats420, "Y420", Flag() },
    { eId_CtaVideoFormatNtsc, Cta::gsc_oFormatsNtsc, "NTSC", Flag() },
    { eId_CtaVideoFormatDescriptorLength, Cta::gsc_oFormatsSize, "Length of a video format descriptor",
      NumberFrom1("bytes") },
};
constexpr STable gsc_oFormatHeadTable = { eId_CtaVideoFormat, "Video format data block", eArea_Timing,
                                          gsc_aoFormatHeadRows };

constexpr SRow FactorRow(EZorEdidField eId, const char* pszName, unsigned int uiPosition)
{
    return { eId, Cta::gsc_aoFormatFactors[uiPosition].m_oPlace, pszName, Flag() };
}
constexpr SRow gsc_aoFormatRows[] = {
    { eId_CtaVideoFormatBfr50, Cta::gsc_oFormatBfr50, "BFR50", Flag() },
    { eId_CtaVideoFormatFr24, Cta::gsc_oFormat24Hz, "FR24", Flag() },
    { eId_CtaVideoFormatResolution, Cta::gsc_oFormatResolution, "Resolution identifier", Names(GetResolutionName) },
    { eId_CtaVideoFormatBfr60, Cta::gsc_oFormatBfr60, "BFR60", Flag() },
    { eId_CtaVideoFormatFr144, Cta::gsc_oFormat144Hz, "FR144", Flag() },
    FactorRow(eId_CtaVideoFormatFrameRateFactor16, "Frame rate factor 16", 5),
    FactorRow(eId_CtaVideoFormatFrameRateFactor12, "Frame rate factor 12", 4),
    FactorRow(eId_CtaVideoFormatFrameRateFactor8, "Frame rate factor 8", 3),
    FactorRow(eId_CtaVideoFormatFrameRateFactor4, "Frame rate factor 4", 2),
    FactorRow(eId_CtaVideoFormatFrameRateFactor2, "Frame rate factor 2", 1),
    FactorRow(eId_CtaVideoFormatFrameRateFactor1, "Frame rate factor 1", 0),
    { eId_CtaVideoFormatFr48, Cta::gsc_oFormat48Hz, "FR48", Flag() },
};

CMString FormatSummary(const CRecord& oFormat)
{
    return CMString(GetResolutionName(oFormat.Get(Cta::gsc_oFormatResolution)));
}

bool MakeFormatMode(const CRecord& oFormat, const SModeSource& oSource, CMode& oMode)
{
    return ReadFormatMode(oFormat, oSource.m_uiRank, (oSource.m_uiMarks & gsc_uiMarkFraction) != 0, oMode);
}

constexpr STable gsc_oFormatTable = { eId_CtaVideoFormatDescriptor,
                                      "Video format descriptor",
                                      eArea_Timing,
                                      gsc_aoFormatRows,
                                      FormatSummary,
                                      MakeFormatMode };

// ---- YCbCr 4:2:0 Capability Map Data Block: CTA-861-H 7.5.11 ----

constexpr auto gsc_aoAlso420 = Listed({ "not in YCbCr 4:2:0", "also in YCbCr 4:2:0" });
constexpr SForm gsc_oAlso420 = Flag(gsc_aoAlso420).Mode(MakeCodeMode<MakeVideoMode>);

constexpr auto gsc_aoMapRows = BitRows(eId_Cta420MapVic, "Place without a video code", gsc_oAlso420);

// ---- Video Capability Data Block: CTA-861-H 7.5.6 ----

constexpr auto Scans(const char* pszNone)
{
    return Listed({ pszNone, "always overscanned", "always underscanned", "both over- and underscan" });
}
constexpr auto gsc_aoPreferredScan = Scans("no data");
constexpr auto gsc_aoItScan = Scans("IT video formats not supported");
constexpr auto gsc_aoCeScan = Scans("CE video formats not supported");

constexpr SRow gsc_aoCapabilityRows[] = {
    { eId_CtaVideoCapabilityQy, Cta::gsc_oQuantizationYcc, "Selectable YCC quantization range", Flag() },
    { eId_CtaVideoCapabilityQs, Cta::gsc_oQuantizationRgb, "Selectable RGB quantization range", Flag() },
    { eId_CtaVideoCapabilityPreferredScan, Cta::gsc_oPreferredScan, "Scan of the preferred video format",
      Names(gsc_aoPreferredScan) },
    { eId_CtaVideoCapabilityItScan, Cta::gsc_oItScan, "Scan of IT video formats", Names(gsc_aoItScan) },
    { eId_CtaVideoCapabilityCeScan, Cta::gsc_oCeScan, "Scan of CE video formats", Names(gsc_aoCeScan) },
};

// ---- DisplayID timings in CTA-861 data blocks: CTA-861-H 7.5.17 ----

constexpr SRow gsc_aoTypeViiRows[] = {
    { eId_CtaType7M, Cta::gsc_oTimingMoreBytes, "T7_M", Number("bytes").Expect(0, eZorEdidRule_CtaType7Extra) },
    { eId_CtaType7Revision, Cta::gsc_oTimingRevision, "Block revision",
      Number().Expect(2, eZorEdidRule_CtaType7Revision) },
};
constexpr STable gsc_oTypeViiTable = { eId_CtaType7, "Type VII", eArea_Timing, gsc_aoTypeViiRows };

// Other words than those of DisplayID.
constexpr auto gsc_aoTypeViiiCodes = Listed({ "DMT", "CTA-861", "HDMI", gsc_szReserved });
constexpr SRow gsc_aoTypeViiiRows[] = {
    { eId_CtaType8CodeType, Cta::gsc_oTimingCodeType, "Timing code type",
      Names(gsc_aoTypeViiiCodes).Expect(0, eZorEdidRule_CtaType8Codes) },
    { eId_CtaType8Ycbcr420, Cta::gsc_oTimingCodes420, "T8Y420", Flag() },
    { eId_CtaType8CodeSize, Cta::gsc_oTimingWideCodes, "Timing code size", Flag(gsc_aoCodeSizes) },
    { eId_CtaType8Revision, Cta::gsc_oTimingRevision, "Block revision",
      Number().Expect(1, eZorEdidRule_CtaType8Revision) },
};
constexpr STable gsc_oTypeViiiTable = { eId_CtaType8, "Type VIII", eArea_Timing, gsc_aoTypeViiiRows };

constexpr SRow gsc_aoTypeXRows[] = {
    { eId_CtaType10M, Cta::gsc_oTimingMoreBytes, "T10_M", Number("bytes") },
    { eId_CtaType10Revision, Cta::gsc_oTimingRevision, "Block revision",
      Number().Expect(0, eZorEdidRule_CtaType10Revision) },
};
constexpr STable gsc_oTypeXTable = { eId_CtaType10, "Type X", eArea_Timing, gsc_aoTypeXRows };

// Items of uiSize bytes after the first byte of the payload, as many as fit: fnAdd is called with the offset of each.
template <class ADD>
void AddBehindHead(CMapWriter& oWriter, const SCtaPayload& oPayload, const STable& oHead, unsigned int uiSize,
                   ADD fnAdd)
{
    oWriter.AddRows(oHead, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U));
    unsigned int uiUsed = 1;
    for (; uiUsed + uiSize <= oPayload.m_uiLength; uiUsed += uiSize)
    {
        fnAdd(oPayload.m_uiOffset + uiUsed);
    }
    AddCtaPart(oWriter, oPayload, uiUsed, uiSize);
}

CRecord GetHead(const CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    return oWriter.GetRecord(oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U));
}
} // namespace

constinit const STable g_oCtaVideoTable = {
    eId_CtaVideoDescriptor, "Short video descriptor", eArea_Timing, gsc_aoVideoRows, SvdSummary, MakeSvdMode
};
constinit const STable g_oCtaPreferenceTable = { eId_CtaVideoReference, "Short video reference", eArea_Timing,
                                                 gsc_aoReferenceRows,   ReferenceSummary,        MakeReferenceMode };
constinit const STable g_oCtaVideoCapabilityTable = { eId_CtaVideoCapability, "Video capability", eArea_Display,
                                                      gsc_aoCapabilityRows };

void AddVideoCodeBits(CMapWriter& oWriter, const SCtaVideoCodes& oCodes, unsigned int uiOffset, unsigned int uiFirst,
                      std::span<const SRow, gsc_uiBits> aoRows, unsigned int uiMarks)
{
    const CRecord oByte = oWriter.GetRecord(uiOffset, 1);
    bool bNoted = false; // once for a byte
    for (unsigned int i = 0; i < gsc_uiBits; ++i)
    {
        const unsigned int uiPlace = uiFirst + i;
        if (uiPlace < oCodes.m_uiCount)
        {
            const unsigned int uiField = oWriter.AddLeaf(aoRows[i], eArea_Timing, uiOffset, 1);
            const unsigned int uiCode = GetVideoCode(oCodes.m_aui8Codes[uiPlace]);
            const char* pszName = GetVideoCodeName(uiCode);
            oWriter.SetName(uiField, pszName != nullptr ? pszName
                                     : uiCode == 0      ? "Reserved video code"
                                                        : "Unknown video code");
            oWriter.SetMode(uiField, uiCode, uiMarks);
        }
        else if (oByte.IsSet(0, i))
        {
            const unsigned int uiField = oWriter.AddLeaf(aoRows[i], eArea_Timing, uiOffset, 1);
            oWriter.SetIndex(uiField, uiPlace);
            if (!bNoted)
            {
                oWriter.AddNote(uiField, eZorEdidRule_CtaVideoIndex,
                                CountAtMost("video codes", uiPlace + 1, oCodes.m_uiCount));
            }
            bNoted = true;
        }
    }
}

void MapCtaNative(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.SetMode(oWriter.AddRecord(g_oCtaPreferenceTable, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U)), 0,
                    gsc_uiMarkNative);
    oWriter.AddRows(gsc_oNativeTable, oPayload.m_uiOffset, oPayload.m_uiLength);
}

void MapCtaVideoFormats(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const CRecord oHead = GetHead(oWriter, oPayload);
    const unsigned int uiSize = 1 + oHead.Get(Cta::gsc_oFormatsSize);
    const unsigned int uiMarks = (oHead.IsSet(Cta::gsc_oFormats420) ? gsc_uiMarkAlso420 : 0U) |
                                 (oHead.IsSet(Cta::gsc_oFormatsNtsc) ? gsc_uiMarkFraction : 0U);
    AddBehindHead(oWriter, oPayload, gsc_oFormatHeadTable, uiSize, [&](unsigned int uiOffset) {
        oWriter.SetMode(oWriter.AddRecord(gsc_oFormatTable, uiOffset, uiSize), 0, uiMarks);
    });
}

void MapCta420Video(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const SCtaVideoCodes& oCodes = oPayload.m_oVideoCodes;
    for (unsigned int i = 0; i < oPayload.m_uiLength; ++i)
    {
        const unsigned int uiOffset = oPayload.m_uiOffset + i;
        const unsigned int uiField = oWriter.AddRecord(g_oCtaVideoTable, uiOffset, 1);
        oWriter.SetMode(uiField, 0, gsc_uiMarkOnly420);
        const unsigned int uiCode = GetVideoCode(oWriter.GetByte(uiOffset));
        const unsigned char* const pui8End = oCodes.m_aui8Codes + oCodes.m_uiCount;
        const bool bElsewhere = std::any_of(oCodes.m_aui8Codes, pui8End, [&](unsigned char ui8Svd) {
            return !IsReservedSvd(ui8Svd) && GetVideoCode(ui8Svd) == uiCode;
        });
        if (bElsewhere)
        {
            oWriter.AddNote(uiField, eZorEdidRule_Cta420Twice);
        }
    }
}

void MapCtaCapabilityMap(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    if (oPayload.m_uiLength == 0)
    {
        oWriter.AddNote(oPayload.m_uiField, eZorEdidRule_Cta420All);
        return;
    }
    const CRecord oMap = oWriter.GetRecord(oPayload.m_uiOffset, oPayload.m_uiLength);
    if (std::all_of(oMap.GetData(), oMap.GetData() + oMap.GetSize(),
                    [](unsigned char ui8Byte) { return ui8Byte == 0; }))
    {
        oWriter.AddNote(oPayload.m_uiField, eZorEdidRule_Cta420None);
    }
    for (unsigned int i = 0; i < oPayload.m_uiLength; ++i)
    {
        AddVideoCodeBits(oWriter, oPayload.m_oVideoCodes, oPayload.m_uiOffset + i, i * gsc_uiBits, gsc_aoMapRows,
                         gsc_uiMarkAlso420);
    }
}

void MapCtaTypeVii(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oTypeViiTable, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U));
    if (oPayload.m_uiLength > DisplayId::gsc_oType7.m_uiSize)
    {
        MapDisplayIdTiming(oWriter, DisplayId::gsc_uiType7Tag, GetHead(oWriter, oPayload).Get(Cta::gsc_oTimingRevision),
                           oPayload.m_uiOffset + 1, DisplayId::gsc_oType7.m_uiSize);
    }
}

void MapCtaTypeViii(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const CRecord oHead = GetHead(oWriter, oPayload);
    const unsigned int uiSize = oHead.IsSet(Cta::gsc_oTimingWideCodes) ? 2 : 1;
    AddBehindHead(oWriter, oPayload, gsc_oTypeViiiTable, uiSize, [&](unsigned int uiOffset) {
        MapTimingCode(oWriter, oHead.Get(Cta::gsc_oTimingCodeType), uiOffset, uiSize);
    });
}

void MapCtaTypeX(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const CRecord oHead = GetHead(oWriter, oPayload);
    const unsigned int uiSize = DisplayId::gsc_uiType10Size + oHead.Get(Cta::gsc_oTimingMoreBytes);
    AddBehindHead(oWriter, oPayload, gsc_oTypeXTable, uiSize, [&](unsigned int uiOffset) {
        MapDisplayIdTiming(oWriter, DisplayId::gsc_uiType10Tag, oHead.Get(Cta::gsc_oTimingRevision), uiOffset, uiSize);
    });
}

void VisitCtaVideoIds(CIdVisitor& oVisitor)
{
    oVisitor.VisitBits(eId_Cta420MapVic, "Video code");
    oVisitor.Visit(g_oCtaVideoTable, g_oCtaPreferenceTable, g_oCtaVideoCapabilityTable, gsc_oNativeTable,
                   gsc_oFormatHeadTable, gsc_oFormatTable, gsc_oTypeViiTable, gsc_oTypeViiiTable, gsc_oTypeXTable,
                   gsc_aoMapRows);
}
} // namespace ZorMap
