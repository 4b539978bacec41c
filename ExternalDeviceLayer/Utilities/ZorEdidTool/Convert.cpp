// zoredid convert: an image from one form into another.

#include <stdio.h>

#include <memory>

#include "CommandLine.h"
#include "EdidUtils.h"
#include "ManyFiles.h"
#include "Output.h"
#include "OutputForms.h"
#include "Tool.h"

namespace
{
struct SConvertOptions
{
    std::string m_sFile;
    std::string m_sOut;
    std::string m_sForm;
    bool m_bForce = false;
};

// The form that was asked for, else the one of the name's ending. Null with the reason in sProblem.
const SOutputForm* ChooseForm(const SConvertOptions& oOptions, std::string& sProblem)
{
    for (const SOutputForm& oForm : GetOutputForms())
    {
        if (oOptions.m_sForm == oForm.m_pszName)
        {
            return &oForm;
        }
    }
    const SOutputForm* const poForm = FindOutputForm(oOptions.m_sOut, sProblem);
    sProblem += poForm == nullptr ? " (--form writes one under any name)" : "";
    return poForm;
}

void Convert(const SConvertOptions& oOptions, STool& oTool)
{
    constexpr size_t uiBlockSize = CEdidUtils::msc_uiBlockSize;
    const SInput oInput = ReadOneInput(oOptions.m_sFile, eSeveral_Refused, oTool);
    if (!oInput.IsGood())
    {
        return;
    }
    if (oInput.m_aui8Bytes.size() % uiBlockSize != 0)
    {
        const std::string sCount = std::to_string(oInput.m_aui8Bytes.size());
        fputs(MakeErrorLine(oOptions.m_sFile, sCount + " bytes are not a multiple of 128").c_str(), stderr);
        oTool.Note(eExit_Input);
        return;
    }
    SWritten oWritten;
    if (const SOutputForm* const poForm = ChooseForm(oOptions, oWritten.m_sProblem); poForm != nullptr)
    {
        oWritten =
            WriteOutput(oOptions.m_sOut, poForm->m_pfnMake(oInput.m_aui8Bytes), oOptions.m_bForce, poForm->m_bText);
    }
    ReportWritten(oOptions.m_sOut, oWritten, oTool);
}
} // namespace

void DeclareConvertOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SConvertOptions>();
    std::vector<std::string> asForms;
    for (const SOutputForm& oForm : GetOutputForms())
    {
        asForms.push_back(oForm.m_pszName);
    }
    oCommand.Word("FILE", poOptions->m_sFile, gsc_szFileHelp).Required();
    oCommand.Word("-o,--output", poOptions->m_sOut, "The file to write; \"-\" is standard output")
        .Required()
        .Placeholder("OUT");
    oCommand.Word("--form", poOptions->m_sForm, ("Without it, the ending of OUT decides: " + ListEndings()).c_str())
        .OneOf(asForms)
        .Placeholder("FORM");
    oCommand.Flag("--force", poOptions->m_bForce, "Replace OUT if it exists");
    oCommand.Footer("Example: xrandr --verbose | zoredid convert - -o monitor.bin");
    oCommand.Run([poOptions, &oTool] { Convert(*poOptions, oTool); });
}
