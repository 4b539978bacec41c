// Several threads, each with objects of its own. They share the constants, the empty string, the tables and the message
// switches, which are set before they start. Meant for ThreadSanitizer.

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

#include "CapturedOutput.h"
#include "EditRunner.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"

namespace
{
constexpr size_t gsc_uiThreads = 4;

// Runs the same work in all threads at once; gives what each of them returned.
template <class WORK>
std::array<unsigned long long, gsc_uiThreads> RunInThreads(const WORK& Work)
{
    std::array<unsigned long long, gsc_uiThreads> aullResults = {};
    std::vector<std::thread> aoThreads;
    for (unsigned long long& ullResult : aullResults)
    {
        aoThreads.emplace_back([&] { ullResult = Work(); });
    }
    for (std::thread& oThread : aoThreads)
    {
        oThread.join();
    }
    return aullResults;
}

template <class WORK>
void ExpectSameInAllThreads(const WORK& Work)
{
    const unsigned long long ullExpected = Work();
    for (const unsigned long long ullResult : RunInThreads(Work))
    {
        EXPECT_EQ(ullExpected, ullResult);
    }
}

TEST(ThreadTest, ReadingWithObjectsOfOnesOwn)
{
    const CQuietMessages oQuiet;
    ExpectSameInAllThreads([] {
        unsigned long long ullSum = 0;
        for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
        {
            CEdid oEdid;
            oEdid.SetEdidBuffer(oImage.m_paui8Image->data(), 256, 0);
            ullSum += ReadEverything(oEdid);
        }
        const CBytes aui8All = MakeImageWithAllBlocks();
        CEdid oEdid;
        oEdid.SetEdidBuffer(aui8All.data(), static_cast<unsigned int>(aui8All.size()), 0);
        return ullSum + ReadEverything(oEdid);
    });
}

TEST(ThreadTest, EditingWithObjectsOfOnesOwn)
{
    const CQuietMessages oQuiet;
    const CBytes aui8All = MakeImageWithAllBlocks();
    ExpectSameInAllThreads([&] {
        unsigned long long ullBroken = 0;
        CEditRunner oRunner;
        for (unsigned int i = 0; i < 40 * CEditRunner::msc_uiOperationCount; ++i)
        {
            if (i % CEditRunner::msc_uiOperationCount == 0)
            {
                oRunner.Load(aui8All.data(), static_cast<unsigned int>(aui8All.size()));
            }
            ullBroken += oRunner.Apply({ i, i / 40 % 2, i / 7 % 5, 0x00020E42 + i }) != nullptr ? 1U : 0U;
        }
        EXPECT_EQ(0U, ullBroken);
        return ReadEverything(oRunner.GetEdid());
    });
}

TEST(ThreadTest, StringsThatBeginAsTheSharedEmptyOne)
{
    ExpectSameInAllThreads([] {
        unsigned long long ullSum = 0;
        for (int i = 0; i < 2000; ++i)
        {
            CMString oText;
            CMString oCopy(oText);
            oCopy = *CMString::m_poEmptyString;
            oCopy.Empty();
            oCopy.ReleaseBuffer(0);
            oCopy.MakeUpper();
            oText.Format("%d, %s", i, "text");
            oCopy = oText;
            oCopy += 'x';
            CMArrayString oLines;
            oLines.SetSize(4, -1);
            ullSum += static_cast<unsigned int>(oLines.InitFromString(oCopy, ", "));
            ullSum += static_cast<unsigned int>(oLines.Join(";").GetLength());
        }
        return ullSum;
    });
}

// Guards write whole lines from every thread; the switches were set before.
TEST(ThreadTest, AssertionLines)
{
    constexpr unsigned int uiLinesOfOne = 20;
    OsServices::SetMsgLevel(1, 1, 0);
    CCapturedOutput oOutput;
    RunInThreads([] {
        for (unsigned int i = 0; i < uiLinesOfOne; ++i)
        {
            CEdidBase::GetEdidSizeFromData(1, reinterpret_cast<const unsigned char*>("x"));
        }
        return 0ULL;
    });
    EXPECT_EQ(gsc_uiThreads * uiLinesOfOne, oOutput.TakeAssertionCount());
}
}
