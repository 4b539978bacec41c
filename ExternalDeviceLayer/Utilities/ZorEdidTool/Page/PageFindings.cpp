// What the check finds, and what differs between two images.

#include <algorithm>

#include "MapText.h"
#include "PageParts.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

// A link to the byte in the grid; past the image, the place alone.
CHtml MakePlace(const SPage& oPage, size_t uiImage, unsigned int uiOffset)
{
    const std::string sPlace = FormatText("0x%02x", uiOffset);
    CHtml oHtml;
    if (uiOffset >= oPage.m_apoImages[uiImage]->m_oMap.GetSize())
    {
        return oHtml << SText{ sPlace };
    }
    return oHtml << "<a href=\"#" << SText{ uiImage == 0 ? "a" : "b" } << uiOffset << "\">" << SText{ sPlace }
                 << "</a>";
}

CHtml MakeFinding(const SPage& oPage, size_t uiImage, const SFinding& oFinding)
{
    const SText oSeverity = { GetNoteName(oFinding.m_eSeverity) };
    CHtml oHtml;
    oHtml << "<li><span class=\"badge " << oSeverity << "\">" << oSeverity << "</span> "
          << MakePlace(oPage, uiImage, oFinding.m_uiBlock * gsc_uiBlockSize + oFinding.m_uiOffset) << " <span><strong>"
          << SText{ oFinding.m_sWhat } << "</strong>";
    oHtml << SText{ oFinding.m_sFound.empty() ? "" : ": found " + oFinding.m_sFound }
          << SText{ oFinding.m_sExpected.empty() ? "" : ", expected " + oFinding.m_sExpected };
    if (!oFinding.m_sField.empty())
    {
        oHtml << " <span class=\"small\">" << SText{ oFinding.m_sField } << "</span>";
    }
    return oHtml << "</span></li>\n";
}

CHtml MakeFindingList(const SPage& oPage, size_t uiImage)
{
    CHtml oHtml;
    const SPageImage& oImage = *oPage.m_apoImages[uiImage];
    if (oPage.IsPair())
    {
        oHtml << "<h3>" << SText{ oPage.GetMark(uiImage) } << ": " << SText{ oImage.m_sTitle } << "</h3>\n";
    }
    if (oImage.m_aoFindings.empty())
    {
        return oHtml
               << "<p class=\"good\">The check finds nothing.</p>\n"
               << "<p class=\"small\">It only reads the bytes: whether the monitor shows what they say, and whether "
                  "source and cable carry it, is not checked.</p>\n";
    }
    oHtml << "<ul class=\"findings\">\n";
    for (const SFinding& oFinding : oImage.m_aoFindings)
    {
        oHtml << MakeFinding(oPage, uiImage, oFinding);
    }
    return oHtml << "</ul>\n";
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
        const std::string sOther = oPlace.m_bOnlyHere ? "not there" : oPlace.m_sOther;
        oHtml << "<li>" << MakePlace(oPage, uiImage, oMap.GetField(i).m_uiOffset) << " <strong>"
              << SText{ GetPath(oMap, i) } << "</strong> <span>A: " << SText{ uiImage == 0 ? sHere : sOther }
              << "</span> <span>B: " << SText{ uiImage == 0 ? sOther : sHere } << "</span></li>\n";
        i = oPlace.m_bOnlyHere ? oMap.GetField(i).m_uiEnd - 1 : i;
    }
}

unsigned int CountDifferentBytes(const SPage& oPage)
{
    const std::vector<unsigned char>& aui8First = oPage.m_apoImages[0]->m_oInput.m_aui8Bytes;
    const std::vector<unsigned char>& aui8Second = oPage.m_apoImages[1]->m_oInput.m_aui8Bytes;
    const size_t uiShared = std::min(aui8First.size(), aui8Second.size());
    size_t uiCount = std::max(aui8First.size(), aui8Second.size()) - uiShared;
    for (size_t i = 0; i < uiShared; ++i)
    {
        uiCount += aui8First[i] != aui8Second[i] ? 1U : 0U;
    }
    return static_cast<unsigned int>(uiCount);
}

// What the library makes of a code that means another mode does not count: the other mode does.
unsigned int CountOnly(const SPage& oPage, size_t uiImage)
{
    const CModes& aoModes = oPage.m_apoImages[uiImage]->m_aoModes;
    unsigned int uiCount = 0;
    for (size_t i = 0; i < aoModes.size(); ++i)
    {
        uiCount += oPage.m_oPairs.IsOnlyHere(uiImage, i) && aoModes[i].IsOfMonitor() ? 1U : 0U;
    }
    return uiCount;
}
} // namespace

CHtml MakeDifferences(const SPage& oPage)
{
    CHtml oHtml;
    if (!oPage.IsPair())
    {
        return oHtml;
    }
    CHtml oRows;
    AddDifferences(oPage, 0, oRows);
    AddDifferences(oPage, 1, oRows);
    oHtml << "<p>" << CountDifferentBytes(oPage) << " bytes differ. Timings only in A: " << CountOnly(oPage, 0)
          << ", only in B: " << CountOnly(oPage, 1) << ".</p>\n";
    if (oRows.IsEmpty())
    {
        return oHtml << "<p class=\"good\">No field differs.</p>\n";
    }
    return oHtml << "<ul class=\"differences\">\n" << oRows << "</ul>\n";
}

CHtml MakeFindings(const SPage& oPage)
{
    CHtml oHtml;
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        oHtml << MakeFindingList(oPage, i);
    }
    return oHtml;
}
