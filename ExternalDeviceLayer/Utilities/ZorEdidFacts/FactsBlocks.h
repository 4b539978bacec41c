// The walk over an image for the facts: it hands each structure to a visitor, with its place in the image. A structure
// that is cut short is handed over as far as it is there. Private to this folder.

#pragma once

#include <algorithm>

#include "Standards/ExtensionBlocks.h"
#include "Standards/Record.h"

namespace ZorFacts
{
using namespace ZorStandards;

// Bytes and where they are in the image.
struct SPart
{
    CRecordBytes m_oBytes;
    unsigned int m_uiOffset;

    SPart From(unsigned int uiSkip) const { return Part(uiSkip, m_oBytes.GetSize()); }
    SPart Part(unsigned int uiSkip, unsigned int uiLength) const
    {
        return { m_oBytes.GetPart(uiSkip, uiLength), m_uiOffset + uiSkip };
    }
    unsigned int GetByte(unsigned int uiByte) const { return m_oBytes.GetByte(uiByte); }
    unsigned int GetSize() const { return m_oBytes.GetSize(); }
};

// Tags of data blocks as the visitors compare them: an extended tag over gsc_uiExtended.
inline constexpr unsigned int gsc_uiExtended = 0x100;

// Calls oVisitor.VisitCtaData(tag, payload) for each data block. The extended tag does not belong to the payload.
template <class VISITOR>
void WalkCtaData(const SPart& oBlocks, VISITOR& oVisitor)
{
    Cta::CDataBlockWalk oWalk(oBlocks.m_oBytes.GetData(), oBlocks.GetSize(), 0, oBlocks.GetSize());
    while (oWalk.Next() || (!oWalk.IsCut() && oWalk.NextCut()))
    {
        const SPart oPayload = oBlocks.Part(oWalk.GetPayload().m_uiOffset, oWalk.GetLength());
        if (oWalk.GetTag() != Cta::gsc_uiExtendedTag)
        {
            oVisitor.VisitCtaData(oWalk.GetTag(), oPayload);
        }
        else if (oPayload.GetSize() != 0)
        {
            oVisitor.VisitCtaData(gsc_uiExtended + oPayload.GetByte(0), oPayload.From(1));
        }
    }
}

// VisitCta(block) first, then the data blocks, then VisitDescriptor(18 bytes) up to the first that is not a timing.
template <class VISITOR>
void WalkCta(const SPart& oBlock, VISITOR& oVisitor)
{
    oVisitor.VisitCta(oBlock);
    const unsigned int uiStart = oBlock.GetByte(Cta::gsc_uiDetailedStartOffset);
    const unsigned int uiEnd = oBlock.GetSize() < gsc_uiChecksumOffset ? oBlock.GetSize() : gsc_uiChecksumOffset;
    const Cta::SPayload oCollection = Cta::FindCollection(oBlock.m_oBytes.GetData(), uiEnd);
    WalkCtaData(oBlock.Part(oCollection.m_uiOffset, oCollection.m_uiLength), oVisitor);
    if (uiStart < Cta::gsc_uiDataBlocksOffset || uiStart >= gsc_uiBlockSize)
    {
        return;
    }
    for (unsigned int uiAt = uiStart; uiAt + Cta::gsc_uiDetailedSize <= uiEnd; uiAt += Cta::gsc_uiDetailedSize)
    {
        const SPart oDescriptor = oBlock.Part(uiAt, Cta::gsc_uiDetailedSize);
        if (!Descriptors::IsDescriptor(oDescriptor.m_oBytes.GetData()))
        {
            return;
        }
        oVisitor.VisitDescriptor(oDescriptor);
    }
}

// VisitDisplayId(section) first, then VisitDisplayIdData(major version, data block with its header); VisitCollection
// of the data blocks of CTA-861 in one.
template <class VISITOR>
void WalkDisplayId(const SPart& oBlock, VISITOR& oVisitor)
{
    const unsigned int uiFirst = DisplayId::gsc_uiDataBlocksOffset;
    const unsigned int uiSize = oBlock.GetByte(DisplayId::gsc_uiSectionLengthOffset) + DisplayId::gsc_uiSectionOverhead;
    const unsigned int uiEnd = std::min({ uiSize, oBlock.GetSize(), gsc_uiChecksumOffset });
    oVisitor.VisitDisplayId(oBlock);
    const unsigned int uiVersion = DisplayId::GetMajorVersion(oBlock.GetByte(DisplayId::gsc_uiVersionOffset));
    if (uiEnd <= uiFirst || uiVersion > DisplayId::gsc_uiHighestMajorVersion)
    {
        return;
    }
    DisplayId::CDataBlockWalk oWalk(oBlock.m_oBytes.GetData(), uiFirst, uiEnd, uiEnd);
    while (oWalk.Next())
    {
        const SPart oData = oBlock.Part(oWalk.GetOffset(), oWalk.GetSize());
        oVisitor.VisitDisplayIdData(uiVersion, oData);
        if (oWalk.GetTag() == DisplayId::gsc_uiCtaTag)
        {
            oVisitor.VisitCollection(oData.From(DisplayId::gsc_uiHeaderSize));
        }
    }
}

// At least a base block. It comes first: VisitBase(block), VisitDescriptor for each of its four. Then the blocks that
// the image announces, as far as they are there, in their order; those of other kinds go to VisitOther(tag, block).
template <class VISITOR>
void WalkImage(unsigned int uiSize, const unsigned char* pui8Data, VISITOR& oVisitor)
{
    const SPart oImage = { { pui8Data, uiSize }, 0 };
    const SPart oBase = oImage.Part(0, gsc_uiBlockSize);
    oVisitor.VisitBase(oBase);
    for (unsigned int i = 0; i < BaseBlock::gsc_uiDescriptors; ++i)
    {
        const SPart oDescriptor = oBase.Part(BaseBlock::DescriptorOffset(i), Descriptors::gsc_uiDescriptorSize);
        if (oDescriptor.GetSize() == Descriptors::gsc_uiDescriptorSize)
        {
            oVisitor.VisitDescriptor(oDescriptor);
        }
    }
    const unsigned int uiCount = CountExtensions(pui8Data, uiSize);
    for (CBlockWalk oWalk(pui8Data, uiSize); oWalk.Next() && oWalk.GetNumber() <= uiCount;)
    {
        const SPart oBlock = oImage.Part(oWalk.GetOffset(), oWalk.GetLength());
        switch (oBlock.GetByte(0))
        {
        case gsc_uiCtaTag:
            WalkCta(oBlock, oVisitor);
            break;
        case gsc_uiDisplayIdTag:
            WalkDisplayId(oBlock, oVisitor);
            break;
        default:
            oVisitor.VisitOther(oBlock.GetByte(0), oBlock);
            break;
        }
    }
}
} // namespace ZorFacts
