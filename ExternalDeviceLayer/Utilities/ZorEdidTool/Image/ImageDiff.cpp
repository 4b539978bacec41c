// Comparing modes, facts and fields, and saying what differs.

#include "ImageDiff.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "ExactTimings.h"
#include "Json.h"
#include "MapText.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;

CFactList ReadFacts(const std::vector<unsigned char>& aui8Bytes)
{
    CZorEdidFacts oFacts;
    oFacts.Read(static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data());
    return ListFacts(oFacts);
}

// ---- Facts ----

std::string MakeText(const CFactValue& oValue)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Line);
    oValue.Write(oJson);
    return oJson.GetText();
}

struct SFactText
{
    std::string m_sText;
    EZorEdidField m_eId;
};

// By name; a list has its elements under its own name, each as an object.
using CFactTexts = std::multimap<std::string, SFactText>;

CFactTexts ListTexts(const CFactList& aoFacts)
{
    CFactTexts oTexts;
    for (size_t i = 0; i < aoFacts.size();)
    {
        const std::string_view sPath = aoFacts[i].m_pszPath;
        const size_t uiList = sPath.find('#');
        if (uiList == std::string_view::npos)
        {
            oTexts.emplace(sPath, SFactText{ MakeText(aoFacts[i].m_oValue), aoFacts[i].m_eId });
            ++i;
            continue;
        }
        const std::string_view sList = sPath.substr(0, uiList + 1);
        const EZorEdidField eId = aoFacts[i].m_eId;
        const unsigned int uiElement = aoFacts[i].m_uiElement;
        CJsonWriter oJson(CJsonWriter::eStyle_Line);
        oJson.BeginObject();
        for (; i < aoFacts.size() && aoFacts[i].m_uiElement == uiElement &&
               std::string_view(aoFacts[i].m_pszPath).starts_with(sList);
             ++i)
        {
            oJson.Name(std::string_view(aoFacts[i].m_pszPath).substr(sList.size() + 1));
            aoFacts[i].m_oValue.Write(oJson);
        }
        oJson.EndObject();
        oTexts.emplace(sList.substr(0, uiList), SFactText{ oJson.GetText(), eId });
    }
    return oTexts;
}

// Takes out of both lists what they share. Elements of lists are matched whatever their order.
void DropShared(CFactTexts& oFirst, CFactTexts& oSecond)
{
    for (auto it = oFirst.begin(); it != oFirst.end();)
    {
        const auto [itBegin, itEnd] = oSecond.equal_range(it->first);
        const auto itSame = std::find_if(
            itBegin, itEnd, [&](const auto& oOther) { return oOther.second.m_sText == it->second.m_sText; });
        const bool bShared = itSame != itEnd;
        if (bShared)
        {
            oSecond.erase(itSame);
        }
        it = bShared ? oFirst.erase(it) : std::next(it);
    }
}

// ---- Fields ----

// What follows from the content: how long things are, where they begin, and sums.
bool IsLayout(const CZorEdidMap::SField& oField)
{
    constexpr EZorEdidField aeLayout[] = { eZorEdidField_CtaDataBlockLength,     eZorEdidField_CtaDetailedOffset,
                                           eZorEdidField_CtaHdmiVicLen,          eZorEdidField_CtaHdmi3dLen,
                                           eZorEdidField_DisplayidSectionLength, eZorEdidField_DisplayidDataBlockLength,
                                           eZorEdidField_CtaNativeCount };
    const bool bGoodSum = oField.m_eKind == CZorEdidMap::eKind_Checksum && oField.m_uiNotes == 0;
    return bGoodSum || oField.m_eId == eZorEdidField_Padding ||
           std::ranges::find(aeLayout, oField.m_eId) != std::end(aeLayout);
}

// Bits of a list of codes, which move with the codes; what they say is said of the modes.
bool IsOfCodes(const CZorEdidMap::SField& oField)
{
    return oField.m_eId == eZorEdidField_CtaHdmi3dMaskPlace || oField.m_eId == eZorEdidField_Cta420MapVic;
}

// Whether the field, or a group that it lies in, announces a mode, and it is a part of its timing.
bool IsOfMode(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CZorEdidMap::EArea eArea = oMap.GetField(uiField).m_eArea;
    CZorEdidMap::SMode oMode;
    for (unsigned int i = uiField; i != gsc_uiNone && eArea == CZorEdidMap::eArea_Timing;
         i = oMap.GetField(i).m_uiGroup)
    {
        if (oMap.GetMode(i, oMode))
        {
            return !oMode.m_bReference;
        }
    }
    return false;
}

std::string GetText(const CZorEdidMap& oMap, unsigned int uiField)
{
    if (uiField == gsc_uiNone)
    {
        return "";
    }
    const std::string sText = GetFieldValue(oMap, uiField);
    return sText.empty() ? "there" : sText;
}

// Whether a fact that differs says what the field says. A list of names says it of all fields of its structure.
bool IsSaidBy(const SFactDifference& oFact, EZorEdidField eId)
{
    const std::string sPrefix =
        std::string(oFact.m_eId != eZorEdidField_None ? CZorEdidMap::GetId(oFact.m_eId) : "-") + ".";
    const bool bList = oFact.m_asValues[0].starts_with('[') || oFact.m_asValues[1].starts_with('[');
    return oFact.m_eId == eId || (bList && std::string_view(CZorEdidMap::GetId(eId)).starts_with(sPrefix));
}

bool IsSame(const SMapPart& oFirst, const SMapPart& oSecond, const SFieldDifference& oField)
{
    const auto [uiFirst, uiSecond] = oField.m_auiFields;
    return uiFirst != gsc_uiNone && uiSecond != gsc_uiNone && oField.m_asValues[0] == oField.m_asValues[1] &&
           oFirst.GetBytes(uiFirst) == oSecond.GetBytes(uiSecond);
}
} // namespace

SComparedImage::SComparedImage(const std::vector<unsigned char>& aui8Bytes)
    : m_aoFacts(ReadFacts(aui8Bytes)), m_oModes(aui8Bytes, nullptr, {})
{
    m_oPart.m_oMap.Read(static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data());
    for (unsigned int i = 0; i < m_oPart.m_oMap.GetFieldCount(); ++i)
    {
        if (IsLayout(m_oPart.Get(i)))
        {
            m_oPart.m_oWithout.insert(i);
        }
    }
}

CImageDiff::CImageDiff(const SComparedImage& oFirst, const SComparedImage& oSecond)
    : m_apoImages{ &oFirst, &oSecond }, m_oPairs(MatchModes(oFirst.m_oModes, oSecond.m_oModes))
{
    const SModeRow* poFirst = oFirst.m_oModes.FindPreferred();
    const SModeRow* poSecond = oSecond.m_oModes.FindPreferred();
    m_bPreferred = poFirst == nullptr || poSecond == nullptr ? poFirst != poSecond : !IsSameMode(*poFirst, *poSecond);
    FindFacts();
    FindFields();
}

std::vector<const SModeRow*> CImageDiff::ListOnly(size_t uiImage, bool bEstablished) const
{
    const std::vector<SModeRow>& aoRows = m_apoImages[uiImage]->m_oModes.GetRows();
    std::vector<const SModeRow*> apoOnly;
    for (size_t i = 0; i < aoRows.size(); ++i)
    {
        // All are matched, so that another field may announce what an established timing of the other image does.
        const SZorMode::EModeKind eKind = aoRows[i].m_oMode.m_eKind;
        const bool bLeftOut =
            !bEstablished && (eKind == SZorMode::eModeKind_Established || eKind == SZorMode::eModeKind_EstablishedIII);
        if (m_oPairs.IsOnlyHere(uiImage, i) && !bLeftOut)
        {
            apoOnly.push_back(&aoRows[i]);
        }
    }
    return apoOnly;
}

void CImageDiff::FindFacts()
{
    CFactTexts oFirst = ListTexts(m_apoImages[0]->m_aoFacts);
    CFactTexts oSecond = ListTexts(m_apoImages[1]->m_aoFacts);
    DropShared(oFirst, oSecond);
    const auto fnIsPlain = [](const SFactText& oText) { return !oText.m_sText.starts_with('{'); };
    for (const auto& [sName, oText] : oFirst)
    {
        const auto itOther = oSecond.find(sName);
        const bool bBoth = itOther != oSecond.end() && fnIsPlain(oText);
        m_aoFacts.push_back({ sName, oText.m_eId, { oText.m_sText, bBoth ? itOther->second.m_sText : "" } });
        if (bBoth)
        {
            oSecond.erase(itOther);
        }
    }
    for (const auto& [sName, oText] : oSecond)
    {
        m_aoFacts.push_back({ sName, oText.m_eId, { "", oText.m_sText } });
    }
}

void CImageDiff::FindFields()
{
    const CZorEdidMap& oFirst = m_apoImages[0]->m_oPart.m_oMap;
    const CZorEdidMap& oSecond = m_apoImages[1]->m_oPart.m_oMap;
    for (const auto& [uiFirst, uiSecond] : CompareMaps(m_apoImages[0]->m_oPart, m_apoImages[1]->m_oPart))
    {
        const CZorEdidMap& oMap = uiFirst != gsc_uiNone ? oFirst : oSecond;
        const unsigned int uiField = uiFirst != gsc_uiNone ? uiFirst : uiSecond;
        const CZorEdidMap::SField& oField = oMap.GetField(uiField);
        const bool bFact =
            std::ranges::any_of(m_aoFacts, [&](const SFactDifference& oFact) { return IsSaidBy(oFact, oField.m_eId); });
        if (bFact || IsOfCodes(oField) || IsOfMode(oMap, uiField))
        {
            continue;
        }
        SFieldDifference oDifference = { oField.m_eId,
                                         GetPath(oMap, uiField),
                                         { uiFirst, uiSecond },
                                         { GetText(oFirst, uiFirst), GetText(oSecond, uiSecond) } };
        if (!IsSame(m_apoImages[0]->m_oPart, m_apoImages[1]->m_oPart, oDifference))
        {
            m_aoFields.push_back(std::move(oDifference));
        }
    }
}

// ---- In words ----

std::string DescribeMode(const SModeRow& oRow)
{
    std::string sText = oRow.m_oMode.m_bTiming ? GetExactNumbers(oRow.m_oMode) : GetExactText(oRow.m_oMode);
    sText.erase(0, sText.find_first_not_of(' '));
    for (const std::string& sMark : ListMarks(oRow))
    {
        sText += "  " + sMark;
    }
    return sText;
}

std::string DescribeDiff(const CImageDiff& oDiff, const SDiffRules& oRules, const SDiffWords& oWords)
{
    std::string sText;
    for (size_t i = 0; i < 2 && !oRules.m_bIgnorePreferred && oDiff.DifferInPreferred(); ++i)
    {
        const SModeRow* poPreferred = oDiff.GetImage(i).m_oModes.FindPreferred();
        sText += oWords.m_asPreferred[i] + ": " + (poPreferred != nullptr ? DescribeMode(*poPreferred) : "none") + "\n";
    }
    for (size_t i = 0; i < 2; ++i)
    {
        const std::vector<const SModeRow*> apoRows = oDiff.ListOnly(i, oRules.m_bEstablished);
        for (size_t j = 0; j < apoRows.size(); ++j)
        {
            const bool bPair = j + 1 < apoRows.size() && apoRows[j + 1]->m_poEntry == apoRows[j]->m_poEntry;
            sText += oWords.m_asOnly[i] + ": " + DescribeMode(*apoRows[j]) +
                     (bPair ? ", and at " + GetShortRate(apoRows[j + 1]->m_oMode) + " Hz" : "") + "\n";
            j += bPair ? 1 : 0;
        }
    }
    if (!oRules.m_bAll)
    {
        return sText;
    }
    const auto fnValue = [](const std::string& sValue) { return sValue.empty() ? std::string("-") : sValue; };
    for (const SFactDifference& oFact : oDiff.GetFacts())
    {
        sText += oFact.m_sName + ": " + fnValue(oFact.m_asValues[0]) + " | " + fnValue(oFact.m_asValues[1]) + "\n";
    }
    for (const SFieldDifference& oField : oDiff.GetFields())
    {
        sText += std::string(CZorEdidMap::GetId(oField.m_eId)) + " (" + oField.m_sPath +
                 "): " + fnValue(oField.m_asValues[0]) + " | " + fnValue(oField.m_asValues[1]) + "\n";
    }
    return sText;
}

void WriteDiff(const CImageDiff& oDiff, const SDiffRules& oRules, CJsonWriter& oJson)
{
    constexpr const char* apszOnly[] = { "only_in_first", "only_in_second" };
    constexpr const char* apszSides[] = { "first", "second" };
    oJson.BeginObject("modes");
    for (size_t i = 0; i < 2; ++i)
    {
        oJson.BeginArray(apszOnly[i]);
        for (const SModeRow* poRow : oDiff.ListOnly(i, oRules.m_bEstablished))
        {
            WriteMode(*poRow, oJson);
        }
        oJson.EndArray();
    }
    if (!oRules.m_bIgnorePreferred && oDiff.DifferInPreferred())
    {
        oJson.BeginObject("preferred");
        for (size_t i = 0; i < 2; ++i)
        {
            if (const SModeRow* poPreferred = oDiff.GetImage(i).m_oModes.FindPreferred(); poPreferred != nullptr)
            {
                oJson.Name(apszSides[i]);
                WriteMode(*poPreferred, oJson);
            }
        }
        oJson.EndObject();
    }
    oJson.EndObject();
    if (!oRules.m_bAll)
    {
        return;
    }
    const auto fnValues = [&](const std::array<std::string, 2>& asValues, bool bJson) {
        for (size_t i = 0; i < 2; ++i)
        {
            if (!asValues[i].empty())
            {
                oJson.Name(apszSides[i]);
                bJson ? oJson.Raw(asValues[i]) : oJson.Value(asValues[i]);
            }
        }
    };
    oJson.BeginArray("facts");
    for (const SFactDifference& oFact : oDiff.GetFacts())
    {
        oJson.BeginObject();
        oJson.Member("fact", oFact.m_sName);
        fnValues(oFact.m_asValues, true);
        oJson.EndObject();
    }
    oJson.EndArray();
    oJson.BeginArray("fields");
    for (const SFieldDifference& oField : oDiff.GetFields())
    {
        oJson.BeginObject();
        oJson.Member("id", CZorEdidMap::GetId(oField.m_eId));
        oJson.Member("path", oField.m_sPath);
        fnValues(oField.m_asValues, false);
        oJson.EndObject();
    }
    oJson.EndArray();
}
