// The sources of timings for a size and rate.

#include "ModeSources.h"

#include <algorithm>
#include <charconv>

#include "Timings.h"
#include "VidParamDmt.h"
#include "VidParamTimingFunc.h"

namespace
{
template <CVidParamDmt::EModeListType eRows>
int GetDmt(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
           unsigned int uiRateInHz)
{
    return CVidParamDmt::GetVidParam(uiIndex, poTiming, uiWidth, uiHeight, uiRateInHz, eRows);
}

template <int iReducedBlanking>
int GetCvt(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
           unsigned int uiRateInHz)
{
    return uiIndex == 0 ? CVidParamTimingFunc::ComputeCvt(uiWidth, uiHeight, uiRateInHz, iReducedBlanking, poTiming)
                        : 0;
}

int GetGtf(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
           unsigned int uiRateInHz)
{
    return uiIndex == 0 ? CVidParamTimingFunc::ComputeGft(uiWidth, uiHeight, uiRateInHz, poTiming) : 0;
}

constexpr STimingSource gsc_aoSources[] = {
    { "dmt", GetDmt<CVidParamDmt::eModeListStandard> },
    { "dmt-rb", GetDmt<CVidParamDmt::eModeListReducedBlanking> },
    { "cvt", GetCvt<0> },
    { "cvt-rb", GetCvt<1> },
    { "gtf", GetGtf },
    { "cea", CVidParamTimingFunc::GetCeaTiming },
    { "smpte", CVidParamTimingFunc::GetSmpteTiming },
};

// The library's numbers have 32 bits, clocks in hertz among them: beyond that a formula's numbers wrap, and then the
// clock is far from what the totals and the rate make of it. The tables' clocks are right, and those of interlaced rows
// are at the frame rate.
bool HasWrapped(const CVidParamTiming& oTiming, const SAskedMode& oMode)
{
    const double dPixels = static_cast<double>(oMode.m_uiWidth) + oTiming.GetHorizontalFrontPorch() +
                           oTiming.GetHorizontalSync() + oTiming.GetHorizontalBackPorch();
    const double dLines = static_cast<double>(oMode.m_uiHeight) + oTiming.GetVerticalFrontPorch() +
                          oTiming.GetVerticalSync() + oTiming.GetVerticalBackPorch();
    return oTiming.GetPixelClockInHz() < 0.5 * dPixels * dLines * oMode.m_uiRateInHz;
}

bool IsComputed(const CVidParamTiming& oTiming)
{
    const CVidParamTiming::EVidParamType eType = oTiming.GetVideoFamilyType();
    return eType == CVidParamTiming::eVidParamType_Cvt || eType == CVidParamTiming::eVidParamType_CvtReducedBlanking ||
           eType == CVidParamTiming::eVidParamType_Gtf;
}
} // namespace

bool ParseMode(const std::string& sText, SAskedMode& oMode)
{
    const char* pszNext = sText.data();
    const char* const pszEnd = pszNext + sText.size();
    const auto fnNumber = [&](unsigned int& uiValue) {
        const std::from_chars_result oResult = std::from_chars(pszNext, pszEnd, uiValue);
        pszNext = oResult.ptr;
        return oResult.ec == std::errc();
    };
    const auto fnMark = [&](char cMark) { return pszNext != pszEnd && *pszNext++ == cMark; };
    return fnNumber(oMode.m_uiWidth) && fnMark('x') && fnNumber(oMode.m_uiHeight) && fnMark('@') &&
           fnNumber(oMode.m_uiRateInHz) && pszNext == pszEnd && oMode.m_uiWidth != 0 && oMode.m_uiHeight != 0 &&
           oMode.m_uiRateInHz != 0;
}

std::span<const STimingSource> GetModeSources() { return gsc_aoSources; }

STimingAnswers AskSource(const STimingSource& oSource, const SAskedMode& oMode)
{
    STimingAnswers oAnswers;
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; oSource.m_pfnGet(i, &oTiming, oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_uiRateInHz) != 0;
         ++i)
    {
        const auto fnIsSame = [&](const CVidParamTimingGeneric& oOther) { return IsSameRecord(oOther, oTiming); };
        if (IsComputed(oTiming) && HasWrapped(oTiming, oMode))
        {
            oAnswers.m_bClockTooHigh = true;
        }
        else if (std::none_of(oAnswers.m_aoTimings.begin(), oAnswers.m_aoTimings.end(), fnIsSame))
        {
            oAnswers.m_aoTimings.push_back(oTiming);
        }
    }
    return oAnswers;
}
