// Names, places and chains of the fields of a map.

#include "MapText.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>

#include "ImageModes.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/VideoCodes.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiWholeByte = 0xFF;

// The bits of a mask, such as ".7-4" or ".7,3"; nothing for a whole byte.
std::string GetBitsText(unsigned int uiMask)
{
    if (uiMask == gsc_uiWholeByte)
    {
        return "";
    }
    std::string sText;
    for (int iHigh = 7; iHigh >= 0; --iHigh)
    {
        if (((uiMask >> iHigh) & 1U) == 0)
        {
            continue;
        }
        int iLow = iHigh;
        while (iLow > 0 && ((uiMask >> (iLow - 1)) & 1U) != 0)
        {
            --iLow;
        }
        sText += (sText.empty() ? "." : ",") + std::to_string(iHigh);
        sText += iLow < iHigh ? "-" + std::to_string(iLow) : "";
        iHigh = iLow;
    }
    return sText;
}

// Fields that hold the code of a timing, and what a code is called with its number.
struct SCodeField
{
    EZorEdidField m_eId;
    const char* m_pszShort;
};
constexpr SCodeField gsc_aoCodeFields[] = {
    { eZorEdidField_CtaVideoVic, "VIC" },
    { eZorEdidField_CtaVideoReferenceVic, "VIC" },
    { eZorEdidField_DisplayidTimingVic, "VIC" },
    { eZorEdidField_CtaHdmiVic, "HDMI_VIC" },
    { eZorEdidField_DisplayidTimingHdmiVic, "HDMI VIC" },
    { eZorEdidField_DisplayidTimingDmtId, "DMT ID" },
    { eZorEdidField_DisplayidTimingCode, "Timing code" },
};

const SCodeField* FindCode(const CZorEdidMap::SField& oField)
{
    const auto* poCode = std::find_if(std::begin(gsc_aoCodeFields), std::end(gsc_aoCodeFields),
                                      [&](const SCodeField& oCode) { return oCode.m_eId == oField.m_eId; });
    return poCode != std::end(gsc_aoCodeFields) ? poCode : nullptr;
}

// ": 1920 x 1080 @ 60 Hz" of what points at a timing by its number; a code has the words itself.
std::string DescribeReference(const CZorEdidMap& oMap, unsigned int uiOffset)
{
    using ZorStandards::SVideoReference;
    CZorEdidModes oModes;
    oModes.Read(oMap.GetSize(), oMap.GetData());
    for (unsigned int i = 0; i < oModes.GetReferenceCount(); ++i)
    {
        const SZorModeReference& oReference = oModes.GetReference(i);
        if (oReference.m_uiOffset != uiOffset ||
            ZorStandards::ReadVideoReference(oReference.m_uiByte).m_eKind == SVideoReference::eVideoCode)
        {
            continue;
        }
        if (oReference.m_uiMode == SZorImageMode::msc_uiNone)
        {
            return ": none";
        }
        const SZorMode& oMode = oModes.Get(oReference.m_uiMode).m_oMode;
        return ": " + GetSizeText(oMode) + " @ " + GetShortRate(oMode) + " Hz";
    }
    return "";
}
} // namespace

std::span<const EZorEdidField> GetAllIds()
{
#define ZOR_EDID_FIELD(NUMBER, NAME, ...) eZorEdidField_##NAME,
    static constexpr EZorEdidField aeIds[] = { ZOR_EDID_FIELDS(ZOR_EDID_FIELD, ZOR_EDID_NO_FIELD, ZOR_EDID_FIELD) };
#undef ZOR_EDID_FIELD
    return aeIds;
}

std::vector<std::string> ListIdTexts()
{
    std::vector<std::string> asIds;
    for (const EZorEdidField eField : GetAllIds())
    {
        asIds.emplace_back(CZorEdidMap::GetId(eField));
    }
    return asIds;
}

// A number after a code, or after a name that ends in one, such as the aspect ratio of a mode, has a mark.
std::string GetFieldName(const CZorEdidMap::SField& oField)
{
    std::string sName = oField.m_pszName;
    if (oField.m_uiIndex == CZorEdidMap::msc_uiNone)
    {
        return sName;
    }
    const bool bMarked = FindCode(oField) != nullptr || (!sName.empty() && sName.back() >= '0' && sName.back() <= '9');
    return sName + (bMarked ? " #" : " ") + std::to_string(oField.m_uiIndex);
}

std::string GetWholeValue(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    const std::string sValue = static_cast<const char*>(oMap.GetValue(uiField));
    const bool bReference = oField.m_eId == eZorEdidField_CtaVideoReference;
    return bReference ? sValue + DescribeReference(oMap, oField.m_uiOffset) : sValue;
}

std::string GetFieldValue(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CZorEdidMap::EKind eKind = oMap.GetField(uiField).m_eKind;
    const bool bBytesOnly = eKind == CZorEdidMap::eKind_Reserved || eKind == CZorEdidMap::eKind_Unknown ||
                            eKind == CZorEdidMap::eKind_Bytes;
    return bBytesOnly && oMap.GetField(uiField).m_pszMeaning == nullptr ? "" : GetWholeValue(oMap, uiField);
}

std::vector<unsigned int> GetChain(const CZorEdidMap& oMap, unsigned int uiField)
{
    std::vector<unsigned int> auiChain;
    for (unsigned int i = uiField; i != CZorEdidMap::msc_uiNone; i = oMap.GetField(i).m_uiGroup)
    {
        auiChain.push_back(i);
    }
    std::reverse(auiChain.begin(), auiChain.end());
    return auiChain;
}

// A container between a block and its groups, such as the data block collection, names nothing by itself.
std::string GetPath(const CZorEdidMap& oMap, unsigned int uiField)
{
    const std::vector<unsigned int> auiChain = GetChain(oMap, uiField);
    const bool bContainer = auiChain.size() > 2 && oMap.GetField(auiChain[1]).m_eArea == CZorEdidMap::eArea_Structure &&
                            oMap.GetField(auiChain[2]).m_eKind == CZorEdidMap::eKind_Group;
    std::string sPath;
    for (size_t i = auiChain.size() == 1 ? 0 : bContainer ? 2 : 1; i < auiChain.size(); ++i)
    {
        sPath += (sPath.empty() ? "" : " > ") + GetFieldName(oMap.GetField(auiChain[i]));
    }
    return sPath;
}

std::vector<unsigned int> FindLeaves(const CZorEdidMap& oMap, unsigned int uiOffset, unsigned int uiMask)
{
    std::vector<unsigned int> auiLeaves;
    for (unsigned int uiBit = 8; uiBit-- > 0;)
    {
        const unsigned int uiLeaf = oMap.FindLeaf(uiOffset, uiBit);
        if (((uiMask >> uiBit) & 1U) != 0 && uiLeaf != CZorEdidMap::msc_uiNone &&
            std::find(auiLeaves.begin(), auiLeaves.end(), uiLeaf) == auiLeaves.end())
        {
            auiLeaves.push_back(uiLeaf);
        }
    }
    return auiLeaves;
}

std::vector<SFieldByte> GetFieldBytes(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    std::vector<CZorEdidMap::SPiece> aoPieces;
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        aoPieces.push_back(oMap.GetPiece(oField.m_uiFirstPiece + i));
    }
    return GetPieceBytes(aoPieces);
}

std::vector<SFieldByte> GetPieceBytes(std::span<const CZorEdidMap::SPiece> aoPieces)
{
    std::vector<SFieldByte> aoBytes;
    for (const CZorEdidMap::SPiece& oPiece : aoPieces)
    {
        for (unsigned int j = 0; j < oPiece.m_uiLength; ++j)
        {
            aoBytes.push_back({ oPiece.m_uiOffset + j, oPiece.m_ui8Mask });
        }
    }
    std::sort(aoBytes.begin(), aoBytes.end(), [](const SFieldByte& oFirst, const SFieldByte& oSecond) {
        return oFirst.m_uiOffset < oSecond.m_uiOffset;
    });
    size_t uiKept = 0; // several pieces of one byte become one
    for (const SFieldByte& oByte : aoBytes)
    {
        if (uiKept != 0 && aoBytes[uiKept - 1].m_uiOffset == oByte.m_uiOffset)
        {
            aoBytes[uiKept - 1].m_uiMask |= oByte.m_uiMask;
        }
        else
        {
            aoBytes[uiKept++] = oByte;
        }
    }
    aoBytes.resize(uiKept);
    return aoBytes;
}

std::string GetOffsetText(unsigned int uiOffset)
{
    char szDigits[8] = {};
    const std::to_chars_result oResult = std::to_chars(szDigits, szDigits + sizeof(szDigits), uiOffset, 16);
    return std::string(uiOffset < 0x10 ? "0" : "").append(szDigits, oResult.ptr);
}

std::string GetPlaceText(const std::vector<SFieldByte>& aoBytes, unsigned int uiStart)
{
    std::string sText;
    for (size_t i = 0; i < aoBytes.size();)
    {
        size_t uiNext = i + 1;
        while (aoBytes[i].m_uiMask == gsc_uiWholeByte && uiNext < aoBytes.size() &&
               aoBytes[uiNext].m_uiMask == gsc_uiWholeByte &&
               aoBytes[uiNext].m_uiOffset == aoBytes[uiNext - 1].m_uiOffset + 1)
        {
            ++uiNext;
        }
        sText += sText.empty() ? "" : " ";
        sText += GetOffsetText(aoBytes[i].m_uiOffset - uiStart);
        sText += uiNext > i + 1 ? "-" + GetOffsetText(aoBytes[uiNext - 1].m_uiOffset - uiStart)
                                : GetBitsText(aoBytes[i].m_uiMask);
        i = uiNext;
    }
    return sText;
}

std::string DescribeBlocks(const CZorEdidMap& oMap)
{
    constexpr std::string_view sEnding = " extension block";
    std::string sText;
    for (unsigned int i = 0; i < oMap.GetFieldCount();)
    {
        const std::string_view sName = oMap.GetField(i).m_pszName;
        unsigned int uiCount = 0;
        for (; i < oMap.GetFieldCount() && oMap.GetField(i).m_pszName == sName; i = oMap.GetField(i).m_uiEnd)
        {
            ++uiCount;
        }
        const bool bExtension = sName.ends_with(sEnding);
        sText += sText.empty() ? "" : ", ";
        sText += sName.substr(0, sName.size() - (bExtension ? sEnding.size() : 0));
        sText += uiCount > 1 ? FormatText(" x %u", uiCount) : "";
    }
    const unsigned int uiBlocks = oMap.GetSize() / ZorStandards::gsc_uiBlockSize;
    const unsigned int uiCounted = 1 + ZorStandards::CountExtensions(oMap.GetData(), oMap.GetSize());
    sText += uiBlocks > uiCounted ? FormatText("; %u not counted", uiBlocks - uiCounted) : "";
    sText += oMap.GetSize() % ZorStandards::gsc_uiBlockSize != 0 ? "; cut short" : "";
    return FormatText("%u bytes: ", oMap.GetSize()) + sText;
}

const char* GetKindName(CZorEdidMap::EKind eKind)
{
    constexpr const char* apszNames[] = { "group", "number",   "flag",     "name",   "text",
                                          "bytes", "reserved", "checksum", "unknown" };
    return apszNames[eKind];
}

const char* GetAreaName(CZorEdidMap::EArea eArea)
{
    constexpr const char* apszNames[] = { "structure", "identity", "display", "colour",
                                          "timing",    "audio",    "vendor",  "unused" };
    return apszNames[eArea];
}

const char* GetListName(CZorEdidMap::EList eList)
{
    switch (eList)
    {
    case CZorEdidMap::eList_Established:
        return "established";
    case CZorEdidMap::eList_Standard:
        return "standard";
    case CZorEdidMap::eList_Detailed:
        return "detailed";
    case CZorEdidMap::eList_None:
        break;
    }
    return "";
}

const char* GetNoteName(CZorEdidMap::ESeverity eSeverity)
{
    constexpr const char* apszNames[] = { "note", "warning", "error" };
    return apszNames[eSeverity];
}

std::string GetTimingNumber(const CZorEdidMap::SField& oField, unsigned int uiIndex)
{
    if (uiIndex < oField.m_uiTimings)
    {
        return FormatText("%s %u", GetListName(oField.m_eList), oField.m_uiTiming + uiIndex);
    }
    const unsigned int uiOther = uiIndex - oField.m_uiTimings;
    return uiOther < oField.m_uiOthers
               ? FormatText("%s %u", GetListName(CZorEdidMap::eList_Standard), oField.m_uiOther + uiOther)
               : "";
}

std::string GetTimingNumbers(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    const auto fnList = [](CZorEdidMap::EList eList, unsigned int uiFirst, unsigned int uiCount) {
        std::string sText = FormatText("%s %u", GetListName(eList), uiFirst);
        for (unsigned int i = uiFirst + 1; i < uiFirst + uiCount; ++i)
        {
            sText += FormatText(", %u", i);
        }
        return sText;
    };
    std::string sOwn = oField.m_uiTimings != 0 ? fnList(oField.m_eList, oField.m_uiTiming, oField.m_uiTimings) : "";
    if (oField.m_uiOthers == 0)
    {
        return sOwn;
    }
    const bool bMap = oField.m_eId == eZorEdidField_Cta420MapVic || oField.m_eId == eZorEdidField_Cta420Map;
    const std::string sOthers = fnList(CZorEdidMap::eList_Standard, oField.m_uiOther, oField.m_uiOthers);
    return (sOwn.empty() ? "" : sOwn + "; ") +
           (bMap ? "in 4:2:0 " + sOthers
                 : DescribeListed(oMap.GetData()[oField.m_uiOffset], oField.m_uiTimings != 0) + ": " + sOthers);
}

std::string DescribeListed(unsigned int uiByte, bool bVariant)
{
    return ZorStandards::IsListedAsOther(uiByte) ? DescribeOtherCode(uiByte)
           : bVariant                            ? "the list has the code at 1000/1001, too"
                                                 : "the list has";
}

std::string DescribeOtherCode(unsigned int uiByte)
{
    return FormatText("the list takes byte %02x for VIC %u", uiByte,
                      ZorStandards::ReadListedShortVideo(uiByte).m_uiCode);
}

EValueForm GetValueForm(const CZorEdidMap::SField& oField)
{
    switch (oField.m_eKind)
    {
    case CZorEdidMap::eKind_Number:
        return oField.m_bNumber ? eValue_Number : eValue_None;
    case CZorEdidMap::eKind_Flag:
    case CZorEdidMap::eKind_Name:
    case CZorEdidMap::eKind_Checksum:
        return eValue_Number;
    case CZorEdidMap::eKind_Text:
        return eValue_Text;
    default:
        return eValue_None;
    }
}

double GetFieldNumber(const CZorEdidMap::SField& oField)
{
    double dScale = 1;
    for (unsigned int i = 0; i < oField.m_uiDecimals; ++i)
    {
        dScale *= 10;
    }
    return static_cast<double>(oField.m_llNumber) / dScale;
}

std::string GetCodeText(const CZorEdidMap::SField& oField)
{
    const SCodeField* poCode = FindCode(oField);
    return poCode != nullptr ? std::string(poCode->m_pszShort) + " " + std::to_string(oField.m_llNumber) : "";
}

std::string GetNoteText(const CZorEdidMap::SNote& oNote)
{
    return std::string(GetNoteName(oNote.m_eSeverity)) + ": " + oNote.m_pszText;
}
