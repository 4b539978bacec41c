// Rules about the base block.

#include <algorithm>

#include "CheckFindings.h"

using namespace ZorStandards::BaseBlock;

namespace ZorCheck
{
namespace
{
void CheckYear(CFindings& oFindings, unsigned int uiThisYear)
{
    const unsigned int uiField = oFindings.GetMap().FindLeaf(gsc_uiYearOffset, 0);
    const CMap::SField& oYear = oFindings.GetMap().GetField(uiField);
    const bool bModelYear = oYear.m_eId == eZorEdidField_BaseIdentityModelYear;
    const unsigned int uiLatest = uiThisYear + (bModelYear ? 1 : 0); // models are named early
    if (oYear.m_llNumber > uiLatest)
    {
        SZorFinding& oFinding = oFindings.Add(uiField, eZorEdidRule_YearInFuture);
        oFinding.m_sFound.Format("%lld", oYear.m_llNumber);
        oFinding.m_sExpected.Format("at most %u", uiLatest);
    }
}

// A place for a descriptor that nothing is in has a dummy one.
void CheckZeros(CFindings& oFindings)
{
    for (unsigned int i = 0; i < gsc_uiDescriptors; ++i)
    {
        const unsigned char* pui8Descriptor = oFindings.GetAt(DescriptorOffset(i));
        if (std::all_of(pui8Descriptor, pui8Descriptor + gsc_uiDescriptorSize,
                        [](unsigned char ui8Byte) { return ui8Byte == 0; }))
        {
            oFindings.Add(oFindings.FindGroup(DescriptorOffset(i)), eZorEdidRule_DescriptorZero);
        }
    }
}
} // namespace

void CheckBase(CFindings& oFindings, unsigned int uiThisYear)
{
    CheckYear(oFindings, uiThisYear);
    CheckZeros(oFindings);
}
} // namespace ZorCheck
