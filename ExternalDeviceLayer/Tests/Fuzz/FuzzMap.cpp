// Fuzz target: the input is an EDID image in any state; its map says each bit once.

#include "FuzzSupport.h"
#include "MapCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    // Every other image gets its checksums repaired, so that the classes take its blocks and number their timings.
    const CBytes aui8Input(pui8Data, pui8Data + uiSize);
    const CBytes aui8Image = uiSize % 2 == 0 ? RepairImage(aui8Input) : aui8Input;
    CZorEdidMap oMap;
    const int iRead = oMap.Read(static_cast<unsigned int>(aui8Image.size()), CopyToHeap(aui8Image).get());
    Require((iRead != 0) == !aui8Image.empty(), "any bytes are read");
    const std::string sBroken = CheckMap(oMap);
    Require(sBroken.empty(), sBroken.c_str());
    return 0;
}
