// Searches by the one list of modes, and by the codes themselves where a data block of CTA-861 is searched.

#include "EditPlaces.h"

#include <algorithm>

#include "Edid.h"
#include "ExactTimings.h"
#include "Hdmi1xVsdb.h"
#include "MapText.h"
#include "Standards/Modes.h"
#include "TextFormat.h"

using namespace ZorStandards;

namespace
{
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

// Where short video descriptors or HDMI codes are in a data block.
struct SCodePlaces
{
    unsigned int m_uiFirst; // offset in the block
    unsigned int m_uiCount;
    unsigned int (*m_pfnFind)(unsigned int uiByte, const SWanted& oWanted);
};

SCodePlaces FindCodePlaces(const Cta::CDataBlockWalk& oWalk, const unsigned char* pui8Block)
{
    const unsigned int uiTag = oWalk.GetTag();
    const bool bExtended = uiTag == Cta::gsc_uiExtendedTag && oWalk.GetLength() != 0;
    const unsigned int uiExtended = bExtended ? oWalk.GetByte(0) : 0;
    const unsigned int uiFirst = oWalk.GetPayload().m_uiOffset + (bExtended ? 1 : 0);
    const unsigned int uiLength = oWalk.GetLength() - (bExtended ? 1 : 0);
    if (uiTag == Cta::gsc_uiVideoTag || (bExtended && uiExtended == Cta::gsc_uiExtended420Video))
    {
        return { uiFirst, uiLength, FindShortVideo };
    }
    const bool bVendor = uiTag == Cta::gsc_uiVendorTag || (bExtended && uiExtended == Cta::gsc_uiExtendedVendorVideo);
    if (!bVendor || ZorCore::CHdmi1xVsdb::IsSupported(uiLength, pui8Block + uiFirst) == 0)
    {
        return {};
    }
    const ZorCore::CHdmi1xVsdb::SVics oVics = ZorCore::CHdmi1xVsdb::FindVics(uiLength, pui8Block + uiFirst);
    return { uiFirst + oVics.m_uiVicsOffset, oVics.m_uiCount, FindHdmiVideo };
}
} // namespace

std::string GetWantedName(const SWanted& oWanted)
{
    return oWanted.m_uiCode != 0 ? "VIC " + std::to_string(oWanted.m_uiCode) : GetModeName(oWanted.m_oMode);
}

CPlaces FindPlaces(const CBytes& aui8Image, const SWanted& oWanted)
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
        if (IsPlaceOf(oModes.Get(i).m_oMode, oWanted))
        {
            aoPlaces.push_back(oModes.Get(i));
        }
    }
    return aoPlaces;
}

CCodes FindCodes(const CEdidExtBlockCEA861& oCea, const SWanted& oWanted)
{
    CCodes oCodes;
    Cta::CDataBlockWalk oWalk = WalkDataBlocks(oCea);
    while (oWalk.Next())
    {
        const SCodePlaces oPlaces = FindCodePlaces(oWalk, oCea.GetData());
        for (unsigned int i = oPlaces.m_uiFirst; i < oPlaces.m_uiFirst + oPlaces.m_uiCount; ++i)
        {
            const unsigned int uiCode = oPlaces.m_pfnFind(oCea.GetData()[i], oWanted);
            if (uiCode != 0)
            {
                oCodes[i] = uiCode;
            }
        }
    }
    return oCodes;
}

std::string NamePlaces(const CBytes& aui8Image, const CPlaces& aoPlaces)
{
    std::vector<std::string> asNames;
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (const SZorImageMode& oPlace : aoPlaces)
    {
        const bool bBit = oPlace.m_uiBit != SZorImageMode::msc_uiNone;
        std::string sName = "block " + std::to_string(oPlace.m_uiOffset / gsc_uiBlockSize);
        unsigned int uiField = oMap.FindLeaf(oPlace.m_uiOffset, bBit ? oPlace.m_uiBit : 0);
        while (uiField != CZorEdidMap::msc_uiNone && !bBit && oMap.GetField(uiField).m_eId != oPlace.m_eField)
        {
            uiField = oMap.GetField(uiField).m_uiGroup;
        }
        sName += uiField != CZorEdidMap::msc_uiNone ? ": " + GetPath(oMap, uiField) : "";
        if (std::find(asNames.begin(), asNames.end(), sName) == asNames.end())
        {
            asNames.push_back(sName);
        }
    }
    std::string sNames;
    for (const std::string& sName : asNames)
    {
        sNames += (sNames.empty() ? "" : ", ") + sName;
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
        const bool bRate = oMode.m_oNominalRate.m_ullDivisor != 0;
        SZorMode oPartner = {};
        std::vector<std::string> asNames = { bSize && bRate ? GetModeName(oMode) : "" };
        if (bSize && CZorEdidModes::GetPartner(oMode, oPartner))
        {
            oPartner.m_oNominalRate = oPartner.m_oRate;
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
