// What only one of two images has: the matcher by itself, and compare and page, which must name the same modes.

#include <gtest/gtest.h>

#include <set>

#include "CommandLine.h"
#include "DisplayIdImages.h"
#include "EditImage.h"
#include "OsServices.h"
#include "PageParts.h"
#include "ScratchFolder.h"
#include "SharedFiles.h"

namespace
{
SImageMode MakeMode(CZorEdidMap::EList eList, unsigned int uiWidth, unsigned int uiClockInHz)
{
    SImageMode oMode = { eList, 0, 0, "", {} };
    oMode.m_oTiming.SetHorizontalActive(uiWidth);
    oMode.m_oTiming.SetPixelClockInHz(uiClockInHz);
    return oMode;
}

SImageMode MakeBareMode(unsigned int uiRate)
{
    SImageMode oMode = MakeMode(CZorEdidMap::eList_None, 3840, 0);
    oMode.m_bTiming = false;
    oMode.m_uiRate = uiRate;
    return oMode;
}

TEST(ModeMatch, EachModeCountsAsOftenAsItIsNamed)
{
    using CPartners = std::vector<size_t>;
    constexpr size_t uiNone = gsc_uiNoPartner;
    constexpr auto eStandard = CZorEdidMap::eList_Standard;
    constexpr auto eDetailed = CZorEdidMap::eList_Detailed;
    const SImageMode oStandard = MakeMode(eStandard, 1920, 148500000);
    const SImageMode oDetailed = MakeMode(eDetailed, 1920, 148500000);
    const SImageMode oSlower = MakeMode(eStandard, 1920, 148351648);
    SImageMode oOtherCode = oStandard;
    oOtherCode.m_uiOtherCode = 194;
    const struct
    {
        CModes m_aoFirst;
        CModes m_aoSecond;
        CPartners m_auiFirst;
        CPartners m_auiSecond;
    } aoCases[] = {
        { { oStandard, oDetailed }, { oDetailed }, { uiNone, 0 }, { 1 } }, // of the same list
        { { oStandard }, { oDetailed }, { 0 }, { 0 } },
        { { oStandard, oStandard }, { oStandard }, { 0, uiNone }, { 0 } },
        { { oSlower, oStandard }, { oStandard, oSlower }, { 1, 0 }, { 1, 0 } }, // of the same clock
        { { oSlower, oStandard }, { oDetailed }, { uiNone, 0 }, { 1 } },
        { { oSlower }, { oDetailed }, { 0 }, { 0 } }, // a 1000/1001 variant
        { { oStandard }, { MakeMode(eStandard, 1280, 148500000) }, { uiNone }, { uiNone } },
        { { oStandard }, { MakeMode(eStandard, 1920, 150000000) }, { uiNone }, { uiNone } },
        { { MakeBareMode(10000) }, { MakeBareMode(12000), MakeBareMode(10000) }, { 1 }, { uiNone, 0 } },
        { { oStandard }, { oOtherCode }, { uiNone }, { uiNone } },
        { {}, { oStandard }, {}, { uiNone } },
    };
    for (const auto& oCase : aoCases)
    {
        const SModePairs oPairs = MatchModes(oCase.m_aoFirst, oCase.m_aoSecond);
        EXPECT_EQ(oCase.m_auiFirst, oPairs.m_aauiPartners[0]) << &oCase - aoCases;
        EXPECT_EQ(oCase.m_auiSecond, oPairs.m_aauiPartners[1]) << &oCase - aoCases;
    }
}

// Whose a mode is, its size, and its clock in MHz, 0 without a timing.
using CNamed = std::multiset<std::tuple<char, unsigned int, unsigned int, double>>;

class ComparedImages : public CScratchFolder
{
protected:
    ComparedImages() { OsServices::SetMsgLevel(0, 0, 0); }

    static std::string RunCompare(std::string sFirst, std::string sSecond)
    {
        std::string asWords[] = { "zoredid", "compare", "--established", "--ignore-preferred" };
        char* apszWords[] = { asWords[0].data(), asWords[1].data(), asWords[2].data(),
                              asWords[3].data(), sFirst.data(),     sSecond.data() };
        testing::internal::CaptureStdout();
        CCommandLine oCommandLine(static_cast<int>(std::size(apszWords)), apszWords, "zoredid", "");
        STool oTool;
        oCommandLine.Subcommand("compare", "", [&](COptions& oCommand) { DeclareCompareOptions(oCommand, oTool); });
        oCommandLine.Parse([] {});
        fflush(stdout);
        return testing::internal::GetCapturedStdout();
    }

    // From lines "only in FILE: 1920 x 1080p @  60 Hz    148.500 MHz ...".
    CNamed ReadCompare(const std::string& sOut) const
    {
        CNamed oNamed;
        std::istringstream oLines(sOut);
        for (std::string sLine; std::getline(oLines, sLine);)
        {
            for (const char* pszName : { "A", "B" })
            {
                const std::string sHead = "only in " + (m_oFolder / pszName).string() + ": ";
                unsigned int uiWidth = 0;
                unsigned int uiHeight = 0;
                double dClock = 0;
                char cUnit = 0;
                const int iRead = !sLine.starts_with(sHead)
                                      ? 0
                                      : sscanf(sLine.c_str() + sHead.size(), "%u x %u%*c @ %*s Hz %lf M%c", &uiWidth,
                                               &uiHeight, &dClock, &cUnit);
                if (iRead >= 2)
                {
                    oNamed.emplace(*pszName, uiWidth, uiHeight, iRead == 4 ? dClock : 0); // "4:2:0" is no clock
                }
            }
        }
        return oNamed;
    }

    // From the rows that differ: the cells of number, size, rate and clock have the values that they are sorted by.
    static CNamed ReadPage(const std::string& sHtml)
    {
        CNamed oNamed;
        const std::string sStart = "\" class=\"differs\"><th";
        for (size_t i = sHtml.find(sStart); i != std::string::npos; i = sHtml.find(sStart, i + 1))
        {
            std::string sRow = sHtml.substr(i, sHtml.find("</tr>", i) - i);
            const char cMark = sRow.at(sRow.find("</th><td>") + 9);
            double adValues[4] = {};
            for (double& dValue : adValues)
            {
                sRow.erase(0, sRow.find("data-v=\"") + 8);
                dValue = strtod(sRow.c_str(), nullptr);
            }
            const auto uiSize = static_cast<unsigned int>(adValues[1]);
            oNamed.emplace(cMark, uiSize / 65536, uiSize % 65536, adValues[3]);
        }
        return oNamed;
    }

    void SetImage(size_t uiImage, const CBytes& aui8Image)
    {
        Write(uiImage == 0 ? "A" : "B", std::string(aui8Image.begin(), aui8Image.end()));
        m_oPage.m_apoImages.resize(uiImage);
        m_oPage.m_apoImages.push_back(std::make_unique<SPageImage>(SInput{ "x", aui8Image, "raw image", "" }, 2026));
    }

    // Runs both over the pair, and gives what they name.
    CNamed Compare()
    {
        CompareImages(m_oPage);
        CNamed oNamed = ReadPage(MakeTimings(m_oPage).Get());
        const std::string sOut = RunCompare(m_oFolder / "A", m_oFolder / "B");
        EXPECT_EQ(ReadCompare(sOut), oNamed);
        EXPECT_EQ(oNamed.empty() ? "same" : "different", sOut.substr(0, sOut.find('\n')));
        const size_t uiFirst = static_cast<size_t>(
            std::ranges::count_if(oNamed, [](const auto& oMode) { return std::get<0>(oMode) == 'A'; }));
        const std::string sCounts = "Timings only in A: " + std::to_string(uiFirst) +
                                    ", only in B: " + std::to_string(oNamed.size() - uiFirst) + ".";
        EXPECT_NE(std::string::npos, MakeDifferences(m_oPage).Get().find(sCounts)) << sCounts;
        return oNamed;
    }

    SPage m_oPage;
};

// A mode that is named twice and then once, one that the library does not list (VIC 117), and a code that it reads as
// another one: byte C2h, by CTA-861-H VIC 194, 7680 x 4320.
TEST_F(ComparedImages, ModesOutsideTheListsTakePart)
{
    const CBytes aui8Monitor = ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin");
    SetImage(0, aui8Monitor);
    SetImage(1, aui8Monitor);
    EXPECT_EQ(CNamed(), Compare());
    const auto fnWithCodes = [](const char* pszCodes) {
        return MakeEdid({ FixChecksums(Join({ ParseBytes("02 03 07 00 42"), ParseBytes(pszCodes), CBytes(121) })) });
    };
    SetImage(0, fnWithCodes("10 75"));
    SetImage(1, fnWithCodes("10 C2"));
    const CNamed oNamed = Compare();
    ASSERT_EQ(3U, oNamed.size()); // with the 1000/1001 variant of VIC 194
    EXPECT_EQ(std::pair('A', 3840U), std::pair(std::get<0>(*oNamed.begin()), std::get<1>(*oNamed.begin())));
    EXPECT_EQ(std::pair('B', 7680U), std::pair(std::get<0>(*oNamed.rbegin()), std::get<1>(*oNamed.rbegin())));
}

// Each removal at each number over sixty images.
TEST_F(ComparedImages, CompareAndPageNameTheSameModesOfEachEdit)
{
    const std::map<std::string, CBytes> oImages = ReadImages(ZOREDID_SHARED_DIR "/corpus");
    if (oImages.empty())
    {
        GTEST_SKIP() << "no further images";
    }
    size_t uiImages = 0;
    size_t uiEdits = 0;
    for (const auto& [sName, aui8Image] : oImages)
    {
        if (uiImages++ == 60)
        {
            break;
        }
        SetImage(0, aui8Image);
        for (const EEditKind eKind : { eEdit_RemoveStandard, eEdit_RemoveDetailed, eEdit_RemoveEstablished })
        {
            CEditImage oEdited;
            for (unsigned int i = 0; oEdited.Load(aui8Image) && i < 48; ++i)
            {
                if (oEdited.Apply({ eKind, "", i, {}, {} }).empty())
                {
                    ++uiEdits;
                    SetImage(1, oEdited.GetBytes());
                    Compare();
                    ASSERT_FALSE(HasFailure()) << sName << ' ' << eKind << ' ' << i;
                }
            }
        }
    }
    EXPECT_LT(500U, uiEdits);
}
} // namespace
