// Editing a CEA-861 block, by byte images of the whole block before and behind the edit.

#include <gtest/gtest.h>

#include <functional>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"

namespace
{
using CBlock = CEdidExtBlockCEA861;
using CEdit = std::function<int(CBlock&)>;

CEdit AddAudio(unsigned int uiFormat, unsigned int uiChannels, unsigned int uiRates, unsigned int uiExtra)
{
    const CBlock::SAudioDescriptor oAudio = MakeAudio(uiFormat, uiChannels, uiRates, uiExtra);
    return [=](CBlock& oBlock) { return oBlock.AddAudioDescriptor(&oAudio); };
}

CEdit SetAudio(unsigned int uiIndex, unsigned int uiFormat, unsigned int uiChannels, unsigned int uiRates,
               unsigned int uiExtra)
{
    const CBlock::SAudioDescriptor oAudio = MakeAudio(uiFormat, uiChannels, uiRates, uiExtra);
    return [=](CBlock& oBlock) { return oBlock.SetAudioDescriptor(uiIndex, &oAudio); };
}

CEdit RemoveAudio(unsigned int uiIndex)
{
    return [=](CBlock& oBlock) { return oBlock.RemoveAudioDescriptor(uiIndex); };
}

CEdit AddSpeaker(unsigned int uiMask)
{
    return [=](CBlock& oBlock) { return oBlock.AddSpeakerDescriptor(uiMask); };
}

CEdit SetSpeaker(unsigned int uiIndex, unsigned int uiMask)
{
    return [=](CBlock& oBlock) { return oBlock.SetSpeakerDescriptor(uiIndex, uiMask); };
}

CEdit RemoveSpeaker(unsigned int uiIndex)
{
    return [=](CBlock& oBlock) { return oBlock.RemoveSpeakerDescriptor(uiIndex); };
}

CEdit RemoveDetailed(unsigned int uiIndex)
{
    return [=](CBlock& oBlock) { return oBlock.RemoveDetailed(uiIndex); };
}

int AddVendor(CBlock& oBlock) { return oBlock.AddVendorSpecific(); }

struct SEditCase
{
    const char* m_pszName;
    CEdit m_fnEdit;
    CBytes m_aui8Before;
    CBytes m_aui8After;      // the same bytes: a refusal
    bool m_bAllLists = true; // of the new bytes; else the table timings alone
};

// Flags and data blocks, with two descriptors behind that must move with byte 2.
CBytes Make(unsigned char ui8Flags, const CBytes& aui8Blocks)
{
    return CCeaBlockBuilder().Flags(ui8Flags).Bytes(aui8Blocks).Detailed({ 1, 2 }).Get();
}

SEditCase Edited(const char* pszName, const CEdit& fnEdit, unsigned char ui8Flags, const CBytes& aui8Blocks,
                 unsigned char ui8FlagsAfter, const CBytes& aui8After)
{
    return { pszName, fnEdit, Make(ui8Flags, aui8Blocks), Make(ui8FlagsAfter, aui8After) };
}

SEditCase Refused(const char* pszName, const CEdit& fnEdit, const CBytes& aui8Blocks)
{
    return { pszName, fnEdit, Make(0, aui8Blocks), Make(0, aui8Blocks) };
}

// The removal of a table timing moves the bytes behind down and leaves byte 2 and the other lists.
SEditCase Removed(const char* pszName, const CBytes& aui8Blocks, unsigned int uiIndex, const CBytes& aui8After)
{
    const CBytes aui8Before = Make(0, aui8Blocks);
    return { pszName, [=](CBlock& oBlock) { return oBlock.RemoveStandard(uiIndex); }, aui8Before,
             CCeaBlockBuilder().Bytes(aui8After).Detailed({ 1, 2 }).At(2, aui8Before[2]).Get(), false };
}

// Without data blocks, and byte 2 as given.
SEditCase RefusedAtByte2(const char* pszName, const CEdit& fnEdit, unsigned int uiByte2)
{
    const CBytes aui8Block = CCeaBlockBuilder().Flags(0x70).Detailed({ 1, 2 }).At(2, uiByte2).Get();
    return { pszName, fnEdit, aui8Block, aui8Block };
}

// An audio block that crosses byte 2 and ends behind the content, 27 bytes of 0.
CCeaBlockBuilder BlockBehindTheContent(unsigned int uiHeader)
{
    return CCeaBlockBuilder().At(uiHeader, 0x20 + 27).At(2, uiHeader + 4);
}

const CBytes gsc_aui8Tail = CCeaBlockBuilder().Bytes({ 0x41, 1 }).Detailed({ 1 }).At(119, 0xAA).Get();
const CBytes gsc_aui8TenAudios = Join({ { 0x20 + 30 }, CBytes(30, 0x09) });

const SEditCase gsc_aoEditCases[] = {
    Edited("AddAudioMakesABlockBehindAllOthers", AddAudio(11, 2, 7, 0), 0x30, { 0x42, 0x10, 4, 0x83, 1, 0, 0 }, 0x70,
           { 0x42, 0x10, 4, 0x83, 1, 0, 0, 0x23, 0x59, 7, 0 }),
    Edited("AddAudioGrowsTheFirstBlock", AddAudio(11, 2, 7, 0), 0, { 0x23, 9, 7, 7, 0x23, 9, 7, 7 }, 0x40,
           { 0x26, 9, 7, 7, 0x59, 7, 0, 0x23, 9, 7, 7 }),
    Edited("AddAudioToAFullBlockGrowsNoLaterOne", AddAudio(11, 2, 7, 0), 0, Join({ gsc_aui8TenAudios, { 0x20 } }), 0x40,
           Join({ gsc_aui8TenAudios, { 0x20, 0x23, 0x59, 7, 0 } })),
    Edited("AddAudioCutsWideFields", AddAudio(0xFFF1, 10, 0xFF82, 0x1234), 0, {}, 0x40, { 0x23, 0x09, 0x02, 0x34 }),
    Edited("SetAudioInALaterBlock", SetAudio(2, 2, 2, 3, 0), 0, { 0x23, 1, 1, 1, 0x22, 1, 1, 0x26, 1, 1, 1, 1, 1, 1 },
           0, { 0x23, 1, 1, 1, 0x22, 1, 1, 0x26, 1, 1, 1, 0x11, 3, 0 }),
    Edited("SetAudioKeepsReservedBits", SetAudio(0, 15, 8, 0x7F, 0xFF), 0, { 0x23, 0x80, 0x80, 0 }, 0,
           { 0x23, 0xFF, 0xFF, 0xFF }),
    Edited("SetAudioClearsAllOtherBits", SetAudio(0, 0, 9, 0, 0), 0, { 0x23, 0xFF, 0xFF, 0xFF }, 0,
           { 0x23, 0x80, 0x80, 0 }),
    Edited("RemoveOneAudioOfTwo", RemoveAudio(0), 0x40, { 0x26, 1, 2, 3, 4, 5, 6, 0x41, 16 }, 0x40,
           { 0x23, 4, 5, 6, 0x41, 16 }),
    Edited("RemoveTheOnlyAudio", RemoveAudio(0), 0x70, { 0x42, 0x10, 4, 0x23, 9, 7, 7 }, 0x30, { 0x42, 0x10, 4 }),
    Edited("SpeakersKeepTheAudioFlag", RemoveAudio(0), 0x70, { 0x23, 9, 7, 7, 0x83, 1, 0, 0 }, 0x70, { 0x83, 1, 0, 0 }),
    Edited("RestOfAnOddBlockGoesAndAudioKeepsTheFlag", RemoveAudio(1), 0x70,
           { 0x23, 9, 7, 7, 0x25, 1, 2, 3, 4, 5, 0x41, 16 }, 0x70, { 0x23, 9, 7, 7, 0x41, 16 }),
    Edited("AddSpeakerMakesASecondBlock", AddSpeaker(0x5AA), 0, { 0x83, 1, 0, 0, 0x41, 16 }, 0x40,
           { 0x83, 1, 0, 0, 0x41, 16, 0x83, 0xAA, 5, 0 }),
    Edited("SetSpeakerZeroesTheRest", SetSpeaker(1, 0xFFFFFA01), 0, { 0x80, 0x84, 0xFF, 0xFF, 0xFF, 0xFF }, 0,
           { 0x80, 0x84, 1, 2, 0, 0xFF }),
    Edited("RemoveSpeakerTakesTheWholeBlock", RemoveSpeaker(0), 0x70, { 0x85, 1, 2, 3, 4, 5, 0x41, 16 }, 0x30,
           { 0x41, 16 }),
    Edited("AudioKeepsTheAudioFlag", RemoveSpeaker(0), 0x40, { 0x83, 1, 0, 0, 0x23, 9, 7, 7 }, 0x40, { 0x23, 9, 7, 7 }),
    Edited("OtherSpeakersKeepTheAudioFlag", RemoveSpeaker(1), 0x40, { 0x83, 1, 0, 0, 0x80 }, 0x40, { 0x83, 1, 0, 0 }),
    Refused("AddNoAudio", [](CBlock& oBlock) { return oBlock.AddAudioDescriptor(nullptr); }, {}),
    Refused("SetNoAudio", [](CBlock& oBlock) { return oBlock.SetAudioDescriptor(0, nullptr); }, { 0x23, 9, 7, 7 }),
    Refused("AddOneChannel", AddAudio(1, 1, 7, 7), {}),
    Refused("SetOneChannel", SetAudio(0, 1, 1, 7, 7), { 0x23, 9, 7, 7 }),
    Refused("SetAudioBehindTheList", SetAudio(1, 1, 2, 7, 7), { 0x23, 9, 7, 7 }),
    Refused("RemoveFromAnOddFirstBlock", RemoveAudio(0), { 0x24, 9, 7, 7, 7 }),
    Refused("AddNoSpeaker", AddSpeaker(0), {}),
    Refused("SetSpeakerOfAShortBlock", SetSpeaker(0, 5), { 0x82, 1, 0, 0x41, 0x10 }),
    // With byte 2 at 1 to 3 the first "descriptor" lies over revision, byte 2 and flags, and so would a new data block.
    RefusedAtByte2("DescriptorOverTheHeader", RemoveDetailed(0), 3),
    RefusedAtByte2("AudioOverTheHeader", AddAudio(1, 2, 7, 7), 3),
    RefusedAtByte2("SpeakerOverTheHeader", AddSpeaker(1), 3),
    RefusedAtByte2("VendorOverTheHeader", AddVendor, 3),
    RefusedAtByte2("AudioWithoutDescriptors", AddAudio(1, 2, 7, 7), 0),
    // Bytes behind the content move too, up to the last one in front of the checksum.
    { "VendorMovesTheTail", AddVendor, gsc_aui8Tail,
      CCeaBlockBuilder().Bytes({ 0x41, 1, 0x66, 3, 12, 0, 1, 0, 0 }).Detailed({ 1 }).At(126, 0xAA).Get() },
    { "AudioMovesTheTail", AddAudio(1, 2, 7, 7), gsc_aui8Tail,
      CCeaBlockBuilder().Flags(0x40).Bytes({ 0x41, 1, 0x23, 9, 7, 7 }).Detailed({ 1 }).At(123, 0xAA).Get() },
    // A block behind the content needs room for its own bytes alone, which may reach byte 126.
    { "AudioUpToTheChecksum", AddAudio(1, 2, 7, 7), BlockBehindTheContent(96).Get(),
      BlockBehindTheContent(96).Flags(0x40).At(2, 103).At(96, 0x3E).At(124, 9).At(125, 7).At(126, 7).Get() },
    { "AudioOverTheChecksum", AddAudio(1, 2, 7, 7), BlockBehindTheContent(97).Get(), BlockBehindTheContent(97).Get() },
    // There are no data blocks to list below revision 3, but an addition goes into the bytes.
    { "AudioOfRevision2", AddAudio(11, 2, 7, 0), CCeaBlockBuilder(2).Detailed({ 1 }).Get(),
      CCeaBlockBuilder(2).Flags(0x40).Bytes({ 0x23, 0x59, 7, 0 }).Detailed({ 1 }).Get() },
    // A table timing: every occurrence of its code, whether the code or its variant is named.
    Removed("LastOneTakesTheHeader", { 0x41, 1, 0x23, 9, 7, 7 }, 1, { 0x23, 9, 7, 7 }),
    Removed("NativeAndNotInOneBlock", { 0x45, 0x10, 4, 0x90, 1, 0x10 }, 4, { 0x42, 4, 1 }),
    Removed("InTwoBlocks", { 0x42, 0x10, 4, 0x23, 9, 7, 7, 0x43, 1, 5, 0x10 }, 0,
            { 0x41, 4, 0x23, 9, 7, 7, 0x42, 1, 5 }),
    Removed("TwoBlocksEmptyAheadOfAnother", { 0x41, 0x10, 0x83, 1, 0, 0, 0x42, 0x10, 0x10, 0x43, 0x10, 1, 0x10 }, 0,
            { 0x83, 1, 0, 0, 0x41, 1 }),
    Removed("AllBlocksEmpty", { 0x41, 0x10, 0x42, 0x90, 0x10 }, 3, {}),
    Removed("BlockWithoutItStandsBetween", { 0x41, 0x10, 0x41, 4, 0x42, 1, 0x10 }, 0, { 0x41, 4, 0x41, 1 }),
    Removed("EmptyBlockIsCountedAndStays", { 0x40, 0x41, 0x10, 0x42, 0x10, 1 }, 0, { 0x40, 0x41, 1 }),
    Removed("UnusableBytesKeepTheirPlace", { 0x44, 0, 0xFE, 0x10, 4 }, 0, { 0x43, 0, 0xFE, 4 }),
    Removed("HdmiTwiceInOneBlock", MakeHdmi({ 0x6D }, { 3, 1, 3 }), 1, Join({ MakeHdmiAfter({ 0x6D }, { 1 }), { 0 } })),
    Removed("SvdAndHdmi", Join({ { 0x42, 0xDD, 1 }, MakeHdmi({ 0x6C }, { 3, 1 }) }), 4,
            Join({ { 0x41, 1 }, MakeHdmiAfter({ 0x6C }, { 1 }) })),
    Removed("SvdBlockEmptiesAheadOfHdmi",
            Join({ { 0x41, 0x5D }, { 0x63, 1, 2, 3 }, MakeHdmi({ 0x6B }, { 3 }), { 0x41, 0x5D } }), 0,
            Join({ { 0x63, 1, 2, 3 }, MakeHdmiAfter({ 0x6B }, {}) })),
    Removed("HdmiInVendorAndExtendedBlock",
            Join({ MakeHdmi({ 0xED, 1 }, { 4, 3 }), { 0xE1, 5 }, MakeHdmi({ 0x6B }, { 4 }) }), 0,
            Join({ MakeHdmiAfter({ 0xED, 1 }, { 3 }), { 0xE1, 5 }, MakeHdmiAfter({ 0x6B }, {}) })),
    Removed("BlocksFor420Stay", { 0x42, 16, 4, 0xE2, 15, 3, 0xE2, 14, 16 }, 4, { 0x41, 4, 0xE2, 15, 3, 0xE2, 14, 16 }),
    Refused("TimingOf420BlocksAlone", [](CBlock& oBlock) { return oBlock.RemoveStandard(2); },
            { 0x41, 4, 0xE2, 14, 16 }),
};

TEST(Cea861Edit, ByByteImage)
{
    for (const SEditCase& oCase : gsc_aoEditCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const auto poBlock = LoadBlock(oCase.m_aui8Before);
        EXPECT_EQ(oCase.m_aui8After != oCase.m_aui8Before ? 1 : 0, oCase.m_fnEdit(*poBlock));
        EXPECT_EQ(oCase.m_aui8After, GetBytes(*poBlock));
        EXPECT_EQ(GetStandards(*LoadBlock(oCase.m_aui8After)), GetStandards(*poBlock));
        if (oCase.m_bAllLists)
        {
            ExpectListsOfBytes(*poBlock);
        }
    }
}

// Each addition goes up to byte 125 and no further, whether the last bytes are data blocks or a descriptor.
TEST(Cea861Edit, AdditionsStopOneByteShort)
{
    const struct
    {
        CEdit m_fnAdd;
        CBytes m_aui8First, m_aui8FirstAfter,
            m_aui8Last; // data blocks ahead of the room before and after, and behind it
    } aoCases[] = {
        { AddVendor, {}, {}, { 0x66, 3, 0x0C, 0, 1, 0, 0 } },
        { AddSpeaker(0xFFFFFFFF), {}, {}, { 0x83, 0xFF, 7, 0 } },
        { AddAudio(1, 2, 7, 7), {}, {}, { 0x23, 9, 7, 7 } },
        { AddAudio(1, 2, 7, 7), { 0x20 }, { 0x23, 9, 7, 7 }, {} },
    };
    for (const auto& oCase : aoCases)
    {
        for (unsigned int i = 0; i < 2 * 120; ++i)
        {
            const bool bDetailed = i % 2 != 0;
            const CBytes aui8Room(i / 2);
            const size_t uiEnd = 4 + oCase.m_aui8First.size() + aui8Room.size() + (bDetailed ? 18 : 0);
            const CBytes aui8After = Join({ oCase.m_aui8FirstAfter, aui8Room, oCase.m_aui8Last });
            const size_t uiMore = aui8After.size() - oCase.m_aui8First.size() - aui8Room.size();
            if (uiEnd > 127)
            {
                continue;
            }
            SCOPED_TRACE(testing::Message() << uiMore << " bytes at " << uiEnd);
            CCeaBlockBuilder oBefore = CCeaBlockBuilder().Flags(0x40).Bytes(Join({ oCase.m_aui8First, aui8Room }));
            CCeaBlockBuilder oAfter = oBefore;
            if (uiEnd + uiMore <= 126)
            {
                oAfter = CCeaBlockBuilder().Flags(0x40).Bytes(aui8After);
            }
            if (bDetailed)
            {
                oBefore.Detailed({ 1 });
                oAfter.Detailed({ 1 });
            }
            const auto poBlock = LoadBlock(oBefore.Get());
            EXPECT_EQ(uiEnd + uiMore <= 126 ? 1 : 0, oCase.m_fnAdd(*poBlock));
            EXPECT_EQ(oAfter.Get(), GetBytes(*poBlock));
            ExpectListsOfBytes(*poBlock);
        }
    }
}

// ---- A removal of a table timing and what is out of step with it ----

// A raw step takes bytes out that the list still names. The removal takes out occurrences in the order of the list, video
// blocks ahead of HDMI ones, ends at the first whose place is gone, and keeps what it has done.
TEST(Cea861RemoveStandard, EndsAtTheFirstCodeWhoseBlockIsGone)
{
    const CBytes aui8Hdmi = MakeHdmi({ 0x6B }, { 3 });
    const CBytes aui8Extended = MakeHdmi({ 0xEC, 1 }, { 3 });
    const struct
    {
        const char* m_pszName;
        CBytes m_aui8Blocks;
        unsigned int m_uiStart, m_uiLength; // taken out
        int m_iResult;
        CBytes m_aui8After;
    } aoCases[] = {
        { "FirstOfTwo", Join({ { 0x41, 0x5D }, aui8Hdmi }), 4, 2, 0, aui8Hdmi },
        { "SecondOfThree", Join({ { 0x41, 0x5D, 0x41, 0x5D }, aui8Hdmi }), 4, 2, 1, aui8Hdmi },
        { "VendorBlock", Join({ { 0x42, 0x5D, 1 }, aui8Hdmi, aui8Extended }), 7, 12, 1,
          Join({ { 0x41, 1 }, aui8Extended }) },
        { "PlaceInTheBlock", Join({ { 0x42, 0x41, 0x5D }, aui8Hdmi }), 4, 1, 0, Join({ { 0x41, 0x5D }, aui8Hdmi }) },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CBytes aui8Block = CCeaBlockBuilder().Bytes(oCase.m_aui8Blocks).Get();
        const auto poBlock = LoadBlock(aui8Block);
        const std::vector<SStandardEntry> aoEntries = GetStandards(*poBlock);
        unsigned int uiIndex = 0;
        while (aoEntries[uiIndex].m_uiVic != 93)
        {
            ++uiIndex;
        }
        poBlock->RemoveDataRange(oCase.m_uiStart, oCase.m_uiLength);
        poBlock->UpdateChecksum();
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_iResult, poBlock->RemoveStandard(uiIndex));
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
        EXPECT_EQ(CCeaBlockBuilder().Bytes(oCase.m_aui8After).At(2, aui8Block[2]).Get(), GetBytes(*poBlock));
    }
}

// The removal uncovers an empty speaker block that ends where the descriptors begin, and a second descriptor.
TEST(Cea861RemoveStandard, LeavesTheOtherListsToTheNextEdit)
{
    CCeaBlockBuilder oBuilder;
    oBuilder.Bytes({ 0x41, 0x04, 0x23, 9, 7, 7 }).At(10, 0x80).At(11, 0x80).At(12, 1).At(30, 1);
    const auto poBlock = LoadBlock(oBuilder.Get());
    CLists oLists = GetLists(*poBlock);
    EXPECT_EQ(1, poBlock->RemoveStandard(0));
    EXPECT_EQ(CCeaBlockBuilder().Bytes({ 0x23, 9, 7, 7, 0x80, 0x80 }).At(10, 1).At(28, 1).Get(), GetBytes(*poBlock));
    EXPECT_EQ(std::get<gsc_uiAudios>(oLists), GetAudios(*poBlock));
    EXPECT_EQ(0U, poBlock->GetSpeakerDescriptorCount());
    EXPECT_EQ(1U, poBlock->GetDetailedCount());
    EXPECT_EQ(10U + 2 * 18, poBlock->GetAvailableOffset()) << "counted in the bytes";
    EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(0));
    EXPECT_EQ(2U, poBlock->GetSpeakerDescriptorCount());
    ExpectListsOfBytes(*poBlock);
}

// ---- Raw steps ----

TEST(Cea861RawSteps, RangesBeyondTheBlockReportAndChangeNothing)
{
    const CBytes aui8Block = CCeaBlockBuilder().Detailed({ 1, 2, 3, 4, 5, 6 }).Get();
    const auto poBlock = LoadBlock(aui8Block);
    for (const auto& [uiStart, uiLength] : std::initializer_list<std::pair<unsigned int, unsigned int>>{
             { 0, 129 }, { 128, 1 }, { 129, 0 }, { 4, ~0U }, { ~0U, 1 }, { 0x80000000, 0x80000004 } })
    {
        CCapturedOutput oOutput;
        poBlock->RemoveDataRange(uiStart, uiLength);
        poBlock->PadDataRange(uiStart, uiLength);
        EXPECT_EQ(2U, oOutput.TakeAssertionCount()) << uiStart << ", " << uiLength;
        EXPECT_EQ(aui8Block, GetBytes(*poBlock)) << uiStart << ", " << uiLength;
    }
}

TEST(Cea861RawSteps, EveryRangeInsideStaysInside)
{
    CBytes aui8Block = { 2, 1 };
    while (aui8Block.size() < 128)
    {
        aui8Block.push_back(static_cast<unsigned char>(aui8Block.size() + 1));
    }
    aui8Block = FixChecksums(aui8Block);
    for (unsigned int uiStart = 0; uiStart <= 127; ++uiStart)
    {
        for (unsigned int uiLength = 0; uiStart + uiLength <= 127; ++uiLength)
        {
            CBytes aui8Expected = aui8Block;
            aui8Expected.erase(aui8Expected.begin() + uiStart, aui8Expected.begin() + uiStart + uiLength);
            aui8Expected.insert(aui8Expected.end() - 1, uiLength, 0);
            const auto poBlock = LoadBlock(aui8Block);
            poBlock->RemoveDataRange(uiStart, uiLength);
            ASSERT_EQ(aui8Expected, GetBytes(*poBlock)) << uiStart << ", " << uiLength;
        }
    }
}

// ---- Stripping ----

struct SStripCase
{
    const char* m_pszName;
    unsigned int m_uiFlags;
    CBytes m_aui8Before;
    CBytes m_aui8After;
    unsigned int m_uiReports = 0;
};

const CBytes gsc_aui8Sound = Make(0xF4, { 0x23, 9, 7, 7, 0x41, 16, 0x20, 0x21, 5, 0x83, 1, 0, 0, 0x83, 3, 0, 0 });

const SStripCase gsc_aoStripCases[] = {
    { "Nothing", 0, gsc_aui8Sound, gsc_aui8Sound },
    { "Audio", 0x01, gsc_aui8Sound, Make(0xB4, { 0x41, 16, 0x83, 1, 0, 0, 0x83, 3, 0, 0 }) },
    { "SpeakerLeavesTheFlag", 0x10, gsc_aui8Sound, Make(0xF4, { 0x23, 9, 7, 7, 0x41, 16, 0x20, 0x21, 5 }) },
    { "Both", 0x11, gsc_aui8Sound, Make(0xB4, { 0x41, 16 }) },
    { "FlagAloneCounts", 0x01, Make(0xF4, { 0x41, 16 }), Make(0xB4, { 0x41, 16 }) },
    { "NothingFound", 0x11, Make(0xB4, { 0x41, 16 }), Make(0xB4, { 0x41, 16 }) },
    { "ReservedReportsEach", 0x26, gsc_aui8Sound, gsc_aui8Sound, 3 },
    { "UnknownBitsAreIgnored", 0xFFFFFFC8, gsc_aui8Sound, gsc_aui8Sound },
};

TEST(Cea861Strip, TakesOutWhatIsAskedForAtLoad)
{
    for (const SStripCase& oCase : gsc_aoStripCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CCapturedOutput oOutput;
        const auto poBlock = LoadBlock(oCase.m_aui8Before, oCase.m_uiFlags);
        EXPECT_EQ(oCase.m_uiReports, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_aui8After != oCase.m_aui8Before ? 1 : 0, poBlock->IsStripped());
        EXPECT_EQ(oCase.m_aui8After, GetBytes(*poBlock));
        ExpectListsOfBytes(*poBlock);
    }
}
}
