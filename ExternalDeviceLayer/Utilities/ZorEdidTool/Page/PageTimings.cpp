// The timings as a table, and each of them as a picture to scale. Of a pair, a timing that both have is there once.

#include <algorithm>
#include <map>

#include "MapText.h"
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

    // Whether the parts fit in the total.
    bool IsSound() const
    {
        return m_uiTotal != 0 && m_uiActive != 0 &&
               static_cast<unsigned long long>(m_uiSync) + m_uiBackPorch + m_uiActive + m_uiFrontPorch == m_uiTotal;
    }
    bool HasRoomForBorder() const { return m_uiFrontPorch >= m_uiBorder && m_uiBackPorch >= m_uiBorder; }
    unsigned int GetActiveStart() const { return m_uiSync + m_uiBackPorch; }
    unsigned int GetActiveEnd() const { return GetActiveStart() + m_uiActive; }
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
    CTimingPicture(const CZorEdidMap& oMap, const SImageMode& oMode) : m_oMode(oMode), m_oTiming(oMode.m_oTiming)
    {
        CZorEdidMap::SMode oSaid = {}; // with its borders, which the library leaves out
        if (oMode.m_uiField != CZorEdidMap::msc_uiNone)
        {
            oMap.GetMode(oMode.m_uiField, oSaid);
        }
        const unsigned int uiFields = m_oTiming.IsInterlaced() != 0 ? 2 : 1;
        const double dPixel = m_oTiming.GetPixelClockInHz() == 0 ? 0 : gsc_dHzPerMegaHz / m_oTiming.GetPixelClockInHz();
        const unsigned int uiWidth = m_oTiming.ComputeHorizontalTotalPixel();
        m_oAcross = MakeAxis(m_oTiming.GetHorizontalActive(), m_oTiming.GetHorizontalFrontPorch(),
                             m_oTiming.GetHorizontalSync(), uiWidth, oSaid.m_oHorizontal.m_uiBorder, dPixel);
        m_oDown = MakeAxis(m_oTiming.GetVerticalActive(), uiFields * m_oTiming.GetVerticalFrontPorch(),
                           uiFields * m_oTiming.GetVerticalSync(), GetVerticalTotal(m_oTiming),
                           uiFields * oSaid.m_oVertical.m_uiBorder, dPixel * uiWidth);
    }

    CHtml Make(unsigned int uiNumber) const
    {
        CHtml oHtml;
        oHtml << "<figure class=\"picture\" id=\"p" << uiNumber << "\">\n<figcaption>" << SText{ DescribeMode(m_oMode) }
              << "</figcaption>\n";
        if (!m_oMode.m_bTiming)
        {
            return oHtml << "<p>The image says no more of it than size and rate.</p>\n</figure>\n";
        }
        if (const char* pszReason = FindReason())
        {
            oHtml << "<p>" << SText{ pszReason } << ", so it has no picture.</p>\n";
        }
        else
        {
            Draw(uiNumber, oHtml);
            AddTable(oHtml);
        }
        return oHtml << "<p class=\"modeline\"><code>" << SText{ GetModeline(m_oTiming, GetModelineName()) }
                     << "</code></p>\n</figure>\n";
    }

    // What makes the picture: timings that have it in common have one picture.
    std::string GetKey() const
    {
        return FormatText("%u %u ", m_oAcross.m_uiBorder, m_oDown.m_uiBorder) +
               GetModeline(m_oTiming, DescribeMode(m_oMode));
    }

private:
    // Why it has no picture; null for a timing that can be drawn.
    const char* FindReason() const
    {
        if (!m_oAcross.IsSound() || !m_oDown.IsSound())
        {
            return "Its porches and sync do not fit in its totals";
        }
        return m_oAcross.HasRoomForBorder() && m_oDown.HasRoomForBorder() ? nullptr
                                                                          : "Its border is larger than a porch";
    }

    // The rate as the page has it, that of fields.
    std::string GetModelineName() const
    {
        return FormatText("%ux%u%s_%s", m_oTiming.GetHorizontalActive(), m_oTiming.GetVerticalActive(),
                          m_oTiming.IsInterlaced() != 0 ? "i" : "", GetRateText(m_oMode).c_str());
    }

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
              << " lines; sync, porches and borders are in the table.</desc>\n";
        AddBox(oHtml, "back", 0, 0, oX.m_uiTotal, oY.m_uiTotal);
        AddBox(oHtml, "front", oX.GetActiveEnd(), 0, oX.m_uiFrontPorch, oY.m_uiTotal);
        AddBox(oHtml, "front", 0, oY.GetActiveEnd(), oX.m_uiTotal, oY.m_uiFrontPorch);
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
        oHtml << "<tr><th scope=\"row\"><span class=\"swatch " << oClass << "\"></span>" << oName << "</th>";
        AddCells(oHtml, uiPixels, m_oAcross.m_dUnit);
        AddCells(oHtml, uiLines, m_oDown.m_dUnit);
        oHtml << "</tr>\n";
    }

    static void AddCells(CHtml& oHtml, unsigned int uiCount, double dUnit)
    {
        oHtml << "<td>" << uiCount << "</td><td>" << SText{ FormatText("%.3f", uiCount * dUnit) } << "</td>";
    }

    void AddTable(CHtml& oHtml) const
    {
        oHtml << "<table class=\"parts\"><thead><tr><td></td><th scope=\"col\">pixels</th><th "
                 "scope=\"col\">\xC2\xB5s</th>"
              << "<th scope=\"col\">lines</th><th scope=\"col\">\xC2\xB5s</th></tr></thead>\n<tbody>\n";
        AddRow(oHtml, "sync", "Sync", &SPageAxis::m_uiSync);
        AddRow(oHtml, "back", "Back porch", &SPageAxis::m_uiBackPorch);
        AddRow(oHtml, "active", "Active", &SPageAxis::m_uiActive);
        AddRow(oHtml, "front", "Front porch", &SPageAxis::m_uiFrontPorch);
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

    const SImageMode& m_oMode;
    const CVidParamTimingGeneric& m_oTiming;
    SPageAxis m_oAcross;
    SPageAxis m_oDown;
};

// ---- Table ----

struct STimingRow
{
    const SPageImage* m_poImage; // of a row that both have, A's
    const SImageMode* m_poMode;
    const SImageMode* m_poOther; // the mode of the other image that equals it; null without one
    std::string m_sIn;           // "A", "B" or "both"; empty for a single image
    std::string m_sPreferred;    // "preferred", of a pair with whose it is unless both prefer it; or empty
};

// apoPreferred has the mode that each image prefers, null for none.
std::string GetPreferred(const std::vector<const SImageMode*>& apoPreferred, const STimingRow& oRow)
{
    if (apoPreferred.size() == 1)
    {
        return oRow.m_poMode->m_bPreferred ? "preferred" : "";
    }
    const auto fnPrefers = [&](size_t uiImage) {
        const SImageMode* poPreferred = apoPreferred[uiImage];
        return poPreferred != nullptr && (poPreferred == oRow.m_poMode || poPreferred == oRow.m_poOther);
    };
    return fnPrefers(0) && fnPrefers(1) ? "preferred"
           : fnPrefers(0)               ? "preferred by A"
           : fnPrefers(1)               ? "preferred by B"
                                        : "";
}

// The preferred mode comes first, then the lists from the detailed timings down, then what is in none.
unsigned int GetRank(const STimingRow& oRow)
{
    const unsigned int uiList = CZorEdidMap::eList_Detailed - oRow.m_poMode->m_eList;
    return !oRow.m_sPreferred.empty() ? 0 : 1 + uiList;
}

std::vector<STimingRow> ListRows(const SPage& oPage)
{
    std::vector<const SImageMode*> apoPreferred;
    for (const auto& poImage : oPage.m_apoImages)
    {
        apoPreferred.push_back(FindPreferred(poImage->m_aoModes));
    }
    std::vector<STimingRow> aoRows;
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        const SPageImage& oImage = *oPage.m_apoImages[i];
        for (size_t j = 0; j < oImage.m_aoModes.size(); ++j)
        {
            const size_t uiOther = oPage.IsPair() ? oPage.m_oPairs.m_aauiPartners[i][j] : gsc_uiNoPartner;
            const bool bBoth = uiOther != gsc_uiNoPartner;
            if (i == 0 || !bBoth)
            {
                const SImageMode* poOther = bBoth ? &oPage.m_apoImages[1]->m_aoModes[uiOther] : nullptr;
                STimingRow oRow = { &oImage, &oImage.m_aoModes[j], poOther, bBoth ? "both" : oPage.GetMark(i), "" };
                oRow.m_sPreferred = GetPreferred(apoPreferred, oRow);
                aoRows.push_back(oRow);
            }
        }
    }
    std::ranges::stable_sort(aoRows, {}, GetRank);
    return aoRows;
}

std::string GetNumber(const SImageMode& oMode)
{
    return oMode.IsListed() ? FormatText("%s %u", GetListName(oMode.m_eList), oMode.m_uiIndex) : "-";
}

// Numbers are what edits take, and those of the other image are others.
std::string GetNumbers(const STimingRow& oRow)
{
    const std::string sNumber = GetNumber(*oRow.m_poMode);
    const std::string sOther = oRow.m_poOther == nullptr ? sNumber : GetNumber(*oRow.m_poOther);
    return sNumber == sOther ? sNumber : "A " + sNumber + ", B " + sOther;
}

// The field that announces a mode: "Type VII timing", "Short video descriptor 3, VIC 97", "Established timings III".
std::string GetSource(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    if (oField.m_eKind == CZorEdidMap::eKind_Flag)
    {
        return GetFieldName(oMap.GetField(oField.m_uiGroup));
    }
    CZorEdidMap::SMode oMode = {};
    oMap.GetMode(uiField, oMode);
    const bool bCode = oMode.m_eKind == SZorMode::eModeKind_Vic && oField.m_eKind == CZorEdidMap::eKind_Group;
    const bool bPreferred = oMode.m_bPreferred && oMode.m_eKind <= SZorMode::eModeKind_Type10;
    return GetFieldName(oField) + (bCode ? FormatText(", VIC %u", oMode.m_uiCode) : "") +
           (bPreferred ? ", preferred of its block" : "");
}

std::string GetMarks(const STimingRow& oRow)
{
    const SImageMode& oMode = *oRow.m_poMode;
    std::string sMarks = oRow.m_sPreferred;
    const auto fnAdd = [&sMarks](bool bHolds, const std::string& sMark) {
        sMarks += bHolds ? (sMarks.empty() ? "" : ", ") + sMark : "";
    };
    fnAdd(oMode.m_bNative && oMode.IsOfMonitor(), "native");
    fnAdd(oMode.m_oTiming.Is420ColorSpace() != 0, "4:2:0");
    if (!oMode.IsListed())
    {
        fnAdd(true, GetSource(oRow.m_poImage->m_oMap, oMode.m_uiField) + ", in no list of the library");
    }
    fnAdd(!oMode.m_oVics.m_auiCodes.empty() && oMode.IsOfMonitor(), GetVicsText(oMode.m_oVics));
    fnAdd(!oMode.IsOfMonitor(), GetOtherCodeText(oMode));
    const char* pszType = GetTypeName(oMode.m_oTiming.GetVideoFamilyType());
    fnAdd(oMode.m_bStandIn, "stand-in by GTF");
    fnAdd(!oMode.m_bStandIn && pszType != nullptr && oMode.m_eList > CZorEdidMap::eList_None &&
              oMode.m_eList < CZorEdidMap::eList_Detailed,
          pszType != nullptr ? pszType : "");
    return sMarks;
}

// What the marks of the rows mean, as far as they need words.
CHtml MakeNotes(const std::vector<STimingRow>& aoRows)
{
    CHtml oHtml;
    const auto fnHas = [&](auto fnHolds) {
        return std::ranges::any_of(aoRows, [&](const STimingRow& oRow) { return fnHolds(*oRow.m_poMode); });
    };
    const auto iUnlisted = std::ranges::count_if(aoRows, [](const auto& oRow) { return !oRow.m_poMode->IsListed(); });
    if (iUnlisted != 0)
    {
        oHtml << " " << iUnlisted << SText{ iUnlisted == 1 ? " of the modes is" : " of the modes are" }
              << " not listed by the library and " << SText{ iUnlisted == 1 ? "has" : "have" } << " no number.";
    }
    if (fnHas([](const SImageMode& oMode) { return !oMode.m_sStandardCode.empty(); }))
    {
        oHtml << " dmt, cvt and gtf: where the numbers of a standard timing come from, the table of VESA or a formula.";
    }
    if (fnHas([](const SImageMode& oMode) { return oMode.m_bStandIn; }))
    {
        oHtml << " Stand-in by GTF: this mode has numbers of its own, which the library does not know and computes by "
              << "the GTF formula; they are not held against the range limits.";
    }
    return oHtml;
}

// A cell with the number that it is sorted by; empty without one.
void AddNumber(CHtml& oHtml, double dNumber, const std::string& sText)
{
    oHtml << "<td data-v=\"" << SDecimal{ dNumber, 6 } << "\">" << SText{ dNumber == 0 ? "" : sText } << "</td>";
}

void AddRow(CHtml& oHtml, unsigned int uiPicture, const STimingRow& oRow, const SPage& oPage)
{
    constexpr unsigned long long ullMostOfList = 1ULL << 32;
    const SImageMode& oMode = *oRow.m_poMode;
    const CVidParamTimingGeneric& oTiming = oMode.m_oTiming;
    const unsigned long long ullList = oMode.IsListed() ? oMode.m_eList : CZorEdidMap::eList_Detailed + 1;
    oHtml << "<tr data-list=\"" << SText{ oMode.IsListed() ? GetListName(oMode.m_eList) : "none" } << "\"";
    if (oPage.IsPair() && oRow.m_poOther == nullptr && oMode.IsOfMonitor())
    {
        oHtml << " class=\"differs\"";
    }
    oHtml << "><th scope=\"row\" data-v=\"" << ullList * ullMostOfList + oMode.m_uiIndex
          << "\"><label><input type=\"radio\" name=\"timing\" value=\"" << uiPicture << "\"";
    if (!oMode.IsListed())
    {
        oHtml << " aria-label=\"" << SText{ DescribeMode(oMode) } << "\"";
    }
    oHtml << "> " << SText{ GetNumbers(oRow) } << "</label></th>";
    if (oPage.IsPair())
    {
        oHtml << "<td>" << SText{ oRow.m_sIn } << "</td>";
    }
    oHtml << "<td data-v=\""
          << static_cast<unsigned long long>(oTiming.GetHorizontalActive()) * 65536 + oTiming.GetVerticalActive()
          << "\">" << oTiming.GetHorizontalActive() << " &times; " << oTiming.GetVerticalActive()
          << SText{ oTiming.IsInterlaced() != 0 ? "i" : "" } << "</td>";
    const double dClock = oTiming.GetPixelClockInHz() / gsc_dHzPerMegaHz;
    const double dLineRate = oTiming.GetHorizontalRateInHz() / gsc_dHzPerKiloHz;
    AddNumber(oHtml, GetRate(oMode), GetRateText(oMode));
    AddNumber(oHtml, dClock, FormatText("%.3f", dClock));
    AddNumber(oHtml, dLineRate, FormatText("%.2f", dLineRate));
    oHtml << "<td>" << SText{ GetMarks(oRow) } << "</td></tr>\n";
}

// Page.js makes buttons of them, which sort.
void AddHeads(CHtml& oHtml, bool bPair)
{
    constexpr const char* apszHeads[] = { "Number", "In", "Size", "Rate, Hz", "Clock, MHz", "Line rate, kHz", "Marks" };
    oHtml << "<thead><tr>";
    for (const char* pszHead : apszHeads)
    {
        if (bPair || pszHead != std::string("In"))
        {
            oHtml << "<th scope=\"col\">" << SText{ pszHead } << "</th>";
        }
    }
    oHtml << "</tr></thead>\n";
}
} // namespace

CHtml MakeTimings(const SPage& oPage)
{
    CHtml oHtml;
    const std::vector<STimingRow> aoRows = ListRows(oPage);
    if (aoRows.empty())
    {
        return oHtml << "<p>The image announces no timing.</p>\n";
    }
    oHtml << "<div class=\"tools\"><label>Filter <input type=\"search\" id=\"filter\" autocomplete=\"off\" "
          << "spellcheck=\"false\"></label> <label>List <select id=\"list\"><option value=\"\">all</option>"
          << "<option>established</option><option>standard</option><option>detailed</option><option>none</option>"
          << "</select></label> <span id=\"count\" role=\"status\"></span></div>\n<p class=\"small\">Rates of "
          << "interlaced modes are those of their fields." << MakeNotes(aoRows)
          << "<span class=\"narrow\"> The table scrolls sideways.</span></p>\n<div class=\"timings\">\n"
          << "<div class=\"scroll tall\" tabindex=\"0\" role=\"region\" aria-label=\"Table of timings\">"
          << "<table id=\"table\">\n";
    AddHeads(oHtml, oPage.IsPair());
    oHtml << "<tbody>\n";
    std::map<std::string, unsigned int> aoNumbers; // of the pictures
    CHtml oPictures;
    for (const STimingRow& oRow : aoRows)
    {
        const CTimingPicture oPicture(oRow.m_poImage->m_oMap, *oRow.m_poMode);
        const auto [itNumber, bNew] =
            aoNumbers.try_emplace(oPicture.GetKey(), static_cast<unsigned int>(aoNumbers.size()));
        if (bNew)
        {
            oPictures << oPicture.Make(itNumber->second);
        }
        AddRow(oHtml, itNumber->second, oRow, oPage);
    }
    return oHtml << "</tbody>\n</table></div>\n<div class=\"pictures\">\n" << oPictures << "</div>\n</div>\n";
}
