// What only one of two images has: the matcher by itself, and compare and page, which must name the same modes.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "CapturedOutput.h"
#include "Damages.h"
#include "DisplayIdImages.h"
#include "EditSteps.h"
#include "PageParts.h"
#include "SharedFiles.h"

// GCC and clang have different names for it.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZOR_TEST_UNDER_ASAN 1
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define ZOR_TEST_UNDER_ASAN 1
#endif

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
        { MakeImage(pszExact, ""), MakeImage(pszSlower, "10"), { 0 }, { 0, uiNone, uiNone } }, // the preferred ones
        { MakeImage("", "1F"), MakeImage("", "10"), { uiNone }, { uiNone, uiNone } },          // 50 Hz
        { MakeImage("", "10"), MakeImage("98 3A", ""), { uiNone, uiNone }, { uiNone } },       // 150 MHz
        { MakeImage("", "C2"), MakeImage("", "42"), { uiNone, uiNone }, { uiNone } },          // 194, and 66
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

// Whose a mode is, its size, and its rate in mHz.
using CNamed = std::multiset<std::tuple<char, unsigned int, unsigned int, long>>;

class ComparedImages : public testing::Test
{
protected:
    const CQuietMessages m_oQuiet;

    // All that compare names, once or more, and both modes of a pair that differs in 4:2:0 or 3D alone.
    static CNamed ListCompared(const CImageDiff& oDiff)
    {
        CNamed oNamed;
        const auto fnAdd = [&oNamed](size_t uiImage, const SModeRow& oRow) {
            const SZorMode& oMode = oRow.m_oMode;
            oNamed.emplace("AB"[uiImage], oMode.m_uiWidth, oMode.m_uiHeight, std::lround(1000 * GetRate(oMode)));
        };
        for (const size_t i : { 0U, 1U })
        {
            for (const auto& apoRows : { oDiff.ListOnly(i), oDiff.ListMore(i) })
            {
                std::ranges::for_each(apoRows, [&](const SModeRow* poRow) { fnAdd(i, *poRow); });
            }
        }
        for (const auto& [poFirst, poSecond] : oDiff.GetFormPairs())
        {
            fnAdd(0, *poFirst);
            fnAdd(1, *poSecond);
        }
        return oNamed;
    }

    // From the rows that differ; the cells of size and rate have the numbers that they are sorted by.
    static CNamed ReadPage(const std::string& sHtml)
    {
        CNamed oNamed;
        const std::string sStart = "\" class=\"differs\"><th";
        for (size_t i = sHtml.find(sStart); i != std::string::npos; i = sHtml.find(sStart, i + 1))
        {
            const std::string sIn = "</th><td>";
            const std::string sNumber = "<td data-v=\"";
            const size_t uiIn = sHtml.find(sIn, i) + sIn.size();
            const size_t uiSize = sHtml.find(sNumber, uiIn) + sNumber.size();
            const size_t uiRate = sHtml.find(sNumber, uiSize) + sNumber.size();
            const unsigned long ulSize = strtoul(sHtml.c_str() + uiSize, nullptr, 10);
            oNamed.emplace(sHtml.at(uiIn), static_cast<unsigned int>(ulSize / 65536),
                           static_cast<unsigned int>(ulSize % 65536),
                           std::lround(1000 * strtod(sHtml.c_str() + uiRate, nullptr)));
        }
        return oNamed;
    }

    void SetImage(size_t uiImage, const CBytes& aui8Image)
    {
        m_apoImages.at(uiImage) = std::make_unique<SComparedImage>(aui8Image);
        m_oPage.m_apoImages.resize(uiImage);
        m_oPage.m_apoImages.push_back(std::make_unique<SPageImage>(SInput{ "x", aui8Image, "raw image", "" }, 2026));
    }

    // Compares the pair in both ways, and gives what they name.
    CNamed Compare()
    {
        m_oPage.m_poComparison = std::make_unique<SPageComparison>(*m_oPage.m_apoImages[0], *m_oPage.m_apoImages[1]);
        CNamed oNamed = ReadPage(MakeTimings(m_oPage).Get());
        const CImageDiff oDiff(*m_apoImages[0], *m_apoImages[1],
                               { .m_bEstablished = true, .m_bIgnorePreferred = true });
        EXPECT_EQ(ListCompared(oDiff), oNamed);
        EXPECT_EQ(oNamed.empty(), DescribeDiff(oDiff, {}).empty());
        const std::string sCounts = "Modes only in A: " + std::to_string(oDiff.ListOnly(0).size()) +
                                    ", only in B: " + std::to_string(oDiff.ListOnly(1).size()) + ".";
        EXPECT_NE(std::string::npos, MakeDifferences(m_oPage).Get().find(sCounts)) << sCounts;
        return oNamed;
    }

    SPage m_oPage;
    std::array<std::unique_ptr<SComparedImage>, 2> m_apoImages;
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
    EXPECT_EQ((CNamed{ { 'A', 3840, 2160, 100000 }, { 'B', 7680, 4320, 24000 }, { 'B', 7680, 4320, 23976 } }),
              Compare());
}

// ---- Every edit ----

using COptionValue = std::pair<std::string, std::string>;

// Each option of the command that needs no number or mode of the image. Many change no mode, but may need the room of
// one.
const COptionValue gsc_asOptionValues[] = {
    { "--serial", "5" },
    { "--preferred", "1280x720@60" },
    { "--preferred", "1024x768@75,gtf" },
    { "--color-depth", "10" },
    { "--deep-color", "30,36" },
    { "--audio-add", "ac3,6ch,48,640kbps" },
    { "--audio-set", "0=dts,6ch,48+96,1536kbps" },
    { "--audio-remove", "0" },
    { "--speakers", "FL/FR+LFE1+FC" },
    { "--repair-checksums", "" },
    { "--set", "base.detailed.pixel-clock=100 MHz" },
    { "--set", "base.standard.refresh-rate=75 Hz" },
    { "--set", "0x23.0=yes" },
    { "--name", "Projector" },
    { "--serial-text", "0123456789" },
    { "--maker", "ABC" },
    { "--product", "77" },
    { "--date", "12/2020" },
    { "--size", "600x340mm" },
    { "--range-limits", "48-75Hz,30-90kHz,200MHz" },
    { "--chromaticities", "p3" },
    { "--gamma", "2.4" },
    { "--add-mode", "1280x720@50" },
    { "--add-mode", "1920x1080i@59.94" },
    { "--add-mode", "2560x1440@144,cvt-rb2,preferred" },
    { "--add-mode", "3840x2160@120,displayid" },
    { "--add-modeline", "Modeline \"a\" 83.50 1280 1352 1480 1680 800 803 809 831 -hsync +vsync" },
    { "--add-vic", "16" },
    { "--add-vic", "117" },
    { "--add-hdr", "pq,hlg,sdr,max=600" },
    { "--colorimetry", "bt2020rgb" },
    { "--vrr", "48-144" },
    { "--frl", "6x4" },
    { "--tmds", "600" },
    { "--ycbcr420", "16,97" },
    { "--tile", "2x1,0x0,1920x2160" },
    { "--add", "base.standard=8180" },
    { "--add", "cta.type10=000000" },
    { "--remove-part", "base.name" },
    { "--remove-part", "cta" },
    { "--remove-part", "cta.video" },
    { "--remove-part", "cta.hdmi" },
    { "--remove-part", "displayid" },
    { "--move-part", "base.detailed[1]=0" },
    { "--move-part", "cta.video.descriptor[1]=0" },
};

// With those that do: each mode, each code, and the numbers that an image may have.
std::set<COptionValue> ListEdits(const CImageModes& oModes)
{
    constexpr unsigned int uiNumbers = 48;
    std::set<COptionValue> asEdits(std::begin(gsc_asOptionValues), std::end(gsc_asOptionValues));
    for (const SModeRow& oRow : oModes.GetRows())
    {
        asEdits.emplace("--remove", GetModeName(oRow.m_oMode));
        if (oRow.m_oMode.m_eKind == SZorMode::eModeKind_Vic)
        {
            asEdits.emplace("--remove-vic", std::to_string(oRow.m_oMode.m_uiCode));
        }
    }
    for (const char* pszOption : { "--remove-standard", "--remove-detailed", "--remove-established" })
    {
        for (unsigned int i = 0; i < uiNumbers; ++i)
        {
            asEdits.emplace(pszOption, std::to_string(i));
        }
    }
    return asEdits;
}

// Of each edit at each number over sixty images. An image that several edits make is compared once.
TEST_F(ComparedImages, CompareAndPageNameTheSameModesOfEachEdit)
{
#ifdef ZOR_TEST_UNDER_ASAN
    constexpr size_t uiMostImages = 20; // each takes five times as long
#else
    constexpr size_t uiMostImages = 60;
#endif
    const std::map<std::string, CBytes> oImages = ReadImages(ZOREDID_SHARED_DIR "/corpus");
    if (oImages.empty())
    {
        GTEST_SKIP() << "no further images";
    }
    size_t uiImages = 0;
    size_t uiCompared = 0;
    std::set<std::string> asDone;
    for (const auto& [sName, aui8File] : oImages)
    {
        // What is counted, as files may hold a second EDID.
        const CBytes aui8Image(aui8File.begin(), aui8File.begin() + static_cast<std::ptrdiff_t>(std::min<size_t>(
                                                                        aui8File.size(), 128U * (aui8File[126] + 1U))));
        if (uiImages++ == uiMostImages)
        {
            break;
        }
        SetImage(0, aui8Image);
        std::set<CBytes> oCompared;
        for (const auto& [sOption, sValue] : ListEdits(m_apoImages[0]->m_oModes))
        {
            SEdit oEdit = {};
            CBytes aui8Edited;
            ASSERT_EQ("", ParseOption(sOption, sValue, oEdit)) << sOption << ' ' << sValue;
            if (ApplyEdits(aui8Image, { oEdit }, aui8Edited).empty())
            {
                asDone.insert(sOption);
                if (oCompared.insert(aui8Edited).second)
                {
                    ++uiCompared;
                    SetImage(1, aui8Edited);
                    Compare();
                    ASSERT_FALSE(HasFailure()) << sName << ' ' << sOption << ' ' << sValue;
                }
            }
        }
    }
    for (const SEditOption& oOption : GetEditOptions())
    {
        EXPECT_TRUE(asDone.contains(oOption.m_pszName)) << oOption.m_pszName;
    }
    EXPECT_LT(30 * uiMostImages, uiCompared);
}
} // namespace
