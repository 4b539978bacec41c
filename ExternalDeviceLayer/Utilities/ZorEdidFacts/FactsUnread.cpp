// Which extension block may say what the facts do not have, and why.

#include "EdidUtils.h"
#include "FactsReader.h"

namespace ZorFacts
{
namespace
{
using EUnread = CFacts::EUnread;

bool HasContent(const SPart& oBytes)
{
    const unsigned char* pui8Bytes = oBytes.m_oBytes.GetData();
    return std::any_of(pui8Bytes, pui8Bytes + oBytes.GetSize(), [](unsigned char ui8Byte) { return ui8Byte != 0; });
}

EUnread FindUnreadCta(const SPart& oBlock)
{
    using namespace Cta;
    const unsigned int uiRevision = oBlock.GetByte(gsc_uiRevisionOffset);
    const unsigned int uiStart = oBlock.GetByte(gsc_uiDetailedStartOffset);
    if (uiRevision == 0 || uiRevision > gsc_uiHighestRevision)
    {
        return CFacts::eUnread_Revision;
    }
    if (uiStart == 0) // neither data blocks nor descriptors
    {
        const SPart oContent = oBlock.Part(gsc_uiDataBlocksOffset, gsc_uiChecksumOffset - gsc_uiDataBlocksOffset);
        return HasContent(oContent) ? CFacts::eUnread_Offset : CFacts::eUnread_None;
    }
    if (uiStart < gsc_uiDataBlocksOffset || uiStart > gsc_uiChecksumOffset)
    {
        return CFacts::eUnread_Offset;
    }
    if (uiRevision < gsc_uiDataBlocksRevision)
    {
        const SPart oContent = oBlock.Part(gsc_uiDataBlocksOffset, uiStart - gsc_uiDataBlocksOffset);
        return HasContent(oContent) ? CFacts::eUnread_Revision : CFacts::eUnread_None;
    }
    CDataBlockWalk oWalk(oBlock.m_oBytes.GetData(), uiStart);
    return oWalk.EndsExactly() ? CFacts::eUnread_None : CFacts::eUnread_Length;
}

EUnread FindUnreadDisplayId(const SPart& oBlock)
{
    using namespace DisplayId;
    const unsigned char* pui8Block = oBlock.m_oBytes.GetData();
    const unsigned int uiVersion = GetMajorVersion(pui8Block[gsc_uiVersionOffset]);
    const unsigned int uiEnd = GetSectionSize(pui8Block); // where its checksum is
    if (uiVersion == 0 || uiVersion > gsc_uiHighestMajorVersion)
    {
        return CFacts::eUnread_Revision;
    }
    if (uiEnd > gsc_uiChecksumOffset)
    {
        return CFacts::eUnread_Length;
    }
    DisplayId::CDataBlockWalk oWalk(pui8Block, gsc_uiDataBlocksOffset, uiEnd, uiEnd);
    while (oWalk.Next())
    {
        const unsigned int uiPayload = oWalk.GetSize() - gsc_uiHeaderSize;
        const bool bCta = oWalk.GetTag() == DisplayId::gsc_uiCtaTag;
        Cta::CDataBlockWalk oCta(oWalk.GetHeader() + gsc_uiHeaderSize, bCta ? uiPayload : 0, 0, bCta ? uiPayload : 0);
        if (oWalk.IsCut() || !oCta.EndsExactly())
        {
            return CFacts::eUnread_Length;
        }
    }
    return CFacts::eUnread_None;
}

bool AreSumsRight(const unsigned char* pui8Block)
{
    bool bRight = true;
    ForEachSum(pui8Block, [&](unsigned int uiOffset, unsigned int uiSize) {
        bRight = bRight && CEdidUtils::Is8BitsChecksumValid(uiSize, pui8Block + uiOffset) != 0;
    });
    return bRight;
}

// Kinds that have neither data blocks of CTA-861 nor of DisplayID say nothing of what the facts are about.
EUnread FindUnreadBlock(const SPart& oBlock)
{
    constexpr unsigned int auiOtherTags[] = {
        Vtb::gsc_uiTag,     gsc_uiDisplayInformationTag, gsc_uiLocalizedStringTag,
        gsc_uiVideoLinkTag, gsc_uiBlockMapTag,           gsc_uiManufacturerTag,
    };
    if (oBlock.GetSize() < gsc_uiBlockSize)
    {
        return CFacts::eUnread_Cut;
    }
    const unsigned int uiTag = oBlock.GetByte(0);
    const bool bOther = std::find(std::begin(auiOtherTags), std::end(auiOtherTags), uiTag) != std::end(auiOtherTags);
    const EUnread eReason = uiTag == gsc_uiCtaTag         ? FindUnreadCta(oBlock)
                            : uiTag == gsc_uiDisplayIdTag ? FindUnreadDisplayId(oBlock)
                            : bOther                      ? CFacts::eUnread_None
                                                          : CFacts::eUnread_Kind;
    const bool bSums = eReason != CFacts::eUnread_None || AreSumsRight(oBlock.m_oBytes.GetData());
    return bSums ? eReason : CFacts::eUnread_Checksum;
}
} // namespace

CFacts::SUnread FindUnread(const unsigned char* pui8Image, unsigned int uiSize)
{
    const SPart oImage = { { pui8Image, uiSize }, 0 };
    const unsigned int uiCount = CountExtensions(pui8Image, uiSize);
    CBlockWalk oWalk(pui8Image, uiSize);
    while (oWalk.Next())
    {
        const SPart oBlock = oImage.Part(oWalk.GetOffset(), oWalk.GetLength());
        const unsigned int uiTag = oBlock.GetByte(0);
        const EUnread eReason = oWalk.GetNumber() <= uiCount                           ? FindUnreadBlock(oBlock)
                                : uiTag == gsc_uiCtaTag || uiTag == gsc_uiDisplayIdTag ? CFacts::eUnread_NotCounted
                                                                                       : CFacts::eUnread_None;
        if (eReason != CFacts::eUnread_None)
        {
            return { eReason, oWalk.GetNumber() };
        }
    }
    return oWalk.GetNumber() <= uiCount ? CFacts::SUnread{ CFacts::eUnread_Missing, oWalk.GetNumber() }
                                        : CFacts::SUnread{};
}
} // namespace ZorFacts

CMString CZorEdidFacts::GetUnreadText() const
{
    constexpr const char* apszReasons[] = { "",
                                            "the image ends before block %u",
                                            "the image ends within block %u",
                                            "block %u is of an unknown kind",
                                            "block %u has a revision that does not fit it",
                                            "byte 2 of block %u, where its data blocks end, is wrong",
                                            "a data block of block %u runs past its end",
                                            "the checksum of block %u is wrong",
                                            "the base block does not count block %u" };
    static_assert(std::size(apszReasons) == eUnread_NotCounted + 1);
    CMString oText;
    if (m_oUnread.m_eReason != eUnread_None)
    {
        oText.Format(apszReasons[m_oUnread.m_eReason], m_oUnread.m_uiBlock);
    }
    return oText;
}
