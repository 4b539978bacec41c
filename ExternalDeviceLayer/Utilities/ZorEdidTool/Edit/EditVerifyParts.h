// What the two sources of the verification share: lists of what a block says, and the part for CEA-861 blocks.

#pragma once

#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

#include "EditImage.h"

// Entries as bytes, so that lists are compared, sorted and shortened alike, whatever they hold.
using CList = std::vector<CBytes>;

inline CBytes EncodeTiming(const CVidParamTimingGeneric& oTiming, int iNative = 0)
{
    CBytes aui8Entry(sizeof(SVidParamGenericData));
    memcpy(aui8Entry.data(), &oTiming.GetData(), aui8Entry.size());
    aui8Entry.push_back(static_cast<unsigned char>(iNative));
    return aui8Entry;
}

inline CList Without(const CList& oList, const CNumbers& oNumbers)
{
    CList oLeft;
    for (unsigned int i = 0; i < oList.size(); ++i)
    {
        if (!oNumbers.contains(i))
        {
            oLeft.push_back(oList[i]);
        }
    }
    return oLeft;
}

inline CList Sorted(CList oList)
{
    std::sort(oList.begin(), oList.end());
    return oList;
}

template <class LIST>
bool IsSubsequence(const LIST& oPart, const LIST& oWhole)
{
    size_t uiFound = 0;
    for (const auto& oEntry : oWhole)
    {
        uiFound += uiFound < oPart.size() && oPart[uiFound] == oEntry ? 1U : 0U;
    }
    return uiFound == oPart.size();
}

// Empty, or what reads differently although no edit named it.
//   uiNatives  the number of native detailed timings that the block must tell now
std::string VerifyCea(const CBytes& aui8Read, const CBytes& aui8Edited, const SEditedBlock& oBlock,
                      unsigned int uiNatives);
