// Words that are near to each other.

#include "NearWord.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "TextFormat.h"

namespace
{
constexpr size_t gsc_uiFar = 3; // letters

// Letters to put in, take out or replace, and neighbours to exchange.
size_t CountEdits(const std::string& sFrom, const std::string& sTo)
{
    std::vector<size_t> auiRow(sTo.size() + 1); // the edits to each beginning of sTo
    std::iota(auiRow.begin(), auiRow.end(), size_t{ 0 });
    std::vector<size_t> auiBefore; // the same for one letter less
    for (size_t i = 0; i < sFrom.size(); ++i)
    {
        const std::vector<size_t> auiTwoBefore = std::exchange(auiBefore, auiRow);
        ++auiRow[0];
        for (size_t j = 0; j < sTo.size(); ++j)
        {
            const size_t uiReplaced = auiBefore[j] + (sTo[j] == sFrom[i] ? 0 : 1);
            auiRow[j + 1] = std::min({ uiReplaced, auiRow[j] + 1, auiBefore[j + 1] + 1 });
            if (i > 0 && j > 0 && sFrom[i] == sTo[j - 1] && sFrom[i - 1] == sTo[j])
            {
                auiRow[j + 1] = std::min(auiRow[j + 1], auiTwoBefore[j - 1] + 1);
            }
        }
    }
    return auiRow.back();
}

size_t GetDistance(const std::string& sWord, const std::string& sKnown)
{
    if (sKnown.starts_with(sWord))
    {
        return sWord.empty() ? gsc_uiFar : 1;
    }
    const size_t uiEdits = CountEdits(sWord, sKnown);
    return 3 * uiEdits <= sWord.size() + 1 ? uiEdits : gsc_uiFar;
}
} // namespace

std::string FindNearWord(const std::string& sWord, const std::vector<std::string>& asKnown)
{
    constexpr size_t uiLongest = 64; // letters; no known word is as long
    std::string sNear;
    const bool bNumber = !sWord.empty() && sWord[0] >= '0' && sWord[0] <= '9'; // which is meant by no other one
    size_t uiNearest = bNumber || sWord.size() > uiLongest ? 0 : gsc_uiFar;
    for (const std::string& sKnown : asKnown)
    {
        const size_t uiDistance = GetDistance(sWord, sKnown);
        if (uiDistance < uiNearest)
        {
            uiNearest = uiDistance;
            sNear = sKnown;
        }
    }
    return sNear;
}

std::string AskForNearWord(const std::string& sWord, const std::vector<std::string>& asKnown)
{
    const std::string sNear = FindNearWord(sWord, asKnown);
    return sNear.empty() ? "" : "; did you mean '" + sNear + "'?";
}

std::string NameKnownWords(const std::string& sWord, const std::vector<std::string>& asKnown)
{
    return NameKnownWords(sWord, asKnown, "one of " + JoinTexts(asKnown));
}

std::string NameKnownWords(const std::string& sWord, const std::vector<std::string>& asKnown,
                           const std::string& sExpected)
{
    const std::string sNear = AskForNearWord(sWord, asKnown);
    return sNear.empty() ? "; expected " + sExpected : sNear;
}
