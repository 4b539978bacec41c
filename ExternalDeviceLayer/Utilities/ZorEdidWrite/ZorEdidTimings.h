/// The bytes of a timing, as CZorEdidParts takes them: a detailed timing of E-EDID, Types I and VII of DisplayID.

#pragma once

#include "EdidMode.h"

#pragma GCC visibility push(default)

class CZorEdidTimings
{
public:
    static constexpr unsigned int msc_uiDetailedSize = 18;
    static constexpr unsigned int msc_uiDisplayIdSize = 20;

    /// A detailed timing with digital separate sync, without borders and stereo. The clock is rounded to 10 kHz.
    /// uiWidthInMm, uiHeightInMm: of the picture, 0 where it is not known. Returns 1; 0, with the bytes untouched, for
    /// a mode without a timing, and for numbers that the fields do not hold: 4095 pixels and lines, 1023 pixels and 63
    /// lines of sync and front porch, 655.35 MHz, 4095 mm.
    static int MakeDetailed(const SZorMode& oMode, unsigned int uiWidthInMm, unsigned int uiHeightInMm,
                            unsigned char* pui8Bytes);

    /// A progressive timing of DisplayID Type uiType, 1 or 7. The clock is rounded to 10 kHz or 1 kHz. Returns 1; 0,
    /// with the bytes untouched, as above; the fields hold 65536 pixels and lines, 32768 of front porch.
    static int MakeDisplayId(unsigned int uiType, const SZorMode& oMode, bool bPreferred, unsigned char* pui8Bytes);
};

#pragma GCC visibility pop
