// zoredid check: findings about images in several forms, counts of them, and the rules.

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

#include "CommandLine.h"
#include "EdidUtils.h"
#include "FindingForms.h"
#include "Json.h"
#include "ManyFiles.h"
#include "MapText.h"
#include "Output.h"
#include "OutputForms.h"
#include "RuleNames.h"
#include "TextFormat.h"
#include "Tool.h"
#include "ZorEdidRepair.h"

namespace
{
struct SCheckOptions
{
    SFiles m_oFiles;
    bool m_bJson = false;
    bool m_bSarif = false;
    bool m_bJUnit = false;
    bool m_bSummary = false;
    bool m_bRules = false;
    bool m_bMarkdown = false;
    std::string m_sFailOn = "warning";
    std::string m_sFixed; // where a repaired image goes
    bool m_bForce = false;
    std::vector<std::string> m_asIgnored;

    CZorEdidMap::ESeverity GetFailOn() const
    {
        return m_sFailOn == "error"     ? CZorEdidMap::eSeverity_Error
               : m_sFailOn == "warning" ? CZorEdidMap::eSeverity_Warning
                                        : CZorEdidMap::eSeverity_Note;
    }
    bool IsText() const { return !m_bJson && !m_bSarif && !m_bJUnit; }
};

using CCount = std::atomic<unsigned long long>;

// Counted by all threads; read when they are done.
struct SCounts
{
    CCount m_ullImages = 0;
    CCount m_ullUnreadable = 0;
    CCount m_ullFaulty = 0;        // images with an error or a warning
    CCount m_ullFailed = 0;        // those with a finding that --fail-on means
    CCount m_aullFindings[3] = {}; // by severity
    // By rule: the images with it, and its findings.
    std::vector<CCount> m_aullRuleImages = std::vector<CCount>(GetRuleNumbers());
    std::vector<CCount> m_aullRuleFindings = std::vector<CCount>(GetRuleNumbers());
};

void Count(const std::vector<SFinding>& aoFindings, SCounts& oCounts)
{
    std::vector<EZorEdidRule> aeRules;
    for (const SFinding& oFinding : aoFindings)
    {
        ++oCounts.m_aullFindings[oFinding.m_eSeverity];
        ++oCounts.m_aullRuleFindings[oFinding.m_eRule];
        aeRules.push_back(oFinding.m_eRule);
    }
    std::ranges::sort(aeRules);
    aeRules.erase(std::unique(aeRules.begin(), aeRules.end()), aeRules.end());
    for (const EZorEdidRule eRule : aeRules)
    {
        ++oCounts.m_aullRuleImages[eRule];
    }
    oCounts.m_ullFaulty += std::ranges::any_of(aoFindings, &SFinding::HasWeight) ? 1 : 0;
}

std::string MakeText(const SChecked& oChecked, const SCheckOptions& oOptions)
{
    return oOptions.m_bJson      ? MakeCheckedJson(oChecked)
           : oOptions.m_bSarif   ? MakeSarifResults(oChecked)
           : oOptions.m_bJUnit   ? MakeJUnitCase(oChecked, oOptions.GetFailOn())
           : oOptions.m_bSummary ? std::string()
                                 : MakeFindingLines(oChecked);
}

// That the file holds more than this image, which ends where the second one begins.
SFinding MakeNoteOfImages(const SInput& oInput)
{
    SFinding oFinding = {};
    oFinding.m_eRule = eZorEdidRule_SeveralImages;
    oFinding.m_uiBlock = static_cast<unsigned int>(oInput.m_aui8Bytes.size()) / CEdidUtils::msc_uiBlockSize;
    oFinding.m_uiLength = CEdidUtils::msc_uiBlockSize;
    oFinding.m_eSeverity = CZorEdidMap::eSeverity_Note;
    oFinding.m_sWhat = oInput.m_sImages;
    return oFinding;
}

bool IsOfLibrary(const SFinding& oFinding) { return IsZorEdidRuleOfLibrary(oFinding.m_eRule); }

SOutcome CheckInput(const SInput& oInput, const SCheckOptions& oOptions, const CRuleSet& oIgnored, SCounts& oCounts)
{
    SChecked oChecked = { oInput };
    if (!oInput.IsGood() && oIgnored.HasUnreadable())
    {
        return {};
    }
    if (!oInput.IsGood())
    {
        SOutcome oOutcome = RefuseInput(oInput, oInput.m_sProblem);
        oOutcome.m_sOut = MakeText(oChecked, oOptions);
        ++oCounts.m_ullUnreadable;
        return oOutcome;
    }
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    oChecked.m_aoFindings = CheckImage(oMap, GetThisYear());
    if (!oInput.m_sImages.empty())
    {
        oChecked.m_aoFindings.insert(std::ranges::find_if(oChecked.m_aoFindings, IsOfLibrary),
                                     MakeNoteOfImages(oInput));
    }
    std::erase_if(oChecked.m_aoFindings, [&](const SFinding& oFinding) { return oIgnored.Has(oFinding.m_eRule); });
    const bool bFails = std::ranges::any_of(
        oChecked.m_aoFindings, [&](const SFinding& oFinding) { return oFinding.IsFailure(oOptions.GetFailOn()); });
    Count(oChecked.m_aoFindings, oCounts);
    oCounts.m_ullFailed += bFails ? 1 : 0;
    return { MakeText(oChecked, oOptions), "", bFails ? eExit_Finding : eExit_Good };
}

// A line for each rule that is broken, that of most images first.
std::string SummariseRules(const SCounts& oCounts)
{
    std::vector<const SZorEdidRule*> apoRules;
    for (unsigned int i = 0; i < GetZorEdidRuleCount(); ++i)
    {
        if (oCounts.m_aullRuleImages[GetZorEdidRule(i).m_eRule] != 0)
        {
            apoRules.push_back(&GetZorEdidRule(i));
        }
    }
    std::ranges::stable_sort(apoRules, std::ranges::greater(), [&](const SZorEdidRule* poRule) {
        return oCounts.m_aullRuleImages[poRule->m_eRule].load();
    });
    std::string sText = apoRules.empty() ? "" : "  images findings rule\n";
    for (const SZorEdidRule* poRule : apoRules)
    {
        sText += FormatText("%8llu %8llu %s\n", oCounts.m_aullRuleImages[poRule->m_eRule].load(),
                            oCounts.m_aullRuleFindings[poRule->m_eRule].load(), poRule->m_pszId);
    }
    return sText;
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

// What a document has around the images.
void FrameDocument(SCheckOptions& oOptions, const SCounts& oCounts)
{
    SFiles& oFiles = oOptions.m_oFiles;
    if (oOptions.m_bJson)
    {
        oFiles.m_sBetween = ",\n";
        oFiles.m_sHead = OpenDocument("checks");
        oFiles.m_sTail = gsc_pszCloseDocument;
    }
    else if (oOptions.m_bSarif)
    {
        oFiles.m_sBetween = gsc_pszBetween;
        oFiles.m_sHead = OpenSarif();
        oFiles.m_sTail = gsc_pszCloseSarif;
    }
    else if (oOptions.m_bJUnit)
    {
        oFiles.m_fnHead = [&oCounts] {
            return OpenJUnit({ oCounts.m_ullImages, oCounts.m_ullFailed, oCounts.m_ullUnreadable });
        };
        oFiles.m_sTail = gsc_pszCloseJUnit;
    }
}

CRuleSet ListIgnored(const SCheckOptions& oOptions)
{
    CRuleSet oIgnored;
    for (const std::string& sName : oOptions.m_asIgnored)
    {
        oIgnored.Add(sName);
    }
    return oIgnored;
}

void CheckFiles(SCheckOptions& oOptions, STool& oTool)
{
    SCounts oCounts;
    const CRuleSet oIgnored = ListIgnored(oOptions);
    oOptions.m_oFiles.m_bTurnsForBadOnes = true; // they count
    oOptions.m_oFiles.m_bTurnsSayImages = true;
    FrameDocument(oOptions, oCounts);
    ForEachInput(oOptions.m_oFiles, oTool, [&](const SInput& oInput) {
        SOutcome oOutcome = CheckInput(oInput, oOptions, oIgnored, oCounts);
        // Here, so that a turn that throws counts when it is answered.
        oCounts.m_ullImages += oInput.IsGood() || !oIgnored.HasUnreadable() ? 1 : 0;
        return oOutcome;
    });
    if (oOptions.IsText() && (oCounts.m_ullImages > 1 || (oOptions.m_bSummary && oCounts.m_ullImages > 0)))
    {
        PrintResult(SummariseRules(oCounts) + Summarise(oCounts));
    }
}

// ---- Repairs ----

// Bytes of a repair that have another value now.
struct SChange
{
    unsigned int m_uiOffset = 0; // of the first one
    unsigned int m_uiCount = 0;
};

SChange FindChange(const SInput& oInput, const CZorEdidRepair& oRepair, const SZorRepair& oOne)
{
    SChange oChange = { oOne.m_uiOffset };
    for (unsigned int i = oOne.m_uiOffset; i < oOne.m_uiOffset + oOne.m_uiLength; ++i)
    {
        if (oInput.m_aui8Bytes[i] != oRepair.GetData()[i] && oChange.m_uiCount++ == 0)
        {
            oChange.m_uiOffset = i;
        }
    }
    return oChange;
}

// A line for each repair, by the fields of the image as it was, and then for what was left.
std::string DescribeRepairs(const SInput& oInput, const CZorEdidRepair& oRepair)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    const std::string sName = ShowName(oInput.m_sName) + ": ";
    const auto fnLine = [&](unsigned int uiOffset, const char* pszDone, EZorEdidRule eRule, const std::string& sHow) {
        constexpr unsigned int uiHighestBit = 7;
        const SZorEdidRule& oRule = *FindZorEdidRule(eRule);
        SFinding oPlace = {};
        oPlace.m_uiBlock = uiOffset / CEdidUtils::msc_uiBlockSize;
        oPlace.m_uiOffset = uiOffset % CEdidUtils::msc_uiBlockSize;
        oPlace.m_sField = GetPath(oMap, oMap.FindLeaf(uiOffset, uiHighestBit));
        return sName + DescribePlace(oPlace) + ": " + pszDone + ": " + oRule.m_pszWhat + ": " + sHow + " [" +
               oRule.m_pszId + "]\n";
    };
    std::string sText = oInput.m_sImages.empty() ? "" : sName + "the copy holds the first EDID alone\n";
    if (oRepair.GetCount() == 0)
    {
        sText += sName + (oRepair.GetWithheldCount() == 0 ? "nothing to repair\n" : "nothing repaired\n");
    }
    for (unsigned int i = 0; i < oRepair.GetCount(); ++i)
    {
        const SZorRepair& oOne = oRepair.Get(i);
        const SChange oChange = FindChange(oInput, oRepair, oOne);
        sText += fnLine(oChange.m_uiOffset, "repaired", oOne.m_eRule,
                        FormatText("0x%02x is now 0x%02x", oInput.m_aui8Bytes[oChange.m_uiOffset],
                                   oRepair.GetData()[oChange.m_uiOffset]) +
                            (oChange.m_uiCount > 1 ? FormatText(", the first of %u bytes", oChange.m_uiCount) : ""));
    }
    for (unsigned int i = 0; i < oRepair.GetWithheldCount(); ++i)
    {
        const SZorWithheld& oOne = oRepair.GetWithheld(i);
        sText += fnLine(oOne.m_uiOffset, "not repaired", oOne.m_eRule, oOne.m_pszReason);
    }
    return sText;
}

// Writes the repaired image, says what was repaired and then what is left to find in it.
void FixFile(const SCheckOptions& oOptions, STool& oTool)
{
    SInput oInput = ReadOneInput(oOptions.m_oFiles.m_asNames.front(), eSeveral_Refused, oTool);
    if (!oInput.IsGood())
    {
        return;
    }
    CZorEdidRepair oRepair;
    const CRuleSet oIgnored = ListIgnored(oOptions);
    for (unsigned int i = 0; i < GetZorEdidRuleCount(); ++i)
    {
        const EZorEdidRule eRule = GetZorEdidRule(i).m_eRule;
        if (oIgnored.Has(eRule))
        {
            oRepair.LeaveOut(eRule);
        }
    }
    oRepair.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    const std::vector<unsigned char> aui8Fixed(oRepair.GetData(), oRepair.GetData() + oRepair.GetSize());
    const SWritten oWritten = WriteImage(oOptions.m_sFixed, aui8Fixed, oOptions.m_bForce);
    ReportWritten(oOptions.m_sFixed, oWritten, oTool);
    if (!oWritten.IsGood())
    {
        return;
    }
    const std::string sRepairs = DescribeRepairs(oInput, oRepair);
    oInput.m_aui8Bytes = aui8Fixed;
    oInput.m_sImages.clear(); // the copy holds no other one
    SCounts oCounts;
    SOutcome oOutcome = CheckInput(oInput, oOptions, oIgnored, oCounts);
    oOutcome.m_sOut = sRepairs + oOutcome.m_sOut;
    if (IsStandardOutput(oOptions.m_sFixed))
    {
        std::swap(oOutcome.m_sOut, oOutcome.m_sError);
    }
    PrintOutcome(oOutcome, oTool);
}

void Check(SCheckOptions& oOptions, STool& oTool)
{
    const bool bOneFile = oOptions.m_oFiles.m_asNames.size() == 1 && oOptions.m_oFiles.m_sListFile.empty();
    const bool bFiles = !oOptions.m_oFiles.m_asNames.empty() || !oOptions.m_oFiles.m_sListFile.empty();
    const char* pszMistake = oOptions.m_bRules && bFiles                      ? "FILE cannot be combined with --rules"
                             : oOptions.m_bMarkdown && !oOptions.m_bRules     ? "--markdown needs --rules"
                             : !oOptions.m_sFixed.empty() && !bOneFile        ? "--fix takes exactly one FILE"
                             : oOptions.m_bForce && oOptions.m_sFixed.empty() ? "--force needs --fix"
                                                                              : nullptr;
    if (pszMistake != nullptr)
    {
        PrintError(std::string(pszMistake) + " (see zoredid check --help)");
        oTool.Note(eExit_CommandLine);
        return;
    }
    if (oOptions.m_bRules)
    {
        PrintResult(oOptions.m_bJson ? MakeRules() : oOptions.m_bMarkdown ? MakeRulesTable() : ListRules());
        return;
    }
    oOptions.m_sFixed.empty() ? CheckFiles(oOptions, oTool) : FixFile(oOptions, oTool);
}
} // namespace

void DeclareCheckOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SCheckOptions>();
    DeclareFiles(oCommand, poOptions->m_oFiles);
    const COption oFailOn = oCommand
                                .Word("--fail-on", poOptions->m_sFailOn,
                                      "The least severity that makes the exit status 1; warning without the option")
                                .Placeholder("SEVERITY")
                                .OneOf({ "error", "warning", "note" });
    const COption oIgnore =
        oCommand
            .Each("--ignore", poOptions->m_asIgnored,
                  "Leave a rule out, or all whose ids begin so: reserved is all of reserved.*; several with "
                  "commas")
            .Placeholder("ID")
            .Check(CRuleSet::CheckNames);
    const COption oJson = oCommand.Flag("--json", poOptions->m_bJson, "One JSON document with the findings");
    const COption oSarif =
        oCommand.Flag("--sarif", poOptions->m_bSarif, "A log in SARIF 2.1.0, for code hosts and editors");
    const COption oJUnit =
        oCommand.Flag("--junit", poOptions->m_bJUnit, "JUnit's XML, for build servers: a case for each image");
    const COption oSummary =
        oCommand.Flag("--summary", poOptions->m_bSummary, "The counts by rule only, not each finding");
    const COption oFix = oCommand
                             .Word("--fix", poOptions->m_sFixed,
                                   "Write a copy in which everything is right that has one right answer, such as "
                                   "checksums and counts of blocks, and check the copy; of one FILE")
                             .Placeholder("OUT");
    oCommand.Flag("--force", poOptions->m_bForce, "Let --fix replace OUT if it exists");
    const COption oRules = oCommand.Flag("--rules", poOptions->m_bRules,
                                         "The rules: id, severity, standard, and why they matter; without FILE");
    const COption oMarkdown =
        oCommand.Flag("--markdown", poOptions->m_bMarkdown, "With --rules: as a table of Markdown");
    oSarif.Excludes(oJson);
    oJUnit.Excludes(oJson).Excludes(oSarif);
    oSummary.Excludes(oJson).Excludes(oSarif).Excludes(oJUnit);
    oFix.Excludes(oJson).Excludes(oSarif).Excludes(oJUnit).Excludes(oSummary);
    oRules.Excludes(oFix).Excludes(oSarif).Excludes(oJUnit).Excludes(oSummary).Excludes(oFailOn).Excludes(oIgnore);
    oMarkdown.Excludes(oJson);
    oCommand.Footer("A line for each finding, none for a clean image; of several images then the counts by rule and a "
                    "summary:\n"
                    "  FILE: block B offset 0xNN (field): error|warning|note: what: found X, expected Y [rule]\n"
                    "Exit status: 0 clean or notes only, 1 errors or warnings (or what --fail-on says), 3 an image "
                    "that cannot be read.\n\n"
                    "Examples:\n"
                    "  zoredid check *.bin\n"
                    "  zoredid check --fail-on error --ignore reserved --ignore base.image-size *.bin\n"
                    "  zoredid check --sarif *.bin > zoredid.sarif\n"
                    "  zoredid check --fix right.bin monitor.bin");
    oCommand.Run([poOptions, &oTool] { Check(*poOptions, oTool); });
}
