// Divisions, derived values, clocks, formulas, tables and codes against second computations: one check of twelve
// numbers, which the unit tests run over a grid and the fuzz target over whatever it finds.

#pragma once

#include "FormulaModel.h"
#include "VidParamCea.h"
#include "VidParamCvt.h"
#include "VidParamTimingFunc.h"
#include "ZorTools.h"

// Sizes, rates and clock as CNumbersCheck::Fill takes them, then flags and choices.
using CNumbers = std::array<unsigned int, 12>;

class CNumbersCheck
{
public:
    // Null, or which promise is broken for these numbers.
    const char* Run(const CNumbers& aui)
    {
        const unsigned int uiChoice = aui[11];
        CheckDivisions(aui[0], aui[1]);
        CheckTimings(aui);
        CheckFormulas(aui[0], aui[4], aui[9]);
        CheckTables(uiChoice % 256, (uiChoice & 0x100) != 0 ? aui[0] : 0, (uiChoice & 0x200) != 0 ? aui[4] : 0,
                    (uiChoice & 0x400) != 0 ? aui[9] : 0);
        CheckCode(uiChoice % 256 + ((uiChoice & 0x100) != 0 ? 1000 : 0)); // the 1000/1001 variant of a code
        return m_pszBroken;
    }

private:
    void Require(bool bHolds, const char* pszPromise) { m_pszBroken = bHolds ? m_pszBroken : pszPromise; }

    void CheckDivisions(unsigned int uiDividend, unsigned int uiDivisor)
    {
        const Wide uiUp = uiDivisor == 0 ? 0 : (Wide{ uiDividend } + uiDivisor - 1) / uiDivisor;
        Require(ZorTools_RoundedDivision(uiDividend, uiDivisor) == Nearest(uiDividend, uiDivisor), "nearest division");
        Require(ZorTools_RoundedDownDivision(uiDividend, uiDivisor) == Down(uiDividend, uiDivisor), "division down");
        Require(ZorTools_RoundedUpDivision(uiDividend, uiDivisor) == uiUp, "division up");
        const Wide uiRoot = ZorTools_SquareRoot(uiDividend);
        Require(uiDividend < 2 ? uiRoot == 0
                               : uiRoot * uiRoot <= uiDividend && (uiRoot + 1) * (uiRoot + 1) > uiDividend,
                "square root");
    }

    // Totals, rates and clocks of one timing object, whose clock the caller has set.
    void FillAndCheck(CVidParamTiming& oTiming, const CNumbers& aui)
    {
        const bool bInterlaced = (aui[11] & 1) != 0;
        const bool b420 = (aui[11] & 2) != 0;
        const bool b3D = (aui[11] & 4) != 0;
        oTiming.SetHorizontalActive(aui[0]);
        oTiming.SetHorizontalFrontPorch(aui[1]);
        oTiming.SetHorizontalSync(aui[2]);
        oTiming.SetHorizontalBackPorch(aui[3]);
        oTiming.SetVerticalActive(aui[4]);
        oTiming.SetVerticalFrontPorch(aui[5]);
        oTiming.SetVerticalSync(aui[6]);
        oTiming.SetVerticalBackPorch(aui[7]);
        oTiming.SetHorizontalRateInHz(aui[8]);
        oTiming.SetVerticalRateInHz(aui[9]);
        oTiming.SetHorizontalPolarityPositive(static_cast<int>(aui[11] >> 3 & 1));
        oTiming.SetVerticalPolarityPositive(static_cast<int>(aui[11] >> 4 & 1));
        oTiming.SetInterlaced(bInterlaced ? 1 : 0);
        oTiming.Set420ColorSpace(b420 ? 1 : 0);
        oTiming.Set3D(b3D ? 1 : 0);

        const Wide uiHTotal = Cut(Wide{ aui[0] } + aui[1] + aui[2] + aui[3]);
        const Wide uiVBlank = Wide{ aui[5] } + aui[6] + aui[7];
        const Wide uiVTotal = Cut(aui[4] + (bInterlaced ? 2 * uiVBlank + 1 : uiVBlank));
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
        const Wide uiOther = aui[9];
        const bool bEquivalent = oTiming.IsPixelClockInHzEquivalent(aui[9]) != 0;
        const Wide uiLarger = std::max(uiKiloHz, uiOther / 1000);
        const Wide uiDifference = uiLarger - std::min(uiKiloHz, uiOther / 1000);
        const Wide uiSpread = uiKiloHz < 75001 ? 10 : 50; // in 1/10,000
        const bool bNear = uiKiloHz != 0 && uiOther != 0 && Down(uiDifference * 10000, uiLarger) <= uiSpread;
        Require(uiKiloHz > 0x7FFFFFFF / 1000 || uiOther > 0x7FFFFFFF || bEquivalent == (uiHz == uiOther || bNear),
                "equivalence of clocks");
    }

    // The class in hertz truncates kilohertz, that in kilohertz rounds hertz; what is multiplied wraps. Assignment
    // between them goes through hertz, and nothing stays of what stood there.
    void CheckTimings(const CNumbers& aui)
    {
        CVidParamTimingGeneric oGeneric;
        oGeneric.SetPixelClockInKiloHz(aui[10]);
        oGeneric.SetHorizontalRateInKiloHz(aui[10]);
        Require(oGeneric.GetPixelClockInHz() == Times(aui[10], 1000), "clock into hertz");
        Require(oGeneric.GetHorizontalRateInHz() == Times(aui[10], 1000), "line rate into hertz");
        oGeneric.SetPixelClockInHz(aui[10]);
        FillAndCheck(oGeneric, aui);
        Require(oGeneric.GetPixelClockInKiloHz() == aui[10] / 1000, "clock in kilohertz");
        Require(oGeneric.GetHorizontalRateInKiloHz() == aui[8] / 1000, "line rate in kilohertz");

        CRVidParamTiming oRecord;
        oRecord.SetPixelClockInKiloHz(aui[10]);
        FillAndCheck(oRecord, aui);
        Require(oRecord.GetPixelClockInHz() == Times(aui[10], 1000), "clock in hertz");
        Require(oRecord.GetHorizontalRateInHz() == Times(Nearest(aui[8], 1000), 1000), "line rate in hertz");
        Require((oGeneric == oRecord) != (oGeneric != oRecord), "equal or not");

        CAllValues auiExpected = ReadAll(oGeneric);
        auiExpected[gsc_uiClockInKiloHz] = static_cast<unsigned int>(Nearest(aui[10], 1000));
        auiExpected[gsc_uiLineRateInKiloHz] = static_cast<unsigned int>(Nearest(aui[8], 1000));
        CRVidParamTiming oTarget({ 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 1 | 4 | 8, { 0, 0 } }, eRVideoFamily_Gtf);
        oTarget = static_cast<const CVidParamTiming&>(oGeneric);
        CVidParamTimingGeneric oBack(gsc_oMarked);
        oBack = static_cast<const CVidParamTiming&>(oTarget);
        Require(ReadAll(oTarget) == auiExpected, "assignment to the class in kilohertz");
        Require(ReadAll(oBack) == auiExpected && oBack.GetPixelClockInHz() % 1000 == 0, "and back");
    }

    // The class in kilohertz keeps clocks as they are set; the other one would wrap the extremes once more.
    void CheckFormula(const Expected& oExpected, int iTest, int iResult, const CVidParamTiming& oTiming)
    {
        Require((iResult != 0) == oExpected.has_value(), "a formula accepts what it should");
        Require(ReadAll(oTiming) == oExpected.value_or(CAllValues{}), "a formula gives what it should");
        Require(iTest == iResult, "a formula tests as it answers");
    }

    void CheckFormulas(unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
    {
        using Func = CVidParamTimingFunc;
        CRVidParamTiming aoTimings[3];
        CheckFormula(SecondCvt(uiWidth, uiHeight, uiRate), Func::ComputeCvt(uiWidth, uiHeight, uiRate, 0, nullptr),
                     Func::ComputeCvt(uiWidth, uiHeight, uiRate, 0, &aoTimings[0]), aoTimings[0]);
        CheckFormula(SecondCvtReduced(uiWidth, uiHeight, uiRate),
                     Func::ComputeCvt(uiWidth, uiHeight, uiRate, 1, nullptr),
                     Func::ComputeCvt(uiWidth, uiHeight, uiRate, 0x100, &aoTimings[1]), aoTimings[1]);
        CheckFormula(SecondGtf(uiWidth, uiHeight, uiRate), Func::ComputeGft(uiWidth, uiHeight, uiRate, nullptr),
                     Func::ComputeGft(uiWidth, uiHeight, uiRate, &aoTimings[2]), aoTimings[2]);
        Require(CVidParamCvt::GetVSyncLines(uiWidth, uiHeight) == SyncLines(uiWidth, uiHeight), "sync lines");
    }

    // The same answer with and without an output, and a row that passes its filters. A filter of 0 is open.
    void CheckTables(unsigned int uiIndex, unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
    {
        for (const auto pfnTable : { CVidParamTimingFunc::GetCeaTiming, CVidParamTimingFunc::GetDmtTiming,
                                     CVidParamTimingFunc::GetSmpteTiming })
        {
            CVidParamTimingGeneric oTiming;
            const int iResult = pfnTable(uiIndex, &oTiming, uiWidth, uiHeight, uiRate);
            const auto Passes = [&](unsigned int uiFilter, unsigned int uiValue) {
                return iResult == 0 || uiFilter == 0 || uiValue == uiFilter;
            };
            Require(pfnTable(uiIndex, nullptr, uiWidth, uiHeight, uiRate) == iResult, "a test answers as the call");
            Require(Passes(uiWidth, oTiming.GetHorizontalActive()), "a row passes its filter of width");
            Require(Passes(uiHeight, oTiming.GetVerticalActive()), "a row passes its filter of height");
            Require(Passes(uiRate, oTiming.GetVerticalRateInHz()), "a row passes its filter of rate");
        }
    }

    // A code of the CEA-861 table to its timing and back; where codes share a timing, the lower one comes back.
    void CheckCode(unsigned int uiCode)
    {
        CVidParamTimingGeneric oTiming(gsc_oMarked);
        const int iResult = CVidParamCea::GetVidParamFromVic(uiCode, &oTiming);
        Require(iResult == CVidParamCea::IsVicSupported(uiCode), "a code has a timing when it is supported");
        Require((CVidParamCea::GetVicTableIndex(uiCode) != -1) == (iResult != 0), "a supported code has a row");
        unsigned int uiBack = 0;
        if (iResult == 0)
        {
            Require(ReadAll(oTiming) == CAllValues{}, "an unknown code clears the timing");
            return;
        }
        CVidParamTimingGeneric oBack;
        Require(CVidParamCea::GetVicFromVidParam(oTiming, uiBack) != 0 && uiBack <= uiCode, "a timing has a code");
        Require(CVidParamCea::GetVidParamFromVic(uiBack, &oBack) != 0, "the code that comes back has a timing");
        Require(ReadAll(oBack) == ReadAll(oTiming), "the code that comes back has the same timing");
    }

    const char* m_pszBroken = nullptr;
};
