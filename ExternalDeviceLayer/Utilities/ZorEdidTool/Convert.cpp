// zoredid convert: an image from one form into another.

#include <stdio.h>
#include <string.h>
#include <strings.h>

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

// In either case.
bool EndsWith(const std::string& sText, const char* pszEnding)
{
    const size_t uiLength = strlen(pszEnding);
    return sText.size() >= uiLength && strcasecmp(sText.c_str() + sText.size() - uiLength, pszEnding) == 0;
}

bool HasEnding(const SOutputForm& oForm, const std::string& sName)
{
    return EndsWith(sName, oForm.m_pszEnding) ||
           (oForm.m_pszOtherEnding != nullptr && EndsWith(sName, oForm.m_pszOtherEnding));
}

// The form that was asked for, else the one of the name's ending, else the raw image.
const SOutputForm& ChooseForm(const SConvertOptions& oOptions)
{
    for (const SOutputForm& oForm : GetOutputForms())
    {
        if (oOptions.m_sForm.empty() ? HasEnding(oForm, oOptions.m_sOut) : oOptions.m_sForm == oForm.m_pszName)
        {
            return oForm;
        }
    }
    return GetOutputForms()[0];
}

void Convert(const SConvertOptions& oOptions, STool& oTool)
{
    constexpr size_t uiBlockSize = CEdidUtils::msc_uiBlockSize;
    const SInput oInput = ReadOneInput(oOptions.m_sFile, oTool);
    if (!oInput.IsGood())
    {
        return;
    }
    std::string sName = oOptions.m_sFile;
    std::string sProblem;
    if (oInput.m_aui8Bytes.size() % uiBlockSize != 0)
    {
        sProblem = std::to_string(oInput.m_aui8Bytes.size()) + " bytes are not a multiple of 128";
    }
    else
    {
        const SOutputForm& oForm = ChooseForm(oOptions);
        sName = oOptions.m_sOut == "-" ? "standard output" : oOptions.m_sOut;
        WriteOutput(oOptions.m_sOut, oForm.m_pfnMake(oInput.m_aui8Bytes), oOptions.m_bForce, oForm.m_bText, sProblem);
    }
    if (!sProblem.empty())
    {
        fputs(MakeErrorLine(sName, sProblem).c_str(), stderr);
        oTool.Note(eExit_Input);
    }
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
    oCommand
        .Word("--form", poOptions->m_sForm,
              "Without it, the ending of OUT decides: .bin .xxd .hex .c .h .b64 .base64 .dat")
        .OneOf(asForms);
    oCommand.Flag("--force", poOptions->m_bForce, "Replace OUT if it exists");
    oCommand.Footer("Example: xrandr --verbose | zoredid convert - -o monitor.bin");
    oCommand.Run([poOptions, &oTool] { Convert(*poOptions, oTool); });
}
