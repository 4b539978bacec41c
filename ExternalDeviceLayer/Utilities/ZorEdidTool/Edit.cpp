// zoredid edit: edits of an image in the order given, verified and then written whole or not at all.

#include <stdio.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>

#include "CommandLine.h"
#include "EditDisplayId.h"
#include "EditImage.h"
#include "EditOutput.h"
#include "EditPlan.h"
#include "EditVerify.h"
#include "FieldEdits.h"
#include "LoadedImage.h"
#include "ManyFiles.h"
#include "Tool.h"
#include "UnreadBlocks.h"

namespace
{
struct SEditCommand
{
    std::string m_sFile;
    SEditOutput m_oOutput;
    bool m_bAsListed = false;
};

// The edits in the order of the command line.
std::vector<SEdit> ListEdits(const COptions& oCommand)
{
    std::vector<SEdit> aoEdits;
    for (const COptions::SEditValue& oValue : oCommand.ListEdits())
    {
        ParseEdit(GetEditOptions()[oValue.m_uiTag], oValue.m_sValue, aoEdits.emplace_back()); // checked by the option
    }
    return aoEdits;
}

struct SEdited
{
    CBytes m_aui8Bytes;
    std::string m_sProblem = {}; // why the bytes are missing
    std::string m_sUnread = {};  // of a refused edit: the blocks that it did not find what it wanted in
    std::vector<std::string> m_asNotes = {};
    EExit m_eExit = eExit_Finding;
};

std::vector<SFinding> CheckBytes(const CBytes& aui8Image)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    return CheckImage(oMap, GetThisYear());
}

// The edits that the library has classes for.
SEdited EditByClasses(const SInput& oInput, const std::vector<SEdit>& aoEdits, bool bAsListed)
{
    CLoadedImage oLoaded;
    CEditImage oImage;
    if (!oLoaded.Load(oInput) || !oImage.Load(oInput.m_aui8Bytes, bAsListed))
    {
        return { {}, oLoaded.GetProblem(), "", {}, eExit_Input };
    }
    for (const SEdit& oEdit : aoEdits)
    {
        const std::string sReason = oImage.Apply(oEdit);
        if (!sReason.empty())
        {
            constexpr char szRepair[] = ", which --repair-checksums in a call of its own makes right";
            return { {}, oEdit.m_sText + ": " + sReason, DescribeUnreadBlocks(oInput, oLoaded, szRepair), {} };
        }
    }
    SEdited oEdited = { oImage.GetBytes() };
    const std::string sFault = VerifyEdits(oInput.m_aui8Bytes, oEdited.m_aui8Bytes, oImage.GetBlocks());
    oEdited.m_asNotes = oImage.GetNotes();
    const std::vector<std::string> asFindings =
        NameNewFindings(CheckBytes(oInput.m_aui8Bytes), CheckBytes(oEdited.m_aui8Bytes));
    oEdited.m_asNotes.insert(oEdited.m_asNotes.end(), asFindings.begin(), asFindings.end());
    oEdited.m_sProblem = sFault.empty() ? "" : "internal fault: " + sFault;
    return oEdited;
}

// Then the edits of fields and parts, each of which the library reads back.
void EditFields(const CBytes& aui8Read, const std::vector<SEdit>& aoEdits, SEdited& oEdited)
{
    CFieldEdits oFields(oEdited.m_aui8Bytes, aui8Read);
    for (const SEdit& oEdit : aoEdits)
    {
        const CNamedEdit fnSet = [&oEdit](CFieldEdits& oSet) { return oSet.Apply(oEdit.m_oSetting); };
        const std::string sReason = oFields.Do(oEdit.m_eKind == eEdit_Set ? fnSet : oEdit.m_fnNamed);
        if (!sReason.empty())
        {
            oEdited.m_sProblem = oEdit.m_sText + ": " + sReason;
            return;
        }
        for (const std::string& sNote : oFields.TakeNotes())
        {
            oEdited.m_asNotes.push_back(oEdit.m_sText + ": " + sNote);
        }
    }
    oEdited.m_aui8Bytes = oFields.GetBytes();
}

// Without an edit that needs the classes, images that they refuse are edited, too.
SEdited EditBytes(const SInput& oInput, const std::vector<SEdit>& aoEdits, bool bAsListed)
{
    std::vector<SEdit> aoOthers;
    std::vector<SEdit> aoFields;
    const auto fnIsOfFields = [](const SEdit& oEdit) {
        return oEdit.m_eKind == eEdit_Set || oEdit.m_eKind == eEdit_Named;
    };
    std::ranges::copy_if(aoEdits, std::back_inserter(aoOthers), std::not_fn(fnIsOfFields));
    // DisplayID timings go before anything else is done there, those with numbers first.
    aoFields = ListNumberedTimings(oInput.m_aui8Bytes, aoOthers);
    std::ranges::copy_if(aoOthers, std::back_inserter(aoFields),
                         [](const SEdit& oEdit) { return oEdit.m_fnNamed != nullptr; });
    std::ranges::copy_if(aoEdits, std::back_inserter(aoFields), fnIsOfFields);
    SEdited oEdited = { oInput.m_aui8Bytes };
    if (!aoOthers.empty())
    {
        oEdited = EditByClasses(oInput, aoOthers, bAsListed);
    }
    if (oEdited.m_sProblem.empty())
    {
        EditFields(oInput.m_aui8Bytes, aoFields, oEdited);
    }
    return oEdited;
}

// Empty, or what is missing or does not go together.
std::string CheckCommand(const SEditCommand& oArguments, const std::vector<SEdit>& aoEdits)
{
    if (aoEdits.empty())
    {
        return "no edit is given";
    }
    return CheckEditOutput(oArguments.m_oOutput);
}

void Run(const COptions& oCommand, const SEditCommand& oArguments, STool& oTool)
{
    const std::vector<SEdit> aoEdits = ListEdits(oCommand);
    const std::string sMistake = CheckCommand(oArguments, aoEdits);
    if (!sMistake.empty())
    {
        PrintError("edit: " + sMistake);
        oTool.Note(eExit_CommandLine);
        return;
    }
    const SInput oInput = ReadOneInput(oArguments.m_sFile, eSeveral_Refused, oTool);
    if (!oInput.IsGood())
    {
        return;
    }
    const SEdited oEdited = EditBytes(oInput, aoEdits, oArguments.m_bAsListed);
    if (!oEdited.m_sProblem.empty())
    {
        fputs((MakeErrorLine(oArguments.m_sFile, oEdited.m_sProblem) + oEdited.m_sUnread).c_str(), stderr);
        oTool.Note(oEdited.m_eExit);
        return;
    }
    if (!WriteEdited(oArguments.m_oOutput, oEdited.m_aui8Bytes, oTool))
    {
        return;
    }
    for (const std::string& sNote : oEdited.m_asNotes)
    {
        fputs(MakeErrorLine(oArguments.m_sFile, sNote).c_str(), stderr);
    }
    if (oArguments.m_oOutput.m_bDiff)
    {
        PrintResult(DescribeEdited(oInput.m_aui8Bytes, oEdited.m_aui8Bytes));
    }
}
} // namespace

void DeclareEditOptions(COptions& oCommand, STool& oTool)
{
    const auto poArguments = std::make_shared<SEditCommand>();
    oCommand.Word("FILE", poArguments->m_sFile, gsc_szFileHelp).Required();
    DeclareEditOutput(oCommand, "The edited image", poArguments->m_oOutput);
    oCommand.Flag("--as-listed", poArguments->m_bAsListed,
                  "Let --remove-standard take bytes that the list has as another video code than they mean");
    for (size_t i = 0; i < GetEditOptions().size(); ++i)
    {
        const SEditOption& oOption = GetEditOptions()[i];
        const auto fnCheck = [&oOption](const std::string& sValue) {
            SEdit oEdit = {};
            return ParseEdit(oOption, sValue, oEdit);
        };
        oCommand.Edit(oOption.m_pszName, oOption.m_pszValue, oOption.m_pszHelp, fnCheck, i);
    }
    oCommand.Footer(
        "Edits are done in the order given; all numbers mean the image as it was read, as 'zoredid modes'\n"
        "prints them. Fields and parts are edited after all others. Removing the same thing twice is not an error.\n"
        "When one edit is refused, nothing is written. An edit changes what it names and what must follow,\n"
        "which a line says: the result is read again and compared before it is written.\n"
        "\n"
        "Examples:\n"
        "  zoredid edit monitor.bin --set base.name=Projector --set base.display.gamma=2.4 -o new.bin\n"
        "  zoredid edit monitor.bin --remove-detailed 1 --audio-add ac3,6ch,48,640kbps -o new.bin");
    oCommand.Run([&oCommand, poArguments, &oTool] { Run(oCommand, *poArguments, oTool); });
}
