// What only one of two images has: the matcher by itself, and compare and page, which must name the same modes.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "CapturedOutput.h"
#include "CommandLine.h"
#include "Damages.h"
#include "DisplayIdImages.h"
#include "EditImage.h"
#include "PageParts.h"
#include "ScratchFolder.h"
#include "SharedFiles.h"

namespace
{
// 1920 x 1080 at 60 Hz as detailed timing with this clock, "F4 39" for 148.36 MHz, or none, and video codes.
CBytes MakeImage(const char* pszClock, const char* pszCodes)
{
    const CBytes aui8Codes = ParseBytes(pszCodes);
    const auto ui8Codes = static_cast<unsigned char>(aui8Codes.size());
    CBytes aui8Block = Join({ { 2, 3, static_cast<unsigned char>(5 + ui8Codes), 0 },
                              { static_cast<unsigned char>(0x40 + ui8Codes) },
                              aui8Codes });
    aui8Block.resize(gsc_uiBlockSize);
    const bool bDetailed = *pszClock != '\0';
    return WithDamages(MakeEdid({ FixChecksums(aui8Block) }), { { 0x36, bDetailed ? pszClock : "00 00 00 10 00*14" } });
}

TEST(ModeMatch, EachModeCountsAsOftenAsItIsNamed)
{
    using CPartners = std::vector<size_t>;
    constexpr size_t uiNone = gsc_uiNoPartner;
    const char* const pszExact = "02 3A";
    const char* const pszSlower = "F4 39"; // nearly 1000/1001 of it
    // Code 16 (10h) is the same timing, and 59.94 Hz after it.
    const struct
    {
        CBytes m_aui8First;
        CBytes m_aui8Second;
        CPartners m_auiFirst;
        CPartners m_auiSecond;
    } aoCases[] = {
        { MakeImage(pszExact, "10"), MakeImage(pszExact, ""), { 0, uiNone, uiNone }, { 0 } },
        { MakeImage("", "10"), MakeImage(pszExact, ""), { 0, uiNone }, { 0 } },
        { MakeImage("", "10 10"), MakeImage("", "10"), { 0, 1, uiNone, uiNone }, { 0, 1 } },
        { MakeImage(pszSlower, "10"), MakeImage("", "10"), { uiNone, 0, 1 }, { 1, 2 } }, // of the same clock
        { MakeImage("", "10"), MakeImage(pszSlower, ""), { 0, uiNone }, { 0 } },
        { MakeImage("", "1F"), MakeImage("", "10"), { uiNone }, { uiNone, uiNone } },    // 50 Hz
        { MakeImage("", "10"), MakeImage("98 3A", ""), { uiNone, uiNone }, { uiNone } }, // 150 MHz
        { MakeImage("", "C2"), MakeImage("", "42"), { uiNone, uiNone }, { uiNone } },    // 194, and 66
        { MakeImage("", ""), MakeImage("", "1F"), {}, { uiNone } },
    };
    for (const auto& oCase : aoCases)
    {
        const CImageModes oFirst(oCase.m_aui8First, nullptr, {});
        const CImageModes oSecond(oCase.m_aui8Second, nullptr, {});
        const SModePairs oPairs = MatchModes(oFirst, oSecond);
        EXPECT_EQ(oCase.m_auiFirst, oPairs.m_aauiPartners[0]) << &oCase - aoCases;
        EXPECT_EQ(oCase.m_auiSecond, oPairs.m_aauiPartners[1]) << &oCase - aoCases;
    }
}

// Every pair of them would be looked at 100 million times.
TEST(ModeMatch, OneModeTenThousandTimesTakesNoLongTime)
{
    CBytes aui8Block = Join({ { 2, 3, 0x7E, 0 }, CBytes(122, 16) }); // VIC 16
    for (const size_t uiHeader : { 4U, 36U, 68U, 100U })
    {
        aui8Block[uiHeader] = static_cast<unsigned char>(0x40 + std::min<size_t>(0x7E - uiHeader - 1, 31));
    }
    aui8Block.resize(gsc_uiBlockSize);
    const CImageModes oModes(MakeEdid(std::vector<CBytes>(255, FixChecksums(aui8Block))), nullptr, {});
    ASSERT_LT(10000U, oModes.GetRows().size());
    const SModePairs oPairs = MatchModes(oModes, oModes);
    for (size_t i = 0; i < oModes.GetRows().size(); ++i)
    {
        ASSERT_EQ(i, oPairs.m_aauiPartners[0][i]);
    }
}

// Whose a mode is, and its size.
using CNamed = std::multiset<std::tuple<char, unsigned int, unsigned int>>;

class ComparedImages : public CScratchFolder
{
protected:
    const CQuietMessages m_oQuiet;

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

    // From lines "only in FILE: 1920 x 1080p @ 60.000 Hz ...", of which one may name two rates. The word is the start.
    CNamed ReadCompare(const std::string& sOut, const char* pszWord) const
    {
        CNamed oNamed;
        std::istringstream oLines(sOut);
        for (std::string sLine; std::getline(oLines, sLine);)
        {
            for (const char* pszName : { "A", "B" })
            {
                const std::string sHead = pszWord + (m_oFolder / pszName).string() + ": ";
                unsigned int uiWidth = 0;
                unsigned int uiHeight = 0;
                if (sLine.starts_with(sHead) &&
                    sscanf(sLine.c_str() + sHead.size(), "%u x %u", &uiWidth, &uiHeight) == 2)
                {
                    const bool bDoubled = sLine.find("each pixel sent 2 times") != std::string::npos;
                    const bool bTwo = sLine.find(", and at ") != std::string::npos;
                    for (int i = 0; i < (bTwo ? 2 : 1); ++i)
                    {
                        oNamed.emplace(*pszName, bDoubled ? uiWidth / 2 : uiWidth, uiHeight);
                    }
                }
            }
        }
        return oNamed;
    }

    // From the rows that differ; the cell of the size has the number that it is sorted by.
    static CNamed ReadPage(const std::string& sHtml)
    {
        CNamed oNamed;
        const std::string sStart = "\" class=\"differs\"><th";
        for (size_t i = sHtml.find(sStart); i != std::string::npos; i = sHtml.find(sStart, i + 1))
        {
            const std::string sIn = "</th><td>";
            const std::string sSize = "<td data-v=\"";
            const size_t uiIn = sHtml.find(sIn, i) + sIn.size();
            const unsigned long ulSize = strtoul(sHtml.c_str() + sHtml.find(sSize, uiIn) + sSize.size(), nullptr, 10);
            oNamed.emplace(sHtml.at(uiIn), static_cast<unsigned int>(ulSize / 65536),
                           static_cast<unsigned int>(ulSize % 65536));
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
        const CNamed oOnly = ReadCompare(sOut, "only in ");
        CNamed oAll = ReadCompare(sOut, "announced once more in ");
        oAll.insert(oOnly.begin(), oOnly.end());
        // Compare says a mode once that several places announce.
        EXPECT_EQ(std::set(oAll.begin(), oAll.end()), std::set(oNamed.begin(), oNamed.end()));
        EXPECT_EQ(oNamed.empty(), sOut.starts_with("same"));
        const std::string sDifferences = MakeDifferences(m_oPage).Get();
        for (const char cMark : { 'A', 'B' })
        {
            const bool bAny = std::ranges::any_of(oOnly, [=](const auto& o) { return std::get<0>(o) == cMark; });
            const std::string sNone = std::string("only in ") + cMark + (cMark == 'A' ? ": 0, " : ": 0.");
            EXPECT_EQ(bAny, sDifferences.find(sNone) == std::string::npos) << sNone;
        }
        return oNamed;
    }

    SPage m_oPage;
};

// A mode that the library does not list (VIC 117), and a code that it reads as another one: byte C2h, by CTA-861-H VIC
// 194, 7680 x 4320.
TEST_F(ComparedImages, ModesOutsideTheListsTakePart)
{
    const CBytes aui8Monitor = ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin");
    SetImage(0, aui8Monitor);
    SetImage(1, aui8Monitor);
    EXPECT_EQ(CNamed(), Compare());
    SetImage(0, MakeImage("02 3A", "10 75"));
    SetImage(1, MakeImage("02 3A", "10 C2"));
    EXPECT_EQ((CNamed{ { 'A', 3840, 2160 }, { 'B', 7680, 4320 }, { 'B', 7680, 4320 } }), Compare()); // 24 and 23.98 Hz
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
    for (const auto& [sName, aui8File] : oImages)
    {
        // What is counted, as files may hold a second EDID.
        const CBytes aui8Image(aui8File.begin(), aui8File.begin() + static_cast<std::ptrdiff_t>(std::min<size_t>(
                                                                        aui8File.size(), 128U * (aui8File[126] + 1U))));
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
