// What the tests of the EDID tools share: images in and out of the library's types, lists and reports as text.

#pragma once

#include <gtest/gtest.h>
#include <string.h>

#include <memory>
#include <string>
#include <vector>

#include "CEdidTestImages.h"
#include "EdidBaseLayout.h"
#include "EdidUtils.h"
#include "SharedFiles.h"
#include "ZorEdidUtils.h"
#include "ZorEdidUtilsModes.h"

using namespace EdidBaseLayout;

using CByteArray = CZorEdidUtils::CByteArray;
using CModeList = CZorEdidUtils::CModeList;
using CBytes = std::vector<unsigned char>;

inline CBytes GetBytes(const SEdidImage& aui8Image) { return CBytes(aui8Image.begin(), aui8Image.end()); }

inline CBytes GetBytes(const CByteArray& oArray)
{
    return oArray.GetCount() == 0 ? CBytes() : CBytes(oArray.GetData(), oArray.GetData() + oArray.GetCount());
}

// Makes the last byte of each block of 128 right.
inline CBytes FixChecksums(CBytes aui8Image)
{
    constexpr size_t uiBlock = CEdidUtils::msc_uiBlockSize;
    for (size_t uiStart = 0; uiStart + uiBlock <= aui8Image.size(); uiStart += uiBlock)
    {
        unsigned int uiSum = 0;
        for (size_t i = uiStart; i + 1 < uiStart + uiBlock; ++i)
        {
            uiSum += aui8Image[i];
        }
        aui8Image[uiStart + uiBlock - 1] = static_cast<unsigned char>(0U - uiSum);
    }
    return aui8Image;
}

// An image loaded, with one byte changed for each pair of offset and value, and the checksums made right.
struct SByteChange
{
    size_t m_uiOffset;
    unsigned char m_ui8Value;
};

inline CBytes ChangeBytes(CBytes aui8Image, const std::vector<SByteChange>& aoChanges)
{
    for (const SByteChange& oChange : aoChanges)
    {
        aui8Image.at(oChange.m_uiOffset) = oChange.m_ui8Value;
    }
    return FixChecksums(aui8Image);
}

// AsusHd with 1280 x 720 of this clock, in units of 10 kHz, as its first detailed timing.
inline CBytes MakeImageOfClock(unsigned int uiClock)
{
    constexpr unsigned char aui8Timing[] = { 0x00, 0x7E, 0x51, 0xD0, 0x1E, 0x20, 0x6E, 0x28,
                                             0x55, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1E };
    CBytes aui8Image = GetBytes(AsusHd::g_auiAsusHdEdidData);
    aui8Image[54] = static_cast<unsigned char>(uiClock);
    aui8Image[55] = static_cast<unsigned char>(uiClock >> 8);
    std::copy(std::begin(aui8Timing), std::end(aui8Timing), aui8Image.begin() + 56);
    return FixChecksums(aui8Image);
}

inline std::unique_ptr<CEdid> Load(const CBytes& aui8Image)
{
    auto poEdid = std::make_unique<CEdid>();
    EXPECT_EQ(1, poEdid->SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0));
    return poEdid;
}

inline std::unique_ptr<CEdid> Load(const SEdidImage& aui8Image) { return Load(GetBytes(aui8Image)); }

// The short text of each timing.
inline std::vector<std::string> GetTexts(const CModeList& oList)
{
    std::vector<std::string> asTexts;
    for (unsigned int i = 0; i < oList.GetCount(); ++i)
    {
        CMString oText;
        CZorEdidUtils::GetFormatedVideoParam(oList[i].GetData(), 0, oText, "");
        asTexts.emplace_back(static_cast<const char*>(oText));
    }
    return asTexts;
}

inline std::vector<std::string> GetElements(const CMArrayString& oLines)
{
    std::vector<std::string> asElements;
    for (unsigned int i = 0; i < oLines.GetCount(); ++i)
    {
        asElements.emplace_back(static_cast<const char*>(oLines[i]));
    }
    return asElements;
}

inline std::vector<std::string> GetReport(CZorEdidUtils::EEdidFormatType eType, const CEdid& oEdid,
                                          const char* pszLinePrefix)
{
    CMArrayString oLines;
    EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(eType, oEdid, oLines, pszLinePrefix));
    return GetElements(oLines);
}
