// Tables of CTA-861 data blocks about video formats, and the names of the formats' codes. MapCta.cpp dispatches here.

#include <algorithm>
#include <array>

#include "MapCtaBlocks.h"

namespace ZorMap
{
namespace
{
using EArea = CZorEdidMap::EArea;
constexpr EArea eTiming = CZorEdidMap::eArea_Timing;
constexpr EArea eDisplay = CZorEdidMap::eArea_Display;

// Where byte 0 of a record lies between two values.
template <unsigned int FIRST, unsigned int LAST>
bool WhereIn(const CRecord& oRecord)
{
    return oRecord.GetByte(0) >= FIRST && oRecord.GetByte(0) <= LAST;
}

// ---- Video identification codes: CTA-861-H 4 ----

// Active pixels and lines, scan, rate in Hz (frames, of interlaced formats fields), picture aspect ratio. Where pixels
// are sent twice the sent width stands in brackets. Two rates are one code: the clock may be divided by 1.001.
constexpr SMeaning gsc_aoVideoCodes[] = {
    { 1, 1, "Video code 1, 640x480p 59.94/60 Hz 4:3" },
    { 2, 2, "Video code 2, 720x480p 59.94/60 Hz 4:3" },
    { 3, 3, "Video code 3, 720x480p 59.94/60 Hz 16:9" },
    { 4, 4, "Video code 4, 1280x720p 59.94/60 Hz 16:9" },
    { 5, 5, "Video code 5, 1920x1080i 59.94/60 Hz 16:9" },
    { 6, 6, "Video code 6, 720(1440)x480i 59.94/60 Hz 4:3" },
    { 7, 7, "Video code 7, 720(1440)x480i 59.94/60 Hz 16:9" },
    { 8, 8, "Video code 8, 720(1440)x240p 59.94/60 Hz 4:3" },
    { 9, 9, "Video code 9, 720(1440)x240p 59.94/60 Hz 16:9" },
    { 10, 10, "Video code 10, 2880x480i 59.94/60 Hz 4:3" },
    { 11, 11, "Video code 11, 2880x480i 59.94/60 Hz 16:9" },
    { 12, 12, "Video code 12, 2880x240p 59.94/60 Hz 4:3" },
    { 13, 13, "Video code 13, 2880x240p 59.94/60 Hz 16:9" },
    { 14, 14, "Video code 14, 1440x480p 59.94/60 Hz 4:3" },
    { 15, 15, "Video code 15, 1440x480p 59.94/60 Hz 16:9" },
    { 16, 16, "Video code 16, 1920x1080p 59.94/60 Hz 16:9" },
    { 17, 17, "Video code 17, 720x576p 50 Hz 4:3" },
    { 18, 18, "Video code 18, 720x576p 50 Hz 16:9" },
    { 19, 19, "Video code 19, 1280x720p 50 Hz 16:9" },
    { 20, 20, "Video code 20, 1920x1080i 50 Hz 16:9" },
    { 21, 21, "Video code 21, 720(1440)x576i 50 Hz 4:3" },
    { 22, 22, "Video code 22, 720(1440)x576i 50 Hz 16:9" },
    { 23, 23, "Video code 23, 720(1440)x288p 50 Hz 4:3" },
    { 24, 24, "Video code 24, 720(1440)x288p 50 Hz 16:9" },
    { 25, 25, "Video code 25, 2880x576i 50 Hz 4:3" },
    { 26, 26, "Video code 26, 2880x576i 50 Hz 16:9" },
    { 27, 27, "Video code 27, 2880x288p 50 Hz 4:3" },
    { 28, 28, "Video code 28, 2880x288p 50 Hz 16:9" },
    { 29, 29, "Video code 29, 1440x576p 50 Hz 4:3" },
    { 30, 30, "Video code 30, 1440x576p 50 Hz 16:9" },
    { 31, 31, "Video code 31, 1920x1080p 50 Hz 16:9" },
    { 32, 32, "Video code 32, 1920x1080p 23.98/24 Hz 16:9" },
    { 33, 33, "Video code 33, 1920x1080p 25 Hz 16:9" },
    { 34, 34, "Video code 34, 1920x1080p 29.97/30 Hz 16:9" },
    { 35, 35, "Video code 35, 2880x480p 59.94/60 Hz 4:3" },
    { 36, 36, "Video code 36, 2880x480p 59.94/60 Hz 16:9" },
    { 37, 37, "Video code 37, 2880x576p 50 Hz 4:3" },
    { 38, 38, "Video code 38, 2880x576p 50 Hz 16:9" },
    { 39, 39, "Video code 39, 1920x1080i 50 Hz 16:9" },
    { 40, 40, "Video code 40, 1920x1080i 100 Hz 16:9" },
    { 41, 41, "Video code 41, 1280x720p 100 Hz 16:9" },
    { 42, 42, "Video code 42, 720x576p 100 Hz 4:3" },
    { 43, 43, "Video code 43, 720x576p 100 Hz 16:9" },
    { 44, 44, "Video code 44, 720(1440)x576i 100 Hz 4:3" },
    { 45, 45, "Video code 45, 720(1440)x576i 100 Hz 16:9" },
    { 46, 46, "Video code 46, 1920x1080i 119.88/120 Hz 16:9" },
    { 47, 47, "Video code 47, 1280x720p 119.88/120 Hz 16:9" },
    { 48, 48, "Video code 48, 720x480p 119.88/120 Hz 4:3" },
    { 49, 49, "Video code 49, 720x480p 119.88/120 Hz 16:9" },
    { 50, 50, "Video code 50, 720(1440)x480i 119.88/120 Hz 4:3" },
    { 51, 51, "Video code 51, 720(1440)x480i 119.88/120 Hz 16:9" },
    { 52, 52, "Video code 52, 720x576p 200 Hz 4:3" },
    { 53, 53, "Video code 53, 720x576p 200 Hz 16:9" },
    { 54, 54, "Video code 54, 720(1440)x576i 200 Hz 4:3" },
    { 55, 55, "Video code 55, 720(1440)x576i 200 Hz 16:9" },
    { 56, 56, "Video code 56, 720x480p 239.76/240 Hz 4:3" },
    { 57, 57, "Video code 57, 720x480p 239.76/240 Hz 16:9" },
    { 58, 58, "Video code 58, 720(1440)x480i 239.76/240 Hz 4:3" },
    { 59, 59, "Video code 59, 720(1440)x480i 239.76/240 Hz 16:9" },
    { 60, 60, "Video code 60, 1280x720p 23.98/24 Hz 16:9" },
    { 61, 61, "Video code 61, 1280x720p 25 Hz 16:9" },
    { 62, 62, "Video code 62, 1280x720p 29.97/30 Hz 16:9" },
    { 63, 63, "Video code 63, 1920x1080p 119.88/120 Hz 16:9" },
    { 64, 64, "Video code 64, 1920x1080p 100 Hz 16:9" },
    { 65, 65, "Video code 65, 1280x720p 23.98/24 Hz 64:27" },
    { 66, 66, "Video code 66, 1280x720p 25 Hz 64:27" },
    { 67, 67, "Video code 67, 1280x720p 29.97/30 Hz 64:27" },
    { 68, 68, "Video code 68, 1280x720p 50 Hz 64:27" },
    { 69, 69, "Video code 69, 1280x720p 59.94/60 Hz 64:27" },
    { 70, 70, "Video code 70, 1280x720p 100 Hz 64:27" },
    { 71, 71, "Video code 71, 1280x720p 119.88/120 Hz 64:27" },
    { 72, 72, "Video code 72, 1920x1080p 23.98/24 Hz 64:27" },
    { 73, 73, "Video code 73, 1920x1080p 25 Hz 64:27" },
    { 74, 74, "Video code 74, 1920x1080p 29.97/30 Hz 64:27" },
    { 75, 75, "Video code 75, 1920x1080p 50 Hz 64:27" },
    { 76, 76, "Video code 76, 1920x1080p 59.94/60 Hz 64:27" },
    { 77, 77, "Video code 77, 1920x1080p 100 Hz 64:27" },
    { 78, 78, "Video code 78, 1920x1080p 119.88/120 Hz 64:27" },
    { 79, 79, "Video code 79, 1680x720p 23.98/24 Hz 64:27" },
    { 80, 80, "Video code 80, 1680x720p 25 Hz 64:27" },
    { 81, 81, "Video code 81, 1680x720p 29.97/30 Hz 64:27" },
    { 82, 82, "Video code 82, 1680x720p 50 Hz 64:27" },
    { 83, 83, "Video code 83, 1680x720p 59.94/60 Hz 64:27" },
    { 84, 84, "Video code 84, 1680x720p 100 Hz 64:27" },
    { 85, 85, "Video code 85, 1680x720p 119.88/120 Hz 64:27" },
    { 86, 86, "Video code 86, 2560x1080p 23.98/24 Hz 64:27" },
    { 87, 87, "Video code 87, 2560x1080p 25 Hz 64:27" },
    { 88, 88, "Video code 88, 2560x1080p 29.97/30 Hz 64:27" },
    { 89, 89, "Video code 89, 2560x1080p 50 Hz 64:27" },
    { 90, 90, "Video code 90, 2560x1080p 59.94/60 Hz 64:27" },
    { 91, 91, "Video code 91, 2560x1080p 100 Hz 64:27" },
    { 92, 92, "Video code 92, 2560x1080p 119.88/120 Hz 64:27" },
    { 93, 93, "Video code 93, 3840x2160p 23.98/24 Hz 16:9" },
    { 94, 94, "Video code 94, 3840x2160p 25 Hz 16:9" },
    { 95, 95, "Video code 95, 3840x2160p 29.97/30 Hz 16:9" },
    { 96, 96, "Video code 96, 3840x2160p 50 Hz 16:9" },
    { 97, 97, "Video code 97, 3840x2160p 59.94/60 Hz 16:9" },
    { 98, 98, "Video code 98, 4096x2160p 23.98/24 Hz 256:135" },
    { 99, 99, "Video code 99, 4096x2160p 25 Hz 256:135" },
    { 100, 100, "Video code 100, 4096x2160p 29.97/30 Hz 256:135" },
    { 101, 101, "Video code 101, 4096x2160p 50 Hz 256:135" },
    { 102, 102, "Video code 102, 4096x2160p 59.94/60 Hz 256:135" },
    { 103, 103, "Video code 103, 3840x2160p 23.98/24 Hz 64:27" },
    { 104, 104, "Video code 104, 3840x2160p 25 Hz 64:27" },
    { 105, 105, "Video code 105, 3840x2160p 29.97/30 Hz 64:27" },
    { 106, 106, "Video code 106, 3840x2160p 50 Hz 64:27" },
    { 107, 107, "Video code 107, 3840x2160p 59.94/60 Hz 64:27" },
    { 108, 108, "Video code 108, 1280x720p 47.95/48 Hz 16:9" },
    { 109, 109, "Video code 109, 1280x720p 47.95/48 Hz 64:27" },
    { 110, 110, "Video code 110, 1680x720p 47.95/48 Hz 64:27" },
    { 111, 111, "Video code 111, 1920x1080p 47.95/48 Hz 16:9" },
    { 112, 112, "Video code 112, 1920x1080p 47.95/48 Hz 64:27" },
    { 113, 113, "Video code 113, 2560x1080p 47.95/48 Hz 64:27" },
    { 114, 114, "Video code 114, 3840x2160p 47.95/48 Hz 16:9" },
    { 115, 115, "Video code 115, 4096x2160p 47.95/48 Hz 256:135" },
    { 116, 116, "Video code 116, 3840x2160p 47.95/48 Hz 64:27" },
    { 117, 117, "Video code 117, 3840x2160p 100 Hz 16:9" },
    { 118, 118, "Video code 118, 3840x2160p 119.88/120 Hz 16:9" },
    { 119, 119, "Video code 119, 3840x2160p 100 Hz 64:27" },
    { 120, 120, "Video code 120, 3840x2160p 119.88/120 Hz 64:27" },
    { 121, 121, "Video code 121, 5120x2160p 23.98/24 Hz 64:27" },
    { 122, 122, "Video code 122, 5120x2160p 25 Hz 64:27" },
    { 123, 123, "Video code 123, 5120x2160p 29.97/30 Hz 64:27" },
    { 124, 124, "Video code 124, 5120x2160p 47.95/48 Hz 64:27" },
    { 125, 125, "Video code 125, 5120x2160p 50 Hz 64:27" },
    { 126, 126, "Video code 126, 5120x2160p 59.94/60 Hz 64:27" },
    { 127, 127, "Video code 127, 5120x2160p 100 Hz 64:27" },
    { 193, 193, "Video code 193, 5120x2160p 119.88/120 Hz 64:27" },
    { 194, 194, "Video code 194, 7680x4320p 23.98/24 Hz 16:9" },
    { 195, 195, "Video code 195, 7680x4320p 25 Hz 16:9" },
    { 196, 196, "Video code 196, 7680x4320p 29.97/30 Hz 16:9" },
    { 197, 197, "Video code 197, 7680x4320p 47.95/48 Hz 16:9" },
    { 198, 198, "Video code 198, 7680x4320p 50 Hz 16:9" },
    { 199, 199, "Video code 199, 7680x4320p 59.94/60 Hz 16:9" },
    { 200, 200, "Video code 200, 7680x4320p 100 Hz 16:9" },
    { 201, 201, "Video code 201, 7680x4320p 119.88/120 Hz 16:9" },
    { 202, 202, "Video code 202, 7680x4320p 23.98/24 Hz 64:27" },
    { 203, 203, "Video code 203, 7680x4320p 25 Hz 64:27" },
    { 204, 204, "Video code 204, 7680x4320p 29.97/30 Hz 64:27" },
    { 205, 205, "Video code 205, 7680x4320p 47.95/48 Hz 64:27" },
    { 206, 206, "Video code 206, 7680x4320p 50 Hz 64:27" },
    { 207, 207, "Video code 207, 7680x4320p 59.94/60 Hz 64:27" },
    { 208, 208, "Video code 208, 7680x4320p 100 Hz 64:27" },
    { 209, 209, "Video code 209, 7680x4320p 119.88/120 Hz 64:27" },
    { 210, 210, "Video code 210, 10240x4320p 23.98/24 Hz 64:27" },
    { 211, 211, "Video code 211, 10240x4320p 25 Hz 64:27" },
    { 212, 212, "Video code 212, 10240x4320p 29.97/30 Hz 64:27" },
    { 213, 213, "Video code 213, 10240x4320p 47.95/48 Hz 64:27" },
    { 214, 214, "Video code 214, 10240x4320p 50 Hz 64:27" },
    { 215, 215, "Video code 215, 10240x4320p 59.94/60 Hz 64:27" },
    { 216, 216, "Video code 216, 10240x4320p 100 Hz 64:27" },
    { 217, 217, "Video code 217, 10240x4320p 119.88/120 Hz 64:27" },
    { 218, 218, "Video code 218, 4096x2160p 100 Hz 256:135" },
    { 219, 219, "Video code 219, 4096x2160p 119.88/120 Hz 256:135" },
};

// The formats without their codes, each behind the first comma: parts of the same texts.
constexpr auto TakeNames()
{
    std::array<SMeaning, std::size(gsc_aoVideoCodes)> aoNames = {};
    for (size_t i = 0; i < aoNames.size(); ++i)
    {
        const char* pszName = gsc_aoVideoCodes[i].m_pszName;
        while (*pszName != ',')
        {
            ++pszName;
        }
        aoNames[i] = { gsc_aoVideoCodes[i].m_uiFirst, gsc_aoVideoCodes[i].m_uiLast, pszName + 2 };
    }
    return aoNames;
}
constexpr auto gsc_aoVideoFormats = TakeNames();

CMString VideoCodeText(const CRecord& /*oRecord*/, unsigned int uiCode)
{
    return CodeText(uiCode, FindMeaning(gsc_aoVideoFormats, uiCode));
}
constexpr SForm gsc_oVideoCode = Names(gsc_aoVideoFormats).Text(VideoCodeText);

// ---- Short video descriptors: CTA-861-H 7.5.1 ----

constexpr unsigned int gsc_uiNativeBit = 0x80;
constexpr unsigned int gsc_uiLastNative = 192; // behind it all 8 bits are the code

constexpr bool IsReservedSvd(unsigned int uiSvd) { return (uiSvd & 0x7F) == 0 || uiSvd > 253; }
constexpr bool HasNativeBit(unsigned int uiSvd) { return !IsReservedSvd(uiSvd) && uiSvd <= gsc_uiLastNative; }
constexpr unsigned int GetVideoCode(unsigned int uiSvd)
{
    return HasNativeBit(uiSvd) ? uiSvd & ~gsc_uiNativeBit : uiSvd;
}

bool IsSvdWithNative(const CRecord& oSvd) { return HasNativeBit(oSvd.GetByte(0)); }
bool IsSvdReserved(const CRecord& oSvd) { return IsReservedSvd(oSvd.GetByte(0)); }

constexpr SMeaning gsc_aoReservedCode[] = { { 0, 255, gsc_szReserved } };

constexpr SRow gsc_aoVideoRows[] = {
    { eId_CtaVideoNative, Bit(0, 7), "Native", Flag(), IsSvdWithNative },
    { eId_CtaVideoVic, Bits(0, 6, 0), "Video identification code", gsc_oVideoCode, IsSvdWithNative },
    { eId_CtaVideoVic, Byte(0), "Video identification code", gsc_oVideoCode, WhereIn<193, 253> },
    { eId_CtaVideoVic, Byte(0), "Video identification code", Names(gsc_aoReservedCode), IsSvdReserved },
};

CMString SvdSummary(const CRecord& oSvd)
{
    const unsigned int uiSvd = oSvd.GetByte(0);
    CMString sText(GetVideoCodeName(uiSvd));
    if (HasNativeBit(uiSvd) && (uiSvd & gsc_uiNativeBit) != 0)
    {
        sText += ", native";
    }
    return sText;
}

// ---- Short video references: CTA-861-H 7.5.12; 161 to 175 by CTA-861.6 ----

constexpr SMeaning gsc_aoRateIndexes[] = {
    { 161, 161, "24 Hz" },  { 162, 162, "25 Hz" },  { 163, 163, "30 Hz" },  { 164, 164, "48 Hz" },
    { 165, 165, "50 Hz" },  { 166, 166, "60 Hz" },  { 167, 167, "100 Hz" }, { 168, 168, "120 Hz" },
    { 169, 169, "144 Hz" }, { 170, 170, "200 Hz" }, { 171, 171, "240 Hz" }, { 172, 172, "300 Hz" },
    { 173, 173, "360 Hz" }, { 174, 174, "400 Hz" }, { 175, 175, "480 Hz" },
};
constexpr SMeaning gsc_aoTypeViiiCode[] = { { 254, 254, "first code of the Type VIII data block" } };

bool IsReservedReference(const CRecord& oRecord)
{
    return WhereIn<0, 0>(oRecord) || WhereIn<128, 128>(oRecord) || WhereIn<176, 192>(oRecord) ||
           WhereIn<255, 255>(oRecord);
}

// Timings are counted from 1: the detailed ones over the base block and all CTA-861 blocks.
constexpr SRow gsc_aoReferenceRows[] = {
    { eId_CtaVideoReferenceVic, Byte(0), "Video identification code", gsc_oVideoCode, WhereIn<1, 127> },
    { eId_CtaVideoReferenceDetailed, Byte(0), "Detailed timing descriptor", Number().Times(1, -128),
      WhereIn<129, 144> },
    { eId_CtaVideoReferenceType7Or10, Byte(0), "Type VII or X timing", Number().Times(1, -144), WhereIn<145, 160> },
    { eId_CtaVideoReferenceVideoFormatRate, Byte(0), "First video format descriptor, refresh rate",
      Names(gsc_aoRateIndexes), WhereIn<161, 175> },
    { eId_CtaVideoReferenceVic, Byte(0), "Video identification code", gsc_oVideoCode, WhereIn<193, 253> },
    { eId_CtaVideoReferenceType8, Byte(0), "Type VIII timing", Names(gsc_aoTypeViiiCode), WhereIn<254, 254> },
    { eId_CtaVideoReferenceVic, Byte(0), "Video identification code", Names(gsc_aoReservedCode), IsReservedReference },
};

CMString ReferenceSummary(const CRecord& oReference)
{
    const unsigned int uiCode = oReference.GetByte(0);
    const bool bVideoCode = WhereIn<1, 127>(oReference) || WhereIn<193, 253>(oReference);
    CMString sText(bVideoCode ? FindMeaning(gsc_aoVideoFormats, uiCode) : nullptr);
    if (WhereIn<129, 144>(oReference))
    {
        sText.Format("detailed timing %u", uiCode - 128);
    }
    return sText;
}

// ---- Native Video Resolution Data Block: CTA-861.6 ----

bool IsSizeInTenths(const CRecord& oRecord) { return oRecord.IsSet(1, 0) && !oRecord.IsSet(1, 7); }
bool IsSizeInWhole(const CRecord& oRecord) { return oRecord.IsSet(1, 0) && oRecord.IsSet(1, 7); }

constexpr SRow gsc_aoNativeRows[] = {
    { eId_CtaNativeResolutionSizePrecision, Bit(1, 7), "Image size precision", Flag(gsc_aoPrecisions) },
    { eId_CtaNativeResolutionSizePresent, Bit(1, 0), "Image size present", Flag() },
    { eId_CtaNativeResolutionImageWidth, Little16(2), "Image width", Number("mm").Decimals(1), IsSizeInTenths },
    { eId_CtaNativeResolutionImageHeight, Little16(4), "Image height", Number("mm").Decimals(1), IsSizeInTenths },
    { eId_CtaNativeResolutionImageWidth, Little16(2), "Image width", Number("mm"), IsSizeInWhole },
    { eId_CtaNativeResolutionImageHeight, Little16(4), "Image height", Number("mm"), IsSizeInWhole },
};
constexpr STable gsc_oNativeTable = { eId_CtaNativeResolution, "Native video resolution", eTiming, gsc_aoNativeRows };

// ---- Video Format Data Block: CTA-861.6 ----

constexpr SMeaning gsc_aoResolutions[] = {
    { 0, 0, "none" },
    { 1, 1, "1280x720 16:9" },
    { 2, 2, "1280x720 64:27" },
    { 3, 3, "1680x720 64:27" },
    { 4, 4, "1920x1080 16:9" },
    { 5, 5, "1920x1080 64:27" },
    { 6, 6, "2560x1080 64:27" },
    { 7, 7, "3840x1080 32:9" },
    { 8, 8, "2560x1440 16:9" },
    { 9, 9, "3440x1440 64:27" },
    { 10, 10, "5120x1440 32:9" },
    { 11, 11, "3840x2160 16:9" },
    { 12, 12, "3840x2160 64:27" },
    { 13, 13, "5120x2160 64:27" },
    { 14, 14, "7680x2160 32:9" },
    { 15, 15, "5120x2880 16:9" },
    { 16, 16, "5120x2880 64:27" },
    { 17, 17, "6880x2880 64:27" },
    { 18, 18, "10240x2880 32:9" },
    { 19, 19, "7680x4320 16:9" },
    { 20, 20, "7680x4320 64:27" },
    { 21, 21, "10240x4320 64:27" },
    { 22, 22, "15360x4320 32:9" },
    { 23, 23, "11520x6480 16:9" },
    { 24, 24, "11520x6480 64:27" },
    { 25, 25, "15360x6480 64:27" },
    { 26, 26, "15360x8640 16:9" },
    { 27, 27, "15360x8640 64:27" },
    { 28, 28, "20480x8640 64:27" },
    { 29, 63, gsc_szReserved },
};

constexpr SRow gsc_aoFormatHeadRows[] = {
    { eId_CtaVideoFormatY420, Bit(0, 7), "Y420", Flag() },
    { eId_CtaVideoFormatNtsc, Bit(0, 6), "NTSC", Flag() },
    { eId_CtaVideoFormatDescriptorLength, Bits(0, 1, 0), "Length of a video format descriptor", NumberFrom1("bytes") },
};
constexpr STable gsc_oFormatHeadTable = { eId_CtaVideoFormat, "Video format data block", eTiming,
                                          gsc_aoFormatHeadRows };

// A factor multiplies 25 Hz with BFR50, and 30 Hz with BFR60. Without byte 1 BFR60 and the factors 1 and 2 are meant.
constexpr SRow gsc_aoFormatRows[] = {
    { eId_CtaVideoFormatBfr50, Bit(0, 7), "BFR50", Flag() },
    { eId_CtaVideoFormatFr24, Bit(0, 6), "FR24", Flag() },
    { eId_CtaVideoFormatResolution, Bits(0, 5, 0), "Resolution identifier", Names(gsc_aoResolutions) },
    { eId_CtaVideoFormatBfr60, Bit(1, 7), "BFR60", Flag() },
    { eId_CtaVideoFormatFr144, Bit(1, 6), "FR144", Flag() },
    { eId_CtaVideoFormatFrameRateFactor16, Bit(1, 5), "Frame rate factor 16", Flag() },
    { eId_CtaVideoFormatFrameRateFactor12, Bit(1, 4), "Frame rate factor 12", Flag() },
    { eId_CtaVideoFormatFrameRateFactor8, Bit(1, 3), "Frame rate factor 8", Flag() },
    { eId_CtaVideoFormatFrameRateFactor4, Bit(1, 2), "Frame rate factor 4", Flag() },
    { eId_CtaVideoFormatFrameRateFactor2, Bit(1, 1), "Frame rate factor 2", Flag() },
    { eId_CtaVideoFormatFrameRateFactor1, Bit(1, 0), "Frame rate factor 1", Flag() },
    { eId_CtaVideoFormatFr48, Bit(2, 0), "FR48", Flag() },
};

CMString FormatSummary(const CRecord& oFormat)
{
    return CMString(FindMeaning(gsc_aoResolutions, oFormat.GetBits(0, 5, 0)));
}
constexpr STable gsc_oFormatTable = { eId_CtaVideoFormatDescriptor, "Video format descriptor", eTiming,
                                      gsc_aoFormatRows, FormatSummary };

// ---- YCbCr 4:2:0 Capability Map Data Block: CTA-861-H 7.5.11 ----

constexpr auto gsc_aoAlso420 = Listed({ "not in YCbCr 4:2:0", "also in YCbCr 4:2:0" });
constexpr SForm gsc_oAlso420 = Flag(gsc_aoAlso420);

constexpr auto gsc_aoMapRows = BitRows(eId_Cta420MapVic, "Place without a video code", gsc_oAlso420);

// ---- Video Capability Data Block: CTA-861-H 7.5.6 ----

constexpr auto Scans(const char* pszNone)
{
    return Listed({ pszNone, "always overscanned", "always underscanned", "both over- and underscan" });
}
constexpr auto gsc_aoPreferredScan = Scans("no data");
constexpr auto gsc_aoItScan = Scans("IT video formats not supported");
constexpr auto gsc_aoCeScan = Scans("CE video formats not supported");

constexpr SRow gsc_aoCapabilityRows[] = {
    { eId_CtaVideoCapabilityQy, Bit(0, 7), "Selectable YCC quantization range", Flag() },
    { eId_CtaVideoCapabilityQs, Bit(0, 6), "Selectable RGB quantization range", Flag() },
    { eId_CtaVideoCapabilityPreferredScan, Bits(0, 5, 4), "Scan of the preferred video format",
      Names(gsc_aoPreferredScan) },
    { eId_CtaVideoCapabilityItScan, Bits(0, 3, 2), "Scan of IT video formats", Names(gsc_aoItScan) },
    { eId_CtaVideoCapabilityCeScan, Bits(0, 1, 0), "Scan of CE video formats", Names(gsc_aoCeScan) },
};

// ---- DisplayID timings in CTA-861 data blocks: CTA-861-H 7.5.17 ----

// The first byte of the payload is the second one of a DisplayID data block: revision and what the type adds to it.
constexpr unsigned int gsc_uiTypeVii = 0x22;
constexpr unsigned int gsc_uiTypeX = 0x2A;
constexpr unsigned int gsc_uiTypeViiSize = 20;
constexpr unsigned int gsc_uiTypeXSize = 6;

constexpr SRow gsc_aoTypeViiRows[] = {
    { eId_CtaType7M, Bits(0, 6, 4), "T7_M", Number("bytes").Expect(0, "the standard has 0 here") },
    { eId_CtaType7Revision, Bits(0, 2, 0), "Block revision", Number().Expect(2, "the standard has 2 here") },
};
constexpr STable gsc_oTypeViiTable = { eId_CtaType7, "Type VII", eTiming, gsc_aoTypeViiRows };

// Other words than those of DisplayID.
constexpr auto gsc_aoTypeViiiCodes = Listed({ "DMT", "CTA-861", "HDMI", gsc_szReserved });
constexpr SRow gsc_aoTypeViiiRows[] = {
    { eId_CtaType8CodeType, Bits(0, 7, 6), "Timing code type",
      Names(gsc_aoTypeViiiCodes).Expect(0, "the standard has DMT here") },
    { eId_CtaType8Y420, Bit(0, 5), "T8Y420", Flag() },
    { eId_CtaType8CodeSize, Bit(0, 3), "Timing code size", Flag(gsc_aoCodeSizes) },
    { eId_CtaType8Revision, Bits(0, 2, 0), "Block revision", Number().Expect(1, "the standard has 1 here") },
};
constexpr STable gsc_oTypeViiiTable = { eId_CtaType8, "Type VIII", eTiming, gsc_aoTypeViiiRows };

constexpr SRow gsc_aoTypeXRows[] = {
    { eId_CtaType10M, Bits(0, 6, 4), "T10_M", Number("bytes") },
    { eId_CtaType10Revision, Bits(0, 2, 0), "Block revision", Number().Expect(0, "the standard has 0 here") },
};
constexpr STable gsc_oTypeXTable = { eId_CtaType10, "Type X", eTiming, gsc_aoTypeXRows };

// Items of uiSize bytes behind the first byte of the payload, as many as fit: fnAdd is called with the offset of each.
template <class ADD>
void AddBehindHead(CMapWriter& oWriter, const SCtaPayload& oPayload, const STable& oHead, unsigned int uiSize,
                   ADD fnAdd)
{
    oWriter.AddRows(oHead, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U));
    unsigned int uiUsed = 1;
    for (; uiUsed + uiSize <= oPayload.m_uiLength; uiUsed += uiSize)
    {
        fnAdd(oPayload.m_uiOffset + uiUsed);
    }
    AddCtaPart(oWriter, oPayload, uiUsed);
}

CRecord GetHead(const CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    return oWriter.GetRecord(oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U));
}
} // namespace

constinit const STable g_oCtaVideoTable = { eId_CtaVideoDescriptor, "Short video descriptor", eTiming, gsc_aoVideoRows,
                                            SvdSummary };
constinit const STable g_oCtaPreferenceTable = { eId_CtaVideoReference, "Short video reference", eTiming,
                                                 gsc_aoReferenceRows, ReferenceSummary };
constinit const STable g_oCtaVideoCapabilityTable = { eId_CtaVideoCapability, "Video capability", eDisplay,
                                                      gsc_aoCapabilityRows };

const char* GetVideoCodeName(unsigned int uiSvd) { return FindMeaning(gsc_aoVideoFormats, GetVideoCode(uiSvd)); }

void AddVideoCodeBits(CMapWriter& oWriter, const SCtaVideoCodes& oCodes, unsigned int uiOffset, unsigned int uiFirst,
                      std::span<const SRow, gsc_uiBits> aoRows)
{
    const CRecord oByte = oWriter.GetRecord(uiOffset, 1);
    for (unsigned int i = 0; i < gsc_uiBits; ++i)
    {
        const unsigned int uiPlace = uiFirst + i;
        if (uiPlace < oCodes.m_uiCount)
        {
            const unsigned int uiField = oWriter.AddLeaf(aoRows[i], eTiming, uiOffset, 1);
            const char* pszName = FindMeaning(gsc_aoVideoCodes, GetVideoCode(oCodes.m_aui8Codes[uiPlace]));
            oWriter.SetName(uiField, pszName != nullptr ? pszName : "Reserved video code");
        }
        else if (oByte.IsSet(0, i))
        {
            const unsigned int uiField = oWriter.AddLeaf(aoRows[i], eTiming, uiOffset, 1);
            oWriter.SetIndex(uiField, uiPlace);
            oWriter.AddNote(uiField, CZorEdidMap::eSeverity_Warning, gsc_szNoVideoCode);
        }
    }
}

void MapCtaNative(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRecord(g_oCtaPreferenceTable, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U));
    oWriter.AddRows(gsc_oNativeTable, oPayload.m_uiOffset, oPayload.m_uiLength);
}

void MapCtaVideoFormats(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const unsigned int uiSize = 1 + GetHead(oWriter, oPayload).GetBits(0, 1, 0);
    AddBehindHead(oWriter, oPayload, gsc_oFormatHeadTable, uiSize,
                  [&](unsigned int uiOffset) { oWriter.AddRecord(gsc_oFormatTable, uiOffset, uiSize); });
}

void MapCta420Video(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const SCtaVideoCodes& oCodes = oPayload.m_oVideoCodes;
    for (unsigned int i = 0; i < oPayload.m_uiLength; ++i)
    {
        const unsigned int uiOffset = oPayload.m_uiOffset + i;
        const unsigned int uiField = oWriter.AddRecord(g_oCtaVideoTable, uiOffset, 1);
        const unsigned int uiCode = GetVideoCode(oWriter.GetByte(uiOffset));
        const unsigned char* const pui8End = oCodes.m_aui8Codes + oCodes.m_uiCount;
        const bool bElsewhere = std::any_of(oCodes.m_aui8Codes, pui8End, [&](unsigned char ui8Svd) {
            return !IsReservedSvd(ui8Svd) && GetVideoCode(ui8Svd) == uiCode;
        });
        if (bElsewhere)
        {
            oWriter.AddNote(uiField, CZorEdidMap::eSeverity_Warning,
                            "is in a video data block as well: here are codes for YCbCr 4:2:0 only");
        }
    }
}

void MapCtaCapabilityMap(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    if (oPayload.m_uiLength == 0)
    {
        oWriter.AddNote(oPayload.m_uiField, CZorEdidMap::eSeverity_Note,
                        "without a map all video codes are also in YCbCr 4:2:0");
        return;
    }
    const CRecord oMap = oWriter.GetRecord(oPayload.m_uiOffset, oPayload.m_uiLength);
    if (std::all_of(oMap.GetData(), oMap.GetData() + oMap.GetSize(),
                    [](unsigned char ui8Byte) { return ui8Byte == 0; }))
    {
        oWriter.AddNote(oPayload.m_uiField, CZorEdidMap::eSeverity_Note, "marks no video code");
    }
    for (unsigned int i = 0; i < oPayload.m_uiLength; ++i)
    {
        AddVideoCodeBits(oWriter, oPayload.m_oVideoCodes, oPayload.m_uiOffset + i, i * gsc_uiBits, gsc_aoMapRows);
    }
}

void MapCtaTypeVii(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    oWriter.AddRows(gsc_oTypeViiTable, oPayload.m_uiOffset, std::min(oPayload.m_uiLength, 1U));
    if (oPayload.m_uiLength > gsc_uiTypeViiSize)
    {
        MapDisplayIdTiming(oWriter, gsc_uiTypeVii, GetHead(oWriter, oPayload).GetBits(0, 2, 0), oPayload.m_uiOffset + 1,
                           gsc_uiTypeViiSize);
    }
}

void MapCtaTypeViii(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const CRecord oHead = GetHead(oWriter, oPayload);
    const unsigned int uiSize = oHead.IsSet(0, 3) ? 2 : 1;
    AddBehindHead(oWriter, oPayload, gsc_oTypeViiiTable, uiSize,
                  [&](unsigned int uiOffset) { MapTimingCode(oWriter, oHead.GetBits(0, 7, 6), uiOffset, uiSize); });
}

void MapCtaTypeX(CMapWriter& oWriter, const SCtaPayload& oPayload)
{
    const CRecord oHead = GetHead(oWriter, oPayload);
    const unsigned int uiSize = gsc_uiTypeXSize + oHead.GetBits(0, 6, 4);
    AddBehindHead(oWriter, oPayload, gsc_oTypeXTable, uiSize, [&](unsigned int uiOffset) {
        MapDisplayIdTiming(oWriter, gsc_uiTypeX, oHead.GetBits(0, 2, 0), uiOffset, uiSize);
    });
}
} // namespace ZorMap
