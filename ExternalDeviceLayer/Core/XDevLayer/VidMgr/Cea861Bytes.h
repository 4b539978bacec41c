// The bytes of a CEA-861 block without its lists: where things stand, finding data blocks and descriptors, and the
// edits that make room and close gaps. Not installed. The core includes it, and so may the map, and the check and the
// verification of the command. The latter read only: the lists are kept in step by CEdidExtBlockCEA861 alone.
//
// All offsets count from the first byte of the block; 0 means "not found". No byte outside the 128 is read or written,
// whatever byte 2 and the headers of data blocks claim. Nothing here reports, throws or takes memory.

#pragma once

#include "ByteFields.h"
#include "EdidUtils.h"

namespace Cea861Layout
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

constexpr unsigned int gsc_uiTagOffset = 0;
constexpr unsigned int gsc_uiRevisionOffset = 1;
constexpr unsigned int gsc_uiDetailedStartOffset = 2; // this byte holds where the descriptors begin
constexpr unsigned int gsc_uiFlagsOffset = 3;
constexpr unsigned int gsc_uiDataBlocksOffset = 4;
constexpr unsigned int gsc_uiLastContentOffset = 126;
constexpr unsigned int gsc_uiChecksumOffset = CEdidUtils::msc_uiChecksumOffset;

constexpr unsigned int gsc_uiTag = 2;
constexpr unsigned int gsc_uiHighestRevision = 3;
constexpr unsigned int gsc_uiDataBlocksRevision = 3; // the first one with data blocks

// Flags byte.
constexpr unsigned int gsc_uiBasicAudioFlag = 0x40;
constexpr unsigned int gsc_uiYuvFlags = 0x30;                               // YCbCr 4:4:4 and 4:2:2
constexpr ByteFields::SBits gsc_oNativeCount = { gsc_uiFlagsOffset, 0, 4 }; // of the image's detailed descriptors
constexpr unsigned int gsc_uiNativeCountRevision = 2;                       // the first one with flags

// Header of a data block, one byte.
constexpr ByteFields::SBits gsc_oHeaderTag = { 0, 5, 3 };
constexpr ByteFields::SBits gsc_oHeaderLength = { 0, 0, 5 }; // of the payload
constexpr unsigned int gsc_uiHeaderSize = 1;
constexpr unsigned int gsc_uiMostPayload = gsc_oHeaderLength.GetMask();
constexpr unsigned int gsc_uiExtendedTag = 7; // the first payload byte is the extended tag

constexpr unsigned int gsc_uiDetailedSize = sizeof(CEdidUtils::SEdidDetailedRaw);
} // namespace Cea861Layout

// What a search looks for: data blocks of this tag or, with m_bExtended, of this extended tag.
struct SDataBlockKind
{
    unsigned int m_uiTag;
    bool m_bExtended;
};

// The payload of a data block, without the extended tag of an extended one. An empty block has an offset, too.
struct SDataBlock
{
    unsigned int m_uiOffset; // 0 when there is no block
    unsigned int m_uiLength; // in bytes
};

// Goes from data block to data block, each lying whole in front of the checksum. This is the only place that reads
// headers and holds their bounds: a block must begin before uiEnd, may end behind it, and one that would run past byte
// 126 ends the walk unread.
class CCea861Walk
{
public:
    // pui8Block may be null when uiEnd leaves no room for a data block.
    CCea861Walk(const unsigned char* pui8Block, unsigned int uiEnd) : m_pui8Block(pui8Block), m_uiEnd(uiEnd) {}

    // Each goes to the next block, of any tag or of the kind given. After false the walk is over.
    bool Next()
    {
        if (m_uiNext >= m_uiEnd || m_uiNext > Cea861Layout::gsc_uiLastContentOffset)
        {
            return false;
        }
        const unsigned char* pui8Header = m_pui8Block + m_uiNext;
        const unsigned int uiLength = Cea861Layout::gsc_oHeaderLength.Read(pui8Header);
        if (uiLength > Cea861Layout::gsc_uiLastContentOffset - m_uiNext)
        {
            return false;
        }
        m_uiTag = Cea861Layout::gsc_oHeaderTag.Read(pui8Header);
        m_oBlock = { m_uiNext + Cea861Layout::gsc_uiHeaderSize, uiLength };
        m_uiNext = m_oBlock.m_uiOffset + uiLength;
        return true;
    }

    bool Next(const SDataBlockKind& oKind)
    {
        return oKind.m_bExtended ? NextExtended(oKind.m_uiTag) : NextOf(oKind.m_uiTag);
    }

    const SDataBlock& GetBlock() const { return m_oBlock; }
    unsigned int GetLength() const { return m_oBlock.m_uiLength; }
    // Byte of the payload; the caller has compared the position with GetLength.
    unsigned char GetByte(unsigned int uiPosition) const { return m_pui8Block[m_oBlock.m_uiOffset + uiPosition]; }

    // Once Next has given false: whether the last block ended exactly at uiEnd.
    bool IsEndExact() const { return m_uiNext == m_uiEnd; }

private:
    bool NextOf(unsigned int uiTag)
    {
        while (Next())
        {
            if (m_uiTag == uiTag)
            {
                return true;
            }
        }
        return false;
    }

    // A block without room for its extended tag ends the walk.
    bool NextExtended(unsigned int uiExtendedTag)
    {
        while (NextOf(Cea861Layout::gsc_uiExtendedTag))
        {
            if (m_oBlock.m_uiLength == 0)
            {
                return false;
            }
            if (GetByte(0) == uiExtendedTag)
            {
                ++m_oBlock.m_uiOffset;
                --m_oBlock.m_uiLength;
                return true;
            }
        }
        return false;
    }

    const unsigned char* m_pui8Block;
    unsigned int m_uiEnd;
    unsigned int m_uiNext = Cea861Layout::gsc_uiDataBlocksOffset; // of the header that Next looks at
    unsigned int m_uiTag = 0;
    SDataBlock m_oBlock = { 0, 0 };
};

// Where the number of extension blocks stands in an image of uiSize bytes, from its first byte: in byte 126 of the base
// block, or, where that one is not 0, in an override data block of the HDMI Forum. That one counts when it is the first
// data block of block 1, a CEA-861 block of revision 3 or later that is there as a whole.
unsigned int FindExtensionCount(const unsigned char* pui8Image, unsigned int uiSize);

// Reading. A view, passed by value; the bytes are the block's and must outlive it. Null stands for a block that holds
// nothing: every offset, count and size is then 0.
class CCea861Bytes
{
public:
    // The revision is the one that the block was loaded with: a raw edit of byte 1 does not change the rules.
    CCea861Bytes(const unsigned char* pui8Block, unsigned int uiRevision)
        : m_pui8Block(pui8Block), m_uiRevision(uiRevision)
    {
    }

    // The bytes from an offset on that a search has given.
    const unsigned char* GetAt(unsigned int uiOffset) const { return m_pui8Block + uiOffset; }

    unsigned int GetSize() const { return m_pui8Block != nullptr ? Cea861Layout::gsc_uiBlockSize : 0U; }
    unsigned int GetFlags() const { return GetByte(Cea861Layout::gsc_uiFlagsOffset); }
    // Byte 2 as it stands, 0 to 255.
    unsigned int GetDetailedStart() const { return GetByte(Cea861Layout::gsc_uiDetailedStartOffset); }

    CCea861Walk Walk() const { return { m_pui8Block, GetDataBlocksEnd() }; }
    // The block number uiIndex of its kind, from 0.
    SDataBlock FindDataBlock(const SDataBlockKind& oKind, unsigned int uiIndex) const;
    unsigned int CountDataBlocks(const SDataBlockKind& oKind) const;
    // Whether the data blocks end exactly where byte 2 says. Otherwise an edit of one of them, or of a descriptor, may
    // cut or uncover others.
    bool AreDataBlocksExact() const;

    // The list of descriptors ends in front of the first one with a pixel clock of 0, and of the checksum.
    unsigned int GetDetailedOffset(unsigned int uiIndex) const;
    unsigned int CountDetailed() const;

    // First offset behind the last descriptor, else the offset in byte 2; may lie behind the block.
    unsigned int GetContentEnd() const;

private:
    unsigned int GetByte(unsigned int uiOffset) const { return m_pui8Block != nullptr ? m_pui8Block[uiOffset] : 0U; }
    unsigned int GetDataBlocksEnd() const;

    const unsigned char* m_pui8Block;
    unsigned int m_uiRevision;
};

// Reading and writing. What an edit leaves to the caller: the checksum and, where it says so, byte 2.
class CCea861Editor : public CCea861Bytes
{
public:
    CCea861Editor(unsigned char* pui8Block, unsigned int uiRevision)
        : CCea861Bytes(pui8Block, uiRevision), m_pui8Writable(pui8Block)
    {
    }

    // The same, to be written.
    unsigned char* GetAt(unsigned int uiOffset) const { return m_pui8Writable + uiOffset; }

    // Closes the gap with the bytes behind, up to byte 126, and fills the tail with zeros. Byte 2 stays. False, with
    // nothing changed, for a range that ends outside the block.
    bool RemoveRange(unsigned int uiStart, unsigned int uiLength);
    // Writes zeros; false as above.
    bool ZeroRange(unsigned int uiStart, unsigned int uiLength);

    // Makes room behind the last data block, writes the header there and raises byte 2. The result is the offset of the
    // payload. Its bytes are the caller's to write: zero, or what stood there where there are no descriptors. 0, with
    // nothing changed, when there is no room or byte 2 would put the new block over tag, revision or flags. Like every
    // addition it leaves the last content byte free.
    unsigned int OpenDataBlock(unsigned int uiTag, unsigned int uiLength);

    // Makes room at the end of a data block, raises byte 2 and the length in the block's header, which must be able to
    // hold it. The result is the offset of the new bytes, which are zero; 0 when there is no room and nothing has
    // changed. A block that ends behind the descriptors may take the last content byte.
    unsigned int GrowDataBlock(const SDataBlock& oBlock, unsigned int uiBy);

    // Takes bytes out of a data block and lowers the length in its header. Byte 2 stays.
    void ShrinkDataBlock(const SDataBlock& oBlock, unsigned int uiStart, unsigned int uiBy);

    // Takes the whole block out, of an ordinary kind, and lowers byte 2.
    void RemoveDataBlock(const SDataBlock& oBlock);
    // The same for all blocks of a tag; false when there were none.
    bool RemoveDataBlocks(unsigned int uiTag);

    // Lowers byte 2. In a damaged block, where the bytes that went lay behind it, the result may fall below the area of
    // data blocks or wrap: what is read there is then another list, but no byte outside the block.
    void LowerDetailedStart(unsigned int uiBy);

    void SetBasicAudio();
    bool ClearBasicAudio(); // whether the flag was set

    void UpdateChecksum();

private:
    void InsertRange(unsigned int uiStart, unsigned int uiLength);
    unsigned char* GetHeaderOf(const SDataBlock& oBlock) const
    {
        return GetAt(oBlock.m_uiOffset - Cea861Layout::gsc_uiHeaderSize);
    }

    unsigned char* m_pui8Writable; // the same bytes
};

// Puts the bytes of a block back when an edit does not come to its end: the views of HDMI vendor blocks take memory,
// and an edit that has changed one data block may not get it for the next.
class CCea861Undo
{
public:
    // The bytes of a whole block; null does nothing.
    explicit CCea861Undo(unsigned char* pui8Block);
    ~CCea861Undo();
    CCea861Undo(const CCea861Undo&) = delete;
    CCea861Undo& operator=(const CCea861Undo&) = delete;

    void Complete() { m_bComplete = true; }

private:
    unsigned char* m_pui8Block;
    unsigned char m_aui8Before[Cea861Layout::gsc_uiBlockSize];
    bool m_bComplete = false;
};
