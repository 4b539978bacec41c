// The list of the blocks of an image.

#include "ImageBlocks.h"

#include <string.h>

#include <algorithm>

namespace ZorWrite
{
using namespace ZorStandards;

namespace
{
constexpr unsigned int gsc_uiMapRevision = 3;   // of E-EDID: the one that asks for a block map
constexpr unsigned char gsc_ui8Version2 = 0x20; // of a DisplayID structure

bool IsOverridden(const CImageBytes& aui8Image)
{
    return FindExtensionCount(aui8Image.GetData(), aui8Image.GetCount()) != BaseBlock::gsc_uiExtensionCountOffset;
}

// One byte, and the checksums over it.
void Store(CImageBytes& aui8Image, unsigned int uiBlock, unsigned int uiOffset, unsigned int uiValue)
{
    unsigned char* pui8Block = GetBlock(aui8Image, uiBlock);
    if (pui8Block[uiOffset] != uiValue)
    {
        pui8Block[uiOffset] = LowByte(uiValue);
        StoreBlockChecksums(pui8Block);
    }
}

// Byte 126 is 1 where a data block has the count.
void FollowCount(const CImageBytes& aui8Before, CImageBytes& aui8Image)
{
    constexpr unsigned int uiPlace = BaseBlock::gsc_uiExtensionCountOffset;
    const unsigned int uiExtensions = CountBlocks(aui8Image) - 1;
    const bool bBefore = IsOverridden(aui8Before);
    Store(aui8Image, 0, uiPlace, bBefore ? std::min<unsigned int>(aui8Before[uiPlace], uiExtensions) : uiExtensions);
    if (!IsOverridden(aui8Image))
    {
        Store(aui8Image, 0, uiPlace, uiExtensions);
        return;
    }
    if (!bBefore)
    {
        Store(aui8Image, 0, uiPlace, 1);
    }
    const unsigned int uiCount = FindExtensionCount(aui8Image.GetData(), aui8Image.GetCount());
    Store(aui8Image, uiCount / gsc_uiBlockSize, uiCount % gsc_uiBlockSize, uiExtensions);
}

void FollowBlockMaps(CImageBytes& aui8Image)
{
    const unsigned int uiBlocks = CountBlocks(aui8Image);
    for (const unsigned int uiMap : gsc_auiBlockMapPlaces)
    {
        for (unsigned int i = 1; uiMap < uiBlocks && i < gsc_uiChecksumOffset; ++i)
        {
            if (GetBlock(aui8Image, uiMap)[0] == gsc_uiBlockMapTag)
            {
                Store(aui8Image, uiMap, i, uiMap + i < uiBlocks ? GetBlock(aui8Image, uiMap + i)[0] : 0U);
            }
        }
    }
}

// The first DisplayID section after the block uiBlock; the number of blocks for none.
unsigned int FindSection(const CImageBytes& aui8Image, unsigned int uiBlock)
{
    while (++uiBlock < CountBlocks(aui8Image) && GetBlock(aui8Image, uiBlock)[0] != gsc_uiDisplayIdTag)
    {
    }
    return uiBlock;
}

unsigned int CountSections(const CImageBytes& aui8Image)
{
    unsigned int uiCount = 0;
    for (unsigned int i = FindSection(aui8Image, 0); i < CountBlocks(aui8Image); i = FindSection(aui8Image, i))
    {
        ++uiCount;
    }
    return uiCount;
}

// The first section says what the product is, and counts the others. One that is not the first any more says it no
// longer.
void FollowSections(const CImageBytes& aui8Before, CImageBytes& aui8Image)
{
    const unsigned int uiFirst = FindSection(aui8Image, 0);
    const unsigned int uiFirstBefore = FindSection(aui8Before, 0);
    const unsigned int uiSections = CountSections(aui8Image);
    if (uiSections == 0)
    {
        return;
    }
    if (uiFirstBefore < CountBlocks(aui8Before))
    {
        const unsigned char* pui8First = GetBlock(aui8Before, uiFirstBefore);
        if (uiSections == CountSections(aui8Before) &&
            memcmp(GetBlock(aui8Image, uiFirst), pui8First, gsc_uiBlockSize) == 0)
        {
            return; // a wrong count stays
        }
        for (unsigned int i = FindSection(aui8Image, uiFirst); i < CountBlocks(aui8Image);
             i = FindSection(aui8Image, i))
        {
            if (memcmp(GetBlock(aui8Image, i), pui8First, gsc_uiBlockSize) == 0)
            {
                Store(aui8Image, i, DisplayId::gsc_uiProductTypeOffset, 0);
                Store(aui8Image, i, DisplayId::gsc_uiExtensionCountOffset, 0);
            }
        }
        Store(aui8Image, uiFirst, DisplayId::gsc_uiProductTypeOffset, pui8First[DisplayId::gsc_uiProductTypeOffset]);
    }
    Store(aui8Image, uiFirst, DisplayId::gsc_uiExtensionCountOffset, uiSections - 1);
}
} // namespace

bool IsCounted(const CImageBytes& aui8Image)
{
    return aui8Image.GetCount() == gsc_uiBlockSize * (1 + CountExtensions(aui8Image.GetData(), aui8Image.GetCount()));
}

void InsertBlock(CImageBytes& aui8Image, unsigned int uiBlock, const unsigned char* pui8Block)
{
    const unsigned int uiSize = aui8Image.GetCount();
    aui8Image.SetCount(uiSize + gsc_uiBlockSize, -1);
    if (aui8Image.GetCount() == uiSize)
    {
        return; // out of memory
    }
    const unsigned int uiOffset = uiBlock * gsc_uiBlockSize;
    memmove(aui8Image.GetData() + uiOffset + gsc_uiBlockSize, aui8Image.GetData() + uiOffset, uiSize - uiOffset);
    memcpy(aui8Image.GetData() + uiOffset, pui8Block, gsc_uiBlockSize);
}

void RemoveBlock(CImageBytes& aui8Image, unsigned int uiBlock)
{
    const unsigned int uiNext = (uiBlock + 1) * gsc_uiBlockSize;
    memmove(aui8Image.GetData() + uiNext - gsc_uiBlockSize, aui8Image.GetData() + uiNext,
            aui8Image.GetCount() - uiNext);
    aui8Image.SetCount(aui8Image.GetCount() - gsc_uiBlockSize, -1);
}

unsigned int GetSectionVersion(const CImageBytes& aui8Image)
{
    const unsigned int uiFirst = FindSection(aui8Image, 0);
    return uiFirst < CountBlocks(aui8Image) &&
                   DisplayId::GetMajorVersion(GetBlock(aui8Image, uiFirst)[DisplayId::gsc_uiVersionOffset]) >= 2
               ? 2
               : 1;
}

void MakeBlock(unsigned int uiTag, unsigned int uiVersion, const CImageBytes& aui8Image, unsigned char* pui8Block)
{
    constexpr unsigned char ui8StandaloneDisplay = 3; // product type of version 1
    constexpr unsigned char ui8GenericDisplay = 2;    // primary use case of version 2
    memset(pui8Block, 0, gsc_uiBlockSize);
    pui8Block[0] = LowByte(uiTag);
    if (uiTag == gsc_uiCtaTag)
    {
        pui8Block[Cta::gsc_uiRevisionOffset] = Cta::gsc_uiHighestRevision;
        pui8Block[Cta::gsc_uiDetailedStartOffset] = Cta::gsc_uiDataBlocksOffset;
        for (unsigned int i = CountBlocks(aui8Image) - 1; i > 0; --i) // flags and natives are those of the first one
        {
            const unsigned char* pui8Other = GetBlock(aui8Image, i);
            pui8Block[Cta::gsc_uiFlagsOffset] =
                pui8Other[0] == gsc_uiCtaTag ? pui8Other[Cta::gsc_uiFlagsOffset] : pui8Block[Cta::gsc_uiFlagsOffset];
        }
    }
    else if (uiTag == gsc_uiDisplayIdTag)
    {
        const unsigned int uiFirst = FindSection(aui8Image, 0);
        const bool bFirst = uiFirst == CountBlocks(aui8Image);
        const unsigned char ui8Version = uiVersion == 1 ? DisplayId::gsc_uiHighestVersion : gsc_ui8Version2;
        const unsigned char ui8Type = uiVersion == 1 ? ui8StandaloneDisplay : ui8GenericDisplay;
        const bool bOwn = !bFirst && uiVersion == GetSectionVersion(aui8Image);
        pui8Block[DisplayId::gsc_uiVersionOffset] =
            bOwn ? GetBlock(aui8Image, uiFirst)[DisplayId::gsc_uiVersionOffset] : ui8Version;
        pui8Block[DisplayId::gsc_uiProductTypeOffset] = bFirst ? ui8Type : 0;
    }
    StoreBlockChecksums(pui8Block);
}

unsigned int AddBlockMap(CImageBytes& aui8Image)
{
    if (BaseBlock::ReadRevision(aui8Image.GetData()) != gsc_uiMapRevision || CountBlocks(aui8Image) != 3 ||
        GetBlock(aui8Image, 1)[0] == gsc_uiBlockMapTag || GetBlock(aui8Image, 2)[0] == gsc_uiBlockMapTag ||
        IsOverridden(aui8Image))
    {
        return 0;
    }
    unsigned char aui8Map[gsc_uiBlockSize];
    MakeBlock(gsc_uiBlockMapTag, 0, aui8Image, aui8Map);
    InsertBlock(aui8Image, 1, aui8Map);
    return 1;
}

unsigned int RemoveBlockMap(CImageBytes& aui8Image)
{
    if (BaseBlock::ReadRevision(aui8Image.GetData()) != gsc_uiMapRevision || CountBlocks(aui8Image) > 3 ||
        CountBlocks(aui8Image) < 2 || GetBlock(aui8Image, 1)[0] != gsc_uiBlockMapTag)
    {
        return 0;
    }
    RemoveBlock(aui8Image, 1);
    return 1;
}

void FollowBlocks(const CImageBytes& aui8Before, bool bBlocks, CImageBytes& aui8Image)
{
    FollowCount(aui8Before, aui8Image);
    if (bBlocks)
    {
        FollowBlockMaps(aui8Image);
        FollowSections(aui8Before, aui8Image);
    }
}

void ChangeNatives(CImageBytes& aui8Image, unsigned int uiNumber, int iChange)
{
    for (unsigned int i = 1; i < CountBlocks(aui8Image); ++i)
    {
        const unsigned char* pui8Block = GetBlock(aui8Image, i);
        const unsigned int uiNatives = Cta::gsc_oNativeCount.Read(pui8Block);
        if (pui8Block[0] == gsc_uiCtaTag && pui8Block[Cta::gsc_uiRevisionOffset] >= Cta::gsc_uiNativeCountRevision &&
            uiNumber < uiNatives && (iChange < 0 || uiNatives < Cta::gsc_oNativeCount.GetMost()))
        {
            Store(aui8Image, i, Cta::gsc_uiFlagsOffset,
                  pui8Block[Cta::gsc_uiFlagsOffset] + static_cast<unsigned int>(iChange));
        }
    }
}

unsigned int CountDetailedAhead(const CImageBytes& aui8Image, unsigned int uiBlock)
{
    unsigned int uiCount = 0;
    for (unsigned int i = 0; i < uiBlock; ++i)
    {
        CBlockParts oParts;
        oParts.Read(GetBlock(aui8Image, i), i == 0);
        const CPieces& aoPieces = oParts.Get(i == 0 ? eList_Descriptors : eList_Detailed);
        for (unsigned int j = 0; j < aoPieces.GetCount(); ++j)
        {
            uiCount += IsTiming(aoPieces[j]) ? 1U : 0U;
        }
    }
    return uiCount;
}
} // namespace ZorWrite
