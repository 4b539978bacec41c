// zoredid modes: all timings of an image under the numbers that edits take.

#include <algorithm>
#include <set>

#include "CommandLine.h"
#include "Json.h"
#include "ManyFiles.h"
#include "MapText.h"
#include "ModeList.h"
#include "TextFormat.h"
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

std::string GetMarks(const SImageMode& oListed)
{
    std::string sMarks;
    const auto fnAdd = [&sMarks](bool bHolds, const std::string& sMark) { sMarks += bHolds ? "  " + sMark : ""; };
    fnAdd(oListed.m_bPreferred, "preferred");
    fnAdd(oListed.m_bNative, "native");
    fnAdd(oListed.m_oTiming.Is420ColorSpace() != 0, "4:2:0");
    fnAdd(oListed.m_bVesa, "VESA");
    fnAdd(!oListed.m_oVics.m_auiCodes.empty(), GetVicsText(oListed.m_oVics));
    fnAdd(!oListed.m_sStandardCode.empty(), "code " + oListed.m_sStandardCode);
    return sMarks;
}

std::string GetLine(const SImageMode& oListed)
{
    const char* pszType = GetTypeName(oListed.m_oTiming.GetVideoFamilyType());
    const std::string sPlace = oListed.m_uiBlock == 0 ? std::string(oListed.m_pszKind)
                                                      : FormatText("block %u %s", oListed.m_uiBlock, oListed.m_pszKind);
    std::string sLine =
        FormatText("%-11s %3u  %-17s %s  %-8s", GetListName(oListed.m_eList), oListed.m_uiIndex, sPlace.c_str(),
                   GetTimingText(oListed.m_oTiming).c_str(), pszType != nullptr ? pszType : "") +
        GetMarks(oListed);
    sLine.erase(sLine.find_last_not_of(' ') + 1);
    return sLine + "\n";
}

// What the lists leave out: blocks that are not read, codes that are read as others, modes that only the map has.
std::string DescribeRest(const SInput& oInput, const CLoadedImage& oImage, const CModes& aoModes)
{
    std::string sLines = DescribeUnreadBlocks(oInput, oImage, "");
    std::set<unsigned int> auiOtherCodes; // a code may name two timings
    for (const SImageMode& oMode : aoModes)
    {
        if (!oMode.IsOfMonitor() && auiOtherCodes.insert(oMode.m_uiOtherCode).second)
        {
            sLines += MakeErrorLine(oInput.m_sName, GetOtherCodeText(oMode));
        }
    }
    if (const auto iMore = std::ranges::count(aoModes, false, &SImageMode::IsListed); iMore != 0)
    {
        sLines +=
            MakeErrorLine(oInput.m_sName, FormatText("%td more mode%s not listed; explain and page show %s", iMore,
                                                     iMore == 1 ? " is" : "s are", iMore == 1 ? "it" : "them"));
    }
    return sLines;
}

SOutcome ListModes(const SModesOptions& oOptions, const SInput& oInput)
{
    CLoadedImage oImage;
    if (!oImage.Load(oInput))
    {
        return RefuseInput(oInput, oImage.GetProblem());
    }
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    const CModes aoModes = ListModes(oMap, &oImage);
    SOutcome oOutcome;
    oOutcome.m_sError = DescribeRest(oInput, oImage, aoModes);
    if (oOptions.m_bJson)
    {
        oOutcome.m_sOut = WriteIndented(MakeImageOfTimings(oInput, aoModes)) + "\n";
        return oOutcome;
    }
    for (const SImageMode& oMode : aoModes)
    {
        if (!oMode.IsListed())
        {
            continue;
        }
        oOutcome.m_sOut += oOptions.m_bModeline ? GetModeline(oMode.m_oTiming) + "\n" : GetLine(oMode);
    }
    return oOutcome;
}
} // namespace

void DeclareModesOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SModesOptions>();
    oCommand.Word("FILE", poOptions->m_sFile, gsc_szFileHelp).Required().Placeholder("");
    const COption oJson =
        oCommand.Flag("--json", poOptions->m_bJson, "The image object of report --json, timings only");
    oCommand.Flag("--modeline", poOptions->m_bModeline, "Lines for xorg.conf and other tools").Excludes(oJson);
    oCommand.Footer(
        "Standard error names blocks that are not read and counts the modes that are not listed.\n"
        "Each list counts from 0: established, standard and detailed timings. Established timings with the mark VESA\n"
        "are those that VESA's own tables define. Blocks count from 0, which is the base block.\n\n"
        "Example:\n"
        "  zoredid modes --modeline monitor.bin");
    oCommand.Run([poOptions, &oTool] {
        SFiles oFiles;
        oFiles.m_asNames = { poOptions->m_sFile };
        ForEachInput(oFiles, oTool, [&](const SInput& oInput) { return ListModes(*poOptions, oInput); });
    });
}
