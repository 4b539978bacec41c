// zoredid modes: all timings of an image under the numbers that edits take, then the modes that have no number.

#include <algorithm>
#include <set>

#include "CommandLine.h"
#include "ExactTimings.h"
#include "Json.h"
#include "ManyFiles.h"
#include "MapText.h"
#include "ModeList.h"
#include "TextFormat.h"
#include "Tool.h"
#include "UnreadBlocks.h"
#include "ZorEdidModes.h"

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

std::string GetLine(const SImageMode& oListed, const std::string& sLastMark)
{
    const char* pszType = GetTypeName(oListed.m_oTiming.GetVideoFamilyType());
    const std::string sPlace = oListed.m_uiBlock == 0 ? std::string(oListed.m_pszKind)
                                                      : FormatText("block %u %s", oListed.m_uiBlock, oListed.m_pszKind);
    std::string sLine =
        FormatText("%-11s %3u  %-17s %s  %-8s", GetListName(oListed.m_eList), oListed.m_uiIndex, sPlace.c_str(),
                   GetTimingText(oListed.m_oTiming).c_str(), pszType != nullptr ? pszType : "") +
        GetMarks(oListed) + sLastMark;
    sLine.erase(sLine.find_last_not_of(' ') + 1);
    return sLine + "\n";
}

// ---- Modes that have no number in the library's lists ----

const char* GetTypeName(const SZorImageMode& oListed)
{
    switch (oListed.m_oMode.m_eKind)
    {
    case SZorMode::eModeKind_Vic:
    case SZorMode::eModeKind_HdmiVic:
        return "cea";
    case SZorMode::eModeKind_Established:
    case SZorMode::eModeKind_EstablishedIII:
    case SZorMode::eModeKind_Dmt:
        return "dmt";
    case SZorMode::eModeKind_Standard:
        return oListed.m_eNumbers == SZorImageMode::eNumbers_Table ? "dmt" : "gtf";
    case SZorMode::eModeKind_CvtCode:
        return "cvt";
    case SZorMode::eModeKind_VideoFormat:
        return "ovt";
    case SZorMode::eModeKind_Detailed:
        return "detailed";
    default:
        return "displayid";
    }
}

// Modes as timings, with those at 1000/1001, and which entry each is of.
struct SRest
{
    CExactTimings m_aoTimings;
    std::vector<const SZorImageMode*> m_apoListed;
};

// bAll: also those with a number.
SRest FindRest(const CZorEdidModes& oModes, bool bAll)
{
    SRest oRest;
    const auto fnAdd = [&](const SZorImageMode& oListed, const SZorMode& oMode) {
        oRest.m_aoTimings.push_back({ GetTypeName(oListed), oMode });
        oRest.m_apoListed.push_back(&oListed);
    };
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorImageMode& oListed = oModes.Get(i);
        SZorMode oPartner = {};
        if (bAll || oListed.m_eList == SZorImageMode::eList_None)
        {
            fnAdd(oListed, oListed.m_oMode);
            if (CZorEdidModes::GetPartner(oListed.m_oMode, oPartner))
            {
                fnAdd(oListed, oPartner);
            }
        }
    }
    return oRest;
}

std::string GetRestMarks(const SZorImageMode& oListed)
{
    const SZorMode& oMode = oListed.m_oMode;
    std::string sMarks;
    const auto fnAdd = [&sMarks](bool bHolds, const std::string& sMark) { sMarks += bHolds ? "  " + sMark : ""; };
    fnAdd(oListed.m_uiPreference == 1, "preferred");
    fnAdd(oMode.m_bNative, "native");
    fnAdd(oMode.m_eY420 == SZorMode::eY420_Only, "4:2:0 only");
    fnAdd(oMode.m_eY420 == SZorMode::eY420_Also, "4:2:0 also");
    fnAdd(oListed.m_uiStereo != 0, "3D");
    fnAdd(oMode.m_eKind == SZorMode::eModeKind_Vic, FormatText("VIC %u", oMode.m_uiCode));
    fnAdd(oMode.m_eKind == SZorMode::eModeKind_HdmiVic, FormatText("HDMI VIC %u", oMode.m_uiCode));
    fnAdd(oMode.m_uiRepetition > 1, FormatText("each pixel sent %u times", oMode.m_uiRepetition));
    fnAdd(oListed.m_eNumbers == SZorImageMode::eNumbers_None, "no timing given");
    fnAdd(oListed.m_eNumbers == SZorImageMode::eNumbers_Assumed, "timing assumed");
    return sMarks;
}

std::string GetRestLines(const CZorEdidModes& oModes, const SInput& oInput)
{
    const SRest oRest = FindRest(oModes, false);
    std::string sLines;
    for (size_t i = 0; i < oRest.m_aoTimings.size(); ++i)
    {
        const SExactTiming& oTiming = oRest.m_aoTimings[i];
        const unsigned int uiBlock = oRest.m_apoListed[i]->m_uiOffset / CEdidUtils::msc_uiBlockSize;
        const unsigned int uiTag = oInput.m_aui8Bytes[uiBlock * size_t{ CEdidUtils::msc_uiBlockSize }];
        const std::string sPlace = uiBlock == 0 ? "base" : FormatText("block %u %s", uiBlock, GetBlockKind(uiTag));
        std::string sLine = FormatText("%-11s %3s  %-17s %s  %-9s", "-", "-", sPlace.c_str(),
                                       GetExactText(oTiming.m_oMode).c_str(), oTiming.m_pszType) +
                            GetRestMarks(*oRest.m_apoListed[i]);
        sLine.erase(sLine.find_last_not_of(' ') + 1);
        sLines += sLine + "\n";
    }
    return sLines;
}

// Of all modes, by the standards of today.
std::string GetModelines(const CZorEdidModes& oModes)
{
    CExactTimings aoTimings = FindRest(oModes, true).m_aoTimings;
    std::erase_if(aoTimings, [](const SExactTiming& oTiming) { return !oTiming.m_oMode.m_bTiming; });
    DropSameTimings(aoTimings);
    return GetExactModelines(aoTimings);
}

// "published 28.320 MHz" where a list has another clock: it computes established timings of other makers, and has
// a few codes of CTA-861 as earlier editions had them.
std::string GetOtherClock(const CZorEdidModes& oModes, const SImageMode& oListed)
{
    constexpr unsigned long long ullRounding = 2000; // parts of the clock
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorImageMode& oMode = oModes.Get(i);
        const unsigned long long ullClock = oMode.m_oMode.m_ullClock;
        const unsigned long long ullOther = oListed.m_oTiming.GetPixelClockInHz();
        const bool bFar = (ullClock > ullOther ? ullClock - ullOther : ullOther - ullClock) > ullClock / ullRounding;
        if (static_cast<unsigned int>(oMode.m_eList) == static_cast<unsigned int>(oListed.m_eList) &&
            oMode.m_uiNumber == oListed.m_uiIndex && oMode.m_eNumbers == SZorImageMode::eNumbers_Table && bFar)
        {
            return "  published " + GetMegaHertz(ullClock, 3) + " MHz";
        }
    }
    return "";
}

// What the lists leave out or have otherwise: blocks that are not read, codes that are read as others.
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
    return sLines;
}

SOutcome ListModes(const SModesOptions& oOptions, const SInput& oInput)
{
    CLoadedImage oImage;
    if (!oImage.Load(oInput))
    {
        return RefuseInput(oInput, oImage.GetProblem());
    }
    const CModes aoModes = ListTimings(oImage);
    SOutcome oOutcome;
    oOutcome.m_sError = DescribeRest(oInput, oImage, aoModes);
    if (oOptions.m_bJson)
    {
        oOutcome.m_sOut = WriteIndented(MakeImageOfTimings(oInput, aoModes)) + "\n";
        return oOutcome;
    }
    CZorEdidModes oExact;
    oExact.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    oExact.SetNumbers(oImage.GetEdid());
    if (oOptions.m_bModeline)
    {
        oOutcome.m_sOut = GetModelines(oExact);
        return oOutcome;
    }
    for (const SImageMode& oMode : aoModes)
    {
        oOutcome.m_sOut += GetLine(oMode, GetOtherClock(oExact, oMode));
    }
    oOutcome.m_sOut += GetRestLines(oExact, oInput);
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
        "Modes without a number, which the lists leave out, follow with '-' and their exact rate. Standard error "
        "names\n"
        "blocks that the library does not read.\n"
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
