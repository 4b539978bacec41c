// Walking the three numberings block by block, and timings as text.

#include "Timings.h"

#include <string.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "Standards/BaseBlock.h"
#include "TextFormat.h"
#include "VidParamCea.h"

namespace
{
constexpr char gsc_szBaseKind[] = "base";

// ---- Codes ----

using CKeysByFirst = std::map<unsigned int, std::vector<unsigned int>>;

// All keys of the table, by the lowest one with the same timing, which is the one that the library finds.
CKeysByFirst ListKeys()
{
    CKeysByFirst aoKeys;
    for (const CVidParamCea::SCeaVidParam& oRow : CVidParamCea::msc_aoCea861FTable)
    {
        CVidParamTimingGeneric oTiming;
        unsigned int uiFirst = 0;
        CVidParamCea::ConvertVidParam(oRow, oTiming);
        CVidParamCea::GetVicFromVidParam(oTiming, uiFirst);
        aoKeys[uiFirst].push_back(oRow.uiVic);
    }
    return aoKeys;
}

// Payloads of the data blocks of one kind, in their order.
template <class TAG>
std::vector<std::vector<unsigned int>> ListPayloads(const CEdidExtBlockCEA861& oBlock, TAG eTag)
{
    std::vector<std::vector<unsigned int>> aauiPayloads;
    unsigned int uiLength = 0;
    unsigned int uiOffset = oBlock.GetDataBlockOffset(eTag, 0, &uiLength);
    for (unsigned int i = 1; uiOffset != 0; uiOffset = oBlock.GetDataBlockOffset(eTag, i++, &uiLength))
    {
        const unsigned char* pui8Payload = oBlock.GetData() + uiOffset;
        aauiPayloads.emplace_back(pui8Payload, pui8Payload + uiLength);
    }
    return aauiPayloads;
}

// The codes of a list of timings, in the order of their timings: a descriptor gives one, native or not, or two with the
// 1000/1001 variant behind, and one that comes again none.
class CNamedCodes
{
public:
    void Add(unsigned int uiDescriptor)
    {
        unsigned int uiVic = 0;
        if (CEdidExtBlockCEA861::ExtractSvdCodeInfo(uiDescriptor, &uiVic, nullptr) != 0 &&
            m_auiHeld.insert(uiDescriptor).second)
        {
            m_auiCodes.push_back(uiVic);
        }
    }

    // Leaves the code that the list's next timing stands for. One that no video data block names is the lowest: HDMI
    // codes are those of 16:9.
    void KeepOwn(SVics& oVics)
    {
        const auto fnFits = [&](unsigned int uiCode) {
            return std::find(oVics.m_auiCodes.begin(), oVics.m_auiCodes.end(), uiCode) != oVics.m_auiCodes.end();
        };
        if (oVics.m_auiCodes.empty())
        {
            return;
        }
        if (!oVics.m_bVariant || !fnFits(m_uiLast))
        {
            const auto itOwn =
                std::find_if(m_auiCodes.begin() + static_cast<std::ptrdiff_t>(m_uiNext), m_auiCodes.end(), fnFits);
            m_uiLast = itOwn != m_auiCodes.end() ? *itOwn : oVics.m_auiCodes.front();
            m_uiNext = itOwn != m_auiCodes.end() ? static_cast<size_t>(itOwn - m_auiCodes.begin()) + 1 : m_uiNext;
        }
        oVics.m_auiCodes = { m_uiLast };
    }

private:
    std::vector<unsigned int> m_auiCodes;
    std::set<unsigned int> m_auiHeld;
    size_t m_uiNext = 0;
    unsigned int m_uiLast = 0;
};

// The ordinary codes of a block, and those in YCbCr 4:2:0: what capability maps select, an empty one all, and then the
// 4:2:0 video data blocks.
struct SBlockCodes
{
    CNamedCodes m_oOrdinary;
    CNamedCodes m_o420;

    explicit SBlockCodes(const CEdidExtBlockCEA861& oBlock)
    {
        std::vector<unsigned int> auiAll;
        for (const auto& auiPayload : ListPayloads(oBlock, CEdidExtBlockCEA861::eCea861Tag_Video))
        {
            auiAll.insert(auiAll.end(), auiPayload.begin(), auiPayload.end());
        }
        for (const unsigned int uiDescriptor : auiAll)
        {
            m_oOrdinary.Add(uiDescriptor);
        }
        for (const auto& auiMap : ListPayloads(oBlock, CEdidExtBlockCEA861::eCea861ExtTag_Yuv420CapabilityMap))
        {
            for (size_t i = 0; i < auiAll.size(); ++i)
            {
                if (auiMap.empty() || (i / 8 < auiMap.size() && (auiMap[i / 8] >> i % 8 & 1U) != 0))
                {
                    m_o420.Add(auiAll[i]);
                }
            }
        }
        for (const auto& auiPayload : ListPayloads(oBlock, CEdidExtBlockCEA861::eCea861ExtTag_Yuv420Video))
        {
            for (const unsigned int uiDescriptor : auiPayload)
            {
                m_o420.Add(uiDescriptor);
            }
        }
    }
};

// ---- Lists ----

// The list of VESA's own established timings is a part of the list of all, in the same order.
void ListEstablished(const CEdid& oEdid, std::vector<SListedTiming>& aoTimings)
{
    unsigned int uiVesa = 0;
    for (unsigned int i = 0; i < oEdid.GetEstablishedCount(0); ++i)
    {
        SListedTiming oListed = { CZorEdidMap::eList_Established, i, 0, gsc_szBaseKind, {} };
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

// The two bytes of the standard timing at this index: the index runs over the slots that give a timing.
std::string GetStandardCode(const CEdid& oEdid, unsigned int uiIndex)
{
    for (unsigned int uiSlot = 0; uiSlot < CEdidBase::msc_uiStandardSlotCount; ++uiSlot)
    {
        const auto eSlot = static_cast<CEdidBase::EStandardSlotIndex>(uiSlot);
        if (oEdid.GetBaseStandard(eSlot, nullptr, nullptr) != 0 && uiIndex-- == 0)
        {
            constexpr unsigned int uiPairSize = sizeof(CEdidBase::SStandard);
            const unsigned int uiOffset = ZorStandards::BaseBlock::gsc_uiStandardsOffset + uiPairSize * uiSlot;
            return FormatHex(oEdid.GetBaseBlock() + uiOffset, uiPairSize);
        }
    }
    return "";
}

void ListStandard(CLoadedImage& oImage, std::vector<SListedTiming>& aoTimings)
{
    const CEdid& oEdid = oImage.GetEdid();
    unsigned int uiIndex = 0;
    for (; uiIndex < oEdid.GetBaseStandardCount(); ++uiIndex)
    {
        SListedTiming oListed = { CZorEdidMap::eList_Standard, uiIndex, 0, gsc_szBaseKind, {} };
        if (oEdid.GetBaseStandard(uiIndex, &oListed.m_oTiming, nullptr) != 0)
        {
            oListed.m_sStandardCode = GetStandardCode(oEdid, uiIndex);
            aoTimings.push_back(oListed);
        }
    }
    // The blocks are asked themselves: CEdid would hand the index of a place without a timing on to the next block.
    for (const SImageBlock& oBlock : oImage.GetBlocks())
    {
        const unsigned int uiCount = oBlock.m_poLoaded != nullptr ? oBlock.m_poLoaded->GetStandardCount() : 0;
        const CEdidExtBlockCEA861* poCea = oBlock.GetCea();
        std::optional<SBlockCodes> oCodes;
        if (poCea != nullptr)
        {
            oCodes.emplace(*poCea);
        }
        for (unsigned int i = 0; i < uiCount; ++i, ++uiIndex)
        {
            SListedTiming oListed = {
                CZorEdidMap::eList_Standard, uiIndex, oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()), {}
            };
            int iNative = 0;
            if (oBlock.m_poLoaded->GetStandard(i, &oListed.m_oTiming, &iNative) != 0)
            {
                oListed.m_bNative = iNative != 0;
                oListed.m_oVics = FindVics(oListed.m_oTiming);
                if (oCodes.has_value())
                {
                    const bool b420 = oListed.m_oTiming.Is420ColorSpace() != 0;
                    (b420 ? oCodes->m_o420 : oCodes->m_oOrdinary).KeepOwn(oListed.m_oVics);
                }
                aoTimings.push_back(oListed);
            }
        }
    }
}

void ListDetailed(CLoadedImage& oImage, std::vector<SListedTiming>& aoTimings)
{
    const CEdid& oEdid = oImage.GetEdid();
    const auto fnAdd = [&](SListedTiming& oListed) {
        oListed.m_oVics = FindVics(oListed.m_oTiming);
        aoTimings.push_back(oListed);
    };
    unsigned int uiIndex = 0;
    for (; uiIndex < oEdid.GetBaseDetailedCount(); ++uiIndex)
    {
        SListedTiming oListed = { CZorEdidMap::eList_Detailed, uiIndex, 0, gsc_szBaseKind, {} };
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
            SListedTiming oListed = {
                CZorEdidMap::eList_Detailed, uiIndex, oBlock.m_uiNumber, GetBlockKind(oBlock.GetTag()), {}
            };
            if (oBlock.m_poLoaded->GetDetailed(i, &oListed.m_oTiming) != 0)
            {
                fnAdd(oListed);
            }
        }
    }
}

// MHz with as many of six decimals as the hertz need, but no fewer than uiLeast.
std::string GetMegaHertzText(unsigned int uiHz, size_t uiLeast)
{
    constexpr unsigned int uiHzPerMegaHz = 1000000;
    std::string sText = FormatText("%u.%06u", uiHz / uiHzPerMegaHz, uiHz % uiHzPerMegaHz);
    for (size_t i = 6; i > uiLeast && sText.back() == '0'; --i)
    {
        sText.pop_back();
    }
    return sText;
}
} // namespace

bool IsSameRecord(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond)
{
    return memcmp(&oFirst.GetData(), &oSecond.GetData(), sizeof(SVidParamGenericData)) == 0;
}

SVics FindVics(const CVidParamTimingGeneric& oTiming)
{
    static const CKeysByFirst s_aoKeys = ListKeys();
    CVidParamTimingGeneric oPlain = oTiming;
    oPlain.Set420ColorSpace(0);
    unsigned int uiFirst = 0;
    SVics oVics;
    if (CVidParamCea::GetVicFromVidParam(oPlain, uiFirst) == 0)
    {
        return oVics;
    }
    oVics.m_bVariant = uiFirst > CVidParamCea::msc_uiVariantKey;
    for (const unsigned int uiKey : s_aoKeys.at(uiFirst))
    {
        oVics.m_auiCodes.push_back(uiKey % CVidParamCea::msc_uiVariantKey);
    }
    return oVics;
}

std::vector<SListedTiming> ListTimings(CLoadedImage& oImage)
{
    std::vector<SListedTiming> aoTimings;
    ListEstablished(oImage.GetEdid(), aoTimings);
    ListStandard(oImage, aoTimings);
    ListDetailed(oImage, aoTimings);
    return aoTimings;
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

const char* GetTypeName(CVidParamTiming::EVidParamType eType)
{
    switch (eType)
    {
    case CVidParamTiming::eVidParamType_Dmt:
        return "dmt";
    case CVidParamTiming::eVidParamType_DmtReducedBlanking:
        return "dmt-rb";
    case CVidParamTiming::eVidParamType_Cvt:
        return "cvt";
    case CVidParamTiming::eVidParamType_CvtReducedBlanking:
        return "cvt-rb";
    case CVidParamTiming::eVidParamType_Gtf:
        return "gtf";
    case CVidParamTiming::eVidParamType_Cea:
        return "cea";
    case CVidParamTiming::eVidParamType_Smpte:
        return "smpte";
    case CVidParamTiming::eVidParamType_Detailed:
        return "detailed";
    default:
        return nullptr;
    }
}

std::string GetTimingText(const CVidParamTimingGeneric& oTiming)
{
    return FormatText("%4u x %4u%c @ %3u Hz %10s MHz", oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
                      oTiming.IsInterlaced() != 0 ? 'i' : 'p', oTiming.GetVerticalRateInHz(),
                      GetMegaHertzText(oTiming.GetPixelClockInHz(), 3).c_str());
}

std::string GetVicsText(const SVics& oVics)
{
    std::string sText;
    for (const unsigned int uiCode : oVics.m_auiCodes)
    {
        sText += (sText.empty() ? "VIC " : "/") + std::to_string(uiCode);
    }
    return sText + (oVics.m_bVariant ? " at 1000/1001" : "");
}

unsigned int GetVerticalTotal(const CVidParamTimingGeneric& oTiming)
{
    const unsigned int uiTotal = oTiming.ComputeVerticalTotalLine();
    const unsigned long long ullWithout =
        1ULL * oTiming.ComputeHorizontalTotalPixel() * (uiTotal - 1) * oTiming.GetVerticalRateInHz();
    const bool bWithout = oTiming.IsInterlaced() != 0 && ullWithout != 0 && ullWithout == oTiming.GetPixelClockInHz();
    return bWithout ? uiTotal - 1 : uiTotal;
}

std::string GetModeline(const CVidParamTimingGeneric& oTiming)
{
    return GetModeline(oTiming, FormatText("%ux%u%s_%u", oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
                                           oTiming.IsInterlaced() != 0 ? "i" : "", oTiming.GetVerticalRateInHz()));
}

std::string GetModeline(const CVidParamTimingGeneric& oTiming, const std::string& sName)
{
    const bool bInterlaced = oTiming.IsInterlaced() != 0;
    const unsigned int uiFields = bInterlaced ? 2 : 1;
    const unsigned int uiHorizontalStart = oTiming.GetHorizontalActive() + oTiming.GetHorizontalFrontPorch();
    const unsigned int uiHorizontalEnd = uiHorizontalStart + oTiming.GetHorizontalSync();
    const unsigned int uiHorizontalTotal = oTiming.ComputeHorizontalTotalPixel();
    const unsigned int uiVerticalStart = oTiming.GetVerticalActive() + uiFields * oTiming.GetVerticalFrontPorch();
    const unsigned int uiVerticalEnd = uiVerticalStart + uiFields * oTiming.GetVerticalSync();
    const unsigned int uiVerticalTotal = GetVerticalTotal(oTiming);
    if (uiHorizontalEnd > uiHorizontalTotal || uiVerticalEnd > uiVerticalTotal)
    {
        return "# " + sName + ": its sync ends behind its total";
    }
    return FormatText("Modeline \"%s\" %s %u %u %u %u %u %u %u %u %chsync %cvsync%s", sName.c_str(),
                      GetMegaHertzText(oTiming.GetPixelClockInHz(), 2).c_str(), oTiming.GetHorizontalActive(),
                      uiHorizontalStart, uiHorizontalEnd, uiHorizontalTotal, oTiming.GetVerticalActive(),
                      uiVerticalStart, uiVerticalEnd, uiVerticalTotal,
                      oTiming.IsHorizontalPolarityPositive() != 0 ? '+' : '-',
                      oTiming.IsVerticalPolarityPositive() != 0 ? '+' : '-', bInterlaced ? " Interlace" : "");
}
