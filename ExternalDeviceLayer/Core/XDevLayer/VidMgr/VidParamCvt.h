/// Timings by the VESA Coordinated Video Timings formula, in whole numbers; progressive modes without margins, with
/// standard or with reduced blanking (its first version).

#pragma once

#pragma GCC visibility push(default)

class CVidParamTiming;

class CVidParamCvt
{
public:
    /// Width of the vertical sync in lines, by which a CVT timing names its aspect ratio: 4 for 4:3, 5 for 16:9, 6 for
    /// 16:10, 7 for 5:4 and 15:9, 10 for any other, 0 for no lines at all. Sizes in pixels and lines.
    static unsigned int GetVSyncLines(unsigned int uiHorizontalActive, unsigned int uiVerticalActive);

    /// Computes the timing of an active size (pixels, lines) at a vertical rate in Hz; any values are safe.
    ///   bReducedBlanking  not 0: reduced blanking, which never refuses and reports the rate asked for. 0: standard
    ///                     blanking, which reports the rate reached.
    ///   poTiming          receives the timing, source eVidParamType_Cvt or eVidParamType_CvtReducedBlanking; null
    ///                     makes the call a test. Untouched on a result of 0.
    /// The width is worked in cells of 8 pixels, but the timing keeps the width as given with the porches of the whole
    /// cells. Returns 1, or 0 when the numbers leave no room for a sync or an active area.
    /// Standard blanking is made for line periods up to 100 us. Slower modes of real sizes are refused (320x240 at 30,
    /// 200x150 at 60); some below 100 lines or at 0 Hz are accepted with a clock that means nothing, 0 kHz among them
    /// (640x2 at 7).
    static int GetVidParam(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                           unsigned int uiVerticalRateInHz, int bReducedBlanking, CVidParamTiming* poTiming);
};

#pragma GCC visibility pop
