// The rules of ZorEdidRules.h as texts, and those that a user names.

#pragma once

#include <string>
#include <vector>

#include "ZorEdidRules.h"

// All rules, in the order of their numbers: two lines each, a table of Markdown, or a JSON document.
std::string ListRules();
std::string MakeRulesTable();
std::string MakeRules();

// For lists with a place for each number of a rule.
unsigned int GetRuleNumbers();

// Rules by their ids. The beginning of an id up to a point names all rules that begin so: "reserved" or "reserved.*".
class CRuleSet
{
public:
    CRuleSet() : m_abRules(GetRuleNumbers()) {}

    // What is wrong with a name, as one line; empty when it names a rule.
    static std::string CheckName(const std::string& sName);

    void Add(const std::string& sName);
    bool Has(EZorEdidRule eRule) const { return m_abRules[eRule]; }

private:
    std::vector<bool> m_abRules; // by the numbers of the rules
};
