// Finding things in the bytes of a CTA-861 block, making room in them and closing gaps. What the bytes mean is in
// EdidExtBlockCEA861Video.cpp and EdidExtBlockCEA861Audio.cpp.

#include "Cea861Bytes.h"

#include "EdidUtils.h"
#include "ZorTools.h"

using namespace ZorStandards;

namespace ZorCore
{
namespace
{
constexpr bool IsRangeInside(unsigned int uiStart, unsigned int uiLength, unsigned int uiSize)
{
    return uiStart <= uiSize && uiLength <= uiSize - uiStart; // a sum could wrap, a difference cannot
}
} // namespace

// ---- Reading ----

SPayload CCea861Bytes::FindDataBlock(const SDataBlockKind& oKind, unsigned int uiIndex) const
{
    CDataBlockWalk oWalk = Walk();
    for (unsigned int i = 0; oWalk.Next(oKind); ++i)
    {
        if (i == uiIndex)
        {
            return oWalk.GetPayload();
        }
    }
    return { 0, 0 };
}

unsigned int CCea861Bytes::CountDataBlocks(const SDataBlockKind& oKind) const
{
    unsigned int uiCount = 0;
    for (CDataBlockWalk oWalk = Walk(); oWalk.Next(oKind);)
    {
        ++uiCount;
    }
    return uiCount;
}

unsigned int CCea861Bytes::GetDetailedOffset(unsigned int uiIndex) const
{
    const unsigned int uiStart = GetDetailedStart();
    if (uiStart == 0 || uiStart > gsc_uiChecksumOffset ||
        uiIndex >= (gsc_uiChecksumOffset - uiStart) / gsc_uiDetailedSize)
    {
        return 0;
    }
    const unsigned int uiOffset = uiStart + gsc_uiDetailedSize * uiIndex;
    return Descriptors::HasPixelClock(m_pui8Block + uiOffset) ? uiOffset : 0;
}

unsigned int CCea861Bytes::CountDetailed() const
{
    unsigned int uiCount = 0;
    while (GetDetailedOffset(uiCount) != 0)
    {
        ++uiCount;
    }
    return uiCount;
}

unsigned int CCea861Bytes::GetContentEnd() const { return GetDetailedStart() + gsc_uiDetailedSize * CountDetailed(); }

// ---- Editing ----

bool CCea861Editor::RemoveRange(unsigned int uiStart, unsigned int uiLength)
{
    if (!IsRangeInside(uiStart, uiLength, GetSize()))
    {
        return false;
    }
    if (uiLength == 0)
    {
        return true;
    }
    const unsigned int uiEnd = uiStart + uiLength;
    if (uiEnd < gsc_uiChecksumOffset)
    {
        ZorTools_memmove(m_pui8Writable + uiStart, m_pui8Writable + uiEnd, gsc_uiChecksumOffset - uiEnd);
    }
    return ZeroRange(gsc_uiChecksumOffset - uiLength, uiLength); // false for all 128 bytes: the checksum is not content
}

bool CCea861Editor::ZeroRange(unsigned int uiStart, unsigned int uiLength)
{
    if (!IsRangeInside(uiStart, uiLength, GetSize()))
    {
        return false;
    }
    if (uiLength != 0)
    {
        ZorTools_memset(m_pui8Writable + uiStart, 0, uiLength);
    }
    return true;
}

// Moves the content from uiStart on up and zeroes the gap. The last uiLength bytes in front of the checksum are lost,
// so the caller makes sure that they are free.
void CCea861Editor::InsertRange(unsigned int uiStart, unsigned int uiLength)
{
    unsigned char* pui8Start = m_pui8Writable + uiStart;
    ZorTools_memmove(pui8Start + uiLength, pui8Start, gsc_uiChecksumOffset - uiStart - uiLength);
    ZeroRange(uiStart, uiLength);
}

unsigned int CCea861Editor::OpenDataBlock(unsigned int uiTag, unsigned int uiLength)
{
    const unsigned int uiSize = gsc_uiHeaderSize + uiLength;
    const unsigned int uiStart = GetDetailedStart();
    const unsigned int uiContentEnd = GetContentEnd();
    if (uiStart < gsc_uiDataBlocksOffset || uiContentEnd > gsc_uiLastContentOffset - uiSize)
    {
        return 0;
    }
    if (uiContentEnd > uiStart)
    {
        InsertRange(uiStart, uiSize);
    }
    gsc_oHeaderTag.Write(m_pui8Writable + uiStart, uiTag);
    gsc_oHeaderLength.Write(m_pui8Writable + uiStart, uiLength);
    m_pui8Writable[gsc_uiDetailedStartOffset] = LowByte(uiStart + uiSize);
    return uiStart + gsc_uiHeaderSize;
}

unsigned int CCea861Editor::GrowDataBlock(const SPayload& oBlock, unsigned int uiBy)
{
    const unsigned int uiEnd = oBlock.m_uiOffset + oBlock.m_uiLength; // may be past byte 2 and the descriptors
    if (GetContentEnd() > gsc_uiLastContentOffset - uiBy || uiEnd + uiBy > gsc_uiChecksumOffset)
    {
        return 0;
    }
    InsertRange(uiEnd, uiBy);
    m_pui8Writable[gsc_uiDetailedStartOffset] = LowByte(GetDetailedStart() + uiBy);
    gsc_oHeaderLength.Write(GetHeaderOf(oBlock), oBlock.m_uiLength + uiBy);
    return uiEnd;
}

void CCea861Editor::ShrinkDataBlock(const SPayload& oBlock, unsigned int uiStart, unsigned int uiBy)
{
    gsc_oHeaderLength.Write(GetHeaderOf(oBlock), oBlock.m_uiLength - uiBy);
    RemoveRange(uiStart, uiBy);
}

void CCea861Editor::RemoveDataBlock(const SPayload& oBlock)
{
    const unsigned int uiSize = gsc_uiHeaderSize + oBlock.m_uiLength;
    RemoveRange(oBlock.m_uiOffset - gsc_uiHeaderSize, uiSize);
    LowerDetailedStart(uiSize);
}

bool CCea861Editor::RemoveDataBlocks(unsigned int uiTag)
{
    const SDataBlockKind oKind = { uiTag, false };
    bool bRemoved = false;
    SPayload oBlock = FindDataBlock(oKind, 0);
    while (oBlock.m_uiOffset != 0)
    {
        RemoveDataBlock(oBlock);
        bRemoved = true;
        oBlock = FindDataBlock(oKind, 0);
    }
    return bRemoved;
}

void CCea861Editor::LowerDetailedStart(unsigned int uiBy)
{
    m_pui8Writable[gsc_uiDetailedStartOffset] = LowByte(GetDetailedStart() - uiBy);
}

void CCea861Editor::SetBasicAudio() { m_pui8Writable[gsc_uiFlagsOffset] = LowByte(GetFlags() | gsc_uiBasicAudioFlag); }

bool CCea861Editor::ClearBasicAudio()
{
    if ((GetFlags() & gsc_uiBasicAudioFlag) == 0)
    {
        return false;
    }
    m_pui8Writable[gsc_uiFlagsOffset] = LowByte(GetFlags() & ~gsc_uiBasicAudioFlag);
    return true;
}

void CCea861Editor::UpdateChecksum() { CEdidUtils::StoreChecksum(GetSize(), m_pui8Writable); }

// ---- Undo ----

CCea861Undo::CCea861Undo(unsigned char* pui8Block) : m_pui8Block(pui8Block)
{
    if (m_pui8Block != nullptr)
    {
        ZorTools_memcpy(m_aui8Before, m_pui8Block, sizeof(m_aui8Before));
    }
}

CCea861Undo::~CCea861Undo()
{
    if (!m_bComplete && m_pui8Block != nullptr)
    {
        ZorTools_memcpy(m_pui8Block, m_aui8Before, sizeof(m_aui8Before));
    }
}
} // namespace ZorCore
