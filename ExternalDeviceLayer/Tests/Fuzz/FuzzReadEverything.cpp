// Fuzz target: the input is an EDID image; everything that can be asked is asked, and what is written back is the same.

#include <memory>

#include "Edid.h"
#include "FuzzSupport.h"
#include "ReadEverything.h"

namespace
{
constexpr unsigned int gsc_uiRepairOutOf = 8; // one mutation in so many keeps its wrong checksums
constexpr size_t gsc_uiBlockSize = 128;

void LoadAndRead(const uint8_t* pui8Data, size_t uiSize, unsigned int uiStripFlags)
{
    CEdid oEdid;
    const int iLoaded = oEdid.SetEdidBuffer(pui8Data, static_cast<unsigned int>(uiSize), uiStripFlags);
    Require(iLoaded != 0 || oEdid.GetSize() == 0, "a refused image leaves an empty object");
    const unsigned long long ullDigest = ReadEverything(oEdid);

    // What is written back loads again. Blocks that were dropped are gone, the others stand in the same order.
    if (oEdid.GetSize() != 0)
    {
        const auto aui8Bytes = oEdid.GetEdidBuffer();
        CEdid oAgain;
        Require(oAgain.SetEdidBuffer(aui8Bytes.GetData(), aui8Bytes.GetCount(), 0) != 0, "written bytes load");
        Require((oAgain == oEdid) != 0, "written bytes give the same EDID");
        // One in sixteen is read again: the same bytes, the same answers.
        if (uiStripFlags == 0 && ullDigest % 16 == 0)
        {
            Require(ReadEverything(oAgain) == ullDigest, "the same bytes give the same answers");
        }
    }
}
}

extern "C" int LLVMFuzzerInitialize(int* /*piCount*/, char*** /*pppszArguments*/)
{
    SilenceMessages();
    return 0;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* pui8Data, size_t uiSize, size_t uiMaxSize, unsigned int uiSeed)
{
    size_t uiNewSize = LLVMFuzzerMutate(pui8Data, uiSize, uiMaxSize);
    if (uiSeed % gsc_uiRepairOutOf != 0)
    {
        if (uiNewSize >= gsc_uiBlockSize)
        {
            uiNewSize -= uiNewSize % gsc_uiBlockSize;
        }
        RepairImage(pui8Data, uiNewSize);
    }
    return uiNewSize;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    // Where the last checksum asks for it, data blocks are stripped.
    const unsigned int uiLast = uiSize != 0 ? pui8Data[uiSize - 1] : 0;
    LoadAndRead(pui8Data, uiSize, uiLast % 8 == 1 ? uiLast : 0);
    return 0;
}
