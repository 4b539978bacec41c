// What the tests of the EDID tools share: images in and out of the library's types, lists and reports as text.

#pragma once

#include <gtest/gtest.h>
#include <string.h>

#include <memory>
#include <string>
#include <vector>

#include "CEdidTestImages.h"
#include "EdidBaseLayout.h"
#include "SharedFiles.h"
#include "TestBytes.h"
#include "ZorEdidUtils.h"
#include "ZorEdidUtilsModes.h"

using namespace EdidBaseLayout;

using CByteArray = CZorEdidUtils::CByteArray;
using CModeList = CZorEdidUtils::CModeList;
using CTexts = std::vector<std::string>;

inline CBytes GetBytes(const CByteArray& oArray)
{
    return CBytes(oArray.GetData(), oArray.GetData() + oArray.GetCount());
}

// AsusHd, the image that most cases start from: a base block and a CEA-861 block without native codes.
inline CBytes AsusBytes() { return ToBytes(AsusHd::g_auiAsusHdEdidData); }

struct SByteChange
{
    size_t m_uiOffset;
    unsigned char m_ui8Value;
};

// The image with these bytes changed and its checksums made right.
inline CBytes ChangeBytes(CBytes aui8Image, const std::vector<SByteChange>& aoChanges)
{
    for (const SByteChange& oChange : aoChanges)
    {
        aui8Image.at(oChange.m_uiOffset) = oChange.m_ui8Value;
    }
    return FixChecksums(aui8Image);
}

// An image that announces no preferred mode.
inline CBytes MakeImageWithoutPreferred()
{
    return ChangeBytes(AsusBytes(), { { gsc_uiRevisionOffset, 2 }, { gsc_uiFeaturesOffset, 0 } });
}

// AsusHd with 1280 x 720 of this clock, in units of 10 kHz, as its first detailed timing.
inline CBytes MakeImageOfClock(unsigned int uiClock)
{
    constexpr unsigned char aui8Timing[] = { 0x00, 0x7E, 0x51, 0xD0, 0x1E, 0x20, 0x6E, 0x28,
                                             0x55, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1E };
    CBytes aui8Image = AsusBytes();
    aui8Image[54] = static_cast<unsigned char>(uiClock);
    aui8Image[55] = static_cast<unsigned char>(uiClock >> 8);
    std::copy(std::begin(aui8Timing), std::end(aui8Timing), aui8Image.begin() + 56);
    return FixChecksums(aui8Image);
}

// A CEA-861 block of revision 3 with these bytes behind its head; detailed timings begin behind the data blocks.
inline CBytes MakeCeaBlockOf(const CBytes& aui8DataBlocks, const CBytes& aui8Detailed = {})
{
    const unsigned char ui8Detailed = static_cast<unsigned char>(4 + aui8DataBlocks.size());
    CBytes aui8Block = Join({ { 0x02, 0x03, ui8Detailed, 0x00 }, aui8DataBlocks, aui8Detailed });
    aui8Block.resize(gsc_uiBlockSize);
    return FixChecksums(aui8Block);
}

inline std::unique_ptr<CEdid> Load(const CBytes& aui8Image)
{
    auto poEdid = std::make_unique<CEdid>();
    EXPECT_EQ(1, LoadExact(*poEdid, aui8Image));
    return poEdid;
}

inline std::unique_ptr<CEdid> Load(const SEdidImage& aui8Image) { return Load(ToBytes(aui8Image)); }

// The short text of each timing.
inline CTexts GetTexts(const CModeList& oList)
{
    CTexts asTexts;
    for (unsigned int i = 0; i < oList.GetCount(); ++i)
    {
        CMString oText;
        CZorEdidUtils::GetFormatedVideoParam(oList[i].GetData(), 0, oText, "");
        asTexts.emplace_back(static_cast<const char*>(oText));
    }
    return asTexts;
}

inline CTexts GetElements(const CMArrayString& oLines)
{
    CTexts asElements;
    for (unsigned int i = 0; i < oLines.GetCount(); ++i)
    {
        asElements.emplace_back(static_cast<const char*>(oLines[i]));
    }
    return asElements;
}

inline CTexts GetReport(CZorEdidUtils::EEdidFormatType eType, const CEdid& oEdid, const char* pszLinePrefix = "")
{
    CMArrayString oLines;
    EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(eType, oEdid, oLines, pszLinePrefix));
    return GetElements(oLines);
}
