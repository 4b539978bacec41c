// Fuzz target: sizes, clocks and rates; every result is compared with a second computation in 128 bits that wraps by
// hand where the library's steps wrap.

#include "FuzzSupport.h"
#include "NumbersCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    CInput oInput(pui8Data, uiSize);
    CNumbers aui;
    for (unsigned int& uiNumber : aui)
    {
        // Any magnitude is as likely as any other.
        const unsigned int uiShift = oInput.Take(1) % 32;
        uiNumber = oInput.Take(4) >> uiShift;
    }
    const char* pszBroken = CNumbersCheck().Run(aui);
    Require(pszBroken == nullptr, pszBroken);
    return 0;
}
