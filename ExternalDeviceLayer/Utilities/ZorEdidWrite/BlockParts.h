// A block as lists of its parts, and the block that such lists make: what an edit adds, takes out or moves is an
// element of a list. Private to the library and the command.

#pragma once

#include "Standards/ExtensionBlocks.h"
#include "Standards/Modes.h"
#include "ZorMFCTypes.h"

namespace ZorWrite
{
struct SPiece
{
    unsigned int m_uiOffset; // where it was read, from the first byte of the block; 0 for a new one
    unsigned int m_uiSize;
    unsigned char m_aui8Bytes[ZorStandards::gsc_uiBlockSize];
};
using CPieces = CMArray<SPiece, const SPiece&>;

SPiece MakePiece(const unsigned char* pui8Bytes, unsigned int uiSize, unsigned int uiOffset = 0);
void InsertPiece(CPieces& aoPieces, unsigned int uiPlace, const SPiece& oPiece);
void RemovePiece(CPieces& aoPieces, unsigned int uiPlace);

// The items of a data block: as many of m_uiSize bytes as fit from m_uiFirst on.
struct SItems
{
    unsigned int m_uiFirst;
    unsigned int m_uiSize; // 0: the data block is not a list of items

    unsigned int Count(const SPiece& oDataBlock) const
    {
        return m_uiSize != 0 && oDataBlock.m_uiSize >= m_uiFirst ? (oDataBlock.m_uiSize - m_uiFirst) / m_uiSize : 0;
    }
};
SItems FindItems(const unsigned char* pui8DataBlock, unsigned int uiSize, bool bDisplayId);

// The length of a data block in its header. False when the header cannot hold it.
bool StoreDataBlockLength(SPiece& oDataBlock, bool bDisplayId);

enum EList : unsigned int
{
    eList_Standards, // eight, of which some are unused
    eList_Descriptors,
    eList_DataBlocks,
    eList_Detailed,
    eLists
};

enum EBlock : unsigned int
{
    eBlock_Base,
    eBlock_Cta,
    eBlock_DisplayId,
    eBlock_Other
};

class CBlockParts
{
public:
    // Takes the 128 bytes apart. Empty, or the reason why they cannot be put together again.
    CMString Read(const unsigned char* pui8Block, bool bBase);

    EBlock GetKind() const { return m_eKind; }
    unsigned int GetVersion() const; // of a DisplayID structure
    CPieces& Get(EList eList) { return m_aaoLists[eList]; }
    const CPieces& Get(EList eList) const { return m_aaoLists[eList]; }

    // Puts the lists together, with lengths, places and checksums. The result is the number of bytes that lack; with
    // any, pui8Block stays as it is.
    unsigned int Write(unsigned char* pui8Block) const;

private:
    CMString ReadBase();
    CMString ReadCta();
    CMString ReadDisplayId();
    void AddPieces(EList eList, unsigned int uiFirst, unsigned int uiSize, unsigned int uiCount);
    unsigned int WriteCta(unsigned char* pui8Block) const;
    unsigned int WriteDisplayId(unsigned char* pui8Block) const;
    unsigned int FindInUse(unsigned int uiFirst) const;

    unsigned char m_aui8Block[ZorStandards::gsc_uiBlockSize] = {};
    EBlock m_eKind = eBlock_Other;
    CPieces m_aaoLists[eLists];
    unsigned int m_uiEnd = 0; // of the parts at reading
};

// The checksum of a block, after that of a DisplayID section in it.
void StoreBlockChecksums(unsigned char* pui8Block);

// Whether it is there to be used.
inline bool IsUnusedSlot(const SPiece& oPiece)
{
    return ZorStandards::IsUnusedStandard({ oPiece.m_aui8Bytes, oPiece.m_uiSize });
}
inline bool IsDummy(const SPiece& oPiece)
{
    return ZorStandards::Descriptors::HasTag(oPiece.m_aui8Bytes, ZorStandards::Descriptors::gsc_ui8TagEmpty);
}
inline bool IsTiming(const SPiece& oPiece) { return ZorStandards::Descriptors::HasPixelClock(oPiece.m_aui8Bytes); }
} // namespace ZorWrite
