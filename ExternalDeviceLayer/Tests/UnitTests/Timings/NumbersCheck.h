// Stored and derived values, clocks, assignment and formulas against second computations: one check of twelve numbers,
// which the unit tests run over a grid and the fuzz target over whatever it finds.

#pragma once

#include "FormulaModel.h"
#include "VidParamCvt.h"
#include "VidParamTimingFunc.h"

// As in TimingValues.h, clock and line rate in kHz or in Hz; the last one is flags, and the source from bit 8 on.
using CNumbers = std::array<unsigned int, 12>;

class CNumbersCheck
{
public:
    // Null, or which promise is broken for these numbers.
    const char* Run(const CNumbers& aui)
    {
        CheckTimings(aui);
        CheckFormulas(aui[0], aui[1], aui[2]);
        return m_pszBroken;
    }

private:
    void Require(bool bHolds, const char* pszPromise) { m_pszBroken = bHolds ? m_pszBroken : pszPromise; }

    // Totals, rates and clocks of a timing that holds these values.
    void CheckDerived(const CVidParamTiming& oTiming, const CAllValues& aui)
    {
        const bool b420 = (aui[gsc_uiFlags] & 16) != 0;
        const bool b3D = (aui[gsc_uiFlags] & 32) != 0;
        const Wide uiHTotal = Cut(Wide{ aui[0] } + aui[4] + aui[5] + aui[6]);
        const Wide uiVBlank = Wide{ aui[7] } + aui[8] + aui[9];
        const Wide uiVTotal = Cut(aui[1] + ((aui[gsc_uiFlags] & 1) != 0 ? 2 * uiVBlank + 1 : uiVBlank));
        const Wide uiHz = oTiming.GetPixelClockInHz();
        const Wide uiKiloHz = oTiming.GetPixelClockInKiloHz();
        const auto Effective = [&](Wide uiClock) {
            return b420 == b3D ? uiClock : b420 ? uiClock / 2 : Cut(uiClock * 2);
        };
        Require(oTiming.GetHorizontalTotal() == uiHTotal, "horizontal total");
        Require(oTiming.ComputeHorizontalTotalPixel() == uiHTotal, "computed horizontal total");
        Require(oTiming.GetVerticalTotal() == uiVTotal, "vertical total");
        Require(oTiming.ComputeVerticalTotalLine() == uiVTotal, "computed vertical total");
        Require(oTiming.ComputeHorizontalRateInHz() == Nearest(uiHz, uiHTotal), "line rate in hertz");
        Require(oTiming.ComputeHorizontalRateInKiloHz() == Nearest(uiKiloHz, uiHTotal), "line rate in kilohertz");
        Require(oTiming.ComputeVerticalRateInHz() == Nearest(uiHz, Times(uiHTotal, uiVTotal)), "vertical rate");
        Require(oTiming.GetEffectivePixelClockInHz() == Effective(uiHz), "effective clock in hertz");
        Require(oTiming.GetEffectivePixelClockInKiloHz() == Effective(uiKiloHz), "effective clock in kilohertz");

        // Clocks from 2^31 on are outside what the comparison is for; they must be safe all the same.
        const unsigned int uiOther = aui[2];
        const bool bEquivalent = oTiming.IsPixelClockInHzEquivalent(uiOther) != 0;
        const Wide uiLarger = std::max<Wide>(uiKiloHz, uiOther / 1000);
        const Wide uiDifference = uiLarger - std::min<Wide>(uiKiloHz, uiOther / 1000);
        const Wide uiSpread = uiKiloHz < 75001 ? 10 : 50; // in 1/10,000
        const bool bNear = uiKiloHz != 0 && uiOther != 0 && Down(uiDifference * 10000, uiLarger) <= uiSpread;
        Require(uiKiloHz > 0x7FFFFFFF / 1000 || uiOther > 0x7FFFFFFF || bEquivalent == (uiHz == uiOther || bNear),
                "equivalence of clocks");
    }

    // The class in hertz truncates kilohertz; that in kilohertz rounds hertz and has no number for some sources. What
    // is multiplied wraps. Assignment between them goes through hertz, and overwrites every number.
    void CheckTimings(const CNumbers& aui)
    {
        CAllValues auiSet(aui.begin(), aui.end());
        auiSet[gsc_uiFlags] &= 1 | 4 | 8 | 16 | 32;
        auiSet.push_back(aui[gsc_uiFlags] >> 8 & 0xFF);
        CVidParamTimingGeneric oGeneric;
        WriteAll(oGeneric, auiSet);
        Require(oGeneric.GetPixelClockInHz() == Times(aui[gsc_uiClockInKiloHz], 1000), "clock into hertz");
        Require(oGeneric.GetHorizontalRateInHz() == Times(aui[gsc_uiLineRateInKiloHz], 1000), "line rate into hertz");
        oGeneric.SetPixelClockInHz(aui[gsc_uiClockInKiloHz]);
        oGeneric.SetHorizontalRateInHz(aui[gsc_uiLineRateInKiloHz]);
        CAllValues auiExpected = auiSet;
        auiExpected[gsc_uiClockInKiloHz] /= 1000;
        auiExpected[gsc_uiLineRateInKiloHz] /= 1000;
        Require(ReadAll(oGeneric) == auiExpected, "a timing in hertz holds what is set");
        CheckDerived(oGeneric, auiSet);
        Require(oGeneric.GetHorizontalTotal() == oGeneric.CVidParamTiming::GetHorizontalTotal(),
                "virtual total, pixels");
        Require(oGeneric.GetVerticalTotal() == oGeneric.CVidParamTiming::GetVerticalTotal(), "virtual total, lines");

        CRVidParamTiming oRecord;
        WriteAll(oRecord, auiSet);
        auiSet[gsc_uiSource] = auiSet[gsc_uiSource] <= 6 || auiSet[gsc_uiSource] == 16 ? auiSet[gsc_uiSource] : 255;
        Require(ReadAll(oRecord) == auiSet, "a timing in kilohertz holds what is set");
        CheckDerived(oRecord, auiSet);
        Require(oRecord.GetPixelClockInHz() == Times(aui[gsc_uiClockInKiloHz], 1000), "clock in hertz");
        Require(oRecord.GetHorizontalRateInHz() == Times(aui[gsc_uiLineRateInKiloHz], 1000), "line rate in hertz");
        Require((oGeneric == oRecord) != (oGeneric != oRecord), "equal or not");

        auiExpected[gsc_uiSource] = auiSet[gsc_uiSource];
        auiExpected[gsc_uiClockInKiloHz] = static_cast<unsigned int>(Nearest(aui[gsc_uiClockInKiloHz], 1000));
        auiExpected[gsc_uiLineRateInKiloHz] = static_cast<unsigned int>(Nearest(aui[gsc_uiLineRateInKiloHz], 1000));
        CRVidParamTiming oTarget({ 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 1 | 4 | 8, { 0, 0 } }, eRVideoFamily_Gtf);
        oTarget = static_cast<const CVidParamTiming&>(oGeneric);
        CVidParamTimingGeneric oBack(gsc_oMarked);
        oBack = static_cast<const CVidParamTiming&>(oTarget);
        Require(ReadAll(oTarget) == auiExpected, "assignment to the class in kilohertz");
        Require(ReadAll(oBack) == auiExpected && oBack.GetPixelClockInHz() % 1000 == 0, "and back");
    }

    // The class in kilohertz keeps clocks as they are set; the other one would wrap the extremes once more.
    template <class COMPUTE>
    void CheckFormula(const Expected& oExpected, COMPUTE fnCompute)
    {
        CRVidParamTiming oTiming;
        Require((fnCompute(&oTiming) != 0) == oExpected.has_value(), "a formula accepts what it should");
        Require(ReadAll(oTiming) == oExpected.value_or(gsc_auiCleared), "a formula gives what it should");
        Require((fnCompute(nullptr) != 0) == oExpected.has_value(), "a formula tests as it answers");
    }

    void CheckFormulas(unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
    {
        using Func = CVidParamTimingFunc;
        const auto Cvt = [&](CVidParamTiming* po) { return Func::ComputeCvt(uiWidth, uiHeight, uiRate, 0, po); };
        const auto Reduced = [&](CVidParamTiming* po) { return Func::ComputeCvt(uiWidth, uiHeight, uiRate, 256, po); };
        const auto Gtf = [&](CVidParamTiming* po) { return Func::ComputeGft(uiWidth, uiHeight, uiRate, po); };
        CheckFormula(SecondCvt(uiWidth, uiHeight, uiRate), Cvt);
        CheckFormula(SecondCvtReduced(uiWidth, uiHeight, uiRate), Reduced);
        CheckFormula(SecondGtf(uiWidth, uiHeight, uiRate), Gtf);
        Require(CVidParamCvt::GetVSyncLines(uiWidth, uiHeight) == SyncLines(uiWidth, uiHeight), "sync lines");
    }

    const char* m_pszBroken = nullptr;
};
