// Several threads, each with objects of its own. They share the constants, the empty string, the tables and the message
// switches, which are set before they start. Meant for ThreadSanitizer.

#include <gtest/gtest.h>

#include <thread>

#include "CapturedOutput.h"
#include "EditRunner.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"

namespace
{
constexpr unsigned int gsc_uiThreads = 4;

// The same work in all threads at once gives what it gives in one.
template <class WORK>
void ExpectSameInAllThreads(const WORK& Work)
{
    const unsigned long long ullExpected = Work();
    unsigned long long aullResults[gsc_uiThreads] = {};
    std::vector<std::thread> aoThreads;
    for (unsigned long long& ullResult : aullResults)
    {
        aoThreads.emplace_back([&] { ullResult = Work(); });
    }
    for (unsigned int i = 0; i < gsc_uiThreads; ++i)
    {
        aoThreads[i].join();
        EXPECT_EQ(ullExpected, aullResults[i]);
    }
}

TEST(ThreadTest, ReadingWithObjectsOfOnesOwn)
{
    const CQuietMessages oQuiet;
    ExpectSameInAllThreads([] {
        unsigned long long ullSum = 0;
        CEdid oEdid;
        for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
        {
            LoadExact(oEdid, ToBytes(*oImage.m_paui8Image));
            ullSum += ReadEverything(oEdid);
        }
        LoadExact(oEdid, MakeImageWithAllBlocks());
        return ullSum + ReadEverything(oEdid);
    });
}

TEST(ThreadTest, EditingWithObjectsOfOnesOwn)
{
    const CQuietMessages oQuiet;
    const CBytes aui8All = MakeImageWithAllBlocks();
    ExpectSameInAllThreads([&] {
        CEditRunner oRunner;
        for (unsigned int i = 0; i < 40 * CEditRunner::msc_uiOperationCount; ++i)
        {
            if (i % CEditRunner::msc_uiOperationCount == 0)
            {
                oRunner.Load(aui8All.data(), static_cast<unsigned int>(aui8All.size()));
            }
            EXPECT_EQ(nullptr, oRunner.Apply({ i, i / 40 % 2, i / 7 % 5, 0x00020E42 + i }));
        }
        return ReadEverything(oRunner.GetEdid());
    });
}

TEST(ThreadTest, StringsThatBeginAsTheSharedEmptyOne)
{
    ExpectSameInAllThreads([] {
        int iSum = 0;
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
            iSum += oLines.InitFromString(oCopy, ", ") + oLines.Join(";").GetLength();
        }
        return static_cast<unsigned long long>(iSum);
    });
}

// Guards write whole lines from every thread; the switches were set before.
TEST(ThreadTest, AssertionLines)
{
    OsServices::SetMsgLevel(1, 1, 0);
    CCapturedOutput oOutput;
    ExpectSameInAllThreads([] {
        for (unsigned int i = 0; i < 20; ++i)
        {
            CEdidBase::GetEdidSizeFromData(1, reinterpret_cast<const unsigned char*>("x"));
        }
        return 0ULL;
    });
    EXPECT_EQ((1 + gsc_uiThreads) * 20, oOutput.TakeAssertionCount());
}
} // namespace
