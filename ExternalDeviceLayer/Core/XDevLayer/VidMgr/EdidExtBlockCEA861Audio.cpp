// Audio and speaker allocation data blocks of a CTA-861 block: the lists of descriptors and masks, and their editing.
// Making room and closing gaps is left to Cea861Bytes.cpp.

#include "EdidExtBlockCEA861.h"

#include <bit>
#include <iterator>

#include "Cea861Bytes.h"
#include "ListFill.h"
#include "Standards/AudioBlocks.h"
#include "ZorTools.h"

using namespace ZorCore;
using namespace ZorStandards;
using namespace ZorStandards::Cta;

namespace
{
constexpr SDataBlockKind gsc_oAudioBlocks = { CEdidExtBlockCEA861::eCea861Tag_Audio, false };
constexpr SDataBlockKind gsc_oSpeakerBlocks = { CEdidExtBlockCEA861::eCea861Tag_Speaker, false };

// A short audio descriptor. Bit 7 of the first two bytes is reserved and kept as found; the third depends on the
// format.
constexpr unsigned int gsc_uiAudioSize = Audio::gsc_uiDescriptorSize;
constexpr SBitsPlace gsc_oRates = { 1, 6, 0 };
constexpr unsigned int gsc_uiExtraOffset = 2;
constexpr unsigned int gsc_uiLeastChannels = 2;

// A speaker allocation: a mask of 11 bits. The rest of byte 1 and byte 2 are reserved.
constexpr unsigned int gsc_uiSpeakerSize = 3;
constexpr SPlace gsc_oSpeakers = Split({ { 1, 2, 0 }, { 0, 7, 0 } });

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
static_assert(std::size(gsc_apszRateNames) == gsc_oRates.GetWidth(), "a name for each rate bit");

CEdidExtBlockCEA861::SAudioDescriptor ReadAudioDescriptor(const unsigned char* pui8Raw)
{
    return { static_cast<CEdidExtBlockCEA861::EAudioFormat>(Audio::gsc_oFormat.Read(pui8Raw)),
             Audio::gsc_oChannels.Read(pui8Raw) + 1,
             static_cast<CEdidExtBlockCEA861::EAudioSamplingFreq>(gsc_oRates.Read(pui8Raw)),
             pui8Raw[gsc_uiExtraOffset] };
}

void WriteAudioDescriptor(const CEdidExtBlockCEA861::SAudioDescriptor& oDescriptor, unsigned char* pui8Raw)
{
    Audio::gsc_oFormat.Write(pui8Raw, oDescriptor.m_eFormat);
    Audio::gsc_oChannels.Write(pui8Raw, oDescriptor.m_uiChannels - 1);
    gsc_oRates.Write(pui8Raw, oDescriptor.m_eSamplingFreq);
    pui8Raw[gsc_uiExtraOffset] = LowByte(oDescriptor.m_uiExtra);
}

// A payload too short for a byte has 0 there.
unsigned int ReadSpeakerMask(const CDataBlockWalk& oWalk)
{
    unsigned char aui8Raw[gsc_uiSpeakerSize] = {};
    for (unsigned int i = 0; i < gsc_uiSpeakerSize && i < oWalk.GetLength(); ++i)
    {
        aui8Raw[i] = oWalk.GetByte(i);
    }
    return gsc_oSpeakers.Read(aui8Raw);
}

void WriteSpeakerMask(unsigned int uiMask, unsigned char* pui8Raw, bool bKeepRest)
{
    if (!bKeepRest)
    {
        ZorTools_memset(pui8Raw, 0, gsc_uiSpeakerSize);
    }
    gsc_oSpeakers.Write(pui8Raw, uiMask);
}

// Where a descriptor is, and in which block; offsets of 0 when it is absent.
struct SAudioPlace
{
    SPayload m_oBlock;
    unsigned int m_uiOffset;
};

// The place of a descriptor by its index in the list; none when the bytes do not hold it (any more).
SAudioPlace FindAudioDescriptor(const CCea861Bytes& oBytes, unsigned int uiIndex)
{
    unsigned int uiBase = 0;
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(gsc_oAudioBlocks);)
    {
        const unsigned int uiCount = oWalk.GetLength() / gsc_uiAudioSize;
        if (uiIndex - uiBase < uiCount)
        {
            return { oWalk.GetPayload(), oWalk.GetPayload().m_uiOffset + gsc_uiAudioSize * (uiIndex - uiBase) };
        }
        uiBase += uiCount;
    }
    return {};
}
} // namespace

// ---- Audio ----

unsigned int CEdidExtBlockCEA861::GetAudioDescriptorCount() const { return m_aoAudio.GetCount(); }

int CEdidExtBlockCEA861::GetAudioDescriptor(unsigned int uiIndex, SAudioDescriptor* poDescriptor) const
{
    if (poDescriptor == nullptr || uiIndex >= GetAudioDescriptorCount())
    {
        return 0;
    }
    *poDescriptor = m_aoAudio[uiIndex];
    return 1;
}

int CEdidExtBlockCEA861::SetAudioDescriptor(unsigned int uiIndex, const SAudioDescriptor* poDescriptor)
{
    if (poDescriptor == nullptr || poDescriptor->m_uiChannels < gsc_uiLeastChannels ||
        uiIndex >= GetAudioDescriptorCount())
    {
        return 0;
    }
    const SAudioPlace oPlace = FindAudioDescriptor(GetBytes(), uiIndex);
    if (oPlace.m_uiOffset == 0)
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Audio);
    WriteAudioDescriptor(*poDescriptor, EditBytes().GetAt(oPlace.m_uiOffset));
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
    CCea861Editor oEditor = EditBytes();
    const SPayload oFirst = oEditor.FindDataBlock(gsc_oAudioBlocks, 0);
    const bool bGrow = oFirst.m_uiOffset != 0 && oFirst.m_uiLength + gsc_uiAudioSize <= gsc_uiMostPayload;
    const unsigned int uiOffset = bGrow ? oEditor.GrowDataBlock(oFirst, gsc_uiAudioSize)
                                        : oEditor.OpenDataBlock(eCea861Tag_Audio, gsc_uiAudioSize);
    if (uiOffset == 0)
    {
        return 0;
    }
    WriteAudioDescriptor(*poDescriptor, oEditor.GetAt(uiOffset));
    oEditor.SetBasicAudio();
    FinishEdit(uiLists);
    return 1;
}

int CEdidExtBlockCEA861::RemoveAudioDescriptor(unsigned int uiIndex)
{
    if (uiIndex >= GetAudioDescriptorCount())
    {
        return 0;
    }
    CCea861Editor oEditor = EditBytes();
    const SAudioPlace oPlace = FindAudioDescriptor(oEditor, uiIndex);
    if (oPlace.m_uiOffset == 0)
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Audio | eList_Detailed);
    if (oPlace.m_oBlock.m_uiLength / gsc_uiAudioSize < 2)
    {
        oEditor.RemoveDataBlock(oPlace.m_oBlock);
    }
    else
    {
        oEditor.ShrinkDataBlock(oPlace.m_oBlock, oPlace.m_uiOffset, gsc_uiAudioSize);
        oEditor.LowerDetailedStart(gsc_uiAudioSize);
    }
    if (GetAudioDescriptorCount() == 1 && GetSpeakerDescriptorCount() == 0)
    {
        oEditor.ClearBasicAudio();
    }
    FinishEdit(uiLists);
    return 1;
}

unsigned int CEdidExtBlockCEA861::ExtractAudioInfo()
{
    const CCea861Bytes oBytes = GetBytes();
    unsigned int uiMost = 0;
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(gsc_oAudioBlocks);)
    {
        uiMost += oWalk.GetLength() / gsc_uiAudioSize;
    }
    CListFill<SAudioDescriptor> oFill(m_aoAudio, uiMost);
    CDataBlockWalk oWalk = oBytes.Walk();
    if (!oWalk.Next(gsc_oAudioBlocks) || oWalk.GetLength() % gsc_uiAudioSize != 0)
    {
        return 0; // a first block of odd length makes all of them suspect
    }
    do
    {
        const unsigned char* pui8Payload = oBytes.GetAt(oWalk.GetPayload().m_uiOffset);
        for (unsigned int i = 0; i < oWalk.GetLength() / gsc_uiAudioSize; ++i)
        {
            oFill.Add(ReadAudioDescriptor(pui8Payload + gsc_uiAudioSize * i));
        }
    } while (oWalk.Next(gsc_oAudioBlocks));
    return oFill.GetCount();
}

CMString CEdidExtBlockCEA861::GetAudioFormatStr(const EAudioFormat& eFormat)
{
    const unsigned int uiFormat = eFormat;
    return CMString(uiFormat < std::size(gsc_apszFormatNames) ? gsc_apszFormatNames[uiFormat] : "");
}

CMString CEdidExtBlockCEA861::GetAudioSamplingFreqStr(const EAudioSamplingFreq& eFreq)
{
    const unsigned int uiFreq = eFreq;
    const bool bOneRate = uiFreq <= gsc_oRates.GetMost() && std::has_single_bit(uiFreq);
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
    *puiMask = m_auiSpeaker[uiIndex];
    return 1;
}

int CEdidExtBlockCEA861::SetSpeakerDescriptor(unsigned int uiIndex, unsigned int uiMask)
{
    return WriteSpeakers(uiIndex, uiMask, false);
}

int CEdidExtBlockCEA861::SetSpeakerDescriptorKeepingRest(unsigned int uiIndex, unsigned int uiMask)
{
    return WriteSpeakers(uiIndex, uiMask, true);
}

int CEdidExtBlockCEA861::WriteSpeakers(unsigned int uiIndex, unsigned int uiMask, bool bKeepRest)
{
    if (uiIndex >= GetSpeakerDescriptorCount())
    {
        return 0;
    }
    const SPayload oBlock = GetBytes().FindDataBlock(gsc_oSpeakerBlocks, uiIndex);
    if (oBlock.m_uiOffset == 0 || oBlock.m_uiLength < gsc_uiSpeakerSize) // writing past it would damage its neighbour
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Speaker);
    WriteSpeakerMask(uiMask, EditBytes().GetAt(oBlock.m_uiOffset), bKeepRest);
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
    CCea861Editor oEditor = EditBytes();
    const unsigned int uiOffset = oEditor.OpenDataBlock(eCea861Tag_Speaker, gsc_uiSpeakerSize);
    if (uiOffset == 0)
    {
        return 0;
    }
    WriteSpeakerMask(uiMask, oEditor.GetAt(uiOffset), false);
    oEditor.SetBasicAudio();
    FinishEdit(uiLists);
    return 1;
}

int CEdidExtBlockCEA861::RemoveSpeakerDescriptor(unsigned int uiIndex)
{
    if (uiIndex >= GetSpeakerDescriptorCount())
    {
        return 0;
    }
    CCea861Editor oEditor = EditBytes();
    const SPayload oBlock = oEditor.FindDataBlock(gsc_oSpeakerBlocks, uiIndex);
    if (oBlock.m_uiOffset == 0)
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Speaker | eList_Detailed);
    oEditor.RemoveDataBlock(oBlock);
    if (GetSpeakerDescriptorCount() == 1 && GetAudioDescriptorCount() == 0)
    {
        oEditor.ClearBasicAudio();
    }
    FinishEdit(uiLists);
    return 1;
}

unsigned int CEdidExtBlockCEA861::ExtractSpeakerInfo()
{
    const CCea861Bytes oBytes = GetBytes();
    CListFill<unsigned int> oFill(m_auiSpeaker, oBytes.CountDataBlocks(gsc_oSpeakerBlocks));
    for (CDataBlockWalk oWalk = oBytes.Walk(); oWalk.Next(gsc_oSpeakerBlocks);)
    {
        oFill.Add(ReadSpeakerMask(oWalk));
    }
    return oFill.GetCount();
}
