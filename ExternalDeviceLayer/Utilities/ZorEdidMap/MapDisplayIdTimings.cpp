// The timings of DisplayID: detailed ones, short ones, and codes for modes of other standards. CTA-861 data blocks
// carry some of the same records: their walks call MapDisplayIdTiming and MapTimingCode.

#include "MapDisplayId.h"

namespace ZorMap
{
namespace
{
using CMap = CZorEdidMap;
using enum CZorEdidMap::EArea;

// ---- Names ----

constexpr auto gsc_aoStereoSupport = Listed({ "mono", "stereo", "mono or stereo by user action", gsc_szReserved });
constexpr auto gsc_aoScanning = Listed({ "progressive", "interlaced" });

// HDMI 1.4; from HDMI_VIC 0 on.
constexpr std::array<const char*, 5> gsc_apszHdmiModes = { gsc_szReserved, "3840 x 2160 @ 30 Hz", "3840 x 2160 @ 25 Hz",
                                                           "3840 x 2160 @ 24 Hz", "4096 x 2160 @ 24 Hz" };

constexpr auto gsc_aoAspectRatios =
    ListedTo(15, { "1:1", "5:4", "4:3", "15:9", "16:9", "16:10", "64:27", "256:135", "undefined" });
// The same as numbers.
constexpr SRatio gsc_aoRatios[] = { { 1, 1 },  { 5, 4 },   { 4, 3 },   { 15, 9 },
                                    { 16, 9 }, { 16, 10 }, { 64, 27 }, { 256, 135 } };

// VESA DMT 1.13; RB: reduced blanking. From DMT ID 1 on.
constexpr const char* gsc_apszDmtModes[] = {
    "640 x 350 @ 85 Hz",       "640 x 400 @ 85 Hz",       "720 x 400 @ 85 Hz",       "640 x 480 @ 60 Hz",
    "640 x 480 @ 72 Hz",       "640 x 480 @ 75 Hz",       "640 x 480 @ 85 Hz",       "800 x 600 @ 56 Hz",
    "800 x 600 @ 60 Hz",       "800 x 600 @ 72 Hz",       "800 x 600 @ 75 Hz",       "800 x 600 @ 85 Hz",
    "800 x 600 @ 120 Hz RB",   "848 x 480 @ 60 Hz",       "1024 x 768i @ 87 Hz",     "1024 x 768 @ 60 Hz",
    "1024 x 768 @ 70 Hz",      "1024 x 768 @ 75 Hz",      "1024 x 768 @ 85 Hz",      "1024 x 768 @ 120 Hz RB",
    "1152 x 864 @ 75 Hz",      "1280 x 768 @ 60 Hz RB",   "1280 x 768 @ 60 Hz",      "1280 x 768 @ 75 Hz",
    "1280 x 768 @ 85 Hz",      "1280 x 768 @ 120 Hz RB",  "1280 x 800 @ 60 Hz RB",   "1280 x 800 @ 60 Hz",
    "1280 x 800 @ 75 Hz",      "1280 x 800 @ 85 Hz",      "1280 x 800 @ 120 Hz RB",  "1280 x 960 @ 60 Hz",
    "1280 x 960 @ 85 Hz",      "1280 x 960 @ 120 Hz RB",  "1280 x 1024 @ 60 Hz",     "1280 x 1024 @ 75 Hz",
    "1280 x 1024 @ 85 Hz",     "1280 x 1024 @ 120 Hz RB", "1360 x 768 @ 60 Hz",      "1360 x 768 @ 120 Hz RB",
    "1400 x 1050 @ 60 Hz RB",  "1400 x 1050 @ 60 Hz",     "1400 x 1050 @ 75 Hz",     "1400 x 1050 @ 85 Hz",
    "1400 x 1050 @ 120 Hz RB", "1440 x 900 @ 60 Hz RB",   "1440 x 900 @ 60 Hz",      "1440 x 900 @ 75 Hz",
    "1440 x 900 @ 85 Hz",      "1440 x 900 @ 120 Hz RB",  "1600 x 1200 @ 60 Hz",     "1600 x 1200 @ 65 Hz",
    "1600 x 1200 @ 70 Hz",     "1600 x 1200 @ 75 Hz",     "1600 x 1200 @ 85 Hz",     "1600 x 1200 @ 120 Hz RB",
    "1680 x 1050 @ 60 Hz RB",  "1680 x 1050 @ 60 Hz",     "1680 x 1050 @ 75 Hz",     "1680 x 1050 @ 85 Hz",
    "1680 x 1050 @ 120 Hz RB", "1792 x 1344 @ 60 Hz",     "1792 x 1344 @ 75 Hz",     "1792 x 1344 @ 120 Hz RB",
    "1856 x 1392 @ 60 Hz",     "1856 x 1392 @ 75 Hz",     "1856 x 1392 @ 120 Hz RB", "1920 x 1200 @ 60 Hz RB",
    "1920 x 1200 @ 60 Hz",     "1920 x 1200 @ 75 Hz",     "1920 x 1200 @ 85 Hz",     "1920 x 1200 @ 120 Hz RB",
    "1920 x 1440 @ 60 Hz",     "1920 x 1440 @ 75 Hz",     "1920 x 1440 @ 120 Hz RB", "2560 x 1600 @ 60 Hz RB",
    "2560 x 1600 @ 60 Hz",     "2560 x 1600 @ 75 Hz",     "2560 x 1600 @ 85 Hz",     "2560 x 1600 @ 120 Hz RB",
    "1366 x 768 @ 60 Hz",      "1920 x 1080 @ 60 Hz",     "1600 x 900 @ 60 Hz RB",   "2048 x 1152 @ 60 Hz RB",
    "1280 x 720 @ 60 Hz",      "1366 x 768 @ 60 Hz RB",   "4096 x 2160 @ 60 Hz RB",  "4096 x 2160 @ 59.94 Hz RB",
};
constexpr unsigned int gsc_uiDmtModes = sizeof(gsc_apszDmtModes) / sizeof(gsc_apszDmtModes[0]);

const char* GetDmtName(unsigned int uiId)
{
    return uiId == 0 ? gsc_szReserved : uiId <= gsc_uiDmtModes ? gsc_apszDmtModes[uiId - 1] : nullptr;
}

// VIC 129 to 192 do not exist: as short video descriptors those bytes are native modes.
const char* GetVicName(unsigned int uiVic)
{
    return uiVic == 0                                      ? gsc_szReserved
           : uiVic > 0xFF || (uiVic > 127 && uiVic <= 192) ? nullptr
                                                           : GetVideoCodeName(uiVic);
}

const char* GetHdmiVicName(unsigned int uiVic)
{
    return uiVic < gsc_apszHdmiModes.size() ? gsc_apszHdmiModes[uiVic] : nullptr;
}

// ---- Type I, DisplayID 1.3 (tag 3), and Type VII, DisplayID 2.0 (tag 22h): 20 bytes ----

// The places of a detailed timing, as its rows and its summary need them. Sizes are stored minus uiBase.
struct SDetailedPlaces
{
    SPlace m_oClock;
    unsigned int m_uiClockStep; // kHz; stored minus 1
    SPlace m_oInterlaced;
    unsigned int m_uiPixelStep;
    SPlace m_oActiveX;
    SPlace m_oBlankX;
    SPlace m_oFrontX;
    SPlace m_oSyncX;
    SPlace m_oActiveY;
    SPlace m_oBlankY;
    SPlace m_oFrontY;
    SPlace m_oSyncY;
};

constexpr SDetailedPlaces LongPlaces(unsigned int uiClockStep)
{
    return { Little24(0),
             uiClockStep,
             Bit(3, 4),
             1,
             Little16(4),
             Little16(6),
             Split({ { 9, 6, 0 }, { 8, 7, 0 } }),
             Little16(10),
             Little16(12),
             Little16(14),
             Split({ { 17, 6, 0 }, { 16, 7, 0 } }),
             Little16(18) };
}

constexpr SDetailedPlaces gsc_oType1 = LongPlaces(10);
constexpr SDetailedPlaces gsc_oType7 = LongPlaces(1);

constexpr SDetailedPlaces gsc_oType2 = { Little24(0),
                                         10,
                                         Bit(3, 4),
                                         8,
                                         Split({ { 5, 0, 0 }, { 4, 7, 0 } }),
                                         Bits(5, 7, 1),
                                         Bits(6, 7, 4),
                                         Bits(6, 3, 0),
                                         Split({ { 8, 3, 0 }, { 7, 7, 0 } }),
                                         Byte(9),
                                         Bits(10, 7, 4),
                                         Bits(10, 3, 0) };

constexpr SDetailedPlaces gsc_oType6 = { Split({ { 2, 5, 0 }, { 1, 7, 0 }, { 0, 7, 0 } }),
                                         1,
                                         Bit(13, 7),
                                         1,
                                         Split({ { 4, 5, 0 }, { 3, 7, 0 } }),
                                         Split({ { 9, 3, 0 }, { 7, 7, 0 } }),
                                         Split({ { 9, 7, 4 }, { 8, 7, 0 } }),
                                         Byte(10),
                                         Split({ { 6, 5, 0 }, { 5, 7, 0 } }),
                                         Byte(11),
                                         Byte(12),
                                         Bits(13, 3, 0) };

template <const SDetailedPlaces& P>
CMString DetailedText(const CRecord& oTiming)
{
    const unsigned long long ullWidth = (oTiming.Get(P.m_oActiveX) + 1ULL) * P.m_uiPixelStep;
    const unsigned long long ullTotalX = ullWidth + (oTiming.Get(P.m_oBlankX) + 1ULL) * P.m_uiPixelStep;
    const unsigned long long ullHeight = oTiming.Get(P.m_oActiveY) + 1ULL;
    const unsigned long long ullTotalY = ullHeight + oTiming.Get(P.m_oBlankY) + 1ULL;
    const unsigned long long ullKiloHertz = (oTiming.Get(P.m_oClock) + 1ULL) * P.m_uiClockStep;
    const bool bInterlaced = oTiming.Get(P.m_oInterlaced) != 0;
    const unsigned long long ullFields = bInterlaced ? 2 : 1;
    return ModeText({ static_cast<unsigned int>(ullWidth), static_cast<unsigned int>(ullHeight), bInterlaced,
                      ullKiloHertz * 1000 * ullFields, ullTotalX * ullTotalY });
}

const char* CheckBlanking(unsigned int uiBlank, unsigned int uiFront, unsigned int uiSync)
{
    return uiFront + 1 + uiSync + 1 > uiBlank + 1 ? "shorter than front porch and sync pulse" : nullptr;
}
template <const SDetailedPlaces& P>
const char* CheckBlankX(const CRecord& oTiming, unsigned int uiBlank)
{
    return CheckBlanking(uiBlank, oTiming.Get(P.m_oFrontX), oTiming.Get(P.m_oSyncX));
}
template <const SDetailedPlaces& P>
const char* CheckBlankY(const CRecord& oTiming, unsigned int uiBlank)
{
    return CheckBlanking(uiBlank, oTiming.Get(P.m_oFrontY), oTiming.Get(P.m_oSyncY));
}

// Rows that all types of detailed timings have.
template <const SDetailedPlaces& P>
struct SDetailedRows
{
    static constexpr SForm msc_oPixels = Number("pixels").Times(P.m_uiPixelStep, P.m_uiPixelStep);
    static constexpr SForm msc_oLines = NumberFrom1("lines");

    static constexpr SRow msc_oClock = { eId_DisplayidTimingPixelClock, P.m_oClock, "Pixel clock",
                                         Number("kHz").Times(P.m_uiClockStep, P.m_uiClockStep) };
    static constexpr SRow msc_oActiveX = { eId_DisplayidTimingHorizontalActive, P.m_oActiveX, "Horizontal active image",
                                           msc_oPixels };
    static constexpr SRow msc_oBlankX = {
        eId_DisplayidTimingHorizontalBlanking, P.m_oBlankX, "Horizontal blank", msc_oPixels, nullptr, CheckBlankX<P>
    };
    static constexpr SRow msc_oFrontX = { eId_DisplayidTimingHorizontalFrontPorch, P.m_oFrontX,
                                          "Horizontal front porch", msc_oPixels };
    static constexpr SRow msc_oSyncX = { eId_DisplayidTimingHorizontalSyncWidth, P.m_oSyncX, "Horizontal sync width",
                                         msc_oPixels };
    static constexpr SRow msc_oActiveY = { eId_DisplayidTimingVerticalActive, P.m_oActiveY, "Vertical active image",
                                           msc_oLines };
    static constexpr SRow msc_oBlankY = {
        eId_DisplayidTimingVerticalBlanking, P.m_oBlankY, "Vertical blank", msc_oLines, nullptr, CheckBlankY<P>
    };
    static constexpr SRow msc_oFrontY = { eId_DisplayidTimingVerticalFrontPorch, P.m_oFrontY, "Vertical front porch",
                                          msc_oLines };
    static constexpr SRow msc_oSyncY = { eId_DisplayidTimingVerticalSyncWidth, P.m_oSyncY, "Vertical sync width",
                                         msc_oLines };
};

constexpr SRow PreferredRow(unsigned int uiByte)
{
    return { eId_DisplayidTimingPreferred, Bit(uiByte, 7), "Preferred timing", Flag() };
}
constexpr SRow Y420Row(unsigned int uiByte)
{
    return { eId_DisplayidTimingYcbcr420, Bit(uiByte, 7), "YCbCr 4:2:0 supported", Flag() };
}
constexpr SRow StereoRow(unsigned int uiByte)
{
    return { eId_DisplayidTimingStereo, Bits(uiByte, 6, 5), "3D stereo support", Names(gsc_aoStereoSupport) };
}
constexpr SRow ScanningRow(const SPlace& oPlace)
{
    return { eId_DisplayidTimingInterlaced, oPlace, "Frame scanning type", Flag(gsc_aoScanning) };
}
constexpr SRow AspectRow(unsigned int uiByte)
{
    return { eId_DisplayidTimingAspectRatio, Bits(uiByte, 3, 0), "Aspect ratio", Names(gsc_aoAspectRatios) };
}
constexpr SRow HorizontalPolarityRow(unsigned int uiByte, unsigned int uiBit)
{
    return { eId_DisplayidTimingHorizontalSyncPolarity, Bit(uiByte, uiBit), "Horizontal sync polarity",
             Flag(gsc_aoSigns) };
}
constexpr SRow VerticalPolarityRow(unsigned int uiByte, unsigned int uiBit)
{
    return { eId_DisplayidTimingVerticalSyncPolarity, Bit(uiByte, uiBit), "Vertical sync polarity", Flag(gsc_aoSigns) };
}

template <const SDetailedPlaces& P>
constexpr auto LongRows(const SRow& oBit7OfByte3)
{
    using CRows = SDetailedRows<P>;
    return std::to_array<SRow>({
        CRows::msc_oClock,
        oBit7OfByte3,
        StereoRow(3),
        ScanningRow(P.m_oInterlaced),
        AspectRow(3),
        CRows::msc_oActiveX,
        CRows::msc_oBlankX,
        CRows::msc_oFrontX,
        HorizontalPolarityRow(9, 7),
        CRows::msc_oSyncX,
        CRows::msc_oActiveY,
        CRows::msc_oBlankY,
        CRows::msc_oFrontY,
        VerticalPolarityRow(17, 7),
        CRows::msc_oSyncY,
    });
}

constexpr auto gsc_aoType1Rows = LongRows<gsc_oType1>(PreferredRow(3));
constexpr auto gsc_aoType7Rows = LongRows<gsc_oType7>(PreferredRow(3));
constexpr auto gsc_aoType7Revision2Rows = LongRows<gsc_oType7>(Y420Row(3)); // DisplayID 2.1

// ---- Type II, DisplayID 1.3 (tag 4): 11 bytes ----

using CType2 = SDetailedRows<gsc_oType2>;
constexpr SRow gsc_aoType2Rows[] = {
    CType2::msc_oClock,
    PreferredRow(3),
    StereoRow(3),
    ScanningRow(Bit(3, 4)),
    HorizontalPolarityRow(3, 3),
    VerticalPolarityRow(3, 2),
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
    PreferredRow(0),
    { eId_DisplayidTimingFormula, Bits(0, 6, 4), "Timing formula", Names(gsc_aoType3Formulas) },
    AspectRow(0),
    { eId_DisplayidTimingHorizontalActive, Byte(1), "Horizontal active image", Number("pixels").Times(8, 8) },
    ScanningRow(Bit(2, 7)),
    { eId_DisplayidTimingRefreshRate, Bits(2, 6, 0), "Refresh rate", NumberFrom1("Hz") },
};

CMString Type3Text(const CRecord& oTiming)
{
    const unsigned int uiWidth = (oTiming.GetByte(1) + 1) * 8;
    const unsigned int uiAspect = oTiming.GetBits(0, 3, 0);
    if (uiAspect >= std::size(gsc_aoRatios))
    {
        return CMString();
    }
    const SRatio& oRatio = gsc_aoRatios[uiAspect];
    return ModeText(
        { uiWidth, uiWidth * oRatio.m_uiHeight / oRatio.m_uiWidth, oTiming.IsSet(2, 7), oTiming.GetBits(2, 6, 0) + 1 });
}

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

constexpr SPlace gsc_oNarrowRate = Byte(5);
constexpr SPlace gsc_oWideRate = Split({ { 6, 1, 0 }, { 5, 7, 0 } });

constexpr SRow FractionalRateRow(unsigned int uiByte, bool (*pfnApplies)(const CRecord&) = nullptr)
{
    return { eId_DisplayidTimingFractionalRate, Bit(uiByte, 4), "Refresh rate * 1000/1001 supported", Flag(),
             pfnApplies };
}
constexpr SRow WidthRow(unsigned int uiOffset)
{
    return { eId_DisplayidTimingHorizontalActive, Little16(uiOffset), "Horizontal active image",
             NumberFrom1("pixels") };
}
constexpr SRow HeightRow(unsigned int uiOffset)
{
    return { eId_DisplayidTimingVerticalActive, Little16(uiOffset), "Vertical active image", NumberFrom1("lines") };
}
constexpr SRow RateRow(const SPlace& oPlace)
{
    return { eId_DisplayidTimingRefreshRate, oPlace, "Refresh rate", NumberFrom1("Hz") };
}

constexpr SRow gsc_aoType5Rows[] = {
    PreferredRow(0),
    StereoRow(0),
    FractionalRateRow(0),
    { eId_Reserved, Bits(0, 3, 2), "Reserved", Reserved() },
    { eId_DisplayidTimingFormula, Bits(0, 1, 0), "Timing formula", Names(gsc_aoType5Formulas) },
    { eId_Reserved, Byte(1), "Reserved", Reserved() },
    WidthRow(2),
    HeightRow(4),
    RateRow(Byte(6)),
};

constexpr SRow gsc_aoType9Rows[] = {
    { eId_Reserved, Bit(0, 7), "Reserved", Reserved() },
    StereoRow(0),
    FractionalRateRow(0),
    { eId_Reserved, Bit(0, 3), "Reserved", Reserved() },
    { eId_DisplayidTimingFormula, Bits(0, 2, 0), "Timing formula", Names(gsc_aoType9Formulas) },
    WidthRow(1),
    HeightRow(3),
    RateRow(gsc_oNarrowRate),
};

bool IsFormula2(const CRecord& oTiming) { return oTiming.GetBits(0, 2, 0) == 2; }
bool IsFormula3(const CRecord& oTiming) { return oTiming.GetBits(0, 2, 0) == 3; }
bool IsOtherFormula(const CRecord& oTiming) { return !IsFormula2(oTiming) && !IsFormula3(oTiming); }
bool HasWideRate(const CRecord& oTiming) { return oTiming.GetSize() > 6; }
bool HasDeltas(const CRecord& oTiming) { return HasWideRate(oTiming) && IsFormula3(oTiming); }
bool HasNoDeltas(const CRecord& oTiming) { return HasWideRate(oTiming) && !IsFormula3(oTiming); }

// Steps of 8 pixels over 80; over 160 up to five, and the codes 6 and 7 are one and two steps under it.
long long GetHorizontalBlank(const CRecord& oTiming, unsigned int uiSteps)
{
    if (!oTiming.IsSet(0, 4))
    {
        return 80 + 8 * static_cast<long long>(uiSteps);
    }
    return uiSteps <= 5 ? 160 + 8 * static_cast<long long>(uiSteps) : 160 - 8 * static_cast<long long>(uiSteps - 5);
}

long long GetAdditionalBlankTime(const CRecord& oTiming, unsigned int uiSteps)
{
    return static_cast<long long>(uiSteps) * (oTiming.IsSet(7, 0) ? 20 : 35);
}

constexpr SRow gsc_aoType10Rows[] = {
    Y420Row(0),
    StereoRow(0),
    FractionalRateRow(0, IsFormula2),
    { eId_DisplayidTimingBaseHorizontalBlank, Bit(0, 4), "Base horizontal blank", Flag(gsc_aoBaseBlanks), IsFormula3 },
    { eId_Reserved, Bit(0, 4), "Reserved", Reserved(), IsOtherFormula },
    { eId_DisplayidTimingEarlyVerticalSync, Bit(0, 3), "Early vertical sync", Flag(), IsFormula3 },
    { eId_Reserved, Bit(0, 3), "Reserved", Reserved(), IsNot<IsFormula3> },
    { eId_DisplayidTimingFormula, Bits(0, 2, 0), "Timing formula", Names(gsc_aoType10Formulas) },
    WidthRow(1),
    HeightRow(3),
    { eId_DisplayidTimingRefreshRate, gsc_oNarrowRate, "Refresh rate", NumberFrom1("Hz"), IsNot<HasWideRate> },
    { eId_DisplayidTimingRefreshRate, gsc_oWideRate, "Refresh rate", NumberFrom1("Hz"), HasWideRate },
    { eId_DisplayidTimingAdditionalVerticalBlank, Bits(6, 7, 5), "Additional vertical blank time",
      Number("us").Computed(GetAdditionalBlankTime), HasDeltas },
    { eId_DisplayidTimingHorizontalBlanking, Bits(6, 4, 2), "Horizontal blank",
      Number("pixels").Computed(GetHorizontalBlank), HasDeltas },
    { eId_Reserved, Bits(6, 7, 2), "Reserved", Reserved(), HasNoDeltas },
    { eId_Reserved, Bits(7, 7, 1), "Reserved", Reserved() },
    { eId_DisplayidTimingMinVerticalBlankTime, Bit(7, 0), "Minimum vertical blank time", Flag(gsc_aoLeastBlankTimes) },
};

// Width, height and rate of a formula-based timing, all stored minus 1.
CMString FormulaText(const CRecord& oTiming, unsigned int uiSizeOffset, const SPlace& oRate)
{
    return ModeText({ oTiming.Get(Little16(uiSizeOffset)) + 1, oTiming.Get(Little16(uiSizeOffset + 2)) + 1, false,
                      oTiming.Get(oRate) + 1 });
}
CMString Type5Text(const CRecord& oTiming) { return FormulaText(oTiming, 2, Byte(6)); }
CMString Type9Text(const CRecord& oTiming) { return FormulaText(oTiming, 1, gsc_oNarrowRate); }
CMString Type10Text(const CRecord& oTiming)
{
    return FormulaText(oTiming, 1, HasWideRate(oTiming) ? gsc_oWideRate : gsc_oNarrowRate);
}

// ---- Type VI, DisplayID 1.3 (tag 13h): 14 bytes, or 17 with aspect ratio and size ----

constexpr unsigned int gsc_uiType6Size = 14;
constexpr unsigned int gsc_uiType6LongSize = 17;

bool HasSize(const CRecord& oTiming) { return oTiming.IsSet(2, 6); }

long long GetType6Height(const CRecord& oTiming, unsigned int uiHeight)
{
    return (uiHeight + 1LL) * (oTiming.GetBits(16, 7, 4) + 1LL);
}

using CType6 = SDetailedRows<gsc_oType6>;
constexpr SRow gsc_aoType6Rows[] = {
    CType6::msc_oClock,
    PreferredRow(2),
    { eId_DisplayidTimingSizePresent, Bit(2, 6), "Aspect ratio and size present", Flag() },
    CType6::msc_oActiveX,
    HorizontalPolarityRow(4, 7),
    { eId_Reserved, Bit(4, 6), "Reserved", Reserved() },
    CType6::msc_oActiveY,
    VerticalPolarityRow(6, 7),
    { eId_Reserved, Bit(6, 6), "Reserved", Reserved() },
    CType6::msc_oBlankX,
    CType6::msc_oFrontX,
    CType6::msc_oSyncX,
    CType6::msc_oBlankY,
    CType6::msc_oFrontY,
    ScanningRow(Bit(13, 7)),
    StereoRow(13),
    { eId_Reserved, Bit(13, 4), "Reserved", Reserved() },
    CType6::msc_oSyncY,
    { eId_DisplayidTimingAspectRatio, Byte(14), "Aspect ratio", Fraction(nullptr, 256).Times(30000), HasSize },
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
    { 0x03, 0, { eId_DisplayidType1Timing, "Type I timing", eArea_Timing, gsc_aoType1Rows, DetailedText<gsc_oType1> } },
    { 0x04,
      0,
      { eId_DisplayidType2Timing, "Type II timing", eArea_Timing, gsc_aoType2Rows, DetailedText<gsc_oType2> } },
    { 0x05, 0, { eId_DisplayidType3Timing, "Type III timing", eArea_Timing, gsc_aoType3Rows, Type3Text } },
    { 0x11, 0, { eId_DisplayidType5Timing, "Type V timing", eArea_Timing, gsc_aoType5Rows, Type5Text } },
    { 0x13,
      0,
      { eId_DisplayidType6Timing, "Type VI timing", eArea_Timing, gsc_aoType6Rows, DetailedText<gsc_oType6> } },
    { 0x22,
      0,
      { eId_DisplayidType7Timing, "Type VII timing", eArea_Timing, gsc_aoType7Rows, DetailedText<gsc_oType7> } },
    { 0x22,
      2,
      { eId_DisplayidType7Timing, "Type VII timing", eArea_Timing, gsc_aoType7Revision2Rows,
        DetailedText<gsc_oType7> } },
    { 0x24, 0, { eId_DisplayidType9Timing, "Type IX timing", eArea_Timing, gsc_aoType9Rows, Type9Text } },
    { 0x2A, 0, { eId_DisplayidType10Timing, "Type X timing", eArea_Timing, gsc_aoType10Rows, Type10Text } },
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

template <const char* (*GET_NAME)(unsigned int)>
constexpr SCodeKind Codes(EZorEdidField eId, const char* pszName)
{
    const SForm oForm = MakeForm(CMap::eKind_Name).Text([](const CRecord& /*oRecord*/, unsigned int uiCode) {
        return CodeText(uiCode, GET_NAME(uiCode));
    });
    return { { { eId, Byte(0), pszName, oForm }, { eId, Little16(0), pszName, oForm } }, GET_NAME };
}
constexpr const char* GetNoName(unsigned int /*uiCode*/) { return nullptr; }

constexpr SCodeKind gsc_aoCodeKinds[] = {
    Codes<GetDmtName>(eId_DisplayidTimingDmtId, "DMT ID"),
    Codes<GetVicName>(eId_DisplayidTimingVic, "VIC"),
    Codes<GetHdmiVicName>(eId_DisplayidTimingHdmiVic, "HDMI VIC"),
    { { { eId_DisplayidTimingCode, Byte(0), "Timing code", UnknownValue() },
        { eId_DisplayidTimingCode, Little16(0), "Timing code", UnknownValue() } },
      GetNoName },
};

// Type IV, DisplayID 1.3 (tag 6), from revision 1 on, and Type VIII, DisplayID 2.0 (tag 23h): the type of the codes
// stands in the flags. Revision 0 of Type IV has DMT only.
constexpr unsigned int gsc_uiType4Tag = 0x06;
unsigned int GetCodeType(const CRecord& oBlock)
{
    const bool bDmt = oBlock.GetByte(0) == gsc_uiType4Tag && IsRevision0(oBlock);
    return bDmt ? 0 : oBlock.GetBits(gsc_uiDataBlockFlagsOffset, 7, 6);
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
    MapCodes(oWriter, oBlock, uiOffset, oBlock.IsSet(gsc_uiDataBlockFlagsOffset, 3) ? 2 : 1);
}

constexpr SRow gsc_aoType4FlagRows[] = {
    { eId_DisplayidTimingBlockCodeType, Bits(1, 7, 6), "Timing code type", Names(gsc_aoCodeTypes), IsRevision1Plus },
    { eId_Reserved, Bits(1, 7, 6), "Reserved", Reserved(), IsRevision0 },
    { eId_Reserved, Bits(1, 5, 3), "Reserved", Reserved() },
};
constexpr STable gsc_oType4Flags = { eId_DisplayidTimingBlock, "Flags", eArea_Timing, gsc_aoType4FlagRows };

constexpr SRow gsc_aoType8FlagRows[] = {
    { eId_DisplayidTimingBlockCodeType, Bits(1, 7, 6), "Timing code type", Names(gsc_aoCodeTypes) },
    { eId_DisplayidTimingBlockYcbcr420, Bit(1, 5), "YCbCr 4:2:0 supported", Flag(), IsRevision1Plus },
    { eId_Reserved, Bit(1, 5), "Reserved", Reserved(), IsRevision0 },
    { eId_Reserved, Bit(1, 4), "Reserved", Reserved() },
    { eId_DisplayidTimingBlockCodeSize, Bit(1, 3), "Timing code size", Flag(gsc_aoCodeSizes) },
};
constexpr STable gsc_oType8Flags = { eId_DisplayidTimingBlock, "Flags", eArea_Timing, gsc_aoType8FlagRows };

// DisplayID 1.3 (tags 7 and 8): a bit a mode, from mode 1 on. A field has the name of its mode.
constexpr auto gsc_aoModeBits = BitRows(eId_DisplayidTimingMode, "Mode", Flag(gsc_aoSupported));

void MapModeBits(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset,
                 const char* (*pfnName)(unsigned int))
{
    for (unsigned int i = 0; i < GetPayloadLength(oBlock) * gsc_uiBits; ++i)
    {
        if (const char* pszName = pfnName(i + 1))
        {
            const unsigned int uiField = oWriter.AddLeaf(gsc_aoModeBits[i % gsc_uiBits], eArea_Timing,
                                                         uiOffset + gsc_uiPayloadOffset + i / gsc_uiBits, 1);
            oWriter.SetName(uiField, pszName);
        }
    }
}
void MapDmtBits(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapModeBits(oWriter, oBlock, uiOffset, GetDmtName);
}
void MapVicBits(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    MapModeBits(oWriter, oBlock, uiOffset, GetVicName);
}

// ---- Data blocks ----

unsigned int GetRecordSize(const CRecord& oBlock, unsigned int uiLeast)
{
    return uiLeast + oBlock.GetBits(gsc_uiDataBlockFlagsOffset, 6, 4); // the flags are reserved where none are extra
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
        uiSize = oBlock.IsSet(uiAt + 2, 6) ? gsc_uiType6LongSize : gsc_uiType6Size;
        if (uiSize > oBlock.GetSize() - uiAt)
        {
            NoteBlock(oWriter, oBlock, uiOffset, CMap::eSeverity_Error, gsc_szNotWholeItems);
            return;
        }
        MapDisplayIdTiming(oWriter, oBlock.GetByte(0), 0, uiOffset + uiAt, uiSize);
    }
}

constexpr SRow gsc_aoType10FlagRows[] = {
    { eId_Reserved, Bit(1, 7), "Reserved", Reserved() },
    { eId_DisplayidTimingBlockExtraBytes, Bits(1, 6, 4), "Extra bytes of each timing", Number("bytes"), nullptr,
      CheckWithin<0, 2> },
    { eId_Reserved, Bit(1, 3), "Reserved", Reserved() },
};
constexpr STable gsc_oType10Flags = { eId_DisplayidTimingBlock, "Flags", eArea_Structure, gsc_aoType10FlagRows };

constexpr SRow gsc_aoType7FlagRows[] = {
    { eId_Reserved, Bit(1, 7), "Reserved", Reserved() },
    { eId_DisplayidTimingBlockExtraBytes, Bits(1, 6, 4), "Extra bytes of each timing", Number("bytes") },
    { eId_DisplayidTimingBlockDscPassThrough, Bit(1, 3), "DSC pass-through timings", Flag(), IsRevision1Plus },
    { eId_Reserved, Bit(1, 3), "Reserved", Reserved(), IsRevision0 },
};
constexpr STable gsc_oType7Flags = { eId_DisplayidTimingBlock, "Flags", eArea_Timing, gsc_aoType7FlagRows };

// clang-format off
constexpr SDisplayIdBlock gsc_aoBlocks1[] = {
    { 0x03, Group(eId_DisplayidType1, "Type I timing - detailed data block", eArea_Timing), ItemsOf(20), nullptr, {}, MapTimingsOf<20> },
    { 0x04, Group(eId_DisplayidType2, "Type II timing - detailed data block", eArea_Timing), ItemsOf(11), nullptr, {}, MapTimingsOf<11> },
    { 0x05, Group(eId_DisplayidType3, "Type III timing - short data block", eArea_Timing), ItemsOf(3), nullptr, {}, MapTimingsOf<3> },
    { 0x06, Group(eId_DisplayidType4, "Type IV timing - DMT ID code data block", eArea_Timing), ItemsOf(1), &gsc_oType4Flags, {}, MapType4 },
    { 0x07, Group(eId_DisplayidDmtModes, "VESA timing standard data block", eArea_Timing), Exactly(10), nullptr, {}, MapDmtBits },
    { 0x08, Group(eId_DisplayidVicModes, "CEA timing standard data block", eArea_Timing), Exactly(8), nullptr, {}, MapVicBits },
    { 0x11, Group(eId_DisplayidType5, "Type V timing - short data block", eArea_Timing), ItemsOf(7), nullptr, {}, MapTimingsOf<7> },
    { 0x13, Group(eId_DisplayidType6, "Type VI timing - detailed data block", eArea_Timing),
      AtLeast(gsc_uiType6Size), nullptr, {}, MapType6 },
};

constexpr SDisplayIdBlock gsc_aoBlocks2[] = {
    { 0x22, Group(eId_DisplayidType7, "Type VII timing - detailed data block", eArea_Timing),
      ItemsWithExtraBytes(20), &gsc_oType7Flags, {}, MapExtendedTimings<20> },
    { 0x23, Group(eId_DisplayidType8, "Type VIII timing - enumerated timing code data block", eArea_Timing),
      ItemsWithExtraBytes(1, 3, 3), &gsc_oType8Flags, {}, MapType8 },
    { 0x24, Group(eId_DisplayidType9, "Type IX timing - formula-based data block", eArea_Timing), ItemsOf(6), nullptr, {}, MapTimingsOf<6> },
    { 0x2A, Group(eId_DisplayidType10, "Type X timing - formula-based data block", eArea_Timing),
      ItemsWithExtraBytes(6), &gsc_oType10Flags, {}, MapExtendedTimings<6> },
};
// clang-format on
} // namespace

constinit const std::span<const SDisplayIdBlock> g_aoDisplayId1TimingBlocks = gsc_aoBlocks1;
constinit const std::span<const SDisplayIdBlock> g_aoDisplayId2TimingBlocks = gsc_aoBlocks2;

void MapTimingCode(CMapWriter& oWriter, unsigned int uiType, unsigned int uiOffset, unsigned int uiLength)
{
    const SCodeKind& oKind = gsc_aoCodeKinds[uiType & 3U];
    const SRow& oRow = oKind.m_aoRows[uiLength > 1 ? 1 : 0];
    const unsigned int uiCode = oWriter.GetRecord(uiOffset, uiLength).Get(oRow.m_oPlace);
    oWriter.SetMeaning(oWriter.AddLeaf(oRow, eArea_Timing, uiOffset, uiLength), oKind.m_pfnName(uiCode));
}

void MapDisplayIdTiming(CMapWriter& oWriter, unsigned int uiTag, unsigned int uiRevision, unsigned int uiOffset,
                        unsigned int uiLength)
{
    if (const STable* poTable = FindTimingTable(uiTag, uiRevision))
    {
        oWriter.AddRecord(*poTable, uiOffset, uiLength);
    }
}
} // namespace ZorMap
