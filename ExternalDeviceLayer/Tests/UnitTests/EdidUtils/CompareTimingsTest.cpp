// Comparison of two EDIDs by their modes, against a second computation that shares nothing with the library's lists.

#include "CapturedOutput.h"
#include "DisplayIdImages.h"
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
    int bNative = 0;
    for (unsigned int i = 0; oEdid.GetStandard(i, &oTiming, &bNative); ++i)
    {
        if (!bNative)
        {
            aoModes.push_back(oTiming);
        }
        bNative = 0;
    }
    for (unsigned int i = 0; oEdid.GetDetailed(i, &oTiming); ++i)
    {
        aoModes.push_back(oTiming);
    }
    return aoModes;
}

// Whether each mode of one finds a partner of its own in the other.
bool AreSameModes(const CTimings& aoFirst, CTimings aoSecond)
{
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
    return aoSecond.empty();
}

CByteArray MakeArray(const CBytes& aui8Bytes)
{
    CByteArray oArray;
    oArray.SetCount(static_cast<unsigned int>(aui8Bytes.size()), -1);
    std::copy(aui8Bytes.begin(), aui8Bytes.end(), oArray.GetData());
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
            CVidParamTimingGeneric oFirstMode;
            CVidParamTimingGeneric oSecondMode;
            poFirst->GetDetailed(0, &oFirstMode);
            poSecond->GetDetailed(0, &oSecondMode);
            for (int bEstablished : { 0, 1 })
            {
                const bool bSame =
                    AreSameModes(CollectModes(*poFirst, bEstablished != 0), CollectModes(*poSecond, bEstablished != 0));
                EXPECT_EQ(bSame, CZorEdidUtils::CompareTimings(*poFirst, *poSecond, bEstablished, 0));
                EXPECT_EQ(bSame && oFirstMode == oSecondMode,
                          CZorEdidUtils::CompareTimings(*poFirst, *poSecond, bEstablished, 1));
                uiEqualPairs += bSame && &oFirst != &oSecond;
            }
        }
    }
    EXPECT_LT(0U, uiEqualPairs); // else nothing but differences was compared
}

struct SChangeCase
{
    const char* m_pszName;
    CBytes m_aui8Base;
    CBytes m_aui8Changed;
    int m_aabExpected[2][2]; // by bCompareEstablished, bComparePreferred
};

SChangeCase ChangeOfAsus(const char* pszName, const std::vector<SByteChange>& aoChanges, int bWithout, int bWith)
{
    return { pszName, AsusBytes(), ChangeBytes(AsusBytes(), aoChanges), { { bWithout, bWithout }, { bWith, bWith } } };
}

TEST(CompareTimings, WhatCountsAsAChange)
{
    const CBytes aui8Native = ToBytes(ExtStandard2::g_auiStandard2EdidData);
    const unsigned int uiNativeCode = gsc_uiExt + 10;
    ASSERT_EQ(0x90, aui8Native[uiNativeCode]);
    CBytes aui8Swapped = ToBytes(gsc_aui8LgUltraHd); // the two detailed timings of the base block change places
    std::swap_ranges(aui8Swapped.begin() + 54, aui8Swapped.begin() + 72, aui8Swapped.begin() + 72);
    const CBytes aui8DisplayId = MakeEdid({ MakeFullDisplayIdBlock() });
    const CBytes aui8Fewer = MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 0, Type1Record1080p())) });

    const SChangeCase aoCases[] = {
        // bCompareEstablished decides of the last two numbers. Standard slots hold 71 4F, 81 C0, 81 40, ...
        ChangeOfAsus("SerialNumber", { { gsc_uiSerialOffset, 0x11 } }, 1, 1),
        ChangeOfAsus("EstablishedTiming", { { 35, 0xB6 } }, 1, 0),
        ChangeOfAsus("EstablishedTimingOfNoVesaTable", { { 35, 0x37 } }, 1, 0),
        ChangeOfAsus("StandardTiming", { { 38, 0x01 } }, 0, 0),
        ChangeOfAsus("OtherSlots", { { 38, 0x81 }, { 39, 0x40 }, { 42, 0x71 }, { 43, 0x4F } }, 1, 1),
        ChangeOfAsus("CodeBecomesNative", { { gsc_uiExt + 5, 0x81 } }, 0, 0),
        ChangeOfAsus("ClockWithinTheTolerance", { { 54, 0x03 } }, 1, 1), // 148510 kHz for 148500
        { "NativeCode", aui8Native, ChangeBytes(aui8Native, { { uiNativeCode, 0x93 } }), { { 1, 1 }, { 1, 1 } } },
        { "PreferredMode", ToBytes(gsc_aui8LgUltraHd), FixChecksums(aui8Swapped), { { 1, 0 }, { 1, 0 } } },
        { "DisplayIdTiming", aui8DisplayId, aui8Fewer, { { 0, 0 }, { 0, 0 } } },
    };
    for (const SChangeCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CByteArray oBase = MakeArray(oCase.m_aui8Base);
        const CByteArray oChanged = MakeArray(oCase.m_aui8Changed);
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
    for (int bPreferred : { 0, 1 })
    {
        EXPECT_EQ(1, CZorEdidUtils::CompareTimings(oTolerant, oStrict, 0, bPreferred));
        EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oStrict, oTolerant, 0, bPreferred));
    }
}

TEST(CompareTimings, WhatCannotBeCompared)
{
    const CByteArray oGood = MakeArray(AsusBytes());
    const CByteArray oNone = MakeArray(MakeImageWithoutPreferred());
    const CByteArray oShort = MakeArray(CBytes(100, 0)); // does not load
    const std::tuple<const CByteArray&, const CByteArray&, unsigned int> aoCases[] = {
        { oGood, oNone, 2 },                       // assertion lines of the lists and of the comparison
        { oNone, oGood, 2 },  { oNone, oNone, 3 }, // both are asked before the comparison gives up
        { oGood, oShort, 0 }, { oShort, oGood, 0 },
    };
    for (const auto& [oFirst, oSecond, uiAssertions] : aoCases)
    {
        CCapturedOutput oOutput;
        EXPECT_EQ(0, CZorEdidUtils::CompareTimings(oFirst, oSecond, 0, 0));
        EXPECT_EQ(uiAssertions, oOutput.TakeAssertionCount());
    }
}
}
