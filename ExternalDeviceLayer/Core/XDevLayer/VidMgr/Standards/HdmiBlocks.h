// The places of HDMI's vendor-specific data block (HDMI 1.4b 8.3.2). Offsets count from the payload after the OUI.
// Private to the library.

#pragma once

#include "Record.h"

namespace ZorStandards::Hdmi
{
constexpr SPlace gsc_oPhysicalAddress = Big16(0);
constexpr SPlace gsc_oSupportsAi = Bit(2, 7);
constexpr SPlace gsc_oDeepColour48 = Bit(2, 6);
constexpr SPlace gsc_oDeepColour36 = Bit(2, 5);
constexpr SPlace gsc_oDeepColour30 = Bit(2, 4);
constexpr SPlace gsc_oDeepColourY444 = Bit(2, 3);
constexpr SPlace gsc_oDualLinkDvi = Bit(2, 0);
constexpr SPlace gsc_oMaxTmdsClock = Byte(3); // 5 MHz
constexpr SPlace gsc_oLatencyPresent = Bit(4, 7);
constexpr SPlace gsc_oInterlacedLatencyPresent = Bit(4, 6); // only with the one before
constexpr SPlace gsc_oVideoPresent = Bit(4, 5);
constexpr SPlace gsc_oContentTypes = Bits(4, 3, 0); // CNC3 to CNC0
constexpr unsigned int gsc_uiFirstOptional = 5;     // the latencies, then the video fields
constexpr unsigned int gsc_uiLatencySize = 2;       // video, audio; and as much for interlaced formats
constexpr unsigned int gsc_uiVideoSize = 2;         // of the fields before the HDMI_VICs

// Milliseconds of a latency byte.
constexpr unsigned int gsc_uiLatencyNotIndicated = 0;
constexpr unsigned int gsc_uiMostLatencyCode = 251; // 255: not supported
constexpr unsigned int GetLatencyInMs(unsigned int uiCode) { return (uiCode - 1) * 2; }

constexpr bool HasLatency(const CRecordBytes& oHdmi) { return oHdmi.IsSet(gsc_oLatencyPresent); }
constexpr bool HasInterlacedLatency(const CRecordBytes& oHdmi)
{
    return HasLatency(oHdmi) && oHdmi.IsSet(gsc_oInterlacedLatencyPresent);
}

// Where the video fields begin, whether they are there or not.
constexpr unsigned int GetVideoOffset(const CRecordBytes& oHdmi)
{
    return gsc_uiFirstOptional + (HasLatency(oHdmi) ? gsc_uiLatencySize : 0) +
           (HasInterlacedLatency(oHdmi) ? gsc_uiLatencySize : 0);
}

// The video fields, from GetVideoOffset on. HDMI_VIC_LEN codes follow, then HDMI_3D_LEN bytes.
constexpr SPlace gsc_o3dPresent = Bit(0, 7);
constexpr SPlace gsc_o3dMultiPresent = Bits(0, 6, 5);
constexpr SPlace gsc_oImageSize = Bits(0, 4, 3);
constexpr SPlace gsc_oVicCount = Bits(1, 7, 5);
constexpr SPlace gsc_o3dLength = Bits(1, 4, 0);

enum EImageSize : unsigned int
{
    eImageSize_NotSaid,
    eImageSize_RatioOnly, // the base block's size is no size
    eImageSize_Cm,
    eImageSize_5Cm // the base block's size is in 5 cm
};

enum EMulti : unsigned int
{
    eMulti_None,
    eMulti_All,       // 3D_Structure_ALL follows the HDMI_VICs
    eMulti_AllAndMask // and 3D_MASK follows that
};
constexpr unsigned int gsc_uiStructureAllSize = 2;
constexpr unsigned int gsc_uiMaskSize = 2;

// What a 3D format of one code begins with. Structures from gsc_uiFirstWithDetail on have a byte more.
constexpr SPlace gsc_oVicOrder = Bits(0, 7, 4);
constexpr SPlace gsc_oStructure = Bits(0, 3, 0);
constexpr unsigned int gsc_uiFirstWithDetail = 8;
} // namespace ZorStandards::Hdmi
