// What an edit has done to bytes, for the tests and for the fuzz targets, which have no GoogleTest.

#pragma once

#include <string>

#include "TestBytes.h"

// Bytes that an operation may change, from the first byte of what is checked: the whole EDID or one block.
struct SEditedBytes
{
    unsigned int m_uiOffset;
    unsigned int m_uiCount;
};

// Empty when only bytes named here differ, apart from the last byte of the blocks that they lie in, whose sums are 0;
// else a text that names what is wrong. A range of no bytes names the checksum of its block.
inline std::string CheckEditedBytes(const CBytes& aui8Before, const CBytes& aui8After,
                                    const std::vector<SEditedBytes>& aoEdited)
{
    if (aui8Before.size() != aui8After.size())
    {
        return "the size changed";
    }
    CBytes aui8Expected = aui8Before;
    for (const SEditedBytes& oEdited : aoEdited)
    {
        const size_t uiEnd = oEdited.m_uiOffset + oEdited.m_uiCount;
        const size_t uiSum = oEdited.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize;
        if (uiEnd > uiSum + gsc_uiBlockSize || uiSum + gsc_uiBlockSize > aui8After.size())
        {
            return "the bytes named do not lie in one block";
        }
        std::copy(aui8After.begin() + oEdited.m_uiOffset, aui8After.begin() + static_cast<ptrdiff_t>(uiEnd),
                  aui8Expected.begin() + oEdited.m_uiOffset);
        aui8Expected[uiSum + gsc_uiBlockSize - 1] = aui8After[uiSum + gsc_uiBlockSize - 1];
        if (std::accumulate(&aui8After[uiSum], &aui8After[uiSum] + gsc_uiBlockSize, 0U) % 256 != 0)
        {
            return "the checksum of block " + std::to_string(uiSum / gsc_uiBlockSize) + " is wrong";
        }
    }
    if (aui8Expected == aui8After)
    {
        return "";
    }
    const auto itWrong = std::mismatch(aui8Expected.begin(), aui8Expected.end(), aui8After.begin()).first;
    return "byte " + std::to_string(itWrong - aui8Expected.begin()) + " is none of the edit's";
}
