// zoredid: the command line of the library. Options that all subcommands share, and the exit status.

#include <CLI/CLI.hpp>
#include <stdio.h>

#include "Tool.h"

int main(int iCount, char** ppszArguments)
{
    CLI::App oApp{ "Reads, checks, compares, edits and converts the EDID data of monitors." };
    oApp.require_subcommand(1);
    STool oTool;
    oApp.add_flag("-v,--verbose", oTool.m_bVerbose, "Say on standard error what inputs were taken for");
    for (void (*pfnAdd)(CLI::App&, STool&) : { AddReportCommand })
    {
        pfnAdd(oApp, oTool);
    }
    CLI11_PARSE(oApp, iCount, ppszArguments);
    return oTool.m_eExit;
}
