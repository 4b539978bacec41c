// zoredid modes: all timings of an image under the numbers that edits take.

#include <algorithm>
#include <set>

#include "CommandLine.h"
#include "Json.h"
#include "ManyFiles.h"
#include "PageImage.h"
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

std::string GetMarks(const SListedTiming& oListed)
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

std::string GetLine(const SListedTiming& oListed)
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

// What the lists have not: blocks that are not read, codes that are read as others, and modes that only the map knows.
std::string DescribeRest(const SPageImage& oImage)
{
    std::string sLines = DescribeUnreadBlocks(oImage.m_oInput, oImage.m_oLoaded, "");
    std::set<std::string> asOtherCodes; // a code may stand for two timings
    for (const SPageTiming& oTiming : oImage.m_aoTimings)
    {
        if (!oTiming.m_sOtherCode.empty() && asOtherCodes.insert(oTiming.m_sOtherCode).second)
        {
            sLines += MakeErrorLine(oImage.m_oInput.m_sName, oTiming.m_sOtherCode);
        }
    }
    const auto uiMore = static_cast<size_t>(std::count_if(oImage.m_aoTimings.begin(), oImage.m_aoTimings.end(),
                                                          [](const SPageTiming& o) { return !o.IsListed(); }));
    if (uiMore != 0)
    {
        const std::string sMore = uiMore == 1 ? "1 more mode stands" : FormatText("%zu more modes stand", uiMore);
        sLines += MakeErrorLine(oImage.m_oInput.m_sName, sMore + " in this image; explain and page show them");
    }
    return sLines;
}

SOutcome ListModes(const SModesOptions& oOptions, const SInput& oInput)
{
    SPageImage oImage(oInput, GetThisYear());
    if (!oImage.m_sProblem.empty())
    {
        return RefuseInput(oInput, oImage.m_sProblem);
    }
    SOutcome oOutcome;
    oOutcome.m_sError = DescribeRest(oImage);
    if (oOptions.m_bJson)
    {
        oOutcome.m_sOut = WriteIndented(MakeImageOfTimings(oInput, oImage.m_oLoaded)) + "\n";
        return oOutcome;
    }
    for (const SListedTiming& oListed : ListTimings(oImage.m_oLoaded))
    {
        oOutcome.m_sOut += oOptions.m_bModeline ? GetModeline(oListed.m_oTiming) + "\n" : GetLine(oListed);
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
        "Standard error tells of blocks that are not read, and how many more modes stand in the image.\n"
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
