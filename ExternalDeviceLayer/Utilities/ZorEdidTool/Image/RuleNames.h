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

// In place of a rule: of an image that cannot be read there is nothing else to say.
inline constexpr char gsc_szUnreadableRule[] = "input.unreadable";

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
    bool HasUnreadable() const { return m_bUnreadable; }

private:
    std::vector<bool> m_abRules; // by the numbers of the rules
    bool m_bUnreadable = false;
};
