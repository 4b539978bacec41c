// The places of the data blocks of CTA-861 about colours and dynamic range, those of makers too, from the start of
// their payloads; and luminances by their codes. Private to the library and the command.

#pragma once

#include <math.h>

#include "Place.h"

namespace ZorStandards::Colour
{
// ---- Colorimetry Data Block: CTA-861-H 7.5.5; bits 5 and 4 of the second byte by CTA-861.6 ----

inline constexpr SPlace gsc_oBt2020Rgb = Bit(0, 7);
inline constexpr SPlace gsc_oBt2020Ycc = Bit(0, 6);
inline constexpr SPlace gsc_oBt2020CYcc = Bit(0, 5);
inline constexpr SPlace gsc_oOpRgb = Bit(0, 4);
inline constexpr SPlace gsc_oOpYcc601 = Bit(0, 3);
inline constexpr SPlace gsc_oSYcc601 = Bit(0, 2);
inline constexpr SPlace gsc_oXvYcc709 = Bit(0, 1);
inline constexpr SPlace gsc_oXvYcc601 = Bit(0, 0);
inline constexpr SPlace gsc_oSt2113Rgb = Bit(1, 7);
inline constexpr SPlace gsc_oICtCp = Bit(1, 6);
inline constexpr SPlace gsc_oSrgb = Bit(1, 5);
inline constexpr SPlace gsc_oDefaultRgb = Bit(1, 4);
inline constexpr SPlace gsc_oGamutMetadataP0 = Bit(1, 0);

// ---- HDR Static Metadata Data Block: CTA-861-H 7.5.13 ----

inline constexpr SPlace gsc_oHlg = Bit(0, 3);
inline constexpr SPlace gsc_oSt2084 = Bit(0, 2);
inline constexpr SPlace gsc_oGammaHdr = Bit(0, 1);
inline constexpr SPlace gsc_oGammaSdr = Bit(0, 0);
inline constexpr SPlace gsc_oMetadataType1 = Bit(1, 0);
inline constexpr SPlace gsc_oMaxLuminanceCode = Byte(2);
inline constexpr SPlace gsc_oMaxFrameAverageCode = Byte(3);
inline constexpr SPlace gsc_oMinLuminanceCode = Byte(4);

// A code is a maximum of 50 * 2 ^ (code / 32) cd/m2.
inline constexpr unsigned int gsc_uiPowers = 32;

// 2 ^ (n / 32) in 10^-9.
inline constexpr long long gsc_allPowers[gsc_uiPowers] = {
    1000000000, 1021897149, 1044273782, 1067140401, 1090507733, 1114386743, 1138788635, 1163724859,
    1189207115, 1215247360, 1241857812, 1269050957, 1296839555, 1325236643, 1354255547, 1383909882,
    1414213562, 1445180807, 1476826146, 1509164428, 1542210825, 1575980845, 1610490332, 1645755478,
    1681792831, 1718619298, 1756252160, 1794709075, 1834008086, 1874167634, 1915206561, 1957144124,
};

constexpr long long DivideRounded(long long llNumber, long long llBy) { return (llNumber + llBy / 2) / llBy; }

// In 10^-6 cd/m2.
constexpr long long LuminanceOfCode(unsigned int uiCode)
{
    constexpr long long llTimes = 50;
    constexpr long long llPerMicro = 1000; // the powers are in 10^-9
    return DivideRounded((llTimes * gsc_allPowers[uiCode % gsc_uiPowers]) << (uiCode / gsc_uiPowers), llPerMicro);
}

// A minimum is a part of the maximum, (code / 255) ^ 2 / 100 of it.
constexpr long long MinimumLuminanceOfCode(unsigned int uiMaximumCode, unsigned int uiCode)
{
    constexpr long long llMost = 255;
    return DivideRounded(LuminanceOfCode(uiMaximumCode) * uiCode * uiCode, llMost * llMost * 100);
}

// ---- An item of the HDR Dynamic Metadata Data Block: CTA-861-H 7.5.14 ----

inline constexpr SPlace gsc_oDynamicLength = Byte(0);
inline constexpr SPlace gsc_oDynamicType = Little16(1);
inline constexpr SPlace gsc_oSlHdr3 = Bit(3, 6);
inline constexpr SPlace gsc_oSlHdr2 = Bit(3, 5);
inline constexpr SPlace gsc_oSlHdr1 = Bit(3, 4);
inline constexpr SPlace gsc_oDynamicVersion = Bits(3, 3, 0);

// ---- Vendor-Specific Video Data Block of HDR10+ ----

inline constexpr SPlace gsc_oHdr10PlusPeak = Bits(0, 7, 4);
inline constexpr SPlace gsc_oHdr10PlusFullFramePeak = Bits(0, 3, 2);
inline constexpr SPlace gsc_oHdr10PlusVersion = Bits(0, 1, 0);

// ---- Vendor-Specific Video Data Block of Dolby Vision; a digit names the only version with the field ----

inline constexpr SPlace gsc_oDolbyVersion = Bits(0, 7, 5);
inline constexpr SPlace gsc_oDolbyYuv422 = Bit(0, 0);
inline constexpr SPlace gsc_oDolbyMin0 = Split({ { 14, 7, 0 }, { 13, 7, 4 } }); // codes of PqLuminance
inline constexpr SPlace gsc_oDolbyMax0 = Split({ { 15, 7, 0 }, { 13, 3, 0 } });
inline constexpr SPlace gsc_oDolbyMajor0 = Bits(16, 7, 4);
inline constexpr SPlace gsc_oDolbyMinor0 = Bits(16, 3, 0);
inline constexpr SPlace gsc_oDolbyDmVersion = Bits(0, 4, 2);
inline constexpr SPlace gsc_oDolbyMax1 = Bits(1, 7, 1); // in steps above a least value
inline constexpr SPlace gsc_oDolbyMin1 = Bits(2, 7, 1);
inline constexpr SPlace gsc_oDolbyLatency1 = Bit(3, 0);
inline constexpr SPlace gsc_oDolbyMin2 = Bits(1, 7, 3); // in steps of codes of PqLuminance
inline constexpr SPlace gsc_oDolbyMax2 = Bits(2, 7, 3);
inline constexpr SPlace gsc_oDolbyInterface2 = Bits(2, 1, 0);
inline constexpr SPlace gsc_oDolby444Depth2 = Split({ { 3, 0, 0 }, { 4, 0, 0 } });

// Stored luminances: the step, and what 0 means. In cd/m2 in version 1, codes of PqLuminance in version 2.
inline constexpr unsigned int gsc_uiDolbyMax1Step = 50;
inline constexpr unsigned int gsc_uiDolbyMax1Least = 100;
inline constexpr unsigned int gsc_uiDolbyMin2Step = 20;
inline constexpr unsigned int gsc_uiDolbyMax2Step = 65;
inline constexpr unsigned int gsc_uiDolbyMax2Least = 2055;

// The minimum of version 1, (code / 127) ^ 2, in 10^-5 cd/m2.
constexpr long long DolbyMinimum1(unsigned int uiCode)
{
    constexpr long long llMost = 127;
    return DivideRounded(100000LL * uiCode * uiCode, llMost * llMost);
}

// The luminance of a 12-bit code by the EOTF of SMPTE ST 2084, in 10^-6 cd/m2.
inline long long PqLuminance(unsigned int uiCode)
{
    constexpr double dM1 = 2610.0 / 16384;
    constexpr double dM2 = 2523.0 / 4096 * 128;
    constexpr double dC1 = 3424.0 / 4096;
    constexpr double dC2 = 2413.0 / 4096 * 32;
    constexpr double dC3 = 2392.0 / 4096 * 32;
    constexpr double dMost = 10000 * 1e6;
    const double dPower = pow(uiCode / 4095.0, 1 / dM2);
    return llround(dMost * pow(fmax(dPower - dC1, 0) / (dC2 - dC3 * dPower), 1 / dM1));
}
} // namespace ZorStandards::Colour
