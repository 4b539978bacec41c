// Tables of CTA-861 data blocks about colorimetry and dynamic range, those of makers too. MapCta.cpp dispatches here.

#include <math.h>

#include <algorithm>

#include "MapCtaBlocks.h"
#include "MapValue.h"
#include "Standards/ColourBlocks.h"

namespace ZorMap
{
namespace
{
// ---- VESA Display Transfer Characteristic Data Block: VESA DTCDB 1.0 ----

constexpr auto gsc_aoCurves = Listed({ "white", "red", "green", "blue" });

// In 1/1023 of the full luminance. The points divide the input evenly; the last one, of full luminance, is not stored.
constexpr SRow gsc_aoTransferRows[] = {
    { eId_CtaTransferCurve, Bits(0, 7, 6), "Curve", Names(gsc_aoCurves) },
    { eId_CtaTransferFirstLuminance, Bits(0, 5, 0), "Luminance of the first point", Number("of 1023") },
};
constexpr STable gsc_oTransferTable = { eId_CtaTransfer, "Display transfer characteristic", eArea_Colour,
                                        gsc_aoTransferRows };
constexpr SRow gsc_oIncrementRow = { eId_CtaTransferLuminanceIncrement, Byte(0), "Luminance increment",
                                     Number("of 1023") };
constexpr unsigned int gsc_uiMostLuminance = 1023;

// ---- Colorimetry Data Block: CTA-861-H 7.5.5; bits 5 and 4 of the second byte by CTA-861.6 ----

constexpr SRow gsc_aoColorimetryRows[] = {
    { eId_CtaColorimetryBt2020rgb, Colour::gsc_oBt2020Rgb, "BT2020RGB", Flag() },
    { eId_CtaColorimetryBt2020ycc, Colour::gsc_oBt2020Ycc, "BT2020YCC", Flag() },
    { eId_CtaColorimetryBt2020cycc, Colour::gsc_oBt2020CYcc, "BT2020cYCC", Flag() },
    { eId_CtaColorimetryOprgb, Colour::gsc_oOpRgb, "opRGB", Flag() },
    { eId_CtaColorimetryOpycc601, Colour::gsc_oOpYcc601, "opYCC601", Flag() },
    { eId_CtaColorimetrySycc601, Colour::gsc_oSYcc601, "sYCC601", Flag() },
    { eId_CtaColorimetryXvycc709, Colour::gsc_oXvYcc709, "xvYCC709", Flag() },
    { eId_CtaColorimetryXvycc601, Colour::gsc_oXvYcc601, "xvYCC601", Flag() },
    { eId_CtaColorimetrySt2113rgb, Colour::gsc_oSt2113Rgb, "ST2113RGB (DCI-P3)", Flag() },
    { eId_CtaColorimetryIctcp, Colour::gsc_oICtCp, "ICtCp", Flag() },
    { eId_CtaColorimetrySrgb, Colour::gsc_oSrgb, "sRGB", Flag() },
    { eId_CtaColorimetryDefaultrgb, Colour::gsc_oDefaultRgb, "defaultRGB", Flag() },
    { eId_CtaColorimetryGamutMetadataP0, Colour::gsc_oGamutMetadataP0, "MD0 gamut boundary metadata profile P0",
      Flag() },
};

// ---- HDR Static Metadata Data Block: CTA-861-H 7.5.13 ----

constexpr long long gsc_llPerMilli = 1000; // of 10^-6
constexpr unsigned int gsc_uiDecimals = 3;
constexpr unsigned int gsc_uiMinimumDecimals = 5;
constexpr long long gsc_llPerMinimum = 10;

long long Luminance(const CRecord& /*oRecord*/, unsigned int uiCode)
{
    return uiCode == 0 ? 0 : Colour::DivideRounded(Colour::LuminanceOfCode(uiCode), gsc_llPerMilli);
}

constexpr unsigned int gsc_uiMaximumOffset = 2; // of the HDR Static Metadata Data Block

// The minimum is a part of the maximum.
bool HasMaximum(const CRecord& oHdr) { return oHdr.GetByte(gsc_uiMaximumOffset) != 0; }

long long StaticMinimum(const CRecord& oHdr, unsigned int uiCode)
{
    return Colour::DivideRounded(Colour::MinimumLuminanceOfCode(oHdr.GetByte(gsc_uiMaximumOffset), uiCode),
                                 gsc_llPerMinimum);
}

SBreach CheckMinimumAlone(const CRecord& /*oHdr*/, unsigned int uiCode)
{
    return uiCode != 0 ? eZorEdidRule_CtaHdrMinimumAlone : eZorEdidRule_None;
}

SBreach CheckFrameAverage(const CRecord& oHdr, unsigned int uiCode)
{
    const unsigned int uiMaximum = oHdr.GetByte(gsc_uiMaximumOffset);
    return uiMaximum != 0 ? CheckAtMost(uiMaximum, uiCode, eZorEdidRule_CtaHdrAverage) : gsc_oNoBreach;
}

constexpr SMeaning gsc_aoMinimumAlone[] = { { 0, 0, "not indicated" }, { 1, 255, "not known" } };

constexpr SRow gsc_aoStaticRows[] = {
    { eId_CtaHdrStaticHlg, Colour::gsc_oHlg, "Hybrid Log-Gamma (ITU-R BT.2100)", Flag() },
    { eId_CtaHdrStaticSmpteSt2084, Colour::gsc_oSt2084, "SMPTE ST 2084", Flag() },
    { eId_CtaHdrStaticTraditionalGammaHdr, Colour::gsc_oGammaHdr, "Traditional gamma, HDR luminance range", Flag() },
    { eId_CtaHdrStaticTraditionalGammaSdr, Colour::gsc_oGammaSdr, "Traditional gamma, SDR luminance range", Flag() },
    { eId_CtaHdrStaticMetadataType1, Colour::gsc_oMetadataType1, "Static metadata type 1", Flag() },
    { eId_CtaHdrStaticMaxLuminance, Colour::gsc_oMaxLuminanceCode, "Desired content max luminance",
      Number("cd/m2").Computed(Luminance).Decimals(gsc_uiDecimals).With(gsc_aoZeroNotIndicated) },
    { eId_CtaHdrStaticMaxFrameAverageLuminance, Colour::gsc_oMaxFrameAverageCode,
      "Desired content max frame-average luminance",
      Number("cd/m2").Computed(Luminance).Decimals(gsc_uiDecimals).With(gsc_aoZeroNotIndicated), nullptr,
      CheckFrameAverage },
    { eId_CtaHdrStaticMinLuminance, Colour::gsc_oMinLuminanceCode, "Desired content min luminance",
      Number("cd/m2").Computed(StaticMinimum).Decimals(gsc_uiMinimumDecimals).With(gsc_aoZeroNotIndicated),
      HasMaximum },
    { eId_CtaHdrStaticMinLuminance, Colour::gsc_oMinLuminanceCode, "Desired content min luminance",
      Number("cd/m2").With(gsc_aoMinimumAlone), IsNot<HasMaximum>, CheckMinimumAlone },
};

// ---- HDR Dynamic Metadata Data Block: CTA-861-H 7.5.14 ----

enum EDynamicType : unsigned int
{
    eDynamic_1 = 1,
    eDynamic_2 = 2,
    eDynamic_4 = 4,
    eDynamic_256 = 256
};

unsigned int GetDynamicType(const CRecord& oType) { return oType.Get(Little16(1)); }

bool HasVersion(const CRecord& oType)
{
    const unsigned int uiType = GetDynamicType(oType);
    return uiType == eDynamic_1 || uiType == eDynamic_2 || uiType == eDynamic_4 || uiType == eDynamic_256;
}

bool IsType2(const CRecord& oType) { return GetDynamicType(oType) == eDynamic_2; }
bool IsSlHdr(const CRecord& oType) { return IsType2(oType) && oType.GetBits(3, 3, 0) != 0; }
bool IsNoSlHdr(const CRecord& oType) { return IsType2(oType) && !IsSlHdr(oType); }

SBreach CheckDynamicLength(const CRecord& oType, unsigned int uiLength)
{
    constexpr unsigned int uiType = 2; // bytes
    constexpr unsigned int uiVersion = 3;
    return uiLength < uiType   ? SBreach(eZorEdidRule_CtaDynamicNoType, uiType)
           : HasVersion(oType) ? CheckAtLeast(uiVersion, uiLength, eZorEdidRule_CtaDynamicNoVersion)
                               : gsc_oNoBreach;
}

SBreach CheckVersion(const CRecord& oType, unsigned int uiVersion)
{
    return uiVersion == 0 && IsType2(oType) ? eZorEdidRule_CtaDynamicVersion : eZorEdidRule_None;
}

constexpr SMeaning gsc_aoDynamicTypes[] = {
    { 1, 1, "Type 1 (SMPTE ST 2094-10)" },
    { 2, 2, "Type 2 (ETSI TS 103 433)" },
    { 3, 3, "Type 3 (ITU-T H.265, colour remapping information)" },
    { 4, 4, "Type 4 (SMPTE ST 2094-40)" },
    { 256, 256, "Type 256 (graphics overlay)" },
};

constexpr SRow gsc_aoDynamicRows[] = {
    { eId_CtaHdrDynamicLength, Colour::gsc_oDynamicLength, "Length", Number("bytes"), nullptr, CheckDynamicLength },
    { eId_CtaHdrDynamicType, Colour::gsc_oDynamicType, "HDR dynamic metadata type", Names(gsc_aoDynamicTypes) },
    { eId_CtaHdrDynamicSlHdr3, Colour::gsc_oSlHdr3, "SL-HDR3", Flag(), IsSlHdr },
    { eId_CtaHdrDynamicSlHdr2, Colour::gsc_oSlHdr2, "SL-HDR2", Flag(), IsSlHdr },
    { eId_CtaHdrDynamicSlHdr1, Colour::gsc_oSlHdr1, "SL-HDR1", Flag(), IsSlHdr },
    { eId_Unknown, Bits(3, 6, 4), "Unknown", Unknown(), IsNoSlHdr },
    { eId_CtaHdrDynamicVersion, Colour::gsc_oDynamicVersion, "Version", Number(), HasVersion, CheckVersion },
    { eId_CtaHdrDynamicOptionalFields, RunToEnd(4), "Optional fields", Bytes(), HasVersion },
    { eId_Unknown, RunToEnd(3), "Unknown", Unknown(), IsNot<HasVersion> },
};

CMString DynamicSummary(const CRecord& oType)
{
    return CMString(FindMeaning(gsc_aoDynamicTypes, GetDynamicType(oType)));
}
constexpr STable gsc_oDynamicTable = { eId_CtaHdrDynamicMetadata, "Supported HDR dynamic metadata", eArea_Colour,
                                       gsc_aoDynamicRows, DynamicSummary };

unsigned int GetDynamicSize(unsigned int uiFirstByte) { return 1 + uiFirstByte; }

// ---- Vendor-Specific Video Data Block of HDR10+ ----

// Not published; the meaning of the indexes comes from one public source. Displays use 0, so that it gets no note.
constexpr SMeaning gsc_aoPeaks[] = {
    { 0, 0, "reserved, but in use" },
    { 1, 1, "200 cd/m2" },
    { 2, 2, "300 cd/m2" },
    { 3, 3, "400 cd/m2" },
    { 4, 4, "500 cd/m2" },
    { 5, 5, "600 cd/m2" },
    { 6, 6, "800 cd/m2" },
    { 7, 7, "1000 cd/m2" },
    { 8, 8, "1200 cd/m2" },
    { 9, 9, "1500 cd/m2" },
    { 10, 10, "2000 cd/m2" },
    { 11, 11, "2500 cd/m2" },
    { 12, 12, "3000 cd/m2" },
    { 13, 13, "4000 cd/m2" },
    { 14, 14, "6000 cd/m2" },
    { 15, 15, "8000 cd/m2" },
};
constexpr auto gsc_aoFullFramePeaks =
    Listed({ "10% of the peak", "20% of the peak", "40% of the peak", "80% of the peak" });

constexpr SRow gsc_aoHdr10PlusRows[] = {
    { eId_CtaHdr10PlusPeakLuminance, Colour::gsc_oHdr10PlusPeak, "Peak luminance index", Names(gsc_aoPeaks) },
    { eId_CtaHdr10PlusFullFramePeakLuminance, Colour::gsc_oHdr10PlusFullFramePeak, "Full frame peak luminance index",
      Names(gsc_aoFullFramePeaks) },
    { eId_CtaHdr10PlusApplicationVersion, Colour::gsc_oHdr10PlusVersion, "Application version", Number() },
};

// ---- Vendor-Specific Video Data Block of Dolby Vision, versions 0 to 2 ----

constexpr unsigned int gsc_uiDolbySize0 = 17;
constexpr unsigned int gsc_uiDolbySize = 7;
constexpr unsigned int gsc_uiDolbyLongSize = 10; // of version 1, with full primaries

template <unsigned int VERSION, unsigned int LEAST>
bool WhereDolby(const CRecord& oDolby)
{
    return oDolby.GetBits(0, 7, 5) == VERSION && oDolby.GetSize() >= LEAST;
}

constexpr auto Is0 = WhereDolby<0, gsc_uiDolbySize0>;
constexpr auto Is1 = WhereDolby<1, gsc_uiDolbySize>;
constexpr auto Is1Long = WhereDolby<1, gsc_uiDolbyLongSize>;
constexpr auto Is2 = WhereDolby<2, gsc_uiDolbySize>;
bool Is1Short(const CRecord& oDolby) { return Is1(oDolby) && !Is1Long(oDolby); }
bool Is0To2(const CRecord& oDolby) { return Is0(oDolby) || Is1(oDolby) || Is2(oDolby); }

constexpr unsigned int gsc_uiPqDecimals = 6; // of Colour::PqLuminance

// A code is stored in steps of uiStep above uiLeast.
template <unsigned int STEP, unsigned int LEAST>
long long PqNumber(const CRecord& /*oDolby*/, unsigned int uiValue)
{
    return Colour::PqLuminance(uiValue * STEP + LEAST);
}
// "1000.60 cd/m2 (PQ 3079 of 4095)"; six decimals below 1 cd/m2.
template <unsigned int STEP, unsigned int LEAST>
CMString PqText(const CRecord& /*oDolby*/, unsigned int uiValue)
{
    constexpr long long llOne = 1000000;
    constexpr long long llPerHundredth = 10000;
    const long long llLuminance = Colour::PqLuminance(uiValue * STEP + LEAST);
    CMString sText = llLuminance < llOne ? FormatNumber(llLuminance, gsc_uiPqDecimals, "cd/m2")
                                         : FormatNumber(Colour::DivideRounded(llLuminance, llPerHundredth), 2, "cd/m2");
    sText.AppendFormat(" (PQ %u of 4095)", uiValue * STEP + LEAST);
    return sText;
}
template <unsigned int STEP, unsigned int LEAST>
constexpr SForm Pq()
{
    return Number("cd/m2").Computed(PqNumber<STEP, LEAST>).Text(PqText<STEP, LEAST>).Decimals(gsc_uiPqDecimals);
}
// A chromaticity in 1/4096, and in 1/256 above a least value that is given in 10^-5.
constexpr SForm gsc_oIn4096 = Fraction(nullptr, 4096, 5);
constexpr SForm In256(unsigned int uiLeast) { return Fraction(nullptr, 256, 5).Times(100000, uiLeast); }

long long DolbyMinimum(const CRecord& /*oDolby*/, unsigned int uiCode) { return Colour::DolbyMinimum1(uiCode); }

constexpr auto gsc_aoDolbyVersions = Listed({ "version 0", "version 1", "version 2" });
constexpr auto gsc_aoDolbyColorimetry = Listed({ "ITU-R BT.709", "P3-D65" });
constexpr auto gsc_aoLatencies = Listed({ "standard", "standard and low latency" });
constexpr auto gsc_aoInterfaces = Listed({ "low latency", "low latency, low latency HDMI", "standard, low latency",
                                           "standard, low latency, low latency HDMI" });
constexpr SMeaning gsc_ao444Depths[] = {
    { 0, 0, "no" }, { 1, 1, "10 bit" }, { 2, 2, "12 bit" }, { 3, 3, gsc_szReserved }
};

// Low bits of chromaticities lie apart from their bytes.
constexpr SRow gsc_aoDolbyRows[] = {
    { eId_CtaDolbyVisionVersion, Colour::gsc_oDolbyVersion, "VSVDB version", Number().Named(gsc_aoDolbyVersions) },
    { eId_Unknown, Bits(0, 4, 0), "Unknown", Unknown(), IsNot<Is0To2> },
    { eId_Unknown, RunToEnd(1), "Unknown", Unknown(), IsNot<Is0To2> },
    { eId_CtaDolbyVisionYuv422_12bit, Colour::gsc_oDolbyYuv422, "YUV422_12bit", Flag(), Is0To2 },

    { eId_CtaDolbyVision2160p60, Bit(0, 1), "2160p60", Flag(), Is0 },
    { eId_CtaDolbyVisionGlobalDimming, Bit(0, 2), "Global dimming", Flag(), Is0 },
    { eId_CtaDolbyVisionRedX, Split({ { 2, 7, 0 }, { 1, 7, 4 } }), "Red x", gsc_oIn4096, Is0 },
    { eId_CtaDolbyVisionRedY, Split({ { 3, 7, 0 }, { 1, 3, 0 } }), "Red y", gsc_oIn4096, Is0 },
    { eId_CtaDolbyVisionGreenX, Split({ { 5, 7, 0 }, { 4, 7, 4 } }), "Green x", gsc_oIn4096, Is0 },
    { eId_CtaDolbyVisionGreenY, Split({ { 6, 7, 0 }, { 4, 3, 0 } }), "Green y", gsc_oIn4096, Is0 },
    { eId_CtaDolbyVisionBlueX, Split({ { 8, 7, 0 }, { 7, 7, 4 } }), "Blue x", gsc_oIn4096, Is0 },
    { eId_CtaDolbyVisionBlueY, Split({ { 9, 7, 0 }, { 7, 3, 0 } }), "Blue y", gsc_oIn4096, Is0 },
    { eId_CtaDolbyVisionWhiteX, Split({ { 11, 7, 0 }, { 10, 7, 4 } }), "White x", gsc_oIn4096, Is0 },
    { eId_CtaDolbyVisionWhiteY, Split({ { 12, 7, 0 }, { 10, 3, 0 } }), "White y", gsc_oIn4096, Is0 },
    { eId_CtaDolbyVisionTargetMinLuminance, Colour::gsc_oDolbyMin0, "Target minimum luminance", Pq<1, 0>(), Is0 },
    { eId_CtaDolbyVisionTargetMaxLuminance, Colour::gsc_oDolbyMax0, "Target maximum luminance", Pq<1, 0>(), Is0 },
    { eId_CtaDolbyVisionDmMajorVersion, Colour::gsc_oDolbyMajor0, "Display management major version", Number(), Is0 },
    { eId_CtaDolbyVisionDmMinorVersion, Colour::gsc_oDolbyMinor0, "Display management minor version", Number(), Is0 },

    { eId_CtaDolbyVisionDmVersion, Colour::gsc_oDolbyDmVersion, "Display management version", Number().Times(1, 2),
      Is1 },
    { eId_CtaDolbyVision2160p60, Bit(0, 1), "2160p60", Flag(), Is1 },
    { eId_CtaDolbyVisionTargetMaxLuminance, Colour::gsc_oDolbyMax1, "Target maximum luminance",
      Number("cd/m2").Times(Colour::gsc_uiDolbyMax1Step, Colour::gsc_uiDolbyMax1Least), Is1 },
    { eId_CtaDolbyVisionGlobalDimming, Bit(1, 0), "Global dimming", Flag(), Is1 },
    { eId_CtaDolbyVisionTargetMinLuminance, Colour::gsc_oDolbyMin1, "Target minimum luminance",
      Number("cd/m2").Computed(DolbyMinimum).Decimals(5), Is1 },
    { eId_CtaDolbyVisionColorimetry, Bit(2, 0), "Colorimetry", Flag(gsc_aoDolbyColorimetry), Is1 },
    { eId_CtaDolbyVisionLatency, Colour::gsc_oDolbyLatency1, "Latency", Flag(gsc_aoLatencies), Is1 },
    { eId_CtaDolbyVisionRedX, Byte(4), "Red x", In256(0), Is1Long },
    { eId_CtaDolbyVisionRedY, Byte(5), "Red y", In256(0), Is1Long },
    { eId_CtaDolbyVisionGreenX, Byte(6), "Green x", In256(0), Is1Long },
    { eId_CtaDolbyVisionGreenY, Byte(7), "Green y", In256(0), Is1Long },
    { eId_CtaDolbyVisionBlueX, Byte(8), "Blue x", In256(0), Is1Long },
    { eId_CtaDolbyVisionBlueY, Byte(9), "Blue y", In256(0), Is1Long },
    { eId_CtaDolbyVisionRedX, Bits(6, 7, 3), "Red x", In256(62500), Is1Short },
    { eId_CtaDolbyVisionRedY, Split({ { 6, 2, 0 }, { 5, 0, 0 }, { 4, 0, 0 } }), "Red y", In256(25000), Is1Short },
    { eId_CtaDolbyVisionGreenX, Bits(4, 7, 1), "Green x", In256(0), Is1Short },
    { eId_CtaDolbyVisionGreenY, Bits(5, 7, 1), "Green y", In256(50000), Is1Short },
    { eId_CtaDolbyVisionBlueX, Bits(3, 7, 5), "Blue x", In256(12500), Is1Short },
    { eId_CtaDolbyVisionBlueY, Bits(3, 4, 2), "Blue y", In256(3125), Is1Short },

    { eId_CtaDolbyVisionDmVersion, Colour::gsc_oDolbyDmVersion, "Display management version", Number().Times(1, 2),
      Is2 },
    { eId_CtaDolbyVisionBacklightControl, Bit(0, 1), "Backlight control", Flag(), Is2 },
    { eId_CtaDolbyVisionTargetMinLuminance, Colour::gsc_oDolbyMin2, "Target minimum luminance",
      Pq<Colour::gsc_uiDolbyMin2Step, 0>(), Is2 },
    { eId_CtaDolbyVisionGlobalDimming, Bit(1, 2), "Global dimming", Flag(), Is2 },
    { eId_CtaDolbyVisionBacklightMinLuminance, Bits(1, 1, 0), "Backlight minimum luminance",
      Number("cd/m2").Times(25, 25), Is2 },
    { eId_CtaDolbyVisionTargetMaxLuminance, Colour::gsc_oDolbyMax2, "Target maximum luminance",
      Pq<Colour::gsc_uiDolbyMax2Step, Colour::gsc_uiDolbyMax2Least>(), Is2 },
    // Clear, it is taken for a limit to 60 Hz by drivers of public source; nothing says so.
    { eId_Unknown, Bit(2, 2), "Unknown", Unknown(), Is2 },
    { eId_CtaDolbyVisionInterface, Colour::gsc_oDolbyInterface2, "Interface", Names(gsc_aoInterfaces), Is2 },
    { eId_CtaDolbyVision10b12b444, Colour::gsc_oDolby444Depth2, "10b_12b_444", Names(gsc_ao444Depths), Is2 },
    { eId_CtaDolbyVisionGreenX, Bits(3, 7, 1), "Green x", In256(0), Is2 },
    { eId_CtaDolbyVisionGreenY, Bits(4, 7, 1), "Green y", In256(50000), Is2 },
    { eId_CtaDolbyVisionRedX, Bits(5, 7, 3), "Red x", In256(62500), Is2 },
    { eId_CtaDolbyVisionBlueX, Bits(5, 2, 0), "Blue x", In256(12500), Is2 },
    { eId_CtaDolbyVisionRedY, Bits(6, 7, 3), "Red y", In256(25000), Is2 },
    { eId_CtaDolbyVisionBlueY, Bits(6, 2, 0), "Blue y", In256(3125), Is2 },
};
} // namespace

constinit const STable g_oCtaColorimetryTable = { eId_CtaColorimetry, "Colorimetry", eArea_Colour,
                                                  gsc_aoColorimetryRows };
constinit const STable g_oCtaStaticHdrTable = { eId_CtaHdrStatic, "HDR static metadata", eArea_Colour,
                                                gsc_aoStaticRows };
constinit const STable g_oCtaHdr10PlusTable = { eId_CtaHdr10Plus, "HDR10+", eArea_Colour, gsc_aoHdr10PlusRows };
constinit const STable g_oCtaDolbyVisionTable = { eId_CtaDolbyVision, "Dolby Vision", eArea_Colour, gsc_aoDolbyRows };

void MapCtaDynamicHdr(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    AddCtaItems(oWriter, gsc_oDynamicTable, oPayload.m_uiOffset, oPayload.m_uiLength, GetDynamicSize);
}

void MapCtaTransfer(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oTransferTable, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U));
    unsigned int uiSum = oWriter.GetRecord(oPayload.m_uiOffset, oPayload.m_uiLength).GetBits(0, 5, 0);
    for (unsigned int i = 1; i < oPayload.m_uiLength; ++i)
    {
        oWriter.AddLeaf(gsc_oIncrementRow, eArea_Colour, oPayload.m_uiOffset + i, 1);
        uiSum += oWriter.GetByte(oPayload.m_uiOffset + i);
    }
    if (uiSum > gsc_uiMostLuminance)
    {
        oWriter.AddNote(oPayload.m_uiField, eZorEdidRule_CtaTransfer);
    }
}

void VisitCtaColourIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(gsc_oTransferTable, gsc_oIncrementRow, g_oCtaColorimetryTable, g_oCtaStaticHdrTable,
                   gsc_oDynamicTable, g_oCtaHdr10PlusTable, g_oCtaDolbyVisionTable);
}
} // namespace ZorMap
