// What the check finds, and what differs between two images.

#include <algorithm>

#include "MapText.h"
#include "PageParts.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

// A link to the byte in the grid.
CHtml MakePlaceLink(size_t uiImage, unsigned int uiOffset)
{
    CHtml oHtml;
    return oHtml << "<a href=\"#" << SText{ uiImage == 0 ? "a" : "b" } << uiOffset << "\">"
                 << SText{ FormatText("0x%02x", uiOffset) } << "</a>";
}

CHtml MakeFindingRow(size_t uiImage, const SFinding& oFinding)
{
    const char* pszSeverity = GetSeverityName(oFinding.m_eSeverity);
    CHtml oHtml;
    return oHtml << "<tr><td><span class=\"badge " << SText{ pszSeverity } << "\">" << SText{ pszSeverity }
                 << "</span></td><td>"
                 << MakePlaceLink(uiImage, oFinding.m_uiBlock * gsc_uiBlockSize + oFinding.m_uiOffset)
                 << "</td><th scope=\"row\">" << SText{ oFinding.m_sWhat } << "</th><td>" << SText{ oFinding.m_sField }
                 << "</td><td>" << SText{ oFinding.m_sFound } << "</td><td>" << SText{ oFinding.m_sExpected }
                 << "</td></tr>\n";
}

CHtml MakeFindingTable(const SPage& oPage, size_t uiImage)
{
    CHtml oHtml;
    const SPageImage& oImage = *oPage.m_apoImages[uiImage];
    if (oPage.IsPair())
    {
        oHtml << "<h3>" << SText{ oPage.GetMark(uiImage) } << ": " << SText{ oImage.m_sTitle } << "</h3>\n";
    }
    if (oImage.m_aoFindings.empty())
    {
        return oHtml << "<p class=\"good\">Nothing is wrong with this image.</p>\n";
    }
    oHtml << "<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"Table of findings\"><table>\n"
          << "<thead><tr><th scope=\"col\">Weight</th><th scope=\"col\">Byte</th><th scope=\"col\">What</th>"
          << "<th scope=\"col\">Field</th>"
          << "<th scope=\"col\">Found</th><th scope=\"col\">Expected</th></tr></thead>\n<tbody>\n";
    for (const SFinding& oFinding : oImage.m_aoFindings)
    {
        oHtml << MakeFindingRow(uiImage, oFinding);
    }
    return oHtml << "</tbody>\n</table></div>\n";
}

// Fields that both have come once; a group that only one has comes as a whole.
void AddDifferences(const SPage& oPage, size_t uiImage, CHtml& oHtml)
{
    const SPageImage& oImage = *oPage.m_apoImages[uiImage];
    const CZorEdidMap& oMap = oImage.m_oMap;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const SPageField& oPlace = oImage.m_aoFields[i];
        const bool bGroup = oMap.GetField(i).m_eKind == CZorEdidMap::eKind_Group;
        if (!oPlace.m_bOnlyHere && (bGroup || !oPlace.m_bDiffers || uiImage != 0))
        {
            continue;
        }
        const std::string sValue = static_cast<const char*>(oMap.GetValue(i));
        const std::string sHere = sValue.empty() ? "there" : sValue;
        const std::string sOther = oPlace.m_bOnlyHere ? "\u2013" : oPlace.m_sOther;
        oHtml << "<tr><td>" << MakePlaceLink(uiImage, oMap.GetField(i).m_uiOffset) << "</td><th scope=\"row\">"
              << SText{ GetPath(oMap, i) } << "</th><td>" << SText{ uiImage == 0 ? sHere : sOther } << "</td><td>"
              << SText{ uiImage == 0 ? sOther : sHere } << "</td></tr>\n";
        i = oPlace.m_bOnlyHere ? oMap.GetField(i).m_uiEnd - 1 : i;
    }
}

unsigned int CountDifferentBytes(const SPage& oPage)
{
    const std::vector<unsigned char>& aui8First = oPage.m_apoImages[0]->m_oInput.m_aui8Bytes;
    const std::vector<unsigned char>& aui8Second = oPage.m_apoImages[1]->m_oInput.m_aui8Bytes;
    const size_t szShared = std::min(aui8First.size(), aui8Second.size());
    size_t szCount = std::max(aui8First.size(), aui8Second.size()) - szShared;
    for (size_t i = 0; i < szShared; ++i)
    {
        szCount += aui8First[i] != aui8Second[i] ? 1U : 0U;
    }
    return static_cast<unsigned int>(szCount);
}

unsigned int CountOnly(const SPageImage& oImage)
{
    unsigned int uiCount = 0;
    for (const SPageTiming& oTiming : oImage.m_aoTimings)
    {
        uiCount += oTiming.m_bOnlyHere ? 1 : 0;
    }
    return uiCount;
}

CHtml MakeDifferences(const SPage& oPage)
{
    CHtml oRows;
    AddDifferences(oPage, 0, oRows);
    AddDifferences(oPage, 1, oRows);
    CHtml oHtml;
    oHtml << "<section id=\"differences\" aria-labelledby=\"h-differences\">\n<h2 id=\"h-differences\">What "
             "differs</h2>\n"
          << "<p>" << CountDifferentBytes(oPage)
          << " bytes differ. Timings only in A: " << CountOnly(*oPage.m_apoImages[0])
          << ", only in B: " << CountOnly(*oPage.m_apoImages[1]) << ".</p>\n";
    if (oRows.IsEmpty())
    {
        return oHtml << "<p class=\"good\">No field differs.</p>\n</section>\n";
    }
    return oHtml
           << "<div class=\"scroll tall\" tabindex=\"0\" role=\"region\" aria-label=\"Table of differences\"><table>\n"
           << "<thead><tr><th scope=\"col\">Byte</th><th scope=\"col\">Field</th><th scope=\"col\">A</th>"
           << "<th scope=\"col\">B</th></tr></thead>\n<tbody>\n"
           << oRows << "</tbody>\n</table></div>\n</section>\n";
}
} // namespace

CHtml MakeFindings(const SPage& oPage)
{
    CHtml oHtml;
    oHtml << "<section id=\"findings\" aria-labelledby=\"h-findings\">\n<h2 id=\"h-findings\">Findings</h2>\n";
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        oHtml << MakeFindingTable(oPage, i);
    }
    oHtml << "</section>\n";
    return oPage.IsPair() ? oHtml << MakeDifferences(oPage) : oHtml;
}
