// Bytes of EDID images as the tests handle them: putting them together, checksums, loading from a heap buffer of
// exactly their size, so that the sanitizers see every access outside it.

#pragma once

#include <stddef.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "Edid.h"

using CBytes = std::vector<unsigned char>;

inline constexpr size_t gsc_uiBlockSize = 128;

// Of an image of the self-check, or any other range of bytes.
template <class RANGE>
CBytes ToBytes(const RANGE& aui8Bytes)
{
    return CBytes(aui8Bytes.begin(), aui8Bytes.end());
}

inline CBytes WithChange(CBytes aui8Bytes, size_t uiOffset, unsigned char ui8Value)
{
    aui8Bytes.at(uiOffset) = ui8Value;
    return aui8Bytes;
}

inline void Append(CBytes& aui8To, const CBytes& aui8Bytes)
{
    aui8To.insert(aui8To.end(), aui8Bytes.begin(), aui8Bytes.end());
}

inline CBytes Join(std::initializer_list<CBytes> aaui8Parts)
{
    CBytes aui8Bytes;
    for (const CBytes& aui8Part : aaui8Parts)
    {
        Append(aui8Bytes, aui8Part);
    }
    return aui8Bytes;
}

// The byte at uiChecksum completes the sum from uiFirst on to 0.
inline void FixSum(CBytes& aui8Bytes, size_t uiFirst, size_t uiChecksum)
{
    const unsigned int uiSum = std::accumulate(aui8Bytes.data() + uiFirst, aui8Bytes.data() + uiChecksum, 0U);
    aui8Bytes[uiChecksum] = static_cast<unsigned char>(0U - uiSum);
}

inline void FixBlockSum(CBytes& aui8Image, size_t uiBlock)
{
    FixSum(aui8Image, uiBlock * gsc_uiBlockSize, (uiBlock + 1) * gsc_uiBlockSize - 1);
}

// Of the DisplayID block at this offset the sum of its section, where that leaves room for it.
inline void FixSectionSum(CBytes& aui8Image, size_t uiBlock)
{
    const size_t uiSum = size_t{ 5 } + aui8Image[uiBlock + 2];
    if (uiSum < gsc_uiBlockSize - 1)
    {
        FixSum(aui8Image, uiBlock + 1, uiBlock + uiSum);
    }
}

// Makes the last byte of each whole block right.
inline CBytes FixChecksums(CBytes aui8Image)
{
    for (size_t i = 0; i < aui8Image.size() / gsc_uiBlockSize; ++i)
    {
        FixBlockSum(aui8Image, i);
    }
    return aui8Image;
}

// Hexadecimal pairs, with short forms: "00*5" repeats a pair, "..127" fills with zeros up to that many bytes, and "sum"
// is the byte that makes all of them sum up to 0 modulo 256.
inline CBytes ParseBytes(const std::string& sText)
{
    CBytes aui8Bytes;
    std::istringstream oStream(sText);
    for (std::string sToken; oStream >> sToken;)
    {
        if (sToken == "sum")
        {
            aui8Bytes.push_back(0);
            FixSum(aui8Bytes, 0, aui8Bytes.size() - 1);
        }
        else if (sToken.starts_with(".."))
        {
            aui8Bytes.resize(std::stoul(sToken.substr(2)));
        }
        else
        {
            const size_t uiStar = sToken.find('*');
            const size_t uiTimes = uiStar != std::string::npos ? std::stoul(sToken.substr(uiStar + 1)) : 1;
            aui8Bytes.insert(aui8Bytes.end(), uiTimes,
                             static_cast<unsigned char>(std::stoul(sToken.substr(0, uiStar), nullptr, 16)));
        }
    }
    return aui8Bytes;
}

inline std::unique_ptr<unsigned char[]> CopyToHeap(const CBytes& aui8Bytes)
{
    std::unique_ptr<unsigned char[]> pui8Copy(new unsigned char[aui8Bytes.size()]);
    std::copy(aui8Bytes.begin(), aui8Bytes.end(), pui8Copy.get());
    return pui8Copy;
}

inline int LoadExact(CEdid& oEdid, const CBytes& aui8Bytes, unsigned int uiStripFlags = 0)
{
    return oEdid.SetEdidBuffer(CopyToHeap(aui8Bytes).get(), static_cast<unsigned int>(aui8Bytes.size()), uiStripFlags);
}

inline CBytes GetBytes(const CEdidBase& oBase)
{
    return CBytes(oBase.GetBaseBlock(), oBase.GetBaseBlock() + gsc_uiBlockSize);
}

inline CBytes GetBytes(const CEdidExtBlock& oBlock)
{
    return CBytes(oBlock.GetData(), oBlock.GetData() + oBlock.GetSize());
}

using CByteArray = CMArray<unsigned char, const unsigned char&>;

inline CBytes GetBytes(const CByteArray& aui8Bytes)
{
    return CBytes(aui8Bytes.GetData(), aui8Bytes.GetData() + aui8Bytes.GetCount());
}

inline CByteArray ToArray(const CBytes& aui8Bytes)
{
    CByteArray oArray;
    oArray.SetCount(static_cast<unsigned int>(aui8Bytes.size()), -1);
    std::copy(aui8Bytes.begin(), aui8Bytes.end(), oArray.GetData());
    return oArray;
}

inline CBytes Serialise(const CEdid& oEdid) { return GetBytes(oEdid.GetEdidBuffer()); }
