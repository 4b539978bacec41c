// Totals, rates, effective clock, clock equivalence, equality and assignment: what holds for every storage class.

#include <gtest/gtest.h>

#include <string.h>

#include <utility>
#include <vector>

#include "TimingTestHelp.h"

namespace
{
CVidParamTimingGeneric MakeClock(unsigned int uiHz)
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetPixelClockInHz(uiHz);
    return oTiming;
}

// ---- Slots ----

// A member pointer to a virtual operation holds its offset in the table of its class, in bytes and plus one. The
// destructor has the first two places.
#if defined(__x86_64__)
template <class... MEMBERS>
std::vector<size_t> SlotsOf(MEMBERS... pfnMembers)
{
    const auto fnSlot = [](auto pfnMember) {
        size_t uiOffset = 0;
        memcpy(&uiOffset, &pfnMember, sizeof(uiOffset));
        return (uiOffset - 1) / sizeof(void*);
    };
    return { fnSlot(pfnMembers)... };
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
        &T::SetVideoFamilyType, &T::operator=);
    ASSERT_EQ(49U, auiSlots.size());
    for (size_t i = 0; i < auiSlots.size(); ++i)
    {
        EXPECT_EQ(i + 2, auiSlots[i]);
    }
    using G = CVidParamTimingGeneric;
    EXPECT_EQ((std::vector<size_t>{ 51, 52, 53 }),
              SlotsOf(&G::GetHorizontalTotal, &G::GetVerticalTotal, &G::IsOverscan));
    EXPECT_EQ(std::vector<size_t>{ 51 }, SlotsOf(&CRVidParamTiming::IsOverscan));
}
#endif

// ---- Totals and rates ----

TEST(DerivedValues, ProgressiveTotalsAndRatesOfBothClasses)
{
    const CVidParamTimingGeneric oGeneric(gsc_o720p);
    const CRVidParamTiming oOther(gsc_oR720p, eRVideoFamily_None);
    for (const CVidParamTiming* poTiming : std::initializer_list<const CVidParamTiming*>{ &oGeneric, &oOther })
    {
        EXPECT_EQ(1650U, poTiming->ComputeHorizontalTotalPixel());
        EXPECT_EQ(1650U, poTiming->GetHorizontalTotal());
        EXPECT_EQ(750U, poTiming->ComputeVerticalTotalLine());
        EXPECT_EQ(750U, poTiming->GetVerticalTotal());
        EXPECT_EQ(45000U, poTiming->ComputeHorizontalRateInHz());
        EXPECT_EQ(45U, poTiming->ComputeHorizontalRateInKiloHz());
        EXPECT_EQ(60U, poTiming->ComputeVerticalRateInHz());
    }
    EXPECT_EQ(0, oGeneric.IsOverscan() | oOther.IsOverscan());
}

TEST(DerivedValues, InterlacedCountsBlankingTwiceAndGivesTheFrameRate)
{
    const CVidParamTimingGeneric oTiming(gsc_o1080i);
    EXPECT_EQ(1125U, oTiming.GetVerticalTotal());
    EXPECT_EQ(1125U, oTiming.ComputeVerticalTotalLine());
    EXPECT_EQ(30U, oTiming.ComputeVerticalRateInHz());
    EXPECT_EQ(34U, oTiming.ComputeHorizontalRateInKiloHz()) << "33.75, where the 33,750 Hz would be cut to 33";
}

TEST(DerivedValues, HertzRatesComeFromTheHertzOfTheClock)
{
    CVidParamTimingGeneric oTiming = MakeClock(25175999); // 25175 kHz
    oTiming.SetHorizontalActive(800);
    EXPECT_EQ(31470U, oTiming.ComputeHorizontalRateInHz());
    oTiming.SetHorizontalActive(8);
    oTiming.SetVerticalActive(1);
    EXPECT_EQ(3147000U, oTiming.ComputeVerticalRateInHz());
}

TEST(DerivedValues, StaticRatesRoundHalfUpAndGiveNoneForAnEmptyTotal)
{
    EXPECT_EQ(31U, CVidParamTiming::ComputeHorizontalRateInKiloHz(800, 25175));   // 31.47
    EXPECT_EQ(68U, CVidParamTiming::ComputeHorizontalRateInKiloHz(1600, 108000)); // 67.5
    EXPECT_EQ(0U, CVidParamTiming::ComputeHorizontalRateInHz(0, 1));
    EXPECT_EQ(0U, CVidParamTiming::ComputeHorizontalRateInKiloHz(0, 1));
    EXPECT_EQ(0U, CVidParamTiming::ComputeVerticalRateInHz(0x10000, 0x10000, 1)) << "the product wraps to 0";
}

TEST(DerivedValues, EffectiveClockOfEveryMixOf3DAnd420)
{
    const struct
    {
        int m_b3D;
        int m_b420;
        unsigned int m_uiHz; // of 74,175,825 Hz
        unsigned int m_uiKiloHz;
    } aoCases[] = {
        { 0, 0, 74175825, 74175 },
        { 0, 1, 37087912, 37087 }, // odd halves go down
        { 1, 0, 148351650, 148350 },
        { 1, 1, 74175825, 74175 },
    };
    CVidParamTimingGeneric oTiming = MakeClock(74175825);
    CRVidParamTiming oOther;
    oOther.SetPixelClockInKiloHz(74175);
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(testing::Message() << oCase.m_b3D << oCase.m_b420);
        oTiming.Set3D(oCase.m_b3D);
        oTiming.Set420ColorSpace(oCase.m_b420);
        EXPECT_EQ(oCase.m_uiHz, oTiming.GetEffectivePixelClockInHz());
        EXPECT_EQ(oCase.m_uiKiloHz, oTiming.GetEffectivePixelClockInKiloHz());
        oOther.Set3D(2 * oCase.m_b3D); // any value but 0 counts
        oOther.Set420ColorSpace(oCase.m_b420);
        EXPECT_EQ(oCase.m_uiKiloHz, oOther.GetEffectivePixelClockInKiloHz());
    }
}

// ---- Clock equivalence ----

TEST(ClockEquivalence, WithinTheToleranceOfTheOwnClock)
{
    const struct
    {
        const char* m_szName;
        unsigned int m_uiOwnInHz;
        unsigned int m_uiOtherInHz;
        int m_iExpected;
    } aoCases[] = {
        { "equal", 74250000, 74250000, 1 },
        { "1000/1001 variant", 25175000, 25200000, 1 },
        { "low beyond a tenth", 25175000, 25210000, 0 },
        { "high within a half", 148500000, 147800000, 1 },
        { "the same ratio, low", 74250000, 73900000, 0 },
        { "high beyond a half", 148500000, 147700000, 0 },      // 53 ten-thousandths
        { "75,000 kHz is still tight", 75000000, 74850000, 0 }, // 20 ten-thousandths
        { "75,001 kHz is loose", 75001000, 74850000, 1 },
        { "the ratio is truncated", 75000000, 75082000, 1 },        // 10.9 ten-thousandths
        { "the ratio is of the larger", 100000000, 100512000, 1 },  // 50.9 ten-thousandths, of the smaller 51.2
        { "the product needs 64 bits", 1000000000, 1429497000, 0 }, // difference times 10000 just above 32 bits
        { "below one kilohertz is no difference", 1000000, 1000999, 1 },
        { "own zero", 0, 1000, 0 },
        { "other zero", 74250000, 0, 0 },
        { "both zero", 0, 0, 1 },
        { "other under one kilohertz", 1000, 999, 0 },
        { "both under one kilohertz", 999, 500, 0 },
        { "the same hertz under one kilohertz", 999, 999, 1 },
    };
    for (const auto& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_iExpected, MakeClock(oCase.m_uiOwnInHz).IsPixelClockInHzEquivalent(oCase.m_uiOtherInHz))
            << oCase.m_szName;
    }
}

TEST(ClockEquivalence, KiloHertzFormWrapsAt32Bits)
{
    EXPECT_EQ(1, MakeClock(75200000).IsPixelClockInKiloHzEquivalent(75000));
    EXPECT_EQ(1, MakeClock(704).IsPixelClockInKiloHzEquivalent(4294968)) << "704 Hz beyond 32 bits";
}

// ---- Equality ----

// Of 720p on both classes, against the class in hertz.
void ExpectAfterChange(int iEqual, const SChange& oChange)
{
    const CVidParamTimingGeneric oOriginal(gsc_o720p);
    CVidParamTimingGeneric oGeneric(gsc_o720p);
    CRVidParamTiming oOther(gsc_oR720p, eRVideoFamily_None);
    for (CVidParamTiming* poChanged : std::initializer_list<CVidParamTiming*>{ &oGeneric, &oOther })
    {
        EXPECT_EQ(1, oOriginal == *poChanged) << oChange.m_szName;
        oChange.m_fnApply(*poChanged);
        EXPECT_EQ(iEqual, oOriginal == *poChanged) << oChange.m_szName;
        EXPECT_EQ(1 - iEqual, oOriginal != *poChanged) << oChange.m_szName;
    }
}

TEST(Equality, WhatCountsAndWhatDoesNot)
{
    for (const SChange& oChange : gsc_aoGeometryChanges)
    {
        ExpectAfterChange(0, oChange);
    }
    const std::pair<int, SChange> aoOtherChanges[] = {
        { 0, { "4:2:0", [](CVidParamTiming& o) { o.Set420ColorSpace(1); } } },
        { 0, { "3D", [](CVidParamTiming& o) { o.Set3D(1); } } },
        { 1, { "line rate 1 kHz up", [](CVidParamTiming& o) { o.SetHorizontalRateInKiloHz(46); } } },
        { 1, { "line rate 1 kHz down", [](CVidParamTiming& o) { o.SetHorizontalRateInKiloHz(44); } } },
        { 0, { "line rate 2 kHz up", [](CVidParamTiming& o) { o.SetHorizontalRateInKiloHz(47); } } },
        { 0, { "line rate 2 kHz down", [](CVidParamTiming& o) { o.SetHorizontalRateInKiloHz(43); } } },
        { 1, { "1000/1001 clock", [](CVidParamTiming& o) { o.SetPixelClockInKiloHz(74176); } } },
        { 0, { "another clock", [](CVidParamTiming& o) { o.SetPixelClockInKiloHz(73900); } } },
        { 1, { "horizontal polarity", [](CVidParamTiming& o) { o.SetHorizontalPolarityPositive(0); } } },
        { 1, { "vertical polarity", [](CVidParamTiming& o) { o.SetVerticalPolarityPositive(0); } } },
        { 1, { "source", [](CVidParamTiming& o) { o.SetVideoFamilyType(CVidParamTiming::eVidParamType_Smpte); } } },
    };
    for (const auto& [iEqual, oChange] : aoOtherChanges)
    {
        ExpectAfterChange(iEqual, oChange);
    }
}

TEST(Equality, ClockIsAskedOfTheLeftSide)
{
    CVidParamTimingGeneric oLow(gsc_o720p);
    CVidParamTimingGeneric oHigh(gsc_o720p);
    oLow.SetPixelClockInKiloHz(75000);  // 0.10 %
    oHigh.SetPixelClockInKiloHz(75200); // 0.50 %; they are 0.26 % apart
    EXPECT_EQ(0, oLow == oHigh);
    EXPECT_EQ(1, oHigh == oLow);
    EXPECT_EQ(1, oLow != oHigh);
    EXPECT_EQ(0, oHigh != oLow);
}

TEST(Equality, FlagsCompareAsStoredValues)
{
    CRVidParamTiming oOne(gsc_oR720p, eRVideoFamily_None);
    CRVidParamTiming oTwo(gsc_oR720p, eRVideoFamily_None);
    oOne.Set3D(1);
    oTwo.Set3D(2);
    EXPECT_EQ(0, oOne == oTwo);
}

// ---- Assignment ----

TEST(Assignment, GoesThroughTheStoredHertzBetweenTheStorageClasses)
{
    for (const auto& [b3D, b420] : { std::pair{ 0, 1 }, std::pair{ 1, 0 }, std::pair{ 1, 1 } })
    {
        SCOPED_TRACE(testing::Message() << b3D << b420);
        CVidParamTimingGeneric oGeneric(gsc_o1080i);
        oGeneric.SetPixelClockInHz(74175824);
        oGeneric.SetHorizontalRateInHz(33716);
        oGeneric.SetVerticalPolarityPositive(0);
        oGeneric.Set3D(b3D);
        oGeneric.Set420ColorSpace(b420);
        CAllValues auiExpected = ReadAll(oGeneric);
        auiExpected[gsc_uiClockInKiloHz] = 74176; // rounded, where oGeneric itself reads 74175
        auiExpected[gsc_uiLineRateInKiloHz] = 34;

        CRVidParamTiming oOther;
        oOther = oGeneric;
        EXPECT_EQ(auiExpected, ReadAll(oOther));
        EXPECT_EQ(b3D, oOther.Is3D());
        EXPECT_EQ(b420, oOther.Is420ColorSpace());

        CVidParamTimingGeneric oBack;
        oBack = oOther;
        EXPECT_EQ(auiExpected, ReadAll(oBack));
        EXPECT_EQ(74176000U, oBack.GetPixelClockInHz());
    }
}

TEST(Assignment, TakesFlagsBackThatStoodThere)
{
    SVidParamGenericData oPlain = gsc_o720p;
    oPlain.uiFlags = 0;
    CRVidParamTiming oOther;
    oOther = CVidParamTimingGeneric(gsc_o1080i);
    oOther = CVidParamTimingGeneric(oPlain);
    EXPECT_EQ(0U, ReadAll(oOther)[gsc_uiFlags]);
}

TEST(Assignment, OfOneClassCopiesTheRecordThroughTheBaseOnlyItsFields)
{
    SVidParamGenericData oData = gsc_o720p;
    oData.uiFlags |= CVidParamTimingGeneric::eFlag_BottomFieldFirst;
    const CVidParamTimingGeneric oSource(oData);

    CVidParamTimingGeneric oTarget;
    oTarget = oSource;
    EXPECT_EQ(oData.uiFlags, oTarget.GetData().uiFlags);

    CVidParamTimingGeneric oThroughBase;
    static_cast<CVidParamTiming&>(oThroughBase) = oSource;
    EXPECT_EQ(gsc_o720p.uiFlags, oThroughBase.GetData().uiFlags);
}

TEST(Assignment, OfTheKiloHertzClassCopiesWhatHertzCannotCarry)
{
    tagRVideo_VidParam oRecord = gsc_oR720p;
    oRecord.uiPixelClockInKiloHz = 4294968; // wraps in hertz
    oRecord.auiReserved[1] = 7;
    CRVidParamTiming oSource(oRecord, static_cast<RVideo_VidParamFamily>(9));
    oSource.SetBottomFieldFirst(1);
    oSource.Set3D(2);
    oSource.Set420ColorSpace(4);

    CRVidParamTiming oTarget(tagRVideo_VidParam{}, eRVideoFamily_Cea);
    oTarget = oSource;
    EXPECT_EQ(4294968U, oTarget.GetPixelClockInKiloHz());
    EXPECT_EQ(7U, oTarget.GetRVideoVidParam().auiReserved[1]);
    EXPECT_EQ(1, oTarget.GetBottomFieldFirst());
    EXPECT_EQ(2, oTarget.Is3D());
    EXPECT_EQ(4, oTarget.Is420ColorSpace());
    EXPECT_EQ(CVidParamTiming::eVidParamType_Unknown, oTarget.GetVideoFamilyType());

    CVidParamTiming& oSelf = oTarget;
    oSelf = oTarget; // to itself, field by field: would wrap the clock if it did anything
    EXPECT_EQ(4294968U, oTarget.GetPixelClockInKiloHz());
}
}
