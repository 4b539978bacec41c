// The numbers that the library's lists give the modes: the classes say where each timing comes from.

#include "Edid.h"
#include "Standards/BaseBlock.h"
#include "ZorEdidModes.h"

namespace ZorFacts
{
namespace
{
using CModes = CMArray<SZorImageMode, const SZorImageMode&>;

// Both lists ascend by blocks: an origin is compared with the modes of its own block only.
void SetNumbers(CModes& aoModes, SZorImageMode::EList eList, const CTimingOrigins& aoOrigins)
{
    unsigned int uiFirst = 0; // mode of the block
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = aoOrigins[i];
        const unsigned int uiStart = oOrigin.m_uiBlock * ZorStandards::gsc_uiBlockSize;
        const unsigned int uiEnd = uiStart + ZorStandards::gsc_uiBlockSize;
        const unsigned int uiOffset = uiStart + oOrigin.m_uiOffset;
        while (uiFirst < aoModes.GetCount() && aoModes[uiFirst].m_uiOffset < uiStart)
        {
            ++uiFirst;
        }
        for (unsigned int uiMode = uiFirst; uiMode < aoModes.GetCount() && oOrigin.m_uiLength != 0; ++uiMode)
        {
            if (aoModes[uiMode].m_uiOffset >= uiEnd)
            {
                break;
            }
            SZorImageMode& oMode = aoModes[uiMode];
            const bool bBit = oOrigin.m_uiBit == STimingOrigin::msc_uiNoBit || oOrigin.m_uiBit == oMode.m_uiBit;
            const bool bCode = oOrigin.m_uiCode == 0 || oOrigin.m_uiCode == oMode.m_oMode.m_uiCode;
            if (oMode.m_uiOffset == uiOffset && bBit && bCode && oMode.m_eList == SZorImageMode::eList_None)
            {
                oMode.m_eList = eList;
                oMode.m_uiNumber = oOrigin.m_uiIndex;
            }
        }
    }
}
} // namespace
} // namespace ZorFacts

void CZorEdidModes::SetNumbers(const CEdid& oEdid)
{
    CTimingOrigins aoOrigins;
    oEdid.ListEstablishedOrigins(aoOrigins);
    ZorFacts::SetNumbers(m_aoModes, SZorImageMode::eList_Established, aoOrigins);
    oEdid.ListStandardOrigins(aoOrigins);
    ZorFacts::SetNumbers(m_aoModes, SZorImageMode::eList_Standard, aoOrigins);
    oEdid.ListDetailedOrigins(aoOrigins);
    ZorFacts::SetNumbers(m_aoModes, SZorImageMode::eList_Detailed, aoOrigins);
}
