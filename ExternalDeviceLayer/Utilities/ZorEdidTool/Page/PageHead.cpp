// The head of the page: what the monitor is, in words, and how large it is beside a sheet of paper.

#include <algorithm>
#include <iterator>

#include "FactWords.h"
#include "MapText.h"
#include "PageParts.h"
#include "TextFormat.h"

namespace
{
using CFacts = CZorEdidFacts;

constexpr double gsc_dPaperWidth = 210; // ISO 216 A4, millimetres
constexpr double gsc_dPaperHeight = 297;

// ---- Words ----

std::string DescribeProduct(const SPageImage& oImage)
{
    const CFacts::SIdentity& oIdentity = oImage.m_oFacts.GetIdentity();
    const std::string sSerial = DescribeSerial(oIdentity);
    return JoinTexts({ DescribeName(oIdentity), DescribeCode(oIdentity), sSerial.empty() ? "" : "serial " + sSerial });
}

std::string DescribeLook(const SPageImage& oImage)
{
    CFacts::SSize oShape = oImage.m_oFacts.GetSize();
    oShape.m_oNative = {}; // in a row of their own
    return WithTimes(JoinTexts({ DescribeSize(oShape), DescribeShape(oShape) }));
}

std::string DescribePreferredMode(const SPageImage& oImage)
{
    const SModeRow* poPreferred = oImage.m_oModes.FindPreferred();
    return poPreferred != nullptr ? GetModeTitle(poPreferred->m_oMode) : "";
}

// The pixels, then the modes that the image itself calls native.
std::string DescribeNative(const SPageImage& oImage)
{
    const SZorFact<CFacts::SPixels>& oNative = oImage.m_oFacts.GetSize().m_oNative;
    std::vector<std::string> asTexts;
    if (oNative.IsSaid())
    {
        asTexts.push_back(FormatText("%u \u00D7 %u pixels", oNative.m_oValue.m_uiWidth, oNative.m_oValue.m_uiHeight));
    }
    for (const SModeRow& oRow : oImage.m_oModes.GetRows())
    {
        asTexts.push_back(oRow.m_oMode.m_bNative && !oRow.m_bPartner ? GetModeTitle(oRow.m_oMode) : "");
    }
    return JoinTexts(asTexts);
}

struct SFact
{
    const char* m_pszName;
    std::string (*m_pfnDescribe)(const SPageImage&);
};

// Those without words are left out.
constexpr SFact gsc_aoFacts[] = {
    { "Maker", [](const SPageImage& oImage) { return DescribeMaker(oImage.m_oFacts.GetIdentity()); } },
    { "Product", DescribeProduct },
    { "Made", [](const SPageImage& oImage) { return DescribeDate(oImage.m_oFacts.GetIdentity()); } },
    { "Size", DescribeLook },
    { "Preferred mode", DescribePreferredMode },
    { "Native", DescribeNative },
    { "Link", [](const SPageImage& oImage) { return WithTimes(DescribeLink(oImage.m_oFacts)); } },
    { "Link features", [](const SPageImage& oImage) { return DescribeTransport(oImage.m_oFacts.GetLink()); } },
    { "Variable refresh", [](const SPageImage& oImage) { return DescribeVariableRefresh(oImage.m_oFacts); } },
    { "Range limits", [](const SPageImage& oImage) { return DescribeRanges(oImage.m_oFacts.GetLink()); } },
    { "Colour",
      [](const SPageImage& oImage) {
          return JoinTexts({ DescribeColour(oImage.m_oFacts.GetColour()), DescribeColours(oImage) }, "; ");
      } },
    { "HDR", [](const SPageImage& oImage) { return DescribeHdr(oImage.m_oFacts); } },
    { "Audio", [](const SPageImage& oImage) { return DescribeAudio(oImage.m_oFacts); } },
    { "Image", [](const SPageImage& oImage) { return DescribeBlocks(oImage.m_oMap); } },
    { "Library",
      [](const SPageImage& oImage) {
          return oImage.m_oLoaded.IsLoaded() ? "" : "refuses the image: " + oImage.m_oLoaded.GetProblem();
      } },
};

CHtml MakeFacts(const SPageImage& oImage)
{
    CHtml oHtml;
    oHtml << "<dl class=\"facts\">\n";
    for (const SFact& oFact : gsc_aoFacts)
    {
        const std::string sValue = oFact.m_pfnDescribe(oImage);
        if (!sValue.empty())
        {
            oHtml << "<div><dt>" << SText{ oFact.m_pszName } << "</dt><dd>" << SText{ sValue } << "</dd></div>\n";
        }
    }
    return oHtml << "</dl>\n";
}

// ---- Size to scale ----

// Millimetres; 0 where the image does not say them.
struct SScreen
{
    explicit SScreen(const CFacts::SSize& oSize)
        : m_dWidth(oSize.m_oSize.m_oValue.m_uiWidth / msc_dTenths),
          m_dHeight(oSize.m_oSize.m_oValue.m_uiHeight / msc_dTenths), m_sText(WithTimes(DescribeSize(oSize)))
    {
    }

    bool IsKnown() const { return m_dWidth > 0 && m_dHeight > 0; }

    static constexpr double msc_dTenths = 10;
    double m_dWidth;
    double m_dHeight;
    std::string m_sText;
};

// The picture is in millimetres. Texts keep their size on the page, whatever the monitor's.
class CSizePicture
{
public:
    explicit CSizePicture(const SPage& oPage)
    {
        for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
        {
            const SScreen oSize(oPage.m_apoImages[i]->m_oFacts.GetSize());
            if (oSize.IsKnown())
            {
                m_aoSizes.push_back({ oSize, oPage.GetMark(i) });
                m_dWidth = std::max(m_dWidth, oSize.m_dWidth);
                m_dHeight = std::max(m_dHeight, oSize.m_dHeight);
            }
        }
        m_dText = (m_dWidth + gsc_dPaperWidth) / 26;
    }

    CHtml Make() const
    {
        CHtml oHtml;
        if (m_aoSizes.empty())
        {
            return oHtml;
        }
        const double dPaperLeft = m_dWidth + 2 * m_dText;
        oHtml << "<figure class=\"size\">\n<svg role=\"img\" aria-labelledby=\"size-title size-desc\" viewBox=\"-2 -2 "
              << SDecimal{ dPaperLeft + gsc_dPaperWidth + 4, 1 } << " " << SDecimal{ m_dHeight + 4, 1 }
              << "\"><title id=\"size-title\">Size to scale</title><desc id=\"size-desc\">";
        Describe(oHtml);
        oHtml << "</desc>\n";
        for (const SMarkedSize& oSize : m_aoSizes)
        {
            Draw(oHtml, oSize);
        }
        DrawBox(oHtml << "<g class=\"paper\">", dPaperLeft, gsc_dPaperWidth, gsc_dPaperHeight);
        DrawText(oHtml, dPaperLeft + gsc_dPaperWidth / 2, m_dHeight - gsc_dPaperHeight / 2, "A4");
        oHtml << "</g>\n</svg>\n<figcaption>To scale, beside a sheet of A4 paper: ";
        for (size_t i = 0; i < m_aoSizes.size(); ++i)
        {
            oHtml << SText{ i == 0 ? "" : "; " } << SText{ m_aoSizes[i].m_pszMark }
                  << SText{ *m_aoSizes[i].m_pszMark == '\0' ? "" : " " } << SText{ m_aoSizes[i].m_oSize.m_sText };
        }
        return oHtml << ".</figcaption>\n</figure>\n";
    }

private:
    struct SMarkedSize
    {
        SScreen m_oSize;
        const char* m_pszMark;
    };

    void Describe(CHtml& oHtml) const
    {
        for (const SMarkedSize& oMarked : m_aoSizes)
        {
            oHtml << "Monitor " << SText{ oMarked.m_pszMark } << " " << SDecimal{ oMarked.m_oSize.m_dWidth, 0 }
                  << " by " << SDecimal{ oMarked.m_oSize.m_dHeight, 0 } << " mm. ";
        }
        oHtml << "Paper 210 by 297 mm.";
    }

    // Both rest on the bottom line.
    void DrawBox(CHtml& oHtml, double dLeft, double dWidth, double dHeight) const
    {
        oHtml << "<rect x=\"" << SDecimal{ dLeft, 1 } << "\" y=\"" << SDecimal{ m_dHeight - dHeight, 1 }
              << "\" width=\"" << SDecimal{ dWidth, 1 } << "\" height=\"" << SDecimal{ dHeight, 1 } << "\" rx=\"3\"/>";
    }

    void DrawText(CHtml& oHtml, double dX, double dY, const std::string& sText) const
    {
        oHtml << "<text x=\"" << SDecimal{ dX, 1 } << "\" y=\"" << SDecimal{ dY, 1 } << "\" font-size=\""
              << SDecimal{ m_dText, 1 } << "\" text-anchor=\"middle\" dominant-baseline=\"middle\">" << SText{ sText }
              << "</text>";
    }

    void Draw(CHtml& oHtml, const SMarkedSize& oMarked) const
    {
        const SScreen& oSize = oMarked.m_oSize;
        const double dTop = m_dHeight - oSize.m_dHeight;
        const bool bSecond = *oMarked.m_pszMark == 'B';
        oHtml << "<g class=\"screen" << SText{ bSecond ? " second" : "" } << "\">";
        DrawBox(oHtml, 0, oSize.m_dWidth, oSize.m_dHeight);
        oHtml << "<path d=\"M0 " << SDecimal{ m_dHeight, 1 } << "L" << SDecimal{ oSize.m_dWidth, 1 } << " "
              << SDecimal{ dTop, 1 } << "\"/>";
        // In a corner that the diagonals do not cross.
        DrawText(oHtml, bSecond ? oSize.m_dWidth - m_dText : m_dText, bSecond ? m_dHeight - m_dText : dTop + m_dText,
                 oMarked.m_pszMark);
        oHtml << "</g>\n";
    }

    std::vector<SMarkedSize> m_aoSizes;
    double m_dWidth = 0;
    double m_dHeight = gsc_dPaperHeight;
    double m_dText = 0;
};
} // namespace

CHtml MakeHead(const SPage& oPage)
{
    CHtml oHtml;
    oHtml << "<div class=\"head\">\n";
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        oHtml << "<div class=\"monitor\">\n";
        if (oPage.IsPair())
        {
            oHtml << "<h3>" << SText{ oPage.GetMark(i) } << ": " << SText{ oPage.m_apoImages[i]->m_sTitle }
                  << "</h3>\n";
        }
        oHtml << MakeFacts(*oPage.m_apoImages[i]) << "</div>\n";
    }
    return oHtml << CSizePicture(oPage).Make() << "</div>\n";
}

std::string WithTimes(std::string sText)
{
    constexpr std::string_view sPlain = " x ";
    for (size_t i = sText.find(sPlain); i != std::string::npos; i = sText.find(sPlain, i + 1))
    {
        sText.replace(i, sPlain.size(), " \u00D7 ");
    }
    return sText;
}

std::string GetModeSize(const SZorMode& oMode) { return WithTimes(GetSizeText(oMode)); }

std::string GetModeTitle(const SZorMode& oMode)
{
    const std::string sRate = GetRate(oMode) == 0 ? "" : " at " + GetShortRate(oMode) + " Hz";
    return GetModeSize(oMode) + sRate + (oMode.m_bInterlaced && !sRate.empty() ? " (fields)" : "");
}

double GetLineRate(const SZorMode& oMode)
{
    constexpr double dHzPerKiloHz = 1000;
    return !oMode.m_bTiming || oMode.m_oHorizontal.m_uiTotal == 0
               ? 0
               : static_cast<double>(oMode.m_ullClock) / oMode.m_oHorizontal.m_uiTotal / dHzPerKiloHz;
}
