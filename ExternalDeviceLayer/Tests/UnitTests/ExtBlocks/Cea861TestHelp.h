// Building CEA-861 blocks and reading everything out of them, for the tests of this folder.

#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

#include "BlockLists.h"
#include "VidParamCea.h"

// Puts a block together from front to back: data blocks, then descriptors.
class CCeaBlockBuilder
{
public:
    explicit CCeaBlockBuilder(unsigned char ui8Revision = 3) : m_aui8Block({ 2, ui8Revision, 4, 0 }) {}

    CCeaBlockBuilder& Flags(unsigned char ui8Flags) { return At(3, ui8Flags); }

    // Bytes of the data-block area; byte 2 follows their end.
    CCeaBlockBuilder& Bytes(const CBytes& aui8Bytes)
    {
        Append(m_aui8Block, aui8Bytes);
        return At(2, static_cast<unsigned int>(m_aui8Block.size()));
    }

    // Descriptors told apart by their horizontal size, 1920 + the number: 1920 x 1080 at 60, 148.5 MHz.
    CCeaBlockBuilder& Detailed(std::initializer_list<unsigned int> auiNumbers)
    {
        for (unsigned int uiNumber : auiNumbers)
        {
            const unsigned char ui8Width = static_cast<unsigned char>(0x80 + uiNumber);
            Append(m_aui8Block, { 0x02, 0x3A, ui8Width, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x45, 0x00, 0x3C,
                                  0x22, 0x00, 0x00, 0x00, 0x1E });
        }
        return *this;
    }

    // One byte as given, byte 2 for instance; the last call ahead of Get.
    CCeaBlockBuilder& At(unsigned int uiOffset, unsigned int uiByte)
    {
        if (uiOffset >= m_aui8Block.size())
        {
            m_aui8Block.resize(uiOffset + 1);
        }
        m_aui8Block[uiOffset] = static_cast<unsigned char>(uiByte);
        return *this;
    }

    CBytes Get() const
    {
        EXPECT_GE(127U, m_aui8Block.size());
        CBytes aui8Block = m_aui8Block;
        aui8Block.resize(gsc_uiBlockSize);
        return FixChecksums(aui8Block);
    }

private:
    CBytes m_aui8Block;
};

inline std::unique_ptr<CEdidExtBlockCEA861> LoadBlock(const CBytes& aui8Block, unsigned int uiStripFlags = 0)
{
    return std::make_unique<CEdidExtBlockCEA861>(static_cast<unsigned int>(aui8Block.size()),
                                                 CopyToHeap(aui8Block).get(), uiStripFlags);
}

// One table timing of a block: key of the table row, native flag, 4:2:0 flag.
struct SStandardEntry
{
    unsigned int m_uiVic;
    int m_bNative;
    int m_b420;
    bool operator==(const SStandardEntry&) const = default;
};

inline std::ostream& operator<<(std::ostream& oStream, const SStandardEntry& oEntry)
{
    return oStream << oEntry.m_uiVic << (oEntry.m_bNative != 0 ? " native" : "")
                   << (oEntry.m_b420 != 0 ? " 4:2:0" : "");
}

// Codes that share their timing with a lower one come out as the lower one (3 as 2, 18 as 17).
inline std::vector<SStandardEntry> GetStandards(const CEdidExtBlockCEA861& oBlock)
{
    std::vector<SStandardEntry> aoEntries;
    for (unsigned int i = 0; i < oBlock.GetStandardCount(); ++i)
    {
        SStandardEntry oEntry = { 0, -1, 0 }; // the native flag is always written
        CVidParamTimingGeneric oTiming;
        oBlock.GetStandard(i, &oTiming, &oEntry.m_bNative);
        oEntry.m_b420 = oTiming.Is420ColorSpace();
        oTiming.Set420ColorSpace(0); // the look-up goes by the effective clock
        CVidParamCea::GetVicFromVidParam(oTiming, oEntry.m_uiVic);
        aoEntries.push_back(oEntry);
    }
    return aoEntries;
}

using SAudioEntry = CListEntry; // format, channels, rates, extra

inline std::vector<SAudioEntry> GetAudios(const CEdidExtBlockCEA861& oBlock) { return GetLists(oBlock)[eList_Audio]; }

inline std::vector<unsigned int> GetSpeakers(const CEdidExtBlockCEA861& oBlock)
{
    std::vector<unsigned int> auiMasks;
    const CLists aoLists = GetLists(oBlock);
    for (const CListEntry& auiEntry : aoLists[eList_Speaker])
    {
        auiMasks.push_back(auiEntry[0]);
    }
    return auiMasks;
}

// The lists are those of a block loaded afresh from the same bytes.
inline void ExpectListsOfBytes(const CEdidExtBlockCEA861& oBlock)
{
    EXPECT_EQ(GetLists(*LoadBlock(GetBytes(oBlock))), GetLists(oBlock));
}

inline CEdidExtBlockCEA861::SAudioDescriptor MakeAudio(unsigned int uiFormat, unsigned int uiChannels,
                                                       unsigned int uiRates, unsigned int uiExtra)
{
    return { static_cast<CEdidExtBlockCEA861::EAudioFormat>(uiFormat), uiChannels,
             static_cast<CEdidExtBlockCEA861::EAudioSamplingFreq>(uiRates), uiExtra };
}

// An HDMI vendor block with these HDMI codes, behind whatever header is given.
inline CBytes MakeHdmi(const CBytes& aui8Header, const CBytes& aui8Vics)
{
    const unsigned char ui8Lengths = static_cast<unsigned char>(aui8Vics.size() << 5);
    return Join({ aui8Header, { 0x03, 0x0C, 0x00, 0x10, 0x00, 0x80, 0x00, 0x20, 0x00, ui8Lengths }, aui8Vics });
}
