// The DisplayID block alone: which bytes it accepts, how far it walks, what its records mean.

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <memory>

#include "CapturedOutput.h"
#include "CaseFile.h"
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

TEST(DisplayIdBlock, WhatIsNotSupportedGivesAnEmptyObject)
{
    const CBytes aui8Good = MakeDisplayIdBlock({});
    const std::pair<CBytes, CBlock::ERefusal> aoCases[] = {
        { FixChecksums(WithChange(aui8Good, 0, 0x40)), CBlock::eRefusal_Kind },
        { FixChecksums(WithChange(aui8Good, 0, 0x02)), CBlock::eRefusal_Revision }, // as a CTA-861 block
        { FixChecksums(WithChange(aui8Good, 5, 1)), CBlock::eRefusal_SectionChecksum },
        { WithChange(aui8Good, 127, 1), CBlock::eRefusal_Checksum },
        { MakeDisplayIdBlock({}, 0, 0x13), CBlock::eRefusal_Revision },
        { MakeDisplayIdBlock({}, 122), CBlock::eRefusal_SectionSize },
        { MakeDisplayIdBlock({}, 255), CBlock::eRefusal_SectionSize },
    };
    CCountingAllocator oHeap;
    CCapturedOutput oOutput;
    for (const auto& [aui8Bytes, eRefusal] : aoCases)
    {
        EXPECT_EQ(eRefusal, CBlock::GetRefusal(128, CopyToHeap(aui8Bytes).get()));
        EXPECT_EQ(0, CBlock::IsSupported(128, CopyToHeap(aui8Bytes).get()));
        const auto poBlock = Load(aui8Bytes);
        EXPECT_EQ(0U, poBlock->GetExtensionType() + poBlock->GetSize() + poBlock->GetDetailedCount());
        EXPECT_EQ(0, poBlock->IsDisplayPartOfTiledTopology());
    }
    EXPECT_EQ(CBlock::eRefusal_Size, CBlock::GetRefusal(127, aui8Good.data()));
    EXPECT_EQ(CBlock::eRefusal_Size, CBlock::GetRefusal(128, nullptr));
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

TEST(DisplayIdBlock, WalksToTheEndOrToABadBlock)
{
    for (const SCaseRow& oRow : ReadCases("ExtBlocks/golden/displayid-walks.txt", 6))
    {
        SCOPED_TRACE(oRow.GetName());
        const std::vector<unsigned int> auiWidths = oRow.GetNumbers(3);
        const unsigned int uiBad = oRow.GetNumber(5);
        CCapturedOutput oOutput;
        const auto poBlock = Load(MakeDisplayIdBlock(oRow.GetBytes(1), oRow.GetNumber(2)));
        EXPECT_EQ(uiBad, oOutput.TakeAssertionCount());
        EXPECT_EQ(uiBad != 0 ? 0U : auiWidths.size(), poBlock->GetDetailedCount());
        EXPECT_EQ(oRow.GetNumber(4), poBlock->IsDisplayPartOfTiledTopology());
        EXPECT_EQ(auiWidths.size(), poBlock->ExtractDetailedTimings()); // by hand: anew, not once more
        CVidParamTimingGeneric oTiming;
        for (unsigned int i = 0; i < auiWidths.size(); ++i)
        {
            EXPECT_EQ(auiWidths[i] != 0 ? 1 : 0, poBlock->GetDetailed(i, &oTiming)) << i;
            EXPECT_TRUE(auiWidths[i] == 0 || auiWidths[i] == oTiming.GetHorizontalActive()) << i;
            CVidParamTimingGeneric oThere; // what the bytes at the offset say
            unsigned int uiSize = 0;
            const unsigned char* pui8Record = poBlock->GetData() + poBlock->GetDetailedTimingsOffset(i, uiSize);
            const bool bType1 = uiSize == sizeof(CBlock::SDisplayIdType1DetailedRaw);
            bType1 ? CBlock::ConvertDetailedType1ToVidParam(
                         reinterpret_cast<const CBlock::SDisplayIdType1DetailedRaw*>(pui8Record), &oThere)
                   : CBlock::ConvertDetailedType2ToVidParam(
                         reinterpret_cast<const CBlock::SDisplayIdType2DetailedRaw*>(pui8Record), &oThere);
            EXPECT_EQ(auiWidths[i], oThere.GetHorizontalActive()) << i;
        }
        unsigned int uiKept = 7;
        EXPECT_EQ(0, poBlock->GetDetailed(poBlock->GetDetailedCount(), &oTiming));
        EXPECT_EQ(0U, poBlock->GetDetailedTimingsOffset(poBlock->GetDetailedCount(), uiKept));
        EXPECT_EQ(7U, uiKept);
    }
}

// ---- Records ----

TEST(DisplayIdRecords, GiveTheTimingAndKeepTheRest)
{
    for (const SCaseRow& oRow : ReadCases("ExtBlocks/golden/displayid-records.txt", 3))
    {
        SCOPED_TRACE(oRow.GetName());
        const CBytes aui8Record = oRow.GetBytes(1);
        const auto poBlock = Load(MakeDisplayIdBlock(MakeDataBlock(aui8Record.size() == 20 ? 3 : 4, 0, aui8Record)));
        CVidParamTimingGeneric oTiming;
        oTiming.Set420ColorSpace(1);
        oTiming.Set3D(1);
        EXPECT_EQ(1, poBlock->GetDetailed(0, &oTiming));
        std::vector<unsigned int> auiExpected = oRow.GetNumbers(2);
        auiExpected.back() |= 0x30; // 3D and 4:2:0, which a record leaves alone
        auiExpected.push_back(CVidParamTiming::eVidParamType_Detailed);
        const auto auiNow = std::bit_cast<std::array<unsigned int, 13>>(oTiming.GetData());
        EXPECT_EQ(auiExpected, std::vector<unsigned int>(auiNow.begin(), auiNow.end()));
    }
}

// Each value is written once, the rates last, since they are computed from the timing. A record with
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

// A second declaration does not matter.
TEST(DisplayIdTiles, TheFirstDeclarationIsDecoded)
{
    for (const SCaseRow& oRow : ReadCases("ExtBlocks/golden/displayid-tiles.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        const CBytes aui8First = MakeDataBlock(18, 0, Join({ oRow.GetBytes(1), CBytes(14, 0xEE) }));
        const auto poBlock = Load(MakeDisplayIdBlock(Join({ aui8First, MakeDataBlock(18, 0, TilePayload()) })));
        std::vector<unsigned int> aui(6, 7);
        EXPECT_EQ(1, poBlock->GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]));
        EXPECT_EQ(oRow.GetNumbers(2), aui);
        std::vector<int> ai(6, 7);
        EXPECT_EQ(1, poBlock->GetTiledDisplayCapabilities(&ai[0], &ai[1], &ai[2], &ai[3], &ai[4], &ai[5]));
        EXPECT_EQ(oRow.GetNumbers(3), std::vector<unsigned int>(ai.begin(), ai.end()));
    }
}
} // namespace
