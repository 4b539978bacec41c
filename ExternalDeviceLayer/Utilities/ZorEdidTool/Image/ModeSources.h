// A size and whole rate as the command line has it, and the library's tables and formulas that know timings for it:
// those of `edit --preferred`, and of the types of `timing` that answer as the library's lists do.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "VidParamTimingGeneric.h"

struct SAskedMode
{
    unsigned int m_uiWidth = 0;
    unsigned int m_uiHeight = 0;
    unsigned int m_uiRateInHz = 0;
};

// "1920x1080@60"; false for anything else, numbers beyond 32 bits among it.
bool ParseMode(const std::string& sText, SAskedMode& oMode);

struct STimingSource
{
    const char* m_pszName; // as GetTypeName has it
    // Match number uiIndex, from 0. A formula has one answer.
    int (*m_pfnGet)(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiWidth, unsigned int uiHeight,
                    unsigned int uiRateInHz);
};

std::span<const STimingSource> GetModeSources();

// What a source knows of a mode.
struct STimingAnswers
{
    // Rows that say the same, as codes for two picture aspects do, are one timing.
    std::vector<CVidParamTimingGeneric> m_aoTimings;
    // A formula's timing was left out: its clock is beyond the 32 bits of hertz that the library's numbers have.
    bool m_bClockTooHigh = false;
};

STimingAnswers AskSource(const STimingSource& oSource, const SAskedMode& oMode);
