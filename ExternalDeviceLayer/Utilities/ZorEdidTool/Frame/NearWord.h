// Which of several known words a mistyped one was meant to be.

#pragma once

#include <string>
#include <vector>

// The known word that is nearest: sWord is its beginning, or differs by one or two letters, fewer in a short word.
// Empty when none is near.
std::string FindNearWord(const std::string& sWord, const std::vector<std::string>& asKnown);

// "; did you mean 'WORD'?", or empty without a near word.
std::string AskForNearWord(const std::string& sWord, const std::vector<std::string>& asKnown);

// "; did you mean 'WORD'?", or "; expected one of A, B" without a near word.
std::string NameKnownWords(const std::string& sWord, const std::vector<std::string>& asKnown);
