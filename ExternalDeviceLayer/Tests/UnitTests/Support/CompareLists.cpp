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
// Whether both lists are as long, and IsSame holds at each index.
template <class SAME>
bool IsSameList(unsigned int uiFirstCount, unsigned int uiSecondCount, const SAME& IsSame)
{
    for (unsigned int i = 0; uiFirstCount == uiSecondCount && i < uiFirstCount; ++i)
    {
        if (!IsSame(i))
        {
            return false;
        }
    }
    return uiFirstCount == uiSecondCount;
}

bool HasSameStandards(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    return IsSameList(oFirst.GetStandardCount(), oSecond.GetStandardCount(), [&](unsigned int i) {
        CVidParamTimingGeneric aoTimings[2];
        int aiNative[2] = {};
        return oFirst.GetStandard(i, &aoTimings[0], &aiNative[0]) ==
                   oSecond.GetStandard(i, &aoTimings[1], &aiNative[1]) &&
               aiNative[0] == aiNative[1] && IsSameTiming(aoTimings[0], aoTimings[1]);
    });
}

bool HasSameDetailed(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    return IsSameList(oFirst.GetDetailedCount(), oSecond.GetDetailedCount(), [&](unsigned int i) {
        CVidParamTimingGeneric aoTimings[2];
        return oFirst.GetDetailed(i, &aoTimings[0]) == oSecond.GetDetailed(i, &aoTimings[1]) &&
               IsSameTiming(aoTimings[0], aoTimings[1]);
    });
}

bool HasSameAudio(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    return IsSameList(oFirst.GetAudioDescriptorCount(), oSecond.GetAudioDescriptorCount(), [&](unsigned int i) {
        CEdidExtBlockCEA861::SAudioDescriptor oA = {};
        CEdidExtBlockCEA861::SAudioDescriptor oB = {};
        oFirst.GetAudioDescriptor(i, &oA);
        oSecond.GetAudioDescriptor(i, &oB);
        return oA.m_eFormat == oB.m_eFormat && oA.m_uiChannels == oB.m_uiChannels &&
               oA.m_eSamplingFreq == oB.m_eSamplingFreq && oA.m_uiExtra == oB.m_uiExtra;
    });
}

bool HasSameSpeakers(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond)
{
    return IsSameList(oFirst.GetSpeakerDescriptorCount(), oSecond.GetSpeakerDescriptorCount(), [&](unsigned int i) {
        unsigned int auiMasks[2] = {};
        oFirst.GetSpeakerDescriptor(i, &auiMasks[0]);
        oSecond.GetSpeakerDescriptor(i, &auiMasks[1]);
        return auiMasks[0] == auiMasks[1];
    });
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
