// A timing that a monitor spells out, decoded from its bytes, and the one way from there into a CVidParamTiming. Shared
// by the 18-byte descriptor and the records of DisplayID; private to their sources.

#pragma once

class CVidParamTiming;

namespace ZorCore
{
// Pixels or lines.
struct SDetailedAxis
{
    unsigned int m_uiActive;
    unsigned int m_uiBlanking;
    unsigned int m_uiFrontPorch;
    unsigned int m_uiSync;
    bool m_bPositive; // sync polarity
};

struct SDetailedTiming
{
    unsigned int m_uiPixelClockInKiloHz;
    bool m_bInterlaced;
    bool m_bHasPolarities; // otherwise those of the timing stay
    SDetailedAxis m_oHorizontal;
    SDetailedAxis m_oVertical;
};

// Stores all of it, the rates that follow from it, and the family type eVidParamType_Detailed. Clears nothing. The back
// porch is what the blanking leaves; one too small for its parts wraps.
void StoreDetailedTiming(const SDetailedTiming& oDetailed, CVidParamTiming& oTiming);
} // namespace ZorCore
