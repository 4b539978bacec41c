// The blocks of an image as a list, and what follows from which blocks there are: their count, their tags in a block
// map, the count and the type of DisplayID sections. Private to this folder.

#pragma once

#include "BlockParts.h"

namespace ZorWrite
{
using CImageBytes = CMArray<unsigned char, const unsigned char&>;

inline unsigned int CountBlocks(const CImageBytes& aui8Image)
{
    return aui8Image.GetCount() / ZorStandards::gsc_uiBlockSize;
}
inline const unsigned char* GetBlock(const CImageBytes& aui8Image, unsigned int uiBlock)
{
    return aui8Image.GetData() + uiBlock * ZorStandards::gsc_uiBlockSize;
}
inline unsigned char* GetBlock(CImageBytes& aui8Image, unsigned int uiBlock)
{
    return aui8Image.GetData() + uiBlock * ZorStandards::gsc_uiBlockSize;
}

// Whether the image ends where its count of blocks says.
bool IsCounted(const CImageBytes& aui8Image);

void InsertBlock(CImageBytes& aui8Image, unsigned int uiBlock, const unsigned char* pui8Block);
void RemoveBlock(CImageBytes& aui8Image, unsigned int uiBlock);

// The version of the DisplayID structures of an image, 1 or 2: that of the first one, 1 without one.
unsigned int GetSectionVersion(const CImageBytes& aui8Image);

// An empty extension block of a tag, 128 bytes with their checksum. uiVersion: of a DisplayID structure, 1 or 2; where
// the image has one of it, also the revision is that of the first one.
void MakeBlock(unsigned int uiTag, unsigned int uiVersion, const CImageBytes& aui8Image, unsigned char* pui8Block);

// A block map comes with the second extension block of E-EDID 1.3, and goes with it. Gives the number of the block map
// that was added or removed, 0 for none.
unsigned int AddBlockMap(CImageBytes& aui8Image);
unsigned int RemoveBlockMap(CImageBytes& aui8Image);

// Makes right what follows from the blocks, with the checksums of the blocks in which anything changes. bBlocks: they
// are others, or in another order.
void FollowBlocks(const CImageBytes& aui8Before, bool bBlocks, CImageBytes& aui8Image);

// Adds iChange to the number of native detailed timings of each CTA-861 block that counts the detailed timing
// uiNumber, from 0 over all blocks, as native.
void ChangeNatives(CImageBytes& aui8Image, unsigned int uiNumber, int iChange);
// Detailed timings of the base block and the CTA-861 blocks before this one.
unsigned int CountDetailedAhead(const CImageBytes& aui8Image, unsigned int uiBlock);
} // namespace ZorWrite
