// What the tests of the EDID tools share: images by name, lists and reports as text.

#pragma once

#include <bit>
#include <map>

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "SharedFiles.h"
#include "ZorEdidUtils.h"
#include "ZorEdidUtilsModes.h"

using namespace ZorUtils;

using CModeList = CZorEdidUtils::CModeList;
using CTexts = std::vector<std::string>;

constexpr auto gsc_ePlain = CZorEdidUtils::eEdidFormatZorEdidExtractor;
constexpr auto gsc_eExtended = CZorEdidUtils::eEdidFormatZorEdidExtractorExt;
constexpr auto gsc_eModes = CZorEdidUtils::eEdidFormatRVideoOutRes;

// The image of a name, then its changes: "asus 19=02 03" has 02 at byte 19 and 03 at byte 20. Checksums are right,
// but for a checksum named last.
inline CBytes MakeImage(const std::string& sText)
{
    CBytes aui8Cea = { 0x02, 0x03, 0x04, 0x00 }; // without data blocks and detailed timings
    aui8Cea.resize(gsc_uiBlockSize);
    aui8Cea = FixChecksums(aui8Cea);
    const CBytes aui8Record = MakeDataBlock(3, 0, Type1Record1080p());
    const std::map<std::string, CBytes> oImages = {
        { "asus", ToBytes(AsusHd::g_auiAsusHdEdidData) }, // a base block and a CTA-861 block without native codes
        { "standard2", ToBytes(ExtStandard2::g_auiStandard2EdidData) },
        { "lg", ToBytes(gsc_aui8LgUltraHd) },
        { "cea", MakeEdid({ aui8Cea }) },
        { "tiles", MakeEdid({ MakeFullDisplayIdBlock() }) },
        { "record", MakeEdid({ MakeDisplayIdBlock(aui8Record) }) },
        { "badrecord",
          MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 0, Join({ Type1Record1080p(), CBytes(20) }))) }) },
        { "blocks", MakeEdid({ aui8Cea, MakeFullDisplayIdBlock(), aui8Cea }) },
        { "short", CBytes(100) }, // not a whole block
    };
    std::istringstream oText(sText);
    std::string sToken;
    oText >> sToken;
    CBytes aui8Image = oImages.at(sToken);
    for (size_t uiAt = 0; oText >> sToken; ++uiAt)
    {
        const size_t uiSign = sToken.find('=');
        if (uiSign != std::string::npos)
        {
            uiAt = std::stoul(sToken);
        }
        aui8Image.at(uiAt) = static_cast<unsigned char>(std::stoul(sToken.substr(uiSign + 1), nullptr, 16));
        aui8Image = uiAt % gsc_uiBlockSize == 127 ? aui8Image : FixChecksums(aui8Image);
    }
    return aui8Image;
}

inline std::unique_ptr<CEdid> Load(const CBytes& aui8Image)
{
    auto poEdid = std::make_unique<CEdid>();
    EXPECT_EQ(1, LoadExact(*poEdid, aui8Image));
    return poEdid;
}

inline std::unique_ptr<CEdid> Load(const char* pszImage) { return Load(MakeImage(pszImage)); }

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
