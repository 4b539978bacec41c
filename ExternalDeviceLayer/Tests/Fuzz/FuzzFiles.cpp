// Fuzz target: the input as a raw and as a text EDID file, through real files; descriptors come back. Memory that does
// not is a finding of the leak check.

#include <string.h>

#include "FuzzSupport.h"
#include "TemporaryFile.h"
#include "ZorEdidUtils.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    for (const bool bRaw : { true, false })
    {
        const CTemporaryFile oFile(bRaw ? ".bin" : ".dat", pui8Data, uiSize);
        const int iDescriptor = GetNextDescriptor();
        CZorEdidUtils::CByteArray aui8Loaded;
        aui8Loaded.Add(0x55); // is replaced
        const bool bLoaded = CZorEdidUtils::ExtractEdidFromFile(CMString(oFile.GetPath()), aui8Loaded) != 0;
        Require(GetNextDescriptor() == iDescriptor, "a file is closed");
        Require(!bRaw || bLoaded == (uiSize != 0), "a raw file loads unless it is empty");
        Require(!bRaw || !bLoaded ||
                    (aui8Loaded.GetCount() == uiSize && memcmp(aui8Loaded.GetData(), pui8Data, uiSize) == 0),
                "a raw file is its bytes");
        Require(!bLoaded || bRaw || aui8Loaded.GetCount() % gsc_uiBlockSize == 0, "a text file gives whole blocks");
    }
    return 0;
}
