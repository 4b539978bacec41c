/// Adds, removes and moves the parts of an EDID image: extension blocks, data blocks, descriptors, timings, codes. The
/// values within a part are those of CZorEdidWriter.

#pragma once

#include "ZorEdidMap.h"

#pragma GCC visibility push(default)

namespace ZorWrite
{
class CPartsEdit;
} // namespace ZorWrite

/// One image under edit, with the map of its present bytes. A part is
///   an extension block
///   of the base block one of eight standard timings, one of four descriptors
///   of a CTA-861 block a data block, a detailed timing, an item of a list: of video codes, of audio descriptors, of
///     timings of DisplayID's Types VII, VIII and X
///   of a DisplayID block a data block, a timing of its Types I to III, V to VII, IX and X, a code of Types IV and
///     VIII; of Type VI where the timings of the data block have the same length
///
/// What depends on a change follows: lengths, counts of blocks and of native timings, tags in a block map, the place of
/// the detailed timings, checksums. The result is read by CZorEdidMap before it counts: the part is there as asked, and
/// all other parts read as before apart from their place. Otherwise, and with every refusal, the bytes stay as they
/// were. A block whose structure is damaged is refused with the reason.
class CZorEdidParts
{
public:
    using CFields = CMArray<unsigned int, const unsigned int&>;

    static constexpr unsigned int msc_uiAny = 0xFFFFFFFF;

    /// Where a new part goes.
    struct SWhere
    {
        unsigned int m_uiBlock = msc_uiAny; ///< number of the block, 0 for the base block; else the first with room
        unsigned int m_uiPlace = msc_uiAny; ///< among its like in the block, from 0; else after the last one
        bool m_bNewBlock = true;            ///< a further extension block where no block has room
        unsigned char m_ui8Flags = 0;       ///< byte 1 of a new DisplayID data block: flags, revision in bits 2 to 0
    };

    struct SAnswer
    {
        unsigned int m_uiField = CZorEdidMap::msc_uiNone; ///< the part, in the present map; none for one that is gone
        unsigned int m_uiNewBlock = 0; ///< number of an extension block that was added for the part; 0 for none
        CFields m_auiFollowed;         ///< lengths, counts and checksums that changed with it, in the present map
        CMString m_oReason;            ///< of a refusal
        unsigned int m_uiLacking = 0;  ///< of a refusal for want of room: the bytes that lack
        CFields m_auiRemovable;        ///< then: parts that each leave room enough when they go, in the present map;
                                       ///< never the preferred timing
    };

    CZorEdidParts() = default;
    CZorEdidParts(const CZorEdidParts&) = delete;
    CZorEdidParts& operator=(const CZorEdidParts&) = delete;

    /// Takes the bytes of an image, as CZorEdidMap::Read. Bytes after the blocks that the image counts stay after
    /// them; with such bytes, or with fewer blocks than counted, no block is added, removed or moved.
    int Read(unsigned int uiSize, const unsigned char* pui8Data);

    /// The map of the present bytes, which are its GetData. References into it are good until the next change.
    const CZorEdidMap& GetMap() const { return m_aoMaps[m_uiPresent]; }

    /// All that follow return 1, and 0 for a refusal, which changes nothing. Pointers must not be null.

    /// An extension block, at place m_uiPlace of all blocks: 1 is the first. Without bytes it is empty: a CTA-861 block
    /// of revision 3, a DisplayID block of the version that the first one has, else of 1.2, a block map, or a tag with
    /// zeros. uiLength: 0, or 128 bytes whose tag is the first one. At most 127 blocks.
    int AddBlock(unsigned int uiTag, unsigned int uiLength, const unsigned char* pui8Block, const SWhere& oWhere,
                 SAnswer& oAnswer);

    /// A standard timing of the base block, as its 2 bytes.
    int AddStandard(const unsigned char* pui8Bytes, const SWhere& oWhere, SAnswer& oAnswer);

    /// A descriptor of 18 bytes. A detailed timing goes after those of the base block, else of a CTA-861 block. In the
    /// base block a dummy descriptor makes room for it, and display descriptors stay after the timings.
    int AddDescriptor(const unsigned char* pui8Bytes, const SWhere& oWhere, SAnswer& oAnswer);

    /// A data block of the kind that the map calls eId, such as eZorEdidField_CtaHdrStatic or
    /// eZorEdidField_DisplayidTiled. The payload is what follows the header, the extended tag and the OUI of the kind.
    /// The data block of the HDMI Forum goes after that of HDMI, that of the block count to the first place.
    int AddDataBlock(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Payload, const SWhere& oWhere,
                     SAnswer& oAnswer);

    /// An item of the list in data blocks of this kind: a code of eZorEdidField_CtaVideo, the 3 bytes of an audio
    /// descriptor, the 20 bytes of a timing of eZorEdidField_DisplayidType7. It goes into the last such data block that
    /// has room, else into a new one. m_uiPlace: among the items of the first such data block of the block.
    int AddItem(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Item, const SWhere& oWhere,
                SAnswer& oAnswer);

    /// The part that a field is, or lies in. A data block goes with its last item. uiField must be below GetFieldCount.
    int Remove(unsigned int uiField, SAnswer& oAnswer);

    /// The data blocks and items of data blocks that the fields are, or lie in, in one step, which takes about as long
    /// as one removal.
    int RemoveItems(unsigned int uiCount, const unsigned int* puiFields, SAnswer& oAnswer);

    /// The part that a field is, or lies in, becomes number uiPlace among its like: among the blocks (from 1), the
    /// standard timings, the descriptors, the data blocks or the detailed timings of its block, the items of its data
    /// block.
    int Move(unsigned int uiField, unsigned int uiPlace, SAnswer& oAnswer);

private:
    friend class ZorWrite::CPartsEdit;

    CZorEdidMap m_aoMaps[2]; // of the present bytes, and of what they may become
    unsigned int m_uiPresent = 0;
};

#pragma GCC visibility pop
