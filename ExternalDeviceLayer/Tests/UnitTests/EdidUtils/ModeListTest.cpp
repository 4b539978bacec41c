// The seven lists of an EDID, their order, and the text of one timing. What stands in each list is seen in the stored
// reports, for every image of the self-check.

#include "CapturedOutput.h"
#include "DisplayIdImages.h"
#include "EdidUtilsTestHelp.h"

namespace
{
CVidParamTimingGeneric MakeTiming(unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRateInHz,
                                  unsigned int uiClockInHz)
{
    SVidParamGenericData oData = {};
    oData.uiHorizontalActive = uiWidth;
    oData.uiVerticalActive = uiHeight;
    oData.uiVerticalRateInHz = uiRateInHz;
    oData.uiPixelClockInHz = uiClockInHz;
    return CVidParamTimingGeneric(oData);
}

// ---- Order ----

struct SOrderCase
{
    const char* m_pszName;
    CVidParamTimingGeneric m_oFirst;
    int m_iExpected;
};

TEST(ModeListOrder, KeysInTheirOrder)
{
    const CVidParamTimingGeneric oBase = MakeTiming(1920, 1080, 60, 148500000);
    CVidParamTimingGeneric oInterlaced = oBase;
    oInterlaced.SetInterlaced(1);
    const SOrderCase aoCases[] = {
        { "WidthBeatsAllOthers", MakeTiming(1921, 1, 1, 1), -1 },
        { "HeightBeatsRateAndClock", MakeTiming(1920, 1081, 1, 1), -1 },
        { "RateBeatsClock", MakeTiming(1920, 1080, 61, 1), -1 },
        { "ClockIsLast", MakeTiming(1920, 1080, 60, 148501000), -1 },
        { "ClockCountsInWholeKilohertz", MakeTiming(1920, 1080, 60, 148500999), 0 },
        { "InterlacingIsNoKey", oInterlaced, 0 },
        { "KeysAreUnsigned", MakeTiming(0x80000000U, 1, 1, 1), -1 },
    };
    for (const SOrderCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        EXPECT_EQ(oCase.m_iExpected, CZorEdidUtils::SortVidParam(oCase.m_oFirst, oBase, 0));
        EXPECT_EQ(-oCase.m_iExpected, CZorEdidUtils::SortVidParam(oBase, oCase.m_oFirst, 7));
    }
}

// ---- Text of one timing ----

struct STextCase
{
    const char* m_pszName;
    SVidParamGenericData m_oData;
    const char* m_pszShort;
    const char* m_pszFull;
};

// Progressive timings with both polarities alike stand in the stored reports.
const STextCase gsc_aoTextCases[] = {
    { "Interlaced",
      { 1920, 1080, 30, 33750, 74250000, 88, 44, 148, 2, 5, 15, 5, CVidParamTiming::eVidParamType_Cea },
      "1920 x 1080i @ 30 Hz",
      "1920 1080  30 33750 74250000   88  44 148   2   5  15 yes  no + -" },
    { "BottomFieldFirst",
      { 640, 480, 9, 1, 25175, 16, 96, 48, 10, 2, 33, 10, CVidParamTiming::eVidParamType_None },
      " 640 x  480p @  9 Hz",
      " 640  480   9   1  25175   16  96  48  10   2  33  no yes - +" },
    { "HigherFlagsHaveNoPlace",
      { 12800, 1, 120, 100, 5, 1, 2, 3, 4, 5, 6, 0x30, CVidParamTiming::eVidParamType_None },
      "12800 x    1p @120 Hz",
      "12800    1 120 100      5    1   2   3   4   5   6  no  no - -" },
};

TEST(ModeText, BothForms)
{
    for (const STextCase& oCase : gsc_aoTextCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CMString oText("old text that is longer than any of the forms, so that a rest of it would show up");
        CZorEdidUtils::GetFormatedVideoParam(oCase.m_oData, 0, oText, "prefix");
        EXPECT_STREQ(oCase.m_pszShort, static_cast<const char*>(oText));
        for (int bFull : { 1, -1 })
        {
            CZorEdidUtils::GetFormatedVideoParam(oCase.m_oData, bFull, oText, "prefix");
            EXPECT_STREQ(oCase.m_pszFull, static_cast<const char*>(oText));
        }
    }
}

// ---- The seven lists ----

TEST(ModeLists, AllListsButTheSixthAreEmptiedAndSorted)
{
    const auto poEdid = Load(ExtStandard2::g_auiStandard2EdidData);
    SModes oFresh;
    ASSERT_EQ(1, oFresh.Extract(*poEdid));
    SModes oModes;
    oModes.m_oExtStandard.Add(MakeTiming(1, 2, 3, 4));
    const std::pair<CModeList*, CModeList*> aoOwnLists[] = {
        { &oModes.m_oEstablishedVesa, &oFresh.m_oEstablishedVesa },
        { &oModes.m_oEstablishedAll, &oFresh.m_oEstablishedAll },
        { &oModes.m_oBaseStandard, &oFresh.m_oBaseStandard },
        { &oModes.m_oBaseDetailed, &oFresh.m_oBaseDetailed },
        { &oModes.m_oExtStandardNative, &oFresh.m_oExtStandardNative },
        { &oModes.m_oExtDetailed, &oFresh.m_oExtDetailed },
    };
    for (const auto& [poList, poFresh] : aoOwnLists)
    {
        poList->Add(MakeTiming(1, 2, 3, 4));
    }
    ASSERT_EQ(1, oModes.Extract(*poEdid));
    for (const auto& [poList, poFresh] : aoOwnLists)
    {
        EXPECT_LT(1U, poFresh->GetCount());
        EXPECT_EQ(GetTexts(*poFresh), GetTexts(*poList));
        for (unsigned int i = 1; i < poList->GetCount(); ++i)
        {
            EXPECT_GE(0, CZorEdidUtils::SortVidParam((*poList)[i - 1], (*poList)[i], 0));
        }
    }
    CTexts asSixth = GetTexts(oFresh.m_oExtStandard);
    asSixth.insert(asSixth.begin(), "   1 x    2p @  3 Hz");
    EXPECT_EQ(asSixth, GetTexts(oModes.m_oExtStandard));
}

// A DisplayID record says nothing about YCbCr 4:2:0, and its timing keeps what the block before it left: 1920 x 1080 of
// the 4:2:0 code 97 comes last there.
TEST(ModeLists, OneTimingGoesThroughAllBlocks)
{
    const CBytes aui8Cea = MakeCeaBlockOf({ 0x42, 0x90, 0x04, 0xE2, 0x0E, 0x61 });
    const auto poEdid = Load(MakeEdid({ aui8Cea, MakeFullDisplayIdBlock() }));
    SModes oModes;
    ASSERT_EQ(1, oModes.Extract(*poEdid));
    EXPECT_EQ((CTexts{ "1920 x 1080p @ 60 Hz", "1280 x  720p @ 60 Hz" }), GetTexts(oModes.m_oExtDetailed));
    EXPECT_EQ(0x1CU, oModes.m_oExtDetailed[0].GetData().uiFlags); // 4:2:0 and both polarities positive
}

// ---- What fails ----

struct SPreferredCase
{
    const char* m_pszName;
    std::vector<SByteChange> m_aoChanges;
    int m_bExtracted;
};

TEST(ModeLists, WhoHasAPreferredMode)
{
    constexpr unsigned char ui8With = gsc_uiPreferredTimingMask;
    constexpr unsigned char ui8Without = 0xFF ^ gsc_uiPreferredTimingMask;
    const SPreferredCase aoCases[] = {
        { "Revision3NeedsNoBit", { { gsc_uiRevisionOffset, 3 }, { gsc_uiFeaturesOffset, ui8Without } }, 1 },
        { "RevisionIsUnsigned", { { gsc_uiRevisionOffset, 0x80 }, { gsc_uiFeaturesOffset, ui8Without } }, 1 },
        { "Revision2WithBit", { { gsc_uiRevisionOffset, 2 }, { gsc_uiFeaturesOffset, ui8With } }, 1 },
        { "Revision2WithoutBit", { { gsc_uiRevisionOffset, 2 }, { gsc_uiFeaturesOffset, ui8Without } }, 0 },
        { "Version2WithBit", { { gsc_uiVersionOffset, 2 }, { gsc_uiFeaturesOffset, ui8With } }, 1 },
        { "Version2WithoutBit", { { gsc_uiVersionOffset, 2 }, { gsc_uiFeaturesOffset, ui8Without } }, 0 },
        // The first candidate's clock becomes 0 while the rest of it stays: a descriptor that holds no timing.
        { "FirstDescriptorWithoutClock", { { 54, 0 }, { 55, 0 } }, 0 },
    };
    for (const SPreferredCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const auto poEdid = Load(ChangeBytes(AsusBytes(), oCase.m_aoChanges));
        SModes oModes;
        oModes.m_oPreferred = MakeTiming(1, 2, 3, 4);
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_bExtracted, oModes.Extract(*poEdid));
        EXPECT_EQ(oCase.m_bExtracted ? 0U : 1U, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_bExtracted ? 1920U : 0U, oModes.m_oPreferred.GetHorizontalActive());
    }
}

TEST(ModeLists, GetterThatFailsBelowItsCountLeavesWhatWasFoundUnsorted)
{
    // The list of usable standard slots is derived at loading: a pair that is emptied behind its back fails when asked.
    const auto poEdid = Load(AsusBytes());
    const_cast<unsigned char*>(poEdid->GetBaseBlock())[38 + 4] = 1;
    SModes oModes;
    oModes.m_oExtDetailed.Add(MakeTiming(1, 2, 3, 4));
    CCapturedOutput oOutput;
    EXPECT_EQ(0, oModes.Extract(*poEdid));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());

    EXPECT_EQ(1920U, oModes.m_oPreferred.GetHorizontalActive());
    EXPECT_EQ(" 720 x  400p @ 70 Hz", GetTexts(oModes.m_oEstablishedAll).at(0)); // the walk's order
    EXPECT_EQ((CTexts{ "1152 x  864p @ 75 Hz", "1280 x  720p @ 60 Hz" }), GetTexts(oModes.m_oBaseStandard));
    EXPECT_EQ(0U, oModes.m_oBaseDetailed.GetCount());
    EXPECT_EQ(0U, oModes.m_oExtDetailed.GetCount());
}

TEST(ModeLists, RecordOfAnExtensionBlockWithoutClockFailsToo)
{
    CBytes aui8Records = Type1Record1080p();
    Append(aui8Records, CBytes(20)); // no clock, no size
    const auto poEdid = Load(MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 0, aui8Records)) }));
    SModes oModes;
    CCapturedOutput oOutput;
    EXPECT_EQ(0, oModes.Extract(*poEdid));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    EXPECT_EQ(1U, oModes.m_oExtDetailed.GetCount());
}
}
