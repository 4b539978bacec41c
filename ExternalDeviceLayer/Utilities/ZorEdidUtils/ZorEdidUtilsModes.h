// All that ExtractModeList gives as one value, for the functions that extract modes for themselves: the comparison and
// the short forms of the reports. Not installed.

#pragma once

#include "ZorEdidUtils.h"

namespace ZorUtils
{

struct SModes
{
    CVidParamTimingGeneric m_oPreferred;
    CZorEdidUtils::CModeList m_oEstablishedVesa;
    CZorEdidUtils::CModeList m_oEstablishedAll;
    CZorEdidUtils::CModeList m_oBaseStandard;
    CZorEdidUtils::CModeList m_oBaseDetailed;
    CZorEdidUtils::CModeList m_oExtStandardNative;
    CZorEdidUtils::CModeList m_oExtStandard;
    CZorEdidUtils::CModeList m_oExtDetailed;

    // ExtractModeList; false where it gives 0.
    bool Extract(const CEdid& oEdid);
    // The same with each list in the order in which the EDID names its timings, for callers that sort them all at once.
    bool Collect(const CEdid& oEdid);
};

// Sorts as CMArray::SortElements does with CZorEdidUtils::SortVidParam, in less than the square of the steps.
void SortModes(CZorEdidUtils::CModeList& oList);

} // namespace ZorUtils
