// Walking the three numberings block by block, then the fields of the map that announce modes.

#include "ModeList.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "FieldModes.h"
#include "MapText.h"
#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;
constexpr unsigned int gsc_uiNativeBit = 0x80;  // of a short video descriptor
constexpr unsigned int gsc_uiFirstOther = 0xC1; // from here on CTA-861-H has codes of their own
constexpr char gsc_szBaseKind[] = "base";

bool IsOfGtf(const CVidParamTimingGeneric& oTiming)
{
    return oTiming.GetVideoFamilyType() == CVidParamTiming::eVidParamType_Gtf;
}

// ---- Lists ----

// The list of VESA's own established timings is a part of the list of all, in the same order.
void ListEstablished(const CEdid& oEdid, CModes& aoModes)
{
    unsigned int uiVesa = 0;
    for (unsigned int i = 0; i < oEdid.GetEstablishedCount(0); ++i)
    {
        SImageMode oMode = { CZorEdidMap::eList_Established, i, 0, gsc_szBaseKind, {} };
        CVidParamTimingGeneric oVesa;
        if (oEdid.GetEstablished(i, &oMode.m_oTiming, 0) == 0)
        {
            continue;
        }
        oMode.m_bVesa = oEdid.GetEstablished(uiVesa, &oVesa, 1) != 0 && IsSameRecord(oVesa, oMode.m_oTiming);
        uiVesa += oMode.m_bVesa ? 1 : 0;
        oMode.m_bStandIn = IsOfGtf(oMode.m_oTiming);
        aoModes.push_back(oMode);
    }
}

// The first byte of each timing of a list; null without one.
std::vector<const STimingOrigin*> SortOrigins(const CTimingOrigins& aoOrigins, unsigned int uiCount)
{
    std::vector<const STimingOrigin*> apoFirst(uiCount);
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        if (aoOrigins[i].m_bRepeated == 0 && aoOrigins[i].m_uiIndex < uiCount)
        {
            apoFirst[aoOrigins[i].m_uiIndex] = &aoOrigins[i];
        }
    }
    return apoFirst;
}

// The library reads codes from 193 on as native forms of 65 and up, as CEA-861-F had them.
unsigned int FindOtherCode(const STimingOrigin& oOrigin, const unsigned char* pui8Block)
{
    const unsigned int uiByte = pui8Block[oOrigin.m_uiCodeByte];
    return uiByte >= gsc_uiFirstOther && uiByte - gsc_uiNativeBit == oOrigin.m_uiCode ? uiByte : 0;
}

// CEdid would hand the index of a place without a timing on to the next block, so each block is asked itself.
void ListStandard(CLoadedImage& oImage, CModes& aoModes)
{
    const CEdid& oEdid = oImage.GetEdid();
    CTimingOrigins aoOrigins;
    oEdid.ListStandardOrigins(aoOrigins); // the base block's come first
    const unsigned int uiBase = oEdid.GetBaseStandardCount();
    const std::vector<const STimingOrigin*> apoBase = SortOrigins(aoOrigins, uiBase);
    for (unsigned int i = 0; i < uiBase; ++i)
    {
        SImageMode oMode = { CZorEdidMap::eList_Standard, i, 0, gsc_szBaseKind, {} };
        if (oEdid.GetBaseStandard(i, &oMode.m_oTiming, nullptr) != 0)
        {
            oMode.m_sStandardCode = FormatHex(oEdid.GetBaseBlock() + apoBase[i]->m_uiOffset, apoBase[i]->m_uiLength);
            aoModes.push_back(oMode);
        }
    }
    unsigned int uiFirst = uiBase;
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        const unsigned int uiCount = oBlock.m_poLoaded != nullptr ? oBlock.m_poLoaded->GetStandardCount() : 0;
        if (uiCount == 0)
        {
            continue;
        }
        oBlock.m_poLoaded->ListStandardOrigins(aoOrigins);
        const std::vector<const STimingOrigin*> apoFirst = SortOrigins(aoOrigins, uiCount);
        for (unsigned int i = 0; i < uiCount; ++i)
        {
            SImageMode oMode = {
                CZorEdidMap::eList_Standard, uiFirst + i, oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()), {}
            };
            int iNative = 0;
            if (oBlock.m_poLoaded->GetStandard(i, &oMode.m_oTiming, &iNative) != 0 && apoFirst[i] != nullptr)
            {
                oMode.m_bNative = iNative != 0;
                oMode.m_oVics = { { apoFirst[i]->m_uiCode }, apoFirst[i]->m_bVariant != 0 };
                oMode.m_uiOtherCode = FindOtherCode(*apoFirst[i], oBlock.m_pui8Bytes);
                aoModes.push_back(oMode);
            }
        }
        uiFirst += uiCount;
    }
}

void ListDetailed(CLoadedImage& oImage, CModes& aoModes)
{
    const CEdid& oEdid = oImage.GetEdid();
    const auto fnAdd = [&](SImageMode& oMode) {
        oMode.m_oVics = FindVics(oMode.m_oTiming);
        aoModes.push_back(oMode);
    };
    unsigned int uiIndex = 0;
    for (; uiIndex < oEdid.GetBaseDetailedCount(); ++uiIndex)
    {
        SImageMode oMode = { CZorEdidMap::eList_Detailed, uiIndex, 0, gsc_szBaseKind, {} };
        if (oEdid.GetBaseDetailed(uiIndex, &oMode.m_oTiming) != 0)
        {
            oMode.m_bPreferred =
                uiIndex == 0 && ZorStandards::BaseBlock::IsPreferredTimingDeclared(oEdid.GetBaseBlock());
            fnAdd(oMode);
        }
    }
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        const unsigned int uiCount = oBlock.m_poLoaded != nullptr ? oBlock.m_poLoaded->GetDetailedCount() : 0;
        for (unsigned int i = 0; i < uiCount; ++i, ++uiIndex)
        {
            SImageMode oMode = {
                CZorEdidMap::eList_Detailed, uiIndex, oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()), {}
            };
            if (oBlock.m_poLoaded->GetDetailed(i, &oMode.m_oTiming) != 0)
            {
                fnAdd(oMode);
            }
        }
    }
}

// ---- Map ----

// Finds the fields of the timings that the library lists.
void SetFields(const CZorEdidMap& oMap, CModes& aoModes)
{
    std::map<std::pair<CZorEdidMap::EList, unsigned int>, unsigned int> aoFields; // by list and number
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        for (unsigned int uiNext = 0; uiNext < oField.m_uiTimings; ++uiNext)
        {
            aoFields.emplace(std::pair{ oField.m_eList, oField.m_uiTiming + uiNext }, i);
        }
    }
    for (SImageMode& oMode : aoModes)
    {
        const auto itField = aoFields.find({ oMode.m_eList, oMode.m_uiIndex });
        oMode.m_uiField = itField != aoFields.end() ? itField->second : gsc_uiNone;
    }
}

// What a mode is known by: all its numbers, or the words of the map.
std::string GetKey(const SImageMode& oMode, const std::string& sText)
{
    const CVidParamTimingGeneric& oTiming = oMode.m_oTiming;
    return (oTiming.Is420ColorSpace() != 0 ? "4:2:0 " : "") + (oMode.HasTiming() ? GetModeline(oTiming) : sText);
}

// Each mode once for a kind of field, unless the library lists it.
void AddModesOfMap(const CZorEdidMap& oMap, bool bRefused, CModes& aoModes)
{
    std::set<std::string> asListed;
    for (const SImageMode& oMode : aoModes)
    {
        if (oMode.IsOfMonitor())
        {
            asListed.insert(GetKey(oMode, ""));
        }
    }
    std::set<std::string> asKnown;
    const CFieldModes oReader(oMap);
    const unsigned int uiEnd = bRefused ? oMap.GetFieldCount() : FindAnnouncedEnd(oMap);
    for (unsigned int i = 0; i < uiEnd; ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        if (!bRefused && oField.m_uiTiming != gsc_uiNone)
        {
            continue;
        }
        for (SFieldMode& oFound : oReader.Read(i))
        {
            const unsigned int uiBlock = oField.m_uiOffset / CEdidUtils::msc_uiBlockSize;
            SImageMode oMode = { CZorEdidMap::eList_None, 0, uiBlock, "", oFound.m_oTiming };
            oMode.m_bNative = oFound.m_bNative;
            oMode.m_bPreferred = oFound.m_bPreferred;
            oMode.m_uiField = i;
            oMode.m_sBareRate = oFound.m_sBareRate;
            oMode.m_bStandIn = oField.m_eKind == CZorEdidMap::eKind_Flag && IsOfGtf(oFound.m_oTiming);
            const std::string sKey = GetKey(oMode, oFound.m_sText);
            if (!asListed.contains(sKey) && asKnown.insert(oField.m_pszName + sKey).second)
            {
                aoModes.push_back(oMode);
            }
        }
    }
}
} // namespace

CModes ListTimings(CLoadedImage& oImage)
{
    CModes aoModes;
    ListEstablished(oImage.GetEdid(), aoModes);
    ListStandard(oImage, aoModes);
    ListDetailed(oImage, aoModes);
    return aoModes;
}

CModes ListModes(const CZorEdidMap& oMap, CLoadedImage* poImage)
{
    CModes aoModes;
    if (poImage != nullptr)
    {
        aoModes = ListTimings(*poImage);
        SetFields(oMap, aoModes);
    }
    AddModesOfMap(oMap, poImage == nullptr, aoModes);
    return aoModes;
}

const SImageMode* FindPreferred(const CModes& aoModes)
{
    const auto itPreferred = std::ranges::find_if(aoModes, &SImageMode::m_bPreferred);
    return itPreferred == aoModes.end() ? nullptr : &*itPreferred;
}

std::string GetOtherCodeText(const SImageMode& oMode)
{
    return oMode.IsOfMonitor()
               ? ""
               : FormatText("the library reads byte %02x as VIC %u; by CTA-861-H it is VIC %u", oMode.m_uiOtherCode,
                            oMode.m_uiOtherCode - gsc_uiNativeBit, oMode.m_uiOtherCode);
}

unsigned int FindAnnouncedEnd(const CZorEdidMap& oMap)
{
    const unsigned int uiCount = ZorStandards::FindExtensionCount(oMap.GetData(), oMap.GetSize());
    const unsigned int uiBlocks = uiCount < oMap.GetSize() ? oMap.GetData()[uiCount] + 1U : oMap.GetSize();
    unsigned int uiField = 0;
    while (uiField < oMap.GetFieldCount() && oMap.GetField(uiField).m_uiOffset / CEdidUtils::msc_uiBlockSize < uiBlocks)
    {
        uiField = oMap.GetField(uiField).m_uiEnd;
    }
    return uiField;
}
