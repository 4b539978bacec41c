// A size and rate as the command line has it, and the tables and formulas that know timings for it: those of `timing`
// and of `edit --preferred`.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "VidParamTimingGeneric.h"

struct SMode
{
    unsigned int m_uiWidth = 0;
    unsigned int m_uiHeight = 0;
    unsigned int m_uiRateInHz = 0;
};

// "1920x1080@60"; false for anything else, numbers beyond 32 bits among it.
bool ParseMode(const std::string& sText, SMode& oMode);

struct SModeSource
{
    const char* m_pszName; // as GetTypeName has it
    // Match number uiIndex, from 0. A formula has one answer.
    int (*m_pfnGet)(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
                    unsigned int uiRateInHz);
};

std::span<const SModeSource> GetModeSources();

// What a source knows of a mode.
struct SModeAnswers
{
    // Rows that say the same, as codes for two picture aspects do, are one timing.
    std::vector<CVidParamTimingGeneric> m_aoTimings;
    // A formula's timing was left out: its clock is beyond the 32 bits of hertz that the library's numbers have.
    bool m_bClockTooHigh = false;
};

SModeAnswers AskSource(const SModeSource& oSource, const SMode& oMode);
