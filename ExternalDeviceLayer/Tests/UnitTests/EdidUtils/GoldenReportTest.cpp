// Reports against stored texts in golden/: whole ones of images of the self-check, and what odd bytes change in one. A
// changed text is a changed behaviour: scripts/update-golden rewrites the files, and who commits them reads the
// difference.

#include <stdlib.h>

#include "EdidUtilsTestHelp.h"

namespace
{
// Elements with a line feed between them, against a stored text.
void ExpectStored(const std::string& sName, const CTexts& asElements)
{
    const std::filesystem::path oPath = std::filesystem::path(ZOREDID_GOLDEN_DIR) / (sName + ".txt");
    std::string sText;
    for (const std::string& sElement : asElements)
    {
        sText += (&sElement == &asElements.front() ? "" : "\n") + sElement;
    }
    if (getenv("ZOREDID_UPDATE_GOLDEN") != nullptr) // set by scripts/update-golden
    {
        ASSERT_TRUE(std::ofstream(oPath, std::ios::binary) << sText) << oPath;
    }
    const CBytes aui8Stored = ReadBytes(oPath);
    EXPECT_EQ(std::string(aui8Stored.begin(), aui8Stored.end()), sText) << oPath;
}

// Each has elements that no other of them has.
constexpr SNamedEdidImage gsc_aoStored[] = {
    { "AsusHd", &AsusHd::g_auiAsusHdEdidData },                          // a maker with a full name
    { "AudioEleven", &Audio::g_auiAudioElevenEdidData },                 // eleven audio formats
    { "AudioFull", &Audio::g_auiAudioFullEdidData },                     // no audio descriptor and no warning
    { "AudioNoBlock", &Audio::g_auiAudioNoBlockEdidData },               // speakers without audio
    { "AudioTwoDescriptors", &Audio::g_auiAudioTwoDescriptorsEdidData }, // audio without speakers
    { "ExtStandard2", &ExtStandard2::g_auiStandard2EdidData },           // a maker without a full name
    { "ExtStandard_3", &ExtStandard::g_auiStandardEdidData3 },           // interlaced; an audio format without a name
    { "TimingsCompare", &TimingsCompare::g_auiTimingsCompareEdidData },  // no extension block
};

TEST(GoldenReport, WholeReports)
{
    for (const SNamedEdidImage& oImage : gsc_aoStored)
    {
        const CBytes aui8Image = ToBytes(*oImage.m_paui8Image);
        const std::string sName = oImage.m_pszName;
        ExpectStored(sName + ".plain", GetReport(gsc_ePlain, aui8Image));
        ExpectStored(sName + ".extended", GetReport(gsc_eExtended, aui8Image));
        ExpectStored(sName + ".modes", GetReport(gsc_eModes, aui8Image));
    }
}

// The report without the rows of its dump.
CTexts GetElementsAheadOfTheDump(CZorEdidUtils::EEdidFormatType eType, const CBytes& aui8Image)
{
    CTexts asElements = GetReport(eType, aui8Image);
    const auto IsDump = [](const std::string& sElement) { return sElement.find(" |") != std::string::npos; };
    asElements.erase(std::remove_if(asElements.begin(), asElements.end(), IsDump), asElements.end());
    return asElements;
}

// The elements from the first to the last that differ.
TEST(GoldenReport, WhatOddBytesChange)
{
    CTexts asStored;
    for (const SCaseRow& oRow : ReadCases("EdidUtils/golden/cases/odd.txt", 4))
    {
        const auto eType = oRow.GetText(3) == "plain" ? gsc_ePlain : gsc_eExtended;
        const CTexts asOdd = GetElementsAheadOfTheDump(eType, MakeImage(oRow.GetText(1)));
        const CTexts asBase = GetElementsAheadOfTheDump(eType, MakeImage(oRow.GetText(2)));
        const auto [oFirst, oBaseFirst] = std::mismatch(asOdd.begin(), asOdd.end(), asBase.begin(), asBase.end());
        const auto oLast = std::mismatch(asOdd.rbegin(), std::make_reverse_iterator(oFirst), asBase.rbegin(),
                                         std::make_reverse_iterator(oBaseFirst))
                               .first;
        asStored.push_back("#### " + oRow.GetName());
        asStored.insert(asStored.end(), oFirst, oLast.base());
    }
    ExpectStored("odd", asStored);
    const std::filesystem::directory_iterator oFiles(ZOREDID_GOLDEN_DIR);
    EXPECT_EQ(26, std::distance(begin(oFiles), end(oFiles))) << "a file that belongs to no image";
}
} // namespace
