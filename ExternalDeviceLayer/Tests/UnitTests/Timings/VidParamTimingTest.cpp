// The timing and its two storage classes: slots, stored and derived values, clock equivalence, equality, assignment.
// NumbersCheck.h stores, derives, compares and assigns any numbers; here is what it does not reach.

#include <gtest/gtest.h>
#include <string.h>

#include <array>
#include <bit>

#include "CaseFile.h"
#include "RecordingTiming.h"
#include "TimingValues.h"
#include "VidParamCea.h"

namespace
{
// 720p at 60 Hz, and 1080i at 60 fields a second, as in TimingValues.h.
const CAllValues gsc_aui720p = { 1280, 720, 60, 74250, 110, 40, 220, 5, 5, 20, 45, 4 | 8, 6 };
const CAllValues gsc_aui1080i = { 1920, 1080, 30, 74250, 88, 44, 148, 2, 5, 15, 33, 1 | 4 | 8, 6 };

template <class TIMING = CVidParamTimingGeneric>
TIMING MakeTiming(const CAllValues& auiValues)
{
    TIMING oTiming;
    WriteAll(oTiming, auiValues);
    return oTiming;
}

// A member pointer to a virtual operation holds its offset in the table of its class, in bytes and plus one. The
// destructor has the first two places.
#if defined(__x86_64__)
template <class... MEMBERS>
std::vector<size_t> SlotsOf(MEMBERS... pfnMembers)
{
    return { (std::bit_cast<std::array<size_t, 2>>(pfnMembers)[0] - 1) / sizeof(void*)... };
}

TEST(Slots, StandInTheirOrder)
{
    using T = CVidParamTiming;
    using FnCompute = unsigned int (T::*)() const; // not the static form
    const std::vector<size_t> auiSlots = SlotsOf(
        &T::ClearData, &T::GetHorizontalActive, &T::GetVerticalActive, &T::IsInterlaced, &T::Is420ColorSpace, &T::Is3D,
        &T::GetPixelClockInHz, &T::GetPixelClockInKiloHz, &T::GetEffectivePixelClockInHz,
        &T::GetEffectivePixelClockInKiloHz, &T::GetHorizontalRateInHz, &T::GetHorizontalRateInKiloHz,
        &T::GetHorizontalFrontPorch, &T::GetHorizontalSync, &T::GetHorizontalBackPorch, &T::GetHorizontalOverscan,
        &T::IsHorizontalPolarityPositive, &T::GetVerticalRateInHz, &T::GetVerticalFrontPorch, &T::GetVerticalSync,
        &T::GetVerticalBackPorch, &T::IsVerticalPolarityPositive, &T::GetVerticalOverscan, &T::GetVideoFamilyType,
        FnCompute{ &T::ComputeHorizontalTotalPixel }, FnCompute{ &T::ComputeVerticalTotalLine },
        FnCompute{ &T::ComputeHorizontalRateInHz }, FnCompute{ &T::ComputeHorizontalRateInKiloHz },
        FnCompute{ &T::ComputeVerticalRateInHz }, &T::SetHorizontalActive, &T::SetVerticalActive, &T::SetPixelClockInHz,
        &T::SetPixelClockInKiloHz, &T::SetHorizontalRateInHz, &T::SetHorizontalRateInKiloHz,
        &T::SetHorizontalFrontPorch, &T::SetHorizontalSync, &T::SetHorizontalBackPorch,
        &T::SetHorizontalPolarityPositive, &T::SetVerticalRateInHz, &T::SetVerticalFrontPorch, &T::SetVerticalSync,
        &T::SetVerticalBackPorch, &T::SetVerticalPolarityPositive, &T::SetInterlaced, &T::Set420ColorSpace, &T::Set3D,
        &T::SetVideoFamilyType, &T::operator=, &CVidParamTimingGeneric::GetHorizontalTotal,
        &CVidParamTimingGeneric::GetVerticalTotal, &CVidParamTimingGeneric::IsOverscan);
    ASSERT_EQ(52U, auiSlots.size());
    for (size_t i = 0; i < auiSlots.size(); ++i)
    {
        EXPECT_EQ(i + 2, auiSlots[i]);
    }
    EXPECT_EQ(std::vector<size_t>{ 51 }, SlotsOf(&CRVidParamTiming::IsOverscan));
}
#endif

// Of a flag bit 0 counts. 3D and 4:2:0 are not part of the record in kilohertz: as given, and not cleared.
TEST(Storage, FlagsAndClearing)
{
    CVidParamTimingGeneric oInHz(gsc_oMarked);
    CRVidParamTiming oInKiloHz = MakeTiming<CRVidParamTiming>(gsc_aui720p);
    EXPECT_EQ(0, oInHz.IsOverscan() | oInKiloHz.IsOverscan());
    for (CVidParamTiming* poTiming : std::initializer_list<CVidParamTiming*>{ &oInHz, &oInKiloHz })
    {
        for (const int iValue : { 2, 3, -1 })
        {
            poTiming->SetInterlaced(iValue);
            poTiming->SetHorizontalPolarityPositive(iValue);
            poTiming->SetVerticalPolarityPositive(iValue);
            EXPECT_EQ(iValue == 2 ? 0 : 3, poTiming->IsInterlaced() + poTiming->IsHorizontalPolarityPositive() +
                                               poTiming->IsVerticalPolarityPositive());
        }
        poTiming->ClearData();
        EXPECT_EQ(gsc_auiCleared, ReadAll(*poTiming));
    }
    oInHz.Set420ColorSpace(3);
    oInHz.Set3D(2);
    EXPECT_EQ(16U, oInHz.GetData().uiFlags);
    EXPECT_EQ(1, oInHz.Is420ColorSpace());

    oInKiloHz.Set3D(1);
    oInKiloHz.Set420ColorSpace(2);
    oInKiloHz.SetBottomFieldFirst(3);
    EXPECT_EQ(2U, oInKiloHz.GetRVideoVidParam().uiFlags);
    EXPECT_EQ(1, oInKiloHz.GetBottomFieldFirst());
    oInKiloHz.SetBottomFieldFirst(2);
    EXPECT_EQ(0, oInKiloHz.GetBottomFieldFirst());
    oInKiloHz.SetPixelClockInKiloHz(74250);
    EXPECT_EQ(74250U, oInKiloHz.GetEffectivePixelClockInKiloHz()) << "any value but 0";
    oInKiloHz.ClearData();
    EXPECT_EQ(1, oInKiloHz.Is3D());
    EXPECT_EQ(2, oInKiloHz.Is420ColorSpace());
}

// A part of totals and rates, twice where it is that of a field, but not of equality: here 1000 pixels, 100 lines.
TEST(DerivedValues, Overscan)
{
    const auto oProgressive = MakeTiming<CRecordingTiming>(gsc_aui720p);
    EXPECT_EQ(1650U + 1000, oProgressive.ComputeHorizontalTotalPixel());
    EXPECT_EQ(750U + 100, oProgressive.ComputeVerticalTotalLine());
    EXPECT_EQ(28019U, oProgressive.ComputeHorizontalRateInHz());
    EXPECT_EQ(33U, oProgressive.ComputeVerticalRateInHz());
    EXPECT_EQ(1125U + 200, MakeTiming<CRecordingTiming>(gsc_aui1080i).ComputeVerticalTotalLine());
    EXPECT_EQ(1, oProgressive == MakeTiming(gsc_aui720p));
}

TEST(ClockEquivalence, WithinTheToleranceOfTheOwnClock)
{
    CVidParamTimingGeneric oTiming;
    for (const SCaseRow& oRow : ReadCases("Timings/golden/clocks.txt", 4))
    {
        oTiming.SetPixelClockInHz(oRow.GetNumber(1));
        EXPECT_EQ(oRow.GetText(3), std::to_string(oTiming.IsPixelClockInHzEquivalent(oRow.GetNumber(2))))
            << oRow.GetName();
    }
    oTiming.SetPixelClockInHz(704);
    EXPECT_EQ(1, oTiming.IsPixelClockInKiloHzEquivalent(4294968)) << "704 Hz beyond 32 bits";
}

TEST(Equality, WhatCountsForItAndForTheCode)
{
    const CVidParamTimingGeneric oOriginal = MakeTiming(gsc_aui720p);
    for (const SCaseRow& oRow : ReadCases("Timings/golden/equality.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        CVidParamTimingGeneric oInHz;
        CRVidParamTiming oInKiloHz;
        for (CVidParamTiming* poChanged : std::initializer_list<CVidParamTiming*>{ &oInHz, &oInKiloHz })
        {
            WriteAll(*poChanged, oRow.GetNumbers(1));
            const int iEqual = static_cast<int>(oRow.GetNumber(2));
            EXPECT_EQ(iEqual, oOriginal == *poChanged);
            EXPECT_EQ(1 - iEqual, oOriginal != *poChanged);
            unsigned int uiVic = 99;
            EXPECT_EQ(oRow.GetNumber(3) != 0 ? 1 : 0, CVidParamCea::GetVicFromVidParam(*poChanged, uiVic));
            EXPECT_EQ(oRow.GetNumber(3), uiVic);
        }
    }
}

TEST(Equality, AsksTheClockOfTheLeftSide)
{
    CVidParamTimingGeneric oLow;
    CVidParamTimingGeneric oHigh;
    oLow.SetPixelClockInKiloHz(75000);  // 0.10 %
    oHigh.SetPixelClockInKiloHz(75200); // 0.50 %; they are 0.26 % apart
    EXPECT_EQ(0, oLow == oHigh);
    EXPECT_EQ(1, oHigh == oLow);
}

TEST(Assignment, WritesEachValueOnceInItsOrder)
{
    const CCallNames asExpected = { "HActive", "VActive", "Interlaced", "420",       "3D",        "ClockHz",
                                    "HRateHz", "HFront",  "HSync",      "HBack",     "HPolarity", "VRate",
                                    "VFront",  "VSync",   "VBack",      "VPolarity", "Type" };
    CRecordingTiming oRecording;
    oRecording = MakeTiming<CRVidParamTiming>(gsc_aui720p);
    EXPECT_EQ(asExpected, oRecording.m_asCalls);
}

// Bottom field first, and a clock that wraps in hertz, are in the records alone. To itself nothing is assigned.
TEST(Assignment, OfOneClassCopiesTheRecord)
{
    CVidParamTimingGeneric oInHz;
    oInHz = CVidParamTimingGeneric(gsc_oMarked);
    EXPECT_EQ(0, memcmp(&gsc_oMarked, &oInHz.GetData(), sizeof(gsc_oMarked)));

    const tagRVideo_VidParam oRecord = { 1, 2, 3, 4, 4294968, 6, 7, 8, 9, 10, 11, 2, { 0, 7 } };
    CRVidParamTiming oSource(oRecord, static_cast<RVideo_VidParamFamily>(9));
    oSource.Set3D(2);
    oSource.Set420ColorSpace(4);
    CRVidParamTiming oTarget(tagRVideo_VidParam{}, eRVideoFamily_Cea);
    oTarget = oSource;
    CVidParamTiming& oSelf = oTarget;
    oSelf = oTarget;
    EXPECT_EQ(0, memcmp(&oRecord, &oTarget.GetRVideoVidParam(), sizeof(oRecord)));
    EXPECT_EQ(2, oTarget.Is3D());
    EXPECT_EQ(4, oTarget.Is420ColorSpace());
    EXPECT_EQ(CVidParamTiming::eVidParamType_Unknown, oTarget.GetVideoFamilyType());
}
} // namespace
