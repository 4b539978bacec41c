// How producers use a timing: the order in which they write it, and that derived values read every term of it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TimingTestHelp.h"
#include "VidParamCea.h"
#include "VidParamCvt.h"
#include "VidParamDmt.h"
#include "VidParamGtf.h"
#include "VidParamSmpte.h"

namespace
{
using Names = std::vector<std::string>;

// Keeps the names of its setters in the order of the calls, and has the overscan that no storage class has.
class CRecordingTiming : public CVidParamTimingGeneric
{
public:
    static constexpr unsigned int msc_uiHorizontalOverscan = 1000;
    static constexpr unsigned int msc_uiVerticalOverscan = 100;

    using CVidParamTimingGeneric::CVidParamTimingGeneric;
    using CVidParamTiming::operator=;

    Names m_asCalls;

    unsigned int GetHorizontalOverscan() const override { return msc_uiHorizontalOverscan; }
    unsigned int GetVerticalOverscan() const override { return msc_uiVerticalOverscan; }

    // clang-format off
    void ClearData() override { Note("ClearData"); CVidParamTimingGeneric::ClearData(); }
    void SetHorizontalActive(unsigned int ui) override { Note("HActive"); CVidParamTimingGeneric::SetHorizontalActive(ui); }
    void SetVerticalActive(unsigned int ui) override { Note("VActive"); CVidParamTimingGeneric::SetVerticalActive(ui); }
    void SetPixelClockInHz(unsigned int ui) override { Note("ClockHz"); CVidParamTimingGeneric::SetPixelClockInHz(ui); }
    void SetPixelClockInKiloHz(unsigned int ui) override { Note("ClockKiloHz"); CVidParamTimingGeneric::SetPixelClockInKiloHz(ui); }
    void SetHorizontalRateInHz(unsigned int ui) override { Note("HRateHz"); CVidParamTimingGeneric::SetHorizontalRateInHz(ui); }
    void SetHorizontalRateInKiloHz(unsigned int ui) override { Note("HRateKiloHz"); CVidParamTimingGeneric::SetHorizontalRateInKiloHz(ui); }
    void SetHorizontalFrontPorch(unsigned int ui) override { Note("HFront"); CVidParamTimingGeneric::SetHorizontalFrontPorch(ui); }
    void SetHorizontalSync(unsigned int ui) override { Note("HSync"); CVidParamTimingGeneric::SetHorizontalSync(ui); }
    void SetHorizontalBackPorch(unsigned int ui) override { Note("HBack"); CVidParamTimingGeneric::SetHorizontalBackPorch(ui); }
    void SetHorizontalPolarityPositive(int b) override { Note("HPolarity"); CVidParamTimingGeneric::SetHorizontalPolarityPositive(b); }
    void SetVerticalRateInHz(unsigned int ui) override { Note("VRate"); CVidParamTimingGeneric::SetVerticalRateInHz(ui); }
    void SetVerticalFrontPorch(unsigned int ui) override { Note("VFront"); CVidParamTimingGeneric::SetVerticalFrontPorch(ui); }
    void SetVerticalSync(unsigned int ui) override { Note("VSync"); CVidParamTimingGeneric::SetVerticalSync(ui); }
    void SetVerticalBackPorch(unsigned int ui) override { Note("VBack"); CVidParamTimingGeneric::SetVerticalBackPorch(ui); }
    void SetVerticalPolarityPositive(int b) override { Note("VPolarity"); CVidParamTimingGeneric::SetVerticalPolarityPositive(b); }
    void SetInterlaced(int b) override { Note("Interlaced"); CVidParamTimingGeneric::SetInterlaced(b); }
    void Set420ColorSpace(int b) override { Note("420"); CVidParamTimingGeneric::Set420ColorSpace(b); }
    void Set3D(int b) override { Note("3D"); CVidParamTimingGeneric::Set3D(b); }
    void SetVideoFamilyType(EVidParamType e) override { Note("Type"); CVidParamTimingGeneric::SetVideoFamilyType(e); }
    // clang-format on

private:
    void Note(const char* pszName) { m_asCalls.emplace_back(pszName); }
};

// ---- Order of writing ----

const Names gsc_asAssignmentOrder = { "HActive", "VActive", "Interlaced", "420",       "3D",        "ClockHz",
                                      "HRateHz", "HFront",  "HSync",      "HBack",     "HPolarity", "VRate",
                                      "VFront",  "VSync",   "VBack",      "VPolarity", "Type" };
// Sizes and clock stand before the line rate that is derived from them.
const Names gsc_asTableOrder = { "ClearData", "HActive",   "HFront",     "HSync",       "HBack", "VActive",
                                 "VFront",    "VSync",     "VBack",      "ClockKiloHz", "VRate", "HRateHz",
                                 "HPolarity", "VPolarity", "Interlaced", "Type" };
const Names gsc_asCvtOrder = { "ClearData", "HRateKiloHz", "ClockKiloHz", "VRate", "HFront", "HSync",
                               "HBack",     "HActive",     "VFront",      "VSync", "VBack",  "VActive",
                               "VPolarity", "HPolarity",   "Interlaced",  "Type" };
const Names gsc_asNothing;
const Names gsc_asGtfOrder = { "ClearData", "HActive",   "VActive",    "VRate",  "HRateKiloHz", "ClockKiloHz",
                               "HFront",    "HSync",     "HBack",      "VFront", "VSync",       "VBack",
                               "VPolarity", "HPolarity", "Interlaced", "Type" };

struct SProducerCase
{
    const char* m_szName;
    const Names& m_asOrder;
    void (*m_fnWrite)(CRecordingTiming&);
};

const SProducerCase gsc_aoProducers[] = {
    { "Assignment", gsc_asAssignmentOrder,
      [](CRecordingTiming& oTiming) { oTiming = CRVidParamTiming(gsc_oR720p, eRVideoFamily_Cea); } },
    { "CeaRow", gsc_asTableOrder,
      [](CRecordingTiming& oTiming) { CVidParamCea::ConvertVidParam(CVidParamCea::msc_aoCea861FTable[0], oTiming); } },
    { "DmtRow", gsc_asTableOrder,
      [](CRecordingTiming& oTiming) {
          CVidParamDmt::ConvertVidParam({ 1366, 768, 60, 72000, 14, 56, 64, 1, 3, 28, 140 }, oTiming);
      } },
    { "SmpteRow", gsc_asTableOrder,
      [](CRecordingTiming& oTiming) {
          CVidParamSmpte::ConvertVidParam({ 1, 2048, 1080, 60, 148500, 24, 44, 84, 4, 5, 36, 12 }, oTiming);
      } },
    { "Cvt", gsc_asCvtOrder,
      [](CRecordingTiming& oTiming) { EXPECT_EQ(1, CVidParamCvt::GetVidParam(1366, 768, 60, 0, &oTiming)); } },
    { "CvtReduced", gsc_asCvtOrder,
      [](CRecordingTiming& oTiming) { EXPECT_EQ(1, CVidParamCvt::GetVidParam(1366, 768, 60, 1, &oTiming)); } },
    { "Gtf", gsc_asGtfOrder,
      [](CRecordingTiming& oTiming) { EXPECT_EQ(1, CVidParamGtf::GetVidParam(1366, 768, 60, &oTiming)); } },
    { "RefusedCvt", gsc_asNothing, // of a line period above 100 us
      [](CRecordingTiming& oTiming) { EXPECT_EQ(0, CVidParamCvt::GetVidParam(200, 150, 60, 0, &oTiming)); } },
};

class Producer : public testing::TestWithParam<SProducerCase>
{
};

TEST_P(Producer, WritesEachValueOnceInItsOrder)
{
    CRecordingTiming oTiming;
    GetParam().m_fnWrite(oTiming);
    EXPECT_EQ(GetParam().m_asOrder, oTiming.m_asCalls);
}

INSTANTIATE_TEST_SUITE_P(Cases, Producer, testing::ValuesIn(gsc_aoProducers),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_szName); });

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
    CVidParamTiming const& oBase = oInterlaced;
    EXPECT_EQ(1125U + 2 * 100, oBase.GetVerticalTotal());
    EXPECT_EQ(2200U + 1000, oBase.GetHorizontalTotal());
}

TEST(Overscan, IsNoPartOfEquality)
{
    const CVidParamTimingGeneric oPlain(gsc_o720p);
    const CRecordingTiming oOverscanned(gsc_o720p);
    EXPECT_EQ(1, oPlain == oOverscanned);
    EXPECT_EQ(1, oOverscanned == oPlain);
}
}
