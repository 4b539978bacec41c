// Listing the origins of timings that are described, not named by a code. Private to the classes of the blocks.

#pragma once

#include "Standards/Descriptors.h"
#include "TimingOrigin.h"
#include "VidParamTimingGeneric.h"

namespace ZorCore
{
// fnPlace(index, origin) stores the offset, and the length where it is not that of a descriptor. An index without a
// timing is left out.
template <class BLOCK, class PLACE>
void ListDescribed(const BLOCK& oBlock, unsigned int uiCount, CTimingOrigins& aoOrigins, PLACE fnPlace)
{
    aoOrigins.RemoveAll();
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        CVidParamTimingGeneric oTiming;
        STimingOrigin oOrigin = {};
        oOrigin.m_uiIndex = i;
        oOrigin.m_uiBlock = oBlock.GetImageBlock();
        oOrigin.m_uiLength = ZorStandards::Descriptors::gsc_uiDescriptorSize;
        oOrigin.m_uiBit = STimingOrigin::msc_uiNoBit;
        fnPlace(i, oOrigin);
        if (oBlock.GetDetailed(i, &oTiming) != 0)
        {
            aoOrigins.Add(oOrigin);
        }
    }
}
} // namespace ZorCore
