// CMString::CIterator and CMArrayString: cutting a text into tokens and joining a list.

#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
std::vector<std::string> Tokens(const CMString& oText, const char* pszSeparators)
{
    std::vector<std::string> asTokens;
    for (CMString::CIterator oToken = oText.Begin(pszSeparators); oToken != oText.End(); ++oToken)
    {
        asTokens.emplace_back(Text(*oToken));
    }
    return asTokens;
}

struct STokenCase
{
    const char* m_szText;
    const char* m_szSeparators;
    std::vector<std::string> m_asTokens;
};
const std::vector<STokenCase>& GetTokenCases()
{
    static const std::vector<STokenCase> s_aoCases = {
        { "a,b;;c", ",;", { "a", "b", "c" } },
        { ",,one two,", ",", { "one two" } },
        { "", ",", {} },
        { ",;", ",;", {} },
        { "abc", "", { "abc" } },
    };
    return s_aoCases;
}
}

TEST(StringIterator, GivesTokensAndLeavesTheText)
{
    CCountingAllocator oHeap;
    for (const STokenCase& oCase : GetTokenCases())
    {
        SCOPED_TRACE(oCase.m_szText);
        const CMString oText(oCase.m_szText);
        EXPECT_EQ(oCase.m_asTokens, Tokens(oText, oCase.m_szSeparators));
        EXPECT_STREQ(oCase.m_szText, oText);
    }
}

TEST(StringIterator, StaysAtTheEnd)
{
    CMString::CIterator oEnd;
    ++oEnd;
    EXPECT_TRUE(oEnd == CMString().End());
    EXPECT_EQ(0, (*oEnd).GetLength());
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
    const CMString::CIterator& oSelf = oSecond;
    oSecond = oSelf;
    EXPECT_TRUE(oSecond == oFirst);
    EXPECT_STREQ("c", *++oSecond);
    oSecond.Reset();
    EXPECT_STREQ("b", *oFirst); // the buffer lives on
    EXPECT_STREQ("c", *++oFirst);
    EXPECT_TRUE(++oFirst == oText.End());
}

TEST(StringIterator, ComparesTextsNotPlaces)
{
    const CMString oText("a a");
    CMString::CIterator oFirst = oText.Begin(" ");
    CMString::CIterator oSecond = CMString("a a").Begin(" ");
    EXPECT_TRUE(oFirst == oSecond);
    ++oSecond;
    EXPECT_TRUE(oFirst != oSecond); // what is left differs
    EXPECT_TRUE(oFirst != oText.End());
    EXPECT_TRUE(oText.End() != oFirst);
}

TEST(ArrayString, JoinPutsSeparatorsBetweenAllElements)
{
    struct SCase
    {
        std::vector<const char*> m_apszElements;
        const char* m_szSeparator;
        const char* m_szExpected;
    };
    const SCase aoCases[] = {
        { {}, ", ", "" },         { { "a" }, ", ", "a" },          { { "a", "", "b" }, ", ", "a, , b" },
        { { "", "" }, "-", "-" }, { { "a", "b" }, nullptr, "ab" },
    };
    for (const SCase& oCase : aoCases)
    {
        CMArrayString oLines;
        for (const char* pszElement : oCase.m_apszElements)
        {
            oLines.Add(pszElement);
        }
        EXPECT_STREQ(oCase.m_szExpected, oLines.Join(oCase.m_szSeparator));
    }
}

TEST(ArrayString, InitFromStringAppendsTheTokens)
{
    CCountingAllocator oHeap;
    for (const STokenCase& oCase : GetTokenCases())
    {
        SCOPED_TRACE(oCase.m_szText);
        std::string sText = oCase.m_szText;
        const int iTokens = static_cast<int>(oCase.m_asTokens.size());
        CMArrayString oLines;
        EXPECT_EQ(iTokens, oLines.InitFromString(sText.c_str(), oCase.m_szSeparators));
        EXPECT_EQ(2 * iTokens, oLines.InitFromString(sText.c_str(), oCase.m_szSeparators));
        sText.assign(sText.size(), '#'); // the elements do not depend on the text
        for (int i = 0; i < 2 * iTokens; ++i)
        {
            EXPECT_EQ(oCase.m_asTokens[static_cast<size_t>(i % iTokens)], Text(oLines[i]));
        }
    }
    CMArrayString oLines;
    EXPECT_EQ(0, oLines.InitFromString(nullptr, ","));
}

TEST(ArrayString, CopiesShareTheTexts)
{
    CMArrayString oLines;
    oLines.Add("line");
    const CMArrayString oCopy(oLines);
    EXPECT_EQ(Text(oLines[0]), Text(oCopy[0]));
    oLines[0] += "!";
    EXPECT_STREQ("line", oCopy[0]);
}
