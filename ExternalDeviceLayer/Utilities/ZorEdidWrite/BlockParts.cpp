// Blocks taken apart and put together. The places are those of VidMgr/Standards.

#include "BlockParts.h"

#include <string.h>

#include <algorithm>
#include <iterator>

#include "EdidUtils.h"

namespace ZorWrite
{
using namespace ZorStandards;

namespace
{
constexpr unsigned int gsc_uiStandards = 8;
constexpr unsigned int gsc_uiStandardSize = 2;
constexpr unsigned int gsc_uiExtendedSize = Cta::gsc_uiHeaderSize + 1;

// Lists of items in data blocks of CTA-861: tag, and extended tag where it has one.
struct SCtaItems
{
    unsigned int m_uiTag;
    unsigned int m_uiExtended;
    SItems m_oItems;
};
constexpr SCtaItems gsc_aoCtaItems[] = {
    { Cta::gsc_uiAudioTag, 0, { Cta::gsc_uiHeaderSize, 3 } },
    { Cta::gsc_uiVideoTag, 0, { Cta::gsc_uiHeaderSize, 1 } },
    { Cta::gsc_uiExtendedTag, Cta::gsc_uiExtendedPreference, { gsc_uiExtendedSize, 1 } },
    { Cta::gsc_uiExtendedTag, Cta::gsc_uiExtended420Video, { gsc_uiExtendedSize, 1 } },
};

// A record of Type VI says how long it is. 0 where they differ.
unsigned int GetType6ItemSize(const unsigned char* pui8DataBlock, unsigned int uiSize)
{
    using namespace DisplayId;
    unsigned int uiItem = 0;
    for (unsigned int uiAt = gsc_uiHeaderSize; uiAt + gsc_oType6.m_uiSize <= uiSize; uiAt += uiItem)
    {
        const bool bLong = gsc_oType6IsLong.IsSet(pui8DataBlock + uiAt);
        const unsigned int uiThis = bLong ? gsc_uiType6LongSize : gsc_oType6.m_uiSize;
        if (uiItem != 0 && uiItem != uiThis)
        {
            return 0;
        }
        uiItem = uiThis;
    }
    return uiItem;
}

// The sizes of the items of DisplayID data blocks.
unsigned int GetDisplayIdItemSize(const unsigned char* pui8Header, unsigned int uiSize)
{
    using namespace DisplayId;
    switch (pui8Header[0])
    {
    case gsc_uiType1Tag:
        return gsc_oType1.m_uiSize;
    case gsc_uiType2Tag:
        return gsc_oType2.m_uiSize;
    case gsc_uiType3Tag:
        return gsc_uiType3Size;
    case gsc_uiType5Tag:
        return gsc_uiType5Size;
    case gsc_uiType6Tag:
        return GetType6ItemSize(pui8Header, uiSize);
    case gsc_uiType7Tag:
        return gsc_oType7.m_uiSize + gsc_oMoreTimingBytes.Read(pui8Header);
    case gsc_uiType9Tag:
        return gsc_uiType9Size;
    case gsc_uiType10Tag:
        return gsc_uiType10Size + gsc_oMoreTimingBytes.Read(pui8Header);
    case gsc_uiType4Tag:
        return 1;
    case gsc_uiType8Tag:
        return gsc_oWideCodes.IsSet(pui8Header) ? 2 : 1;
    default:
        return 0;
    }
}

// The extended tags of CTA-861 for Types VII, VIII and X are DisplayID's tags.
constexpr bool IsDisplayIdTiming(unsigned int uiExtended)
{
    static_assert(Cta::gsc_uiExtendedType7 == DisplayId::gsc_uiType7Tag &&
                  Cta::gsc_uiExtendedType8 == DisplayId::gsc_uiType8Tag &&
                  Cta::gsc_uiExtendedType10 == DisplayId::gsc_uiType10Tag);
    return uiExtended == Cta::gsc_uiExtendedType7 || uiExtended == Cta::gsc_uiExtendedType8 ||
           uiExtended == Cta::gsc_uiExtendedType10;
}

bool IsZero(const unsigned char* pui8Bytes, unsigned int uiFirst, unsigned int uiEnd)
{
    return std::all_of(pui8Bytes + uiFirst, pui8Bytes + std::max(uiFirst, uiEnd),
                       [](unsigned char ui8Byte) { return ui8Byte == 0; });
}

unsigned int SumSizes(const CPieces& aoPieces)
{
    unsigned int uiSum = 0;
    for (unsigned int i = 0; i < aoPieces.GetCount(); ++i)
    {
        uiSum += aoPieces[i].m_uiSize;
    }
    return uiSum;
}

// One after the other. Gives where they end.
unsigned int PutPieces(const CPieces& aoPieces, unsigned int uiFirst, unsigned char* pui8Block)
{
    for (unsigned int i = 0; i < aoPieces.GetCount(); ++i)
    {
        memcpy(pui8Block + uiFirst, aoPieces[i].m_aui8Bytes, aoPieces[i].m_uiSize);
        uiFirst += aoPieces[i].m_uiSize;
    }
    return uiFirst;
}
} // namespace

SPiece MakePiece(const unsigned char* pui8Bytes, unsigned int uiSize, unsigned int uiOffset)
{
    SPiece oPiece = { uiOffset, std::min(uiSize, gsc_uiBlockSize), {} };
    memcpy(oPiece.m_aui8Bytes, pui8Bytes, oPiece.m_uiSize);
    return oPiece;
}

void InsertPiece(CPieces& aoPieces, unsigned int uiPlace, const SPiece& oPiece)
{
    aoPieces.Add(oPiece);
    SPiece* poPieces = aoPieces.GetData();
    std::rotate(poPieces + std::min(uiPlace, aoPieces.GetCount() - 1), poPieces + aoPieces.GetCount() - 1,
                poPieces + aoPieces.GetCount());
}

void RemovePiece(CPieces& aoPieces, unsigned int uiPlace)
{
    SPiece* poPieces = aoPieces.GetData();
    std::rotate(poPieces + uiPlace, poPieces + uiPlace + 1, poPieces + aoPieces.GetCount());
    aoPieces.SetCount(aoPieces.GetCount() - 1, -1);
}

SItems FindItems(const unsigned char* pui8DataBlock, unsigned int uiSize, bool bDisplayId)
{
    if (bDisplayId)
    {
        return { DisplayId::gsc_uiHeaderSize, GetDisplayIdItemSize(pui8DataBlock, uiSize) };
    }
    const unsigned int uiTag = Cta::gsc_oHeaderTag.Read(pui8DataBlock);
    const unsigned int uiExtended = uiTag == Cta::gsc_uiExtendedTag && uiSize > 1 ? pui8DataBlock[1] : 0U;
    if (IsDisplayIdTiming(uiExtended) && uiSize > gsc_uiExtendedSize)
    {
        // From the extended tag on as in DisplayID, but without a length.
        return { gsc_uiExtendedSize + 1, GetDisplayIdItemSize(pui8DataBlock + 1, uiSize - 1) };
    }
    const auto* poFound = std::ranges::find_if(gsc_aoCtaItems, [&](const SCtaItems& oItems) {
        return oItems.m_uiTag == uiTag && oItems.m_uiExtended == uiExtended;
    });
    return poFound != std::end(gsc_aoCtaItems) ? poFound->m_oItems : SItems{ 0, 0 };
}

bool StoreDataBlockLength(SPiece& oDataBlock, bool bDisplayId)
{
    if (bDisplayId)
    {
        oDataBlock.m_aui8Bytes[DisplayId::gsc_uiHeaderLengthOffset] =
            LowByte(oDataBlock.m_uiSize - DisplayId::gsc_uiHeaderSize);
        return oDataBlock.m_uiSize <= DisplayId::gsc_uiMostDataBytes;
    }
    const unsigned int uiPayload = oDataBlock.m_uiSize - Cta::gsc_uiHeaderSize;
    Cta::gsc_oHeaderLength.Write(oDataBlock.m_aui8Bytes, uiPayload);
    return uiPayload <= Cta::gsc_uiMostPayload;
}

void StoreBlockChecksums(unsigned char* pui8Block)
{
    ForEachSum(pui8Block, [&](unsigned int uiOffset, unsigned int uiSize) {
        CEdidUtils::StoreChecksum(uiSize, pui8Block + uiOffset);
    });
}

// ---- Taking apart ----

CMString CBlockParts::Read(const unsigned char* pui8Block, bool bBase)
{
    memcpy(m_aui8Block, pui8Block, gsc_uiBlockSize);
    for (CPieces& aoPieces : m_aaoLists)
    {
        aoPieces.RemoveAll();
    }
    m_eKind = bBase                                ? eBlock_Base
              : pui8Block[0] == gsc_uiCtaTag       ? eBlock_Cta
              : pui8Block[0] == gsc_uiDisplayIdTag ? eBlock_DisplayId
                                                   : eBlock_Other;
    return m_eKind == eBlock_Base        ? ReadBase()
           : m_eKind == eBlock_Cta       ? ReadCta()
           : m_eKind == eBlock_DisplayId ? ReadDisplayId()
                                         : CMString("has no parts that can be edited by themselves");
}

unsigned int CBlockParts::GetVersion() const
{
    return DisplayId::GetMajorVersion(m_aui8Block[DisplayId::gsc_uiVersionOffset]);
}

void CBlockParts::AddPieces(EList eList, unsigned int uiFirst, unsigned int uiSize, unsigned int uiCount)
{
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        const unsigned int uiOffset = uiFirst + i * uiSize;
        m_aaoLists[eList].Add(MakePiece(m_aui8Block + uiOffset, uiSize, uiOffset));
    }
}

CMString CBlockParts::ReadBase()
{
    if (m_aui8Block[BaseBlock::gsc_uiVersionOffset] != BaseBlock::gsc_uiVersion)
    {
        return "is of another version than 1";
    }
    AddPieces(eList_Standards, BaseBlock::gsc_uiStandardsOffset, gsc_uiStandardSize, gsc_uiStandards);
    AddPieces(eList_Descriptors, BaseBlock::gsc_uiDescriptorsOffset, Descriptors::gsc_uiDescriptorSize,
              BaseBlock::gsc_uiDescriptors);
    return {};
}

// Data blocks up to the first descriptor, descriptors, bytes that are not used.
CMString CBlockParts::ReadCta()
{
    const unsigned int uiStart = m_aui8Block[Cta::gsc_uiDetailedStartOffset];
    m_uiEnd = Cta::gsc_uiDataBlocksOffset;
    if (uiStart == 0)
    {
        return {};
    }
    if (uiStart < Cta::gsc_uiDataBlocksOffset || uiStart > gsc_uiChecksumOffset)
    {
        return "is damaged: its byte 2 says that its detailed timings begin outside of it";
    }
    if (m_aui8Block[Cta::gsc_uiRevisionOffset] < Cta::gsc_uiDataBlocksRevision)
    {
        if (uiStart != Cta::gsc_uiDataBlocksOffset)
        {
            return "has bytes before its detailed timings, which its revision knows no meaning of";
        }
    }
    else
    {
        Cta::CDataBlockWalk oWalk(m_aui8Block, uiStart);
        while (oWalk.Next())
        {
            const unsigned int uiOffset = oWalk.GetPayload().m_uiOffset - Cta::gsc_uiHeaderSize;
            AddPieces(eList_DataBlocks, uiOffset, Cta::gsc_uiHeaderSize + oWalk.GetLength(), 1);
        }
        if (!oWalk.EndsExactly())
        {
            return "is damaged: its data blocks do not end where its detailed timings begin";
        }
    }
    for (m_uiEnd = uiStart;
         m_uiEnd + Cta::gsc_uiDetailedSize <= gsc_uiChecksumOffset && Descriptors::IsDescriptor(m_aui8Block + m_uiEnd);
         m_uiEnd += Cta::gsc_uiDetailedSize)
    {
        AddPieces(eList_Detailed, m_uiEnd, Cta::gsc_uiDetailedSize, 1);
    }
    return {};
}

CMString CBlockParts::ReadDisplayId()
{
    const unsigned int uiLength = m_aui8Block[DisplayId::gsc_uiSectionLengthOffset];
    if (GetVersion() > DisplayId::gsc_uiHighestMajorVersion)
    {
        return "is of a later version than 2";
    }
    if (uiLength > DisplayId::gsc_uiMostDataBytes)
    {
        return "is damaged: its section does not end within it";
    }
    const unsigned int uiEnd = DisplayId::gsc_uiDataBlocksOffset + uiLength;
    DisplayId::CDataBlockWalk oWalk(m_aui8Block, DisplayId::gsc_uiDataBlocksOffset, uiEnd, uiEnd);
    while (oWalk.Next())
    {
        if (oWalk.IsCut())
        {
            return "is damaged: its last data block does not end within its section";
        }
        AddPieces(eList_DataBlocks, oWalk.GetOffset(), oWalk.GetSize(), 1);
    }
    m_uiEnd = oWalk.GetEnd();
    return IsZero(m_aui8Block, m_uiEnd, uiEnd) ? CMString() : CMString("has unknown bytes after its data blocks");
}

// ---- Putting together ----

// The first byte from uiFirst on that is not 0: unknown bytes stay in their place.
unsigned int CBlockParts::FindInUse(unsigned int uiFirst) const
{
    while (uiFirst < gsc_uiChecksumOffset && m_aui8Block[uiFirst] == 0)
    {
        ++uiFirst;
    }
    return uiFirst;
}

unsigned int CBlockParts::Write(unsigned char* pui8Block) const
{
    if (m_eKind == eBlock_Base)
    {
        PutPieces(Get(eList_Standards), BaseBlock::gsc_uiStandardsOffset, pui8Block);
        PutPieces(Get(eList_Descriptors), BaseBlock::gsc_uiDescriptorsOffset, pui8Block);
        StoreBlockChecksums(pui8Block);
        return 0;
    }
    const unsigned int uiLacking = m_eKind == eBlock_Cta ? WriteCta(pui8Block) : WriteDisplayId(pui8Block);
    if (uiLacking == 0)
    {
        StoreBlockChecksums(pui8Block);
    }
    return uiLacking;
}

unsigned int CBlockParts::WriteCta(unsigned char* pui8Block) const
{
    const CPieces& aoDataBlocks = Get(eList_DataBlocks);
    const CPieces& aoDetailed = Get(eList_Detailed);
    const unsigned int uiStart = Cta::gsc_uiDataBlocksOffset + SumSizes(aoDataBlocks);
    const unsigned int uiEnd = uiStart + SumSizes(aoDetailed);
    const unsigned int uiInUse = FindInUse(m_uiEnd);
    if (uiEnd > uiInUse)
    {
        return uiEnd - uiInUse;
    }
    const bool bEmpty = m_aui8Block[Cta::gsc_uiDetailedStartOffset] == 0 && uiEnd == Cta::gsc_uiDataBlocksOffset;
    pui8Block[Cta::gsc_uiDetailedStartOffset] = bEmpty ? 0 : LowByte(uiStart);
    PutPieces(aoDetailed, PutPieces(aoDataBlocks, Cta::gsc_uiDataBlocksOffset, pui8Block), pui8Block);
    memset(pui8Block + uiEnd, 0, uiInUse - uiEnd);
    return 0;
}

// A section that is longer than its data blocks keeps its length as long as they fit, as does one that fills its block.
// Others are as long as they need.
unsigned int CBlockParts::WriteDisplayId(unsigned char* pui8Block) const
{
    const CPieces& aoDataBlocks = Get(eList_DataBlocks);
    const unsigned int uiRead = m_aui8Block[DisplayId::gsc_uiSectionLengthOffset];
    const unsigned int uiReadEnd = DisplayId::gsc_uiDataBlocksOffset + uiRead;
    const unsigned int uiNeeded = SumSizes(aoDataBlocks);
    const bool bKept = uiNeeded <= uiRead && (m_uiEnd < uiReadEnd || uiRead == DisplayId::gsc_uiMostDataBytes);
    const unsigned int uiLength = bKept ? uiRead : uiNeeded;
    // The byte at uiReadEnd is the section's checksum, which moves.
    const unsigned int uiMost = FindInUse(uiReadEnd + 1) - DisplayId::gsc_uiDataBlocksOffset - 1;
    if (uiLength > uiMost)
    {
        return uiLength - uiMost;
    }
    pui8Block[DisplayId::gsc_uiSectionLengthOffset] = LowByte(uiLength);
    const unsigned int uiEnd = PutPieces(aoDataBlocks, DisplayId::gsc_uiDataBlocksOffset, pui8Block);
    memset(pui8Block + uiEnd, 0, uiMost + DisplayId::gsc_uiDataBlocksOffset + 1 - uiEnd);
    return 0;
}
} // namespace ZorWrite
