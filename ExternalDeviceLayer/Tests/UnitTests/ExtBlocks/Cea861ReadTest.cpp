// Reading a CTA-861 block: which bytes it takes, where its data blocks and descriptors lie, what its lists hold.

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"
#include "RVidParamTiming.h"
#include "VidParamCea.h"

namespace
{
using CBlock = CEdidExtBlockCEA861;

// ---- The block as a whole ----

TEST(Cea861Block, TagRevisionAndChecksumDecide)
{
    for (unsigned int i = 0; i < 256; ++i)
    {
        const unsigned char ui8Byte = static_cast<unsigned char>(i);
        const CBytes aui8Block = CompleteBlock({ 2, ui8Byte, 4 });
        EXPECT_EQ(i <= 3, CBlock::IsSupported(128, aui8Block.data()) != 0) << i;
        EXPECT_EQ(i <= 3 ? CBlock::eRefusal_None : CBlock::eRefusal_Revision,
                  CBlock::GetRefusal(128, aui8Block.data()));
        EXPECT_EQ(i <= 3 ? i : 0, LoadBlock(aui8Block)->GetRevision());
        EXPECT_EQ((i & 0x30) != 0, LoadBlock(CompleteBlock({ 2, 3, 4, ui8Byte }))->IsYuvSupported() != 0) << i;
    }
    EXPECT_EQ(0, CBlock::IsSupported(128, CompleteBlock({ 0x70, 3, 4 }).data()));
    CBytes aui8Longer = CompleteBlock({ 2, 3, 4 });
    aui8Longer.push_back(1);
    EXPECT_NE(0, CBlock::IsSupported(128, aui8Longer.data()));
    EXPECT_EQ(0, CBlock::IsSupported(129, aui8Longer.data())) << "the checksum runs over the offered size";
    EXPECT_EQ(CBlock::eRefusal_Checksum, CBlock::GetRefusal(129, aui8Longer.data()));
}

TEST(Cea861Block, RefusedBytesLeaveAnEmptyObjectThatRefusesEdits)
{
    const auto poBlock = LoadBlock(CompleteBlock({ 2, 4, 10, 0xF0, 0x23, 9, 7, 7, 0x41, 16, 2, 0x3A, 0x80 }), 0x11);
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

TEST(Cea861Block, RefusedCallsTouchNothing)
{
    // Code 19 as native, PCM, a speaker mask, code 20 in YCbCr 4:2:0, a descriptor.
    const CBytes aui8Bytes = CompleteBlock(
        { 2, 3, 17, 0, 0x41, 0x93, 0x23, 9, 7, 7, 0x83, 1, 0, 0, 0xE2, 14, 20, 2, 0x3A, 0x80, 0x18, 0x71, 0x38 });
    const auto poBlock = LoadBlock(aui8Bytes);
    CRVidParamTiming oTiming;
    oTiming.SetHorizontalActive(77);
    int iNative = 5;
    CBlock::SAudioDescriptor oAudio = MakeAudio(9, 9, 9, 9);
    unsigned int uiMask = 9;
    EXPECT_EQ(0, poBlock->GetStandard(2, &oTiming, &iNative) | poBlock->GetStandard(0, nullptr, &iNative));
    EXPECT_EQ(0, poBlock->GetDetailed(1, &oTiming) | poBlock->GetDetailed(0, nullptr));
    EXPECT_EQ(0, poBlock->GetAudioDescriptor(1, &oAudio) | poBlock->GetAudioDescriptor(0, nullptr));
    EXPECT_EQ(0, poBlock->GetSpeakerDescriptor(1, &uiMask) | poBlock->GetSpeakerDescriptor(0, nullptr));
    EXPECT_EQ(0, poBlock->AddAudioDescriptor(nullptr) | poBlock->SetAudioDescriptor(0, nullptr));
    EXPECT_EQ(aui8Bytes, GetBytes(*poBlock));
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

unsigned int Find(const CBlock& oBlock, unsigned int uiTag, unsigned int uiIndex, unsigned int* puiLength)
{
    const auto eTag = static_cast<CBlock::ECea861_DataBlockTags>(uiTag);
    const auto eExtTag = static_cast<CBlock::ECea861_DataBlockExtTags>(uiTag - 0x100);
    return uiTag < 0x100 ? oBlock.GetDataBlockOffset(eTag, uiIndex, puiLength)
                         : oBlock.GetDataBlockOffset(eExtTag, uiIndex, puiLength);
}

TEST(Cea861DataBlocks, WholeOnesAreFound)
{
    for (const SCaseRow& oRow : ReadCases("ExtBlocks/golden/walks.txt", 6))
    {
        SCOPED_TRACE(oRow.GetName());
        const auto poBlock = LoadBlock(CompleteBlock(oRow.GetBytes(1)));
        unsigned int uiLength = 77;
        EXPECT_EQ(oRow.GetNumber(4), Find(*poBlock, oRow.GetNumber(2), oRow.GetNumber(3), &uiLength));
        EXPECT_EQ(oRow.GetNumber(5), uiLength);
    }
    const auto poBlock = LoadBlock(CompleteBlock({ 2, 3, 13, 0, 0x60, 0x63, 1, 2, 3, 0x41, 1, 0x61, 9 }));
    EXPECT_EQ(3U, poBlock->GetVendorSpecificCount()) << "of all vendors";
    CCapturedOutput oOutput;
    EXPECT_EQ(0U, Find(*poBlock, 3, 0, nullptr) + Find(*poBlock, 0x10F, 0, nullptr));
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
    CBytes aui8Block(4 + 3 * 18, 0x11); // 0x111 pixels wide
    std::copy_n(CBytes{ 2, 3, 4, 0 }.begin(), 4, aui8Block.begin());
    aui8Block[23] = 0;
    EXPECT_EQ(3U, LoadBlock(CompleteBlock(aui8Block))->GetDetailedCount()) << "one byte of the clock is enough";
    aui8Block[24] = aui8Block[26] = 0;
    const auto poBlock = LoadBlock(CompleteBlock(aui8Block));
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, poBlock->GetDetailed(0, &oTiming));
    EXPECT_EQ(0x111U, oTiming.GetHorizontalActive());
    EXPECT_EQ(0, poBlock->GetDetailed(1, &oTiming));
    EXPECT_EQ(0U, oTiming.GetHorizontalActive());
    aui8Block[22] = 0;
    EXPECT_EQ(1U, LoadBlock(CompleteBlock(aui8Block))->GetDetailedCount());
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

// Codes that share their timing with a lower one come out as the lower one (3 as 2, 18 as 17).
std::string GetStandardTexts(const CBlock& oBlock)
{
    std::ostringstream oTexts;
    for (unsigned int i = 0; i < oBlock.GetStandardCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        int iNative = -1;
        oBlock.GetStandard(i, &oTiming, &iNative);
        const int b420 = oTiming.Is420ColorSpace();
        oTiming.Set420ColorSpace(0); // the look-up goes by the effective clock
        unsigned int uiVic = 0;
        CVidParamCea::GetVicFromVidParam(oTiming, uiVic);
        const char* pszNative = iNative == 0 ? "" : iNative == 1 ? "n" : "?"; // it is always written
        oTexts << (i != 0 ? " " : "") << uiVic << pszNative << (b420 != 0 ? "y" : "");
    }
    return oTexts.str();
}

// Each place: its offset, and the bit of a map; the index, the code, v for its variant; + or - for YCbCr 4:2:0 also or
// only, with the byte of the code where that is another; r for a repeat.
std::string GetOriginTexts(const CBlock& oBlock)
{
    CTimingOrigins aoOrigins;
    oBlock.ListStandardOrigins(aoOrigins);
    std::ostringstream oTexts;
    oTexts << std::hex << std::uppercase;
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& o = aoOrigins[i];
        oTexts << (i != 0 ? " " : "") << o.m_uiOffset;
        oTexts << (o.m_uiBit != STimingOrigin::msc_uiNoBit ? "." + std::to_string(o.m_uiBit) : "") << "=" << std::dec
               << o.m_uiIndex << ":" << o.m_uiCode << (o.m_bVariant != 0 ? "v" : "") << std::hex;
        oTexts << (o.m_e420 == STimingOrigin::e420_Also ? "+" : o.m_e420 == STimingOrigin::e420_Only ? "-" : "");
        if (o.m_uiCodeByte != o.m_uiOffset)
        {
            oTexts << o.m_uiCodeByte;
        }
        oTexts << (o.m_bRepeated != 0 ? "r" : "");
        EXPECT_EQ(o.m_uiBit == STimingOrigin::msc_uiNoBit && o.m_uiCodeByte != o.m_uiOffset ? 0 : 1, o.m_uiLength);
    }
    return oTexts.str();
}

// The first numbers of each entry.
std::string GetHexTexts(const CList& oList, size_t uiNumbers)
{
    std::ostringstream oTexts;
    for (const CListEntry& auiEntry : oList)
    {
        for (size_t i = 0; i < uiNumbers; ++i)
        {
            oTexts << std::hex << (i != 0 ? "/" : &auiEntry != &oList.front() ? " " : "") << auiEntry[i];
        }
    }
    return oTexts.str();
}

TEST(Cea861Lists, HoldWhatTheDataBlocksSay)
{
    for (const SCaseRow& oRow : ReadCases("ExtBlocks/golden/lists.txt", 7))
    {
        SCOPED_TRACE(oRow.GetName());
        CCapturedOutput oOutput;
        const auto poBlock = LoadBlock(CompleteBlock(oRow.GetBytes(1)));
        const std::string sOrigins = GetOriginTexts(*poBlock); // without lines
        EXPECT_EQ(oRow.GetNumber(6), oOutput.TakeAssertionCount());
        EXPECT_EQ(oRow.GetText(3), sOrigins);
        EXPECT_EQ(oRow.GetText(2), GetStandardTexts(*poBlock));
        EXPECT_EQ(oRow.GetText(4), GetHexTexts(GetLists(*poBlock)[eBlockList_Audio], 4));
        EXPECT_EQ(oRow.GetText(5), GetHexTexts(GetLists(*poBlock)[eBlockList_Speaker], 1));
    }
}

TEST(Cea861Audio, NamesStandAtTheirValues)
{
    std::string sFormats;
    for (const unsigned int uiFormat : { 0U, 1U, 7U, 15U, 20U, 21U, 0xFFFFFFFFU })
    {
        sFormats += std::string(CBlock::GetAudioFormatStr(static_cast<CBlock::EAudioFormat>(uiFormat))) + "|";
    }
    EXPECT_EQ("|Linear Pulse Code Modulation (PCM)|DTS|MPEG4 HE AAC|MPEG4 ACC LC Surround|||", sFormats);
    std::string sRates;
    for (const unsigned int uiRate : { 1U, 2U, 4U, 8U, 16U, 32U, 64U, 0U, 3U, 128U, 0x80000000U })
    {
        sRates += std::string(CBlock::GetAudioSamplingFreqStr(static_cast<CBlock::EAudioSamplingFreq>(uiRate))) + "|";
    }
    EXPECT_EQ("32|44|48|88|96|176|192|||||", sRates);
}
} // namespace
