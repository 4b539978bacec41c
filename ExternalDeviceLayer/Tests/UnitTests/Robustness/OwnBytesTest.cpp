// Answers are made of the bytes that belong to them, and not of those behind, in the same block or object, where no
// sanitizer sees a read.

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <string>

#include "CapturedOutput.h"
#include "EdidExtBlockCEA861.h"
#include "TestBytes.h"
#include "VidParamTimingGeneric.h"

namespace
{
constexpr size_t gsc_uiTooShortForADescriptor = 110; // 17 bytes are left there in front of the checksum

struct SLastBlockCase
{
    const char* m_pszName;
    CBytes m_aui8LastBlock; // the last data block, which tells nothing; its payload may lack the byte behind it
    size_t m_uiEnd;         // where these bytes end

    friend void PrintTo(const SLastBlockCase& oCase, std::ostream* poStream) { *poStream << oCase.m_pszName; }
};

// A CEA-861 block: blocks of no known vendor up to the last one, and behind that one the same byte again and again.
CBytes MakeImage(const SLastBlockCase& oCase, unsigned char ui8Fill)
{
    CBytes aui8Block = { 0x02, 0x03, static_cast<unsigned char>(oCase.m_uiEnd), 0x00 };
    const size_t uiStart = oCase.m_uiEnd - oCase.m_aui8LastBlock.size();
    while (aui8Block.size() < uiStart)
    {
        const size_t uiLength = std::min<size_t>(uiStart - aui8Block.size() - 1, 31);
        aui8Block.push_back(static_cast<unsigned char>(0x60 | uiLength));
        aui8Block.insert(aui8Block.end(), uiLength, ui8Fill);
    }
    Append(aui8Block, oCase.m_aui8LastBlock);
    aui8Block.resize(gsc_uiBlockSize, ui8Fill);

    CBytes aui8Image(gsc_uiBlockSize);
    std::copy(std::begin(EDID_V1_HEADER), std::end(EDID_V1_HEADER), aui8Image.begin());
    aui8Image[126] = 1;
    Append(aui8Image, aui8Block);
    return FixChecksums(aui8Image);
}

class LastDataBlock : public testing::TestWithParam<SLastBlockCase>
{
};

TEST_P(LastDataBlock, IsNotReadBeyondItsEnd)
{
    const CQuietMessages oQuiet;
    for (const unsigned char ui8Fill : CBytes{ 0x00, 0x01, 0x10, 0x20, 0x7F, 0xFF })
    {
        CEdid oEdid;
        ASSERT_EQ(1, LoadExact(oEdid, MakeImage(GetParam(), ui8Fill)));
        ASSERT_EQ(1U, oEdid.GetExtensionCount());
        auto& oBlock = static_cast<CEdidExtBlockCEA861&>(*oEdid.GetExtension(0));
        unsigned int uiDepths = 0;
        EXPECT_EQ(1, oBlock.GetColorBitDepthSupport(uiDepths));
        EXPECT_EQ(0U, uiDepths);
        EXPECT_EQ(0U, oBlock.GetStandardCount());
        EXPECT_EQ(0U, oBlock.GetDetailedCount());
        EXPECT_EQ(0U, oBlock.GetAudioDescriptorCount());
        EXPECT_EQ(0U, oBlock.GetSpeakerDescriptorCount());
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, LastDataBlock,
                         testing::Values(SLastBlockCase{ "VideoOverTheChecksum", { 0x42, 0x10 }, 127 },
                                         SLastBlockCase{ "AudioOverTheChecksum", { 0x23, 0x09, 0x07 }, 127 },
                                         SLastBlockCase{ "SpeakerOverTheChecksum", { 0x83, 0x7F, 0x00 }, 127 },
                                         SLastBlockCase{ "Video420OverTheChecksum", { 0xE3, 0x0E, 0x61 }, 127 },
                                         // One code is announced, for which the payload has no room.
                                         SLastBlockCase{
                                             "HdmiCodeBehind",
                                             { 0x6A, 0x03, 0x0C, 0x00, 0x10, 0x00, 0x00, 0x2D, 0x20, 0x00, 0x20 },
                                             gsc_uiTooShortForADescriptor },
                                         // The byte that tells of further fields would be the next one.
                                         SLastBlockCase{ "HdmiWithoutItsLastByte",
                                                         { 0x67, 0x03, 0x0C, 0x00, 0x10, 0x00, 0x38, 0x2D },
                                                         gsc_uiTooShortForADescriptor }),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });

// A base block whose last two bytes and what lies behind them in the object look like a fifth descriptor.
class CBaseWithMemoryBehind : public CEdidBase
{
public:
    explicit CBaseWithMemoryBehind(const CBytes& aui8Block)
    {
        SetEdidBuffer(aui8Block.data(), static_cast<unsigned int>(aui8Block.size()), 0);
    }

    // Bytes 128 to 131 of a block that had them.
    void SetBehind(unsigned int ui128, unsigned int ui129, unsigned int ui130, unsigned int ui131)
    {
        for (unsigned int& uiMask : m_auiEstablishedMask)
        {
            uiMask = ui128 | ui129 << 8 | ui130 << 16 | ui131 << 24;
        }
    }
};

TEST(FifthDescriptor, IsNoTimingAndNoText)
{
    CBytes aui8Block(gsc_uiBlockSize);
    std::copy(std::begin(EDID_V1_HEADER), std::end(EDID_V1_HEADER), aui8Block.begin());
    for (size_t uiOffset = 54; uiOffset < 126; uiOffset += 18)
    {
        aui8Block[uiOffset + 3] = 0x10; // an empty display descriptor
    }
    CBaseWithMemoryBehind oText(aui8Block); // bytes 126 and 127 are 0, as in a display descriptor
    for (const unsigned int uiTag : { 0xFAU, 0xFCU, 0xFDU, 0xFEU, 0xFFU })
    {
        oText.SetBehind(0, uiTag, 0, 'A');
        char szText[14] = {};
        CEdidBase::SRangeLimits oLimits = {};
        CVidParamTimingGeneric oTiming;
        EXPECT_EQ(0, oText.GetMonitorName(szText, sizeof(szText)));
        EXPECT_EQ(0, oText.GetMonitorString(szText, sizeof(szText)));
        EXPECT_EQ(0, oText.GetMonitorSerialNumber(szText, sizeof(szText)));
        EXPECT_EQ(0, oText.GetMonitorRangeLimits(oLimits));
        EXPECT_EQ(0, oText.GetExtraStdTiming(0, oTiming));
    }

    aui8Block[126] = 0x3A; // the pixel clock of a detailed timing
    CBaseWithMemoryBehind oTimed(FixChecksums(aui8Block));
    oTimed.SetBehind(0x80, 0x18, 0x71, 0x38);
    EXPECT_EQ(0U, oTimed.GetDetailedCount());
    EXPECT_EQ(0, oTimed.GetDetailed(0, nullptr));
    EXPECT_EQ(0, oTimed.RemoveDetailed(0));
}
}
