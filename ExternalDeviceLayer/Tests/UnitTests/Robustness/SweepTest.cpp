// Damage and truncation of every image of the self-check, everything read. Meant for the sanitizer build.

#include <gtest/gtest.h>

#include <set>

#include "CapturedOutput.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"

namespace
{
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

        const CBytes aui8Image = MakeEdid({ CBytes(itExtension, oImage.m_paui8Image->end()) });
        CEdid oEdid;
        LoadExact(oEdid, aui8Image);
        if (oEdid.GetExtensionCount() == 1) // some images have no block there, or a broken one
        {
            aaui8Images.insert(aui8Image);
        }
    }
    return aaui8Images;
}

// What a byte is damaged to: four values that break limits and signs, and each bit flipped.
std::set<unsigned char> GetDamage(unsigned char ui8Byte)
{
    std::set<unsigned char> aui8Values = { 0x00, 0x7F, 0x80, 0xFF };
    for (unsigned int uiBit = 1; uiBit < 256; uiBit *= 2)
    {
        aui8Values.insert(static_cast<unsigned char>(ui8Byte ^ uiBit));
    }
    aui8Values.erase(ui8Byte);
    return aui8Values;
}

// The last block of the image with one byte damaged. Repaired, it is read in full. Not repaired, a base block loads,
// and its checksum says so; an extension block is dropped.
void SweepLastBlock(const CBytes& aui8Good)
{
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
            ASSERT_EQ(bHeader ? 0 : 1, LoadExact(oEdid, aui8Damaged));
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
            ASSERT_EQ(bHeader ? 0 : 1, LoadExact(oEdid, aui8Damaged));
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

// In parts, so that they can run side by side.
class DamageSweep : public testing::TestWithParam<size_t>
{
};

TEST_P(DamageSweep, EveryByteOfEveryBlock)
{
    const CQuietMessages oQuiet;
    size_t uiImage = GetParam();
    for (const CBytes& aui8Image : GetBlocksToDamage())
    {
        if (uiImage++ % 4 == 0)
        {
            ASSERT_NO_FATAL_FAILURE(SweepLastBlock(aui8Image));
        }
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
        CEdid oEdid;
        ASSERT_EQ(1, LoadExact(oEdid, aui8Image));
        ASSERT_EQ(std::min(i, 2U), oEdid.GetExtensionCount());
        ReadEverything(oEdid);
    }
}

// Only whole blocks load; what does leaves an object that works.
TEST(TruncationSweep, EveryLength)
{
    const CQuietMessages oQuiet;
    for (const SCorpusImage& oImage : GetImages(false))
    {
        SCOPED_TRACE(oImage.m_sName);
        CEdid oEdid;
        LoadExact(oEdid, oImage.m_aui8Data);
        const size_t uiLoaded = oEdid.GetSize(); // the second block of some is none
        for (size_t i = 0; i <= oImage.m_aui8Data.size(); ++i)
        {
            const bool bWhole = i % gsc_uiBlockSize == 0;
            const CBytes aui8Cut(oImage.m_aui8Data.begin(), oImage.m_aui8Data.begin() + static_cast<ptrdiff_t>(i));
            ASSERT_EQ(bWhole ? 1 : 0, LoadExact(oEdid, aui8Cut)) << i;
            ASSERT_EQ(bWhole ? std::min(i, uiLoaded) : 0, oEdid.GetSize()) << i;
            if (i % gsc_uiBlockSize < 2)
            {
                ReadEverything(oEdid);
            }
        }
    }
}
} // namespace
