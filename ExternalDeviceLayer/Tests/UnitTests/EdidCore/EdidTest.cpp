// The whole EDID: loading and writing back over several blocks, and one numbering of timings. Its edits are seen in the
// image sweep.

#include "Edid.h"

#include <gtest/gtest.h>

#include <array>
#include <map>

#include "CapturedOutput.h"
#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "EdidExtBlockCEA861.h"
#include "TimingValues.h"

namespace
{
// An LG Ultra HD. Base block: 6 standard timings, 3840x2160 at 60 and 30. Extension: VICs 16 (native), 4, 3 and 1,
// each with its 1000/1001 variant, and two detailed timings, 1920x1080 and 2560x1440.
const CBytes gsc_aui8Cea(gsc_aui8LgUltraHd.begin() + 128, gsc_aui8LgUltraHd.end());
// 1280x720
const CBytes gsc_aui8DisplayId = MakeDisplayIdBlock(MakeDataBlock(4, 0, Type2Record720p()));

// The LG's base block, in which a number of blocks is announced, and a block for each letter: "2CD".
CBytes Lg(const std::string& sBlocks)
{
    CBytes aui8NoClock = Type1Record1080p();
    std::fill_n(aui8NoClock.begin(), 3, static_cast<unsigned char>(0));
    const std::map<char, CBytes> oBlocks = {
        { 'C', gsc_aui8Cea },
        { 'W', WithChange(gsc_aui8Cea, 127, static_cast<unsigned char>(gsc_aui8Cea[127] + 1)) }, // wrong checksum
        { 'X', FixChecksums(WithChange(gsc_aui8Cea, 0, 0x40)) },                                 // of another kind
        { 'D', gsc_aui8DisplayId },
        { 'N', MakeDisplayIdBlock({}) },
        // Two records, of which the first has no clock.
        { '2', MakeDisplayIdBlock(Join({ MakeDataBlock(3, 0, aui8NoClock), MakeDataBlock(4, 0, Type2Record720p()) })) },
        { 'T', MakeDisplayIdBlock(MakeDataBlock(18, 0, TilePayload())) },
        { 'U', MakeDisplayIdBlock(MakeDataBlock(18, 0, WithChange(TilePayload(), 2, 1))) }, // another tile
    };
    const size_t uiLetters = sBlocks.find(' ') + 1;
    CBytes aui8Image(gsc_aui8LgUltraHd.begin(), gsc_aui8LgUltraHd.begin() + 128);
    aui8Image[126] = static_cast<unsigned char>(std::stoul(sBlocks));
    for (const char c : sBlocks.substr(uiLetters))
    {
        Append(aui8Image, oBlocks.at(c));
    }
    FixBlockSum(aui8Image, 0);
    return aui8Image;
}

class CLoadedEdid : public CEdid
{
public:
    explicit CLoadedEdid(const CBytes& aui8Data) { EXPECT_EQ(1, LoadExact(*this, aui8Data)); }
    explicit CLoadedEdid(const std::string& sBlocks) : CLoadedEdid(Lg(sBlocks)) {}
};

// ---- Loading ----

TEST(EdidLoading, ResultLinesAndBlocks)
{
    // The lines are assertion lines, the last bytes what is kept.
    const auto Expect = [](const char* pszName, int iResult, unsigned int uiLines, const CBytes& aui8Data,
                           const CBytes& aui8Kept) {
        SCOPED_TRACE(pszName);
        CLoadedEdid oEdid("1 C"); // whatever follows, this is gone
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
        EXPECT_EQ(aui8Kept == Lg("1 C") ? 1 : 0, oEdid == CLoadedEdid("1 C"));
    };
    Expect("base and one block", 1, 0, Lg("1 C"), Lg("1 C"));
    Expect("base and one block of the other kind", 1, 0, Lg("1 D"), Lg("1 D"));
    Expect("both kinds", 1, 0, Lg("2 CD"), Lg("2 CD"));
    Expect("size 0 empties", 1, 0, {}, {});
    Expect("odd size", 0, 0, Join({ Lg("1 C"), CBytes(1) }), {});
    Expect("wrong header", 0, 0, WithChange(Lg("1 C"), 0, 1), {});
    Expect("none announced, one given", 1, 0, Lg("0 C"), Lg("0 "));
    Expect("one announced, none given", 1, 1, Lg("1 "), Lg("1 "));
    Expect("one announced, two given", 1, 0, Lg("1 CC"), Lg("1 C"));
    Expect("255 announced, two given", 1, 1, Lg("255 CC"), Lg("255 CC"));
    Expect("255 announced and given", 1, 0, Lg("255 " + std::string(255, 'C')), Lg("255 " + std::string(255, 'C')));
    Expect("blocks of any version count", 1, 0, WithChange(Lg("1 C"), 18, 2), WithChange(Lg("1 C"), 18, 2));
    Expect("block with a wrong checksum is dropped", 1, 1, Lg("1 W"), Lg("1 "));
    Expect("block of another kind is dropped", 1, 1, Lg("2 XC"), Lg("2 C"));
    Expect("wrong checksum of the base block loads", 1, 0, WithChange(Lg("1 C"), 127, 0),
           WithChange(Lg("1 C"), 127, 0));

    CCapturedOutput oOutput;
    EXPECT_EQ(nullptr, CEdidExtBlock::CreateExtensionBlock(127, gsc_aui8Cea.data(), 0));
    EXPECT_EQ(nullptr, CEdidExtBlock::CreateExtensionBlock(128, nullptr, 0));
    EXPECT_EQ(6U, oOutput.TakeAssertionCount()) << "the factory's line after one of each class";

    CEdid oEdid;
    EXPECT_EQ(1, LoadExact(oEdid, ToBytes(gsc_aui8Philips288P6), CEdidExtBlockCEA861::eStrip_Audio));
    EXPECT_NE(0, oEdid.GetExtension(0)->IsStripped()) << "the flags reach the block";
    EXPECT_EQ(1, oEdid.SetEdidBuffer(nullptr, 256, 0)); // empties as well
    EXPECT_EQ(0U, oEdid.GetSize());
    EXPECT_NE(0, oEdid.IsChecksumValid());
}

TEST(EdidChecksum, EachBlockCounts)
{
    CLoadedEdid oEdid("2 DC");
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
    CLoadedEdid oEdid("2 CD");
    for (unsigned int uiSize = 0; uiSize <= 400; ++uiSize)
    {
        const std::unique_ptr<unsigned char[]> pui8Exact = CopyToHeap(CBytes(uiSize));
        CBytes aui8Expected = Lg("2 CD");
        aui8Expected.resize(std::min(uiSize, 384U));
        ASSERT_EQ(aui8Expected.size(), oEdid.GetEdidBuffer(uiSize, pui8Exact.get()));
        ASSERT_EQ(aui8Expected, CBytes(pui8Exact.get(), pui8Exact.get() + aui8Expected.size()));
    }
    EXPECT_EQ(0U, oEdid.GetEdidBuffer(256, nullptr));
    oEdid.CEdidBase::ClearEdidBuffer(); // without a base block the others are not copied either
    unsigned char ui8Byte = 9;
    EXPECT_EQ(0U, oEdid.GetEdidBuffer(1, &ui8Byte));
    EXPECT_EQ(9, ui8Byte);
}

// ---- One numbering over all blocks ----

// All standard or all detailed timings, with a star for a native one, and that no more follow.
std::string NamesOf(const CEdid& oEdid, bool bStandard)
{
    std::string sNames;
    CVidParamTimingGeneric oTiming;
    const unsigned int uiCount = bStandard ? oEdid.GetStandardCount() : oEdid.GetDetailedCount();
    for (unsigned int i = 0; i <= uiCount; ++i)
    {
        int iNative = bStandard ? 7 : 0;
        const int iFound = bStandard ? oEdid.GetStandard(i, &oTiming, &iNative) : oEdid.GetDetailed(i, &oTiming);
        sNames += (iFound != 0 ? NameOf(oTiming) + (iNative != 0 ? "*" : "") : "-") + " ";
    }
    return sNames;
}

// The self-check numbers the standard timings of one block; here are two.
TEST(EdidNumbering, StandardTimingsOfBaseThenBlocks)
{
    const std::string sBase = "1152x864@60g 1280x1024@60 1280x720@60 1600x900@60r 1920x1080@60 1280x800@60 ";
    const std::string sBlock =
        "1920x1080@60* 1920x1080@59* 1280x720@60 1280x720@59 720x480@60 720x480@59 640x480@60 640x480@59 ";
    CLoadedEdid oEdid("2 CC");
    EXPECT_EQ(sBase + sBlock + sBlock + "- ", NamesOf(oEdid, true));
    EXPECT_EQ(6U, oEdid.GetBaseStandardCount());
    // A null timing is a test in the base block alone.
    EXPECT_EQ(1, oEdid.GetStandard(5, nullptr, nullptr));
    EXPECT_EQ(0, oEdid.GetStandard(6, nullptr, nullptr));
    EXPECT_EQ(1, oEdid.GetBaseStandard(5U, nullptr, nullptr));
    EXPECT_EQ(0, oEdid.GetBaseStandard(6U, nullptr, nullptr));
}

// A record without a clock counts but is refused: the next block that is long enough is then asked for the same
// position, not for the next one.
TEST(EdidNumbering, DetailedTimingsOfBaseThenBlocks)
{
    CLoadedEdid oOne("2 DC");
    CLoadedEdid oTwo("2 2C");
    EXPECT_EQ("3840x2160@60 3840x2160@30 1280x720@60 1920x1080@60 2560x1440@60 - ", NamesOf(oOne, false));
    EXPECT_EQ("3840x2160@60 3840x2160@30 1920x1080@60 1280x720@60 1920x1080@60 2560x1440@60 - ", NamesOf(oTwo, false));
    EXPECT_EQ(2U, oOne.GetBaseDetailedCount());
    EXPECT_EQ(1, oOne.GetBaseDetailed(1, nullptr));
    EXPECT_EQ(0, oOne.GetBaseDetailed(2, nullptr));
}

// Each as block/offset=index; the bytes there are those of the timing. A dropped block has its number, too.
std::string OriginsOf(const CEdid& oEdid, bool bStandard)
{
    CTimingOrigins aoOrigins;
    bStandard ? oEdid.ListStandardOrigins(aoOrigins) : oEdid.ListDetailedOrigins(aoOrigins);
    std::ostringstream oText;
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& o = aoOrigins[i];
        oText << o.m_uiBlock << "/" << o.m_uiOffset << "=" << o.m_uiIndex << (o.m_uiLength == 2 ? "s" : "") << " ";
    }
    return oText.str();
}

TEST(EdidNumbering, OriginsCountTheBlocksOfTheImage)
{
    CLoadedEdid oEdid("3 XC2");
    EXPECT_EQ("0/38=0s 0/40=1s 0/42=2s 0/44=3s 0/46=4s 0/48=5s 2/5=6 2/5=7 2/6=8 2/6=9 2/7=10 2/7=11 2/8=12 2/8=13 ",
              OriginsOf(oEdid, true));
    EXPECT_EQ("0/54=0 0/72=1 2/17=2 2/35=3 3/31=5 ", OriginsOf(oEdid, false)) << "a record without a clock has none";
    CTimingOrigins aoOrigins;
    oEdid.ListEstablishedOrigins(aoOrigins);
    std::string sBits;
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        sBits += std::to_string(aoOrigins[i].m_uiOffset) + "." + std::to_string(aoOrigins[i].m_uiBit) + " ";
    }
    EXPECT_EQ("35.5 35.0 36.3 ", sBits);
}

// ---- Tiling ----

// The results of the three questions, then their outputs, which begin at 7.
template <class TILED>
std::vector<unsigned int> TilesOf(TILED& oTiled)
{
    std::array<int, 6> ai = { 7, 7, 7, 7, 7, 7 };
    std::array<unsigned int, 6> aui = { 7, 7, 7, 7, 7, 7 };
    const std::array<int, 3> aiResults = {
        oTiled.IsDisplayPartOfTiledTopology(),
        oTiled.GetTiledDisplayCapabilities(&ai[0], &ai[1], &ai[2], &ai[3], &ai[4], &ai[5]),
        oTiled.GetTopologyDescription(aui[0], aui[1], aui[2], aui[3], aui[4], aui[5]),
    };
    std::vector<unsigned int> auiAll(aiResults.begin(), aiResults.end());
    auiAll.insert(auiAll.end(), ai.begin(), ai.end());
    auiAll.insert(auiAll.end(), aui.begin(), aui.end());
    return auiAll;
}

// Blocks that know no tiles, or hold none, are passed by. Every output may be null.
TEST(EdidTiling, FirstBlockWithATileAnswersElseZeros)
{
    CLoadedEdid oTiled("4 CNTU");
    CLoadedEdid oPlain("2 CN");
    EXPECT_EQ((std::vector<unsigned int>{ 1, 1, 1, 1, 0, 0, 0, 1, 0, 1, 0, 2, 2, 1920, 1080 }), TilesOf(oTiled));
    EXPECT_EQ(std::vector<unsigned int>(15), TilesOf(oPlain));
    EXPECT_EQ(std::vector<unsigned int>(15), TilesOf(*oPlain.GetExtension(0))) << "a block that knows none, by itself";
    EXPECT_EQ(1, oTiled.GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(0, oPlain.GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
}
} // namespace
