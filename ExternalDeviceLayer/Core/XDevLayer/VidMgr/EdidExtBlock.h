/// CEdidExtBlock: what every 128-byte EDID extension block can be asked, and the factory that makes one from bytes.
///
/// A block keeps its own copy of its bytes, and everything it answers is derived from them. Results are 1 or non-zero
/// for success and 0 for a refusal, which changes nothing. A block belongs to one thread at a time.
///
/// When memory runs out, making a block leaves none, and reading changes nothing (strong guarantee). An edit has
/// changed all of its bytes, checksum included, or none; if it has, lists may be out of date until they are derived
/// again, and table timings may be missing (basic guarantee).

#pragma once

#include "TimingOrigin.h"
#include "ZorMFCTypes.h"

#pragma GCC visibility push(default)

class CVidParamTiming;

class CEdidExtBlock
{
public:
    /// Why no class takes a block. Of several reasons the first one counts.
    enum ERefusal : unsigned int
    {
        eRefusal_None = 0,
        eRefusal_Size = 1,            ///< fewer than 128 bytes, or null
        eRefusal_Kind = 2,            ///< a tag other than 2 and 112
        eRefusal_Revision = 3,        ///< CTA-861 revision above 3, DisplayID version above 1.2
        eRefusal_SectionSize = 4,     ///< the DisplayID section runs past byte 126
        eRefusal_Checksum = 5,        ///< of all bytes given
        eRefusal_SectionChecksum = 6, ///< of the DisplayID section
    };

    /// What CreateExtensionBlock makes of these bytes, without an assertion line.
    static ERefusal GetRefusal(unsigned int uiSize, const unsigned char* pui8Data);

    /// The order of the virtual operations is the order of their slots; append only.

    virtual ~CEdidExtBlock() = 0;
    CEdidExtBlock(const CEdidExtBlock&) = delete;
    CEdidExtBlock& operator=(const CEdidExtBlock&) = delete;
    CEdidExtBlock(CEdidExtBlock&&) = delete;
    CEdidExtBlock& operator=(CEdidExtBlock&&) = delete;

    virtual unsigned int GetExtensionType() const = 0; ///< extension tag: 2 CTA-861, 112 DisplayID
    virtual unsigned int GetSize() const = 0;          ///< number of raw bytes held
    virtual const unsigned char* GetData() const = 0;  ///< the raw bytes; owned by the block, valid as long as it lives
    /// Copies at most uiSize bytes to pui8Data and returns their number.
    virtual unsigned int GetEdidBuffer(unsigned int uiSize, unsigned char* pui8Data) const = 0;
    virtual CMArray<unsigned char, const unsigned char&> GetEdidBuffer() const = 0; ///< a copy of the raw bytes
    virtual unsigned int GetRevision() const = 0;
    virtual int IsChecksumValid() const = 0; ///< non-zero when the stored checksum holds
    virtual int IsStripped() const = 0;      ///< non-zero when data blocks were removed while loading

    /// Tiling: a monitor that shows one picture out of several tiles, each with an EDID of its own. Non-zero when the
    /// block declares a tile. A block that knows nothing of tiles answers as here: 0, with every output 0.
    /// CEdidExtBlockDisplayID describes the outputs. Pointers may be null.
    virtual int IsDisplayPartOfTiledTopology();
    virtual int GetTiledDisplayCapabilities(int* piSingleEnclosure, int* piBezelInfoPresent, int* piMultiTileAtLocation,
                                            int* piSingleTileAtLocation, int* piSingleTileScaled,
                                            int* piSingleTileCloned);
    virtual int GetTopologyDescription(unsigned int& uiTileLocationX, unsigned int& uiTileLocationY,
                                       unsigned int& uiTileCountX, unsigned int& uiTileCountY,
                                       unsigned int& uiTileWidth, unsigned int& uiTileHeight);

    /// Timings that the block names by a code, and timings that it spells out. uiIndex counts from 0; an index at or
    /// above the count gives 0, and what poTiming then holds means nothing. piNative may be null; it receives 1 for a
    /// timing that the monitor declares as native, else 0. A removal shifts the later indexes and leaves the checksum
    /// right.
    virtual unsigned int GetStandardCount() const = 0;
    virtual int GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const = 0;
    virtual unsigned int GetDetailedCount() const = 0;
    virtual int GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const = 0;
    virtual int RemoveStandard(unsigned int uiIndex) = 0;
    virtual int RemoveDetailed(unsigned int uiIndex) = 0;

    /// Colour depths beyond 8 bits for each colour, as bits: 0 for 30-bit, 1 for 36-bit, 2 for 48-bit colour.
    virtual int GetColorBitDepthSupport(unsigned int& uiBits) = 0;
    virtual int SetColorBitDepthSupport(unsigned int uiBits) = 0;

    /// RemoveStandard for an image that goes on to other readers: everything but the timing reads as before. Here it is
    /// RemoveStandard itself; a block where that one leaves something out of step has its own.
    virtual int RemoveStandardKeepingDescriptors(unsigned int uiIndex);

    /// Replaces the content of aoOrigins by where the timings come from, in the order of the bytes that were read.
    /// Found in the present bytes: after an edit that leaves a list out of step the two may differ.
    virtual void ListStandardOrigins(CTimingOrigins& aoOrigins) const;
    /// An index that counts but holds no timing has no entry.
    virtual void ListDetailedOrigins(CTimingOrigins& aoOrigins) const;

    /// The number of the block in the image that a CEdid loaded, dropped blocks counted; 0 for a block made by hand.
    unsigned int GetImageBlock() const { return m_uiImageBlock; }

    /// Makes the object for a block; the only way blocks come into being. The bytes alone decide the class.
    ///   uiSize, pui8Data  128 bytes, which are copied
    ///   uiStripFlags      what a CTA-861 block leaves out, CEdidExtBlockCEA861::EStripFlags; 0 for nothing
    /// The caller owns the object and deletes it through this interface. Null after one assertion line for a block of
    /// another kind or with a wrong checksum; after three for fewer than 128 bytes or null data.
    static CEdidExtBlock* CreateExtensionBlock(unsigned int uiSize, const unsigned char* pui8Data,
                                               unsigned int uiStripFlags);

protected:
    CEdidExtBlock() = default;

private:
    friend class CEdid; ///< which numbers its blocks

    unsigned int m_uiImageBlock = 0;
};

#pragma GCC visibility pop
