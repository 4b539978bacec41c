// zoredid: the command line of the library. Options that all subcommands share, and the exit status.

#include <signal.h>
#include <stdio.h>

#include <algorithm>
#include <CLI/CLI.hpp>

#include "Connectors.h"
#include "Messages.h"
#include "TextFormat.h"
#include "Tool.h"

namespace
{
struct SSubcommand
{
    const char* m_pszName;
    const char* m_pszSummary;
    void (*m_pfnDeclareOptions)(CLI::App& oCommand, STool& oTool);
};

constexpr SSubcommand gsc_aoSubcommands[] = {
    { "report", "Print what a monitor says about itself", DeclareReportOptions },
    { "modes", "List all timings with the numbers that edits take", DeclareModesOptions },
    { "compare", "Tell whether two images announce the same modes", DeclareCompareOptions },
    { "check", "Name what is wrong with images", DeclareCheckOptions },
    { "explain", "Say what each byte of an image means", DeclareExplainOptions },
    { "page", "Write a page for a browser: bytes, fields, timings, colours", DeclarePageOptions },
    { "edit", "Edit an image: timings, preferred mode, serial number, audio, speakers, colours", DeclareEditOptions },
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

// Ahead of a word behind "--", so that CLI11 takes it for what it is: by itself it ends the options no more once a FILE
// stands ahead. No name begins so.
constexpr char gsc_szWordMark[] = "\x01--\x01";

// The arguments in the order that CLI11 parses: the last one first. "--name=" becomes "--name" and an empty word, which
// CLI11 would overlook.
std::vector<std::string> ListArguments(int iCount, char** ppszArguments)
{
    std::vector<std::string> asArguments;
    bool bWords = false; // no more options
    for (int i = 1; i < iCount; ++i)
    {
        const std::string sNext = ppszArguments[i];
        if (bWords)
        {
            asArguments.push_back(gsc_szWordMark + sNext);
        }
        else if (sNext == "--")
        {
            bWords = true;
        }
        else if (sNext.starts_with("--") && sNext.find('=') == sNext.size() - 1)
        {
            asArguments.insert(asArguments.end(), { sNext.substr(0, sNext.size() - 1), "" });
        }
        else
        {
            asArguments.push_back(sNext);
        }
    }
    std::reverse(asArguments.begin(), asArguments.end());
    return asArguments;
}

std::string TakeWord(const std::string& sText)
{
    return sText.starts_with(gsc_szWordMark) ? sText.substr(sizeof(gsc_szWordMark) - 1) : sText;
}

// What stands where a subcommand should, and which there are.
std::string DescribeMissingCommand(const CLI::App& oApp)
{
    const std::vector<std::string> asUnknown = oApp.remaining();
    std::string sText = "no subcommand is given";
    if (!asUnknown.empty())
    {
        const bool bOption = asUnknown[0].starts_with('-');
        sText = "'" + TakeWord(asUnknown[0]) + (bOption ? "' is no option" : "' is no subcommand");
    }
    sText += "; the subcommands are";
    for (const CLI::App* poCommand : oApp.get_subcommands({}))
    {
        sText += " " + poCommand->get_name();
    }
    return sText;
}

// The text as one line.
int PrintCommandLineError(const CLI::App& oApp, const CLI::ParseError& oError)
{
    const auto apoUsed = oApp.get_subcommands();
    std::string sText = oError.what();
    for (size_t uiMark = sText.find(gsc_szWordMark); uiMark != std::string::npos; uiMark = sText.find(gsc_szWordMark))
    {
        sText.erase(uiMark, sizeof(gsc_szWordMark) - 1);
    }
    for (char& c : sText)
    {
        c = c == '\n' ? ' ' : c; // CLI11 lists several things in lines
    }
    sText = apoUsed.empty() ? DescribeMissingCommand(oApp) : sText;
    const std::string sHelp = apoUsed.empty() ? "zoredid --help" : "zoredid " + apoUsed[0]->get_name() + " --help";
    PrintError(sText + " (see " + sHelp + ")");
    return eExit_CommandLine;
}

// A flag is there or not: --force=false would read like a way to switch it off, which none of them has.
void RefuseFlagValues(CLI::App& oApp)
{
    for (CLI::Option* poOption : oApp.get_options())
    {
        if (poOption->get_expected_max() == 0)
        {
            poOption->disable_flag_override();
        }
    }
}

// The options of a subcommand that no argument names are not declared: that would take most of the time of a run.
void DeclareSubcommand(CLI::App& oApp, const SSubcommand& oSubcommand, const std::vector<std::string>& asArguments,
                       STool& oTool)
{
    CLI::App& oCommand = *oApp.add_subcommand(oSubcommand.m_pszName, oSubcommand.m_pszSummary);
    if (std::find(asArguments.begin(), asArguments.end(), oSubcommand.m_pszName) == asArguments.end())
    {
        return;
    }
    oSubcommand.m_pfnDeclareOptions(oCommand, oTool);
    oCommand.fallthrough(); // the options of all subcommands may stand behind it
    RefuseFlagValues(oCommand);
    for (CLI::Option* poOption : oCommand.get_options())
    {
        if (poOption->get_positional())
        {
            poOption->transform(TakeWord);
        }
    }
}

void DeclareOptions(CLI::App& oApp, const std::vector<std::string>& asArguments, STool& oTool)
{
    oApp.require_subcommand(1);
    oApp.set_version_flag("--version", "zoredid " ZOREDID_VERSION, "Print the version and end");
    oApp.add_flag("-v,--verbose", oTool.m_bVerbose,
                  "Say on standard error what inputs were taken for, and what the library says about them");
    oApp.add_option_function<std::string>("--sysfs", SetConnectorFolder, "The folder of the connectors")->group("");
    // Sections of the man page come from here, by scripts/make-man.
    oApp.footer("Exit status:\n"
                "  0  good\n"
                "  1  compare: different. check: errors or warnings. edit: refused. timing: there is none.\n"
                "     explain: no such byte, block or text.\n"
                "  2  the command line is wrong\n"
                "  3  an input cannot be read or loaded, or a result cannot be written; all other inputs are\n"
                "     still done\n"
                "\n"
                "Example: zoredid report monitor.bin");
    RefuseFlagValues(oApp);
    for (const SSubcommand& oSubcommand : gsc_aoSubcommands)
    {
        DeclareSubcommand(oApp, oSubcommand, asArguments, oTool);
    }
    oApp.parse_complete_callback([&oTool] { CatchMessages(oTool.m_bVerbose); }); // ahead of the subcommand
}

int Run(int iCount, char** ppszArguments)
{
    CLI::App oApp{ "Reads, explains, checks, compares, edits and converts the EDID data of monitors.", "zoredid" };
    STool oTool;
    std::vector<std::string> asArguments = ListArguments(iCount, ppszArguments);
    DeclareOptions(oApp, asArguments, oTool);
    try
    {
        oApp.parse(std::move(asArguments));
    }
    catch (const CLI::Success& oHelp)
    {
        oApp.exit(oHelp);
    }
    catch (const CLI::ParseError& oError)
    {
        return PrintCommandLineError(oApp, oError);
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
