// What the mode tables share: the meaning of a row's flags, the search and its answer, and the way from a row to a
// timing. Private to the sources that hold a table. A row type has the columns of CVidParamDmt::SDmtVidParam.

#pragma once

#include "VidParamTiming.h"

namespace VidParamTable
{
// Flags of a row.
constexpr unsigned int gsc_uiInterlaced = 1U << 0;
constexpr unsigned int gsc_uiHorizontalPositive = 1U << 2;
constexpr unsigned int gsc_uiVerticalPositive = 1U << 3;
constexpr unsigned int gsc_uiReduced = 1U << 7;

// Short forms for the rows: horizontal polarity, then vertical.
constexpr unsigned int gsc_uiSyncNN = 0;
constexpr unsigned int gsc_uiSyncPN = gsc_uiHorizontalPositive;
constexpr unsigned int gsc_uiSyncNP = gsc_uiVerticalPositive;
constexpr unsigned int gsc_uiSyncPP = gsc_uiHorizontalPositive | gsc_uiVerticalPositive;

constexpr bool IsFlagSet(unsigned int uiFlags, unsigned int uiMask) { return (uiFlags & uiMask) != 0; }

// What a caller asks for; 0 passes every row.
struct SFilter
{
    unsigned int m_uiHorizontalActive;
    unsigned int m_uiVerticalActive;
    unsigned int m_uiVerticalRateInHz;

    static constexpr bool Passes(unsigned int uiWanted, unsigned int uiColumn)
    {
        return uiWanted == 0 || uiWanted == uiColumn;
    }

    template <class ROW>
    constexpr bool Passes(const ROW& oRow) const
    {
        return Passes(m_uiHorizontalActive, oRow.uiHorizontalActive) &&
               Passes(m_uiVerticalActive, oRow.uiVerticalActive) &&
               Passes(m_uiVerticalRateInHz, oRow.uiVerticalRateInHz);
    }
};

// The row that is match number uiIndex, counted from 0 in table order, among those that pass oFilter and for whose
// flags fnPassesFlags is true; null when there are not so many. The order of the rows alone settles ties.
template <class ROW, unsigned int COUNT, class PASSES_FLAGS>
constexpr const ROW* FindRow(const ROW (&aoRows)[COUNT], unsigned int uiIndex, const SFilter& oFilter,
                             PASSES_FLAGS fnPassesFlags)
{
    unsigned int uiMatch = 0;
    for (const ROW& oRow : aoRows)
    {
        if (oFilter.Passes(oRow) && fnPassesFlags(oRow.uiFlags) && uiMatch++ == uiIndex)
        {
            return &oRow;
        }
    }
    return nullptr;
}

// Fills oTiming from a row. The line rate is in no table: it is derived, once sizes and clock stand.
template <class ROW>
void ConvertRow(const ROW& oRow, CVidParamTiming::EVidParamType eType, CVidParamTiming& oTiming)
{
    oTiming.ClearData();
    oTiming.SetHorizontalActive(oRow.uiHorizontalActive);
    oTiming.SetHorizontalFrontPorch(oRow.uiHorizontalFrontPorch);
    oTiming.SetHorizontalSync(oRow.uiHorizontalSync);
    oTiming.SetHorizontalBackPorch(oRow.uiHorizontalBackPorch);
    oTiming.SetVerticalActive(oRow.uiVerticalActive);
    oTiming.SetVerticalFrontPorch(oRow.uiVerticalFrontPorch);
    oTiming.SetVerticalSync(oRow.uiVerticalSync);
    oTiming.SetVerticalBackPorch(oRow.uiVerticalBackPorch);
    oTiming.SetPixelClockInKiloHz(oRow.uiPixelClockInKiloHz);
    oTiming.SetVerticalRateInHz(oRow.uiVerticalRateInHz);
    oTiming.SetHorizontalRateInHz(oTiming.ComputeHorizontalRateInHz());
    oTiming.SetHorizontalPolarityPositive(IsFlagSet(oRow.uiFlags, gsc_uiHorizontalPositive) ? 1 : 0);
    oTiming.SetVerticalPolarityPositive(IsFlagSet(oRow.uiFlags, gsc_uiVerticalPositive) ? 1 : 0);
    oTiming.SetInterlaced(IsFlagSet(oRow.uiFlags, gsc_uiInterlaced) ? 1 : 0);
    oTiming.SetVideoFamilyType(eType);
}

// What a look-up ends with: false without a row, else true, and the row goes into the timing by way of fnConvert unless
// poTiming is null.
template <class ROW>
bool AnswerWithRow(const ROW* poRow, CVidParamTiming* poTiming, void (*fnConvert)(const ROW&, CVidParamTiming&))
{
    if (poRow == nullptr)
    {
        return false;
    }
    if (poTiming != nullptr)
    {
        fnConvert(*poRow, *poTiming);
    }
    return true;
}
} // namespace VidParamTable
