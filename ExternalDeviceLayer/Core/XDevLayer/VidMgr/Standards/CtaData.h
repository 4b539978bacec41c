// The places of CTA-861's data blocks about colour and capabilities (CTA-861-H 7.5), and luminances by their codes.
// Offsets count from the payload, after the extended tag and the OUI. Private to the library.

#pragma once

#include <iterator>

#include "Record.h"

namespace ZorStandards::CtaData
{
// Extended tags.
constexpr unsigned int gsc_uiVideoCapability = 0;
constexpr unsigned int gsc_uiVendorVideo = 1; // with an OUI
constexpr unsigned int gsc_uiColorimetry = 5;
constexpr unsigned int gsc_uiHdrStatic = 6;
constexpr unsigned int gsc_uiHdmiForumSink = 121;

// ---- Video capability ----

constexpr SPlace gsc_oSelectableYcc = Bit(0, 7);
constexpr SPlace gsc_oSelectableRgb = Bit(0, 6);
constexpr SPlace gsc_oPreferredScan = Bits(0, 5, 4);
constexpr SPlace gsc_oItScan = Bits(0, 3, 2);
constexpr SPlace gsc_oCeScan = Bits(0, 1, 0);

// ---- Colorimetry: a flag a colour space ----

constexpr SPlace gsc_oColourSpaces = Little16(0);

// ---- HDR static metadata ----

constexpr SPlace gsc_oEotfs = Bits(0, 5, 0);
constexpr SPlace gsc_oMetadataTypes = Byte(1);
constexpr SPlace gsc_oHdrMaxLuminance = Byte(2);
constexpr SPlace gsc_oHdrMaxFrameAverage = Byte(3);
constexpr SPlace gsc_oHdrMinLuminance = Byte(4);

// 2 ^ (n / 32) in 10^-9.
inline constexpr unsigned long long gsc_aullPowers[] = {
    1000000000, 1021897149, 1044273782, 1067140401, 1090507733, 1114386743, 1138788635, 1163724859,
    1189207115, 1215247360, 1241857812, 1269050957, 1296839555, 1325236643, 1354255547, 1383909882,
    1414213562, 1445180807, 1476826146, 1509164428, 1542210825, 1575980845, 1610490332, 1645755478,
    1681792831, 1718619298, 1756252160, 1794709075, 1834008086, 1874167634, 1915206561, 1957144124,
};

constexpr unsigned long long DivideRounded(unsigned long long ullNumber, unsigned long long ullBy)
{
    return (ullNumber + ullBy / 2) / ullBy;
}

// The luminance of an 8-bit code, in 10^-6 cd/m2: 50 * 2 ^ (code / 32).
constexpr unsigned long long GetLuminance(unsigned int uiCode)
{
    constexpr unsigned long long ullTimes = 50;
    constexpr unsigned long long ullPerMicro = 1000; // the powers are in 10^-9
    constexpr unsigned int uiPowers = std::size(gsc_aullPowers);
    return DivideRounded((ullTimes * gsc_aullPowers[uiCode % uiPowers]) << (uiCode / uiPowers), ullPerMicro);
}

// The minimum is a part of the maximum: maximum * (code / 255) ^ 2 / 100.
constexpr unsigned long long GetMinimumLuminance(unsigned int uiMaximumCode, unsigned int uiCode)
{
    constexpr unsigned long long ullMost = 255;
    return DivideRounded(GetLuminance(uiMaximumCode) * uiCode * uiCode, ullMost * ullMost * 100);
}

// ---- Vendors ----

constexpr SPlace gsc_oHdr10PlusVersion = Bits(0, 1, 0);
constexpr SPlace gsc_oDolbyVisionVersion = Bits(0, 7, 5);

// AMD's variable refresh; not published, known from drivers.
constexpr SPlace gsc_oAmdMinRate = Byte(2);
constexpr SPlace gsc_oAmdMaxRate = Byte(3);
constexpr SPlace gsc_oAmdWideMaxRate = Split({ { 11, 1, 0 }, { 10, 7, 0 } });
constexpr bool HasAmdWideRate(const CRecordBytes& oAmd)
{
    constexpr unsigned int uiVersion = 3;
    constexpr unsigned int uiSize = 12;
    return oAmd.GetByte(0) >= uiVersion && oAmd.GetSize() >= uiSize;
}

// ---- Audio: short audio descriptors of three bytes ----

constexpr unsigned int gsc_uiAudioSize = 3;
constexpr SPlace gsc_oAudioFormat = Bits(0, 6, 3);
constexpr SPlace gsc_oAudioChannels = Bits(0, 2, 0); // minus 1
constexpr SPlace gsc_oAudioRates = Bits(1, 6, 0);
constexpr SPlace gsc_oAudioValue = Byte(2);
constexpr SPlace gsc_oAudioExtendedFormat = Bits(2, 7, 3); // of the format gsc_uiExtendedAudio
constexpr unsigned int gsc_uiPcmAudio = 1;
constexpr unsigned int gsc_uiLastWithBitRate = 8; // after PCM, in 8 kbit/s
constexpr unsigned int gsc_uiExtendedAudio = 15;
constexpr SPlace gsc_oSpeakers = Little24(0);
} // namespace ZorStandards::CtaData
