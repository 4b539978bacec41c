// zoredid page: one or two images as a page for a browser, in a single file, and the app that makes them there.

#include <stdio.h>

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "BrowserApp.h"
#include "CommandLine.h"
#include "ManyFiles.h"
#include "Output.h"
#include "PageParts.h"
#include "Tool.h"

namespace
{
struct SPageOptions
{
    std::string m_sFirst;
    std::string m_sSecond;
    bool m_bPair = false; // m_sSecond was given
    std::string m_sOut;
    bool m_bForce = false;
    bool m_bApp = false;
};

void WritePage(const SPageOptions& oOptions, STool& oTool)
{
    SPage oPage;
    const std::string asNames[] = { oOptions.m_sFirst, oOptions.m_sSecond };
    CInputs aoInputs = ReadFewInputs(asNames[0], oOptions.m_bPair ? 1 : 2, eSeveral_First, oTool);
    if (oOptions.m_bPair)
    {
        aoInputs.push_back(ReadOneInput(asNames[1], eSeveral_First, oTool));
    }
    if (oTool.m_eExit != eExit_Good)
    {
        return;
    }
    for (SInput& oInput : aoInputs)
    {
        oPage.m_apoImages.push_back(std::make_unique<SPageImage>(std::move(oInput), GetThisYear()));
    }
    for (const std::string& sName : asNames)
    {
        std::error_code oNone; // of names that are no files
        if (std::filesystem::is_regular_file(oOptions.m_sOut, oNone) &&
            std::filesystem::equivalent(sName, oOptions.m_sOut, oNone))
        {
            PrintError(oOptions.m_sOut + ": is an image of the page");
            oTool.Note(eExit_Input);
            return;
        }
    }
    if (oPage.IsPair())
    {
        CompareImages(oPage);
    }
    const SWritten oWritten = WriteOutput(oOptions.m_sOut, MakeWholePage(oPage), oOptions.m_bForce, true);
    ReportWritten(oOptions.m_sOut, oWritten, oTool);
}

// Its path is the result where nothing here opens it.
void OpenApp(STool& oTool)
{
    const std::string sApp = FindBrowserApp();
    if (sApp.empty())
    {
        PrintError("the browser app is not installed: cmake -DZOREDID_APP=ON builds it as zoredid.html, which needs "
                   "em++ of emscripten (scripts/setup check installs it)");
        oTool.Note(eExit_Input);
    }
    else if (!OpenOnDesktop(sApp))
    {
        PrintResult(sApp + "\n");
    }
}
} // namespace

void DeclarePageOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SPageOptions>();
    const COption oFirst = oCommand.Word("FILE", poOptions->m_sFirst, gsc_szFileHelp).Placeholder("");
    const COption oSecond =
        oCommand.Word("FILE2", poOptions->m_sSecond, "A second image: what differs is marked").Placeholder("");
    const COption oOut =
        oCommand
            .Word("-o,--output", poOptions->m_sOut, "The file to write; \"-\" is standard output; required with FILE")
            .Placeholder("OUT");
    const COption oForce = oCommand.Flag("--force", poOptions->m_bForce, "Replace OUT if it exists");
    oCommand
        .Flag("--app", poOptions->m_bApp,
              "Open the browser app, which makes pages of files that are dropped on it; without a desktop print where "
              "it is. Without FILE")
        .Excludes(oOut)
        .Excludes(oForce);
    oCommand.Footer("The page is one file that fetches nothing: it can be mailed, and opens without a network.\n\n"
                    "Example:\n"
                    "  zoredid page monitor.bin -o monitor.html");
    oCommand.Run([poOptions, oFirst, oSecond, oOut, &oTool] {
        if (poOptions->m_bApp == oFirst.IsGiven() || (!poOptions->m_bApp && !oOut.IsGiven()))
        {
            const char* pszMistake = poOptions->m_bApp   ? "FILE cannot be combined with --app"
                                     : !oFirst.IsGiven() ? "FILE or --app is required"
                                                         : "--output is required";
            PrintError(std::string(pszMistake) + " (see zoredid page --help)");
            oTool.Note(eExit_CommandLine);
            return;
        }
        if (poOptions->m_bApp)
        {
            OpenApp(oTool);
            return;
        }
        poOptions->m_bPair = oSecond.IsGiven(); // an empty name is a name that cannot be read
        WritePage(*poOptions, oTool);
    });
}
