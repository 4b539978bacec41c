// The places of the data blocks that HDMI adds to CTA-861, from the start of their payloads, after the OUI or the
// extended tag. Private to the library and the command.

#pragma once

#include <iterator>

#include "Record.h"

namespace ZorStandards::Hdmi
{
// ---- HDMI Vendor-Specific Data Block: HDMI 1.4b 8.3.2 ----

constexpr SPlace gsc_oPhysicalAddress = Big16(0);
constexpr SPlace gsc_oSupportsAi = Bit(2, 7);
constexpr SPlace gsc_oDeepColours = Bits(2, 6, 4); // these three
constexpr SPlace gsc_oDeepColour48 = Bit(2, 6);
constexpr SPlace gsc_oDeepColour36 = Bit(2, 5);
constexpr SPlace gsc_oDeepColour30 = Bit(2, 4);
constexpr SPlace gsc_oDeepColourY444 = Bit(2, 3);
constexpr SPlace gsc_oDualLinkDvi = Bit(2, 0);
constexpr SPlace gsc_oMaxTmdsClock = Byte(3); // 5 MHz
constexpr SPlace gsc_oLatencyPresent = Bit(4, 7);
constexpr SPlace gsc_oInterlacedLatencyPresent = Bit(4, 6); // only with the one before
constexpr SPlace gsc_oVideoPresent = Bit(4, 5);
constexpr SPlace gsc_oContentTypes = Bits(4, 3, 0); // these four
constexpr SPlace gsc_oCnc3 = Bit(4, 3);
constexpr SPlace gsc_oCnc2 = Bit(4, 2);
constexpr SPlace gsc_oCnc1 = Bit(4, 1);
constexpr SPlace gsc_oCnc0 = Bit(4, 0);
constexpr unsigned int gsc_uiFirstOptional = 5; // the latencies, then the video fields
constexpr unsigned int gsc_uiLatencySize = 2;   // video, audio; and as much for interlaced formats
constexpr unsigned int gsc_uiVideoSize = 2;     // of the fields before the HDMI_VICs

constexpr SPlace gsc_oVideoLatency = Byte(5);
constexpr SPlace gsc_oAudioLatency = Byte(6);
constexpr SPlace gsc_oInterlacedVideoLatency = Byte(7);
constexpr SPlace gsc_oInterlacedAudioLatency = Byte(8);

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

// With latencies of interlaced formats alone readers differ in whether these have bytes. The library's list says yes.
constexpr bool IsVideoOffsetDisputed(const CRecordBytes& oHdmi)
{
    return !HasLatency(oHdmi) && oHdmi.IsSet(gsc_oInterlacedLatencyPresent) && oHdmi.IsSet(gsc_oVideoPresent);
}

// The video fields, from GetVideoOffset on. HDMI_VIC_LEN codes follow, then HDMI_3D_LEN bytes.
constexpr SPlace gsc_o3dPresent = Bit(0, 7);
constexpr SPlace gsc_o3dMultiPresent = Bits(0, 6, 5);
constexpr SPlace gsc_oImageSize = Bits(0, 4, 3);
constexpr SPlace gsc_oVicCount = Bits(1, 7, 5);
constexpr SPlace gsc_o3dLength = Bits(1, 4, 0);

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

// Clocks here and in the HDMI Forum's data block.
constexpr unsigned int gsc_uiMegaHzPerTmdsUnit = 5;
constexpr unsigned int gsc_uiMostTmdsInMegaHz = 340; // without scrambling; rates above are the HDMI Forum's

// A new payload, of zeros: that of a display which is connected to a source, not behind a repeater.
constexpr unsigned int gsc_uiNewSize = 4;
constexpr void WriteNew(unsigned char* pui8Payload, unsigned int uiMegaHz)
{
    constexpr unsigned int uiAddress = 0x1000; // 1.0.0.0
    gsc_oPhysicalAddress.Write(pui8Payload, uiAddress);
    gsc_oMaxTmdsClock.Write(pui8Payload, uiMegaHz / gsc_uiMegaHzPerTmdsUnit);
}
} // namespace ZorStandards::Hdmi

namespace ZorStandards::HdmiForum
{
// ---- Sink capability data structure: HDMI 2.1 10.3.2 ----

inline constexpr SPlace gsc_oVersion = Byte(0);
inline constexpr SPlace gsc_oMaxTmdsCharacterRate = Byte(1);
inline constexpr SPlace gsc_oScdcPresent = Bit(2, 7);
inline constexpr SPlace gsc_oRrCapable = Bit(2, 6);
inline constexpr SPlace gsc_oCableStatus = Bit(2, 5);
inline constexpr SPlace gsc_oCcbpci = Bit(2, 4);
inline constexpr SPlace gsc_oLte340mcscScramble = Bit(2, 3);
inline constexpr SPlace gsc_oIndependentView = Bit(2, 2);
inline constexpr SPlace gsc_oDualView = Bit(2, 1);
inline constexpr SPlace gsc_o3dOsdDisparity = Bit(2, 0);
inline constexpr SPlace gsc_oMaxFrlRate = Bits(3, 7, 4);
inline constexpr SPlace gsc_oUhdVic = Bit(3, 3);
inline constexpr SPlace gsc_oDc48bit420 = Bit(3, 2);
inline constexpr SPlace gsc_oDc36bit420 = Bit(3, 1);
inline constexpr SPlace gsc_oDc30bit420 = Bit(3, 0);
inline constexpr SPlace gsc_oFapaEndExtended = Bit(4, 7);
inline constexpr SPlace gsc_oQms = Bit(4, 6);
inline constexpr SPlace gsc_oMDelta = Bit(4, 5);
inline constexpr SPlace gsc_oCinemaVrr = Bit(4, 4);
inline constexpr SPlace gsc_oCnmVrr = Bit(4, 3);
inline constexpr SPlace gsc_oFva = Bit(4, 2);
inline constexpr SPlace gsc_oAllm = Bit(4, 1);
inline constexpr SPlace gsc_oFapaStartLocation = Bit(4, 0);
inline constexpr SPlace gsc_oVrrMax = Split({ { 5, 7, 6 }, { 6, 7, 0 } });
inline constexpr SPlace gsc_oVrrMin = Bits(5, 5, 0);
inline constexpr SPlace gsc_oDsc1p2 = Bit(7, 7);
inline constexpr SPlace gsc_oDscNative420 = Bit(7, 6);
inline constexpr SPlace gsc_oQmsTfrMax = Bit(7, 5);
inline constexpr SPlace gsc_oQmsTfrMin = Bit(7, 4);
inline constexpr SPlace gsc_oDscAllBpp = Bit(7, 3);
inline constexpr SPlace gsc_oDsc16bpc = Bit(7, 2);
inline constexpr SPlace gsc_oDsc12bpc = Bit(7, 1);
inline constexpr SPlace gsc_oDsc10bpc = Bit(7, 0);
inline constexpr SPlace gsc_oDscMaxFrlRate = Bits(8, 7, 4);
inline constexpr SPlace gsc_oDscMaxSlices = Bits(8, 3, 0);
inline constexpr SPlace gsc_oDscTotalChunkKbytes = Bits(9, 5, 0);

// The sink capability data block has two reserved bytes before it.
inline constexpr unsigned int gsc_uiSinkSkip = 2;
inline constexpr unsigned int gsc_uiMostTmdsInMegaHz = 600;

// 341 to 344 MHz have no step of their own: the field holds 0 or more than 340 MHz.
constexpr unsigned int RoundUpTmds(unsigned int uiMegaHz)
{
    constexpr unsigned int uiUnit = Hdmi::gsc_uiMegaHzPerTmdsUnit;
    return (uiMegaHz + uiUnit - 1) / uiUnit * uiUnit;
}

// A new payload, of zeros, as far as every one goes. Clocks that HDMI's own data block holds are left to it. Scrambling
// and the fixed rate link are switched on by SCDC. uiFrl: an index of gsc_aoFrlRates.
inline constexpr unsigned int gsc_uiNewSize = 4;
constexpr void WriteNew(unsigned char* pui8Payload, unsigned int uiMegaHz, unsigned int uiFrl)
{
    const bool bFast = uiMegaHz > Hdmi::gsc_uiMostTmdsInMegaHz;
    gsc_oVersion.Write(pui8Payload, 1);
    gsc_oMaxTmdsCharacterRate.Write(pui8Payload, bFast ? uiMegaHz / Hdmi::gsc_uiMegaHzPerTmdsUnit : 0);
    gsc_oScdcPresent.Write(pui8Payload, bFast || uiFrl != 0 ? 1 : 0);
    gsc_oMaxFrlRate.Write(pui8Payload, uiFrl);
}

// VRR_MAX in Hz is at least this; 0 says that the rate of the timing is the maximum.
inline constexpr unsigned int gsc_uiLeastVrrMax = 100;
inline constexpr unsigned int gsc_uiMostVrrMin = 48;

// UHD_VIC is about video codes of this width and more.
inline constexpr unsigned int gsc_uiUhdWidth = 3840;

// A rate of Fixed Rate Link.
struct SFrlRate
{
    unsigned char m_ui8Lanes;
    unsigned char m_ui8Gbps; // of each
};
inline constexpr SFrlRate gsc_aoFrlRates[] = { { 0, 0 }, { 3, 3 }, { 3, 6 }, { 4, 6 }, { 4, 8 }, { 4, 10 }, { 4, 12 } };

// The slices of a compressed picture and the largest clock of each.
struct SDscSlices
{
    unsigned char m_ui8Most;
    unsigned short m_ui16MegaHz;
};
inline constexpr SDscSlices gsc_aoDscSlices[] = { { 0, 0 },   { 1, 340 }, { 2, 340 },  { 4, 340 },
                                                  { 8, 340 }, { 8, 400 }, { 12, 400 }, { 16, 400 } };

// ---- Source-Based Tone Mapping Data Block: HDMI 2.1b ----

inline constexpr SPlace gsc_oToneMappingDrdm = Bit(0, 7);
inline constexpr SPlace gsc_oToneMappingGrdm = Bits(0, 6, 5);
inline constexpr SPlace gsc_oToneMappingVersion = Bits(0, 3, 0);

} // namespace ZorStandards::HdmiForum
