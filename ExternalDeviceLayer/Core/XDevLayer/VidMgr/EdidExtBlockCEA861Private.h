// What the three sources of CEdidExtBlockCEA861 share: positions in the block, the walk over its data blocks, and the
// filling of its lists. Not installed.

#pragma once

#include "EdidExtBlockCEA861.h"
#include "ZorTools.h"

// Positions in the block, from its first byte.
inline constexpr unsigned int gsc_uiCea861Size = CEdidUtils::msc_uiBlockSize;
inline constexpr unsigned int gsc_uiCea861TagOffset = 0;
inline constexpr unsigned int gsc_uiCea861RevisionOffset = 1;
inline constexpr unsigned int gsc_uiCea861DetailedStartOffset = 2; // this byte holds where the descriptors begin
inline constexpr unsigned int gsc_uiCea861FlagsOffset = 3;
inline constexpr unsigned int gsc_uiCea861DataBlocksOffset = 4;
inline constexpr unsigned int gsc_uiCea861LastContentOffset = 126;
inline constexpr unsigned int gsc_uiCea861ChecksumOffset = CEdidUtils::msc_uiChecksumOffset;

// Flags byte.
inline constexpr unsigned int gsc_uiCea861BasicAudioFlag = 0x40;
inline constexpr unsigned int gsc_uiCea861YuvFlags = 0x30; // YCbCr 4:4:4 and 4:2:2

// Data block header: tag in bits 7 to 5, payload length in bits 4 to 0.
inline constexpr unsigned int gsc_uiCea861TagShift = 5;
inline constexpr unsigned int gsc_uiCea861LengthMask = 0x1F;
inline constexpr unsigned int gsc_uiCea861MostPayload = gsc_uiCea861LengthMask;

// Data blocks exist from this revision on.
inline constexpr unsigned int gsc_uiCea861DataBlocksRevision = 3;

// Goes from data block to data block, each lying whole in front of the checksum. This is the only place that reads
// headers and holds their bounds: the walk starts at byte 4, a block must begin before byte 2's offset, may end behind
// it, and one that would run past byte 126 ends the walk unread. Nothing is found below revision 3.
class CEdidExtBlockCEA861::CDataBlockWalk
{
public:
    explicit CDataBlockWalk(const CEdidExtBlockCEA861& oBlock)
        : m_pui8Raw(oBlock.m_aui8Raw.GetData()), m_uiEnd(oBlock.GetDataBlocksEnd())
    {
    }

    // Each goes to the next block, of any tag or of the tag given, and returns 0 at the end of the walk.
    int Next()
    {
        if (m_uiNext >= m_uiEnd || m_uiNext > gsc_uiCea861LastContentOffset)
        {
            return 0;
        }
        const unsigned int uiHeader = m_pui8Raw[m_uiNext];
        const unsigned int uiLength = uiHeader & gsc_uiCea861LengthMask;
        if (uiLength > gsc_uiCea861LastContentOffset - m_uiNext)
        {
            return Stop();
        }
        m_uiTag = uiHeader >> gsc_uiCea861TagShift;
        m_uiOffset = m_uiNext + 1;
        m_uiLength = uiLength;
        m_uiNext = m_uiOffset + uiLength;
        return 1;
    }

    int Next(ECea861_DataBlockTags eTag)
    {
        while (Next())
        {
            if (m_uiTag == eTag)
            {
                return 1;
            }
        }
        return 0;
    }

    // Offset and length then leave the extended tag out. A block without room for its extended tag ends the walk.
    int Next(ECea861_DataBlockExtTags eExtTag)
    {
        while (Next(eCea861Tag_Extended))
        {
            if (m_uiLength == 0)
            {
                return Stop();
            }
            if (m_pui8Raw[m_uiOffset] == eExtTag)
            {
                ++m_uiOffset;
                --m_uiLength;
                return 1;
            }
        }
        return 0;
    }

    unsigned int GetOffset() const { return m_uiOffset; } // of the payload, from the start of the block
    unsigned int GetLength() const { return m_uiLength; } // of the payload, in bytes
    unsigned char GetByte(unsigned int uiPosition) const { return m_pui8Raw[m_uiOffset + uiPosition]; }

    // Once Next has given 0: non-zero when the last block ended exactly where the descriptors begin.
    int IsEndExact() const { return m_uiNext == m_uiEnd; }

private:
    int Stop()
    {
        m_uiNext = msc_uiStopped;
        return 0;
    }

    static constexpr unsigned int msc_uiStopped = ~0U; // above whatever byte 2 can hold

    const unsigned char* m_pui8Raw;
    unsigned int m_uiEnd;
    unsigned int m_uiNext = gsc_uiCea861DataBlocksOffset; // of the header that Next looks at
    unsigned int m_uiTag = 0;
    unsigned int m_uiOffset = 0;
    unsigned int m_uiLength = 0;
};

// Fills a list anew with one allocation at most: sizes it once for as many entries as there can be, and cuts it to
// those that came when the object goes.
template <class TYPE>
class CListFill
{
public:
    CListFill(CMArray<TYPE, const TYPE&>& aoList, unsigned int uiMost) : m_aoList(aoList)
    {
        m_aoList.SetCount(uiMost, -1);
    }
    ~CListFill() { m_aoList.SetCount(m_uiCount, -1); }
    CListFill(const CListFill&) = delete;
    CListFill& operator=(const CListFill&) = delete;

    void Add(const TYPE& oEntry) { m_aoList.GetData()[m_uiCount++] = oEntry; }
    unsigned int GetCount() const { return m_uiCount; }
    const TYPE& GetAt(unsigned int uiIndex) const { return m_aoList.GetData()[uiIndex]; }

private:
    CMArray<TYPE, const TYPE&>& m_aoList;
    unsigned int m_uiCount = 0;
};

// Puts the bytes of a block back when an edit does not come to its end: the views of HDMI vendor blocks take memory,
// and an edit that has changed one data block may not get it for the next.
class CCea861Undo
{
public:
    // The bytes of a whole block; null, those of an empty one, does nothing.
    explicit CCea861Undo(unsigned char* pui8Raw) : m_pui8Raw(pui8Raw)
    {
        if (m_pui8Raw != nullptr)
        {
            ZorTools_memcpy(m_aui8Before, m_pui8Raw, sizeof(m_aui8Before));
        }
    }
    ~CCea861Undo()
    {
        if (!m_bComplete && m_pui8Raw != nullptr)
        {
            ZorTools_memcpy(m_pui8Raw, m_aui8Before, sizeof(m_aui8Before));
        }
    }
    CCea861Undo(const CCea861Undo&) = delete;
    CCea861Undo& operator=(const CCea861Undo&) = delete;

    void Complete() { m_bComplete = true; }

private:
    unsigned char* m_pui8Raw;
    unsigned char m_aui8Before[gsc_uiCea861Size];
    bool m_bComplete = false;
};
