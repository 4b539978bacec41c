// The numbers that the EDID classes give the timings of an image, put to the fields that hold the timings. The last
// step of CMapWriter. The classes say where each timing comes from.

#include <memory>

#include "EdidBase.h"
#include "EdidExtBlock.h"
#include "MapWriter.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/VesaModes.h"
#include "Standards/VideoCodes.h"
#include "VidParamTimingGeneric.h"

namespace ZorMap
{
namespace
{
// Some pairs mean a mode that their aspect code does not give. In images before 1.3 these are the ones of 16:10 modes.
EZorEdidRule GetOtherSize(unsigned int uiListedHeight)
{
    switch (uiListedHeight)
    {
    case 350:
        return eZorEdidRule_ListedAs350;
    case 400:
        return eZorEdidRule_ListedAs400;
    case 480:
        return eZorEdidRule_ListedAs480;
    case 768:
        return eZorEdidRule_ListedAs768;
    default:
        return eZorEdidRule_ListedAsWide;
    }
}

void NoteOtherSizes(CMapWriter& oWriter, const CEdidBase& oBase, const CTimingOrigins& aoStandards)
{
    const bool bSquare = oWriter.GetFacts().m_uiRevision < ZorStandards::BaseBlock::gsc_ui16To10Revision;
    for (unsigned int i = 0; i < aoStandards.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = aoStandards[i];
        const unsigned char* pui8Pair = oBase.GetBaseBlock() + oOrigin.m_uiOffset;
        CVidParamTimingGeneric oListed;
        oBase.GetStandard(oOrigin.m_uiIndex, &oListed, nullptr);
        if (oListed.GetVerticalActive() != ReadStandardTiming(pui8Pair[0], pui8Pair[1], bSquare).m_uiHeight)
        {
            oWriter.AddNote(oWriter.FindField(oOrigin.m_uiOffset, oOrigin.m_uiLength),
                            GetOtherSize(oListed.GetVerticalActive()));
        }
    }
}

// Of HDMI's codes, one means 24 Hz alone. The list has the 23.98 Hz of the same code of CTA-861 with it.
bool MeansFraction(unsigned int uiByte, unsigned int uiCode)
{
    const SHdmiCode* poHdmi = FindHdmiCode(uiByte);
    const bool bHdmi = poHdmi != nullptr && uiByte != uiCode && poHdmi->m_ui8VideoCode == uiCode;
    return !bHdmi || poHdmi->m_bFraction;
}

// The field of an origin; where the map shows no such field, the leaf that has its first bit, which is not exact.
unsigned int FindPlace(const CMapWriter& oWriter, const STimingOrigin& oOrigin, unsigned int uiOffset, bool& bExact)
{
    constexpr unsigned int uiFirstBit = 7;
    constexpr unsigned int uiHeader = 2; // of a capability map without a byte of its own: tag and extended tag
    if (oOrigin.m_uiLength == 0)
    {
        bExact = true;
        return oWriter.FindField(uiOffset - uiHeader, uiHeader);
    }
    const unsigned int uiField = oOrigin.m_uiBit != STimingOrigin::msc_uiNoBit
                                     ? oWriter.FindLeaf(uiOffset, oOrigin.m_uiBit)
                                     : oWriter.FindField(uiOffset, oOrigin.m_uiLength);
    bExact = uiField != CZorEdidMap::msc_uiNone;
    return bExact ? uiField : oWriter.FindLeaf(uiOffset, uiFirstBit);
}

// The timings of a list of the block at uiStart, whose first one has the number uiFirst. A code's byte has two numbers
// where a 1000/1001 variant that it means follows it in the list. What its field does not say, and what a 4:2:0
// capability map selects, are further numbers.
void SetNumbers(CMapWriter& oWriter, CZorEdidMap::EList eList, const CTimingOrigins& aoOrigins, unsigned int uiStart,
                unsigned int uiFirst)
{
    for (unsigned int i = 0; i < aoOrigins.GetCount(); ++i)
    {
        const STimingOrigin& oOrigin = aoOrigins[i];
        const unsigned int uiOffset = uiStart + oOrigin.m_uiOffset;
        bool bExact = false;
        const unsigned int uiField = FindPlace(oWriter, oOrigin, uiOffset, bExact);
        const bool bCode = oOrigin.m_uiCode != 0;
        const bool bOther =
            bCode && (oOrigin.m_uiOffset != oOrigin.m_uiCodeByte || IsListedAsOther(oWriter.GetByte(uiOffset)));
        const bool bFraction = !bCode || MeansFraction(oWriter.GetByte(uiOffset), oOrigin.m_uiCode);
        if (!bExact || bOther || (oOrigin.m_bVariant != 0 && !bFraction))
        {
            oWriter.AddOtherTiming(uiField, uiFirst + oOrigin.m_uiIndex);
        }
        else if (oOrigin.m_bVariant == 0)
        {
            const bool bPair = bCode && bFraction && i + 1 < aoOrigins.GetCount() && aoOrigins[i + 1].m_bVariant != 0;
            oWriter.SetTiming(uiField, eList, uiFirst + oOrigin.m_uiIndex, bPair ? 2 : 1);
        }
    }
}
} // namespace

void NumberTimings(CMapWriter& oWriter, unsigned int uiSize)
{
    const unsigned char* pui8Data = oWriter.GetRecord(0, uiSize).GetData();
    CEdidBase oBase;
    if (uiSize % gsc_uiBlockSize != 0 || oBase.SetEdidBuffer(pui8Data, uiSize, 0) == 0)
    {
        return; // CEdid refuses it, too
    }
    CTimingOrigins aoOrigins;
    oBase.ListEstablishedOrigins(aoOrigins);
    SetNumbers(oWriter, CZorEdidMap::eList_Established, aoOrigins, 0, 0);
    oBase.ListStandardOrigins(aoOrigins);
    SetNumbers(oWriter, CZorEdidMap::eList_Standard, aoOrigins, 0, 0);
    NoteOtherSizes(oWriter, oBase, aoOrigins);
    oBase.ListDetailedOrigins(aoOrigins);
    SetNumbers(oWriter, CZorEdidMap::eList_Detailed, aoOrigins, 0, 0);

    unsigned int uiStandard = oBase.GetStandardCount();
    unsigned int uiDetailed = oBase.GetDetailedCount();
    for (CBlockWalk oWalk(pui8Data, uiSize); oWalk.Next() && oWalk.IsAnnounced();)
    {
        // Asked first, as a block that is refused would write a line.
        if (CEdidExtBlock::GetRefusal(gsc_uiBlockSize, oWalk.GetData()) != CEdidExtBlock::eRefusal_None)
        {
            continue;
        }
        const std::unique_ptr<CEdidExtBlock> poBlock(
            CEdidExtBlock::CreateExtensionBlock(gsc_uiBlockSize, oWalk.GetData(), 0));
        poBlock->ListStandardOrigins(aoOrigins);
        SetNumbers(oWriter, CZorEdidMap::eList_Standard, aoOrigins, oWalk.GetOffset(), uiStandard);
        poBlock->ListDetailedOrigins(aoOrigins);
        SetNumbers(oWriter, CZorEdidMap::eList_Detailed, aoOrigins, oWalk.GetOffset(), uiDetailed);
        uiStandard += poBlock->GetStandardCount();
        uiDetailed += poBlock->GetDetailedCount();
    }
}
} // namespace ZorMap
