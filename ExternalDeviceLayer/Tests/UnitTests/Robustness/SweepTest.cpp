// Damage and truncation of every image of the self-check, everything read, and edited; every edit of these and of real
// images at every index, and stripping. Each keeps its promises. Meant for the sanitizer build.

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "CapturedOutput.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "EditRunner.h"
#include "FactsCheck.h"
#include "FindingsCheck.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"

namespace
{
using Runner = CEditRunner;

// Loads what may be damaged. Whole blocks load after a right header, the base block with any checksum; an extension
// block that is not announced, not understood or wrong in its sum is dropped, the others stay as they are, in order.
void LoadAndRead(const CBytes& aui8Image, bool bRead)
{
    CBytes aui8Expected;
    const CBytes aui8Header = ParseBytes("00 FF*6 00");
    const bool bLoads = aui8Image.size() % gsc_uiBlockSize == 0 &&
                        (aui8Image.empty() || std::equal(aui8Header.begin(), aui8Header.end(), aui8Image.begin()));
    for (size_t i = 0; bLoads && i < aui8Image.size() / gsc_uiBlockSize; ++i)
    {
        const CBytes aui8Block(&aui8Image[i * gsc_uiBlockSize], &aui8Image[i * gsc_uiBlockSize] + gsc_uiBlockSize);
        const bool bIsKnown = CEdidExtBlockCEA861::IsSupported(gsc_uiBlockSize, aui8Block.data()) != 0 ||
                              CEdidExtBlockDisplayID::IsSupported(gsc_uiBlockSize, aui8Block.data()) != 0;
        if (i == 0 || (i <= aui8Image[126] && bIsKnown && FixChecksums(aui8Block) == aui8Block))
        {
            Append(aui8Expected, aui8Block);
        }
    }
    CEdid oEdid;
    ASSERT_EQ(bLoads ? 1 : 0, LoadExact(oEdid, aui8Image));
    ASSERT_EQ(aui8Expected.size(), oEdid.GetSize());
    ASSERT_TRUE(aui8Expected.empty() || aui8Expected == Serialise(oEdid));
    ASSERT_EQ(FixChecksums(aui8Expected) == aui8Expected, oEdid.IsChecksumValid() != 0);
    const unsigned int uiSize = static_cast<unsigned int>(aui8Image.size());
    const auto pui8Copy = CopyToHeap(aui8Image);
    CZorEdidFacts oFacts;
    oFacts.Read(uiSize, pui8Copy.get());
    if (bRead)
    {
        ReadEverything(oEdid);
        CZorEdidMap oMap;
        oMap.Read(uiSize, pui8Copy.get());
        ASSERT_EQ("", CheckFacts(oFacts, oMap));
        ASSERT_EQ("", CheckFindings(oMap));
    }
}

// Strips all, then four edits of the first extension block, beginning with any; the fourth is a raw one.
void StripAndEdit(const CBytes& aui8Image, unsigned int uiFirst)
{
    CEdid oEdid;
    LoadExact(oEdid, aui8Image, 0x3F);
    ASSERT_TRUE(oEdid.GetSize() <= gsc_uiBlockSize || oEdid.IsChecksumValid() != 0);
    Runner oRunner;
    oRunner.Load(aui8Image);
    constexpr unsigned int uiEdits = Runner::eEdit_RemoveDataRange - Runner::eEdit_FirstOfBlock;
    for (unsigned int i = 0; i < 3; ++i)
    {
        ASSERT_EQ("", oRunner.Apply({ Runner::eEdit_FirstOfBlock + (uiFirst + i) % uiEdits, 0, i, 0x00020E42 }));
    }
    ASSERT_EQ("", oRunner.Apply({ Runner::eEdit_RemoveDataRange + uiFirst % 2, 0, uiFirst % 131, uiFirst % 17 }));
}

// Blocks are read independently of each other. So damage goes through the last block of these images, which has each
// block that occurs in the self-check once: base blocks alone, extension blocks after a base block with little in it,
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
                ASSERT_NO_FATAL_FAILURE(LoadAndRead(aui8Damaged, uiBlock == 0));
                FixBlockSum(aui8Damaged, uiBlock);
                ASSERT_NO_FATAL_FAILURE(LoadAndRead(aui8Damaged, true));
                ASSERT_NO_FATAL_FAILURE(StripAndEdit(aui8Damaged, static_cast<unsigned int>(i) + j));
            }
        }
        ++uiImage;
    }
}

INSTANTIATE_TEST_SUITE_P(Quarters, DamageSweep, testing::Values(0, 1, 2, 3));

// Cut anywhere; and byte 126 announces blocks that are not there, or fewer than there are.
TEST(LengthSweep, EveryLengthAndEveryAnnouncedNumber)
{
    const CQuietMessages oQuiet;
    for (const auto& [sName, aui8Image] : GetImages())
    {
        for (size_t i = 0; i <= aui8Image.size(); ++i)
        {
            const CBytes aui8Cut(aui8Image.begin(), aui8Image.begin() + static_cast<ptrdiff_t>(i));
            ASSERT_NO_FATAL_FAILURE(LoadAndRead(aui8Cut, i % gsc_uiBlockSize < 2)) << sName << " cut to " << i;
            CBytes aui8Announced = aui8Image;
            aui8Announced[126] = static_cast<unsigned char>(i);
            ASSERT_NO_FATAL_FAILURE(LoadAndRead(aui8Announced, i % 63 < 4)) << sName << " announces " << i;
        }
    }
}

// Each serves as an audio descriptor, a speaker mask, a depth, a serial number; the last is refused as a descriptor.
constexpr unsigned int gsc_auiValues[] = { 0x00020E42, 0xFFFFFFFF, 0x3 };

void Apply(Runner& oRunner, const SEditStep& oStep)
{
    ASSERT_EQ("", oRunner.Apply(oStep)) << "operation " << oStep.m_uiOperation << ", block " << oStep.m_uiBlock
                                        << ", index " << oStep.m_uiIndex << ", value " << oStep.m_uiValue;
}

// Each edit on a fresh copy of the image, of a block for the first three.
void RunAllEdits(const CBytes& aui8Image)
{
    Runner oFirst;
    oFirst.Load(aui8Image);
    const unsigned int uiBlocks = std::clamp(oFirst.GetEdid().GetExtensionCount(), 1U, 3U);
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

// Each edit of a block after a removal of a table timing, which leaves lists out of step with the bytes, and both once
// more; removals until nothing is left, and additions until none fits, the last first and the other way round.
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

// Audio blocks go with bit 0, speaker blocks with bit 4; the other lists stay. What is written reads the same.
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
        const unsigned long long ullDigest = uiFlags == 0 ? ReadEverything(oStripped) : 0;
        ASSERT_TRUE(uiFlags != 0 || ReadEverything(oStripped) == ullDigest);
        // Origins count the blocks of the image that was loaded: other numbers where a block was left out.
        const bool bSameBlocks = Serialise(oStripped).size() == aui8Image.size();
        ASSERT_TRUE(uiFlags != 0 || !bSameBlocks || ReadEverything(oAgain) == ullDigest);
        for (unsigned int i = 1; i < aoExpected.size(); ++i)
        {
            aoExpected[i][eBlockList_Audio].resize((uiFlags & 0x01) != 0 ? 0 : aoExpected[i][eBlockList_Audio].size());
            aoExpected[i][eBlockList_Speaker].resize((uiFlags & 0x10) != 0 ? 0
                                                                           : aoExpected[i][eBlockList_Speaker].size());
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
        for (auto* pfnRun : { RunAllEdits, RunPrograms, RunStrips })
        {
            ASSERT_NO_FATAL_FAILURE(pfnRun(aui8Image));
        }
    }
}

TEST(ImageSweep, OfTheSelfCheck) { Sweep(GetImages()); }

TEST(ImageSweep, RealOnes)
{
    const auto oImages = ReadImages(std::string(ZOREDID_SHARED_DIR).empty() ? "" : ZOREDID_SHARED_DIR "/corpus");
    if (oImages.empty())
    {
        GTEST_SKIP() << "no folder with real images";
    }
    Sweep(oImages);
}
} // namespace
