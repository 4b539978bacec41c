// What the HDMI compliance test objects to in the audio of a CTA-861 block. Private to the sources that print it.

#pragma once

namespace ZorUtils
{
struct SAudioWarning
{
    bool (*m_pfnHolds)(unsigned int uiAudioDescriptors, unsigned int uiSpeakerDescriptors);
    const char* m_pszText;
};

inline constexpr SAudioWarning gsc_aoAudioWarnings[] = {
    { [](unsigned int uiAudio, unsigned int uiSpeakers) { return uiSpeakers != 0 && uiAudio == 0; },
      "Speaker descriptor without audio descriptor" },
    { [](unsigned int uiAudio, unsigned int uiSpeakers) { return uiSpeakers == 0 && uiAudio != 0; },
      "Audio descriptor without speaker descriptor" },
    { [](unsigned int, unsigned int uiSpeakers) { return uiSpeakers > 1; }, "Found more than 1 speaker descriptor" },
};
} // namespace ZorUtils
