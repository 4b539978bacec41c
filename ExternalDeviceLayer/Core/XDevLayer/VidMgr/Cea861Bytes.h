// The bytes of a CTA-861 block without its lists: finding data blocks and descriptors, and the edits that make room and
// close gaps. Private to VidMgr: CEdidExtBlockCEA861 keeps its lists in step with the bytes.
//
// All offsets count from the first byte of the block; 0 means "not found". No byte outside the 128 is read or written,
// whatever byte 2 and the headers of data blocks claim. Nothing here reports, throws or takes memory.

#pragma once

#include "Standards/CtaBlocks.h"

namespace ZorCore
{
using namespace ZorStandards::Cta;

// Reading. A view, passed by value; the bytes are the block's and must outlive it. Null is a block that holds
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

    unsigned int GetSize() const { return m_pui8Block != nullptr ? gsc_uiBlockSize : 0U; }
    unsigned int GetFlags() const { return GetByte(gsc_uiFlagsOffset); }
    // Byte 2 unchecked, 0 to 255.
    unsigned int GetDetailedStart() const { return GetByte(gsc_uiDetailedStartOffset); }

    CDataBlockWalk Walk() const { return { m_pui8Block, GetDataBlocksEnd(m_uiRevision, GetDetailedStart()) }; }
    // The block number uiIndex of its kind, from 0.
    SPayload FindDataBlock(const SDataBlockKind& oKind, unsigned int uiIndex) const;
    unsigned int CountDataBlocks(const SDataBlockKind& oKind) const;
    // Whether the data blocks end exactly where byte 2 says. Otherwise an edit of one of them, or of a descriptor, may
    // cut or uncover others.
    bool AreDataBlocksExact() const { return Walk().EndsExactly(); }

    // The list of descriptors ends in front of the first one with a pixel clock of 0, and of the checksum.
    unsigned int GetDetailedOffset(unsigned int uiIndex) const;
    unsigned int CountDetailed() const;

    // First offset after the last descriptor, else the offset in byte 2; may be past the block.
    unsigned int GetContentEnd() const;

private:
    unsigned int GetByte(unsigned int uiOffset) const { return m_pui8Block != nullptr ? m_pui8Block[uiOffset] : 0U; }

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

    // Closes the gap with the bytes after it, up to byte 126, and fills the tail with zeros. Byte 2 stays. False, with
    // nothing changed, for a range that ends outside the block.
    bool RemoveRange(unsigned int uiStart, unsigned int uiLength);
    // Writes zeros; false as above.
    bool ZeroRange(unsigned int uiStart, unsigned int uiLength);

    // Makes room after the last data block, writes the header there and raises byte 2. The result is the offset of the
    // payload. Its bytes are the caller's to write: zero, or, without descriptors, the previous content. 0, with
    // nothing changed, when room is lacking or byte 2 would put the new block over tag, revision or flags. Like every
    // addition it leaves the last content byte free.
    unsigned int OpenDataBlock(unsigned int uiTag, unsigned int uiLength);

    // Makes room at the end of a data block, raises byte 2 and the length in the block's header, which must be able to
    // hold it. The result is the offset of the new bytes, which are zero; 0, with nothing changed, when room is
    // lacking. A block that ends past the descriptors may take the last content byte.
    unsigned int GrowDataBlock(const SPayload& oBlock, unsigned int uiBy);

    // Takes bytes out of a data block and lowers the length in its header. Byte 2 stays.
    void ShrinkDataBlock(const SPayload& oBlock, unsigned int uiStart, unsigned int uiBy);

    // Takes the whole block out, of an ordinary kind, and lowers byte 2.
    void RemoveDataBlock(const SPayload& oBlock);
    // The same for all blocks of a tag; false when there were none.
    bool RemoveDataBlocks(unsigned int uiTag);

    // Lowers byte 2. In a damaged block, where the removed bytes were past it, the result may fall below the area of
    // data blocks or wrap: what is read there is then another list, but no byte outside the block.
    void LowerDetailedStart(unsigned int uiBy);

    void SetBasicAudio();
    bool ClearBasicAudio(); // whether the flag was set

    void UpdateChecksum();

private:
    void InsertRange(unsigned int uiStart, unsigned int uiLength);
    unsigned char* GetHeaderOf(const SPayload& oBlock) const { return GetAt(oBlock.m_uiOffset - gsc_uiHeaderSize); }

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
    unsigned char m_aui8Before[gsc_uiBlockSize];
    bool m_bComplete = false;
};
} // namespace ZorCore
