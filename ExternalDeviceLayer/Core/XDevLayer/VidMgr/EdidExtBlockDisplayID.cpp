// The DisplayID section of an extension block: walking its data blocks, its detailed timings, its tile declaration.
// Whether an extension block comes here at all is decided in EdidExtBlockFactory.cpp.

#include "EdidExtBlockDisplayID.h"

#include "ByteFields.h"
#include "EdidDetailedTiming.h"
#include "EdidUtils.h"
#include "ListFill.h"
#include "VidParamTiming.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace ByteFields;

namespace
{
constexpr unsigned int gsc_uiHighestRevision = 0x12;

// Positions in the extension block, from its first byte.
constexpr unsigned int gsc_uiExtensionTagOffset = 0;
constexpr unsigned int gsc_uiRevisionOffset = 1; // first byte of the section
constexpr unsigned int gsc_uiSectionLengthOffset = 2;
constexpr unsigned int gsc_uiDataBlocksOffset = 5;

// What a section has besides its data blocks: revision, length, product type, extension count, checksum. Its first byte
// stands at offset 1, so the same number leads from the length to the offset of the section checksum.
constexpr unsigned int gsc_uiSectionOverhead = 5;
constexpr unsigned int gsc_uiLargestSection = 126;

constexpr unsigned int gsc_uiEndTag = 0; // ends the data blocks
constexpr unsigned int gsc_uiDataBlockRevisionMask = 0x07;
constexpr unsigned int gsc_uiDataBlockHeaderSize = sizeof(CEdidExtBlockDisplayID::SDataBlockHeader);

// A tile declaration, from the first byte of its payload. Counts, width and height are stored minus 1. Bezel and
// identity of the display are not read.
constexpr unsigned int gsc_uiTiledTopologySize = 22;
constexpr SBits gsc_oSingleEnclosure = { 0, 7, 1 };
constexpr SBits gsc_oBezelInfo = { 0, 6, 1 };
constexpr SBits gsc_oMultiTileBehaviour = { 0, 3, 2 };
constexpr SBits gsc_oSingleTileBehaviour = { 0, 0, 3 };
// clang-format off
//                                          low bits         high bits
//                                        byte shift width   byte shift width
constexpr SSplitField gsc_oTileCountX    {{  1, 4, 4 },      { 3, 6, 2 }};
constexpr SSplitField gsc_oTileCountY    {{  1, 0, 4 },      { 3, 4, 2 }};
constexpr SSplitField gsc_oTileLocationX {{  2, 4, 4 },      { 3, 2, 2 }};
constexpr SSplitField gsc_oTileLocationY {{  2, 0, 4 },      { 3, 0, 2 }};
// clang-format on
constexpr unsigned int gsc_uiTileWidthOffset = 4;  // two bytes, pixels
constexpr unsigned int gsc_uiTileHeightOffset = 6; // two bytes, lines

// Values of the two behaviours.
constexpr unsigned int gsc_uiMultiTileAtLocation = 1;
constexpr unsigned int gsc_uiSingleTileAtLocation = 1;
constexpr unsigned int gsc_uiSingleTileScaled = 2;
constexpr unsigned int gsc_uiSingleTileCloned = 3;

// Timing records.
constexpr unsigned int gsc_uiClockUnitInKiloHz = 10;
constexpr unsigned int gsc_uiInterlacedMask = 0x10; // of the flags of both types

// Type I: the two front porch fields.
constexpr unsigned int gsc_uiType1PositiveMask = 0x8000;
constexpr unsigned int gsc_uiType1PorchMask = 0x7FFF;

// Type II, from the first byte of the record.
constexpr unsigned int gsc_uiType2PixelUnit = 8;
constexpr SBits gsc_oType2HorizontalPositive = { 3, 3, 1 };
constexpr SBits gsc_oType2VerticalPositive = { 3, 2, 1 };
constexpr SSplitField gsc_oType2HorizontalActive = { { 4, 0, 8 }, { 5, 0, 1 } };
constexpr SBits gsc_oType2HorizontalBlank = { 5, 1, 7 };
constexpr SBits gsc_oType2HorizontalFrontPorch = { 6, 4, 4 };
constexpr SBits gsc_oType2HorizontalSync = { 6, 0, 4 };
constexpr SSplitField gsc_oType2VerticalActive = { { 7, 0, 8 }, { 8, 0, 4 } };
constexpr SBits gsc_oType2VerticalBlank = { 9, 0, 8 };
constexpr SBits gsc_oType2VerticalFrontPorch = { 10, 4, 4 };
constexpr SBits gsc_oType2VerticalSync = { 10, 0, 4 };

const unsigned char* PayloadOf(const CEdidExtBlockDisplayID::SDataBlockHeader* poBlock)
{
    return reinterpret_cast<const unsigned char*>(poBlock + 1);
}

// What a data block of an understood tag may look like.
struct SDataBlockRule
{
    CEdidExtBlockDisplayID::EDisplayID_DataBlockTags m_eTag;
    unsigned int m_uiHighestRevision;
    unsigned int m_uiRecordSize; // the payload is one or more of these,
    unsigned int m_uiMaxRecords; // but no more than so many
};

constexpr unsigned int gsc_uiAnyNumber = 255;

using CBlock = CEdidExtBlockDisplayID;

// clang-format off
//    tag                                revision  record size                                 most
constexpr SDataBlockRule gsc_aoDataBlockRules[] = {
    { CBlock::eDisplayIdTag_Type1Detailed,   1,    sizeof(CBlock::SDisplayIdType1DetailedRaw), gsc_uiAnyNumber },
    { CBlock::eDisplayIdTag_Type2Detailed,   0,    sizeof(CBlock::SDisplayIdType2DetailedRaw), gsc_uiAnyNumber },
    { CBlock::eDisplayIdTag_TiledTopology,   0,    gsc_uiTiledTopologySize,                    1 },
};
// clang-format on

// Null for a tag that is skipped.
const SDataBlockRule* FindRule(unsigned int uiTag)
{
    for (const SDataBlockRule& oRule : gsc_aoDataBlockRules)
    {
        if (oRule.m_eTag == uiTag)
        {
            return &oRule;
        }
    }
    return nullptr;
}

// uiBytesBehind: bytes that the extension block holds behind the header.
bool IsDataBlockGood(const SDataBlockRule& oRule, const CEdidExtBlockDisplayID::SDataBlockHeader& oBlock,
                     unsigned int uiBytesBehind)
{
    const unsigned int uiLength = oBlock.m_ui8PayloadLength;
    return (oBlock.m_ui8Revision & gsc_uiDataBlockRevisionMask) <= oRule.m_uiHighestRevision && uiLength != 0 &&
           uiLength % oRule.m_uiRecordSize == 0 && uiLength / oRule.m_uiRecordSize <= oRule.m_uiMaxRecords &&
           uiLength <= uiBytesBehind;
}

template <class RECORD>
unsigned int CountRecords(const CEdidExtBlockDisplayID::SDataBlockHeader* poBlock)
{
    return poBlock != nullptr ? poBlock->m_ui8PayloadLength / static_cast<unsigned int>(sizeof(RECORD)) : 0;
}

// Lists the records of the data blocks; false when a block is missing.
template <class RECORD, class BLOCKS>
bool ListRecords(const BLOCKS& apoBlocks, CMArray<const RECORD*, const RECORD* const&>& apoRecords)
{
    unsigned int uiMost = 0;
    for (unsigned int i = 0; i < apoBlocks.GetCount(); ++i)
    {
        uiMost += CountRecords<RECORD>(apoBlocks[i]);
    }
    CListFill<const RECORD*> oFill(apoRecords, uiMost);
    for (unsigned int i = 0; i < apoBlocks.GetCount(); ++i)
    {
        const CEdidExtBlockDisplayID::SDataBlockHeader* poBlock = apoBlocks[i];
        if (poBlock == nullptr)
        {
            MASSERT_FAILED();
            return false;
        }
        // Byte records have no alignment, so they may lie anywhere in the block.
        const RECORD* poFirst = reinterpret_cast<const RECORD*>(PayloadOf(poBlock));
        for (unsigned int j = 0; j < CountRecords<RECORD>(poBlock); ++j)
        {
            oFill.Add(poFirst + j);
        }
    }
    return true;
}

// Of both types; the clock as stored.
void StoreTiming(unsigned int uiClockField, unsigned int uiFlags, const SDetailedAxis& oHorizontal,
                 const SDetailedAxis& oVertical, CVidParamTiming& oTiming)
{
    StoreDetailedTiming({ (uiClockField + 1) * gsc_uiClockUnitInKiloHz, (uiFlags & gsc_uiInterlacedMask) != 0, true,
                          oHorizontal, oVertical },
                        oTiming);
}

// The axis of a Type I record, its active size as stored. The front porch shares its field with the polarity.
SDetailedAxis ReadType1Axis(unsigned int uiActive, const unsigned char (&aui8Blank)[2],
                            const unsigned char (&aui8FrontPorch)[2], const unsigned char (&aui8Sync)[2])
{
    const unsigned int uiFrontPorch = ReadLittle16(aui8FrontPorch);
    return { uiActive + 1, ReadLittle16(aui8Blank) + 1, (uiFrontPorch & gsc_uiType1PorchMask) + 1,
             ReadLittle16(aui8Sync) + 1, (uiFrontPorch & gsc_uiType1PositiveMask) != 0 };
}

constexpr unsigned int Type2Pixels(unsigned int uiField) { return (uiField + 1) * gsc_uiType2PixelUnit; }

void StoreFlag(int* piDestination, bool bValue)
{
    if (piDestination != nullptr)
    {
        *piDestination = bValue ? 1 : 0;
    }
}
} // namespace

int CEdidExtBlockDisplayID::IsSupported(unsigned int uiSize, const unsigned char* pui8Data)
{
    if (uiSize < CEdidUtils::msc_uiBlockSize || pui8Data == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    if (pui8Data[gsc_uiExtensionTagOffset] != msc_uiExtensionTag ||
        CEdidUtils::Is8BitsChecksumValid(uiSize, pui8Data) == 0 ||
        pui8Data[gsc_uiRevisionOffset] > gsc_uiHighestRevision)
    {
        return 0;
    }
    const unsigned int uiSectionSize = pui8Data[gsc_uiSectionLengthOffset] + gsc_uiSectionOverhead;
    if (uiSectionSize > gsc_uiLargestSection)
    {
        return 0;
    }
    return CEdidUtils::Is8BitsChecksumValid(uiSectionSize, pui8Data + gsc_uiRevisionOffset) != 0 ? 1 : 0;
}

CEdidExtBlockDisplayID::CEdidExtBlockDisplayID(unsigned int uiSize, const unsigned char* pui8Data)
{
    if (IsSupported(uiSize, pui8Data) != 0)
    {
        Load(uiSize, pui8Data);
    }
}

CEdidExtBlockDisplayID::CEdidExtBlockDisplayID(SSupported, unsigned int uiSize, const unsigned char* pui8Data)
{
    Load(uiSize, pui8Data);
}

void CEdidExtBlockDisplayID::Load(unsigned int uiSize, const unsigned char* pui8Data)
{
    m_uiExtensionType = msc_uiExtensionTag;
    m_uiRevision = pui8Data[gsc_uiRevisionOffset];
    m_aui8Raw.SetCount(uiSize, -1);
    ZorTools_memcpy(m_aui8Raw.GetData(), pui8Data, uiSize);

    if (ReadDataBlocks())
    {
        ExtractDetailedTimings();
    }
}

CEdidExtBlockDisplayID::~CEdidExtBlockDisplayID() = default;

unsigned int CEdidExtBlockDisplayID::GetExtensionType() const { return m_uiExtensionType; }

unsigned int CEdidExtBlockDisplayID::GetSize() const { return m_aui8Raw.GetCount(); }

const unsigned char* CEdidExtBlockDisplayID::GetData() const { return m_aui8Raw.GetData(); }

unsigned int CEdidExtBlockDisplayID::GetEdidBuffer(unsigned int uiCapacity, unsigned char* pui8Destination) const
{
    const unsigned int uiBytes = uiCapacity < GetSize() ? uiCapacity : GetSize();
    if (uiBytes == 0 || pui8Destination == nullptr)
    {
        return 0;
    }
    ZorTools_memcpy(pui8Destination, GetData(), uiBytes);
    return uiBytes;
}

CMArray<unsigned char, const unsigned char&> CEdidExtBlockDisplayID::GetEdidBuffer() const { return m_aui8Raw; }

unsigned int CEdidExtBlockDisplayID::GetRevision() const { return m_uiRevision; }

int CEdidExtBlockDisplayID::IsChecksumValid() const { return CEdidUtils::Is8BitsChecksumValid(GetSize(), GetData()); }

int CEdidExtBlockDisplayID::IsStripped() const { return 0; }

int CEdidExtBlockDisplayID::IsDisplayPartOfTiledTopology() { return GetTiledTopology() != nullptr ? 1 : 0; }

int CEdidExtBlockDisplayID::GetTiledDisplayCapabilities(int* piSingleEnclosure, int* piBezelInfoPresent,
                                                        int* piMultiTileAtLocation, int* piSingleTileAtLocation,
                                                        int* piSingleTileScaled, int* piSingleTileCloned)
{
    const unsigned char* pui8Tile = GetTiledTopology();
    if (pui8Tile == nullptr)
    {
        return 0;
    }
    const unsigned int uiMultiTile = gsc_oMultiTileBehaviour.Read(pui8Tile);
    const unsigned int uiSingleTile = gsc_oSingleTileBehaviour.Read(pui8Tile);
    StoreFlag(piSingleEnclosure, gsc_oSingleEnclosure.IsSet(pui8Tile));
    StoreFlag(piBezelInfoPresent, gsc_oBezelInfo.IsSet(pui8Tile));
    StoreFlag(piMultiTileAtLocation, uiMultiTile == gsc_uiMultiTileAtLocation);
    StoreFlag(piSingleTileAtLocation, uiSingleTile == gsc_uiSingleTileAtLocation);
    StoreFlag(piSingleTileScaled, uiSingleTile == gsc_uiSingleTileScaled);
    StoreFlag(piSingleTileCloned, uiSingleTile == gsc_uiSingleTileCloned);
    return 1;
}

int CEdidExtBlockDisplayID::GetTopologyDescription(unsigned int& uiTileLocationX, unsigned int& uiTileLocationY,
                                                   unsigned int& uiTileCountX, unsigned int& uiTileCountY,
                                                   unsigned int& uiTileWidth, unsigned int& uiTileHeight)
{
    const unsigned char* pui8Tile = GetTiledTopology();
    if (pui8Tile == nullptr)
    {
        return 0;
    }
    uiTileLocationX = gsc_oTileLocationX.Read(pui8Tile);
    uiTileLocationY = gsc_oTileLocationY.Read(pui8Tile);
    uiTileCountX = gsc_oTileCountX.Read(pui8Tile) + 1;
    uiTileCountY = gsc_oTileCountY.Read(pui8Tile) + 1;
    uiTileWidth = ReadLittle16(pui8Tile + gsc_uiTileWidthOffset) + 1;
    uiTileHeight = ReadLittle16(pui8Tile + gsc_uiTileHeightOffset) + 1;
    return 1;
}

unsigned int CEdidExtBlockDisplayID::GetStandardCount() const { return 0; }

int CEdidExtBlockDisplayID::GetStandard(unsigned int /*uiIndex*/, CVidParamTiming* /*poTiming*/,
                                        int* /*piNative*/) const
{
    return 0;
}

unsigned int CEdidExtBlockDisplayID::GetDetailedCount() const { return m_apoType1.GetCount() + m_apoType2.GetCount(); }

int CEdidExtBlockDisplayID::GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const
{
    if (uiIndex >= GetDetailedCount())
    {
        return 0;
    }
    if (uiIndex < m_apoType1.GetCount())
    {
        return ConvertDetailedType1ToVidParam(m_apoType1[uiIndex], poTiming);
    }
    return ConvertDetailedType2ToVidParam(m_apoType2[uiIndex - m_apoType1.GetCount()], poTiming);
}

unsigned int CEdidExtBlockDisplayID::GetDetailedTimingsOffset(unsigned int uiIndex, unsigned int& uiSize) const
{
    if (uiIndex >= GetDetailedCount())
    {
        return 0;
    }
    const bool bType1 = uiIndex < m_apoType1.GetCount();
    const void* pvRecord =
        bType1 ? static_cast<const void*>(m_apoType1[uiIndex]) : m_apoType2[uiIndex - m_apoType1.GetCount()];
    uiSize = bType1 ? sizeof(SDisplayIdType1DetailedRaw) : sizeof(SDisplayIdType2DetailedRaw);
    return static_cast<unsigned int>(static_cast<const unsigned char*>(pvRecord) - m_aui8Raw.GetData());
}

int CEdidExtBlockDisplayID::RemoveStandard(unsigned int /*uiIndex*/) { return 0; }

int CEdidExtBlockDisplayID::RemoveDetailed(unsigned int /*uiIndex*/) { return 0; }

int CEdidExtBlockDisplayID::GetColorBitDepthSupport(unsigned int& /*uiDepthBits*/) { return 0; }

int CEdidExtBlockDisplayID::SetColorBitDepthSupport(unsigned int /*uiDepthBits*/) { return 0; }

int CEdidExtBlockDisplayID::ConvertDetailedType1ToVidParam(const SDisplayIdType1DetailedRaw* poRaw,
                                                           CVidParamTiming* poTiming)
{
    if (poTiming == nullptr || poRaw == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    const unsigned int uiClock = ReadLittle24(poRaw->m_aui8PixelClock);
    const unsigned int uiHorizontalActive = ReadLittle16(poRaw->m_aui8HorizontalActive);
    const unsigned int uiVerticalActive = ReadLittle16(poRaw->m_aui8VerticalActive);
    if (uiHorizontalActive == 0 || uiVerticalActive == 0 || uiClock == 0)
    {
        return 0;
    }
    StoreTiming(uiClock, poRaw->m_ui8Flags,
                ReadType1Axis(uiHorizontalActive, poRaw->m_aui8HorizontalBlank, poRaw->m_aui8HorizontalFrontPorch,
                              poRaw->m_aui8HorizontalSync),
                ReadType1Axis(uiVerticalActive, poRaw->m_aui8VerticalBlank, poRaw->m_aui8VerticalFrontPorch,
                              poRaw->m_aui8VerticalSync),
                *poTiming);
    return 1;
}

int CEdidExtBlockDisplayID::ConvertDetailedType2ToVidParam(const SDisplayIdType2DetailedRaw* poRaw,
                                                           CVidParamTiming* poTiming)
{
    if (poTiming == nullptr || poRaw == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    const unsigned char* pui8Raw = reinterpret_cast<const unsigned char*>(poRaw); // the record holds bytes only
    const unsigned int uiHorizontalActive = gsc_oType2HorizontalActive.Read(pui8Raw);
    const unsigned int uiVerticalActive = gsc_oType2VerticalActive.Read(pui8Raw);
    if (uiHorizontalActive == 0 || uiVerticalActive == 0)
    {
        return 0;
    }
    const SDetailedAxis oHorizontal = { Type2Pixels(uiHorizontalActive),
                                        Type2Pixels(gsc_oType2HorizontalBlank.Read(pui8Raw)),
                                        Type2Pixels(gsc_oType2HorizontalFrontPorch.Read(pui8Raw)),
                                        Type2Pixels(gsc_oType2HorizontalSync.Read(pui8Raw)),
                                        gsc_oType2HorizontalPositive.IsSet(pui8Raw) };
    const SDetailedAxis oVertical = { uiVerticalActive + 1, gsc_oType2VerticalBlank.Read(pui8Raw) + 1,
                                      gsc_oType2VerticalFrontPorch.Read(pui8Raw) + 1,
                                      gsc_oType2VerticalSync.Read(pui8Raw) + 1,
                                      gsc_oType2VerticalPositive.IsSet(pui8Raw) };
    StoreTiming(ReadLittle24(poRaw->m_aui8PixelClock), poRaw->m_ui8Flags, oHorizontal, oVertical, *poTiming);
    return 1;
}

// Collects the understood data blocks; false when a bad one ended the walk.
bool CEdidExtBlockDisplayID::ReadDataBlocks()
{
    // The map makes an entry for every tag that is asked for. Made here, later questions need no memory.
    for (const SDataBlockRule& oRule : gsc_aoDataBlockRules)
    {
        GetDataBlocks(oRule.m_eTag);
    }

    // The section ends at byte 126 at the latest, so that a header that begins in it lies inside the block.
    const unsigned int uiEnd = m_aui8Raw[gsc_uiSectionLengthOffset] + gsc_uiSectionOverhead;
    unsigned int uiOffset = gsc_uiDataBlocksOffset;
    while (uiOffset < uiEnd && m_aui8Raw[uiOffset] != gsc_uiEndTag)
    {
        const SDataBlockHeader* poBlock = reinterpret_cast<const SDataBlockHeader*>(m_aui8Raw.GetData() + uiOffset);
        uiOffset += gsc_uiDataBlockHeaderSize;
        const SDataBlockRule* poRule = FindRule(poBlock->m_ui8Tag);
        if (poRule != nullptr)
        {
            if (!IsDataBlockGood(*poRule, *poBlock, m_aui8Raw.GetCount() - uiOffset))
            {
                MASSERT_FAILED();
                return false;
            }
            GetDataBlocks(poRule->m_eTag).Add(poBlock);
        }
        uiOffset += poBlock->m_ui8PayloadLength;
    }
    return true;
}

// Lists the records of all timing blocks; the result is their number.
unsigned int CEdidExtBlockDisplayID::ExtractDetailedTimings()
{
    m_apoType1.RemoveAll();
    m_apoType2.RemoveAll();
    if (ListRecords(GetDataBlocks(eDisplayIdTag_Type1Detailed), m_apoType1))
    {
        ListRecords(GetDataBlocks(eDisplayIdTag_Type2Detailed), m_apoType2);
    }
    return CEdidExtBlockDisplayID::GetDetailedCount(); // qualified: also runs while the object is being made
}

CEdidExtBlockDisplayID::DataBlockList& CEdidExtBlockDisplayID::GetDataBlocks(EDisplayID_DataBlockTags eTag)
{
    return m_oDataBlocks[eTag];
}

// The payload of the first tile declaration; null without one.
const unsigned char* CEdidExtBlockDisplayID::GetTiledTopology()
{
    if (m_aui8Raw.GetCount() == 0)
    {
        return nullptr; // nothing was read, and the map would take memory for the question
    }
    const DataBlockList& apoBlocks = GetDataBlocks(eDisplayIdTag_TiledTopology);
    return apoBlocks.GetCount() != 0 ? PayloadOf(apoBlocks[0U]) : nullptr;
}
