// CMString::CIterator and CMArrayString: cutting a text into tokens and joining a list.

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
} // namespace

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
        int m_iCount;            // with "first" and an empty element ahead
        const char* m_pszJoined; // the same
    };
    const SCase aoCases[] = {
        { "a,b;;c", ",;", 5, "first||a|b|c" },
        { ",,one two,", ",", 3, "first||one two" },
        { "", ",", 2, "first|" },
        { ",;", ",;", 2, "first|" },
        { "abc", "", 3, "first||abc" },
        { nullptr, ",", 2, "first|" },
    };
    for (const SCase& oCase : aoCases)
    {
        CCountingAllocator oHeap;
        CMArrayString oLines;
        EXPECT_STREQ("", oLines.Join("| "));
        oLines.Add("first");
        EXPECT_STREQ("first", oLines.Join("| "));
        oLines.Add("");
        EXPECT_EQ(oCase.m_iCount, oLines.InitFromString(oCase.m_pszText, oCase.m_pszSeparators));
        EXPECT_STREQ(oCase.m_pszJoined, oLines.Join("|"));
    }
    CMArrayString oLines;
    oLines.InitFromString("a b", " ");
    EXPECT_STREQ("ab", oLines.Join(nullptr));
}
