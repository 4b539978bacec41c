// zoredid page: one or two images as a page for a browser, in a single file.

#include <stdio.h>

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

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
} // namespace

void DeclarePageOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SPageOptions>();
    oCommand.Word("FILE", poOptions->m_sFirst, gsc_szFileHelp).Required().Placeholder("");
    const COption oSecond =
        oCommand.Word("FILE2", poOptions->m_sSecond, "A second image: what differs is marked").Placeholder("");
    oCommand.Word("-o,--output", poOptions->m_sOut, "The file to write; \"-\" is standard output")
        .Required()
        .Placeholder("OUT");
    oCommand.Flag("--force", poOptions->m_bForce, "Replace OUT if it exists");
    oCommand.Footer("The page is one file that fetches nothing: it can be mailed, and opens without a network.\n\n"
                    "Example:\n"
                    "  zoredid page monitor.bin -o monitor.html");
    oCommand.Run([poOptions, oSecond, &oTool] {
        poOptions->m_bPair = oSecond.IsGiven(); // an empty name is a name that cannot be read
        WritePage(*poOptions, oTool);
    });
}
