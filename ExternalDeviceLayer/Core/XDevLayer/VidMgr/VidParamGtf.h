/// Timings by the VESA Generalized Timing Formula with its default parameters, in whole numbers; progressive modes
/// without margins.

#pragma once

#pragma GCC visibility push(default)

class CVidParamTiming;

class CVidParamGtf
{
public:
    /// Computes the timing of an active size (pixels, lines) at a vertical rate in Hz; any values are safe.
    ///   poTiming  receives the timing, source eVidParamType_Gtf; null makes the call a test. Untouched on a result
    ///             of 0.
    /// Returns 1, or 0 when the numbers leave no room for a sync or an active area.
    static int GetVidParam(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                           unsigned int uiVerticalRateInHz, CVidParamTiming* poTiming);
};

#pragma GCC visibility pop
