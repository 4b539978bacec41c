// Fuzz target: sizes, clocks and rates; every result is compared with a second computation in 128 bits that wraps by
// hand where the library's steps wrap.

#include "FormulaModel.h"
#include "FuzzSupport.h"
#include "VidParamCea.h"
#include "VidParamCvt.h"
#include "VidParamGtf.h"
#include "VidParamTimingFunc.h"
#include "ZorTools.h"

namespace
{
// Horizontal and vertical active size, front porch, sync and back porch each; line rate, vertical rate, clock; flags of
// CVidParamTimingGeneric and choices.
using CNumbers = std::array<unsigned int, 12>;

void RunDivisions(unsigned int uiDividend, unsigned int uiDivisor)
{
    const Wide uiUp = uiDivisor == 0 ? 0 : (Wide{ uiDividend } + uiDivisor - 1) / uiDivisor;
    Require(ZorTools_RoundedDivision(uiDividend, uiDivisor) == Nearest(uiDividend, uiDivisor), "nearest division");
    Require(ZorTools_RoundedDownDivision(uiDividend, uiDivisor) == Down(uiDividend, uiDivisor), "division down");
    Require(ZorTools_RoundedUpDivision(uiDividend, uiDivisor) == uiUp, "division up");
    const Wide uiRoot = ZorTools_SquareRoot(uiDividend);
    Require(uiDividend < 2 ? uiRoot == 0 : uiRoot * uiRoot <= uiDividend && (uiRoot + 1) * (uiRoot + 1) > uiDividend,
            "square root");
}

// Totals, rates and clocks.
void CheckDerived(const CVidParamTiming& oTiming, const CNumbers& aui)
{
    const bool bInterlaced = (aui[11] & CVidParamTimingGeneric::eFlag_Interlaced) != 0;
    const bool b420 = (aui[11] & CVidParamTimingGeneric::eFlag_420ColorSpace) != 0;
    const bool b3D = (aui[11] & CVidParamTimingGeneric::eFlag_3D) != 0;
    const Wide uiHTotal = Cut(Wide{ aui[0] } + aui[1] + aui[2] + aui[3]);
    const Wide uiVBlank = Wide{ aui[5] } + aui[6] + aui[7];
    const Wide uiVTotal = Cut(aui[4] + (bInterlaced ? 2 * uiVBlank + 1 : uiVBlank));
    const Wide uiHz = oTiming.GetPixelClockInHz();
    const Wide uiKiloHz = oTiming.GetPixelClockInKiloHz();
    const auto Effective = [&](Wide uiClock) { return b420 == b3D ? uiClock : b420 ? uiClock / 2 : Cut(uiClock * 2); };
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

void RunTimings(const CNumbers& aui)
{
    const CVidParamTimingGeneric oGeneric({ aui[0], aui[4], aui[9], aui[8], aui[10], aui[1], aui[2], aui[3], aui[5],
                                            aui[6], aui[7], aui[11], CVidParamTiming::eVidParamType_Detailed });
    Require(oGeneric.GetPixelClockInKiloHz() == aui[10] / 1000, "clock in kilohertz");
    CheckDerived(oGeneric, aui);

    CRVidParamTiming oRecord;
    oRecord = static_cast<const CVidParamTiming&>(oGeneric);
    Require(oRecord.GetPixelClockInKiloHz() == Nearest(aui[10], 1000), "assignment rounds the clock");
    oRecord.SetPixelClockInKiloHz(aui[10]);
    Require(oRecord.GetPixelClockInHz() == Times(aui[10], 1000), "clock in hertz");
    CheckDerived(oRecord, aui);
    Require((oGeneric == oRecord) != (oGeneric != oRecord), "equal or not");
}

void RunFormulas(unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
{
    const struct
    {
        Expected (*m_pfnSecond)(Wide, Wide, Wide);
        CVidParamTiming::EVidParamType m_eType;
    } aoFormulas[] = { { SecondCvt, CVidParamTiming::eVidParamType_Cvt },
                       { SecondCvtReduced, CVidParamTiming::eVidParamType_CvtReducedBlanking },
                       { SecondGtf, CVidParamTiming::eVidParamType_Gtf } };
    for (const auto& [pfnSecond, eType] : aoFormulas)
    {
        CRVidParamTiming oTiming;
        const CAllValues oUntouched = ReadAll(oTiming);
        const int iResult = CVidParamTimingFunc::GetTiming(uiWidth, uiHeight, uiRate, eType, oTiming);
        const Expected oExpected = pfnSecond(uiWidth, uiHeight, uiRate);
        Require((iResult != 0) == oExpected.has_value(), "a formula accepts what it should");
        Require(ReadAll(oTiming) == oExpected.value_or(oUntouched), "a formula gives what it should");
    }
    Require(CVidParamCvt::GetVSyncLines(uiWidth, uiHeight) == SyncLines(uiWidth, uiHeight), "sync lines");
}

// The tables: the same answer with and without an output, and a row that passes its filters. A filter of 0 is open.
void RunTables(unsigned int uiIndex, unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
{
    for (const auto pfnTable :
         { CVidParamTimingFunc::GetCeaTiming, CVidParamTimingFunc::GetDmtTiming, CVidParamTimingFunc::GetSmpteTiming })
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
void RunCode(unsigned int uiCode)
{
    CVidParamTimingGeneric oTiming;
    const int iResult = CVidParamCea::GetVidParamFromVic(uiCode, &oTiming);
    Require(iResult == CVidParamCea::IsVicSupported(uiCode), "a code has a timing when it is supported");
    Require((CVidParamCea::GetVicTableIndex(uiCode) >= 0) == (iResult != 0), "a supported code has a row");
    if (iResult != 0)
    {
        unsigned int uiBack = 0;
        CVidParamTimingGeneric oBack;
        Require(CVidParamCea::GetVicFromVidParam(oTiming, uiBack) != 0 && uiBack <= uiCode, "a timing has a code");
        Require(CVidParamCea::GetVidParamFromVic(uiBack, &oBack) != 0, "the code that comes back has a timing");
        Require(ReadAll(oBack) == ReadAll(oTiming), "the code that comes back has the same timing");
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    CInput oInput(pui8Data, uiSize);
    CNumbers aui;
    for (unsigned int& uiNumber : aui)
    {
        // Any magnitude is as likely as any other.
        const unsigned int uiShift = oInput.TakeByte() % 32;
        uiNumber = oInput.Take32() >> uiShift;
    }
    const unsigned int uiChoice = aui[11];
    RunDivisions(aui[0], aui[1]);
    RunTimings(aui);
    RunFormulas(aui[0], aui[4], aui[9]);
    RunTables(uiChoice % 256, (uiChoice & 0x100) != 0 ? aui[0] : 0, (uiChoice & 0x200) != 0 ? aui[4] : 0,
              (uiChoice & 0x400) != 0 ? aui[9] : 0);
    RunCode(uiChoice % 256 + ((uiChoice & 0x100) != 0 ? 1000 : 0)); // the 1000/1001 variant of a code
    return 0;
}
