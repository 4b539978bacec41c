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
constexpr unsigned int gsc_uiNativeBit = 0x80; // of a short video descriptor
constexpr char gsc_szBaseKind[] = "base";

// ---- Lists ----

// The list of VESA's own established timings is a part of the list of all, in the same order.
void ListEstablished(const CEdid& oEdid, CModes& aoTimings)
{
    unsigned int uiVesa = 0;
    for (unsigned int i = 0; i < oEdid.GetEstablishedCount(0); ++i)
    {
        SImageMode oListed = { CZorEdidMap::eList_Established, i, 0, gsc_szBaseKind, {} };
        CVidParamTimingGeneric oVesa;
        if (oEdid.GetEstablished(i, &oListed.m_oTiming, 0) == 0)
        {
            continue;
        }
        oListed.m_bVesa = oEdid.GetEstablished(uiVesa, &oVesa, 1) != 0 && IsSameRecord(oVesa, oListed.m_oTiming);
        uiVesa += oListed.m_bVesa ? 1 : 0;
        aoTimings.push_back(oListed);
    }
}

void ListStandard(CLoadedImage& oImage, CModes& aoTimings)
{
    const CEdid& oEdid = oImage.GetEdid();
    CTimingOrigins aoOrigins;
    oEdid.CEdidBase::ListStandardOrigins(aoOrigins);
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = aoOrigins[i];
        SImageMode oListed = { CZorEdidMap::eList_Standard, oOrigin.m_uiIndex, 0, gsc_szBaseKind, {} };
        oEdid.GetBaseStandard(oOrigin.m_uiIndex, &oListed.m_oTiming, nullptr);
        oListed.m_sStandardCode = FormatHex(oEdid.GetBaseBlock() + oOrigin.m_uiOffset, oOrigin.m_uiLength);
        aoTimings.push_back(oListed);
    }
    // The blocks are asked themselves: CEdid would hand the index of a place without a timing on to the next block.
    unsigned int uiFirst = oEdid.GetBaseStandardCount();
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        if (oBlock.m_poLoaded == nullptr)
        {
            continue;
        }
        oBlock.m_poLoaded->ListStandardOrigins(aoOrigins);
        for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
        {
            const STimingOrigin& oOrigin = aoOrigins[i];
            SImageMode oListed = { CZorEdidMap::eList_Standard,
                                   uiFirst + oOrigin.m_uiIndex,
                                   oBlock.m_uiNumber,
                                   GetBlockKind(oBlock.GetTag()),
                                   {} };
            int iNative = 0;
            if (oOrigin.m_bRepeated == 0 &&
                oBlock.m_poLoaded->GetStandard(oOrigin.m_uiIndex, &oListed.m_oTiming, &iNative) != 0)
            {
                oListed.m_bNative = iNative != 0;
                oListed.m_oVics = { { oOrigin.m_uiCode }, oOrigin.m_bVariant != 0 };
                aoTimings.push_back(oListed);
            }
        }
        uiFirst += oBlock.m_poLoaded->GetStandardCount();
    }
}

void ListDetailed(CLoadedImage& oImage, CModes& aoTimings)
{
    const CEdid& oEdid = oImage.GetEdid();
    const auto fnAdd = [&](SImageMode& oListed) {
        oListed.m_oVics = FindVics(oListed.m_oTiming);
        aoTimings.push_back(oListed);
    };
    unsigned int uiIndex = 0;
    for (; uiIndex < oEdid.GetBaseDetailedCount(); ++uiIndex)
    {
        SImageMode oListed = { CZorEdidMap::eList_Detailed, uiIndex, 0, gsc_szBaseKind, {} };
        if (oEdid.GetBaseDetailed(uiIndex, &oListed.m_oTiming) != 0)
        {
            oListed.m_bPreferred =
                uiIndex == 0 && ZorStandards::BaseBlock::IsPreferredTimingDeclared(oEdid.GetBaseBlock());
            fnAdd(oListed);
        }
    }
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        const unsigned int uiCount = oBlock.m_poLoaded != nullptr ? oBlock.m_poLoaded->GetDetailedCount() : 0;
        for (unsigned int i = 0; i < uiCount; ++i, ++uiIndex)
        {
            SImageMode oListed = {
                CZorEdidMap::eList_Detailed, uiIndex, oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()), {}
            };
            if (oBlock.m_poLoaded->GetDetailed(i, &oListed.m_oTiming) != 0)
            {
                fnAdd(oListed);
            }
        }
    }
}

// ---- Map ----

bool IsOfGtf(const CVidParamTimingGeneric& oTiming)
{
    return oTiming.GetVideoFamilyType() == CVidParamTiming::eVidParamType_Gtf;
}

// The fields of the timings that the library lists, found in one pass over the map.
class CListedFields
{
public:
    explicit CListedFields(const CZorEdidMap& oMap)
    {
        for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
        {
            const CZorEdidMap::SField& oField = oMap.GetField(i);
            for (unsigned int uiNext = 0; uiNext < oField.m_uiTimings; ++uiNext)
            {
                m_aoFields.emplace(std::pair{ oField.m_eList, oField.m_uiTiming + uiNext }, i);
            }
            if (oField.m_llNumber >= msc_uiFirstOther + gsc_uiNativeBit && !GetCodeText(oField).empty())
            {
                m_aoCodes.emplace(oField.m_uiOffset / CEdidUtils::msc_uiBlockSize, oField.m_llNumber);
            }
        }
    }

    void Complete(SImageMode& oMode) const
    {
        const auto itField = m_aoFields.find({ oMode.m_eList, oMode.m_uiIndex });
        oMode.m_uiField = itField != m_aoFields.end() ? itField->second : gsc_uiNone;
        oMode.m_uiOtherCode = FindOtherCode(oMode);
        oMode.m_bStandIn = oMode.m_eList == CZorEdidMap::eList_Established && IsOfGtf(oMode.m_oTiming);
    }

private:
    static constexpr unsigned int msc_uiFirstOther = 65;

    // The library takes codes from 193 on as native forms of 65 and up, as CEA-861-F had it.
    unsigned int FindOtherCode(const SImageMode& oMode) const
    {
        for (const unsigned int uiCode : oMode.m_oVics.m_auiCodes)
        {
            if (oMode.m_bNative && uiCode >= msc_uiFirstOther &&
                m_aoCodes.contains({ oMode.m_uiBlock, uiCode + gsc_uiNativeBit }))
            {
                return uiCode + gsc_uiNativeBit;
            }
        }
        return 0;
    }

    std::map<std::pair<CZorEdidMap::EList, unsigned int>, unsigned int> m_aoFields;
    std::set<std::pair<unsigned int, long long>> m_aoCodes; // of each block
};

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
        const CListedFields oFields(oMap);
        std::ranges::for_each(aoModes, [&](SImageMode& oMode) { oFields.Complete(oMode); });
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
