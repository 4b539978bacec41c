// Audio and speaker blocks of a CEA-861 block: the lists, and editing them by byte images.

#include <gtest/gtest.h>

#include "Cea861TestHelp.h"
#include "EditCheck.h"

namespace
{
using Block = CEdidExtBlockCEA861;
using SBytes = std::vector<unsigned char>;

// An audio block of this many descriptors, told apart by their last byte.
SBytes MakeAudioBlock(unsigned int uiCount)
{
    SBytes aui8Bytes = { static_cast<unsigned char>(0x20 + 3 * uiCount) };
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        aui8Bytes.insert(aui8Bytes.end(), { 0x09, 0x07, static_cast<unsigned char>(i) });
    }
    return aui8Bytes;
}

SBytes operator+(SBytes aui8First, const SBytes& aui8Second)
{
    aui8First.insert(aui8First.end(), aui8Second.begin(), aui8Second.end());
    return aui8First;
}

// ---- Lists ----

struct SAudioListCase
{
    const char* m_szName;
    SBytes m_aui8Blocks;
    std::vector<SAudioEntry> m_aoAudios;
    std::vector<unsigned int> m_auiSpeakers;
};

const SAudioListCase gsc_aoListCases[] = {
    { "None", { 0x41, 0x10 }, {}, {} },
    { "AllFields", { 0x23, 0xFF, 0xFF, 0xA5, 0x83, 0xFF, 0xFF, 0xFF }, { { 15, 8, 0x7F, 0xA5 } }, { 0x7FF } },
    { "LowestFields", { 0x23, 0x80, 0x80, 0x00, 0x83, 0x00, 0xF8, 0xFF }, { { 0, 1, 0, 0 } }, { 0 } },
    { "OverBlocks",
      { 0x26, 0x09, 1, 1, 0x11, 2, 2, 0x83, 1, 0, 0, 0x23, 0x19, 4, 3 },
      { { 1, 2, 1, 1 }, { 2, 2, 2, 2 }, { 3, 2, 4, 3 } },
      { 1 } },
    { "OddFirstBlockEmptiesTheList", { 0x24, 0x09, 7, 7, 0, 0x23, 0x09, 7, 7 }, {}, {} },
    { "OddLaterBlockGivesWholeGroups",
      { 0x23, 0x09, 1, 1, 0x25, 0x11, 2, 2, 0, 0, 0x22, 0, 0, 0x23, 0x19, 4, 3 },
      { { 1, 2, 1, 1 }, { 2, 2, 2, 2 }, { 3, 2, 4, 3 } },
      {} },
    { "EmptyFirstBlockIsEven", { 0x20, 0x23, 0x09, 1, 1 }, { { 1, 2, 1, 1 } }, {} },
    { "EachSpeakerBlockIsOneEntry", { 0x83, 1, 0, 0, 0x83, 0x0F, 0x04, 0 }, {}, { 1, 0x40F } },
    { "ShortSpeakerBlocksReadNoNeighbour",
      { 0x80, 0x81, 0x0F, 0x82, 0x01, 0x02, 0x47, 1, 1, 1, 1, 1, 1, 1 },
      {},
      { 0, 0x0F, 0x201 } },
    { "LongSpeakerBlock", { 0x84, 1, 1, 1, 1 }, {}, { 0x101 } },
};

TEST(Cea861Audio, Lists)
{
    for (const SAudioListCase& oCase : gsc_aoListCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes(oCase.m_aui8Blocks).Get());
        EXPECT_EQ(oCase.m_aoAudios, GetAudios(*poBlock));
        EXPECT_EQ(oCase.m_auiSpeakers, GetSpeakers(*poBlock));
    }
}

TEST(Cea861Audio, RefusedReadsTouchNothing)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes({ 0x23, 9, 7, 7, 0x83, 1, 0, 0 }).Get());
    Block::SAudioDescriptor oAudio = MakeAudio(9, 9, 9, 9);
    unsigned int uiMask = 9;
    EXPECT_EQ(0, poBlock->GetAudioDescriptor(0, nullptr));
    EXPECT_EQ(0, poBlock->GetAudioDescriptor(1, &oAudio));
    EXPECT_EQ(0, poBlock->GetSpeakerDescriptor(0, nullptr));
    EXPECT_EQ(0, poBlock->GetSpeakerDescriptor(1, &uiMask));
    EXPECT_EQ(9U, oAudio.m_uiExtra);
    EXPECT_EQ(9U, uiMask);
}

// ---- Edits ----

int Add(Block& oBlock, unsigned int uiFormat, unsigned int uiRates, unsigned int uiExtra)
{
    const Block::SAudioDescriptor oAudio = MakeAudio(uiFormat, 2, uiRates, uiExtra);
    return oBlock.AddAudioDescriptor(&oAudio);
}

int Set(Block& oBlock, unsigned int uiIndex, unsigned int uiFormat, unsigned int uiChannels, unsigned int uiRates,
        unsigned int uiExtra)
{
    const Block::SAudioDescriptor oAudio = MakeAudio(uiFormat, uiChannels, uiRates, uiExtra);
    return oBlock.SetAudioDescriptor(uiIndex, &oAudio);
}

// Data blocks and flags before and after; descriptors stand behind and must move with byte 2.
struct SEditCase
{
    const char* m_szName;
    int (*m_pfnEdit)(Block& oBlock);
    unsigned char m_ui8Flags;
    SBytes m_aui8Blocks;
    unsigned char m_ui8FlagsAfter;
    SBytes m_aui8After;
};

const SBytes gsc_aui8Video = { 0x42, 0x10, 0x04 };
const SBytes gsc_aui8Speaker = { 0x83, 0x01, 0x00, 0x00 };

const SEditCase gsc_aoEditCases[] = {
    { "AddMakesABlockBehindAllOthers", [](Block& oBlock) { return Add(oBlock, 1, 7, 7); }, 0x30,
      gsc_aui8Video + gsc_aui8Speaker, 0x70, gsc_aui8Video + gsc_aui8Speaker + SBytes{ 0x23, 0x09, 0x07, 0x07 } },
    { "AddGrowsTheFirstBlock", [](Block& oBlock) { return Add(oBlock, 2, 7, 0); }, 0x70,
      SBytes{ 0x23, 0x09, 0x07, 0x07 } + gsc_aui8Speaker, 0x70,
      SBytes{ 0x26, 0x09, 0x07, 0x07, 0x11, 0x07, 0x00 } + gsc_aui8Speaker },
    { "AddGrowsAnEmptyBlock", [](Block& oBlock) { return Add(oBlock, 11, 7, 0); }, 0x00,
      SBytes{ 0x20 } + gsc_aui8Speaker, 0x40, SBytes{ 0x23, 0x59, 0x07, 0x00 } + gsc_aui8Speaker },
    { "AddToAFullBlockMakesANewOne", [](Block& oBlock) { return Add(oBlock, 11, 7, 0); }, 0x40,
      MakeAudioBlock(10) + gsc_aui8Speaker, 0x40,
      MakeAudioBlock(10) + gsc_aui8Speaker + SBytes{ 0x23, 0x59, 0x07, 0x00 } },
    { "LaterBlocksAreNotGrown", [](Block& oBlock) { return Add(oBlock, 11, 7, 0); }, 0x40,
      MakeAudioBlock(10) + MakeAudioBlock(1), 0x40,
      MakeAudioBlock(10) + MakeAudioBlock(1) + SBytes{ 0x23, 0x59, 0x07, 0x00 } },
    { "AddCutsWideFields",
      [](Block& oBlock) {
          const Block::SAudioDescriptor oAudio = MakeAudio(0xFFF1, 10, 0xFF82, 0x1234);
          return oBlock.AddAudioDescriptor(&oAudio);
      },
      0x40,
      {},
      0x40,
      { 0x23, 0x09, 0x02, 0x34 } },
    { "SetTouchesThreeBytes",
      [](Block& oBlock) { return Set(oBlock, 1, 2, 2, 3, 0); },
      0x40,
      { 0x26, 0x09, 0x07, 0x07, 0x59, 0x07, 0x00, 0x41, 0x10 },
      0x40,
      { 0x26, 0x09, 0x07, 0x07, 0x11, 0x03, 0x00, 0x41, 0x10 } },
    { "SetKeepsReservedBits",
      [](Block& oBlock) { return Set(oBlock, 0, 15, 8, 0x7F, 0xFF); },
      0x00,
      { 0x23, 0x80, 0x80, 0x00 },
      0x00,
      { 0x23, 0xFF, 0xFF, 0xFF } },
    { "SetClearsAllButReservedBits",
      [](Block& oBlock) { return Set(oBlock, 0, 0, 9, 0, 0); },
      0x40,
      { 0x23, 0xFF, 0xFF, 0xFF },
      0x40,
      { 0x23, 0x80, 0x80, 0x00 } },
    { "SetReachesALaterBlock", [](Block& oBlock) { return Set(oBlock, 2, 2, 2, 3, 0); }, 0x40,
      MakeAudioBlock(2) + SBytes{ 0x22, 1, 1, 0x23, 1, 1, 1 }, 0x40,
      MakeAudioBlock(2) + SBytes{ 0x22, 1, 1, 0x23, 0x11, 0x03, 0x00 } },
    { "RemoveOneOfTwo",
      [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); },
      0x40,
      { 0x26, 1, 2, 3, 4, 5, 6, 0x41, 0x10 },
      0x40,
      { 0x23, 4, 5, 6, 0x41, 0x10 } },
    { "RemoveTheOnlyOneTakesTheBlock", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); }, 0x70,
      gsc_aui8Video + SBytes{ 0x23, 9, 7, 7 }, 0x30, gsc_aui8Video },
    { "SpeakersKeepTheAudioFlag", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); }, 0x70,
      SBytes{ 0x23, 9, 7, 7 } + gsc_aui8Speaker, 0x70, gsc_aui8Speaker },
    { "OtherAudioKeepsTheAudioFlag",
      [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(1); },
      0x70,
      { 0x23, 9, 7, 7, 0x23, 1, 2, 3 },
      0x70,
      { 0x23, 9, 7, 7 } },
    { "RemoveTakesTheRestOfAnOddBlock",
      [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(1); },
      0x70,
      { 0x23, 9, 7, 7, 0x25, 1, 2, 3, 4, 5, 0x41, 0x10 },
      0x70,
      { 0x23, 9, 7, 7, 0x41, 0x10 } },
    { "SpeakerAddMakesASecondBlock", [](Block& oBlock) { return oBlock.AddSpeakerDescriptor(0x5AA); }, 0x00,
      gsc_aui8Speaker + gsc_aui8Video, 0x40, gsc_aui8Speaker + gsc_aui8Video + SBytes{ 0x83, 0xAA, 0x05, 0x00 } },
    { "SpeakerSetZeroesTheRest", [](Block& oBlock) { return oBlock.SetSpeakerDescriptor(1, 0xFFFFFA01); }, 0x00,
      gsc_aui8Speaker + SBytes{ 0x84, 0xFF, 0xFF, 0xFF, 0xFF }, 0x00,
      gsc_aui8Speaker + SBytes{ 0x84, 0x01, 0x02, 0x00, 0xFF } },
    { "SpeakerSetTakesAMaskOf0",
      [](Block& oBlock) { return oBlock.SetSpeakerDescriptor(0, 0); },
      0x40,
      gsc_aui8Speaker,
      0x40,
      { 0x83, 0x00, 0x00, 0x00 } },
    { "SpeakerRemoveTakesTheWholeBlock", [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(0); }, 0x70,
      SBytes{ 0x85, 1, 2, 3, 4, 5 } + gsc_aui8Video, 0x30, gsc_aui8Video },
    { "AudioKeepsTheAudioFlag",
      [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(0); },
      0x40,
      gsc_aui8Speaker + SBytes{ 0x23, 9, 7, 7 },
      0x40,
      { 0x23, 9, 7, 7 } },
    { "OtherSpeakersKeepTheAudioFlag", [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(1); }, 0x40,
      gsc_aui8Speaker + SBytes{ 0x80 }, 0x40, gsc_aui8Speaker },
};

TEST(Cea861Audio, EditsByByteImage)
{
    for (const SEditCase& oCase : gsc_aoEditCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const SCeaBlock aui8Before =
            CCeaBlockBuilder().Flags(oCase.m_ui8Flags).Bytes(oCase.m_aui8Blocks).Detailed({ 1, 2 }).Get();
        const SCeaBlock aui8After =
            CCeaBlockBuilder().Flags(oCase.m_ui8FlagsAfter).Bytes(oCase.m_aui8After).Detailed({ 1, 2 }).Get();
        const auto poBlock = LoadBlock(aui8Before);
        EXPECT_EQ(1, oCase.m_pfnEdit(*poBlock));
        EXPECT_EQ(aui8After, GetBytes(*poBlock));
        const auto poFresh = LoadBlock(aui8After);
        EXPECT_EQ(GetAudios(*poFresh), GetAudios(*poBlock));
        EXPECT_EQ(GetSpeakers(*poFresh), GetSpeakers(*poBlock));
        EXPECT_EQ(GetStandards(*poFresh), GetStandards(*poBlock));
        EXPECT_EQ(GetDetaileds(*LoadBlock(aui8Before)), GetDetaileds(*poBlock));
    }
}

struct SRefusalCase
{
    const char* m_szName;
    int (*m_pfnEdit)(Block& oBlock);
    SBytes m_aui8Blocks;
};

const SRefusalCase gsc_aoRefusalCases[] = {
    { "AddNull", [](Block& oBlock) { return oBlock.AddAudioDescriptor(nullptr); }, { 0x23, 9, 7, 7 } },
    { "SetNull", [](Block& oBlock) { return oBlock.SetAudioDescriptor(0, nullptr); }, { 0x23, 9, 7, 7 } },
    { "SetOneChannel", [](Block& oBlock) { return Set(oBlock, 0, 1, 1, 7, 7); }, { 0x23, 9, 7, 7 } },
    { "SetNoChannel", [](Block& oBlock) { return Set(oBlock, 0, 1, 0, 7, 7); }, { 0x23, 9, 7, 7 } },
    { "AddOneChannel",
      [](Block& oBlock) {
          const Block::SAudioDescriptor oAudio = MakeAudio(1, 1, 7, 7);
          return oBlock.AddAudioDescriptor(&oAudio);
      },
      { 0x23, 9, 7, 7 } },
    { "SetAboveTheCount", [](Block& oBlock) { return Set(oBlock, 1, 1, 2, 7, 7); }, { 0x23, 9, 7, 7 } },
    { "RemoveAboveTheCount", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(1); }, { 0x23, 9, 7, 7 } },
    { "RemoveFromAnOddBlock", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); }, { 0x24, 9, 7, 7, 7 } },
    { "SpeakerAddNothing", [](Block& oBlock) { return oBlock.AddSpeakerDescriptor(0); }, {} },
    { "SpeakerSetAboveTheCount", [](Block& oBlock) { return oBlock.SetSpeakerDescriptor(1, 1); }, { 0x83, 1, 0, 0 } },
    { "SpeakerSetShortBlock",
      [](Block& oBlock) { return oBlock.SetSpeakerDescriptor(0, 5); },
      { 0x82, 1, 0, 0x41, 0x10 } },
    { "SpeakerRemoveAboveTheCount",
      [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(1); },
      { 0x83, 1, 0, 0 } },
};

TEST(Cea861Audio, RefusalsChangeNoByte)
{
    for (const SRefusalCase& oCase : gsc_aoRefusalCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const SCeaBlock aui8Block = CCeaBlockBuilder().Bytes(oCase.m_aui8Blocks).Detailed({ 1 }).Get();
        const auto poBlock = LoadBlock(aui8Block);
        const CEditCheck oCheck(*poBlock);
        EXPECT_EQ(0, oCase.m_pfnEdit(*poBlock));
        oCheck.ExpectUnchanged();
    }
}

// Writing in place names three bytes: of the descriptor in the second audio block, of the second speaker block.
TEST(Cea861Audio, SettingTouchesOneEntryAlone)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder()
                                       .Bytes(MakeAudioBlock(2) + MakeAudioBlock(3) + gsc_aui8Speaker + gsc_aui8Speaker)
                                       .Detailed({ 1 })
                                       .Get());
    const CEditCheck oAudioCheck(*poBlock);
    EXPECT_EQ(1, Set(*poBlock, 3, 2, 6, 1, 0xEE));
    oAudioCheck.ExpectEdited({ { 4 + 7 + 1 + 3, 3 } });
    const CEditCheck oSpeakerCheck(*poBlock);
    EXPECT_EQ(1, poBlock->SetSpeakerDescriptor(1, 0x7FF));
    oSpeakerCheck.ExpectEdited({ { 4 + 7 + 10 + 4 + 1, 3 } });
}

// The room for growing a block is counted from the end of the content, wherever the block itself stands.
TEST(Cea861Audio, GrowingStopsOneByteShort)
{
    for (unsigned int uiFill = 60; uiFill < 120; ++uiFill)
    {
        SBytes aui8Blocks = { 0x23, 0x09, 0x07, 0x07 };
        aui8Blocks.resize(uiFill);
        const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes(aui8Blocks).Get());
        EXPECT_EQ(4 + uiFill + 3 <= 126, Add(*poBlock, 2, 7, 0) != 0) << uiFill;

        // A descriptor behind the data blocks is content too.
        if (uiFill <= 126 - 4 - 18)
        {
            const auto poFuller = LoadBlock(CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 1 }).Get());
            EXPECT_EQ(4 + uiFill + 18 + 3 <= 126, Add(*poFuller, 2, 7, 0) != 0) << uiFill;
        }
    }
}

// A block that runs across byte 2 right up to the checksum: the descriptors' end says there is room, the block does
// not.
TEST(Cea861Audio, ABlockUpToTheChecksumDoesNotGrow)
{
    for (unsigned int uiLength = 0; uiLength <= 28; ++uiLength)
    {
        CCeaBlockBuilder oBuilder;
        const unsigned int uiHeader = 126 - uiLength;
        const SCeaBlock aui8Block = oBuilder.At(uiHeader, 0x20 + uiLength).At(2, uiHeader - 3 + 4).Get();
        const auto poBlock = LoadBlock(aui8Block);
        unsigned int uiFound = 0;
        ASSERT_NE(0U, poBlock->GetDataBlockOffset(Block::eCea861Tag_Audio, 0, &uiFound));
        EXPECT_EQ(0, Add(*poBlock, 1, 7, 7));
        EXPECT_EQ(aui8Block, GetBytes(*poBlock));
    }
}

// Revisions below 3 have no data blocks to list, but an addition goes into the bytes.
TEST(Cea861Audio, AdditionsToOldRevisionsDoNotShow)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder(2).Detailed({ 1 }).Get());
    EXPECT_EQ(1, Add(*poBlock, 1, 7, 7));
    EXPECT_EQ(1, poBlock->AddSpeakerDescriptor(1));
    EXPECT_EQ(0U, poBlock->GetAudioDescriptorCount() + poBlock->GetSpeakerDescriptorCount());
    EXPECT_EQ(CCeaBlockBuilder(2).Flags(0x40).Bytes({ 0x23, 9, 7, 7, 0x83, 1, 0, 0 }).Detailed({ 1 }).Get(),
              GetBytes(*poBlock));
    EXPECT_EQ(1U, poBlock->GetDetailedCount());
}

// ---- Names ----

TEST(Cea861Audio, Names)
{
    const char* const apszFormats[] = { "",
                                        "Linear Pulse Code Modulation (PCM)",
                                        "AC3",
                                        "Moving Picture Experts Group 1 (MPEG1)",
                                        "MP3",
                                        "Moving Picture Experts Group 2 (MPEG2)",
                                        "Advanced Audio Coding (AAC)",
                                        "DTS",
                                        "Adaptive Transform Acoustic Coding (ATRAC)",
                                        "1 bit",
                                        "Enhanced AC3",
                                        "Direct Stream Transfer HD (DTS HD)",
                                        "MLP Audio Transport (MAT)",
                                        "Direct Stream Transfer (DST)",
                                        "Windows Media Audio Professional (WMA Pro)",
                                        "MPEG4 HE AAC",
                                        "MPEG4 HE AAC V2",
                                        "MPEG4 AAC LC",
                                        "Digital Rise Audio (DRA)",
                                        "MPEG4 HE ACC Surround",
                                        "MPEG4 ACC LC Surround",
                                        "" };
    for (unsigned int i = 0; i < 22; ++i)
    {
        EXPECT_STREQ(apszFormats[i], Block::GetAudioFormatStr(static_cast<Block::EAudioFormat>(i)));
    }
    EXPECT_STREQ("", Block::GetAudioFormatStr(static_cast<Block::EAudioFormat>(0xFFFFFFFF)));

    const std::pair<unsigned int, const char*> aoRates[] = { { 1, "32" },   { 2, "44" },       { 4, "48" },
                                                             { 8, "88" },   { 16, "96" },      { 32, "176" },
                                                             { 64, "192" }, { 0, "" },         { 3, "" },
                                                             { 128, "" },   { 0x80000000, "" } };
    for (const auto& [uiRate, pszName] : aoRates)
    {
        EXPECT_STREQ(pszName, Block::GetAudioSamplingFreqStr(static_cast<Block::EAudioSamplingFreq>(uiRate))) << uiRate;
    }
}
}
