// zoredid timing: the timing of a size and rate from tables and formulas, or of a code.

#include "CommandLine.h"
#include "Json.h"
#include "ManyFiles.h"
#include "ModeSources.h"
#include "TextFormat.h"
#include "Timings.h"
#include "Tool.h"
#include "VidParamCea.h"

namespace
{
struct STimingOptions
{
    std::string m_sMode;
    std::string m_sType = "all";
    unsigned int m_uiVic = 0;
    bool m_bJson = false;
    bool m_bModeline = false;
};

using CTimings = std::vector<CVidParamTimingGeneric>;

// The code's timing, and its 1000/1001 variant where the table has one.
CTimings FindByVic(unsigned int uiVic)
{
    CTimings aoTimings;
    for (const unsigned int uiKey : { uiVic, uiVic + CVidParamCea::msc_uiVariantKey })
    {
        CVidParamTimingGeneric oTiming;
        if (uiVic < CVidParamCea::msc_uiVariantKey && CVidParamCea::GetVidParamFromVic(uiKey, &oTiming) != 0)
        {
            aoTimings.push_back(oTiming);
        }
    }
    return aoTimings;
}

CTimings FindByMode(const SMode& oMode, const std::string& sType)
{
    CTimings aoTimings;
    for (const SModeSource& oSource : GetModeSources())
    {
        if (sType == "all" || sType == oSource.m_pszName)
        {
            const CTimings aoAnswers = AskSource(oSource, oMode).m_aoTimings;
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

void DeclareTimingOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<STimingOptions>();
    std::vector<std::string> asTypes = { "all" };
    for (const SModeSource& oSource : GetModeSources())
    {
        asTypes.push_back(oSource.m_pszName);
    }
    const COption oMode =
        oCommand.Word("MODE", poOptions->m_sMode, "Size and rate in whole hertz, such as 1920x1080@60")
            .Placeholder("WxH@R")
            .Check([](const std::string& sText) {
                SMode oParsed;
                return ParseMode(sText, oParsed)
                           ? ""
                           : "unknown mode " + ShowName(sText) + "; expected one such as 1920x1080@60, in whole hertz";
            });
    const COption oType =
        oCommand.Word("--type", poOptions->m_sType, "Where the timing comes from").OneOf(asTypes).Placeholder("NAME");
    oCommand.Number("--vic", poOptions->m_uiVic, 1, 255, "The timing of a code of CTA-861", "1 to 255")
        .Placeholder("N")
        .Excludes(oMode)
        .Excludes(oType);
    const COption oJson = oCommand.Flag("--json", poOptions->m_bJson, "As JSON");
    oCommand.Flag("--modeline", poOptions->m_bModeline, "Lines for xorg.conf and other tools").Excludes(oJson);
    oCommand.Footer("The tables hold whole rates: 59.94 Hz is under 59, and interlaced modes under their frame rate.\n"
                    "Exit status: 0, or 1 when no such timing exists.\n\n"
                    "Examples:\n"
                    "  zoredid timing 2560x1440@60 --type cvt-rb --modeline\n"
                    "  zoredid timing --vic 16");
    oCommand.Run([poOptions, &oTool] { PrintTimings(*poOptions, oTool); });
}
