// Table timings of a CEA-861 block: where they come from, their order, and taking them out again.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"
#include "RVidParamTiming.h"

namespace
{
using Block = CEdidExtBlockCEA861;

// An HDMI vendor payload with these HDMI VICs, behind whatever header is given.
CBytes MakeHdmi(const CBytes& aui8Header, const CBytes& aui8Vics)
{
    const unsigned char ui8Lengths = static_cast<unsigned char>(aui8Vics.size() << 5);
    return Join({ aui8Header, { 0x03, 0x0C, 0x00, 0x10, 0x00, 0x80, 0x00, 0x20, 0x00, ui8Lengths }, aui8Vics });
}

// ---- Codes ----

TEST(Cea861Svd, ValidCodesAndTheNativeRange)
{
    for (unsigned int uiCode = 0; uiCode < 300; ++uiCode)
    {
        SCOPED_TRACE(uiCode);
        const bool bPlain = uiCode >= 1 && uiCode <= 127;
        const bool bNative = uiCode >= 129 && uiCode <= 253;
        unsigned int uiVic = 999;
        int iNative = 999;
        EXPECT_EQ(bPlain || bNative ? 1 : 0, Block::ExtractSvdCodeInfo(uiCode, &uiVic, &iNative));
        EXPECT_EQ(bPlain ? uiCode : bNative ? uiCode - 128 : 0, uiVic);
        EXPECT_EQ(bNative ? 1 : 0, iNative);
    }
}

TEST(Cea861Svd, SupportedMeansARowInTheTable)
{
    for (unsigned int uiCode : { 1U, 16U, 0x90U, 107U, 0x81U })
    {
        EXPECT_EQ(1, Block::IsSupportedSvd(uiCode)) << uiCode;
    }
    for (unsigned int uiCode : { 0U, 6U, 7U, 108U, 127U, 128U, 0x87U, 254U, 255U, 1001U })
    {
        EXPECT_EQ(0, Block::IsSupportedSvd(uiCode)) << uiCode;
    }
}

// ---- The list ----

struct SListCase
{
    const char* m_szName;
    CBytes m_aui8Blocks;
    std::vector<SStandardEntry> m_aoEntries; // key, native, 4:2:0
    unsigned int m_uiReports = 0;
};

const SListCase gsc_aoListCases[] = {
    { "EachCodeIsFollowedByItsVariant",
      { 0x43, 0x90, 0x11, 0x01 },
      { { 16, 1, 0 }, { 1016, 1, 0 }, { 17, 0, 0 }, { 1, 0, 0 }, { 1001, 0, 0 } } },
    { "UnusableBytesGiveNothing", { 0x46, 0x00, 0x80, 0xFE, 0xFF, 0x07, 0x11 }, { { 17, 0, 0 } } },
    { "RepeatsAppearOnce", { 0x42, 0x11, 0x13, 0x42, 0x13, 0x11 }, { { 17, 0, 0 }, { 19, 0, 0 } } },
    { "NativeAndNotAreTwo", { 0x42, 0x90, 0x10 }, { { 16, 1, 0 }, { 1016, 1, 0 }, { 16, 0, 0 }, { 1016, 0, 0 } } },
    { "HdmiFollowsAllVideoBlocks",
      Join({ MakeHdmi({ 0x6C }, { 2, 3 }), { 0x41, 0x13 } }),
      { { 19, 0, 0 }, { 94, 0, 0 }, { 93, 0, 0 }, { 1093, 0, 0 } } },
    { "ExtendedVendorFollowsVendor",
      Join({ MakeHdmi({ 0xEC, 0x01 }, { 2 }), MakeHdmi({ 0x6B }, { 4 }) }),
      { { 98, 0, 0 }, { 1098, 0, 0 }, { 94, 0, 0 } } },
    { "SvdAndHdmiAreOneTiming", Join({ { 0x41, 0x5E }, MakeHdmi({ 0x6B }, { 2 }) }), { { 94, 0, 0 } } },
    { "EachEmptyMapCopiesAll",
      { 0xE1, 0x0F, 0x42, 0x90, 0x13, 0xE1, 0x0F },
      { { 16, 1, 0 },
        { 1016, 1, 0 },
        { 19, 0, 0 },
        { 16, 1, 1 },
        { 1016, 1, 1 },
        { 19, 0, 1 },
        { 16, 1, 1 },
        { 1016, 1, 1 },
        { 19, 0, 1 } } },
    { "MapCountsUnusableBytesAndReachesBit8",
      { 0x49, 0, 7, 255, 0, 0, 0, 0, 0x11, 0x13, 0xE3, 0x0F, 0x83, 0x01 },
      { { 17, 0, 0 }, { 19, 0, 0 }, { 17, 0, 1 }, { 19, 0, 1 } } },
    { "MapReachesHdmiCodes",
      Join({ { 0x41, 0x13, 0xE2, 0x0F, 0x02 }, MakeHdmi({ 0x6B }, { 2 }) }),
      { { 19, 0, 0 }, { 94, 0, 0 }, { 94, 0, 1 } } },
    { "MapBitsBehindTheCodesReportEach", { 0x41, 0x13, 0xE3, 0x0F, 0x07, 0x80 }, { { 19, 0, 0 }, { 19, 0, 1 } }, 3 },
    { "MapRepeatsAppearOnce", { 0x42, 0x13, 0x13, 0xE2, 0x0F, 0x03 }, { { 19, 0, 0 }, { 19, 0, 1 } } },
    { "VideoBlock420FollowsTheMapsThatDoNotCountIt",
      { 0xE3, 0x0E, 0x90, 0x13, 0x42, 0x14, 0x11, 0xE2, 0x0F, 0x01 },
      { { 20, 0, 0 }, { 17, 0, 0 }, { 20, 0, 1 }, { 16, 1, 1 }, { 1016, 1, 1 }, { 19, 0, 1 } } },
    { "ForeignVendorGivesNothing", { 0x69, 0xD8, 0x5D, 0xC4, 0x01, 0x78, 0x80, 0x03, 0x00, 0x20 }, {} },
};

TEST(Cea861Standard, ListsInOrder)
{
    for (const SListCase& oCase : gsc_aoListCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCapturedOutput oOutput;
        const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes(oCase.m_aui8Blocks).Get());
        EXPECT_EQ(oCase.m_uiReports, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_aoEntries, GetStandards(*poBlock));
    }
}

// A timing of this class keeps its 4:2:0 flag when it is cleared.
TEST(Cea861Standard, TheFlagOfTheLastTimingDoesNotStay)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes({ 0x41, 0x13, 0xE2, 0x0E, 0x14 }).Get());
    CRVidParamTiming oTiming;
    for (const int iIndex : { 1, 0 })
    {
        EXPECT_EQ(1, poBlock->GetStandard(static_cast<unsigned int>(iIndex), &oTiming, nullptr));
        EXPECT_EQ(iIndex, oTiming.Is420ColorSpace());
    }
}

// ---- Removal ----

struct SRemoveCase
{
    const char* m_szName;
    CBytes m_aui8Blocks;
    unsigned int m_uiVic; // every timing of this code or its variant gives the same bytes
    CBytes m_aui8After;   // the data blocks; what stands behind them moves down, byte 2 stays
};

// The HDMI block of MakeHdmi with one code less; the last byte becomes 0.
CBytes MakeHdmiAfter(const CBytes& aui8Header, const CBytes& aui8Vics)
{
    return Join({ MakeHdmi(aui8Header, aui8Vics), { 0 } });
}

const SRemoveCase gsc_aoRemoveCases[] = {
    { "LastOneTakesTheHeader", { 0x41, 0x01, 0x23, 9, 7, 7 }, 1, { 0x23, 9, 7, 7 } },
    { "TwiceInOneBlockNativeAndNot", { 0x45, 0x10, 0x04, 0x90, 0x01, 0x10 }, 16, { 0x42, 0x04, 0x01 } },
    { "InTwoBlocks",
      { 0x42, 0x10, 0x04, 0x23, 9, 7, 7, 0x43, 0x01, 0x05, 0x10 },
      16,
      { 0x41, 0x04, 0x23, 9, 7, 7, 0x42, 0x01, 0x05 } },
    { "TwoBlocksEmptyAheadOfAnother",
      { 0x41, 0x10, 0x83, 1, 0, 0, 0x42, 0x10, 0x10, 0x43, 0x10, 0x01, 0x10 },
      16,
      { 0x83, 1, 0, 0, 0x41, 0x01 } },
    { "AllBlocksEmpty", { 0x41, 0x10, 0x42, 0x90, 0x10 }, 16, {} },
    { "BlockWithoutItStandsBetween", { 0x41, 0x10, 0x41, 0x04, 0x42, 0x01, 0x10 }, 16, { 0x41, 0x04, 0x41, 0x01 } },
    { "EmptyBlockIsCountedAndStays", { 0x40, 0x41, 0x10, 0x42, 0x10, 0x01 }, 16, { 0x40, 0x41, 0x01 } },
    { "UnusableBytesKeepTheirPlace", { 0x44, 0x00, 0xFE, 0x10, 0x04 }, 16, { 0x43, 0x00, 0xFE, 0x04 } },
    { "HdmiTwiceInOneBlock", MakeHdmi({ 0x6D }, { 3, 1, 3 }), 93, Join({ MakeHdmiAfter({ 0x6D }, { 1 }), { 0 } }) },
    { "SvdAndHdmi", Join({ { 0x42, 0xDD, 0x01 }, MakeHdmi({ 0x6C }, { 3, 1 }) }), 93,
      Join({ { 0x41, 0x01 }, MakeHdmiAfter({ 0x6C }, { 1 }) }) },
    { "SvdBlockEmptiesAheadOfHdmi",
      Join({ { 0x41, 0x5D }, { 0x63, 1, 2, 3 }, MakeHdmi({ 0x6B }, { 3 }), { 0x41, 0x5D } }), 93,
      Join({ { 0x63, 1, 2, 3 }, MakeHdmiAfter({ 0x6B }, {}) }) },
    { "HdmiInVendorAndExtendedBlock",
      Join({ MakeHdmi({ 0xED, 0x01 }, { 4, 3 }), { 0xE1, 0x05 }, MakeHdmi({ 0x6B }, { 4 }) }), 98,
      Join({ MakeHdmiAfter({ 0xED, 0x01 }, { 3 }), { 0xE1, 0x05 }, MakeHdmiAfter({ 0x6B }, {}) }) },
    { "BlocksFor420Stay",
      { 0x42, 0x10, 0x04, 0xE2, 0x0F, 0x03, 0xE2, 0x0E, 0x10 },
      16,
      { 0x41, 0x04, 0xE2, 0x0F, 0x03, 0xE2, 0x0E, 0x10 } },
};

TEST(Cea861RemoveStandard, TakesEveryOccurrenceFromItsTruePlace)
{
    for (const SRemoveCase& oCase : gsc_aoRemoveCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const CBytes aui8Block = CCeaBlockBuilder().Bytes(oCase.m_aui8Blocks).Detailed({ 1, 2 }).Get();
        const CBytes aui8After =
            CCeaBlockBuilder().Bytes(oCase.m_aui8After).Detailed({ 1, 2 }).At(2, aui8Block[2]).Get();
        const std::vector<SStandardEntry> aoEntries = GetStandards(*LoadBlock(aui8Block));
        unsigned int uiTried = 0;
        for (unsigned int i = 0; i < aoEntries.size(); ++i)
        {
            if (aoEntries[i].m_uiVic % 1000 != oCase.m_uiVic)
            {
                continue;
            }
            SCOPED_TRACE(testing::Message() << "index " << i << ", code " << aoEntries[i]);
            const auto poBlock = LoadBlock(aui8Block);
            EXPECT_EQ(1, poBlock->RemoveStandard(i));
            EXPECT_EQ(aui8After, GetBytes(*poBlock));
            EXPECT_EQ(GetStandards(*LoadBlock(aui8After)), GetStandards(*poBlock));
            ++uiTried;
        }
        EXPECT_LT(0U, uiTried);
    }
}

TEST(Cea861RemoveStandard, RefusesWhatNoBlockOfCodesNames)
{
    const CBytes aui8Block = CCeaBlockBuilder().Bytes({ 0x41, 0x04, 0xE2, 0x0E, 0x10 }).Detailed({ 1 }).Get();
    const auto poBlock = LoadBlock(aui8Block);
    for (unsigned int uiIndex : { 2U, 3U, 4U, 0xFFFFFFFFU }) // in 4:2:0, and behind the list
    {
        EXPECT_EQ(0, poBlock->RemoveStandard(uiIndex));
        EXPECT_EQ(aui8Block, GetBytes(*poBlock));
    }
}

// The list still names two blocks, of which a raw step has wiped one out: the removal ends at the one that it misses,
// ahead of the HDMI code, and keeps what it has done.
TEST(Cea861RemoveStandard, EndsAtACodeWhoseBlockIsGone)
{
    for (const bool bOneLeft : { false, true })
    {
        const CBytes aui8Left = bOneLeft ? CBytes{ 0x41, 0x5D } : CBytes();
        const CBytes aui8Hdmi = MakeHdmi({ 0x6B }, { 3 });
        const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes(Join({ { 0x41, 0x5D }, aui8Left, aui8Hdmi })).Get());
        poBlock->PadDataRange(4, 2);
        poBlock->UpdateChecksum();
        const unsigned char ui8Byte2 = GetBytes(*poBlock)[2];
        CCapturedOutput oOutput;
        EXPECT_EQ(bOneLeft, poBlock->RemoveStandard(0) != 0);
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
        EXPECT_EQ(CCeaBlockBuilder().Bytes(Join({ { 0, 0 }, aui8Hdmi })).At(2, ui8Byte2).Get(), GetBytes(*poBlock));
        EXPECT_EQ((std::vector<SStandardEntry>{ { 93, 0, 0 }, { 1093, 0, 0 } }), GetStandards(*poBlock));
    }
}

// The zeros behind the descriptor are the end of the list until the removal moves what stands behind them.
TEST(Cea861RemoveStandard, LeavesTheOtherListsAsTheyWere)
{
    CCeaBlockBuilder oBuilder;
    oBuilder.Bytes({ 0x41, 0x04, 0x23, 9, 7, 7, 0x83, 1, 0, 0 }).Detailed({ 1 }).At(14 + 18 + 2, 1);
    const auto poBlock = LoadBlock(oBuilder.Get());
    const std::vector<SAudioEntry> aoAudios = GetAudios(*poBlock);
    EXPECT_EQ(1, poBlock->RemoveStandard(0));
    EXPECT_EQ(aoAudios, GetAudios(*poBlock));
    EXPECT_EQ(1U, poBlock->GetSpeakerDescriptorCount());
    ASSERT_EQ(1U, poBlock->GetDetailedCount());
    CVidParamTimingGeneric oTiming;
    poBlock->GetDetailed(0, &oTiming);
    EXPECT_NE(1921U, oTiming.GetHorizontalActive()) << "the bytes have moved down by two";
    EXPECT_EQ(14U + 2 * 18, poBlock->GetAvailableOffset()) << "counted in the bytes";
}

// The walk over the data blocks runs into the descriptor, whose bytes decide whether it ends where the descriptors
// begin: 0x80 is an empty speaker block that ends there, 0x81 one that does not.
TEST(Cea861RemoveStandard, TheNextEditDerivesAllLists)
{
    for (const unsigned int uiByte : { 0x80U, 0x81U })
    {
        SCOPED_TRACE(uiByte);
        CBytes aui8Block = { 2, 3, 10, 0x40, 0x41, 0x04, 0x23, 9, 7, 7, 0x80, 0, 0x80, 0x18, 0x71, 0x38 };
        aui8Block[11] = static_cast<unsigned char>(uiByte);
        aui8Block.resize(10 + 18, 0x11);
        aui8Block.resize(128);
        const auto poBlock = LoadBlock(FixChecksums(aui8Block));
        EXPECT_EQ(1, poBlock->RemoveStandard(0));
        EXPECT_EQ(0U, poBlock->GetSpeakerDescriptorCount());
        EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(0));
        EXPECT_EQ(2U, poBlock->GetSpeakerDescriptorCount());
        ExpectListsOfBytes(*poBlock);
    }
}
}
