/// A DisplayID section up to 1.2 carried in an EDID extension block (VESA DisplayID 1.2): its Type I and Type II
/// detailed timings and its tiled display topology. Read-only: every edit is refused.
///
/// Layout of the block, offsets in bytes from its start:
///     0      extension tag, 0x70
///     1      DisplayID revision, at most 0x12
///     2      section length n: bytes of data blocks, n + 5 at most 126
///     3      product type, 4 extension count: not read
///     5      data blocks
///     5 + n  section checksum: bytes 1 to 5 + n sum to 0 modulo 256
///     127    block checksum: all offered bytes sum to 0 modulo 256
///
/// Of all operations the constructor, ExtractDetailedTimings and GetEdidBuffer() alone take memory. When it runs out,
/// the constructor leaks nothing, the second leaves a list that may be short, the third changes nothing.

#pragma once

#include "EdidExtBlock.h"
#include "ZorMFCTypes.h"

#pragma GCC visibility push(default)

class CVidParamTiming;

class CEdidExtBlockDisplayID : public CEdidExtBlock
{
public:
    static constexpr unsigned int msc_uiExtensionTag = 0x70; ///< byte 0 of such a block

    /// Data blocks that are understood; all other tags are skipped. A block of one of these tags is bad when its
    /// revision (bits 2 to 0) or payload length is not one of those named, or when its payload ends outside the bytes
    /// of the extension block.
    enum EDisplayID_DataBlockTags : unsigned int
    {
        eDisplayIdTag_Type1Detailed = 3,  ///< SDisplayIdType1DetailedRaw records, revision 0 or 1
        eDisplayIdTag_Type2Detailed = 4,  ///< SDisplayIdType2DetailedRaw records, revision 0
        eDisplayIdTag_TiledTopology = 18, ///< 22 bytes, revision 0
    };

    /// The records below are laid over the bytes of the block, so they hold bytes only. Two-byte fields are
    /// little-endian.

    /// Head of a data block; the payload follows at once.
    struct SDataBlockHeader
    {
        unsigned char m_ui8Tag;
        unsigned char m_ui8Revision; ///< bits 2 to 0
        unsigned char m_ui8PayloadLength;
    };

    /// Type I detailed timing. Every field holds its value minus 1, in pixels and lines; the clock in units of 10 kHz.
    struct SDisplayIdType1DetailedRaw
    {
        unsigned char m_aui8PixelClock[3];
        unsigned char m_ui8Flags; ///< bit 4 interlaced
        unsigned char m_aui8HorizontalActive[2];
        unsigned char m_aui8HorizontalBlank[2];
        unsigned char m_aui8HorizontalFrontPorch[2]; ///< bits 14 to 0; bit 15 positive horizontal sync
        unsigned char m_aui8HorizontalSync[2];
        unsigned char m_aui8VerticalActive[2];
        unsigned char m_aui8VerticalBlank[2];
        unsigned char m_aui8VerticalFrontPorch[2]; ///< bits 14 to 0; bit 15 positive vertical sync
        unsigned char m_aui8VerticalSync[2];
    };

    /// Type II detailed timing. Every field holds its value minus 1, horizontal ones in units of 8 pixels, vertical
    /// ones in lines, the clock in units of 10 kHz.
    struct SDisplayIdType2DetailedRaw
    {
        unsigned char m_aui8PixelClock[3];
        unsigned char m_ui8Flags; ///< bit 4 interlaced, bit 3 positive horizontal sync, bit 2 positive vertical sync
        unsigned char m_ui8HorizontalActiveLow;
        unsigned char m_ui8HorizontalBlank;          ///< bits 7 to 1; bit 0 is bit 8 of the active width
        unsigned char m_ui8HorizontalFrontPorchSync; ///< front porch in bits 7 to 4, sync in bits 3 to 0
        unsigned char m_ui8VerticalActiveLow;
        unsigned char m_ui8VerticalActiveHigh; ///< bits 3 to 0 are bits 11 to 8 of the active height
        unsigned char m_ui8VerticalBlank;
        unsigned char m_ui8VerticalFrontPorchSync; ///< front porch in bits 7 to 4, sync in bits 3 to 0
    };

    /// Whether the bytes are a DisplayID block that this class reads: tag, revision, section length and both checksums
    /// as above, the block checksum over all uiSize bytes. 1 or 0. A size below 128 or a null pointer gives an
    /// assertion line and 0.
    static int IsSupported(unsigned int uiSize, const unsigned char* pui8Data);

    /// Copies all uiSize bytes and reads the section; the object stays empty (type, revision and size 0) when the bytes
    /// are not supported. A bad data block of an understood tag gives an assertion line and ends the reading: the block
    /// then lists no timing at all, though a tile declared before the bad block counts.
    CEdidExtBlockDisplayID(unsigned int uiSize, const unsigned char* pui8Data);
    ~CEdidExtBlockDisplayID() override;

    CEdidExtBlockDisplayID(const CEdidExtBlockDisplayID&) = delete;
    CEdidExtBlockDisplayID(CEdidExtBlockDisplayID&&) = delete;
    CEdidExtBlockDisplayID& operator=(const CEdidExtBlockDisplayID&) = delete;
    CEdidExtBlockDisplayID& operator=(CEdidExtBlockDisplayID&&) = delete;

    unsigned int GetExtensionType() const override; ///< 112, or 0 when empty
    unsigned int GetSize() const override;          ///< bytes
    const unsigned char* GetData() const override;  ///< the block's, as long as it lives; null when empty
    /// Copies the smaller of uiCapacity and GetSize() bytes and returns their number; 0 for a null destination.
    unsigned int GetEdidBuffer(unsigned int uiCapacity, unsigned char* pui8Destination) const override;
    CMArray<unsigned char, const unsigned char&> GetEdidBuffer() const override;
    unsigned int GetRevision() const override;
    int IsChecksumValid() const override; ///< of the whole block; the section's was tested at loading
    int IsStripped() const override;      ///< always 0

    /// Non-zero when the section declares a tile.
    int IsDisplayPartOfTiledTopology() override;
    /// The flags of the first tile declaration, each 1 or 0, through each pointer that is not null. Without one the
    /// result is 0 and nothing is written.
    ///   piMultiTileAtLocation  with several tiles driven the image appears at the tile's location
    ///   piSingleTile...        with one tile driven the image is at its location, scaled to the display, or cloned
    int GetTiledDisplayCapabilities(int* piSingleEnclosure, int* piBezelInfoPresent, int* piMultiTileAtLocation,
                                    int* piSingleTileAtLocation, int* piSingleTileScaled,
                                    int* piSingleTileCloned) override;
    /// Place of this tile, from 0, number of tiles across and down, and size of a tile in pixels and lines, of the
    /// first tile declaration. Without one the result is 0 and nothing is written.
    int GetTopologyDescription(unsigned int& uiTileLocationX, unsigned int& uiTileLocationY, unsigned int& uiTileCountX,
                               unsigned int& uiTileCountY, unsigned int& uiTileWidth,
                               unsigned int& uiTileHeight) override;

    unsigned int GetStandardCount() const override; ///< always 0
    int GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const override;

    /// Lists the records of the data blocks anew; the result is their number. The constructor has done so, except after
    /// a bad data block: a call by hand then lists the records of the blocks before it.
    unsigned int ExtractDetailedTimings();

    /// All Type I records in block order, then all Type II records.
    unsigned int GetDetailedCount() const override;
    /// 0 at or above the count, for a null timing, and for a record that the conversions below refuse, though it
    /// counts. The timing is not cleared first: what the conversions do not set keeps its value.
    int GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const override;
    /// Offset of the record of a detailed timing in the block, and its bytes in uiSize; 0, with uiSize as it was, if
    /// the index has none.
    unsigned int GetDetailedTimingsOffset(unsigned int uiIndex, unsigned int& uiSize) const;

    void ListDetailedOrigins(CTimingOrigins& aoOrigins) const override;

    /// Always 0; nothing changes.
    int RemoveStandard(unsigned int uiIndex) override;
    int RemoveDetailed(unsigned int uiIndex) override;
    int GetColorBitDepthSupport(unsigned int& uiDepthBits) override; ///< the reference is not written
    int SetColorBitDepthSupport(unsigned int uiDepthBits) override;

    /// Set geometry, polarities, clock, both rates (computed) and the family type eVidParamType_Detailed. The height is
    /// taken as stored, also of an interlaced record. 1 on success; a null argument gives an assertion line and 0. 0
    /// with the timing untouched when the active width or height field is 0, of Type I also when the clock field is 0.
    static int ConvertDetailedType1ToVidParam(const SDisplayIdType1DetailedRaw* poRaw, CVidParamTiming* poTiming);
    static int ConvertDetailedType2ToVidParam(const SDisplayIdType2DetailedRaw* poRaw, CVidParamTiming* poTiming);

private:
    friend class CEdidExtBlock; ///< its factory has tested the bytes
    struct SSupported
    {
        explicit SSupported() = default; ///< not by {}
    };
    using DataBlockList = CMArray<const SDataBlockHeader*, const SDataBlockHeader* const&>;

    /// For bytes that IsSupported has taken.
    CEdidExtBlockDisplayID(SSupported, unsigned int uiSize, const unsigned char* pui8Data);
    void Load(unsigned int uiSize, const unsigned char* pui8Data);

    bool ReadDataBlocks();
    DataBlockList& GetDataBlocks(EDisplayID_DataBlockTags eTag);
    const unsigned char* GetTiledTopology();

    CMArray<unsigned char, const unsigned char&> m_aui8Raw; ///< never changes after the constructor
    unsigned int m_uiExtensionType = 0;
    unsigned int m_uiRevision = 0;
    /// Understood data blocks by tag, in block order. These and the two lists point into m_aui8Raw.
    CMMap<EDisplayID_DataBlockTags, DataBlockList, const EDisplayID_DataBlockTags&, const DataBlockList&> m_oDataBlocks;
    CMArray<const SDisplayIdType1DetailedRaw*, const SDisplayIdType1DetailedRaw* const&> m_apoType1;
    CMArray<const SDisplayIdType2DetailedRaw*, const SDisplayIdType2DetailedRaw* const&> m_apoType2;
};

static_assert(sizeof(CEdidExtBlockDisplayID::SDataBlockHeader) == 3);
static_assert(sizeof(CEdidExtBlockDisplayID::SDisplayIdType1DetailedRaw) == 20);
static_assert(sizeof(CEdidExtBlockDisplayID::SDisplayIdType2DetailedRaw) == 11);

#pragma GCC visibility pop
