// Fuzz target: the first byte says in which order objects of the interface for C are freed and what is edited, the rest
// is an image in any state. Every function is called, with null, beyond each list and into short buffers, too.

#include "FuzzSupport.h"
#include "WalkInterface.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    const unsigned int uiOrder = uiSize != 0 ? pui8Data[0] : 0U;
    const CBytes aui8Input(pui8Data + (uiSize != 0 ? 1 : 0), pui8Data + uiSize);
    const CBytes aui8Image = uiOrder % 2 == 0 && uiSize > 1 ? RepairImage(aui8Input) : aui8Input;
    const char* const pszBroken = walk_interface(CopyToHeap(aui8Image).get(), aui8Image.size(), uiOrder * 257);
    Require(pszBroken == nullptr, pszBroken);
    return 0;
}
