// zoredid timing: the timing of a size and rate from tables and formulas, or of a code.

#include <CLI/CLI.hpp>
#include <string.h>

#include <algorithm>
#include <charconv>

#include "Json.h"
#include "ManyFiles.h"
#include "TextFormat.h"
#include "Timings.h"
#include "Tool.h"
#include "VidParamCea.h"
#include "VidParamDmt.h"
#include "VidParamTimingFunc.h"

namespace
{
struct SMode
{
    unsigned int m_uiWidth = 0;
    unsigned int m_uiHeight = 0;
    unsigned int m_uiRateInHz = 0;
};

struct STimingOptions
{
    std::string m_sMode;
    std::string m_sType = "all";
    unsigned int m_uiVic = 0;
    bool m_bJson = false;
    bool m_bModeline = false;
};

using CTimings = std::vector<CVidParamTimingGeneric>;

// "1920x1080@60"; false for anything else, numbers beyond 32 bits among it.
bool ParseMode(const std::string& sText, SMode& oMode)
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

// Match number uiIndex, from 0, of a size and rate. A formula has one answer.
using FGet = int(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
                 unsigned int uiRateInHz);

template <CVidParamDmt::EModeListType eRows>
int GetDmt(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
           unsigned int uiRateInHz)
{
    return CVidParamDmt::GetVidParam(uiIndex, poTiming, uiWidth, uiHeight, uiRateInHz, eRows);
}

// The library's numbers have 32 bits, clocks in hertz among them: beyond that a formula's numbers wrap, and then the
// clock is far from what the totals and the rate make of it.
bool HasWrapped(const CVidParamTiming& oTiming, const SMode& oMode)
{
    const double dPixels = static_cast<double>(oMode.m_uiWidth) + oTiming.GetHorizontalFrontPorch() +
                           oTiming.GetHorizontalSync() + oTiming.GetHorizontalBackPorch();
    const double dLines = static_cast<double>(oMode.m_uiHeight) + oTiming.GetVerticalFrontPorch() +
                          oTiming.GetVerticalSync() + oTiming.GetVerticalBackPorch();
    return oTiming.GetPixelClockInHz() < 0.5 * dPixels * dLines * oMode.m_uiRateInHz;
}

template <int iReducedBlanking>
int GetCvt(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
           unsigned int uiRateInHz)
{
    return uiIndex == 0 &&
                   CVidParamTimingFunc::ComputeCvt(uiWidth, uiHeight, uiRateInHz, iReducedBlanking, poTiming) != 0 &&
                   !HasWrapped(*poTiming, { uiWidth, uiHeight, uiRateInHz })
               ? 1
               : 0;
}

int GetGtf(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
           unsigned int uiRateInHz)
{
    return uiIndex == 0 && CVidParamTimingFunc::ComputeGft(uiWidth, uiHeight, uiRateInHz, poTiming) != 0 &&
                   !HasWrapped(*poTiming, { uiWidth, uiHeight, uiRateInHz })
               ? 1
               : 0;
}

struct SSource
{
    const char* m_pszName; // as GetTypeName has it
    FGet* m_pfnGet;
};

constexpr SSource gsc_aoSources[] = {
    { "dmt", GetDmt<CVidParamDmt::eModeListStandard> },
    { "dmt-rb", GetDmt<CVidParamDmt::eModeListReducedBlanking> },
    { "cvt", GetCvt<0> },
    { "cvt-rb", GetCvt<1> },
    { "gtf", GetGtf },
    { "cea", CVidParamTimingFunc::GetCeaTiming },
    { "smpte", CVidParamTimingFunc::GetSmpteTiming },
};

// All answers of a source. Rows that say the same, as codes for two picture aspects do, give one timing.
CTimings AskSource(FGet* pfnGet, const SMode& oMode)
{
    CTimings aoTimings;
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; pfnGet(i, &oTiming, oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_uiRateInHz) != 0; ++i)
    {
        if (std::none_of(aoTimings.begin(), aoTimings.end(), [&](const CVidParamTimingGeneric& oOther) {
                return memcmp(&oOther.GetData(), &oTiming.GetData(), sizeof(SVidParamGenericData)) == 0;
            }))
        {
            aoTimings.push_back(oTiming);
        }
    }
    return aoTimings;
}

// The code's timing, and its 1000/1001 variant where the table has one.
CTimings FindByVic(unsigned int uiVic)
{
    constexpr unsigned int uiVariantKey = 1000;
    CTimings aoTimings;
    for (const unsigned int uiKey : { uiVic, uiVic + uiVariantKey })
    {
        CVidParamTimingGeneric oTiming;
        if (uiVic < uiVariantKey && CVidParamCea::GetVidParamFromVic(uiKey, &oTiming) != 0)
        {
            aoTimings.push_back(oTiming);
        }
    }
    return aoTimings;
}

CTimings FindByMode(const SMode& oMode, const std::string& sType)
{
    CTimings aoTimings;
    for (const SSource& oSource : gsc_aoSources)
    {
        if (sType == "all" || sType == oSource.m_pszName)
        {
            const CTimings aoAnswers = AskSource(oSource.m_pfnGet, oMode);
            aoTimings.insert(aoTimings.end(), aoAnswers.begin(), aoAnswers.end());
        }
    }
    return aoTimings;
}

std::string GetLine(const CVidParamTimingGeneric& oTiming)
{
    const std::string sVics = GetVicsText(FindVics(oTiming));
    return FormatText("%-7s %s  horizontal %u+%u+%u %c  vertical %u+%u+%u %c%s%s\n",
                      GetTypeName(oTiming.GetVideoFamilyType()), GetTimingText(oTiming).c_str(),
                      oTiming.GetHorizontalFrontPorch(), oTiming.GetHorizontalSync(), oTiming.GetHorizontalBackPorch(),
                      oTiming.IsHorizontalPolarityPositive() != 0 ? '+' : '-', oTiming.GetVerticalFrontPorch(),
                      oTiming.GetVerticalSync(), oTiming.GetVerticalBackPorch(),
                      oTiming.IsVerticalPolarityPositive() != 0 ? '+' : '-', sVics.empty() ? "" : "  ", sVics.c_str());
}

void PrintTimings(const STimingOptions& oOptions, STool& oTool)
{
    SMode oMode;
    if (!ParseMode(oOptions.m_sMode, oMode) && oOptions.m_uiVic == 0)
    {
        PrintError("timing: neither a mode such as 1920x1080@60 nor --vic");
        oTool.Note(eExit_CommandLine);
        return;
    }
    const CTimings aoTimings =
        oOptions.m_uiVic != 0 ? FindByVic(oOptions.m_uiVic) : FindByMode(oMode, oOptions.m_sType);
    const std::string sWanted = oOptions.m_uiVic != 0 ? FormatText("VIC %u", oOptions.m_uiVic) : oOptions.m_sMode;
    std::string sText;
    if (aoTimings.empty())
    {
        PrintError(sWanted + ": no " + (oOptions.m_sType == "all" ? "" : oOptions.m_sType + " ") + "timing");
        oTool.Note(eExit_Finding);
    }
    if (oOptions.m_bJson)
    {
        nlohmann::ordered_json oJson = MakeDocument();
        oJson["timings"] = nlohmann::ordered_json::array();
        for (const CVidParamTimingGeneric& oTiming : aoTimings)
        {
            oJson["timings"].push_back(MakeTiming(oTiming, FindVics(oTiming)));
        }
        sText = WriteIndented(oJson) + "\n";
    }
    else
    {
        for (const CVidParamTimingGeneric& oTiming : aoTimings)
        {
            sText += oOptions.m_bModeline ? GetModeline(oTiming) + "\n" : GetLine(oTiming);
        }
    }
    PrintOutcome({ sText, "", eExit_Good }, oTool);
}
} // namespace

void AddTimingCommand(CLI::App& oApp, STool& oTool)
{
    CLI::App* poCommand = oApp.add_subcommand("timing", "Compute or look up the timing of a mode");
    const auto poOptions = std::make_shared<STimingOptions>();
    std::vector<std::string> asTypes = { "all" };
    for (const SSource& oSource : gsc_aoSources)
    {
        asTypes.push_back(oSource.m_pszName);
    }
    CLI::Option* poMode =
        poCommand->add_option("MODE", poOptions->m_sMode, "Size and rate in hertz, such as 1920x1080@60")
            ->type_name("WxH@R")
            ->check([](const std::string& sText) {
                SMode oMode;
                return ParseMode(sText, oMode) ? "" : sText + " is no mode such as 1920x1080@60";
            });
    CLI::Option* poType = poCommand->add_option("--type", poOptions->m_sType, "Where the timing comes from")
                              ->check(CLI::IsMember(asTypes))
                              ->type_name("NAME");
    CLI::Option* poVic = poCommand->add_option("--vic", poOptions->m_uiVic, "The timing of a code of CTA-861")
                             ->type_name("N")
                             ->check(CLI::Range(1U, 255U).description("1 to 255"));
    poVic->excludes(poMode)->excludes(poType);
    CLI::Option* poJson = poCommand->add_flag("--json", poOptions->m_bJson, "As JSON");
    poCommand->add_flag("--modeline", poOptions->m_bModeline, "Lines for xorg.conf and other tools")->excludes(poJson);
    poCommand->footer("The tables hold whole rates: 59.94 Hz stands at 59, and interlaced modes at their frame rate.\n"
                      "Exit status: 0, or 1 when there is no such timing.\n\n"
                      "Examples:\n"
                      "  zoredid timing 2560x1440@60 --type cvt-rb --modeline\n"
                      "  zoredid timing --vic 16");
    poCommand->callback([poOptions, &oTool] { PrintTimings(*poOptions, oTool); });
}
