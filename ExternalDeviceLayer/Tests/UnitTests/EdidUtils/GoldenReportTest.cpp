// Reports against stored texts in golden/: whole ones of images of the self-check, and what odd bytes change in one. A
// changed text is a changed behaviour: scripts/update-golden rewrites the files, and whoever commits them reads the
// difference.

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
        for (const SFormat& oFormat : gsc_aoFormats)
        {
            ExpectStored(std::string(oImage.m_pszName) + "." + oFormat.m_pszName,
                         GetReport(oFormat.m_eType, ToBytes(*oImage.m_paui8Image)));
        }
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

struct SOddCase
{
    const char* m_pszName;
    CBytes m_aui8Image;
    const CBytes& m_aui8Base; // what it is compared with
    CZorEdidUtils::EEdidFormatType m_eType = gsc_eExtended;
};

// The elements from the first to the last that differ.
TEST(GoldenReport, WhatOddBytesChange)
{
    const CBytes aui8Asus = AsusBytes();
    const CBytes aui8Analog = AsusBytes({ { 19, 4 }, { 20, 0x25 } });
    const CBytes aui8Cea = MakeEdid({ MakeCeaBlockOf({}) });
    const CBytes aui8TwoKinds = MakeEdid({ MakeCeaBlockOf({ 0x23, 0x09, 0x07, 0x07 }), MakeFullDisplayIdBlock(),
                                           MakeCeaBlockOf({ 0x23, 0x11, 0x07, 0x50 }) });
    CBytes aui8WrongSum = aui8Asus;
    aui8WrongSum[127] ^= 1;
    std::vector<SOddCase> aoCases = {
        { "Serial number with the top bit, product of one digit, letters of zero bits, no name",
          AsusBytes({ { 8, 0 }, { 9, 0 }, { 10, 10 }, { 11, 0 }, { 15, 0xFF }, { 111, 0x10 } }), aui8Asus },
        { "Last year, letters behind the alphabet, percent in the name",
          AsusBytes({ { 8, 0xFF }, { 9, 0xFF }, { 17, 0xFF }, { 113, '%' }, { 114, 's' } }), aui8Asus },
        { "Wrong checksum", aui8WrongSum, aui8Asus },
        { "Interface nibble of an analog monitor", aui8Analog, aui8Asus },
        { "Interface nibble of revision 1.3", AsusBytes({ { 20, 0xA5 } }), aui8Asus },
        { "Interface nibble of revision 1.5", AsusBytes({ { 19, 5 }, { 20, 0xA5 } }), aui8Asus },
        { "Interface nibble of revision 2.4", AsusBytes({ { 18, 2 }, { 19, 4 }, { 20, 0xA5 } }), aui8Asus },
        { "All rates and bits: PCM has depths, AC3 a bit rate, format 9 neither",
          MakeEdid({ MakeCeaBlockOf({ 0x29, 0x0F, 0x7F, 0x07, 0x15, 0x04, 0xFF, 0x4D, 0x00, 0x03 }) }), aui8Cea },
        { "All speakers, a second entry without one", MakeEdid({ MakeCeaBlockOf({ 0x83, 0xFF, 7, 0, 0x83, 0, 0, 0 }) }),
          aui8Cea },
        { "Audio and one entry of speakers", MakeEdid({ MakeCeaBlockOf({ 0x23, 0x09, 7, 7, 0x83, 1, 0, 0 }) }),
          aui8Cea },
        { "Blocks of two kinds", aui8TwoKinds, aui8Cea },
        { "Blocks of two kinds, plain report", aui8TwoKinds, aui8Cea, gsc_ePlain },
    };
    for (unsigned char i = 0; i < 7; ++i)
    {
        aoCases.push_back({ "Next interface", AsusBytes({ { 19, 4 }, { 20, 0xA0 | i } }), aui8Analog });
    }
    CTexts asStored;
    for (const SOddCase& oCase : aoCases)
    {
        const CTexts asOdd = GetElementsAheadOfTheDump(oCase.m_eType, oCase.m_aui8Image);
        const CTexts asBase = GetElementsAheadOfTheDump(oCase.m_eType, oCase.m_aui8Base);
        const auto [oFirst, oBaseFirst] = std::mismatch(asOdd.begin(), asOdd.end(), asBase.begin(), asBase.end());
        const auto oLast = std::mismatch(asOdd.rbegin(), std::make_reverse_iterator(oFirst), asBase.rbegin(),
                                         std::make_reverse_iterator(oBaseFirst))
                               .first;
        asStored.push_back(std::string("#### ") + oCase.m_pszName);
        asStored.insert(asStored.end(), oFirst, oLast.base());
    }
    ExpectStored("odd", asStored);
    const std::filesystem::directory_iterator oFiles(ZOREDID_GOLDEN_DIR);
    EXPECT_EQ(25, std::distance(begin(oFiles), end(oFiles))) << "a file that belongs to no image";
}
}
