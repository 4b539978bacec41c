// Several threads, each with objects of its own. They share the constants, the empty string, the tables and the message
// switches, which are set before they start. Meant for ThreadSanitizer.

#include <gtest/gtest.h>

#include <thread>

#include "CapturedOutput.h"
#include "EditRunner.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"
#include "StringOperations.h"

namespace
{
// Reads and edits, with strings that begin as the shared empty one.
unsigned long long Work(const std::map<std::string, CBytes>& oImages)
{
    CMString oText;
    unsigned long long ullSum = 0;
    for (const auto& [sName, aui8Image] : oImages)
    {
        CEditRunner oRunner;
        oRunner.Load(aui8Image);
        for (unsigned int i = 0; i < 2 * CEditRunner::msc_uiOperationCount; ++i)
        {
            EXPECT_EQ("", oRunner.Apply({ i, i % 2, i / 7 % 5, 0x00020E42 + i }));
        }
        for (const SStringOperation& oOperation : gsc_aoStringOperations)
        {
            CMString oOther = *CMString::m_poEmptyString;
            SStringStep<CMString> oStep = { oText, oOther, 'e', 1, 5, sName, 0x20E45 };
            oOperation.m_pfnLibrary(oStep);
        }
        ullSum += ReadEverything(oRunner.GetEdid()) + static_cast<unsigned int>(oText.CountOf('e'));
    }
    return ullSum;
}

// The same work alone and in four threads at once gives the same, and as many assertion lines, all whole.
TEST(ThreadTest, WorkWithObjectsOfOnesOwn)
{
    const std::map<std::string, CBytes> oImages = GetImages();
    CCapturedOutput oAlone;
    std::vector<unsigned long long> aullResults(4);
    const std::vector<unsigned long long> aullExpected(4, Work(oImages));
    const unsigned int uiLines = oAlone.TakeAssertionCount();
    EXPECT_NE(0U, uiLines);
    CCapturedOutput oOutput;
    {
        std::vector<std::jthread> aoThreads;
        for (size_t i = 0; i < aullResults.size(); ++i)
        {
            aoThreads.emplace_back([&, i] { aullResults[i] = Work(oImages); });
        }
    }
    EXPECT_EQ(aullExpected, aullResults);
    EXPECT_EQ(4 * uiLines, oOutput.TakeAssertionCount());
}
} // namespace
