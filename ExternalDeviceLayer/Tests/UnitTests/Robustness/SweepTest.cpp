// Damage and truncation of every image of the self-check, everything read. Meant for the sanitizer build.

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "CapturedOutput.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"
#include "VidParamTimingGeneric.h"

namespace
{
// Loads what may be damaged. Whole blocks load behind a right header, the base block with any checksum; an extension
// block that is not announced, not understood or wrong in its sum is dropped, the others stay as they are, in order.
// Everything is read where the damaged block stayed.
void LoadAndRead(const CBytes& aui8Image, size_t uiDamagedBlock)
{
    CBytes aui8Expected;
    bool bRead = aui8Image.size() < gsc_uiBlockSize;
    const CBytes aui8Header = ParseBytes("00 FF*6 00");
    const bool bLoads = aui8Image.size() % gsc_uiBlockSize == 0 &&
                        (aui8Image.empty() || std::equal(aui8Header.begin(), aui8Header.end(), aui8Image.begin()));
    for (size_t i = 0; bLoads && i < aui8Image.size() / gsc_uiBlockSize; ++i)
    {
        const unsigned char* pui8Block = &aui8Image[i * gsc_uiBlockSize];
        const bool bSum = std::accumulate(pui8Block, pui8Block + gsc_uiBlockSize, 0U) % 256 == 0;
        if (i == 0 || (i <= aui8Image[126] && bSum &&
                       (CEdidExtBlockCEA861::IsSupported(gsc_uiBlockSize, pui8Block) != 0 ||
                        CEdidExtBlockDisplayID::IsSupported(gsc_uiBlockSize, pui8Block) != 0)))
        {
            aui8Expected.insert(aui8Expected.end(), pui8Block, pui8Block + gsc_uiBlockSize);
            bRead = bRead || i == uiDamagedBlock;
        }
    }
    CEdid oEdid;
    ASSERT_EQ(bLoads ? 1 : 0, LoadExact(oEdid, aui8Image));
    ASSERT_EQ(aui8Expected.size(), oEdid.GetSize());
    ASSERT_TRUE(aui8Expected.empty() || aui8Expected == Serialise(oEdid));
    const auto uiSum = std::accumulate(aui8Expected.begin(), aui8Expected.end(), 0U);
    ASSERT_EQ(uiSum % 256 == 0, oEdid.IsChecksumValid() != 0);
    if (bRead)
    {
        ReadEverything(oEdid);
    }
}

// Blocks are read independently of each other. So damage goes through the last block of these images, which has each
// block that occurs in the self-check once: base blocks alone, extension blocks behind a base block with little in it,
// which keeps the sweep short.
std::set<CBytes> GetBlocksToDamage()
{
    std::set<CBytes> aaui8Images = { MakeEdid({ MakeFullDisplayIdBlock() }) };
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        const auto itExtension = oImage.m_paui8Image->begin() + gsc_uiBlockSize;
        CBytes aui8Base(oImage.m_paui8Image->begin(), itExtension);
        aui8Base[126] = 0;
        aaui8Images.insert(FixChecksums(aui8Base));
        aaui8Images.insert(MakeEdid({ CBytes(itExtension, oImage.m_paui8Image->end()) }));
    }
    return aaui8Images;
}

// In parts, so that they can run side by side.
class DamageSweep : public testing::TestWithParam<size_t>
{
};

// Each byte is damaged in each bit, and to four values that break limits and signs; with its block's checksum as it
// was, and repaired.
TEST_P(DamageSweep, EveryByteOfEveryBlock)
{
    const CQuietMessages oQuiet;
    size_t uiImage = GetParam();
    for (CBytes aui8Image : GetBlocksToDamage())
    {
        const size_t uiBlock = aui8Image.size() / gsc_uiBlockSize - 1;
        for (size_t i = uiBlock * gsc_uiBlockSize; uiImage % 4 == 0 && i < aui8Image.size(); ++i)
        {
            for (unsigned int j = 0; j < 12; ++j)
            {
                const unsigned int uiValue =
                    j < 8 ? aui8Image[i] ^ 1U << j : std::array{ 0x00U, 0x7FU, 0x80U, 0xFFU }[j - 8];
                SCOPED_TRACE(testing::Message() << "byte " << i << " is " << uiValue);
                CBytes aui8Damaged = aui8Image;
                aui8Damaged[i] = static_cast<unsigned char>(uiValue);
                ASSERT_NO_FATAL_FAILURE(LoadAndRead(aui8Damaged, uiBlock));
                FixBlockSum(aui8Damaged, uiBlock);
                ASSERT_NO_FATAL_FAILURE(LoadAndRead(aui8Damaged, uiBlock));
            }
        }
        ++uiImage;
    }
}

INSTANTIATE_TEST_SUITE_P(Quarters, DamageSweep, testing::Values(0, 1, 2, 3));

// Byte 126 announces blocks that are not there, or fewer than there are.
TEST(AnnouncedBlocksSweep, EveryNumber)
{
    const CQuietMessages oQuiet;
    CBytes aui8Image = MakeImageWithAllBlocks();
    for (unsigned int i = 0; i < 256; ++i)
    {
        aui8Image[126] = static_cast<unsigned char>(i);
        FixBlockSum(aui8Image, 0);
        ASSERT_NO_FATAL_FAILURE(LoadAndRead(aui8Image, 0)) << i;
    }
}

TEST(TruncationSweep, EveryLength)
{
    const CQuietMessages oQuiet;
    for (const auto& [sName, aui8Image] : GetImages())
    {
        for (size_t i = 0; i <= aui8Image.size(); ++i)
        {
            const CBytes aui8Cut(aui8Image.begin(), aui8Image.begin() + static_cast<ptrdiff_t>(i));
            ASSERT_NO_FATAL_FAILURE(LoadAndRead(aui8Cut, 0)) << sName << " cut to " << i;
        }
    }
}

// A base block whose last two bytes and what lies behind them in the object look like a fifth descriptor, which no
// sanitizer tells from the object's own.
class CBaseWithMemoryBehind : public CEdidBase
{
public:
    // uiBehind: bytes 128 to 131 of a block that had them, little-endian.
    CBaseWithMemoryBehind(const CBytes& aui8Block, unsigned int uiBehind)
    {
        SetEdidBuffer(aui8Block.data(), static_cast<unsigned int>(aui8Block.size()), 0);
        std::fill(std::begin(m_auiEstablishedMask), std::end(m_auiEstablishedMask), uiBehind);
    }
};

TEST(FifthDescriptor, IsNoTimingAndNoText)
{
    // No preferred timing; four empty display descriptors, as which bytes 126 and 127 begin.
    CBytes aui8Block = ParseBytes("00 FF*6 00 06 10 01 00 01 00*3 01 1E ..57 10 ..75 10 ..93 10 ..111 10 ..128");
    for (const unsigned int uiTag : { 0xFAU, 0xFCU, 0xFDU, 0xFEU, 0xFFU })
    {
        const CBaseWithMemoryBehind oText(aui8Block, uiTag << 8 | 'A' << 24);
        char szText[14] = {};
        CEdidBase::SRangeLimits oLimits = {};
        CVidParamTimingGeneric oTiming;
        EXPECT_EQ(0, oText.GetMonitorName(szText, sizeof(szText)) + oText.GetMonitorString(szText, sizeof(szText)) +
                         oText.GetMonitorSerialNumber(szText, sizeof(szText)) + oText.GetMonitorRangeLimits(oLimits) +
                         oText.GetExtraStdTiming(0, oTiming));
    }
    aui8Block[126] = 0x3A; // the pixel clock of a detailed timing
    CBaseWithMemoryBehind oTimed(FixChecksums(aui8Block), 0x38711880);
    EXPECT_EQ(0U, oTimed.GetDetailedCount());
    EXPECT_EQ(0, oTimed.GetDetailed(0, nullptr) + oTimed.RemoveDetailed(0));
}
}
