// What makes the modes of fields: of codes by the tables of the standards, and what several walks need. Private to this
// folder.

#pragma once

#include "MapWriter.h"
#include "Standards/VesaModes.h"
#include "Standards/VideoCodes.h"

namespace ZorMap
{
using CMode = CZorEdidMap::SMode;

constexpr SZorMode::SRate WholeRate(unsigned int uiRate) { return { uiRate, 1 }; }

// Size, scan and rate. The rest is not given.
CMode MakeBareMode(SZorMode::EModeKind eKind, unsigned int uiCode, unsigned int uiWidth, unsigned int uiHeight,
                   bool bInterlaced, const SZorMode::SRate& oRate);

inline void SetAspect(CMode& oMode, const SRatio& oRatio)
{
    oMode.m_uiAspectWidth = oRatio.m_uiWidth;
    oMode.m_uiAspectHeight = oRatio.m_uiHeight;
}

// With its timing. The nominal rate is left as it is.
void SetTiming(CMode& oMode, const SPublishedTiming& oTiming);

// Modes of codes, with their timings. False for a code that is not published.
bool MakeVideoMode(CMode& oMode, unsigned int uiCode);
bool MakeHdmiMode(CMode& oMode, unsigned int uiCode);
bool MakeDmtMode(CMode& oMode, unsigned int uiId);
bool MakeEstablishedMode(CMode& oMode, unsigned int uiBit);
bool MakeEstablishedIIIMode(CMode& oMode, unsigned int uiBit);

// As ModeMaker, of a leaf with a code.
template <bool (*MAKE)(CMode&, unsigned int)>
bool MakeCodeMode(const CRecord& /*oRecord*/, const SModeSource& oSource, CMode& oMode)
{
    return oSource.m_uiRank == 0 && MAKE(oMode, oSource.m_uiCode);
}

// What the walk said of a mode beyond its bytes.
void SetMarks(CMode& oMode, unsigned int uiMarks);
} // namespace ZorMap
