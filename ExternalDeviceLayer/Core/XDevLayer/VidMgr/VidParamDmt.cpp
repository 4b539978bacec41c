// The table of VESA DMT modes. Search and conversion are those of all mode tables, in VidParamTable.h.

#include "VidParamDmt.h"

#include <iterator>

#include "VidParamTable.h"

using namespace VidParamTable;

namespace
{
using SRow = CVidParamDmt::SDmtVidParam;

// VESA DMT 1.0 revision 11: identifiers 01h to 50h in their order, then later modes in the order 51h, 52h, 55h, 56h,
// 53h, 54h, 57h, 58h. Pixels, lines, kHz, whole hertz (a frame rate in the interlaced row). Published borders are
// counted into the porches. Ties between a reduced mode and its twin are settled by the order of the rows.
// clang-format off
constexpr SRow g_aoDmtTableV10Rev11[] = {
    //  active   rate clock kHz  h front sync back v front sync back flags
    {  640,  350,  85,  31500,    32,  64,  96,   32, 3,  60, gsc_uiSyncPN },                                // 01h
    {  640,  400,  85,  31500,    32,  64,  96,    1, 3,  41, gsc_uiSyncNP },                                // 02h
    {  720,  400,  85,  35500,    36,  72, 108,    1, 3,  42, gsc_uiSyncNP },                                // 03h
    {  640,  480,  60,  25175,    16,  96,  48,   10, 2,  33, gsc_uiSyncNN },                                // 04h: published border of 8 in the porches
    {  640,  480,  72,  31500,    24,  40, 128,    9, 3,  28, gsc_uiSyncNN },                                // 05h: published border of 8 in the porches
    {  640,  480,  75,  31500,    16,  64, 120,    1, 3,  16, gsc_uiSyncNN },                                // 06h
    {  640,  480,  85,  36000,    56,  56,  80,    1, 3,  25, gsc_uiSyncNN },                                // 07h
    {  800,  600,  56,  36000,    24,  72, 128,    1, 2,  22, gsc_uiSyncPP },                                // 08h
    {  800,  600,  60,  40000,    40, 128,  88,    1, 4,  23, gsc_uiSyncPP },                                // 09h
    {  800,  600,  72,  50000,    56, 120,  64,   37, 6,  23, gsc_uiSyncPP },                                // 0Ah
    {  800,  600,  75,  49500,    16,  80, 160,    1, 3,  21, gsc_uiSyncPP },                                // 0Bh
    {  800,  600,  85,  56250,    32,  64, 152,    1, 3,  27, gsc_uiSyncPP },                                // 0Ch
    {  800,  600, 120,  73250,    48,  32,  80,    3, 4,  29, gsc_uiSyncPN | gsc_uiReduced },                // 0Dh
    {  848,  480,  60,  33750,    16, 112, 112,    6, 8,  23, gsc_uiSyncPP },                                // 0Eh
    { 1024,  768,  43,  44900,     8, 176,  56,    0, 4,  20, gsc_uiSyncPP | gsc_uiInterlaced },             // 0Fh: 43 frames, 87 fields
    { 1024,  768,  60,  65000,    24, 136, 160,    3, 6,  29, gsc_uiSyncNN },                                // 10h
    { 1024,  768,  70,  75000,    24, 136, 144,    3, 6,  29, gsc_uiSyncNN },                                // 11h
    { 1024,  768,  75,  78750,    16,  96, 176,    1, 3,  28, gsc_uiSyncPP },                                // 12h
    { 1024,  768,  85,  94500,    48,  96, 208,    1, 3,  36, gsc_uiSyncPP },                                // 13h
    { 1024,  768, 120, 115500,    48,  32,  80,    3, 4,  38, gsc_uiSyncPN | gsc_uiReduced },                // 14h
    { 1152,  864,  75, 108000,    64, 128, 256,    1, 3,  32, gsc_uiSyncPP },                                // 15h
    { 1280,  768,  60,  68250,    48,  32,  80,    3, 7,  12, gsc_uiSyncPN | gsc_uiReduced },                // 16h
    { 1280,  768,  60,  79500,    64, 128, 192,    3, 7,  20, gsc_uiSyncNP },                                // 17h
    { 1280,  768,  75, 102250,    80, 128, 208,    3, 7,  27, gsc_uiSyncNP },                                // 18h
    { 1280,  768,  85, 117500,    80, 136, 216,    3, 7,  31, gsc_uiSyncNP },                                // 19h
    { 1280,  768, 120, 140250,    48,  32,  80,    3, 7,  35, gsc_uiSyncPN | gsc_uiReduced },                // 1Ah
    { 1280,  800,  60,  71000,    48,  32,  80,    3, 6,  14, gsc_uiSyncPN | gsc_uiReduced },                // 1Bh
    { 1280,  800,  60,  83500,    72, 128, 200,    3, 6,  22, gsc_uiSyncNP },                                // 1Ch
    { 1280,  800,  75, 106500,    80, 128, 208,    3, 6,  29, gsc_uiSyncNP },                                // 1Dh
    { 1280,  800,  85, 122500,    80, 136, 216,    3, 6,  34, gsc_uiSyncNP },                                // 1Eh
    { 1280,  800, 120, 146250,    48,  32,  80,    3, 6,  38, gsc_uiSyncPN | gsc_uiReduced },                // 1Fh
    { 1280,  960,  60, 108000,    96, 112, 312,    1, 3,  36, gsc_uiSyncPP },                                // 20h
    { 1280,  960,  85, 148500,    64, 160, 224,    1, 3,  47, gsc_uiSyncPP },                                // 21h
    { 1280,  960, 120, 175500,    48,  32,  80,    3, 4,  50, gsc_uiSyncPN | gsc_uiReduced },                // 22h
    { 1280, 1024,  60, 108000,    48, 112, 248,    1, 3,  38, gsc_uiSyncPP },                                // 23h
    { 1280, 1024,  75, 135000,    16, 144, 248,    1, 3,  38, gsc_uiSyncPP },                                // 24h
    { 1280, 1024,  85, 157500,    64, 160, 224,    1, 3,  44, gsc_uiSyncPP },                                // 25h
    { 1280, 1024, 120, 187250,    48,  32,  80,    3, 7,  50, gsc_uiSyncPN | gsc_uiReduced },                // 26h
    { 1360,  768,  60,  85500,    64, 112, 256,    3, 6,  18, gsc_uiSyncPP },                                // 27h
    { 1360,  768, 120, 148250,    48,  32,  80,    3, 5,  37, gsc_uiSyncPN | gsc_uiReduced },                // 28h
    { 1400, 1050,  60, 101000,    48,  32,  80,    3, 4,  23, gsc_uiSyncPN | gsc_uiReduced },                // 29h
    { 1400, 1050,  60, 121750,    88, 144, 232,    3, 4,  32, gsc_uiSyncNP },                                // 2Ah
    { 1400, 1050,  75, 156000,   104, 144, 248,    3, 4,  42, gsc_uiSyncNP },                                // 2Bh
    { 1400, 1050,  85, 179500,   104, 152, 256,    3, 4,  48, gsc_uiSyncNP },                                // 2Ch
    { 1400, 1050, 120, 208000,    48,  32,  80,    3, 4,  55, gsc_uiSyncPN | gsc_uiReduced },                // 2Dh
    { 1440,  900,  60,  88750,    48,  32,  80,    3, 6,  17, gsc_uiSyncPN | gsc_uiReduced },                // 2Eh
    { 1440,  900,  60, 106500,    80, 152, 232,    3, 6,  25, gsc_uiSyncNP },                                // 2Fh
    { 1440,  900,  75, 136750,    96, 152, 248,    3, 6,  33, gsc_uiSyncNP },                                // 30h
    { 1440,  900,  85, 157000,   104, 152, 256,    3, 6,  39, gsc_uiSyncNP },                                // 31h
    { 1440,  900, 120, 182750,    48,  32,  80,    3, 6,  44, gsc_uiSyncPN | gsc_uiReduced },                // 32h
    { 1600, 1200,  60, 162000,    64, 192, 304,    1, 3,  46, gsc_uiSyncPP },                                // 33h
    { 1600, 1200,  65, 175500,    64, 192, 304,    1, 3,  46, gsc_uiSyncPP },                                // 34h
    { 1600, 1200,  70, 189000,    64, 192, 304,    1, 3,  46, gsc_uiSyncPP },                                // 35h
    { 1600, 1200,  75, 202500,    64, 192, 304,    1, 3,  46, gsc_uiSyncPP },                                // 36h
    { 1600, 1200,  85, 229500,    64, 192, 304,    1, 3,  46, gsc_uiSyncPP },                                // 37h
    { 1600, 1200, 120, 268250,    48,  32,  80,    3, 4,  64, gsc_uiSyncPN | gsc_uiReduced },                // 38h
    { 1680, 1050,  60, 119000,    48,  32,  80,    3, 6,  21, gsc_uiSyncPN | gsc_uiReduced },                // 39h
    { 1680, 1050,  60, 146250,   104, 176, 280,    3, 6,  30, gsc_uiSyncNP },                                // 3Ah
    { 1680, 1050,  75, 187000,   120, 176, 296,    3, 6,  40, gsc_uiSyncNP },                                // 3Bh
    { 1680, 1050,  85, 214750,   128, 176, 304,    3, 6,  46, gsc_uiSyncNP },                                // 3Ch
    { 1680, 1050, 120, 245500,    48,  32,  80,    3, 6,  53, gsc_uiSyncPN | gsc_uiReduced },                // 3Dh
    { 1792, 1344,  60, 204750,   128, 200, 328,    1, 3,  46, gsc_uiSyncNP },                                // 3Eh
    { 1792, 1344,  75, 261000,    96, 216, 352,    1, 3,  69, gsc_uiSyncNP },                                // 3Fh
    { 1792, 1344, 120, 333250,    48,  32,  80,    3, 4,  72, gsc_uiSyncPN | gsc_uiReduced },                // 40h
    { 1856, 1392,  60, 218250,    96, 224, 352,    1, 3,  43, gsc_uiSyncNP },                                // 41h
    { 1856, 1392,  75, 288000,   128, 224, 352,    1, 3, 104, gsc_uiSyncNP },                                // 42h
    { 1856, 1392, 120, 356500,    48,  32,  80,    3, 4,  75, gsc_uiSyncPN | gsc_uiReduced },                // 43h
    { 1920, 1200,  60, 154000,    48,  32,  80,    3, 6,  26, gsc_uiSyncPN | gsc_uiReduced },                // 44h
    { 1920, 1200,  60, 193250,   136, 200, 336,    3, 6,  36, gsc_uiSyncNP },                                // 45h
    { 1920, 1200,  75, 245250,   136, 208, 344,    3, 6,  46, gsc_uiSyncNP },                                // 46h
    { 1920, 1200,  85, 281250,   144, 208, 352,    3, 6,  53, gsc_uiSyncNP },                                // 47h
    { 1920, 1200, 120, 317000,    48,  32,  80,    3, 6,  62, gsc_uiSyncPN | gsc_uiReduced },                // 48h
    { 1920, 1440,  60, 234000,   128, 208, 344,    1, 3,  56, gsc_uiSyncNP },                                // 49h
    { 1920, 1440,  75, 297000,   144, 224, 352,    1, 3,  56, gsc_uiSyncNP },                                // 4Ah
    { 1920, 1440, 120, 380500,    48,  32,  80,    3, 4,  78, gsc_uiSyncPN | gsc_uiReduced },                // 4Bh
    { 2560, 1600,  60, 268500,    48,  32,  80,    3, 6,  37, gsc_uiSyncPN | gsc_uiReduced },                // 4Ch
    { 2560, 1600,  60, 348500,   192, 280, 472,    3, 6,  49, gsc_uiSyncNP },                                // 4Dh
    { 2560, 1600,  75, 443250,   208, 280, 488,    3, 6,  63, gsc_uiSyncNP },                                // 4Eh
    { 2560, 1600,  85, 505250,   208, 280, 488,    3, 6,  73, gsc_uiSyncNP },                                // 4Fh
    { 2560, 1600, 120, 552750,    48,  32,  80,    3, 6,  85, gsc_uiSyncPN | gsc_uiReduced },                // 50h
    { 1366,  768,  60,  85500,    70, 143, 213,    3, 3,  24, gsc_uiSyncPP },                                // 51h
    { 1920, 1080,  60, 148500,    88,  44, 148,    4, 5,  36, gsc_uiSyncPP },                                // 52h
    { 1280,  720,  60,  74250,   110,  40, 220,    5, 5,  20, gsc_uiSyncPP },                                // 55h
    { 1366,  768,  60,  72000,    14,  56,  64,    1, 3,  28, gsc_uiSyncPP | gsc_uiReduced },                // 56h
    { 1600,  900,  60, 108000,    24,  80,  96,    1, 3,  96, gsc_uiSyncPP | gsc_uiReduced },                // 53h
    { 2048, 1152,  60, 162000,    26,  80,  96,    1, 3,  44, gsc_uiSyncPP | gsc_uiReduced },                // 54h
    { 4096, 2160,  60, 556744,     8,  32,  40,   48, 8,   6, gsc_uiSyncPN | gsc_uiReduced },                // 57h
    { 4096, 2160,  59, 556188,     8,  32,  40,   48, 8,   6, gsc_uiSyncPN | gsc_uiReduced },                // 58h
};
// clang-format on
static_assert(std::size(g_aoDmtTableV10Rev11) == 88, "80 modes of revision 11 and 8 later ones");

constexpr CRowIndex gsc_oIndex(g_aoDmtTableV10Rev11);
static_assert(gsc_oIndex.FindsEachRow(g_aoDmtTableV10Rev11));
static_assert(gsc_oIndex.LongestChain() <= 4, "a search looks at few rows");

constexpr bool PassesList(unsigned int uiFlags, CVidParamDmt::EModeListType eListType)
{
    switch (eListType)
    {
    case CVidParamDmt::eModeListAll:
        return true;
    case CVidParamDmt::eModeListStandard:
        return (uiFlags & gsc_uiReduced) == 0;
    case CVidParamDmt::eModeListReducedBlanking:
        return (uiFlags & gsc_uiReduced) != 0;
    }
    return false;
}
} // namespace

int CVidParamDmt::GetVidParam(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                              unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz, EModeListType eListType)
{
    const SRow* const poRow =
        FindRow(g_aoDmtTableV10Rev11, gsc_oIndex, uiIndex, { uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz },
                [eListType](unsigned int uiFlags) { return PassesList(uiFlags, eListType); });
    return AnswerWithRow(poRow, poTiming, ConvertVidParam) ? 1 : 0;
}

void CVidParamDmt::ConvertVidParam(const SDmtVidParam& oRow, CVidParamTiming& oTiming)
{
    ConvertRow(oRow,
               IsFlagSet(oRow.uiFlags, gsc_uiReduced) ? CVidParamTiming::eVidParamType_DmtReducedBlanking
                                                      : CVidParamTiming::eVidParamType_Dmt,
               oTiming);
}
