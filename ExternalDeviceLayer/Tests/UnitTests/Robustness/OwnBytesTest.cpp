// Answers are made of the bytes that belong to them, and not of those behind, in the same block or object, where no
// sanitizer sees a read.

#include <gtest/gtest.h>

#include "BlockLists.h"
#include "CapturedOutput.h"
#include "DisplayIdImages.h"

namespace
{
// A CEA-861 block: blocks of no known vendor up to the last one, and behind that one the same byte again and again.
CBytes MakeBlock(const CBytes& aui8LastBlock, size_t uiEnd, unsigned char ui8Fill)
{
    CBytes aui8Block = { 0x02, 0x03, static_cast<unsigned char>(uiEnd), 0x00 };
    const size_t uiStart = uiEnd - aui8LastBlock.size();
    while (aui8Block.size() < uiStart)
    {
        const size_t uiLength = std::min<size_t>(uiStart - aui8Block.size() - 1, 31);
        aui8Block.push_back(static_cast<unsigned char>(0x60 | uiLength));
        aui8Block.insert(aui8Block.end(), uiLength, ui8Fill);
    }
    Append(aui8Block, aui8LastBlock);
    aui8Block.resize(gsc_uiBlockSize, ui8Fill);
    return FixChecksums(aui8Block);
}

TEST(LastDataBlock, IsNotReadBeyondItsEnd)
{
    struct SCase
    {
        const char* m_pszName;
        CBytes m_aui8LastBlock; // says nothing; its payload may lack the byte behind it
        size_t m_uiEnd;         // where these bytes end; behind 110 there is no room for a descriptor
    };
    const SCase aoCases[] = {
        { "video over the checksum", { 0x42, 0x10 }, 127 },
        { "audio over the checksum", { 0x23, 0x09, 0x07 }, 127 },
        { "speakers over the checksum", { 0x83, 0x7F, 0x00 }, 127 },
        { "4:2:0 video over the checksum", { 0xE3, 0x0E, 0x61 }, 127 },
        { "one HDMI code announced, without room for it",
          { 0x6A, 0x03, 0x0C, 0x00, 0x10, 0x00, 0x00, 0x2D, 0x20, 0x00, 0x20 },
          110 },
        { "HDMI without the byte that announces further fields",
          { 0x67, 0x03, 0x0C, 0x00, 0x10, 0x00, 0x38, 0x2D },
          110 },
    };
    const CQuietMessages oQuiet;
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        for (const unsigned char ui8Fill : CBytes{ 0x00, 0x01, 0x10, 0x20, 0x7F, 0xFF })
        {
            CEdid oEdid;
            ASSERT_EQ(1, LoadExact(oEdid, MakeEdid({ MakeBlock(oCase.m_aui8LastBlock, oCase.m_uiEnd, ui8Fill) })));
            ASSERT_EQ(1U, oEdid.GetExtensionCount());
            unsigned int uiDepths = 0;
            EXPECT_EQ(1, oEdid.GetExtension(0)->GetColorBitDepthSupport(uiDepths));
            EXPECT_EQ(0U, uiDepths);
            EXPECT_EQ(CLists(), GetLists(oEdid, 1));
        }
    }
}

// A base block whose last two bytes and what lies behind them in the object look like a fifth descriptor.
class CBaseWithMemoryBehind : public CEdidBase
{
public:
    // uiBehind: bytes 128 to 131 of a block that had them, little-endian.
    CBaseWithMemoryBehind(const CBytes& aui8Block, unsigned int uiBehind)
    {
        SetEdidBuffer(aui8Block.data(), static_cast<unsigned int>(aui8Block.size()), 0);
        for (unsigned int& uiMask : m_auiEstablishedMask)
        {
            uiMask = uiBehind;
        }
    }
};

TEST(FifthDescriptor, IsNoTimingAndNoText)
{
    CBytes aui8Block = MakeEdid({});
    std::fill(aui8Block.begin() + 18, aui8Block.end(), static_cast<unsigned char>(0)); // no preferred timing
    for (size_t i = 54; i < 126; i += 18)
    {
        aui8Block[i + 3] = 0x10; // an empty display descriptor, as which bytes 126 and 127 begin
    }
    for (const unsigned int uiTag : { 0xFAU, 0xFCU, 0xFDU, 0xFEU, 0xFFU })
    {
        const CBaseWithMemoryBehind oText(aui8Block, uiTag << 8 | 'A' << 24);
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
    CBaseWithMemoryBehind oTimed(FixChecksums(aui8Block), 0x38711880);
    EXPECT_EQ(0U, oTimed.GetDetailedCount());
    EXPECT_EQ(0, oTimed.GetDetailed(0, nullptr));
    EXPECT_EQ(0, oTimed.RemoveDetailed(0));
}
} // namespace
