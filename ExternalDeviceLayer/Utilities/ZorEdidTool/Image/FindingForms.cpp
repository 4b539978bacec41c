// Findings as lines, JSON, SARIF and JUnit's XML.

#include "FindingForms.h"

#include <algorithm>

#include "EdidUtils.h"
#include "Json.h"
#include "MapText.h"
#include "RuleNames.h"
#include "TextFormat.h"
#include "Version.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

const char* GetRuleId(const SFinding& oFinding) { return FindZorEdidRule(oFinding.m_eRule)->m_pszId; }

// "the checksum is wrong: found 0x5a, should be 0x5b"
std::string DescribeFinding(const SFinding& oFinding)
{
    std::string sText = oFinding.m_sWhat;
    sText += oFinding.m_sFound.empty() ? "" : ": found " + oFinding.m_sFound;
    sText += oFinding.m_sExpected.empty() ? "" : ", expected " + oFinding.m_sExpected;
    return sText;
}
} // namespace

std::string DescribePlace(const SFinding& oFinding)
{
    return FormatText("block %u offset 0x%02x", oFinding.m_uiBlock, oFinding.m_uiOffset) +
           (oFinding.m_sField.empty() ? "" : " (" + oFinding.m_sField + ")");
}

std::string MakeFindingLines(const SChecked& oChecked)
{
    std::string sText;
    for (const SFinding& oFinding : oChecked.m_aoFindings)
    {
        sText += ShowName(oChecked.m_oInput.m_sName) + ": " + DescribePlace(oFinding) + ": " +
                 GetNoteName(oFinding.m_eSeverity) + ": " + DescribeFinding(oFinding) + " [" + GetRuleId(oFinding) +
                 "]\n";
    }
    return sText;
}

std::string MakeCheckedJson(const SChecked& oChecked)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Indented);
    oJson.BeginObject();
    WriteSource(oChecked.m_oInput, oJson);
    if (!oChecked.m_oInput.IsGood())
    {
        oJson.Member("error", oChecked.m_oInput.m_sProblem);
        oJson.EndObject();
        return oJson.GetText();
    }
    oJson.BeginArray("findings");
    for (const SFinding& oFinding : oChecked.m_aoFindings)
    {
        oJson.BeginObject();
        oJson.Member("rule", GetRuleId(oFinding));
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

// ---- SARIF ----

namespace
{
void WriteText(CJsonWriter& oJson, const char* pszName, const std::string& sText)
{
    oJson.BeginObject(pszName);
    oJson.Member("text", sText);
    oJson.EndObject();
}

void WriteSarifRule(CJsonWriter& oJson, const SZorEdidRule& oRule)
{
    oJson.BeginObject();
    oJson.Member("id", oRule.m_pszId);
    WriteText(oJson, "shortDescription", oRule.m_pszWhat);
    WriteText(oJson, "fullDescription", oRule.m_pszWhy);
    oJson.BeginObject("defaultConfiguration");
    oJson.Member("level", GetNoteName(oRule.m_eSeverity)); // which has the same names
    oJson.EndObject();
    if (*oRule.m_pszStandard != '\0')
    {
        oJson.BeginObject("properties");
        oJson.Member("standard", oRule.m_pszStandard);
        oJson.EndObject();
    }
    oJson.EndObject();
}

std::string MakeUri(const std::string& sName) { return (sName.starts_with('/') ? "file://" : "") + EncodePath(sName); }

// Of an image as a whole, and of a finding in it.
void WriteLocations(CJsonWriter& oJson, const SInput& oInput, const SFinding* poFinding)
{
    oJson.BeginArray("locations");
    oJson.BeginObject();
    oJson.BeginObject("physicalLocation");
    oJson.BeginObject("artifactLocation");
    oJson.Member("uri", MakeUri(oInput.GetFile()));
    oJson.EndObject();
    if (poFinding != nullptr && oInput.IsRaw())
    {
        oJson.BeginObject("region");
        oJson.Member("byteOffset", oInput.m_uiOffset + poFinding->m_uiBlock * gsc_uiBlockSize + poFinding->m_uiOffset);
        oJson.Member("byteLength", poFinding->m_uiLength);
        oJson.EndObject();
    }
    oJson.EndObject();
    if (poFinding != nullptr && !poFinding->m_sField.empty())
    {
        oJson.BeginArray("logicalLocations");
        oJson.BeginObject();
        oJson.Member("fullyQualifiedName", poFinding->m_sField);
        oJson.EndObject();
        oJson.EndArray();
    }
    oJson.EndObject();
    oJson.EndArray();
}

std::string MakeSarifResult(const SInput& oInput, const SFinding* poFinding)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Line);
    oJson.BeginObject();
    oJson.Member("ruleId", poFinding != nullptr ? GetRuleId(*poFinding) : gsc_oUnreadableRule.m_pszId);
    oJson.Member("level", GetNoteName(poFinding != nullptr ? poFinding->m_eSeverity : CZorEdidMap::eSeverity_Error));
    const std::string sEdid = oInput.IsOneOfSeveral() ? oInput.m_sName + ": " : "";
    WriteText(oJson, "message",
              sEdid + (poFinding != nullptr ? DescribePlace(*poFinding) + ": " + DescribeFinding(*poFinding)
                                            : oInput.m_sProblem));
    WriteLocations(oJson, oInput, poFinding);
    oJson.EndObject();
    return oJson.GetText();
}
} // namespace

std::string OpenSarif()
{
    CJsonWriter oJson(CJsonWriter::eStyle_Line);
    oJson.BeginObject();
    oJson.Member("$schema", "https://json.schemastore.org/sarif-2.1.0.json");
    oJson.Member("version", "2.1.0");
    oJson.BeginArray("runs");
    oJson.BeginObject();
    oJson.BeginObject("tool");
    oJson.BeginObject("driver");
    oJson.Member("name", "zoredid");
    oJson.Member("version", GetVersion());
    oJson.BeginArray("rules");
    ForEachRule([&](const SZorEdidRule& oRule) { WriteSarifRule(oJson, oRule); });
    oJson.EndArray();
    oJson.EndObject();
    oJson.EndObject();
    oJson.BeginArray("results");
    return oJson.GetText() + "\n";
}

std::string MakeSarifResults(const SChecked& oChecked)
{
    if (!oChecked.m_oInput.IsGood())
    {
        return MakeSarifResult(oChecked.m_oInput, nullptr);
    }
    std::string sText;
    for (const SFinding& oFinding : oChecked.m_aoFindings)
    {
        sText += (sText.empty() ? "" : gsc_pszBetween) + MakeSarifResult(oChecked.m_oInput, &oFinding);
    }
    return sText;
}

// ---- JUnit ----

namespace
{
// What the case is red for: one element, as not every reader takes several.
std::string MakeElement(const char* pszElement, const std::string& sType, const std::string& sMessage,
                        const std::string& sText)
{
    return std::string("    <") + pszElement + " type=\"" + sType + "\" message=\"" + EscapeMarkup(sMessage) + "\">" +
           EscapeMarkup(sText) + "</" + pszElement + ">\n";
}
} // namespace

std::string OpenJUnit(const SJUnitCounts& oCounts)
{
    return FormatText("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<testsuite name=\"zoredid check\" tests=\"%llu\" failures=\"%llu\" errors=\"%llu\">\n",
                      oCounts.m_ullImages, oCounts.m_ullFailed, oCounts.m_ullUnreadable);
}

std::string MakeJUnitCase(const SChecked& oChecked, CZorEdidMap::ESeverity eFailOn)
{
    const SInput& oInput = oChecked.m_oInput;
    const std::vector<SFinding>& aoFindings = oChecked.m_aoFindings;
    const auto fnFails = [eFailOn](const SFinding& oFinding) { return oFinding.IsFailure(eFailOn); };
    std::string sInside;
    if (!oInput.IsGood())
    {
        sInside = MakeElement("error", gsc_oUnreadableRule.m_pszId, ShowName(oInput.m_sProblem), "");
    }
    else if (const auto itFirst = std::ranges::find_if(aoFindings, fnFails); itFirst != aoFindings.end())
    {
        const long long llMore = std::ranges::count_if(aoFindings, fnFails) - 1;
        sInside = MakeElement("failure", GetRuleId(*itFirst),
                              DescribePlace(*itFirst) + ": " + DescribeFinding(*itFirst) +
                                  (llMore != 0 ? FormatText(", and %lld more", llMore) : ""),
                              MakeFindingLines(oChecked));
    }
    const std::string sHead =
        "  <testcase classname=\"zoredid.check\" name=\"" + EscapeMarkup(ShowName(oInput.m_sName)) + "\"";
    return sHead + (sInside.empty() ? "/>\n" : ">\n" + sInside + "  </testcase>\n");
}
