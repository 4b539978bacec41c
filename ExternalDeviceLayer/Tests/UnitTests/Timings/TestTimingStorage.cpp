// The two storage classes: where they convert, what they keep, and what clearing leaves.

#include <gtest/gtest.h>

#include "TimingTestHelp.h"

namespace
{
using EType = CVidParamTiming::EVidParamType;

// ---- Both classes ----

template <class TIMING>
class TimingStorage : public testing::Test
{
};
using StorageTypes = testing::Types<CVidParamTimingGeneric, CRVidParamTiming>;
TYPED_TEST_SUITE(TimingStorage, StorageTypes);

TYPED_TEST(TimingStorage, EverySetterHasItsOwnFieldAndClearingEmptiesThem)
{
    TypeParam oTiming;
    EXPECT_EQ(CAllValues{}, ReadAll(oTiming));
    EXPECT_EQ(0, oTiming.Is420ColorSpace() | oTiming.Is3D());
    oTiming.SetHorizontalActive(1);
    oTiming.SetVerticalActive(2);
    oTiming.SetVerticalRateInHz(3);
    oTiming.SetPixelClockInKiloHz(4);
    oTiming.SetHorizontalFrontPorch(5);
    oTiming.SetHorizontalSync(6);
    oTiming.SetHorizontalBackPorch(7);
    oTiming.SetVerticalFrontPorch(8);
    oTiming.SetVerticalSync(9);
    oTiming.SetVerticalBackPorch(10);
    oTiming.SetHorizontalRateInKiloHz(11);
    oTiming.SetVideoFamilyType(CVidParamTiming::eVidParamType_Smpte);
    EXPECT_EQ((CAllValues{ 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0, 11, 16 }), ReadAll(oTiming));

    oTiming.ClearData();
    EXPECT_EQ(CAllValues{}, ReadAll(oTiming));
}

TYPED_TEST(TimingStorage, FlagSettersTakeBitZeroAndKeepTheOtherFlags)
{
    struct SFlag
    {
        void (CVidParamTiming::*m_fnSet)(int);
        int (CVidParamTiming::*m_fnGet)() const;
    };
    const SFlag aoFlags[] = {
        { &CVidParamTiming::SetInterlaced, &CVidParamTiming::IsInterlaced },
        { &CVidParamTiming::SetHorizontalPolarityPositive, &CVidParamTiming::IsHorizontalPolarityPositive },
        { &CVidParamTiming::SetVerticalPolarityPositive, &CVidParamTiming::IsVerticalPolarityPositive },
    };
    TypeParam oTiming;
    for (const SFlag& oFlag : aoFlags)
    {
        (oTiming.*oFlag.m_fnSet)(3);
    }
    for (const SFlag& oFlag : aoFlags)
    {
        (oTiming.*oFlag.m_fnSet)(2); // bit 0 is clear
        for (const SFlag& oEach : aoFlags)
        {
            EXPECT_EQ(&oEach == &oFlag ? 0 : 1, (oTiming.*oEach.m_fnGet)());
        }
        (oTiming.*oFlag.m_fnSet)(-1);
        EXPECT_EQ(1, (oTiming.*oFlag.m_fnGet)());
    }
}

// ---- The class in hertz ----

TEST(GenericStorage, KiloHertzTruncateOnReadingAndMultiplyOnWriting)
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetPixelClockInKiloHz(148500);
    EXPECT_EQ(148500000U, oTiming.GetPixelClockInHz());
    oTiming.SetPixelClockInHz(148351648);
    EXPECT_EQ(148351U, oTiming.GetPixelClockInKiloHz());
    oTiming.SetHorizontalRateInHz(67999);
    EXPECT_EQ(67U, oTiming.GetHorizontalRateInKiloHz());
    oTiming.SetHorizontalRateInKiloHz(4294968); // wraps
    EXPECT_EQ(704U, oTiming.GetHorizontalRateInHz());
}

TEST(GenericStorage, FlagWordHasItsPublishedBits)
{
    CVidParamTimingGeneric oTiming;
    oTiming.Set420ColorSpace(1);
    EXPECT_EQ(1U << 4, oTiming.GetData().uiFlags);
    oTiming.Set3D(1);
    EXPECT_EQ(1U << 4 | 1U << 5, oTiming.GetData().uiFlags);
    oTiming.Set420ColorSpace(2);
    EXPECT_EQ(0, oTiming.Is420ColorSpace());
    oTiming.SetInterlaced(1);
    oTiming.SetHorizontalPolarityPositive(1);
    oTiming.SetVerticalPolarityPositive(1);
    EXPECT_EQ(1U << 0 | 1U << 2 | 1U << 3 | 1U << 5, oTiming.GetData().uiFlags);
}

// ---- The class in kilohertz ----

TEST(KiloHertzStorage, HertzRoundOnWriting)
{
    CRVidParamTiming oTiming;
    oTiming.SetPixelClockInHz(148351648);
    EXPECT_EQ(148352U, oTiming.GetPixelClockInKiloHz());
    EXPECT_EQ(148352000U, oTiming.GetPixelClockInHz());
    oTiming.SetHorizontalRateInHz(67499);
    EXPECT_EQ(67U, oTiming.GetHorizontalRateInKiloHz());
    oTiming.SetHorizontalRateInHz(67500);
    EXPECT_EQ(68000U, oTiming.GetHorizontalRateInHz());
    oTiming.SetPixelClockInKiloHz(4294968); // wraps on reading
    EXPECT_EQ(704U, oTiming.GetPixelClockInHz());
}

TEST(KiloHertzStorage, BottomFieldFirstIsBitOneOfTheRecord)
{
    CRVidParamTiming oTiming(gsc_oR720p, eRVideoFamily_None);
    oTiming.SetBottomFieldFirst(1);
    EXPECT_EQ(gsc_oR720p.uiFlags | 2U, oTiming.GetRVideoVidParam().uiFlags);
    EXPECT_EQ(1, oTiming.GetBottomFieldFirst());
    oTiming.SetBottomFieldFirst(2);
    EXPECT_EQ(0, oTiming.GetBottomFieldFirst());
}

TEST(KiloHertzStorage, ClearingLeaves420And3DAsTheyWereGiven)
{
    CRVidParamTiming oTiming(gsc_oR720p, eRVideoFamily_Cea);
    oTiming.Set3D(1);
    oTiming.Set420ColorSpace(2);
    oTiming.ClearData();
    EXPECT_EQ(1, oTiming.Is3D());
    EXPECT_EQ(2, oTiming.Is420ColorSpace());
    EXPECT_EQ(CAllValues{}, ReadAll(oTiming));
}

TEST(SourceOfATiming, SurvivesOnTheKiloHertzClassOnlyWhenItHasANumberThere)
{
    for (unsigned int uiNumber = 0; uiNumber <= 256; ++uiNumber)
    {
        const EType eType = static_cast<EType>(uiNumber);
        CRVidParamTiming oTiming;
        oTiming.SetVideoFamilyType(eType);
        const bool bKnown = uiNumber <= 6 || uiNumber == 16;
        EXPECT_EQ(bKnown ? eType : CVidParamTiming::eVidParamType_Unknown, oTiming.GetVideoFamilyType()) << uiNumber;
    }
    EXPECT_EQ(CVidParamTiming::eVidParamType_Unknown,
              CRVidParamTiming(gsc_oR720p, static_cast<RVideo_VidParamFamily>(32)).GetVideoFamilyType());
}
}
