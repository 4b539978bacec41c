// How producers use a timing: the order in which they write it, and that derived values read every term of it.

#include <gtest/gtest.h>

#include "RecordingTiming.h"
#include "TimingTestHelp.h"
#include "VidParamCea.h"
#include "VidParamCvt.h"
#include "VidParamDmt.h"
#include "VidParamGtf.h"
#include "VidParamSmpte.h"

namespace
{
// ---- Order of writing ----

const CCallNames gsc_asAssignmentOrder = { "HActive", "VActive", "Interlaced", "420",       "3D",        "ClockHz",
                                           "HRateHz", "HFront",  "HSync",      "HBack",     "HPolarity", "VRate",
                                           "VFront",  "VSync",   "VBack",      "VPolarity", "Type" };
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

TEST(Producers, WriteEachValueOnceInTheirOrder)
{
    const struct
    {
        const char* m_szName;
        CCallNames m_asOrder;
        void (*m_fnWrite)(CRecordingTiming&);
    } aoCases[] = {
        { "assignment", gsc_asAssignmentOrder,
          [](CRecordingTiming& o) { o = CRVidParamTiming(gsc_oR720p, eRVideoFamily_Cea); } },
        { "CEA-861 row", gsc_asTableOrder,
          [](CRecordingTiming& o) { CVidParamCea::ConvertVidParam(CVidParamCea::msc_aoCea861FTable[0], o); } },
        { "DMT row", gsc_asTableOrder,
          [](CRecordingTiming& o) {
              CVidParamDmt::ConvertVidParam({ 1366, 768, 60, 72000, 14, 56, 64, 1, 3, 28, 140 }, o);
          } },
        { "SMPTE row", gsc_asTableOrder,
          [](CRecordingTiming& o) {
              CVidParamSmpte::ConvertVidParam({ 1, 2048, 1080, 60, 148500, 24, 44, 84, 4, 5, 36, 12 }, o);
          } },
        { "CVT", gsc_asCvtOrder,
          [](CRecordingTiming& o) { EXPECT_EQ(1, CVidParamCvt::GetVidParam(1366, 768, 60, 0, &o)); } },
        { "reduced CVT", gsc_asCvtOrder,
          [](CRecordingTiming& o) { EXPECT_EQ(1, CVidParamCvt::GetVidParam(1366, 768, 60, 1, &o)); } },
        { "GTF", gsc_asGtfOrder,
          [](CRecordingTiming& o) { EXPECT_EQ(1, CVidParamGtf::GetVidParam(1366, 768, 60, &o)); } },
        { "refused CVT",
          {}, // of a line period above 100 us
          [](CRecordingTiming& o) { EXPECT_EQ(0, CVidParamCvt::GetVidParam(200, 150, 60, 0, &o)); } },
    };
    for (const auto& oCase : aoCases)
    {
        CRecordingTiming oTiming;
        oCase.m_fnWrite(oTiming);
        EXPECT_EQ(oCase.m_asOrder, oTiming.m_asCalls) << oCase.m_szName;
    }
}

// ---- Overscan ----

TEST(Overscan, IsPartOfTheTotalsAndOfTheRates)
{
    const CRecordingTiming oProgressive(gsc_o720p);
    EXPECT_EQ(1650U + 1000, oProgressive.ComputeHorizontalTotalPixel());
    EXPECT_EQ(1650U + 1000, oProgressive.GetHorizontalTotal());
    EXPECT_EQ(750U + 100, oProgressive.ComputeVerticalTotalLine());
    EXPECT_EQ(750U + 100, oProgressive.GetVerticalTotal());
    EXPECT_EQ(28019U, oProgressive.ComputeHorizontalRateInHz()); // 74,250,000 over 2650 is 28,018.9
    EXPECT_EQ(28U, oProgressive.ComputeHorizontalRateInKiloHz());
    EXPECT_EQ(33U, oProgressive.ComputeVerticalRateInHz()); // over 850 it is 32.96

    const CRecordingTiming oInterlaced(gsc_o1080i);
    EXPECT_EQ(1125U + 2 * 100, oInterlaced.ComputeVerticalTotalLine()); // that of one field counts twice

    EXPECT_EQ(1, oProgressive == CVidParamTimingGeneric(gsc_o720p)) << "but no part of equality";
}
}
