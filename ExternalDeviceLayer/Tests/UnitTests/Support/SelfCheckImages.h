// All images of the self-check in one list, for loops and fuzz seeds.

#pragma once

#include "CEdidTestImages.h"

struct SNamedImage
{
    const char* m_pszName;
    const SEdidImage* m_paui8Image;
};

inline constexpr SNamedImage gsc_aoSelfCheckImages[] = {
    { "AsusHd_AsusHdEdidData", &AsusHd::g_auiAsusHdEdidData },
    { "BaseStandard_BaseStandardEdidData", &BaseStandard::g_auiBaseStandardEdidData },
    { "BaseDetailed_DetailedEdidData", &BaseDetailed::g_auiDetailedEdidData },
    { "ExtDetailed_DetailedEdidData", &ExtDetailed::g_auiDetailedEdidData },
    { "ExtDetailed_DetailedEdidData1", &ExtDetailed::g_auiDetailedEdidData1 },
    { "ExtDetailed_DetailedEdidData2", &ExtDetailed::g_auiDetailedEdidData2 },
    { "ExtDetailed_DetailedEdidData3", &ExtDetailed::g_auiDetailedEdidData3 },
    { "ExtDetailed2_DetailedEdidData", &ExtDetailed2::g_auiDetailedEdidData },
    { "ExtDetailed2_DetailedEdidData1", &ExtDetailed2::g_auiDetailedEdidData1 },
    { "ExtDetailed2_DetailedEdidData2", &ExtDetailed2::g_auiDetailedEdidData2 },
    { "ExtDetailed2_DetailedEdidData3", &ExtDetailed2::g_auiDetailedEdidData3 },
    { "ExtStandard_StandardEdidData", &ExtStandard::g_auiStandardEdidData },
    { "ExtStandard_StandardEdidData1", &ExtStandard::g_auiStandardEdidData1 },
    { "ExtStandard_StandardEdidData2", &ExtStandard::g_auiStandardEdidData2 },
    { "ExtStandard_StandardEdidData3", &ExtStandard::g_auiStandardEdidData3 },
    { "ExtStandard_StandardEdidData4", &ExtStandard::g_auiStandardEdidData4 },
    { "ExtStandard2_Standard2EdidData", &ExtStandard2::g_auiStandard2EdidData },
    { "ExtStandard2_Standard2EdidData1", &ExtStandard2::g_auiStandard2EdidData1 },
    { "ColorBitDepth_ColorBitDepthEdidData", &ColorBitDepth::g_auiColorBitDepthEdidData },
    { "ColorBitDepth_ColorBitDepthEdidData1", &ColorBitDepth::g_auiColorBitDepthEdidData1 },
    { "TimingsCompare_TimingsCompareEdidData", &TimingsCompare::g_auiTimingsCompareEdidData },
    { "TimingsCompare_TimingsCompareEdidData1", &TimingsCompare::g_auiTimingsCompareEdidData1 },
    { "Audio_AudioOneBlockEdidData", &Audio::g_auiAudioOneBlockEdidData },
    { "Audio_AudioFilteredEdidData", &Audio::g_auiAudioFilteredEdidData },
    { "Audio_AudioRemovedEdidData", &Audio::g_auiAudioRemovedEdidData },
    { "Audio_AudioNoBlockEdidData", &Audio::g_auiAudioNoBlockEdidData },
    { "Audio_AudioAddedEdidData", &Audio::g_auiAudioAddedEdidData },
    { "Audio_AudioAddBlockEdidData", &Audio::g_auiAudioAddBlockEdidData },
    { "Audio_AudioAdd2EdidData", &Audio::g_auiAudioAdd2EdidData },
    { "Audio_AudioSetEdidData", &Audio::g_auiAudioSetEdidData },
    { "Audio_AudioTenEdidData", &Audio::g_auiAudioTenEdidData },
    { "Audio_AudioElevenEdidData", &Audio::g_auiAudioElevenEdidData },
    { "Audio_AudioFullEdidData", &Audio::g_auiAudioFullEdidData },
    { "Audio_AudioFullAddedEdidData", &Audio::g_auiAudioFullAddedEdidData },
    { "Audio_AudioTwoDescriptorsEdidData", &Audio::g_auiAudioTwoDescriptorsEdidData },
};
