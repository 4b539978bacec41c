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
void ExpectEstimate(int iExpected, unsigned int uiReports, const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    CCapturedOutput oOutput;
    EXPECT_EQ(iExpected, CMString::GetFormattedLength(pszFormat, oList)) << pszFormat;
    EXPECT_EQ(uiReports, oOutput.TakeAssertionCount()) << pszFormat;
    va_end(oList);
}

// The text is that of the C library but for uiMissing characters at its end, which the estimate did not see. Format
// reports where more than one is missing.
void ExpectLikeLibrary(size_t uiMissing, const char* pszFormat, ...)
{
    SCOPED_TRACE(pszFormat);
    va_list oList;
    va_start(oList, pszFormat);
    va_list oAgain;
    va_copy(oAgain, oList);
    char szWhole[2048];
    vsnprintf(szWhole, sizeof(szWhole), pszFormat, oAgain);
    va_end(oAgain);
    std::string sExpected = szWhole;
    sExpected.resize(sExpected.size() - uiMissing);

    const int iEstimate = CMString::GetFormattedLength(pszFormat, oList); // leaves the list usable
    CMString oText;
    CMString oAppended("1234");
    va_copy(oAgain, oList);
    CCapturedOutput oOutput;
    oText.FormatV(pszFormat, oList);
    EXPECT_EQ(uiMissing > 1 ? 1U : 0U, oOutput.TakeAssertionCount());
    CCapturedOutput oAppendOutput;
    oAppended.AppendFormatV(pszFormat, oAgain);
    EXPECT_EQ(0U, oAppendOutput.TakeAssertionCount());
    va_end(oAgain);
    va_end(oList);
    EXPECT_EQ(sExpected, Text(oText));
    EXPECT_EQ(static_cast<int>(sExpected.size()), oText.GetLength());
    EXPECT_EQ(iEstimate + 1, oText.GetAllocLength());
    EXPECT_EQ("1234" + sExpected, Text(oAppended));
}

const char* const gsc_pszNull = nullptr;
} // namespace

TEST(StringEstimate, FollowsTheTable)
{
    ExpectEstimate(0, 0, "");
    ExpectEstimate(4, 0, "abc%%");

    ExpectEstimate(32, 0, "%20.5d", 1);
    ExpectEstimate(50, 0, "%40.10d", 1);
    ExpectEstimate(50, 0, "%*.*d", 40, 10, 1);
    ExpectEstimate(36, 0, "%##x", 1);
    ExpectEstimate(40, 0, "%+- 040d", 1);
    ExpectEstimate(0, 0, "%n", static_cast<int*>(nullptr));
    ExpectEstimate(3 * 32, 0, "%Fd%Ld%Nd", 1, 2, 3); // sizes that are skipped

    ExpectEstimate(314, 0, "%5.2f", 1.0);
    ExpectEstimate(312, 0, "%400f", 1.0); // the width does not count
    ExpectEstimate(128, 0, "%g", 1.0);
    ExpectEstimate(160, 0, "%100.60e", 1.0);

    ExpectEstimate(2 + 9 + 1 + 2, 0, "%c%9c%.1c%lc", 'x', 'x', 'x', L'x');
    ExpectEstimate(3 + 1 + 6, 0, "%s%s%s", "abc", "", gsc_pszNull);
    ExpectEstimate(3, 0, "%.3s", "abcdef");
    ExpectEstimate(6 + 6, 0, "%.0s%.9s", "abcdef", "abcdef"); // 0 is no precision
    ExpectEstimate(10, 0, "%10s", "abc");
    ExpectEstimate(4, 0, "%hs", "abcd");
    ExpectEstimate(5 + 5 + 6, 0, "%ls%S%ls", L"abcde", L"abcde", static_cast<const wchar_t*>(nullptr));

    // Each argument is taken with its own type.
    ExpectEstimate(32 + 312 + 32 + 32 + 32 + 5, 0, "%lld%f%d%ld%p%s", 1LL, 1.0, 1, 1L, nullptr, "abcde");
}

TEST(StringEstimate, ReportsWhatItDoesNotKnow)
{
    ExpectEstimate(0, 1, nullptr);
    ExpectEstimate(1, 1, "%zu", sizeof(int)); // "u" then counts as a character
    ExpectEstimate(1, 1, "%hhd", 1);
    ExpectEstimate(1, 1, "%jd", intmax_t{ 1 });
    ExpectEstimate(1, 1, "%td", ptrdiff_t{ 1 });
    ExpectEstimate(0, 1, "%y");
    ExpectEstimate(0, 1, "%");
    ExpectEstimate(0, 1, "%llc", 1);
    ExpectEstimate(0, 1, "%lls", "abc");
    ExpectEstimate(32, 1, "%*d", -100, 1);
    ExpectEstimate(35, 1, "%40.*d", -5, 1);
    ExpectEstimate(0, 1, "%.*s", -5, "abc");
    ExpectEstimate(128, 1, "%.*f", -200, 1.0);
    ExpectEstimate(-1, 1, "%2147483647d%2147483647d", 1, 1);
}

TEST(StringFormat, GivesTheLibrarysTexts)
{
    CCountingAllocator oHeap;
    ExpectLikeLibrary(0, "plain 100%%");
    ExpectLikeLibrary(0, "%d %i %u %x %X %o", INT_MIN, INT_MAX, UINT_MAX, UINT_MAX, UINT_MAX, UINT_MAX);
    ExpectLikeLibrary(0, "%hd %ld %lu %#x %#o", 1, LONG_MIN, ULONG_MAX, UINT_MAX, UINT_MAX);
    ExpectLikeLibrary(0, "%lld %llu %llo %#llx", LLONG_MIN, ULLONG_MAX, ULLONG_MAX, ULLONG_MAX);
    ExpectLikeLibrary(0, "%200d|%-200d|%0200d", -7, -7, -7);
    ExpectLikeLibrary(0, "%.150d%300.150lld", 7, LLONG_MIN);
    ExpectLikeLibrary(0, "%*.*d|%-*d", 90, 60, INT_MIN, 70, 3);
    ExpectLikeLibrary(0, "%s|%10s|%-10s|%.2s|%*s", "abc", "abc", "abc", "abc", 40, "abc");
    ExpectLikeLibrary(0, "%s|%10s%s%s", gsc_pszNull, gsc_pszNull, "", "");
    ExpectLikeLibrary(0, "%ls|%.2ls|%10ls", L"wide", L"wide", L"wide");
    ExpectLikeLibrary(0, "%c%10c%lc", 'a', 'b', L'c');
    ExpectLikeLibrary(0, "%p %p", static_cast<void*>(&oHeap), static_cast<void*>(nullptr));
    ExpectLikeLibrary(0, "%f %.2f %.50f", -DBL_MAX, 3.14159, DBL_MAX);
    ExpectLikeLibrary(0, "%e %g %G %.40E %140g", -DBL_MAX, DBL_MIN, 0.1, DBL_MAX, 0.5);
    // The estimate counts neither sign nor prefix nor exponent, and no width of f.
    ExpectLikeLibrary(1, "%.150d", -7);
    ExpectLikeLibrary(1, "%+.40d", 5);
    ExpectLikeLibrary(88, "%400f", 1.0);
    ExpectLikeLibrary(6, "%.200e", 1.5);

    CMString oText;
    CCapturedOutput oOutput;
    oText.Format("%*d", -100, 1); // the negative width, then the cut
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
    EXPECT_EQ(32, oText.GetLength());
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

TEST(StringFormat, BuffersKeepTheirEstimatedSizeAndAreNotShared)
{
    CMString oText;
    oText.Format("%d", 5);
    const char* pszBuffer = oText;
    oText.Format("%d", 12345); // overwritten in place
    oText.AppendFormat("-%s", "x");
    EXPECT_STREQ("12345-x", oText);
    EXPECT_EQ(pszBuffer, Text(oText));
    EXPECT_EQ(33, oText.GetAllocLength());
    CMString oOther(oText);
    oOther.Format("%d", 7);
    CMString oThird(oText);
    oThird.AppendFormat("%d", 7);
    EXPECT_STREQ("7 12345-x 12345-x7", oOther + " " + oText + " " + oThird);
}
