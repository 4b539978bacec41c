// The rules of ZorEdidRules.h as texts, and those that a user names.

#pragma once

#include <string>
#include <vector>

#include "ZorEdidRules.h"

// In place of a rule: of an image that cannot be read.
inline constexpr SZorEdidRule gsc_oUnreadableRule = { eZorEdidRule_None,
                                                      CZorEdidMap::eSeverity_Error,
                                                      "input.unreadable",
                                                      "the image cannot be read",
                                                      "",
                                                      "Nothing of the image has been checked." };

// Calls fnCall for all rules in the order of their numbers, and for this one.
template <class CALL>
void ForEachRule(const CALL& fnCall)
{
    for (unsigned int i = 0; i < GetZorEdidRuleCount(); ++i)
    {
        fnCall(GetZorEdidRule(i));
    }
    fnCall(gsc_oUnreadableRule);
}

// These rules: two lines each, a table of Markdown, or a JSON document.
std::string ListRules();
std::string MakeRulesTable();
std::string MakeRules();

// For lists with a place for each number of a rule.
unsigned int GetRuleNumbers();

// Rules by their ids. The beginning of an id up to a point names all rules that begin so: "reserved" or "reserved.*".
// Several names are separated by commas.
class CRuleSet
{
public:
    CRuleSet() : m_abRules(GetRuleNumbers()) {}

    // What is wrong with names, as one line; empty when each names a rule.
    static std::string CheckNames(const std::string& sNames);

    void Add(const std::string& sNames);
    bool Has(EZorEdidRule eRule) const { return m_abRules[eRule]; }
    bool HasUnreadable() const { return Has(gsc_oUnreadableRule.m_eRule); }

private:
    std::vector<bool> m_abRules; // by the numbers of the rules
};
