// Walking the three numberings block by block, then the fields of the map that announce modes.

#include "ModeList.h"

#include <algorithm>
#include <array>
#include <limits.h>
#include <map>
#include <set>
#include <utility>

#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/VideoCodes.h"
#include "TextFormat.h"
#include "VidParamCea.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;
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
        oMode.m_bEstablished = true;
        aoModes.push_back(oMode);
    }
}

// The library reads codes from 193 on as native forms of 65 and up, as CEA-861-F had them.
unsigned int FindOtherCode(const STimingOrigin& oOrigin, const unsigned char* pui8Block)
{
    const unsigned int uiByte = pui8Block[oOrigin.m_uiCodeByte];
    const bool bOther = ZorStandards::IsListedAsOther(uiByte);
    return bOther && ZorStandards::ReadListedShortVideo(uiByte).m_uiCode == oOrigin.m_uiCode ? uiByte : 0;
}

void ListStandard(CLoadedImage& oImage, CModes& aoModes)
{
    const CEdid& oEdid = oImage.GetEdid();
    CTimingOrigins aoOrigins;
    oEdid.CEdidBase::ListStandardOrigins(aoOrigins);
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = aoOrigins[i];
        SImageMode oMode = { CZorEdidMap::eList_Standard, oOrigin.m_uiIndex, 0, gsc_szBaseKind, {} };
        oEdid.GetBaseStandard(oOrigin.m_uiIndex, &oMode.m_oTiming, nullptr);
        oMode.m_sStandardCode = FormatHex(oEdid.GetBaseBlock() + oOrigin.m_uiOffset, oOrigin.m_uiLength);
        aoModes.push_back(oMode);
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
            SImageMode oMode = { CZorEdidMap::eList_Standard,
                                 uiFirst + oOrigin.m_uiIndex,
                                 oBlock.m_uiNumber,
                                 GetBlockKind(oBlock.GetTag()),
                                 {} };
            int iNative = 0;
            if (oOrigin.m_bRepeated == 0 &&
                oBlock.m_poLoaded->GetStandard(oOrigin.m_uiIndex, &oMode.m_oTiming, &iNative) != 0)
            {
                oMode.m_bNative = iNative != 0;
                oMode.m_oVics = { { oOrigin.m_uiCode }, oOrigin.m_bVariant != 0 };
                oMode.m_uiOtherCode = FindOtherCode(oOrigin, oBlock.m_pui8Bytes);
                aoModes.push_back(oMode);
            }
        }
        uiFirst += oBlock.m_poLoaded->GetStandardCount();
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

using CFieldMode = CZorEdidMap::SMode;

// The library's numbers where it has some: of codes, and of standard timings, which give only size and rate.
std::vector<CVidParamTimingGeneric> FindTimings(const CFieldMode& oMode, const CEdidBase& oBase)
{
    std::vector<CVidParamTimingGeneric> aoTimings;
    CVidParamTimingGeneric oTiming;
    const bool bHdmi = oMode.m_eKind == SZorMode::eModeKind_HdmiVic;
    if (bHdmi || oMode.m_eKind == SZorMode::eModeKind_Vic)
    {
        const ZorStandards::SHdmiCode* poHdmi = bHdmi ? ZorStandards::FindHdmiCode(oMode.m_uiCode) : nullptr;
        const unsigned int uiCode = poHdmi != nullptr ? poHdmi->m_ui8VideoCode : oMode.m_uiCode;
        for (const unsigned int uiKey : { uiCode, uiCode + CVidParamCea::msc_uiVariantKey })
        {
            if ((uiKey == uiCode || oMode.m_bFractionToo) && CVidParamCea::GetVidParamFromVic(uiKey, &oTiming) != 0)
            {
                aoTimings.push_back(oTiming);
            }
        }
    }
    const CEdidBase::SStandard oPair = { ZorStandards::LowByte(oMode.m_uiCode >> 8),
                                         ZorStandards::LowByte(oMode.m_uiCode) };
    if (oMode.m_eKind == SZorMode::eModeKind_Standard && oBase.GetStandardTiming(&oPair, &oTiming) != 0)
    {
        aoTimings.push_back(oTiming);
    }
    return aoTimings;
}

// A timing that the field has in full, and its 1000/1001 variant. None where pixels are repeated, or where the clock is
// beyond the library's 32 bits.
std::vector<CVidParamTimingGeneric> MakeTimings(const CFieldMode& oMode)
{
    constexpr unsigned long long ullVariantDividend = 1000;
    constexpr unsigned long long ullVariantDivisor = 1001;
    std::vector<CVidParamTimingGeneric> aoTimings;
    if (!oMode.m_bTiming || oMode.m_uiRepetition != 1 || oMode.m_ullClock == 0 || oMode.m_ullClock > UINT_MAX)
    {
        return aoTimings;
    }
    const auto fnAdd = [&](unsigned long long ullClock) {
        const SZorMode::SAxis& oAcross = oMode.m_oHorizontal;
        const SZorMode::SAxis& oDown = oMode.m_oVertical;
        const unsigned int uiBlankLines = (oDown.m_uiTotal - oDown.m_uiActive) / (oMode.m_bInterlaced ? 2 : 1);
        CVidParamTimingGeneric oTiming;
        oTiming.SetPixelClockInHz(static_cast<unsigned int>(ullClock));
        oTiming.SetInterlaced(oMode.m_bInterlaced ? 1 : 0);
        oTiming.SetHorizontalActive(oAcross.m_uiActive);
        oTiming.SetHorizontalFrontPorch(oAcross.m_uiFront);
        oTiming.SetHorizontalSync(oAcross.m_uiSync);
        oTiming.SetHorizontalBackPorch(oAcross.m_uiTotal - oAcross.m_uiActive - oAcross.m_uiFront - oAcross.m_uiSync);
        oTiming.SetHorizontalPolarityPositive(oAcross.m_bPositive ? 1 : 0);
        oTiming.SetVerticalActive(oDown.m_uiActive);
        oTiming.SetVerticalFrontPorch(oDown.m_uiFront);
        oTiming.SetVerticalSync(oDown.m_uiSync);
        oTiming.SetVerticalBackPorch(uiBlankLines - oDown.m_uiFront - oDown.m_uiSync); // may wrap, as the library's
        oTiming.SetVerticalPolarityPositive(oDown.m_bPositive ? 1 : 0);
        oTiming.SetHorizontalRateInHz(oTiming.ComputeHorizontalRateInHz());
        oTiming.SetVerticalRateInHz(oTiming.ComputeVerticalRateInHz());
        aoTimings.push_back(oTiming);
    };
    fnAdd(oMode.m_ullClock);
    if (oMode.m_bFractionToo)
    {
        fnAdd(oMode.m_ullClock * ullVariantDividend / ullVariantDivisor);
    }
    return aoTimings;
}

unsigned int GetHundredths(const SZorMode::SRate& oRate)
{
    return oRate.m_ullDivisor == 0
               ? 0
               : static_cast<unsigned int>((oRate.m_ullDividend * 200 / oRate.m_ullDivisor + 1) / 2);
}

// Of size and scan only.
CVidParamTimingGeneric MakeBareTiming(const CFieldMode& oMode)
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetHorizontalActive(oMode.m_uiWidth);
    oTiming.SetVerticalActive(oMode.m_uiHeight);
    oTiming.SetInterlaced(oMode.m_bInterlaced ? 1 : 0);
    return oTiming;
}

// What a mode is known by.
auto GetKey(const SImageMode& oMode)
{
    const CVidParamTimingGeneric& o = oMode.m_oTiming;
    return std::array{ o.GetHorizontalActive(),
                       o.GetHorizontalFrontPorch(),
                       o.GetHorizontalSync(),
                       o.GetHorizontalBackPorch(),
                       o.GetVerticalActive(),
                       o.GetVerticalFrontPorch(),
                       o.GetVerticalSync(),
                       o.GetVerticalBackPorch(),
                       o.GetPixelClockInHz(),
                       static_cast<unsigned int>(o.IsInterlaced()),
                       static_cast<unsigned int>(o.IsHorizontalPolarityPositive()),
                       static_cast<unsigned int>(o.IsVerticalPolarityPositive()),
                       static_cast<unsigned int>(o.Is420ColorSpace()),
                       oMode.m_uiRate,
                       oMode.m_bFractionToo ? 1U : 0U };
}
using CKey = decltype(GetKey(SImageMode()));

// Adds what the fields of a map announce and the library does not list: each mode once for a kind of field and a code.
class CMapModes
{
public:
    CMapModes(const CZorEdidMap& oMap, CModes& aoModes) : m_oMap(oMap), m_aoModes(aoModes)
    {
        for (const SImageMode& oMode : aoModes)
        {
            if (oMode.IsOfMonitor())
            {
                m_oListed.insert(GetKey(oMode));
            }
        }
        LoadBase(oMap.GetSize(), oMap.GetData(), m_oBase);
    }

    // The modes of the fields below uiEnd, but not those whose timings the library lists where bNumbered.
    void Add(unsigned int uiEnd, bool bNumbered)
    {
        for (unsigned int i = 0; i < uiEnd;)
        {
            const bool bListed = bNumbered && m_oMap.GetField(i).m_uiTiming != gsc_uiNone;
            CFieldMode oMode = {};
            unsigned int uiRank = 0;
            for (; !bListed && m_oMap.GetMode(i, oMode, uiRank); ++uiRank)
            {
                Add(i, oMode);
            }
            i = bListed || uiRank != 0 ? m_oMap.GetField(i).m_uiEnd : i + 1; // a group's mode is that of its fields
        }
    }

private:
    void Add(unsigned int uiField, const CFieldMode& oMode)
    {
        if (oMode.m_bReference)
        {
            return;
        }
        std::vector<CVidParamTimingGeneric> aoTimings = FindTimings(oMode, m_oBase);
        aoTimings = aoTimings.empty() ? MakeTimings(oMode) : aoTimings;
        const bool bBare = aoTimings.empty();
        if (bBare)
        {
            aoTimings.push_back(MakeBareTiming(oMode));
        }
        const unsigned int uiOffset = m_oMap.GetField(uiField).m_uiOffset;
        for (CVidParamTimingGeneric& oTiming : aoTimings)
        {
            oTiming.Set420ColorSpace(oMode.m_eY420 != SZorMode::eY420_No ? 1 : 0);
            SImageMode oNew = { CZorEdidMap::eList_None, 0, uiOffset / CEdidUtils::msc_uiBlockSize, "", oTiming };
            oNew.m_bNative = oMode.m_bNative;
            oNew.m_bPreferred = oMode.m_bPreferred && uiOffset == ZorStandards::BaseBlock::gsc_uiDescriptorsOffset;
            oNew.m_uiField = uiField;
            oNew.m_bEstablished =
                oMode.m_eKind == SZorMode::eModeKind_Established || oMode.m_eKind == SZorMode::eModeKind_EstablishedIII;
            oNew.m_bTiming = !bBare;
            oNew.m_uiRate = bBare ? GetHundredths(oMode.m_oNominalRate) : 0;
            oNew.m_bFractionToo = bBare && oMode.m_bFractionToo;
            if (!m_oListed.contains(GetKey(oNew)) &&
                m_oKnown.insert({ { oMode.m_eKind, oMode.m_uiCode }, GetKey(oNew) }).second)
            {
                m_aoModes.push_back(oNew);
            }
        }
    }

    const CZorEdidMap& m_oMap;
    CModes& m_aoModes;
    CEdidBase m_oBase;
    std::set<CKey> m_oListed;
    std::set<std::pair<std::pair<SZorMode::EModeKind, unsigned int>, CKey>> m_oKnown;
};
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
    CMapModes(oMap, aoModes)
        .Add(poImage != nullptr ? FindAnnouncedEnd(oMap) : oMap.GetFieldCount(), poImage != nullptr);
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
                            ZorStandards::ReadListedShortVideo(oMode.m_uiOtherCode).m_uiCode, oMode.m_uiOtherCode);
}

std::string GetBareRateText(const SImageMode& oMode)
{
    const auto fnText = [](unsigned int uiHundredths) {
        std::string sText = FormatText("%u.%02u", uiHundredths / 100, uiHundredths % 100);
        return sText.substr(0, uiHundredths % 100 == 0 ? sText.find('.') : sText.find_last_not_of('0') + 1);
    };
    const unsigned int uiFraction = static_cast<unsigned int>((oMode.m_uiRate * 2000ULL / 1001 + 1) / 2);
    return (oMode.m_bFractionToo ? fnText(uiFraction) + "/" : "") + fnText(oMode.m_uiRate);
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
