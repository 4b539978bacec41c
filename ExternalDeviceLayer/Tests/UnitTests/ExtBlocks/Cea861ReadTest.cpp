// Reading a CEA-861 block: which bytes it takes, where its data blocks and descriptors lie, what its lists hold.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <tuple>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"
#include "RVidParamTiming.h"

namespace
{
using CBlock = CEdidExtBlockCEA861;

// ---- The block as a whole ----

TEST(Cea861Block, TagRevisionAndChecksumDecide)
{
    for (unsigned int i = 0; i < 256; ++i)
    {
        const CBytes aui8Block = CCeaBlockBuilder(static_cast<unsigned char>(i)).Get();
        EXPECT_EQ(i <= 3, CBlock::IsSupported(128, aui8Block.data()) != 0) << i;
        EXPECT_EQ(i <= 3 ? i : 0, LoadBlock(aui8Block)->GetRevision());
        const auto poFlagged = LoadBlock(CCeaBlockBuilder().Flags(static_cast<unsigned char>(i)).Get());
        EXPECT_EQ((i & 0x30) != 0, poFlagged->IsYuvSupported() != 0) << i;
    }
    EXPECT_EQ(0, CBlock::IsSupported(128, CCeaBlockBuilder().At(0, 0x70).Get().data()));
    CBytes aui8Longer = CCeaBlockBuilder().Get();
    aui8Longer.push_back(1);
    EXPECT_NE(0, CBlock::IsSupported(128, aui8Longer.data()));
    EXPECT_EQ(0, CBlock::IsSupported(129, aui8Longer.data())) << "the checksum runs over the offered size";
}

TEST(Cea861Block, RefusedBytesLeaveAnEmptyObjectThatRefusesEdits)
{
    const auto poBlock = LoadBlock(CCeaBlockBuilder(4).Bytes({ 0x23, 9, 7, 7, 0x41, 16 }).Detailed({ 1 }).Get(), 0x11);
    const CBlock::SAudioDescriptor oAudio = MakeAudio(1, 2, 7, 7);
    unsigned int uiBits = 1;
    unsigned char ui8Byte = 0x55;
    EXPECT_EQ(0U, poBlock->GetExtensionType() + poBlock->GetSize() + poBlock->GetEdidBuffer().GetCount());
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(1, &ui8Byte) + poBlock->GetAvailableOffset());
    EXPECT_EQ(0x55, ui8Byte);
    EXPECT_EQ(0, poBlock->IsChecksumValid() | poBlock->IsStripped() | poBlock->IsYuvSupported());
    EXPECT_EQ(CLists(), GetLists(*poBlock));
    EXPECT_EQ(0,
              poBlock->AddAudioDescriptor(&oAudio) | poBlock->AddSpeakerDescriptor(1) | poBlock->AddVendorSpecific());
    EXPECT_EQ(0, poBlock->StripDataBlocks(CBlock::eStrip_Audio | CBlock::eStrip_Speaker));
    poBlock->RemoveDataRange(0, 0);
    EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits) & poBlock->SetColorBitDepthSupport(7));
    EXPECT_EQ(0U, uiBits);
}

TEST(Cea861Block, RefusedReadsTouchNothing)
{
    const CBytes aui8Blocks = { 0x41, 0x93, 0x23, 9, 7, 7, 0x83, 1, 0, 0, 0xE2, 14, 20 };
    const auto poBlock = LoadBlock(CCeaBlockBuilder().Bytes(aui8Blocks).Detailed({ 1 }).Get());
    CRVidParamTiming oTiming;
    oTiming.SetHorizontalActive(77);
    int iNative = 5;
    CBlock::SAudioDescriptor oAudio = MakeAudio(9, 9, 9, 9);
    unsigned int uiMask = 9;
    EXPECT_EQ(0, poBlock->GetStandard(2, &oTiming, &iNative) | poBlock->GetStandard(0, nullptr, &iNative));
    EXPECT_EQ(0, poBlock->GetDetailed(1, &oTiming) | poBlock->GetDetailed(0, nullptr));
    EXPECT_EQ(0, poBlock->GetAudioDescriptor(1, &oAudio) | poBlock->GetAudioDescriptor(0, nullptr));
    EXPECT_EQ(0, poBlock->GetSpeakerDescriptor(1, &uiMask) | poBlock->GetSpeakerDescriptor(0, nullptr));
    EXPECT_EQ(0U, poBlock->GetEdidBuffer(128, nullptr));
    EXPECT_EQ(5, iNative);
    EXPECT_EQ(77U + 9 + 9, oTiming.GetHorizontalActive() + oAudio.m_uiChannels + uiMask);
    EXPECT_EQ(1, poBlock->GetAudioDescriptor(0, &oAudio) & poBlock->GetSpeakerDescriptor(0, &uiMask));

    // A timing of this class keeps its 4:2:0 flag when it is cleared.
    EXPECT_EQ(1, poBlock->GetStandard(1, &oTiming, nullptr));
    EXPECT_EQ(1, oTiming.Is420ColorSpace());
    EXPECT_EQ(1, poBlock->GetStandard(0, &oTiming, nullptr));
    EXPECT_EQ(0, oTiming.Is420ColorSpace());
}

// ---- Data blocks ----

constexpr unsigned int gsc_uiExtended = 0x100; // marks an extended tag

struct SWalkCase
{
    const char* m_pszName;
    CCeaBlockBuilder m_oBlock;
    unsigned int m_uiTag;
    unsigned int m_uiIndex;
    unsigned int m_uiOffset, m_uiLength; // expected
};

// Zeros are blocks of tag 0.
CCeaBlockBuilder Blocks(const CBytes& aui8Blocks) { return CCeaBlockBuilder().Bytes(aui8Blocks); }

const SWalkCase gsc_aoWalkCases[] = {
    { "OtherTagsArePassed", Blocks({ 0x42, 1, 2, 0xA0, 0x83, 1, 0, 0 }), 4, 0, 9, 3 },
    { "SecondOfATag", Blocks({ 0x41, 1, 0, 0x41, 2 }), 2, 1, 8, 1 },
    { "NoSuchIndex", Blocks({ 0x41, 1, 0, 0x41, 2 }), 2, 2, 0, 0 },
    { "EmptyBlockIsFound", Blocks({ 0x40, 0x20 }), 1, 0, 6, 0 },
    { "BeginsAtByte2", Blocks({ 0x41, 1, 0x41, 2 }).At(2, 6), 2, 1, 0, 0 },
    { "HeaderAloneInFrontOfByte2", Blocks({ 0x43, 1, 2, 3 }).At(2, 5), 2, 0, 5, 3 },
    { "Byte2Is4", Blocks({ 0x41, 1 }).At(2, 4), 2, 0, 0, 0 },
    { "Byte2Is0", Blocks({ 0x41, 1 }).At(2, 0), 2, 0, 0, 0 },
    { "Revision2", Blocks({ 0x41, 1 }).At(1, 2), 2, 0, 0, 0 },
    { "EndsAtByte126", Blocks(CBytes(91)).At(95, 0x5F).At(2, 127), 2, 0, 96, 31 },
    { "RunsPastByte126", Blocks(CBytes(92)).At(96, 0x5F).At(2, 127), 2, 0, 0, 0 },
    { "OverrunOfAnotherTagEndsTheWalk", Blocks(CBytes(96)).Bytes({ 0x7F, 0x41, 1 }), 2, 0, 0, 0 },
    { "EmptyBlockAtByte126", Blocks(CBytes(122)).At(126, 0x40).At(2, 255), 2, 0, 127, 0 },
    { "HeaderInThePlaceOfTheChecksum", Blocks(CBytes(122)).At(126, 0x40).At(2, 255), 5, 0, 0, 0 }, // which is 0xBC
    { "Byte2BehindTheBlock", Blocks(CBytes(116)).Bytes({ 0x42, 1, 2 }).At(2, 255), 2, 0, 121, 2 },
    { "ExtendedCountsBehindItsTag", Blocks({ 0xE4, 15, 0, 0, 0 }), gsc_uiExtended + 15, 0, 6, 3 },
    { "ExtendedWithoutMore", Blocks({ 0xE1, 15 }), gsc_uiExtended + 15, 0, 6, 0 },
    { "ExtendedSecond", Blocks({ 0xE1, 14, 0xE2, 15, 0, 0xE2, 14, 9 }), gsc_uiExtended + 14, 1, 11, 1 },
    { "ExtendedOfLength0EndsTheSearch", Blocks({ 0xE0, 0xE1, 14 }), gsc_uiExtended + 14, 0, 0, 0 },
    { "ExtendedOfLength0IsFoundByItsTag", Blocks({ 0xE0, 0xE1, 14 }), 7, 1, 6, 1 },
    { "ExtendedRunsPastByte126", Blocks(CBytes(122)).At(126, 0xE1).At(2, 127), gsc_uiExtended + 0, 0, 0, 0 },
};

unsigned int Find(const CBlock& oBlock, unsigned int uiTag, unsigned int uiIndex, unsigned int* puiLength)
{
    const auto eTag = static_cast<CBlock::ECea861_DataBlockTags>(uiTag);
    const auto eExtTag = static_cast<CBlock::ECea861_DataBlockExtTags>(uiTag - gsc_uiExtended);
    return uiTag < gsc_uiExtended ? oBlock.GetDataBlockOffset(eTag, uiIndex, puiLength)
                                  : oBlock.GetDataBlockOffset(eExtTag, uiIndex, puiLength);
}

TEST(Cea861DataBlocks, WholeOnesAreFound)
{
    for (const SWalkCase& oCase : gsc_aoWalkCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const auto poBlock = LoadBlock(oCase.m_oBlock.Get());
        unsigned int uiLength = 77;
        EXPECT_EQ(oCase.m_uiOffset, Find(*poBlock, oCase.m_uiTag, oCase.m_uiIndex, &uiLength));
        EXPECT_EQ(oCase.m_uiLength, uiLength);
    }
    const auto poBlock = LoadBlock(Blocks({ 0x60, 0x63, 1, 2, 3, 0x41, 1, 0x61, 9 }).Get());
    EXPECT_EQ(3U, poBlock->GetVendorSpecificCount()) << "of all vendors";
    CCapturedOutput oOutput;
    EXPECT_EQ(0U, Find(*poBlock, 3, 0, nullptr) + Find(*poBlock, gsc_uiExtended + 15, 0, nullptr));
    EXPECT_EQ(2U, oOutput.TakeAssertionCount());
}

// ---- Detailed timings ----

TEST(Cea861Detailed, SlotsAndSpaceByByte2)
{
    // Byte 2, number of slots, the last one, where the free bytes begin, their number.
    const std::array<unsigned int, 5> aauiCases[] = {
        { 0, 0, 0, 0, 126 },    { 1, 7, 109, 127, 0 },  { 4, 6, 94, 112, 14 },   { 19, 6, 109, 127, 0 },
        { 20, 5, 92, 110, 16 }, { 35, 5, 107, 125, 1 }, { 109, 1, 109, 127, 0 }, { 110, 0, 0, 110, 16 },
        { 127, 0, 0, 127, 0 },  { 128, 0, 0, 128, 0 },  { 255, 0, 0, 255, 0 },
    };
    for (const auto& [uiByte2, uiSlots, uiLast, uiOffset, uiSpace] : aauiCases)
    {
        SCOPED_TRACE(uiByte2);
        CBytes aui8Block(128, 1); // a pixel clock in every slot, wherever it begins
        aui8Block[0] = 2;
        aui8Block[1] = 2; // no data blocks
        aui8Block[2] = static_cast<unsigned char>(uiByte2);
        const auto poBlock = LoadBlock(FixChecksums(aui8Block));
        EXPECT_EQ(uiSlots, poBlock->GetDetailedCount());
        EXPECT_EQ(uiLast, poBlock->GetDetailedTimingsOffset(std::max(uiSlots, 1U) - 1));
        EXPECT_EQ(0U, poBlock->GetDetailedTimingsOffset(uiSlots) + poBlock->GetDetailedTimingsOffset(0xFFFFFFFF));
        EXPECT_EQ(uiOffset, poBlock->GetAvailableOffset());
        EXPECT_EQ(uiSpace, poBlock->GetAvailableSpace());
    }
}

TEST(Cea861Detailed, NoClockEndsTheListAndNoSizeClearsTheTiming)
{
    CCeaBlockBuilder oBuilder;
    oBuilder.Detailed({ 1, 2, 3 }).At(23, 0);
    EXPECT_EQ(3U, LoadBlock(oBuilder.Get())->GetDetailedCount()) << "one byte of the clock is enough";
    const CBytes aui8NoSize = CCeaBlockBuilder(oBuilder).At(24, 0).At(26, 0).Get();
    EXPECT_EQ(1U, LoadBlock(oBuilder.At(22, 0).Get())->GetDetailedCount());

    const auto poBlock = LoadBlock(aui8NoSize);
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, poBlock->GetDetailed(0, &oTiming));
    EXPECT_EQ(1921U, oTiming.GetHorizontalActive());
    EXPECT_EQ(0, poBlock->GetDetailed(1, &oTiming));
    EXPECT_EQ(0U, oTiming.GetHorizontalActive());
}

// ---- Lists ----

TEST(Cea861Svd, CodesAndTheirRowsInTheTable)
{
    // Code, whether it is valid, what it says, whether it is native.
    const std::tuple<unsigned int, int, unsigned int, int> aoCases[] = {
        { 0, 0, 0, 0 },     { 1, 1, 1, 0 },   { 127, 1, 127, 0 }, { 128, 0, 0, 0 }, { 129, 1, 1, 1 },
        { 253, 1, 125, 1 }, { 254, 0, 0, 0 }, { 255, 0, 0, 0 },   { 257, 0, 0, 0 }, { 1001, 0, 0, 0 },
    };
    for (const auto& [uiCode, iValid, uiExpectedVic, iExpectedNative] : aoCases)
    {
        unsigned int uiVic = 999;
        int iNative = 999;
        EXPECT_EQ(iValid, CBlock::ExtractSvdCodeInfo(uiCode, &uiVic, &iNative)) << uiCode;
        EXPECT_EQ(uiExpectedVic, uiVic) << uiCode;
        EXPECT_EQ(iExpectedNative, iNative) << uiCode;
    }
    EXPECT_EQ(0, CBlock::IsSupportedSvd(1001) | CBlock::IsSupportedSvd(108)) << "no codes of the table";
}

struct SListCase
{
    const char* m_pszName;
    CBytes m_aui8Blocks;
    std::vector<SStandardEntry> m_aoStandards; // key, native, 4:2:0
    std::vector<SAudioEntry> m_aoAudios;
    std::vector<unsigned int> m_auiSpeakers;
    unsigned int m_uiReports;
};

SListCase Video(const char* pszName, const CBytes& aui8Blocks, const std::vector<SStandardEntry>& aoStandards,
                unsigned int uiReports = 0)
{
    return { pszName, aui8Blocks, aoStandards, {}, {}, uiReports };
}

SListCase Sound(const char* pszName, const CBytes& aui8Blocks, const std::vector<SAudioEntry>& aoAudios,
                const std::vector<unsigned int>& auiSpeakers = {})
{
    return { pszName, aui8Blocks, {}, aoAudios, auiSpeakers, 0 };
}

const SListCase gsc_aoListCases[] = {
    Video("EachCodeIsFollowedByItsVariant", { 0x43, 0x90, 17, 1 },
          { { 16, 1, 0 }, { 1016, 1, 0 }, { 17, 0, 0 }, { 1, 0, 0 }, { 1001, 0, 0 } }),
    Video("UnusableBytesGiveNothing", { 0x48, 0, 0x80, 0xFE, 0xFF, 6, 0x87, 108, 17 }, { { 17, 0, 0 } }),
    Video("RepeatsAppearOnce", { 0x42, 17, 19, 0x42, 19, 17 }, { { 17, 0, 0 }, { 19, 0, 0 } }),
    Video("NativeAndNotAreTwo", { 0x42, 0x93, 19 }, { { 19, 1, 0 }, { 19, 0, 0 } }),
    Video("HdmiFollowsAllVideoBlocks", Join({ MakeHdmi({ 0x6C }, { 2, 3 }), { 0x41, 19 } }),
          { { 19, 0, 0 }, { 94, 0, 0 }, { 93, 0, 0 }, { 1093, 0, 0 } }),
    Video("ExtendedVendorFollowsVendor", Join({ MakeHdmi({ 0xEC, 1 }, { 2 }), MakeHdmi({ 0x6B }, { 4 }) }),
          { { 98, 0, 0 }, { 1098, 0, 0 }, { 94, 0, 0 } }),
    Video("SvdAndHdmiAreOneTiming", Join({ { 0x41, 94 }, MakeHdmi({ 0x6B }, { 2 }) }), { { 94, 0, 0 } }),
    Video("ForeignVendorGivesNothing", { 0x69, 0xD8, 0x5D, 0xC4, 0x01, 0x78, 0x80, 0x03, 0x00, 0x20 }, {}),
    Video("EachEmptyMapCopiesAll", { 0xE1, 15, 0x42, 0x91, 19, 0xE1, 15 },
          { { 17, 1, 0 }, { 19, 0, 0 }, { 17, 1, 1 }, { 19, 0, 1 }, { 17, 1, 1 }, { 19, 0, 1 } }),
    Video("MapCountsUnusableBytesAndReachesBit8", { 0x49, 0, 7, 255, 0, 0, 0, 0, 17, 19, 0xE3, 15, 0x83, 0x01 },
          { { 17, 0, 0 }, { 19, 0, 0 }, { 17, 0, 1 }, { 19, 0, 1 } }),
    Video("MapReachesHdmiCodes", Join({ { 0x41, 19, 0xE2, 15, 0x02 }, MakeHdmi({ 0x6B }, { 2 }) }),
          { { 19, 0, 0 }, { 94, 0, 0 }, { 94, 0, 1 } }),
    Video("MapBitsBehindTheCodesReportEach", { 0x41, 19, 0xE3, 15, 0x07, 0x80 }, { { 19, 0, 0 }, { 19, 0, 1 } }, 3),
    Video("MapRepeatsAppearOnce", { 0x42, 19, 19, 0xE2, 15, 0x03 }, { { 19, 0, 0 }, { 19, 0, 1 } }),
    Video("Video420FollowsTheMapsThatDoNotCountIt", { 0xE3, 14, 0x90, 19, 0x42, 20, 17, 0xE2, 15, 0x01 },
          { { 20, 0, 0 }, { 17, 0, 0 }, { 20, 0, 1 }, { 16, 1, 1 }, { 1016, 1, 1 }, { 19, 0, 1 } }),
    Sound("AllFields", { 0x23, 0xFF, 0xFF, 0xA5, 0x83, 0xFF, 0xFF, 0xFF }, { { 15, 8, 0x7F, 0xA5 } }, { 0x7FF }),
    Sound("OverBlocks", { 0x26, 0x09, 1, 1, 0x11, 2, 2, 0x83, 1, 0, 0, 0x23, 0x19, 4, 3 },
          { { 1, 2, 1, 1 }, { 2, 2, 2, 2 }, { 3, 2, 4, 3 } }, { 1 }),
    Sound("OddFirstBlockEmptiesTheList", { 0x24, 0x09, 7, 7, 0, 0x23, 0x09, 7, 7 }, {}),
    Sound("OddLaterBlockGivesWholeGroups", { 0x23, 0x09, 1, 1, 0x25, 0x11, 2, 2, 0, 0, 0x22, 0, 0, 0x23, 0x19, 4, 3 },
          { { 1, 2, 1, 1 }, { 2, 2, 2, 2 }, { 3, 2, 4, 3 } }),
    Sound("EmptyFirstBlockIsEven", { 0x20, 0x23, 0x80, 0x80, 0 }, { { 0, 1, 0, 0 } }),
    Sound("SpeakerBlocksOfAllLengths", { 0x80, 0x81, 0x0F, 0x82, 1, 2, 0x63, 1, 1, 1, 0x84, 1, 0xF9, 1, 1 }, {},
          { 0, 0x0F, 0x201, 0x101 }),
};

TEST(Cea861Lists, HoldWhatTheDataBlocksSay)
{
    for (const SListCase& oCase : gsc_aoListCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CCapturedOutput oOutput;
        const auto poBlock = LoadBlock(Blocks(oCase.m_aui8Blocks).Get());
        EXPECT_EQ(oCase.m_uiReports, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_aoStandards, GetStandards(*poBlock));
        EXPECT_EQ(oCase.m_aoAudios, GetAudios(*poBlock));
        EXPECT_EQ(oCase.m_auiSpeakers, GetSpeakers(*poBlock));
    }
}

TEST(Cea861Audio, NamesStandAtTheirValues)
{
    std::string sFormats;
    for (const CBlock::EAudioFormat eFormat :
         { CBlock::eAudioFormat_None, CBlock::eAudioFormat_Pcm, CBlock::eAudioFormat_Dts,
           CBlock::eAudioFormat_Mpeg4HeAac, CBlock::eAudioFormat_Mpeg4AacLcSurround,
           static_cast<CBlock::EAudioFormat>(21), static_cast<CBlock::EAudioFormat>(0xFFFFFFFF) })
    {
        sFormats += std::string(CBlock::GetAudioFormatStr(eFormat)) + "|";
    }
    EXPECT_EQ("|Linear Pulse Code Modulation (PCM)|DTS|MPEG4 HE AAC|MPEG4 ACC LC Surround|||", sFormats);
    std::string sRates;
    for (const unsigned int uiRate : { 1U, 2U, 4U, 8U, 16U, 32U, 64U, 0U, 3U, 128U, 0x80000000U })
    {
        sRates += std::string(CBlock::GetAudioSamplingFreqStr(static_cast<CBlock::EAudioSamplingFreq>(uiRate))) + "|";
    }
    EXPECT_EQ("32|44|48|88|96|176|192|||||", sRates);
}
}
