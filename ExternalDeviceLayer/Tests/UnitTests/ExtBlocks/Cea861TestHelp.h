// Building CEA-861 blocks and reading everything out of them, for the tests of this folder.

#pragma once

#include <string.h>

#include <array>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <utility>
#include <vector>

#include "EdidExtBlockCEA861.h"
#include "VidParamCea.h"
#include "VidParamTimingGeneric.h"

using SCeaBlock = std::array<unsigned char, 128>;

inline SCeaBlock WithChecksum(SCeaBlock aui8Block)
{
    unsigned int uiSum = 0;
    for (unsigned int i = 0; i < 127; ++i)
    {
        uiSum += aui8Block[i];
    }
    aui8Block[127] = static_cast<unsigned char>(0U - uiSum);
    return aui8Block;
}

// 1920 x 1080 at 60, told apart by its horizontal size: 1920 + uiNumber.
inline std::array<unsigned char, 18> MakeDescriptor(unsigned int uiNumber)
{
    return { 0x02, 0x3A, static_cast<unsigned char>(0x80 + uiNumber),
             0x18, 0x71, 0x38,
             0x2D, 0x40, 0x58,
             0x2C, 0x45, 0x00,
             0x3C, 0x22, 0x00,
             0x00, 0x00, 0x1E };
}

// Puts a block together from front to back: data blocks, then descriptors.
class CCeaBlockBuilder
{
public:
    explicit CCeaBlockBuilder(unsigned char ui8Revision = 3)
    {
        m_aui8Block[0] = 2;
        m_aui8Block[1] = ui8Revision;
        m_aui8Block[2] = 4;
    }

    CCeaBlockBuilder& Flags(unsigned char ui8Flags)
    {
        m_aui8Block[3] = ui8Flags;
        return *this;
    }

    // Bytes of the data-block area; byte 2 follows their end.
    CCeaBlockBuilder& Bytes(const std::vector<unsigned char>& aui8Bytes)
    {
        Put(aui8Bytes.data(), aui8Bytes.size());
        m_aui8Block[2] = static_cast<unsigned char>(m_uiEnd);
        return *this;
    }

    CCeaBlockBuilder& Detailed(std::initializer_list<unsigned int> auiNumbers)
    {
        for (unsigned int uiNumber : auiNumbers)
        {
            Put(MakeDescriptor(uiNumber).data(), 18);
        }
        return *this;
    }

    // One byte as given; byte 2 for instance.
    CCeaBlockBuilder& At(unsigned int uiOffset, unsigned int uiByte)
    {
        m_aui8Block.at(uiOffset) = static_cast<unsigned char>(uiByte);
        return *this;
    }

    SCeaBlock Get() const { return WithChecksum(m_aui8Block); }

private:
    void Put(const unsigned char* pui8Bytes, size_t uiCount)
    {
        for (size_t i = 0; i < uiCount; ++i)
        {
            m_aui8Block.at(m_uiEnd++) = pui8Bytes[i];
        }
    }

    SCeaBlock m_aui8Block = {};
    size_t m_uiEnd = 4;
};

// Loads from heap memory of exactly this size, so that the sanitizer sees a read behind it.
inline std::unique_ptr<CEdidExtBlockCEA861> LoadBlock(const SCeaBlock& aui8Block, unsigned int uiStripFlags = 0)
{
    const std::vector<unsigned char> aui8Exact(aui8Block.begin(), aui8Block.end());
    return std::make_unique<CEdidExtBlockCEA861>(128U, aui8Exact.data(), uiStripFlags);
}

inline SCeaBlock GetBytes(const CEdidExtBlockCEA861& oBlock)
{
    SCeaBlock aui8Block = {};
    oBlock.GetEdidBuffer(128, aui8Block.data());
    return aui8Block;
}

// What a block tells, as numbers. Each entry of the list of timings: key of the table row, native flag, 4:2:0 flag.
struct SStandardEntry
{
    unsigned int m_uiVic;
    int m_bNative;
    int m_b420;
    bool operator==(const SStandardEntry&) const = default;
};

inline std::ostream& operator<<(std::ostream& oStream, const SStandardEntry& oEntry)
{
    return oStream << oEntry.m_uiVic << (oEntry.m_bNative ? " native" : "") << (oEntry.m_b420 ? " 4:2:0" : "");
}

// Codes that share their timing with a lower one come out as the lower one (3 as 2, 18 as 17).
inline std::vector<SStandardEntry> GetStandards(const CEdidExtBlockCEA861& oBlock)
{
    std::vector<SStandardEntry> aoEntries;
    for (unsigned int i = 0; i < oBlock.GetStandardCount(); ++i)
    {
        SStandardEntry oEntry = {};
        CVidParamTimingGeneric oTiming;
        oBlock.GetStandard(i, &oTiming, &oEntry.m_bNative);
        oEntry.m_b420 = oTiming.Is420ColorSpace();
        oTiming.Set420ColorSpace(0); // the look-up goes by the effective clock
        CVidParamCea::GetVicFromVidParam(oTiming, oEntry.m_uiVic);
        aoEntries.push_back(oEntry);
    }
    return aoEntries;
}

inline std::vector<unsigned int> GetVics(const CEdidExtBlockCEA861& oBlock)
{
    std::vector<unsigned int> auiVics;
    for (const SStandardEntry& oEntry : GetStandards(oBlock))
    {
        auiVics.push_back(oEntry.m_uiVic);
    }
    return auiVics;
}

using SDetailedEntry = std::array<unsigned int, 9>;

inline std::vector<SDetailedEntry> GetDetaileds(const CEdidExtBlockCEA861& oBlock)
{
    std::vector<SDetailedEntry> aoEntries;
    for (unsigned int i = 0; i < oBlock.GetDetailedCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        const int iResult = oBlock.GetDetailed(i, &oTiming);
        aoEntries.push_back(
            { static_cast<unsigned int>(iResult), oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
              oTiming.GetPixelClockInKiloHz(), oTiming.GetHorizontalFrontPorch(), oTiming.GetHorizontalSync(),
              oTiming.GetHorizontalBackPorch(), oTiming.GetVerticalFrontPorch(), oTiming.GetVerticalSync() });
    }
    return aoEntries;
}

using SAudioEntry = std::array<unsigned int, 4>; // format, channels, rates, extra

inline std::vector<SAudioEntry> GetAudios(const CEdidExtBlockCEA861& oBlock)
{
    std::vector<SAudioEntry> aoEntries;
    for (unsigned int i = 0; i < oBlock.GetAudioDescriptorCount(); ++i)
    {
        CEdidExtBlockCEA861::SAudioDescriptor oEntry = {};
        oBlock.GetAudioDescriptor(i, &oEntry);
        aoEntries.push_back({ oEntry.m_eFormat, oEntry.m_uiChannels, oEntry.m_eSamplingFreq, oEntry.m_uiExtra });
    }
    return aoEntries;
}

inline std::vector<unsigned int> GetSpeakers(const CEdidExtBlockCEA861& oBlock)
{
    std::vector<unsigned int> auiMasks;
    for (unsigned int i = 0; i < oBlock.GetSpeakerDescriptorCount(); ++i)
    {
        unsigned int uiMask = 0;
        oBlock.GetSpeakerDescriptor(i, &uiMask);
        auiMasks.push_back(uiMask);
    }
    return auiMasks;
}

inline CEdidExtBlockCEA861::SAudioDescriptor MakeAudio(unsigned int uiFormat, unsigned int uiChannels,
                                                       unsigned int uiRates, unsigned int uiExtra)
{
    return { static_cast<CEdidExtBlockCEA861::EAudioFormat>(uiFormat), uiChannels,
             static_cast<CEdidExtBlockCEA861::EAudioSamplingFreq>(uiRates), uiExtra };
}
