// The lists that blocks hold, as numbers that compare.

#pragma once

#include <array>
#include <bit>

#include "EdidExtBlockCEA861.h"
#include "TestBytes.h"
#include "VidParamTimingGeneric.h"

// A timing: the thirteen numbers of its record, then the result of reading it, or for a table timing 2 for the result
// and 1 for native. An audio descriptor: format, channels, rates, extra. A speaker mask: itself.
using CListEntry = std::array<unsigned int, 14>;
using CList = std::vector<CListEntry>;

enum EBlockList : unsigned int
{
    eBlockList_Table,
    eBlockList_Detailed,
    eBlockList_Audio,
    eBlockList_Speaker,
    eBlockList_Count
};
using CLists = std::array<CList, eBlockList_Count>;

inline bool Is420(const CListEntry& auiTiming) { return (auiTiming[11] & 0x10) != 0; }

inline CListEntry MakeEntry(const CVidParamTimingGeneric& oTiming, int iLast)
{
    CListEntry auiEntry = {};
    const auto auiRecord = std::bit_cast<std::array<unsigned int, 13>>(oTiming.GetData());
    std::copy(auiRecord.begin(), auiRecord.end(), auiEntry.begin());
    auiEntry[13] = static_cast<unsigned int>(iLast);
    return auiEntry;
}

// Of a block, or of the base block as a CEdidBase.
template <class SOURCE>
CLists GetTimingLists(const SOURCE& oSource)
{
    CLists aoLists;
    for (unsigned int i = 0; i < oSource.GetStandardCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        int iNative = -1;
        const int iResult = oSource.GetStandard(i, &oTiming, &iNative);
        aoLists[eBlockList_Table].push_back(MakeEntry(oTiming, 2 * iResult + iNative));
    }
    for (unsigned int i = 0; i < oSource.GetDetailedCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        const int iResult = oSource.GetDetailed(i, &oTiming);
        aoLists[eBlockList_Detailed].push_back(MakeEntry(oTiming, iResult));
    }
    return aoLists;
}

inline CLists GetLists(const CEdidExtBlock& oBlock)
{
    CLists aoLists = GetTimingLists(oBlock);
    const auto* poCea = dynamic_cast<const CEdidExtBlockCEA861*>(&oBlock);
    for (unsigned int i = 0; poCea != nullptr && i < poCea->GetAudioDescriptorCount(); ++i)
    {
        CEdidExtBlockCEA861::SAudioDescriptor oAudio = {};
        poCea->GetAudioDescriptor(i, &oAudio);
        aoLists[eBlockList_Audio].push_back(
            { oAudio.m_eFormat, oAudio.m_uiChannels, oAudio.m_eSamplingFreq, oAudio.m_uiExtra });
    }
    for (unsigned int i = 0; poCea != nullptr && i < poCea->GetSpeakerDescriptorCount(); ++i)
    {
        unsigned int uiMask = 0;
        poCea->GetSpeakerDescriptor(i, &uiMask);
        aoLists[eBlockList_Speaker].push_back({ uiMask });
    }
    return aoLists;
}

// Of each block of the EDID: first the base block, which has the lists of timings alone.
inline std::vector<CLists> GetLists(const CEdid& oEdid)
{
    std::vector<CLists> aoLists = { GetTimingLists<CEdidBase>(oEdid) };
    for (unsigned int i = 0; i < oEdid.GetExtensionCount(); ++i)
    {
        aoLists.push_back(GetLists(*oEdid.GetExtension(i)));
    }
    return aoLists;
}

// Whether the data blocks of a CTA-861 block end where its descriptors begin, its audio blocks hold whole descriptors,
// and only zeros follow the descriptors, or the data blocks if descriptors are not allowed. In other
// blocks an edit may cut or uncover bytes that then read as something else.
inline bool IsTidy(const unsigned char* pui8Block, bool bWithoutDescriptors = false)
{
    const size_t uiStart = pui8Block[2];
    if (pui8Block[0] != 2 || uiStart < 4 || uiStart > 127)
    {
        return false;
    }
    size_t uiAt = pui8Block[1] < 3 ? uiStart : 4; // older blocks have no data blocks
    bool bIsTidy = true;
    for (; uiAt < uiStart; uiAt += 1 + (pui8Block[uiAt] & 0x1FU))
    {
        bIsTidy = bIsTidy && (pui8Block[uiAt] >> 5 != 1 || (pui8Block[uiAt] & 0x1F) % 3 == 0);
    }
    bIsTidy = bIsTidy && uiAt == uiStart;
    while (bIsTidy && !bWithoutDescriptors && uiAt + 18 <= 127 && (pui8Block[uiAt] != 0 || pui8Block[uiAt + 1] != 0))
    {
        uiAt += 18;
    }
    return bIsTidy && std::count(pui8Block + uiAt, pui8Block + 127, 0) == static_cast<ptrdiff_t>(127 - uiAt);
}
