// The table of CTA-861 modes by video identification code, and the ways in and out of it.
// Search and conversion are those of all mode tables, in VidParamTable.h.

#include "VidParamCea.h"

#include <iterator>

#include "VidParamTable.h"
#include "ZorAssert.h"

using namespace VidParamTable;

// Video identification codes as published in CEA-861-F, without the codes 6 to 13, 21 to 28, 44, 45, 50, 51, 54, 55, 58
// and 59. Pixels, lines, kHz; rates are whole hertz, truncated, and frame rates in interlaced rows. A mode published
// for two rates has the higher one here. Values that depart from the published ones are marked.
// clang-format off
constexpr CVidParamCea::SCeaVidParam CVidParamCea::msc_aoCea861FTable[] = {
    // vic    active    rate clock kHz  h front sync back v front sync back flags
    {    1,  640,  480,  60,  25200,     16,  96,  48,   10,  2,  33, gsc_uiSyncNN },
    {    2,  720,  480,  60,  27027,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN },
    {    3,  720,  480,  60,  27027,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN },
    {    4, 1280,  720,  60,  74250,    110,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {    5, 1920, 1080,  30,  74250,     88,  44, 148,    2,  5,  15, gsc_uiSyncPP | gsc_uiInterlaced },
    {   14, 1440,  480,  60,  54054,     32, 124, 120,    9,  6,  30, gsc_uiSyncNN },
    {   15, 1440,  480,  60,  54054,     32, 124, 120,    9,  6,  30, gsc_uiSyncNN },
    {   16, 1920, 1080,  60, 148500,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   17,  720,  576,  50,  27000,     12,  64,  68,    5,  5,  39, gsc_uiSyncNN },
    {   18,  720,  576,  50,  27000,     12,  64,  68,    5,  5,  39, gsc_uiSyncNN },
    {   19, 1280,  720,  50,  74250,    440,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   20, 1920, 1080,  25,  74250,    528,  44, 148,    2,  5,  15, gsc_uiSyncPP | gsc_uiInterlaced },
    {   29, 1440,  576,  50,  54000,     24, 128, 136,    5,  5,  39, gsc_uiSyncNN },
    {   30, 1440,  576,  50,  54000,     24, 128, 136,    5,  5,  39, gsc_uiSyncNN },
    {   31, 1920, 1080,  50, 148500,    528,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   32, 1920, 1080,  24,  74250,    638,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   33, 1920, 1080,  25,  74250,    528,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   34, 1920, 1080,  30,  74250,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   35, 2880,  480,  60, 108000,     64, 248, 240,    9,  6,  30, gsc_uiSyncNN }, // clock of the 59.94 Hz mode
    {   36, 2880,  480,  60, 108000,     64, 248, 240,    9,  6,  30, gsc_uiSyncNN }, // clock of the 59.94 Hz mode
    {   37, 2880,  576,  50, 108000,     48, 256, 272,    5,  5,  39, gsc_uiSyncNN },
    {   38, 2880,  576,  50, 108000,     48, 256, 272,    5,  5,  39, gsc_uiSyncNN },
    {   39, 1920, 1080,  25,  72000,     32, 168, 184,   23,  5,  57, gsc_uiSyncPN | gsc_uiInterlaced }, // published total is 1250 lines, this one makes 1251
    {   40, 1920, 1080,  50, 148500,    528,  44, 148,    2,  5,  15, gsc_uiSyncPP | gsc_uiInterlaced },
    {   41, 1280,  720, 100, 148500,    440,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   42,  720,  576, 100,  54000,     12,  64,  68,    5,  5,  39, gsc_uiSyncNN },
    {   43,  720,  576, 100,  54000,     12,  64,  68,    5,  5,  39, gsc_uiSyncNN },
    {   46, 1920, 1080,  60, 148500,     88,  44, 148,    2,  5,  15, gsc_uiSyncPP | gsc_uiInterlaced },
    {   47, 1280,  720, 120, 148500,    110,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   48,  720,  480, 120,  54000,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN }, // clock of the 119.88 Hz mode
    {   49,  720,  480, 120,  54000,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN }, // clock of the 119.88 Hz mode
    {   52,  720,  576, 200, 108000,     12,  64,  68,    5,  5,  39, gsc_uiSyncNN },
    {   53,  720,  576, 200, 108000,     12,  64,  68,    5,  5,  39, gsc_uiSyncNN },
    {   56,  720,  480, 240, 108000,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN }, // clock of the 239.76 Hz mode
    {   57,  720,  480, 240, 108000,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN }, // clock of the 239.76 Hz mode
    {   60, 1280,  720,  24,  59400,   1760,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   61, 1280,  720,  25,  74250,   2420,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   62, 1280,  720,  30,  74250,   1760,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   63, 1920, 1080, 120, 297000,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   64, 1920, 1080, 100, 297000,    528,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   65, 1280,  720,  24,  59400,   1760,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   66, 1280,  720,  25,  74250,   2420,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   67, 1280,  720,  30,  74250,   1760,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   68, 1280,  720,  50,  74250,    440,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   69, 1280,  720,  60,  74250,    110,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   70, 1280,  720, 100, 148500,    440,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   71, 1280,  720, 120, 148500,    110,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   72, 1920, 1080,  24,  74250,    638,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   73, 1920, 1080,  25,  74250,    528,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   74, 1920, 1080,  30,  74250,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   75, 1920, 1080,  50, 148500,    528,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   76, 1920, 1080,  60, 148500,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   77, 1920, 1080, 100, 297000,    528,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   78, 1920, 1080, 120, 297000,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   79, 1680,  720,  24,  59400,   1360,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   80, 1680,  720,  25,  59400,   1228,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   81, 1680,  720,  30,  59400,    700,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   82, 1680,  720,  50,  82500,    260,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   83, 1680,  720,  60,  99000,    260,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    {   84, 1680,  720, 100, 165000,     60,  40, 220,    5,  5,  95, gsc_uiSyncPP },
    {   85, 1680,  720, 120, 198000,     60,  40, 220,    5,  5,  95, gsc_uiSyncPP },
    {   86, 2560, 1080,  24,  99000,    998,  44, 148,    4,  5,  11, gsc_uiSyncPP },
    {   87, 2560, 1080,  25,  90000,    448,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   88, 2560, 1080,  30, 118800,    768,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   89, 2560, 1080,  50, 185625,    548,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    {   90, 2560, 1080,  60, 198000,    248,  44, 148,    4,  5,  11, gsc_uiSyncPP },
    {   91, 2560, 1080, 100, 371250,    218,  44, 148,    4,  5, 161, gsc_uiSyncPP },
    {   92, 2560, 1080, 120, 495000,    548,  44, 148,    4,  5, 161, gsc_uiSyncPP },
    {   93, 3840, 2160,  24, 297000,   1276,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {   94, 3840, 2160,  25, 297000,   1056,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {   95, 3840, 2160,  30, 297000,    176,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {   96, 3840, 2160,  50, 594000,   1056,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {   97, 3840, 2160,  60, 594000,    176,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {   98, 4096, 2160,  24, 297000,   1020,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {   99, 4096, 2160,  25, 297000,    968,  88, 128,    8, 10,  72, gsc_uiSyncPP },
    {  100, 4096, 2160,  30, 297000,     88,  88, 128,    8, 10,  72, gsc_uiSyncPP },
    {  101, 4096, 2160,  50, 594000,    968,  88, 128,    8, 10,  72, gsc_uiSyncPP },
    {  102, 4096, 2160,  60, 594000,     88,  88, 128,    8, 10,  72, gsc_uiSyncPP },
    {  103, 3840, 2160,  24, 297000,   1276,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {  104, 3840, 2160,  25, 297000,   1056,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {  105, 3840, 2160,  30, 297000,    176,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {  106, 3840, 2160,  50, 594000,   1056,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    {  107, 3840, 2160,  60, 594000,    176,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    // The 1000/1001 variants: one hertz less, clock * 1000 / 1001 truncated.
    { 1001,  640,  480,  59,  25175,     16,  96,  48,   10,  2,  33, gsc_uiSyncNN }, // published clock, not 25200 * 1000 / 1001
    { 1002,  720,  480,  59,  27000,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN },
    { 1003,  720,  480,  59,  27000,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN },
    { 1004, 1280,  720,  59,  74175,    110,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1005, 1920, 1080,  29,  74175,     88,  44, 148,    2,  5,  15, gsc_uiSyncPP | gsc_uiInterlaced },
    { 1014, 1440,  480,  59,  53946,     32, 124, 120,    9,  6,  30, gsc_uiSyncNN }, // neither published nor 54054 * 1000 / 1001 (both 54000)
    { 1015, 1440,  480,  59,  53946,     32, 124, 120,    9,  6,  30, gsc_uiSyncNN }, // neither published nor 54054 * 1000 / 1001 (both 54000)
    { 1016, 1920, 1080,  59, 148351,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1032, 1920, 1080,  23,  74175,    638,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1034, 1920, 1080,  29,  74175,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1035, 2880,  480,  59, 107892,     64, 248, 240,    9,  6,  30, gsc_uiSyncNN }, // published: 108000
    { 1036, 2880,  480,  59, 107892,     64, 248, 240,    9,  6,  30, gsc_uiSyncNN }, // published: 108000
    { 1046, 1920, 1080,  59, 148351,     88,  44, 148,    2,  5,  15, gsc_uiSyncPP | gsc_uiInterlaced },
    { 1047, 1280,  720, 119, 148351,    110,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1048,  720,  480, 119,  53946,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN }, // published: 54000
    { 1049,  720,  480, 119,  53946,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN }, // published: 54000
    { 1056,  720,  480, 239, 107892,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN }, // published: 108000
    { 1057,  720,  480, 239, 107892,     16,  62,  60,    9,  6,  30, gsc_uiSyncNN }, // published: 108000
    { 1060, 1280,  720,  23,  59340,   1760,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1062, 1280,  720,  29,  74175,   1760,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1063, 1920, 1080, 119, 296703,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1065, 1280,  720,  23,  59340,   1760,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1067, 1280,  720,  29,  74175,   1760,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1069, 1280,  720,  59,  74175,    110,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1071, 1280,  720, 119, 148351,    110,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1072, 1920, 1080,  23,  74175,    638,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1074, 1920, 1080,  29,  74175,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1076, 1920, 1080,  59, 148351,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1078, 1920, 1080, 119, 296703,     88,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1079, 1680,  720,  23,  59340,   1360,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1081, 1680,  720,  29,  59340,    700,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1083, 1680,  720,  59,  98901,    260,  40, 220,    5,  5,  20, gsc_uiSyncPP },
    { 1085, 1680,  720, 119, 197802,     60,  40, 220,    5,  5,  95, gsc_uiSyncPP },
    { 1086, 2560, 1080,  23,  98901,    998,  44, 148,    4,  5,  11, gsc_uiSyncPP },
    { 1088, 2560, 1080,  29, 118681,    768,  44, 148,    4,  5,  36, gsc_uiSyncPP },
    { 1090, 2560, 1080,  59, 197802,    248,  44, 148,    4,  5,  11, gsc_uiSyncPP },
    { 1092, 2560, 1080, 119, 494505,    548,  44, 148,    4,  5, 161, gsc_uiSyncPP },
    { 1093, 3840, 2160,  23, 296703,   1276,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    { 1095, 3840, 2160,  29, 296703,    176,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    { 1097, 3840, 2160,  59, 593406,    176,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    { 1098, 4096, 2160,  23, 296703,   1020,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    { 1100, 4096, 2160,  29, 296703,     88,  88, 128,    8, 10,  72, gsc_uiSyncPP },
    { 1102, 4096, 2160,  59, 593406,     88,  88, 128,    8, 10,  72, gsc_uiSyncPP },
    { 1103, 3840, 2160,  23, 296703,   1276,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    { 1105, 3840, 2160,  29, 296703,    176,  88, 296,    8, 10,  72, gsc_uiSyncPP },
    { 1107, 3840, 2160,  59, 593406,    176,  88, 296,    8, 10,  72, gsc_uiSyncPP },
};
// clang-format on

namespace
{
using SRow = CVidParamCea::SCeaVidParam;

constexpr bool IsRisingByVic()
{
    for (unsigned int i = 1; i < CVidParamCea::msc_uiCea861FRowCount; ++i)
    {
        if (CVidParamCea::msc_aoCea861FTable[i - 1].uiVic >= CVidParamCea::msc_aoCea861FTable[i].uiVic)
        {
            return false;
        }
    }
    return true;
}
static_assert(std::size(CVidParamCea::msc_aoCea861FTable) == 129, "83 codes and 46 variants of them");
static_assert(IsRisingByVic(), "rows are in rising key order, so that no key has a second row");

constexpr CRowIndex gsc_oIndex(CVidParamCea::msc_aoCea861FTable);
static_assert(gsc_oIndex.FindsEachRow(CVidParamCea::msc_aoCea861FTable));
static_assert(gsc_oIndex.LongestChain() <= 5, "a search looks at few rows");

// Number of the row of each code, then of each 1000/1001 variant. Derived by the compiler: a block's codes are looked
// up at every load and every read (a search over the rows took a third of a load).
constexpr unsigned int gsc_uiCodeCount = 128;
constexpr unsigned char gsc_ui8NoRow = 0xFF;
static_assert(CVidParamCea::msc_uiCea861FRowCount < gsc_ui8NoRow);

// The place that holds the row number of a key; the last place, which no code has, for a key that the table cannot
// hold.
constexpr unsigned int PlaceOfVic(unsigned int uiVic)
{
    if (uiVic < gsc_uiCodeCount)
    {
        return uiVic;
    }
    const unsigned int uiCode = uiVic - CVidParamCea::msc_uiVariantKey; // wraps to a large number below the variants
    return gsc_uiCodeCount + (uiCode < gsc_uiCodeCount ? uiCode : 0);   // code 0 has no variant
}

struct SRowsOfVics
{
    unsigned char m_aui8Row[2 * gsc_uiCodeCount];
};

constexpr SRowsOfVics ListRowsOfVics()
{
    SRowsOfVics oRows = {};
    for (unsigned char& ui8Row : oRows.m_aui8Row)
    {
        ui8Row = gsc_ui8NoRow;
    }
    for (unsigned int i = 0; i < CVidParamCea::msc_uiCea861FRowCount; ++i)
    {
        oRows.m_aui8Row[PlaceOfVic(CVidParamCea::msc_aoCea861FTable[i].uiVic)] = static_cast<unsigned char>(i);
    }
    return oRows;
}

constexpr SRowsOfVics gsc_oRowsOfVics = ListRowsOfVics();

// The row of a code, or null.
constexpr const SRow* FindVic(unsigned int uiVic)
{
    const unsigned char ui8Row = gsc_oRowsOfVics.m_aui8Row[PlaceOfVic(uiVic)];
    return ui8Row != gsc_ui8NoRow ? &CVidParamCea::msc_aoCea861FTable[ui8Row] : nullptr;
}

// Each row is found by its own key, and by no other key that a byte and a variant can make.
constexpr bool IsFoundByItsVicAlone()
{
    unsigned int uiFound = 0;
    for (unsigned int uiVic = 0; uiVic <= CVidParamCea::msc_uiVariantKey + gsc_uiCodeCount; ++uiVic)
    {
        const SRow* const poRow = FindVic(uiVic);
        if (poRow != nullptr && poRow->uiVic != uiVic)
        {
            return false;
        }
        uiFound += poRow != nullptr ? 1U : 0U;
    }
    return uiFound == CVidParamCea::msc_uiCea861FRowCount;
}
static_assert(IsFoundByItsVicAlone());

constexpr bool PassesScan(unsigned int uiFlags, CVidParamCea::EScanType eScanType)
{
    switch (eScanType)
    {
    case CVidParamCea::eScanTypeAny:
        return true;
    case CVidParamCea::eScanTypeProgressive:
        return (uiFlags & gsc_uiInterlaced) == 0;
    case CVidParamCea::eScanTypeInterlaced:
        return (uiFlags & gsc_uiInterlaced) != 0;
    }
    return false;
}

bool HasFlag(const SRow& oRow, unsigned int uiMask, bool bExpected)
{
    return ((oRow.uiFlags & uiMask) != 0) == bExpected;
}

// Exact equality of every column; the clock is that of the link.
bool IsSameTiming(const SRow& oRow, const CVidParamTiming& oTiming)
{
    return oRow.uiHorizontalActive == oTiming.GetHorizontalActive() &&
           oRow.uiVerticalActive == oTiming.GetVerticalActive() &&
           oRow.uiVerticalRateInHz == oTiming.GetVerticalRateInHz() &&
           oRow.uiPixelClockInKiloHz == oTiming.GetEffectivePixelClockInKiloHz() &&
           oRow.uiHorizontalFrontPorch == oTiming.GetHorizontalFrontPorch() &&
           oRow.uiHorizontalSync == oTiming.GetHorizontalSync() &&
           oRow.uiHorizontalBackPorch == oTiming.GetHorizontalBackPorch() &&
           oRow.uiVerticalFrontPorch == oTiming.GetVerticalFrontPorch() &&
           oRow.uiVerticalSync == oTiming.GetVerticalSync() &&
           oRow.uiVerticalBackPorch == oTiming.GetVerticalBackPorch() &&
           HasFlag(oRow, gsc_uiHorizontalPositive, oTiming.IsHorizontalPolarityPositive() != 0) &&
           HasFlag(oRow, gsc_uiVerticalPositive, oTiming.IsVerticalPolarityPositive() != 0) &&
           HasFlag(oRow, gsc_uiInterlaced, oTiming.IsInterlaced() != 0);
}
} // namespace

int CVidParamCea::IsVicSupported(unsigned int uiVic) { return FindVic(uiVic) != nullptr ? 1 : 0; }

int CVidParamCea::GetVicTableIndex(unsigned int uiVic)
{
    const SRow* const poRow = FindVic(uiVic);
    return poRow != nullptr ? static_cast<int>(poRow - msc_aoCea861FTable) : -1;
}

int CVidParamCea::GetVidParam(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                              unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz, EScanType eScanType)
{
    const SRow* const poRow =
        FindRow(msc_aoCea861FTable, gsc_oIndex, uiIndex, { uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz },
                [eScanType](unsigned int uiFlags) { return PassesScan(uiFlags, eScanType); });
    return AnswerWithRow(poRow, poTiming, ConvertVidParam) ? 1 : 0;
}

int CVidParamCea::GetVidParamFromVic(unsigned int uiVic, CVidParamTiming* poTiming)
{
    if (poTiming == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    poTiming->ClearData(); // also for a code without a row
    return AnswerWithRow(FindVic(uiVic), poTiming, ConvertVidParam) ? 1 : 0;
}

int CVidParamCea::GetVicFromVidParam(const CVidParamTiming& oTiming, unsigned int& uiVic)
{
    uiVic = 0;
    for (unsigned int uiRow = gsc_oIndex.First(oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
                                               oTiming.GetVerticalRateInHz());
         uiRow != gsc_oIndex.msc_uiNone; uiRow = gsc_oIndex.Next(uiRow))
    {
        if (IsSameTiming(msc_aoCea861FTable[uiRow], oTiming))
        {
            uiVic = msc_aoCea861FTable[uiRow].uiVic;
            return 1;
        }
    }
    return 0;
}

void CVidParamCea::ConvertVidParam(const SCeaVidParam& oRow, CVidParamTiming& oTiming)
{
    ConvertRow(oRow, CVidParamTiming::eVidParamType_Cea, oTiming);
}
