// zoredid make: an image of what a display is to be able to do.

#include <stdio.h>

#include <algorithm>
#include <memory>

#include "CommandLine.h"
#include "EditOutput.h"
#include "Findings.h"
#include "MakeWishes.h"
#include "ManyFiles.h"
#include "Tool.h"

namespace
{
struct SMakeCommand
{
    std::string m_sProfile;
    std::string m_sFrom;
    std::string m_sLike;
    bool m_bQuiet = false;
    SEditOutput m_oOutput;
};

void Refuse(const std::string& sReason, EExit eExit, STool& oTool)
{
    PrintError("make: " + sReason);
    oTool.Note(eExit);
}

CWishValues ListOptions(const COptions& oCommand)
{
    CWishValues aoValues;
    for (const COptions::SEditValue& oValue : oCommand.ListEdits())
    {
        aoValues.push_back({ &GetWishOptions()[oValue.m_uiTag], oValue.m_sValue });
    }
    return aoValues;
}

// A profile, then the document, then the options: each goes over those before. False where one cannot be.
bool GatherWishes(const COptions& oCommand, const SMakeCommand& oArguments, SZorEdidWishes& oWishes, STool& oTool)
{
    SWishDocument oDocument;
    if (!oArguments.m_sFrom.empty())
    {
        const std::string sProblem = ReadWishes(oArguments.m_sFrom, oDocument);
        if (!sProblem.empty())
        {
            fputs(MakeErrorLine(oArguments.m_sFrom, sProblem).c_str(), stderr);
            oTool.Note(eExit_Input);
            return false;
        }
    }
    const std::string& sProfile = oArguments.m_sProfile.empty() ? oDocument.m_sProfile : oArguments.m_sProfile;
    const std::vector<std::string> asProfiles = ListProfiles();
    if (!sProfile.empty() && std::ranges::find(asProfiles, sProfile) == asProfiles.end())
    {
        Refuse("unknown profile '" + sProfile + "'", eExit_CommandLine, oTool);
        return false;
    }
    std::string sReason = ApplyWishes(GetProfile(sProfile), oWishes);
    sReason = sReason.empty() ? ApplyWishes(oDocument.m_aoValues, oWishes) : sReason;
    sReason = sReason.empty() ? ApplyWishes(ListOptions(oCommand), oWishes) : sReason;
    if (!sReason.empty())
    {
        Refuse(sReason, eExit_CommandLine, oTool);
    }
    return sReason.empty();
}

void Run(const COptions& oCommand, const SMakeCommand& oArguments, STool& oTool)
{
    SZorEdidWishes oWishes;
    oWishes.m_uiThisYear = GetThisYear();
    const std::string sMistake = CheckEditOutput(oArguments.m_oOutput);
    if (!sMistake.empty())
    {
        Refuse(sMistake, eExit_CommandLine, oTool);
        return;
    }
    if (!GatherWishes(oCommand, oArguments, oWishes, oTool))
    {
        return;
    }
    SInput oDonor;
    if (!oArguments.m_sLike.empty())
    {
        oDonor = ReadOneInput(oArguments.m_sLike, eSeveral_Refused, oTool);
        if (!oDonor.IsGood())
        {
            return;
        }
        oWishes.m_pui8Donor = oDonor.m_aui8Bytes.data();
        oWishes.m_uiDonorSize = static_cast<unsigned int>(oDonor.m_aui8Bytes.size());
    }
    if (oWishes.m_aoModes.GetCount() == 0)
    {
        Refuse("no mode is given: --mode 1920x1080@60, --profile or --from", eExit_CommandLine, oTool);
        return;
    }
    CZorEdidMaker oMaker;
    if (oMaker.Make(oWishes) == 0)
    {
        Refuse(static_cast<const char*>(oMaker.GetReason()), eExit_Finding, oTool);
        return;
    }
    if (!WriteEdited(oArguments.m_oOutput, { oMaker.GetData(), oMaker.GetData() + oMaker.GetSize() }, oTool))
    {
        return;
    }
    for (unsigned int i = 0; i < oMaker.GetNoteCount() && !oArguments.m_bQuiet; ++i)
    {
        PrintError(static_cast<const char*>(oMaker.GetNote(i)));
    }
}
} // namespace

void DeclareMakeOptions(COptions& oCommand, STool& oTool)
{
    const auto poArguments = std::make_shared<SMakeCommand>();
    for (size_t i = 0; i < GetWishOptions().size(); ++i)
    {
        const SWishOption& oOption = GetWishOptions()[i];
        const auto fnCheck = [&oOption](const std::string& sValue) {
            SZorEdidWishes oWishes;
            return SetWish(oOption, sValue, oWishes);
        };
        oCommand.Edit(oOption.m_pszName, oOption.m_pszValue, oOption.m_pszHelp, fnCheck, i, "Wishes");
    }
    oCommand.Word("--profile", poArguments->m_sProfile, "Values that go together; the options go over them")
        .OneOf(ListProfiles())
        .Placeholder("NAME");
    oCommand
        .Word("--from", poArguments->m_sFrom, "The wishes as JSON, \"-\" for standard input; the options go over them")
        .Placeholder("FILE");
    oCommand
        .Word("--like", poArguments->m_sLike,
              "The EDID whose identity, size, colours and audio are taken where no option says otherwise")
        .Placeholder("FILE");
    oCommand.Flag("-q,--quiet", poArguments->m_bQuiet, "Do not say where each mode went");
    DeclareImageOutput(oCommand, "The image", poArguments->m_oOutput);
    oCommand.Footer(
        "Each mode goes where sources look for it: the first one is the preferred timing, others are video\n"
        "codes, detailed timings or DisplayID timings. 640x480 at 60 Hz is added, which every display must\n"
        "have. What the clocks need of HDMI follows. A wish that cannot be is refused with the reason.\n"
        "\n"
        "Examples:\n"
        "  zoredid make --mode 1920x1080@60 --mode 2560x1440@144 -o headless.bin\n"
        "  zoredid make --profile hdmi-4k --hdr pq,hlg,max=600 --like monitor.bin -o tv.bin");
    oCommand.Run([&oCommand, poArguments, &oTool] { Run(oCommand, *poArguments, oTool); });
}
