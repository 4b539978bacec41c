// The tools that have behaviour of their own, and those whose argument widths differ from the C library's.

#include <gtest/gtest.h>
#include <limits.h>
#include <stdio.h>
#include <string.h>

#include <string>

#include "ZorTools.h"

TEST(Division, AgreesWith64BitArithmetic)
{
    // Where halves, odd divisors and the ends of the range meet.
    const unsigned int auiBoundaries[] = { 0,          1,          2,          3,          4,          5,
                                           7,          8,          15,         16,         17,         999,
                                           1000,       1001,       65535,      65536,      65537,      0x7FFFFFFE,
                                           0x7FFFFFFF, 0x80000000, 0x80000001, 0xAAAAAAAA, 0xFFFFFFFE, 0xFFFFFFFF };
    for (unsigned int uiDividend : auiBoundaries)
    {
        EXPECT_EQ(0U, ZorTools_RoundedDivision(uiDividend, 0));
        EXPECT_EQ(0U, ZorTools_RoundedDownDivision(uiDividend, 0));
        EXPECT_EQ(0U, ZorTools_RoundedUpDivision(uiDividend, 0));
        for (unsigned long long ullDivisor : auiBoundaries)
        {
            if (ullDivisor != 0)
            {
                const unsigned int uiDivisor = static_cast<unsigned int>(ullDivisor);
                SCOPED_TRACE(std::to_string(uiDividend) + " / " + std::to_string(uiDivisor));
                EXPECT_EQ((2ULL * uiDividend + ullDivisor) / (2 * ullDivisor),
                          ZorTools_RoundedDivision(uiDividend, uiDivisor));
                EXPECT_EQ(uiDividend / ullDivisor, ZorTools_RoundedDownDivision(uiDividend, uiDivisor));
                EXPECT_EQ((uiDividend + ullDivisor - 1) / ullDivisor,
                          ZorTools_RoundedUpDivision(uiDividend, uiDivisor));
            }
        }
    }
}

TEST(SquareRoot, IsRoundedDownFromTwoOn)
{
    EXPECT_EQ(0U, ZorTools_SquareRoot(0));
    EXPECT_EQ(0U, ZorTools_SquareRoot(1));
    EXPECT_EQ(1U, ZorTools_SquareRoot(2));
    EXPECT_EQ(1U, ZorTools_SquareRoot(3));
    for (unsigned int uiRoot = 2; uiRoot <= 65535; ++uiRoot) // up to the next square, where the root changes
    {
        ASSERT_EQ(uiRoot, ZorTools_SquareRoot(uiRoot * uiRoot));
        ASSERT_EQ(uiRoot, ZorTools_SquareRoot(uiRoot * uiRoot + 2 * uiRoot));
    }
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
    EXPECT_EQ('_' - 'a', ZorTools_stricmp("_", "A"));      // to lower case, so that '_' sorts ahead of letters
    EXPECT_EQ(-60 + 28, ZorTools_stricmp("\xC4", "\xE4")); // signed
}

TEST(Text, CaseAndOrderChangeInPlace)
{
    struct SCase
    {
        const char* m_pszText;
        unsigned int m_uiSize;
        const char *m_pszUpper, *m_pszLower, *m_pszReversed;
    };
    const SCase aoCases[] = {
        { "abCDe", 3, "ABCDe", "abcDe", "eDCba" },
        { "abCD", 99, "ABCD", "abcd", "DCba" },
        { "a", 0, "a", "a", "a" },
        { "", 9, "", "", "" },
        { "`az{@AZ[", 8, "`AZ{@AZ[", "`az{@az[", "[ZA@{za`" },
        { "\xE4\xC4", 2, "\xE4\xC4", "\xE4\xC4", "\xC4\xE4" },
    };
    for (const SCase& oCase : aoCases)
    {
        std::string asTexts[] = { oCase.m_pszText, oCase.m_pszText, oCase.m_pszText };
        EXPECT_EQ(asTexts[0].data(), ZorTools_strupr_s(asTexts[0].data(), oCase.m_uiSize));
        EXPECT_EQ(asTexts[1].data(), ZorTools_strlwr_s(asTexts[1].data(), oCase.m_uiSize));
        EXPECT_EQ(asTexts[2].data(), ZorTools_strrev(asTexts[2].data()));
        EXPECT_EQ(oCase.m_pszUpper, asTexts[0]);
        EXPECT_EQ(oCase.m_pszLower, asTexts[1]);
        EXPECT_EQ(oCase.m_pszReversed, asTexts[2]);
    }
    EXPECT_EQ(nullptr, ZorTools_strupr_s(nullptr, 3));
    EXPECT_EQ(nullptr, ZorTools_strlwr_s(nullptr, 3));
    EXPECT_EQ(nullptr, ZorTools_strrev(nullptr));
}

TEST(Text, CopiesAreCutAndNumbersAreRead)
{
    char acText[] = "######";
    ZorTools_strcpy_s(acText, 3, "%dc");
    ZorTools_strcpy_s(acText + 4, 1, "abc");
    EXPECT_EQ(0, memcmp(acText, "%d\0#\0#", 6));
    EXPECT_EQ(-7, ZorTools_atoi(" -7x"));
    EXPECT_EQ(0, ZorTools_atoi("x"));
    EXPECT_EQ(10, ZorTools_atoi("010"));             // decimal, not octal
    EXPECT_EQ(0, ZorTools_atoi("4294967296"));       // cut to 32 bits
    EXPECT_EQ(INT_MIN, ZorTools_atoi("2147483648")); // and not held at the end of the range
    for (int i = EOF; i <= UCHAR_MAX; ++i)
    {
        EXPECT_EQ(i >= '0' && i <= '9' ? 0x800 : 0, ZorTools_isDigit(i)) << i;
    }
}

// That each reaches its own function with its arguments in order; the strings' tests reach the others.
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
    char* pszContext = nullptr;
    EXPECT_STREQ("xyb", ZorTools_strtok_s(acBytes, "cz", &pszContext));
    EXPECT_STREQ("f", ZorTools_strtok_s(nullptr, "cz", &pszContext));
}
