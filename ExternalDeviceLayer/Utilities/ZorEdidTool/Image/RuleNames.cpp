// Texts of rules, and names that mean several.

#include "RuleNames.h"

#include <string.h>

#include <algorithm>

#include "Json.h"
#include "MapText.h"
#include "NearWord.h"
#include "TextFormat.h"

namespace
{
constexpr char gsc_szAll[] = ".*";

// How the ids begin that the name means: "reserved" of "reserved.*".
std::string TakeBeginning(const std::string& sName)
{
    return sName.ends_with(gsc_szAll) ? sName.substr(0, sName.size() - strlen(gsc_szAll)) : sName;
}

bool IsNamed(const std::string& sId, const std::string& sName)
{
    return sId == sName || sId.starts_with(TakeBeginning(sName) + ".");
}

template <class CALL>
void ForEachName(const std::string& sNames, const CALL& fnCall)
{
    for (size_t uiFirst = 0; uiFirst <= sNames.size();)
    {
        const size_t uiEnd = std::min(sNames.find(',', uiFirst), sNames.size());
        fnCall(sNames.substr(uiFirst, uiEnd - uiFirst));
        uiFirst = uiEnd + 1;
    }
}

// Ids, and their beginnings.
std::vector<std::string> ListNames()
{
    std::vector<std::string> asNames;
    ForEachRule([&](const SZorEdidRule& oRule) {
        const std::string sId = oRule.m_pszId;
        for (size_t uiPoint = sId.find('.'); uiPoint != std::string::npos; uiPoint = sId.find('.', uiPoint + 1))
        {
            asNames.push_back(sId.substr(0, uiPoint));
        }
        asNames.push_back(sId);
    });
    return asNames;
}
} // namespace

std::string ListRules()
{
    size_t uiWidth = 0;
    ForEachRule([&](const SZorEdidRule& oRule) { uiWidth = std::max(uiWidth, strlen(oRule.m_pszId)); });
    std::string sText;
    ForEachRule([&](const SZorEdidRule& oRule) {
        const std::string sStandard = oRule.m_pszStandard;
        sText += FormatText("%-*s %-7s %s", static_cast<int>(uiWidth), oRule.m_pszId, GetNoteName(oRule.m_eSeverity),
                            oRule.m_pszWhat);
        sText += (sStandard.empty() ? "" : " [" + sStandard + "]") + "\n    " + oRule.m_pszWhy + "\n";
    });
    return sText;
}

std::string MakeRulesTable()
{
    std::string sText = "| Rule | Severity | What is found | Standard | Why it matters |\n|---|---|---|---|---|\n";
    ForEachRule([&](const SZorEdidRule& oRule) {
        sText += FormatText("| `%s` | %s | %s | %s | %s |\n", oRule.m_pszId, GetNoteName(oRule.m_eSeverity),
                            oRule.m_pszWhat, oRule.m_pszStandard, oRule.m_pszWhy);
    });
    return sText;
}

std::string MakeRules()
{
    CJsonWriter oJson(CJsonWriter::eStyle_Indented);
    BeginDocument(oJson);
    oJson.BeginArray("rules");
    ForEachRule([&](const SZorEdidRule& oRule) {
        oJson.BeginObject();
        oJson.Member("rule", oRule.m_pszId);
        oJson.Member("severity", GetNoteName(oRule.m_eSeverity));
        oJson.Member("what", oRule.m_pszWhat);
        if (*oRule.m_pszStandard != '\0')
        {
            oJson.Member("standard", oRule.m_pszStandard);
        }
        oJson.Member("why", oRule.m_pszWhy);
        oJson.EndObject();
    });
    oJson.EndArray();
    oJson.EndObject();
    return oJson.GetText() + "\n";
}

unsigned int GetRuleNumbers() { return GetZorEdidRule(GetZorEdidRuleCount() - 1).m_eRule + 1U; }

std::string CRuleSet::CheckNames(const std::string& sNames)
{
    std::string sProblem;
    ForEachName(sNames, [&](const std::string& sName) {
        bool bKnown = false;
        ForEachRule([&](const SZorEdidRule& oRule) { bKnown = bKnown || IsNamed(oRule.m_pszId, sName); });
        if (!bKnown && sProblem.empty())
        {
            const std::string sBeginning = TakeBeginning(sName);
            sProblem = "unknown rule '" + ShowName(sName) + "'" +
                       NameKnownWords(sBeginning.substr(0, sBeginning.find_last_not_of('.') + 1), ListNames(),
                                      "a rule of 'zoredid check --rules'");
        }
    });
    return sProblem;
}

void CRuleSet::Add(const std::string& sNames)
{
    ForEachName(sNames, [&](const std::string& sName) {
        ForEachRule([&](const SZorEdidRule& oRule) {
            m_abRules[oRule.m_eRule] = m_abRules[oRule.m_eRule] || IsNamed(oRule.m_pszId, sName);
        });
    });
}
