// From the tree of fields to JSON. A field is an object; a group holds its fields.

#include "MapJson.h"

#include <algorithm>
#include <numeric>

#include "Json.h"
#include "JsonWriter.h"
#include "MapText.h"
#include "TextFormat.h"
#include "ZorEdidRules.h"

namespace
{
// A number with decimals keeps the digits that it has in decimal.
void WriteNumber(const CZorEdidMap::SField& oField, CJsonWriter& oJson)
{
    if (oField.m_uiDecimals == 0)
    {
        oJson.Member("value", oField.m_llNumber);
    }
    else
    {
        oJson.Member("value", GetFieldNumber(oField));
    }
}

void WriteValue(const CZorEdidMap& oMap, unsigned int uiField, CJsonWriter& oJson)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    switch (GetValueForm(oField))
    {
    case eValue_Number:
        WriteNumber(oField, oJson);
        break;
    case eValue_Text:
        oJson.Member("value", static_cast<const char*>(oMap.GetValue(uiField)));
        break;
    case eValue_None:
        break;
    }
    if (oField.m_pszUnit != nullptr)
    {
        oJson.Member("unit", oField.m_pszUnit);
    }
    if (oField.m_pszMeaning != nullptr)
    {
        oJson.Member("meaning", oField.m_pszMeaning);
    }
    if (const std::string sText = GetFieldValue(oMap, uiField); !sText.empty())
    {
        oJson.Member("text", sText);
    }
}

void WriteBytes(const CZorEdidMap& oMap, unsigned int uiField, CJsonWriter& oJson)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    std::string sRaw;
    for (const SFieldByte& oByte : GetFieldBytes(oMap, uiField))
    {
        sRaw += FormatHex(oMap.GetData() + oByte.m_uiOffset, 1);
    }
    oJson.Member("raw", sRaw);
    oJson.BeginArray("pieces");
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.GetPiece(oField.m_uiFirstPiece + i);
        oJson.BeginObject();
        oJson.Member("offset", oPiece.m_uiOffset);
        oJson.Member("length", oPiece.m_uiLength);
        oJson.Member("mask", oPiece.m_ui8Mask);
        oJson.EndObject();
    }
    oJson.EndArray();
}

void WriteNotes(const CZorEdidMap& oMap, const CZorEdidMap::SField& oField, CJsonWriter& oJson)
{
    if (oField.m_uiNotes == 0)
    {
        return;
    }
    oJson.BeginArray("notes");
    for (unsigned int i = 0; i < oField.m_uiNotes; ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(oField.m_uiFirstNote + i);
        oJson.BeginObject();
        oJson.Member("rule", FindZorEdidRule(oNote.m_eRule)->m_pszId);
        oJson.Member("severity", GetNoteName(oNote.m_eSeverity));
        oJson.Member("text", oNote.m_pszText);
        oJson.EndObject();
    }
    oJson.EndArray();
}

// Leaves the object of the field open, and of a group the list of its fields.
void BeginField(const CZorEdidMap& oMap, unsigned int uiField, CJsonWriter& oJson)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    oJson.BeginObject();
    oJson.Member("id", CZorEdidMap::GetId(oField.m_eId));
    oJson.Member("name", oField.m_pszName);
    if (oField.m_uiIndex != CZorEdidMap::msc_uiNone)
    {
        oJson.Member("index", oField.m_uiIndex);
    }
    oJson.Member("kind", GetKindName(oField.m_eKind));
    oJson.Member("area", GetAreaName(oField.m_eArea));
    oJson.Member("offset", oField.m_uiOffset);
    oJson.Member("length", oField.m_uiLength);
    WriteValue(oMap, uiField, oJson);
    if (oField.m_uiTiming != CZorEdidMap::msc_uiNone)
    {
        oJson.BeginObject("timing");
        oJson.Member("list", GetListName(oField.m_eList));
        oJson.Member("index", oField.m_uiTiming);
        if (oField.m_uiTimings > 1)
        {
            oJson.Member("indexes", std::vector<unsigned int>{ oField.m_uiTiming, oField.m_uiTiming + 1 });
        }
        oJson.EndObject();
    }
    if (oField.m_uiOthers != 0)
    {
        std::vector<unsigned int> auiNumbers(oField.m_uiOthers);
        std::iota(auiNumbers.begin(), auiNumbers.end(), oField.m_uiOther);
        oJson.BeginObject("listed_otherwise");
        oJson.Member("list", GetListName(CZorEdidMap::eList_Standard));
        oJson.Member("indexes", auiNumbers);
        oJson.EndObject();
    }
    WriteNotes(oMap, oField, oJson);
    if (oField.m_eKind == CZorEdidMap::eKind_Group)
    {
        oJson.BeginArray("fields");
        return;
    }
    WriteBytes(oMap, uiField, oJson);
}
} // namespace

std::string MakeExplanation(const SInput& oInput, const CZorEdidMap& oMap, const std::vector<bool>& abShown)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Indented);
    BeginDocument(oJson);
    WriteSource(oInput, oJson);
    oJson.Member("form", oInput.m_sForm);
    if (!oInput.m_auiOffsets.empty())
    {
        oJson.Member("offsets", oInput.m_auiOffsets);
    }
    oJson.Member("size", oMap.GetSize());
    if (std::ranges::find(abShown, false) == abShown.end()) // a part is not built from
    {
        oJson.Member("bytes", FormatHex(oMap.GetData(), oMap.GetSize()));
    }
    oJson.BeginArray("fields");
    std::vector<bool> abOpen; // the chain down to the last field: whether each is a group
    const auto fnClose = [&](size_t uiDepth) {
        for (; abOpen.size() > uiDepth; abOpen.pop_back())
        {
            if (abOpen.back())
            {
                oJson.EndArray();
            }
            oJson.EndObject();
        }
    };
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        if (abShown[i])
        {
            fnClose(oMap.GetField(i).m_uiDepth);
            BeginField(oMap, i, oJson);
            abOpen.push_back(oMap.GetField(i).m_eKind == CZorEdidMap::eKind_Group);
        }
    }
    fnClose(0);
    oJson.EndArray();
    oJson.EndObject();
    return oJson.GetText();
}
