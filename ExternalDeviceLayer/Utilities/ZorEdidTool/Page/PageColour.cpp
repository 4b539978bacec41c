// The colour triangle of an image on the CIE 1931 chromaticity diagram, beside those of sRGB and DCI-P3.

#include <algorithm>
#include <array>
#include <math.h>

#include "PageParts.h"
#include "TextFormat.h"

namespace
{
struct SXy
{
    double m_dX;
    double m_dY;
};

using CTriangle = std::array<SXy, 3>; // red, green, blue

constexpr CTriangle gsc_oSrgb = { { { 0.640, 0.330 }, { 0.300, 0.600 }, { 0.150, 0.060 } } };  // IEC 61966-2-1
constexpr CTriangle gsc_oDciP3 = { { { 0.680, 0.320 }, { 0.265, 0.690 }, { 0.150, 0.060 } } }; // SMPTE RP 431-2

// The spectral locus of the CIE 1931 2-degree observer, from 380 to 700 nm.
constexpr SXy gsc_aoLocus[] = {
    { 0.1741, 0.0050 }, { 0.1733, 0.0048 }, { 0.1726, 0.0048 }, { 0.1714, 0.0051 }, { 0.1689, 0.0069 },
    { 0.1644, 0.0109 }, { 0.1566, 0.0177 }, { 0.1440, 0.0297 }, { 0.1355, 0.0399 }, { 0.1241, 0.0578 },
    { 0.1096, 0.0868 }, { 0.0913, 0.1327 }, { 0.0687, 0.2007 }, { 0.0454, 0.2950 }, { 0.0235, 0.4127 },
    { 0.0082, 0.5384 }, { 0.0039, 0.6548 }, { 0.0139, 0.7502 }, { 0.0389, 0.8120 }, { 0.0743, 0.8338 },
    { 0.1142, 0.8262 }, { 0.1547, 0.8059 }, { 0.1929, 0.7816 }, { 0.2296, 0.7543 }, { 0.2658, 0.7243 },
    { 0.3016, 0.6923 }, { 0.3373, 0.6589 }, { 0.3731, 0.6245 }, { 0.4087, 0.5896 }, { 0.4441, 0.5547 },
    { 0.4788, 0.5202 }, { 0.5125, 0.4866 }, { 0.5448, 0.4544 }, { 0.5752, 0.4242 }, { 0.6029, 0.3965 },
    { 0.6270, 0.3725 }, { 0.6482, 0.3514 }, { 0.6658, 0.3340 }, { 0.6915, 0.3083 }, { 0.7079, 0.2920 },
    { 0.7190, 0.2809 }, { 0.7260, 0.2740 }, { 0.7347, 0.2653 },
};

SXy ToXy(const CZorEdidFacts::SPoint& oPoint)
{
    return { static_cast<double>(oPoint.m_fX), static_cast<double>(oPoint.m_fY) };
}

CTriangle ReadTriangle(const SPageImage& oImage)
{
    const CZorEdidFacts::SPrimaries& oPrimaries = oImage.m_oFacts.GetColour().m_oPrimaries.m_oValue;
    return { ToXy(oPrimaries.m_oRed), ToXy(oPrimaries.m_oGreen), ToXy(oPrimaries.m_oBlue) };
}

// Twice the area that lies to the left of the line from oFrom to oTo, as far as oPoint spans it.
double Cross(const SXy& oFrom, const SXy& oTo, const SXy& oPoint)
{
    return (oTo.m_dX - oFrom.m_dX) * (oPoint.m_dY - oFrom.m_dY) - (oTo.m_dY - oFrom.m_dY) * (oPoint.m_dX - oFrom.m_dX);
}

double GetArea(const std::vector<SXy>& aoPolygon)
{
    double dArea = 0;
    for (size_t i = 2; i < aoPolygon.size(); ++i)
    {
        dArea += Cross(aoPolygon[0], aoPolygon[i - 1], aoPolygon[i]) / 2;
    }
    return fabs(dArea);
}

// What of a convex polygon lies on the left of a line.
std::vector<SXy> Clip(const std::vector<SXy>& aoPolygon, const SXy& oFrom, const SXy& oTo)
{
    std::vector<SXy> aoInside;
    for (size_t i = 0; i < aoPolygon.size(); ++i)
    {
        const SXy& oPoint = aoPolygon[i];
        const SXy& oNext = aoPolygon[(i + 1) % aoPolygon.size()];
        const double dPoint = Cross(oFrom, oTo, oPoint);
        const double dNext = Cross(oFrom, oTo, oNext);
        if (dPoint >= 0)
        {
            aoInside.push_back(oPoint);
        }
        if ((dPoint >= 0) != (dNext >= 0))
        {
            const double dPart = dPoint / (dPoint - dNext);
            aoInside.push_back(
                { oPoint.m_dX + dPart * (oNext.m_dX - oPoint.m_dX), oPoint.m_dY + dPart * (oNext.m_dY - oPoint.m_dY) });
        }
    }
    return aoInside;
}

std::vector<SXy> ToPolygon(const CTriangle& oTriangle) { return { oTriangle.begin(), oTriangle.end() }; }

bool IsTriangle(const CTriangle& oTriangle)
{
    constexpr double dLeastArea = 0.001;
    return GetArea(ToPolygon(oTriangle)) > dLeastArea;
}

// How much of a colour space a triangle covers, in whole per cent of its area in x and y. 99.9 are not all of it.
double GetCoverage(const CTriangle& oTriangle, const CTriangle& oSpace)
{
    std::vector<SXy> aoShared = ToPolygon(oSpace);
    const double dTurn = Cross(oTriangle[0], oTriangle[1], oTriangle[2]);
    for (size_t i = 0; i < oTriangle.size(); ++i)
    {
        const SXy& oNext = oTriangle[(i + 1) % oTriangle.size()];
        aoShared = dTurn > 0 ? Clip(aoShared, oTriangle[i], oNext) : Clip(aoShared, oNext, oTriangle[i]);
    }
    constexpr double dRounding = 1e-9; // of the areas
    return floor(100 * GetArea(aoShared) / GetArea(ToPolygon(oSpace)) + dRounding);
}

// ---- Drawing ----

constexpr double gsc_dScale = 500; // units of the drawing for a step of 1
constexpr double gsc_dMost = 0.9;  // y; x ends at 0.8
constexpr double gsc_dLeft = 44;
constexpr double gsc_dTop = 10;

double PlaceX(double dX) { return gsc_dLeft + dX * gsc_dScale; }
double PlaceY(double dY) { return gsc_dTop + (gsc_dMost - dY) * gsc_dScale; }

void AddPath(CHtml& oHtml, const SXy* poPoints, size_t uiCount)
{
    for (size_t i = 0; i < uiCount; ++i)
    {
        oHtml << SText{ i == 0 ? "M" : "L" } << SDecimal{ PlaceX(poPoints[i].m_dX), 1 } << " "
              << SDecimal{ PlaceY(poPoints[i].m_dY), 1 };
    }
    oHtml << "Z";
}

void AddTriangle(CHtml& oHtml, const char* pszClass, const CTriangle& oTriangle)
{
    oHtml << "<path class=\"triangle " << SText{ pszClass } << "\" d=\"";
    AddPath(oHtml, oTriangle.data(), oTriangle.size());
    oHtml << "\"/>\n";
}

bool IsInLocus(double dX, double dY)
{
    bool bInside = false;
    constexpr size_t uiCount = std::size(gsc_aoLocus);
    for (size_t i = 0, j = uiCount - 1; i < uiCount; j = i++)
    {
        const SXy& oFirst = gsc_aoLocus[i];
        const SXy& oSecond = gsc_aoLocus[j];
        if ((oFirst.m_dY > dY) != (oSecond.m_dY > dY) &&
            dX < (oSecond.m_dX - oFirst.m_dX) * (dY - oFirst.m_dY) / (oSecond.m_dY - oFirst.m_dY) + oFirst.m_dX)
        {
            bInside = !bInside;
        }
    }
    return bInside;
}

// The brightest colour of a chromaticity in sRGB; what sRGB lacks is clipped.
std::string GetColour(double dX, double dY)
{
    const double dLarge = dX / dY;
    const double dSmall = (1 - dX - dY) / dY;
    double adRgb[] = { 3.2406 * dLarge - 1.5372 - 0.4986 * dSmall, -0.9689 * dLarge + 1.8758 + 0.0415 * dSmall,
                       0.0557 * dLarge - 0.2040 + 1.0570 * dSmall };
    const double dMost = std::max({ adRgb[0], adRgb[1], adRgb[2] });
    std::string sColour = "#";
    for (const double dPart : adRgb)
    {
        const double dEncoded = pow(std::clamp(dPart / dMost, 0.0, 1.0), 1 / 2.2);
        sColour += "0123456789abcdef"[lround(dEncoded * 15)];
    }
    return sColour;
}

// Squares of colour, blurred and cut to the locus.
void AddLocus(CHtml& oHtml)
{
    constexpr int iSteps = 36; // of y; a square is 0.025 wide
    constexpr double dStep = 0.025;
    CHtml oPath;
    AddPath(oPath, gsc_aoLocus, std::size(gsc_aoLocus));
    oHtml << "<defs><clipPath id=\"locus\"><path d=\"" << oPath
          << "\"/></clipPath><filter id=\"soft\"><feGaussianBlur stdDeviation=\"7\"/></filter></defs>\n"
          << "<g class=\"colours\" clip-path=\"url(#locus)\"><g filter=\"url(#soft)\">";
    CHtml aoLefts[iSteps]; // written once: most of the page's numbers would be these
    CHtml aoTops[iSteps];
    for (int i = 0; i < iSteps; ++i)
    {
        aoLefts[i] << SDecimal{ PlaceX(i * dStep), 1 };
        aoTops[i] << SDecimal{ PlaceY((i + 1) * dStep), 1 };
    }
    for (int i = 0; i < iSteps; ++i)
    {
        for (int j = 0; j < iSteps; ++j)
        {
            const double dX = (j + 0.5) * dStep;
            const double dY = (i + 0.5) * dStep;
            const bool bNear = IsInLocus(dX, dY) || IsInLocus(dX - dStep, dY) || IsInLocus(dX + dStep, dY) ||
                               IsInLocus(dX, dY - dStep) || IsInLocus(dX, dY + dStep);
            if (bNear)
            {
                oHtml << "<rect x=\"" << aoLefts[j] << "\" y=\"" << aoTops[i] << "\" width=\"13\" height=\"13\" fill=\""
                      << SText{ GetColour(dX, dY) } << "\"/>";
            }
        }
    }
    oHtml << "</g></g>\n<path class=\"locus\" d=\"" << oPath << "\"/>\n";
}

void AddAxes(CHtml& oHtml)
{
    for (int i = 0; i <= 8; i += 2)
    {
        const double dAt = i / 10.0;
        oHtml << "<path class=\"line\" d=\"M" << SDecimal{ PlaceX(dAt), 0 } << " " << SDecimal{ PlaceY(0), 0 } << "V"
              << SDecimal{ gsc_dTop, 0 } << "M" << SDecimal{ PlaceX(0), 0 } << " " << SDecimal{ PlaceY(dAt), 0 } << "H"
              << SDecimal{ PlaceX(0.8), 0 } << "\"/><text x=\"" << SDecimal{ PlaceX(dAt), 0 } << "\" y=\""
              << SDecimal{ PlaceY(0) + 18, 0 } << "\" text-anchor=\"middle\">" << SDecimal{ dAt, 1 }
              << "</text><text x=\"" << SDecimal{ PlaceX(0) - 8, 0 } << "\" y=\"" << SDecimal{ PlaceY(dAt) + 4, 0 }
              << "\" text-anchor=\"end\">" << SDecimal{ dAt, 1 } << "</text>";
    }
    oHtml << "<text x=\"" << SDecimal{ PlaceX(0.4), 0 } << "\" y=\"" << SDecimal{ PlaceY(0) + 36, 0 }
          << "\" text-anchor=\"middle\">x</text><text x=\"10\" y=\"" << SDecimal{ PlaceY(0.5), 0 } << "\">y</text>\n";
}

void AddOwnTriangle(CHtml& oHtml, const SPageImage& oImage, bool bSecond)
{
    AddTriangle(oHtml, bSecond ? "own second" : "own", ReadTriangle(oImage));
    if (oImage.m_oFacts.GetColour().m_oWhite.IsSaid())
    {
        const SXy oWhite = ToXy(oImage.m_oFacts.GetColour().m_oWhite.m_oValue);
        oHtml << "<circle class=\"white" << SText{ bSecond ? " second" : "" } << "\" cx=\""
              << SDecimal{ PlaceX(oWhite.m_dX), 1 } << "\" cy=\"" << SDecimal{ PlaceY(oWhite.m_dY), 1 }
              << "\" r=\"5\"/>\n";
    }
}

void AddPointTable(CHtml& oHtml, const SPage& oPage, size_t uiImage)
{
    constexpr const char* apszNames[] = { "Red", "Green", "Blue", "White" };
    const SPageImage& oImage = *oPage.m_apoImages[uiImage];
    oHtml << "<table class=\"points\"><caption>" << SText{ oPage.IsPair() ? oPage.GetMark(uiImage) : "Chromaticities" }
          << "</caption><thead><tr><td></td><th scope=\"col\">x</th><th scope=\"col\">y</th></tr></thead>\n<tbody>\n";
    const CTriangle oTriangle = ReadTriangle(oImage);
    std::vector<SXy> aoPoints = ToPolygon(oTriangle);
    if (oImage.m_oFacts.GetColour().m_oWhite.IsSaid())
    {
        aoPoints.push_back(ToXy(oImage.m_oFacts.GetColour().m_oWhite.m_oValue));
    }
    for (size_t i = 0; i < aoPoints.size(); ++i)
    {
        const SXy& oPoint = aoPoints[i];
        oHtml << "<tr><th scope=\"row\">" << SText{ apszNames[i] } << "</th><td>"
              << SText{ FormatText("%.4f", oPoint.m_dX) } << "</td><td>" << SText{ FormatText("%.4f", oPoint.m_dY) }
              << "</td></tr>\n";
    }
    oHtml << "</tbody></table>\n<p class=\"small\">" << SText{ DescribeColours(oImage) } << "</p>\n";
}
} // namespace

std::string DescribeColours(const SPageImage& oImage)
{
    const CTriangle oTriangle = ReadTriangle(oImage);
    if (!IsTriangle(oTriangle))
    {
        return "";
    }
    return FormatText("covers %.0f %% of sRGB and %.0f %% of DCI-P3 (area in x, y)", GetCoverage(oTriangle, gsc_oSrgb),
                      GetCoverage(oTriangle, gsc_oDciP3));
}

CHtml MakeColours(const SPage& oPage)
{
    CHtml oHtml;
    std::vector<size_t> auiShown;
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        if (IsTriangle(ReadTriangle(*oPage.m_apoImages[i])))
        {
            auiShown.push_back(i);
        }
    }
    if (auiShown.empty())
    {
        return oHtml;
    }
    oHtml << "<div class=\"colour-parts\">\n<figure class=\"cie\">\n"
          << "<svg role=\"img\" aria-labelledby=\"cie-title cie-desc\" viewBox=\"0 0 470 505\">"
          << "<title id=\"cie-title\">CIE 1931 chromaticity diagram</title><desc id=\"cie-desc\">The triangle of the "
          << "monitor beside those of sRGB and DCI-P3; the table has the points.</desc>\n";
    AddLocus(oHtml);
    AddAxes(oHtml);
    AddTriangle(oHtml, "p3", gsc_oDciP3);
    AddTriangle(oHtml, "srgb", gsc_oSrgb);
    for (const size_t uiImage : auiShown)
    {
        AddOwnTriangle(oHtml, *oPage.m_apoImages[uiImage], uiImage == 1);
    }
    oHtml << "</svg>\n</figure>\n<div>\n<ul class=\"legend\" aria-label=\"Triangles\">";
    for (const size_t uiImage : auiShown)
    {
        oHtml << "<li><span class=\"stroke own" << SText{ uiImage == 1 ? " second" : "" } << "\"></span>"
              << SText{ oPage.IsPair() ? oPage.GetMark(uiImage) : "monitor" } << "</li>";
    }
    oHtml << "<li><span class=\"stroke srgb\"></span>sRGB</li><li><span class=\"stroke p3\"></span>DCI-P3</li></ul>\n";
    for (const size_t uiImage : auiShown)
    {
        AddPointTable(oHtml, oPage, uiImage);
    }
    return oHtml << "</div>\n</div>\n";
}
