/// The front door to every source of timings: the tables (DMT, CTA-861, SMPTE) and the formulas (CVT, GTF).
/// Sizes in pixels and lines, rates in whole Hz. Results are 1 for found and 0 for not.

#pragma once

#include "VidParamTiming.h"

#pragma GCC visibility push(default)

class CVidParamTimingFunc
{
public:
    /// The formulas; see CVidParamCvt and CVidParamGtf. A null poTiming makes the call a test; a refusal leaves the
    /// timing untouched.
    static int ComputeCvt(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                          unsigned int uiVerticalRateInHz, int bReducedBlanking, CVidParamTiming* poTiming);
    static int ComputeGft(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                          unsigned int uiVerticalRateInHz, CVidParamTiming* poTiming);

    /// The tables, all rows: match number uiIndex, counted from 0; a filter of 0 passes every row. A null poTiming
    /// makes the call a test; a miss leaves the timing untouched. See CVidParamCea, CVidParamDmt and CVidParamSmpte.
    static int GetCeaTiming(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                            unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz);
    static int GetDmtTiming(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                            unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz);
    static int GetSmpteTiming(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                              unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz);

    /// Asks the one source that eType names; of a table the first row that fits, of DMT only the rows without or only
    /// those with reduced blanking. No other source is tried. A source that refuses, and a type that has no source
    /// (None, Detailed, Unknown, any number without a name), gives an assertion line and 0 and leaves oTiming
    /// untouched.
    static int GetTiming(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                         unsigned int uiVerticalRateInHz, CVidParamTiming::EVidParamType eType,
                         CVidParamTiming& oTiming);
};

#pragma GCC visibility pop
