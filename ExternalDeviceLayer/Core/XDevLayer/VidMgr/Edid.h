/// CEdid: a whole EDID, the base block and its extension blocks, loaded from one buffer and written back to one. Its
/// own work is one numbering of the timings over all blocks, and the decision which blocks become objects.
///
/// Numbering of standard and of detailed timings: those of the base block come first, then those of each extension
/// block in block order. Every call counts anew, so that a removal shifts all later indexes at once.
///
/// Results are 1 or non-zero for success and 0 for a refusal. An object belongs to one thread at a time.
///
/// When memory runs out: reading changes nothing (strong guarantee). SetEdidBuffer leaves the base block and the
/// extension blocks that came before, with all of their bytes; when it was the base block's turn, the list of usable
/// standard slots may be short until the next load (basic guarantee). An edit has changed all of its bytes, checksum
/// included, or none; if it has, the lists of that one block may be out of date, and table timings may be missing,
/// until they are loaded again (basic guarantee). The edits of the base block other than RemoveStandard take no memory.

#pragma once

#include "EdidBase.h"
#include "EdidExtBlock.h"
#include "ZorMFCTypes.h"

#pragma GCC visibility push(default)

class CVidParamTiming;

/// Operations with the name of one of the base hide it; GetBase... reaches the base block alone.
class CEdid : public CEdidBase
{
public:
    CEdid();
    ~CEdid() override;
    CEdid(const CEdid&) = delete;
    CEdid& operator=(const CEdid&) = delete;
    CEdid(CEdid&&) = delete;
    CEdid& operator=(CEdid&&) = delete;

    // ---- Loading and writing back ----

    /// Empties the object and deletes its blocks: pointers from GetExtension end here. Returns 1.
    int ClearEdidBuffer();

    /// Replaces everything by uiSize bytes, a multiple of 128: the base block, and the extension blocks that it
    /// announces as far as they are given. A block of an unknown kind or with a wrong checksum is dropped after an
    /// assertion line; more blocks announced than given writes one line. Bytes after the announced blocks are ignored.
    /// The bytes are copied; pui8Data must not point into this object, whose old blocks are deleted first.
    ///   uiStripFlags  handed to each CTA-861 block, CEdidExtBlockCEA861::EStripFlags; 0 loads everything
    /// Returns 1, also for null data or a size of 0, which empty the object; 0 for another size or a base block that is
    /// refused. Whatever the result, the previous contents are gone.
    int SetEdidBuffer(const unsigned char* pui8Data, unsigned int uiSize, unsigned int uiStripFlags);

    /// Bytes held: 128 for the base block and for each block that was kept, 0 when empty.
    unsigned int GetSize() const;

    /// Non-zero when the checksums of the base block and of all blocks hold; an empty object holds.
    int IsChecksumValid() const;

    /// The present bytes of all blocks, in order. Nothing is repaired: byte 126 stays as loaded, also when blocks were
    /// dropped. Always starts with the 128 bytes that GetBaseBlock gives, also for an empty object.
    CMArray<unsigned char, const unsigned char&> GetEdidBuffer() const;

    /// Copies as many of these bytes as fit into uiSize and returns their number; 0 for null and for an empty object.
    unsigned int GetEdidBuffer(unsigned int uiSize, unsigned char* pui8Buffer) const;

    /// Non-zero when both write back the same bytes.
    int operator==(const CEdid& oOther) const;

    // ---- Extension blocks ----

    /// The blocks that were kept; may be less than byte 126 announces.
    unsigned int GetExtensionCount() const;
    /// The CEdid's own block, valid until the next ClearEdidBuffer or SetEdidBuffer. Null at or above the count.
    CEdidExtBlock* GetExtension(unsigned int uiIndex);
    const CEdidExtBlock* GetExtension(unsigned int uiIndex) const;

    // ---- Timings of all blocks ----

    /// An index at or above the count gives 0. Inside the base block's range its answer is final; a block that refuses
    /// passes the index on to the next block that is long enough. Null for poTiming is a test in the base block and
    /// refused by the blocks. piNative may be null; it receives whether an extension timing is native, 0 for the base.
    unsigned int GetStandardCount() const;
    int GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const;
    /// A slot is not an index: use GetBaseStandard.
    int GetStandard(CEdidBase::EStandardSlotIndex eSlot, CVidParamTiming* poTiming, int* piNative) const = delete;
    int RemoveStandard(unsigned int uiIndex);
    /// The same with CEdidExtBlock::RemoveStandardKeepingDescriptors: the descriptors and data blocks that follow read
    /// as before.
    int RemoveStandardKeepingDescriptors(unsigned int uiIndex);

    unsigned int GetDetailedCount() const;
    int GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const;
    int RemoveDetailed(unsigned int uiIndex);

    /// Where the timings of all blocks come from, by these indexes; replaces the content of aoOrigins. Those of the
    /// base block come first, then those of each extension block; see CEdidExtBlock.
    void ListStandardOrigins(CTimingOrigins& aoOrigins) const;
    void ListDetailedOrigins(CTimingOrigins& aoOrigins) const;

    // ---- Timings of the base block; see CEdidBase ----

    unsigned int GetBaseStandardCount() const;
    int GetBaseStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const;
    int GetBaseStandard(CEdidBase::EStandardSlotIndex eSlot, CVidParamTiming* poTiming, int* piNative) const;
    unsigned int GetBaseDetailedCount() const;
    int GetBaseDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const;

    unsigned int GetEstablishedCount(int bVesaOnly) const;
    int GetEstablished(unsigned int uiIndex, CVidParamTiming* poTiming, int bVesaOnly) const;
    int SetEstablished(unsigned int uiIndex, int bSet, int bUpdateChecksum);
    int SetEstablishedFromId(CEdidBase::EEstablishedTiming eId, int bSet, int bUpdateChecksum);

    // ---- Tiling: the first block that declares a tile answers; see CEdidExtBlockDisplayID ----

    int IsDisplayPartOfTiledTopology() const;
    /// When no block answers, every output is 0. Pointers may be null.
    int GetTiledDisplayCapabilities(int* piSingleEnclosure, int* piBezelInfoPresent, int* piMultiTileAtLocation,
                                    int* piSingleTileAtLocation, int* piSingleTileScaled,
                                    int* piSingleTileCloned) const;
    int GetTopologyDescription(unsigned int& uiTileLocationX, unsigned int& uiTileLocationY, unsigned int& uiTileCountX,
                               unsigned int& uiTileCountY, unsigned int& uiTileWidth, unsigned int& uiTileHeight) const;

private:
    CMArray<CEdidExtBlock*, CEdidExtBlock* const&> m_aoExtensions; ///< in block order; owned
};

#pragma GCC visibility pop
