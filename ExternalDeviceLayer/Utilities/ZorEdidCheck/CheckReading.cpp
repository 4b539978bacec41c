// What the library does not read: blocks that no class takes, and what the classes leave out of their lists.

#include "CheckFindings.h"
#include "EdidBase.h"
#include "EdidExtBlock.h"
#include "EdidUtils.h"
#include "UnreadReason.h"

using namespace ZorStandards::BaseBlock;

namespace ZorCheck
{
namespace
{
// Where the first descriptor must be a timing and is not, a note of the map says so.
void CheckPreferred(CFindings& oFindings)
{
    constexpr unsigned int uiPreferredBit = 1;
    CEdidBase oBase;
    oBase.SetEdidBuffer(oFindings.GetAt(0), gsc_uiBlockSize, 0);
    const bool bDeclared = IsPreferredTimingDeclared(oFindings.GetAt(0));
    const bool bTiming = HasPixelClock(oFindings.GetAt(gsc_uiDescriptorsOffset));
    if (bDeclared && (!bTiming || oBase.GetDetailed(0, nullptr) != 0))
    {
        return;
    }
    const unsigned int uiField = bDeclared ? oFindings.FindGroup(gsc_uiDescriptorsOffset)
                                           : oFindings.GetMap().FindLeaf(gsc_uiFeaturesOffset, uiPreferredBit);
    oFindings.Add(uiField, eZorEdidRule_UnreadPreferred).m_sFound =
        bDeclared ? "none that the library reads" : "none declared";
}

void CheckRangeLimits(CFindings& oFindings)
{
    const bool bOffsets = IsAtLeastRevision(oFindings.GetAt(0), gsc_uiVideoInputRevision);
    for (unsigned int i = 0; bOffsets && i < CEdidBase::msc_uiDescriptorCount; ++i)
    {
        if (HasRateOffsets(oFindings.GetAt(DescriptorOffset(i))))
        {
            oFindings.Add(oFindings.FindGroup(DescriptorOffset(i)), eZorEdidRule_UnreadRangeOffsets);
        }
    }
}

// The library reads the descriptors of a CTA-861 block up to the first that has no pixel clock.
void CheckCtaDescriptors(CFindings& oFindings, unsigned int uiBlock)
{
    const unsigned int uiEnd = uiBlock + gsc_uiChecksumOffset;
    unsigned int uiAt = uiBlock + oFindings.GetByte(uiBlock + Cta::gsc_uiDetailedStartOffset);
    if (uiAt < uiBlock + Cta::gsc_uiDataBlocksOffset)
    {
        return;
    }
    while (uiAt + gsc_uiDescriptorSize <= uiEnd && HasPixelClock(oFindings.GetAt(uiAt)))
    {
        uiAt += gsc_uiDescriptorSize;
    }
    // What the map takes for padding is not a descriptor.
    if (uiAt + gsc_uiDescriptorSize <= uiEnd &&
        oFindings.GetMap().GetField(oFindings.FindGroup(uiAt)).m_uiOffset == uiAt)
    {
        oFindings.Add(oFindings.FindGroup(uiAt), eZorEdidRule_UnreadDescriptor);
    }
}

// The timings of a block that the library reads, but does not list: those after a descriptor that ends its list, those
// after a descriptor that it takes for a timing of size 0, and those of a data block whose revision it does not know.
void CheckUnlisted(CFindings& oFindings, unsigned int uiBlock)
{
    const CMap& oMap = oFindings.GetMap();
    if (oMap.GetSize() % gsc_uiBlockSize != 0)
    {
        return; // the library refuses the image
    }
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CMap::SField& oField = oMap.GetField(i);
        const bool bDetailed = oField.m_eId == eZorEdidField_BaseDetailed ||
                               oField.m_eId == eZorEdidField_DisplayidType1Timing ||
                               oField.m_eId == eZorEdidField_DisplayidType2Timing;
        if (bDetailed && oField.m_uiOffset / gsc_uiBlockSize == uiBlock && oField.m_uiTimings == 0)
        {
            oFindings.Add(i, eZorEdidRule_UnlistedTiming);
        }
    }
}

// An override data block may announce blocks that the base block does not.
void CheckExtension(CFindings& oFindings, const CBlockWalk& oBlock)
{
    const unsigned int uiOffset = oBlock.GetOffset();
    if (oFindings.GetByte(uiOffset) == gsc_uiBlockMapTag)
    {
        return; // it announces nothing
    }
    const CMString sReason = oBlock.IsAnnounced() ? FindUnreadReason(oBlock.GetData())
                                                  : CMString("byte 0x7e of the base block does not count it");
    if (sReason.GetLength() == 0)
    {
        CheckUnlisted(oFindings, oBlock.GetNumber());
        if (oFindings.GetByte(uiOffset) == Cta::gsc_uiTag)
        {
            CheckCtaDescriptors(oFindings, uiOffset);
        }
        return;
    }
    oFindings.Add(oFindings.FindBlock(uiOffset), eZorEdidRule_UnreadBlock).m_sReason = sReason;
}
} // namespace

CMString FindUnreadReason(const unsigned char* pui8Block, const char* pszRepair)
{
    const unsigned int uiRevision = pui8Block[1];
    CMString sReason;
    switch (CEdidExtBlock::GetRefusal(CEdidUtils::msc_uiBlockSize, pui8Block))
    {
    case CEdidExtBlock::eRefusal_None:
        break;
    case CEdidExtBlock::eRefusal_Revision:
        if (pui8Block[0] == gsc_uiDisplayIdTag)
        {
            sReason = "its DisplayID version is " + DescribeVersion(uiRevision) + ", above 1.2";
        }
        else
        {
            sReason.Format("its revision is %u, above 3", uiRevision);
        }
        break;
    case CEdidExtBlock::eRefusal_SectionSize:
        sReason = "its DisplayID section runs past its end";
        break;
    case CEdidExtBlock::eRefusal_Checksum:
        sReason = CMString("its checksum is wrong") + pszRepair;
        break;
    case CEdidExtBlock::eRefusal_SectionChecksum:
        sReason = CMString("its section's checksum is wrong") + pszRepair;
        break;
    default:
        sReason = "the library keeps no model of its kind";
        break;
    }
    return sReason;
}

void CheckReading(CFindings& oFindings)
{
    CheckPreferred(oFindings);
    CheckRangeLimits(oFindings);
    CheckUnlisted(oFindings, 0);
    oFindings.ForEachBlock([&](const CBlockWalk& oBlock) { CheckExtension(oFindings, oBlock); });
}
} // namespace ZorCheck
