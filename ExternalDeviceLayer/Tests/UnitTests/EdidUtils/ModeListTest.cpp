// The seven lists of an EDID, their order, and the text of one timing. What stands in each list is seen in the stored
// reports.

#include "EdidUtilsTestHelp.h"

namespace
{
CVidParamTimingGeneric MakeTiming(unsigned int uiWidth, unsigned int uiHeight, unsigned int uiRateInHz,
                                  unsigned int uiClockInHz, unsigned int uiFlags = 0)
{
    SVidParamGenericData oData = {};
    oData.uiHorizontalActive = uiWidth;
    oData.uiVerticalActive = uiHeight;
    oData.uiVerticalRateInHz = uiRateInHz;
    oData.uiPixelClockInHz = uiClockInHz;
    oData.uiFlags = uiFlags;
    return CVidParamTimingGeneric(oData);
}

// The short text of each timing.
CTexts GetTexts(const CModeList& oList)
{
    CTexts asTexts;
    for (int i = 0; i < static_cast<int>(oList.GetCount()); ++i)
    {
        CMString oText;
        CZorEdidUtils::GetFormatedVideoParam(oList[i].GetData(), 0, oText, "");
        asTexts.emplace_back(static_cast<const char*>(oText));
    }
    return asTexts;
}

struct SOrderCase
{
    const char* m_pszName;
    CVidParamTimingGeneric m_oFirst;
    int m_iExpected;
};

TEST(ModeListOrder, KeysInTheirOrder)
{
    const CVidParamTimingGeneric oBase = MakeTiming(1920, 1080, 60, 148500000);
    const SOrderCase aoCases[] = {
        { "WidthBeatsAllOthers", MakeTiming(1921, 1, 1, 1), -1 },
        { "HeightBeatsRateAndClock", MakeTiming(1920, 1081, 1, 1), -1 },
        { "RateBeatsClock", MakeTiming(1920, 1080, 61, 1), -1 },
        { "ClockIsLast", MakeTiming(1920, 1080, 60, 148501000), -1 },
        { "ClockCountsInWholeKilohertz", MakeTiming(1920, 1080, 60, 148500999), 0 },
        { "InterlacingIsNoKey", MakeTiming(1920, 1080, 60, 148500000, 1), 0 },
        { "KeysAreUnsigned", MakeTiming(0x80000000U, 1, 1, 1), -1 },
    };
    for (const SOrderCase& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_iExpected, CZorEdidUtils::SortVidParam(oCase.m_oFirst, oBase, 0)) << oCase.m_pszName;
        EXPECT_EQ(-oCase.m_iExpected, CZorEdidUtils::SortVidParam(oBase, oCase.m_oFirst, 7)) << oCase.m_pszName;
    }
}

struct STextCase
{
    const char* m_pszName;
    SVidParamGenericData m_oData;
    const char* m_pszShort;
    const char* m_pszFull;
};

// Progressive timings with both polarities alike stand in the stored reports.
TEST(ModeText, BothForms)
{
    const STextCase aoCases[] = {
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
    for (const STextCase& oCase : aoCases)
    {
        CMString oText("old text that is longer than any of the forms, so that a rest of it would show up");
        for (int bFull : { 0, 1, -1 })
        {
            CZorEdidUtils::GetFormatedVideoParam(oCase.m_oData, bFull, oText, "prefix");
            EXPECT_STREQ(bFull == 0 ? oCase.m_pszShort : oCase.m_pszFull, static_cast<const char*>(oText))
                << oCase.m_pszName;
        }
    }
}

// ---- The seven lists ----

TEST(ModeLists, AllListsButTheSixthAreEmptiedAndSorted)
{
    const auto poEdid = Load(ToBytes(ExtStandard2::g_auiStandard2EdidData));
    const auto IsAhead = [](auto& oFirst, auto& oSecond) {
        return CZorEdidUtils::SortVidParam(oFirst, oSecond, 0) < 0;
    };
    SModes oModes;
    ASSERT_EQ(1, oModes.Extract(*poEdid));
    const SModes oOnce = oModes;
    ASSERT_EQ(1, oModes.Extract(*poEdid));
    for (auto pmoList : { &SModes::m_oEstablishedVesa, &SModes::m_oEstablishedAll, &SModes::m_oBaseStandard,
                          &SModes::m_oBaseDetailed, &SModes::m_oExtStandardNative, &SModes::m_oExtDetailed })
    {
        const CModeList& oList = oModes.*pmoList;
        EXPECT_LT(1U, oList.GetCount());
        EXPECT_EQ(GetTexts(oOnce.*pmoList), GetTexts(oList));
        EXPECT_TRUE(std::is_sorted(oList.GetData(), oList.GetData() + oList.GetCount(), IsAhead));
    }
    const CTexts asSixth = GetTexts(oOnce.m_oExtStandard);
    CTexts asTwice = asSixth;
    asTwice.insert(asTwice.end(), asSixth.begin(), asSixth.end());
    EXPECT_EQ(asTwice, GetTexts(oModes.m_oExtStandard));
}

// A DisplayID record says nothing about YCbCr 4:2:0, and its timing keeps what the block before it left: 1920 x 1080 of
// the 4:2:0 code 97 comes last there.
TEST(ModeLists, OneTimingGoesThroughAllBlocks)
{
    const CBytes aui8Cea = MakeCeaBlockOf({ 0x42, 0x90, 0x04, 0xE2, 0x0E, 0x61 });
    SModes oModes;
    ASSERT_EQ(1, oModes.Extract(*Load(MakeEdid({ aui8Cea, MakeFullDisplayIdBlock() }))));
    EXPECT_EQ((CTexts{ "1920 x 1080p @ 60 Hz", "1280 x  720p @ 60 Hz" }), GetTexts(oModes.m_oExtDetailed));
    EXPECT_EQ(0x1CU, oModes.m_oExtDetailed[0].GetData().uiFlags); // 4:2:0 and both polarities positive
}

struct SPreferredCase
{
    const char* m_pszName;
    CByteChanges m_aoChanges; // of version (18), revision (19), features (24, bit 1) and the first timing's clock
    int m_bExtracted;
};

TEST(ModeLists, WhoHasAPreferredMode)
{
    const SPreferredCase aoCases[] = {
        { "Revision3NeedsNoBit", { { 19, 3 }, { 24, 0xFD } }, 1 },
        { "RevisionIsUnsigned", { { 19, 0x80 }, { 24, 0xFD } }, 1 },
        { "Revision2WithBit", { { 19, 2 }, { 24, 0x02 } }, 1 },
        { "Revision2WithoutBit", { { 19, 2 }, { 24, 0xFD } }, 0 },
        { "Version2WithBit", { { 18, 2 }, { 24, 0x02 } }, 1 },
        { "Version2WithoutBit", { { 18, 2 }, { 24, 0xFD } }, 0 },
        { "FirstDescriptorWithoutClock", { { 54, 0 }, { 55, 0 } }, 0 }, // it holds no timing, but bytes
    };
    for (const SPreferredCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        SModes oModes;
        oModes.m_oPreferred = MakeTiming(1, 2, 3, 4);
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_bExtracted, oModes.Extract(*Load(AsusBytes(oCase.m_aoChanges))));
        EXPECT_EQ(oCase.m_bExtracted != 0 ? 0U : 1U, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_bExtracted != 0 ? 1920U : 0U, oModes.m_oPreferred.GetHorizontalActive());
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
    EXPECT_EQ(1920U, oModes.m_oPreferred.GetHorizontalActive());
    EXPECT_EQ(" 720 x  400p @ 70 Hz", GetTexts(oModes.m_oEstablishedAll).at(0)); // the walk's order
    EXPECT_EQ((CTexts{ "1152 x  864p @ 75 Hz", "1280 x  720p @ 60 Hz" }), GetTexts(oModes.m_oBaseStandard));
    EXPECT_EQ(0U, oModes.m_oBaseDetailed.GetCount());
    EXPECT_EQ(0U, oModes.m_oExtDetailed.GetCount());

    CBytes aui8Records = Type1Record1080p();
    Append(aui8Records, CBytes(20)); // no clock, no size
    EXPECT_EQ(0, oModes.Extract(*Load(MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 0, aui8Records)) }))));
    EXPECT_EQ(1U, oModes.m_oExtDetailed.GetCount());
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}
}
