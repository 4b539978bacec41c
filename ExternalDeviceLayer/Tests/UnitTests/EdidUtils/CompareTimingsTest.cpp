// Comparison of two EDIDs by their modes: changes by hand, and every pair of images against a second computation that
// shares nothing with the library's lists.

#include "EdidUtilsTestHelp.h"

namespace
{
// What an EDID announces, through the whole-EDID numbering and without lists or sorting.
std::vector<CVidParamTimingGeneric> CollectModes(const CEdid& oEdid, bool bEstablished)
{
    std::vector<CVidParamTimingGeneric> aoModes;
    CVidParamTimingGeneric oTiming;
    for (int bVesaOnly : { 0, 1 })
    {
        for (unsigned int i = 0; bEstablished && oEdid.GetEstablished(i, &oTiming, bVesaOnly) != 0; ++i)
        {
            aoModes.push_back(oTiming);
        }
    }
    int bNative = 0;
    for (unsigned int i = 0; oEdid.GetStandard(i, &oTiming, &bNative) != 0; ++i)
    {
        aoModes.insert(aoModes.end(), bNative == 0 ? 1 : 0, oTiming);
        bNative = 0;
    }
    for (unsigned int i = 0; oEdid.GetDetailed(i, &oTiming) != 0; ++i)
    {
        aoModes.push_back(oTiming);
    }
    return aoModes;
}

TEST(CompareTimings, EveryPairOfTheSuitesImagesAgreesWithASecondComputation)
{
    const auto IsEqual = [](const auto& oFirst, const auto& oSecond) { return (oFirst == oSecond) != 0; };
    unsigned int uiEqualPairs = 0;
    for (const SNamedEdidImage& oFirst : gsc_aoEdidTestImages)
    {
        const auto poFirst = Load(ToBytes(*oFirst.m_paui8Image));
        for (const SNamedEdidImage& oSecond : gsc_aoEdidTestImages)
        {
            SCOPED_TRACE(std::string(oFirst.m_pszName) + " with " + oSecond.m_pszName);
            const auto poSecond = Load(ToBytes(*oSecond.m_paui8Image));
            CVidParamTimingGeneric oFirstMode;
            CVidParamTimingGeneric oSecondMode;
            poFirst->GetDetailed(0, &oFirstMode);
            poSecond->GetDetailed(0, &oSecondMode);
            for (bool bEstablished : { false, true })
            {
                const auto aoFirst = CollectModes(*poFirst, bEstablished);
                const auto aoSecond = CollectModes(*poSecond, bEstablished);
                const bool bSame =
                    std::is_permutation(aoFirst.begin(), aoFirst.end(), aoSecond.begin(), aoSecond.end(), IsEqual);
                EXPECT_EQ(bSame, CZorEdidUtils::CompareTimings(*poFirst, *poSecond, bEstablished, 0));
                EXPECT_EQ(bSame && IsEqual(oFirstMode, oSecondMode),
                          CZorEdidUtils::CompareTimings(*poFirst, *poSecond, bEstablished, 1));
                uiEqualPairs += bSame && &oFirst != &oSecond ? 1 : 0;
            }
        }
    }
    EXPECT_LT(0U, uiEqualPairs); // else nothing but differences was compared
}

CByteArray MakeArray(const CBytes& aui8Bytes)
{
    CByteArray oArray;
    oArray.SetCount(static_cast<unsigned int>(aui8Bytes.size()), -1);
    std::copy(aui8Bytes.begin(), aui8Bytes.end(), oArray.GetData());
    return oArray;
}

struct SChangeCase
{
    const char* m_pszName;
    CBytes m_aui8Base;
    CBytes m_aui8Changed;
    int m_aabExpected[2][2]; // by bCompareEstablished, bComparePreferred
    unsigned int m_uiAssertions = 0;
};

TEST(CompareTimings, WhatCountsAsAChange)
{
    // Standard slots of AsusHd hold 71 4F, 81 C0, 81 40, ...; 45 40 is 800 x 600 at 60 Hz, the lowest bit of byte 35 too.
    const CBytes aui8Asus = AsusBytes();
    const CBytes aui8TwoFree = AsusBytes({ { 50, 1 }, { 51, 1 }, { 52, 1 }, { 53, 1 } });
    const CBytes aui8Native = ToBytes(ExtStandard2::g_auiStandard2EdidData); // byte 138 is 90, code 16 as native
    const CBytes aui8Lg = ToBytes(gsc_aui8LgUltraHd);
    CBytes aui8Swapped = aui8Lg; // the two detailed timings of the base block change places
    std::swap_ranges(aui8Swapped.begin() + 54, aui8Swapped.begin() + 72, aui8Swapped.begin() + 72);
    const CBytes aui8Fewer = MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 0, Type1Record1080p())) });
    const CBytes aui8None = MakeImageWithoutPreferred();
    const SChangeCase aoCases[] = {
        { "SerialNumber", aui8Asus, AsusBytes({ { 12, 0x11 } }), { { 1, 1 }, { 1, 1 } } },
        { "EstablishedTiming", aui8Asus, AsusBytes({ { 35, 0xB6 } }), { { 1, 1 }, { 0, 0 } } },
        { "EstablishedTimingOfNoVesaTable", aui8Asus, AsusBytes({ { 35, 0x37 } }), { { 1, 1 }, { 0, 0 } } },
        { "VesaTimingCountsTwice",
          aui8TwoFree,
          ChangeBytes(aui8TwoFree, { { 35, 0xB6 }, { 50, 0x45 }, { 51, 0x40 }, { 52, 0x45 }, { 53, 0x40 } }),
          { { 0, 0 }, { 1, 1 } } },
        { "VesaTimingCountsNotOnce",
          aui8TwoFree,
          ChangeBytes(aui8TwoFree, { { 35, 0xB6 }, { 50, 0x45 }, { 51, 0x40 } }),
          { { 0, 0 }, { 0, 0 } } },
        { "StandardTiming", aui8Asus, AsusBytes({ { 38, 0x01 } }), { { 0, 0 }, { 0, 0 } } },
        { "OtherSlots",
          aui8Asus,
          AsusBytes({ { 38, 0x81 }, { 39, 0x40 }, { 42, 0x71 }, { 43, 0x4F } }),
          { { 1, 1 }, { 1, 1 } } },
        { "CodeBecomesNative", aui8Asus, AsusBytes({ { 133, 0x81 } }), { { 0, 0 }, { 0, 0 } } },
        { "NativeCode", aui8Native, ChangeBytes(aui8Native, { { 138, 0x93 } }), { { 1, 1 }, { 1, 1 } } },
        { "ClockWithinTheTolerance", aui8Asus, AsusBytes({ { 54, 0x03 } }), { { 1, 1 }, { 1, 1 } } }, // 148510 kHz
        { "PreferredMode", aui8Lg, FixChecksums(aui8Swapped), { { 1, 0 }, { 1, 0 } } },
        { "DisplayIdTiming", MakeEdid({ MakeFullDisplayIdBlock() }), aui8Fewer, { { 0, 0 }, { 0, 0 } } },
        // Assertion lines of the lists and of the comparison; both EDIDs are asked before it gives up.
        { "OneWithoutPreferredMode", aui8Asus, aui8None, { { 0, 0 }, { 0, 0 } }, 2 },
        { "BothWithoutPreferredMode", aui8None, aui8None, { { 0, 0 }, { 0, 0 } }, 3 },
        { "ImageThatDoesNotLoad", aui8Asus, CBytes(100), { { 0, 0 }, { 0, 0 } } },
    };
    for (const SChangeCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CByteArray oBase = MakeArray(oCase.m_aui8Base);
        const CByteArray oChanged = MakeArray(oCase.m_aui8Changed);
        for (int i = 0; i < 4; ++i)
        {
            const int bExpected = oCase.m_aabExpected[i / 2][i % 2];
            CCapturedOutput oOutput;
            EXPECT_EQ(bExpected, CZorEdidUtils::CompareTimings(oBase, oChanged, i / 2, i % 2));
            EXPECT_EQ(bExpected, CZorEdidUtils::CompareTimings(oChanged, oBase, i / 2, i % 2));
            EXPECT_EQ(2 * oCase.m_uiAssertions, oOutput.TakeAssertionCount());
        }
    }
}

// From 75,000 kHz on a timing allows a larger distance between clocks, and the first EDID's timing is asked.
TEST(CompareTimings, ToleranceIsThatOfTheFirst)
{
    const CByteArray oTolerant = MakeArray(MakeImageOfClock(7501));
    const CByteArray oStrict = MakeArray(MakeImageOfClock(7480));
    for (int bPreferred : { 0, 1 })
    {
        EXPECT_EQ(1, CZorEdidUtils::CompareTimings(oTolerant, oStrict, 0, bPreferred));
        EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oStrict, oTolerant, 0, bPreferred));
    }
}
}
