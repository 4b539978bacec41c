// The tools that have behaviour of their own, and those whose argument widths differ from the C library's.

#include <gtest/gtest.h>
#include <limits.h>
#include <stdio.h>
#include <string.h>

#include <string>

#include "ZorTools.h"

namespace
{
// Where halves, odd divisors and the ends of the range meet.
constexpr unsigned int gsc_auiBoundaries[] = { 0,          1,          2,          3,          4,          5,
                                               6,          7,          8,          9,          15,         16,
                                               17,         999,        1000,       1001,       65535,      65536,
                                               65537,      0x7FFFFFFE, 0x7FFFFFFF, 0x80000000, 0x80000001, 0xAAAAAAAA,
                                               0xFFFFFFFD, 0xFFFFFFFE, 0xFFFFFFFF };

int PrintInto(char* pszDestination, unsigned int uiSize, const char* pszFormat, ...)
    __attribute__((format(printf, 3, 4)));
int PrintInto(char* pszDestination, unsigned int uiSize, const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    const int iResult = ZorTools_vsprintf_s(pszDestination, uiSize, pszFormat, oList);
    va_end(oList);
    return iResult;
}
}

TEST(Division, AgreesWith64BitArithmetic)
{
    for (unsigned int uiDividend : gsc_auiBoundaries)
    {
        for (unsigned int uiDivisor : gsc_auiBoundaries)
        {
            SCOPED_TRACE(std::to_string(uiDividend) + " / " + std::to_string(uiDivisor));
            unsigned long long ulNearest = 0;
            unsigned long long ulDown = 0;
            unsigned long long ulUp = 0;
            if (uiDivisor != 0)
            {
                const unsigned long long ulDividend = uiDividend;
                ulNearest = (2 * ulDividend + uiDivisor) / (2ULL * uiDivisor);
                ulDown = ulDividend / uiDivisor;
                ulUp = (ulDividend + uiDivisor - 1) / uiDivisor;
            }
            EXPECT_EQ(ulNearest, ZorTools_RoundedDivision(uiDividend, uiDivisor));
            EXPECT_EQ(ulDown, ZorTools_RoundedDownDivision(uiDividend, uiDivisor));
            EXPECT_EQ(ulUp, ZorTools_RoundedUpDivision(uiDividend, uiDivisor));
        }
    }
}

TEST(SquareRoot, IsRoundedDownFromTwoOn)
{
    EXPECT_EQ(0U, ZorTools_SquareRoot(0));
    EXPECT_EQ(0U, ZorTools_SquareRoot(1));
    // Around every square: the root changes exactly there.
    for (unsigned int uiRoot = 2; uiRoot <= 65535; ++uiRoot)
    {
        const unsigned int uiSquare = uiRoot * uiRoot;
        ASSERT_EQ(uiRoot, ZorTools_SquareRoot(uiSquare));
        ASSERT_EQ(uiRoot == 2 ? 1 : uiRoot - 1, ZorTools_SquareRoot(uiSquare - 1));
    }
    EXPECT_EQ(1U, ZorTools_SquareRoot(2));
    EXPECT_EQ(65535U, ZorTools_SquareRoot(UINT_MAX));
}

TEST(Text, CompareWithoutCaseGivesTheDifferenceOfFoldedCharacters)
{
    EXPECT_EQ(0, ZorTools_stricmp("", ""));
    EXPECT_EQ(0, ZorTools_stricmp("AbC", "aBc"));
    EXPECT_EQ('c' - 'd', ZorTools_stricmp("abc", "abD"));
    EXPECT_EQ(-'c', ZorTools_stricmp("ab", "abC"));
    EXPECT_EQ('c', ZorTools_stricmp("abC", "ab"));
    EXPECT_EQ('@' - '`', ZorTools_stricmp("@", "`")); // next to the letters: no folding
    EXPECT_EQ('[' - '{', ZorTools_stricmp("[", "{"));
    EXPECT_EQ('_' - 'a', ZorTools_stricmp("_", "A")); // to lower case, so that '_' sorts ahead of letters
    EXPECT_EQ(-1 - 'a', ZorTools_stricmp("\xFF", "a"));
    EXPECT_EQ(-60 + 28, ZorTools_stricmp("\xC4", "\xE4"));
}

TEST(Text, CaseChangesAsciiLettersWithinTheSize)
{
    struct SCase
    {
        const char* m_szText;
        unsigned int m_uiSize;
        const char* m_szUpper;
        const char* m_szLower;
    };
    const SCase aoCases[] = {
        { "abCDe", 3, "ABCDe", "abcDe" },
        { "abCD", 99, "ABCD", "abcd" },
        { "abCD", 0, "abCD", "abCD" },
        { "`az{@AZ[", 8, "`AZ{@AZ[", "`az{@az[" },
        { "\xE4\xC4", 2, "\xE4\xC4", "\xE4\xC4" },
    };
    for (const SCase& oCase : aoCases)
    {
        std::string sUpper = oCase.m_szText;
        std::string sLower = oCase.m_szText;
        EXPECT_EQ(sUpper.data(), ZorTools_strupr_s(sUpper.data(), oCase.m_uiSize));
        EXPECT_EQ(sLower.data(), ZorTools_strlwr_s(sLower.data(), oCase.m_uiSize));
        EXPECT_EQ(oCase.m_szUpper, sUpper);
        EXPECT_EQ(oCase.m_szLower, sLower);
    }
    EXPECT_EQ(nullptr, ZorTools_strupr_s(nullptr, 3));
    EXPECT_EQ(nullptr, ZorTools_strlwr_s(nullptr, 3));
}

TEST(Text, ReverseSwapsFromBothEnds)
{
    const char* const aszCases[][2] = { { "", "" }, { "a", "a" }, { "abc", "cba" }, { "abcd", "dcba" } };
    for (const auto& aszCase : aszCases)
    {
        std::string sText = aszCase[0];
        EXPECT_EQ(sText.data(), ZorTools_strrev(sText.data()));
        EXPECT_EQ(aszCase[1], sText);
    }
    EXPECT_EQ(nullptr, ZorTools_strrev(nullptr));
}

TEST(Text, CopiesAndPrintsAreCutAndTerminated)
{
    char acText[] = "######";
    ZorTools_strcpy_s(acText, 1, "abc");
    EXPECT_EQ(0, memcmp(acText, "\0#####", 6));
    ZorTools_strcpy_s(acText, 3, "%dc");
    EXPECT_EQ(0, memcmp(acText, "%d\0###", 6));
    EXPECT_EQ(6, PrintInto(acText, 4, "%d", 123456)); // the whole length
    EXPECT_EQ(0, memcmp(acText, "123\0##", 6));
    EXPECT_EQ(2, PrintInto(acText, 0, "ab"));
    EXPECT_EQ('1', acText[0]);
}

TEST(Text, NumbersAndDigits)
{
    EXPECT_EQ(42, ZorTools_atoi(" 42x"));
    EXPECT_EQ(-7, ZorTools_atoi("-7"));
    EXPECT_EQ(0, ZorTools_atoi("x"));
    EXPECT_EQ(10, ZorTools_atoi("010"));             // decimal, not octal
    EXPECT_EQ(0, ZorTools_atoi("4294967296"));       // cut to 32 bits
    EXPECT_EQ(INT_MIN, ZorTools_atoi("2147483648")); // and not held at the end of the range
    for (int i = EOF; i <= UCHAR_MAX; ++i)
    {
        EXPECT_EQ(i >= '0' && i <= '9' ? 0x800 : 0, ZorTools_isDigit(i)) << i;
    }
}

TEST(Text, TokensKeepTheirPlaceInTheContext)
{
    char szFirst[] = ",a,,b";
    char szSecond[] = "x y";
    char* pszFirst = nullptr;
    char* pszSecond = nullptr;
    EXPECT_STREQ("a", ZorTools_strtok_s(szFirst, ",", &pszFirst));
    EXPECT_STREQ("x", ZorTools_strtok_s(szSecond, " ", &pszSecond));
    EXPECT_STREQ("b", ZorTools_strtok_s(nullptr, ",", &pszFirst));
    EXPECT_EQ(nullptr, ZorTools_strtok_s(nullptr, ",", &pszFirst));
}

// That each reaches its own function with its arguments in order.
TEST(Forwarders, ReachTheirFunctions)
{
    char acBytes[] = "abcdef";
    EXPECT_EQ(acBytes + 1, ZorTools_memmove(acBytes + 1, acBytes, 4)); // overlapping
    EXPECT_EQ(acBytes, ZorTools_memcpy(acBytes, "xy", 2));
    EXPECT_EQ(acBytes + 4, ZorTools_memset(acBytes + 4, 'z', 1));
    EXPECT_STREQ("xybczf", acBytes);
    EXPECT_EQ(0, ZorTools_memcmp("abc", "abd", 2));
    EXPECT_GT(ZorTools_memcmp("\xFF", "a", 1), 0); // bytes are unsigned here
    EXPECT_EQ(3U, ZorTools_wcslen(L"abc"));
    EXPECT_LT(ZorTools_strcmp("abc", "abd"), 0);
    EXPECT_GT(ZorTools_strncmp("abd", "abc", 3), 0);
    EXPECT_EQ(0, ZorTools_strncmp("abc", "abd", 2));
}
