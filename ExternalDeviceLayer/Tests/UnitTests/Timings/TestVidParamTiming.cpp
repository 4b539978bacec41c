// Totals, rates, effective clock, clock equivalence, equality and assignment: what holds for every storage class.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "TimingTestHelp.h"

namespace
{
CVidParamTimingGeneric MakeClock(unsigned int uiKiloHz)
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetPixelClockInKiloHz(uiKiloHz);
    return oTiming;
}

// ---- Totals and rates ----

TEST(DerivedValues, ProgressiveTotalsAndRates)
{
    const CVidParamTimingGeneric oTiming(gsc_o720p);
    EXPECT_EQ(1650U, oTiming.ComputeHorizontalTotalPixel());
    EXPECT_EQ(1650U, oTiming.GetHorizontalTotal());
    EXPECT_EQ(750U, oTiming.ComputeVerticalTotalLine());
    EXPECT_EQ(750U, oTiming.GetVerticalTotal());
    EXPECT_EQ(45000U, oTiming.ComputeHorizontalRateInHz());
    EXPECT_EQ(45U, oTiming.ComputeHorizontalRateInKiloHz());
    EXPECT_EQ(60U, oTiming.ComputeVerticalRateInHz());
    EXPECT_EQ(0, oTiming.IsOverscan());
}

TEST(DerivedValues, InterlacedCountsBlankingTwiceAndGivesTheFrameRate)
{
    const CVidParamTimingGeneric oTiming(gsc_o1080i);
    EXPECT_EQ(1125U, oTiming.GetVerticalTotal());
    EXPECT_EQ(1125U, oTiming.ComputeVerticalTotalLine());
    EXPECT_EQ(30U, oTiming.ComputeVerticalRateInHz());
}

TEST(DerivedValues, TotalsAreReachableThroughTheBaseAlike)
{
    const CVidParamTimingGeneric oGeneric(gsc_o720p);
    const CRVidParamTiming oOther(gsc_oR720p, eRVideoFamily_None);
    for (const CVidParamTiming* poTiming : std::initializer_list<const CVidParamTiming*>{ &oGeneric, &oOther })
    {
        EXPECT_EQ(1650U, poTiming->GetHorizontalTotal());
        EXPECT_EQ(750U, poTiming->GetVerticalTotal());
    }
}

TEST(DerivedValues, StaticFormsTakeTheirArgumentsInTheirOwnOrder)
{
    EXPECT_EQ(1280U + 40 + 110 + 220 + 3, CVidParamTiming::ComputeHorizontalTotalPixel(1280, 40, 110, 220, 3));
    EXPECT_EQ(1080U + 2 * (2 + 5 + 15 + 1) + 1, CVidParamTiming::ComputeVerticalTotalLine(1080, 2, 5, 15, 1, 2));
    EXPECT_EQ(0xFFFFFFFFU + 1U + 2U, CVidParamTiming::ComputeHorizontalTotalPixel(0xFFFFFFFF, 1, 2, 0, 0)) << "wraps";
}

TEST(DerivedValues, LineRateInKiloHertzIsRoundedOnce)
{
    EXPECT_EQ(31U, CVidParamTiming::ComputeHorizontalRateInKiloHz(800, 25175));   // 31.47
    EXPECT_EQ(68U, CVidParamTiming::ComputeHorizontalRateInKiloHz(1600, 108000)); // a half goes up
    EXPECT_EQ(31469U, CVidParamTiming::ComputeHorizontalRateInHz(800, 25175000));
}

TEST(DerivedValues, EmptyTotalsGiveNoRateAndNoTrap)
{
    EXPECT_EQ(0U, CVidParamTiming::ComputeHorizontalRateInHz(0, 1));
    EXPECT_EQ(0U, CVidParamTiming::ComputeHorizontalRateInKiloHz(0, 1));
    EXPECT_EQ(0U, CVidParamTiming::ComputeVerticalRateInHz(0, 1, 1));
    EXPECT_EQ(0U, CVidParamTiming::ComputeVerticalRateInHz(0x10000, 0x10000, 1)) << "the product wraps to 0";
}

struct SEffectiveClockCase
{
    int m_b3D;
    int m_b420;
    unsigned int m_uiHz;
    unsigned int m_uiKiloHz;
};

TEST(DerivedValues, EffectiveClockOfEveryMixOf3DAnd420)
{
    const SEffectiveClockCase aoCases[] = {
        { 0, 0, 74175825, 74175 },
        { 0, 1, 37087912, 37087 }, // odd halves go down
        { 1, 0, 148351650, 148350 },
        { 1, 1, 74175825, 74175 },
    };
    CVidParamTimingGeneric oTiming;
    oTiming.SetPixelClockInHz(74175825);
    for (const SEffectiveClockCase& oCase : aoCases)
    {
        oTiming.Set3D(oCase.m_b3D);
        oTiming.Set420ColorSpace(oCase.m_b420);
        EXPECT_EQ(oCase.m_uiHz, oTiming.GetEffectivePixelClockInHz()) << oCase.m_b3D << oCase.m_b420;
        EXPECT_EQ(oCase.m_uiKiloHz, oTiming.GetEffectivePixelClockInKiloHz()) << oCase.m_b3D << oCase.m_b420;
    }
}

// ---- Clock equivalence ----

struct SClockCase
{
    const char* m_szName;
    unsigned int m_uiOwnInKiloHz;
    unsigned int m_uiOtherInHz;
    int m_iExpected;
};

const SClockCase gsc_aoClockCases[] = {
    { "Equal", 74250, 74250000, 1 },
    { "Variant_25175", 25175, 25200000, 1 },
    { "Variant_74250", 74250, 74176000, 1 },
    { "Variant_148500", 148500, 148352000, 1 },
    { "LowBeyondTenth", 25175, 25210000, 0 },
    { "HighWithinHalf", 148500, 147800000, 1 },
    { "LowSameRatioRefused", 74250, 73900000, 0 },
    { "HighBeyondHalf", 148500, 147700000, 0 },  // 53 ten-thousandths
    { "At75000StillTight", 75000, 74850000, 0 }, // 20 ten-thousandths
    { "At75001Loose", 75001, 74850000, 1 },
    { "RatioTruncates", 75000, 75082000, 1 }, // 10.9 ten-thousandths
    { "BelowOneKiloHertzIsNoDifference", 1, 1999, 1 },
    { "OwnZero", 0, 1000, 0 },
    { "OtherZero", 74250, 0, 0 },
    { "BothZero", 0, 0, 1 },
    { "OtherUnderOneKiloHertz", 1, 999, 0 },
    { "RatioIsOfTheLarger", 100000, 100512000, 1 },   // 50.9 ten-thousandths, of the smaller it would be 51.2
    { "ProductNeeds64Bits", 1000000, 1429497000, 0 }, // the difference times 10000 is just above 32 bits
    { "LargeWithinHalf", 4000000, 3990000000, 1 },
    { "LargeBeyondHalf", 4000000, 3970000000, 0 },
};

class ClockEquivalence : public testing::TestWithParam<SClockCase>
{
};

TEST_P(ClockEquivalence, AnswersAsTheTableSays)
{
    const SClockCase& oCase = GetParam();
    EXPECT_EQ(oCase.m_iExpected, MakeClock(oCase.m_uiOwnInKiloHz).IsPixelClockInHzEquivalent(oCase.m_uiOtherInHz));
}

INSTANTIATE_TEST_SUITE_P(Cases, ClockEquivalence, testing::ValuesIn(gsc_aoClockCases),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_szName); });

TEST(ClockEquivalence, IsAskedOfTheLeftSide)
{
    EXPECT_EQ(0, MakeClock(75000).IsPixelClockInKiloHzEquivalent(75200));
    EXPECT_EQ(1, MakeClock(75200).IsPixelClockInKiloHzEquivalent(75000));
}

TEST(ClockEquivalence, UnderOneKiloHertzOnlyTheSameHertzCount)
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetPixelClockInHz(999);
    EXPECT_EQ(0, oTiming.IsPixelClockInHzEquivalent(500)); // both are 0 kHz
    EXPECT_EQ(1, oTiming.IsPixelClockInHzEquivalent(999));
}

TEST(ClockEquivalence, KiloHertzFormWrapsAt32Bits)
{
    // 4,294,968 kHz is 704 Hz beyond 32 bits.
    CVidParamTimingGeneric oTiming;
    oTiming.SetPixelClockInHz(704);
    EXPECT_EQ(1, oTiming.IsPixelClockInKiloHzEquivalent(4294968));
}

// ---- Equality ----

struct SEqualityCase
{
    const char* m_szName;
    int m_iEqual;
    std::function<void(CVidParamTiming&)> m_fnChange;
};

TEST(Equality, WhatCountsAndWhatDoesNot)
{
    const SEqualityCase aoCases[] = {
        { "horizontal active", 0, [](CVidParamTiming& o) { o.SetHorizontalActive(1281); } },
        { "vertical active", 0, [](CVidParamTiming& o) { o.SetVerticalActive(721); } },
        { "interlaced", 0, [](CVidParamTiming& o) { o.SetInterlaced(1); } },
        { "horizontal front porch", 0, [](CVidParamTiming& o) { o.SetHorizontalFrontPorch(111); } },
        { "horizontal sync", 0, [](CVidParamTiming& o) { o.SetHorizontalSync(41); } },
        { "horizontal back porch", 0, [](CVidParamTiming& o) { o.SetHorizontalBackPorch(221); } },
        { "vertical rate", 0, [](CVidParamTiming& o) { o.SetVerticalRateInHz(59); } },
        { "vertical front porch", 0, [](CVidParamTiming& o) { o.SetVerticalFrontPorch(6); } },
        { "vertical sync", 0, [](CVidParamTiming& o) { o.SetVerticalSync(6); } },
        { "vertical back porch", 0, [](CVidParamTiming& o) { o.SetVerticalBackPorch(21); } },
        { "4:2:0", 0, [](CVidParamTiming& o) { o.Set420ColorSpace(1); } },
        { "3D", 0, [](CVidParamTiming& o) { o.Set3D(1); } },
        { "line rate 1 kHz up", 1, [](CVidParamTiming& o) { o.SetHorizontalRateInKiloHz(46); } },
        { "line rate 1 kHz down", 1, [](CVidParamTiming& o) { o.SetHorizontalRateInKiloHz(44); } },
        { "line rate 2 kHz up", 0, [](CVidParamTiming& o) { o.SetHorizontalRateInKiloHz(47); } },
        { "line rate 2 kHz down", 0, [](CVidParamTiming& o) { o.SetHorizontalRateInKiloHz(43); } },
        { "clock of the 1000/1001 variant", 1, [](CVidParamTiming& o) { o.SetPixelClockInKiloHz(74176); } },
        { "another clock", 0, [](CVidParamTiming& o) { o.SetPixelClockInKiloHz(73900); } },
        { "horizontal polarity", 1, [](CVidParamTiming& o) { o.SetHorizontalPolarityPositive(0); } },
        { "vertical polarity", 1, [](CVidParamTiming& o) { o.SetVerticalPolarityPositive(0); } },
        { "source", 1, [](CVidParamTiming& o) { o.SetVideoFamilyType(CVidParamTiming::eVidParamType_Detailed); } },
    };
    const CVidParamTimingGeneric oOriginal(gsc_o720p);
    for (const SEqualityCase& oCase : aoCases)
    {
        CVidParamTimingGeneric oGeneric(gsc_o720p);
        CRVidParamTiming oOther(gsc_oR720p, eRVideoFamily_None);
        for (CVidParamTiming* poChanged : std::initializer_list<CVidParamTiming*>{ &oGeneric, &oOther })
        {
            EXPECT_EQ(1, oOriginal == *poChanged) << oCase.m_szName;
            oCase.m_fnChange(*poChanged);
            EXPECT_EQ(oCase.m_iEqual, oOriginal == *poChanged) << oCase.m_szName;
            EXPECT_EQ(1 - oCase.m_iEqual, oOriginal != *poChanged) << oCase.m_szName;
        }
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

TEST(Assignment, GoesThroughHertzBetweenTheStorageClasses)
{
    CVidParamTimingGeneric oGeneric(gsc_o720p);
    oGeneric.SetPixelClockInHz(74175824);
    oGeneric.SetHorizontalRateInHz(44955);
    oGeneric.Set420ColorSpace(1);
    oGeneric.Set3D(1);

    CRVidParamTiming oOther;
    oOther = oGeneric;
    EXPECT_EQ(74176U, oOther.GetPixelClockInKiloHz()); // rounded, where oGeneric itself reads 74175
    EXPECT_EQ(45U, oOther.GetHorizontalRateInKiloHz());
    EXPECT_EQ(1, oOther.Is420ColorSpace());
    EXPECT_EQ(1, oOther.Is3D());

    CVidParamTimingGeneric oBack;
    oBack = oOther;
    EXPECT_EQ(74176000U, oBack.GetPixelClockInHz());
    SAllValues oExpected = ReadAll(oGeneric);
    oExpected.m_uiPixelClockInKiloHz = 74176;
    oExpected.m_uiHorizontalRateInKiloHz = 45;
    EXPECT_EQ(oExpected, ReadAll(oBack));
}

TEST(Assignment, ThroughTheBaseCarriesScanAndPolarities)
{
    const CVidParamTimingGeneric oInterlaced(gsc_o1080i);
    CRVidParamTiming oOther;
    static_cast<CVidParamTiming&>(oOther) = oInterlaced;
    EXPECT_EQ((SAllValues{ 1920,
                           1080,
                           30,
                           74250,
                           { 88, 44, 148 },
                           { 2, 5, 15 },
                           1 | 4 | 8,
                           34, // 33.75, rounded by the setter
                           CVidParamTiming::eVidParamType_Cea }),
              ReadAll(oOther));

    SVidParamGenericData oProgressive = gsc_o720p;
    oProgressive.uiFlags = 0;
    static_cast<CVidParamTiming&>(oOther) = CVidParamTimingGeneric(oProgressive);
    EXPECT_EQ(0U, ReadAll(oOther).m_uiFlags) << "what stood there is taken back";
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

    CRVidParamTiming oOther;
    oOther = oSource;
    EXPECT_EQ(0, oOther.GetBottomFieldFirst());
}

TEST(Assignment, OfTheKiloHertzClassCopiesWhatHertzCannotCarry)
{
    tagRVideo_VidParam oRecord = gsc_oR720p;
    oRecord.uiPixelClockInKiloHz = 4294968; // wraps in hertz
    oRecord.auiReserved[1] = 7;
    CRVidParamTiming oSource(oRecord, static_cast<RVideo_VidParamFamily>(9));
    oSource.SetBottomFieldFirst(1);
    oSource.Set3D(2);

    CRVidParamTiming oTarget;
    oTarget = oSource;
    EXPECT_EQ(4294968U, oTarget.GetPixelClockInKiloHz());
    EXPECT_EQ(7U, oTarget.GetRVideoVidParam().auiReserved[1]);
    EXPECT_EQ(1, oTarget.GetBottomFieldFirst());
    EXPECT_EQ(2, oTarget.Is3D());
    EXPECT_EQ(CVidParamTiming::eVidParamType_Unknown, oTarget.GetVideoFamilyType());
}

TEST(Assignment, OfTheKiloHertzClassReplacesTheFamily)
{
    for (const RVideo_VidParamFamily eFamily : { eRVideoFamily_None, eRVideoFamily_Gtf, eRVideoFamily_Smpte })
    {
        const CRVidParamTiming oSource(gsc_oR720p, eFamily);
        CRVidParamTiming oTarget(tagRVideo_VidParam{}, eRVideoFamily_Cea);
        oTarget = oSource;
        EXPECT_EQ(static_cast<unsigned int>(eFamily), static_cast<unsigned int>(oTarget.GetVideoFamilyType()));
    }
}

TEST(Assignment, ToItselfChangesNothing)
{
    // Through the hertz accessors the clock would wrap.
    tagRVideo_VidParam oRecord = gsc_oR720p;
    oRecord.uiPixelClockInKiloHz = 4294968;
    CRVidParamTiming oTiming(oRecord, eRVideoFamily_Cea);
    CVidParamTiming& oSelf = oTiming;
    oSelf = oTiming;
    EXPECT_EQ(4294968U, oTiming.GetPixelClockInKiloHz());
}
}
