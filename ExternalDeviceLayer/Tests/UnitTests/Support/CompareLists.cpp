// Compares the lists that blocks hold.

#include "CompareLists.h"

#include "EdidExtBlockCEA861.h"
#include "VidParamTimingGeneric.h"

bool IsSameTiming(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond)
{
    const SVidParamGenericData& oA = oFirst.GetData();
    const SVidParamGenericData& oB = oSecond.GetData();
    return oA.uiHorizontalActive == oB.uiHorizontalActive && oA.uiVerticalActive == oB.uiVerticalActive &&
           oA.uiVerticalRateInHz == oB.uiVerticalRateInHz && oA.uiHorizontalRateInHz == oB.uiHorizontalRateInHz &&
           oA.uiPixelClockInHz == oB.uiPixelClockInHz && oA.uiHorizontalFrontPorch == oB.uiHorizontalFrontPorch &&
           oA.uiHorizontalSync == oB.uiHorizontalSync && oA.uiHorizontalBackPorch == oB.uiHorizontalBackPorch &&
           oA.uiVerticalFrontPorch == oB.uiVerticalFrontPorch && oA.uiVerticalSync == oB.uiVerticalSync &&
           oA.uiVerticalBackPorch == oB.uiVerticalBackPorch && oA.uiFlags == oB.uiFlags &&
           oA.eVideoFamilyType == oB.eVideoFamilyType;
}

namespace
{
bool HasSameStandards(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    if (oFirst.GetStandardCount() != oSecond.GetStandardCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetStandardCount(); ++i)
    {
        CVidParamTimingGeneric aoTimings[2];
        int aiNative[2] = {};
        if (oFirst.GetStandard(i, &aoTimings[0], &aiNative[0]) != oSecond.GetStandard(i, &aoTimings[1], &aiNative[1]) ||
            aiNative[0] != aiNative[1] || !IsSameTiming(aoTimings[0], aoTimings[1]))
        {
            return false;
        }
    }
    return true;
}

bool HasSameDetailed(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    if (oFirst.GetDetailedCount() != oSecond.GetDetailedCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetDetailedCount(); ++i)
    {
        CVidParamTimingGeneric aoTimings[2];
        if (oFirst.GetDetailed(i, &aoTimings[0]) != oSecond.GetDetailed(i, &aoTimings[1]) ||
            !IsSameTiming(aoTimings[0], aoTimings[1]))
        {
            return false;
        }
    }
    return true;
}

bool HasSameAudio(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    if (oFirst.GetAudioDescriptorCount() != oSecond.GetAudioDescriptorCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetAudioDescriptorCount(); ++i)
    {
        CEdidExtBlockCEA861::SAudioDescriptor oA = {};
        CEdidExtBlockCEA861::SAudioDescriptor oB = {};
        oFirst.GetAudioDescriptor(i, &oA);
        oSecond.GetAudioDescriptor(i, &oB);
        if (oA.m_eFormat != oB.m_eFormat || oA.m_uiChannels != oB.m_uiChannels ||
            oA.m_eSamplingFreq != oB.m_eSamplingFreq || oA.m_uiExtra != oB.m_uiExtra)
        {
            return false;
        }
    }
    return true;
}

bool HasSameSpeakers(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    if (oFirst.GetSpeakerDescriptorCount() != oSecond.GetSpeakerDescriptorCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetSpeakerDescriptorCount(); ++i)
    {
        unsigned int uiFirst = 0;
        unsigned int uiSecond = 0;
        oFirst.GetSpeakerDescriptor(i, &uiFirst);
        oSecond.GetSpeakerDescriptor(i, &uiSecond);
        if (uiFirst != uiSecond)
        {
            return false;
        }
    }
    return true;
}
}

const char* CompareTableTimings(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    return HasSameStandards(oFirst, oSecond) ? nullptr : "the table timings of a block are not those of its bytes";
}

const char* CompareOtherLists(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    if (!HasSameDetailed(oFirst, oSecond))
    {
        return "the detailed timings of a block are not those of its bytes";
    }
    if (!HasSameAudio(oFirst, oSecond))
    {
        return "the audio descriptors of a block are not those of its bytes";
    }
    return HasSameSpeakers(oFirst, oSecond) ? nullptr : "the speaker masks of a block are not those of its bytes";
}
