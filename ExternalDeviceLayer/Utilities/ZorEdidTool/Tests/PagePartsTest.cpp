// The page: text that stays text, numbers, and the places of points in its drawings, worked out by hand.

#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "CapturedOutput.h"
#include "Damages.h"
#include "DisplayIdImages.h"
#include "PageAssets.h"
#include "PageParts.h"
#include "SharedFiles.h"

namespace
{
using testing::AssertionResult;

std::string Show(const std::string& sText)
{
    CHtml oHtml;
    oHtml << SText{ sText };
    return oHtml.Get();
}

TEST(PageHtml, NoTextBecomesMarkup)
{
    const std::string sReplaced = "\xEF\xBF\xBD";
    const std::pair<std::string, std::string> aoCases[] = {
        { "<b title=\"x\" a='y'>&amp;</b>", "&lt;b title=&quot;x&quot; a=&#39;y&#39;&gt;&amp;amp;&lt;/b&gt;" },
        { std::string("a\0b\n\x1F\x7F", 6), "a" + sReplaced + "b" + sReplaced + sReplaced + sReplaced },
        { "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80 ~", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80 ~" },
        // The first and last characters after each kind of lead byte.
        { "\xC2\x80\xDF\xBF\xE1\x80\x80\xEC\xBF\xBF", "\xC2\x80\xDF\xBF\xE1\x80\x80\xEC\xBF\xBF" },
        { "\xEF\xBF\xBF\xF0\x90\x80\x80\xF1\x80\x80\x80\xF3\xBF\xBF\xBF",
          "\xEF\xBF\xBF\xF0\x90\x80\x80\xF1\x80\x80\x80\xF3\xBF\xBF\xBF" },
        // A lead byte that lacks its rest takes nothing of the markup after it.
        { "\xE2\x82<\xC3<", sReplaced + sReplaced + "&lt;" + sReplaced + "&lt;" },
        { "\xC0\xBC\xC1\xBC", sReplaced + sReplaced + sReplaced + sReplaced }, // too many bytes for "<"
        { "\xE0\x9F\xBF", sReplaced + sReplaced + sReplaced },
        { "\xE0\xA0\x80", "\xE0\xA0\x80" },
        { "\xED\xA0\x80", sReplaced + sReplaced + sReplaced }, // a surrogate
        { "\xED\x9F\xBF\xEE\x80\x80", "\xED\x9F\xBF\xEE\x80\x80" },
        { "\xF0\x8F\xBF\xBF", sReplaced + sReplaced + sReplaced + sReplaced },
        { "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF" },
        { "\xF4\x90\x80\x80", sReplaced + sReplaced + sReplaced + sReplaced },
        { "\xF5\xFE\xFF\x80", sReplaced + sReplaced + sReplaced + sReplaced },
    };
    for (const auto& [sText, sHtml] : aoCases)
    {
        EXPECT_EQ(sHtml, Show(sText));
    }
    CHtml oBody;
    oBody << "<p>" << SText{ "<" } << "</p>";
    const std::string sPage = MakePage("</title><script>", oBody);
    EXPECT_NE(std::string::npos, sPage.find("<title>&lt;/title&gt;&lt;script&gt;</title>"));
    EXPECT_NE(std::string::npos, sPage.find("<body>\n<p>&lt;</p><script>"));
    EXPECT_NE(std::string::npos, sPage.find("script-src 'sha256-" + GetPageScriptHash() + "'"));
}

TEST(PageHtml, Numbers)
{
    const struct
    {
        double m_dValue;
        unsigned int m_uiDecimals;
        const char* m_pszText;
    } aoCases[] = { { 0, 2, "0" },        { 1.5, 3, "1.5" },   { 100, 0, "100" },
                    { 100, 2, "100" },    { 1.005, 1, "1" },   { -0.04, 1, "0" },
                    { -0.06, 1, "-0.1" }, { 0.25, 2, "0.25" }, { 1200.10, 2, "1200.1" } };
    for (const auto& oCase : aoCases)
    {
        CHtml oHtml;
        oHtml << SDecimal{ oCase.m_dValue, oCase.m_uiDecimals };
        EXPECT_EQ(oCase.m_pszText, oHtml.Get());
    }
    CHtml oHtml;
    EXPECT_TRUE(oHtml.IsEmpty());
    oHtml << 7U << -3 << 5000000000LL;
    EXPECT_EQ("7-35000000000", oHtml.Get());
}

// ---- Drawings ----

SPage MakePageOf(const std::vector<CBytes>& aaui8Images)
{
    const CQuietMessages oQuiet;
    SPage oPage;
    for (const CBytes& aui8Image : aaui8Images)
    {
        oPage.m_apoImages.push_back(
            std::make_unique<SPageImage>(SInput{ "folder/a<b.bin", FixChecksums(aui8Image), "raw image", "" }, 2026));
    }
    if (oPage.IsPair())
    {
        CompareImages(oPage);
    }
    return oPage;
}

// How often a text contains sPart.
size_t Count(const std::string& sText, const std::string& sPart)
{
    size_t uiCount = 0;
    for (size_t i = sText.find(sPart); i != std::string::npos; i = sText.find(sPart, i + 1))
    {
        ++uiCount;
    }
    return uiCount;
}

AssertionResult Has(const std::string& sText, const std::string& sPart)
{
    return (Count(sText, sPart) != 0 ? testing::AssertionSuccess() : testing::AssertionFailure()) << sPart;
}

// Red, green, blue and white in units of 1/1024: bits 9 to 2 from 0x1B on, the rest two by two in 0x19 and 0x1A.
using CPoints = std::array<unsigned int, 8>;
CBytes WithColours(CBytes aui8Image, const CPoints& auiPoints)
{
    aui8Image[0x19] = aui8Image[0x1A] = 0;
    for (size_t i = 0; i < auiPoints.size(); ++i)
    {
        aui8Image[0x1B + i] = static_cast<unsigned char>(auiPoints[i] >> 2);
        aui8Image[0x19 + i / 4] |= static_cast<unsigned char>((auiPoints[i] & 3) << (6 - 2 * (i % 4)));
    }
    return aui8Image;
}

std::string DescribeColoursOf(const CPoints& auiPoints)
{
    return DescribeColours(*MakePageOf({ WithColours(MakeEdid({}), auiPoints) }).m_apoImages[0]);
}

constexpr CPoints gsc_auiRight = { 512, 256, 256, 512, 256, 256, 300, 340 }; // a right triangle of 1/32
constexpr CPoints gsc_auiSrgb = { 655, 338, 307, 614, 154, 61, 320, 337 };
constexpr CPoints gsc_auiP3 = { 696, 328, 271, 707, 154, 61, 320, 337 };

TEST(PageColour, CoverageOfTheCommonTriangles)
{
    // The shares of the points of a fine grid, rounded down: 99.8 and 73.6, 100.0 and 99.9, 27.4 and 20.7.
    EXPECT_EQ("covers 99 % of sRGB and 73 % of DCI-P3 (area in x, y)", DescribeColoursOf(gsc_auiSrgb));
    EXPECT_EQ("covers 99 % of sRGB and 99 % of DCI-P3 (area in x, y)", DescribeColoursOf(gsc_auiP3));
    EXPECT_EQ("covers 27 % of sRGB and 20 % of DCI-P3 (area in x, y)", DescribeColoursOf(gsc_auiRight));
    EXPECT_EQ("covers 27 % of sRGB and 20 % of DCI-P3 (area in x, y)",
              DescribeColoursOf({ 512, 256, 256, 256, 256, 512, 320, 321 })); // the other way round
    // Red of DCI-P3 lies beyond the line between 1022/1024 on both axes.
    EXPECT_EQ("covers 100 % of sRGB and 99 % of DCI-P3 (area in x, y)",
              DescribeColoursOf({ 1022, 1, 1, 1022, 1, 1, 1, 1 }));
    EXPECT_EQ("covers 0 % of sRGB and 0 % of DCI-P3 (area in x, y)",
              DescribeColoursOf({ 1023, 1023, 900, 1023, 1023, 900, 0, 0 }));
    EXPECT_EQ("", DescribeColoursOf({ 100, 100, 200, 200, 300, 300, 320, 321 })); // a line
    EXPECT_EQ("", DescribeColoursOf({}));
}

TEST(PageColour, PointsOfTheTriangle)
{
    // A step of 1 is 500 units; x 0 is at 44, y 0.9 at 10.
    const SPage oPage = MakePageOf({ WithColours(MakeEdid({}), gsc_auiRight) });
    const std::string sHtml = MakeColours(oPage).Get();
    EXPECT_TRUE(Has(sHtml, "<path class=\"triangle own\" d=\"M294 335L169 210L169 335Z\"/>"));
    EXPECT_TRUE(Has(sHtml, "<path class=\"triangle srgb\" d=\"M364 295L194 160L119 430Z\"/>"));
    EXPECT_TRUE(Has(sHtml, "<path class=\"triangle p3\" d=\"M384 300L176.5 115L119 430Z\"/>"));
    EXPECT_TRUE(Has(sHtml, "<circle class=\"white\" cx=\"190.5\" cy=\"294\" r=\"5\"/>"));
    EXPECT_TRUE(Has(sHtml, "<th scope=\"row\">Red</th><td>0.5000</td><td>0.2500</td>"));
    EXPECT_TRUE(Has(sHtml, "<th scope=\"row\">White</th><td>0.2930</td><td>0.3320</td>"));
    // Squares near the edge of visible colours are cut by it; those far outside are left out.
    EXPECT_TRUE(Has(sHtml, "<rect x=\"194\" y=\"297.5\" width=\"13\" height=\"13\" fill=\"#fef\"")); // nearly white
    EXPECT_TRUE(Has(sHtml, "<rect x=\"44\" y=\"160\""));                                             // x 0, y 0.6
    EXPECT_EQ(0U, Count(sHtml, "<rect x=\"44\" y=\"10\""));
    EXPECT_EQ(0U, Count(sHtml, "<rect x=\"481.5\""));
    EXPECT_TRUE(MakeColours(MakePageOf({ WithColours(MakeEdid({}), {}) })).IsEmpty());
}

TEST(PageColour, OfAPairEachTriangleHasItsMark)
{
    const CBytes aui8None = WithColours(MakeEdid({}), {});
    const CBytes aui8Right = WithColours(MakeEdid({}), gsc_auiRight);
    const std::string sSecond = MakeColours(MakePageOf({ aui8None, aui8Right })).Get();
    EXPECT_EQ(0U, Count(sSecond, "triangle own\""));
    EXPECT_EQ(1U, Count(sSecond, "triangle own second\""));
    EXPECT_TRUE(Has(sSecond, "<caption>B</caption>"));
    const std::string sFirst = MakeColours(MakePageOf({ aui8Right, aui8None })).Get();
    EXPECT_EQ(1U, Count(sFirst, "triangle own\""));
    EXPECT_EQ(0U, Count(sFirst, "second"));
    EXPECT_TRUE(Has(sFirst, "<caption>A</caption>"));
}

// A monitor of one mode, 1920 x 1080 at 60 Hz, 67.5 kHz and 148.5 MHz, with range limits in Hz, kHz and tens of MHz.
CBytes WithLimits(const std::vector<unsigned char>& aui8Limits, const std::vector<CBytes>& aoBlocks = {})
{
    CBytes aui8Image = MakeEdid(aoBlocks);
    CBytes aui8Descriptor = ParseBytes("00 00 00 FD 00 00*4 11 00 0A 20*6");
    std::copy(aui8Limits.begin(), aui8Limits.end(), aui8Descriptor.begin() + 5);
    std::copy(aui8Descriptor.begin(), aui8Descriptor.end(), aui8Image.begin() + 0x48);
    return aui8Image;
}

// ---- Modes that no list of the library has ----

CBytes MakeBlock(const char* pszBytes)
{
    CBytes aui8Block = ParseBytes(pszBytes);
    aui8Block.resize(gsc_uiBlockSize);
    return FixChecksums(aui8Block);
}

CBytes DataBlock(unsigned int uiTag, const char* pszPayload) { return MakeDataBlock(uiTag, 0, ParseBytes(pszPayload)); }

// A model year, established timings III, CVT codes and range limits with the precision of CVT; two CTA-861 blocks with
// what the page has words for, and DisplayID of both versions with each type of timing and of codes.
CBytes MakeImageOfAll()
{
    const CBytes aui8Type7 = ParseBytes("9F DA 0C 88 2F 0C 81 00 07 00 1F 00 1F 08 4F 00 21 00 07 00"); // 3120 x 2080
    CBytes aui8Image = MakeEdid({
        MakeBlock("02 03 43 00 47 90 04 16 75 DA 05 C2 6B 03 0C 00 10 00 80 2D 20 00 20 01 67 D8 5D C4 01 78 00 00"
                  " E3 05 FF 81 E6 06 0F 01 60 60 12 E2 0E 61 E2 0F 01 E5 01 8B 84 90 01 EB 01 46 D0 00 24 00 00 00 00"
                  " 00 00 00"),
        MakeBlock("02 03 0E 00 E9 79 00 00 01 78 00 00 00 00 00 00"),
        MakeDisplayIdBlock(Join({
            DataBlock(0x01, "00 00 00 00 00 0A A0 05 00*4"),
            MakeDataBlock(0x03, 0, Type1Record1080p()),
            MakeDataBlock(0x04, 0, Type2Record720p()),
            DataBlock(0x05, "04 EF 3B"),
            DataBlock(0x11, "00 00 FF 09 9F 05 77"),
            DataBlock(0x13, "B3 43 02 FF 0A 9F 05 1F 07 10 1F 50 03 04"),
        })),
        MakeDisplayIdBlock(Join({
                               MakeDataBlock(0x22, 0, aui8Type7),
                               MakeDataBlock(0x23, 0x00, { 0x52 }),
                               MakeDataBlock(0x23, 0x40, { 0x76 }),
                               MakeDataBlock(0x23, 0x80, { 0x04 }),
                               DataBlock(0x24, "07 FF 13 6F 08 3B"), // by a formula that is not defined
                               DataBlock(0x2A, "01 6F 0D 9F 05 77"),
                           }),
                           UINT_MAX, 0x20),
    });
    return WithDamages(aui8Image, { { 0x10, "FF 20" },
                                    { 0x26, "D1 C0" },
                                    { 0x48, "00 00 00 FD 00 38 4B 1E 53 11 04 10 00 00 00 00 00 00" },
                                    { 0x5A, "00 00 00 F7 00 0A 80 00*11" },
                                    { 0x6C, "00 00 00 F8 00 01 1C 41 28 00*9" } });
}

TEST(PageModes, StandInTheTableThePicturesAndThePlots)
{
    const SPage oPage = MakePageOf({ MakeImageOfAll() });
    std::vector<std::string> asModes;
    for (const SModeRow& oRow : oPage.m_apoImages[0]->m_oModes.GetRows())
    {
        if (!oRow.IsListed())
        {
            asModes.push_back(GetModeTitle(oRow.m_oMode) + (oRow.m_oMode.m_bTiming ? "" : " bare"));
        }
    }
    // The codes 16 and 4, and Types I and II are modes that the library lists.
    EXPECT_EQ((std::vector<std::string>{
                  "640 \u00D7 350 at 85.08 Hz",
                  "2808 \u00D7 2106 at 59.97 Hz",
                  "720 \u00D7 576i at 50 Hz (fields)",
                  "3840 \u00D7 2160 at 100 Hz",
                  "4096 \u00D7 2160 at 100 Hz",
                  "7680 \u00D7 4320 at 24 Hz",
                  "7680 \u00D7 4320 at 23.98 Hz",
                  "1920 \u00D7 1080 at 59.96 Hz",
                  "2560 \u00D7 1440 at 120 Hz",
                  "2816 \u00D7 1440 at 34.26 Hz",
                  "3120 \u00D7 2080 at 120 Hz",
                  "1920 \u00D7 1080 at 60 Hz",
                  "3840 \u00D7 2160 at 120 Hz",
                  "3840 \u00D7 2160 at 119.88 Hz",
                  "4096 \u00D7 2160 at 24 Hz",
                  "5120 \u00D7 2160 at 60 Hz bare",
                  "3440 \u00D7 1440 at 119.99 Hz",
              }),
              asModes);
    const std::string sTable = MakeTimings(oPage).Get();
    EXPECT_TRUE(Has(sTable, "<td>Established timings III</td>"));
    EXPECT_TRUE(Has(sTable, "<td>Short video descriptor 3, VIC 117</td>"));
    EXPECT_TRUE(Has(sTable, "<td>Type VII timing"));
    // 3120 + 8, 32 and 90 pixels; 2080 + 34, 8 and 38 lines; 842.4 MHz.
    EXPECT_TRUE(Has(sTable, "Modeline &quot;3120x2080_120&quot; 842.40 3120 3128 3160 3250 2080 2114 2122 2160 -hsync "
                            "-vsync"));
    EXPECT_TRUE(Has(sTable, "viewBox=\"0 0 3250 2160\""));
    EXPECT_TRUE(Has(sTable, "<p>The image says no more of it than size and rate.</p>"));
    const std::string sPlots = MakeModePlots(oPage).Get();
    EXPECT_TRUE(Has(sPlots, "<li>259.2 kHz, 120 Hz: 3120 \u00D7 2080 at 120 Hz (outside the range limits)</li>"));
    EXPECT_TRUE(Has(sPlots, "<li>4096 pixels, 100 Hz: 4096 \u00D7 2160 at 100 Hz (outside the range limits)</li>"));
    EXPECT_TRUE(Has(sPlots, "<li>The line rate is not given: 5120 \u00D7 2160 at 60 Hz"));
    // Bytes DAh and C2h mean VIC 218 and 194, which the library takes for 90 and 66.
    EXPECT_TRUE(Has(sTable, "VIC 218, the list takes byte da for VIC 90"));
    EXPECT_EQ(0U, Count(sPlots, "2560 \u00D7 1080"));
}

// The plot is 554 by 326 units from its lower left corner at 56, 350 on.
TEST(PagePlots, PointsLieToScale)
{
    SPage oPage = MakePageOf({ MakeEdid({}) });
    const std::string sHtml = MakeModePlots(oPage).Get();
    // Widths up to 2000, rates from 54 to 64.
    EXPECT_TRUE(Has(sHtml,
                    "<circle class=\"mode preferred\" cx=\"587.8\" cy=\"154.4\" r=\"7\"><title>1920 \u00D7 1080 at "
                    "60 Hz (preferred)</title>"));
    EXPECT_TRUE(Has(sHtml, "<text x=\"194.5\" y=\"368\" text-anchor=\"middle\">500</text>"));
    EXPECT_TRUE(Has(sHtml, "<text x=\"610\" y=\"368\" text-anchor=\"middle\">2000</text>"));
    EXPECT_TRUE(Has(sHtml, "<text x=\"48\" y=\"354\" text-anchor=\"end\">54</text>"));
    EXPECT_TRUE(Has(sHtml, "<text x=\"48\" y=\"28\" text-anchor=\"end\">64</text>"));
    // Line rates up to 80.
    EXPECT_TRUE(Has(sHtml, "cx=\"523.4\" cy=\"154.4\" r=\"7\""));
    EXPECT_TRUE(Has(sHtml, "<li>67.5 kHz, 60 Hz: 1920 \u00D7 1080 at 60 Hz (preferred)</li>"));
    EXPECT_EQ(2U, Count(sHtml, "<circle class=\"mode"));
    EXPECT_EQ(0U, Count(sHtml, "limits"));
}

TEST(PagePlots, LimitsAreABandOrABox)
{
    // 56 to 75 Hz and 30 to 83 kHz: rates from 50 to 80, line rates up to 100.
    SPage oPage = MakePageOf({ WithLimits({ 56, 75, 30, 83 }) });
    const std::string sHtml = MakeModePlots(oPage).Get();
    EXPECT_TRUE(Has(sHtml, "<rect class=\"limits band\" x=\"56\" y=\"78.3\" width=\"554\" height=\"206.5\"/>"));
    EXPECT_TRUE(Has(sHtml, "<path class=\"limits\" d=\"M56 284.8H610\"/>"));
    EXPECT_TRUE(Has(sHtml, "<rect class=\"limits\" x=\"222.2\" y=\"78.3\" width=\"293.6\" height=\"206.5\"/>"));
    EXPECT_TRUE(Has(sHtml, " Range limits: 56 to 75 Hz, 30 to 83 kHz, clocks up to 170 MHz."));
    EXPECT_EQ(0U, Count(sHtml, "mode preferred outside"));

    // What lies less than a unit beyond is within the limits, but for the clock.
    const struct
    {
        std::vector<unsigned char> m_aui8Limits;
        size_t m_uiOutside; // in both plots, or in none
    } aoCases[] = { { { 56, 75, 30, 67 }, 0 },    { { 56, 75, 30, 66 }, 2 }, { { 56, 75, 68, 90 }, 0 },
                    { { 56, 75, 69, 90 }, 2 },    { { 61, 75, 30, 83 }, 2 }, { { 50, 59, 30, 83 }, 2 },
                    { { 60, 60, 30, 83 }, 0 },    { { 75, 56, 30, 83 }, 0 }, { { 56, 75, 30, 83, 15 }, 0 },
                    { { 56, 75, 30, 83, 14 }, 2 } }; // 75 to 56 Hz are not limits
    for (const auto& oCase : aoCases)
    {
        SPage oNext = MakePageOf({ WithLimits(oCase.m_aui8Limits) });
        EXPECT_EQ(oCase.m_uiOutside, Count(MakeModePlots(oNext).Get(), "class=\"mode preferred outside\""))
            << static_cast<int>(oCase.m_aui8Limits[0]) << ' ' << static_cast<int>(oCase.m_aui8Limits[3]);
    }
}

TEST(PagePlots, LimitsAreThoseOfTheHead)
{
    // 25.18 to 600 MHz, 30 to 160 kHz, 48 to 144 Hz; the timing has 60 Hz, the base block 61 to 75 Hz.
    const CBytes aui8Range = MakeDataBlock(9, 0, ParseBytes("D5 09 00 5F EA 00 1E A0 00 00 30 90 00 00 00"));
    const std::vector<unsigned char> aui8Limits = { 61, 75, 30, 83 };
    const std::pair<CBytes, const char*> aoCases[] = {
        { WithLimits(aui8Limits, { MakeDisplayIdBlock(aui8Range) }),
          "Range limits: 48 to 144 Hz, 30 to 160 kHz, clocks up to 600 MHz (those of DisplayID; findings go by the "
          "base block, which has others)." },
        { MakeEdid({ MakeDisplayIdBlock(aui8Range) }),
          "Range limits: 48 to 144 Hz, 30 to 160 kHz, clocks up to 600 MHz." },
    };
    for (const auto& [aui8Image, pszLimits] : aoCases)
    {
        const SPage oPage = MakePageOf({ aui8Image });
        const std::string sHtml = MakeModePlots(oPage).Get();
        EXPECT_TRUE(Has(sHtml, pszLimits));
        EXPECT_EQ(0U, Count(sHtml, "mode preferred outside"));
        EXPECT_TRUE(Has(MakeHead(oPage).Get(), "<dd>48 to 144 Hz, 30 to 160 kHz, clock to 600 MHz"));
    }
}

TEST(PagePlots, OfAPairPointsSayWhoseTheyAre)
{
    SPage oPage =
        MakePageOf({ MakeEdid({}), MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(4, 0, Type2Record720p())) }) });
    const std::string sHtml = MakeModePlots(oPage).Get();
    EXPECT_EQ(2U, Count(sHtml, "<circle class=\"mode preferred\" "));
    EXPECT_EQ(2U, Count(sHtml, "<circle class=\"mode second\" "));
    EXPECT_TRUE(Has(sHtml, "<title>1280 \u00D7 720 at 60.07 Hz only in B</title>"));
    EXPECT_EQ((std::vector<size_t>{ 0, gsc_uiNoPartner }), oPage.GetDiff().GetPairs().m_aauiPartners[1]);
}

TEST(PageTimings, RatesAndPicturesOfAnInterlacedMode)
{
    // 1080i at 60 fields a second.
    CBytes aui8Image = MakeEdid({});
    const CBytes aui8Timing = ParseBytes("01 1D 80 18 71 1C 16 20 58 2C 25 00 09 25 21 00 00 9E");
    std::copy(aui8Timing.begin(), aui8Timing.end(), aui8Image.begin() + 0x36);
    const SPage oPage = MakePageOf({ aui8Image });
    EXPECT_EQ("1920 \u00D7 1080i at 60 Hz (fields)",
              GetModeTitle(oPage.m_apoImages[0]->m_oModes.GetRows().at(0).m_oMode));
    const std::string sHtml = MakeTimings(oPage).Get();
    // Sync and back porch come before the active pixels: 44 + 148, and 2 x 5 and the 31 lines that are left of 1125.
    EXPECT_TRUE(Has(sHtml, "Modeline &quot;1920x1080i_60&quot; 74.25 1920 ")); // fields here, too
    EXPECT_TRUE(Has(sHtml, "viewBox=\"0 0 2200 1125\""));
    EXPECT_TRUE(Has(sHtml, "<rect class=\"active\" x=\"192\" y=\"41\" width=\"1920\" height=\"1080\"/>"));
    EXPECT_TRUE(Has(sHtml, "<rect class=\"sync\" x=\"0\" y=\"0\" width=\"44\" height=\"1125\"/>"));
    EXPECT_TRUE(Has(sHtml, "<rect class=\"sync\" x=\"0\" y=\"0\" width=\"2200\" height=\"10\"/>"));
    // 44 pixels of 74.25 MHz, and 10 lines of 2200.
    EXPECT_TRUE(Has(sHtml, "Sync</th><td>44</td><td>0.593</td><td>10</td><td>296.296</td>"));
    EXPECT_TRUE(Has(sHtml, "<td data-v=\"60\">60</td><td data-v=\"74.25\">74.250</td><td data-v=\"33.75\">33.75</td>"));
}

// The words themselves are those of `show`; here is what the page makes of them.
TEST(PageHead, FactsInWords)
{
    const CBytes aui8Monitor = ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin");
    // Display parameters of DisplayID: 2560 x 1440 pixels.
    const CBytes aui8Parameters = MakeDisplayIdBlock(MakeDataBlock(1, 0, ParseBytes("00 00 00 00 00 0A A0 05 ..12")));
    const CBytes aui8Other = WithChange(MakeEdid({ aui8Parameters }), 0x18, 0);
    const struct
    {
        CBytes m_aui8Image;
        const char* m_pszFact;
        const char* m_pszWords;
    } aoCases[] = {
        { aui8Monitor, "Size", "27.0 in, 598 \u00D7 336 mm" },
        { aui8Monitor, "Product", "ASUS VE276, product 0x27f4, serial A8LMTF145791" },
        { aui8Monitor, "Image", "256 bytes: Base block, CTA-861" },
        { aui8Monitor, "Preferred mode", "1920 \u00D7 1080 at 60 Hz" },
        { aui8Monitor, "Native", "1920 \u00D7 1080 at 60 Hz" },
        { aui8Monitor, "HDR", "not announced" },
        { WithDamages(aui8Monitor, { { 0x6C, "00 00 00 10" } }), "Product",
          "product 0x27f4, serial A8LMTF145791" }, // no name
        { aui8Other, "Native", "2560 \u00D7 1440 pixels" },
        { aui8Other, "HDR", "not announced" },            // without a CTA-861 block, too
        { WithChange(aui8Other, 0x7E, 0), "Native", "" }, // what follows the announced blocks is not part of the image
    };
    for (const auto& oCase : aoCases)
    {
        const std::string sHtml = MakeHead(MakePageOf({ oCase.m_aui8Image })).Get();
        const std::string sFact = std::string("<dt>") + oCase.m_pszFact + "</dt><dd>";
        const std::string sWords = oCase.m_pszWords;
        EXPECT_EQ(sWords.empty() ? 0U : 1U, Count(sHtml, sFact)) << sFact;
        EXPECT_TRUE(sWords.empty() || Has(sHtml, sFact + sWords + "</dd>"));
    }
    // Beside a sheet of 210 x 297 mm, which is two heights of text (808 / 26 mm) away.
    const std::string sHtml = MakeHead(MakePageOf({ aui8Monitor })).Get();
    EXPECT_TRUE(Has(sHtml, "viewBox=\"-2 -2 874.2 340\""));
    EXPECT_TRUE(Has(sHtml, "<rect x=\"0\" y=\"0\" width=\"598\" height=\"336\" rx=\"3\"/><path d=\"M0 336L598 0\"/>"));
    EXPECT_TRUE(Has(sHtml, "<rect x=\"660.2\" y=\"39\" width=\"210\" height=\"297\" rx=\"3\"/>"));
    EXPECT_TRUE(Has(sHtml, "27.0 in, 598 \u00D7 336 mm."));
}

// 720 x 400 at 70 Hz has 31.5 kHz; the library's list makes up 29 kHz.
TEST(PageTimings, NumbersAreThoseOfTheModeNotOfTheList)
{
    const CBytes aui8Image = WithDamages(WithLimits({ 56, 75, 31, 83 }), { { 0x23, "80" } });
    for (const CBytes& aui8Next : { aui8Image, WithDamages(aui8Image, { { 0, "0C" } }) }) // the second one is refused
    {
        const SPage oPage = MakePageOf({ aui8Next });
        const std::string sTable = MakeTimings(oPage).Get();
        EXPECT_TRUE(Has(sTable, ">70.08</td><td data-v=\"28.32\">28.320</td>"));
        EXPECT_EQ(oPage.m_apoImages[0]->m_oLoaded.IsLoaded() ? 1U : 0U, Count(sTable, "the list has 26.161 MHz</td>"));
        EXPECT_EQ(0U, Count(MakeModePlots(oPage).Get(), "(outside"));
    }
}

TEST(PageTimings, OfAPairEachPrefersItsOwn)
{
    CBytes aui8Second = MakeEdid({ FixChecksums(ParseBytes("02 03 07 00 42 DA DB ..128")) });
    const CBytes aui8Timing = ParseBytes("01 1D 00 72 51 D0 1E 20 6E 28 55 00 09 25 21 00 00 1E"); // 1280 x 720
    std::copy(aui8Timing.begin(), aui8Timing.end(), aui8Second.begin() + 0x36);
    const std::string sHtml = MakeTimings(MakePageOf({ MakeEdid({}), aui8Second })).Get();
    EXPECT_TRUE(Has(sHtml, "<td>preferred by A, as VIC 16/76, native</td>"));
    EXPECT_TRUE(Has(sHtml, "<td>preferred by B, as VIC 4/69, native</td>"));
    // The same timing under other numbers, which edits take.
    const CBytes aui8Moved =
        WithDamages(MakeEdid({ MakeCeaBlock() }), { { 0x23, "20" }, { 0x36, "00 00 00 10 00*14" } });
    const std::string sNumbers =
        MakeTimings(MakePageOf({ WithDamages(MakeEdid({}), { { 0x23, "A0" } }), aui8Moved })).Get();
    EXPECT_TRUE(Has(sNumbers, "> A established 1, B established 0</label></th><td>both</td>"));
    EXPECT_TRUE(Has(sNumbers, "> detailed 0</label></th><td>both</td>"));
    EXPECT_TRUE(Has(sNumbers, "> established 0</label></th><td>A</td>"));
    const std::string sSame = MakeTimings(MakePageOf({ MakeEdid({}), MakeEdid({}) })).Get();
    EXPECT_TRUE(Has(sSame, "<td>both</td>"));
    EXPECT_TRUE(Has(sSame, "<td>preferred, as VIC 16/76, native</td>"));
}

TEST(PageBytes, EachByteHasItsCell)
{
    CBytes aui8Image = MakeEdid({});
    aui8Image.resize(130, 0xAB); // a block is cut
    const std::string sHtml = MakeBytes(MakePageOf({ aui8Image })).Get();
    EXPECT_EQ(130U, Count(sHtml, "role=\"gridcell\""));
    EXPECT_EQ(1U, Count(sHtml, "id=\"a129\""));
    EXPECT_EQ(0U, Count(sHtml, "id=\"a130\""));
    EXPECT_EQ(2U, Count(sHtml, "<th scope=\"col\">0</th>"));
    EXPECT_EQ(2U, Count(sHtml, "<th scope=\"col\">f</th>"));
    EXPECT_EQ(9U, Count(sHtml, "<tr><th scope=\"row\">"));
    EXPECT_TRUE(Has(sHtml, "<tr><th scope=\"row\">80</th>"));
}

TEST(PageFindings, DifferencesStandOnceWithBothValues)
{
    CBytes aui8Second = MakeEdid({});
    aui8Second[0x0C] = 9; // serial number, 1 in the first
    aui8Second[0x11] = 90;
    const SPage oPage = MakePageOf({ MakeEdid({ MakeCeaBlock() }), aui8Second });
    const std::string sFindings = MakeFindings(oPage).Get();
    const std::string sHtml = MakeDifferences(oPage).Get();
    // Serial number, year, checksum, and all of the second block. It has two codes with partners and a
    // detailed timing; the base block has 1080p at 60 Hz, twice among these, as well.
    EXPECT_TRUE(Has(sHtml, "<p>132 bytes differ. Modes only in A: 3, only in B: 0.</p>"));
    EXPECT_TRUE(
        Has(sHtml, "<strong>1920 \u00D7 1080 at 60 Hz, 148.500 MHz</strong> <span>A: Video codes, block 1: VIC 16"));
    EXPECT_TRUE(Has(sHtml, "<span>B: announced elsewhere</span>"));
    EXPECT_TRUE(Has(sHtml, "<a href=\"#a12\">0x0c</a> <strong>identity.serial_number</strong> <span>A: 1</span> "
                           "<span>B: 9</span>"));
    EXPECT_TRUE(Has(
        sHtml, "<strong>CTA-861 extension block, block 1</strong> <span>A: present</span> <span>B: missing</span>"));
    EXPECT_EQ(0U, Count(sHtml, "erial number</strong>")); // its fact says it
    EXPECT_EQ(0U, Count(sHtml, "Video data block"));
    EXPECT_TRUE(Has(sFindings, "<a href=\"#b17\">0x11</a> <span><strong>the year is in the future</strong>: found "
                               "2080, expected at most 2026"));
    EXPECT_EQ(1U, Count(MakeFindings(MakePageOf({ MakeEdid({}) })).Get(), "The check finds nothing."));
    EXPECT_TRUE(Has(MakeDifferences(MakePageOf({ MakeEdid({}), MakeEdid({}) })).Get(),
                    "<p class=\"good\">Both say the same.</p>"));
    EXPECT_TRUE(MakeDifferences(MakePageOf({ MakeEdid({}) })).IsEmpty());
}

TEST(PageTimings, BordersLieAroundTheActivePixels)
{
    CBytes aui8Image = MakeEdid({});
    aui8Image[0x36 + 15] = 10; // pixels and lines of each side
    aui8Image[0x36 + 16] = 3;
    const std::string sHtml = MakeTimings(MakePageOf({ aui8Image })).Get();
    EXPECT_TRUE(Has(sHtml, "<rect class=\"border\" x=\"182\" y=\"38\" width=\"1940\" height=\"1086\"/>"));
    EXPECT_TRUE(Has(sHtml, "<rect class=\"active\" x=\"192\" y=\"41\" width=\"1920\" height=\"1080\"/>"));
    EXPECT_TRUE(Has(sHtml, "in the porches</th><td>10</td><td>0.067</td><td>3</td>"));
    aui8Image[0x36 + 16] = 5; // of a front porch of 4 lines
    EXPECT_TRUE(
        Has(MakeTimings(MakePageOf({ aui8Image })).Get(), "Its border is larger than a porch, so it has no picture."));
    aui8Image[0x36 + 16] = 0;
    aui8Image[0x36 + 6] = 0; // no lines of blanking for front porch and sync
    EXPECT_TRUE(Has(MakeTimings(MakePageOf({ aui8Image })).Get(),
                    "Its porches and sync do not fit in its totals, so it has no picture."));
}

TEST(PageImage, FindsWhatDiffers)
{
    CBytes aui8Second = MakeEdid({ MakeCeaBlock() });
    aui8Second[0x0C] = 9; // serial number
    const SPage oPage = MakePageOf({ MakeEdid({}), aui8Second });
    const SPageImage& oFirst = *oPage.m_apoImages[0];
    const SPageImage& oSecond = *oPage.m_apoImages[1];
    const unsigned int uiSerial = oFirst.m_oMap.FindLeaf(0x0C, 0);
    const SPageField& oSerial = oFirst.m_aoFields[uiSerial];
    EXPECT_TRUE(oSerial.m_bDiffers);
    EXPECT_EQ("9", oSerial.m_sOther);
    EXPECT_TRUE(oFirst.m_aoFields[oFirst.m_oMap.GetField(uiSerial).m_uiGroup].m_bDiffers);
    EXPECT_FALSE(oFirst.m_aoFields[oFirst.m_oMap.FindLeaf(0x08, 0)].m_bDiffers);
    EXPECT_TRUE(oSecond.m_aoFields[oSecond.m_oMap.FindLeaf(0x80, 0)].m_bOnlyHere);
    EXPECT_EQ("a<b.bin", oFirst.m_sFile);
    EXPECT_EQ(nullptr, oFirst.FindField(0x80, 0));
    EXPECT_STREQ("A", oPage.GetMark(0));
    EXPECT_STREQ("B", oPage.GetMark(1));
}
} // namespace
