// The bytes as a grid and the fields as a tree beside it. Byte and field are tied by attributes, which Page.js reads:
// data-p of a field lists its runs of bytes as OFFSET+LENGTH, data-f has words that it is found by but does not show.

#include <algorithm>

#include "MapText.h"
#include "PageParts.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
constexpr unsigned int gsc_uiLine = 16; // bytes

const char* GetAreaClass(const CZorEdidMap::SField& oField) { return GetAreaName(oField.m_eArea); }

// Whether the value is that of single bytes, which are shown in columns.
bool IsRaw(const CZorEdidMap::SField& oField)
{
    return oField.m_eKind == CZorEdidMap::eKind_Bytes || oField.m_eKind == CZorEdidMap::eKind_Reserved ||
           oField.m_eKind == CZorEdidMap::eKind_Unknown || oField.m_eKind == CZorEdidMap::eKind_Text;
}

CHtml MakeLegend()
{
    CHtml oHtml;
    oHtml << "<ul class=\"legend\" aria-label=\"Colours\">";
    for (unsigned int i = 0; i <= CZorEdidMap::eArea_Unused; ++i)
    {
        const SText oName = { GetAreaName(static_cast<CZorEdidMap::EArea>(i)) };
        oHtml << "<li><span class=\"swatch " << oName << "\"></span>" << oName << "</li>";
    }
    return oHtml
           << "</ul>\n<p class=\"small\">Places are hexadecimal and count from the image's first byte. Bits follow "
           << "a point: \xE2\x80\x9C"
              "08.6-0 09\xE2\x80\x9D is bits 6 to 0 of byte 08, then byte 09.</p>\n";
}

// The bytes and the fields of one image.
class CByteView
{
public:
    CByteView(const SPage& oPage, size_t uiImage)
        : m_oPage(oPage), m_uiImage(uiImage), m_oImage(*oPage.m_apoImages[uiImage]), m_oMap(m_oImage.m_oMap),
          m_pszKey(uiImage == 0 ? "a" : "b")
    {
    }

    CHtml Make() const
    {
        CHtml oHtml;
        oHtml << "<div class=\"view\" data-key=\"" << SText{ m_pszKey } << "\">\n";
        if (m_oPage.IsPair())
        {
            oHtml << "<h3>" << SText{ m_oPage.GetMark(m_uiImage) } << ": " << SText{ m_oImage.m_sTitle } << "</h3>\n";
        }
        oHtml << "<div class=\"panes\">\n<div>\n<div class=\"said\" tabindex=\"0\" role=\"region\" aria-label=\"What "
              << "the byte or field" << SText{ GetOfImage() } << " says\" aria-live=\"polite\"><p>Point at a byte or a "
              << "field, or move to one with the arrow keys.</p></div>\n<div class=\"grids\">\n";
        for (unsigned int uiStart = 0; uiStart < m_oMap.GetSize(); uiStart += gsc_uiBlockSize)
        {
            AddGrid(uiStart, oHtml);
        }
        oHtml << "</div>\n</div>\n<div class=\"fields\">\n<label class=\"find\">Find a field" << SText{ GetOfImage() }
              << " <input type=\"search\" placeholder=\"name, value, note or 0x36\" autocomplete=\"off\" "
              << "spellcheck=\"false\"></label>\n<p class=\"none\" role=\"status\"></p>\n<ul role=\"tree\" "
              << "aria-multiselectable=\"true\" aria-label=\"Fields" << SText{ GetOfImage() } << "\">\n";
        const unsigned int uiLeft = AddFields(oHtml);
        return (oHtml << "</ul>\n" << MakeMore(uiLeft, "fields", "explain") << "</div>\n</div>\n</div>\n").Take();
    }

private:
    // " of A" where there are two; their parts need names of their own.
    std::string GetOfImage() const { return m_oPage.IsPair() ? std::string(" of ") + m_oPage.GetMark(m_uiImage) : ""; }

    // ---- Grid ----

    void AddGrid(unsigned int uiStart, CHtml& oHtml) const
    {
        const unsigned int uiEnd = std::min(m_oMap.GetSize(), uiStart + gsc_uiBlockSize);
        const CZorEdidMap::SField& oBlock = m_oMap.GetField(GetChain(m_oMap, m_oMap.FindLeaf(uiStart, 7)).front());
        const std::string sName = FormatText("Block %u: ", uiStart / gsc_uiBlockSize) + oBlock.m_pszName;
        oHtml << "<table role=\"grid\" class=\"grid" << SText{ m_oMap.GetSize() > 2 * gsc_uiBlockSize ? " wide" : "" }
              << "\" aria-multiselectable=\"true\" aria-label=\"Bytes" << SText{ GetOfImage() } << ", "
              << SText{ sName } << "\"><caption>" << SText{ sName } << "</caption>\n<thead><tr><td></td>";
        for (unsigned int i = 0; i < gsc_uiLine; ++i)
        {
            oHtml << "<th scope=\"col\">" << SText{ FormatText("%x", i) } << "</th>";
        }
        oHtml << "</tr></thead>\n<tbody>\n";
        for (unsigned int uiLine = uiStart; uiLine < uiEnd; uiLine += gsc_uiLine)
        {
            oHtml << "<tr><th scope=\"row\">" << SText{ FormatText("%02x", uiLine) } << "</th>";
            for (unsigned int i = uiLine; i < uiEnd && i < uiLine + gsc_uiLine; ++i)
            {
                AddCell(i, oHtml);
            }
            oHtml << "</tr>\n";
        }
        oHtml << "</tbody></table>\n";
    }

    // The area of the byte's first field that is in use.
    const char* FindAreaClass(unsigned int uiOffset) const
    {
        for (unsigned int i = 8; i-- > 0;)
        {
            const CZorEdidMap::SField* poField = m_oImage.FindField(uiOffset, i);
            if (poField != nullptr && poField->m_eArea != CZorEdidMap::eArea_Unused)
            {
                return GetAreaClass(*poField);
            }
        }
        return GetAreaName(CZorEdidMap::eArea_Unused);
    }

    // What the other image has at the place; -1 past its end.
    int GetOther(unsigned int uiOffset) const
    {
        const std::vector<unsigned char>& aui8Other = m_oPage.m_apoImages[1 - m_uiImage]->m_oInput.m_aui8Bytes;
        return uiOffset < aui8Other.size() ? aui8Other[uiOffset] : -1;
    }

    void AddCell(unsigned int uiOffset, CHtml& oHtml) const
    {
        const unsigned int uiByte = m_oMap.GetData()[uiOffset];
        const int iOther = m_oPage.IsPair() ? GetOther(uiOffset) : static_cast<int>(uiByte);
        const std::string sByte = FormatText("%02x", uiByte);
        oHtml << "<td role=\"gridcell\" tabindex=\"" << SText{ uiOffset == 0 ? "0" : "-1" } << "\" id=\""
              << SText{ m_pszKey } << uiOffset << "\" class=\"" << SText{ FindAreaClass(uiOffset) };
        if (iOther != static_cast<int>(uiByte))
        {
            oHtml << " differs\" aria-label=\"" << SText{ sByte } << ", "
                  << SText{ iOther < 0 ? "not in the other image" : FormatText("other image %02x", iOther) };
        }
        oHtml << "\">" << SText{ sByte } << "</td>";
    }

    // ---- Tree ----

    // Returns how many fields are left out: those of the blocks after the limit, which have one line each.
    unsigned int AddFields(CHtml& oHtml) const
    {
        std::vector<unsigned int> auiEnds; // of the open groups
        unsigned int uiLeft = 0;
        for (unsigned int i = 0; i < m_oMap.GetFieldCount(); ++i)
        {
            for (; !auiEnds.empty() && auiEnds.back() <= i; auiEnds.pop_back())
            {
                oHtml << "</ul></li>\n";
            }
            const CZorEdidMap::SField& oField = m_oMap.GetField(i);
            const bool bGroup = oField.m_eKind == CZorEdidMap::eKind_Group;
            const bool bClosed = bGroup && oField.m_uiDepth == 0 && i >= m_oPage.m_oLimits.m_uiFields;
            AddItem(i, bGroup && !bClosed, oHtml);
            if (bClosed)
            {
                uiLeft += oField.m_uiEnd - i - 1;
                i = oField.m_uiEnd - 1;
            }
            else if (bGroup)
            {
                auiEnds.push_back(oField.m_uiEnd);
            }
        }
        for (size_t i = 0; i < auiEnds.size(); ++i)
        {
            oHtml << "</ul></li>\n";
        }
        return uiLeft;
    }

    void AddRuns(const CZorEdidMap::SField& oField, CHtml& oHtml) const
    {
        if (oField.m_uiPieces == 0)
        {
            oHtml << oField.m_uiOffset << "+" << oField.m_uiLength;
        }
        for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
        {
            const CZorEdidMap::SPiece& oPiece = m_oMap.GetPiece(oField.m_uiFirstPiece + i);
            oHtml << SText{ i == 0 ? "" : " " } << oPiece.m_uiOffset << "+" << oPiece.m_uiLength;
        }
    }

    std::string GetPlace(unsigned int uiField) const
    {
        const CZorEdidMap::SField& oField = m_oMap.GetField(uiField);
        return oField.m_eKind == CZorEdidMap::eKind_Group
                   ? FormatText("%02x-%02x", oField.m_uiOffset, oField.m_uiOffset + oField.m_uiLength - 1)
                   : GetPlaceText(GetFieldBytes(m_oMap, uiField), 0);
    }

    // bOpen: of a group, which stays open for the items in it.
    void AddItem(unsigned int uiField, bool bOpen, CHtml& oHtml) const
    {
        const CZorEdidMap::SField& oField = m_oMap.GetField(uiField);
        const SPageField& oPlace = m_oImage.m_aoFields[uiField];
        const bool bGroup = oField.m_eKind == CZorEdidMap::eKind_Group;
        oHtml << "<li role=\"none\"><div role=\"treeitem\" aria-level=\"" << oField.m_uiDepth + 1 << "\" tabindex=\""
              << SText{ uiField == 0 ? "0" : "-1" } << "\" ";
        if (const std::string sCode = GetCodeText(oField); !sCode.empty())
        {
            oHtml << "data-f=\"" << SText{ sCode } << "\" ";
        }
        if (m_oPage.m_bNumbered)
        {
            oHtml << "data-i=\"" << uiField << "\" ";
        }
        oHtml << "data-p=\"";
        AddRuns(oField, oHtml);
        if (bOpen)
        {
            oHtml << "\" aria-expanded=\"true\" aria-owns=\"" << SText{ m_pszKey } << "g" << uiField;
        }
        oHtml << "\" class=\"field " << SText{ bGroup ? "group" : GetAreaClass(oField) }
              << SText{ oPlace.m_bDiffers ? " differs" : "" } << "\"><span class=\"name\">"
              << SText{ GetFieldName(oField) } << "</span> ";
        if (const std::string sNumber = GetTimingNumbers(m_oMap, uiField); !sNumber.empty())
        {
            oHtml << "<span class=\"list\">" << SText{ sNumber } << "</span> ";
        }
        oHtml << "<span class=\"value" << SText{ IsRaw(oField) ? " raw" : "" } << "\">"
              << SText{ GetWholeValue(m_oMap, uiField) } << "</span> <span class=\"place\">"
              << SText{ GetPlace(uiField) } << "</span>";
        AddOther(oPlace, bGroup, oHtml);
        AddNotes(oField, oHtml);
        oHtml << "</div>";
        if (bOpen)
        {
            oHtml << "<ul role=\"group\" id=\"" << SText{ m_pszKey } << "g" << uiField << "\">\n";
        }
        else
        {
            oHtml << "</li>\n";
        }
    }

    void AddOther(const SPageField& oPlace, bool bGroup, CHtml& oHtml) const
    {
        if (!oPlace.m_bDiffers || (bGroup && !oPlace.m_bOnlyHere))
        {
            return;
        }
        oHtml << " <span class=\"other\">";
        if (oPlace.m_bOnlyHere)
        {
            oHtml << "only in " << SText{ m_oPage.GetMark(m_uiImage) } << "</span>";
            return;
        }
        oHtml << SText{ m_oPage.GetMark(1 - m_uiImage) } << " has " << SText{ oPlace.m_sOther } << "</span>";
    }

    void AddNotes(const CZorEdidMap::SField& oField, CHtml& oHtml) const
    {
        for (unsigned int i = 0; i < oField.m_uiNotes; ++i)
        {
            const CZorEdidMap::SNote& oNote = m_oMap.GetNote(oField.m_uiFirstNote + i);
            oHtml << " <span class=\"remark " << SText{ GetNoteName(oNote.m_eSeverity) } << "\">"
                  << SText{ GetNoteText(oNote) } << "</span>";
        }
    }

    const SPage& m_oPage;
    const size_t m_uiImage;
    const SPageImage& m_oImage;
    const CZorEdidMap& m_oMap;
    const char* const m_pszKey; // prefix of each identifier of this image
};
} // namespace

CHtml MakeBytes(const SPage& oPage)
{
    CHtml oHtml;
    oHtml << MakeLegend();
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        oHtml << CByteView(oPage, i).Make();
    }
    return oHtml;
}
