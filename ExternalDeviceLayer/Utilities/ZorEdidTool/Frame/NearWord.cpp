// Words that are near to each other.

#include "NearWord.h"

#include <algorithm>
#include <numeric>

namespace
{
constexpr size_t gsc_uiFar = 3; // letters

// Letters to put in, take out or replace.
size_t CountEdits(const std::string& sFrom, const std::string& sTo)
{
    std::vector<size_t> auiRow(sTo.size() + 1); // the edits to each beginning of sTo
    std::iota(auiRow.begin(), auiRow.end(), size_t{ 0 });
    for (const char cFrom : sFrom)
    {
        size_t uiDiagonal = auiRow[0]++;
        for (size_t i = 0; i < sTo.size(); ++i)
        {
            const size_t uiReplaced = uiDiagonal + (sTo[i] == cFrom ? 0 : 1);
            uiDiagonal = auiRow[i + 1];
            auiRow[i + 1] = std::min({ uiReplaced, auiRow[i] + 1, auiRow[i + 1] + 1 });
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
    size_t uiNearest = sWord.size() > uiLongest ? 0 : gsc_uiFar;
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
    std::string sText = AskForNearWord(sWord, asKnown);
    if (sText.empty())
    {
        for (const std::string& sKnown : asKnown)
        {
            sText += (sText.empty() ? "; expected one of " : ", ") + sKnown;
        }
    }
    return sText;
}
