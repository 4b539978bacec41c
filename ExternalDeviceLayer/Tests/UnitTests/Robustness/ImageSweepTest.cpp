// Everything read, every edit at every index, and stripping, over the images of the self-check and real ones; edits of
// damaged blocks. Each keeps its promises.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "EditRunner.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"

namespace
{
using Runner = CEditRunner;

constexpr unsigned int gsc_uiMostBlocks = 3; // edits go to that many extension blocks

// Each serves as an audio descriptor, a speaker mask, a depth, a serial number; the last is refused as a descriptor.
constexpr unsigned int gsc_auiValues[] = { 0x00020E42, 0xFFFFFFFF, 0x3 };

void Load(Runner& oRunner, const CBytes& aui8Image)
{
    oRunner.Load(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()));
}

void Apply(Runner& oRunner, const SEditStep& oStep)
{
    const char* pszBroken = oRunner.Apply(oStep);
    ASSERT_EQ(nullptr, pszBroken) << pszBroken << ": operation " << oStep.m_uiOperation << ", block " << oStep.m_uiBlock
                                  << ", index " << oStep.m_uiIndex << ", value " << oStep.m_uiValue;
}

// Each edit on a fresh copy of the image.
void RunAllEdits(const CBytes& aui8Image)
{
    Runner oFirst;
    Load(oFirst, aui8Image);
    const unsigned int uiBlocks = std::clamp(oFirst.GetEdid().GetExtensionCount(), 1U, gsc_uiMostBlocks);
    SEditStep oStep = {};
    for (; oStep.m_uiOperation < Runner::eEdit_RemoveDataRange; ++oStep.m_uiOperation)
    {
        const bool bOfBlock = oStep.m_uiOperation >= Runner::eEdit_BlockRemoveStandard;
        const size_t uiValues = Runner::UsesValue(oStep.m_uiOperation) ? std::size(gsc_auiValues) : 1;
        for (oStep.m_uiBlock = 0; oStep.m_uiBlock < (bOfBlock ? uiBlocks : 1); ++oStep.m_uiBlock)
        {
            const unsigned int uiIndexes = oFirst.GetIndexCount(oStep.m_uiOperation);
            for (size_t i = 0; i < uiIndexes * uiValues; ++i)
            {
                oStep.m_uiIndex = static_cast<unsigned int>(i / uiValues);
                oStep.m_uiValue = gsc_auiValues[i % uiValues];
                Runner oRunner;
                Load(oRunner, aui8Image);
                ASSERT_NO_FATAL_FAILURE(Apply(oRunner, oStep));
            }
        }
    }
}

// Each edit of a block behind a removal of a table timing, which leaves lists behind the bytes, and both once more.
void RunEditsBehindARemoval(const CBytes& aui8Image)
{
    Runner oRunner;
    for (unsigned int i = Runner::eEdit_BlockRemoveStandard; i < Runner::eEdit_RemoveDataRange; ++i)
    {
        Load(oRunner, aui8Image);
        for (const unsigned int uiOperation :
             { unsigned{ Runner::eEdit_BlockRemoveStandard }, i, unsigned{ Runner::eEdit_BlockRemoveStandard }, i })
        {
            ASSERT_NO_FATAL_FAILURE(Apply(oRunner, { uiOperation, 0, 0, gsc_auiValues[0] }));
        }
    }
}

// Edits one after the other, each until it is refused; removals until nothing is left, additions until none fits.
void RunDown(const CBytes& aui8Image)
{
    const SEditStep aoSteps[] = {
        { Runner::eEdit_AddAudio, 0, 0, 0x00020E42 },   { Runner::eEdit_AddSpeaker, 0, 0, 0x7FF },
        { Runner::eEdit_AddVendorSpecific, 0, 0, 0 },   { Runner::eEdit_BlockRemoveDetailed, 0, 0, 0 },
        { Runner::eEdit_RemoveAudio, 0, 0, 0 },         { Runner::eEdit_AddAudio, 0, 0, 0x00020E42 },
        { Runner::eEdit_RemoveSpeaker, 0, 0, 0 },       { Runner::eEdit_RemoveStandard, 0, 0, 0 },
        { Runner::eEdit_RemoveDetailed, 0, 1, 0 },      { Runner::eEdit_Reload, 0, 0, 0 },
        { Runner::eEdit_BlockRemoveStandard, 0, 0, 0 }, { Runner::eEdit_RemoveDetailed, 0, 0, 0 },
    };
    Runner oRunner;
    Load(oRunner, aui8Image);
    for (const SEditStep& oStep : aoSteps)
    {
        unsigned int uiBefore = 0;
        unsigned int uiRuns = 0;
        do
        {
            uiBefore = oRunner.GetSuccessCount();
            ASSERT_NO_FATAL_FAILURE(Apply(oRunner, oStep));
        } while (oRunner.GetSuccessCount() != uiBefore && ++uiRuns < 64);
    }
    ReadEverything(oRunner.GetEdid());
}

// Audio blocks go with bit 0, speaker blocks with bit 4; the other lists stay.
void RunStrips(const CBytes& aui8Image)
{
    CEdid oWhole;
    LoadExact(oWhole, aui8Image);
    for (unsigned int uiFlags = 0; uiFlags < 64; ++uiFlags)
    {
        SCOPED_TRACE(testing::Message() << "strip flags " << uiFlags);
        CEdid oStripped;
        CEdid oAgain;
        ASSERT_EQ(1, LoadExact(oStripped, aui8Image, uiFlags));
        ASSERT_EQ(1, LoadExact(oAgain, Serialise(oStripped)));
        for (unsigned int i = 1; i <= oWhole.GetExtensionCount(); ++i)
        {
            CLists aoExpected = GetLists(oWhole, i);
            aoExpected[eList_Audio].resize((uiFlags & 0x01) != 0 ? 0 : aoExpected[eList_Audio].size());
            aoExpected[eList_Speaker].resize((uiFlags & 0x10) != 0 ? 0 : aoExpected[eList_Speaker].size());
            const bool bTidy = IsTidy(oWhole.GetExtension(i - 1)->GetData());
            ASSERT_TRUE(!bTidy || aoExpected == GetLists(oStripped, i));
            ASSERT_TRUE(!bTidy || IsTidy(oStripped.GetExtension(i - 1)->GetData()));
            ASSERT_EQ(GetLists(oAgain, i), GetLists(oStripped, i));
        }
    }
}

class ImageSweep : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        if (m_aoImages.empty())
        {
            GTEST_SKIP() << "no folder with real images";
        }
    }

    const CQuietMessages m_oQuiet;
    const std::vector<SCorpusImage> m_aoImages = GetImages(GetParam());
};

INSTANTIATE_TEST_SUITE_P(SelfCheck, ImageSweep, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Corpus, ImageSweep, testing::Values(true));

TEST_P(ImageSweep, ReadTwiceAndFromWhatIsWritten)
{
    for (const SCorpusImage& oImage : m_aoImages)
    {
        SCOPED_TRACE(oImage.m_sName);
        CEdid oEdid;
        CEdid oAgain;
        ASSERT_EQ(1, LoadExact(oEdid, oImage.m_aui8Data));
        ASSERT_EQ(1, LoadExact(oAgain, Serialise(oEdid)));
        const unsigned long long ullDigest = ReadEverything(oEdid);
        ASSERT_EQ(ullDigest, ReadEverything(oEdid));
        ASSERT_EQ(ullDigest, ReadEverything(oAgain));
    }
}

TEST_P(ImageSweep, EveryEdit)
{
    for (const SCorpusImage& oImage : m_aoImages)
    {
        SCOPED_TRACE(oImage.m_sName);
        for (auto* pfnRun : { RunAllEdits, RunEditsBehindARemoval, RunDown, RunStrips })
        {
            ASSERT_NO_FATAL_FAILURE(pfnRun(oImage.m_aui8Data));
        }
    }
}

// The edits of a damaged block by itself, one after the other, beginning anywhere. All promises where bApply says so,
// which is slow; else that a refusal changes no byte and that a success leaves a block that loads.
void RunEditsOfDamage(Runner& oRunner, unsigned int uiFirst, bool bApply)
{
    constexpr unsigned int uiCount = Runner::eEdit_RemoveDataRange - Runner::eEdit_BlockRemoveDetailed;
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        const SEditStep oStep = { Runner::eEdit_BlockRemoveDetailed + (uiFirst + i) % uiCount, 0, 0, gsc_auiValues[0] };
        if (bApply)
        {
            ASSERT_NO_FATAL_FAILURE(Apply(oRunner, oStep));
            continue;
        }
        const CEdidExtBlock& oBlock = *oRunner.GetEdid().GetExtension(0);
        const CBytes aui8Before = GetBytes(oBlock);
        ASSERT_TRUE(oRunner.Run(oStep) != 0 || GetBytes(oBlock) == aui8Before) << i;
        ASSERT_TRUE(CEdidExtBlockCEA861::IsSupported(128, oBlock.GetData()) != 0) << i;
    }
}

// Byte 2 and the first header take every value, in front of the bytes of a real block.
TEST(DamagedBlockSweep, EveryByte2AndFirstHeader)
{
    const CQuietMessages oQuiet;
    CBytes aui8Image = MakeEdid({ CBytes(gsc_aui8Philips288P6.begin() + gsc_uiExt, gsc_aui8Philips288P6.end()) });
    for (unsigned int i = 0; i < 256 * 256; ++i)
    {
        const unsigned int uiByte2 = i / 256;
        const unsigned int uiHeader = i % 256;
        SCOPED_TRACE(testing::Message() << "byte 2: " << uiByte2 << ", header: " << uiHeader);
        aui8Image[gsc_uiBlockSize + 2] = static_cast<unsigned char>(uiByte2);
        aui8Image[gsc_uiBlockSize + 4] = static_cast<unsigned char>(uiHeader);
        FixBlockSum(aui8Image, 1);
        if (i % 997 == 0)
        {
            ASSERT_NO_FATAL_FAILURE(RunStrips(aui8Image));
        }
        Runner oRunner;
        Load(oRunner, aui8Image);
        const CEdidExtBlock& oBlock = *oRunner.GetEdid().GetExtension(0);
        // Reading all lists back is slow; one header in sixteen, shifting with byte 2, still meets every tag.
        const bool bApply = (uiByte2 + uiHeader) % 16 == 0;
        ASSERT_NO_FATAL_FAILURE(RunEditsOfDamage(oRunner, 0, bApply));
        while (oRunner.Run({ Runner::eEdit_BlockRemoveStandard, 0, oBlock.GetStandardCount() / 2, 0 }) != 0)
        {
            ASSERT_TRUE(oBlock.IsChecksumValid() != 0);
        }
        ASSERT_NO_FATAL_FAILURE(RunEditsOfDamage(oRunner, i, false)); // the first over lists that are behind
        oRunner.Run({ Runner::eEdit_RemoveDataRange, 0, uiByte2, uiHeader });
        oRunner.Run({ Runner::eEdit_PadDataRange, 0, uiHeader, uiByte2 });
    }
}

TEST(EditedBlock, ListsAreAllocatedOnceEach)
{
    // Video, audio, speakers, four HDMI codes, four descriptors.
    const unsigned char* pui8Data = ExtStandard2::g_auiStandard2EdidData.data() + gsc_uiExt;
    const auto oAudio = CEdidExtBlockCEA861::SAudioDescriptor{ CEdidExtBlockCEA861::eAudioFormat_Pcm, 2, {}, 7 };
    CCountingAllocator oAllocator;
    CEdidExtBlockCEA861 oBlock(128, pui8Data, 0);
    // The bytes, five lists, and the HDMI view's own list; there is nothing in YCbCr 4:2:0.
    EXPECT_EQ(7U, oAllocator.GetAllocCount());
    EXPECT_EQ(1, oBlock.SetAudioDescriptor(0, &oAudio));
    EXPECT_EQ(1, oBlock.RemoveDetailed(0));
    EXPECT_EQ(7U, oAllocator.GetAllocCount()) << "a list that does not grow keeps its memory";
    EXPECT_EQ(1, oBlock.AddAudioDescriptor(&oAudio));
    EXPECT_EQ(8U, oAllocator.GetAllocCount());
}
} // namespace
