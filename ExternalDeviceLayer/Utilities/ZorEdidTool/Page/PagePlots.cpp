// Modes over width and refresh rate, and over line rate and refresh rate, each with the range limits as a box.

#include <limits.h>

#include <algorithm>
#include <map>
#include <math.h>
#include <optional>
#include <set>

#include "ExactTimings.h"
#include "PageParts.h"
#include "Standards/BaseBlock.h"
#include "Standards/Modes.h"
#include "TextFormat.h"

namespace
{
// Units of the drawing.
constexpr double gsc_dWidth = 640;
constexpr double gsc_dHeight = 400;
constexpr double gsc_dLeft = 56;
constexpr double gsc_dRight = 30;
constexpr double gsc_dTop = 24;
constexpr double gsc_dBottom = 50;

using CFacts = CZorEdidFacts;
using ZorStandards::Descriptors::SRangeLimits;

bool HasLineRates(const SRangeLimits& oLimits) { return oLimits.m_uiMaxHorizontalRateInKiloHz != 0; }

// Those that the head names.
std::optional<SRangeLimits> FindLimits(const CFacts& oFacts)
{
    using namespace ZorStandards;
    const CFacts::SLink& oLink = oFacts.GetLink();
    const CFacts::SRange& oRates = oLink.m_oVerticalRates.m_oValue;
    const CFacts::SRange& oLineRates = oLink.m_oHorizontalRates.m_oValue;
    if (oRates.m_uiMost == 0 || oRates.m_uiLeast > oRates.m_uiMost || oLineRates.m_uiLeast > oLineRates.m_uiMost)
    {
        return std::nullopt;
    }
    // Of both axes: a rate that DisplayID declares is never "or more".
    const bool bDescriptor = oLink.m_oVerticalRates.m_eId == eZorEdidField_BaseRangeMinVerticalRate &&
                             oLink.m_oHorizontalRates.m_eId == eZorEdidField_BaseRangeMinHorizontalRate;
    const bool bOffsets = Descriptors::HasRateOffsets(oFacts.GetIdentity().m_oRevision.m_oValue);
    const unsigned int uiClock = oLink.m_oMaxPixelClock.m_oValue;
    return SRangeLimits{ oRates.m_uiLeast,
                         oRates.m_uiMost,
                         oLineRates.m_uiLeast,
                         oLineRates.m_uiMost,
                         uiClock,
                         uiClock,
                         bDescriptor ? Descriptors::GetHighestRate(bOffsets) : UINT_MAX };
}

// Whose they are where several places declare limits. Findings and edits go by those of the base block.
std::string DescribePrecedence(const CFacts& oFacts)
{
    const auto fnIsLimits = [](CFacts::EQuestion eQuestion) {
        return eQuestion == CFacts::eQuestion_VerticalRates || eQuestion == CFacts::eQuestion_HorizontalRates ||
               eQuestion == CFacts::eQuestion_MaxPixelClock;
    };
    unsigned int i = 0;
    for (const CFacts::SConflict* poConflict = oFacts.GetConflict(0); poConflict != nullptr;
         poConflict = oFacts.GetConflict(++i))
    {
        if (fnIsLimits(poConflict->m_eQuestion))
        {
            return poConflict->m_ui16Other < ZorStandards::gsc_uiBlockSize
                       ? " (those of DisplayID; findings go by the base block, which has others)"
                       : " (the first ones; DisplayID has others, too)";
        }
    }
    return "";
}

std::string DescribeLimits(const CFacts& oFacts, const SRangeLimits& oLimits)
{
    constexpr unsigned long long ullHzPerKiloHz = 1000;
    const auto fnRange = [](unsigned int uiLeast, unsigned int uiMost, const char* pszUnit) {
        return uiLeast == uiMost ? FormatText("%u %s only", uiLeast, pszUnit)
                                 : FormatText("%u to %u %s", uiLeast, uiMost, pszUnit);
    };
    const unsigned int uiClock = oLimits.m_uiPreciseMaxPixelClockInKiloHz;
    std::string sText = fnRange(oLimits.m_uiMinVerticalRateInHz, oLimits.m_uiMaxVerticalRateInHz, "Hz");
    sText += HasLineRates(oLimits)
                 ? ", " + fnRange(oLimits.m_uiMinHorizontalRateInKiloHz, oLimits.m_uiMaxHorizontalRateInKiloHz, "kHz")
                 : "";
    sText += uiClock != 0 ? ", clocks up to " + GetMegaHertz(uiClock * ullHzPerKiloHz, 0) + " MHz" : "";
    return sText + DescribePrecedence(oFacts);
}

// Where modes lie on one another, one point.
struct SPoint
{
    double m_dX;
    double m_dY;
    std::string m_sModes;
    bool m_bPreferred = false;
    bool m_bOutside = false; // a mode is, of the limits of an image that has it
    bool m_abIn[2] = {};
};

// 1, 2 or 5 times a power of ten: the step that gives at most so many marks.
double FindStep(double dRange, double dMost)
{
    double dStep = pow(10, floor(log10(std::max(dRange, 1.0) / dMost)));
    for (const double dFactor : { 2.0, 2.5, 2.0 })
    {
        dStep *= dRange / dStep > dMost ? dFactor : 1;
    }
    return dStep;
}

class CPlot
{
public:
    CPlot(const SPage& oPage, bool bLineRate) : m_oPage(oPage), m_bLineRate(bLineRate)
    {
        for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
        {
            AddImage(i);
        }
        // Some room around the outermost ones, then whole steps.
        m_dStepX = FindStep(1.02 * m_dMostX, 6);
        m_dMostX = m_dStepX * ceil(1.02 * m_dMostX / m_dStepX);
        m_dStepY = FindStep(1.05 * m_dMostY - 0.9 * m_dLeastY, 6);
        m_dLeastY = m_dStepY * floor(0.9 * m_dLeastY / m_dStepY);
        m_dMostY = m_dStepY * ceil(1.05 * m_dMostY / m_dStepY);
    }

    CHtml Make() const
    {
        CHtml oHtml;
        const SText oKey = { m_bLineRate ? "lines" : "widths" };
        oHtml << "<figure class=\"plot\">\n<figcaption>Refresh rate in Hz over "
              << SText{ m_bLineRate ? "line rate in kHz" : "width in pixels" }
              << "</figcaption>\n<svg role=\"img\" aria-labelledby=\"" << oKey << "-title " << oKey
              << "-desc\" viewBox=\"0 0 " << SDecimal{ gsc_dWidth, 0 } << " " << SDecimal{ gsc_dHeight, 0 }
              << "\"><title id=\"" << oKey << "-title\">Modes over " << SText{ m_bLineRate ? "line rate" : "width" }
              << " and refresh rate</title><desc id=\"" << oKey << "-desc\">" << m_aoPoints.size()
              << " points, which the list below names.";
        AddLimitWords(oHtml);
        oHtml << "</desc>\n";
        AddGrid(oHtml);
        AddLimits(oHtml);
        for (const auto& [aoKey, oPoint] : m_aoPoints)
        {
            AddPoint(oHtml, oPoint);
        }
        oHtml << "</svg>\n<details><summary>The points of this plot as a list</summary><ul>\n";
        for (const auto& [aoKey, oPoint] : m_aoPoints)
        {
            oHtml << "<li>" << SDecimal{ oPoint.m_dX, 2 } << SText{ m_bLineRate ? " kHz, " : " pixels, " }
                  << SDecimal{ oPoint.m_dY, 2 } << " Hz: " << SText{ DescribePoint(oPoint) } << "</li>\n";
        }
        for (const std::string& sMode : m_asBare)
        {
            oHtml << "<li>The line rate is not given: " << SText{ sMode } << "</li>\n";
        }
        return oHtml << "</ul></details>\n</figure>\n";
    }

private:
    void AddImage(size_t uiImage)
    {
        const SPageImage& oImage = *m_oPage.m_apoImages[uiImage];
        m_aoLimits[uiImage] = FindLimits(oImage.m_oFacts);
        if (m_aoLimits[uiImage].has_value())
        {
            const SRangeLimits& oLimits = *m_aoLimits[uiImage];
            m_dMostY = std::max<double>(m_dMostY, oLimits.m_uiMaxVerticalRateInHz);
            m_dLeastY = std::min<double>(m_dLeastY, oLimits.m_uiMinVerticalRateInHz);
            m_dMostX = std::max<double>(m_dMostX, m_bLineRate ? oLimits.m_uiMaxHorizontalRateInKiloHz : 0);
        }
        for (const SModeRow& oRow : oImage.m_oModes.GetRows())
        {
            AddMode(oRow, uiImage);
        }
    }

    void AddMode(const SModeRow& oRow, size_t uiImage)
    {
        const SZorMode& oMode = oRow.m_oMode;
        const bool bOutside =
            m_aoLimits[uiImage].has_value() && ZorStandards::FindBreaches(oMode, *m_aoLimits[uiImage]) != 0;
        const std::string sMode = GetModeTitle(oMode) + (bOutside ? " (outside the range limits)" : "");
        if (m_bLineRate && !oMode.m_bTiming)
        {
            m_asBare.insert(sMode);
            return;
        }
        const double dX = m_bLineRate ? GetLineRate(oMode) : oMode.m_uiWidth;
        const double dY = GetRate(oMode);
        SPoint& oPoint = m_aoPoints.try_emplace({ lround(dX), lround(dY) }, SPoint{ dX, dY, "" }).first->second;
        if (oPoint.m_sModes.find(sMode) == std::string::npos)
        {
            oPoint.m_sModes += (oPoint.m_sModes.empty() ? "" : ", ") + sMode;
        }
        oPoint.m_bPreferred = oPoint.m_bPreferred || oRow.IsPreferred();
        oPoint.m_bOutside = oPoint.m_bOutside || bOutside;
        oPoint.m_abIn[uiImage] = true;
        m_dMostX = std::max(m_dMostX, dX);
        m_dMostY = std::max(m_dMostY, dY);
        m_dLeastY = std::min(m_dLeastY, dY);
    }

    double PlaceX(double dX) const { return gsc_dLeft + dX / m_dMostX * (gsc_dWidth - gsc_dLeft - gsc_dRight); }
    double PlaceY(double dY) const
    {
        return gsc_dHeight - gsc_dBottom -
               (dY - m_dLeastY) / (m_dMostY - m_dLeastY) * (gsc_dHeight - gsc_dTop - gsc_dBottom);
    }

    static void AddLine(CHtml& oHtml, double dX1, double dY1, double dX2, double dY2)
    {
        oHtml << "<path class=\"line\" d=\"M" << SDecimal{ dX1, 1 } << " " << SDecimal{ dY1, 1 } << "L"
              << SDecimal{ dX2, 1 } << " " << SDecimal{ dY2, 1 } << "\"/>";
    }

    static void AddText(CHtml& oHtml, double dX, double dY, SMarkup oAnchor, const std::string& sText)
    {
        oHtml << "<text x=\"" << SDecimal{ dX, 1 } << "\" y=\"" << SDecimal{ dY, 1 } << "\" text-anchor=\"" << oAnchor
              << "\">" << SText{ sText } << "</text>";
    }

    void AddGrid(CHtml& oHtml) const
    {
        const double dFloor = PlaceY(m_dLeastY);
        for (int i = 0; i <= lround(m_dMostX / m_dStepX); ++i)
        {
            const double dX = i * m_dStepX;
            AddLine(oHtml, PlaceX(dX), gsc_dTop, PlaceX(dX), dFloor);
            AddText(oHtml, PlaceX(dX), dFloor + 18, "middle", FormatText("%.0f", dX));
        }
        for (int i = 0; i <= lround((m_dMostY - m_dLeastY) / m_dStepY); ++i)
        {
            const double dY = m_dLeastY + i * m_dStepY;
            AddLine(oHtml, gsc_dLeft, PlaceY(dY), gsc_dWidth - gsc_dRight, PlaceY(dY));
            AddText(oHtml, gsc_dLeft - 8, PlaceY(dY) + 4, "end", FormatText("%.0f", dY));
        }
        AddText(oHtml, (gsc_dLeft + gsc_dWidth - gsc_dRight) / 2, gsc_dHeight - 8, "middle",
                m_bLineRate ? "line rate, kHz" : "width, pixels");
        oHtml << "<text class=\"axis\" transform=\"translate(14 " << SDecimal{ (gsc_dTop + dFloor) / 2, 1 }
              << ") rotate(-90)\" text-anchor=\"middle\">refresh rate, Hz</text>\n";
    }

    // Width has no limit: there it is a band over all of it, without sides. A range of one value keeps some height.
    void AddLimits(CHtml& oHtml) const
    {
        for (size_t i = 0; i < 2; ++i)
        {
            if (!m_aoLimits[i].has_value())
            {
                continue;
            }
            const SRangeLimits& oLimits = *m_aoLimits[i];
            if (m_bLineRate && !HasLineRates(oLimits))
            {
                continue;
            }
            const SSpan oX = m_bLineRate ? Widen(PlaceX(oLimits.m_uiMinHorizontalRateInKiloHz),
                                                 PlaceX(oLimits.m_uiMaxHorizontalRateInKiloHz))
                                         : SSpan{ gsc_dLeft, gsc_dWidth - gsc_dRight };
            const SSpan oY = Widen(PlaceY(oLimits.m_uiMaxVerticalRateInHz), PlaceY(oLimits.m_uiMinVerticalRateInHz));
            const SText oSecond = { i == 0 ? "" : " second" };
            oHtml << "<rect class=\"limits" << SText{ m_bLineRate ? "" : " band" } << oSecond << "\" x=\""
                  << SDecimal{ oX.m_dFrom, 1 } << "\" y=\"" << SDecimal{ oY.m_dFrom, 1 } << "\" width=\""
                  << SDecimal{ oX.m_dTo - oX.m_dFrom, 1 } << "\" height=\"" << SDecimal{ oY.m_dTo - oY.m_dFrom, 1 }
                  << "\"/>";
            for (const double dEdge : { oY.m_dFrom, oY.m_dTo })
            {
                if (!m_bLineRate)
                {
                    oHtml << "<path class=\"limits" << oSecond << "\" d=\"M" << SDecimal{ oX.m_dFrom, 1 } << " "
                          << SDecimal{ dEdge, 1 } << "H" << SDecimal{ oX.m_dTo, 1 } << "\"/>";
                }
            }
        }
    }

    struct SSpan
    {
        double m_dFrom;
        double m_dTo;
    };

    static SSpan Widen(double dFrom, double dTo)
    {
        constexpr double dLeast = 8;
        const double dMissing = std::max(dLeast - (dTo - dFrom), 0.0);
        return { dFrom - dMissing / 2, dTo + dMissing / 2 };
    }

    void AddLimitWords(CHtml& oHtml) const
    {
        for (size_t i = 0; i < 2; ++i)
        {
            if (m_aoLimits[i].has_value())
            {
                oHtml << " Range limits" << SText{ m_oPage.IsPair() ? " of " : "" } << SText{ m_oPage.GetMark(i) }
                      << ": " << SText{ DescribeLimits(m_oPage.m_apoImages[i]->m_oFacts, *m_aoLimits[i]) } << ".";
            }
        }
    }

    void AddPoint(CHtml& oHtml, const SPoint& oPoint) const
    {
        const bool bOne = m_oPage.IsPair() && oPoint.m_abIn[0] != oPoint.m_abIn[1];
        oHtml << "<circle class=\"mode" << SText{ oPoint.m_bPreferred ? " preferred" : "" }
              << SText{ oPoint.m_bOutside ? " outside" : "" } << SText{ bOne && oPoint.m_abIn[0] ? " first" : "" }
              << SText{ bOne && oPoint.m_abIn[1] ? " second" : "" } << "\" cx=\"" << SDecimal{ PlaceX(oPoint.m_dX), 1 }
              << "\" cy=\"" << SDecimal{ PlaceY(oPoint.m_dY), 1 } << "\" r=\""
              << SText{ oPoint.m_bPreferred ? "7" : "5" } << "\"><title>" << SText{ DescribePoint(oPoint) }
              << "</title></circle>\n";
    }

    std::string DescribePoint(const SPoint& oPoint) const
    {
        std::string sText = oPoint.m_sModes;
        sText += oPoint.m_bPreferred ? " (preferred)" : "";
        if (m_oPage.IsPair() && oPoint.m_abIn[0] != oPoint.m_abIn[1])
        {
            sText += std::string(" only in ") + m_oPage.GetMark(oPoint.m_abIn[0] ? 0 : 1);
        }
        return sText;
    }

    const SPage& m_oPage;
    const bool m_bLineRate;
    std::map<std::pair<long, long>, SPoint> m_aoPoints; // by whole units
    std::set<std::string> m_asBare;                     // modes without a line rate
    std::optional<SRangeLimits> m_aoLimits[2];
    double m_dLeastY = 60;
    double m_dMostX = 1;
    double m_dMostY = 1;
    double m_dStepX = 1;
    double m_dStepY = 1;
};
} // namespace

CHtml MakeModePlots(const SPage& oPage)
{
    CHtml oHtml;
    const bool bAny = std::any_of(oPage.m_apoImages.begin(), oPage.m_apoImages.end(),
                                  [](const auto& poImage) { return !poImage->m_oModes.GetRows().empty(); });
    if (!bAny)
    {
        return oHtml;
    }
    oHtml << "<ul class=\"legend\" aria-label=\"Marks\"><li><span class=\"dot preferred\"></span>preferred</li>";
    if (oPage.IsPair())
    {
        oHtml << "<li><span class=\"dot\"></span>both</li><li><span class=\"dot first\"></span>only A</li>"
              << "<li><span class=\"dot second\"></span>only B</li>";
    }
    else
    {
        oHtml << "<li><span class=\"dot\"></span>mode</li>";
    }
    bool bLimits = false;
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        if (const std::optional<SRangeLimits> oLimits = FindLimits(oPage.m_apoImages[i]->m_oFacts))
        {
            oHtml << "<li><span class=\"box" << SText{ i == 0 ? "" : " second" } << "\"></span>range limits "
                  << SText{ oPage.GetMark(i) } << SText{ oPage.IsPair() ? ": " : "" }
                  << SText{ DescribeLimits(oPage.m_apoImages[i]->m_oFacts, *oLimits) } << "</li>";
            bLimits = true;
        }
    }
    if (bLimits)
    {
        oHtml << "<li><span class=\"dot outside\"></span>outside the range limits</li>";
    }
    return oHtml << "</ul>\n<div class=\"plots\">\n"
                 << CPlot(oPage, false).Make() << CPlot(oPage, true).Make() << "</div>\n";
}
