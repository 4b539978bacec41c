// The table of CTA-861 modes by video identification code, and the ways in and out of it.
// Search and conversion are those of all mode tables, in VidParamTable.h.

#include "VidParamCea.h"

#include <iterator>

#include "Standards/VideoCodes.h"
#include "VidParamTable.h"
#include "ZorAssert.h"

using namespace VidParamTable;

namespace
{
using SRow = CVidParamCea::SCeaVidParam;

// The clock that the list has for the whole rate and, with bVariant, that of its variant: of some codes
// the published one of 1000/1001 of the rate.
constexpr unsigned int GetWholeClock(unsigned int uiCode, unsigned int uiClock, bool bVariant)
{
    const bool b54 = bVariant && (uiCode == 14 || uiCode == 15);
    const bool bPublished =
        uiCode == 35 || uiCode == 36 || uiCode == 48 || uiCode == 49 || uiCode == 56 || uiCode == 57;
    return b54 || bPublished ? ToFraction(uiClock) : uiClock;
}

// A row from the standard's numbers. Rates are whole hertz, and frame rates in interlaced rows; a variant has one hertz
// less, its clock is truncated.
constexpr SRow MakeRow(unsigned int uiVic)
{
    constexpr unsigned int uiVariantOf1 = CVidParamCea::msc_uiVariantKey + 1; // has its published clock
    constexpr unsigned int uiClockOfVariantOf1 = 25175;
    const bool bVariant = uiVic > CVidParamCea::msc_uiVariantKey;
    const unsigned int uiCode = bVariant ? uiVic - CVidParamCea::msc_uiVariantKey : uiVic;
    const ZorStandards::SPublishedTiming& oTiming = ZorStandards::FindVideoCode(uiCode)->m_oTiming;
    const unsigned int uiWhole = GetWholeClock(uiCode, oTiming.m_uiClock, bVariant);
    SRow oRow = {};
    oRow.uiVic = uiVic;
    SetColumns(oRow, oTiming);
    oRow.uiVerticalRateInHz -= bVariant ? 1 : 0;
    oRow.uiPixelClockInKiloHz = uiVic == uiVariantOf1 ? uiClockOfVariantOf1 : bVariant ? ToFraction(uiWhole) : uiWhole;
    return oRow;
}
} // namespace

// The codes of CEA-861-F, without 6 to 13, 21 to 28, 44, 45, 50, 51, 54, 55, 58 and 59, and the 1000/1001 variants. Of
// code 39 the published total is 1250 lines; what the row makes of it is 1251.
// clang-format off
constexpr CVidParamCea::SCeaVidParam CVidParamCea::msc_aoCea861FTable[] = {
    MakeRow(1), MakeRow(2), MakeRow(3), MakeRow(4), MakeRow(5), MakeRow(14), MakeRow(15), MakeRow(16), MakeRow(17),
    MakeRow(18), MakeRow(19), MakeRow(20), MakeRow(29), MakeRow(30), MakeRow(31), MakeRow(32), MakeRow(33),
    MakeRow(34), MakeRow(35), MakeRow(36), MakeRow(37), MakeRow(38), MakeRow(39), MakeRow(40), MakeRow(41),
    MakeRow(42), MakeRow(43), MakeRow(46), MakeRow(47), MakeRow(48), MakeRow(49), MakeRow(52), MakeRow(53),
    MakeRow(56), MakeRow(57), MakeRow(60), MakeRow(61), MakeRow(62), MakeRow(63), MakeRow(64), MakeRow(65),
    MakeRow(66), MakeRow(67), MakeRow(68), MakeRow(69), MakeRow(70), MakeRow(71), MakeRow(72), MakeRow(73),
    MakeRow(74), MakeRow(75), MakeRow(76), MakeRow(77), MakeRow(78), MakeRow(79), MakeRow(80), MakeRow(81),
    MakeRow(82), MakeRow(83), MakeRow(84), MakeRow(85), MakeRow(86), MakeRow(87), MakeRow(88), MakeRow(89),
    MakeRow(90), MakeRow(91), MakeRow(92), MakeRow(93), MakeRow(94), MakeRow(95), MakeRow(96), MakeRow(97),
    MakeRow(98), MakeRow(99), MakeRow(100), MakeRow(101), MakeRow(102), MakeRow(103), MakeRow(104), MakeRow(105),
    MakeRow(106), MakeRow(107), MakeRow(1001), MakeRow(1002), MakeRow(1003), MakeRow(1004), MakeRow(1005),
    MakeRow(1014), MakeRow(1015), MakeRow(1016), MakeRow(1032), MakeRow(1034), MakeRow(1035), MakeRow(1036),
    MakeRow(1046), MakeRow(1047), MakeRow(1048), MakeRow(1049), MakeRow(1056), MakeRow(1057), MakeRow(1060),
    MakeRow(1062), MakeRow(1063), MakeRow(1065), MakeRow(1067), MakeRow(1069), MakeRow(1071), MakeRow(1072),
    MakeRow(1074), MakeRow(1076), MakeRow(1078), MakeRow(1079), MakeRow(1081), MakeRow(1083), MakeRow(1085),
    MakeRow(1086), MakeRow(1088), MakeRow(1090), MakeRow(1092), MakeRow(1093), MakeRow(1095), MakeRow(1097),
    MakeRow(1098), MakeRow(1100), MakeRow(1102), MakeRow(1103), MakeRow(1105), MakeRow(1107),
};
// clang-format on

namespace
{
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
