// Parts by their ids: any data block, descriptor, timing or block added, removed and moved; and a tile by its numbers.

#include <stdio.h>

#include <algorithm>

#include "EditDisplayId.h"
#include "EditNamed.h"
#include "EditPositions.h"
#include "FieldEdits.h"
#include "InputReaders.h"
#include "Standards/DisplayIdSection.h"
#include "TextFormat.h"

using namespace ZorStandards;

namespace
{
bool IsDescriptor(EZorEdidField eId)
{
    return eId == eZorEdidField_BaseDetailed || eId == eZorEdidField_BaseName || eId == eZorEdidField_BaseSerial ||
           eId == eZorEdidField_BaseString || eId == eZorEdidField_BaseRange;
}

std::string AddPart(CFieldEdits& oFields, EZorEdidField eId, const CBytes& aui8Bytes)
{
    return eId == eZorEdidField_BaseStandard ? oFields.AddStandard(aui8Bytes)
           : IsDescriptor(eId)               ? oFields.AddDescriptor(aui8Bytes)
                                             : oFields.AddDataBlock(eId, aui8Bytes);
}

// The first detailed timing of an image that declares it the preferred one.
bool IsPreferredTiming(const CFieldEdits& oFields, unsigned int uiField)
{
    const CZorEdidMap::SField& oField = oFields.GetMap().GetField(uiField);
    return oField.m_eId == eZorEdidField_BaseDetailed && oField.m_uiOffset == BaseBlock::DescriptorOffset(0) &&
           BaseBlock::IsPreferredTimingDeclared(oFields.GetMap().GetData());
}

// The part that is meant, in a block of its checksum; a whole block goes or moves with any. Else the reason.
std::string FindPart(const CFieldEdits& oFields, const SSetting& oSetting, unsigned int& uiField)
{
    std::string sReason = FindSetting(oFields.GetMap(), oSetting, uiField);
    if (!sReason.empty())
    {
        return sReason;
    }
    const CZorEdidMap::SField& oField = oFields.GetMap().GetField(uiField);
    return oField.m_uiLength < ZorStandards::gsc_uiBlockSize ? RefuseWrongSum(oFields, oField.m_uiOffset) : "";
}

// What the maker, the product and the serial number of the whole display are: those of this tile.
CBytes MakeTile(const CFieldEdits& oFields, const unsigned int (&auiNumbers)[6])
{
    using namespace DisplayId;
    CBytes aui8Payload(gsc_uiTiledTopologySize);
    unsigned char* pui8Tile = aui8Payload.data();
    gsc_oSingleEnclosure.Write(pui8Tile, 1);
    gsc_oSingleTileBehaviour.Write(pui8Tile, 2); // scaled to the whole display
    gsc_oTileCountX.Write(pui8Tile, auiNumbers[0] - 1);
    gsc_oTileCountY.Write(pui8Tile, auiNumbers[1] - 1);
    gsc_oTileLocationX.Write(pui8Tile, auiNumbers[2]);
    gsc_oTileLocationY.Write(pui8Tile, auiNumbers[3]);
    gsc_oTileWidth.Write(pui8Tile, auiNumbers[4] - 1);
    gsc_oTileHeight.Write(pui8Tile, auiNumbers[5] - 1);
    const unsigned char* pui8Base = oFields.GetMap().GetData();
    const BaseBlock::SManufacturerCode oMaker = BaseBlock::ReadManufacturerCode(pui8Base);
    std::copy(oMaker.m_szCode, oMaker.m_szCode + BaseBlock::gsc_uiManufacturerLetters,
              pui8Tile + gsc_uiTileVendorOffset);
    gsc_oTileProduct.Write(pui8Tile, BaseBlock::ReadProductCode(pui8Base));
    gsc_oTileSerial.Write(pui8Tile, BaseBlock::ReadSerialNumber(pui8Base));
    return aui8Payload;
}
} // namespace

// COLUMNSxROWS,COLUMNxROW,WIDTHxHEIGHT
std::string ParseTile(const std::string& sText, CNamedEdit& fnEdit)
{
    constexpr unsigned int uiMostTiles = 64;
    constexpr unsigned int uiMostPixels = 65536;
    struct STile
    {
        unsigned int m_auiNumbers[6] = {};
    } oTile;
    auto& n = oTile.m_auiNumbers;
    char cEnd = '\0';
    const int iRead =
        sscanf(sText.c_str(), "%3ux%3u,%3ux%3u,%6ux%6u%c", &n[0], &n[1], &n[2], &n[3], &n[4], &n[5], &cEnd);
    if (iRead != 6 || n[0] == 0 || n[0] > uiMostTiles || n[1] == 0 || n[1] > uiMostTiles || n[2] >= n[0] ||
        n[3] >= n[1] || n[4] == 0 || n[4] > uiMostPixels || n[5] == 0 || n[5] > uiMostPixels)
    {
        return "'" + sText +
               "' is not COLUMNSxROWS,COLUMNxROW,WIDTHxHEIGHT such as 2x1,0x0,1920x2160: up to 64 tiles each way, "
               "columns and rows from 0";
    }
    fnEdit = [oTile](CFieldEdits& oFields) {
        if (oFields.GetMap().GetSize() < ZorStandards::gsc_uiBlockSize)
        {
            return std::string("the base block is not whole");
        }
        std::string sProblem = BeginDisplayId(oFields, false);
        return sProblem.empty()
                   ? oFields.PutPayload(eZorEdidField_DisplayidTiled, MakeTile(oFields, oTile.m_auiNumbers),
                                        FindPlaceInDisplayId(oFields))
                   : sProblem;
    };
    return "";
}

std::string ParseAdd(const std::string& sText, CNamedEdit& fnEdit)
{
    SSetting oSetting;
    SInput oInput;
    std::string sProblem = ParseSetting(sText, oSetting);
    if (!sProblem.empty())
    {
        return sProblem;
    }
    if (oSetting.m_eId == eZorEdidField_None || oSetting.m_uiNumber != SSetting::msc_uiNone)
    {
        return "'" + sText + "' is not ID=HEX such as cta.hdr-static=0501";
    }
    std::string sDigits = oSetting.m_sValue;
    std::erase(sDigits, ' ');
    if (!AddHex(oInput, sDigits))
    {
        return "'" + oSetting.m_sValue + "' is not bytes of two hexadecimal digits each";
    }
    fnEdit = [=](CFieldEdits& oFields) { return AddPart(oFields, oSetting.m_eId, oInput.m_aui8Bytes); };
    return "";
}

std::string ParseRemovePart(const std::string& sText, CNamedEdit& fnEdit)
{
    SSetting oSetting;
    std::string sProblem = ParseField(sText, oSetting);
    fnEdit = [oSetting](CFieldEdits& oFields) {
        unsigned int uiField = 0;
        std::string sReason = FindPart(oFields, oSetting, uiField);
        if (!sReason.empty() || IsPreferredTiming(oFields, uiField))
        {
            return sReason.empty() ? "the preferred timing can only be replaced, by --preferred" : sReason;
        }
        return DoInPlace(oFields, [uiField](CFieldEdits& oEdited) { return oEdited.Remove(uiField); });
    };
    return sProblem;
}

std::string ParseMovePart(const std::string& sText, CNamedEdit& fnEdit)
{
    SSetting oSetting;
    std::string sProblem = ParseSetting(sText, oSetting, "ID[N]=PLACE such as cta.audio[0]=1");
    unsigned int uiPlace = 0;
    if (sProblem.empty() && !ParseNumber(oSetting.m_sValue, uiPlace))
    {
        return "'" + oSetting.m_sValue + "' is not a place, a number from 0 on";
    }
    fnEdit = [oSetting, uiPlace](CFieldEdits& oFields) {
        unsigned int uiField = 0;
        std::string sReason = FindPart(oFields, oSetting, uiField);
        const auto fnMove = [=](CFieldEdits& oEdited) { return oEdited.Move(uiField, uiPlace); };
        return sReason.empty() ? DoInPlace(oFields, fnMove) : sReason;
    };
    return sProblem;
}
