// The DisplayID block alone: which bytes it accepts, how far it walks, what its records mean.

#include <gtest/gtest.h>
#include <string.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "DisplayIdImages.h"
#include "EdidExtBlockDisplayID.h"
#include "OsServices.h"
#include "RecordingTiming.h"
#include "RVidParamTiming.h"
#include "VidParamTimingGeneric.h"

namespace
{
using Block = CEdidExtBlockDisplayID;

std::unique_ptr<Block> Load(const CBytes& aui8Bytes)
{
    return std::make_unique<Block>(static_cast<unsigned int>(aui8Bytes.size()), CopyToHeap(aui8Bytes).get());
}

int IsSupported(const CBytes& aui8Bytes)
{
    return Block::IsSupported(static_cast<unsigned int>(aui8Bytes.size()), CopyToHeap(aui8Bytes).get());
}

// Every reading operation, into both storage classes.
void ReadAll(Block& oBlock)
{
    CVidParamTimingGeneric oGeneric;
    CRVidParamTiming oRecord;
    for (unsigned int i = 0; i <= oBlock.GetDetailedCount(); ++i)
    {
        oBlock.GetDetailed(i, &oGeneric);
        oBlock.GetDetailed(i, &oRecord);
    }
    int aiFlags[6];
    unsigned int auiTile[6];
    oBlock.GetTiledDisplayCapabilities(&aiFlags[0], &aiFlags[1], &aiFlags[2], &aiFlags[3], &aiFlags[4], &aiFlags[5]);
    oBlock.GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]);
    EXPECT_TRUE(oBlock.IsChecksumValid());
}

TEST(DisplayIdBlock, ShortOrMissingBytesAreTheCallersMistake)
{
    const CBytes aui8Block = MakeDisplayIdBlock({});
    CCapturedOutput oOutput;
    EXPECT_EQ(0, Block::IsSupported(127, aui8Block.data()));
    EXPECT_EQ(0, Block::IsSupported(128, nullptr));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

TEST(DisplayIdBlock, WhatIsNotSupportedGivesAnEmptyObject)
{
    CBytes aui8Tag = MakeDisplayIdBlock({});
    aui8Tag[0] = 0x02;
    FixSum(aui8Tag, 0, 127);
    CBytes aui8BlockSum = MakeDisplayIdBlock({});
    aui8BlockSum[127] ^= 1;
    CBytes aui8SectionSum = MakeDisplayIdBlock({});
    aui8SectionSum[5] ^= 1;
    FixSum(aui8SectionSum, 0, 127);

    CCountingAllocator oHeap;
    CCapturedOutput oOutput;
    for (const CBytes& aui8Bytes : { aui8Tag, aui8BlockSum, aui8SectionSum })
    {
        EXPECT_EQ(0, IsSupported(aui8Bytes));
        const auto poBlock = Load(aui8Bytes);
        EXPECT_EQ(0U, poBlock->GetExtensionType());
        EXPECT_EQ(0U, poBlock->GetSize());
        EXPECT_EQ(nullptr, poBlock->GetData());
        EXPECT_EQ(0U, poBlock->GetDetailedCount());
        EXPECT_EQ(0, poBlock->IsDisplayPartOfTiledTopology());
    }
    EXPECT_EQ(0U, oHeap.GetAllocCount()); // not for the questions either
    EXPECT_EQ(0U, oOutput.TakeAssertionCount());
}

TEST(DisplayIdBlock, EveryRevisionUpTo12HexIsAccepted)
{
    for (unsigned int uiRevision = 0; uiRevision < 256; ++uiRevision)
    {
        EXPECT_EQ(uiRevision <= 0x12 ? 1 : 0, IsSupported(MakeDisplayIdBlock({}, 0, uiRevision))) << uiRevision;
    }
}

// One data block of zeros behind its header: how many timings the walk finds, and no byte read outside.
void CheckSection(unsigned int uiTag, unsigned int uiSection, unsigned int uiLength)
{
    SCOPED_TRACE(testing::Message() << "tag " << uiTag << ", section " << uiSection << ", length " << uiLength);
    const auto poBlock = Load(
        MakeDisplayIdBlock({ static_cast<unsigned char>(uiTag), 0, static_cast<unsigned char>(uiLength) }, uiSection));
    ASSERT_EQ(uiSection <= 121 ? 128U : 0U, poBlock->GetSize());
    if (poBlock->GetSize() == 0)
    {
        return;
    }
    ReadAll(*poBlock);
    if (uiSection == 1 || uiSection == 2)
    {
        return; // the section's checksum takes the place of the revision or the length
    }
    const bool bReads = uiSection > 0 && uiLength <= 128 - 8;
    const unsigned int uiRecord = uiTag == 3 ? 20 : uiTag == 4 ? 11 : 0;
    const bool bTimings = bReads && uiRecord != 0 && uiLength % uiRecord == 0;
    ASSERT_EQ(bTimings ? uiLength / uiRecord : 0, poBlock->GetDetailedCount());
    ASSERT_EQ(bReads && uiTag == 18 && uiLength == 22, poBlock->IsDisplayPartOfTiledTopology() != 0);
}

TEST(DisplayIdSweep, SectionLengthAndDataBlockLength)
{
    const CQuietMessages oQuiet;
    for (unsigned int uiTag : { 0U, 3U, 4U, 5U, 18U })
    {
        for (unsigned int uiValue = 0; uiValue < 256; ++uiValue)
        {
            for (unsigned int uiLength : { 0U, 11U, 20U, 22U, 40U, 110U, 120U, 121U, 240U, 255U })
            {
                ASSERT_NO_FATAL_FAILURE(CheckSection(uiTag, uiValue, uiLength));
            }
            for (unsigned int uiSection : { 3U, 60U, 121U })
            {
                ASSERT_NO_FATAL_FAILURE(CheckSection(uiTag, uiSection, uiValue));
            }
        }
    }
}

void CheckFirstBlock(unsigned int uiTag, unsigned int uiRevision, unsigned int uiLength)
{
    CBytes aui8Blocks = MakeDataBlock(uiTag, uiRevision, CBytes(uiLength));
    Append(aui8Blocks, MakeDataBlock(3, 0, Type1Record1080p()));
    const auto poBlock = Load(MakeDisplayIdBlock(aui8Blocks));

    // The second block counts unless the first is an end mark or bad.
    const unsigned int uiLow = uiRevision & 7; // the only bits that are looked at
    unsigned int uiTimings = uiTag == 0 ? 0 : 1;
    if (uiTag == 3)
    {
        uiTimings = uiLow <= 1 && uiLength == 20 ? 2 : 0;
    }
    if (uiTag == 4)
    {
        uiTimings = uiLow == 0 && uiLength == 22 ? 3 : 0;
    }
    if (uiTag == 18)
    {
        uiTimings = uiLow == 0 && uiLength == 22 ? 1 : 0;
    }
    ASSERT_EQ(uiTimings, poBlock->GetDetailedCount()) << uiTag << ' ' << uiRevision << ' ' << uiLength;
    ReadAll(*poBlock);
}

TEST(DisplayIdSweep, TagAndRevisionOfTheFirstDataBlock)
{
    const CQuietMessages oQuiet;
    for (unsigned int uiValue = 0; uiValue < 256; ++uiValue)
    {
        for (unsigned int uiLength : { 20U, 22U })
        {
            for (unsigned int uiTag : { 0U, 3U, 4U, 5U, 18U })
            {
                ASSERT_NO_FATAL_FAILURE(CheckFirstBlock(uiTag, uiValue, uiLength));
            }
            for (unsigned int uiRevision : { 0U, 2U, 8U, 255U })
            {
                ASSERT_NO_FATAL_FAILURE(CheckFirstBlock(uiValue, uiRevision, uiLength));
            }
        }
    }
}

// A header at every place, its payload one byte too long for the block, exactly at its end, and short of it.
TEST(DisplayIdSweep, PayloadAtTheEndOfTheBlock)
{
    const CQuietMessages oQuiet;
    for (unsigned int uiFiller = 0; uiFiller <= 118; ++uiFiller)
    {
        const unsigned int uiHeader = 5 + 3 + uiFiller;
        for (unsigned int uiLength : { 11U, 20U, 22U, 40U, 44U, 60U, 80U, 100U, 110U, 120U, 240U })
        {
            for (unsigned int uiTag : { 3U, 4U, 18U })
            {
                CBytes aui8Blocks = MakeDataBlock(0x7F, 0, CBytes(uiFiller));
                Append(aui8Blocks, { static_cast<unsigned char>(uiTag), 0, static_cast<unsigned char>(uiLength) });
                aui8Blocks.resize(std::min<size_t>(aui8Blocks.size(), 121)); // the last places hold no whole header
                const auto poBlock = Load(MakeDisplayIdBlock(aui8Blocks, 121));
                const bool bInside = uiHeader + 3 + uiLength <= 128;
                const unsigned int uiRecord = uiTag == 3 ? 20 : 11;
                const bool bCounts = uiHeader <= 123 && bInside && uiTag != 18 && uiLength % uiRecord == 0;
                ASSERT_EQ(bCounts ? uiLength / uiRecord : 0, poBlock->GetDetailedCount())
                    << uiTag << ' ' << uiHeader << ' ' << uiLength;
                ReadAll(*poBlock);
            }
        }
    }
}

// ---- Order, bad blocks ----

TEST(DisplayIdBlock, EmptySectionHasNothing)
{
    const auto poBlock = Load(MakeDisplayIdBlock({}));
    EXPECT_EQ(112U, poBlock->GetExtensionType());
    EXPECT_EQ(0x12U, poBlock->GetRevision());
    EXPECT_EQ(128U, poBlock->GetSize());
    EXPECT_EQ(0U, poBlock->GetDetailedCount());
    EXPECT_EQ(0, poBlock->IsDisplayPartOfTiledTopology());
}

TEST(DisplayIdBlock, Type1ComesFirstWhateverTheOrderOfTheBlocks)
{
    CBytes aui8Second = Type1Record1080p();
    aui8Second[4] = 0xFF; // 2048 pixels wide
    CBytes aui8Two = Type1Record1080p();
    Append(aui8Two, aui8Second);

    CBytes aui8Blocks = MakeDataBlock(4, 0, Type2Record720p());
    Append(aui8Blocks, MakeDataBlock(0x0C, 3, CBytes(5, 0xAA))); // not understood
    Append(aui8Blocks, MakeDataBlock(3, 1, aui8Two));
    const auto poBlock = Load(MakeDisplayIdBlock(aui8Blocks));

    ASSERT_EQ(3U, poBlock->GetDetailedCount());
    const unsigned int auiWidths[] = { 1920, 2048, 1280 };
    for (unsigned int i = 0; i < 3; ++i)
    {
        CVidParamTimingGeneric oTiming;
        EXPECT_EQ(1, poBlock->GetDetailed(i, &oTiming));
        EXPECT_EQ(auiWidths[i], oTiming.GetHorizontalActive());
    }
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(0, poBlock->GetDetailed(3, &oTiming));
    EXPECT_EQ(0, poBlock->GetDetailed(0xFFFFFFFFU, &oTiming));
}

struct SBadBlockCase
{
    const char* m_szName;
    CBytes m_aui8Block;
};

class DisplayIdBadBlock : public testing::TestWithParam<SBadBlockCase>
{
};

TEST_P(DisplayIdBadBlock, EndsTheReadingAndLeavesNoTimings)
{
    CBytes aui8Blocks = MakeDataBlock(18, 0, TilePayload());
    Append(aui8Blocks, MakeDataBlock(3, 0, Type1Record1080p()));
    Append(aui8Blocks, GetParam().m_aui8Block);
    CCapturedOutput oOutput;
    const auto poBlock = Load(MakeDisplayIdBlock(aui8Blocks));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    EXPECT_EQ(0U, poBlock->GetDetailedCount());
    EXPECT_EQ(1, poBlock->IsDisplayPartOfTiledTopology()); // declared before the bad block
    EXPECT_TRUE(poBlock->IsChecksumValid());
    EXPECT_EQ(1U, poBlock->ExtractDetailedTimings()); // by hand: what stands in front of the bad block
    EXPECT_EQ(1U, poBlock->GetDetailedCount());
}

INSTANTIATE_TEST_SUITE_P(Cases, DisplayIdBadBlock,
                         testing::Values(SBadBlockCase{ "Type1Revision2", MakeDataBlock(3, 2, Type1Record1080p()) },
                                         SBadBlockCase{ "Type2Revision1", MakeDataBlock(4, 1, Type2Record720p()) },
                                         SBadBlockCase{ "TileRevision1", MakeDataBlock(18, 1, TilePayload()) },
                                         SBadBlockCase{ "Type1WithoutRecord", MakeDataBlock(3, 0, {}) },
                                         SBadBlockCase{ "Type1WithHalfARecord", MakeDataBlock(3, 0, CBytes(30)) },
                                         SBadBlockCase{ "Type2WithHalfARecord", MakeDataBlock(4, 0, CBytes(20)) },
                                         SBadBlockCase{ "TileTooShort", MakeDataBlock(18, 0, CBytes(21)) },
                                         SBadBlockCase{ "TileTwiceAsLong", MakeDataBlock(18, 0, CBytes(44)) },
                                         SBadBlockCase{ "Type1OutsideTheBlock", { 3, 0, 240 } },
                                         SBadBlockCase{ "Type2OutsideTheBlock", { 4, 0, 110 } }),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_szName); });

TEST(DisplayIdBlock, PayloadBeyondTheSectionButInsideTheBlockCounts)
{
    CBytes aui8Blocks = MakeDataBlock(4, 0, CBytes(22, 0x11));
    const auto poBlock = Load(MakeDisplayIdBlock(aui8Blocks, 10));
    EXPECT_EQ(2U, poBlock->GetDetailedCount());
}

// ---- Records ----

struct SExpectedTiming
{
    unsigned int m_uiClockKiloHz;
    int m_bInterlaced;
    unsigned int m_auiHorizontal[4]; // active, front porch, sync, back porch
    int m_bHorizontalPositive;
    unsigned int m_auiVertical[4];
    int m_bVerticalPositive;
    unsigned int m_uiHorizontalRateHz;
    unsigned int m_uiVerticalRateHz;
};

struct SRecordCase
{
    const char* m_szName;
    unsigned int m_uiTag;
    CBytes m_aui8Record;
    SExpectedTiming m_oExpected;

    // Its bytes would show its padding.
    friend void PrintTo(const SRecordCase& oCase, std::ostream* poStream) { *poStream << oCase.m_szName; }
};

// clang-format off
const SRecordCase gsc_aoRecordCases[] = {
    { "Type1Progressive", 3, Type1Record1080p(),
      { 148500, 0, { 1920, 88, 44, 148 }, 1, { 1080, 4, 5, 36 }, 1, 67500, 60 } },
    // The height stays what the record says; the total is 540 + 2 * 22 + 1 = 585, so 74250000 / (2200 * 585) = 57.7.
    { "Type1InterlacedHeightIsNotDoubled", 3,
      { 0x00, 0x1D, 0x00, 0x10, 0x7F, 0x07, 0x17, 0x01, 0x57, 0x00, 0x2B, 0x00, 0x1B, 0x02, 0x15, 0x00, 0x01, 0x00, 0x04, 0x00 },
      { 74250, 1, { 1920, 88, 44, 148 }, 0, { 540, 2, 5, 15 }, 0, 33750, 58 } },
    // Other flag bits mean aspect, stereo, preference: none of them is interlace.
    { "Type1OtherFlagsAreNotRead", 3,
      { 0x01, 0x3A, 0x00, 0xEF, 0x7F, 0x07, 0x17, 0x01, 0x57, 0x80, 0x2B, 0x00, 0x37, 0x04, 0x2C, 0x00, 0x03, 0x00, 0x04, 0x00 },
      { 148500, 0, { 1920, 88, 44, 148 }, 1, { 1080, 4, 5, 36 }, 0, 67500, 60 } },
    // 65536 x 65536, porches of 32768, syncs of 1; the product of the totals, 98305 * 98305, is 1073938433 at 32 bits.
    { "Type1LargestFields", 3,
      { 0xFF, 0xFF, 0x00, 0x00, 0xFF, 0xFF, 0x00, 0x80, 0xFF, 0x7F, 0x00, 0x00, 0xFF, 0xFF, 0x00, 0x80, 0xFF, 0x7F, 0x00, 0x00 },
      { 655360, 0, { 65536, 32768, 1, 0 }, 0, { 65536, 32768, 1, 0 }, 0, 6667, 1 } },
    // Blanking of 8 with porch 8 and sync 8: the back porch wraps below zero, the totals come out right again.
    { "Type1BlankingTooShort", 3,
      { 0x01, 0x3A, 0x00, 0x00, 0x7F, 0x07, 0x07, 0x00, 0x07, 0x00, 0x07, 0x00, 0x37, 0x04, 0x2C, 0x00, 0x03, 0x00, 0x04, 0x00 },
      { 148500, 0, { 1920, 8, 8, 0xFFFFFFF8U }, 0, { 1080, 4, 5, 36 }, 0, 77023, 68 } },
    { "Type2Progressive", 4, Type2Record720p(),
      { 74250, 0, { 1280, 112, 40, 216 }, 1, { 720, 5, 5, 20 }, 0, 45055, 60 } },
    // Bit 8 of the width stands in the blanking's byte: 512 units of 8. 2048 lines and vertical sync positive.
    { "Type2HighBits", 4, { 0xFF, 0x3F, 0x00, 0x04, 0xFF, 0x15, 0x10, 0xFF, 0xF7, 0x13, 0x21 },
      { 163840, 0, { 4096, 16, 8, 64 }, 0, { 2048, 3, 2, 15 }, 1, 39159, 19 } },
    { "Type2ClockFieldOfZeroIs10KiloHz", 4, { 0x00, 0x00, 0x00, 0x18, 0x9F, 0x5A, 0xD4, 0xCF, 0x02, 0x1D, 0x44 },
      { 10, 1, { 1280, 112, 40, 216 }, 1, { 720, 5, 5, 20 }, 0, 6, 0 } },
};
// clang-format on

class DisplayIdRecord : public testing::TestWithParam<SRecordCase>
{
};

TEST_P(DisplayIdRecord, GivesTheTiming)
{
    const SExpectedTiming& oExpected = GetParam().m_oExpected;
    const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(GetParam().m_uiTag, 0, GetParam().m_aui8Record)));
    CVidParamTimingGeneric oTiming;
    ASSERT_EQ(1, poBlock->GetDetailed(0, &oTiming));
    EXPECT_EQ(oExpected.m_uiClockKiloHz, oTiming.GetPixelClockInKiloHz());
    EXPECT_EQ(oExpected.m_bInterlaced, oTiming.IsInterlaced());
    EXPECT_EQ(oExpected.m_auiHorizontal[0], oTiming.GetHorizontalActive());
    EXPECT_EQ(oExpected.m_auiHorizontal[1], oTiming.GetHorizontalFrontPorch());
    EXPECT_EQ(oExpected.m_auiHorizontal[2], oTiming.GetHorizontalSync());
    EXPECT_EQ(oExpected.m_auiHorizontal[3], oTiming.GetHorizontalBackPorch());
    EXPECT_EQ(oExpected.m_bHorizontalPositive, oTiming.IsHorizontalPolarityPositive());
    EXPECT_EQ(oExpected.m_auiVertical[0], oTiming.GetVerticalActive());
    EXPECT_EQ(oExpected.m_auiVertical[1], oTiming.GetVerticalFrontPorch());
    EXPECT_EQ(oExpected.m_auiVertical[2], oTiming.GetVerticalSync());
    EXPECT_EQ(oExpected.m_auiVertical[3], oTiming.GetVerticalBackPorch());
    EXPECT_EQ(oExpected.m_bVerticalPositive, oTiming.IsVerticalPolarityPositive());
    EXPECT_EQ(oExpected.m_uiHorizontalRateHz, oTiming.GetHorizontalRateInHz());
    EXPECT_EQ(oExpected.m_uiVerticalRateHz, oTiming.GetVerticalRateInHz());
    EXPECT_EQ(CVidParamTiming::eVidParamType_Detailed, oTiming.GetVideoFamilyType());
}

INSTANTIATE_TEST_SUITE_P(Cases, DisplayIdRecord, testing::ValuesIn(gsc_aoRecordCases),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_szName); });

TEST(DisplayIdRecords, ZeroFieldsAreRefusedAndLeaveTheTimingAlone)
{
    struct SZeroCase
    {
        unsigned int m_uiTag;
        unsigned int m_auiZeroed[3]; // bytes of the record
    };
    const SZeroCase aoCases[] = {
        { 3, { 0, 1, 2 } }, { 3, { 4, 5, 5 } }, { 3, { 12, 13, 13 } }, { 4, { 4, 5, 5 } }, // takes the blanking with it
        { 4, { 7, 8, 8 } },
    };
    for (const SZeroCase& oCase : aoCases)
    {
        CBytes aui8Record = oCase.m_uiTag == 3 ? Type1Record1080p() : Type2Record720p();
        for (unsigned int uiByte : oCase.m_auiZeroed)
        {
            aui8Record[uiByte] = 0;
        }
        const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(oCase.m_uiTag, 0, aui8Record)));
        EXPECT_EQ(1U, poBlock->GetDetailedCount());
        CVidParamTimingGeneric oTiming;
        oTiming.SetHorizontalActive(77);
        EXPECT_EQ(0, poBlock->GetDetailed(0, &oTiming));
        EXPECT_EQ(77U, oTiming.GetHorizontalActive());
        EXPECT_EQ(0U, oTiming.GetPixelClockInHz());
    }
}

// The rates are computed from what stands in the timing, so they come after it.
TEST(DisplayIdRecords, WriteEachValueOnceAndTheRatesLast)
{
    const CCallNames asExpected = { "ClockKiloHz", "Interlaced", "HActive", "HFront", "HSync",
                                    "HBack",       "HPolarity",  "VActive", "VFront", "VSync",
                                    "VBack",       "VPolarity",  "HRateHz", "VRate",  "Type" };
    for (const CBytes& aui8Block : { MakeDataBlock(3, 0, Type1Record1080p()), MakeDataBlock(4, 0, Type2Record720p()) })
    {
        const auto poBlock = Load(MakeDisplayIdBlock(aui8Block));
        CRecordingTiming oTiming;
        EXPECT_EQ(1, poBlock->GetDetailed(0, &oTiming));
        EXPECT_EQ(asExpected, oTiming.m_asCalls);
    }
}

TEST(DisplayIdRecords, WhatARecordDoesNotTellIsKept)
{
    const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(3, 0, Type1Record1080p())));
    CVidParamTimingGeneric oTiming;
    oTiming.Set420ColorSpace(1);
    oTiming.Set3D(1);
    EXPECT_EQ(1, poBlock->GetDetailed(0, &oTiming));
    EXPECT_EQ(1, oTiming.Is420ColorSpace());
    EXPECT_EQ(1, oTiming.Is3D());
}

TEST(DisplayIdRecords, NullIsTheCallersMistake)
{
    const Block::SDisplayIdType1DetailedRaw oType1 = {};
    const Block::SDisplayIdType2DetailedRaw oType2 = {};
    CVidParamTimingGeneric oTiming;
    CCapturedOutput oOutput;
    EXPECT_EQ(0, Block::ConvertDetailedType1ToVidParam(nullptr, &oTiming));
    EXPECT_EQ(0, Block::ConvertDetailedType1ToVidParam(&oType1, nullptr));
    EXPECT_EQ(0, Block::ConvertDetailedType2ToVidParam(nullptr, &oTiming));
    EXPECT_EQ(0, Block::ConvertDetailedType2ToVidParam(&oType2, nullptr));
    EXPECT_EQ(4U, oOutput.TakeAssertionCount());
}

// ---- Tile ----

struct STileCase
{
    const char* m_szName;
    CBytes m_aui8Payload; // the first 8 bytes
    unsigned int m_auiTopology[6];
    int m_aiCapabilities[6];
};

// clang-format off
const STileCase gsc_aoTileCases[] = {
    //                                                                                 location  count     size              one box, bezel, several, one: there, scaled, cloned
    { "TwoByTwo",           { 0x88, 0x11, 0x10, 0x00, 0x7F, 0x07, 0x37, 0x04 },      { 1, 0,     2, 2,   1920, 1080 },     { 1, 0, 1, 0, 0, 0 } },
    { "Scaled",             { 0x42, 0x10, 0x00, 0x00, 0xFF, 0x09, 0x3F, 0x0B },      { 0, 0,     2, 1,   2560, 2880 },     { 0, 1, 0, 0, 1, 0 } },
    { "AtLocation",         { 0x11, 0x01, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00 },      { 0, 1,     1, 2,   1, 1 },           { 0, 0, 0, 1, 0, 0 } },
    { "Cloned",             { 0x1B, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00 },      { 0, 0,     1, 1,   1, 1 },           { 0, 0, 0, 0, 0, 1 } },
    { "UnknownBehaviours",  { 0x27, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00 },      { 0, 0,     1, 1,   1, 1 },           { 0, 0, 0, 0, 0, 0 } },
    // High bits: count across 1 -> 16, down 2 -> 32, location across 3 -> 48, down 1 -> 16.
    { "HighBits",           { 0x00, 0xF0, 0x0F, 0x6D, 0xFF, 0xFF, 0xFF, 0xFF },      { 48, 31,   32, 33, 65536, 65536 },   { 0, 0, 0, 0, 0, 0 } },
};
// clang-format on

class DisplayIdTile : public testing::TestWithParam<STileCase>
{
};

TEST_P(DisplayIdTile, IsDecoded)
{
    CBytes aui8Payload = GetParam().m_aui8Payload;
    aui8Payload.resize(22, 0xEE);
    const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(18, 0, aui8Payload)));
    EXPECT_EQ(1, poBlock->IsDisplayPartOfTiledTopology());
    unsigned int auiTile[6] = {};
    EXPECT_EQ(1,
              poBlock->GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]));
    int aiFlags[6] = { -1, -1, -1, -1, -1, -1 };
    EXPECT_EQ(1, poBlock->GetTiledDisplayCapabilities(&aiFlags[0], &aiFlags[1], &aiFlags[2], &aiFlags[3], &aiFlags[4],
                                                      &aiFlags[5]));
    for (unsigned int i = 0; i < 6; ++i)
    {
        EXPECT_EQ(GetParam().m_auiTopology[i], auiTile[i]) << i;
        EXPECT_EQ(GetParam().m_aiCapabilities[i], aiFlags[i]) << i;
    }
    EXPECT_EQ(1, poBlock->GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
}

INSTANTIATE_TEST_SUITE_P(Cases, DisplayIdTile, testing::ValuesIn(gsc_aoTileCases),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_szName); });

TEST(DisplayIdTiles, TheFirstDeclarationAnswers)
{
    CBytes aui8Other = TilePayload();
    aui8Other[2] = 0x01;
    CBytes aui8Blocks = MakeDataBlock(18, 0, TilePayload());
    Append(aui8Blocks, MakeDataBlock(18, 0, aui8Other));
    const auto poBlock = Load(MakeDisplayIdBlock(aui8Blocks));
    unsigned int auiTile[6] = {};
    EXPECT_EQ(1,
              poBlock->GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]));
    EXPECT_EQ(1U, auiTile[0]);
    EXPECT_EQ(0U, auiTile[1]);
}

TEST(DisplayIdTiles, WithoutADeclarationNothingIsWritten)
{
    const auto poBlock = Load(MakeDisplayIdBlock({}));
    int iFlag = 5;
    unsigned int uiTile = 6;
    EXPECT_EQ(0, poBlock->GetTiledDisplayCapabilities(&iFlag, &iFlag, &iFlag, &iFlag, &iFlag, &iFlag));
    EXPECT_EQ(0, poBlock->GetTopologyDescription(uiTile, uiTile, uiTile, uiTile, uiTile, uiTile));
    EXPECT_EQ(5, iFlag);
    EXPECT_EQ(6U, uiTile);
}

// ---- Read-only ----

TEST(DisplayIdBlock, EveryEditIsRefused)
{
    CBytes aui8Bytes = MakeDisplayIdBlock(MakeDataBlock(3, 0, Type1Record1080p()));
    const auto poBlock = Load(aui8Bytes);
    unsigned int uiDepth = 7;
    EXPECT_EQ(0, poBlock->RemoveDetailed(0));
    EXPECT_EQ(0, poBlock->RemoveStandard(0));
    EXPECT_EQ(0, poBlock->SetColorBitDepthSupport(1));
    EXPECT_EQ(0, poBlock->GetColorBitDepthSupport(uiDepth));
    EXPECT_EQ(7U, uiDepth);
    EXPECT_EQ(0, poBlock->IsStripped());
    EXPECT_EQ(0U, poBlock->GetStandardCount());
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(0, poBlock->GetStandard(0, &oTiming, nullptr));
    EXPECT_EQ(1U, poBlock->GetDetailedCount());
    EXPECT_EQ(0, memcmp(aui8Bytes.data(), poBlock->GetData(), aui8Bytes.size()));
}

TEST(DisplayIdBlock, CopiesAsMuchAsFits)
{
    const CBytes aui8Bytes = MakeDisplayIdBlock({});
    const auto poBlock = Load(aui8Bytes);
    CBytes aui8Copy(200, 0xCC);
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(0, aui8Copy.data()));
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(128, nullptr));
    EXPECT_EQ(4U, poBlock->GetEdidBuffer(4, aui8Copy.data()));
    EXPECT_EQ(0xCC, aui8Copy[4]);
    EXPECT_EQ(128U, poBlock->GetEdidBuffer(200, aui8Copy.data()));
    EXPECT_EQ(0xCC, aui8Copy[128]);
    EXPECT_TRUE(std::equal(aui8Bytes.begin(), aui8Bytes.end(), aui8Copy.begin()));
    const auto aui8Array = poBlock->GetEdidBuffer();
    EXPECT_EQ(128U, aui8Array.GetCount());
    EXPECT_NE(poBlock->GetData(), aui8Array.GetData());
}

// More than one block's worth of bytes may be offered; they are all kept, and a payload may reach into them.
TEST(DisplayIdBlock, LongerOffersAreKeptWhole)
{
    CBytes aui8Bytes = MakeDisplayIdBlock({ 3, 0, 140 }, 121); // 7 records, the last ends at byte 148
    aui8Bytes.resize(256);
    FixSum(aui8Bytes, 0, 255);
    const auto poBlock = Load(aui8Bytes);
    EXPECT_EQ(256U, poBlock->GetSize());
    EXPECT_EQ(7U, poBlock->GetDetailedCount());
}
}
