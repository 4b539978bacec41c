// What the fuzz targets, which are one source each, share: a quiet start, repairing images, stopping at a broken
// promise.

#pragma once

#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include "InputReader.h"
#include "OsServices.h"
#include "TestBytes.h"

// Assertion lines, and what the text loader prints, are the normal answer to hostile bytes; they would drown the
// findings.
extern "C" int LLVMFuzzerInitialize(int* /*piCount*/, char*** /*pppszArguments*/)
{
    OsServices::SetMsgLevel(0, 0, 0);
    return freopen("/dev/null", "w", stdout) != nullptr ? 0 : 1;
}

// A finding that no sanitizer would see.
inline void Require(bool bHolds, const char* pszPromise)
{
    if (!bHolds)
    {
        fprintf(stderr, "broken promise: %s\n", pszPromise);
        abort();
    }
}

// Makes an image load as far as it can: whole blocks, the header, the section checksums of DisplayID blocks, the block
// checksums. Mutations alone would hardly ever get past those.
inline CBytes RepairImage(CBytes aui8Image)
{
    aui8Image.resize(std::max(aui8Image.size(), gsc_uiBlockSize) / gsc_uiBlockSize * gsc_uiBlockSize);
    const CBytes aui8Header = ParseBytes("00 FF*6 00");
    std::copy(aui8Header.begin(), aui8Header.end(), aui8Image.begin());
    for (size_t uiOffset = gsc_uiBlockSize; uiOffset + gsc_uiBlockSize <= aui8Image.size(); uiOffset += gsc_uiBlockSize)
    {
        if (aui8Image[uiOffset] == 0x70)
        {
            FixSectionSum(aui8Image, uiOffset);
        }
    }
    return FixChecksums(aui8Image);
}
