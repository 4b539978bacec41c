#include "Formulas.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace ZorStandards
{
namespace
{
using CWide = unsigned long long;
__extension__ using CVeryWide = __int128;

constexpr CWide gsc_ullUsPerSecond = 1000000;

// What the formulas are asked: a rate of m_ullRate / m_ullPer fields a second.
struct SQuestion
{
    CWide m_ullWidth;
    CWide m_ullLines; // of a field
    CWide m_ullRate;
    CWide m_ullPer;
    CWide m_ullInterlace; // 1: half a line more

    // Half lines of a field, the blanking lines included.
    CWide GetHalfLines(CWide ullBlankLines) const { return 2 * (m_ullLines + ullBlankLines) + m_ullInterlace; }
    // What is left of a field after a time in microseconds, in units of 1 / m_ullRate of them; 0 for nothing.
    CWide GetTimeLeft(CWide ullUs) const
    {
        const CWide ullField = gsc_ullUsPerSecond * m_ullPer;
        return ullUs * m_ullRate < ullField ? ullField - ullUs * m_ullRate : 0;
    }
};

bool Ask(const SZorMode& oMode, SQuestion& oQuestion)
{
    SZorMode::SRate oRate = oMode.m_oNominalRate;
    const CWide ullDivisor = std::gcd(oRate.m_ullDividend, oRate.m_ullDivisor);
    if (oRate.m_ullDividend == 0 || oRate.m_ullDivisor == 0)
    {
        return false;
    }
    oRate = { oRate.m_ullDividend / ullDivisor, oRate.m_ullDivisor / ullDivisor };
    const bool bSize =
        oMode.m_uiWidth - 1 < gsc_uiMostFormulaSize && oMode.m_uiHeight - 1 < gsc_uiMostFormulaSize; // wraps at 0
    if (!bSize || oRate.m_ullDividend > gsc_uiMostFormulaDividend || oRate.m_ullDivisor > oRate.m_ullDividend ||
        oRate.m_ullDividend / oRate.m_ullDivisor > gsc_uiMostFormulaRate)
    {
        return false;
    }
    const CWide ullLines = oMode.m_uiHeight / (oMode.m_bInterlaced ? 2 : 1);
    oQuestion = { oMode.m_uiWidth, ullLines, oRate.m_ullDividend, oRate.m_ullDivisor, oMode.m_bInterlaced ? 1ULL : 0 };
    return true;
}

CWide RoundedQuotient(CWide ullDividend, CWide ullDivisor) { return (2 * ullDividend + ullDivisor) / (2 * ullDivisor); }

// Pixels or lines, in the order in which they are sent after the active ones.
struct SBlanking
{
    CWide m_ullFront;
    CWide m_ullSync;
    CWide m_ullBack;
    bool m_bPositive;

    CWide GetSum() const { return m_ullFront + m_ullSync + m_ullBack; }
};

unsigned int Narrow(CWide ullValue) { return static_cast<unsigned int>(ullValue); }

void SetNumbers(SZorMode& oMode, CWide ullClock, const SBlanking& oAcross, const SBlanking& oDown)
{
    const CWide ullTotal = oMode.m_uiWidth + oAcross.GetSum();
    const unsigned int uiFields = oMode.m_bInterlaced ? 2 : 1;
    const CWide ullLines = oMode.m_uiHeight + uiFields * oDown.GetSum() + (oMode.m_bInterlaced ? 1 : 0);
    oMode.m_bTiming = true;
    oMode.m_ullClock = ullClock;
    oMode.m_oRate = { uiFields * ullClock, ullTotal * ullLines };
    oMode.m_oHorizontal = {
        oMode.m_uiWidth, Narrow(oAcross.m_ullFront), Narrow(oAcross.m_ullSync), Narrow(ullTotal), 0, oAcross.m_bPositive
    };
    oMode.m_oVertical = { oMode.m_uiHeight, Narrow(oDown.m_ullFront), Narrow(oDown.m_ullSync), Narrow(ullLines), 0,
                          oDown.m_bPositive };
}

// ---- What GTF and standard CVT share ----

constexpr CWide gsc_ullCell = 8;          // pixels; half the blanking consists of whole cells
constexpr CWide gsc_ullSyncAndBack = 550; // microseconds, of the vertical sync pulse and back porch

// The sync pulse ends in the middle of the blanking. The caller has made sure that it is not longer than half of it.
SBlanking CenterSync(CWide ullBlank, CWide ullSync, bool bPositive)
{
    return { ullBlank / 2 - ullSync, ullSync, ullBlank / 2, bPositive };
}
} // namespace

// ---- GTF 1.1 ----

bool ComputeGtf(SZorMode& oMode, const SGtfCurve& oCurve)
{
    constexpr CWide ullFront = 1;
    constexpr CWide ullSync = 3;
    SQuestion oAsked = {};
    if (!Ask(oMode, oAsked))
    {
        return false;
    }
    const CWide ullLeft = oAsked.GetTimeLeft(gsc_ullSyncAndBack);
    if (ullLeft == 0)
    {
        return false;
    }
    const CWide ullSyncAndBack =
        RoundedQuotient(gsc_ullSyncAndBack * oAsked.GetHalfLines(ullFront) * oAsked.m_ullRate, 2 * ullLeft);
    const CWide ullHalfLines = oAsked.GetHalfLines(ullFront + ullSyncAndBack);
    // The share of the blanking is C' less M' for each millisecond of the line, here in 512ths of a percent. A line lasts
    // 2 * m_ullPer / ullLines seconds.
    const CVeryWide vwLines = static_cast<CVeryWide>(ullHalfLines) * oAsked.m_ullRate;
    const CVeryWide vwOffset =
        (CVeryWide(oCurve.m_uiTwiceC) - oCurve.m_uiTwiceJ) * oCurve.m_uiK + CVeryWide(oCurve.m_uiTwiceJ) * 256;
    const CVeryWide vwShare = vwOffset * vwLines - CVeryWide(4000) * oCurve.m_uiK * oCurve.m_uiM * oAsked.m_ullPer;
    const CVeryWide vwRest = 51200 * vwLines - vwShare;
    if (vwShare <= 0 || vwRest <= 0 || ullSyncAndBack < ullSync)
    {
        return false;
    }
    const CVeryWide vwCells = (oAsked.m_ullWidth * vwShare + vwRest * gsc_ullCell) / (vwRest * 2 * gsc_ullCell);
    if (vwCells >= gsc_uiMostFormulaSize)
    {
        return false;
    }
    const CWide ullBlank = static_cast<CWide>(vwCells) * 2 * gsc_ullCell;
    const CWide ullTotal = oAsked.m_ullWidth + ullBlank;
    const CWide ullPulse = RoundedQuotient(8 * ullTotal, 100 * gsc_ullCell) * gsc_ullCell;
    if (ullPulse > ullBlank / 2)
    {
        return false;
    }
    const bool bDefault = oCurve.m_uiTwiceC == gsc_oDefaultCurve.m_uiTwiceC &&
                          oCurve.m_uiM == gsc_oDefaultCurve.m_uiM && oCurve.m_uiK == gsc_oDefaultCurve.m_uiK &&
                          oCurve.m_uiTwiceJ == gsc_oDefaultCurve.m_uiTwiceJ;
    SetNumbers(oMode, RoundedQuotient(ullTotal * ullHalfLines * oAsked.m_ullRate, 2 * oAsked.m_ullPer),
               CenterSync(ullBlank, ullPulse, !bDefault), { ullFront, ullSync, ullSyncAndBack - ullSync, bDefault });
    return true;
}

// ---- CVT ----

namespace
{
constexpr CWide gsc_ullStepInHz = 250000;   // of the clock
constexpr CWide gsc_ullFineStepInHz = 1000; // of reduced blanking version 2
constexpr CWide gsc_ullLeastBackPorch = 7;  // lines, of the same; since CVT 1.2
constexpr CWide gsc_ullFixedBackPorch = 6;  // of the later ones
constexpr CWide gsc_ullFrontPorch = 3;      // of standard blanking and of reduced blanking version 1

// Lines of the sync pulse, by the ratio of the picture.
CWide GetSyncLines(const SZorMode& oMode)
{
    struct SRatioSync
    {
        unsigned int m_uiAcross;
        unsigned int m_uiDown;
        unsigned int m_uiLines;
    };
    constexpr SRatioSync aoRatios[] = { { 4, 3, 4 }, { 16, 9, 5 }, { 16, 10, 6 }, { 5, 4, 7 }, { 15, 9, 7 } };
    constexpr unsigned int uiOther = 10;
    for (const SRatioSync& oRatio : aoRatios)
    {
        if (1ULL * oMode.m_uiHeight * oRatio.m_uiAcross == 1ULL * oMode.m_uiWidth * oRatio.m_uiDown)
        {
            return oRatio.m_uiLines;
        }
    }
    return uiOther;
}

bool ComputeStandardCvt(SZorMode& oMode, const SQuestion& oAsked)
{
    const CWide ullLeft = oAsked.GetTimeLeft(gsc_ullSyncAndBack);
    if (ullLeft == 0)
    {
        return false;
    }
    // An estimated line lasts 2 * ullLeft / ullLines microseconds.
    const CWide ullLines = oAsked.GetHalfLines(gsc_ullFrontPorch) * oAsked.m_ullRate;
    const CWide ullSync = GetSyncLines(oMode);
    const CWide ullSyncAndBack =
        std::max(gsc_ullSyncAndBack * ullLines / (2 * ullLeft) + 1, ullSync + gsc_ullLeastBackPorch);
    // The share of the blanking is 30 % less 0.3 % for a microsecond of the line, at least 20 %.
    const bool bLeast = 3 * 2 * ullLeft >= 100 * ullLines;
    const CWide ullShare = bLeast ? 20 : 300 * ullLines - 3 * 2 * ullLeft;
    const CWide ullWhole = bLeast ? 100 : 1000 * ullLines;
    const CWide ullBlank = oAsked.m_ullWidth * ullShare / ((ullWhole - ullShare) * 2 * gsc_ullCell) * 2 * gsc_ullCell;
    const CWide ullTotal = oAsked.m_ullWidth + ullBlank;
    const CWide ullClock =
        ullTotal * ullLines * (gsc_ullUsPerSecond / gsc_ullStepInHz) / (2 * ullLeft) * gsc_ullStepInHz;
    const CWide ullPulse = 8 * ullTotal / (100 * gsc_ullCell) * gsc_ullCell;
    if (ullPulse > ullBlank / 2)
    {
        return false;
    }
    SetNumbers(oMode, ullClock, CenterSync(ullBlank, ullPulse, false),
               { gsc_ullFrontPorch, ullSync, ullSyncAndBack - ullSync, true });
    return ullClock != 0;
}

bool ComputeReducedCvt(SZorMode& oMode, const SQuestion& oAsked, const SReducedBlanking& oReduced)
{
    const bool bFirst = oMode.m_eBlanking == SZorMode::eBlanking_Reduced1;
    const bool bThird = oMode.m_eBlanking == SZorMode::eBlanking_Reduced3;
    const CWide ullLeft = oAsked.GetTimeLeft(oReduced.m_uiVerticalBlankInUs);
    if (ullLeft == 0)
    {
        return false;
    }
    const CWide ullSync = bFirst ? GetSyncLines(oMode) : 8;
    const CWide ullLeastFront = bFirst ? gsc_ullFrontPorch : 1;
    const CWide ullBlank = std::max(oReduced.m_uiVerticalBlankInUs * oAsked.m_ullLines * oAsked.m_ullRate / ullLeft + 1,
                                    ullLeastFront + ullSync + (bFirst ? gsc_ullLeastBackPorch : gsc_ullFixedBackPorch));
    const CWide ullBack = bFirst                            ? ullBlank - ullSync - gsc_ullFrontPorch
                          : bThird && oReduced.m_bEarlySync ? ullBlank / 2
                                                            : gsc_ullFixedBackPorch;
    const SBlanking oAcross =
        bFirst ? SBlanking{ 48, 32, 80, true } : SBlanking{ 8, 32, oReduced.m_uiHorizontalBlank - 40ULL, true };
    const CWide ullTotal = oAsked.m_ullWidth + oAcross.GetSum();
    // Rounded down to a step, by version 3 up.
    const CWide ullStep = bFirst || bThird ? gsc_ullStepInHz : gsc_ullFineStepInHz;
    const CWide ullSteps = 2 * oAsked.m_ullPer * ullStep;
    const CWide ullExact = ullTotal * oAsked.GetHalfLines(ullBlank) * oAsked.m_ullRate;
    const CWide ullClock = (ullExact + (bThird ? ullSteps - 1 : 0)) / ullSteps * ullStep;
    SetNumbers(oMode, ullClock, oAcross, { ullBlank - ullSync - ullBack, ullSync, ullBack, false });
    return ullClock != 0;
}
} // namespace

bool ComputeCvt(SZorMode& oMode, const SReducedBlanking& oReduced)
{
    constexpr SReducedBlanking oFixed = {};
    SQuestion oAsked = {};
    SZorMode oAnswer = oMode;
    if (!Ask(oMode, oAsked))
    {
        return false;
    }
    bool bAnswered = false;
    switch (oMode.m_eBlanking)
    {
    case SZorMode::eBlanking_Standard:
        bAnswered = ComputeStandardCvt(oAnswer, oAsked);
        break;
    case SZorMode::eBlanking_Reduced1:
    case SZorMode::eBlanking_Reduced2:
        bAnswered = ComputeReducedCvt(oAnswer, oAsked, oFixed);
        break;
    case SZorMode::eBlanking_Reduced3:
        bAnswered = oReduced.m_uiHorizontalBlank > 40 && ComputeReducedCvt(oAnswer, oAsked, oReduced);
        break;
    default:
        break;
    }
    oMode = bAnswered ? oAnswer : oMode;
    return bAnswered;
}

// ---- OVT ----

namespace
{
// Rates up to m_uiMost that share a line rate, which is a multiple of m_uiMultiple.
struct SRateGroup
{
    unsigned int m_auiRates[3];
    unsigned int m_uiMost;
    unsigned int m_uiMultiple;
};
constexpr SRateGroup gsc_aoRateGroups[] = {
    { { 24, 25, 30 }, 30, 600 },    { { 48, 50, 60 }, 60, 1200 },   { { 100, 120, 0 }, 120, 600 },
    { { 200, 240, 0 }, 240, 1200 }, { { 300, 360, 0 }, 360, 1800 }, { { 400, 480, 0 }, 480, 2400 },
};

SRateGroup FindRateGroup(unsigned int uiRate)
{
    for (const SRateGroup& oGroup : gsc_aoRateGroups)
    {
        if (std::ranges::find(oGroup.m_auiRates, uiRate) != std::end(oGroup.m_auiRates))
        {
            return oGroup;
        }
    }
    return { { uiRate, 0, 0 }, uiRate, uiRate };
}

// Blanking pixels that carry sound at 192 kHz: in 4:2:0 beside half as many others.
CWide GetLeastBlank(CWide ullLineRate, bool b420)
{
    constexpr CWide ullLeast = 80;
    constexpr CWide ullPacketRate = 195000; // a second, with a margin
    constexpr CWide ullPacket = 32;         // pixels; and as many around them
    const CWide ullPackets = (ullPacketRate + ullLineRate - 1) / ullLineRate;
    return std::max(ullLeast, (b420 ? 2 : 1) * ullPacket * (ullPackets + 1));
}

struct STotals
{
    CWide m_ullWidth;
    CWide m_ullHeight;
};

// The least clock that is a multiple of 1 kHz. ullStep: of lines.
STotals FindTotals(CWide ullLeastWidth, CWide ullLeastHeight, CWide ullStep, CWide ullRate)
{
    constexpr CWide ullClockStep = 1000; // Hz
    STotals oBest = { 0, 0 };
    for (CWide ullHeight = (ullLeastHeight + ullStep - 1) / ullStep * ullStep;
         oBest.m_ullWidth == 0 || ullLeastWidth * ullHeight < oBest.m_ullWidth * oBest.m_ullHeight;
         ullHeight += ullStep)
    {
        const CWide ullUnit = std::lcm(gsc_ullCell, ullClockStep / std::gcd(ullClockStep, ullHeight * ullRate));
        const CWide ullWidth = (ullLeastWidth + ullUnit - 1) / ullUnit * ullUnit;
        if (oBest.m_ullWidth == 0 || ullWidth * ullHeight < oBest.m_ullWidth * oBest.m_ullHeight)
        {
            oBest = { ullWidth, ullHeight };
        }
    }
    return oBest;
}
} // namespace

bool ComputeOvt(SZorMode& oMode)
{
    constexpr CWide ullLeastBlankInUs = 460;
    constexpr CWide ullSyncToActiveInUs = 400;
    constexpr CWide ullLeastBlank = 80;
    constexpr CWide ullClockOf420 = 590000000; // Hz: faster ones leave room for 4:2:0
    constexpr CWide ullSyncX = 32;
    constexpr CWide ullSyncY = 8;
    SQuestion oAsked = {};
    if (oMode.m_bInterlaced || !Ask(oMode, oAsked) || oAsked.m_ullPer != 1)
    {
        return false;
    }
    const SRateGroup oGroup = FindRateGroup(Narrow(oAsked.m_ullRate));
    const CWide ullLeft = gsc_ullUsPerSecond - oGroup.m_uiMost * ullLeastBlankInUs;
    const CWide ullLeastHeight = (oAsked.m_ullLines * gsc_ullUsPerSecond + ullLeft - 1) / ullLeft;
    const CWide ullLeastRate = ullLeastHeight * oGroup.m_uiMost;
    const bool b420 = (oAsked.m_ullWidth + ullLeastBlank) * ullLeastRate > ullClockOf420;
    const STotals oTotals = FindTotals(oAsked.m_ullWidth + GetLeastBlank(ullLeastRate, b420), ullLeastHeight,
                                       oGroup.m_uiMultiple / oGroup.m_uiMost, oGroup.m_uiMost);
    const CWide ullLineRate = oTotals.m_ullHeight * oGroup.m_uiMost;
    const CWide ullSyncAndBack = (ullSyncToActiveInUs * ullLineRate + gsc_ullUsPerSecond - 1) / gsc_ullUsPerSecond;
    const CWide ullBlankX = oTotals.m_ullWidth - oAsked.m_ullWidth;
    const CWide ullBlankY = ullLineRate / oAsked.m_ullRate - oAsked.m_ullLines;
    if (ullSyncAndBack <= ullSyncY || ullSyncAndBack >= ullBlankY)
    {
        return false;
    }
    SetNumbers(oMode, ullLineRate * oTotals.m_ullWidth, { ullBlankX - 2 * ullSyncX, ullSyncX, ullSyncX, true },
               { ullBlankY - ullSyncAndBack, ullSyncY, ullSyncAndBack - ullSyncY, true });
    return true;
}
} // namespace ZorStandards
