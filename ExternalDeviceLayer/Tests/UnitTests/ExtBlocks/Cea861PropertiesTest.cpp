// What must hold of every edit of a CEA-861 block, over damaged blocks, the self-check's images and real ones: it
// refuses and changes nothing, or it leaves a right checksum and lists that tell of the new bytes.

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Cea861TestHelp.h"
#include "CEdidTestImages.h"
#include "CountingAllocator.h"
#include "SharedFiles.h"

namespace
{
using Block = CEdidExtBlockCEA861;

const Block::SAudioDescriptor gsc_oAudio = MakeAudio(1, 2, 7, 7);

// ---- Damaged blocks ----

// Every operation that edits, on the first entry that it can reach.
struct SEdit
{
    const char* m_szName;
    int (*m_pfnEdit)(Block& oBlock);
};

const SEdit gsc_aoEdits[] = {
    { "SetColorBitDepthSupport", [](Block& oBlock) { return oBlock.SetColorBitDepthSupport(5); } },
    { "SetSpeakerDescriptor", [](Block& oBlock) { return oBlock.SetSpeakerDescriptor(0, 0x2A5); } },
    { "SetAudioDescriptor", [](Block& oBlock) { return oBlock.SetAudioDescriptor(0, &gsc_oAudio); } },
    { "AddAudioDescriptor", [](Block& oBlock) { return oBlock.AddAudioDescriptor(&gsc_oAudio); } },
    { "AddSpeakerDescriptor", [](Block& oBlock) { return oBlock.AddSpeakerDescriptor(0x10F); } },
    { "AddVendorSpecific", [](Block& oBlock) { return oBlock.AddVendorSpecific(); } },
    { "RemoveDetailed", [](Block& oBlock) { return oBlock.RemoveDetailed(0); } },
    { "RemoveAudioDescriptor", [](Block& oBlock) { return oBlock.RemoveAudioDescriptor(0); } },
    { "RemoveSpeakerDescriptor", [](Block& oBlock) { return oBlock.RemoveSpeakerDescriptor(0); } },
};

// Runs all of them. A refusal changes no byte; a success leaves a block that loads, and the lists of its bytes.
void RunEdits(Block& oBlock, bool bCompareLists)
{
    for (const SEdit& oEdit : gsc_aoEdits)
    {
        SCOPED_TRACE(oEdit.m_szName);
        const CBytes aui8Before = GetBytes(oBlock);
        const int iResult = oEdit.m_pfnEdit(oBlock);
        EXPECT_TRUE(iResult || GetBytes(oBlock) == aui8Before);
        EXPECT_TRUE(Block::IsSupported(128, GetBytes(oBlock).data()));
        if (iResult && bCompareLists)
        {
            ExpectListsOfBytes(oBlock);
        }
    }
}

void ReadEverythingElse(Block& oBlock)
{
    unsigned int uiBits = 0;
    EXPECT_EQ(1, oBlock.GetColorBitDepthSupport(uiBits));
    oBlock.IsYuvSupported();
    oBlock.GetAvailableSpace();
    oBlock.GetVendorSpecificCount();
    for (unsigned int uiTag = 0; uiTag < 16; ++uiTag)
    {
        unsigned int uiLength = 0;
        const auto eTag = static_cast<Block::ECea861_DataBlockTags>(uiTag % 8);
        EXPECT_GE(127U, oBlock.GetDataBlockOffset(eTag, uiTag / 8, &uiLength) + uiLength);
        const auto eExtTag = static_cast<Block::ECea861_DataBlockExtTags>(uiTag);
        EXPECT_GE(127U, oBlock.GetDataBlockOffset(eExtTag, 0, &uiLength) + uiLength);
    }
}

// Byte 2 and the first header take every value, in front of the bytes of a real block.
TEST(Cea861Properties, EveryByte2AndFirstHeader)
{
    const CQuietMessages oQuiet;
    CBytes aui8Block(gsc_aui8Philips288P6.begin() + gsc_uiExt, gsc_aui8Philips288P6.end());
    for (unsigned int uiByte2 = 0; uiByte2 < 256; ++uiByte2)
    {
        for (unsigned int uiHeader = 0; uiHeader < 256 && !testing::Test::HasFailure(); ++uiHeader)
        {
            SCOPED_TRACE(testing::Message() << "byte 2: " << uiByte2 << ", header: " << uiHeader);
            aui8Block[2] = static_cast<unsigned char>(uiByte2);
            aui8Block[4] = static_cast<unsigned char>(uiHeader);
            const auto poBlock = LoadBlock(FixChecksums(aui8Block), uiHeader % 16 == 0 ? 0x37 : 0);
            ReadEverythingElse(*poBlock);
            // Reading all lists back is slow; one header in sixteen, shifting with byte 2, still meets every tag.
            const bool bCompareLists = (uiByte2 + uiHeader) % 16 == 0;
            RunEdits(*poBlock, bCompareLists);
            while (poBlock->GetStandardCount() != 0 && poBlock->RemoveStandard(poBlock->GetStandardCount() / 2))
            {
                ASSERT_TRUE(poBlock->IsChecksumValid());
            }
            GetLists(*poBlock);
            RunEdits(*poBlock, bCompareLists); // the first of them over lists that are behind
            poBlock->RemoveDataRange(uiByte2, uiHeader);
            poBlock->PadDataRange(uiHeader, uiByte2);
        }
    }
}

// ---- Allocations ----

TEST(Cea861Properties, ListsAreAllocatedOnceEach)
{
    // Video, audio, speakers, four HDMI codes, four descriptors.
    const unsigned char* pui8Data = ExtStandard2::g_auiStandard2EdidData.data() + gsc_uiExt;
    CCountingAllocator oAllocator;
    Block oBlock(128, pui8Data, 0);
    // The bytes, five lists, and the HDMI view's own list; there is nothing in YCbCr 4:2:0.
    EXPECT_EQ(7U, oAllocator.GetAllocCount());
    EXPECT_EQ(1, oBlock.SetAudioDescriptor(0, &gsc_oAudio));
    EXPECT_EQ(1, oBlock.RemoveDetailed(0));
    EXPECT_EQ(7U, oAllocator.GetAllocCount()) << "a list that does not grow keeps its memory";
    EXPECT_EQ(1, oBlock.AddAudioDescriptor(&gsc_oAudio));
    EXPECT_EQ(8U, oAllocator.GetAllocCount());
}

// ---- Good blocks ----

// Whether the data blocks end exactly at byte 2. Where one crosses it, descriptors and data blocks share bytes, and an
// edit of the one changes the other.
bool IsWellFormed(const CBytes& aui8Block)
{
    unsigned int uiOffset = 4;
    while (uiOffset < aui8Block[2] && uiOffset < 127)
    {
        uiOffset += 1 + (aui8Block[uiOffset] & 0x1FU);
    }
    return aui8Block[2] < 5 || aui8Block[1] < 3 || (uiOffset == aui8Block[2] && uiOffset <= 127);
}

// The edits of one block, each tried at every index on a block loaded afresh.
class CEditProperties
{
public:
    explicit CEditProperties(const CBytes& aui8Block)
        : m_aui8Block(aui8Block), m_oLists(GetLists(*LoadBlock(aui8Block))), m_bWellFormed(IsWellFormed(aui8Block))
    {
    }

    void TryAll() const
    {
        TryRemovals<gsc_uiDetaileds>("RemoveDetailed", &Block::RemoveDetailed);
        TryRemovals<gsc_uiAudios>("RemoveAudioDescriptor", &Block::RemoveAudioDescriptor);
        TryRemovals<gsc_uiSpeakers>("RemoveSpeakerDescriptor", &Block::RemoveSpeakerDescriptor);
        TryAddAndRemove();
        TryStrip();
    }

private:
    // The entry goes, the others of all lists stay.
    template <size_t LIST>
    void TryRemovals(const char* szName, int (Block::*pfnRemove)(unsigned int)) const
    {
        const unsigned int uiCount = static_cast<unsigned int>(std::get<LIST>(m_oLists).size());
        for (unsigned int i = 0; i <= uiCount; ++i)
        {
            SCOPED_TRACE(testing::Message() << szName << " " << i);
            const auto poBlock = LoadBlock(m_aui8Block);
            if (!Check(*poBlock, ((*poBlock).*pfnRemove)(i)))
            {
                EXPECT_EQ(uiCount, i);
                continue;
            }
            CLists oExpected = m_oLists;
            std::get<LIST>(oExpected).erase(std::get<LIST>(oExpected).begin() + i);
            ExpectLists(oExpected, *poBlock);
        }
    }

    // An addition adds one entry and takes it out again without a trace, but for the basic audio flag.
    void TryAddAndRemove() const
    {
        const bool bShows = m_aui8Block[1] == 3 && m_bWellFormed;
        const auto poAudio = LoadBlock(m_aui8Block);
        if (Check(*poAudio, poAudio->AddAudioDescriptor(&gsc_oAudio)) && bShows)
        {
            // It stands at the end of the first audio block, or of all.
            CLists oExpected = m_oLists;
            std::vector<SAudioEntry>& aoAudios = std::get<gsc_uiAudios>(oExpected);
            const std::vector<SAudioEntry> aoNow = GetAudios(*poAudio);
            const auto itAdded = std::mismatch(aoAudios.begin(), aoAudios.end(), aoNow.begin(), aoNow.end()).first;
            const unsigned int uiAdded = static_cast<unsigned int>(itAdded - aoAudios.begin());
            aoAudios.insert(itAdded, { 1, 2, 7, 7 });
            ExpectLists(oExpected, *poAudio);
            EXPECT_EQ(1, poAudio->RemoveAudioDescriptor(uiAdded));
            ExpectBytesBack(*poAudio);
        }
        const auto poSpeaker = LoadBlock(m_aui8Block);
        if (Check(*poSpeaker, poSpeaker->AddSpeakerDescriptor(0x1FF)) && bShows)
        {
            CLists oExpected = m_oLists;
            std::get<gsc_uiSpeakers>(oExpected).push_back(0x1FF);
            ExpectLists(oExpected, *poSpeaker);
            EXPECT_EQ(1, poSpeaker->RemoveSpeakerDescriptor(poSpeaker->GetSpeakerDescriptorCount() - 1));
            ExpectBytesBack(*poSpeaker);
        }
        const auto poVendor = LoadBlock(m_aui8Block);
        if (Check(*poVendor, poVendor->AddVendorSpecific()))
        {
            ExpectLists(m_oLists, *poVendor);
        }
    }

    void TryStrip() const
    {
        const auto poBlock = LoadBlock(m_aui8Block, Block::eStrip_Audio | Block::eStrip_Speaker);
        EXPECT_EQ(GetBytes(*poBlock) != m_aui8Block, poBlock->IsStripped() != 0);
        Check(*poBlock, poBlock->IsStripped());
        CLists oExpected = m_oLists;
        std::get<gsc_uiAudios>(oExpected).clear();
        std::get<gsc_uiSpeakers>(oExpected).clear();
        ExpectLists(oExpected, *poBlock);
    }

    // Whether the edit went through; then tag, revision, checksum and the zeros in front of it are still good. After a
    // refusal all bytes must be as they were.
    bool Check(const Block& oBlock, int iResult) const
    {
        const CBytes aui8After = GetBytes(oBlock);
        if (iResult == 0)
        {
            EXPECT_EQ(m_aui8Block, aui8After);
            return false;
        }
        EXPECT_TRUE(Block::IsSupported(128, aui8After.data()));
        EXPECT_EQ(m_aui8Block[1], aui8After[1]);
        EXPECT_TRUE(!IsTailZero(m_aui8Block) || IsTailZero(aui8After));
        return true;
    }

    static bool IsTailZero(const CBytes& aui8Block)
    {
        const unsigned int uiEnd = std::min(LoadBlock(aui8Block)->GetAvailableOffset(), 127U);
        return std::count(aui8Block.begin() + uiEnd, aui8Block.end() - 1, 0) == 127 - static_cast<int>(uiEnd);
    }

    void ExpectLists(const CLists& oExpected, const Block& oBlock) const
    {
        ExpectListsOfBytes(oBlock);
        if (m_bWellFormed)
        {
            EXPECT_EQ(oExpected, GetLists(oBlock));
        }
    }

    void ExpectBytesBack(const Block& oBlock) const
    {
        if (IsTailZero(m_aui8Block))
        {
            CBytes aui8After = GetBytes(oBlock);
            aui8After[3] = m_aui8Block[3]; // set by the addition; a removal clears it only when no sound is left
            EXPECT_EQ(m_aui8Block, FixChecksums(aui8After));
        }
    }

    CBytes m_aui8Block;
    CLists m_oLists;
    bool m_bWellFormed;
};

// Tries all CEA-861 blocks of an image; returns their number.
unsigned int TryImage(const std::string& sName, const CBytes& aui8Image)
{
    SCOPED_TRACE(sName);
    const CQuietMessages oQuiet;
    unsigned int uiBlocks = 0;
    for (size_t uiAt = 128; uiAt + 128 <= aui8Image.size(); uiAt += 128)
    {
        const auto itBlock = aui8Image.begin() + static_cast<std::ptrdiff_t>(uiAt);
        const CBytes aui8Block(itBlock, itBlock + 128);
        if (Block::IsSupported(128, aui8Block.data()))
        {
            CEditProperties(aui8Block).TryAll();
            ++uiBlocks;
        }
    }
    return uiBlocks;
}

TEST(Cea861Properties, ImagesOfTheSelfCheck)
{
    unsigned int uiBlocks = 0;
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        uiBlocks += TryImage(oImage.m_pszName, ToBytes(*oImage.m_paui8Image));
    }
    EXPECT_LT(20U, uiBlocks);
}

TEST(Cea861Properties, RealImages)
{
    const std::vector<SCorpusImage> aoImages = ReadCorpus();
    if (aoImages.empty())
    {
        GTEST_SKIP() << "no folder of real images";
    }
    unsigned int uiBlocks = 0;
    for (const SCorpusImage& oImage : aoImages)
    {
        uiBlocks += TryImage(oImage.m_sName, oImage.m_aui8Data);
    }
    EXPECT_LT(0U, uiBlocks);
}
}
