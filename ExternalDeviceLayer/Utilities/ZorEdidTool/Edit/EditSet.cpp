// From the text of --set to a field of the map, and the writer's answer in words.

#include "EditSet.h"

#include <algorithm>
#include <vector>

#include "EdidUtils.h"
#include "MapText.h"
#include "NearWord.h"
#include "TextFormat.h"

namespace
{
using CField = CZorEdidMap::SField;
using CBytes = std::vector<unsigned char>;

constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
constexpr unsigned int gsc_uiBits = 8;

// Cuts "[N]" off. False for another text in brackets.
bool TakeNumber(std::string& sId, unsigned int& uiNumber)
{
    const size_t uiBracket = sId.find('[');
    if (uiBracket == std::string::npos)
    {
        return true;
    }
    const std::string sNumber = sId.substr(uiBracket + 1);
    sId.resize(uiBracket);
    return sNumber.ends_with(']') && ParseNumber(sNumber.substr(0, sNumber.size() - 1), uiNumber);
}

// OFFSET or OFFSET.BIT
bool ParsePlace(const std::string& sText, SSetting& oSetting)
{
    const size_t uiPoint = sText.find('.');
    const bool bBit = uiPoint != std::string::npos;
    return ParseNumber(sText.substr(0, uiPoint), oSetting.m_uiNumber) &&
           (!bBit || (ParseNumber(sText.substr(uiPoint + 1), oSetting.m_uiBit) && oSetting.m_uiBit < gsc_uiBits));
}

std::string FindById(const CZorEdidMap& oMap, const SSetting& oSetting, unsigned int& uiField)
{
    const unsigned int uiCount = oMap.CountFields(oSetting.m_eId);
    const std::string sId = CZorEdidMap::GetId(oSetting.m_eId);
    if (uiCount == 0)
    {
        return "the image has no field " + sId;
    }
    const std::string sLast = sId + "[" + std::to_string(uiCount - 1) + "]";
    const std::string sRange = uiCount == 1 ? "only " + sLast : sId + "[0] to " + sLast;
    if (oSetting.m_uiNumber == SSetting::msc_uiNone && uiCount > 1)
    {
        return "the image has several of this field, " + sRange;
    }
    const unsigned int uiNumber = oSetting.m_uiNumber == SSetting::msc_uiNone ? 0 : oSetting.m_uiNumber;
    if (uiNumber >= uiCount)
    {
        return "the image has " + sRange;
    }
    uiField = oMap.GetTextOf(oMap.FindField(oSetting.m_eId, uiNumber));
    return "";
}

std::string FindByPlace(const CZorEdidMap& oMap, const SSetting& oSetting, unsigned int& uiField)
{
    if (oSetting.m_uiNumber >= oMap.GetSize())
    {
        return "the image ends at 0x" + GetOffsetText(oMap.GetSize() - 1);
    }
    if (oSetting.m_uiBit != SSetting::msc_uiNone)
    {
        uiField = oMap.FindLeaf(oSetting.m_uiNumber, oSetting.m_uiBit);
        return "";
    }
    const std::vector<unsigned int> auiLeaves = FindLeaves(oMap, oSetting.m_uiNumber, 0xFF);
    uiField = auiLeaves.front();
    return auiLeaves.size() == 1 ? "" : "the byte has several fields; a bit from 7 to 0 after a point says which";
}

// The bits of a leaf, of which several may mean the same.
CBytes ReadBits(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CField& oField = oMap.GetField(uiField);
    CBytes aui8Bits;
    for (unsigned int i = oField.m_uiFirstPiece; i < oField.m_uiFirstPiece + oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.GetPiece(i);
        for (unsigned int j = 0; j < oPiece.m_uiLength; ++j)
        {
            aui8Bits.push_back(oMap.GetData()[oPiece.m_uiOffset + j] & oPiece.m_ui8Mask);
        }
    }
    return aui8Bits;
}

std::string DescribeAnswer(const CZorEdidWriter::SAnswer& oAnswer, const CZorEdidMap& oMap, bool bNew)
{
    const std::string sBefore(oAnswer.m_oBefore);
    const std::string sAfter(oAnswer.m_oAfter);
    std::string sText = bNew                ? "is " + sAfter
                        : sBefore == sAfter ? "is " + sAfter + " still, in other bits"
                                            : (sBefore.empty() ? "nothing" : sBefore) + " became " + sAfter;
    sText += oAnswer.m_bExact ? "" : ", the nearest";
    sText += NameFollowed(oMap, oAnswer.m_auiFollowed);
    if (const unsigned int uiOthers = oAnswer.m_auiOthers.GetCount(); uiOthers != 0)
    {
        sText += "; other fields read differently: " + NameField(oMap, oAnswer.m_auiOthers[0]) +
                 (uiOthers > 1 ? " and " + std::to_string(uiOthers - 1) + " more" : "");
    }
    return sText;
}
} // namespace

std::string NameField(const CZorEdidMap& oMap, unsigned int uiField)
{
    return "block " + std::to_string(oMap.GetField(uiField).m_uiOffset / gsc_uiBlockSize) + ": " +
           GetPath(oMap, uiField);
}

std::string NameFollowed(const CZorEdidMap& oMap, const CZorEdidWriter::CFields& auiFollowed)
{
    constexpr unsigned int uiMostNamed = 32; // a long edit has one in each block
    const unsigned int uiCount = auiFollowed.GetCount();
    std::string sText;
    for (unsigned int i = 0; i < std::min(uiCount, uiMostNamed); ++i)
    {
        sText += (i == 0 ? "; followed: " : ", ") + NameField(oMap, auiFollowed[i]);
    }
    return sText + (uiCount > uiMostNamed ? ", " + std::to_string(uiCount - uiMostNamed) + " more" : "");
}

std::string ParseField(const std::string& sField, SSetting& oSetting)
{
    std::string sId = sField;
    if (!sId.empty() && sId[0] >= '0' && sId[0] <= '9')
    {
        return ParsePlace(sId, oSetting) ? "" : "'" + sId + "' is not a place such as 0x36 or 0x36.7";
    }
    if (!TakeNumber(sId, oSetting.m_uiNumber))
    {
        return "'" + sField + "' is not an id such as base.display.gamma or base.standard[2]";
    }
    oSetting.m_eId = CZorEdidMap::FindId(sId.c_str());
    return oSetting.m_eId != eZorEdidField_None
               ? ""
               : "unknown id '" + sId + "'" + NameKnownWords(sId, ListIdTexts(), "an id of 'zoredid explain --ids'");
}

std::string ParseSetting(const std::string& sText, SSetting& oSetting, const char* pszForms)
{
    oSetting = {};
    const size_t uiEquals = sText.find('=');
    if (uiEquals == std::string::npos)
    {
        return "'" + sText + "' is not " + pszForms;
    }
    oSetting.m_sValue = sText.substr(uiEquals + 1);
    return ParseField(sText.substr(0, uiEquals), oSetting);
}

std::string SetField(CZorEdidWriter& oWriter, unsigned int uiField, const std::string& sValue, std::string& sNote,
                     bool bNew)
{
    const std::string sField = NameField(oWriter.GetMap(), uiField);
    const CBytes aui8Before = ReadBits(oWriter.GetMap(), uiField);
    CZorEdidWriter::SAnswer oAnswer;
    if (oWriter.Set(uiField, sValue.c_str(), oAnswer) == 0)
    {
        return sField + ": " + static_cast<const char*>(oAnswer.m_oReason);
    }
    const bool bSame = oAnswer.m_oBefore == oAnswer.m_oAfter && aui8Before == ReadBits(oWriter.GetMap(), uiField);
    sNote = sField + ": " +
            (bSame ? "is " + std::string(oAnswer.m_oAfter) + (bNew ? "" : " already") +
                         NameFollowed(oWriter.GetMap(), oAnswer.m_auiFollowed)
                   : DescribeAnswer(oAnswer, oWriter.GetMap(), bNew));
    return "";
}

std::string FindSetting(const CZorEdidMap& oMap, const SSetting& oSetting, unsigned int& uiField)
{
    return oSetting.m_eId != eZorEdidField_None ? FindById(oMap, oSetting, uiField)
                                                : FindByPlace(oMap, oSetting, uiField);
}
