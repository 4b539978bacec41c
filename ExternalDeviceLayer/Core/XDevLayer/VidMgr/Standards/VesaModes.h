// Modes that VESA's standards name: DMT, standard timings, established timings. Private to the library.

#pragma once

#include <array>
#include <iterator>

#include "Place.h"
#include "PublishedTiming.h"

namespace ZorStandards
{
// ---- VESA DMT 1.13 ----

enum class EBlanking : unsigned char
{
    eNormal,
    eReduced1, // reduced, version 1 of CVT
    eReduced2
};

struct SDmtMode
{
    SPublishedTiming m_oTiming; // published borders are counted into the porches
    EBlanking m_eBlanking;
    unsigned short m_ui16Standard; // its standard timing, the first byte above; 0 without one
    bool m_bFraction = false;      // its rate is 1000/1001 of the one in the timing, and its clock is so already
};

namespace Rows
{
using enum EBlanking;

// clang-format off
inline constexpr SDmtMode gsc_aoDmtModes[] = {
    //  active         rate clock kHz h front sync back v front sync back        blanking, standard timing
    { {  640,  350, eP,  85,  31500,  32,  64,  96, 32, 3,  60, ePN }, eNormal, 0 }, // 01h
    { {  640,  400, eP,  85,  31500,  32,  64,  96,  1, 3,  41, eNP }, eNormal, 0x3119 }, // 02h
    { {  720,  400, eP,  85,  35500,  36,  72, 108,  1, 3,  42, eNP }, eNormal, 0 }, // 03h
    { {  640,  480, eP,  60,  25175,  16,  96,  48, 10, 2,  33, eNN }, eNormal, 0x3140 }, // 04h
    { {  640,  480, eP,  72,  31500,  24,  40, 128,  9, 3,  28, eNN }, eNormal, 0x314C }, // 05h
    { {  640,  480, eP,  75,  31500,  16,  64, 120,  1, 3,  16, eNN }, eNormal, 0x314F }, // 06h
    { {  640,  480, eP,  85,  36000,  56,  56,  80,  1, 3,  25, eNN }, eNormal, 0x3159 }, // 07h
    { {  800,  600, eP,  56,  36000,  24,  72, 128,  1, 2,  22, ePP }, eNormal, 0 }, // 08h
    { {  800,  600, eP,  60,  40000,  40, 128,  88,  1, 4,  23, ePP }, eNormal, 0x4540 }, // 09h
    { {  800,  600, eP,  72,  50000,  56, 120,  64, 37, 6,  23, ePP }, eNormal, 0x454C }, // 0Ah
    { {  800,  600, eP,  75,  49500,  16,  80, 160,  1, 3,  21, ePP }, eNormal, 0x454F }, // 0Bh
    { {  800,  600, eP,  85,  56250,  32,  64, 152,  1, 3,  27, ePP }, eNormal, 0x4559 }, // 0Ch
    { {  800,  600, eP, 120,  73250,  48,  32,  80,  3, 4,  29, ePN }, eReduced1, 0 }, // 0Dh
    { {  848,  480, eP,  60,  33750,  16, 112, 112,  6, 8,  23, ePP }, eNormal, 0 }, // 0Eh
    { { 1024,  768, eI,  87,  44900,   8, 176,  56,  0, 4,  20, ePP }, eNormal, 0 }, // 0Fh
    { { 1024,  768, eP,  60,  65000,  24, 136, 160,  3, 6,  29, eNN }, eNormal, 0x6140 }, // 10h
    { { 1024,  768, eP,  70,  75000,  24, 136, 144,  3, 6,  29, eNN }, eNormal, 0x614A }, // 11h
    { { 1024,  768, eP,  75,  78750,  16,  96, 176,  1, 3,  28, ePP }, eNormal, 0x614F }, // 12h
    { { 1024,  768, eP,  85,  94500,  48,  96, 208,  1, 3,  36, ePP }, eNormal, 0x6159 }, // 13h
    { { 1024,  768, eP, 120, 115500,  48,  32,  80,  3, 4,  38, ePN }, eReduced1, 0 }, // 14h
    { { 1152,  864, eP,  75, 108000,  64, 128, 256,  1, 3,  32, ePP }, eNormal, 0x714F }, // 15h
    { { 1280,  768, eP,  60,  68250,  48,  32,  80,  3, 7,  12, ePN }, eReduced1, 0 }, // 16h
    { { 1280,  768, eP,  60,  79500,  64, 128, 192,  3, 7,  20, eNP }, eNormal, 0 }, // 17h
    { { 1280,  768, eP,  75, 102250,  80, 128, 208,  3, 7,  27, eNP }, eNormal, 0 }, // 18h
    { { 1280,  768, eP,  85, 117500,  80, 136, 216,  3, 7,  31, eNP }, eNormal, 0 }, // 19h
    { { 1280,  768, eP, 120, 140250,  48,  32,  80,  3, 7,  35, ePN }, eReduced1, 0 }, // 1Ah
    { { 1280,  800, eP,  60,  71000,  48,  32,  80,  3, 6,  14, ePN }, eReduced1, 0 }, // 1Bh
    { { 1280,  800, eP,  60,  83500,  72, 128, 200,  3, 6,  22, eNP }, eNormal, 0x8100 }, // 1Ch
    { { 1280,  800, eP,  75, 106500,  80, 128, 208,  3, 6,  29, eNP }, eNormal, 0x810F }, // 1Dh
    { { 1280,  800, eP,  85, 122500,  80, 136, 216,  3, 6,  34, eNP }, eNormal, 0x8119 }, // 1Eh
    { { 1280,  800, eP, 120, 146250,  48,  32,  80,  3, 6,  38, ePN }, eReduced1, 0 }, // 1Fh
    { { 1280,  960, eP,  60, 108000,  96, 112, 312,  1, 3,  36, ePP }, eNormal, 0x8140 }, // 20h
    { { 1280,  960, eP,  85, 148500,  64, 160, 224,  1, 3,  47, ePP }, eNormal, 0x8159 }, // 21h
    { { 1280,  960, eP, 120, 175500,  48,  32,  80,  3, 4,  50, ePN }, eReduced1, 0 }, // 22h
    { { 1280, 1024, eP,  60, 108000,  48, 112, 248,  1, 3,  38, ePP }, eNormal, 0x8180 }, // 23h
    { { 1280, 1024, eP,  75, 135000,  16, 144, 248,  1, 3,  38, ePP }, eNormal, 0x818F }, // 24h
    { { 1280, 1024, eP,  85, 157500,  64, 160, 224,  1, 3,  44, ePP }, eNormal, 0x8199 }, // 25h
    { { 1280, 1024, eP, 120, 187250,  48,  32,  80,  3, 7,  50, ePN }, eReduced1, 0 }, // 26h
    { { 1360,  768, eP,  60,  85500,  64, 112, 256,  3, 6,  18, ePP }, eNormal, 0 }, // 27h
    { { 1360,  768, eP, 120, 148250,  48,  32,  80,  3, 5,  37, ePN }, eReduced1, 0 }, // 28h
    { { 1400, 1050, eP,  60, 101000,  48,  32,  80,  3, 4,  23, ePN }, eReduced1, 0 }, // 29h
    { { 1400, 1050, eP,  60, 121750,  88, 144, 232,  3, 4,  32, eNP }, eNormal, 0x9040 }, // 2Ah
    { { 1400, 1050, eP,  75, 156000, 104, 144, 248,  3, 4,  42, eNP }, eNormal, 0x904F }, // 2Bh
    { { 1400, 1050, eP,  85, 179500, 104, 152, 256,  3, 4,  48, eNP }, eNormal, 0x9059 }, // 2Ch
    { { 1400, 1050, eP, 120, 208000,  48,  32,  80,  3, 4,  55, ePN }, eReduced1, 0 }, // 2Dh
    { { 1440,  900, eP,  60,  88750,  48,  32,  80,  3, 6,  17, ePN }, eReduced1, 0 }, // 2Eh
    { { 1440,  900, eP,  60, 106500,  80, 152, 232,  3, 6,  25, eNP }, eNormal, 0x9500 }, // 2Fh
    { { 1440,  900, eP,  75, 136750,  96, 152, 248,  3, 6,  33, eNP }, eNormal, 0x950F }, // 30h
    { { 1440,  900, eP,  85, 157000, 104, 152, 256,  3, 6,  39, eNP }, eNormal, 0x9519 }, // 31h
    { { 1440,  900, eP, 120, 182750,  48,  32,  80,  3, 6,  44, ePN }, eReduced1, 0 }, // 32h
    { { 1600, 1200, eP,  60, 162000,  64, 192, 304,  1, 3,  46, ePP }, eNormal, 0xA940 }, // 33h
    { { 1600, 1200, eP,  65, 175500,  64, 192, 304,  1, 3,  46, ePP }, eNormal, 0xA945 }, // 34h
    { { 1600, 1200, eP,  70, 189000,  64, 192, 304,  1, 3,  46, ePP }, eNormal, 0xA94A }, // 35h
    { { 1600, 1200, eP,  75, 202500,  64, 192, 304,  1, 3,  46, ePP }, eNormal, 0xA94F }, // 36h
    { { 1600, 1200, eP,  85, 229500,  64, 192, 304,  1, 3,  46, ePP }, eNormal, 0xA959 }, // 37h
    { { 1600, 1200, eP, 120, 268250,  48,  32,  80,  3, 4,  64, ePN }, eReduced1, 0 }, // 38h
    { { 1680, 1050, eP,  60, 119000,  48,  32,  80,  3, 6,  21, ePN }, eReduced1, 0 }, // 39h
    { { 1680, 1050, eP,  60, 146250, 104, 176, 280,  3, 6,  30, eNP }, eNormal, 0xB300 }, // 3Ah
    { { 1680, 1050, eP,  75, 187000, 120, 176, 296,  3, 6,  40, eNP }, eNormal, 0xB30F }, // 3Bh
    { { 1680, 1050, eP,  85, 214750, 128, 176, 304,  3, 6,  46, eNP }, eNormal, 0xB319 }, // 3Ch
    { { 1680, 1050, eP, 120, 245500,  48,  32,  80,  3, 6,  53, ePN }, eReduced1, 0 }, // 3Dh
    { { 1792, 1344, eP,  60, 204750, 128, 200, 328,  1, 3,  46, eNP }, eNormal, 0xC140 }, // 3Eh
    { { 1792, 1344, eP,  75, 261000,  96, 216, 352,  1, 3,  69, eNP }, eNormal, 0xC14F }, // 3Fh
    { { 1792, 1344, eP, 120, 333250,  48,  32,  80,  3, 4,  72, ePN }, eReduced1, 0 }, // 40h
    { { 1856, 1392, eP,  60, 218250,  96, 224, 352,  1, 3,  43, eNP }, eNormal, 0xC940 }, // 41h
    { { 1856, 1392, eP,  75, 288000, 128, 224, 352,  1, 3, 104, eNP }, eNormal, 0xC94F }, // 42h
    { { 1856, 1392, eP, 120, 356500,  48,  32,  80,  3, 4,  75, ePN }, eReduced1, 0 }, // 43h
    { { 1920, 1200, eP,  60, 154000,  48,  32,  80,  3, 6,  26, ePN }, eReduced1, 0 }, // 44h
    { { 1920, 1200, eP,  60, 193250, 136, 200, 336,  3, 6,  36, eNP }, eNormal, 0xD100 }, // 45h
    { { 1920, 1200, eP,  75, 245250, 136, 208, 344,  3, 6,  46, eNP }, eNormal, 0xD10F }, // 46h
    { { 1920, 1200, eP,  85, 281250, 144, 208, 352,  3, 6,  53, eNP }, eNormal, 0xD119 }, // 47h
    { { 1920, 1200, eP, 120, 317000,  48,  32,  80,  3, 6,  62, ePN }, eReduced1, 0 }, // 48h
    { { 1920, 1440, eP,  60, 234000, 128, 208, 344,  1, 3,  56, eNP }, eNormal, 0xD140 }, // 49h
    { { 1920, 1440, eP,  75, 297000, 144, 224, 352,  1, 3,  56, eNP }, eNormal, 0xD14F }, // 4Ah
    { { 1920, 1440, eP, 120, 380500,  48,  32,  80,  3, 4,  78, ePN }, eReduced1, 0 }, // 4Bh
    { { 2560, 1600, eP,  60, 268500,  48,  32,  80,  3, 6,  37, ePN }, eReduced1, 0 }, // 4Ch
    { { 2560, 1600, eP,  60, 348500, 192, 280, 472,  3, 6,  49, eNP }, eNormal, 0 }, // 4Dh
    { { 2560, 1600, eP,  75, 443250, 208, 280, 488,  3, 6,  63, eNP }, eNormal, 0 }, // 4Eh
    { { 2560, 1600, eP,  85, 505250, 208, 280, 488,  3, 6,  73, eNP }, eNormal, 0 }, // 4Fh
    { { 2560, 1600, eP, 120, 552750,  48,  32,  80,  3, 6,  85, ePN }, eReduced1, 0 }, // 50h
    { { 1366,  768, eP,  60,  85500,  70, 143, 213,  3, 3,  24, ePP }, eNormal, 0 }, // 51h
    { { 1920, 1080, eP,  60, 148500,  88,  44, 148,  4, 5,  36, ePP }, eNormal, 0xD1C0 }, // 52h
    { { 1600,  900, eP,  60, 108000,  24,  80,  96,  1, 3,  96, ePP }, eReduced1, 0xA9C0 }, // 53h
    { { 2048, 1152, eP,  60, 162000,  26,  80,  96,  1, 3,  44, ePP }, eReduced1, 0xE1C0 }, // 54h
    { { 1280,  720, eP,  60,  74250, 110,  40, 220,  5, 5,  20, ePP }, eNormal, 0x81C0 }, // 55h
    { { 1366,  768, eP,  60,  72000,  14,  56,  64,  1, 3,  28, ePP }, eReduced1, 0 }, // 56h
    { { 4096, 2160, eP,  60, 556744,   8,  32,  40, 48, 8,   6, ePN }, eReduced2, 0 }, // 57h
    { { 4096, 2160, eP,  60, 556188,   8,  32,  40, 48, 8,   6, ePN }, eReduced2, 0, true }, // 58h
};
// clang-format on
} // namespace Rows

inline constexpr auto& gsc_aoDmtModes = Rows::gsc_aoDmtModes;
inline constexpr unsigned int gsc_uiDmtModes = 0x58;
static_assert(std::size(gsc_aoDmtModes) == gsc_uiDmtModes);

// Identifiers count from 1. Null for an unpublished one.
constexpr const SDmtMode* FindDmtMode(unsigned int uiId)
{
    return uiId - 1 < gsc_uiDmtModes ? &gsc_aoDmtModes[uiId - 1] : nullptr;
}

// The mode whose standard timing has this code; null for none.
constexpr const SDmtMode* FindDmtModeOfStandard(unsigned int uiCode)
{
    for (const SDmtMode& oMode : gsc_aoDmtModes)
    {
        if (uiCode != 0 && oMode.m_ui16Standard == uiCode)
        {
            return &oMode;
        }
    }
    return nullptr;
}

namespace Names
{
using CModeName = CName<28>; // the longest name and its NUL

constexpr CModeName MakeName(unsigned int uiWidth, unsigned int uiHeight, bool bInterlaced, unsigned int uiHundredths)
{
    CModeName sName;
    sName << uiWidth << " x " << uiHeight << (bInterlaced ? "i" : "") << " @ ";
    sName.AddHundredths(uiHundredths) << " Hz";
    return sName;
}

constexpr CModeName MakeDmtName(const SDmtMode& oMode)
{
    const SPublishedTiming& oTiming = oMode.m_oTiming;
    CModeName sName =
        MakeName(oTiming.m_ui16Width, oTiming.m_ui16Height, oTiming.IsInterlaced(),
                 oMode.m_bFraction ? GetFractionInHundredths(oTiming.m_ui8Rate) : oTiming.m_ui8Rate * 100U);
    return oMode.m_eBlanking != EBlanking::eNormal ? sName << " RB" : sName;
}

constexpr auto ListDmt()
{
    std::array<CModeName, gsc_uiDmtModes> asNames = {};
    for (size_t i = 0; i < asNames.size(); ++i)
    {
        asNames[i] = MakeDmtName(gsc_aoDmtModes[i]);
    }
    return asNames;
}
inline constexpr auto gsc_asDmt = ListDmt();
} // namespace Names

// "1280 x 768 @ 60 Hz RB"; RB: reduced blanking. Null for an identifier that is not published.
constexpr const char* GetDmtName(unsigned int uiId)
{
    return FindDmtMode(uiId) != nullptr ? Names::gsc_asDmt[uiId - 1].GetText() : nullptr;
}

// ---- Standard timings, E-EDID 3.9 ----

struct SStandardTiming
{
    unsigned int m_uiWidth;
    unsigned int m_uiHeight;
    unsigned int m_uiRate; // Hz
    SRatio m_oAspect;
};

inline constexpr SPlace gsc_oStandardWidth = Byte(0); // 8 pixels, minus 31
inline constexpr SPlace gsc_oStandardAspect = Bits(1, 7, 6);
inline constexpr SPlace gsc_oStandardRate = Bits(1, 5, 0); // Hz, minus 60

// By the two bytes of one in use. bSquare: aspect code 0 is 1:1, as before E-EDID 1.3, instead of 16:10.
constexpr SStandardTiming ReadStandardTiming(unsigned int uiFirst, unsigned int uiSecond, bool bSquare)
{
    constexpr SRatio aoRatios[] = { { 16, 10 }, { 4, 3 }, { 5, 4 }, { 16, 9 } };
    const unsigned char aui8Bytes[] = { static_cast<unsigned char>(uiFirst), static_cast<unsigned char>(uiSecond) };
    const unsigned int uiWidth = (gsc_oStandardWidth.Read(aui8Bytes) + 31) * 8;
    const unsigned int uiAspect = gsc_oStandardAspect.Read(aui8Bytes);
    const SRatio oRatio = bSquare && uiAspect == 0 ? SRatio{ 1, 1 } : aoRatios[uiAspect];
    return { uiWidth, uiWidth * oRatio.m_uiHeight / oRatio.m_uiWidth, gsc_oStandardRate.Read(aui8Bytes) + 60, oRatio };
}

// ---- Established timings I and II, E-EDID 3.8: from bit 7 of byte 23h on ----

struct SEstablishedMode
{
    unsigned short m_ui16Width;
    unsigned short m_ui16Height;
    unsigned char m_ui8Rate; // Hz, of the interlaced mode of fields
    unsigned char m_ui8Dmt;  // identifier; 0 for the modes of other makers
};

inline constexpr SEstablishedMode gsc_aoEstablishedModes[] = {
    { 720, 400, 70, 0 },     { 720, 400, 88, 0 },     { 640, 480, 60, 0x04 },  { 640, 480, 67, 0 },
    { 640, 480, 72, 0x05 },  { 640, 480, 75, 0x06 },  { 800, 600, 56, 0x08 },  { 800, 600, 60, 0x09 },
    { 800, 600, 72, 0x0A },  { 800, 600, 75, 0x0B },  { 832, 624, 75, 0 },     { 1024, 768, 87, 0x0F },
    { 1024, 768, 60, 0x10 }, { 1024, 768, 70, 0x11 }, { 1024, 768, 75, 0x12 }, { 1280, 1024, 75, 0x24 },
    { 1152, 870, 75, 0 },
};
inline constexpr unsigned int gsc_uiEstablishedModes = 17;
static_assert(std::size(gsc_aoEstablishedModes) == gsc_uiEstablishedModes);

// Those of other makers, as they published them: IBM's VGA and XGA-2, Apple's.
struct SMakerMode
{
    unsigned char m_ui8Bit;
    SPublishedTiming m_oTiming;
};

namespace Rows
{
// clang-format off
inline constexpr SMakerMode gsc_aoMakerModes[] = {
    {  0, {  720, 400, eP, 70,  28320, 18, 108,  54, 12, 2, 35, eNP } },
    {  1, {  720, 400, eP, 88,  35500, 18, 108,  54, 21, 2, 26, eNP } },
    {  3, {  640, 480, eP, 67,  30240, 64,  64,  96,  3, 3, 39, eNN } },
    { 10, {  832, 624, eP, 75,  57284, 32,  64, 224,  1, 3, 39, eNN } },
    { 16, { 1152, 870, eP, 75, 100000, 32, 128, 144,  3, 3, 39, eNN } },
};
// clang-format on
} // namespace Rows

// Null for a bit with a DMT mode.
constexpr const SPublishedTiming* FindMakerTiming(unsigned int uiBit)
{
    for (const SMakerMode& oMode : Rows::gsc_aoMakerModes)
    {
        if (oMode.m_ui8Bit == uiBit)
        {
            return &oMode.m_oTiming;
        }
    }
    return nullptr;
}

namespace Names
{
constexpr auto ListEstablished()
{
    std::array<CModeName, gsc_uiEstablishedModes> asNames = {};
    for (size_t i = 0; i < asNames.size(); ++i)
    {
        const SEstablishedMode& oMode = gsc_aoEstablishedModes[i];
        const SDmtMode* poDmt = FindDmtMode(oMode.m_ui8Dmt);
        asNames[i] = MakeName(oMode.m_ui16Width, oMode.m_ui16Height,
                              poDmt != nullptr && poDmt->m_oTiming.IsInterlaced(), oMode.m_ui8Rate * 100U);
    }
    return asNames;
}
inline constexpr auto gsc_asEstablished = ListEstablished();
} // namespace Names

// "1024 x 768i @ 87 Hz". uiBit is below gsc_uiEstablishedModes.
constexpr const char* GetEstablishedName(unsigned int uiBit) { return Names::gsc_asEstablished[uiBit].GetText(); }

// ---- Established timings III, E-EDID 3.10.3.9: DMT identifiers, from bit 7 of byte 6 on ----

inline constexpr unsigned char gsc_aui8EstablishedIII[] = {
    0x01, 0x02, 0x03, 0x07, 0x0E, 0x0C, 0x13, 0x15, 0x16, 0x17, 0x18, 0x19, 0x20, 0x21, 0x23,
    0x25, 0x27, 0x2E, 0x2F, 0x30, 0x31, 0x29, 0x2A, 0x2B, 0x2C, 0x39, 0x3A, 0x3B, 0x3C, 0x33,
    0x34, 0x35, 0x36, 0x37, 0x3E, 0x3F, 0x41, 0x42, 0x44, 0x45, 0x46, 0x47, 0x49, 0x4A,
};
inline constexpr unsigned int gsc_uiEstablishedIIIModes = 44;
static_assert(std::size(gsc_aui8EstablishedIII) == gsc_uiEstablishedIIIModes);
} // namespace ZorStandards
