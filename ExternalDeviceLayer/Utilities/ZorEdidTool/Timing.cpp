// zoredid timing: the timing of a size and rate from tables and formulas, or of a code.

#include "CommandLine.h"
#include "ExactTimings.h"
#include "Json.h"
#include "ManyFiles.h"
#include "TextFormat.h"
#include "Tool.h"

namespace
{
struct STimingOptions
{
    std::string m_sMode;
    std::string m_sType = "all";
    std::string m_sDmt;
    unsigned int m_uiVic = 0;
    unsigned int m_uiHdmiVic = 0;
    bool m_bJson = false;
    bool m_bModeline = false;
};

// What is asked for, by its name in messages; empty for nothing.
std::string Find(const STimingOptions& oOptions, CExactTimings& aoTimings)
{
    if (oOptions.m_uiVic != 0)
    {
        aoTimings = FindTimingsOfVic(oOptions.m_uiVic);
        return FormatText("VIC %u", oOptions.m_uiVic);
    }
    if (oOptions.m_uiHdmiVic != 0)
    {
        aoTimings = FindTimingsOfHdmiVic(oOptions.m_uiHdmiVic);
        return FormatText("HDMI VIC %u", oOptions.m_uiHdmiVic);
    }
    if (unsigned int uiId = 0; ParseNumber(oOptions.m_sDmt, uiId))
    {
        aoTimings = FindTimingsOfDmt(uiId);
        return "DMT " + oOptions.m_sDmt;
    }
    SZorMode oMode = {};
    if (ParseExactMode(oOptions.m_sMode, oMode))
    {
        aoTimings = FindTimings(oMode, oOptions.m_sType);
        return oOptions.m_sMode;
    }
    return "";
}

void PrintTimings(const STimingOptions& oOptions, STool& oTool)
{
    CExactTimings aoTimings;
    const std::string sWanted = Find(oOptions, aoTimings);
    if (sWanted.empty())
    {
        PrintError("timing: neither a mode such as 1920x1080@60 nor --vic, --hdmi-vic or --dmt");
        oTool.Note(eExit_CommandLine);
        return;
    }
    std::string sText;
    if (aoTimings.empty())
    {
        PrintError(sWanted + ": no " + (oOptions.m_sType == "all" ? "" : oOptions.m_sType + " ") + "timing");
        oTool.Note(eExit_Finding);
    }
    if (oOptions.m_bJson)
    {
        CJsonWriter oJson(CJsonWriter::eStyle_Indented);
        BeginDocument(oJson);
        oJson.BeginArray("timings");
        for (const SExactTiming& oTiming : aoTimings)
        {
            oJson.BeginObject();
            WriteTiming(oTiming.m_oMode, oTiming.m_pszType, false, oJson);
            oJson.EndObject();
        }
        oJson.EndArray();
        oJson.EndObject();
        sText = oJson.GetText() + "\n";
    }
    else if (oOptions.m_bModeline)
    {
        sText = GetExactModelines(aoTimings);
    }
    else
    {
        for (const SExactTiming& oTiming : aoTimings)
        {
            sText += GetExactLine(oTiming);
        }
    }
    PrintOutcome({ sText, "", eExit_Good }, oTool);
}

std::string CheckMode(const std::string& sText)
{
    SZorMode oParsed = {};
    return ParseExactMode(sText, oParsed)
               ? ""
               : "unknown mode '" + ShowName(sText) +
                     "'; expected one such as 1920x1080@60, 1920x1080@59.94 or 1920x1080i@60000/1001";
}

std::string CheckDmt(const std::string& sText)
{
    constexpr unsigned int uiMost = 0xFF;
    unsigned int uiId = 0;
    return ParseNumber(sText, uiId) && uiId != 0 && uiId <= uiMost
               ? ""
               : "unknown identifier '" + ShowName(sText) + "'; expected one such as 0x52 or 82";
}
} // namespace

void DeclareTimingOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<STimingOptions>();
    std::vector<std::string> asTypes = ListTimingTypes();
    asTypes.insert(asTypes.begin(), "all");
    const COption oMode =
        oCommand
            .Word("MODE", poOptions->m_sMode, "Size and rate in hertz, such as 1920x1080@59.94; 1920x1080i@60: fields")
            .Placeholder("WxH[i]@R")
            .Check(CheckMode);
    const COption oType =
        oCommand.Word("--type", poOptions->m_sType, "Where the timing comes from").OneOf(asTypes).Placeholder("NAME");
    const COption oVic =
        oCommand.Number("--vic", poOptions->m_uiVic, 1, 255, "The timing of a code of CTA-861", "1 to 255")
            .Placeholder("N")
            .Excludes(oMode)
            .Excludes(oType);
    const COption oHdmi = oCommand.Number("--hdmi-vic", poOptions->m_uiHdmiVic, 1, 255, "Of a code of HDMI", "1 to 255")
                              .Placeholder("N")
                              .Excludes(oMode)
                              .Excludes(oType)
                              .Excludes(oVic);
    oCommand.Word("--dmt", poOptions->m_sDmt, "Of an identifier of VESA DMT")
        .Placeholder("ID")
        .Check(CheckDmt)
        .Excludes(oMode)
        .Excludes(oType)
        .Excludes(oVic)
        .Excludes(oHdmi);
    const COption oJson = oCommand.Flag("--json", poOptions->m_bJson, "As JSON");
    oCommand.Flag("--modeline", poOptions->m_bModeline, "Lines for xorg.conf and other tools").Excludes(oJson);
    oCommand.Footer("Rates are 60, 59.94 or 60000/1001, of interlaced modes those of fields. 59.94 means 60000/1001.\n"
                    "The types gtf-list, cvt-list and cvt-rb-list are the formulas of the library's lists, for whole\n"
                    "rates; 'all' leaves them out.\n"
                    "Exit status: 0, or 1 when no such timing exists.\n\n"
                    "Examples:\n"
                    "  zoredid timing 2560x1440@59.94 --type cvt-rb2 --modeline\n"
                    "  zoredid timing --vic 118");
    oCommand.Run([poOptions, &oTool] { PrintTimings(*poOptions, oTool); });
}
