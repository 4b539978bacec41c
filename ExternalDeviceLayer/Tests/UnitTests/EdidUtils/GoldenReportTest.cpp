// Each report of each image of the self-check against a stored text in golden/. A changed text is a changed behaviour:
// scripts/update-golden rewrites the files, and whoever commits them reads the difference.

#include <stdlib.h>

#include <set>

#include "EdidUtilsTestHelp.h"

namespace
{
struct SGoldenVariant
{
    const char* m_pszSuffix;
    CZorEdidUtils::EEdidFormatType m_eType;
    const char* m_pszLinePrefix;
};

const SGoldenVariant gsc_aoVariants[] = {
    { "plain", CZorEdidUtils::eEdidFormatZorEdidExtractor, "" },
    { "plain.indented", CZorEdidUtils::eEdidFormatZorEdidExtractor, "  " },
    { "extended", CZorEdidUtils::eEdidFormatZorEdidExtractorExt, "" },
    { "extended.indented", CZorEdidUtils::eEdidFormatZorEdidExtractorExt, "  " },
    { "modes", CZorEdidUtils::eEdidFormatRVideoOutRes, "" },
    { "modes.indented", CZorEdidUtils::eEdidFormatRVideoOutRes, "  " },
};

// Elements with a line feed between them.
std::string Join(const CTexts& asElements)
{
    std::string sText;
    for (size_t i = 0; i < asElements.size(); ++i)
    {
        sText += (i == 0 ? "" : "\n") + asElements[i];
    }
    return sText;
}

TEST(GoldenReport, EveryReportOfEveryImage)
{
    const bool bUpdate = getenv("ZOREDID_UPDATE_GOLDEN") != nullptr; // set by scripts/update-golden
    std::set<std::string> asNames;
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        const auto poEdid = Load(*oImage.m_paui8Image);
        for (const SGoldenVariant& oVariant : gsc_aoVariants)
        {
            const std::string sName = std::string(oImage.m_pszName) + "." + oVariant.m_pszSuffix + ".txt";
            asNames.insert(sName);
            const std::filesystem::path oPath = std::filesystem::path(ZOREDID_GOLDEN_DIR) / sName;
            const std::string sText = Join(GetReport(oVariant.m_eType, *poEdid, oVariant.m_pszLinePrefix));
            if (bUpdate)
            {
                std::filesystem::create_directories(ZOREDID_GOLDEN_DIR);
                ASSERT_TRUE(std::ofstream(oPath, std::ios::binary) << sText) << oPath;
                continue;
            }
            ASSERT_TRUE(std::filesystem::exists(oPath)) << sName;
            const CBytes aui8Stored = ReadBytes(oPath);
            EXPECT_EQ(std::string(aui8Stored.begin(), aui8Stored.end()), sText) << sName;
        }
    }
    for (const auto& oEntry : std::filesystem::directory_iterator(ZOREDID_GOLDEN_DIR))
    {
        const std::string sName = oEntry.path().filename().string();
        EXPECT_EQ(1U, asNames.count(sName)) << sName << " belongs to no image";
    }
}
}
