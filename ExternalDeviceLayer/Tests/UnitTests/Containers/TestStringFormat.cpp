// CMString's formatting: the estimate, the texts against the C library's own, and that no byte is written beyond the
// buffer (the sanitizers watch: every buffer is a heap block of the exact size).

#include <float.h>
#include <limits.h>
#include <stddef.h>
#include <stdint.h>
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
    EXPECT_EQ(0, Estimate(""));
    EXPECT_EQ(3, Estimate("abc"));
    EXPECT_EQ(1, Estimate("%%"));

    EXPECT_EQ(32, Estimate("%d", 1));
    EXPECT_EQ(32, Estimate("%20.5d", 1));
    EXPECT_EQ(50, Estimate("%40.10d", 1));
    EXPECT_EQ(50, Estimate("%*.*d", 40, 10, 1));
    EXPECT_EQ(34, Estimate("%#x", 1));
    EXPECT_EQ(36, Estimate("%##x", 1));
    EXPECT_EQ(40, Estimate("%+- 040d", 1));
    EXPECT_EQ(32, Estimate("%p", nullptr));
    EXPECT_EQ(0, Estimate("%n", static_cast<int*>(nullptr)));
    EXPECT_EQ(3 * 32, Estimate("%Fd%Ld%Nd", 1, 2, 3)); // sizes that are skipped

    EXPECT_EQ(314, Estimate("%5.2f", 1.0));
    EXPECT_EQ(312, Estimate("%400f", 1.0)); // the width does not count
    EXPECT_EQ(128, Estimate("%g", 1.0));
    EXPECT_EQ(160, Estimate("%100.60e", 1.0));

    EXPECT_EQ(2, Estimate("%c", 'x'));
    EXPECT_EQ(9, Estimate("%9c", 'x'));
    EXPECT_EQ(1, Estimate("%.1c", 'x'));
    EXPECT_EQ(2, Estimate("%lc", L'x'));
    EXPECT_EQ(3, Estimate("%s", "abc"));
    EXPECT_EQ(1, Estimate("%s", ""));
    EXPECT_EQ(6, Estimate("%s", gsc_pszNull));
    EXPECT_EQ(3, Estimate("%.3s", "abcdef"));
    EXPECT_EQ(6, Estimate("%.0s", "abcdef")); // no precision
    EXPECT_EQ(6, Estimate("%.9s", "abcdef"));
    EXPECT_EQ(10, Estimate("%10s", "abc"));
    EXPECT_EQ(8, Estimate("%hs%hS", "abcd", "abcd"));
    EXPECT_EQ(5 + 5 + 6, Estimate("%ls%S%ls", L"abcde", L"abcde", static_cast<const wchar_t*>(nullptr)));

    // Each argument is taken with its own type.
    EXPECT_EQ(32 + 312 + 32 + 32 + 32 + 5, Estimate("%lld%f%d%ld%p%s", 1LL, 1.0, 1, 1L, nullptr, "abcde"));
}

TEST(StringEstimate, ReportsWhatItDoesNotKnow)
{
    struct SCase
    {
        int (*m_pfnEstimate)();
        int m_iExpected;
    };
    const SCase aoCases[] = {
        { [] { return Estimate(nullptr); }, 0 },
        { [] { return Estimate("%zu", sizeof(int)); }, 1 }, // "u" then counts as a character
        { [] { return Estimate("%hhd", 1); }, 1 },
        { [] { return Estimate("%jd", intmax_t{ 1 }); }, 1 },
        { [] { return Estimate("%td", ptrdiff_t{ 1 }); }, 1 },
        { [] { return Estimate("%y"); }, 0 },
        { [] { return Estimate("%llc", 1); }, 0 },
        { [] { return Estimate("%lls", "abc"); }, 0 },
        { [] { return Estimate("%*d", -100, 1); }, 32 },
        { [] { return Estimate("%40.*d", -5, 1); }, 35 },
        { [] { return Estimate("%.*s", -5, "abc"); }, 0 },
        { [] { return Estimate("%.*f", -200, 1.0); }, 128 },
        { [] { return Estimate("%2147483647d%2147483647d", 1, 1); }, -1 },
    };
    for (const SCase& oCase : aoCases)
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_iExpected, oCase.m_pfnEstimate()) << &oCase - aoCases;
        EXPECT_EQ(1U, oOutput.TakeAssertionCount()) << &oCase - aoCases;
    }
}

TEST(StringFormat, GivesTheLibrarysTexts)
{
    CCountingAllocator oHeap;
    ExpectLikeLibrary("plain 100%%");
    ExpectLikeLibrary("%d %i %u %x %X %o", INT_MIN, INT_MAX, UINT_MAX, UINT_MAX, UINT_MAX, UINT_MAX);
    ExpectLikeLibrary("%hd %ld %lu %#x %#o", 1, LONG_MIN, ULONG_MAX, UINT_MAX, UINT_MAX);
    ExpectLikeLibrary("%lld %llu %llo %#llx", LLONG_MIN, ULLONG_MAX, ULLONG_MAX, ULLONG_MAX);
    ExpectLikeLibrary("%200d|%-200d|%0200d", -7, -7, -7);
    ExpectLikeLibrary("%.150d%300.150lld", 7, LLONG_MIN);
    ExpectLikeLibrary("%*.*d|%-*d", 90, 60, INT_MIN, 70, 3);
    ExpectLikeLibrary("%s|%10s|%-10s|%.2s|%*s", "abc", "abc", "abc", "abc", 40, "abc");
    ExpectLikeLibrary("%s|%10s%s%s", gsc_pszNull, gsc_pszNull, "", "");
    ExpectLikeLibrary("%ls|%.2ls|%10ls", L"wide", L"wide", L"wide");
    ExpectLikeLibrary("%c%10c%lc", 'a', 'b', L'c');
    ExpectLikeLibrary("%p %p", static_cast<void*>(&oHeap), static_cast<void*>(nullptr));
    ExpectLikeLibrary("%f %.2f %.50f", -DBL_MAX, 3.14159, DBL_MAX);
    ExpectLikeLibrary("%e %g %G %.40E %140g", -DBL_MAX, DBL_MIN, 0.1, DBL_MAX, 0.5);
}

// Where the estimate is no bound the text is cut, in the buffer.
TEST(StringFormat, CutsWhatTheEstimateMissed)
{
    CCountingAllocator oHeap;
    CMString oText("old");
    CCapturedOutput oOutput;
    oText.AppendFormat("%400f", 1.0);
    EXPECT_EQ(0U, oOutput.TakeAssertionCount()); // appending cuts without a line
    EXPECT_EQ(3 + 312, oText.GetLength());
    EXPECT_EQ(0, oText.Find("old ", 0));

    CCapturedOutput oNegativeOutput;
    oText.Format("%*d", -100, 1); // the negative width, then the cut
    EXPECT_EQ(2U, oNegativeOutput.TakeAssertionCount());
    EXPECT_EQ(32, oText.GetLength());

    CCapturedOutput oSignOutput;
    oText.Format("%.150d", -7); // a text too long by one is cut without a line
    EXPECT_EQ(0U, oSignOutput.TakeAssertionCount());
    EXPECT_EQ(150, oText.GetLength());
}

TEST(StringFormat, AFailedConversionLeavesWhatStoodInFront)
{
    CMString oText("old");
    CCapturedOutput oOutput;
    oText.AppendFormat("new %ls", L"\x20AC"); // no such character in the locale of the tests
    EXPECT_STREQ("old", oText);
    oText.Format("new %ls", L"\x20AC");
    EXPECT_STREQ("", oText);
    EXPECT_EQ(1U, oOutput.TakeAssertionCount()); // by Format
}

TEST(StringFormat, BuffersKeepTheirEstimatedSize)
{
    CMString oText;
    oText.Format("%d", 5);
    const char* pszBuffer = oText;
    oText.Format("%d", 12345); // overwritten in place
    oText.AppendFormat("-%s", "x");
    EXPECT_STREQ("12345-x", oText);
    EXPECT_EQ(pszBuffer, Text(oText));
    EXPECT_EQ(33, oText.GetAllocLength());
}

TEST(StringFormat, RefusedFormatsAndAnEmptyOneChangeNothing)
{
    const char* const aszRefused[] = { nullptr, "%2147483647d%2147483647d" };
    const char* const aszNothing[] = { "" };
    CMString oText("abc");
    CCapturedOutput oOutput;
    for (const char* pszFormat : aszRefused)
    {
        oText.Format(pszFormat, 1, 1);
        oText.AppendFormat(pszFormat, 1, 1);
    }
    EXPECT_EQ(4U, oOutput.TakeAssertionCount());
    oText.AppendFormat(aszNothing[0], 1);
    EXPECT_STREQ("abc", oText);
    EXPECT_EQ(3, oText.GetAllocLength());
}
