// The seven lists of an EDID, their order, and the text of one timing. The contents of each list are seen in the stored
// reports.

#include "EdidUtilsTestHelp.h"

namespace
{
// The first fields of its record in their order, the others 0.
CVidParamTimingGeneric MakeTiming(const std::vector<unsigned int>& auiFields)
{
    std::array<unsigned int, 13> auiRecord = {};
    std::copy(auiFields.begin(), auiFields.end(), auiRecord.begin());
    return CVidParamTimingGeneric(std::bit_cast<SVidParamGenericData>(auiRecord));
}

std::string GetText(const CVidParamTimingGeneric& oTiming, int bFull = 0)
{
    CMString oText("old text that is longer than any of the forms, so that a rest of it would show up");
    CZorEdidUtils::GetFormatedVideoParam(oTiming.GetData(), bFull, oText, "prefix");
    return static_cast<const char*>(oText);
}

// The short text of each timing.
CTexts GetTexts(const CModeList& oList)
{
    CTexts asTexts;
    for (int i = 0; i < static_cast<int>(oList.GetCount()); ++i)
    {
        asTexts.push_back(GetText(oList[i]));
    }
    return asTexts;
}

TEST(ModeListOrder, KeysInTheirOrder)
{
    const CVidParamTimingGeneric oBase = MakeTiming({ 1920, 1080, 60, 0, 148500000 });
    for (const SCaseRow& oRow : ReadCases("EdidUtils/golden/cases/order.txt", 3))
    {
        const CVidParamTimingGeneric oFirst = MakeTiming(oRow.GetNumbers(1));
        const int iExpected = static_cast<int>(oRow.GetNumber(2));
        EXPECT_EQ(iExpected, CZorEdidUtils::SortVidParam(oFirst, oBase, 0)) << oRow.GetName();
        EXPECT_EQ(-iExpected, CZorEdidUtils::SortVidParam(oBase, oFirst, 7)) << oRow.GetName();
    }
}

// More than the library's sort keeps in order by itself. The line rate is not a key.
TEST(ModeListOrder, ManyEqualsStayAsTheyStood)
{
    CModeList oModes;
    for (unsigned int i = 0; i < 40; ++i)
    {
        oModes.Add(MakeTiming({ 1920, 1080, 60, i }));
    }
    SortModes(oModes);
    for (unsigned int i = 0; i < 40; ++i)
    {
        EXPECT_EQ(i, oModes[i].GetHorizontalRateInHz());
    }
}

TEST(ModeText, BothForms)
{
    for (const SCaseRow& oRow : ReadCases("EdidUtils/golden/cases/texts.txt", 4))
    {
        for (const int bFull : { 0, 1, -1 })
        {
            const std::string sText = GetText(MakeTiming(oRow.GetNumbers(1)), bFull);
            EXPECT_EQ(oRow.GetText(bFull == 0 ? 2 : 3), '"' + sText + '"') << oRow.GetName();
        }
    }
}

// ---- The seven lists ----

TEST(ModeLists, AllListsButTheSixthAreEmptiedAndSorted)
{
    const auto poEdid = Load("standard2");
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
    SModes oModes;
    ASSERT_EQ(1, oModes.Extract(*Load("blocks 130=0A 00 42 90 04 E2 0E 61")));
    EXPECT_EQ((CTexts{ "1920 x 1080p @ 60 Hz", "1280 x  720p @ 60 Hz" }), GetTexts(oModes.m_oExtDetailed));
    EXPECT_EQ(0x1CU, oModes.m_oExtDetailed[0].GetData().uiFlags); // 4:2:0 and both polarities positive
}

TEST(ModeLists, WhoHasAPreferredMode)
{
    for (const SCaseRow& oRow : ReadCases("EdidUtils/golden/cases/preferred.txt", 3))
    {
        SCOPED_TRACE(oRow.GetName());
        const unsigned int uiExtracted = oRow.GetNumber(2);
        SModes oModes;
        oModes.m_oPreferred = MakeTiming({ 1, 2, 3, 0, 4 });
        CCapturedOutput oOutput;
        EXPECT_EQ(uiExtracted, oModes.Extract(*Load(MakeImage(oRow.GetText(1)))));
        EXPECT_EQ(uiExtracted != 0 ? 0U : 1U, oOutput.TakeAssertionCount());
        EXPECT_EQ(uiExtracted != 0 ? 1920U : 0U, oModes.m_oPreferred.GetHorizontalActive());
    }
}

TEST(ModeLists, GetterThatFailsBelowItsCountLeavesWhatWasFoundUnsorted)
{
    // The list of usable standard slots is derived at loading: a pair that is emptied later fails when asked for.
    const auto poEdid = Load("asus");
    const_cast<unsigned char*>(poEdid->GetBaseBlock())[38 + 4] = 1;
    SModes oModes;
    oModes.m_oExtDetailed.Add(MakeTiming({ 1, 2, 3, 0, 4 }));
    CCapturedOutput oOutput;
    EXPECT_EQ(0, oModes.Extract(*poEdid));
    EXPECT_EQ(1920U, oModes.m_oPreferred.GetHorizontalActive());
    EXPECT_EQ(" 720 x  400p @ 70 Hz", GetTexts(oModes.m_oEstablishedAll).at(0)); // the walk's order
    EXPECT_EQ((CTexts{ "1152 x  864p @ 75 Hz", "1280 x  720p @ 60 Hz" }), GetTexts(oModes.m_oBaseStandard));
    EXPECT_EQ(0U, oModes.m_oBaseDetailed.GetCount());
    EXPECT_EQ(0U, oModes.m_oExtDetailed.GetCount());

    EXPECT_EQ(0, oModes.Extract(*Load("badrecord"))); // the second has no clock and no size
    EXPECT_EQ(1U, oModes.m_oExtDetailed.GetCount());
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}
} // namespace
