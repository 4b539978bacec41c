// Rows of an index: the facts in the words of `show`, with numbers to sort by, and counts of findings.

#include "PageIndex.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "FactList.h"
#include "FactWords.h"
#include "MapText.h"
#include "PageParts.h"
#include "TextFormat.h"

namespace
{
using CSeverity = CZorEdidMap::ESeverity;

struct SColumn
{
    const char* m_pszHead;
    CHtml (*m_pfnMake)(const SPageImage&); // the cell
};

CHtml MakeText(const std::string& sText)
{
    CHtml oHtml;
    return oHtml << "<td>" << SText{ sText } << "</td>";
}

// Page.js sorts by the number.
CHtml MakeNumber(double dNumber, const std::string& sText)
{
    CHtml oHtml;
    return oHtml << "<td data-v=\"" << SDecimal{ dNumber, 3 } << "\">" << SText{ sText } << "</td>";
}

CHtml MakeSize(const SPageImage& oImage)
{
    const CZorEdidFacts::SSize& oSize = oImage.m_oFacts.GetSize();
    return MakeNumber(oSize.m_oSize.IsSaid() ? oSize.GetDiagonal() : 0, WithTimes(DescribeSize(oSize)));
}

CHtml MakePreferred(const SPageImage& oImage)
{
    const SModeRow* poRow = oImage.m_oModes.FindPreferred();
    if (poRow == nullptr)
    {
        return MakeNumber(0, "");
    }
    const SZorMode& oMode = poRow->m_oMode;
    // By size, then by rate.
    constexpr double dMostHz = 10000;
    const double dPixels = static_cast<double>(oMode.m_uiWidth) * oMode.m_uiHeight;
    return MakeNumber(dPixels * dMostHz + GetRate(oMode), GetModeTitle(oMode));
}

CHtml MakeModeCount(const SPageImage& oImage)
{
    const size_t uiCount = oImage.m_oModes.GetRows().size();
    return MakeNumber(static_cast<double>(uiCount), std::to_string(uiCount));
}

// By the peak. The words are those of the kinds, and of no other luminance.
CHtml MakeHdr(const SPageImage& oImage)
{
    const std::string sKinds = NameHdrKinds(oImage.m_oFacts.GetColour());
    if (sKinds.empty())
    {
        return MakeNumber(0, DescribeHdr(oImage.m_oFacts));
    }
    const auto& oPeak = oImage.m_oFacts.GetColour().m_oContentMax.m_oValue;
    const double dPeak = oPeak.m_ui8Code != 0 ? static_cast<double>(oPeak.m_fLuminance) : 0;
    return MakeNumber(1 + dPeak, sKinds + (dPeak > 0 ? FormatText("; peak %.0f cd/m\u00B2", dPeak) : ""));
}

// By the highest rate; above none where no range is known.
CHtml MakeVariableRefresh(const SPageImage& oImage)
{
    const std::string sText = DescribeVariableRefresh(oImage.m_oFacts);
    const CZorEdidFacts::SLink& oLink = oImage.m_oFacts.GetLink();
    if (!HasVariableRefresh(oLink))
    {
        return MakeNumber(0, sText);
    }
    double dMost = oLink.m_oContinuous.m_oValue ? oLink.m_oVerticalRates.m_oValue.m_uiMost : 0;
    double dFastest = 0; // mode
    for (const SModeRow& oRow : oImage.m_oModes.GetRows())
    {
        dFastest = std::max(dFastest, GetRate(oRow.m_oMode));
    }
    for (const CZorEdidFacts::SVariableRefresh& oRange : ListVariableRefresh(oLink))
    {
        dMost = std::max(dMost, oRange.m_uiMost != 0 ? oRange.m_uiMost : dFastest);
    }
    return MakeNumber(1 + dMost, sText);
}

unsigned long long CountFindings(const SPageImage& oImage, CSeverity eSeverity)
{
    return static_cast<unsigned long long>(std::ranges::count(oImage.m_aoFindings, eSeverity, &SFinding::m_eSeverity));
}

constexpr CSeverity gsc_aeSeverities[] = { CZorEdidMap::eSeverity_Error, CZorEdidMap::eSeverity_Warning,
                                           CZorEdidMap::eSeverity_Note };

CHtml MakeFindingCounts(const SPageImage& oImage)
{
    constexpr unsigned long long ullMost = 100000; // findings of a severity that sort; one error is above all warnings
    unsigned long long ullWeight = 0;
    CHtml oCounts;
    for (const CSeverity eSeverity : gsc_aeSeverities)
    {
        const unsigned long long ullCount = CountFindings(oImage, eSeverity);
        ullWeight = ullWeight * ullMost + std::min(ullCount, ullMost - 1);
        if (ullCount != 0)
        {
            const SText oName = { GetNoteName(eSeverity) };
            oCounts << "<span class=\"badge " << oName << "\">" << ullCount << " " << oName
                    << SText{ ullCount == 1 ? "" : "s" } << "</span> ";
        }
    }
    CHtml oHtml;
    oHtml << "<td data-v=\"" << ullWeight << "\">" << oCounts << SText{ oCounts.IsEmpty() ? "none" : "" };
    if (!oImage.m_oLoaded.IsLoaded())
    {
        oHtml << "<span class=\"small\">The library refuses the image: " << SText{ oImage.m_oLoaded.GetProblem() }
              << "</span>";
    }
    return (oHtml << "</td>").Take();
}

// After the name.
constexpr SColumn gsc_aoColumns[] = {
    { "Maker", [](const SPageImage& oImage) { return MakeText(DescribeMaker(oImage.m_oFacts.GetIdentity())); } },
    { "Size", MakeSize },
    { "Preferred mode", MakePreferred },
    { "Modes", MakeModeCount },
    { "HDR", MakeHdr },
    { "Variable refresh", MakeVariableRefresh },
    { "Findings", MakeFindingCounts },
};

constexpr const char* gsc_pszUnread = "unread";

// What the list above the table chooses by: words of data-list, and what they are called there.
struct SChoice
{
    const char* m_pszWord;
    const char* m_pszName;
    bool (*m_pfnFits)(const SPageImage&); // null for inputs without an image
};

constexpr SChoice gsc_aoChoices[] = {
    { "hdr", "with HDR", [](const SPageImage& oImage) { return !NameHdrKinds(oImage.m_oFacts.GetColour()).empty(); } },
    { "vrr", "with variable refresh",
      [](const SPageImage& oImage) { return HasVariableRefresh(oImage.m_oFacts.GetLink()); } },
    { "error", "with errors",
      [](const SPageImage& oImage) { return CountFindings(oImage, CZorEdidMap::eSeverity_Error) != 0; } },
    { "warning", "with warnings",
      [](const SPageImage& oImage) { return CountFindings(oImage, CZorEdidMap::eSeverity_Warning) != 0; } },
    { "none", "without findings", [](const SPageImage& oImage) { return oImage.m_aoFindings.empty(); } },
    { "refused", "refused by the library", [](const SPageImage& oImage) { return !oImage.m_oLoaded.IsLoaded(); } },
    { gsc_pszUnread, "unreadable", nullptr },
};

// The start of a row up to its name, which is below the title.
void OpenRow(CHtml& oHtml, const std::string& sChoices, const std::string& sTitle, const std::string& sName,
             const std::string& sLink)
{
    oHtml << "<tr data-list=\"" << SText{ sChoices } << "\"><th scope=\"row\">";
    if (!sLink.empty())
    {
        oHtml << "<a href=\"" << SText{ sLink } << "\">" << SText{ sTitle } << "</a>";
    }
    else
    {
        oHtml << SText{ sTitle };
    }
    if (sTitle != sName)
    {
        oHtml << "<span class=\"small\">" << SText{ sName } << "</span>";
    }
    oHtml << "</th>";
}
} // namespace

CHtml MakeIndexRow(const SPageImage& oImage, const std::string& sName, const std::string& sLink)
{
    std::vector<std::string> asChoices;
    for (const SChoice& oChoice : gsc_aoChoices)
    {
        asChoices.push_back(oChoice.m_pfnFits != nullptr && oChoice.m_pfnFits(oImage) ? oChoice.m_pszWord : "");
    }
    const std::string sTitle = DescribeName(oImage.m_oFacts.GetIdentity());
    CHtml oHtml;
    OpenRow(oHtml, JoinTexts(asChoices, " "), sTitle.empty() ? ShowName(sName) : sTitle, ShowName(sName), sLink);
    for (const SColumn& oColumn : gsc_aoColumns)
    {
        oHtml << oColumn.m_pfnMake(oImage);
    }
    return (oHtml << "</tr>\n").Take();
}

CHtml MakeUnreadRow(const std::string& sName, const std::string& sProblem)
{
    CHtml oHtml;
    OpenRow(oHtml, gsc_pszUnread, ShowName(sName), ShowName(sName), "");
    return (oHtml << "<td colspan=\"" << std::size(gsc_aoColumns) << "\"><span class=\"badge error\">unreadable</span> "
                  << SText{ ShowName(sProblem) } << "</td></tr>\n")
        .Take();
}

bool IsUnreadRow(std::string_view svRow) { return svRow.starts_with(std::string("<tr data-list=\"") + gsc_pszUnread); }

CHtml OpenIndex(const std::string& sTitle)
{
    CHtml oHtml;
    oHtml << "<a class=\"skip\" href=\"#content\">Skip to the content</a>\n<header>\n<div>\n<h1>" << SText{ sTitle }
          << "</h1>\n</div>\n<button type=\"button\" id=\"theme\">Dark</button>\n</header>\n<main id=\"content\">\n"
          << "<section class=\"index\" aria-label=\"Monitors\">\n<div class=\"tools\"><label>Filter "
          << "<input type=\"search\" id=\"filter\" autocomplete=\"off\" spellcheck=\"false\"></label> "
          << "<label>Show <select id=\"list\"><option value=\"\">all</option>";
    for (const SChoice& oChoice : gsc_aoChoices)
    {
        oHtml << "<option value=\"" << SText{ oChoice.m_pszWord } << "\">" << SText{ oChoice.m_pszName } << "</option>";
    }
    oHtml << "</select></label> <span id=\"count\" role=\"status\"></span></div>\n"
          << "<p class=\"small narrow\">The table scrolls sideways.</p>\n<div class=\"scroll\" tabindex=\"0\" "
          << "role=\"region\" aria-label=\"Table of monitors\"><table id=\"table\">\n<thead><tr><th scope=\"col\">Name"
          << "</th>";
    for (const SColumn& oColumn : gsc_aoColumns)
    {
        oHtml << "<th scope=\"col\">" << SText{ oColumn.m_pszHead } << "</th>";
    }
    return (oHtml << "</tr></thead>\n<tbody>\n").Take();
}

std::string CloseIndex(const std::string& sTitle, CHtml oIndex, const std::string& sMark)
{
    oIndex << "</tbody>\n</table></div>\n</section>\n</main>\n<footer><p>Made by zoredid page.</p></footer>\n";
    return MakePage(sTitle, oIndex, sMark);
}
