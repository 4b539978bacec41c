// zoredid: the command line of the library. Options that all subcommands share, and the exit status.

#include <signal.h>
#include <stdio.h>

#include <exception>

#include "CommandLine.h"
#include "Connectors.h"
#include "Input.h"
#include "Messages.h"
#include "TextFormat.h"
#include "Tool.h"
#include "Version.h"

namespace
{
struct SSubcommand
{
    const char* m_pszName;
    const char* m_pszSummary;
    void (*m_pfnDeclareOptions)(COptions& oCommand, STool& oTool);
};

constexpr SSubcommand gsc_aoSubcommands[] = {
    { "show", "Say in a few lines what a monitor is and can show", DeclareShowOptions },
    { "report", "Print what a monitor says about itself", DeclareReportOptions },
    { "modes", "List all timings with the numbers that edits take", DeclareModesOptions },
    { "compare", "Compare the modes that two images announce", DeclareCompareOptions },
    { "check", "Name what is wrong with images", DeclareCheckOptions },
    { "explain", "Say what each byte of an image means", DeclareExplainOptions },
    { "page", "Write a page for a browser: bytes, fields, timings, colours", DeclarePageOptions },
    { "edit", "Edit an image: timings, preferred mode, serial number, audio, speakers, colours", DeclareEditOptions },
    { "build", "Make an image of the JSON of explain, with what was changed in it", DeclareBuildOptions },
    { "make", "Make an image of wishes: modes, HDR, audio, variable refresh", DeclareMakeOptions },
    { "timing", "Compute or look up the timing of a mode", DeclareTimingOptions },
    { "list", "List the connectors of this machine and their monitors", DeclareListOptions },
    { "convert", "Write an image in another form", DeclareConvertOptions },
};

// A pipe that closes early ends the command quietly, also when the caller has left the signal ignored. A limit on the
// size of files makes writing fail instead of ending it.
void SetSignals()
{
    signal(SIGPIPE, SIG_DFL);
    signal(SIGXFSZ, SIG_IGN);
}

constexpr unsigned int gsc_uiMostImages = 256; // blocks of an input

void DeclareOptions(CCommandLine& oCommandLine, STool& oTool)
{
    COptions& oProgram = oCommandLine.GetOptions();
    oProgram.Version("--version", std::string("zoredid ") + GetVersion(), "Print the version and exit");
    oProgram.Flag("-v,--verbose", oTool.m_bVerbose, "Say on standard error what inputs were taken for");
    oProgram
        .Word("--monitor", SetMonitor,
              "Of a text with several EDIDs, take that of this connector, in either case, or by number; all takes all")
        .Placeholder("NAME|N|all");
    oProgram
        .Number("--image", oTool.m_uiImage, 1, gsc_uiMostImages,
                "Of a file with several EDIDs one after the other, take this one", "1 to 256")
        .Placeholder("N");
    oProgram.Word("--sysfs", SetConnectorFolder, "The folder of the connectors").Hidden();
    // Sections of the man page come from here, by scripts/make-man.
    oProgram.Footer(
        "'zoredid help SUBCOMMAND' names the options of a subcommand.\n\n"
        "Exit status:\n"
        "  0  good\n"
        "  1  compare: different. check: errors or warnings, or what --fail-on says. edit, build, make: refused. "
        "timing: no such timing. "
        "explain: no such byte, block or text.\n"
        "  2  the command line is wrong\n"
        "  3  an input cannot be read or loaded, or a result cannot be written; all other inputs are "
        "still done\n"
        "\n"
        "Environment:\n"
        "  COLUMNS   the width of the help where it goes elsewhere than to a terminal, 40 to 120\n"
        "  NO_COLOR  when it is not empty, explain shows no colours on a terminal\n"
        "\n"
        "Example: zoredid show monitor.bin");
    for (const SSubcommand& oSubcommand : gsc_aoSubcommands)
    {
        oCommandLine.Subcommand(oSubcommand.m_pszName, oSubcommand.m_pszSummary,
                                [pfnDeclareOptions = oSubcommand.m_pfnDeclareOptions, &oTool](COptions& oCommand) {
                                    pfnDeclareOptions(oCommand, oTool);
                                });
    }
    oCommandLine.Default("show");
}

int Run(int iCount, char** ppszArguments)
{
    CCommandLine oCommandLine(iCount, ppszArguments, "zoredid",
                              "Reads, explains, checks, compares, edits and converts the EDID data of monitors.");
    STool oTool;
    DeclareOptions(oCommandLine, oTool);
    const EExit eExit = oCommandLine.Parse([&oTool] {
        CatchMessages(oTool.m_bVerbose);
        SetImage(oTool.m_uiImage);
    });
    if (eExit != eExit_Good)
    {
        return eExit;
    }
    fputs(TakeMessages().c_str(), stderr); // of subcommands without turns
    FinishOutput(oTool);
    return oTool.m_eExit;
}
} // namespace

int main(int iCount, char** ppszArguments)
{
    SetSignals();
    try
    {
        return Run(iCount, ppszArguments);
    }
    catch (const std::exception& oFault)
    {
        PrintError(oFault.what());
        return eExit_Input;
    }
}
