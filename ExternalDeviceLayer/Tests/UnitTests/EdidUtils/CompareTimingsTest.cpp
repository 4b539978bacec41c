// Comparison of two EDIDs by their modes.

#include "EdidUtilsTestHelp.h"

namespace
{
TEST(CompareTimings, WhatCountsAsAChange)
{
    for (const SCaseRow& oRow : ReadCases("EdidUtils/golden/cases/compare.txt", 6))
    {
        SCOPED_TRACE(oRow.GetName());
        const CByteArray oFirst = ToArray(MakeImage(oRow.GetText(1)));
        const CByteArray oSecond = ToArray(MakeImage(oRow.GetText(2)));
        CCapturedOutput oOutput;
        std::string sResults;
        std::string sReverse;
        for (int i = 0; i < 4; ++i)
        {
            sResults += std::to_string(CZorEdidUtils::CompareTimings(oFirst, oSecond, i / 2, i % 2));
            sReverse += std::to_string(CZorEdidUtils::CompareTimings(oSecond, oFirst, i / 2, i % 2));
        }
        EXPECT_EQ(oRow.GetText(3), sResults);
        EXPECT_EQ(oRow.GetText(4), sReverse);
        EXPECT_EQ(8 * oRow.GetNumber(5), oOutput.TakeAssertionCount());
    }
}
} // namespace
