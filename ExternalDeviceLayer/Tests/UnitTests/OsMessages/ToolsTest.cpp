// The tools that have behaviour of their own. The tests of their callers see those that only pass on.

#include <gtest/gtest.h>
#include <limits.h>
#include <stdio.h>
#include <string.h>

#include "ZorTools.h"

TEST(Division, AgreesWith64BitArithmetic)
{
    // Where halves, odd divisors and the ends of the range meet.
    const unsigned int auiBoundaries[] = { 0,          1,          2,          3,          4,          5,
                                           7,          8,          999,        1000,       65535,      65536,
                                           0x7FFFFFFE, 0x7FFFFFFF, 0x80000000, 0x80000001, 0xFFFFFFFE, 0xFFFFFFFF };
    for (const unsigned int i : auiBoundaries)
    {
        for (const unsigned long long j : auiBoundaries)
        {
            const unsigned int uiDivisor = static_cast<unsigned int>(j);
            EXPECT_EQ(j == 0 ? 0 : (2ULL * i + j) / (2 * j), ZorTools_RoundedDivision(i, uiDivisor)) << i << "/" << j;
            EXPECT_EQ(j == 0 ? 0 : i / j, ZorTools_RoundedDownDivision(i, uiDivisor)) << i << "/" << j;
            EXPECT_EQ(j == 0 ? 0 : (i + j - 1) / j, ZorTools_RoundedUpDivision(i, uiDivisor)) << i << "/" << j;
        }
    }
}

// The largest root whose square is not above the value, but 0 for 1.
TEST(SquareRoot, IsRoundedDown)
{
    EXPECT_EQ(0U, ZorTools_SquareRoot(0));
    EXPECT_EQ(0U, ZorTools_SquareRoot(1));
    for (const unsigned long long i :
         { 2ULL, 3ULL, 4ULL, 8ULL, 9ULL, 65535ULL * 65535 - 1, 65535ULL * 65535, 0xFFFFFFFFULL })
    {
        const unsigned long long ullRoot = ZorTools_SquareRoot(static_cast<unsigned int>(i));
        EXPECT_TRUE(ullRoot * ullRoot <= i && i < (ullRoot + 1) * (ullRoot + 1)) << i;
    }
}

TEST(Text, CompareWithoutCaseGivesTheDifferenceOfFoldedCharacters)
{
    EXPECT_EQ(0, ZorTools_stricmp("", ""));
    EXPECT_EQ(0, ZorTools_stricmp("AbC", "aBc"));
    EXPECT_EQ('c' - 'd', ZorTools_stricmp("abc", "abD"));
    EXPECT_EQ(-'c', ZorTools_stricmp("ab", "abC"));
    EXPECT_EQ('@' - '`', ZorTools_stricmp("@", "`")); // next to the letters: no folding
    EXPECT_EQ('[' - '{', ZorTools_stricmp("[", "{"));
    EXPECT_EQ('_' - 'a', ZorTools_stricmp("_", "A"));      // to lower case, so that '_' sorts before letters
    EXPECT_EQ(-60 + 28, ZorTools_stricmp("\xC4", "\xE4")); // signed
}

// Upper case, lower case and the reverse of any text are seen through the strings.
TEST(Text, CaseChangesInPlaceUpToTheSize)
{
    char acText[] = "abCDe";
    EXPECT_EQ(acText, ZorTools_strupr_s(acText, 2));
    EXPECT_STREQ("ABCDe", acText);
    EXPECT_EQ(acText, ZorTools_strlwr_s(acText, 3));
    EXPECT_STREQ("abcDe", acText);
    EXPECT_EQ(acText, ZorTools_strrev(acText));
    EXPECT_STREQ("eDcba", acText);
    EXPECT_EQ(nullptr, ZorTools_strupr_s(nullptr, 3));
    EXPECT_EQ(nullptr, ZorTools_strrev(nullptr));
}

TEST(Text, CopiesAreCutAndNumbersAreRead)
{
    char acText[] = "######";
    ZorTools_strcpy_s(acText, 3, "%dc");
    ZorTools_strcpy_s(acText + 4, 1, "abc");
    EXPECT_EQ(0, memcmp(acText, "%d\0#\0#", 6));
    EXPECT_EQ(-7, ZorTools_atoi(" -7x"));
    EXPECT_EQ(10, ZorTools_atoi("010"));             // decimal, not octal
    EXPECT_EQ(0, ZorTools_atoi("4294967296"));       // cut to 32 bits
    EXPECT_EQ(INT_MIN, ZorTools_atoi("2147483648")); // and not held at the end of the range
    for (int i = EOF; i <= UCHAR_MAX; ++i)
    {
        EXPECT_EQ(i >= '0' && i <= '9' ? 0x800 : 0, ZorTools_isDigit(i)) << i;
    }
}
