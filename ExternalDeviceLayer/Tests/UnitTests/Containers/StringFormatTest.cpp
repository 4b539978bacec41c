// CMString's formatting: the estimate, the texts against the C library's own, and that no byte is written beyond the
// buffer (the sanitizers watch: every buffer is a heap block of the exact size).

#include <float.h>
#include <limits.h>
#include <stdio.h>

#include <map>

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "CountingAllocator.h"
#include "StringProbe.h"

namespace
{
// The estimate first. Then the text is that of the C library but for the missing characters at its end, and Format
// reports where they are more than one. Without the attribute that checks formats, so that odd ones can be tried.
void Check(const SCaseRow& oRow, const char* pszFormat, ...)
{
    const unsigned int uiReports = oRow.GetNumber(3);
    va_list oList;
    va_list oAgain;
    va_start(oList, pszFormat);
    CCapturedOutput oOutput;
    const int iEstimate = CMString::GetFormattedLength(pszFormat, oList); // leaves the list usable
    EXPECT_EQ(uiReports, oOutput.TakeAssertionCount());
    EXPECT_EQ(oRow.GetNumber(2), static_cast<unsigned int>(iEstimate));
    if (oRow.GetText(4) != "-")
    {
        char szWhole[2048];
        va_copy(oAgain, oList);
        vsnprintf(szWhole, sizeof(szWhole), pszFormat, oAgain);
        va_end(oAgain);
        std::string sExpected = szWhole;
        sExpected.resize(sExpected.size() - oRow.GetNumber(4));

        va_copy(oAgain, oList);
        CCapturedOutput oFormatOutput;
        CMString oText;
        oText.FormatV(pszFormat, oList);
        EXPECT_EQ(uiReports + (oRow.GetNumber(4) > 1 ? 1 : 0), oFormatOutput.TakeAssertionCount());
        CCapturedOutput oAppendOutput;
        CMString oAppended("1234");
        oAppended.AppendFormatV(pszFormat, oAgain);
        EXPECT_EQ(uiReports, oAppendOutput.TakeAssertionCount());
        va_end(oAgain);
        EXPECT_EQ(sExpected, Text(oText));
        EXPECT_EQ(sExpected.size(), static_cast<size_t>(oText.GetLength()));
        EXPECT_EQ(iEstimate + 1, oText.GetAllocLength());
        EXPECT_EQ("1234" + sExpected, Text(oAppended));
    }
    va_end(oList);
}

using CRow = const SCaseRow&;
const std::map<std::string, void (*)(CRow, const char*)> gsc_oArguments = {
    { "none", [](CRow oRow, const char* psz) { Check(oRow, psz); } },
    { "numbers", [](CRow oRow, const char* psz) { Check(oRow, psz, 40, 10, INT_MIN, 70, 3); } },
    { "sevens", [](CRow oRow, const char* psz) { Check(oRow, psz, -7, -7, -7); } },
    { "limits", [](CRow oRow, const char* psz) { Check(oRow, psz, UINT_MAX, INT_MIN, INT_MAX, -1, -1, -1); } },
    { "longs", [](CRow oRow, const char* psz) { Check(oRow, psz, LLONG_MIN, ULLONG_MAX, ULLONG_MAX, ULLONG_MAX); } },
    { "pointers", [](CRow oRow, const char* psz) { Check(oRow, psz, &oRow, nullptr); } },
    { "one", [](CRow oRow, const char* psz) { Check(oRow, psz, 1.0); } },
    { "doubles", [](CRow oRow, const char* psz) { Check(oRow, psz, -DBL_MAX, DBL_MIN, 0.1, DBL_MAX, 0.5); } },
    { "letters", [](CRow oRow, const char* psz) { Check(oRow, psz, 'a', 'b', 'c', L'd'); } },
    { "texts", [](CRow oRow, const char* psz) { Check(oRow, psz, "abcdef", "abcdef", "abcdef", "abcdef"); } },
    { "nulls", [](CRow oRow, const char* psz) { Check(oRow, psz, nullptr, nullptr, ""); } },
    { "starred", [](CRow oRow, const char* psz) { Check(oRow, psz, 40, "abc"); } },
    { "wide", [](CRow oRow, const char* psz) { Check(oRow, psz, L"abcde", L"wide", nullptr); } },
    { "mixed", [](CRow oRow, const char* psz) { Check(oRow, psz, 1LL, 1.0, 1, 1L, nullptr, "abcde"); } },
    { "many",
      [](CRow oRow, const char* psz) { Check(oRow, psz, 1., 2., 3., 4., 5., 6., 7., 8., 9., 1, 2, 3, 4, "abcdef"); } },
    { "minus number", [](CRow oRow, const char* psz) { Check(oRow, psz, -5, 1); } },
    { "minus hundred", [](CRow oRow, const char* psz) { Check(oRow, psz, -100, 1); } },
    { "minus text", [](CRow oRow, const char* psz) { Check(oRow, psz, -5, "abc"); } },
    { "minus double", [](CRow oRow, const char* psz) { Check(oRow, psz, -200, 1.0); } },
};
} // namespace

TEST(StringFormat, GivesTheLibrarysTexts)
{
    for (const SCaseRow& oRow : ReadCases("Containers/golden/formats.txt", 5))
    {
        SCOPED_TRACE(oRow.GetName() + " of " + oRow.GetText(1));
        std::string sFormat = oRow.GetName();
        std::ranges::replace(sFormat, '~', '#');
        gsc_oArguments.at(oRow.GetText(1))(oRow, sFormat.c_str());
    }
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
