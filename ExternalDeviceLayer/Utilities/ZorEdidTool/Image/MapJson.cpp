// From the tree of fields to JSON. A field is an object; a group holds its fields.

#include "MapJson.h"

#include <utility>

#include "Json.h"
#include "MapText.h"
#include "TextFormat.h"

using nlohmann::ordered_json;

namespace
{
// A number with decimals keeps the digits that it has in decimal.
ordered_json MakeNumber(const CZorEdidMap::SField& oField)
{
    if (oField.m_uiDecimals == 0)
    {
        return oField.m_llNumber;
    }
    return GetFieldNumber(oField);
}

void AddValue(const CZorEdidMap& oMap, unsigned int uiField, ordered_json& oJson)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    switch (oField.m_eKind)
    {
    case CZorEdidMap::eKind_Number:
        if (oField.m_bNumber)
        {
            oJson["value"] = MakeNumber(oField);
        }
        break;
    case CZorEdidMap::eKind_Flag:
    case CZorEdidMap::eKind_Name:
    case CZorEdidMap::eKind_Checksum:
        oJson["value"] = MakeNumber(oField);
        break;
    case CZorEdidMap::eKind_Text:
        oJson["value"] = static_cast<const char*>(oMap.GetValue(uiField));
        break;
    default:
        break;
    }
    if (oField.m_pszUnit != nullptr)
    {
        oJson["unit"] = oField.m_pszUnit;
    }
    if (oField.m_pszMeaning != nullptr)
    {
        oJson["meaning"] = oField.m_pszMeaning;
    }
    if (const std::string sText = GetFieldValue(oMap, uiField); !sText.empty())
    {
        oJson["text"] = sText;
    }
}

ordered_json MakePieces(const CZorEdidMap& oMap, const CZorEdidMap::SField& oField)
{
    ordered_json aoPieces = ordered_json::array();
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.GetPiece(oField.m_uiFirstPiece + i);
        aoPieces.push_back(
            { { "offset", oPiece.m_uiOffset }, { "length", oPiece.m_uiLength }, { "mask", oPiece.m_ui8Mask } });
    }
    return aoPieces;
}

std::string GetRaw(const CZorEdidMap& oMap, unsigned int uiField)
{
    std::string sRaw;
    for (const SFieldByte& oByte : GetFieldBytes(oMap, uiField))
    {
        sRaw += FormatHex(oMap.GetData() + oByte.m_uiOffset, 1);
    }
    return sRaw;
}

void AddNotes(const CZorEdidMap& oMap, const CZorEdidMap::SField& oField, ordered_json& oJson)
{
    for (unsigned int i = 0; i < oField.m_uiNotes; ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(oField.m_uiFirstNote + i);
        oJson["notes"].push_back({ { "severity", GetNoteName(oNote.m_eSeverity) }, { "text", oNote.m_pszText } });
    }
}

ordered_json MakeField(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    ordered_json oJson = { { "id", CZorEdidMap::GetId(oField.m_eId) }, { "name", oField.m_pszName } };
    if (oField.m_uiIndex != CZorEdidMap::msc_uiNone)
    {
        oJson["index"] = oField.m_uiIndex;
    }
    oJson["kind"] = GetKindName(oField.m_eKind);
    oJson["area"] = GetAreaName(oField.m_eArea);
    oJson["offset"] = oField.m_uiOffset;
    oJson["length"] = oField.m_uiLength;
    AddValue(oMap, uiField, oJson);
    if (oField.m_uiTiming != CZorEdidMap::msc_uiNone)
    {
        oJson["timing"] = { { "list", GetListName(oField.m_eList) }, { "index", oField.m_uiTiming } };
        if (oField.m_uiTimings > 1)
        {
            oJson["timing"]["indexes"] = { oField.m_uiTiming, oField.m_uiTiming + 1 };
        }
    }
    AddNotes(oMap, oField, oJson);
    if (oField.m_eKind == CZorEdidMap::eKind_Group)
    {
        oJson["fields"] = ordered_json::array();
        return oJson;
    }
    oJson["raw"] = GetRaw(oMap, uiField);
    oJson["pieces"] = MakePieces(oMap, oField);
    return oJson;
}

// Puts fields that are complete into their groups until only uiDepth groups are open.
void Close(std::vector<ordered_json>& aoOpen, size_t uiDepth, ordered_json& aoBlocks)
{
    while (aoOpen.size() > uiDepth)
    {
        ordered_json oDone = std::move(aoOpen.back());
        aoOpen.pop_back();
        (aoOpen.empty() ? aoBlocks : aoOpen.back()["fields"]).push_back(std::move(oDone));
    }
}
} // namespace

ordered_json MakeExplanation(const SInput& oInput, const CZorEdidMap& oMap, const std::vector<bool>& abShown)
{
    ordered_json oJson = MakeDocument();
    oJson["file"] = oInput.m_sName;
    oJson["form"] = oInput.m_sForm;
    oJson["size"] = oMap.GetSize();
    ordered_json aoBlocks = ordered_json::array();
    std::vector<ordered_json> aoOpen; // the chain down to the last field, a place for each depth
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        if (abShown[i])
        {
            Close(aoOpen, oMap.GetField(i).m_uiDepth, aoBlocks);
            aoOpen.push_back(MakeField(oMap, i));
        }
    }
    Close(aoOpen, 0, aoBlocks);
    oJson["fields"] = std::move(aoBlocks);
    return oJson;
}
