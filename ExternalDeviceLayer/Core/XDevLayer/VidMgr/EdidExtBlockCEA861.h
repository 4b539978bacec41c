/// CEdidExtBlockCEA861: one 128-byte CTA-861 extension block (EDID extension tag 2, revisions 0 to 3).
///
/// The block holds its own copy of the bytes and lists derived from them. Table timings, audio and speakers are read
/// from the lists, detailed timings from the bytes, except where a step has moved bytes and left the lists. An edit
/// changes the bytes first, makes the checksum right and derives the touched lists again. So the bytes are always the
/// truth, and what GetEdidBuffer gives needs no serialising step.
///
/// Layout, as published in CTA-861 (offsets in bytes from the start of the block):
///     0         extension tag, 2
///     1         revision; data blocks are read from revision 3 on
///     2         offset d of the first detailed descriptor; no data blocks below 5, and at 0 no descriptors either
///     3         flags: bit 6 basic audio, bit 5 YCbCr 4:4:4, bit 4 YCbCr 4:2:2; bits 3 to 0: native descriptors
///     4 to d-1  data blocks: a header (tag in bits 7 to 5, payload length in bits 4 to 0), then the payload
///     d onward  detailed descriptors of 18 bytes; one with a zero pixel clock ends the list
///     127       checksum: the block sums to 0 modulo 256
/// Content ends at byte 126 at the latest; what lies between the last descriptor and byte 127 is zero.
///
/// Results: 1 or non-zero for success, 0 for a refusal, which changes no byte. Offsets count from the start of the
/// block, and an offset of 0 means "not found". A block belongs to one thread at a time.

#pragma once

#include "EdidExtBlock.h"
#include "EdidUtils.h"
#include "VidParamTiming.h"
#include "ZorMFCTypes.h"

#pragma GCC visibility push(default)

namespace ZorCore
{
class CCea861Bytes;
class CCea861Editor;
} // namespace ZorCore

class CEdidExtBlockCEA861 : public CEdidExtBlock
{
public:
    /// Tag of a data block header. Blocks of other tags are passed over.
    enum ECea861_DataBlockTags : unsigned int
    {
        eCea861Tag_Audio = 1,          ///< short audio descriptors, 3 bytes each
        eCea861Tag_Video = 2,          ///< short video descriptors, 1 byte each
        eCea861Tag_VendorSpecific = 3, ///< 3 bytes of IEEE identifier, then the vendor's data
        eCea861Tag_Speaker = 4,        ///< speaker allocation, 3 bytes
        eCea861Tag_Extended = 7        ///< the first payload byte is an ECea861_DataBlockExtTags value
    };

    /// First payload byte of a block with the tag eCea861Tag_Extended.
    enum ECea861_DataBlockExtTags : unsigned int
    {
        eCea861ExtTag_VendorVideo = 1,         ///< read like a vendor block when it holds the HDMI identifier
        eCea861ExtTag_Yuv420Video = 14,        ///< short video descriptors of modes that exist in YCbCr 4:2:0 only
        eCea861ExtTag_Yuv420CapabilityMap = 15 ///< bit map over the short video descriptors
    };

    /// What the constructor is asked to leave out of the block. Other bits are ignored.
    enum EStripFlags : unsigned int
    {
        eStrip_Audio = 0x01,      ///< all audio data blocks, and the basic audio flag
        eStrip_Reserved02 = 0x02, ///< nothing to strip: reports an assertion failure
        eStrip_Reserved04 = 0x04, ///< the same
        eStrip_Speaker = 0x10,    ///< all speaker allocation data blocks; the basic audio flag stays
        eStrip_Reserved20 = 0x20  ///< the same as eStrip_Reserved02
    };

    /// Whether RemoveStandardKeepingDescriptors can take a timing out. Of several reasons against it the first counts.
    enum ERemoval : unsigned int
    {
        eRemoval_Possible = 0,
        eRemoval_Damaged = 1,     ///< the data blocks do not end where the descriptors begin
        eRemoval_3dFields = 2,    ///< HDMI's 3D fields break off, or hold for each of the first 16 of more codes
        eRemoval_NoCode = 3,      ///< no block has it, or only a YCbCr 4:2:0 video block has it
        eRemoval_Descriptors = 4, ///< bytes after the last descriptor would become another one
    };

    /// Audio format code. A block can hold 1 to 15 (the field has 4 bits); the values above have names only.
    enum EAudioFormat : unsigned int
    {
        eAudioFormat_None = 0,
        eAudioFormat_Pcm = 1,
        eAudioFormat_Ac3 = 2,
        eAudioFormat_Mpeg1 = 3,
        eAudioFormat_Mp3 = 4,
        eAudioFormat_Mpeg2 = 5,
        eAudioFormat_Aac = 6,
        eAudioFormat_Dts = 7,
        eAudioFormat_Atrac = 8,
        eAudioFormat_OneBit = 9,
        eAudioFormat_EnhancedAc3 = 10,
        eAudioFormat_DtsHd = 11,
        eAudioFormat_Mat = 12,
        eAudioFormat_Dst = 13,
        eAudioFormat_WmaPro = 14,
        eAudioFormat_Mpeg4HeAac = 15,
        eAudioFormat_Mpeg4HeAacV2 = 16,
        eAudioFormat_Mpeg4AacLc = 17,
        eAudioFormat_Dra = 18,
        eAudioFormat_Mpeg4HeAacSurround = 19,
        eAudioFormat_Mpeg4AacLcSurround = 20
    };

    /// Sampling rates, one bit each; a descriptor may hold several at once.
    enum EAudioSamplingFreq : unsigned int
    {
        eAudioSamplingFreq_None = 0,
        eAudioSamplingFreq_32KHz = 0x01,
        eAudioSamplingFreq_44KHz = 0x02, ///< 44.1 kHz
        eAudioSamplingFreq_48KHz = 0x04,
        eAudioSamplingFreq_88KHz = 0x08, ///< 88.2 kHz
        eAudioSamplingFreq_96KHz = 0x10,
        eAudioSamplingFreq_176KHz = 0x20, ///< 176.4 kHz
        eAudioSamplingFreq_192KHz = 0x40
    };

    /// One table timing of the block.
    struct SVicCodeEntry
    {
        unsigned int m_uiVic; ///< video identification code; n + 1000 is the 1000/1001 variant of code n
        int m_bNative;        ///< 1 when the short video descriptor marks the code as native, else 0
    };

    /// Where a table timing is in the bytes; one entry for each occurrence, as of the last ExtractStandardTimings.
    struct SVicCodeEntryLookUp
    {
        unsigned int m_uiVic;        ///< as in SVicCodeEntry
        unsigned int m_uiBlockIndex; ///< number of the data block among all blocks of the same tag, from 0
        unsigned int m_bExtended; ///< 1 when m_uiTag is an ECea861_DataBlockExtTags value, 0 when it is an ordinary tag
        unsigned int m_uiTag;     ///< eCea861Tag_Video, eCea861Tag_VendorSpecific or eCea861ExtTag_VendorVideo
        unsigned int m_uiPosition; ///< number of the short video descriptor in its block, from 0; 0 for HDMI codes
    };

    /// A short audio descriptor as a value.
    struct SAudioDescriptor
    {
        EAudioFormat m_eFormat;             ///< 0 to 15 when it comes from a block; the low 4 bits are written
        unsigned int m_uiChannels;          ///< 1 to 8 when it comes from a block; set and add want 2 at least
        EAudioSamplingFreq m_eSamplingFreq; ///< any of the seven rate bits
        unsigned int m_uiExtra; ///< third byte: bit depths of PCM, bit rate / 8 kHz or as the format defines
    };

    /// Takes a copy of the first 128 bytes, strips what uiStripFlags (EStripFlags) asks for and derives the lists.
    /// When IsSupported refuses the bytes the object stays empty: size, counts and offsets are 0, additions are
    /// refused.
    CEdidExtBlockCEA861(unsigned int uiSize, const unsigned char* pui8Data, unsigned int uiStripFlags);
    ~CEdidExtBlockCEA861() override;

    CEdidExtBlockCEA861(const CEdidExtBlockCEA861&) = delete;
    CEdidExtBlockCEA861& operator=(const CEdidExtBlockCEA861&) = delete;
    CEdidExtBlockCEA861(CEdidExtBlockCEA861&&) = delete;
    CEdidExtBlockCEA861& operator=(CEdidExtBlockCEA861&&) = delete;

    /// Non-zero when this class takes the block: tag 2, revision 0 to 3 and a checksum that holds over all uiSize
    /// bytes. Fewer than 128 bytes or null data report an assertion failure and give 0.
    static int IsSupported(unsigned int uiSize, const unsigned char* pui8Data);

    // ---- CEdidExtBlock ----

    unsigned int GetExtensionType() const override; ///< 2, or 0 for an empty object
    unsigned int GetSize() const override;          ///< 128, or 0 for an empty object
    const unsigned char* GetData() const override;
    /// Copies at most uiSize bytes to pui8Data and returns their number; 0 for a size of 0 or a null pointer.
    unsigned int GetEdidBuffer(unsigned int uiSize, unsigned char* pui8Data) const override;
    CMArray<unsigned char, const unsigned char&> GetEdidBuffer() const override;
    unsigned int GetRevision() const override;
    int IsChecksumValid() const override;
    /// Non-zero when stripping at load changed something; a request that found nothing to strip leaves it 0.
    int IsStripped() const override;

    // ---- Table timings: short video descriptors, HDMI codes, YCbCr 4:2:0 blocks ----

    /// The ordinary timings come first: video blocks in block order, each code directly followed by its 1000/1001
    /// variant where the table has one, then the HDMI codes. The YCbCr 4:2:0 timings follow: capability maps, then
    /// 4:2:0 blocks.
    unsigned int GetStandardCount() const override;
    /// poTiming receives the row of the table, with the 4:2:0 flag set for a YCbCr 4:2:0 timing; piNative (may be null)
    /// 1 for a native code, else 0. An index at or above the count or a null poTiming gives 0 and touches neither.
    int GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const override;
    /// Takes every occurrence of the timing's code out of the video blocks and HDMI vendor blocks, and with it the
    /// timing's 1000/1001 variant. An emptied video block loses its header; a vendor block keeps its length; YCbCr
    /// 4:2:0 blocks stay as they are, and a timing that only they name is refused with 0. Byte 2 keeps its value,
    /// although everything after a removed descriptor moves down, the detailed descriptors too: by one byte, by two if
    /// the video block becomes empty, and removals add up. A data block that is added afterwards begins as many bytes
    /// after the end of the last one, so that a fresh walk may not reach it. The detailed, audio and speaker lists stay
    /// as they were: until the next other edit of the block that succeeds, or a load, they are out of date.
    int RemoveStandard(unsigned int uiIndex) override;
    /// Takes the same codes out of the bytes and keeps the rest in step, so that everything else reads as before, here
    /// and by any other reader. Byte 2 is lowered by what went, so that the detailed descriptors and data blocks that
    /// follow are found in their new places. An HDMI vendor block gets shorter by each code that it loses: the 3D data
    /// after the codes follow. Its 3D mask and formats, which name the first 16 codes of the video blocks by their
    /// places, lose those of the code and name the others in their new places. The bits of a YCbCr 4:2:0 capability map
    /// go with their codes, later bits move down, and the map keeps its length. A timing that a 4:2:0 video block names
    /// stays in that block. All lists are derived again. It refuses what RemoveStandard refuses, a block whose data
    /// blocks do not end where its descriptors begin, one whose bytes after the last descriptor would become another
    /// descriptor, and, for one of the first 16 codes of the video blocks, 3D data that break off or that hold for each
    /// of the first 16 codes if there are more.
    int RemoveStandardKeepingDescriptors(unsigned int uiIndex) override;
    /// What the call above would answer; changes nothing.
    ERemoval TryRemoval(unsigned int uiIndex) const;
    /// A byte of the block that is a code, whether the lists have its timings or not.
    struct SCodePlace
    {
        unsigned int m_uiOffset; ///< in the block
        bool m_bHdmi;            ///< an HDMI code; else a short video descriptor
    };
    using CCodePlaces = CMArray<SCodePlace, const SCodePlace&>;
    /// The short video descriptors of video blocks, the HDMI codes 1 to 4, then the short video descriptors of YCbCr
    /// 4:2:0 video blocks.
    void ListCodePlaces(CCodePlaces& aoPlaces) const;
    /// Takes codes out, whatever timings they give: the bytes of ListCodePlaces that have these uiCount offsets. The
    /// rest is kept in step as by RemoveStandardKeepingDescriptors, which takes out all bytes with a code. A block that
    /// is left without a code goes, and so does a capability map that is left without a bit. Unless the answer is
    /// eRemoval_Possible nothing changes; it is eRemoval_NoCode without an offset, and where one is of any other byte.
    ERemoval RemoveCodesAt(const unsigned int* puiOffsets, unsigned int uiCount);
    /// The same for one code.
    ERemoval RemoveCodeAt(unsigned int uiOffset) { return RemoveCodesAt(&uiOffset, 1); }

    /// Derives the lists of table timings from the bytes; returns GetStandardCount.
    unsigned int ExtractStandardTimings();
    void ListStandardOrigins(CTimingOrigins& aoOrigins) const override;

    /// What a short video descriptor says. Returns 1 for a valid one (1 to 127: the code; 129 to 253: bits 6 to 0 are
    /// the code, native), else 0 with both outputs 0. The pointers may be null.
    static int ExtractSvdCodeInfo(unsigned int uiCode, unsigned int* puiVic, int* piNative);
    /// 1 when the descriptor is valid and its code has a row in the table of timings.
    static int IsSupportedSvd(unsigned int uiCode);

    // ---- Detailed timings ----

    unsigned int GetDetailedCount() const override;
    /// Reads the descriptor into poTiming, which is cleared first. A null poTiming or an index at or above the count
    /// gives 0 and touches nothing.
    int GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const override;
    /// Takes the 18 bytes out; later descriptors move down and the tail fills with zeros. Byte 2 stays.
    /// A descriptor that lies over the block's four header bytes (byte 2 below 4) is refused.
    int RemoveDetailed(unsigned int uiIndex) override;
    /// How many of the image's detailed timings are native, counted from the first one of the base block over all
    /// CTA-861 blocks: bits 3 to 0 of byte 3, which a removal leaves. Refuses more than 15, and a revision below 2,
    /// which has no such count.
    int SetNativeDetailedCount(unsigned int uiCount);
    /// Derives the list of descriptors from the bytes; returns GetDetailedCount.
    unsigned int ExtractDetailedTimings();
    void ListDetailedOrigins(CTimingOrigins& aoOrigins) const override;
    /// Offset of a detailed descriptor; 0 if the index has none.
    unsigned int GetDetailedTimingsOffset(unsigned int uiIndex) const;

    // ---- Colour depth, in the HDMI vendor blocks ----

    /// Bit 0: 30-bit, bit 1: 36-bit, bit 2: 48-bit colour, joined over all HDMI vendor blocks. 1 with uiBits 0
    /// without an HDMI block.
    int GetColorBitDepthSupport(unsigned int& uiBits) override;
    /// Writes the same bits into every HDMI vendor block. 1 even without such a block.
    int SetColorBitDepthSupport(unsigned int uiBits) override;
    /// SetColorBitDepthSupport for every HDMI vendor block with the flags: from 6 bytes on, where that call needs 8.
    /// The answer is how many there are; without one nothing changes.
    unsigned int SetDeepColors(unsigned int uiBits);

    // ---- Structure ----

    /// Non-zero when the flags announce YCbCr 4:4:4 or 4:2:2.
    int IsYuvSupported() const;

    /// Offset of the payload of the uiIndex-th data block with this tag, 0 if it does not exist; *puiLength becomes the
    /// payload's length in bytes (0 to 31). A block may be empty: the offset is then non-zero and the length 0. A block
    /// that would run past byte 126 is not found and ends the search. Null puiLength reports and gives 0.
    unsigned int GetDataBlockOffset(ECea861_DataBlockTags eTag, unsigned int uiIndex, unsigned int* puiLength) const;
    /// The same for blocks with an extended tag: offset and length of what follows the extended tag. A block that has
    /// no room for its extended tag ends the search.
    unsigned int GetDataBlockOffset(ECea861_DataBlockExtTags eTag, unsigned int uiIndex, unsigned int* puiLength) const;
    unsigned int GetVendorSpecificCount() const;

    /// First offset after the last detailed descriptor, else the offset in byte 2.
    unsigned int GetAvailableOffset() const;
    /// Free bytes after the content; counts one byte less than fits.
    unsigned int GetAvailableSpace() const;

    /// Appends an empty HDMI vendor block (7 bytes) after the data blocks. 0 when room is missing; like every addition
    /// also when byte 2 is below 4, which is within the block's header. A revision below 3 takes every addition, but
    /// exposes no data block, so that the counts stay at 0.
    int AddVendorSpecific();

    /// Raw steps. They leave byte 2, the checksum and all lists alone: the caller sets byte 2 after the step, not
    /// before, calls UpdateChecksum and derives the lists again. RemoveDataRange, PadDataRange and StripDataBlocks list
    /// the places of codes and descriptors first, by the current byte 2: they can run out of memory, before any change.
    /// RemoveDataRange closes the gap with the bytes that follow, up to byte 126, and fills the tail with zeros;
    /// PadDataRange writes zeros. A range that holds the checksum byte leaves it, and RemoveDataRange then zeroes the
    /// byte before the range instead. A range that ends beyond the block, or is removed whole, reports an assertion
    /// failure and changes nothing.
    void RemoveDataRange(unsigned int uiStart, unsigned int uiLength);
    void PadDataRange(unsigned int uiStart, unsigned int uiLength);
    void UpdateChecksum();
    /// Removes data blocks by EStripFlags, lowers byte 2 with them and makes the checksum right. Non-zero when
    /// something changed. For the constructor, which derives the lists afterwards.
    int StripDataBlocks(unsigned int uiStripFlags);

    // ---- Audio ----

    /// The index runs over the descriptors of all audio blocks in block order. The list is empty when the length of the
    /// first audio block is not a multiple of 3.
    unsigned int GetAudioDescriptorCount() const;
    /// 0 when poDescriptor is null or the index is at or above the count.
    int GetAudioDescriptor(unsigned int uiIndex, SAudioDescriptor* poDescriptor) const;
    /// Rewrites the three bytes in place, except for bit 7 of the first two. Refuses null, an index at or above the
    /// count and fewer than 2 channels.
    int SetAudioDescriptor(unsigned int uiIndex, const SAudioDescriptor* poDescriptor);
    /// Appends to the first audio block while that has room for three more bytes, else opens a new block after all data
    /// blocks; sets the basic audio flag. Refuses null, fewer than 2 channels and a lack of space.
    int AddAudioDescriptor(const SAudioDescriptor* poDescriptor);
    /// The last descriptor of a block takes the block with it. Clears the basic audio flag when neither an audio
    /// descriptor nor a speaker entry is left.
    int RemoveAudioDescriptor(unsigned int uiIndex);
    /// Derives the list of audio descriptors from the bytes; returns the count.
    unsigned int ExtractAudioInfo();

    /// Name of a format; empty for 0 and above 20.
    static CMString GetAudioFormatStr(const EAudioFormat& eFormat);
    /// Name of one rate, in kHz without decimals; empty for any other value, several bits at once included.
    static CMString GetAudioSamplingFreqStr(const EAudioSamplingFreq& eFreq);

    // ---- Speakers ----

    /// One entry for each speaker allocation block: a mask of 11 bits, payload byte 0 in bits 7 to 0 and bits 2 to 0 of
    /// payload byte 1 in bits 10 to 8. A block of fewer than three bytes is read as far as it goes.
    unsigned int GetSpeakerDescriptorCount() const;
    /// 0 when puiMask is null or the index is at or above the count.
    int GetSpeakerDescriptor(unsigned int uiIndex, unsigned int* puiMask) const;
    /// Writes the mask in place; the other bits of the three payload bytes become 0. Refuses an index at or above the
    /// count and a block too short for its three bytes.
    int SetSpeakerDescriptor(unsigned int uiIndex, unsigned int uiMask);
    /// The same, but the other bits stay: later editions of the standard have speakers there.
    int SetSpeakerDescriptorKeepingRest(unsigned int uiIndex, unsigned int uiMask);
    /// Opens a new block after all data blocks and sets the basic audio flag. Refuses a mask of 0 and a lack of space.
    int AddSpeakerDescriptor(unsigned int uiMask);
    /// Takes the block out. Clears the basic audio flag when neither an audio descriptor nor a speaker entry is left.
    int RemoveSpeakerDescriptor(unsigned int uiIndex);
    /// Derives the list of speaker masks from the bytes; returns the count.
    unsigned int ExtractSpeakerInfo();

private:
    friend class CEdidExtBlock; ///< its factory has tested the bytes
    struct SSupported
    {
        explicit SSupported() = default; ///< not by {}
    };

    /// Lists that an edit makes out of date.
    enum EList : unsigned int
    {
        eList_Standard = 0x1,
        eList_Detailed = 0x2,
        eList_Audio = 0x4,
        eList_Speaker = 0x8,
        eList_All = 0xF
    };

    /// For bytes that IsSupported has taken.
    CEdidExtBlockCEA861(SSupported, const unsigned char* pui8Data, unsigned int uiStripFlags);
    void Load(const unsigned char* pui8Data, unsigned int uiStripFlags);
    bool Strip(unsigned int uiStripFlags); ///< whether a byte changed

    ZorCore::CCea861Bytes GetBytes() const;
    ZorCore::CCea861Editor EditBytes();

    unsigned int GetTouchedLists(unsigned int uiLists) const;
    void FinishEdit(unsigned int uiLists);
    void DeriveLists(unsigned int uiLists);
    const SVicCodeEntry& GetVicCodeEntry(unsigned int uiIndex) const;
    int WriteSpeakers(unsigned int uiIndex, unsigned int uiMask, bool bKeepRest);
    void KeepPlaces();
    void ListOccurrences();

    CMArray<unsigned char, const unsigned char&> m_aui8Raw;
    unsigned int m_uiExtensionType = 0;
    unsigned int m_uiRevision = 0;
    /// Pointers into m_aui8Raw, in block order; not owned. Safe because m_aui8Raw is sized once, in the constructor,
    /// and every descriptor found lies within it. Empty while a walk over the bytes gives the places; after
    /// RemoveStandard they point at the old ones.
    CMArray<CEdidUtils::SEdidDetailedRaw*, CEdidUtils::SEdidDetailedRaw* const&> m_apoDetailed;
    CMArray<SVicCodeEntry, const SVicCodeEntry&> m_aoVicCode; ///< ordinary timings
    CMArray<SVicCodeEntryLookUp, const SVicCodeEntryLookUp&> m_aoVicLookUp;
    CMArray<SVicCodeEntry, const SVicCodeEntry&> m_aoVicCode420; ///< timings in YCbCr 4:2:0
    int m_bStripped = 0;
    CMArray<SAudioDescriptor, const SAudioDescriptor&> m_aoAudio;
    CMArray<unsigned int, const unsigned int&> m_auiSpeaker;
    unsigned int m_uiDetailedCount = 0;
    int m_bOccurrencesListed = 0; ///< 1 once m_aoVicLookUp is derived; it holds the places of that moment
    int m_bListsBehind = 0;       ///< 1 while lists may describe older bytes; the next edit then derives them all
};

#pragma GCC visibility pop
