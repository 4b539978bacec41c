// Turns in several threads, printed in order.

#include "ManyFiles.h"

#include <CLI/CLI.hpp>
#include <stdio.h>

void PrintError(const std::string& sText) { fprintf(stderr, "zoredid: %s\n", sText.c_str()); }

void AddFileOptions(CLI::App& oCommand, SFiles& oFiles) { oCommand.add_option("FILE", oFiles.m_asNames, "Images"); }

void ForEachInput(const SFiles& oFiles, STool& oTool, const std::function<SOutcome(const SInput&)>& fnTurn)
{
    for (const std::string& sName : oFiles.m_asNames)
    {
        const SInput oInput = ReadInput(sName);
        SOutcome oOutcome = { "", "zoredid: " + sName + ": " + oInput.m_sProblem + "\n", eExit_Input };
        if (oInput.IsGood())
        {
            oOutcome = fnTurn(oInput);
        }
        fwrite(oOutcome.m_sOut.data(), 1, oOutcome.m_sOut.size(), stdout);
        fwrite(oOutcome.m_sError.data(), 1, oOutcome.m_sError.size(), stderr);
        oTool.Note(oOutcome.m_eExit);
    }
}
