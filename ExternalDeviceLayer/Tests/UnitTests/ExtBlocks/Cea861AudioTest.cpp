// Audio and speaker blocks of a CEA-861 block: the lists, and editing them by byte images.

#include <gtest/gtest.h>

#include "Cea861TestHelp.h"
#include "EditCheck.h"

namespace
{
using Block = CEdidExtBlockCEA861;

// An audio block of this many descriptors, told apart by their last byte.
CBytes MakeAudioBlock(unsigned int uiCount)
{
    CBytes aui8Bytes = { static_cast<unsigned char>(0x20 + 3 * uiCount) };
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        Append(aui8Bytes, { 0x09, 0x07, static_cast<unsigned char>(i) });
    }
    return aui8Bytes;
}

// ---- Lists ----

struct SAudioListCase
{
    const char* m_szName;
    CBytes m_aui8Blocks;
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

// ---- Edits ----

int Add(Block& oBlock, unsigned int uiFormat, unsigned int uiChannels, unsigned int uiRates, unsigned int uiExtra)
{
    const Block::SAudioDescriptor oAudio = MakeAudio(uiFormat, uiChannels, uiRates, uiExtra);
    return oBlock.AddAudioDescriptor(&oAudio);
}

int Set(Block& oBlock, unsigned int uiIndex, unsigned int uiFormat, unsigned int uiChannels, unsigned int uiRates,
        unsigned int uiExtra)
{
    const Block::SAudioDescriptor oAudio = MakeAudio(uiFormat, uiChannels, uiRates, uiExtra);
    return oBlock.SetAudioDescriptor(uiIndex, &oAudio);
}

int Add11(Block& oBlock) { return Add(oBlock, 11, 2, 7, 0); } // as 59 07 00

// Data blocks and flags before and after; descriptors stand behind and must move with byte 2.
struct SEditCase
{
    const char* m_szName;
    int (*m_pfnEdit)(Block& oBlock);
    unsigned char m_ui8Flags;
    CBytes m_aui8Blocks;
    unsigned char m_ui8FlagsAfter;
    CBytes m_aui8After;
};

const CBytes gsc_aui8Video = { 0x42, 0x10, 0x04 };
const CBytes gsc_aui8Audio = { 0x23, 0x09, 0x07, 0x07 };
const CBytes gsc_aui8Added = { 0x23, 0x59, 0x07, 0x00 };
const CBytes gsc_aui8Speaker = { 0x83, 0x01, 0x00, 0x00 };

// clang-format off
const SEditCase gsc_aoEditCases[] = {
    { "AddMakesABlockBehindAllOthers", Add11,
      0x30, Join({ gsc_aui8Video, gsc_aui8Speaker }),
      0x70, Join({ gsc_aui8Video, gsc_aui8Speaker, gsc_aui8Added }) },
    { "AddGrowsTheFirstBlock", Add11,
      0x70, Join({ gsc_aui8Audio, gsc_aui8Speaker }),
      0x70, Join({ { 0x26, 0x09, 0x07, 0x07, 0x59, 0x07, 0x00 }, gsc_aui8Speaker }) },
    { "AddGrowsAnEmptyBlock", Add11,
      0x00, Join({ { 0x20 }, gsc_aui8Speaker }),
      0x40, Join({ gsc_aui8Added, gsc_aui8Speaker }) },
    { "AddToAFullBlockMakesANewOneAndGrowsNoLaterOne", Add11,
      0x40, Join({ MakeAudioBlock(10), MakeAudioBlock(1) }),
      0x40, Join({ MakeAudioBlock(10), MakeAudioBlock(1), gsc_aui8Added }) },
    { "AddCutsWideFields", [](Block& oBlock) { return Add(oBlock, 0xFFF1, 10, 0xFF82, 0x1234); },
      0x40, {},
      0x40, { 0x23, 0x09, 0x02, 0x34 } },
    { "SetTouchesThreeBytesOfALaterBlock", [](Block& oBlock) { return Set(oBlock, 3, 2, 2, 3, 0); },
      0x40, Join({ MakeAudioBlock(2), { 0x22, 1, 1, 0x26, 1, 1, 1, 1, 1, 1 } }),
      0x40, Join({ MakeAudioBlock(2), { 0x22, 1, 1, 0x26, 1, 1, 1, 0x11, 0x03, 0x00 } }) },
    { "SetKeepsReservedBits", [](Block& oBlock) { return Set(oBlock, 0, 15, 8, 0x7F, 0xFF); },
      0x00, { 0x23, 0x80, 0x80, 0x00 },
      0x00, { 0x23, 0xFF, 0xFF, 0xFF } },
    { "SetClearsAllButReservedBits", [](Block& oBlock) { return Set(oBlock, 0, 0, 9, 0, 0); },
      0x40, { 0x23, 0xFF, 0xFF, 0xFF },
      0x40, { 0x23, 0x80, 0x80, 0x00 } },
    { "RemoveOneOfTwo", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); },
      0x40, { 0x26, 1, 2, 3, 4, 5, 6, 0x41, 0x10 },
      0x40, { 0x23, 4, 5, 6, 0x41, 0x10 } },
    { "RemoveTheOnlyOneTakesTheBlock", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); },
      0x70, Join({ gsc_aui8Video, gsc_aui8Audio }),
      0x30, gsc_aui8Video },
    { "SpeakersKeepTheAudioFlag", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); },
      0x70, Join({ gsc_aui8Audio, gsc_aui8Speaker }),
      0x70, gsc_aui8Speaker },
    { "OtherAudioKeepsTheAudioFlagAndTheRestOfAnOddBlockGoes", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(1); },
      0x70, Join({ gsc_aui8Audio, { 0x25, 1, 2, 3, 4, 5, 0x41, 0x10 } }),
      0x70, Join({ gsc_aui8Audio, { 0x41, 0x10 } }) },
    { "SpeakerAddMakesASecondBlock", [](Block& oBlock) { return oBlock.AddSpeakerDescriptor(0x5AA); },
      0x00, Join({ gsc_aui8Speaker, gsc_aui8Video }),
      0x40, Join({ gsc_aui8Speaker, gsc_aui8Video, { 0x83, 0xAA, 0x05, 0x00 } }) },
    { "SpeakerSetZeroesTheRest", [](Block& oBlock) { return oBlock.SetSpeakerDescriptor(1, 0xFFFFFA01); },
      0x00, Join({ gsc_aui8Speaker, { 0x84, 0xFF, 0xFF, 0xFF, 0xFF } }),
      0x00, Join({ gsc_aui8Speaker, { 0x84, 0x01, 0x02, 0x00, 0xFF } }) },
    { "SpeakerRemoveTakesTheWholeBlock", [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(0); },
      0x70, Join({ { 0x85, 1, 2, 3, 4, 5 }, gsc_aui8Video }),
      0x30, gsc_aui8Video },
    { "AudioKeepsTheAudioFlag", [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(0); },
      0x40, Join({ gsc_aui8Speaker, gsc_aui8Audio }),
      0x40, gsc_aui8Audio },
    { "OtherSpeakersKeepTheAudioFlag", [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(1); },
      0x40, Join({ gsc_aui8Speaker, { 0x80 } }),
      0x40, gsc_aui8Speaker },
};
// clang-format on

TEST(Cea861Audio, EditsByByteImage)
{
    for (const SEditCase& oCase : gsc_aoEditCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CCeaBlockBuilder oBefore = CCeaBlockBuilder().Flags(oCase.m_ui8Flags).Bytes(oCase.m_aui8Blocks);
        CCeaBlockBuilder oAfter = CCeaBlockBuilder().Flags(oCase.m_ui8FlagsAfter).Bytes(oCase.m_aui8After);
        const auto poBlock = LoadBlock(oBefore.Detailed({ 1, 2 }).Get());
        EXPECT_EQ(1, oCase.m_pfnEdit(*poBlock));
        EXPECT_EQ(oAfter.Detailed({ 1, 2 }).Get(), GetBytes(*poBlock));
        ExpectListsOfBytes(*poBlock);
    }
}

struct SRefusalCase
{
    const char* m_szName;
    int (*m_pfnEdit)(Block& oBlock);
    CBytes m_aui8Blocks;
};

// clang-format off
const SRefusalCase gsc_aoRefusalCases[] = {
    { "AddNull", [](Block& oBlock) { return oBlock.AddAudioDescriptor(nullptr); }, gsc_aui8Audio },
    { "AddOneChannel", [](Block& oBlock) { return Add(oBlock, 1, 1, 7, 7); }, gsc_aui8Audio },
    { "SetNull", [](Block& oBlock) { return oBlock.SetAudioDescriptor(0, nullptr); }, gsc_aui8Audio },
    { "SetOneChannel", [](Block& oBlock) { return Set(oBlock, 0, 1, 1, 7, 7); }, gsc_aui8Audio },
    { "SetNoChannel", [](Block& oBlock) { return Set(oBlock, 0, 1, 0, 7, 7); }, gsc_aui8Audio },
    { "SetAboveTheCount", [](Block& oBlock) { return Set(oBlock, 1, 1, 2, 7, 7); }, gsc_aui8Audio },
    { "RemoveAboveTheCount", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(1); }, gsc_aui8Audio },
    { "RemoveFromAnOddBlock", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); }, { 0x24, 9, 7, 7, 7 } },
    { "SpeakerAddNothing", [](Block& oBlock) { return oBlock.AddSpeakerDescriptor(0); }, {} },
    { "SpeakerSetAboveTheCount", [](Block& oBlock) { return oBlock.SetSpeakerDescriptor(1, 1); }, gsc_aui8Speaker },
    { "SpeakerSetShortBlock", [](Block& oBlock) { return oBlock.SetSpeakerDescriptor(0, 5); }, { 0x82, 1, 0, 0x41, 0x10 } },
    { "SpeakerRemoveAboveTheCount", [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(1); }, gsc_aui8Speaker },
};
// clang-format on

TEST(Cea861Audio, RefusalsChangeNoByte)
{
    for (const SRefusalCase& oCase : gsc_aoRefusalCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes(oCase.m_aui8Blocks).Detailed({ 1 }).Get());
        const CEditCheck oCheck(*poBlock);
        EXPECT_EQ(0, oCase.m_pfnEdit(*poBlock));
        oCheck.ExpectUnchanged();
    }
}

// The room for growing a block is counted from the end of the content, wherever the block itself stands.
TEST(Cea861Audio, GrowingStopsOneByteShort)
{
    for (const unsigned int uiEnd : { 122U, 123U, 124U })
    {
        CBytes aui8Blocks = gsc_aui8Audio;
        aui8Blocks.resize(uiEnd - 4);
        EXPECT_EQ(uiEnd <= 123, Add11(*LoadBlock(CCeaBlockBuilder().Bytes(aui8Blocks).Get())) != 0) << uiEnd;
        aui8Blocks.resize(uiEnd - 4 - 18);
        const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 1 }).Get());
        EXPECT_EQ(uiEnd <= 123, Add11(*poBlock) != 0) << uiEnd << ", the last 18 bytes a descriptor";
    }
}

// A block that crosses byte 2 and ends behind the content needs room for its own bytes alone: they may reach byte 126.
TEST(Cea861Audio, ABlockBehindTheContentGrowsUpToTheChecksum)
{
    for (const unsigned int uiEnd : { 123U, 124U, 125U, 127U })
    {
        SCOPED_TRACE(uiEnd);
        CCeaBlockBuilder oBuilder;
        oBuilder.At(uiEnd - 28, 0x20 + 27).At(2, uiEnd - 24);
        const CBytes aui8Before = oBuilder.Get();
        const auto poBlock = LoadBlock(aui8Before);
        const bool bFits = uiEnd + 3 <= 127;
        EXPECT_EQ(bFits, Add(*poBlock, 1, 2, 7, 7) != 0);
        if (bFits)
        {
            oBuilder.Flags(0x40).At(uiEnd - 28, 0x20 + 30).At(2, uiEnd - 24 + 3);
            oBuilder.At(uiEnd, 0x09).At(uiEnd + 1, 7).At(uiEnd + 2, 7);
        }
        EXPECT_EQ(oBuilder.Get(), GetBytes(*poBlock));
        ExpectListsOfBytes(*poBlock);
    }
}

// Revisions below 3 have no data blocks to list, but an addition goes into the bytes.
TEST(Cea861Audio, AdditionsToOldRevisionsDoNotShow)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder(2).Detailed({ 1 }).Get());
    EXPECT_EQ(1, Add11(*poBlock));
    EXPECT_EQ(1, poBlock->AddSpeakerDescriptor(1));
    EXPECT_EQ(0U, poBlock->GetAudioDescriptorCount() + poBlock->GetSpeakerDescriptorCount());
    const CBytes aui8Added = Join({ gsc_aui8Added, gsc_aui8Speaker });
    EXPECT_EQ(CCeaBlockBuilder(2).Flags(0x40).Bytes(aui8Added).Detailed({ 1 }).Get(), GetBytes(*poBlock));
    EXPECT_EQ(1U, poBlock->GetDetailedCount());
}

// ---- Names ----

TEST(Cea861Audio, NamesStandAtTheirValues)
{
    const std::pair<unsigned int, const char*> aoFormats[] = {
        { 0, "" }, { 7, "DTS" }, { 15, "MPEG4 HE AAC" }, { 20, "MPEG4 ACC LC Surround" }, { 21, "" }, { ~0U, "" }
    };
    for (const auto& [uiFormat, pszName] : aoFormats)
    {
        EXPECT_STREQ(pszName, Block::GetAudioFormatStr(static_cast<Block::EAudioFormat>(uiFormat))) << uiFormat;
    }
    const std::pair<unsigned int, const char*> aoRates[] = { { 1, "32" },       { 2, "44" },  { 4, "48" },
                                                             { 8, "88" },       { 16, "96" }, { 32, "176" },
                                                             { 64, "192" },     { 0, "" },    { 3, "" },
                                                             { 0x80000000, "" } };
    for (const auto& [uiRate, pszName] : aoRates)
    {
        EXPECT_STREQ(pszName, Block::GetAudioSamplingFreqStr(static_cast<Block::EAudioSamplingFreq>(uiRate))) << uiRate;
    }
}
}
