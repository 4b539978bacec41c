// What the suites of the self-check share: expected-table rows, the comparison of a whole EDID with an expected image,
// and the validators that compare the timings which a CEdid lists with a table of expected rows.
//
// A check that fails writes one assertion line and ends its routine with 0; the step that called the routine writes the
// next line, so that a failure leaves a trail from the inside out. Timings are equal by CVidParamTiming::operator!=.

#pragma once

#include <array>
#include <span>

#include "CEdidTestImages.h"
#include "RVidParamTiming.h"
#include "VidParamDmt.h"
#include "VidParamTimingGeneric.h"
#include "ZorAssert.h"

class CEdid;

// One step of a suite: writes an assertion line and leaves the function with 0 when the condition does not hold.
#define MTEST_STEP(condition)                                                                                          \
    do                                                                                                                 \
    {                                                                                                                  \
        if (!(condition))                                                                                              \
        {                                                                                                              \
            MASSERT_FAILED();                                                                                          \
            return 0;                                                                                                  \
        }                                                                                                              \
    } while (false)

// A step that adds no line: it has written its own, as a group of steps in a function does, or a silent one.
#define MTEST_PASS_ON(condition)                                                                                       \
    do                                                                                                                 \
    {                                                                                                                  \
        if (!(condition))                                                                                              \
        {                                                                                                              \
            return 0;                                                                                                  \
        }                                                                                                              \
    } while (false)

// ---- Positions in the base block, in bytes. The self-check's own: by the library's it would see no wrong one. ----

constexpr unsigned int gsc_uiSerialOffset = 12; // four bytes, little-endian
constexpr unsigned int gsc_uiVersionOffset = 18;
constexpr unsigned int gsc_uiRevisionOffset = 19;
constexpr unsigned int gsc_uiFeatureOffset = 24;

// ---- Expected tables. They have no end row: a count always goes with the pointer. ----

// A timing that comes from a mode table or a formula. Pixels, lines, whole Hz.
struct STimingData
{
    CVidParamTiming::EVidParamType m_eTimingType; // eVidParamType_Dmt, eVidParamType_Gtf or eVidParamType_Cea
    unsigned int m_uiHorizontalActive;
    unsigned int m_uiVerticalActive;
    unsigned int m_uiVerticalRateInHz;
    CVidParamDmt::EModeListType m_eModeListType; // of a DMT row, else 0
    unsigned int m_uiVic;                        // of a CTA-861 row: n, or n + 1000 for its 1000/1001 variant; else 0
};
static_assert(sizeof(STimingData) == 24, "six 32-bit fields");

constexpr STimingData DmtRow(unsigned int uiHorizontal, unsigned int uiVertical, unsigned int uiRateInHz,
                             CVidParamDmt::EModeListType eListType = CVidParamDmt::eModeListAll)
{
    return { CVidParamTiming::eVidParamType_Dmt, uiHorizontal, uiVertical, uiRateInHz, eListType, 0 };
}

constexpr STimingData GtfRow(unsigned int uiHorizontal, unsigned int uiVertical, unsigned int uiRateInHz)
{
    return {
        CVidParamTiming::eVidParamType_Gtf, uiHorizontal, uiVertical, uiRateInHz, CVidParamDmt::EModeListType{}, 0
    };
}

constexpr STimingData CeaRow(unsigned int uiHorizontal, unsigned int uiVertical, unsigned int uiRateInHz,
                             unsigned int uiVic)
{
    return { CVidParamTiming::eVidParamType_Cea, uiHorizontal, uiVertical, uiRateInHz,
             CVidParamDmt::EModeListType{},      uiVic };
}

using CTimingTable = std::span<const STimingData>;
using CVidParamTable = std::span<const tagRVideo_VidParam>;

// The table without the rows of these numbers, counted from 0 in the full table.
template <unsigned int... auiRows, class TYPE, std::size_t uiCount>
constexpr std::array<TYPE, uiCount - sizeof...(auiRows)> WithoutRows(const std::array<TYPE, uiCount>& aoTable)
{
    std::array<TYPE, uiCount - sizeof...(auiRows)> aoLeft{};
    std::size_t uiLeft = 0;
    for (std::size_t i = 0; i < uiCount; ++i)
    {
        if (((i != auiRows) && ...))
        {
            aoLeft.at(uiLeft++) = aoTable.at(i);
        }
    }
    return aoLeft;
}

// ---- Loading and comparing. ----

// Loads the 256 bytes from a copy that is gone when the function returns: an EDID keeps its own bytes. Not 0 on
// success, 0 without a line.
int LoadCopy(CEdid& oEdid, const SEdidImage& aui8Image);

// 1 when the serialised EDID is exactly these bytes. Null gives 0. Never writes a line.
int CompareRawData(const CEdid& oEdid, unsigned int uiSize, const unsigned char* pui8Expected);

// The number in uiSize bytes (up to 4), the lowest one first.
unsigned int ReadLittleEndian(const unsigned char* pui8Data, unsigned int uiSize);

// Builds the timing that a row expects. Returns 1 when the type of the row is known, which does not say that the lookup
// found anything: a row without a match leaves the timing as the lookup leaves it. 0 for another type, timing
// untouched.
int GetVidParam(const STimingData& oRow, CVidParamTimingGeneric& oTiming);

// Whether the first detailed timing of the base block can be replaced but not removed: version 1 from revision 3 on, or
// the preferred-timing bit. The rule is written out here again, as the expectation that the library's is held against.
int IsPreferredTimingProtected(const CEdid& oEdid);

// ---- Validators: 1 when the EDID lists exactly uiCount timings and they equal the rows in their order. ----
// With a count of 0 the table may be null. A failure writes one line; a wrong count writes none where that is stated.

int ValidateBaseDetailed(const CEdid& oEdid, unsigned int uiCount, const tagRVideo_VidParam* poRows);
int ValidateBaseDetailed(const CEdid& oEdid, unsigned int uiCount, const STimingData* poRows); // wrong count: no line

// Base block and extension blocks.
int ValidateDetailed(const CEdid& oEdid, unsigned int uiCount, const tagRVideo_VidParam* poRows);
int ValidateDetailed(const CEdid& oEdid, unsigned int uiCount, const STimingData* poRows);

// A timing with a native flag is a failure: the base block has none.
int ValidateBaseStandard(const CEdid& oEdid, unsigned int uiCount, const STimingData* poRows);
// Base block and extension blocks.
int ValidateStandard(const CEdid& oEdid, unsigned int uiCount, const STimingData* poRows); // wrong count: no line

// Removes a standard timing, then checks checksums, list and bytes. Nothing is undone when a check fails.
int RemoveAndValidateStandard(unsigned int uiIndex, CEdid& oEdid, unsigned int uiCount, const STimingData* poRows,
                              unsigned int uiSize, const unsigned char* pui8Expected);

// After an edit of detailed timings: 1 when all checksums hold, the list equals the rows and the bytes equal the
// image. Writes no line of its own, only the validator's.
int HasDetailedState(const CEdid& oEdid, CVidParamTable aoRows, const SEdidImage& aui8Expected);
