// A turn of JSON for each image.

#include "JsonReport.h"

#include "Json.h"

namespace
{
SOutcome ReportImage(const SInput& oInput, bool bLines)
{
    CLoadedImage oImage;
    SOutcome oOutcome;
    if (!oImage.Load(oInput))
    {
        oOutcome = RefuseInput(oInput, oImage.GetProblem());
    }
    oOutcome.m_sOut = MakeImage(oInput, oImage, bLines ? CJsonWriter::eStyle_Line : CJsonWriter::eStyle_Indented) +
                      (bLines ? "\n" : "");
    return oOutcome;
}
} // namespace

std::array<COption, 2> DeclareJson(COptions& oCommand, SJsonOptions& oOptions)
{
    const COption oDocument = oCommand.Flag("--json", oOptions.m_bDocument, "One JSON document with all images");
    const COption oLines =
        oCommand.Flag("--jsonl", oOptions.m_bLines, "One line of JSON for each image, loaded or not");
    oDocument.Excludes(oLines);
    oLines.Excludes(oDocument);
    return { oDocument, oLines };
}

void ReportAsJson(const SJsonOptions& oOptions, SFiles& oFiles, STool& oTool)
{
    oFiles.m_bTurnsForBadOnes = true;
    if (oOptions.m_bDocument)
    {
        oFiles.m_sBetween = ",\n";
        oFiles.m_sHead = OpenDocument("images");
        oFiles.m_sTail = gsc_pszCloseDocument;
    }
    ForEachInput(oFiles, oTool, [&oOptions](const SInput& oInput) { return ReportImage(oInput, oOptions.m_bLines); });
}
