// The DisplayID block alone: which bytes it accepts, how far it walks, what its records mean.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <memory>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "DisplayIdImages.h"
#include "EdidExtBlockDisplayID.h"
#include "RecordingTiming.h"
#include "RVidParamTiming.h"
#include "VidParamTimingGeneric.h"

namespace
{
using Block = CEdidExtBlockDisplayID;
using CNumbers = std::array<unsigned int, 6>;

std::unique_ptr<Block> Load(const CBytes& aui8Bytes)
{
    return std::make_unique<Block>(static_cast<unsigned int>(aui8Bytes.size()), CopyToHeap(aui8Bytes).get());
}

// Location, count and size of a tile, each across and down; zeros without one.
CNumbers GetTile(Block& oBlock)
{
    CNumbers aui = {};
    oBlock.GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]);
    return aui;
}

// ---- What is accepted ----

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
    FixBlockSum(aui8Tag, 0);
    CBytes aui8BlockSum = MakeDisplayIdBlock({});
    aui8BlockSum[127] ^= 1;
    CBytes aui8SectionSum = MakeDisplayIdBlock({});
    aui8SectionSum[5] ^= 1;
    FixBlockSum(aui8SectionSum, 0);

    CCountingAllocator oHeap;
    CCapturedOutput oOutput;
    for (const CBytes& aui8Bytes : { aui8Tag, aui8BlockSum, aui8SectionSum, MakeDisplayIdBlock({}, 0, 0x13) })
    {
        EXPECT_EQ(0, Block::IsSupported(128, aui8Bytes.data()));
        const auto poBlock = Load(aui8Bytes);
        EXPECT_EQ(0U, poBlock->GetExtensionType());
        EXPECT_EQ(nullptr, poBlock->GetData());
        EXPECT_EQ(0U, poBlock->GetDetailedCount());
        EXPECT_EQ(0, poBlock->IsDisplayPartOfTiledTopology());
    }
    EXPECT_EQ(0U, oHeap.GetAllocCount()); // not for the questions either
    EXPECT_EQ(0U, oOutput.TakeAssertionCount());
}

// ---- How far the walk goes: sweeps, against a walk of the test's own ----

struct SWalk
{
    unsigned int m_uiTimings = 0;
    bool m_bTile = false;
};

SWalk WalkBlock(const CBytes& aui8Block)
{
    SWalk oWalk;
    for (size_t i = 5; i < 5U + aui8Block[2] && aui8Block[i] != 0; i += 3U + aui8Block[i + 2])
    {
        const unsigned int uiTag = aui8Block[i];
        const unsigned int uiRevision = aui8Block[i + 1] % 8;
        const unsigned int uiLength = aui8Block[i + 2];
        if (uiTag != 3 && uiTag != 4 && uiTag != 18)
        {
            continue;
        }
        const unsigned int uiRecord = uiTag == 3 ? 20 : uiTag == 4 ? 11 : 22;
        if (uiRevision > (uiTag == 3 ? 1U : 0U) || uiLength == 0 || uiLength % uiRecord != 0 ||
            (uiTag == 18 && uiLength != 22) || i + 3 + uiLength > aui8Block.size())
        {
            oWalk.m_uiTimings = 0; // a bad block takes all timings with it
            break;
        }
        oWalk.m_bTile |= uiTag == 18;
        oWalk.m_uiTimings += uiTag == 18 ? 0 : uiLength / uiRecord;
    }
    return oWalk;
}

// Reads everything too, for the sanitizers.
void CheckWalk(const CBytes& aui8Bytes)
{
    SCOPED_TRACE(testing::PrintToString(aui8Bytes));
    const bool bSupported = aui8Bytes[1] <= 0x12 && aui8Bytes[2] <= 121;
    const auto poBlock = Load(aui8Bytes);
    ASSERT_EQ(bSupported ? 128U : 0U, poBlock->GetSize());
    const SWalk oWalk = bSupported ? WalkBlock(aui8Bytes) : SWalk();
    ASSERT_EQ(oWalk.m_uiTimings, poBlock->GetDetailedCount());
    ASSERT_EQ(oWalk.m_bTile, poBlock->IsDisplayPartOfTiledTopology() != 0);
    CRVidParamTiming oTiming;
    for (unsigned int i = 0; i < poBlock->GetDetailedCount(); ++i)
    {
        poBlock->GetDetailed(i, &oTiming);
    }
    GetTile(*poBlock);
}

constexpr unsigned int gsc_auiTags[] = { 0, 3, 4, 5, 18 };

TEST(DisplayIdSweep, SectionLengthRevisionAndDataBlockLength)
{
    const CQuietMessages oQuiet;
    for (unsigned int uiValue = 0; uiValue < 256; ++uiValue)
    {
        const unsigned char ui8Value = static_cast<unsigned char>(uiValue);
        ASSERT_NO_FATAL_FAILURE(CheckWalk(MakeDisplayIdBlock({}, 0, uiValue)));
        for (unsigned int uiTag : gsc_auiTags)
        {
            const unsigned char ui8Tag = static_cast<unsigned char>(uiTag);
            for (unsigned char ui8Length : CBytes{ 0, 11, 20, 22, 40, 110, 120, 121, 240, 255 })
            {
                ASSERT_NO_FATAL_FAILURE(CheckWalk(MakeDisplayIdBlock({ ui8Tag, 0, ui8Length }, uiValue)));
            }
            for (unsigned int uiSection : { 3U, 60U, 121U })
            {
                ASSERT_NO_FATAL_FAILURE(CheckWalk(MakeDisplayIdBlock({ ui8Tag, 0, ui8Value }, uiSection)));
            }
        }
    }
}

// The second block counts unless the first is an end mark or bad.
TEST(DisplayIdSweep, TagAndRevisionOfTheFirstDataBlock)
{
    const CQuietMessages oQuiet;
    const CBytes aui8Second = MakeDataBlock(3, 0, Type1Record1080p());
    const auto CheckFirst = [&](unsigned int uiTag, unsigned int uiRevision, unsigned int uiLength) {
        CheckWalk(MakeDisplayIdBlock(Join({ MakeDataBlock(uiTag, uiRevision, CBytes(uiLength)), aui8Second })));
    };
    for (unsigned int uiValue = 0; uiValue < 256; ++uiValue)
    {
        for (unsigned int uiLength : { 20U, 22U })
        {
            for (unsigned int uiTag : gsc_auiTags)
            {
                ASSERT_NO_FATAL_FAILURE(CheckFirst(uiTag, uiValue, uiLength));
            }
            for (unsigned int uiRevision : { 0U, 2U, 8U })
            {
                ASSERT_NO_FATAL_FAILURE(CheckFirst(uiValue, uiRevision, uiLength));
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
        for (unsigned char ui8Length : CBytes{ 11, 20, 22, 40, 44, 60, 80, 100, 110, 120, 240 })
        {
            for (unsigned char ui8Tag : CBytes{ 3, 4, 18 })
            {
                CBytes aui8Blocks = Join({ MakeDataBlock(0x7F, 0, CBytes(uiFiller)), { ui8Tag, 0, ui8Length } });
                aui8Blocks.resize(std::min<size_t>(aui8Blocks.size(), 121)); // the last places hold no whole header
                ASSERT_NO_FATAL_FAILURE(CheckWalk(MakeDisplayIdBlock(aui8Blocks, 121)));
            }
        }
    }
}

TEST(DisplayIdBlock, PayloadMayEndBehindTheSectionButNotBehindTheBytes)
{
    EXPECT_EQ(2U, Load(MakeDisplayIdBlock(MakeDataBlock(4, 0, CBytes(22, 0x11)), 10))->GetDetailedCount());

    // More than one block's worth of bytes may be offered; they are all kept. 7 records, the last ends at byte 148.
    CBytes aui8Longer = MakeDisplayIdBlock({ 3, 0, 140 }, 121);
    aui8Longer.resize(256);
    FixSum(aui8Longer, 0, 255);
    EXPECT_EQ(256U, Load(aui8Longer)->GetSize());
    EXPECT_EQ(7U, Load(aui8Longer)->GetDetailedCount());
}

// ---- Order, bad blocks ----

TEST(DisplayIdBlock, Type1ComesFirstWhateverTheOrderOfTheBlocks)
{
    CBytes aui8Second = Type1Record1080p();
    aui8Second[4] = 0xFF; // 2048 pixels wide
    const auto poBlock = Load(MakeDisplayIdBlock(Join({
        MakeDataBlock(4, 0, Type2Record720p()),
        MakeDataBlock(0x0C, 3, CBytes(5, 0xAA)), // not understood
        MakeDataBlock(3, 1, Join({ Type1Record1080p(), aui8Second })),
    })));
    ASSERT_EQ(3U, poBlock->GetDetailedCount());
    const unsigned int auiWidths[] = { 1920, 2048, 1280 };
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(1, poBlock->GetDetailed(i, &oTiming));
        EXPECT_EQ(auiWidths[i], oTiming.GetHorizontalActive());
    }
    EXPECT_EQ(0, poBlock->GetDetailed(3, &oTiming));
    EXPECT_EQ(0, poBlock->GetDetailed(0xFFFFFFFFU, &oTiming));
    EXPECT_EQ(3U, poBlock->ExtractDetailedTimings()); // anew, not once more
}

struct SBadBlockCase
{
    const char* m_pszName;
    CBytes m_aui8Block;
};

TEST(DisplayIdBlock, BadDataBlockEndsTheReadingAndLeavesNoTimings)
{
    const SBadBlockCase aoCases[] = {
        { "Type1Revision2", MakeDataBlock(3, 2, Type1Record1080p()) },
        { "Type2Revision1", MakeDataBlock(4, 1, Type2Record720p()) },
        { "TileRevision1", MakeDataBlock(18, 1, TilePayload()) },
        { "Type1WithoutRecord", MakeDataBlock(3, 0, {}) },
        { "Type2WithHalfARecord", MakeDataBlock(4, 0, CBytes(20)) },
        { "TileTwiceAsLong", MakeDataBlock(18, 0, CBytes(44)) },
        { "Type1OutsideTheBlock", { 3, 0, 240 } },
    };
    const CBytes aui8Good = Join({ MakeDataBlock(18, 0, TilePayload()), MakeDataBlock(3, 0, Type1Record1080p()) });
    for (const SBadBlockCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CCapturedOutput oOutput;
        const auto poBlock = Load(MakeDisplayIdBlock(Join({ aui8Good, oCase.m_aui8Block })));
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
        EXPECT_EQ(0U, poBlock->GetDetailedCount());
        EXPECT_EQ(1, poBlock->IsDisplayPartOfTiledTopology()); // declared before the bad block
        EXPECT_EQ(1U, poBlock->ExtractDetailedTimings());      // by hand: what stands in front of the bad block
    }
}

// ---- Records ----

// The fields of SVidParamGenericData in their order, the last two flags and family type.
using CFields = std::array<unsigned int, 13>;

struct SRecordCase
{
    const char* m_pszName;
    unsigned int m_uiTag;
    CBytes m_aui8Record;
    CFields m_auiExpected;
};

constexpr unsigned int gsc_uiKept = 0x30; // 3D and 4:2:0, of which a record tells nothing
constexpr unsigned int gsc_uiDetailed = CVidParamTiming::eVidParamType_Detailed;

// clang-format off
const SRecordCase gsc_aoRecordCases[] = {
    { "Type1Progressive", 3, Type1Record1080p(),
      { 1920, 1080, 60, 67500, 148500000, 88, 44, 148, 4, 5, 36, gsc_uiKept | 0x0C, gsc_uiDetailed } },
    // The height stays what the record says; the total is 540 + 2 * 22 + 1 = 585, so 74250000 / (2200 * 585) = 57.7.
    { "Type1InterlacedHeightIsNotDoubled", 3,
      { 0x00, 0x1D, 0x00, 0x10, 0x7F, 0x07, 0x17, 0x01, 0x57, 0x00, 0x2B, 0x00, 0x1B, 0x02, 0x15, 0x00, 0x01, 0x00, 0x04, 0x00 },
      { 1920, 540, 58, 33750, 74250000, 88, 44, 148, 2, 5, 15, gsc_uiKept | 0x01, gsc_uiDetailed } },
    // Other flag bits mean aspect, stereo, preference: none of them is interlace.
    { "Type1OtherFlagsAreNotRead", 3,
      { 0x01, 0x3A, 0x00, 0xEF, 0x7F, 0x07, 0x17, 0x01, 0x57, 0x80, 0x2B, 0x00, 0x37, 0x04, 0x2C, 0x00, 0x03, 0x00, 0x04, 0x00 },
      { 1920, 1080, 60, 67500, 148500000, 88, 44, 148, 4, 5, 36, gsc_uiKept | 0x04, gsc_uiDetailed } },
    // 655.37 MHz / (2200 * 1125): the clock field has its one bit in the third byte.
    { "Type1ClockHasThreeBytes", 3,
      { 0x00, 0x00, 0x01, 0x00, 0x7F, 0x07, 0x17, 0x01, 0x57, 0x00, 0x2B, 0x00, 0x37, 0x04, 0x2C, 0x00, 0x03, 0x80, 0x04, 0x00 },
      { 1920, 1080, 265, 297895, 655370000, 88, 44, 148, 4, 5, 36, gsc_uiKept | 0x08, gsc_uiDetailed } },
    // 65536 x 65536, porches of 32768, syncs of 1; the product of the totals, 98305 * 98305, is 1073938433 at 32 bits.
    { "Type1LargestFields", 3,
      { 0xFF, 0xFF, 0x00, 0x00, 0xFF, 0xFF, 0x00, 0x80, 0xFF, 0x7F, 0x00, 0x00, 0xFF, 0xFF, 0x00, 0x80, 0xFF, 0x7F, 0x00, 0x00 },
      { 65536, 65536, 1, 6667, 655360000, 32768, 1, 0, 32768, 1, 0, gsc_uiKept, gsc_uiDetailed } },
    // Blanking of 8 with porch 8 and sync 8: the back porch wraps below zero, the totals come out right again.
    { "Type1BlankingTooShort", 3,
      { 0x01, 0x3A, 0x00, 0x00, 0x7F, 0x07, 0x07, 0x00, 0x07, 0x00, 0x07, 0x00, 0x37, 0x04, 0x2C, 0x00, 0x03, 0x00, 0x04, 0x00 },
      { 1920, 1080, 68, 77023, 148500000, 8, 8, 0xFFFFFFF8U, 4, 5, 36, gsc_uiKept, gsc_uiDetailed } },
    { "Type2Progressive", 4, Type2Record720p(),
      { 1280, 720, 60, 45055, 74250000, 112, 40, 216, 5, 5, 20, gsc_uiKept | 0x04, gsc_uiDetailed } },
    // Units of 8 pixels: 512 + 128, of these 9 and 16. Lines: 2048 + 225, of these 16 and 9. 163.84 MHz / 5120 = 32 kHz.
    { "Type2HighBits", 4, { 0xFF, 0x3F, 0x00, 0xE7, 0xFF, 0xFF, 0x8F, 0xFF, 0xF7, 0xE0, 0xF8 },
      { 4096, 2048, 14, 32000, 163840000, 72, 128, 824, 16, 9, 200, gsc_uiKept | 0x08, gsc_uiDetailed } },
    { "Type2ClockFieldOfZeroIs10KiloHz", 4, { 0x00, 0x00, 0x00, 0x18, 0x9F, 0x5A, 0xD4, 0xCF, 0x02, 0x1D, 0x44 },
      { 1280, 720, 0, 6, 10000, 112, 40, 216, 5, 5, 20, gsc_uiKept | 0x05, gsc_uiDetailed } },
};
// clang-format on

TEST(DisplayIdRecords, GiveTheTimingAndKeepWhatTheyDoNotTell)
{
    for (const SRecordCase& oCase : gsc_aoRecordCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(oCase.m_uiTag, 0, oCase.m_aui8Record)));
        CVidParamTimingGeneric oTiming;
        oTiming.Set420ColorSpace(1);
        oTiming.Set3D(1);
        EXPECT_EQ(1, poBlock->GetDetailed(0, &oTiming));
        EXPECT_EQ(oCase.m_auiExpected, std::bit_cast<CFields>(oTiming.GetData()));
    }
}

TEST(DisplayIdRecords, ZeroFieldsAreRefusedAndLeaveTheTimingAlone)
{
    const std::pair<unsigned int, std::vector<unsigned int>> aoCases[] = {
        { 3, { 0, 1, 2 } }, { 3, { 4, 5 } }, { 3, { 12, 13 } }, // clock, width, height
        { 4, { 4, 5 } },    { 4, { 7, 8 } },                    // width with the blanking, height
    };
    for (const auto& [uiTag, auiZeroed] : aoCases)
    {
        CBytes aui8Record = uiTag == 3 ? Type1Record1080p() : Type2Record720p();
        for (unsigned int uiByte : auiZeroed)
        {
            aui8Record[uiByte] = 0;
        }
        const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(uiTag, 0, aui8Record)));
        EXPECT_EQ(1U, poBlock->GetDetailedCount());
        CRecordingTiming oTiming;
        EXPECT_EQ(0, poBlock->GetDetailed(0, &oTiming));
        EXPECT_EQ(CCallNames(), oTiming.m_asCalls);
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
        CRecordingTiming oTiming;
        EXPECT_EQ(1, Load(MakeDisplayIdBlock(aui8Block))->GetDetailed(0, &oTiming));
        EXPECT_EQ(asExpected, oTiming.m_asCalls);
    }
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
    const char* m_pszName;
    CBytes m_aui8Payload; // the first 8 bytes
    CNumbers m_auiTile;
    std::array<int, 6> m_aiCapabilities;
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

// A second declaration does not matter.
TEST(DisplayIdTiles, TheFirstDeclarationIsDecoded)
{
    for (const STileCase& oCase : gsc_aoTileCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CBytes aui8Payload = oCase.m_aui8Payload;
        aui8Payload.resize(22, 0xEE);
        const CBytes aui8Other = MakeDataBlock(18, 0, CBytes(22, 0x35));
        const auto poBlock = Load(MakeDisplayIdBlock(Join({ MakeDataBlock(18, 0, aui8Payload), aui8Other })));
        EXPECT_EQ(oCase.m_auiTile, GetTile(*poBlock));
        std::array<int, 6> ai;
        ai.fill(-1);
        EXPECT_EQ(1, poBlock->GetTiledDisplayCapabilities(&ai[0], &ai[1], &ai[2], &ai[3], &ai[4], &ai[5]));
        EXPECT_EQ(oCase.m_aiCapabilities, ai);
        EXPECT_EQ(1, poBlock->GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
    }
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
    const CBytes aui8Bytes = MakeDisplayIdBlock(MakeDataBlock(3, 0, Type1Record1080p()));
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
    EXPECT_TRUE(std::equal(aui8Bytes.begin(), aui8Bytes.end(), poBlock->GetData()));
}

TEST(DisplayIdBlock, CopiesAsMuchAsFits)
{
    const CBytes aui8Bytes = MakeDisplayIdBlock({});
    const auto poBlock = Load(aui8Bytes);
    CBytes aui8Copy(200, 0xCC);
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(128, nullptr));
    EXPECT_EQ(4U, poBlock->GetEdidBuffer(4, aui8Copy.data()));
    EXPECT_EQ(0xCC, aui8Copy[4]);
    EXPECT_EQ(128U, poBlock->GetEdidBuffer(200, aui8Copy.data()));
    EXPECT_EQ(Join({ aui8Bytes, CBytes(72, 0xCC) }), aui8Copy);
}
}
