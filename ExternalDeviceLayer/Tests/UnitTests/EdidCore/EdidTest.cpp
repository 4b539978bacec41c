// The whole EDID: loading and writing back over several blocks, one numbering of timings, and the block factory.

#include "Edid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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
const CBytes gsc_aui8Cea(gsc_aui8LgUltraHd.begin() + 128, gsc_aui8LgUltraHd.end());
// 1280x720
const CBytes gsc_aui8DisplayId = MakeDisplayIdBlock(MakeDataBlock(4, 0, Type2Record720p()));

// The LG's base block with this number of announced blocks, and these blocks behind it.
CBytes LgWith(unsigned char ui8Announced, std::initializer_list<CBytes> aaui8Blocks)
{
    CBytes aui8Base(gsc_aui8LgUltraHd.begin(), gsc_aui8LgUltraHd.begin() + 128);
    aui8Base[126] = ui8Announced;
    return Join({ FixChecksums(aui8Base), Join(aaui8Blocks) });
}

const CBytes gsc_aui8Lg = LgWith(1, { gsc_aui8Cea });

CBytes WithChange(CBytes aui8Data, unsigned int uiOffset, unsigned char ui8Value)
{
    aui8Data.at(uiOffset) = ui8Value;
    return aui8Data;
}

class CLoadedEdid : public CEdid
{
public:
    explicit CLoadedEdid(const CBytes& aui8Data, unsigned int uiStripFlags = 0)
    {
        EXPECT_EQ(1, LoadExact(*this, aui8Data, uiStripFlags));
    }
};

// "1920x1080@60", with a star for a native one.
std::string StandardName(const CEdid& oEdid, unsigned int uiIndex)
{
    CVidParamTimingGeneric oTiming;
    int iNative = 7;
    const bool bFound = oEdid.GetStandard(uiIndex, &oTiming, &iNative) != 0;
    return bFound ? NameOf(oTiming) + (iNative == 0 ? "" : "*") : "none";
}

// All of them, and that there are no more.
std::string DetailedNames(const CEdid& oEdid)
{
    std::string sNames;
    CVidParamTimingGeneric oTiming;
    for (unsigned int i = 0; i < oEdid.GetDetailedCount(); ++i)
    {
        sNames += oEdid.GetDetailed(i, &oTiming) != 0 ? NameOf(oTiming) + " " : "none ";
    }
    EXPECT_EQ(0, oEdid.GetDetailed(oEdid.GetDetailedCount(), &oTiming));
    return sNames;
}

// ---- Loading ----

TEST(EdidLoading, ResultLinesAndBlocks)
{
    const CBytes aui8BadCea = WithChange(gsc_aui8Cea, 127, static_cast<unsigned char>(gsc_aui8Cea[127] + 1));
    const CBytes aui8Other = FixChecksums(WithChange(gsc_aui8Cea, 0, 0x40));
    const CBytes aui8Version2 = FixChecksums(WithChange(gsc_aui8Lg, 18, 2));
    const CBytes aui8BadBase = WithChange(gsc_aui8Lg, 127, 0x55);
    const CBytes aui8Both = LgWith(2, { gsc_aui8Cea, gsc_aui8DisplayId });
    const CBytes aui8Twice = LgWith(255, { gsc_aui8Cea, gsc_aui8Cea });
    // The lines are assertion lines, the last bytes what is kept.
    const auto Expect = [](const char* pszName, int iResult, unsigned int uiLines, const CBytes& aui8Data,
                           const CBytes& aui8Kept) {
        SCOPED_TRACE(pszName);
        CLoadedEdid oEdid(gsc_aui8Lg); // whatever follows, this is gone
        const CEdid& oConst = oEdid;
        CCapturedOutput oOutput;
        EXPECT_EQ(iResult, LoadExact(oEdid, aui8Data));
        EXPECT_EQ(nullptr, oEdid.GetExtension(oEdid.GetExtensionCount()));
        EXPECT_EQ(nullptr, oConst.GetExtension(oEdid.GetExtensionCount()));
        EXPECT_EQ(uiLines, oOutput.TakeAssertionCount());
        EXPECT_EQ(aui8Kept.size(), oEdid.GetSize());
        EXPECT_EQ(aui8Kept.empty() ? CBytes(128) : aui8Kept, Serialise(oEdid));
        EXPECT_EQ(std::max<size_t>(aui8Kept.size() / 128, 1) - 1, oEdid.GetExtensionCount());
        EXPECT_EQ(oConst.GetExtension(0), oEdid.GetExtension(0));
    };
    Expect("base and one block", 1, 0, gsc_aui8Lg, gsc_aui8Lg);
    Expect("both kinds", 1, 0, aui8Both, aui8Both);
    Expect("size 0 empties", 1, 0, {}, {});
    Expect("odd size", 0, 0, Join({ gsc_aui8Lg, CBytes(1) }), {});
    Expect("wrong header", 0, 0, WithChange(gsc_aui8Lg, 0, 1), {});
    Expect("none announced, one given", 1, 0, LgWith(0, { gsc_aui8Cea }), LgWith(0, {}));
    Expect("one announced, none given", 1, 1, LgWith(1, {}), LgWith(1, {}));
    Expect("one announced, two given", 1, 0, LgWith(1, { gsc_aui8Cea, gsc_aui8Cea }), gsc_aui8Lg);
    Expect("255 announced, two given", 1, 1, aui8Twice, aui8Twice);
    Expect("blocks of any version count", 1, 0, aui8Version2, aui8Version2);
    Expect("block with a wrong checksum is dropped", 1, 1, LgWith(1, { aui8BadCea }), LgWith(1, {}));
    Expect("block of another kind is dropped", 1, 1, LgWith(2, { aui8Other, gsc_aui8Cea }), LgWith(2, { gsc_aui8Cea }));
    Expect("wrong checksum of the base block loads", 1, 0, aui8BadBase, aui8BadBase);

    CLoadedEdid oEdid(ToBytes(gsc_aui8Philips288P6), CEdidExtBlockCEA861::eStrip_Audio);
    EXPECT_NE(0, oEdid.GetExtension(0)->IsStripped()) << "the flags reach the block";
    EXPECT_EQ(1, oEdid.SetEdidBuffer(nullptr, 256, 0)); // empties as well
    EXPECT_EQ(0U, oEdid.GetSize());
    EXPECT_NE(0, oEdid.IsChecksumValid());
}

TEST(EdidChecksum, EachBlockCounts)
{
    CLoadedEdid oEdid(LgWith(2, { gsc_aui8DisplayId, gsc_aui8Cea }));
    EXPECT_NE(0, oEdid.IsChecksumValid());
    ASSERT_EQ(1, oEdid.SetEstablishedFromId(CEdidBase::eEstablished640x480At60, 0, 0));
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    oEdid.UpdateChecksum();
    EXPECT_NE(0, oEdid.IsChecksumValid());
    ASSERT_EQ(1, oEdid.SetEstablished(1, 0, 0));
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    ASSERT_EQ(1, oEdid.SetEstablished(0, 1, 1)); // is set already
    EXPECT_NE(0, oEdid.IsChecksumValid());
    EXPECT_EQ(1U, oEdid.GetEstablishedCount(0));

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
    const CBytes aui8Data = LgWith(2, { gsc_aui8Cea, gsc_aui8DisplayId });
    CLoadedEdid oEdid(aui8Data);
    for (unsigned int uiSize = 0; uiSize <= 400; ++uiSize)
    {
        const std::unique_ptr<unsigned char[]> pui8Exact = CopyToHeap(CBytes(uiSize));
        const unsigned int uiExpected = std::min(uiSize, 384U);
        ASSERT_EQ(uiExpected, oEdid.GetEdidBuffer(uiSize, pui8Exact.get()));
        ASSERT_TRUE(std::equal(pui8Exact.get(), pui8Exact.get() + uiExpected, aui8Data.begin())) << uiSize;
    }
    EXPECT_EQ(0U, oEdid.GetEdidBuffer(256, nullptr));
    oEdid.CEdidBase::ClearEdidBuffer(); // without a base block the others are not copied either
    unsigned char ui8Byte = 9;
    EXPECT_EQ(0U, oEdid.GetEdidBuffer(1, &ui8Byte));
    EXPECT_EQ(9, ui8Byte);
}

TEST(EdidWriting, EqualityComparesTheBytes)
{
    const CBytes aui8NoRecord = LgWith(2, { gsc_aui8Cea, MakeDisplayIdBlock({}) });
    const CBytes aaui8Images[] = { {}, gsc_aui8Lg, LgWith(2, { gsc_aui8Cea, gsc_aui8DisplayId }), aui8NoRecord };
    for (const CBytes& aui8First : aaui8Images)
    {
        for (const CBytes& aui8Second : aaui8Images)
        {
            EXPECT_EQ(aui8First == aui8Second ? 1 : 0, CLoadedEdid(aui8First) == CLoadedEdid(aui8Second));
        }
    }
}

// ---- One numbering over all blocks ----

// The self-check numbers and removes the standard timings of one block; here are two.
TEST(EdidNumbering, StandardTimingsOfBaseThenBlocks)
{
    CLoadedEdid oEdid(LgWith(2, { gsc_aui8Cea, gsc_aui8Cea }));
    EXPECT_EQ(6U, oEdid.GetBaseStandardCount());
    EXPECT_EQ(6U + 8U + 8U, oEdid.GetStandardCount());
    EXPECT_EQ("1280x800@60", StandardName(oEdid, 5));
    EXPECT_EQ("1920x1080@60*", StandardName(oEdid, 6));
    EXPECT_EQ("1920x1080@60*", StandardName(oEdid, 14));
    EXPECT_EQ("1280x720@60", StandardName(oEdid, 16));
    EXPECT_EQ("none", StandardName(oEdid, 22));
    // A null timing is a test in the base block alone.
    EXPECT_EQ(1, oEdid.GetStandard(5, nullptr, nullptr));
    EXPECT_EQ(0, oEdid.GetStandard(6, nullptr, nullptr));
    EXPECT_EQ(1, oEdid.GetBaseStandard(5U, nullptr, nullptr));
    EXPECT_EQ(0, oEdid.GetBaseStandard(6U, nullptr, nullptr));

    CEditCheck oCheck(oEdid);
    EXPECT_EQ(0, oEdid.RemoveStandard(22));
    oCheck.ExpectUnchanged();
    ASSERT_NE(0, oEdid.RemoveStandard(15)); // of a code that stands for two
    oCheck.ExpectEdited({ { 256 + 4, 123 } });
    EXPECT_EQ(6U + 8U + 6U, oEdid.GetStandardCount());
}

// A record without a clock counts but is refused, and a DisplayID block refuses each removal: the next block that is
// long enough is then asked for the same position, not for the next one.
TEST(EdidNumbering, DetailedTimingsOfBaseThenBlocks)
{
    CBytes aui8NoClock = Type1Record1080p();
    std::fill_n(aui8NoClock.begin(), 3, static_cast<unsigned char>(0));
    const CBytes aui8TwoRecords =
        MakeDisplayIdBlock(Join({ MakeDataBlock(3, 0, aui8NoClock), MakeDataBlock(4, 0, Type2Record720p()) }));
    CLoadedEdid oOne(LgWith(2, { gsc_aui8DisplayId, gsc_aui8Cea }));
    CLoadedEdid oTwo(LgWith(2, { aui8TwoRecords, gsc_aui8Cea }));
    EXPECT_EQ("3840x2160@60 3840x2160@30 1280x720@60 1920x1080@60 2560x1440@60 ", DetailedNames(oOne));
    EXPECT_EQ("3840x2160@60 3840x2160@30 1920x1080@60 1280x720@60 1920x1080@60 2560x1440@60 ", DetailedNames(oTwo));
    EXPECT_EQ(2U, oOne.GetBaseDetailedCount());
    EXPECT_EQ(1, oOne.GetBaseDetailed(1, nullptr));
    EXPECT_EQ(0, oOne.GetBaseDetailed(2, nullptr));

    CEditCheck oBase(oOne);
    ASSERT_NE(0, oOne.RemoveDetailed(1));
    oBase.ExpectEdited({ { 72, 18 } });
    EXPECT_EQ("3840x2160@60 1280x720@60 1920x1080@60 2560x1440@60 ", DetailedNames(oOne));
    CEditCheck oBlock(oTwo);
    ASSERT_NE(0, oTwo.RemoveDetailed(3));
    oBlock.ExpectEdited({ { 256 + 35, 18 } });
    EXPECT_EQ("3840x2160@60 3840x2160@30 1920x1080@60 1280x720@60 1920x1080@60 ", DetailedNames(oTwo));
    CEditCheck oRefused(oOne);
    EXPECT_EQ(0, oOne.RemoveDetailed(0)); // preferred: the base block's refusal is final, no block is asked instead
    EXPECT_EQ(0, oOne.RemoveDetailed(4));
    oRefused.ExpectUnchanged();
}

// ---- Tiling ----

// Blocks that know no tiles, or hold none, are passed by.
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
        CLoadedEdid oEdid(bTile ? LgWith(4, { gsc_aui8Cea, aui8NoTile, aui8Tile, aui8OtherTile })
                                : LgWith(2, { gsc_aui8Cea, aui8NoTile }));
        const int iExpected = bTile ? 1 : 0;
        std::array<int, 6> ai = { 7, 7, 7, 7, 7, 7 };
        std::array<unsigned int, 6> aui = { 7, 7, 7, 7, 7, 7 };
        EXPECT_EQ(iExpected, oEdid.IsDisplayPartOfTiledTopology());
        EXPECT_EQ(iExpected, oEdid.GetTiledDisplayCapabilities(&ai[0], &ai[1], &ai[2], &ai[3], &ai[4], &ai[5]));
        EXPECT_EQ(bTile ? (std::array<int, 6>{ 1, 0, 0, 0, 1, 0 }) : (std::array<int, 6>{}), ai);
        EXPECT_EQ(iExpected, oEdid.GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
        EXPECT_EQ(iExpected, oEdid.GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]));
        EXPECT_EQ(bTile ? (std::array<unsigned int, 6>{ 1, 0, 2, 2, 1920, 1080 }) : (std::array<unsigned int, 6>{}),
                  aui);
    }
    // The block itself answers with zeros, too.
    CLoadedEdid oLg(gsc_aui8Lg);
    std::array<int, 6> ai = { 7, 7, 7, 7, 7, 7 };
    std::array<unsigned int, 6> aui = { 7, 7, 7, 7, 7, 7 };
    CEdidExtBlock& oBlock = *oLg.GetExtension(0);
    EXPECT_EQ(0, oBlock.GetTiledDisplayCapabilities(&ai[0], &ai[1], &ai[2], &ai[3], &ai[4], &ai[5]));
    EXPECT_EQ(0, oBlock.GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]));
    EXPECT_EQ((std::array<int, 6>{}), ai);
    EXPECT_EQ((std::array<unsigned int, 6>{}), aui);
}

// ---- Factory ----

TEST(ExtBlockFactory, BytesDecideTheClass)
{
    // Type 0: no object. Lines: the factory's, behind one of each class for data that is too short.
    const auto Expect = [](const char* pszName, unsigned int uiType, unsigned int uiLines,
                           const unsigned char* pui8Data, size_t uiSize) {
        CCapturedOutput oOutput;
        const std::unique_ptr<CEdidExtBlock> poBlock(
            CEdidExtBlock::CreateExtensionBlock(static_cast<unsigned int>(uiSize), pui8Data, 0));
        EXPECT_EQ(uiLines, oOutput.TakeAssertionCount()) << pszName;
        EXPECT_EQ(uiType, poBlock != nullptr ? poBlock->GetExtensionType() : 0) << pszName;
        EXPECT_TRUE(poBlock == nullptr || poBlock->GetData() != pui8Data) << pszName << ": a copy of its own";
    };
    Expect("CEA-861", 2, 0, gsc_aui8Cea.data(), 128);
    Expect("DisplayID", 112, 0, gsc_aui8DisplayId.data(), 128);
    Expect("CEA-861 with a wrong checksum", 0, 1, WithChange(gsc_aui8Cea, 127, 0).data(), 128);
    Expect("CEA-861 of an unknown revision", 0, 1, FixChecksums(WithChange(gsc_aui8Cea, 1, 4)).data(), 128);
    Expect("zeros", 0, 1, CBytes(128).data(), 128);
    Expect("too short", 0, 3, CopyToHeap(CBytes(gsc_aui8Cea.begin(), gsc_aui8Cea.end() - 1)).get(), 127);
    Expect("null", 0, 3, nullptr, 128);
}
}
