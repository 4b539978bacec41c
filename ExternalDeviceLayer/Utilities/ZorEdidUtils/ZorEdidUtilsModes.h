// What several sources of the EDID tools look at: bytes of the base block, and all that ExtractModeList gives as one
// value. Not installed.

#pragma once

#include "ZorEdidUtils.h"

// Positions in the base block; numbers of several bytes are little-endian, but for the manufacturer's letters.
inline constexpr unsigned int gsc_uiManufacturerOffset = 8; // 2 bytes
inline constexpr unsigned int gsc_uiProductOffset = 10;     // 2 bytes
inline constexpr unsigned int gsc_uiSerialOffset = 12;      // 4 bytes
inline constexpr unsigned int gsc_uiWeekOffset = 16;
inline constexpr unsigned int gsc_uiYearOffset = 17;
inline constexpr unsigned int gsc_uiVersionOffset = 18;
inline constexpr unsigned int gsc_uiRevisionOffset = 19;
inline constexpr unsigned int gsc_uiVideoInputOffset = 20;
inline constexpr unsigned int gsc_uiFeaturesOffset = 24;

inline constexpr unsigned int gsc_uiDigitalInput = 0x80;           // in the video input byte
inline constexpr unsigned int gsc_uiPreferredTimingFeature = 0x02; // in the feature byte

// For the functions that extract modes for themselves: the comparison and the short forms of the reports.

struct SModes
{
    CVidParamTimingGeneric m_oPreferred;
    CZorEdidUtils::CModeList m_oEstablishedVesa;
    CZorEdidUtils::CModeList m_oEstablishedAll;
    CZorEdidUtils::CModeList m_oBaseStandard;
    CZorEdidUtils::CModeList m_oBaseDetailed;
    CZorEdidUtils::CModeList m_oExtStandardNative;
    CZorEdidUtils::CModeList m_oExtStandard;
    CZorEdidUtils::CModeList m_oExtDetailed;

    int Extract(const CEdid& oEdid)
    {
        return CZorEdidUtils::ExtractModeList(oEdid, m_oPreferred, m_oEstablishedVesa, m_oEstablishedAll,
                                              m_oBaseStandard, m_oBaseDetailed, m_oExtStandardNative, m_oExtStandard,
                                              m_oExtDetailed);
    }

    // Appends what both the comparison and the output-resolution report look at in any case: all standard and detailed
    // timings, but for the native ones of the extension blocks.
    void AppendStandardAndDetailed(CZorEdidUtils::CModeList& oJoined) const
    {
        oJoined.Append(m_oBaseStandard);
        oJoined.Append(m_oBaseDetailed);
        oJoined.Append(m_oExtStandard);
        oJoined.Append(m_oExtDetailed);
    }
};
