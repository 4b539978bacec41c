// The DisplayID section of an extension block: walking its data blocks, its detailed timings, its tile declaration.
// Whether an extension block comes here at all is decided in EdidExtBlock.cpp.

#include "EdidExtBlockDisplayID.h"

#include "EdidUtils.h"
#include "VidParamTiming.h"
#include "ZorAssert.h"
#include "ZorTools.h"

// Payload of a tile declaration.
struct CEdidExtBlockDisplayID::STiledTopologyRaw
{
    unsigned char m_ui8Capabilities;
    unsigned char m_ui8CountLow;     // across in bits 7 to 4, down in bits 3 to 0: bits 3 to 0 of the count minus 1
    unsigned char m_ui8LocationLow;  // the same of the location, which counts from 0
    unsigned char m_ui8High;         // bits 5 to 4 of: count across, count down, location across, location down
    unsigned char m_aui8Width[2];    // pixels minus 1
    unsigned char m_aui8Height[2];   // lines minus 1
    unsigned char m_aui8NotRead[14]; // bezel, serial number of the display
};

namespace
{
constexpr unsigned int gsc_uiSmallestBlockSize = 128;
constexpr unsigned int gsc_uiExtensionTag = 0x70;
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

constexpr unsigned int gsc_uiTiledTopologySize = 22;

constexpr unsigned int gsc_uiSingleEnclosureMask = 0x80;
constexpr unsigned int gsc_uiBezelInfoMask = 0x40;
constexpr unsigned int gsc_uiMultiTileAtLocation = 1;  // bits 4 to 3
constexpr unsigned int gsc_uiSingleTileAtLocation = 1; // bits 2 to 0, these three
constexpr unsigned int gsc_uiSingleTileScaled = 2;
constexpr unsigned int gsc_uiSingleTileCloned = 3;

constexpr unsigned int MultiTileBehaviour(unsigned int uiCapabilities) { return uiCapabilities >> 3 & 0x03; }
constexpr unsigned int SingleTileBehaviour(unsigned int uiCapabilities) { return uiCapabilities & 0x07; }

// Flags of the timing records.
constexpr unsigned int gsc_uiInterlacedMask = 0x10;
constexpr unsigned int gsc_uiType2HorizontalPositiveMask = 0x08;
constexpr unsigned int gsc_uiType2VerticalPositiveMask = 0x04;
constexpr unsigned int gsc_uiType1PositiveMask = 0x8000; // in the two front porch fields
constexpr unsigned int gsc_uiType1PorchMask = 0x7FFF;

constexpr unsigned int gsc_uiClockUnitInKiloHz = 10;
constexpr unsigned int gsc_uiType2PixelUnit = 8;

constexpr unsigned int HighNibble(unsigned int uiByte) { return uiByte >> 4; }
constexpr unsigned int LowNibble(unsigned int uiByte) { return uiByte & 0x0F; }

unsigned int ReadTwoBytes(const unsigned char (&aui8Field)[2])
{
    return aui8Field[0] | static_cast<unsigned int>(aui8Field[1]) << 8;
}

unsigned int ReadThreeBytes(const unsigned char (&aui8Field)[3])
{
    return aui8Field[0] | static_cast<unsigned int>(aui8Field[1]) << 8 | static_cast<unsigned int>(aui8Field[2]) << 16;
}

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

// clang-format off
//   tag                                                  revision  record size                                                     most
constexpr SDataBlockRule gsc_aoDataBlockRules[] = {
    { CEdidExtBlockDisplayID::eDisplayIdTag_Type1Detailed,   1, sizeof(CEdidExtBlockDisplayID::SDisplayIdType1DetailedRaw), gsc_uiAnyNumber },
    { CEdidExtBlockDisplayID::eDisplayIdTag_Type2Detailed,   0, sizeof(CEdidExtBlockDisplayID::SDisplayIdType2DetailedRaw), gsc_uiAnyNumber },
    { CEdidExtBlockDisplayID::eDisplayIdTag_TiledTopology,   0, gsc_uiTiledTopologySize, 1 },
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

// Appends the records of the data blocks to a list; false when a block is missing.
template <class RECORD, class BLOCKS>
bool AppendRecords(const BLOCKS& apoBlocks, CMArray<const RECORD*, const RECORD* const&>& apoRecords)
{
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
        const unsigned int uiCount = poBlock->m_ui8PayloadLength / static_cast<unsigned int>(sizeof(RECORD));
        for (unsigned int j = 0; j < uiCount; ++j)
        {
            apoRecords.Add(poFirst + j);
        }
    }
    return true;
}

// A decoded record: values, not values minus 1, in pixels and lines.
struct SAxis
{
    unsigned int m_uiActive;
    unsigned int m_uiBlank;
    unsigned int m_uiFrontPorch;
    unsigned int m_uiSync;
    int m_bPositive;
};

void StoreTiming(unsigned int uiClockField, int bInterlaced, const SAxis& oHorizontal, const SAxis& oVertical,
                 CVidParamTiming* poTiming)
{
    poTiming->SetPixelClockInKiloHz((uiClockField + 1) * gsc_uiClockUnitInKiloHz);
    poTiming->SetInterlaced(bInterlaced);
    // A sync or porch beyond the blanking leaves a back porch that has wrapped.
    poTiming->SetHorizontalActive(oHorizontal.m_uiActive);
    poTiming->SetHorizontalFrontPorch(oHorizontal.m_uiFrontPorch);
    poTiming->SetHorizontalSync(oHorizontal.m_uiSync);
    poTiming->SetHorizontalBackPorch(oHorizontal.m_uiBlank - poTiming->GetHorizontalSync() -
                                     poTiming->GetHorizontalFrontPorch());
    poTiming->SetHorizontalPolarityPositive(oHorizontal.m_bPositive);
    poTiming->SetVerticalActive(oVertical.m_uiActive);
    poTiming->SetVerticalFrontPorch(oVertical.m_uiFrontPorch);
    poTiming->SetVerticalSync(oVertical.m_uiSync);
    poTiming->SetVerticalBackPorch(oVertical.m_uiBlank - poTiming->GetVerticalSync() -
                                   poTiming->GetVerticalFrontPorch());
    poTiming->SetVerticalPolarityPositive(oVertical.m_bPositive);
    poTiming->SetHorizontalRateInHz(poTiming->ComputeHorizontalRateInHz());
    poTiming->SetVerticalRateInHz(poTiming->ComputeVerticalRateInHz());
    poTiming->SetVideoFamilyType(CVidParamTiming::eVidParamType_Detailed);
}

void StoreFlag(int* piDestination, bool bValue)
{
    if (piDestination != nullptr)
    {
        *piDestination = bValue ? 1 : 0;
    }
}

// Bits 5 to 0 of a tile number: the low nibble, and two bits of the shared byte.
constexpr unsigned int JoinTileBits(unsigned int uiLow, unsigned int uiHigh, unsigned int uiShift)
{
    return uiLow | (uiHigh >> uiShift & 0x03) << 4;
}
}

int CEdidExtBlockDisplayID::IsSupported(unsigned int uiSize, const unsigned char* pui8Data)
{
    if (uiSize < gsc_uiSmallestBlockSize || pui8Data == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    if (pui8Data[gsc_uiExtensionTagOffset] != gsc_uiExtensionTag ||
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
    if (IsSupported(uiSize, pui8Data) == 0)
    {
        return;
    }
    m_uiExtensionType = gsc_uiExtensionTag;
    m_uiRevision = pui8Data[gsc_uiRevisionOffset];
    m_aui8Raw.SetCount(uiSize, -1);
    ZorTools_memcpy(m_aui8Raw.GetData(), pui8Data, uiSize);

    if (ReadDataBlocks() != 0)
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
    const STiledTopologyRaw* poTile = GetTiledTopology();
    if (poTile == nullptr)
    {
        return 0;
    }
    const unsigned int uiCapabilities = poTile->m_ui8Capabilities;
    StoreFlag(piSingleEnclosure, (uiCapabilities & gsc_uiSingleEnclosureMask) != 0);
    StoreFlag(piBezelInfoPresent, (uiCapabilities & gsc_uiBezelInfoMask) != 0);
    StoreFlag(piMultiTileAtLocation, MultiTileBehaviour(uiCapabilities) == gsc_uiMultiTileAtLocation);
    StoreFlag(piSingleTileAtLocation, SingleTileBehaviour(uiCapabilities) == gsc_uiSingleTileAtLocation);
    StoreFlag(piSingleTileScaled, SingleTileBehaviour(uiCapabilities) == gsc_uiSingleTileScaled);
    StoreFlag(piSingleTileCloned, SingleTileBehaviour(uiCapabilities) == gsc_uiSingleTileCloned);
    return 1;
}

int CEdidExtBlockDisplayID::GetTopologyDescription(unsigned int& uiTileLocationX, unsigned int& uiTileLocationY,
                                                   unsigned int& uiTileCountX, unsigned int& uiTileCountY,
                                                   unsigned int& uiTileWidth, unsigned int& uiTileHeight)
{
    const STiledTopologyRaw* poTile = GetTiledTopology();
    if (poTile == nullptr)
    {
        return 0;
    }
    uiTileLocationX = JoinTileBits(HighNibble(poTile->m_ui8LocationLow), poTile->m_ui8High, 2);
    uiTileLocationY = JoinTileBits(LowNibble(poTile->m_ui8LocationLow), poTile->m_ui8High, 0);
    uiTileCountX = JoinTileBits(HighNibble(poTile->m_ui8CountLow), poTile->m_ui8High, 6) + 1;
    uiTileCountY = JoinTileBits(LowNibble(poTile->m_ui8CountLow), poTile->m_ui8High, 4) + 1;
    uiTileWidth = ReadTwoBytes(poTile->m_aui8Width) + 1;
    uiTileHeight = ReadTwoBytes(poTile->m_aui8Height) + 1;
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
    const unsigned int uiClock = ReadThreeBytes(poRaw->m_aui8PixelClock);
    const unsigned int uiHorizontalActive = ReadTwoBytes(poRaw->m_aui8HorizontalActive);
    const unsigned int uiVerticalActive = ReadTwoBytes(poRaw->m_aui8VerticalActive);
    if (uiHorizontalActive == 0 || uiVerticalActive == 0 || uiClock == 0)
    {
        return 0;
    }

    const auto ReadAxis = [](unsigned int uiActive, const unsigned char(&aui8Blank)[2],
                             const unsigned char(&aui8FrontPorch)[2], const unsigned char(&aui8Sync)[2]) {
        const unsigned int uiFrontPorch = ReadTwoBytes(aui8FrontPorch);
        return SAxis{ uiActive + 1, ReadTwoBytes(aui8Blank) + 1, (uiFrontPorch & gsc_uiType1PorchMask) + 1,
                      ReadTwoBytes(aui8Sync) + 1, (uiFrontPorch & gsc_uiType1PositiveMask) != 0 };
    };
    StoreTiming(uiClock, (poRaw->m_ui8Flags & gsc_uiInterlacedMask) != 0,
                ReadAxis(uiHorizontalActive, poRaw->m_aui8HorizontalBlank, poRaw->m_aui8HorizontalFrontPorch,
                         poRaw->m_aui8HorizontalSync),
                ReadAxis(uiVerticalActive, poRaw->m_aui8VerticalBlank, poRaw->m_aui8VerticalFrontPorch,
                         poRaw->m_aui8VerticalSync),
                poTiming);
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
    const unsigned int uiHorizontalActive = poRaw->m_ui8HorizontalActiveLow | (poRaw->m_ui8HorizontalBlank & 0x01U)
                                                                                  << 8;
    const unsigned int uiVerticalActive = poRaw->m_ui8VerticalActiveLow | LowNibble(poRaw->m_ui8VerticalActiveHigh)
                                                                              << 8;
    if (uiHorizontalActive == 0 || uiVerticalActive == 0)
    {
        return 0;
    }

    const auto Pixels = [](unsigned int uiField) { return (uiField + 1) * gsc_uiType2PixelUnit; };
    const SAxis oHorizontal = { Pixels(uiHorizontalActive), Pixels(poRaw->m_ui8HorizontalBlank >> 1),
                                Pixels(HighNibble(poRaw->m_ui8HorizontalFrontPorchSync)),
                                Pixels(LowNibble(poRaw->m_ui8HorizontalFrontPorchSync)),
                                (poRaw->m_ui8Flags & gsc_uiType2HorizontalPositiveMask) != 0 };
    const SAxis oVertical = { uiVerticalActive + 1, poRaw->m_ui8VerticalBlank + 1U,
                              HighNibble(poRaw->m_ui8VerticalFrontPorchSync) + 1,
                              LowNibble(poRaw->m_ui8VerticalFrontPorchSync) + 1,
                              (poRaw->m_ui8Flags & gsc_uiType2VerticalPositiveMask) != 0 };
    StoreTiming(ReadThreeBytes(poRaw->m_aui8PixelClock), (poRaw->m_ui8Flags & gsc_uiInterlacedMask) != 0, oHorizontal,
                oVertical, poTiming);
    return 1;
}

// Collects the understood data blocks; 0 when a bad one ended the walk.
int CEdidExtBlockDisplayID::ReadDataBlocks()
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
        if (const SDataBlockRule* poRule = FindRule(poBlock->m_ui8Tag))
        {
            if (!IsDataBlockGood(*poRule, *poBlock, m_aui8Raw.GetCount() - uiOffset))
            {
                MASSERT_FAILED();
                return 0;
            }
            GetDataBlocks(poRule->m_eTag).Add(poBlock);
        }
        uiOffset += poBlock->m_ui8PayloadLength;
    }
    return 1;
}

// Lists the records of all timing blocks; the result is their number.
unsigned int CEdidExtBlockDisplayID::ExtractDetailedTimings()
{
    m_apoType1.RemoveAll();
    m_apoType2.RemoveAll();
    if (AppendRecords(GetDataBlocks(eDisplayIdTag_Type1Detailed), m_apoType1))
    {
        AppendRecords(GetDataBlocks(eDisplayIdTag_Type2Detailed), m_apoType2);
    }
    return CEdidExtBlockDisplayID::GetDetailedCount(); // qualified: also runs while the object is being made
}

CEdidExtBlockDisplayID::DataBlockList& CEdidExtBlockDisplayID::GetDataBlocks(EDisplayID_DataBlockTags eTag)
{
    return m_oDataBlocks[eTag];
}

// The first tile declaration; null without one.
const CEdidExtBlockDisplayID::STiledTopologyRaw* CEdidExtBlockDisplayID::GetTiledTopology()
{
    static_assert(sizeof(STiledTopologyRaw) == gsc_uiTiledTopologySize);
    if (m_aui8Raw.GetCount() == 0)
    {
        return nullptr; // nothing was read, and the map would take memory for the question
    }
    const DataBlockList& apoBlocks = GetDataBlocks(eDisplayIdTag_TiledTopology);
    return apoBlocks.GetCount() != 0 ? reinterpret_cast<const STiledTopologyRaw*>(PayloadOf(apoBlocks[0U])) : nullptr;
}
