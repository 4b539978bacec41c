// Fuzz target: the input is a program over strings, which must do to them what it does to their model.

#include "FuzzSupport.h"
#include "StringProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    const char* pszBroken = StringProgram::Run(pui8Data, uiSize);
    Require(pszBroken == nullptr, pszBroken);
    return 0;
}
