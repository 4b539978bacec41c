// The table of SMPTE 2048 x 1080 modes. Search and conversion are those of all mode tables, in VidParamTable.h.

#include "VidParamSmpte.h"

#include <iterator>

#include "VidParamTable.h"

using namespace VidParamTable;

namespace
{
using SRow = CVidParamSmpte::SSmpteVidParam;

constexpr unsigned int gsc_uiSyncPP = gsc_uiHorizontalPositive | gsc_uiVerticalPositive;

// 2048 x 1080 production modes, by falling rate. Pixels, lines, kHz; whole hertz, truncated.
// clang-format off
constexpr SRow g_aoSmpteTable[] = {
    // row   active    rate clock kHz  h front sync back v front sync back flags
    {  1, 2048, 1080, 60, 148500,   24, 44,  84,   4, 5, 36, gsc_uiSyncPP },
    {  2, 2048, 1080, 59, 148350,   24, 44,  84,   4, 5, 36, gsc_uiSyncPP },
    {  3, 2048, 1080, 50, 148500,   24, 44, 524,   4, 5, 36, gsc_uiSyncPP },
    {  4, 2048, 1080, 48, 148500,   24, 44, 634,   4, 5, 36, gsc_uiSyncPP },
    {  5, 2048, 1080, 47, 148350,   24, 44, 634,   4, 5, 36, gsc_uiSyncPP },
    {  6, 2048, 1080, 30,  74250,   24, 44,  84,   4, 5, 36, gsc_uiSyncPP },
    {  7, 2048, 1080, 29,  74175,   24, 44,  84,   4, 5, 36, gsc_uiSyncPP },
    {  8, 2048, 1080, 25,  74250,   24, 44, 524,   4, 5, 36, gsc_uiSyncPP },
    {  9, 2048, 1080, 24,  74250,   24, 44, 634,   4, 5, 36, gsc_uiSyncPP },
    { 10, 2048, 1080, 23,  74175,   24, 44, 634,   4, 5, 36, gsc_uiSyncPP },
};
// clang-format on

constexpr bool AreNumberedFromOne()
{
    unsigned int uiNumber = 0;
    for (const SRow& oRow : g_aoSmpteTable)
    {
        if (oRow.uiRowNumber != ++uiNumber)
        {
            return false;
        }
    }
    return true;
}
static_assert(std::size(g_aoSmpteTable) == 10 && AreNumberedFromOne());

constexpr CRowIndex gsc_oIndex(g_aoSmpteTable);
static_assert(gsc_oIndex.FindsEachRow(g_aoSmpteTable));
} // namespace

int CVidParamSmpte::GetVidParam(unsigned int uiIndex, CVidParamTiming* poTiming, unsigned int uiHorizontalActive,
                                unsigned int uiVerticalActive, unsigned int uiVerticalRateInHz)
{
    const SRow* const poRow =
        FindRow(g_aoSmpteTable, gsc_oIndex, uiIndex, { uiHorizontalActive, uiVerticalActive, uiVerticalRateInHz },
                [](unsigned int /*uiFlags*/) { return true; });
    return AnswerWithRow(poRow, poTiming, ConvertVidParam) ? 1 : 0;
}

void CVidParamSmpte::ConvertVidParam(const SSmpteVidParam& oRow, CVidParamTiming& oTiming)
{
    ConvertRow(oRow, CVidParamTiming::eVidParamType_Smpte, oTiming);
}
