// The timings as a table, and each of them as a picture to scale. Of a pair, a timing that both have stands there once.

#include <algorithm>

#include "PageParts.h"
#include "TextFormat.h"

namespace
{
constexpr double gsc_dHzPerMegaHz = 1000000;
constexpr double gsc_dHzPerKiloHz = 1000;

// ---- Picture ----

// One direction in the order of time: sync, back porch, border, active, border, front porch. Pixels of a line, or lines
// of a frame, which has both fields of an interlaced mode.
struct SPageAxis
{
    unsigned int m_uiSync;
    unsigned int m_uiBackPorch;
    unsigned int m_uiActive;
    unsigned int m_uiFrontPorch;
    unsigned int m_uiTotal;
    unsigned int m_uiBorder; // each side; taken out of the porches, which the library gives with it
    double m_dUnit;          // microseconds of a pixel or of a line

    // False when the parts do not fit in the total.
    bool IsDrawable() const
    {
        return m_uiTotal != 0 && m_uiActive != 0 && m_uiFrontPorch >= m_uiBorder && m_uiBackPorch >= m_uiBorder &&
               static_cast<unsigned long long>(m_uiSync) + m_uiBackPorch + m_uiActive + m_uiFrontPorch == m_uiTotal;
    }
    unsigned int GetActiveStart() const { return m_uiSync + m_uiBackPorch; }
};

SPageAxis MakeAxis(unsigned int uiActive, unsigned int uiFrontPorch, unsigned int uiSync, unsigned int uiTotal,
                   unsigned int uiBorder, double dUnit)
{
    const unsigned int uiBackPorch = uiTotal - uiActive - uiFrontPorch - uiSync; // wraps where they do not fit
    return { uiSync, uiBackPorch, uiActive, uiFrontPorch, uiTotal, uiBorder, dUnit };
}

class CTimingPicture
{
public:
    explicit CTimingPicture(const SPageTiming& oPlace) : m_oTiming(oPlace.m_oListed.m_oTiming)
    {
        const unsigned int uiFields = m_oTiming.IsInterlaced() != 0 ? 2 : 1;
        const double dPixel = m_oTiming.GetPixelClockInHz() == 0 ? 0 : gsc_dHzPerMegaHz / m_oTiming.GetPixelClockInHz();
        const unsigned int uiWidth = m_oTiming.ComputeHorizontalTotalPixel();
        m_oAcross = MakeAxis(m_oTiming.GetHorizontalActive(), m_oTiming.GetHorizontalFrontPorch(),
                             m_oTiming.GetHorizontalSync(), uiWidth, oPlace.m_uiBorderWidth, dPixel);
        m_oDown = MakeAxis(m_oTiming.GetVerticalActive(), uiFields * m_oTiming.GetVerticalFrontPorch(),
                           uiFields * m_oTiming.GetVerticalSync(), GetVerticalTotal(m_oTiming),
                           uiFields * oPlace.m_uiBorderHeight, dPixel * uiWidth);
    }

    CHtml Make(unsigned int uiNumber) const
    {
        CHtml oHtml;
        oHtml << "<figure class=\"picture\" id=\"p" << uiNumber << "\" hidden>\n<figcaption>"
              << SText{ DescribeMode(m_oTiming) } << "</figcaption>\n";
        if (m_oAcross.IsDrawable() && m_oDown.IsDrawable())
        {
            Draw(uiNumber, oHtml);
            AddTable(oHtml);
        }
        else
        {
            oHtml << "<p>Its porches and sync do not fit in its totals, so there is no picture of it.</p>\n";
        }
        return oHtml << "<p class=\"modeline\"><code>" << SText{ GetModeline(m_oTiming) } << "</code></p>\n</figure>\n";
    }

private:
    static void AddBox(CHtml& oHtml, SMarkup oClass, unsigned int uiLeft, unsigned int uiTop, unsigned int uiWidth,
                       unsigned int uiHeight)
    {
        oHtml << "<rect class=\"" << oClass << "\" x=\"" << uiLeft << "\" y=\"" << uiTop << "\" width=\"" << uiWidth
              << "\" height=\"" << uiHeight << "\"/>";
    }

    void Draw(unsigned int uiNumber, CHtml& oHtml) const
    {
        const SPageAxis& oX = m_oAcross;
        const SPageAxis& oY = m_oDown;
        const double dText = oX.m_uiTotal / 30.0;
        oHtml << "<svg role=\"img\" aria-labelledby=\"pt" << uiNumber << " pd" << uiNumber << "\" viewBox=\"0 0 "
              << oX.m_uiTotal << " " << oY.m_uiTotal << "\"><title id=\"pt" << uiNumber
              << "\">Frame to scale</title><desc id=\"pd" << uiNumber << "\">Active area " << oX.m_uiActive << " by "
              << oY.m_uiActive << " in a total of " << oX.m_uiTotal << " pixels by " << oY.m_uiTotal
              << " lines; sync, porches and borders stand in the table.</desc>\n";
        AddBox(oHtml, "porch", 0, 0, oX.m_uiTotal, oY.m_uiTotal);
        AddBox(oHtml, "sync", 0, 0, oX.m_uiSync, oY.m_uiTotal);
        AddBox(oHtml, "sync", 0, 0, oX.m_uiTotal, oY.m_uiSync);
        if (oX.m_uiBorder != 0 || oY.m_uiBorder != 0)
        {
            AddBox(oHtml, "border", oX.GetActiveStart() - oX.m_uiBorder, oY.GetActiveStart() - oY.m_uiBorder,
                   oX.m_uiActive + 2 * oX.m_uiBorder, oY.m_uiActive + 2 * oY.m_uiBorder);
        }
        AddBox(oHtml, "active", oX.GetActiveStart(), oY.GetActiveStart(), oX.m_uiActive, oY.m_uiActive);
        const double dMiddle = oX.GetActiveStart() + oX.m_uiActive / 2.0;
        const double dCentre = oY.GetActiveStart() + oY.m_uiActive / 2.0;
        AddText(oHtml, dMiddle, dCentre - 0.1 * dText, 1.3 * dText,
                FormatText("%u \u00D7 %u", oX.m_uiActive, oY.m_uiActive));
        AddText(oHtml, dMiddle, dCentre + 1.3 * dText, dText,
                FormatText("of %u \u00D7 %u", oX.m_uiTotal, oY.m_uiTotal));
        oHtml << "</svg>\n";
    }

    static void AddText(CHtml& oHtml, double dX, double dY, double dSize, const std::string& sText)
    {
        oHtml << "<text x=\"" << SDecimal{ dX, 1 } << "\" y=\"" << SDecimal{ dY, 1 } << "\" font-size=\""
              << SDecimal{ dSize, 1 } << "\" text-anchor=\"middle\">" << SText{ sText } << "</text>";
    }

    void AddRow(CHtml& oHtml, SMarkup oClass, SMarkup oName, unsigned int SPageAxis::*puiPart) const
    {
        const unsigned int uiPixels = m_oAcross.*puiPart;
        const unsigned int uiLines = m_oDown.*puiPart;
        oHtml << "<tr><th scope=\"row\"><span class=\"swatch " << oClass << "\"></span>" << oName << "</th><td>"
              << uiPixels << "</td><td>" << SDecimal{ uiPixels * m_oAcross.m_dUnit, 3 } << "</td><td>" << uiLines
              << "</td><td>" << SDecimal{ uiLines * m_oDown.m_dUnit, 1 } << "</td></tr>\n";
    }

    void AddTable(CHtml& oHtml) const
    {
        oHtml << "<table class=\"parts\"><thead><tr><td></td><th scope=\"col\">pixels</th><th "
                 "scope=\"col\">\xC2\xB5s</th>"
              << "<th scope=\"col\">lines</th><th scope=\"col\">\xC2\xB5s</th></tr></thead>\n<tbody>\n";
        AddRow(oHtml, "sync", "Sync", &SPageAxis::m_uiSync);
        AddRow(oHtml, "porch", "Back porch", &SPageAxis::m_uiBackPorch);
        AddRow(oHtml, "active", "Active", &SPageAxis::m_uiActive);
        AddRow(oHtml, "porch", "Front porch", &SPageAxis::m_uiFrontPorch);
        if (m_oAcross.m_uiBorder != 0 || m_oDown.m_uiBorder != 0)
        {
            AddRow(oHtml, "border", "Border, each side, in the porches", &SPageAxis::m_uiBorder);
        }
        AddRow(oHtml, "none", "Total", &SPageAxis::m_uiTotal);
        oHtml << "</tbody></table>\n<p class=\"small\">Sync polarity: horizontal "
              << SText{ m_oTiming.IsHorizontalPolarityPositive() != 0 ? "positive" : "negative" } << ", vertical "
              << SText{ m_oTiming.IsVerticalPolarityPositive() != 0 ? "positive" : "negative" } << "."
              << SText{ m_oTiming.IsInterlaced() != 0 ? " Lines are those of a frame, which has two fields." : "" }
              << "</p>\n";
    }

    const CVidParamTimingGeneric& m_oTiming;
    SPageAxis m_oAcross;
    SPageAxis m_oDown;
};

// ---- Table ----

struct STimingRow
{
    const SPageTiming* m_poTiming;
    std::string m_sIn; // "A", "B" or "both"; empty for a single image
    std::string
        m_sPreferred; // "preferred", of a pair with those who prefer it unless both do; empty for another timing
};

// poPreferred is the timing that an image prefers; null for none.
bool IsPreferred(const SListedTiming* poPreferred, const SListedTiming& oListed)
{
    return poPreferred != nullptr && poPreferred->m_eList == oListed.m_eList &&
           (poPreferred->m_oTiming == oListed.m_oTiming) != 0;
}

std::string GetPreferred(const std::vector<const SListedTiming*>& apoPreferred, const SListedTiming& oListed)
{
    if (apoPreferred.size() == 1)
    {
        return oListed.m_bPreferred ? "preferred" : "";
    }
    const bool bFirst = IsPreferred(apoPreferred[0], oListed);
    const bool bSecond = IsPreferred(apoPreferred[1], oListed);
    return bFirst && bSecond ? "preferred" : bFirst ? "preferred by A" : bSecond ? "preferred by B" : "";
}

std::vector<STimingRow> ListRows(const SPage& oPage)
{
    std::vector<const SListedTiming*> apoPreferred;
    for (const auto& poImage : oPage.m_apoImages)
    {
        apoPreferred.push_back(poImage->FindPreferred());
    }
    std::vector<STimingRow> aoRows;
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        for (const SPageTiming& oTiming : oPage.m_apoImages[i]->m_aoTimings)
        {
            if (i == 0 || oTiming.m_bOnlyHere)
            {
                aoRows.push_back({ &oTiming, oPage.IsPair() && !oTiming.m_bOnlyHere ? "both" : oPage.GetMark(i),
                                   GetPreferred(apoPreferred, oTiming.m_oListed) });
            }
        }
    }
    // The list with the preferred timing comes first.
    std::stable_sort(aoRows.begin(), aoRows.end(), [](const STimingRow& oFirst, const STimingRow& oSecond) {
        return oFirst.m_poTiming->m_oListed.m_eList > oSecond.m_poTiming->m_oListed.m_eList;
    });
    return aoRows;
}

std::string GetMarks(const STimingRow& oRow)
{
    const SListedTiming& oListed = oRow.m_poTiming->m_oListed;
    std::string sMarks = oRow.m_sPreferred;
    const auto fnAdd = [&sMarks](bool bHolds, const std::string& sMark) {
        sMarks += bHolds ? (sMarks.empty() ? "" : ", ") + sMark : "";
    };
    fnAdd(oRow.m_poTiming->m_bOfMap, "not listed by the library");
    fnAdd(oListed.m_bNative && oRow.m_poTiming->m_sOtherCode.empty(), "native");
    fnAdd(oListed.m_oTiming.Is420ColorSpace() != 0, "4:2:0");
    fnAdd(!oListed.m_oVics.m_auiCodes.empty() && oRow.m_poTiming->m_sOtherCode.empty(), GetVicsText(oListed.m_oVics));
    fnAdd(!oRow.m_poTiming->m_sOtherCode.empty(), oRow.m_poTiming->m_sOtherCode);
    const char* pszType = GetTypeName(oListed.m_oTiming.GetVideoFamilyType());
    fnAdd(pszType != nullptr && oListed.m_eList != eTimingList_Detailed, pszType != nullptr ? pszType : "");
    return sMarks;
}

// A cell with the number that it is sorted by.
void AddNumber(CHtml& oHtml, double dNumber, unsigned int uiDecimals)
{
    oHtml << "<td data-v=\"" << SDecimal{ dNumber, 6 } << "\">"
          << SText{ FormatText("%.*f", static_cast<int>(uiDecimals), dNumber) } << "</td>";
}

void AddRow(CHtml& oHtml, unsigned int uiNumber, const STimingRow& oRow, bool bPair)
{
    const SListedTiming& oListed = oRow.m_poTiming->m_oListed;
    const CVidParamTimingGeneric& oTiming = oListed.m_oTiming;
    oHtml << "<tr id=\"t" << uiNumber << "\" data-list=\"" << SText{ GetListName(oListed.m_eList) } << "\"";
    if (bPair && oRow.m_poTiming->m_bOnlyHere)
    {
        oHtml << " class=\"differs\"";
    }
    oHtml << "><th scope=\"row\" data-v=\"" << (oListed.m_eList * 1000 + oListed.m_uiIndex)
          << "\"><label><input type=\"radio\" name=\"timing\" value=\"" << uiNumber << "\"> "
          << SText{ GetListName(oListed.m_eList) } << " " << oListed.m_uiIndex << "</label></th>";
    if (bPair)
    {
        oHtml << "<td>" << SText{ oRow.m_sIn } << "</td>";
    }
    oHtml << "<td data-v=\""
          << static_cast<unsigned long long>(oTiming.GetHorizontalActive()) * 65536 + oTiming.GetVerticalActive()
          << "\">" << oTiming.GetHorizontalActive() << " &times; " << oTiming.GetVerticalActive()
          << SText{ oTiming.IsInterlaced() != 0 ? "i" : "" } << "</td>";
    AddNumber(oHtml, GetFieldRate(oTiming), 2);
    AddNumber(oHtml, oTiming.GetPixelClockInHz() / gsc_dHzPerMegaHz, 3);
    AddNumber(oHtml, oTiming.GetHorizontalRateInHz() / gsc_dHzPerKiloHz, 2);
    oHtml << "<td>" << SText{ GetMarks(oRow) } << "</td></tr>\n";
}

void AddHeads(CHtml& oHtml, bool bPair)
{
    constexpr const char* apszHeads[] = { "Number", "In", "Size", "Rate, Hz", "Clock, MHz", "Line rate, kHz", "Marks" };
    oHtml << "<thead><tr>";
    for (const char* pszHead : apszHeads)
    {
        if (bPair || pszHead != std::string("In"))
        {
            oHtml << "<th scope=\"col\" aria-sort=\"none\"><button type=\"button\">" << SText{ pszHead }
                  << "</button></th>";
        }
    }
    oHtml << "</tr></thead>\n";
}

CHtml MakeUnlisted(const SPage& oPage)
{
    CHtml oHtml;
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        const std::vector<std::string>& asModes = oPage.m_apoImages[i]->m_asUnlisted;
        if (asModes.empty())
        {
            continue;
        }
        oHtml << "<p class=\"small\">" << SText{ oPage.GetMark(i) } << SText{ oPage.IsPair() ? ": " : "" }
              << asModes.size() << SText{ asModes.size() == 1 ? " mode" : " modes" } << " of the map "
              << SText{ asModes.size() == 1 ? "is" : "are" } << " in no list of the library: ";
        for (size_t j = 0; j < asModes.size(); ++j)
        {
            oHtml << SText{ j == 0 ? "" : ", " } << SText{ asModes[j] };
        }
        oHtml << ".</p>\n";
    }
    return oHtml;
}
} // namespace

CHtml MakeTimings(const SPage& oPage)
{
    CHtml oHtml;
    oHtml << "<section id=\"timings\" aria-labelledby=\"h-timings\">\n<h2 id=\"h-timings\">Timings</h2>\n";
    const std::vector<STimingRow> aoRows = ListRows(oPage);
    if (aoRows.empty())
    {
        return oHtml << "<p>The library lists no timing of this image.</p>\n" << MakeUnlisted(oPage) << "</section>\n";
    }
    oHtml << "<div class=\"tools\"><label>Filter <input type=\"search\" id=\"filter\" autocomplete=\"off\" "
          << "spellcheck=\"false\"></label> <label>List <select id=\"list\"><option value=\"\">all</option>"
          << "<option>established</option><option>standard</option><option>detailed</option></select></label> "
          << "<span id=\"count\" role=\"status\"></span></div>\n<p class=\"small\">The rate of an interlaced mode is "
          << "that of its fields.<span class=\"narrow\"> The table scrolls sideways.</span></p>\n"
          << MakeUnlisted(oPage) << "<div class=\"timings\">\n"
          << "<div class=\"scroll tall\" tabindex=\"0\" role=\"region\" aria-label=\"Table of timings\">"
          << "<table id=\"table\">\n";
    AddHeads(oHtml, oPage.IsPair());
    oHtml << "<tbody>\n";
    for (unsigned int i = 0; i < aoRows.size(); ++i)
    {
        AddRow(oHtml, i, aoRows[i], oPage.IsPair());
    }
    oHtml << "</tbody>\n</table></div>\n<div class=\"pictures\">\n";
    for (unsigned int i = 0; i < aoRows.size(); ++i)
    {
        oHtml << CTimingPicture(*aoRows[i].m_poTiming).Make(i);
    }
    return (oHtml << "</div>\n</div>\n</section>\n").Take();
}
