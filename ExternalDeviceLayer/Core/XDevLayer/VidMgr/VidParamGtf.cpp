// GTF in whole numbers: unsigned 32 bits, every product and difference wraps. Where a wrapped value leaves no room for
// the parts of a line or a frame, the final check refuses it.

#include "VidParamGtf.h"

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

constexpr unsigned int gsc_uiVerticalFrontPorch = 1; // lines
constexpr unsigned int gsc_uiVerticalSync = 3;       // lines

// Blanking duty cycle in hundredths of a percent: 30 % less 3 % for each 10 us of line period. It has no lower bound.
constexpr unsigned int gsc_uiDutyOffset = 3000;
constexpr unsigned int gsc_uiDutyGradient = 3000;
constexpr unsigned int gsc_uiDutyScale = 10000;
constexpr unsigned int gsc_uiFullDuty = 10000;
}

int CVidParamGtf::GetVidParam(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                              unsigned int uiVerticalRateInHz, CVidParamTiming* poTiming)
{
    // The line period is estimated from the rate asked for, then corrected by the field rate that the whole lines give.
    const unsigned int uiFieldTime = ZorTools_RoundedDivision(gsc_uiNanosecondsPerSecond, uiVerticalRateInHz); // ns
    const unsigned int uiEstimatedPeriod =
        ZorTools_RoundedDivision(uiFieldTime - gsc_uiMinSyncAndBackTime,
                                 (uiVerticalActive + gsc_uiVerticalFrontPorch) * gsc_uiNanosecondsPerPeriod);
    const unsigned int uiVSyncAndBack =
        ZorTools_RoundedDivision(gsc_uiMinSyncAndBackTime / gsc_uiNanosecondsPerPeriod, uiEstimatedPeriod);
    const unsigned int uiTenVerticalTotals = (uiVerticalActive + gsc_uiVerticalFrontPorch + uiVSyncAndBack) * 10;
    const unsigned int uiEstimatedRateInTenths = ZorTools_RoundedDivision(
        gsc_uiSecondForTenths, ZorTools_RoundedDivision(uiEstimatedPeriod * uiTenVerticalTotals, 10));
    const unsigned int uiPeriod =
        ZorTools_RoundedDivision(uiEstimatedPeriod * uiEstimatedRateInTenths, uiVerticalRateInHz * 10);
    const unsigned int uiRateInTenths =
        ZorTools_RoundedDivision(gsc_uiSecondForTenths, ZorTools_RoundedDivision(uiTenVerticalTotals * uiPeriod, 10));

    const unsigned int uiCellActive = RoundToCell(uiHorizontalActive);
    const unsigned int uiDuty =
        gsc_uiDutyOffset - ZorTools_RoundedDivision(uiPeriod * gsc_uiDutyGradient, gsc_uiDutyScale);
    const unsigned int uiBlank = ZorTools_RoundedDivision(uiDuty * uiCellActive, gsc_uiBlankingUnit * gsc_uiFullDuty -
                                                                                     gsc_uiBlankingUnit * uiDuty) *
                                 gsc_uiBlankingUnit;
    const unsigned int uiHorizontalTotal = uiCellActive + uiBlank;
    const unsigned int uiHBack = uiBlank / 2; // whole cells, as the blanking is a multiple of two
    // Cut to whole cells, where the published formula rounds to the nearest.
    const unsigned int uiHSync = CutToCell(ZorTools_RoundedDivision(uiHorizontalTotal * gsc_uiSyncPerMille, 1000));
    const unsigned int uiVerticalTotal = ZorTools_RoundedDivision(uiTenVerticalTotals, 10);
    const unsigned int uiVBack = uiVSyncAndBack - gsc_uiVerticalSync;

    const SExtent oLine = { uiHorizontalActive, uiHorizontalTotal - uiHBack - uiHSync, uiHorizontalTotal - uiHBack };
    const SExtent oFrame = { uiVerticalActive, uiVerticalTotal - uiVSyncAndBack, uiVerticalTotal - uiVBack };
    if (!oLine.IsInOrder() || !oFrame.IsInOrder())
    {
        return 0;
    }
    if (poTiming == nullptr)
    {
        return 1;
    }

    const unsigned int uiLineRateInHz = ZorTools_RoundedDivision(gsc_uiSecondInPeriods, uiPeriod);
    poTiming->ClearData();
    poTiming->SetHorizontalActive(uiHorizontalActive);
    poTiming->SetVerticalActive(uiVerticalActive);
    poTiming->SetVerticalRateInHz(ZorTools_RoundedDivision(uiRateInTenths, 10));
    poTiming->SetHorizontalRateInKiloHz(uiLineRateInHz / 1000);
    poTiming->SetPixelClockInKiloHz(
        ZorTools_RoundedDivision(uiHorizontalTotal * gsc_uiPeriodsPerMillisecond, uiPeriod));
    poTiming->SetHorizontalFrontPorch(oLine.m_uiSyncStart - uiHorizontalActive);
    poTiming->SetHorizontalSync(uiHSync);
    poTiming->SetHorizontalBackPorch(uiHBack);
    poTiming->SetVerticalFrontPorch(oFrame.m_uiSyncStart - uiVerticalActive);
    poTiming->SetVerticalSync(gsc_uiVerticalSync);
    poTiming->SetVerticalBackPorch(uiVBack);
    poTiming->SetVerticalPolarityPositive(1);
    poTiming->SetHorizontalPolarityPositive(0);
    poTiming->SetInterlaced(0);
    poTiming->SetVideoFamilyType(CVidParamTiming::eVidParamType_Gtf);
    return 1;
}
