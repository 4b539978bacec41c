// DisplayID blocks inside a whole EDID: numbering across blocks, edits that they refuse, the tile questions, real
// images.

#include <gtest/gtest.h>
#include <string.h>

#include "CapturedOutput.h"
#include "DisplayIdImages.h"
#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "SharedFiles.h"
#include "VidParamTimingGeneric.h"

namespace
{
constexpr unsigned int gsc_uiDisplayIdTag = 112;

void Load(CEdid& oEdid, const CBytes& aui8Bytes)
{
    ASSERT_EQ(1, oEdid.SetEdidBuffer(aui8Bytes.data(), static_cast<unsigned int>(aui8Bytes.size()), 0));
}

CBytes GetBytes(const CEdid& oEdid)
{
    const auto aui8Array = oEdid.GetEdidBuffer();
    return CBytes(aui8Array.GetData(), aui8Array.GetData() + aui8Array.GetCount());
}

unsigned int GetDetailedWidth(const CEdid& oEdid, unsigned int uiIndex)
{
    CVidParamTimingGeneric oTiming;
    return oEdid.GetDetailed(uiIndex, &oTiming) != 0 ? oTiming.GetHorizontalActive() : 0;
}

// A Type I record of the same timing with another width.
CBytes Type1RecordOfWidth(unsigned int uiWidth)
{
    CBytes aui8Record = Type1Record1080p();
    aui8Record[4] = static_cast<unsigned char>(uiWidth - 1);
    aui8Record[5] = static_cast<unsigned char>((uiWidth - 1) >> 8);
    return aui8Record;
}

// A tile, a Type I timing of 2560 pixels and the Type II timing of 1280.
CBytes MakeTiledBlock()
{
    CBytes aui8Blocks = MakeDataBlock(18, 0, TilePayload());
    Append(aui8Blocks, MakeDataBlock(3, 0, Type1RecordOfWidth(2560)));
    Append(aui8Blocks, MakeDataBlock(4, 0, Type2Record720p()));
    return MakeDisplayIdBlock(aui8Blocks);
}

TEST(DisplayIdInEdid, TimingsStandBehindThoseOfTheBlocksBefore)
{
    CEdid oEdid;
    Load(oEdid, MakeEdid({ MakeCeaBlock(), MakeTiledBlock() }));
    ASSERT_EQ(2U, oEdid.GetExtensionCount());
    EXPECT_EQ(gsc_uiDisplayIdTag, oEdid.GetExtension(1)->GetExtensionType());
    ASSERT_EQ(4U, oEdid.GetDetailedCount());
    EXPECT_EQ(1920U, GetDetailedWidth(oEdid, 0)); // base block
    EXPECT_EQ(1920U, GetDetailedWidth(oEdid, 1)); // CEA-861
    EXPECT_EQ(2560U, GetDetailedWidth(oEdid, 2)); // DisplayID, Type I
    EXPECT_EQ(1280U, GetDetailedWidth(oEdid, 3)); // DisplayID, Type II
    EXPECT_EQ(0U, GetDetailedWidth(oEdid, 4));
    EXPECT_EQ(oEdid.GetExtension(0)->GetStandardCount(), oEdid.GetStandardCount());
}

TEST(DisplayIdInEdid, SerialisesAndComparesByteForByte)
{
    const CBytes aui8Bytes = MakeEdid({ MakeCeaBlock(), MakeTiledBlock() });
    CEdid oEdid;
    Load(oEdid, aui8Bytes);
    EXPECT_EQ(aui8Bytes, GetBytes(oEdid));
    EXPECT_EQ(384U, oEdid.GetSize());
    EXPECT_TRUE(oEdid.IsChecksumValid());

    CEdid oOther;
    Load(oOther, MakeEdid({ MakeCeaBlock(), MakeDisplayIdBlock({}) }));
    EXPECT_FALSE(oEdid == oOther);
    Load(oOther, aui8Bytes);
    EXPECT_TRUE(oEdid == oOther);
}

TEST(DisplayIdInEdid, TheLastBlockRefusesAndNothingChanges)
{
    const CBytes aui8Bytes = MakeEdid({ MakeCeaBlock(), MakeTiledBlock() });
    CEdid oEdid;
    Load(oEdid, aui8Bytes);
    EXPECT_EQ(0, oEdid.RemoveDetailed(2));
    EXPECT_EQ(0, oEdid.RemoveDetailed(3));
    EXPECT_EQ(0, oEdid.RemoveStandard(oEdid.GetStandardCount()));
    EXPECT_EQ(aui8Bytes, GetBytes(oEdid));
}

// A refusal does not end the walk: the next block that is long enough gets the same index.
TEST(DisplayIdInEdid, ARefusedRemovalReachesTheNextBlock)
{
    const CBytes aui8Bytes = MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 0, Type1Record1080p())), MakeCeaBlock() });
    CEdid oEdid;
    Load(oEdid, aui8Bytes);
    ASSERT_EQ(3U, oEdid.GetDetailedCount());
    EXPECT_EQ(1, oEdid.RemoveDetailed(1));
    EXPECT_EQ(2U, oEdid.GetDetailedCount());
    EXPECT_EQ(0U, oEdid.GetExtension(1)->GetDetailedCount());
    EXPECT_TRUE(oEdid.IsChecksumValid());

    const CBytes aui8After = GetBytes(oEdid);
    EXPECT_TRUE(std::equal(aui8Bytes.begin(), aui8Bytes.begin() + 256, aui8After.begin()));
    EXPECT_EQ(0, oEdid.RemoveDetailed(1)); // now no block is left to ask
    EXPECT_EQ(aui8After, GetBytes(oEdid));
}

TEST(DisplayIdInEdid, ARefusedReadingReachesTheNextBlockToo)
{
    CBytes aui8Record = Type1RecordOfWidth(2560);
    aui8Record[0] = aui8Record[1] = aui8Record[2] = 0; // no clock
    CEdid oEdid;
    Load(oEdid, MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 0, aui8Record)), MakeTiledBlock() }));
    ASSERT_EQ(4U, oEdid.GetDetailedCount());
    EXPECT_EQ(2560U, GetDetailedWidth(oEdid, 1)); // the first of the second block answers for it
    EXPECT_EQ(2560U, GetDetailedWidth(oEdid, 2));
    EXPECT_EQ(1280U, GetDetailedWidth(oEdid, 3));
}

TEST(DisplayIdInEdid, EditsOfOtherBlocksLeaveItAlone)
{
    CEdid oEdid;
    Load(oEdid, MakeEdid({ MakeCeaBlock(), MakeTiledBlock() }));
    oEdid.SetSerialNumber(0x12345678);
    EXPECT_EQ(1, oEdid.SetColorBitDepth(CEdidBase::eColorBitDepth10));
    EXPECT_EQ(1, oEdid.RemoveStandard(0));
    EXPECT_EQ(1, oEdid.GetExtension(0)->SetColorBitDepthSupport(7));
    EXPECT_EQ(0, oEdid.GetExtension(1)->SetColorBitDepthSupport(7));
    EXPECT_TRUE(oEdid.IsChecksumValid());
    EXPECT_EQ(MakeTiledBlock(), CBytes(oEdid.GetExtension(1)->GetData(), oEdid.GetExtension(1)->GetData() + 128));
}

TEST(DisplayIdInEdid, TheFirstBlockWithATileAnswers)
{
    CBytes aui8Other = TilePayload();
    aui8Other[2] = 0x01;
    CEdid oEdid;
    Load(oEdid, MakeEdid({ MakeCeaBlock(), MakeDisplayIdBlock({}), MakeTiledBlock(),
                           MakeDisplayIdBlock(MakeDataBlock(18, 0, aui8Other)) }));
    EXPECT_NE(0, oEdid.IsDisplayPartOfTiledTopology());
    unsigned int auiTile[6] = {};
    EXPECT_NE(0, oEdid.GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]));
    const unsigned int auiExpected[6] = { 1, 0, 2, 2, 1920, 1080 };
    EXPECT_EQ(0, memcmp(auiExpected, auiTile, sizeof(auiTile)));
    int iSingleEnclosure = 0;
    EXPECT_NE(0, oEdid.GetTiledDisplayCapabilities(&iSingleEnclosure, nullptr, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(1, iSingleEnclosure);
}

TEST(DisplayIdInEdid, WithoutATileEveryOutputIsZero)
{
    CEdid oEdid;
    Load(oEdid, MakeEdid({ MakeCeaBlock(), MakeDisplayIdBlock({}) }));
    unsigned int auiTile[6] = { 1, 2, 3, 4, 5, 6 };
    int iFlag = 9;
    EXPECT_EQ(0, oEdid.IsDisplayPartOfTiledTopology());
    EXPECT_EQ(0, oEdid.GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]));
    EXPECT_EQ(0, oEdid.GetTiledDisplayCapabilities(&iFlag, nullptr, nullptr, nullptr, nullptr, nullptr));
    const unsigned int auiExpected[6] = {};
    EXPECT_EQ(0, memcmp(auiExpected, auiTile, sizeof(auiTile)));
    EXPECT_EQ(0, iFlag);
}

TEST(DisplayIdInEdid, ABlockWithAWrongSectionIsDropped)
{
    CBytes aui8Section = MakeTiledBlock();
    aui8Section[5 + 62] ^= 1; // the checksum of the section
    FixSum(aui8Section, 0, 127);
    CEdid oEdid;
    CCapturedOutput oOutput;
    Load(oEdid, MakeEdid({ aui8Section, MakeCeaBlock() }));
    EXPECT_EQ(1U, oOutput.TakeAssertionCount());
    ASSERT_EQ(1U, oEdid.GetExtensionCount());
    EXPECT_EQ(2U, oEdid.GetExtension(0)->GetExtensionType());
}

TEST(DisplayIdInEdid, IsNeverStripped)
{
    const CBytes aui8Bytes = MakeEdid({ MakeTiledBlock() });
    CEdid oEdid;
    ASSERT_EQ(1, oEdid.SetEdidBuffer(aui8Bytes.data(), 256, CEdidExtBlockCEA861::eStrip_Audio | 0xFF00));
    EXPECT_EQ(0, oEdid.GetExtension(0)->IsStripped());
    EXPECT_EQ(aui8Bytes, GetBytes(oEdid));
}

// Of the real images: every DisplayID timing that reads is a plausible mode, and a tile lies in its own grid.
TEST(DisplayIdCorpus, TimingsAndTilesArePlausible)
{
    const auto aoImages = ReadCorpus();
    if (aoImages.empty())
    {
        GTEST_SKIP() << "no corpus";
    }
    unsigned int uiBlocks = 0;
    for (const SCorpusImage& oImage : aoImages)
    {
        SCOPED_TRACE(oImage.m_sName);
        CCapturedOutput oOutput;
        CEdid oEdid;
        oEdid.SetEdidBuffer(oImage.m_aui8Data.data(), static_cast<unsigned int>(oImage.m_aui8Data.size()), 0);
        for (unsigned int i = 0; i < oEdid.GetExtensionCount(); ++i)
        {
            CEdidExtBlock& oBlock = *oEdid.GetExtension(i);
            if (oBlock.GetExtensionType() != gsc_uiDisplayIdTag)
            {
                continue;
            }
            ++uiBlocks;
            for (unsigned int j = 0; j < oBlock.GetDetailedCount(); ++j)
            {
                CVidParamTimingGeneric oTiming;
                if (oBlock.GetDetailed(j, &oTiming) != 0)
                {
                    EXPECT_LT(oTiming.GetHorizontalBackPorch(), 0x10000U);
                    EXPECT_LT(oTiming.GetVerticalBackPorch(), 0x10000U);
                    EXPECT_GE(oTiming.GetVerticalRateInHz(), 23U);
                    EXPECT_LE(oTiming.GetVerticalRateInHz(), 540U);
                }
            }
        }
        unsigned int auiTile[6] = {};
        if (oEdid.GetTopologyDescription(auiTile[0], auiTile[1], auiTile[2], auiTile[3], auiTile[4], auiTile[5]) != 0)
        {
            EXPECT_LT(auiTile[0], auiTile[2]);
            EXPECT_LT(auiTile[1], auiTile[3]);
        }
    }
    EXPECT_GT(uiBlocks, 0U);
}
}
