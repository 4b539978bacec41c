// The whole EDID: loading and writing back over several blocks, one numbering of timings, and the block factory.

#include "Edid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>

#include "BaseBlockImage.h"
#include "CapturedOutput.h"
#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "EdidExtBlockCEA861.h"
#include "EditCheck.h"
#include "VidParamTimingGeneric.h"

namespace
{
// An LG Ultra HD. Base block: 6 standard timings, 3840x2160 at 60 and 30. Extension: VICs 16 (native), 4, 3 and 1,
// each with its 1000/1001 variant, and two detailed timings, 1920x1080 and 2560x1440.
CBytes CeaBlock() { return CBytes(gsc_aui8LgUltraHd.begin() + gsc_uiBlockSize, gsc_aui8LgUltraHd.end()); }

// The LG's base block with this number of announced blocks, and these blocks behind it.
CBytes LgWith(unsigned char ui8Announced, std::initializer_list<CBytes> aaui8Blocks)
{
    CBytes aui8Base(gsc_aui8LgUltraHd.begin(), gsc_aui8LgUltraHd.begin() + gsc_uiBlockSize);
    aui8Base[126] = ui8Announced;
    return Join({ FixChecksums(aui8Base), Join(aaui8Blocks) });
}

CBytes Lg() { return LgWith(1, { CeaBlock() }); }

CBytes WithChange(CBytes aui8Data, unsigned int uiOffset, unsigned char ui8Value)
{
    aui8Data.at(uiOffset) = ui8Value;
    return aui8Data;
}

// 1280x720
CBytes DisplayIdBlock() { return MakeDisplayIdBlock(MakeDataBlock(4, 0, Type2Record720p())); }

class CLoadedEdid : public CEdid
{
public:
    explicit CLoadedEdid(const CBytes& aui8Data, unsigned int uiStripFlags = 0)
    {
        EXPECT_EQ(1, LoadExact(*this, aui8Data, uiStripFlags));
    }
};

std::string StandardName(const CEdid& oEdid, unsigned int uiIndex)
{
    CVidParamTimingGeneric oTiming;
    return oEdid.GetStandard(uiIndex, &oTiming, nullptr) != 0 ? NameOf(oTiming) : "none";
}

std::string DetailedName(const CEdid& oEdid, unsigned int uiIndex)
{
    CVidParamTimingGeneric oTiming;
    return oEdid.GetDetailed(uiIndex, &oTiming) != 0 ? NameOf(oTiming) : "none";
}

// ---- Loading ----

TEST(EdidLoading, ResultLinesAndBlocks)
{
    const CBytes aui8Cea = CeaBlock();
    const CBytes aui8BadCea = WithChange(aui8Cea, 127, static_cast<unsigned char>(aui8Cea[127] + 1));
    const CBytes aui8Other = FixChecksums(WithChange(aui8Cea, 0, 0x40));
    const CBytes aui8Version2 = FixChecksums(WithChange(Lg(), 18, 2));
    const struct
    {
        const char* m_szName;
        CBytes m_aui8Data;
        int m_iResult;
        unsigned int m_uiLines; // assertion lines
        CBytes m_aui8Kept;
    } aoCases[] = {
        { "base and one block", Lg(), 1, 0, Lg() },
        { "size 0 empties", {}, 1, 0, {} },
        { "odd size", Join({ Lg(), CBytes(1) }), 0, 0, {} },
        { "wrong header", WithChange(Lg(), 0, 1), 0, 0, {} },
        { "none announced, one given", LgWith(0, { aui8Cea }), 1, 0, LgWith(0, {}) },
        { "one announced, none given", LgWith(1, {}), 1, 1, LgWith(1, {}) },
        { "255 announced, two given", LgWith(255, { aui8Cea, aui8Cea }), 1, 1, LgWith(255, { aui8Cea, aui8Cea }) },
        { "one announced, two given", LgWith(1, { aui8Cea, aui8Cea }), 1, 0, Lg() },
        { "blocks of any version count", aui8Version2, 1, 0, aui8Version2 },
        { "block with a wrong checksum is dropped", LgWith(1, { aui8BadCea }), 1, 1, LgWith(1, {}) },
        { "block of another kind is dropped", LgWith(2, { aui8Other, aui8Cea }), 1, 1, LgWith(2, { aui8Cea }) },
        { "wrong checksum of the base block loads", WithChange(Lg(), 127, 0x55), 1, 0, WithChange(Lg(), 127, 0x55) },
        { "both kinds", LgWith(2, { aui8Cea, DisplayIdBlock() }), 1, 0, LgWith(2, { aui8Cea, DisplayIdBlock() }) },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CEdid oEdid;
        const CEdid& oConst = oEdid;
        ASSERT_EQ(1, LoadExact(oEdid, Lg())); // whatever follows, this is gone
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_iResult, LoadExact(oEdid, oCase.m_aui8Data));
        EXPECT_EQ(oCase.m_uiLines, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_aui8Kept.size(), oEdid.GetSize());
        EXPECT_EQ(oCase.m_aui8Kept.empty() ? CBytes(128) : oCase.m_aui8Kept, Serialise(oEdid));
        const unsigned int uiBlocks = std::max(oEdid.GetSize() / 128, 1U) - 1;
        EXPECT_EQ(uiBlocks, oEdid.GetExtensionCount());
        EXPECT_EQ(nullptr, oEdid.GetExtension(uiBlocks));
        EXPECT_EQ(nullptr, oConst.GetExtension(uiBlocks));
        EXPECT_EQ(oConst.GetExtension(0), oEdid.GetExtension(0));
    }
    CLoadedEdid oEdid(Lg());
    EXPECT_EQ(1, oEdid.SetEdidBuffer(nullptr, 256, 0)); // empties as well
    EXPECT_EQ(0U, oEdid.GetSize());
    EXPECT_NE(0, oEdid.IsChecksumValid());
}

TEST(EdidLoading, StripFlagsReachTheCeaBlock)
{
    CLoadedEdid oEdid(ToBytes(gsc_aui8Philips288P6), CEdidExtBlockCEA861::eStrip_Audio);
    EXPECT_NE(0, oEdid.GetExtension(0)->IsStripped());
    EXPECT_NE(0, oEdid.IsChecksumValid());
    EXPECT_EQ(256U, oEdid.GetSize());
}

TEST(EdidChecksum, EachBlockCounts)
{
    CLoadedEdid oEdid(LgWith(2, { DisplayIdBlock(), CeaBlock() }));
    EXPECT_NE(0, oEdid.IsChecksumValid());
    ASSERT_EQ(1, oEdid.SetEstablishedFromId(CEdidBase::eEstablished640x480At60, 0, 0));
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    oEdid.UpdateChecksum();
    EXPECT_NE(0, oEdid.IsChecksumValid());

    auto* poCea = static_cast<CEdidExtBlockCEA861*>(oEdid.GetExtension(1));
    poCea->PadDataRange(1, 1); // a raw step, which leaves the checksum alone
    oEdid.UpdateChecksum();    // the base block's
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    poCea->UpdateChecksum();
    EXPECT_NE(0, oEdid.IsChecksumValid());
}

// ---- Writing back ----

TEST(EdidWriting, CopiesWhatFits)
{
    const CBytes aui8Data = LgWith(2, { CeaBlock(), DisplayIdBlock() });
    CLoadedEdid oEdid(aui8Data);
    for (unsigned int uiSize = 0; uiSize <= 400; ++uiSize)
    {
        SCOPED_TRACE(uiSize);
        const std::unique_ptr<unsigned char[]> pui8Exact(new unsigned char[uiSize]);
        const unsigned int uiExpected = std::min(uiSize, 384U);
        ASSERT_EQ(uiExpected, oEdid.GetEdidBuffer(uiSize, pui8Exact.get()));
        EXPECT_TRUE(std::equal(pui8Exact.get(), pui8Exact.get() + uiExpected, aui8Data.begin()));
    }
    EXPECT_EQ(0U, oEdid.GetEdidBuffer(256, nullptr));

    oEdid.CEdidBase::ClearEdidBuffer(); // without a base block the others are not copied either
    unsigned char ui8Byte = 9;
    EXPECT_EQ(0U, oEdid.GetEdidBuffer(1, &ui8Byte));
    EXPECT_EQ(9, ui8Byte);
}

TEST(EdidWriting, EqualityComparesTheBytes)
{
    CEdid oFirst;
    CEdid oSecond;
    EXPECT_NE(0, oFirst == oSecond);
    ASSERT_EQ(1, LoadExact(oFirst, Lg()));
    EXPECT_EQ(0, oFirst == oSecond);
    ASSERT_EQ(1, LoadExact(oSecond, Serialise(oFirst)));
    EXPECT_NE(0, oFirst == oSecond);
    ASSERT_NE(0, oSecond.GetExtension(0)->RemoveDetailed(0));
    EXPECT_EQ(0, oFirst == oSecond);
    ASSERT_EQ(1, LoadExact(oFirst, LgWith(2, { CeaBlock(), DisplayIdBlock() })));
    ASSERT_EQ(1, LoadExact(oSecond, LgWith(2, { CeaBlock(), MakeDisplayIdBlock({}) })));
    EXPECT_EQ(0, oFirst == oSecond) << "the third block differs";
}

// ---- One numbering over all blocks ----

TEST(EdidNumbering, StandardTimingsOfBaseThenBlocks)
{
    CLoadedEdid oEdid(LgWith(2, { CeaBlock(), CeaBlock() }));
    ASSERT_EQ(6U, oEdid.GetBaseStandardCount());
    EXPECT_EQ(6U + 8U + 8U, oEdid.GetStandardCount());
    const struct
    {
        unsigned int m_uiIndex;
        const char* m_szTiming;
        int m_bNative;
    } aoCases[] = { { 0, "1152x864@60", 0 }, { 5, "1280x800@60", 0 },   { 6, "1920x1080@60", 1 },
                    { 8, "1280x720@60", 0 }, { 14, "1920x1080@60", 1 }, { 16, "1280x720@60", 0 } };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_uiIndex);
        CVidParamTimingGeneric oTiming;
        int bNative = 7;
        EXPECT_NE(0, oEdid.GetStandard(oCase.m_uiIndex, &oTiming, &bNative));
        EXPECT_EQ(oCase.m_szTiming, NameOf(oTiming));
        EXPECT_EQ(oCase.m_bNative, bNative);
    }
    EXPECT_EQ("none", StandardName(oEdid, 22));
    EXPECT_EQ("none", StandardName(oEdid, 0xFFFFFFFF));
    // A null timing is a test in the base block alone.
    EXPECT_EQ(1, oEdid.GetStandard(5, nullptr, nullptr));
    EXPECT_EQ(0, oEdid.GetStandard(6, nullptr, nullptr));
    EXPECT_EQ(1, oEdid.GetBaseStandard(5U, nullptr, nullptr));
    EXPECT_EQ(0, oEdid.GetBaseStandard(6U, nullptr, nullptr));
    EXPECT_EQ(1, oEdid.GetBaseStandard(CEdidBase::eStandardSlot5, nullptr, nullptr));
}

TEST(EdidNumbering, StandardRemovalStaysInItsBlock)
{
    CLoadedEdid oEdid(Lg());
    CEditCheck oBase(oEdid);
    ASSERT_EQ(1, oEdid.RemoveStandard(1));
    oBase.ExpectEdited({ { 38, 16 } });
    EXPECT_EQ("1920x1080@60", StandardName(oEdid, 5)); // the block's first

    CEditCheck oBlock(oEdid);
    ASSERT_NE(0, oEdid.RemoveStandard(6)); // its 1000/1001 twin; the code stands for both
    oBlock.ExpectEdited({ { 128 + 4, 123 } });
    EXPECT_EQ(5U + 6U, oEdid.GetStandardCount());
    EXPECT_EQ("1280x720@60", StandardName(oEdid, 5));

    CEditCheck oRefused(oEdid);
    EXPECT_EQ(0, oEdid.RemoveStandard(11));
    EXPECT_EQ(0, oEdid.RemoveDetailed(0)); // preferred: the base block's refusal is final, no block is asked instead
    oRefused.ExpectUnchanged();
}

TEST(EdidNumbering, DetailedTimingsOfBaseThenBlocks)
{
    CLoadedEdid oEdid(LgWith(2, { DisplayIdBlock(), CeaBlock() }));
    EXPECT_EQ(2U, oEdid.GetBaseDetailedCount());
    ASSERT_EQ(5U, oEdid.GetDetailedCount());
    const char* const apszExpected[] = { "3840x2160@60", "3840x2160@30", "1280x720@60",
                                         "1920x1080@60", "2560x1440@60", "none" };
    for (unsigned int ui = 0; ui < std::size(apszExpected); ++ui)
    {
        EXPECT_EQ(apszExpected[ui], DetailedName(oEdid, ui)) << ui;
    }
    EXPECT_EQ(1, oEdid.GetBaseDetailed(1, nullptr));
    EXPECT_EQ(0, oEdid.GetBaseDetailed(2, nullptr));

    CEditCheck oBlock(oEdid);
    ASSERT_NE(0, oEdid.RemoveDetailed(4));
    oBlock.ExpectEdited({ { 2 * 128 + 35, 18 } });
    CEditCheck oBase(oEdid);
    ASSERT_NE(0, oEdid.RemoveDetailed(1));
    oBase.ExpectEdited({ { 72, 18 } });
    EXPECT_EQ("1920x1080@60", DetailedName(oEdid, 2)); // shifted by the removal in front of it
}

// A record without a clock counts but is refused; a DisplayID block refuses every removal. The next block that is long
// enough is then asked for the same position, not for the next one.
TEST(EdidNumbering, RefusalOfABlockGoesOnWithTheSameRest)
{
    CBytes aui8NoClock = Type1Record1080p();
    std::fill_n(aui8NoClock.begin(), 3, static_cast<unsigned char>(0));
    const CBytes aui8Records = Join({ MakeDataBlock(3, 0, aui8NoClock), MakeDataBlock(4, 0, Type2Record720p()) });
    CLoadedEdid oEdid(LgWith(2, { MakeDisplayIdBlock(aui8Records), CeaBlock() }));
    ASSERT_EQ(2U + 2U + 2U, oEdid.GetDetailedCount());
    EXPECT_EQ("1920x1080@60", DetailedName(oEdid, 2)); // the CEA-861 block's first
    EXPECT_EQ("1280x720@60", DetailedName(oEdid, 3));
    CEditCheck oCheck(oEdid);
    ASSERT_NE(0, oEdid.RemoveDetailed(3)); // its second
    oCheck.ExpectEdited({ { 2 * 128 + 35, 18 } });
}

TEST(EdidNumbering, EstablishedTimingsAreTheBaseBlocks)
{
    CLoadedEdid oEdid(Lg());
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, oEdid.GetEstablished(2, &oTiming, 1));
    EXPECT_EQ("1024x768@60", NameOf(oTiming));
    EXPECT_EQ(1, oEdid.SetEstablished(2, 0, 0));
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    EXPECT_EQ(1, oEdid.SetEstablished(1, 1, 1)); // is set already
    EXPECT_NE(0, oEdid.IsChecksumValid());
    EXPECT_EQ(2U, oEdid.GetEstablishedCount(0));
}

// ---- Tiling ----

TEST(EdidTiling, FirstBlockWithATileAnswersElseZeros)
{
    CBytes aui8Other = TilePayload();
    aui8Other[0] = 0;
    aui8Other[2] = 0x01;
    const CBytes aui8NoTile = MakeDisplayIdBlock({});
    const CBytes aui8Tile = MakeDisplayIdBlock(MakeDataBlock(18, 0, TilePayload()));
    const CBytes aui8OtherTile = MakeDisplayIdBlock(MakeDataBlock(18, 0, aui8Other));
    for (const bool bTile : { true, false })
    {
        SCOPED_TRACE(bTile);
        CLoadedEdid oEdid(bTile ? LgWith(4, { CeaBlock(), aui8NoTile, aui8Tile, aui8OtherTile })
                                : LgWith(1, { aui8NoTile }));
        const int iExpected = bTile ? 1 : 0;
        EXPECT_EQ(iExpected, oEdid.IsDisplayPartOfTiledTopology());
        std::array<int, 6> ai = { 7, 7, 7, 7, 7, 7 };
        EXPECT_EQ(iExpected, oEdid.GetTiledDisplayCapabilities(&ai[0], &ai[1], &ai[2], &ai[3], &ai[4], &ai[5]));
        EXPECT_EQ(bTile ? (std::array<int, 6>{ 1, 0, 0, 0, 1, 0 }) : (std::array<int, 6>{}), ai);
        EXPECT_EQ(iExpected, oEdid.GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
        std::array<unsigned int, 6> aui = { 7, 7, 7, 7, 7, 7 };
        EXPECT_EQ(iExpected, oEdid.GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]));
        EXPECT_EQ(bTile ? (std::array<unsigned int, 6>{ 1, 0, 2, 2, 1920, 1080 }) : (std::array<unsigned int, 6>{}),
                  aui);
    }

    CLoadedEdid oLg(Lg()); // a block that knows no tiles
    std::array<unsigned int, 6> aui = { 7, 7, 7, 7, 7, 7 };
    EXPECT_EQ(0, oLg.GetExtension(0)->GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]));
    EXPECT_EQ((std::array<unsigned int, 6>{}), aui);
}

// ---- Factory ----

TEST(ExtBlockFactory, BytesDecideTheClass)
{
    const CBytes aui8Cea = CeaBlock();
    const struct
    {
        const char* m_szName;
        CBytes m_aui8Data;
        unsigned int m_uiType;  // 0: no object
        unsigned int m_uiLines; // the factory's, behind one of each class for data that is too short
    } aoCases[] = {
        { "CEA-861", aui8Cea, 2, 0 },
        { "DisplayID", DisplayIdBlock(), 112, 0 },
        { "CEA-861 with a wrong checksum", WithChange(aui8Cea, 127, 0), 0, 1 },
        { "CEA-861 of an unknown revision", FixChecksums(WithChange(aui8Cea, 1, 4)), 0, 1 },
        { "zeros", CBytes(128), 0, 1 },
        { "too short", CBytes(aui8Cea.begin(), aui8Cea.end() - 1), 0, 3 },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCapturedOutput oOutput;
        const std::unique_ptr<CEdidExtBlock> poBlock(CEdidExtBlock::CreateExtensionBlock(
            static_cast<unsigned int>(oCase.m_aui8Data.size()), CopyToHeap(oCase.m_aui8Data).get(), 0));
        EXPECT_EQ(oCase.m_uiLines, oOutput.TakeAssertionCount());
        ASSERT_EQ(oCase.m_uiType != 0, poBlock != nullptr);
        if (poBlock != nullptr)
        {
            EXPECT_EQ(oCase.m_uiType, poBlock->GetExtensionType());
            EXPECT_EQ(oCase.m_aui8Data, CBytes(poBlock->GetData(), poBlock->GetData() + 128)); // a copy of its own
        }
    }
    CCapturedOutput oOutput;
    EXPECT_EQ(nullptr, CEdidExtBlock::CreateExtensionBlock(128, nullptr, 0));
    EXPECT_EQ(3U, oOutput.TakeAssertionCount());
}
}
