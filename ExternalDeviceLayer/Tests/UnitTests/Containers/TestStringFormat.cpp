// CMString's formatting: the estimate, the texts against the C library's own, and that no byte is written beyond the
// buffer (the sanitizers watch: every buffer is a heap block of the exact size).

#include <float.h>
#include <limits.h>
#include <stdio.h>

#include <string>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
// Without the attribute that checks formats, so that odd ones can be tried.
int Estimate(const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    const int iLength = CMString::GetFormattedLength(pszFormat, oList);
    va_end(oList);
    return iLength;
}

void FormatUnchecked(CMString& oText, const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    oText.FormatV(pszFormat, oList);
    va_end(oList);
}

void AppendUnchecked(CMString& oText, const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    oText.AppendFormatV(pszFormat, oList);
    va_end(oList);
}

// The text by CMString and by the C library, with the estimate as the bound.
void ExpectLikeLibrary(const char* pszFormat, ...)
{
    SCOPED_TRACE(pszFormat);
    va_list oList;
    va_start(oList, pszFormat);
    va_list oAgain;
    va_copy(oAgain, oList);
    char szExpected[2048];
    vsnprintf(szExpected, sizeof(szExpected), pszFormat, oAgain);
    va_end(oAgain);

    const int iEstimate = CMString::GetFormattedLength(pszFormat, oList); // leaves the list usable
    CMString oText;
    CMString oAppended("1234");
    va_copy(oAgain, oList);
    oText.FormatV(pszFormat, oList);
    oAppended.AppendFormatV(pszFormat, oAgain);
    va_end(oAgain);
    va_end(oList);
    EXPECT_STREQ(szExpected, oText);
    EXPECT_EQ(static_cast<int>(ZorTools_strlen(szExpected)), oText.GetLength());
    EXPECT_LE(oText.GetLength(), iEstimate);
    EXPECT_EQ(iEstimate + 1, oText.GetAllocLength());
    EXPECT_EQ("1234" + std::string(szExpected), Text(oAppended));
}

const char* const gsc_pszNull = nullptr;
}

TEST(StringEstimate, FollowsTheTable)
{
    struct SCase
    {
        const char* m_szName;
        int m_iActual;
        int m_iExpected;
    };
    const SCase aoCases[] = {
        { "Empty", Estimate(""), 0 },
        { "Plain", Estimate("abc"), 3 },
        { "Percent", Estimate("%%"), 1 },
        { "Integer", Estimate("%d", 1), 32 },
        { "WidthAndPrecision", Estimate("%40.10d", 1), 50 },
        { "WidthBelow32", Estimate("%20.5d", 1), 32 },
        { "ArgumentWidthAndPrecision", Estimate("%*.*d", 40, 10, 1), 50 },
        { "Prefix", Estimate("%#x", 1), 34 },
        { "TwoPrefixes", Estimate("%##x", 1), 36 },
        { "Flags", Estimate("%+- 040d", 1), 40 },
        { "Wide", Estimate("%ld", 1L), 32 },
        { "Wide64", Estimate("%lld", 1LL), 32 },
        { "Pointer", Estimate("%p", nullptr), 32 },
        { "Float", Estimate("%5.2f", 1.0), 314 },
        { "FloatWidthDoesNotCount", Estimate("%400f", 1.0), 312 },
        { "Exponent", Estimate("%g", 1.0), 128 },
        { "ExponentWidth", Estimate("%100.60e", 1.0), 160 },
        { "Char", Estimate("%c", 'x'), 2 },
        { "CharWidth", Estimate("%9c", 'x'), 9 },
        { "CharPrecision", Estimate("%.1c", 'x'), 1 },
        { "WideChar", Estimate("%lc", L'x'), 2 },
        { "Text", Estimate("%s", "abc"), 3 },
        { "EmptyText", Estimate("%s", ""), 1 },
        { "NullText", Estimate("%s", gsc_pszNull), 6 },
        { "TextPrecision", Estimate("%.3s", "abcdef"), 3 },
        { "TextPrecisionZero", Estimate("%.0s", "abcdef"), 6 },
        { "TextPrecisionAbove", Estimate("%.9s", "abcdef"), 6 },
        { "TextWidth", Estimate("%10s", "abc"), 10 },
        { "NarrowText", Estimate("%hs", "abcd"), 4 },
        { "NarrowCapitalText", Estimate("%hS", "abcd"), 4 },
        { "WideText", Estimate("%ls", L"abcde"), 5 },
        { "CapitalText", Estimate("%S", L"abcde"), 5 },
        { "NullWideText", Estimate("%ls", static_cast<const wchar_t*>(nullptr)), 6 },
        { "Count", Estimate("%n", static_cast<int*>(nullptr)), 0 },
        { "SkippedSizes", Estimate("%Ld", 1), 32 },
        { "ArgumentsStayInPlace", Estimate("%lld%f%d%p%s", 1LL, 1.0, 1, nullptr, "abcde"), 32 + 312 + 32 + 32 + 5 },
    };
    for (const SCase& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_iExpected, oCase.m_iActual) << oCase.m_szName;
    }
}

TEST(StringEstimate, ReportsWhatItDoesNotKnow)
{
    struct SCase
    {
        const char* m_szName;
        int (*m_pfnEstimate)();
        int m_iExpected;
    };
    const SCase aoCases[] = {
        { "Null", [] { return Estimate(nullptr); }, 0 },
        { "SizeT", [] { return Estimate("%zu", sizeof(int)); }, 1 }, // "u" then counts as a character
        { "Char", [] { return Estimate("%hhd", 1); }, 1 },
        { "Unknown", [] { return Estimate("%y"); }, 0 },
        { "Char64", [] { return Estimate("%llc", 1); }, 0 },
        { "Text64", [] { return Estimate("%lls", "abc"); }, 0 },
        { "NegativeWidth", [] { return Estimate("%*d", -100, 1); }, 32 },
        { "NegativePrecision", [] { return Estimate("%.*d", -5, 1); }, 32 },
        { "SumBeyondInt", [] { return Estimate("%2147483647d%2147483647d", 1, 1); }, -1 },
    };
    for (const SCase& oCase : aoCases)
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_iExpected, oCase.m_pfnEstimate()) << oCase.m_szName;
        EXPECT_EQ(1U, oOutput.TakeAssertionCount()) << oCase.m_szName;
    }
}

TEST(StringFormat, GivesTheLibrarysTexts)
{
    CCountingAllocator oHeap;
    ExpectLikeLibrary("%d", 5);
    ExpectLikeLibrary("plain");
    ExpectLikeLibrary("100%%");
    ExpectLikeLibrary("%d %i %u %x %X %o", INT_MIN, INT_MAX, UINT_MAX, UINT_MAX, UINT_MAX, UINT_MAX);
    ExpectLikeLibrary("%#x %#o", UINT_MAX, UINT_MAX);
    ExpectLikeLibrary("%hd %ld %lu", 1, LONG_MIN, ULONG_MAX);
    ExpectLikeLibrary("%lld %llu %llo %#llx", LLONG_MIN, ULLONG_MAX, ULLONG_MAX, ULLONG_MAX);
    ExpectLikeLibrary("%200d|%-200d|%0200d", -7, -7, -7);
    ExpectLikeLibrary("%.150d", 7);
    ExpectLikeLibrary("%300.150lld", LLONG_MIN);
    ExpectLikeLibrary("%*.*d|%-*d", 90, 60, INT_MIN, 70, 3);
    ExpectLikeLibrary("%s|%10s|%-10s|%.2s|%*s", "abc", "abc", "abc", "abc", 40, "abc");
    ExpectLikeLibrary("%s|%10s", gsc_pszNull, gsc_pszNull);
    ExpectLikeLibrary("%s%s", "", "");
    ExpectLikeLibrary("%ls|%.2ls|%10ls", L"wide", L"wide", L"wide");
    ExpectLikeLibrary("%c%10c%lc", 'a', 'b', L'c');
    ExpectLikeLibrary("%p %p", static_cast<void*>(&oHeap), static_cast<void*>(nullptr));
    ExpectLikeLibrary("%f %.2f %.50f", -DBL_MAX, 3.14159, DBL_MAX);
    ExpectLikeLibrary("%e %g %G %.40E %140g", -DBL_MAX, DBL_MIN, 0.1, DBL_MAX, 0.5);
}

// Where the estimate is no bound the text is cut, in the buffer.
TEST(StringFormat, CutsAndReportsWhatTheEstimateMissed)
{
    CCountingAllocator oHeap;
    CMString oText("old");
    CMString oAppended("old");
    CCapturedOutput oOutput;
    FormatUnchecked(oText, "%400f", 1.0);
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    EXPECT_EQ(312, oText.GetLength());

    CCapturedOutput oAppendOutput;
    AppendUnchecked(oAppended, "%400f", 1.0);
    EXPECT_EQ(0U, oAppendOutput.TakeAssertionCount()); // appending cuts without a line
    EXPECT_EQ(3 + 312, oAppended.GetLength());
    EXPECT_EQ(0, oAppended.Find("old ", 0));

    CCapturedOutput oNegativeOutput;
    FormatUnchecked(oText, "%*d", -100, 1); // the negative width, then the cut
    EXPECT_EQ(2U, oNegativeOutput.TakeAssertionCount());
    EXPECT_EQ(32, oText.GetLength());

    CCapturedOutput oSignOutput;
    FormatUnchecked(oText, "%.150d", -7); // the sign is not estimated; a text too long by one is cut without a line
    EXPECT_EQ(0U, oSignOutput.TakeAssertionCount());
    EXPECT_EQ(150, oText.GetLength());
}

TEST(StringFormat, AFailedConversionLeavesWhatStoodInFront)
{
    CMString oText("old");
    CCapturedOutput oOutput;
    AppendUnchecked(oText, "new %ls", L"\x20AC"); // no such character in the locale of the tests
    EXPECT_EQ(0U, oOutput.TakeAssertionCount());
    EXPECT_STREQ("old", oText);
    CCapturedOutput oFormatOutput;
    FormatUnchecked(oText, "new %ls", L"\x20AC");
    EXPECT_EQ(1U, oFormatOutput.TakeAssertionCount());
    EXPECT_STREQ("", oText);
}

TEST(StringFormat, BuffersKeepTheirEstimatedSize)
{
    CMString oText;
    oText.Format("%d", 5);
    EXPECT_EQ(1, oText.GetLength());
    EXPECT_EQ(33, oText.GetAllocLength());
    const char* pszBuffer = oText;
    oText.Format("%d", 12345); // overwritten in place
    EXPECT_EQ(pszBuffer, Text(oText));
    EXPECT_STREQ("12345", oText);
    oText.AppendFormat("-%s", "x");
    EXPECT_STREQ("12345-x", oText);
    EXPECT_EQ(33, oText.GetAllocLength());
}

TEST(StringFormat, NullReportsAndAnEmptyFormatAppendsNothing)
{
    CCountingAllocator oHeap;
    CMString oText("abc");
    CCapturedOutput oOutput;
    FormatUnchecked(oText, nullptr);
    AppendUnchecked(oText, nullptr);
    FormatUnchecked(oText, "%2147483647d%2147483647d", 1, 1); // no length that a text can have
    EXPECT_EQ(3U, oOutput.TakeAssertionCount());
    AppendUnchecked(oText, "");
    EXPECT_STREQ("abc", oText);
    EXPECT_EQ(1U, oHeap.GetAllocCount());
    FormatUnchecked(oText, "");
    EXPECT_STREQ("", oText);
}
