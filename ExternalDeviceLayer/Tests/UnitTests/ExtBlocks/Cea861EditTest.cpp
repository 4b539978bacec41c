// Editing a CTA-861 block, by the bytes of the whole block before and after the edit.

#include <gtest/gtest.h>

#include <map>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"
#include "DisplayIdImages.h"

namespace
{
using CBlock = std::unique_ptr<CEdidExtBlockCEA861>;
using CNumbers = std::array<unsigned int, 5>;

int GetDepth(const CBlock& o)
{
    unsigned int uiBits = 99;
    return o->GetColorBitDepthSupport(uiBits) != 0 ? static_cast<int>(uiBits) : -1;
}

// Edits as the case file names them. Those that give nothing give 0.
const std::map<std::string, int (*)(CBlock& o, const CNumbers& aui)> gsc_oEdits = {
    { "AddAudio",
      [](auto& o, auto& aui) {
          const auto oAudio = MakeAudio(aui[0], aui[1], aui[2], aui[3]);
          return o->AddAudioDescriptor(&oAudio);
      } },
    { "SetAudio",
      [](auto& o, auto& aui) {
          const auto oAudio = MakeAudio(aui[1], aui[2], aui[3], aui[4]);
          return o->SetAudioDescriptor(aui[0], &oAudio);
      } },
    { "RemoveAudio", [](auto& o, auto& aui) { return o->RemoveAudioDescriptor(aui[0]); } },
    { "AddSpeaker", [](auto& o, auto& aui) { return o->AddSpeakerDescriptor(aui[0]); } },
    { "SetSpeaker", [](auto& o, auto& aui) { return o->SetSpeakerDescriptor(aui[0], aui[1]); } },
    { "SetSpeakerKeeping", [](auto& o, auto& aui) { return o->SetSpeakerDescriptorKeepingRest(aui[0], aui[1]); } },
    { "RemoveSpeaker", [](auto& o, auto& aui) { return o->RemoveSpeakerDescriptor(aui[0]); } },
    { "AddVendor", [](auto& o, auto&) { return o->AddVendorSpecific(); } },
    { "RemoveDetailed", [](auto& o, auto& aui) { return o->RemoveDetailed(aui[0]); } },
    { "SetNative", [](auto& o, auto& aui) { return o->SetNativeDetailedCount(aui[0]); } },
    { "RemoveStandard", [](auto& o, auto& aui) { return o->RemoveStandard(aui[0]); } },
    { "RemoveKeeping", [](auto& o, auto& aui) { return o->RemoveStandardKeepingDescriptors(aui[0]); } },
    { "RemoveCodeAt",
      [](auto& o, auto& aui) { return o->RemoveCodeAt(aui[0]) == CEdidExtBlockCEA861::eRemoval_Possible ? 1 : 0; } },
    { "SetDeep", [](auto& o, auto& aui) { return static_cast<int>(o->SetDeepColors(aui[0])); } },
    { "GetDepth", [](auto& o, auto&) { return GetDepth(o); } },
    { "SetDepth", [](auto& o, auto& aui) { return o->SetColorBitDepthSupport(aui[0]); } },
    { "RemoveRange", [](auto& o, auto& aui) { return o->RemoveDataRange(aui[0], aui[1]), 0; } },
    { "PadRange", [](auto& o, auto& aui) { return o->PadDataRange(aui[0], aui[1]), 0; } },
    { "StripBlocks", [](auto& o, auto& aui) { return o->StripDataBlocks(aui[0]), 0; } },
    { "UpdateChecksum", [](auto& o, auto&) { return o->UpdateChecksum(), 0; } },
    { "Strip", // a load with these flags; the result is whether something went
      [](auto& o, auto& aui) {
          o = LoadBlock(GetBytes(*o), aui[0]);
          return o->IsStripped();
      } },
};

// Separated by semicolons; the result is that of the last one.
int RunEdits(CBlock& poBlock, const std::string& sEdits)
{
    int iResult = -1;
    std::istringstream oEdits(sEdits);
    for (std::string sEdit; std::getline(oEdits, sEdit, ';');)
    {
        std::istringstream oEdit(sEdit);
        std::string sName;
        CNumbers aui = {};
        oEdit >> sName;
        oEdit.unsetf(std::ios::basefield); // "0x" for hexadecimal
        for (unsigned int& ui : aui)
        {
            oEdit >> ui;
        }
        iResult = gsc_oEdits.at(sName)(poBlock, aui);
    }
    return iResult;
}

TEST(Cea861Edit, LeavesTheBytesAndTheirLists)
{
    for (const SCaseRow& oRow : ReadCases("ExtBlocks/golden/edits.txt", 6))
    {
        SCOPED_TRACE(oRow.GetName());
        const CBytes aui8Before = CompleteBlock(oRow.GetBytes(4));
        const CBytes aui8After = oRow.GetText(5) == "=" ? aui8Before : CompleteBlock(oRow.GetBytes(5));
        CCapturedOutput oOutput;
        CBlock poBlock = LoadBlock(aui8Before);
        const int iResult = RunEdits(poBlock, oRow.GetText(1));
        EXPECT_EQ(oRow.GetNumber(3), oOutput.TakeAssertionCount());
        EXPECT_EQ(oRow.GetNumber(2), iResult);
        EXPECT_EQ(aui8After, GetBytes(*poBlock));
        // A refusal leaves the lists. The removal of a table timing brings the list of table timings alone up to date.
        const bool bAll = oRow.GetText(1).find("RemoveStandard") == std::string::npos;
        const CLists aoLists = GetLists(*poBlock);
        const CLists aoExpected = GetLists(*LoadBlock(iResult != 0 ? aui8After : aui8Before));
        EXPECT_EQ(aoExpected[eBlockList_Table], aoLists[eBlockList_Table]);
        EXPECT_TRUE(!bAll || aoExpected == aoLists);
    }
}

// Here the removal uncovers an empty speaker block, which ends where the descriptors begin, and a second descriptor.
TEST(Cea861Edit, RemovedTableTimingLeavesTheOtherListsToTheNextEdit)
{
    CBytes aui8Block = { 2, 3, 10, 0, 0x41, 4, 0x23, 9, 7, 7, 0x80, 0x80, 1 };
    aui8Block.resize(30);
    aui8Block.push_back(1);
    const CBlock poBlock = LoadBlock(CompleteBlock(aui8Block));
    EXPECT_EQ(1, poBlock->RemoveStandard(0));
    EXPECT_EQ(0U, poBlock->GetSpeakerDescriptorCount());
    EXPECT_EQ(1U, poBlock->GetDetailedCount());
    EXPECT_EQ(10U + 2 * 18, poBlock->GetAvailableOffset()) << "counted in the bytes";
    EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(0));
    EXPECT_EQ(2U, poBlock->GetSpeakerDescriptorCount());
    EXPECT_EQ(GetLists(*LoadBlock(GetBytes(*poBlock))), GetLists(*poBlock));
}

// Two codes with their variants follow a block that refuses every removal.
TEST(Cea861Edit, TidyRemovalCountsOverTheBlocksOfAnImage)
{
    const auto fnMakeImage = [](const CBytes& aui8Cea) {
        return MakeEdid({ MakeFullDisplayIdBlock(), CompleteBlock(aui8Cea) });
    };
    CEdid oEdid;
    LoadExact(oEdid, fnMakeImage({ 2, 3, 7, 0, 0x42, 16, 4 }));
    EXPECT_EQ(1, oEdid.RemoveStandardKeepingDescriptors(3));
    EXPECT_EQ(fnMakeImage({ 2, 3, 6, 0, 0x41, 16 }), Serialise(oEdid));
}

TEST(Cea861Edit, RemovalIsTriedWithoutAChange)
{
    using enum CEdidExtBlockCEA861::ERemoval;
    const std::pair<CBytes, CEdidExtBlockCEA861::ERemoval> aoCases[] = {
        { { 2, 3, 7, 0, 0x42, 16, 4 }, eRemoval_Possible },
        { { 2, 3, 6, 0, 0x42, 16, 4 }, eRemoval_Damaged },
        { { 2, 3, 7, 0, 0xE2, 14, 16 }, eRemoval_NoCode },
        { { 2, 3, 18, 0, 0x41, 16, 0x6B, 3, 12, 0, 16, 0, 0, 0, 0x20, 0x80, 2, 8 }, eRemoval_3dFields },
        { Join({ { 2, 3, 20, 0, 0x41, 16, 0x6D }, CBytes(13), CBytes(107, 1) }), eRemoval_Descriptors },
    };
    for (const auto& [aui8Block, eExpected] : aoCases)
    {
        const CBlock poBlock = LoadBlock(CompleteBlock(aui8Block));
        const auto& oCea = static_cast<const CEdidExtBlockCEA861&>(*poBlock);
        EXPECT_EQ(eExpected, oCea.TryRemoval(0));
        EXPECT_EQ(eRemoval_NoCode, oCea.TryRemoval(oCea.GetStandardCount()));
        EXPECT_EQ(CompleteBlock(aui8Block), GetBytes(*poBlock));
        EXPECT_EQ(eExpected == eRemoval_Possible ? 1 : 0, poBlock->RemoveStandardKeepingDescriptors(0));
    }
}
} // namespace
