// The extension blocks of an image: their tags, the walk over them, and how many the image announces.
// Private to the library and the command.

#pragma once

#include <algorithm>

#include "CtaBlocks.h"
#include "DisplayIdSection.h"

namespace ZorStandards
{
inline constexpr unsigned int gsc_uiCtaTag = Cta::gsc_uiTag;
inline constexpr unsigned int gsc_uiDisplayIdTag = DisplayId::gsc_uiTag;
inline constexpr unsigned int gsc_uiDisplayInformationTag = 0x40;   // VESA DI-EXT
inline constexpr unsigned int gsc_uiLocalizedStringTag = 0x50;      // VESA LS-EXT
inline constexpr unsigned int gsc_uiVideoLinkTag = 0x60;            // digital packet video link, VESA DPVL-EXT
inline constexpr unsigned int gsc_uiBlockMapTag = 0xF0;             // a list of the blocks, with nothing of its own
inline constexpr unsigned int gsc_auiBlockMapPlaces[] = { 1, 128 }; // the blocks that are one
inline constexpr unsigned int gsc_uiManufacturerTag = 0xFF;

// Video timing block extension, VESA VTB-EXT, release A: three consecutive lists. Their lengths are entries.
namespace Vtb
{
inline constexpr unsigned int gsc_uiTag = 0x10;
inline constexpr SPlace gsc_oDetailedTimings = Byte(2);
inline constexpr SPlace gsc_oCvtCodes = Byte(3);
inline constexpr SPlace gsc_oStandardTimings = Byte(4);
inline constexpr unsigned int gsc_uiListsOffset = 5;
} // namespace Vtb

// Offset of the byte that holds the number of extension blocks of an image of uiSize bytes: 126 of the base block or,
// where that one is not 0, a byte of an override data block of the HDMI Forum. That one counts when it is the first
// data block of block 1, a whole CTA-861 block of revision 3 or later.
unsigned int FindExtensionCount(const unsigned char* pui8Image, unsigned int uiSize);

// That number; 0 of an image without a whole base block.
inline unsigned int CountExtensions(const unsigned char* pui8Image, unsigned int uiSize)
{
    return uiSize < gsc_uiBlockSize ? 0 : pui8Image[FindExtensionCount(pui8Image, uiSize)];
}

// Whether these bytes of a block are those of memory that was never written.
inline bool IsErased(const unsigned char* pui8Block, unsigned int uiLength)
{
    constexpr unsigned char ui8Erased = 0xFF;
    return std::all_of(pui8Block, pui8Block + uiLength, [](unsigned char ui8Byte) { return ui8Byte == ui8Erased; });
}

// The runs of bytes of a block whose sums must be 0, the last byte of each a checksum, in the order in which these are
// to be made right: fnVisit(offset in the block, size). Some kinds of blocks have no checksum of their own.
template <class VISIT>
void ForEachSum(const unsigned char* pui8Block, VISIT fnVisit)
{
    const unsigned int uiSection = DisplayId::GetSectionSize(pui8Block);
    if (pui8Block[0] == gsc_uiDisplayIdTag && uiSection < gsc_uiChecksumOffset)
    {
        fnVisit(DisplayId::gsc_uiSectionOffset, uiSection);
    }
    fnVisit(0U, gsc_uiBlockSize);
}

// Goes over the blocks of an image that follow the base block. The last one may be cut short.
class CBlockWalk
{
public:
    // At least a base block.
    CBlockWalk(const unsigned char* pui8Image, unsigned int uiSize)
        : m_pui8Image(pui8Image), m_uiSize(uiSize), m_uiAnnounced(pui8Image[BaseBlock::gsc_uiExtensionCountOffset])
    {
    }

    bool Next()
    {
        ++m_uiNumber;
        return GetOffset() < m_uiSize;
    }

    unsigned int GetNumber() const { return m_uiNumber; }
    unsigned int GetOffset() const { return m_uiNumber * gsc_uiBlockSize; }
    unsigned int GetLength() const
    {
        const unsigned int uiLeft = m_uiSize - GetOffset();
        return uiLeft < gsc_uiBlockSize ? uiLeft : gsc_uiBlockSize;
    }
    const unsigned char* GetData() const { return m_pui8Image + GetOffset(); }
    // By byte 126, the only number that the classes go by.
    bool IsAnnounced() const { return m_uiNumber <= m_uiAnnounced; }
    bool IsWhole() const { return GetLength() == gsc_uiBlockSize; }

private:
    const unsigned char* m_pui8Image;
    unsigned int m_uiSize;
    unsigned int m_uiAnnounced;
    unsigned int m_uiNumber = 0;
};

// Calls fnVisit(offset in the EDID, byte) for the bytes of video data blocks, in the order by which 4:2:0 capability
// maps and 3D fields of HDMI count their places: over the CTA-861 blocks up to uiLast, reserved codes too. uiLast:
// CountExtensions, as blocks that the EDID does not count have no places. In a DisplayID section the places are those
// of the data block that holds the map.
template <class VISIT>
void ForEachVideoPlace(const unsigned char* pui8Edid, unsigned int uiSize, unsigned int uiLast, VISIT fnVisit)
{
    for (CBlockWalk oWalk(pui8Edid, uiSize); oWalk.Next() && oWalk.GetNumber() <= uiLast;)
    {
        const Cta::SPayload oCollection = Cta::FindCollection(oWalk.GetData(), oWalk.GetLength());
        const unsigned int uiFirst = oWalk.GetOffset() + oCollection.m_uiOffset;
        Cta::ForEachVideoByte(
            pui8Edid + uiFirst, oCollection.m_uiLength,
            [&](unsigned int uiOffset, unsigned char ui8Byte) { fnVisit(uiFirst + uiOffset, ui8Byte); });
    }
}
} // namespace ZorStandards
