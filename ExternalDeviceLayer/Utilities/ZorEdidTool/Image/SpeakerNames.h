// Names of the speaker positions of CTA-861, by bit of the mask.

#pragma once

// A name and its value.
struct SNamedValue
{
    const char* m_pszName; // any case
    unsigned int m_uiValue;
};

// In the order of the bits. The first name of a bit is printed; the second one, of later editions of the standard, is
// read, too.
inline constexpr SNamedValue gsc_aoSpeakers[] = {
    { "FL/FR", 0x001 },   { "LFE", 0x002 },     { "FC", 0x004 },      { "RL/RR", 0x008 },
    { "BL/BR", 0x008 },   { "RC", 0x010 },      { "BC", 0x010 },      { "FLC/FRC", 0x020 },
    { "RLC/RRC", 0x040 }, { "FLW/FRW", 0x080 }, { "FLH/FRH", 0x100 }, { "TpFL/TpFR", 0x100 },
    { "TC", 0x200 },      { "TpC", 0x200 },     { "FCH", 0x400 },     { "TpFC", 0x400 },
};
