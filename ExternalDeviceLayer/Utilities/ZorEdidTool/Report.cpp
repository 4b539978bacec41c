// zoredid report: the three text reports of the library, and all facts as JSON.

#include "CommandLine.h"
#include "JsonReport.h"
#include "LoadedImage.h"
#include "ManyFiles.h"
#include "TextFormat.h"
#include "Tool.h"
#include "UnreadBlocks.h"
#include "ZorEdidUtils.h"

namespace
{
struct SFormat
{
    const char* m_pszName;
    CZorEdidUtils::EEdidFormatType m_eType;
};

constexpr SFormat gsc_aoFormats[] = {
    { "plain", CZorEdidUtils::eEdidFormatZorEdidExtractor },
    { "extended", CZorEdidUtils::eEdidFormatZorEdidExtractorExt },
    { "modes", CZorEdidUtils::eEdidFormatRVideoOutRes },
};

struct SReportOptions
{
    SFiles m_oFiles;
    std::string m_sFormat = "plain";
    std::string m_sPrefix;
    SJsonOptions m_oJson;
};

SOutcome ReportAsText(const SReportOptions& oOptions, const SInput& oInput)
{
    CLoadedImage oImage;
    if (!oImage.Load(oInput))
    {
        return RefuseInput(oInput, oImage.GetProblem());
    }
    CMArrayString oLines;
    for (const SFormat& oFormat : gsc_aoFormats)
    {
        if (oOptions.m_sFormat == oFormat.m_pszName)
        {
            CZorEdidUtils::GetFormatedEdid(oFormat.m_eType, oImage.GetEdid(), oLines, oOptions.m_sPrefix.c_str());
        }
    }
    if (oLines.GetCount() == 0)
    {
        return RefuseInput(oInput, "names no preferred mode, which text reports need; 'zoredid show' has the rest");
    }
    SOutcome oOutcome;
    if (oOptions.m_oFiles.NeedsName(oInput))
    {
        oOutcome.m_sOut = oOptions.m_sPrefix + ShowName(oInput.m_sName) + ":\n";
    }
    for (unsigned int i = 0; i < oLines.GetCount(); ++i)
    {
        oOutcome.m_sOut += ShowLines(static_cast<const char*>(oLines[i])) + "\n";
    }
    oOutcome.m_sError = DescribeUnreadBlocks(oInput, oImage, "");
    return oOutcome;
}

void Report(SReportOptions& oOptions, STool& oTool)
{
    if (oOptions.m_oJson.IsAsked())
    {
        ReportAsJson(oOptions.m_oJson, oOptions.m_oFiles, oTool);
        return;
    }
    ForEachInput(oOptions.m_oFiles, oTool,
                 [&oOptions](const SInput& oInput) { return ReportAsText(oOptions, oInput); });
}
} // namespace

void DeclareReportOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SReportOptions>();
    DeclareFiles(oCommand, poOptions->m_oFiles);
    std::vector<std::string> asFormats;
    for (const SFormat& oOne : gsc_aoFormats)
    {
        asFormats.push_back(oOne.m_pszName);
    }
    const COption oFormat = oCommand.Word("--format", poOptions->m_sFormat, "Which report; plain by default")
                                .OneOf(asFormats)
                                .Placeholder("NAME");
    const COption oPrefix = oCommand
                                .Word("--prefix", poOptions->m_sPrefix,
                                      "Text in front of each line; of two empty lines in a row only the first has it")
                                .Placeholder("TEXT");
    for (const COption& oJson : DeclareJson(oCommand, poOptions->m_oJson))
    {
        oJson.Excludes(oFormat).Excludes(oPrefix);
    }
    oCommand.Footer("Examples:\n"
                    "  zoredid report --format extended monitor.bin\n"
                    "  zoredid report --jsonl *.bin | jq -r '[.file, .name] | @tsv'");
    oCommand.Run([poOptions, &oTool] { Report(*poOptions, oTool); });
}
