// CMString::CIterator and CMArrayString: cutting a text into tokens and joining a list.

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

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
    EXPECT_TRUE(++oFirst == oText.End()); // stays there
    EXPECT_EQ(0, (*oFirst).GetLength());
    EXPECT_STREQ("a b c", oText); // only a copy is cut up
}

TEST(StringIterator, ComparesTheTextsOfAllFields)
{
    const auto At = [](int iToken, const char* pszText, const char* pszSeparators = " ") {
        CMString::CIterator oIterator(pszSeparators, pszText);
        return iToken == 0 ? oIterator : ++oIterator;
    };
    const CMString::CIterator oEnd;
    EXPECT_TRUE(At(0, "a a") == At(0, "a a")); // in other places
    EXPECT_TRUE(At(0, "a a") != At(0, "a a", " ,"));
    EXPECT_TRUE(At(1, "a x") != At(1, "b x"));     // the cut-up text
    EXPECT_TRUE(At(0, "a a") != At(0, "a b"));     // what is left
    EXPECT_TRUE(At(1, "a x c") != At(1, "a y c")); // the token
    EXPECT_TRUE(At(0, "a") != oEnd);
    EXPECT_TRUE(oEnd != At(0, "a"));
    CCapturedOutput oOutput;
    EXPECT_TRUE(At(0, "abc", nullptr) == oEnd);
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
}

TEST(ArrayString, TokensAreAppendedAndJoined)
{
    for (const SCaseRow& oRow : ReadCases("Containers/golden/tokens.txt", 5))
    {
        SCOPED_TRACE(oRow.GetName());
        CCountingAllocator oHeap;
        CMArrayString oLines;
        EXPECT_STREQ("", oLines.Join("/"));
        oLines.Add("first");
        EXPECT_STREQ("first", oLines.Join("/"));
        oLines.Add("");
        EXPECT_STREQ("first", oLines.Join(nullptr)); // no separator
        const char* pszText = oRow.GetText(1) == "null" ? nullptr : oRow.GetText(1).c_str();
        EXPECT_EQ(oRow.GetNumber(3),
                  static_cast<unsigned int>(oLines.InitFromString(pszText, oRow.GetText(2).c_str())));
        EXPECT_EQ(oRow.GetText(4), Text(oLines.Join("/")));
    }
}
