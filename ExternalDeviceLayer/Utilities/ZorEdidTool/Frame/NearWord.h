// Which of several known words a mistyped one was meant to be.

#pragma once

#include <string>
#include <vector>

// The known word that is nearest: sWord is its beginning, or differs by one or two letters, fewer in a short word.
// Empty when none is near, as of numbers.
std::string FindNearWord(const std::string& sWord, const std::vector<std::string>& asKnown);

// "; did you mean 'WORD'?", or empty without a near word.
std::string AskForNearWord(const std::string& sWord, const std::vector<std::string>& asKnown);

// "; did you mean 'WORD'?", or "; expected one of A, B" without a near word.
std::string NameKnownWords(const std::string& sWord, const std::vector<std::string>& asKnown);

// The same with other words after "expected ".
std::string NameKnownWords(const std::string& sWord, const std::vector<std::string>& asKnown,
                           const std::string& sExpected);

// The words of a table, whose rows have them as m_pszName.
template <class TABLE>
std::vector<std::string> ListNames(const TABLE& aoTable)
{
    std::vector<std::string> asNames;
    for (const auto& oRow : aoTable)
    {
        asNames.emplace_back(oRow.m_pszName);
    }
    return asNames;
}

// "unknown value 'x'; did you mean 'WORD'?", or what NameKnownWords has otherwise.
template <class TABLE>
std::string RefuseName(const std::string& sName, const TABLE& aoTable)
{
    return "unknown value '" + sName + "'" + NameKnownWords(sName, ListNames(aoTable));
}
