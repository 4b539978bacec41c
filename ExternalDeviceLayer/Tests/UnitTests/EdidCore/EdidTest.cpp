// The whole EDID: loading and writing back over several blocks, one numbering of timings, and the block factory.

#include "Edid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "CEdidTestImages.h"
#include "EdidExtBlockCEA861.h"
#include "EditCheck.h"
#include "VidParamTimingGeneric.h"

namespace
{
using Bytes = std::vector<unsigned char>;

constexpr unsigned int gsc_uiBlock = 128;
constexpr unsigned int gsc_uiStripAudio = 0x01;

void FixChecksum(Bytes& aui8Data, unsigned int uiFirst, unsigned int uiCount)
{
    aui8Data[uiFirst + uiCount - 1] = 0;
    const auto itFirst = aui8Data.begin() + uiFirst;
    aui8Data[uiFirst + uiCount - 1] = static_cast<unsigned char>(0U - std::accumulate(itFirst, itFirst + uiCount, 0U));
}

// An LG Ultra HD. Base block: 6 standard timings, 3840x2160 at 60 and 30. Extension: VICs 16 (native), 4, 3 and 1,
// each with its 1000/1001 variant, and two detailed timings, 1920x1080 and 2560x1440.
Bytes MakeLg() { return Bytes(gsc_aui8LgUltraHd.begin(), gsc_aui8LgUltraHd.end()); }

Bytes BaseOf(const Bytes& aui8Data, unsigned char ui8ExtensionCount)
{
    Bytes aui8Base(aui8Data.begin(), aui8Data.begin() + gsc_uiBlock);
    aui8Base[126] = ui8ExtensionCount;
    FixChecksum(aui8Base, 0, gsc_uiBlock);
    return aui8Base;
}

Bytes CeaOf(const Bytes& aui8Data) { return Bytes(aui8Data.begin() + gsc_uiBlock, aui8Data.begin() + 2 * gsc_uiBlock); }

// A DisplayID 1.2 section with these data blocks.
Bytes MakeDisplayId(const Bytes& aui8DataBlocks)
{
    constexpr unsigned int uiDataOffset = 5;
    const unsigned int uiSectionEnd = uiDataOffset + static_cast<unsigned int>(aui8DataBlocks.size());
    Bytes aui8Block(gsc_uiBlock);
    aui8Block[0] = 0x70;
    aui8Block[1] = 0x12;
    aui8Block[2] = static_cast<unsigned char>(aui8DataBlocks.size());
    std::copy(aui8DataBlocks.begin(), aui8DataBlocks.end(), aui8Block.begin() + uiDataOffset);
    FixChecksum(aui8Block, 1, uiSectionEnd); // tag excluded, own checksum included
    FixChecksum(aui8Block, 0, gsc_uiBlock);
    return aui8Block;
}

// A type 1 timing of 800 x 600: each field is stored less 1. Without a clock the record counts, but is refused.
Bytes MakeType1(unsigned char ui8Clock)
{
    return { 0x03,     0x00,     20,                                   // tag, revision, payload length
             ui8Clock, ui8Clock, 0x00, 0x00,                           // clock in 10 kHz, flags
             0x1F,     0x03,     0xFF, 0x00, 0x27, 0x00, 0x7F, 0x00,   // 800, blank 256, porch 40, sync 128
             0x57,     0x02,     0x1B, 0x00, 0x00, 0x00, 0x03, 0x00 }; // 600, blank 28, porch 1, sync 4
}

// Two tiles across, one down, this one on the right; 1920 x 2160 each; scaled when driven alone.
Bytes MakeTile()
{
    Bytes aui8Block = { 0x12, 0x00, 22, 0x82, 0x10, 0x10, 0x00, 0x7F, 0x07, 0x6F, 0x08 };
    aui8Block.resize(3 + 22);
    return aui8Block;
}

Bytes Join(std::initializer_list<Bytes> aaui8Parts)
{
    Bytes aui8Data;
    for (const Bytes& aui8Part : aaui8Parts)
    {
        aui8Data.insert(aui8Data.end(), aui8Part.begin(), aui8Part.end());
    }
    return aui8Data;
}

Bytes WithChange(Bytes aui8Data, unsigned int uiOffset, unsigned char ui8Value)
{
    aui8Data.at(uiOffset) = ui8Value;
    return aui8Data;
}

// From a heap buffer of exactly the size, so that the sanitizers see every read outside it.
int LoadExact(CEdid& oEdid, const Bytes& aui8Data, unsigned int uiStripFlags = 0)
{
    const std::unique_ptr<unsigned char[]> pui8Exact(new unsigned char[aui8Data.size()]);
    std::copy(aui8Data.begin(), aui8Data.end(), pui8Exact.get());
    return oEdid.SetEdidBuffer(pui8Exact.get(), static_cast<unsigned int>(aui8Data.size()), uiStripFlags);
}

Bytes Serialise(const CEdid& oEdid)
{
    const CMArray<unsigned char, const unsigned char&> aui8Data = oEdid.GetEdidBuffer();
    return Bytes(aui8Data.GetData(), aui8Data.GetData() + aui8Data.GetCount());
}

std::string NameOf(const CVidParamTiming& oTiming)
{
    return std::to_string(oTiming.GetHorizontalActive()) + "x" + std::to_string(oTiming.GetVerticalActive()) + "@" +
           std::to_string(oTiming.GetVerticalRateInHz());
}

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

struct SLoadCase
{
    const char* m_szName;
    Bytes m_aui8Data;
    int m_iResult;
    unsigned int m_uiLines; // assertion lines
    unsigned int m_uiExtensions;
    unsigned int m_uiSize;
};

std::vector<SLoadCase> MakeLoadCases()
{
    const Bytes aui8Lg = MakeLg();
    const Bytes aui8Cea = CeaOf(aui8Lg);
    const Bytes aui8BadCea = WithChange(aui8Cea, 127, static_cast<unsigned char>(aui8Cea[127] + 1));
    Bytes aui8OtherTag = WithChange(aui8Cea, 0, 0x40);
    FixChecksum(aui8OtherTag, 0, gsc_uiBlock);
    return {
        { "base and one block", aui8Lg, 1, 0, 1, 256 },
        { "size 0 empties", {}, 1, 0, 0, 0 },
        { "odd size", Bytes(aui8Lg.begin(), aui8Lg.begin() + 200), 0, 0, 0, 0 },
        { "less than a block", Bytes(aui8Lg.begin(), aui8Lg.begin() + 127), 0, 0, 0, 0 },
        { "wrong header", WithChange(aui8Lg, 0, 1), 0, 0, 0, 0 },
        { "none announced, one given", Join({ BaseOf(aui8Lg, 0), aui8Cea }), 1, 0, 0, 128 },
        { "one announced, none given", BaseOf(aui8Lg, 1), 1, 1, 0, 128 },
        { "255 announced, two given", Join({ BaseOf(aui8Lg, 255), aui8Cea, aui8Cea }), 1, 1, 2, 384 },
        { "one announced, two given", Join({ BaseOf(aui8Lg, 1), aui8Cea, aui8Cea }), 1, 0, 1, 256 },
        { "block with a wrong checksum is dropped", Join({ BaseOf(aui8Lg, 1), aui8BadCea }), 1, 1, 0, 128 },
        { "block of another kind is dropped", Join({ BaseOf(aui8Lg, 2), aui8OtherTag, aui8Cea }), 1, 1, 1, 256 },
        { "wrong checksum of the base block loads", WithChange(aui8Lg, 127, 0x55), 1, 0, 1, 256 },
        { "both kinds", Join({ BaseOf(aui8Lg, 2), aui8Cea, MakeDisplayId({}) }), 1, 0, 2, 384 },
    };
}

TEST(EdidLoading, ResultLinesAndBlocks)
{
    for (const SLoadCase& oCase : MakeLoadCases())
    {
        SCOPED_TRACE(oCase.m_szName);
        CEdid oEdid;
        ASSERT_EQ(1, LoadExact(oEdid, MakeLg())); // whatever follows, this is gone
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_iResult, LoadExact(oEdid, oCase.m_aui8Data));
        EXPECT_EQ(oCase.m_uiLines, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_uiExtensions, oEdid.GetExtensionCount());
        EXPECT_EQ(oCase.m_uiSize, oEdid.GetSize());
        EXPECT_EQ(std::max(oCase.m_uiSize, gsc_uiBlock), Serialise(oEdid).size());
        const CEdid& oConst = oEdid;
        EXPECT_EQ(nullptr, oEdid.GetExtension(oCase.m_uiExtensions));
        EXPECT_EQ(nullptr, oConst.GetExtension(oCase.m_uiExtensions));
        EXPECT_EQ(oConst.GetExtension(0), oEdid.GetExtension(0));
    }
}

TEST(EdidLoading, NullEmptiesTheObject)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, MakeLg()));
    EXPECT_EQ(1, oEdid.SetEdidBuffer(nullptr, 256, 0));
    EXPECT_EQ(0U, oEdid.GetSize());
    EXPECT_EQ(0U, oEdid.GetExtensionCount());
    EXPECT_NE(0, oEdid.IsChecksumValid());
    EXPECT_EQ(Bytes(128, 0), Serialise(oEdid));
    unsigned char aui8Buffer[4] = { 9, 9, 9, 9 };
    EXPECT_EQ(0U, oEdid.GetEdidBuffer(sizeof(aui8Buffer), aui8Buffer));
    EXPECT_EQ(9, aui8Buffer[0]);
}

TEST(EdidLoading, StripFlagsReachTheCeaBlock)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, Bytes(gsc_aui8Philips288P6.begin(), gsc_aui8Philips288P6.end()), gsc_uiStripAudio));
    EXPECT_NE(0, oEdid.GetExtension(0)->IsStripped());
    EXPECT_NE(0, oEdid.IsChecksumValid());
    EXPECT_EQ(256U, oEdid.GetSize());
    EXPECT_NE(Bytes(gsc_aui8Philips288P6.begin(), gsc_aui8Philips288P6.end()), Serialise(oEdid));
}

TEST(EdidChecksum, EachBlockCounts)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, MakeLg()));
    EXPECT_NE(0, oEdid.IsChecksumValid());
    ASSERT_EQ(1, LoadExact(oEdid, WithChange(MakeLg(), 127, 0x55)));
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    oEdid.UpdateChecksum();
    EXPECT_NE(0, oEdid.IsChecksumValid());
    ASSERT_EQ(1, oEdid.SetEstablishedFromId(CEdidBase::eEstablished640x480At60, 0, 0));
    EXPECT_EQ(0, oEdid.IsChecksumValid());

    ASSERT_EQ(1, LoadExact(oEdid, Join({ BaseOf(MakeLg(), 2), MakeDisplayId({}), CeaOf(MakeLg()) })));
    EXPECT_NE(0, oEdid.IsChecksumValid());
    auto* poCea = static_cast<CEdidExtBlockCEA861*>(oEdid.GetExtension(1));
    poCea->PadDataRange(1, 1); // a raw step, which leaves the checksum alone
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    oEdid.UpdateChecksum(); // the base block's
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    poCea->UpdateChecksum();
    EXPECT_NE(0, oEdid.IsChecksumValid());
}

// ---- Writing back ----

TEST(EdidWriting, CopiesWhatFits)
{
    const Bytes aui8Data = Join({ BaseOf(MakeLg(), 2), CeaOf(MakeLg()), MakeDisplayId(MakeTile()) });
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, aui8Data));
    EXPECT_EQ(aui8Data, Serialise(oEdid));
    for (unsigned int uiSize = 0; uiSize <= 400; ++uiSize)
    {
        SCOPED_TRACE(uiSize);
        const std::unique_ptr<unsigned char[]> pui8Exact(new unsigned char[uiSize]);
        const unsigned int uiExpected = std::min(uiSize, 384U);
        ASSERT_EQ(uiExpected, oEdid.GetEdidBuffer(uiSize, pui8Exact.get()));
        EXPECT_TRUE(std::equal(pui8Exact.get(), pui8Exact.get() + uiExpected, aui8Data.begin()));
    }
    EXPECT_EQ(0U, oEdid.GetEdidBuffer(256, nullptr));
}

// A dropped block is gone, while the base block still announces it.
TEST(EdidWriting, DroppedBlockShortensTheOutput)
{
    const Bytes aui8Cea = CeaOf(MakeLg());
    CEdid oEdid;
    CCapturedOutput oQuiet;
    ASSERT_EQ(1, LoadExact(oEdid, Join({ BaseOf(MakeLg(), 2), Bytes(128, 0x11), aui8Cea })));
    EXPECT_EQ(Join({ BaseOf(MakeLg(), 2), aui8Cea }), Serialise(oEdid));
    EXPECT_NE(0, oEdid.IsChecksumValid());
}

TEST(EdidWriting, EqualityComparesTheBytes)
{
    CEdid oFirst;
    CEdid oSecond;
    EXPECT_NE(0, oFirst == oSecond);
    ASSERT_EQ(1, LoadExact(oFirst, MakeLg()));
    EXPECT_EQ(0, oFirst == oSecond);
    ASSERT_EQ(1, LoadExact(oSecond, Serialise(oFirst)));
    EXPECT_NE(0, oFirst == oSecond);
    oSecond.SetSerialNumber(77);
    EXPECT_EQ(0, oFirst == oSecond);
    ASSERT_EQ(1, LoadExact(oSecond, MakeLg()));
    ASSERT_NE(0, oSecond.GetExtension(0)->RemoveDetailed(0));
    EXPECT_EQ(0, oSecond == oFirst);
}

// ---- One numbering over all blocks ----

TEST(EdidNumbering, StandardTimingsOfBaseThenBlocks)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, Join({ BaseOf(MakeLg(), 2), CeaOf(MakeLg()), CeaOf(MakeLg()) })));
    ASSERT_EQ(6U, oEdid.GetBaseStandardCount());
    EXPECT_EQ(6U + 8U + 8U, oEdid.GetStandardCount());
    const struct
    {
        const char* m_szTiming;
        unsigned int m_uiIndex;
        int m_bNative;
    } aoCases[] = { { "1152x864@60", 0, 0 }, { "1280x800@60", 5, 0 },   { "1920x1080@60", 6, 1 },
                    { "1280x720@60", 8, 0 }, { "1920x1080@60", 14, 1 }, { "1280x720@60", 16, 0 } };
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
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, MakeLg()));
    CEditCheck oBase(oEdid);
    ASSERT_EQ(1, oEdid.RemoveStandard(1));
    oBase.ExpectEdited({ { 38, 16 } });
    EXPECT_EQ(5U + 8U, oEdid.GetStandardCount());
    EXPECT_EQ("1920x1080@60", StandardName(oEdid, 5)); // the block's first

    CEditCheck oBlock(oEdid);
    ASSERT_NE(0, oEdid.RemoveStandard(6)); // its 1000/1001 twin; the code stands for both
    oBlock.ExpectEdited({ { gsc_uiBlock + 4, 123 } });
    EXPECT_EQ(5U + 6U, oEdid.GetStandardCount());
    EXPECT_EQ("1280x720@60", StandardName(oEdid, 5));

    CEditCheck oRefused(oEdid);
    EXPECT_EQ(0, oEdid.RemoveStandard(11));
    oRefused.ExpectUnchanged();
}

TEST(EdidNumbering, DetailedTimingsOfBaseThenBlocks)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, Join({ BaseOf(MakeLg(), 2), MakeDisplayId(MakeType1(0x10)), CeaOf(MakeLg()) })));
    EXPECT_EQ(2U, oEdid.GetBaseDetailedCount());
    ASSERT_EQ(5U, oEdid.GetDetailedCount());
    EXPECT_EQ("3840x2160@60", DetailedName(oEdid, 0));
    EXPECT_EQ("3840x2160@30", DetailedName(oEdid, 1));
    EXPECT_EQ(0U, DetailedName(oEdid, 2).find("800x600@"));
    EXPECT_EQ("1920x1080@60", DetailedName(oEdid, 3));
    EXPECT_EQ("2560x1440@60", DetailedName(oEdid, 4));
    EXPECT_EQ("none", DetailedName(oEdid, 5));
    EXPECT_EQ(1, oEdid.GetBaseDetailed(1, nullptr));
    EXPECT_EQ(0, oEdid.GetBaseDetailed(2, nullptr));

    const unsigned int uiSize = oEdid.GetSize();
    CEditCheck oBlock(oEdid);
    ASSERT_NE(0, oEdid.RemoveDetailed(4));
    oBlock.ExpectEdited({ { 2 * gsc_uiBlock + 35, 18 } });
    CEditCheck oBase(oEdid);
    ASSERT_NE(0, oEdid.RemoveDetailed(1));
    oBase.ExpectEdited({ { 72, 18 } });
    EXPECT_EQ(uiSize, oEdid.GetSize());
    EXPECT_EQ("1920x1080@60", DetailedName(oEdid, 2)); // shifted by the removal in front of it
}

// The base block's answer is final: its preferred timing is not removed, and no block is asked instead.
TEST(EdidNumbering, RefusalOfTheBaseBlockIsFinal)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, MakeLg()));
    CEditCheck oCheck(oEdid);
    EXPECT_EQ(0, oEdid.RemoveDetailed(0));
    oCheck.ExpectUnchanged();
}

// A record without a clock counts but is refused; a DisplayID block refuses every removal. The next block long enough
// is then asked for the same position, not for the next one.
TEST(EdidNumbering, RefusalOfABlockGoesOnWithTheSameRest)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, Join({ BaseOf(MakeLg(), 2), MakeDisplayId(MakeType1(0x00)), CeaOf(MakeLg()) })));
    ASSERT_EQ(5U, oEdid.GetDetailedCount());
    EXPECT_EQ("1920x1080@60", DetailedName(oEdid, 2));
    EXPECT_EQ("1920x1080@60", DetailedName(oEdid, 3));
    CEditCheck oCheck(oEdid);
    ASSERT_NE(0, oEdid.RemoveDetailed(2));
    oCheck.ExpectEdited({ { 2 * gsc_uiBlock + 17, 36 } });
    EXPECT_EQ("2560x1440@60", DetailedName(oEdid, 3));
}

TEST(EdidNumbering, EstablishedTimingsAreTheBaseBlocks)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, MakeLg()));
    EXPECT_EQ(3U, oEdid.GetEstablishedCount(0));
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, oEdid.GetEstablished(2, &oTiming, 1));
    EXPECT_EQ("1024x768@60", NameOf(oTiming));
    CEditCheck oCheck(oEdid);
    EXPECT_EQ(1, oEdid.SetEstablished(2, 0, 0));
    EXPECT_EQ(0, oEdid.IsChecksumValid());
    oEdid.UpdateChecksum();
    oCheck.ExpectEdited({ { 36, 1 } });
    EXPECT_EQ(1, oEdid.SetEstablished(1, 1, 1)); // is set already
    EXPECT_NE(0, oEdid.IsChecksumValid());
    EXPECT_EQ(1, oEdid.SetEstablishedFromId(CEdidBase::eEstablished640x480At60, 0, 1));
    EXPECT_EQ(1U, oEdid.GetEstablishedCount(1));
}

// ---- Tiling ----

struct STile
{
    int m_aiCapabilities[6] = { 7, 7, 7, 7, 7, 7 };
    unsigned int m_auiTopology[6] = { 7, 7, 7, 7, 7, 7 };
};

template <class SOURCE>
void AskTile(SOURCE& oSource, int iExpected, STile& oTile)
{
    int* pi = oTile.m_aiCapabilities;
    unsigned int* pui = oTile.m_auiTopology;
    EXPECT_EQ(iExpected, oSource.IsDisplayPartOfTiledTopology());
    EXPECT_EQ(iExpected, oSource.GetTiledDisplayCapabilities(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(iExpected, oSource.GetTiledDisplayCapabilities(pi, pi + 1, pi + 2, pi + 3, pi + 4, pi + 5));
    EXPECT_EQ(iExpected, oSource.GetTopologyDescription(pui[0], pui[1], pui[2], pui[3], pui[4], pui[5]));
}

TEST(EdidTiling, FirstBlockWithATileAnswers)
{
    CEdid oEdid;
    ASSERT_EQ(1, LoadExact(oEdid, Join({ BaseOf(MakeLg(), 3), CeaOf(MakeLg()), MakeDisplayId({}),
                                         MakeDisplayId(MakeTile()) })));
    STile oTile;
    const CEdid& oConst = oEdid;
    AskTile(oConst, 1, oTile);
    EXPECT_EQ(std::vector<int>({ 1, 0, 0, 0, 1, 0 }),
              std::vector<int>(oTile.m_aiCapabilities, oTile.m_aiCapabilities + 6));
    EXPECT_EQ(std::vector<unsigned int>({ 1, 0, 2, 1, 1920, 2160 }),
              std::vector<unsigned int>(oTile.m_auiTopology, oTile.m_auiTopology + 6));
}

TEST(EdidTiling, WithoutATileEverythingIsZero)
{
    CEdid oEdid;
    for (const Bytes& aui8Data : { Bytes(), MakeLg(), Join({ BaseOf(MakeLg(), 1), MakeDisplayId({}) }) })
    {
        ASSERT_EQ(1, LoadExact(oEdid, aui8Data));
        STile oTile;
        AskTile(oEdid, 0, oTile);
        EXPECT_EQ(0, std::accumulate(oTile.m_aiCapabilities, oTile.m_aiCapabilities + 6, 0));
        EXPECT_EQ(0U, std::accumulate(oTile.m_auiTopology, oTile.m_auiTopology + 6, 0U));
    }
    ASSERT_EQ(1, LoadExact(oEdid, MakeLg()));
    STile oTile;
    AskTile(*oEdid.GetExtension(0), 0, oTile); // what a block answers that knows no tiles
    EXPECT_EQ(0, std::accumulate(oTile.m_aiCapabilities, oTile.m_aiCapabilities + 6, 0));
    EXPECT_EQ(0U, std::accumulate(oTile.m_auiTopology, oTile.m_auiTopology + 6, 0U));
}

// ---- Factory ----

TEST(ExtBlockFactory, BytesDecideTheClass)
{
    const Bytes aui8Cea = CeaOf(MakeLg());
    Bytes aui8NewerCea = WithChange(aui8Cea, 1, 4);
    FixChecksum(aui8NewerCea, 0, gsc_uiBlock);
    const struct
    {
        const char* m_szName;
        Bytes m_aui8Data;
        unsigned int m_uiType;  // 0: no object
        unsigned int m_uiLines; // the factory's, behind one of each class for data that is too short
    } aoCases[] = {
        { "CEA-861", aui8Cea, 2, 0 },
        { "DisplayID", MakeDisplayId({}), 112, 0 },
        { "CEA-861 with a wrong checksum", WithChange(aui8Cea, 127, 0), 0, 1 },
        { "CEA-861 of an unknown revision", aui8NewerCea, 0, 1 },
        { "zeros", Bytes(128, 0), 0, 1 },
        { "too short", Bytes(aui8Cea.begin(), aui8Cea.end() - 1), 0, 3 },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCapturedOutput oOutput;
        const std::unique_ptr<CEdidExtBlock> poBlock(CEdidExtBlock::CreateExtensionBlock(
            static_cast<unsigned int>(oCase.m_aui8Data.size()), oCase.m_aui8Data.data(), 0));
        EXPECT_EQ(oCase.m_uiLines, oOutput.TakeAssertionCount());
        ASSERT_EQ(oCase.m_uiType != 0, poBlock != nullptr);
        if (poBlock != nullptr)
        {
            EXPECT_EQ(oCase.m_uiType, poBlock->GetExtensionType());
            EXPECT_NE(oCase.m_aui8Data.data(), poBlock->GetData()); // a copy
            EXPECT_TRUE(std::equal(oCase.m_aui8Data.begin(), oCase.m_aui8Data.end(), poBlock->GetData()));
        }
    }
    CCapturedOutput oOutput;
    EXPECT_EQ(nullptr, CEdidExtBlock::CreateExtensionBlock(128, nullptr, 0));
    EXPECT_EQ(3U, oOutput.TakeAssertionCount());
}
}
