// The structure of a CEA-861 block: what is taken, the walk over data blocks, descriptors, space, raw steps, stripping.

#include <gtest/gtest.h>

#include <algorithm>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"

namespace
{
using Block = CEdidExtBlockCEA861;

// ---- What the class takes ----

TEST(Cea861Supported, TagRevisionAndChecksumDecide)
{
    for (unsigned int uiRevision = 0; uiRevision < 256; ++uiRevision)
    {
        const SCeaBlock aui8Block = CCeaBlockBuilder(static_cast<unsigned char>(uiRevision)).Get();
        EXPECT_EQ(uiRevision <= 3, Block::IsSupported(128, aui8Block.data()) != 0) << uiRevision;
    }
    EXPECT_FALSE(Block::IsSupported(128, CCeaBlockBuilder().At(0, 0x70).Get().data()));
    SCeaBlock aui8Damaged = CCeaBlockBuilder().Get();
    aui8Damaged[127] ^= 1;
    EXPECT_FALSE(Block::IsSupported(128, aui8Damaged.data()));
}

TEST(Cea861Supported, ChecksumRunsOverTheOfferedSize)
{
    std::array<unsigned char, 129> aui8Data = {};
    const SCeaBlock aui8Block = CCeaBlockBuilder().Get();
    std::copy(aui8Block.begin(), aui8Block.end(), aui8Data.begin());
    EXPECT_TRUE(Block::IsSupported(129, aui8Data.data()));
    aui8Data[128] = 1;
    EXPECT_FALSE(Block::IsSupported(129, aui8Data.data()));
}

TEST(Cea861Supported, ShortOrNullDataReportsOnce)
{
    const SCeaBlock aui8Block = CCeaBlockBuilder().Get();
    {
        CCapturedOutput oOutput;
        EXPECT_FALSE(Block::IsSupported(127, aui8Block.data()));
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    }
    CCapturedOutput oOutput;
    EXPECT_FALSE(Block::IsSupported(128, nullptr));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
}

TEST(Cea861Supported, RefusedBytesLeaveAnEmptyObjectThatRefusesEdits)
{
    SCeaBlock aui8Damaged = CCeaBlockBuilder().Bytes({ 0x23, 0x09, 0x07, 0x07, 0x41, 0x10 }).Detailed({ 1 }).Get();
    aui8Damaged[127] ^= 1;
    const auto poBlock = LoadBlock(aui8Damaged, Block::eStrip_Audio);
    const Block::SAudioDescriptor oAudio = MakeAudio(1, 2, 7, 7);
    unsigned int uiBits = 1;
    unsigned char ui8Byte = 0x55;

    EXPECT_EQ(0U, poBlock->GetExtensionType());
    EXPECT_EQ(0U, poBlock->GetSize());
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(1, &ui8Byte));
    EXPECT_EQ(0U, poBlock->GetEdidBuffer().GetCount());
    EXPECT_EQ(0, poBlock->IsChecksumValid());
    EXPECT_EQ(0, poBlock->IsStripped());
    EXPECT_EQ(0, poBlock->IsYuvSupported());
    EXPECT_EQ(0U, poBlock->GetStandardCount() + poBlock->GetDetailedCount() + poBlock->GetAudioDescriptorCount());
    EXPECT_EQ(0U, poBlock->GetAvailableOffset());
    EXPECT_EQ(0, poBlock->AddAudioDescriptor(&oAudio));
    EXPECT_EQ(0, poBlock->AddSpeakerDescriptor(1));
    EXPECT_EQ(0, poBlock->AddVendorSpecific());
    EXPECT_EQ(0, poBlock->StripDataBlocks(Block::eStrip_Audio | Block::eStrip_Speaker));
    EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
    EXPECT_EQ(0U, uiBits);
    EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(7));
    poBlock->RemoveDataRange(0, 0);
    EXPECT_EQ(0x55, ui8Byte);
}

TEST(Cea861Supported, BytesComeOutAsTheyWentIn)
{
    const SCeaBlock aui8Block = CCeaBlockBuilder(1).Flags(0x30).Detailed({ 1, 2 }).Get();
    const auto poBlock = LoadBlock(aui8Block);
    EXPECT_EQ(2U, poBlock->GetExtensionType());
    EXPECT_EQ(1U, poBlock->GetRevision());
    EXPECT_EQ(128U, poBlock->GetSize());
    EXPECT_EQ(aui8Block, GetBytes(*poBlock));
    EXPECT_EQ(0, memcmp(aui8Block.data(), poBlock->GetData(), 128));
    EXPECT_EQ(0, memcmp(aui8Block.data(), poBlock->GetEdidBuffer().GetData(), 128));
    EXPECT_TRUE(poBlock->IsChecksumValid());

    unsigned char aui8Some[4] = { 9, 9, 9, 9 };
    EXPECT_EQ(3U, poBlock->GetEdidBuffer(3, aui8Some));
    EXPECT_EQ(9, aui8Some[3]);
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(0, aui8Some));
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(3, nullptr));
    std::vector<unsigned char> aui8Large(200, 0xEE);
    EXPECT_EQ(128U, poBlock->GetEdidBuffer(200, aui8Large.data()));
    EXPECT_EQ(0xEE, aui8Large[128]);
}

TEST(Cea861Supported, YuvLooksAtTwoFlagsAlone)
{
    for (unsigned int uiFlags = 0; uiFlags < 256; ++uiFlags)
    {
        const auto poBlock = LoadBlock(CCeaBlockBuilder().Flags(static_cast<unsigned char>(uiFlags)).Get());
        EXPECT_EQ((uiFlags & 0x30) != 0, poBlock->IsYuvSupported() != 0) << uiFlags;
    }
}

// ---- The walk ----

struct SWalkCase
{
    const char* m_szName;
    unsigned char m_ui8Revision;
    unsigned int m_uiByte2;
    unsigned int m_uiFirstOffset; // where the bytes stand; zeros (blocks of tag 0) before and behind
    std::vector<unsigned char> m_aui8Bytes;
    unsigned int m_uiTag; // above 7: 0x100 + extended tag
    unsigned int m_uiIndex;
    unsigned int m_uiOffset, m_uiLength; // expected
};

const SWalkCase gsc_aoWalkCases[] = {
    { "First", 3, 8, 4, { 0x23, 9, 7, 7 }, 1, 0, 5, 3 },
    { "OtherTagsArePassed", 3, 12, 4, { 0x42, 1, 2, 0xA0, 0x83, 1, 0, 0 }, 4, 0, 9, 3 },
    { "SecondOfATag", 3, 9, 4, { 0x41, 1, 0x00, 0x41, 2 }, 2, 1, 8, 1 },
    { "NoSuchIndex", 3, 9, 4, { 0x41, 1, 0x00, 0x41, 2 }, 2, 2, 0, 0 },
    { "HugeIndex", 3, 9, 4, { 0x41, 1, 0x00, 0x41, 2 }, 2, 0xFFFFFFFF, 0, 0 },
    { "EmptyBlockIsFound", 3, 6, 4, { 0x40, 0x20 }, 1, 0, 6, 0 },
    { "EndsExactlyAtByte2", 3, 6, 4, { 0x41, 1, 0x41, 2 }, 2, 0, 5, 1 },
    { "BeginsAtByte2", 3, 6, 4, { 0x41, 1, 0x41, 2 }, 2, 1, 0, 0 },
    { "CrossesByte2", 3, 6, 4, { 0x5F }, 2, 0, 5, 31 },
    { "HeaderAloneInFrontOfByte2", 3, 5, 4, { 0x43, 1, 2, 3 }, 2, 0, 5, 3 },
    { "Byte2Is4", 3, 4, 4, { 0x41, 1 }, 2, 0, 0, 0 },
    { "Byte2Is0", 3, 0, 4, { 0x41, 1 }, 2, 0, 0, 0 },
    { "Revision2", 2, 6, 4, { 0x41, 1 }, 2, 0, 0, 0 },
    { "EndsAtByte126", 3, 127, 95, { 0x5F }, 2, 0, 96, 31 },
    { "RunsPastByte126", 3, 127, 96, { 0x5F }, 2, 0, 0, 0 },
    { "OverrunOfAnotherTagEndsTheWalk", 3, 127, 100, { 0x7F, 0x41, 1 }, 2, 0, 0, 0 },
    { "EmptyBlockAtByte126", 3, 127, 126, { 0x40 }, 2, 0, 127, 0 },
    { "HeaderInThePlaceOfTheChecksum", 3, 255, 126, { 0x01 }, 0, 122, 0, 0 },
    { "Byte2BehindTheBlock", 3, 255, 120, { 0x42, 1, 2 }, 2, 0, 121, 2 },
    { "ExtendedCountsBehindItsTag", 3, 9, 4, { 0xE4, 15, 1, 2, 3 }, 0x100 + 15, 0, 6, 3 },
    { "ExtendedWithoutMore", 3, 6, 4, { 0xE1, 15 }, 0x100 + 15, 0, 6, 0 },
    { "ExtendedSecondOfATag", 3, 12, 4, { 0xE1, 14, 0xE2, 15, 7, 0xE2, 14, 9 }, 0x100 + 14, 1, 11, 1 },
    { "ExtendedOfLength0EndsTheSearch", 3, 7, 4, { 0xE0, 0xE1, 14 }, 0x100 + 14, 0, 0, 0 },
    { "ExtendedOfLength0IsFoundByItsTag", 3, 7, 4, { 0xE0, 0xE1, 14 }, 7, 1, 6, 1 },
    { "ExtendedRunsPastByte126",
      3,
      127,
      126,
      {
          0xE1,
      },
      0x100 + 0,
      0,
      0,
      0 },
};

TEST(Cea861Walk, FindsWholeBlocksOnly)
{
    for (const SWalkCase& oCase : gsc_aoWalkCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCeaBlockBuilder oBuilder(oCase.m_ui8Revision);
        for (unsigned int i = 0; i < oCase.m_aui8Bytes.size(); ++i)
        {
            oBuilder.At(oCase.m_uiFirstOffset + i, oCase.m_aui8Bytes[i]);
        }
        const auto poBlock = LoadBlock(oBuilder.At(2, oCase.m_uiByte2).Get());
        unsigned int uiLength = 77;
        const unsigned int uiOffset =
            oCase.m_uiTag < 8
                ? poBlock->GetDataBlockOffset(static_cast<Block::ECea861_DataBlockTags>(oCase.m_uiTag), oCase.m_uiIndex,
                                              &uiLength)
                : poBlock->GetDataBlockOffset(static_cast<Block::ECea861_DataBlockExtTags>(oCase.m_uiTag - 0x100),
                                              oCase.m_uiIndex, &uiLength);
        EXPECT_EQ(oCase.m_uiOffset, uiOffset);
        EXPECT_EQ(oCase.m_uiLength, uiLength);
    }
}

TEST(Cea861Walk, NullLengthReportsOnceAndFindsNothing)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes({ 0x41, 1, 0xE1, 14 }).Get());
    CCapturedOutput oOutput;
    EXPECT_EQ(0U, poBlock->GetDataBlockOffset(Block::eCea861Tag_Video, 0, nullptr));
    EXPECT_EQ(0U, poBlock->GetDataBlockOffset(Block::eCea861ExtTag_Yuv420Video, 0, nullptr));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

TEST(Cea861Walk, VendorBlocksOfAllVendorsCount)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes({ 0x60, 0x63, 1, 2, 3, 0x41, 1, 0x61, 9 }).Get());
    EXPECT_EQ(3U, poBlock->GetVendorSpecificCount());
}

// ---- Detailed timings ----

TEST(Cea861Detailed, SlotsByByte2)
{
    const std::pair<unsigned int, unsigned int> aoCases[] = {
        { 0, 0 }, { 1, 7 }, { 4, 6 }, { 19, 6 }, { 20, 5 }, { 109, 1 }, { 110, 0 }, { 127, 0 }, { 128, 0 }, { 255, 0 }
    };
    for (const auto& [uiByte2, uiSlots] : aoCases)
    {
        SCOPED_TRACE(uiByte2);
        SCeaBlock aui8Block;
        aui8Block.fill(1); // a pixel clock in every slot, wherever it begins
        aui8Block[0] = 2;
        aui8Block[1] = 2; // no data blocks
        aui8Block[2] = static_cast<unsigned char>(uiByte2);
        const auto poBlock = LoadBlock(WithChecksum(aui8Block));
        EXPECT_EQ(uiSlots, poBlock->GetDetailedCount());
        EXPECT_EQ(uiSlots == 0 ? 0 : uiByte2 + 18 * (uiSlots - 1),
                  poBlock->GetDetailedTimingsOffset(uiSlots == 0 ? 0 : uiSlots - 1));
        EXPECT_EQ(0U, poBlock->GetDetailedTimingsOffset(uiSlots));
        EXPECT_EQ(0U, poBlock->GetDetailedTimingsOffset(0xFFFFFFFF));
    }
}

TEST(Cea861Detailed, ZeroClockEndsTheList)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Detailed({ 1, 2, 3 }).At(22, 0).At(23, 0).Get());
    EXPECT_EQ(1U, poBlock->GetDetailedCount());
    const auto poLow = LoadBlock(CCeaBlockBuilder().Detailed({ 1, 2, 3 }).At(23, 0).Get());
    EXPECT_EQ(3U, poLow->GetDetailedCount()) << "one byte of the clock is enough";
}

TEST(Cea861Detailed, ReadsClearFirstAndRefuseQuietly)
{
    // The second descriptor has a clock but no horizontal size.
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Detailed({ 1, 2 }).At(24, 0).At(26, 0).Get());
    CVidParamTimingGeneric oTiming;
    EXPECT_TRUE(poBlock->GetDetailed(0, &oTiming));
    EXPECT_EQ(1921U, oTiming.GetHorizontalActive());
    EXPECT_EQ(148500U, oTiming.GetPixelClockInKiloHz());
    EXPECT_FALSE(poBlock->GetDetailed(2, &oTiming));
    EXPECT_EQ(1921U, oTiming.GetHorizontalActive()) << "an index above the count touches nothing";
    EXPECT_FALSE(poBlock->GetDetailed(1, &oTiming));
    EXPECT_EQ(0U, oTiming.GetHorizontalActive());
    EXPECT_FALSE(poBlock->GetDetailed(0, nullptr));
}

TEST(Cea861Detailed, RemovalClosesTheGapBehindByte2)
{
    const std::vector<unsigned char> aui8Blocks = { 0x23, 9, 7, 7 };
    const SCeaBlock aui8Block = CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 1, 2, 3, 4 }).Get();
    const SCeaBlock aaui8Expected[] = {
        CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 2, 3, 4 }).Get(),
        CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 1, 3, 4 }).Get(),
        CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 1, 2, 4 }).Get(),
        CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 1, 2, 3 }).Get(),
        aui8Block, // no such index
    };
    for (unsigned int i = 0; i < 5; ++i)
    {
        SCOPED_TRACE(i);
        const auto poBlock = LoadBlock(aui8Block);
        EXPECT_EQ(i < 4, poBlock->RemoveDetailed(i) != 0);
        EXPECT_EQ(aaui8Expected[i], GetBytes(*poBlock));
        EXPECT_EQ(i < 4 ? 3U : 4U, poBlock->GetDetailedCount());
        EXPECT_EQ(GetDetaileds(*LoadBlock(aaui8Expected[i])), GetDetaileds(*poBlock));
    }
}

// With byte 2 at 1 the first "descriptor" lies over revision, byte 2 and flags.
TEST(Cea861Detailed, NothingIsTakenOutOfTheHeader)
{
    for (unsigned int uiByte2 = 1; uiByte2 < 4; ++uiByte2)
    {
        const SCeaBlock aui8Block = CCeaBlockBuilder(1).Flags(0x70).Detailed({ 1, 2 }).At(2, uiByte2).At(19, 1).Get();
        const auto poBlock = LoadBlock(aui8Block);
        ASSERT_LT(1U, poBlock->GetDetailedCount());
        EXPECT_EQ(0, poBlock->RemoveDetailed(0));
        EXPECT_EQ(aui8Block, GetBytes(*poBlock));
        EXPECT_EQ(1, poBlock->RemoveDetailed(1));
        EXPECT_TRUE(Block::IsSupported(128, GetBytes(*poBlock).data()));
    }
}

// ---- Space ----

TEST(Cea861Space, CountsFromBehindTheDescriptors)
{
    struct
    {
        const char* m_szName;
        SCeaBlock m_aui8Block;
        unsigned int m_uiOffset, m_uiSpace;
    } const aoCases[] = {
        { "FiveDescriptors", CCeaBlockBuilder().Bytes(std::vector<unsigned char>(31)).Detailed({ 1, 2, 3, 4, 5 }).Get(),
          125, 1 },
        { "FourDescriptors", CCeaBlockBuilder().Bytes(std::vector<unsigned char>(31)).Detailed({ 1, 2, 3, 4 }).Get(),
          107, 19 },
        { "NoDescriptor", CCeaBlockBuilder().Bytes({ 0x41, 1 }).Get(), 6, 120 },
        { "UpToByte126",
          CCeaBlockBuilder().At(2, 19).At(19, 1).At(37, 1).At(55, 1).At(73, 1).At(91, 1).At(109, 1).Get(), 127, 0 },
        { "Byte2Is126", CCeaBlockBuilder().At(2, 126).Get(), 126, 0 },
        { "Byte2BehindTheBlock", CCeaBlockBuilder().At(2, 200).Get(), 200, 0 },
        { "Byte2Is0", CCeaBlockBuilder().At(2, 0).Get(), 0, 126 },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const auto poBlock = LoadBlock(oCase.m_aui8Block);
        EXPECT_EQ(oCase.m_uiOffset, poBlock->GetAvailableOffset());
        EXPECT_EQ(oCase.m_uiSpace, poBlock->GetAvailableSpace());
    }
}

// Each addition goes up to byte 125 and no further, moves the descriptors and changes nothing when it refuses.
TEST(Cea861Space, AdditionsStopOneByteShort)
{
    const Block::SAudioDescriptor oAudio = MakeAudio(1, 2, 7, 7);
    struct
    {
        const char* m_szName;
        unsigned int m_uiSize;
        std::vector<unsigned char> m_aui8Bytes;
        int (*m_pfnAdd)(Block& oBlock, const Block::SAudioDescriptor& oAudio);
    } const aoCases[] = {
        { "Vendor",
          7,
          { 0x66, 0x03, 0x0C, 0x00, 0x01, 0x00, 0x00 },
          [](Block& oBlock, const Block::SAudioDescriptor&) { return oBlock.AddVendorSpecific(); } },
        { "Speaker",
          4,
          { 0x83, 0xFF, 0x07, 0x00 },
          [](Block& oBlock, const Block::SAudioDescriptor&) { return oBlock.AddSpeakerDescriptor(0xFFFFFFFF); } },
        { "Audio",
          4,
          { 0x23, 0x09, 0x07, 0x07 },
          [](Block& oBlock, const Block::SAudioDescriptor& oValue) { return oBlock.AddAudioDescriptor(&oValue); } },
    };
    for (const auto& oCase : aoCases)
    {
        for (unsigned int uiStart = 4; uiStart < 128; ++uiStart)
        {
            for (bool bDetailed : { false, true })
            {
                if (bDetailed && uiStart + 18 > 127)
                {
                    continue;
                }
                SCOPED_TRACE(testing::Message()
                             << oCase.m_szName << " at " << uiStart << (bDetailed ? " detailed" : ""));
                std::vector<unsigned char> aui8Blocks(uiStart - 4);
                CCeaBlockBuilder oBefore;
                oBefore.Flags(0x40).Bytes(aui8Blocks);
                const bool bFits = uiStart + (bDetailed ? 18 : 0) + oCase.m_uiSize <= 126;
                CCeaBlockBuilder oAfter;
                if (bFits)
                {
                    aui8Blocks.insert(aui8Blocks.end(), oCase.m_aui8Bytes.begin(), oCase.m_aui8Bytes.end());
                }
                oAfter.Flags(0x40).Bytes(aui8Blocks);
                if (bDetailed)
                {
                    oBefore.Detailed({ 1 });
                    oAfter.Detailed({ 1 });
                }
                const auto poBlock = LoadBlock(oBefore.Get());
                ASSERT_EQ(bFits, oCase.m_pfnAdd(*poBlock, oAudio) != 0);
                ASSERT_EQ(oAfter.Get(), GetBytes(*poBlock));
                ASSERT_EQ(GetDetaileds(*LoadBlock(oBefore.Get())), GetDetaileds(*poBlock));
            }
        }
    }
}

TEST(Cea861Space, TheEmptyVendorBlockIsNoHdmiBlock)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Get());
    ASSERT_TRUE(poBlock->AddVendorSpecific());
    EXPECT_EQ(1U, poBlock->GetVendorSpecificCount());
    const SCeaBlock aui8Before = GetBytes(*poBlock);
    EXPECT_TRUE(poBlock->SetColorBitDepthSupport(7));
    EXPECT_EQ(aui8Before, GetBytes(*poBlock));
}

TEST(Cea861Space, NothingIsAddedOverTheHeader)
{
    const Block::SAudioDescriptor oAudio = MakeAudio(1, 2, 7, 7);
    for (unsigned int uiByte2 = 0; uiByte2 < 4; ++uiByte2)
    {
        for (const unsigned char ui8Revision : { static_cast<unsigned char>(0), static_cast<unsigned char>(3) })
        {
            const SCeaBlock aui8Block = CCeaBlockBuilder(ui8Revision).Detailed({ 1, 2 }).At(2, uiByte2).Get();
            const auto poBlock = LoadBlock(aui8Block);
            EXPECT_EQ(0, poBlock->AddAudioDescriptor(&oAudio));
            EXPECT_EQ(0, poBlock->AddSpeakerDescriptor(1));
            EXPECT_EQ(0, poBlock->AddVendorSpecific());
            EXPECT_EQ(aui8Block, GetBytes(*poBlock));
        }
    }
}

// ---- Raw steps ----

TEST(Cea861RawSteps, RangesBeyondTheBlockReportAndChangeNothing)
{
    const SCeaBlock aui8Block = CCeaBlockBuilder().Bytes({ 0x41, 1 }).Detailed({ 1, 2, 3, 4, 5, 6 }).Get();
    const std::pair<unsigned int, unsigned int> aoRanges[] = { { 0, 129 },
                                                               { 128, 1 },
                                                               { 129, 0 },
                                                               { 4, 0xFFFFFFFF },
                                                               { 0xFFFFFFFF, 1 },
                                                               { 0xFFFFFFFF, 0 },
                                                               { 0x80000000, 0x80000004 } };
    const auto poBlock = LoadBlock(aui8Block);
    for (const auto& [uiStart, uiLength] : aoRanges)
    {
        SCOPED_TRACE(testing::Message() << uiStart << ", " << uiLength);
        CCapturedOutput oOutput;
        poBlock->RemoveDataRange(uiStart, uiLength);
        poBlock->PadDataRange(uiStart, uiLength);
        EXPECT_EQ(2U, oOutput.TakeAssertionCount());
        EXPECT_EQ(aui8Block, GetBytes(*poBlock));
    }
}

TEST(Cea861RawSteps, EveryRangeInsideStaysInside)
{
    SCeaBlock aui8Block;
    for (unsigned int i = 0; i < 128; ++i)
    {
        aui8Block[i] = static_cast<unsigned char>(i + 1);
    }
    aui8Block[0] = 2;
    aui8Block[1] = 1;
    aui8Block = WithChecksum(aui8Block);
    for (unsigned int uiStart = 0; uiStart <= 127; ++uiStart)
    {
        for (unsigned int uiLength = 0; uiStart + uiLength <= 127; ++uiLength)
        {
            SCeaBlock aui8Expected = aui8Block;
            std::copy(aui8Block.begin() + uiStart + uiLength, aui8Block.begin() + 127, aui8Expected.begin() + uiStart);
            std::fill(aui8Expected.begin() + 127 - uiLength, aui8Expected.begin() + 127, static_cast<unsigned char>(0));
            const auto poBlock = LoadBlock(aui8Block);
            poBlock->RemoveDataRange(uiStart, uiLength);
            ASSERT_EQ(aui8Expected, GetBytes(*poBlock)) << uiStart << ", " << uiLength;
        }
    }
}

TEST(Cea861RawSteps, PaddingAndChecksum)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Detailed({ 1, 2 }).Get());
    poBlock->PadDataRange(22, 18);
    EXPECT_FALSE(poBlock->IsChecksumValid());
    poBlock->UpdateChecksum();
    EXPECT_EQ(CCeaBlockBuilder().Detailed({ 1 }).Get(), GetBytes(*poBlock));
}

// ---- Stripping ----

struct SStripCase
{
    const char* m_szName;
    unsigned int m_uiFlags;
    unsigned char m_ui8Byte3;
    std::vector<unsigned char> m_aui8Blocks;
    unsigned char m_ui8Byte3After;
    std::vector<unsigned char> m_aui8BlocksAfter;
    int m_bStripped;
    unsigned int m_uiReports;
};

const SStripCase gsc_aoStripCases[] = {
    { "Nothing", 0, 0xF0, { 0x23, 9, 7, 7 }, 0xF0, { 0x23, 9, 7, 7 }, 0, 0 },
    { "AudioAndSpeaker", 0x11, 0xF4, { 0x41, 0x10, 0x23, 9, 7, 7, 0x83, 1, 0, 0 }, 0xB4, { 0x41, 0x10 }, 1, 0 },
    { "AllAudioBlocks",
      0x01,
      0xF4,
      { 0x23, 9, 7, 7, 0x41, 0x10, 0x20, 0x21, 5, 0x83, 1, 0, 0 },
      0xB4,
      { 0x41, 0x10, 0x83, 1, 0, 0 },
      1,
      0 },
    { "SpeakerLeavesTheAudioFlag", 0x10, 0xF4, { 0x83, 1, 0, 0, 0x83, 3, 0, 0 }, 0xF4, {}, 1, 0 },
    { "FlagAloneCounts", 0x01, 0xF4, { 0x41, 0x10 }, 0xB4, { 0x41, 0x10 }, 1, 0 },
    { "NothingFound", 0x11, 0xB4, { 0x41, 0x10 }, 0xB4, { 0x41, 0x10 }, 0, 0 },
    { "SpeakerNotFound", 0x10, 0xF4, { 0x41, 0x10 }, 0xF4, { 0x41, 0x10 }, 0, 0 },
    { "ReservedReportsEach", 0x26, 0xF4, { 0x23, 9, 7, 7 }, 0xF4, { 0x23, 9, 7, 7 }, 0, 3 },
    { "UnknownBitsAreIgnored", 0xFFFFFFC8, 0xF4, { 0x23, 9, 7, 7 }, 0xF4, { 0x23, 9, 7, 7 }, 0, 0 },
};

TEST(Cea861Strip, TakesOutWhatIsAskedForAtLoad)
{
    for (const SStripCase& oCase : gsc_aoStripCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const SCeaBlock aui8Block =
            CCeaBlockBuilder().Flags(oCase.m_ui8Byte3).Bytes(oCase.m_aui8Blocks).Detailed({ 1, 2 }).Get();
        const SCeaBlock aui8After =
            CCeaBlockBuilder().Flags(oCase.m_ui8Byte3After).Bytes(oCase.m_aui8BlocksAfter).Detailed({ 1, 2 }).Get();
        CCapturedOutput oOutput;
        const auto poBlock = LoadBlock(aui8Block, oCase.m_uiFlags);
        EXPECT_EQ(oCase.m_uiReports, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_bStripped, poBlock->IsStripped());
        EXPECT_EQ(aui8After, GetBytes(*poBlock));
        EXPECT_EQ(GetDetaileds(*LoadBlock(aui8Block)), GetDetaileds(*poBlock));
        EXPECT_EQ(GetAudios(*LoadBlock(aui8After)), GetAudios(*poBlock));
        EXPECT_EQ(GetSpeakers(*LoadBlock(aui8After)), GetSpeakers(*poBlock));
    }
}
}
