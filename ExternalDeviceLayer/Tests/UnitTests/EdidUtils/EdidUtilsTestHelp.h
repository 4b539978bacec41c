// What the tests of the EDID tools share: images in and out of the library's types, lists and reports as text.

#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "CapturedOutput.h"
#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "SharedFiles.h"
#include "TestBytes.h"
#include "ZorEdidUtils.h"
#include "ZorEdidUtilsModes.h"

using CByteArray = CZorEdidUtils::CByteArray;
using CModeList = CZorEdidUtils::CModeList;
using CTexts = std::vector<std::string>;

constexpr auto gsc_ePlain = CZorEdidUtils::eEdidFormatZorEdidExtractor;
constexpr auto gsc_eExtended = CZorEdidUtils::eEdidFormatZorEdidExtractorExt;
constexpr auto gsc_eModes = CZorEdidUtils::eEdidFormatRVideoOutRes;

inline CBytes GetBytes(const CByteArray& oArray)
{
    return CBytes(oArray.GetData(), oArray.GetData() + oArray.GetCount());
}

using CByteChanges = std::vector<std::pair<size_t, unsigned char>>; // offset and new value

// The image with these changes and right checksums.
inline CBytes ChangeBytes(CBytes aui8Image, const CByteChanges& aoChanges)
{
    for (const auto& [uiOffset, ui8Value] : aoChanges)
    {
        aui8Image.at(uiOffset) = ui8Value;
    }
    return FixChecksums(aui8Image);
}

// AsusHd, the image that most cases start from: a base block and a CEA-861 block without native codes.
inline CBytes AsusBytes(const CByteChanges& aoChanges = {})
{
    return ChangeBytes(ToBytes(AsusHd::g_auiAsusHdEdidData), aoChanges);
}

// An image that announces no preferred mode: revision 2 without the preferred-timing bit.
inline CBytes MakeImageWithoutPreferred() { return AsusBytes({ { 19, 2 }, { 24, 0 } }); }

// A CEA-861 block of revision 3 with these bytes behind its head; detailed timings begin behind the data blocks.
inline CBytes MakeCeaBlockOf(const CBytes& aui8DataBlocks, const CBytes& aui8Detailed = {})
{
    const unsigned char ui8Detailed = static_cast<unsigned char>(4 + aui8DataBlocks.size());
    CBytes aui8Block = Join({ { 0x02, 0x03, ui8Detailed, 0x00 }, aui8DataBlocks, aui8Detailed });
    aui8Block.resize(128);
    return FixChecksums(aui8Block);
}

inline std::unique_ptr<CEdid> Load(const CBytes& aui8Image)
{
    auto poEdid = std::make_unique<CEdid>();
    EXPECT_EQ(1, LoadExact(*poEdid, aui8Image));
    return poEdid;
}

inline CTexts GetElements(const CMArrayString& oLines)
{
    CTexts asElements;
    for (int i = 0; i < static_cast<int>(oLines.GetCount()); ++i)
    {
        asElements.emplace_back(static_cast<const char*>(oLines[i]));
    }
    return asElements;
}

inline CTexts GetReport(CZorEdidUtils::EEdidFormatType eType, const CBytes& aui8Image)
{
    CMArrayString oLines;
    EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(eType, *Load(aui8Image), oLines, ""));
    return GetElements(oLines);
}
