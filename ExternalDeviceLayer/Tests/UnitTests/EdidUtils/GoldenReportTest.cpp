// Reports of images of the self-check against stored texts in golden/. A changed text is a changed behaviour:
// scripts/update-golden rewrites the files, and whoever commits them reads the difference.

#include <stdlib.h>

#include "EdidUtilsTestHelp.h"

namespace
{
struct SFormat
{
    const char* m_pszName;
    CZorEdidUtils::EEdidFormatType m_eType;
};

constexpr SFormat gsc_aoFormats[] = { { "plain", gsc_ePlain }, { "extended", gsc_eExtended }, { "modes", gsc_eModes } };

// Each has elements that no other of them has.
constexpr const char* gsc_apszStored[] = {
    "AsusHd",              // a maker with a full name
    "AudioEleven",         // eleven audio formats
    "AudioFull",           // no audio descriptor and no warning
    "AudioNoBlock",        // speakers without audio
    "AudioTwoDescriptors", // audio without speakers
    "ExtStandard2",        // a maker without a full name
    "ExtStandard_3",       // an interlaced timing, an audio format without a name
    "TimingsCompare",      // no extension block
};

// Elements with a line feed between them, as the stored texts have them.
std::string JoinElements(const CTexts& asElements)
{
    std::string sText;
    for (const std::string& sElement : asElements)
    {
        sText += sElement + "\n";
    }
    return sText.substr(0, sText.size() - 1);
}

CBytes GetImage(const std::string& sName)
{
    const auto oFound = std::find_if(std::begin(gsc_aoEdidTestImages), std::end(gsc_aoEdidTestImages),
                                     [&](const SNamedEdidImage& oImage) { return sName == oImage.m_pszName; });
    return ToBytes(*oFound->m_paui8Image);
}

TEST(GoldenReport, EveryStoredReport)
{
    const std::filesystem::path oFolder = ZOREDID_GOLDEN_DIR;
    const bool bUpdate = getenv("ZOREDID_UPDATE_GOLDEN") != nullptr; // set by scripts/update-golden
    for (const char* pszName : gsc_apszStored)
    {
        for (const SFormat& oFormat : gsc_aoFormats)
        {
            const std::filesystem::path oPath = oFolder / (std::string(pszName) + "." + oFormat.m_pszName + ".txt");
            const std::string sText = JoinElements(GetReport(oFormat.m_eType, GetImage(pszName)));
            if (bUpdate)
            {
                ASSERT_TRUE(std::ofstream(oPath, std::ios::binary) << sText) << oPath;
            }
            const CBytes aui8Stored = ReadBytes(oPath);
            EXPECT_EQ(std::string(aui8Stored.begin(), aui8Stored.end()), sText) << oPath;
        }
    }
    const std::filesystem::directory_iterator oFiles(oFolder);
    EXPECT_EQ(24, std::distance(begin(oFiles), end(oFiles))) << "a file that belongs to no image";
}

// The long prefix is one of the lines that are replaced, and too long for any storage inside the element.
TEST(Report, PrefixStandsAheadOfEachElementOfEveryImage)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        const CBytes aui8Image = ToBytes(*oImage.m_paui8Image);
        for (const SFormat& oFormat : gsc_aoFormats)
        {
            for (const std::string& sPrefix : { std::string("  "), "%d" + std::string(100, '>') })
            {
                CTexts asExpected = GetReport(oFormat.m_eType, aui8Image);
                for (std::string& sElement : asExpected)
                {
                    sElement.insert(0, sPrefix);
                }
                CMArrayString oLines;
                oLines.Add(CMString(sPrefix.c_str()));
                EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(oFormat.m_eType, *Load(aui8Image), oLines, oLines[0]));
                EXPECT_EQ(asExpected, GetElements(oLines)) << oImage.m_pszName << oFormat.m_pszName;
            }
        }
    }
}
}
