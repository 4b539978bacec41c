// zoredid report: the three text reports of an image.

#include <CLI/CLI.hpp>

#include "ManyFiles.h"
#include "Tool.h"
#include "ZorEdidUtils.h"

void AddReportCommand(CLI::App& oApp, STool& oTool)
{
    CLI::App* poCommand = oApp.add_subcommand("report", "Print what a monitor says about itself");
    const auto poFiles = std::make_shared<SFiles>();
    AddFileOptions(*poCommand, *poFiles);
    poCommand->callback([poFiles, &oTool] {
        ForEachInput(*poFiles, oTool, [](const SInput& oInput) {
            SOutcome oOutcome;
            CEdid oEdid;
            if (oEdid.SetEdidBuffer(oInput.m_aui8Bytes.data(), static_cast<unsigned int>(oInput.m_aui8Bytes.size()),
                                    0) == 0)
            {
                oOutcome.m_sError = "zoredid: " + oInput.m_sName + ": no EDID\n";
                oOutcome.m_eExit = eExit_Input;
                return oOutcome;
            }
            CMArrayString oLines;
            CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(oEdid, oLines, "");
            for (unsigned int i = 0; i < oLines.GetCount(); ++i)
            {
                oOutcome.m_sOut += oLines[i];
                oOutcome.m_sOut += "\n";
            }
            return oOutcome;
        });
    });
}
