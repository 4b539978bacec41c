// The table of VESA DMT modes. Search and conversion are those of all mode tables, in VidParamTable.h.

#include "VidParamDmt.h"

#include "Standards/VesaModes.h"
#include "VidParamTable.h"

using namespace VidParamTable;

namespace
{
using SRow = CVidParamDmt::SDmtVidParam;

// VESA DMT 1.0 revision 11: identifiers 01h to 50h in their order, then later modes in the order 51h, 52h, 55h, 56h,
// 53h, 54h, 57h, 58h. Ties between a reduced mode and its twin are settled by the order of the rows.
struct SRows
{
    SRow m_aoRows[ZorStandards::gsc_uiDmtModes];
};

constexpr SRow MakeRow(const ZorStandards::SDmtMode& oMode)
{
    SRow oRow = {};
    SetColumns(oRow, oMode.m_oTiming);
    oRow.uiVerticalRateInHz -= oMode.m_bFraction ? 1 : 0; // truncated
    oRow.uiFlags |= oMode.m_eBlanking != ZorStandards::EBlanking::eNormal ? gsc_uiReduced : 0U;
    return oRow;
}

constexpr SRows MakeRows()
{
    constexpr unsigned int uiInOrder = 0x52;
    constexpr unsigned int auiLast[] = { 0x55, 0x56, 0x53, 0x54, 0x57, 0x58 };
    SRows oRows = {};
    for (unsigned int i = 0; i < ZorStandards::gsc_uiDmtModes; ++i)
    {
        oRows.m_aoRows[i] = MakeRow(*ZorStandards::FindDmtMode(i < uiInOrder ? i + 1 : auiLast[i - uiInOrder]));
    }
    return oRows;
}

constexpr SRows gsc_oRows = MakeRows();
constexpr auto& gsc_aoRows = gsc_oRows.m_aoRows;

constexpr CRowIndex gsc_oIndex(gsc_aoRows);
static_assert(gsc_oIndex.FindsEachRow(gsc_aoRows));
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
        FindRow(gsc_aoRows, gsc_oIndex, uiIndex, { uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz },
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
