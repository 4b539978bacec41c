// Names of the speaker positions of CTA-861, by bit of its bytes, the first byte below.

#pragma once

// A name and its value.
struct SNamedValue
{
    const char* m_pszName; // any case
    unsigned int m_uiValue;
};

inline constexpr const char* gsc_apszSpeakers[] = {
    "FL/FR", "LFE1",  "FC",   "BL/BR", "BC",      "FLc/FRc",     "RLC/RRC",   "FLw/FRw", "TpFL/TpFR", "TpC",
    "TpFC",  "LS/RS", "LFE2", "TpBC",  "SiL/SiR", "TpSiL/TpSiR", "TpBL/TpBR", "BtFC",    "BtFL/BtFR", "TpLS/TpRS",
};

// What is read: of the positions that the library's lists hold these names, and those of earlier editions.
inline constexpr unsigned int gsc_uiListedSpeakers = 11;
inline constexpr SNamedValue gsc_aoSpeakers[] = {
    { gsc_apszSpeakers[0], 0x001 },
    { gsc_apszSpeakers[1], 0x002 },
    { "LFE", 0x002 },
    { gsc_apszSpeakers[2], 0x004 },
    { gsc_apszSpeakers[3], 0x008 },
    { "RL/RR", 0x008 },
    { gsc_apszSpeakers[4], 0x010 },
    { "RC", 0x010 },
    { gsc_apszSpeakers[5], 0x020 },
    { gsc_apszSpeakers[6], 0x040 },
    { gsc_apszSpeakers[7], 0x080 },
    { gsc_apszSpeakers[8], 0x100 },
    { "FLH/FRH", 0x100 },
    { gsc_apszSpeakers[9], 0x200 },
    { "TC", 0x200 },
    { gsc_apszSpeakers[10], 0x400 },
    { "FCH", 0x400 },
};
