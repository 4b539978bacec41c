// Everything read, every edit at every index, and stripping, over the images of the self-check and real ones; edits of
// damaged blocks. Each keeps its promises.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "EditRunner.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"

namespace
{
using Runner = CEditRunner;

constexpr unsigned int gsc_uiMostBlocks = 3; // edits go to that many extension blocks

// Each serves as an audio descriptor, a speaker mask, a depth, a serial number; the last is refused as a descriptor.
constexpr unsigned int gsc_auiValues[] = { 0x00020E42, 0xFFFFFFFF, 0x3 };

void Apply(Runner& oRunner, const SEditStep& oStep)
{
    ASSERT_EQ("", oRunner.Apply(oStep)) << "operation " << oStep.m_uiOperation << ", block " << oStep.m_uiBlock
                                        << ", index " << oStep.m_uiIndex << ", value " << oStep.m_uiValue;
}

void ReadTwiceAndFromWhatIsWritten(const CBytes& aui8Image)
{
    CEdid oEdid;
    CEdid oAgain;
    ASSERT_EQ(1, LoadExact(oEdid, aui8Image));
    ASSERT_EQ(1, LoadExact(oAgain, Serialise(oEdid)));
    const unsigned long long ullDigest = ReadEverything(oEdid);
    ASSERT_EQ(ullDigest, ReadEverything(oEdid));
    ASSERT_EQ(ullDigest, ReadEverything(oAgain));
}

// Each edit on a fresh copy of the image.
void RunAllEdits(const CBytes& aui8Image)
{
    Runner oFirst;
    oFirst.Load(aui8Image);
    const unsigned int uiBlocks = std::clamp(oFirst.GetEdid().GetExtensionCount(), 1U, gsc_uiMostBlocks);
    for (unsigned int i = 0; i < Runner::eEdit_RemoveDataRange; ++i)
    {
        const unsigned int uiPlaces = i >= Runner::eEdit_FirstOfBlock ? uiBlocks : 1;
        const unsigned int uiValues = Runner::UsesValue(i) ? 3 : 1;
        for (unsigned int j = 0; j < uiPlaces * oFirst.GetIndexCount(i) * uiValues; ++j)
        {
            Runner oRunner;
            oRunner.Load(aui8Image);
            ASSERT_NO_FATAL_FAILURE(
                Apply(oRunner, { i, j % uiPlaces, j / uiPlaces / uiValues, gsc_auiValues[j / uiPlaces % uiValues] }));
        }
    }
}

// Edits one after the other, each until it changes nothing, but at most so often.
void RunProgram(const CBytes& aui8Image, const std::vector<unsigned int>& auiOperations, unsigned int uiMost)
{
    Runner oRunner;
    oRunner.Load(aui8Image);
    for (const unsigned int uiOperation : auiOperations)
    {
        unsigned int uiBefore = oRunner.GetChangeCount() - 1;
        for (unsigned int i = 0; i < uiMost && oRunner.GetChangeCount() != uiBefore; ++i)
        {
            uiBefore = oRunner.GetChangeCount();
            ASSERT_NO_FATAL_FAILURE(Apply(oRunner, { uiOperation, 0, 0, gsc_auiValues[0] }));
        }
    }
    ReadEverything(oRunner.GetEdid());
}

// Each edit of a block behind a removal of a table timing, which leaves lists behind the bytes, and both once more;
// removals until nothing is left, and additions until none fits, the last first and the other way round.
void RunPrograms(const CBytes& aui8Image)
{
    std::vector<unsigned int> auiAll(Runner::eEdit_RemoveDataRange);
    std::iota(auiAll.begin(), auiAll.end(), 0U);
    constexpr unsigned int uiRemoval = Runner::eEdit_FirstOfBlock;
    for (unsigned int i = uiRemoval; i < auiAll.size(); ++i)
    {
        ASSERT_NO_FATAL_FAILURE(RunProgram(aui8Image, { uiRemoval, i, uiRemoval, i }, 1));
    }
    ASSERT_NO_FATAL_FAILURE(RunProgram(aui8Image, { auiAll.rbegin(), auiAll.rend() }, 64));
    auiAll.push_back(Runner::eEdit_Reload);
    RunProgram(aui8Image, auiAll, 64);
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
        std::vector<CLists> aoExpected = GetLists(oWhole);
        const std::vector<CLists> aoStripped = GetLists(oStripped);
        ASSERT_EQ(GetLists(oAgain), aoStripped);
        for (unsigned int i = 1; i < aoExpected.size(); ++i)
        {
            aoExpected[i][eList_Audio].resize((uiFlags & 0x01) != 0 ? 0 : aoExpected[i][eList_Audio].size());
            aoExpected[i][eList_Speaker].resize((uiFlags & 0x10) != 0 ? 0 : aoExpected[i][eList_Speaker].size());
            ASSERT_TRUE(!IsTidy(oWhole.GetExtension(i - 1)->GetData()) ||
                        (aoExpected[i] == aoStripped[i] && IsTidy(oStripped.GetExtension(i - 1)->GetData())));
        }
    }
}

void Sweep(const std::map<std::string, CBytes>& oImages)
{
    const CQuietMessages oQuiet;
    for (const auto& [sName, aui8Image] : oImages)
    {
        SCOPED_TRACE(sName);
        for (auto* pfnRun : { ReadTwiceAndFromWhatIsWritten, RunAllEdits, RunPrograms, RunStrips })
        {
            ASSERT_NO_FATAL_FAILURE(pfnRun(aui8Image));
        }
    }
}

TEST(ImageSweep, OfTheSelfCheck) { Sweep(GetImages()); }

TEST(ImageSweep, RealOnes)
{
    const auto oImages = ReadCorpus();
    if (oImages.empty())
    {
        GTEST_SKIP() << "no folder with real images";
    }
    Sweep(oImages);
}

// Byte 2 and the first header take all values, in front of the bytes of a real block. One pair in five meets every
// value of both, next to many of the other one.
TEST(DamagedBlockSweep, Byte2AndFirstHeader)
{
    const CQuietMessages oQuiet;
    CBytes aui8Image = MakeEdid({ CBytes(gsc_aui8Philips288P6.begin() + gsc_uiExt, gsc_aui8Philips288P6.end()) });
    for (unsigned int i = 0; i < 256 * 256; i += 5)
    {
        SCOPED_TRACE(testing::Message() << "byte 2: " << i / 256 << ", header: " << i % 256);
        aui8Image[gsc_uiBlockSize + 2] = static_cast<unsigned char>(i / 256);
        aui8Image[gsc_uiBlockSize + 4] = static_cast<unsigned char>(i % 256);
        FixBlockSum(aui8Image, 1);
        if (i % 73 == 0)
        {
            ASSERT_NO_FATAL_FAILURE(RunStrips(aui8Image));
        }
        // All edits of a block, beginning with any, the raw ones last.
        Runner oRunner;
        oRunner.Load(aui8Image);
        constexpr unsigned int uiEdits = Runner::eEdit_RemoveDataRange - Runner::eEdit_FirstOfBlock;
        for (unsigned int j = 0; j < uiEdits; ++j)
        {
            const unsigned int uiOperation = Runner::eEdit_FirstOfBlock + (i + j) % uiEdits;
            ASSERT_NO_FATAL_FAILURE(Apply(oRunner, { uiOperation, 0, i / 7 % 4 % (1 + j), gsc_auiValues[0] }));
        }
        ASSERT_NO_FATAL_FAILURE(Apply(oRunner, { Runner::eEdit_RemoveDataRange, 0, i / 256, i % 256 }));
        ASSERT_NO_FATAL_FAILURE(Apply(oRunner, { Runner::eEdit_PadDataRange, 0, i % 256, i / 256 }));
    }
}
}
