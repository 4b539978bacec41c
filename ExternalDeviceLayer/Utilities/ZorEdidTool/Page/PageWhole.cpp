// A page from its parts: head, links to the sections, and the sections.

#include "PageParts.h"

namespace
{
struct SPart
{
    const char* m_pszId;
    const char* m_pszName; // in the list of links
    const char* m_pszTitle;
    CHtml (*m_pfnMake)(const SPage&);
};

// The sections in their order. One without content is left out.
constexpr SPart gsc_aoParts[] = {
    { "monitor", "What it is", "What it is", MakeHead },
    { "findings", "Findings", "Findings", MakeFindings },
    { "differences", "What differs", "What differs", MakeDifferences },
    { "bytes", "Bytes", "Bytes and fields", MakeBytes },
    { "timings", "Timings", "Timings", MakeTimings },
    { "modes", "Modes", "Modes over their rates", MakeModePlots },
    { "colour", "Colour", "Colour", MakeColours },
};

// The links to the sections, and then these.
CHtml MakeSections(const SPage& oPage)
{
    CHtml oLinks;
    CHtml oSections;
    for (const SPart& oPart : gsc_aoParts)
    {
        const CHtml oContent = oPart.m_pfnMake(oPage);
        if (!oContent.IsEmpty())
        {
            const SText oId = { oPart.m_pszId };
            oLinks << "<li><a href=\"#" << oId << "\">" << SText{ oPart.m_pszName } << "</a></li>";
            oSections << "<section id=\"" << oId << "\" aria-labelledby=\"h-" << oId << "\">\n<h2 id=\"h-" << oId
                      << "\">" << SText{ oPart.m_pszTitle } << "</h2>\n"
                      << oContent << "</section>\n";
        }
    }
    CHtml oHtml;
    return (oHtml << "<nav aria-label=\"Sections\"><ul>" << oLinks << "</ul></nav>\n<main id=\"content\">\n"
                  << oSections << "</main>\n")
        .Take();
}

std::string GetTitle(const SPage& oPage)
{
    const std::string& sFirst = oPage.m_apoImages[0]->m_sTitle;
    return oPage.IsPair() ? sFirst + " and " + oPage.m_apoImages[1]->m_sTitle : sFirst;
}

CHtml MakeBody(const SPage& oPage)
{
    CHtml oHtml;
    oHtml << "<a class=\"skip\" href=\"#content\">Skip to the content</a>\n<header>\n<div>\n<h1>"
          << SText{ GetTitle(oPage) } << "</h1>\n<p class=\"file\">";
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        oHtml << SText{ i == 0 ? "" : " and " } << "<span>" << SText{ oPage.m_apoImages[i]->m_sFile } << "</span>";
    }
    oHtml << "</p>\n";
    if (!oPage.m_sIndex.empty())
    {
        oHtml << "<p class=\"file\"><a href=\"" << SText{ oPage.m_sIndex } << "\">All monitors</a></p>\n";
    }
    for (const auto& poImage : oPage.m_apoImages)
    {
        if (!poImage->m_oInput.m_sImages.empty())
        {
            oHtml << "<p class=\"file\">" << SText{ poImage->m_oInput.m_sImages } << "</p>\n";
        }
    }
    return (oHtml << "</div>\n<button type=\"button\" id=\"theme\">Dark</button>\n</header>\n"
                  << MakeSections(oPage) << "<footer><p>Made by zoredid page.</p></footer>\n")
        .Take();
}

// Whole, but for images of many blocks that are full of codes: the limits are for a page that browsers are slow with.
CHtml MakeBodyWithLimits(SPage& oPage)
{
    constexpr size_t uiLarge = 5000000;
    constexpr SPageLimits oLimits = { 500, 500, 5000, 1000 };
    CHtml oBody = MakeBody(oPage);
    if (oBody.Get().size() > uiLarge)
    {
        oPage.m_oLimits = oLimits;
        oBody = MakeBody(oPage);
    }
    return oBody;
}
} // namespace

std::string MakeWholePage(SPage& oPage) { return MakePage(GetTitle(oPage), MakeBodyWithLimits(oPage), oPage.m_sMark); }
