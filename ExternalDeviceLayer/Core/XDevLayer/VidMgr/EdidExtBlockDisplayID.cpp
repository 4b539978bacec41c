// The DisplayID section of an extension block: walking its data blocks, its detailed timings, its tile declaration.
// Whether an extension block comes here at all is decided in EdidExtBlockFactory.cpp.

#include "EdidExtBlockDisplayID.h"

#include "DescribedOrigins.h"
#include "EdidDetailedTiming.h"
#include "EdidUtils.h"
#include "ListFill.h"
#include "Standards/DisplayIdSection.h"
#include "VidParamTiming.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace ZorCore;
using namespace ZorStandards;

namespace
{
constexpr unsigned int gsc_uiEndTag = 0; // ends the data blocks

static_assert(CEdidExtBlockDisplayID::msc_uiExtensionTag == DisplayId::gsc_uiTag);
static_assert(sizeof(CEdidExtBlockDisplayID::SDataBlockHeader) == DisplayId::gsc_uiHeaderSize);
static_assert(sizeof(CEdidExtBlockDisplayID::SDisplayIdType1DetailedRaw) == DisplayId::gsc_oType1.m_uiSize);
static_assert(sizeof(CEdidExtBlockDisplayID::SDisplayIdType2DetailedRaw) == DisplayId::gsc_oType2.m_uiSize);

// Values of the two behaviours.
constexpr unsigned int gsc_uiMultiTileAtLocation = 1;
constexpr unsigned int gsc_uiSingleTileAtLocation = 1;
constexpr unsigned int gsc_uiSingleTileScaled = 2;
constexpr unsigned int gsc_uiSingleTileCloned = 3;

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
    { CBlock::eDisplayIdTag_TiledTopology,   0,    DisplayId::gsc_uiTiledTopologySize,                    1 },
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

bool IsDataBlockGood(const SDataBlockRule& oRule, const DisplayId::CDataBlockWalk& oWalk)
{
    const unsigned int uiLength = oWalk.GetHeader()[DisplayId::gsc_uiHeaderLengthOffset];
    return DisplayId::gsc_oHeaderRevision.Read(oWalk.GetHeader()) <= oRule.m_uiHighestRevision && uiLength != 0 &&
           uiLength % oRule.m_uiRecordSize == 0 && uiLength / oRule.m_uiRecordSize <= oRule.m_uiMaxRecords &&
           !oWalk.IsCut();
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

// False with the timing untouched when the active width or height field is 0.
bool StoreTiming(const DisplayId::STimingPlaces& oPlaces, const unsigned char* pui8Record, CVidParamTiming& oTiming)
{
    if (!oPlaces.m_oHorizontalActive.IsSet(pui8Record) || !oPlaces.m_oVerticalActive.IsSet(pui8Record))
    {
        return false;
    }
    const auto fnRead = [pui8Record](const SPlace& oPlace, unsigned int uiUnit) {
        return (oPlace.Read(pui8Record) + 1) * uiUnit;
    };
    const unsigned int uiPixels = oPlaces.m_uiPixels;
    StoreDetailedTiming(
        { fnRead(oPlaces.m_oClock, oPlaces.m_uiClockInKiloHz),
          oPlaces.m_oInterlaced.IsSet(pui8Record),
          true,
          { fnRead(oPlaces.m_oHorizontalActive, uiPixels), fnRead(oPlaces.m_oHorizontalBlank, uiPixels),
            fnRead(oPlaces.m_oHorizontalFrontPorch, uiPixels), fnRead(oPlaces.m_oHorizontalSync, uiPixels),
            oPlaces.m_oHorizontalPositive.IsSet(pui8Record) },
          { fnRead(oPlaces.m_oVerticalActive, 1), fnRead(oPlaces.m_oVerticalBlank, 1),
            fnRead(oPlaces.m_oVerticalFrontPorch, 1), fnRead(oPlaces.m_oVerticalSync, 1),
            oPlaces.m_oVerticalPositive.IsSet(pui8Record) } },
        oTiming);
    return true;
}

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
    if (uiSize < gsc_uiBlockSize || pui8Data == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    return pui8Data[0] == msc_uiExtensionTag && GetRefusal(uiSize, pui8Data) == eRefusal_None ? 1 : 0;
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
    m_uiRevision = pui8Data[DisplayId::gsc_uiVersionOffset];
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
    const unsigned int uiMultiTile = DisplayId::gsc_oMultiTileBehaviour.Read(pui8Tile);
    const unsigned int uiSingleTile = DisplayId::gsc_oSingleTileBehaviour.Read(pui8Tile);
    StoreFlag(piSingleEnclosure, DisplayId::gsc_oSingleEnclosure.IsSet(pui8Tile));
    StoreFlag(piBezelInfoPresent, DisplayId::gsc_oBezelInfo.IsSet(pui8Tile));
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
    uiTileLocationX = DisplayId::gsc_oTileLocationX.Read(pui8Tile);
    uiTileLocationY = DisplayId::gsc_oTileLocationY.Read(pui8Tile);
    uiTileCountX = DisplayId::gsc_oTileCountX.Read(pui8Tile) + 1;
    uiTileCountY = DisplayId::gsc_oTileCountY.Read(pui8Tile) + 1;
    uiTileWidth = DisplayId::gsc_oTileWidth.Read(pui8Tile) + 1;
    uiTileHeight = DisplayId::gsc_oTileHeight.Read(pui8Tile) + 1;
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

void CEdidExtBlockDisplayID::ListDetailedOrigins(CTimingOrigins& aoOrigins) const
{
    ListDescribed(*this, GetDetailedCount(), aoOrigins, [this](unsigned int uiIndex, STimingOrigin& oOrigin) {
        oOrigin.m_uiOffset = GetDetailedTimingsOffset(uiIndex, oOrigin.m_uiLength);
    });
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
    const unsigned char* pui8Raw = reinterpret_cast<const unsigned char*>(poRaw); // the record holds bytes only
    const bool bStored =
        DisplayId::gsc_oType1.m_oClock.IsSet(pui8Raw) && StoreTiming(DisplayId::gsc_oType1, pui8Raw, *poTiming);
    return bStored ? 1 : 0;
}

int CEdidExtBlockDisplayID::ConvertDetailedType2ToVidParam(const SDisplayIdType2DetailedRaw* poRaw,
                                                           CVidParamTiming* poTiming)
{
    if (poTiming == nullptr || poRaw == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    const unsigned char* pui8Raw = reinterpret_cast<const unsigned char*>(poRaw);
    return StoreTiming(DisplayId::gsc_oType2, pui8Raw, *poTiming) ? 1 : 0;
}

// Collects the understood data blocks; false when a bad one ended the walk.
bool CEdidExtBlockDisplayID::ReadDataBlocks()
{
    // The map makes an entry for every tag that is asked for. Made here, later questions need no memory.
    for (const SDataBlockRule& oRule : gsc_aoDataBlockRules)
    {
        GetDataBlocks(oRule.m_eTag);
    }

    // The section ends at byte 126 at the latest, so that a header that begins in it lies inside the block. A data
    // block may run past the section.
    DisplayId::CDataBlockWalk oWalk(m_aui8Raw.GetData(), DisplayId::gsc_uiDataBlocksOffset,
                                    DisplayId::GetSectionSize(m_aui8Raw.GetData()), m_aui8Raw.GetCount());
    while (oWalk.Next() && oWalk.GetTag() != gsc_uiEndTag)
    {
        const SDataBlockRule* poRule = FindRule(oWalk.GetTag());
        if (poRule == nullptr)
        {
            continue;
        }
        if (!IsDataBlockGood(*poRule, oWalk))
        {
            MASSERT_FAILED();
            return false;
        }
        GetDataBlocks(poRule->m_eTag).Add(reinterpret_cast<const SDataBlockHeader*>(oWalk.GetHeader()));
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
