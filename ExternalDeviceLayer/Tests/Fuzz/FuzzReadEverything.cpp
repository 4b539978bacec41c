// Fuzz target: the input is an EDID image; everything that can be asked is asked, and what is written back is the same.

#include "FuzzSupport.h"
#include "ReadEverything.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    // All but one input in eight get their checksums repaired. Where the last byte asks for it, data blocks are
    // stripped.
    const CBytes aui8Input(pui8Data, pui8Data + uiSize);
    const unsigned int uiLast = uiSize != 0 ? aui8Input.back() : 0;
    const unsigned int uiStripFlags = uiLast % 8 == 1 ? uiLast : 0;
    CEdid oEdid;
    const int iLoaded = LoadExact(oEdid, uiLast % 8 == 0 ? aui8Input : RepairImage(aui8Input), uiStripFlags);
    Require(iLoaded != 0 || oEdid.GetSize() == 0, "a refused image leaves an empty object");
    const unsigned long long ullDigest = ReadEverything(oEdid);

    // What is written back loads again. Blocks that were dropped are gone, the others are in the same order.
    if (oEdid.GetSize() != 0)
    {
        CEdid oAgain;
        Require(LoadExact(oAgain, Serialise(oEdid)) != 0, "written bytes load");
        Require((oAgain == oEdid) != 0, "written bytes give the same EDID");
        // One in sixteen is read again: the same bytes, the same answers. The number of a block counts the blocks that
        // were dropped before it, so that an image that lost one is compared with its written form, loaded twice.
        if (uiStripFlags == 0 && ullDigest % 16 == 0)
        {
            const unsigned int uiBlocks = oEdid.GetExtensionCount();
            const bool bDropped = uiBlocks != 0 && oEdid.GetExtension(uiBlocks - 1)->GetImageBlock() != uiBlocks;
            CEdid oWritten;
            Require(!bDropped || LoadExact(oWritten, Serialise(oAgain)) != 0, "bytes that were written twice load");
            Require(ReadEverything(oAgain) == (bDropped ? ReadEverything(oWritten) : ullDigest),
                    "the same bytes give the same answers");
        }
    }
    return 0;
}
