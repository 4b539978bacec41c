// The timing and its two storage classes: slots, stored and derived values, clock equivalence, equality, assignment.

#include <gtest/gtest.h>

#include <bit>
#include <vector>

#include "RecordingTiming.h"
#include "TimingTestHelp.h"
#include "VidParamCea.h"

namespace
{
CVidParamTimingGeneric MakeClock(unsigned int uiHz)
{
    return CVidParamTimingGeneric({ 0, 0, 0, 0, uiHz, 0, 0, 0, 0, 0, 0, 0, {} });
}

// ---- Slots ----

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

// ---- Storage; NumbersCheck.h converts between the units ----

TEST(Storage, EverySetterHasItsOwnFieldAndClearingEmptiesThem)
{
    CVidParamTimingGeneric oGeneric;
    CRVidParamTiming oOther;
    EXPECT_EQ(0, oGeneric.IsOverscan() | oOther.IsOverscan());
    for (CVidParamTiming* poTiming : std::initializer_list<CVidParamTiming*>{ &oGeneric, &oOther })
    {
        CAllValues auiExpected{};
        EXPECT_EQ(auiExpected, ReadAll(*poTiming));
        for (const STimingField& oField : gsc_aoTimingFields)
        {
            (poTiming->*oField.m_pfnSet)(static_cast<unsigned int>(&oField - gsc_aoTimingFields) + 1);
        }
        auiExpected = { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0, 0 };
        EXPECT_EQ(auiExpected, ReadAll(*poTiming));
        for (const int iValue : { 3, 2, -1 }) // bit 0 counts
        {
            poTiming->SetInterlaced(iValue);
            poTiming->SetHorizontalPolarityPositive(iValue);
            poTiming->SetVerticalPolarityPositive(iValue);
            auiExpected[gsc_uiFlags] = iValue != 2 ? 1 | 4 | 8 : 0;
            EXPECT_EQ(auiExpected, ReadAll(*poTiming)) << iValue;
        }
        EXPECT_EQ(3, poTiming->IsInterlaced() + poTiming->IsHorizontalPolarityPositive() +
                         poTiming->IsVerticalPolarityPositive());
        poTiming->SetVideoFamilyType(CVidParamTiming::eVidParamType_Smpte);
        auiExpected[gsc_uiSource] = 16;
        EXPECT_EQ(auiExpected, ReadAll(*poTiming));
        poTiming->ClearData();
        EXPECT_EQ(CAllValues{}, ReadAll(*poTiming));
    }
}

TEST(Storage, KeepsEachFlagInItsWay)
{
    CVidParamTimingGeneric oInHz; // bit 0 counts
    oInHz.Set420ColorSpace(3);
    oInHz.Set3D(2);
    EXPECT_EQ(16U, oInHz.GetData().uiFlags);
    EXPECT_EQ(1, oInHz.Is420ColorSpace());

    CRVidParamTiming oInKiloHz(gsc_oR720p, eRVideoFamily_Cea);
    oInKiloHz.SetBottomFieldFirst(3);
    EXPECT_EQ(4U | 8U | 2U, oInKiloHz.GetRVideoVidParam().uiFlags);
    EXPECT_EQ(1, oInKiloHz.GetBottomFieldFirst());
    oInKiloHz.SetBottomFieldFirst(2);
    EXPECT_EQ(0, oInKiloHz.GetBottomFieldFirst());
    oInKiloHz.Set3D(1); // not in the record: as given, and not cleared
    oInKiloHz.Set420ColorSpace(2);
    oInKiloHz.ClearData();
    EXPECT_EQ(1, oInKiloHz.Is3D());
    EXPECT_EQ(2, oInKiloHz.Is420ColorSpace());
}

TEST(Storage, InKiloHertzKnowsTheSourcesThatHaveANumberThere)
{
    for (unsigned int uiNumber = 0; uiNumber <= 256; ++uiNumber)
    {
        CRVidParamTiming oTiming;
        oTiming.SetVideoFamilyType(static_cast<CVidParamTiming::EVidParamType>(uiNumber));
        const CRVidParamTiming oOfRecord(gsc_oR720p, static_cast<RVideo_VidParamFamily>(uiNumber));
        const unsigned int uiExpected = uiNumber <= 6 || uiNumber == 16 ? uiNumber : 255;
        EXPECT_EQ(uiExpected, static_cast<unsigned int>(oTiming.GetVideoFamilyType())) << uiNumber;
        EXPECT_EQ(uiExpected, static_cast<unsigned int>(oOfRecord.GetVideoFamilyType())) << uiNumber;
    }
}

// ---- Derived values; NumbersCheck.h computes them a second time, without overscan ----

TEST(DerivedValues, TotalsAndRates)
{
    // Totals, line rate in Hz and in kHz, vertical rate.
    const auto Expect = [](const CVidParamTiming& o, const std::array<unsigned int, 5>& auiExpected) {
        const std::array<unsigned int, 5> auiValues = { o.ComputeHorizontalTotalPixel(), o.ComputeVerticalTotalLine(),
                                                        o.ComputeHorizontalRateInHz(),
                                                        o.ComputeHorizontalRateInKiloHz(),
                                                        o.ComputeVerticalRateInHz() };
        EXPECT_EQ(auiExpected, auiValues);
        EXPECT_EQ(auiExpected[0], o.GetHorizontalTotal());
        EXPECT_EQ(auiExpected[1], o.GetVerticalTotal());
    };
    Expect(CVidParamTimingGeneric(gsc_o720p), { 1650, 750, 45000, 45, 60 });
    // Interlaced: the blanking counts twice, the vertical rate is that of frames, and 33.75 kHz come from the clock in
    // kHz, where the 33,750 Hz would be cut to 33.
    Expect(CVidParamTimingGeneric(gsc_o1080i), { 2200, 1125, 33750, 34, 30 });
    // Overscan is a part of all, twice where it is that of a field, but not of equality.
    Expect(CRecordingTiming(gsc_o720p), { 1650 + 1000, 750 + 100, 28019, 28, 33 });
    Expect(CRecordingTiming(gsc_o1080i), { 2200 + 1000, 1125 + 200, 23203, 23, 18 });
    EXPECT_EQ(1, CRecordingTiming(gsc_o720p) == CVidParamTimingGeneric(gsc_o720p));
    EXPECT_EQ(1650U, CVidParamTimingGeneric(gsc_o720p).GetHorizontalTotal()) << "the virtual forms of this class";
    EXPECT_EQ(750U, CVidParamTimingGeneric(gsc_o720p).GetVerticalTotal());
}

// ---- Clock equivalence and equality ----

TEST(ClockEquivalence, WithinTheToleranceOfTheOwnClock)
{
    const auto Expect = [](const char* pszName, int iExpected, unsigned int uiOwnInHz, unsigned int uiOtherInHz) {
        EXPECT_EQ(iExpected, MakeClock(uiOwnInHz).IsPixelClockInHzEquivalent(uiOtherInHz)) << pszName;
    };
    Expect("1000/1001 variant", 1, 25175000, 25200000);
    Expect("low beyond a tenth", 0, 25175000, 25210000);
    Expect("high within a half", 1, 148500000, 147800000);
    Expect("high beyond a half", 0, 148500000, 147700000);      // 53 ten-thousandths
    Expect("75,000 kHz is still tight", 0, 75000000, 74850000); // 20 ten-thousandths
    Expect("75,001 kHz is loose", 1, 75001000, 74850000);
    Expect("the ratio is truncated", 1, 75000000, 75082000);        // 10.9 ten-thousandths
    Expect("the ratio is of the larger", 1, 100000000, 100512000);  // 50.9 ten-thousandths, of the smaller 51.2
    Expect("the product needs 64 bits", 0, 1000000000, 1429497000); // difference times 10000 just above 32 bits
    Expect("below one kilohertz is no difference", 1, 1000000, 1000999);
    Expect("other under one kilohertz", 0, 1000, 999);
    Expect("both under one kilohertz", 0, 999, 500);
    Expect("the same hertz under one kilohertz", 1, 999, 999);
    EXPECT_EQ(1, MakeClock(75200000).IsPixelClockInKiloHzEquivalent(75000));
    EXPECT_EQ(1, MakeClock(704).IsPixelClockInKiloHzEquivalent(4294968)) << "704 Hz beyond 32 bits";
}

// A change of 720p, and whether the timing is still equal to it and still has its code, 4.
template <class CHANGE>
void ExpectAfterChange(const char* pszName, int iEqual, int iHasCode, CHANGE fnChange)
{
    SCOPED_TRACE(pszName);
    const CVidParamTimingGeneric oOriginal(gsc_o720p);
    CVidParamTimingGeneric oGeneric(gsc_o720p);
    CRVidParamTiming oOther(gsc_oR720p, eRVideoFamily_None);
    for (CVidParamTiming* poChanged : std::initializer_list<CVidParamTiming*>{ &oGeneric, &oOther })
    {
        fnChange(*poChanged);
        EXPECT_EQ(iEqual, oOriginal == *poChanged);
        EXPECT_EQ(1 - iEqual, oOriginal != *poChanged);
        unsigned int uiVic = 99;
        EXPECT_EQ(iHasCode, CVidParamCea::GetVicFromVidParam(*poChanged, uiVic));
        EXPECT_EQ(iHasCode != 0 ? 4U : 0U, uiVic);
    }
}

TEST(Equality, WhatCountsForItAndForTheCode)
{
    for (size_t i = 0; i < std::size(gsc_aoTimingFields); ++i)
    {
        const STimingField& oField = gsc_aoTimingFields[i];
        const bool bTolerant = i == gsc_uiClockInKiloHz || i == gsc_uiLineRateInKiloHz;
        ExpectAfterChange(oField.m_pszName, bTolerant ? 1 : 0, i == gsc_uiLineRateInKiloHz ? 1 : 0,
                          [&](CVidParamTiming& o) { (o.*oField.m_pfnSet)((o.*oField.m_pfnGet)() + 1); });
    }
    using T = CVidParamTiming;
    ExpectAfterChange("none", 1, 1, [](T&) {});
    ExpectAfterChange("scan", 0, 0, [](T& o) { o.SetInterlaced(1); });
    ExpectAfterChange("horizontal polarity", 1, 0, [](T& o) { o.SetHorizontalPolarityPositive(0); });
    ExpectAfterChange("vertical polarity", 1, 0, [](T& o) { o.SetVerticalPolarityPositive(0); });
    ExpectAfterChange("3D", 0, 0, [](T& o) { o.Set3D(1); });
    ExpectAfterChange("4:2:0", 0, 0, [](T& o) { o.Set420ColorSpace(1); });
    ExpectAfterChange("4:2:0 at its clock", 0, 1, [](T& o) {
        o.Set420ColorSpace(1);
        o.SetPixelClockInHz(148500000);
    });
    ExpectAfterChange("line rate 1 kHz down", 1, 1, [](T& o) { o.SetHorizontalRateInKiloHz(44); });
    ExpectAfterChange("line rate 2 kHz up", 0, 1, [](T& o) { o.SetHorizontalRateInKiloHz(47); });
    ExpectAfterChange("line rate 2 kHz down", 0, 1, [](T& o) { o.SetHorizontalRateInKiloHz(43); });
    ExpectAfterChange("another clock", 0, 0, [](T& o) { o.SetPixelClockInKiloHz(73900); });
    ExpectAfterChange("source", 1, 1, [](T& o) { o.SetVideoFamilyType(T::eVidParamType_Smpte); });
}

TEST(Equality, AsksTheClockOfTheLeftSideAndComparesFlagsAsStored)
{
    CVidParamTimingGeneric oLow(gsc_o720p);
    CVidParamTimingGeneric oHigh(gsc_o720p);
    oLow.SetPixelClockInKiloHz(75000);  // 0.10 %
    oHigh.SetPixelClockInKiloHz(75200); // 0.50 %; they are 0.26 % apart
    EXPECT_EQ(0, oLow == oHigh);
    EXPECT_EQ(1, oHigh == oLow);

    CRVidParamTiming oOne(gsc_oR720p, eRVideoFamily_None);
    CRVidParamTiming oTwo(gsc_oR720p, eRVideoFamily_None);
    oOne.Set3D(1);
    oTwo.Set3D(2);
    EXPECT_EQ(0, oOne == oTwo);
    EXPECT_EQ(2 * 74250U, oTwo.GetEffectivePixelClockInKiloHz()) << "any value but 0";
}

// ---- Assignment; NumbersCheck.h assigns between the storage classes ----

TEST(Assignment, WritesEachValueOnceInItsOrder)
{
    const CCallNames asExpected = { "HActive", "VActive", "Interlaced", "420",       "3D",        "ClockHz",
                                    "HRateHz", "HFront",  "HSync",      "HBack",     "HPolarity", "VRate",
                                    "VFront",  "VSync",   "VBack",      "VPolarity", "Type" };
    CRecordingTiming oRecording;
    oRecording = CRVidParamTiming(gsc_oR720p, eRVideoFamily_Cea);
    EXPECT_EQ(asExpected, oRecording.m_asCalls);
    EXPECT_EQ(6U, ReadAll(oRecording)[gsc_uiSource]);
}

TEST(Assignment, OfOneClassCopiesTheRecordThroughTheBaseOnlyItsFields)
{
    const CVidParamTimingGeneric oSource(gsc_oMarked);
    CVidParamTimingGeneric oTarget;
    oTarget = oSource;
    EXPECT_TRUE(IsMarked(oTarget));
    CVidParamTimingGeneric oThroughBase;
    static_cast<CVidParamTiming&>(oThroughBase) = oSource;
    EXPECT_EQ(0x3DU, oThroughBase.GetData().uiFlags);
}

TEST(Assignment, OfTheKiloHertzClassCopiesWhatHertzCannotCarry)
{
    tagRVideo_VidParam oRecord = gsc_oR720p;
    oRecord.uiPixelClockInKiloHz = 4294968; // wraps in hertz
    oRecord.auiReserved[1] = 7;
    oRecord.uiFlags = 2; // bottom field first
    CRVidParamTiming oSource(oRecord, static_cast<RVideo_VidParamFamily>(9));
    oSource.Set3D(2);
    oSource.Set420ColorSpace(4);
    CRVidParamTiming oTarget(tagRVideo_VidParam{}, eRVideoFamily_Cea);
    oTarget = oSource;
    CVidParamTiming& oSelf = oTarget;
    oSelf = oTarget; // to itself, field by field: would wrap the clock if it did anything
    EXPECT_EQ(0, memcmp(&oRecord, &oTarget.GetRVideoVidParam(), sizeof(oRecord)));
    EXPECT_EQ(2, oTarget.Is3D());
    EXPECT_EQ(4, oTarget.Is420ColorSpace());
    EXPECT_EQ(CVidParamTiming::eVidParamType_Unknown, oTarget.GetVideoFamilyType());
}
}
