// Every edit at every index over the images of the self-check and over real ones, edits of damaged blocks, and
// stripping, each keeping its promises.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "EditRunner.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"
#include "SharedFiles.h"

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

// What was added and is taken out again leaves no trace, but for the flag of basic audio.
void RunAdditionsAndBack(const CBytes& aui8Image)
{
    for (const EList eList : { eList_Audio, eList_Speaker })
    {
        const unsigned int uiAdd = eList == eList_Audio ? Runner::eEdit_AddAudio : Runner::eEdit_AddSpeaker;
        const unsigned int uiRemove = eList == eList_Audio ? Runner::eEdit_RemoveAudio : Runner::eEdit_RemoveSpeaker;
        Runner oRunner;
        Load(oRunner, aui8Image);
        const CEdidExtBlock* poBlock = oRunner.GetEdid().GetExtension(0);
        if (poBlock == nullptr || !IsTidy(poBlock->GetData()) || poBlock->GetRevision() != 3)
        {
            return;
        }
        const CBytes aui8Before = GetBytes(*poBlock);
        const CList aoBefore = GetLists(*poBlock)[eList];
        ASSERT_NO_FATAL_FAILURE(Apply(oRunner, { uiAdd, 0, 0, gsc_auiValues[0] }));
        if (oRunner.GetSuccessCount() == 0)
        {
            continue; // no room
        }
        const CList aoNow = GetLists(*poBlock)[eList];
        const auto itAdded = std::mismatch(aoBefore.begin(), aoBefore.end(), aoNow.begin(), aoNow.end()).second;
        const unsigned int uiAdded = static_cast<unsigned int>(itAdded - aoNow.begin());
        ASSERT_NO_FATAL_FAILURE(Apply(oRunner, { uiRemove, 0, uiAdded, 0 }));
        CBytes aui8After = GetBytes(*poBlock);
        aui8After[3] = aui8Before[3]; // a removal clears it only when no sound is left
        ASSERT_EQ(aui8Before, FixChecksums(aui8After));
    }
}

// Audio blocks go with bit 0, speaker blocks with bit 4; the other lists stay.
void ExpectStripped(const CBytes& aui8Image, unsigned int uiFlags)
{
    SCOPED_TRACE(testing::Message() << "strip flags " << uiFlags);
    CEdid oWhole;
    CEdid oStripped;
    CEdid oAgain;
    ASSERT_EQ(1, LoadExact(oWhole, aui8Image));
    ASSERT_EQ(1, LoadExact(oStripped, aui8Image, uiFlags));
    ASSERT_EQ(1, LoadExact(oAgain, Serialise(oStripped)));
    ASSERT_EQ(oWhole.GetExtensionCount(), oAgain.GetExtensionCount());
    for (unsigned int i = 0; i < oWhole.GetExtensionCount(); ++i)
    {
        const CEdidExtBlock& oBlock = *oStripped.GetExtension(i);
        const CBytes aui8Block = GetBytes(*oWhole.GetExtension(i));
        CLists aoExpected = GetLists(*oWhole.GetExtension(i));
        aoExpected[eList_Audio].resize((uiFlags & 0x01) != 0 ? 0 : aoExpected[eList_Audio].size());
        aoExpected[eList_Speaker].resize((uiFlags & 0x10) != 0 ? 0 : aoExpected[eList_Speaker].size());
        ASSERT_EQ(GetBytes(oBlock) != aui8Block, oBlock.IsStripped() != 0);
        ASSERT_EQ(GetLists(*oAgain.GetExtension(i)), GetLists(oBlock));
        ASSERT_TRUE(!IsTidy(aui8Block.data()) || (aoExpected == GetLists(oBlock) && IsTidy(oBlock.GetData())));
    }
}

void SweepEdits(const CBytes& aui8Image)
{
    const CQuietMessages oQuiet;
    ASSERT_NO_FATAL_FAILURE(RunAllEdits(aui8Image));
    ASSERT_NO_FATAL_FAILURE(RunEditsBehindARemoval(aui8Image));
    ASSERT_NO_FATAL_FAILURE(RunDown(aui8Image));
    ASSERT_NO_FATAL_FAILURE(RunAdditionsAndBack(aui8Image));
    ASSERT_NO_FATAL_FAILURE(ExpectStripped(aui8Image, 0x11));
}

TEST(EditSweep, EveryEditOfTheSelfChecksImages)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        SCOPED_TRACE(oImage.m_pszName);
        ASSERT_NO_FATAL_FAILURE(SweepEdits(ToBytes(*oImage.m_paui8Image)));
    }
    ASSERT_NO_FATAL_FAILURE(SweepEdits(MakeImageWithAllBlocks()));
    CBytes aui8Image = MakeImageWithDisplayDescriptor();
    ++aui8Image[gsc_uiBlockSize - 1]; // a wrong checksum, which the edits of the base block mend
    ASSERT_NO_FATAL_FAILURE(SweepEdits(aui8Image));
}

TEST(CorpusSweep, EveryEdit)
{
    const auto aoImages = ReadCorpus();
    if (aoImages.empty())
    {
        GTEST_SKIP() << "no folder with real images";
    }
    for (const SCorpusImage& oImage : aoImages)
    {
        SCOPED_TRACE(oImage.m_sName);
        ASSERT_NO_FATAL_FAILURE(SweepEdits(oImage.m_aui8Data));
    }
}

TEST(EditSweep, EveryStripFlag)
{
    const CQuietMessages oQuiet;
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        for (unsigned int i = 0; i < 256; ++i)
        {
            ASSERT_NO_FATAL_FAILURE(ExpectStripped(ToBytes(*oImage.m_paui8Image), i)) << oImage.m_pszName;
        }
    }
}

// The edits of a damaged block by itself, one after the other. All promises where bApply says so, which is slow; else
// that a refusal changes no byte and that a success leaves a block that loads.
void RunEditsOfDamage(Runner& oRunner, bool bApply)
{
    for (unsigned int i = Runner::eEdit_BlockRemoveDetailed; i < Runner::eEdit_RemoveDataRange; ++i)
    {
        if (bApply)
        {
            ASSERT_NO_FATAL_FAILURE(Apply(oRunner, { i, 0, 0, gsc_auiValues[0] }));
            continue;
        }
        const CEdidExtBlock& oBlock = *oRunner.GetEdid().GetExtension(0);
        const CBytes aui8Before = GetBytes(oBlock);
        ASSERT_TRUE(oRunner.Run({ i, 0, 0, gsc_auiValues[0] }) != 0 || GetBytes(oBlock) == aui8Before) << i;
        ASSERT_TRUE(CEdidExtBlockCEA861::IsSupported(128, oBlock.GetData()) != 0) << i;
    }
}

// Byte 2 and the first header take every value, in front of the bytes of a real block.
TEST(EditSweep, EveryByte2AndFirstHeader)
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
        if (uiHeader % 16 == 0)
        {
            ASSERT_NO_FATAL_FAILURE(ExpectStripped(aui8Image, 0x37));
        }
        Runner oRunner;
        Load(oRunner, aui8Image);
        const CEdidExtBlock& oBlock = *oRunner.GetEdid().GetExtension(0);
        // Reading all lists back is slow; one header in sixteen, shifting with byte 2, still meets every tag.
        const bool bApply = (uiByte2 + uiHeader) % 16 == 0;
        ASSERT_NO_FATAL_FAILURE(RunEditsOfDamage(oRunner, bApply));
        while (oRunner.Run({ Runner::eEdit_BlockRemoveStandard, 0, oBlock.GetStandardCount() / 2, 0 }) != 0)
        {
            ASSERT_TRUE(oBlock.IsChecksumValid() != 0);
        }
        ASSERT_NO_FATAL_FAILURE(RunEditsOfDamage(oRunner, false)); // the first of them over lists that are behind
        oRunner.Run({ Runner::eEdit_RemoveDataRange, 0, uiByte2, uiHeader });
        oRunner.Run({ Runner::eEdit_PadDataRange, 0, uiHeader, uiByte2 });
    }
}

TEST(EditSweep, ListsAreAllocatedOnceEach)
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
}
