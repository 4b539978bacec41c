// Formulas of timings in whole numbers. Periods are fractions of the rate n/d Hz, multiplied out; lines of a field are
// counted in halves, so that interlaced fields are whole.

#include "Formulas.h"

#include <algorithm>
#include <numeric>

namespace ZorStandards
{
namespace
{
// No product overflows: sizes have up to 17 bits, lines in halves 19, dividends 44, what else is multiplied less than
// 40 in all.
__extension__ using CWide = unsigned __int128;
__extension__ using CSigned = __int128;

constexpr unsigned int gsc_uiMicroseconds = 1000000; // of a second
constexpr unsigned int gsc_uiHzPerMegaHz = 1000000;
constexpr unsigned int gsc_uiCell = gsc_uiFormulaCell;   // pixels
constexpr unsigned int gsc_uiBlankUnit = 2 * gsc_uiCell; // half of the blanking is whole cells

constexpr CWide Up(CWide uiDividend, CWide uiDivisor) { return (uiDividend + uiDivisor - 1) / uiDivisor; }
constexpr CWide Nearest(CWide uiDividend, CWide uiDivisor) { return (2 * uiDividend + uiDivisor) / (2 * uiDivisor); }
constexpr unsigned int DownTo(unsigned int uiValue, unsigned int uiStep) { return uiValue / uiStep * uiStep; }
constexpr unsigned int UpTo(unsigned int uiValue, unsigned int uiStep) { return DownTo(uiValue + uiStep - 1, uiStep); }

// What is asked for, in range.
struct SAsked
{
    unsigned int m_uiWidth;
    unsigned int m_uiLines; // of a field
    unsigned int m_uiHalf;  // the half line with which a field ends: 1 of interlaced modes
    unsigned long long m_ullDividend;
    unsigned long long m_ullDivisor;

    // The field period less a time in microseconds, in units of 1 / m_ullDividend microseconds.
    unsigned long long GetPeriodLess(unsigned int uiTime) const
    {
        return gsc_uiMicroseconds * m_ullDivisor - uiTime * m_ullDividend; // positive up to 1000 Hz
    }
};

bool Ask(const SZorMode& oMode, SAsked& oAsked)
{
    const SZorMode::SRate& oRate = oMode.m_oNominalRate;
    if (oMode.m_uiWidth - 1 >= gsc_uiMostFormulaSize || oMode.m_uiHeight - 1 >= gsc_uiMostFormulaSize ||
        (oMode.m_bInterlaced && oMode.m_uiHeight % 2 != 0) || oRate.m_ullDivisor == 0)
    {
        return false; // 0 - 1 wraps
    }
    const unsigned long long ullCommon = std::gcd(oRate.m_ullDividend, oRate.m_ullDivisor);
    oAsked.m_ullDividend = oRate.m_ullDividend / ullCommon;
    oAsked.m_ullDivisor = oRate.m_ullDivisor / ullCommon;
    oAsked.m_uiWidth = oMode.m_uiWidth;
    oAsked.m_uiHalf = oMode.m_bInterlaced ? 1 : 0;
    oAsked.m_uiLines = oMode.m_uiHeight / (oMode.m_bInterlaced ? 2 : 1);
    return oAsked.m_ullDivisor != 0 && oAsked.m_ullDivisor <= gsc_ullMostFormulaDivisor &&
           oAsked.m_ullDividend >= oAsked.m_ullDivisor &&
           oAsked.m_ullDividend <= gsc_uiMostFormulaRate * oAsked.m_ullDivisor;
}

// The parts of a line in pixels, or of a field in lines. A part that does not fit is negative.
struct SParts
{
    long long m_llActive;
    long long m_llFront;
    long long m_llSync;
    long long m_llBack;

    bool Fit() const { return m_llActive > 0 && m_llFront >= 0 && m_llSync > 0 && m_llBack >= 0; }
    unsigned int GetTotal() const { return static_cast<unsigned int>(m_llActive + m_llFront + m_llSync + m_llBack); }
};

struct SResult
{
    SParts m_oLine;
    SParts m_oField;
    unsigned long long m_ullClock; // Hz
    bool m_bHorizontalPositive;
    bool m_bVerticalPositive;
};

SZorMode::SAxis MakeAxis(const SParts& oParts, unsigned int uiActive, unsigned int uiTotal, bool bPositive)
{
    return {
        uiActive, static_cast<unsigned int>(oParts.m_llFront), static_cast<unsigned int>(oParts.m_llSync), uiTotal, 0,
        bPositive
    };
}

// Where the parts fit.
bool SetNumbers(SZorMode& oMode, const SResult& oResult)
{
    if (!oResult.m_oLine.Fit() || !oResult.m_oField.Fit() || oResult.m_ullClock == 0)
    {
        return false;
    }
    const unsigned int uiFields = oMode.m_bInterlaced ? 2 : 1;
    const unsigned int uiTotal = uiFields * oResult.m_oField.GetTotal() + (oMode.m_bInterlaced ? 1 : 0);
    oMode.m_bTiming = true;
    oMode.m_ullClock = oResult.m_ullClock;
    oMode.m_oHorizontal =
        MakeAxis(oResult.m_oLine, oMode.m_uiWidth, oResult.m_oLine.GetTotal(), oResult.m_bHorizontalPositive);
    oMode.m_oVertical = MakeAxis(oResult.m_oField, oMode.m_uiHeight, uiTotal, oResult.m_bVerticalPositive);
    oMode.m_oRate = { uiFields * oMode.m_ullClock, 1ULL * oMode.m_oHorizontal.m_uiTotal * uiTotal };
    return true;
}

// Both halves of the blanking are whole cells; the sync pulse ends in its middle.
SParts MakeCenteredLine(unsigned int uiActive, unsigned int uiBlank, unsigned int uiSync)
{
    return { uiActive, uiBlank / 2LL - uiSync, uiSync, uiBlank / 2 };
}

// ---- GTF ----

constexpr unsigned int gsc_uiMinSyncAndBackTime = 550; // microseconds; of CVT's standard blanking as well
constexpr unsigned int gsc_uiSyncPercent = 8;          // of the total line; of CVT's standard blanking as well
constexpr unsigned int gsc_uiGtfFront = 1;             // lines
constexpr unsigned int gsc_uiGtfSync = 3;

// Ideal blanking, C' - M' * period of a line, as a share of a line: uiDividend / uiDivisor. False below 0 or at a whole
// line.
bool GetGtfShare(const SAsked& oAsked, const SGtfCurve& oCurve, unsigned int uiTotalHalves, CWide& uiDividend,
                 CWide& uiDivisor)
{
    constexpr int iScale = 256; // of K
    const CSigned iOffset =
        (CSigned{ oCurve.m_uiTwiceC } - oCurve.m_uiTwiceJ) * oCurve.m_uiK + CSigned{ iScale } * oCurve.m_uiTwiceJ;
    const CSigned iRate = static_cast<CSigned>(oAsked.m_ullDividend) * uiTotalHalves; // line rate times 2 d
    // M percent per kHz of the line rate; C' is in 512ths of a percent.
    const CSigned iPart = iOffset * iRate - CSigned{ 4000 } * oCurve.m_uiK * oCurve.m_uiM * oAsked.m_ullDivisor;
    const CSigned iWhole = CSigned{ 100 * 2 * iScale } * iRate;
    uiDividend = static_cast<CWide>(iPart);
    uiDivisor = static_cast<CWide>(iWhole);
    return iPart >= 0 && iPart < iWhole;
}

bool IsDefault(const SGtfCurve& oCurve)
{
    return oCurve.m_uiTwiceC == gsc_oDefaultCurve.m_uiTwiceC && oCurve.m_uiM == gsc_oDefaultCurve.m_uiM &&
           oCurve.m_uiK == gsc_oDefaultCurve.m_uiK && oCurve.m_uiTwiceJ == gsc_oDefaultCurve.m_uiTwiceJ;
}

// ---- CVT ----

constexpr unsigned int gsc_uiCvtStep = 250000;  // Hz
constexpr unsigned int gsc_uiFineStep = 1000;   // Hz
constexpr unsigned int gsc_uiCvtFront = 3;      // lines; the least of version 2 and 3 is 1
constexpr unsigned int gsc_uiMinCvtBack = 7;    // lines; CVT 1.1 had 6
constexpr unsigned int gsc_uiNewBack = 6;       // lines, of versions 2 and 3
constexpr unsigned int gsc_uiReducedSync = 32;  // pixels
constexpr unsigned int gsc_uiReducedTime = 460; // microseconds of vertical blanking at least
constexpr unsigned int gsc_uiNewSync = 8;       // lines of the sync pulse, of versions 2 and 3
constexpr unsigned int gsc_uiNewFront = 8;      // pixels, of versions 2 and 3

// Lines of the sync pulse name the aspect ratio: a width is of a ratio where lines times it, down to a cell, make it.
unsigned int GetAspectSync(unsigned int uiWidth, unsigned int uiHeight)
{
    struct SAspect
    {
        unsigned int m_uiWidth;
        unsigned int m_uiHeight;
        unsigned int m_uiSync;
    };
    constexpr SAspect aoAspects[] = { { 4, 3, 4 }, { 16, 9, 5 }, { 16, 10, 6 }, { 5, 4, 7 }, { 15, 9, 7 } };
    constexpr unsigned int uiOther = 10;
    for (const SAspect& oAspect : aoAspects)
    {
        if (DownTo(uiHeight * oAspect.m_uiWidth / oAspect.m_uiHeight, gsc_uiCell) == uiWidth)
        {
            return oAspect.m_uiSync;
        }
    }
    return uiOther;
}

// Pixels of standard blanking. The ideal share of a line is 30 % less 300 times its period, and 20 % at least.
// uiHalves: half lines in the period that is left.
unsigned int GetStandardBlank(const SAsked& oAsked, unsigned int uiActive, unsigned int uiHalves,
                              unsigned long long ullPeriod)
{
    const CWide uiHalfRate = CWide{ oAsked.m_ullDividend } * uiHalves;
    CWide uiPart = 1;
    CWide uiWhole = 5;
    if (50 * uiHalfRate > 3 * CWide{ ullPeriod }) // above 20 %, in 500ths of uiHalfRate
    {
        uiPart = 150 * uiHalfRate - 3 * CWide{ ullPeriod };
        uiWhole = 500 * uiHalfRate;
    }
    return static_cast<unsigned int>(uiActive * uiPart / (gsc_uiBlankUnit * (uiWhole - uiPart))) * gsc_uiBlankUnit;
}

// One version of reduced blanking.
struct SReduced
{
    unsigned int m_uiFront; // pixels
    unsigned int m_uiBlank;
    unsigned int m_uiTime;     // microseconds of vertical blanking at least
    unsigned int m_uiMinFront; // lines
    unsigned int m_uiSync;     // lines; 0: of the aspect ratio
    unsigned int m_uiStep;     // Hz, of the clock
    bool m_bUp;                // whether the clock is rounded up
    bool m_bVideo;             // 1000/1001 of the clock
    bool m_bEarlySync;
};

// Version 1 has a fixed front porch and a back porch that takes the rest; the later ones the other way round, or half
// of the lines that the time asks for after the pulse.
SParts MakeReducedField(const SAsked& oAsked, const SReduced& oVersion, unsigned int uiSync)
{
    const unsigned int uiLines = static_cast<unsigned int>(CWide{ oVersion.m_uiTime } * oAsked.m_ullDividend *
                                                           oAsked.m_uiLines / oAsked.GetPeriodLess(oVersion.m_uiTime)) +
                                 1;
    const unsigned int uiMinBack = oVersion.m_uiSync == 0 ? gsc_uiMinCvtBack : gsc_uiNewBack;
    const unsigned int uiBlank = std::max(uiLines, oVersion.m_uiMinFront + uiSync + uiMinBack);
    const unsigned int uiBack = oVersion.m_uiSync == 0  ? uiBlank - uiSync - oVersion.m_uiMinFront
                                : oVersion.m_bEarlySync ? uiLines / 2
                                                        : gsc_uiNewBack;
    return { oAsked.m_uiLines, 1LL * uiBlank - uiSync - uiBack, uiSync, uiBack };
}

bool ComputeReduced(SZorMode& oMode, const SReduced& oVersion)
{
    SAsked oAsked;
    if (!Ask(oMode, oAsked))
    {
        return false;
    }
    const unsigned int uiSync =
        oVersion.m_uiSync != 0 ? oVersion.m_uiSync : GetAspectSync(oAsked.m_uiWidth, oMode.m_uiHeight);

    SResult oResult;
    oResult.m_oLine = { oAsked.m_uiWidth, oVersion.m_uiFront, gsc_uiReducedSync,
                        1LL * oVersion.m_uiBlank - oVersion.m_uiFront - gsc_uiReducedSync };
    oResult.m_oField = MakeReducedField(oAsked, oVersion, uiSync);
    const CWide uiPixels =
        CWide{ oResult.m_oLine.GetTotal() } * (2 * oResult.m_oField.GetTotal() + oAsked.m_uiHalf); // of two fields
    const CWide uiDividend = uiPixels * oAsked.m_ullDividend * (oVersion.m_bVideo ? 1000 : 1);
    const CWide uiDivisor = CWide{ 2 } * oAsked.m_ullDivisor * oVersion.m_uiStep * (oVersion.m_bVideo ? 1001 : 1);
    const CWide uiSteps = oVersion.m_bUp ? Up(uiDividend, uiDivisor) : uiDividend / uiDivisor;
    oResult.m_ullClock = static_cast<unsigned long long>(uiSteps * oVersion.m_uiStep);
    oResult.m_bHorizontalPositive = true;
    oResult.m_bVerticalPositive = false;
    return SetNumbers(oMode, oResult);
}

bool ComputeStandard(SZorMode& oMode)
{
    SAsked oAsked;
    if (!Ask(oMode, oAsked))
    {
        return false;
    }
    const unsigned int uiSyncLines = GetAspectSync(oAsked.m_uiWidth, oMode.m_uiHeight);
    const unsigned int uiHalves = 2 * (oAsked.m_uiLines + gsc_uiCvtFront) + oAsked.m_uiHalf;
    const unsigned long long ullPeriod = oAsked.GetPeriodLess(gsc_uiMinSyncAndBackTime);
    const unsigned int uiSyncAndBack =
        std::max(static_cast<unsigned int>(CWide{ gsc_uiMinSyncAndBackTime } * oAsked.m_ullDividend * uiHalves /
                                           (CWide{ 2 } * ullPeriod)) +
                     1,
                 uiSyncLines + gsc_uiMinCvtBack);
    const unsigned int uiBlank = GetStandardBlank(oAsked, oAsked.m_uiWidth, uiHalves, ullPeriod);
    const unsigned int uiTotal = oAsked.m_uiWidth + uiBlank;

    SResult oResult;
    oResult.m_oLine =
        MakeCenteredLine(oAsked.m_uiWidth, uiBlank, DownTo(gsc_uiSyncPercent * uiTotal / 100, gsc_uiCell));
    oResult.m_oField = { oAsked.m_uiLines, gsc_uiCvtFront, uiSyncLines, 1LL * uiSyncAndBack - uiSyncLines };
    // By the estimated period of a line, not by the lines that there are.
    const CWide uiSteps = CWide{ uiTotal } * oAsked.m_ullDividend * uiHalves * (gsc_uiHzPerMegaHz / gsc_uiCvtStep) /
                          (CWide{ 2 } * ullPeriod);
    oResult.m_ullClock = static_cast<unsigned long long>(uiSteps * gsc_uiCvtStep);
    oResult.m_bHorizontalPositive = false;
    oResult.m_bVerticalPositive = true;
    return SetNumbers(oMode, oResult);
}

// ---- OVT ----

// Rates that share one clock: the ones of a group have the line of its highest one, and more lines.
struct SOvtGroup
{
    unsigned int m_uiHighest; // Hz
    unsigned int m_uiLines;   // the lines of the highest rate are a multiple of this, so that all are whole
};

SOvtGroup GetOvtGroup(unsigned int uiRate)
{
    switch (uiRate)
    {
    case 24:
    case 25:
    case 30:
        return { 30, 20 };
    case 48:
    case 50:
    case 60:
        return { 60, 20 };
    case 100:
    case 120:
        return { 120, 5 };
    case 200:
    case 240:
        return { 240, 5 };
    case 300:
    case 360:
        return { 360, 5 };
    case 400:
    case 480:
        return { 480, 5 };
    default:
        return { uiRate, 1 };
    }
}

struct SOvtTotals
{
    unsigned int m_uiWidth;
    unsigned int m_uiHeight;

    unsigned long long GetPixels() const { return 1ULL * m_uiWidth * m_uiHeight; }
};

// The totals of the fewest pixels that make a clock of whole kHz. Their product needs the factor uiKilo: each
// divisor of it is tried as a factor of the lines, with the rest as one of the pixels of a line.
SOvtTotals FindOvtTotals(const SOvtTotals& oLeast, const SOvtGroup& oGroup)
{
    constexpr unsigned int uiHzPerKiloHz = 1000;
    const unsigned int uiKilo = uiHzPerKiloHz / std::gcd(uiHzPerKiloHz, oGroup.m_uiHighest);
    SOvtTotals oBest = {};
    for (unsigned int uiTwos = 1; uiTwos <= 8; uiTwos *= 2)
    {
        for (unsigned int uiFactor = uiTwos; uiFactor <= uiKilo; uiFactor *= 5)
        {
            if (uiKilo % uiFactor != 0)
            {
                continue;
            }
            const SOvtTotals oTotals = { UpTo(oLeast.m_uiWidth, std::lcm(gsc_uiCell, uiKilo / uiFactor)),
                                         UpTo(oLeast.m_uiHeight, std::lcm(oGroup.m_uiLines, uiFactor)) };
            const bool bFewer = oTotals.GetPixels() < oBest.GetPixels() ||
                                (oTotals.GetPixels() == oBest.GetPixels() && oTotals.m_uiHeight < oBest.m_uiHeight);
            oBest = bFewer || oBest.m_uiWidth == 0 ? oTotals : oBest;
        }
    }
    return oBest;
}

// Of the highest rate of the group.
SOvtTotals ComputeOvtTotals(unsigned int uiWidth, unsigned int uiHeight, const SOvtGroup& oGroup)
{
    constexpr unsigned int uiAudioPackets = 195000;        // a second
    constexpr unsigned int uiPacket = 32;                  // pixels
    constexpr unsigned long long ullFastClock = 590000000; // Hz; lines above it have room for each packet twice

    const unsigned int uiBlank =
        static_cast<unsigned int>(Up(CWide{ gsc_uiReducedTime } * uiHeight * oGroup.m_uiHighest,
                                     gsc_uiMicroseconds - gsc_uiReducedTime * oGroup.m_uiHighest));
    const unsigned int uiLines = UpTo(uiHeight + uiBlank, oGroup.m_uiLines);
    const unsigned int uiPackets = static_cast<unsigned int>(Up(uiAudioPackets, CWide{ uiLines } * oGroup.m_uiHighest));
    const unsigned int uiLeast = uiPacket * (1 + uiPackets);
    const SOvtTotals oTotals = FindOvtTotals({ uiWidth + std::max(80U, uiLeast), uiLines }, oGroup);
    return oTotals.GetPixels() * oGroup.m_uiHighest > ullFastClock
               ? FindOvtTotals({ uiWidth + 2 * uiLeast, uiLines }, oGroup)
               : oTotals;
}
} // namespace

bool ComputeGtf(SZorMode& oMode, const SGtfCurve& oCurve)
{
    SAsked oAsked;
    if (!Ask(oMode, oAsked))
    {
        return false;
    }
    const unsigned int uiHalves = 2 * (oAsked.m_uiLines + gsc_uiGtfFront) + oAsked.m_uiHalf;
    const unsigned int uiSyncAndBack =
        static_cast<unsigned int>(Nearest(CWide{ gsc_uiMinSyncAndBackTime } * oAsked.m_ullDividend * uiHalves,
                                          CWide{ 2 } * oAsked.GetPeriodLess(gsc_uiMinSyncAndBackTime)));
    const unsigned int uiTotalHalves = uiHalves + 2 * uiSyncAndBack;

    CWide uiPart = 0;
    CWide uiWhole = 0;
    if (!GetGtfShare(oAsked, oCurve, uiTotalHalves, uiPart, uiWhole))
    {
        return false;
    }
    const CWide uiBlank = Nearest(oAsked.m_uiWidth * uiPart, gsc_uiBlankUnit * (uiWhole - uiPart)) * gsc_uiBlankUnit;
    if (uiBlank > gsc_uiMostFormulaSize)
    {
        return false;
    }
    const unsigned int uiTotal = oAsked.m_uiWidth + static_cast<unsigned int>(uiBlank);
    const unsigned int uiSync =
        static_cast<unsigned int>(Nearest(gsc_uiSyncPercent * uiTotal, 100 * gsc_uiCell)) * gsc_uiCell;

    SResult oResult;
    oResult.m_oLine = MakeCenteredLine(oAsked.m_uiWidth, static_cast<unsigned int>(uiBlank), uiSync);
    oResult.m_oField = { oAsked.m_uiLines, gsc_uiGtfFront, gsc_uiGtfSync, 1LL * uiSyncAndBack - gsc_uiGtfSync };
    oResult.m_ullClock = static_cast<unsigned long long>(
        Nearest(CWide{ uiTotal } * uiTotalHalves * oAsked.m_ullDividend, CWide{ 2 } * oAsked.m_ullDivisor));
    oResult.m_bVerticalPositive = IsDefault(oCurve);
    oResult.m_bHorizontalPositive = !oResult.m_bVerticalPositive;
    return SetNumbers(oMode, oResult);
}

bool ComputeCvt(SZorMode& oMode, const SReducedBlanking& oReduced)
{
    constexpr SReduced oVersion1 = {
        48, 160, gsc_uiReducedTime, gsc_uiCvtFront, 0, gsc_uiCvtStep, false, false, false
    };
    SReduced oVersion = { gsc_uiNewFront, 80,    gsc_uiReducedTime, 1,    gsc_uiNewSync,
                          gsc_uiFineStep, false, oReduced.m_bVideo, false };
    switch (oMode.m_eBlanking)
    {
    case SZorMode::eBlanking_Standard:
        return ComputeStandard(oMode);
    case SZorMode::eBlanking_Reduced1:
        return ComputeReduced(oMode, oVersion1);
    case SZorMode::eBlanking_Reduced2:
        return ComputeReduced(oMode, oVersion);
    case SZorMode::eBlanking_Reduced3:
        oVersion.m_uiBlank = oReduced.m_uiHorizontalBlank;
        oVersion.m_uiTime = oReduced.m_uiVerticalBlankInUs;
        oVersion.m_bUp = true;
        oVersion.m_bVideo = false;
        oVersion.m_bEarlySync = oReduced.m_bEarlySync;
        return oVersion.m_uiBlank >= 80 && oVersion.m_uiBlank <= 200 && oVersion.m_uiTime < 1000 &&
               ComputeReduced(oMode, oVersion);
    default:
        return false;
    }
}

bool ComputeOvt(SZorMode& oMode)
{
    constexpr unsigned int uiLeadTime = 400; // microseconds from the start of the pulse to the picture
    SAsked oAsked;
    if (oMode.m_bInterlaced || !Ask(oMode, oAsked) || oAsked.m_uiWidth % gsc_uiCell != 0)
    {
        return false;
    }
    const bool bFraction = oAsked.m_ullDivisor != 1;
    const CWide uiNumber = CWide{ oAsked.m_ullDividend } * (bFraction ? 1001 : 1);
    const CWide uiUnit = CWide{ oAsked.m_ullDivisor } * (bFraction ? 1000 : 1);
    const unsigned int uiRate = static_cast<unsigned int>(uiNumber / uiUnit);
    if (uiRate > gsc_uiMostFormulaRate || uiRate * uiUnit != uiNumber || uiRate == 0)
    {
        return false;
    }
    const SOvtGroup oGroup = GetOvtGroup(uiRate);
    const SOvtTotals oTotals = ComputeOvtTotals(oAsked.m_uiWidth, oAsked.m_uiLines, oGroup);
    const unsigned long long ullLineRate = 1ULL * oGroup.m_uiHighest * oTotals.m_uiHeight;
    const unsigned int uiLines = static_cast<unsigned int>(ullLineRate / uiRate);
    const long long llBack =
        static_cast<long long>(Up(CWide{ uiLeadTime } * ullLineRate, gsc_uiMicroseconds)) - gsc_uiNewSync;
    const unsigned long long ullClock = oTotals.m_uiWidth * ullLineRate;

    SResult oResult;
    oResult.m_oLine = { oAsked.m_uiWidth, 1LL * oTotals.m_uiWidth - oAsked.m_uiWidth - 2 * gsc_uiReducedSync,
                        gsc_uiReducedSync, gsc_uiReducedSync };
    oResult.m_oField = { oAsked.m_uiLines, 1LL * uiLines - oAsked.m_uiLines - gsc_uiNewSync - llBack, gsc_uiNewSync,
                         llBack };
    oResult.m_ullClock =
        bFraction ? static_cast<unsigned long long>(Nearest(CWide{ ullClock } * 1000, 1001)) : ullClock;
    oResult.m_bHorizontalPositive = true;
    oResult.m_bVerticalPositive = true;
    return SetNumbers(oMode, oResult);
}
} // namespace ZorStandards
