// zoredid report: the three text reports of images, and the same facts as JSON.

#include "CommandLine.h"
#include "Json.h"
#include "ManyFiles.h"
#include "TextFormat.h"
#include "Tool.h"
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
    bool m_bJson = false;
    bool m_bJsonLines = false;

    bool HasManyFiles() const { return m_oFiles.m_asNames.size() > 1 || !m_oFiles.m_sListFile.empty(); }
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
        return RefuseInput(oInput, "names no preferred mode, which text reports need; --json has the rest");
    }
    SOutcome oOutcome;
    if (oOptions.HasManyFiles())
    {
        oOutcome.m_sOut = oOptions.m_sPrefix + ShowName(oInput.m_sName) + ":\n";
    }
    for (unsigned int i = 0; i < oLines.GetCount(); ++i)
    {
        oOutcome.m_sOut += oLines[i];
        oOutcome.m_sOut += "\n";
    }
    return oOutcome;
}

SOutcome ReportAsJson(const SReportOptions& oOptions, const SInput& oInput)
{
    const auto fnWrite = oOptions.m_bJsonLines ? WriteLine : WriteIndented;
    CLoadedImage oImage;
    SOutcome oOutcome;
    if (oImage.Load(oInput))
    {
        oOutcome.m_sOut = fnWrite(MakeImage(oInput, oImage));
    }
    else
    {
        oOutcome = RefuseInput(oInput, oImage.GetProblem());
        oOutcome.m_sOut = fnWrite(MakeFailure(oInput, oImage.GetProblem()));
    }
    return oOutcome;
}

void Report(SReportOptions& oOptions, STool& oTool)
{
    if (!oOptions.m_bJson && !oOptions.m_bJsonLines)
    {
        ForEachInput(oOptions.m_oFiles, oTool,
                     [&oOptions](const SInput& oInput) { return ReportAsText(oOptions, oInput); });
        return;
    }
    // The document is written as it comes, so that memory does not grow with the number of images.
    oOptions.m_oFiles.m_bTurnsForBadOnes = true;
    if (oOptions.m_bJson)
    {
        oOptions.m_oFiles.m_sBetween = ",\n";
        oOptions.m_oFiles.m_sHead = OpenDocument("images");
        oOptions.m_oFiles.m_sTail = gsc_pszCloseDocument;
    }
    ForEachInput(oOptions.m_oFiles, oTool,
                 [&oOptions](const SInput& oInput) { return ReportAsJson(oOptions, oInput); });
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
    const COption oJson = oCommand.Flag("--json", poOptions->m_bJson, "One JSON document with all images");
    const COption oLines =
        oCommand.Flag("--jsonl", poOptions->m_bJsonLines, "One line of JSON for each image, loaded or not");
    oJson.Excludes(oLines).Excludes(oFormat).Excludes(oPrefix);
    oLines.Excludes(oFormat).Excludes(oPrefix);
    oCommand.Footer("Examples:\n"
                    "  zoredid report --format extended monitor.bin\n"
                    "  zoredid report --jsonl *.bin | jq -r '[.file, .name] | @tsv'");
    oCommand.Run([poOptions, &oTool] { Report(*poOptions, oTool); });
}
