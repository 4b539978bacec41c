// Comparison of two EDIDs by their modes, against a second computation that shares nothing with the library's lists.

#include "CapturedOutput.h"
#include "EdidUtilsTestHelp.h"

namespace
{
using CTimings = std::vector<CVidParamTimingGeneric>;

// What an EDID announces, through the whole-EDID numbering and without lists or sorting.
CTimings CollectModes(const CEdid& oEdid, bool bEstablished)
{
    CTimings aoModes;
    CVidParamTimingGeneric oTiming;
    for (int bVesaOnly : { 0, 1 })
    {
        for (unsigned int i = 0; bEstablished && oEdid.GetEstablished(i, &oTiming, bVesaOnly); ++i)
        {
            aoModes.push_back(oTiming);
        }
    }
    for (unsigned int i = 0; i < oEdid.GetStandardCount(); ++i)
    {
        int bNative = 0;
        EXPECT_NE(0, oEdid.GetStandard(i, &oTiming, &bNative));
        if (!bNative)
        {
            aoModes.push_back(oTiming);
        }
    }
    for (unsigned int i = 0; i < oEdid.GetDetailedCount(); ++i)
    {
        EXPECT_NE(0, oEdid.GetDetailed(i, &oTiming));
        aoModes.push_back(oTiming);
    }
    return aoModes;
}

// Whether each mode of one finds a partner of its own in the other.
bool AreSameModes(const CTimings& aoFirst, CTimings aoSecond)
{
    if (aoFirst.size() != aoSecond.size())
    {
        return false;
    }
    for (const CVidParamTimingGeneric& oMode : aoFirst)
    {
        const auto oFound = std::find_if(aoSecond.begin(), aoSecond.end(),
                                         [&](const CVidParamTimingGeneric& oOther) { return oMode == oOther; });
        if (oFound == aoSecond.end())
        {
            return false;
        }
        aoSecond.erase(oFound);
    }
    return true;
}

bool HaveSamePreferred(const CEdid& oFirst, const CEdid& oSecond)
{
    CVidParamTimingGeneric oFirstMode;
    CVidParamTimingGeneric oSecondMode;
    EXPECT_EQ(1, oFirst.GetDetailed(0, &oFirstMode));
    EXPECT_EQ(1, oSecond.GetDetailed(0, &oSecondMode));
    return oFirstMode == oSecondMode;
}

CByteArray MakeArray(const CBytes& aui8Bytes)
{
    CByteArray oArray;
    oArray.SetCount(static_cast<unsigned int>(aui8Bytes.size()), -1);
    if (!aui8Bytes.empty())
    {
        memcpy(oArray.GetData(), aui8Bytes.data(), aui8Bytes.size());
    }
    return oArray;
}

TEST(CompareTimings, EveryPairOfTheSuitesImagesAgreesWithASecondComputation)
{
    unsigned int uiEqualPairs = 0;
    for (const SNamedEdidImage& oFirst : gsc_aoEdidTestImages)
    {
        const auto poFirst = Load(*oFirst.m_paui8Image);
        for (const SNamedEdidImage& oSecond : gsc_aoEdidTestImages)
        {
            SCOPED_TRACE(std::string(oFirst.m_pszName) + " with " + oSecond.m_pszName);
            const auto poSecond = Load(*oSecond.m_paui8Image);
            const bool bSamePreferred = HaveSamePreferred(*poFirst, *poSecond);
            for (int bEstablished : { 0, 1 })
            {
                const bool bSame =
                    AreSameModes(CollectModes(*poFirst, bEstablished != 0), CollectModes(*poSecond, bEstablished != 0));
                EXPECT_EQ(bSame, CZorEdidUtils::CompareTimings(*poFirst, *poSecond, bEstablished, 0));
                EXPECT_EQ(bSame && bSamePreferred, CZorEdidUtils::CompareTimings(*poFirst, *poSecond, bEstablished, 1));
                uiEqualPairs += bSame && &oFirst != &oSecond;
            }
        }
    }
    EXPECT_LT(0U, uiEqualPairs); // else nothing but differences was compared
}

struct SChangeCase
{
    const char* m_pszName;
    std::vector<SByteChange>
        m_aoChanges;         // of the image with a video block 4F 01 02 03 11 12 13 04 14 05 0E 0F 1D 1E 1F 10
    int m_aabExpected[2][2]; // by bCompareEstablished, bComparePreferred
};

TEST(CompareTimings, WhatCountsAsAChange)
{
    constexpr unsigned int uiFirstCode = gsc_uiExt + 5;
    const SChangeCase aoCases[] = {
        { "Nothing", {}, { { 1, 1 }, { 1, 1 } } },
        { "SerialNumber", { { gsc_uiSerialOffset, 0x11 } }, { { 1, 1 }, { 1, 1 } } },
        { "EstablishedTimingOnRequest", { { 35, 0xB6 } }, { { 1, 1 }, { 0, 0 } } },
        { "EstablishedTimingOfNoVesaTable", { { 35, 0x37 } }, { { 1, 1 }, { 0, 0 } } },
        { "StandardTiming", { { 38, 0x01 } }, { { 0, 0 }, { 0, 0 } } },
        { "StandardTimingsInOtherSlots",
          { { 38, 0x81 }, { 39, 0x40 }, { 42, 0x71 }, { 43, 0x4F } }, // slots hold 71 4F, 81 C0, 81 40, ...
          { { 1, 1 }, { 1, 1 } } },
        { "CodesInOtherPlaces", { { uiFirstCode, 0x02 }, { uiFirstCode + 1, 0x01 } }, { { 1, 1 }, { 1, 1 } } },
        { "CodeBecomesAnother", { { uiFirstCode, 0x20 } }, { { 0, 0 }, { 0, 0 } } },
        { "CodeBecomesNativeAndTakesNoPartAnyMore", { { uiFirstCode, 0x81 } }, { { 0, 0 }, { 0, 0 } } },
        { "ClockWithinTheTolerance", { { 54, 0x03 } }, { { 1, 1 }, { 1, 1 } } }, // 148510 kHz for 148500
    };
    const CBytes aui8Base = GetBytes(AsusHd::g_auiAsusHdEdidData);
    for (const SChangeCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CByteArray oBase = MakeArray(aui8Base);
        const CByteArray oChanged = MakeArray(ChangeBytes(aui8Base, oCase.m_aoChanges));
        for (int bEstablished : { 0, 1 })
        {
            for (int bPreferred : { 0, 1 })
            {
                const int bExpected = oCase.m_aabExpected[bEstablished][bPreferred];
                EXPECT_EQ(bExpected, CZorEdidUtils::CompareTimings(oBase, oChanged, bEstablished, bPreferred));
                EXPECT_EQ(bExpected, CZorEdidUtils::CompareTimings(oChanged, oBase, bEstablished, bPreferred));
            }
        }
    }
}

// From 75,000 kHz on a timing allows a larger distance between clocks, and the first EDID's timing is asked.
TEST(CompareTimings, ToleranceIsThatOfTheFirst)
{
    const CByteArray oTolerant = MakeArray(MakeImageOfClock(7501));
    const CByteArray oStrict = MakeArray(MakeImageOfClock(7480));
    EXPECT_EQ(1, CZorEdidUtils::CompareTimings(oTolerant, oStrict, 0, 0));
    EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oStrict, oTolerant, 0, 0));
}

TEST(CompareTimings, NativeExtensionTimingsTakeNoPart)
{
    // 1920 x 1080 at 60 and 50 Hz, native, become another native code and its like.
    const CBytes aui8Base = GetBytes(ExtStandard2::g_auiStandard2EdidData);
    ASSERT_EQ(0x90, aui8Base[gsc_uiExt + 10]);
    const CBytes aui8Changed = ChangeBytes(aui8Base, { { gsc_uiExt + 10, 0x93 } });
    EXPECT_EQ(1, CZorEdidUtils::CompareTimings(MakeArray(aui8Base), MakeArray(aui8Changed), 1, 1));
}

TEST(CompareTimings, PreferredIsTheFirstDetailedTimingOnly)
{
    // The two detailed timings of the base block change places: the same modes, another preferred one.
    CBytes aui8Swapped = GetBytes(gsc_aui8LgUltraHd);
    std::swap_ranges(aui8Swapped.begin() + 54, aui8Swapped.begin() + 72, aui8Swapped.begin() + 72);
    const CByteArray oSwapped = MakeArray(FixChecksums(aui8Swapped));
    const CByteArray oBase = MakeArray(GetBytes(gsc_aui8LgUltraHd));
    EXPECT_EQ(1, CZorEdidUtils::CompareTimings(oBase, oSwapped, 1, 0));
    EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oBase, oSwapped, 1, 1));
}

TEST(CompareTimings, WithoutPreferredModeThereIsNoComparison)
{
    const CByteArray oGood = MakeArray(GetBytes(AsusHd::g_auiAsusHdEdidData));
    const CByteArray oNone = MakeArray(ChangeBytes(GetBytes(AsusHd::g_auiAsusHdEdidData),
                                                   { { gsc_uiRevisionOffset, 2 }, { gsc_uiFeaturesOffset, 0 } }));
    CCapturedOutput oOutput;
    EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oGood, oNone, 0, 0));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount()); // of the lists and of the comparison
    CCapturedOutput oSecondOutput;
    EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oNone, oGood, 0, 0));
    EXPECT_EQ(2U, oSecondOutput.TakeAssertionCount());
    CCapturedOutput oThirdOutput;
    EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oNone, oNone, 0, 0));
    EXPECT_EQ(3U, oThirdOutput.TakeAssertionCount()); // both are asked before the comparison gives up
}

TEST(CompareTimings, ImageThatDoesNotLoadIsNoMatch)
{
    const CByteArray oGood = MakeArray(GetBytes(AsusHd::g_auiAsusHdEdidData));
    const CByteArray oShort = MakeArray(CBytes(100, 0));
    EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oShort, oGood, 0, 0));
    EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oGood, oShort, 0, 0));
}
}
