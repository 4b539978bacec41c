// The timings as a table, and each of them as a picture to scale. Of a pair, a timing that both have is there once.

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "ExactTimings.h"
#include "MapText.h"
#include "PageParts.h"
#include "TextFormat.h"

namespace
{
constexpr double gsc_dHzPerMegaHz = 1000000;

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
    unsigned int m_uiBorder; // each side, in the porches
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

// uiFields: parts of an interlaced mode are those of its first field.
SPageAxis MakeAxis(const SZorMode::SAxis& oAxis, unsigned int uiFields, double dUnit)
{
    const unsigned int uiFrontPorch = uiFields * oAxis.m_uiFront;
    const unsigned int uiSync = uiFields * oAxis.m_uiSync;
    const unsigned int uiBackPorch = oAxis.m_uiTotal - oAxis.m_uiActive - uiFrontPorch - uiSync; // wraps if negative
    return { uiSync, uiBackPorch, oAxis.m_uiActive, uiFrontPorch, oAxis.m_uiTotal, uiFields * oAxis.m_uiBorder, dUnit };
}

class CTimingPicture
{
public:
    explicit CTimingPicture(const SModeRow& oRow) : m_oRow(oRow), m_oMode(oRow.m_oMode)
    {
        const double dPixel = m_oMode.m_ullClock == 0 ? 0 : gsc_dHzPerMegaHz / static_cast<double>(m_oMode.m_ullClock);
        m_oAcross = MakeAxis(m_oMode.m_oHorizontal, 1, dPixel);
        m_oDown =
            MakeAxis(m_oMode.m_oVertical, m_oMode.m_bInterlaced ? 2 : 1, dPixel * m_oMode.m_oHorizontal.m_uiTotal);
    }

    CHtml Make(unsigned int uiNumber) const
    {
        CHtml oHtml;
        oHtml << "<figure class=\"picture\" id=\"p" << uiNumber << "\">\n<figcaption>" << SText{ GetModeTitle(m_oMode) }
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
        return oHtml << "<p class=\"modeline\"><code>" << SText{ MakeModeline() } << "</code></p>\n</figure>\n";
    }

    // What makes the picture: timings that have it in common have one picture.
    auto GetKey() const
    {
        return std::make_tuple(m_oMode.m_uiWidth, m_oMode.m_uiHeight, GetRate(m_oMode), m_oMode.m_ullClock,
                               MakeTimingKey(m_oMode), m_oMode.m_oHorizontal.m_uiBorder,
                               m_oMode.m_oVertical.m_uiBorder);
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

    std::string MakeModeline() const
    {
        const std::string sLine = GetExactModelines({ { GetSourceName(*m_oRow.m_poEntry), m_oMode } });
        return sLine.substr(0, sLine.find_last_not_of('\n') + 1);
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
              << SText{ m_oMode.m_oHorizontal.m_bPositive ? "positive" : "negative" } << ", vertical "
              << SText{ m_oMode.m_oVertical.m_bPositive ? "positive" : "negative" } << "."
              << SText{ m_oMode.m_bInterlaced ? " Lines are those of a frame, which has two fields." : "" } << "</p>\n";
    }

    const SModeRow& m_oRow;
    const SZorMode& m_oMode;
    SPageAxis m_oAcross;
    SPageAxis m_oDown;
};

// ---- Table ----

struct STimingRow
{
    const SPageImage* m_poImage; // of a row that both have, A's
    const SModeRow* m_poMode;
    const SModeRow* m_poOther; // the mode of the other image that equals it; null without one
    std::string m_sIn;         // "A", "B" or "both"; empty for a single image
};

// "preferred", of a pair with whose it is unless both prefer it; or empty.
std::string GetPreferred(const STimingRow& oRow)
{
    const bool bOther = oRow.m_poOther != nullptr && oRow.m_poOther->IsPreferred();
    if (oRow.m_sIn.empty() || (bOther && oRow.m_poMode->IsPreferred()))
    {
        return oRow.m_poMode->IsPreferred() ? "preferred" : "";
    }
    return bOther                          ? "preferred by B"
           : !oRow.m_poMode->IsPreferred() ? ""
           : oRow.m_sIn == "B"             ? "preferred by B"
                                           : "preferred by A";
}

// The preferred mode comes first, then the lists from the detailed timings down, then what is in none.
unsigned int GetRank(const STimingRow& oRow)
{
    return !GetPreferred(oRow).empty() ? 0 : 1U + CZorEdidMap::eList_Detailed - oRow.m_poMode->m_eList;
}

std::vector<STimingRow> ListRows(const SPage& oPage)
{
    std::vector<STimingRow> aoRows;
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        const SPageImage& oImage = *oPage.m_apoImages[i];
        const std::vector<SModeRow>& aoModes = oImage.m_oModes.GetRows();
        for (size_t j = 0; j < aoModes.size(); ++j)
        {
            const size_t uiOther = oPage.IsPair() ? oPage.GetDiff().GetPairs().m_aauiPartners[i][j] : gsc_uiNoPartner;
            const bool bBoth = uiOther != gsc_uiNoPartner;
            if (i == 0 || !bBoth)
            {
                const SModeRow* poOther = bBoth ? &oPage.m_apoImages[1]->m_oModes.GetRows()[uiOther] : nullptr;
                aoRows.push_back({ &oImage, &aoModes[j], poOther, bBoth ? "both" : oPage.GetMark(i) });
            }
        }
    }
    std::ranges::stable_sort(aoRows, {}, GetRank);
    return aoRows;
}

// Numbers are what edits take, and those of the other image are others.
std::string GetNumbers(const STimingRow& oRow)
{
    const std::string sNumber = GetNumberText(*oRow.m_poMode);
    const std::string sOther = oRow.m_poOther == nullptr ? sNumber : GetNumberText(*oRow.m_poOther);
    return sNumber == sOther ? sNumber : "A " + sNumber + ", B " + sOther;
}

// The field that announces a mode: "Type VII timing", "Short video descriptor 3", "Established timings III".
std::string GetSource(const CZorEdidMap& oMap, const SZorImageMode& oEntry)
{
    constexpr unsigned int uiHighBit = 7;
    unsigned int uiField =
        oMap.FindLeaf(oEntry.m_uiOffset, oEntry.m_uiBit == SZorImageMode::msc_uiNone ? uiHighBit : oEntry.m_uiBit);
    for (unsigned int i = uiField; i != CZorEdidMap::msc_uiNone; i = oMap.GetField(i).m_uiGroup)
    {
        uiField = oMap.GetField(i).m_eId == oEntry.m_eField ? i : uiField;
    }
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    return GetFieldName(oField.m_eKind == CZorEdidMap::eKind_Flag ? oMap.GetField(oField.m_uiGroup) : oField);
}

std::string GetMarks(const STimingRow& oRow)
{
    std::string sMarks = GetPreferred(oRow);
    const auto fnAdd = [&sMarks](const std::string& sMark) { sMarks += (sMarks.empty() ? "" : ", ") + sMark; };
    if (!oRow.m_poMode->IsListed())
    {
        fnAdd(GetSource(oRow.m_poImage->m_oMap, *oRow.m_poMode->m_poEntry));
    }
    for (const std::string& sMark : ListMarks(*oRow.m_poMode))
    {
        if (sMark != "preferred")
        {
            fnAdd(sMark);
        }
    }
    return sMarks;
}

// What the rows leave open.
CHtml MakeNotes(const SPage& oPage, const std::vector<STimingRow>& aoRows)
{
    CHtml oHtml;
    const auto iUnlisted = std::ranges::count_if(aoRows, [](const auto& oRow) { return !oRow.m_poMode->IsListed(); });
    if (iUnlisted != 0)
    {
        oHtml << " " << iUnlisted << SText{ iUnlisted == 1 ? " of the modes is" : " of the modes are" }
              << " not listed by the library and " << SText{ iUnlisted == 1 ? "has" : "have" } << " no number.";
    }
    if (std::ranges::any_of(aoRows, [](const auto& oRow) { return !oRow.m_poMode->m_sOtherwise.empty(); }))
    {
        oHtml << " \xE2\x80\x9CThe list\xE2\x80\x9D of a mark is the library's, which has the mode otherwise or not at "
                 "all.";
    }
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        std::string sStrays;
        for (const SStrayTiming& oStray : oPage.m_apoImages[i]->m_oModes.GetStrays())
        {
            sStrays += (sStrays.empty() ? "" : ", ") + oStray.GetNumberText();
        }
        if (!sStrays.empty())
        {
            oHtml << " Only in the library's lists" << SText{ oPage.IsPair() ? " of " : "" }
                  << SText{ oPage.GetMark(i) } << ": " << SText{ sStrays } << ".";
        }
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
    const SModeRow& oModeRow = *oRow.m_poMode;
    const SZorMode& oMode = oModeRow.m_oMode;
    const unsigned long long ullList = oModeRow.IsListed() ? oModeRow.m_eList : CZorEdidMap::eList_Detailed + 1;
    oHtml << "<tr data-list=\"" << SText{ oModeRow.IsListed() ? GetListName(oModeRow.m_eList) : "none" } << "\"";
    if (oPage.IsPair() && oRow.m_poOther == nullptr)
    {
        oHtml << " class=\"differs\"";
    }
    oHtml << "><th scope=\"row\" data-v=\"" << ullList * ullMostOfList + oModeRow.m_uiNumber
          << "\"><label><input type=\"radio\" name=\"timing\" value=\"" << uiPicture << "\"";
    if (!oModeRow.IsListed())
    {
        oHtml << " aria-label=\"" << SText{ GetModeTitle(oMode) } << "\"";
    }
    oHtml << "> " << SText{ GetNumbers(oRow) } << "</label></th>";
    if (oPage.IsPair())
    {
        oHtml << "<td>" << SText{ oRow.m_sIn } << "</td>";
    }
    oHtml << "<td data-v=\"" << 65536ULL * oMode.m_uiWidth + oMode.m_uiHeight << "\">" << SText{ GetModeSize(oMode) }
          << "</td>";
    const double dLineRate = GetLineRate(oMode);
    AddNumber(oHtml, GetRate(oMode), GetShortRate(oMode));
    AddNumber(oHtml, static_cast<double>(oMode.m_ullClock) / gsc_dHzPerMegaHz, GetMegaHertz(oMode.m_ullClock, 3));
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
          << "interlaced modes are those of their fields." << MakeNotes(oPage, aoRows)
          << "<span class=\"narrow\"> The table scrolls sideways.</span></p>\n<div class=\"timings\">\n"
          << "<div class=\"scroll tall\" tabindex=\"0\" role=\"region\" aria-label=\"Table of timings\">"
          << "<table id=\"table\" class=\"" << SText{ oPage.IsPair() ? "pair" : "single" } << "\">\n";
    AddHeads(oHtml, oPage.IsPair());
    oHtml << "<tbody>\n";
    std::map<decltype(std::declval<CTimingPicture>().GetKey()), unsigned int> aoNumbers; // of the pictures
    CHtml oPictures;
    const size_t uiShown = std::min(aoRows.size(), oPage.m_oLimits.m_uiTimings);
    for (size_t i = 0; i < uiShown; ++i)
    {
        const STimingRow& oRow = aoRows[i];
        const CTimingPicture oPicture(*oRow.m_poMode);
        const auto [itNumber, bNew] =
            aoNumbers.try_emplace(oPicture.GetKey(), static_cast<unsigned int>(aoNumbers.size()));
        if (bNew)
        {
            oPictures << oPicture.Make(itNumber->second);
        }
        AddRow(oHtml, itNumber->second, oRow, oPage);
    }
    return oHtml << "</tbody>\n</table></div>\n<div class=\"pictures\">\n"
                 << oPictures << "</div>\n</div>\n"
                 << MakeMore(aoRows.size() - uiShown, "modes", "modes");
}
