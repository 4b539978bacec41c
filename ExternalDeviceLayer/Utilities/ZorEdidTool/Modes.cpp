// zoredid modes: every mode of an image, by where it comes from, with the numbers that edits take.

#include <map>
#include <memory>
#include <utility>

#include "CommandLine.h"
#include "ExactTimings.h"
#include "ImageModes.h"
#include "Json.h"
#include "ManyFiles.h"
#include "MapText.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"
#include "Timings.h"
#include "Tool.h"
#include "UnreadBlocks.h"

namespace
{
struct SModesOptions
{
    std::string m_sFile;
    bool m_bJson = false;
    bool m_bModeline = false;
};

std::string GetLine(const std::string& sNumber, const std::string& sTiming, const std::string& sMarks)
{
    std::string sLine = FormatText("  %-15s %s  ", sNumber.c_str(), sTiming.c_str()) + sMarks;
    sLine.erase(sLine.find_last_not_of(' ') + 1);
    return sLine + "\n";
}

// The groups in the order of their first modes.
std::string GetText(const CImageModes& oModes)
{
    std::vector<std::pair<std::string, std::string>> asGroups; // sources with their lines
    std::map<std::string, size_t> auiGroups;
    for (const SModeRow& oRow : oModes.GetRows())
    {
        const auto [itGroup, bNew] = auiGroups.try_emplace(GetSourceText(oRow), asGroups.size());
        if (bNew)
        {
            asGroups.emplace_back(itGroup->first, "");
        }
        asGroups[itGroup->second].second +=
            GetLine(GetNumberText(oRow), GetExactText(oRow.m_oMode), JoinTexts(ListMarks(oRow)));
    }
    std::string sText;
    for (const auto& [sSource, sLines] : asGroups)
    {
        sText.append(sSource).append("\n").append(sLines);
    }
    sText += oModes.GetStrays().empty() ? "" : "Only in the library's lists\n";
    for (const SStrayTiming& oStray : oModes.GetStrays())
    {
        sText += GetLine(oStray.GetNumberText(), GetExactText(oStray.m_oMode),
                         FormatText("block %u byte 0x%02x: ", oStray.m_uiOffset / ZorStandards::gsc_uiBlockSize,
                                    oStray.m_uiOffset % ZorStandards::gsc_uiBlockSize) +
                             oStray.m_sReason);
    }
    return sText;
}

std::string GetModelines(const CImageModes& oModes)
{
    CExactTimings aoTimings;
    for (const SModeRow& oRow : oModes.GetRows())
    {
        if (oRow.m_oMode.m_bTiming)
        {
            aoTimings.push_back({ GetSourceName(*oRow.m_poEntry), oRow.m_oMode });
        }
    }
    DropSameTimings(aoTimings);
    return GetExactModelines(aoTimings);
}

SOutcome PrintModes(const SModesOptions& oOptions, const SInput& oInput)
{
    CLoadedImage oImage;
    SOutcome oOutcome;
    CModes aoListed;
    if (oImage.Load(oInput))
    {
        aoListed = ListTimings(oImage);
        oOutcome.m_sError = DescribeUnreadBlocks(oInput, oImage, "");
    }
    else if (oInput.m_aui8Bytes.size() < CEdidUtils::msc_uiBlockSize)
    {
        return RefuseInput(oInput, oImage.GetProblem());
    }
    else
    {
        oOutcome = RefuseInput(oInput, oImage.GetProblem() + "; its modes have no numbers");
    }
    const CImageModes oModes(oInput.m_aui8Bytes, oImage.IsLoaded() ? &oImage.GetEdid() : nullptr, aoListed);
    if (oModes.GetRows().empty())
    {
        oOutcome.m_sError += MakeErrorLine(oInput.m_sName, "announces no modes");
    }
    if (oOptions.m_bJson)
    {
        oOutcome.m_sOut = MakeImageOfModes(oInput, oImage, oModes, CJsonWriter::eStyle_Indented) + "\n";
        return oOutcome;
    }
    const std::string sComment = oOptions.m_bModeline ? "# " : "";
    oOutcome.m_sOut = oInput.IsOneOfSeveral() ? sComment + ShowName(oInput.m_sName) + ":\n" : "";
    oOutcome.m_sOut += oOptions.m_bModeline ? GetModelines(oModes) : GetText(oModes);
    return oOutcome;
}
} // namespace

void DeclareModesOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SModesOptions>();
    oCommand.Word("FILE", poOptions->m_sFile, gsc_szFileHelp).Required().Placeholder("");
    const COption oJson =
        oCommand.Flag("--json", poOptions->m_bJson, "The image object of report --json, modes and lists only");
    oCommand.Flag("--modeline", poOptions->m_bModeline, "Lines for xorg.conf and other tools").Excludes(oJson);
    oCommand.Footer(
        "Every mode with its exact rate, of interlaced modes that of fields, by where it comes from. Blocks count from "
        "0, which is the base block.\n"
        "The number before a mode is the one that edits take: of the list of established, of standard or of detailed "
        "timings, each from 0. A mode that these lists leave out has '-'; what they have otherwise is said at its end. "
        "Standard error names blocks that the library does not read.\n\n"
        "Example:\n"
        "  zoredid modes --modeline monitor.bin");
    oCommand.Run([poOptions, &oTool] {
        SFiles oFiles;
        oFiles.m_asNames = { poOptions->m_sFile };
        oFiles.m_sBetween = poOptions->m_bJson ? "" : "\n";
        ForEachInput(oFiles, oTool, [&](const SInput& oInput) { return PrintModes(*poOptions, oInput); });
    });
}
