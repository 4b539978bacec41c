// The front door: which source answers, and that none stands in for another.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "TimingTestHelp.h"
#include "VidParamTimingFunc.h"

namespace
{
using EType = CVidParamTiming::EVidParamType;

struct SSourceCase
{
    EType m_eType;
    unsigned int m_uiWidth;
    unsigned int m_uiHeight;
    unsigned int m_uiRate;
    unsigned int m_uiPixelClockInKiloHz;
};

TEST(FrontDoor, EachTypeAsksItsOwnSource)
{
    const SSourceCase aoCases[] = {
        { CVidParamTiming::eVidParamType_Dmt, 1280, 768, 60, 79500 }, // passes over the reduced row before it
        { CVidParamTiming::eVidParamType_DmtReducedBlanking, 1280, 768, 60, 68250 },
        { CVidParamTiming::eVidParamType_Cvt, 1920, 1080, 60, 173000 },
        { CVidParamTiming::eVidParamType_CvtReducedBlanking, 1920, 1080, 60, 138500 },
        { CVidParamTiming::eVidParamType_Gtf, 1920, 1080, 60, 172770 },
        { CVidParamTiming::eVidParamType_Cea, 1920, 1080, 30, 74250 }, // the interlaced row, first of three
        { CVidParamTiming::eVidParamType_Smpte, 2048, 1080, 48, 148500 },
    };
    for (const SSourceCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_eType);
        CVidParamTimingGeneric oTiming;
        CCapturedOutput oOutput;
        EXPECT_EQ(1, CVidParamTimingFunc::GetTiming(oCase.m_uiWidth, oCase.m_uiHeight, oCase.m_uiRate, oCase.m_eType,
                                                    oTiming));
        EXPECT_EQ("", oOutput.Take());
        EXPECT_EQ(oCase.m_eType, oTiming.GetVideoFamilyType());
        EXPECT_EQ(oCase.m_uiPixelClockInKiloHz, oTiming.GetPixelClockInKiloHz());
        EXPECT_EQ(oCase.m_eType == CVidParamTiming::eVidParamType_Cea ? 1 : 0, oTiming.IsInterlaced());
    }
}

TEST(FrontDoor, NoSourceOrARefusalIsReportedOnceAndLeavesTheTiming)
{
    const SSourceCase aoCases[] = {
        { CVidParamTiming::eVidParamType_None, 1920, 1080, 60, 0 },
        { CVidParamTiming::eVidParamType_Detailed, 1920, 1080, 60, 0 },
        { CVidParamTiming::eVidParamType_Unknown, 1920, 1080, 60, 0 },
        { static_cast<EType>(7), 1920, 1080, 60, 0 },
        { CVidParamTiming::eVidParamType_Dmt, 3440, 1440, 60, 0 }, // no such row, and no formula instead
        { CVidParamTiming::eVidParamType_DmtReducedBlanking, 640, 480, 60, 0 },
        { CVidParamTiming::eVidParamType_Cea, 1024, 768, 60, 0 },
        { CVidParamTiming::eVidParamType_Smpte, 1920, 1080, 60, 0 },
        { CVidParamTiming::eVidParamType_Cvt, 200, 150, 60, 0 },
    };
    for (const SSourceCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_eType);
        CVidParamTimingGeneric oTiming(gsc_oMarked);
        CCapturedOutput oOutput;
        EXPECT_EQ(0, CVidParamTimingFunc::GetTiming(oCase.m_uiWidth, oCase.m_uiHeight, oCase.m_uiRate, oCase.m_eType,
                                                    oTiming));
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
        EXPECT_TRUE(IsMarked(oTiming));
    }
}

TEST(FrontDoor, ForwardersReachAllRowsAndStayQuiet)
{
    CCapturedOutput oOutput;
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, CVidParamTimingFunc::GetDmtTiming(0, &oTiming, 1280, 768, 60));
    EXPECT_EQ(68250U, oTiming.GetPixelClockInKiloHz()) << "the reduced row too";
    EXPECT_EQ(1, CVidParamTimingFunc::GetDmtTiming(1, &oTiming, 1280, 768, 60));
    EXPECT_EQ(79500U, oTiming.GetPixelClockInKiloHz());
    EXPECT_EQ(1, CVidParamTimingFunc::GetCeaTiming(2, &oTiming, 1920, 1080, 25));
    EXPECT_EQ(72000U, oTiming.GetPixelClockInKiloHz());
    EXPECT_EQ(1, CVidParamTimingFunc::GetSmpteTiming(9, &oTiming, 0, 0, 0));
    EXPECT_EQ(23U, oTiming.GetVerticalRateInHz());
    EXPECT_EQ(1, CVidParamTimingFunc::ComputeCvt(640, 480, 60, 1, &oTiming));
    EXPECT_EQ(CVidParamTiming::eVidParamType_CvtReducedBlanking, oTiming.GetVideoFamilyType());
    EXPECT_EQ(1, CVidParamTimingFunc::ComputeGft(1024, 768, 60, &oTiming));
    EXPECT_EQ(64122U, oTiming.GetPixelClockInKiloHz());

    EXPECT_EQ(0, CVidParamTimingFunc::GetDmtTiming(2, nullptr, 1280, 768, 60));
    EXPECT_EQ(0, CVidParamTimingFunc::ComputeCvt(200, 150, 60, 0, nullptr));
    EXPECT_EQ("", oOutput.Take()) << "a refusal of a forwarder is no mistake";
}
}
