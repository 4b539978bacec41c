// What must hold of every edit of a CEA-861 block, over damaged blocks, the self-check's images and real ones: it
// refuses and changes nothing, or it leaves a right checksum and lists that tell of the new bytes.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "Cea861TestHelp.h"
#include "CEdidTestImages.h"
#include "OsServices.h"
#include "SharedFiles.h"

namespace
{
using Block = CEdidExtBlockCEA861;

// Damaged blocks write assertion lines by the thousand.
class CQuiet
{
public:
    CQuiet() { OsServices::SetMsgLevel(0, 0, 0); }
    ~CQuiet() { OsServices::SetMsgLevel(1, 1, 0); }
    CQuiet(const CQuiet&) = delete;
    CQuiet& operator=(const CQuiet&) = delete;
};

// Everything that a block tells from its lists.
struct SLists
{
    std::vector<SStandardEntry> m_aoStandards;
    std::vector<SDetailedEntry> m_aoDetaileds;
    std::vector<SAudioEntry> m_aoAudios;
    std::vector<unsigned int> m_auiSpeakers;
    bool operator==(const SLists&) const = default;
};

SLists GetLists(const Block& oBlock)
{
    return { GetStandards(oBlock), GetDetaileds(oBlock), GetAudios(oBlock), GetSpeakers(oBlock) };
}

template <class TYPE>
std::vector<TYPE> Without(std::vector<TYPE> aoEntries, unsigned int uiIndex)
{
    aoEntries.erase(aoEntries.begin() + uiIndex);
    return aoEntries;
}

// ---- Damaged blocks ----

const Block::SAudioDescriptor gsc_oAudio = MakeAudio(1, 2, 7, 7);

// Every operation that edits, on the first entry that it can reach. The raw steps come with ranges of all kinds.
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

void ReadEverythingElse(Block& oBlock)
{
    unsigned int uiBits = 0;
    EXPECT_EQ(1, oBlock.GetColorBitDepthSupport(uiBits));
    oBlock.IsYuvSupported();
    oBlock.GetAvailableSpace();
    oBlock.GetVendorSpecificCount();
    for (unsigned int uiTag = 0; uiTag < 8; ++uiTag)
    {
        unsigned int uiLength = 0;
        unsigned int uiOffset = 0;
        for (unsigned int i = 0; i < 3; ++i)
        {
            uiOffset = oBlock.GetDataBlockOffset(static_cast<Block::ECea861_DataBlockTags>(uiTag), i, &uiLength);
            EXPECT_GE(127U, uiOffset + uiLength);
        }
        uiOffset = oBlock.GetDataBlockOffset(static_cast<Block::ECea861_DataBlockExtTags>(uiTag + 8), 0, &uiLength);
        EXPECT_GE(127U, uiOffset + uiLength);
    }
}

// Byte 2 and the first header take every value, in front of the bytes of a real block.
TEST(Cea861Properties, EveryByte2AndFirstHeader)
{
    const CQuiet oQuiet;
    SCeaBlock aui8Block = {};
    std::copy(gsc_aui8Philips288P6.begin() + gsc_uiExt, gsc_aui8Philips288P6.end(), aui8Block.begin());
    for (unsigned int uiByte2 = 0; uiByte2 < 256 && !testing::Test::HasFailure(); ++uiByte2)
    {
        for (unsigned int uiHeader = 0; uiHeader < 256; ++uiHeader)
        {
            SCOPED_TRACE(testing::Message() << "byte 2: " << uiByte2 << ", header: " << uiHeader);
            aui8Block[2] = static_cast<unsigned char>(uiByte2);
            aui8Block[4] = static_cast<unsigned char>(uiHeader);
            const auto poBlock = LoadBlock(WithChecksum(aui8Block), uiHeader % 16 == 0 ? 0x37 : 0);
            ReadEverythingElse(*poBlock);
            SCeaBlock aui8Before = GetBytes(*poBlock);
            // Reading all lists back is slow; one header in sixteen, shifting with byte 2, still meets every tag.
            const bool bCompareLists = (uiByte2 + uiHeader) % 16 == 0;
            for (const SEdit& oEdit : gsc_aoEdits)
            {
                const int iResult = oEdit.m_pfnEdit(*poBlock);
                const SCeaBlock aui8After = GetBytes(*poBlock);
                ASSERT_TRUE(iResult || aui8After == aui8Before) << oEdit.m_szName;
                ASSERT_TRUE(Block::IsSupported(128, aui8After.data())) << oEdit.m_szName;
                if (bCompareLists)
                {
                    ASSERT_TRUE(GetLists(*LoadBlock(aui8After)) == GetLists(*poBlock)) << oEdit.m_szName;
                }
                aui8Before = aui8After;
            }
            while (poBlock->GetStandardCount() != 0 && poBlock->RemoveStandard(poBlock->GetStandardCount() / 2))
            {
                ASSERT_TRUE(poBlock->IsChecksumValid());
            }
            GetLists(*poBlock); // the stale ones, too
            poBlock->RemoveDetailed(0);
            poBlock->RemoveAudioDescriptor(0);
            poBlock->RemoveSpeakerDescriptor(0);
            poBlock->AddAudioDescriptor(&gsc_oAudio);
            poBlock->RemoveDataRange(uiByte2, uiHeader);
            poBlock->PadDataRange(uiHeader, uiByte2);
        }
    }
}

// ---- Allocations ----

class CCountingAllocator : public CMAllocator
{
public:
    CCountingAllocator() { m_poGlobalAllocator = this; }
    ~CCountingAllocator() { m_poGlobalAllocator = nullptr; }
    CCountingAllocator(const CCountingAllocator&) = delete;
    CCountingAllocator& operator=(const CCountingAllocator&) = delete;

    void* Alloc(unsigned long uiSize) override
    {
        ++m_uiCount;
        return operator new[](uiSize);
    }
    void Free(const void* p) override { operator delete[](const_cast<void*>(p)); }

    unsigned int m_uiCount = 0;
};

TEST(Cea861Properties, ListsAreAllocatedOnceEach)
{
    // Video, audio, speakers, four HDMI codes, four descriptors.
    const unsigned char* pui8Data = ExtStandard2::g_auiStandard2EdidData.data() + gsc_uiExt;
    CCountingAllocator oAllocator;
    {
        Block oBlock(128, pui8Data, 0);
        // The bytes, five lists, and the HDMI view's own list; there is nothing in YCbCr 4:2:0.
        EXPECT_EQ(7U, oAllocator.m_uiCount);
        oAllocator.m_uiCount = 0;
        EXPECT_EQ(1, oBlock.SetAudioDescriptor(0, &gsc_oAudio));
        EXPECT_EQ(1, oBlock.RemoveDetailed(0));
        EXPECT_EQ(0U, oAllocator.m_uiCount) << "a list that does not grow keeps its memory";
        EXPECT_EQ(1, oBlock.AddAudioDescriptor(&gsc_oAudio));
        EXPECT_EQ(1U, oAllocator.m_uiCount);
    }
}

// ---- Good blocks ----

// Whether the data blocks end exactly at byte 2. Where one crosses it, descriptors and data blocks share bytes, and an
// edit of the one changes the other.
bool IsWellFormed(const SCeaBlock& aui8Block)
{
    unsigned int uiOffset = 4;
    while (uiOffset < aui8Block[2] && uiOffset < 127)
    {
        uiOffset += 1 + (aui8Block[uiOffset] & 0x1FU);
    }
    return aui8Block[2] < 5 || aui8Block[1] < 3 || (uiOffset == aui8Block[2] && uiOffset <= 127);
}

bool IsZero(unsigned char ui8Byte) { return ui8Byte == 0; }

// The edits of one block, each tried at every index on a block loaded afresh.
class CEditProperties
{
public:
    explicit CEditProperties(const SCeaBlock& aui8Block)
        : m_aui8Block(aui8Block), m_oLists(GetLists(*LoadBlock(aui8Block))), m_bWellFormed(IsWellFormed(aui8Block))
    {
    }

    void TryRemoveStandard()
    {
        for (unsigned int i = 0; i <= m_oLists.m_aoStandards.size(); ++i)
        {
            SCOPED_TRACE(testing::Message() << "RemoveStandard " << i);
            const auto poBlock = LoadBlock(m_aui8Block);
            if (!Check(*poBlock, poBlock->RemoveStandard(i)))
            {
                continue;
            }
            EXPECT_EQ(m_aui8Block[2], GetBytes(*poBlock)[2]);
            EXPECT_EQ(GetStandards(*LoadBlock(GetBytes(*poBlock))), GetStandards(*poBlock));
            if (m_bWellFormed)
            {
                ExpectWithoutVic(m_oLists.m_aoStandards[i].m_uiVic % 1000, GetBytes(*poBlock));
            }
            EXPECT_EQ(m_oLists.m_aoAudios, GetAudios(*poBlock));
            EXPECT_EQ(m_oLists.m_auiSpeakers, GetSpeakers(*poBlock));
        }
    }

    void TryRemoveDetailed()
    {
        for (unsigned int i = 0; i <= m_oLists.m_aoDetaileds.size(); ++i)
        {
            SCOPED_TRACE(testing::Message() << "RemoveDetailed " << i);
            const auto poBlock = LoadBlock(m_aui8Block);
            if (!Check(*poBlock, poBlock->RemoveDetailed(i)))
            {
                EXPECT_EQ(m_oLists.m_aoDetaileds.size(), i);
                continue;
            }
            SLists oExpected = m_oLists;
            oExpected.m_aoDetaileds = Without(m_oLists.m_aoDetaileds, i);
            ExpectLists(oExpected, *poBlock);
        }
    }

    void TryRemoveAudio()
    {
        for (unsigned int i = 0; i <= m_oLists.m_aoAudios.size(); ++i)
        {
            SCOPED_TRACE(testing::Message() << "RemoveAudioDescriptor " << i);
            const auto poBlock = LoadBlock(m_aui8Block);
            if (!Check(*poBlock, poBlock->RemoveAudioDescriptor(i)))
            {
                EXPECT_EQ(m_oLists.m_aoAudios.size(), i);
                continue;
            }
            SLists oExpected = m_oLists;
            oExpected.m_aoAudios = Without(m_oLists.m_aoAudios, i);
            ExpectLists(oExpected, *poBlock);
        }
    }

    void TryRemoveSpeaker()
    {
        for (unsigned int i = 0; i <= m_oLists.m_auiSpeakers.size(); ++i)
        {
            SCOPED_TRACE(testing::Message() << "RemoveSpeakerDescriptor " << i);
            const auto poBlock = LoadBlock(m_aui8Block);
            if (!Check(*poBlock, poBlock->RemoveSpeakerDescriptor(i)))
            {
                EXPECT_EQ(m_oLists.m_auiSpeakers.size(), i);
                continue;
            }
            SLists oExpected = m_oLists;
            oExpected.m_auiSpeakers = Without(m_oLists.m_auiSpeakers, i);
            ExpectLists(oExpected, *poBlock);
        }
    }

    // What is already there, written again, changes no byte.
    void TrySetAsRead()
    {
        for (unsigned int i = 0; i < m_oLists.m_aoAudios.size(); ++i)
        {
            SCOPED_TRACE(testing::Message() << "SetAudioDescriptor " << i);
            const auto poBlock = LoadBlock(m_aui8Block);
            Block::SAudioDescriptor oAudio = {};
            poBlock->GetAudioDescriptor(i, &oAudio);
            EXPECT_EQ(oAudio.m_uiChannels >= 2, poBlock->SetAudioDescriptor(i, &oAudio) != 0);
            EXPECT_EQ(m_aui8Block, GetBytes(*poBlock));
        }
        for (unsigned int i = 0; i < m_oLists.m_auiSpeakers.size(); ++i)
        {
            SCOPED_TRACE(testing::Message() << "SetSpeakerDescriptor " << i);
            const auto poBlock = LoadBlock(m_aui8Block);
            if (Check(*poBlock, poBlock->SetSpeakerDescriptor(i, m_oLists.m_auiSpeakers[i])))
            {
                ExpectLists(m_oLists, *poBlock);
            }
        }
        const auto poBlock = LoadBlock(m_aui8Block);
        unsigned int uiBits = 0;
        EXPECT_EQ(1, poBlock->GetColorBitDepthSupport(uiBits));
        EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(uiBits));
        EXPECT_EQ(1, poBlock->SetColorBitDepthSupport(uiBits));
        if (Check(*poBlock, 1))
        {
            ExpectLists(m_oLists, *poBlock);
        }
    }

    // An addition adds one entry and takes it out again without a trace, but for the basic audio flag.
    void TryAddAndRemove()
    {
        {
            SCOPED_TRACE("AddAudioDescriptor");
            const auto poBlock = LoadBlock(m_aui8Block);
            if (Check(*poBlock, poBlock->AddAudioDescriptor(&gsc_oAudio)) && m_aui8Block[1] == 3 && m_bWellFormed)
            {
                ASSERT_GE(GetAudios(*poBlock).size(), m_oLists.m_aoAudios.size());
                const unsigned int uiAdded = FindAdded(GetAudios(*poBlock));
                SLists oExpected = m_oLists;
                oExpected.m_aoAudios.insert(oExpected.m_aoAudios.begin() + uiAdded, { 1, 2, 7, 7 });
                ExpectLists(oExpected, *poBlock);
                EXPECT_EQ(1, poBlock->RemoveAudioDescriptor(uiAdded));
                ExpectBytesBack(*poBlock);
            }
        }
        {
            SCOPED_TRACE("AddSpeakerDescriptor");
            const auto poBlock = LoadBlock(m_aui8Block);
            if (Check(*poBlock, poBlock->AddSpeakerDescriptor(0x1FF)) && m_aui8Block[1] == 3 && m_bWellFormed)
            {
                SLists oExpected = m_oLists;
                oExpected.m_auiSpeakers.push_back(0x1FF);
                ExpectLists(oExpected, *poBlock);
                EXPECT_EQ(1,
                          poBlock->RemoveSpeakerDescriptor(static_cast<unsigned int>(m_oLists.m_auiSpeakers.size())));
                ExpectBytesBack(*poBlock);
            }
        }
        SCOPED_TRACE("AddVendorSpecific");
        const auto poBlock = LoadBlock(m_aui8Block);
        if (Check(*poBlock, poBlock->AddVendorSpecific()))
        {
            ExpectLists(m_oLists, *poBlock);
        }
    }

    void TryStrip()
    {
        SCOPED_TRACE("strip");
        const auto poBlock = LoadBlock(m_aui8Block, Block::eStrip_Audio | Block::eStrip_Speaker);
        EXPECT_EQ(GetBytes(*poBlock) != m_aui8Block, poBlock->IsStripped() != 0);
        if (Check(*poBlock, poBlock->IsStripped()))
        {
            SLists oExpected = m_oLists;
            oExpected.m_aoAudios.clear();
            oExpected.m_auiSpeakers.clear();
            ExpectLists(oExpected, *poBlock);
        }
    }

    void TryAll()
    {
        TryRemoveStandard();
        TryRemoveDetailed();
        TryRemoveAudio();
        TryRemoveSpeaker();
        TrySetAsRead();
        TryAddAndRemove();
        TryStrip();
    }

private:
    // Whether the edit went through; then tag, revision, checksum and the zeros in front of it are still good. After a
    // refusal all bytes must be as they were.
    bool Check(const Block& oBlock, int iResult) const
    {
        const SCeaBlock aui8After = GetBytes(oBlock);
        if (iResult == 0)
        {
            EXPECT_EQ(m_aui8Block, aui8After);
            return false;
        }
        EXPECT_TRUE(Block::IsSupported(128, aui8After.data()));
        EXPECT_EQ(m_aui8Block[1], aui8After[1]);
        if (IsTailZero(m_aui8Block))
        {
            EXPECT_TRUE(IsTailZero(aui8After));
        }
        return true;
    }

    static bool IsTailZero(const SCeaBlock& aui8Block)
    {
        const unsigned int uiEnd = std::min(LoadBlock(aui8Block)->GetAvailableOffset(), 127U);
        return std::all_of(aui8Block.begin() + uiEnd, aui8Block.begin() + 127, IsZero);
    }

    void ExpectLists(const SLists& oExpected, const Block& oBlock) const
    {
        const SLists oLists = GetLists(oBlock);
        EXPECT_TRUE(GetLists(*LoadBlock(GetBytes(oBlock))) == oLists);
        if (m_bWellFormed)
        {
            EXPECT_EQ(oExpected.m_aoStandards, oLists.m_aoStandards);
            EXPECT_EQ(oExpected.m_aoDetaileds, oLists.m_aoDetaileds);
            EXPECT_EQ(oExpected.m_aoAudios, oLists.m_aoAudios);
            EXPECT_EQ(oExpected.m_auiSpeakers, oLists.m_auiSpeakers);
        }
    }

    // Byte 2 keeps its value, so that the walk may take bytes of descriptors for data blocks; with byte 2 at the true
    // end of the data blocks the ordinary timings are the old ones without both timings of the code.
    void ExpectWithoutVic(unsigned int uiVic, SCeaBlock aui8After) const
    {
        if (HasTwin(uiVic))
        {
            return;
        }
        std::vector<SStandardEntry> aoExpected;
        for (const SStandardEntry& oEntry : m_oLists.m_aoStandards)
        {
            if (oEntry.m_uiVic % 1000 != uiVic && !oEntry.m_b420)
            {
                aoExpected.push_back(oEntry);
            }
        }
        bool bFound = false;
        for (unsigned int uiTaken = 0; uiTaken < 8 && !bFound; ++uiTaken)
        {
            std::vector<SStandardEntry> aoEntries = GetStandards(*LoadBlock(WithChecksum(aui8After)));
            std::erase_if(aoEntries, [](const SStandardEntry& oEntry) { return oEntry.m_b420 != 0; });
            bFound = IsWellFormed(aui8After) && aoEntries == aoExpected;
            --aui8After[2];
        }
        EXPECT_TRUE(bFound) << "code " << uiVic;
    }

    void ExpectBytesBack(const Block& oBlock) const
    {
        if (!IsTailZero(m_aui8Block))
        {
            return;
        }
        SCeaBlock aui8After = GetBytes(oBlock);
        aui8After[3] = m_aui8Block[3]; // set by the addition; a removal clears it only when no sound is left
        EXPECT_EQ(m_aui8Block, WithChecksum(aui8After));
    }

    unsigned int FindAdded(const std::vector<SAudioEntry>& aoAudios) const
    {
        unsigned int i = 0;
        while (i < m_oLists.m_aoAudios.size() && aoAudios[i] == m_oLists.m_aoAudios[i])
        {
            ++i;
        }
        return i;
    }

    // Whether two codes share this timing, as 2 and 3 do: they cannot be told apart here.
    static bool HasTwin(unsigned int uiVic)
    {
        unsigned int uiCodes = 0;
        for (unsigned int uiOther = 1; uiOther < 128; ++uiOther)
        {
            CVidParamTimingGeneric oOther;
            unsigned int uiFound = 0;
            CVidParamCea::GetVidParamFromVic(uiOther, &oOther);
            CVidParamCea::GetVicFromVidParam(oOther, uiFound);
            uiCodes += uiFound == uiVic ? 1U : 0U;
        }
        return uiCodes > 1;
    }

    SCeaBlock m_aui8Block;
    SLists m_oLists;
    bool m_bWellFormed;
};

// Tries all CEA-861 blocks of an image; returns their number.
unsigned int TryImage(const std::string& sName, const unsigned char* pui8Data, size_t uiSize)
{
    unsigned int uiBlocks = 0;
    for (size_t uiAt = 128; uiAt + 128 <= uiSize; uiAt += 128)
    {
        if (!Block::IsSupported(128, pui8Data + uiAt))
        {
            continue;
        }
        SCOPED_TRACE(sName);
        SCeaBlock aui8Block;
        std::copy(pui8Data + uiAt, pui8Data + uiAt + 128, aui8Block.begin());
        CEditProperties(aui8Block).TryAll();
        ++uiBlocks;
    }
    return uiBlocks;
}

TEST(Cea861Properties, ImagesOfTheSelfCheck)
{
    const CQuiet oQuiet;
    const std::pair<const char*, const SEdidImage*> aoImages[] = {
        { "AsusHd", &AsusHd::g_auiAsusHdEdidData },
        { "LgUltraHd", &gsc_aui8LgUltraHd },
        { "ExtStandard", &ExtStandard::g_auiStandardEdidData },
        { "ExtStandard3", &ExtStandard::g_auiStandardEdidData3 },
        { "ExtStandard2", &ExtStandard2::g_auiStandard2EdidData },
        { "AudioOneBlock", &Audio::g_auiAudioOneBlockEdidData },
        { "AudioNoBlock", &Audio::g_auiAudioNoBlockEdidData },
        { "AudioTen", &Audio::g_auiAudioTenEdidData },
        { "AudioEleven", &Audio::g_auiAudioElevenEdidData },
        { "AudioFull", &Audio::g_auiAudioFullEdidData },
        { "AudioTwoDescriptors", &Audio::g_auiAudioTwoDescriptorsEdidData },
    };
    for (const auto& [pszName, paui8Image] : aoImages)
    {
        EXPECT_EQ(1U, TryImage(pszName, paui8Image->data(), paui8Image->size())) << pszName;
    }
}

TEST(Cea861Properties, RealImages)
{
    const std::vector<SCorpusImage> aoImages = ReadCorpus();
    if (aoImages.empty())
    {
        GTEST_SKIP() << "no folder of real images";
    }
    const CQuiet oQuiet;
    unsigned int uiBlocks = 0;
    for (const SCorpusImage& oImage : aoImages)
    {
        uiBlocks += TryImage(oImage.m_sName, oImage.m_aui8Data.data(), oImage.m_aui8Data.size());
    }
    EXPECT_LT(0U, uiBlocks);
    RecordProperty("blocks", static_cast<int>(uiBlocks));
}
}
