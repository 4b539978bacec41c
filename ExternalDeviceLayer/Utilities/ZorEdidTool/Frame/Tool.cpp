// The two outputs of a run: results on standard output, and lines about what went wrong on standard error.

#include "Tool.h"

#include <errno.h>
#include <stdio.h>
#include <string.h>

#include "Input.h"
#include "Output.h"
#include "TextFormat.h"

namespace
{
constinit int g_iOutputError = 0; // errno of the result that could not be written
} // namespace

std::string MakeErrorLine(const std::string& sName, const std::string& sReason)
{
    return "zoredid: " + ShowName(sName + ": " + sReason) + "\n";
}

SOutcome RefuseInput(const SInput& oInput, const std::string& sReason)
{
    return { "", MakeErrorLine(oInput.m_sName, sReason), eExit_Input };
}

void PrintError(const std::string& sText) { fprintf(stderr, "zoredid: %s\n", ShowName(sText).c_str()); }

void PrintResult(const std::string& sText)
{
    if (fwrite(sText.data(), 1, sText.size(), stdout) != sText.size())
    {
        g_iOutputError = errno;
    }
}

void ReportWritten(const std::string& sPath, const SWritten& oWritten, STool& oTool)
{
    const std::string& sText = oWritten.IsGood() ? oWritten.m_sHint : oWritten.m_sProblem;
    if (!sText.empty())
    {
        fputs(MakeErrorLine(sPath == "-" ? "standard output" : sPath, sText).c_str(), stderr);
    }
    oTool.Note(oWritten.IsGood() ? eExit_Good : eExit_Input);
}

void PrintOutcome(const SOutcome& oOutcome, STool& oTool)
{
    PrintResult(oOutcome.m_sOut);
    if (!oOutcome.m_sError.empty())
    {
        if (fflush(stdout) != 0) // so that both are in order where they go to one place
        {
            g_iOutputError = errno;
        }
        fwrite(oOutcome.m_sError.data(), 1, oOutcome.m_sError.size(), stderr);
    }
    oTool.Note(oOutcome.m_eExit);
}

void FinishOutput(STool& oTool)
{
    const bool bFailed = ferror(stdout) != 0;
    const int iError = fflush(stdout) != 0 ? errno : g_iOutputError;
    if (bFailed || iError != 0)
    {
        PrintError(std::string("standard output: ") + (iError != 0 ? strerror(iError) : "cannot be written"));
        oTool.Note(eExit_Input);
    }
}
