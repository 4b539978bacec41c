// DisplayID blocks inside a whole EDID: numbering, edits that they refuse, real images. How the whole EDID goes on behind
// a block that refuses, and its tile questions, are tested with it.

#include <gtest/gtest.h>

#include <vector>

#include "CapturedOutput.h"
#include "DisplayIdImages.h"
#include "EdidExtBlockCEA861.h"
#include "SharedFiles.h"
#include "VidParamTimingGeneric.h"

namespace
{
constexpr unsigned int gsc_uiDisplayIdTag = 112;

// The widths of all detailed timings in their order; 0 for one that does not read.
std::vector<unsigned int> GetWidths(const CEdid& oEdid)
{
    std::vector<unsigned int> auiWidths;
    for (unsigned int i = 0; i < oEdid.GetDetailedCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        auiWidths.push_back(oEdid.GetDetailed(i, &oTiming) != 0 ? oTiming.GetHorizontalActive() : 0);
    }
    return auiWidths;
}

// A tile, a Type I timing of 2560 pixels and the Type II timing of 1280.
CBytes MakeTiledBlock()
{
    CBytes aui8Record = Type1Record1080p();
    aui8Record[4] = 0xFF;
    aui8Record[5] = 0x09;
    return MakeDisplayIdBlock(Join({ MakeDataBlock(18, 0, TilePayload()), MakeDataBlock(3, 0, aui8Record),
                                     MakeDataBlock(4, 0, Type2Record720p()) }));
}

TEST(DisplayIdInEdid, TimingsStandBehindThoseOfTheBlocksBeforeAndStay)
{
    const CBytes aui8Bytes = MakeEdid({ MakeCeaBlock(), MakeTiledBlock() });
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, aui8Bytes, CEdidExtBlockCEA861::eStrip_Audio));
    EXPECT_EQ((std::vector<unsigned int>{ 1920, 1920, 2560, 1280 }), GetWidths(oEdid)); // base, CEA-861, Type I, II
    EXPECT_EQ(0, oEdid.GetExtension(1)->IsStripped());
    EXPECT_EQ(0, oEdid.RemoveDetailed(2));
    EXPECT_EQ(0, oEdid.RemoveDetailed(3));
    EXPECT_EQ(0, oEdid.RemoveStandard(oEdid.GetStandardCount()));
    EXPECT_EQ(CBytes(aui8Bytes.begin() + 256, aui8Bytes.end()),
              CBytes(oEdid.GetExtension(1)->GetData(), oEdid.GetExtension(1)->GetData() + 128));
}

// Of the real images: every DisplayID timing that reads is a plausible mode, and a tile lies in its own grid.
TEST(DisplayIdCorpus, TimingsAndTilesArePlausible)
{
    const CQuietMessages oQuiet;
    const auto aoImages = ReadCorpus();
    if (aoImages.empty())
    {
        GTEST_SKIP() << "no folder with real images";
    }
    unsigned int uiBlocks = 0;
    for (const SCorpusImage& oImage : aoImages)
    {
        SCOPED_TRACE(oImage.m_sName);
        CEdid oEdid;
        LoadExact(oEdid, oImage.m_aui8Data);
        for (unsigned int i = 0; i < oEdid.GetExtensionCount(); ++i)
        {
            CEdidExtBlock& oBlock = *oEdid.GetExtension(i);
            if (oBlock.GetExtensionType() != gsc_uiDisplayIdTag)
            {
                continue;
            }
            ++uiBlocks;
            CVidParamTimingGeneric oTiming;
            for (unsigned int j = 0; j < oBlock.GetDetailedCount() && oBlock.GetDetailed(j, &oTiming) != 0; ++j)
            {
                EXPECT_LT(oTiming.GetHorizontalBackPorch(), 0x10000U);
                EXPECT_LT(oTiming.GetVerticalBackPorch(), 0x10000U);
                EXPECT_GE(oTiming.GetVerticalRateInHz(), 23U);
                EXPECT_LE(oTiming.GetVerticalRateInHz(), 540U);
            }
            unsigned int aui[6] = { 0, 0, 1, 1 };
            oBlock.GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]);
            EXPECT_LT(aui[0], aui[2]);
            EXPECT_LT(aui[1], aui[3]);
        }
    }
    EXPECT_LT(0U, uiBlocks);
}
}
