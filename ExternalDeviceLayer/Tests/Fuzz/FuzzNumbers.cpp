// Fuzz target: sizes, clocks and rates; every result is compared with a second computation in 128 bits that wraps by
// hand where the library's steps wrap.

#include <iterator>

#include "FormulaModel.h"
#include "FuzzSupport.h"
#include "VidParamCea.h"
#include "VidParamCvt.h"
#include "VidParamGtf.h"
#include "VidParamTimingFunc.h"
#include "ZorTools.h"

namespace
{
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

void FillTiming(CVidParamTiming& oTiming, const unsigned int (&auiValues)[12])
{
    oTiming.SetHorizontalActive(auiValues[0]);
    oTiming.SetHorizontalFrontPorch(auiValues[1]);
    oTiming.SetHorizontalSync(auiValues[2]);
    oTiming.SetHorizontalBackPorch(auiValues[3]);
    oTiming.SetVerticalActive(auiValues[4]);
    oTiming.SetVerticalFrontPorch(auiValues[5]);
    oTiming.SetVerticalSync(auiValues[6]);
    oTiming.SetVerticalBackPorch(auiValues[7]);
    oTiming.SetHorizontalRateInHz(auiValues[8]);
    oTiming.SetVerticalRateInHz(auiValues[9]);
    oTiming.SetInterlaced(static_cast<int>(auiValues[11] & 1));
    oTiming.Set420ColorSpace(static_cast<int>(auiValues[11] >> 1 & 1));
    oTiming.Set3D(static_cast<int>(auiValues[11] >> 2 & 1));
}

// Totals, rates and clocks of one timing object, whose clock the caller has set.
void CheckDerived(const CVidParamTiming& oTiming, const unsigned int (&auiValues)[12])
{
    const bool bInterlaced = (auiValues[11] & 1) != 0;
    const Wide uiHTotal = Cut(Wide{ auiValues[0] } + auiValues[1] + auiValues[2] + auiValues[3]);
    const Wide uiVBlank = Wide{ auiValues[5] } + auiValues[6] + auiValues[7];
    const Wide uiVTotal = Cut(auiValues[4] + (bInterlaced ? 2 * uiVBlank + 1 : uiVBlank));
    const Wide uiHz = oTiming.GetPixelClockInHz();
    const Wide uiKiloHz = oTiming.GetPixelClockInKiloHz();
    Require(oTiming.GetHorizontalTotal() == uiHTotal, "horizontal total");
    Require(oTiming.ComputeHorizontalTotalPixel() == uiHTotal, "computed horizontal total");
    Require(oTiming.GetVerticalTotal() == uiVTotal, "vertical total");
    Require(oTiming.ComputeVerticalTotalLine() == uiVTotal, "computed vertical total");
    Require(oTiming.ComputeHorizontalRateInHz() == Nearest(uiHz, uiHTotal), "line rate in hertz");
    Require(oTiming.ComputeHorizontalRateInKiloHz() == Nearest(uiKiloHz, uiHTotal), "line rate in kilohertz");
    Require(oTiming.ComputeVerticalRateInHz() == Nearest(uiHz, Times(uiHTotal, uiVTotal)), "vertical rate");

    const bool b420 = (auiValues[11] & 2) != 0;
    const bool b3D = (auiValues[11] & 4) != 0;
    const auto Effective = [&](Wide uiClock) { return b420 == b3D ? uiClock : b420 ? uiClock / 2 : Cut(uiClock * 2); };
    Require(oTiming.GetEffectivePixelClockInHz() == Effective(uiHz), "effective clock in hertz");
    Require(oTiming.GetEffectivePixelClockInKiloHz() == Effective(uiKiloHz), "effective clock in kilohertz");
}

// Clocks from 2^31 on are outside what the comparison is for; they must be safe all the same.
void CheckEquivalence(const CVidParamTiming& oTiming, unsigned int uiHz)
{
    constexpr unsigned int uiHighestHz = 0x7FFFFFFF;
    const bool bEquivalent = oTiming.IsPixelClockInHzEquivalent(uiHz) != 0;
    if (uiHz > uiHighestHz || oTiming.GetPixelClockInKiloHz() > uiHighestHz / 1000)
    {
        return;
    }
    const Wide uiOwn = oTiming.GetPixelClockInKiloHz();
    const Wide uiOther = uiHz / 1000;
    bool bExpected = oTiming.GetPixelClockInHz() == uiHz;
    if (!bExpected && uiOwn != 0 && uiHz != 0)
    {
        const Wide uiDifference = uiOwn > uiOther ? uiOwn - uiOther : uiOther - uiOwn;
        bExpected =
            uiDifference == 0 || uiDifference * 10000 / std::max(uiOwn, uiOther) <= Wide{ uiOwn < 75001 ? 10U : 50U };
    }
    Require(bEquivalent == bExpected, "equivalence of clocks");
}

void RunTimings(const unsigned int (&auiValues)[12])
{
    CVidParamTimingGeneric oGeneric;
    FillTiming(oGeneric, auiValues);
    oGeneric.SetPixelClockInHz(auiValues[10]);
    Require(oGeneric.GetPixelClockInKiloHz() == auiValues[10] / 1000, "clock in kilohertz");
    CheckDerived(oGeneric, auiValues);

    CRVidParamTiming oRecord;
    FillTiming(oRecord, auiValues);
    oRecord.SetPixelClockInKiloHz(auiValues[10]);
    Require(oRecord.GetPixelClockInHz() == Times(auiValues[10], 1000), "clock in hertz");
    CheckDerived(oRecord, auiValues);

    CheckEquivalence(oGeneric, auiValues[9]);
    CheckEquivalence(oRecord, auiValues[9]);
    Require((oGeneric == oRecord) != (oGeneric != oRecord), "equal or not");
    oRecord = static_cast<const CVidParamTiming&>(oGeneric);
    Require(oRecord.GetPixelClockInKiloHz() == Nearest(auiValues[10], 1000), "assignment rounds the clock");
    Require(oRecord.GetVerticalBackPorch() == auiValues[7], "assignment copies");
}

void RunFormulas(unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
{
    struct SFormula
    {
        Expected (*m_pfnSecond)(Wide, Wide, Wide);
        CVidParamTiming::EVidParamType m_eType;
    };
    const SFormula aoFormulas[] = { { SecondCvt, CVidParamTiming::eVidParamType_Cvt },
                                    { SecondCvtReduced, CVidParamTiming::eVidParamType_CvtReducedBlanking },
                                    { SecondGtf, CVidParamTiming::eVidParamType_Gtf } };
    for (const SFormula& oFormula : aoFormulas)
    {
        CRVidParamTiming oTiming;
        const CAllValues oUntouched = ReadAll(oTiming);
        const int iResult = CVidParamTimingFunc::GetTiming(uiWidth, uiHeight, uiRate, oFormula.m_eType, oTiming);
        const Expected oExpected = oFormula.m_pfnSecond(uiWidth, uiHeight, uiRate);
        Require((iResult != 0) == oExpected.has_value(), "a formula accepts what it should");
        Require(ReadAll(oTiming) == oExpected.value_or(oUntouched), "a formula gives what it should");
    }
    Require(CVidParamCvt::GetVSyncLines(uiWidth, uiHeight) == SyncLines(uiWidth, uiHeight), "sync lines");
}

// The tables: the same answer with and without an output, and a row that passes its filters. A filter of 0 is open.
void RunTables(unsigned int uiIndex, unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRate)
{
    const auto apfnTables = { CVidParamTimingFunc::GetCeaTiming, CVidParamTimingFunc::GetDmtTiming,
                              CVidParamTimingFunc::GetSmpteTiming };
    for (const auto pfnTable : apfnTables)
    {
        CVidParamTimingGeneric oTiming;
        const int iResult = pfnTable(uiIndex, &oTiming, uiWidth, uiHeight, uiRate);
        Require(pfnTable(uiIndex, nullptr, uiWidth, uiHeight, uiRate) == iResult, "a test answers as the call");
        if (iResult != 0)
        {
            Require(uiWidth == 0 || oTiming.GetHorizontalActive() == uiWidth, "a row passes its filter of width");
            Require(uiHeight == 0 || oTiming.GetVerticalActive() == uiHeight, "a row passes its filter of height");
            Require(uiRate == 0 || oTiming.GetVerticalRateInHz() == uiRate, "a row passes its filter of rate");
        }
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

extern "C" int LLVMFuzzerInitialize(int* /*piCount*/, char*** /*pppszArguments*/)
{
    SilenceMessages();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    CInput oInput(pui8Data, uiSize);
    unsigned int auiValues[12];
    for (unsigned int& uiValue : auiValues)
    {
        // Any magnitude is as likely as any other.
        const unsigned int uiShift = oInput.TakeByte() % 32;
        uiValue = oInput.Take32() >> uiShift;
    }
    RunDivisions(auiValues[0], auiValues[1]);
    RunTimings(auiValues);
    RunFormulas(auiValues[0], auiValues[4], auiValues[9]);
    const unsigned int uiChoice = auiValues[11];
    RunTables(uiChoice % 256, (uiChoice & 0x100) != 0 ? auiValues[0] : 0, (uiChoice & 0x200) != 0 ? auiValues[4] : 0,
              (uiChoice & 0x400) != 0 ? auiValues[9] : 0);
    RunCode(uiChoice % 256 + ((uiChoice & 0x100) != 0 ? 1000 : 0)); // the 1000/1001 variant of a code
    return 0;
}
