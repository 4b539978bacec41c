// GTF in whole numbers: unsigned 32 bits, every product and difference wraps. Where a wrapped value leaves no room for
// the parts of a line or a frame, the final check refuses it.

#include "VidParamGtf.h"

#include "VidParamFill.h"
#include "VidParamFormula.h"
#include "VidParamTiming.h"

using namespace VidParamFormula;

namespace
{
// Line periods are in units of 10 ns and field rates in tenths of a hertz, so that a second is:
constexpr unsigned int gsc_uiSecondInPeriods = 100000000;  // for rates in Hz
constexpr unsigned int gsc_uiSecondForTenths = 1000000000; // for rates in tenths of a hertz
constexpr unsigned int gsc_uiPeriodsPerMillisecond = 100000;
constexpr unsigned int gsc_uiNanosecondsPerPeriod = 10;
constexpr unsigned int gsc_uiTenthsPerHz = 10;

constexpr unsigned int gsc_uiVerticalFrontPorch = 1; // lines
constexpr unsigned int gsc_uiVerticalSync = 3;       // lines
constexpr unsigned int gsc_uiTenthsPerLine = 10;     // the total is worked ten times over

// Blanking duty cycle in hundredths of a percent: 30 % less 3 % for each 10 us of line period. It has no lower bound.
constexpr unsigned int gsc_uiDutyOffset = 3000;
constexpr unsigned int gsc_uiDutyGradient = 3000;
constexpr unsigned int gsc_uiDutyScale = 10000;
constexpr unsigned int gsc_uiFullDuty = 10000;

// The frame, in lines.
struct SGtfFrame
{
    unsigned int m_uiTotal;
    unsigned int m_uiSyncAndBack;
    unsigned int m_uiLinePeriod; // units of 10 ns
    unsigned int m_uiRateInHz;   // the one reached
};

// The line, in pixels.
struct SGtfLine
{
    unsigned int m_uiTotal;
    unsigned int m_uiSync;
    unsigned int m_uiBackPorch;
};

unsigned int ComputeRateInTenths(unsigned int uiTenVerticalTotals, unsigned int uiLinePeriod)
{
    return ZorTools_RoundedDivision(gsc_uiSecondForTenths,
                                    ZorTools_RoundedDivision(uiTenVerticalTotals * uiLinePeriod, gsc_uiTenthsPerLine));
}

// The line period is estimated from the rate asked for, then corrected by the field rate that the whole lines give.
SGtfFrame ComputeFrame(unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz)
{
    const unsigned int uiFieldTime = ZorTools_RoundedDivision(gsc_uiNanosecondsPerSecond, uiVerticalRateInHz); // ns
    const unsigned int uiEstimatedPeriod =
        ZorTools_RoundedDivision(uiFieldTime - gsc_uiMinSyncAndBackTime,
                                 (uiVerticalActive + gsc_uiVerticalFrontPorch) * gsc_uiNanosecondsPerPeriod);

    SGtfFrame oFrame;
    oFrame.m_uiSyncAndBack =
        ZorTools_RoundedDivision(gsc_uiMinSyncAndBackTime / gsc_uiNanosecondsPerPeriod, uiEstimatedPeriod);
    const unsigned int uiTenVerticalTotals =
        (uiVerticalActive + gsc_uiVerticalFrontPorch + oFrame.m_uiSyncAndBack) * gsc_uiTenthsPerLine;
    const unsigned int uiEstimatedRateInTenths = ComputeRateInTenths(uiTenVerticalTotals, uiEstimatedPeriod);
    oFrame.m_uiLinePeriod =
        ZorTools_RoundedDivision(uiEstimatedPeriod * uiEstimatedRateInTenths, uiVerticalRateInHz * gsc_uiTenthsPerHz);
    oFrame.m_uiRateInHz =
        ZorTools_RoundedDivision(ComputeRateInTenths(uiTenVerticalTotals, oFrame.m_uiLinePeriod), gsc_uiTenthsPerHz);
    oFrame.m_uiTotal = ZorTools_RoundedDivision(uiTenVerticalTotals, gsc_uiTenthsPerLine);
    return oFrame;
}

SGtfLine ComputeLine(unsigned int uiHorizontalActive, unsigned int uiLinePeriod)
{
    const unsigned int uiCellActive = RoundToCell(uiHorizontalActive);
    const unsigned int uiDuty =
        gsc_uiDutyOffset - ZorTools_RoundedDivision(uiLinePeriod * gsc_uiDutyGradient, gsc_uiDutyScale);
    const unsigned int uiBlank = ZorTools_RoundedDivision(uiDuty * uiCellActive, gsc_uiBlankingUnit * gsc_uiFullDuty -
                                                                                     gsc_uiBlankingUnit * uiDuty) *
                                 gsc_uiBlankingUnit;

    SGtfLine oLine;
    oLine.m_uiTotal = uiCellActive + uiBlank;
    oLine.m_uiBackPorch = uiBlank / 2; // whole cells, as the blanking is a multiple of two
    // Cut to whole cells, where the published formula rounds to the nearest.
    oLine.m_uiSync = CutToCell(ZorTools_RoundedDivision(oLine.m_uiTotal * gsc_uiSyncPerMille, gsc_uiPerMille));
    return oLine;
}

void WriteTiming(const SExtent& oHorizontal, const SExtent& oVertical, const SGtfLine& oLine, const SGtfFrame& oFrame,
                 CVidParamTiming& oTiming)
{
    const unsigned int uiLineRateInHz = ZorTools_RoundedDivision(gsc_uiSecondInPeriods, oFrame.m_uiLinePeriod);
    VidParamFill::FillTiming(oTiming, [&](auto& oFilled) {
        oFilled.ClearData();
        oFilled.SetHorizontalActive(oHorizontal.m_uiActive);
        oFilled.SetVerticalActive(oVertical.m_uiActive);
        oFilled.SetVerticalRateInHz(oFrame.m_uiRateInHz);
        oFilled.SetHorizontalRateInKiloHz(uiLineRateInHz / gsc_uiHzPerKiloHz);
        oFilled.SetPixelClockInKiloHz(
            ZorTools_RoundedDivision(oLine.m_uiTotal * gsc_uiPeriodsPerMillisecond, oFrame.m_uiLinePeriod));
        oFilled.SetHorizontalFrontPorch(oHorizontal.m_uiSyncStart - oHorizontal.m_uiActive);
        oFilled.SetHorizontalSync(oLine.m_uiSync);
        oFilled.SetHorizontalBackPorch(oLine.m_uiBackPorch);
        oFilled.SetVerticalFrontPorch(oVertical.m_uiSyncStart - oVertical.m_uiActive);
        oFilled.SetVerticalSync(gsc_uiVerticalSync);
        oFilled.SetVerticalBackPorch(oFrame.m_uiSyncAndBack - gsc_uiVerticalSync);
        oFilled.SetVerticalPolarityPositive(1);
        oFilled.SetHorizontalPolarityPositive(0);
        oFilled.SetInterlaced(0);
        oFilled.SetVideoFamilyType(CVidParamTiming::eVidParamType_Gtf);
    });
}
} // namespace

int CVidParamGtf::GetVidParam(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                              unsigned int uiVerticalRateInHz, CVidParamTiming* poTiming)
{
    const SGtfFrame oFrame = ComputeFrame(uiVerticalActive, uiVerticalRateInHz);
    const SGtfLine oLine = ComputeLine(uiHorizontalActive, oFrame.m_uiLinePeriod);

    const unsigned int uiHSyncEnd = oLine.m_uiTotal - oLine.m_uiBackPorch;
    const unsigned int uiVSyncStart = oFrame.m_uiTotal - oFrame.m_uiSyncAndBack;
    const SExtent oHorizontal = { uiHorizontalActive, uiHSyncEnd - oLine.m_uiSync, uiHSyncEnd };
    const SExtent oVertical = { uiVerticalActive, uiVSyncStart, uiVSyncStart + gsc_uiVerticalSync };
    if (!oHorizontal.IsInOrder() || !oVertical.IsInOrder())
    {
        return 0;
    }
    if (poTiming != nullptr)
    {
        WriteTiming(oHorizontal, oVertical, oLine, oFrame, *poTiming);
    }
    return 1;
}
