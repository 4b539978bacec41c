// What the mode tables share: the meaning of a row's flags, the search and its answer, and the way from a row to a
// timing. Private to the sources that hold a table. A row type has the columns of CVidParamDmt::SDmtVidParam.

#pragma once

#include "Standards/PublishedTiming.h"
#include "VidParamFill.h"
#include "VidParamTiming.h"

namespace VidParamTable
{
// Flags of a row.
constexpr unsigned int gsc_uiInterlaced = 1U << 0;
constexpr unsigned int gsc_uiHorizontalPositive = 1U << 2;
constexpr unsigned int gsc_uiVerticalPositive = 1U << 3;
constexpr unsigned int gsc_uiReduced = 1U << 7;

constexpr bool IsFlagSet(unsigned int uiFlags, unsigned int uiMask) { return (uiFlags & uiMask) != 0; }

// 1000/1001 of a clock, truncated.
constexpr unsigned int ToFraction(unsigned int uiClock) { return static_cast<unsigned int>(uiClock * 1000ULL / 1001); }

// The columns that all row types have, from a published timing. Interlaced rows have frame rates.
template <class ROW>
constexpr void SetColumns(ROW& oRow, const ZorStandards::SPublishedTiming& oTiming)
{
    oRow.uiHorizontalActive = oTiming.m_ui16Width;
    oRow.uiVerticalActive = oTiming.m_ui16Height;
    oRow.uiVerticalRateInHz = oTiming.m_ui8Rate / (oTiming.IsInterlaced() ? 2U : 1U);
    oRow.uiPixelClockInKiloHz = oTiming.m_uiClock;
    oRow.uiHorizontalFrontPorch = oTiming.m_ui16HorizontalFront;
    oRow.uiHorizontalSync = oTiming.m_ui16HorizontalSync;
    oRow.uiHorizontalBackPorch = oTiming.m_ui16HorizontalBack;
    oRow.uiVerticalFrontPorch = oTiming.m_ui8VerticalFront;
    oRow.uiVerticalSync = oTiming.m_ui8VerticalSync;
    oRow.uiVerticalBackPorch = oTiming.m_ui16VerticalBack;
    oRow.uiFlags = (oTiming.IsInterlaced() ? gsc_uiInterlaced : 0U) |
                   (oTiming.IsHorizontalPositive() ? gsc_uiHorizontalPositive : 0U) |
                   (oTiming.IsVerticalPositive() ? gsc_uiVerticalPositive : 0U);
}

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

    constexpr bool IsClosed() const
    {
        return m_uiHorizontalActive != 0 && m_uiVerticalActive != 0 && m_uiVerticalRateInHz != 0;
    }

    template <class ROW>
    constexpr bool Passes(const ROW& oRow) const
    {
        return Passes(m_uiHorizontalActive, oRow.uiHorizontalActive) &&
               Passes(m_uiVerticalActive, oRow.uiVerticalActive) &&
               Passes(m_uiVerticalRateInHz, oRow.uiVerticalRateInHz);
    }
};

// The rows of one size and rate in a table: chains of rows in table order, one for each value of a hash.
// The compiler derives it from the rows; nothing is built at run time. A search that asks for size and rate then looks
// at five rows at most instead of all (88 rows: 6 ns instead of 60).
template <unsigned int COUNT>
class CRowIndex
{
public:
    template <class ROW>
    explicit constexpr CRowIndex(const ROW (&aoRows)[COUNT])
    {
        for (unsigned char& ui8First : m_aui8First)
        {
            ui8First = msc_uiNone;
        }
        for (unsigned int i = COUNT; i-- != 0;) // from the last row up, so that each chain begins with its first row
        {
            unsigned char& ui8First = m_aui8First[HashOf(aoRows[i].uiHorizontalActive, aoRows[i].uiVerticalActive,
                                                         aoRows[i].uiVerticalRateInHz)];
            m_aui8Next[i] = ui8First;
            ui8First = static_cast<unsigned char>(i);
        }
    }

    // The number of the first row that may have this size and rate, then of the next one, up to msc_uiNone.
    constexpr unsigned int First(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                                 unsigned int uiVerticalRateInHz) const
    {
        return m_aui8First[HashOf(uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz)];
    }
    constexpr unsigned int Next(unsigned int uiRow) const { return m_aui8Next[uiRow]; }

    constexpr unsigned int LongestChain() const
    {
        unsigned int uiLongest = 0;
        for (unsigned int uiRow : m_aui8First)
        {
            unsigned int uiLength = 0;
            for (; uiRow != msc_uiNone; uiRow = m_aui8Next[uiRow])
            {
                ++uiLength;
            }
            uiLongest = uiLength > uiLongest ? uiLength : uiLongest;
        }
        return uiLongest;
    }

    // Each row is in the chain of its own size and rate, after the rows before it in the table.
    template <class ROW>
    constexpr bool FindsEachRow(const ROW (&aoRows)[COUNT]) const
    {
        for (unsigned int i = 0; i < COUNT; ++i)
        {
            unsigned int uiRow =
                First(aoRows[i].uiHorizontalActive, aoRows[i].uiVerticalActive, aoRows[i].uiVerticalRateInHz);
            while (uiRow < i)
            {
                uiRow = Next(uiRow);
            }
            if (uiRow != i)
            {
                return false;
            }
        }
        return true;
    }

    static constexpr unsigned int msc_uiNone = 0xFF;

private:
    static constexpr unsigned int msc_uiHashBits = 8;
    static_assert(COUNT < msc_uiNone);

    // Unsigned products that wrap on purpose; the top bits are mixed best.
    static constexpr unsigned int HashOf(unsigned int uiHorizontalActive, unsigned int uiVerticalActive,
                                         unsigned int uiVerticalRateInHz)
    {
        return (uiHorizontalActive * 0x9E3779B1U + uiVerticalActive * 0x85EBCA77U + uiVerticalRateInHz * 0xC2B2AE3DU) >>
               (32 - msc_uiHashBits);
    }

    unsigned char m_aui8First[1U << msc_uiHashBits] = {};
    unsigned char m_aui8Next[COUNT] = {};
};

// The row that is match number uiIndex, counted from 0 in table order, among those that pass oFilter and for whose
// flags fnPassesFlags is true; null when there are not so many. The order of the rows alone settles ties.
template <class ROW, unsigned int COUNT, class PASSES_FLAGS>
constexpr const ROW* FindRow(const ROW (&aoRows)[COUNT], const CRowIndex<COUNT>& oIndex, unsigned int uiIndex,
                             const SFilter& oFilter, PASSES_FLAGS fnPassesFlags)
{
    const bool bClosed = oFilter.IsClosed();
    unsigned int uiRow =
        bClosed ? oIndex.First(oFilter.m_uiHorizontalActive, oFilter.m_uiVerticalActive, oFilter.m_uiVerticalRateInHz)
                : 0;
    unsigned int uiMatch = 0;
    while (uiRow < COUNT)
    {
        const ROW& oRow = aoRows[uiRow];
        if (oFilter.Passes(oRow) && fnPassesFlags(oRow.uiFlags) && uiMatch++ == uiIndex)
        {
            return &oRow;
        }
        uiRow = bClosed ? oIndex.Next(uiRow) : uiRow + 1;
    }
    return nullptr;
}

// Fills oTiming from a row. No table has the line rate: it is derived once sizes and clock are set.
template <class ROW>
void ConvertRow(const ROW& oRow, CVidParamTiming::EVidParamType eType, CVidParamTiming& oTiming)
{
    VidParamFill::FillTiming(oTiming, [&oRow, eType](auto& oFilled) {
        oFilled.ClearData();
        oFilled.SetHorizontalActive(oRow.uiHorizontalActive);
        oFilled.SetHorizontalFrontPorch(oRow.uiHorizontalFrontPorch);
        oFilled.SetHorizontalSync(oRow.uiHorizontalSync);
        oFilled.SetHorizontalBackPorch(oRow.uiHorizontalBackPorch);
        oFilled.SetVerticalActive(oRow.uiVerticalActive);
        oFilled.SetVerticalFrontPorch(oRow.uiVerticalFrontPorch);
        oFilled.SetVerticalSync(oRow.uiVerticalSync);
        oFilled.SetVerticalBackPorch(oRow.uiVerticalBackPorch);
        oFilled.SetPixelClockInKiloHz(oRow.uiPixelClockInKiloHz);
        oFilled.SetVerticalRateInHz(oRow.uiVerticalRateInHz);
        oFilled.SetHorizontalRateInHz(oFilled.ComputeHorizontalRateInHz());
        oFilled.SetHorizontalPolarityPositive(IsFlagSet(oRow.uiFlags, gsc_uiHorizontalPositive) ? 1 : 0);
        oFilled.SetVerticalPolarityPositive(IsFlagSet(oRow.uiFlags, gsc_uiVerticalPositive) ? 1 : 0);
        oFilled.SetInterlaced(IsFlagSet(oRow.uiFlags, gsc_uiInterlaced) ? 1 : 0);
        oFilled.SetVideoFamilyType(eType);
    });
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
