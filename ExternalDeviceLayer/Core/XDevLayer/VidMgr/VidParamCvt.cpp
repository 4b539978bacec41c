// CVT in whole numbers: unsigned 32 bits, every product and difference wraps. Where a wrapped value leaves no room for
// the parts of a line or a frame, the final check refuses it.

#include "VidParamCvt.h"

#include <algorithm>

#include "VidParamFill.h"
#include "VidParamFormula.h"
#include "VidParamTiming.h"

using namespace VidParamFormula;

namespace
{
constexpr unsigned int gsc_uiVerticalFrontPorch = 3;   // lines
constexpr unsigned int gsc_uiMinVerticalBackPorch = 6; // lines

// Clocks are worked in units of 10 kHz and come in steps of 250 kHz; line rates are worked in units of 10 Hz.
constexpr unsigned int gsc_uiPixelPerNanosecondInTenKiloHz = 100000;
constexpr unsigned int gsc_uiClockStepInTenKiloHz = 25;
constexpr unsigned int gsc_uiClockStepInKiloHz = 250;
constexpr unsigned int gsc_uiHzPerTenKiloHz = 10000;
constexpr unsigned int gsc_uiHzPerTenHz = 10;
constexpr unsigned int gsc_uiTenHzPerTenKiloHz = 1000;
constexpr unsigned int gsc_uiTenHzPerKiloHz = 100;

// Standard blanking. Its duty cycle in thousandths of a percent: 30 % less 300 times the line period, 20 % at least.
constexpr unsigned int gsc_uiDutyScale = 1000;
constexpr unsigned int gsc_uiDutyOffset = 30000 * gsc_uiDutyScale;
constexpr unsigned int gsc_uiDutyGradient = 300;
constexpr unsigned int gsc_uiMinDuty = 20000;
constexpr unsigned int gsc_uiFullDuty = 100000;

// Reduced blanking.
constexpr unsigned int gsc_uiReducedMinVerticalBlankTime = 460000; // ns
constexpr unsigned int gsc_uiReducedFrontPorch = 48;               // pixels
constexpr unsigned int gsc_uiReducedSync = 32;
constexpr unsigned int gsc_uiReducedBackPorch = 80;
constexpr unsigned int gsc_uiReducedBlank = gsc_uiReducedFrontPorch + gsc_uiReducedSync + gsc_uiReducedBackPorch;

// Widths by which the vertical sync follows the aspect ratio: lines * num / den, down to a cell. First match counts.
struct SAspect
{
    unsigned int m_uiNumerator;
    unsigned int m_uiDenominator;
    unsigned int m_uiVSyncLines;
};
constexpr SAspect gsc_aoAspects[] = {
    { 4, 3, 4 }, { 16, 9, 5 }, { 16, 10, 6 }, { 5, 4, 7 }, { 15, 9, 7 },
};
constexpr unsigned int gsc_uiVSyncLinesOther = 10;

// A finished computation; pixels, lines, kHz, Hz.
struct SCvtTiming
{
    unsigned int m_uiHorizontalRateInKiloHz;
    unsigned int m_uiPixelClockInKiloHz;
    unsigned int m_uiVerticalRateInHz;
    unsigned int m_uiHorizontalFrontPorch;
    unsigned int m_uiHorizontalSync;
    unsigned int m_uiHorizontalBackPorch;
    unsigned int m_uiVerticalSync;
    unsigned int m_uiVerticalBackPorch;
    bool m_bHorizontalPositive;
    bool m_bVerticalPositive;
    CVidParamTiming::EVidParamType m_eType;
};

// A line of standard blanking, in pixels; its active part is the width in whole cells.
struct SStandardLine
{
    unsigned int m_uiTotal;
    unsigned int m_uiBlank;
    unsigned int m_uiSync;
    unsigned int m_uiBackPorch;
};

SStandardLine ComputeStandardLine(unsigned int uiHorizontalActive, unsigned int uiLinePeriod)
{
    // The difference wraps for line periods above 100 us, and the floor does not catch that. The check of the finished
    // line refuses every such mode of 100 lines or more at 1 to 1818 Hz; lower ones, and some at 0 Hz, may pass, with a
    // clock down to 0.
    const unsigned int uiDuty =
        std::max((gsc_uiDutyOffset - gsc_uiDutyGradient * uiLinePeriod) / gsc_uiDutyScale, gsc_uiMinDuty);
    const unsigned int uiCellActive = RoundToCell(uiHorizontalActive);

    SStandardLine oLine;
    oLine.m_uiBlank = ZorTools_RoundedDownDivision(uiDuty * uiCellActive,
                                                   gsc_uiBlankingUnit * gsc_uiFullDuty - gsc_uiBlankingUnit * uiDuty) *
                      gsc_uiBlankingUnit;
    oLine.m_uiTotal = uiCellActive + oLine.m_uiBlank;
    oLine.m_uiSync = CutToCell(oLine.m_uiTotal * gsc_uiSyncPerMille / gsc_uiPerMille);
    oLine.m_uiBackPorch = oLine.m_uiBlank / 2;
    return oLine;
}

// A width off the cell grid is clocked as if the line were a cell longer.
unsigned int CountStandardClockSteps(unsigned int uiHorizontalActive, unsigned int uiHorizontalTotal,
                                     unsigned int uiLinePeriod)
{
    const bool bOnGrid = uiHorizontalActive % gsc_uiCellWidth == 0;
    const unsigned int uiClockedTotal = bOnGrid ? uiHorizontalTotal : uiHorizontalTotal + gsc_uiCellWidth;
    return ZorTools_RoundedDownDivision(
        ZorTools_RoundedDownDivision(uiClockedTotal * gsc_uiPixelPerNanosecondInTenKiloHz, uiLinePeriod),
        gsc_uiClockStepInTenKiloHz);
}

// False when nothing is computed: the parts of the line or the frame are out of order.
bool ComputeStandardBlanking(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                             unsigned int uiVerticalRateInHz, SCvtTiming& oResult)
{
    const unsigned int uiVSync = CVidParamCvt::GetVSyncLines(uiHorizontalActive, uiVerticalActive);
    const unsigned int uiFieldPeriod = ZorTools_RoundedDownDivision(gsc_uiNanosecondsPerSecond, uiVerticalRateInHz);
    const unsigned int uiLinePeriod = ZorTools_RoundedDivision(uiFieldPeriod - gsc_uiMinSyncAndBackTime,
                                                               uiVerticalActive + gsc_uiVerticalFrontPorch); // ns
    const unsigned int uiVSyncAndBack = std::max(
        ZorTools_RoundedDownDivision(gsc_uiMinSyncAndBackTime, uiLinePeriod) + 1, uiVSync + gsc_uiMinVerticalBackPorch);
    const unsigned int uiVerticalTotal = uiVerticalActive + gsc_uiVerticalFrontPorch + uiVSyncAndBack;
    const unsigned int uiVBack = uiVSyncAndBack - uiVSync;
    const SStandardLine oLine = ComputeStandardLine(uiHorizontalActive, uiLinePeriod);

    const unsigned int uiHSyncEnd = oLine.m_uiTotal - oLine.m_uiBackPorch;
    const SExtent oHorizontal = { uiHorizontalActive, uiHSyncEnd - oLine.m_uiSync, uiHSyncEnd };
    const SExtent oVertical = { uiVerticalActive, uiVerticalTotal - uiVSyncAndBack, uiVerticalTotal - uiVBack };
    if (!oHorizontal.IsInOrder() || !oVertical.IsInOrder())
    {
        return false;
    }

    const unsigned int uiClockSteps = CountStandardClockSteps(uiHorizontalActive, oLine.m_uiTotal, uiLinePeriod);
    const unsigned int uiLineRateInTenHz =
        ZorTools_RoundedDivision(uiClockSteps * gsc_uiClockStepInTenKiloHz * gsc_uiTenHzPerTenKiloHz, oLine.m_uiTotal);
    oResult.m_uiHorizontalRateInKiloHz = uiLineRateInTenHz / gsc_uiTenHzPerKiloHz;
    oResult.m_uiPixelClockInKiloHz = uiClockSteps * gsc_uiClockStepInKiloHz;
    oResult.m_uiVerticalRateInHz =
        ZorTools_RoundedDivision(uiLineRateInTenHz * gsc_uiHzPerTenHz, uiVerticalTotal); // the one reached
    oResult.m_uiHorizontalFrontPorch = oLine.m_uiBlank - oLine.m_uiBackPorch - oLine.m_uiSync;
    oResult.m_uiHorizontalSync = oLine.m_uiSync;
    oResult.m_uiHorizontalBackPorch = oLine.m_uiBackPorch;
    oResult.m_uiVerticalSync = uiVSync;
    oResult.m_uiVerticalBackPorch = uiVBack;
    oResult.m_bHorizontalPositive = false;
    oResult.m_bVerticalPositive = true;
    oResult.m_eType = CVidParamTiming::eVidParamType_Cvt;
    return true;
}

// Nothing is checked here: every size and rate has a result.
SCvtTiming ComputeReducedBlanking(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                                  unsigned int uiVerticalRateInHz)
{
    const unsigned int uiVSync = CVidParamCvt::GetVSyncLines(uiHorizontalActive, uiVerticalActive);

    // Unlike standard blanking: the field period is rounded, and the front porch is not part of the divisor.
    const unsigned int uiFieldPeriod = ZorTools_RoundedDivision(gsc_uiNanosecondsPerSecond, uiVerticalRateInHz);
    const unsigned int uiLinePeriod =
        ZorTools_RoundedDivision(uiFieldPeriod - gsc_uiReducedMinVerticalBlankTime, uiVerticalActive); // ns
    const unsigned int uiVerticalBlank =
        std::max(ZorTools_RoundedDownDivision(gsc_uiReducedMinVerticalBlankTime, uiLinePeriod) + 1,
                 uiVSync + gsc_uiVerticalFrontPorch + gsc_uiMinVerticalBackPorch);
    const unsigned int uiHorizontalTotal = RoundToCell(uiHorizontalActive) + gsc_uiReducedBlank;
    const unsigned int uiVerticalTotal = uiVerticalActive + uiVerticalBlank;
    const unsigned int uiClockSteps = ZorTools_RoundedDownDivision(
        ZorTools_RoundedDivision(uiVerticalRateInHz * uiHorizontalTotal * uiVerticalTotal, gsc_uiHzPerTenKiloHz),
        gsc_uiClockStepInTenKiloHz);

    SCvtTiming oResult;
    oResult.m_uiPixelClockInKiloHz = uiClockSteps * gsc_uiClockStepInKiloHz;
    oResult.m_uiHorizontalRateInKiloHz = ZorTools_RoundedDivision(oResult.m_uiPixelClockInKiloHz, uiHorizontalTotal);
    oResult.m_uiVerticalRateInHz = uiVerticalRateInHz; // the one asked for
    oResult.m_uiHorizontalFrontPorch = gsc_uiReducedFrontPorch;
    oResult.m_uiHorizontalSync = gsc_uiReducedSync;
    oResult.m_uiHorizontalBackPorch = gsc_uiReducedBackPorch;
    oResult.m_uiVerticalSync = uiVSync;
    oResult.m_uiVerticalBackPorch = uiVerticalBlank - gsc_uiVerticalFrontPorch - uiVSync;
    oResult.m_bHorizontalPositive = true;
    oResult.m_bVerticalPositive = false;
    oResult.m_eType = CVidParamTiming::eVidParamType_CvtReducedBlanking;
    return oResult;
}

void WriteTiming(unsigned int uiHorizontalActive, unsigned int uiVerticalActive, const SCvtTiming& oResult,
                 CVidParamTiming& oTiming)
{
    VidParamFill::FillTiming(oTiming, [&](auto& oFilled) {
        oFilled.ClearData();
        oFilled.SetHorizontalRateInKiloHz(oResult.m_uiHorizontalRateInKiloHz);
        oFilled.SetPixelClockInKiloHz(oResult.m_uiPixelClockInKiloHz);
        oFilled.SetVerticalRateInHz(oResult.m_uiVerticalRateInHz);
        oFilled.SetHorizontalFrontPorch(oResult.m_uiHorizontalFrontPorch);
        oFilled.SetHorizontalSync(oResult.m_uiHorizontalSync);
        oFilled.SetHorizontalBackPorch(oResult.m_uiHorizontalBackPorch);
        oFilled.SetHorizontalActive(uiHorizontalActive); // as given; the porches stay those of whole cells
        oFilled.SetVerticalFrontPorch(gsc_uiVerticalFrontPorch);
        oFilled.SetVerticalSync(oResult.m_uiVerticalSync);
        oFilled.SetVerticalBackPorch(oResult.m_uiVerticalBackPorch);
        oFilled.SetVerticalActive(uiVerticalActive);
        oFilled.SetVerticalPolarityPositive(oResult.m_bVerticalPositive ? 1 : 0);
        oFilled.SetHorizontalPolarityPositive(oResult.m_bHorizontalPositive ? 1 : 0);
        oFilled.SetInterlaced(0);
        oFilled.SetVideoFamilyType(oResult.m_eType);
    });
}
} // namespace

unsigned int CVidParamCvt::GetVSyncLines(unsigned int uiHorizontalActive, unsigned int uiVerticalActive)
{
    if (uiVerticalActive == 0)
    {
        return 0;
    }
    for (const SAspect& oAspect : gsc_aoAspects)
    {
        const unsigned int uiCells =
            uiVerticalActive * oAspect.m_uiNumerator / (oAspect.m_uiDenominator * gsc_uiCellWidth);
        if (uiHorizontalActive == uiCells * gsc_uiCellWidth)
        {
            return oAspect.m_uiVSyncLines;
        }
    }
    return gsc_uiVSyncLinesOther;
}

int CVidParamCvt::GetVidParam(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                              unsigned int uiVerticalRateInHz, int bReducedBlanking, CVidParamTiming* poTiming)
{
    SCvtTiming oResult;
    if (bReducedBlanking != 0)
    {
        oResult = ComputeReducedBlanking(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz);
    }
    else if (!ComputeStandardBlanking(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz, oResult))
    {
        return 0;
    }
    if (poTiming != nullptr)
    {
        WriteTiming(uiHorizontalActive, uiVerticalActive, oResult, *poTiming);
    }
    return 1;
}
