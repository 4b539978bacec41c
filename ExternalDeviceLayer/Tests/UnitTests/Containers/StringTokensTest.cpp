// CMString::CIterator and CMArrayString: cutting a text into tokens and joining a list.

#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
CMString::CIterator At(int iToken, const char* pszText, const char* pszSeparators = " ")
{
    CMString::CIterator oIterator(pszSeparators, pszText);
    for (int i = 0; i < iToken; ++i)
    {
        ++oIterator;
    }
    return oIterator;
}
}

TEST(StringIterator, StaysAtTheEnd)
{
    const CMString::CIterator oEnd;
    CMString::CIterator oIterator;
    EXPECT_TRUE(++oIterator == oEnd);
    EXPECT_EQ(0, (*oIterator).GetLength());
    EXPECT_TRUE(CMString::CIterator(",", nullptr) == oEnd);

    CCapturedOutput oOutput;
    EXPECT_TRUE(CMString::CIterator(nullptr, "abc") == oEnd);
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
}

TEST(StringIterator, AssignedOnesWalkOneBuffer)
{
    CCountingAllocator oHeap;
    const CMString oText("a b c");
    CMString::CIterator oFirst = oText.Begin(" ");
    const CMString::CIterator oBefore = oFirst++;
    EXPECT_EQ(4U, oHeap.GetAllocCount()); // the text, its one copy, a string object for each iterator
    EXPECT_STREQ("a", *oBefore);
    EXPECT_STREQ("b", *oFirst);

    CMString::CIterator oSecond;
    oSecond = oFirst;
    oSecond.operator=(oSecond);
    EXPECT_TRUE(oSecond == oFirst);
    EXPECT_STREQ("c", *++oSecond);
    oSecond.Reset();
    EXPECT_STREQ("b", *oFirst); // the buffer lives on
    EXPECT_STREQ("c", *++oFirst);
    EXPECT_TRUE(++oFirst == oText.End());
    EXPECT_STREQ("a b c", oText); // only a copy is cut up
}

TEST(StringIterator, ComparesTheTextsOfAllFields)
{
    const CMString::CIterator oEnd;
    EXPECT_TRUE(At(0, "a a") == At(0, "a a")); // in other places
    EXPECT_TRUE(At(0, "a a") != At(0, "a a", " ,"));
    EXPECT_TRUE(At(1, "a x") != At(1, "b x"));     // the cut-up text
    EXPECT_TRUE(At(0, "a a") != At(0, "a b"));     // what is left
    EXPECT_TRUE(At(1, "a x c") != At(1, "a y c")); // the token
    EXPECT_TRUE(At(0, "a") != oEnd);
    EXPECT_TRUE(oEnd != At(0, "a"));
}

TEST(ArrayString, TokensAreAppendedAndJoined)
{
    struct SCase
    {
        const char* m_pszText;
        const char* m_pszSeparators;
        std::vector<std::string> m_asTokens;
        const char* m_pszJoined; // with "first" and an empty element ahead
    };
    const SCase aoCases[] = {
        { "a,b;;c", ",;", { "a", "b", "c" }, "first, , a, b, c" },
        { ",,one two,", ",", { "one two" }, "first, , one two" },
        { "", ",", {}, "first, " },
        { ",;", ",;", {}, "first, " },
        { "abc", "", { "abc" }, "first, , abc" },
        { nullptr, ",", {}, "first, " },
    };
    for (const SCase& oCase : aoCases)
    {
        CCountingAllocator oHeap;
        CMArrayString oLines;
        EXPECT_STREQ("", oLines.Join(", "));
        oLines.Add("first");
        EXPECT_STREQ("first", oLines.Join(", "));
        oLines.Add("");
        const int iCount = static_cast<int>(oCase.m_asTokens.size()) + 2;
        EXPECT_EQ(iCount, oLines.InitFromString(oCase.m_pszText, oCase.m_pszSeparators));
        for (int i = 2; i < iCount; ++i)
        {
            EXPECT_EQ(oCase.m_asTokens[static_cast<size_t>(i - 2)], Text(oLines[i]));
        }
        EXPECT_STREQ(oCase.m_pszJoined, oLines.Join(", "));
    }
    CMArrayString oLines;
    oLines.InitFromString("a b", " ");
    EXPECT_STREQ("ab", oLines.Join(nullptr));
}
