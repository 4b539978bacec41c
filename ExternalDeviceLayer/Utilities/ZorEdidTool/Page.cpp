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
#include "PageFolder.h"
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
    unsigned int m_uiJobs = 1;
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

bool IsFolder(const std::string& sPath)
{
    std::error_code oNone; // of a name that is nothing
    return std::filesystem::is_directory(sPath, oNone);
}

void WritePages(const SPageOptions& oOptions, STool& oTool)
{
    if (!IsFolder(oOptions.m_sFirst))
    {
        WritePage(oOptions, oTool);
        return;
    }
    if (oOptions.m_bPair || oOptions.m_sOut == "-")
    {
        PrintError(oOptions.m_bPair ? "FILE2: a folder has no second one beside it"
                                    : "-o: the pages of a folder go into a folder");
        oTool.Note(eExit_CommandLine);
        return;
    }
    WritePageFolder({ oOptions.m_sFirst, oOptions.m_sOut, oOptions.m_bForce, oOptions.m_uiJobs }, oTool);
}
} // namespace

void DeclarePageOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SPageOptions>();
    const COption oFirst =
        oCommand.Word("FILE", poOptions->m_sFirst, "An image in any form, \"-\", a connector, or a folder of images")
            .Placeholder("");
    const COption oSecond =
        oCommand.Word("FILE2", poOptions->m_sSecond, "A second image: what differs is marked").Placeholder("");
    const COption oOut =
        oCommand
            .Word("-o,--output", poOptions->m_sOut,
                  "The file to write, \"-\" for standard output; of a folder, the folder; required with FILE")
            .Placeholder("OUT");
    const COption oForce =
        oCommand.Flag("--force", poOptions->m_bForce, "Replace OUT if it exists; make all pages of a folder again");
    oCommand
        .Flag("--app", poOptions->m_bApp,
              "Open the browser app, which makes pages of files that are dropped on it; without a desktop print where "
              "it is. Without FILE")
        .Excludes(oOut)
        .Excludes(oForce);
    oCommand
        .Number("-j,--jobs", poOptions->m_uiJobs, 1, 256, "Images of a folder that are processed at the same time",
                "1 to 256")
        .Placeholder("N");
    oCommand.Footer("The page is one file that fetches nothing: it can be mailed, and opens without a network.\n\n"
                    "Of a folder, OUT has index.html, a table of all monitors that sorts and filters, and pages/ with "
                    "a page each. Pages stay whose image and program have not changed, so that a run that broke off is "
                    "resumed by the same command. What no such run has made is never replaced without --force.\n\n"
                    "Examples:\n"
                    "  zoredid page monitor.bin -o monitor.html\n"
                    "  zoredid page dumps/ -o site -j 4");
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
        WritePages(*poOptions, oTool);
    });
}
