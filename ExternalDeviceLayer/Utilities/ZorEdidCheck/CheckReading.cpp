// What the library does not read: blocks that no class takes, and what the classes leave out of their lists.

#include <algorithm>
#include <iterator>

#include "CheckFindings.h"
#include "EdidBase.h"
#include "EdidExtBlock.h"
#include "EdidUtils.h"
#include "UnreadReason.h"
#include "VidParamCea.h"

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

// A display descriptor whose bytes 2 and 4 are not 0 is one for the map and facts only.
void CheckBaseDescriptors(CFindings& oFindings)
{
    const bool bOffsets = IsAtLeastRevision(oFindings.GetAt(0), gsc_uiVideoInputRevision);
    for (unsigned int i = 0; i < CEdidBase::msc_uiDescriptorCount; ++i)
    {
        const unsigned char* pui8Descriptor = oFindings.GetAt(DescriptorOffset(i));
        if (!HasPixelClock(pui8Descriptor) && !IsDisplayDescriptor(pui8Descriptor))
        {
            oFindings.Add(oFindings.FindGroup(DescriptorOffset(i)), bOffsets && HasRateOffsets(pui8Descriptor)
                                                                        ? eZorEdidRule_UnreadRangeOffsets
                                                                        : eZorEdidRule_UnreadDescriptor);
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

// Whether the library lists such fields. Codes are those of its tables, in CTA-861 blocks.
bool IsListedKind(const CFindings& oFindings, unsigned int uiField)
{
    const CMap::SField& oField = oFindings.GetMap().GetField(uiField);
    SZorMode oMode = {};
    switch (oField.m_eId)
    {
    case eZorEdidField_BaseDetailed:
    case eZorEdidField_DisplayidType1Timing:
    case eZorEdidField_DisplayidType2Timing:
        return true;
    case eZorEdidField_BaseStandard:
        return oField.m_uiOffset < gsc_uiDescriptorsOffset && oFindings.GetMap().GetMode(uiField, oMode);
    case eZorEdidField_CtaVideoDescriptor:
        return oFindings.GetByte(oField.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize) == Cta::gsc_uiTag &&
               oFindings.GetMap().GetMode(uiField, oMode) && CVidParamCea::IsVicSupported(oMode.m_uiCode) != 0;
    case eZorEdidField_CtaHdmiVic:
        return oFindings.GetMap().GetMode(uiField, oMode);
    default:
        return false;
    }
}

// The timings of a block that the library reads, but does not list: those after a descriptor that ends its list, those
// after a descriptor that it takes for a timing of size 0, those of a data block whose revision it does not know, codes
// of 4:2:0 after an extended data block without a tag, codes of HDMI whose number runs past their data block, and
// standard timings of the least width. Of codes the first.
void CheckUnlisted(CFindings& oFindings, unsigned int uiBlock)
{
    const CMap& oMap = oFindings.GetMap();
    if (oMap.GetSize() % gsc_uiBlockSize != 0)
    {
        return; // the library refuses the image
    }
    bool bHasCode = false;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CMap::SField& oField = oMap.GetField(i);
        const bool bCode = oField.m_eId == eZorEdidField_CtaVideoDescriptor;
        if (oField.m_uiOffset / gsc_uiBlockSize == uiBlock && oField.m_uiTimings == 0 && oField.m_uiOthers == 0 &&
            !(bCode && bHasCode) && IsListedKind(oFindings, i))
        {
            oFindings.Add(i, eZorEdidRule_UnlistedTiming);
            bHasCode = bHasCode || bCode;
        }
    }
}

// What the library lists of bytes that the map does not take for a code, the first of a block: in a data block that
// crosses the end of its collection, and of HDMI after latencies of interlaced formats alone.
void CheckListedMore(CFindings& oFindings, unsigned int uiBlock)
{
    constexpr EZorEdidField aeListed[] = { eZorEdidField_CtaVideoDescriptor, eZorEdidField_CtaHdmiVic,
                                           eZorEdidField_Cta420MapVic, eZorEdidField_Cta420Map,
                                           eZorEdidField_BaseDetailed };
    const CMap& oMap = oFindings.GetMap();
    const unsigned int uiField = oFindings.FindBlock(uiBlock);
    for (unsigned int i = uiField; i < oMap.GetField(uiField).m_uiEnd; ++i)
    {
        const CMap::SField& oField = oMap.GetField(i);
        if (oField.m_uiTimings + oField.m_uiOthers != 0 &&
            std::ranges::find(aeListed, oField.m_eId) == std::end(aeListed))
        {
            oFindings.Add(uiField, eZorEdidRule_ListedMore).m_sFound = "one at " + DescribePlace(oField.m_uiOffset);
            return;
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
            CheckListedMore(oFindings, uiOffset);
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
    CheckBaseDescriptors(oFindings);
    CheckUnlisted(oFindings, 0);
    oFindings.ForEachBlock([&](const CBlockWalk& oBlock) { CheckExtension(oFindings, oBlock); });
}
} // namespace ZorCheck
