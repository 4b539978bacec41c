// Where one EDID of several ends.

#include "ZorEdidImages.h"

#include <string.h>

#include "EdidBase.h"
#include "Standards/ExtensionBlocks.h"

using ZorStandards::gsc_uiBlockSize;

namespace ZorImages
{
namespace
{
bool HasHeader(size_t uiSize, const unsigned char* pui8Bytes)
{
    return uiSize >= sizeof(EDID_V1_HEADER) && memcmp(pui8Bytes, EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) == 0;
}

// Among the blocks that an EDID counts, a header may be that of a damaged extension block, and a monitor that cannot
// address the block asked for answers with its first one. Neither is another EDID: that has a right checksum, and
// differs from the base block of the EDID that counts it.
bool IsOtherBaseBlock(size_t uiSize, const unsigned char* pui8Block, const unsigned char* pui8Base)
{
    return uiSize >= gsc_uiBlockSize && CEdidUtils::Is8BitsChecksumValid(gsc_uiBlockSize, pui8Block) != 0 &&
           memcmp(pui8Block, pui8Base, gsc_uiBlockSize) != 0;
}
} // namespace

size_t FindImageEnd(size_t uiSize, const unsigned char* pui8Bytes, size_t uiBegin)
{
    const unsigned char* const pui8Base = pui8Bytes + uiBegin;
    const size_t uiLeft = uiSize - uiBegin;
    if (!HasHeader(uiLeft, pui8Base))
    {
        return uiSize;
    }
    const size_t uiCounted =
        (1 + ZorStandards::CountExtensions(pui8Base, static_cast<unsigned int>(uiLeft))) * gsc_uiBlockSize;
    for (size_t i = gsc_uiBlockSize; i < uiLeft; i += gsc_uiBlockSize)
    {
        const unsigned char* const pui8Block = pui8Base + i;
        if (HasHeader(uiLeft - i, pui8Block) && (i >= uiCounted || IsOtherBaseBlock(uiLeft - i, pui8Block, pui8Base)))
        {
            return uiBegin + i;
        }
    }
    return uiSize;
}
} // namespace ZorImages
