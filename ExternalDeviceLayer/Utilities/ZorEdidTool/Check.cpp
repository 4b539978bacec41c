// zoredid check: findings about images, one a line, and a summary.

#include <atomic>

#include "CommandLine.h"
#include "Findings.h"
#include "Json.h"
#include "ManyFiles.h"
#include "MapText.h"
#include "TextFormat.h"
#include "Tool.h"

namespace
{
struct SCheckOptions
{
    SFiles m_oFiles;
    bool m_bJson = false;
};

// Counted by all threads; read when they are done.
struct SCounts
{
    std::atomic<unsigned long long> m_ullImages = 0;
    std::atomic<unsigned long long> m_ullUnreadable = 0;
    std::atomic<unsigned long long> m_ullFaulty = 0;        // images with an error or a warning
    std::atomic<unsigned long long> m_aullFindings[3] = {}; // by severity
};

std::string DescribeFinding(const std::string& sName, const SFinding& oFinding)
{
    std::string sText =
        ShowName(sName) + FormatText(": block %u offset 0x%02x", oFinding.m_uiBlock, oFinding.m_uiOffset);
    sText += oFinding.m_sField.empty() ? "" : " (" + oFinding.m_sField + ")";
    sText += FormatText(": %s: ", GetNoteName(oFinding.m_eSeverity)) + oFinding.m_sWhat;
    sText += oFinding.m_sFound.empty() ? "" : ": found " + oFinding.m_sFound;
    sText += oFinding.m_sExpected.empty() ? "" : ", expected " + oFinding.m_sExpected;
    return sText + "\n";
}

std::string MakeChecked(const SInput& oInput, const std::vector<SFinding>& aoFindings)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Indented);
    oJson.BeginObject();
    WriteSource(oInput, oJson);
    oJson.BeginArray("findings");
    for (const SFinding& oFinding : aoFindings)
    {
        oJson.BeginObject();
        oJson.Member("block", oFinding.m_uiBlock);
        oJson.Member("offset", oFinding.m_uiOffset);
        if (!oFinding.m_sField.empty())
        {
            oJson.Member("field", oFinding.m_sField);
        }
        oJson.Member("severity", GetNoteName(oFinding.m_eSeverity));
        oJson.Member("what", oFinding.m_sWhat);
        oJson.Member("found", oFinding.m_sFound);
        oJson.Member("expected", oFinding.m_sExpected);
        oJson.EndObject();
    }
    oJson.EndArray();
    oJson.EndObject();
    return oJson.GetText();
}

// That the file holds more than this image, which ends where the second one begins.
SFinding MakeNoteOfImages(const SInput& oInput)
{
    SFinding oFinding = {};
    oFinding.m_uiBlock = static_cast<unsigned int>(oInput.m_aui8Bytes.size()) / CEdidUtils::msc_uiBlockSize;
    oFinding.m_eSeverity = CZorEdidMap::eSeverity_Note;
    oFinding.m_sWhat = oInput.m_sImages;
    return oFinding;
}

std::string MakeUnchecked(const SInput& oInput)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Indented);
    oJson.BeginObject();
    WriteSource(oInput, oJson);
    oJson.Member("error", oInput.m_sProblem);
    oJson.EndObject();
    return oJson.GetText();
}

SOutcome CheckInput(const SInput& oInput, bool bJson, SCounts& oCounts)
{
    if (!oInput.IsGood())
    {
        SOutcome oOutcome = RefuseInput(oInput, oInput.m_sProblem);
        oOutcome.m_sOut = bJson ? MakeUnchecked(oInput) : "";
        ++oCounts.m_ullUnreadable;
        return oOutcome;
    }
    SOutcome oOutcome;
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    std::vector<SFinding> aoFindings = CheckImage(oMap, GetThisYear());
    if (!oInput.m_sImages.empty())
    {
        aoFindings.push_back(MakeNoteOfImages(oInput));
    }
    for (const SFinding& oFinding : aoFindings)
    {
        oOutcome.m_eExit = oFinding.HasWeight() ? eExit_Finding : oOutcome.m_eExit;
        oOutcome.m_sOut += bJson ? "" : DescribeFinding(oInput.m_sName, oFinding);
    }
    if (bJson)
    {
        oOutcome.m_sOut = MakeChecked(oInput, aoFindings);
    }
    for (const SFinding& oFinding : aoFindings)
    {
        ++oCounts.m_aullFindings[oFinding.m_eSeverity];
    }
    oCounts.m_ullFaulty += oOutcome.m_eExit == eExit_Finding ? 1 : 0;
    return oOutcome;
}

std::string Summarise(const SCounts& oCounts)
{
    return FormatText("%llu images: %llu clean, %llu with errors or warnings, %llu unreadable; errors %llu, "
                      "warnings %llu, notes %llu\n",
                      oCounts.m_ullImages.load(), oCounts.m_ullImages - oCounts.m_ullFaulty - oCounts.m_ullUnreadable,
                      oCounts.m_ullFaulty.load(), oCounts.m_ullUnreadable.load(),
                      oCounts.m_aullFindings[CZorEdidMap::eSeverity_Error].load(),
                      oCounts.m_aullFindings[CZorEdidMap::eSeverity_Warning].load(),
                      oCounts.m_aullFindings[CZorEdidMap::eSeverity_Note].load());
}

void Check(SCheckOptions& oOptions, STool& oTool)
{
    SCounts oCounts;
    oOptions.m_oFiles.m_bTurnsForBadOnes = true; // they count
    oOptions.m_oFiles.m_bTurnsSayImages = true;
    if (oOptions.m_bJson)
    {
        oOptions.m_oFiles.m_sBetween = ",\n";
        oOptions.m_oFiles.m_sHead = OpenDocument("checks");
        oOptions.m_oFiles.m_sTail = gsc_pszCloseDocument;
    }
    ForEachInput(oOptions.m_oFiles, oTool, [&](const SInput& oInput) {
        SOutcome oOutcome = CheckInput(oInput, oOptions.m_bJson, oCounts);
        ++oCounts.m_ullImages; // here, so that a turn that throws counts when it is answered
        return oOutcome;
    });
    if (!oOptions.m_bJson && oCounts.m_ullImages > 1)
    {
        PrintOutcome({ Summarise(oCounts), "", eExit_Good }, oTool);
    }
}
} // namespace

void DeclareCheckOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SCheckOptions>();
    DeclareFiles(oCommand, poOptions->m_oFiles);
    oCommand.Flag("--json", poOptions->m_bJson, "One JSON document with the findings");
    oCommand.Footer("A line for each finding, none for a clean image, and a summary of several:\n"
                    "  FILE: block B offset 0xNN (field): error|warning|note: what: found X, expected Y\n"
                    "Exit status: 0 clean or notes only, 1 errors or warnings, 3 an image that cannot be read.\n\n"
                    "Example:\n"
                    "  zoredid check *.bin");
    oCommand.Run([poOptions, &oTool] { Check(*poOptions, oTool); });
}
