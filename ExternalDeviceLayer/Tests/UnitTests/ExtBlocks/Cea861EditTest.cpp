// Editing a CEA-861 block, by the bytes of the whole block before and behind the edit.

#include <gtest/gtest.h>

#include <functional>
#include <type_traits>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"

namespace
{
using CBlock = CEdidExtBlockCEA861;
using CEdit = std::function<int(CBlock&)>;

template <class... ARGS>
CEdit Call(int (CBlock::*pfnEdit)(ARGS...), std::type_identity_t<ARGS>... args)
{
    return [=](CBlock& oBlock) { return (oBlock.*pfnEdit)(args...); };
}

CEdit AddAudio(const CBlock::SAudioDescriptor& oAudio)
{
    return [=](CBlock& oBlock) { return oBlock.AddAudioDescriptor(&oAudio); };
}

CEdit SetAudio(unsigned int uiIndex, const CBlock::SAudioDescriptor& oAudio)
{
    return [=](CBlock& oBlock) { return oBlock.SetAudioDescriptor(uiIndex, &oAudio); };
}

struct SEditCase
{
    const char* m_pszName;
    CEdit m_fnEdit;
    int m_iResult;
    CBytes m_aui8Before;
    CBytes m_aui8After;
    unsigned int m_uiReports = 0;
    unsigned int m_uiStripFlags = 0; // for the load of the bytes before
    bool m_bTableTimings = false;    // of all lists, that of the table timings alone is brought up to date
};

// Flags and data blocks, with two descriptors behind that must move with byte 2.
CBytes Make(unsigned char ui8Flags, const CBytes& aui8Blocks)
{
    return CCeaBlockBuilder().Flags(ui8Flags).Bytes(aui8Blocks).Detailed({ 1, 2 }).Get();
}

SEditCase Edited(const char* pszName, const CEdit& fnEdit, unsigned char ui8Flags, const CBytes& aui8Blocks,
                 unsigned char ui8FlagsAfter, const CBytes& aui8After)
{
    return { pszName, fnEdit, 1, Make(ui8Flags, aui8Blocks), Make(ui8FlagsAfter, aui8After) };
}

SEditCase RefusedIn(const char* pszName, const CEdit& fnEdit, const CBytes& aui8Block)
{
    return { pszName, fnEdit, 0, aui8Block, aui8Block };
}

SEditCase Refused(const char* pszName, const CEdit& fnEdit, const CBytes& aui8Blocks)
{
    return RefusedIn(pszName, fnEdit, Make(0, aui8Blocks));
}

SEditCase Stripped(const char* pszName, unsigned int uiFlags, const CBytes& aui8Before, const CBytes& aui8After,
                   unsigned int uiReports = 0)
{
    const auto IsStripped = [](CBlock& oBlock) { return oBlock.IsStripped(); };
    return { pszName, IsStripped, aui8After != aui8Before ? 1 : 0, aui8Before, aui8After, uiReports, uiFlags };
}

// The raw steps report a range that ends beyond the block.
SEditCase OutOfRange(const char* pszName, unsigned int uiStart, unsigned int uiLength)
{
    const auto Edit = [=](CBlock& oBlock) {
        oBlock.RemoveDataRange(uiStart, uiLength);
        oBlock.PadDataRange(uiStart, uiLength);
        return 0;
    };
    const CBytes aui8Block = Make(0, CBytes(82, 9));
    return { pszName, Edit, 0, aui8Block, aui8Block, 2 };
}

// The removal of a table timing moves the bytes behind down and leaves byte 2.
SEditCase Removed(const char* pszName, const CBytes& aui8Blocks, unsigned int uiIndex, const CBytes& aui8After)
{
    const CBytes aui8Before = Make(0, aui8Blocks);
    const CBytes aui8Now = CCeaBlockBuilder().Bytes(aui8After).Detailed({ 1, 2 }).At(2, aui8Before[2]).Get();
    return { pszName, Call(&CBlock::RemoveStandard, uiIndex), 1, aui8Before, aui8Now, 0, 0, true };
}

// The same, but a raw step has taken bytes out that the list still names.
SEditCase Gone(const char* pszName, const CBytes& aui8Blocks, unsigned int uiStart, unsigned int uiLength,
               unsigned int uiIndex, int iResult, const CBytes& aui8After)
{
    SEditCase oCase = Removed(pszName, aui8Blocks, uiIndex, aui8After);
    oCase.m_fnEdit = [=](CBlock& oBlock) {
        oBlock.RemoveDataRange(uiStart, uiLength);
        oBlock.UpdateChecksum();
        return oBlock.RemoveStandard(uiIndex);
    };
    oCase.m_iResult = iResult;
    oCase.m_uiReports = 1;
    return oCase;
}

const CBlock::SAudioDescriptor gsc_oPcm = MakeAudio(1, 2, 7, 7);    // 09 07 07
const CBlock::SAudioDescriptor gsc_oDtsHd = MakeAudio(11, 2, 7, 0); // 59 07 00
const CBytes gsc_aui8TenAudios = Join({ { 0x20 + 30 }, CBytes(30, 9) });

// An audio block that crosses byte 2 and ends behind the content, 27 bytes of 0.
CCeaBlockBuilder BehindTheContent(unsigned int uiHeader)
{
    return CCeaBlockBuilder().At(uiHeader, 0x20 + 27).At(2, uiHeader + 4);
}

const CBytes gsc_aui8Sound = Make(0xF4, { 0x23, 9, 7, 7, 0x41, 16, 0x20, 0x21, 5, 0x83, 1, 0, 0, 0x83, 3, 0, 0 });
const CBytes gsc_aui8Hdmi93 = MakeHdmi({ 0x6B }, { 3 });
const CBytes gsc_aui8Extended93 = MakeHdmi({ 0xEC, 1 }, { 3 });

const SEditCase gsc_aoEditCases[] = {
    Edited("AddAudioOpensABlockBehindAllOthers", AddAudio(gsc_oDtsHd), 0x30, { 0x42, 16, 4, 0x83, 1, 0, 0 }, 0x70,
           { 0x42, 16, 4, 0x83, 1, 0, 0, 0x23, 0x59, 7, 0 }),
    Edited("AddAudioGrowsTheFirstBlock", AddAudio(gsc_oDtsHd), 0, { 0x23, 9, 7, 7, 0x23, 9, 7, 7 }, 0x40,
           { 0x26, 9, 7, 7, 0x59, 7, 0, 0x23, 9, 7, 7 }),
    Edited("AddAudioGrowsNoLaterBlock", AddAudio(gsc_oDtsHd), 0, Join({ gsc_aui8TenAudios, { 0x20 } }), 0x40,
           Join({ gsc_aui8TenAudios, { 0x20, 0x23, 0x59, 7, 0 } })),
    Edited("AddAudioCutsWideFields", AddAudio(MakeAudio(0xFFF1, 10, 0xFF82, 0x1234)), 0, {}, 0x40,
           { 0x23, 9, 2, 0x34 }),
    Edited("SetAudioInALaterBlock", SetAudio(2, gsc_oDtsHd), 0, { 0x23, 1, 1, 1, 0x22, 1, 1, 0x26, 1, 1, 1, 1, 1, 1 },
           0, { 0x23, 1, 1, 1, 0x22, 1, 1, 0x26, 1, 1, 1, 0x59, 7, 0 }),
    Edited("SetAudioKeepsTheReservedBitOfTheFirstByte", SetAudio(0, MakeAudio(15, 8, 0x7F, 0xFF)), 0,
           { 0x23, 0x80, 0, 0 }, 0, { 0x23, 0xFF, 0x7F, 0xFF }),
    Edited("SetAudioKeepsTheReservedBitOfTheSecondByte", SetAudio(0, MakeAudio(0, 9, 0, 0)), 0,
           { 0x23, 0x7F, 0xFF, 0xFF }, 0, { 0x23, 0, 0x80, 0 }),
    Edited("RemoveAudioOneOfTwo", Call(&CBlock::RemoveAudioDescriptor, 0), 0x40, { 0x26, 1, 2, 3, 4, 5, 6, 0x41, 16 },
           0x40, { 0x23, 4, 5, 6, 0x41, 16 }),
    Edited("SpeakersKeepTheAudioFlag", Call(&CBlock::RemoveAudioDescriptor, 0), 0x70, { 0x23, 9, 7, 7, 0x83, 1, 0, 0 },
           0x70, { 0x83, 1, 0, 0 }),
    Edited("RestOfAnOddBlockGoesAndAudioKeepsTheFlag", Call(&CBlock::RemoveAudioDescriptor, 1), 0x70,
           { 0x23, 9, 7, 7, 0x25, 1, 2, 3, 4, 5, 0x41, 16 }, 0x70, { 0x23, 9, 7, 7, 0x41, 16 }),
    Edited("AddSpeakerOpensASecondBlock", Call(&CBlock::AddSpeakerDescriptor, 0xFFFFFDAA), 0,
           { 0x83, 1, 0, 0, 0x41, 16 }, 0x40, { 0x83, 1, 0, 0, 0x41, 16, 0x83, 0xAA, 5, 0 }),
    Edited("SetSpeakerZeroesTheRest", Call(&CBlock::SetSpeakerDescriptor, 1, 0xFFFFFA01), 0,
           { 0x80, 0x83, 0xFF, 0xFF, 0xFF, 0x41, 16 }, 0, { 0x80, 0x83, 1, 2, 0, 0x41, 16 }),
    Edited("RemoveSpeakerTakesTheWholeBlock", Call(&CBlock::RemoveSpeakerDescriptor, 0), 0x70,
           { 0x85, 1, 2, 3, 4, 5, 0x41, 16 }, 0x30, { 0x41, 16 }),
    Edited("AudioKeepsTheAudioFlag", Call(&CBlock::RemoveSpeakerDescriptor, 0), 0x40, { 0x83, 1, 0, 0, 0x23, 9, 7, 7 },
           0x40, { 0x23, 9, 7, 7 }),
    Edited("OtherSpeakersKeepTheAudioFlag", Call(&CBlock::RemoveSpeakerDescriptor, 1), 0x40, { 0x83, 1, 0, 0, 0x80 },
           0x40, { 0x83, 1, 0, 0 }),
    Refused("AddNoAudio", Call(&CBlock::AddAudioDescriptor, nullptr), {}),
    Refused("SetNoAudio", Call(&CBlock::SetAudioDescriptor, 0, nullptr), { 0x23, 9, 7, 7 }),
    Refused("AddAudioOfOneChannel", AddAudio(MakeAudio(1, 1, 7, 7)), {}),
    Refused("SetAudioToOneChannel", SetAudio(0, MakeAudio(1, 1, 7, 7)), { 0x23, 9, 7, 7 }),
    Refused("SetAudioBehindTheList", SetAudio(1, gsc_oPcm), { 0x23, 9, 7, 7 }),
    Refused("RemoveAudioOfAnOddFirstBlock", Call(&CBlock::RemoveAudioDescriptor, 0), { 0x24, 9, 7, 7, 7 }),
    Refused("AddNoSpeaker", Call(&CBlock::AddSpeakerDescriptor, 0), {}),
    Refused("SetSpeakerBehindTheList", Call(&CBlock::SetSpeakerDescriptor, 1, 5), { 0x83, 1, 0, 0 }),
    Refused("RemoveSpeakerBehindTheList", Call(&CBlock::RemoveSpeakerDescriptor, 1), { 0x83, 1, 0, 0 }),
    Refused("RemoveDetailedBehindTheList", Call(&CBlock::RemoveDetailed, 2), {}),
    Refused("RemoveStandardBehindTheList", Call(&CBlock::RemoveStandard, 2), { 0x41, 4 }),
    Refused("SetSpeakerOfAShortBlock", Call(&CBlock::SetSpeakerDescriptor, 0, 5), { 0x82, 1, 0, 0x41, 16 }),
    // An addition goes up to byte 125 and no further. Behind the data blocks stand 36 bytes of descriptors, or none.
    Edited("RoomForAudio", AddAudio(gsc_oPcm), 0, CBytes(82), 0x40, Join({ CBytes(82), { 0x23, 9, 7, 7 } })),
    Refused("NoRoomForAudio", AddAudio(gsc_oPcm), CBytes(83)),
    Edited("RoomToGrow", AddAudio(gsc_oPcm), 0, Join({ { 0x20 }, CBytes(82) }), 0x40,
           Join({ { 0x23, 9, 7, 7 }, CBytes(82) })),
    Refused("NoRoomToGrow", AddAudio(gsc_oPcm), Join({ { 0x20 }, CBytes(83) })),
    Edited("RoomForAVendor", Call(&CBlock::AddVendorSpecific), 0, CBytes(79), 0,
           Join({ CBytes(79), { 0x66, 3, 12, 0, 1, 0, 0 } })),
    Refused("NoRoomForAVendor", Call(&CBlock::AddVendorSpecific), CBytes(80)),
    { "RoomWithoutDescriptors", AddAudio(gsc_oPcm), 1, CCeaBlockBuilder().Bytes(CBytes(118)).Get(),
      CCeaBlockBuilder().Flags(0x40).Bytes(CBytes(118)).Bytes({ 0x23, 9, 7, 7 }).Get() },
    RefusedIn("NoRoomWithoutDescriptors", AddAudio(gsc_oPcm), CCeaBlockBuilder().Bytes(CBytes(119)).Get()),
    // Bytes behind the content move too, up to the last one in front of the checksum.
    { "VendorMovesTheTail", Call(&CBlock::AddVendorSpecific), 1,
      CCeaBlockBuilder().Bytes({ 0x41, 1 }).Detailed({ 1 }).At(119, 0xAA).Get(),
      CCeaBlockBuilder().Bytes({ 0x41, 1, 0x66, 3, 12, 0, 1, 0, 0 }).Detailed({ 1 }).At(126, 0xAA).Get() },
    // A block behind the content needs room for its own bytes alone, which may reach byte 126.
    { "GrowsUpToTheChecksum", AddAudio(gsc_oPcm), 1, BehindTheContent(96).Get(),
      BehindTheContent(96).Flags(0x40).At(2, 103).At(96, 0x3E).At(124, 9).At(125, 7).At(126, 7).Get() },
    RefusedIn("NotOverTheChecksum", AddAudio(gsc_oPcm), BehindTheContent(97).Get()),
    // With byte 2 below 4 the first "descriptor" lies over revision, byte 2 and flags, and so would a new data block.
    RefusedIn("DescriptorOverTheHeader", Call(&CBlock::RemoveDetailed, 0), CCeaBlockBuilder().At(2, 3).At(4, 1).Get()),
    RefusedIn("AudioOverTheHeader", AddAudio(gsc_oPcm), CCeaBlockBuilder().At(2, 3).Get()),
    RefusedIn("AudioOverTheTag", AddAudio(gsc_oPcm), CCeaBlockBuilder().At(2, 0).Get()),
    // There are no data blocks to list below revision 3, but an addition goes into the bytes.
    { "AudioOfRevision2", AddAudio(gsc_oPcm), 1, CCeaBlockBuilder(2).Detailed({ 1 }).Get(),
      CCeaBlockBuilder(2).Flags(0x40).Bytes({ 0x23, 9, 7, 7 }).Detailed({ 1 }).Get() },
    Stripped("Audio", 0x01, gsc_aui8Sound, Make(0xB4, { 0x41, 16, 0x83, 1, 0, 0, 0x83, 3, 0, 0 })),
    Stripped("SpeakersLeaveTheAudioFlag", 0x10, gsc_aui8Sound, Make(0xF4, { 0x23, 9, 7, 7, 0x41, 16, 0x20, 0x21, 5 })),
    Stripped("AudioFlagAlone", 0x01, Make(0xF4, { 0x41, 16 }), Make(0xB4, { 0x41, 16 })),
    Stripped("NothingFound", 0x11, Make(0xB4, { 0x41, 16 }), Make(0xB4, { 0x41, 16 })),
    Stripped("ReservedReportsEach", 0x26, gsc_aui8Sound, gsc_aui8Sound, 3),
    Stripped("UnknownBitsAreIgnored", 0xFFFFFFC8, gsc_aui8Sound, gsc_aui8Sound),
    OutOfRange("OneByteTooMany", 0, 129),
    OutOfRange("StartAtTheEnd", 128, 1),
    OutOfRange("StartBehindTheEnd", 129, 0),
    OutOfRange("HugeLength", 4, 0xFFFFFFFF),
    OutOfRange("HugeStart", 0xFFFFFFFF, 1),
    OutOfRange("SumWraps", 0x80000000, 0x80000004),
    // Every occurrence of a code goes, whether the code or its 1000/1001 variant is named. A vendor block keeps its
    // length.
    Removed("LastOneTakesTheHeader", { 0x41, 1, 0x23, 9, 7, 7 }, 1, { 0x23, 9, 7, 7 }),
    Removed("NativeAndNotInOneBlock", { 0x45, 16, 4, 0x90, 1, 16 }, 4, { 0x42, 4, 1 }),
    Removed("TwoBlocksEmptyAheadOfAnother", { 0x41, 16, 0x83, 1, 0, 0, 0x42, 16, 16, 0x43, 16, 1, 16 }, 0,
            { 0x83, 1, 0, 0, 0x41, 1 }),
    Removed("BlockWithoutItStandsBetween", { 0x41, 16, 0x41, 4, 0x42, 1, 16 }, 0, { 0x41, 4, 0x41, 1 }),
    Removed("EmptyBlockIsCountedAndStays", { 0x40, 0x41, 16, 0x42, 16, 1 }, 0, { 0x40, 0x41, 1 }),
    Removed("UnusableBytesKeepTheirPlace", { 0x44, 0, 0xFE, 16, 4 }, 0, { 0x43, 0, 0xFE, 4 }),
    Removed("HdmiTwiceInOneBlock", MakeHdmi({ 0x6D }, { 3, 1, 3 }), 1, Join({ MakeHdmi({ 0x6D }, { 1 }), { 0, 0 } })),
    Removed("SvdAndHdmi", Join({ { 0x42, 0xDD, 1 }, MakeHdmi({ 0x6C }, { 3, 1 }) }), 4,
            Join({ { 0x41, 1 }, MakeHdmi({ 0x6C }, { 1 }), { 0 } })),
    Removed("SvdBlockEmptiesAheadOfHdmi", Join({ { 0x41, 93, 0x63, 1, 2, 3 }, gsc_aui8Hdmi93, { 0x41, 93 } }), 0,
            Join({ { 0x63, 1, 2, 3 }, MakeHdmi({ 0x6B }, {}), { 0 } })),
    Removed("HdmiInVendorAndExtendedBlock", Join({ MakeHdmi({ 0xED, 1 }, { 3, 4 }), { 0xE1, 5 }, gsc_aui8Hdmi93 }), 0,
            Join({ MakeHdmi({ 0xED, 1 }, { 4 }), { 0, 0xE1, 5 }, MakeHdmi({ 0x6B }, {}), { 0 } })),
    Removed("BlocksFor420Stay", { 0x42, 16, 4, 0xE2, 15, 1, 0xE2, 14, 16 }, 4, { 0x41, 4, 0xE2, 15, 1, 0xE2, 14, 16 }),
    Refused("OnlyA420BlockNamesIt", Call(&CBlock::RemoveStandard, 2), { 0x41, 4, 0xE2, 14, 16 }),
    // The occurrences go in the order of the list, video blocks ahead of HDMI ones. The first whose place is gone ends
    // the removal, which keeps what it has done.
    Gone("FirstOfTwo", Join({ { 0x41, 93 }, gsc_aui8Hdmi93 }), 4, 2, 0, 0, gsc_aui8Hdmi93),
    Gone("SecondOfThree", Join({ { 0x41, 93, 0x41, 93 }, gsc_aui8Hdmi93 }), 4, 2, 0, 1, gsc_aui8Hdmi93),
    Gone("VendorBlock", Join({ { 0x42, 93, 1 }, gsc_aui8Hdmi93, gsc_aui8Extended93 }), 7, 12, 0, 1,
         Join({ { 0x41, 1 }, gsc_aui8Extended93 })),
    Gone("PlaceInTheBlock", Join({ { 0x42, 0x41, 93 }, gsc_aui8Hdmi93 }), 4, 1, 2, 0,
         Join({ { 0x41, 93 }, gsc_aui8Hdmi93 })),
};

TEST(Cea861Edit, LeavesTheBytesAndTheirLists)
{
    for (const SEditCase& oCase : gsc_aoEditCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CCapturedOutput oOutput;
        const auto poBlock = LoadBlock(oCase.m_aui8Before, oCase.m_uiStripFlags);
        EXPECT_EQ(oCase.m_iResult, oCase.m_fnEdit(*poBlock));
        EXPECT_EQ(oCase.m_uiReports, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_aui8After, GetBytes(*poBlock));
        if (!oCase.m_bTableTimings)
        {
            ExpectListsOfBytes(*poBlock);
        }
        else if (oCase.m_iResult != 0)
        {
            EXPECT_EQ(GetStandards(*LoadBlock(oCase.m_aui8After)), GetStandards(*poBlock));
        }
    }
}

// Here the removal uncovers an empty speaker block, which ends where the descriptors begin, and a second descriptor.
TEST(Cea861Edit, RemovedTableTimingLeavesTheOtherListsToTheNextEdit)
{
    CCeaBlockBuilder oBuilder;
    oBuilder.Bytes({ 0x41, 4, 0x23, 9, 7, 7 }).At(10, 0x80).At(11, 0x80).At(12, 1).At(30, 1);
    const auto poBlock = LoadBlock(oBuilder.Get());
    EXPECT_EQ(1, poBlock->RemoveStandard(0));
    EXPECT_EQ(0U, poBlock->GetSpeakerDescriptorCount());
    EXPECT_EQ(1U, poBlock->GetDetailedCount());
    EXPECT_EQ(10U + 2 * 18, poBlock->GetAvailableOffset()) << "counted in the bytes";
    EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(0));
    EXPECT_EQ(2U, poBlock->GetSpeakerDescriptorCount());
    ExpectListsOfBytes(*poBlock);
}
}
