// The DisplayID block alone: which bytes it accepts, how far it walks, what its records mean.

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <memory>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "DisplayIdImages.h"
#include "EdidExtBlockDisplayID.h"
#include "RecordingTiming.h"

namespace
{
using CBlock = CEdidExtBlockDisplayID;

std::unique_ptr<CBlock> Load(const CBytes& aui8Bytes)
{
    return std::make_unique<CBlock>(static_cast<unsigned int>(aui8Bytes.size()), CopyToHeap(aui8Bytes).get());
}

// ---- The block as a whole ----

CBytes WithChange(size_t uiOffset, unsigned char ui8Value)
{
    CBytes aui8Block = MakeDisplayIdBlock({});
    aui8Block[uiOffset] = ui8Value;
    return aui8Block;
}

TEST(DisplayIdBlock, WhatIsNotSupportedGivesAnEmptyObject)
{
    const CBytes aaui8Cases[] = { FixChecksums(WithChange(0, 0x02)), // tag
                                  FixChecksums(WithChange(5, 1)),    // sum of the section
                                  WithChange(127, 1),                // sum of the block
                                  MakeDisplayIdBlock({}, 0, 0x13), MakeDisplayIdBlock({}, 255) };
    CCountingAllocator oHeap;
    CCapturedOutput oOutput;
    for (const CBytes& aui8Bytes : aaui8Cases)
    {
        EXPECT_EQ(0, CBlock::IsSupported(128, CopyToHeap(aui8Bytes).get()));
        const auto poBlock = Load(aui8Bytes);
        EXPECT_EQ(0U, poBlock->GetExtensionType() + poBlock->GetSize() + poBlock->GetDetailedCount());
        EXPECT_EQ(0, poBlock->IsDisplayPartOfTiledTopology());
    }
    EXPECT_EQ(0U, oHeap.GetAllocCount()); // not for the questions either
    EXPECT_EQ(0U, oOutput.TakeAssertionCount());
}

// All bytes are kept, more than 128 too, and none is ever edited. Here 7 records, the last of which ends at byte 148.
TEST(DisplayIdBlock, KeepsItsBytes)
{
    CBytes aui8Bytes = MakeDisplayIdBlock({ 3, 0, 140 }, 121);
    aui8Bytes.resize(256);
    FixSum(aui8Bytes, 0, 255);
    const auto poBlock = Load(aui8Bytes);
    unsigned int uiDepth = 7;
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(0, poBlock->RemoveDetailed(0) | poBlock->RemoveStandard(0) | poBlock->SetColorBitDepthSupport(1));
    EXPECT_EQ(0, poBlock->GetColorBitDepthSupport(uiDepth) | poBlock->GetStandard(0, &oTiming, nullptr));
    EXPECT_EQ(7U, uiDepth);
    EXPECT_EQ(0, poBlock->IsStripped());
    EXPECT_EQ(0U, poBlock->GetStandardCount() + poBlock->GetEdidBuffer(128, nullptr));
    EXPECT_EQ(7U, poBlock->GetDetailedCount());
    EXPECT_EQ(aui8Bytes, CBytes(poBlock->GetData(), poBlock->GetData() + poBlock->GetSize()));
}

// ---- How far the walk goes ----

struct SWalkCase
{
    const char* m_pszName;
    CBytes m_aui8Blocks;
    unsigned int m_uiSection;              // bytes of the section; 0: as many as there are
    std::vector<unsigned int> m_auiWidths; // of the timings in front of a bad block; 0 where a record gives none
    bool m_bTile = false;
    bool m_bBad = false; // a bad data block ends the reading, reports, and takes the list of timings with it
};

const CBytes gsc_aui8Type1 = MakeDataBlock(3, 0, Type1Record1080p());
const CBytes gsc_aui8Type2 = MakeDataBlock(4, 0, Type2Record720p());
const CBytes gsc_aui8Tile = MakeDataBlock(18, 0, TilePayload());

SWalkCase BadBehindGood(const char* pszName, const CBytes& aui8Bad)
{
    return { pszName, Join({ gsc_aui8Tile, gsc_aui8Type1, aui8Bad }), 0, { 1920 }, true, true };
}

const SWalkCase gsc_aoWalkCases[] = {
    { "Type1FirstAndUnknownTagsArePassedOver",
      Join({ gsc_aui8Type2, MakeDataBlock(12, 3, CBytes(5, 0xAA)), gsc_aui8Type1,
             MakeDataBlock(3, 1, Join({ CBytes(20), Type1Record1080p() })) }),
      0,
      { 1920, 0, 1920, 1280 } },
    { "HighBitsOfARevisionAreNotRead", MakeDataBlock(3, 0xF9, Type1Record1080p()), 0, { 1920 } },
    { "Tag0EndsTheWalk", Join({ gsc_aui8Type1, { 0, 0, 0 }, gsc_aui8Type2 }), 0, { 1920 } },
    // 0x6F makes the checksum of the section 4: where it ends, a Type II block seems to begin.
    { "BlockBehindTheSection", Join({ gsc_aui8Type1, { 127, 0, 1, 0x6F }, gsc_aui8Type2 }), 27, { 1920 } },
    // 0x6E makes it 0, the revision of the Type II block.
    { "OneByteOfTheHeader", Join({ gsc_aui8Type1, { 127, 0, 1, 0x6E }, gsc_aui8Type2 }), 28, { 1920, 1280 } },
    { "PayloadEndsBehindTheSection", MakeDataBlock(4, 0, CBytes(22, 0x11)), 10, { 2192, 2192 } },
    { "PayloadEndsWithTheBlock", Join({ MakeDataBlock(127, 0, CBytes(7)), { 4, 0, 110 } }), 121,
      std::vector<unsigned int>(10) },
    { "PayloadEndsBehindTheBlock", Join({ MakeDataBlock(127, 0, CBytes(8)), { 4, 0, 110 } }), 121, {}, false, true },
    BadBehindGood("Type1Revision2", MakeDataBlock(3, 2, Type1Record1080p())),
    BadBehindGood("Type2Revision1", MakeDataBlock(4, 1, Type2Record720p())),
    BadBehindGood("TileRevision1", MakeDataBlock(18, 1, TilePayload())),
    BadBehindGood("Type1WithoutRecord", MakeDataBlock(3, 0, {})),
    BadBehindGood("Type2WithHalfARecord", MakeDataBlock(4, 0, CBytes(20))),
    BadBehindGood("TileTwiceAsLong", MakeDataBlock(18, 0, CBytes(44))),
};

TEST(DisplayIdBlock, WalksToTheEndOrToABadBlock)
{
    for (const SWalkCase& oCase : gsc_aoWalkCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const unsigned int uiBytes = static_cast<unsigned int>(oCase.m_aui8Blocks.size());
        CCapturedOutput oOutput;
        const auto poBlock =
            Load(MakeDisplayIdBlock(oCase.m_aui8Blocks, oCase.m_uiSection != 0 ? oCase.m_uiSection : uiBytes));
        EXPECT_EQ(oCase.m_bBad ? 1U : 0U, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_bBad ? 0U : oCase.m_auiWidths.size(), poBlock->GetDetailedCount());
        EXPECT_EQ(oCase.m_bTile ? 1 : 0, poBlock->IsDisplayPartOfTiledTopology());
        EXPECT_EQ(oCase.m_auiWidths.size(), poBlock->ExtractDetailedTimings()); // by hand: anew, not once more
        CVidParamTimingGeneric oTiming;
        for (unsigned int i = 0; i < oCase.m_auiWidths.size(); ++i)
        {
            const unsigned int uiWidth = oCase.m_auiWidths[i];
            EXPECT_EQ(uiWidth != 0 ? 1 : 0, poBlock->GetDetailed(i, &oTiming)) << i;
            EXPECT_TRUE(uiWidth == 0 || uiWidth == oTiming.GetHorizontalActive()) << i;
        }
        EXPECT_EQ(0, poBlock->GetDetailed(poBlock->GetDetailedCount(), &oTiming));
    }
}

// ---- Records ----

// The fields of SVidParamGenericData in their order, the last two flags and family type.
using CFields = std::array<unsigned int, 13>;

struct SRecordCase
{
    const char* m_pszName;
    CBytes m_aui8Record; // of 20 bytes: Type I; of 11: Type II
    CFields m_auiExpected;
};

const SRecordCase gsc_aoRecordCases[] = {
    { "Type1Progressive", Type1Record1080p(), { 1920, 1080, 60, 67500, 148500000, 88, 44, 148, 4, 5, 36, 12 } },
    // The height stays what the record says; the total is 540 + 2 * 22 + 1 = 585, so 74250000 / (2200 * 585) = 57.7.
    { "Type1InterlacedHeightIsNotDoubled",
      { 0, 0x1D, 0, 0x10, 0x7F, 7, 0x17, 1, 0x57, 0, 0x2B, 0, 0x1B, 2, 0x15, 0, 1, 0, 4, 0 },
      { 1920, 540, 58, 33750, 74250000, 88, 44, 148, 2, 5, 15, 1 } },
    // 655.37 MHz / (2200 * 1125): the clock field has its one bit in the third byte. The flag bits mean aspect, stereo,
    // preference: none of them is interlace.
    { "Type1ClockHasThreeBytesAndOtherFlagsAreNotRead",
      { 0, 0, 1, 0xEF, 0x7F, 7, 0x17, 1, 0x57, 0, 0x2B, 0, 0x37, 4, 0x2C, 0, 3, 0x80, 4, 0 },
      { 1920, 1080, 265, 297895, 655370000, 88, 44, 148, 4, 5, 36, 8 } },
    // 65536 x 65536, porches of 32768, syncs of 1; the product of the totals, 98305 * 98305, is 1073938433 at 32 bits.
    { "Type1LargestFields",
      { 0xFF, 0xFF, 0, 0, 0xFF, 0xFF, 0, 0x80, 0xFF, 0x7F, 0, 0, 0xFF, 0xFF, 0, 0x80, 0xFF, 0x7F, 0, 0 },
      { 65536, 65536, 1, 6667, 655360000, 32768, 1, 0, 32768, 1, 0, 0 } },
    // Blanking of 8 with porch 8 and sync 8: the back porch wraps below zero, the totals come out right again.
    { "Type1BlankingTooShort",
      { 1, 0x3A, 0, 0, 0x7F, 7, 7, 0, 7, 0, 7, 0, 0x37, 4, 0x2C, 0, 3, 0, 4, 0 },
      { 1920, 1080, 68, 77023, 148500000, 8, 8, 0xFFFFFFF8U, 4, 5, 36, 0 } },
    { "Type2Progressive", Type2Record720p(), { 1280, 720, 60, 45055, 74250000, 112, 40, 216, 5, 5, 20, 4 } },
    // Units of 8 pixels: 512 + 128, of these 9 and 16. Lines: 2048 + 225, of these 16 and 9. 163.84 MHz / 5120 is
    // 32 kHz.
    { "Type2HighBits",
      { 0xFF, 0x3F, 0, 0xE7, 0xFF, 0xFF, 0x8F, 0xFF, 0xF7, 0xE0, 0xF8 },
      { 4096, 2048, 14, 32000, 163840000, 72, 128, 824, 16, 9, 200, 8 } },
    { "Type2ClockFieldOfZeroIs10KiloHz",
      { 0, 0, 0, 0x18, 0x9F, 0x5A, 0xD4, 0xCF, 2, 0x1D, 0x44 },
      { 1280, 720, 0, 6, 10000, 112, 40, 216, 5, 5, 20, 5 } },
};

TEST(DisplayIdRecords, GiveTheTimingAndKeepTheRest)
{
    for (const SRecordCase& oCase : gsc_aoRecordCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const unsigned int uiTag = oCase.m_aui8Record.size() == 20 ? 3 : 4;
        const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(uiTag, 0, oCase.m_aui8Record)));
        CVidParamTimingGeneric oTiming;
        oTiming.Set420ColorSpace(1);
        oTiming.Set3D(1);
        EXPECT_EQ(1, poBlock->GetDetailed(0, &oTiming));
        CFields auiExpected = oCase.m_auiExpected;
        auiExpected[11] |= 0x30; // 3D and 4:2:0, which a record leaves alone
        auiExpected[12] = CVidParamTiming::eVidParamType_Detailed;
        EXPECT_EQ(auiExpected, std::bit_cast<CFields>(oTiming.GetData()));
    }
}

// Each value is written once, the rates last, since they are computed from what stands in the timing. A record with
// zeros in the bytes named is refused and writes nothing.
TEST(DisplayIdRecords, WriteInOrderOrNothing)
{
    const CCallNames asAll = { "ClockKiloHz", "Interlaced", "HActive", "HFront", "HSync",
                               "HBack",       "HPolarity",  "VActive", "VFront", "VSync",
                               "VBack",       "VPolarity",  "HRateHz", "VRate",  "Type" };
    const std::pair<unsigned int, std::vector<unsigned int>> aoCases[] = {
        { 3, {} }, { 3, { 0, 1, 2 } }, { 3, { 4, 5 } }, { 3, { 12, 13 } }, // clock, width, height
        { 4, {} }, { 4, { 4, 5 } },    { 4, { 7, 8 } },                    // width with the blanking, height
    };
    for (const auto& [uiTag, auiZeroed] : aoCases)
    {
        CBytes aui8Record = uiTag == 3 ? Type1Record1080p() : Type2Record720p();
        for (const unsigned int uiByte : auiZeroed)
        {
            aui8Record[uiByte] = 0;
        }
        const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(uiTag, 0, aui8Record)));
        EXPECT_EQ(1U, poBlock->GetDetailedCount());
        CRecordingTiming oTiming;
        EXPECT_EQ(auiZeroed.empty() ? 1 : 0, poBlock->GetDetailed(0, &oTiming));
        EXPECT_EQ(auiZeroed.empty() ? asAll : CCallNames(), oTiming.m_asCalls);
        CCapturedOutput oOutput;
        EXPECT_EQ(0, poBlock->GetDetailed(0, nullptr));
        EXPECT_EQ(0, uiTag == 3 ? CBlock::ConvertDetailedType1ToVidParam(nullptr, &oTiming)
                                : CBlock::ConvertDetailedType2ToVidParam(nullptr, &oTiming));
        EXPECT_EQ(2U, oOutput.TakeAssertionCount()); // the caller's mistakes
    }
}

// ---- Tile ----

struct STileCase
{
    const char* m_pszName;
    CBytes m_aui8Payload;                  // the first 8 bytes
    std::array<unsigned int, 6> m_auiTile; // location, count and size, each across and down
    std::array<int, 6> m_aiCapabilities;   // one box, bezel, several tiles; a tile alone: there, scaled, cloned
};

const STileCase gsc_aoTileCases[] = {
    { "TwoByTwo", { 0x88, 0x11, 0x10, 0, 0x7F, 7, 0x37, 4 }, { 1, 0, 2, 2, 1920, 1080 }, { 1, 0, 1, 0, 0, 0 } },
    { "Scaled", { 0x42, 0x10, 0, 0, 0xFF, 9, 0x3F, 0x0B }, { 0, 0, 2, 1, 2560, 2880 }, { 0, 1, 0, 0, 1, 0 } },
    { "AtLocation", { 0x11, 1, 1, 0, 0, 0, 0, 0 }, { 0, 1, 1, 2, 1, 1 }, { 0, 0, 0, 1, 0, 0 } },
    { "Cloned", { 0x1B, 0, 0, 0, 0, 0, 0, 0 }, { 0, 0, 1, 1, 1, 1 }, { 0, 0, 0, 0, 0, 1 } },
    { "UnknownBehaviours", { 0x27, 0, 0, 0, 0, 0, 0, 0 }, { 0, 0, 1, 1, 1, 1 }, { 0, 0, 0, 0, 0, 0 } },
    // High bits: count across 1 -> 16, down 2 -> 32, location across 3 -> 48, down 1 -> 16.
    { "HighBits",
      { 0, 0xF0, 0x0F, 0x6D, 0xFF, 0xFF, 0xFF, 0xFF },
      { 48, 31, 32, 33, 65536, 65536 },
      { 0, 0, 0, 0, 0, 0 } },
};

// A second declaration does not matter.
TEST(DisplayIdTiles, TheFirstDeclarationIsDecoded)
{
    for (const STileCase& oCase : gsc_aoTileCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CBytes aui8First = MakeDataBlock(18, 0, Join({ oCase.m_aui8Payload, CBytes(14, 0xEE) }));
        const auto poBlock = Load(MakeDisplayIdBlock(Join({ aui8First, gsc_aui8Tile })));
        std::array<unsigned int, 6> aui = { 7, 7, 7, 7, 7, 7 };
        EXPECT_EQ(1, poBlock->GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]));
        EXPECT_EQ(oCase.m_auiTile, aui);
        std::array<int, 6> ai = { 7, 7, 7, 7, 7, 7 };
        EXPECT_EQ(1, poBlock->GetTiledDisplayCapabilities(&ai[0], &ai[1], &ai[2], &ai[3], &ai[4], &ai[5]));
        EXPECT_EQ(oCase.m_aiCapabilities, ai);
    }
}
}
