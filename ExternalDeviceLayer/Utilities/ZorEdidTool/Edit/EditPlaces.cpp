// Searches by the one list of modes, and by the codes themselves where a data block of CTA-861 is searched.

#include "EditPlaces.h"

#include <algorithm>
#include <set>

#include "Edid.h"
#include "ExactTimings.h"
#include "ImageModes.h"
#include "MapText.h"
#include "Standards/Modes.h"
#include "TextFormat.h"

using namespace ZorStandards;

bool IsPlaceOf(const SZorMode& oMode, const SWanted& oWanted)
{
    if (oWanted.m_uiCode == 0)
    {
        return IsMeant(oMode, oWanted.m_oMode);
    }
    const SHdmiCode* poHdmi = oMode.m_eKind == SZorMode::eModeKind_HdmiVic ? FindHdmiCode(oMode.m_uiCode) : nullptr;
    return poHdmi != nullptr ? poHdmi->m_ui8VideoCode == oWanted.m_uiCode
                             : oMode.m_eKind == SZorMode::eModeKind_Vic && oMode.m_uiCode == oWanted.m_uiCode;
}

namespace
{
// The code of a byte that is meant; else 0.
unsigned int FindShortVideo(unsigned int uiByte, const SWanted& oWanted)
{
    SZorMode oMode = {};
    const unsigned int uiCode = ReadShortVideo(uiByte).m_uiCode;
    const bool bMeant = uiCode == oWanted.m_uiCode || (ReadShortVideoMode(uiByte, oMode) && IsPlaceOf(oMode, oWanted));
    return bMeant ? uiCode : 0;
}

unsigned int FindHdmiVideo(unsigned int uiByte, const SWanted& oWanted)
{
    SZorMode oMode = {};
    return MakeHdmiMode(oMode, uiByte) && IsPlaceOf(oMode, oWanted) ? FindHdmiCode(uiByte)->m_ui8VideoCode : 0;
}
} // namespace

std::string GetWantedName(const SWanted& oWanted)
{
    return oWanted.m_uiCode != 0 ? "VIC " + std::to_string(oWanted.m_uiCode) : GetModeName(oWanted.m_oMode);
}

CPlaces FindAllPlaces(const CBytes& aui8Image)
{
    CPlaces aoPlaces;
    CZorEdidModes oModes;
    CEdid oEdid;
    const unsigned int uiSize = static_cast<unsigned int>(aui8Image.size());
    oModes.Read(uiSize, aui8Image.data());
    if (oEdid.SetEdidBuffer(aui8Image.data(), uiSize, 0) != 0)
    {
        oModes.SetNumbers(oEdid);
    }
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        aoPlaces.push_back(oModes.Get(i));
    }
    return aoPlaces;
}

CPlaces FindPlaces(const CBytes& aui8Image, const SWanted& oWanted)
{
    CPlaces aoPlaces = FindAllPlaces(aui8Image);
    std::erase_if(aoPlaces, [&](const SZorImageMode& oPlace) { return !IsPlaceOf(oPlace.m_oMode, oWanted); });
    return aoPlaces;
}

CCodes FindCodes(const CEdidExtBlockCEA861& oCea, const SWanted& oWanted)
{
    CCodes oCodes;
    CEdidExtBlockCEA861::CCodePlaces aoPlaces;
    oCea.ListCodePlaces(aoPlaces);
    for (unsigned int i = 0; i < aoPlaces.GetCount(); ++i)
    {
        const unsigned int uiByte = oCea.GetData()[aoPlaces[i].m_uiOffset];
        const unsigned int uiCode =
            aoPlaces[i].m_bHdmi ? FindHdmiVideo(uiByte, oWanted) : FindShortVideo(uiByte, oWanted);
        if (uiCode != 0)
        {
            oCodes[aoPlaces[i].m_uiOffset] = uiCode;
        }
    }
    return oCodes;
}

unsigned int FindPlaceField(const CZorEdidMap& oMap, const SZorImageMode& oPlace)
{
    const bool bBit = oPlace.m_uiBit != SZorImageMode::msc_uiNone;
    unsigned int uiField = oMap.FindLeaf(oPlace.m_uiOffset, bBit ? oPlace.m_uiBit : 0);
    while (uiField != CZorEdidMap::msc_uiNone && !bBit && oMap.GetField(uiField).m_eId != oPlace.m_eField)
    {
        uiField = oMap.GetField(uiField).m_uiGroup;
    }
    return uiField;
}

std::string NamePlaces(const CBytes& aui8Image, const CPlaces& aoPlaces)
{
    std::set<std::string> asNames;
    std::string sNames;
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (const SZorImageMode& oPlace : aoPlaces)
    {
        std::string sName = "block " + std::to_string(oPlace.m_uiOffset / gsc_uiBlockSize);
        const unsigned int uiField = FindPlaceField(oMap, oPlace);
        sName += uiField != CZorEdidMap::msc_uiNone ? ": " + GetPath(oMap, uiField) : "";
        if (asNames.insert(sName).second)
        {
            sNames += (sNames.empty() ? "" : ", ") + sName;
        }
    }
    return sNames;
}

std::string RefuseMissing(const CBytes& aui8Image, const SWanted& oWanted)
{
    std::vector<std::string> asNear;
    CZorEdidModes oModes;
    oModes.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (unsigned int i = 0; oWanted.m_uiCode == 0 && i < oModes.GetCount(); ++i)
    {
        const SZorMode& oMode = oModes.Get(i).m_oMode;
        const bool bSize =
            oMode.m_uiWidth == oWanted.m_oMode.m_uiWidth && oMode.m_uiHeight == oWanted.m_oMode.m_uiHeight;
        SZorMode oPartner = {};
        std::vector<std::string> asNames = { bSize && GetRate(oMode) != 0 ? GetModeName(oMode) : "" };
        if (bSize && CZorEdidModes::GetPartner(oMode, oPartner))
        {
            asNames.push_back(GetModeName(oPartner));
        }
        for (const std::string& sName : asNames)
        {
            if (!sName.empty() && std::find(asNear.begin(), asNear.end(), sName) == asNear.end())
            {
                asNear.push_back(sName);
            }
        }
    }
    std::string sReason = "the image has no " + GetWantedName(oWanted);
    SWanted oMode = {};
    if (oWanted.m_uiCode != 0 && ZorStandards::MakeVideoMode(oMode.m_oMode, oWanted.m_uiCode))
    {
        // The mode of the code may be there without it: by another code, or as the numbers of a timing.
        const CPlaces aoPlaces = FindPlaces(aui8Image, oMode);
        sReason += aoPlaces.empty() ? ""
                                    : "; it has its mode in " + NamePlaces(aui8Image, aoPlaces) +
                                          ", which do not name this code: --remove " + GetModeName(oMode.m_oMode) +
                                          " removes the mode";
    }
    for (size_t i = 0; i < asNear.size(); ++i)
    {
        sReason += (i == 0 ? "; of this size it has " : ", ") + asNear[i];
    }
    return sReason;
}

bool RemoveCvtRates(unsigned char* pui8Code, unsigned int uiOffset, const CPlaces& aoPlaces)
{
    constexpr unsigned int uiBits = 2; // the byte that has one for each rate
    unsigned int uiLeft = 0;
    bool bPreferred = false;
    unsigned int uiMask = 0;
    SZorMode oMode = {};
    for (unsigned int uiRank = 0; ReadCvtCodeMode({ pui8Code, gsc_uiCvtCodeSize }, uiRank, oMode); ++uiRank)
    {
        const bool bGoes = std::ranges::any_of(aoPlaces, [&](const SZorImageMode& oPlace) {
            return oPlace.m_uiOffset == uiOffset && oPlace.m_uiRank == uiRank;
        });
        bPreferred = bPreferred || (bGoes && uiRank == 0);
        uiMask |= bGoes ? 1U << GetCvtCodeBit(oMode) : 0;
        uiLeft += bGoes ? 0 : 1;
    }
    if (bPreferred && uiLeft != 0)
    {
        return false;
    }
    pui8Code[uiBits] = static_cast<unsigned char>(pui8Code[uiBits] & ~uiMask);
    std::fill_n(pui8Code, uiLeft == 0 ? gsc_uiCvtCodeSize : 0, static_cast<unsigned char>(0));
    return true;
}
