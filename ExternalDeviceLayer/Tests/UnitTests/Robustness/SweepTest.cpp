// Damage and truncation of every image of the self-check, everything read. Meant for the sanitizer build.

#include <gtest/gtest.h>
#include <string.h>

#include <algorithm>
#include <memory>
#include <set>

#include "CapturedOutput.h"
#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"

namespace
{
// Blocks are read independently of each other. So damage goes through each block that occurs in the images, once:
// base blocks alone, extension blocks behind a base block with little in it, which keeps the sweep short.
std::set<CBytes> GetBaseBlocks()
{
    std::set<CBytes> aaui8Blocks;
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        CBytes aui8Block = ToBytes(*oImage.m_paui8Image);
        aui8Block.resize(gsc_uiBlockSize);
        aui8Block[126] = 0;
        FixBlockSum(aui8Block, 0);
        aaui8Blocks.insert(aui8Block);
    }
    return aaui8Blocks;
}

std::set<CBytes> GetExtensionImages()
{
    const CQuietMessages oQuiet;
    CBytes aui8Base = *GetBaseBlocks().begin();
    std::fill(aui8Base.begin() + 35, aui8Base.begin() + 38, static_cast<unsigned char>(0));    // no established,
    std::fill(aui8Base.begin() + 38, aui8Base.begin() + 54, static_cast<unsigned char>(0x01)); // no standard timings
    aui8Base[126] = 1;
    FixBlockSum(aui8Base, 0);

    std::set<CBytes> aaui8Images;
    const auto AddBlock = [&](auto itBlock) {
        CBytes aui8Image = aui8Base;
        aui8Image.insert(aui8Image.end(), itBlock, itBlock + gsc_uiBlockSize);
        CEdid oEdid;
        oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0);
        if (oEdid.GetExtensionCount() == 1) // some images have no block there, or a broken one
        {
            aaui8Images.insert(aui8Image);
        }
    };
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        AddBlock(oImage.m_paui8Image->begin() + gsc_uiBlockSize);
    }
    AddBlock(MakeFullDisplayIdBlock().begin());
    return aaui8Images;
}

// What a byte is damaged to: four values that break limits and signs, and each bit flipped.
std::set<unsigned char> GetDamage(unsigned char ui8Byte)
{
    std::set<unsigned char> aui8Values = { 0x00, 0x7F, 0x80, 0xFF };
    for (unsigned int uiBit = 0; uiBit < 8; ++uiBit)
    {
        aui8Values.insert(static_cast<unsigned char>(ui8Byte ^ 1U << uiBit));
    }
    aui8Values.erase(ui8Byte);
    return aui8Values;
}

// Loads from heap memory of exactly the image's size.
int Load(CEdid& oEdid, const CBytes& aui8Image, size_t uiSize, unsigned int uiStripFlags = 0)
{
    const std::unique_ptr<unsigned char[]> pui8Exact(new unsigned char[uiSize]);
    std::copy_n(aui8Image.begin(), uiSize, pui8Exact.get());
    return oEdid.SetEdidBuffer(pui8Exact.get(), static_cast<unsigned int>(uiSize), uiStripFlags);
}

// The last block of the image with one byte damaged. Repaired, it is read in full. Not repaired, a base block loads and
// is told of by its checksum, an extension block is dropped.
void SweepLastBlock(const CBytes& aui8Good, int& iLoads)
{
    const CQuietMessages oQuiet;
    const size_t uiBlock = aui8Good.size() / gsc_uiBlockSize - 1;
    for (size_t i = uiBlock * gsc_uiBlockSize; i < aui8Good.size(); ++i)
    {
        for (const unsigned char ui8Value : GetDamage(aui8Good[i]))
        {
            SCOPED_TRACE(testing::Message() << "byte " << i << " is " << static_cast<unsigned int>(ui8Value));
            CBytes aui8Damaged = aui8Good;
            aui8Damaged[i] = ui8Value;
            const bool bHeader = uiBlock == 0 && i < 8;

            CEdid oEdid;
            ASSERT_EQ(bHeader ? 0 : 1, Load(oEdid, aui8Damaged, aui8Damaged.size()));
            ++iLoads;
            ASSERT_EQ(uiBlock == 0, bHeader || oEdid.IsChecksumValid() == 0);
            ASSERT_EQ(0U, oEdid.GetExtensionCount());
            if (uiBlock == 0)
            {
                ReadEverything(oEdid); // with a wrong checksum, or empty
            }

            if (i + 1 == aui8Good.size())
            {
                continue; // the checksum itself
            }
            FixBlockSum(aui8Damaged, uiBlock);
            ASSERT_EQ(bHeader ? 0 : 1, Load(oEdid, aui8Damaged, aui8Damaged.size()));
            ++iLoads;
            ReadEverything(oEdid);
            if (!bHeader)
            {
                const CBytes aui8Written = Serialise(oEdid);
                ASSERT_TRUE(std::equal(aui8Written.begin(), aui8Written.end(), aui8Damaged.begin()));
                ASSERT_EQ(oEdid.GetExtensionCount() + 1, aui8Written.size() / gsc_uiBlockSize);
            }
        }
    }
}

TEST(DamageSweep, BaseBlocks)
{
    int iLoads = 0;
    for (const CBytes& aui8Image : GetBaseBlocks())
    {
        ASSERT_NO_FATAL_FAILURE(SweepLastBlock(aui8Image, iLoads));
    }
    RecordProperty("loads", iLoads);
}

// In four parts, so that they can run side by side.
class ExtensionDamageSweep : public testing::TestWithParam<size_t>
{
};

TEST_P(ExtensionDamageSweep, ExtensionBlocks)
{
    int iLoads = 0;
    size_t uiImage = 0;
    for (const CBytes& aui8Image : GetExtensionImages())
    {
        if (uiImage++ % 4 == GetParam())
        {
            ASSERT_NO_FATAL_FAILURE(SweepLastBlock(aui8Image, iLoads));
        }
    }
    RecordProperty("loads", iLoads);
}

INSTANTIATE_TEST_SUITE_P(Quarters, ExtensionDamageSweep, testing::Values(0, 1, 2, 3));

// Byte 126 announces blocks that are not there, or fewer than there are.
TEST(DamageSweep, EveryNumberOfAnnouncedBlocks)
{
    const CQuietMessages oQuiet;
    CBytes aui8Image = MakeImageWithAllBlocks();
    for (unsigned int uiAnnounced = 0; uiAnnounced < 256; ++uiAnnounced)
    {
        aui8Image[126] = static_cast<unsigned char>(uiAnnounced);
        FixBlockSum(aui8Image, 0);
        CEdid oEdid;
        ASSERT_EQ(1, Load(oEdid, aui8Image, aui8Image.size()));
        ASSERT_EQ(std::min(uiAnnounced, 2U), oEdid.GetExtensionCount());
        ReadEverything(oEdid);
    }
}

TEST(DamageSweep, EveryStripFlag)
{
    const CQuietMessages oQuiet;
    for (const CBytes& aui8Image : GetExtensionImages())
    {
        for (unsigned int uiFlags = 0; uiFlags < 256; ++uiFlags)
        {
            CEdid oEdid;
            ASSERT_EQ(1, Load(oEdid, aui8Image, aui8Image.size(), uiFlags));
            ASSERT_TRUE(oEdid.IsChecksumValid());
            ASSERT_EQ(2 * gsc_uiBlockSize, Serialise(oEdid).size());
            if (uiFlags % 64 == (CEdidExtBlockCEA861::eStrip_Audio | CEdidExtBlockCEA861::eStrip_Speaker))
            {
                ReadEverything(oEdid);
            }
        }
    }
}

// Only whole blocks load; what does leaves an object that works.
TEST(TruncationSweep, EveryLength)
{
    const CQuietMessages oQuiet;
    std::set<CBytes> aaui8Images = GetExtensionImages();
    aaui8Images.insert(MakeImageWithAllBlocks());
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        aaui8Images.insert(ToBytes(*oImage.m_paui8Image));
    }
    for (const CBytes& aui8Image : aaui8Images)
    {
        CEdid oEdid;
        Load(oEdid, aui8Image, aui8Image.size());
        const size_t uiLoaded = oEdid.GetSize(); // the second block of some is none
        for (size_t uiSize = 0; uiSize <= aui8Image.size(); ++uiSize)
        {
            ASSERT_EQ(uiSize % gsc_uiBlockSize == 0 ? 1 : 0, Load(oEdid, aui8Image, uiSize)) << uiSize;
            ASSERT_EQ(uiSize % gsc_uiBlockSize == 0 ? std::min(uiSize, uiLoaded) : 0, oEdid.GetSize()) << uiSize;
            if (uiSize % gsc_uiBlockSize < 2)
            {
                ReadEverything(oEdid);
            }
        }
    }
}

TEST(ReadEverythingTwice, GivesTheSameAnswers)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        CEdid oFirst;
        CEdid oSecond;
        Load(oFirst, ToBytes(*oImage.m_paui8Image), oImage.m_paui8Image->size());
        Load(oSecond, ToBytes(*oImage.m_paui8Image), oImage.m_paui8Image->size());
        const unsigned long long ullDigest = ReadEverything(oFirst);
        EXPECT_EQ(ullDigest, ReadEverything(oFirst)) << oImage.m_pszName;
        EXPECT_EQ(ullDigest, ReadEverything(oSecond)) << oImage.m_pszName;
    }
}
}
