// What the check finds, and what differs between two images.

#include <algorithm>
#include <array>
#include <optional>

#include "ExactTimings.h"
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
    const size_t uiShown = std::min(oImage.m_aoFindings.size(), oPage.m_oLimits.m_uiFindings);
    for (size_t i = 0; i < uiShown; ++i)
    {
        oHtml << MakeFinding(oPage, uiImage, oImage.m_aoFindings[i]);
    }
    return oHtml << "</ul>\n" << MakeMore(oImage.m_aoFindings.size() - uiShown, "findings", "check");
}

// ---- What differs ----

// One line: where it is, what it is, and what either image has.
struct SDifference
{
    std::array<std::optional<unsigned int>, 2> m_auiPlaces; // offsets
    std::string m_sName;
    std::array<std::string, 2> m_asValues;
};

void AddDifference(const SPage& oPage, const SDifference& oDifference, CHtml& oHtml)
{
    oHtml << "<li>";
    const size_t uiImage = oDifference.m_auiPlaces[0].has_value() ? 0 : 1;
    if (oDifference.m_auiPlaces[uiImage].has_value())
    {
        oHtml << MakePlace(oPage, uiImage, *oDifference.m_auiPlaces[uiImage]);
    }
    else
    {
        oHtml << "<span></span>";
    }
    oHtml << " <strong>" << SText{ oDifference.m_sName } << "</strong>";
    for (size_t i = 0; i < 2; ++i)
    {
        oHtml << " <span>" << SText{ oPage.GetMark(i) } << ": " << SText{ oDifference.m_asValues[i] } << "</span>";
    }
    oHtml << "</li>\n";
}

void AddList(const SPage& oPage, SMarkup oTitle, const std::vector<SDifference>& aoDifferences, CHtml& oHtml)
{
    if (aoDifferences.empty())
    {
        return;
    }
    oHtml << "<h3>" << oTitle << "</h3>\n<ul class=\"differences\">\n";
    const size_t uiShown = std::min(aoDifferences.size(), oPage.m_oLimits.m_uiDifferences);
    for (size_t i = 0; i < uiShown; ++i)
    {
        AddDifference(oPage, aoDifferences[i], oHtml);
    }
    oHtml << "</ul>\n" << MakeMore(aoDifferences.size() - uiShown, "differences", "compare --all");
}

// With the clock, as modes of one size and rate may have several.
std::string GetLongName(const SModeRow& oRow)
{
    const unsigned long long ullClock = oRow.m_oMode.m_ullClock;
    return GetModeTitle(oRow.m_oMode) + (ullClock == 0 ? "" : ", " + GetMegaHertz(ullClock, 3) + " MHz");
}

// "Video codes, block 1: VIC 16, native"
std::string GetSourceWithMarks(const SModeRow& oRow)
{
    std::string sText = GetSourceText(oRow);
    const char* pszBetween = ": ";
    for (const std::string& sMark : ListMarks(oRow))
    {
        sText += pszBetween + sMark;
        pszBetween = ", ";
    }
    return sText;
}

SDifference MakePreferred(const CImageDiff& oDiff)
{
    SDifference oPreferred = { {}, "Preferred mode", { "none", "none" } };
    for (size_t i = 0; i < 2; ++i)
    {
        if (const SModeRow* poRow = oDiff.GetImage(i).m_oModes.FindPreferred(); poRow != nullptr)
        {
            oPreferred.m_auiPlaces[i] = poRow->m_poEntry->m_uiOffset;
            oPreferred.m_asValues[i] = GetLongName(*poRow);
        }
    }
    return oPreferred;
}

// A mode and its partner at 1000/1001 have one line.
std::vector<SDifference> ListModes(const CImageDiff& oDiff)
{
    std::vector<SDifference> aoModes;
    if (oDiff.DifferInPreferred())
    {
        aoModes.push_back(MakePreferred(oDiff));
    }
    const auto fnAdd = [&aoModes](size_t uiImage, const std::vector<const SModeRow*>& apoRows, const char* pszOther) {
        for (const SModeWithPartner& oMode : GroupPartners(apoRows))
        {
            const SModeRow& oRow = *oMode.m_poRow;
            SDifference oDifference = { {}, GetLongName(oRow) + oMode.GetPartnerText(), { pszOther, pszOther } };
            oDifference.m_auiPlaces[uiImage] = oRow.m_poEntry->m_uiOffset;
            oDifference.m_asValues[uiImage] = GetSourceWithMarks(oRow);
            aoModes.push_back(oDifference);
        }
    };
    for (size_t i = 0; i < 2; ++i)
    {
        fnAdd(i, oDiff.ListOnly(i), "missing");
        fnAdd(i, oDiff.ListMore(i), "announced elsewhere");
    }
    for (const SFormDifference& oForm : oDiff.ListForms())
    {
        aoModes.push_back({ {}, oForm.m_pszForm + (", " + oForm.m_sModes), oForm.m_asValues });
    }
    return aoModes;
}

std::optional<unsigned int> FindPlace(const CZorEdidMap& oMap, EZorEdidField eId)
{
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        if (oMap.GetField(i).m_eId == eId)
        {
            return oMap.GetField(i).m_uiOffset;
        }
    }
    return std::nullopt;
}

std::vector<SDifference> ListFacts(const CImageDiff& oDiff)
{
    std::vector<SDifference> aoFacts;
    for (const SFactDifference& oFact : oDiff.GetFacts())
    {
        SDifference oDifference = { {}, oFact.m_sName, oFact.m_asWords };
        for (size_t i = 0; i < 2; ++i)
        {
            if (!oFact.m_asValues[i].empty() && oFact.m_eId != eZorEdidField_None)
            {
                oDifference.m_auiPlaces[i] = FindPlace(oDiff.GetImage(i).m_oPart.m_oMap, oFact.m_eId);
            }
        }
        aoFacts.push_back(oDifference);
    }
    return aoFacts;
}

std::vector<SDifference> ListFields(const CImageDiff& oDiff)
{
    std::vector<SDifference> aoFields;
    for (const SFieldDifference& oField : oDiff.GetFields())
    {
        SDifference oDifference = { {}, oField.m_sPath + oField.m_sWhich, {} };
        for (size_t i = 0; i < 2; ++i)
        {
            const bool bPresent = oField.m_auiFields[i] != CZorEdidMap::msc_uiNone;
            oDifference.m_asValues[i] = bPresent ? oField.m_asValues[i] : "missing";
            if (bPresent)
            {
                oDifference.m_auiPlaces[i] = oDiff.GetImage(i).m_oPart.Get(oField.m_auiFields[i]).m_uiOffset;
            }
        }
        aoFields.push_back(oDifference);
    }
    return aoFields;
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
} // namespace

CHtml MakeDifferences(const SPage& oPage)
{
    CHtml oHtml;
    if (!oPage.IsPair())
    {
        return oHtml;
    }
    const CImageDiff& oDiff = oPage.GetDiff();
    CHtml oLists;
    AddList(oPage, "Modes", ListModes(oDiff), oLists);
    AddList(oPage, "Facts", ListFacts(oDiff), oLists);
    AddList(oPage, "Other fields", ListFields(oDiff), oLists);
    const unsigned int uiBytes = CountDifferentBytes(oPage);
    oHtml << "<p>" << uiBytes << SText{ uiBytes == 1 ? " byte differs" : " bytes differ" }
          << ". Modes only in A: " << oDiff.ListOnly(0).size() << ", only in B: " << oDiff.ListOnly(1).size()
          << ".</p>\n";
    if (oLists.IsEmpty())
    {
        return oHtml << "<p class=\"good\">Both say the same.</p>\n";
    }
    return oHtml << oLists;
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
