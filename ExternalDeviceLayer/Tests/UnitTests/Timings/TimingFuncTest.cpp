// The front door: which source answers, what each source gives, and in which order it writes its values.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "RecordingTiming.h"
#include "TimingTestHelp.h"
#include "VidParamTimingFunc.h"

namespace
{
using EType = CVidParamTiming::EVidParamType;

// Sizes and clock stand before the line rate that is derived from them.
const CCallNames gsc_asTableOrder = { "ClearData", "HActive",   "HFront",     "HSync",       "HBack", "VActive",
                                      "VFront",    "VSync",     "VBack",      "ClockKiloHz", "VRate", "HRateHz",
                                      "HPolarity", "VPolarity", "Interlaced", "Type" };
const CCallNames gsc_asCvtOrder = { "ClearData", "HRateKiloHz", "ClockKiloHz", "VRate", "HFront", "HSync",
                                    "HBack",     "HActive",     "VFront",      "VSync", "VBack",  "VActive",
                                    "VPolarity", "HPolarity",   "Interlaced",  "Type" };
const CCallNames gsc_asGtfOrder = { "ClearData", "HActive",   "VActive",    "VRate",  "HRateKiloHz", "ClockKiloHz",
                                    "HFront",    "HSync",     "HBack",      "VFront", "VSync",       "VBack",
                                    "VPolarity", "HPolarity", "Interlaced", "Type" };

struct SWorkedCase
{
    const CCallNames& m_asOrder;
    unsigned int m_uiAskedRateInHz;
    CAllValues m_auiExpected; // the source too, by which it is asked
};

// From the published tables and from worked examples of the formulas.
const SWorkedCase gsc_aoWorkedCases[] = {
    // clang-format off
    // order           asked   active     rate  clock   h front sync back v front sync back line flags source
    { gsc_asTableOrder, 60, { 1280,  768, 60,  79500,  64, 128, 192, 3,  7, 20,  47,  8,  1 } }, // not the reduced row
    { gsc_asTableOrder, 60, { 1280,  768, 60,  68250,  48,  32,  80, 3,  7, 12,  47,  4,  2 } },
    { gsc_asTableOrder, 30, { 1920, 1080, 30,  74250,  88,  44, 148, 2,  5, 15,  33, 13,  6 } }, // first of three
    { gsc_asTableOrder, 48, { 2048, 1080, 48, 148500,  24,  44, 634, 4,  5, 36,  54, 12, 16 } },
    { gsc_asCvtOrder,   60, { 1024,  768, 60,  63500,  48, 104, 152, 3,  4, 23,  47,  8,  3 } }, // 4:3
    { gsc_asCvtOrder,   60, { 1920, 1080, 60, 173000, 128, 200, 328, 3,  5, 32,  67,  8,  3 } }, // 16:9
    { gsc_asCvtOrder,   60, { 1680, 1050, 60, 146250, 104, 176, 280, 3,  6, 30,  65,  8,  3 } }, // 16:10
    { gsc_asCvtOrder,   60, { 1280, 1024, 60, 109000,  80, 136, 216, 3,  7, 29,  63,  8,  3 } }, // 5:4
    { gsc_asCvtOrder,   60, { 1366,  768, 60,  85500,  72, 136, 208, 3, 10, 17,  47,  8,  3 } }, // off the cell grid
    { gsc_asCvtOrder,   60, {  640,  480, 59,  23750,  16,  64,  80, 3,  4, 13,  29,  8,  3 } }, // the rate reached
    { gsc_asCvtOrder,   60, { 1920, 1080, 60, 138500,  48,  32,  80, 3,  5, 23,  67,  4,  4 } },
    { gsc_asCvtOrder,   60, { 3840, 2160, 60, 533250,  48,  32,  80, 3,  5, 54, 133,  4,  4 } },
    { gsc_asGtfOrder,   60, { 1920, 1080, 60, 172770, 128, 200, 328, 1,  3, 34,  67,  8,  5 } }, // sync cut, not 208
    { gsc_asGtfOrder,   60, { 1024,  768, 60,  64122,  56, 104, 160, 1,  3, 23,  47,  8,  5 } },
    // clang-format on
};

TEST(FrontDoor, EachTypeAsksItsOwnSource)
{
    for (const SWorkedCase& oCase : gsc_aoWorkedCases)
    {
        const EType eType = static_cast<EType>(oCase.m_auiExpected[gsc_uiSource]);
        SCOPED_TRACE(testing::Message() << eType << " " << oCase.m_auiExpected[0] << "x" << oCase.m_auiExpected[1]);
        CVidParamTimingGeneric oTiming(gsc_oMarked); // what stood there before is cleared
        CRecordingTiming oRecording;
        CCapturedOutput oOutput;
        for (CVidParamTiming* poTiming : std::initializer_list<CVidParamTiming*>{ &oTiming, &oRecording })
        {
            EXPECT_EQ(1, CVidParamTimingFunc::GetTiming(oCase.m_auiExpected[0], oCase.m_auiExpected[1],
                                                        oCase.m_uiAskedRateInHz, eType, *poTiming));
        }
        EXPECT_EQ("", oOutput.Take());
        EXPECT_EQ(oCase.m_auiExpected, ReadAll(oTiming));
        EXPECT_EQ(oCase.m_auiExpected[gsc_uiFlags], oTiming.GetData().uiFlags);
        EXPECT_EQ(oCase.m_asOrder, oRecording.m_asCalls);
    }
}

TEST(FrontDoor, NoSourceOrARefusalIsReportedOnceAndLeavesTheTiming)
{
    const auto Expect = [](unsigned int uiType, unsigned int uiWidth, unsigned int uiHeight) {
        CVidParamTimingGeneric oTiming(gsc_oMarked);
        CCapturedOutput oOutput;
        EXPECT_EQ(0, CVidParamTimingFunc::GetTiming(uiWidth, uiHeight, 60, static_cast<EType>(uiType), oTiming));
        EXPECT_EQ(1U, oOutput.TakeAssertionCount()) << uiType;
        EXPECT_TRUE(IsMarked(oTiming)) << uiType;
    };
    for (const unsigned int uiTypeWithoutSource : { 0U, 7U, 32U, 255U })
    {
        Expect(uiTypeWithoutSource, 1920, 1080);
    }
    Expect(CVidParamTiming::eVidParamType_Dmt, 3440, 1440); // no such row, and no formula instead
    Expect(CVidParamTiming::eVidParamType_DmtReducedBlanking, 640, 480);
    Expect(CVidParamTiming::eVidParamType_Cea, 1024, 768);
    Expect(CVidParamTiming::eVidParamType_Smpte, 1920, 1080);
    Expect(CVidParamTiming::eVidParamType_Cvt, 200, 150); // its line period is above 100 us
}
}
