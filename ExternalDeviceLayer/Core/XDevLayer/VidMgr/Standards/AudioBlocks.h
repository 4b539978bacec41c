// The places of the data blocks of CTA-861 and HDMI about sound, and codes of formats. Private to the library and the
// command.

#pragma once

#include <iterator>

#include "Place.h"

namespace ZorStandards::Audio
{
// ---- Short audio descriptors: CTA-861-H 7.5.2 ----

inline constexpr SPlace gsc_oFormat = Bits(0, 6, 3);
inline constexpr SPlace gsc_oExtendedFormat = Bits(2, 7, 3);
inline constexpr SPlace gsc_oChannels = Bits(0, 2, 0);
inline constexpr SPlace gsc_o192Khz = Bit(1, 6);
inline constexpr SPlace gsc_o176_4Khz = Bit(1, 5);
inline constexpr SPlace gsc_o96Khz = Bit(1, 4);
inline constexpr SPlace gsc_o88_2Khz = Bit(1, 3);
inline constexpr SPlace gsc_o48Khz = Bit(1, 2);
inline constexpr SPlace gsc_o44_1Khz = Bit(1, 1);
inline constexpr SPlace gsc_o32Khz = Bit(1, 0);
inline constexpr SPlace gsc_o24Bit = Bit(2, 2);
inline constexpr SPlace gsc_o20Bit = Bit(2, 1);
inline constexpr SPlace gsc_o16Bit = Bit(2, 0);
inline constexpr SPlace gsc_oMaxBitRate = Byte(2);

inline constexpr unsigned int gsc_uiDescriptorSize = 3;
inline constexpr unsigned int gsc_uiKiloBitsPerStep = 8; // of a bit rate

inline constexpr unsigned int gsc_uiPcm = 1;
inline constexpr unsigned int gsc_uiFirstWithBitRate = 2;
inline constexpr unsigned int gsc_uiLastWithBitRate = 8;
inline constexpr unsigned int gsc_uiExtendedFormat = 15; // the extended code says which

// Extended codes.
inline constexpr unsigned int gsc_uiReservedExtended = 9;
inline constexpr unsigned int gsc_uiMpegH = 11;
inline constexpr unsigned int gsc_uiPcm3d = 13;
inline constexpr unsigned int gsc_uiAuroCx =
    14; // this one and the next are of editions after H, as edid-decode has them
inline constexpr unsigned int gsc_uiMpegDUsac = 15;

inline constexpr SPlace gsc_oPcm3dChannels = Split({ { 1, 7, 7 }, { 0, 7, 7 }, { 0, 2, 0 } });

constexpr bool HasBitRate(unsigned int uiFormat)
{
    return uiFormat >= gsc_uiFirstWithBitRate && uiFormat <= gsc_uiLastWithBitRate;
}

constexpr bool IsUnknownExtended(unsigned int uiExtended)
{
    return uiExtended == 0 || uiExtended == gsc_uiReservedExtended || uiExtended > gsc_uiMpegDUsac;
}

// MPEG-H has a level in their place, AC-4 and Auro-Cx nothing, and 3D audio more bits.
constexpr bool HasChannels(unsigned int uiFormat, unsigned int uiExtended)
{
    return uiFormat != 0 && (uiFormat != gsc_uiExtendedFormat || uiExtended == gsc_uiMpegDUsac ||
                             (!IsUnknownExtended(uiExtended) && uiExtended < gsc_uiMpegH));
}

// The short name of a format; uiExtended counts with gsc_uiExtendedFormat. Empty for a reserved one.
constexpr const char* GetFormatName(unsigned int uiFormat, unsigned int uiExtended)
{
    constexpr const char* apszNames[] = { "",      "PCM",   "AC-3",   "MPEG-1", "MP3", "MPEG-2", "AAC",    "DTS",
                                          "ATRAC", "1-bit", "E-AC-3", "DTS-HD", "MAT", "DST",    "WMA Pro" };
    constexpr const char* apszExtended[] = { "",
                                             "",
                                             "",
                                             "",
                                             "MPEG-4 HE AAC",
                                             "MPEG-4 HE AAC v2",
                                             "MPEG-4 AAC LC",
                                             "DRA",
                                             "MPEG-4 HE AAC + Surround",
                                             "",
                                             "MPEG-4 AAC LC + Surround",
                                             "MPEG-H 3D",
                                             "AC-4",
                                             "L-PCM 3D",
                                             "Auro-Cx",
                                             "MPEG-D USAC" };
    return uiFormat < gsc_uiExtendedFormat                                            ? apszNames[uiFormat]
           : uiFormat == gsc_uiExtendedFormat && uiExtended < std::size(apszExtended) ? apszExtended[uiExtended]
                                                                                      : "";
}

// ---- The head of the HDMI Audio Data Block: HDMI 2.0 ----

inline constexpr SPlace gsc_oMultiStreamNonMixed = Bit(0, 2);
inline constexpr SPlace gsc_oMultiStreamCount = Bits(0, 1, 0);
inline constexpr SPlace gsc_o3dDescriptors = Bits(1, 2, 0);

inline constexpr unsigned int gsc_uiHdmiHeadSize = 2;

// ---- Its 3D audio descriptors ----

inline constexpr SPlace gsc_o3dFormat = Bits(0, 3, 0);
inline constexpr SPlace gsc_o3dDescriptorChannels = Bits(1, 4, 0);
inline constexpr SPlace gsc_o3d192Khz = Bit(2, 6);
inline constexpr SPlace gsc_o3d176_4Khz = Bit(2, 5);
inline constexpr SPlace gsc_o3d96Khz = Bit(2, 4);
inline constexpr SPlace gsc_o3d88_2Khz = Bit(2, 3);
inline constexpr SPlace gsc_o3d48Khz = Bit(2, 2);
inline constexpr SPlace gsc_o3d44_1Khz = Bit(2, 1);
inline constexpr SPlace gsc_o3d32Khz = Bit(2, 0);
inline constexpr SPlace gsc_o3d24Bit = Bit(3, 2);
inline constexpr SPlace gsc_o3d20Bit = Bit(3, 1);
inline constexpr SPlace gsc_o3d16Bit = Bit(3, 0);

inline constexpr unsigned int gsc_uiHdmiDescriptorSize = 4;

// ---- Speakers: CTA-861-H 7.5.3, HDMI 2.0 ----

inline constexpr SPlace gsc_oFlwFrw = Bit(0, 7);
inline constexpr SPlace gsc_oRlcRrc = Bit(0, 6);
inline constexpr SPlace gsc_oFlcFrc = Bit(0, 5);
inline constexpr SPlace gsc_oBc = Bit(0, 4);
inline constexpr SPlace gsc_oBlBr = Bit(0, 3);
inline constexpr SPlace gsc_oFc = Bit(0, 2);
inline constexpr SPlace gsc_oLfe1 = Bit(0, 1);
inline constexpr SPlace gsc_oFlFr = Bit(0, 0);
inline constexpr SPlace gsc_oTpSilTpSir = Bit(1, 7);
inline constexpr SPlace gsc_oSilSir = Bit(1, 6);
inline constexpr SPlace gsc_oTpBc = Bit(1, 5);
inline constexpr SPlace gsc_oLfe2 = Bit(1, 4);
inline constexpr SPlace gsc_oLsRs = Bit(1, 3);
inline constexpr SPlace gsc_oTpFc = Bit(1, 2);
inline constexpr SPlace gsc_oTpC = Bit(1, 1);
inline constexpr SPlace gsc_oTpFlTpFr = Bit(1, 0);
inline constexpr SPlace gsc_oLsdRsd = Bit(2, 4);
inline constexpr SPlace gsc_oTpLsTpRs = Bit(2, 3);
inline constexpr SPlace gsc_oBtFlBtFr = Bit(2, 2);
inline constexpr SPlace gsc_oBtFc = Bit(2, 1);
inline constexpr SPlace gsc_oTpBlTpBr = Bit(2, 0);

} // namespace ZorStandards::Audio
