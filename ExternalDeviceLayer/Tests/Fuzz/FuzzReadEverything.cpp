// Fuzz target: the input is an EDID image; everything that can be asked is asked, and what is written back is the same.

#include "FuzzSupport.h"
#include "ReadEverything.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* pui8Data, size_t uiSize, size_t uiMaxSize);

// All but one mutation in eight get their checksums repaired.
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* pui8Data, size_t uiSize, size_t uiMaxSize, unsigned int uiSeed)
{
    size_t uiNewSize = LLVMFuzzerMutate(pui8Data, uiSize, uiMaxSize);
    if (uiSeed % 8 != 0)
    {
        uiNewSize -= uiNewSize >= gsc_uiBlockSize ? uiNewSize % gsc_uiBlockSize : 0;
        const CBytes aui8Repaired = RepairImage(CBytes(pui8Data, pui8Data + uiNewSize));
        std::copy(aui8Repaired.begin(), aui8Repaired.end(), pui8Data);
    }
    return uiNewSize;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    // Where the last checksum asks for it, data blocks are stripped.
    const unsigned int uiLast = uiSize != 0 ? pui8Data[uiSize - 1] : 0;
    const unsigned int uiStripFlags = uiLast % 8 == 1 ? uiLast : 0;
    CEdid oEdid;
    const int iLoaded = oEdid.SetEdidBuffer(pui8Data, static_cast<unsigned int>(uiSize), uiStripFlags);
    Require(iLoaded != 0 || oEdid.GetSize() == 0, "a refused image leaves an empty object");
    const unsigned long long ullDigest = ReadEverything(oEdid);

    // What is written back loads again. Blocks that were dropped are gone, the others stand in the same order.
    if (oEdid.GetSize() != 0)
    {
        CEdid oAgain;
        Require(LoadExact(oAgain, Serialise(oEdid)) != 0, "written bytes load");
        Require((oAgain == oEdid) != 0, "written bytes give the same EDID");
        // One in sixteen is read again: the same bytes, the same answers.
        Require(uiStripFlags != 0 || ullDigest % 16 != 0 || ReadEverything(oAgain) == ullDigest,
                "the same bytes give the same answers");
    }
    return 0;
}
