// The places of HDMI's vendor-specific data block (HDMI 1.4b 8.3.2) and of the HDMI Forum's (HDMI 2.1 10.3.2). Offsets
// count from the payload after the OUI. Private to the library.

#pragma once

#include <iterator>

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

// ---- HDMI Forum: the sink capability data structure, in a vendor-specific or, after two more bytes, in a data block of
//      its own ----

constexpr unsigned int gsc_uiSinkSkip = 2;
constexpr SPlace gsc_oMaxTmdsRate = Byte(1);
constexpr SPlace gsc_oScdc = Bit(2, 7);
constexpr SPlace gsc_oReadRequest = Bit(2, 6);
constexpr SPlace gsc_oLowScrambling = Bit(2, 3);
constexpr SPlace gsc_oMaxFrlRate = Bits(3, 7, 4);
constexpr SPlace gsc_oDeepColour48In420 = Bit(3, 2);
constexpr SPlace gsc_oDeepColour36In420 = Bit(3, 1);
constexpr SPlace gsc_oDeepColour30In420 = Bit(3, 0);
constexpr SPlace gsc_oQms = Bit(4, 6);
constexpr SPlace gsc_oCinemaVrr = Bit(4, 4);
constexpr SPlace gsc_oNegativeMVrr = Bit(4, 3);
constexpr SPlace gsc_oFastVactive = Bit(4, 2);
constexpr SPlace gsc_oAllm = Bit(4, 1);
constexpr SPlace gsc_oVrrMax = Split({ { 5, 7, 6 }, { 6, 7, 0 } });
constexpr SPlace gsc_oVrrMin = Bits(5, 5, 0);
constexpr SPlace gsc_oDsc = Bit(7, 7);
constexpr SPlace gsc_oDscNative420 = Bit(7, 6);
constexpr SPlace gsc_oDscAllBpp = Bit(7, 3);
constexpr SPlace gsc_oDsc16 = Bit(7, 2);
constexpr SPlace gsc_oDsc12 = Bit(7, 1);
constexpr SPlace gsc_oDsc10 = Bit(7, 0);
constexpr SPlace gsc_oDscMaxFrlRate = Bits(8, 7, 4);
constexpr SPlace gsc_oDscMaxSlices = Bits(8, 3, 0);
constexpr SPlace gsc_oDscChunk = Bits(9, 5, 0);

constexpr unsigned int gsc_uiMhzPerTmdsUnit = 5;

// A rate of Fixed Rate Link: Gbit/s a lane.
struct SFrlRate
{
    unsigned char m_ui8Rate;
    unsigned char m_ui8Lanes;
};
constexpr SFrlRate GetFrlRate(unsigned int uiCode)
{
    constexpr SFrlRate aoRates[] = { { 0, 0 }, { 3, 3 }, { 6, 3 }, { 6, 4 }, { 8, 4 }, { 10, 4 }, { 12, 4 } };
    return aoRates[uiCode < std::size(aoRates) ? uiCode : 0];
}

// The slices of a DSC picture and the clock of each.
struct SDscSlices
{
    unsigned char m_ui8Slices;
    unsigned short m_ui16Mhz;
};
constexpr SDscSlices GetDscSlices(unsigned int uiCode)
{
    constexpr SDscSlices aoSlices[] = { { 0, 0 },   { 1, 340 }, { 2, 340 },  { 4, 340 },
                                        { 8, 340 }, { 8, 400 }, { 12, 400 }, { 16, 400 } };
    return aoSlices[uiCode < std::size(aoSlices) ? uiCode : 0];
}
} // namespace ZorStandards::Hdmi
