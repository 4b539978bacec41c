// The promise of facts, for tests and fuzz targets: what is said is said by a field that the map has there, and what is
// not said is zeros.

#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "ZorEdidFacts.h"
#include "ZorEdidMap.h"

// Calls fnVisit(id, offset) for each fact and each item of a list.
template <class VISIT>
void VisitFacts(const CZorEdidFacts& oFacts, VISIT fnVisit)
{
    const auto fnAll = [&](const auto&... aoFacts) { (fnVisit(aoFacts.m_eId, aoFacts.m_ui16Offset), ...); };
    const auto fnList = [&](const auto& aoItems, unsigned int uiCount) {
        for (unsigned int i = 0; i < std::min<size_t>(uiCount, std::size(aoItems)); ++i)
        {
            fnVisit(aoItems[i].m_eId, aoItems[i].m_ui16Offset);
        }
    };
    const auto& [a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12] = oFacts.GetIdentity();
    fnAll(a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12);
    const CZorEdidFacts::SSize& oSize = oFacts.GetSize();
    const auto& [b1, b2, b3, b4, b5, b6, b7, b8, b9, b10, b11, b12, b13, b14, b15, b16, b17, b18, b19, b20] = oSize;
    fnAll(b1, b2, b3, b4, b5, b6, b7, b8, b9, b10, b11, b12, b13, b14, b15, b16, b17, b18, b19, b20);
    const CZorEdidFacts::SLink& o = oFacts.GetLink();
    fnAll(o.m_oKind, o.m_oHdmiVersion, o.m_oHdmi, o.m_oCtaRevision, o.m_oLanes, o.m_oPhysicalAddress, o.m_oMaxTmds,
          o.m_oSupportsAi, o.m_oDviDual, o.m_oContentTypes, o.m_oScdc, o.m_oReadRequest, o.m_oScrambleLow,
          o.m_oCableStatus, o.m_oCcbpci, o.m_oIndependentView, o.m_oDualView, o.m_o3dOsdDisparity, o.m_oUhdVic,
          o.m_oFrl, o.m_oDsc, o.m_oDscNative420, o.m_oDscAllBpp, o.m_oDscDepth, o.m_oDscFrl, o.m_oDscSlices,
          o.m_oDscChunk, o.m_oAllm, o.m_oQms, o.m_oQmsMin, o.m_oQmsMax, o.m_oFastVactive, o.m_oCinemaVrr,
          o.m_oNegativeMVrr, o.m_oMDelta, o.m_oFapaStart, o.m_oFapaEnd, o.m_oVerticalRates, o.m_oHorizontalRates,
          o.m_oMinPixelClock, o.m_oMaxPixelClock, o.m_oRangeFormula, o.m_oContinuous, o.m_oNvidia, o.m_oMsoStreams,
          o.m_oMsoOverlap);
    fnList(o.m_aoRanges, o.m_uiRanges);
    const CZorEdidFacts::SColour& c = oFacts.GetColour();
    fnAll(c.m_oDepth, c.m_oFormats, c.m_aoDepths[0], c.m_aoDepths[1], c.m_aoDepths[2], c.m_aoDepths[3], c.m_oHdmiDeep,
          c.m_oHdmiDeep444, c.m_oHdmiDeep420, c.m_oMonochrome, c.m_oMin420PixelRate, c.m_oPrimaries, c.m_oWhite,
          c.m_oGamma, c.m_oSrgbDefault, c.m_oColorimetry, c.m_oSelectableRgb, c.m_oSelectableYcc, c.m_oEotfs,
          c.m_oMetadataTypes, c.m_oContentMax, c.m_oContentMaxFrameAverage, c.m_oContentMin, c.m_oDynamicHdr,
          c.m_oHdr10Plus, c.m_oDolbyVision, c.m_oToneMapping, c.m_oMaxLuminance, c.m_oMaxLuminance10, c.m_oMinLuminance,
          c.m_oMaxSdrLuminance, c.m_oMinSdrLuminance, c.m_oMaxBoostLuminance, c.m_oAmdMaxLuminance,
          c.m_oAmdMinLuminance);
    fnList(c.m_aoSpaces, c.m_uiSpaces);
    const CZorEdidFacts::SAudio& d = oFacts.GetAudio();
    fnAll(d.m_oAudio, d.m_oBasic, d.m_oSpeakersBuiltIn, d.m_oSpeakers, d.m_oStreams, d.m_oDisplayIdRates,
          d.m_oVideoLatency, d.m_oAudioLatency, d.m_oInterlacedVideoLatency, d.m_oInterlacedAudioLatency);
    fnList(d.m_aoFormats, d.m_uiFormats);
}

// What is wrong with the facts of an image; empty for nothing.
inline std::string CheckFacts(const CZorEdidFacts& oFacts, const CZorEdidMap& oMap)
{
    std::set<std::pair<unsigned int, unsigned int>> aoFields;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        aoFields.emplace(oMap.GetField(i).m_eId, oMap.GetField(i).m_uiOffset);
    }
    std::string sWrong;
    VisitFacts(oFacts, [&](EZorEdidField eId, unsigned int uiOffset) {
        if (eId != eZorEdidField_None && aoFields.count({ eId, uiOffset }) == 0)
        {
            sWrong += std::string(CZorEdidMap::GetId(eId)) + " is not at " + std::to_string(uiOffset) + "\n";
        }
        if (eId == eZorEdidField_None && uiOffset != 0)
        {
            sWrong += "an offset without a field\n";
        }
    });
    return sWrong;
}
