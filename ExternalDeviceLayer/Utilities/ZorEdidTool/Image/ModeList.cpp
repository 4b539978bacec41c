// Walking the three numberings block by block.

#include "ModeList.h"

#include <algorithm>

#include "ExactTimings.h"
#include "Standards/BaseBlock.h"
#include "TextFormat.h"

namespace
{
constexpr char gsc_szBaseKind[] = "base";

// The list of VESA's own established timings is a part of the list of all, in the same order.
void ListEstablished(const CEdid& oEdid, CModes& aoModes)
{
    unsigned int uiVesa = 0;
    for (unsigned int i = 0; i < oEdid.GetEstablishedCount(0); ++i)
    {
        SImageMode oMode = { CZorEdidMap::eList_Established, i, 0, gsc_szBaseKind, {} };
        CVidParamTimingGeneric oVesa;
        if (oEdid.GetEstablished(i, &oMode.m_oTiming, 0) == 0)
        {
            continue;
        }
        oMode.m_bVesa = oEdid.GetEstablished(uiVesa, &oVesa, 1) != 0 && IsSameRecord(oVesa, oMode.m_oTiming);
        uiVesa += oMode.m_bVesa ? 1 : 0;
        aoModes.push_back(oMode);
    }
}

void ListStandard(CLoadedImage& oImage, CModes& aoModes)
{
    const CEdid& oEdid = oImage.GetEdid();
    CTimingOrigins aoOrigins;
    oEdid.CEdidBase::ListStandardOrigins(aoOrigins);
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = aoOrigins[i];
        SImageMode oMode = { CZorEdidMap::eList_Standard, oOrigin.m_uiIndex, 0, gsc_szBaseKind, {} };
        oEdid.GetBaseStandard(oOrigin.m_uiIndex, &oMode.m_oTiming, nullptr);
        oMode.m_sStandardCode = FormatHex(oEdid.GetBaseBlock() + oOrigin.m_uiOffset, oOrigin.m_uiLength);
        aoModes.push_back(oMode);
    }
    // The blocks are asked themselves: CEdid would hand the index of a place without a timing on to the next block.
    unsigned int uiFirst = oEdid.GetBaseStandardCount();
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        if (oBlock.m_poLoaded == nullptr)
        {
            continue;
        }
        oBlock.m_poLoaded->ListStandardOrigins(aoOrigins);
        for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
        {
            const STimingOrigin& oOrigin = aoOrigins[i];
            SImageMode oMode = { CZorEdidMap::eList_Standard,
                                 uiFirst + oOrigin.m_uiIndex,
                                 oBlock.m_uiNumber,
                                 GetBlockKind(oBlock.GetTag()),
                                 {} };
            int iNative = 0;
            if (oOrigin.m_bRepeated == 0 &&
                oBlock.m_poLoaded->GetStandard(oOrigin.m_uiIndex, &oMode.m_oTiming, &iNative) != 0)
            {
                oMode.m_bNative = iNative != 0;
                oMode.m_oVics = { { oOrigin.m_uiCode }, oOrigin.m_bVariant != 0 };
                aoModes.push_back(oMode);
            }
        }
        uiFirst += oBlock.m_poLoaded->GetStandardCount();
    }
}

void ListDetailed(CLoadedImage& oImage, CModes& aoModes)
{
    const CEdid& oEdid = oImage.GetEdid();
    const auto fnAdd = [&](SImageMode& oMode) {
        oMode.m_oVics = FindExactVics(MakeListedMode(oMode.m_oTiming));
        aoModes.push_back(oMode);
    };
    unsigned int uiIndex = 0;
    for (; uiIndex < oEdid.GetBaseDetailedCount(); ++uiIndex)
    {
        SImageMode oMode = { CZorEdidMap::eList_Detailed, uiIndex, 0, gsc_szBaseKind, {} };
        if (oEdid.GetBaseDetailed(uiIndex, &oMode.m_oTiming) != 0)
        {
            oMode.m_bPreferred =
                uiIndex == 0 && ZorStandards::BaseBlock::IsPreferredTimingDeclared(oEdid.GetBaseBlock());
            fnAdd(oMode);
        }
    }
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        const unsigned int uiCount = oBlock.m_poLoaded != nullptr ? oBlock.m_poLoaded->GetDetailedCount() : 0;
        for (unsigned int i = 0; i < uiCount; ++i, ++uiIndex)
        {
            SImageMode oMode = {
                CZorEdidMap::eList_Detailed, uiIndex, oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()), {}
            };
            if (oBlock.m_poLoaded->GetDetailed(i, &oMode.m_oTiming) != 0)
            {
                fnAdd(oMode);
            }
        }
    }
}
} // namespace

CModes ListTimings(CLoadedImage& oImage)
{
    CModes aoModes;
    ListEstablished(oImage.GetEdid(), aoModes);
    ListStandard(oImage, aoModes);
    ListDetailed(oImage, aoModes);
    return aoModes;
}

const SImageMode* FindPreferred(const CModes& aoModes)
{
    const auto itPreferred = std::ranges::find_if(aoModes, &SImageMode::m_bPreferred);
    return itPreferred == aoModes.end() ? nullptr : &*itPreferred;
}
