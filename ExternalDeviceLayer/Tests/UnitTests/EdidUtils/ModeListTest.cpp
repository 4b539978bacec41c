// The seven lists of an EDID, their order, and the text of one timing.

#include "CapturedOutput.h"
#include "EdidUtilsTestHelp.h"

namespace
{
using CTexts = std::vector<std::string>;

// Offsets in the base block.
constexpr unsigned int gsc_uiStandardSlots = 38;
constexpr unsigned int gsc_uiFirstDescriptor = 54;
constexpr unsigned int gsc_uiPreferredFeature = 0x02;

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
    CVidParamTimingGeneric m_oSecond;
    int m_iExpected;
};

TEST(ModeListOrder, KeysInTheirOrder)
{
    const CVidParamTimingGeneric oBase = MakeTiming(1920, 1080, 60, 148500000);
    CVidParamTimingGeneric oInterlaced = oBase;
    oInterlaced.SetInterlaced(1);
    const SOrderCase aoCases[] = {
        { "Equal", oBase, oBase, 0 },
        { "WidthBeatsAllOthers", MakeTiming(1921, 1, 1, 1), oBase, -1 },
        { "HeightBeatsRateAndClock", MakeTiming(1920, 1081, 1, 1), oBase, -1 },
        { "RateBeatsClock", MakeTiming(1920, 1080, 61, 1), oBase, -1 },
        { "ClockIsLast", MakeTiming(1920, 1080, 60, 148501000), oBase, -1 },
        { "ClockCountsInWholeKilohertz", MakeTiming(1920, 1080, 60, 148500999), oBase, 0 },
        { "InterlacingIsNoKey", oInterlaced, oBase, 0 },
        { "KeysAreUnsigned", MakeTiming(0x80000000U, 1, 1, 1), oBase, -1 },
    };
    for (const SOrderCase& oCase : aoCases)
    {
        EXPECT_EQ(oCase.m_iExpected, CZorEdidUtils::SortVidParam(oCase.m_oFirst, oCase.m_oSecond, 0))
            << oCase.m_pszName;
        EXPECT_EQ(-oCase.m_iExpected, CZorEdidUtils::SortVidParam(oCase.m_oSecond, oCase.m_oFirst, 7))
            << oCase.m_pszName;
    }
}

TEST(ModeListOrder, LargestFirstAndEqualsStayInPlace)
{
    CVidParamTimingGeneric oMarked = MakeTiming(1280, 720, 60, 74250000);
    oMarked.SetHorizontalFrontPorch(110);
    CModeList oList;
    oList.Add(MakeTiming(640, 480, 60, 25200000));
    oList.Add(MakeTiming(1280, 720, 60, 74250000));
    oList.Add(oMarked);
    oList.Add(MakeTiming(1280, 1024, 75, 135000000));
    oList.SortElements(CZorEdidUtils::SortVidParam, 0);
    EXPECT_EQ(
        (CTexts{ "1280 x 1024p @ 75 Hz", "1280 x  720p @ 60 Hz", "1280 x  720p @ 60 Hz", " 640 x  480p @ 60 Hz" }),
        GetTexts(oList));
    EXPECT_EQ(0U, oList[1].GetHorizontalFrontPorch());
    EXPECT_EQ(110U, oList[2].GetHorizontalFrontPorch());
}

// ---- Text of one timing ----

struct STextCase
{
    const char* m_pszName;
    SVidParamGenericData m_oData;
    const char* m_pszShort;
    const char* m_pszFull;
};

const STextCase gsc_aoTextCases[] = {
    { "AllFlagsClear",
      { 1920, 1080, 60, 67500, 148500000, 88, 44, 148, 4, 5, 36, 0, CVidParamTiming::eVidParamType_Cea },
      "1920 x 1080p @ 60 Hz",
      "1920 1080  60 67500 148500000   88  44 148   4   5  36  no  no - -" },
    { "PositivePolarities",
      { 1920, 1080, 60, 67500, 148500000, 88, 44, 148, 4, 5, 36, 12, CVidParamTiming::eVidParamType_Cea },
      "1920 x 1080p @ 60 Hz",
      "1920 1080  60 67500 148500000   88  44 148   4   5  36  no  no + +" },
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
    { "Empty", {}, "   0 x    0p @  0 Hz", "   0    0   0   0      0    0   0   0   0   0   0  no  no - -" },
};

TEST(ModeText, BothForms)
{
    for (const STextCase& oCase : gsc_aoTextCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CMString oText("old text that is longer than any of the forms, so that a rest of it would show up");
        CZorEdidUtils::GetFormatedVideoParam(oCase.m_oData, 0, oText, "prefix");
        EXPECT_STREQ(oCase.m_pszShort, static_cast<const char*>(oText));
        for (int bFull : { 1, 2, -1 })
        {
            CZorEdidUtils::GetFormatedVideoParam(oCase.m_oData, bFull, oText, "prefix");
            EXPECT_STREQ(oCase.m_pszFull, static_cast<const char*>(oText));
        }
    }
}

// ---- The seven lists ----

TEST(ModeLists, EachTimingStandsInTheListOfItsPlace)
{
    SModes oModes;
    ASSERT_EQ(1, oModes.Extract(*Load(ExtStandard2::g_auiStandard2EdidData)));

    EXPECT_EQ(1920U, oModes.m_oPreferred.GetHorizontalActive());
    EXPECT_EQ(148500000U, oModes.m_oPreferred.GetPixelClockInHz());
    const CTexts asEstablished = { "1024 x  768p @ 60 Hz", " 800 x  600p @ 60 Hz", " 640 x  480p @ 60 Hz" };
    EXPECT_EQ(asEstablished, GetTexts(oModes.m_oEstablishedVesa));
    EXPECT_EQ(asEstablished, GetTexts(oModes.m_oEstablishedAll));
    EXPECT_EQ(
        (CTexts{ "1440 x  900p @ 60 Hz", "1280 x 1024p @ 60 Hz", "1024 x  768p @ 60 Hz", " 800 x  600p @ 60 Hz" }),
        GetTexts(oModes.m_oBaseStandard));
    EXPECT_EQ((CTexts{ "1920 x 1080p @ 60 Hz", "1360 x  768p @ 60 Hz" }), GetTexts(oModes.m_oBaseDetailed));
    EXPECT_EQ((CTexts{ "1920 x 1080p @ 60 Hz", "1920 x 1080p @ 59 Hz", "1920 x 1080p @ 50 Hz" }),
              GetTexts(oModes.m_oExtStandardNative));
    // In the order of the block: its video codes, each with its 1000/1001 variant, then its HDMI codes.
    EXPECT_EQ((CTexts{ " 640 x  480p @ 60 Hz", " 640 x  480p @ 59 Hz", " 720 x  480p @ 60 Hz", " 720 x  480p @ 59 Hz",
                       "1280 x  720p @ 60 Hz", "1280 x  720p @ 59 Hz", "1920 x 1080i @ 30 Hz", "1920 x 1080i @ 29 Hz",
                       " 720 x  576p @ 50 Hz", "1280 x  720p @ 50 Hz", "1920 x 1080i @ 25 Hz", "1920 x 1080p @ 24 Hz",
                       "1920 x 1080p @ 23 Hz", "1920 x 1080p @ 30 Hz", "1920 x 1080p @ 29 Hz", "3840 x 2160p @ 30 Hz",
                       "3840 x 2160p @ 29 Hz", "3840 x 2160p @ 25 Hz", "3840 x 2160p @ 24 Hz", "3840 x 2160p @ 23 Hz",
                       "4096 x 2160p @ 24 Hz", "4096 x 2160p @ 23 Hz" }),
              GetTexts(oModes.m_oExtStandard));
    EXPECT_EQ(
        (CTexts{ "1920 x 1080i @ 25 Hz", "1280 x  720p @ 50 Hz", " 720 x  576p @ 50 Hz", " 720 x  480p @ 60 Hz" }),
        GetTexts(oModes.m_oExtDetailed));
}

TEST(ModeLists, EstablishedTimingsOfNoVesaTableStandInOneListOnly)
{
    SModes oModes;
    ASSERT_EQ(1, oModes.Extract(*Load(AsusHd::g_auiAsusHdEdidData)));
    EXPECT_EQ((CTexts{ "1280 x 1024p @ 75 Hz", "1024 x  768p @ 75 Hz", "1024 x  768p @ 70 Hz", "1024 x  768p @ 60 Hz",
                       " 832 x  624p @ 75 Hz", " 800 x  600p @ 75 Hz", " 800 x  600p @ 72 Hz", " 800 x  600p @ 60 Hz",
                       " 800 x  600p @ 56 Hz", " 720 x  400p @ 70 Hz", " 640 x  480p @ 75 Hz", " 640 x  480p @ 67 Hz",
                       " 640 x  480p @ 60 Hz" }),
              GetTexts(oModes.m_oEstablishedAll));
    EXPECT_EQ((CTexts{ "1280 x 1024p @ 75 Hz", "1024 x  768p @ 75 Hz", "1024 x  768p @ 70 Hz", "1024 x  768p @ 60 Hz",
                       " 800 x  600p @ 75 Hz", " 800 x  600p @ 72 Hz", " 800 x  600p @ 60 Hz", " 800 x  600p @ 56 Hz",
                       " 640 x  480p @ 75 Hz", " 640 x  480p @ 60 Hz" }),
              GetTexts(oModes.m_oEstablishedVesa));
}

TEST(ModeLists, NoExtensionLeavesTheirListsEmpty)
{
    SModes oModes;
    ASSERT_EQ(1, oModes.Extract(*Load(TimingsCompare::g_auiTimingsCompareEdidData)));
    EXPECT_EQ(0U, oModes.m_oExtStandardNative.GetCount());
    EXPECT_EQ(0U, oModes.m_oExtStandard.GetCount());
    EXPECT_EQ(0U, oModes.m_oExtDetailed.GetCount());
}

TEST(ModeLists, AllListsButTheSixthAreEmptied)
{
    SModes oModes;
    CModeList* const apoLists[] = { &oModes.m_oEstablishedVesa, &oModes.m_oEstablishedAll,    &oModes.m_oBaseStandard,
                                    &oModes.m_oBaseDetailed,    &oModes.m_oExtStandardNative, &oModes.m_oExtStandard,
                                    &oModes.m_oExtDetailed };
    for (CModeList* poList : apoLists)
    {
        poList->Add(MakeTiming(1, 2, 3, 4));
    }
    ASSERT_EQ(1, oModes.Extract(*Load(AsusHd::g_auiAsusHdEdidData)));

    SModes oFresh;
    ASSERT_EQ(1, oFresh.Extract(*Load(AsusHd::g_auiAsusHdEdidData)));
    CTexts asExpected = GetTexts(oFresh.m_oExtStandard);
    asExpected.insert(asExpected.begin(), "   1 x    2p @  3 Hz");
    EXPECT_EQ(asExpected, GetTexts(oModes.m_oExtStandard));
    EXPECT_EQ(GetTexts(oFresh.m_oEstablishedVesa), GetTexts(oModes.m_oEstablishedVesa));
    EXPECT_EQ(GetTexts(oFresh.m_oEstablishedAll), GetTexts(oModes.m_oEstablishedAll));
    EXPECT_EQ(GetTexts(oFresh.m_oBaseStandard), GetTexts(oModes.m_oBaseStandard));
    EXPECT_EQ(GetTexts(oFresh.m_oBaseDetailed), GetTexts(oModes.m_oBaseDetailed));
    EXPECT_EQ(GetTexts(oFresh.m_oExtStandardNative), GetTexts(oModes.m_oExtStandardNative));
    EXPECT_EQ(GetTexts(oFresh.m_oExtDetailed), GetTexts(oModes.m_oExtDetailed));
}

// ---- The preferred mode ----

struct SPreferredCase
{
    const char* m_pszName;
    std::vector<SByteChange> m_aoChanges;
    int m_bExtracted;
};

TEST(ModeLists, WhoHasAPreferredMode)
{
    constexpr unsigned char ui8With = gsc_uiPreferredFeature;
    const SPreferredCase aoCases[] = {
        { "Revision3NeedsNoBit", { { gsc_uiRevisionOffset, 3 }, { gsc_uiFeaturesOffset, 0 } }, 1 },
        { "Revision4NeedsNoBit", { { gsc_uiRevisionOffset, 4 }, { gsc_uiFeaturesOffset, 0 } }, 1 },
        { "RevisionIsUnsigned", { { gsc_uiRevisionOffset, 0x80 }, { gsc_uiFeaturesOffset, 0 } }, 1 },
        { "Revision2WithBit", { { gsc_uiRevisionOffset, 2 }, { gsc_uiFeaturesOffset, ui8With } }, 1 },
        { "Revision2WithoutBit", { { gsc_uiRevisionOffset, 2 }, { gsc_uiFeaturesOffset, 0xFD } }, 0 },
        { "Version2WithBit", { { gsc_uiVersionOffset, 2 }, { gsc_uiFeaturesOffset, ui8With } }, 1 },
        { "Version2WithoutBit", { { gsc_uiVersionOffset, 2 }, { gsc_uiFeaturesOffset, 0 } }, 0 },
        // The first candidate's clock becomes 0 while the rest of it stays: a descriptor that holds no timing.
        { "FirstDescriptorWithoutClock", { { gsc_uiFirstDescriptor, 0 }, { gsc_uiFirstDescriptor + 1, 0 } }, 0 },
    };
    for (const SPreferredCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        auto poEdid = Load(ChangeBytes(GetBytes(AsusHd::g_auiAsusHdEdidData), oCase.m_aoChanges));
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
    auto poEdid = Load(AsusHd::g_auiAsusHdEdidData);
    const_cast<unsigned char*>(poEdid->GetBaseBlock())[gsc_uiStandardSlots + 4] = 1;
    SModes oModes;
    oModes.m_oExtDetailed.Add(MakeTiming(1, 2, 3, 4));
    CCapturedOutput oOutput;
    EXPECT_EQ(0, oModes.Extract(*poEdid));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());

    EXPECT_EQ(1920U, oModes.m_oPreferred.GetHorizontalActive());
    ASSERT_EQ(13U, oModes.m_oEstablishedAll.GetCount());
    EXPECT_EQ(" 720 x  400p @ 70 Hz", GetTexts(oModes.m_oEstablishedAll)[0]); // the walk's order
    EXPECT_EQ((CTexts{ "1152 x  864p @ 75 Hz", "1280 x  720p @ 60 Hz" }), GetTexts(oModes.m_oBaseStandard));
    EXPECT_EQ(0U, oModes.m_oBaseDetailed.GetCount());
    EXPECT_EQ(0U, oModes.m_oExtDetailed.GetCount());
}

TEST(ModeLists, EmptyEdidHasNoPreferredMode)
{
    CEdid oEdid;
    SModes oModes;
    CCapturedOutput oOutput;
    EXPECT_EQ(0, oModes.Extract(oEdid));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
}
}
