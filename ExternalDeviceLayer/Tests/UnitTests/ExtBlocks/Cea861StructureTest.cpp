// The structure of a CEA-861 block: what is taken, the walk over data blocks, descriptors, space, raw steps, stripping.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"

namespace
{
using Block = CEdidExtBlockCEA861;

const Block::SAudioDescriptor gsc_oAudio = MakeAudio(1, 2, 7, 7);

// ---- What the class takes ----

TEST(Cea861Supported, TagRevisionAndChecksumDecide)
{
    for (unsigned int uiRevision = 0; uiRevision < 256; ++uiRevision)
    {
        const CBytes aui8Block = CCeaBlockBuilder(static_cast<unsigned char>(uiRevision)).Get();
        EXPECT_EQ(uiRevision <= 3, Block::IsSupported(128, aui8Block.data()) != 0) << uiRevision;
    }
    EXPECT_FALSE(Block::IsSupported(128, CCeaBlockBuilder().At(0, 0x70).Get().data()));
    CBytes aui8Longer = CCeaBlockBuilder().Get();
    aui8Longer.push_back(1);
    EXPECT_TRUE(Block::IsSupported(128, aui8Longer.data()));
    EXPECT_FALSE(Block::IsSupported(129, aui8Longer.data())) << "the checksum runs over the offered size";

    CCapturedOutput oOutput;
    EXPECT_FALSE(Block::IsSupported(127, aui8Longer.data()));
    EXPECT_FALSE(Block::IsSupported(128, nullptr));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

TEST(Cea861Supported, RefusedBytesLeaveAnEmptyObjectThatRefusesEdits)
{
    CBytes aui8Damaged = CCeaBlockBuilder().Bytes({ 0x23, 0x09, 0x07, 0x07, 0x41, 0x10 }).Detailed({ 1 }).Get();
    aui8Damaged[127] ^= 1;
    const auto poBlock = LoadBlock(aui8Damaged, Block::eStrip_Audio);
    unsigned int uiBits = 1;
    unsigned char ui8Byte = 0x55;

    EXPECT_EQ(0U, poBlock->GetExtensionType() + poBlock->GetSize() + poBlock->GetEdidBuffer().GetCount());
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(1, &ui8Byte));
    EXPECT_EQ(0, poBlock->IsChecksumValid());
    EXPECT_EQ(0, poBlock->IsStripped());
    EXPECT_EQ(0, poBlock->IsYuvSupported());
    EXPECT_EQ(0U, poBlock->GetStandardCount() + poBlock->GetDetailedCount() + poBlock->GetAudioDescriptorCount());
    EXPECT_EQ(0U, poBlock->GetAvailableOffset());
    EXPECT_EQ(0, poBlock->AddAudioDescriptor(&gsc_oAudio));
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
    const CBytes aui8Block = CCeaBlockBuilder(1).Flags(0x30).Detailed({ 1, 2 }).Get();
    const auto poBlock = LoadBlock(aui8Block);
    EXPECT_EQ(2U, poBlock->GetExtensionType());
    EXPECT_EQ(1U, poBlock->GetRevision());
    EXPECT_EQ(aui8Block, GetBytes(*poBlock));
    EXPECT_EQ(128U, poBlock->GetEdidBuffer().GetCount());
    EXPECT_TRUE(poBlock->IsChecksumValid());

    CBytes aui8Copy(200, 0xEE);
    EXPECT_EQ(3U, poBlock->GetEdidBuffer(3, aui8Copy.data()));
    EXPECT_EQ(0xEE, aui8Copy[3]);
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(0, aui8Copy.data()));
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(3, nullptr));
    EXPECT_EQ(128U, poBlock->GetEdidBuffer(200, aui8Copy.data()));
    EXPECT_EQ(0xEE, aui8Copy[128]);
    EXPECT_TRUE(std::equal(aui8Block.begin(), aui8Block.end(), aui8Copy.begin()));
}

TEST(Cea861Supported, RefusedReadsTouchNothing)
{
    const auto poBlock =
        LoadBlock(CCeaBlockBuilder().Bytes({ 0x41, 0x93, 0x23, 9, 7, 7, 0x83, 1, 0, 0 }).Detailed({ 1 }).Get());
    CVidParamTimingGeneric oTiming;
    oTiming.SetHorizontalActive(77);
    int iNative = 5;
    Block::SAudioDescriptor oAudio = MakeAudio(9, 9, 9, 9);
    unsigned int uiMask = 9;
    EXPECT_EQ(0, poBlock->GetStandard(1, &oTiming, &iNative) || poBlock->GetStandard(0, nullptr, &iNative));
    EXPECT_EQ(0, poBlock->GetDetailed(1, &oTiming) || poBlock->GetDetailed(0, nullptr));
    EXPECT_EQ(0, poBlock->GetAudioDescriptor(1, &oAudio) || poBlock->GetAudioDescriptor(0, nullptr));
    EXPECT_EQ(0, poBlock->GetSpeakerDescriptor(1, &uiMask) || poBlock->GetSpeakerDescriptor(0, nullptr));
    EXPECT_EQ(77U, oTiming.GetHorizontalActive());
    EXPECT_EQ(5, iNative);
    EXPECT_EQ(9U, oAudio.m_uiChannels);
    EXPECT_EQ(9U, uiMask);
    EXPECT_EQ(1, poBlock->GetStandard(0, &oTiming, nullptr));
    EXPECT_EQ(1280U, oTiming.GetHorizontalActive());
}

TEST(Cea861Supported, YuvLooksAtTwoFlagsAlone)
{
    for (unsigned int uiBit = 0; uiBit < 8; ++uiBit)
    {
        const auto poBlock = LoadBlock(CCeaBlockBuilder().Flags(static_cast<unsigned char>(1U << uiBit)).Get());
        EXPECT_EQ(uiBit == 4 || uiBit == 5, poBlock->IsYuvSupported() != 0) << uiBit;
    }
}

// ---- The walk ----

constexpr unsigned int gsc_uiExt = 0x100; // marks an extended tag

struct SWalkCase
{
    const char* m_szName;
    unsigned char m_ui8Revision;
    unsigned int m_uiByte2;
    unsigned int m_uiFirstOffset; // where the bytes stand; zeros (blocks of tag 0) before and behind
    CBytes m_aui8Bytes;
    unsigned int m_uiTag;
    unsigned int m_uiIndex;
    unsigned int m_uiOffset, m_uiLength; // expected
};

// clang-format off
const SWalkCase gsc_aoWalkCases[] = {
    { "First",                            3,   8,   4, { 0x23, 9, 7, 7 },                 1, 0, 5, 3 },
    { "OtherTagsArePassed",               3,  12,   4, { 0x42, 1, 2, 0xA0, 0x83, 1, 0, 0 }, 4, 0, 9, 3 },
    { "SecondOfATag",                     3,   9,   4, { 0x41, 1, 0x00, 0x41, 2 },        2, 1, 8, 1 },
    { "NoSuchIndex",                      3,   9,   4, { 0x41, 1, 0x00, 0x41, 2 },        2, 2, 0, 0 },
    { "HugeIndex",                        3,   9,   4, { 0x41, 1, 0x00, 0x41, 2 },        2, 0xFFFFFFFF, 0, 0 },
    { "EmptyBlockIsFound",                3,   6,   4, { 0x40, 0x20 },                    1, 0, 6, 0 },
    { "BeginsAtByte2",                    3,   6,   4, { 0x41, 1, 0x41, 2 },              2, 1, 0, 0 },
    { "CrossesByte2",                     3,   6,   4, { 0x5F },                          2, 0, 5, 31 },
    { "HeaderAloneInFrontOfByte2",        3,   5,   4, { 0x43, 1, 2, 3 },                 2, 0, 5, 3 },
    { "Byte2Is4",                         3,   4,   4, { 0x41, 1 },                       2, 0, 0, 0 },
    { "Byte2Is0",                         3,   0,   4, { 0x41, 1 },                       2, 0, 0, 0 },
    { "Revision2",                        2,   6,   4, { 0x41, 1 },                       2, 0, 0, 0 },
    { "EndsAtByte126",                    3, 127,  95, { 0x5F },                          2, 0, 96, 31 },
    { "RunsPastByte126",                  3, 127,  96, { 0x5F },                          2, 0, 0, 0 },
    { "OverrunOfAnotherTagEndsTheWalk",   3, 127, 100, { 0x7F, 0x41, 1 },                 2, 0, 0, 0 },
    { "EmptyBlockAtByte126",              3, 127, 126, { 0x40 },                          2, 0, 127, 0 },
    { "HeaderInThePlaceOfTheChecksum",    3, 255, 126, { 0x01 },                          0, 122, 0, 0 },
    { "Byte2BehindTheBlock",              3, 255, 120, { 0x42, 1, 2 },                    2, 0, 121, 2 },
    { "ExtendedCountsBehindItsTag",       3,   9,   4, { 0xE4, 15, 1, 2, 3 },             gsc_uiExt + 15, 0, 6, 3 },
    { "ExtendedWithoutMore",              3,   6,   4, { 0xE1, 15 },                      gsc_uiExt + 15, 0, 6, 0 },
    { "ExtendedSecondOfATag",             3,  12,   4, { 0xE1, 14, 0xE2, 15, 7, 0xE2, 14, 9 }, gsc_uiExt + 14, 1, 11, 1 },
    { "ExtendedOfLength0EndsTheSearch",   3,   7,   4, { 0xE0, 0xE1, 14 },                gsc_uiExt + 14, 0, 0, 0 },
    { "ExtendedOfLength0IsFoundByItsTag", 3,   7,   4, { 0xE0, 0xE1, 14 },                7, 1, 6, 1 },
    { "ExtendedRunsPastByte126",          3, 127, 126, { 0xE1 },                          gsc_uiExt + 0, 0, 0, 0 },
};
// clang-format on

unsigned int Find(const Block& oBlock, unsigned int uiTag, unsigned int uiIndex, unsigned int* puiLength)
{
    return uiTag < gsc_uiExt
               ? oBlock.GetDataBlockOffset(static_cast<Block::ECea861_DataBlockTags>(uiTag), uiIndex, puiLength)
               : oBlock.GetDataBlockOffset(static_cast<Block::ECea861_DataBlockExtTags>(uiTag - gsc_uiExt), uiIndex,
                                           puiLength);
}

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
        EXPECT_EQ(oCase.m_uiOffset, Find(*poBlock, oCase.m_uiTag, oCase.m_uiIndex, &uiLength));
        EXPECT_EQ(oCase.m_uiLength, uiLength);
        CCapturedOutput oOutput;
        EXPECT_EQ(0U, Find(*poBlock, oCase.m_uiTag, oCase.m_uiIndex, nullptr));
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    }
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
        CBytes aui8Block(128, 1); // a pixel clock in every slot, wherever it begins
        aui8Block[0] = 2;
        aui8Block[1] = 2; // no data blocks
        aui8Block[2] = static_cast<unsigned char>(uiByte2);
        const auto poBlock = LoadBlock(FixChecksums(aui8Block));
        EXPECT_EQ(uiSlots, poBlock->GetDetailedCount());
        EXPECT_EQ(uiSlots == 0 ? 0 : uiByte2 + 18 * (uiSlots - 1),
                  poBlock->GetDetailedTimingsOffset(uiSlots == 0 ? 0 : uiSlots - 1));
        EXPECT_EQ(0U, poBlock->GetDetailedTimingsOffset(uiSlots));
        EXPECT_EQ(0U, poBlock->GetDetailedTimingsOffset(0xFFFFFFFF));
    }
}

TEST(Cea861Detailed, ZeroClockEndsTheList)
{
    CCeaBlockBuilder oBuilder;
    oBuilder.Detailed({ 1, 2, 3 }).At(23, 0);
    EXPECT_EQ(3U, LoadBlock(oBuilder.Get())->GetDetailedCount()) << "one byte of the clock is enough";
    EXPECT_EQ(1U, LoadBlock(oBuilder.At(22, 0).Get())->GetDetailedCount());
}

TEST(Cea861Detailed, ADescriptorWithoutSizeClearsTheTiming)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Detailed({ 1, 2 }).At(24, 0).At(26, 0).Get());
    CVidParamTimingGeneric oTiming;
    EXPECT_TRUE(poBlock->GetDetailed(0, &oTiming));
    EXPECT_EQ(1921U, oTiming.GetHorizontalActive());
    EXPECT_FALSE(poBlock->GetDetailed(1, &oTiming));
    EXPECT_EQ(0U, oTiming.GetHorizontalActive());
}

// With byte 2 at 1 to 3 the first "descriptor" lies over revision, byte 2 and flags, and so would a new data block.
TEST(Cea861Detailed, TheHeaderIsOutOfReach)
{
    for (unsigned int uiByte2 = 0; uiByte2 < 4; ++uiByte2)
    {
        const CBytes aui8Block = CCeaBlockBuilder().Flags(0x70).Detailed({ 1, 2 }).At(2, uiByte2).At(19, 1).Get();
        const auto poBlock = LoadBlock(aui8Block);
        EXPECT_EQ(0, poBlock->RemoveDetailed(0));
        EXPECT_EQ(0, poBlock->AddAudioDescriptor(&gsc_oAudio));
        EXPECT_EQ(0, poBlock->AddSpeakerDescriptor(1));
        EXPECT_EQ(0, poBlock->AddVendorSpecific());
        EXPECT_EQ(aui8Block, GetBytes(*poBlock));
        EXPECT_EQ(uiByte2 > 0, poBlock->RemoveDetailed(1) != 0);
        EXPECT_TRUE(poBlock->IsChecksumValid());
    }
}

// ---- Space ----

TEST(Cea861Space, CountsFromBehindTheDescriptors)
{
    CCeaBlockBuilder oUpToByte126;
    for (unsigned int uiSlot = 0; uiSlot < 6; ++uiSlot)
    {
        oUpToByte126.At(19 + 18 * uiSlot, 1);
    }
    const struct
    {
        const char* m_szName;
        CBytes m_aui8Block;
        unsigned int m_uiOffset, m_uiSpace;
    } aoCases[] = {
        { "FiveDescriptors", CCeaBlockBuilder().Bytes(CBytes(31)).Detailed({ 1, 2, 3, 4, 5 }).Get(), 125, 1 },
        { "FourDescriptors", CCeaBlockBuilder().Bytes(CBytes(31)).Detailed({ 1, 2, 3, 4 }).Get(), 107, 19 },
        { "NoDescriptor", CCeaBlockBuilder().Bytes({ 0x41, 1 }).Get(), 6, 120 },
        { "UpToByte126", oUpToByte126.At(2, 19).Get(), 127, 0 },
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

// Each addition of a data block goes up to byte 125 and no further, moves the descriptors and changes nothing when it
// refuses.
TEST(Cea861Space, AdditionsStopOneByteShort)
{
    const struct
    {
        CBytes m_aui8Bytes;
        int (*m_pfnAdd)(Block& oBlock);
    } aoCases[] = {
        { { 0x66, 0x03, 0x0C, 0x00, 0x01, 0x00, 0x00 }, [](Block& oBlock) { return oBlock.AddVendorSpecific(); } },
        { { 0x83, 0xFF, 0x07, 0x00 }, [](Block& oBlock) { return oBlock.AddSpeakerDescriptor(0xFFFFFFFF); } },
        { { 0x23, 0x09, 0x07, 0x07 }, [](Block& oBlock) { return oBlock.AddAudioDescriptor(&gsc_oAudio); } },
    };
    for (const auto& oCase : aoCases)
    {
        for (unsigned int uiStart = 4; uiStart < 128; ++uiStart)
        {
            SCOPED_TRACE(testing::Message() << oCase.m_aui8Bytes.size() << " bytes at " << uiStart);
            const bool bDetailed = uiStart % 2 == 0 && uiStart <= 127 - 18;
            const bool bFits = uiStart + (bDetailed ? 18 : 0) + oCase.m_aui8Bytes.size() <= 126;
            CCeaBlockBuilder oBefore = CCeaBlockBuilder().Flags(0x40).Bytes(CBytes(uiStart - 4));
            CCeaBlockBuilder oAfter = CCeaBlockBuilder(oBefore).Bytes(bFits ? oCase.m_aui8Bytes : CBytes());
            if (bDetailed)
            {
                oBefore.Detailed({ 1 });
                oAfter.Detailed({ 1 });
            }
            const auto poBlock = LoadBlock(oBefore.Get());
            ASSERT_EQ(bFits, oCase.m_pfnAdd(*poBlock) != 0);
            ASSERT_EQ(oAfter.Get(), GetBytes(*poBlock));
            ExpectListsOfBytes(*poBlock);
        }
    }
}

// Bytes behind the content move too, up to the last one in front of the checksum.
TEST(Cea861Space, AdditionsMoveTheTail)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes({ 0x41, 1 }).Detailed({ 1 }).At(119, 0xAA).Get());
    ASSERT_NE(0, poBlock->AddVendorSpecific());
    EXPECT_EQ(0xAA, poBlock->GetData()[126]) << "by seven bytes";
    const auto poAudio = LoadBlock(CCeaBlockBuilder().Bytes({ 0x41, 1 }).Detailed({ 1 }).At(119, 0xAA).Get());
    ASSERT_NE(0, poAudio->AddAudioDescriptor(&gsc_oAudio));
    EXPECT_EQ(0xAA, poAudio->GetData()[123]) << "by four, with the header";
    ASSERT_NE(0, poAudio->AddAudioDescriptor(&gsc_oAudio));
    EXPECT_EQ(0xAA, poAudio->GetData()[126]) << "by three";
}

// ---- Raw steps ----

TEST(Cea861RawSteps, RangesBeyondTheBlockReportAndChangeNothing)
{
    const CBytes aui8Block = CCeaBlockBuilder().Bytes({ 0x41, 1 }).Detailed({ 1, 2, 3, 4, 5, 6 }).Get();
    const std::pair<unsigned int, unsigned int> aoRanges[] = { { 0, 129 },        { 128, 1 },
                                                               { 129, 0 },        { 4, 0xFFFFFFFF },
                                                               { 0xFFFFFFFF, 1 }, { 0x80000000, 0x80000004 } };
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
    CBytes aui8Block = { 2, 1 };
    while (aui8Block.size() < 128)
    {
        aui8Block.push_back(static_cast<unsigned char>(aui8Block.size() + 1));
    }
    aui8Block = FixChecksums(aui8Block);
    for (unsigned int uiStart = 0; uiStart <= 127; ++uiStart)
    {
        for (unsigned int uiLength = 0; uiStart + uiLength <= 127; ++uiLength)
        {
            CBytes aui8Expected = aui8Block;
            aui8Expected.erase(aui8Expected.begin() + uiStart, aui8Expected.begin() + uiStart + uiLength);
            aui8Expected.insert(aui8Expected.end() - 1, uiLength, 0);
            const auto poBlock = LoadBlock(aui8Block);
            poBlock->RemoveDataRange(uiStart, uiLength);
            ASSERT_EQ(aui8Expected, GetBytes(*poBlock)) << uiStart << ", " << uiLength;
        }
    }
}

// ---- Stripping ----

struct SStripCase
{
    const char* m_szName;
    unsigned int m_uiFlags;
    unsigned char m_ui8Byte3;
    CBytes m_aui8Blocks;
    unsigned char m_ui8Byte3After;
    CBytes m_aui8BlocksAfter;
    int m_bStripped;
    unsigned int m_uiReports;
};

// clang-format off
const SStripCase gsc_aoStripCases[] = {
    { "Nothing",                   0,          0xF0, { 0x23, 9, 7, 7 },             0xF0, { 0x23, 9, 7, 7 }, 0, 0 },
    { "AudioAndSpeaker",           0x11,       0xF4, { 0x41, 0x10, 0x23, 9, 7, 7, 0x83, 1, 0, 0 },
                                               0xB4, { 0x41, 0x10 },                                         1, 0 },
    { "AllAudioBlocks",            0x01,       0xF4, { 0x23, 9, 7, 7, 0x41, 0x10, 0x20, 0x21, 5, 0x83, 1, 0, 0 },
                                               0xB4, { 0x41, 0x10, 0x83, 1, 0, 0 },                          1, 0 },
    { "SpeakerLeavesTheAudioFlag", 0x10,       0xF4, { 0x83, 1, 0, 0, 0x83, 3, 0, 0 }, 0xF4, {},             1, 0 },
    { "FlagAloneCounts",           0x01,       0xF4, { 0x41, 0x10 },                0xB4, { 0x41, 0x10 },    1, 0 },
    { "NothingFound",              0x11,       0xB4, { 0x41, 0x10 },                0xB4, { 0x41, 0x10 },    0, 0 },
    { "ReservedReportsEach",       0x26,       0xF4, { 0x23, 9, 7, 7 },             0xF4, { 0x23, 9, 7, 7 }, 0, 3 },
    { "UnknownBitsAreIgnored",     0xFFFFFFC8, 0xF4, { 0x23, 9, 7, 7 },             0xF4, { 0x23, 9, 7, 7 }, 0, 0 },
};
// clang-format on

TEST(Cea861Strip, TakesOutWhatIsAskedForAtLoad)
{
    for (const SStripCase& oCase : gsc_aoStripCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const CCeaBlockBuilder oBefore = CCeaBlockBuilder().Flags(oCase.m_ui8Byte3).Bytes(oCase.m_aui8Blocks);
        const CCeaBlockBuilder oAfter = CCeaBlockBuilder().Flags(oCase.m_ui8Byte3After).Bytes(oCase.m_aui8BlocksAfter);
        CCapturedOutput oOutput;
        const auto poBlock = LoadBlock(CCeaBlockBuilder(oBefore).Detailed({ 1, 2 }).Get(), oCase.m_uiFlags);
        EXPECT_EQ(oCase.m_uiReports, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_bStripped, poBlock->IsStripped());
        EXPECT_EQ(CCeaBlockBuilder(oAfter).Detailed({ 1, 2 }).Get(), GetBytes(*poBlock));
        ExpectListsOfBytes(*poBlock);
    }
}
}
