// Audio and speaker allocation data blocks of a CEA-861 block: the lists of descriptors and masks, and their editing.
// Making room and closing gaps is left to EdidExtBlockCEA861.cpp.

#include "EdidExtBlockCEA861.h"

#include <bit>
#include <iterator>

#include "EdidExtBlockCEA861Private.h"
#include "ZorTools.h"

namespace
{
// A short audio descriptor:
//     byte 0  bits 6 to 3 format, bits 2 to 0 channels minus 1
//     byte 1  bits 6 to 0 sampling rates
//     byte 2  depends on the format
// Bit 7 of the first two is reserved and kept as found.
constexpr unsigned int gsc_uiAudioSize = 3;
constexpr unsigned int gsc_uiReservedBit = 0x80;
constexpr unsigned int gsc_uiFormatShift = 3;
constexpr unsigned int gsc_uiFormatBits = 0x0F;
constexpr unsigned int gsc_uiChannelBits = 0x07;
constexpr unsigned int gsc_uiRateBits = 0x7F;
constexpr unsigned int gsc_uiLeastChannels = 2;

// A speaker allocation: bits 7 to 0 of the mask in byte 0, bits 10 to 8 in bits 2 to 0 of byte 1, byte 2 reserved.
constexpr unsigned int gsc_uiSpeakerSize = 3;
constexpr unsigned int gsc_uiSpeakerHighShift = 8;
constexpr unsigned int gsc_uiSpeakerHighBits = 0x07;

constexpr const char* gsc_apszFormatNames[] = {
    "",
    "Linear Pulse Code Modulation (PCM)",
    "AC3",
    "Moving Picture Experts Group 1 (MPEG1)",
    "MP3",
    "Moving Picture Experts Group 2 (MPEG2)",
    "Advanced Audio Coding (AAC)",
    "DTS",
    "Adaptive Transform Acoustic Coding (ATRAC)",
    "1 bit",
    "Enhanced AC3",
    "Direct Stream Transfer HD (DTS HD)",
    "MLP Audio Transport (MAT)",
    "Direct Stream Transfer (DST)",
    "Windows Media Audio Professional (WMA Pro)",
    "MPEG4 HE AAC",
    "MPEG4 HE AAC V2",
    "MPEG4 AAC LC",
    "Digital Rise Audio (DRA)",
    "MPEG4 HE ACC Surround",
    "MPEG4 ACC LC Surround",
};
static_assert(std::size(gsc_apszFormatNames) == CEdidExtBlockCEA861::eAudioFormat_Mpeg4AacLcSurround + 1,
              "a name for each format");

// In kHz, by bit number.
constexpr const char* gsc_apszRateNames[] = { "32", "44", "48", "88", "96", "176", "192" };
static_assert(1U << std::size(gsc_apszRateNames) == gsc_uiRateBits + 1, "a name for each rate bit");

CEdidExtBlockCEA861::SAudioDescriptor ReadAudioDescriptor(const unsigned char* pui8Raw)
{
    const unsigned int uiFirst = pui8Raw[0];
    CEdidExtBlockCEA861::SAudioDescriptor oDescriptor;
    oDescriptor.m_eFormat =
        static_cast<CEdidExtBlockCEA861::EAudioFormat>(uiFirst >> gsc_uiFormatShift & gsc_uiFormatBits);
    oDescriptor.m_uiChannels = (uiFirst & gsc_uiChannelBits) + 1;
    oDescriptor.m_eSamplingFreq = static_cast<CEdidExtBlockCEA861::EAudioSamplingFreq>(pui8Raw[1] & gsc_uiRateBits);
    oDescriptor.m_uiExtra = pui8Raw[2];
    return oDescriptor;
}

void WriteAudioDescriptor(const CEdidExtBlockCEA861::SAudioDescriptor& oDescriptor, unsigned char* pui8Raw)
{
    pui8Raw[0] = static_cast<unsigned char>((pui8Raw[0] & gsc_uiReservedBit) |
                                            (oDescriptor.m_eFormat & gsc_uiFormatBits) << gsc_uiFormatShift |
                                            ((oDescriptor.m_uiChannels - 1) & gsc_uiChannelBits));
    pui8Raw[1] =
        static_cast<unsigned char>((pui8Raw[1] & gsc_uiReservedBit) | (oDescriptor.m_eSamplingFreq & gsc_uiRateBits));
    pui8Raw[2] = static_cast<unsigned char>(oDescriptor.m_uiExtra);
}

void WriteSpeakerMask(unsigned int uiMask, unsigned char* pui8Raw)
{
    pui8Raw[0] = static_cast<unsigned char>(uiMask);
    pui8Raw[1] = static_cast<unsigned char>(uiMask >> gsc_uiSpeakerHighShift & gsc_uiSpeakerHighBits);
    pui8Raw[2] = 0;
}
}

// ---- Audio ----

unsigned int CEdidExtBlockCEA861::GetAudioDescriptorCount() const { return m_aoAudio.GetCount(); }

int CEdidExtBlockCEA861::GetAudioDescriptor(unsigned int uiIndex, SAudioDescriptor* poDescriptor) const
{
    if (poDescriptor == nullptr || uiIndex >= GetAudioDescriptorCount())
    {
        return 0;
    }
    *poDescriptor = m_aoAudio.GetData()[uiIndex];
    return 1;
}

int CEdidExtBlockCEA861::SetAudioDescriptor(unsigned int uiIndex, const SAudioDescriptor* poDescriptor)
{
    if (poDescriptor == nullptr || poDescriptor->m_uiChannels < gsc_uiLeastChannels ||
        uiIndex >= GetAudioDescriptorCount())
    {
        return 0;
    }
    const SAudioPlace oPlace = FindAudioDescriptor(uiIndex);
    if (oPlace.m_uiOffset == 0)
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Audio);
    WriteAudioDescriptor(*poDescriptor, m_aui8Raw.GetData() + oPlace.m_uiOffset);
    FinishEdit(uiLists);
    return 1;
}

int CEdidExtBlockCEA861::AddAudioDescriptor(const SAudioDescriptor* poDescriptor)
{
    if (poDescriptor == nullptr || poDescriptor->m_uiChannels < gsc_uiLeastChannels)
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Audio | eList_Detailed);
    unsigned int uiLength = 0;
    const unsigned int uiFirstBlock = GetDataBlockOffset(eCea861Tag_Audio, 0, &uiLength);
    const bool bGrow = uiFirstBlock != 0 && uiLength + gsc_uiAudioSize <= gsc_uiCea861MostPayload;
    const unsigned int uiOffset = bGrow ? GrowDataBlock(uiFirstBlock, uiLength, gsc_uiAudioSize)
                                        : OpenDataBlock(eCea861Tag_Audio, gsc_uiAudioSize);
    if (uiOffset == 0)
    {
        return 0;
    }
    WriteAudioDescriptor(*poDescriptor, m_aui8Raw.GetData() + uiOffset);
    SetBasicAudio();
    FinishEdit(uiLists);
    return 1;
}

int CEdidExtBlockCEA861::RemoveAudioDescriptor(unsigned int uiIndex)
{
    if (uiIndex >= GetAudioDescriptorCount())
    {
        return 0;
    }
    const SAudioPlace oPlace = FindAudioDescriptor(uiIndex);
    if (oPlace.m_uiOffset == 0)
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Audio | eList_Detailed);
    if (oPlace.m_uiBlockLength / gsc_uiAudioSize < 2)
    {
        RemoveDataBlock(oPlace.m_uiBlockOffset, oPlace.m_uiBlockLength);
    }
    else
    {
        ShrinkDataBlock(oPlace.m_uiBlockOffset, oPlace.m_uiOffset, gsc_uiAudioSize);
        LowerDetailedStart(gsc_uiAudioSize);
    }
    if (GetAudioDescriptorCount() == 1 && GetSpeakerDescriptorCount() == 0)
    {
        ClearBasicAudio();
    }
    FinishEdit(uiLists);
    return 1;
}

unsigned int CEdidExtBlockCEA861::ExtractAudioInfo()
{
    unsigned int uiMost = 0;
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861Tag_Audio);)
    {
        uiMost += oWalk.GetLength() / gsc_uiAudioSize;
    }
    CListFill<SAudioDescriptor> oFill(m_aoAudio, uiMost);
    CDataBlockWalk oWalk(*this);
    if (!oWalk.Next(eCea861Tag_Audio) || oWalk.GetLength() % gsc_uiAudioSize != 0)
    {
        return 0; // a first block of odd length makes all of them suspect
    }
    do
    {
        for (unsigned int i = 0; i < oWalk.GetLength() / gsc_uiAudioSize; ++i)
        {
            oFill.Add(ReadAudioDescriptor(m_aui8Raw.GetData() + oWalk.GetOffset() + gsc_uiAudioSize * i));
        }
    } while (oWalk.Next(eCea861Tag_Audio));
    return oFill.GetCount();
}

// Where the descriptor at this index of the list stands; all 0 when the bytes do not hold it (any more).
CEdidExtBlockCEA861::SAudioPlace CEdidExtBlockCEA861::FindAudioDescriptor(unsigned int uiIndex) const
{
    unsigned int uiBase = 0;
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861Tag_Audio);)
    {
        const unsigned int uiCount = oWalk.GetLength() / gsc_uiAudioSize;
        if (uiIndex - uiBase < uiCount)
        {
            return { oWalk.GetOffset(), oWalk.GetLength(), oWalk.GetOffset() + gsc_uiAudioSize * (uiIndex - uiBase) };
        }
        uiBase += uiCount;
    }
    return { 0, 0, 0 };
}

CMString CEdidExtBlockCEA861::GetAudioFormatStr(const EAudioFormat& eFormat)
{
    const unsigned int uiFormat = eFormat;
    return CMString(uiFormat < std::size(gsc_apszFormatNames) ? gsc_apszFormatNames[uiFormat] : "");
}

CMString CEdidExtBlockCEA861::GetAudioSamplingFreqStr(const EAudioSamplingFreq& eFreq)
{
    const unsigned int uiFreq = eFreq;
    const bool bOneRate = uiFreq <= gsc_uiRateBits && std::has_single_bit(uiFreq);
    return CMString(bOneRate ? gsc_apszRateNames[std::countr_zero(uiFreq)] : "");
}

// ---- Speakers ----

unsigned int CEdidExtBlockCEA861::GetSpeakerDescriptorCount() const { return m_auiSpeaker.GetCount(); }

int CEdidExtBlockCEA861::GetSpeakerDescriptor(unsigned int uiIndex, unsigned int* puiMask) const
{
    if (puiMask == nullptr || uiIndex >= GetSpeakerDescriptorCount())
    {
        return 0;
    }
    *puiMask = m_auiSpeaker.GetData()[uiIndex];
    return 1;
}

int CEdidExtBlockCEA861::SetSpeakerDescriptor(unsigned int uiIndex, unsigned int uiMask)
{
    if (uiIndex >= GetSpeakerDescriptorCount())
    {
        return 0;
    }
    unsigned int uiLength = 0;
    const unsigned int uiOffset = GetDataBlockOffset(eCea861Tag_Speaker, uiIndex, &uiLength);
    if (uiOffset == 0 || uiLength < gsc_uiSpeakerSize) // writing past a short block would damage its neighbour
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Speaker);
    WriteSpeakerMask(uiMask, m_aui8Raw.GetData() + uiOffset);
    FinishEdit(uiLists);
    return 1;
}

int CEdidExtBlockCEA861::AddSpeakerDescriptor(unsigned int uiMask)
{
    if (uiMask == 0)
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Speaker | eList_Detailed);
    const unsigned int uiOffset = OpenDataBlock(eCea861Tag_Speaker, gsc_uiSpeakerSize);
    if (uiOffset == 0)
    {
        return 0;
    }
    WriteSpeakerMask(uiMask, m_aui8Raw.GetData() + uiOffset);
    SetBasicAudio();
    FinishEdit(uiLists);
    return 1;
}

int CEdidExtBlockCEA861::RemoveSpeakerDescriptor(unsigned int uiIndex)
{
    if (uiIndex >= GetSpeakerDescriptorCount())
    {
        return 0;
    }
    unsigned int uiLength = 0;
    const unsigned int uiOffset = GetDataBlockOffset(eCea861Tag_Speaker, uiIndex, &uiLength);
    if (uiOffset == 0)
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Speaker | eList_Detailed);
    RemoveDataBlock(uiOffset, uiLength);
    if (GetSpeakerDescriptorCount() == 1 && GetAudioDescriptorCount() == 0)
    {
        ClearBasicAudio();
    }
    FinishEdit(uiLists);
    return 1;
}

unsigned int CEdidExtBlockCEA861::ExtractSpeakerInfo()
{
    CListFill<unsigned int> oFill(m_auiSpeaker, CountDataBlocks(eCea861Tag_Speaker));
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861Tag_Speaker);)
    {
        // A block too short for a byte has 0 there.
        const unsigned int uiLow = oWalk.GetLength() > 0 ? oWalk.GetByte(0) : 0U;
        const unsigned int uiHigh = oWalk.GetLength() > 1 ? oWalk.GetByte(1) : 0U;
        oFill.Add((uiHigh & gsc_uiSpeakerHighBits) << gsc_uiSpeakerHighShift | uiLow);
    }
    return oFill.GetCount();
}
